#include "TExternalDrive.h"
#include "TestCase.h"
#include "TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
/// A platform that names any path as its drive, for a number of questions.
class TNamedDrive : public TSystemSettingsProxy
{
public:
    explicit TNamedDrive(QString path)
        : m_Path(std::move(path))
        , m_Before(Install(this))
    {
    }
    ~TNamedDrive() override { Install(m_Before); }

    bool IsExternalDrivePresent() const override { return answers > 0; }
    bool GetExternalDrivePath(QString& path) const override
    {
        if (answers <= 0)
            return false;
        --answers;
        path = m_Path;
        return true;
    }

    mutable int answers = 1000;

private:
    QString const m_Path;
    TSystemSettingsProxy* const m_Before;
};

/// No file grows beyond a size while the object lives: a drive that fills up under the pen.
class TFullDrive
{
public:
    explicit TFullDrive(rlim_t bytes)
    {
        m_SignalBefore = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_Before);
        rlimit const limit{bytes, m_Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~TFullDrive()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_SignalBefore);
    }
    TFullDrive(TFullDrive const&) = delete;
    TFullDrive& operator=(TFullDrive const&) = delete;

private:
    rlimit m_Before;
    void (*m_SignalBefore)(int);
};

/// Notes in a file what it would do, and waits before it for a word from the test. It does so in the process
/// that it runs in, by system calls alone.
class TNotingDrive : public TExternalDrive
{
public:
    TNotingDrive()
        : m_Notes(QFile::encodeName(m_Folder.filePath(QStringLiteral("notes"))))
    {
        [this] { QCOMPARE(::pipe2(m_Pipe, O_CLOEXEC), 0); }();
    }
    ~TNotingDrive() override { GoOn(); }

    QByteArray Notes() const
    {
        QFile file(QFile::decodeName(m_Notes));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Lets the process go on, or not wait at all.
    void GoOn()
    {
        for (int& end : m_Pipe)
        {
            if (end >= 0)
                ::close(end);
            end = -1;
        }
    }

    bool succeeds = true;

protected:
    void Sync() const override
    {
        ::close(m_Pipe[1]);
        char byte = 0;
        // Ends when the other end is closed.
        while (::read(m_Pipe[0], &byte, 1) > 0)
            ;
        Note("sync\n");
    }
    bool Unmount(char const* path) const override
    {
        Note("umount ");
        Note(path);
        return succeeds;
    }

private:
    void Note(char const* text) const
    {
        int const file = ::open(m_Notes.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        ssize_t const written = ::write(file, text, std::strlen(text));
        Q_UNUSED(written)
        ::close(file);
    }

    QTemporaryDir m_Folder;
    QByteArray const m_Notes;
    int m_Pipe[2] = {-1, -1};
};

QString const Folder = QStringLiteral("Screenshots");
QString const Name = QStringLiteral("a.png");

void WriteFile(QString const& path, QByteArray const& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray ReadFile(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}
} // namespace

class TExternalDriveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Log = std::make_unique<TTestUserLog>();
        m_Drives = std::make_unique<TTestDrives>();
        m_Drives->Insert();
        m_Stick = m_Drives->StickPath();
    }
    void cleanup()
    {
        m_Drives.reset();
        m_Log.reset();
    }

    void fileIsSavedInItsFolder();
    void fileOfTheSameNameIsReplaced();
    void largeFileIsSavedWhole();
    void stickThatFillsUpKeepsNoPart();
    void stickThatFillsUpKeepsTheFileBefore();
    void stickThatCannotBeWrittenIsSaidToBe();
    void stickThatWasPulledTakesNothing_data();
    void stickThatWasPulledTakesNothing();
    void stickThatIsPulledMidwayIsGone();
    void namesDoNotLeadOffTheStick_data();
    void namesDoNotLeadOffTheStick();
    void linksOnTheStickDoNotLeadOffIt_data();
    void linksOnTheStickDoNotLeadOffIt();
    void placeThatIsTakenIsRefused_data();
    void placeThatIsTakenIsRefused();
    void whatAPowerCutLeftIsNoHindrance();
    void failureIsLoggedAndEmitted();
    void driveMayBeDeletedByItsFailure();
    void fullFileSystemIsFull();

    void ejectWithoutAStickIsRefused();
    void ejectWritesOutFirstAndUnmountsThen();
    void ejectTakesTheLatin1FormOfThePath();
    void screenGoesOnWhileTheStickIsWritten();
    void stickThatIsBusyIsNotEjected();
    void folderThatIsNotMountedIsNotEjected();
    void mountedStickIsEjected();
    void thereIsOneEjectAtATime();
    void ejectOutlivesTheDrive();
    void driveMayBeDeletedByItsEject();
    void hostMayEjectInItsOwnWay();

private:
    QString Place(QString const& name = Name) const { return m_Stick + "/Screenshots/" + name; }
    QStringList Files() const
    {
        return QDir(m_Stick + "/Screenshots").entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    std::unique_ptr<TTestUserLog> m_Log;
    std::unique_ptr<TTestDrives> m_Drives;
    QString m_Stick;
};

void TExternalDriveTest::fileIsSavedInItsFolder()
{
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "one"), DRIVE_OK);
    QCOMPARE(drive.SaveFile(m_Stick, Folder, QStringLiteral("b c.png"), "two"), DRIVE_OK);
    QCOMPARE(drive.SaveFile(m_Stick, Folder, QStringLiteral("empty"), QByteArray()), DRIVE_OK);
    QCOMPARE(Files(),
             (QStringList{QStringLiteral("a.png"), QStringLiteral("b c.png"), QStringLiteral("empty")}));
    QCOMPARE(ReadFile(Place()), QByteArray("one"));
    QCOMPARE(ReadFile(Place(QStringLiteral("b c.png"))), QByteArray("two"));
    QVERIFY(m_Log->Entries().isEmpty());
}

void TExternalDriveTest::fileOfTheSameNameIsReplaced()
{
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "a long first one"), DRIVE_OK);
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "second"), DRIVE_OK);
    QCOMPARE(ReadFile(Place()), QByteArray("second"));
    QCOMPARE(Files(), QStringList{Name});
}

void TExternalDriveTest::largeFileIsSavedWhole()
{
    QByteArray content(5 * 1000 * 1000, 'x');
    for (int i = 0; i < content.size(); i += 977)
        content[i] = static_cast<char>(i);
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, content), DRIVE_OK);
    QCOMPARE(ReadFile(Place()), content);
}

void TExternalDriveTest::stickThatFillsUpKeepsNoPart()
{
    TExternalDrive drive;
    EDriveResult result = DRIVE_OK;
    {
        TFullDrive const full(4096);
        result = drive.SaveFile(m_Stick, Folder, Name, QByteArray(10000, 'x'));
    }
    QCOMPARE(result, DRIVE_FULL);
    QCOMPARE(Files(), QStringList());
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, QByteArray(10000, 'x')), DRIVE_OK);
}

void TExternalDriveTest::stickThatFillsUpKeepsTheFileBefore()
{
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "before"), DRIVE_OK);
    EDriveResult result = DRIVE_OK;
    {
        TFullDrive const full(4096);
        result = drive.SaveFile(m_Stick, Folder, Name, QByteArray(10000, 'x'));
    }
    QCOMPARE(result, DRIVE_FULL);
    QCOMPARE(ReadFile(Place()), QByteArray("before"));
    QCOMPARE(Files(), QStringList{Name});
}

// The kernel lets nobody, not even root, make a folder there.
void TExternalDriveTest::stickThatCannotBeWrittenIsSaidToBe()
{
    TNamedDrive const drives(QStringLiteral("/sys"));
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(QStringLiteral("/sys"), Folder, Name, "one"), DRIVE_READ_ONLY);
    QVERIFY(!QFile::exists(QStringLiteral("/sys/Screenshots")));
}

void TExternalDriveTest::stickThatWasPulledTakesNothing_data()
{
    QTest::addColumn<bool>("named");
    QTest::addColumn<bool>("another");
    QTest::newRow("nothing named any more") << false << false;
    QTest::newRow("another one by now") << true << true;
    QTest::newRow("still named, and not there") << true << false;
}

// Its folder may be there still, and be one of the internal drive.
void TExternalDriveTest::stickThatWasPulledTakesNothing()
{
    QFETCH(bool, named);
    QFETCH(bool, another);
    if (!named)
        m_Drives->Pull();
    QTemporaryDir other;
    QString const drivePath = another ? other.path() : m_Stick;
    if (named && !another)
        QVERIFY(QDir(m_Stick).removeRecursively());
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(drivePath, Folder, Name, "one"), DRIVE_GONE);
    QVERIFY(!QFile::exists(drivePath + "/Screenshots"));
}

void TExternalDriveTest::stickThatIsPulledMidwayIsGone()
{
    TNamedDrive const drives(QStringLiteral("/sys"));
    drives.answers = 1;
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(QStringLiteral("/sys"), Folder, Name, "one"), DRIVE_GONE);
}

void TExternalDriveTest::namesDoNotLeadOffTheStick_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("up") << Folder << QStringLiteral("../a.png");
    QTest::newRow("up by the folder") << QStringLiteral("..") << Name;
    QTest::newRow("absolute") << Folder << QStringLiteral("/tmp/a.png");
    QTest::newRow("absolute folder") << QStringLiteral("/tmp") << Name;
    QTest::newRow("deeper") << Folder << QStringLiteral("b/a.png");
    QTest::newRow("no name") << Folder << QString();
    QTest::newRow("no folder") << QString() << Name;
    QTest::newRow("folder itself") << Folder << QStringLiteral(".");
    QTest::newRow("parent itself") << Folder << QStringLiteral("..");
    QTest::newRow("cut short") << Folder << QStringLiteral("a") + QChar::Null + QStringLiteral(".png");
}

void TExternalDriveTest::namesDoNotLeadOffTheStick()
{
    QFETCH(QString, folder);
    QFETCH(QString, name);
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, folder, name, "one"), DRIVE_REFUSED);
    QCOMPARE(QDir(m_Stick).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TExternalDriveTest::linksOnTheStickDoNotLeadOffIt_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("toFolder");
    QTest::addColumn<EDriveResult>("result");
    QTest::newRow("folder") << QStringLiteral("Screenshots") << true << DRIVE_REFUSED;
    QTest::newRow("file") << QStringLiteral("Screenshots/a.png") << false << DRIVE_OK;
    QTest::newRow("unfinished file") << QStringLiteral("Screenshots/.a.png.part") << false << DRIVE_OK;
}

void TExternalDriveTest::linksOnTheStickDoNotLeadOffIt()
{
    QFETCH(QString, link);
    QFETCH(bool, toFolder);
    QTemporaryDir const outside;
    QString const target = outside.filePath(QStringLiteral("target"));
    if (toFolder)
        QVERIFY(QDir().mkdir(target));
    else
        WriteFile(target, "mine");
    if (!toFolder)
        QVERIFY(QDir(m_Stick).mkdir(Folder));
    QVERIFY(QFile::link(target, m_Stick + QLatin1Char('/') + link));
    TExternalDrive drive;
    QTEST(drive.SaveFile(m_Stick, Folder, Name, "one"), "result");
    if (toFolder)
    {
        QVERIFY(QDir(target).isEmpty());
        return;
    }
    QCOMPARE(ReadFile(target), QByteArray("mine"));
    QCOMPARE(ReadFile(Place()), QByteArray("one"));
    QVERIFY(!QFileInfo(Place()).isSymLink());
    QCOMPARE(Files(), QStringList{Name});
}

void TExternalDriveTest::placeThatIsTakenIsRefused_data()
{
    QTest::addColumn<bool>("byAFile");
    QTest::newRow("folder by a file") << true;
    QTest::newRow("file by a folder") << false;
}

void TExternalDriveTest::placeThatIsTakenIsRefused()
{
    QFETCH(bool, byAFile);
    if (byAFile)
        WriteFile(m_Stick + "/Screenshots", "mine");
    else
        QVERIFY(QDir(m_Stick).mkpath(QStringLiteral("Screenshots/a.png")));
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "one"), DRIVE_REFUSED);
    if (byAFile)
        QCOMPARE(ReadFile(m_Stick + "/Screenshots"), QByteArray("mine"));
    else
        QVERIFY(QFileInfo(Place()).isDir());
    QCOMPARE(Files(), QStringList());
}

void TExternalDriveTest::whatAPowerCutLeftIsNoHindrance()
{
    QVERIFY(QDir(m_Stick).mkdir(Folder));
    WriteFile(Place(QStringLiteral(".a.png.part")), "half of a longer");
    TExternalDrive drive;
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "one"), DRIVE_OK);
    QCOMPARE(ReadFile(Place()), QByteArray("one"));
    QCOMPARE(Files(), QStringList{Name});
}

void TExternalDriveTest::failureIsLoggedAndEmitted()
{
    TExternalDrive drive;
    QSignalSpy failed(&drive, &TExternalDrive::SaveFailed);
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "one"), DRIVE_OK);
    QCOMPARE(failed.count(), 0);
    m_Drives->Pull();
    QCOMPARE(drive.SaveFile(m_Stick, Folder, Name, "one"), DRIVE_GONE);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed[0][0].value<EDriveResult>(), DRIVE_GONE);
    QCOMPARE(m_Log->Entries(),
             QStringList{QStringLiteral("USB: a.png was not saved: the stick was pulled.")});
}

void TExternalDriveTest::driveMayBeDeletedByItsFailure()
{
    QPointer<TExternalDrive> const drive(new TExternalDrive);
    connect(drive.data(), &TExternalDrive::SaveFailed, this, [drive] { delete drive.data(); });
    m_Drives->Pull();
    QCOMPARE(drive->SaveFile(m_Stick, Folder, Name, "one"), DRIVE_GONE);
    QVERIFY(!drive);
}

void TExternalDriveTest::fullFileSystemIsFull()
{
    QTemporaryDir const stick;
    if (QProcess::execute(QStringLiteral("mount"),
                          {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           QStringLiteral("size=16k"), QStringLiteral("none"), stick.path()}) != 0)
        QSKIP("Nothing may be mounted here.");
    {
        TNamedDrive const drives(stick.path());
        TExternalDrive drive;
        QCOMPARE(drive.SaveFile(stick.path(), Folder, Name, QByteArray(100000, 'x')), DRIVE_FULL);
        QVERIFY(QDir(stick.filePath(Folder)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }
    QCOMPARE(QProcess::execute(QStringLiteral("umount"), {stick.path()}), 0);
}

void TExternalDriveTest::ejectWithoutAStickIsRefused()
{
    m_Drives->Pull();
    TNotingDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(!drive.Eject());
    QVERIFY(!drive.IsEjecting());
    QCOMPARE(finished.count(), 0);
}

void TExternalDriveTest::ejectWritesOutFirstAndUnmountsThen()
{
    TNotingDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QVERIFY(drive.IsEjecting());
    drive.GoOn();
    QTRY_COMPARE(finished, (QList<QVariantList>{{true}}));
    QVERIFY(!drive.IsEjecting());
    QCOMPARE(drive.Notes(), "sync\numount " + QFile::encodeName(m_Stick));
    QVERIFY(m_Log->Entries().isEmpty());
}

void TExternalDriveTest::ejectTakesTheLatin1FormOfThePath()
{
    TNamedDrive const drives(QStringLiteral("/media/St\u00fcck \u4e00"));
    TNotingDrive drive;
    drive.GoOn();
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(drive.Notes(), QByteArray("sync\numount /media/St\xfc"
                                       "ck ?"));
}

void TExternalDriveTest::screenGoesOnWhileTheStickIsWritten()
{
    TNotingDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(drive.Eject());
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&ticks] { ++ticks; });
    timer.start(1);
    QTRY_VERIFY(ticks >= 20);
    QVERIFY(drive.IsEjecting());
    QCOMPARE(finished.count(), 0);
    QCOMPARE(drive.Notes(), QByteArray());
    drive.GoOn();
    QTRY_COMPARE(finished.count(), 1);
}

void TExternalDriveTest::stickThatIsBusyIsNotEjected()
{
    TNotingDrive drive;
    drive.succeeds = false;
    drive.GoOn();
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QTRY_COMPARE(finished, (QList<QVariantList>{{false}}));
    QCOMPARE(m_Log->Entries(), QStringList{QStringLiteral("USB: the stick was not ejected.")});
    // Once more, when it is no longer busy.
    drive.succeeds = true;
    QVERIFY(drive.Eject());
    QTRY_COMPARE(finished, (QList<QVariantList>{{false}, {true}}));
}

void TExternalDriveTest::folderThatIsNotMountedIsNotEjected()
{
    TExternalDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QTRY_COMPARE_WITH_TIMEOUT(finished, (QList<QVariantList>{{false}}), 60000);
    QVERIFY(QDir(m_Stick).exists());
}

void TExternalDriveTest::mountedStickIsEjected()
{
    QTemporaryDir const stick;
    if (QProcess::execute(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"),
                                                    QStringLiteral("none"), stick.path()}) != 0)
        QSKIP("Nothing may be mounted here.");
    TNamedDrive const drives(stick.path());
    TExternalDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    {
        QFile busy(stick.filePath(QStringLiteral("open")));
        QVERIFY(busy.open(QIODevice::WriteOnly));
        QVERIFY(drive.Eject());
        QTRY_COMPARE_WITH_TIMEOUT(finished, (QList<QVariantList>{{false}}), 60000);
    }
    QVERIFY(QFile::exists(stick.filePath(QStringLiteral("open"))));
    QVERIFY(drive.Eject());
    QTRY_COMPARE_WITH_TIMEOUT(finished, (QList<QVariantList>{{false}, {true}}), 60000);
    QVERIFY(!QFile::exists(stick.filePath(QStringLiteral("open"))));
}

void TExternalDriveTest::thereIsOneEjectAtATime()
{
    TNotingDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QVERIFY(drive.Eject());
    drive.GoOn();
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(drive.Notes().count("umount"), 1);
}

void TExternalDriveTest::ejectOutlivesTheDrive()
{
    QTemporaryDir const folder;
    QString const notes = folder.filePath(QStringLiteral("done"));
    /// Ends after the test has let go of it.
    struct TLateDrive : TExternalDrive
    {
        explicit TLateDrive(QByteArray path)
            : m_Notes(std::move(path))
        {
        }
        void Sync() const override { ::usleep(200000); }
        bool Unmount(char const*) const override
        {
            ::close(::open(m_Notes.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
            return true;
        }
        QByteArray const m_Notes;
    };
    auto drive = std::make_unique<TLateDrive>(QFile::encodeName(notes));
    QVERIFY(drive->Eject());
    QElapsedTimer elapsed;
    elapsed.start();
    drive.reset();
    QVERIFY(elapsed.elapsed() < 150);
    QTRY_VERIFY(QFile::exists(notes));
}

void TExternalDriveTest::driveMayBeDeletedByItsEject()
{
    QPointer<TNotingDrive> const drive(new TNotingDrive);
    drive->GoOn();
    connect(drive.data(), &TExternalDrive::EjectFinished, this, [drive] { delete drive.data(); });
    QVERIFY(drive->Eject());
    QTRY_VERIFY(!drive);
}

void TExternalDriveTest::hostMayEjectInItsOwnWay()
{
    QStringList asked;
    bool claims = true;
    TExternalDrive::TEject const before = TExternalDrive::SetHostEject(
        [&](QString const& path)
        {
            asked.append(path);
            return claims;
        });
    TNotingDrive drive;
    drive.GoOn();
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    QVERIFY(drive.Eject());
    QVERIFY(drive.IsEjecting());
    QCOMPARE(finished.count(), 0);
    QTRY_COMPARE(finished, (QList<QVariantList>{{true}}));
    QCOMPARE(asked, QStringList{m_Stick});
    QCOMPARE(drive.Notes(), QByteArray());
    claims = false;
    QVERIFY(drive.Eject());
    QTRY_COMPARE(finished.count(), 2);
    QVERIFY(drive.Notes().contains("umount"));
    TExternalDrive::SetHostEject(before);
}

COMMONUI_TEST(TExternalDriveTest)
#include "TExternalDriveTest.moc"
