#include "TCameraModule.h"

#include "ModuleIds.h"
#include "PixmapNames.h"
#include "TScreen.h"

#include <QCoreApplication>

TCameraModule::TCameraModule(TMachine const& machine, TCameraXVOverlayManager const* overlays)
    : m_Overlay(overlays)
    , m_Canvas(nullptr)
    , m_FullWindow(&m_Canvas, machine, m_Overlay)
    , m_MiniWindow(machine, m_Overlay)
{
    m_Canvas.SetBackground(PixmapNames::BkgBlackGeneric480x272);
}

KVN::MorvaneID TCameraModule::Id()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_CAMERA]);
}

void TCameraModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavButton(Id(), QStringLiteral("icon-camera"), &m_MiniWindow, &m_Canvas, &m_FullWindow,
                            QCoreApplication::translate("TCameraModule", "Camera behind the machine"));
    // The column at the right, where the system tool bar stands, stays free.
    m_Canvas.SetFullWindow(&m_FullWindow, true);
}
