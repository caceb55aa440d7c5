#include "TUnitsSelector.h"
#include "TestCase.h"

class TUnitsSelectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshSelectorOffersNothing();
    void selectorWithOneEntryIsNotValid();
    void sameEntriesWithAnotherWidthAreEqual();
    void entriesAreComparedInOrderAndWhole();
    void flagsAreAddedAndRemovedByBits();
};

namespace
{
TUnitsSelectorProps Entry(EUnitsType unit, int decimalPlaces)
{
    TUnitsSelectorProps entry;
    entry.unit = unit;
    entry.decimalPlaces = decimalPlaces;
    return entry;
}
} // namespace

void TUnitsSelectorTest::freshSelectorOffersNothing()
{
    TUnitsSelector const selector;
    QVERIFY(selector.units.isEmpty());
    QCOMPARE(selector.buttonWidth, 70);
    QCOMPARE(selector.flags, 0);
    QVERIFY(!selector.IsValid());
    TUnitsSelectorProps const entry;
    QCOMPARE(entry.unit, UNIT_NONE);
    QCOMPARE(entry.decimalPlaces, -1);
}

void TUnitsSelectorTest::selectorWithOneEntryIsNotValid()
{
    TUnitsSelector selector;
    selector.units += Entry(UNIT_METRE, 1);
    QVERIFY(!selector.IsValid());
    selector.units += Entry(UNIT_METRE, 1);
    QVERIFY(selector.IsValid());
}

void TUnitsSelectorTest::sameEntriesWithAnotherWidthAreEqual()
{
    TUnitsSelector first;
    first.units = {Entry(UNIT_METRE, 1), Entry(UNIT_FOOT, 0)};
    TUnitsSelector second = first;
    second.buttonWidth = 120;
    second.AddFlags(UNIT_SELECTOR_FIXED_WIDTH);
    QVERIFY(first == second);
    QVERIFY(!(first != second));
}

void TUnitsSelectorTest::entriesAreComparedInOrderAndWhole()
{
    TUnitsSelector first;
    first.units = {Entry(UNIT_METRE, 1), Entry(UNIT_FOOT, 0)};
    TUnitsSelector second;
    second.units = {Entry(UNIT_FOOT, 0), Entry(UNIT_METRE, 1)};
    QVERIFY(first != second);
    second.units = {Entry(UNIT_METRE, 1), Entry(UNIT_FOOT, 1)};
    QVERIFY(first != second);
    second.units = {Entry(UNIT_METRE, 1), Entry(UNIT_YARD, 0)};
    QVERIFY(first != second);
    second.units = {Entry(UNIT_METRE, 1)};
    QVERIFY(first != second);
}

void TUnitsSelectorTest::flagsAreAddedAndRemovedByBits()
{
    TUnitsSelector selector;
    selector.AddFlags(UNIT_SELECTOR_FIXED_WIDTH);
    QCOMPARE(selector.flags, 1);
    selector.AddFlags(6);
    QCOMPARE(selector.flags, 7);
    selector.RemoveFlags(UNIT_SELECTOR_FIXED_WIDTH);
    QCOMPARE(selector.flags, 6);
    selector.RemoveFlags(UNIT_SELECTOR_FIXED_WIDTH);
    QCOMPARE(selector.flags, 6);
}

COMMONUI_TEST(TUnitsSelectorTest)
#include "TUnitsSelectorTest.moc"
