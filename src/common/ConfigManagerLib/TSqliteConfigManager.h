#pragma once

#include "ConfigManager.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTimer>

#include <memory>

class TConfigDatabase;

/// Settings in one SQLite file with a write-ahead log. Reads are served from memory; the file is read once
/// when it is opened. A damaged file is renamed to "PATH.damaged-DATE" with its companions and named in the
/// log, and the store starts empty, that is, with the defaults. Where not even a new file can be written, the
/// store works in memory and says so once.
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
