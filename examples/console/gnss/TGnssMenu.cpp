#include "TGnssMenu.h"

#include "MainScreen.h"
#include "MenuViews.h"
#include "TGnssModule.h"
#include "TMachine.h"
#include "TScreen.h"
#include "TWindowManager.h"

namespace
{
constexpr int FixWindow = 0;
constexpr int SkyWindow = 1;
} // namespace

TGnssMenu::TGnssMenu(TMachine const& machine, TConsoleMenu* console)
    : m_Machine(machine)
    , m_Menus(console)
    , m_Worker(console, QStringLiteral("position menu"))
{
    m_Judge.SetElements(Build());
    connect(&machine, &TMachine::Moved, this, &TGnssMenu::Look);
    Look();
}

TGnssElements TGnssMenu::Build()
{
    TGnssElements elements;
    auto const position =
        m_Menus.AddToRoot({QStringLiteral("position"), tr("Position"), QStringLiteral("icon-gnss")}, true);
    elements.position = position.opener;
    TActivationConfig const showAll = Call("OnShowFullView", ELEMENT_HIDE_ALL, TActivationConfig::NoArgument);
    elements.quality =
        m_Menus.Add(position.place, {QStringLiteral("fix-quality"), tr("Fix quality"), {}}, showAll);
    auto const satellites = m_Menus.AddMenu(
        position.place, {QStringLiteral("satellites"), tr("Satellites"), QStringLiteral("icon-compass")});
    elements.satellites = satellites.opener;
    m_Menus.Add(satellites.place, {QStringLiteral("sky-plot"), tr("Sky"), {}},
                Call("OnShowMiniWindow", ELEMENT_HIDE_MENU, SkyWindow));
    m_Menus.Add(satellites.place, {QStringLiteral("fix-numbers"), tr("Fix in numbers"), {}},
                Call("OnShowMiniWindow", ELEMENT_HIDE_MENU, FixWindow));
    m_Menus.Add(satellites.place, {QStringLiteral("signals"), tr("Signals"), {}}, showAll);
    return elements;
}

TActivationConfig TGnssMenu::Call(char const* slot, EElementHideMode hideMode, int argument)
{
    return {this, slot, hideMode, argument};
}

// When a whole window of fixes was the same, the next one that is changes nothing: the worker sleeps on.
void TGnssMenu::Look()
{
    TGnssState const state{m_Machine.Fix().quality, m_Machine.Fix().satellitesUsed};
    if (!(state == m_Posted))
        m_SameCount = 0;
    m_Posted = state;
    if (m_SameCount == TGnssJudge::Window)
        return;
    ++m_SameCount;
    m_Worker.Post([this, state] { m_Judge.Take(state); });
}

void TGnssMenu::OnShowFullView()
{
    MenuViews::ShowFullView(TGnssModule::Id());
}

// What is seen already would go or give way to the other one; what lies under another one comes up.
void TGnssMenu::OnShowMiniWindow(int window)
{
    if (!MainScreen)
        return;
    TWindowManager* const views = MainScreen->GetWindowManager();
    int const id = MainScreen->GetNavButtonID(TGnssModule::Id()) + window;
    if (views->GetMiniViewState(id) == MINI_VIEW_HIDDEN || views->IsMiniViewObscured(id))
        views->OnShowMiniView(id);
}
