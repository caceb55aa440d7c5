#include "TMenuManagerPrivate.h"
#include "TestCase.h"

class TMenuManagerPrivateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hidingAllKeepsTheRootIfItIsToldSo_data();
    void hidingAllKeepsTheRootIfItIsToldSo();
    void anOpenChildStaysAsAShortcutOnly();
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

COMMONUI_TEST(TMenuManagerPrivateTest)
#include "TMenuManagerPrivateTest.moc"
