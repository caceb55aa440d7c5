#pragma once

/// A language of the on-screen keyboard: an index into TKeyboardTables::Layouts. The toolkit gives names only
/// to those that it treats apart; the application selects by number, from 0 to KEYBOARD_LAYOUT_COUNT - 1.
enum EKeyboardLayout : int
{
    KEYBOARD_LAYOUT_NONE = -1,
    KEYBOARD_LAYOUT_ENGLISH = 0,
    KEYBOARD_LAYOUT_TURKISH = 19,     ///< I without its dot is another letter than i
    KEYBOARD_LAYOUT_HEXADECIMAL = 23, ///< digits and A to F; no shift, no arrows
    KEYBOARD_LAYOUT_COUNT = 24
};
