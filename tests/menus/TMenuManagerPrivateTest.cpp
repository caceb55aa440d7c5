#include "TMenuManagerPrivate.h"
#include "TestCase.h"

class TMenuManagerPrivateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hidingAllKeepsTheRootIfItIsToldSo_data();
    void hidingAllKeepsTheRootIfItIsToldSo();
    void anOpenChildStaysAsAShortcutOnly();
    void elementsAreAskedForOnlyIfMenusMayOpen();
    void elementsAreAskedForAgainIfTheMenusChanged();
};

void TMenuManagerPrivateTest::hidingAllKeepsTheRootIfItIsToldSo_data()
{
    QTest::addColumn<bool>("keepsRoot");
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("kept") << true << QList<int>{1};
    QTest::newRow("hidden") << false << QList<int>{};
}

void TMenuManagerPrivateTest::hidingAllKeepsTheRootIfItIsToldSo()
{
    QFETCH(bool, keepsRoot);
    TMenuManagerPrivate menus(keepsRoot);
    menus.SetRootMenuID(1);
    menus.AddMenu(1);
    menus.AddMenu(2);
    menus.ShowMenu(2, 1, 0, false, false);
    QCOMPARE(menus.GetShownOrder(), (QList<int>{1, 2}));
    menus.HideAll({});
    QTEST(menus.GetShownOrder(), "shown");
    QCOMPARE(menus.IsShown(1), keepsRoot);
}

void TMenuManagerPrivateTest::anOpenChildStaysAsAShortcutOnly()
{
    TMenuManagerPrivate menus(true);
    for (int id = 0; id < 4; ++id)
        menus.AddMenu(id);
    TElementState shortcut(TMMIDef(), TActivationConfig(), QString(), QString(), -1, true, true, true);
    menus.UpdateFromElements({1, QString(), {shortcut}}, {});
    menus.ShowMenu(1, 0, 0, true, true);
    menus.ShowMenu(2, 0, 0, true, true);
    QCOMPARE(menus.GetShownOrder(), (QList<int>{1, 2}));
    menus.ShowMenu(3, 0, 0, true, true);
    QCOMPARE(menus.GetShownOrder(), (QList<int>{1, 3}));
    menus.ShowMenu(2, 0, 0, false, true);
    QCOMPARE(menus.GetShownOrder(), QList<int>{2});
    menus.ShowMenu(1, 0, 0, false, false);
    menus.ShowMenu(2, 0, 0, true, true);
    QCOMPARE(menus.GetShownOrder(), QList<int>{2});
}

void TMenuManagerPrivateTest::elementsAreAskedForOnlyIfMenusMayOpen()
{
    constexpr auto Root = 0;
    TMenuStateCopy root{Root, QString(), {}};
    TMenuStateCopy menu{1, QString(), {}};
    root.elements.emplace_back(TMMIDef(), TActivationConfig(1, ELEMENT_HIDE_NONE), QString(), QString(), -1,
                               true, true, false);
    menu.elements.emplace_back(TMMIDef(), TActivationConfig(), QString(), QString(), -1, true, true, true);
    int asked = 0;
    auto const snapshot = [&](quint64 revision)
    {
        return TMenuSnapshot(
            [&]
            {
                ++asked;
                return TMenuSnapshot::Menus{root, menu};
            },
            revision);
    };
    TMenuManagerPrivate menus(true);
    menus.AddMenu(Root);
    menus.AddMenu(1);
    menus.UpdateFromElements(root, snapshot(1));
    QCOMPARE(asked, 0);
    menus.UpdateFromElements(menu, snapshot(1));
    QVERIFY(menus.IsShown(1));
    QCOMPARE(asked, 1);
    menus.UpdateFromElements(menu, snapshot(1));
    QCOMPARE(asked, 2); // now it is seen that no other opens
    menus.UpdateFromElements(menu, snapshot(1));
    menus.UpdateFromElements(root, snapshot(1));
    QCOMPARE(asked, 2);
    menus.UpdateFromElements(root, snapshot(2));
    QCOMPARE(asked, 3);
    menus.UpdateFromElements(root, TMenuSnapshot::Menus{root, menu});
    menus.HideAll(snapshot(2));
    QCOMPARE(asked, 4);
    QVERIFY(menus.IsShown(1));
    menus.HideMenu(1, true, snapshot(2));
    QCOMPARE(asked, 5);
    menus.UpdateFromElements(root, snapshot(3));
    QCOMPARE(asked, 5); // closed by the operator
    QVERIFY(!menus.IsShown(1));
}

void TMenuManagerPrivateTest::elementsAreAskedForAgainIfTheMenusChanged()
{
    TElementState const shortcut(TMMIDef(), TActivationConfig(), QString(), QString(), -1, true, true, true);
    int asked = 0;
    TMenuManagerPrivate menus(true);
    auto const look = [&](TMenuStateCopy const& menu)
    {
        asked = 0;
        menus.UpdateFromElements(menu, TMenuSnapshot(
                                           [&]
                                           {
                                               ++asked;
                                               return TMenuSnapshot::Menus();
                                           },
                                           1));
        return asked;
    };
    menus.AddMenu(1);
    menus.AddMenu(2);
    QCOMPARE(look({1, QString(), {shortcut}}), 1);
    QCOMPARE(look({1, QString(), {shortcut}}), 0);
    QCOMPARE(look({2, QString(), {shortcut}}), 1);
    QCOMPARE(look({2, QString(), {shortcut}}), 0);
    menus.AddMenu(3);
    QCOMPARE(look({2, QString(), {shortcut}}), 1);
    menus.RemoveMenu(3, {});
    QCOMPARE(look({2, QString(), {shortcut}}), 1);
    menus.ForceToShortcut(1, {});
    QCOMPARE(look({2, QString(), {shortcut}}), 1);
    QCOMPARE(look({2, QString(), {shortcut}}), 0);
}

COMMONUI_TEST(TMenuManagerPrivateTest)
#include "TMenuManagerPrivateTest.moc"
