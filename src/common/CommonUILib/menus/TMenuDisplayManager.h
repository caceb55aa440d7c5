#pragma once

#include "CommonUILibExport.h"

#include <QList>
#include <QObject>

class TMenuManager;

/// Between the menus and whatever draws them: it hears what TMenuManager decides, and tells it what the
/// operator presses. A display derives from it, draws the elements of the open menus and their shortcuts (see
/// TShortcutPool), and asks for snapshots in its slots.
///
/// The slots are called in the thread of the display, which is the manager's: the GUI thread.
class COMMONUILIB_EXPORT TMenuDisplayManager : public QObject
{
    Q_OBJECT

public:
    /// The manager has to live longer. What main screen and platform tell is heard if they are there by now.
    explicit TMenuDisplayManager(TMenuManager& manager);
    ~TMenuDisplayManager() override;

    /// Shows all menus, or puts them out of the way. The base does nothing.
    virtual void ToggleMenus();
    /// The base answers false.
    virtual bool AreMenusVisible() const;
    /// The menus as they are displayed, the one that came last at the end. The base answers none.
    virtual QList<int> GetMenuShownOrder();

public Q_SLOTS:
    virtual void OnMenuListChanged() = 0;
    virtual void OnMenuStateChanged() = 0;
    virtual void OnElementListChanged(int menuID) = 0;
    virtual void OnElementStateChanged(int menuID) = 0;
    /// The operator pressed an element; to be passed on to TMenuManager::ElementActivated().
    virtual void OnElementPressed(int menuID, int elementID) = 0;

public:
    /// Whether menus may go away by themselves has changed. The base does nothing.
    virtual void HandleMenuAutoHideStateChanged();
    /// False while the operator reads a guide or tool tips: menus stay open then. True at first.
    virtual bool GetCanAutoHide() const;

Q_SIGNALS:
    /// AreMenusVisible() has changed.
    void MenuVisibilityChanged();
    /// GetMenuShownOrder() has changed.
    void MenuShownOrderChanged();

public Q_SLOTS:
    /// Asks screen and platform whether a guide or tool tips are read.
    void UpdateAutoHideState();

protected:
    TMenuManager& GetMenuManager() const { return m_MenuManager; }

private:
    TMenuManager& m_MenuManager;
    bool m_CanAutoHide = true;
};
