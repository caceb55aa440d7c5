#include "TUsbWatch.h"
#include "TestBus.h"
#include "TestCase.h"
#include "TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSignalSpy>

namespace
{
QString const NoBus = QStringLiteral("unix:path=/nowhere/bus");

// The device numbers of the tree that the tests build.
QString const Stick = QStringLiteral("8:17");
QString const SecondStick = QStringLiteral("8:33");
QString const HardDisk = QStringLiteral("8:1");
QString const UnknownDevice = QStringLiteral("9:9");
} // namespace

class TUsbWatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_Tree = std::make_unique<QTemporaryDir>();
        AddDevice(Stick, QStringLiteral("devices/pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/block/sdb/sdb1"));
        AddDevice(SecondStick, QStringLiteral("devices/platform/soc/usb1/1-1/block/sdc/sdc1"));
        AddDevice(HardDisk, QStringLiteral("devices/pci0000:00/ata1/usb/block/sda/sda1"));
    }
    void cleanupTestCase() { m_Tree.reset(); }
    void init()
    {
        m_Folder = std::make_unique<QTemporaryDir>();
        for (char const* const name : {"one", "two", "three", "blank \t\\ here"})
            QVERIFY(QDir(m_Folder->path()).mkdir(QLatin1String(name)));
    }
    void cleanup() { m_Folder.reset(); }

    void mountTableTellsOfTheStick_data();
    void mountTableTellsOfTheStick();
    void missingMountTableMeansNoStick();
    void longTableIsReadToItsEnd();
    void mountsOfTheKernelAreNoticed();

    void udisksTellsOfTheStick();
    void udisksIsBelievedBeforeTheMountTable();
    void udisksTellsOfChanges_data();
    void udisksTellsOfChanges();
    void onlyUsbDrivesAreSticks();
    void nonsenseOfUdisksIsNoStick_data();
    void nonsenseOfUdisksIsNoStick();
    void uselessAnswerLeavesTheMountTable_data();
    void uselessAnswerLeavesTheMountTable();
    void udisksThatVanishesLeavesTheMountTable();
    void udisksThatAppearsLateIsHeard();
    void busThatEndsLeavesTheMountTable();
    void manySignalsAreFewQuestions();
    void otherPropertiesAreNoQuestion();
    void busThatIsNoneLeavesTheMountTable_data();
    void busThatIsNoneLeavesTheMountTable();
    void busThatNeverAnswersHoldsNothingUp();

    void firstStickStaysUntilItIsPulled();
    void folderThatCannotBeReadIsNoStick();
    void folderStandsForAStick();
    void folderThatDoesNotExistIsNotInserted();
    void folderIsPulledWhenItIsEjected();
    void watchAndDriveMayBeDeletedByAnEject_data();
    void watchAndDriveMayBeDeletedByAnEject();
    void sticksOfTheSystemAreNotPulledByCalls();
    void platformNamesTheStickWhenItIsTold();
    void driveOfBeforeComesBack();
    void watchMayBeDeletedByItsSignal_data();
    void watchMayBeDeletedByItsSignal();
    void watchMayBeDeletedByWhatTheBusTells_data();
    void watchMayBeDeletedByWhatTheBusTells();

private:
    QString Path(QString const& name) const { return m_Folder->filePath(name); }
    // Links the device number to its place in the device tree.
    void AddDevice(QString const& number, QString const& place)
    {
        QDir const tree(m_Tree->path());
        QVERIFY(tree.mkpath(place));
        QVERIFY(tree.mkpath(QStringLiteral("dev/block")));
        QVERIFY(QFile::link(tree.filePath(place), tree.filePath(QStringLiteral("dev/block/") + number)));
    }
    static QByteArray Line(QString const& device, QString const& mountPoint,
                           QString const& root = QStringLiteral("/"))
    {
        QByteArray escaped = QFile::encodeName(mountPoint);
        escaped.replace('\\', "\\134").replace(' ', "\\040").replace('\t', "\\011").replace('\n', "\\012");
        return "36 35 " + device.toLatin1() + ' ' + root.toLatin1() + ' ' + escaped +
               " rw,noatime master:1 - vfat /dev/sdb1 rw\n";
    }
    void WriteTable(QByteArray const& table)
    {
        QFile file(Path(QStringLiteral("mountinfo")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(table), table.size());
    }
    TUsbWatch::TSystem System(QString const& bus = NoBus) const
    {
        return {bus, Path(QStringLiteral("mountinfo")), m_Tree->path()};
    }
    // The platform's answer.
    static QString Drive()
    {
        QString path;
        TSystemSettingsProxy* const platform = TSystemSettingsProxy::Instance();
        bool const isNamed = platform->GetExternalDrivePath(path);
        return isNamed == platform->IsExternalDrivePresent() ? path : QStringLiteral("contradiction");
    }

    std::unique_ptr<QTemporaryDir> m_Tree;
    std::unique_ptr<QTemporaryDir> m_Folder;
};

// Tables name "@" for the test's folder.
void TUsbWatchTest::mountTableTellsOfTheStick_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("stick");
    auto const line = [](QString const& device, char const* point)
    { return Line(device, QLatin1String(point)); };
    QByteArray const root = Line(HardDisk, QStringLiteral("/"));
    QByteArray const one = line(Stick, "@/one");
    QString const there = QStringLiteral("one");

    QTest::newRow("a stick") << root + one << there;
    QTest::newRow("no stick") << root << QString();
    QTest::newRow("nothing at all") << QByteArray() << QString();
    QTest::newRow("a hard disk") << line(HardDisk, "@/one") << QString();
    QTest::newRow("a device that nobody knows") << line(UnknownDevice, "@/one") << QString();
    QTest::newRow("the first of two") << line(SecondStick, "@/two") + one << QStringLiteral("two");
    QTest::newRow("blanks, tabs and backslashes")
        << line(Stick, "@/blank \t\\ here") << QStringLiteral("blank \t\\ here");
    QTest::newRow("no line end") << one.trimmed() << there;
    QTest::newRow("no optional fields") << QByteArray("36 35 8:17 / @/one rw - vfat /dev/sdb1 rw\n") << there;
    QTest::newRow("many optional fields")
        << QByteArray("36 35 8:17 / @/one rw shared:1 master:2 x:3 - vfat a rw\n") << there;
    QTest::newRow("a part of a stick")
        << Line(Stick, QStringLiteral("@/one"), QStringLiteral("/music")) << QString();
    QTest::newRow("the system runs from the stick") << line(Stick, "/") << QString();
    QTest::newRow("a folder that is gone") << line(Stick, "@/four") << QString();
    QTest::newRow("a file") << line(Stick, "@/mountinfo") << QString();

    QByteArray const rubbish[] = {
        "\n\n \n",
        "36",
        "36 35 8:17 /",
        "36 35 8:17 / @/two",
        "36 35 8:17 / @/t\\16 rw - vfat a rw",
        "36 35 8:17 / @/t\\999o rw - vfat a rw",
        "36 35 8:17 / @/t\\777o rw - vfat a rw",
        "36 35 8:17 / @/two\\ rw - vfat a rw",
        "36 35 8:17 / @/two\\000 rw - vfat a rw",
        "36 35 8:17 / two rw - vfat a rw",
        "36 35 8:17 /  @/two rw - vfat a rw",
        "36 35 ../block/8:17 / @/two rw - vfat a rw",
        "36 35 8:17/ / @/two rw - vfat a rw",
        "36 35 8 / @/two rw - vfat a rw",
        "36 35 : / @/two rw - vfat a rw",
        "36 35 99999999999999999999:1 / @/two rw - vfat a rw",
        QByteArray("36 35 8:17 / @/two\0/x rw - vfat a rw", 36),
        QByteArray(100000, ' '),
        QByteArray(100000, '\\'),
        QByteArray("\xff\xfe\x00\x01", 4),
    };
    for (QByteArray const& line_ : rubbish)
        QTest::newRow(qPrintable(QStringLiteral("rubbish: ") + QString::fromLatin1(line_.left(30))))
            << line_ + '\n' + one << there;
}

void TUsbWatchTest::mountTableTellsOfTheStick()
{
    QFETCH(QByteArray, table);
    QFETCH(QString, stick);
    WriteTable(table.replace('@', QFile::encodeName(m_Folder->path())));
    TUsbWatch const watch(System());
    // At once: the console starts with its stick.
    QCOMPARE(Drive(), stick.isEmpty() ? QString() : Path(stick));
    QVERIFY(!watch.IsFolder());
}

void TUsbWatchTest::missingMountTableMeansNoStick()
{
    TUsbWatch const watch(System());
    QCOMPARE(Drive(), QString());
}

void TUsbWatchTest::longTableIsReadToItsEnd()
{
    WriteTable(Line(HardDisk, QStringLiteral("/srv/of/many")).repeated(20000) +
               Line(Stick, Path(QStringLiteral("one"))));
    TUsbWatch const watch(System());
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
}

// A shell in a mount name space of its own does the mounting, and the watch reads that shell's table.
void TUsbWatchTest::mountsOfTheKernelAreNoticed()
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shell.start(QStringLiteral("unshare"),
                {QStringLiteral("--mount"), QStringLiteral("--map-root-user"), QStringLiteral("sh")});
    auto const say = [&](QString const& command)
    {
        shell.write((command + QStringLiteral("; echo $?\n")).toLocal8Bit());
        return shell.waitForReadyRead(30000) ? shell.readLine().trimmed() : QByteArray("silence");
    };
    if (say(QStringLiteral("true")) != "0")
        QSKIP("No name space may be made here.");
    QString const mountPoint = Path(QStringLiteral("one"));
    TUsbWatch::TSystem system = System();
    system.mountTable = QStringLiteral("/proc/%1/mountinfo").arg(shell.processId());
    TUsbWatch const watch(system);
    QCOMPARE(Drive(), QString());
    QSignalSpy inserted(&watch, &TUsbWatch::Inserted);
    QSignalSpy pulled(&watch, &TUsbWatch::Pulled);

    for (int i = 0; i < 3; ++i)
    {
        QCOMPARE(say(QStringLiteral("mount -t tmpfs none '%1'").arg(mountPoint)), QByteArray("0"));
        // The kernel gave it a device of its own; the tree says that it is on USB.
        QFile table(system.mountTable);
        QVERIFY(table.open(QIODevice::ReadOnly));
        QByteArray const line = table.readAll().trimmed().split('\n').constLast();
        QVERIFY(line.contains(QFile::encodeName(mountPoint)));
        QString const device = QString::fromLatin1(line.split(' ')[2]);
        if (!QFile::exists(m_Tree->filePath(QStringLiteral("dev/block/")) + device))
            AddDevice(device, QStringLiteral("devices/usb3/3-1/tmpfs%1").arg(i));
        QTRY_COMPARE(Drive(), mountPoint);
        QCOMPARE(inserted.count(), i + 1);
        QCOMPARE(say(QStringLiteral("umount '%1'").arg(mountPoint)), QByteArray("0"));
        QTRY_COMPARE(Drive(), QString());
        QCOMPARE(pulled.count(), i + 1);
    }
    shell.closeWriteChannel();
    QVERIFY(shell.waitForFinished());
    // The table went with the shell.
    QCoreApplication::processEvents();
    QCOMPARE(Drive(), QString());
}

#define NEED_BUS()                                                                                           \
    if (!TTestBus::IsInstalled())                                                                            \
    QSKIP("The package dbus-daemon is missing.")

void TUsbWatchTest::udisksTellsOfTheStick()
{
    NEED_BUS();
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    TUsbWatch const watch(System(bus.Address()));
    QSignalSpy inserted(&watch, &TUsbWatch::Inserted);
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
    QCOMPARE(inserted, (QList<QVariantList>{{Path(QStringLiteral("one"))}}));
}

void TUsbWatchTest::udisksIsBelievedBeforeTheMountTable()
{
    NEED_BUS();
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    TUsbWatch const watch(System(bus.Address()));
    QCOMPARE(Drive(), Path(QStringLiteral("two")));
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
}

void TUsbWatchTest::udisksTellsOfChanges_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("added") << QByteArray("InterfacesAdded");
    QTest::newRow("removed") << QByteArray("InterfacesRemoved");
    QTest::newRow("property") << QByteArray();
}

void TUsbWatchTest::udisksTellsOfChanges()
{
    NEED_BUS();
    QFETCH(QByteArray, signal);
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(disks.questions, 1);
    auto const tell = [&]
    {
        if (signal.isEmpty())
            disks.TellOfProperties();
        else
            disks.TellOfObjects(signal.constData());
    };
    for (int i = 0; i < 2; ++i)
    {
        disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"),
                       QStringList{Path(QStringLiteral("one"))});
        tell();
        QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
        // Unmounted, and still in.
        disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList());
        tell();
        QTRY_COMPARE(Drive(), QString());
    }
}

void TUsbWatchTest::onlyUsbDrivesAreSticks()
{
    NEED_BUS();
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sda1"), QString(), QStringList{Path(QStringLiteral("one"))});
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("sdio"), QStringList{Path(QStringLiteral("two"))});
    disks.AddDrive(QStringLiteral("sdc1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("three"))});
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(Drive(), Path(QStringLiteral("three")));
}

void TUsbWatchTest::nonsenseOfUdisksIsNoStick_data()
{
    QTest::addColumn<QVariant>("points");
    QTest::newRow("text") << QVariant(QStringLiteral("@/two"));
    QTest::newRow("texts") << QVariant(QStringList{QStringLiteral("@/two")});
    QTest::newRow("number") << QVariant(7);
    QTest::newRow("bytes") << QVariant(QByteArray("@/two"));
    QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("@/two"), 1}});
    QTest::newRow("no path") << QVariant::fromValue(QList<QByteArray>{"two"});
    QTest::newRow("root") << QVariant::fromValue(QList<QByteArray>{QByteArray("/\0", 2)});
    QTest::newRow("empty ones") << QVariant::fromValue(QList<QByteArray>{"", QByteArray("\0", 1)});
    QTest::newRow("a folder that is not there") << QVariant::fromValue(QList<QByteArray>{"/nowhere"});
    QTest::newRow("no bytes of text") << QVariant::fromValue(QList<QByteArray>{"/\xff\xfe"});
}

void TUsbWatchTest::nonsenseOfUdisksIsNoStick()
{
    NEED_BUS();
    QFETCH(QVariant, points);
    if (points.userType() == QMetaType::QString)
        points = points.toString().replace(QLatin1Char('@'), m_Folder->path());
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sda1"), QStringLiteral("usb"), points);
    // A path is one also without the NUL behind it.
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"),
                   QVariant::fromValue(QList<QByteArray>{QFile::encodeName(Path(QStringLiteral("one")))}));
    disks.objects[QDBusObjectPath(QStringLiteral("/org/freedesktop/UDisks2/x"))][QStringLiteral(
        "org.freedesktop.UDisks2.Block")] = {{QStringLiteral("Drive"), QStringLiteral("none")}};
    disks.objects[QDBusObjectPath(QStringLiteral("/org/freedesktop/UDisks2/y"))] = {};
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
}

void TUsbWatchTest::uselessAnswerLeavesTheMountTable_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("error") << int(TFakeDisks::ANSWER_ERROR);
    QTest::newRow("nonsense") << int(TFakeDisks::ANSWER_NONSENSE);
    QTest::newRow("nothing") << int(TFakeDisks::ANSWER_NOTHING);
    QTest::newRow("never") << int(TFakeDisks::ANSWER_NEVER);
}

void TUsbWatchTest::uselessAnswerLeavesTheMountTable()
{
    NEED_BUS();
    QFETCH(int, answer);
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    disks.answer = static_cast<TFakeDisks::EAnswer>(answer);
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(disks.questions, 1);
    QTest::qWait(20);
    QCOMPARE(Drive(), Path(QStringLiteral("two")));
    if (answer == TFakeDisks::ANSWER_NEVER)
        return;
    // A good answer is believed again, and after it a useless one is not.
    disks.answer = TFakeDisks::ANSWER_OBJECTS;
    disks.TellOfObjects();
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
    disks.answer = static_cast<TFakeDisks::EAnswer>(answer);
    disks.TellOfObjects();
    QTRY_COMPARE(Drive(), Path(QStringLiteral("two")));
}

void TUsbWatchTest::udisksThatVanishesLeavesTheMountTable()
{
    NEED_BUS();
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    TUsbWatch const watch(System(bus.Address()));
    for (int i = 0; i < 2; ++i)
    {
        QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
        disks.Vanish();
        QTRY_COMPARE(Drive(), Path(QStringLiteral("two")));
        disks.Appear();
    }
}

void TUsbWatchTest::udisksThatAppearsLateIsHeard()
{
    NEED_BUS();
    TTestBus const bus;
    TUsbWatch const watch(System(bus.Address()));
    QTest::qWait(50);
    QCOMPARE(Drive(), QString());
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
}

void TUsbWatchTest::busThatEndsLeavesTheMountTable()
{
    NEED_BUS();
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    TTestBus bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
    bus.End();
    QTRY_COMPARE(Drive(), Path(QStringLiteral("two")));
}

void TUsbWatchTest::manySignalsAreFewQuestions()
{
    NEED_BUS();
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(disks.questions, 1);
    disks.answer = TFakeDisks::ANSWER_NEVER;
    for (int i = 0; i < 1000; ++i)
        disks.TellOfProperties();
    QTRY_COMPARE(disks.questions, 2);
    QTest::qWait(50);
    QCOMPARE(disks.questions, 2);
}

void TUsbWatchTest::otherPropertiesAreNoQuestion()
{
    NEED_BUS();
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    TUsbWatch const watch(System(bus.Address()));
    QTRY_COMPARE(disks.questions, 1);
    for (int i = 0; i < 10; ++i)
        disks.TellOfProperties("org.freedesktop.UDisks2.Drive.Ata");
    // Heard after the others, if they are.
    disks.TellOfProperties();
    QTRY_COMPARE(disks.questions, 2);
    QTest::qWait(20);
    QCOMPARE(disks.questions, 2);
}

void TUsbWatchTest::busThatIsNoneLeavesTheMountTable_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("nobody there") << NoBus;
    QTest::newRow("no address") << QStringLiteral("rubbish");
    QTest::newRow("unknown transport") << QStringLiteral("pigeon:path=/tmp");
    QTest::newRow("a file") << QStringLiteral("unix:path=/etc/passwd");
}

void TUsbWatchTest::busThatIsNoneLeavesTheMountTable()
{
    QFETCH(QString, address);
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    TUsbWatch const watch(System(address));
    QTest::qWait(50);
    QCOMPARE(Drive(), Path(QStringLiteral("two")));
}

void TUsbWatchTest::busThatNeverAnswersHoldsNothingUp()
{
    WriteTable(Line(Stick, Path(QStringLiteral("two"))));
    QString const socket = Path(QStringLiteral("bus"));
    QLocalServer mute;
    QVERIFY(mute.listen(socket));
    QElapsedTimer elapsed;
    elapsed.start();
    auto watch = std::make_unique<TUsbWatch>(System(QStringLiteral("unix:path=") + socket));
    QCOMPARE(Drive(), Path(QStringLiteral("two")));
    QTRY_VERIFY(mute.hasPendingConnections());
    watch.reset();
    QVERIFY(elapsed.elapsed() < 5000);
    // The thread that waits for it must not outlive the test.
    delete mute.nextPendingConnection();
    mute.close();
    QTest::qWait(50);
}

void TUsbWatchTest::firstStickStaysUntilItIsPulled()
{
    NEED_BUS();
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("two"))});
    TUsbWatch const watch(System(bus.Address()));
    QStringList told;
    connect(&watch, &TUsbWatch::Inserted, this, [&](QString const& path) { told.append('+' + path); });
    connect(&watch, &TUsbWatch::Pulled, this, [&](QString const& path) { told.append('-' + path); });
    QTRY_COMPARE(Drive(), Path(QStringLiteral("two")));
    int const before = disks.questions;
    disks.AddDrive(QStringLiteral("sda1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    disks.TellOfObjects();
    QTRY_VERIFY(disks.questions > before);
    QTest::qWait(20);
    QCOMPARE(Drive(), Path(QStringLiteral("two")));
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList());
    disks.TellOfProperties();
    QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
    QCOMPARE(told, (QStringList{'+' + Path(QStringLiteral("two")), '-' + Path(QStringLiteral("two")),
                                '+' + Path(QStringLiteral("one"))}));
}

void TUsbWatchTest::folderThatCannotBeReadIsNoStick()
{
    WriteTable(Line(Stick, Path(QStringLiteral("four"))) +
               Line(SecondStick, Path(QStringLiteral("mountinfo"))) +
               Line(SecondStick, Path(QStringLiteral("three"))));
    TUsbWatch const watch(System());
    QCOMPARE(Drive(), Path(QStringLiteral("three")));
}

void TUsbWatchTest::folderStandsForAStick()
{
    TUsbWatch watch(Path(QStringLiteral("one")) + QLatin1Char('/'));
    QSignalSpy inserted(&watch, &TUsbWatch::Inserted);
    QSignalSpy pulled(&watch, &TUsbWatch::Pulled);
    QVERIFY(watch.IsFolder());
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
    watch.Insert();
    QCOMPARE(inserted.count(), 0);
    watch.Pull();
    watch.Pull();
    QCOMPARE(Drive(), QString());
    QCOMPARE(pulled, (QList<QVariantList>{{Path(QStringLiteral("one"))}}));
    watch.Insert();
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
    QCOMPARE(inserted, (QList<QVariantList>{{Path(QStringLiteral("one"))}}));
}

void TUsbWatchTest::folderThatDoesNotExistIsNotInserted()
{
    TUsbWatch watch(Path(QStringLiteral("four")));
    QCOMPARE(Drive(), QString());
    watch.Insert();
    QCOMPARE(Drive(), QString());
    QVERIFY(QDir(m_Folder->path()).mkdir(QStringLiteral("four")));
    watch.Insert();
    QCOMPARE(Drive(), Path(QStringLiteral("four")));
}

void TUsbWatchTest::folderIsPulledWhenItIsEjected()
{
    TExternalDrive drive;
    QSignalSpy finished(&drive, &TExternalDrive::EjectFinished);
    {
        TUsbWatch watch(Path(QStringLiteral("one")));
        QVERIFY(drive.Eject());
        QTRY_COMPARE(finished, (QList<QVariantList>{{true}}));
        QCOMPARE(Drive(), QString());
        QVERIFY(QDir(Path(QStringLiteral("one"))).exists());
        QVERIFY(!drive.Eject());
        watch.Insert();
        QVERIFY(drive.Eject());
        QTRY_COMPARE(finished.count(), 2);
    }
    // Nobody is left to be asked.
    QVERIFY(!TExternalDrive::SetHostEject({}));
}

void TUsbWatchTest::watchAndDriveMayBeDeletedByAnEject_data()
{
    QTest::addColumn<bool>("watchDies");
    QTest::addColumn<bool>("driveDies");
    QTest::newRow("watch") << true << false;
    QTest::newRow("drive") << false << true;
    QTest::newRow("both") << true << true;
}

void TUsbWatchTest::watchAndDriveMayBeDeletedByAnEject()
{
    QFETCH(bool, watchDies);
    QFETCH(bool, driveDies);
    auto watch = std::make_unique<TUsbWatch>(Path(QStringLiteral("one")));
    auto drive = std::make_unique<TExternalDrive>();
    bool ejected = false;
    connect(drive.get(), &TExternalDrive::EjectFinished, this, [&](bool success) { ejected = success; });
    connect(watch.get(), &TUsbWatch::Pulled, this,
            [&]
            {
                if (watchDies)
                    watch.reset();
                if (driveDies)
                    drive.reset();
            });
    QVERIFY(drive->Eject());
    QCOMPARE(Drive(), QString());
    QTRY_COMPARE(ejected, !driveDies);
    QCoreApplication::processEvents();
    QCOMPARE(ejected, !driveDies);
    watch.reset();
    QVERIFY(!TExternalDrive::SetHostEject({}));
}

void TUsbWatchTest::sticksOfTheSystemAreNotPulledByCalls()
{
    WriteTable(Line(Stick, Path(QStringLiteral("one"))));
    TUsbWatch watch(System());
    watch.Pull();
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
    watch.Insert();
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
}

void TUsbWatchTest::platformNamesTheStickWhenItIsTold()
{
    TUsbWatch watch(Path(QStringLiteral("one")));
    QStringList seen;
    connect(&watch, &TUsbWatch::Pulled, this, [&] { seen.append(QStringLiteral("-") + Drive()); });
    connect(&watch, &TUsbWatch::Inserted, this, [&] { seen.append(QStringLiteral("+") + Drive()); });
    watch.Pull();
    watch.Insert();
    QCOMPARE(seen, (QStringList{QStringLiteral("-"), QStringLiteral("+") + Path(QStringLiteral("one"))}));
    // A slot that puts it back in at once is not told twice.
    seen.clear();
    connect(&watch, &TUsbWatch::Pulled, &watch, &TUsbWatch::Insert);
    watch.Pull();
    QCOMPARE(Drive(), Path(QStringLiteral("one")));
    QCOMPARE(seen.size(), 2);
}

void TUsbWatchTest::driveOfBeforeComesBack()
{
    TTestDrives drives;
    drives.Insert();
    {
        TUsbWatch const watch(Path(QStringLiteral("one")));
        QCOMPARE(Drive(), Path(QStringLiteral("one")));
    }
    QCOMPARE(Drive(), drives.StickPath());
    {
        TUsbWatch const watch(System());
        QCOMPARE(Drive(), QString());
    }
    QCOMPARE(Drive(), drives.StickPath());
}

void TUsbWatchTest::watchMayBeDeletedByItsSignal_data()
{
    QTest::addColumn<bool>("onPull");
    QTest::newRow("pulled") << true;
    QTest::newRow("inserted") << false;
}

void TUsbWatchTest::watchMayBeDeletedByItsSignal()
{
    QFETCH(bool, onPull);
    QPointer<TUsbWatch> const watch(new TUsbWatch(Path(QStringLiteral("one"))));
    connect(watch.data(), onPull ? &TUsbWatch::Pulled : &TUsbWatch::Inserted, this,
            [watch] { delete watch.data(); });
    watch->Pull();
    if (watch)
        watch->Insert();
    QVERIFY(!watch);
    QCOMPARE(Drive(), QString());
}

void TUsbWatchTest::watchMayBeDeletedByWhatTheBusTells_data()
{
    watchMayBeDeletedByItsSignal_data();
}

void TUsbWatchTest::watchMayBeDeletedByWhatTheBusTells()
{
    NEED_BUS();
    QFETCH(bool, onPull);
    TTestBus const bus;
    TFakeDisks disks(bus.Address());
    QPointer<TUsbWatch> const watch(new TUsbWatch(System(bus.Address())));
    connect(watch.data(), onPull ? &TUsbWatch::Pulled : &TUsbWatch::Inserted, this,
            [watch] { delete watch.data(); });
    QTRY_COMPARE(disks.questions, 1);
    disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList{Path(QStringLiteral("one"))});
    // The second one comes while the first is being answered, and is a reason to ask again.
    disks.TellOfObjects();
    disks.TellOfObjects();
    if (onPull)
    {
        QTRY_COMPARE(Drive(), Path(QStringLiteral("one")));
        disks.AddDrive(QStringLiteral("sdb1"), QStringLiteral("usb"), QStringList());
        disks.TellOfObjects();
        disks.TellOfObjects();
    }
    QTRY_VERIFY(!watch);
    QTest::qWait(20);
    QCOMPARE(Drive(), QString());
}

COMMONUI_TEST(TUsbWatchTest)
#include "TUsbWatchTest.moc"
