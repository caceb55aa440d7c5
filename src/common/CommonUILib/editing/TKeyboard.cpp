#include "TKeyboard.h"

#include "Charset.h"
#include "KeyCheck.h"
#include "MainScreen.h"
#include "PixmapNames.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TKey.h"
#include "TScreen.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
constexpr int KeyPressMs = 100;
// What the client's text keeps from the edges of the input area.
constexpr int InputTextX = 18;
constexpr int InputTextY = 10;

// In the choice of layouts, beside the numbers of the charset's own.
constexpr int StandardLayout = -2;
constexpr int AlternativeLayout = -1;
constexpr int MostExternalLayouts = 100;

struct TShiftedSymbol
{
    char plain;
    char shifted;
};

// 2 and 6 are not where a desk keyboard has them, on purpose: operators know them from here.
constexpr TShiftedSymbol ShiftedSymbolTable[] = {{'1', '!'}, {'2', '@'}, {'3', '#'},  {'4', '$'}, {'5', '%'},
                                                 {'6', '"'}, {'7', '&'}, {'8', '*'},  {'9', '('}, {'0', ')'},
                                                 {'[', '{'}, {']', '}'}, {'\\', '|'}, {',', '<'}, {'.', '>'},
                                                 {'/', '?'}, {';', ':'}, {'-', '_'},  {'=', '+'}};

EKeyboardLayout Known(EKeyboardLayout layout, EKeyboardLayout otherwise)
{
    return layout >= 0 && layout < KEYBOARD_LAYOUT_COUNT ? layout : otherwise;
}
} // namespace

EKeyboardLayout TKeyboard::m_Layout = KEYBOARD_LAYOUT_ENGLISH;
EKeyboardLayout TKeyboard::m_OrigLayout = KEYBOARD_LAYOUT_ENGLISH;
EKeyboardLayout TKeyboard::m_AltLayout = KEYBOARD_LAYOUT_NONE;

struct TKeyboard::TSavedLayout
{
    EKeyboardLayout orig;
    EKeyboardLayout alt;
    QSharedPointer<Keyboard_layouts_api::Charset> charset;
    QWeakPointer<Keyboard_layouts_api::KeyCheck const> check;
    int externalIndex;
};

TKeyboard::TKeyboard(QWidget* parent)
    : TWindow(parent)
    , m_InputArea(new TPushButton(this, -1, QString()))
{
    SetBackground(PixmapNames::KeyboardBackground);
    m_InputArea->SetBackground(PixmapNames::KeyboardInputField);
    m_InputArea->SetBackgroundSelected(PixmapNames::KeyboardInputField);
    m_InputArea->PlayButtonPressSounds(false);
    m_InputArea->SetMMIBehaviour(MMI_EXCLUDED);
    m_InputArea->setFocusPolicy(Qt::NoFocus);
}

TKeyboard::~TKeyboard()
{
    delete m_LayoutSelector.data();
}

QHash<QChar, QChar> const& TKeyboard::ShiftedSymbols()
{
    static QHash<QChar, QChar> const symbols = []
    {
        QHash<QChar, QChar> filled;
        for (TShiftedSymbol const& symbol : ShiftedSymbolTable)
            filled.insert(QLatin1Char(symbol.plain), QLatin1Char(symbol.shifted));
        return filled;
    }();
    return symbols;
}

// Shift turns whatever the lock says.
bool TKeyboard::IsCapital() const
{
    return m_CapsLock != m_Shifted;
}

// The hexadecimal digits are the same in every script.
bool TKeyboard::IsExternalInForce() const
{
    return m_ExternalIndex >= 0 && m_Layout != KEYBOARD_LAYOUT_HEXADECIMAL &&
           m_ExternalIndex < CharsetLayouts();
}

int TKeyboard::CharsetLayouts() const
{
    return m_Charset ? qBound(0, m_Charset->GetLayoutCount(), MostExternalLayouts) : 0;
}

bool TKeyboard::HasLayoutsToChooseFrom() const
{
    return m_AltLayout != KEYBOARD_LAYOUT_NONE || CharsetLayouts() > 0;
}

void TKeyboard::SetLayout(EKeyboardLayout orig, EKeyboardLayout alt)
{
    m_Charset.clear();
    m_ExternalCheck.clear();
    m_ExternalIndex = -1;
    m_OrigLayout = Known(orig, KEYBOARD_LAYOUT_ENGLISH);
    m_AltLayout = Known(alt, KEYBOARD_LAYOUT_NONE);
    ApplyIfVisible();
}

void TKeyboard::SetEnglishLayout(bool english)
{
    if (english == bool(m_LayoutBeforeEnglish))
        return;
    if (english)
    {
        m_LayoutBeforeEnglish = std::make_unique<TSavedLayout>(
            TSavedLayout{m_OrigLayout, m_AltLayout, m_Charset, m_ExternalCheck, m_ExternalIndex});
        SetLayout(KEYBOARD_LAYOUT_ENGLISH, KEYBOARD_LAYOUT_NONE);
        return;
    }
    std::unique_ptr<TSavedLayout> const saved = std::move(m_LayoutBeforeEnglish);
    m_OrigLayout = saved->orig;
    m_AltLayout = saved->alt;
    m_Charset = saved->charset;
    m_ExternalCheck = saved->check;
    m_ExternalIndex = saved->externalIndex;
    ApplyIfVisible();
}

void TKeyboard::SetHexMode(bool hex)
{
    if (hex == (m_LayoutBeforeHex != KEYBOARD_LAYOUT_NONE))
        return;
    if (hex)
    {
        m_CapsLock = true;
        m_Shifted = false;
    }
    EKeyboardLayout const before = std::exchange(m_LayoutBeforeHex, hex ? m_Layout : KEYBOARD_LAYOUT_NONE);
    ChangeLayout(hex ? KEYBOARD_LAYOUT_HEXADECIMAL : before);
}

void TKeyboard::SetExternalLayout(QSharedPointer<Keyboard_layouts_api::Charset> const& charset,
                                  Keyboard_layouts_api::KeyCheck const* check)
{
    m_Charset = charset;
    m_ExternalCheck.clear();
    if (charset && check)
        m_ExternalCheck = check->Life();
    m_ExternalIndex = CharsetLayouts() > 0 ? 0 : -1;
    ApplyIfVisible();
}

void TKeyboard::CancelExternalLayout()
{
    SetExternalLayout({}, nullptr);
}

// The hexadecimal digits stay until they are taken back, but what comes after them is the newest choice.
void TKeyboard::ApplyIfVisible()
{
    if (!isVisible())
        return;
    bool const isHex = m_LayoutBeforeHex != KEYBOARD_LAYOUT_NONE;
    if (isHex)
        m_LayoutBeforeHex = m_OrigLayout;
    ChangeLayout(isHex ? KEYBOARD_LAYOUT_HEXADECIMAL : m_OrigLayout);
}

void TKeyboard::ChangeLayout(EKeyboardLayout layout)
{
    m_Accent = -1;
    // Nobody could take it back: its key makes room for that of the layouts.
    if (HasLayoutsToChooseFrom())
        m_Shifted = false;
    ApplyLayout(layout, IsCapital());
}

void TKeyboard::PushKeyChecker(Keyboard_layouts_api::KeyCheck const* check)
{
    m_KeyChecks.append(check ? check->Life() : QWeakPointer<Keyboard_layouts_api::KeyCheck const>());
    EnableKeys();
}

void TKeyboard::PopKeyChecker()
{
    if (m_KeyChecks.isEmpty())
        return;
    m_KeyChecks.removeLast();
    EnableKeys();
}

// What the field asks for goes before what the script asks for.
Keyboard_layouts_api::KeyCheck const* TKeyboard::ActiveKeyCheck() const
{
    if (!m_KeyChecks.isEmpty() && m_KeyChecks.constLast())
        return m_KeyChecks.constLast().toStrongRef().data();
    return IsExternalInForce() ? m_ExternalCheck.toStrongRef().data() : nullptr;
}

void TKeyboard::EnableFullStopKey(bool enable)
{
    m_FullStopEnabled = enable;
    EnableKeys();
}

void TKeyboard::EnableSpaceKey(bool enable)
{
    m_SpaceEnabled = enable;
    EnableKeys();
}

void TKeyboard::EnableOKButton(bool enable)
{
    m_OkEnabled = enable;
    EnableKeys();
}

void TKeyboard::SetEditKeysEnabled(bool enable)
{
    m_EditKeysEnabled = enable;
    EnableKeys();
}

void TKeyboard::EnableKeys()
{
    for (TKey* const key : qAsConst(m_Keys))
        key->setEnabled(IsKeyActive(key) && IsKeyWanted(key));
}

bool TKeyboard::IsKeyActive(TKey const* key) const
{
    if (!key)
        return false;
    if (!key->GetIsEditKey())
        return true;
    if (!m_EditKeysEnabled)
        return false;
    Keyboard_layouts_api::KeyCheck const* const check = ActiveKeyCheck();
    if (!check || key->GetCharacter().isNull())
        return true;
    return check->IsCharacterAllowed(key->GetCharacter()) && check->IsStringAllowed(key->GetText());
}

// What the client and a dead key ask for.
bool TKeyboard::IsKeyWanted(TKey const* key) const
{
    if (key == m_SpecialKeys[KEY_OK])
        return m_OkEnabled;
    if (key->GetCharacter() == QLatin1Char('.'))
        return m_FullStopEnabled;
    if (key->GetCharacter() == QLatin1Char(' '))
        return m_SpaceEnabled;
    if (m_Accent < 0)
        return true;
    auto const* const letter = std::find(m_LetterKeys.begin(), m_LetterKeys.end(), key);
    return letter == m_LetterKeys.end() || m_Accentable[std::size_t(m_Accent)].contains(
                                               QLatin1Char(char('A' + (letter - m_LetterKeys.begin()))));
}

void TKeyboard::DisableButtonPress(bool disable)
{
    m_PressVisible = !disable;
    for (TKey* const key : qAsConst(m_CharacterKeys))
        key->SetPressVisible(m_PressVisible);
    PrepareFaces();
}

void TKeyboard::ClickOk()
{
    if (TKey* const key = m_SpecialKeys[KEY_OK])
        key->animateClick(KeyPressMs);
}

void TKeyboard::ClickCancel()
{
    if (TKey* const key = m_SpecialKeys[KEY_CANCEL])
        key->animateClick(KeyPressMs);
}

bool TKeyboard::OnMMIBack()
{
    if (!isVisible())
        return TWindow::OnMMIBack();
    ClickCancel();
    return false;
}

QRect TKeyboard::GetInputAreaGeometry() const
{
    if (m_InputArea->geometry().isEmpty())
        return {};
    return m_InputArea->geometry().translated(pos()).adjusted(InputTextX, InputTextY, -InputTextX,
                                                              -InputTextY);
}

QString TKeyboard::GetValue() const
{
    return m_InputArea->GetText();
}

void TKeyboard::setVisible(bool visible)
{
    bool const wasVisible = isVisible();
    m_TellLater = true;
    TWindow::setVisible(visible);
    m_TellLater = false;
    if (!wasVisible && isVisible())
        Q_EMIT GeometryChanged();
}

void TKeyboard::showEvent(QShowEvent* event)
{
    TWindow::showEvent(event);
    if (m_TellLater)
    {
        ApplyIfVisible();
        return;
    }
    // Shown by its parent, which cannot say when it is done.
    m_TellLater = true;
    ApplyIfVisible();
    m_TellLater = false;
    QMetaObject::invokeMethod(this, &TKeyboard::GeometryChanged, Qt::QueuedConnection);
}

// The next client starts afresh, with what the lock says.
void TKeyboard::hideEvent(QHideEvent* event)
{
    TWindow::hideEvent(event);
    CloseLayoutSelector();
    for (TKey* const key : qAsConst(m_Keys))
        key->setDown(false);
    m_Shifted = false;
    m_Accent = -1;
}

void TKeyboard::OnKey(int index)
{
    if (index < 0 || index >= m_Keys.size())
        return;
    QChar character = m_Keys.at(index)->GetCharacter();
    if (character.isNull() || IsAccentKey(character))
        return;
    if (m_Accent >= 0)
    {
        character = AccentedCharacter(character);
        EndAccent();
    }
    QPointer<TKeyboard> const self(this);
    Q_EMIT NewChar(character);
    if (!self || !m_Shifted)
        return;
    m_Shifted = false;
    ApplyLayout(m_Layout, IsCapital());
}

// The keys get their plain faces anew, so a dead key that still waits needs its mark again.
void TKeyboard::OnShiftKey(int index)
{
    Q_UNUSED(index)
    QPointer<TKeyboard> const self(this);
    m_Shifted = !m_Shifted;
    ApplyLayout(m_Layout, IsCapital());
    if (self && m_Accent >= 0)
        AccentKeyClicked(m_Accent, false);
}

void TKeyboard::OnCAPSLockKey(int index)
{
    Q_UNUSED(index)
    m_Shifted = false;
    m_Accent = -1;
    m_CapsLock = !m_CapsLock;
    ApplyLayout(m_Layout, IsCapital());
}

void TKeyboard::OnLayoutChangeKey(int index)
{
    Q_UNUSED(index)
    if (CharsetLayouts() > 0)
        OpenLayoutSelector();
    else if (m_AltLayout != KEYBOARD_LAYOUT_NONE)
        ChangeLayout(m_Layout == m_AltLayout ? m_OrigLayout : m_AltLayout);
}

// By the row of the choice.
QVector<int> TKeyboard::LayoutChoices() const
{
    QVector<int> choices = {StandardLayout};
    if (m_AltLayout != KEYBOARD_LAYOUT_NONE)
        choices.append(AlternativeLayout);
    int const external = CharsetLayouts();
    for (int layout = 0; layout < external; ++layout)
        choices.append(layout);
    return choices;
}

// Its value is the row of the layout on show.
TEditItem TKeyboard::LayoutsItem() const
{
    QVector<int> const choices = LayoutChoices();
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, choices.size() - 1, 1);
    for (int row = 0; row < choices.size(); ++row)
    {
        int const choice = choices.at(row);
        if (choice == StandardLayout)
            item.textItems.setAt(row, tr("Standard"));
        else if (choice == AlternativeLayout)
            item.textItems.setAt(row, tr("Alternative"));
        else
            item.textItems.setAt(row, m_Charset->GetLayoutName(choice));
    }
    bool const isAlternative = m_AltLayout != KEYBOARD_LAYOUT_NONE && m_Layout == m_AltLayout;
    int const standing = isAlternative ? AlternativeLayout : StandardLayout;
    item.value = choices.indexOf(m_ExternalIndex >= 0 ? m_ExternalIndex : standing);
    return item;
}

// It is made for one choice, as the layouts may be others at the next.
void TKeyboard::OpenLayoutSelector()
{
    CloseLayoutSelector();
    TEditItem const item = LayoutsItem();
    auto* const selector = new TEditWidget(MainScreen, &item);
    m_LayoutSelector = selector;
    selector->SetLockExclusive(true);
    connect(selector, &TEditWidget::NewValue, this, &TKeyboard::OnLayoutSelected);
    connect(selector, &TEditWidget::NumberPadCancelled, this, &TKeyboard::OnLayoutSelectorCancelled);
    selector->SetPosition(SpecialKey(KEY_LAYOUT));
    selector->Open();
    Q_EMIT LayoutSelectorUp();
}

void TKeyboard::CloseLayoutSelector()
{
    if (!m_LayoutSelector)
        return;
    m_LayoutSelector->disconnect(this);
    m_LayoutSelector->Close();
    m_LayoutSelector->deleteLater();
    m_LayoutSelector = nullptr;
}

void TKeyboard::OnLayoutSelectorCancelled()
{
    CloseLayoutSelector();
    Q_EMIT LayoutSelectorDown();
}

void TKeyboard::OnLayoutSelected(double row)
{
    QPointer<TKeyboard> const self(this);
    CloseLayoutSelector();
    QVector<int> const choices = LayoutChoices();
    if (row >= 0 && row < choices.size() && m_LayoutBeforeHex == KEYBOARD_LAYOUT_NONE)
    {
        int const choice = choices.at(int(row));
        m_ExternalIndex = qMax(choice, -1);
        bool const isStandard = choice == StandardLayout || m_AltLayout == KEYBOARD_LAYOUT_NONE;
        ChangeLayout(isStandard ? m_OrigLayout : m_AltLayout);
    }
    if (self)
        Q_EMIT LayoutSelectorDown();
}

void TKeyboard::OnLeftArrow(int index)
{
    Q_UNUSED(index)
    Q_EMIT LeftArrow();
}

void TKeyboard::OnRightArrow(int index)
{
    Q_UNUSED(index)
    Q_EMIT RightArrow();
}

void TKeyboard::OnBackSpace(int index)
{
    Q_UNUSED(index)
    Q_EMIT Backspace();
}

// A click that began before the keyboard was hidden ends after it.
void TKeyboard::OnOk(int index)
{
    Q_UNUSED(index)
    if (!isVisible())
        return;
    QPointer<TKeyboard> const self(this);
    HideWindow();
    if (self)
        Q_EMIT Done();
}

void TKeyboard::OnCancel(int index)
{
    Q_UNUSED(index)
    if (!isVisible())
        return;
    QPointer<TKeyboard> const self(this);
    HideWindow();
    if (self)
        Q_EMIT Cancel();
}

int TKeyboard::AccentToIndex(QChar character) const
{
    if (IsExternalInForce())
        return -1;
    auto const* const found = std::find(DeadKeys.begin(), DeadKeys.end(), character.unicode());
    return found == DeadKeys.end() ? -1 : int(found - DeadKeys.begin());
}

// Works a dead key: the same one again ends it, another one takes its place.
bool TKeyboard::IsAccentKey(QChar character)
{
    int const accent = AccentToIndex(character);
    if (accent < 0)
        return false;
    bool const ends = accent == m_Accent;
    EndAccent();
    if (!ends)
        AccentKeyClicked(accent, false);
    return true;
}

QChar TKeyboard::AccentedCharacter(QChar character) const
{
    QChar accented = character.toUpper();
    if (m_Accent >= 0 && IsLetter(accented) && m_Accentable[std::size_t(m_Accent)].contains(accented))
        accented = QChar(ushort(AccentedChars[std::size_t(m_Accent)][accented.unicode() - 'A']));
    return IsCapital() ? accented : accented.toLower();
}

void TKeyboard::EndAccent()
{
    if (m_Accent >= 0)
        AccentKeyClicked(m_Accent, true);
}

// While a dead key waits, its letters show what they will make, and no other letter is alive.
void TKeyboard::AccentKeyClicked(int accent, bool release)
{
    m_Accent = release ? -1 : accent;
    MarkAccentKey(accent, !release);
    for (std::size_t i = 0; i < m_LetterKeys.size(); ++i)
    {
        QChar const letter = QLatin1Char(char('A' + i));
        if (m_LetterKeys[i])
            m_LetterKeys[i]->SetText(QString(AccentedCharacter(letter)), QString(), false, QString(), false);
    }
    EnableKeys();
}
