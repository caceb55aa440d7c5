#include "Metrics.h"
#include "ModuleIds.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TFullViewSideToolBar.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TSystemToolBarButton.h"
#include "TViewStage.h"

#include <QSignalSpy>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;

namespace
{
constexpr int FullOnly = VIEW_CANVAS | VIEW_FULL;

// A bar that notes the limits it is told.
class TNotingBar : public TSystemToolBar
{
public:
    explicit TNotingBar(QWidget* parent)
        : TSystemToolBar(parent)
    {
        AssignButton(1, QStringLiteral("icon-usb"), QString(), QString());
    }
    void SetMaxButtonsVisible(int count) override { m_Limits.append(count); }

    QList<int> m_Limits;
};

/// A screen with a bar of one button that nobody has shown yet.
struct TBarsStage : TViewStage
{
    TBarsStage()
        : bar(new TNotingBar(screen.get()))
    {
        screen->SetSystemToolBar(bar);
    }

    TWindow* Window(bool alarm = false)
    {
        auto* const window = new TWindow(screen.get());
        Own(window);
        window->setFixedSize(200, 100);
        if (alarm)
            screen->SetAlarmWidget(window);
        window->ShowWindow(false);
        return window;
    }
    void Lock(QWidget* window, int modalType)
    {
        screen->AddLockingWidget({window, QString(), modalType, {}});
    }
    bool IsInTheCorner() const { return bar->geometry() == QRect(952, 684, 72, 84); }
    int BottomObstructions() const
    {
        auto const data = screen->GetObstructionManager()->GetObstructionData();
        return int(std::count_if(data.begin(), data.end(),
                                 [](TObstructionData const& obstruction)
                                 { return obstruction.side == OBSTRUCTION_BOTTOM; }));
    }
    TScreenLayers Layers() const { return TScreenLayers(*screen.get()); }

    QPointer<TNotingBar> bar;
};

QString SetupName()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString();
}
} // namespace

/// The screen's part in its bars.
class TScreenBarsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSystemToolBarStandsInTheCorner()
    {
        TBarsStage stage;
        QCOMPARE(stage.screen->GetSystemToolBar(), stage.bar.data());
        QCOMPARE(stage.bar->parentWidget(), stage.screen.get());
        QVERIFY(stage.bar->isVisible());
        QVERIFY(stage.IsInTheCorner());
        QCOMPARE(stage.screen->GetSystemToolBarWidth(), 72);
        QCOMPARE(stage.screen->GetSystemToolBarHeight(), 84);
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 952, 768));
        QCOMPARE(stage.BottomObstructions(), 1);
        stage.screen->SetSystemToolBar(stage.bar);
        QCOMPARE(stage.BottomObstructions(), 1);
        QCOMPARE(stage.screen->GetObstructionManager()->GetObstructionCount(), 2); // with the navigation bar
    }

    void aBarFromElsewhereBecomesTheScreens()
    {
        TBarsStage stage;
        QWidget elsewhere;
        auto* const other = new TNotingBar(&elsewhere);
        stage.screen->SetSystemToolBar(other);
        QCOMPARE(other->parentWidget(), stage.screen.get());
        QVERIFY(other->isVisible());
        QCOMPARE(other->geometry(), QRect(952, 684, 72, 84));
    }

    void aBarThatIsLetGoByItsOwnNewsStaysAway()
    {
        TBarsStage stage;
        stage.screen->ShowSystemToolbar(true);
        connect(stage.screen.get(), &TScreen::SystemToolbarGeometryChanged, stage.screen.get(),
                [&] { stage.screen->SetSystemToolBar(nullptr); });
        stage.bar->AssignButton(2, QStringLiteral("icon-usb"), QString(), QString());
        QVERIFY(!stage.screen->GetSystemToolBar());
        QVERIFY(stage.bar->isHidden());
    }

    void theBarBeforeIsLetGo()
    {
        TBarsStage stage;
        auto* const other = new TNotingBar(stage.screen.get());
        stage.screen->SetSystemToolBar(other);
        stage.manager->ShowSystemToolbar(true);
        QVERIFY(stage.bar->isHidden() && other->isVisible());
        QCOMPARE(stage.BottomObstructions(), 1);
        QCOMPARE(stage.screen->GetObstructionManager()->GetObstructionCount(), 2);
        QSignalSpy const told(stage.screen.get(), &TScreen::SystemToolbarGeometryChanged);
        stage.bar->show();
        stage.bar->move(0, 0);
        QCOMPARE(told.count(), 0);
        QCOMPARE(stage.bar->pos(), QPoint(0, 0));
        stage.screen->SetSystemToolBar(nullptr);
        QVERIFY(other->isHidden());
        QCOMPARE(stage.BottomObstructions(), 0);
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024, 768));
        stage.manager->ShowSystemToolbar(true);
        QVERIFY(other->isHidden());
    }

    void nobodyMeetsABarThatDies()
    {
        TBarsStage stage;
        QVector<TSystemToolBar*> met;
        connect(stage.screen->GetObstructionManager(), &TObstructionManager::ObstructionLimitChanged,
                stage.screen.get(), [&] { met.append(stage.screen->GetSystemToolBar()); });
        delete stage.bar.data();
        QVERIFY(!met.isEmpty());
        QCOMPARE(met.count(nullptr), met.size());
        QCOMPARE(stage.BottomObstructions(), 0);
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024, 768));
    }

    void aHiddenBarTakesNoRoom()
    {
        TBarsStage stage;
        stage.screen->ShowSystemToolbar(false);
        QVERIFY(stage.bar->isHidden());
        QCOMPARE(stage.screen->GetSystemToolBarWidth(), 0);
        QCOMPARE(stage.screen->GetSystemToolBarHeight(), 0);
        QCOMPARE(stage.screen->GetSystemToolBarWidthWithoutVisibilityCheck(), 72);
        QCOMPARE(stage.screen->GetSystemToolBarHeightWithoutVisibilityCheck(), 84);
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024, 768));
        stage.screen->ShowSystemToolbar(true);
        QVERIFY(stage.bar->isVisible());
        QVERIFY(stage.IsInTheCorner());
    }

    void aWantedBarComesBackToItsCorner()
    {
        TBarsStage stage;
        QSignalSpy const told(stage.screen.get(), &TScreen::SystemToolbarGeometryChanged);
        stage.bar->move(300, 300);
        QCOMPARE(stage.bar->pos(), QPoint(300, 300));
        QCOMPARE(told.count(), 0);
        stage.screen->ShowSystemToolbar(true);
        QVERIFY(stage.IsInTheCorner());
        int const before = told.count();
        stage.bar->move(300, 300);
        QVERIFY(stage.IsInTheCorner());
        QVERIFY(told.count() > before);
        stage.screen->ShowSystemToolbar(false);
        int const shown = told.count();
        stage.bar->move(300, 300);
        stage.screen->OnSystemToolBarGeometryChanged();
        QCOMPARE(told.count(), shown);
        QVERIFY(stage.bar->isHidden());
    }

    void aBarThatGrowsStaysInTheCorner()
    {
        TBarsStage stage;
        for (bool const wanted : {false, true})
        {
            if (wanted)
                stage.screen->ShowSystemToolbar(true);
            stage.bar->AssignButton(wanted ? 3 : 2, QString(), QString(), QString());
            QCOMPARE(stage.bar->geometry().bottomRight(), QPoint(1023, 767));
        }
        QCOMPARE(stage.bar->height(), 272);
    }

    void theScreenHandsButtonsToItsBar()
    {
        TBarsStage stage;
        auto* const button = new TSystemToolBarButton(nullptr);
        stage.Own(button);
        stage.screen->AddSystemToolBarButton(button);
        QCOMPARE(button->parentWidget(), stage.bar.data());
        QCOMPARE(stage.bar->GetNumberOfVisibleButtons(), 2);
        stage.screen->SetSystemToolBarButtonVisible(button, false);
        QCOMPARE(stage.bar->GetNumberOfVisibleButtons(), 1);
        stage.screen->SetSystemToolBarButtonVisible(button, true);
        QCOMPARE(stage.bar->GetNumberOfVisibleButtons(), 2);
        stage.screen->LimitVisibleSystemToolBarButtons(4);
        QCOMPARE(stage.bar->m_Limits, QList<int>{4});
        stage.screen->RemoveSystemToolBarButton(button);
        QVERIFY(!button->parentWidget());
        QCOMPARE(stage.bar->GetNumberOfButtons(), 1);
    }

    void withoutABarNothingHappens()
    {
        TBarsStage stage;
        TSystemToolBarButton button(nullptr);
        delete stage.bar;
        QVERIFY(!stage.screen->GetSystemToolBar());
        stage.screen->AddSystemToolBarButton(&button);
        stage.screen->SetSystemToolBarButtonVisible(&button, true);
        stage.screen->RemoveSystemToolBarButton(&button);
        stage.screen->LimitVisibleSystemToolBarButtons(2);
        stage.screen->ShowSystemToolbar(true);
        stage.screen->ShowSystemToolbar(false);
        stage.screen->OnSystemToolBarGeometryChanged();
        QVERIFY(!button.parentWidget() && button.isHidden());
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024, 768));
    }

    void aBarThatComesWhileItIsWantedIsFollowedAtOnce()
    {
        TViewStage stage;
        stage.screen->ShowSystemToolbar(true);
        auto* const bar = new TNotingBar(stage.screen.get());
        stage.screen->SetSystemToolBar(bar);
        QSignalSpy const told(stage.screen.get(), &TScreen::SystemToolbarGeometryChanged);
        bar->AssignButton(2, QString(), QString(), QString());
        QVERIFY(told.count() > 0);
        QCOMPARE(bar->geometry(), QRect(952, 590, 72, 178));
    }

    // Views

    void fullViewsBringTheBar()
    {
        TBarsStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        stage.screen->ShowSystemToolbar(false);
        stage.manager->DisplayFullView(view.id, false);
        QVERIFY(stage.bar->isVisible());
    }

    void aFullViewThatCannotBeShownLeavesTheBarAlone()
    {
        TBarsStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_MINI);
        stage.screen->ShowSystemToolbar(false);
        stage.manager->DisplayFullView(view.id, false);
        QVERIFY(stage.bar->isHidden());
        QVERIFY(stage.bar->m_Limits.isEmpty());
    }

    void theSetupTakesTheBarAndGivesItBack_data()
    {
        QTest::addColumn<int>("parts");
        QTest::newRow("with a window") << FullOnly;
        QTest::newRow("with a canvas alone") << int(VIEW_CANVAS);
    }

    void theSetupTakesTheBarAndGivesItBack()
    {
        QFETCH(int, parts);
        TBarsStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const setup = stage.Add(SetupName(), parts);
        stage.manager->DisplayFullView(view.id, false);
        stage.manager->OnShowSetup(setup.id);
        QVERIFY(stage.bar->isHidden());
        if (setup.full)
            setup.full->HideWindow();
        else
            stage.manager->OnRestoreLastView();
        QVERIFY(stage.bar->isVisible());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theWayBackBringsTheBarBeforeTheWindow()
    {
        TBarsStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.manager->DisplayFullView(view.id, false);
        stage.manager->OnShowSetup(setup.id);
        bool wasThere = false;
        connect(view.full, &TWindow::WindowShown, this, [&] { wasThere = stage.bar->isVisible(); });
        setup.full->HideWindow();
        QVERIFY(wasThere);
    }

    void theBarComesBackWithoutAnyView()
    {
        TBarsStage stage;
        stage.screen->ShowSystemToolbar(false);
        stage.manager->OnRestoreLastView();
        QVERIFY(stage.bar->isVisible());
    }

    void aSwitchedViewHidesTheBarBeforeItShows()
    {
        TBarsStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const view = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->SetDefaultView(base.name);
        bool wasThere = true;
        connect(view.full, &TWindow::WindowShown, this, [&] { wasThere = stage.bar->isVisible(); });
        stage.manager->OnSwitchToView(view.id);
        QVERIFY(!wasThere && stage.bar->isHidden());
        stage.manager->OnSwitchToView(base.id);
        QVERIFY(stage.bar->isVisible());
    }

    void twoModulesLimitTheBar_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("limit");
        for (int module = 0; module < WELL_KNOWN_MODULE_COUNT; ++module)
        {
            bool const isLimited = module == 25 || module == 27;
            QTest::addRow("module %d", module)
                << KVN::MorvaneID(WELL_KNOWN_MODULES[size_t(module)]).ToString() << (isLimited ? 2 : -1);
        }
        QTest::newRow("no module") << QStringLiteral("a") << -1;
    }

    void twoModulesLimitTheBar()
    {
        QFETCH(QString, name);
        QFETCH(int, limit);
        TBarsStage stage;
        TTestView const view = stage.Add(name, FullOnly);
        TTestView const other = stage.Add(QStringLiteral("other"), VIEW_ALL);
        stage.manager->DisplayFullView(view.id, false);
        QCOMPARE(stage.bar->m_Limits, QList<int>{limit});
        stage.manager->DisplayFullView(other.id, false);
        QCOMPARE(stage.bar->m_Limits, (QList<int>{limit, -1}));
        stage.manager->SetLastFullViewId(view.id);
        stage.manager->OnRestoreLastView();
        // The setup is not a view to go back to.
        int const restored = name == SetupName() ? 2 : 3;
        QCOMPARE(stage.bar->m_Limits, (QList<int>{limit, -1, limit}).mid(0, restored));
        stage.manager->SystemToolBarChecks(-1);
        stage.manager->SystemToolBarChecks(999);
        QCOMPARE(stage.bar->m_Limits.size(), restored);
    }

    void aSideToolBarEndsAboveTheBar()
    {
        TBarsStage stage;
        TFullViewSideToolBar side(stage.screen.get(), true, false);
        side.show();
        QCOMPARE(side.height(), SCREEN_HEIGHT - FULL_WINDOW_TITLEBAR_HEIGHT - 84);
        side.hide();
        stage.screen->ShowSystemToolbar(false);
        side.show();
        QCOMPARE(side.height(), SCREEN_HEIGHT - FULL_WINDOW_TITLEBAR_HEIGHT);
    }

    // Layers

    void theBarStandsAboveViewsAndWindows()
    {
        TBarsStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        TWindow* const window = stage.Window();
        TWindow* const alarm = stage.Window(true);
        stage.manager->DisplayFullView(view.id, false);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsAbove(stage.bar, window));
        QVERIFY(stage.Layers().IsAbove(stage.bar, view.mini));
        QVERIFY(stage.Layers().IsAbove(stage.bar, stage.screen->GetNavigationBar()));
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, stage.bar));
    }

    void whatIsRaisedBelowTheBarIsDirectlyBelowIt()
    {
        TBarsStage stage;
        TWindow* const low = stage.Window();
        TWindow* const high = stage.Window();
        stage.screen->RaiseToBelowSystemToolbar(high);
        stage.screen->RaiseToBelowSystemToolbar(low);
        QVERIFY(stage.Layers().IsDirectlyAbove(stage.bar, low));
        QVERIFY(stage.Layers().IsAbove(low, high));
    }

    void aGlobalLockPutsTheBarBehindTheFade()
    {
        TBarsStage stage;
        TWindow* const window = stage.Window();
        stage.Lock(window, MODAL_GLOBAL);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsAbove(stage.screen->GetModalWidget(), stage.bar));
        stage.screen->UnLockSystemToolbar();
        QVERIFY(stage.Layers().IsAbove(stage.screen->GetModalWidget(), stage.bar));
        stage.screen->RemoveLockingWidget(window);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsAbove(stage.bar, window));
    }

    void aLocalLockLeavesTheBarFree()
    {
        TBarsStage stage;
        TWindow* const window = stage.Window();
        TWindow* const alarm = stage.Window(true);
        stage.Lock(window, MODAL_LOCAL);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsDirectlyAbove(stage.bar, window));
        QVERIFY(stage.Layers().IsDirectlyAbove(window, stage.screen->GetModalWidget()));
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, stage.bar));
        QVERIFY(stage.Layers().IsAbove(stage.screen->GetModalWidget(), stage.screen->GetNavigationBar()));
    }

    void withTwoGlobalLocksTheBarGoesUnderTheFirst()
    {
        TBarsStage stage;
        TWindow* const first = stage.Window();
        TWindow* const second = stage.Window();
        stage.Lock(first, MODAL_GLOBAL);
        stage.Lock(second, MODAL_LOCAL);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsAbove(first, stage.bar));
        QVERIFY(stage.Layers().IsAbove(stage.screen->GetModalWidget(), first));
    }

    void aBarThatComesUnderALockGoesToItsLayer()
    {
        TBarsStage stage;
        stage.screen->SetSystemToolBar(nullptr);
        stage.Lock(stage.Window(), MODAL_GLOBAL);
        stage.screen->SetSystemToolBar(stage.bar);
        VERIFY_LAYERS(*stage.screen.get());
    }
};

COMMONUI_TEST(TScreenBarsTest)
#include "TScreenBarsTest.moc"
