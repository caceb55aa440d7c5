#include "TPopupWindow.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TButtonBar.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TScreenStage.h"
#include "TSystemToolBar.h"
#include "TTestPlatform.h"

#include <QSignalSpy>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;
using KVN::MODAL_NONE;

namespace
{
QColor const Behind(0, 0, 100);

class TProbe : public TPopupWindow
{
public:
    using TPopupWindow::GetButtonBar;
    using TPopupWindow::IsAdjustNeeded;
    using TPopupWindow::SetAdjustNeeded;
    using TPopupWindow::TPopupWindow;
    using TWindow::IsModal;
};

// A popup of any size.
class TSizedPopup : public TProbe
{
public:
    TSizedPopup(QWidget* parent, QSize const& size)
        : TProbe(parent)
        , m_Size(size)
    {
    }

    void Setup() override
    {
        TPopupWindow::Setup();
        setFixedSize(m_Size);
    }

    QSize m_Size;
};

// The popup on a blue ground.
QImage Picture(QWidget& window)
{
    QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Behind);
    window.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

bool IsPainted(QImage const& picture, QRect const& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
    {
        for (int x = area.left(); x <= area.right(); ++x)
        {
            if (picture.pixelColor(x, y) != Behind)
                return true;
        }
    }
    return false;
}

KVN::MorvaneID Id(int number)
{
    return KVN::MorvaneID(QUuid(0x1234, 0x56, 0x78, 9, 8, 7, 6, 5, 4, 3, uchar(number)));
}
} // namespace

class TPopupWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<KVN::MorvaneID>(); }

    void aPopupStartsHiddenAndPlain()
    {
        TScreenStage stage;
        TProbe popup(stage.canvas);
        QVERIFY(popup.isHidden());
        QCOMPARE(popup.ModalType(), int(MODAL_NONE));
        QVERIFY(!popup.SurfaceID().IsValid());
        QVERIFY(popup.IsAdjustNeeded());
        QCOMPARE(popup.GetButtonBar()->parentWidget(), static_cast<QWidget*>(&popup));
        QCOMPARE(popup.GetButtonBar()->GetNumberOfButtons(), 0);
        QCOMPARE(popup.GetMMISelectionDelay(), 500U);
        // Its parent may come and go without bringing it up.
        stage.canvas->hide();
        stage.canvas->show();
        QVERIFY(!popup.isVisible());
    }

    void theFirstShowingGivesItItsSize()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.ShowWindow(false);
        QCOMPARE(popup.size(), QSize(260, 200));
        QCOMPARE(popup.minimumSize(), popup.maximumSize());
    }

    // Who shows it

    void aPopupWithoutAParentGoesThroughThePlatform()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe alone(nullptr);
        TProbe onScreen(stage.screen.get());
        alone.ShowWindow(true);
        onScreen.setParent(stage.screen.get());
        onScreen.ShowWindow(false, true);
        QCOMPARE(platform.m_Popups, (QVector<TTestPlatform::TRequest>{{&alone, false}, {&onScreen, true}}));
        QVERIFY(!alone.isVisible());
        QCOMPARE(alone.size(), QSize(260, 200));
        QCOMPARE(alone.ModalType(), int(MODAL_GLOBAL));
        QCOMPARE(onScreen.ModalType(), int(MODAL_NONE));
        QVERIFY(platform.m_TaskWindows.isEmpty());
    }

    void aPopupOverAWindowStaysWithItAndLocksIt()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TWindow* const window = stage.Window();
        window->setFixedSize(400, 300);
        TPushButton below(window->GetWindowContent(), 0, QString());
        window->GetWindowContent()->resize(400, 300);
        TProbe popup(window);
        popup.ShowWindow(true);
        QVERIFY(platform.m_Popups.isEmpty());
        QVERIFY(popup.isVisible());
        QCOMPARE(popup.parentWidget(), static_cast<QWidget*>(window));
        // One in a hundred children is the fade: it lies directly below the popup.
        QObjectList const& all = window->children();
        auto* const fade = qobject_cast<QWidget*>(all.value(all.indexOf(&popup) - 1));
        QVERIFY(fade && fade != window->GetWindowContent() && fade->isVisible());
        popup.HideWindow();
        QVERIFY(fade->isHidden());
        QCOMPARE(popup.parentWidget(), static_cast<QWidget*>(window));
    }

    void aPopupOverAnyOtherWidgetStaysWithItToo()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe popup(stage.canvas);
        popup.ShowWindow(false);
        QVERIFY(platform.m_Popups.isEmpty());
        QVERIFY(popup.isVisible());
        QCOMPARE(popup.parentWidget(), static_cast<QWidget*>(stage.canvas));
    }

    void withoutAPlatformThePopupShowsItself()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.ShowWindow(true);
        QVERIFY(popup.isVisible());
        QCOMPARE(popup.parentWidget(), static_cast<QWidget*>(stage.screen.get()));
        popup.HideWindow();
        QVERIFY(!popup.parentWidget());
    }

    void withoutAScreenAPopupIsJustAWidget()
    {
        TProbe popup(nullptr);
        popup.ShowWindow(false);
        QVERIFY(popup.isVisible());
        QVERIFY(popup.IsAdjustNeeded());
        popup.ReCentre(nullptr);
        popup.HideWindow();
    }

    void aPopupHasItsSizeAndPlaceBeforeThePlatformShowsIt()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TSizedPopup local(nullptr, QSize(2000, 200));
        local.ShowWindow(true, true);
        QCOMPARE(local.geometry(), QRect(20, 288, 1004, 200));
        TProbe plain(nullptr);
        plain.ShowWindow(false, true);
        QCOMPARE(plain.geometry(), QRect(350, 60, 260, 200));
    }

    // Modal or not

    void aPopupStaysModalUntilItIsToldNotTo()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.ShowWindow(true);
        popup.HideWindow();
        popup.ShowWindow(false);
        QVERIFY(popup.IsModal());
        popup.HideWindow();
        popup.ClearModal();
        popup.ShowWindow(false);
        QCOMPARE(popup.ModalType(), int(MODAL_NONE));
    }

    void aModalPopupIsLocalWhenItIsShownSo()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.ShowWindow(true, true);
        QCOMPARE(popup.ModalType(), int(MODAL_LOCAL));
        popup.ShowWindow(true);
        QCOMPARE(popup.ModalType(), int(MODAL_GLOBAL));
    }

    void theWheelWaitsForHalfASecond()
    {
        TScreenStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        TProbe popup(nullptr);
        popup.SetText(0, QStringLiteral("Yes"));
        QSignalSpy clicked(popup.GetButton(0), &TPushButton::clicked);
        popup.ShowWindow(true);
        navigator.OnWheelRight();
        stage.screen.m_Clock.Advance(500);
        navigator.UpdateFocus();
        navigator.OnEnter();
        QCOMPARE(clicked.count(), 0);
        stage.screen.m_Clock.Advance(1);
        navigator.UpdateFocus();
        navigator.OnEnter();
        QTRY_COMPARE(clicked.count(), 1);
    }

    // Where it stands

    void aPopupThatIsNotModalHasAStandardPlace()
    {
        TScreenStage stage;
        TProbe onScreen(nullptr);
        onScreen.ShowWindow(false);
        QCOMPARE(onScreen.pos(), QPoint(350, 60));
        TProbe onCanvas(stage.canvas);
        onCanvas.ShowWindow(false);
        QCOMPARE(onCanvas.pos(), QPoint(350, 60));
    }

    void aPopupOnAnotherCanvasIsCentred()
    {
        TScreenStage stage;
        TCanvas other(stage.screen.get());
        TProbe popup(&other);
        popup.ShowWindow(false);
        QCOMPARE(popup.pos(), QPoint((1024 - 260) / 2, (768 - 200) / 2));
    }

    void aModalPopupIsCentred_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("local");
        QTest::addColumn<bool>("bars");
        QTest::addColumn<QPoint>("place");
        // The shadow of 9 pixels is no part of what is centred.
        QTest::newRow("global") << QSize(260, 200) << false << true << QPoint(386, 288);
        QTest::newRow("global, no bars") << QSize(260, 200) << false << false << QPoint(386, 288);
        QTest::newRow("local") << QSize(260, 200) << true << true << QPoint(420, 288);
        QTest::newRow("local, no bars") << QSize(260, 200) << true << false << QPoint(386, 288);
        QTest::newRow("odd sizes") << QSize(261, 201) << true << true << QPoint(419, 288);
        QTest::newRow("wide, at the right edge") << QSize(960, 200) << true << true << QPoint(64, 288);
        QTest::newRow("wide, at the left edge") << QSize(1004, 200) << true << true << QPoint(20, 288);
    }

    void aModalPopupIsCentred()
    {
        QFETCH(QSize, size);
        QFETCH(bool, local);
        QFETCH(bool, bars);
        QFETCH(QPoint, place);
        TScreenStage stage;
        stage.screen->SetCurrentCanvas(stage.canvas, bars);
        TSizedPopup popup(nullptr, size);
        popup.ShowWindow(true, local);
        QCOMPARE(popup.size(), size);
        QCOMPARE(popup.pos(), place);
    }

    void aLocalPopupKeepsClearOfTheSystemToolBar_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("local");
        QTest::addColumn<int>("x");
        // The navigation bar takes 67 pixels at the left, the tool bar 72 at the right.
        QTest::newRow("global") << 260 << false << 386;
        QTest::newRow("local") << 260 << true << 384;
        QTest::newRow("at the tool bar") << 900 << true << 52;
        QTest::newRow("too wide for that") << 960 << true << 9;
    }

    void aLocalPopupKeepsClearOfTheSystemToolBar()
    {
        QFETCH(int, width);
        QFETCH(bool, local);
        QFETCH(int, x);
        TScreenStage stage;
        auto* const bar = new TSystemToolBar(stage.screen.get());
        bar->AssignButton(1, QStringLiteral("icon-usb"), QString(), QString());
        stage.screen->SetSystemToolBar(bar);
        TSizedPopup popup(nullptr, QSize(width, 200));
        popup.ShowWindow(true, local);
        QCOMPARE(popup.pos(), QPoint(x, 288));
    }

    void aPopupWiderThanTheFreePartKeepsOffTheShadow()
    {
        TScreenStage stage;
        TSizedPopup popup(nullptr, QSize(260, 200));
        popup.ShowWindow(true, true);
        popup.setFixedWidth(1020);
        popup.ReCentre(stage.screen.get());
        QCOMPARE(popup.x(), 9);
    }

    void aPopupOverAWindowIsCentredOnIt_data()
    {
        QTest::addColumn<bool>("modal");
        QTest::newRow("modal") << true;
        QTest::newRow("not modal") << false;
    }

    void aPopupOverAWindowIsCentredOnIt()
    {
        QFETCH(bool, modal);
        TScreenStage stage;
        TWindow* const window = stage.Window();
        window->setFixedSize(401, 300);
        TProbe popup(window);
        QVERIFY(popup.ShouldAutoReCentre());
        popup.ShowWindow(modal, true);
        QCOMPARE(popup.pos(), QPoint(70, 50));
        window->setFixedSize(500, 400);
        QCOMPARE(popup.pos(), QPoint(120, 100));
        window->setFixedSize(500, 150);
        QCOMPARE(popup.pos(), QPoint(120, -25));
    }

    void onlyAModalPopupFollowsAnyParent()
    {
        TScreenStage stage;
        TProbe popup(stage.canvas);
        QVERIFY(!popup.ShouldAutoReCentre());
        popup.ShowWindow(true);
        QVERIFY(popup.ShouldAutoReCentre());
        QCOMPARE(popup.pos(), QPoint((1024 - 260) / 2, (768 - 200) / 2));
        stage.canvas->resize(800, 600);
        QCOMPARE(popup.pos(), QPoint((800 - 260) / 2, (600 - 200) / 2));
    }

    void eachShowingCentresAgain()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.ShowWindow(false);
        popup.move(5, 5);
        popup.HideWindow();
        popup.ShowWindow(false);
        QCOMPARE(popup.pos(), QPoint(350, 60));
    }

    // How large it is

    void aPopupIsCutToWhatItLiesOn_data()
    {
        QTest::addColumn<QSize>("parent");
        QTest::addColumn<QSize>("size");
        QTest::newRow("room enough") << QSize(280, 220) << QSize(260, 200);
        QTest::newRow("one pixel too narrow") << QSize(279, 220) << QSize(259, 200);
        QTest::newRow("one pixel too low") << QSize(280, 219) << QSize(260, 199);
        QTest::newRow("far too small") << QSize(150, 90) << QSize(130, 70);
        QTest::newRow("smaller than the margins") << QSize(12, 9) << QSize(12, 0);
    }

    void aPopupIsCutToWhatItLiesOn()
    {
        QFETCH(QSize, parent);
        QFETCH(QSize, size);
        TScreenStage stage;
        TWindow* const window = stage.Window();
        window->setFixedSize(parent);
        TProbe popup(window);
        popup.ShowWindow(false);
        QCOMPARE(popup.size(), size);
    }

    void aPopupLargerThanTheScreenIsCutToItsMargins()
    {
        TScreenStage stage;
        TSizedPopup popup(nullptr, QSize(2000, 3000));
        popup.ShowWindow(true);
        QCOMPARE(popup.size(), QSize(1004, 748));
        QCOMPARE(popup.GetWindowContent()->size(), QSize(1004 - 15, 748 - 45));
    }

    void aPopupMakesRoomForItsButtons()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetupIfRequired();
        popup.GetButtonBar()->SetFixedWidth(300);
        popup.ShowWindow(false);
        QCOMPARE(popup.width(), 315);
        TWindow* const window = stage.Window();
        window->setFixedSize(310, 400);
        TProbe cut(window);
        cut.SetupIfRequired();
        cut.GetButtonBar()->SetFixedWidth(300);
        cut.ShowWindow(false);
        QCOMPARE(cut.width(), 310);
    }

    void aPopupFitsItselfOnlyOnce()
    {
        TScreenStage stage;
        TWindow* const window = stage.Window();
        window->setFixedSize(400, 400);
        TProbe popup(window);
        popup.ShowWindow(false);
        QVERIFY(!popup.IsAdjustNeeded());
        popup.HideWindow();
        window->setFixedSize(100, 100);
        popup.ShowWindow(false);
        QCOMPARE(popup.size(), QSize(260, 200));
        popup.SetAdjustNeeded();
        popup.AdjustForShow();
        QCOMPARE(popup.size(), QSize(80, 80));
    }

    // Content and frame

    void withoutAButtonOnlyBorderAndTitleCount()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        QCOMPARE(popup.GetBorderSize(), 15);
        QCOMPARE(popup.GetWindowStaticComponentsSize(), QSize(15, 45));
        popup.SetText(3, QStringLiteral("Yes"));
        QCOMPARE(popup.GetWindowStaticComponentsSize(), QSize(15, 115));
        popup.SetButtonVisibility(3, false);
        QCOMPARE(popup.GetWindowStaticComponentsSize(), QSize(15, 45));
    }

    void contentAndWindowSizesBelongTogether()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetText(0, QStringLiteral("Yes"));
        QCOMPARE(popup.GetContentSizeForWindowSize(QSize(260, 200)), QSize(245, 85));
        QCOMPARE(popup.GetWindowSizeForContentSize(QSize(245, 85)), QSize(260, 200));
        QCOMPARE(popup.GetContentSizeForWindowSize(QSize(10, 400)), QSize(0, 285));
        QCOMPARE(popup.GetContentSizeForWindowSize(QSize(400, 10)), QSize(385, 0));
    }

    void contentAndButtonsFollowTheSize()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetText(0, QStringLiteral("Yes"));
        popup.SetText(1, QStringLiteral("No"));
        popup.ShowWindow(false);
        QCOMPARE(popup.GetWindowContent()->geometry(), QRect(3, 34, 245, 85));
        QCOMPARE(popup.GetButtonBar()->geometry(), QRect(3, 119, 245, 70));
        QCOMPARE(popup.GetButton(1)->geometry(), QRect(0, 0, 122, 70));
        QCOMPARE(popup.GetButton(0)->geometry(), QRect(122, 0, 122, 70));
        popup.setFixedSize(400, 300);
        QCOMPARE(popup.GetWindowContent()->geometry(), QRect(3, 34, 385, 185));
        QCOMPARE(popup.GetButtonBar()->geometry(), QRect(3, 219, 385, 70));
        QCOMPARE(popup.GetButton(0)->width(), 192);
    }

    void theButtonsAreWorkedByAFinger()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetIcon(0, QStringLiteral("icon-tick-larger"), QString(), QStringLiteral("Take it"));
        popup.ShowWindow(false);
        QVERIFY(popup.GetButton(0)->isVisible());
        QCOMPARE(popup.GetButton(0)->GetToolTip(), QStringLiteral("Take it"));
        QVERIFY(!popup.GetButton(1));
        QSignalSpy clicked(popup.GetButton(0), &TPushButton::clicked);
        TFinger finger(stage.screen.get());
        finger.Touch(popup.GetButton(0));
        QCOMPARE(clicked.count(), 1);
        popup.SetText(0, QStringLiteral("Yes"));
        QCOMPARE(popup.GetButton(0)->GetText(), QStringLiteral("Yes"));
        QCOMPARE(popup.GetButton(0)->GetToolTip(), QStringLiteral("Take it"));
        popup.SetButtonVisibility(0, false);
        QVERIFY(!popup.GetButton(0)->isVisible());
        popup.SetText(0, QStringLiteral("No"));
        QVERIFY(popup.GetButton(0)->isVisible());
    }

    void unknownButtonsAreIgnored()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetButtonVisibility(7, true);
        popup.SetButtonVisibility(-1, false);
        QVERIFY(!popup.GetButton(-1));
        QCOMPARE(popup.GetButtonBar()->GetNumberOfButtons(), 0);
    }

    void theButtonsOfALockedPopupAreOutOfReach()
    {
        TScreenStage stage;
        TSizedPopup below(nullptr, QSize(600, 500));
        below.SetText(0, QStringLiteral("Yes"));
        below.ShowWindow(false);
        TProbe above(&below);
        above.ShowWindow(true);
        QSignalSpy clicked(below.GetButton(0), &TPushButton::clicked);
        TFinger finger(stage.screen.get());
        finger.Touch(below.GetButton(0)->mapTo(stage.screen.get(), QPoint(20, 35)));
        QCOMPARE(clicked.count(), 0);
        // Nor does a new size bring them back above the fade.
        below.setFixedSize(620, 520);
        finger.Touch(below.GetButton(0)->mapTo(stage.screen.get(), QPoint(20, 35)));
        QCOMPARE(clicked.count(), 0);
        above.HideWindow();
        finger.Touch(below.GetButton(0)->mapTo(stage.screen.get(), QPoint(20, 35)));
        QCOMPARE(clicked.count(), 1);
    }

    void backgroundAndTitleAreHiddenApart_data()
    {
        QTest::addColumn<bool>("background");
        QTest::addColumn<bool>("titleBar");
        QTest::newRow("both shown") << false << false;
        QTest::newRow("no background") << true << false;
        QTest::newRow("no title bar") << false << true;
        QTest::newRow("neither") << true << true;
    }

    void backgroundAndTitleAreHiddenApart()
    {
        QFETCH(bool, background);
        QFETCH(bool, titleBar);
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.SetTitle(QStringLiteral("Boom height"));
        popup.ShowWindow(false);
        QImage const before = Picture(popup);
        popup.HideBackground(background, titleBar);
        QImage const picture = Picture(popup);
        QRect const title(3, 3, 245, 30);
        QCOMPARE(IsPainted(picture, QRect(0, 40, 260, 100)), !background);
        if (background)
            QCOMPARE(IsPainted(picture, title), !titleBar);
        else
            QCOMPARE(picture.copy(title) == before.copy(title), !titleBar);
    }

    void aPopupWithoutATitleHasNoTitleBar()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.HideBackground(true, false);
        popup.ShowWindow(false);
        QVERIFY(!IsPainted(Picture(popup), popup.rect()));
    }

    void anEndlessTitleStaysInItsBar()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        popup.HideBackground(true, false);
        popup.SetTitle(QString(20000, QLatin1Char('W')));
        popup.ShowWindow(false);
        QImage const picture = Picture(popup);
        QVERIFY(IsPainted(picture, QRect(3, 3, 245, 30)));
        QVERIFY(!IsPainted(picture, QRect(0, 33, 260, 167)));
        QVERIFY(!IsPainted(picture, QRect(248, 0, 12, 200)));
    }

    // Modules

    void aPopupTellsWhenItChangesItsModule()
    {
        TScreenStage stage;
        TProbe popup(nullptr);
        QSignalSpy changed(&popup, &TPopupWindow::ParentAppIDChanged);
        KVN::MorvaneID seen;
        connect(&popup, &TPopupWindow::ParentAppIDChanged, this, [&] { seen = popup.SurfaceID(); });
        popup.SetSurfaceID(KVN::MorvaneID());
        QCOMPARE(changed.count(), 0);
        popup.SetSurfaceID(Id(1));
        QCOMPARE(changed.count(), 1);
        QVERIFY(changed[0][0].value<KVN::MorvaneID>() == KVN::MorvaneID());
        QVERIFY(changed[0][1].value<KVN::MorvaneID>() == Id(1));
        QVERIFY(seen == Id(1));
        popup.SetSurfaceID(Id(1));
        QCOMPARE(changed.count(), 1);
        popup.SetSurfaceID(Id(2));
        QVERIFY(changed[1][0].value<KVN::MorvaneID>() == Id(1));
    }

    // Layers and endings

    void aPopupComesUpBelowAlarmAndToolTips()
    {
        TScreenStage stage;
        TWindow* const alarm = stage.Alarm();
        TToolTip* const toolTip = stage.ToolTip();
        TProbe popup(nullptr);
        popup.ShowWindow(false);
        QVERIFY(stage.Layers().IsAbove(alarm, &popup));
        QVERIFY(stage.Layers().IsAbove(toolTip, &popup));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aPopupComesUpAboveItsSiblings()
    {
        TScreenStage stage;
        TWindow* const window = stage.Window();
        window->setFixedSize(600, 500);
        TProbe popup(window);
        QWidget sibling(window);
        sibling.show();
        popup.ShowWindow(false);
        QCOMPARE(window->children().constLast(), static_cast<QObject*>(&popup));
    }

    void aPopupMayEndInItsOwnSignals_data()
    {
        QTest::addColumn<int>("when");
        QTest::newRow("shown") << 0;
        QTest::newRow("hidden") << 1;
        QTest::newRow("another module") << 2;
        QTest::newRow("button") << 3;
    }

    void aPopupMayEndInItsOwnSignals()
    {
        QFETCH(int, when);
        TScreenStage stage;
        QPointer<TProbe> const popup = new TProbe(nullptr);
        popup->SetText(0, QStringLiteral("Yes"));
        auto const end = [popup] { delete popup; };
        switch (when)
        {
        case 0:
            connect(popup, &TWindow::WindowShown, this, end);
            break;
        case 1:
            connect(popup, &TWindow::WindowHidden, this, end);
            break;
        case 2:
            connect(popup, &TPopupWindow::ParentAppIDChanged, this, end);
            break;
        default:
            connect(popup->GetButton(0), &TPushButton::clicked, this, end);
            break;
        }
        popup->ShowWindow(true);
        if (popup)
        {
            stage.Lock(popup, MODAL_LOCAL);
            if (when == 1)
                popup->HideWindow();
            else if (when == 2)
                popup->SetSurfaceID(Id(1));
            else
                TFinger(stage.screen.get()).Touch(popup->GetButton(0));
        }
        QVERIFY(!popup);
        stage.screen->CheckToolbarsForLocking();
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aPopupMayEndWhileItsButtonIsPressed()
    {
        TScreenStage stage;
        QPointer<TProbe> const popup = new TProbe(nullptr);
        popup->SetText(0, QStringLiteral("Yes"));
        popup->ShowWindow(true);
        TFinger finger(stage.screen.get());
        finger.Press(popup->GetButton(0)->mapTo(stage.screen.get(), QPoint(20, 20)));
        delete popup;
        finger.Lift();
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aLockedPopupMayEndBeforeWhatLocksIt()
    {
        TScreenStage stage;
        auto* const below = new TProbe(nullptr);
        below->ShowWindow(false);
        QPointer<TProbe> const above = new TProbe(below);
        above->ShowWindow(true);
        delete below;
        QVERIFY(!above);
    }

    void aPopupLooksLikeThis()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        TProbe popup(nullptr);
        popup.SetTitle(QStringLiteral("Boom height"));
        popup.SetText(0, QStringLiteral("No"));
        popup.SetText(1, QStringLiteral("Yes"));
        popup.ShowWindow(false);
        COMPARE_PICTURE(stage.screen->grab(popup.geometry().adjusted(-10, -10, 10, 10)).toImage(),
                        "popup-window");
    }
};

COMMONUI_TEST(TPopupWindowTest)
#include "TPopupWindowTest.moc"
