#pragma once

/// What happens to the open menus after an element of one was activated.
enum EElementHideMode
{
    ELEMENT_HIDE_NONE = 0, ///< all stay as they are
    ELEMENT_HIDE_MENU = 1, ///< the menu of the element hides
    ELEMENT_HIDE_ALL = 2   ///< all menus hide
};
