#include "TMenuManagerPrivate.h"

#include <algorithm>

TMenuManagerPrivate::TMenuManagerPrivate(bool keepsRoot)
    : m_KeepsRoot(keepsRoot)
{
}

bool TMenuManagerPrivate::IsKnown(int menuID) const
{
    return m_States.find(menuID) != m_States.end();
}

bool TMenuManagerPrivate::IsShown(int menuID) const
{
    auto const found = m_States.find(menuID);
    return found != m_States.end() && found->second.isShown;
}

TMenuDisplayState TMenuManagerPrivate::GetState(int menuID) const
{
    auto const found = m_States.find(menuID);
    return found == m_States.end() ? TMenuDisplayState() : found->second;
}

bool TMenuManagerPrivate::TOpenMenu::operator==(TOpenMenu const& other) const
{
    return id == other.id && parentMenuID == other.parentMenuID && parentElementID == other.parentElementID &&
           isForcedShortcut == other.isForcedShortcut;
}

std::vector<TMenuManagerPrivate::TOpenMenu> TMenuManagerPrivate::GetOpenMenus() const
{
    std::vector<TOpenMenu> menus;
    menus.reserve(m_ShownOrder.size());
    for (int const id : m_ShownOrder)
    {
        TMenuDisplayState const& state = m_States.at(id);
        menus.push_back({id, state.parentMenuID, state.parentElementID, state.isForcedShortcut});
    }
    return menus;
}

void TMenuManagerPrivate::AddMenu(int menuID)
{
    TMenuDisplayState state;
    state.isShown = menuID == m_RootMenuID;
    if (state.isShown)
        m_ShownOrder << menuID;
    m_States.emplace(menuID, state);
    ++m_Revision;
}

// It goes before the shortcuts come back, so that its place is free for another one. A closed menu may have
// open children too: shortcuts that came back from it while it closed.
void TMenuManagerPrivate::RemoveMenu(int menuID, Elements const& elements)
{
    int const openBefore = m_ShownOrder.size();
    RecursiveHide(menuID);
    m_States.erase(menuID);
    ++m_Revision;
    if (m_ShownOrder.size() != openBefore)
        EnsureShortcuts(elements);
}

void TMenuManagerPrivate::ShowMenu(int menuID, int parentMenuID, int parentElementID, bool keepOpenChildren,
                                   bool forced)
{
    auto const found = m_States.find(menuID);
    if (found == m_States.end())
        return;
    ++m_Revision;
    HideAllChildren(parentMenuID, !keepOpenChildren);
    auto const parent = m_States.find(parentMenuID);
    if (parent != m_States.end())
        parent->second.children.insert(menuID);
    TMenuDisplayState& state = found->second;
    state.isShown = true;
    state.isClosedByUser = false;
    state.parentMenuID = parentMenuID;
    state.parentElementID = parentElementID;
    state.isForcedShortcut = forced;
    m_ShownOrder.removeAll(menuID);
    m_ShownOrder << menuID;
}

void TMenuManagerPrivate::HideAllChildren(int menuID, bool all)
{
    QSet<int> const children = GetState(menuID).children;
    for (int const child : children)
    {
        TMenuDisplayState const state = GetState(child);
        if (all || state.shortcutIDs.isEmpty() || !state.isForcedShortcut)
            RecursiveHide(child);
    }
}

// A list of what is still to be hidden instead of calls of itself, for menus nested however deep. A menu
// gives its children away before they are hidden: so a circle comes to its end.
void TMenuManagerPrivate::RecursiveHide(int menuID)
{
    QList<int> waiting{menuID};
    while (!waiting.isEmpty())
    {
        int const id = waiting.takeLast();
        auto const found = m_States.find(id);
        if (found == m_States.end())
            continue;
        TMenuDisplayState& state = found->second;
        state.isShown = false;
        state.isForcedShortcut = false;
        waiting += state.children.values();
        state.children.clear();
        TakeOut(id);
    }
}

// It may have been opened from one menu after another, and stand with each of them.
void TMenuManagerPrivate::TakeOut(int menuID)
{
    ++m_Revision;
    for (auto& other : m_States)
        other.second.children.remove(menuID);
    m_ShownOrder.removeAll(menuID);
}

// The menu takes part when the shortcuts come back, and is closed for good only then: where it comes back
// itself the shortcuts beside it give way to it, as they did before, and no other takes its place.
void TMenuManagerPrivate::HideMenu(int menuID, bool byUser, Elements const& elements)
{
    auto const found = m_States.find(menuID);
    if (found == m_States.end())
        return;
    RecursiveHide(menuID);
    EnsureShortcuts(elements);
    found->second.isShown = false;
    TakeOut(menuID);
    found->second.isClosedByUser |= byUser;
}

void TMenuManagerPrivate::HideAll(Elements const& elements)
{
    if (m_KeepsRoot)
    {
        // A menu may have led back to it.
        for (auto& other : m_States)
            other.second.children.remove(m_RootMenuID);
        ++m_Revision;
    }
    HideAllChildren(m_RootMenuID, true);
    // Those that were opened from nowhere are no children of the root.
    QList<int> const shown = m_ShownOrder;
    for (int const id : shown)
    {
        if (id != m_RootMenuID || !m_KeepsRoot)
            RecursiveHide(id);
    }
    EnsureShortcuts(elements);
}

void TMenuManagerPrivate::SetMenusEnabled(bool enabled, bool hide, Elements const& elements)
{
    m_MenusEnabled = enabled;
    if (enabled)
        EnsureShortcuts(elements);
    else if (hide)
        HideAll(elements);
}

void TMenuManagerPrivate::ForceToShortcut(int menuID, Elements const& elements)
{
    auto const found = m_States.find(menuID);
    if (found == m_States.end())
        return;
    ++m_Revision;
    found->second.isForcedShortcut = true;
    found->second.isClosedByUser = false;
    EnsureShortcuts(elements);
}

void TMenuManagerPrivate::EnsureShortcuts(Elements const& elements)
{
    if (!m_MenusEnabled || IsSettled(elements))
        return;
    unsigned const before = m_Revision;
    for (TMenuStateCopy const& menu : elements.Get())
    {
        if (!HasOpenChild(menu))
            EnsureShortcutsOf(menu);
    }
    m_Settled.reset();
    if (m_Revision == before && elements.GetRevision())
        m_Settled.emplace(before, *elements.GetRevision());
}

bool TMenuManagerPrivate::IsSettled(Elements const& elements) const
{
    if (m_Settled && elements.GetRevision() &&
        *m_Settled == std::make_pair(m_Revision, *elements.GetRevision()))
        return true;
    return std::none_of(m_States.begin(), m_States.end(),
                        [](auto const& one) { return MayOpenAsShortcut(one.second); });
}

bool TMenuManagerPrivate::MayOpenAsShortcut(TMenuDisplayState const& state)
{
    return !state.shortcutIDs.isEmpty() && !state.isClosedByUser;
}

// One that stands open as a shortcut does not count: others may join it.
bool TMenuManagerPrivate::HasOpenChild(TMenuStateCopy const& menu) const
{
    auto const found = m_States.find(menu.menuID);
    if (found == m_States.end())
        return true; // on its way into or out of the list: nothing is opened from it
    for (TElementState const& element : menu.elements)
    {
        int const target = element.GetActivationConfig().GetMenuToToggle();
        if (found->second.children.contains(target) && !m_States.at(target).isForcedShortcut)
            return true;
    }
    return false;
}

void TMenuManagerPrivate::EnsureShortcutsOf(TMenuStateCopy const& menu)
{
    for (TElementState const& element : menu.elements)
    {
        int const target = element.GetActivationConfig().GetMenuToToggle();
        auto const found = m_States.find(target);
        if (!element.IsVisible() || found == m_States.end())
            continue;
        if (MayOpenAsShortcut(found->second))
            ShowMenu(target, menu.menuID, element.GetID(), true, false);
    }
}

void TMenuManagerPrivate::UpdateFromElements(TMenuStateCopy const& menu, Elements const& elements)
{
    auto const found = m_States.find(menu.menuID);
    if (found == m_States.end())
        return;
    QSet<int> shortcutIDs;
    bool isAnyVisible = false;
    for (TElementState const& element : menu.elements)
    {
        int const target = element.GetActivationConfig().GetMenuToToggle();
        if (element.IsVisible() && element.IsShortcut())
            shortcutIDs.insert(element.GetID());
        if (!element.IsVisible() && IsShown(target))
            HideMenu(target, false, elements);
        isAnyVisible = isAnyVisible || element.IsVisible();
    }
    TMenuDisplayState& state = found->second;
    if (state.isForcedShortcut && !isAnyVisible)
        HideMenu(menu.menuID, false, elements);
    if (state.shortcutIDs != shortcutIDs)
    {
        ++m_Revision;
        state.isForcedShortcut = state.isShown;
        HideAllChildren(menu.menuID, true);
        state.shortcutIDs = shortcutIDs;
    }
    EnsureShortcuts(elements);
}
