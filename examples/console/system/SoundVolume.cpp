#include "SoundVolume.h"

#include "ConfigManager.h"

#include <QtGlobal>

namespace
{
constexpr int PercentPerStep = 10;
} // namespace

void StepSoundVolume(int steps)
{
    ConfigManager* const settings = ConfigManager::Instance();
    int const volume = settings->Read(CONFIG_SOUND_VOLUME).toInt() + steps * PercentPerStep;
    settings->Write(CONFIG_SOUND_VOLUME, qBound(0, volume, LoudestVolume), true);
    if (steps > 0 && !settings->Read(CONFIG_SOUND_ENABLED).toBool())
        settings->Write(CONFIG_SOUND_ENABLED, true, true);
}
