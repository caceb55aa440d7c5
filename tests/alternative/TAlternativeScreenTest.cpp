#include "TScreen.h"

#include "FeatureSwitches.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TNavigationWindow.h"

namespace
{
QString ImagePath(QString const& file)
{
    return QStringLiteral(":/Images/Resources/") + file;
}
} // namespace

/// The toolkit as it is built for a console 600 pixels high, without bars and with full-screen task windows.
class TAlternativeScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theOtherSwitchesAreSet()
    {
        QCOMPARE(SCREEN_HEIGHT, 600);
        QVERIFY(!USE_NAVIGATION_BAR);
        QVERIFY(TASK_WINDOW_USE_FULLSCREEN);
    }

    void aWindowStandsInForTheNavigationBars()
    {
        TTestScreen screen;
        QCOMPARE(screen->size(), QSize(1024, 600));
        QVERIFY(!screen->GetNavigationBar());
        QVERIFY(!screen->GetSpecialNavigationBar());
        TNavigationWindow* const window = screen->GetNavigationWindow();
        QVERIFY(window && !window->isVisible());
        QCOMPARE(window->geometry(), QRect(5, 5, 1023, 599));
        screen.FinishSlides();
        QVERIFY(!screen->grab().isNull());
    }

    void theArtOfTheSmallScreenIsRegistered_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QRect>("stretch");
        QRect const whole;
        QRect const frame(QPoint(8, 38), QPoint(306, 306));
        auto const row = [](char const* name, char const* file, QRect const& stretch)
        { QTest::newRow(name) << name << file << stretch; };
        row("SplashScreen", "SplashScreen800x600.png", whole);
        row("bkgControllers800x600", "bkgControllers800x600.png", whole);
        row("bkgSysInfo480x272", "bkgSysInfo800x600.png", whole);
        row("bkgUSBGeneric480x272", "bkgUSBGeneric800x600.png", whole);
        row("bkgBlackGeneric480x272", "bkgBlackGeneric800x600.png", whole);
        row("bkgDiagnostics800x600", "bkgDiagnostics800x600.png", whole);
        row("TaskWindowNoShadow", "TaskWindowNoShadow.png", frame);
        row("TaskWindowNoTitlebarNoShadow", "TaskWindowNoTitlebarNoShadow.png", frame);
        row("TaskWindowUSBNoShadow", "TaskWindowUSBNoShadow.png", frame);
        row("SetupScreenBackgroundTop480x272", "SetupScreenBackgroundFlat800x600.png", whole);
        row("SetupScreenBackgroundBottom480x272", "SetupScreenBackgroundFlat800x600.png", whole);
        row("SetupScreenBackgroundDark800x600", "SetupScreenBackgroundFlat800x600.png", whole);
    }
    void theArtOfTheSmallScreenIsRegistered()
    {
        QFETCH(QString, name);
        QFETCH(QString, file);
        QFETCH(QRect, stretch);
        TTestScreen screen(false);
        KVN::PixmapManager* const pixmaps = screen->GetPixmapManager();
        KVN::PixmapManager reference;
        bool const isWhole = stretch.isNull();
        reference.AddPixmap(name, ImagePath(file), isWhole ? 0 : stretch.left(), isWhole ? 0 : stretch.top(),
                            isWhole ? 0 : stretch.right(), isWhole ? 0 : stretch.bottom(), false, 1.0F);
        QImage const natural = pixmaps->GetPixmap(name)->toImage();
        QCOMPARE(natural, reference.GetPixmap(name)->toImage());
        for (QSize const& size : {natural.size() * 5 / 4, natural.size() * 3 / 4})
        {
            QCOMPARE(pixmaps->GetResizedPixmap(name, size.width(), size.height())->toImage(),
                     reference.GetResizedPixmap(name, size.width(), size.height())->toImage());
        }
    }
};

COMMONUI_TEST(TAlternativeScreenTest)
#include "TAlternativeScreenTest.moc"
