#include "LockProbe.h"

#include <QMutex>
#include <QReadWriteLock>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <dlfcn.h>
#include <vector>

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace
{
// Waits in steps of 100 ns; the last counts all that were longer.
constexpr std::int64_t Step = 100;
constexpr std::size_t Steps = 200000;
std::array<std::uint64_t, Steps> waits;
std::uint64_t waitCount = 0;
std::int64_t longest = 0;
thread_local bool isTimed = false;

template<typename TAcquire>
auto Timed(TAcquire acquire)
{
    if (!isTimed)
        return acquire();
    auto const start = std::chrono::steady_clock::now();
    acquire();
    std::int64_t const wait = std::chrono::nanoseconds(std::chrono::steady_clock::now() - start).count();
    ++waits[std::min(static_cast<std::size_t>(wait / Step), Steps - 1)];
    ++waitCount;
    longest = std::max(longest, wait);
}

// What comes behind this program in the search order: Qt's own.
template<typename TFunction>
TFunction* Next(char const* symbol)
{
    return reinterpret_cast<TFunction*>(dlsym(RTLD_NEXT, symbol));
}

#ifdef __SANITIZE_THREAD__
enum EKind : unsigned
{
    ForReading = __tsan_mutex_read_lock,
    Recursive = __tsan_mutex_write_reentrant,
    Tried = __tsan_mutex_try_lock,
    TriedInVain = __tsan_mutex_try_lock_failed
};

void BeforeLock(void* lock, unsigned kind)
{
    __tsan_mutex_pre_lock(lock, kind);
}

void AfterLock(void* lock, unsigned kind)
{
    __tsan_mutex_post_lock(lock, kind, 0);
}

void BeforeUnlock(void* lock, unsigned kind)
{
    __tsan_mutex_pre_unlock(lock, kind);
}

void AfterUnlock(void* lock, unsigned kind)
{
    __tsan_mutex_post_unlock(lock, kind);
}
#else
enum EKind : unsigned
{
    ForReading = 1,
    Recursive = 0,
    Tried = 0,
    TriedInVain = 0
};

void BeforeLock(void*, unsigned) {}
void AfterLock(void*, unsigned) {}
void BeforeUnlock(void*, unsigned) {}
void AfterUnlock(void*, unsigned) {}
#endif

// A read-write lock does not say for what it is released: each thread remembers which it has for reading.
thread_local std::vector<void*> heldForReading;

unsigned TakeKind(void* lock)
{
    auto const held = std::find(heldForReading.begin(), heldForReading.end(), lock);
    if (held == heldForReading.end())
        return 0;
    heldForReading.erase(held);
    return ForReading;
}

void Acquire(void* lock, unsigned kind, void (*acquire)(void*))
{
    BeforeLock(lock, kind);
    Timed([acquire, lock] { acquire(lock); });
    AfterLock(lock, kind);
}

bool Try(void* lock, unsigned kind, bool (*acquire)(void*))
{
    BeforeLock(lock, kind | Tried);
    bool const isAcquired = acquire(lock);
    AfterLock(lock, isAcquired ? kind | Tried : kind | Tried | TriedInVain);
    return isAcquired;
}

void Release(void* lock, unsigned kind, void (*release)(void*))
{
    BeforeUnlock(lock, kind);
    release(lock);
    AfterUnlock(lock, kind);
}
} // namespace

void QReadWriteLock::lockForRead()
{
    static auto* const next = Next<void(void*)>("_ZN14QReadWriteLock11lockForReadEv");
    Acquire(this, ForReading, next);
    heldForReading.push_back(this);
}

void QReadWriteLock::lockForWrite()
{
    static auto* const next = Next<void(void*)>("_ZN14QReadWriteLock12lockForWriteEv");
    Acquire(this, 0, next);
}

bool QReadWriteLock::tryLockForRead()
{
    static auto* const next = Next<bool(void*)>("_ZN14QReadWriteLock14tryLockForReadEv");
    bool const isAcquired = Try(this, ForReading, next);
    if (isAcquired)
        heldForReading.push_back(this);
    return isAcquired;
}

bool QReadWriteLock::tryLockForWrite()
{
    static auto* const next = Next<bool(void*)>("_ZN14QReadWriteLock15tryLockForWriteEv");
    return Try(this, 0, next);
}

void QReadWriteLock::unlock()
{
    static auto* const next = Next<void(void*)>("_ZN14QReadWriteLock6unlockEv");
    Release(this, TakeKind(this), next);
}

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static auto* const next = Next<void(void*)>("_ZN6QMutex4lockEv");
    Acquire(this, Recursive, next);
}

void QMutex::unlock() noexcept
{
    static auto* const next = Next<void(void*)>("_ZN6QMutex6unlockEv");
    Release(this, Recursive, next);
}

void LockProbe::StartHere()
{
    isTimed = true;
}

std::uint64_t LockProbe::Count()
{
    return waitCount;
}

double LockProbe::Quantile(double share)
{
    auto const wanted = static_cast<std::uint64_t>(std::ceil(share * double(waitCount)));
    std::uint64_t seen = 0;
    for (std::size_t step = 0; step + 1 < Steps; ++step)
    {
        seen += waits[step];
        if (seen >= wanted)
            return std::min<double>(double(step + 1) * Step, longest) / 1000.0;
    }
    return longest / 1000.0;
}
