#pragma once

#include "ConsoleHostLibExport.h"
#include "MorvaneID.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>
#include <set>
#include <utility>
#include <vector>

class QEvent;
class QWidget;
class TPopupWindow;
class TScreen;
class TTaskWindow;
class TWindow;

/// The two kinds of stacks, the lower one on the screen first.
enum EWindowStack
{
    STACK_TASK_WINDOWS,
    STACK_POPUPS
};

/// The windows that come up over the views of one screen: for each module, which is each surface id, one
/// stack of task windows and one of popups. Of a stack the operator sees the top; what lies below waits
/// hidden and comes back when the top goes.
///
/// A stack goes with its module. When another full view comes up, the stacks of the module that left are
/// hidden, and they come back with it. A window that was called up over the view of another module, from a
/// mini window say, is bound to that view as well. The stacks of the empty id and of modules without a full
/// view are always up, and so is one that holds a globally modal window: the operator has to answer that
/// first.
///
/// A modal window locks what it blocks as long as it is in its stack, covered or not: the canvas of its
/// module if it is local and that is the view that is up, else the screen. What comes up while the screen is
/// locked stands above that lock; what was there before stays below it.
///
/// Task windows are placed by their desired size in the room that bars, dashboard and mini windows leave, and
/// anew whenever either changes; popups centre themselves. Whatever comes up gets the wheel. A window may be
/// hidden, shown again, given another surface id or deleted at any time, also in a slot of a signal of its
/// own or of another one. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TWindowStacks : public QObject
{
    Q_OBJECT

public:
    /// \a screen may not be null and may die first.
    explicit TWindowStacks(TScreen* screen);
    /// Leaves the windows where they are, unlocked.
    ~TWindowStacks() override;

    /// Shows \a window on top of the stack of its surface id, which it leaves by HideWindow(). While it is
    /// seen, a plain hide() does the same; a window that waits in its stack is hidden already, so hide() and
    /// SetVisible(false, ...) leave it there. A window with a parent of its own is the screen's for that time
    /// and goes back to it then; if the parent dies, the window goes too. Null is ignored.
    void Push(TPopupWindow* window);
    void Push(TTaskWindow* window);

    /// The windows in a stack, the top one last.
    QList<TWindow*> GetWindows(EWindowStack stack, KVN::MorvaneID const& id) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The windows were raised in their order; what belongs above them follows now.
    void Restacked();

private:
    struct TEntry;
    struct TLock;
    using TEntryPtr = std::shared_ptr<TEntry>;
    using TOutdatedLock = std::pair<TLock, QPointer<QWidget>>;
    using TStackKey = std::pair<EWindowStack, KVN::MorvaneID>;

    void PushWindow(TWindow* window, EWindowStack stack, KVN::MorvaneID const& id);
    void Present(TEntry const& entry);
    TEntryPtr Find(QObject const* window) const;
    static TEntryPtr Take(std::vector<TEntryPtr>& entries, QObject const* window);
    TEntryPtr TakeOrMake(TWindow* window);
    void Watch(TWindow* window);
    void Adopt(TEntry& entry);
    void GiveBack(TEntry& entry);

    static bool IsOf(TEntry const& entry, EWindowStack stack, KVN::MorvaneID const& id);
    bool IsIn(TEntryPtr const& entry) const;
    bool IsTop(TEntry const& entry) const;
    bool IsUp(TEntryPtr const& entry) const;
    int ModalityOf(TEntry const& entry) const;
    bool BelongsTo(KVN::MorvaneID const& id, int viewId) const;
    bool HasFullView(KVN::MorvaneID const& id) const;

    void Arrange();
    bool ArrangeOnce();
    void HideWhatIsDown();
    void ShowWhatIsUp();
    void SetLocks();
    void SetNewLocks();
    void TakeOldLocksOff(std::vector<TEntryPtr> const& leaving);
    TLock WantedLock(TEntryPtr const& entry) const;
    void Lock(TEntry const& entry);
    void Unlock(TLock const& lock, QWidget* window);
    void Restack();
    void RestackWindow(TEntry const& entry);
    QWidget* LowestLockLayer() const;
    void TellOverlayManager();
    void Place(TEntry const& entry);
    void PlaceAll();

    void DropTakenDown();
    void OnHidden(QObject* window);
    void OnDestroyed(QObject* window);
    void OnSurfaceChanged(TWindow* window, KVN::MorvaneID const& id);
    void OnDesiredGeometryChanged(QObject* window);
    void OnFullViewChanged();

    QPointer<TScreen> m_Screen;
    /// All windows in the order of their arrival.
    std::vector<TEntryPtr> m_Entries;
    /// Locks of windows that have left, until the locks of those that stay are set.
    std::vector<TEntryPtr> m_Leaving;
    /// Locks that windows in a stack have changed for another one.
    std::vector<TOutdatedLock> m_Outdated;
    std::set<TStackKey> m_Filled;
    TWindow const* m_Hiding = nullptr;
    bool m_Arranging = false;
    bool m_ArrangeAgain = false;
};
