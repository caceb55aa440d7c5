#include "TFullWindow.h"
#include "CommonUI.h"
#include "GoldenPicture.h"
#include "TestCase.h"
#include "TFullWindowTitlebar.h"
#include "TPushButton.h"
#include "TScreenStage.h"

#include <climits>

namespace
{
class TProbe : public TFullWindow
{
public:
    using TFullWindow::GetTitlebar;
    using TWindow::AddControlButton;
    using TWindow::GetContentRect;
    using TWindow::GetControlButtons;
    using TWindow::SetMiniViewsOverlap;

    explicit TProbe(QWidget* parent)
        : TFullWindow(parent)
    {
    }

    void Setup() override
    {
        ++m_Setups;
        TFullWindow::Setup();
    }

    int m_Setups = 0;
};

// Takes the options of the process for its lifetime.
struct TOptions
{
    explicit TOptions(bool dashboardEnabled)
        : before(CommonUI::GetCommonUIOptions())
    {
        CommonUIOptions options = before;
        options.dashboardEnabled = dashboardEnabled;
        CommonUI::SetCommonUIOptions(options);
    }
    ~TOptions() { CommonUI::SetCommonUIOptions(before); }

    CommonUIOptions before;
};
} // namespace

class TFullWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itLeavesRoomForTheDashboard_data()
    {
        QTest::addColumn<bool>("dashboard");
        QTest::addColumn<int>("height");
        QTest::newRow("with a dashboard") << true << 682;
        QTest::newRow("without") << false << 768;
    }

    void itLeavesRoomForTheDashboard()
    {
        QFETCH(bool, dashboard);
        QFETCH(int, height);
        TOptions const options(dashboard);
        TTestScreen screen;
        TProbe const window(screen.get());
        QCOMPARE(window.geometry(), QRect(335, 0, 617, height));
        QCOMPARE(window.minimumSize(), window.maximumSize());
        QVERIFY(!window.parentWidget());
    }

    void itAnswersForAPlainView()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        QVERIFY(!window.MiniViewsOverlap());
        window.SetMiniViewsOverlap(true);
        QVERIFY(window.MiniViewsOverlap());
        QCOMPARE(window.MinSize(), QSize(0, 0));
        QCOMPARE(window.MaxSize(), QSize(INT_MAX, INT_MAX));
        QVERIFY(!window.HideTitleToMaximise());
        QVERIFY(!window.HideTitle());
        QVERIFY(!window.GetAppWindowSurface());
        window.MinimizeSurface(nullptr);
        window.MaximizeSurface(nullptr);
        window.SetObstructedRegions({});
    }

    void theTitleBarIsBuiltWhenItIsNeeded()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        QVERIFY(!window.GetTitlebar());
        window.SetTitle(QStringLiteral("Rate"));
        QVERIFY(window.GetTitlebar());
        QCOMPARE(window.GetTitlebar()->pos(), QPoint(0, 0));
        QCOMPARE(window.GetTitlebar()->GetTitle(), QStringLiteral("Rate"));
        QCOMPARE(window.GetTitle(), QStringLiteral("Rate"));
        QVERIFY(!window.GetTitlebar()->isVisibleTo(&window));
        window.ShowWindow(false);
        QCOMPARE(window.m_Setups, 1);
        TProbe shown(nullptr);
        shown.ShowWindow(false);
        QVERIFY(shown.GetTitlebar());
        QCOMPARE(shown.m_Setups, 1);
    }

    void theContentMakesRoomForTheTitle()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.SetTitle(QStringLiteral("Rate"));
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 0, 617, 682));
        window.SetTitleVisible(true);
        QVERIFY(window.GetTitlebar()->isVisibleTo(&window));
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 24, 617, 658));
        QCOMPARE(window.GetContentRect(), QRect(0, 0, 617, 682));
        QObjectList const& all = window.children();
        QCOMPARE(all.indexOf(window.GetWindowContent()), all.indexOf(window.GetTitlebar()) + 1);
        window.SetTitleVisible(false);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 0, 617, 682));
        window.SetTitleVisible(true);
        window.SetTitle(QStringLiteral("Speed"), int(Qt::AlignCenter));
        QVERIFY(window.GetTitlebar()->isVisibleTo(&window));
        QCOMPARE(window.GetWindowContent()->y(), 24);
    }

    void theContentKeepsItsX()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.GetWindowContent()->move(12, 50);
        window.ShowWindow(false);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(12, 0, 617, 682));
    }

    void aTitleThatWasAllowedBeforeShowsWithTheFirstShowing()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.SetTitleVisible(true);
        QVERIFY(!window.GetTitlebar());
        window.ShowWindow(false);
        QVERIFY(window.GetTitlebar()->isVisible());
        QCOMPARE(window.GetWindowContent()->y(), 24);
    }

    void aResizeTakesTitleAndContentAlong()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.ShowWindow(false);
        window.SetTitleVisible(true);
        window.setFixedSize(400, 300);
        QCOMPARE(window.GetTitlebar()->width(), 400);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 24, 400, 276));
        QCOMPARE(window.GetContentRect(), QRect(0, 0, 400, 300));
        window.setFixedSize(400, 10);
        QCOMPARE(window.GetWindowContent()->height(), 0);
    }

    void aTitleBarMayBePlacedByHand()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        QRect place(20, 5, 200, 40);
        window.SetTitlebarRect(&place);
        QCOMPARE(window.GetTitlebar()->geometry(), place);
        window.SetTitlebarRect(nullptr);
        QCOMPARE(window.GetTitlebar()->geometry(), place);
    }

    void aWidgetInTheTitleGoesToTheBar()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        QWidget widget;
        widget.setFixedSize(30, 20);
        window.IncludeWidget(&widget);
        window.IncludeWidgetInTitle(true);
        QCOMPARE(widget.parentWidget(), window.GetTitlebar());
        QVERIFY(widget.isVisibleTo(window.GetTitlebar()));
        window.IncludeWidgetInTitle(false);
        QVERIFY(!widget.isVisibleTo(window.GetTitlebar()));
        window.IncludeWidget(nullptr);
        QVERIFY(!widget.parentWidget());
    }

    void controlButtonsStandSideBySideOnTheBottomLine()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.ShowWindow(false);
        for (int const id : {0, 2, 5, 7})
            window.AddControlButton(id, QString(), QString());
        QVector<TPushButton*> const& buttons = window.GetControlButtons();
        for (int const id : {0, 2, 5, 7})
            buttons[id]->setFixedSize(60, 57);
        buttons[2]->hide();
        buttons[7]->setFixedSize(80, 30);
        window.PositionControlButtons();
        QCOMPARE(buttons[0]->pos(), QPoint(0, 682 - 57));
        QCOMPARE(buttons[5]->pos(), QPoint(60, 682 - 57));
        QCOMPARE(buttons[7]->pos(), QPoint(160, 682 - 30));
        window.SetButtonStartOffset(25);
        QCOMPARE(buttons[0]->x(), 25);
        QCOMPARE(buttons[5]->x(), 85);
        buttons[2]->show();
        window.SetTitleVisible(true);
        QCOMPARE(buttons[2]->pos(), QPoint(85, 658 - 57));
        QCOMPARE(buttons[5]->pos(), QPoint(145, 658 - 57));
        QCOMPARE(buttons[7]->pos(), QPoint(265, 658 - 30));
        window.setFixedSize(500, 400);
        QCOMPARE(buttons[0]->pos(), QPoint(25, 376 - 57));
    }

    void controlButtonsStandRightBeforeTheFirstShowing()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.AddControlButton(1, QString(), QString());
        window.AddControlButton(3, QString(), QString());
        window.PositionContent();
        QCOMPARE(window.GetControlButtons()[1]->x(), 0);
        QCOMPARE(window.GetControlButtons()[3]->x(), window.GetControlButtons()[3]->width());
    }

    void aFullWindowMayEndWhileItIsShown()
    {
        TScreenStage stage;
        auto* const window = new TProbe(nullptr);
        stage.canvas->SetFullWindow(window, true);
        window->ShowWindow(true);
        stage.Lock(window, KVN::MODAL_LOCAL);
        delete window;
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aFullWindowWithATitleLooksLikeThis()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        auto* const window = new TProbe(nullptr);
        window->SetTitle(QStringLiteral("Boom height"));
        stage.canvas->SetFullWindow(window, true);
        window->SetButtonStartOffset(20);
        window->AddControlButton(0, QStringLiteral("icon-cross-larger"), QString());
        window->AddControlButton(2, QStringLiteral("icon-tick-larger"), QString());
        QWidget lamp;
        lamp.setFixedSize(40, 16);
        lamp.setAutoFillBackground(true);
        lamp.setPalette(QPalette(Qt::green));
        window->IncludeWidget(&lamp);
        window->IncludeWidgetInTitle(true);
        window->ShowWindow(false);
        COMPARE_PICTURE(stage.screen->grab().toImage(), "full-window-with-title");
    }
};

COMMONUI_TEST(TFullWindowTest)
#include "TFullWindowTest.moc"
