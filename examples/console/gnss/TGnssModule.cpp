#include "TGnssModule.h"

#include "PixmapNames.h"
#include "TScreen.h"

#include <QCoreApplication>

TGnssModule::TGnssModule(TMachine const& machine)
    : m_Canvas(nullptr)
    , m_FullWindow(&m_Canvas, machine)
    , m_FixWindow(machine)
    , m_SkyWindow(machine)
{
    m_Canvas.SetBackground(PixmapNames::BkgSysInfo480x272);
}

KVN::MorvaneID TGnssModule::Id()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{a2b4c8d1-90e6-4f27-b1c3-7e5d8f6a3b92}")));
}

void TGnssModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavButton(Id(), QStringLiteral("icon-gnss"),
                            QList<TMiniWindow*>{&m_FixWindow, &m_SkyWindow}, &m_Canvas, &m_FullWindow,
                            QCoreApplication::translate("TGnssModule", "Position and satellites"));
    // The column at the right, where the system tool bar stands, stays free.
    m_Canvas.SetFullWindow(&m_FullWindow, true);
}
