#pragma once

#include <QByteArray>
#include <QHash>
#include <QSqlDatabase>
#include <QStringList>

#include <initializer_list>

class QSqlError;

/// The SQLite file behind TSqliteConfigManager: one table of number, bytes and a digest over both, a
/// write-ahead log and an exclusive lock. It knows nothing of what the bytes mean.
class TConfigDatabase
{
public:
    /// Opens or creates \a path and reads it. What is damaged there is set aside, what is wrong is told in
    /// the log.
    explicit TConfigDatabase(QString const& path);
    ~TConfigDatabase();

    TConfigDatabase(TConfigDatabase const&) = delete;
    TConfigDatabase& operator=(TConfigDatabase const&) = delete;

    /// True when the file was opened for writing.
    bool IsWritable() const { return m_IsWritable; }

    /// The rows that were found whole when the file was opened; they are handed over.
    QHash<int, QByteArray> TakeRows();

    /// Writes \a rows in one transaction, which is on the disk when the call returns; empty bytes remove a
    /// row. On false nothing was changed and the reason is in \a error.
    bool Store(QHash<int, QByteArray> const& rows, QString& error);

private:
    enum EOutcome
    {
        OUTCOME_OPEN,
        OUTCOME_DAMAGED,    // the content is at fault: set it aside
        OUTCOME_UNAVAILABLE // the surroundings are at fault: the content may be fine
    };

    void Open();
    bool MakeFolder() const;
    bool CanWriteThere() const;
    QString VisibleDamage() const;
    EOutcome OpenFile(QString const& name, QString const& options);
    EOutcome OpenForWriting();
    void ReadWithoutWriting();
    EOutcome RunAll(std::initializer_list<char const*> statements);
    EOutcome CheckContent();
    EOutcome CheckLayout(bool& isEmpty);
    EOutcome ReadRows();
    EOutcome Fail(QSqlError const& error);
    EOutcome Damaged(QString const& reason);
    void Close();
    bool SetAside();
    void ReportSkipped(QStringList const& skipped) const;
    bool StoreRow(int id, QByteArray const& bytes);

    QString m_Path;
    QString const m_Name;
    QSqlDatabase m_Database;
    QHash<int, QByteArray> m_Rows;
    QString m_Reason;
    bool m_IsWritable = false;
};
