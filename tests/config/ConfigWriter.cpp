// Usage: config-writer count|sync|read FILE
// A process of its own for what a test cannot do to itself.
//  count  writes ever higher numbers durably and prints each when it is acknowledged, until it is killed
//  sync   prints how often the file was brought to the disk during one durable write and one other
//  read   opens the file as a user without rights, and prints what it finds and what it can do

#include "TSqliteConfigManager.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
constexpr int FIRST_COUNTED_ID = 100000;
constexpr int FIRST_LAZY_ID = 200000;
constexpr int LONGEST_SNAPSHOT = 40000;
constexpr int SETTING = 100;
constexpr uid_t NOBODY = 65534;

int syncCount = 0;

int Count(QString const& path)
{
    TSqliteConfigManager manager(path);
    for (int i = 0;; ++i)
    {
        manager.Write(FIRST_LAZY_ID + i, i, false);
        manager.Write(CONFIG_LAYOUT_SNAPSHOT, QString(i * 97 % LONGEST_SNAPSHOT, QChar('a' + i % 26)), true);
        manager.Write(FIRST_COUNTED_ID + i, i, true);
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
}

int Sync(QString const& path)
{
    TSqliteConfigManager manager(path);
    manager.Write(SETTING, 0, true);
    for (bool const durable : {true, false})
    {
        int const before = syncCount;
        manager.Write(SETTING, durable ? 1 : 2, durable);
        std::printf("%d\n", syncCount - before);
    }
    return 0;
}

void ReadAndWrite(QString const& path)
{
    TSqliteConfigManager manager(path);
    int const found = manager.Read(SETTING).toInt();
    manager.Write(SETTING, found + 1, true);
    std::printf("%d %d %s\n", found, manager.Read(SETTING).toInt(),
                manager.IsPersistent() ? "durable" : "memory");
    std::fflush(stdout);
}

int Read(QString const& path)
{
    if (geteuid() == 0 && (setegid(NOBODY) != 0 || seteuid(NOBODY) != 0))
        return 1;
    ReadAndWrite(path);
    // A process that has changed its user cannot be searched for leaks, and the search at the end would fail.
    _exit(0);
}
} // namespace

extern "C" Q_DECL_EXPORT int fdatasync(int file)
{
    ++syncCount;
    return static_cast<int>(syscall(SYS_fdatasync, file));
}

extern "C" Q_DECL_EXPORT int fsync(int file)
{
    ++syncCount;
    return static_cast<int>(syscall(SYS_fsync, file));
}

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    if (argc != 3)
        return 2;
    QByteArray const task = argv[1];
    QString const path = QFile::decodeName(argv[2]);
    if (task == "count")
        return Count(path);
    if (task == "sync")
        return Sync(path);
    return task == "read" ? Read(path) : 2;
}
