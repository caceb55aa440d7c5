#include "TAllocationCount.h"
#include "TestCase.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TViewStage.h"
#include "TWindowManager.h"

#include <QLabel>
#include <QSignalSpy>

#include <climits>

namespace
{
constexpr int InSlotX = 67;
constexpr int SlotHeight = 256;

bool IsTransparent(QWidget const* widget)
{
    return widget->testAttribute(Qt::WA_TransparentForMouseEvents);
}

// Counts what reaches the widgets of the program.
class TEventCount : public QObject
{
public:
    TEventCount() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        bool const isTimer = event->type() == QEvent::Timer;
        m_Events += watched->isWidgetType() && !isTimer ? 1 : 0;
        m_Paints += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ? 1 : 0;
        return false;
    }

    int m_Events = 0;
    int m_Paints = 0;
};

QList<int> Steps(std::initializer_list<int> steps)
{
    return QList<int>(steps);
}
} // namespace

Q_DECLARE_METATYPE(QList<int>)

class TWindowManagerFramesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Positions by the time that has passed, whatever the frames

    void slidesIn_data()
    {
        QTest::addColumn<QList<int>>("frames");
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("done");
        // 67 - 275 + ms * 275 / 160, cut to an integer: towards zero, also to the left of the screen.
        QTest::newRow("0 ms") << Steps({0}) << -208 << false;
        QTest::newRow("1 ms") << Steps({1}) << -206 << false;
        QTest::newRow("20 ms") << Steps({20}) << -173 << false;
        QTest::newRow("80 ms") << Steps({80}) << -70 << false;
        QTest::newRow("80 ms in four frames") << Steps({20, 20, 20, 20}) << -70 << false;
        QTest::newRow("80 ms in uneven frames") << Steps({1, 60, 0, 19}) << -70 << false;
        QTest::newRow("121 ms") << Steps({121}) << 0 << false;
        QTest::newRow("159 ms") << Steps({159}) << 65 << false;
        QTest::newRow("160 ms") << Steps({160}) << 67 << true;
        QTest::newRow("160 ms in eight frames") << Steps({20, 20, 20, 20, 20, 20, 20, 20}) << 67 << true;
        QTest::newRow("161 ms") << Steps({161}) << 67 << true;
        QTest::newRow("a frame late by a minute") << Steps({60000}) << 67 << true;
        QTest::newRow("a frame late by a month") << Steps({INT_MAX}) << 67 << true;
        QTest::newRow("a clock set back") << Steps({80, -500, 0}) << -70 << false;
    }

    void slidesIn()
    {
        QFETCH(QList<int>, frames);
        QFETCH(int, x);
        QFETCH(bool, done);
        TViewStage stage;
        stage.AddStanding(QStringLiteral("first"));
        TTestView const view = stage.Add(QStringLiteral("a"));
        view.mini->ChildButtonsPropagateClick(false);
        stage.manager->OnShowMiniView(view.id);
        for (int const ms : frames)
            stage.screen.Frame(ms);
        QCOMPARE(view.mini->pos(), QPoint(x, SlotHeight));
        QCOMPARE(stage.State(view), done ? MINI_VIEW_SHOWN : MINI_VIEW_OPENING);
        QCOMPARE(IsTransparent(view.mini), !done);
        QCOMPARE(view.mini->m_Propagates, done);
    }

    void slidesOut_data()
    {
        QTest::addColumn<QList<int>>("frames");
        QTest::addColumn<int>("x");
        QTest::addColumn<bool>("done");
        // 67 - ms * 275 / 160; one ms more than the slide, so that the last place is drawn before it goes.
        QTest::newRow("0 ms") << Steps({0}) << 67 << false;
        QTest::newRow("1 ms") << Steps({1}) << 65 << false;
        QTest::newRow("20 ms") << Steps({20}) << 32 << false;
        QTest::newRow("80 ms") << Steps({80}) << -70 << false;
        QTest::newRow("159 ms") << Steps({159}) << -206 << false;
        QTest::newRow("160 ms") << Steps({160}) << -208 << false;
        QTest::newRow("160 ms in eight frames") << Steps({20, 20, 20, 20, 20, 20, 20, 20}) << -208 << false;
        QTest::newRow("161 ms") << Steps({161}) << -209 << true;
        QTest::newRow("and one more") << Steps({160, 1}) << -209 << true;
        QTest::newRow("far too late") << Steps({60000}) << -209 << true;
    }

    void slidesOut()
    {
        QFETCH(QList<int>, frames);
        QFETCH(int, x);
        QFETCH(bool, done);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        stage.manager->OnHideMiniView(view.id, true);
        for (int const ms : frames)
            stage.screen.Frame(ms);
        QCOMPARE(view.mini->pos(), QPoint(x, 0));
        QCOMPARE(stage.State(view), done ? MINI_VIEW_HIDDEN : MINI_VIEW_HIDING);
        QCOMPARE(view.mini->isVisible(), !done);
        if (done)
            QCOMPARE(moved.last(), (QVariantList{view.id, 0, 0}));
    }

    void theShadowsSlideAlong()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        stage.screen.Frame(80);
        QList<QLabel*> const shadows =
            stage.screen->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(shadows[0]->pos(), QPoint(-70 + 268, 0));
        QCOMPARE(shadows[1]->pos(), QPoint(-70, SlotHeight));
    }

    void aHeldWindowStaysAfterItsSlide()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnHideMiniView(view.id, false);
        stage.screen.Frame(161);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
        QVERIFY(view.mini->isVisible());
        stage.manager->OnMiniViewHideComplete(view.id);
        QVERIFY(!view.mini->isVisible());
    }

    void lettingGoDuringTheSlideHidesAtItsEnd()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnHideMiniView(view.id, false);
        stage.screen.Frame(80);
        stage.manager->OnMiniViewHideComplete(view.id);
        QVERIFY(view.mini->isVisible());
        stage.screen.Frame(81);
        QVERIFY(!view.mini->isVisible());
    }

    void lettingGoOfAShownWindowHidesNothing()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnMiniViewHideComplete(view.id);
        stage.screen.FinishSlides();
        QVERIFY(view.mini->isVisible());
    }

    // A drop settles from where the finger left the window

    void settles_data()
    {
        QTest::addColumn<bool>("byTop");
        QTest::addColumn<int>("y");
        QTest::addColumn<QString>("slots");
        QTest::addColumn<int>("state");
        QTest::addColumn<QList<int>>("places"); // at once, after 20 ms, in the end
        int const up = MINI_VIEW_SETTLING_UP;
        int const down = MINI_VIEW_SETTLING_DOWN;
        // (256 - 100) / 1.6 = 97 ms are done; from there (slot + 1) * 256 - ms * 1.6.
        QTest::newRow("top dropped in the first") << true << 100 << "1||" << up << Steps({100, 68, 0});
        QTest::newRow("top dropped in the second") << true << 356 << "|1|" << up << Steps({356, 324, 256});
        QTest::newRow("top dropped in the third") << true << 612 << "||1" << up << Steps({612, 580, 512});
        QTest::newRow("top at a slot's top") << true << 256 << "|1|" << up << Steps({256, 256, 256});
        QTest::newRow("top at a slot's last row") << true << 511 << "|1|" << up << Steps({512, 480, 256});
        QTest::newRow("top above the screen") << true << -50 << "1||" << down << Steps({-256, -224, 0});
        QTest::newRow("top at zero") << true << 0 << "1||" << up << Steps({0, 0, 0});
        // 100 / 1.6 = 62 ms are done; from there (slot - 1) * 256 + ms * 1.6.
        QTest::newRow("bottom dropped in the first")
            << false << 100 << "1||" << down << Steps({-156, -124, 0});
        QTest::newRow("bottom dropped in the second")
            << false << 356 << "|1|" << down << Steps({99, 131, 256});
        QTest::newRow("bottom dropped in the third")
            << false << 612 << "||1" << down << Steps({355, 387, 512});
        QTest::newRow("bottom at a slot's top") << false << 512 << "||1" << down << Steps({256, 288, 512});
        QTest::newRow("bottom at the last row") << false << 767 << "||1" << down << Steps({510, 512, 512});
        QTest::newRow("bottom below the screen") << false << 900 << "||1" << down << Steps({510, 512, 512});
    }

    void settles()
    {
        QFETCH(bool, byTop);
        QFETCH(int, y);
        QFETCH(QString, slots);
        QFETCH(int, state);
        QFETCH(QList<int>, places);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        view.mini->ChildButtonsPropagateClick(false);
        if (byTop)
            stage.manager->OnSlideMiniViewUp(view.id, y);
        else
            stage.manager->OnSlideMiniViewDown(view.id, y);
        QCOMPARE(view.mini->pos(), QPoint(InSlotX, byTop ? y : y - SlotHeight));
        stage.manager->OnMiniViewDoneDrag(view.id, y);
        QCOMPARE(stage.Slots(), slots);
        QCOMPARE(int(stage.State(view)), state);
        QVERIFY(IsTransparent(view.mini));
        QList<int> seen;
        stage.screen.Frame(0);
        seen.append(view.mini->y());
        stage.screen.Frame(20);
        seen.append(view.mini->y());
        stage.screen.FinishSlides();
        seen.append(view.mini->y());
        QCOMPARE(seen, places);
        QCOMPARE(view.mini->x(), InSlotX);
        QCOMPARE(stage.State(view), MINI_VIEW_SHOWN);
        QVERIFY(!IsTransparent(view.mini));
        QVERIFY(view.mini->m_Propagates);
    }

    void aSettlingWindowArrivesAFrameBeforeItIsThere()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnSlideMiniViewUp(view.id, 100);
        stage.manager->OnMiniViewDoneDrag(view.id, 100);
        stage.screen.Frame(62); // 97 + 62
        QCOMPARE(view.mini->y(), 1);
        stage.screen.Frame(1);
        QCOMPARE(view.mini->y(), 0);
        QCOMPARE(stage.State(view), MINI_VIEW_SETTLING_UP);
        stage.screen.Frame(1);
        QCOMPARE(stage.State(view), MINI_VIEW_SHOWN);
    }

    void aDropOnAnotherWindowCoversIt()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.manager->OnSlideMiniViewDown(a.id, 400);
        stage.manager->OnMiniViewDoneDrag(a.id, 400);
        QCOMPARE(stage.Slots(), QStringLiteral("|2 1|"));
        stage.screen.FinishSlides();
        QVERIFY(stage.manager->IsMiniViewObscured(b.id));
        QCOMPARE(a.mini->pos(), b.mini->pos());
        QObjectList const order = stage.screen->children();
        QVERIFY(order.indexOf(a.mini) > order.indexOf(b.mini));
        QVERIFY(order.indexOf(a.mini) < order.indexOf(stage.screen->GetNavigationBar()));
    }

    void aSlidingWindowLiesAboveTheOthers()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        stage.manager->OnSlideMiniViewDown(a.id, 300);
        QObjectList const order = stage.screen->children();
        QVERIFY(order.indexOf(a.mini) > order.indexOf(b.mini));
        QVERIFY(order.indexOf(a.mini) < order.indexOf(stage.screen->GetNavigationBar()));
    }

    void aDropWithoutASlotDoesNothing()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnMiniViewDoneDrag(view.id, 300);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
    }

    void drops_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<QString>("slots");
        QTest::newRow("least") << INT_MIN << "1||";
        QTest::newRow("minus one") << -1 << "1||";
        QTest::newRow("zero") << 0 << "1||";
        QTest::newRow("last row of the first") << 255 << "1||";
        QTest::newRow("first row of the second") << 256 << "|1|";
        QTest::newRow("first row of the third") << 512 << "||1";
        QTest::newRow("last row of the screen") << 767 << "||1";
        QTest::newRow("one below the screen") << 768 << "||1";
        QTest::newRow("greatest") << INT_MAX << "||1";
    }

    void drops()
    {
        QFETCH(int, y);
        QFETCH(QString, slots);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnMiniViewDoneDrag(view.id, y);
        QCOMPARE(stage.Slots(), slots);
    }

    // The whole road with a finger

    void aFingerDragsAWindowIntoAnotherSlot_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<QPoint>("end");
        QTest::addColumn<QString>("slots");
        QTest::newRow("down by the content") << QPoint(300, 100) << QPoint(300, 400) << "|1|";
        QTest::newRow("down by a button") << QPoint(150, 100) << QPoint(150, 700) << "||1";
        QTest::newRow("down by the title") << QPoint(217, 15) << QPoint(217, 500) << "|1|";
        QTest::newRow("down out of the screen") << QPoint(300, 100) << QPoint(300, 900) << "||1";
        QTest::newRow("up out of the screen") << QPoint(300, 100) << QPoint(300, -20) << "1||";
        QTest::newRow("within the window") << QPoint(300, 100) << QPoint(300, 250) << "1||";
    }

    void aFingerDragsAWindowIntoAnotherSlot()
    {
        QFETCH(QPoint, start);
        QFETCH(QPoint, end);
        QFETCH(QString, slots);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        TPushButton button(view.mini->GetWindowContent(), 1, QString());
        button.setGeometry(20, 20, 100, 100);
        button.show();
        QSignalSpy const clicked(&button, &QAbstractButton::clicked);
        stage.finger.Press(start);
        stage.finger.Move({(start + end) / 2, end});
        stage.finger.Lift();
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), slots);
        QCOMPARE(stage.State(view), MINI_VIEW_SHOWN);
        int const slot = slots.indexOf(QLatin1Char('1'));
        QCOMPARE(view.mini->pos(), QPoint(InSlotX, slot * SlotHeight));
        QCOMPARE(clicked.count(), 0);
        // The buttons of the settled window work again.
        stage.finger.Touch(&button);
        QCOMPARE(clicked.count(), 1);
    }

    void aFingerDragsAWindowAway()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.finger.Press({200, 100});
        stage.finger.Move({{100, 100}, {66, 100}});
        QCOMPARE(stage.State(view), MINI_VIEW_HIDING);
        stage.screen.FinishSlides();
        // It slid away, but goes only when both have happened.
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
        QVERIFY(view.mini->isVisible());
        stage.finger.Lift();
        QVERIFY(!view.mini->isVisible());
    }

    // As by a press on the setup's button with another finger, or by the wheel.
    void aWindowThatIsTakenAwayUnderTheFingerSettles()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.finger.Press({200, 100});
        stage.finger.Move({200, 300});
        stage.manager->HideAllMiniViews(false);
        stage.finger.Move({200, 400});
        stage.finger.Lift();
        stage.manager->RestoreAllMiniViews();
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), QStringLiteral("|1|"));
        QCOMPARE(view.mini->pos(), QPoint(InSlotX, SlotHeight));
    }

    void aFingerLetsGoBeforeTheWindowIsAway()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        stage.finger.Press({200, 100});
        stage.finger.Move({66, 100});
        stage.finger.Lift();
        QVERIFY(view.mini->isVisible());
        stage.screen.FinishSlides();
        QVERIFY(!view.mini->isVisible());
        QCOMPARE(stage.State(view), MINI_VIEW_HIDDEN);
    }

    void aFingerMaximisesAWindow_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::newRow("by the content") << QPoint(300, 100);
        QTest::newRow("by a button") << QPoint(150, 100);
        QTest::newRow("by the maximise button") << QPoint(310, 15);
    }

    void aFingerMaximisesAWindow()
    {
        QFETCH(QPoint, start);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        TPushButton button(view.mini->GetWindowContent(), 1, QString());
        button.setGeometry(20, 20, 100, 100);
        button.show();
        int clicks = 0;
        QObject const listener;
        QList<TPushButton*> const buttons = view.mini->findChildren<TPushButton*>();
        for (TPushButton* const each : buttons)
            connect(each, &QAbstractButton::clicked, &listener, [&clicks] { ++clicks; });
        stage.finger.Press(start);
        stage.finger.Move({InSlotX + 269, start.y()});
        QCOMPARE(stage.manager->GetFullViewId(), view.id);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDING);
        stage.finger.Lift();
        stage.screen.FinishSlides();
        QCOMPARE(clicks, 0);
        QCOMPARE(stage.calls.count(QStringLiteral("a maximise")), 1);
        QVERIFY(!view.mini->isVisible());
        QVERIFY(view.full->isVisible());
    }

    void aMovingWindowTakesNoFinger()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        stage.screen.Frame(150);
        stage.finger.Press({200, 100});
        stage.finger.Move({200, 400});
        stage.finger.Lift();
        QCOMPARE(stage.State(view), MINI_VIEW_OPENING);
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), QStringLiteral("1||"));
    }

    // Slots of the manager's signal may do anything

    void aSlideMayBeTurnedInItsLastFrame()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(view.id);
        stage.screen.Frame(80);
        connect(stage.manager, &TWindowManager::MiniViewHasMoved, this,
                [&]
                {
                    if (stage.State(view) == MINI_VIEW_OPENING)
                        stage.manager->OnHideMiniView(view.id, true);
                });
        stage.screen.Frame(80);
        QCOMPARE(stage.State(view), MINI_VIEW_HIDING);
        stage.screen.FinishSlides();
        QVERIFY(!view.mini->isVisible());
    }

    void aLayoutMayBeRestoredByASlide_data()
    {
        QTest::addColumn<int>("ms");
        QTest::newRow("first frame") << 0;
        QTest::newRow("middle") << 80;
        QTest::newRow("last frame") << 160;
    }

    void aLayoutMayBeRestoredByASlide()
    {
        QFETCH(int, ms);
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        QString const layout = QStringLiteral("<Windows><WindowManagerState>"
                                              "<ActiveMiniview SlotNumber='2' TargetName='a'/>"
                                              "</WindowManagerState></Windows>");
        stage.manager->OnShowMiniView(a.id);
        bool done = false;
        connect(stage.manager, &TWindowManager::MiniViewHasMoved, this,
                [&]
                {
                    if (done)
                        return;
                    done = true;
                    stage.manager->RestoreStateFromSnapShot(layout, true);
                });
        stage.screen.Frame(ms);
        QCOMPARE(stage.Slots(), QStringLiteral("||1"));
        QCOMPARE(stage.State(a), MINI_VIEW_OPENING);
        QCOMPARE(a.mini->pos(), QPoint(InSlotX - SlotHeight, 2 * SlotHeight));
        QVERIFY(!b.mini->isVisible());
        stage.screen.FinishSlides();
        QCOMPARE(a.mini->pos(), QPoint(InSlotX, 2 * SlotHeight));
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
    }

    void windowsMayGoInTheMiddleOfAFrame_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("byDelete");
        for (bool const byDelete : {false, true})
        {
            char const* const how = byDelete ? "deleted" : "removed";
            QTest::addRow("opening, %s", how) << int(MINI_VIEW_OPENING) << byDelete;
            QTest::addRow("hiding, %s", how) << int(MINI_VIEW_HIDING) << byDelete;
            QTest::addRow("settling, %s", how) << int(MINI_VIEW_SETTLING_UP) << byDelete;
        }
    }

    void windowsMayGoInTheMiddleOfAFrame()
    {
        QFETCH(int, state);
        QFETCH(bool, byDelete);
        TViewStage stage;
        QList<TTestView> views;
        for (char const* const name : {"a", "b", "c"})
            views.append(stage.Add(QLatin1String(name)));
        for (TTestView const& view : qAsConst(views))
            stage.manager->OnShowMiniView(view.id);
        if (state != MINI_VIEW_OPENING)
            stage.screen.FinishSlides();
        for (TTestView const& view : qAsConst(views))
        {
            if (state == MINI_VIEW_HIDING)
                stage.manager->OnHideMiniView(view.id, true);
            if (state == MINI_VIEW_SETTLING_UP)
                stage.manager->OnMiniViewDoneDrag(view.id, view.mini->y() - 10);
        }
        connect(stage.manager, &TWindowManager::MiniViewHasMoved, this,
                [&]
                {
                    for (TTestView const& view : qAsConst(views))
                    {
                        if (byDelete)
                            delete view.mini;
                        else
                            stage.manager->RemoveView(view.id);
                    }
                });
        stage.screen.Frame(170);
        stage.screen.Frame(170);
        stage.screen.FinishSlides();
        stage.manager->OnUpdateScreen();
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(stage.screen->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
    }

    void aWindowMayBeDeletedInAnyState_data()
    {
        QTest::addColumn<QString>("moment");
        for (char const* const moment : {"hidden", "opening", "shown", "hiding", "settling", "pressed",
                                         "dragged", "held away", "highlighted"})
            QTest::newRow(moment) << moment;
    }

    void aWindowMayBeDeletedInAnyState()
    {
        QFETCH(QString, moment);
        TViewStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const other = stage.AddStanding(QStringLiteral("b"));
        if (moment != QLatin1String("hidden"))
            stage.manager->OnShowMiniView(view.id);
        if (moment == QLatin1String("opening"))
            stage.screen.Frame(50);
        else
            stage.screen.FinishSlides();
        if (moment == QLatin1String("hiding"))
            stage.manager->OnHideMiniView(view.id, true), stage.screen.Frame(50);
        if (moment == QLatin1String("settling"))
            stage.manager->OnMiniViewDoneDrag(view.id, 700), stage.screen.Frame(50);
        if (moment == QLatin1String("pressed"))
            stage.finger.Press({200, 400});
        if (moment == QLatin1String("dragged"))
            stage.finger.Press({200, 400}), stage.finger.Move({200, 600});
        if (moment == QLatin1String("held away"))
            stage.finger.Press({200, 400}), stage.finger.Move({50, 400}), stage.screen.FinishSlides();
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        delete view.mini;
        stage.finger.Move({100, 100});
        stage.finger.Lift();
        navigator.OnWheelLeft();
        navigator.UpdateFocus();
        stage.screen.FinishSlides();
        stage.manager->OnUpdateScreen();
        QCOMPARE(stage.Slots(), QStringLiteral("2||"));
        QCOMPARE(stage.screen->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
        QCOMPARE(stage.State(other), MINI_VIEW_SHOWN);
        stage.screen->SetMMINavigator(nullptr);
    }

    void theScreenMayGoInTheMiddleOfASlide()
    {
        for (int const ms : {0, 80, 160})
        {
            TViewStage stage;
            TTestView const a = stage.AddStanding(QStringLiteral("a"));
            TTestView const b = stage.Add(QStringLiteral("b"));
            stage.manager->OnHideMiniView(a.id, true);
            stage.manager->OnShowMiniView(b.id);
            stage.screen.Frame(ms);
            delete stage.screen.get();
            QVERIFY(!a.mini); // shown windows are the screen's
        }
    }

    // What an idle console costs

    void anIdleFrameCostsNothing()
    {
        TViewStage stage;
        for (char const* const name : {"a", "b", "c", "d"})
            stage.AddStanding(QLatin1String(name), VIEW_ALL);
        stage.Add(QStringLiteral("e"), VIEW_ALL);
        stage.manager->DisplayFullView(1, false);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        // With the console's own clock: asking the one of the tests takes memory.
        TLocalTime::SetClock({});
        stage.manager->OnNextFrame();
        QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
        TEventCount events;
        TAllocationCount const allocations;
        for (int i = 0; i < 100; ++i)
            stage.manager->OnNextFrame();
        qint64 const allocated = allocations.Value();
        QCOMPARE(allocated, 0);
        QCOMPARE(events.m_Events, 0);
        QCOMPARE(moved.count(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(events.m_Paints, 0);

        // The counters do count.
        stage.manager->OnHideMiniView(2, true);
        stage.manager->OnNextFrame();
        QCoreApplication::processEvents();
        QVERIFY(allocations.Value() > 0);
        QVERIFY(events.m_Events > 0);
        QVERIFY(events.m_Paints > 0);
        QVERIFY(moved.count() > 0);
    }

    void aFinishedSlideIsIdleAgain()
    {
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"));
        for (int round = 0; round < 2; ++round)
        {
            stage.manager->OnHideMiniView(view.id, true);
            stage.screen.FinishSlides();
            QSignalSpy const moved(stage.manager, &TWindowManager::MiniViewHasMoved);
            stage.screen.FinishSlides();
            QCOMPARE(moved.count(), 0);
            stage.manager->OnShowMiniView(view.id);
            stage.screen.FinishSlides();
            QVERIFY(moved.count() > 0);
        }
    }
};

COMMONUI_TEST(TWindowManagerFramesTest)
#include "TWindowManagerFramesTest.moc"
