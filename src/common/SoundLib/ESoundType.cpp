#include "ESoundType.h"

#include <QtGlobal>

namespace
{
// By number; the first stands for SOUND_NONE.
constexpr char const* FILE_NAMES[] = {
    nullptr,          "ButtonRelease.wav",    "ButtonPress.wav",  "Error.wav",
    "Screenshot.wav", "AlarmInformation.wav", "AlarmWarning.wav", "AlarmCritical.wav",
    "ViewChange.wav",
};
constexpr int FILE_NAME_COUNT = sizeof FILE_NAMES / sizeof *FILE_NAMES;
static_assert(FILE_NAME_COUNT == SOUND_VIEW_CHANGE + 1, "one file for each sound");
} // namespace

char const* SoundFileName(int type)
{
    return type >= 0 && type < FILE_NAME_COUNT ? FILE_NAMES[type] : nullptr;
}
