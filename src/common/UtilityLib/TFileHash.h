#pragma once

#include "UtilityLibExport.h"

#include <QByteArray>
#include <QString>

/// Digests by which the console recognises data files that were made for it.
class UTILITYLIB_EXPORT TFileHash
{
public:
    /// The 20-byte SHA-1 of the console's salt followed by the file's bytes; read in pieces, so a file of any
    /// size is fine. Empty for a file that cannot be read to its end.
    static QByteArray CalculateFileSaltedSHA1(QString const& path);
};
