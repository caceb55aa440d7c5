#include "TConsoleOptions.h"

#include "TestCase.h"

#include <QTemporaryDir>
#include <QTemporaryFile>

class TConsoleOptionsTest : public QObject
{
    Q_OBJECT

private:
    static std::optional<TConsoleOptions> Parse(QStringList const& arguments, QString* error)
    {
        return TConsoleOptions::Parse(QStringList{QStringLiteral("console")} + arguments, error);
    }

private Q_SLOTS:
    void nothingAskedForMeansTheSimulation()
    {
        QString error;
        auto const options = Parse({}, &error);
        QVERIFY(options);
        QVERIFY(error.isEmpty());
        QVERIFY(!options->nmea);
        QVERIFY(!options->IsAutomatic());
        QVERIFY(!options->help);
        QCOMPARE(options->dataFolder, QString());
        QCOMPARE(options->usbFolder, QString());
    }

    void runsWithoutAnOperatorAreKnown()
    {
        QString error;
        QCOMPARE(Parse({"--tour", "pictures"}, &error)->tourFolder, QStringLiteral("pictures"));
        QCOMPARE(Parse({"--screenshot=a.png"}, &error)->screenshotFile, QStringLiteral("a.png"));
        auto const monkey = Parse({"--monkey", "500", "--seed", "4294967295", "--data", "d"}, &error);
        QCOMPARE(monkey->monkeySteps, 500);
        QCOMPARE(monkey->seed, 4294967295U);
        QCOMPARE(monkey->dataFolder, QStringLiteral("d"));
        QVERIFY(monkey->IsAutomatic());
    }

    void helpAsksForNothingElse()
    {
        QString error;
        QVERIFY(Parse({"--help"}, &error)->help);
        QVERIFY(Parse({"-h", "--monkey", "never"}, &error)->help);
        QVERIFY(TConsoleOptions::HelpText().contains(QStringLiteral("--nmea")));
    }

    void nonsenseIsRefusedWithItsName_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named");
        QTest::newRow("unknown option") << QStringList{"--colour"} << "colour";
        QTest::newRow("missing value") << QStringList{"--data"} << "data";
        QTest::newRow("empty folder") << QStringList{"--data", ""} << "data";
        QTest::newRow("empty picture") << QStringList{"--screenshot="} << "screenshot";
        QTest::newRow("empty stick") << QStringList{"--usb", ""} << "usb";
        QTest::newRow("stick that is a file") << QStringList{"--usb", "/etc/passwd"} << "/etc/passwd";
        QTest::newRow("no such stick") << QStringList{"--usb", "/nowhere/at/all"} << "/nowhere/at/all";
        QTest::newRow("no number") << QStringList{"--monkey", "many"} << "many";
        QTest::newRow("no steps") << QStringList{"--monkey", "0"} << "monkey";
        QTest::newRow("steps below zero") << QStringList{"--monkey", "-5"} << "-5";
        QTest::newRow("too many steps") << QStringList{"--monkey", "2147483648"} << "2147483648";
        QTest::newRow("seed too large") << QStringList{"--seed", "4294967296"} << "4294967296";
        QTest::newRow("no speed") << QStringList{"--baud", "fast"} << "fast";
        QTest::newRow("stray word") << QStringList{"field.log"} << "field.log";
        QTest::newRow("two runs") << QStringList{"--tour", "a", "--monkey", "5"} << "--tour";
        QTest::newRow("no such file")
            << QStringList{"--nmea", "/nowhere/at/all.log"} << "/nowhere/at/all.log";
        QTest::newRow("a folder") << QStringList{"--nmea", "/"} << "\"/\"";
        QTest::newRow("no port") << QStringList{"--nmea", "tcp:host"} << "tcp:host";
        QTest::newRow("no host") << QStringList{"--nmea", "tcp::10110"} << "tcp::10110";
        QTest::newRow("port zero") << QStringList{"--nmea", "tcp:host:0"} << "tcp:host:0";
        QTest::newRow("port too large") << QStringList{"--nmea", "tcp:host:65536"} << "65536";
        QTest::newRow("bare IPv6 address") << QStringList{"--nmea", "tcp:::1:10110"} << "tcp:::1";
    }

    void nonsenseIsRefusedWithItsName()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        QString error;
        QVERIFY(!Parse(arguments, &error));
        QVERIFY2(error.contains(named), qPrintable(error));
    }

    void aFolderMayStandForAStick()
    {
        QTemporaryDir const folder;
        QString error;
        auto const options = Parse({"--usb", folder.path()}, &error);
        QVERIFY(options);
        QCOMPARE(options->usbFolder, folder.path());
        QVERIFY(!options->IsAutomatic());
    }

    void positionsComeFromFilesAndLinks()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        QString error;
        QCOMPARE(Parse({"--nmea", file.fileName()}, &error)->nmea->kind, TNmeaOrigin::FILE_REPLAY);
        auto const link = Parse({"--nmea", "tcp:[::1]:10110"}, &error);
        QCOMPARE(link->nmea->kind, TNmeaOrigin::TCP);
        QCOMPARE(link->nmea->path, QStringLiteral("::1"));
        QCOMPARE(link->nmea->port, quint16(10110));
        auto const device = Parse({"--nmea", "/dev/null", "--baud", "115200"}, &error);
        QCOMPARE(device->nmea->kind, TNmeaOrigin::SERIAL);
        QCOMPARE(device->nmea->baudRate, 115200);
    }
};

COMMONUI_TEST(TConsoleOptionsTest)
#include "TConsoleOptionsTest.moc"
