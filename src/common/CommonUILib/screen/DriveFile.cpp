#include "DriveFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr mode_t FolderMode = 0777;
constexpr mode_t FileMode = 0666;

struct TMeaning
{
    int error;
    EDriveResult result;
};

constexpr TMeaning Meanings[] = {
    {ENOENT, DRIVE_GONE},     {ENODEV, DRIVE_GONE},      {ENXIO, DRIVE_GONE},      {ESTALE, DRIVE_GONE},
    {EROFS, DRIVE_READ_ONLY}, {EACCES, DRIVE_READ_ONLY}, {EPERM, DRIVE_READ_ONLY}, {ENOSPC, DRIVE_FULL},
    {EDQUOT, DRIVE_FULL},     {EFBIG, DRIVE_FULL},       {ENOTDIR, DRIVE_REFUSED}, {ELOOP, DRIVE_REFUSED},
    {EISDIR, DRIVE_REFUSED},
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

// All of it is on the drive itself when this answers true.
bool WriteWhole(int folder, char const* name, QByteArray const& content)
{
    // What a power cut may have left.
    ::unlinkat(folder, name, 0);
    TDescriptor const file(
        ::openat(folder, name, O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, FileMode));
    return file.IsOpen() && WriteAll(file.Get(), content) && ::fsync(file.Get()) == 0;
}

EDriveResult WriteInto(int folder, QByteArray const& name, QByteArray const& content)
{
    QByteArray const partial = '.' + name + ".part";
    bool const isWritten = WriteWhole(folder, partial.constData(), content) &&
                           ::renameat(folder, partial.constData(), folder, name.constData()) == 0;
    if (!isWritten)
    {
        int const error = errno;
        ::unlinkat(folder, partial.constData(), 0);
        return MeaningOf(error);
    }
    // Brings the name itself to the drive; where a file system cannot, the file is whole all the same.
    ::fsync(folder);
    return DRIVE_OK;
}
} // namespace

EDriveResult WriteDriveFile(QString const& drive, QString const& folder, QString const& name,
                            QByteArray const& content)
{
    if (!IsPlainName(folder) || !IsPlainName(name))
        return DRIVE_REFUSED;
    constexpr int OpenFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    TDescriptor const root(::open(QFile::encodeName(drive).constData(), OpenFolder));
    if (!root.IsOpen())
        return errno == ENOTDIR ? DRIVE_GONE : MeaningOf(errno);
    QByteArray const folderName = QFile::encodeName(folder);
    if (::mkdirat(root.Get(), folderName.constData(), FolderMode) != 0 && errno != EEXIST)
        return MeaningOf(errno);
    TDescriptor const inside(::openat(root.Get(), folderName.constData(), OpenFolder | O_NOFOLLOW));
    return inside.IsOpen() ? WriteInto(inside.Get(), QFile::encodeName(name), content) : MeaningOf(errno);
}
