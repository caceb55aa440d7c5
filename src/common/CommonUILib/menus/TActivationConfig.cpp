#include "TActivationConfig.h"

TActivationConfig::TActivationConfig()
    : TActivationConfig(NoMenu, ELEMENT_HIDE_NONE)
{
}

TActivationConfig::TActivationConfig(int menu, EElementHideMode hideMode)
    : TActivationConfig(menu, nullptr, nullptr, hideMode, NoArgument)
{
}

TActivationConfig::TActivationConfig(QObject* receiver, char const* method, EElementHideMode hideMode,
                                     int argument)
    : TActivationConfig(NoMenu, receiver, method, hideMode, argument)
{
}

TActivationConfig::TActivationConfig(int menu, QObject* receiver, char const* method,
                                     EElementHideMode hideMode, int argument)
    : m_Receiver(receiver)
    , m_Method(method)
    , m_Argument(argument)
    , m_MenuToToggle(menu)
    , m_HideMode(hideMode)
{
}

bool TActivationConfig::operator!=(TActivationConfig const& other) const
{
    return m_Receiver.current != other.m_Receiver.current || m_Method.current != other.m_Method.current ||
           m_Argument.current != other.m_Argument.current ||
           m_MenuToToggle.current != other.m_MenuToToggle.current ||
           m_HideMode.current != other.m_HideMode.current;
}

bool TActivationConfig::IsDirty() const
{
    return m_Receiver.IsDirty() || m_Method.IsDirty() || m_Argument.IsDirty() || m_MenuToToggle.IsDirty() ||
           m_HideMode.IsDirty();
}

void TActivationConfig::Clean()
{
    m_Receiver.Clean();
    m_Method.Clean();
    m_Argument.Clean();
    m_MenuToToggle.Clean();
    m_HideMode.Clean();
}

void TActivationConfig::SetCurrent(TActivationConfig const& other)
{
    m_Receiver.current = other.m_Receiver.current;
    m_Method.current = other.m_Method.current;
    m_Argument.current = other.m_Argument.current;
    m_MenuToToggle.current = other.m_MenuToToggle.current;
    m_HideMode.current = other.m_HideMode.current;
}
