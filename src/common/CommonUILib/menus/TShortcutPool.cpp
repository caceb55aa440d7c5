#include "TShortcutPool.h"

#include <algorithm>
#include <iterator>

std::vector<TShortcutPool::TEntry>::iterator TShortcutPool::Find(int menuID)
{
    return std::find_if(m_Menus.begin(), m_Menus.end(),
                        [menuID](TEntry const& entry) { return entry.first == menuID; });
}

void TShortcutPool::UpdateFromMenuState(int menuID, std::vector<TElementState> const& elements)
{
    auto entry = Find(menuID);
    if (entry == m_Menus.end())
        entry = m_Menus.insert(entry, TEntry(menuID, {}));
    entry->second.clear();
    std::copy_if(elements.begin(), elements.end(), std::back_inserter(entry->second),
                 [](TElementState const& element) { return element.IsShortcut(); });
}

void TShortcutPool::RemoveMenu(int menuID)
{
    auto const entry = Find(menuID);
    if (entry != m_Menus.end())
        m_Menus.erase(entry);
}

std::vector<TElementState> TShortcutPool::GetCurrentShortcuts() const
{
    std::vector<TElementState> shortcuts;
    for (TEntry const& entry : m_Menus)
        shortcuts.insert(shortcuts.end(), entry.second.begin(), entry.second.end());
    return shortcuts;
}

std::vector<int> TShortcutPool::GetCurrentMenus() const
{
    std::vector<int> menus;
    for (TEntry const& entry : m_Menus)
        menus.insert(menus.end(), entry.second.size(), entry.first);
    return menus;
}
