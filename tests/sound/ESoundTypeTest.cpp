#include "ESoundType.h"
#include "TestCase.h"
#include "TWave.h"

#include <limits>

class ESoundTypeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersOutsideTheTableHaveNoFile_data();
    void numbersOutsideTheTableHaveNoFile();
    void eachSoundIsBuiltIn_data();
    void eachSoundIsBuiltIn();
};

void ESoundTypeTest::numbersOutsideTheTableHaveNoFile_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("none") << int(SOUND_NONE);
    QTest::newRow("one past") << SOUND_VIEW_CHANGE + 1;
    QTest::newRow("negative") << -1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
    QTest::newRow("largest") << std::numeric_limits<int>::max();
}

void ESoundTypeTest::numbersOutsideTheTableHaveNoFile()
{
    QFETCH(int, number);
    QVERIFY(SoundFileName(number) == nullptr);
}

void ESoundTypeTest::eachSoundIsBuiltIn_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("release") << 1 << "ButtonRelease.wav";
    QTest::newRow("press") << 2 << "ButtonPress.wav";
    QTest::newRow("error") << 3 << "Error.wav";
    QTest::newRow("screenshot") << 4 << "Screenshot.wav";
    QTest::newRow("information") << 5 << "AlarmInformation.wav";
    QTest::newRow("warning") << 6 << "AlarmWarning.wav";
    QTest::newRow("critical") << 7 << "AlarmCritical.wav";
    QTest::newRow("view change") << 8 << "ViewChange.wav";
}

void ESoundTypeTest::eachSoundIsBuiltIn()
{
    constexpr int LONGEST_MS = 600;
    QFETCH(int, number);
    QFETCH(QString, name);
    QCOMPARE(QString::fromLatin1(SoundFileName(number)), name);
    QFile file(QStringLiteral(":/Sounds/") + name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    TWave const wave = TWave::FromFileBytes(file.readAll());
    QVERIFY(wave.Duration() > 0);
    QVERIFY(wave.Duration() <= LONGEST_MS);
}

COMMONUI_TEST(ESoundTypeTest)
#include "ESoundTypeTest.moc"
