#include "TMenuState.h"

#include "LockChecks.h"

#include <QMetaMethod>
#include <QMetaObject>

#include <algorithm>
#include <limits>

namespace
{
constexpr int LongestName = 200; // characters of a slot's name in the log

template<typename TElements>
auto FindElement(TElements& elements, int id)
{
    return std::find_if(elements.begin(), elements.end(),
                        [id](TElementState const& element) { return element.GetID() == id; });
}

// Whether both have the same part in opening and closing menus.
bool LeadsAlike(TElementState const& one, TElementState const& other)
{
    return one.IsVisible() == other.IsVisible() && one.IsShortcut() == other.IsShortcut() &&
           one.GetActivationConfig().GetMenuToToggle() == other.GetActivationConfig().GetMenuToToggle();
}

// Queued, so that the slot runs outside the menu's lock and in the thread of its object.
void CallSlot(TActivationConfig const& config)
{
    QObject* const receiver = config.GetReceiver();
    QByteArray const method = config.GetMethod();
    if (!receiver || method.isEmpty())
        return;
    bool const hasArgument = config.GetArgument() != TActivationConfig::NoArgument;
    QByteArray const signature =
        QMetaObject::normalizedSignature((method + (hasArgument ? "(int)" : "()")).constData());
    QMetaObject const* const meta = receiver->metaObject();
    int const index = meta->indexOfMethod(signature.constData());
    if (index < 0)
        qWarning("Menu: %s has no slot %s", meta->className(),
                 signature.left(LongestName).simplified().constData());
    else if (hasArgument)
        meta->method(index).invoke(receiver, Qt::QueuedConnection, Q_ARG(int, config.GetArgument()));
    else
        meta->method(index).invoke(receiver, Qt::QueuedConnection);
}
} // namespace

TMenuState::TMenuState(QString const& name, QObject* parent)
    : QObject(parent)
    , m_Name(name)
{
}

TMenuState::~TMenuState() = default;

int TMenuState::GetMenuID() const
{
    QReadLocker const locker(&m_Lock);
    return m_MenuID;
}

// It never changes, and so is not behind the lock.
QString TMenuState::GetMenuName() const
{
    return m_Name;
}

TElementState TMenuState::GetElement(int id) const
{
    QReadLocker const locker(&m_Lock);
    auto const found = FindElement(m_Elements, id);
    return found == m_Elements.end() ? TElementState() : *found;
}

std::vector<TElementState> TMenuState::GetElementsState() const
{
    QReadLocker const locker(&m_Lock);
    return m_Elements;
}

TMenuStateCopy TMenuState::Clone() const
{
    QReadLocker const locker(&m_Lock);
    // The first such snapshot is the one that may have to be corrected.
    unsigned none = m_ReportedRevision;
    if (m_Revision != none)
        m_ShownRevision.compare_exchange_strong(none, m_Revision);
    return {m_MenuID, m_Name, m_Elements};
}

bool TMenuState::IsEnabled() const
{
    QReadLocker const locker(&m_Lock);
    return IsEnabledInternal();
}

void TMenuState::SetMenuID(int id)
{
    QWriteLocker const locker(&m_Lock);
    m_MenuID = id;
}

int TMenuState::AddElement(TElementState const& element)
{
    return InsertElement(std::numeric_limits<int>::max(), element);
}

int TMenuState::InsertElement(int position, TElementState const& element)
{
    QWriteLocker locker(&m_Lock);
    int const id = InsertElementInternal(position, element);
    int const menuID = m_MenuID;
    locker.unlock();
    Q_EMIT ElementListChanged(menuID);
    return id;
}

int TMenuState::InsertElementInternal(int position, TElementState const& element)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    int const id = m_NextElementID++;
    int const place = qBound(0, position, static_cast<int>(m_Elements.size()));
    auto const inserted = m_Elements.insert(m_Elements.begin() + place, element);
    inserted->SetID(id);
    HandleElementAdded(*inserted);
    ++m_LeadsRevision;
    return id;
}

void TMenuState::RemoveElement(int id)
{
    QWriteLocker locker(&m_Lock);
    auto const found = FindElement(m_Elements, id);
    if (found == m_Elements.end())
        return;
    m_Elements.erase(found);
    ++m_LeadsRevision;
    int const menuID = m_MenuID;
    locker.unlock();
    Q_EMIT ElementListChanged(menuID);
}

void TMenuState::SetElement(TElementState const& element)
{
    if (element.GetID() == TElementState::NoID)
        return;
    QWriteLocker locker(&m_Lock);
    auto const found = FindElement(m_Elements, element.GetID());
    if (found == m_Elements.end())
        return;
    Change(*found, element);
    bool const isDirty = found->IsDirty();
    int const menuID = m_MenuID;
    locker.unlock();
    if (isDirty)
        Q_EMIT ElementStateChanged(menuID);
}

void TMenuState::Change(TElementState& element, TElementState const& values)
{
    if (!(element != values))
        return;
    ++m_Revision;
    if (!LeadsAlike(element, values))
        ++m_LeadsRevision;
    element.SetCurrent(values);
}

void TMenuState::CleanElements()
{
    QWriteLocker const locker(&m_Lock);
    CleanElementsInternal();
}

void TMenuState::CleanElementsInternal()
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    for (TElementState& element : m_Elements)
        element.Clean();
}

// In one step: what a thread changes afterwards is dirty again. A value that was shown and has gone back
// since is not dirty, and nobody would ever tell of it.
bool TMenuState::TakeChanges(unsigned& leadsRevision)
{
    QWriteLocker const locker(&m_Lock);
    bool const isShownWrong = m_ShownRevision != m_ReportedRevision && m_ShownRevision != m_Revision;
    bool const isDirty = std::any_of(m_Elements.begin(), m_Elements.end(),
                                     [](TElementState const& element) { return element.IsDirty(); });
    if (isDirty)
        CleanElementsInternal();
    m_ReportedRevision = m_Revision;
    m_ShownRevision = m_Revision;
    leadsRevision = m_LeadsRevision;
    return isDirty || isShownWrong;
}

void TMenuState::SetEnabled(bool enabled)
{
    QWriteLocker locker(&m_Lock);
    bool const hasChanged = SetEnabledInternal(enabled);
    int const menuID = m_MenuID;
    locker.unlock();
    if (hasChanged)
        Q_EMIT EnabledStateChanged(menuID);
}

bool TMenuState::SetEnabledInternal(bool enabled)
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    bool const wasEnabled = IsEnabledInternal();
    m_DisableCount = enabled ? qMax(0, m_DisableCount - 1) : m_DisableCount + 1;
    return IsEnabledInternal() != wasEnabled;
}

bool TMenuState::IsEnabledInternal() const
{
    Q_ASSERT(IsHeld(&m_Lock));
    return m_DisableCount == 0;
}

std::vector<TElementState>& TMenuState::GetElementsInternal()
{
    Q_ASSERT(IsHeldForWriting(&m_Lock));
    // The caller may change anything.
    ++m_Revision;
    ++m_LeadsRevision;
    return m_Elements;
}

std::vector<TElementState> const& TMenuState::GetElementsInternal() const
{
    Q_ASSERT(IsHeld(&m_Lock));
    return m_Elements;
}

// For reading: what an element does is queued, and nothing of the menu changes.
bool TMenuState::ElementActivated(int id)
{
    QReadLocker locker(&m_Lock);
    int menuToToggle = TActivationConfig::NoMenu;
    bool const isActivated = ElementActivatedInternal(id, menuToToggle);
    int const menuID = m_MenuID;
    locker.unlock();
    if (menuToToggle != TActivationConfig::NoMenu)
        Q_EMIT ToggleMenu(menuToToggle, menuID, id);
    return isActivated;
}

bool TMenuState::ElementActivatedInternal(int id, int& menuToToggle) const
{
    Q_ASSERT(IsHeld(&m_Lock));
    menuToToggle = TActivationConfig::NoMenu;
    auto const found = FindElement(m_Elements, id);
    if (found == m_Elements.end() || !CanInvoke(id))
        return false;
    if (!found->IsEnabled() || !found->IsVisible() || !IsEnabledInternal())
        return false;
    TActivationConfig const& config = found->GetActivationConfig();
    CallSlot(config);
    menuToToggle = config.GetMenuToToggle();
    return true;
}

void TMenuState::HandleElementAdded(TElementState& element)
{
    Q_UNUSED(element)
}

bool TMenuState::CanInvoke(int elementID) const
{
    Q_UNUSED(elementID)
    return true;
}
