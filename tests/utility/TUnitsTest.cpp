#include "TUnits.h"
#include "TAllocationCount.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TUnitAbbreviations.h"
#include "TUnitSettings.h"
#include "UnitSpellings.h"

#include <QRegularExpression>
#include <QSet>
#include <QThread>

#include <cmath>
#include <limits>
#include <udunits2.h>

namespace
{
constexpr double DENSITY = 1.28;
constexpr double TOLERANCE = 1e-12;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();

constexpr double VALUES[] = {1.0, 0.1, -3.7, 1234.5678, 98765432.1, 1e-9, -1e12, 1e290, -1e-290};

constexpr EUnitsContext CONTEXTS[] = {UNITS_CONTEXT_GENERAL,  UNITS_CONTEXT_FIELD,    UNITS_CONTEXT_IMPLEMENT,
                                      UNITS_CONTEXT_GUIDANCE, UNITS_CONTEXT_PLANTING, UNITS_CONTEXT_ROAD,
                                      UNITS_CONTEXT_WIND,     UNITS_CONTEXT_CHEMICAL, UNITS_CONTEXT_NOZZLE,
                                      UNITS_CONTEXT_SLURRY,   UNITS_CONTEXT_FUEL,     UNITS_CONTEXT_GRAIN,
                                      UNITS_CONTEXT_WEIGHED};

constexpr EUnitSystem SYSTEMS[] = {UNIT_SYSTEM_METRIC, UNIT_SYSTEM_IMPERIAL, UNIT_SYSTEM_US};

// What turns each quantity on the left into that on the right.
constexpr EUnitsType BRIDGES[][2] = {{UNIT_TYPE_VOLUME, UNIT_TYPE_MASS},
                                     {UNIT_TYPE_VOLUME_RATE, UNIT_TYPE_MASS_RATE},
                                     {UNIT_TYPE_VOLUME_FLOW, UNIT_TYPE_MASS_FLOW}};

// Zero points of temperatures differ by up to 460 degrees: the digits of a double below those of that are
// gone.
double Lost(EUnitsType type)
{
    return type == UNIT_TYPE_TEMPERATURE ? 4.0 * 460.0 * std::numeric_limits<double>::epsilon() : 0.0;
}

bool IsSame(double value, double expected, double lost)
{
    return std::fabs(value - expected) <= TOLERANCE * std::fabs(expected) + lost;
}

TUnitGroup const& GroupOf(EUnitsType type)
{
    for (TUnitGroup const& group : UnitGroups())
    {
        if (group.type == type)
            return group;
    }
    qFatal("no such group");
}

TUnitChoices Choices(EUnitSystem system)
{
    return TUnitChoices::FromNumbers(QLatin1Char('.'), system, 0, true);
}

// The authority: UDUNITS-2, asked directly.
class TAuthority
{
public:
    TAuthority()
    {
        ut_set_error_message_handler(ut_ignore);
        m_System = ut_read_xml(nullptr);
        m_Seed = ut_new_base_unit(m_System);
        ut_map_name_to_unit("seed", UT_ASCII, m_Seed);
    }
    ~TAuthority()
    {
        ut_free(m_Seed);
        ut_free_system(m_System);
        ut_set_error_message_handler(ut_write_to_stderr);
    }
    TAuthority(TAuthority const&) = delete;
    TAuthority& operator=(TAuthority const&) = delete;

    double Convert(double value, char const* from, char const* to) const
    {
        ut_unit* const source = ut_parse(m_System, from, UT_ASCII);
        ut_unit* const target = ut_parse(m_System, to, UT_ASCII);
        cv_converter* const converter = source && target ? ut_get_converter(source, target) : nullptr;
        double const converted = converter != nullptr ? cv_convert_double(converter, value) : NOT_A_NUMBER;
        cv_free(converter);
        ut_free(source);
        ut_free(target);
        return converted;
    }

private:
    ut_system* m_System;
    ut_unit* m_Seed;
};
} // namespace

class TUnitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TUnitSettings::Instance()->SetChoices(Choices(UNIT_SYSTEM_METRIC)); }
    void cleanup() { init(); }

    void everyNumberFrom1To160IsATypeOrBelongsToOne();
    void ratesWhoseDecimalsEndAtAHundredHaveTheirNumbers();
    void everyUnitConvertsAsUdunitsDoes();
    void everyPairComesBack();
    void densityAndZeroPointCountInTheOperatorsUnit_data();
    void densityAndZeroPointCountInTheOperatorsUnit();
    void everySystemAndContextComesBack();
    void displayUnitIsOneOfTheQuantityOrItsWeight();
    void factorsAreTheKnownOnes_data();
    void factorsAreTheKnownOnes();
    void systemAndContextChooseTheUnit_data();
    void systemAndContextChooseTheUnit();
    void unknownContextIsTheGeneralOne();
    void concreteUnitIsItsOwnInEverySystem();
    void typeStandsForItsDefaultUnit();
    void densityLeadsFromVolumeToMass_data();
    void densityLeadsFromVolumeToMass();
    void densityDoesNotCountWithinAQuantity();
    void uselessDensityIsThatOfWater_data();
    void uselessDensityIsThatOfWater();
    void densitiesOfAllMatterAreTaken();
    void unconvertibleUnitsLeaveTheValueAndOneLine();
    void everyPairOfOneQuantityCanConvert();
    void unitsOfDifferentQuantitiesCannotConvert();
    void sameDimensionIsNotTheSameQuantity();
    void unknownUnitLeavesTheValueInSilence_data();
    void unknownUnitLeavesTheValueInSilence();
    void oddValuesStayWhatTheyAre();
    void largeValuesDoNotOverflowOnTheirWay();
    void conversionAsksForNoMemory();
    void threadsConvertWhileTheOperatorChooses();
};

void TUnitsTest::everyNumberFrom1To160IsATypeOrBelongsToOne()
{
    QSet<int> numbers;
    for (TUnitGroup const& group : UnitGroups())
    {
        numbers += group.type;
        for (TUnitSpelling const& unit : group.units)
        {
            QVERIFY2(unit.unit == group.type || !numbers.contains(unit.unit), unit.spelling);
            numbers += unit.unit;
        }
    }
    QCOMPARE(numbers.size(), 160);
    for (int number = 1; number <= 160; ++number)
        QVERIFY2(numbers.contains(number), qPrintable(QString::number(number)));
}

void TUnitsTest::ratesWhoseDecimalsEndAtAHundredHaveTheirNumbers()
{
    QCOMPARE(int(UNIT_TYPE_VOLUME_RATE), 83);
    QCOMPARE(int(UNIT_LITRES_PER_HECTARE), 84);
}

void TUnitsTest::everyUnitConvertsAsUdunitsDoes()
{
    TAuthority const udunits;
    for (TUnitGroup const& group : UnitGroups())
    {
        for (TUnitSpelling const& from : group.units)
        {
            for (TUnitSpelling const& to : group.units)
            {
                for (double const value : VALUES)
                {
                    double const expected = udunits.Convert(value, from.spelling, to.spelling);
                    double const converted = TUnits::ConvertUnit(value, from.unit, to.unit, DENSITY);
                    QVERIFY2(IsSame(converted, expected, Lost(group.type)),
                             qPrintable(QStringLiteral("%1 %2 is %3 %4, not %5")
                                            .arg(value)
                                            .arg(from.spelling)
                                            .arg(expected, 0, 'g', 17)
                                            .arg(to.spelling)
                                            .arg(converted, 0, 'g', 17)));
                }
            }
        }
    }
}

void TUnitsTest::everyPairComesBack()
{
    auto const comeBack = [](TUnitGroup const& some, TUnitGroup const& others)
    {
        for (TUnitSpelling const& from : some.units)
        {
            for (TUnitSpelling const& to : others.units)
            {
                for (double const value : VALUES)
                {
                    double const there = TUnits::ConvertUnit(value, from.unit, to.unit, DENSITY);
                    double const back = TUnits::ConvertUnit(there, to.unit, from.unit, DENSITY);
                    QVERIFY2(IsSame(back, value, Lost(some.type)), to.spelling);
                }
            }
        }
    };
    for (TUnitGroup const& group : UnitGroups())
        comeBack(group, group);
    for (auto const& bridge : BRIDGES)
    {
        comeBack(GroupOf(bridge[0]), GroupOf(bridge[1]));
        comeBack(GroupOf(bridge[1]), GroupOf(bridge[0]));
    }
}

void TUnitsTest::densityAndZeroPointCountInTheOperatorsUnit_data()
{
    QTest::addColumn<int>("system");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("context");
    QTest::addColumn<double>("stored");
    QTest::addColumn<double>("shown");
    auto const row = [](char const* tag, EUnitSystem system, EUnitsType type, EUnitsContext context,
                        double stored, double shown)
    { QTest::newRow(tag) << int(system) << int(type) << int(context) << stored << shown; };
    row("weighed", UNIT_SYSTEM_METRIC, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_WEIGHED, 100.0, 61.8);
    row("weighed flow", UNIT_SYSTEM_METRIC, UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_WEIGHED, 50.0, 30.9);
    row("weighed in pounds", UNIT_SYSTEM_US, UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, 100.0,
        61.8 / 0.45359237);
    row("grain in bushels", UNIT_SYSTEM_US, UNIT_TYPE_MASS, UNITS_CONTEXT_GRAIN, 61.8, 100.0 / 35.23907);
    row("temperature", UNIT_SYSTEM_US, UNIT_TYPE_TEMPERATURE, UNITS_CONTEXT_GENERAL, 21.0, 69.8);
    row("frost", UNIT_SYSTEM_US, UNIT_TYPE_TEMPERATURE, UNITS_CONTEXT_GENERAL, -10.0, 14.0);
    row("no density", UNIT_SYSTEM_METRIC, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL, 100.0, 100.0);
}

void TUnitsTest::densityAndZeroPointCountInTheOperatorsUnit()
{
    constexpr double AMMONIA = 0.618;
    QFETCH(int, system);
    QFETCH(int, type);
    QFETCH(int, context);
    QFETCH(double, stored);
    QFETCH(double, shown);
    TUnitSettings::Instance()->SetChoices(Choices(EUnitSystem(system)));
    auto const unit = EUnitsType(type);
    auto const where = EUnitsContext(context);
    QVERIFY(IsSame(TUnits::GetValueInCurrentUnit(stored, unit, where, AMMONIA), shown, Lost(unit)));
    QVERIFY(IsSame(TUnits::GetValueInDefaultUnit(shown, unit, where, AMMONIA), stored, Lost(unit)));
}

void TUnitsTest::everySystemAndContextComesBack()
{
    for (EUnitSystem const system : SYSTEMS)
    {
        TUnitSettings::Instance()->SetChoices(Choices(system));
        for (int type = 0; type <= 160; ++type)
        {
            auto const unit = static_cast<EUnitsType>(type);
            for (EUnitsContext const context : CONTEXTS)
            {
                for (double const value : VALUES)
                {
                    double const shown = TUnits::GetValueInCurrentUnit(value, unit, context, DENSITY);
                    double const stored = TUnits::GetValueInDefaultUnit(shown, unit, context, DENSITY);
                    QVERIFY2(IsSame(stored, value, Lost(unit)), qPrintable(QString::number(type)));
                }
            }
        }
    }
}

void TUnitsTest::displayUnitIsOneOfTheQuantityOrItsWeight()
{
    auto const has = [](EUnitsType type, EUnitsType unit)
    {
        auto const& units = GroupOf(type).units;
        return std::any_of(units.begin(), units.end(),
                           [unit](TUnitSpelling const& known) { return known.unit == unit; });
    };
    for (EUnitSystem const system : SYSTEMS)
    {
        TUnitSettings::Instance()->SetChoices(Choices(system));
        for (TUnitGroup const& group : UnitGroups())
        {
            EUnitsType const stored =
                TUnits::DetermineDefaultUnitFromUnitsType(group.type, UNITS_CONTEXT_GENERAL);
            QCOMPARE(stored, group.units.front().unit);
            for (EUnitsContext const context : CONTEXTS)
            {
                EUnitsType const shown = TUnits::DetermineActualUnitFromUnitsType(group.type, context);
                bool isBridged = false;
                for (auto const& bridge : BRIDGES)
                    isBridged |= (bridge[0] == group.type && has(bridge[1], shown)) ||
                                 (bridge[1] == group.type && has(bridge[0], shown));
                QVERIFY(has(group.type, shown) || isBridged);
                QCOMPARE(TUnits::DetermineDefaultUnitFromUnitsType(group.type, context), stored);
            }
        }
    }
}

void TUnitsTest::factorsAreTheKnownOnes_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("from");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("to");
    auto const row = [](char const* tag, double value, EUnitsType from, double expected, EUnitsType to)
    { QTest::newRow(tag) << value << int(from) << expected << int(to); };
    row("inch", 1.0, UNIT_INCH, 2.54, UNIT_CENTIMETRE);
    row("acre", 1.0, UNIT_ACRE, 0.40468, UNIT_HECTARE);
    row("gallon", 1.0, UNIT_GALLON, 3.78541, UNIT_LITRE);
    row("UK gallon", 1.0, UNIT_UK_GALLON, 4.54609, UNIT_LITRE);
    row("bushel", 1.0, UNIT_BUSHEL, 35.2391, UNIT_LITRE);
    row("pound", 1.0, UNIT_POUND, 0.453592, UNIT_KILOGRAM);
    row("ton", 1.0, UNIT_TON, 0.907185, UNIT_TONNE);
    row("UK ton", 1.0, UNIT_UK_TON, 1.01605, UNIT_TONNE);
    row("speed", 10.0, UNIT_METRES_PER_SECOND, 36.0, UNIT_KILOMETRES_PER_HOUR);
    row("spray rate", 10.0, UNIT_GALLONS_PER_ACRE, 93.5394, UNIT_LITRES_PER_HECTARE);
    row("UK spray rate", 10.0, UNIT_UK_GALLONS_PER_ACRE, 112.336, UNIT_LITRES_PER_HECTARE);
    row("fertiliser", 100.0, UNIT_POUNDS_PER_ACRE, 112.085, UNIT_KILOGRAMS_PER_HECTARE);
    row("population", 32.0, UNIT_THOUSAND_SEEDS_PER_ACRE, 79.0734, UNIT_THOUSAND_SEEDS_PER_HECTARE);
    row("pressure", 40.0, UNIT_POUNDS_PER_SQUARE_INCH, 2.7579, UNIT_BAR);
    row("boiling", 100.0, UNIT_DEGREE_CELSIUS, 212.0, UNIT_DEGREE_FAHRENHEIT);
    row("cold", -40.0, UNIT_DEGREE_FAHRENHEIT, -40.0, UNIT_DEGREE_CELSIUS);
    row("shaft", 540.0, UNIT_REVOLUTIONS_PER_MINUTE, 9.0, UNIT_REVOLUTIONS_PER_SECOND);
    row("right angle", 90.0, UNIT_DEGREE, 1.570796, UNIT_RADIAN);
    row("wheat", 60.0, UNIT_POUNDS_PER_BUSHEL, 0.772312, UNIT_KILOGRAMS_PER_LITRE);
}

void TUnitsTest::factorsAreTheKnownOnes()
{
    QFETCH(double, value);
    QFETCH(int, from);
    QFETCH(double, expected);
    QFETCH(int, to);
    double const converted = TUnits::ConvertUnit(value, EUnitsType(from), EUnitsType(to), 1.0);
    QVERIFY2(std::fabs(converted - expected) < 2e-5 * std::fabs(expected),
             qPrintable(QString::number(converted, 'g', 9)));
}

// What the operator reads of a type in a context, in each of the three systems.
static void AddRow(char const* tag, EUnitsType type, EUnitsContext context, QString const& metric,
                   QString const& imperial, QString const& us)
{
    QTest::newRow(tag) << int(type) << int(context) << metric << imperial << us;
}

static void AddPlainRows()
{
    AddRow("length", UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, "m", "ft", "ft");
    AddRow("field length", UNIT_TYPE_LENGTH, UNITS_CONTEXT_FIELD, "m", "yd", "ft");
    AddRow("implement width", UNIT_TYPE_LENGTH, UNITS_CONTEXT_IMPLEMENT, "m", "in", "in");
    AddRow("off the line", UNIT_TYPE_LENGTH, UNITS_CONTEXT_GUIDANCE, "cm", "in", "in");
    AddRow("seed depth", UNIT_TYPE_LENGTH, UNITS_CONTEXT_PLANTING, "mm", "in", "in");
    AddRow("way", UNIT_TYPE_LENGTH, UNITS_CONTEXT_ROAD, "km", "mi", "mi");
    AddRow("area", UNIT_TYPE_AREA, UNITS_CONTEXT_FIELD, "ha", "ac", "ac");
    AddRow("small area", UNIT_TYPE_AREA, UNITS_CONTEXT_IMPLEMENT, "m²", "ft²", "ft²");
    AddRow("tank", UNIT_TYPE_VOLUME, UNITS_CONTEXT_GENERAL, "L", "UK gal", "gal");
    AddRow("dose", UNIT_TYPE_VOLUME, UNITS_CONTEXT_CHEMICAL, "mL", "UK fl oz", "fl oz");
    AddRow("slurry", UNIT_TYPE_VOLUME, UNITS_CONTEXT_SLURRY, "m³", "UK gal", "gal");
    AddRow("grain tank", UNIT_TYPE_VOLUME, UNITS_CONTEXT_GRAIN, "hL", "bu", "bu");
    AddRow("weighed", UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, "kg", "lb", "lb");
    AddRow("mass", UNIT_TYPE_MASS, UNITS_CONTEXT_GENERAL, "kg", "lb", "lb");
    AddRow("dry dose", UNIT_TYPE_MASS, UNITS_CONTEXT_CHEMICAL, "g", "oz", "oz");
    AddRow("grain", UNIT_TYPE_MASS, UNITS_CONTEXT_GRAIN, "t", "UK ton", "bu");
    AddRow("count", UNIT_TYPE_COUNT, UNITS_CONTEXT_GENERAL, "", "", "");
    AddRow("seeds", UNIT_TYPE_COUNT, UNITS_CONTEXT_PLANTING, "kseeds", "kseeds", "kseeds");
    AddRow("speed", UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, "km/h", "mph", "mph");
    AddRow("belt", UNIT_TYPE_SPEED, UNITS_CONTEXT_IMPLEMENT, "m/min", "ft/min", "ft/min");
    AddRow("wind", UNIT_TYPE_SPEED, UNITS_CONTEXT_WIND, "m/s", "mph", "mph");
    AddRow("acceleration", UNIT_TYPE_ACCELERATION, UNITS_CONTEXT_GENERAL, "m/s²", "ft/s²", "ft/s²");
    AddRow("duration", UNIT_TYPE_DURATION, UNITS_CONTEXT_GENERAL, "s", "s", "s");
    AddRow("work", UNIT_TYPE_DURATION, UNITS_CONTEXT_FIELD, "h", "h", "h");
    AddRow("drive", UNIT_TYPE_DURATION, UNITS_CONTEXT_ROAD, "min", "min", "min");
    AddRow("time of day", UNIT_TIME_OF_DAY, UNITS_CONTEXT_GENERAL, "", "", "");
    AddRow("angle", UNIT_TYPE_ANGLE, UNITS_CONTEXT_GENERAL, "°", "°", "°");
    AddRow("turn rate", UNIT_TYPE_TURN_RATE, UNITS_CONTEXT_GENERAL, "°/s", "°/s", "°/s");
    AddRow("shaft", UNIT_TYPE_ROTATION, UNITS_CONTEXT_GENERAL, "rpm", "rpm", "rpm");
    AddRow("volt", UNIT_VOLT, UNITS_CONTEXT_GENERAL, "V", "V", "V");
}

static void AddRateRows()
{
    AddRow("spray rate", UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL, "L/ha", "UK gal/ac", "gal/ac");
    AddRow("small rate", UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_CHEMICAL, "mL/ha", "UK fl oz/ac", "fl oz/ac");
    AddRow("slurry rate", UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_SLURRY, "m³/ha", "UK gal/ac", "gal/ac");
    AddRow("weighed rate", UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_WEIGHED, "kg/ha", "lb/ac", "lb/ac");
    AddRow("dry rate", UNIT_TYPE_MASS_RATE, UNITS_CONTEXT_GENERAL, "kg/ha", "lb/ac", "lb/ac");
    AddRow("small dry rate", UNIT_TYPE_MASS_RATE, UNITS_CONTEXT_CHEMICAL, "g/ha", "oz/ac", "oz/ac");
    AddRow("yield", UNIT_TYPE_MASS_RATE, UNITS_CONTEXT_GRAIN, "t/ha", "UK ton/ac", "bu/ac");
    AddRow("drilled", UNIT_TYPE_SEED_RATE, UNITS_CONTEXT_GENERAL, "seeds/m²", "seeds/ft²", "seeds/ft²");
    AddRow("planted", UNIT_TYPE_SEED_RATE, UNITS_CONTEXT_PLANTING, "kseeds/ha", "kseeds/ac", "kseeds/ac");
    AddRow("row", UNIT_TYPE_SEEDS_PER_LENGTH, UNITS_CONTEXT_PLANTING, "seeds/m", "seeds/ft", "seeds/ft");
    AddRow("flow", UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_GENERAL, "L/min", "UK gal/min", "gal/min");
    AddRow("nozzle", UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_NOZZLE, "mL/min", "UK fl oz/min", "fl oz/min");
    AddRow("slurry flow", UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_SLURRY, "m³/h", "UK gal/min", "gal/min");
    AddRow("fuel", UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_FUEL, "L/h", "UK gal/h", "gal/h");
    AddRow("weighed flow", UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_WEIGHED, "kg/min", "lb/min", "lb/min");
    AddRow("mass flow", UNIT_TYPE_MASS_FLOW, UNITS_CONTEXT_GENERAL, "kg/min", "lb/min", "lb/min");
    AddRow("grain flow", UNIT_TYPE_MASS_FLOW, UNITS_CONTEXT_GRAIN, "t/h", "t/h", "ton/h");
    AddRow("work rate", UNIT_TYPE_WORK_RATE, UNITS_CONTEXT_GENERAL, "ha/h", "ac/h", "ac/h");
    AddRow("pressure", UNIT_TYPE_PRESSURE, UNITS_CONTEXT_GENERAL, "bar", "psi", "psi");
    AddRow("temperature", UNIT_TYPE_TEMPERATURE, UNITS_CONTEXT_GENERAL, "°C", "°C", "°F");
    AddRow("force", UNIT_TYPE_FORCE, UNITS_CONTEXT_GENERAL, "kN", "lbf", "lbf");
    AddRow("power", UNIT_TYPE_POWER, UNITS_CONTEXT_GENERAL, "kW", "hp", "hp");
    AddRow("percent", UNIT_PERCENT, UNITS_CONTEXT_GENERAL, "%", "%", "%");
    AddRow("density", UNIT_TYPE_DENSITY, UNITS_CONTEXT_GENERAL, "kg/L", "kg/L", "lb/gal");
    AddRow("grain density", UNIT_TYPE_DENSITY, UNITS_CONTEXT_GRAIN, "kg/L", "lb/bu", "lb/bu");
}

void TUnitsTest::systemAndContextChooseTheUnit_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("context");
    QTest::addColumn<QString>("metric");
    QTest::addColumn<QString>("imperial");
    QTest::addColumn<QString>("us");
    AddPlainRows();
    AddRateRows();
}

void TUnitsTest::systemAndContextChooseTheUnit()
{
    QFETCH(int, type);
    QFETCH(int, context);
    char const* const columns[] = {"metric", "imperial", "us"};
    for (EUnitSystem const system : SYSTEMS)
    {
        TUnitSettings::Instance()->SetChoices(Choices(system));
        EUnitsType const unit =
            TUnits::DetermineActualUnitFromUnitsType(EUnitsType(type), EUnitsContext(context));
        QTEST(QString(TUnitAbbreviations::UnitAbbreviations[unit]), columns[system]);
    }
}

void TUnitsTest::unknownContextIsTheGeneralOne()
{
    for (int const context : {-1, UNITS_CONTEXT_WEIGHED + 1, std::numeric_limits<int>::max(),
                              std::numeric_limits<int>::min(), int(UNITS_CONTEXT_FUEL)})
        QCOMPARE(TUnits::DetermineActualUnitFromUnitsType(UNIT_TYPE_LENGTH, EUnitsContext(context)),
                 UNIT_METRE);
}

void TUnitsTest::concreteUnitIsItsOwnInEverySystem()
{
    for (EUnitSystem const system : SYSTEMS)
    {
        TUnitSettings::Instance()->SetChoices(Choices(system));
        for (TUnitGroup const& group : UnitGroups())
        {
            for (TUnitSpelling const& unit : group.units)
            {
                QCOMPARE(TUnits::DetermineDefaultUnitFromUnitsType(unit.unit, UNITS_CONTEXT_FIELD),
                         unit.unit);
                QCOMPARE(TUnits::DetermineActualUnitFromUnitsType(unit.unit, UNITS_CONTEXT_FIELD), unit.unit);
            }
        }
    }
}

void TUnitsTest::typeStandsForItsDefaultUnit()
{
    QCOMPARE(TUnits::ConvertUnit(1.0, UNIT_TYPE_LENGTH, UNIT_CENTIMETRE, 1.0), 100.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_KILOMETRE, UNIT_TYPE_LENGTH, 1.0), 5000.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_TYPE_LENGTH, UNIT_TYPE_LENGTH, 1.0), 5.0);
}

void TUnitsTest::densityLeadsFromVolumeToMass_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("from");
    QTest::addColumn<double>("density");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("to");
    auto const row =
        [](char const* tag, double value, EUnitsType from, double density, double expected, EUnitsType to)
    { QTest::newRow(tag) << value << int(from) << density << expected << int(to); };
    row("water", 100.0, UNIT_LITRE, 1.0, 100.0, UNIT_KILOGRAM);
    row("fertiliser", 100.0, UNIT_LITRE, 1.28, 128.0, UNIT_KILOGRAM);
    row("back", 128.0, UNIT_KILOGRAM, 1.28, 100.0, UNIT_LITRE);
    row("other units", 2.0, UNIT_CUBIC_METRE, 0.77, 1.54, UNIT_TONNE);
    row("rate", 300.0, UNIT_LITRES_PER_HECTARE, 1.28, 384.0, UNIT_KILOGRAMS_PER_HECTARE);
    row("small rate", 300.0, UNIT_MILLILITRES_PER_HECTARE, 0.5, 150.0, UNIT_GRAMS_PER_HECTARE);
    row("rate back", 384.0, UNIT_KILOGRAMS_PER_HECTARE, 1.28, 300.0, UNIT_LITRES_PER_HECTARE);
    row("flow", 60.0, UNIT_LITRES_PER_HOUR, 0.84, 0.84, UNIT_KILOGRAMS_PER_MINUTE);
    row("flow back", 0.84, UNIT_KILOGRAMS_PER_MINUTE, 0.84, 60.0, UNIT_LITRES_PER_HOUR);
    row("types", 10.0, UNIT_TYPE_VOLUME, 0.8, 8.0, UNIT_TYPE_MASS);
}

void TUnitsTest::densityLeadsFromVolumeToMass()
{
    QFETCH(double, value);
    QFETCH(int, from);
    QFETCH(double, density);
    QFETCH(double, expected);
    QFETCH(int, to);
    double const converted = TUnits::ConvertUnit(value, EUnitsType(from), EUnitsType(to), density);
    QVERIFY(IsSame(converted, expected, 0.0));
}

void TUnitsTest::densityDoesNotCountWithinAQuantity()
{
    TTestUserLog const log;
    for (double const density : {0.0, -1.0, 7.0, NOT_A_NUMBER, ENDLESS})
        QCOMPARE(TUnits::ConvertUnit(2.0, UNIT_TONNE, UNIT_KILOGRAM, density), 2000.0);
    QCOMPARE(log.Entries(), QStringList());
}

void TUnitsTest::uselessDensityIsThatOfWater_data()
{
    QTest::addColumn<double>("density");
    QTest::addColumn<int>("from");
    QTest::newRow("zero") << 0.0 << int(UNIT_LITRE);
    QTest::newRow("negative zero") << -0.0 << int(UNIT_GALLON);
    QTest::newRow("negative") << -0.8 << int(UNIT_HECTOLITRE);
    QTest::newRow("not a number") << NOT_A_NUMBER << int(UNIT_CUBIC_METRE);
    QTest::newRow("infinite") << ENDLESS << int(UNIT_BUSHEL);
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min() << int(UNIT_MILLILITRE);
    QTest::newRow("tiny") << 1e-310 << int(UNIT_CUBIC_INCH);
    QTest::newRow("just too small") << 0.99e-6 << int(UNIT_CUBIC_FOOT);
    QTest::newRow("just too large") << 1.01e6 << int(UNIT_FLUID_OUNCE);
    QTest::newRow("huge") << 1e300 << int(UNIT_PINT);
    QTest::newRow("largest") << std::numeric_limits<double>::max() << int(UNIT_QUART);
}

void TUnitsTest::uselessDensityIsThatOfWater()
{
    QFETCH(double, density);
    QFETCH(int, from);
    auto const unit = EUnitsType(from);
    TTestUserLog const log;
    double const ofWater = TUnits::ConvertUnit(3.0, unit, UNIT_MILLIGRAM, 1.0);
    QCOMPARE(log.Entries(), QStringList());
    QCOMPARE(TUnits::ConvertUnit(0.0, unit, UNIT_MILLIGRAM, density), 0.0);
    QCOMPARE(TUnits::ConvertUnit(3.0, unit, UNIT_MILLIGRAM, density), ofWater);
    QCOMPARE(TUnits::ConvertUnit(3.0, unit, UNIT_MILLIGRAM, density), ofWater);
    QCOMPARE(log.Entries().size(), 1);
    QVERIFY2(log.Entries().constFirst().startsWith(QStringLiteral("The density ")),
             qPrintable(log.Entries().constFirst()));
    QVERIFY(log.Entries().constFirst().contains(TUnitAbbreviations::UnitAbbreviations[unit]));
    QCOMPARE(TUnits::ConvertUnit(ofWater, UNIT_MILLIGRAM, unit, density), 3.0);
}

void TUnitsTest::densitiesOfAllMatterAreTaken()
{
    TTestUserLog const log;
    for (double const density : {1e-6, 0.00009, 0.0012, 22.6, 1e6})
    {
        double const mass = TUnits::ConvertUnit(10.0, UNIT_LITRE, UNIT_KILOGRAM, density);
        QVERIFY(IsSame(mass, 10.0 * density, 0.0));
        QVERIFY(IsSame(TUnits::ConvertUnit(mass, UNIT_KILOGRAM, UNIT_LITRE, density), 10.0, 0.0));
    }
    QCOMPARE(log.Entries(), QStringList());
}

void TUnitsTest::unconvertibleUnitsLeaveTheValueAndOneLine()
{
    TTestUserLog const log;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(TUnits::ConvertUnit(12.5, UNIT_METRE, UNIT_KILOGRAM, 1.0), 12.5);
    QCOMPARE(log.Entries(),
             QStringList{"No conversion leads from unit m (4) to kg (36); values stay as they are"});
    QCOMPARE(TUnits::ConvertUnit(12.5, UNIT_KILOGRAM, UNIT_METRE, 1.0), 12.5);
    QCOMPARE(log.Entries().size(), 2);
}

void TUnitsTest::everyPairOfOneQuantityCanConvert()
{
    auto const count = [](TUnitGroup const& some, TUnitGroup const& others)
    {
        int convertible = TUnits::CanConvert(some.type, others.type) ? 1 : 0;
        for (TUnitSpelling const& from : some.units)
        {
            for (TUnitSpelling const& to : others.units)
                convertible += TUnits::CanConvert(from.unit, to.unit) ? 1 : 0;
        }
        return convertible;
    };
    TTestUserLog const log;
    for (TUnitGroup const& some : UnitGroups())
    {
        for (TUnitGroup const& others : UnitGroups())
        {
            bool isLinked = some.type == others.type;
            for (auto const& bridge : BRIDGES)
                isLinked |= (bridge[0] == some.type && bridge[1] == others.type) ||
                            (bridge[1] == some.type && bridge[0] == others.type);
            int const pairs = static_cast<int>(some.units.size() * others.units.size()) + 1;
            QCOMPARE(count(some, others), isLinked ? pairs : 0);
        }
    }
    QCOMPARE(log.Entries(), QStringList());
}

void TUnitsTest::unitsOfDifferentQuantitiesCannotConvert()
{
    TTestUserLog const log;
    QVERIFY(!TUnits::CanConvert(UNIT_METRE, UNIT_KILOGRAM));
    QVERIFY(!TUnits::CanConvert(UNIT_LITRE, UNIT_KILOGRAMS_PER_HECTARE));
    QVERIFY(!TUnits::CanConvert(UNIT_NONE, UNIT_METRE));
    QVERIFY(!TUnits::CanConvert(UNIT_METRE, UNIT_NONE));
    QVERIFY(!TUnits::CanConvert(UNIT_TYPE_LENGTH, EUnitsType(161)));
    QVERIFY(TUnits::CanConvert(UNIT_NONE, UNIT_NONE));
    QVERIFY(TUnits::CanConvert(EUnitsType(-1), EUnitsType(std::numeric_limits<int>::max())));
    QVERIFY(TUnits::CanConvert(UNIT_TYPE_LENGTH, UNIT_FOOT));
    QCOMPARE(log.Entries(), QStringList());
}

void TUnitsTest::sameDimensionIsNotTheSameQuantity()
{
    TTestUserLog const log;
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_REVOLUTIONS_PER_MINUTE, UNIT_RADIANS_PER_SECOND, 1.0), 5.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_PERCENT, UNIT_RADIAN, 1.0), 5.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_SEEDS_PER_HECTARE, UNIT_SQUARE_METRE, 1.0), 5.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_LITRE, UNIT_KILOGRAMS_PER_HECTARE, 1.0), 5.0);
    QCOMPARE(TUnits::ConvertUnit(5.0, UNIT_TIME_OF_DAY, UNIT_HOUR, 1.0), 5.0);
    QCOMPARE(log.Entries().size(), 5);
}

void TUnitsTest::unknownUnitLeavesTheValueInSilence_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("past the last") << 161;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TUnitsTest::unknownUnitLeavesTheValueInSilence()
{
    QFETCH(int, number);
    auto const unit = EUnitsType(number);
    TTestUserLog const log;
    QCOMPARE(TUnits::ConvertUnit(12.5, unit, UNIT_KILOGRAM, 1.0), 12.5);
    QCOMPARE(TUnits::ConvertUnit(12.5, UNIT_KILOGRAM, unit, 1.0), 12.5);
    QCOMPARE(TUnits::DetermineActualUnitFromUnitsType(unit, UNITS_CONTEXT_FIELD), UNIT_NONE);
    QCOMPARE(TUnits::DetermineDefaultUnitFromUnitsType(unit, UNITS_CONTEXT_FIELD), UNIT_NONE);
    QCOMPARE(TUnits::GetValueInCurrentUnit(12.5, unit, UNITS_CONTEXT_FIELD, 0.0), 12.5);
    QCOMPARE(TUnits::GetValueInDefaultUnit(12.5, unit, UNITS_CONTEXT_FIELD, 0.0), 12.5);
    QCOMPARE(TUnits::GetDefaultPrecision(unit), 0);
    QCOMPARE(log.Entries(), QStringList());
}

void TUnitsTest::oddValuesStayWhatTheyAre()
{
    for (EUnitsType const to : {UNIT_METRE, UNIT_FOOT, UNIT_TYPE_LENGTH})
    {
        QVERIFY(std::isnan(TUnits::ConvertUnit(NOT_A_NUMBER, UNIT_METRE, to, 1.0)));
        QCOMPARE(TUnits::ConvertUnit(ENDLESS, UNIT_METRE, to, 1.0), ENDLESS);
        QCOMPARE(TUnits::ConvertUnit(-ENDLESS, UNIT_METRE, to, 1.0), -ENDLESS);
        QCOMPARE(TUnits::ConvertUnit(0.0, UNIT_METRE, to, 1.0), 0.0);
    }
    QVERIFY(std::isnan(TUnits::ConvertUnit(NOT_A_NUMBER, UNIT_KELVIN, UNIT_DEGREE_CELSIUS, 1.0)));
    QVERIFY(!std::signbit(TUnits::ConvertUnit(-0.0, UNIT_METRE, UNIT_FOOT, 1.0)));
}

void TUnitsTest::largeValuesDoNotOverflowOnTheirWay()
{
    constexpr double LARGEST = std::numeric_limits<double>::max();
    QVERIFY(std::isfinite(TUnits::ConvertUnit(LARGEST, UNIT_MILE, UNIT_NAUTICAL_MILE, 1.0)));
    QVERIFY(std::isfinite(TUnits::ConvertUnit(LARGEST, UNIT_TONNE, UNIT_UK_TON, 1.0)));
    QCOMPARE(TUnits::ConvertUnit(LARGEST, UNIT_MILE, UNIT_MILLIMETRE, 1.0), ENDLESS);
}

void TUnitsTest::conversionAsksForNoMemory()
{
    TUnitSettings::Instance()->SetChoices(Choices(UNIT_SYSTEM_US));
    double sum = TUnits::GetValueInCurrentUnit(1.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_IMPLEMENT, 1.0);
    TAllocationCount const allocations;
    for (EUnitsContext const context : CONTEXTS)
    {
        double const shown = TUnits::GetValueInCurrentUnit(1.0, UNIT_TYPE_VOLUME, context, DENSITY);
        sum += TUnits::GetValueInDefaultUnit(shown, UNIT_TYPE_VOLUME, context, DENSITY);
    }
    QCOMPARE(allocations.Value(), Q_INT64_C(0));
    QVERIFY(sum > 0.0);
}

void TUnitsTest::threadsConvertWhileTheOperatorChooses()
{
    std::atomic<bool> isOver{false};
    std::atomic<int> wrong{0};
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < 3; ++i)
    {
        threads.emplace_back(QThread::create(
            [&isOver, &wrong]
            {
                while (!isOver)
                {
                    double const shown =
                        TUnits::GetValueInCurrentUnit(10.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1.0);
                    bool const isOne = IsSame(shown, 36.0, 0.0) || std::fabs(shown - 22.369363) < 1e-6;
                    wrong += isOne ? 0 : 1;
                }
            }));
        threads.back()->start();
    }
    for (int i = 0; i < 2000; ++i)
        TUnitSettings::Instance()->SetChoices(Choices(SYSTEMS[i % 3]));
    isOver = true;
    for (auto const& thread : threads)
        QVERIFY(thread->wait());
    QCOMPARE(wrong.load(), 0);
}

COMMONUI_TEST(TUnitsTest)
#include "TUnitsTest.moc"
