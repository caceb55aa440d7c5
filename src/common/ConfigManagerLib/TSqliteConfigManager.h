#pragma once

#include "ConfigManager.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTimer>

#include <memory>

class TConfigDatabase;

/// Settings in one SQLite file with a write-ahead log. Reads are served from memory; the file is read once
/// when it is opened. A write that need not be durable goes into the file with the next durable one, after a
/// second, or at the end.
///
/// What is damaged is renamed to "PATH.damaged-DATE" with its companions and named in the log, and the store
/// starts empty, that is, with the defaults; a damaged row is skipped alone. The file is locked while the
/// store lives. Where it cannot be written, for lack of rights or since another console has it, the store
/// works in memory, with the values that the file has, and says so once. A full disk is told once too; what
/// it did not take goes with the next write.
///
/// The file has one table: "settings" with "id", "value", the value as QDataStream writes a QVariant in the
/// version Qt_5_15, and "digest", the SHA-1 of the decimal id, a colon and the value.
class CONFIGMANAGERLIB_EXPORT TSqliteConfigManager : public ConfigManager
{
public:
    /// Opens or creates \a path; missing folders are made.
    explicit TSqliteConfigManager(QString const& path);
    /// Brings what is not yet durable to the disk and closes the file.
    ~TSqliteConfigManager() override;

    TSqliteConfigManager(TSqliteConfigManager const&) = delete;
    TSqliteConfigManager& operator=(TSqliteConfigManager const&) = delete;

    QVariant Read(int id) const override;
    void Write(int id, QVariant const& value, bool durable) override;

    /// True while the file takes the writes, false when the store has fallen back on memory.
    bool IsPersistent() const;

private:
    void Keep(int id, QVariant const& value, bool durable);
    void Flush();
    void ReportFailure(QString const& reason);

    /// What was written or read so far.
    mutable QHash<int, QVariant> m_Values;
    /// Rows of the file that nobody has asked for yet: a module may register the stream operators of its own
    /// types after the store was opened.
    mutable QHash<int, QByteArray> m_Unread;
    QHash<int, QByteArray> m_Pending;
    std::unique_ptr<TConfigDatabase> m_Database;
    QTimer m_FlushTimer;
    bool m_HasFailed = false;
};
