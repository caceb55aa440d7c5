#include "TElementState.h"

#include <algorithm>

TElementState::TShared::TShared(TMMIDef const& leadsTo, TActivationConfig const& does, QString const& text,
                                QString const& icon)
    : config(does)
    , name(text)
    , iconName(icon)
    , mmiDef(leadsTo)
{
}

bool TElementState::TShared::HasSameValues(TShared const& other) const
{
    return this == &other || (!(config != other.config) && name.current == other.name.current &&
                              iconName.current == other.iconName.current);
}

TElementState::TElementState()
    : TElementState(TMMIDef(), TActivationConfig(), QString(), QString(), -1, false, false, false)
{
}

TElementState::TElementState(TMMIDef const& mmiDef, TActivationConfig const& config, QString const& name,
                             QString const& iconName, int controlID, bool enabled, bool visible,
                             bool shortcut)
    : m_Shared(new TShared(mmiDef, config, name, iconName))
    , m_Enabled(enabled)
    , m_Visible(visible)
    , m_ControlVisible(true)
    , m_Shortcut(shortcut)
    , m_ControlID(controlID)
{
}

// What is written to is this copy's alone. Qt would see that as well, but not that a thread which dropped its
// copy a moment ago has finished reading it.
TElementState::TShared& TElementState::Own()
{
    if (m_Shared.constData()->ref.loadAcquire() != 1)
        m_Shared = new TShared(*m_Shared.constData());
    return *m_Shared;
}

// What other copies share is left to them only if there is something to change.
void TElementState::SetName(QString const& name)
{
    if (GetName() != name)
        Own().name.current = name;
}

void TElementState::SetIconName(QString const& iconName)
{
    if (GetIconName() != iconName)
        Own().iconName.current = iconName;
}

bool TElementState::operator!=(TElementState const& other) const
{
    return m_ID != other.m_ID || m_Enabled.current != other.m_Enabled.current ||
           m_Visible.current != other.m_Visible.current ||
           m_ControlVisible.current != other.m_ControlVisible.current ||
           m_Shortcut.current != other.m_Shortcut.current ||
           m_ControlID.current != other.m_ControlID.current || !m_Shared->HasSameValues(*other.m_Shared);
}

bool TElementState::IsDirty() const
{
    return m_Enabled.IsDirty() || m_Visible.IsDirty() || m_ControlVisible.IsDirty() || m_Shortcut.IsDirty() ||
           m_ControlID.IsDirty() || m_Shared->IsDirty();
}

void TElementState::Clean()
{
    m_Enabled.Clean();
    m_Visible.Clean();
    m_ControlVisible.Clean();
    m_Shortcut.Clean();
    m_ControlID.Clean();
    if (!m_Shared.constData()->IsDirty())
        return;
    TShared& own = Own();
    own.config.Clean();
    own.name.Clean();
    own.iconName.Clean();
}

void TElementState::SetCurrent(TElementState const& other)
{
    m_Enabled.current = other.m_Enabled.current;
    m_Visible.current = other.m_Visible.current;
    m_ControlVisible.current = other.m_ControlVisible.current;
    m_Shortcut.current = other.m_Shortcut.current;
    m_ControlID.current = other.m_ControlID.current;
    if (m_Shared.constData()->HasSameValues(*other.m_Shared))
        return;
    TShared& own = Own();
    own.config.SetCurrent(other.m_Shared->config);
    own.name.current = other.m_Shared->name.current;
    own.iconName.current = other.m_Shared->iconName.current;
}

bool IsAnyDirty(std::vector<TElementState> const& elements)
{
    return std::any_of(elements.begin(), elements.end(),
                       [](TElementState const& element) { return element.IsDirty(); });
}
