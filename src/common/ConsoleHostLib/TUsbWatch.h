#pragma once

#include "ConsoleHostLibExport.h"
#include "TExternalDrive.h"
#include "TSystemSettingsProxy.h"

#include <QObject>
#include <QString>

class TMountTable;
class TUDisks;

/// Tells the platform of the USB stick: while the watch lives, the external drive of TSystemSettingsProxy is
/// the stick that the system has mounted. It asks UDisks2 where the system bus offers it, and the kernel's
/// mount table otherwise; either may come and go. Mounting is left to the system.
///
/// With several sticks the first one stays until it is pulled. A folder may stand for a stick in its place;
/// it is inserted and pulled by calls. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TUsbWatch : public QObject, public TSystemSettingsProxy
{
    Q_OBJECT

public:
    /// Where the system tells of its drives.
    struct TSystem
    {
        QString busAddress; ///< D-Bus address; empty: the system bus
        QString mountTable = QStringLiteral("/proc/self/mountinfo");
        QString deviceTree = QStringLiteral("/sys");
    };

    /// Watches the sticks of the system. Those that the mount table knows are there at once.
    explicit TUsbWatch(TSystem const& system, QObject* parent = nullptr);
    /// \a folder is the stick, and inserted where it exists. Ejecting it pulls it.
    explicit TUsbWatch(QString const& folder, QObject* parent = nullptr);
    /// Brings the external drive back that was installed before.
    ~TUsbWatch() override;

    bool IsExternalDrivePresent() const override;
    bool GetExternalDrivePath(QString& path) const override;

    /// Whether there is a folder to insert and to pull.
    bool IsFolder() const;
    /// Puts the folder in; nothing where it does not exist, or when the sticks are the system's.
    void Insert();
    /// Takes the folder out; nothing when the sticks are the system's.
    void Pull();

Q_SIGNALS:
    /// The platform names the stick already.
    void Inserted(QString const& path);
    /// The platform names it no longer.
    void Pulled(QString const& path);

private:
    void OnSticksChanged();
    void SetStick(QString const& path);

    TSystemSettingsProxy* const m_Before;
    QString const m_Folder;
    TExternalDrive::TEject m_EjectBefore;
    TMountTable* m_MountTable = nullptr;
    TUDisks* m_UDisks = nullptr;
    QString m_Stick;
};
