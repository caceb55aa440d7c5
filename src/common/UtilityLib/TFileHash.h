#pragma once

#include "UtilityLibExport.h"

#include <QByteArray>
#include <QString>

/// Digests by which the console recognises data files that were made for it.
class UTILITYLIB_EXPORT TFileHash
{
public:
    /// The 20-byte SHA-1 of the console's salt followed by the file's bytes; read in pieces, so a file of any
    /// size is fine. Empty for what is no regular file or cannot be read to its end.
    ///
    /// The salt is the line "CommonUI console file 1" with its line end, so that a shell makes the digest of
    /// a file too: printf 'CommonUI console file 1\n' | cat - FILE | sha1sum. It tells files that were made
    /// for this console from others; it is no secret and no signature.
    static QByteArray CalculateFileSaltedSHA1(QString const& path);
};
