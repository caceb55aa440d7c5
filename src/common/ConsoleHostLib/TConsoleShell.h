#pragma once

#include "ConsoleHostLibExport.h"
#include "MorvaneID.h"

#include <QObject>

#include <memory>
#include <vector>

class IConsoleModule;
class THostPlatform;
class TMenuManager;
class TMMICapableWidgetNavigator;
class TScreen;
class TUsbWatch;

/// Starts and stops a console: it names the internal drive, opens the settings and the operator's log, builds
/// the screen with its wheel navigator, its input and its window stacks, takes the modules, and brings the
/// layout of the last run back. On the way down it saves the layout and takes everything apart in the order
/// in which nobody misses anybody.
///
/// \code
/// TConsoleShell shell(dataFolder);
/// shell.AddModule(std::make_unique<TMyModule>());
/// shell.Start(TMyModule::Id());
/// return QApplication::exec();
/// \endcode
///
/// A stop is asked for by TScreen::RequestShutdown(code), by closing the window, by SIGTERM or by SIGINT. The
/// layout is saved then at once, and the application's event loop is left. One shell at a time; GUI thread
/// only.
class CONSOLEHOSTLIB_EXPORT TConsoleShell : public QObject
{
    Q_OBJECT

public:
    /// Names of the files in the data folder.
    static char const* const SettingsFile;
    static char const* const LogFile;

    /// \a dataFolder becomes the internal drive; it is made if it is missing. One that cannot be written
    /// leaves the console working, without a memory of its own. The screen is built here, so that modules may
    /// be; it is shown by Start().
    explicit TConsoleShell(QString const& dataFolder);
    /// Stops.
    ~TConsoleShell() override;

    /// Null after Stop().
    TScreen* GetScreen() const;
    TMMICapableWidgetNavigator* GetNavigator() const;
    THostPlatform* GetPlatform() const;
    /// That of all modules, for a TMenuCanvas and for what they offer on it.
    TMenuManager* GetMenuManager() const;

    /// Tells the platform of USB sticks from now on: those of the system, or, where one is named, \a folder
    /// in place of a stick. Once; until then there is no stick.
    void WatchUsb(QString const& folder = QString());
    /// Null until WatchUsb() and after Stop().
    TUsbWatch* GetUsbWatch() const;

    /// Takes the module and has it register its views. Null is ignored, and so is a module that comes after
    /// Stop(). One that comes after Start() takes up its saved place.
    void AddModule(std::unique_ptr<IConsoleModule> module);

    /// Shows the screen with the layout of the last run, or else with \a defaultView.
    void Start(KVN::MorvaneID const& defaultView);

    /// Saves the layout, deletes the modules, latest first, the navigator and the screen, and closes settings
    /// and log. What was installed before the shell is installed again. Once.
    void Stop();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The layout has been saved, and the event loop is about to be left with \a code.
    void Stopping(int code);

private:
    void BuildScreen();
    void SaveLayout();
    void OnRequestShutdown(int code);

    struct TPlatform;
    std::unique_ptr<TPlatform> m_Platform;
    std::unique_ptr<TUsbWatch> m_UsbWatch;
    std::unique_ptr<TScreen> m_Screen;
    std::unique_ptr<TMMICapableWidgetNavigator> m_Navigator;
    std::unique_ptr<THostPlatform> m_HostPlatform;
    std::unique_ptr<TMenuManager> m_MenuManager;
    std::vector<std::unique_ptr<IConsoleModule>> m_Modules;
    bool m_HasStarted = false;
};
