#pragma once

#include <QtGlobal>

/// The monotonic clock of this program, which a run without an operator holds in its hand: Qt's timers,
/// animations and the console's own clock follow it, and a minute passes in a moment. Linking this file puts
/// the program's own function before that of the C library, which it calls as long as the clock runs by
/// itself. The date is not touched.
namespace VirtualClock
{
/// From now on the clock stands.
void Hold();
/// Moves the held clock on.
void Advance(qint64 ms);
/// The clock runs by itself again. What has been passed since Hold() is forgotten.
void Release();
} // namespace VirtualClock
