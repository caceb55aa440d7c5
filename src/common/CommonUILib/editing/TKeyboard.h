#pragma once

#include "CommonUILibExport.h"
#include "EKeyboardLayout.h"
#include "TKeyboardTables.h"
#include "TWindow.h"

#include <QHash>
#include <QPointer>
#include <QRect>
#include <QSharedPointer>
#include <QString>
#include <QVector>
#include <QWeakPointer>

#include <array>
#include <memory>

class TEditWidget;
class TKey;
class TPushButton;
struct TEditItem;

namespace Keyboard_layouts_api
{
class Charset;
class KeyCheck;
} // namespace Keyboard_layouts_api

/// The on-screen keyboard. It says which characters the operator types and holds no text itself: whoever
/// borrows it from the screen, ITopLevelWindow::GetKeyboard(), connects to its signals, and lays the text
/// over its input area. For numbers see TNumberPad.
///
/// It starts in capitals. The state of small letters is also that of the symbols: the digits turn to signs
/// with the letters, which is the opposite of a keyboard on a desk and is meant so. Shift is good for one
/// character. A dead key waits for its letter, and leaves only those letters alive that it goes with.
///
/// The keys are built once: a change of letters, layout or size gives the same keys new faces. There is one
/// keyboard, and its layout is one for the whole console. A slot of any of its signals may delete it. GUI
/// thread only.
class COMMONUILIB_EXPORT TKeyboard : public TWindow, public TKeyboardTables
{
    Q_OBJECT

public:
    /// One key to build.
    struct KeyData
    {
        QChar character; ///< TKeyboardTables::Gap for a gap
        int span = 1;    ///< in columns
        bool enabled = true;
        int look = 0; ///< what the key shows, an index into the table of looks
        int downLook = 1;
    };

    explicit TKeyboard(QWidget* parent);
    ~TKeyboard() override;

    /// What a digit or a plain symbol turns to when the letters are small.
    static QHash<QChar, QChar> const& ShiftedSymbols();

    /// \name Layout
    /// @{
    /// \a orig is shown from now on, and from each showing on; \a alt is what the layout key changes to,
    /// KEYBOARD_LAYOUT_NONE for no such key. Unknown ones count as English and none. Ends an external layout.
    void SetLayout(EKeyboardLayout orig, EKeyboardLayout alt);
    /// True puts the layout aside for the English one without an alternative, false brings it back.
    void SetEnglishLayout(bool english);
    /// True forces capitals and puts the layout aside for the hexadecimal digits, false brings it back;
    /// capitals stay.
    void SetHexMode(bool hex);
    /// Adds the layouts of \a charset and shows the first of them; a null one ends it. \a check, which may be
    /// null and stays the caller's, is asked where no other is pushed.
    void SetExternalLayout(QSharedPointer<Keyboard_layouts_api::Charset> const& charset,
                           Keyboard_layouts_api::KeyCheck const* check);
    void CancelExternalLayout();
    /// Columns of the grid of keys: the keys of the longest row, with one more for a charset, and at least
    /// ten.
    int GetKeyboardWidth() const;
    /// @}

    /// \name Keys
    /// @{
    /// From now on \a check is asked what may be typed, null for the one of the charset, if that brought one.
    /// It stays the caller's.
    void PushKeyChecker(Keyboard_layouts_api::KeyCheck const* check);
    /// Back to the one before. Nothing without one.
    void PopKeyChecker();
    /// Each of these stays in force through all changes of the layout.
    void EnableFullStopKey(bool enable);
    void EnableSpaceKey(bool enable);
    void EnableOKButton(bool enable);
    /// False: every key that types is dead, the others stay.
    void SetEditKeysEnabled(bool enable);
    /// With true a press of a key cannot be seen, for texts that must not be read along.
    void DisableButtonPress(bool disable);
    /// What the keys OK and Cancel do, with a press that is seen. Nothing for a key that is disabled.
    void ClickOk();
    void ClickCancel();
    /// @}

    /// \name Place
    /// @{
    /// True: the keyboard lies along the lower edge, as wide as what windows may take, without its input
    /// area.
    void SetFullWidthMode(bool fullWidth);
    /// Places the keyboard anew on its present parent.
    void Reposition();
    /// Where the client's text goes, in the coordinates of the keyboard's parent; empty along the lower edge,
    /// where the client finds a place itself.
    QRect GetInputAreaGeometry() const;
    /// The text that the input area itself shows; empty unless a client put one there.
    QString GetValue() const;
    /// @}

    bool OnMMIBack() override;
    void setVisible(bool visible) override;
    using TWindow::OnCancel;
    using TWindow::OnOk;

Q_SIGNALS:
    /// The state of shift is still that which made the character.
    void NewChar(QChar character);
    void Backspace();
    void LeftArrow();
    void RightArrow();
    /// The keyboard is hidden.
    void Cancel();
    /// The keyboard is hidden.
    void Done();
    /// Keys or place may have changed, and with them GetInputAreaGeometry(). When the keyboard is shown with
    /// its parent, it comes as soon as that is done.
    void GeometryChanged();
    /// The choice of a layout has begun, and is over.
    void LayoutSelectorUp();
    void LayoutSelectorDown();

public Q_SLOTS:
    /// Shows the layout in \a row of the choice: the standard one, then the alternative if there is one, then
    /// those of the charset. Another row changes nothing, and in hexadecimal mode no row does. The choice is
    /// over either way.
    void OnLayoutSelected(double row);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private Q_SLOTS:
    void OnKey(int index);
    void OnCAPSLockKey(int index);
    void OnShiftKey(int index);
    void OnLayoutChangeKey(int index);
    void OnLeftArrow(int index);
    void OnRightArrow(int index);
    void OnOk(int index);
    void OnCancel(int index);
    void OnBackSpace(int index);
    void OnLayoutSelectorCancelled();

private:
    enum ESpecialKey
    {
        KEY_CAPS_LOCK,
        KEY_SHIFT,
        KEY_LAYOUT,
        KEY_LEFT_ARROW,
        KEY_RIGHT_ARROW,
        KEY_OK,
        KEY_CANCEL,
        KEY_BACKSPACE,
        SPECIAL_KEY_COUNT
    };
    struct TSpecialKey;
    static TSpecialKey const SpecialKeys[SPECIAL_KEY_COUNT];

    /// Where a key stands, in units of the grid.
    struct TPlace
    {
        int row;
        int column;
        bool halfStep;
        int span;

        bool operator==(TPlace const& other) const
        {
            return row == other.row && column == other.column && halfStep == other.halfStep &&
                   span == other.span;
        }
    };
    /// The keyboard's parts in pixels.
    struct TGrid
    {
        QRect window; ///< in the coordinates of the parent
        QRect inputArea;
        QRect keys;
        QSize key;
        int rows = 0;

        bool operator==(TGrid const& other) const
        {
            return window == other.window && inputArea == other.inputArea && keys == other.keys &&
                   key == other.key && rows == other.rows;
        }
    };
    using TRows = QVector<QVector<KeyData>>;
    struct TSavedLayout;

    bool IsCapital() const;
    bool IsExternalInForce() const;
    int CharsetLayouts() const;
    bool HasLayoutsToChooseFrom() const;
    void ApplyLayout(EKeyboardLayout layout, bool capitals);
    void ApplyIfVisible();
    void ChangeLayout(EKeyboardLayout layout);

    QString RowText(int row, bool capitals) const;
    int RowsOfLayout() const;
    TRows GetRowData(bool capitals) const;
    KeyData KeyFor(QChar character, int length) const;
    void ParseAccentableCharacters();
    void AssignKeys(TRows const& rows);
    void AssignRow(QVector<KeyData> const& row, int rowNumber);
    void AssignKey(KeyData const& data, TPlace const& place);
    void NoticeKey(TKey* key);
    void ForgetKeys();
    void HideUnusedKeys();
    void AssignSpecialKeys();
    void AssignSpecialKey(ESpecialKey which, TPlace const& place);
    TKey* CharacterKey(int index);
    TKey* SpecialKey(ESpecialKey which);
    bool HasSpecialKey(ESpecialKey which) const;
    void ShowLockStates();
    void PrepareFaces();

    bool LayoutKeys();
    QRect ScreenRect() const;
    QRect UsableRect() const;
    TGrid NormalGrid(QRect const& usable) const;
    QPoint CentredIn(QRect const& usable, QSize const& frame) const;
    TGrid FullWidthGrid(QRect const& usable) const;
    void PlaceWindow();
    QSize FrameSize() const;
    void PlaceKeys();
    void GroundKeys();

    int AccentToIndex(QChar character) const;
    bool IsAccentKey(QChar character);
    QChar AccentedCharacter(QChar character) const;
    void AccentKeyClicked(int accent, bool release);
    void MarkAccentKey(int accent, bool waits);
    void EndAccent();

    Keyboard_layouts_api::KeyCheck const* ActiveKeyCheck() const;
    bool IsKeyActive(TKey const* key) const;
    bool IsKeyWanted(TKey const* key) const;
    void EnableKeys();
    QVector<int> LayoutChoices() const;
    TEditItem LayoutsItem() const;
    void OpenLayoutSelector();
    void CloseLayoutSelector();

    static EKeyboardLayout m_Layout; // on show
    static EKeyboardLayout m_OrigLayout;
    static EKeyboardLayout m_AltLayout;

    TPushButton* m_InputArea;
    bool m_Shifted = false;
    bool m_CapsLock = true;
    bool m_FullWidthMode = false;
    bool m_EditKeysEnabled = true;
    bool m_FullStopEnabled = true;
    bool m_SpaceEnabled = true;
    bool m_OkEnabled = true;
    bool m_PressVisible = true;
    bool m_TellLater = false; // nobody may delete a widget that is just being shown
    int m_Accent = -1;
    int m_ColumnCount = 0;
    int m_SpecialRow = 0;
    int m_RowCount = 0;
    TGrid m_Grid;
    QVector<TKey*> m_LaidOutKeys;
    QVector<TPlace> m_LaidOutPlaces;
    QVector<TKey*> m_CharacterKeys; // all that were ever needed; those beyond the layout's are hidden
    std::array<TKey*, SPECIAL_KEY_COUNT> m_SpecialKeys = {};
    QVector<TKey*> m_Keys;    // on show, by id: those with characters, then the special ones
    QVector<TPlace> m_Places; // of m_Keys
    std::array<TKey*, LetterCount> m_LetterKeys = {};
    std::array<TKey*, AccentCount> m_AccentKeys = {};
    std::array<QString, AccentCount> m_Accentable;
    QVector<QWeakPointer<Keyboard_layouts_api::KeyCheck const>> m_KeyChecks;
    QWeakPointer<Keyboard_layouts_api::KeyCheck const> m_ExternalCheck;
    QSharedPointer<Keyboard_layouts_api::Charset> m_Charset;
    int m_ExternalIndex = -1;
    EKeyboardLayout m_LayoutBeforeHex = KEYBOARD_LAYOUT_NONE; // none: not in hexadecimal mode
    std::unique_ptr<TSavedLayout> m_LayoutBeforeEnglish;
    QPointer<TEditWidget> m_LayoutSelector; // while the choice of a layout goes on
};
