#include "TInputRouter.h"

#include "CommonUI.h"
#include "MMICapableWidget.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TMMICapableWidgetNavigator.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TVirtualOperator.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace
{
/// Notes what the navigator is told: it owns the wheel, so that every step comes straight to it.
class TWheelOwner : public QWidget, public KVN::MMICapableWidget
{
public:
    TWheelOwner() { SetMMIBehaviour(MMI_WHEEL_OWNER); }

    void OnMMIWheelLeft() override { m_Log += QLatin1Char('<'); }
    void OnMMIWheelRight() override { m_Log += QLatin1Char('>'); }
    KVN::MMICapableWidget* OnMMIEnter() override
    {
        m_Log += QLatin1Char('E');
        return nullptr;
    }
    bool OnMMIBack() override
    {
        m_Log += QLatin1Char('B');
        return false;
    }

    QString m_Log;
};

/// A screen with one wheel owner that has been entered, so that back is asked for too.
struct TStage
{
    TStage()
        : navigator(&root)
        , router(&navigator, nullptr)
        , finger(&root)
    {
        owner.setParent(&root);
        root.show();
        navigator.PushWidget(&owner);
        navigator.OnWheelRight();
        clock.Advance(100);
        navigator.UpdateFocus();
        owner.m_Log.clear();
    }

    QString TakeLog() { return std::exchange(owner.m_Log, QString()); }
    void Send(QEvent::Type type, Qt::Key key, bool isAutoRepeat = false,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(type, key, modifiers, QString(), isAutoRepeat);
        QCoreApplication::sendEvent(&root, &event);
    }

    TManualClock clock;
    TWheelOwner root;
    TWheelOwner owner;
    TMMICapableWidgetNavigator navigator;
    TInputRouter router;
    TVirtualOperator finger;
};

/// A main screen with off-screen buttons, and a router without a navigator.
struct TTouchStage
{
    TTouchStage()
        : router(nullptr, nullptr)
        , finger(screen.get())
        , button(nullptr, 0, QString())
    {
        CommonUIOptions options = before;
        options.offScreenButtonsEnabled = true;
        CommonUI::SetCommonUIOptions(options);
        screen->AddOffscreenButton(&button, false, false);
    }
    ~TTouchStage()
    {
        screen->RemoveOffscreenButton(&button);
        CommonUI::SetCommonUIOptions(before);
    }
    TTouchStage(TTouchStage const&) = delete;
    TTouchStage& operator=(TTouchStage const&) = delete;

    TOffScreenButtons* Strip() const { return screen->GetOffScreenButtons(); }
    void Raise()
    {
        Strip()->ShowOffScreenButtons();
        screen.FinishSlides();
        screen.m_Clock.Advance(1000);
    }

    CommonUIOptions before = CommonUI::GetCommonUIOptions();
    TTestScreen screen;
    TInputRouter router;
    TVirtualOperator finger;
    TPushButton button;
};
} // namespace

class TInputRouterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysBecomeWheelAndEnter_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("told");
        QTest::newRow("left") << int(Qt::Key_Left) << "<";
        QTest::newRow("up") << int(Qt::Key_Up) << "<";
        QTest::newRow("right") << int(Qt::Key_Right) << ">";
        QTest::newRow("down") << int(Qt::Key_Down) << ">";
        QTest::newRow("return") << int(Qt::Key_Return) << "E";
        QTest::newRow("enter") << int(Qt::Key_Enter) << "E";
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << "B";
        QTest::newRow("escape") << int(Qt::Key_Escape) << "B";
        QTest::newRow("letter") << int(Qt::Key_A) << "";
    }

    void keysBecomeWheelAndEnter()
    {
        QFETCH(int, key);
        QFETCH(QString, told);
        TStage stage;
        stage.finger.Key(static_cast<Qt::Key>(key));
        QCOMPARE(stage.TakeLog(), told);
    }

    void aHeldArrowRepeatsAndAHeldEnterDoesNot()
    {
        TStage stage;
        stage.Send(QEvent::KeyPress, Qt::Key_Right);
        stage.Send(QEvent::KeyPress, Qt::Key_Right, true);
        stage.Send(QEvent::KeyPress, Qt::Key_Return);
        stage.Send(QEvent::KeyPress, Qt::Key_Return, true);
        QCOMPARE(stage.TakeLog(), QStringLiteral(">>E"));
    }

    void keysWithModifiersAndOtherKeysPassOn()
    {
        TStage stage;
        QLineEdit text;
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        QCoreApplication::sendEvent(&text, &letter);
        QCOMPARE(text.text(), QStringLiteral("a"));
        QKeyEvent word(QEvent::KeyPress, Qt::Key_Left, Qt::ControlModifier);
        QCoreApplication::sendEvent(&text, &word);
        QCOMPARE(text.cursorPosition(), 0);
        QCOMPARE(stage.TakeLog(), QString());
    }

    void theWheelStepsByWholeNotches_data()
    {
        QTest::addColumn<QVector<int>>("units");
        QTest::addColumn<QString>("told");
        QTest::newRow("one notch up") << QVector<int>{120} << "<";
        QTest::newRow("one notch down") << QVector<int>{-120} << ">";
        QTest::newRow("no movement") << QVector<int>{0} << "";
        QTest::newRow("parts add up") << QVector<int>{-40, -40, -40} << ">";
        QTest::newRow("parts below a notch") << QVector<int>{-40, -79} << "";
        QTest::newRow("the rest is kept") << QVector<int>{-180, -60} << ">>";
        QTest::newRow("a turn forgets the rest") << QVector<int>{-119, 1, -1, 119, -119} << "";
        QTest::newRow("a turn starts afresh") << QVector<int>{-100, 120} << "<";
        QTest::newRow("several notches at once") << QVector<int>{360} << "<<<";
        QTest::newRow("a wild value is held")
            << QVector<int>{std::numeric_limits<int>::min() + 1} << QString(20, '>');
        QTest::newRow("the other wild value")
            << QVector<int>{std::numeric_limits<int>::max()} << QString(20, '<');
    }

    void theWheelStepsByWholeNotches()
    {
        QFETCH(QVector<int>, units);
        QFETCH(QString, told);
        TStage stage;
        for (int const portion : qAsConst(units))
            stage.finger.Wheel(portion);
        QCOMPARE(stage.TakeLog(), told);
    }

    void backIsToldAtItsRelease()
    {
        TStage stage;
        stage.Send(QEvent::KeyPress, Qt::Key_Escape);
        QCOMPARE(stage.TakeLog(), QString());
        stage.clock.Advance(TInputRouter::HoldTime - 1);
        stage.Send(QEvent::KeyRelease, Qt::Key_Escape);
        QCOMPARE(stage.TakeLog(), QStringLiteral("B"));
        stage.Send(QEvent::KeyRelease, Qt::Key_Escape);
        QCOMPARE(stage.TakeLog(), QString());
    }

    // A long press leaves the level without asking it: the next step of the wheel goes to the root.
    void aLongBackLeavesTheLevelUnasked()
    {
        TStage stage;
        stage.Send(QEvent::KeyPress, Qt::Key_Backspace);
        stage.clock.Advance(TInputRouter::HoldTime);
        stage.Send(QEvent::KeyRelease, Qt::Key_Backspace);
        QCOMPARE(stage.TakeLog(), QString());
        stage.finger.Wheel(120);
        QCOMPARE(stage.TakeLog(), QString());
        QCOMPARE(stage.root.m_Log, QStringLiteral("<"));
    }

    void aHeldBackActsBeforeItsRelease()
    {
        TStage stage;
        stage.Send(QEvent::KeyPress, Qt::Key_Backspace);
        stage.clock.Advance(TInputRouter::HoldTime);
        auto const hasLeft = [&stage]
        {
            stage.finger.Wheel(120);
            return !stage.root.m_Log.isEmpty();
        };
        QTRY_VERIFY(hasLeft());
        stage.TakeLog();
        stage.Send(QEvent::KeyRelease, Qt::Key_Backspace);
        QCOMPARE(stage.TakeLog(), QString());
    }

    void aBackHeldIntoAnotherProgramIsForgotten()
    {
        TStage stage;
        stage.Send(QEvent::KeyPress, Qt::Key_Backspace);
        QEvent deactivate(QEvent::ApplicationDeactivate);
        QCoreApplication::sendEvent(qApp, &deactivate);
        stage.clock.Advance(TInputRouter::HoldTime);
        stage.Send(QEvent::KeyRelease, Qt::Key_Backspace);
        stage.finger.Wheel(120);
        QCOMPARE(stage.TakeLog(), QStringLiteral("<"));
    }

    void withoutANavigatorEverythingPassesOn()
    {
        QWidget root;
        auto navigator = std::make_unique<TMMICapableWidgetNavigator>(nullptr);
        TInputRouter router(navigator.get(), nullptr);
        navigator.reset();
        QLineEdit text(QStringLiteral("ab"));
        QKeyEvent back(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier);
        QCoreApplication::sendEvent(&text, &back);
        QCOMPARE(text.text(), QStringLiteral("a"));
    }

    // Touches

    void aSwipeUpFromTheEdgeBringsTheOffScreenButtons()
    {
        TTouchStage stage;
        stage.finger.Drag(QPoint(600, 767), QPoint(600, 700), 5);
        QCOMPARE(stage.screen.Manager()->GetOffScreenState(), OFF_SCREEN_RISING);
    }

    void theScreenHearsOfATouchOnceAndTheWidgetToo()
    {
        TTouchStage stage;
        QWidget parent(stage.screen.get());
        parent.setGeometry(400, 100, 200, 200);
        TPushButton touched(&parent, 3, QString());
        touched.setGeometry(10, 10, 100, 100);
        touched.show();
        parent.show();
        stage.Raise();
        QSignalSpy const clicks(&touched, &TPushButton::Clicked);
        QSignalSpy const dismissals(stage.Strip(), &TOffScreenButtons::HideButtons);
        QVERIFY(stage.finger.Tap(static_cast<QWidget*>(&touched)));
        QCOMPARE(dismissals.count(), 1);
        QCOMPARE(clicks.count(), 1);
    }

    void theScreenHearsOfTheRelease()
    {
        TTouchStage stage;
        stage.finger.Tap(QPoint(600, 760));
        QPointF const higher(600, 600);
        QMouseEvent move(QEvent::MouseMove, higher, higher, higher, Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        stage.Strip()->UnhandledMouseMove(&move);
        QCOMPARE(stage.screen.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }

    void touchesOnOtherWindowsAreNoneOfTheScreens()
    {
        TTouchStage stage;
        QWidget other;
        other.setGeometry(0, 0, 300, 300);
        other.show();
        stage.Raise();
        TVirtualOperator(&other).Tap(QPoint(100, 100));
        QCOMPARE(stage.screen.Manager()->GetOffScreenState(), OFF_SCREEN_UP);
        stage.finger.Tap(QPoint(100, 100));
        QCOMPARE(stage.screen.Manager()->GetOffScreenState(), OFF_SCREEN_FALLING);
    }
};

COMMONUI_TEST(TInputRouterTest)
#include "TInputRouterTest.moc"
