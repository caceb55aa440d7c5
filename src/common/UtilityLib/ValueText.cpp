#include "ValueText.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{
constexpr double EXPONENT_FROM = 1e15;
constexpr int EXPONENT_DECIMALS = 6;
// A sign, 15 digits, a point and 15 more, and some air.
constexpr int NUMBER_ROOM = 48;

constexpr int FIRST_YEAR = 1;
constexpr int LAST_YEAR = 9999;
constexpr double LAST_JULIAN_DAY = 5373484.0;

constexpr int MINUTES_PER_HOUR = 60;
constexpr int HOURS_PER_DAY = 24;
constexpr int NOON = 12;

QString NoValue()
{
    return QStringLiteral("---");
}

// A value halfway between two numbers of so many decimals is an odd multiple of half a unit in the last place
// over a power of five. to_chars() takes it to the even digit; of the remainder 1 that is the one below.
bool IsHalfwayAboveEvenDigit(double value, int decimals)
{
    return std::fmod(std::fabs(std::ldexp(value, decimals + 1)), 4.0) == 1.0;
}

char* WriteFixed(char* begin, char* end, double value, int decimals)
{
    end = std::to_chars(begin, end, value, std::chars_format::fixed, decimals).ptr;
    if (IsHalfwayAboveEvenDigit(value, decimals))
        ++end[-1];
    return end;
}

char* WriteNumber(char* begin, char* end, double value, int decimals)
{
    if (std::fabs(value) >= EXPONENT_FROM)
        return std::to_chars(begin, end, value, std::chars_format::scientific, EXPONENT_DECIMALS).ptr;
    return WriteFixed(begin, end, value, decimals);
}

bool IsZero(char const* begin, char const* end)
{
    return std::none_of(begin, end, [](char c) { return c >= '1' && c <= '9'; });
}
} // namespace

void AppendNumber(QString& text, double value, int decimals, QChar decimalPoint)
{
    if (!std::isfinite(value))
    {
        text += NoValue();
        return;
    }
    char digits[NUMBER_ROOM];
    char const* begin = digits;
    char const* const end = WriteNumber(digits, digits + NUMBER_ROOM, value, decimals);
    if (*begin == '-' && IsZero(begin, end))
        ++begin;
    for (; begin != end; ++begin)
        text += *begin == '.' ? decimalPoint : QChar(QLatin1Char(*begin));
}

QString TimeText(double hours, bool is24HourClock)
{
    if (!std::isfinite(hours))
        return NoValue();
    constexpr int MINUTES_PER_DAY = HOURS_PER_DAY * MINUTES_PER_HOUR;
    double const fromMidnight = std::fmod(hours, HOURS_PER_DAY);
    auto const rounded = static_cast<int>(std::lround(fromMidnight * MINUTES_PER_HOUR));
    int const minutes = (rounded + MINUTES_PER_DAY) % MINUTES_PER_DAY;
    int const hour = minutes / MINUTES_PER_HOUR;
    int const shownHour = is24HourClock ? hour : (hour + NOON - 1) % NOON + 1;
    QString text =
        QStringLiteral("%1:%2").arg(shownHour).arg(minutes % MINUTES_PER_HOUR, 2, 10, QLatin1Char('0'));
    if (!is24HourClock)
        text += hour < NOON ? QLatin1String(" am") : QLatin1String(" pm");
    return text;
}

QString DateText(double julianDay, EDateFormat format)
{
    // Compared so that it is false for what is not a number.
    if (!(julianDay >= 0.0 && julianDay < LAST_JULIAN_DAY + 1.0))
        return NoValue();
    QDate const date = QDate::fromJulianDay(static_cast<qint64>(julianDay));
    if (date.year() < FIRST_YEAR || date.year() > LAST_YEAR)
        return NoValue();
    static constexpr QStringView FORMATS[] = {u"dd/MM/yyyy", u"dd/yyyy/MM", u"MM/yyyy/dd",
                                              u"MM/dd/yyyy", u"yyyy/MM/dd", u"yyyy/dd/MM"};
    // QDate alone would take the digits of the system's language, which no number pad reads back.
    return QLocale::c().toString(date, FORMATS[format]);
}
