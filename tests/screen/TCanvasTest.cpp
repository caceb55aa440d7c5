#include "TCanvas.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "TestCase.h"
#include "TFullWindow.h"
#include "TFullWindowTitlebar.h"
#include "TObstructionManager.h"
#include "TScreenStage.h"

#include <QLayout>
#include <QSignalSpy>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;
using KVN::MODAL_NONE;

namespace
{
QColor const Ground(0, 80, 0);

class TProbeCanvas : public TCanvas
{
public:
    explicit TProbeCanvas(QWidget* parent)
        : TCanvas(parent)
    {
    }

    bool HasMenus() const override { return m_HasMenus; }
    TModalWidget* Fade() const { return findChild<TModalWidget*>(QString(), Qt::FindDirectChildrenOnly); }
    bool IsFadeDirectlyBelow(QWidget const* widget) const
    {
        QObjectList const& all = children();
        return !Fade()->isHidden() && all.indexOf(Fade()) + 1 == all.indexOf(const_cast<QWidget*>(widget));
    }

    bool m_HasMenus = false;
    QRegion m_Painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        m_Painted |= event->region();
        TCanvas::paintEvent(event);
    }
};

class TProbeFullWindow : public TFullWindow
{
public:
    using TFullWindow::GetTitlebar;
    using TWindow::SetMiniViewsOverlap;

    explicit TProbeFullWindow(QWidget* parent)
        : TFullWindow(parent)
    {
    }

    void SetObstructedRegions(QList<TObstructionData> const& regions) override
    {
        ++m_Refreshes;
        m_Regions = regions;
    }
    bool HideTitleToMaximise() override
    {
        m_Asked = QStringLiteral("maximise");
        return m_HidesTitle;
    }
    bool HideTitle() override
    {
        m_Asked = QStringLiteral("hide");
        return m_HidesTitle;
    }

    int m_Refreshes = 0;
    QList<TObstructionData> m_Regions;
    QString m_Asked;
    bool m_HidesTitle = false;
};

// A screen with a shown canvas and its full window.
struct TCanvasStage
{
    TCanvasStage()
        : canvas(new TProbeCanvas(screen.get()))
        , full(new TProbeFullWindow(nullptr))
    {
        canvas->SetBackgroundColor(Ground);
        canvas->SetFullWindow(full, false);
        screen->SetCurrentCanvas(canvas, true);
    }

    // Something at the left edge that takes room up to \a x.
    QWidget* Obstruct(int x)
    {
        auto* const obstruction = new QWidget(screen.get());
        obstruction->setGeometry(0, 100, x, 50);
        obstruction->show();
        screen->GetObstructionManager()->RegisterObstruction(obstruction, OBSTRUCTION_LEFT);
        return obstruction;
    }

    QImage Picture() const
    {
        QImage picture(canvas->size(), QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        canvas->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        return picture;
    }

    // How many columns of the sidebar the canvas shows from the navigation bar on; -1 for a false picture.
    int SidebarColumns() const
    {
        QImage const sidebar =
            QImage(QStringLiteral(":/Images/Resources/Sidebar.png")).convertToFormat(QImage::Format_RGB32);
        QImage const picture = Picture();
        int columns = 0;
        while (columns <= sidebar.width() && picture.pixelColor(NAVBAR_WIDTH + columns, 400) != Ground)
            ++columns;
        QRect const shown(NAVBAR_WIDTH, 0, columns, SCREEN_HEIGHT);
        QRect const source(sidebar.width() - columns, 0, columns, SCREEN_HEIGHT);
        return columns == 0 || picture.copy(shown) == sidebar.copy(source) ? columns : -1;
    }

    TTestScreen screen;
    TProbeCanvas* canvas;
    QPointer<TProbeFullWindow> full;
};
} // namespace

class TCanvasTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsAsLargeAsTheScreen()
    {
        TTestScreen screen;
        TProbeCanvas canvas(screen.get());
        QCOMPARE(canvas.size(), QSize(1024, 768));
        QCOMPARE(canvas.windowType(), Qt::SubWindow);
        QVERIFY(!canvas.isWindow());
        QVERIFY(canvas.testAttribute(Qt::WA_OpaquePaintEvent));
        QVERIFY(!canvas.TCanvas::HasMenus());
        QVERIFY(!canvas.GetCanvasSurface());
        canvas.MinimizeCanvasSurface(nullptr);
        QVERIFY(!canvas.GetMenuManager());
        QVERIFY(!canvas.GetMenuDisplayManager());
        QVERIFY(canvas.GetObstructionManager());
        QVERIFY(canvas.GetObstructionManager() != screen->GetObstructionManager());
        QVERIFY(canvas.Fade()->isHidden());
        QCOMPARE(canvas.Fade()->pos(), QPoint(0, 0));
        canvas.show();
        QCOMPARE(canvas.Fade()->geometry(), QRect(0, 0, 1024, 768));
        canvas.resize(500, 400);
        QCOMPARE(canvas.Fade()->geometry(), QRect(0, 0, 500, 400));
        QCOMPARE(canvas.GetRootToolbarRect(), QRect(428, 0, 72, 400));
    }

    void itsColourLiesOverItsBackground()
    {
        TCanvasStage stage;
        QPixmap blue(10, 10);
        blue.fill(QColor(0, 0, 200));
        QString const path = stage.screen.m_Drive.Path() + QStringLiteral("blue.png");
        QVERIFY(blue.save(path));
        stage.screen->GetPixmapManager()->AddPixmap(QStringLiteral("blue"), path, 0, 0, 0, 0, false, 1.0F);
        QCOMPARE(stage.Picture().pixelColor(500, 500), Ground);
        stage.canvas->SetBackground(QStringLiteral("blue"));
        stage.canvas->SetBackgroundColor(QColor(255, 255, 255, 51));
        QCOMPARE(stage.Picture().pixelColor(500, 500), QColor(51, 51, 211));
        QCOMPARE(stage.Picture().pixelColor(1023, 767), QColor(51, 51, 211));
        stage.canvas->SetBackgroundColor(QColor());
        QCOMPARE(stage.Picture().pixelColor(500, 500), QColor(0, 0, 200));
        stage.canvas->resize(1100, 800);
        QCOMPARE(stage.Picture().pixelColor(1099, 799), QColor(0, 0, 200));
        stage.canvas->SetBackground(QString());
        QCOMPARE(stage.Picture().pixelColor(500, 500), QColor(Qt::magenta));
    }

    void itFollowsTheLeftLimitWhileItIsShown()
    {
        TCanvasStage stage;
        QCOMPARE(stage.canvas->GetLeftLimit(), 67);
        QWidget* const obstruction = stage.Obstruct(200);
        obstruction->move(0, 90);
        QCOMPARE(stage.canvas->GetLeftLimit(), 200);
        QCOMPARE(stage.full->x(), 200);
        stage.canvas->hide();
        obstruction->hide();
        QCOMPARE(stage.canvas->GetLeftLimit(), 200);
        stage.canvas->show();
        QCOMPARE(stage.canvas->GetLeftLimit(), 67);
        QCOMPARE(stage.full->x(), 67);
    }

    void onlyAChangedLimitMovesAnything()
    {
        TCanvasStage stage;
        QWidget* const obstruction = stage.Obstruct(200);
        obstruction->move(0, 90);
        int const refreshes = stage.full->m_Refreshes;
        obstruction->move(0, 100);
        stage.canvas->ShiftCanvas();
        QCOMPARE(stage.full->m_Refreshes, refreshes);
        obstruction->resize(210, 50);
        QCOMPARE(stage.full->m_Refreshes, refreshes + 1);
    }

    void itIsToldAfterTheLimitIsReadAndBeforeTheWindowMoves()
    {
        TCanvasStage stage;
        stage.canvas->hide();
        stage.Obstruct(200);
        QStringList seen;
        connect(stage.canvas, &TCanvas::OnShow, this,
                [&]
                { seen << QStringLiteral("%1 %2").arg(stage.canvas->GetLeftLimit()).arg(stage.full->x()); });
        stage.canvas->show();
        QCOMPARE(seen, (QStringList{QStringLiteral("200 67")}));
        QCOMPARE(stage.full->x(), 200);
    }

    void whenItGoesItLetsTheKeyboardGo()
    {
        TCanvasStage stage;
        QSignalSpy hidden(stage.canvas, &TCanvas::OnHide);
        for (int i = 0; i < 2; ++i)
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        stage.canvas->grabKeyboard();
        QCOMPARE(QWidget::keyboardGrabber(), stage.canvas);
        stage.canvas->hide();
        QVERIFY(!QWidget::keyboardGrabber());
        QCOMPARE(hidden.count(), 1);
    }

    void theFullWindowTakesTheRoomThatIsLeft_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("overlaps");
        QTest::addColumn<bool>("hasMenus");
        QTest::addColumn<bool>("reserved");
        QTest::addColumn<QRect>("place");
        QTest::newRow("beside the bar") << 67 << false << false << false << QRect(67, 5, 957, 682);
        QTest::newRow("beside mini windows") << 335 << false << false << false << QRect(335, 5, 689, 682);
        QTest::newRow("with menus") << 335 << false << true << false << QRect(335, 5, 617, 682);
        QTest::newRow("with a tool bar") << 335 << false << false << true << QRect(335, 5, 617, 682);
        QTest::newRow("with both") << 335 << false << true << true << QRect(335, 5, 617, 682);
        QTest::newRow("below mini windows") << 335 << true << false << false << QRect(67, 5, 957, 682);
        QTest::newRow("without any room") << 1024 << false << true << false << QRect(1024, 5, 0, 682);
    }

    void theFullWindowTakesTheRoomThatIsLeft()
    {
        QFETCH(int, limit);
        QFETCH(bool, overlaps);
        QFETCH(bool, hasMenus);
        QFETCH(bool, reserved);
        QFETCH(QRect, place);
        TCanvasStage stage;
        // As tall as it needs for a limit that is held to the canvas's height on its way.
        stage.screen->resize(1024, 1100);
        stage.canvas->resize(1024, 1100);
        stage.full->move(0, 5);
        stage.full->SetMiniViewsOverlap(overlaps);
        stage.canvas->m_HasMenus = hasMenus;
        stage.canvas->SetFullWindow(stage.full, reserved);
        stage.Obstruct(limit)->move(0, 90);
        stage.canvas->UpdateFullWindowGeometry();
        QCOMPARE(stage.full->geometry(), place);
        auto const* const layout = stage.canvas->Fade()->layout();
        QCOMPARE(layout->contentsMargins(), QMargins(place.x(), 0, 0, 0));
    }

    void theTitleGoesByTheRoom_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("hides");
        QTest::addColumn<QString>("asked");
        for (bool const hides : {false, true})
        {
            QTest::addRow("beside the bar, hides %d", hides) << 67 << hides << "maximise";
            QTest::addRow("just below the border, hides %d", hides) << 100 << hides << "maximise";
            QTest::addRow("at the border, hides %d", hides) << 101 << hides << "hide";
            QTest::addRow("beside mini windows, hides %d", hides) << 335 << hides << "hide";
        }
    }

    void theTitleGoesByTheRoom()
    {
        QFETCH(int, limit);
        QFETCH(bool, hides);
        QFETCH(QString, asked);
        TCanvasStage stage;
        stage.full->SetTitle(QStringLiteral("Rate"));
        stage.full->m_HidesTitle = hides;
        stage.Obstruct(limit)->move(0, 90);
        stage.canvas->UpdateFullWindowGeometry();
        QCOMPARE(stage.full->m_Asked, asked);
        QCOMPARE(stage.full->GetTitlebar()->isVisibleTo(stage.full), !hides);
    }

    void aFullWindowBecomesTheCanvassChild()
    {
        TCanvasStage stage;
        QCOMPARE(stage.full->parentWidget(), stage.canvas);
        QCOMPARE(stage.full->y(), 0);
        auto* const other = new TProbeFullWindow(nullptr);
        other->move(3, 44);
        stage.canvas->SetFullWindow(other, false);
        QCOMPARE(other->parentWidget(), stage.canvas);
        QCOMPARE(other->pos(), QPoint(67, 44));
        int const refreshes = stage.full->m_Refreshes;
        stage.canvas->UpdateFullWindowGeometry();
        QCOMPARE(stage.full->m_Refreshes, refreshes);
        stage.canvas->SetFullWindow(nullptr, true);
        stage.canvas->UpdateFullWindowGeometry();
        stage.canvas->RefreshObstructions();
    }

    void aDeadFullWindowIsForgotten()
    {
        TCanvasStage stage;
        stage.full->ShowWindow(false);
        stage.full->SetMiniViewsOverlap(true);
        delete stage.full.data();
        stage.canvas->UpdateFullWindowGeometry();
        stage.canvas->RefreshObstructions();
        stage.canvas->SetObstructedRegions({});
        QCOMPARE(stage.SidebarColumns(), 0);
    }

    void obstructionsComeInTheFullWindowsCoordinates()
    {
        TCanvasStage stage;
        stage.full->move(0, 10);
        stage.canvas->UpdateFullWindowGeometry();
        stage.canvas->SetObstructedRegions({{100, 50, 199, 149, OBSTRUCTION_BOTTOM}});
        QCOMPARE(stage.full->m_Regions.size(), 1);
        TObstructionData const& region = stage.full->m_Regions[0];
        QCOMPARE(QRect(QPoint(region.left, region.top), QPoint(region.right, region.bottom)),
                 QRect(33, 40, 100, 100));
        QCOMPARE(region.side, OBSTRUCTION_BOTTOM);
        stage.Obstruct(100)->move(0, 90);
        QCOMPARE(stage.full->m_Regions[0].left, 0);
        auto* const other = new TProbeFullWindow(nullptr);
        stage.canvas->SetFullWindow(other, false);
        QCOMPARE(other->m_Regions.size(), 1);
    }

    void aLockFadesTheCanvasBelowItsWidget()
    {
        TCanvasStage stage;
        TWindow window(stage.canvas);
        window.ShowWindow(false);
        stage.canvas->AddLockingWidget({&window, QStringLiteral("Rate"), MODAL_NONE, {}});
        QVERIFY(stage.canvas->Fade()->isHidden());
        stage.canvas->AddLockingWidget({nullptr, QString(), MODAL_GLOBAL, {}});
        QVERIFY(stage.canvas->Fade()->isHidden());
        stage.canvas->AddLockingWidget({&window, QStringLiteral("Rate"), MODAL_LOCAL, {}});
        QVERIFY(stage.canvas->IsFadeDirectlyBelow(&window));
        QCOMPARE(stage.canvas->Fade()->GetModalData().title, QStringLiteral("Rate"));
        stage.canvas->RemoveLockingWidget(&window);
        QVERIFY(stage.canvas->Fade()->isHidden());
        QVERIFY(!stage.canvas->Fade()->GetModalData().widget);
        stage.canvas->RemoveLockingWidget(&window);
        stage.canvas->RemoveLockingWidget(nullptr);
        QVERIFY(stage.canvas->Fade()->isHidden());
    }

    void locksOfACanvasStackInTheirOrder()
    {
        TCanvasStage stage;
        TWindow first(stage.canvas);
        TWindow second(stage.canvas);
        stage.canvas->AddLockingWidget({&first, QStringLiteral("first"), MODAL_LOCAL, {}});
        stage.canvas->AddLockingWidget({&second, QStringLiteral("second"), MODAL_LOCAL, {}});
        stage.canvas->AddLockingWidget({&first, QStringLiteral("again"), MODAL_LOCAL, {}});
        QVERIFY(stage.canvas->IsFadeDirectlyBelow(&second));
        QCOMPARE(stage.canvas->Fade()->GetModalData().title, QStringLiteral("second"));
        stage.canvas->RemoveLockingWidget(&second);
        QVERIFY(stage.canvas->IsFadeDirectlyBelow(&first));
        QCOMPARE(stage.canvas->Fade()->GetModalData().title, QStringLiteral("first"));
        stage.canvas->RemoveLockingWidget(&first);
        QVERIFY(stage.canvas->Fade()->isHidden());
    }

    void aDeadLockIsPutRightByTheNextOperation()
    {
        TCanvasStage stage;
        TWindow first(stage.canvas);
        auto* const second = new TWindow(stage.canvas);
        stage.canvas->AddLockingWidget({&first, QStringLiteral("first"), MODAL_LOCAL, {}});
        stage.canvas->AddLockingWidget({second, QStringLiteral("second"), MODAL_LOCAL, {}});
        delete second;
        stage.canvas->AddLockingWidget({&first, QStringLiteral("again"), MODAL_LOCAL, {}});
        QVERIFY(stage.canvas->IsFadeDirectlyBelow(&first));
        QCOMPARE(stage.canvas->Fade()->GetModalData().title, QStringLiteral("first"));
        auto* const third = new TWindow(stage.canvas);
        stage.canvas->AddLockingWidget({third, QStringLiteral("third"), MODAL_LOCAL, {}});
        delete third;
        stage.canvas->RemoveLockingWidget(stage.full);
        QVERIFY(stage.canvas->IsFadeDirectlyBelow(&first));
        stage.canvas->RemoveLockingWidget(&first);
        QVERIFY(stage.canvas->Fade()->isHidden());
    }

    void theFullWindowStaysBelowTheFade()
    {
        TCanvasStage stage;
        TWindow window(stage.canvas);
        QObjectList const& all = stage.canvas->children();
        stage.canvas->UpdateFullWindowGeometry();
        QVERIFY(all.indexOf(stage.canvas->Fade()) < all.indexOf(stage.full));
        stage.canvas->AddLockingWidget({&window, QString(), MODAL_LOCAL, {}});
        stage.full->raise();
        stage.canvas->UpdateFullWindowGeometry();
        QCOMPARE(all.indexOf(stage.canvas->Fade()), all.indexOf(stage.full) + 1);
    }

    void theSidebarReachesFromTheBarToTheLimit_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("columns");
        QTest::newRow("at the bar") << 67 << 0;
        QTest::newRow("one pixel") << 68 << 1;
        QTest::newRow("halfway in") << 200 << 133;
        QTest::newRow("beside a mini window") << 335 << 268;
        QTest::newRow("further than it is wide") << 400 << 268;
    }

    void theSidebarReachesFromTheBarToTheLimit()
    {
        QFETCH(int, limit);
        QFETCH(int, columns);
        TCanvasStage stage;
        stage.Obstruct(limit)->move(0, 90);
        QCOMPARE(stage.canvas->GetLeftLimit(), limit);
        QCOMPARE(stage.SidebarColumns(), columns);
        stage.screen->GetNavigationBar()->hide();
        QCOMPARE(stage.SidebarColumns(), 0);
    }

    void anOverlappedWindowHasTheWholeSidebarBesideIt()
    {
        TCanvasStage stage;
        stage.full->SetMiniViewsOverlap(true);
        QCOMPARE(stage.SidebarColumns(), 268);
        stage.Obstruct(200)->move(0, 90);
        QCOMPARE(stage.SidebarColumns(), 268);
        delete stage.full.data();
        QCOMPARE(stage.SidebarColumns(), 133);
    }

    void aBarThatGoesTakesTheSidebarWithIt()
    {
        TCanvasStage stage;
        stage.full->SetMiniViewsOverlap(true);
        QCoreApplication::processEvents();
        stage.canvas->m_Painted = QRegion();
        stage.screen->GetNavigationBar()->hide();
        QTRY_VERIFY(stage.canvas->m_Painted.contains(QRect(67, 0, 268, 768)));
        QCoreApplication::processEvents();
        stage.canvas->m_Painted = QRegion();
        stage.screen->GetNavigationBar()->show();
        QTRY_VERIFY(stage.canvas->m_Painted.contains(QRect(67, 0, 268, 768)));
    }

    void whatIsBehindTheSidebarIsPaintedBesideIt()
    {
        TCanvasStage stage;
        stage.Obstruct(500)->move(0, 90);
        QImage picture(stage.canvas->size(), QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        // A part that the sidebar fills in part.
        QRegion const part(100, 300, 350, 10);
        stage.canvas->render(&picture, part.boundingRect().topLeft(), part, QWidget::RenderFlags());
        QCOMPARE(picture.pixelColor(440, 305), Ground);
        QVERIFY(picture.pixelColor(110, 305) != Ground);
        QVERIFY(picture.pixelColor(110, 305) != QColor(Qt::magenta));
    }

    void aCanvasMayEndInItsSignals_data()
    {
        QTest::addColumn<bool>("whenShown");
        QTest::newRow("shown") << true;
        QTest::newRow("hidden") << false;
    }

    void aCanvasMayEndInItsSignals()
    {
        QFETCH(bool, whenShown);
        TCanvasStage stage;
        QPointer<TCanvas> const canvas = stage.canvas;
        auto* const other = new TCanvas(stage.screen.get());
        if (whenShown)
            stage.canvas->hide();
        // Qt goes on with a widget whose event is being handled, so that its end is put off, as modules do.
        if (whenShown)
            connect(canvas, &TCanvas::OnShow, canvas, &QObject::deleteLater);
        else
            connect(canvas, &TCanvas::OnHide, canvas, &QObject::deleteLater);
        stage.screen->SetCurrentCanvas(whenShown ? stage.canvas : other, true);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!canvas);
        stage.screen->SetCurrentCanvas(other, true);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aCanvasMayEndInAnyState()
    {
        for (bool const isLocked : {false, true})
        {
            TCanvasStage stage;
            auto* const window = new TWindow(stage.canvas);
            window->ShowWindow(true);
            if (isLocked)
            {
                stage.canvas->AddLockingWidget({window, QString(), MODAL_LOCAL, {}});
                stage.screen->AddLockingWidget({window, QString(), MODAL_GLOBAL, {}});
            }
            delete stage.canvas;
            QVERIFY(!stage.full);
            stage.Obstruct(200)->move(0, 90);
            stage.screen->CheckToolbarsForLocking();
            VERIFY_LAYERS(*stage.screen.get());
        }
    }

    void withoutAScreenItHasTheRoomToItself()
    {
        QVERIFY(!MainScreen);
        TCanvas canvas(nullptr);
        canvas.SetBackground(QStringLiteral("bkgDiagnostics800x600"));
        canvas.SetBackgroundColor(Ground);
        canvas.show();
        canvas.ShiftCanvas();
        QCOMPARE(canvas.GetLeftLimit(), 0);
        QCOMPARE(canvas.GetRootToolbarRect(), QRect(952, 0, 72, 768));
        QCOMPARE(canvas.grab().toImage().pixelColor(500, 400), Ground);
        canvas.hide();
    }

    void aCanvasWithItsSidebarLooksLikeThis()
    {
        TCanvasStage stage;
        stage.canvas->SetBackground(QStringLiteral("bkgDiagnostics800x600"));
        stage.canvas->SetBackgroundColor(QColor());
        QWidget* const unseen = stage.Obstruct(335);
        unseen->move(0, 90);
        unseen->lower();
        COMPARE_PICTURE(stage.screen->grab().toImage(), "canvas-with-sidebar");
    }
};

COMMONUI_TEST(TCanvasTest)
#include "TCanvasTest.moc"
