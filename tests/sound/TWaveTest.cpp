#include "TWave.h"
#include "TestCase.h"
#include "TestWaves.h"

class TWaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainFileIsReadWhole();
    void durationFollowsFromTheFormat_data();
    void durationFollowsFromTheFormat();
    void otherChunksAreSteppedOver();
    void cutDataIsTakenAsFarAsItGoes_data();
    void cutDataIsTakenAsFarAsItGoes();
    void anythingElseIsNoSound_data();
    void anythingElseIsNoSound();
    void everyCutAndEveryChangedByteIsSurvived();
};

void TWaveTest::plainFileIsReadWhole()
{
    TWave const wave = TWave::FromFileBytes(PlainWaveFile("abcdef"));
    QCOMPARE(wave.sampleRate, 8000);
    QCOMPARE(wave.channelCount, 1);
    QCOMPARE(wave.sampleBits, 16);
    QCOMPARE(wave.samples, QByteArray("abcdef"));
}

void TWaveTest::durationFollowsFromTheFormat_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("ms");
    QTest::newRow("mono") << 1 << 8000 << 16 << 16000 << 1000;
    QTest::newRow("stereo") << 2 << 8000 << 16 << 16000 << 500;
    QTest::newRow("8 bits") << 1 << 8000 << 8 << 16000 << 2000;
    QTest::newRow("fast") << 8 << 192000 << 16 << 3072 << 1;
    QTest::newRow("nothing") << 1 << 8000 << 16 << 0 << 0;
}

void TWaveTest::durationFollowsFromTheFormat()
{
    QFETCH(int, channels);
    QFETCH(int, rate);
    QFETCH(int, bits);
    QFETCH(int, bytes);
    TWave const wave{rate, channels, bits, QByteArray(bytes, '\0')};
    QTEST(wave.Duration(), "ms");
    QCOMPARE(TWave().Duration(), 0);
}

void TWaveTest::otherChunksAreSteppedOver()
{
    QByteArray const extensible = WaveFormat(0xfffe, 2, 44100, 16) + LittleEndian<quint16>(22) +
                                  LittleEndian<quint16>(16) + LittleEndian<quint32>(3) +
                                  LittleEndian<quint16>(1) + QByteArray(14, '\x10');
    TWave const wave = TWave::FromFileBytes(
        WaveFile(WaveChunk("LIST", "odd") + WaveChunk("fmt ", extensible) + WaveChunk("fact", "1234") +
                 WaveChunk("data", "abcdefgh") + WaveChunk("data", "second")));
    QCOMPARE(wave.channelCount, 2);
    QCOMPARE(wave.sampleRate, 44100);
    QCOMPARE(wave.samples, QByteArray("abcdefgh"));
}

void TWaveTest::cutDataIsTakenAsFarAsItGoes_data()
{
    QTest::addColumn<quint32>("promised");
    QTest::addColumn<QByteArray>("present");
    QTest::addColumn<QByteArray>("samples");
    QTest::newRow("cut within a frame") << 100U << QByteArray("abcde") << QByteArray("abcd");
    QTest::newRow("length never filled in") << 0xffffffffU << QByteArray("abcd") << QByteArray("abcd");
    QTest::newRow("length that turns negative") << 0x80000000U << QByteArray("abcd") << QByteArray("abcd");
    QTest::newRow("odd length") << 3U << QByteArray("abcd") << QByteArray("ab");
}

void TWaveTest::cutDataIsTakenAsFarAsItGoes()
{
    QFETCH(quint32, promised);
    QFETCH(QByteArray, present);
    QByteArray const data = "data" + LittleEndian<quint32>(promised) + present;
    TWave const wave = TWave::FromFileBytes(WaveFile(WaveChunk("fmt ", WaveFormat(1, 1, 8000, 16)) + data));
    QTEST(wave.samples, "samples");
}

void TWaveTest::anythingElseIsNoSound_data()
{
    QByteArray const format = WaveChunk("fmt ", WaveFormat(1, 1, 8000, 16));
    QByteArray const data = WaveChunk("data", "abcd");
    auto const withFormat = [&data](quint16 codec, quint16 channels, quint32 rate, quint16 bits)
    { return WaveFile(WaveChunk("fmt ", WaveFormat(codec, channels, rate, bits)) + data); };
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("not a sound at all, but long enough to look like one");
    QTest::newRow("header alone") << QByteArray("RIFF\4\0\0\0WAVE", 12);
    QTest::newRow("other form") << WaveChunk("RIFF", "AVI " + format + data);
    QTest::newRow("no format") << WaveFile(data);
    QTest::newRow("no data") << WaveFile(format);
    QTest::newRow("empty data") << WaveFile(format + WaveChunk("data", {}));
    QTest::newRow("less than a frame") << WaveFile(format + WaveChunk("data", "a"));
    QTest::newRow("short format") << WaveFile(WaveChunk("fmt ", "abcdefgh") + data);
    QTest::newRow("compressed") << withFormat(85, 1, 8000, 16);
    QTest::newRow("extensible without the rest") << withFormat(0xfffe, 1, 8000, 16);
    QTest::newRow("no channels") << withFormat(1, 0, 8000, 16);
    QTest::newRow("nine channels") << withFormat(1, 9, 8000, 16);
    QTest::newRow("too slow") << withFormat(1, 1, 3999, 16);
    QTest::newRow("too fast") << withFormat(1, 1, 192001, 16);
    QTest::newRow("rate that turns negative") << withFormat(1, 1, 0xffffffffU, 16);
    QTest::newRow("no bits") << withFormat(1, 1, 8000, 0);
    QTest::newRow("24 bits") << withFormat(1, 1, 8000, 24);
    QTest::newRow("chunk beyond the end")
        << WaveFile("LIST" + LittleEndian<quint32>(0xfffffffeU) + format + data);
}

void TWaveTest::anythingElseIsNoSound()
{
    QFETCH(QByteArray, bytes);
    TWave const wave = TWave::FromFileBytes(bytes);
    QVERIFY(wave.samples.isEmpty());
    QCOMPARE(wave.Duration(), 0);
}

void TWaveTest::everyCutAndEveryChangedByteIsSurvived()
{
    QByteArray const whole = PlainWaveFile("abcdef");
    for (int i = 0; i < whole.size(); ++i)
    {
        QVERIFY(TWave::FromFileBytes(whole.left(i)).samples.size() <= 6);
        for (char const byte : {'\0', '\x7f', '\x80', '\xff'})
        {
            QByteArray changed = whole;
            changed[i] = byte;
            QVERIFY(TWave::FromFileBytes(changed).samples.size() <= 6);
        }
    }
}

COMMONUI_TEST(TWaveTest)
#include "TWaveTest.moc"
