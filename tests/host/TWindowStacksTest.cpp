#include "TWindowStacks.h"

#include "Metrics.h"
#include "ModuleIds.h"
#include "TCameraXVOverlayManager.h"
#include "TestCase.h"
#include "TNavigationBar.h"
#include "TObstructionManager.h"
#include "TStackStage.h"
#include "TVirtualOperator.h"

#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <memory>
#include <random>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;

namespace
{
// A popup that does something whenever it comes or goes.
class TRestless : public TPopupWindow
{
public:
    using TPopupWindow::TPopupWindow;

    std::function<void()> m_OnShow;
    std::function<void()> m_OnHide;

protected:
    void showEvent(QShowEvent* event) override
    {
        TPopupWindow::showEvent(event);
        if (m_OnShow)
            m_OnShow();
    }
    void hideEvent(QHideEvent* event) override
    {
        TPopupWindow::hideEvent(event);
        if (m_OnHide)
            m_OnHide();
    }
};

class TMenuCanvas : public TCanvas
{
public:
    using TCanvas::TCanvas;
    bool HasMenus() const override { return true; }
};

// Something that takes room at one edge of the screen.
struct TBar
{
    TBar(TScreen* screen, QRect const& place, EObstructionSide side)
        : widget(screen)
    {
        widget.setGeometry(place);
        screen->GetObstructionManager()->RegisterObstruction(&widget, side);
        widget.show();
    }

    QWidget widget;
};
} // namespace

class TWindowStacksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What is seen of a stack

    void ofAStackTheTopIsSeen()
    {
        TStackStage stage;
        TPopupWindow* const first = stage.Shown(stage.Popup());
        QVERIFY(first->isVisible());
        QCOMPARE(first->parentWidget(), static_cast<QWidget*>(stage.Screen()));
        QSignalSpy hidden(first, &TWindow::WindowHidden);
        TPopupWindow* const second = stage.Shown(stage.Popup());
        QVERIFY(!first->isVisible());
        QVERIFY(second->isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()),
                 (QList<TWindow*>{first, second}));
        // It only waits: nobody has taken it down.
        QCOMPARE(hidden.count(), 0);
        second->HideWindow();
        QVERIFY(first->isVisible());
        QVERIFY(!second->parentWidget());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{first});
        first->HideWindow();
        QCOMPARE(hidden.count(), 1);
        QVERIFY(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()).isEmpty());
    }

    void aWindowLeavesFromTheMiddle()
    {
        TStackStage stage;
        TTaskWindow* const first = stage.Shown(stage.Task());
        TTaskWindow* const second = stage.Shown(stage.Task());
        TTaskWindow* const third = stage.Shown(stage.Task());
        QSignalSpy hidden(second, &TWindow::WindowHidden);
        second->HideWindow();
        QCOMPARE(hidden.count(), 1);
        QVERIFY(third->isVisible());
        QVERIFY(!first->isVisible());
        third->HideWindow();
        QVERIFY(first->isVisible());
        QVERIFY(!second->isVisible());
    }

    void aWindowShownAgainComesToTheTop()
    {
        TStackStage stage;
        TPopupWindow* const first = stage.Shown(stage.Popup());
        TPopupWindow* const second = stage.Shown(stage.Popup());
        first->ShowWindow(false);
        QVERIFY(first->isVisible());
        QVERIFY(!second->isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()),
                 (QList<TWindow*>{second, first}));
    }

    void popupsAndTaskWindowsDoNotCoverOneAnother()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup());
        TTaskWindow* const task = stage.Shown(stage.Task());
        QVERIFY(popup->isVisible());
        QVERIFY(task->isVisible());
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(popup, task));
        VERIFY_LAYERS(*stage.Screen());
    }

    void eachModuleHasStacksOfItsOwn()
    {
        TStackStage stage;
        TPopupWindow* const ofA = stage.Shown(stage.Popup(stage.a->m_Id));
        TPopupWindow* const ofC = stage.Shown(stage.Popup(stage.c->m_Id));
        TPopupWindow* const ofNone = stage.Shown(stage.Popup());
        for (TPopupWindow* const popup : {ofA, ofC, ofNone})
            QVERIFY(popup->isVisible());
        TScreenLayers const layers(*stage.Screen());
        QVERIFY(layers.IsAbove(ofNone, ofC));
        QVERIFY(layers.IsAbove(ofC, ofA));
    }

    // Views

    void aStackGoesAndComesWithItsView()
    {
        TStackStage stage;
        TTaskWindow* const below = stage.Shown(stage.Task(stage.a->m_Id));
        TTaskWindow* const top = stage.Shown(stage.Task(stage.a->m_Id));
        TPopupWindow* const popup = stage.Shown(stage.Popup(stage.a->m_Id));
        QSignalSpy hidden(top, &TWindow::WindowHidden);
        QSignalSpy shown(top, &TWindow::WindowShown);
        stage.GoTo(stage.b);
        QVERIFY(!below->isVisible() && !top->isVisible() && !popup->isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_TASK_WINDOWS, stage.a->m_Id).size(), 2);
        stage.GoTo(stage.a);
        QVERIFY(!below->isVisible() && top->isVisible() && popup->isVisible());
        QCOMPARE(hidden.count(), 0);
        QCOMPARE(shown.count(), 0);
        VERIFY_LAYERS(*stage.Screen());
    }

    void aHiddenStackLosesWindowsToo()
    {
        TStackStage stage;
        TTaskWindow* const below = stage.Shown(stage.Task(stage.a->m_Id));
        TTaskWindow* const top = stage.Shown(stage.Task(stage.a->m_Id));
        stage.GoTo(stage.b);
        top->HideWindow();
        QVERIFY(!below->isVisible());
        stage.GoTo(stage.a);
        QVERIFY(below->isVisible());
        QVERIFY(!top->isVisible());
    }

    void windowsOfNoModuleStayWithEveryView()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup());
        TTaskWindow* const task = stage.Shown(stage.Task());
        stage.GoTo(stage.b);
        QVERIFY(popup->isVisible());
        QVERIFY(task->isVisible());
    }

    void windowsOfAModuleWithoutAFullViewStayToo()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task(stage.c->m_Id));
        TPopupWindow* const unknown = stage.Shown(stage.Popup(TTestModule::Id(77)));
        stage.GoTo(stage.b);
        QVERIFY(task->isVisible());
        QVERIFY(unknown->isVisible());
    }

    void whatWasCalledUpOverAnotherViewIsBoundToBoth()
    {
        TStackStage stage;
        TTestModule* const d = stage.Add(new TTestModule(TTestModule::Id(4)));
        // From the mini window of B.
        TTaskWindow* const task = stage.Shown(stage.Task(stage.b->m_Id));
        QVERIFY(task->isVisible());
        stage.GoTo(stage.b);
        QVERIFY(task->isVisible());
        stage.GoTo(d);
        QVERIFY(!task->isVisible());
        stage.GoTo(stage.a);
        QVERIFY(task->isVisible());
    }

    void theIdOfAModuleStandsForAllOfItsViews()
    {
        TStackStage stage;
        KVN::MorvaneID const module = TTestModule::Id(9);
        auto* const first = stage.Add(new TTestModule(KVN::MorvaneID(module.GetModuleUID(), 1)));
        auto* const second = stage.Add(new TTestModule(KVN::MorvaneID(module.GetModuleUID(), 2)));
        stage.GoTo(first);
        TTaskWindow* const ofModule = stage.Shown(stage.Task(module));
        TPopupWindow* const ofView = stage.Shown(stage.Popup(first->m_Id));
        stage.GoTo(second);
        QVERIFY(ofModule->isVisible());
        QVERIFY(!ofView->isVisible());
        stage.GoTo(stage.b);
        QVERIFY(!ofModule->isVisible());
    }

    void aGloballyModalWindowStaysUntilItIsAnswered()
    {
        TStackStage stage;
        TPopupWindow* const question = stage.Shown(stage.Popup(stage.a->m_Id), true);
        stage.GoTo(stage.b);
        QVERIFY(question->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{question});
        VERIFY_LAYERS(*stage.Screen());
        question->HideWindow();
        QVERIFY(stage.Locks().isEmpty());
    }

    void aViewThatGoesForGoodLeavesItsStackUp()
    {
        TStackStage stage;
        stage.GoTo(stage.b);
        TTaskWindow* const task = stage.Shown(stage.Task(stage.b->m_Id));
        stage.Screen()->RemoveNavButton(stage.b->m_Id);
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.a->m_ViewId);
        // The module has no full view any more that it could come back with.
        QVERIFY(task->isVisible());
    }

    // Where task windows stand

    void aTaskWindowStandsAtTheRightOfTheFreeRoom()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task());
        QCOMPARE(task->geometry(), QRect(1024 - 7 - 315, 7, 315, 245));
    }

    void aTaskWindowKeepsToItsEdges()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task());
        task->SetAlignmentOptions(Qt::AlignLeft | Qt::AlignBottom);
        QCOMPARE(task->geometry(), QRect(NAVBAR_WIDTH + 7, 768 - 7 - 245, 315, 245));
    }

    void aTaskWindowFollowsItsWishes()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task());
        task->SetDesiredContentSize(400, 300);
        QCOMPARE(task->size(), QSize(415, 345));
        task->SetMaxContentSize(350, -1);
        QCOMPARE(task->size(), QSize(365, 345));
        task->SetMinContentSize(-1, 320);
        QCOMPARE(task->geometry(), QRect(1024 - 7 - 365, 7, 365, 365));
        task->SetHasTitleBar(false);
        QCOMPARE(task->height(), 335);
    }

    void noTaskWindowIsLargerThanTheFreeRoom()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Task();
        task->SetDesiredContentSize(5000, 5000);
        task->ShowWindow(false);
        QCOMPARE(task->geometry(), QRect(NAVBAR_WIDTH + 7, 7, 1024 - NAVBAR_WIDTH - 14, 768 - 14));
    }

    void aCoveredWindowIsPlacedWhenItComesBack()
    {
        TStackStage stage;
        TTaskWindow* const below = stage.Shown(stage.Task());
        TTaskWindow* const top = stage.Shown(stage.Task());
        below->SetDesiredContentSize(400, 300);
        top->HideWindow();
        QCOMPARE(below->geometry(), QRect(1024 - 7 - 415, 7, 415, 345));
    }

    void barsMoveATaskWindow()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task());
        {
            TBar dashboard(stage.Screen(), QRect(0, 682, 1024, 86), OBSTRUCTION_BOTTOM);
            task->SetAlignmentOptions(Qt::AlignRight | Qt::AlignBottom);
            // The limit lies one below the bar's top.
            QCOMPARE(task->y() + task->height(), 683 - 7);
            dashboard.widget.hide();
            QCOMPARE(task->y() + task->height(), 768 - 7);
            dashboard.widget.show();
            QCOMPARE(task->y() + task->height(), 683 - 7);
        }
        QCOMPARE(task->y() + task->height(), 768 - 7);
        TBar const panel(stage.Screen(), QRect(900, 0, 124, 768), OBSTRUCTION_RIGHT);
        QCOMPARE(task->x() + task->width(), 901 - 7);
        TBar const upper(stage.Screen(), QRect(0, 0, 1024, 50), OBSTRUCTION_TOP);
        task->SetAlignmentOptions(Qt::AlignRight | Qt::AlignTop);
        QCOMPARE(task->y(), 57);
    }

    void whatStandsBesideTheRoomDoesNotCount()
    {
        TStackStage stage;
        TBar const corner(stage.Screen(), QRect(0, 400, NAVBAR_WIDTH, 368), OBSTRUCTION_BOTTOM);
        TTaskWindow* const task = stage.Task();
        task->SetDesiredContentSize(300, 5000);
        task->ShowWindow(false);
        QCOMPARE(task->height(), 768 - 14);
    }

    void theMenusOfTheViewStayFree()
    {
        TStackStage stage;
        TMenuCanvas canvas(nullptr);
        stage.Screen()->SetCurrentCanvas(&canvas, true);
        TTaskWindow* const task = stage.Shown(stage.Task());
        QCOMPARE(task->x() + task->width(), 1024 - 72 - 7);
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, true);
    }

    void withoutANavigationBarTheRoomReachesToTheEdge()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Task();
        task->SetAlignmentOptions(Qt::AlignLeft | Qt::AlignTop);
        task->ShowWindow(false);
        QCOMPARE(task->x(), NAVBAR_WIDTH + 7);
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, false);
        QCOMPARE(task->x(), 7);
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, true);
        QCOMPARE(task->x(), NAVBAR_WIDTH + 7);
    }

    void aTaskWindowStandsBesideTheMiniWindows()
    {
        TStackStage stage;
        stage.OpenMini(stage.b);
        TTaskWindow* const task = stage.Task();
        task->SetAlignmentOptions(Qt::AlignLeft | Qt::AlignTop);
        task->ShowWindow(false);
        QCOMPARE(task->x(), 335 + 7);
        QVERIFY(stage.b->m_Mini.isVisible());
        QCOMPARE(stage.Manager()->GetMiniViewState(stage.b->m_ViewId), MINI_VIEW_SHOWN);
        stage.Manager()->OnHideMiniView(stage.b->m_ViewId, true);
        stage.screen.FinishSlides();
        QCOMPARE(task->x(), NAVBAR_WIDTH + 7);
        stage.OpenMini(stage.b);
        QCOMPARE(task->x(), 335 + 7);
    }

    void aTaskWindowTooWideForThatMakesThemGiveWay_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("gives");
        int const besideMiniWindows = 1024 - 335 - 2 * 7 - 15;
        QTest::newRow("fits") << besideMiniWindows << false;
        QTest::newRow("covers their shadow at most") << besideMiniWindows + 7 << false;
        QTest::newRow("one pixel too wide") << besideMiniWindows + 8 << true;
    }

    void aTaskWindowTooWideForThatMakesThemGiveWay()
    {
        QFETCH(int, width);
        QFETCH(bool, gives);
        TStackStage stage;
        stage.OpenMini(stage.b);
        TTaskWindow* const task = stage.Task();
        task->SetDesiredContentSize(width, 200);
        task->ShowWindow(false);
        stage.screen.FinishSlides();
        QCOMPARE(task->width(), width + 15);
        QCOMPARE(stage.b->m_Mini.isVisible(), !gives);
    }

    void aTaskWindowThatLeavesThemAloneIsCut()
    {
        TStackStage stage;
        stage.OpenMini(stage.b);
        TTaskWindow* const task = stage.Task();
        task->HideMiniviewsOnShow(false);
        task->SetDesiredContentSize(900, 200);
        task->ShowWindow(false);
        stage.screen.FinishSlides();
        QCOMPARE(task->geometry(), QRect(335 + 7, 7, 1024 - 335 - 14, 245));
        QVERIFY(stage.b->m_Mini.isVisible());
    }

    void aTaskWindowThatGrowsMakesThemGiveWayToo()
    {
        TStackStage stage;
        stage.OpenMini(stage.b);
        TTaskWindow* const task = stage.Shown(stage.Task());
        task->SetDesiredContentSize(800, 200);
        stage.screen.FinishSlides();
        QVERIFY(!stage.b->m_Mini.isVisible());
        // One that is opened later is the operator's own wish.
        stage.OpenMini(stage.b);
        QVERIFY(stage.b->m_Mini.isVisible());
    }

    void aLocalPopupIsCentredAnewWhenTheBarGoes()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup(), true, true);
        QCOMPARE(popup->x(), 420);
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, false);
        QCOMPARE(popup->x(), 386);
    }

    // Locks

    void aGloballyModalWindowLocksTheScreen_data()
    {
        QTest::addColumn<bool>("popup");
        QTest::newRow("popup") << true;
        QTest::newRow("task window") << false;
    }

    void aGloballyModalWindowLocksTheScreen()
    {
        QFETCH(bool, popup);
        TStackStage stage;
        TWindow* const window = popup ? static_cast<TWindow*>(stage.Shown(stage.Popup(stage.a->m_Id), true))
                                      : stage.Shown(stage.Task(stage.a->m_Id), true);
        window->SetTitle(QStringLiteral("Rate"));
        QCOMPARE(stage.Locks(), QList<QWidget*>{window});
        QVERIFY(stage.Screen()->AreAllToolbarsLocked());
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        TScreenLayers const layers(*stage.Screen());
        QVERIFY(layers.IsDirectlyAbove(window, stage.Screen()->GetModalWidget()));
        QVERIFY(layers.IsAbove(stage.Screen()->GetModalWidget(), stage.Screen()->GetNavigationBar()));
        window->HideWindow();
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    void aLocallyModalWindowLocksTheCanvasOfItsModule()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task(stage.a->m_Id), true, true);
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        TVirtualOperator finger(stage.Screen());
        QSignalSpy clicked(&stage.a->m_Button, &TPushButton::Clicked);
        QVERIFY(!finger.Tap(&stage.a->m_Button));
        // The bars go on working.
        QVERIFY(finger.Tap(stage.Screen()->GetNavButton(stage.b->m_ViewId)));
        stage.screen.FinishSlides();
        QVERIFY(stage.b->m_Mini.isVisible());
        task->HideWindow();
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        QVERIFY(finger.Tap(&stage.a->m_Button));
        QCOMPARE(clicked.count(), 1);
        VERIFY_LAYERS(*stage.Screen());
    }

    void aLocalLockGoesAndComesWithItsView()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task(stage.a->m_Id), true, true);
        stage.GoTo(stage.b);
        QVERIFY(!task->isVisible());
        QVERIFY(!TStackStage::IsFaded(stage.b->m_Canvas));
        QVERIFY(stage.Locks().isEmpty());
        stage.GoTo(stage.a);
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        stage.GoTo(stage.b);
        delete task;
        stage.GoTo(stage.a);
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
    }

    void aLocallyModalWindowOverAnotherViewLocksTheScreen()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup(stage.b->m_Id), true, true);
        QCOMPARE(stage.Locks(), QList<QWidget*>{popup});
        QVERIFY(!stage.Screen()->AreAllToolbarsLocked());
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        stage.GoTo(stage.b);
        QVERIFY(popup->isVisible());
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(TStackStage::IsFaded(stage.b->m_Canvas));
        VERIFY_LAYERS(*stage.Screen());
    }

    void aModalWindowLocksAlsoWhileItIsCovered()
    {
        TStackStage stage;
        QSignalSpy locked(stage.Screen(), &TScreen::NotifyScreenLock);
        TTaskWindow* const modal = stage.Shown(stage.Task(stage.a->m_Id), true);
        TTaskWindow* const step = stage.Shown(stage.Task(stage.a->m_Id));
        QVERIFY(!modal->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{step});
        QVERIFY(stage.Screen()->AreAllToolbarsLocked());
        step->HideWindow();
        QCOMPARE(stage.Locks(), QList<QWidget*>{modal});
        stage.Shown(step);
        modal->HideWindow();
        QVERIFY(stage.Locks().isEmpty());
        // Not for a moment was the screen free in between.
        int unlocks = 0;
        for (QList<QVariant> const& signal : locked)
            unlocks += signal[0].toBool() ? 0 : 1;
        QCOMPARE(unlocks, 1);
    }

    void theStrongerLockOfTwoCounts()
    {
        TStackStage stage;
        TPopupWindow* const global = stage.Shown(stage.Popup(stage.a->m_Id), true);
        TPopupWindow* const local = stage.Shown(stage.Popup(stage.a->m_Id), true, true);
        QCOMPARE(stage.Locks(), QList<QWidget*>{local});
        QVERIFY(stage.Screen()->AreAllToolbarsLocked());
        global->HideWindow();
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
    }

    void everyWayOutTakesTheLockAlong_data()
    {
        QTest::addColumn<QString>("way");
        for (char const* const way : {"HideWindow", "hide", "close", "another parent", "delete"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }

    void everyWayOutTakesTheLockAlong()
    {
        QFETCH(QString, way);
        TStackStage stage;
        TPopupWindow* const below = stage.Shown(stage.Popup());
        QPointer<TPopupWindow> const modal = stage.Shown(stage.Popup(), true);
        QWidget other;
        if (way == QLatin1String("HideWindow"))
            modal->HideWindow();
        else if (way == QLatin1String("hide"))
            modal->hide();
        else if (way == QLatin1String("close"))
            modal->close();
        else if (way == QLatin1String("another parent"))
            modal->setParent(&other);
        else
            delete modal;
        // What just hides a widget is noticed as soon as that is over.
        QTRY_VERIFY(stage.Locks().isEmpty());
        QVERIFY(below->isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{below});
        VERIFY_LAYERS(*stage.Screen());
    }

    void whatComesUpOverALockStaysAboveIt()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task(stage.a->m_Id), true);
        TPopupWindow* const message = stage.Shown(stage.Popup());
        message->SetText(0, QStringLiteral("Yes"));
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(message, task));
        QCOMPARE(stage.Locks(), QList<QWidget*>{task});
        // The screen stacks anew whenever it likes.
        stage.Screen()->CheckToolbarsForLocking();
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, true);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(message, task));
        QSignalSpy clicked(message->GetButton(0), &TPushButton::clicked);
        TVirtualOperator finger(stage.Screen());
        QVERIFY(finger.Tap(message->GetButton(0)));
        QCOMPARE(clicked.count(), 1);
        VERIFY_LAYERS(*stage.Screen());
    }

    void whatWasThereBeforeALockStaysBelowIt()
    {
        TStackStage stage;
        TPopupWindow* const message = stage.Shown(stage.Popup());
        TTaskWindow* const older = stage.Shown(stage.Task());
        TTaskWindow* const modal = stage.Shown(stage.Task(stage.a->m_Id), true);
        stage.Screen()->CheckToolbarsForLocking();
        TScreenLayers const layers(*stage.Screen());
        for (TWindow* const window : {static_cast<TWindow*>(message), static_cast<TWindow*>(older)})
        {
            QVERIFY(layers.IsAbove(stage.Screen()->GetModalWidget(), window));
            QVERIFY(layers.IsAbove(window, stage.Screen()->GetNavigationBar()));
        }
        QVERIFY(layers.IsAbove(modal, stage.Screen()->GetModalWidget()));
        modal->HideWindow();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(message, older));
    }

    void aSecondLockComesOnTopOfTheFirst()
    {
        TStackStage stage;
        TWindow* const below = stage.Shown(stage.Task(stage.a->m_Id), true);
        TWindow* const plain = stage.Shown(stage.Popup());
        TWindow* const above = stage.Shown(stage.Popup(stage.c->m_Id), true);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{below, above}));
        TScreenLayers const layers(*stage.Screen());
        QVERIFY(layers.IsDirectlyAbove(above, stage.Screen()->GetModalWidget()));
        QVERIFY(layers.IsAbove(below, plain));
        above->HideWindow();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(plain, below));
        VERIFY_LAYERS(*stage.Screen());
    }

    void aLockComesToTheTopWithItsWindow()
    {
        TStackStage stage;
        TTaskWindow* const task = stage.Shown(stage.Task(stage.a->m_Id), true);
        TPopupWindow* const popup = stage.Shown(stage.Popup(), true);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{task, popup}));
        task->ShowWindow(true);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{popup, task}));
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(task, popup));
        // What is just placed anew stays where it is.
        popup->SetSurfaceID(stage.c->m_Id);
        task->SetDesiredContentSize(200, 100);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{popup, task}));
        VERIFY_LAYERS(*stage.Screen());
    }

    void aWindowThatWaitsLeavesByHideWindowAlone()
    {
        TStackStage stage;
        TPopupWindow* const waiting = stage.Shown(stage.Popup());
        TPopupWindow* const top = stage.Shown(stage.Popup());
        QList<TWindow*> const both{waiting, top};
        waiting->hide();
        waiting->SetVisible(false, false);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), both);
        waiting->HideWindow();
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{top});
        top->SetVisible(false, false);
        QVERIFY(!waiting->isVisible());
        QVERIFY(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()).isEmpty());
    }

    void aWindowThatIsHiddenAndShownByHandStaysInItsStack()
    {
        TStackStage stage;
        TPopupWindow* const below = stage.Shown(stage.Popup());
        TPopupWindow* const popup = stage.Shown(stage.Popup(), true);
        popup->hide();
        below->SetSurfaceID(stage.c->m_Id);
        popup->show();
        QCoreApplication::processEvents();
        QVERIFY(popup->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{popup});
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{popup});
        VERIFY_LAYERS(*stage.Screen());
    }

    void aLockOfSomebodyElseIsRespected()
    {
        TStackStage stage;
        TPopupWindow* const before = stage.Shown(stage.Popup());
        TWindow keyboard(nullptr);
        keyboard.setFixedSize(300, 200);
        keyboard.ShowWindow(true);
        stage.Screen()->AddLockingWidget({&keyboard, QString(), MODAL_GLOBAL, {}});
        TTaskWindow* const after = stage.Shown(stage.Task());
        TScreenLayers const layers(*stage.Screen());
        QVERIFY(layers.IsAbove(stage.Screen()->GetModalWidget(), before));
        QVERIFY(layers.IsAbove(after, &keyboard));
        QCOMPARE(stage.Locks(), QList<QWidget*>{&keyboard});
        stage.Screen()->RemoveLockingWidget(&keyboard);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(before, after));
    }

    // The wheel

    void theWheelGoesToWhatComesUpAndBack()
    {
        TStackStage stage;
        TPopupWindow* const below = stage.Popup();
        below->SetText(0, QStringLiteral("below"));
        TPopupWindow* const top = stage.Popup();
        top->SetText(0, QStringLiteral("top"));
        QSignalSpy belowClicked(below->GetButton(0), &TPushButton::clicked);
        QSignalSpy topClicked(top->GetButton(0), &TPushButton::clicked);
        auto const enter = [&]
        {
            for (int i = 0; i < 12; ++i)
            {
                stage.screen.m_Clock.Advance(100);
                stage.navigator.UpdateFocus();
            }
            stage.navigator.OnWheelRight();
            stage.navigator.UpdateFocus();
            stage.navigator.OnEnter();
        };
        below->ShowWindow(false);
        enter();
        QTRY_COMPARE(belowClicked.count(), 1);
        top->ShowWindow(false);
        enter();
        QTRY_COMPARE(topClicked.count(), 1);
        top->HideWindow();
        enter();
        QTRY_COMPARE(belowClicked.count(), 2);
        // Brought back with its view.
        below->SetSurfaceID(stage.a->m_Id);
        stage.GoTo(stage.b);
        stage.GoTo(stage.a);
        enter();
        QTRY_COMPARE(belowClicked.count(), 3);
        QCOMPARE(topClicked.count(), 1);
    }

    // Modules

    void anotherSurfaceIsAnotherStack()
    {
        TStackStage stage;
        TPopupWindow* const left = stage.Shown(stage.Popup(stage.a->m_Id));
        TPopupWindow* const moving = stage.Shown(stage.Popup(stage.a->m_Id));
        TPopupWindow* const covered = stage.Shown(stage.Popup());
        moving->SetSurfaceID(KVN::MorvaneID());
        QVERIFY(left->isVisible());
        QVERIFY(moving->isVisible());
        QVERIFY(!covered->isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()),
                 (QList<TWindow*>{covered, moving}));
        // To the module of a view that is not up.
        moving->SetSurfaceID(stage.b->m_Id);
        QVERIFY(!moving->isVisible());
        QVERIFY(covered->isVisible());
        stage.GoTo(stage.b);
        QVERIFY(moving->isVisible());
        // From below.
        TTaskWindow* const lower = stage.Shown(stage.Task(stage.b->m_Id));
        TTaskWindow* const upper = stage.Shown(stage.Task(stage.b->m_Id));
        lower->SetSurfaceID(stage.c->m_Id);
        QVERIFY(lower->isVisible());
        QVERIFY(upper->isVisible());
    }

    void anotherSurfaceTakesTheLockAlong()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup(stage.a->m_Id), true, true);
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        popup->SetSurfaceID(stage.c->m_Id);
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        QCOMPARE(stage.Locks(), QList<QWidget*>{popup});
        popup->SetSurfaceID(stage.b->m_Id);
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    void theCameraHearsOfItsStacks()
    {
        TStackStage stage;
        TCameraXVOverlayManager* const overlay = stage.Screen()->GetCameraOverlayManager();
        QSignalSpy popups(overlay, &TCameraXVOverlayManager::PopupVisible);
        QSignalSpy tasks(overlay, &TCameraXVOverlayManager::TaskWindowVisible);
        KVN::MorvaneID const camera(QUuid(QStringLiteral("{94816b5c-f4ed-4060-a734-c16b1c8bba27}")));
        stage.Shown(stage.Popup());
        stage.Shown(stage.Task(stage.a->m_Id));
        QCOMPARE(popups.count() + tasks.count(), 0);
        TPopupWindow* const first = stage.Shown(stage.Popup(camera));
        TPopupWindow* const second = stage.Shown(stage.Popup(camera));
        QCOMPARE(popups.count(), 1);
        QCOMPARE(popups[0][0].toBool(), true);
        first->HideWindow();
        QCOMPARE(popups.count(), 1);
        second->SetSurfaceID(stage.a->m_Id);
        QCOMPARE(popups.count(), 2);
        QCOMPARE(popups[1][0].toBool(), false);
        TTaskWindow* const task = stage.Shown(stage.Task(camera));
        QCOMPARE(tasks.count(), 1);
        delete task;
        QCOMPARE(tasks.count(), 2);
        QCOMPARE(tasks[1][0].toBool(), false);
    }

    // Parents

    void aParentGetsItsWindowBack()
    {
        TStackStage stage;
        auto* const task = new TTaskWindow(&stage.a->m_Full);
        task->SetDesiredContentSize(300, 200);
        task->ShowWindow(false);
        QVERIFY(task->isVisible());
        QCOMPARE(task->parentWidget(), static_cast<QWidget*>(stage.Screen()));
        task->ShowWindow(false);
        task->HideWindow();
        QCOMPARE(task->parentWidget(), static_cast<QWidget*>(&stage.a->m_Full));
        QVERIFY(!task->isVisible());
        task->ShowWindow(true);
        QCOMPARE(stage.Locks(), QList<QWidget*>{task});
        task->HideWindow();
        QCOMPARE(task->parentWidget(), static_cast<QWidget*>(&stage.a->m_Full));
    }

    void aWindowGoesWithItsParent()
    {
        TStackStage stage;
        auto* const parent = new QWidget;
        QPointer<TTaskWindow> const task = new TTaskWindow(parent);
        task->ShowWindow(true);
        delete parent;
        QTRY_VERIFY(!task);
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    void aWindowThatWasSeenInItsParentComesToTheScreen()
    {
        TStackStage stage;
        TTaskWindow task(&stage.a->m_Full);
        task.show();
        task.ShowWindow(false);
        QVERIFY(task.isVisible());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_TASK_WINDOWS, KVN::MorvaneID()), QList<TWindow*>{&task});
    }

    // Endings, and what happens in signals

    void windowsMayEndInAnySignal_data()
    {
        QTest::addColumn<int>("emitter");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<int>("victim");
        char const* const names[] = {"bottom", "middle", "top"};
        for (int emitter = 0; emitter < 3; ++emitter)
        {
            for (bool const shown : {true, false})
            {
                for (int victim = 0; victim < 3; ++victim)
                    QTest::newRow(
                        qPrintable(QStringLiteral("%1 %2, %3 dies")
                                       .arg(QLatin1String(names[emitter]),
                                            shown ? QStringLiteral("shown") : QStringLiteral("hidden"),
                                            QLatin1String(names[victim]))))
                        << emitter << shown << victim;
            }
        }
    }

    void windowsMayEndInAnySignal()
    {
        QFETCH(int, emitter);
        QFETCH(bool, shown);
        QFETCH(int, victim);
        TStackStage stage;
        QVector<QPointer<TPopupWindow>> popups;
        for (int i = 0; i < 3; ++i)
        {
            popups.append(stage.Popup(stage.a->m_Id));
            popups.last()->ShowWindow(true);
        }
        auto const end = [&popups, victim] { delete popups[victim]; };
        if (shown)
        {
            connect(popups[emitter], &TWindow::WindowShown, this, end);
            popups[emitter]->ShowWindow(true);
        }
        else
        {
            connect(popups[emitter], &TWindow::WindowHidden, this, end);
            popups[emitter]->HideWindow();
        }
        QVERIFY(!popups[victim]);
        QList<TWindow*> const left = stage.Stacks()->GetWindows(STACK_POPUPS, stage.a->m_Id);
        QCOMPARE(left.size(), shown || victim == emitter ? 2 : 1);
        QVERIFY(left.last()->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{left.last()});
        VERIFY_LAYERS(*stage.Screen());
    }

    void windowsMayEndInTheNoticeOfALock_data()
    {
        QTest::addColumn<bool>("wanted");
        QTest::newRow("lock") << true;
        QTest::newRow("unlock") << false;
    }

    void windowsMayEndInTheNoticeOfALock()
    {
        QFETCH(bool, wanted);
        TStackStage stage;
        QPointer<TPopupWindow> const popup = stage.Popup();
        connect(stage.Screen(), &TScreen::NotifyScreenLock, this,
                [popup, wanted](bool locked)
                {
                    if (locked == wanted)
                        delete popup;
                });
        popup->ShowWindow(true);
        if (popup)
            popup->HideWindow();
        QVERIFY(!popup);
        stage.Screen()->CheckToolbarsForLocking();
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    void aLeavingWindowMayEndInTheNoticeOfTheNextLock()
    {
        TStackStage stage;
        QPointer<TTaskWindow> const local = stage.Shown(stage.Task(stage.a->m_Id), true, true);
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        connect(stage.Screen(), &TScreen::NotifyScreenLock, this, [local] { delete local; });
        TRestless question(nullptr);
        question.m_OnShow = [local] { local->HideWindow(); };
        question.ShowWindow(true);
        QVERIFY(!local);
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        QCOMPARE(stage.Locks(), QList<QWidget*>{&question});
        VERIFY_LAYERS(*stage.Screen());
    }

    // Whoever waits for the end of a window hears of it before the stacks do.
    void theEndOfAWindowMayBringTheNextOne()
    {
        TStackStage stage;
        QPointer<TPopupWindow> const popup = stage.Popup();
        TPopupWindow* const next = stage.Popup();
        QList<TWindow*> known;
        connect(popup, &QObject::destroyed, this,
                [&]
                {
                    next->ShowWindow(true);
                    known = stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID());
                });
        popup->ShowWindow(true);
        delete popup;
        QCOMPARE(known, QList<TWindow*>{next});
        QVERIFY(next->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{next});
        VERIFY_LAYERS(*stage.Screen());
    }

    void aPressedWindowMayEndByItsOwnButton()
    {
        TStackStage stage;
        TPopupWindow* const below = stage.Shown(stage.Popup());
        QPointer<TPopupWindow> const popup = stage.Popup();
        popup->SetText(0, QStringLiteral("Yes"));
        popup->ShowWindow(true);
        connect(popup->GetButton(0), &TPushButton::clicked, this, [popup] { delete popup; });
        TVirtualOperator finger(stage.Screen());
        QVERIFY(finger.Tap(popup->GetButton(0)));
        QVERIFY(!popup);
        QVERIFY(below->isVisible());
        VERIFY_LAYERS(*stage.Screen());
    }

    void aWindowMayComeBackAtOnce()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup(), true);
        int times = 0;
        connect(popup, &TWindow::WindowHidden, this,
                [&]
                {
                    if (++times == 1)
                        popup->ShowWindow(true);
                });
        popup->HideWindow();
        QVERIFY(popup->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{popup});
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{popup});
        popup->HideWindow();
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    // Whoever hears of its being hidden before the stacks do brings it back.
    void aWindowMayComeBackBeforeTheStacksHear_data()
    {
        QTest::addColumn<bool>("covered");
        QTest::newRow("to the top") << false;
        QTest::newRow("covered at once") << true;
    }

    void aWindowMayComeBackBeforeTheStacksHear()
    {
        QFETCH(bool, covered);
        TStackStage stage;
        TPopupWindow* const popup = stage.Popup();
        TPopupWindow* const cover = stage.Popup();
        int times = 0;
        connect(popup, &TWindow::WindowHidden, this,
                [&]
                {
                    if (++times > 1)
                        return;
                    popup->ShowWindow(false);
                    if (covered)
                        cover->ShowWindow(false);
                });
        popup->ShowWindow(false);
        popup->HideWindow();
        QList<TWindow*> expected{popup};
        if (covered)
            expected.append(cover);
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), expected);
        QVERIFY(expected.last()->isVisible());
        cover->HideWindow();
        QVERIFY(popup->isVisible());
        popup->HideWindow();
        QVERIFY(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()).isEmpty());
    }

    void aWindowThatHidesItselfWhileItAppearsIsGone()
    {
        TStackStage stage;
        TPopupWindow* const below = stage.Shown(stage.Popup());
        TPopupWindow* const popup = stage.Popup();
        connect(popup, &TWindow::WindowShown, popup, &TWindow::HideWindow);
        popup->ShowWindow(true);
        QVERIFY(!popup->isVisible());
        QVERIFY(below->isVisible());
        QVERIFY(stage.Locks().isEmpty());
        TRestless restless(nullptr);
        restless.m_OnShow = [&] { restless.HideWindow(); };
        restless.ShowWindow(true);
        QVERIFY(!restless.isVisible());
        QVERIFY(below->isVisible());
        QVERIFY(stage.Locks().isEmpty());
        VERIFY_LAYERS(*stage.Screen());
    }

    void aWindowOnItsWayOutIsNotBroughtBack_data()
    {
        QTest::addColumn<bool>("again");
        QTest::newRow("hidden") << false;
        QTest::newRow("hidden again") << true;
    }
    void aWindowOnItsWayOutIsNotBroughtBack()
    {
        QFETCH(bool, again);
        TStackStage stage;
        TPopupWindow* const popup = stage.Popup();
        TTaskWindow* const next = stage.Task();
        bool isBack = false;
        connect(popup, &TWindow::WindowShown, popup, &TWindow::HideWindow);
        connect(popup, &TWindow::WindowHidden, next,
                [&]
                {
                    if (again)
                        popup->HideWindow();
                    next->ShowWindow(false);
                    isBack = popup->isVisible();
                });
        popup->ShowWindow(false);
        QVERIFY(!isBack);
        QVERIFY(!popup->isVisible());
        QVERIFY(next->isVisible());
        QVERIFY(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()).isEmpty());
    }

    void aWindowMayOpenTheNextWhileItIsHidden()
    {
        TStackStage stage;
        TTaskWindow* const first = stage.Shown(stage.Task(stage.a->m_Id), true);
        TTaskWindow* const next = stage.Task(stage.a->m_Id);
        connect(first, &TTaskWindow::Ok, this, [&] { next->ShowWindow(true); });
        first->OnOk();
        QVERIFY(!first->isVisible());
        QVERIFY(next->isVisible());
        QCOMPARE(stage.Locks(), QList<QWidget*>{next});
    }

    void aViewMayChangeInASignal()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Popup(stage.a->m_Id);
        connect(popup, &TWindow::WindowShown, this, [&] { stage.GoTo(stage.b); });
        popup->ShowWindow(false);
        QVERIFY(!popup->isVisible());
        stage.GoTo(stage.a);
        QVERIFY(popup->isVisible());
    }

    void windowsThatNeverGiveInDoNotHangTheConsole()
    {
        TStackStage stage;
        TRestless one(nullptr);
        TRestless other(nullptr);
        int fights = 0;
        one.m_OnHide = [&]
        {
            ++fights;
            one.ShowWindow(false);
        };
        other.m_OnHide = [&]
        {
            ++fights;
            other.ShowWindow(false);
        };
        one.ShowWindow(false);
        other.ShowWindow(false);
        QVERIFY(fights > 0);
        int const soFar = fights;
        bool isAlive = false;
        QTimer::singleShot(0, &one, [&] { isAlive = true; });
        QTRY_VERIFY(isAlive);
        QVERIFY(fights < soFar + 1000);
        one.m_OnHide = nullptr;
        other.m_OnHide = nullptr;
        QCoreApplication::processEvents();
        QVERIFY(one.isVisible() != other.isVisible());
    }

    void theStacksMayEndBeforeTheirWindows()
    {
        TStackStage stage;
        TPopupWindow* const below = stage.Shown(stage.Popup());
        TPopupWindow* const popup = stage.Popup();
        {
            TWindowStacks stacks(stage.Screen());
            stacks.Push(static_cast<TPopupWindow*>(nullptr));
            stacks.Push(popup);
            QVERIFY(popup->isVisible());
        }
        QVERIFY(popup->isVisible());
        popup->HideWindow();
        QVERIFY(below->isVisible());
    }

    void theStacksMayEndWithALock()
    {
        TStackStage stage;
        auto stacks = std::make_unique<TWindowStacks>(stage.Screen());
        auto* const popup = stage.Popup();
        auto* const local = stage.Task(stage.a->m_Id);
        // Modal, as the windows' own showing makes them.
        popup->ShowWindow(true);
        local->ShowWindow(true, true);
        popup->HideWindow();
        local->HideWindow();
        stacks->Push(popup);
        stacks->Push(local);
        QCOMPARE(stage.Locks(), QList<QWidget*>{popup});
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        stacks.reset();
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
        VERIFY_LAYERS(*stage.Screen());
    }

    void theStacksMayEndWhileAWindowLeaves_data()
    {
        QTest::addColumn<bool>("byALock");
        QTest::newRow("as another one comes up") << false;
        QTest::newRow("as another one locks the screen") << true;
    }

    void theStacksMayEndWhileAWindowLeaves()
    {
        QFETCH(bool, byALock);
        TStackStage stage;
        auto stacks = std::make_unique<TWindowStacks>(stage.Screen());
        TRestless question(nullptr);
        TPopupWindow* const cover = stage.Popup();
        TTaskWindow* const local = stage.Task(stage.a->m_Id);
        // Modal, as the windows' own showing makes them.
        local->ShowWindow(true, true);
        local->HideWindow();
        question.ShowWindow(byALock);
        question.HideWindow();
        stacks->Push(local);
        QVERIFY(TStackStage::IsFaded(stage.a->m_Canvas));
        auto const end = [&]
        {
            if (stacks)
                local->HideWindow();
            stacks.reset();
        };
        if (byALock)
        {
            connect(stage.Screen(), &TScreen::NotifyScreenLock, &question, end);
            stacks->Push(&question);
        }
        else
        {
            stacks->Push(&question);
            stacks->Push(cover);
            question.m_OnShow = end;
            cover->HideWindow();
        }
        QVERIFY(!stacks);
        QVERIFY(!local->isVisible());
        QVERIFY(!TStackStage::IsFaded(stage.a->m_Canvas));
    }

    void theStacksMayEndInASignal()
    {
        TStackStage stage;
        auto stacks = std::make_unique<TWindowStacks>(stage.Screen());
        TPopupWindow* const popup = stage.Popup();
        connect(popup, &TWindow::WindowShown, this, [&] { stacks.reset(); });
        stacks->Push(popup);
        QVERIFY(!stacks);
        QVERIFY(popup->isVisible());
    }

    void whatIsStillUpEndsWithTheConsole()
    {
        QPointer<TPopupWindow> const popup = new TPopupWindow(nullptr);
        {
            TStackStage stage;
            popup->ShowWindow(true);
            stage.Shown(stage.Task(stage.a->m_Id), true, true);
        }
        // It was the screen's while it was shown.
        QVERIFY(!popup);
    }

    // Anything in any order

    void theStacksStayRightWhateverHappens_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 4; ++seed)
            QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
    }

    void theStacksStayRightWhateverHappens();
};

namespace
{
/// Shows, hides, deletes and moves windows at random, also from inside each other's signals, and knows what
/// must be seen then.
class TRandomWork
{
public:
    TRandomWork(TStackStage& stage, unsigned seed)
        : m_Stage(stage)
        , m_Random(seed)
        , m_Ids({KVN::MorvaneID(), stage.a->m_Id, stage.b->m_Id, stage.c->m_Id})
        , m_Windows(WindowCount)
        , m_Context(std::make_unique<QObject>())
    {
        QObject::connect(stage.Screen(), &TScreen::NotifyScreenLock, m_Context.get(),
                         [this] { Interrupt(); });
    }
    ~TRandomWork()
    {
        m_Context.reset();
        for (QPointer<TWindow> const& window : qAsConst(m_Windows))
            delete window;
    }

    /// Answers what was done.
    QString Step()
    {
        m_Done.clear();
        int const action = Number(100);
        if (action < 90)
            Act();
        else if (action < 95)
            Do("mini", [&] { m_Stage.OpenMini(m_Stage.c); });
        else
            m_IsUnsettled = true;
        // What was hidden by hand leaves when that is over, and may cause more.
        while (m_IsUnsettled)
        {
            m_IsUnsettled = false;
            QCoreApplication::processEvents();
        }
        return m_Done.join(QStringLiteral(", "));
    }

    QString Fault() const
    {
        QString const layers = TScreenLayers(*m_Stage.Screen()).Fault();
        if (!layers.isEmpty())
            return layers;
        QList<QWidget*> seen;
        QList<QWidget*> locking;
        bool localOverA = false;
        bool localOverB = false;
        for (EWindowStack const stack : {STACK_TASK_WINDOWS, STACK_POPUPS})
        {
            for (KVN::MorvaneID const& id : m_Ids)
            {
                QList<TWindow*> const windows = m_Stage.Stacks()->GetWindows(stack, id);
                if (windows.isEmpty())
                    continue;
                QString const fault = StackFault(windows, id);
                if (!fault.isEmpty())
                    return fault;
                if (windows.last()->isHidden())
                    continue;
                seen.append(windows.last());
                int const modality = Modality(windows);
                bool const isOverItsView = IsUp(id);
                if (modality == MODAL_LOCAL && isOverItsView)
                    (id == m_Stage.a->m_Id ? localOverA : localOverB) = true;
                else if (modality != KVN::MODAL_NONE)
                    locking.append(windows.last());
            }
        }
        return SeenFault(seen) + LockFault(locking, localOverA, localOverB);
    }

private:
    static constexpr int WindowCount = 12;
    static constexpr int MostDepth = 3;

    int Number(int count) { return int(m_Random() % unsigned(count)); }

    // Inside of a signal.
    void Interrupt()
    {
        if (m_Depth >= MostDepth || Number(4) != 0)
            return;
        m_IsUnsettled = true;
        Act();
    }

    // The window may be gone afterwards.
    void Act()
    {
        int const index = Number(WindowCount);
        if (!m_Windows[index])
            m_Windows[index] = Make(index);
        TWindow* const window = m_Windows[index];
        int const action = Number(90);
        m_Done.append(QStringLiteral("%1window %2:").arg(QString(m_Depth, QLatin1Char('>'))).arg(index));
        ++m_Depth;
        if (action < 40)
            Show(window);
        else if (action < 55)
            Do("HideWindow", [&] { window->HideWindow(); });
        else if (action < 60)
            Do("hide", [&] { Hide(window); });
        else if (action < 70)
            Do("delete", [&] { delete window; });
        else if (action < 80)
            Do("move", [&] { SetSurface(window, m_Ids[Number(m_Ids.size())]); });
        else
            Do("view", [&] { Switch(); });
        --m_Depth;
    }
    template<typename TAction>
    void Do(char const* name, TAction const& action)
    {
        m_Done.append(QString::fromLatin1(name));
        action();
    }
    TWindow* Make(int index)
    {
        KVN::MorvaneID const id = m_Ids[Number(m_Ids.size())];
        TWindow* const window = index % 2 == 0 ? static_cast<TWindow*>(new TPopupWindow(nullptr))
                                               : static_cast<TWindow*>(new TTaskWindow(nullptr));
        SetSurface(window, id);
        QObject* const context = m_Context.get();
        QObject::connect(window, &TWindow::WindowShown, context, [this] { Interrupt(); });
        QObject::connect(window, &TWindow::WindowHidden, context, [this] { Interrupt(); });
        // Heard before anybody else hears of it.
        QObject::connect(window, &QObject::destroyed, context,
                         [this, index]
                         {
                             m_Windows[index].clear();
                             Interrupt();
                         });
        return window;
    }
    void Hide(TWindow* window)
    {
        m_IsUnsettled = true;
        window->hide();
    }
    void SetSurface(TWindow* window, KVN::MorvaneID const& id)
    {
        if (auto* const popup = qobject_cast<TPopupWindow*>(window))
            popup->SetSurfaceID(id);
        else if (auto* const task = qobject_cast<TTaskWindow*>(window))
            task->SetSurfaceID(id);
    }
    void Show(QPointer<TWindow> const& window)
    {
        bool const modal = Number(4) == 0;
        bool const local = Number(2) == 0;
        m_Done.append(QStringLiteral("show, modal %1, local %2").arg(modal).arg(local));
        if (auto* const popup = qobject_cast<TPopupWindow*>(window.data()))
        {
            if (!modal)
                popup->ClearModal();
            popup->ShowWindow(modal, local);
        }
        else if (auto* const task = qobject_cast<TTaskWindow*>(window.data()))
        {
            task->SetDesiredContentSize(100 + 300 * Number(4), 100 + 300 * Number(3));
            if (window)
                task->ShowWindow(modal, local);
        }
    }
    void Switch()
    {
        TTestModule const* const module = Number(2) == 0 ? m_Stage.a : m_Stage.b;
        m_Stage.Manager()->OnDraggedOffRight(module->m_ViewId);
    }

    bool IsUp(KVN::MorvaneID const& id) const
    {
        int const view = m_Stage.Manager()->GetFullViewId();
        return (id == m_Stage.a->m_Id && view == m_Stage.a->m_ViewId) ||
               (id == m_Stage.b->m_Id && view == m_Stage.b->m_ViewId);
    }
    static int Modality(QList<TWindow*> const& windows)
    {
        int strongest = KVN::MODAL_NONE;
        for (TWindow const* const window : windows)
            strongest = qMax(strongest, window->ModalType());
        return strongest;
    }
    QString StackFault(QList<TWindow*> const& windows, KVN::MorvaneID const& id) const
    {
        for (TWindow const* const window : windows)
        {
            if (window != windows.last() && !window->isHidden())
                return QStringLiteral("a covered window is seen");
        }
        bool const hasFullView = id == m_Stage.a->m_Id || id == m_Stage.b->m_Id;
        bool const mustBeUp = !hasFullView || IsUp(id) || Modality(windows) == MODAL_GLOBAL;
        if (mustBeUp && windows.last()->isHidden())
            return QStringLiteral("the top of a stack is not seen");
        return {};
    }
    QString SeenFault(QList<QWidget*> const& seen) const
    {
        for (QPointer<TWindow> const& window : m_Windows)
        {
            if (window && window->isVisible() && !seen.contains(window))
                return QStringLiteral("a window is seen that is in no stack");
        }
        return {};
    }
    QString LockFault(QList<QWidget*> const& locking, bool localOverA, bool localOverB) const
    {
        QList<QWidget*> const locks = m_Stage.Locks();
        for (QWidget* const lock : locks)
        {
            if (!locking.contains(lock))
                return QStringLiteral("something locks the screen that must not");
        }
        if (locks.size() != locking.size())
            return QStringLiteral("something does not lock the screen that must");
        if (TStackStage::IsFaded(m_Stage.a->m_Canvas) != localOverA ||
            TStackStage::IsFaded(m_Stage.b->m_Canvas) != localOverB)
            return QStringLiteral("a canvas is not locked as it must be");
        return {};
    }

    TStackStage& m_Stage;
    std::mt19937 m_Random;
    QVector<KVN::MorvaneID> m_Ids;
    QVector<QPointer<TWindow>> m_Windows;
    std::unique_ptr<QObject> m_Context;
    QStringList m_Done;
    int m_Depth = 0;
    bool m_IsUnsettled = false;
};

// For a longer run, with QTEST_FUNCTION_TIMEOUT (ms) raised alike.
constexpr char const* StepsVariable = "COMMONUI_RANDOM_STEPS";
constexpr int UsualSteps = 5000;
} // namespace

void TWindowStacksTest::theStacksStayRightWhateverHappens()
{
    QFETCH(unsigned, seed);
    int const wanted = qEnvironmentVariableIntValue(StepsVariable);
    int const steps = wanted > 0 ? wanted : UsualSteps;
    TStackStage stage;
    // What is painted is nobody's business here, and would take most of the time.
    stage.Screen()->setUpdatesEnabled(false);
    TRandomWork work(stage, seed);
    for (int step = 0; step < steps; ++step)
    {
        QString const done = work.Step();
        QString const fault = work.Fault();
        QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("step %1, %2: %3").arg(step).arg(done, fault)));
    }
}

COMMONUI_TEST(TWindowStacksTest)
#include "TWindowStacksTest.moc"
