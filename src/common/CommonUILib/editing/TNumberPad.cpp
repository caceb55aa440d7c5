#include "TNumberPad.h"

#include "Metrics.h"
#include "PixmapNames.h"
#include "TButtonSurface.h"
#include "TKey.h"
#include "TMessageDialog.h"
#include "TUnitAbbreviations.h"
#include "TUnits.h"
#include "TUnitSettings.h"

#include <QCoreApplication>
#include <QGridLayout>

#include <cmath>
#include <limits>

namespace
{
constexpr int DigitCount = 10;
constexpr int GridRows = 4;
constexpr int GridColumns = 5;
constexpr QChar BackspaceFace(0x21E6);
constexpr QChar NonBreakingSpace(0x00A0);
// AddCharacter() empties the entry for it.
constexpr QChar ClearCharacter(7);

// Milliseconds.
constexpr int RepeatDelay = 250;
constexpr int BackspaceInterval = 50;
constexpr int StepInterval = 100;
constexpr int ClickTime = 100;

constexpr int LeastWidthForLargerIcons = 61;
constexpr int FieldSideBorder = 17;
constexpr int FieldUpperBorder = 5;
constexpr int ContentMargin = 4;

constexpr int MinutesPerHour = 60;
constexpr int Noon = 12;
// Far beyond any time, and still an int.
constexpr double MostHours = 1e6;

QString Tip(char const* text)
{
    return QCoreApplication::translate("ToolTip", text);
}

QString BackspaceTip()
{
    return Tip(QT_TRANSLATE_NOOP("ToolTip", "Backspace")) + QLatin1Char('\n') +
           Tip(QT_TRANSLATE_NOOP("ToolTip", "(Press and hold to delete multiple characters)"));
}

ENumberPadType KnownType(ENumberPadType type)
{
    return type >= NUMBER_PAD_DECIMAL && type <= NUMBER_PAD_IP_ADDRESS ? type : NUMBER_PAD_DECIMAL;
}

// Not so "---" and "1.000000e+15".
bool IsPlainNumber(QString const& text)
{
    QString const digits = text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
    QChar const point = TUnits::DisplayableDecimalPointChar();
    return std::all_of(digits.begin(), digits.end(),
                       [point](QChar character) { return character.isDigit() || character == point; });
}
} // namespace

/// The two keys that are not the same on every pad.
struct TNumberPad::TKeysOfType
{
    char separator; // 0: the operator's decimal point
    char const* separatorTip;
    void (TNumberPad::*onSeparator)();
    char const* extraIcon; // null: a blank key without function
    char const* extraTip;
    void (TNumberPad::*onExtra)();
};

struct TNumberPad::TCell
{
    int key;
    int row;
    int column;
    int rows;
    int columns;
};

TNumberPad::TKeysOfType const& TNumberPad::KeysOfType() const
{
    static constexpr TKeysOfType keys[] = {
        {0, QT_TRANSLATE_NOOP("ToolTip", "Decimal Point"), &TNumberPad::OnDecimalPoint, "button-plusMinus",
         QT_TRANSLATE_NOOP("ToolTip", "Toggle between a positive and a negative number"),
         &TNumberPad::OnSign},
        {':', QT_TRANSLATE_NOOP("ToolTip", "Hour and Minute separator"), &TNumberPad::OnColon, "am-pm",
         QT_TRANSLATE_NOOP("ToolTip", "Toggle between am and pm"), &TNumberPad::OnAMandPM},
        {'/', QT_TRANSLATE_NOOP("ToolTip", "Date separator"), &TNumberPad::OnForwardSlash, nullptr, nullptr,
         nullptr},
        {'.', QT_TRANSLATE_NOOP("ToolTip", "IP address separator"), &TNumberPad::OnIPAddressDot, nullptr,
         nullptr, nullptr},
    };
    return keys[m_PadType];
}

TNumberPad::TNumberPad(QWidget* parent, ENumberPadType type)
    : TWindow(parent)
    , m_Maximum(double(std::numeric_limits<float>::max()))
    , m_PadType(KnownType(type))
    , m_Surface(new TButtonSurface(this, TButtonSurface::RestTime))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    SetBackground(PixmapNames::ModalInputWindow);
    MakeDigits();
    MakeEditKeys();
    MakeKeysOfType();
    MakeEndKeys();
    MakeField();
    MakeLayouts();
    SetInlineOptions(false, false);
    TNumberPad::UpdateDecimalDotButton();
    // Now, not at the first showing, which it would undo.
    TNumberPad::Setup();
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TNumberPad::OnUnitSettingsChanged);
}

TNumberPad::~TNumberPad()
{
    delete m_ErrorDialog.data();
}

void TNumberPad::Setup()
{
    TWindow::Setup();
    HideWindow();
}

TKey* TNumberPad::MakeKey(int id, QChar character, QString const& icon)
{
    auto* const key = new TKey(m_Surface, character, icon, !icon.isEmpty(), true, GridRows, GridColumns, id);
    key->SetCustomSize(1, NUMPAD_KEYS_WIDTH, NUMPAD_KEYS_HEIGHT, BORDER_Y_OFFSET);
    m_Keys[std::size_t(id)] = key;
    return key;
}

void TNumberPad::MakeDigits()
{
    for (int digit = 0; digit < DigitCount; ++digit)
    {
        TKey const* const key = MakeKey(digit, QLatin1Char(char('0' + digit)), QString());
        connect(key, &TPushButton::Clicked, this, &TNumberPad::OnDigit);
    }
}

void TNumberPad::MakeEditKeys()
{
    TKey* const backspace = MakeKey(PAD_KEY_BACKSPACE, BackspaceFace, QString());
    backspace->SetToolTip(BackspaceTip());
    backspace->SetAutoRepeat(true, RepeatDelay, BackspaceInterval);
    connect(backspace, &QAbstractButton::clicked, this, &TNumberPad::OnBackspace);

    TKey* const minus = MakeKey(PAD_KEY_MINUS, QChar(), QStringLiteral("icon-minus"));
    minus->SetToolTip(Tip(QT_TRANSLATE_NOOP("ToolTip", "Decrement")));
    connect(minus, &QAbstractButton::clicked, this, &TNumberPad::DecrementPressed);
    TKey* const plus = MakeKey(PAD_KEY_PLUS, QChar(), QStringLiteral("icon-plus"));
    plus->SetToolTip(Tip(QT_TRANSLATE_NOOP("ToolTip", "Increment")));
    connect(plus, &QAbstractButton::clicked, this, &TNumberPad::IncrementPressed);
    for (TKey* const key : {minus, plus})
    {
        key->SetAutoRepeat(true, RepeatDelay, StepInterval);
        key->SetLook(PixmapNames::ButtonBlueUp, PixmapNames::BlueButtonSelected);
    }
}

void TNumberPad::MakeKeysOfType()
{
    TKeysOfType const& keys = KeysOfType();
    QChar const face =
        keys.separator == 0 ? TUnits::DisplayableDecimalPointChar() : QLatin1Char(keys.separator);
    TKey* const separator = MakeKey(PAD_KEY_SEPARATOR, face, QString());
    separator->SetToolTip(Tip(keys.separatorTip));
    connect(separator, &QAbstractButton::clicked, this, keys.onSeparator);

    TKey* const extra = MakeKey(PAD_KEY_EXTRA, QChar(), QString::fromLatin1(keys.extraIcon));
    if (keys.onExtra == nullptr)
    {
        extra->setEnabled(false);
        return;
    }
    extra->SetToolTip(Tip(keys.extraTip));
    connect(extra, &QAbstractButton::clicked, this, keys.onExtra);
}

void TNumberPad::MakeEndKeys()
{
    bool const large = NUMPAD_KEYS_WIDTH >= LeastWidthForLargerIcons;
    TKey const* const cancel = MakeKey(
        PAD_KEY_CANCEL, QChar(), large ? QStringLiteral("icon-cross-larger") : QStringLiteral("icon-cross"));
    connect(cancel, &QAbstractButton::clicked, this, &TNumberPad::OnCancel);
    TKey* const ok = MakeKey(PAD_KEY_OK, QChar(),
                             large ? QStringLiteral("icon-tick-larger") : QStringLiteral("icon-tick"));
    ok->SetLook(PixmapNames::ButtonGreenUp, PixmapNames::GreenButtonSelected);
    ok->SetBackgroundDisabled(PixmapNames::ButtonDisabled);
    connect(ok, &QAbstractButton::clicked, this, &TNumberPad::OnOK);
}

void TNumberPad::MakeField()
{
    m_DisplayField = new TPushButton(m_Surface, -1, QString());
    m_DisplayField->SetBackground(PixmapNames::KeyboardInputField);
    m_DisplayField->setMinimumHeight(NUMPAD_KEYS_HEIGHT);
    m_DisplayField->SetBackgroundBorderArea(FieldSideBorder, FieldUpperBorder, FieldSideBorder,
                                            FieldUpperBorder);
    m_DisplayField->SetFontProperties(Qt::black, STANDARD_FONT_SIZE, true, false, false, Qt::AlignCenter,
                                      false);
    // A long entry must not push the keys apart.
    m_DisplayField->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    // It shows and does nothing else.
    m_DisplayField->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_DisplayField->SetMMIBehaviour(MMI_EXCLUDED);
}

void TNumberPad::MakeLayouts()
{
    auto* const grid = new QGridLayout(m_Surface);
    grid->setContentsMargins(INPUT_WINDOW_MARGIN, INPUT_WINDOW_MARGIN,
                             INPUT_WINDOW_MARGIN + INPUT_WINDOW_SHADOW_SIZE,
                             INPUT_WINDOW_MARGIN + INPUT_WINDOW_SHADOW_SIZE);
    grid->setSpacing(0);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    auto* const around = new QGridLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->setSpacing(0);
    around->setSizeConstraint(QLayout::SetFixedSize);
    around->addWidget(m_Surface, 0, 0);
}

void TNumberPad::SetInlineOptions(bool showField, bool showIncDec)
{
    static constexpr TCell compact[] = {
        {7, 0, 0, 1, 1},          {8, 0, 1, 1, 1},
        {9, 0, 2, 1, 1},          {PAD_KEY_BACKSPACE, 0, 3, 1, 1},
        {4, 1, 0, 1, 1},          {5, 1, 1, 1, 1},
        {6, 1, 2, 1, 1},          {PAD_KEY_EXTRA, 1, 3, 1, 1},
        {1, 2, 0, 1, 1},          {2, 2, 1, 1, 1},
        {3, 2, 2, 1, 1},          {PAD_KEY_CANCEL, 2, 3, 1, 1},
        {0, 3, 0, 1, 2},          {PAD_KEY_SEPARATOR, 3, 2, 1, 1},
        {PAD_KEY_OK, 3, 3, 1, 1},
    };
    static constexpr TCell centred[] = {
        {PAD_KEY_SEPARATOR, 1, 0, 1, 1},
        {7, 1, 1, 1, 1},
        {8, 1, 2, 1, 1},
        {9, 1, 3, 1, 1},
        {PAD_KEY_EXTRA, 1, 4, 1, 1},
        {0, 2, 0, 2, 1},
        {4, 2, 1, 1, 1},
        {5, 2, 2, 1, 1},
        {6, 2, 3, 1, 1},
        {PAD_KEY_CANCEL, 2, 4, 1, 1},
        {1, 3, 1, 1, 1},
        {2, 3, 2, 1, 1},
        {3, 3, 3, 1, 1},
        {PAD_KEY_OK, 3, 4, 1, 1},
    };
    auto* const grid = qobject_cast<QGridLayout*>(m_Surface->layout());
    if (!grid)
        return;
    while (QLayoutItem* const item = grid->takeAt(0))
        delete item;
    m_Keys[0]->SetCustomSize(1, showField ? NUMPAD_KEYS_WIDTH : 2 * NUMPAD_KEYS_WIDTH,
                             showField ? 2 * NUMPAD_KEYS_HEIGHT : NUMPAD_KEYS_HEIGHT, BORDER_Y_OFFSET);
    m_Keys[PAD_KEY_MINUS]->setVisible(showField && showIncDec);
    m_Keys[PAD_KEY_PLUS]->setVisible(showField && showIncDec);
    m_DisplayField->setVisible(showField);
    if (showField)
    {
        PlaceFirstRow(*grid, showIncDec);
        for (TCell const& cell : centred)
            Place(*grid, cell);
    }
    else
    {
        for (TCell const& cell : compact)
            Place(*grid, cell);
    }
    FitToKeys();
}

void TNumberPad::Place(QGridLayout& grid, TCell const& cell)
{
    grid.addWidget(m_Keys[std::size_t(cell.key)], cell.row, cell.column, cell.rows, cell.columns);
}

void TNumberPad::PlaceFirstRow(QGridLayout& grid, bool showIncDec)
{
    int const fieldColumns = showIncDec ? 2 : 4;
    grid.addWidget(m_DisplayField, 0, 0, 1, fieldColumns);
    Place(grid, {PAD_KEY_BACKSPACE, 0, fieldColumns, 1, 1});
    if (!showIncDec)
        return;
    Place(grid, {PAD_KEY_MINUS, 0, fieldColumns + 1, 1, 1});
    Place(grid, {PAD_KEY_PLUS, 0, fieldColumns + 2, 1, 1});
}

void TNumberPad::FitToKeys()
{
    m_Surface->setFixedSize(m_Surface->layout()->sizeHint());
    setFixedSize(layout()->sizeHint());
}

void TNumberPad::SetIncDecEnabled(bool inc, bool dec)
{
    m_Keys[PAD_KEY_PLUS]->setEnabled(inc);
    m_Keys[PAD_KEY_MINUS]->setEnabled(dec);
}

void TNumberPad::showEvent(QShowEvent* event)
{
    if (m_PadType == NUMBER_PAD_TIME)
    {
        UpdateHalfDayButton();
        UpdateColonButton();
    }
    SetClearOnFirstEntry(true);
    TWindow::showEvent(event);
}

void TNumberPad::resizeEvent(QResizeEvent* event)
{
    int const frame = 2 * ContentMargin + INPUT_WINDOW_SHADOW_SIZE;
    GetWindowContent()->setGeometry(ContentMargin, ContentMargin, width() - frame, height() - frame);
    SetContentRect(rect().adjusted(0, 0, -INPUT_WINDOW_SHADOW_SIZE, -INPUT_WINDOW_SHADOW_SIZE));
    TWindow::resizeEvent(event);
}

KVN::MMICapableWidget* TNumberPad::OnMMIEnter()
{
    if (m_Keys[PAD_KEY_OK]->isVisibleTo(this))
        m_Keys[PAD_KEY_OK]->animateClick(ClickTime);
    return nullptr;
}

bool TNumberPad::OnMMIBack()
{
    if (m_Keys[PAD_KEY_CANCEL]->isVisibleTo(this))
        m_Keys[PAD_KEY_CANCEL]->animateClick(ClickTime);
    return false;
}

// Pads outlive a change of the operator's settings.
void TNumberPad::OnUnitSettingsChanged()
{
    if (m_PadType == NUMBER_PAD_DECIMAL)
        m_Keys[PAD_KEY_SEPARATOR]->SetText(TUnits::DisplayableDecimalPointChar(), QString(), false, QString(),
                                           false);
    if (!isVisible())
        return;
    if (m_PadType == NUMBER_PAD_TIME)
        UpdateHalfDayButton();
    ShowValueAnew();
}

void TNumberPad::ShowValueAnew()
{
    QPointer<TNumberPad> const self(this);
    SetValue(m_Value);
    if (self)
        SetClearOnFirstEntry(true);
}

ENumberPadType TNumberPad::GetPadType() const
{
    return m_PadType;
}

QString TNumberPad::GetEntry() const
{
    return m_Text;
}

bool TNumberPad::IsBeingTyped() const
{
    return m_EntryStarted && !m_ClearOnFirstEntry;
}

double TNumberPad::GetMinimum() const
{
    return m_Minimum;
}

double TNumberPad::GetMaximum() const
{
    return m_Maximum;
}

void TNumberPad::SetBounds(double min, double max)
{
    auto const largest = double(std::numeric_limits<float>::max());
    m_Minimum = std::isnan(min) ? -largest : min;
    m_Maximum = std::isnan(max) ? largest : max;
}

void TNumberPad::AllowEmpty(bool allow, double emptyValue)
{
    m_AllowEmpty = allow;
    m_EmptyValue = emptyValue;
}

bool TNumberPad::IsEmptyAllowed() const
{
    return m_AllowEmpty;
}

void TNumberPad::SetNumberOfDecimalPlaces(int places)
{
    m_DecimalPlaces = qMax(0, places);
    ResetDigitsAndDecimalButtons();
}

int TNumberPad::GetNumberOfDecimalPlaces() const
{
    return m_DecimalPlaces;
}

void TNumberPad::SetBehavior(double value, int decimals)
{
    SetNumberOfDecimalPlaces(decimals);
    SetValue(value);
}

void TNumberPad::SetValueDbl(double value)
{
    SetValue(value);
}

void TNumberPad::SetValue(double value)
{
    m_Value = value;
    switch (m_PadType)
    {
    case NUMBER_PAD_TIME:
        SetValueTime(value);
        break;
    case NUMBER_PAD_DATE:
        SetValueDate(value);
        break;
    default:
        SetStringValue();
        break;
    }
}

void TNumberPad::SetStringValue()
{
    if (m_PadType == NUMBER_PAD_IP_ADDRESS)
        return;
    // Who hears of the text may ask for the value: that is not to be read from what is printed.
    m_EntryStarted = false;
    m_Text = m_AllowEmpty && m_Value == m_EmptyValue
                 ? QString()
                 : TUnits::GetValueString(m_Value, QString(), m_DecimalPlaces, nullptr);
    QPointer<TNumberPad> const self(this);
    ProcessTextChange();
    ShowEntryWithoutHalfDay();
    if (self)
        SetClearOnFirstEntry(true);
}

void TNumberPad::SetValueTime(double value)
{
    double const shown = std::isfinite(value) ? qBound(-MostHours, value, MostHours) : 0.0;
    auto hours = int(shown);
    auto const minutes = int(std::round((shown - hours) * MinutesPerHour));
    m_AmPm.clear();
    if (!Is24HourClock())
    {
        m_AmPm = hours < Noon ? QStringLiteral(" am") : QStringLiteral(" pm");
        if (hours == 0)
            hours = Noon;
        else if (hours > Noon)
            hours -= Noon;
    }
    m_Text = QStringLiteral("%1:%2").arg(hours).arg(minutes, 2, 10, QLatin1Char('0'));
    UpdateColonButton();
    ProcessTextChange();
    ShowEntry();
}

void TNumberPad::SetValueDate(double value)
{
    m_Text = TUnits::GetValueString(value, QStringLiteral("DD/MM/YYYY"), 0, nullptr);
    ShowEntryWithoutHalfDay();
}

void TNumberPad::SetIPAddress(QString const& address)
{
    m_Text = address;
    ShowInField(address);
    ProcessTextChange();
}

void TNumberPad::SetSuffix(QString const& suffix)
{
    QString const trimmed = suffix.trimmed();
    EUnitsType const unit = TUnitAbbreviations::GetUnitTypeFromString(trimmed, false);
    if (unit != UNIT_NONE && !TUnitAbbreviations::UnitTypeRequiresSpacing(unit))
        m_Suffix = suffix;
    else
        m_Suffix = trimmed.isEmpty() ? QString() : NonBreakingSpace + trimmed;
    SetValue(m_Value);
}

void TNumberPad::ShowEntry()
{
    SetNewText(m_Text + m_Suffix + m_AmPm);
}

void TNumberPad::ShowEntryWithoutHalfDay()
{
    SetNewText(m_Text + m_Suffix);
}

void TNumberPad::ShowInField(QString const& text)
{
    m_DisplayField->SetText(text, QString(), false, QString(), false);
}

void TNumberPad::SetNewText(QString const& text)
{
    ShowInField(text);
    Q_EMIT NewText(text);
}

void TNumberPad::SetNewValueDbl(double value)
{
    ShowInField(TUnits::GetValueString(value, UNIT_NONE, 2, nullptr, 1.0));
    Q_EMIT NewValueDbl(value);
}

void TNumberPad::SetNewIPAddressValue(QString const& address)
{
    ShowInField(address);
    Q_EMIT NewIPAddressValue(address);
}

void TNumberPad::ProcessTextChange() {}

void TNumberPad::SetClearOnFirstEntry(bool clear)
{
    m_ClearOnFirstEntry = clear;
    m_EntryStarted = !clear;
    if (clear)
        ResetDigitsAndDecimalButtons();
}

// A sign that was typed before the first digit stays.
void TNumberPad::ClearTextIfFirstEntry()
{
    if (!m_ClearOnFirstEntry)
        return;
    bool const keepsSign = m_EntryStarted && m_Text.startsWith(QLatin1Char('-'));
    m_Text.clear();
    QPointer<TNumberPad> const self(this);
    if (keepsSign)
        InvertSign();
    if (!self)
        return;
    SetClearOnFirstEntry(false);
    m_FractionDigits = -1;
}

void TNumberPad::AddCharacter(QChar character, bool clearFirst)
{
    QPointer<TNumberPad> const self(this);
    if (clearFirst)
        ClearTextIfFirstEntry();
    else
        m_EntryStarted = true;
    if (!self || character.isNull())
        return;
    if (character == ClearCharacter)
        m_Text.clear();
    else if (character == QLatin1Char('-'))
        InvertSign();
    else
        m_Text += character;
    if (!self)
        return;
    ProcessTextChange();
    ShowEntry();
}

void TNumberPad::InvertSign()
{
    if (m_Text.startsWith(QLatin1Char('-')))
        m_Text.remove(0, 1);
    else
        m_Text.prepend(QLatin1Char('-'));
    ProcessTextChange();
    ShowEntryWithoutHalfDay();
}

// Nothing but the count of digits behind the point decides what may be typed; whether the value is in range
// shows when it is accepted.
void TNumberPad::ResetDigitsAndDecimalButtons()
{
    m_FractionDigits = -1;
    if (m_PadType == NUMBER_PAD_DECIMAL)
    {
        QString const number = m_Text.section(QLatin1Char(' '), 0, 0);
        int const point = number.indexOf(TUnits::DisplayableDecimalPointChar());
        if (point >= 0)
            m_FractionDigits = number.size() - point - 1;
    }
    UpdateDigitButtons();
    if (m_PadType == NUMBER_PAD_DECIMAL)
        UpdateDecimalDotButton();
}

void TNumberPad::UpdateDigitButtons()
{
    bool const enabled = m_PadType != NUMBER_PAD_DECIMAL || !IsBeingTyped() || m_FractionDigits == -1 ||
                         m_FractionDigits < m_DecimalPlaces;
    for (int digit = 0; digit < DigitCount; ++digit)
        m_Keys[std::size_t(digit)]->setEnabled(enabled);
}

// The key with which times, dates and addresses are separated does not depend on decimals.
void TNumberPad::UpdateDecimalDotButton()
{
    if (m_PadType != NUMBER_PAD_DECIMAL)
        return;
    SetDecimalPointEnabled(MayTypeDecimalPoint());
}

// A point that is only shown goes with the first key.
bool TNumberPad::MayTypeDecimalPoint() const
{
    bool const hasPoint = m_Text.contains(TUnits::DisplayableDecimalPointChar());
    return m_DecimalPlaces > 0 && !(IsBeingTyped() && hasPoint);
}

void TNumberPad::SetDecimalPointEnabled(bool enabled)
{
    m_Keys[PAD_KEY_SEPARATOR]->setEnabled(enabled);
}

void TNumberPad::UpdateColonButton()
{
    m_Keys[PAD_KEY_SEPARATOR]->setEnabled(!m_Text.contains(QLatin1Char(':')));
}

void TNumberPad::UpdateHalfDayButton()
{
    m_Keys[PAD_KEY_EXTRA]->setVisible(!Is24HourClock());
}

void TNumberPad::UpdateKeysAfterTyping()
{
    if (m_PadType == NUMBER_PAD_DECIMAL)
        ResetDigitsAndDecimalButtons();
    else if (m_PadType == NUMBER_PAD_TIME)
        UpdateColonButton();
}

void TNumberPad::OnDigit(int id)
{
    if (id < 0 || id >= DigitCount)
        return;
    QPointer<TNumberPad> const self(this);
    AddCharacter(m_Keys[std::size_t(id)]->GetCharacter(), true);
    if (self)
        UpdateKeysAfterTyping();
}

void TNumberPad::OnBackspace()
{
    SetClearOnFirstEntry(false);
    if (!m_Text.isEmpty())
    {
        // A half of it would be read as another number.
        bool const isWhole = m_PadType == NUMBER_PAD_DECIMAL && !IsPlainNumber(m_Text);
        m_Text.chop(isWhole ? m_Text.size() : 1);
        ProcessTextChange();
    }
    UpdateKeysAfterTyping();
    ShowEntry();
}

void TNumberPad::OnDecimalPoint()
{
    QPointer<TNumberPad> const self(this);
    ClearTextIfFirstEntry();
    if (!self)
        return;
    if (m_Text.isEmpty())
        m_Text = QStringLiteral("0");
    m_Text += TUnits::DisplayableDecimalPointChar();
    ProcessTextChange();
    ShowEntry();
    if (self)
        ResetDigitsAndDecimalButtons();
}

void TNumberPad::OnSign()
{
    AddCharacter(QLatin1Char('-'), false);
}

void TNumberPad::OnForwardSlash()
{
    AddCharacter(QLatin1Char('/'), true);
}

void TNumberPad::OnColon()
{
    QPointer<TNumberPad> const self(this);
    ClearTextIfFirstEntry();
    if (!self || m_Text.contains(QLatin1Char(':')))
        return;
    if (m_Text.isEmpty())
        m_Text = QStringLiteral("0");
    m_Text += QLatin1Char(':');
    ProcessTextChange();
    UpdateColonButton();
    ShowEntry();
}

void TNumberPad::OnAMandPM()
{
    m_AmPm = m_AmPm.contains(QLatin1String("am")) ? QStringLiteral(" pm") : QStringLiteral(" am");
    ShowEntry();
}

void TNumberPad::OnCancel()
{
    Q_EMIT Cancel();
}
