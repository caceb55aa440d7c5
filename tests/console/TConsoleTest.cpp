#include "TConsole.h"

#include "ConfigManager.h"
#include "ConsoleStage.h"
#include "SetupScreens.h"
#include "TCameraModule.h"
#include "TCameraXVOverlayManager.h"
#include "TConsoleOptions.h"
#include "TDiagnosticsModule.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TExternalDrive.h"
#include "TGnssModule.h"
#include "TGuidanceModule.h"
#include "THostPlatform.h"
#include "TMessageDialog.h"
#include "TNavigationBar.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TSetupModule.h"
#include "TSprayerModule.h"
#include "TSystemToolBar.h"
#include "TToolTip.h"
#include "TToolTipMode.h"
#include "TUsbWatch.h"
#include "TVirtualOperator.h"
#include "TVirtualTime.h"
#include "TWindowManager.h"

#include <QDir>
#include <QTemporaryDir>

namespace
{
void RaiseStrip(TStage& stage)
{
    stage.console.Screen()->SquishRequestOffScreenButtons();
    stage.time.Pass(SettleTime);
}

/// The title of the message that is up.
QString Message(TStage const& stage)
{
    auto const messages = stage.console.Screen()->findChildren<TMessageDialog*>();
    for (TMessageDialog* const message : messages)
    {
        if (message->isVisible())
            return message->GetTitle();
    }
    return QString();
}
} // namespace

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

    // Page after page, whether it is shown or not. What shows nothing but a title needs no words, nor does
    // what its window holds back, and what ends the mode must work in it.
    void everyButtonExplainsItself()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        auto const buttons = stage.console.Screen()->findChildren<TPushButton*>();
        QVERIFY(buttons.size() > 20);
        for (TPushButton const* const button : buttons)
        {
            bool const isExcused = button->isHidden() || button->parent()->inherits("TMiniWindowTitlebar") ||
                                   button->objectName() == QLatin1String("icon-tool-tip");
            if (button->GetToolTip().isEmpty() && !isExcused)
                QFAIL(qPrintable(QStringLiteral("a button without words: '%1' in a %2")
                                     .arg(button->objectName(),
                                          QLatin1String(button->parent()->metaObject()->className()))));
        }
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
            QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::Buttons)));
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

    // What is at hand whatever the view

    void theHomeButtonBringsTheMapBack()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.Manager()->OnDraggedOffRight(stage.IdOf(TCameraModule::Id()));
        stage.time.Pass(SettleTime);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-home"))));
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
    }

    void theSystemToolBarStandsInTheCornerButNotOverTheSetup()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        TScreen* const screen = stage.console.Screen();
        QCOMPARE(screen->GetSystemToolBar()->geometry().bottomRight(), screen->rect().bottomRight());
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        QVERIFY(!screen->GetSystemToolBar()->isVisible());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
        QVERIFY(screen->GetSystemToolBar()->isVisible());
    }

    void fullViewsLeaveTheColumnOfTheBarFree()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        TSystemToolBar const* const bar = stage.console.Screen()->GetSystemToolBar();
        for (KVN::MorvaneID const& id :
             {TGuidanceModule::Id(), TSprayerModule::Id(), TGnssModule::Id(), TCameraModule::Id()})
        {
            stage.Manager()->OnDraggedOffRight(stage.IdOf(id));
            stage.time.Pass(SettleTime);
            auto const windows = stage.console.Screen()->findChildren<TFullWindow*>();
            for (TFullWindow* const window : windows)
            {
                if (window->isVisible())
                    QCOMPARE(window->mapTo(stage.console.Screen(), QPoint(window->width(), 0)).x(), bar->x());
            }
        }
    }

    void theToolTipButtonExplainsAndEndsIt()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        auto const tip = [&] { return stage.console.Screen()->findChild<TToolTip*>(); };
        auto const isExplained = [&] { return tip() && tip()->isVisible(); };
        RaiseStrip(stage);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tool-tip"))));
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-home"))));
        QVERIFY(isExplained());
        QVERIFY(stage.Tap(stage.NavigationButton(TCameraModule::Id())));
        QVERIFY(isExplained());
        QVERIFY(!stage.Manager()->GetSlot(2).contains(stage.IdOf(TCameraModule::Id())));
        RaiseStrip(stage);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tool-tip"))));
        QVERIFY(!isExplained());
        QVERIFY(stage.Tap(stage.NavigationButton(TCameraModule::Id())));
        QVERIFY(stage.Manager()->GetSlot(2).contains(stage.IdOf(TCameraModule::Id())));
    }

    void theToolTipButtonTellsWhetherTipsAreOn()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        RaiseStrip(stage);
        TPushButton* const button = stage.Button(QStringLiteral("icon-tool-tip"));
        QString const off = button->GetText();
        TToolTipMode* const mode = stage.console.Shell().GetPlatform()->GetToolTipMode();
        mode->SetOn(true);
        QVERIFY(button->GetText() != off);
        mode->SetOn(false);
        QCOMPARE(button->GetText(), off);
    }

    void aSwipeUpFromTheEdgeBringsTheOffScreenButtons_data()
    {
        QTest::addColumn<int>("x");
        QTest::newRow("over the map") << 600;
        QTest::newRow("over the navigation bar") << 30;
        QTest::newRow("over a mini window's slot") << 200;
    }

    void aSwipeUpFromTheEdgeBringsTheOffScreenButtons()
    {
        QFETCH(int, x);
        QTemporaryDir folder;
        TStage stage(folder.path());
        QPoint const edge(x, 767);
        stage.finger.Drag(edge, edge - QPoint(0, 30), 10);
        stage.time.Pass(SettleTime);
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_UP);
        QVERIFY(stage.Button(QStringLiteral("icon-screenshot")));
        stage.finger.Tap(QPoint(600, 200));
        stage.time.Pass(SettleTime);
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }

    void tenQuietSecondsSendTheOffScreenButtonsAway()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.console.Screen()->SquishRequestOffScreenButtons();
        stage.time.Pass(8000);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-quieter"))));
        // The timer is a coarse one.
        stage.time.Pass(8500);
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_UP);
        stage.time.Pass(2000);
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }

    void theStripTurnsTheVolumeAndTheSetupFollows()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        auto const volume = [] { return ConfigManager::Instance()->Read(CONFIG_SOUND_VOLUME).toInt(); };
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        ConfigManager::Instance()->Write(CONFIG_SOUND_VOLUME, 50, false);
        ConfigManager::Instance()->Write(CONFIG_SOUND_ENABLED, false, false);
        stage.time.Pass(SettleTime);
        QVERIFY(!stage.Button(QStringLiteral("icon-plus-larger"))->isEnabled());
        stage.console.Screen()->SquishRequestOffScreenButtons();
        stage.time.Pass(SettleTime);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-quieter"))));
        QCOMPARE(volume(), 40);
        QVERIFY(!stage.Button(QStringLiteral("icon-plus-larger"))->isEnabled());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-louder"))));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-louder"))));
        QCOMPARE(volume(), 60);
        QVERIFY(stage.Button(QStringLiteral("icon-plus-larger"))->isEnabled());
        stage.finger.Hold(stage.finger.MiddleOf(stage.Button(QStringLiteral("icon-louder"))), 2000);
        QCOMPARE(volume(), 100);
    }

    void theStripIsNotInItsOwnPicture()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        RaiseStrip(stage);
        TPushButton* const neighbour = stage.Button(QStringLiteral("icon-louder"));
        QRect const place(neighbour->mapTo(stage.console.Screen(), QPoint()), neighbour->size());
        QImage const withTheStrip = stage.console.Screen()->grab(place).toImage();
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-screenshot"))));
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
        QDir const pictures(stick.filePath(QStringLiteral("Screenshots")));
        auto const files = [&] { return pictures.entryList({QStringLiteral("*.png")}); };
        QTRY_COMPARE_WITH_TIMEOUT(files().size(), 1, 60000);
        QImage const picture(pictures.filePath(files().constFirst()));
        QCOMPARE(picture.size(), QSize(1024, 768));
        QVERIFY(picture.copy(place).convertToFormat(withTheStrip.format()) != withTheStrip);
    }

    void aPictureThatCannotBeSavedIsTold()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        QFile inTheWay(stick.filePath(QStringLiteral("Screenshots")));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        for (int i = 0; i < 2; ++i)
        {
            RaiseStrip(stage);
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-screenshot"))));
            QTRY_COMPARE(Message(stage), QStringLiteral("USB Operation Error"));
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
            QCOMPARE(Message(stage), QString());
        }
    }

    void whyAPictureWasNotSavedIsLogged_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("entry");
        QTest::newRow("full") << int(DRIVE_FULL) << "E USB Operation Error: No space";
        QTest::newRow("pulled") << int(DRIVE_GONE) << "E USB Operation Error: Write error";
        QTest::newRow("read-only") << int(DRIVE_READ_ONLY) << "E USB Operation Error: Write error";
        QTest::newRow("taken") << int(DRIVE_REFUSED) << "E USB Operation Error: Write error";
        QTest::newRow("broken") << int(DRIVE_ERROR) << "E USB Operation Error: Write error";
    }

    void whyAPictureWasNotSavedIsLogged()
    {
        QFETCH(int, result);
        QFETCH(QString, entry);
        QTemporaryDir folder;
        TStage const stage(folder.path());
        TTestUserLog const log; // in the place of the console's own
        Q_EMIT stage.console.Screen()->GetExternalDrive()->SaveFailed(static_cast<EDriveResult>(result));
        QCOMPARE(Message(stage), QStringLiteral("USB Operation Error"));
        QVERIFY(log.Entries().contains(entry));
    }

    void withoutAStickTheOperatorIsAskedForOne_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("to eject") << "icon-usb";
        QTest::newRow("for a picture") << "icon-screenshot";
    }

    void withoutAStickTheOperatorIsAskedForOne()
    {
        QFETCH(QString, button);
        QTemporaryDir folder;
        TStage stage(folder.path());
        RaiseStrip(stage);
        QVERIFY(stage.Tap(stage.Button(button)));
        QCOMPARE(Message(stage), QStringLiteral("No External Media Detected"));
    }

    void theUsbButtonEjectsTheStick()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-usb"))));
        QCOMPARE(Message(stage), QStringLiteral("Eject USB"));
        QVERIFY(!stage.console.Shell().GetUsbWatch()->IsExternalDrivePresent());
    }

    void aFolderIsInsertedAndPulledByTheStrip()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        TUsbWatch* const watch = stage.console.Shell().GetUsbWatch();
        RaiseStrip(stage);
        TPushButton* const button = stage.Button(QStringLiteral("stick"));
        QVERIFY(button);
        for (bool const isPresent : {true, false, true})
        {
            QCOMPARE(watch->IsExternalDrivePresent(), isPresent);
            QCOMPARE(button->GetText(), isPresent ? QStringLiteral("Pull") : QStringLiteral("Insert"));
            QVERIFY(stage.Tap(button));
        }
    }

    void withoutAFolderThereIsNothingToPull()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.console.WatchUsb(QString());
        RaiseStrip(stage);
        QVERIFY(stage.Button(QStringLiteral("icon-louder")));
        QVERIFY(!stage.Button(QStringLiteral("stick")));
    }

    // By the wheel and its two keys alone, from the first step on.
    void theWheelWorksTheBarAndTheStrip()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TStage stage(folder.path());
        stage.console.WatchUsb(stick.path());
        ConfigManager::Instance()->Write(CONFIG_SOUND_VOLUME, 50, false);
        stage.GoBackToTheScreen();
        QVERIFY(stage.TurnTo(stage.console.Screen()->GetSystemToolBar()));
        // The uppermost button is the first stop.
        stage.Enter();
        stage.Enter();
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_UP);
        stage.finger.Key(Qt::Key_Escape);
        stage.time.Pass(2 * SettleTime);
        QVERIFY(stage.TurnTo(stage.Button(QStringLiteral("icon-louder"))));
        stage.Enter();
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_SOUND_VOLUME).toInt(), 60);
        QVERIFY(stage.TurnTo(stage.Button(QStringLiteral("stick"))));
        stage.Enter();
        QVERIFY(!stage.console.Shell().GetUsbWatch()->IsExternalDrivePresent());
        QVERIFY(stage.TurnTo(stage.Button(QStringLiteral("icon-tool-tip"))));
        stage.Enter();
        QVERIFY(stage.console.Shell().GetPlatform()->GetToolTipMode()->ToolTipVisible());
        QCOMPARE(stage.Manager()->GetOffScreenState(), OFF_SCREEN_HIDDEN);
    }
};

COMMONUI_TEST(TConsoleTest)
#include "TConsoleTest.moc"
