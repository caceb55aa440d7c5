#include "TJob.h"

#include "TLocalTime.h"

#include <QRegularExpression>

#include <cmath>

namespace
{
constexpr double MillisecondsPerHour = 3600000.0;
constexpr double MinutesPerHour = 60.0;

QString Printable(QString const& name)
{
    QString printable = name;
    for (int i = 0; i < printable.size(); ++i)
    {
        if (!printable.at(i).isPrint())
            printable[i] = QLatin1Char(' ');
    }
    return printable.simplified().left(TJob::LongestOperatorName).trimmed();
}
} // namespace

// To the minute, as the operator would enter it.
TJob::TJob()
    : m_Server(NoServer())
{
    QDateTime const now = TLocalTime::currentDateTime();
    double const hours = now.time().msecsSinceStartOfDay() / MillisecondsPerHour;
    m_StartDay = qBound(FirstDay, double(now.date().toJulianDay()), LastDay);
    m_StartTime = std::floor(hours * MinutesPerHour) / MinutesPerHour;
}

template<typename T>
void TJob::Set(T* member, T const& value)
{
    if (*member == value)
        return;
    *member = value;
    Q_EMIT Changed();
}

void TJob::SetOperator(QString const& name)
{
    Set(&m_Operator, Printable(name));
}

void TJob::SetStartDay(double julianDay)
{
    if (!std::isnan(julianDay))
        Set(&m_StartDay, std::floor(qBound(FirstDay, julianDay, LastDay)));
}

void TJob::SetStartTime(double hours)
{
    if (!std::isfinite(hours))
        return;
    double const folded = hours - std::floor(hours / HoursPerDay) * HoursPerDay;
    Set(&m_StartTime, folded < HoursPerDay ? folded : 0.0);
}

void TJob::SetServer(QString const& address)
{
    if (IsAddress(address))
        Set(&m_Server, address);
}

QString TJob::NoServer()
{
    return QStringLiteral("0.0.0.0");
}

bool TJob::IsAddress(QString const& text)
{
    static QRegularExpression const form(
        QStringLiteral("\\A(?:(?:25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])(?:\\.(?!\\z)|\\z)){4}\\z"));
    return form.match(text).hasMatch();
}

bool TJob::IsOperatorName(QString const& name)
{
    return Printable(name) == name;
}
