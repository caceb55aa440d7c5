#include "TEditItem.h"
#include "TestCase.h"
#include "TUnits.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>
#include <vector>

class TEditItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshItemHasItsNumbers();
    void freshItemHasItsSwitches();
    void freshItemHasNothingElse();
    void rangeAndUnitAreSetTogether();
    void listKindsAreTheTwoWithTexts_data();
    void listKindsAreTheTwoWithTexts();
    void membersStandInTheOrderOfTheTable();
    void copyIsWhole();
    void copySharesNothing();
    void numberPadTypesHaveTheirNumbers();
};

namespace
{
constexpr int INDEX = 2;

// All members in the order of their table.
auto MembersOf(TEditItem const& item)
{
    return std::tie(item.visible, item.kind, item.minimum, item.maximum, item.allowEmpty, item.emptyValue,
                    item.value, item.increment, item.unitIncrements, item.decimalPlaces, item.name,
                    item.suffix, item.unitType, item.unitsContext, item.density, item.textItems,
                    item.ipAddress, item.itemVisibility, item.useNumberPad, item.inlineNumberPad,
                    item.numberPadType, item.floatingButtons, item.liveUpdates, item.multiSelect,
                    item.showSelection, item.showValueButton, item.useButtonText, item.showListTitle,
                    item.listItemWidth, item.directory, item.useIcons, item.iconNames,
                    item.isEditGuardConditionSatisfied, item.doOnEditGuardConditionFailed, item.fontSize,
                    item.unitsSelector, item.padDecimalPlaces, item.discreteValues);
}

void FillForLists(TEditItem& item)
{
    item.textItems.setAt(INDEX, QStringLiteral("third"));
    item.itemVisibility.setAt(INDEX, false);
    item.multiSelect = true;
    item.showSelection = true;
    item.showValueButton = false;
    item.useButtonText = true;
    item.showListTitle = true;
    item.listItemWidth = 250;
    item.directory = QStringLiteral("/media");
    item.useIcons = true;
    item.iconNames.setAt(INDEX, QStringLiteral("Icon"));
}

void FillForPads(TEditItem& item)
{
    item.ipAddress = QStringLiteral("10.0.0.1");
    item.useNumberPad = true;
    item.inlineNumberPad = true;
    item.numberPadType = NUMBER_PAD_DATE;
    item.floatingButtons = true;
    item.liveUpdates = true;
    item.unitsSelector.units = {{}, {}};
    item.unitsSelector.buttonWidth = 90;
    item.unitsSelector.AddFlags(UNIT_SELECTOR_FIXED_WIDTH);
    item.padDecimalPlaces = 3;
}

// Every member is off its start.
TEditItem FilledItem()
{
    TEditItem item;
    item.visible = true;
    item.kind = EDIT_KIND_STEPPED;
    item.SetMinMaxInc(-1.0, 9.0, 0.5);
    item.allowEmpty = true;
    item.emptyValue = -999.0;
    item.value = 2.5;
    item.unitIncrements = {{UNIT_FOOT, 2.0}};
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_LENGTH, 1);
    item.name = QStringLiteral("Tank");
    item.suffix = QStringLiteral("bags");
    item.unitsContext = UNITS_CONTEXT_FIELD;
    item.density = 0.8;
    item.isEditGuardConditionSatisfied = [] { return true; };
    item.doOnEditGuardConditionFailed = [] {};
    item.fontSize = 30;
    item.discreteValues = {1.0, 2.5};
    FillForLists(item);
    FillForPads(item);
    return item;
}

template<typename T>
bool IsEqual(T const& a, T const& b)
{
    return a == b;
}

bool IsEqual(TEditContainerQString const& a, TEditContainerQString const& b)
{
    return a.at(INDEX) == b.at(INDEX);
}

bool IsEqual(TEditContainerBool const& a, TEditContainerBool const& b)
{
    return a.at(INDEX) == b.at(INDEX);
}

bool IsEqual(QVector<TUnitIncrement> const& a, QVector<TUnitIncrement> const& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](TUnitIncrement const& one, TUnitIncrement const& other)
                      { return one.unit == other.unit && one.increment == other.increment; });
}

// Unlike its operator, which leaves out what is not offered.
bool IsEqual(TUnitsSelector const& a, TUnitsSelector const& b)
{
    return a == b && a.buttonWidth == b.buttonWidth && a.flags == b.flags;
}

template<typename T, size_t... I>
std::vector<size_t> EqualMembersAt(T const& a, T const& b, std::index_sequence<I...>)
{
    std::vector<size_t> equal;
    ((IsEqual(std::get<I>(a), std::get<I>(b)) ? equal.push_back(I) : void()), ...);
    return equal;
}

// The places in the table of the members that two items have in common.
template<typename... T>
std::vector<size_t> EqualMembers(std::tuple<T...> const& a, std::tuple<T...> const& b)
{
    return EqualMembersAt(a, b, std::index_sequence_for<T...>());
}

template<typename... T>
std::vector<char const*> PlacesOf(std::tuple<T...> const& members)
{
    return std::apply([](auto const&... member)
                      { return std::vector{reinterpret_cast<char const*>(&member)...}; },
                      members);
}
} // namespace

void TEditItemTest::freshItemHasItsNumbers()
{
    TEditItem const item;
    QCOMPARE(item.kind, 1);
    QCOMPARE(item.minimum, 0.0);
    QCOMPARE(item.maximum, 0.0);
    QCOMPARE(item.emptyValue, 0.0);
    QCOMPARE(item.value, 0.0);
    QCOMPARE(item.increment, 0.0);
    QCOMPARE(item.decimalPlaces, 0);
    QCOMPARE(int(item.unitType), 0);
    QCOMPARE(int(item.unitsContext), 0);
    QCOMPARE(item.density, 1.0);
    QCOMPARE(int(item.numberPadType), 0);
    QCOMPARE(item.listItemWidth, 0);
    QCOMPARE(item.fontSize, 0);
    QCOMPARE(item.padDecimalPlaces, -1);
    QCOMPARE(TUnitIncrement().unit, UNIT_NONE);
    QCOMPARE(TUnitIncrement().increment, 1.0);
}

void TEditItemTest::freshItemHasItsSwitches()
{
    TEditItem const item;
    bool const off[] = {item.visible,         item.allowEmpty,    item.useNumberPad, item.inlineNumberPad,
                        item.floatingButtons, item.liveUpdates,   item.multiSelect,  item.showSelection,
                        item.useButtonText,   item.showListTitle, item.useIcons};
    for (bool const isOn : off)
        QVERIFY(!isOn);
    QVERIFY(item.showValueButton);
    QVERIFY(item.itemVisibility.at(0));
    QVERIFY(item.itemVisibility.at(100000));
}

void TEditItemTest::freshItemHasNothingElse()
{
    TEditItem const item;
    QVERIFY(item.unitIncrements.isEmpty());
    QVERIFY(item.name.isEmpty());
    QVERIFY(item.suffix.isEmpty());
    QVERIFY(item.textItems.at(0).isEmpty());
    QVERIFY(item.ipAddress.isEmpty());
    QVERIFY(item.directory.isEmpty());
    QVERIFY(item.iconNames.at(0).isEmpty());
    QVERIFY(item.isEditGuardConditionSatisfied == nullptr);
    QVERIFY(item.doOnEditGuardConditionFailed == nullptr);
    QVERIFY(!item.unitsSelector.IsValid());
    QVERIFY(item.discreteValues.isEmpty());
}

void TEditItemTest::rangeAndUnitAreSetTogether()
{
    TEditItem item;
    item.SetMinMaxInc(-1.5, 20.25, 0.5);
    QCOMPARE(item.minimum, -1.5);
    QCOMPARE(item.maximum, 20.25);
    QCOMPARE(item.increment, 0.5);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, TUnits::DYNAMIC_PRECISION);
    QCOMPARE(item.unitType, UNIT_TYPE_SPEED);
    QCOMPARE(item.decimalPlaces, 100);
    QCOMPARE(item.padDecimalPlaces, -1);
}

void TEditItemTest::listKindsAreTheTwoWithTexts_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isList");
    QTest::newRow("text list") << 0 << true;
    QTest::newRow("numeric") << 1 << false;
    QTest::newRow("stepped") << 2 << false;
    QTest::newRow("other") << 3 << false;
    QTest::newRow("hidden list") << 4 << true;
    QTest::newRow("unknown") << 5 << false;
    QTest::newRow("unknown with another bit") << 8 << false;
    QTest::newRow("negative") << -1 << false;
}

void TEditItemTest::listKindsAreTheTwoWithTexts()
{
    QFETCH(int, kind);
    TEditItem item;
    item.kind = kind;
    QTEST(item.IsList(), "isList");
}

void TEditItemTest::membersStandInTheOrderOfTheTable()
{
    TEditItem const item;
    std::vector<char const*> const places = PlacesOf(MembersOf(item));
    QCOMPARE(places.size(), size_t(38));
    for (size_t i = 1; i < places.size(); ++i)
        QVERIFY2(places[i - 1] < places[i], qPrintable(QString::number(i)));
}

void TEditItemTest::copyIsWhole()
{
    TEditItem const fresh;
    TEditItem const item = FilledItem();
    TEditItem copy;
    copy = item;
    std::vector<size_t> all(38);
    std::iota(all.begin(), all.end(), size_t(0));
    QCOMPARE(EqualMembers(MembersOf(copy), MembersOf(item)), all);
    QCOMPARE(EqualMembers(MembersOf(fresh), MembersOf(item)), std::vector<size_t>());
}

void TEditItemTest::copySharesNothing()
{
    TEditItem item = FilledItem();
    TEditItem copy;
    copy = item;
    item.textItems.setAt(INDEX, QStringLiteral("changed"));
    item.discreteValues.clear();
    item.unitsSelector.units.clear();
    QCOMPARE(copy.textItems.at(INDEX), QString("third"));
    QCOMPARE(copy.discreteValues, (QVector<double>{1.0, 2.5}));
    QVERIFY(copy.unitsSelector.IsValid());
}

void TEditItemTest::numberPadTypesHaveTheirNumbers()
{
    QCOMPARE(int(NUMBER_PAD_DECIMAL), 0);
    QCOMPARE(int(NUMBER_PAD_TIME), 1);
    QCOMPARE(int(NUMBER_PAD_DATE), 2);
    QCOMPARE(int(NUMBER_PAD_IP_ADDRESS), 3);
}

COMMONUI_TEST(TEditItemTest)
#include "TEditItemTest.moc"
