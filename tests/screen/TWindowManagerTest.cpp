#include "TWindowManager.h"
#include "CommonUI.h"
#include "ModuleIds.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TMiniWindowTitlebar.h"
#include "TMMICapableWidgetNavigator.h"
#include "TViewStage.h"

#include <QLabel>
#include <QSignalSpy>

#include <climits>

namespace
{
constexpr int SlotHeight = 256;
constexpr int BehindBarX = 67 - 256;
constexpr int InSlotX = 67;

// The shadows of the views in the order of their registration, right before bottom.
QList<QLabel*> Shadows(TViewStage const& stage)
{
    return stage.screen->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

int Height(TViewStage const& stage, QWidget* widget)
{
    return stage.screen->children().indexOf(widget);
}

bool IsTransparent(QWidget const* widget)
{
    return widget->testAttribute(Qt::WA_TransparentForMouseEvents);
}

TPushButton* HideButton(TMiniWindow* mini)
{
    return mini->findChild<TMiniWindowTitlebar*>()->GetHideButton();
}

QString SetupName()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString();
}

// The manager's state in one line: full view, slots, mini states and what is visible of each view.
QString Picture(TViewStage const& stage, QList<TTestView> const& views)
{
    QString text = QStringLiteral("full %1, slots %2").arg(stage.manager->GetFullViewId()).arg(stage.Slots());
    for (TTestView const& view : views)
    {
        text += QStringLiteral(", %1:%2").arg(view.name).arg(stage.State(view));
        text += view.mini && view.mini->isVisible() ? QLatin1String("m") : QLatin1String("");
        text += view.full && view.full->isVisible() ? QLatin1String("f") : QLatin1String("");
        text += view.canvas && view.canvas->isVisible() ? QLatin1String("c") : QLatin1String("");
    }
    return text;
}
} // namespace

class TWindowManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void idsThatNobodyHasAreIgnored_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("minus one") << -1;
        QTest::newRow("the least") << INT_MIN;
        QTest::newRow("unknown") << 99;
        QTest::newRow("the greatest") << INT_MAX;
    }

    void idsThatNobodyHasAreIgnored()
    {
        QFETCH(int, id);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        QString const before = Picture(stage, {view});
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        TWindowManager& manager = *stage.manager;
        manager.RemoveView(id);
        manager.DisplayView(id, true);
        manager.DisplayView(id, false);
        manager.DisplayFullView(id, true);
        manager.DisplayMiniView(0, id);
        QCOMPARE(manager.GetMiniViewDisplaySlot(id), -1);
        manager.MoveMiniWindow(id, 1, 2);
        manager.ShowMiniWindow(id);
        manager.HideMiniWindow(id);
        manager.MiniWindowStackUnder(id, stage.screen->GetNavigationBar());
        manager.MiniViewSafeRaise(id);
        QVERIFY(!manager.IsMiniViewObscured(id));
        manager.OnDraggedOffRight(id);
        manager.OnShowMiniView(id);
        manager.OnHideMiniView(id, true);
        manager.OnMaximizeMiniView(id);
        manager.OnSlideMiniViewUp(id, 5);
        manager.OnSlideMiniViewDown(id, 5);
        manager.OnMiniViewDoneDrag(id, 5);
        manager.OnMiniViewHideComplete(id);
        manager.OnShowSetup(id);
        manager.OnSwitchToView(id);
        manager.OnActionButton(id);
        QCOMPARE(manager.GetMiniViewState(id), MINI_VIEW_HIDDEN);
        QCOMPARE(Picture(stage, {view}), before);
        QCOMPARE(moved.count(), 0);
        QVERIFY(stage.screen->m_Recorder.m_Sounds.isEmpty());
        QVERIFY(stage.calls.isEmpty());
    }

    void aNegativeIdIsNotRegistered()
    {
        TViewStage stage;
        TTestView view = stage.Make(QStringLiteral("a"), VIEW_ALL);
        stage.Register(view, -1);
        QCOMPARE(view.mini->GetViewId(), -1);
        QVERIFY(Shadows(stage).isEmpty());
        stage.manager->SetDefaultView(view.name);
        QCOMPARE(stage.manager->GetFullViewId(), -1);
    }

    void registeringTellsTheMiniWindowOfAFullView_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("hasFullView");
        QTest::newRow("mini only") << int(VIEW_MINI) << false;
        QTest::newRow("with canvas") << int(VIEW_MINI | VIEW_CANVAS) << true;
        QTest::newRow("with full window") << int(VIEW_MINI | VIEW_FULL) << true;
        QTest::newRow("with both") << int(VIEW_ALL) << true;
    }

    void registeringTellsTheMiniWindowOfAFullView()
    {
        QFETCH(int, parts);
        QFETCH(bool, hasFullView);
        TViewStage stage;
        TTestView view = stage.Make(QStringLiteral("a"), parts);
        if (view.mini)
            view.mini->SetFullView(!hasFullView);
        stage.Register(view, 4);
        QCOMPARE(view.mini->GetViewId(), 4);
        QCOMPARE(view.mini->IsFullViewAvailable(), hasFullView);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
        QVERIFY(!view.mini->isVisible());
        // Its wish to be maximised is heard only where there is something to show.
        view.mini->OnMaximize();
        QCOMPARE(stage.manager->GetFullViewId(), hasFullView ? 4 : -1);
    }

    void registeringMakesTheShadows()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        QList<QLabel*> const shadows = Shadows(stage);
        QCOMPARE(shadows.size(), 2);
        QCOMPARE(shadows[0]->size(), QSize(7, 263));
        QCOMPARE(shadows[1]->size(), QSize(268, 7));
        KVN::PixmapManager* const art = stage.screen->GetPixmapManager();
        QCOMPARE(shadows[0]->pixmap(Qt::ReturnByValue).toImage(),
                 art->GetResizedPixmap(PixmapNames::MiniWindowRightShadow, 7, 263)->toImage());
        QCOMPARE(shadows[1]->pixmap(Qt::ReturnByValue).toImage(),
                 art->GetResizedPixmap(PixmapNames::MiniWindowBottomShadow, 268, 7)->toImage());
        for (QLabel const* const shadow : shadows)
        {
            QVERIFY(!shadow->isVisible());
            QVERIFY(IsTransparent(shadow));
        }
        stage.Add(QStringLiteral("b"), VIEW_CANVAS | VIEW_FULL);
        QCOMPARE(Shadows(stage).size(), 2);
    }

    void aMiniWindowObstructsTheLeft()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        TObstructionManager* const obstructions = stage.screen->GetObstructionManager();
        bool found = false;
        QList<TObstructionData> const all = obstructions->GetObstructionData();
        for (TObstructionData const& data : all)
            found = found || (data.left == InSlotX && data.top == 0 && data.right == InSlotX + 267 &&
                              data.bottom == 255 && data.side == OBSTRUCTION_LEFT);
        QVERIFY(found);
        int const count = obstructions->GetObstructionCount();
        stage.manager->RemoveView(view.id);
        QCOMPARE(obstructions->GetObstructionCount(), count - 1);
    }

    void theCanvasGetsTheFullWindow()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_CANVAS | VIEW_FULL);
        QCOMPARE(view.full->parentWidget(), view.canvas.data());
        QVERIFY(!view.full->isVisible());
        QCOMPARE(stage.manager->GetFullViewId(), -1);
    }

    void ofOneNameTheLatestViewStands()
    {
        TViewStage stage;
        stage.Add(QStringLiteral("a"), VIEW_CANVAS | VIEW_FULL);
        TTestView const second = stage.Add(QStringLiteral("a"), VIEW_CANVAS | VIEW_FULL);
        stage.manager->SetDefaultView(QStringLiteral("a"));
        QCOMPARE(stage.manager->GetFullViewId(), second.id);
        QVERIFY(second.full->isVisible());
        // The name goes with the view that has it.
        stage.manager->RemoveView(second.id);
        stage.manager->SetDefaultView(QStringLiteral("a"));
        QCOMPARE(stage.manager->GetFullViewId(), -1);
    }

    void aNewViewTakesOverAKnownId()
    {
        TViewStage stage;
        TTestView const first = stage.AddStanding(QStringLiteral("a"));
        TTestView second = stage.Make(QStringLiteral("b"), VIEW_MINI);
        stage.Register(second, first.id);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!first.mini->isVisible());
        QCOMPARE(Shadows(stage).size(), 2);
        stage.manager->OnShowMiniView(second.id);
        stage.screen.FinishSlides();
        QVERIFY(second.mini->isVisible());
        // The old window is not heard any more.
        first.mini->OnHide();
        QCOMPARE(stage.State(second), MINI_VIEW_SHOWN);
        delete first.mini;
        QCOMPARE(Picture(stage, {second}), QStringLiteral("full -1, slots 1||, b:1m"));
    }

    void registeringTwiceConnectsOnce()
    {
        TViewStage stage;
        TTestView view = stage.Make(QStringLiteral("a"), VIEW_ALL);
        TNavigationButton button(stage.screen->GetNavigationBar(), 1);
        for (int i = 0; i < 2; ++i)
            stage.manager->RegisterView(view.name, 1, &button, view.mini, view.canvas, view.full,
                                        WIDGET_BEHAVIOUR_SINGLE, -1, false);
        view.id = 1;
        QCOMPARE(Shadows(stage).size(), 2);
        button.click();
        stage.screen.FinishSlides();
        QCOMPARE(stage.State(view), MINI_VIEW_SHOWN);
        Q_EMIT button.DraggedOffRight(1);
        QCOMPARE(stage.calls, (QStringList{"a maximise", "a show"}));
    }

    // A mistake of a module that must not end the console.
    void oneWindowInTwoViewsBreaksNothing()
    {
        TViewStage stage;
        TTestView first = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView second = first;
        second.name = QStringLiteral("b");
        stage.Register(first, 1);
        stage.Register(second, 2);
        QCOMPARE(first.mini->GetViewId(), 2);
        stage.manager->OnShowMiniView(1);
        stage.manager->OnShowMiniView(2);
        stage.screen.FinishSlides();
        stage.manager->OnUpdateScreen();
        stage.manager->RemoveView(1);
        stage.screen.FinishSlides();
        delete first.mini;
        stage.manager->OnShowMiniView(2);
        stage.manager->OnUpdateScreen();
        stage.manager->RemoveView(2);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(Shadows(stage).isEmpty());
    }

    void theWindowsSignalsReachTheManager()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        Q_EMIT view.mini->MiniWindowSlideUp(1, 40);
        QCOMPARE(view.mini->pos(), QPoint(InSlotX, 40));
        Q_EMIT view.mini->MiniWindowSlideDown(1, 700);
        QCOMPARE(view.mini->pos(), QPoint(InSlotX, 700 - SlotHeight));
        Q_EMIT view.mini->MiniWindowDoneDrag(1, 700);
        QCOMPARE(stage.State(view), MINI_VIEW_SETTLING_DOWN);
        stage.screen.FinishSlides();
        Q_EMIT view.mini->MiniWindowHide(1, false);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDING);
        stage.screen.FinishSlides();
        QVERIFY(view.mini->isVisible());
        Q_EMIT view.mini->MiniWindowHideComplete(1);
        QVERIFY(!view.mini->isVisible());
        Q_EMIT view.mini->MiniWindowMaximize(1);
        QCOMPARE(stage.manager->GetFullViewId(), 1);
    }

    // Removing

    void removingFreesTheSlot()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->RemoveView(view.id);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(Shadows(stage).isEmpty());
        QVERIFY(view.mini);
        QVERIFY(!view.mini->isVisible());
        view.mini->OnHide();
        stage.manager->RemoveView(view.id);
        TTestView const next = stage.AddStanding(QStringLiteral("b"));
        QCOMPARE(stage.Slots(), QStringLiteral("2||"));
        QCOMPARE(stage.State(next), MINI_VIEW_SHOWN);
    }

    void removingAViewInTheMiddleOfASlide_data()
    {
        QTest::addColumn<int>("ms");
        QTest::newRow("start") << 0;
        QTest::newRow("middle") << 80;
        QTest::newRow("end") << 160;
    }

    void removingAViewInTheMiddleOfASlide()
    {
        QFETCH(int, ms);
        TViewStage stage;
        TTestView view = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        stage.screen.Frame(ms);
        stage.manager->RemoveView(view.id);
        QVERIFY(!view.mini->isVisible());
        QVERIFY(!IsTransparent(view.mini));
        stage.screen.FinishSlides();
        // It may come back.
        stage.Register(view, view.id);
        stage.manager->OnShowMiniView(view.id);
        stage.screen.FinishSlides();
        QCOMPARE(Picture(stage, {view}), QStringLiteral("full -1, slots 1||, a:1m"));
    }

    void theViewBeforeARemovedOneComesBack()
    {
        TViewStage stage;
        TTestView const first = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const second = stage.Add(QStringLiteral("b"), VIEW_ALL);
        stage.manager->DisplayFullView(first.id, false);
        stage.manager->DisplayFullView(second.id, false);
        stage.manager->RemoveView(second.id);
        QCOMPARE(Picture(stage, {first, second}), QStringLiteral("full 1, slots ||, a:3fc, b:3"));
        QCOMPARE(stage.screen->GetCurrentCanvas(), first.canvas.data());
    }

    void theDefaultViewComesForARemovedOne()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), VIEW_CANVAS | VIEW_FULL);
        TTestView const second = stage.Add(QStringLiteral("b"), VIEW_ALL);
        TTestView const third = stage.Add(QStringLiteral("c"), VIEW_ALL);
        stage.manager->SetDefaultView(base.name);
        stage.manager->DisplayFullView(second.id, false);
        stage.manager->DisplayFullView(third.id, false);
        stage.manager->RemoveView(second.id);
        stage.manager->RemoveView(third.id);
        QCOMPARE(Picture(stage, {base, second, third}),
                 QStringLiteral("full 1, slots ||, base:3fc, b:3, c:3"));
    }

    void withoutADefaultViewARemovedOneLeavesNothing()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        stage.manager->DisplayFullView(view.id, false);
        stage.manager->RemoveView(view.id);
        QCOMPARE(Picture(stage, {view}), QStringLiteral("full -1, slots ||, a:3"));
    }

    // Its successor of the same name must not find the place taken by a view that is gone.
    void theDefaultViewMayBeRemovedAndComeBack()
    {
        TViewStage stage;
        TTestView const first = stage.Add(QStringLiteral("a"), VIEW_CANVAS | VIEW_FULL);
        stage.manager->SetDefaultView(first.name);
        stage.manager->RemoveView(first.id);
        QCOMPARE(Picture(stage, {first}), QStringLiteral("full -1, slots ||, a:3"));
        TTestView const second = stage.Add(QStringLiteral("a"), VIEW_CANVAS | VIEW_FULL);
        QCOMPARE(stage.manager->GetFullViewId(), -1);
        stage.manager->SetDefaultView(second.name);
        QCOMPARE(Picture(stage, {second}), QStringLiteral("full 2, slots ||, a:3fc"));
    }

    void theSetupMayBeRemovedWhileItIsUp()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), VIEW_CANVAS | VIEW_FULL);
        TTestView const setup = stage.Add(SetupName(), VIEW_CANVAS | VIEW_FULL);
        stage.manager->SetDefaultView(map.name);
        stage.manager->OnShowSetup(setup.id);
        stage.calls.clear();
        stage.manager->RemoveView(setup.id);
        QCOMPARE(stage.calls.count(QStringLiteral("map show")), 1);
        QCOMPARE(stage.manager->GetFullViewId(), map.id);
        QVERIFY(stage.screen->GetNavigationBar()->isVisible());
        // Its window is not heard any more.
        setup.full->ShowWindow(false);
        setup.full->HideWindow();
        QCOMPARE(stage.calls.count(QStringLiteral("map show")), 1);
    }

    // Slots

    void viewsTakeTheFirstFreeSlot()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.AddStanding(QStringLiteral("c"));
        QCOMPARE(stage.Slots(), QStringLiteral("1|2|3"));
        QCOMPARE(b.mini->pos(), QPoint(InSlotX, SlotHeight));
        stage.manager->OnHideMiniView(a.id, true);
        QCOMPARE(stage.Slots(), QStringLiteral("|2|3"));
        stage.screen.FinishSlides();
        stage.AddStanding(QStringLiteral("d"));
        QCOMPARE(stage.Slots(), QStringLiteral("4|2|3"));
    }

    void theFourthCoversTheFirst()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        stage.AddStanding(QStringLiteral("b"));
        stage.AddStanding(QStringLiteral("c"));
        TTestView const d = stage.AddStanding(QStringLiteral("d"));
        QCOMPARE(stage.Slots(), QStringLiteral("1 4|2|3"));
        QVERIFY(stage.manager->IsMiniViewObscured(a.id));
        QVERIFY(!stage.manager->IsMiniViewObscured(d.id));
        QVERIFY(Height(stage, d.mini) > Height(stage, a.mini));

        // A press on its button brings the covered one up with a new slide.
        stage.manager->OnShowMiniView(a.id);
        QCOMPARE(stage.Slots(), QStringLiteral("4 1|2|3"));
        QCOMPARE(stage.State(a), MINI_VIEW_OPENING);
        QCOMPARE(a.mini->pos(), QPoint(BehindBarX, 0));
        QVERIFY(!stage.manager->IsMiniViewObscured(a.id));
        stage.screen.FinishSlides();
        QVERIFY(stage.manager->IsMiniViewObscured(d.id));
        QVERIFY(Height(stage, a.mini) > Height(stage, d.mini));
    }

    void onlyAShownWindowIsObscured()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        stage.AddStanding(QStringLiteral("b"));
        stage.AddStanding(QStringLiteral("c"));
        TTestView const d = stage.Add(QStringLiteral("d"));
        stage.manager->OnShowMiniView(d.id);
        TTestView const e = stage.Add(QStringLiteral("e"));
        stage.manager->OnShowMiniView(e.id);
        QCOMPARE(stage.Slots(), QStringLiteral("1 4 5|2|3"));
        QVERIFY(stage.manager->IsMiniViewObscured(a.id));
        QVERIFY(!stage.manager->IsMiniViewObscured(d.id)); // still opening
        stage.screen.FinishSlides();
        QVERIFY(stage.manager->IsMiniViewObscured(d.id));
    }

    void displaySlotsAreGivenOut()
    {
        TViewStage stage;
        for (int id = 1; id <= 5; ++id)
            stage.Add(QStringLiteral("v%1").arg(id));
        QCOMPARE(stage.manager->GetMiniViewDisplaySlot(1), 0);
        QCOMPARE(stage.manager->GetMiniViewDisplaySlot(2), 1);
        QCOMPARE(stage.manager->GetMiniViewDisplaySlot(3), 2);
        QCOMPARE(stage.manager->GetMiniViewDisplaySlot(4), 0);
        QCOMPARE(stage.Slots(), QStringLiteral("1 4|2|3"));
        // Whatever was given out to it, a view that goes leaves no slot behind.
        stage.manager->RemoveView(2);
        stage.manager->RemoveView(4);
        QCOMPARE(stage.Slots(), QStringLiteral("1||3"));
    }

    void slotsThatDoNotExistAreEmpty()
    {
        TViewStage stage;
        stage.AddStanding(QStringLiteral("a"));
        QCOMPARE(TWindowManager::GetSlotCount(), 3);
        for (int const slot : {-1, 3, INT_MIN, INT_MAX})
            QVERIFY(stage.manager->GetSlot(slot).isEmpty());
        QCOMPARE(stage.manager->GetSlot(0), (QList<int>{1}));
    }

    // Opening and hiding

    void aPressOpensBehindTheBar()
    {
        TViewStage stage;
        stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.Add(QStringLiteral("b"));
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        stage.manager->OnShowMiniView(b.id);
        QCOMPARE(stage.State(b), MINI_VIEW_OPENING);
        QCOMPARE(b.mini->pos(), QPoint(BehindBarX, SlotHeight));
        QVERIFY(b.mini->isVisible());
        QVERIFY(IsTransparent(b.mini));
        QList<QLabel*> const shadows = Shadows(stage);
        QCOMPARE(shadows[2]->pos(), QPoint(BehindBarX + 268, SlotHeight));
        QCOMPARE(shadows[3]->pos(), QPoint(BehindBarX, 2 * SlotHeight));
        QVERIFY(shadows[2]->isVisible() && shadows[3]->isVisible());
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved[0], (QVariantList{b.id, BehindBarX, SlotHeight}));
    }

    void aPressOnAMovingWindowDoesNothing_data()
    {
        QTest::addColumn<int>("state");
        QTest::newRow("opening") << int(MINI_VIEW_OPENING);
        QTest::newRow("hiding") << int(MINI_VIEW_HIDING);
        QTest::newRow("settling up") << int(MINI_VIEW_SETTLING_UP);
        QTest::newRow("settling down") << int(MINI_VIEW_SETTLING_DOWN);
    }

    void aPressOnAMovingWindowDoesNothing()
    {
        QFETCH(int, state);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        if (state != MINI_VIEW_OPENING)
            stage.screen.FinishSlides();
        if (state == MINI_VIEW_HIDING)
            stage.manager->OnHideMiniView(view.id, true);
        if (state == MINI_VIEW_SETTLING_UP)
            stage.manager->OnSlideMiniViewUp(view.id, 100), stage.manager->OnMiniViewDoneDrag(view.id, 100);
        if (state == MINI_VIEW_SETTLING_DOWN)
            stage.manager->OnSlideMiniViewDown(view.id, 300), stage.manager->OnMiniViewDoneDrag(view.id, 300);
        QCOMPARE(int(stage.State(view)), state);
        stage.screen.Frame(20);
        QPoint const place = view.mini->pos();
        stage.manager->OnShowMiniView(view.id);
        QCOMPARE(int(stage.State(view)), state);
        QCOMPARE(view.mini->pos(), place);
    }

    void aPressHidesAShownWindow()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDING);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(IsTransparent(view.mini));
        QVERIFY(view.mini->isVisible());
        stage.screen.FinishSlides();
        QVERIFY(!view.mini->isVisible());
        auto const shadows = Shadows(stage);
        for (QLabel const* const shadow : shadows)
            QVERIFY(!shadow->isVisible());
    }

    void aWindowMayRefuseToBeHidden()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        view.mini->m_CanHide = false;
        stage.manager->OnHideMiniView(view.id, true);
        QCOMPARE(Picture(stage, {view}), QStringLiteral("full -1, slots 1||, a:1m"));
        QVERIFY(!IsTransparent(view.mini));
    }

    void hidingWithoutASlotDoesNothing()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnHideMiniView(view.id, true);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
        QVERIFY(!IsTransparent(view.mini));
    }

    void aShownWindowThatWasTakenAwaySlidesInAgain()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->HideAllMiniViews(false);
        stage.manager->OnShowMiniView(view.id);
        QCOMPARE(Picture(stage, {view}), QStringLiteral("full -1, slots 1||, a:0m"));
    }

    void linkedWindowsStepAtEachPress()
    {
        TViewStage stage;
        QList<TTestView> views;
        for (int id = 0; id < 3; ++id)
        {
            TTestView view = stage.Make(QStringLiteral("v%1").arg(id), VIEW_MINI);
            view.id = id;
            stage.manager->RegisterView(view.name, id, nullptr, view.mini, nullptr, nullptr,
                                        WIDGET_BEHAVIOUR_LINKED, id < 2 ? id + 1 : -1, id > 0);
            views.append(view);
        }
        auto const press = [&]
        {
            stage.manager->OnShowMiniView(0);
            stage.screen.FinishSlides();
            return stage.Slots();
        };
        QCOMPARE(press(), QStringLiteral("0||"));
        QCOMPARE(press(), QStringLiteral("0|1|"));
        QCOMPARE(press(), QStringLiteral("0|1|2"));
        QCOMPARE(press(), QStringLiteral("0|1|")); // the last of the chain hides
        QCOMPARE(press(), QStringLiteral("0|1|2"));
        stage.manager->OnHideMiniView(0, true);
        stage.screen.FinishSlides();
        QCOMPARE(press(), QStringLiteral("0|1|2"));
    }

    void aChainThatLeadsNowhereHidesNothing()
    {
        TViewStage stage;
        TTestView view = stage.Make(QStringLiteral("a"), VIEW_MINI);
        stage.manager->RegisterView(view.name, 1, nullptr, view.mini, nullptr, nullptr,
                                    WIDGET_BEHAVIOUR_LINKED, 99, false);
        view.id = 1;
        stage.manager->OnShowMiniView(1);
        stage.screen.FinishSlides();
        stage.manager->OnShowMiniView(1);
        QCOMPARE(stage.State(view), MINI_VIEW_SHOWN);
    }

    void theWheelGoesToTheWindowThatOpens()
    {
        TViewStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        auto const tick = [&]
        {
            stage.screen.Frame(100);
            navigator.UpdateFocus();
        };
        navigator.OnWheelRight();
        tick();
        navigator.OnEnter(); // into the title bar
        tick();
        navigator.OnEnter();
        QVERIFY(HideButton(view.mini)->isDown());
        stage.screen->SetMMINavigator(nullptr);
    }

    void displayMiniViewFillsASlot_data()
    {
        QTest::addColumn<int>("slot");
        QTest::addColumn<bool>("available");
        QTest::addColumn<QString>("slots");
        QTest::newRow("first") << 0 << true << "1||";
        QTest::newRow("last") << 2 << true << "||1";
        QTest::newRow("one before the first") << -1 << true << "||";
        QTest::newRow("one behind the last") << 3 << true << "||";
        QTest::newRow("far out") << INT_MAX << true << "||";
        QTest::newRow("far below") << INT_MIN << true << "||";
        QTest::newRow("not available") << 0 << false << "||";
    }

    void displayMiniViewFillsASlot()
    {
        QFETCH(int, slot);
        QFETCH(bool, available);
        QFETCH(QString, slots);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        view.mini->m_Available = available;
        stage.manager->DisplayMiniView(slot, view.id);
        QCOMPARE(stage.Slots(), slots);
        bool const opens = slots != QLatin1String("||");
        QCOMPARE(stage.State(view), opens ? MINI_VIEW_OPENING : MINI_VIEW_HIDDEN);
        QCOMPARE(view.mini->isVisible(), opens);
        QVERIFY(!IsTransparent(view.mini));
        if (opens)
            QCOMPARE(view.mini->pos(), QPoint(BehindBarX, slot * SlotHeight));
    }

    void displayMiniViewLeavesAWindowThatIsUp()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->DisplayMiniView(1, view.id);
        QCOMPARE(Picture(stage, {view}), QStringLiteral("full -1, slots 1||, a:1m"));
    }

    void twoWindowsMayShareASlot()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        TTestView const b = stage.Add(QStringLiteral("b"));
        stage.manager->DisplayMiniView(1, a.id);
        stage.manager->DisplayMiniView(1, b.id);
        QCOMPARE(stage.Slots(), QStringLiteral("|1 2|"));
        stage.screen.FinishSlides();
        QVERIFY(stage.manager->IsMiniViewObscured(a.id));
    }

    // Stacking

    void slotsStackFromTheTopDownwards()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        TTestView const b = stage.Add(QStringLiteral("b"));
        TTestView const c = stage.Add(QStringLiteral("c"));
        QWidget* const bar = stage.screen->GetNavigationBar();
        QCOMPARE(stage.manager->GetWidgetToStackUnder(0), bar);
        // In an order that is not that of the slots.
        stage.manager->DisplayMiniView(2, c.id);
        stage.manager->DisplayMiniView(0, a.id);
        stage.manager->DisplayMiniView(1, b.id);
        stage.screen.FinishSlides();
        QVERIFY(Height(stage, a.mini) < Height(stage, b.mini));
        QVERIFY(Height(stage, b.mini) < Height(stage, c.mini));
        QVERIFY(Height(stage, c.mini) < Height(stage, bar));
        QList<QLabel*> shadows = Shadows(stage);
        for (QLabel* const shadow : shadows)
            QVERIFY(Height(stage, shadow) < Height(stage, bar));
        QCOMPARE(stage.manager->GetWidgetToStackUnder(-1), a.mini.data());
        QCOMPARE(stage.manager->GetWidgetToStackUnder(0), b.mini.data());
        QCOMPARE(stage.manager->GetWidgetToStackUnder(1), c.mini.data());
        QCOMPARE(stage.manager->GetWidgetToStackUnder(2), bar);
        QCOMPARE(stage.manager->GetWidgetToStackUnder(99), bar);
        stage.manager->OnHideMiniView(b.id, true);
        QCOMPARE(stage.manager->GetWidgetToStackUnder(0), c.mini.data());
    }

    void aSlotIsStoodForByItsLowestWindow()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        TTestView const b = stage.Add(QStringLiteral("b"));
        stage.manager->DisplayMiniView(1, a.id);
        stage.manager->DisplayMiniView(1, b.id);
        QCOMPARE(stage.manager->GetWidgetToStackUnder(0), a.mini.data());
    }

    void shadowsLieRightBelowTheirAnchor()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        QWidget* const bar = stage.screen->GetNavigationBar();
        QList<QLabel*> const shadows = Shadows(stage); // in their order of stacking
        stage.manager->MiniWindowStackUnder(a.id, bar);
        int const top = Height(stage, bar);
        QCOMPARE(Height(stage, a.mini), top - 3);
        QCOMPARE(Height(stage, shadows[0]), top - 2);
        QCOMPARE(shadows[0]->width(), 7);
        QCOMPARE(Height(stage, shadows[1]), top - 1);
        stage.manager->MiniWindowStackUnder(a.id, nullptr);
        QCOMPARE(Height(stage, a.mini), top - 3);
    }

    void movingTakesTheShadowsAlong()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        QList<QLabel*> const shadows = Shadows(stage);
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        QPoint placeAtSignal;
        connect(stage.manager, &TWindowManager::MiniViewHasMoved, this,
                [&] { placeAtSignal = shadows[1]->pos(); });
        stage.manager->MoveMiniWindow(a.id, 100, 50);
        QCOMPARE(a.mini->pos(), QPoint(100, 50));
        QCOMPARE(shadows[0]->pos(), QPoint(368, 50));
        QCOMPARE(shadows[1]->pos(), QPoint(100, 306));
        QCOMPARE(placeAtSignal, QPoint(100, 306));
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved[0], (QVariantList{a.id, 100, 50}));
    }

    void aHiddenWindowIsReportedAtTheOrigin()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        stage.manager->HideMiniWindow(a.id);
        QVERIFY(!a.mini->isVisible());
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved[0], (QVariantList{a.id, 0, 0}));
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        stage.manager->ShowMiniWindow(a.id);
        QVERIFY(a.mini->isVisible());
        auto const shadows = Shadows(stage);
        for (QLabel const* const shadow : shadows)
            QVERIFY(shadow->isVisible());
    }

    // All at once

    void hidingAllAndRestoringKeepsTheSlots()
    {
        TViewStage stage;
        QList<TTestView> views;
        for (char const* const name : {"a", "b", "c", "d"})
            views.append(stage.AddStanding(QLatin1String(name)));
        TTestView const hidden = stage.Add(QStringLiteral("e"));
        stage.manager->HideAllMiniViews(false);
        QCOMPARE(Picture(stage, views), QStringLiteral("full -1, slots 1 4|2|3, a:1, b:1, c:1, d:1"));
        views[1].mini->m_Available = false;
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        stage.manager->RestoreAllMiniViews();
        QCOMPARE(Picture(stage, views), QStringLiteral("full -1, slots 1 4|2|3, a:1m, b:1, c:1m, d:1m"));
        QVERIFY(!hidden.mini->isVisible());
        QVERIFY(Height(stage, views[3].mini) > Height(stage, views[0].mini));
        QCOMPARE(moved.count(), 4);
        QCOMPARE(moved[0], (QVariantList{1, InSlotX, 0}));
        QCOMPARE(moved[1], (QVariantList{2, 0, 0}));
        QCOMPARE(moved[2], (QVariantList{3, InSlotX, 2 * SlotHeight}));
    }

    void hidingAllMaySlide()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.manager->OnHideMiniView(a.id, false);
        stage.screen.Frame(80);
        stage.manager->HideAllMiniViews(true);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("full -1, slots ||, a:2m, b:2m"));
        stage.screen.Frame(81);
        // The one that was on its way already went on from where it was, and keeps its own wish.
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("full -1, slots ||, a:3m, b:2m"));
    }

    void overlappedWindowsGiveWay_data()
    {
        QTest::addColumn<QRect>("rect");
        QTest::addColumn<bool>("barVisible");
        QTest::addColumn<QString>("picture");
        QTest::newRow("over the first") << QRect(300, 100, 50, 50) << true << "slots |2|, a:2m, b:1m";
        QTest::newRow("over both") << QRect(300, 200, 50, 100) << true << "slots ||, a:2m, b:2m";
        QTest::newRow("beside") << QRect(335, 0, 50, 700) << true << "slots 1|2|, a:1m, b:1m";
        QTest::newRow("one column over") << QRect(334, 0, 50, 100) << true << "slots |2|, a:2m, b:1m";
        QTest::newRow("below both") << QRect(100, 512, 50, 50) << true << "slots 1|2|, a:1m, b:1m";
        QTest::newRow("without the bar") << QRect(300, 100, 50, 50) << false << "slots 1|2|, a:1, b:1m";
    }

    void overlappedWindowsGiveWay()
    {
        QFETCH(QRect, rect);
        QFETCH(bool, barVisible);
        QFETCH(QString, picture);
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.screen->GetNavigationBar()->setVisible(barVisible);
        QWidget cover(stage.screen.get());
        cover.setGeometry(rect);
        stage.manager->HideMiniviewsIfOverlapping(&cover);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("full -1, slots 1|2|, a:1m, b:1m"));
        cover.show();
        stage.manager->HideMiniviewsIfOverlapping(&cover);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("full -1, ") + picture);
    }

    void onlyAWindowThatAsksForItMakesThemGiveWay()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        auto* const window = new TWindow(stage.screen.get());
        stage.Own(window);
        window->setGeometry(100, 100, 100, 100);
        window->ShowWindow(false);
        stage.manager->HideMiniviewsIfOverlapping(window);
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        window->HideMiniviewsOnShow(true);
        stage.manager->HideMiniviewsIfOverlapping(window);
        QCOMPARE(stage.State(a), MINI_VIEW_HIDING);
        stage.manager->HideMiniviewsIfOverlapping(static_cast<TWindow*>(nullptr));
        stage.manager->HideMiniviewsIfOverlapping(static_cast<QWidget*>(nullptr));
    }

    void onlyTheTopOfEachSlotIsUpdated()
    {
        TViewStage stage;
        for (char const* const name : {"a", "b", "c", "d"})
            stage.AddStanding(QLatin1String(name));
        stage.Add(QStringLiteral("e"));
        stage.manager->OnUpdateScreen();
        QCOMPARE(stage.calls, (QStringList{"d update", "b update", "c update"}));
    }

    void bothTimersRunFromTheStart()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnHideMiniView(a.id, true);
        stage.manager->OnShowMiniView(a.id);
        stage.screen.m_Clock.Advance(80);
        QTRY_VERIFY(a.mini->x() != InSlotX); // a frame came by itself
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.calls.clear();
        QTRY_VERIFY(stage.calls.contains(QStringLiteral("b update")));
    }

    void bothTimersGoOnAfterAStall()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        for (int stall = 0; stall < 3; ++stall)
        {
            stage.screen.Frame(500);
            stage.calls.clear();
            QTRY_COMPARE(stage.calls.count(QStringLiteral("a update")), 2);
        }
        stage.manager->OnHideMiniView(a.id, true);
        stage.manager->OnShowMiniView(a.id);
        stage.screen.m_Clock.Advance(80);
        QTRY_VERIFY(a.mini->x() != InSlotX);
    }
};

COMMONUI_TEST(TWindowManagerTest)
#include "TWindowManagerTest.moc"
