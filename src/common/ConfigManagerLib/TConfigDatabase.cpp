#include "TConfigDatabase.h"

#include "TLocalTime.h"
#include "UserLog.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

#include <atomic>
#include <cstdio>
#include <utility>

namespace
{
// A file with any other table is not ours; the text is compared as it stands.
char const* const CREATE_TABLE = "CREATE TABLE settings (id INTEGER PRIMARY KEY, value BLOB NOT NULL, "
                                 "digest BLOB NOT NULL)";
// How long the start waits for a predecessor that is still closing the file.
char const* const WRITING_OPTIONS = "QSQLITE_BUSY_TIMEOUT=1000";
char const* const READING_OPTIONS = "QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI";
// SQLite's files beside the main one.
char const* const COMPANION_SUFFIXES[] = {"-wal", "-shm", "-journal"};
// Names the first few of the damaged rows, so that one line stays readable.
constexpr int MAX_NAMED_ROWS = 5;
constexpr int MAX_SET_ASIDE_NAMES = 1000;
// One page of the smallest size: SQLite takes anything shorter for a new file and overwrites it.
constexpr qint64 SMALLEST_FILE_BYTES = 512;

// SQLite's result codes that speak of the surroundings and not of the content.
bool IsSurroundings(int code)
{
    constexpr int SHORT_READ = 522;
    if (code == SHORT_READ)
        return false;
    switch (code & 0xff)
    {
    case 3:  // permission
    case 5:  // busy
    case 6:  // locked
    case 7:  // memory
    case 8:  // read-only
    case 10: // input or output
    case 13: // full
    case 14: // cannot open
    case 15: // lock protocol
    case 23: // authorisation
        return true;
    default:
        return false;
    }
}

QString UniqueConnectionName()
{
    static std::atomic<quint64> counter{0};
    return QStringLiteral("CommonUI settings %1").arg(++counter);
}

QByteArray Digest(int id, QByteArray const& bytes)
{
    return QCryptographicHash::hash(QByteArray::number(id) + ':' + bytes, QCryptographicHash::Sha1);
}

// Also for a dangling link, for which QFileInfo::exists() is false.
bool IsThere(QString const& path)
{
    QFileInfo const info(path);
    return info.exists() || info.isSymLink();
}

bool Rename(QString const& from, QString const& to)
{
    // Unlike QFile::rename() this takes folders too and never falls back on copying.
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

QString NameForDamaged(QString const& path)
{
    QString const date =
        QLocale::c().toString(TLocalTime::currentDateTime(), QStringLiteral("yyyyMMdd-hhmmss"));
    QString const first = path + QStringLiteral(".damaged-") + date;
    QString name = first;
    for (int i = 2; IsThere(name) && i < MAX_SET_ASIDE_NAMES; ++i)
        name = QStringLiteral("%1-%2").arg(first).arg(i);
    return name;
}

void Report(QString const& text)
{
    GetUserLog()->AddEntry(text);
}
} // namespace

TConfigDatabase::TConfigDatabase(QString const& path)
    : m_Path(path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath())
    , m_Name(UniqueConnectionName())
{
    Open();
    if (!m_IsWritable)
        Report(QStringLiteral(
                   "The settings in \"%1\" cannot be written (%2): changes last until the console stops")
                   .arg(m_Path, m_Reason));
}

TConfigDatabase::~TConfigDatabase()
{
    Close();
}

QHash<int, QByteArray> TConfigDatabase::TakeRows()
{
    return std::exchange(m_Rows, {});
}

void TConfigDatabase::Open()
{
    m_Reason = QStringLiteral("no such folder");
    if (m_Path.isEmpty() || !MakeFolder())
        return;
    m_Reason = QStringLiteral("no permission");
    EOutcome outcome = OUTCOME_UNAVAILABLE;
    if (CanWriteThere())
    {
        QString const damage = VisibleDamage();
        outcome = damage.isEmpty() ? OpenForWriting() : Damaged(damage);
        if (outcome == OUTCOME_DAMAGED && SetAside())
            outcome = OpenForWriting();
    }
    if (outcome == OUTCOME_UNAVAILABLE)
        ReadWithoutWriting();
    m_IsWritable = outcome == OUTCOME_OPEN;
}

bool TConfigDatabase::MakeFolder() const
{
    return QDir().mkpath(QFileInfo(m_Path).absolutePath());
}

bool TConfigDatabase::CanWriteThere() const
{
    QFileInfo const file(m_Path);
    return QFileInfo(file.absolutePath()).isWritable() && (!file.isFile() || file.isWritable());
}

// What is plainly wrong before SQLite looks at it: each of these it would take for a new file, or wait for.
QString TConfigDatabase::VisibleDamage() const
{
    QFileInfo const file(m_Path);
    if (file.exists())
    {
        if (!file.isFile())
            return QStringLiteral("not a file");
        return file.size() < SMALLEST_FILE_BYTES ? QStringLiteral("too short") : QString();
    }
    if (file.isSymLink())
        return QStringLiteral("a link to nothing");
    for (char const* const suffix : COMPANION_SUFFIXES)
    {
        if (IsThere(m_Path + QLatin1String(suffix)))
            return QStringLiteral("only companions are left");
    }
    return {};
}

TConfigDatabase::EOutcome TConfigDatabase::OpenFile(QString const& name, QString const& options)
{
    QString const driver = QStringLiteral("QSQLITE");
    if (!QSqlDatabase::isDriverAvailable(driver))
    {
        m_Reason = QStringLiteral("no driver");
        return OUTCOME_UNAVAILABLE;
    }
    m_Database = QSqlDatabase::addDatabase(driver, m_Name);
    m_Database.setDatabaseName(name);
    m_Database.setConnectOptions(options);
    return m_Database.open() ? OUTCOME_OPEN : Fail(m_Database.lastError());
}

TConfigDatabase::EOutcome TConfigDatabase::OpenForWriting()
{
    EOutcome outcome = OpenFile(m_Path, QLatin1String(WRITING_OPTIONS));
    // The exclusive lock comes first: it keeps a second console out and needs no shared memory for the log.
    // Nothing is changed before the content is known to be ours.
    if (outcome == OUTCOME_OPEN)
        outcome = RunAll({"PRAGMA locking_mode=EXCLUSIVE", "PRAGMA trusted_schema=OFF", "BEGIN IMMEDIATE"});
    if (outcome == OUTCOME_OPEN)
        outcome = CheckContent();
    if (outcome == OUTCOME_OPEN)
        outcome = RunAll({"COMMIT", "PRAGMA journal_mode=WAL", "PRAGMA synchronous=FULL"});
    if (outcome != OUTCOME_OPEN)
        Close();
    return outcome;
}

// A medium that cannot be written still has its settings; what stands in its log alone is out of reach.
void TConfigDatabase::ReadWithoutWriting()
{
    if (!QFileInfo(m_Path).isFile())
        return;
    QString const reason = m_Reason;
    QByteArray const encoded = QUrl::toPercentEncoding(m_Path, "/");
    QString const uri = QStringLiteral("file:%1?immutable=1").arg(QString::fromLatin1(encoded));
    EOutcome outcome = OpenFile(uri, QLatin1String(READING_OPTIONS));
    if (outcome == OUTCOME_OPEN)
        outcome = CheckContent();
    if (outcome != OUTCOME_OPEN)
        m_Rows.clear();
    Close();
    m_Reason = reason;
}

TConfigDatabase::EOutcome TConfigDatabase::RunAll(std::initializer_list<char const*> statements)
{
    for (char const* const statement : statements)
    {
        QSqlQuery query(m_Database);
        if (!query.exec(QLatin1String(statement)))
            return Fail(query.lastError());
    }
    return OUTCOME_OPEN;
}

TConfigDatabase::EOutcome TConfigDatabase::CheckContent()
{
    QSqlQuery check(m_Database);
    if (!check.exec(QStringLiteral("PRAGMA quick_check(1)")) || !check.next())
        return Fail(check.lastError());
    if (check.value(0).toString() != QLatin1String("ok"))
        return Damaged(check.value(0).toString());
    check.finish();
    bool isEmpty = false;
    EOutcome const outcome = CheckLayout(isEmpty);
    if (outcome != OUTCOME_OPEN)
        return outcome;
    return isEmpty ? RunAll({CREATE_TABLE}) : ReadRows();
}

TConfigDatabase::EOutcome TConfigDatabase::CheckLayout(bool& isEmpty)
{
    QSqlQuery query(m_Database);
    if (!query.exec(QStringLiteral("SELECT sql FROM sqlite_master")))
        return Fail(query.lastError());
    isEmpty = !query.next();
    if (isEmpty)
        return OUTCOME_OPEN;
    bool const isOurs = query.value(0).toString() == QLatin1String(CREATE_TABLE) && !query.next();
    return isOurs ? OUTCOME_OPEN : Damaged(QStringLiteral("another table layout"));
}

TConfigDatabase::EOutcome TConfigDatabase::ReadRows()
{
    QSqlQuery query(m_Database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT id, value, digest FROM settings")))
        return Fail(query.lastError());
    QStringList skipped;
    while (query.next())
    {
        qlonglong const number = query.value(0).toLongLong();
        int const id = static_cast<int>(number);
        QByteArray const bytes = query.value(1).toByteArray();
        if (id == number && query.value(2).toByteArray() == Digest(id, bytes))
            m_Rows.insert(id, bytes);
        else
            skipped += QString::number(number);
    }
    if (query.lastError().isValid())
        return Fail(query.lastError());
    ReportSkipped(skipped);
    return OUTCOME_OPEN;
}

void TConfigDatabase::ReportSkipped(QStringList const& skipped) const
{
    if (skipped.isEmpty())
        return;
    QString names = QStringList(skipped.mid(0, MAX_NAMED_ROWS)).join(QStringLiteral(", "));
    if (skipped.size() > MAX_NAMED_ROWS)
        names += QStringLiteral(", ...");
    Report(QStringLiteral("%1 damaged settings in \"%2\" were skipped: %3")
               .arg(skipped.size())
               .arg(m_Path, names));
}

TConfigDatabase::EOutcome TConfigDatabase::Fail(QSqlError const& error)
{
    m_Reason = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return IsSurroundings(error.nativeErrorCode().toInt()) ? OUTCOME_UNAVAILABLE : OUTCOME_DAMAGED;
}

TConfigDatabase::EOutcome TConfigDatabase::Damaged(QString const& reason)
{
    m_Reason = reason;
    return OUTCOME_DAMAGED;
}

void TConfigDatabase::Close()
{
    if (!m_Database.isValid())
        return;
    m_Database.close();
    m_Database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_Name);
}

bool TConfigDatabase::SetAside()
{
    m_Rows.clear();
    QString const aside = NameForDamaged(m_Path);
    if (IsThere(m_Path) && !Rename(m_Path, aside))
        return false;
    for (char const* const suffix : COMPANION_SUFFIXES)
    {
        QString const companion = m_Path + QLatin1String(suffix);
        if (IsThere(companion) && !Rename(companion, aside + QLatin1String(suffix)))
            return false;
    }
    Report(QStringLiteral("The settings in \"%1\" are damaged (%2) and were set aside as \"%3\"")
               .arg(m_Path, m_Reason, QFileInfo(aside).fileName()));
    return true;
}

bool TConfigDatabase::Store(QHash<int, QByteArray> const& rows, QString& error)
{
    bool isStored = RunAll({"BEGIN IMMEDIATE"}) == OUTCOME_OPEN;
    for (auto row = rows.cbegin(); isStored && row != rows.cend(); ++row)
        isStored = StoreRow(row.key(), row.value());
    isStored = isStored && RunAll({"COMMIT"}) == OUTCOME_OPEN;
    if (isStored)
        return true;
    error = m_Reason;
    // Where the failure has already undone the transaction, this one fails too and may.
    RunAll({"ROLLBACK"});
    return false;
}

bool TConfigDatabase::StoreRow(int id, QByteArray const& bytes)
{
    QSqlQuery query(m_Database);
    bool const isRemoval = bytes.isEmpty();
    query.prepare(isRemoval
                      ? QStringLiteral("DELETE FROM settings WHERE id = :id")
                      : QStringLiteral("INSERT OR REPLACE INTO settings VALUES (:id, :value, :digest)"));
    query.bindValue(QStringLiteral(":id"), id);
    if (!isRemoval)
    {
        query.bindValue(QStringLiteral(":value"), bytes);
        query.bindValue(QStringLiteral(":digest"), Digest(id, bytes));
    }
    return query.exec() || Fail(query.lastError()) == OUTCOME_OPEN;
}
