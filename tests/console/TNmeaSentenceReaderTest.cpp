#include "TNmeaSentenceReader.h"

#include "Sentences.h"
#include "TestCase.h"

class TNmeaSentenceReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWholeSentencesComeThrough_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<int>("sentences");
        QTest::addColumn<int>("damaged");
        QByteArray const good = Sentence("GPGLL,4820.0,N,01140.0,E,100000,A,A");
        QTest::newRow("nothing") << QByteArray() << 0 << 0;
        QTest::newRow("one") << good << 1 << 0;
        QTest::newRow("two") << good + good << 2 << 0;
        QTest::newRow("lines without carriage return") << QByteArray(good).replace("\r", "") << 1 << 0;
        QTest::newRow("empty lines between") << "\r\n\n" + good + "\n\n" + good << 2 << 0;
        QTest::newRow("small letters in the checksum") << QByteArray("$GPZDA,1*2b\r\n") << 0 << 1;
        QTest::newRow("an exclamation mark") << QByteArray("!AIVDM,1*76\r\n").replace("76", "2C") << 0 << 1;
        QTest::newRow("a comment") << "# recorded on a Tuesday\r\n" + good << 1 << 0;
        QTest::newRow("noise before it") << QByteArray("\0\xff\x80garbage", 10) + good << 1 << 0;
        QTest::newRow("no checksum") << QByteArray("$GPGLL,4820.0,N\r\n") << 0 << 1;
        QTest::newRow("a wrong checksum") << QByteArray(good).replace('N', 'S') << 0 << 1;
        QTest::newRow("half a checksum") << good.left(good.size() - 3) + "\r\n" << 0 << 1;
        QTest::newRow("letters for a checksum") << QByteArray("$GPGLL,1*ZZ\r\n") << 0 << 1;
        QTest::newRow("no line end") << good.trimmed() << 0 << 0;
        QTest::newRow("the front half runs into the next") << good.left(12) + good << 1 << 1;
        QTest::newRow("the rear half stands alone") << good.mid(12) + good << 1 << 0;
        QTest::newRow("a zero inside")
            << QByteArray(good).replace(10, 1, QByteArray(1, '\0')) + good << 1 << 1;
        QTest::newRow("only the beginning") << QByteArray("$\r\n") << 0 << 1;
        QTest::newRow("only a checksum") << QByteArray("$*00\r\n") << 1 << 0;
        QTest::newRow("beginnings in a row") << QByteArray("$$$$$$") + good << 1 << 6;
        QTest::newRow("endless line") << "$GPGLL," + QByteArray(100000, 'x') + "\r\n" + good << 1 << 1;
    }

    void onlyWholeSentencesComeThrough()
    {
        QFETCH(QByteArray, stream);
        QFETCH(int, sentences);
        QFETCH(int, damaged);
        TNmeaSentenceReader reader;
        int found = 0;
        for (char const byte : qAsConst(stream))
            found += reader.Take(byte) ? 1 : 0;
        QCOMPARE(found, sentences);
        QCOMPARE(reader.DamagedCount(), damaged);
    }

    void theSentenceComesWithoutItsLineEnd()
    {
        TNmeaSentenceReader reader;
        QByteArray const good = Sentence("GPZDA,100000,14,04,2026,00,00");
        for (char const byte : good)
            reader.Take(byte);
        QCOMPARE(reader.Sentence(), good.trimmed());
    }

    void anInterruptionSplitsASentence()
    {
        TNmeaSentenceReader reader;
        QByteArray const good = Sentence("GPZDA,100000,14,04,2026,00,00");
        QByteArray const front = good.left(10);
        for (char const byte : front)
            reader.Take(byte);
        reader.Reset();
        bool isWhole = false;
        QByteArray const rear = good.mid(10);
        for (char const byte : rear)
            isWhole = reader.Take(byte) || isWhole;
        QVERIFY(!isWhole);
        QCOMPARE(reader.DamagedCount(), 1);
    }
};

COMMONUI_TEST(TNmeaSentenceReaderTest)
#include "TNmeaSentenceReaderTest.moc"
