#pragma once

#include <QByteArray>
#include <QtEndian>

/// The bytes of a number as a WAV file has them.
template<typename T>
QByteArray LittleEndian(T number)
{
    QByteArray bytes(sizeof(T), '\0');
    qToLittleEndian<T>(number, bytes.data());
    return bytes;
}

/// One chunk of a WAV file, padded to an even length.
inline QByteArray WaveChunk(QByteArray const& tag, QByteArray const& content)
{
    QByteArray const padding(content.size() % 2, '\0');
    return tag + LittleEndian<quint32>(static_cast<quint32>(content.size())) + content + padding;
}

/// The content of a format chunk.
inline QByteArray WaveFormat(quint16 codec, quint16 channels, quint32 rate, quint16 bits)
{
    quint16 const frameBytes = channels * bits / 8;
    return LittleEndian<quint16>(codec) + LittleEndian<quint16>(channels) + LittleEndian<quint32>(rate) +
           LittleEndian<quint32>(rate * frameBytes) + LittleEndian<quint16>(frameBytes) +
           LittleEndian<quint16>(bits);
}

/// A whole WAV file of the chunks.
inline QByteArray WaveFile(QByteArray const& chunks)
{
    return "RIFF" + LittleEndian<quint32>(static_cast<quint32>(chunks.size() + 4)) + "WAVE" + chunks;
}

/// A mono file of 16 bits at 8000 frames a second.
inline QByteArray PlainWaveFile(QByteArray const& samples)
{
    return WaveFile(WaveChunk("fmt ", WaveFormat(1, 1, 8000, 16)) + WaveChunk("data", samples));
}
