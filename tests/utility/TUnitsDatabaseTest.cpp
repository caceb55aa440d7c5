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
    void separatorIsThatOfTheSystem_data();
    void separatorIsThatOfTheSystem();
    void severalThreadsMayBeTheFirst();
    void unreadableDatabaseShowsWhatIsStored_data();
    void unreadableDatabaseShowsWhatIsStored();
    void faultsOfOthersAreNoneOfTheDatabase();
    void unitsThatTheDatabaseLacksAreShownAsStored();
    void weightOfAnUnknownVolumeIsShownAsStored_data();
    void weightOfAnUnknownVolumeIsShownAsStored();

private:
    struct TRun
    {
        QStringList lines;
        QByteArray errors;
        int exitCode;
    };

    static TRun Probe(QString const& task, QProcessEnvironment const& environment);
    QString WriteDatabase(QByteArray const& units);

    QTemporaryDir m_Folder;
};

namespace
{
QStringList const US_VALUES{"41.010 ft 12.5", "68.000 °F 20", "0.186 seeds/ft² 2", "41.0104986877", "1 1"};
QStringList const STORED_VALUES{"12.500 m 12.5", "20.000 °C 20", "2.000 seeds/m² 2", "12.5", "0 0"};

QByteArray BaseUnit(QByteArray const& name, QByteArray const& symbol)
{
    return "<unit><base/><name><singular>" + name + "</singular></name><symbol>" + symbol +
           "</symbol></unit>";
}

QByteArray DefinedUnit(QByteArray const& name, QByteArray const& definition)
{
    return "<unit><def>" + definition + "</def><name><singular>" + name + "</singular></name></unit>";
}
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

QString TUnitsDatabaseTest::WriteDatabase(QByteArray const& units)
{
    QByteArray const content = "<unit-system>" + units + "</unit-system>";
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
             (QStringList{"41.010 ft 12,5", "68.000 °F 20", "0.186 seeds/ft² 2", "41,0104986877", "1 1"}));
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

void TUnitsDatabaseTest::separatorIsThatOfTheSystem_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << "C"
                          << "12.5";
    QTest::newRow("English") << "en_US.UTF-8"
                             << "12.5";
    QTest::newRow("French") << "fr_FR.UTF-8"
                            << "12,5";
}

void TUnitsDatabaseTest::separatorIsThatOfTheSystem()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", locale);
    QCOMPARE(Probe("separator", environment).lines, QStringList{text});
}

void TUnitsDatabaseTest::severalThreadsMayBeTheFirst()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    TRun const run = Probe("threads", environment);
    QCOMPARE(run.lines.filter("41.0 ft").size(), 8);
    QCOMPARE(run.lines.mid(8), QStringList{"1"});
    QCOMPARE(run.errors, QByteArray());
    environment.insert("UDUNITS2_XML_PATH", m_Folder.filePath("missing.xml"));
    TRun const without = Probe("threads", environment);
    QCOMPARE(without.lines.filter("log: ").size(), 1);
    QCOMPARE(without.lines.filter("12.5 ft").size(), 8);
    QCOMPARE(without.lines.size(), 10);
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
    QVERIFY2(run.lines.constFirst().endsWith(", 1.0 m"), qPrintable(run.lines.constFirst()));
    QCOMPARE(run.lines.mid(1), STORED_VALUES);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void TUnitsDatabaseTest::faultsOfOthersAreNoneOfTheDatabase()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    TRun const run = Probe("shared", environment);
    QCOMPARE(run.lines, US_VALUES);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    environment.insert("UDUNITS2_XML_PATH", m_Folder.filePath("missing.xml"));
    TRun const without = Probe("shared", environment);
    QCOMPARE(without.lines.mid(1), STORED_VALUES);
    QVERIFY(without.lines.filter("elsewhere").isEmpty());
    QCOMPARE(without.exitCode, 0);
}

void TUnitsDatabaseTest::unitsThatTheDatabaseLacksAreShownAsStored()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("UDUNITS2_XML_PATH",
                       WriteDatabase(BaseUnit("metre", "m") + DefinedUnit("foot", "0.5 metre")));
    TRun const run = Probe("values", environment);
    QVERIFY(!run.lines.isEmpty());
    QVERIFY2(run.lines.constFirst().startsWith("log: The units database does not know: millimetre, "),
             qPrintable(run.lines.constFirst()));
    QCOMPARE(run.lines.mid(1), (QStringList{"25.000 ft 12.5"} + STORED_VALUES.mid(1, 1) +
                                QStringList{"0.500 seeds/ft² 2", "25", "1 0"}));
    QCOMPARE(run.errors, QByteArray());
}

void TUnitsDatabaseTest::weightOfAnUnknownVolumeIsShownAsStored_data()
{
    QTest::addColumn<QByteArray>("known");
    QTest::addColumn<QStringList>("shown");
    QByteArray const masses = BaseUnit("kilogram", "kg") + DefinedUnit("pound", "0.5 kilogram");
    QByteArray const volumes =
        BaseUnit("metre", "m") + DefinedUnit("litre", "0.001 metre3") + DefinedUnit("bushel", "40 litre");
    QStringList const stored{"100.0 L", "100.0 kg"};
    QTest::newRow("masses alone") << masses << stored;
    QTest::newRow("volumes alone") << volumes << stored;
    QTest::newRow("both") << masses + volumes << QStringList{"256.0 lb", "2.0 bu"};
}

// A weight has to do with a volume only where the database knows both.
void TUnitsDatabaseTest::weightOfAnUnknownVolumeIsShownAsStored()
{
    QFETCH(QByteArray, known);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("UDUNITS2_XML_PATH", WriteDatabase(known));
    TRun const run = Probe("weight", environment);
    QVERIFY(!run.lines.isEmpty());
    QVERIFY2(run.lines.constFirst().startsWith("log: The units database does not know: "),
             qPrintable(run.lines.constFirst()));
    QTEST(QStringList(run.lines.mid(1)), "shown");
    QCOMPARE(run.exitCode, 0);
}

COMMONUI_TEST(TUnitsDatabaseTest)
#include "TUnitsDatabaseTest.moc"
