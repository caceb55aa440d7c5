#include "TestCase.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

// What the environment does to units, each time in a process that has not read their database yet.
class TUnitsDatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void databaseOfTheSystemIsRead();
    void decimalCommaOfTheLocaleDoesNotReachTheDatabase();
    void datesHaveTheDigitsOfNumbersInEveryLanguage_data();
    void datesHaveTheDigitsOfNumbersInEveryLanguage();
    void unreadableDatabaseShowsWhatIsStored_data();
    void unreadableDatabaseShowsWhatIsStored();
    void unitsThatTheDatabaseLacksAreShownAsStored();

private:
    struct TRun
    {
        QStringList lines;
        QByteArray errors;
        int exitCode;
    };

    static TRun Probe(QString const& task, QProcessEnvironment const& environment);
    QString Write(QByteArray const& content);

    QTemporaryDir m_Folder;
};

namespace
{
QStringList const US_VALUES{"41.010 ft 12.5", "68.000 °F 20", "0.186 seeds/ft² 2", "41.0104986877"};
QStringList const STORED_VALUES{"12.500 m 12.5", "20.000 °C 20", "2.000 seeds/m² 2", "12.5"};
} // namespace

TUnitsDatabaseTest::TRun TUnitsDatabaseTest::Probe(QString const& task,
                                                   QProcessEnvironment const& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(UNITS_PROBE), {task});
    bool const isDone = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    QString const output = QString::fromUtf8(process.readAllStandardOutput());
    return {output.split('\n', Qt::SkipEmptyParts), process.readAllStandardError(),
            isDone ? process.exitCode() : -1};
}

QString TUnitsDatabaseTest::Write(QByteArray const& content)
{
    QFile file(m_Folder.filePath("units.xml"));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    return file.fileName();
}

void TUnitsDatabaseTest::databaseOfTheSystemIsRead()
{
    TRun const run = Probe("values", QProcessEnvironment::systemEnvironment());
    QCOMPARE(run.lines, US_VALUES);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void TUnitsDatabaseTest::decimalCommaOfTheLocaleDoesNotReachTheDatabase()
{
    QString const compiler = QStandardPaths::findExecutable("localedef");
    QString const locale = m_Folder.filePath("de_DE.UTF-8");
    if (compiler.isEmpty() ||
        QProcess::execute(compiler, {"--no-warnings=ascii", "-i", "de_DE", "-f", "UTF-8", locale}) != 0)
        QSKIP("no locale with a decimal comma can be made here");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LOCPATH", m_Folder.path());
    environment.insert("LC_ALL", "de_DE.UTF-8");
    // The commas are the C library's own, which shows that the locale is in force.
    QCOMPARE(Probe("values", environment).lines,
             (QStringList{"41.010 ft 12,5", "68.000 °F 20", "0.186 seeds/ft² 2", "41,0104986877"}));
}

// The toolkit takes the language from the name alone, so that it need not be installed.
void TUnitsDatabaseTest::datesHaveTheDigitsOfNumbersInEveryLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("none") << "C";
    QTest::newRow("Persian") << "fa_IR.UTF-8";
    QTest::newRow("Arabic") << "ar_EG.UTF-8";
    QTest::newRow("Marathi") << "mr_IN.UTF-8";
}

void TUnitsDatabaseTest::datesHaveTheDigitsOfNumbersInEveryLanguage()
{
    QFETCH(QString, locale);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", locale);
    QCOMPARE(Probe("date", environment).lines, (QStringList{"01/01/2024", "13:30"}));
}

void TUnitsDatabaseTest::unreadableDatabaseShowsWhatIsStored_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_Folder.filePath("missing.xml");
    QTest::newRow("folder") << m_Folder.path();
    QTest::newRow("no XML") << "/dev/null";
    QTest::newRow("binary") << "/proc/self/exe";
}

void TUnitsDatabaseTest::unreadableDatabaseShowsWhatIsStored()
{
    QFETCH(QString, path);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("UDUNITS2_XML_PATH", path);
    TRun const run = Probe("values", environment);
    QVERIFY(!run.lines.isEmpty());
    QVERIFY2(
        run.lines.constFirst().startsWith(
            "log: The units database cannot be read, so values stay in the units that they are stored in: "),
        qPrintable(run.lines.constFirst()));
    QVERIFY2(run.lines.constFirst().contains(path), qPrintable(run.lines.constFirst()));
    QCOMPARE(run.lines.mid(1), STORED_VALUES);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void TUnitsDatabaseTest::unitsThatTheDatabaseLacksAreShownAsStored()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(
        "UDUNITS2_XML_PATH",
        Write("<unit-system><unit><base/><name><singular>metre</singular></name><symbol>m</symbol></unit>"
              "<unit><def>0.5 metre</def><name><singular>foot</singular></name></unit></unit-system>"));
    TRun const run = Probe("values", environment);
    QVERIFY(!run.lines.isEmpty());
    QVERIFY2(run.lines.constFirst().startsWith("log: The units database does not know: millimetre, "),
             qPrintable(run.lines.constFirst()));
    QCOMPARE(run.lines.mid(1), (QStringList{"25.000 ft 12.5"} + STORED_VALUES.mid(1, 1) +
                                QStringList{"0.500 seeds/ft² 2", "25"}));
    QCOMPARE(run.errors, QByteArray());
}

COMMONUI_TEST(TUnitsDatabaseTest)
#include "TUnitsDatabaseTest.moc"
