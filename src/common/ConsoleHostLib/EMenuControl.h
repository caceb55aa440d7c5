#pragma once

/// The control ids of menu elements: what the console's display makes of an element beside its icon and name.
/// Any other id counts as MENU_CONTROL_PLAIN.
enum EMenuControl
{
    MENU_CONTROL_PLAIN = 0, ///< an action, or something that is off
    MENU_CONTROL_ON = 1,    ///< something that is on
    MENU_CONTROL_GOOD = 2,  ///< green
    MENU_CONTROL_FAIR = 3,  ///< yellow
    MENU_CONTROL_BAD = 4    ///< red
};
