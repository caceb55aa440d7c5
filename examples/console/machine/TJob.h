#pragma once

#include <QObject>
#include <QString>

/// What is worked on: who does it, since when, and where the results are sent.
class TJob : public QObject
{
    Q_OBJECT

public:
    static constexpr int LongestOperatorName = 40;
    static constexpr double FirstDay = 2458850.0; ///< Julian day of 1 January 2020
    static constexpr double LastDay = 2488069.0;  ///< Julian day of 31 December 2099
    static constexpr double HoursPerDay = 24.0;

    /// Begins now, with an operator who has not told his name and without a server.
    TJob();

    /// Empty while unknown.
    QString const& Operator() const { return m_Operator; }
    /// Cut where it is too long; what is no printable character becomes a blank.
    void SetOperator(QString const& name);
    /// The Julian day number of the day on which the job has begun.
    double StartDay() const { return m_StartDay; }
    /// Held to the range; what is no number changes nothing.
    void SetStartDay(double julianDay);
    /// The time of that day, in hours from 0 to below 24.
    double StartTime() const { return m_StartTime; }
    /// Folded into one day; what is no number changes nothing.
    void SetStartTime(double hours);
    /// Four numbers with points between; NoServer() for none.
    QString const& Server() const { return m_Server; }
    /// Anything but an address changes nothing.
    void SetServer(QString const& address);

    static QString NoServer();
    static bool IsAddress(QString const& text);
    /// Whether SetOperator() takes \a name as it is.
    static bool IsOperatorName(QString const& name);

Q_SIGNALS:
    void Changed();

private:
    template<typename T>
    void Set(T* member, T const& value);

    QString m_Operator;
    double m_StartDay;
    double m_StartTime;
    QString m_Server;
};
