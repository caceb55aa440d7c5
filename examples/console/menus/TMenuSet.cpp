#include "TMenuSet.h"

#include "TConsoleMenu.h"
#include "TMenuManager.h"
#include "TMenuState.h"

namespace
{
TMMIDef StepTo(TMenuSet::TItem const& item)
{
    return {item.macroName, item.name, false};
}

TElementState Element(TMMIDef const& def, TMenuSet::TItem const& item, TActivationConfig const& config,
                      bool isShortcut)
{
    return {def, config, item.name, item.icon, MENU_CONTROL_PLAIN, true, true, isShortcut};
}

TActivationConfig Opening(TMenuState const& menu)
{
    return {menu.GetMenuID(), ELEMENT_HIDE_NONE};
}
} // namespace

TMenuSet::TMenuSet(TConsoleMenu* console)
    : m_Console(console)
{
}

TMenuSet::~TMenuSet()
{
    for (int const id : qAsConst(m_RootElements))
        m_Console->Root()->RemoveElement(id);
    for (auto const& menu : m_Menus)
        m_Console->Manager()->RemoveMenu(menu->GetMenuID());
}

TMenuState* TMenuSet::MakeMenu(TItem const& item)
{
    m_Menus.push_back(std::make_unique<TMenuState>(item.name));
    TMenuState* const menu = m_Menus.back().get();
    m_Console->Manager()->AddMenu(menu);
    return menu;
}

TMenuSet::TOpened TMenuSet::AddToRoot(TItem const& item, bool isShortcut)
{
    TPlace const place{MakeMenu(item), StepTo(item)};
    int const id = m_Console->AddOpener(Element(place.def, item, Opening(*place.menu), isShortcut));
    m_RootElements.append(id);
    return {place, {m_Console->Root(), id}};
}

TMenuSet::TOpened TMenuSet::AddMenu(TPlace const& place, TItem const& item)
{
    TPlace const inner{MakeMenu(item), place.def + StepTo(item)};
    return {inner, Add(place, item, Opening(*inner.menu))};
}

TMenuElement TMenuSet::Add(TPlace const& place, TItem const& item, TActivationConfig const& config)
{
    return {place.menu, place.menu->AddElement(Element(place.def + StepTo(item), item, config, false))};
}

TMenuElement TMenuSet::AddShortcut(TItem const& item, TActivationConfig const& config)
{
    int const id = m_Console->AddShortcut(Element(StepTo(item), item, config, true));
    m_RootElements.append(id);
    return {m_Console->Root(), id};
}
