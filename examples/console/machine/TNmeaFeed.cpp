#include "TNmeaFeed.h"

#include <cstring>

TNmeaFeed::TNmeaFeed(QIODevice* file)
    : m_File(file)
{
}

bool TNmeaFeed::open(OpenMode mode)
{
    // Unbuffered: what QIODevice holds back would not be seen as waiting here.
    bool const isOpen = QIODevice::open(mode | QIODevice::Unbuffered);
    Pull();
    return isOpen;
}

qint64 TNmeaFeed::bytesAvailable() const
{
    return QIODevice::bytesAvailable() + m_Waiting.size();
}

bool TNmeaFeed::canReadLine() const
{
    return m_Waiting.contains('\n') || QIODevice::canReadLine();
}

void TNmeaFeed::Push(QByteArray const& bytes)
{
    bool hasSentence = false;
    for (char const byte : bytes)
        hasSentence = Take(byte) || hasSentence;
    if (hasSentence)
        Q_EMIT readyRead();
}

void TNmeaFeed::Interrupt()
{
    m_Reader.Reset();
}

bool TNmeaFeed::Take(char byte)
{
    if (!m_Reader.Take(byte) || m_Waiting.size() >= MaxWaiting)
        return false;
    m_Waiting.append(m_Reader.Sentence()).append("\r\n");
    return true;
}

// One sentence ahead, so that bytesAvailable() tells the end of the file from a pause in it.
void TNmeaFeed::Pull()
{
    char byte = 0;
    while (m_File && m_Waiting.isEmpty() && m_File->getChar(&byte))
        Take(byte);
    // The last line of a file may lack its end.
    if (m_File && m_Waiting.isEmpty())
        Take('\n');
}

qint64 TNmeaFeed::readData(char* data, qint64 maxSize)
{
    auto const size = static_cast<int>(qMin<qint64>(maxSize, m_Waiting.size()));
    std::memcpy(data, m_Waiting.constData(), static_cast<size_t>(size));
    m_Waiting.remove(0, size);
    Pull();
    return size;
}

qint64 TNmeaFeed::writeData(char const* data, qint64 size)
{
    Q_UNUSED(data)
    Q_UNUSED(size)
    return -1;
}
