#include "TElementState.h"
#include "TestCase.h"

using TChange = void (*)(TElementState&);
Q_DECLARE_METATYPE(TChange)

class TElementStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatItWasBuiltWith();
    void anUnknownOneIsInvisibleAndDoesNothing();
    void isSeenOnlyIfModuleAndDisplayLetIt_data();
    void isSeenOnlyIfModuleAndDisplayLetIt();
    void eachValueTellsTwoApart_data();
    void eachValueTellsTwoApart();
    void eachChangedValueIsDirtyUntilItIsCleaned_data();
    void eachChangedValueIsDirtyUntilItIsCleaned();
    void eachCurrentValueIsTakenOver_data();
    void eachCurrentValueIsTakenOver();
    void theIdTellsTwoApartButIsNoChangeToReport();
    void theWheelDefinitionIsNoPartOfAComparison();
    void aConfigIsSetAsAWhole();
};

namespace
{
TElementState Plain()
{
    return TElementState(TMMIDef(QStringLiteral("Setup"), QStringLiteral("s"), true),
                         TActivationConfig(3, ELEMENT_HIDE_MENU), QStringLiteral("Tank"),
                         QStringLiteral("TankIcon"), 9, true, true, true);
}

struct TNamedChange
{
    char const* name;
    TChange change;
};

TNamedChange const CHANGES[] = {
    {"name", [](TElementState& element) { element.SetName(QStringLiteral("Boom")); }},
    {"icon name", [](TElementState& element) { element.SetIconName(QStringLiteral("BoomIcon")); }},
    {"enabled", [](TElementState& element) { element.SetEnabled(false); }},
    {"visible", [](TElementState& element) { element.SetVisible(false); }},
    {"control visible", [](TElementState& element) { element.SetControlVisible(false); }},
    {"shortcut", [](TElementState& element) { element.SetShortcut(false); }},
    {"control id", [](TElementState& element) { element.SetControlID(10); }},
};

void AddChanges()
{
    QTest::addColumn<TChange>("change");
    for (TNamedChange const& one : CHANGES)
        QTest::newRow(one.name) << one.change;
}

// A config that was another when it was reported last.
TActivationConfig DirtyConfig()
{
    TActivationConfig config(3, ELEMENT_HIDE_MENU);
    config.SetCurrent(TActivationConfig(4, ELEMENT_HIDE_MENU));
    return config;
}
} // namespace

void TElementStateTest::showsWhatItWasBuiltWith()
{
    TElementState const element = Plain();
    QCOMPARE(element.GetID(), -1);
    QCOMPARE(element.GetName(), QStringLiteral("Tank"));
    QCOMPARE(element.GetIconName(), QStringLiteral("TankIcon"));
    QCOMPARE(element.GetControlID(), 9);
    QVERIFY(element.IsEnabled());
    QVERIFY(element.IsVisible());
    QVERIFY(element.IsShortcut());
    QCOMPARE(element.GetActivationConfig().GetMenuToToggle(), 3);
    QCOMPARE(element.GetMMIDef().ToPath(true, QLatin1Char('/')), QStringLiteral("Setup"));
    QVERIFY(!element.IsDirty());
}

void TElementStateTest::anUnknownOneIsInvisibleAndDoesNothing()
{
    TElementState const element;
    QCOMPARE(element.GetID(), -1);
    QVERIFY(!element.IsVisible());
    QVERIFY(!element.IsEnabled());
    QVERIFY(!element.IsShortcut());
    QCOMPARE(element.GetControlID(), -1);
    QVERIFY(!(element.GetActivationConfig() != TActivationConfig()));
}

void TElementStateTest::isSeenOnlyIfModuleAndDisplayLetIt_data()
{
    QTest::addColumn<bool>("module");
    QTest::addColumn<bool>("display");
    QTest::addColumn<bool>("visible");
    QTest::newRow("both") << true << true << true;
    QTest::newRow("module") << true << false << false;
    QTest::newRow("display") << false << true << false;
    QTest::newRow("none") << false << false << false;
}

void TElementStateTest::isSeenOnlyIfModuleAndDisplayLetIt()
{
    QFETCH(bool, module);
    QFETCH(bool, display);
    TElementState element = Plain();
    element.SetVisible(module);
    element.SetControlVisible(display);
    QTEST(element.IsVisible(), "visible");
}

void TElementStateTest::eachValueTellsTwoApart_data()
{
    AddChanges();
    QTest::newRow("config") << TChange([](TElementState& element)
                                       { element.SetActivationConfig(DirtyConfig()); });
}

void TElementStateTest::eachValueTellsTwoApart()
{
    QFETCH(TChange, change);
    TElementState element = Plain();
    QVERIFY(!(element != Plain()));
    change(element);
    QVERIFY(element != Plain());
}

void TElementStateTest::eachChangedValueIsDirtyUntilItIsCleaned_data()
{
    eachValueTellsTwoApart_data();
}

void TElementStateTest::eachChangedValueIsDirtyUntilItIsCleaned()
{
    QFETCH(TChange, change);
    TElementState element = Plain();
    change(element);
    QVERIFY(element.IsDirty());
    TElementState const changed = element;
    element.Clean();
    QVERIFY(!element.IsDirty());
    QVERIFY(!(element != changed));
}

void TElementStateTest::eachCurrentValueIsTakenOver_data()
{
    eachValueTellsTwoApart_data();
}

void TElementStateTest::eachCurrentValueIsTakenOver()
{
    QFETCH(TChange, change);
    TElementState changed = Plain();
    change(changed);
    changed.Clean();
    TElementState element = Plain();
    element.SetCurrent(changed);
    QVERIFY(!(element != changed));
    QVERIFY(element.IsDirty());
}

void TElementStateTest::theIdTellsTwoApartButIsNoChangeToReport()
{
    TElementState element = Plain();
    element.SetID(4);
    QVERIFY(element != Plain());
    QVERIFY(!element.IsDirty());
    element.SetCurrent(Plain());
    QCOMPARE(element.GetID(), 4);
}

void TElementStateTest::theWheelDefinitionIsNoPartOfAComparison()
{
    TElementState const elsewhere(TMMIDef(), TActivationConfig(3, ELEMENT_HIDE_MENU), QStringLiteral("Tank"),
                                  QStringLiteral("TankIcon"), 9, true, true, true);
    QVERIFY(!(elsewhere != Plain()));
    TElementState element = Plain();
    element.SetCurrent(elsewhere);
    QCOMPARE(element.GetMMIDef().ToPath(true, QLatin1Char('/')), QStringLiteral("Setup"));
}

void TElementStateTest::aConfigIsSetAsAWhole()
{
    TElementState element = Plain();
    element.SetActivationConfig(TActivationConfig(8, ELEMENT_HIDE_ALL));
    QCOMPARE(element.GetActivationConfig().GetMenuToToggle(), 8);
    QVERIFY2(!element.IsDirty(), "a config that is clean in itself is no change");
    element.SetActivationConfig(DirtyConfig());
    QVERIFY(element.IsDirty());
    QVERIFY(element.GetActivationConfig().IsDirty());
}

COMMONUI_TEST(TElementStateTest)
#include "TElementStateTest.moc"
