#include "TConsoleMenu.h"

#include "ConsoleStage.h"
#include "EMenuControl.h"
#include "Metrics.h"
#include "SetupScreens.h"
#include "TCanvasMenuDisplay.h"
#include "TestCase.h"
#include "TestSource.h"
#include "TGnssMenu.h"
#include "TGnssModule.h"
#include "TGuidanceFullWindow.h"
#include "TGuidanceModule.h"
#include "TLightBar.h"
#include "TMapView.h"
#include "TMenuCanvas.h"
#include "TMenuManager.h"
#include "TMessageDialog.h"
#include "TMMIDef.h"
#include "TQuantity.h"
#include "TSprayerMenu.h"
#include "TSprayerModule.h"
#include "TTaskToolBar.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

namespace
{
constexpr int DragSteps = 12;

struct TFound
{
    int menuID = -1;
    TElementState element;
};

TFound Find(TMenuManager const& manager, QString const& path)
{
    std::vector<TMenuStateCopy> const menus = manager.GetAllMenuElements();
    for (TMenuStateCopy const& menu : menus)
    {
        for (TElementState const& element : menu.elements)
        {
            if (element.GetMMIDef().ToPath(true, QLatin1Char('/')) == path)
                return {menu.menuID, element};
        }
    }
    return {};
}

QStringList Paths(TMenuManager const& manager)
{
    QStringList paths;
    std::vector<TMenuStateCopy> const menus = manager.GetAllMenuElements();
    for (TMenuStateCopy const& menu : menus)
    {
        for (TElementState const& element : menu.elements)
            paths.append(element.GetMMIDef().ToPath(true, QLatin1Char('/')));
    }
    return paths;
}

bool HasYellow(QWidget* bar)
{
    QImage const picture = bar->grab().toImage();
    for (int x = 0; x < picture.width(); ++x)
    {
        if (picture.pixelColor(x, picture.height() / 2) == QColor(245, 205, 60))
            return true;
    }
    return false;
}

/// A console whose menus an operator presses.
struct TMenuStage : TStage
{
    explicit TMenuStage(QString const& folder)
        : TStage(folder)
    {
    }
    TMenuManager& Menus() { return *console.Shell().GetMenuManager(); }
    TMachine& Machine() { return console.Machine(); }
    TElementState Element(char const* path) { return Find(Menus(), QLatin1String(path)).element; }
    int Control(char const* path) { return Element(path).GetControlID(); }
    /// As from its button, wherever that is.
    void Activate(char const* path)
    {
        TFound const found = Find(Menus(), QLatin1String(path));
        Menus().ElementActivated(found.menuID, found.element.GetID());
        time.Pass(SettleTime);
    }
    bool IsOpen(char const* path)
    {
        int const menu = Element(path).GetActivationConfig().GetMenuToToggle();
        return Menus().GetMenuDisplayState(menu).isShown;
    }
    /// A button of a menu or a shortcut.
    TPushButton* MenuButton(char const* name) const
    {
        auto const buttons = console.Screen()->findChildren<TPushButton*>(QLatin1String(name));
        for (TPushButton* const button : buttons)
        {
            if (button->isVisible() && qobject_cast<TTaskToolBar*>(button->parentWidget()))
                return button;
        }
        return nullptr;
    }
    void DragOffRight(KVN::MorvaneID const& id)
    {
        QPoint const from = finger.MiddleOf(NavigationButton(id));
        finger.Drag(from, from + QPoint(2 * NAVBAR_WIDTH, 0), DragSteps);
        time.Pass(SettleTime);
    }
    TMenuCanvas* Canvas() const
    {
        auto const canvases = console.Screen()->findChildren<TMenuCanvas*>();
        for (TMenuCanvas* const canvas : canvases)
        {
            if (canvas->isVisible())
                return canvas;
        }
        return nullptr;
    }
};

/// The menus of a module without the console around them.
struct TBench
{
    TBench()
        : source(new TTestSource)
        , machine(std::unique_ptr<IPositionSource>(source))
    {
        console.RegisterViews(nullptr);
    }
    TElementState Element(char const* path) const { return Find(manager, QLatin1String(path)).element; }

    TTestSource* source;
    TMachine machine;
    TMenuManager manager;
    TConsoleMenu console{&manager};
};

struct TRow
{
    char const* path;
    EElementHideMode hideMode;
};

constexpr TRow Rows[] = {
    {"guidance", ELEMENT_HIDE_NONE},
    {"sprayer", ELEMENT_HIDE_NONE},
    {"position", ELEMENT_HIDE_NONE},
    {"record", ELEMENT_HIDE_NONE},
    {"master", ELEMENT_HIDE_NONE},
    {"guidance/record", ELEMENT_HIDE_NONE},
    {"guidance/lines", ELEMENT_HIDE_NONE},
    {"guidance/map", ELEMENT_HIDE_NONE},
    {"guidance/lines/line-shift-left", ELEMENT_HIDE_NONE},
    {"guidance/lines/line-shift-right", ELEMENT_HIDE_NONE},
    {"guidance/lines/line-centre", ELEMENT_HIDE_MENU},
    {"guidance/map/zoom-in", ELEMENT_HIDE_NONE},
    {"guidance/map/zoom-out", ELEMENT_HIDE_NONE},
    {"guidance/map/far-view", ELEMENT_HIDE_ALL},
    {"sprayer/master", ELEMENT_HIDE_NONE},
    {"sprayer/sections", ELEMENT_HIDE_NONE},
    {"sprayer/all-sections", ELEMENT_HIDE_NONE},
    {"sprayer/tank", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-1", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-2", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-3", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-4", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-5", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-6", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-7", ELEMENT_HIDE_NONE},
    {"sprayer/sections/section-8", ELEMENT_HIDE_NONE},
    {"sprayer/tank/tank-fill", ELEMENT_HIDE_MENU},
    {"sprayer/tank/tank-drain", ELEMENT_HIDE_ALL},
    {"position/fix-quality", ELEMENT_HIDE_ALL},
    {"position/satellites", ELEMENT_HIDE_NONE},
    {"position/satellites/sky-plot", ELEMENT_HIDE_MENU},
    {"position/satellites/fix-numbers", ELEMENT_HIDE_MENU},
    {"position/satellites/signals", ELEMENT_HIDE_ALL},
};
} // namespace

/// What the modules offer in the menus of the console.
class TConsoleMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allElementsAreThereAndHideWhatTheyShould()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        QStringList expected;
        for (TRow const& row : Rows)
        {
            expected.append(QLatin1String(row.path));
            TElementState const element = stage.Element(row.path);
            QVERIFY2(element.GetActivationConfig().GetHideMode() == row.hideMode, row.path);
            QVERIFY2(!element.GetName().isEmpty() && element.IsVisible(), row.path);
        }
        QStringList found = Paths(stage.Menus());
        found.sort();
        expected.sort();
        QCOMPARE(found, expected);
    }

    void theRootMenuIsOpenAndHoldsTheShortcutsAtItsEnd()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        int const root = stage.Menus().GetRootMenuID();
        QCOMPARE(stage.Menus().GetMenuShownOrder(), QList<int>{root});
        QStringList names;
        QStringList shortcuts;
        std::vector<TElementState> const elements = stage.Menus().GetElementsState(root);
        for (TElementState const& element : elements)
        {
            QString const name = element.GetMMIDef().ToPath(true, QLatin1Char('/'));
            names.append(name);
            if (element.IsShortcut())
                shortcuts.append(name);
        }
        QCOMPARE(names, QStringList({"guidance", "sprayer", "position", "record", "master"}));
        QCOMPARE(shortcuts, QStringList({"position", "record", "master"}));
    }

    // Touch

    void aShortcutSwitchesWithTheMenusFoldedAway()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        for (bool const isOn : {false, true})
        {
            QVERIFY(stage.Tap(stage.MenuButton("record")));
            QVERIFY(stage.Tap(stage.MenuButton("master")));
            QCOMPARE(stage.Machine().IsRecording(), isOn);
            QCOMPARE(stage.Machine().IsMasterOn(), isOn);
            QCOMPARE(stage.Control("record"), int(isOn ? MENU_CONTROL_ON : MENU_CONTROL_PLAIN));
            QCOMPARE(stage.Control("guidance/record"), stage.Control("record"));
            QCOMPARE(stage.Control("master"), int(isOn ? MENU_CONTROL_GOOD : MENU_CONTROL_BAD));
            QCOMPARE(stage.Control("sprayer/master"), stage.Control("master"));
        }
    }

    void aFingerShiftsTheLinesThreeMenusDeep()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        QVERIFY(stage.Tap(stage.Button(QLatin1String(TCanvasMenuDisplay::FoldButtonName))));
        QVERIFY(stage.Tap(stage.MenuButton("guidance")));
        QVERIFY(stage.Tap(stage.MenuButton("lines")));
        QVERIFY(!stage.MenuButton("line-centre")->isEnabled());
        QVERIFY(stage.Tap(stage.MenuButton("line-shift-right")));
        QVERIFY(stage.Tap(stage.MenuButton("line-shift-right")));
        QVERIFY(stage.Tap(stage.MenuButton("line-shift-left")));
        QCOMPARE(stage.Machine().LineShift(), TMachine::LineShiftStep);
        QVERIFY(stage.Tap(stage.MenuButton("line-centre")));
        QCOMPARE(stage.Machine().LineShift(), 0.0);
        QVERIFY(!stage.IsOpen("guidance/lines"));
        QVERIFY(stage.IsOpen("guidance"));
    }

    void aSectionIsSwitchedInItsMenuAndShownInTheWindow()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        QVERIFY(stage.Tap(stage.Button(QLatin1String(TCanvasMenuDisplay::FoldButtonName))));
        QVERIFY(stage.Tap(stage.MenuButton("sprayer")));
        QVERIFY(stage.Tap(stage.MenuButton("sections")));
        QVERIFY(stage.Tap(stage.MenuButton("section-4")));
        QVERIFY(!stage.Machine().IsSectionOn(3));
        QCOMPARE(stage.Control("sprayer/sections/section-4"), int(MENU_CONTROL_BAD));
        QCOMPARE(stage.Element("sprayer/sections/section-4").GetName(), QStringLiteral("Section 4"));
        QVERIFY(stage.IsOpen("sprayer/sections"));
        QVERIFY(stage.Tap(stage.MenuButton("all-sections")));
        QVERIFY(stage.Machine().IsSectionOn(3));
        QVERIFY(!stage.MenuButton("all-sections")->isEnabled());
    }

    void aMacroPathLeadsThreeMenusDeep()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        TMMIDef const def = stage.Element("sprayer/sections/section-6").GetMMIDef();
        QVERIFY(stage.Canvas()->GetMenuDisplay()->FollowPath(def, nullptr, QString()));
        stage.time.Pass(4 * SettleTime);
        QVERIFY(!stage.Machine().IsSectionOn(5));
        QVERIFY(stage.IsOpen("sprayer/sections"));
    }

    // What the elements do

    void theMapFollowsItsMenu()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        stage.Activate("guidance");
        stage.Activate("guidance/map");
        stage.Activate("guidance/map/zoom-in");
        QVERIFY(!stage.Element("guidance/map/zoom-in").IsEnabled());
        QVERIFY(!stage.Button(QStringLiteral("icon-zoom-in"))->isEnabled());
        stage.Activate("guidance/map/zoom-out");
        QVERIFY(stage.Element("guidance/map/zoom-in").IsEnabled());
        QVERIFY(stage.IsOpen("guidance/map"));
        stage.Activate("guidance/map/far-view");
        QVERIFY(!stage.Element("guidance/map/zoom-out").IsEnabled());
        QVERIFY(!stage.Button(QStringLiteral("icon-zoom-out"))->isEnabled());
        QCOMPARE(stage.Menus().GetMenuShownOrder(), QList<int>{stage.Menus().GetRootMenuID()});
        QVERIFY(stage.MenuButton("record"));
    }

    void theMenuFollowsTheButtonsOfTheMapAtOnce()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        QWidget* const in = stage.Button(QStringLiteral("icon-zoom-in"));
        QWidget* const out = stage.Button(QStringLiteral("icon-zoom-out"));
        // Whatever moves must not bring the menu up to date by the way.
        QObject::disconnect(&stage.Machine(), &TMachine::Moved, nullptr, nullptr);
        QVERIFY(stage.finger.Tap(in));
        stage.time.Pass(0);
        QVERIFY(!stage.Element("guidance/map/zoom-in").IsEnabled());
        for (int level = TMapView::ZoomLevelCount - 1; level > 0; --level)
        {
            QVERIFY(stage.Element("guidance/map/zoom-out").IsEnabled());
            QVERIFY(stage.finger.Tap(out));
            stage.time.Pass(0);
            QVERIFY(stage.Element("guidance/map/zoom-in").IsEnabled());
        }
        QVERIFY(!stage.Element("guidance/map/zoom-out").IsEnabled());
    }

    void theTankIsFilledAtOnceAndDrainedAfterAQuestion()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        stage.Machine().SetMasterOn(false);
        stage.Activate("sprayer/tank/tank-fill");
        QCOMPARE(stage.Machine().TankLitres(), stage.Machine().TankSize());
        QVERIFY(!stage.Element("sprayer/tank/tank-fill").IsEnabled());
        stage.Activate("sprayer/tank/tank-drain");
        QCOMPARE(stage.Machine().TankLitres(), stage.Machine().TankSize());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("Yes"))));
        QCOMPARE(stage.Machine().TankLitres(), 0.0);
        QCOMPARE(stage.Control("sprayer/tank"), int(MENU_CONTROL_BAD));
        QVERIFY(!stage.Element("sprayer/tank/tank-drain").IsEnabled());
    }

    void theSatellitesAreShownWhereverTheyCanBe()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        int const fix = stage.IdOf(TGnssModule::Id());
        for (int i = 0; i < 2; ++i)
        {
            stage.Activate("position/satellites/sky-plot");
            QCOMPARE(stage.Manager()->GetMiniViewState(fix + 1), MINI_VIEW_SHOWN);
        }
        stage.Activate("position/satellites/fix-numbers");
        QCOMPARE(stage.Manager()->GetMiniViewState(fix), MINI_VIEW_SHOWN);
        stage.Activate("position/satellites/signals");
        QCOMPARE(stage.Manager()->GetFullViewId(), fix);
        stage.ShowFull(TGuidanceModule::Id());
        stage.Activate("position/fix-quality");
        QCOMPARE(stage.Manager()->GetFullViewId(), fix);
    }

    void theMapThatIsZoomedIsBroughtUp_data()
    {
        QTest::addColumn<QByteArray>("element");
        for (char const* const element : {"zoom-in", "zoom-out", "far-view"})
            QTest::newRow(element) << QByteArray("guidance/map/") + element;
    }

    void theMapThatIsZoomedIsBroughtUp()
    {
        QFETCH(QByteArray, element);
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        auto const* const window = stage.console.Screen()->findChild<TGuidanceFullWindow*>();
        int const before = window->ZoomLevel();
        stage.ShowFull(TSprayerModule::Id());
        stage.Activate(element.constData());
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
        QVERIFY(window->isVisible());
        QVERIFY(window->ZoomLevel() != before);
    }

    void aQuestionIsAnsweredBeforeAnythingElse()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        stage.ShowFull(TSprayerModule::Id());
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("sprayer-drain"))));
        stage.DragOffRight(TGuidanceModule::Id());
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TSprayerModule::Id()));
        // Wherever the view comes from, it stands over it, and nothing asks twice.
        stage.ShowFull(TGuidanceModule::Id());
        stage.Activate("sprayer/tank/tank-drain");
        QCOMPARE(stage.console.Screen()->findChildren<TMessageDialog*>().size(), 1);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("Yes"))));
        QCOMPARE(stage.Machine().TankLitres(), 0.0);
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger"))); // the warning
        stage.DragOffRight(TSprayerModule::Id());
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TSprayerModule::Id()));
    }

    void aCoveredMiniWindowComesUp()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        int const fix = stage.IdOf(TGnssModule::Id());
        int const sprayer = stage.IdOf(TSprayerModule::Id());
        int slot = 0;
        while (!stage.Manager()->GetSlot(slot).contains(fix))
            QVERIFY(++slot < TWindowManager::GetSlotCount());
        stage.Manager()->OnHideMiniView(sprayer, true);
        stage.time.Pass(SettleTime);
        stage.Manager()->DisplayMiniView(slot, sprayer);
        stage.time.Pass(SettleTime);
        QVERIFY(stage.Manager()->IsMiniViewObscured(fix));
        stage.Activate("position/satellites/fix-numbers");
        QVERIFY(!stage.Manager()->IsMiniViewObscured(fix));
        QCOMPARE(stage.Manager()->GetMiniViewState(fix), MINI_VIEW_SHOWN);
    }

    void aFullViewThatIsUpStaysAsItIs()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        for (char const* const element : {"position/fix-quality", "position/satellites/signals"})
            stage.Activate(element);
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGnssModule::Id()));
        // The way back leads to where the operator came from.
        stage.Manager()->OnRestoreLastView();
        QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TGuidanceModule::Id()));
    }

    // What the threads change

    void theElementsFollowTheMachine()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        QCOMPARE(stage.Control("position"), int(MENU_CONTROL_GOOD));
        QCOMPARE(stage.Control("sprayer/sections/section-1"), int(MENU_CONTROL_GOOD));
        stage.Machine().SetSectionOn(0, false);
        stage.Machine().SetRecording(false);
        stage.Machine().SetMasterOn(false);
        stage.Machine().ShiftLines(1.0);
        stage.time.Pass(0);
        QCOMPARE(stage.Control("sprayer/sections/section-1"), int(MENU_CONTROL_BAD));
        QCOMPARE(stage.Control("sprayer/sections"), int(MENU_CONTROL_FAIR));
        QCOMPARE(stage.Control("record"), int(MENU_CONTROL_PLAIN));
        QCOMPARE(stage.Control("master"), int(MENU_CONTROL_BAD));
        QCOMPARE(stage.Control("guidance/lines"), int(MENU_CONTROL_BAD));
    }

    void theStepOfTheLightBarHoldsForBarAndMenuAtOnce()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        stage.Machine().ShiftLines(stage.Machine().OffLine() + 0.19);
        stage.time.Pass(SettleTime);
        auto* const bar = stage.console.Screen()->findChild<TLightBar*>();
        QVERIFY(HasYellow(bar));
        QCOMPARE(stage.Control("guidance/lines"), int(MENU_CONTROL_FAIR));
        QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::LightBar)));
        QVERIFY(stage.Tap(stage.Button(Quantities::Offset.Text(LightBarScale::Steps[2]))));
        QCOMPARE(stage.Control("guidance/lines"), int(MENU_CONTROL_GOOD));
        stage.ShowFull(TGuidanceModule::Id());
        QVERIFY(!HasYellow(bar));
    }

    void linesAtTheirEndAreNotOfferedToGoOn()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        for (bool const isRight : {true, false})
        {
            stage.Machine().ShiftLines((isRight ? 2.0 : -2.0) * TMachine::LargestLineShift);
            stage.time.Pass(0);
            QCOMPARE(stage.Element("guidance/lines/line-shift-right").IsEnabled(), !isRight);
            QCOMPARE(stage.Element("guidance/lines/line-shift-left").IsEnabled(), isRight);
        }
    }

    // As shortcuts in the modules' own menus would make of it.
    void aMenuThatWasOpenedStaysWhateverChangesElsewhere()
    {
        QTemporaryDir folder;
        TMenuStage stage(folder.path());
        for (char const* const menu : {"guidance", "sprayer", "position"})
        {
            stage.Activate(menu);
            stage.Machine().SetRecording(!stage.Machine().IsRecording());
            stage.Machine().SetMasterOn(!stage.Machine().IsMasterOn());
            stage.time.Pass(SettleTime);
            QVERIFY2(stage.IsOpen(menu), menu);
            QCOMPARE(stage.Menus().GetMenuShownOrder().size(), 2);
        }
    }

    void theSwitchesOfAThousandMomentsEndWithTheLast()
    {
        TBench bench;
        TSprayerMenu const menu(&bench.machine, &bench.console);
        for (int i = 0; i < 1001; ++i)
            bench.machine.SetMasterOn(i % 2 == 1);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("master").GetControlID(), int(MENU_CONTROL_BAD));
        // And without anybody who waits for the thread.
        bench.machine.SetMasterOn(true);
        QTRY_COMPARE(bench.Element("master").GetControlID(), int(MENU_CONTROL_GOOD));
    }

    void theQualityIsJudgedOverTheLastFixes()
    {
        TBench bench;
        TGnssMenu const menu(bench.machine, &bench.console);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_BAD));
        for (int i = 0; i < 3 * TGnssJudge::Window; ++i)
            bench.source->Say({0.0, -double(i)}, 0.0);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_GOOD));
        TFix fix = bench.machine.Fix();
        fix.quality = FIX_GNSS;
        for (int i = 0; i < TGnssJudge::StrayPerTen; ++i)
            Q_EMIT bench.source->FixChanged(fix);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_GOOD));
        Q_EMIT bench.source->FixChanged(fix);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.Element("position/fix-quality").GetName(), QStringLiteral("GNSS"));
    }

    void garbageFromTheReceiverIsNoFix_data()
    {
        QTest::addColumn<TFix>("fix");
        TFix fix;
        QTest::newRow("nothing at all") << fix;
        fix.satellitesUsed = 12;
        fix.latitude = 48.0;
        QTest::newRow("without quality") << fix;
        fix.quality = FIX_RTK;
        fix.latitude = qQNaN();
        QTest::newRow("no number") << fix;
        fix = TFix();
        fix.quality = FIX_RTK;
        fix.speed = qInf();
        QTest::newRow("endless") << fix;
        fix = TFix();
        fix.quality = static_cast<EFixQuality>(77);
        QTest::newRow("an unknown quality") << fix;
    }

    void garbageFromTheReceiverIsNoFix()
    {
        QFETCH(TFix, fix);
        TBench bench;
        TGnssMenu const position(bench.machine, &bench.console);
        TSprayerMenu const sprayer(&bench.machine, &bench.console);
        bench.source->Say({0.0, 0.0}, 0.0);
        Q_EMIT bench.source->FixChanged(fix);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.Element("position/fix-quality").GetName(), QStringLiteral("no fix"));
        bench.source->Say({0.0, -1.0}, 0.0);
        bench.console.WaitForWorkers();
        QCOMPARE(bench.Element("position").GetControlID(), int(MENU_CONTROL_GOOD));
    }

    // The end

    void theMenusOfAModuleGoWithIt()
    {
        TBench bench;
        {
            TSprayerMenu const sprayer(&bench.machine, &bench.console);
            TGnssMenu const position(bench.machine, &bench.console);
            QVERIFY(bench.manager.GetMenus().size() > 1);
            for (int i = 0; i < 1000; ++i)
                bench.machine.SetSectionOn(i % TBoom::SectionCount, i % 3 == 0);
        }
        QCOMPARE(bench.manager.GetMenus().size(), size_t(1));
        QVERIFY(bench.console.Root()->GetElementsState().empty());
        QCoreApplication::processEvents();
        bench.machine.SetMasterOn(false);
        bench.console.WaitForWorkers();
    }

    void aModuleThatReturnsStandsBeforeTheShortcuts()
    {
        TBench bench;
        TMenuSet other(&bench.console);
        other.AddToRoot({QStringLiteral("other"), QStringLiteral("Other"), {}}, true);
        other.AddShortcut({QStringLiteral("switch"), QStringLiteral("Switch"), {}}, TActivationConfig());
        for (int i = 0; i < 3; ++i)
        {
            TSprayerMenu const sprayer(&bench.machine, &bench.console);
            QStringList const root =
                Paths(bench.manager).filter(QRegularExpression(QStringLiteral("^[^/]*$")));
            QCOMPARE(root, QStringList({"other", "sprayer", "switch", "master"}));
        }
    }

    void aThreadThatLooksAtTheMenusMeetsNoneThatIsGoing()
    {
        TBench bench;
        std::atomic<bool> isOver{false};
        std::thread looker(
            [&bench, &isOver]
            {
                while (!isOver)
                    bench.manager.GetAllMenuElements();
            });
        for (int i = 0; i < 300; ++i)
            TSprayerMenu const sprayer(&bench.machine, &bench.console);
        isOver = true;
        looker.join();
        QCOMPARE(bench.manager.GetAllMenuElements().size(), size_t(1));
    }

    void theOtherMenusStayOpenToTheirEnd()
    {
        TBench bench;
        auto sprayer = std::make_unique<TSprayerMenu>(&bench.machine, &bench.console);
        TGnssMenu const position(bench.machine, &bench.console);
        TFound const opener = Find(bench.manager, QStringLiteral("sprayer"));
        bench.manager.ElementActivated(opener.menuID, opener.element.GetID());
        TFound const master = Find(bench.manager, QStringLiteral("sprayer/master"));
        bench.manager.ElementActivated(master.menuID, master.element.GetID());
        sprayer.reset();
        QCoreApplication::processEvents();
        // What had been pressed is not delivered to anybody.
        QVERIFY(bench.machine.IsMasterOn());
        QCOMPARE(Paths(bench.manager).filter(QStringLiteral("sprayer")), QStringList());
        QCOMPARE(bench.manager.GetMenuShownOrder(), QList<int>{bench.manager.GetRootMenuID()});
        QVERIFY(!bench.Element("position").GetName().isEmpty());
    }

    void aConsoleStopsWhileItsThreadsWork()
    {
        for (int round = 0; round < 5; ++round)
        {
            QTemporaryDir folder;
            TMenuStage stage(folder.path());
            stage.Activate("sprayer");
            stage.Activate("sprayer/sections");
            for (int i = 0; i < 500; ++i)
            {
                stage.Machine().SetSectionOn(i % TBoom::SectionCount, i % 3 == 0);
                stage.Machine().SetRecording(i % 2 == 0);
            }
            stage.console.Shell().Stop();
            stage.console.WaitForWorkers();
            stage.Machine().SetMasterOn(false);
        }
    }
};

COMMONUI_TEST(TConsoleMenuTest)
#include "TConsoleMenuTest.moc"
