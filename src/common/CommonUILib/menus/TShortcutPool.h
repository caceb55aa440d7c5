#pragma once

#include "CommonUILibExport.h"
#include "TElementState.h"

#include <utility>
#include <vector>

/// The shortcuts of menus, in the order in which the menus were reported first. It belongs to the thread of
/// the display that keeps it.
class COMMONUILIB_EXPORT TShortcutPool
{
public:
    /// Takes those of \a elements that have the shortcut flag in place of what the menu had, in their order.
    /// A menu that has none keeps its place.
    void UpdateFromMenuState(int menuID, std::vector<TElementState> const& elements);
    /// An unknown menu is ignored. One that is reported again later stands last.
    void RemoveMenu(int menuID);

    /// Those of all menus, one menu after the other.
    std::vector<TElementState> GetCurrentShortcuts() const;
    /// The menus to which GetCurrentShortcuts() belong, one by one.
    std::vector<int> GetCurrentMenus() const;

private:
    using TEntry = std::pair<int, std::vector<TElementState>>;

    std::vector<TEntry>::iterator Find(int menuID);

    std::vector<TEntry> m_Menus;
};
