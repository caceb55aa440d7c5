#include "TKeyboard.h"

#include "Charset.h"
#include "ITopLevelWindow.h"
#include "KeyCheck.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TKey.h"
#include "TScreen.h"

#include <QPointer>

#include <algorithm>

namespace
{
// What a charset may bring beyond the toolkit's own layouts.
constexpr int MostColumns = 29;
constexpr int MostRows = 12;

// The row of the space key, from the left: capitals lock and shift, two columns each, the space key, and four
// keys of one column.
constexpr int LockSpan = 2;
constexpr int SpaceColumn = 2 * LockSpan;
constexpr int ColumnsBesideSpace = 8;
constexpr int LeastColumns = ColumnsBesideSpace + 2;

constexpr int RepeatDelayMs = 250;
constexpr int RepeatIntervalMs = 100;

constexpr int GapsAtTheEdges = 2;
constexpr int GapsWithinTheFrame = 6;
constexpr int FewLinesInputHeight = 66;
// A narrower or lower key takes the smaller type.
constexpr int LeastLargeKey = 40;

// What keys show, by the numbers in TKeyboard::KeyData. Those between are looks of other keyboards.
constexpr int LookPlain = 0;
constexpr int LookPlainDown = 1;
constexpr int LookDead = 7;
constexpr int LookDeadDown = 8;

QString LookName(int look)
{
    switch (look)
    {
    case LookPlainDown:
        return PixmapNames::StandardButtonSelected;
    case LookDead:
        return PixmapNames::ButtonBlueUp;
    case LookDeadDown:
        return PixmapNames::BlueButtonSelected;
    default:
        return PixmapNames::ButtonBlank;
    }
}

// A state that stands shows as a key that is down; a press or the wheel must still be seen on it.
void ShowState(TKey* key, int look, int downLook, bool stands)
{
    key->SetLook(LookName(stands ? downLook : look),
                 LookName(stands && downLook == LookPlainDown ? LookDeadDown
                          : stands                            ? LookPlainDown
                                                              : downLook));
}

bool IsGap(QChar character)
{
    return character == QChar(TKeyboardTables::Gap);
}

// What no key can type becomes a gap.
QString HeldToKeys(QString text)
{
    text.truncate(MostColumns);
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !character.isPrint(); },
        QChar(TKeyboardTables::Gap));
    return text;
}

int ColumnsOf(QString const& row)
{
    return row == QLatin1String(" ") ? 0 : row.size();
}
} // namespace

struct TKeyboard::TSpecialKey
{
    char const* icon;
    char const* toolTip;
    char const* hint; // on a line of its own below it
    bool repeats;
    void (TKeyboard::*press)(int);
};

TKeyboard::TSpecialKey const TKeyboard::SpecialKeys[SPECIAL_KEY_COUNT] = {
    {"CapsLockToLower", QT_TRANSLATE_NOOP("TKeyboard", "CAPS Lock Key: Toggle uppercase and lowercase keys"),
     nullptr, false, &TKeyboard::OnCAPSLockKey},
    {"Shift",
     QT_TRANSLATE_NOOP("TKeyboard", "Shift Key: Single character switch between uppercase and lowercase"),
     nullptr, false, &TKeyboard::OnShiftKey},
    {"icon-keyboard", QT_TRANSLATE_NOOP("TKeyboard", "Change Keyboard Layout"), nullptr, false,
     &TKeyboard::OnLayoutChangeKey},
    {"icon-left", QT_TRANSLATE_NOOP("TKeyboard", "Move Cursor Left"),
     QT_TRANSLATE_NOOP("TKeyboard", "(Press and hold to move cursor quickly)"), true,
     &TKeyboard::OnLeftArrow},
    {"icon-right", QT_TRANSLATE_NOOP("TKeyboard", "Move Cursor Right"),
     QT_TRANSLATE_NOOP("TKeyboard", "(Press and hold to move cursor quickly)"), true,
     &TKeyboard::OnRightArrow},
    {"icon-tick", nullptr, nullptr, false, &TKeyboard::OnOk},
    {"icon-cross", nullptr, nullptr, false, &TKeyboard::OnCancel},
    {"icon-backspace", QT_TRANSLATE_NOOP("TKeyboard", "Backspace"),
     QT_TRANSLATE_NOOP("TKeyboard", "(Press and hold to delete multiple characters)"), true,
     &TKeyboard::OnBackSpace},
};

// Every change of what the keys show ends here.
void TKeyboard::ApplyLayout(EKeyboardLayout layout, bool capitals)
{
    m_Layout = layout;
    m_ColumnCount = GetKeyboardWidth();
    ParseAccentableCharacters();
    ForgetKeys();
    AssignKeys(GetRowData(capitals));
    AssignSpecialKeys();
    EnableKeys();
    // Placed while they are hidden, new keys fit their art once.
    bool const moved = LayoutKeys();
    HideUnusedKeys();
    if (moved)
        tscreenRefreshMMIWidgets(this);
    PrepareFaces();
    if (!m_TellLater)
        Q_EMIT GeometryChanged();
}

int TKeyboard::RowsOfLayout() const
{
    return IsExternalInForce() ? qBound(0, m_Charset->GetRowCount(m_ExternalIndex), MostRows)
                               : KEY_PAD_NUM_ROWS;
}

QString TKeyboard::RowText(int row, bool capitals) const
{
    if (IsExternalInForce())
        return HeldToKeys(m_Charset->GetRowText(m_ExternalIndex, row, capitals));
    char32_t const* const keys = Layouts[std::size_t(m_Layout)][std::size_t(row)];
    QString text = keys ? QString::fromUcs4(keys) : QString();
    if (capitals)
        return text;
    // The letter without a dot is the small form of the one without it, whatever the rest of the world does.
    if (m_Layout == KEYBOARD_LAYOUT_TURKISH)
        text.replace(QLatin1Char('I'), QChar(0x0131)).replace(QChar(0x0130), QLatin1Char('i'));
    bool const isSymbols = row == RowDigits || row == RowSymbols;
    std::transform(text.begin(), text.end(), text.begin(),
                   [isSymbols](QChar key)
                   { return isSymbols ? ShiftedSymbols().value(key, key) : key.toLower(); });
    return text;
}

// The same for capitals and small letters, so that the keys keep their places. The rows of the own layouts
// leave room for the backspace; those of a charset get a column more for it.
int TKeyboard::GetKeyboardWidth() const
{
    int columns = 0;
    int const rows = RowsOfLayout();
    for (int row = 0; row < rows; ++row)
        columns = qMax(columns, qMax(ColumnsOf(RowText(row, true)), ColumnsOf(RowText(row, false))));
    return qMax(LeastColumns, columns + (IsExternalInForce() ? 1 : 0));
}

// A run of one character is one key.
TKeyboard::TRows TKeyboard::GetRowData(bool capitals) const
{
    TRows rows;
    int const count = RowsOfLayout();
    for (int row = 0; row < count; ++row)
    {
        QString const text = RowText(row, capitals);
        QVector<KeyData> keys;
        for (int start = 0, end = 0; start < text.size(); start = end)
        {
            while (end < text.size() && text.at(end) == text.at(start))
                ++end;
            keys.append(KeyFor(text.at(start), end - start));
        }
        rows.append(keys);
    }
    while (!rows.isEmpty() && rows.constLast().isEmpty())
        rows.removeLast();
    return rows;
}

TKeyboard::KeyData TKeyboard::KeyFor(QChar character, int length) const
{
    KeyData key;
    key.character = character;
    Keyboard_layouts_api::KeyCheck const* const check = ActiveKeyCheck();
    key.enabled = !check || check->IsCharacterAllowed(character);
    key.span = character == QLatin1Char(' ') ? m_ColumnCount - ColumnsBesideSpace : length;
    if (AccentToIndex(character) >= 0)
    {
        key.look = LookDead;
        key.downLook = LookDeadDown;
    }
    return key;
}

void TKeyboard::ParseAccentableCharacters()
{
    m_Accentable.fill(QString());
    QString const accents = QString::fromUcs4(Layouts[std::size_t(m_Layout)][RowAccents]);
    int accent = -1;
    for (QChar const character : accents)
    {
        int const index = AccentToIndex(character);
        if (index >= 0)
            accent = index;
        else if (accent >= 0 && IsLetter(character))
            m_Accentable[std::size_t(accent)].append(character);
    }
}

void TKeyboard::ForgetKeys()
{
    m_Keys.clear();
    m_Places.clear();
    m_LetterKeys.fill(nullptr);
    m_AccentKeys.fill(nullptr);
}

// The special keys share the row of the space key; where there is none, one of their own below all others.
void TKeyboard::AssignKeys(TRows const& rows)
{
    auto const hasSpace = [](QVector<KeyData> const& row)
    {
        return std::any_of(row.begin(), row.end(),
                           [](KeyData const& key) { return key.character == QLatin1Char(' '); });
    };
    auto const found = std::find_if(rows.begin(), rows.end(), hasSpace);
    bool const isShared = found != rows.end() && found != rows.begin();
    m_SpecialRow = isShared ? int(found - rows.begin()) : qMax(1, rows.size());
    m_RowCount = qMax(m_SpecialRow + 1, rows.size());
    for (int row = 0; row < rows.size(); ++row)
        AssignRow(rows.at(row), row);
}

// Rows stand in the middle, in half steps, but for the two at whose right end special keys stand.
void TKeyboard::AssignRow(QVector<KeyData> const& row, int rowNumber)
{
    int length = 0;
    for (KeyData const& key : row)
        length += key.span;
    bool const isCentred = rowNumber != m_SpecialRow && rowNumber != m_SpecialRow - 1;
    int const end = rowNumber == m_SpecialRow - 1 ? m_ColumnCount - 1 : m_ColumnCount;
    int const room = isCentred ? qMax(0, m_ColumnCount - length) : 0;
    TPlace place{rowNumber, room / 2, room % 2 != 0, 1};
    bool hasSpace = false;
    for (KeyData const& key : row)
    {
        bool const isSpace = key.character == QLatin1Char(' ');
        if (isSpace && rowNumber == m_SpecialRow)
            place.column = SpaceColumn;
        place.span = key.span;
        // What the special keys or the space key would cover is left out.
        bool const isFirstSpace = isSpace && !hasSpace;
        hasSpace = hasSpace || isSpace;
        bool const isFree = rowNumber == m_SpecialRow ? isFirstSpace : place.column + key.span <= end;
        if (isFree && !IsGap(key.character))
            AssignKey(key, place);
        place.column += key.span;
    }
}

void TKeyboard::AssignKey(KeyData const& data, TPlace const& place)
{
    TKey* const key = CharacterKey(m_Keys.size());
    key->SetButtonID(m_Keys.size());
    key->SetText(QString(data.character), QString(), false, QString(), false);
    key->SetLook(LookName(data.look), LookName(data.downLook));
    if (!data.enabled)
        key->setEnabled(false);
    m_Keys.append(key);
    m_Places.append(place);
    NoticeKey(key);
}

// The keys that something asks for by what stands on them.
void TKeyboard::NoticeKey(TKey* key)
{
    QChar const character = key->GetCharacter();
    int const accent = AccentToIndex(character);
    QChar const letter = character.toUpper();
    if (accent >= 0)
        m_AccentKeys[std::size_t(accent)] = key;
    else if (IsLetter(letter))
        m_LetterKeys[std::size_t(letter.unicode() - 'A')] = key;
}

TKey* TKeyboard::CharacterKey(int index)
{
    while (index >= m_CharacterKeys.size())
    {
        auto* const key = new TKey(GetWindowContent(), QChar(), QString(), false, true, m_RowCount,
                                   m_ColumnCount, m_CharacterKeys.size());
        key->SetIsEditKey(true);
        key->SetPressVisible(m_PressVisible);
        connect(key, &TPushButton::Clicked, this, &TKeyboard::OnKey);
        m_CharacterKeys.append(key);
    }
    return m_CharacterKeys.at(index);
}

TKey* TKeyboard::SpecialKey(ESpecialKey which)
{
    TKey*& key = m_SpecialKeys[which];
    if (key)
        return key;
    TSpecialKey const& special = SpecialKeys[which];
    key = new TKey(GetWindowContent(), QChar(), QLatin1String(special.icon), true, true, m_RowCount,
                   m_ColumnCount, 0);
    if (special.hint)
        key->SetToolTip(tr(special.toolTip) + QLatin1Char('\n') + tr(special.hint));
    else if (special.toolTip)
        key->SetToolTip(tr(special.toolTip));
    if (special.repeats)
        key->SetAutoRepeat(true, RepeatDelayMs, RepeatIntervalMs);
    connect(key, &TPushButton::Clicked, this, special.press);
    return key;
}

bool TKeyboard::HasSpecialKey(ESpecialKey which) const
{
    bool const changesLayouts = HasLayoutsToChooseFrom();
    switch (which)
    {
    case KEY_CAPS_LOCK:
    case KEY_LEFT_ARROW:
    case KEY_RIGHT_ARROW:
        return m_Layout != KEYBOARD_LAYOUT_HEXADECIMAL;
    case KEY_SHIFT:
        return m_Layout != KEYBOARD_LAYOUT_HEXADECIMAL && !changesLayouts;
    case KEY_LAYOUT:
        return m_Layout != KEYBOARD_LAYOUT_HEXADECIMAL && changesLayouts;
    default:
        return true;
    }
}

void TKeyboard::AssignSpecialKeys()
{
    int const right = m_ColumnCount;
    int const row = m_SpecialRow;
    AssignSpecialKey(KEY_BACKSPACE, {row - 1, right - 1, false, 1});
    AssignSpecialKey(KEY_CAPS_LOCK, {row, 0, false, LockSpan});
    AssignSpecialKey(KEY_SHIFT, {row, LockSpan, false, LockSpan});
    AssignSpecialKey(KEY_LAYOUT, {row, LockSpan, false, LockSpan});
    AssignSpecialKey(KEY_LEFT_ARROW, {row, right - 4, false, 1});
    AssignSpecialKey(KEY_RIGHT_ARROW, {row, right - 3, false, 1});
    AssignSpecialKey(KEY_OK, {row, right - 2, false, 1});
    AssignSpecialKey(KEY_CANCEL, {row, right - 1, false, 1});
    ShowLockStates();
}

void TKeyboard::AssignSpecialKey(ESpecialKey which, TPlace const& place)
{
    if (!HasSpecialKey(which))
        return;
    TKey* const key = SpecialKey(which);
    key->SetButtonID(m_Keys.size());
    m_Keys.append(key);
    m_Places.append(place);
}

void TKeyboard::HideUnusedKeys()
{
    int const used =
        int(std::count_if(m_Keys.begin(), m_Keys.end(), [](TKey const* key) { return key->GetIsEditKey(); }));
    for (int i = 0; i < m_CharacterKeys.size(); ++i)
    {
        if (m_CharacterKeys.at(i)->isHidden() != (i >= used))
            m_CharacterKeys.at(i)->setVisible(i < used);
    }
    for (TKey* const key : m_SpecialKeys)
    {
        if (key && key->isHidden() == m_Keys.contains(key))
            key->setVisible(key->isHidden());
    }
}

// The key of the lock shows what it does next; a charset may know no capitals.
void TKeyboard::ShowLockStates()
{
    QString const ownIcon = m_CapsLock ? PixmapNames::CapsLockToLower : PixmapNames::CapsLockToUpper;
    QString const lockIcon = IsExternalInForce() ? PixmapNames::CapsLock : ownIcon;
    TKey* const lock = m_SpecialKeys[KEY_CAPS_LOCK];
    if (lock && lock->GetIconName() != lockIcon)
        lock->SetIcon(lockIcon, QSize(-1, -1), false);
    if (TKey* const shift = m_SpecialKeys[KEY_SHIFT])
        ShowState(shift, LookPlain, LookPlainDown, m_Shifted);
}

void TKeyboard::MarkAccentKey(int accent, bool waits)
{
    if (TKey* const key = m_AccentKeys[std::size_t(accent)])
        ShowState(key, LookDead, LookDeadDown, waits);
}

// Both faces of each key, so that the next shift finds them made.
void TKeyboard::PrepareFaces()
{
    if (!isVisible())
        return;
    bool const capital = IsCapital();
    TRows const others = GetRowData(!capital);
    int index = 0;
    for (QVector<KeyData> const& row : others)
    {
        for (KeyData const& data : row)
        {
            if (IsGap(data.character) || index >= m_Keys.size())
                continue;
            TKey* const key = m_Keys.at(index++);
            if (key->GetIsEditKey())
                key->PrepareFaces(key->GetText(), QString(data.character));
        }
    }
}

// In the coordinates of the parent, as far as there is one.
QRect TKeyboard::ScreenRect() const
{
    if (!parentWidget())
        return {0, 0, SCREEN_WIDTH, SCREEN_HEIGHT};
    QWidget const* const top = window();
    return {parentWidget()->mapFrom(top, QPoint()), top->size()};
}

QRect TKeyboard::UsableRect() const
{
    auto* const topLevel = parentWidget() ? dynamic_cast<ITopLevelWindow*>(window()) : MainScreen;
    QRect const screen = ScreenRect();
    return topLevel ? topLevel->GetUsableRect().translated(screen.topLeft()) : screen;
}

TKeyboard::TGrid TKeyboard::NormalGrid(QRect const& usable) const
{
    int const gap = KEY_PAD_GAP_MAX;
    int const gaps = (GapsAtTheEdges + GapsWithinTheFrame) * gap;
    int const margin = gaps / 2;
    int const rows = qMax(m_RowCount, 1);
    int const wanted = rows * KEY_HEIGHT + margin + BORDER_RIGHT_SHADOW_SIZE;
    int const top = BORDER_Y_OFFSET + wanted <= usable.height() ? BORDER_Y_OFFSET : FewLinesInputHeight;
    int const room = usable.height() - top - margin - BORDER_RIGHT_SHADOW_SIZE;
    TGrid grid;
    grid.rows = rows;
    grid.key = QSize(qBound(KEY_WIDTH_MIN, (usable.width() - gaps) / m_ColumnCount, KEY_WIDTH_MAX),
                     qBound(1, room / rows, KEY_HEIGHT));
    QSize const keys(grid.key.width() * m_ColumnCount, grid.key.height() * rows);
    grid.inputArea = QRect(margin, 0, keys.width(), top);
    grid.keys = QRect(QPoint(margin, top), keys);
    QSize const frame(keys.width() + gaps, top + keys.height() + margin);
    grid.window =
        QRect(CentredIn(usable, frame), frame + QSize(BORDER_RIGHT_SHADOW_SIZE, BORDER_RIGHT_SHADOW_SIZE));
    return grid;
}

// The frame stands in the middle of the screen, as far as that leaves it and its shadow in the usable part.
QPoint TKeyboard::CentredIn(QRect const& usable, QSize const& frame) const
{
    QPoint const centred = ScreenRect().center() - QRect(QPoint(), frame).center();
    QSize const shadow(BORDER_RIGHT_SHADOW_SIZE, BORDER_RIGHT_SHADOW_SIZE);
    QPoint const last = usable.bottomRight() - QRect(QPoint(), frame + shadow).bottomRight();
    return {qMin(centred.x(), last.x()), qMin(centred.y(), last.y())};
}

TKeyboard::TGrid TKeyboard::FullWidthGrid(QRect const& usable) const
{
    int const gap = KEY_PAD_GAP_MAX;
    int const rows = qMax(m_RowCount, 1);
    TGrid grid;
    grid.rows = rows;
    grid.key =
        QSize(qMax(1, (usable.width() - GapsAtTheEdges * gap) / m_ColumnCount),
              qBound(1, (usable.height() - GapsAtTheEdges * gap) / qMax(rows, KEY_PAD_NUM_ROWS), KEY_HEIGHT));
    QSize const keys(grid.key.width() * m_ColumnCount, grid.key.height() * rows);
    int const height = keys.height() + GapsAtTheEdges * gap;
    grid.keys = QRect(QPoint((usable.width() - keys.width()) / 2, gap), keys);
    grid.window = QRect(usable.left(), usable.bottom() + 1 - height, usable.width(), height);
    return grid;
}

// True if there are other keys than before, or in other places, or of another size.
bool TKeyboard::LayoutKeys()
{
    TGrid const grid = m_FullWidthMode ? FullWidthGrid(UsableRect()) : NormalGrid(UsableRect());
    bool const same = grid == m_Grid && m_Keys == m_LaidOutKeys && m_Places == m_LaidOutPlaces;
    m_Grid = grid;
    PlaceWindow();
    if (same)
        return false;
    m_LaidOutKeys = m_Keys;
    m_LaidOutPlaces = m_Places;
    PlaceKeys();
    GroundKeys();
    return true;
}

void TKeyboard::PlaceWindow()
{
    if (geometry() != m_Grid.window)
        setGeometry(m_Grid.window);
    m_InputArea->setVisible(!m_FullWidthMode);
}

// The frame is drawn with its shadow; along the edge of the screen that falls outside.
QSize TKeyboard::FrameSize() const
{
    int const shadow = m_FullWidthMode ? BORDER_RIGHT_SHADOW_SIZE : 0;
    return m_Grid.window.size() + QSize(shadow, shadow);
}

void TKeyboard::PlaceKeys()
{
    QSize const frame = FrameSize();
    SetBackgroundArea(0, 0, frame.width(), frame.height());
    m_InputArea->setGeometry(m_Grid.inputArea);
    GetWindowContent()->setGeometry(m_Grid.keys);
    bool const isLarge = qMin(m_Grid.key.width(), m_Grid.key.height()) >= LeastLargeKey;
    if (TKey* const shift = m_SpecialKeys[KEY_SHIFT])
        shift->SetIcon(isLarge ? PixmapNames::Shift : PixmapNames::ShiftSmall, QSize(-1, -1), false);
    for (int i = 0; i < m_Keys.size(); ++i)
    {
        TPlace const& place = m_Places.at(i);
        TKey* const key = m_Keys.at(i);
        key->SetLargeFont(isLarge);
        key->SetRowsAndColumns(m_Grid.rows, m_ColumnCount);
        key->SetCustomSize(place.span, m_Grid.key.width(), m_Grid.key.height(), 0);
        key->SetPosition(place.row, place.column, place.halfStep);
    }
}

// Each key gets its piece of the frame, so that it covers what is below it.
void TKeyboard::GroundKeys()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    QSize const size = FrameSize();
    QSharedPointer<QPixmap> const frame =
        pixmaps ? pixmaps->GetResizedPixmap(GetBackground(), size.width(), size.height())
                : QSharedPointer<QPixmap>::create();
    for (TKey* const key : qAsConst(m_Keys))
        key->SetGround(frame->isNull() ? QPixmap()
                                       : frame->copy(key->geometry().translated(m_Grid.keys.topLeft())));
}

void TKeyboard::SetFullWidthMode(bool fullWidth)
{
    if (fullWidth == m_FullWidthMode)
        return;
    m_FullWidthMode = fullWidth;
    Reposition();
}

void TKeyboard::Reposition()
{
    if (m_Keys.isEmpty())
        return;
    if (LayoutKeys())
        tscreenRefreshMMIWidgets(this);
    PrepareFaces();
    Q_EMIT GeometryChanged();
}
