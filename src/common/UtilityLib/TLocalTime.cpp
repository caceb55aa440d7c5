#include "TLocalTime.h"

#include <QReadWriteLock>

#include <atomic>
#include <chrono>

namespace
{
// The range that every way of writing a date shares, and far from any overflow.
constexpr int FIRST_YEAR = 1;
constexpr int LAST_YEAR = 9999;

struct TClocks
{
    // Recursive, since a clock may itself ask for the time.
    QReadWriteLock lock{QReadWriteLock::Recursive};
    std::function<qint64()> clock;
    QDateTime systemAtSwap;
    qint64 clockAtSwap = 0;
    std::atomic<bool> isReplaced{false};
    std::atomic<qint64> offsetMs{0};
};

// Never destroyed: threads may ask for the time while the program ends.
TClocks& Clocks()
{
    static TClocks* const clocks = new TClocks;
    return *clocks;
}

qint64 SteadyMilliseconds()
{
    auto const now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

QDateTime SystemDateTime()
{
    TClocks& clocks = Clocks();
    if (clocks.isReplaced.load(std::memory_order_acquire))
    {
        QReadLocker const locker(&clocks.lock);
        if (clocks.clock)
            return clocks.systemAtSwap.addMSecs(clocks.clock() - clocks.clockAtSwap);
    }
    return QDateTime::currentDateTime();
}

bool IsUsable(QDateTime const& dateTime)
{
    int const year = dateTime.date().year();
    return dateTime.isValid() && year >= FIRST_YEAR && year <= LAST_YEAR;
}
} // namespace

qint64 TLocalTime::getCurrentTime()
{
    TClocks& clocks = Clocks();
    if (clocks.isReplaced.load(std::memory_order_acquire))
    {
        QReadLocker const locker(&clocks.lock);
        if (clocks.clock)
            return clocks.clock();
    }
    return SteadyMilliseconds();
}

QDateTime TLocalTime::currentDateTime()
{
    return SystemDateTime().addMSecs(Clocks().offsetMs.load());
}

void TLocalTime::SetCurrentDateTime(QDateTime const& dateTime)
{
    Clocks().offsetMs.store(IsUsable(dateTime) ? SystemDateTime().msecsTo(dateTime) : 0);
}

void TLocalTime::SetClock(std::function<qint64()> clock)
{
    TClocks& clocks = Clocks();
    bool const isReplaced = static_cast<bool>(clock);
    // Asked before the lock is taken, since the clock may itself ask for the time.
    qint64 const clockNow = isReplaced ? clock() : 0;
    QWriteLocker const locker(&clocks.lock);
    clocks.clock.swap(clock);
    clocks.systemAtSwap = QDateTime::currentDateTime();
    clocks.clockAtSwap = clockNow;
    clocks.isReplaced.store(isReplaced, std::memory_order_release);
}
