#include "TMultimediaOutput.h"

#include "TWave.h"

#include <QAudioFormat>
#include <QAudioOutput>
#include <QBuffer>
#include <QTimer>

namespace
{
constexpr qreal WHOLE_PERCENT = 100.0;
// The device still plays for this long after it has taken the last sample.
constexpr int TAIL_MS = 500;

QAudioDeviceInfo FindDevice()
{
    QAudioDeviceInfo const preferred = QAudioDeviceInfo::defaultOutputDevice();
    if (!preferred.isNull())
        return preferred;
    // Without a sound daemon the preferred device is none at all, while the hardware may be there.
    QList<QAudioDeviceInfo> const devices = QAudioDeviceInfo::availableDevices(QAudio::AudioOutput);
    for (QAudioDeviceInfo const& device : devices)
    {
        if (!device.isNull())
            return device;
    }
    return {};
}

QAudioFormat FormatOf(TWave const& wave)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(wave.sampleRate);
    format.setChannelCount(wave.channelCount);
    format.setSampleSize(wave.sampleBits);
    format.setSampleType(wave.sampleBits == 8 ? QAudioFormat::UnSignedInt : QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::LittleEndian);
    return format;
}
} // namespace

class TMultimediaOutput::TChannel
{
public:
    TChannel(QAudioDeviceInfo const& device, TWave const& wave)
        : m_Output(device, FormatOf(wave))
    {
        m_Samples.setData(wave.samples);
        m_Samples.open(QIODevice::ReadOnly);
        m_End.setSingleShot(true);
        m_End.setInterval(wave.Duration() + TAIL_MS);
        QObject::connect(&m_End, &QTimer::timeout, &m_Output, &QAudioOutput::stop);
    }

    bool Play(int volume)
    {
        m_Output.stop();
        m_Samples.seek(0);
        m_Output.setVolume(QAudio::convertVolume(volume / WHOLE_PERCENT, QAudio::LogarithmicVolumeScale,
                                                 QAudio::LinearVolumeScale));
        m_Output.start(&m_Samples);
        m_End.start();
        return m_Output.error() == QAudio::NoError;
    }

private:
    QBuffer m_Samples;
    QAudioOutput m_Output;
    QTimer m_End;
};

TMultimediaOutput::TMultimediaOutput() = default;

TMultimediaOutput::~TMultimediaOutput() = default;

bool TMultimediaOutput::Open(QString& reason)
{
    m_Device = FindDevice();
    reason = QStringLiteral("no audio device");
    return !m_Device.isNull();
}

bool TMultimediaOutput::Play(int sound, TWave const& wave, int volume)
{
    std::unique_ptr<TChannel>& channel = m_Channels[sound];
    if (!channel)
        channel = std::make_unique<TChannel>(m_Device, wave);
    return channel->Play(volume);
}

extern "C" Q_DECL_EXPORT ISoundOutput* CommonUICreateSoundOutput()
{
    return new TMultimediaOutput;
}
