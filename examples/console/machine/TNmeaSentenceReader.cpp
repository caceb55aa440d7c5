#include "TNmeaSentenceReader.h"

namespace
{
constexpr int ChecksumLength = 3; // an asterisk and two digits

bool IsChecksumRight(QByteArray const& sentence)
{
    int const asterisk = sentence.size() - ChecksumLength;
    if (asterisk < 1 || sentence[asterisk] != '*')
        return false;
    bool isNumber = false;
    int const expected = sentence.mid(asterisk + 1).toInt(&isNumber, 16);
    int sum = 0;
    for (int i = 1; i < asterisk; ++i)
        sum ^= static_cast<unsigned char>(sentence[i]);
    return isNumber && sum == expected;
}
} // namespace

bool TNmeaSentenceReader::Take(char byte)
{
    if (byte == '\n' || byte == '\r')
        return Finish();
    if (byte == '$' || byte == '!')
    {
        // The beginning of one sentence is the end of a half one.
        Reset();
        m_Pending.append(byte);
        return false;
    }
    if (m_Pending.isEmpty())
        return false;
    bool const isPrintable = byte >= ' ' && byte <= '~';
    if (!isPrintable || m_Pending.size() >= LongestSentence)
        Reset();
    else
        m_Pending.append(byte);
    return false;
}

bool TNmeaSentenceReader::Finish()
{
    if (m_Pending.isEmpty())
        return false;
    if (!IsChecksumRight(m_Pending))
    {
        Reset();
        return false;
    }
    m_Sentence = m_Pending;
    m_Pending.clear();
    return true;
}

void TNmeaSentenceReader::Reset()
{
    if (m_Pending.isEmpty())
        return;
    m_Pending.clear();
    ++m_DamagedCount;
}
