#include "TConsole.h"

#include "ConfigManager.h"
#include "ConsoleStage.h"
#include "TCameraModule.h"
#include "TCameraXVOverlayManager.h"
#include "TConsoleOptions.h"
#include "TDiagnosticsModule.h"
#include "TestCase.h"
#include "TGnssModule.h"
#include "TGuidanceModule.h"
#include "TNavigationBar.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TSetupModule.h"
#include "TSprayerModule.h"
#include "TVirtualOperator.h"
#include "TVirtualTime.h"
#include "TWindowManager.h"

#include <QTemporaryDir>

/// What an operator does with the whole console.
class TConsoleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFirstStartShowsTheMapAndTwoMiniWindows()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
        QCOMPARE(stage.Manager()->GetSlot(0), QList<int>{stage.IdOf(TSprayerModule::Id())});
        QCOMPARE(stage.Manager()->GetSlot(1), QList<int>{stage.IdOf(TGnssModule::Id())});
    }

    void theLinkedButtonStepsThroughItsWindows()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        int const fix = stage.IdOf(TGnssModule::Id());
        QVERIFY(stage.Tap(stage.NavigationButton(TGnssModule::Id())));
        QCOMPARE(stage.Manager()->GetMiniViewState(fix + 1), MINI_VIEW_SHOWN);
        QVERIFY(stage.Tap(stage.NavigationButton(TGnssModule::Id())));
        QCOMPARE(stage.Manager()->GetMiniViewState(fix + 1), MINI_VIEW_HIDDEN);
        QCOMPARE(stage.Manager()->GetMiniViewState(fix), MINI_VIEW_SHOWN);
    }

    void aSectionSwitchedOffStopsThere()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("section-3"))));
        QVERIFY(!stage.console.Machine().IsSectionOn(2));
        QVERIFY(!stage.console.Machine().IsFlowing(2));
        QVERIFY(stage.console.Machine().IsFlowing(3));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("section-3"))));
        QVERIFY(stage.console.Machine().IsFlowing(2));
    }

    void theZoomComesBackAfterARestart()
    {
        QTemporaryDir folder;
        {
            TStage stage(folder.path());
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-zoom-in"))));
            QVERIFY(!stage.Button(QStringLiteral("icon-zoom-in"))->isEnabled());
        }
        TStage stage(folder.path());
        QVERIFY(!stage.Button(QStringLiteral("icon-zoom-in"))->isEnabled());
        QVERIFY(stage.Button(QStringLiteral("icon-zoom-out"))->isEnabled());
    }

    void theSetupTakesTheScreenAndGivesItBack()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TSetupModule::Id()));
        QVERIFY(!stage.console.Screen()->IsNavigationBarVisible());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
        QVERIFY(stage.console.Screen()->IsNavigationBarVisible());
        QCOMPARE(stage.Manager()->GetSlot(0), QList<int>{stage.IdOf(TSprayerModule::Id())});
    }

    void theBackKeyClosesTheSetup()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        stage.finger.Wheel(-120);
        stage.time.Pass(SettleTime);
        stage.finger.Key(Qt::Key_Escape);
        stage.time.Pass(SettleTime);
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
    }

    void settingsAreKeptAndLargerButtonsShow()
    {
        QTemporaryDir folder;
        int normalHeight = 0;
        {
            TStage stage(folder.path());
            normalHeight = stage.NavigationButton(TCameraModule::Id())->height();
            QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("Off"))));
            QVERIFY(!stage.Button(QStringLiteral("icon-plus-larger"))->isEnabled());
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-page-1"))));
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("Largest"))));
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
            QCOMPARE(stage.NavigationButton(TCameraModule::Id())->height(), normalHeight * 3 / 2);
        }
        TStage stage(folder.path());
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_SOUND_ENABLED).toBool(), false);
        QCOMPARE(stage.NavigationButton(TCameraModule::Id())->height(), normalHeight * 3 / 2);
    }

    void theDiagnosticsButtonBringsUpAndSendsBack()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        TPushButton* const button = stage.SpecialButton(TDiagnosticsModule::Id());
        QVERIFY(stage.Tap(button));
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TDiagnosticsModule::Id()));
        QVERIFY(stage.Tap(button));
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
    }

    void theFlyoutGoesWithItsView()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.Manager()->OnDraggedOffRight(stage.IdOf(TCameraModule::Id()));
        stage.time.Pass(SettleTime);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("camera-brightness"))));
        QVERIFY(stage.Button(QStringLiteral("icon-minus-larger")));
        QSignalSpy flyout(stage.console.Screen()->GetCameraOverlayManager(),
                          &TCameraXVOverlayManager::FlyoutWindowVisible);
        stage.Manager()->OnDraggedOffRight(stage.IdOf(TGuidanceModule::Id()));
        QCOMPARE(flyout.count(), 1);
        QCOMPARE(flyout.constFirst().constFirst().toBool(), false);
        stage.Manager()->OnDraggedOffRight(stage.IdOf(TCameraModule::Id()));
        QVERIFY(!stage.Button(QStringLiteral("icon-minus-larger")));
    }
};

COMMONUI_TEST(TConsoleTest)
#include "TConsoleTest.moc"
