#pragma once

/// Makes the console's sounds louder by \a steps, quieter for a negative number. Whoever asks for more wants
/// to hear it: that switches sounds on that are off.
void StepSoundVolume(int steps);
/// The loudest volume, in per cent as all of them.
constexpr int LoudestVolume = 100;
