#pragma once

#include "CommonUILibExport.h"
#include "TMenuDisplayState.h"
#include "TMenuSnapshot.h"

#include <QList>

#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Which menus are open, and through which other menus: the decisions of TMenuManager, without its lock, its
/// signals and its menus. The menus' elements come as a snapshot, which may be a list of their copies.
///
/// Menus may lead to each other in a circle, and to themselves: none of the walks goes round twice.
class COMMONUILIB_EXPORT TMenuManagerPrivate
{
public:
    using Elements = TMenuSnapshot;

    /// With \a keepsRoot HideAll() leaves the root menu open.
    explicit TMenuManagerPrivate(bool keepsRoot);

    bool IsKnown(int menuID) const;
    bool IsShown(int menuID) const;
    /// A fresh one for an unknown menu.
    TMenuDisplayState GetState(int menuID) const;
    /// The open menus; the one that was shown last stands last.
    QList<int> const& GetShownOrder() const { return m_ShownOrder; }
    /// An open menu as the display has to know it.
    struct TOpenMenu
    {
        int id;
        int parentMenuID;
        int parentElementID;
        bool isForcedShortcut;

        bool operator==(TOpenMenu const& other) const;
    };
    /// In the order of GetShownOrder().
    std::vector<TOpenMenu> GetOpenMenus() const;
    int GetRootMenuID() const { return m_RootMenuID; }
    bool AreMenusEnabled() const { return m_MenusEnabled; }

    /// The menu with this id need not be known yet.
    void SetRootMenuID(int menuID) { m_RootMenuID = menuID; }

    /// The root menu is open from its start.
    void AddMenu(int menuID);
    /// Closes it first.
    void RemoveMenu(int menuID, Elements const& elements);

    /// Opens the menu from an element of another one, of which the other open children go: those that stand
    /// as shortcuts stay with \a keepOpenChildren.
    void ShowMenu(int menuID, int parentMenuID, int parentElementID, bool keepOpenChildren, bool forced);
    void HideAllChildren(int menuID, bool all);
    /// The shortcuts that may be seen now come back, but for the menu itself: where it would have been one of
    /// them, its place stays free.
    void HideMenu(int menuID, bool byUser, Elements const& elements);
    void HideAll(Elements const& elements);

    /// Opens the menus with shortcuts to which an element leads, unless the operator closed them.
    void EnsureShortcuts(Elements const& elements);
    void ForceToShortcut(int menuID, Elements const& elements);
    void SetMenusEnabled(bool enabled, bool hide, Elements const& elements);
    /// \a menu is the one whose elements have changed.
    void UpdateFromElements(TMenuStateCopy const& menu, Elements const& elements);

private:
    void RecursiveHide(int menuID);
    bool IsSettled(Elements const& elements) const;
    static bool MayOpenAsShortcut(TMenuDisplayState const& state);
    void EnsureShortcutsOf(TMenuStateCopy const& menu);
    void TakeOut(int menuID);
    bool HasOpenChild(TMenuStateCopy const& menu) const;

    std::map<int, TMenuDisplayState> m_States;
    QList<int> m_ShownOrder;
    bool const m_KeepsRoot;
    int m_RootMenuID = -1;
    bool m_MenusEnabled = true;
    // Counts the changes of the states. The shortcuts are settled if the last search for some opened none,
    // and neither the states nor the menus have changed since.
    unsigned m_Revision = 0;
    std::optional<std::pair<unsigned, quint64>> m_Settled;
};
