#pragma once

#include "ESoundType.h"
#include "SoundLibExport.h"

#include <QObject>
#include <QString>

#include <memory>

/// Plays the console's short sounds on the thread it lives on. PlaySound() may be called from any thread:
/// requests go through a locked queue of bounded length, the oldest falling out, since a sound that comes
/// late is worse than none. No audio device, no plug-in and no file are each no error: one log line, then
/// silence.
class SOUNDLIB_EXPORT TSoundServer : public QObject
{
    Q_OBJECT

public:
    /// \a soundFolder holds the WAV files by the names of SoundFileName(). A file that is missing there is
    /// taken from the sounds that are built into the library.
    TSoundServer(QObject* parent, QString const& soundFolder);
    ~TSoundServer() override;

    /// Asks for one sound. \a volume is in percent, held to 0..100. A number that is not in the table is
    /// dropped. Virtual, so that a test can record what is asked for.
    virtual void PlaySound(int sound, int volume, ESoundType type);

public Q_SLOTS:
    /// Opens the audio device; runs once on the thread the server lives on, when that starts.
    void Initialise();

private:
    class TPrivate;
    std::unique_ptr<TPrivate> m_Private;
};
