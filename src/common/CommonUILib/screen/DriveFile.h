#pragma once

#include "TExternalDrive.h"

/// Writes \a content to the file \a name in \a folder below \a drive; see TExternalDrive::SaveFile(). Both
/// are plain names, and neither a link on the drive nor a name with a path in it leads the file elsewhere.
EDriveResult WriteDriveFile(QString const& drive, QString const& folder, QString const& name,
                            QByteArray const& content);
