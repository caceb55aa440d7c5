#pragma once

#include <QByteArray>

/// Finds the whole and undamaged NMEA 0183 sentences in a stream of bytes. Everything else, comments, noise,
/// halves of lines, sentences without a checksum or with a wrong one, is dropped and counted. Never holds
/// more than one sentence.
class TNmeaSentenceReader
{
public:
    /// The standard allows 82 characters; receivers take liberties.
    static constexpr int LongestSentence = 256;

    /// Takes one byte. True when it completed a sentence, which is then Sentence().
    bool Take(char byte);
    /// Without line end, from its "$" or "!" to its checksum.
    QByteArray const& Sentence() const { return m_Sentence; }
    /// Drops the half that was read so far: the stream is interrupted.
    void Reset();
    /// How many beginnings of sentences led to none.
    int DamagedCount() const { return m_DamagedCount; }

private:
    bool Finish();

    QByteArray m_Pending;
    QByteArray m_Sentence;
    int m_DamagedCount = 0;
};
