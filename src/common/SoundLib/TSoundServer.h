#pragma once

#include "ESoundType.h"
#include "SoundLibExport.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class ISoundOutput;

/// Plays the console's short sounds on the thread it lives on. PlaySound() may be called from any thread:
/// requests go through a locked queue of bounded length, the oldest falling out, and one that waited for half
/// a second is dropped, since a sound that comes late is worse than none. No audio device, no plug-in and no
/// file are each no error: one log line, then silence.
///
/// Qt Multimedia is heavy, so nothing of it is loaded before the first sound, or before the start of the
/// console is over: it stands behind a library of its own in the folder "commonui" beside this one. With the
/// environment variable COMMONUI_SOUND set to "none" it is never loaded, and the silence is on purpose and
/// not logged.
class SOUNDLIB_EXPORT TSoundServer : public QObject
{
    Q_OBJECT

public:
    /// Makes the output at the first need, on the thread of the server; null, with the reason for the log,
    /// for none.
    using TOutputFactory = std::function<std::unique_ptr<ISoundOutput>(QString& reason)>;

    /// \a soundFolder holds the WAV files by the names of SoundFileName(). A file that is missing there is
    /// taken from the sounds that are built into the library, and so is, with a log line, one that cannot be
    /// played.
    TSoundServer(QObject* parent, QString const& soundFolder);

    /// The same with another way out than Qt Multimedia.
    TSoundServer(QObject* parent, QString const& soundFolder, TOutputFactory makeOutput);

    /// Runs on the thread the server lives on, as deleteLater() does, or after that thread has ended.
    ~TSoundServer() override;

    /// Asks for one sound. \a volume is in percent, held to 0..100. A number that is not in the table is
    /// dropped. Virtual, so that a test can record what is asked for. \a sound alone chooses the file.
    virtual void PlaySound(int sound, int volume, ESoundType type);

public Q_SLOTS:
    /// Starts to play and has the audio device opened soon; runs once on the thread the server lives on, when
    /// that starts. Requests from before wait for it.
    void Initialise();

private:
    class TPrivate;
    std::unique_ptr<TPrivate> m_Private;
};
