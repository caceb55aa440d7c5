#include "TDial.h"

#include "ConfigManager.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TUnitSettings.h"
#include "TValueField.h"

/// Instruments and fields that show a value in the operator's unit.
class TDialTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theScaleEndsWithARoundNumber_data()
    {
        QTest::addColumn<double>("largest");
        QTest::addColumn<int>("system");
        QTest::addColumn<double>("end");
        QTest::newRow("litres a minute") << 300.0 << int(UNIT_SYSTEM_METRIC) << 300.0;
        QTest::newRow("US gallons a minute") << 300.0 << int(UNIT_SYSTEM_US) << 80.0;
        QTest::newRow("UK gallons a minute") << 300.0 << int(UNIT_SYSTEM_IMPERIAL) << 70.0;
        QTest::newRow("a small one") << 7.0 << int(UNIT_SYSTEM_METRIC) << 7.0;
        QTest::newRow("an odd one") << 71.0 << int(UNIT_SYSTEM_METRIC) << 80.0;
        QTest::newRow("nothing") << 0.0 << int(UNIT_SYSTEM_METRIC) << 1.0;
        QTest::newRow("below nothing") << -5.0 << int(UNIT_SYSTEM_METRIC) << 1.0;
        QTest::newRow("a million") << 1e6 << int(UNIT_SYSTEM_METRIC) << 1e6;
    }

    void theScaleEndsWithARoundNumber()
    {
        QFETCH(double, largest);
        QFETCH(int, system);
        QFETCH(double, end);
        TTestConfig config;
        TDial const dial(nullptr, QStringLiteral("Flow"), Quantities::Flow, largest);
        config.Write(CONFIG_UNIT_SYSTEM, system, false);
        QVERIFY(qAbs(dial.EndOfScale() - end) < 1e-9 * end);
    }

    void aDialTellsItsValueInTheUnitOfTheOperator()
    {
        TTestConfig config;
        TDial dial(nullptr, QStringLiteral("Speed"), Quantities::WholeSpeed, 30.0 / 3.6);
        dial.SetValue(5.0);
        QCOMPARE(dial.Text(), QStringLiteral("18 km/h"));
        config.Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
        QCOMPARE(dial.Text(), QStringLiteral("11 mph"));
    }

    void theNeedleStandsForTheSameValueInEachUnit()
    {
        TTestConfig config;
        config.Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
        TDial changed(nullptr, QStringLiteral("Speed"), Quantities::WholeSpeed, 30.0 / 3.6);
        changed.resize(200, 200);
        changed.SetValue(5.0);
        config.Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_METRIC), false);
        TDial fresh(nullptr, QStringLiteral("Speed"), Quantities::WholeSpeed, 30.0 / 3.6);
        fresh.resize(200, 200);
        fresh.SetValue(5.0);
        QCOMPARE(changed.grab().toImage(), fresh.grab().toImage());
        fresh.SetValue(2.0);
        QVERIFY(changed.grab().toImage() != fresh.grab().toImage());
    }

    void beyondTheScaleTheNeedleStaysAtItsEnd()
    {
        TTestConfig const config;
        TDial dial(nullptr, QStringLiteral("Tank"), Quantities::Share, 100.0);
        for (double const value : {1e300, qInf(), -qInf(), qQNaN()})
        {
            dial.SetValue(value);
            dial.resize(150, 150);
            QVERIFY(!dial.grab().isNull());
        }
        dial.SetValue(250.0);
        QCOMPARE(dial.Text(), QStringLiteral("250%"));
    }

    void aFieldTellsWhatIsNotKnown()
    {
        TTestConfig config;
        TValueField field(nullptr, QStringLiteral("Speed"));
        field.SetUnknown(Quantities::Speed);
        QCOMPARE(field.Text().value, QStringLiteral("–"));
        QCOMPARE(field.Text().unit, QStringLiteral("km/h"));
        field.SetValue(Quantities::Speed, 2.5);
        QCOMPARE(field.Text().value, QStringLiteral("9.0"));
        config.Write(CONFIG_LOCALE, QStringLiteral("de_DE"), false);
        field.SetValue(Quantities::Speed, 2.5);
        QCOMPARE(field.Text().value, QStringLiteral("9,0"));
    }
};

COMMONUI_TEST(TDialTest)
#include "TDialTest.moc"
