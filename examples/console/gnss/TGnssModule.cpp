#include "TGnssModule.h"

#include "PixmapNames.h"
#include "TConsoleMenu.h"
#include "TScreen.h"

#include <QCoreApplication>

TGnssModule::TGnssModule(TMachine const& machine, TConsoleMenu* menus)
    : m_Canvas(nullptr, *menus->Manager())
    , m_FullWindow(&m_Canvas, machine)
    , m_FixWindow(machine)
    , m_SkyWindow(machine)
    , m_Menu(machine, menus)
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
    m_Canvas.SetFullWindow(&m_FullWindow, false);
}
