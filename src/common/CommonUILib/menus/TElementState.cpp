#include "TElementState.h"

TElementState::TElementState()
    : TElementState(TMMIDef(), TActivationConfig(), QString(), QString(), -1, false, false, false)
{
}

TElementState::TElementState(TMMIDef const& mmiDef, TActivationConfig const& config, QString const& name,
                             QString const& iconName, int controlID, bool enabled, bool visible,
                             bool shortcut)
    : m_Config(config)
    , m_Name(name)
    , m_IconName(iconName)
    , m_Enabled(enabled)
    , m_Visible(visible)
    , m_ControlVisible(true)
    , m_Shortcut(shortcut)
    , m_ControlID(controlID)
    , m_MMIDef(mmiDef)
{
}

bool TElementState::operator!=(TElementState const& other) const
{
    return m_ID != other.m_ID || m_Config != other.m_Config || m_Name.current != other.m_Name.current ||
           m_IconName.current != other.m_IconName.current || m_Enabled.current != other.m_Enabled.current ||
           m_Visible.current != other.m_Visible.current ||
           m_ControlVisible.current != other.m_ControlVisible.current ||
           m_Shortcut.current != other.m_Shortcut.current || m_ControlID.current != other.m_ControlID.current;
}

bool TElementState::IsDirty() const
{
    return m_Config.IsDirty() || m_Name.IsDirty() || m_IconName.IsDirty() || m_Enabled.IsDirty() ||
           m_Visible.IsDirty() || m_ControlVisible.IsDirty() || m_Shortcut.IsDirty() || m_ControlID.IsDirty();
}

void TElementState::Clean()
{
    m_Config.Clean();
    m_Name.Clean();
    m_IconName.Clean();
    m_Enabled.Clean();
    m_Visible.Clean();
    m_ControlVisible.Clean();
    m_Shortcut.Clean();
    m_ControlID.Clean();
}

void TElementState::SetCurrent(TElementState const& other)
{
    m_Config.SetCurrent(other.m_Config);
    m_Name.current = other.m_Name.current;
    m_IconName.current = other.m_IconName.current;
    m_Enabled.current = other.m_Enabled.current;
    m_Visible.current = other.m_Visible.current;
    m_ControlVisible.current = other.m_ControlVisible.current;
    m_Shortcut.current = other.m_Shortcut.current;
    m_ControlID.current = other.m_ControlID.current;
}
