#pragma once

#include <QCryptographicHash>
#include <QDataStream>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

/// A settings file opened behind the back of the store.
class TTestSettingsFile
{
public:
    explicit TTestSettingsFile(QString const& path)
        : m_Database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test")))
    {
        m_Database.setDatabaseName(path);
        m_Database.open();
        // What a test prepares need not survive a power cut.
        Run(QStringLiteral("PRAGMA synchronous=OFF"));
    }
    ~TTestSettingsFile()
    {
        m_Database.close();
        m_Database = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("test"));
    }
    TTestSettingsFile(TTestSettingsFile const&) = delete;
    TTestSettingsFile& operator=(TTestSettingsFile const&) = delete;

    bool Run(QString const& statement) { return QSqlQuery(m_Database).exec(statement); }

    bool Insert(qlonglong id, QVariant const& value, QByteArray const& digest)
    {
        QSqlQuery query(m_Database);
        query.prepare(QStringLiteral("INSERT OR REPLACE INTO settings VALUES (?, ?, ?)"));
        query.addBindValue(id);
        query.addBindValue(value);
        query.addBindValue(digest);
        return query.exec();
    }

    /// A row whose digest is right, whatever its bytes mean.
    bool InsertSigned(qlonglong id, QVariant const& value)
    {
        return Insert(id, value, Digest(id, value.toByteArray()));
    }

    static QByteArray Digest(qlonglong id, QByteArray const& bytes)
    {
        return QCryptographicHash::hash(QByteArray::number(id) + ':' + bytes, QCryptographicHash::Sha1);
    }

    static QByteArray Stream(QVariant const& value)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_15);
        stream << value;
        return bytes;
    }

private:
    QSqlDatabase m_Database;
};
