#pragma once

#include "TExternalDrive.h"

#include <QByteArray>
#include <QString>

/// One file on its way to the external drive; see TExternalDrive::SaveFile(). Folder and name are plain
/// names, and neither a link on the drive nor a name with a path in it leads the file elsewhere.
///
/// The object holds on to the drive that it found when it was made, so the file cannot end up in what lies at
/// the same place later. Private to the room.
class TDriveFile
{
public:
    TDriveFile(QString const& drive, QString const& folder, QString const& name, QByteArray content);
    ~TDriveFile();
    TDriveFile(TDriveFile const&) = delete;
    TDriveFile& operator=(TDriveFile const&) = delete;

    /// Why there is no use in writing it; DRIVE_OK when there is.
    EDriveResult Obstacle() const { return m_Obstacle; }
    /// Writes it; files for one drive wait for one another. Makes system calls and nothing else, so that it
    /// may run in a process forked from this one.
    EDriveResult Write() const;

private:
    int m_Root = -1;
    EDriveResult m_Obstacle;
    QByteArray const m_Folder;
    QByteArray const m_Name;
    QByteArray const m_PartialName;
    QByteArray const m_Content;
};
