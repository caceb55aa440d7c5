#pragma once

#include "TConsoleShell.h"
#include "TJob.h"
#include "TMachine.h"

#include <QPointer>
#include <QString>

#include <memory>

class TConsoleMenu;
struct TConsoleOptions;
class TScreen;
class TSystemModule;

/// The console as a whole: the machine, the shell and all modules. GUI thread only.
class TConsole
{
public:
    TConsole(TConsoleOptions const& options, QString const& dataFolder);

    /// As TConsoleShell::WatchUsb(). A \a folder can be inserted and pulled by a button of the console. Once.
    void WatchUsb(QString const& folder);
    /// Lets the machine begin, without a screen to show it.
    void StartMachine();
    /// Shows the screen; where there is no layout to bring back, with a choice of mini windows.
    void Start();

    /// Comes back when the threads of the menus have done what they had to do so far.
    void WaitForWorkers();

    TConsoleShell& Shell() { return *m_Shell; }
    TScreen* Screen() const { return m_Shell->GetScreen(); }
    TMachine& Machine() { return m_Machine; }
    TJob& Job() { return m_Job; }

private:
    void AddModules();

    TMachine m_Machine;
    TJob m_Job;
    std::unique_ptr<TConsoleShell> m_Shell;
    // The shell's.
    QPointer<TConsoleMenu> m_Menus;
    QPointer<TSystemModule> m_System;
};
