#pragma once

#include "UtilityLibExport.h"

#include <QDateTime>

#include <functional>

/// The console's clocks. Everything that measures or shows time asks here, so a test can hold the time in its
/// hand instead of sleeping. Callable from any thread; the setters are for one thread before others ask.
class UTILITYLIB_EXPORT TLocalTime
{
public:
    /// Milliseconds of a monotonic clock with an arbitrary start. Never goes back, whatever the operator
    /// sets.
    static qint64 getCurrentTime();

    /// The local date and time that the operator has set: the system's plus the operator's offset.
    static QDateTime currentDateTime();

    /// Makes currentDateTime() answer \a dateTime now and run on from there. An invalid value returns to the
    /// system's own time.
    static void SetCurrentDateTime(QDateTime const& dateTime);

    /// Replaces the monotonic clock (milliseconds); an empty function brings the real one back.
    static void SetClock(std::function<qint64()> clock);
};
