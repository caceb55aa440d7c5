#include "ConfigManager.h"
#include "TMessageDialog.h"
#include "TNumberPad.h"
#include "TUnits.h"

#include <QDate>
#include <QPointer>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace
{
// What a conversion of units may have moved a bound by.
constexpr double Tolerance = 0.00001;
// What a message about bounds names at most.
constexpr double LargestInMessage = 1000000.0;
constexpr int MostPrintedDecimals = 100;

constexpr int HoursPerDay = 24;
constexpr int Noon = 12;
constexpr double MinutesPerHour = 60.0;
constexpr int MinuteDigits = 2;
constexpr double LastHourOfHalfDay = 12.99;
constexpr double LastMinuteOfDay = HoursPerDay - 1.0 / MinutesPerHour;

constexpr int FirstYear = 2000;
constexpr int LastYear = 2100;
constexpr int MonthsPerYear = 12;
constexpr int DaysOfLongMonth = 31;
constexpr int DaysOfFebruary = 28;
constexpr int February = 2;

constexpr int AddressDots = 3;
constexpr uint LargestOctet = 255;

enum ETimeError
{
    TIME_TAKEN = 0,
    TIME_BAD_MINUTES = 1,
    TIME_BAD_HALF_DAY_HOUR = 2,
    TIME_BAD_HOUR = 3,
    TIME_OUT_OF_BOUNDS = 4
};

enum EDateError
{
    DATE_TAKEN = 0,
    DATE_BAD_DAY = 1,
    DATE_BAD_MONTH = 2,
    DATE_BAD_YEAR = 3,
    DATE_NOT_IN_FEBRUARY = 4,
    DATE_NOT_IN_LEAP_FEBRUARY = 5,
    DATE_NOT_IN_SHORT_MONTH = 6,
    DATE_OUT_OF_BOUNDS = 7
};

/// Which section of a written date is which.
struct TDateOrder
{
    int day;
    int month;
    int year;
};

// By EDateFormat.
constexpr TDateOrder DateOrders[] = {{0, 1, 2}, {0, 2, 1}, {2, 0, 1}, {1, 0, 2}, {2, 1, 0}, {1, 2, 0}};

double JulianDay(int year, int month, int day)
{
    return double(QDate(year, month, day).toJulianDay());
}

QString PrintedTime(double hours)
{
    return TUnits::GetValueStringInContext(qBound(0.0, hours, LastMinuteOfDay), UNIT_TIME_OF_DAY,
                                           UNITS_CONTEXT_GENERAL, 0, nullptr, 1.0);
}

double FirstDay()
{
    return JulianDay(FirstYear, 1, 1);
}

double LastDay()
{
    return JulianDay(LastYear, MonthsPerYear, DaysOfLongMonth);
}

QString PrintedDate(double day)
{
    return TUnits::GetValueString(qBound(FirstDay(), day, LastDay()), QStringLiteral("DD/MM/YYYY"), 0,
                                  nullptr);
}
} // namespace

/// What is said of a refused entry. The second number may be missing.
struct TNumberPad::TMessage
{
    char const* text;
    int first;
    int second;
};

bool TNumberPad::Is24HourClock()
{
    return ConfigManager::Instance()->Read(CONFIG_24_HOUR_CLOCK).toBool();
}

TNumberPad::TRange TNumberPad::Bounds() const
{
    double const one = GetMinimum();
    double const other = GetMaximum();
    return {std::min(one, other), std::max(one, other)};
}

// Times and dates only: bounds without room between them were never set, and leave those of the calendar.
bool TNumberPad::IsWithinBounds() const
{
    TRange const bounds = Bounds();
    return !(bounds.low < bounds.high) || (m_Value >= bounds.low && m_Value <= bounds.high);
}

double TNumberPad::GetValueDbl()
{
    switch (m_PadType)
    {
    case NUMBER_PAD_TIME:
        SetNumericTimeValue();
        break;
    case NUMBER_PAD_DATE:
        SetNumericDateValue();
        break;
    default:
        SetNumericValue();
        break;
    }
    return m_Value;
}

void TNumberPad::OnOK()
{
    switch (m_PadType)
    {
    case NUMBER_PAD_TIME:
        AcceptTime();
        break;
    case NUMBER_PAD_DATE:
        AcceptDate();
        break;
    case NUMBER_PAD_IP_ADDRESS:
        AcceptIPAddress();
        break;
    default:
        AcceptNumber();
        break;
    }
}

double TNumberPad::GetNumericValueFromText() const
{
    return TUnits::DisplayableToInternalFloatStr(m_Text).toDouble();
}

void TNumberPad::SetNumericValue()
{
    if (!m_EntryStarted)
        return;
    m_Value = m_AllowEmpty && m_Text.isEmpty() ? m_EmptyValue : GetNumericValueFromText();
}

QString TNumberPad::Printed(double value) const
{
    int const decimals = std::min(m_DecimalPlaces, MostPrintedDecimals);
    QString text = QStringLiteral("%1").arg(value, 0, 'f', decimals);
    // What is rounded to zero has no sign.
    if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0.0)
        text.remove(0, 1);
    return TUnits::InternalToDisplayableFloatStr(text);
}

bool TNumberPad::PrintsLikeABound(TRange const& bounds) const
{
    QString const printed = Printed(m_Value);
    return printed == Printed(bounds.low) || printed == Printed(bounds.high);
}

// A value that is out of the bounds by less than the tolerance is taken as it is; one that the operator
// cannot tell from a bound means that bound.
void TNumberPad::AcceptNumber()
{
    SetNumericValue();
    TRange const bounds = Bounds();
    bool const isInRange = m_Value > bounds.low - Tolerance && m_Value < bounds.high + Tolerance;
    if (!std::isfinite(m_Value) || (!isInRange && !PrintsLikeABound(bounds)))
    {
        OnOutOfRange();
        return;
    }
    if (!isInRange)
        m_Value = qBound(bounds.low, m_Value, bounds.high);
    EmitNumber();
}

// The value is settled: nobody who hears of it is to have the entry read again, which may be another.
void TNumberPad::EmitNumber()
{
    bool const wasStarted = m_EntryStarted;
    m_EntryStarted = false;
    QPointer<TNumberPad> const self(this);
    // The sum leaves a negative zero behind.
    SetNewValueDbl(GetValueDbl() + 0.0);
    if (self)
        SetNewText(GetEntry());
    if (self && !m_ClearOnFirstEntry)
        m_EntryStarted = m_EntryStarted || wasStarted;
}

void TNumberPad::OnOutOfRange()
{
    TRange const bounds = Bounds();
    ShowBounds(Printed(std::max(bounds.low, -LargestInMessage)),
               Printed(std::min(bounds.high, LargestInMessage)));
}

void TNumberPad::ShowBounds(QString const& low, QString const& high)
{
    OnOutOfRangeTimeBased(tr("Enter a value between %0%2 and %1%2").arg(low, high, m_Suffix));
}

void TNumberPad::OnOutOfRangeTimeBased(QString message)
{
    // Parentless: the message belongs on the screen, not into the pad.
    if (!m_ErrorDialog)
        m_ErrorDialog = new TMessageDialog(nullptr, tr("Value Out Of Range"), QString(), MESSAGE_OK);
    QPointer<TNumberPad> const self(this);
    m_ErrorDialog->setUpdatesEnabled(true);
    m_ErrorDialog->SetMessage(message);
    m_ErrorDialog->ShowWindow(true);
    if (self)
        SetClearOnFirstEntry(true);
}

void TNumberPad::ShowMessage(TMessage const& message)
{
    QString text = tr(message.text).arg(message.first);
    if (message.second > 0)
        text = text.arg(message.second);
    OnOutOfRangeTimeBased(text + QLatin1Char('\n'));
}

void TNumberPad::AcceptTime()
{
    static constexpr TMessage messages[] = {
        {QT_TR_NOOP("Enter minutes between %1 and %2"), 0, 59},
        {QT_TR_NOOP("Enter hour value between %1 and %2"), 0, 12},
        {QT_TR_NOOP("Enter hour value between %1 and %2"), 0, 23},
    };
    SetNumericTimeValue();
    if (m_TimeError == TIME_TAKEN)
        SetNewValueDbl(m_Value);
    else if (m_TimeError == TIME_OUT_OF_BOUNDS)
        ShowBounds(PrintedTime(Bounds().low), PrintedTime(Bounds().high));
    else
        ShowMessage(messages[m_TimeError - TIME_BAD_MINUTES]);
}

// A half of the day that cannot be applied leaves the value as it was.
void TNumberPad::SetNumericTimeValue()
{
    double const before = m_Value;
    m_TimeError = TIME_TAKEN;
    if (m_AllowEmpty && m_Text.isEmpty())
    {
        m_Value = m_EmptyValue;
        return;
    }
    ReadClock();
    if (m_TimeError == TIME_TAKEN)
        CheckClock();
    if (m_TimeError == TIME_BAD_HALF_DAY_HOUR)
        m_Value = before;
}

void TNumberPad::CheckClock()
{
    TRange const bounds = Bounds();
    if (Is24HourClock())
    {
        if (m_Value < bounds.low || m_Value > bounds.high)
            m_TimeError = TIME_BAD_HOUR;
    }
    // The hour counts as it is written, also one of the afternoon.
    else if (m_Value < bounds.low || m_Value > LastHourOfHalfDay)
    {
        m_TimeError = TIME_BAD_HALF_DAY_HOUR;
    }
    else
    {
        ApplyHalfDay();
        if (!IsWithinBounds())
            m_TimeError = TIME_OUT_OF_BOUNDS;
    }
}

// The value becomes what stands in the entry, which is not yet one of the half of the day.
void TNumberPad::ReadClock()
{
    QChar const colon = QLatin1Char(':');
    double hours = m_Text.section(colon, 0, 0).toDouble();
    if (m_Text.contains(colon))
    {
        QString const minuteText = m_Text.section(colon, -1);
        double const minutes = minuteText.toDouble();
        if (minuteText.size() > MinuteDigits || minutes >= MinutesPerHour)
            m_TimeError = TIME_BAD_MINUTES;
        else if (hours >= HoursPerDay && Is24HourClock())
            m_TimeError = TIME_BAD_HOUR;
        hours += minutes / MinutesPerHour;
    }
    if (m_TimeError == TIME_TAKEN && !std::isfinite(hours))
        m_TimeError = Is24HourClock() ? TIME_BAD_HOUR : TIME_BAD_HALF_DAY_HOUR;
    if (m_TimeError == TIME_TAKEN)
        m_Value = hours;
}

// 12:30 is half an hour after midnight, or after noon.
void TNumberPad::ApplyHalfDay()
{
    if (int(m_Value) == Noon)
        m_Value -= Noon;
    if (m_AmPm.contains(QLatin1String("pm")))
        m_Value += Noon;
}

void TNumberPad::AcceptDate()
{
    static constexpr TMessage messages[] = {
        {QT_TR_NOOP("Enter Day between %1 and %2."), 1, DaysOfLongMonth},
        {QT_TR_NOOP("Enter Month between %1 and %2."), 1, MonthsPerYear},
        {QT_TR_NOOP("Enter Year between %1 and %2."), FirstYear, LastYear},
        {QT_TR_NOOP("Month has only %1 days."), DaysOfFebruary, 0},
        {QT_TR_NOOP("Month has only %1 days."), DaysOfFebruary + 1, 0},
        {QT_TR_NOOP("Month has only %1 days."), DaysOfLongMonth - 1, 0},
    };
    SetNumericDateValue();
    if (m_DateError == DATE_TAKEN)
        SetNewValueDbl(m_Value);
    else if (m_DateError == DATE_OUT_OF_BOUNDS)
        ShowBounds(PrintedDate(Bounds().low), PrintedDate(Bounds().high));
    else
        ShowMessage(messages[m_DateError - DATE_BAD_DAY]);
}

void TNumberPad::SetNumericDateValue()
{
    m_DateError = DATE_TAKEN;
    if (m_AllowEmpty && m_Text.isEmpty())
    {
        m_Value = m_EmptyValue;
        return;
    }
    ReadDate();
    if (m_DateError == DATE_TAKEN && !IsDayWithinBounds())
        m_DateError = DATE_OUT_OF_BOUNDS;
}

// Bounds without a day that can be entered are those of an item that has none.
bool TNumberPad::IsDayWithinBounds() const
{
    TRange const bounds = Bounds();
    bool const areBounds = bounds.high >= FirstDay() && bounds.low <= LastDay();
    return !areBounds || IsWithinBounds();
}

// Without a slash the entry is the Julian day itself.
void TNumberPad::ReadDate()
{
    QStringList const sections = m_Text.split(QLatin1Char('/'));
    if (sections.size() == 1)
    {
        double const day = m_Text.toDouble();
        if (!std::isfinite(day) || day < FirstDay())
            m_DateError = DATE_BAD_YEAR;
        else
            m_Value = day;
        return;
    }
    int const format = ConfigManager::Instance()->Read(CONFIG_DATE_FORMAT).toInt();
    if (format < 0 || format >= int(std::size(DateOrders)))
    {
        m_DateError = DATE_BAD_DAY;
        return;
    }
    TDateOrder const& order = DateOrders[format];
    auto const number = [&sections](int section) { return sections.value(section).toInt(); };
    int const year = number(order.year);
    int const month = number(order.month);
    int const day = number(order.day);
    m_DateError = FaultOfDate(year, month, day);
    if (QDate::isValid(year, month, day) && m_DateError == DATE_TAKEN)
        m_Value = JulianDay(year, month, day);
}

// An impossible date that none of the rules names is passed over: the value stays.
int TNumberPad::FaultOfDate(int year, int month, int day)
{
    if (day < 1 || day > DaysOfLongMonth)
        return DATE_BAD_DAY;
    if (month < 1 || month > MonthsPerYear)
        return DATE_BAD_MONTH;
    if (year < FirstYear || year > LastYear)
        return DATE_BAD_YEAR;
    if (QDate::isValid(year, month, day))
        return DATE_TAKEN;
    if (month == February && day > DaysOfFebruary)
        return QDate::isLeapYear(year) ? DATE_NOT_IN_LEAP_FEBRUARY : DATE_NOT_IN_FEBRUARY;
    return day == DaysOfLongMonth ? DATE_NOT_IN_SHORT_MONTH : DATE_TAKEN;
}

void TNumberPad::AcceptIPAddress()
{
    if (m_Text.count(QLatin1Char('.')) != AddressDots)
        RefuseFormOfAddress();
    else if (ValidateIPAddress())
        SetNewIPAddressValue(GetEntry());
}

void TNumberPad::RefuseFormOfAddress()
{
    OnOutOfRangeTimeBased(tr("Address must be four numbers separated by dots."));
}

bool TNumberPad::ValidateIPAddress()
{
    QStringList numbers = m_Text.split(QLatin1Char('.'));
    if (numbers.size() > AddressDots + 1)
    {
        RefuseFormOfAddress();
        return false;
    }
    for (QString& number : numbers)
    {
        bool isNumber = false;
        uint const octet = number.toUInt(&isNumber);
        if (!isNumber || octet > LargestOctet)
        {
            OnOutOfRangeTimeBased(tr("Each number has to be between 0 and 255."));
            return false;
        }
        number = QString::number(octet);
    }
    m_Text = numbers.join(QLatin1Char('.'));
    ProcessTextChange();
    return true;
}

// Each number is checked as soon as its dot is typed.
void TNumberPad::OnIPAddressDot()
{
    if (!ValidateIPAddress())
        return;
    if (m_Text.count(QLatin1Char('.')) >= AddressDots)
    {
        RefuseFormOfAddress();
        return;
    }
    m_Text += QLatin1Char('.');
    ProcessTextChange();
    ShowEntryWithoutHalfDay();
}
