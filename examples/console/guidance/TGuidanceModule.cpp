#include "TGuidanceModule.h"

#include "TScreen.h"

#include <QCoreApplication>

TGuidanceModule::TGuidanceModule(TMachine const& machine)
    : m_Canvas(machine)
    , m_FullWindow(&m_Canvas, machine)
    , m_MiniWindow(machine)
{
}

KVN::MorvaneID TGuidanceModule::Id()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{f1d0a3b2-6f7e-4a53-9d55-6a1d2f60c1a1}")));
}

void TGuidanceModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavButton(Id(), QStringLiteral("icon-guidance"), &m_MiniWindow, &m_Canvas, &m_FullWindow,
                            QCoreApplication::translate("TGuidanceModule", "Guidance: map and lines"));
    // The column at the right, where the system tool bar stands, stays free.
    m_Canvas.SetFullWindow(&m_FullWindow, true);
}
