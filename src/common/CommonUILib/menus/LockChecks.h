#pragma once

#include <QReadWriteLock>

/// For assertions: false only if nobody at all holds \a lock. Whether it is the caller who does is not seen.
inline bool IsHeld(QReadWriteLock* lock)
{
    if (!lock->tryLockForWrite())
        return true;
    lock->unlock();
    return false;
}

/// For assertions: false if \a lock is held for reading alone, or not at all.
inline bool IsHeldForWriting(QReadWriteLock* lock)
{
    if (!lock->tryLockForRead())
        return true;
    lock->unlock();
    return false;
}
