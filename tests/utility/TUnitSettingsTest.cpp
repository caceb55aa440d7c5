#include "TUnitSettings.h"
#include "TestCase.h"
#include "TUnits.h"

#include <QLocale>
#include <QSignalSpy>

#include <limits>

class TUnitSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { TUnitSettings::Instance()->SetChoices({}); }

    void operatorStartsMetric();
    void newChoiceIsToldOnceAndAlreadyInForce();
    void sameChoiceIsNotTold();
    void listenerMayChooseAgain();
    void eachChoiceMakesADifference();
    void numbersThatDoNotExistCountAsZero_data();
    void numbersThatDoNotExistCountAsZero();
    void choicesThatDoNotExistCountAsZeroToo();
};

void TUnitSettingsTest::operatorStartsMetric()
{
    TUnitChoices const choices = TUnitSettings::Instance()->Choices();
    QCOMPARE(choices.system, UNIT_SYSTEM_METRIC);
    QCOMPARE(choices.dateFormat, DATE_FORMAT_DAY_MONTH_YEAR);
    QVERIFY(choices.is24HourClock);
    QCOMPARE(choices.decimalPoint, QLocale::system().decimalPoint());
}

void TUnitSettingsTest::newChoiceIsToldOnceAndAlreadyInForce()
{
    QString shown;
    QObject display;
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, &display,
            [&shown] {
                shown += TUnits::GetValueStringInContext(10.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1,
                                                         nullptr, 1.0);
            });
    TUnitSettings::Instance()->SetChoices(TUnitChoices::FromNumbers(QLatin1Char(','), 2, 3, false));
    QCOMPARE(shown, QString("22,4 mph"));
}

void TUnitSettingsTest::sameChoiceIsNotTold()
{
    QSignalSpy const told(TUnitSettings::Instance(), &TUnitSettings::Changed);
    TUnitSettings::Instance()->SetChoices(TUnitSettings::Instance()->Choices());
    QCOMPARE(told.count(), 0);
}

void TUnitSettingsTest::listenerMayChooseAgain()
{
    QObject display;
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, &display,
            [] { TUnitSettings::Instance()->SetChoices(TUnitChoices::FromNumbers('.', 1, 0, true)); });
    TUnitSettings::Instance()->SetChoices(TUnitChoices::FromNumbers('.', 2, 0, true));
    QCOMPARE(TUnitSettings::Instance()->Choices().system, UNIT_SYSTEM_IMPERIAL);
}

void TUnitSettingsTest::eachChoiceMakesADifference()
{
    QSignalSpy const told(TUnitSettings::Instance(), &TUnitSettings::Changed);
    TUnitChoices choices;
    choices.system = UNIT_SYSTEM_US;
    TUnitSettings::Instance()->SetChoices(choices);
    QCOMPARE(told.count(), 1);
    choices.dateFormat = DATE_FORMAT_YEAR_DAY_MONTH;
    TUnitSettings::Instance()->SetChoices(choices);
    QCOMPARE(told.count(), 2);
    choices.is24HourClock = false;
    TUnitSettings::Instance()->SetChoices(choices);
    QCOMPARE(told.count(), 3);
    choices.decimalPoint = QLatin1Char(',');
    TUnitSettings::Instance()->SetChoices(choices);
    QCOMPARE(told.count(), 4);
    QVERIFY(TUnitSettings::Instance()->Choices() == choices);
}

void TUnitSettingsTest::numbersThatDoNotExistCountAsZero_data()
{
    QTest::addColumn<int>("system");
    QTest::addColumn<int>("dateFormat");
    QTest::newRow("past the last") << 3 << 6;
    QTest::newRow("negative") << -1 << -1;
    QTest::newRow("wrapping to a small one") << 256 << 257;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
}

void TUnitSettingsTest::numbersThatDoNotExistCountAsZero()
{
    QFETCH(int, system);
    QFETCH(int, dateFormat);
    TUnitChoices const choices = TUnitChoices::FromNumbers('.', system, dateFormat, true);
    QCOMPARE(choices.system, UNIT_SYSTEM_METRIC);
    QCOMPARE(choices.dateFormat, DATE_FORMAT_DAY_MONTH_YEAR);
}

void TUnitSettingsTest::choicesThatDoNotExistCountAsZeroToo()
{
    TUnitChoices odd;
    odd.decimalPoint = QLatin1Char(',');
    odd.system = EUnitSystem(7);
    odd.dateFormat = EDateFormat(200);
    TUnitSettings::Instance()->SetChoices(odd);
    QVERIFY(TUnitSettings::Instance()->Choices() == TUnitChoices::FromNumbers(',', 0, 0, true));
    QCOMPARE(TUnits::GetValueStringInContext(10.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1, nullptr, 1.0),
             QString("36,0 km/h"));
    QCOMPARE(TUnits::GetValueString(2460311.0, UNIT_DATE, 0, nullptr, 1.0), QString("01/01/2024"));
    QSignalSpy const told(TUnitSettings::Instance(), &TUnitSettings::Changed);
    TUnitSettings::Instance()->SetChoices(odd);
    QCOMPARE(told.count(), 0);
}

COMMONUI_TEST(TUnitSettingsTest)
#include "TUnitSettingsTest.moc"
