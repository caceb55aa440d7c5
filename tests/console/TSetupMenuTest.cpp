#include "ConfigManager.h"
#include "ConsoleStage.h"
#include "Metrics.h"
#include "SetupScreens.h"
#include "TConfigMenu.h"
#include "TConfigMenuElement.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TMachinePage.h"
#include "TMachineSetupWindow.h"
#include "TSoundPage.h"

#include <QDomDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace
{
constexpr int SlideTime = 160;
constexpr int Width = 900;

QString Path(char const* path)
{
    return QLatin1String(path);
}

/// A menu with two groups, one of which has a group of its own, in a window that gives it its height.
struct TMenuStage
{
    TMenuStage()
        : menu(new TSetupMenu(&window))
    {
        window.resize(Width, 600);
        QObject::connect(menu, &TSetupMenu::HeightChanged, &window, [this] { Arrange(); });
        QObject::connect(menu, &TSetupMenu::ScreenChanged, &window,
                         [this](QString const& path) { screens << path; });
        Add(true, "field");
        Add(false, "field/lines");
        Add(true, "field/boom");
        Add(false, "field/boom/left");
        Add(false, "field/boom/right");
        Add(true, "console");
        Add(false, "console/sound");
        Add(false, "console/units");
        Add(false, "about");
        for (char const* const path : {"field/lines", "field/boom/left", "field/boom/right", "console/sound",
                                       "console/units", "about"})
            menu->SetScreenAvailable(Path(path), true);
        Arrange();
        window.show();
    }

    void Add(bool isGroup, char const* path)
    {
        if (isGroup)
            menu->AddGroup(Path(path), Path(path), Path("group"));
        else
            menu->AddScreen(Path(path), Path(path), Path("screen"));
    }
    void Arrange()
    {
        int const height = menu->sizeHint().height();
        menu->setGeometry(0, 600 - height, Width, height);
    }
    TConfigMenuElement* Element(char const* path) const
    {
        return menu->findChild<TConfigMenuElement*>(QStringLiteral("setup/") + Path(path));
    }
    TConfigMenu* Row(char const* path) const
    {
        return menu->findChild<TConfigMenu*>(QStringLiteral("setup/") + Path(path));
    }
    /// From the lower edge of the window.
    int Height(char const* path) const { return 600 - Row(path)->mapTo(menu->window(), QPoint()).y(); }
    void Click(char const* path)
    {
        Element(path)->click();
        time.Pass(2 * SlideTime);
    }

    TVirtualTime time;
    QWidget window;
    TSetupMenu* menu;
    QStringList screens;
};

/// What the whole program draws and is woken for, as long as it lives.
class TEventCount : public QObject
{
public:
    TEventCount() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        Q_UNUSED(watched)
        paints += event->type() == QEvent::Paint ? 1 : 0;
        timers += event->type() == QEvent::Timer ? 1 : 0;
        return false;
    }

    int paints = 0;
    int timers = 0;
};

/// What a layout that was kept holds of the setup.
QDomElement Snapshot(QDomDocument& document, QString const& page)
{
    QDomElement element = document.createElement(QStringLiteral("Window"));
    element.setAttribute(QStringLiteral("Page"), page);
    return element;
}
// Those included that this console has not: what has no row of its own.
int CountScreens(TSetupMenu const& menu)
{
    QStringList names;
    auto const elements = menu.findChildren<TConfigMenuElement*>();
    for (TConfigMenuElement const* const element : elements)
        names.append(element->objectName());
    return int(std::count_if(names.cbegin(), names.cend(),
                             [&names](QString const& name)
                             {
                                 return names
                                     .filter(QRegularExpression(QLatin1Char('^') +
                                                                QRegularExpression::escape(name) +
                                                                QLatin1Char('/')))
                                     .isEmpty();
                             }));
}

QStringList AllPages()
{
    return {SetupScreens::Steering, SetupScreens::Receiver, SetupScreens::Equipment, SetupScreens::Tank,
            SetupScreens::Sections, SetupScreens::Nozzles,  SetupScreens::LightBar,  SetupScreens::Job,
            SetupScreens::Buttons,  SetupScreens::Sound,    SetupScreens::Units,     SetupScreens::Language,
            SetupScreens::Clock,    SetupScreens::About};
}
} // namespace

/// The menu of the setup: alone, and in the console.
class TSetupMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTouchOpensAGroupAndItsFirstScreen()
    {
        TMenuStage stage;
        stage.Click("about");
        QCOMPARE(stage.menu->Screen(), Path("about"));
        QCOMPARE(stage.menu->LevelCount(), 1);
        stage.Click("console");
        QCOMPARE(stage.menu->Screen(), Path("console/sound"));
        QVERIFY(stage.Element("console/sound")->IsSelected());
        QCOMPARE(stage.menu->LevelCount(), 2);
        stage.Click("field");
        stage.Click("field/boom");
        QCOMPARE(stage.menu->Screen(), Path("field/boom/left"));
        QCOMPARE(stage.menu->LevelCount(), 3);
        stage.Click("field/boom/left");
        QCOMPARE(stage.screens, QStringList({Path("about"), Path("console/sound"), Path("field/lines"),
                                             Path("field/boom/left")}));
    }

    void levelsStandAboveEachOther()
    {
        TMenuStage stage;
        stage.Click("field");
        stage.Click("field/boom");
        QCOMPARE(stage.Height(""), TSetupMenu::RowHeight);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER);
        QCOMPARE(stage.Height("field/boom"), TSetupMenu::RowHeight + 2 * LEVEL_SPACER);
        QCOMPARE(stage.menu->height(), TSetupMenu::RowHeight + 2 * LEVEL_SPACER);
        QVERIFY(TSetupMenu::RowHeight >= MIN_MENU_HEIGHT && TSetupMenu::RowHeight <= MAX_MENU_HEIGHT);
        for (char const* const row : {"", "field", "field/boom"})
            QCOMPARE(stage.Row(row)->width(), Width);
    }

    void aRowSlidesOutFromBehindTheOneBelow()
    {
        TMenuStage stage;
        stage.Element("field")->click();
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight);
        QVERIFY(stage.Row("field")->isVisible());
        int before = stage.Height("field");
        for (int ms = 20; ms < SlideTime; ms += 20)
        {
            stage.time.Pass(20);
            QCOMPARE(stage.Height("field"),
                     TSetupMenu::RowHeight + qRound(double(ms) / SlideTime * LEVEL_SPACER));
            QVERIFY(stage.Height("field") > before);
            before = stage.Height("field");
        }
        stage.time.Pass(20);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER);
        // The row below covers it.
        QObjectList const rows = stage.menu->children();
        QVERIFY(rows.indexOf(stage.Row("field")) < rows.indexOf(stage.Row("")));
    }

    void aRowSlidesBackAndItsRoomGoesLast()
    {
        TMenuStage stage;
        stage.Click("field");
        stage.Click("field/boom");
        stage.Element("about")->click();
        stage.time.Pass(80);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER / 2);
        QCOMPARE(stage.Height("field/boom"), TSetupMenu::RowHeight + LEVEL_SPACER);
        QCOMPARE(stage.menu->LevelCount(), 3);
        QCOMPARE(stage.menu->Screen(), Path("about"));
        stage.time.Pass(80);
        QVERIFY(!stage.Row("field")->isVisible());
        QVERIFY(!stage.Row("field/boom")->isVisible());
        QCOMPARE(stage.menu->LevelCount(), 1);
        QCOMPARE(stage.menu->height(), int(TSetupMenu::RowHeight));
    }

    void aRowThatIsOpenedAgainOnItsWayOutComesBack()
    {
        TMenuStage stage;
        stage.Click("field");
        stage.Element("about")->click();
        stage.time.Pass(80);
        stage.Element("field")->click();
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER / 2);
        stage.time.Pass(80);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER);
        stage.time.Pass(SlideTime);
        QVERIFY(stage.Row("field")->isVisible());
    }

    void rowsCrossWhenTheGroupChanges()
    {
        TMenuStage stage;
        stage.Click("field");
        stage.Element("console")->click();
        stage.time.Pass(40);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER * 3 / 4);
        QCOMPARE(stage.Height("console"), TSetupMenu::RowHeight + LEVEL_SPACER / 4);
        stage.time.Pass(SlideTime);
        QVERIFY(!stage.Row("field")->isVisible());
        QVERIFY(stage.Row("console")->isVisible());
    }

    void unseenRowsAreInPlaceAtOnce()
    {
        TMenuStage stage;
        stage.Element("field")->click();
        stage.window.hide();
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER);
        QVERIFY(stage.menu->ShowScreen(Path("field/boom/right")));
        stage.window.show();
        QCOMPARE(stage.Height("field/boom"), TSetupMenu::RowHeight + 2 * LEVEL_SPACER);
        QCOMPARE(stage.menu->LevelCount(), 3);
    }

    void aRowMovesWithTheTimeAndNotWithTheFrames()
    {
        TMenuStage stage;
        TManualClock clock;
        stage.Element("field")->click();
        stage.time.Pass(200); // frames without time
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight);
        clock.Advance(80);
        stage.time.Pass(20);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER / 2);
        clock.Advance(100000);
        stage.time.Pass(20);
        QCOMPARE(stage.Height("field"), TSetupMenu::RowHeight + LEVEL_SPACER);
    }

    void aMenuAtRestDrawsNothingAndWakesNobody()
    {
        TMenuStage stage;
        stage.Click("field");
        stage.time.Pass(1000);
        TEventCount count;
        stage.time.Pass(1000);
        QCOMPARE(count.paints, 0);
        QCOMPARE(count.timers, 0);
        stage.Element("about")->click();
        stage.time.Pass(20);
        QVERIFY(count.paints > 0 && count.timers > 0);
    }

    void aFingerSlidesToTheGroupItMeans()
    {
        TMenuStage stage;
        TVirtualOperator finger(&stage.window, [&stage](int ms) { stage.time.Pass(ms); });
        QPoint const from = finger.MiddleOf(stage.Element("field"));
        QPoint const to = finger.MiddleOf(stage.Element("about"));
        finger.Drag(from, to, 8);
        QCOMPARE(stage.screens, QStringList{Path("about")});
    }

    void theWheelPagesThroughAllScreens()
    {
        TMenuStage stage;
        QStringList const all = stage.menu->AvailableScreens();
        QCOMPARE(all.size(), 6);
        for (int i = 0; i < 8; ++i)
            stage.menu->OnMMIWheelRight();
        QCOMPARE(stage.screens, all);
        stage.screens.clear();
        for (int i = 0; i < 8; ++i)
            stage.menu->OnMMIWheelLeft();
        QStringList back = all;
        std::reverse(back.begin(), back.end());
        back.removeFirst();
        QCOMPARE(stage.screens, back);
    }

    void aGroupOfOneScreenHasNoRow()
    {
        TMenuStage stage;
        stage.menu->SetScreenAvailable(Path("console/sound"), false);
        stage.Click("console");
        QCOMPARE(stage.menu->Screen(), Path("console/units"));
        QCOMPARE(stage.menu->LevelCount(), 1);
        QVERIFY(stage.menu->ShowScreen(Path("about")));
        QVERIFY(stage.menu->ShowScreen(Path("console/units")));
        QCOMPARE(stage.menu->LevelCount(), 1);
        // Another screen brings its row, and changes nothing else.
        stage.screens.clear();
        stage.menu->SetScreenAvailable(Path("console/sound"), true);
        stage.time.Pass(2 * SlideTime);
        QCOMPARE(stage.menu->LevelCount(), 2);
        QCOMPARE(stage.menu->Screen(), Path("console/units"));
        QVERIFY(stage.Element("console/units")->IsSelected());
        QVERIFY(stage.screens.isEmpty());
    }

    void aGroupWithoutScreensIsNotSeen()
    {
        TMenuStage stage;
        stage.menu->SetScreenAvailable(Path("field/boom/left"), false);
        QVERIFY(!stage.Element("field/boom")->isHidden());
        stage.menu->SetScreenAvailable(Path("field/boom/right"), false);
        QVERIFY(stage.Element("field/boom")->isHidden());
        QVERIFY(stage.Element("field")->isVisible());
        stage.menu->SetScreenAvailable(Path("field/lines"), false);
        QVERIFY(!stage.Element("field")->isVisible());
        stage.menu->SetScreenAvailable(Path("field/boom/right"), true);
        QVERIFY(stage.Element("field")->isVisible());
        QVERIFY(!stage.Element("field/boom")->isHidden());
    }

    void wrongPathsAreIgnored()
    {
        TMenuStage stage;
        stage.Add(false, "nowhere/screen");
        stage.Add(true, "nowhere/group");
        stage.Add(false, "about");
        stage.Add(true, "field");
        stage.Add(false, "about/below");
        stage.menu->SetScreenAvailable(Path("field"), false);
        stage.menu->SetScreenAvailable(Path("nowhere/screen"), true);
        QCOMPARE(stage.menu->AvailableScreens().size(), 6);
        stage.menu->ShowScreen(Path("about"));
        for (char const* const path : {"", "/", "field", "field/", "field/boom", "nowhere", "about/", "//a"})
            QVERIFY(!stage.menu->ShowScreen(Path(path)));
        QCOMPARE(stage.menu->Screen(), Path("about"));
    }

    void aScreenIsShownFromAnyOther()
    {
        TMenuStage stage;
        QStringList const all = stage.menu->AvailableScreens();
        for (QString const& from : all)
        {
            for (QString const& to : all)
            {
                QVERIFY(stage.menu->ShowScreen(from));
                QVERIFY(stage.menu->ShowScreen(to));
                QCOMPARE(stage.menu->Screen(), to);
                int selected = 0;
                auto const elements = stage.menu->findChildren<TConfigMenuElement*>();
                for (TConfigMenuElement const* const element : elements)
                    selected += element->IsSelected() ? 1 : 0;
                QCOMPARE(selected, to.count(QLatin1Char('/')) + 1);
            }
        }
    }

    void itDiesWhileRowsSlideAndInItsOwnSlot()
    {
        TMenuStage sliding;
        sliding.Element("field")->click();
        sliding.time.Pass(40);
        delete sliding.menu;
        TMenuStage telling;
        QObject::connect(telling.menu, &TSetupMenu::ScreenChanged, &telling.window,
                         [&telling] { delete telling.menu; });
        telling.Element("about")->click();
        telling.time.Pass(40);
        QVERIFY(telling.window.children().isEmpty());
        for (int way = 0; way < 3; ++way)
        {
            TMenuStage stage;
            stage.menu->ShowScreen(Path("console/sound"));
            QObject::connect(stage.menu, &TSetupMenu::ScreenChanged, &stage.window,
                             [&stage] { delete stage.menu; });
            if (way == 0)
                stage.menu->ShowScreen(Path("field/boom/left"));
            else if (way == 1)
                stage.menu->OnMMIWheelLeft();
            else
                stage.menu->SetScreenAvailable(Path("console/sound"), false);
            QVERIFY(stage.window.children().isEmpty());
        }
    }

    // In the console

    void theConsoleHasAScreenForEachPage()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.Tap(stage.SpecialButton(TSetupModule::Id())));
        QCOMPARE(CountScreens(*stage.SetupMenu()), 32);
        QStringList const screens = stage.SetupMenu()->AvailableScreens();
        QCOMPARE(screens, AllPages());
        for (QString const& screen : screens)
            QVERIFY2(stage.OpenSetup(screen), qPrintable(screen));
        QVERIFY(!stage.Button(QStringLiteral("setup/job/details"))); // alone in its group
    }

    void theWheelStepsIntoTheScreen()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        stage.GoBackToTheScreen();
        QVERIFY(stage.TurnTo(stage.SpecialButton(TSetupModule::Id())->parentWidget()));
        stage.Enter();
        QVERIFY(stage.EnterByWheel(stage.SpecialButton(TSetupModule::Id())));
        QVERIFY(stage.TurnTo(stage.SetupMenu()));
        stage.Enter();
        stage.Turn(-1);
        QCOMPARE(stage.SetupMenu()->Screen(), Path(SetupScreens::Buttons));
        stage.Turn(1);
        QCOMPARE(stage.SetupMenu()->Screen(), Path(SetupScreens::Sound));
        stage.Enter();
        QVERIFY(stage.EnterByWheel(stage.Button(QStringLiteral("Off"))));
        QVERIFY(!stage.Button(QStringLiteral("icon-plus-larger"))->isEnabled());
        // Back to the menu, out of it, and out of the setup.
        for (int i = 0; i < 3; ++i)
        {
            QCOMPARE(stage.Manager()->GetFullViewId(), stage.IdOf(TSetupModule::Id()));
            stage.finger.Key(Qt::Key_Escape);
            stage.time.Pass(2 * SettleTime);
        }
        QVERIFY(stage.Manager()->GetFullViewId() != stage.IdOf(TSetupModule::Id()));
    }

    void thePageEndsWhereTheMenuBegins()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        for (char const* const path :
             {SetupScreens::Sound, SetupScreens::Job, SetupScreens::Nozzles, SetupScreens::Equipment})
        {
            QVERIFY(stage.OpenSetup(Path(path)));
            auto const pages = stage.console.Screen()->findChildren<TSetupPage*>();
            auto const shown = std::find_if(pages.begin(), pages.end(),
                                            [](TSetupPage const* page) { return page->isVisible(); });
            QVERIFY(shown != pages.end());
            QVERIFY((*shown)->geometry().bottom() < stage.SetupMenu()->geometry().top());
            QCOMPARE((*shown)->geometry().left(), stage.SetupMenu()->geometry().left());
            QVERIFY((*shown)->height() > 300);
        }
    }

    void theLastScreenIsThereAgain()
    {
        QTemporaryDir folder;
        {
            TStage stage(folder.path());
            QVERIFY(stage.OpenSetup(Path(SetupScreens::Nozzles)));
        }
        TStage stage(folder.path());
        QVERIFY(stage.SetupMenu());
        QCOMPARE(stage.SetupMenu()->Screen(), Path(SetupScreens::Nozzles));
        QCOMPARE(stage.SetupMenu()->LevelCount(), 3);
    }

    void aKeptScreenThatDoesNotExistIsIgnored()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.OpenSetup(Path(SetupScreens::Sound)));
        auto* const window = stage.console.Screen()->findChild<TMachineSetupWindow*>();
        QDomDocument document;
        window->RestoreXMLStateSnapshot(Snapshot(document, Path(SetupScreens::About)));
        QCOMPARE(stage.SetupMenu()->Screen(), Path(SetupScreens::About));
        for (QString const& page : {QString(), QStringLiteral("3"), QStringLiteral("system"),
                                    QStringLiteral("job/reports"), QString(100000, QLatin1Char('/'))})
        {
            window->RestoreXMLStateSnapshot(Snapshot(document, page));
            QCOMPARE(stage.SetupMenu()->Screen(), Path(SetupScreens::About));
        }
        window->RestoreXMLStateSnapshot(QDomElement());
        QDomElement kept = document.createElement(QStringLiteral("Window"));
        window->SaveXMLStateSnapshot(kept);
        QCOMPARE(kept.attribute(QStringLiteral("Page")), Path(SetupScreens::About));
    }

    void aPageTakesUpWhatChangedWhileItWasAway()
    {
        QTemporaryDir folder;
        TStage stage(folder.path());
        QVERIFY(stage.OpenSetup(Path(SetupScreens::Units)));
        QVERIFY(stage.OpenSetup(Path(SetupScreens::Job)));
        ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, 2, false);
        QVERIFY(stage.OpenSetup(Path(SetupScreens::Units)));
        QCOMPARE(stage.Button(QStringLiteral("setup-units"))->GetText(), QStringLiteral("US"));
    }
};

COMMONUI_TEST(TSetupMenuTest)
#include "TSetupMenuTest.moc"
