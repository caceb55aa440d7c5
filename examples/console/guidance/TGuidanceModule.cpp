#include "TGuidanceModule.h"

#include "TConsoleMenu.h"
#include "TScreen.h"

#include <QCoreApplication>

TGuidanceModule::TGuidanceModule(TMachine* machine, TConsoleMenu* menus)
    : m_Canvas(*machine, *menus->Manager())
    , m_FullWindow(&m_Canvas, *machine)
    , m_MiniWindow(*machine)
    , m_Menu(machine, &m_FullWindow, menus)
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
    m_Canvas.SetFullWindow(&m_FullWindow, false);
}
