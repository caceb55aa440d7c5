#include "TMenuManager.h"

#include "LockChecks.h"
#include "TMenuManagerPrivate.h"
#include "TMenuNotices.h"
#include "TMenuState.h"

#include <QMutex>
#include <QMutexLocker>
#include <QPointer>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{
constexpr int NoMenu = TActivationConfig::NoMenu;

bool HasVisibleShortcut(TMenuStateCopy const& menu)
{
    return std::any_of(menu.elements.begin(), menu.elements.end(),
                       [](TElementState const& element)
                       { return element.IsShortcut() && element.IsVisible(); });
}

bool HasShortcut(TMenuStateCopy const& menu)
{
    return std::any_of(menu.elements.begin(), menu.elements.end(),
                       [](TElementState const& element) { return element.IsShortcut(); });
}

bool SetEnabled(TMenuState* menu, bool enabled)
{
    QWriteLocker const locker(menu->GetLock());
    return menu->SetEnabledInternal(enabled);
}

// Menus whose state was switched, to be told when the manager's lock is free.
struct TSwitched
{
    int id;
    QPointer<TMenuState> menu;
};

void Tell(std::vector<TSwitched> const& switched)
{
    for (TSwitched const& one : switched)
    {
        if (one.menu)
            Q_EMIT one.menu->EnabledStateChanged(one.id);
    }
}
} // namespace

TMenuManager::TMenuManager(QObject* parent)
    : QObject(parent)
    , m_Private(std::make_unique<TMenuManagerPrivate>(true))
    , m_MenusInUse(std::make_shared<QRecursiveMutex>())
    , m_Notices(std::make_shared<TMenuNotices>(this))
{
}

TMenuManager::~TMenuManager()
{
    m_Notices->Close();
}

std::vector<TMenuManager::TEntry>::const_iterator TMenuManager::Find(int menuID) const
{
    return std::find_if(m_Menus.begin(), m_Menus.end(),
                        [menuID](TEntry const& entry) { return entry.id == menuID; });
}

std::vector<TMenuManager::TEntry>::iterator TMenuManager::Find(int menuID)
{
    return m_Menus.begin() + (std::as_const(*this).Find(menuID) - m_Menus.cbegin());
}

int TMenuManager::FindID(TMenuState const* menu) const
{
    auto const found = std::find_if(m_Menus.begin(), m_Menus.end(),
                                    [menu](TEntry const& entry) { return entry.menu == menu; });
    return found == m_Menus.end() ? NoMenu : found->id;
}

TMenuState* TMenuManager::GetMenuInternal(int menuID) const
{
    Q_ASSERT(IsHeld(&m_Lock));
    auto const found = Find(menuID);
    return found == m_Menus.end() ? nullptr : found->menu;
}

TMenuStateCopy TMenuManager::CloneInternal(int menuID) const
{
    TMenuState const* const menu = GetMenuInternal(menuID);
    return menu ? menu->Clone() : TMenuStateCopy();
}

std::vector<TMenuStateCopy> TMenuManager::GetAllMenuElementsInternal() const
{
    Q_ASSERT(IsHeld(&m_Lock));
    std::vector<TMenuStateCopy> menus;
    menus.reserve(m_Menus.size());
    for (TEntry const& entry : m_Menus)
        menus.push_back(entry.menu->Clone());
    return menus;
}

// The revision is read first, and so never newer than what is copied.
TMenuSnapshot TMenuManager::SnapshotInternal() const
{
    Q_ASSERT(IsHeld(&m_Lock));
    quint64 const revision = std::accumulate(m_Menus.begin(), m_Menus.end(), quint64(0),
                                             [](quint64 sum, TEntry const& entry)
                                             { return sum + entry.menu->GetLeadsRevision(); });
    return {[this] { return GetAllMenuElementsInternal(); }, revision};
}

std::vector<TMenuState*> TMenuManager::GetMenus() const
{
    QReadLocker const locker(&m_Lock);
    std::vector<TMenuState*> menus;
    menus.reserve(m_Menus.size());
    for (TEntry const& entry : m_Menus)
        menus.push_back(entry.menu);
    return menus;
}

std::vector<int> TMenuManager::GetMenuIDs() const
{
    QReadLocker const locker(&m_Lock);
    std::vector<int> ids;
    ids.reserve(m_Menus.size());
    for (TEntry const& entry : m_Menus)
        ids.push_back(entry.id);
    return ids;
}

TMenuState* TMenuManager::GetMenu(int menuID) const
{
    QReadLocker const locker(&m_Lock);
    return GetMenuInternal(menuID);
}

QList<int> TMenuManager::GetMenuShownOrder() const
{
    QReadLocker const locker(&m_Lock);
    return m_Private->GetShownOrder();
}

TMenuDisplayState TMenuManager::GetMenuDisplayState(int menuID) const
{
    QReadLocker const locker(&m_Lock);
    return m_Private->GetState(menuID);
}

std::vector<TElementState> TMenuManager::GetElementsState(int menuID) const
{
    return GetMenuElements(menuID).elements;
}

TMenuStateCopy TMenuManager::GetMenuElements(int menuID) const
{
    QReadLocker const locker(&m_Lock);
    return CloneInternal(menuID);
}

std::vector<TMenuStateCopy> TMenuManager::GetAllMenuElements() const
{
    QReadLocker const locker(&m_Lock);
    return GetAllMenuElementsInternal();
}

bool TMenuManager::GetMenusEnabled() const
{
    QReadLocker const locker(&m_Lock);
    return m_MenusEnabled;
}

bool TMenuManager::IsMenuEnabled(int menuID) const
{
    QReadLocker const locker(&m_Lock);
    TMenuState const* const menu = GetMenuInternal(menuID);
    return menu && menu->IsEnabled();
}

int TMenuManager::GetRootMenuID() const
{
    QReadLocker const locker(&m_Lock);
    return m_Private->GetRootMenuID();
}

void TMenuManager::SetRootMenuID(int menuID, bool show)
{
    QWriteLocker locker(&m_Lock);
    m_Private->SetRootMenuID(menuID);
    if (!show || !m_Private->IsKnown(menuID))
        return;
    HandleShowMenu(menuID);
    locker.unlock();
    Q_EMIT MenuStateChanged();
}

int TMenuManager::AddMenu(TMenuState* menu)
{
    if (!menu)
        return NoMenu;
    auto const inUse = m_MenusInUse;
    QMutexLocker inUseLocker(inUse.get());
    QWriteLocker locker(&m_Lock);
    int const known = FindID(menu);
    if (known != NoMenu)
        return known;
    int const id = m_NextMenuID++;
    Register(id, menu);
    bool const isSwitched = !m_MenusEnabled && SetEnabled(menu, false);
    locker.unlock();
    QPointer<TMenuManager> const self(this);
    QPointer<TMenuState> const added(menu);
    if (isSwitched)
        Tell({{id, added}});
    if (added)
        menu->RefreshMenu();
    // Either may have taken the menu back, or ended it or the manager.
    if (!self || !added || !Start(id, menu))
        return id;
    inUseLocker.unlock();
    Q_EMIT MenuListChanged();
    return id;
}

void TMenuManager::Register(int menuID, TMenuState* menu)
{
    m_Menus.push_back({menuID, menu, menu->GetLeadsRevision()});
    menu->SetMenuID(menuID);
    connect(
        menu, &QObject::destroyed, this, [this, menuID] { OnMenuDestroyed(menuID); }, Qt::DirectConnection);
}

// The notices are held on to, for a thread that calls this while the manager goes.
auto TMenuManager::Looker(int menuID)
{
    return [this, notices = m_Notices, menuID] {
        notices->Post(TMenuNotices::ELEMENT_STATE, menuID, [this, menuID] { OnElementStateChanged(menuID); });
    };
}

bool TMenuManager::Start(int menuID, TMenuState* menu)
{
    QWriteLocker const locker(&m_Lock);
    if (GetMenuInternal(menuID) != menu)
        return false;
    Connect(menuID, menu);
    HandleMenuAdded(menuID);
    // What threads changed before they were listened to.
    if (IsAnyDirty(menu->GetElementsState()))
        Looker(menuID)();
    return true;
}

// All of it arrives from the event loop of the manager's thread, in the order of the menus' signals.
void TMenuManager::Connect(int menuID, TMenuState* menu)
{
    auto const notices = m_Notices;
    connect(
        menu, &TMenuState::ElementListChanged, this,
        [this, notices, menuID] {
            notices->Post(TMenuNotices::ELEMENT_LIST, menuID,
                          [this, menuID] { OnElementListChanged(menuID); });
        },
        Qt::DirectConnection);
    connect(menu, &TMenuState::ElementStateChanged, this, Looker(menuID), Qt::DirectConnection);
    connect(
        menu, &TMenuState::EnabledStateChanged, this,
        [this, notices, menuID]
        {
            notices->Post(TMenuNotices::ENABLED_STATE, menuID,
                          [this, menuID] { Q_EMIT ElementStateChanged(menuID); });
        },
        Qt::DirectConnection);
    connect(
        menu, &TMenuState::ToggleMenu, this,
        [this, notices](int target, int parent, int element)
        {
            notices->Send({target, parent},
                          [this, target, parent, element] { OnToggleMenu(target, parent, element); });
        },
        Qt::DirectConnection);
    connect(
        menu, &TMenuState::ForceToShortcut, this,
        [this, notices](int id) { notices->Send({id}, [this, id] { OnForceToShortcut(id); }); },
        Qt::DirectConnection);
    connect(
        menu, &TMenuState::HideMenu, this,
        [this, notices](int id) { notices->Send({id}, [this, id] { OnHideMenu(id); }); },
        Qt::DirectConnection);
}

void TMenuManager::RemoveMenu(int menuID)
{
    auto const inUse = m_MenusInUse;
    QMutexLocker inUseLocker(inUse.get());
    QWriteLocker locker(&m_Lock);
    auto const found = Find(menuID);
    if (found == m_Menus.end())
        return;
    TMenuState* const menu = found->menu;
    m_Menus.erase(found);
    disconnect(menu, nullptr, this, nullptr);
    HandleMenuRemoved(menuID);
    // The menu leaves as it came: a later SetMenusEnabled() does not reach it any more.
    bool const isSwitched = !m_MenusEnabled && SetEnabled(menu, true);
    locker.unlock();
    QPointer<TMenuManager> const self(this);
    if (isSwitched)
        Tell({{menuID, menu}});
    inUseLocker.unlock();
    if (self)
        Q_EMIT MenuListChanged();
}

// The menu's own part is gone already: nothing of it is touched.
void TMenuManager::OnMenuDestroyed(int menuID)
{
    auto const inUse = m_MenusInUse;
    QMutexLocker inUseLocker(inUse.get());
    QWriteLocker locker(&m_Lock);
    auto const found = Find(menuID);
    if (found == m_Menus.end())
        return;
    m_Menus.erase(found);
    HandleMenuRemoved(menuID);
    locker.unlock();
    inUseLocker.unlock();
    Q_EMIT MenuListChanged();
}

void TMenuManager::SetMenusEnabled(bool enabled, bool hide)
{
    auto const inUse = m_MenusInUse;
    QMutexLocker inUseLocker(inUse.get());
    QWriteLocker locker(&m_Lock);
    if (enabled == m_MenusEnabled)
        return;
    std::vector<TSwitched> switched;
    for (TEntry const& entry : m_Menus)
    {
        if (SetEnabled(entry.menu, enabled))
            switched.push_back({entry.id, entry.menu});
    }
    m_MenusEnabled = enabled;
    HandleMenusEnabledChanged(enabled, hide);
    locker.unlock();
    QPointer<TMenuManager> const self(this);
    Tell(switched);
    inUseLocker.unlock();
    if (self)
        Q_EMIT EnabledChanged(enabled);
    if (self)
        Q_EMIT MenuStateChanged();
}

void TMenuManager::SetAutoHideAllowed(bool allowed)
{
    QWriteLocker const locker(&m_Lock);
    m_AutoHideAllowed = allowed;
}

void TMenuManager::RefreshAllMenus()
{
    auto const inUse = m_MenusInUse;
    QPointer<TMenuManager> const self(this);
    std::vector<int> const ids = GetMenuIDs();
    for (int const id : ids)
    {
        // One menu after the other: who wants to remove another one need not wait for all.
        QMutexLocker const inUseLocker(inUse.get());
        TMenuState* const menu = self ? GetMenu(id) : nullptr;
        if (menu)
            menu->RefreshMenu();
    }
}

void TMenuManager::ElementActivated(int menuID, int elementID)
{
    auto const inUse = m_MenusInUse;
    QMutexLocker inUseLocker(inUse.get());
    QWriteLocker locker(&m_Lock);
    TMenuState* const menu = GetMenuInternal(menuID);
    if (!menu)
        return;
    int menuToToggle = NoMenu;
    QReadLocker menuLocker(menu->GetLock());
    bool const isActivated = menu->ElementActivatedInternal(elementID, menuToToggle);
    menuLocker.unlock();
    // A press that does nothing hides nothing either: disabled menus are left as they are.
    bool const isHidden = isActivated && HandleElementActivated(menuID, elementID);
    locker.unlock();
    QPointer<TMenuManager> const self(this);
    if (menuToToggle != NoMenu)
        Q_EMIT menu->ToggleMenu(menuToToggle, menuID, elementID);
    inUseLocker.unlock();
    if (self && isHidden)
        Q_EMIT MenuStateChanged();
}

template<typename TDecision>
void TMenuManager::Decide(TDecision decision)
{
    QWriteLocker locker(&m_Lock);
    decision();
    locker.unlock();
    Q_EMIT MenuStateChanged();
}

void TMenuManager::HideMenu(int menuID)
{
    if (GetMenu(menuID))
        OnHideMenu(menuID);
}

void TMenuManager::ShowMenu(int menuID)
{
    if (GetMenu(menuID))
        Decide([this, menuID] { HandleShowMenu(menuID); });
}

void TMenuManager::HideAllMenus()
{
    Decide([this] { HandleHideAllMenus(); });
}

void TMenuManager::OnToggleMenu(int menuID, int parentMenuID, int parentElementID)
{
    Decide([this, menuID, parentMenuID, parentElementID]
           { HandleToggleMenu(menuID, parentMenuID, parentElementID); });
}

void TMenuManager::OnForceToShortcut(int menuID)
{
    Decide([this, menuID] { HandleForceToShortcut(menuID); });
}

void TMenuManager::OnHideMenu(int menuID)
{
    Decide([this, menuID] { HandleHideMenu(menuID); });
}

void TMenuManager::OnElementListChanged(int menuID)
{
    QWriteLocker locker(&m_Lock);
    HandleElementListChanged(menuID);
    locker.unlock();
    Q_EMIT ElementListChanged(menuID);
}

void TMenuManager::OnElementStateChanged(int menuID)
{
    QWriteLocker locker(&m_Lock);
    std::vector<TMenuManagerPrivate::TOpenMenu> const before = m_Private->GetOpenMenus();
    auto const entry = Find(menuID);
    if (entry != m_Menus.end())
        entry->decided = entry->menu->GetLeadsRevision();
    HandleElementStateChanged(menuID);
    bool const isOtherwise = m_Private->GetOpenMenus() != before;
    locker.unlock();
    QPointer<TMenuManager> const self(this);
    EmitElementStateChangedIfDirty(menuID);
    if (self && isOtherwise)
        Q_EMIT MenuStateChanged();
}

void TMenuManager::EmitElementStateChangedIfDirty(int menuID)
{
    QReadLocker locker(&m_Lock);
    auto const entry = Find(menuID);
    if (entry == m_Menus.end())
        return;
    unsigned leadsRevision = 0;
    bool const hasNews = entry->menu->TakeChanges(leadsRevision);
    // What changed after the decision and has gone back since is not dirty, and no signal will ask for a
    // look.
    if (leadsRevision != entry->decided)
        Looker(menuID)();
    locker.unlock();
    if (hasNews)
        Q_EMIT ElementStateChanged(menuID);
}

void TMenuManager::HandleMenuAdded(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->AddMenu(menuID);
}

void TMenuManager::HandleMenuRemoved(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->RemoveMenu(menuID, SnapshotInternal());
}

void TMenuManager::HandleToggleMenu(int menuID, int parentMenuID, int parentElementID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    if (!m_Private->IsKnown(menuID))
        return;
    TMenuDisplayState const state = m_Private->GetState(menuID);
    bool const isOpenFromThere = parentMenuID == NoMenu || state.parentMenuID == parentMenuID;
    if (state.isShown && menuID != m_Private->GetRootMenuID() && isOpenFromThere)
        m_Private->HideMenu(menuID, true, SnapshotInternal());
    else
        m_Private->ShowMenu(menuID, parentMenuID, parentElementID, HasVisibleShortcut(CloneInternal(menuID)),
                            true);
}

void TMenuManager::HandleForceToShortcut(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    if (HasShortcut(CloneInternal(menuID)))
        m_Private->ForceToShortcut(menuID, SnapshotInternal());
}

// A menu that asks for it is hidden for good too: otherwise it would come back as a shortcut with the next
// change.
void TMenuManager::HandleHideMenu(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->HideMenu(menuID, true, SnapshotInternal());
}

void TMenuManager::HandleShowMenu(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->ShowMenu(menuID, NoMenu, 0, false, false);
}

void TMenuManager::HandleHideAllMenus()
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->HideAll(SnapshotInternal());
}

void TMenuManager::HandleElementListChanged(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    Q_UNUSED(menuID)
}

void TMenuManager::HandleElementStateChanged(int menuID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    if (m_Private->IsKnown(menuID))
        m_Private->UpdateFromElements(CloneInternal(menuID), SnapshotInternal());
}

void TMenuManager::HandleMenusEnabledChanged(bool enabled, bool hide)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    m_Private->SetMenusEnabled(enabled, hide, SnapshotInternal());
}

bool TMenuManager::HandleElementActivated(int menuID, int elementID)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    TMenuState const* const menu = GetMenuInternal(menuID);
    if (!m_AutoHideAllowed || !menu)
        return false;
    EElementHideMode const mode = menu->GetElement(elementID).GetActivationConfig().GetHideMode();
    if (mode == ELEMENT_HIDE_MENU)
        m_Private->HideMenu(menuID, false, SnapshotInternal());
    else if (mode == ELEMENT_HIDE_ALL)
        m_Private->HideAll(SnapshotInternal());
    return mode == ELEMENT_HIDE_MENU || mode == ELEMENT_HIDE_ALL;
}
