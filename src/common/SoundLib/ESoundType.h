#pragma once

#include "SoundLibExport.h"

/// The sounds of the console. The numbers are part of the interface: modules and settings store them.
enum ESoundType
{
    SOUND_NONE = 0,
    SOUND_BUTTON_RELEASE = 1,
    SOUND_BUTTON_PRESS = 2,
    SOUND_ERROR = 3,
    SOUND_SCREENSHOT = 4,
    SOUND_ALARM_INFORMATION = 5,
    SOUND_ALARM_WARNING = 6,
    SOUND_ALARM_CRITICAL = 7,
    SOUND_VIEW_CHANGE = 8
};

/// File name of \a type within the sound folder, null for SOUND_NONE and for a number outside the table.
SOUNDLIB_EXPORT char const* SoundFileName(int type);
