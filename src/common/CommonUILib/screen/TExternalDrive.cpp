#include "TExternalDrive.h"

#include "DriveFile.h"
#include "TSystemSettingsProxy.h"
#include "UserLog.h"

#include <QProcess>

#include <sys/mount.h>
#include <unistd.h>

#include <utility>

namespace
{
struct TReason
{
    EDriveResult result;
    char const* text;
};

constexpr TReason Reasons[] = {
    {DRIVE_GONE, "the stick was pulled"},     {DRIVE_READ_ONLY, "the stick cannot be written"},
    {DRIVE_FULL, "the stick is full"},        {DRIVE_REFUSED, "its place on the stick is taken"},
    {DRIVE_ERROR, "the stick does not work"},
};

QString ReasonOf(EDriveResult result)
{
    for (TReason const& reason : Reasons)
    {
        if (reason.result == result)
            return QLatin1String(reason.text);
    }
    return QString();
}

bool IsThere(QString const& drive)
{
    QString present;
    return TSystemSettingsProxy::Instance()->GetExternalDrivePath(present) && present == drive;
}

EDriveResult Write(QString const& drive, QString const& folder, QString const& name,
                   QByteArray const& content)
{
    if (!IsThere(drive))
        return DRIVE_GONE;
    EDriveResult const result = WriteDriveFile(drive, folder, name, content);
    // A stick that is pulled while it is written answers with all sorts of errors.
    return result == DRIVE_OK || IsThere(drive) ? result : DRIVE_GONE;
}

TExternalDrive::TEject& HostEject()
{
    static TExternalDrive::TEject eject;
    return eject;
}
} // namespace

/// The child becomes no other program: it makes its two calls and ends.
class TExternalDrive::TEjectProcess : public QProcess
{
public:
    TEjectProcess(TExternalDrive* drive, QString const& path)
        : QProcess(drive)
        , m_Drive(drive)
        , m_Path(path.toLatin1())
    {
        setProcessChannelMode(QProcess::ForwardedChannels);
        setInputChannelMode(QProcess::ForwardedInputChannel);
    }

    void setupChildProcess() override
    {
        m_Drive->Sync();
        ::_exit(m_Drive->Unmount(m_Path.constData()) ? EXIT_SUCCESS : EXIT_FAILURE);
    }

private:
    TExternalDrive const* const m_Drive;
    QByteArray const m_Path;
};

TExternalDrive::TExternalDrive(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<EDriveResult>();
}

TExternalDrive::~TExternalDrive()
{
    if (!m_Process)
        return;
    // Deleting a process kills it, and waits for its end.
    m_Process->disconnect(this);
    m_Process->setParent(nullptr);
    connect(m_Process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), m_Process,
            &QObject::deleteLater);
}

EDriveResult TExternalDrive::SaveFile(QString const& drive, QString const& folder, QString const& name,
                                      QByteArray const& content)
{
    EDriveResult const result = Write(drive, folder, name, content);
    if (result == DRIVE_OK)
        return result;
    GetUserLog()->AddEntry(QStringLiteral("USB: %1 was not saved: %2.").arg(name, ReasonOf(result)));
    Q_EMIT SaveFailed(result);
    return result;
}

bool TExternalDrive::Eject()
{
    QString path;
    if (!TSystemSettingsProxy::Instance()->IsExternalDrivePresent() ||
        !TSystemSettingsProxy::Instance()->GetExternalDrivePath(path))
        return false;
    if (m_IsEjecting)
        return true;
    m_IsEjecting = true;
    // A copy: whoever hears of it may set another one, and may delete this object.
    TEject const hostEject = HostEject();
    QPointer<TExternalDrive> const self(this);
    bool const isEjected = hostEject && hostEject(path);
    if (!self)
        return true;
    if (isEjected)
        QMetaObject::invokeMethod(
            this, [this] { EndEject(true); }, Qt::QueuedConnection);
    else
        StartEject(path);
    return true;
}

void TExternalDrive::StartEject(QString const& path)
{
    m_Process = new TEjectProcess(this, path);
    connect(m_Process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus status)
            { EndEject(status == QProcess::NormalExit && code == EXIT_SUCCESS); });
    // Queued, as it comes from within start().
    connect(
        m_Process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error)
        {
            if (error == QProcess::FailedToStart)
                EndEject(false);
        },
        Qt::QueuedConnection);
    // The name is for the process's messages alone.
    m_Process->start(QStringLiteral("umount"), QStringList());
}

void TExternalDrive::EndEject(bool ejected)
{
    m_IsEjecting = false;
    if (m_Process)
        m_Process->deleteLater();
    m_Process.clear();
    if (!ejected)
        GetUserLog()->AddEntry(QStringLiteral("USB: the stick was not ejected."));
    Q_EMIT EjectFinished(ejected);
}

bool TExternalDrive::IsEjecting() const
{
    return m_IsEjecting;
}

TExternalDrive::TEject TExternalDrive::SetHostEject(TEject eject)
{
    return std::exchange(HostEject(), std::move(eject));
}

void TExternalDrive::Sync() const
{
    ::sync();
}

bool TExternalDrive::Unmount(char const* path) const
{
    return ::umount(path) == 0;
}
