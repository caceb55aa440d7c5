#include "TTaskWindow.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TPushButton.h"
#include "TScreenStage.h"
#include "TScrollArea.h"
#include "TTestPlatform.h"

#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <limits>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;
using KVN::MODAL_NONE;

namespace
{
class TProbe : public TTaskWindow
{
public:
    using TTaskWindow::TTaskWindow;
    using TWindow::AddControlButton;
    using TWindow::GetBackground;
    using TWindow::GetCancelButton;
    using TWindow::GetContentRect;
    using TWindow::GetControlButtons;
    using TWindow::GetOkButton;

    TPushButton* ExportButton() const
    {
        for (QObject* const child : children())
        {
            if (auto* const button = qobject_cast<TPushButton*>(child))
                return button;
        }
        return nullptr;
    }
};

// A widget that wants a size, which it may change.
class TWisher : public QWidget
{
public:
    explicit TWisher(QSize const& wish)
        : QWidget(nullptr)
        , m_Wish(wish)
    {
    }

    QSize sizeHint() const override { return m_Wish; }
    void Wish(QSize const& wish)
    {
        m_Wish = wish;
        updateGeometry();
    }

    QSize m_Wish;
};

// Has no row of buttons at the lower edge.
class TButtonless : public TProbe
{
public:
    using TProbe::TProbe;

    void PositionControlButtons() override {}
};

// Notes what of it is painted.
class TPainted : public TProbe
{
public:
    using TProbe::TProbe;

    QRegion m_Painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        m_Painted += event->region();
        TProbe::paintEvent(event);
    }
};

// The scroll area that a widget of the layout stands in.
TScrollArea* AreaOf(QWidget const* widget)
{
    for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
    {
        if (auto* const area = qobject_cast<TScrollArea*>(parent))
            return area;
    }
    return nullptr;
}

// A window that notes that its content was dragged to an end.
class TDragged : public TProbe
{
public:
    using TProbe::TProbe;
    void OnMinScrollLimit() override { ++m_AtMinimum; }
    void OnMaxScrollLimit() override { ++m_AtMaximum; }

    int m_AtMinimum = 0;
    int m_AtMaximum = 0;
};

// What a layout adds around what is in it, and the row of buttons.
constexpr int Margins = 10;
constexpr int ButtonRow = 70;

KVN::MorvaneID Id(int number)
{
    return KVN::MorvaneID(QUuid(0x1234, 0x56, 0x78, 9, 8, 7, 6, 5, 4, 3, uchar(number)));
}

void ProcessAll()
{
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
}
} // namespace

class TTaskWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<KVN::MorvaneID>(); }

    void aTaskWindowStartsHiddenAndWithoutAWish()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        QVERIFY(window.isHidden());
        QVERIFY(window.WillHideMiniviewsOnShow());
        QCOMPARE(window.ModalType(), int(MODAL_NONE));
        QCOMPARE(int(window.GetAlignmentOptions()), 34);
        QCOMPARE(window.DesiredContentSize(), QSize(-1, -1));
        QCOMPARE(window.MinContentSize(), QSize(-1, -1));
        QCOMPARE(window.MaxContentSize(), QSize(-1, -1));
        QVERIFY(!window.SurfaceID().IsValid());
        QVERIFY(!window.GetTitleIcon());
        QVERIFY(!window.ExportButton());
    }

    // Who shows it

    void everyTaskWindowGoesThroughThePlatform()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe alone(nullptr);
        TProbe onCanvas(stage.canvas);
        TProbe onWindow(stage.Window());
        alone.ShowWindow(false);
        onCanvas.ShowWindow(true);
        onWindow.ShowWindow(true, true);
        QCOMPARE(platform.m_TaskWindows,
                 (QVector<TTestPlatform::TRequest>{{&alone, false}, {&onCanvas, false}, {&onWindow, true}}));
        QVERIFY(platform.m_Popups.isEmpty());
        QVERIFY(!onWindow.isVisible());
        QCOMPARE(alone.ModalType(), int(MODAL_NONE));
        QCOMPARE(onCanvas.ModalType(), int(MODAL_GLOBAL));
        QCOMPARE(onWindow.ModalType(), int(MODAL_LOCAL));
    }

    void itStaysModal()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe window(nullptr);
        window.ShowWindow(true);
        window.ShowWindow(false);
        QCOMPARE(window.ModalType(), int(MODAL_GLOBAL));
    }

    void thePlatformFindsTheSizeThatTheContentWants()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe window(nullptr);
        auto* const wisher = new TWisher(QSize(200, 90));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        wisher->m_Wish = QSize(220, 130);
        window.ShowWindow(false);
        QCOMPARE(window.DesiredContentSize(), QSize(220 + Margins, 130 + Margins + ButtonRow));
    }

    void withoutAPlatformTheWindowPlacesItself()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        QVERIFY(window.isVisible());
        QCOMPARE(window.geometry(), QRect(1024 - 315, 0, 315, 245));
        window.HideWindow();
        TWindow* const parent = stage.Window();
        parent->setFixedSize(250, 180);
        TProbe inside(parent);
        inside.SetDesiredContentSize(300, 50);
        inside.ShowWindow(false);
        QCOMPARE(inside.geometry(), QRect(0, 0, 250, 95));
        parent->setFixedSize(400, 180);
        QCOMPARE(inside.geometry(), QRect(85, 0, 315, 95));
    }

    void withAPlatformNobodyElsePlacesIt()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe const window(nullptr);
        QVERIFY(!window.ShouldAutoReCentre());
    }

    void withoutAScreenATaskWindowIsJustAWidget()
    {
        TProbe window(nullptr);
        window.SetTitleIcon(QStringLiteral("icon-info"));
        window.ShowWindow(false);
        QVERIFY(window.isVisible());
        window.ReCentre(nullptr);
        window.HideWindow();
    }

    // What size it wants

    void anUnchangedWishIsNoNews()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        QSize seen;
        connect(&window, &TTaskWindow::DesiredGeometryChanged, this,
                [&] { seen = window.DesiredContentSize(); });
        window.SetDesiredContentSize(QSize(300, 200));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(seen, QSize(300, 200));
        window.SetDesiredContentSize(QSize(300, 200));
        window.SetDesiredContentSize(300, 200);
        QCOMPARE(changed.count(), 1);
    }

    void aWishForOneAxisKeepsTheOther()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 100);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        window.SetDesiredContentSize(-1, 200);
        QCOMPARE(window.DesiredContentSize(), QSize(300, 200));
        window.SetDesiredContentSize(310, -1);
        QCOMPARE(window.DesiredContentSize(), QSize(310, 200));
        QCOMPARE(changed.count(), 2);
        window.SetDesiredContentSize(-1, -1);
        QCOMPARE(changed.count(), 2);
        // The other form takes both as they are, and any negative length is "not set".
        window.SetDesiredContentSize(QSize(-7, 200));
        QCOMPARE(window.DesiredContentSize(), QSize(-1, 200));
    }

    void aWishMayBeTakenBack()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 200);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        window.UnsetDesiredContentSize(true, false);
        QCOMPARE(window.DesiredContentSize(), QSize(-1, 200));
        window.UnsetDesiredContentSize(false, true);
        QCOMPARE(window.DesiredContentSize(), QSize(-1, -1));
        QCOMPARE(changed.count(), 2);
    }

    void whatIsNotSetIsLeftToTheContent_data()
    {
        QTest::addColumn<QSize>("wish");
        QTest::addColumn<QSize>("desired");
        QTest::newRow("nothing set") << QSize(-1, -1) << QSize(150 + Margins, 60 + Margins + ButtonRow);
        QTest::newRow("width") << QSize(400, -1) << QSize(400, 60 + Margins + ButtonRow);
        QTest::newRow("height") << QSize(-1, 50) << QSize(150 + Margins, 50);
        QTest::newRow("both") << QSize(10, 20) << QSize(10, 20);
        QTest::newRow("zero is set") << QSize(0, 0) << QSize(0, 0);
    }

    void whatIsNotSetIsLeftToTheContent()
    {
        QFETCH(QSize, wish);
        QFETCH(QSize, desired);
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetupIfRequired();
        window.AddWidgetToLayout(new TWisher(QSize(150, 60)), 0, Qt::Alignment());
        window.SetDesiredContentSize(wish);
        window.RefreshDesiredContentSizeCache();
        QCOMPARE(window.DesiredContentSize(), desired);
    }

    void aLayoutOfTheModulesOwnIsAskedToo()
    {
        TScreenStage stage;
        TProbe own(nullptr);
        auto* const ownLayout = new QVBoxLayout(own.GetWindowContent());
        ownLayout->setContentsMargins(1, 2, 3, 4);
        auto* const inOwn = new TWisher(QSize(10, 20));
        ownLayout->addWidget(inOwn);
        own.RefreshDesiredContentSizeCache();
        QCOMPARE(own.DesiredContentSize(), QSize(14, 26));
        inOwn->m_Wish = QSize(30, 40);
        own.RefreshDesiredContentSizeCache();
        QCOMPARE(own.DesiredContentSize(), QSize(34, 46));

        TProbe whole(nullptr);
        auto* const wholeLayout = new QVBoxLayout(&whole);
        wholeLayout->setContentsMargins(0, 0, 0, 0);
        wholeLayout->addWidget(new TWisher(QSize(50, 60)));
        whole.RefreshDesiredContentSizeCache();
        QCOMPARE(whole.DesiredContentSize(), QSize(50, 60));
    }

    void textThatWrapsGetsTheHeightOfItsLines()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetupIfRequired();
        auto* const text =
            new QLabel(QStringLiteral("many words that do not fit into one line of so narrow a window"));
        text->setWordWrap(true);
        window.AddWidgetToLayout(text, 0, Qt::Alignment());
        window.SetDesiredContentSize(100, -1);
        int const narrow = window.DesiredContentSize().height();
        window.SetDesiredContentSize(400, -1);
        int const wide = window.DesiredContentSize().height();
        QCOMPARE(narrow, text->heightForWidth(100 - Margins) + Margins + ButtonRow);
        QCOMPARE(wide, text->heightForWidth(400 - Margins) + Margins + ButtonRow);
        QVERIFY(narrow > wide);
    }

    void contentThatGrowsAsksForMoreRoomOnce()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        auto* const wisher = new TWisher(QSize(150, 60));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.ShowWindow(false);
        ProcessAll();
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        QSignalSpy internal(&window, &TTaskWindow::DesiredGeomChangedInternal);
        // Whoever places the window answers at once.
        connect(&window, &TTaskWindow::DesiredGeometryChanged, &window,
                [&] { window.ReCentre(stage.screen.get()); });
        wisher->Wish(QSize(200, 90));
        ProcessAll();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(internal.count(), 1);
        QCOMPARE(window.DesiredContentSize(), QSize(200 + Margins, 90 + Margins + ButtonRow));
        QCOMPARE(wisher->size(), QSize(200, 90));
        // Another place of the same size is no news.
        window.move(20, 30);
        window.resize(window.width() + 20, window.height());
        ProcessAll();
        QCOMPARE(changed.count(), 1);
    }

    void aWindowOfAGivenSizeIgnoresItsContent()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        auto* const wisher = new TWisher(QSize(150, 60));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.SetDesiredContentSize(300, 300);
        window.ShowWindow(false);
        ProcessAll();
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        wisher->Wish(QSize(500, 500));
        ProcessAll();
        QCOMPARE(changed.count(), 0);
        window.OnLayoutGeometryChanged();
        QCOMPARE(changed.count(), 1);
        window.ResizeToScrollArea();
        QCOMPARE(changed.count(), 2);
        QCOMPARE(window.DesiredContentSize(), QSize(300, 300));
    }

    void limitsAndAlignmentAreNewsToo()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        window.SetMinContentSize(QSize(100, -5));
        window.SetMinContentSize(100, -1);
        QCOMPARE(window.MinContentSize(), QSize(100, -1));
        QCOMPARE(changed.count(), 1);
        window.SetMaxContentSize(200, 300);
        window.SetMaxContentSize(QSize(200, 300));
        QCOMPARE(window.MaxContentSize(), QSize(200, 300));
        QCOMPARE(changed.count(), 2);
        window.SetAlignmentOptions(Qt::AlignLeft | Qt::AlignBottom);
        window.SetAlignmentOptions(Qt::AlignLeft | Qt::AlignBottom);
        QCOMPARE(int(window.GetAlignmentOptions()), int(Qt::AlignLeft | Qt::AlignBottom));
        QCOMPARE(changed.count(), 3);
    }

    // Where it wants to be

    void aWindowTakesItsPlaceInARoom_data()
    {
        QTest::addColumn<QSize>("desired");
        QTest::addColumn<QSize>("least");
        QTest::addColumn<QSize>("most");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<QRect>("place");
        QSize const none(-1, -1);
        int const rightTop = Qt::AlignRight | Qt::AlignTop;
        // The frame takes 15 by 45; the room is 500 by 400 at (100, 50).
        QTest::newRow("as wished") << QSize(200, 100) << none << none << rightTop << QRect(385, 50, 215, 145);
        QTest::newRow("no wish") << none << none << none << rightTop << QRect(267, 50, 333, 400);
        QTest::newRow("too large") << QSize(900, 900) << none << none << rightTop << QRect(100, 50, 500, 400);
        QTest::newRow("not below its least")
            << QSize(50, 20) << QSize(200, 100) << none << rightTop << QRect(385, 50, 215, 145);
        QTest::newRow("not above its most")
            << QSize(450, 350) << none << QSize(200, 100) << rightTop << QRect(385, 50, 215, 145);
        QTest::newRow("least beats most")
            << QSize(450, 350) << QSize(300, 200) << QSize(200, 100) << rightTop << QRect(285, 50, 315, 245);
        QTest::newRow("the room beats all")
            << QSize(50, 20) << QSize(2000, 2000) << none << rightTop << QRect(100, 50, 500, 400);
        QTest::newRow("most without a wish")
            << none << none << QSize(200, 100) << rightTop << QRect(385, 50, 215, 145);
        QTest::newRow("left") << QSize(200, 100) << none << none << int(Qt::AlignLeft)
                              << QRect(100, 50, 215, 145);
        QTest::newRow("centre") << QSize(200, 100) << none << none << int(Qt::AlignCenter)
                                << QRect(242, 177, 215, 145);
        QTest::newRow("bottom right") << QSize(200, 100) << none << none
                                      << int(Qt::AlignRight | Qt::AlignBottom) << QRect(385, 305, 215, 145);
        QTest::newRow("none at all") << QSize(200, 100) << none << none << 0 << QRect(385, 50, 215, 145);
    }

    void aWindowTakesItsPlaceInARoom()
    {
        QFETCH(QSize, desired);
        QFETCH(QSize, least);
        QFETCH(QSize, most);
        QFETCH(int, alignment);
        QFETCH(QRect, place);
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(desired);
        window.SetMinContentSize(least);
        window.SetMaxContentSize(most);
        window.SetAlignmentOptions(Qt::Alignment(alignment));
        QCOMPARE(window.PlaceIn(QRect(100, 50, 500, 400)), place);
    }

    void withoutATitleBarTheFrameIsLower()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(200, 100);
        QCOMPARE(window.GetTitleBarHeight(), 30);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        window.SetHasTitleBar(false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(window.GetTitleBarHeight(), 0);
        QCOMPARE(window.PlaceIn(QRect(0, 0, 500, 400)).height(), 115);
        // Unlike a wish for a size, this is told also when nothing has changed.
        window.SetHasTitleBar(false);
        QCOMPARE(changed.count(), 2);
    }

    void noLengthIsTooLarge()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        constexpr int Most = std::numeric_limits<int>::max();
        window.SetDesiredContentSize(Most, Most);
        window.SetMinContentSize(Most, Most);
        window.SetMaxContentSize(Most, Most);
        QCOMPARE(window.PlaceIn(QRect(0, 0, 500, 400)), QRect(0, 0, 500, 400));
        QCOMPARE(window.DesiredContentSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        window.UnsetDesiredContentSize(true, true);
        window.AddSpacerToLayout(Most);
        window.AddSpacerToLayout(Most);
        window.RefreshDesiredContentSizeCache();
        QVERIFY(window.DesiredContentSize().height() >= QWIDGETSIZE_MAX);
    }

    // Contents

    void theContentFollowsTheSize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("title");
        QTest::addColumn<QRect>("content");
        QTest::newRow("with a title") << QSize(333, 345) << true << QRect(3, 33, 318, 300);
        QTest::newRow("without") << QSize(333, 345) << false << QRect(3, 3, 318, 330);
        QTest::newRow("as small as its frame") << QSize(10, 20) << true << QRect(3, 33, 0, 0);
    }

    void theContentFollowsTheSize()
    {
        QFETCH(QSize, size);
        QFETCH(bool, title);
        QFETCH(QRect, content);
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.SetHasTitleBar(title);
        window.ShowWindow(false);
        window.resize(size);
        QCOMPARE(window.GetWindowContent()->geometry(), content);
        // The fade begins at the top, title or not, and is no larger than the content.
        QCOMPARE(window.GetContentRect(), QRect(QPoint(3, 3), content.size()));
    }

    void theContentFollowsTheTitleBarInAWindowThatKeepsItsSize()
    {
        TScreenStage stage;
        TTestPlatform platform;
        TProbe window(stage.canvas);
        window.SetupIfRequired();
        window.resize(333, 345);
        window.show();
        window.SetHasTitleBar(false);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(3, 3, 318, 330));
        QCOMPARE(window.GetOkButton()->y(), 260);
        window.hide();
        window.SetHasTitleBar(true);
        window.show();
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(3, 33, 318, 300));
        QCOMPARE(window.GetOkButton()->y(), 230);
    }

    void theFirstShowingBuildsWhatIsSeen()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        QVERIFY(!window.GetOkButton()->isVisibleTo(&window));
        window.ShowWindow(false);
        QVERIFY(window.GetWindowContent()->isVisible());
        QVERIFY(window.GetOkButton()->isVisible());
        QVERIFY(window.GetCancelButton()->isVisible());
        QCOMPARE(window.GetBackground(), PixmapNames::TaskWindowNoShadow);
        QVERIFY(window.ExportButton()->isHidden());
        QCOMPARE(window.ExportButton()->size(), QSize(60, 40));
    }

    void theFrameFitsTheTitleBar()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetHasTitleBar(false);
        window.ShowWindow(false);
        QCOMPARE(window.GetBackground(), PixmapNames::TaskWindowNoTitlebarNoShadow);
        window.SetHasTitleBar(true);
        QCOMPARE(window.GetBackground(), PixmapNames::TaskWindowNoShadow);
        TProbe stick(nullptr);
        stick.SetBackground(PixmapNames::TaskWindowUSBNoShadow);
        stick.ShowWindow(false);
        QCOMPARE(stick.GetBackground(), PixmapNames::TaskWindowUSBNoShadow);
        stick.SetHasTitleBar(false);
        QCOMPARE(stick.GetBackground(), PixmapNames::TaskWindowUSBNoShadow);
    }

    void titleAndIconAreInTheTitleBarOnly()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        QRect const title(3, 3, 300, 30);
        auto const picture = [&] { return window.grab().toImage(); };
        QImage const bare = picture();
        window.SetTitle(QString(3000, QLatin1Char('W')));
        QImage const titled = picture();
        QVERIFY(titled.copy(title) != bare.copy(title));
        QVERIFY(titled.copy(0, 33, 315, 212) == bare.copy(0, 33, 315, 212));
        window.SetTitleIcon(QStringLiteral("icon-info"));
        QVERIFY(window.GetTitleIcon());
        QVERIFY(picture().copy(title) != titled.copy(title));
        window.SetTitleIcon(QString());
        QVERIFY(!window.GetTitleIcon());
        QVERIFY(picture() == titled);
        QImage large(400, 100, QImage::Format_ARGB32);
        large.fill(Qt::green);
        window.SetTitleIcon(large);
        QCOMPARE(window.GetTitleIcon()->size(), QSize(24, 6));
        window.SetTitleIcon(QImage());
        QVERIFY(!window.GetTitleIcon());
        window.SetHasTitleBar(false);
        QImage const untitled = picture();
        window.SetTitle(QStringLiteral("Rate"));
        QVERIFY(picture() == untitled);
    }

    // Buttons

    void theButtonsShareTheirRow_data()
    {
        QTest::addColumn<bool>("ok");
        QTest::addColumn<bool>("cancel");
        QTest::addColumn<QList<int>>("hidden");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("places");
        // Content of 318 by 300; places are "name:x" of what is seen.
        QTest::newRow("all") << true << true << QList<int>{} << 5 << "ok:255 cancel:192 0:129 2:66 4:3";
        QTest::newRow("no cancel") << true << false << QList<int>{} << 4 << "ok:239 0:160 2:81 4:2";
        QTest::newRow("no ok") << false << true << QList<int>{} << 4 << "cancel:239 0:160 2:81 4:2";
        QTest::newRow("one of them hidden")
            << true << true << QList<int>{2} << 4 << "ok:239 cancel:160 0:81 4:2";
        QTest::newRow("only ok and cancel") << true << true << QList<int>{0, 2, 4} << 2 << "ok:159 cancel:0";
        QTest::newRow("only control buttons") << false << false << QList<int>{} << 3 << "0:212 2:106 4:0";
        QTest::newRow("none") << false << false << QList<int>{0, 2, 4} << 0 << "";
    }

    void theButtonsShareTheirRow()
    {
        QFETCH(bool, ok);
        QFETCH(bool, cancel);
        QFETCH(QList<int>, hidden);
        QFETCH(int, count);
        QFETCH(QString, places);
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(318, 300);
        for (int const id : {0, 2, 4})
            window.AddControlButton(id, QString(), QString());
        window.ShowWindow(false);
        window.SetOkButtonVisible(ok);
        window.SetCancelButtonVisible(cancel);
        for (int const id : hidden)
            window.SetButtonVisibility(id, false);
        QCOMPARE(window.GetNumberOfVisibleButtons(), count);
        int const share = count > 0 ? 318 / count : 0;
        QStringList seen;
        auto const look = [&](QString const& name, TPushButton const* button)
        {
            QCOMPARE(button->size(), QSize(share, 70));
            if (!button->isVisible())
                return;
            QCOMPARE(button->y(), 230);
            seen += name + QLatin1Char(':') + QString::number(button->x());
        };
        look(QStringLiteral("ok"), window.GetOkButton());
        look(QStringLiteral("cancel"), window.GetCancelButton());
        for (int const id : {0, 2, 4})
            look(QString::number(id), window.GetControlButtons()[id]);
        QCOMPARE(seen.join(QLatin1Char(' ')), places);
    }

    void aButtonHiddenBeforeTheFirstShowingStaysHidden()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetOkButtonVisible(false);
        window.ShowWindow(false);
        QVERIFY(!window.GetOkButton()->isVisible());
        QVERIFY(window.GetCancelButton()->isVisible());
    }

    void aControlButtonHiddenBeforeTheFirstShowingStaysHidden()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.AddControlButton(0, QString(), QString());
        window.AddControlButton(1, QString(), QString());
        window.SetButtonVisibility(0, false);
        window.SetButtonVisibility(1, false);
        window.SetButtonVisibility(1, true);
        window.ShowWindow(false);
        QVERIFY(!window.GetControlButtons()[0]->isVisible());
        QVERIFY(window.GetControlButtons()[1]->isVisible());
        QCOMPARE(window.GetNumberOfVisibleButtons(), 3);
    }

    void unknownButtonsAreIgnored()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.AddControlButton(2, QString(), QString());
        window.ShowWindow(false);
        for (int const id : {-1, 0, 1, 3, 2000000000})
            window.SetButtonVisibility(id, true);
        window.SetButtonVisibility(nullptr, true);
        QCOMPARE(window.GetNumberOfVisibleButtons(), 3);
    }

    void okAndCancelHideFirstAndTellThen_data()
    {
        QTest::addColumn<bool>("ok");
        QTest::newRow("ok") << true;
        QTest::newRow("cancel") << false;
    }

    void okAndCancelHideFirstAndTellThen()
    {
        QFETCH(bool, ok);
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        QStringList told;
        connect(&window, &TWindow::WindowHidden, this, [&] { told += QStringLiteral("hidden"); });
        connect(&window, &TTaskWindow::Ok, this, [&] { told += QStringLiteral("ok"); });
        connect(&window, &TTaskWindow::Cancel, this, [&] { told += QStringLiteral("cancel"); });
        TFinger finger(stage.screen.get());
        finger.Touch(ok ? window.GetOkButton() : window.GetCancelButton());
        QCOMPARE(told, (QStringList{QStringLiteral("hidden"),
                                    ok ? QStringLiteral("ok") : QStringLiteral("cancel")}));
        QVERIFY(!window.isVisible());
    }

    void theBackKeyCancelsIfTheButtonWould()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        QSignalSpy cancelled(&window, &TTaskWindow::Cancel);
        window.SetCancelButtonVisible(false);
        QVERIFY(!window.OnMMIBack());
        QCOMPARE(cancelled.count(), 0);
        QVERIFY(window.isVisible());
        window.SetCancelButtonVisible(true);
        QVERIFY(!window.OnMMIBack());
        QCOMPARE(cancelled.count(), 1);
        QVERIFY(!window.isVisible());
    }

    void theExportButtonStandsAtTheRightOfTheTitle()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetDDNButtonVisible(true);
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        TPushButton* const button = window.ExportButton();
        QVERIFY(button->isVisible());
        QCOMPARE(button->pos(), QPoint(315 - 60 - 9 - 3, 3));
        QSignalSpy pressed(&window, &TTaskWindow::ExportButtonPressed);
        TFinger finger(stage.screen.get());
        finger.Touch(button->mapTo(stage.screen.get(), QPoint(30, 10)));
        QCOMPARE(pressed.count(), 1);
        // It lies below the content, which has the finger where the two meet.
        QCOMPARE(window.children().constFirst(), static_cast<QObject*>(button));
        window.resize(400, 300);
        QCOMPARE(button->x(), 400 - 60 - 9 - 3);
        window.SetDDNButtonVisible(false);
        QVERIFY(!button->isVisible());
    }

    void aLongTitleGivesWayToTheExportButton()
    {
        TScreenStage stage;
        TPainted window(nullptr);
        window.SetTitle(QString(300, QLatin1Char('W')));
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        ProcessAll();
        for (bool const visible : {true, false})
        {
            window.m_Painted = QRegion();
            window.SetDDNButtonVisible(visible);
            ProcessAll();
            QVERIFY(window.m_Painted.contains(QPoint(30, 15)));
            QVERIFY(!window.m_Painted.contains(QPoint(30, 100)));
        }
    }

    // Layout

    void aLayoutFollowsTheSizeWhateverBecomesOfTheButtons()
    {
        TScreenStage stage;
        TButtonless window(nullptr);
        auto* const wisher = new TWisher(QSize(100, 40));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.ShowWindow(false);
        window.SetOkButtonVisible(false);
        window.resize(315, 445);
        QCOMPARE(wisher->parentWidget()->size(), QSize(300, 400 - 70));
        window.SetCancelButtonVisible(false);
        QCOMPARE(wisher->parentWidget()->size(), QSize(300, 400));
    }

    void aColumnStandsAboveTheButtons()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        auto* const upper = new TWisher(QSize(100, 40));
        auto* const lower = new TWisher(QSize(100, 30));
        auto* const row = new QHBoxLayout;
        auto* const inRow = new TWisher(QSize(20, 20));
        row->addWidget(inRow);
        window.SetupVBoxLayout();
        window.AddWidgetToLayout(upper, 0, Qt::AlignTop);
        window.AddSpacerToLayout(25);
        window.AddWidgetToLayout(lower, 0, Qt::AlignTop);
        window.AddLayoutToLayout(row);
        window.AddStretchToLayout(1);
        window.SetDesiredContentSize(300, 400);
        window.ShowWindow(false);
        ProcessAll();
        QVERIFY(upper->isVisible() && lower->isVisible() && inRow->isVisible());
        QVERIFY(window.isAncestorOf(upper));
        QPoint const origin = upper->mapTo(&window, QPoint(0, 0));
        QCOMPARE(origin, QPoint(3 + 5, 33 + 5));
        QCOMPARE(lower->mapTo(&window, QPoint(0, 0)).y() - origin.y(), 40 + 5 + 25);
        QCOMPARE(upper->parentWidget()->height(), 400 - 70);
        window.SetOkButtonVisible(false);
        window.SetCancelButtonVisible(false);
        QCOMPARE(upper->parentWidget()->height(), 400);
    }

    void aContentLowerThanItsWindowKeepsItsHeight()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        auto* const wisher = new TWisher(QSize(100, 40));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.SetDesiredContentSize(300, 200);
        window.ShowWindow(false);
        window.resize(315, 445);
        QCOMPARE(AreaOf(wisher)->geometry(), QRect(0, 0, 300, 200 - 70));
        window.resize(315, 145);
        QCOMPARE(AreaOf(wisher)->geometry(), QRect(0, 0, 300, 100 - 70));
        window.resize(315, 60);
        QCOMPARE(AreaOf(wisher)->height(), 0);
    }

    void contentHigherThanItsWindowIsDragged()
    {
        TScreenStage stage;
        TDragged window(nullptr);
        auto* const wisher = new TWisher(QSize(100, 600));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.SetDesiredContentSize(300, 300);
        window.ShowWindow(false);
        ProcessAll();
        TScrollArea* const area = AreaOf(wisher);
        QCOMPARE(area->height(), 300 - ButtonRow);
        // Not squeezed into what can be seen.
        QCOMPARE(wisher->height(), 600);
        int const reach = 600 + Margins - area->height();
        TFinger finger(stage.screen.get());
        QPoint const middle = area->mapTo(stage.screen.get(), QPoint(100, 115));
        auto const drag = [&](int distance)
        {
            finger.Press(middle);
            for (int part = 1; part <= 10; ++part)
                finger.Move(middle + QPoint(0, distance * part / 10));
            finger.Lift();
        };
        drag(-100);
        QCOMPARE(wisher->mapTo(area, QPoint(0, 0)).y(), 5 - 100);
        QCOMPARE(window.m_AtMinimum + window.m_AtMaximum, 0);
        drag(-1000);
        QCOMPARE(wisher->mapTo(area, QPoint(0, 0)).y(), 5 - reach);
        QVERIFY(window.m_AtMaximum > 0);
        QCOMPARE(window.m_AtMinimum, 0);
        drag(1000);
        QCOMPARE(wisher->mapTo(area, QPoint(0, 0)).y(), 5);
        QVERIFY(window.m_AtMinimum > 0);
    }

    void contentThatFitsIsNotDragged()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        auto* const wisher = new TWisher(QSize(100, 60));
        window.AddWidgetToLayout(wisher, 0, Qt::Alignment());
        window.ShowWindow(false);
        ProcessAll();
        TScrollArea* const area = AreaOf(wisher);
        QVERIFY(!area->verticalScrollBar()->isVisible());
        QCOMPARE(wisher->size(), QSize(100, 60));
        // What lies behind the content is the window, as ever.
        QVERIFY(!area->widget()->autoFillBackground());
        QImage const picture = window.grab().toImage();
        QCOMPARE(picture.pixelColor(20, 60), picture.pixelColor(20, 95));
        QCOMPARE(picture.pixelColor(20, 60), QColor(38, 41, 46));
    }

    void aRowOfButtonsThatGoesLeavesItsRoom()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.AddWidgetToLayout(new TWisher(QSize(100, 40)), 0, Qt::Alignment());
        window.ShowWindow(false);
        QSignalSpy changed(&window, &TTaskWindow::DesiredGeometryChanged);
        window.SetOkButtonVisible(false);
        QCOMPARE(changed.count(), 0);
        window.SetCancelButtonVisible(false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(window.DesiredContentSize().height(), 40 + Margins);
    }

    void aGridPutsWidgetsIntoItsCells()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.SetupGridLayout();
        auto* const left = new TWisher(QSize(40, 40));
        auto* const right = new TWisher(QSize(50, 40));
        auto* const across = new TWisher(QSize(60, 20));
        auto* const refused = new TWisher(QSize(10, 10));
        window.AddWidgetToGridLayout(left, 0, 0, 1, 1, Qt::Alignment());
        window.AddWidgetToGridLayout(right, 0, 1, 1, 1, Qt::Alignment());
        window.AddWidgetToGridLayout(across, 1, 0, 1, 2, Qt::Alignment());
        for (QRect const& cell : {QRect(-1, 0, 1, 1), QRect(0, -1, 1, 1), QRect(0, 0, 0, 1),
                                  QRect(0, 0, 1, 0), QRect(1000, 0, 1, 1), QRect(0, 2000000000, 1, 1),
                                  QRect(1, 0, 1000, 1), QRect(0, 999, 1, 2000000000)})
            window.AddWidgetToGridLayout(refused, cell.y(), cell.x(), cell.height(), cell.width(), {});
        window.AddWidgetToGridLayout(nullptr, 0, 0, 1, 1, {});
        window.ShowWindow(false);
        ProcessAll();
        QCOMPARE(left->y(), right->y());
        QVERIFY(left->geometry().right() < right->x());
        QVERIFY(across->y() > left->y());
        QCOMPARE(across->geometry().right(), right->geometry().right());
        QVERIFY(!refused->parentWidget());
        // The helpers of a column add rows to it.
        auto* const below = new TWisher(QSize(10, 10));
        window.AddSpacerToLayout(30);
        window.AddWidgetToLayout(below, 0, Qt::Alignment());
        window.AddStretchToLayout(1);
        auto* const inner = new QHBoxLayout;
        window.AddLayoutToLayout(inner);
        ProcessAll();
        QVERIFY(below->y() >= across->geometry().bottom() + 30);
        delete refused;
    }

    void withoutAGridNoCellIsFilled()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        TWisher widget(QSize(10, 10));
        window.AddWidgetToGridLayout(&widget, 0, 0, 1, 1, {});
        QVERIFY(!widget.parentWidget());
        window.AddWidgetToLayout(nullptr, 0, {});
        window.AddLayoutToLayout(nullptr);
        window.ClearLayout();
        QCOMPARE(window.DesiredContentSize(), QSize(-1, -1));
    }

    void aClearedLayoutKeepsItsWidgetsForTheNext()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        QPointer<TWisher> const shown = new TWisher(QSize(40, 40));
        QPointer<TWisher> const hidden = new TWisher(QSize(40, 40));
        hidden->hide();
        window.AddWidgetToLayout(shown, 0, {});
        window.AddWidgetToLayout(hidden, 0, {});
        window.ShowWindow(false);
        window.ClearLayout();
        ProcessAll();
        QVERIFY(shown && hidden);
        QVERIFY(window.isAncestorOf(shown));
        QVERIFY(!shown->isVisible());
        window.RefreshDesiredContentSizeCache();
        QCOMPARE(window.DesiredContentSize(), QSize(-1, -1));
        window.SetupGridLayout();
        window.AddWidgetToGridLayout(shown, 0, 0, 1, 1, {});
        window.AddWidgetToGridLayout(hidden, 1, 0, 1, 1, {});
        ProcessAll();
        QVERIFY(shown->isVisible());
        QVERIFY(!hidden->isVisible());
        window.SetupVBoxLayout();
        delete shown;
        window.AddWidgetToLayout(hidden, 0, {});
    }

    // Modules and endings

    void aTaskWindowTellsWhenItChangesItsModule()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        QSignalSpy changed(&window, &TTaskWindow::ParentAppIDChanged);
        QSignalSpy geometry(&window, &TTaskWindow::DesiredGeometryChanged);
        connect(&window, &TTaskWindow::ParentAppIDChanged, this,
                [&]
                {
                    QVERIFY(window.SurfaceID() == Id(1));
                    QCOMPARE(geometry.count(), 0);
                });
        window.SetSurfaceID(KVN::MorvaneID());
        QCOMPARE(changed.count(), 0);
        window.SetSurfaceID(Id(1));
        QCOMPARE(changed.count(), 1);
        QVERIFY(changed[0][0].value<KVN::MorvaneID>() == KVN::MorvaneID());
        QVERIFY(changed[0][1].value<KVN::MorvaneID>() == Id(1));
        QCOMPARE(geometry.count(), 1);
        window.SetSurfaceID(Id(1));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(geometry.count(), 1);
    }

    void theScrollLimitsAreForSubclasses()
    {
        TScreenStage stage;
        TProbe window(nullptr);
        window.ShowWindow(false);
        QRect const before = window.geometry();
        window.OnMinScrollLimit();
        window.OnMaxScrollLimit();
        QCOMPARE(window.geometry(), before);
    }

    void aTaskWindowMayEndInItsOwnSignals_data()
    {
        QTest::addColumn<int>("when");
        QTest::newRow("another module") << 0;
        QTest::newRow("another size") << 1;
        QTest::newRow("hidden by ok") << 2;
        QTest::newRow("ok") << 3;
        QTest::newRow("hidden by cancel") << 4;
        QTest::newRow("cancel") << 5;
        QTest::newRow("export") << 6;
        QTest::newRow("no title bar") << 7;
        QTest::newRow("pressed") << 8;
        QTest::newRow("growing content") << 9;
    }

    void aTaskWindowMayEndInItsOwnSignals()
    {
        QFETCH(int, when);
        TScreenStage stage;
        QPointer<TProbe> const window = new TProbe(nullptr);
        auto* const wisher = new TWisher(QSize(200, 80));
        window->AddWidgetToLayout(wisher, 0, {});
        window->SetDDNButtonVisible(true);
        window->ShowWindow(true);
        ProcessAll();
        stage.Lock(window, MODAL_LOCAL);
        auto const end = [window] { window->deleteLater(); };
        auto const endNow = [window] { delete window; };
        TFinger finger(stage.screen.get());
        switch (when)
        {
        case 0:
            connect(window, &TTaskWindow::ParentAppIDChanged, this, endNow);
            window->SetSurfaceID(Id(1));
            break;
        case 1:
            connect(window, &TTaskWindow::DesiredGeometryChanged, this, endNow);
            window->SetDesiredContentSize(10, 10);
            break;
        case 2:
        case 4:
            connect(window, &TWindow::WindowHidden, this, endNow);
            finger.Touch(when == 2 ? window->GetOkButton() : window->GetCancelButton());
            break;
        case 3:
            connect(window, &TTaskWindow::Ok, this, endNow);
            finger.Touch(window->GetOkButton());
            break;
        case 5:
            connect(window, &TTaskWindow::Cancel, this, endNow);
            finger.Touch(window->GetCancelButton());
            break;
        case 6:
            connect(window, &TTaskWindow::ExportButtonPressed, this, endNow);
            finger.Touch(window->ExportButton()->mapTo(stage.screen.get(), QPoint(30, 10)));
            break;
        case 7:
            connect(window, &TTaskWindow::DesiredGeometryChanged, this, endNow);
            window->SetHasTitleBar(false);
            break;
        case 8:
            finger.Press(window->GetOkButton()->mapTo(stage.screen.get(), QPoint(20, 20)));
            QVERIFY(window->GetOkButton()->isDown());
            endNow();
            finger.Lift();
            break;
        default:
            // Qt is in the middle of laying it out, and needs it to the end of that.
            connect(window, &TTaskWindow::DesiredGeometryChanged, this, end);
            wisher->Wish(QSize(300, 100));
            break;
        }
        QTRY_VERIFY(!window);
        stage.screen->CheckToolbarsForLocking();
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aTaskWindowLooksLikeThis()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        TProbe window(nullptr);
        window.SetTitle(QStringLiteral("Boom height"));
        window.SetTitleIcon(QStringLiteral("icon-info"));
        window.SetDDNButtonVisible(true);
        window.AddControlButton(0, QStringLiteral("icon-plus-larger"), QString());
        window.SetDesiredContentSize(318, 180);
        window.ShowWindow(false);
        COMPARE_PICTURE(stage.screen->grab(window.geometry().adjusted(-10, 0, 0, 10)).toImage(),
                        "task-window");
    }

    void aTaskWindowWithoutATitleBarLooksLikeThis()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        TProbe window(nullptr);
        window.SetHasTitleBar(false);
        window.SetDesiredContentSize(200, 100);
        window.ShowWindow(false);
        COMPARE_PICTURE(stage.screen->grab(window.geometry().adjusted(-10, 0, 0, 10)).toImage(),
                        "task-window-without-title");
    }
};

COMMONUI_TEST(TTaskWindowTest)
#include "TTaskWindowTest.moc"
