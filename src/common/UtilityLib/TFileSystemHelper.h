#pragma once

#include "UtilityLibExport.h"

#include <QString>

/// What the file systems of the console's drives have in common.
class UTILITYLIB_EXPORT TFileSystemHelper
{
public:
    /// Every character that must not stand in the name of a file, so that the drive can be read on other
    /// machines too: what FAT reserves, and control characters.
    static QString GetInvalidFileNameString();
};
