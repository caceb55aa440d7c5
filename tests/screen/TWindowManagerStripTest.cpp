#include "Metrics.h"
#include "ModuleIds.h"
#include "ScreenLayers.h"
#include "TAllocationCount.h"
#include "TestCase.h"
#include "TStripStage.h"
#include "TSystemToolBar.h"
#include "TWindowManager.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace
{
constexpr int RestLine = 650;
constexpr int EmptyX = 600;

// What happens to a widget, and what is painted at all.
class TEventCount : public QObject
{
public:
    explicit TEventCount(QWidget* widget)
        : m_Widget(widget)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_Paints += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest;
        m_Events += watched == m_Widget;
        return false;
    }

    int m_Paints = 0;
    int m_Events = 0;

private:
    QWidget* m_Widget;
};
} // namespace

/// How the window manager moves the strip of off-screen buttons.
class TWindowManagerStripTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itRisesToItsRestLine_data()
    {
        QTest::addColumn<int>("elapsed");
        QTest::addColumn<int>("y");
        QTest::newRow("0 ms") << 0 << 768;
        QTest::newRow("1 ms") << 1 << 768;
        QTest::newRow("2 ms") << 2 << 767;
        QTest::newRow("80 ms") << 80 << 709;
        QTest::newRow("159 ms") << 159 << 651;
        QTest::newRow("160 ms") << 160 << RestLine;
        QTest::newRow("very late") << 5000 << RestLine;
    }

    void itRisesToItsRestLine()
    {
        QFETCH(int, elapsed);
        QFETCH(int, y);
        TStripStage stage(2);
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        stage.strip->ShowOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_RISING);
        QVERIFY(stage.strip->isVisible());
        stage.screen.Frame(elapsed);
        QCOMPARE(stage.strip->pos(), QPoint((1024 - 204) / 2, y));
        QCOMPARE(stage.manager->GetOffScreenState(), elapsed < 160 ? OFF_SCREEN_RISING : OFF_SCREEN_UP);
    }

    void itFallsFromItsRestLine_data()
    {
        QTest::addColumn<int>("elapsed");
        QTest::addColumn<int>("y");
        QTest::newRow("0 ms") << 0 << RestLine;
        QTest::newRow("1 ms") << 1 << RestLine;
        QTest::newRow("2 ms") << 2 << 651;
        QTest::newRow("80 ms") << 80 << 709;
        QTest::newRow("159 ms") << 159 << 767;
        QTest::newRow("160 ms") << 160 << 768;
    }

    void itFallsFromItsRestLine()
    {
        QFETCH(int, elapsed);
        QFETCH(int, y);
        TStripStage stage(1);
        stage.Raise();
        stage.manager->OnHideOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_FALLING);
        stage.manager->OnShowOffScreenButtons();
        stage.screen.FinishSlides();
        stage.manager->OnHideOffScreenButtons();
        stage.screen.Frame(elapsed);
        QCOMPARE(stage.strip->pos(), QPoint((1024 - 116) / 2, y));
        bool const isOver = elapsed >= 160;
        QCOMPARE(stage.manager->GetOffScreenState(), isOver ? OFF_SCREEN_HIDDEN : OFF_SCREEN_FALLING);
        QCOMPARE(stage.strip->isVisible(), !isOver);
    }

    void theWayIsTheSameInManyFrames()
    {
        TStripStage stage(1);
        stage.strip->ShowOffScreenButtons();
        for (int i = 0; i < 8; ++i)
            stage.screen.Frame(10);
        QCOMPARE(stage.strip->y(), 709);
    }

    void itTakesTouchesUntilItIsSentAway()
    {
        TStripStage stage(1);
        auto const isTransparent = [&]
        { return stage.strip->testAttribute(Qt::WA_TransparentForMouseEvents); };
        stage.strip->ShowOffScreenButtons();
        QVERIFY(!isTransparent());
        stage.screen.FinishSlides();
        QVERIFY(!isTransparent());
        stage.manager->OnHideOffScreenButtons();
        QVERIFY(isTransparent());
        stage.screen.Frame(80);
        stage.manager->OnShowOffScreenButtons();
        QVERIFY(isTransparent());
        stage.screen.FinishSlides();
        QVERIFY(!isTransparent());
        stage.manager->OnHideOffScreenButtons();
        stage.screen.FinishSlides();
        QVERIFY(!isTransparent());
    }

    void atOnceMeansAtOnce_data()
    {
        QTest::addColumn<int>("elapsed");
        QTest::newRow("rising") << 80;
        QTest::newRow("up") << 200;
    }

    void atOnceMeansAtOnce()
    {
        QFETCH(int, elapsed);
        TStripStage stage(1);
        stage.strip->ShowOffScreenButtons();
        stage.screen.Frame(elapsed);
        stage.manager->OnQuickHideOffScreenButtons();
        QCOMPARE(stage.strip->pos(), QPoint(0, 768));
        QVERIFY(stage.strip->isHidden());
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        stage.screen.FinishSlides();
        QVERIFY(stage.strip->isHidden());
        stage.strip->ShowOffScreenButtons();
        stage.screen.Frame(80);
        QCOMPARE(stage.strip->y(), 709);
    }

    void whatIsAskedForAtTheWrongTimeIsIgnored()
    {
        TStripStage stage(1);
        stage.manager->OnHideOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        stage.manager->OnQuickHideOffScreenButtons();
        stage.strip->ShowOffScreenButtons();
        stage.screen.Frame(80);
        stage.manager->OnShowOffScreenButtons();
        stage.screen.Frame(40);
        QCOMPARE(stage.strip->y(), 768 - 118 * 120 / 160 + 0);
        stage.screen.FinishSlides();
        stage.manager->OnShowOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_UP);
        stage.manager->OnHideOffScreenButtons();
        stage.screen.Frame(80);
        stage.manager->OnHideOffScreenButtons();
        stage.manager->OnQuickHideOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_FALLING);
        QCOMPARE(stage.strip->y(), 709);
    }

    void turnedAroundItStartsFromTheOtherEnd()
    {
        TStripStage stage(1);
        stage.strip->ShowOffScreenButtons();
        stage.screen.Frame(40);
        stage.manager->OnHideOffScreenButtons();
        stage.screen.Frame(40);
        QCOMPARE(stage.strip->y(), RestLine + 118 * 40 / 160);
        stage.manager->OnShowOffScreenButtons();
        stage.screen.Frame(0);
        QCOMPARE(stage.strip->y(), 768);
    }

    void withoutAStripNothingHappens()
    {
        TViewStage stage;
        stage.manager->OnShowOffScreenButtons();
        stage.manager->OnHideOffScreenButtons();
        stage.manager->OnQuickHideOffScreenButtons();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        stage.screen.FinishSlides();
    }

    void anotherStripBeginsHidden()
    {
        TStripStage stage(1);
        stage.Raise();
        stage.manager->SetOffScreenButtons(stage.strip);
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        stage.manager->OnShowOffScreenButtons();
        stage.screen.Frame(80);
        QCOMPARE(stage.strip->y(), 709);
        stage.manager->SetOffScreenButtons(nullptr);
        stage.manager->OnShowOffScreenButtons();
        stage.screen.FinishSlides();
        QCOMPARE(stage.strip->y(), 709);
    }

    void itTakesTheFocus()
    {
        TStripStage stage(1);
        QLineEdit edit(stage.screen.get());
        edit.show();
        QApplication::setActiveWindow(stage.screen.get());
        edit.setFocus();
        stage.strip->ShowOffScreenButtons();
        QVERIFY(stage.strip->hasFocus() && !edit.hasFocus());
    }

    // The screen's part

    void aSwipeByTheFingerBringsItAndSendsItBack()
    {
        TStripStage stage(1);
        QSignalSpy const shown(stage.screen.get(), &TScreen::OffscreenButtonsShown);
        bool wasThere = false;
        connect(stage.screen.get(), &TScreen::OffscreenButtonsShown, this,
                [&] { wasThere = stage.strip->isVisible(); });
        stage.Swipe(QPoint(EmptyX, 766), QPoint(EmptyX, 740));
        QCOMPARE(shown.count(), 1);
        QVERIFY(wasThere);
        stage.screen.FinishSlides();
        QCOMPARE(stage.strip->y(), RestLine);
        stage.screen.m_Clock.Advance(1000);
        stage.Swipe(stage.strip->pos() + QPoint(5, 5), stage.strip->pos() + QPoint(5, 40));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_FALLING);
        stage.screen.FinishSlides();
        QVERIFY(stage.strip->isHidden());
        QCOMPARE(shown.count(), 1);
    }

    void aLiftedFingerEndsTheSwipe()
    {
        TStripStage stage(1);
        stage.finger.Touch(QPoint(EmptyX, 766));
        QMouseEvent move(QEvent::MouseMove, QPointF(EmptyX, 700), QPointF(EmptyX, 700), QPointF(EmptyX, 700),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.screen.get(), &move);
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }

    void switchedOffItHearsNothing()
    {
        TStripStage stage(1);
        CommonUIOptions options = CommonUI::GetCommonUIOptions();
        options.offScreenButtonsEnabled = false;
        CommonUI::SetCommonUIOptions(options);
        stage.Swipe(QPoint(EmptyX, 766), QPoint(EmptyX, 700));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        // A tool may ask for it all the same.
        stage.screen->SquishRequestOffScreenButtons();
        stage.screen.FinishSlides();
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_UP);
        stage.screen.m_Clock.Advance(1000);
        stage.finger.Touch(QPoint(EmptyX, 100));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_UP);
        {
            QWidget other(stage.screen.get());
            other.show();
            stage.screen->RaiseOffScreenButtons();
            QCOMPARE(TScreenLayers(*stage.screen.get()).Top(), &other);
        }
        options.offScreenButtonsEnabled = true;
        CommonUI::SetCommonUIOptions(options);
        stage.finger.Touch(QPoint(EmptyX, 100));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_FALLING);
    }

    void aToolAsksByTheNameOfTheSlot()
    {
        TStripStage stage(1);
        QVERIFY(QMetaObject::invokeMethod(stage.screen.get(), "SquishRequestOffScreenButtons"));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_RISING);
        TTestScreen const withoutAny;
        withoutAny->SquishRequestOffScreenButtons();
    }

    void eventsOfOtherKindsAreIgnored()
    {
        TStripStage stage(1);
        for (QEvent::Type const type : {QEvent::MouseMove, QEvent::MouseButtonDblClick})
        {
            QMouseEvent event(type, QPointF(EmptyX, 766), QPointF(EmptyX, 766), QPointF(EmptyX, 766),
                              Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            stage.screen->AllMouseEvents(&event);
        }
        stage.finger.Move(QPoint(EmptyX, 700));
        QCOMPARE(stage.manager->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }

    // Layers

    void itStandsAboveAllButToolTips_data()
    {
        QTest::addColumn<QString>("what");
        for (char const* const what :
             {"a window comes", "a local lock", "a global lock", "a lock ends", "the alarm comes",
              "the tool bar comes", "another view", "the setup", "a mini window", "the tool bar is freed"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }

    void itStandsAboveAllButToolTips()
    {
        QFETCH(QString, what);
        TStripStage stage(1);
        auto* const bar = new TSystemToolBar(stage.screen.get());
        bar->AssignButton(0, QString(), QString(), QString());
        stage.screen->SetSystemToolBar(bar);
        TTestView const view = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const other = stage.Add(QStringLiteral("b"), VIEW_ALL);
        TTestView const setup = stage.Add(KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString(),
                                          VIEW_CANVAS | VIEW_FULL);
        stage.manager->DisplayFullView(view.id, false);
        TWindow window(stage.screen.get());
        TWindow alarm(nullptr);
        stage.screen->SetAlarmWidget(&alarm);
        if (what != QLatin1String("the alarm comes"))
            alarm.ShowWindow(false);
        if (what == QLatin1String("a lock ends"))
        {
            window.ShowWindow(false);
            stage.screen->AddLockingWidget({&window, QString(), KVN::MODAL_GLOBAL, {}});
        }
        stage.Raise();
        VERIFY_LAYERS(*stage.screen.get());

        if (what == QLatin1String("a window comes"))
            window.ShowWindow(false);
        else if (what == QLatin1String("a local lock") || what == QLatin1String("a global lock"))
        {
            window.ShowWindow(false);
            bool const isLocal = what == QLatin1String("a local lock");
            stage.screen->AddLockingWidget(
                {&window, QString(), isLocal ? KVN::MODAL_LOCAL : KVN::MODAL_GLOBAL, {}});
        }
        else if (what == QLatin1String("a lock ends"))
            stage.screen->RemoveLockingWidget(&window);
        else if (what == QLatin1String("the alarm comes"))
            alarm.ShowWindow(false);
        else if (what == QLatin1String("the tool bar comes"))
            stage.screen->SetSystemToolBar(bar);
        else if (what == QLatin1String("another view"))
            stage.manager->DisplayFullView(other.id, false);
        else if (what == QLatin1String("the setup"))
            stage.manager->OnShowSetup(setup.id);
        else if (what == QLatin1String("a mini window"))
            stage.manager->OnShowMiniView(other.id);
        else
            stage.screen->UnLockSystemToolbar();
        VERIFY_LAYERS(*stage.screen.get());
        QCOMPARE(TScreenLayers(*stage.screen.get()).Top(), static_cast<QWidget*>(stage.strip.data()));
        stage.screen->RemoveLockingWidget(&window);
    }

    void aRisingStripComesAboveTheAlarm()
    {
        TStripStage stage(1);
        TWindow alarm(nullptr);
        stage.screen->SetAlarmWidget(&alarm);
        alarm.ShowWindow(false);
        stage.strip->ShowOffScreenButtons();
        QCOMPARE(TScreenLayers(*stage.screen.get()).Top(), static_cast<QWidget*>(stage.strip.data()));
        VERIFY_LAYERS(*stage.screen.get());
    }

    // What an idle console costs

    void anIdleFrameCostsNothing_data()
    {
        QTest::addColumn<bool>("up");
        QTest::newRow("away") << false;
        QTest::newRow("up") << true;
    }

    void anIdleFrameCostsNothing()
    {
        QFETCH(bool, up);
        TStripStage stage(2);
        auto* const bar = new TSystemToolBar(stage.screen.get());
        bar->AssignButton(0, QString(), QString(), QString());
        stage.screen->SetSystemToolBar(bar);
        if (up)
            stage.Raise();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        // With the console's own clock: asking the one of the tests takes memory.
        TLocalTime::SetClock({});
        stage.manager->OnNextFrame();
        TEventCount events(stage.strip);
        TAllocationCount const allocations;
        for (int i = 0; i < 100; ++i)
            stage.manager->OnNextFrame();
        qint64 const allocated = allocations.Value();
        QCOMPARE(allocated, 0);
        QCOMPARE(events.m_Events, 0);
        QCoreApplication::processEvents();
        QCOMPARE(events.m_Paints, 0);

        // The counters do count.
        if (up)
            stage.manager->OnQuickHideOffScreenButtons();
        else
            stage.strip->ShowOffScreenButtons();
        QCoreApplication::processEvents();
        QVERIFY(allocations.Value() > 0);
        QVERIFY(events.m_Events > 0);
        QVERIFY(events.m_Paints > 0);
    }
};

COMMONUI_TEST(TWindowManagerStripTest)
#include "TWindowManagerStripTest.moc"
