#include "TEditStage.h"
#include "TestCase.h"
#include "TUnits.h"

#include <QDate>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEditItem TimeItem(double min, double max, double increment, double value)
{
    TEditItem item = SteppedItem(min, max, increment, value);
    item.numberPadType = NUMBER_PAD_TIME;
    return item;
}

TEditItem SpeedItem(double min, double max, double increment, double value)
{
    TEditItem item = SteppedItem(min, max, increment, value);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    return item;
}

TEditItem DiscreteItem(QVector<double> const& values, double value)
{
    TEditItem item = SteppedItem(0, 0, 1, value);
    item.kind = EDIT_KIND_STEPPED;
    item.discreteValues = values;
    return item;
}

double Stepped(TEditItem const& item, int direction)
{
    TEditStage const stage(item);
    if (direction > 0)
        stage.edit->OnUp();
    else
        stage.edit->OnDown();
    return stage.edit->GetCurrentValue();
}

/// A number of the kind that models hold by mistake, or a usual one.
double OddNumber(QRandomGenerator& random)
{
    static double const odd[] = {0.0, -0.0, 1.0, -1.0, qQNaN(), Infinity, -Infinity, 1e300, -1e300, 1e-300};
    if (random.bounded(3) != 0)
        return random.bounded(200.0) - 100.0;
    return odd[random.bounded(int(std::size(odd)))];
}
} // namespace

class TEditWidgetStepsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGridOfTheSteps_data();
    void theGridOfTheSteps();
    void aValueOf5Point3StepsTo6And4();
    void withAMinimumOfMinus10TheGridGoesThroughZero();
    void noStepWithoutAnIncrement_data();
    void noStepWithoutAnIncrement();
    void aStepStopsAtTheBounds();
    void valuesOutsideTheBoundsStepIntoThem();
    void boundsTheWrongWayRoundAreSorted();
    void theIncrementOfTheUnitGoesFirst();
    void stepsAreTakenInTheUnitOfTheOperator();
    void boundsComeBackToTheLastBit_data();
    void boundsComeBackToTheLastBit();
    void aStepThatLandsOnABoundIsThatBound();
    void theDensityCountsInSteps();
    void aTimeAtTheMaximumWrapsAndANumberStays();
    void aTimeBelowTheMinimumComesFromTheOtherEnd();
    void timesStepOnThePadToo_data();
    void timesStepOnThePadToo();
    void datesStepByDays();
    void timesAndDatesNeverDisableTheirButtons_data();
    void timesAndDatesNeverDisableTheirButtons();
    void plusAndMinusAreEnabledWithinTheBounds();
    void otherBoundsEnablePlusAndMinus();
    void aHeldPlusStopsAtTheMaximum();
    void aHeldMinusEndsWithTheWidget();

    void discreteValuesAreSteppedThrough();
    void discreteValuesEndAtTheirEnds();
    void anEndThatIsReachedByWheelStays();
    void aDiscreteStepIsWhatACancelGoesBackTo();
    void aDiscreteStepReachesThePad();
    void oddDiscreteValues();
    void otherKindsDoNotStep_data();
    void otherKindsDoNotStep();

    void aStepGoesOnFromWhatThePadHolds();
    void aStepReachesThePad();
    void theKeysOfACentredPadStep();
    void theKeysOfACentredPadFollowTheBounds();
    void aUnitSelectorWithOneEntryIsNotValidAndTheTextIsRewritten();
    void withASelectorTheTextIsThatOfThePad();
    void theGridIsThatOfTheSelectedUnit();
    void eachStepIsTold();

    void theWheelStepsTheValue();
    void theWheelOwnerNeedsAPlusAMinusOrAList();
    void theWheelStopsAtTheEnds();
    void enterAndBackPressTheFloatingButtons();
    void enterAndBackPressTheKeysOfThePad();
    void theWheelWalksOverACentredPad();
    void theOverlayItselfIsNotHighlighted();
    void oddItemsNeverLeaveTheirBounds();
};

void TEditWidgetStepsTest::theGridOfTheSteps_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("increment");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("down");
    QTest::addColumn<double>("up");
    QTest::newRow("on the grid") << 0.0 << 1.0 << 5.0 << 4.0 << 6.0;
    QTest::newRow("off the grid") << 0.0 << 5.0 << 7.0 << 0.0 << 10.0;
    QTest::newRow("a half goes away from zero") << 0.0 << 5.0 << 12.5 << 10.0 << 20.0;
    QTest::newRow("a negative half, too") << -100.0 << 5.0 << -12.5 << -20.0 << -10.0;
    QTest::newRow("a half below the grid, too") << 2.0 << 5.0 << 2.5 << 2.0 << 5.0;
    QTest::newRow("minimum on the grid") << 10.0 << 5.0 << 12.0 << 10.0 << 15.0;
    QTest::newRow("the grid begins above the minimum") << 3.0 << 5.0 << 12.0 << 5.0 << 15.0;
    QTest::newRow("the grid goes through zero") << -10.0 << 3.0 << 4.0 << 0.0 << 6.0;
    QTest::newRow("a minimum that rounds up to zero") << -0.5 << 1.0 << 2.0 << 1.0 << 3.0;
    QTest::newRow("fractions") << 0.0 << 0.25 << 0.5 << 0.25 << 0.75;
}

void TEditWidgetStepsTest::theGridOfTheSteps()
{
    QFETCH(double, min);
    QFETCH(double, increment);
    QFETCH(double, value);
    QFETCH(double, down);
    QFETCH(double, up);
    TEditItem const item = SteppedItem(min, 100, increment, value);
    QCOMPARE(Stepped(item, -1), down);
    QCOMPARE(Stepped(item, 1), up);
}

void TEditWidgetStepsTest::aValueOf5Point3StepsTo6And4()
{
    TEditItem const item = SteppedItem(0.5, 100, 1, 5.3);
    QCOMPARE(Stepped(item, 1), 6.0);
    QCOMPARE(Stepped(item, -1), 4.0);
}

void TEditWidgetStepsTest::withAMinimumOfMinus10TheGridGoesThroughZero()
{
    TEditStage const stage(SteppedItem(-10, 10, 3, 1));
    QVector<double> values;
    for (int i = 0; i < 5; ++i)
    {
        stage.edit->OnDown();
        values << stage.edit->GetCurrentValue();
    }
    QCOMPARE(values, QVector<double>({-3, -6, -9, -10, -10}));
    stage.edit->OnUp();
    QCOMPARE(stage.edit->GetCurrentValue(), -6.0);
}

void TEditWidgetStepsTest::noStepWithoutAnIncrement_data()
{
    QTest::addColumn<double>("increment");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative zero") << -0.0;
    QTest::newRow("negative") << -1.0;
    QTest::newRow("not a number") << qQNaN();
    QTest::newRow("infinite") << Infinity;
}

void TEditWidgetStepsTest::noStepWithoutAnIncrement()
{
    QFETCH(double, increment);
    TOpenEditStage stage(SteppedItem(0, 10, increment, 5));
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.Minus());
    QCOMPARE(stage.edit->GetCurrentValue(), 5.0);
    QVERIFY(stage.log.isEmpty());
}

void TEditWidgetStepsTest::aStepStopsAtTheBounds()
{
    TEditStage const stage(SteppedItem(0.5, 9.5, 2, 5));
    QVector<double> values;
    for (int i = 0; i < 4; ++i)
    {
        stage.edit->OnUp();
        values << stage.edit->GetCurrentValue();
    }
    for (int i = 0; i < 6; ++i)
    {
        stage.edit->OnDown();
        values << stage.edit->GetCurrentValue();
    }
    QCOMPARE(values, QVector<double>({8, 9.5, 9.5, 9.5, 8, 6, 4, 2, 0.5, 0.5}));
}

void TEditWidgetStepsTest::valuesOutsideTheBoundsStepIntoThem()
{
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, 50), -1), 9.0);
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, 50), 1), 10.0);
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, -50), 1), 1.0);
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, Infinity), -1), 9.0);
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, -Infinity), 1), 1.0);
    QCOMPARE(Stepped(SteppedItem(0, 10, 1, qQNaN()), 1), 1.0);
}

void TEditWidgetStepsTest::boundsTheWrongWayRoundAreSorted()
{
    QCOMPARE(Stepped(SteppedItem(10, 0, 1, 5), 1), 6.0);
    QCOMPARE(Stepped(SteppedItem(10, 0, 1, 5), -1), 4.0);
    QCOMPARE(Stepped(SteppedItem(10, 0, 1, 10), 1), 10.0);
    QCOMPARE(Stepped(SteppedItem(10, 0, 1, 0), -1), 0.0);
    TOpenEditStage const stage(SteppedItem(10, 0, 1, 10));
    QVERIFY(!stage.Plus()->isEnabled());
    QVERIFY(stage.Minus()->isEnabled());
}

void TEditWidgetStepsTest::theIncrementOfTheUnitGoesFirst()
{
    TEditItem item = SpeedItem(0, 100, 1, 10);
    item.unitIncrements = {
        {UNIT_MILES_PER_HOUR, 5}, {UNIT_KILOMETRES_PER_HOUR, 4}, {UNIT_KILOMETRES_PER_HOUR, 9}};
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("40.0 km/h"));
    stage.UseSystem(UNIT_SYSTEM_US);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("30.0 mph"));
    item.unitIncrements = {{UNIT_METRE, 7}};
    stage.edit->RefreshProperties(&item);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("23.0 mph"));
}

void TEditWidgetStepsTest::stepsAreTakenInTheUnitOfTheOperator()
{
    TEditStage const stage(SpeedItem(0, 100, 5, 10));
    stage.edit->OnUp();
    QCOMPARE(stage.edit->GetCurrentValue(), 40 / 3.6);
    stage.edit->OnDown();
    stage.edit->OnDown();
    QCOMPARE(stage.edit->GetCurrentValue(), 30 / 3.6);
}

void TEditWidgetStepsTest::boundsComeBackToTheLastBit_data()
{
    QTest::addColumn<bool>("usePad");
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("system");
    for (bool const usePad : {false, true})
    {
        for (int const unit : {int(UNIT_TYPE_SPEED), int(UNIT_TYPE_TEMPERATURE), int(UNIT_TYPE_LENGTH)})
        {
            for (int const system : {int(UNIT_SYSTEM_METRIC), int(UNIT_SYSTEM_IMPERIAL), int(UNIT_SYSTEM_US)})
                QTest::addRow("%s, unit %d, system %d", usePad ? "pad" : "buttons", unit, system)
                    << usePad << unit << system;
        }
    }
}

void TEditWidgetStepsTest::boundsComeBackToTheLastBit()
{
    QFETCH(bool, usePad);
    QFETCH(int, unit);
    QFETCH(int, system);
    static double const ends[][2] = {{0.1, 0.7}, {-7.3, 7.3}, {1.0 / 3, 10.0 / 3}, {0.3, 12.345678901234567}};
    for (auto const& bounds : ends)
    {
        TEditItem item = SteppedItem(bounds[0], bounds[1], 1000, (bounds[0] + bounds[1]) / 2);
        item.SetUnitAndDecimalPlaces(EUnitsType(unit), 2);
        item.useNumberPad = usePad;
        TEditStage stage(item);
        stage.UseSystem(EUnitSystem(system));
        stage.edit->Open();
        stage.edit->OnUp();
        QVERIFY(stage.edit->GetCurrentValue() == bounds[1]);
        QVERIFY(!stage.Plus()->isEnabled());
        stage.edit->OnDown();
        stage.edit->OnDown();
        QVERIFY(stage.edit->GetCurrentValue() == bounds[0]);
        QVERIFY(!stage.Minus()->isEnabled());
        stage.edit->OnUp();
        stage.edit->OnDone();
        QVERIFY(stage.values.last() == bounds[1]);
    }
}

// Some of these do not survive the way to kilometres per hour and back.
void TEditWidgetStepsTest::aStepThatLandsOnABoundIsThatBound()
{
    TEditStage const stage(SpeedItem(0, 1, 1, 0));
    for (int i = 1; i < 200; ++i)
    {
        double const high = i / 7.0;
        double const shown = TUnits::GetValueInCurrentUnit(high, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1);
        TEditItem const item = SpeedItem(0, high, shown, 0);
        stage.edit->RefreshProperties(&item);
        stage.edit->OnUp();
        QVERIFY2(stage.edit->GetCurrentValue() == high, qPrintable(QString::number(high)));
    }
}

void TEditWidgetStepsTest::theDensityCountsInSteps()
{
    TEditItem item = SteppedItem(0, 1000, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_VOLUME, 3);
    item.unitsContext = UNITS_CONTEXT_WEIGHED;
    auto const change = [&item](double density)
    {
        item.density = density;
        return Stepped(item, 1) - 10;
    };
    QCOMPARE(change(1), 2 * change(2));
}

void TEditWidgetStepsTest::aTimeAtTheMaximumWrapsAndANumberStays()
{
    QCOMPARE(Stepped(TimeItem(0, 24, 0.5, 24), 1), 0.0);
    QCOMPARE(Stepped(TimeItem(0, 24, 0.5, 23.5), 1), 0.0);
    QCOMPARE(Stepped(TimeItem(0, 24, 0.5, 23), 1), 23.5);
    QCOMPARE(Stepped(TimeItem(6, 18, 0.5, 18), 1), 6.0);
    QCOMPARE(Stepped(SteppedItem(0, 24, 0.5, 24), 1), 24.0);
    TEditItem date = SteppedItem(0, 24, 1, 24);
    date.numberPadType = NUMBER_PAD_DATE;
    QCOMPARE(Stepped(date, 1), 24.0);
}

void TEditWidgetStepsTest::aTimeBelowTheMinimumComesFromTheOtherEnd()
{
    QCOMPARE(Stepped(TimeItem(0, 24, 0.5, 0), -1), 23.5);
    QCOMPARE(Stepped(TimeItem(0, 24, 0.5, 0.5), -1), 0.0);
    QCOMPARE(Stepped(TimeItem(2, 12, 3, 3), -1), 12.0);
    // Not beyond the end.
    QCOMPARE(Stepped(TimeItem(6, 18, 0.5, 6), -1), 18.0);
}

void TEditWidgetStepsTest::timesStepOnThePadToo_data()
{
    QTest::addColumn<bool>("is24HourClock");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("accepted");
    QTest::newRow("24 hours") << true << 11.5 << 1 << 12.0;
    QTest::newRow("24 hours, over the end") << true << 23.5 << 1 << 0.0;
    QTest::newRow("24 hours, over the start") << true << 0.0 << -1 << 23.5;
    QTest::newRow("12 hours") << false << 11.5 << 1 << 12.0;
    QTest::newRow("12 hours, over the end") << false << 23.5 << 1 << 0.0;
    QTest::newRow("12 hours, back to the morning") << false << 12.0 << -1 << 11.5;
}

void TEditWidgetStepsTest::timesStepOnThePadToo()
{
    QFETCH(bool, is24HourClock);
    QFETCH(double, value);
    QFETCH(int, direction);
    QFETCH(double, accepted);
    TEditItem item = TimeItem(0, 24, 0.5, value);
    item.useNumberPad = true;
    TEditStage stage(item);
    stage.UseClock(is24HourClock);
    stage.edit->Open();
    stage.finger.Touch(direction > 0 ? stage.Plus() : stage.Minus());
    QCOMPARE(stage.edit->GetCurrentValue(), accepted);
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{accepted});
}

void TEditWidgetStepsTest::datesStepByDays()
{
    auto const day = [](int month, int ofMonth) { return double(QDate(2024, month, ofMonth).toJulianDay()); };
    TEditItem item = SteppedItem(day(1, 1), day(12, 31), 1, day(2, 29));
    item.numberPadType = NUMBER_PAD_DATE;
    item.useNumberPad = true;
    item.suffix = QStringLiteral("DD/MM/YYYY");
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("01/03/2024"));
    stage.finger.Touch(stage.Minus());
    stage.finger.Touch(stage.Minus());
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{day(2, 28)});
}

void TEditWidgetStepsTest::timesAndDatesNeverDisableTheirButtons_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("decimal") << int(NUMBER_PAD_DECIMAL) << false;
    QTest::newRow("time") << int(NUMBER_PAD_TIME) << true;
    QTest::newRow("date") << int(NUMBER_PAD_DATE) << true;
}

void TEditWidgetStepsTest::timesAndDatesNeverDisableTheirButtons()
{
    QFETCH(int, type);
    QFETCH(bool, enabled);
    TEditItem item = SteppedItem(0, 24, 0.5, 24);
    item.numberPadType = ENumberPadType(type);
    TOpenEditStage const stage(item);
    QCOMPARE(stage.Plus()->isEnabled(), enabled);
    QVERIFY(stage.Minus()->isEnabled());
    stage.edit->SetCurrentValue(0);
    QVERIFY(stage.Plus()->isEnabled());
    QCOMPARE(stage.Minus()->isEnabled(), enabled);
}

void TEditWidgetStepsTest::plusAndMinusAreEnabledWithinTheBounds()
{
    TOpenEditStage stage(SteppedItem(0, 2, 1, 1));
    QVERIFY(stage.Plus()->isEnabled() && stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Plus());
    QVERIFY(!stage.Plus()->isEnabled() && stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.steps, 1);
    stage.finger.Touch(stage.Minus());
    stage.finger.Touch(stage.Minus());
    QVERIFY(stage.Plus()->isEnabled() && !stage.Minus()->isEnabled());
    QCOMPARE(stage.edit->GetCurrentValue(), 0.0);
}

void TEditWidgetStepsTest::otherBoundsEnablePlusAndMinus()
{
    TOpenEditStage const stage(SteppedItem(0, 5, 1, 5));
    QVERIFY(!stage.Plus()->isEnabled());
    stage.edit->SetMaximumValue(6);
    QVERIFY(stage.Plus()->isEnabled());
    stage.edit->SetMinimumValue(5);
    QVERIFY(!stage.Minus()->isEnabled());
    stage.edit->SetCurrentValue(6);
    QVERIFY(!stage.Plus()->isEnabled());
    QVERIFY(stage.Minus()->isEnabled());
}

void TEditWidgetStepsTest::aHeldPlusStopsAtTheMaximum()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    stage.Plus()->SetAutoRepeat(true, 1, 1);
    stage.finger.Press(stage.Plus()->geometry().center());
    QTRY_COMPARE(stage.edit->GetCurrentValue(), 10.0);
    QVERIFY(!stage.Plus()->isDown());
    stage.finger.Lift();
    QCOMPARE(stage.steps, 5);
    stage.finger.Touch(stage.Minus());
    QCOMPARE(stage.edit->GetCurrentValue(), 9.0);
}

void TEditWidgetStepsTest::aHeldMinusEndsWithTheWidget()
{
    TOpenEditStage stage(SteppedItem(-1e9, 1e9, 1, 0));
    connect(stage.edit, qOverload<>(&TEditWidget::ValueChanged), stage.edit,
            [&]
            {
                if (stage.steps == 3)
                    stage.edit->OnCancelEdit();
            });
    stage.Minus()->SetAutoRepeat(true, 1, 1);
    stage.finger.Press(stage.Minus()->geometry().center());
    QTRY_COMPARE(stage.cancels, 1);
    QVERIFY(!stage.Minus()->isDown());
    stage.finger.Lift();
    QCOMPARE(stage.steps, 3);
    QCOMPARE(stage.edit->GetCurrentValue(), 0.0);
}

void TEditWidgetStepsTest::discreteValuesAreSteppedThrough()
{
    QVector<double> const values{1, 2.5, 10, 40};
    QCOMPARE(Stepped(DiscreteItem(values, 1), 1), 2.5);
    QCOMPARE(Stepped(DiscreteItem(values, 2.5), 1), 10.0);
    QCOMPARE(Stepped(DiscreteItem(values, 10), -1), 2.5);
    QCOMPARE(Stepped(DiscreteItem(values, 40), -1), 10.0);
    // Between two of them.
    QCOMPARE(Stepped(DiscreteItem(values, 5), 1), 10.0);
    QCOMPARE(Stepped(DiscreteItem(values, 5), -1), 2.5);
    // Outside of them.
    QCOMPARE(Stepped(DiscreteItem(values, -5), 1), 1.0);
    QCOMPARE(Stepped(DiscreteItem(values, 50), -1), 40.0);
}

void TEditWidgetStepsTest::discreteValuesEndAtTheirEnds()
{
    TOpenEditStage stage(DiscreteItem({1, 2.5, 10}, 2.5));
    stage.finger.Touch(stage.Plus());
    QVERIFY(!stage.Plus()->isEnabled());
    QVERIFY(stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.Minus());
    stage.finger.Touch(stage.Minus());
    QVERIFY(stage.Plus()->isEnabled());
    QVERIFY(!stage.Minus()->isEnabled());
    QCOMPARE(stage.steps, 3);
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values, QVector<double>{1});
}

void TEditWidgetStepsTest::anEndThatIsReachedByWheelStays()
{
    QCOMPARE(Stepped(DiscreteItem({1, 2.5, 10}, 10), 1), 10.0);
    QCOMPARE(Stepped(DiscreteItem({1, 2.5, 10}, 1), -1), 1.0);
    QCOMPARE(Stepped(DiscreteItem({}, 7), 1), 7.0);
    QCOMPARE(Stepped(DiscreteItem({7}, 7), -1), 7.0);
}

// Other than the step of a number it is taken at once, and is what the value was set to.
void TEditWidgetStepsTest::aDiscreteStepIsWhatACancelGoesBackTo()
{
    TOpenEditStage stage(DiscreteItem({1, 2.5, 10}, 1));
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.FloatingCancel());
    QCOMPARE(stage.edit->GetCurrentValue(), 2.5);
    QVERIFY(stage.values.isEmpty());
}

void TEditWidgetStepsTest::aDiscreteStepReachesThePad()
{
    TEditItem item = DiscreteItem({1, 2.5, 10}, 1);
    item.decimalPlaces = 1;
    item.useNumberPad = true;
    TOpenEditStage stage(item);
    QVERIFY(!stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("2.5"));
    QVERIFY(stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Plus());
    QVERIFY(!stage.Plus()->isEnabled());
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{10});
}

void TEditWidgetStepsTest::oddDiscreteValues()
{
    QVector<double> const values{qQNaN(), -Infinity, 5, 3, 1e300, qQNaN()};
    for (double const value : {qQNaN(), -Infinity, 3.0, 5.0, Infinity})
    {
        TOpenEditStage const stage(DiscreteItem(values, value));
        for (int i = 0; i < 10; ++i)
            stage.edit->OnUp();
        for (int i = 0; i < 10; ++i)
            stage.edit->OnDown();
    }
    QCOMPARE(Stepped(DiscreteItem({3, 3, 3}, 3), 1), 3.0);
}

void TEditWidgetStepsTest::otherKindsDoNotStep_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("text list") << int(EDIT_KIND_TEXT_LIST);
    QTest::newRow("other") << int(EDIT_KIND_OTHER);
    QTest::newRow("hidden list") << int(EDIT_KIND_HIDDEN_LIST);
    QTest::newRow("unknown") << 77;
}

void TEditWidgetStepsTest::otherKindsDoNotStep()
{
    QFETCH(int, kind);
    TEditItem item = SteppedItem(0, 4, 1, 2);
    item.kind = kind;
    TOpenEditStage const stage(item);
    stage.edit->OnUp();
    QCOMPARE(stage.edit->GetCurrentValue(), 2.0);
    stage.edit->OnDown();
    QCOMPARE(stage.edit->GetCurrentValue(), 2.0);
    QVERIFY(stage.log.isEmpty());
}

void TEditWidgetStepsTest::aStepGoesOnFromWhatThePadHolds()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TOpenEditStage stage(item);
    stage.Type(QStringLiteral("42"));
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.edit->GetCurrentValue(), 43.0);
    stage.Type(QStringLiteral("500"));
    stage.finger.Touch(stage.Minus());
    QCOMPARE(stage.edit->GetCurrentValue(), 99.0);
}

void TEditWidgetStepsTest::aStepReachesThePad()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Pad()->GetValueDbl(), 6.0);
    QCOMPARE(stage.Shown(), QStringLiteral("6"));
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{6});
    stage.edit->Open();
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.Key(TEditScene::Cross));
    QCOMPARE(stage.edit->GetCurrentValue(), 6.0);
}

void TEditWidgetStepsTest::theKeysOfACentredPadStep()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    item.inlineNumberPad = true;
    TOpenEditStage stage(item);
    QVERIFY(!stage.Plus()->isVisible());
    QVERIFY(!stage.Minus()->isVisible());
    stage.finger.Touch(stage.Key(TEditScene::PadPlus));
    stage.finger.Touch(stage.Key(TEditScene::PadPlus));
    stage.finger.Touch(stage.Key(TEditScene::PadMinus));
    QCOMPARE(stage.steps, 3);
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{6});
}

void TEditWidgetStepsTest::theKeysOfACentredPadFollowTheBounds()
{
    TEditItem item = PadItem(0, 6, 5);
    item.floatingButtons = true;
    item.inlineNumberPad = true;
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.Key(TEditScene::PadPlus));
    QVERIFY(!stage.Key(TEditScene::PadPlus)->isEnabled());
    QVERIFY(stage.Key(TEditScene::PadMinus)->isEnabled());
}

void TEditWidgetStepsTest::aUnitSelectorWithOneEntryIsNotValidAndTheTextIsRewritten()
{
    TEditItem item = SpeedItem(0, 100, 1, 10);
    item.useNumberPad = true;
    item.padDecimalPlaces = 2;
    item.unitsSelector.units = {{UNIT_MILES_PER_HOUR, 2}};
    TOpenEditStage stage(item);
    // The text of the pad has a blank that does not break, and its own decimals.
    QCOMPARE(stage.Shown(), QStringLiteral("36.00\u00A0km/h"));
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("37.0 km/h"));
    QCOMPARE(stage.Shown(), stage.edit->GetStringValue());
}

void TEditWidgetStepsTest::withASelectorTheTextIsThatOfThePad()
{
    for (int const kind : {int(EDIT_KIND_NUMERIC), int(EDIT_KIND_STEPPED)})
    {
        TEditItem item = SpeedItem(0, 100, 1, 10);
        item.kind = kind;
        item.discreteValues = {10, 20};
        item.useNumberPad = true;
        item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_METRES_PER_MINUTE, 2}};
        TOpenEditStage stage(item);
        stage.Pad()->OnNewUnitsSelected(1);
        stage.finger.Touch(stage.Plus());
        QCOMPARE(stage.Shown(), kind == EDIT_KIND_NUMERIC ? QStringLiteral("601.00\u00A0m/min")
                                                          : QStringLiteral("1200.00\u00A0m/min"));
    }
}

void TEditWidgetStepsTest::theGridIsThatOfTheSelectedUnit()
{
    TEditItem item = SpeedItem(0, 100, 1, 10);
    item.useNumberPad = true;
    item.unitIncrements = {{UNIT_METRES_PER_MINUTE, 50}};
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_METRES_PER_MINUTE, 2}};
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.edit->GetCurrentValue(), 37 / 3.6);
    stage.Pad()->OnNewUnitsSelected(1);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.edit->GetCurrentValue(), 650.0 / 60);
}

void TEditWidgetStepsTest::eachStepIsTold()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    QString told;
    connect(stage.edit, qOverload<>(&TEditWidget::ValueChanged), stage.edit,
            [&]
            {
                told = QStringLiteral("%1 %2 %3")
                           .arg(stage.edit->GetCurrentValue())
                           .arg(stage.Shown())
                           .arg(int(stage.Plus()->isEnabled()));
            });
    stage.finger.Touch(stage.Plus());
    QCOMPARE(told, QStringLiteral("6 6 1"));
    stage.edit->SetCurrentValue(9);
    stage.finger.Touch(stage.Plus());
    QCOMPARE(told, QStringLiteral("10 10 0"));
    QCOMPARE(stage.steps, 2);
    QVERIFY(stage.values.isEmpty() && stage.live.isEmpty());
}

void TEditWidgetStepsTest::theWheelStepsTheValue()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    stage.WakeWheel();
    QCOMPARE(stage.edit->GetCurrentValue(), 5.0);
    stage.navigator.OnWheelRight();
    stage.navigator.OnWheelRight();
    QCOMPARE(stage.edit->GetCurrentValue(), 7.0);
    stage.navigator.OnWheelLeft();
    QCOMPARE(stage.edit->GetCurrentValue(), 6.0);
    QCOMPARE(stage.Shown(), QStringLiteral("6"));
}

void TEditWidgetStepsTest::theWheelOwnerNeedsAPlusAMinusOrAList()
{
    TEditItem item = SteppedItem(0, 10, 1, 5);
    TEditStage const stage(item);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_WHEEL_OWNER);
    stage.edit->SetCurrentValue(10);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_WHEEL_OWNER);
    stage.edit->SetMinimumValue(10);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_NORMAL);
    item.floatingButtons = false;
    stage.edit->RefreshProperties(&item);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_NORMAL);
    item.kind = EDIT_KIND_TEXT_LIST;
    stage.edit->RefreshProperties(&item);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_WHEEL_OWNER);
}

void TEditWidgetStepsTest::theWheelStopsAtTheEnds()
{
    TOpenEditStage stage(SteppedItem(0, 2, 1, 1));
    stage.WakeWheel();
    for (int i = 0; i < 5; ++i)
        stage.navigator.OnWheelRight();
    QCOMPARE(stage.edit->GetCurrentValue(), 2.0);
    for (int i = 0; i < 5; ++i)
        stage.navigator.OnWheelLeft();
    QCOMPARE(stage.edit->GetCurrentValue(), 0.0);
    QCOMPARE(stage.steps, 2 + 1 + 2);
    stage.edit->Close();
    stage.edit->OnMMIWheelRight();
    stage.edit->OnMMIWheelLeft();
    QCOMPARE(stage.edit->GetCurrentValue(), 0.0);
}

void TEditWidgetStepsTest::enterAndBackPressTheFloatingButtons()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    stage.WakeWheel();
    stage.navigator.OnWheelRight();
    stage.navigator.OnEnter();
    QVERIFY(stage.FloatingOk()->isDown());
    QTRY_COMPARE(stage.values, QVector<double>{6});
    stage.edit->Open();
    stage.WakeWheel();
    stage.navigator.OnWheelRight();
    QVERIFY(stage.navigator.OnBack());
    QVERIFY(stage.FloatingCancel()->isDown());
    QTRY_COMPARE(stage.cancels, 1);
    QCOMPARE(stage.edit->GetCurrentValue(), 6.0);
    QVERIFY(!stage.IsLocked());
}

void TEditWidgetStepsTest::enterAndBackPressTheKeysOfThePad()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TOpenEditStage stage(item);
    stage.WakeWheel();
    stage.navigator.OnWheelRight();
    QVERIFY(!stage.FloatingOk()->isVisible());
    stage.navigator.OnEnter();
    QVERIFY(stage.Key(TEditScene::Tick)->isDown());
    QTRY_COMPARE(stage.values, QVector<double>{6});
    stage.edit->Open();
    stage.WakeWheel();
    stage.navigator.OnBack();
    QVERIFY(stage.Key(TEditScene::Cross)->isDown());
    QTRY_COMPARE(stage.cancels, 1);
}

void TEditWidgetStepsTest::theWheelWalksOverACentredPad()
{
    TEditItem item = PadItem(0, 100, 5);
    item.inlineNumberPad = true;
    TOpenEditStage stage(item);
    QCOMPARE(stage.edit->GetMMIBehaviour(), MMI_NORMAL);
    stage.WakeWheel();
    QString const before = stage.Shown();
    for (int i = 0; i < 6 && stage.Shown() == before; ++i)
    {
        stage.navigator.OnWheelRight();
        stage.WheelTick(100);
    }
    QCOMPARE(stage.edit->GetCurrentValue(), 5.0);
    stage.navigator.OnBack();
    QTRY_COMPARE(stage.cancels, 1);
}

void TEditWidgetStepsTest::theOverlayItselfIsNotHighlighted()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    QVERIFY(!stage.edit->UseDefaultMMIHighlight());
}

// Whatever the model holds and whatever is touched.
void TEditWidgetStepsTest::oddItemsNeverLeaveTheirBounds()
{
    QRandomGenerator random(4);
    static constexpr int units[] = {UNIT_NONE, UNIT_TYPE_SPEED, UNIT_TYPE_TEMPERATURE, UNIT_TYPE_VOLUME};
    TEditStage stage(SteppedItem(0, 1, 1, 0));
    for (int round = 0; round < 300; ++round)
    {
        TEditItem item =
            SteppedItem(OddNumber(random), OddNumber(random), OddNumber(random), OddNumber(random));
        item.SetUnitAndDecimalPlaces(EUnitsType(units[random.bounded(4)]), random.bounded(4));
        item.density = OddNumber(random);
        item.useNumberPad = random.bounded(2) == 0;
        item.numberPadType = ENumberPadType(random.bounded(3));
        stage.UseSystem(EUnitSystem(random.bounded(3)));
        stage.edit->RefreshProperties(&item);
        stage.edit->Open();
        for (int step = 0; step < 8; ++step)
        {
            if (random.bounded(2) == 0)
                stage.edit->OnUp();
            else
                stage.edit->OnDown();
        }
        stage.edit->OnDone();
        double const low = std::isnan(item.minimum) ? -Infinity : item.minimum;
        double const high = std::isnan(item.maximum) ? Infinity : item.maximum;
        double const value = stage.values.constLast();
        QVERIFY2(std::isfinite(value) || std::isinf(low) || std::isinf(high),
                 qPrintable(QStringLiteral("round %1: %2").arg(round).arg(value)));
        QVERIFY2(
            low == high || (value >= std::min(low, high) && value <= std::max(low, high)),
            qPrintable(
                QStringLiteral("round %1: %2 out of %3 to %4").arg(round).arg(value).arg(low).arg(high)));
    }
}

COMMONUI_TEST(TEditWidgetStepsTest)

#include "TEditWidgetStepsTest.moc"
