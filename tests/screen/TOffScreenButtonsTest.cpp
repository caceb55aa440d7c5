#include "TOffScreenButtons.h"
#include "Metrics.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TMMICapableWidgetNavigator.h"
#include "TStripStage.h"
#include "TSystemToolBar.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>

namespace
{
constexpr int RestLine = 650;
// A place on the screen that no widget of it takes.
constexpr int EmptyX = 600;

/// What a strip asks for, in order.
class TRequests : public QObject
{
public:
    explicit TRequests(TOffScreenButtons* strip)
    {
        connect(strip, &TOffScreenButtons::ShowButtons, this, [this] { m_All += QStringLiteral("show "); });
        connect(strip, &TOffScreenButtons::HideButtons, this, [this] { m_All += QStringLiteral("hide "); });
        connect(strip, &TOffScreenButtons::QuickHideButtons, this,
                [this] { m_All += QStringLiteral("quick "); });
    }
    QString Take() { return std::exchange(m_All, QString()).trimmed(); }

private:
    QString m_All;
};

QMouseEvent Mouse(QEvent::Type type, int y)
{
    QPointF const place(EmptyX, y);
    return {type, place, place, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier};
}

/// A strip of its own that nobody moves but the test.
struct TLooseStrip
{
    TLooseStrip()
        : strip(screen.get())
        , requests(&strip)
    {
    }

    void PutUp()
    {
        strip.ShowOffScreenButtons();
        strip.setGeometry(0, RestLine, 1024, 116);
        strip.show();
        screen.m_Clock.Advance(1000);
        requests.Take();
    }
    void Press(int y)
    {
        QMouseEvent event = Mouse(QEvent::MouseButtonPress, y);
        strip.MousePress(&event);
    }
    void Move(int y)
    {
        QMouseEvent event = Mouse(QEvent::MouseMove, y);
        strip.UnhandledMouseMove(&event);
    }
    QTimer* HideTimer() const { return strip.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }

    TTestScreen screen;
    TOffScreenButtons strip;
    TRequests requests;
};
} // namespace

class TOffScreenButtonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Where it is

    void madeBeforeTheScreenIsShownItStaysHidden()
    {
        TTestScreen screen(false);
        TOffScreenButtons const strip(screen.get());
        screen->show();
        QVERIFY(strip.isHidden());
    }

    void aNewStripIsBelowTheScreen()
    {
        TLooseStrip stage;
        QCOMPARE(stage.strip.pos(), QPoint(0, 768));
        QVERIFY(stage.strip.isHidden());
        QCOMPARE(stage.strip.focusPolicy(), Qt::ClickFocus);
        QVERIFY(!stage.strip.IsOnScreen());
        QVERIFY(!stage.strip.HasButtons());
        QVERIFY(!stage.HideTimer()->isActive());
    }

    void onePixelAboveTheEdgeIsOnTheScreen()
    {
        TLooseStrip stage;
        stage.strip.move(0, 767);
        QVERIFY(stage.strip.IsOnScreen());
        stage.strip.move(0, 768);
        QVERIFY(!stage.strip.IsOnScreen());
    }

    // Buttons

    void buttonsStandSideBySideInAFrame()
    {
        TStripStage stage(3);
        stage.Raise();
        QCOMPARE(stage.strip->size(), QSize(3 * 88 + 28, 88 + 28));
        QCOMPARE(stage.strip->geometry(), QRect((1024 - 292) / 2, RestLine, 292, 116));
        for (int i = 0; i < 3; ++i)
        {
            QVERIFY(stage.buttons[i]->isVisible());
            QCOMPARE(stage.buttons[i]->geometry(), QRect(14 + i * 88, 14, 88, 88));
            QCOMPARE(stage.buttons[i]->focusPolicy(), Qt::NoFocus);
        }
        auto const* const layout = qobject_cast<QHBoxLayout*>(stage.strip->layout());
        QVERIFY(layout);
        QCOMPARE(layout->sizeConstraint(), QLayout::SetFixedSize);
    }

    void buttonsWearTheSkinOfTheStrip()
    {
        TStripStage stage;
        stage.buttons[0]->SetBackground(PixmapNames::NewRedButton);
        stage.screen->AddOffscreenButton(stage.buttons[0], false, false);
        stage.Raise();
        auto const pixmapOf = [&](QString const& name)
        { return stage.screen->GetPixmapManager()->GetResizedPixmap(name, 88, 88)->toImage(); };
        auto const lookOf = [&]
        {
            QImage image(88, 88, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            stage.buttons[0]->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
            return image;
        };
        QCOMPARE(lookOf(),
                 pixmapOf(PixmapNames::BevelButton).convertToFormat(QImage::Format_ARGB32_Premultiplied));
        stage.buttons[0]->setDown(true);
        QCOMPARE(
            lookOf(),
            pixmapOf(PixmapNames::BevelButtonSelected).convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void theFrameFillsTheStrip()
    {
        TStripStage stage(2);
        stage.Raise();
        QImage image(stage.strip->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        stage.strip->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        QImage const frame = stage.screen->GetPixmapManager()
                                 ->GetResizedPixmap(PixmapNames::OffScreenButtonFrame, 204, 116)
                                 ->toImage()
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(image, frame);
    }

    void aClickOnAClosingButtonSendsTheStripAway_data()
    {
        QTest::addColumn<bool>("closes");
        QTest::addColumn<bool>("slow");
        QTest::addColumn<QString>("request");
        QTest::newRow("stays") << false << false << "";
        QTest::newRow("stays, slow") << false << true << "";
        QTest::newRow("closes at once") << true << false << "quick";
        QTest::newRow("closes with a slide") << true << true << "hide";
    }

    void aClickOnAClosingButtonSendsTheStripAway()
    {
        QFETCH(bool, closes);
        QFETCH(bool, slow);
        QFETCH(QString, request);
        TStripStage stage(1);
        TPushButton* const button = stage.AddButton(closes, slow);
        stage.Raise();
        TRequests requests(stage.strip);
        stage.finger.Touch(button);
        QCOMPARE(requests.Take(), request);
        QCOMPARE(stage.strip->isVisible(), request != QLatin1String("quick"));
        stage.screen.FinishSlides();
        QCOMPARE(stage.strip->isVisible(), request.isEmpty());
    }

    void addedAgainAButtonHasTheNewWay()
    {
        TStripStage stage(2);
        stage.screen->AddOffscreenButton(stage.buttons[0], true, false);
        stage.screen->AddOffscreenButton(stage.buttons[0], true, true);
        stage.Raise();
        QCOMPARE(stage.strip->width(), 204);
        QCOMPARE(stage.buttons[0]->x(), 14 + 88);
        TRequests requests(stage.strip);
        stage.finger.Touch(stage.buttons[0]);
        QCOMPARE(requests.Take(), QStringLiteral("hide"));
    }

    void aButtonThatComesOrGoesWhileTheStripIsUpLeavesItInTheMiddle()
    {
        TStripStage stage(1);
        stage.Raise();
        stage.AddButton(false, false);
        QCoreApplication::processEvents();
        QCOMPARE(stage.strip->geometry(), QRect((1024 - 204) / 2, RestLine, 204, 116));
        stage.screen->RemoveOffscreenButton(stage.buttons[0]);
        QCoreApplication::processEvents();
        QCOMPARE(stage.strip->geometry(), QRect((1024 - 116) / 2, RestLine, 116, 116));
        delete stage.buttons[1];
        QVERIFY(!stage.strip->HasButtons());
        QCoreApplication::processEvents();
        QVERIFY(stage.strip->isHidden());
    }

    void aRemovedButtonIsItsOwners()
    {
        TStripStage stage(2);
        TPushButton* const closing = stage.AddButton(true, false);
        stage.Raise();
        TRequests requests(stage.strip);
        stage.screen->RemoveOffscreenButton(closing);
        QVERIFY(!closing->parentWidget() && closing->isHidden());
        auto* const quiet = stage.strip->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        quiet->stop();
        closing->click();
        QVERIFY(!quiet->isActive());
        QVERIFY(requests.Take().isEmpty());
        stage.screen->RemoveOffscreenButton(closing);
        stage.screen->RemoveOffscreenButton(nullptr);
        QVERIFY(stage.strip->isVisible());
        stage.screen->AddOffscreenButton(closing, false, false);
        QVERIFY(closing->isVisible());
    }

    void withoutItsLastButtonTheStripGoesAndStaysAway()
    {
        TStripStage stage(1);
        stage.Raise();
        stage.screen->RemoveOffscreenButton(stage.buttons[0]);
        QVERIFY(!stage.strip->isVisible());
        stage.Swipe(QPoint(EmptyX, 760), QPoint(EmptyX, 700));
        stage.screen->SquishRequestOffScreenButtons();
        QVERIFY(!stage.strip->isVisible());
        stage.screen->AddOffscreenButton(stage.buttons[0], false, false);
        stage.Swipe(QPoint(EmptyX, 760), QPoint(EmptyX, 700));
        QVERIFY(stage.strip->isVisible());
    }

    void noButtonIsIgnored()
    {
        TTestScreen screen;
        screen->AddOffscreenButton(nullptr, true, true);
        QVERIFY(!screen->GetOffScreenButtons());
        TOffScreenButtons strip(screen.get());
        strip.AddOffScreenButton(nullptr, true, true);
        strip.RemoveOffScreenButton(nullptr);
        QVERIFY(!strip.HasButtons());
    }

    // Asking for it

    void askingForItAsksOnlyWhileItIsAway()
    {
        TLooseStrip stage;
        stage.strip.ShowOffScreenButtons();
        QCOMPARE(stage.requests.Take(), QStringLiteral("show"));
        stage.PutUp();
        stage.strip.ShowOffScreenButtons();
        QCOMPARE(stage.requests.Take(), QString());
    }

    void askingForItBeginsTheTenSecondsAnew()
    {
        TLooseStrip stage;
        QCOMPARE(stage.HideTimer()->interval(), 10000);
        QVERIFY(stage.HideTimer()->isSingleShot());
        stage.strip.ShowOffScreenButtons();
        QVERIFY(stage.HideTimer()->isActive());
        stage.HideTimer()->setInterval(0);
        QTRY_VERIFY(!stage.HideTimer()->isActive());
        QCOMPARE(stage.requests.Take(), QStringLiteral("show hide"));
        stage.HideTimer()->setInterval(10000);
        stage.PutUp();
        stage.HideTimer()->stop();
        stage.strip.ShowOffScreenButtons();
        QVERIFY(stage.HideTimer()->isActive());
    }

    void askingForItDisarmsASwipe()
    {
        TLooseStrip stage;
        stage.Press(760);
        stage.strip.ShowOffScreenButtons();
        stage.requests.Take();
        stage.Move(600);
        QCOMPARE(stage.requests.Take(), QString());
    }

    void aPressOnAButtonBeginsTheTenSecondsAnew()
    {
        TStripStage stage(1);
        stage.Raise();
        stage.HideTimer()->stop();
        stage.finger.Press(stage.MiddleOf(stage.buttons[0]));
        QVERIFY(stage.HideTimer()->isActive());
        QCOMPARE(stage.HideTimer()->interval(), 10000);
        stage.HideTimer()->stop();
        stage.finger.Lift();
        QVERIFY(!stage.HideTimer()->isActive());
        // Beside the buttons, on the frame, is no use of them.
        stage.finger.Touch(stage.strip->pos() + QPoint(5, 5));
        QVERIFY(!stage.HideTimer()->isActive());
    }

    void tenSecondsOfQuietSendItAway()
    {
        TStripStage stage(1);
        stage.Raise();
        stage.LetTheTimeRunOut();
        stage.screen.FinishSlides();
        QVERIFY(!stage.strip->isVisible());
    }

    // Swipes

    void aSwipeUpFromTheEdgeBringsIt_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("needed"); // 0: none is enough
        QTest::newRow("above the band") << 600 << 0;
        QTest::newRow("on its upper edge") << 682 << 0;
        QTest::newRow("just inside") << 683 << 11;
        QTest::newRow("eleven above the edge") << 757 << 11;
        QTest::newRow("ten above the edge") << 758 << 11;
        QTest::newRow("nine above the edge") << 759 << 10;
        QTest::newRow("five above the edge") << 763 << 6;
        QTest::newRow("the last row") << 767 << 2;
        QTest::newRow("below the edge") << 768 << 1;
        QTest::newRow("far below the edge") << 800 << 1;
    }

    void aSwipeUpFromTheEdgeBringsIt()
    {
        QFETCH(int, start);
        QFETCH(int, needed);
        TLooseStrip stage;
        stage.Press(start);
        stage.Move(start + 5);
        stage.Move(start - (needed > 0 ? needed - 1 : start));
        QCOMPARE(stage.requests.Take(), QString());
        stage.Move(start - needed);
        QCOMPARE(stage.requests.Take(), needed > 0 ? QStringLiteral("show") : QString());
        // Once for one swipe.
        stage.Move(start - 100);
        QCOMPARE(stage.requests.Take(), QString());
    }

    void aLiftedFingerDoesNotSwipe()
    {
        TLooseStrip stage;
        stage.Move(700);
        stage.Press(760);
        stage.strip.MouseRelease();
        stage.Move(700);
        QCOMPARE(stage.requests.Take(), QString());
    }

    void aMoveOfExactlyTwentyPixelsDownLeavesItUp()
    {
        TLooseStrip stage;
        stage.PutUp();
        stage.Press(700);
        stage.Move(720);
        QCOMPARE(stage.requests.Take(), QString());
        QVERIFY(stage.HideTimer()->isActive());
        stage.Move(721);
        QCOMPARE(stage.requests.Take(), QStringLiteral("hide"));
        QVERIFY(!stage.HideTimer()->isActive());
        stage.Move(760);
        QCOMPARE(stage.requests.Take(), QString());
    }

    void aSwipeUpLeavesItUp()
    {
        TLooseStrip stage;
        stage.PutUp();
        stage.Press(700);
        stage.Move(500);
        QCOMPARE(stage.requests.Take(), QString());
    }

    void aSwipeDownMustBeginBelowTheTopOfTheStrip_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("request");
        QTest::newRow("on its top row") << RestLine << "";
        QTest::newRow("one below") << RestLine + 1 << "hide";
    }

    void aSwipeDownMustBeginBelowTheTopOfTheStrip()
    {
        QFETCH(int, start);
        QFETCH(QString, request);
        TLooseStrip stage;
        stage.PutUp();
        stage.Press(start);
        stage.Move(start + 30);
        QCOMPARE(stage.requests.Take(), request);
    }

    void aSwipeDownOnAButtonSendsItAway()
    {
        TStripStage stage(1);
        stage.Raise();
        QSignalSpy const clicks(stage.buttons[0], &TPushButton::Clicked);
        QPoint const from = stage.MiddleOf(stage.buttons[0]);
        stage.finger.Press(from);
        stage.finger.Move(from + QPoint(0, 30));
        stage.screen.FinishSlides();
        stage.finger.Lift();
        QVERIFY(!stage.strip->isVisible());
        QCOMPARE(clicks.count(), 0);
    }

    // Presses beside it

    void aPressBesideItSendsItAwayOnceItIsNoLongerFresh_data()
    {
        QTest::addColumn<int>("age");
        QTest::addColumn<int>("y");
        QTest::addColumn<QString>("request");
        QTest::newRow("at once") << 0 << 100 << "";
        QTest::newRow("250 ms, above it") << 250 << 100 << "";
        QTest::newRow("250 ms, next to it") << 250 << 700 << "";
        QTest::newRow("251 ms, above it") << 251 << 100 << "hide";
        QTest::newRow("251 ms, next to it") << 251 << 700 << "hide";
        QTest::newRow("later") << 5000 << 100 << "hide";
    }

    void aPressBesideItSendsItAwayOnceItIsNoLongerFresh()
    {
        QFETCH(int, age);
        QFETCH(int, y);
        QFETCH(QString, request);
        TLooseStrip stage;
        stage.PutUp();
        stage.strip.resize(116, 116);
        stage.strip.ShowOffScreenButtons();
        stage.screen.m_Clock.Advance(age);
        stage.Press(y);
        QCOMPARE(stage.requests.Take(), request);
        QCOMPARE(stage.HideTimer()->isActive(), request.isEmpty());
        // One that is not taken as a dismissal may still begin a swipe down; one that is does not.
        stage.Move(y + 60);
        QCOMPARE(stage.requests.Take(),
                 request.isEmpty() && y > RestLine ? QStringLiteral("hide") : QString());
    }

    void aPressOnTheStripLeavesItUp()
    {
        TStripStage stage(1);
        stage.Raise();
        TRequests requests(stage.strip);
        QRect const place = stage.strip->geometry();
        for (QPoint const& corner : {place.topLeft(), place.bottomRight()})
        {
            stage.finger.Touch(corner);
            QCOMPARE(requests.Take(), QString());
        }
        stage.finger.Touch(place.topLeft() - QPoint(0, 1));
        QCOMPARE(requests.Take(), QStringLiteral("hide"));
    }

    // A window on a desktop need not stand in its corner.
    void touchesCountFromTheScreensOwnCorner()
    {
        TStripStage stage(1);
        stage.screen->move(100, 200);
        QCoreApplication::processEvents();
        stage.Swipe(QPoint(EmptyX, 600), QPoint(EmptyX, 500));
        QVERIFY(!stage.strip->isVisible());
        stage.Swipe(QPoint(EmptyX, 760), QPoint(EmptyX, 740));
        QVERIFY(stage.strip->isVisible());
    }

    // Wheel

    void theWheelReachesTheButtonsWhileTheStripIsUp()
    {
        TStripStage stage(1);
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        TPushButton const* const button = stage.buttons[0];
        QSignalSpy const clicks(button, &TPushButton::Clicked);
        auto const turnAndEnter = [&]
        {
            navigator.OnWheelRight();
            stage.screen.m_Clock.Advance(600);
            navigator.UpdateFocus();
            navigator.OnEnter();
        };
        turnAndEnter();
        QVERIFY(!button->isDown());
        stage.Raise();
        turnAndEnter();
        QVERIFY(button->isDown());
        QTRY_COMPARE(clicks.count(), 1);
    }

    // Ends

    void theStripMayGoAtAnyTime_data()
    {
        QTest::addColumn<QString>("when");
        for (char const* const when : {"hidden", "rising", "up", "falling", "pressed", "asked for",
                                       "sent away", "sent away at once", "told of its end"})
            QTest::newRow(when) << QString::fromLatin1(when);
    }

    void theStripMayGoAtAnyTime()
    {
        QFETCH(QString, when);
        TStripStage stage(1);
        auto const destroy = [&] { delete stage.strip; };
        if (when == QLatin1String("asked for"))
            connect(stage.strip, &TOffScreenButtons::ShowButtons, this, destroy);
        if (when == QLatin1String("sent away"))
            connect(stage.strip, &TOffScreenButtons::HideButtons, this, destroy);
        if (when == QLatin1String("sent away at once"))
        {
            connect(stage.strip, &TOffScreenButtons::QuickHideButtons, this, destroy);
            stage.AddButton(true, false);
        }
        if (when != QLatin1String("hidden"))
            stage.strip->ShowOffScreenButtons();
        if (when == QLatin1String("rising"))
            stage.screen.Frame(80);
        else
            stage.screen.FinishSlides();
        if (when == QLatin1String("falling"))
        {
            stage.manager->OnHideOffScreenButtons();
            stage.screen.Frame(80);
        }
        stage.screen.m_Clock.Advance(1000);
        if (when == QLatin1String("sent away"))
            stage.finger.Touch(QPoint(EmptyX, 100));
        else if (when == QLatin1String("sent away at once"))
            stage.finger.Touch(stage.buttons[1]);
        else if (when == QLatin1String("pressed"))
            stage.finger.Press(stage.MiddleOf(stage.buttons[0]));
        if (when == QLatin1String("told of its end"))
        {
            connect(stage.HideTimer(), &QTimer::timeout, this, destroy);
            stage.HideTimer()->start(0);
            QTRY_VERIFY(!stage.strip);
        }
        destroy();
        QVERIFY(!stage.strip && !stage.screen->GetOffScreenButtons());
        stage.screen.FinishSlides();
        stage.finger.Touch(QPoint(EmptyX, 760));
        stage.screen->RaiseOffScreenButtons();
        stage.screen->SquishRequestOffScreenButtons();
        // The next button makes another one.
        auto* const button = new TPushButton(nullptr, 0, QString());
        stage.Own(button);
        stage.screen->AddOffscreenButton(button, false, false);
        stage.screen->SquishRequestOffScreenButtons();
        stage.screen.FinishSlides();
        QVERIFY(button->isVisible());
    }
};

COMMONUI_TEST(TOffScreenButtonsTest)
#include "TOffScreenButtonsTest.moc"
