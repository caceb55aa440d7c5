#include "TSystemSettingsProxy.h"

namespace
{
TSystemSettingsProxy* installedProxy = nullptr;
}

TSystemSettingsProxy::~TSystemSettingsProxy() = default;

bool TSystemSettingsProxy::IsExternalDrivePresent() const
{
    return false;
}

bool TSystemSettingsProxy::GetExternalDrivePath(QString& path) const
{
    Q_UNUSED(path)
    return false;
}

TSystemSettingsProxy* TSystemSettingsProxy::Instance()
{
    static TSystemSettingsProxy withoutDrive;
    return installedProxy != nullptr ? installedProxy : &withoutDrive;
}

TSystemSettingsProxy* TSystemSettingsProxy::Install(TSystemSettingsProxy* proxy)
{
    TSystemSettingsProxy* const before = installedProxy;
    installedProxy = proxy;
    return before;
}
