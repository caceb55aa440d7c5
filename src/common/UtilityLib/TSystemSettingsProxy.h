#pragma once

#include "UtilityLibExport.h"

#include <QString>

/// The drives as the toolkit sees them: is a USB stick in, and where. The host, or a test, installs an
/// implementation; without one no stick is ever present. GUI thread only.
class UTILITYLIB_EXPORT TSystemSettingsProxy
{
public:
    virtual ~TSystemSettingsProxy();

    /// True while a stick is mounted and readable.
    virtual bool IsExternalDrivePresent() const;

    /// Writes the root of the stick, without a last separator, and answers true; answers false and leaves
    /// \a path alone when there is none.
    virtual bool GetExternalDrivePath(QString& path) const;

    /// The installed implementation; never null.
    static TSystemSettingsProxy* Instance();

    /// Installs \a proxy, which stays the caller's and must outlive its use; null brings the default back.
    /// Answers what was installed before, null for the default.
    static TSystemSettingsProxy* Install(TSystemSettingsProxy* proxy);
};
