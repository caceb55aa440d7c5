#include "TNmeaFeed.h"

#include "Sentences.h"
#include "TestCase.h"

#include <QBuffer>

class TNmeaFeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLinkDeliversSentencesInWhateverPortions()
    {
        TNmeaFeed feed;
        QVERIFY(feed.open(QIODevice::ReadOnly));
        QSignalSpy ready(&feed, &QIODevice::readyRead);
        QByteArray const good = Sentence("GPZDA,100000,14,04,2026,00,00");
        for (char const byte : "noise" + good)
            feed.Push(QByteArray(1, byte));
        QCOMPARE(ready.count(), 1);
        QVERIFY(feed.canReadLine());
        QCOMPARE(feed.readLine(), good);
        QCOMPARE(feed.bytesAvailable(), qint64(0));
        QVERIFY(!feed.canReadLine());
    }

    void aFileEndsBehindItsLastSentence()
    {
        QByteArray const good = Sentence("GPZDA,100000,14,04,2026,00,00");
        QByteArray content = "# comment\n" + good + "garbage\n" + good.trimmed();
        QBuffer file(&content);
        QVERIFY(file.open(QIODevice::ReadOnly));
        TNmeaFeed feed(&file);
        QVERIFY(feed.open(QIODevice::ReadOnly));
        QCOMPARE(feed.readLine(), good);
        QCOMPARE(feed.readLine(), good);
        QCOMPARE(feed.bytesAvailable(), qint64(0));
        QCOMPARE(feed.readLine(), QByteArray());
    }

    void aReaderThatSleepsDoesNotFillTheMemory()
    {
        TNmeaFeed feed;
        feed.open(QIODevice::ReadOnly);
        QByteArray const good = Sentence("GPZDA,100000,14,04,2026,00,00");
        for (int i = 0; i < 20000; ++i)
            feed.Push(good);
        QVERIFY(feed.bytesAvailable() <= TNmeaFeed::MaxWaiting + good.size());
        QCOMPARE(feed.readLine(), good);
    }

    void nothingCanBeWritten()
    {
        TNmeaFeed feed;
        feed.open(QIODevice::ReadWrite);
        QCOMPARE(feed.write("x"), qint64(-1));
    }
};

COMMONUI_TEST(TNmeaFeedTest)
#include "TNmeaFeedTest.moc"
