#pragma once

#include <QSet>

/// How one menu stands at the moment; see TMenuManager.
struct TMenuDisplayState
{
    int parentMenuID = -1;         ///< the menu from which it was opened, -1 for none
    int parentElementID = 0;       ///< the element through which it was opened
    bool isShown = false;          ///< it is open
    bool isClosedByUser = false;   ///< hidden on the operator's wish: it does not come back as a shortcut
    bool isForcedShortcut = false; ///< it stands open as a shortcut
    QSet<int> shortcutIDs;         ///< its elements that are shortcuts and visible, as last seen
    QSet<int> children;            ///< the menus that are open from here
};
