#pragma once

#include "ISoundOutput.h"

#include <QAudioDeviceInfo>

#include <map>
#include <memory>

/// Sounds by Qt Multimedia: one output a sound, opened when it is first played and closed when it has faded,
/// so that a silent console neither wakes nor holds the device.
class TMultimediaOutput : public ISoundOutput
{
public:
    TMultimediaOutput();
    ~TMultimediaOutput() override;

    bool Open(QString& reason) override;
    bool Play(int sound, TWave const& wave, int volume) override;

private:
    class TChannel;

    QAudioDeviceInfo m_Device;
    std::map<int, std::unique_ptr<TChannel>> m_Channels;
};
