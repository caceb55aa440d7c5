#pragma once

#include "CommonUILibExport.h"

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QProcess;

/// What became of a file for the external drive.
enum EDriveResult : int
{
    DRIVE_OK = 0,
    DRIVE_GONE,      ///< the drive was taken out since
    DRIVE_READ_ONLY, ///< it takes nothing, or nothing from this program
    DRIVE_FULL,      ///< no room for a file of this size
    DRIVE_REFUSED,   ///< the name or the folder leads off the drive, or is taken by something else
    DRIVE_ERROR      ///< the drive does not work
};
Q_DECLARE_METATYPE(EDriveResult)

/// The screen's work with the external drive, the USB stick: it saves files there that are whole or not there
/// at all, and takes the drive off the system when the operator wants to pull it. Where the drive is, is the
/// platform's to say. GUI thread only.
class COMMONUILIB_EXPORT TExternalDrive : public QObject
{
    Q_OBJECT

public:
    /// Takes the drive \a path off in a host's own way and answers true, or answers false.
    using TEject = std::function<bool(QString const& path)>;

    explicit TExternalDrive(QObject* parent = nullptr);
    /// An eject that is under way is carried through.
    ~TExternalDrive() override;

    /// Writes \a content to the file \a name in \a folder, right below the root \a drive; the folder is made
    /// where it is missing. A file of that name is replaced. Until all is on the drive the file bears another
    /// name, which is taken away after a failure: what bears its final name is whole.
    ///
    /// \a drive is the one that the platform named when the work began; when it names another or none now,
    /// nothing is written, as the same folder may lie on the internal drive by then. A failure is written to
    /// the operator's log and emitted.
    EDriveResult SaveFile(QString const& drive, QString const& folder, QString const& name,
                          QByteArray const& content);

    /// Starts to take the drive off: what the system holds back is written out (sync), then the drive is
    /// unmounted (umount). The screen goes on meanwhile, however long that takes; EjectFinished() tells the
    /// end. False when there is no drive. While an eject is under way there is no second one.
    bool Eject();
    bool IsEjecting() const;

    /// For a host whose drive is not a mounted one: \a eject is asked before sync and umount. Null: nobody.
    /// Answers what was set before.
    static TEject SetHostEject(TEject eject);

Q_SIGNALS:
    void SaveFailed(EDriveResult result);
    /// True: the drive may be pulled. The platform may name it still until it has noticed.
    void EjectFinished(bool ejected);

protected:
    /// \name In a process of its own
    /// Both run there, forked from this one: they may make system calls and nothing else.
    /// @{
    virtual void Sync() const;
    virtual bool Unmount(char const* path) const;
    /// @}

private:
    class TEjectProcess;

    void StartEject(QString const& path);
    void EndEject(bool ejected);

    QPointer<QProcess> m_Process;
    bool m_IsEjecting = false;
};
