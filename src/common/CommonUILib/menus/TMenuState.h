#pragma once

#include "CommonUILibExport.h"
#include "TMenuStateCopy.h"

#include <QObject>
#include <QReadWriteLock>
#include <QString>

#include <atomic>
#include <vector>

/// A menu as its module describes it: a list of elements in the order of the display. Hand it to
/// TMenuManager::AddMenu(), which decides when it is seen; it stays the module's own.
///
/// Any thread may call the public operations; each takes the lock, except for those with Internal in their
/// name, whose caller holds it. Signals go out in the calling thread when the lock has been released. An id
/// that is negative or unknown is ignored.
class COMMONUILIB_EXPORT TMenuState : public QObject
{
    Q_OBJECT

public:
    explicit TMenuState(QString const& name, QObject* parent = nullptr);
    ~TMenuState() override;

    /// -1 until the manager gives it one.
    int GetMenuID() const;
    QString GetMenuName() const;
    /// A copy; one with the id -1 for an unknown \a id.
    TElementState GetElement(int id) const;
    std::vector<TElementState> GetElementsState() const;
    /// All of the menu at one moment.
    TMenuStateCopy Clone() const;
    bool IsEnabled() const;

    /// Guards the elements, the id and whether the menu is enabled. In one thread the manager's lock is taken
    /// before that of a menu.
    QReadWriteLock* GetLock() const { return &m_Lock; }

    /// The manager's business, down to TakeChanges().
    void SetMenuID(int id);
    /// Another number after each change that may open or close menus: of the list, or of what is visible, a
    /// shortcut, or leads to a menu. Takes no lock.
    unsigned GetLeadsRevision() const { return m_LeadsRevision; }
    /// Whether there is anything to report of the elements, which count as reported then: one of them is
    /// dirty, or a snapshot showed one that is as it was again. \a leadsRevision is the one that was found.
    bool TakeChanges(unsigned& leadsRevision);

    /// Adds a copy of \a element at the end, respectively before the one at \a position, which is brought
    /// into the bounds. Gives the id of the copy, which no other element of this menu gets or has had, and
    /// emits ElementListChanged().
    int AddElement(TElementState const& element);
    int InsertElement(int position, TElementState const& element);

    /// Emits ElementListChanged().
    void RemoveElement(int id);

    /// Gives the element with the id of \a element the current values of that, except for the definition for
    /// the wheel. Emits ElementStateChanged() if there is anything to report then.
    void SetElement(TElementState const& element);

    /// All elements count as reported.
    void CleanElements();

    /// Counts: what was disabled twice has to be enabled twice. Enabling an enabled menu changes nothing.
    /// Emits EnabledStateChanged() if the result is another.
    void SetEnabled(bool enabled);

    /// Does what the element is configured to: its slot is called from the event loop of its receiver's
    /// thread, and ToggleMenu() is emitted for its menu. A name that the receiver has no slot for is reported
    /// to the log. False, and nothing done, if the element is unknown, vetoed, disabled or not visible, or
    /// the menu disabled.
    bool ElementActivated(int id);

    /// Brings the elements up to date, on the manager's wish. Called with no lock held.
    virtual void RefreshMenu() {}

    // The caller holds the lock for writing.
    int InsertElementInternal(int position, TElementState const& element);
    void CleanElementsInternal();
    /// Whether the menu was enabled or disabled by that.
    bool SetEnabledInternal(bool enabled);
    std::vector<TElementState>& GetElementsInternal();

    // The caller holds the lock.
    std::vector<TElementState> const& GetElementsInternal() const;
    bool IsEnabledInternal() const;
    /// ElementActivated() up to the signal: \a menuToToggle is what to emit ToggleMenu() with, -1 for
    /// nothing.
    bool ElementActivatedInternal(int id, int& menuToToggle) const;

Q_SIGNALS:
    /// An element that leads to the menu \a menuID was activated.
    void ToggleMenu(int menuID, int parentMenuID, int parentElementID);
    /// Wish of the menu to stand open as a shortcut, respectively to hide; for its module to emit.
    void ForceToShortcut(int menuID);
    void HideMenu(int menuID);
    void ElementListChanged(int menuID);
    void ElementStateChanged(int menuID);
    void EnabledStateChanged(int menuID);

protected:
    /// \a element has its id and its place. The lock is held for writing.
    virtual void HandleElementAdded(TElementState& element);
    /// A veto against activating an element. The lock is held, and so is the manager's for an activation that
    /// goes through it: ask GetElementsInternal(), and nothing of the manager.
    virtual bool CanInvoke(int elementID) const;

private:
    void Change(TElementState& element, TElementState const& values);

    std::vector<TElementState> m_Elements;
    QString const m_Name;
    int m_MenuID = -1;
    int m_NextElementID = 0;
    int m_DisableCount = 0;
    mutable QReadWriteLock m_Lock;
    // Another number after each change of a value. A snapshot, which has the lock for reading, notes that it
    // shows what was not reported.
    unsigned m_Revision = 0;
    unsigned m_ReportedRevision = 0;
    mutable std::atomic<unsigned> m_ShownRevision{0};
    // Changed under the lock.
    std::atomic<unsigned> m_LeadsRevision{0};
};
