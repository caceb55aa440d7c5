#include "TMMICapableWidgetNavigator.h"

#include "TAllocationCount.h"
#include "TestCase.h"
#include "TNavigatorStage.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>

namespace
{
QStringList Words(char const* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

// Holds a stop that is no widget, and notes that it was told of it.
class TObjectLevel : public QWidget, public KVN::MMICapableWidget
{
public:
    void OnMMIHighlightChild(KVN::MMICapableWidget* child) override { told << child; }
    bool IsMMIChildNavigatable(KVN::MMICapableWidget*) const override { return true; }
    QVector<KVN::MMICapableWidget*> told;
};

class TObjectStop : public QObject, public KVN::MMICapableWidget
{
public:
    using QObject::QObject;
    void OnMMIHighlight() override { ++highlights; }
    void OnMMIUnHighlight() override { ++unHighlights; }
    int highlights = 0;
    int unHighlights = 0;
};

bool IsAnotherWindowOpen(QWidget* screen)
{
    QWidgetList const windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [screen](QWidget* window) { return window != screen && window->isVisible(); });
}

// Counts what reaches any widget.
class TWidgetEventCounter : public QObject
{
public:
    TWidgetEventCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += watched->isWidgetType() ? 1 : 0;
        paints += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ? 1 : 0;
        return false;
    }
    int count = 0;
    int paints = 0;
};

// Whether it has become quiet: no widget has anything left to do.
bool RunEventsOut()
{
    TWidgetEventCounter events;
    QCoreApplication::processEvents();
    return events.count == 0;
}
} // namespace

class TMMICapableWidgetNavigatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingShowsBeforeTheFirstStep_data()
    {
        QTest::addColumn<bool>("timeoutEnabled");
        QTest::newRow("level with a time-out") << true;
        QTest::newRow("level without a time-out") << false;
    }
    void nothingShowsBeforeTheFirstStep()
    {
        QFETCH(bool, timeoutEnabled);
        TNavigatorStage stage;
        stage.root->timeoutEnabled = timeoutEnabled;
        stage.AddPanel("a");
        stage.Start();
        stage.Tick(5000);
        stage.Tick();
        stage.navigator->OnEnter();
        stage.navigator->OnHoldBack();
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QString());
        QCOMPARE(stage.calls, QStringList());
    }

    void firstStepMovesAndTheNextTickShows()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.Start();
        stage.Tick();
        stage.navigator->OnWheelRight();
        QCOMPARE(stage.calls, QStringList());
        stage.Tick();
        QCOMPARE(stage.calls, Words("child b,+b"));
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void theTimerTicks()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.Start();
        stage.navigator->OnWheelRight();
        stage.clock.Advance(1);
        QTRY_COMPARE(stage.Glowing(), QStringLiteral("b"));
        auto const* const timer = stage.navigator->findChild<QTimer*>();
        QCOMPARE(timer->interval(), 100);
        QVERIFY(!timer->isSingleShot());
    }

    void wheelAtBothEnds_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("to");
        QTest::newRow("first, left") << 0 << -1 << "c";
        QTest::newRow("first, not at all") << 0 << 0 << "a";
        QTest::newRow("first, right") << 0 << 1 << "b";
        QTest::newRow("middle, left") << 1 << -1 << "a";
        QTest::newRow("middle, right") << 1 << 1 << "c";
        QTest::newRow("last, left") << 2 << -1 << "b";
        QTest::newRow("last, not at all") << 2 << 0 << "c";
        QTest::newRow("last, right") << 2 << 1 << "a";
    }
    void wheelAtBothEnds()
    {
        QFETCH(int, from);
        QFETCH(int, step);
        QFETCH(QString, to);
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.AddStop("c");
        stage.Start(from);
        if (step < 0)
            stage.navigator->OnWheelLeft();
        else if (step > 0)
            stage.navigator->OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Glowing(), to);
    }

    void wheelPassesWhatIsNotNavigatable_data()
    {
        QTest::addColumn<QString>("why");
        QTest::newRow("hidden") << "hidden";
        QTest::newRow("disabled") << "disabled";
        QTest::newRow("refused by the level") << "refused";
        QTest::newRow("deleted") << "deleted";
        QTest::newRow("out of the visible part of the level") << "outside";
    }
    void wheelPassesWhatIsNotNavigatable()
    {
        QFETCH(QString, why);
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.AddStop("c");
        stage.Start(0);
        if (why == QLatin1String("hidden"))
            b->hide();
        else if (why == QLatin1String("disabled"))
            b->setEnabled(false);
        else if (why == QLatin1String("refused"))
            stage.root->refusedChild = b;
        else if (why == QLatin1String("outside"))
            b->move(-500, 10);
        else
            delete b;
        stage.navigator->OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
        stage.navigator->OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void wheelComesBackToTheStartWhenNothingElseIsNavigatable()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.AddStop("c");
        stage.Start(1);
        QList<TMMITestWidget*> const stops = TNavigatorStage::WidgetsIn(stage.root);
        for (TMMITestWidget* widget : stops)
            widget->setEnabled(false);
        stage.navigator->OnWheelRight();
        stage.navigator->OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Glowing(), b->objectName());
    }

    void stepHidesTheGlowUntilTheTick()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.Start(0);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        stage.navigator->OnWheelRight();
        QCOMPARE(stage.Glowing(), QString());
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        QCOMPARE(stage.calls, QStringList());
    }

    void stepOnAnEmptyLevelStillWakesTheSelection()
    {
        TNavigatorStage stage;
        stage.Start();
        stage.navigator->OnWheelRight();
        stage.navigator->OnWheelLeft();
        stage.AddStop("a");
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void rootThatGetsStopsLaterSelectsTheLast()
    {
        TNavigatorStage stage;
        stage.Start();
        stage.navigator->OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QString());
        stage.AddStop("a");
        stage.AddStop("b");
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void aNavigatorWithoutARootIsSilent()
    {
        TMMICapableWidgetNavigator navigator(nullptr);
        navigator.OnWheelLeft();
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        navigator.OnEnter();
        QVERIFY(!navigator.OnBack());
        navigator.OnHoldBack();
        navigator.RefreshChildren();
        QVERIFY(!navigator.IsCurrentWidgetNavigatable());
    }

    void enteredOwnerGetsTheWheel()
    {
        TNavigatorStage stage;
        TMMITestWidget* const owner = stage.AddStop("owner");
        stage.AddStop("b");
        owner->SetMMIBehaviour(MMI_WHEEL_OWNER);
        stage.Start(0);
        stage.Enter();
        stage.TakeCalls();
        stage.navigator->OnWheelRight();
        stage.navigator->OnWheelLeft();
        QCOMPARE(stage.TakeCalls(), Words("right owner,left owner"));
        QCOMPARE(stage.Glowing(), QStringLiteral("owner"));
    }

    void ownerIsEnteredByTheFirstPressAndAskedByTheSecond()
    {
        TNavigatorStage stage;
        TMMITestWidget* const owner = stage.AddStop("owner");
        owner->SetMMIBehaviour(MMI_WHEEL_OWNER);
        stage.Start(0);
        stage.navigator->OnEnter();
        QCOMPARE(stage.TakeCalls(), QStringList());
        stage.navigator->OnEnter();
        QCOMPARE(stage.TakeCalls(), Words("enter owner"));
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls(), Words("back owner"));
        QVERIFY(!stage.navigator->OnBack());
    }

    void ownersAnswerIsEnteredThroughTheOwner()
    {
        TNavigatorStage stage;
        TMMITestWidget* const owner = stage.AddStop("owner");
        owner->SetMMIBehaviour(MMI_WHEEL_OWNER);
        TMMITestWidget* const list = stage.AddPanel("list");
        stage.Start(0);
        owner->enterAnswer = [list] { return list; };
        stage.Enter();
        stage.Enter();
        QCOMPARE(stage.Glowing(), QStringLiteral("list1"));
        owner->enterAnswer = [] { return nullptr; };
        QVERIFY(stage.navigator->OnBack());
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("owner"));
        stage.TakeCalls();
        stage.Enter();
        QCOMPARE(stage.TakeCalls(), Words("enter owner"));
        QCOMPARE(stage.Glowing(), QStringLiteral("owner"));
    }

    void enterAsksTheStopAndDescends()
    {
        TNavigatorStage stage;
        stage.AddPanel("a");
        stage.AddStop("b");
        stage.Start(0);
        stage.navigator->OnEnter();
        QCOMPARE(stage.TakeCalls(), Words("enter a"));
        QCOMPARE(stage.Glowing(), QString());
        stage.Tick();
        QCOMPARE(stage.TakeCalls(), Words("-a,child a1,+a1"));
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
    }

    void aLeafIsNotEntered()
    {
        TNavigatorStage stage;
        TMMITestWidget* const button = stage.AddStop("button");
        stage.Start(0);
        stage.Enter();
        QCOMPARE(stage.TakeCalls(), Words("enter button"));
        stage.navigator->PushWidget(button);
        stage.navigator->PushMMICapableWidget(button, button, false);
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QStringLiteral("button"));
    }

    void aNullAnswerEntersNothing()
    {
        TNavigatorStage stage;
        stage.AddPanel("a")->enterAnswer = [] { return nullptr; };
        stage.Start(0);
        stage.Enter();
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void keysDoNothingOnADeadSelectionOrRoot()
    {
        TNavigatorStage stage;
        delete stage.AddPanel("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.Start(0);
        delete b;
        stage.navigator->OnEnter();
        QCOMPARE(stage.TakeCalls(), QStringList());
        delete stage.root;
        stage.navigator->OnEnter();
        stage.navigator->OnWheelLeft();
        QVERIFY(!stage.navigator->OnBack());
        stage.navigator->OnHoldBack();
        stage.Tick();
        QCOMPARE(stage.TakeCalls(), QStringList());
    }

    void pushWidgetRefuses_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("null") << "null";
        QTest::newRow("a plain widget") << "plain";
        QTest::newRow("an excluded widget") << "excluded";
        QTest::newRow("the widget on top") << "root";
    }
    void pushWidgetRefuses()
    {
        QFETCH(QString, what);
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        stage.Start(0);
        QWidget plain;
        if (what == QLatin1String("excluded"))
            panel->SetMMIBehaviour(MMI_EXCLUDED);
        QHash<QString, QWidget*> const widgets{{QStringLiteral("null"), nullptr},
                                               {QStringLiteral("plain"), &plain},
                                               {QStringLiteral("excluded"), panel},
                                               {QStringLiteral("root"), stage.root}};
        stage.navigator->PushWidget(widgets.value(what));
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void pushWidgetEntersTheEntryWidget()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        a->entryWidget = stage.AddPanel("b");
        stage.Start(0);
        stage.navigator->PushWidget(a);
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("b1"));
    }

    void aWidgetIsNotEnteredTwiceInARow()
    {
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        stage.Start(0);
        stage.navigator->PushWidget(panel);
        stage.navigator->PushWidget(panel);
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(!stage.navigator->OnBack());
    }

    void carriedOverSelectionIsTheLastStopOfTheNewLevel()
    {
        TNavigatorStage stage;
        stage.AddPanel("a")->carryOver = true;
        stage.root->refusedChild = nullptr;
        stage.Start(0);
        stage.Enter();
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
        stage.navigator->OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        stage.navigator->RefreshChildren();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
        stage.navigator->RefreshChildren();
        stage.StepRight(2);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void backLeavesAndSelectsWhereTheOperatorStood()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddPanel("b");
        stage.AddStop("c");
        stage.Start(1);
        stage.Enter();
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("b2"));
        stage.TakeCalls();
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls(), Words("back b,-b2,child b,+b"));
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void backOnTheLowestLevelAsksNobody()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.Start(0);
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.calls, QStringList());
    }

    void levelThatRefusesBackStaysUntilItVanishes()
    {
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        panel->backAnswer = false;
        stage.Start(0);
        stage.Enter();
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls().constLast(), QStringLiteral("back a"));
        stage.Tick(1000);
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
        delete panel;
        stage.Tick();
        QVERIFY(!stage.navigator->OnBack());
    }

    void longPressOfBackLeavesWithoutAsking()
    {
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        panel->backAnswer = false;
        stage.Start(0);
        stage.Enter();
        stage.TakeCalls();
        stage.navigator->OnHoldBack();
        QCOMPARE(stage.TakeCalls(), Words("-a1,child a,+a"));
        QVERIFY(!stage.navigator->OnBack());
    }

    void longPressOfBackOnTheLowestLevelSelectsTheLastStop()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.AddStop("c");
        stage.Start(0);
        stage.navigator->OnHoldBack();
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
    }

    void hiddenLevelStaysForHalfASecond()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const opener = stage.AddStop("opener");
        TMMITestWidget* const window = stage.AddPanel("window");
        opener->entryWidget = window;
        stage.Start(1);
        stage.navigator->OnEnter();
        stage.Tick(100);
        QCOMPARE(stage.Glowing(), QStringLiteral("window1"));
        window->hide();
        stage.Tick(400);
        QVERIFY(stage.Glowing().isEmpty());
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("opener"));
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("back")), QStringList());
    }

    void disabledLevelIsLeftLikeAHiddenOne()
    {
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        stage.Start(0);
        stage.Enter();
        panel->setEnabled(false);
        stage.Tick(401);
        QVERIFY(!stage.navigator->OnBack());
    }

    void deletedLevelIsLeftAtTheNextTick()
    {
        TNavigatorStage stage;
        stage.AddPanel("a");
        TMMITestWidget* const window = stage.AddPanel("window");
        stage.Start(0);
        stage.navigator->OnEnter();
        stage.navigator->PushWidget(window);
        stage.Tick(10);
        QCOMPARE(stage.Glowing(), QStringLiteral("window1"));
        delete window;
        stage.Tick(10);
        // The level beneath is built anew, and what was selected below it is none of its stops: the last is
        // taken.
        QCOMPARE(stage.Glowing(), QStringLiteral("a2"));
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void deadLevelBeneathAHiddenOneLeavesALivingList()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const window = stage.AddPanel("window");
        TMMITestWidget* const popup = stage.AddPanel("popup");
        stage.Start(0);
        stage.navigator->PushWidget(window);
        stage.Tick();
        stage.navigator->PushWidget(popup);
        stage.Tick();
        delete window;
        popup->hide();
        stage.Tick(1000);
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void levelThatLosesItsLastStopIsLeft()
    {
        TNavigatorStage stage;
        TMMITestWidget* const panel = stage.AddPanel("a");
        stage.Start(0);
        stage.Enter();
        qDeleteAll(TNavigatorStage::WidgetsIn(panel));
        stage.navigator->RefreshChildren();
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        QVERIFY(!stage.navigator->OnBack());
    }

    void refreshKeepsTheSelection()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.Start(1);
        stage.AddStop("c");
        b->move(500, 10);
        stage.navigator->RefreshChildren();
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
    }

    void refreshSelectsTheGivenStopOrElseTheLast()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.AddStop("c");
        stage.Start(0);
        stage.navigator->RefreshChildren(b);
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
        stage.navigator->RefreshChildren(stage.root.data());
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
        stage.navigator->RefreshChildren(b);
        stage.navigator->RefreshChildren(TMMICapableWeakRef());
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
    }

    void deletedSelectionGivesWayToTheNextStop_data()
    {
        QTest::addColumn<bool>("hide");
        QTest::newRow("hidden") << true;
        QTest::newRow("deleted") << false;
    }
    void deletedSelectionGivesWayToTheNextStop()
    {
        QFETCH(bool, hide);
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b")->hide();
        TMMITestWidget* const c = stage.AddStop("c");
        stage.AddStop("d")->setEnabled(false);
        stage.Start(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
        if (hide)
            c->hide();
        else
            delete c;
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void deletedOnlyStopShowsNothing()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        stage.Start(0);
        delete a;
        stage.Tick();
        QCOMPARE(stage.Glowing(), QString());
        QCOMPARE(stage.calls, QStringList());
        stage.navigator->OnEnter();
        stage.StepRight();
        QCOMPARE(stage.calls, QStringList());
    }

    void selectionVanishesThirtySecondsAfterTheWheel()
    {
        TNavigatorStage stage;
        stage.AddPanel("a");
        stage.Start(0);
        stage.navigator->OnWheelLeft();
        stage.Tick(29999);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QString());
        QCOMPARE(stage.TakeCalls(), Words("-a"));
        stage.navigator->OnEnter();
        QCOMPARE(stage.TakeCalls(), QStringList());
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void keysDoNotKeepTheSelectionAwake()
    {
        TNavigatorStage stage;
        stage.AddPanel("a");
        stage.Start(0);
        stage.Tick(20000);
        stage.Enter();
        stage.navigator->OnBack();
        stage.Tick(10000);
        QCOMPARE(stage.Glowing(), QString());
    }

    void levelWithoutTimeOutKeepsTheSelection()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.root->timeoutEnabled = false;
        stage.Start(0);
        stage.Tick(100000);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void popupWithADelayRestsForItsFirstHalfSecond()
    {
        TNavigatorStage stage;
        TMMITestWidget* const popup = stage.AddPanel("popup");
        popup->selectionDelay = 500;
        stage.Start(0);
        stage.navigator->PushWidget(popup);
        stage.TakeCalls();
        for (int i = 0; i < 6; ++i)
        {
            QCOMPARE(stage.Glowing(), QString());
            stage.navigator->OnEnter();
            QVERIFY(!stage.navigator->OnBack());
            stage.navigator->OnHoldBack();
            stage.Tick(i < 5 ? 100 : 1);
        }
        QCOMPARE(stage.Glowing(), QStringLiteral("popup1"));
        QCOMPARE(stage.TakeCalls(), Words("-popup,child popup1,+popup1"));
        QVERIFY(stage.navigator->OnBack());
    }

    void changeOfSelectionCallsInOrder()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.Start(0);
        stage.StepRight();
        QCOMPARE(stage.TakeCalls(), Words("-a,child b,+b"));
    }

    void glowIsTakenAfterTheLevelHasScrolled()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        stage.Start(0);
        stage.root->highlightChild = [b] { b->move(300, 200); };
        stage.StepRight();
        QCOMPARE(stage.Highlight()->geometry(), QRect(300, 200, 80, 40));
    }

    void glowIsASiblingDirectlyAboveTheSelection()
    {
        TNavigatorStage stage;
        auto* const box = new QWidget(stage.root);
        box->setGeometry(100, 100, 400, 400);
        stage.Add(box, "a", QRect(10, 10, 80, 40));
        stage.Add(box, "b", QRect(110, 10, 80, 40));
        stage.Start(1);
        auto* const cover = new QWidget(box);
        cover->show();
        QCOMPARE(stage.Highlight()->parentWidget(), box);
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        QVERIFY(box->children().indexOf(stage.Highlight()) < box->children().indexOf(cover));
    }

    void glowLeavesTheOrderOfTheWidgetsAlone()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.AddStop("c");
        QObjectList const order = stage.root->children();
        stage.Start(0);
        for (int i = 0; i < 4; ++i)
        {
            QObjectList now = stage.root->children();
            now.removeOne(stage.Highlight());
            QCOMPARE(now, order);
            stage.StepRight();
        }
    }

    void glowIsBlueInsideAnEnteredOwnerAndElseWhite()
    {
        TNavigatorStage stage;
        stage.AddStop("owner")->SetMMIBehaviour(MMI_WHEEL_OWNER);
        stage.Start(0);
        QCOMPARE(stage.Highlight()->GetColour(), QColor(255, 255, 255, 255));
        stage.Enter();
        QCOMPARE(stage.Highlight()->GetColour(), QColor(0, 0, 255, 255));
        QCOMPARE(stage.Glowing(), QStringLiteral("owner"));
        stage.navigator->OnBack();
        QCOMPARE(stage.Highlight()->GetColour(), QColor(255, 255, 255, 255));
    }

    void glowIsOnTheScreen()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.root->setStyleSheet(QStringLiteral("background: black"));
        stage.Start(0);
        QImage const picture = stage.root->grab().toImage();
        QVERIFY(picture.pixelColor(10, 30).red() > 200);
        QVERIFY(picture.pixelColor(50, 30).red() < 40);
        QCOMPARE(picture.pixelColor(5, 30), QColor(Qt::black));
    }

    void widgetThatShowsTheSelectionItselfHasNoGlow()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b")->SetUseDefaultMMIHighlight(false);
        stage.Start(0);
        stage.StepRight();
        QCOMPARE(stage.TakeCalls(), Words("-a,child b,+b"));
        QCOMPARE(stage.Glowing(), QString());
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void glowFollowsTheSelectionAndConsumesNothing()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        stage.AddStop("b");
        stage.Start(0);
        a->move(40, 50);
        QCOMPARE(stage.Highlight()->geometry(), QRect(40, 50, 80, 40));
        a->resize(200, 30);
        QCOMPARE(stage.Highlight()->geometry(), QRect(40, 50, 200, 30));
        QMoveEvent move(QPoint(1, 2), QPoint());
        QVERIFY(!stage.navigator->eventFilter(a, &move));
        QCOMPARE(stage.Highlight()->pos(), QPoint(1, 2));
        stage.StepRight();
        a->move(10, 300);
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void glowFollowsASelectionThatChangesItsParent()
    {
        TNavigatorStage stage;
        auto* const left = new QWidget(stage.root);
        left->setGeometry(0, 0, 300, 300);
        auto* const right = new QWidget(stage.root);
        right->setGeometry(300, 0, 300, 300);
        TMMITestWidget* const a = stage.Add(left, "a", QRect(10, 10, 80, 40));
        stage.Start(0);
        a->setParent(right);
        a->setGeometry(20, 30, 50, 60);
        a->show();
        delete left;
        stage.Tick();
        QCOMPARE(stage.Highlight()->parentWidget(), right);
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
        QVERIFY(!IsAnotherWindowOpen(stage.root));
    }

    void glowIsMadeAnewWhenItDiedWithItsParent()
    {
        TNavigatorStage stage;
        auto* const box = new QWidget(stage.root);
        box->setGeometry(0, 100, 300, 100);
        stage.AddStop("a");
        stage.Add(box, "b", QRect(0, 0, 80, 40));
        stage.Start(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
        delete box;
        QVERIFY(!stage.Highlight());
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("a"));
    }

    void selectionWithoutAParentOpensNoWindow()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.root->SetMMIBehaviour(MMI_WHEEL_OWNER);
        stage.Start();
        stage.navigator->OnWheelRight();
        stage.Tick();
        stage.Tick();
        QCOMPARE(stage.TakeCalls(), Words("right root,child root,+root"));
        QVERIFY(!IsAnotherWindowOpen(stage.root));
        stage.root->SetMMIBehaviour(MMI_NORMAL);
        stage.Tick();
        QVERIFY(!IsAnotherWindowOpen(stage.root));
    }

    void selectionThatIsNoWidgetIsToldToItsLevelOnly()
    {
        TManualClock clock;
        TObjectLevel level;
        auto* const stop = new TObjectStop(&level);
        level.show();
        TMMICapableWidgetNavigator navigator(&level);
        navigator.OnWheelRight();
        clock.Advance(100);
        navigator.UpdateFocus();
        QCOMPARE(level.told, QVector<KVN::MMICapableWidget*>{stop});
        QCOMPARE(stop->highlights, 0);
        QVERIFY(!IsAnotherWindowOpen(&level));
        clock.Advance(30000);
        navigator.UpdateFocus();
        QCOMPARE(stop->unHighlights, 1);
    }

    void stepAfterAQuietTimeMovesToo()
    {
        TNavigatorStage stage;
        stage.AddStop("a");
        stage.AddStop("b");
        stage.Start(0);
        stage.Tick(30000);
        QCOMPARE(stage.Glowing(), QString());
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void levelWithoutDelayShowsNothingInTheMillisecondOfItsEntering()
    {
        TNavigatorStage stage;
        stage.AddPanel("a");
        stage.Start(0);
        stage.navigator->OnEnter();
        stage.Tick(0);
        QCOMPARE(stage.Glowing(), QString());
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
    }

    void youngHiddenLevelKeepsThoseBeneathIt()
    {
        TNavigatorStage stage;
        TMMITestWidget* const window = stage.AddPanel("window");
        TMMITestWidget* const popup = stage.AddPanel("popup");
        stage.Start(0);
        stage.navigator->PushWidget(window);
        stage.Tick(1000);
        stage.navigator->PushWidget(popup);
        window->hide();
        popup->hide();
        stage.Tick(500);
        QCOMPARE(stage.Glowing(), QString());
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("window"));
    }

    void glowGoesWithTheNavigator()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        stage.Start(0);
        delete stage.navigator;
        QVERIFY(!stage.Highlight());
        a->move(50, 50);
    }

    void idleTickAllocatesPaintsAndTouchesNothing_data()
    {
        QTest::addColumn<QString>("state");
        QTest::newRow("before the first step") << "asleep";
        QTest::newRow("with a selection") << "selected";
        QTest::newRow("inside a wheel owner") << "owner";
        QTest::newRow("on a level without stops") << "empty";
        QTest::newRow("on a screen that is hidden") << "hidden";
        QTest::newRow("with a path that leads nowhere") << "path";
    }
    void idleTickAllocatesPaintsAndTouchesNothing()
    {
        QFETCH(QString, state);
        TNavigatorStage stage;
        // The clock in the hand takes memory for its lock.
        TLocalTime::SetClock({});
        if (state != QLatin1String("empty"))
        {
            stage.AddStop("owner")->SetMMIBehaviour(MMI_WHEEL_OWNER);
            stage.AddPanel("b");
        }
        stage.Start();
        if (state != QLatin1String("asleep"))
            stage.Wake();
        if (state != QLatin1String("asleep") && state != QLatin1String("empty"))
            QTRY_COMPARE(stage.Glowing(), QStringLiteral("owner"));
        if (state == QLatin1String("owner"))
            stage.Enter();
        if (state == QLatin1String("path"))
            stage.navigator->FollowPath(stage.root, {QStringLiteral("nowhere")}, nullptr, QString());
        if (state == QLatin1String("hidden"))
            stage.root->hide();
        qint64 const then = TLocalTime::getCurrentTime();
        QTRY_VERIFY(TLocalTime::getCurrentTime() > then);
        stage.navigator->UpdateFocus();
        QTRY_VERIFY(RunEventsOut());
        stage.TakeCalls();

        TWidgetEventCounter events;
        TAllocationCount const allocations;
        for (int i = 0; i < 100; ++i)
            stage.navigator->UpdateFocus();
        QCOMPARE(allocations.Value(), qint64(0));
        QCOMPARE(events.count, 0);
        QCoreApplication::processEvents();
        QCOMPARE(events.paints, 0);
        QCOMPARE(stage.calls, QStringList());
    }

    void allocationsAreSeen()
    {
        TAllocationCount const allocations;
        QVector<int> const some(100);
        QCOMPARE(some.size(), 100);
        QVERIFY(allocations.Value() > 0);
    }
};

COMMONUI_TEST(TMMICapableWidgetNavigatorTest)
#include "TMMICapableWidgetNavigatorTest.moc"
