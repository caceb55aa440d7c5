#include "TShortcutPool.h"
#include "TestCase.h"

namespace
{
TElementState Element(int id, bool shortcut)
{
    TElementState element(TMMIDef(), TActivationConfig(), QStringLiteral("E%1").arg(id), QString(), 0, true,
                          true, shortcut);
    element.SetID(id);
    return element;
}

QList<int> IDs(TShortcutPool const& pool)
{
    QList<int> ids;
    for (TElementState const& element : pool.GetCurrentShortcuts())
        ids << element.GetID();
    return ids;
}

QList<int> Menus(TShortcutPool const& pool)
{
    std::vector<int> const menus = pool.GetCurrentMenus();
    return QList<int>(menus.begin(), menus.end());
}
} // namespace

class TShortcutPoolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshPoolHasNoShortcuts()
    {
        TShortcutPool const pool;
        QVERIFY(pool.GetCurrentShortcuts().empty());
        QVERIFY(pool.GetCurrentMenus().empty());
    }

    void onlyElementsWithTheShortcutFlagAreKept()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(3, {Element(4, true), Element(1, false), Element(2, true)});
        QCOMPARE(IDs(pool), (QList<int>{4, 2}));
        QCOMPARE(Menus(pool), (QList<int>{3, 3}));
    }

    void aShortcutThatIsNotVisibleIsKept()
    {
        TElementState hidden = Element(7, true);
        hidden.SetVisible(false);
        TShortcutPool pool;
        pool.UpdateFromMenuState(0, {hidden});
        QCOMPARE(IDs(pool), QList<int>{7});
    }

    void menusFollowEachOtherInTheOrderOfTheirFirstReport()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(9, {Element(0, true)});
        pool.UpdateFromMenuState(2, {Element(1, true)});
        pool.UpdateFromMenuState(5, {Element(2, true)});
        QCOMPARE(Menus(pool), (QList<int>{9, 2, 5}));
    }

    void aMenuReportedTwiceKeepsItsPlace()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(9, {Element(0, true)});
        pool.UpdateFromMenuState(2, {Element(1, true)});
        pool.UpdateFromMenuState(9, {Element(5, true), Element(6, true)});
        QCOMPARE(Menus(pool), (QList<int>{9, 9, 2}));
        QCOMPARE(IDs(pool), (QList<int>{5, 6, 1}));
    }

    void aMenuWhoseElementsLostTheFlagAddsNothingAndKeepsItsPlace()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(9, {Element(0, true)});
        pool.UpdateFromMenuState(2, {Element(1, true)});
        pool.UpdateFromMenuState(9, {Element(0, false)});
        QCOMPARE(IDs(pool), QList<int>{1});
        pool.UpdateFromMenuState(9, {Element(0, true)});
        QCOMPARE(Menus(pool), (QList<int>{9, 2}));
    }

    void aRemovedMenuThatComesBackStandsLast()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(9, {Element(0, true)});
        pool.UpdateFromMenuState(2, {Element(1, true)});
        pool.RemoveMenu(9);
        QCOMPARE(Menus(pool), QList<int>{2});
        pool.UpdateFromMenuState(9, {Element(0, true)});
        QCOMPARE(Menus(pool), (QList<int>{2, 9}));
    }

    void removingAnUnknownMenuChangesNothing()
    {
        TShortcutPool pool;
        pool.UpdateFromMenuState(2, {Element(1, true)});
        pool.RemoveMenu(-1);
        pool.RemoveMenu(3);
        QCOMPARE(Menus(pool), QList<int>{2});
    }
};

COMMONUI_TEST(TShortcutPoolTest)
#include "TShortcutPoolTest.moc"
