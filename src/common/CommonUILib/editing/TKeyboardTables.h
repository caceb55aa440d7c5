#pragma once

#include "CommonUILibExport.h"
#include "EKeyboardLayout.h"

#include <QChar>

#include <array>

/// What the keys of the on-screen keyboard are made from: the rows of each language and its dead keys. Text
/// in UCS-4, ended by a zero, for QString::fromUcs4().
class COMMONUILIB_EXPORT TKeyboardTables
{
public:
    /// \name Rows of a layout
    /// The rows of keys come first, from the top. A character that is repeated makes one wider key, a blank
    /// the space key, and U+FFFD a gap one key wide.
    /// @{
    static constexpr int RowDigits = 0;
    static constexpr int RowSymbols = 4;
    static constexpr int RowSpacer = 5;
    /// Each dead key of the layout, followed by the letters that it goes with.
    static constexpr int RowAccents = 8;
    static constexpr int RowCount = 9;
    /// @}
    /// Characters that stand for a gap in a row.
    static constexpr char16_t Gap = 0xFFFD;

    static constexpr int AccentCount = 9;
    static constexpr int LetterCount = 26;

    using TLayout = std::array<char32_t const*, RowCount>;

    /// By EKeyboardLayout, in capitals. A row that a layout does not have is null or empty.
    static std::array<TLayout, KEYBOARD_LAYOUT_COUNT> const Layouts;
    /// The dead key of each accent, in the order of AccentedChars.
    static std::array<char16_t, AccentCount> const DeadKeys;
    /// By accent, LetterCount capitals in the order of the alphabet; the plain letter where the accented one
    /// does not exist.
    static std::array<char32_t const*, AccentCount> const AccentedChars;

    /// Whether \a character is one of the LetterCount capitals that a dead key may go with.
    static bool IsLetter(QChar character)
    {
        return character >= QLatin1Char('A') && character <= QLatin1Char('Z');
    }

protected:
    TKeyboardTables() = default;
    ~TKeyboardTables() = default;
};
