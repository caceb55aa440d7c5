#include "TScreen.h"
#include "FeatureSwitches.h"
#include "Metrics.h"
#include "ModuleIds.h"
#include "PixmapManager.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFullWindow.h"
#include "TNavigationWindow.h"
#include "TObstructionManager.h"

namespace
{
KVN::MorvaneID ModuleId()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{0d5f24ce-3b1c-4ef4-8c4f-6f1b8d7f3a10}")));
}
} // namespace

class TScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thisIsTheToolkitOfASmallConsole()
    {
        QVERIFY(!USE_NAVIGATION_BAR);
        QVERIFY(TASK_WINDOW_USE_FULLSCREEN);
        QCOMPARE(SCREEN_HEIGHT, 600);
        TTestScreen screen;
        QCOMPARE(screen->size(), QSize(800, 600));
        QCOMPARE(screen->GetUsableRect(), QRect(0, 0, 800, 600));
        QCOMPARE(screen->GetModalWidget()->geometry(), QRect(0, 0, 800, 600));
        QCOMPARE(TWindowManager::GetSlotCount(), 2);
    }

    void thereAreNoBars()
    {
        TTestScreen screen;
        QVERIFY(!screen->GetNavigationBar());
        QVERIFY(!screen->GetSpecialNavigationBar());
        QVERIFY(!screen->IsNavigationBarVisible());
        QCOMPARE(screen->GetObstructionManager()->GetObstructionCount(), 0);
        QCOMPARE(screen->children().constFirst(), screen->GetWindowManager());
        screen->UpdateNavBarSizes();
        screen->SetNavButtonOrder({WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]});
        auto* const low = new QWidget(screen.get());
        auto* const high = new QWidget(screen.get());
        screen->RaiseToBelowNavigationBar(low);
        QVERIFY(screen->children().indexOf(low) < screen->children().indexOf(high));
    }

    void setupBuildsTheNavigationWindow()
    {
        TTestInternalDrive drive;
        TScreen screen;
        QVERIFY(!screen.GetNavigationWindow());
        screen.OnNavigationWindow();
        MainScreen = &screen;
        screen.Setup();
        TNavigationWindow const* const window = screen.GetNavigationWindow();
        QVERIFY(window);
        QCOMPARE(window->geometry(), QRect(5, 5, 799, 599));
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(window->isHidden());
        QVERIFY(!window->parentWidget());
    }

    void theNavigationWindowComesAndGoes()
    {
        TTestScreen screen;
        TNavigationWindow* const window = screen->GetNavigationWindow();
        screen->OnNavigationWindow();
        QVERIFY(window->isVisible());
        QCOMPARE(window->parentWidget(), static_cast<QWidget*>(screen.get()));
        QCOMPARE(window->pos(), QPoint(5, 5));
        QCOMPARE(window->ModalType(), int(KVN::MODAL_LOCAL));
        screen->OnNavigationWindow();
        QVERIFY(window->isHidden());
        QVERIFY(!window->parentWidget());
    }

    void theNavigationWindowEndsWithItsScreen_data()
    {
        QTest::addColumn<bool>("shown");
        QTest::newRow("hidden") << false;
        QTest::newRow("shown") << true;
    }

    void theNavigationWindowEndsWithItsScreen()
    {
        QFETCH(bool, shown);
        QPointer<TNavigationWindow> window;
        {
            TTestScreen screen;
            window = screen->GetNavigationWindow();
            if (shown)
                screen->OnNavigationWindow();
        }
        QVERIFY(!window);
    }

    void theArtIsThatOfASmallScreen_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QRect>("stretch");
        QRect const whole;
        QRect const frame(QPoint(8, 38), QPoint(306, 306));
        QTest::newRow("SplashScreen") << "SplashScreen800x600.png" << whole;
        QTest::newRow("bkgControllers800x600") << "bkgControllers800x600.png" << whole;
        QTest::newRow("bkgSysInfo480x272") << "bkgSysInfo800x600.png" << whole;
        QTest::newRow("bkgUSBGeneric480x272") << "bkgUSBGeneric800x600.png" << whole;
        QTest::newRow("bkgBlackGeneric480x272") << "bkgBlackGeneric800x600.png" << whole;
        QTest::newRow("bkgDiagnostics800x600") << "bkgDiagnostics800x600.png" << whole;
        QTest::newRow("TaskWindowNoShadow") << "TaskWindowNoShadow.png" << frame;
        QTest::newRow("TaskWindowNoTitlebarNoShadow") << "TaskWindowNoTitlebarNoShadow.png" << frame;
        QTest::newRow("TaskWindowUSBNoShadow") << "TaskWindowUSBNoShadow.png" << frame;
        for (char const* const name :
             {"SetupScreenBackgroundTop480x272", "SetupScreenBackgroundBottom480x272",
              "SetupScreenBackgroundDark800x600"})
            QTest::newRow(name) << "SetupScreenBackgroundFlat800x600.png" << whole;
    }

    void theArtIsThatOfASmallScreen()
    {
        QFETCH(QString, file);
        QFETCH(QRect, stretch);
        TTestScreen screen(false);
        QString const name = QString::fromLatin1(QTest::currentDataTag());
        QString const path = QStringLiteral(":/Images/Resources/") + file;
        KVN::PixmapManager* const pixmaps = screen->GetPixmapManager();
        QCOMPARE(pixmaps->GetPixmap(name)->toImage(), QPixmap(path).toImage());
        KVN::PixmapManager reference;
        bool const isWhole = stretch.isNull();
        reference.AddPixmap(name, path, isWhole ? 0 : stretch.left(), isWhole ? 0 : stretch.top(),
                            isWhole ? 0 : stretch.right(), isWhole ? 0 : stretch.bottom(), false, 1.0F);
        QSize const natural = QPixmap(path).size();
        for (QSize const& size : {natural * 5 / 4, natural * 3 / 4})
            QCOMPARE(pixmaps->GetResizedPixmap(name, size.width(), size.height())->toImage(),
                     reference.GetResizedPixmap(name, size.width(), size.height())->toImage());
    }

    void aCanvasHasTheWholeWidth()
    {
        TTestScreen screen;
        auto* const canvas = new TCanvas(screen.get());
        auto* const window = new TFullWindow(nullptr);
        canvas->SetFullWindow(window, false);
        screen->SetCurrentCanvas(canvas, true);
        QCOMPARE(canvas->geometry(), QRect(0, 0, 800, 600));
        QCOMPARE(canvas->GetLeftLimit(), 0);
        QCOMPARE(window->x(), 0);
        QCOMPARE(window->width(), 800);
        QCOMPARE(canvas->GetRootToolbarRect(), QRect(728, 0, 72, 600));
        VERIFY_LAYERS(*screen.get());
    }

    void locksStackWithoutBars_data()
    {
        QTest::addColumn<int>("modalType");
        QTest::newRow("local") << int(KVN::MODAL_LOCAL);
        QTest::newRow("global") << int(KVN::MODAL_GLOBAL);
    }

    void locksStackWithoutBars()
    {
        QFETCH(int, modalType);
        TTestScreen screen;
        auto* const canvas = new TCanvas(screen.get());
        screen->SetCurrentCanvas(canvas, true);
        TWindow first(nullptr);
        TWindow second(nullptr);
        for (TWindow* const window : {&first, &second})
        {
            window->ShowWindow(true);
            screen->AddLockingWidget({window, QString(), modalType, {}});
            VERIFY_LAYERS(*screen.get());
        }
        screen->OnNavigationWindow();
        for (TWindow* const window : {&second, &first})
        {
            screen->RemoveLockingWidget(window);
            VERIFY_LAYERS(*screen.get());
        }
    }

    void theConsoleStartsWithItsDefaultView()
    {
        TTestScreen screen;
        auto* const canvas = new TCanvas(screen.get());
        auto* const window = new TFullWindow(canvas);
        screen->SetDefaultView(ModuleId());
        screen->AssignNavActionButton(ModuleId(), QString(), canvas, window, QString());
        screen->DisplayStartupFullView();
        QCOMPARE(screen->GetCurrentCanvas(), canvas);
        QVERIFY(window->isVisible());
        QVERIFY(!screen->grab().isNull());
        VERIFY_LAYERS(*screen.get());
    }
};

COMMONUI_TEST(TScreenTest)
#include "TScreenTest.moc"
