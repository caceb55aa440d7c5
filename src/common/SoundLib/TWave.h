#pragma once

#include "SoundLibExport.h"

#include <QByteArray>

/// One short uncompressed sound in memory.
struct SOUNDLIB_EXPORT TWave
{
    int sampleRate = 0;   ///< frames a second
    int channelCount = 0; ///< samples a frame
    int sampleBits = 0;   ///< 8, unsigned, or 16, signed and little endian
    QByteArray samples;   ///< whole frames; empty for no sound at all

    /// How long the sound is, in milliseconds; 0 for no sound at all.
    int Duration() const;

    /// Reads the bytes of a WAV file, which may be hostile. No sound at all for anything but 8 or 16 bit PCM
    /// with 1 to 8 channels and 4000 to 192000 frames a second. Data that was cut short is played as far as
    /// it goes.
    static TWave FromFileBytes(QByteArray const& bytes);
};
