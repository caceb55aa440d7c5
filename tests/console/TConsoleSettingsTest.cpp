#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "TestCase.h"
#include "TestSource.h"
#include "TestSupport.h"
#include "TJob.h"
#include "TMachine.h"
#include "TUnitSettings.h"

using namespace ConsoleSettings;

namespace
{
/// A console's store, its machine and its job.
struct TStage
{
    TStage()
        : machine(std::make_unique<TTestSource>())
    {
    }

    TTestConfig config;
    TTestUserLog log;
    TMachine machine;
    TJob job;
};
} // namespace

class TConsoleSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsStoredHolds()
    {
        TStage stage;
        stage.config.Write(SETTING_TANK_SIZE, 4200.0, false);
        stage.config.Write(SETTING_NOZZLE_FLOW, 1.25, false);
        stage.config.Write(SETTING_LIGHT_BAR_STEP, 2, false);
        stage.config.Write(SETTING_SECTION_WIDTH + 7, 2.5, false);
        stage.config.Write(SETTING_OPERATOR, QStringLiteral("Anna Huber"), false);
        stage.config.Write(SETTING_START_DAY, 2460000.0, false);
        stage.config.Write(SETTING_START_TIME, 6.5, false);
        stage.config.Write(SETTING_SERVER, QStringLiteral("10.0.0.7"), false);
        Load(&stage.machine, &stage.job);
        QCOMPARE(stage.machine.TankSize(), 4200.0);
        QCOMPARE(stage.machine.NozzleFlow(), 1.25);
        QCOMPARE(stage.machine.LightBarStep(), 2);
        QCOMPARE(stage.machine.Boom().SectionWidth(7), 2.5);
        QCOMPARE(stage.machine.Boom().SectionWidth(6), TBoom::StandardSectionWidth);
        QCOMPARE(stage.job.Operator(), QStringLiteral("Anna Huber"));
        QCOMPARE(stage.job.StartDay(), 2460000.0);
        QCOMPARE(stage.job.StartTime(), 6.5);
        QCOMPARE(stage.job.Server(), QStringLiteral("10.0.0.7"));
        QVERIFY(stage.log.Entries().isEmpty());
    }

    void nothingStoredIsNothingWrong()
    {
        TStage stage;
        Load(&stage.machine, &stage.job);
        QCOMPARE(stage.machine.TankSize(), TMachine::StandardTankSize);
        QVERIFY(stage.log.Entries().isEmpty());
    }

    void aJobThatHasBegunGoesOnAtTheNextStart()
    {
        TStage stage;
        stage.job.SetStartDay(2460000.0);
        stage.job.SetStartTime(6.5);
        Load(&stage.machine, &stage.job);
        TJob later;
        Load(&stage.machine, &later);
        QCOMPARE(later.StartDay(), 2460000.0);
        QCOMPARE(later.StartTime(), 6.5);
    }

    void garbageIsToldAndForgotten_data()
    {
        QTest::addColumn<int>("setting");
        QTest::addColumn<QVariant>("value");
        QVariant const values[] = {
            qQNaN(), -1.0, qInf(), 1e300, QStringLiteral("much"), QByteArray("\0\1", 2)};
        for (int const setting : {int(SETTING_TANK_SIZE), int(SETTING_NOZZLE_FLOW),
                                  int(SETTING_LIGHT_BAR_STEP), int(SETTING_SECTION_WIDTH),
                                  SETTING_SECTION_WIDTH + 7, int(SETTING_START_DAY), int(SETTING_START_TIME)})
        {
            for (QVariant const& value : values)
                QTest::addRow("%d %s", setting, qPrintable(value.toString())) << setting << value;
        }
        QTest::newRow("a name of many pages")
            << int(SETTING_OPERATOR) << QVariant(QString(100000, QLatin1Char('x')));
        QTest::newRow("a name with a line end") << int(SETTING_OPERATOR) << QVariant(QStringLiteral("A\nB"));
        QTest::newRow("a name that is a number") << int(SETTING_OPERATOR) << QVariant(5);
        QTest::newRow("no address") << int(SETTING_SERVER) << QVariant(QStringLiteral("1.2.3"));
        QTest::newRow("no unit system") << int(CONFIG_UNIT_SYSTEM) << QVariant(17);
        QTest::newRow("a negative unit system") << int(CONFIG_UNIT_SYSTEM) << QVariant(-1);
        QTest::newRow("no order of dates") << int(CONFIG_DATE_FORMAT) << QVariant(6);
        QTest::newRow("no language") << int(CONFIG_LOCALE) << QVariant(QStringLiteral("?!"));
    }

    void garbageIsToldAndForgotten()
    {
        QFETCH(int, setting);
        QFETCH(QVariant, value);
        TStage stage;
        double const day = stage.job.StartDay();
        double const time = stage.job.StartTime();
        stage.config.Write(setting, value, false);
        Load(&stage.machine, &stage.job);
        QStringList const entries = stage.log.Entries();
        QCOMPARE(entries.size(), 1);
        QVERIFY(entries.constFirst().contains(QString::number(setting)));
        QVERIFY(entries.constFirst().size() < 200);
        QCOMPARE(stage.machine.TankSize(), TMachine::StandardTankSize);
        QCOMPARE(stage.machine.NozzleFlow(), TMachine::StandardNozzleFlow);
        QCOMPARE(stage.machine.LightBarStep(), LightBarScale::StandardStep);
        QVERIFY(stage.machine.Boom() == TBoom());
        QCOMPARE(stage.job.Operator(), QString());
        QCOMPARE(stage.job.StartDay(), day);
        QCOMPARE(stage.job.StartTime(), time);
        QCOMPARE(stage.job.Server(), TJob::NoServer());
        QCOMPARE(int(TUnitSettings::Instance()->Choices().system), int(UNIT_SYSTEM_METRIC));
        QCOMPARE(int(TUnitSettings::Instance()->Choices().dateFormat), int(DATE_FORMAT_DAY_MONTH_YEAR));
        // Once is enough.
        TJob next;
        Load(&stage.machine, &next);
        QCOMPARE(stage.log.Entries().size(), 1);
    }

    void aNumberThatWasStoredAsATextHolds()
    {
        TStage stage;
        stage.config.Write(SETTING_TANK_SIZE, QStringLiteral("4200"), false);
        Load(&stage.machine, &stage.job);
        QCOMPARE(stage.machine.TankSize(), 4200.0);
    }
};

COMMONUI_TEST(TConsoleSettingsTest)
#include "TConsoleSettingsTest.moc"
