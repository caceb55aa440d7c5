#include "TObstructionManager.h"
#include "TestCase.h"
#include "TObstruction.h"
#include "TObstructionManagerHelpers.h"

#include <QPointer>
#include <QSignalSpy>
#include <QWidget>

Q_DECLARE_METATYPE(EObstructionSide)

using THelpers = TObstructionManagerHelpers;

namespace
{
QList<int> Sides(QSignalSpy const& spy)
{
    QList<int> sides;
    for (QVariantList const& arguments : spy)
        sides.append(arguments.at(0).value<EObstructionSide>());
    return sides;
}

// A shown surface of 1000 by 700 with one bar at its left edge.
struct TSurface
{
    TSurface()
        : manager(&screen, nullptr)
    {
        screen.resize(1000, 700);
        bar = new QWidget(&screen);
        bar->setGeometry(0, 0, 67, 700);
        screen.show();
    }

    int LeftLimit() { return THelpers::GetObstructionLimitAtSideOf(manager, &screen, OBSTRUCTION_LEFT); }

    QWidget screen;
    QWidget* bar;
    TObstructionManager manager;
};
} // namespace

class TObstructionManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<EObstructionSide>("EObstructionSide"); }

    void aHiddenBarFreesTheLeftLimit()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QCOMPARE(surface.LeftLimit(), 67);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.bar->hide();
        QCOMPARE(surface.LeftLimit(), 0);
        QVERIFY(surface.manager.GetObstructionData().isEmpty());
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_LEFT}));
    }

    void withoutObstructionsTheLimitsAreTheEdges()
    {
        TSurface surface;
        auto const limit = [&](EObstructionSide side)
        { return THelpers::GetObstructionLimitBetween(&surface.screen, {}, side, 0, 100); };
        QCOMPARE(limit(OBSTRUCTION_LEFT), 0);
        QCOMPARE(limit(OBSTRUCTION_TOP), 0);
        QCOMPARE(limit(OBSTRUCTION_RIGHT), 1000);
        QCOMPARE(limit(OBSTRUCTION_BOTTOM), 700);
    }

    void eachSideMovesByItsOwnRule_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("limit");
        QTest::newRow("left") << int(OBSTRUCTION_LEFT) << 301;
        QTest::newRow("right, one further on purpose") << int(OBSTRUCTION_RIGHT) << 201;
        QTest::newRow("top") << int(OBSTRUCTION_TOP) << 401;
        QTest::newRow("bottom, one further on purpose") << int(OBSTRUCTION_BOTTOM) << 101;
    }

    void eachSideMovesByItsOwnRule()
    {
        QFETCH(int, side);
        QFETCH(int, limit);
        TSurface surface;
        auto const edge = static_cast<EObstructionSide>(side);
        TObstructionData const entry{200, 100, 300, 400, edge};
        TObstructionData const other{0, 0, 999, 699, static_cast<EObstructionSide>((side + 1) % 4)};
        QCOMPARE(THelpers::GetObstructionLimitBetween(&surface.screen, {entry, other}, edge, 0, 999), limit);
    }

    void theFurthestOfSeveralEntriesStands()
    {
        TSurface surface;
        QList<TObstructionData> const data{{0, 0, 50, 100, OBSTRUCTION_LEFT},
                                           {0, 0, 80, 100, OBSTRUCTION_LEFT},
                                           {0, 0, 20, 100, OBSTRUCTION_LEFT}};
        QCOMPARE(THelpers::GetObstructionLimitAt(&surface.screen, data, OBSTRUCTION_LEFT, 50), 81);
    }

    void onlyEntriesThatTouchTheSpanCount_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("counts");
        QTest::newRow("before") << 0 << 99 << false;
        QTest::newRow("touching its first pixel") << 0 << 100 << true;
        QTest::newRow("inside") << 120 << 130 << true;
        QTest::newRow("around") << 0 << 699 << true;
        QTest::newRow("touching its last pixel") << 200 << 300 << true;
        QTest::newRow("behind") << 201 << 300 << false;
        QTest::newRow("the wrong way round") << 300 << 150 << true;
    }

    void onlyEntriesThatTouchTheSpanCount()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, counts);
        TSurface surface;
        QList<TObstructionData> const data{{0, 100, 66, 200, OBSTRUCTION_LEFT}};
        QCOMPARE(THelpers::GetObstructionLimitBetween(&surface.screen, data, OBSTRUCTION_LEFT, from, to),
                 counts ? 67 : 0);
        QList<TObstructionData> const across{{100, 0, 200, 66, OBSTRUCTION_TOP}};
        QCOMPARE(THelpers::GetObstructionLimitBetween(&surface.screen, across, OBSTRUCTION_TOP, from, to),
                 counts ? 67 : 0);
    }

    void aWidgetOnTwoSidesGivesTwoSignalsWhenItGoes()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_BOTTOM);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QCOMPARE(surface.manager.GetObstructionCount(), 3);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.RemoveObstruction(surface.bar);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_LEFT, OBSTRUCTION_BOTTOM}));
        QCOMPARE(surface.manager.GetObstructionCount(), 0);
        surface.bar->move(5, 5);
        QCOMPARE(changed.count(), 2);
    }

    void aDeletedWidgetDropsOutWithItsSignal()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_TOP);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        delete surface.bar;
        QCOMPARE(surface.manager.GetObstructionCount(), 0);
        QCOMPARE(Sides(changed).mid(Sides(changed).size() - 2),
                 (QList<int>{OBSTRUCTION_LEFT, OBSTRUCTION_TOP}));
        QCOMPARE(surface.LeftLimit(), 0);
    }

    void everyChangeOfPlaceIsToldEvenWhenNothingMoved()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.bar->move(10, 0);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(surface.LeftLimit(), 77);
        surface.bar->resize(100, 700);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(surface.LeftLimit(), 110);
        surface.bar->hide();
        surface.bar->show();
        QCOMPARE(changed.count(), 4);
        QCOMPARE(surface.LeftLimit(), 110);
    }

    void aWidgetOutsideTheSurfaceCountsWhereItStands()
    {
        TSurface surface;
        QWidget elsewhere;
        elsewhere.resize(400, 400);
        QWidget inner(&elsewhere);
        inner.setGeometry(30, 40, 50, 60);
        elsewhere.show();
        surface.manager.RegisterObstruction(&inner, OBSTRUCTION_LEFT);
        TObstructionData const data = surface.manager.GetObstructionData().constFirst();
        QCOMPARE(data.left, 30);
        QCOMPARE(data.top, 40);
        QCOMPARE(data.right, 79);
        QCOMPARE(data.bottom, 99);
        inner.setParent(&surface.screen);
        inner.move(200, 300);
        inner.show();
        QCOMPARE(surface.LeftLimit(), 250);
    }

    void aNestedWidgetCountsInTheSurfacesCoordinates()
    {
        TSurface surface;
        QWidget holder(&surface.screen);
        holder.setGeometry(100, 100, 300, 300);
        QWidget inner(&holder);
        inner.setGeometry(10, 20, 30, 40);
        holder.show();
        surface.manager.RegisterObstruction(&inner, OBSTRUCTION_LEFT);
        TObstructionData const data = surface.manager.GetObstructionData().constFirst();
        QCOMPARE(QPoint(data.left, data.top), QPoint(110, 120));
        QCOMPARE(surface.LeftLimit(), 140);
    }

    void withUpdatesOffMovesAreNotFollowed()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        surface.manager.SetUpdatesEnabled(surface.bar, false);
        QVERIFY(!surface.manager.GetUpdatesEnabled(surface.bar));
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.bar->resize(300, 700);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(surface.LeftLimit(), 67);
        surface.manager.SetUpdatesEnabled(surface.bar, true);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_LEFT}));
        QCOMPARE(surface.LeftLimit(), 300);
    }

    void switchingOneWidgetIsToldInBothDirections()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_TOP);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.SetUpdatesEnabled(surface.bar, false);
        surface.manager.SetUpdatesEnabled(surface.bar, true);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_TOP, OBSTRUCTION_TOP}));
    }

    void switchingSeveralOnIsToldOnceForEachSide()
    {
        TSurface surface;
        QWidget second(&surface.screen);
        QWidget third(&surface.screen);
        QWidget unknown;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_BOTTOM);
        surface.manager.RegisterObstruction(&second, OBSTRUCTION_LEFT);
        surface.manager.RegisterObstruction(&third, OBSTRUCTION_LEFT);
        std::vector<QWidget*> const all{surface.bar, &unknown, &second, &third, nullptr};
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.SetUpdatesEnabled(all, false);
        QCOMPARE(changed.count(), 0);
        surface.manager.SetUpdatesEnabled(all, true);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_LEFT, OBSTRUCTION_BOTTOM}));
    }

    void switchingOnWhatIsOnSaysNothing()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.SetUpdatesEnabled(std::vector<QWidget*>{surface.bar}, true);
        QCOMPARE(changed.count(), 0);
    }

    void unknownWidgetsAreSkippedInSilence()
    {
        TSurface surface;
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.RegisterObstruction(nullptr, OBSTRUCTION_LEFT);
        surface.manager.RemoveObstruction(nullptr);
        surface.manager.RemoveObstruction(surface.bar);
        surface.manager.SetUpdatesEnabled(surface.bar, false);
        QVERIFY(!surface.manager.GetUpdatesEnabled(surface.bar));
        QCOMPARE(surface.manager.GetObstructionCount(), 0);
        QCOMPARE(changed.count(), 0);
    }

    void theLimitOfASideIsHeldToTheCrossedAxis_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<QRect>("asker");
        QTest::addColumn<int>("limit");
        QTest::newRow("left, held to the height") << int(OBSTRUCTION_LEFT) << QRect(0, 0, 500, 40) << 40;
        QTest::newRow("left, mapped by the y") << int(OBSTRUCTION_LEFT) << QRect(0, 20, 500, 400) << 47;
        QTest::newRow("left, beside the span") << int(OBSTRUCTION_LEFT) << QRect(0, 301, 500, 300) << 0;
        QTest::newRow("right, held to the height") << int(OBSTRUCTION_RIGHT) << QRect(0, 0, 900, 600) << 600;
        QTest::newRow("right, mapped by the y") << int(OBSTRUCTION_RIGHT) << QRect(0, 20, 1000, 740) << 681;
        QTest::newRow("top, held to the width") << int(OBSTRUCTION_TOP) << QRect(0, 0, 30, 700) << 30;
        QTest::newRow("top, mapped by the x") << int(OBSTRUCTION_TOP) << QRect(10, 300, 500, 300) << 41;
        QTest::newRow("top, beside the span") << int(OBSTRUCTION_TOP) << QRect(401, 0, 500, 700) << 0;
        QTest::newRow("bottom, held to the width") << int(OBSTRUCTION_BOTTOM) << QRect(0, 0, 500, 700) << 500;
        QTest::newRow("bottom, mapped by the x") << int(OBSTRUCTION_BOTTOM) << QRect(100, 0, 900, 700) << 501;
    }
    // The axes are crossed on purpose; a widget that is as large as the screen cannot tell.
    void theLimitOfASideIsHeldToTheCrossedAxis()
    {
        QFETCH(int, side);
        QFETCH(QRect, asker);
        QFETCH(int, limit);
        TSurface surface;
        QRect const bars[] = {QRect(0, 0, 67, 301), QRect(700, 0, 300, 700), QRect(0, 0, 401, 51),
                              QRect(0, 600, 1000, 100)};
        surface.bar->setGeometry(bars[side]);
        surface.manager.RegisterObstruction(surface.bar, static_cast<EObstructionSide>(side));
        QWidget widget(&surface.screen);
        widget.setGeometry(asker);
        QCOMPARE(THelpers::GetObstructionLimitAtSideOf(surface.manager, &widget,
                                                       static_cast<EObstructionSide>(side)),
                 limit);
    }

    void mappingConstrainsToTheWidget()
    {
        TSurface surface;
        QWidget inner(&surface.screen);
        inner.setGeometry(100, 50, 200, 80);
        QCOMPARE(THelpers::MapXToGlobal(&inner, 5), 105);
        QCOMPARE(THelpers::MapYToGlobal(&inner, 5), 55);
        QCOMPARE(THelpers::MapXFromGlobalAndConstrain(&inner, 150), 50);
        QCOMPARE(THelpers::MapXFromGlobalAndConstrain(&inner, 20), 0);
        QCOMPARE(THelpers::MapXFromGlobalAndConstrain(&inner, 900), 200);
        QCOMPARE(THelpers::MapYFromGlobalAndConstrain(&inner, 60), 10);
        QCOMPARE(THelpers::MapYFromGlobalAndConstrain(&inner, 0), 0);
        QCOMPARE(THelpers::MapYFromGlobalAndConstrain(&inner, 900), 80);
    }

    void listsAreMappedThereAndBack()
    {
        TSurface surface;
        QWidget inner(&surface.screen);
        inner.setGeometry(100, 50, 200, 80);
        QList<TObstructionData> const list{{110, 60, 120, 70, OBSTRUCTION_RIGHT}};
        QList<TObstructionData> const mapped = THelpers::MapFrom(list, &surface.screen, &inner);
        QCOMPARE(mapped.size(), 1);
        QCOMPARE(QPoint(mapped[0].left, mapped[0].top), QPoint(10, 10));
        QCOMPARE(QPoint(mapped[0].right, mapped[0].bottom), QPoint(20, 20));
        QCOMPARE(mapped[0].side, OBSTRUCTION_RIGHT);
        QList<TObstructionData> const back = THelpers::MapTo(mapped, &inner, &surface.screen);
        QCOMPARE(QPoint(back[0].left, back[0].bottom), QPoint(110, 70));
    }

    void anObstructionMayBeRemovedByTheSlotThatHearsOfIt()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_TOP);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        connect(&surface.manager, &TObstructionManager::ObstructionLimitChanged, surface.bar,
                [&] { surface.manager.RemoveObstruction(surface.bar); });
        surface.bar->move(5, 5);
        QCOMPARE(surface.manager.GetObstructionCount(), 0);
        // The move is told by the one that its filter reached first, then the removal, once for each side.
        QCOMPARE(changed.count(), 3);
    }

    void aWidgetThatChangesItsParentIsTold()
    {
        TSurface surface;
        QWidget elsewhere;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.bar->setParent(&elsewhere);
        QVERIFY(!changed.isEmpty());
        QCOMPARE(surface.LeftLimit(), 0);
    }

    void theSurfaceItselfMayTakeRoom()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(&surface.screen, OBSTRUCTION_TOP);
        TObstructionData const data = surface.manager.GetObstructionData().constFirst();
        QCOMPARE(QRect(QPoint(data.left, data.top), QPoint(data.right, data.bottom)), QRect(0, 0, 1000, 700));
        surface.manager.RemoveObstruction(&surface.screen);
    }

    void anObstructionConsumesNoEvent()
    {
        TSurface surface;
        TObstruction obstruction(&surface.screen, surface.bar, OBSTRUCTION_BOTTOM);
        QCOMPARE(obstruction.GetWidget(), surface.bar);
        QCOMPARE(obstruction.GetSide(), OBSTRUCTION_BOTTOM);
        QCOMPARE(obstruction.GetGeometry(), QRect(0, 0, 67, 700));
        QVERIFY(obstruction.GetUpdatesEnabled());
        QSignalSpy changed(&obstruction, &TObstruction::ObstructionGeomChanged);
        for (QEvent::Type const type : {QEvent::Move, QEvent::Resize, QEvent::Show, QEvent::Hide,
                                        QEvent::ParentChange, QEvent::Enter, QEvent::Paint})
        {
            QEvent event(type);
            QVERIFY(!obstruction.eventFilter(surface.bar, &event));
            QVERIFY(!obstruction.eventFilter(&surface.screen, &event));
        }
        QCOMPARE(changed.count(), 5);
        surface.bar->resize(80, 700);
        obstruction.SetUpdatesEnabled(false);
        obstruction.RefreshGeometryCache(false);
        QCOMPARE(changed.count(), 6);
        surface.bar->resize(90, 700);
        QCOMPARE(obstruction.GetGeometry().width(), 80);
        obstruction.SetUpdatesEnabled(true);
        QCOMPARE(obstruction.GetGeometry().width(), 90);
        QCOMPARE(changed.count(), 6);
    }

    void switchingAWidgetOnTwoSidesTakesTheFirst()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_RIGHT);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QSignalSpy changed(&surface.manager, &TObstructionManager::ObstructionLimitChanged);
        surface.manager.SetUpdatesEnabled(surface.bar, false);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_RIGHT}));
        changed.clear();
        surface.bar->resize(80, 700);
        QCOMPARE(Sides(changed), (QList<int>{OBSTRUCTION_LEFT}));
    }

    void aRemovalIsToldWhenItIsDone()
    {
        TSurface surface;
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_BOTTOM);
        surface.manager.RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        QList<int> counts;
        connect(&surface.manager, &TObstructionManager::ObstructionLimitChanged, this,
                [&] { counts << surface.manager.GetObstructionCount(); });
        surface.manager.RemoveObstruction(surface.bar);
        QCOMPARE(counts, (QList<int>{0, 0}));
    }

    void theManagerMayEndInItsSignal_data()
    {
        QTest::addColumn<QString>("operation");
        for (char const* const operation :
             {"move", "remove", "delete the widget", "switch one", "switch all"})
            QTest::newRow(operation) << operation;
    }

    void theManagerMayEndInItsSignal()
    {
        QFETCH(QString, operation);
        TSurface surface;
        QPointer<TObstructionManager> manager = new TObstructionManager(&surface.screen, nullptr);
        auto* const other = new QWidget(&surface.screen);
        manager->RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        manager->RegisterObstruction(surface.bar, OBSTRUCTION_TOP);
        manager->RegisterObstruction(other, OBSTRUCTION_BOTTOM);
        manager->SetUpdatesEnabled(std::vector<QWidget*>{other}, false);
        if (operation == QLatin1String("switch all"))
            manager->SetUpdatesEnabled(std::vector<QWidget*>{surface.bar, other}, false);
        connect(manager, &TObstructionManager::ObstructionLimitChanged, this, [&] { delete manager.data(); });
        if (operation == QLatin1String("move"))
            surface.bar->move(1, 1);
        else if (operation == QLatin1String("remove"))
            manager->RemoveObstruction(surface.bar);
        else if (operation == QLatin1String("delete the widget"))
            delete surface.bar;
        else if (operation == QLatin1String("switch one"))
            manager->SetUpdatesEnabled(other, true);
        else
            manager->SetUpdatesEnabled(std::vector<QWidget*>{surface.bar, other}, true);
        QVERIFY(!manager);
        other->move(1, 1);
    }

    void theManagerMayGoBeforeItsWidgets()
    {
        TSurface surface;
        auto* const manager = new TObstructionManager(&surface.screen, nullptr);
        manager->RegisterObstruction(surface.bar, OBSTRUCTION_LEFT);
        delete manager;
        surface.bar->move(1, 1);
        QCOMPARE(surface.bar->x(), 1);
    }
};

COMMONUI_TEST(TObstructionManagerTest)
#include "TObstructionManagerTest.moc"
