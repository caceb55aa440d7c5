#include "TConsoleShell.h"
#include "TestCase.h"
#include "TSqliteConfigManager.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace
{
constexpr int Patience = 120000;

struct TOutcome
{
    int code = -1;
    QString output;
    QString errors;
};

TOutcome Run(QStringList const& arguments)
{
    QProcess process;
    process.start(QStringLiteral(CONSOLE_PROGRAM), arguments);
    if (!process.waitForFinished(Patience) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString SettingsOf(QString const& folder)
{
    return folder + QLatin1Char('/') + QLatin1String(TConsoleShell::SettingsFile);
}

QString LayoutOf(QString const& folder)
{
    TSqliteConfigManager const settings(SettingsOf(folder));
    return settings.Read(CONFIG_LAYOUT_SNAPSHOT).toString();
}

/// Which windows stand where; what is in them comes back only for those that are up. The windows of a linked
/// set go by one name, so that only the first of them comes back.
QStringList PlacesIn(QString const& layout)
{
    static QRegularExpression const Name(QStringLiteral("<(\\w+) TargetName=\"([^\"]*)\""));
    QStringList names;
    QStringList places;
    QStringList const lines =
        layout.mid(layout.indexOf(QLatin1String("<WindowManagerState"))).split(QLatin1Char('\n'));
    for (QString const& line : lines)
    {
        QString const name = Name.match(line).captured();
        if (!name.isEmpty() && names.contains(name))
            continue;
        names.append(name);
        places.append(line);
    }
    return places;
}
} // namespace

/// The program as it is started by hand and by scripts.
class TConsoleProcessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpNamesEveryOption()
    {
        TOutcome const outcome = Run({"--help"});
        QCOMPARE(outcome.code, 0);
        for (char const* const option : {"--data", "--nmea", "--tour", "--screenshot", "--monkey", "--seed"})
            QVERIFY2(outcome.output.contains(QLatin1String(option)), option);
    }

    void nonsenseEndsWithAMessage()
    {
        TOutcome const outcome = Run({"--colour", "red"});
        QCOMPARE(outcome.code, 2);
        QVERIFY(outcome.errors.contains(QLatin1String("colour")));
        QVERIFY(outcome.errors.contains(QLatin1String("--help")));
    }

    void aScreenshotIsOneOfTheWholeScreen()
    {
        QTemporaryDir folder;
        QString const file = folder.filePath(QStringLiteral("console.png"));
        QCOMPARE(Run({"--data", folder.filePath("data"), "--screenshot", file}).code, 0);
        QImage const picture(file);
        QCOMPARE(picture.size(), QSize(1024, 768));
        QVERIFY(picture.pixelColor(30, 30) != picture.pixelColor(600, 400));
    }

    void aScreenshotThatCannotBeWrittenIsAFailure()
    {
        TOutcome const outcome = Run({"--screenshot", "/nowhere/at/all.png"});
        QCOMPARE(outcome.code, 1);
        QVERIFY(outcome.errors.contains(QLatin1String("/nowhere/at/all.png")));
    }

    void twoToursShowTheSame()
    {
        QTemporaryDir folder;
        QDir const first(folder.filePath(QStringLiteral("first")));
        QDir const second(folder.filePath(QStringLiteral("second")));
        QCOMPARE(Run({"--tour", first.path()}).code, 0);
        QCOMPARE(Run({"--tour", second.path()}).code, 0);
        QStringList const pictures = first.entryList(QDir::Files);
        QVERIFY(pictures.size() > 20);
        QCOMPARE(second.entryList(QDir::Files), pictures);
        for (QString const& name : pictures)
        {
            // It measures, and no two measurements are the same.
            if (name.contains(QLatin1String("diagnostics")))
                continue;
            QVERIFY2(QImage(first.filePath(name)) == QImage(second.filePath(name)), qPrintable(name));
        }
    }

    void theMonkeyFindsEverythingInOrder()
    {
        QStringList const arguments{"--monkey", "600", "--seed", "11"};
        TOutcome const outcome = Run(arguments);
        QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
        QVERIFY(outcome.output.contains(QLatin1String("seed 11, 600 steps")));
        QCOMPARE(Run(arguments).output, outcome.output);
    }

    void aRestartFindsTheLayoutThatTheStopLeft_data()
    {
        QTest::addColumn<QString>("seed");
        for (char const* const seed : {"3", "4", "5"})
            QTest::newRow(seed) << QString::fromLatin1(seed);
    }

    void aRestartFindsTheLayoutThatTheStopLeft()
    {
        QFETCH(QString, seed);
        QTemporaryDir folder;
        QString const data = folder.filePath(QStringLiteral("data"));
        QCOMPARE(Run({"--monkey", "250", "--seed", seed, "--data", data}).code, 0);
        QString const layout = LayoutOf(data);
        QVERIFY(layout.contains(QLatin1String("ActiveFullview")));
        QCOMPARE(Run({"--data", data, "--screenshot", folder.filePath("a.png")}).code, 0);
        QCOMPARE(PlacesIn(LayoutOf(data)), PlacesIn(layout));
    }

    void aTerminatedConsoleKeepsItsLayout()
    {
        QTemporaryDir folder;
        QString const data = folder.filePath(QStringLiteral("data"));
        QProcess process;
        process.start(QStringLiteral(CONSOLE_PROGRAM), {"--data", data});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(SettingsOf(data)), Patience);
        process.terminate();
        QVERIFY(process.waitForFinished(Patience));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(LayoutOf(data).contains(QLatin1String("ActiveMiniview")));
    }
};

COMMONUI_TEST(TConsoleProcessTest)
#include "TConsoleProcessTest.moc"
