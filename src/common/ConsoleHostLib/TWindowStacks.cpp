#include "TWindowStacks.h"

#include "ModalData.h"
#include "TaskWindowRoom.h"
#include "TCameraXVOverlayManager.h"
#include "TCanvas.h"
#include "TModalWidget.h"
#include "TObstructionManager.h"
#include "TPopupWindow.h"
#include "TScreen.h"
#include "TTaskWindow.h"
#include "TWindowManager.h"

#include <QEvent>
#include <QTimer>

#include <algorithm>

namespace
{
// Called up over no view: such a window is only seen with its own module.
constexpr int OverNoView = -2;
// Windows that keep showing and hiding one another get no further than this at once.
constexpr int MostRounds = 50;

enum ELockHolder
{
    HOLDER_NONE,
    HOLDER_CANVAS,
    HOLDER_SCREEN
};

void SetParentInPlace(QWidget* widget, QWidget* parent)
{
    QPoint const position = widget->pos();
    widget->setParent(parent);
    widget->move(position);
}
} // namespace

/// What a window blocks.
struct TWindowStacks::TLock
{
    bool operator==(TLock const& other) const
    {
        return holder == other.holder && type == other.type && canvas == other.canvas;
    }

    ELockHolder holder = HOLDER_NONE;
    int type = KVN::MODAL_NONE;
    QPointer<TCanvas> canvas;
};

struct TWindowStacks::TEntry
{
    // Null as soon as its end has begun: others may hear of that before the stacks do, and act.
    TWindow* Window() const { return qobject_cast<TWindow*>(widget.data()); }
    // Others may hear before the stacks do that it is hidden, too.
    bool IsStaying() const { return Window() && !isTakenDown && !Window()->IsDismissed(); }

    QPointer<QWidget> widget;
    QObject const* address = nullptr;
    EWindowStack stack = STACK_POPUPS;
    KVN::MorvaneID id;
    int calledUpOver = OverNoView;
    QPointer<QWidget> home; // the parent that it had before
    QMetaObject::Connection homeGone;
    QMetaObject::Connection hidden;
    bool isTakenDown = false;            // by somebody's hide(); it leaves as soon as that is over
    bool isOnTopAnew = false;            // its lock comes on top of the others too
    QList<QPointer<QWidget>> locksBelow; // that were there when it came up
    TLock lock;
};

TWindowStacks::TWindowStacks(TScreen* screen)
    : m_Screen(screen)
{
    // Comes before the screen deletes its children; the pointer itself notices only after them.
    connect(screen, &QObject::destroyed, this, [this] { m_Screen.clear(); });
    connect(screen->GetWindowManager(), &TWindowManager::FullViewChanged, this,
            &TWindowStacks::OnFullViewChanged);
    connect(screen, &TScreen::LayersChecked, this, &TWindowStacks::Restack);
    connect(screen, &TScreen::SystemToolbarGeometryChanged, this, &TWindowStacks::PlaceAll);
    connect(screen->GetObstructionManager(), &TObstructionManager::ObstructionLimitChanged, this,
            &TWindowStacks::PlaceAll);
}

TWindowStacks::~TWindowStacks()
{
    std::vector<TEntryPtr> const entries = std::move(m_Entries);
    for (TEntryPtr const& entry : entries)
    {
        if (!entry->widget)
            continue;
        disconnect(entry->widget, nullptr, this, nullptr);
        disconnect(entry->homeGone);
        entry->widget->removeEventFilter(this);
        Unlock(entry->lock, entry->widget);
    }
    std::vector<TEntryPtr> const leaving = std::move(m_Leaving);
    for (TEntryPtr const& entry : leaving)
        Unlock(entry->lock, entry->widget);
    std::vector<TOutdatedLock> const outdated = std::move(m_Outdated);
    for (auto const& [lock, window] : outdated)
        Unlock(lock, window);
}

void TWindowStacks::Push(TPopupWindow* window)
{
    if (window)
        PushWindow(window, STACK_POPUPS, window->SurfaceID());
}

void TWindowStacks::Push(TTaskWindow* window)
{
    if (window)
        PushWindow(window, STACK_TASK_WINDOWS, window->SurfaceID());
}

QList<TWindow*> TWindowStacks::GetWindows(EWindowStack stack, KVN::MorvaneID const& id) const
{
    QList<TWindow*> windows;
    for (TEntryPtr const& entry : m_Entries)
    {
        if (IsOf(*entry, stack, id))
            windows.append(entry->Window());
    }
    return windows;
}

void TWindowStacks::PushWindow(TWindow* window, EWindowStack stack, KVN::MorvaneID const& id)
{
    if (!m_Screen)
        return;
    TEntryPtr const entry = TakeOrMake(window);
    entry->stack = stack;
    entry->id = id;
    entry->isTakenDown = false;
    entry->isOnTopAnew = true;
    entry->calledUpOver = m_Screen->GetWindowManager()->GetFullViewId();
    entry->locksBelow.clear();
    for (TLockingWidget const& lock : m_Screen->GetLockingWidgets())
        entry->locksBelow.append(lock.widget);
    m_Entries.push_back(entry);
    // Anew: whoever heard before of its being hidden may have shown it again, and that one must not be heard.
    disconnect(entry->hidden);
    entry->hidden = connect(window, &TWindow::WindowHidden, this, [this, window] { OnHidden(window); });
    Adopt(*entry);
    Place(*entry);

    QPointer<TWindowStacks> const self(this);
    // Past what ShowWindow() of the window itself does, which is to come here.
    window->TWindow::ShowWindow(false);
    if (!self)
        return;
    if (m_Screen && IsUp(entry) && !entry->Window()->isHidden())
        Present(*entry);
    if (self)
        Arrange();
}

// For what has just appeared.
void TWindowStacks::Present(TEntry const& entry)
{
    Place(entry);
    QPointer<TScreen> const screen(m_Screen);
    QPointer<TWindow> const window(entry.Window());
    screen->GetWindowManager()->HideMiniviewsIfOverlapping(window.data());
    if (screen && window)
        screen->PushMMIWidget(window);
}

TWindowStacks::TEntryPtr TWindowStacks::Find(QObject const* window) const
{
    auto const found = std::find_if(m_Entries.begin(), m_Entries.end(),
                                    [window](TEntryPtr const& entry) { return entry->address == window; });
    return found == m_Entries.end() ? TEntryPtr() : *found;
}

TWindowStacks::TEntryPtr TWindowStacks::TakeOrMake(TWindow* window)
{
    if (TEntryPtr known = Take(m_Entries, window))
        return known;
    // One that is just leaving keeps the lock that it still has.
    TEntryPtr entry = Take(m_Leaving, window);
    if (!entry)
        entry = std::make_shared<TEntry>();
    entry->widget = window;
    entry->address = window;
    Watch(window);
    return entry;
}

TWindowStacks::TEntryPtr TWindowStacks::Take(std::vector<TEntryPtr>& entries, QObject const* window)
{
    auto const found = std::find_if(entries.begin(), entries.end(),
                                    [window](TEntryPtr const& entry) { return entry->address == window; });
    if (found == entries.end())
        return {};
    TEntryPtr entry = *found;
    entries.erase(found);
    return entry;
}

void TWindowStacks::Watch(TWindow* window)
{
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, &TWindowStacks::OnDestroyed, Qt::UniqueConnection);
    auto const onSurface = [this, window](KVN::MorvaneID const&, KVN::MorvaneID const& id)
    { OnSurfaceChanged(window, id); };
    if (auto* const popup = qobject_cast<TPopupWindow*>(window))
        connect(popup, &TPopupWindow::ParentAppIDChanged, this, onSurface);
    if (auto* const task = qobject_cast<TTaskWindow*>(window))
    {
        connect(task, &TTaskWindow::ParentAppIDChanged, this, onSurface);
        connect(task, &TTaskWindow::DesiredGeometryChanged, this,
                [this, window] { OnDesiredGeometryChanged(window); });
    }
}

// Windows without a parent find the screen by themselves.
void TWindowStacks::Adopt(TEntry& entry)
{
    QWidget* const parent = entry.Window()->parentWidget();
    if (!parent || parent == m_Screen)
        return;
    disconnect(entry.homeGone);
    entry.home = parent;
    entry.homeGone = connect(parent, &QObject::destroyed, entry.Window(), &QObject::deleteLater);
    // One that is seen elsewhere is hidden by it.
    TWindow const* const before = m_Hiding;
    m_Hiding = entry.Window();
    SetParentInPlace(entry.Window(), m_Screen);
    m_Hiding = before;
}

void TWindowStacks::GiveBack(TEntry& entry)
{
    disconnect(entry.homeGone);
    if (entry.Window() && entry.home && m_Screen && entry.Window()->parentWidget() == m_Screen)
        SetParentInPlace(entry.Window(), entry.home);
}

bool TWindowStacks::IsOf(TEntry const& entry, EWindowStack stack, KVN::MorvaneID const& id)
{
    return entry.IsStaying() && entry.stack == stack && entry.id == id;
}

bool TWindowStacks::IsIn(TEntryPtr const& entry) const
{
    return entry->IsStaying() && std::find(m_Entries.begin(), m_Entries.end(), entry) != m_Entries.end();
}

bool TWindowStacks::IsTop(TEntry const& entry) const
{
    auto const top =
        std::find_if(m_Entries.rbegin(), m_Entries.rend(),
                     [&entry](TEntryPtr const& other) { return IsOf(*other, entry.stack, entry.id); });
    return top != m_Entries.rend() && top->get() == &entry;
}

bool TWindowStacks::IsUp(TEntryPtr const& entry) const
{
    if (!IsIn(entry) || !IsTop(*entry))
        return false;
    int const fullView = m_Screen->GetWindowManager()->GetFullViewId();
    return entry->calledUpOver == fullView || BelongsTo(entry->id, fullView) || !HasFullView(entry->id) ||
           ModalityOf(*entry) == KVN::MODAL_GLOBAL;
}

// A window stands in for the modal ones that it covers.
int TWindowStacks::ModalityOf(TEntry const& entry) const
{
    int strongest = KVN::MODAL_NONE;
    for (TEntryPtr const& other : m_Entries)
    {
        if (IsOf(*other, entry.stack, entry.id))
            strongest = qMax(strongest, other->Window()->ModalType());
    }
    return strongest;
}

// The id of a module stands for all of its views.
bool TWindowStacks::BelongsTo(KVN::MorvaneID const& id, int viewId) const
{
    KVN::MorvaneID const view = m_Screen->GetAllNavButtonIDs().value(viewId);
    return view.IsValid() && (view == id || (id.GetView() == 0 && id.GetModuleUID() == view.GetModuleUID()));
}

bool TWindowStacks::HasFullView(KVN::MorvaneID const& id) const
{
    auto const viewIds = m_Screen->GetAllNavButtonIDs().keys();
    return std::any_of(viewIds.begin(), viewIds.end(),
                       [&](int viewId) {
                           return BelongsTo(id, viewId) && m_Screen->GetWindowManager()->HasFullView(viewId);
                       });
}

// Showing and hiding run the windows' own code, which may ask for the same again: that is then done once more
// at the end instead of in the middle.
void TWindowStacks::Arrange()
{
    m_ArrangeAgain = true;
    if (m_Arranging)
        return;
    QPointer<TWindowStacks> const self(this);
    m_Arranging = true;
    for (int round = 0; m_ArrangeAgain && round < MostRounds; ++round)
    {
        m_ArrangeAgain = false;
        if (!ArrangeOnce())
            return;
    }
    m_Arranging = false;
    if (m_ArrangeAgain)
        QTimer::singleShot(0, this, &TWindowStacks::Arrange);
}

// False when this object did not survive it.
bool TWindowStacks::ArrangeOnce()
{
    QPointer<TWindowStacks> const self(this);
    for (auto const step :
         {&TWindowStacks::HideWhatIsDown, &TWindowStacks::ShowWhatIsUp, &TWindowStacks::SetLocks,
          &TWindowStacks::Restack, &TWindowStacks::TellOverlayManager})
    {
        if (m_Screen)
            (this->*step)();
        if (!self)
            return false;
    }
    return true;
}

void TWindowStacks::HideWhatIsDown()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const entries = m_Entries;
    for (TEntryPtr const& entry : entries)
    {
        if (!m_Screen || !IsIn(entry) || entry->Window()->isHidden() || IsUp(entry))
            continue;
        TWindow const* const before = m_Hiding;
        m_Hiding = entry->Window();
        entry->Window()->hide();
        if (!self)
            return;
        m_Hiding = before;
    }
}

void TWindowStacks::ShowWhatIsUp()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const entries = m_Entries;
    for (TEntryPtr const& entry : entries)
    {
        if (!m_Screen || !IsUp(entry) || !entry->Window()->isHidden())
            continue;
        Adopt(*entry);
        Place(*entry);
        entry->Window()->show();
        if (!self)
            return;
        if (m_Screen && IsUp(entry) && !entry->Window()->isHidden())
            Present(*entry);
        if (!self)
            return;
    }
}

TWindowStacks::TLock TWindowStacks::WantedLock(TEntryPtr const& entry) const
{
    TLock lock;
    lock.type = IsUp(entry) ? ModalityOf(*entry) : int(KVN::MODAL_NONE);
    if (lock.type == KVN::MODAL_NONE)
        return lock;
    lock.holder = HOLDER_SCREEN;
    bool const isOverItsView = BelongsTo(entry->id, m_Screen->GetWindowManager()->GetFullViewId());
    if (lock.type == KVN::MODAL_LOCAL && isOverItsView && m_Screen->GetCurrentCanvas())
    {
        lock.holder = HOLDER_CANVAS;
        lock.canvas = m_Screen->GetCurrentCanvas();
    }
    return lock;
}

// New locks first, so that the screen is not unlocked for a moment when one window takes the place of
// another.
void TWindowStacks::SetLocks()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const leaving = m_Leaving;
    SetNewLocks();
    if (self)
        TakeOldLocksOff(leaving);
}

void TWindowStacks::SetNewLocks()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const entries = m_Entries;
    for (TEntryPtr const& entry : entries)
    {
        if (!m_Screen || !entry->Window())
            continue;
        TLock const wanted = WantedLock(entry);
        bool const isAgain = entry->isOnTopAnew && wanted.holder == HOLDER_SCREEN;
        entry->isOnTopAnew = false;
        if (wanted == entry->lock && !isAgain)
            continue;
        // Another lock by the same holder replaces the one before.
        if (wanted.holder != entry->lock.holder || wanted.canvas != entry->lock.canvas)
            m_Outdated.emplace_back(entry->lock, entry->widget);
        entry->lock = wanted;
        Lock(*entry);
        if (!self)
            return;
    }
}

// What is not off yet stays in its list, for the destructor: each step may be the last one.
void TWindowStacks::TakeOldLocksOff(std::vector<TEntryPtr> const& leaving)
{
    QPointer<TWindowStacks> const self(this);
    for (TEntryPtr const& entry : leaving)
    {
        auto const found = std::find(m_Leaving.begin(), m_Leaving.end(), entry);
        // It came back, or its end took the lock off.
        if (found == m_Leaving.end())
            continue;
        m_Leaving.erase(found);
        disconnect(entry->widget, nullptr, this, nullptr);
        Unlock(entry->lock, entry->widget);
        if (!self)
            return;
    }
    while (!m_Outdated.empty())
    {
        auto const [lock, window] = m_Outdated.back();
        m_Outdated.pop_back();
        Unlock(lock, window);
        if (!self)
            return;
    }
}

void TWindowStacks::Lock(TEntry const& entry)
{
    KVN::ModalData const data{entry.Window(), entry.Window()->GetTitle(), entry.lock.type, {}};
    if (entry.lock.holder == HOLDER_SCREEN)
        m_Screen->AddLockingWidget(data);
    else if (entry.lock.holder == HOLDER_CANVAS && entry.lock.canvas)
        entry.lock.canvas->AddLockingWidget(data);
}

// A window that is gone is null: screen and canvas drop it by themselves and put right what it has left.
void TWindowStacks::Unlock(TLock const& lock, QWidget* window)
{
    if (lock.holder == HOLDER_SCREEN && m_Screen)
        m_Screen->RemoveLockingWidget(window);
    else if (lock.holder == HOLDER_CANVAS && lock.canvas)
        lock.canvas->RemoveLockingWidget(window);
}

// Task windows first, then popups, each in the order of their arrival.
void TWindowStacks::Restack()
{
    if (!m_Screen)
        return;
    for (EWindowStack const stack : {STACK_TASK_WINDOWS, STACK_POPUPS})
    {
        std::vector<TEntryPtr> const entries = m_Entries;
        for (TEntryPtr const& entry : entries)
        {
            // What locks the screen is put into its layer by the screen.
            if (entry->stack == stack && entry->Window() && !entry->Window()->isHidden() &&
                entry->lock.holder != HOLDER_SCREEN)
                RestackWindow(*entry);
        }
    }
    Q_EMIT Restacked();
}

void TWindowStacks::RestackWindow(TEntry const& entry)
{
    QVector<TLockingWidget> const& locks = m_Screen->GetLockingWidgets();
    if (locks.isEmpty())
    {
        m_Screen->RaiseToBelowAlarm(entry.Window());
        m_Screen->RaiseToBelowSystemToolbar(entry.Window());
    }
    else if (entry.locksBelow.contains(locks.constLast().widget))
    {
        m_Screen->RaiseToBelowAlarm(entry.Window());
    }
    else
    {
        entry.Window()->stackUnder(LowestLockLayer());
    }
}

// The lowest of the fade and the locking widgets: all but the last one lie below the fade.
QWidget* TWindowStacks::LowestLockLayer() const
{
    QVector<TLockingWidget> const& locks = m_Screen->GetLockingWidgets();
    for (int i = 0; i < locks.size() - 1; ++i)
    {
        if (locks[i].widget->parentWidget() == m_Screen)
            return locks[i].widget;
    }
    return m_Screen->GetModalWidget();
}

void TWindowStacks::TellOverlayManager()
{
    std::set<TStackKey> filled;
    for (TEntryPtr const& entry : m_Entries)
    {
        if (entry->IsStaying())
            filled.emplace(entry->stack, entry->id);
    }
    std::set<TStackKey> const before = std::move(m_Filled);
    m_Filled = filled;
    std::vector<TStackKey> changed;
    std::set_symmetric_difference(before.begin(), before.end(), filled.begin(), filled.end(),
                                  std::back_inserter(changed));
    QPointer<TScreen> const screen(m_Screen);
    for (TStackKey const& key : changed)
    {
        if (!screen)
            return;
        bool const isEmpty = filled.count(key) == 0;
        if (key.first == STACK_POPUPS)
            screen->GetCameraOverlayManager()->OnPopupWindowStackEmptyChanged(key.second, isEmpty);
        else
            screen->GetCameraOverlayManager()->OnTaskWindowStackEmptyChanged(key.second, isEmpty);
    }
}

void TWindowStacks::Place(TEntry const& entry)
{
    if (auto* const task = qobject_cast<TTaskWindow*>(entry.Window()))
        task->setGeometry(TaskWindowPlace(*m_Screen, *task));
}

void TWindowStacks::PlaceAll()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const entries = m_Entries;
    for (TEntryPtr const& entry : entries)
    {
        if (!self || !m_Screen)
            return;
        if (!IsIn(entry) || entry->Window()->isHidden())
            continue;
        if (entry->stack == STACK_TASK_WINDOWS)
            Place(*entry);
        else if (entry->Window()->ShouldAutoReCentre())
            entry->Window()->ReCentre(m_Screen);
    }
}

// Nothing is done in the middle of hide(): the window must survive it. HideWindow() is followed by a signal.
bool TWindowStacks::eventFilter(QObject* watched, QEvent* event)
{
    bool const isHidden = event->type() == QEvent::HideToParent;
    if ((!isHidden && event->type() != QEvent::ShowToParent) || watched == m_Hiding)
        return false;
    TEntryPtr const entry = Find(watched);
    if (!entry || entry->isTakenDown == isHidden)
        return false;
    entry->isTakenDown = isHidden;
    QTimer::singleShot(0, this, &TWindowStacks::DropTakenDown);
    return false;
}

void TWindowStacks::DropTakenDown()
{
    QPointer<TWindowStacks> const self(this);
    std::vector<TEntryPtr> const entries = m_Entries;
    for (TEntryPtr const& entry : entries)
    {
        if (self && entry->isTakenDown)
            OnHidden(entry->Window());
    }
    if (self)
        Arrange();
}

void TWindowStacks::OnHidden(QObject* window)
{
    TEntryPtr const entry = Take(m_Entries, window);
    if (!entry || !entry->Window())
        return;
    disconnect(window, nullptr, this, nullptr);
    window->removeEventFilter(this);
    // It may die before its lock is off.
    connect(window, &QObject::destroyed, this, &TWindowStacks::OnDestroyed);
    m_Leaving.push_back(entry);
    GiveBack(*entry);
    Arrange();
}

// Of the window only its address is left, by which screen and canvas know the lock.
void TWindowStacks::OnDestroyed(QObject* window)
{
    TEntryPtr const known = Take(m_Entries, window);
    TEntryPtr const entry = known ? known : Take(m_Leaving, window);
    if (!entry)
        return;
    disconnect(entry->homeGone);
    QPointer<TWindowStacks> const self(this);
    Unlock(entry->lock, static_cast<QWidget*>(window));
    if (self)
        Arrange();
}

// The window is the other module's now, wherever it was called up.
void TWindowStacks::OnSurfaceChanged(TWindow* window, KVN::MorvaneID const& id)
{
    TEntryPtr const entry = Take(m_Entries, window);
    if (!entry)
        return;
    entry->id = id;
    entry->calledUpOver = OverNoView;
    m_Entries.push_back(entry);
    Arrange();
}

void TWindowStacks::OnDesiredGeometryChanged(QObject* window)
{
    TEntryPtr const entry = Find(window);
    if (!entry || !entry->Window() || !m_Screen || entry->Window()->isHidden())
        return;
    Place(*entry);
    if (entry->Window() && m_Screen)
        m_Screen->GetWindowManager()->HideMiniviewsIfOverlapping(entry->Window());
}

void TWindowStacks::OnFullViewChanged()
{
    QPointer<TWindowStacks> const self(this);
    Arrange();
    if (self)
        PlaceAll();
}
