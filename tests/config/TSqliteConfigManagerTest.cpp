#include "TSqliteConfigManager.h"
#include "TestCase.h"
#include "TestSettingsFile.h"
#include "TestSupport.h"

#include <QColor>
#include <QPolygon>
#include <QProcess>
#include <QSqlDatabase>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace
{
constexpr int SETTING = 100;

QByteArray Content(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteFile(QString const& path, QByteArray const& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// A closed file of the store that fills several pages.
bool MakeSettings(QString const& path)
{
    TSqliteConfigManager store(path);
    for (int i = 0; i < 40; ++i)
        store.Write(i, QString(1000, QLatin1Char('x')), false);
    store.Write(SETTING, 7, true);
    return store.IsPersistent();
}

/// The largest file this process may write, while the object lives.
class TFileSizeLimit
{
public:
    explicit TFileSizeLimit(rlim_t bytes)
    {
        m_HandlerBefore = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_Before);
        rlimit const limit{bytes, m_Before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~TFileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_HandlerBefore);
    }
    TFileSizeLimit(TFileSizeLimit const&) = delete;
    TFileSizeLimit& operator=(TFileSizeLimit const&) = delete;

private:
    rlimit m_Before = {};
    void (*m_HandlerBefore)(int) = nullptr;
};
} // namespace

using TMake = std::function<void(QString const& path)>;
Q_DECLARE_METATYPE(TMake)

namespace
{
TMake Written(QByteArray const& content)
{
    return [content](QString const& path) { QVERIFY(WriteFile(path, content)); };
}

TMake Changed(std::function<void(QByteArray&)> const& how)
{
    return [how](QString const& path)
    {
        QVERIFY(MakeSettings(path));
        QByteArray content = Content(path);
        how(content);
        QVERIFY(WriteFile(path, content));
    };
}

TMake Executed(QString const& statement)
{
    return [statement](QString const& path) { QVERIFY(TTestSettingsFile(path).Run(statement)); };
}

TMake ExecutedOnSettings(QString const& statement)
{
    return [statement](QString const& path)
    {
        QVERIFY(MakeSettings(path));
        QVERIFY(TTestSettingsFile(path).Run(statement));
    };
}
} // namespace

class TSqliteConfigManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newFileGivesTheDefaults();
    void missingFoldersAreMade();
    void unusualNamesAreNames_data();
    void unusualNamesAreNames();
    void valueSurvivesReopening_data();
    void valueSurvivesReopening();
    void lastWriteStands();
    void forgottenNumberStaysForgotten();
    void readsAreServedFromMemory();
    void otherWritesReachTheFileByThemselves();
    void otherWritesReachTheFileAtTheEnd();
    void durableWriteIsSyncedBeforeItReturns();
    void killedProcessLosesNothingAcknowledged_data();
    void killedProcessLosesNothingAcknowledged();
    void damageIsSetAsideAndTheStoreStarts_data();
    void damageIsSetAsideAndTheStoreStarts();
    void companionsAreSetAsideToo();
    void damageInTheSameSecondIsKeptApart();
    void uselessLogBesideAGoodFileIsNoDamage();
    void fileInUseIsLeftAlone();
    void placeThatTakesNoFileGivesMemoryAndOneLogLine_data();
    void placeThatTakesNoFileGivesMemoryAndOneLogLine();
    void readOnlyFolderStillGivesItsValues();
    void damageThatCannotBeSetAsideIsSurvived();
    void valueWithoutStreamOperatorsIsServedFromMemory();
    void fullDiskIsToldOnceAndCaughtUpWith();
    void connectionsAreUniqueAndLeaveNothingBehind();

private:
    QString PathIn(QString const& name) const { return m_Folder->path() + '/' + name; }
    QStringList FilesLike(QString const& pattern) const
    {
        return QDir(m_Folder->path()).entryList({pattern}, QDir::AllEntries | QDir::System | QDir::Hidden);
    }

    std::unique_ptr<QTemporaryDir> m_Folder;
    std::unique_ptr<TTestUserLog> m_Log;
    QString m_Path;
};

void TSqliteConfigManagerTest::init()
{
    m_Folder = std::make_unique<QTemporaryDir>();
    m_Log = std::make_unique<TTestUserLog>();
    m_Path = PathIn("settings.sqlite");
}

void TSqliteConfigManagerTest::cleanup()
{
    m_Log.reset();
    m_Folder.reset();
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

void TSqliteConfigManagerTest::newFileGivesTheDefaults()
{
    TSqliteConfigManager const store(m_Path);
    QVERIFY(store.IsPersistent());
    QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
    QCOMPARE(store.Read(CONFIG_SOUND_ENABLED), QVariant(true));
    QCOMPARE(store.Read(CONFIG_LAYOUT_SNAPSHOT), QVariant(QString("")));
    QVERIFY(!store.Read(SETTING).isValid());
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteConfigManagerTest::missingFoldersAreMade()
{
    QString const path = PathIn("some/new/folder/settings.sqlite");
    {
        TSqliteConfigManager store(path);
        store.Write(SETTING, 7, true);
        QVERIFY(store.IsPersistent());
    }
    QCOMPARE(TSqliteConfigManager(path).Read(SETTING), QVariant(7));
}

void TSqliteConfigManagerTest::unusualNamesAreNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("memory") << ":memory:";
    QTest::newRow("address") << "file:settings?mode=memory";
    QTest::newRow("signs") << "a b'c\"d%20;e#f?g";
    QTest::newRow("letters") << QString::fromUtf8("Einstellungen \u00e4\u6f22\u5b57");
}

void TSqliteConfigManagerTest::unusualNamesAreNames()
{
    QFETCH(QString, name);
    QString const path = PathIn(name);
    {
        TSqliteConfigManager store(path);
        store.Write(SETTING, 7, true);
    }
    QVERIFY(QFileInfo(path).isFile());
    QCOMPARE(TSqliteConfigManager(path).Read(SETTING), QVariant(7));
}

void TSqliteConfigManagerTest::valueSurvivesReopening_data()
{
    QVariantHash hash;
    hash.insert("a", 1);
    hash.insert("b", QVariant::fromValue(QByteArrayList{"c"}));
    QTest::addColumn<QVariant>("value");
    QTest::newRow("int") << QVariant(-5);
    QTest::newRow("bool") << QVariant(false);
    QTest::newRow("large number") << QVariant(Q_INT64_C(-9223372036854775807));
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("infinity") << QVariant(qInf());
    QTest::newRow("text") << QVariant(QString::fromUtf8("\u00e4\u6f22\u5b57 <xml attribute=\"'\"/>"));
    QTest::newRow("text with a zero") << QVariant(QString::fromLatin1("a\0b", 3));
    QTest::newRow("long text") << QVariant(QString(3000000, QLatin1Char('x')));
    QTest::newRow("empty text") << QVariant(QString(""));
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\x01", 3));
    QTest::newRow("null number") << QVariant(QVariant::Int);
    QTest::newRow("list") << QVariant(QVariantList{1, "two", QVariantList{3.0}, QVariant()});
    QTest::newRow("empty list") << QVariant(QVariantList());
    QTest::newRow("map") << QVariant(QVariantMap{{"a", 1}, {"b", QVariantMap{{"c", QStringList{"d", ""}}}}});
    QTest::newRow("hash") << QVariant(hash);
    QTest::newRow("date and time") << QVariant(
        QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59, 999), Qt::UTC));
    QTest::newRow("rectangle") << QVariant(QRectF(1.5, 2, 3, 4));
    QTest::newRow("colour") << QVariant(QColor(1, 2, 3, 4));
    QTest::newRow("polygon") << QVariant(QPolygon(QRect(1, 2, 3, 4)));
    QTest::newRow("identifier") << QVariant(QUuid("{12345678-1234-1234-1234-123456789abc}"));
    QTest::newRow("address") << QVariant(QUrl("file:///a b"));
}

void TSqliteConfigManagerTest::valueSurvivesReopening()
{
    QFETCH(QVariant, value);
    {
        TSqliteConfigManager store(m_Path);
        store.Write(SETTING, value, true);
        QCOMPARE(store.Read(SETTING), value);
    }
    QVariant const read = TSqliteConfigManager(m_Path).Read(SETTING);
    QCOMPARE(read, value);
    QCOMPARE(read.userType(), value.userType());
    QCOMPARE(read.isNull(), value.isNull());
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteConfigManagerTest::lastWriteStands()
{
    {
        TSqliteConfigManager store(m_Path);
        store.Write(SETTING, 1, true);
        store.Write(SETTING, 2, false);
        store.Write(SETTING + 1, 1, false);
        store.Write(SETTING + 1, 2, true);
        store.Write(SETTING, QStringLiteral("three"), false);
    }
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(store.Read(SETTING), QVariant("three"));
    QCOMPARE(store.Read(SETTING + 1), QVariant(2));
}

void TSqliteConfigManagerTest::forgottenNumberStaysForgotten()
{
    QVERIFY(MakeSettings(m_Path));
    {
        TSqliteConfigManager store(m_Path);
        store.Write(CONFIG_SOUND_VOLUME, 70, true);
        store.Write(CONFIG_SOUND_VOLUME, QVariant(), true);
        store.Write(SETTING, QVariant(), true);
        QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
        QVERIFY(!store.Read(SETTING).isValid());
    }
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
    QVERIFY(!store.Read(SETTING).isValid());
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteConfigManagerTest::readsAreServedFromMemory()
{
    QVERIFY(MakeSettings(m_Path));
    TSqliteConfigManager const store(m_Path);
    QVERIFY(QFile::remove(m_Path));
    QCOMPARE(store.Read(SETTING), QVariant(7));
}

void TSqliteConfigManagerTest::otherWritesReachTheFileByThemselves()
{
    TSqliteConfigManager store(m_Path);
    store.Write(SETTING, 1, true);
    QString const journal = m_Path + "-wal";
    qint64 const before = QFileInfo(journal).size();
    store.Write(SETTING, QString(20000, QLatin1Char('x')), false);
    QCOMPARE(QFileInfo(journal).size(), before);
    QTRY_VERIFY(QFileInfo(journal).size() > before);
}

void TSqliteConfigManagerTest::otherWritesReachTheFileAtTheEnd()
{
    {
        TSqliteConfigManager store(m_Path);
        store.Write(SETTING, 7, false);
    }
    QCOMPARE(TSqliteConfigManager(m_Path).Read(SETTING), QVariant(7));
}

void TSqliteConfigManagerTest::durableWriteIsSyncedBeforeItReturns()
{
    QProcess writer;
    writer.start(CONFIG_WRITER, {"sync", m_Path});
    QVERIFY(writer.waitForFinished());
    QCOMPARE(writer.exitCode(), 0);
    QList<QByteArray> const counts = writer.readAllStandardOutput().split('\n');
    QVERIFY(counts.value(0).toInt() >= 1);
    QCOMPARE(counts.value(1), QByteArray("0"));
}

void TSqliteConfigManagerTest::killedProcessLosesNothingAcknowledged_data()
{
    QTest::addColumn<int>("killAt");
    for (int const line : {0, 1, 2, 5, 17, 60, 61, 150, 400})
        QTest::addRow("after %d", line) << line;
}

void TSqliteConfigManagerTest::killedProcessLosesNothingAcknowledged()
{
    constexpr int COUNTED = 100000;
    constexpr int LAZY = 200000;
    QFETCH(int, killAt);
    QProcess writer;
    writer.start(CONFIG_WRITER, {"count", m_Path});
    int acknowledged = -1;
    while (acknowledged < killAt)
    {
        QVERIFY(writer.canReadLine() || writer.waitForReadyRead());
        while (writer.canReadLine() && acknowledged < killAt)
            acknowledged = writer.readLine().trimmed().toInt();
    }
    writer.kill();
    QVERIFY(writer.waitForFinished());
    while (writer.canReadLine())
        acknowledged = writer.readLine().trimmed().toInt();
    TSqliteConfigManager const store(m_Path);
    QVERIFY(store.IsPersistent());
    for (int i = 0; i <= acknowledged; ++i)
    {
        QCOMPARE(store.Read(COUNTED + i), QVariant(i));
        QCOMPARE(store.Read(LAZY + i), QVariant(i));
    }
    QVERIFY(!store.Read(COUNTED + acknowledged + 2).isValid());
    QString const snapshot = store.Read(CONFIG_LAYOUT_SNAPSHOT).toString();
    QVERIFY(snapshot.size() == acknowledged * 97 % 40000 ||
            snapshot.size() == (acknowledged + 1) * 97 % 40000);
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteConfigManagerTest::damageIsSetAsideAndTheStoreStarts_data()
{
    QTest::addColumn<TMake>("make");
    QTest::newRow("empty") << Written({});
    QTest::newRow("one byte") << Written("x");
    QTest::newRow("text") << Written("This is no database.\n");
    QTest::newRow("zeros") << Written(QByteArray(8192, '\0'));
    QTest::newRow("header alone") << Changed([](QByteArray& content) { content.truncate(100); });
    QTest::newRow("cut within a page") << Changed([](QByteArray& content) { content.truncate(6000); });
    QTest::newRow("half") << Changed([](QByteArray& content) { content.truncate(content.size() / 2); });
    QTest::newRow("first page overwritten")
        << Changed([](QByteArray& content) { content.replace(0, 4096, QByteArray(4096, 'x')); });
    QTest::newRow("tree overwritten")
        << Changed([](QByteArray& content) { content.replace(4096, 4096, QByteArray(4096, '\xff')); });
    QTest::newRow("pages exchanged") << Changed(
        [](QByteArray& content)
        {
            QByteArray const third = content.mid(2 * 4096, 4096);
            content.replace(2 * 4096, 4096, content.mid(3 * 4096, 4096));
            content.replace(3 * 4096, 4096, third);
        });
    QTest::newRow("future schema format") << Changed([](QByteArray& content) { content[47] = 9; });
    QTest::newRow("other table") << Executed("CREATE TABLE fields (name TEXT)");
    QTest::newRow("other columns") << Executed("CREATE TABLE settings (id INTEGER PRIMARY KEY, value TEXT)");
    QTest::newRow("view in place of the table")
        << Executed("CREATE VIEW settings AS SELECT 1 AS id, 'x' AS value, 'y' AS digest");
    QTest::newRow("one column more") << ExecutedOnSettings("ALTER TABLE settings ADD COLUMN more INTEGER");
    QTest::newRow("one table more") << ExecutedOnSettings("CREATE TABLE more (id INTEGER)");
    QTest::newRow("trigger") << ExecutedOnSettings(
        "CREATE TRIGGER t AFTER INSERT ON settings BEGIN DELETE FROM settings; END");
    QTest::newRow("folder") << TMake([](QString const& path) { QVERIFY(QDir().mkpath(path)); });
    QTest::newRow("folder with a file") << TMake(
        [](QString const& path)
        {
            QVERIFY(QDir().mkpath(path));
            QVERIFY(WriteFile(path + "/file", "x"));
        });
    QTest::newRow("pipe") << TMake([](QString const& path)
                                   { QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0); });
    QTest::newRow("link to nothing") << TMake([](QString const& path)
                                              { QVERIFY(QFile::link("/no/such/file", path)); });
}

void TSqliteConfigManagerTest::damageIsSetAsideAndTheStoreStarts()
{
    QFETCH(TMake, make);
    make(m_Path);
    QByteArray const content = QFileInfo(m_Path).isFile() ? Content(m_Path) : QByteArray();
    {
        TSqliteConfigManager store(m_Path);
        QVERIFY(store.IsPersistent());
        QVERIFY(!store.Read(SETTING).isValid());
        QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
        store.Write(SETTING, 8, true);
    }
    QCOMPARE(TSqliteConfigManager(m_Path).Read(SETTING), QVariant(8));
    QStringList const aside = FilesLike("settings.sqlite.damaged-*");
    QCOMPARE(aside.size(), 1);
    QString const asidePath = PathIn(aside.constFirst());
    QCOMPARE(QFileInfo(asidePath).isFile() ? Content(asidePath) : QByteArray(), content);
    QCOMPARE(m_Log->Entries().size(), 1);
    QVERIFY(m_Log->Entries().constFirst().contains('"' + m_Path + '"'));
    QVERIFY(m_Log->Entries().constFirst().contains('"' + aside.constFirst() + '"'));
}

void TSqliteConfigManagerTest::companionsAreSetAsideToo()
{
    for (QString const& suffix : {QString("-wal"), QString("-shm"), QString("-journal")})
        QVERIFY(WriteFile(m_Path + suffix, "left behind"));
    QVERIFY(TSqliteConfigManager(m_Path).IsPersistent());
    QStringList const aside = FilesLike("*.damaged-*");
    QCOMPARE(aside.size(), 3);
    for (QString const& name : aside)
        QCOMPARE(Content(PathIn(name)), QByteArray("left behind"));
    QCOMPARE(m_Log->Entries().size(), 1);
}

void TSqliteConfigManagerTest::damageInTheSameSecondIsKeptApart()
{
    TManualClock const clock;
    for (int i = 0; i < 3; ++i)
    {
        QVERIFY(WriteFile(m_Path, "damage " + QByteArray::number(i)));
        QVERIFY(TSqliteConfigManager(m_Path).IsPersistent());
    }
    QStringList const aside = FilesLike("*.damaged-*");
    QCOMPARE(aside.size(), 3);
    QCOMPARE(Content(PathIn(aside.at(0))), QByteArray("damage 0"));
    QCOMPARE(Content(PathIn(aside.at(2))), QByteArray("damage 2"));
}

void TSqliteConfigManagerTest::uselessLogBesideAGoodFileIsNoDamage()
{
    QVERIFY(MakeSettings(m_Path));
    QVERIFY(WriteFile(m_Path + "-wal", QByteArray(100000, 'x')));
    TSqliteConfigManager const store(m_Path);
    QVERIFY(store.IsPersistent());
    QCOMPARE(store.Read(SETTING), QVariant(7));
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteConfigManagerTest::fileInUseIsLeftAlone()
{
    {
        TSqliteConfigManager first(m_Path);
        first.Write(SETTING, 1, true);
        TSqliteConfigManager second(m_Path);
        QVERIFY(!second.IsPersistent());
        second.Write(SETTING, 2, true);
        QCOMPARE(second.Read(SETTING), QVariant(2));
        first.Write(SETTING + 1, 3, true);
        QVERIFY(first.IsPersistent());
    }
    QCOMPARE(m_Log->Entries().size(), 1);
    QVERIFY(m_Log->Entries().constFirst().contains("cannot be written"));
    QCOMPARE(FilesLike("*.damaged-*"), QStringList());
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(store.Read(SETTING), QVariant(1));
    QCOMPARE(store.Read(SETTING + 1), QVariant(3));
}

void TSqliteConfigManagerTest::placeThatTakesNoFileGivesMemoryAndOneLogLine_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no name") << QString();
    QTest::newRow("below a file") << "/proc/version/settings.sqlite";
    QTest::newRow("where no folder can be made") << "/proc/none/settings.sqlite";
    QTest::newRow("where no file can be made") << "/proc/settings.sqlite";
    QTest::newRow("name too long") << QDir::tempPath() + '/' + QString(300, 'x');
}

void TSqliteConfigManagerTest::placeThatTakesNoFileGivesMemoryAndOneLogLine()
{
    QFETCH(QString, path);
    TSqliteConfigManager store(path);
    QVERIFY(!store.IsPersistent());
    QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
    store.Write(SETTING, 1, true);
    store.Write(SETTING, 2, false);
    QCOMPARE(store.Read(SETTING), QVariant(2));
    QCOMPARE(m_Log->Entries().size(), 1);
    QVERIFY(m_Log->Entries().constFirst().contains("cannot be written"));
}

void TSqliteConfigManagerTest::readOnlyFolderStillGivesItsValues()
{
    QVERIFY(MakeSettings(m_Path));
    QByteArray const content = Content(m_Path);
    QCOMPARE(chmod(QFile::encodeName(m_Path).constData(), 0444), 0);
    QCOMPARE(chmod(QFile::encodeName(m_Folder->path()).constData(), 0555), 0);
    QProcess reader;
    reader.start(CONFIG_WRITER, {"read", m_Path});
    QVERIFY(reader.waitForFinished());
    QCOMPARE(chmod(QFile::encodeName(m_Folder->path()).constData(), 0755), 0);
    QCOMPARE(reader.readAllStandardOutput(), QByteArray("7 8 memory\n"));
    QByteArray const log = reader.readAllStandardError();
    QCOMPARE(log.count('\n'), 1);
    QVERIFY(log.contains("cannot be written"));
    QCOMPARE(Content(m_Path), content);
    QCOMPARE(FilesLike("*").size(), 3);
}

void TSqliteConfigManagerTest::damageThatCannotBeSetAsideIsSurvived()
{
    QVERIFY(WriteFile(m_Path, "no database"));
    QCOMPARE(chmod(QFile::encodeName(m_Folder->path()).constData(), 0555), 0);
    QProcess reader;
    reader.start(CONFIG_WRITER, {"read", m_Path});
    QVERIFY(reader.waitForFinished());
    QCOMPARE(chmod(QFile::encodeName(m_Folder->path()).constData(), 0755), 0);
    QCOMPARE(reader.readAllStandardOutput(), QByteArray("0 1 memory\n"));
    QCOMPARE(reader.readAllStandardError().count('\n'), 1);
    QCOMPARE(Content(m_Path), QByteArray("no database"));
}

void TSqliteConfigManagerTest::valueWithoutStreamOperatorsIsServedFromMemory()
{
    QVERIFY(MakeSettings(m_Path));
    {
        TSqliteConfigManager store(m_Path);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^QVariant::save: unable to save type"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^QVariant::load: unable to load type"));
        store.Write(SETTING, QVariant::fromValue<QObject*>(this), true);
        QCOMPARE(store.Read(SETTING).value<QObject*>(), this);
        QCOMPARE(m_Log->Entries(), QStringList{"Setting 100 of type QObject* cannot be stored"});
        QVERIFY(store.IsPersistent());
    }
    QVERIFY(!TSqliteConfigManager(m_Path).Read(SETTING).isValid());
}

void TSqliteConfigManagerTest::fullDiskIsToldOnceAndCaughtUpWith()
{
    {
        TSqliteConfigManager store(m_Path);
        store.Write(SETTING, 1, true);
        {
            TFileSizeLimit const limit(100000);
            store.Write(SETTING + 1, QString(200000, QLatin1Char('x')), true);
            QVERIFY(!store.IsPersistent());
            store.Write(SETTING, 2, true);
            QVERIFY(!store.IsPersistent());
            QCOMPARE(store.Read(SETTING), QVariant(2));
            QCOMPARE(store.Read(SETTING + 1).toString().size(), 200000);
            QCOMPARE(m_Log->Entries().size(), 1);
            QVERIFY(m_Log->Entries().constFirst().startsWith("The settings cannot be written"));
        }
        store.Write(SETTING + 2, 3, true);
        QVERIFY(store.IsPersistent());
    }
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(store.Read(SETTING), QVariant(2));
    QCOMPARE(store.Read(SETTING + 1).toString().size(), 200000);
    QCOMPARE(store.Read(SETTING + 2), QVariant(3));
    QCOMPARE(m_Log->Entries().size(), 1);
}

void TSqliteConfigManagerTest::connectionsAreUniqueAndLeaveNothingBehind()
{
    TSqliteConfigManager first(m_Path);
    {
        TSqliteConfigManager second(PathIn("other.sqlite"));
        first.Write(SETTING, 1, true);
        second.Write(SETTING, 2, true);
        QCOMPARE(QSqlDatabase::connectionNames().size(), 2);
    }
    QCOMPARE(QSqlDatabase::connectionNames().size(), 1);
    QCOMPARE(first.Read(SETTING), QVariant(1));
    QCOMPARE(FilesLike("other.sqlite*"), QStringList{"other.sqlite"});
}

COMMONUI_TEST(TSqliteConfigManagerTest)
#include "TSqliteConfigManagerTest.moc"
