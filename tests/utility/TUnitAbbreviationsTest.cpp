#include "TUnitAbbreviations.h"
#include "TestCase.h"
#include "UnitSpellings.h"

#include <QSet>

#include <limits>

class TUnitAbbreviationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyUnitIsWrittenAsTheOperatorKnowsIt();
    void everyUnitIsFoundByItsAbbreviation();
    void noTwoUnitsAreWrittenAlike();
    void typeIsWrittenAsItsDefaultUnit();
    void unitsWithoutAnAbbreviationAreTheKnownOnes();
    void unknownUnitIsNotWritten_data();
    void unknownUnitIsNotWritten();
    void unknownTextIsNoUnit_data();
    void unknownTextIsNoUnit();
    void caseIsIgnoredOnlyWhenAskedFor();
    void textThatMatchesToTheLetterGoesFirst();
    void onlySignsStandTight();
    void abbreviationsNeedNoEscape();
};

void TUnitAbbreviationsTest::everyUnitIsWrittenAsTheOperatorKnowsIt()
{
    for (TUnitGroup const& group : UnitGroups())
    {
        for (TUnitSpelling const& unit : group.units)
            QCOMPARE(QString(TUnitAbbreviations::UnitAbbreviations[unit.unit]),
                     QString::fromUtf8(unit.abbreviation));
    }
}

void TUnitAbbreviationsTest::everyUnitIsFoundByItsAbbreviation()
{
    int count = 0;
    for (TUnitGroup const& group : UnitGroups())
    {
        for (TUnitSpelling const& unit : group.units)
        {
            QString const& abbreviation = TUnitAbbreviations::UnitAbbreviations[unit.unit];
            if (abbreviation.isEmpty())
                continue;
            QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString(abbreviation, false), unit.unit);
            QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString(abbreviation, true), unit.unit);
            ++count;
        }
    }
    QVERIFY(count > 120);
}

void TUnitAbbreviationsTest::noTwoUnitsAreWrittenAlike()
{
    QSet<QString> seen;
    for (TUnitGroup const& group : UnitGroups())
    {
        for (TUnitSpelling const& unit : group.units)
        {
            QString const& abbreviation = TUnitAbbreviations::UnitAbbreviations[unit.unit];
            QVERIFY2(abbreviation.isEmpty() || !seen.contains(abbreviation), qPrintable(abbreviation));
            seen += abbreviation;
        }
    }
}

void TUnitAbbreviationsTest::typeIsWrittenAsItsDefaultUnit()
{
    for (TUnitGroup const& group : UnitGroups())
    {
        EUnitsType const stored = group.units.front().unit;
        QCOMPARE(QString(TUnitAbbreviations::UnitAbbreviations[group.type]),
                 QString(TUnitAbbreviations::UnitAbbreviations[stored]));
        QCOMPARE(TUnitAbbreviations::UnitTypeRequiresSpacing(group.type),
                 TUnitAbbreviations::UnitTypeRequiresSpacing(stored));
    }
}

void TUnitAbbreviationsTest::unitsWithoutAnAbbreviationAreTheKnownOnes()
{
    QVector<int> bare;
    for (int number = 1; number <= 160; ++number)
    {
        if (TUnitAbbreviations::UnitAbbreviations[number].isEmpty())
            bare += number;
    }
    QCOMPARE(bare, (QVector<int>{UNIT_TYPE_COUNT, UNIT_EACH, UNIT_TIME_OF_DAY, UNIT_DATE}));
}

void TUnitAbbreviationsTest::unknownUnitIsNotWritten_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("past the last") << 161;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TUnitAbbreviationsTest::unknownUnitIsNotWritten()
{
    QFETCH(int, number);
    QCOMPARE(QString(TUnitAbbreviations::UnitAbbreviations[number]), QString(""));
    QVERIFY(!TUnitAbbreviations::UnitTypeRequiresSpacing(EUnitsType(number)));
}

void TUnitAbbreviationsTest::unknownTextIsNoUnit_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " ";
    QTest::newRow("word") << "furlong";
    QTest::newRow("blank before") << " ha";
    QTest::newRow("part") << "kseeds/";
    QTest::newRow("line ends") << "ha\n";
    QTest::newRow("zero character") << QString(QChar(0));
    QTest::newRow("huge") << QString(1000000, 'm');
}

void TUnitAbbreviationsTest::unknownTextIsNoUnit()
{
    QFETCH(QString, text);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString(text, false), UNIT_NONE);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString(text, true), UNIT_NONE);
}

void TUnitAbbreviationsTest::caseIsIgnoredOnlyWhenAskedFor()
{
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("HA", false), UNIT_NONE);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("HA", true), UNIT_HECTARE);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("l/HA", false), UNIT_NONE);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("l/HA", true), UNIT_LITRES_PER_HECTARE);
}

// Ampere-hours and hours, kelvin and knots differ, but millilitres have nothing beside them.
void TUnitAbbreviationsTest::textThatMatchesToTheLetterGoesFirst()
{
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("kn", true), UNIT_KNOT);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("kN", true), UNIT_KILONEWTON);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("kN", false), UNIT_KILONEWTON);
    QCOMPARE(TUnitAbbreviations::GetUnitTypeFromString("ml", true), UNIT_MILLILITRE);
}

void TUnitAbbreviationsTest::onlySignsStandTight()
{
    QStringList tight;
    for (int number = 1; number <= 160; ++number)
    {
        bool const isBare = TUnitAbbreviations::UnitAbbreviations[number].isEmpty();
        bool const isSpaced = TUnitAbbreviations::UnitTypeRequiresSpacing(EUnitsType(number));
        QVERIFY(!(isBare && isSpaced));
        if (!isBare && !isSpaced)
            tight += TUnitAbbreviations::UnitAbbreviations[number];
    }
    tight.removeDuplicates();
    QCOMPARE(tight, (QStringList{"°", "'", "\"", "°/s", "%"}));
}

// They go into texts with markers and into layouts of one line.
void TUnitAbbreviationsTest::abbreviationsNeedNoEscape()
{
    for (int number = 1; number <= 160; ++number)
    {
        QString const& abbreviation = TUnitAbbreviations::UnitAbbreviations[number];
        QVERIFY(abbreviation.size() <= 12);
        QCOMPARE(abbreviation.trimmed(), abbreviation);
        for (QChar const character : abbreviation)
            QVERIFY(character.isPrint());
    }
}

COMMONUI_TEST(TUnitAbbreviationsTest)
#include "TUnitAbbreviationsTest.moc"
