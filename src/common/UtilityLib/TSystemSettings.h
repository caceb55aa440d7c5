#pragma once

#include "UtilityLibExport.h"

#include <QString>

/// Where the console keeps its own files. The host names the root of the internal drive once at its start.
class UTILITYLIB_EXPORT TSystemSettings
{
public:
    /// Folder of branding files below the internal drive, without separators.
    static char const* const BrandingFolder;

    /// Root of the internal drive, ending in a separator. Until it is set: a folder "CommonUI" in the user's
    /// data location.
    static QString GetInternalDrivePath();

    /// Sets the root; a missing last separator is added. An empty path brings the default back.
    static void SetInternalDrivePath(QString const& path);
};
