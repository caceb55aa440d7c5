#include "KeySteps.h"
#include "Metrics.h"
#include "TestCase.h"
#include "TListPicker.h"
#include "TNumberPadPlayer.h"
#include "TUnitAbbreviations.h"
#include "TUnits.h"
#include "TUnitSettings.h"
#include "TUnitsNumberPadStage.h"

#include <QPointer>

#include <cmath>
#include <functional>

namespace
{
using TStage = TUnitsNumberPadStage;

constexpr double KilometresPerMile = 1.609344;

TUnitsSelector Selector(QVector<TUnitsSelectorProps> const& units)
{
    TUnitsSelector selector;
    selector.units = units;
    return selector;
}

TUnitsSelector KilometresAndMiles()
{
    return Selector({{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 2}});
}

void UseSystem(TStage& stage, EUnitSystem system)
{
    stage.screen.m_Config.Write(CONFIG_UNIT_SYSTEM, int(system), false);
}

// What the model stores for a speed that the operator reads in kilometres per hour.
double Stored(double kilometresPerHour)
{
    return TUnits::ConvertUnit(kilometresPerHour, UNIT_KILOMETRES_PER_HOUR, UNIT_TYPE_SPEED, 1.0);
}

/// Changes what belongs to units, too.
class TUnitsNumberPadPlayer : public TNumberPadPlayer
{
public:
    TUnitsNumberPadPlayer(TStage& stage, double low, double high, quint32 seed)
        : TNumberPadPlayer(stage, low, high, seed)
        , m_Stage(stage)
    {
    }

protected:
    void DoSomethingElse() override
    {
        static constexpr int places[] = {-1, 0, 1, 2, 8, 100};
        switch (Random(5))
        {
        case 0:
            m_Stage.Pad()->SetNumberOfDecimalPlaces(places[Random(int(std::size(places)))]);
            break;
        case 1:
            m_Stage.screen.m_Config.Write(CONFIG_UNIT_SYSTEM, Random(3), false);
            break;
        case 2:
            m_Stage.Pad()->SetUnitSelector(Random(2) == 0 ? TUnitsSelector() : KilometresAndMiles());
            break;
        case 3:
            m_Stage.Pad()->OnUnitsButtonClicked();
            break;
        default:
            TNumberPadPlayer::DoSomethingElse();
            break;
        }
    }

private:
    TStage& m_Stage;
};

/// A pad for a speed in the operator's units.
class TSpeedStage : public TStage
{
public:
    TSpeedStage()
    {
        Pad()->SetUnitType(UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL);
        Pad()->SetNumberOfDecimalPlaces(1);
    }
};
} // namespace

class TUnitsNumberPadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aValueIsShownInTheUnitOfTheOperator();
    void anEntryComesBackInTheDefaultUnit();
    void anEntryInMilesComesBackInTheDefaultUnit();
    void theBoundsAreThoseOfThePadsUnit();
    void aValueThatWasNotChangedComesBackToTheLastBit();
    void aNegativeZeroIsZero();
    void aBoundIsKeptThroughTheConversion();
    void theDensityLeadsFromVolumeToMass();
    void aSuffixEndsTheUnit();
    void aUnitTypeOf0Or161LeavesThePreviousTypeInForce();
    void theFirstAndTheLastUnitTypeAreTaken();
    void aSuffixEndsTheContextToo();
    void nothingIsComputedWhileHidden();
    void whileHiddenTheValueIsTheOneThatWasSet();
    void aShowingTellsTheValueAndThenTheUnit();
    void anotherUnitShowsTheValueAnew();
    void theEmptyValueIsInTheDefaultUnit();
    void followsTheUnitSystemWhileItIsShown();

    void decimalPlaces_data();
    void decimalPlaces();
    void withWantedDecimalPlaces9ThePadAllows8();
    void typingOnADynamicPadChangesTheCountOfDigitsAsTheNumberGrows();
    void dynamicPlacesAreForNumbersAlone();
    void onADynamicPadADigitFollowsTheSign();
    void aSelectorsEntryMayBeDynamicOrDefault();
    void rateWithManyDigitsHasNoPoint_data();
    void rateWithManyDigitsHasNoPoint();
    void theRateThatIsShownIsReplacedByAPoint();
    void thePointFollowsTheRulesOfAllPads();

    void aSelectorWithOneEntryShowsNoButton();
    void aSelectorShowsItsButtonOnTheParent();
    void aSelectorStartsWithTheUnitOfTheOperator();
    void aSelectorWithoutTheUnitOfTheOperatorStartsWithItsFirst();
    void theButtonHasItsFixedWidthOnRequest();
    void anInvalidSelectorHidesTheButton();
    void theSelectedUnitCounts();
    void theDensityCountsWithASelectorToo();
    void noOtherUnitThanTheOneShownIsTaken();
    void whoeverHearsOfTheTextMayAskForTheValue();
    void theDecimalsOfTheEntryGoFirst();
    void switchingTheUnitReplacesATypedTextByTheStoredValue();
    void unitsThatDoNotExistAreNotSelected();
    void aShorterSelectorStartsAnew();
    void aSelectorOfAHiddenPadWithoutAParent();

    void theUnitsButtonOpensTheListOfUnits();
    void aTouchedUnitIsTakenAtOnce();
    void theWheelTakesAUnitByTheTick();
    void aCancelledListKeepsTheUnit();
    void theListOfUnitsGoesWithThePad();
    void timesAndAddressesPassThrough();
    void oddValues_data();
    void oddValues();
    void noKeysBringItOutOfOrder();
    void diesInTheSlotThatHearsItsText();
    void diesInTheSlotsOfItsSignals();
    void theButtonDiesWithThePadOrTheParent();
};

void TUnitsNumberPadTest::aValueIsShownInTheUnitOfTheOperator()
{
    TSpeedStage stage;
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 1);
    UseSystem(stage, UNIT_SYSTEM_US);
    stage.Show(Stored(KilometresPerMile * 10));
    QCOMPARE(stage.Shown(), QStringLiteral("10.0\u00A0mph"));
}

void TUnitsNumberPadTest::anEntryComesBackInTheDefaultUnit()
{
    TSpeedStage stage;
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Enter(QStringLiteral("7.5")), QString());
    QCOMPARE(stage.values.size(), 1);
    QCOMPARE(stage.values.first(), Stored(7.5));
}

void TUnitsNumberPadTest::anEntryInMilesComesBackInTheDefaultUnit()
{
    TSpeedStage stage;
    UseSystem(stage, UNIT_SYSTEM_US);
    stage.Show(Stored(1));
    QCOMPARE(stage.Enter(QStringLiteral("10")), QString());
    QCOMPARE(stage.values.size(), 1);
    QCOMPARE(stage.values.first(), Stored(10 * KilometresPerMile));
    QCOMPARE(stage.pad->GetValueDbl(), stage.values.first());
}

void TUnitsNumberPadTest::theBoundsAreThoseOfThePadsUnit()
{
    TSpeedStage stage;
    UseSystem(stage, UNIT_SYSTEM_US);
    stage.pad->SetBounds(Stored(KilometresPerMile), Stored(KilometresPerMile * 20));
    QVERIFY(std::fabs(stage.pad->GetMinimum() - 1) < 1e-12);
    QVERIFY(std::fabs(stage.pad->GetMaximum() - 20) < 1e-12);
    stage.Show(Stored(KilometresPerMile * 5));
    QCOMPARE(stage.Enter(QStringLiteral("25")),
             QStringLiteral("Enter a value between 1.0\u00A0mph and 20.0\u00A0mph"));
    QVERIFY(stage.values.isEmpty());
}

void TUnitsNumberPadTest::aValueThatWasNotChangedComesBackToTheLastBit()
{
    TSpeedStage stage;
    UseSystem(stage, UNIT_SYSTEM_US);
    for (double const value : {0.1, 1.0 / 3.0, 2.7182818284590452, 19.999999999999996})
    {
        stage.Show(value);
        QCOMPARE(stage.Enter(QString()), QString());
        QVERIFY(stage.values.last() == value);
    }
}

void TUnitsNumberPadTest::aNegativeZeroIsZero()
{
    TSpeedStage stage;
    stage.Show(-0.0);
    QCOMPARE(stage.Shown(), QStringLiteral("0.0\u00A0km/h"));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.Enter(QStringLiteral("0-")), QString());
    QCOMPARE(stage.values, (QVector<double>{0, 0}));
    QVERIFY(!std::signbit(stage.values.first()));
    QVERIFY(!std::signbit(stage.values.last()));
}

void TUnitsNumberPadTest::aBoundIsKeptThroughTheConversion()
{
    TSpeedStage stage;
    UseSystem(stage, UNIT_SYSTEM_US);
    for (int bound = 1; bound < 40; ++bound)
    {
        double const high = Stored(bound) + 1e-9;
        stage.pad->SetBounds(0, high);
        stage.Show(0);
        // Prints like the bound, so that it is clamped to it.
        QString const typed = QString::number(stage.pad->GetMaximum(), 'f', 1);
        QCOMPARE(stage.Enter(typed), QString());
        QVERIFY(stage.values.last() <= high);
    }
}

void TUnitsNumberPadTest::theDensityLeadsFromVolumeToMass()
{
    TStage stage;
    stage.Pad()->SetUnitType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED);
    stage.Pad()->SetValueDbl(10, 0.8F);
    EUnitsType const unit = TUnits::DetermineActualUnitFromUnitsType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED);
    double const shown =
        TUnits::GetValueInCurrentUnit(10, UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, double(0.8F));
    QCOMPARE(stage.Pad()->GetValueInCurrentNumPadUnit(10), shown);
    QVERIFY(stage.Shown().endsWith(TUnitAbbreviations::UnitAbbreviations[unit]));
    QVERIFY(stage.Pad()->GetValueInCurrentNumPadUnit(10) !=
            TUnits::GetValueInCurrentUnit(10, UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, 1.0));
    // Without one it is that of water again.
    stage.Pad()->SetValueDbl(10);
    QCOMPARE(stage.Pad()->GetValueInCurrentNumPadUnit(10),
             TUnits::GetValueInCurrentUnit(10, UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, 1.0));
}

void TUnitsNumberPadTest::aSuffixEndsTheUnit()
{
    TSpeedStage stage;
    stage.pad->SetSuffix(QStringLiteral("rows"));
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Shown(), QString::number(Stored(12.5), 'f', 1) + QStringLiteral("\u00A0rows"));
    QCOMPARE(stage.Enter(QStringLiteral("7")), QString());
    QCOMPARE(stage.values, QVector<double>{7});
}

void TUnitsNumberPadTest::aUnitTypeOf0Or161LeavesThePreviousTypeInForce()
{
    TSpeedStage stage;
    for (int const type : {0, 161, -1, 100000})
    {
        stage.Pad()->SetUnitType(EUnitsType(type), UNITS_CONTEXT_WIND);
        stage.Show(Stored(12.5));
        QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
    }
    stage.Pad()->SetUnitType(EUnitsType(160), UNITS_CONTEXT_GENERAL);
    stage.Show(12.5);
    QVERIFY(stage.Shown() != QStringLiteral("12.5\u00A0km/h"));
}

void TUnitsNumberPadTest::theFirstAndTheLastUnitTypeAreTaken()
{
    TSpeedStage stage;
    for (int const type : {1, 160})
    {
        stage.Pad()->SetUnitType(EUnitsType(type), UNITS_CONTEXT_GENERAL);
        QCOMPARE(stage.Pad()->DetermineActualUnit(),
                 TUnits::DetermineActualUnitFromUnitsType(EUnitsType(type), UNITS_CONTEXT_GENERAL));
        QVERIFY(stage.Pad()->DetermineActualUnit() != UNIT_KILOMETRES_PER_HOUR);
    }
}

void TUnitsNumberPadTest::aSuffixEndsTheContextToo()
{
    TStage stage;
    stage.Pad()->SetUnitType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED);
    stage.pad->SetSuffix(QStringLiteral("rows"));
    QCOMPARE(stage.Pad()->DetermineActualUnit(), UNIT_NONE);
    QCOMPARE(stage.Pad()->GetValueInCurrentNumPadUnit(12), 12.0);
    QCOMPARE(stage.Pad()->GetValueInDefaultNumPadUnit(12), 12.0);
}

void TUnitsNumberPadTest::nothingIsComputedWhileHidden()
{
    TSpeedStage stage;
    stage.pad->HideWindow();
    stage.texts.clear();
    stage.pad->SetValueDbl(Stored(3));
    stage.Pad()->SetNumberOfDecimalPlaces(3);
    QVERIFY(stage.texts.isEmpty());
    QVERIFY(stage.pad->GetNumberOfDecimalPlaces() != 3);
    stage.pad->ShowWindow(false);
    QCOMPARE(stage.Shown(), QStringLiteral("3.000\u00A0km/h"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 3);
}

void TUnitsNumberPadTest::whileHiddenTheValueIsTheOneThatWasSet()
{
    TSpeedStage stage;
    stage.Show(Stored(3));
    stage.Type(QStringLiteral("4"));
    stage.pad->HideWindow();
    QCOMPARE(stage.pad->GetValueDbl(), Stored(4));
    stage.pad->SetValueDbl(Stored(5));
    QCOMPARE(stage.pad->GetValueDbl(), Stored(5));
    stage.pad->ShowWindow(false);
    QCOMPARE(stage.pad->GetValueDbl(), Stored(5));
}

void TUnitsNumberPadTest::aShowingTellsTheValueAndThenTheUnit()
{
    TSpeedStage stage;
    stage.Show(Stored(3));
    stage.pad->HideWindow();
    stage.pad->SetSuffix(QStringLiteral("rows"));
    stage.Pad()->SetNumberOfDecimalPlaces(2);
    stage.pad->SetValueDbl(7);
    stage.texts.clear();
    stage.pad->ShowWindow(false);
    // The value still has the decimals and the unit of before.
    QCOMPARE(stage.texts, (QStringList{QStringLiteral("7.0\u00A0km/h"), QStringLiteral("7.00\u00A0rows")}));
    // The base is shown after that.
    stage.Type(QStringLiteral("8"));
    QCOMPARE(stage.Shown(), QStringLiteral("8\u00A0rows"));
}

void TUnitsNumberPadTest::anotherUnitShowsTheValueAnew()
{
    TSpeedStage stage;
    stage.Show(Stored(12.5));
    stage.Type(QStringLiteral("7"));
    stage.Pad()->SetUnitType(UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL);
    QCOMPARE(stage.Shown(), QStringLiteral("7\u00A0km/h"));
    stage.Pad()->SetUnitType(UNIT_METRES_PER_SECOND, UNITS_CONTEXT_GENERAL);
    QCOMPARE(stage.Shown(), QStringLiteral("3.5\u00A0m/s"));
    stage.pad->SetSuffix(QStringLiteral("rows"));
    QCOMPARE(stage.Shown(), QStringLiteral("3.5\u00A0rows"));
    stage.pad->SetSuffix(QStringLiteral("seeds"));
    QCOMPARE(stage.Shown(), QStringLiteral("3.5\u00A0seeds"));
}

void TUnitsNumberPadTest::theEmptyValueIsInTheDefaultUnit()
{
    TSpeedStage stage;
    stage.pad->SetBounds(-1, 10);
    stage.Pad()->AllowEmpty(true, -1);
    stage.Show(-1);
    QCOMPARE(stage.Shown(), QStringLiteral("\u00A0km/h"));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{-1});
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Enter(QStringLiteral("<<<<")), QString());
    QCOMPARE(stage.values, (QVector<double>{-1, -1}));
    // In any unit of the pad.
    UseSystem(stage, UNIT_SYSTEM_US);
    stage.Show(-1);
    QCOMPARE(stage.Shown(), QStringLiteral("\u00A0mph"));
    stage.Pad()->AllowEmpty(false, -1);
    stage.Show(-1);
    QCOMPARE(stage.Shown(), QStringLiteral("-2.2\u00A0mph"));
}

void TUnitsNumberPadTest::followsTheUnitSystemWhileItIsShown()
{
    TSpeedStage stage;
    stage.Show(Stored(KilometresPerMile * 10));
    UseSystem(stage, UNIT_SYSTEM_US);
    QCOMPARE(stage.Shown(), QStringLiteral("10.0\u00A0mph"));
}

void TUnitsNumberPadTest::decimalPlaces_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("places");
    QTest::newRow("none") << 0 << 5.0 << 0;
    QTest::newRow("two") << 2 << 5.0 << 2;
    QTest::newRow("default") << -1 << 5.0 << TUnits::GetDefaultPrecision(UNIT_KILOMETRES_PER_HOUR);
    QTest::newRow("dynamic, below 1") << 100 << 0.5 << 3;
    QTest::newRow("dynamic, below 10") << 100 << 5.0 << 2;
    QTest::newRow("dynamic, below 100") << 100 << 50.0 << 1;
    QTest::newRow("dynamic, above") << 100 << 500.0 << 0;
    QTest::newRow("negative") << -2 << 5.0 << 0;
    QTest::newRow("eight") << 8 << 5.0 << 8;
    QTest::newRow("nine") << 9 << 5.0 << 8;
    QTest::newRow("huge") << 1000000 << 5.0 << 8;
}

void TUnitsNumberPadTest::decimalPlaces()
{
    QFETCH(int, wanted);
    QFETCH(double, value);
    QFETCH(int, places);
    TSpeedStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(wanted);
    stage.Show(Stored(value));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), places);
}

void TUnitsNumberPadTest::withWantedDecimalPlaces9ThePadAllows8()
{
    TSpeedStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(9);
    stage.Show(0);
    stage.Type(QStringLiteral("0.1234567"));
    QVERIFY(stage.AllDigitsAre(true));
    stage.Type(QStringLiteral("8"));
    QVERIFY(stage.AllDigitsAre(false));
}

void TUnitsNumberPadTest::typingOnADynamicPadChangesTheCountOfDigitsAsTheNumberGrows()
{
    TSpeedStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(TUnits::DYNAMIC_PRECISION);
    stage.Show(0);
    stage.Type(QStringLiteral("0"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 3);
    stage.Type(QStringLiteral("<5"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 2);
    stage.Type(QStringLiteral(".12"));
    QVERIFY(stage.AllDigitsAre(false));
    stage.Type(QStringLiteral("<<<0"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 1);
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("0"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 0);
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    QVERIFY(stage.AllDigitsAre(true));
}

void TUnitsNumberPadTest::dynamicPlacesAreForNumbersAlone()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.Pad()->SetNumberOfDecimalPlaces(TUnits::DYNAMIC_PRECISION);
    stage.Show(500);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 0);
    stage.Type(QStringLiteral("5"));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 0);
}

void TUnitsNumberPadTest::onADynamicPadADigitFollowsTheSign()
{
    TStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(TUnits::DYNAMIC_PRECISION);
    stage.pad->SetBounds(-10, 10);
    stage.Show(1.25);
    stage.Type(QStringLiteral("-"));
    QCOMPARE(stage.Shown(), QStringLiteral("-1.25"));
    QVERIFY(stage.AllDigitsAre(true));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    QCOMPARE(stage.Enter(QStringLiteral("7")), QString());
    QCOMPARE(stage.values, QVector<double>{-7});
}

void TUnitsNumberPadTest::aSelectorsEntryMayBeDynamicOrDefault()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(
        Selector({{UNIT_KILOMETRES_PER_HOUR, 100}, {UNIT_MILES_PER_HOUR, -1}, {UNIT_KNOT, 50}}));
    stage.Show(Stored(5));
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 2);
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), TUnits::GetDefaultPrecision(UNIT_MILES_PER_HOUR));
    stage.Pad()->OnNewUnitsSelected(2);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 8);
}

void TUnitsNumberPadTest::rateWithManyDigitsHasNoPoint_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isLimited");
    QTest::newRow("82") << 82 << false;
    QTest::newRow("83") << 83 << true;
    QTest::newRow("84") << 84 << true;
    QTest::newRow("85") << 85 << false;
}

void TUnitsNumberPadTest::rateWithManyDigitsHasNoPoint()
{
    QFETCH(int, type);
    QFETCH(bool, isLimited);
    TStage stage;
    stage.Pad()->SetUnitType(EUnitsType(type), UNITS_CONTEXT_GENERAL);
    stage.Pad()->SetNumberOfDecimalPlaces(2);
    stage.Show(0);
    stage.Type(QStringLiteral("99"));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("<<100"));
    QCOMPARE(stage.Key(TStage::Separator)->isEnabled(), !isLimited);
    stage.Type(QString(20, QLatin1Char('1')));
    QCOMPARE(stage.Key(TStage::Separator)->isEnabled(), !isLimited);
}

void TUnitsNumberPadTest::theRateThatIsShownIsReplacedByAPoint()
{
    TStage stage;
    stage.Pad()->SetUnitType(UNIT_LITRES_PER_HECTARE, UNITS_CONTEXT_GENERAL);
    stage.Pad()->SetNumberOfDecimalPlaces(2);
    stage.Show(250.5);
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral(".5"));
    QVERIFY(stage.Shown().startsWith(QStringLiteral("0.5")));
    // An integer beyond every int is one above 99, too.
    stage.Show(5);
    stage.Type(QStringLiteral("99999999999999999999"));
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
}

void TUnitsNumberPadTest::thePointFollowsTheRulesOfAllPads()
{
    TSpeedStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(0);
    stage.Show(0);
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    stage.Pad()->SetNumberOfDecimalPlaces(1);
    stage.Show(0.5);
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("1."));
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
}

void TUnitsNumberPadTest::aSelectorWithOneEntryShowsNoButton()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(Selector({{UNIT_MILES_PER_HOUR, 3}}));
    stage.Show(Stored(12.5));
    QVERIFY(!stage.Pad()->GetUnitsButton());
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
    stage.Pad()->OnNewUnitsSelected(0);
    stage.Pad()->OnUnitsButtonClicked();
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
    // The first one that is valid still starts with the unit of the operator.
    stage.Pad()->SetUnitSelector(Selector({{UNIT_MILES_PER_HOUR, 3}, {UNIT_KILOMETRES_PER_HOUR, 1}}));
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("km/h"));
}

void TUnitsNumberPadTest::aSelectorShowsItsButtonOnTheParent()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    TPushButton const* const button = stage.Pad()->GetUnitsButton();
    QVERIFY(button);
    QCOMPARE(button->parentWidget(), stage.pad->parentWidget());
    QVERIFY(button->isVisible());
    QCOMPARE(button->GetText(), QStringLiteral("km/h"));
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QCOMPARE(stage.Pad()->GetUnitsButton(), button);
}

void TUnitsNumberPadTest::aSelectorStartsWithTheUnitOfTheOperator()
{
    TSpeedStage stage;
    UseSystem(stage, UNIT_SYSTEM_US);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
    // Only the first time.
    UseSystem(stage, UNIT_SYSTEM_METRIC);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
}

void TUnitsNumberPadTest::aSelectorWithoutTheUnitOfTheOperatorStartsWithItsFirst()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(Selector({{UNIT_MILES_PER_HOUR, 1}, {UNIT_KNOT, 1}}));
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
}

void TUnitsNumberPadTest::theButtonHasItsFixedWidthOnRequest()
{
    TSpeedStage stage;
    TUnitsSelector selector = KilometresAndMiles();
    selector.buttonWidth = 123;
    stage.Pad()->SetUnitSelector(selector);
    QVERIFY(stage.Pad()->GetUnitsButton()->maximumWidth() != 123);
    int const width = stage.Pad()->GetUnitsButton()->width();
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QCOMPARE(stage.Pad()->GetUnitsButton()->width(), width);
    selector.AddFlags(UNIT_SELECTOR_FIXED_WIDTH);
    stage.Pad()->SetUnitSelector(selector);
    QCOMPARE(stage.Pad()->GetUnitsButton()->width(), 123);
    selector.buttonWidth = -5;
    stage.Pad()->SetUnitSelector(selector);
    QCOMPARE(stage.Pad()->GetUnitsButton()->width(), 0);
}

void TUnitsNumberPadTest::anInvalidSelectorHidesTheButton()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Pad()->OnNewUnitsSelected(1);
    stage.Pad()->SetUnitSelector(TUnitsSelector());
    QVERIFY(!stage.Pad()->GetUnitsButton()->isVisible());
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
    QVERIFY(!stage.Pad()->GetUnitsButton()->isVisible());
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QVERIFY(stage.Pad()->GetUnitsButton()->isVisible());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
}

void TUnitsNumberPadTest::theSelectedUnitCounts()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.pad->SetBounds(0, Stored(KilometresPerMile * 20));
    stage.Show(Stored(KilometresPerMile * 10));
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.Shown(), QStringLiteral("10.00\u00A0mph"));
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
    QVERIFY(std::fabs(stage.pad->GetMaximum() - 20) < 1e-12);
    QCOMPARE(stage.Enter(QStringLiteral("15")), QString());
    QVERIFY(std::fabs(stage.values.last() - Stored(KilometresPerMile * 15)) < 1e-12);
}

void TUnitsNumberPadTest::theDensityCountsWithASelectorToo()
{
    TStage stage;
    stage.Pad()->SetUnitType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_GENERAL);
    stage.Pad()->SetUnitSelector(Selector({{UNIT_LITRE, 3}, {UNIT_KILOGRAM, 3}}));
    EUnitsType const stored =
        TUnits::DetermineDefaultUnitFromUnitsType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_GENERAL);
    stage.Pad()->SetValueDbl(TUnits::ConvertUnit(10, UNIT_LITRE, stored, 1.0), 0.5F);
    stage.Pad()->OnNewUnitsSelected(1);
    QVERIFY(stage.Shown().startsWith(QStringLiteral("5.000")));
    QVERIFY(
        std::fabs(TUnits::ConvertUnit(stage.Pad()->GetValueInDefaultNumPadUnit(5), stored, UNIT_LITRE, 1.0) -
                  10) < 1e-9);
}

// A selector comes while a value in another unit is shown.
void TUnitsNumberPadTest::noOtherUnitThanTheOneShownIsTaken()
{
    TSpeedStage stage;
    stage.Show(Stored(KilometresPerMile * 10));
    stage.Pad()->SetUnitSelector(Selector({{UNIT_MILES_PER_HOUR, 1}, {UNIT_KNOT, 1}}));
    QCOMPARE(stage.Shown(), QStringLiteral("10.0\u00A0mph"));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{Stored(KilometresPerMile * 10)});
    stage.Pad()->SetUnitSelector(TUnitsSelector());
    QCOMPARE(stage.Shown(), QStringLiteral("16.1\u00A0km/h"));
}

// Whoever edits a value compares it with its bounds each time that the text changes.
void TUnitsNumberPadTest::whoeverHearsOfTheTextMayAskForTheValue()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(12.5));
    stage.Type(QStringLiteral("77"));
    connect(stage.pad, &TNumberPad::NewText, this, [&] { stage.pad->GetValueDbl(); });
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.Shown(), QStringLiteral("7.77\u00A0mph"));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{Stored(12.5)});
}

void TUnitsNumberPadTest::theDecimalsOfTheEntryGoFirst()
{
    TSpeedStage stage;
    stage.Pad()->SetNumberOfDecimalPlaces(5);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(0);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 1);
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 2);
}

void TUnitsNumberPadTest::switchingTheUnitReplacesATypedTextByTheStoredValue()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(KilometresPerMile * 10));
    stage.Type(QStringLiteral("77"));
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.Shown(), QStringLiteral("10.00\u00A0mph"));
    stage.Type(QStringLiteral("3"));
    QCOMPARE(stage.Shown(), QStringLiteral("3\u00A0mph"));
    // The same one again leaves what is typed.
    stage.Pad()->OnNewUnitsSelected(1);
    QCOMPARE(stage.Shown(), QStringLiteral("3\u00A0mph"));
}

void TUnitsNumberPadTest::unitsThatDoNotExistAreNotSelected()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(12.5));
    for (int const index : {-1, 2, 1000000})
        stage.Pad()->OnNewUnitsSelected(index);
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
}

void TUnitsNumberPadTest::aShorterSelectorStartsAnew()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(
        Selector({{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}, {UNIT_KNOT, 1}}));
    stage.Pad()->OnNewUnitsSelected(2);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("km/h"));
    stage.Show(Stored(12.5));
    QCOMPARE(stage.Shown(), QStringLiteral("12.5\u00A0km/h"));
}

void TUnitsNumberPadTest::aSelectorOfAHiddenPadWithoutAParent()
{
    TSpeedStage stage;
    stage.pad->HideWindow();
    QVERIFY(!stage.pad->parentWidget());
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QVERIFY(!stage.Pad()->GetUnitsButton());
    stage.Show(Stored(12.5));
    QVERIFY(stage.Pad()->GetUnitsButton());
    QCOMPARE(stage.Pad()->GetUnitsButton()->parentWidget(), stage.screen.get());
}

void TUnitsNumberPadTest::theUnitsButtonOpensTheListOfUnits()
{
    TSpeedStage stage;
    TListPicker const picker(stage.finger);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(12.5));
    stage.Pad()->GetUnitsButton()->move(600, 60);
    stage.finger.Touch(stage.Pad()->GetUnitsButton());
    QVERIFY(picker.Overlay());
    QCOMPARE(picker.Rows(), QStringList({QStringLiteral("km/h"), QStringLiteral("mph")}));
    QCOMPARE(picker.Selected(), QStringLiteral("km/h"));
    // The second time the same list is filled anew.
    QPointer<TEditWidget> const list(picker.Overlay());
    stage.Pad()->OnNewUnitsSelected(1);
    QVERIFY(!picker.Overlay());
    stage.Pad()->SetUnitSelector(Selector({{UNIT_KNOT, 1}, {UNIT_MILES_PER_HOUR, 1}}));
    stage.finger.Touch(stage.Pad()->GetUnitsButton());
    QCOMPARE(picker.Overlay(), list.data());
    QCOMPARE(picker.Selected(), QStringLiteral("mph"));
}

void TUnitsNumberPadTest::aTouchedUnitIsTakenAtOnce()
{
    TSpeedStage stage;
    TListPicker picker(stage.finger);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(100.0));
    stage.Pad()->GetUnitsButton()->move(600, 60);
    stage.finger.Touch(stage.Pad()->GetUnitsButton());
    picker.TouchRow(1);
    QVERIFY(!picker.Overlay());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
    QCOMPARE(stage.Shown(), QStringLiteral("62.14\u00A0mph"));
}

void TUnitsNumberPadTest::theWheelTakesAUnitByTheTick()
{
    TSpeedStage stage;
    TListPicker picker(stage.finger);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(100.0));
    stage.Pad()->OnUnitsButtonClicked();
    picker.Overlay()->OnMMIWheelRight();
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("km/h"));
    picker.Accept();
    QVERIFY(!picker.Overlay());
    QCOMPARE(stage.Pad()->GetUnitsButton()->GetText(), QStringLiteral("mph"));
}

void TUnitsNumberPadTest::aCancelledListKeepsTheUnit()
{
    TSpeedStage stage;
    TListPicker picker(stage.finger);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(100.0));
    stage.Pad()->OnUnitsButtonClicked();
    picker.Overlay()->OnMMIWheelRight();
    picker.GiveUp();
    QVERIFY(!picker.Overlay());
    QCOMPARE(stage.Shown(), QStringLiteral("100.0\u00A0km/h"));
}

void TUnitsNumberPadTest::theListOfUnitsGoesWithThePad()
{
    TSpeedStage stage;
    TListPicker const picker(stage.finger);
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    stage.Show(Stored(100.0));
    stage.Pad()->OnUnitsButtonClicked();
    delete stage.pad.data();
    QVERIFY(!picker.Overlay());
    QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
}

void TUnitsNumberPadTest::timesAndAddressesPassThrough()
{
    TStage time(NUMBER_PAD_TIME);
    time.Show(7.5);
    QCOMPARE(time.Shown(), QStringLiteral("7:30"));
    QCOMPARE(time.Enter(QStringLiteral("8.30")), QString());
    QCOMPARE(time.values, QVector<double>{8.5});
    TStage address(NUMBER_PAD_IP_ADDRESS);
    address.pad->SetIPAddress(QStringLiteral("10.0.0.1"));
    address.Show(5);
    QCOMPARE(address.Shown(), QStringLiteral("10.0.0.1"));
    QCOMPARE(address.Enter(QString()), QString());
    QCOMPARE(address.addresses, QStringList{QStringLiteral("10.0.0.1")});
}

void TUnitsNumberPadTest::oddValues_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("not a number") << qQNaN();
    QTest::newRow("infinity") << qInf();
    QTest::newRow("1e300") << 1e300;
    QTest::newRow("-1e300") << -1e300;
    QTest::newRow("negative zero") << -0.0;
}

void TUnitsNumberPadTest::oddValues()
{
    QFETCH(double, value);
    for (float const density : {0.0F, -1.0F, 1.0F, float(qQNaN()), float(qInf())})
    {
        TTestUserLog const log;
        TStage stage;
        stage.Pad()->SetUnitType(UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED);
        stage.Pad()->SetNumberOfDecimalPlaces(TUnits::DYNAMIC_PRECISION);
        stage.Pad()->SetUnitSelector(Selector({{UNIT_LITRE, 100}, {UNIT_KILOGRAM, -1}, {UNIT_NONE, 50}}));
        stage.pad->SetBounds(-5, 5);
        stage.Pad()->SetValueDbl(value, density);
        for (int unit = 0; unit < 3; ++unit)
        {
            stage.Pad()->OnNewUnitsSelected(unit);
            stage.Enter(QString());
            stage.Enter(QStringLiteral("-"));
            stage.Enter(QStringLiteral("1"));
        }
        for (double const emitted : qAsConst(stage.values))
            QVERIFY(emitted >= -5.0001 && emitted <= 5.0001);
    }
}

void TUnitsNumberPadTest::noKeysBringItOutOfOrder()
{
    TSpeedStage stage;
    TUnitsNumberPadPlayer player(stage, -250, 1234.5, 20250624);
    int const steps = KeySteps::Wanted();
    QString const fault = player.Play(steps);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    if (steps >= KeySteps::Usual)
        QVERIFY(player.Accepted() > 0 && player.Refused() > 0);
}

void TUnitsNumberPadTest::diesInTheSlotThatHearsItsText()
{
    for (int nth = 1; nth < 4; ++nth)
    {
        TSpeedStage stage;
        stage.pad->HideWindow();
        int heard = 0;
        connect(stage.pad, &TNumberPad::NewText, this,
                [&]
                {
                    if (++heard == nth)
                        stage.pad->deleteLater();
                });
        stage.pad->ShowWindow(false);
        stage.Pad()->OnNewUnitsSelected(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(stage.pad.isNull(), heard >= nth);
    }
}

void TUnitsNumberPadTest::diesInTheSlotsOfItsSignals()
{
    QVector<std::function<void(TStage&)>> const deeds = {
        [](TStage& stage) { stage.Pad()->OnNewUnitsSelected(1); },
        [](TStage& stage) { stage.Pad()->SetUnitSelector(TUnitsSelector()); },
        [](TStage& stage) { stage.pad->SetSuffix(QStringLiteral("rows")); },
        [](TStage& stage) { stage.Pad()->SetUnitType(UNIT_KNOT, UNITS_CONTEXT_GENERAL); },
        [](TStage& stage) { stage.pad->SetValueDbl(5); },
        [](TStage& stage) { UseSystem(stage, UNIT_SYSTEM_IMPERIAL); },
        [](TStage& stage) { stage.UseLocale(QStringLiteral("de_DE")); },
        [](TStage& stage) { stage.Type(QStringLiteral("5")); },
        [](TStage& stage) { stage.finger.Touch(stage.Key(TStage::Tick)); },
    };
    for (auto const& deed : deeds)
    {
        for (int nth = 1; nth < 3; ++nth)
        {
            TSpeedStage stage;
            stage.Pad()->SetUnitSelector(Selector({{UNIT_MILES_PER_HOUR, 1}, {UNIT_KNOT, 1}}));
            stage.Show(Stored(3));
            int heard = 0;
            auto const die = [&]
            {
                if (++heard == nth)
                    delete stage.pad.data();
            };
            connect(stage.pad, &TNumberPad::NewText, this, die);
            connect(stage.pad, &TNumberPad::NewValueDbl, this, die);
            deed(stage);
            QCOMPARE(stage.pad.isNull(), heard >= nth);
            QVERIFY(heard > 0);
        }
    }
}

void TUnitsNumberPadTest::theButtonDiesWithThePadOrTheParent()
{
    TSpeedStage stage;
    stage.Pad()->SetUnitSelector(KilometresAndMiles());
    QPointer<TPushButton> const button = stage.Pad()->GetUnitsButton();
    delete stage.pad.data();
    QVERIFY(!button);

    auto* const owner = new QWidget(stage.screen.get());
    owner->show();
    auto* const pad = new TUnitsNumberPad(owner, NUMBER_PAD_DECIMAL);
    pad->SetUnitSelector(KilometresAndMiles());
    QPointer<TPushButton> const another = pad->GetUnitsButton();
    QVERIFY(another);
    delete another.data();
    QVERIFY(!pad->GetUnitsButton());
    pad->ShowWindow(false);
    QVERIFY(pad->GetUnitsButton());
    delete owner;
}

COMMONUI_TEST(TUnitsNumberPadTest)
#include "TUnitsNumberPadTest.moc"
