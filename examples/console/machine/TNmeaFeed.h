#pragma once

#include "TNmeaSentenceReader.h"

#include <QByteArray>
#include <QIODevice>

/// Stands between a stream of bytes and the parser of positions, and lets only undamaged sentences through,
/// one for each line. Bytes come in by Push(), as a link delivers them, or are pulled from a file a sentence
/// at a time.
class TNmeaFeed : public QIODevice
{
    Q_OBJECT

public:
    /// Bytes of sentences that wait to be read; when the reader falls behind that far, newer ones are
    /// dropped.
    static constexpr int MaxWaiting = 64 * 1024;

    TNmeaFeed() = default;
    /// Pulls from \a file, which must be open and outlive the feed.
    explicit TNmeaFeed(QIODevice* file);

    bool open(OpenMode mode) override;
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;
    bool canReadLine() const override;

    void Push(QByteArray const& bytes);
    /// The link broke: what comes next does not continue what came last.
    void Interrupt();
    int DamagedCount() const { return m_Reader.DamagedCount(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(char const* data, qint64 size) override;

private:
    bool Take(char byte);
    void Pull();

    QIODevice* m_File = nullptr;
    TNmeaSentenceReader m_Reader;
    QByteArray m_Waiting;
};
