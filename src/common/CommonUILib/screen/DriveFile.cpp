#include "DriveFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace
{
constexpr mode_t FolderMode = 0777;
constexpr mode_t FileMode = 0666;
constexpr int OpenFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

struct TMeaning
{
    int error;
    EDriveResult result;
};

constexpr TMeaning Meanings[] = {
    {ENOENT, DRIVE_GONE},     {ENODEV, DRIVE_GONE},      {ENXIO, DRIVE_GONE},      {ESTALE, DRIVE_GONE},
    {EROFS, DRIVE_READ_ONLY}, {EACCES, DRIVE_READ_ONLY}, {EPERM, DRIVE_READ_ONLY}, {ENOSPC, DRIVE_FULL},
    {EDQUOT, DRIVE_FULL},     {EFBIG, DRIVE_FULL},       {ENOTDIR, DRIVE_REFUSED}, {ELOOP, DRIVE_REFUSED},
    {EISDIR, DRIVE_REFUSED},  {EEXIST, DRIVE_REFUSED},
};

EDriveResult MeaningOf(int error)
{
    for (TMeaning const& meaning : Meanings)
    {
        if (meaning.error == error)
            return meaning.result;
    }
    return DRIVE_ERROR;
}

/// An open file or folder, closed with the object.
class TDescriptor
{
public:
    explicit TDescriptor(int descriptor)
        : m_Descriptor(descriptor)
    {
    }
    ~TDescriptor()
    {
        // Whoever closes it may still ask why it was of no use.
        int const error = errno;
        if (IsOpen())
            ::close(m_Descriptor);
        errno = error;
    }
    TDescriptor(TDescriptor const&) = delete;
    TDescriptor& operator=(TDescriptor const&) = delete;

    bool IsOpen() const { return m_Descriptor >= 0; }
    int Get() const { return m_Descriptor; }

private:
    int const m_Descriptor;
};

bool IsPlainName(QString const& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QChar::Null);
}

bool WriteAll(int file, QByteArray const& content)
{
    char const* rest = content.constData();
    char const* const end = rest + content.size();
    while (rest < end)
    {
        ssize_t const written = ::write(file, rest, static_cast<size_t>(end - rest));
        if (written >= 0)
            rest += written;
        else if (errno != EINTR)
            return false;
    }
    return true;
}

// Two files of one name would spoil each other's unfinished form. The turn ends with the process.
void WaitForTurn(int root)
{
    while (::flock(root, LOCK_EX) != 0)
    {
        if (errno != EINTR)
            return;
    }
}

// All of it is on the drive itself when this answers true.
bool WriteWhole(int folder, char const* name, QByteArray const& content)
{
    // What a power cut may have left.
    ::unlinkat(folder, name, 0);
    TDescriptor const file(
        ::openat(folder, name, O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, FileMode));
    return file.IsOpen() && WriteAll(file.Get(), content) && ::fsync(file.Get()) == 0;
}

// Brings a new name to the drive. Some file systems cannot; the file is whole there all the same.
bool WriteOut(int folder)
{
    return ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
}

EDriveResult WriteInto(int folder, char const* name, char const* partialName, QByteArray const& content)
{
    bool const isWritten =
        WriteWhole(folder, partialName, content) && ::renameat(folder, partialName, folder, name) == 0;
    if (!isWritten)
    {
        int const error = errno;
        ::unlinkat(folder, partialName, 0);
        return MeaningOf(error);
    }
    return WriteOut(folder) ? DRIVE_OK : MeaningOf(errno);
}
} // namespace

TDriveFile::TDriveFile(QString const& drive, QString const& folder, QString const& name, QByteArray content)
    : m_Obstacle(IsPlainName(folder) && IsPlainName(name) ? DRIVE_OK : DRIVE_REFUSED)
    , m_Folder(QFile::encodeName(folder))
    , m_Name(QFile::encodeName(name))
    , m_PartialName('.' + m_Name + ".part")
    , m_Content(std::move(content))
{
    if (m_Obstacle != DRIVE_OK)
        return;
    m_Root = ::open(QFile::encodeName(drive).constData(), OpenFolder);
    if (m_Root < 0)
        m_Obstacle = errno == ENOTDIR ? DRIVE_GONE : MeaningOf(errno);
}

TDriveFile::~TDriveFile()
{
    if (m_Root >= 0)
        ::close(m_Root);
}

EDriveResult TDriveFile::Write() const
{
    if (m_Obstacle != DRIVE_OK)
        return m_Obstacle;
    WaitForTurn(m_Root);
    if (::mkdirat(m_Root, m_Folder.constData(), FolderMode) != 0 && errno != EEXIST)
        return MeaningOf(errno);
    TDescriptor const inside(::openat(m_Root, m_Folder.constData(), OpenFolder | O_NOFOLLOW));
    return inside.IsOpen() ? WriteInto(inside.Get(), m_Name.constData(), m_PartialName.constData(), m_Content)
                           : MeaningOf(errno);
}
