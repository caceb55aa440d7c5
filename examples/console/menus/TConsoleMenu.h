#pragma once

#include "IConsoleModule.h"
#include "TMenuState.h"

#include <QObject>
#include <QVector>

class TMenuManager;
class TMenuWorker;

/// The root menu of the console: first what leads into the menus of the modules, then the shortcuts.
///
/// Shortcuts belong here and not into the menus of the modules: a menu with shortcuts comes back by itself,
/// in the place of its neighbours, and would take the one away that the operator has just opened. The root
/// menu has no neighbours and is always open.
///
/// To be added to the shell before the modules that use it, so that it dies after them. GUI thread only.
class TConsoleMenu : public QObject, public IConsoleModule
{
    Q_OBJECT

public:
    /// \a manager has to live longer.
    explicit TConsoleMenu(TMenuManager* manager);
    ~TConsoleMenu() override;

    /// Makes the menu the root menu, and opens it.
    void RegisterViews(TScreen* screen) override;

    TMenuManager* Manager() const { return m_Manager; }
    TMenuState* Root() { return &m_Root; }
    /// Before the shortcuts. Gives the id of the element.
    int AddOpener(TElementState const& element);
    /// Behind all that is there.
    int AddShortcut(TElementState const& element);

    /// Each is taken out again before it dies.
    void AddWorker(TMenuWorker* worker);
    void RemoveWorker(TMenuWorker* worker);
    /// Comes back when all workers have done what was posted to them so far: for whoever has to see what
    /// follows from it, as a run without an operator.
    void WaitForWorkers();

private:
    TMenuManager* m_Manager;
    TMenuState m_Root;
    int m_RootID;
    QVector<TMenuWorker*> m_Workers;
};
