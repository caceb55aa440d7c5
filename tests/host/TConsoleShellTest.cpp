#include "TConsoleShell.h"

#include "CommonUI.h"
#include "MainScreen.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TestModule.h"
#include "TestSupport.h"
#include "THostPlatform.h"
#include "TMenuManager.h"
#include "TMenuState.h"
#include "TMMICapableWidgetNavigator.h"
#include "TNavigationBar.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TSystemSettings.h"
#include "TSystemSettingsProxy.h"
#include "TToolTip.h"
#include "TToolTipMode.h"
#include "TUsbWatch.h"
#include "TVirtualOperator.h"
#include "TWindowManager.h"
#include "UserLog.h"

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <csignal>

namespace
{
constexpr int FirstId = 1;
constexpr int SecondId = 2;
constexpr int SlideTime = 400;

/// Counts the paints of a widget.
class TPaintCount : public QObject
{
public:
    explicit TPaintCount(QWidget* widget) { widget->installEventFilter(this); }

    int Count() const { return m_Count; }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_Count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_Count = 0;
};

/// A console with two modules; its time passes at once.
struct TConsole
{
    explicit TConsole(QString const& folder)
        : shell(folder)
        , first(new TTestModule(TTestModule::Id(FirstId)))
        , second(new TTestModule(TTestModule::Id(SecondId)))
    {
        shell.AddModule(std::unique_ptr<IConsoleModule>(first));
        shell.AddModule(std::unique_ptr<IConsoleModule>(second));
        shell.Start(TTestModule::Id(FirstId));
    }

    TWindowManager* Manager() const { return shell.GetScreen()->GetWindowManager(); }
    void FinishSlides()
    {
        Manager()->OnNextFrame();
        clock.Advance(SlideTime);
        Manager()->OnNextFrame();
    }
    void Press(TTestModule const* module)
    {
        QCoreApplication::processEvents();
        TVirtualOperator finger(shell.GetScreen());
        QVERIFY(finger.Tap(shell.GetScreen()->GetNavButton(module->m_ViewId)));
        FinishSlides();
    }

    TManualClock clock;
    TConsoleShell shell;
    TTestModule* first;
    TTestModule* second;
};
} // namespace

class TConsoleShellTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFirstStartShowsTheDefaultView()
    {
        QTemporaryDir folder;
        TConsole console(folder.path());
        QVERIFY(console.shell.GetScreen()->isVisible());
        QCOMPARE(MainScreen, console.shell.GetScreen());
        QCOMPARE(console.shell.GetScreen()->GetMMINavigator(), console.shell.GetNavigator());
        QCOMPARE(console.Manager()->GetFullViewId(), console.first->m_ViewId);
        QVERIFY(console.first->m_Full.isVisible());
    }

    void allModulesHaveOneManagerOfMenusUntilTheStop()
    {
        QTemporaryDir folder;
        TConsole console(folder.path());
        TMenuManager* const manager = console.shell.GetMenuManager();
        QVERIFY(manager);
        QCOMPARE(manager->GetRootMenuID(), -1);
        TMenuState menu(QStringLiteral("Menu"));
        QCOMPARE(manager->AddMenu(&menu), 0);
        QCOMPARE(console.shell.GetMenuManager(), manager);
        console.shell.Stop();
        QVERIFY(!console.shell.GetMenuManager());
    }

    void aRestartBringsTheLayoutBack()
    {
        QTemporaryDir folder;
        {
            TConsole console(folder.path());
            console.Press(console.second);
            console.Press(console.first);
            console.Manager()->OnDraggedOffRight(console.second->m_ViewId);
            QCOMPARE(console.Manager()->GetSlot(0), QList<int>{console.second->m_ViewId});
        }
        TConsole console(folder.path());
        QCOMPARE(console.Manager()->GetFullViewId(), console.second->m_ViewId);
        QCOMPARE(console.Manager()->GetSlot(0), QList<int>{console.second->m_ViewId});
        QCOMPARE(console.Manager()->GetSlot(1), QList<int>{console.first->m_ViewId});
        console.FinishSlides();
        QVERIFY(console.first->m_Mini.isVisible());
        QVERIFY(console.second->m_Mini.isVisible());
    }

    void aModuleThatComesLateTakesItsSavedPlace()
    {
        QTemporaryDir folder;
        {
            TConsole console(folder.path());
            console.Press(console.second);
        }
        TConsoleShell shell(folder.path());
        shell.AddModule(std::make_unique<TTestModule>(TTestModule::Id(FirstId)));
        shell.Start(TTestModule::Id(FirstId));
        QVERIFY(shell.GetScreen()->GetWindowManager()->GetSlot(0).isEmpty());
        auto* const late = new TTestModule(TTestModule::Id(SecondId));
        shell.AddModule(std::unique_ptr<IConsoleModule>(late));
        QCOMPARE(shell.GetScreen()->GetWindowManager()->GetSlot(0), QList<int>{late->m_ViewId});
    }

    void aShellThatNeverStartedKeepsTheSavedLayout()
    {
        QTemporaryDir folder;
        {
            TConsole console(folder.path());
            console.Press(console.second);
        }
        {
            TConsoleShell shell(folder.path());
        }
        TConsole console(folder.path());
        QCOMPARE(console.Manager()->GetSlot(0), QList<int>{console.second->m_ViewId});
    }

    void aStickIsThereFromTheWatchToTheStop()
    {
        QTemporaryDir folder;
        QTemporaryDir stick;
        TConsole console(folder.path());
        QVERIFY(!console.shell.GetUsbWatch());
        QVERIFY(!TSystemSettingsProxy::Instance()->IsExternalDrivePresent());
        console.shell.WatchUsb(stick.path());
        TUsbWatch* const watch = console.shell.GetUsbWatch();
        QVERIFY(watch);
        QVERIFY(TSystemSettingsProxy::Instance()->IsExternalDrivePresent());
        console.shell.WatchUsb();
        QCOMPARE(console.shell.GetUsbWatch(), watch);
        console.shell.GetScreen()->TakeScreenShot();
        QCOMPARE(QDir(stick.filePath(QStringLiteral("Screenshots"))).entryList(QDir::Files).size(), 1);
        console.shell.Stop();
        QVERIFY(!console.shell.GetUsbWatch());
        QVERIFY(!TSystemSettingsProxy::Instance()->IsExternalDrivePresent());
        console.shell.WatchUsb(stick.path());
        QVERIFY(!console.shell.GetUsbWatch());
    }

    void theSticksOfTheSystemAreWatchedUnlessAFolderIsNamed()
    {
        QTemporaryDir folder;
        TConsole console(folder.path());
        console.shell.WatchUsb();
        QVERIFY(console.shell.GetUsbWatch());
        QVERIFY(!console.shell.GetUsbWatch()->IsFolder());
    }

    void theStopPutsBackWhatTheStartReplaced()
    {
        TTestConfig config;
        UserLogAccessorPtr const log = GetUserLog();
        QString const drive = TSystemSettings::GetInternalDrivePath();
        QTemporaryDir folder;
        {
            TConsole console(folder.path());
            QVERIFY(ConfigManager::Instance() != &config);
            QVERIFY(GetUserLog() != log);
            QCOMPARE(TSystemSettings::GetInternalDrivePath(), folder.path() + QLatin1Char('/'));
            console.shell.Stop();
            console.shell.Stop();
            QVERIFY(!console.shell.GetScreen());
            QVERIFY(!console.shell.GetNavigator());
        }
        QCOMPARE(ConfigManager::Instance(), static_cast<ConfigManager*>(&config));
        QCOMPARE(GetUserLog(), log);
        QCOMPARE(TSystemSettings::GetInternalDrivePath(), drive);
        QVERIFY(!MainScreen);
    }

    void anUnwritableFolderStillGivesAConsole()
    {
        QTemporaryDir folder;
        QFile blocker(folder.filePath(QStringLiteral("file")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("log")));
        TConsole console(blocker.fileName() + QStringLiteral("/data"));
        console.Press(console.second);
        QVERIFY(console.second->m_Mini.isVisible());
    }

    void everyWayToStopSavesAndLeavesTheLoop_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<int>("code");
        QTest::newRow("request") << "request" << 7;
        QTest::newRow("close") << "close" << 0;
        QTest::newRow("SIGTERM") << "SIGTERM" << 0;
        QTest::newRow("SIGINT") << "SIGINT" << 0;
    }

    void everyWayToStopSavesAndLeavesTheLoop()
    {
        QFETCH(QString, way);
        QFETCH(int, code);
        QTemporaryDir folder;
        TConsole console(folder.path());
        console.Press(console.second);
        QSignalSpy stopping(&console.shell, &TConsoleShell::Stopping);
        if (way == QLatin1String("request"))
            Q_EMIT console.shell.GetScreen()->RequestShutdown(code);
        else if (way == QLatin1String("close"))
            console.shell.GetScreen()->close();
        else
            QCOMPARE(std::raise(way == QLatin1String("SIGINT") ? SIGINT : SIGTERM), 0);
        QTRY_COMPARE(stopping.count(), 1);
        QCOMPARE(stopping.constFirst().constFirst().toInt(), code);
        QVERIFY(console.shell.GetScreen()->isVisible());
        QString const layout = ConfigManager::Instance()->Read(CONFIG_LAYOUT_SNAPSHOT).toString();
        QVERIFY(layout.contains(TTestModule::Id(SecondId).ToString()));
    }

    // A module may go while its windows are in use; what the screen knows of them goes with it.
    void aModuleThatDiesOnTheScreenLeavesNothingBehind()
    {
        QTemporaryDir folder;
        TManualClock clock;
        TConsoleShell shell(folder.path());
        shell.AddModule(std::make_unique<TTestModule>(TTestModule::Id(FirstId)));
        shell.Start(TTestModule::Id(FirstId));
        auto dying = std::make_unique<TTestModule>(TTestModule::Id(SecondId));
        dying->RegisterViews(shell.GetScreen());
        int const id = dying->m_ViewId;
        TWindowManager* const manager = shell.GetScreen()->GetWindowManager();
        manager->OnShowMiniView(id);
        manager->OnDraggedOffRight(id);
        dying.reset();
        QVERIFY(manager->GetSlot(0).isEmpty());
        QCOMPARE(manager->GetMiniViewState(id), MINI_VIEW_HIDDEN);
        manager->OnShowMiniView(id);
        clock.Advance(SlideTime);
        manager->OnNextFrame();
        manager->OnUpdateScreen();
        QVERIFY(manager->GetSlot(0).isEmpty());
    }

    void aButtonOlderThanThePlatformIsMarkedToo()
    {
        QTemporaryDir folder;
        auto* const button = new TPushButton(nullptr, 0, QStringLiteral("Fold the boom"));
        TConsole console(folder.path());
        button->setParent(console.shell.GetScreen());
        button->setGeometry(400, 300, 100, 60);
        button->show();
        TToolTipMode* const mode = console.shell.GetPlatform()->GetToolTipMode();
        for (bool const isOn : {true, false})
        {
            QCoreApplication::processEvents();
            TPaintCount const paints(button);
            mode->SetOn(isOn);
            QCoreApplication::processEvents();
            QVERIFY(paints.Count() > 0);
        }
    }

    // From the bottom: the annotation, the strip, the tip.
    void tipsAndTheStripStayAboveAnnotations()
    {
        CommonUIOptions const before = CommonUI::GetCommonUIOptions();
        auto const restore = qScopeGuard([&before] { CommonUI::SetCommonUIOptions(before); });
        CommonUIOptions options = before;
        options.offScreenButtonsEnabled = true;
        CommonUI::SetCommonUIOptions(options);
        QTemporaryDir folder;
        TConsole console(folder.path());
        TScreen* const screen = console.shell.GetScreen();
        THostPlatform* const platform = console.shell.GetPlatform();
        TPushButton stripButton(nullptr, 0, QStringLiteral("Louder"));
        screen->AddOffscreenButton(&stripButton, false, false);
        TOffScreenButtons* const strip = screen->GetOffScreenButtons();
        strip->ShowOffScreenButtons();
        console.FinishSlides();
        platform->GetToolTipMode()->SetOn(true);
        platform->ShowToolTipFor(&stripButton, 0, stripButton.GetToolTip(), {});
        auto* const tip = screen->findChild<TToolTip*>();
        QVERIFY(tip && tip->isVisible());
        QWidget note;
        QWidget secondNote;
        platform->ShowAnnotation(&note, nullptr, nullptr);
        QVERIFY(TScreenLayers(*screen).IsAbove(strip, &note));
        platform->ShowAnnotation(&secondNote, nullptr, &console.first->m_Button);
        // Hiding and showing the source raises its note, a view change raises both.
        console.first->m_Button.hide();
        console.first->m_Button.show();
        screen->SetCurrentCanvas(&console.second->m_Canvas, true);
        screen->SetCurrentCanvas(&console.first->m_Canvas, true);
        for (QWidget* const annotation : {&note, &secondNote})
        {
            QVERIFY(annotation->isVisible());
            QVERIFY(TScreenLayers(*screen).IsAbove(strip, annotation));
            QVERIFY(TScreenLayers(*screen).IsAbove(tip, annotation));
            platform->HideAnnotation(annotation);
        }
        QVERIFY(TScreenLayers(*screen).IsAbove(tip, strip));
    }

    void theWheelAndTheKeysReachTheScreen()
    {
        QTemporaryDir folder;
        TConsole console(folder.path());
        TVirtualOperator finger(console.shell.GetScreen());
        QSignalSpy clicked(&console.first->m_Button, &TPushButton::Clicked);
        finger.Key(Qt::Key_Right);
        console.clock.Advance(1);
        console.shell.GetNavigator()->UpdateFocus();
        finger.Key(Qt::Key_Return);
        QTRY_COMPARE(clicked.count(), 1);
    }

    // Without a setup the special bar has no place; it must not lie over the buttons of the other bar.
    void anEmptySpecialBarCoversNoButton()
    {
        QTemporaryDir folder;
        TConsole console(folder.path());
        TScreen* const screen = console.shell.GetScreen();
        TPushButton* const button = screen->GetNavButton(console.first->m_ViewId);
        QCOMPARE(screen->childAt(button->mapTo(screen, QPoint(10, 10))), static_cast<QWidget*>(button));
    }
};

COMMONUI_TEST(TConsoleShellTest)
#include "TConsoleShellTest.moc"
