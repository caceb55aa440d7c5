#include "ConfigManager.h"
#include "ConsoleStage.h"
#include "SetupScreens.h"
#include "TCalibrationWindow.h"
#include "TDialPages.h"
#include "TestCase.h"
#include "TGuidanceModule.h"
#include "TLegendLayer.h"
#include "TMachinePage.h"
#include "TMessageDialog.h"
#include "TQuantity.h"
#include "TScrollableWidget.h"
#include "TSetupModule.h"
#include "TSprayerModule.h"

#include <QScrollBar>
#include <QTemporaryDir>

namespace
{
template<typename T>
T* Shown(TStage const& stage)
{
    auto const all = stage.console.Screen()->findChildren<T*>();
    for (T* const widget : all)
    {
        if (widget->isVisible())
            return widget;
    }
    return nullptr;
}

bool Answer(TStage& stage, EMessageDialogButton button)
{
    TMessageDialog* const dialog = Shown<TMessageDialog>(stage);
    return dialog && stage.Tap(dialog->GetMessageDialogButton(button));
}
} // namespace

/// What comes up over the views of the console: questions, warnings, working windows, pages and layers.
class TConsoleDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drainingTheTankIsAskedFirst()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        double const before = stage.console.Machine().TankLitres();
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-drain"))));
        QVERIFY(Answer(stage, MESSAGE_BUTTON_NO));
        QVERIFY(stage.console.Machine().TankLitres() > before / 2);
        QVERIFY(!Shown<TMessageDialog>(stage));
        QVERIFY(stage.console.Screen()->GetLockingWidgets().isEmpty());
    }

    void aDrainedTankIsWarnedOf()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-drain"))));
        QVERIFY(Answer(stage, MESSAGE_BUTTON_YES));
        QCOMPARE(stage.console.Machine().TankLitres(), 0.0);
        TMessageDialog* const warning = Shown<TMessageDialog>(stage);
        QVERIFY(warning);
        QVERIFY(warning->GetMessageString().contains(QStringLiteral("450")));
        QVERIFY(Answer(stage, MESSAGE_BUTTON_OK));
        QVERIFY(!Shown<TMessageDialog>(stage));
        QVERIFY(stage.console.Screen()->GetLockingWidgets().isEmpty());
    }

    void theWheelAnswersAQuestion()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        for (bool const isYes : {false, true})
        {
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-drain"))));
            QVERIFY(Shown<TMessageDialog>(stage));
            stage.time.Pass(1000);
            // The first step leaves the button at the left, the second comes back to it.
            stage.Turn(isYes ? 2 : 1);
            stage.Enter();
            QCOMPARE(stage.console.Machine().IsTankLow(), isYes);
        }
        QCOMPARE(Shown<TMessageDialog>(stage)->GetTitle(), QStringLiteral("Tank nearly empty"));
    }

    void theCalibrationIsTakenOverByItsTick()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-calibrate"))));
        auto* const window = Shown<TCalibrationWindow>(stage);
        QVERIFY(window);
        QVERIFY(stage.console.Screen()->rect().contains(window->geometry()));
        for (int i = 0; i < 5; ++i)
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("calibration-more"))));
        QCOMPARE(stage.console.Machine().FlowFactor(), 1.0);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
        QVERIFY(!window->isVisible());
        QCOMPARE(stage.console.Machine().FlowFactor(), 1.05);
    }

    void aCancelledCalibrationChangesNothing()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-calibrate"))));
        auto* const window = Shown<TCalibrationWindow>(stage);
        QVERIFY(window);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("calibration-less"))));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-cross-larger"))));
        QCOMPARE(stage.console.Machine().FlowFactor(), 1.0);
    }

    void theCalibrationStaysWithItsView()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-calibrate"))));
        auto* const window = Shown<TCalibrationWindow>(stage);
        QVERIFY(window);
        stage.ShowFull(TGuidanceModule::Id());
        QVERIFY(!window->isVisible());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(window->isVisible());
    }

    void aTapOpensALayerOfTheLegend()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        auto const layers = stage.console.Screen()->findChildren<TLegendLayer*>();
        QCOMPARE(layers.size(), 3);
        int const open = layers[0]->height();
        int const closed = layers[2]->height();
        QVERIFY(open > closed);
        QVERIFY(stage.Tap(layers[2]->findChild<TPushButton*>()));
        stage.time.Pass(1000);
        QCOMPARE(layers[2]->height(), open);
        QCOMPARE(layers[0]->height(), closed);
    }

    void aDragTurnsTheInstruments()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        auto* const pages = stage.console.Screen()->findChild<TDialPages*>()->findChild<TScrollableWidget*>();
        QWidget* const first = pages->CurrentWidget();
        QPoint const middle = stage.finger.MiddleOf(pages);
        stage.finger.Drag(middle, middle - QPoint(0, pages->height() * 2 / 3), 12);
        stage.time.Pass(1000);
        QVERIFY(pages->CurrentWidget() != first);
        QCOMPARE(pages->CurrentWidget()->pos(), QPoint());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("previous-dial"))));
        QCOMPARE(pages->CurrentWidget(), first);
    }

    void theMachinePageScrollsToItsLastRowAndKeepsTheChoice()
    {
        QTemporaryDir folder;
        {
            TStage stage(folder.path());
            QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::Equipment)));
            auto* const page = Shown<TMachinePage>(stage);
            QVERIFY(page);
            QVERIFY(page->verticalScrollBar()->maximum() > 0);
            QPoint const middle = stage.finger.MiddleOf(page);
            for (int drag = 0; drag < 5; ++drag)
                stage.finger.Drag(middle + QPoint(-330, 150), middle + QPoint(-330, -150), 10);
            QCOMPARE(page->verticalScrollBar()->value(), page->verticalScrollBar()->maximum());
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("Strong"))));
            QVERIFY(stage.Tap(stage.Button(QStringLiteral("icon-tick-larger"))));
        }
        TStage stage(folder.path());
        QCOMPARE(ConfigManager::Instance()->Read(90006).toInt(), 1);
    }

    void theStepOfTheLightBarIsThereAgain()
    {
        QTemporaryDir folder;
        {
            TStage stage(folder.path());
            QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::LightBar)));
            QVERIFY(stage.Tap(stage.Button(Quantities::Offset.Text(LightBarScale::Steps[0]))));
            QCOMPARE(stage.console.Machine().LightBarStep(), 0);
        }
        TStage stage(folder.path());
        QCOMPARE(stage.console.Machine().LightBarStep(), 0);
    }
};

COMMONUI_TEST(TConsoleDialogsTest)
#include "TConsoleDialogsTest.moc"
