#include "TAllocationCount.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TUnits.h"
#include "TUnitSettings.h"
#include "UnitSpellings.h"

#include <QDate>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace
{
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();

void Choose(QChar decimalPoint, int system = UNIT_SYSTEM_METRIC, int dateFormat = 0,
            bool is24HourClock = true)
{
    TUnitSettings::Instance()->SetChoices(
        TUnitChoices::FromNumbers(decimalPoint, system, dateFormat, is24HourClock));
}

QString Bare(double value, int decimals)
{
    return TUnits::GetValueString(value, QString(), decimals, nullptr);
}

QString TimeOfDay(double hours)
{
    return TUnits::GetValueString(hours, UNIT_TIME_OF_DAY, 0, nullptr, 1.0);
}

QString DateOf(double julianDay)
{
    return TUnits::GetValueString(julianDay, QStringLiteral("DD/MM/YYYY"), 0, nullptr);
}
} // namespace

// Values as the operator reads them.
class TUnitsTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Choose('.'); }
    void cleanup() { init(); }

    void numberIsWrittenWithItsDecimals_data();
    void numberIsWrittenWithItsDecimals();
    void numberIsWrittenAsTheToolkitDoes();
    void halvesGoAwayFromZeroAsTheToolkitHasIt();
    void operatorsSeparatorIsWritten();
    void unitStandsBehindTheValue_data();
    void unitStandsBehindTheValue();
    void valueIsShownInTheOperatorsUnit_data();
    void valueIsShownInTheOperatorsUnit();
    void valueAndUnitComeApart();
    void partsAreThoseOfTheWholeText_data();
    void partsAreThoseOfTheWholeText();
    void suffixStandsBehindTheValue_data();
    void suffixStandsBehindTheValue();
    void decimalsOutsideOfTheirRangeAreTheNearest();
    void defaultPrecisionIsThatOfTheShownUnit();
    void everyUnitHasItsDefaultPrecision();
    void dynamicPrecisionFollowsTheRoundedValue_data();
    void dynamicPrecisionFollowsTheRoundedValue();
    void dynamicPrecisionChangesWhereTheRoundedTextDoes();
    void smallValuesHaveTheDecimalsOfTheThreshold();
    void decimalsOfTheThresholdGoBeforeAllOthers_data();
    void decimalsOfTheThresholdGoBeforeAllOthers();
    void dateStandsInTheOperatorsFormat_data();
    void dateStandsInTheOperatorsFormat();
    void impossibleDateIsNoValue_data();
    void impossibleDateIsNoValue();
    void timeStandsAsTheOperatorsClockHasIt_data();
    void timeStandsAsTheOperatorsClockHasIt();
    void separatorIsSwappedInAnyText_data();
    void separatorIsSwappedInAnyText();
    void enteredTextComesBack();
    void eachTextIsAllocatedOnce();
};

void TUnitsTextTest::numberIsWrittenWithItsDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << 12.0 << 0 << "12";
    QTest::newRow("rounded") << 12.345 << 1 << "12.3";
    QTest::newRow("filled up") << 12.5 << 3 << "12.500";
    QTest::newRow("negative") << -12.5 << 1 << "-12.5";
    QTest::newRow("zero") << 0.0 << 2 << "0.00";
    QTest::newRow("negative zero") << -0.0 << 0 << "0";
    QTest::newRow("negative zero with decimals") << -0.0 << 2 << "0.00";
    QTest::newRow("negative that rounds to zero") << -0.004 << 2 << "0.00";
    QTest::newRow("negative that does not") << -0.006 << 2 << "-0.01";
    QTest::newRow("negative with zeros") << -10.0 << 0 << "-10";
    QTest::newRow("half up") << 0.5 << 0 << "1";
    QTest::newRow("half down") << -0.5 << 0 << "-1";
    QTest::newRow("even half") << 2.5 << 0 << "3";
    QTest::newRow("half of a decimal") << 0.125 << 2 << "0.13";
    QTest::newRow("no half in binary") << 1.005 << 2 << "1.00";
    QTest::newRow("carry") << 9.999 << 2 << "10.00";
    QTest::newRow("fifteen digits") << 999999999999999.0 << 0 << "999999999999999";
    QTest::newRow("large") << 1e15 << 2 << "1.000000e+15";
    QTest::newRow("huge") << 1e300 << 2 << "1.000000e+300";
    QTest::newRow("negative huge") << -1.5e300 << 0 << "-1.500000e+300";
    QTest::newRow("tiny") << 1e-300 << 2 << "0.00";
    QTest::newRow("negative tiny") << -1e-300 << 2 << "0.00";
    QTest::newRow("not a number") << NOT_A_NUMBER << 2 << "---";
    QTest::newRow("infinite") << ENDLESS << 2 << "---";
    QTest::newRow("negative infinite") << -ENDLESS << 2 << "---";
}

void TUnitsTextTest::numberIsWrittenWithItsDecimals()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QTEST(Bare(value, decimals), "text");
}

// A number pad compares its entry with the bounds by texts that QString makes.
void TUnitsTextTest::numberIsWrittenAsTheToolkitDoes()
{
    QRandomGenerator random(1);
    for (int i = 0; i < 20000; ++i)
    {
        int const magnitude = random.bounded(-6, 12);
        double const value = (random.generateDouble() + 1e-3) * std::pow(10.0, magnitude);
        int const decimals = random.bounded(0, 9);
        QString const expected = QString::number(value, 'f', decimals);
        QCOMPARE(Bare(value, decimals), expected);
        bool const isZero = expected.count('0') + expected.count('.') == expected.size();
        QCOMPARE(Bare(-value, decimals), isZero ? expected : '-' + expected);
    }
}

void TUnitsTextTest::halvesGoAwayFromZeroAsTheToolkitHasIt()
{
    for (int decimals = 0; decimals <= 8; ++decimals)
    {
        for (int i = 1; i < 200; i += 2)
        {
            double const half = std::ldexp(i * 977.0 + (i % 4), -(decimals + 1));
            QCOMPARE(Bare(half, decimals), QString::number(half, 'f', decimals));
        }
    }
}

void TUnitsTextTest::operatorsSeparatorIsWritten()
{
    Choose(',');
    QCOMPARE(TUnits::DisplayableDecimalPointChar(), QChar(','));
    QCOMPARE(Bare(1234567.5, 2), QString("1234567,50"));
    QCOMPARE(Bare(1e300, 2), QString("1,000000e+300"));
    QCOMPARE(TUnits::GetValueString(12.5, UNIT_KILOMETRES_PER_HOUR, 1, nullptr, 1.0), QString("12,5 km/h"));
    Choose(QChar(0x066b));
    QCOMPARE(Bare(12.5, 1), QString("12\u066b5"));
}

void TUnitsTextTest::unitStandsBehindTheValue_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("blank before") << int(UNIT_HECTARE) << "12.5 ha";
    QTest::newRow("blank inside") << int(UNIT_UK_GALLON) << "12.5 UK gal";
    QTest::newRow("tight") << int(UNIT_DEGREE) << "12.5°";
    QTest::newRow("percent") << int(UNIT_PERCENT) << "12.5%";
    QTest::newRow("temperature") << int(UNIT_DEGREE_CELSIUS) << "12.5 °C";
    QTest::newRow("count") << int(UNIT_EACH) << "12.5";
    QTest::newRow("type, as it is stored") << int(UNIT_TYPE_LENGTH) << "12.5 m";
    QTest::newRow("none") << 0 << "12.5";
    QTest::newRow("negative") << -7 << "12.5";
    QTest::newRow("unknown") << 161 << "12.5";
    QTest::newRow("largest") << std::numeric_limits<int>::max() << "12.5";
}

void TUnitsTextTest::unitStandsBehindTheValue()
{
    QFETCH(int, unit);
    Choose('.', UNIT_SYSTEM_US);
    QTEST(TUnits::GetValueString(12.5, EUnitsType(unit), 1, nullptr, 0.0), "text");
}

void TUnitsTextTest::valueIsShownInTheOperatorsUnit_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("context");
    QTest::addColumn<QString>("metric");
    QTest::addColumn<QString>("imperial");
    QTest::addColumn<QString>("us");
    auto const row = [](char const* tag, double value, EUnitsType type, EUnitsContext context,
                        QString const& metric, QString const& imperial, QString const& us)
    { QTest::newRow(tag) << value << int(type) << int(context) << metric << imperial << us; };
    row("speed", 2.5, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, "9.0 km/h", "5.6 mph", "5.6 mph");
    row("implement width", 6.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_IMPLEMENT, "6.0 m", "236.2 in", "236.2 in");
    row("field length", 400.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_FIELD, "400.0 m", "437.4 yd", "1312.3 ft");
    row("spray rate", 150.0, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL, "150.0 L/ha", "13.4 UK gal/ac",
        "16.0 gal/ac");
    row("ammonia", 100.0, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_WEIGHED, "61.8 kg/ha", "55.1 lb/ac",
        "55.1 lb/ac");
    row("temperature", 21.0, UNIT_TYPE_TEMPERATURE, UNITS_CONTEXT_GENERAL, "21.0 °C", "21.0 °C", "69.8 °F");
    row("nothing", NOT_A_NUMBER, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, "--- km/h", "--- mph", "--- mph");
    row("negative zero", -0.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, "0.0 km/h", "0.0 mph", "0.0 mph");
    row("no unit", 2.5, UNIT_NONE, UNITS_CONTEXT_GENERAL, "2.5", "2.5", "2.5");
    row("no such unit", 2.5, EUnitsType(-3), EUnitsContext(-3), "2.5", "2.5", "2.5");
    row("time of day", 7.5, UNIT_TIME_OF_DAY, UNITS_CONTEXT_GENERAL, "7:30", "7:30", "7:30");
    row("date", 2460311.0, UNIT_DATE, UNITS_CONTEXT_GENERAL, "01/01/2024", "01/01/2024", "01/01/2024");
}

void TUnitsTextTest::valueIsShownInTheOperatorsUnit()
{
    constexpr double DENSITY = 0.618;
    QFETCH(double, value);
    QFETCH(int, type);
    QFETCH(int, context);
    char const* const columns[] = {"metric", "imperial", "us"};
    for (int system = 0; system < 3; ++system)
    {
        Choose('.', system);
        QTEST(TUnits::GetValueStringInContext(value, EUnitsType(type), EUnitsContext(context), 1, nullptr,
                                              DENSITY),
              columns[system]);
    }
}

void TUnitsTextTest::valueAndUnitComeApart()
{
    Choose(',', UNIT_SYSTEM_US);
    TUnits::TValueAndUnit const texts =
        TUnits::GetValueAndUnitStringInContext(2.5, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 10, nullptr, 1.0);
    QCOMPARE(texts.value, QString("5,5923407301"));
    QCOMPARE(texts.unit, QString("mph"));
    TUnits::TValueAndUnit const bare =
        TUnits::GetValueAndUnitStringInContext(2.5, UNIT_NONE, UNITS_CONTEXT_GENERAL, 1, nullptr, 1.0);
    QCOMPARE(bare.value, QString("2,5"));
    QCOMPARE(bare.unit, QString(""));
}

void TUnitsTextTest::partsAreThoseOfTheWholeText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("context");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("unit");
    auto const row = [](char const* tag, double value, EUnitsType type, EUnitsContext context, int decimals,
                        QString const& shown, QString const& unit)
    { QTest::newRow(tag) << value << int(type) << int(context) << decimals << shown << unit; };
    row("default decimals", 150.0, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL, -1, "16.0", "gal/ac");
    row("decimals of feet, not metres", 31.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 100, "102", "ft");
    row("less than of metres", 5.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 100, "16.4", "ft");
    row("more than of metres", 12.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_WIND, 100, "26.8", "mph");
    row("below the threshold", 0.1, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 1, "0.3281", "ft");
    row("below it in metres alone", 0.4, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 1, "1.3", "ft");
    row("density", 100.0, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_WEIGHED, 1, "55.1", "lb/ac");
    row("date", 2460311.0, UNIT_DATE, UNITS_CONTEXT_GENERAL, 1, "01/01/2024", "");
    row("time of day", 13.5, UNIT_TIME_OF_DAY, UNITS_CONTEXT_GENERAL, 1, "13:30", "");
    row("not a number", NOT_A_NUMBER, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1, "---", "mph");
}

void TUnitsTextTest::partsAreThoseOfTheWholeText()
{
    constexpr double AMMONIA = 0.618;
    QFETCH(double, value);
    QFETCH(int, type);
    QFETCH(int, context);
    QFETCH(int, decimals);
    QFETCH(QString, shown);
    QFETCH(QString, unit);
    Choose('.', UNIT_SYSTEM_US);
    TUnits::ThresholdSpec const spec{1.0, 4};
    TUnits::TValueAndUnit const parts = TUnits::GetValueAndUnitStringInContext(
        value, EUnitsType(type), EUnitsContext(context), decimals, &spec, AMMONIA);
    QCOMPARE(parts.value, shown);
    QCOMPARE(parts.unit, unit);
    QCOMPARE(TUnits::GetValueStringInContext(value, EUnitsType(type), EUnitsContext(context), decimals, &spec,
                                             AMMONIA),
             (shown + ' ' + unit).trimmed());
}

void TUnitsTextTest::suffixStandsBehindTheValue_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << QString() << "12.5";
    QTest::newRow("empty") << ""
                           << "12.5";
    QTest::newRow("blanks") << "  "
                            << "12.5";
    QTest::newRow("word") << "bags"
                          << "12.5 bags";
    QTest::newRow("trimmed") << "  bags "
                             << "12.5 bags";
    QTest::newRow("unit") << "ha"
                          << "12.5 ha";
    QTest::newRow("tight unit") << "°"
                                << "12.5°";
    QTest::newRow("tight unit with a blank") << " %"
                                             << "12.5 %";
    QTest::newRow("nearly a date") << "dd/mm/yyyy"
                                   << "12.5 dd/mm/yyyy";
    QTest::newRow("markers") << "%1 %n"
                             << "12.5 %1 %n";
}

void TUnitsTextTest::suffixStandsBehindTheValue()
{
    QFETCH(QString, suffix);
    QTEST(TUnits::GetValueString(12.5, suffix, 1, nullptr), "text");
}

void TUnitsTextTest::decimalsOutsideOfTheirRangeAreTheNearest()
{
    QCOMPARE(Bare(1.25, -2), QString("1"));
    QCOMPARE(Bare(1.25, std::numeric_limits<int>::min()), QString("1"));
    QCOMPARE(Bare(1.25, 15), QString("1.250000000000000"));
    QCOMPARE(Bare(1.25, 16), QString("1.250000000000000"));
    QCOMPARE(Bare(1.25, 99), QString("1.250000000000000"));
    QCOMPARE(Bare(1.25, std::numeric_limits<int>::max()), QString("1.250000000000000"));
    QCOMPARE(Bare(-999999999999999.5, 15).size(), 32);
}

void TUnitsTextTest::defaultPrecisionIsThatOfTheShownUnit()
{
    auto const shown = [](double value)
    {
        return TUnits::GetValueStringInContext(value, UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL,
                                               TUnits::DEFAULT_PRECISION, nullptr, 1.0);
    };
    QCOMPARE(shown(150.0), QString("150 L/ha"));
    Choose('.', UNIT_SYSTEM_US);
    QCOMPARE(shown(150.0), QString("16.0 gal/ac"));
    QCOMPARE(Bare(1.25, TUnits::DEFAULT_PRECISION), QString("1"));
    QCOMPARE(TUnits::GetDefaultPrecision(UNIT_NONE), 0);
    QCOMPARE(TUnits::GetDefaultPrecision(EUnitsType(-1)), 0);
    QCOMPARE(TUnits::GetDefaultPrecision(EUnitsType(161)), 0);
}

void TUnitsTextTest::everyUnitHasItsDefaultPrecision()
{
    for (TUnitGroup const& group : UnitGroups())
    {
        QCOMPARE(TUnits::GetDefaultPrecision(group.type), group.units.front().decimals);
        for (TUnitSpelling const& unit : group.units)
            QVERIFY2(TUnits::GetDefaultPrecision(unit.unit) == unit.decimals, unit.spelling);
    }
}

void TUnitsTextTest::dynamicPrecisionFollowsTheRoundedValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0.000";
    QTest::newRow("below one") << 0.5 << "0.500";
    QTest::newRow("just below one") << 0.9994 << "0.999";
    QTest::newRow("rounds to one") << 0.9996 << "1.00";
    QTest::newRow("one") << 1.0 << "1.00";
    QTest::newRow("just below ten") << 9.994 << "9.99";
    QTest::newRow("rounds to ten") << 9.996 << "10.0";
    QTest::newRow("ten") << 10.0 << "10.0";
    QTest::newRow("just below a hundred") << 99.94 << "99.9";
    QTest::newRow("rounds to a hundred") << 99.96 << "100";
    QTest::newRow("a hundred") << 100.0 << "100";
    QTest::newRow("large") << 12345.6 << "12346";
    QTest::newRow("negative") << -1.234 << "-1.23";
    QTest::newRow("not a number") << NOT_A_NUMBER << "---";
    QTest::newRow("infinite") << ENDLESS << "---";
}

void TUnitsTextTest::dynamicPrecisionFollowsTheRoundedValue()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(Bare(value, TUnits::DYNAMIC_PRECISION), text);
    int const decimals = text.contains('.') ? text.size() - text.indexOf('.') - 1 : 0;
    QCOMPARE(TUnits::GetDynamicPrecision(value), decimals);
}

void TUnitsTextTest::dynamicPrecisionChangesWhereTheRoundedTextDoes()
{
    double limit = 1.0;
    for (int decimals = 3; decimals > 0; --decimals, limit *= 10.0)
    {
        double value = limit - 0.5 * std::pow(10.0, -decimals);
        for (int i = 0; i < 4; ++i)
            value = std::nextafter(value, 0.0);
        for (int i = 0; i < 9; ++i, value = std::nextafter(value, limit))
        {
            bool const isBelow = QString::number(value, 'f', decimals).toDouble() < limit;
            QCOMPARE(TUnits::GetDynamicPrecision(value), isBelow ? decimals : decimals - 1);
        }
    }
}

void TUnitsTextTest::smallValuesHaveTheDecimalsOfTheThreshold()
{
    TUnits::ThresholdSpec const spec{2.0, 3};
    auto const shown = [&spec](double value) {
        return TUnits::GetValueStringInContext(value, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 1, &spec, 1.0);
    };
    QCOMPARE(shown(1.5), QString("1.500 m"));
    QCOMPARE(shown(-1.5), QString("-1.500 m"));
    QCOMPARE(shown(2.0), QString("2.0 m"));
    Choose('.', UNIT_SYSTEM_US);
    QCOMPARE(shown(1.5), QString("4.9 ft"));
    QCOMPARE(TUnits::GetValueString(1.5, QStringLiteral("x"), 0, &spec), QString("1.500 x"));
    TUnits::ThresholdSpec const never{NOT_A_NUMBER, 3};
    QCOMPARE(TUnits::GetValueString(1.5, QStringLiteral("x"), 1, &never), QString("1.5 x"));
}

void TUnitsTextTest::decimalsOfTheThresholdGoBeforeAllOthers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("small");
    QTest::addColumn<QString>("text");
    QTest::newRow("below") << 1.5 << 1 << 3 << "1.500 m";
    QTest::newRow("above") << 2.0 << 1 << 3 << "2.0 m";
    QTest::newRow("below, else default") << 1.5 << -1 << 3 << "1.500 m";
    QTest::newRow("above, default") << 2.5 << -1 << 3 << "2.50 m";
    QTest::newRow("below, else dynamic") << 1.5 << 100 << 3 << "1.500 m";
    QTest::newRow("above, dynamic") << 25.0 << 100 << 3 << "25.0 m";
    QTest::newRow("below, default") << 1.5 << 0 << -1 << "1.50 m";
    QTest::newRow("below, dynamic") << 0.25 << 0 << 100 << "0.250 m";
}

void TUnitsTextTest::decimalsOfTheThresholdGoBeforeAllOthers()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(int, small);
    TUnits::ThresholdSpec const spec{2.0, small};
    QTEST(TUnits::GetValueString(value, UNIT_METRE, decimals, &spec, 1.0), "text");
}

void TUnitsTextTest::dateStandsInTheOperatorsFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("day month year") << 0 << "09/02/2024";
    QTest::newRow("day year month") << 1 << "09/2024/02";
    QTest::newRow("month year day") << 2 << "02/2024/09";
    QTest::newRow("month day year") << 3 << "02/09/2024";
    QTest::newRow("year month day") << 4 << "2024/02/09";
    QTest::newRow("year day month") << 5 << "2024/09/02";
    QTest::newRow("no such format") << 6 << "09/02/2024";
}

void TUnitsTextTest::dateStandsInTheOperatorsFormat()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    Choose(',', UNIT_SYSTEM_METRIC, format);
    auto const day = static_cast<double>(QDate(2024, 2, 9).toJulianDay());
    QCOMPARE(DateOf(day), text);
    QCOMPARE(DateOf(day + 0.75), text);
    QCOMPARE(TUnits::GetValueString(day, UNIT_DATE, 2, nullptr, 1.0), text);
}

void TUnitsTextTest::impossibleDateIsNoValue_data()
{
    QTest::addColumn<double>("julianDay");
    QTest::addColumn<QString>("text");
    QTest::newRow("first day") << double(QDate(1, 1, 1).toJulianDay()) << "01/01/0001";
    QTest::newRow("before it") << double(QDate(1, 1, 1).toJulianDay() - 1) << "---";
    QTest::newRow("last day") << double(QDate(9999, 12, 31).toJulianDay()) << "31/12/9999";
    QTest::newRow("after it") << double(QDate(9999, 12, 31).toJulianDay() + 1) << "---";
    QTest::newRow("zero") << 0.0 << "---";
    QTest::newRow("negative") << -5.0 << "---";
    QTest::newRow("huge") << 1e300 << "---";
    QTest::newRow("not a number") << NOT_A_NUMBER << "---";
    QTest::newRow("infinite") << ENDLESS << "---";
}

void TUnitsTextTest::impossibleDateIsNoValue()
{
    QFETCH(double, julianDay);
    QTEST(DateOf(julianDay), "text");
}

void TUnitsTextTest::timeStandsAsTheOperatorsClockHasIt_data()
{
    QTest::addColumn<double>("hours");
    QTest::addColumn<QString>("long24");
    QTest::addColumn<QString>("long12");
    QTest::newRow("midnight") << 0.0 << "0:00"
                              << "12:00 am";
    QTest::newRow("past midnight") << 0.5 << "0:30"
                                   << "12:30 am";
    QTest::newRow("morning") << 7.5 << "7:30"
                             << "7:30 am";
    QTest::newRow("before noon") << 11.99 << "11:59"
                                 << "11:59 am";
    QTest::newRow("noon") << 12.0 << "12:00"
                          << "12:00 pm";
    QTest::newRow("afternoon") << 13.0 + 5.0 / 60.0 << "13:05"
                               << "1:05 pm";
    QTest::newRow("evening") << 23.75 << "23:45"
                             << "11:45 pm";
    QTest::newRow("minutes carry into the hours") << 7.999 << "8:00"
                                                  << "8:00 am";
    QTest::newRow("minutes carry into the day") << 23.9999 << "0:00"
                                                << "12:00 am";
    QTest::newRow("a whole day") << 24.0 << "0:00"
                                 << "12:00 am";
    QTest::newRow("next day") << 25.5 << "1:30"
                              << "1:30 am";
    QTest::newRow("day before") << -1.5 << "22:30"
                                << "10:30 pm";
    QTest::newRow("negative zero") << -0.0 << "0:00"
                                   << "12:00 am";
    QTest::newRow("not a number") << NOT_A_NUMBER << "---"
                                  << "---";
    QTest::newRow("infinite") << -ENDLESS << "---"
                              << "---";
}

void TUnitsTextTest::timeStandsAsTheOperatorsClockHasIt()
{
    QFETCH(double, hours);
    Choose('.', UNIT_SYSTEM_METRIC, 0, true);
    QTEST(TimeOfDay(hours), "long24");
    Choose('.', UNIT_SYSTEM_METRIC, 0, false);
    QTEST(TimeOfDay(hours), "long12");
    QVERIFY(!TimeOfDay(1e300).isEmpty());
}

void TUnitsTextTest::separatorIsSwappedInAnyText_data()
{
    QTest::addColumn<QString>("displayable");
    QTest::addColumn<QString>("internal");
    QTest::newRow("number") << "1,5"
                            << "1.5";
    QTest::newRow("negative") << "-1,5"
                              << "-1.5";
    QTest::newRow("whole") << "15"
                           << "15";
    QTest::newRow("separator alone") << ","
                                     << ".";
    QTest::newRow("two separators") << "1,2,3"
                                    << "1.2.3";
    QTest::newRow("words") << "one, two"
                           << "one. two";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("line ends") << "1,\n5\t"
                               << "1.\n5\t";
    QTest::newRow("zero character") << QString(QChar(0)) + ',' << QString(QChar(0)) + '.';
    QTest::newRow("beyond the first plane") << "\U0001f69c,5"
                                            << "\U0001f69c.5";
    QTest::newRow("huge") << QString(1000000, ',') << QString(1000000, '.');
}

void TUnitsTextTest::separatorIsSwappedInAnyText()
{
    QFETCH(QString, displayable);
    QFETCH(QString, internal);
    QCOMPARE(TUnits::DisplayableToInternalFloatStr(internal), internal);
    QCOMPARE(TUnits::InternalToDisplayableFloatStr(internal), internal);
    Choose(',');
    QCOMPARE(TUnits::DisplayableToInternalFloatStr(displayable), internal);
    QCOMPARE(TUnits::InternalToDisplayableFloatStr(internal), displayable);
    QCOMPARE(TUnits::DisplayableToInternalFloatStr(internal), internal);
    QVERIFY(TUnits::DisplayableToInternalFloatStr(QString()).isNull());
}

void TUnitsTextTest::enteredTextComesBack()
{
    for (QChar const point : {'.', ','})
    {
        Choose(point);
        for (double const value : {0.0, -1.25, 1234.5, 1e300, -2e-3})
        {
            QString const entered = TUnits::DisplayableToInternalFloatStr(Bare(value, 8));
            QCOMPARE(entered.toDouble(), value);
        }
    }
}

void TUnitsTextTest::eachTextIsAllocatedOnce()
{
    Choose(',', UNIT_SYSTEM_US);
    auto const shown = []
    {
        return TUnits::GetValueStringInContext(2.5, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL,
                                               TUnits::DEFAULT_PRECISION, nullptr, 1.0);
    };
    QCOMPARE(shown(), QString("5,6 mph"));
    QString const suffix = QStringLiteral("bags");
    TAllocationCount const allocations;
    QString const text = shown();
    QString const other = TUnits::GetValueString(2.5, suffix, 1, nullptr);
    qint64 const allocated = allocations.Value();
    QCOMPARE(allocated, Q_INT64_C(2));
    QCOMPARE(text.size() + other.size(), 15);
}

COMMONUI_TEST(TUnitsTextTest)
#include "TUnitsTextTest.moc"
