#include "VirtualClock.h"

#include <atomic>
#include <ctime>
#include <dlfcn.h>

namespace
{
constexpr qint64 Running = -1;
constexpr qint64 NanosecondsPerMillisecond = 1000000;
constexpr qint64 NanosecondsPerSecond = 1000000000;

// Nanoseconds; threads other than the one that holds the clock read it too.
std::atomic<qint64> s_HeldAt{Running};

int SystemClock(clockid_t clock, timespec* time)
{
    using TFunction = int (*)(clockid_t, timespec*);
    static auto const function = reinterpret_cast<TFunction>(dlsym(RTLD_NEXT, "clock_gettime"));
    return function(clock, time);
}
} // namespace

extern "C" Q_DECL_EXPORT int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    qint64 const heldAt = s_HeldAt;
    if (heldAt == Running || clock != CLOCK_MONOTONIC)
        return SystemClock(clock, time);
    time->tv_sec = heldAt / NanosecondsPerSecond;
    time->tv_nsec = heldAt % NanosecondsPerSecond;
    return 0;
}

void VirtualClock::Hold()
{
    timespec now = {};
    SystemClock(CLOCK_MONOTONIC, &now);
    // Coarse timers fire at round parts of a second: a round start makes every run the same.
    s_HeldAt = (now.tv_sec + 1) * NanosecondsPerSecond;
}

void VirtualClock::Advance(qint64 ms)
{
    s_HeldAt += ms * NanosecondsPerMillisecond;
}

void VirtualClock::Release()
{
    s_HeldAt = Running;
}
