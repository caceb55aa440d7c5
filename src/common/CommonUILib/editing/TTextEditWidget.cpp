#include "TTextEditWidget.h"

#include "Fonts.h"
#include "ITopLevelWindow.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TInvalidFileNameKeyCheck.h"
#include "TKeyboard.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QValidator>

#include <utility>

namespace
{
constexpr int CentredWordWrap = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
constexpr int MostCharacters = 32767;
// Far more than the value field has room for.
constexpr int MostCharactersOfValue = 200;
constexpr QChar FullStop('.');
constexpr QColor SelectionColour(32, 70, 140);

// Line ends and tabs of all kinds.
bool IsBreak(QChar character)
{
    return character.isSpace() && character.category() != QChar::Separator_Space;
}

bool IsHexadecimal(QChar character)
{
    return (character >= QLatin1Char('0') && character <= QLatin1Char('9')) ||
           (character >= QLatin1Char('A') && character <= QLatin1Char('F'));
}

bool IsPairAt(QString const& text, int place)
{
    return place + 1 < text.size() && text.at(place).isHighSurrogate() && text.at(place + 1).isLowSurrogate();
}

// A run of breaks is one blank; half a pair is no character.
QString OneLine(QString const& text)
{
    QString line;
    line.reserve(text.size());
    for (int i = 0; i < text.size(); ++i)
    {
        QChar const character = text.at(i);
        if (IsPairAt(text, i))
        {
            line.append(text.midRef(i++, 2));
        }
        else if (IsBreak(character))
        {
            if (i == 0 || !IsBreak(text.at(i - 1)))
                line.append(QLatin1Char(' '));
        }
        else if (!character.isSurrogate() && character.category() != QChar::Other_Control)
        {
            line.append(character);
        }
    }
    return line;
}

QString HexadecimalDigits(QString const& text)
{
    QString digits;
    for (QChar const character : text)
    {
        if (IsHexadecimal(character.toUpper()))
            digits.append(character.toUpper());
    }
    return digits;
}

QRect GrownByOne(QRect const& rect)
{
    return rect.adjusted(-1, -1, 1, 1);
}
} // namespace

/// Holds what is typed or pasted to the rules of the editor, whichever way it comes in.
class TTextEditWidget::TTypedText : public QValidator
{
public:
    explicit TTypedText(TTextEditWidget* editor)
        : QValidator(editor)
        , m_Editor(*editor)
    {
    }

    State validate(QString& input, int& position) const override
    {
        QString const permitted = m_Editor.Permitted(input);
        if (permitted != input)
        {
            position = qMin(m_Editor.Permitted(input.left(position)).size(), permitted.size());
            input = permitted;
        }
        return m_Editor.IsConfirmable(input) ? Acceptable : Intermediate;
    }

private:
    TTextEditWidget const& m_Editor;
};

TTextEditWidget::TTextEditWidget(QWidget* parent)
    : QWidget(parent && parent == MainScreen ? nullptr : parent, Qt::FramelessWindowHint)
    , m_Overlay(this)
    , m_TypedText(new TTypedText(this))
{
    hide();
    MakeValueButton();
    MakeLineEdit();
}

TTextEditWidget::~TTextEditWidget()
{
    ReleaseKeyboard();
}

Keyboard_layouts_api::KeyCheck const* TTextEditWidget::GetInvalidFileNameKeyCheck()
{
    static TInvalidFileNameKeyCheck const check;
    return &check;
}

Keyboard_layouts_api::KeyCheck const* TTextEditWidget::Convert(ETextRestrictionType type)
{
    return type == TEXT_RESTRICTION_FILE_NAMES ? GetInvalidFileNameKeyCheck() : nullptr;
}

// It shows and does nothing else.
void TTextEditWidget::MakeValueButton()
{
    m_ValueButton = new TPushButton(this, -1, QString());
    m_ValueButton->SetFontProperties(Qt::black, STANDARD_FONT_SIZE, true, true, false, CentredWordWrap,
                                     false);
    m_ValueButton->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_ValueButton->setFocusPolicy(Qt::NoFocus);
    m_ValueButton->SetMMIBehaviour(MMI_EXCLUDED);
    m_ValueButton->hide();
}

// The keyboard's input area is its ground. No menu and no dragging: both need windows of their own.
void TTextEditWidget::MakeLineEdit()
{
    m_LineEdit = new QLineEdit(this);
    QFont font = STANDARD_BOLD_FONT;
    font.setPixelSize(STANDARD_FONT_SIZE);
    m_LineEdit->setFont(font);
    QPalette colours = m_LineEdit->palette();
    colours.setColor(QPalette::Base, Qt::transparent);
    colours.setColor(QPalette::Text, Qt::black);
    colours.setColor(QPalette::Highlight, SelectionColour);
    colours.setColor(QPalette::HighlightedText, Qt::white);
    m_LineEdit->setPalette(colours);
    m_LineEdit->setFrame(false);
    m_LineEdit->setMaxLength(MostCharacters);
    m_LineEdit->setContextMenuPolicy(Qt::NoContextMenu);
    m_LineEdit->setDragEnabled(false);
    m_LineEdit->setAcceptDrops(false);
    m_LineEdit->installEventFilter(this);
    m_LineEdit->hide();
    connect(m_LineEdit, &QLineEdit::textChanged, this, &TTextEditWidget::OnLineEditChanged);
    connect(m_LineEdit, &QLineEdit::selectionChanged, this, &TTextEditWidget::UpdateEnabledKeys);
    connect(m_LineEdit, &QLineEdit::cursorPositionChanged, this, &TTextEditWidget::UpdateEnabledKeys);
    // Later: the line edit does not survive a slot of NewText() that deletes the overlay under its key press.
    connect(m_LineEdit, &QLineEdit::returnPressed, this, &TTextEditWidget::OnLineEditReturn,
            Qt::QueuedConnection);
}

void TTextEditWidget::Open()
{
    m_Overlay.Open(this);
    SourceMovedSlot();
}

// Also when it was shown without the platform.
void TTextEditWidget::Close()
{
    QPointer<TTextEditWidget> const self(this);
    m_Overlay.Close();
    if (self && !isHidden())
        hide();
}

void TTextEditWidget::SetPosition(QWidget* source, TEditOverlay::TSourceRect rect)
{
    bool const wasVisible = QWidget::isVisible();
    QPointer<TTextEditWidget> const self(this);
    if (wasVisible)
        Close();
    if (!self)
        return;
    m_Overlay.SetSource(source, std::move(rect));
    if (wasVisible)
        Open();
}

bool TTextEditWidget::isVisible() const
{
    return m_KeyboardConnected && QWidget::isVisible();
}

bool TTextEditWidget::IsTextHidden() const
{
    return m_HideText;
}

bool TTextEditWidget::IsValueFieldHidden() const
{
    return m_HideValueField;
}

// The rules come into force with the showing: those that stand now may be those of the edit before.
void TTextEditWidget::SetValue(QString const& text)
{
    m_LineEdit->setText(OneLine(text));
}

void TTextEditWidget::SetAllowEmptyStrings(bool allow)
{
    m_AllowEmptyStrings = allow;
    FollowRules();
}

void TTextEditWidget::SetFilenameMode(bool filenameMode)
{
    m_FilenameMode = filenameMode;
    FollowRules();
}

void TTextEditWidget::SetHexMode(bool hexMode)
{
    m_HexMode = hexMode;
    if (m_Keyboard)
        m_Keyboard->SetHexMode(hexMode);
    FollowRules();
}

void TTextEditWidget::SetMaxLength(int length)
{
    int const bounded = qBound(0, length, MostCharacters);
    if (bounded == m_LineEdit->maxLength())
        return;
    m_LineEdit->setMaxLength(bounded);
    FollowRules();
}

void TTextEditWidget::SetTextRestriction(ETextRestrictionType type)
{
    Keyboard_layouts_api::KeyCheck const* const check = Convert(type);
    if (check != m_KeyCheck && m_Keyboard)
    {
        m_Keyboard->PopKeyChecker();
        m_Keyboard->PushKeyChecker(check);
    }
    m_KeyCheck = check;
    if (type == TEXT_RESTRICTION_FILE_NAMES)
    {
        m_FilenameMode = true;
        m_AllowEmptyStrings = false;
    }
    FollowRules();
}

void TTextEditWidget::SetHideText(bool hide)
{
    m_HideText = hide;
    m_LineEdit->setEchoMode(hide ? QLineEdit::Password : QLineEdit::Normal);
    ShowValue();
}

void TTextEditWidget::SetHideValueField(bool hide)
{
    m_HideValueField = hide;
    if (QWidget::isVisible())
        SourceMovedSlot();
}

void TTextEditWidget::SetHideButtonPress(bool hide)
{
    m_HideButtonPress = hide;
    if (m_Keyboard)
        m_Keyboard->DisableButtonPress(hide);
}

QPoint TTextEditWidget::Position(QWidget* reference)
{
    return reference ? reference->mapFromGlobal(mapToGlobal(QPoint())) : pos();
}

void TTextEditWidget::PositionChanged()
{
    m_Overlay.FollowLater("SourceMovedSlot");
}

void TTextEditWidget::SourceMovedSlot()
{
    m_Overlay.FillParent();
    PlaceValueField(m_Overlay.SourceRect());
    SetLineEditGeometry();
    if (m_Keyboard)
        m_Keyboard->Reposition();
}

void TTextEditWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_KeyboardConnected)
        return;
    // Without a keyboard nobody could leave the overlay again.
    if (!BorrowKeyboard())
    {
        CheckKeyboardLater();
        return;
    }
    ShowValueField();
    ConnectKeyboard();
    m_Overlay.Lock(QStringLiteral("Text Editor"), KVN::MODAL_LOCAL);
    // Whoever heard of the lock may have closed the overlay, or taken the keyboard.
    if (!m_Keyboard)
        return;
    ShowLineEdit();
    if (m_Keyboard)
        PrepareKeyboard();
    if (MainScreen && m_Keyboard)
    {
        MainScreen->RaiseOffScreenButtons();
        MainScreen->PushMMIWidget(m_Keyboard);
    }
}

void TTextEditWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    m_Field.clear();
    m_SelectionStart = -1;
    m_LineEdit->setValidator(nullptr);
    ReleaseKeyboard();
}

// One client at a time: the last one wins.
TKeyboard* TTextEditWidget::FreeKeyboard()
{
    ITopLevelWindow* const topLevel = m_Overlay.TopLevelWindow();
    TKeyboard* const keyboard = topLevel ? topLevel->GetKeyboard() : nullptr;
    auto* const client = keyboard ? qobject_cast<TTextEditWidget*>(keyboard->parentWidget()) : nullptr;
    if (!client || client == this)
        return keyboard;
    client->SendAway();
    return topLevel->GetKeyboard();
}

bool TTextEditWidget::BorrowKeyboard()
{
    m_Keyboard = FreeKeyboard();
    if (!m_Keyboard)
        return false;
    m_KeyboardConnected = true;
    QWidget* const parent = m_Keyboard->parentWidget();
    m_FormerParent = parent == this ? nullptr : parent;
    // Sooner than the weak reference knows: its children go in the middle of its end.
    if (m_FormerParent)
        connect(m_FormerParent, &QObject::destroyed, this, [this] { m_FormerParent.clear(); });
    QPoint const position = m_Keyboard->pos();
    m_Keyboard->setParent(this);
    m_Keyboard->move(position);
    connect(m_Keyboard, &QObject::destroyed, this,
            [this]
            {
                m_Keyboard = nullptr;
                CheckKeyboardLater();
            });
    m_Keyboard->installEventFilter(this);
    // Whoever hears of the showing may end it, and with the handing back goes one check.
    m_Keyboard->PushKeyChecker(m_KeyCheck);
    m_Keyboard->ShowWindow(false);
    return m_Keyboard != nullptr;
}

void TTextEditWidget::ConnectKeyboard()
{
    connect(m_Keyboard, &TKeyboard::NewChar, this, &TTextEditWidget::OnNewChar);
    connect(m_Keyboard, &TKeyboard::Backspace, this, &TTextEditWidget::OnBackspace);
    connect(m_Keyboard, &TKeyboard::LeftArrow, this, &TTextEditWidget::OnLeftArrow);
    connect(m_Keyboard, &TKeyboard::RightArrow, this, &TTextEditWidget::OnRightArrow);
    connect(m_Keyboard, &TKeyboard::Cancel, this, &TTextEditWidget::OnKeyboardCancel);
    connect(m_Keyboard, &TKeyboard::Done, this, &TTextEditWidget::OnKeyboardDone);
    connect(m_Keyboard, &TKeyboard::GeometryChanged, this, &TTextEditWidget::OnKeyboardGeometryChanged);
    connect(m_Keyboard, &TKeyboard::LayoutSelectorUp, this, &TTextEditWidget::OnLayoutSelectorUp);
    connect(m_Keyboard, &TKeyboard::LayoutSelectorDown, this, &TTextEditWidget::OnLayoutSelectorDown);
}

void TTextEditWidget::ShowLineEdit()
{
    m_LineEdit->setValidator(m_TypedText);
    SetLineEditGeometry();
    m_LineEdit->show();
    m_LineEdit->raise();
    m_LineEdit->setFocus();
    m_LineEdit->activateWindow();
    QString const permitted = Permitted(m_LineEdit->text());
    if (permitted != m_LineEdit->text())
        m_LineEdit->setText(permitted);
    m_LineEdit->selectAll();
}

void TTextEditWidget::PrepareKeyboard()
{
    SetEditKeysEnabled(m_LineEdit->text(), true);
    if (m_HexMode)
        m_Keyboard->SetHexMode(true);
    // Whoever hears of the new keys may end the edit.
    if (!m_Keyboard)
        return;
    UpdateEnabledKeys();
    m_Keyboard->DisableButtonPress(m_HideButtonPress);
}

void TTextEditWidget::ReleaseKeyboard()
{
    if (!m_KeyboardConnected)
        return;
    m_KeyboardConnected = false;
    QPointer<TTextEditWidget> const self(this);
    HandBack(std::exchange(m_Keyboard, nullptr));
    if (self)
        m_Overlay.Unlock();
}

// Whoever borrows it next finds it as it was found. One that somebody else has taken stays where it is.
void TTextEditWidget::HandBack(TKeyboard* keyboard)
{
    QWidget* const formerParent = std::exchange(m_FormerParent, nullptr);
    if (formerParent)
        disconnect(formerParent, nullptr, this, nullptr);
    if (!keyboard)
        return;
    keyboard->removeEventFilter(this);
    disconnect(keyboard, nullptr, this, nullptr);
    m_EnabledKeys = TEnabledKeys();
    QPointer<TKeyboard> const alive(keyboard);
    keyboard->PopKeyChecker();
    keyboard->SetEditKeysEnabled(true);
    keyboard->EnableOKButton(true);
    keyboard->EnableFullStopKey(true);
    keyboard->EnableSpaceKey(true);
    keyboard->DisableButtonPress(false);
    keyboard->SetHexMode(false);
    // Last: whoever hears of it may be the next client already.
    if (alive && keyboard->parentWidget() == this)
    {
        keyboard->setParent(formerParent);
        keyboard->HideWindow();
    }
}

bool TTextEditWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_Keyboard)
        NoticeKeyboard(*event);
    if (watched != m_LineEdit || event->type() != QEvent::KeyPress)
        return false;
    // A key that is refused must not take what is selected along.
    QString const typed = static_cast<QKeyEvent*>(event)->text();
    return !typed.isEmpty() && typed.at(0).isPrint() && Permitted(typed).isEmpty();
}

void TTextEditWidget::NoticeKeyboard(QEvent const& event)
{
    if (event.type() == QEvent::Hide)
    {
        CheckKeyboardLater();
    }
    else if (event.type() == QEvent::ParentChange && m_Keyboard->parentWidget() != this)
    {
        ReleaseKeyboard();
        CheckKeyboardLater();
    }
}

// The keyboard hides by itself before it says what has ended the edit.
void TTextEditWidget::CheckKeyboardLater()
{
    QMetaObject::invokeMethod(this, &TTextEditWidget::OnKeyboardLost, Qt::QueuedConnection);
}

void TTextEditWidget::OnKeyboardLost()
{
    bool const isLost = !m_Keyboard || m_Keyboard->isHidden();
    if (isLost && QWidget::isVisible())
        OnKeyboardCancel();
}

// Its owner hears of it later: the next client is in the middle of its showing.
void TTextEditWidget::SendAway()
{
    if (CloseForGood())
        QMetaObject::invokeMethod(this, &TTextEditWidget::OnSentAway, Qt::QueuedConnection);
}

// One that was opened again meanwhile is not cancelled.
void TTextEditWidget::OnSentAway()
{
    if (!QWidget::isVisible())
        Q_EMIT Cancel();
}

// False when whoever heard of it deleted the overlay.
bool TTextEditWidget::CloseForGood()
{
    QPointer<TTextEditWidget> const self(this);
    m_LineEdit->hide();
    Close();
    return !self.isNull();
}

void TTextEditWidget::OnKeyboardDone()
{
    if (!IsConfirmable(m_LineEdit->text()))
    {
        OnKeyboardCancel();
        return;
    }
    QString const text = m_LineEdit->text().trimmed();
    if (CloseForGood())
        Q_EMIT NewText(text);
}

void TTextEditWidget::OnKeyboardCancel()
{
    if (CloseForGood())
        Q_EMIT Cancel();
}

void TTextEditWidget::OnLineEditReturn()
{
    if (!m_Keyboard || !IsConfirmable(m_LineEdit->text()))
        return;
    QPointer<TTextEditWidget> const self(this);
    m_Keyboard->HideWindow();
    if (self)
        OnKeyboardDone();
}

void TTextEditWidget::OnNewChar(QChar character)
{
    m_LineEdit->insert(QString(character));
    UpdateEnabledKeys();
}

void TTextEditWidget::OnBackspace()
{
    m_LineEdit->backspace();
    UpdateEnabledKeys();
}

void TTextEditWidget::OnLeftArrow()
{
    m_LineEdit->cursorBackward(false);
}

void TTextEditWidget::OnRightArrow()
{
    m_LineEdit->cursorForward(false);
}

void TTextEditWidget::OnKeyboardGeometryChanged()
{
    SetLineEditGeometry();
}

void TTextEditWidget::OnLayoutSelectorUp()
{
    m_SelectionStart = m_LineEdit->selectionStart();
    m_SelectionLength = m_LineEdit->selectionLength();
}

void TTextEditWidget::OnLayoutSelectorDown()
{
    if (m_SelectionStart >= 0)
        m_LineEdit->setSelection(m_SelectionStart, m_SelectionLength);
    m_SelectionStart = -1;
    m_LineEdit->setFocus();
}

void TTextEditWidget::OnLineEditChanged(QString const& text)
{
    SetEditKeysEnabled(text, false);
    UpdateEnabledKeys();
    ShowValue();
}

// A full-width keyboard has no input area.
bool TTextEditWidget::IsTypedOnValueField() const
{
    return m_Keyboard && m_Keyboard->GetInputAreaGeometry().isEmpty();
}

void TTextEditWidget::SetLineEditGeometry()
{
    if (!m_Keyboard)
        return;
    m_LineEdit->setGeometry(IsTypedOnValueField() ? m_ValueButton->geometry()
                                                  : m_Keyboard->GetInputAreaGeometry());
    ShowValueField();
}

// Whatever the answer is, the field is no larger than the screen and its surroundings.
void TTextEditWidget::PlaceValueField(QRect const& source)
{
    QRect const surroundings = rect().adjusted(-width(), -height(), width(), height());
    QRect const seen = source & surroundings.translated(pos());
    QRect const field = seen.isEmpty() ? QRect() : GrownByOne(seen.translated(-pos()));
    update(m_ValueButton->geometry());
    m_ValueButton->setGeometry(field);
    KVN::PixmapManager* const pixmaps = QWidget::isVisible() ? tscreenPixmapManager() : nullptr;
    m_Field.clear();
    if (pixmaps && !field.isEmpty())
        m_Field = pixmaps->GetResizedPixmap(PixmapNames::ModalFieldSelected, field.width(), field.height());
    update(field);
}

void TTextEditWidget::ShowValueField()
{
    m_ValueButton->setVisible(!m_HideValueField && !IsTypedOnValueField());
    m_ValueButton->lower();
    ShowValue();
}

void TTextEditWidget::ShowValue()
{
    if (m_ValueButton->isHidden())
        return;
    m_ValueButton->SetText(m_LineEdit->displayText().left(MostCharactersOfValue), QString(), false, QString(),
                           false);
}

void TTextEditWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (!m_Field || (m_HideValueField && !IsTypedOnValueField()))
        return;
    QPainter(this).drawPixmap(m_ValueButton->pos(), *m_Field);
}

// What lies behind the overlay is locked.
bool TTextEditWidget::focusNextPrevChild(bool next)
{
    return isVisible() || QWidget::focusNextPrevChild(next);
}

void TTextEditWidget::FollowRules()
{
    if (!m_Keyboard)
        return;
    QString const permitted = Permitted(m_LineEdit->text());
    if (permitted != m_LineEdit->text())
        m_LineEdit->setText(permitted);
    SetEditKeysEnabled(m_LineEdit->text(), false);
    UpdateEnabledKeys();
}

QString TTextEditWidget::Permitted(QString const& text) const
{
    QString const line = m_HexMode ? HexadecimalDigits(text) : OneLine(text);
    return m_KeyCheck ? m_KeyCheck->Filtered(line) : line;
}

bool TTextEditWidget::IsConfirmable(QString const& text) const
{
    return !IsLineEditEmpty(text) && !IsFullStopAtStart(text) && !IsFullStopAtEnd(text);
}

bool TTextEditWidget::IsLineEditEmpty(QString const& text) const
{
    return !m_AllowEmptyStrings && text.trimmed().isEmpty();
}

// Of what is confirmed, which has no blanks around it.
bool TTextEditWidget::IsFullStopAtStart(QString const& text) const
{
    return m_FilenameMode && text.trimmed().startsWith(FullStop);
}

bool TTextEditWidget::IsFullStopAtEnd(QString const& text) const
{
    return m_FilenameMode && text.trimmed().endsWith(FullStop);
}

bool TTextEditWidget::IsLineEditAtStart() const
{
    return m_FilenameMode && (m_LineEdit->cursorPosition() == 0 || m_LineEdit->selectionStart() == 0);
}

void TTextEditWidget::SetEditKeysEnabled(QString const& text, bool force)
{
    TEnabledKeys keys = m_EnabledKeys;
    keys.edit = text.size() < m_LineEdit->maxLength();
    TellKeyboard(keys, force);
}

void TTextEditWidget::UpdateEnabledKeys()
{
    TEnabledKeys keys = m_EnabledKeys;
    keys.ok = IsConfirmable(m_LineEdit->text());
    keys.start = !IsLineEditAtStart();
    TellKeyboard(keys, false);
}

// Only what is new: each of these goes over all keys.
void TTextEditWidget::TellKeyboard(TEnabledKeys const& keys, bool force)
{
    if (!m_Keyboard)
        return;
    TEnabledKeys const before = std::exchange(m_EnabledKeys, keys);
    if (force || keys.edit != before.edit)
        m_Keyboard->SetEditKeysEnabled(keys.edit);
    if (force || keys.ok != before.ok)
        m_Keyboard->EnableOKButton(keys.ok);
    if (!force && keys.start == before.start)
        return;
    m_Keyboard->EnableFullStopKey(keys.start);
    m_Keyboard->EnableSpaceKey(keys.start);
}
