#include "TActivationConfig.h"
#include "TestCase.h"

class TActivationConfigTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutArgumentsItDoesNothing();
    void eachConstructorLeavesTheRestAtNothing();
    void aFreshOneIsClean();
    void eachValueTellsTwoApart_data();
    void eachValueTellsTwoApart();
    void eachChangedValueIsDirtyUntilItIsCleaned_data();
    void eachChangedValueIsDirtyUntilItIsCleaned();
    void aValueThatWentAndCameBackIsClean();
    void aMethodIsComparedByItsLetters();
    void aMethodMayBeGoneFromMemory();
    void aReceiverThatDiedIsNone();
    void whatWasReportedIsNoPartOfAComparison();
};

namespace
{
char const* const CHANGES[] = {"receiver", "method", "argument", "menu", "hide mode"};

void AddChanges()
{
    QTest::addColumn<QString>("value");
    for (char const* const value : CHANGES)
        QTest::newRow(value) << QString::fromLatin1(value);
}

// One that differs from Plain() in the one value.
TActivationConfig Changed(QObject* receiver, QString const& value)
{
    return TActivationConfig(value == QLatin1String("menu") ? 4 : 3,
                             value == QLatin1String("receiver") ? receiver->parent() : receiver,
                             value == QLatin1String("method") ? "OnStop" : "OnStart",
                             value == QLatin1String("hide mode") ? ELEMENT_HIDE_ALL : ELEMENT_HIDE_MENU,
                             value == QLatin1String("argument") ? 8 : 7);
}

TActivationConfig Plain(QObject* receiver)
{
    return Changed(receiver, QString());
}
} // namespace

void TActivationConfigTest::withoutArgumentsItDoesNothing()
{
    TActivationConfig const config;
    QVERIFY(!config.GetReceiver());
    QVERIFY(config.GetMethod().isEmpty());
    QCOMPARE(config.GetArgument(), -1);
    QCOMPARE(config.GetMenuToToggle(), -1);
    QCOMPARE(config.GetHideMode(), ELEMENT_HIDE_NONE);
}

void TActivationConfigTest::eachConstructorLeavesTheRestAtNothing()
{
    TActivationConfig const menu(5, ELEMENT_HIDE_MENU);
    QCOMPARE(menu.GetMenuToToggle(), 5);
    QCOMPARE(menu.GetHideMode(), ELEMENT_HIDE_MENU);
    QVERIFY(!menu.GetReceiver());
    QVERIFY(menu.GetMethod().isEmpty());
    QCOMPARE(menu.GetArgument(), -1);

    TActivationConfig const slot(this, "OnStart", ELEMENT_HIDE_ALL, 2);
    QCOMPARE(slot.GetMenuToToggle(), -1);
    QCOMPARE(slot.GetReceiver(), this);
    QCOMPARE(slot.GetMethod(), QByteArray("OnStart"));
    QCOMPARE(slot.GetArgument(), 2);
    QCOMPARE(slot.GetHideMode(), ELEMENT_HIDE_ALL);

    TActivationConfig const both(5, this, "OnStart", ELEMENT_HIDE_NONE, -1);
    QCOMPARE(both.GetMenuToToggle(), 5);
    QCOMPARE(both.GetReceiver(), this);
    QCOMPARE(both.GetMethod(), QByteArray("OnStart"));
    QCOMPARE(both.GetArgument(), -1);
    QCOMPARE(both.GetHideMode(), ELEMENT_HIDE_NONE);
}

void TActivationConfigTest::aFreshOneIsClean()
{
    QVERIFY(!TActivationConfig().IsDirty());
    QVERIFY(!Plain(this).IsDirty());
}

void TActivationConfigTest::eachValueTellsTwoApart_data()
{
    AddChanges();
}

void TActivationConfigTest::eachValueTellsTwoApart()
{
    QFETCH(QString, value);
    QObject parent;
    QObject receiver(&parent);
    QVERIFY(Changed(&receiver, value) != Plain(&receiver));
    QVERIFY(!(Changed(&receiver, value) != Changed(&receiver, value)));
}

void TActivationConfigTest::eachChangedValueIsDirtyUntilItIsCleaned_data()
{
    AddChanges();
}

void TActivationConfigTest::eachChangedValueIsDirtyUntilItIsCleaned()
{
    QFETCH(QString, value);
    QObject parent;
    QObject receiver(&parent);
    TActivationConfig config = Plain(&receiver);
    config.SetCurrent(Changed(&receiver, value));
    QVERIFY(config.IsDirty());
    QVERIFY(!(config != Changed(&receiver, value)));
    config.Clean();
    QVERIFY(!config.IsDirty());
    QVERIFY(!(config != Changed(&receiver, value)));
}

void TActivationConfigTest::aValueThatWentAndCameBackIsClean()
{
    TActivationConfig config(1, ELEMENT_HIDE_NONE);
    config.SetCurrent(TActivationConfig(2, ELEMENT_HIDE_NONE));
    config.SetCurrent(TActivationConfig(1, ELEMENT_HIDE_NONE));
    QVERIFY(!config.IsDirty());
}

void TActivationConfigTest::aMethodIsComparedByItsLetters()
{
    char const here[] = "OnStart";
    char const there[] = "OnStart";
    QVERIFY(!(TActivationConfig(this, here, ELEMENT_HIDE_NONE, 1) !=
              TActivationConfig(this, there, ELEMENT_HIDE_NONE, 1)));
}

void TActivationConfigTest::aMethodMayBeGoneFromMemory()
{
    QByteArray name("OnStart");
    TActivationConfig const config(this, name.constData(), ELEMENT_HIDE_NONE, 1);
    name.fill('x');
    QCOMPARE(config.GetMethod(), QByteArray("OnStart"));
}

void TActivationConfigTest::aReceiverThatDiedIsNone()
{
    auto* const receiver = new QObject;
    TActivationConfig const config(receiver, "deleteLater", ELEMENT_HIDE_NONE, -1);
    delete receiver;
    QVERIFY(!config.GetReceiver());
    QVERIFY(!config.IsDirty());
}

void TActivationConfigTest::whatWasReportedIsNoPartOfAComparison()
{
    TActivationConfig changed(1, ELEMENT_HIDE_NONE);
    changed.SetCurrent(TActivationConfig(2, ELEMENT_HIDE_NONE));
    QVERIFY(!(changed != TActivationConfig(2, ELEMENT_HIDE_NONE)));
}

COMMONUI_TEST(TActivationConfigTest)
#include "TActivationConfigTest.moc"
