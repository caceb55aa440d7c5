#pragma once

#include "SoundLibExport.h"

#include <QString>

struct TWave;

/// What TSoundServer plays through. Built, used and deleted on the thread that the server lives on.
class SOUNDLIB_EXPORT ISoundOutput
{
public:
    virtual ~ISoundOutput();

    /// Opens the audio device; called once before the first sound. False, with the reason for the log, where
    /// there is none.
    virtual bool Open(QString& reason) = 0;

    /// Starts \a wave and returns at once. One \a sound plays once at a time: while it still plays it starts
    /// anew. \a volume is in percent, 1..100. False when the device does not take it.
    virtual bool Play(int sound, TWave const& wave, int volume) = 0;
};
