#pragma once

#include <cstdint>

/// Times how long the calling thread waits for the locks of the toolkit's classes, by standing between them
/// and Qt: a program that links LockProbe.cpp has its own QMutex::lock() and the like, which call Qt's. What
/// Qt locks within itself goes past it.
///
/// Built for the thread sanitizer it tells that of the locks as well, which it does not see within a Qt that
/// was not built for it.
namespace LockProbe
{
/// The calling thread is the one that is timed from here on.
void StartHere();

/// Waits so far.
std::uint64_t Count();
/// The time in µs that \a share of the waits did not exceed; 1 for the longest.
double Quantile(double share);
} // namespace LockProbe
