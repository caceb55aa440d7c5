#include "TExternalDrive.h"

#include "DriveFile.h"
#include "TLocalTime.h"
#include "TSystemSettingsProxy.h"
#include "UserLog.h"

#include <QFile>
#include <QPointer>
#include <QProcess>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace
{
// A drive that takes longer, in ms, is dead.
constexpr int LongestWork = 120000;
// How often, in ms, to look whether something is over that nobody tells of.
constexpr int LookInterval = 250;
// For a process that has none; its answers are not negative.
constexpr int NoAnswer = -1;

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

bool IsNamed(QString const& drive)
{
    QString present;
    return TSystemSettingsProxy::Instance()->GetExternalDrivePath(present) && present == drive;
}

// False for a plain folder, such as a mount leaves behind.
bool IsMounted(QString const& path)
{
    struct stat here;
    struct stat above;
    return ::stat(QFile::encodeName(path).constData(), &here) == 0 &&
           ::stat(QFile::encodeName(path + QStringLiteral("/..")).constData(), &above) == 0 &&
           here.st_dev != above.st_dev;
}

TExternalDrive::TEject& HostEject()
{
    static TExternalDrive::TEject eject;
    return eject;
}
} // namespace

/// The child becomes no other program: it does its work and ends with an answer.
class TExternalDrive::TProcess : public QProcess
{
public:
    TProcess(TExternalDrive* drive, TWork work)
        : QProcess(drive)
        , m_Work(std::move(work))
    {
        setProcessChannelMode(QProcess::ForwardedChannels);
        setInputChannelMode(QProcess::ForwardedInputChannel);
    }

    void Begin()
    {
        // The name is for the process's messages alone, and with a path in it nobody looks it up.
        start(QStringLiteral("/usb"), QStringList());
        // The child has its own of what it works with. Here it would keep the drive busy.
        m_Work = nullptr;
    }
    void setupChildProcess() override { ::_exit(m_Work()); }

private:
    TWork m_Work;
};

TExternalDrive::TExternalDrive(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<EDriveResult>();
    connect(&m_NoticeTimer, &QTimer::timeout, this, &TExternalDrive::OnNoticeTime);
}

TExternalDrive::~TExternalDrive()
{
    auto const processes = findChildren<QProcess*>(QString(), Qt::FindDirectChildrenOnly);
    for (QProcess* const process : processes)
        LetGo(process);
}

// A process that ends without an answer, or not in time, has failed.
void TExternalDrive::Run(TWork work, TEnd const& onEnd)
{
    auto* const process = new TProcess(this, std::move(work));
    auto* const timer = new QTimer(process);
    connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [process, onEnd](int answer, QProcess::ExitStatus status)
            {
                process->deleteLater();
                onEnd(status == QProcess::NormalExit ? answer : NoAnswer);
            });
    // Queued, as it comes from within start().
    connect(
        process, &QProcess::errorOccurred, this,
        [process, onEnd](QProcess::ProcessError error)
        {
            if (error != QProcess::FailedToStart)
                return;
            process->deleteLater();
            onEnd(NoAnswer);
        },
        Qt::QueuedConnection);
    connect(timer, &QTimer::timeout, this,
            [process, onEnd, begin = TLocalTime::getCurrentTime()]
            {
                if (TLocalTime::getCurrentTime() - begin < LongestWork)
                    return;
                LetGo(process);
                onEnd(NoAnswer);
            });
    timer->start(LookInterval);
    process->Begin();
}

// Deleting a process kills it, and waits for its end.
void TExternalDrive::LetGo(QProcess* process)
{
    process->findChild<QTimer*>()->stop();
    process->disconnect();
    process->setParent(nullptr);
    connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), process,
            &QObject::deleteLater);
    if (process->state() == QProcess::NotRunning)
        process->deleteLater();
}

void TExternalDrive::SaveFile(QString const& drive, QString const& folder, QString const& name,
                              QByteArray const& content)
{
    if (m_IsEjecting || !IsNamed(drive) || IsForsaken(drive))
    {
        FailToSave(name, DRIVE_GONE);
        return;
    }
    auto const file = std::make_shared<TDriveFile>(drive, folder, name, content);
    if (file->Obstacle() != DRIVE_OK)
        FailToSave(name, file->Obstacle());
    else
        Run([file] { return file->Write(); },
            [this, drive, name](int answer) { OnSaved(drive, name, answer); });
}

void TExternalDrive::OnSaved(QString const& drive, QString const& name, int answer)
{
    if (answer == DRIVE_OK)
        Q_EMIT Saved(name);
    // A stick that is pulled while it is written answers with all sorts of errors.
    else if (!IsNamed(drive))
        FailToSave(name, DRIVE_GONE);
    else
        FailToSave(name, answer == NoAnswer ? DRIVE_ERROR : static_cast<EDriveResult>(answer));
}

void TExternalDrive::FailToSave(QString const& name, EDriveResult result)
{
    GetUserLog()->AddEntry(QStringLiteral("USB: %1 was not saved: %2.").arg(name, ReasonOf(result)));
    Q_EMIT SaveFailed(result);
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
    {
        Forsake(path);
        QMetaObject::invokeMethod(
            this, [this] { EndEject(true); }, Qt::QueuedConnection);
    }
    else
    {
        StartEject(path);
    }
    return true;
}

void TExternalDrive::StartEject(QString const& path)
{
    auto const unmount = [this, mountPoint = path.toLatin1()]
    {
        Sync();
        return Unmount(mountPoint.constData()) ? EXIT_SUCCESS : EXIT_FAILURE;
    };
    Run(unmount,
        [this, path](int answer)
        {
            if (answer == EXIT_SUCCESS)
                Forsake(path);
            EndEject(answer == EXIT_SUCCESS);
        });
}

void TExternalDrive::EndEject(bool ejected)
{
    m_IsEjecting = false;
    if (!ejected)
        GetUserLog()->AddEntry(QStringLiteral("USB: the stick was not ejected."));
    Q_EMIT EjectFinished(ejected);
}

// What the platform still names is the bare folder that the drive was mounted on.
void TExternalDrive::Forsake(QString const& path)
{
    if (!IsNamed(path))
        return;
    m_Forsaken = path;
    m_NoticeTimer.start(LookInterval);
}

// The next stick may be mounted there before the platform has noticed that the one before went.
bool TExternalDrive::IsForsaken(QString const& path) const
{
    return path == m_Forsaken && !IsMounted(path);
}

void TExternalDrive::OnNoticeTime()
{
    if (IsNamed(m_Forsaken))
        return;
    m_Forsaken.clear();
    m_NoticeTimer.stop();
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
