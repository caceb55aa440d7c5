#pragma once

#include "UtilityLibExport.h"

#include <QDateTime>

#include <functional>

/// The console's clocks. Everything that measures or shows time asks here, so a test can hold the time in its
/// hand instead of sleeping. Callable from any thread, the setters too.
class UTILITYLIB_EXPORT TLocalTime
{
public:
    /// Milliseconds of a monotonic clock with an arbitrary start. Never goes back, whatever the operator
    /// sets.
    static qint64 getCurrentTime();

    /// The local date and time that the operator has set: the system's plus the operator's offset.
    static QDateTime currentDateTime();

    /// Makes currentDateTime() answer \a dateTime now and run on from there. An invalid value returns to the
    /// system's own time, and so does one outside of the years 1 to 9999.
    static void SetCurrentDateTime(QDateTime const& dateTime);

    /// Replaces the monotonic clock (milliseconds); an empty function brings the real one back. While it is
    /// replaced the local time too moves by this clock, from the moment of the swap on. The function is
    /// called from whatever thread asks; once this returns the one before is neither running nor called
    /// again.
    static void SetClock(std::function<qint64()> clock);
};
