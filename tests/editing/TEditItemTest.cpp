#include "TEditItem.h"
#include "TestCase.h"
#include "TUnits.h"

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
    void copyIsWhole();
};

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

void TEditItemTest::copyIsWhole()
{
    TEditItem item;
    item.name = QStringLiteral("Tank");
    item.kind = EDIT_KIND_STEPPED;
    item.discreteValues = {1.0, 2.5};
    item.textItems.setAt(2, QStringLiteral("third"));
    item.itemVisibility.setAt(1, false);
    item.isEditGuardConditionSatisfied = [] { return true; };
    item.unitsSelector.units = {{}, {}};
    item.unitsSelector.buttonWidth = 90;
    TEditItem copy;
    copy = item;
    item.textItems.setAt(2, QStringLiteral("changed"));
    item.discreteValues.clear();
    QCOMPARE(copy.name, QString("Tank"));
    QCOMPARE(copy.kind, 2);
    QCOMPARE(copy.discreteValues, (QVector<double>{1.0, 2.5}));
    QCOMPARE(copy.textItems.at(2), QString("third"));
    QVERIFY(!copy.itemVisibility.at(1));
    QVERIFY(copy.isEditGuardConditionSatisfied());
    QVERIFY(copy.unitsSelector.IsValid());
    QCOMPARE(copy.unitsSelector.buttonWidth, 90);
}

COMMONUI_TEST(TEditItemTest)
#include "TEditItemTest.moc"
