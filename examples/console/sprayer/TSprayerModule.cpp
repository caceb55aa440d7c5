#include "TSprayerModule.h"

#include "PixmapNames.h"
#include "TConsoleMenu.h"
#include "TScreen.h"

#include <QCoreApplication>

TSprayerModule::TSprayerModule(TMachine* machine, TConsoleMenu* menus)
    : m_Canvas(nullptr, *menus->Manager())
    , m_FullWindow(&m_Canvas, machine)
    , m_MiniWindow(machine)
    , m_Messages(machine)
    , m_Menu(machine, menus)
{
    m_Canvas.SetBackground(PixmapNames::BkgControllers800x600);
    QObject::connect(&m_FullWindow, &TSprayerFullWindow::DrainRequested, &m_Messages,
                     &TTankMessages::AskToDrain);
    QObject::connect(&m_Menu, &TSprayerMenu::DrainRequested, &m_Messages, &TTankMessages::AskToDrain);
}

KVN::MorvaneID TSprayerModule::Id()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{5c7f0f0e-4b35-4d2e-8d0a-2f3e6b9a7c14}")));
}

void TSprayerModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavButton(
        Id(), QStringLiteral("icon-sprayer"), &m_MiniWindow, &m_Canvas, &m_FullWindow,
        QCoreApplication::translate("TSprayerModule", "Sprayer: sections, tank and rate"));
    m_Canvas.SetFullWindow(&m_FullWindow, false);
}
