#include "TWave.h"

#include <QtEndian>

namespace
{
constexpr int RIFF_HEADER_BYTES = 12;
constexpr int CHUNK_HEADER_BYTES = 8;
constexpr int TAG_BYTES = 4;
constexpr int FORMAT_BYTES = 16;
constexpr int EXTENSIBLE_FORMAT_BYTES = 26;
constexpr int EXTENSIBLE_CODEC_OFFSET = 24;
constexpr quint16 CODEC_PCM = 1;
constexpr quint16 CODEC_EXTENSIBLE = 0xfffe;
constexpr int MAX_CHANNELS = 8;
constexpr quint32 MIN_SAMPLE_RATE = 4000;
constexpr quint32 MAX_SAMPLE_RATE = 192000;
constexpr int BITS_PER_BYTE = 8;
constexpr qint64 MS_PER_SECOND = 1000;

template<typename T>
T NumberAt(QByteArray const& bytes, int offset)
{
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

// The content of the first chunk with the tag, as far as the file has it.
QByteArray FindChunk(QByteArray const& bytes, char const* tag)
{
    int offset = RIFF_HEADER_BYTES;
    while (offset + CHUNK_HEADER_BYTES <= bytes.size())
    {
        qint64 const size = NumberAt<quint32>(bytes, offset + TAG_BYTES);
        int const content = offset + CHUNK_HEADER_BYTES;
        qint64 const present = qMin<qint64>(size, bytes.size() - content);
        if (bytes.mid(offset, TAG_BYTES) == tag)
            return bytes.mid(content, static_cast<int>(present));
        // Chunks start on even offsets.
        qint64 const next = content + size + size % 2;
        if (next > bytes.size())
            break;
        offset = static_cast<int>(next);
    }
    return {};
}

bool IsPcm(QByteArray const& format)
{
    quint16 const codec = NumberAt<quint16>(format, 0);
    if (codec == CODEC_EXTENSIBLE && format.size() >= EXTENSIBLE_FORMAT_BYTES)
        return NumberAt<quint16>(format, EXTENSIBLE_CODEC_OFFSET) == CODEC_PCM;
    return codec == CODEC_PCM;
}

bool ReadFormat(QByteArray const& format, TWave& wave)
{
    if (format.size() < FORMAT_BYTES || !IsPcm(format))
        return false;
    int const channels = NumberAt<quint16>(format, 2);
    quint32 const rate = NumberAt<quint32>(format, 4);
    int const bits = NumberAt<quint16>(format, 14);
    bool const isUsable = channels >= 1 && channels <= MAX_CHANNELS && rate >= MIN_SAMPLE_RATE &&
                          rate <= MAX_SAMPLE_RATE && (bits == 8 || bits == 16);
    if (!isUsable)
        return false;
    wave.channelCount = channels;
    wave.sampleRate = static_cast<int>(rate);
    wave.sampleBits = bits;
    return true;
}
} // namespace

int TWave::Duration() const
{
    qint64 const bytesPerSecond = qint64(sampleRate) * channelCount * sampleBits / BITS_PER_BYTE;
    return bytesPerSecond > 0 ? static_cast<int>(samples.size() * MS_PER_SECOND / bytesPerSecond) : 0;
}

TWave TWave::FromFileBytes(QByteArray const& bytes)
{
    TWave wave;
    if (!bytes.startsWith("RIFF") || bytes.mid(8, TAG_BYTES) != "WAVE" ||
        !ReadFormat(FindChunk(bytes, "fmt "), wave))
        return {};
    wave.samples = FindChunk(bytes, "data");
    int const frameBytes = wave.channelCount * wave.sampleBits / BITS_PER_BYTE;
    wave.samples.chop(wave.samples.size() % frameBytes);
    return wave.samples.isEmpty() ? TWave() : wave;
}
