#include "TMiniWindow.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TMiniWindowTitlebar.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TViewStage.h"

#include <QSignalSpy>

using TPath = QList<QPoint>;
Q_DECLARE_METATYPE(TPath)

namespace
{
constexpr int Width = 268;
constexpr int Height = 256;
constexpr QPoint Place(67, 256);
constexpr QRect ChildRect(20, 20, 100, 60); // in the content

QString Event(char const* name, int id, int value)
{
    return QStringLiteral("%1 %2 %3").arg(QLatin1String(name)).arg(id).arg(value);
}

// A mini window by itself, in the place of the second slot, with a button in its content. Nobody answers its
// signals; they are noted.
class TLoneMini
{
public:
    TLoneMini()
        : mini(new TTestMiniWindow(stage.calls, QStringLiteral("m")))
        , child(new TPushButton(mini->GetWindowContent(), 3, QString()))
    {
        stage.Own(mini);
        child->setGeometry(ChildRect);
        child->show();
        mini->SetViewId(7);
        mini->move(Place);
        mini->ShowWindow(false);
        Listen();
    }

    QPoint OnScreen(QPoint const& local) const { return Place + local; }

    TViewStage stage;
    QPointer<TTestMiniWindow> mini;
    QPointer<TPushButton> child;
    QStringList events;

private:
    void Listen()
    {
        QObject::connect(mini, &TMiniWindow::MiniWindowHide, mini,
                         [this](int id, bool after) { events.append(Event("hide", id, after)); });
        QObject::connect(mini, &TMiniWindow::MiniWindowMaximize, mini,
                         [this](int id) { events.append(Event("maximise", id, 0)); });
        QObject::connect(mini, &TMiniWindow::MiniWindowSlideUp, mini,
                         [this](int id, int y) { events.append(Event("up", id, y)); });
        QObject::connect(mini, &TMiniWindow::MiniWindowSlideDown, mini,
                         [this](int id, int y) { events.append(Event("down", id, y)); });
        QObject::connect(mini, &TMiniWindow::MiniWindowDoneDrag, mini,
                         [this](int id, int y) { events.append(Event("done", id, y)); });
        QObject::connect(mini, &TMiniWindow::MiniWindowHideComplete, mini,
                         [this](int id) { events.append(Event("hidden", id, 0)); });
    }
};

struct TContentRect : TMiniWindow
{
    using TMiniWindow::GetContentRect;
    using TMiniWindow::TMiniWindow;
};

TMiniWindowTitlebar* TitlebarOf(TMiniWindow* mini)
{
    return mini->findChild<TMiniWindowTitlebar*>();
}
struct TGesture
{
    char const* name;
    TPath path;
    QStringList expected;
};

QList<TGesture> Gestures()
{
    return {
        {"left past the edge", {{-1, 100}}, {"hide 7 0", "hidden 7 0"}},
        {"left to the edge", {{0, 100}}, {}},
        {"left further", {{-1, 100}, {-30, 100}, {-60, 100}}, {"hide 7 0", "hidden 7 0"}},
        {"up past the edge", {{100, -1}}, {"up 7 255", "done 7 255"}},
        {"up to the edge", {{100, 0}}, {}},
        {"up, every move",
         {{100, -1}, {100, -40}, {100, -90}},
         {"up 7 255", "up 7 216", "up 7 166", "done 7 166"}},
        {"down past the edge", {{100, 257}}, {"down 7 513", "done 7 513"}},
        {"down to the edge", {{100, 256}}, {}},
        {"up and down", {{100, -5}, {100, 300}}, {"up 7 251", "down 7 556", "done 7 556"}},
        {"up and back", {{100, -5}, {100, 50}}, {"up 7 251", "done 7 306"}},
        {"right past the edge", {{269, 100}, {400, 100}}, {"maximise 7 0"}},
        {"right to the edge", {{268, 100}}, {}},
        {"right, back and right again",
         {{269, 100}, {100, 100}, {400, 100}},
         {"maximise 7 0", "maximise 7 0"}},
        {"up, then left", {{100, -5}, {-50, -5}}, {"up 7 251", "up 7 251", "done 7 251"}},
        {"up, in, then left", {{100, -5}, {100, 100}, {-50, 100}}, {"up 7 251", "done 7 356"}},
        {"up, then right", {{100, -5}, {400, -5}, {400, 100}}, {"up 7 251", "up 7 251", "done 7 356"}},
        {"up and left at once", {{-5, -5}}, {"up 7 251", "done 7 251"}},
        {"down and right at once", {{300, 300}}, {"down 7 556", "done 7 556"}},
        {"left, then up", {{-5, 100}, {-5, -50}}, {"hide 7 0", "hidden 7 0"}},
        {"left, in, then up", {{-5, 100}, {50, 100}, {50, -50}}, {"hide 7 0", "hidden 7 0"}},
        {"left, in, then left", {{-5, 100}, {50, 100}, {-5, 100}}, {"hide 7 0", "hide 7 0", "hidden 7 0"}},
        {"left, in, then right", {{-5, 100}, {50, 100}, {400, 100}}, {"hide 7 0", "hidden 7 0"}},
        {"right, then up", {{300, 100}, {300, -5}, {100, -5}}, {"maximise 7 0"}},
        {"right, in, then down", {{300, 100}, {100, 100}, {100, 300}}, {"maximise 7 0"}},
        {"right, in, then left", {{300, 100}, {100, 100}, {-5, 100}}, {"maximise 7 0"}},
        {"within", {{100, 100}, {101, 130}, {60, 150}}, {}},
    };
}
} // namespace

class TMiniWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheFrameOfASlot()
    {
        TTestScreen screen;
        TContentRect mini(screen.get());
        QCOMPARE(mini.size(), QSize(Width, Height));
        QCOMPARE(mini.minimumSize(), mini.maximumSize());
        QCOMPARE(mini.GetWindowContent()->geometry(), QRect(14, 30, 248, 220));
        QCOMPARE(mini.GetWindowContent()->minimumSize(), QSize(248, 220));
        QCOMPARE(mini.GetContentRect(), QRect(QPoint(14, 30), QPoint(261, 249)));
        QVERIFY(mini.GetWindowContent()->isVisibleTo(&mini));
        QCOMPARE(TitlebarOf(&mini)->geometry(), QRect(0, 0, 267, 30));
        QVERIFY(TitlebarOf(&mini)->isVisibleTo(&mini));
        QVERIFY(mini.testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void paintsTheFrameOfItsName()
    {
        TLoneMini lone;
        QImage const painted = lone.mini->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QImage const art = lone.stage.screen->GetPixmapManager()
                               ->GetResizedPixmap(PixmapNames::MiniWindow, Width, Height)
                               ->toImage()
                               .convertToFormat(QImage::Format_RGB32);
        // The frame below the title bar, which nothing covers.
        QRect const leftEdge(0, 40, 13, 200);
        QCOMPARE(painted.copy(leftEdge), art.copy(leftEdge));
    }

    void theBaseAnswersWhatMostModulesWant()
    {
        TTestScreen screen;
        TMiniWindow mini(screen.get());
        QCOMPARE(mini.GetViewId(), -1);
        QVERIFY(mini.IsAvailable());
        QVERIFY(!mini.IsFullViewAvailable());
        QVERIFY(mini.CanHideView());
        QVERIFY(mini.ShowDashboard());
        QVERIFY(!mini.GetAppWindowSurface());
        QCOMPARE(mini.GetMMISortPrecedence(), 1U);
        int surface = 0;
        mini.MaximizeSurface(reinterpret_cast<KVN::AppWindowSurface*>(&surface));
        mini.OnMinimize();
        mini.UpdateView();
        QVERIFY(!mini.isVisible());
    }

    void signalsCarryMinusOneUntilTheViewIsRegistered()
    {
        TLoneMini lone;
        lone.mini->SetViewId(-1);
        QCOMPARE(lone.mini->GetViewId(), -1);
        lone.mini->OnHide();
        lone.mini->OnMaximize();
        QCOMPARE(lone.events, (QStringList{"hide -1 1", "maximise -1 0"}));
    }

    void theTitleBarsButtonsHideAndMaximise()
    {
        TLoneMini lone;
        lone.mini->ShowMaximise();
        lone.stage.finger.Touch(TitlebarOf(lone.mini)->GetHideButton());
        QCOMPARE(lone.events, (QStringList{"hide 7 1"}));
        lone.events.clear();
        lone.stage.finger.Touch(TitlebarOf(lone.mini)->GetMaximizeButton());
        QCOMPARE(lone.events, (QStringList{"maximise 7 0"}));
        QCOMPARE(lone.stage.calls, (QStringList{"m maximise"}));
    }

    void theMaximiseButtonComesWithAFullView_data()
    {
        QTest::addColumn<bool>("available");
        QTest::addColumn<bool>("fullView");
        QTest::addColumn<bool>("shown");
        QTest::newRow("nothing to show") << false << false << false;
        QTest::newRow("no full view") << true << false << false;
        QTest::newRow("not available") << false << true << false;
        QTest::newRow("both") << true << true << true;
    }

    void theMaximiseButtonComesWithAFullView()
    {
        QFETCH(bool, available);
        QFETCH(bool, fullView);
        QFETCH(bool, shown);
        TLoneMini lone;
        TPushButton* const button = TitlebarOf(lone.mini)->GetMaximizeButton();
        QVERIFY(!button->isVisible());
        lone.mini->m_Available = available;
        lone.mini->SetFullView(fullView);
        QCOMPARE(lone.mini->IsFullViewAvailable(), shown);
        // Only a showing looks.
        QVERIFY(!button->isVisible());
        lone.mini->HideWindow();
        lone.mini->ShowWindow(false);
        QCOMPARE(button->isVisible(), shown);
        lone.mini->SetFullView(false);
        lone.mini->HideWindow();
        lone.mini->ShowWindow(false);
        QVERIFY(!button->isVisible());
    }

    void showingRaisesTheTitleBar()
    {
        TLoneMini lone;
        auto* const cover = new QWidget(lone.mini);
        cover->setGeometry(0, 0, Width, Height);
        cover->show();
        QCOMPARE(lone.mini->childAt(150, 15), cover);
        lone.mini->HideWindow();
        lone.mini->ShowWindow(false);
        QVERIFY(TitlebarOf(lone.mini)->isAncestorOf(lone.mini->childAt(150, 15)));
    }

    void theTitleGoesToTheTitleBar()
    {
        TLoneMini lone;
        QImage const before = lone.mini->grab().toImage();
        lone.mini->SetTitle(QStringLiteral("Sprayer"));
        QCOMPARE(lone.mini->GetTitle(), QStringLiteral("Sprayer"));
        QVERIFY(lone.mini->grab().toImage() != before);
    }

    // Each gesture, wherever in the window the finger begins.
    void gestures_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<TPath>("path");
        QTest::addColumn<QStringList>("expected");
        struct TStart
        {
            char const* name;
            QPoint place;
        };
        constexpr TStart Starts[] = {{"content", QPoint(200, 200)},
                                     {"frame", QPoint(5, 128)},
                                     {"button", QPoint(80, 80)},
                                     {"hide button", QPoint(20, 15)},
                                     {"title", QPoint(150, 15)}};
        QList<TGesture> const gestures = Gestures();
        for (TStart const& start : Starts)
        {
            for (TGesture const& gesture : gestures)
            {
                QTest::addRow("%s: %s", start.name, gesture.name)
                    << start.place << gesture.path << gesture.expected;
            }
        }
    }

    void gestures()
    {
        QFETCH(QPoint, start);
        QFETCH(TPath, path);
        QFETCH(QStringList, expected);
        TLoneMini lone;
        lone.stage.finger.Press(lone.OnScreen(start));
        for (QPoint const& local : path)
            lone.stage.finger.Move(lone.OnScreen(local));
        lone.stage.finger.Lift();
        QCOMPARE(lone.events, expected);

        // The release ended it all: the next gesture is free again.
        lone.events.clear();
        lone.stage.finger.Press(lone.OnScreen(QPoint(200, 200)));
        lone.stage.finger.Move(lone.OnScreen(QPoint(200, -10)));
        lone.stage.finger.Lift();
        QCOMPARE(lone.events, (QStringList{"up 7 246", "done 7 246"}));
    }

    void aFingerThatEntersArmsTheGesture()
    {
        TLoneMini lone;
        auto const move = [&lone](QPoint const& local)
        {
            QMouseEvent event(QEvent::MouseMove, local, local + Place, local + Place, Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(lone.mini, &event);
        };
        move({-5, 100});
        move({300, 100});
        move({-5, -5});
        move({-5, 300});
        QVERIFY(lone.events.isEmpty());
        move({100, 100});
        move({-5, 100});
        QCOMPARE(lone.events, (QStringList{"hide 7 0"}));
    }

    // Its column is enough: the test for it comes after those for above and below.
    void aFingerThatPassesAboveArmsTheGestureToo()
    {
        TLoneMini lone;
        auto const move = [&lone](QPoint const& local)
        {
            QMouseEvent event(QEvent::MouseMove, local, local + Place, local + Place, Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(lone.mini, &event);
        };
        move({100, -5});
        QVERIFY(lone.events.isEmpty());
        move({100, -6});
        QCOMPARE(lone.events, (QStringList{"up 7 250"}));
    }

    void positionsAreRounded()
    {
        TLoneMini lone;
        auto const send = [&lone](QEvent::Type type, QPointF const& local)
        {
            QMouseEvent event(type, local, local + Place, local + Place, Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(lone.mini, &event);
        };
        send(QEvent::MouseButtonPress, {100, 100});
        send(QEvent::MouseMove, {100, -0.4});
        QVERIFY(lone.events.isEmpty());
        send(QEvent::MouseMove, {100, -0.6});
        send(QEvent::MouseButtonRelease, {100, -3.4});
        QCOMPARE(lone.events, (QStringList{"up 7 255", "done 7 253"}));
    }

    void theFinalReleaseOfADragClicksNoButton_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<QPoint>("end");
        // All within the 50 pixels for which a held button would still click.
        QTest::newRow("hide button, left") << QPoint(20, 15) << QPoint(-1, 15);
        QTest::newRow("hide button, up") << QPoint(20, 15) << QPoint(20, -1);
        QTest::newRow("maximise button, up") << QPoint(240, 15) << QPoint(240, -1);
        QTest::newRow("child, left") << QPoint(40, 80) << QPoint(-1, 80);
        QTest::newRow("child, up") << QPoint(40, 52) << QPoint(40, -1);
    }

    void theFinalReleaseOfADragClicksNoButton()
    {
        QFETCH(QPoint, start);
        QFETCH(QPoint, end);
        TLoneMini lone;
        lone.mini->ShowMaximise();
        int clicks = 0;
        QList<TPushButton*> const buttons = lone.mini->findChildren<TPushButton*>();
        for (TPushButton* const button : buttons)
            connect(button, &QAbstractButton::clicked, this, [&clicks] { ++clicks; });
        lone.stage.finger.Press(lone.OnScreen(start));
        lone.stage.finger.Move(lone.OnScreen(end));
        QVERIFY(!lone.mini->m_Propagates);
        lone.stage.finger.Lift();
        QCOMPARE(clicks, 0);

        lone.mini->ChildButtonsPropagateClick(true);
        lone.stage.finger.Touch(lone.OnScreen(start));
        QCOMPARE(clicks, 1);
    }

    void propagationReachesEveryButtonBelow()
    {
        TLoneMini lone;
        auto* const box = new QWidget(lone.mini->GetWindowContent());
        auto* const deep = new TPushButton(box, 4, QString());
        deep->show();
        lone.mini->ShowMaximise();
        QList<TPushButton*> const all = {deep, lone.child, TitlebarOf(lone.mini)->GetHideButton(),
                                         TitlebarOf(lone.mini)->GetMaximizeButton()};
        for (bool const propagates : {false, true})
        {
            lone.mini->ChildButtonsPropagateClick(propagates);
            for (TPushButton* const button : all)
            {
                QSignalSpy const clicked(button, &QAbstractButton::clicked);
                QTest::mouseClick(button, Qt::LeftButton);
                QCOMPARE(clicked.count(), propagates ? 1 : 0);
            }
        }
    }

    void whatTheSlotsFindHasChangedAlready()
    {
        TLoneMini lone;
        bool propagated = true;
        connect(lone.mini, &TMiniWindow::MiniWindowSlideUp, this,
                [&] { propagated = lone.mini->m_Propagates; });
        lone.stage.finger.Press(lone.OnScreen({200, 200}));
        lone.stage.finger.Move(lone.OnScreen({200, -1}));
        QVERIFY(!propagated);
        lone.stage.finger.Lift();
    }

    void aWindowTakenAwayStillSeesTheRelease()
    {
        TLoneMini lone;
        lone.stage.finger.Press(lone.OnScreen({200, 200}));
        lone.stage.finger.Move(lone.OnScreen({200, -1}));
        lone.mini->HideWindow();
        lone.stage.finger.Move(lone.OnScreen({200, -10}));
        lone.stage.finger.Lift();
        QCOMPARE(lone.events, (QStringList{"up 7 255", "up 7 246", "done 7 246"}));
    }

    void mayBeDeletedByEachOfItsSignals_data()
    {
        QTest::addColumn<QPoint>("start");
        QTest::addColumn<QPoint>("end");
        QTest::addColumn<QString>("event");
        for (QPoint const& start : {QPoint(200, 200), QPoint(80, 80)})
        {
            char const* const where = start.x() == 200 ? "content" : "button";
            QTest::addRow("%s: slide up", where) << start << QPoint(100, -5) << "up";
            QTest::addRow("%s: slide down", where) << start << QPoint(100, 300) << "down";
            QTest::addRow("%s: up and left", where) << start << QPoint(-5, -5) << "up";
            QTest::addRow("%s: drag done", where) << start << QPoint(100, -5) << "done";
            QTest::addRow("%s: hide", where) << start << QPoint(-5, 100) << "hide";
            QTest::addRow("%s: hide complete", where) << start << QPoint(-5, 100) << "hidden";
            QTest::addRow("%s: maximise", where) << start << QPoint(300, 100) << "maximise";
        }
    }

    void mayBeDeletedByEachOfItsSignals()
    {
        QFETCH(QPoint, start);
        QFETCH(QPoint, end);
        QFETCH(QString, event);
        TLoneMini lone;
        auto const deleteAt = [&](char const* name, auto notice)
        {
            if (event == QLatin1String(name))
                connect(lone.mini, notice, this, [&lone] { delete lone.mini; });
        };
        deleteAt("up", &TMiniWindow::MiniWindowSlideUp);
        deleteAt("down", &TMiniWindow::MiniWindowSlideDown);
        deleteAt("done", &TMiniWindow::MiniWindowDoneDrag);
        deleteAt("hide", &TMiniWindow::MiniWindowHide);
        deleteAt("hidden", &TMiniWindow::MiniWindowHideComplete);
        deleteAt("maximise", &TMiniWindow::MiniWindowMaximize);
        lone.stage.finger.Press(lone.OnScreen(start));
        lone.stage.finger.Move(lone.OnScreen(end));
        lone.stage.finger.Lift();
        QVERIFY(!lone.mini);
    }

    void mayBeDeletedByItsButtons_data()
    {
        QTest::addColumn<bool>("maximise");
        QTest::newRow("hide") << false;
        QTest::newRow("maximise") << true;
    }

    void mayBeDeletedByItsButtons()
    {
        QFETCH(bool, maximise);
        TLoneMini lone;
        lone.mini->ShowMaximise();
        TMiniWindowTitlebar* const bar = TitlebarOf(lone.mini);
        TPushButton* const button = maximise ? bar->GetMaximizeButton() : bar->GetHideButton();
        connect(lone.mini, &TMiniWindow::MiniWindowHide, this, [&lone] { delete lone.mini; });
        connect(lone.mini, &TMiniWindow::MiniWindowMaximize, this, [&lone] { delete lone.mini; });
        lone.stage.finger.Touch(button);
        QVERIFY(!lone.mini);
    }

    void mayBeDeletedUnderTheFinger_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::newRow("pressed") << QPoint(200, 100);
        QTest::newRow("sliding") << QPoint(200, -20);
        QTest::newRow("hiding") << QPoint(-20, 100);
        QTest::newRow("maximising") << QPoint(400, 100);
    }

    void mayBeDeletedUnderTheFinger()
    {
        QFETCH(QPoint, place);
        TLoneMini lone;
        lone.stage.finger.Press(lone.OnScreen({200, 100}));
        lone.stage.finger.Move(lone.OnScreen(place));
        delete lone.mini;
        lone.stage.finger.Move(lone.OnScreen({100, 100}));
        lone.stage.finger.Lift();
        QVERIFY(lone.stage.screen.get());
    }

    // The title bar is one stop; within it the wheel comes to the two buttons and not to the title.
    void theWheelWalksOverTheButtons()
    {
        TLoneMini lone;
        lone.mini->ShowMaximise();
        TMiniWindowTitlebar* const bar = TitlebarOf(lone.mini);
        TMMICapableWidgetNavigator navigator(lone.stage.screen.get());
        navigator.PushWidget(lone.mini);
        auto const tick = [&]
        {
            lone.stage.screen.m_Clock.Advance(100);
            navigator.UpdateFocus();
        };
        // The enter key presses the selected button, or goes into the title bar.
        auto const enter = [&]
        {
            navigator.OnEnter();
            QString pressed;
            for (TPushButton* const button :
                 {bar->GetHideButton(), bar->GetMaximizeButton(), lone.child.data()})
            {
                pressed += button->isDown() ? QLatin1Char('1') : QLatin1Char('0');
                button->setDown(false);
            }
            tick();
            return pressed;
        };
        tick();
        QCOMPARE(enter(), QStringLiteral("000"));
        navigator.OnWheelRight();
        tick();
        QCOMPARE(enter(), QStringLiteral("001"));
        QCOMPARE(enter(), QStringLiteral("001"));
        navigator.OnWheelRight();
        QCOMPARE(enter(), QStringLiteral("000"));
        QCOMPARE(enter(), QStringLiteral("100"));
        navigator.OnWheelRight();
        QCOMPARE(enter(), QStringLiteral("010"));
        navigator.OnWheelRight();
        QCOMPARE(enter(), QStringLiteral("100"));
        navigator.OnWheelLeft();
        QCOMPARE(enter(), QStringLiteral("010"));
    }
};

COMMONUI_TEST(TMiniWindowTest)
#include "TMiniWindowTest.moc"
