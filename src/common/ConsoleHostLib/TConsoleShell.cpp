#include "TConsoleShell.h"

#include "IConsoleModule.h"
#include "MainScreen.h"
#include "THostPlatform.h"
#include "TInputRouter.h"
#include "TMenuManager.h"
#include "TMMICapableWidgetNavigator.h"
#include "TScreen.h"
#include "TSqliteConfigManager.h"
#include "TStopSignals.h"
#include "TSystemSettings.h"
#include "TUsbWatch.h"
#include "TWindowManager.h"
#include "UserLog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>

char const* const TConsoleShell::SettingsFile = "Settings.sqlite";
char const* const TConsoleShell::LogFile = "Console.log";

namespace
{
constexpr int CleanStop = 0;

QString FileOfDrive(char const* name)
{
    return TSystemSettings::GetInternalDrivePath() + QLatin1String(name);
}
} // namespace

/// Drive, log and settings, in the order in which they need one another, and back in the opposite one.
struct TConsoleShell::TPlatform
{
    explicit TPlatform(QString const& dataFolder)
    {
        QDir().mkpath(dataFolder);
        TSystemSettings::SetInternalDrivePath(QDir(dataFolder).absolutePath());
        logBefore = SetUserLog(MakeFileUserLog(FileOfDrive(LogFile)));
        settings = std::make_unique<TSqliteConfigManager>(FileOfDrive(SettingsFile));
        settingsBefore = ConfigManager::Install(settings.get());
    }
    ~TPlatform()
    {
        ConfigManager::Install(settingsBefore);
        settings.reset();
        SetUserLog(logBefore);
        TSystemSettings::SetInternalDrivePath(QString());
    }
    TPlatform(TPlatform const&) = delete;
    TPlatform& operator=(TPlatform const&) = delete;

    UserLogAccessorPtr logBefore;
    std::unique_ptr<TSqliteConfigManager> settings;
    ConfigManager* settingsBefore = nullptr;
};

TConsoleShell::TConsoleShell(QString const& dataFolder)
{
    auto* const signals_ = new TStopSignals(this);
    connect(signals_, &TStopSignals::StopRequested, this, [this] { OnRequestShutdown(CleanStop); });
    m_Platform = std::make_unique<TPlatform>(dataFolder);
    BuildScreen();
}

TConsoleShell::~TConsoleShell()
{
    Stop();
}

void TConsoleShell::BuildScreen()
{
    // The shell decides when the program ends: windows that leave the screen must not.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_Screen = std::make_unique<TScreen>();
    MainScreen = m_Screen.get();
    m_Screen->Setup();
    m_Screen->installEventFilter(this);
    connect(m_Screen.get(), &TScreen::RequestShutdown, this, &TConsoleShell::OnRequestShutdown);
    m_Navigator = std::make_unique<TMMICapableWidgetNavigator>(m_Screen.get());
    m_Screen->SetMMINavigator(m_Navigator.get());
    new TInputRouter(m_Navigator.get(), this);
    m_HostPlatform = std::make_unique<THostPlatform>(m_Screen.get());
    m_MenuManager = std::make_unique<TMenuManager>();
}

TScreen* TConsoleShell::GetScreen() const
{
    return m_Screen.get();
}

TMMICapableWidgetNavigator* TConsoleShell::GetNavigator() const
{
    return m_Navigator.get();
}

THostPlatform* TConsoleShell::GetPlatform() const
{
    return m_HostPlatform.get();
}

TMenuManager* TConsoleShell::GetMenuManager() const
{
    return m_MenuManager.get();
}

void TConsoleShell::WatchUsb(QString const& folder)
{
    if (!m_Screen || m_UsbWatch)
        return;
    m_UsbWatch = folder.isEmpty() ? std::make_unique<TUsbWatch>(TUsbWatch::TSystem())
                                  : std::make_unique<TUsbWatch>(folder);
}

TUsbWatch* TConsoleShell::GetUsbWatch() const
{
    return m_UsbWatch.get();
}

void TConsoleShell::AddModule(std::unique_ptr<IConsoleModule> module)
{
    if (!module || !m_Screen)
        return;
    m_Modules.push_back(std::move(module));
    m_Modules.back()->RegisterViews(m_Screen.get());
}

void TConsoleShell::Start(KVN::MorvaneID const& defaultView)
{
    if (!m_Screen)
        return;
    m_HasStarted = true;
    m_Screen->SetDefaultView(defaultView);
    m_Screen->show();
    m_Screen->DisplayStartupFullView();
}

void TConsoleShell::Stop()
{
    if (!m_Screen)
        return;
    SaveLayout();
    m_Screen->removeEventFilter(this);
    m_Screen->hide();
    while (!m_Modules.empty())
        m_Modules.pop_back();
    m_HostPlatform.reset();
    m_Navigator.reset();
    m_Screen.reset();
    MainScreen = nullptr;
    m_MenuManager.reset();
    m_UsbWatch.reset();
    m_Platform.reset();
}

// A shell that never came up has no layout, and must not overwrite the saved one.
void TConsoleShell::SaveLayout()
{
    if (m_HasStarted)
        m_Screen->GetWindowManager()->SaveShutdownState();
}

void TConsoleShell::OnRequestShutdown(int code)
{
    if (m_Screen)
        SaveLayout();
    Q_EMIT Stopping(code);
    QCoreApplication::exit(code);
}

bool TConsoleShell::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_Screen.get() || event->type() != QEvent::Close)
        return false;
    // The screen goes with the shell, not before it.
    event->ignore();
    OnRequestShutdown(CleanStop);
    return true;
}
