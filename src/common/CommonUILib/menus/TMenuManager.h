#pragma once

#include "CommonUILibExport.h"
#include "TMenuDisplayState.h"
#include "TMenuStateCopy.h"

#include <QList>
#include <QObject>
#include <QReadWriteLock>

#include <memory>
#include <vector>

class QRecursiveMutex;
class TMenuManagerPrivate;
class TMenuNotices;
class TMenuSnapshot;
class TMenuState;

/// Decides which of the modules' menus are open: the root menu, those opened from elements of others, and
/// those that stand open as shortcuts. It draws nothing; a TMenuDisplayManager listens to its signals and
/// asks for snapshots. There is one in a process.
///
/// Any thread may call it. What menus tell is looked at from the event loop of the manager's thread, changes
/// that come together at once. Its signals go out with its lock free, and so do those of the menus. While
/// menus emit theirs or refresh themselves, calls of other threads that add, remove, switch or activate wait:
/// do not wait for another thread there. An id that is negative or unknown is ignored.
class COMMONUILIB_EXPORT TMenuManager : public QObject
{
    Q_OBJECT

public:
    explicit TMenuManager(QObject* parent = nullptr);
    /// The menus stay.
    ~TMenuManager() override;

    std::vector<TMenuState*> GetMenus() const;
    /// Null for none.
    TMenuState* GetMenu(int menuID) const;
    /// The open menus; the one that was shown last stands last.
    QList<int> GetMenuShownOrder() const;
    /// A fresh one for an unknown menu.
    TMenuDisplayState GetMenuDisplayState(int menuID) const;
    std::vector<TElementState> GetElementsState(int menuID) const;
    TMenuStateCopy GetMenuElements(int menuID) const;
    std::vector<TMenuStateCopy> GetAllMenuElements() const;
    bool GetMenusEnabled() const;
    /// Of one menu, whoever disabled it. False for an unknown one.
    bool IsMenuEnabled(int menuID) const;

    /// Guards the manager's state. In one thread it is taken before the lock of a menu.
    QReadWriteLock* GetLock() const { return &m_Lock; }

    /// Gives the id of the menu, -1 for null, and emits MenuListChanged(). The menu is brought up to date by
    /// its RefreshMenu(). It stays the caller's own: it is removed before it dies, or dies in the manager's
    /// thread while no other thread calls the manager. One that was added before keeps its id.
    int AddMenu(TMenuState* menu);
    /// Closes and forgets the menu and emits MenuListChanged(). When it returns no other thread is in the
    /// menu on the manager's behalf.
    void RemoveMenu(int menuID);

    /// Disables or enables all menus, on top of what their modules do, and with \a hide closes the disabled
    /// ones but for the root menu. Emits EnabledChanged() and MenuStateChanged(), nothing without a change.
    void SetMenusEnabled(bool enabled, bool hide);
    /// Whether the hide mode of elements has effect; true at first.
    void SetAutoHideAllowed(bool allowed);
    /// Asks all menus to bring themselves up to date.
    void RefreshAllMenus();

    /// The operator chose an element: it is activated as TMenuState::ElementActivated() tells, and then menus
    /// hide by its hide mode, with MenuStateChanged().
    void ElementActivated(int menuID, int elementID);

    // Each emits MenuStateChanged(), but for an unknown id.
    /// As the operator wishes: the menu does not come back as a shortcut by itself.
    void HideMenu(int menuID);
    /// The menu opens from nowhere, beside what is open.
    void ShowMenu(int menuID);
    void HideAllMenus();

    /// The menu may be added later, and is open then. With \a show a known one opens, with
    /// MenuStateChanged().
    virtual void SetRootMenuID(int menuID, bool show);
    virtual int GetRootMenuID() const;

Q_SIGNALS:
    void MenuListChanged();
    /// Menus have opened or closed.
    void MenuStateChanged();
    void ElementListChanged(int menuID);
    /// Elements of the menu, or whether it is enabled, have changed.
    void ElementStateChanged(int menuID);
    void EnabledChanged(bool enabled);

public Q_SLOTS:
    /// Each handles what a menu tells, and emits MenuStateChanged().
    void OnToggleMenu(int menuID, int parentMenuID, int parentElementID);
    void OnForceToShortcut(int menuID);
    void OnHideMenu(int menuID);
    /// Emits ElementListChanged().
    void OnElementListChanged(int menuID);
    /// Emits ElementStateChanged() if there is anything to report, and MenuStateChanged() if menus have
    /// opened or closed by it, or stand elsewhere.
    void OnElementStateChanged(int menuID);

protected:
    // The lock is held for writing in each of these.
    virtual void HandleMenuAdded(int menuID);
    virtual void HandleMenuRemoved(int menuID);
    virtual void HandleToggleMenu(int menuID, int parentMenuID, int parentElementID);
    virtual void HandleForceToShortcut(int menuID);
    virtual void HandleHideMenu(int menuID);
    virtual void HandleShowMenu(int menuID);
    virtual void HandleHideAllMenus();
    virtual void HandleElementListChanged(int menuID);
    virtual void HandleElementStateChanged(int menuID);
    virtual void HandleMenusEnabledChanged(bool enabled, bool hide);
    /// The element was activated. Whether menus were hidden by that.
    virtual bool HandleElementActivated(int menuID, int elementID);

    // The caller holds the lock.
    TMenuState* GetMenuInternal(int menuID) const;
    std::vector<TMenuStateCopy> GetAllMenuElementsInternal() const;

    /// Emits ElementStateChanged() if an element is dirty, or a snapshot showed one that has gone back to
    /// what was reported before. All elements of the menu count as reported then. Called with no lock held.
    void EmitElementStateChangedIfDirty(int menuID);

private:
    struct TEntry
    {
        int id;
        TMenuState* menu;
        unsigned decided; // the revision of the menu that the last look saw
    };

    std::vector<TEntry>::const_iterator Find(int menuID) const;
    std::vector<TEntry>::iterator Find(int menuID);
    std::vector<int> GetMenuIDs() const;
    int FindID(TMenuState const* menu) const;
    void Register(int menuID, TMenuState* menu);
    bool Start(int menuID, TMenuState* menu);
    void Connect(int menuID, TMenuState* menu);
    auto Looker(int menuID);
    template<typename TDecision>
    void Decide(TDecision decision);
    void OnMenuDestroyed(int menuID);
    TMenuStateCopy CloneInternal(int menuID) const;
    TMenuSnapshot SnapshotInternal() const;

    std::unique_ptr<TMenuManagerPrivate> m_Private;
    std::vector<TEntry> m_Menus;
    int m_NextMenuID = 0;
    bool m_MenusEnabled = true;
    bool m_AutoHideAllowed = true;
    mutable QReadWriteLock m_Lock;
    // Held while code of the menus runs without the lock, so that none of them is removed and deleted by
    // another thread meanwhile; taken before the lock. A slot that is called then may do anything, even end
    // the manager.
    std::shared_ptr<QRecursiveMutex> m_MenusInUse;
    std::shared_ptr<TMenuNotices> m_Notices;
};
