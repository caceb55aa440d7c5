#include "TSqliteConfigManager.h"

#include "ConfigValueStream.h"
#include "TConfigDatabase.h"
#include "UserLog.h"

namespace
{
// How much of what nobody asked to be durable a power cut may take.
constexpr int FLUSH_DELAY_MS = 1000;
} // namespace

TSqliteConfigManager::TSqliteConfigManager(QString const& path)
    : m_Database(std::make_unique<TConfigDatabase>(path))
{
    m_Unread = m_Database->TakeRows();
    m_FlushTimer.setSingleShot(true);
    m_FlushTimer.setInterval(FLUSH_DELAY_MS);
    QObject::connect(&m_FlushTimer, &QTimer::timeout, &m_FlushTimer, [this] { Flush(); });
}

TSqliteConfigManager::~TSqliteConfigManager()
{
    Flush();
}

QVariant TSqliteConfigManager::Read(int id) const
{
    if (m_Unread.contains(id))
    {
        QVariant const value = ConfigValueFromBytes(m_Unread.take(id));
        if (value.isValid())
            m_Values.insert(id, value);
        else
            GetUserLog()->AddEntry(QStringLiteral("The stored value of setting %1 cannot be read").arg(id));
    }
    return ValueOrDefault(id, m_Values.value(id));
}

void TSqliteConfigManager::Write(int id, QVariant const& value, bool durable)
{
    m_Unread.remove(id);
    if (value.isValid())
        m_Values.insert(id, value);
    else
        m_Values.remove(id);
    if (m_Database->IsWritable())
        Keep(id, value, durable);
    NoteWritten(id);
}

void TSqliteConfigManager::Keep(int id, QVariant const& value, bool durable)
{
    QByteArray const bytes = value.isValid() ? ConfigValueToBytes(value) : QByteArray();
    if (value.isValid() && bytes.isEmpty())
        GetUserLog()->AddEntry(QStringLiteral("Setting %1 of type %2 cannot be stored")
                                   .arg(id)
                                   .arg(QString::fromLatin1(value.typeName())));
    m_Pending.insert(id, bytes);
    if (durable)
        Flush();
    else if (!m_FlushTimer.isActive())
        m_FlushTimer.start();
}

bool TSqliteConfigManager::IsPersistent() const
{
    return m_Database->IsWritable() && !m_HasFailed;
}

void TSqliteConfigManager::Flush()
{
    m_FlushTimer.stop();
    if (m_Pending.isEmpty())
        return;
    QString reason;
    if (m_Database->Store(m_Pending, reason))
    {
        m_Pending.clear();
        m_HasFailed = false;
    }
    else
    {
        ReportFailure(reason);
    }
}

// Once for each time that the file stops taking the writes. What it did not take goes with the next write.
void TSqliteConfigManager::ReportFailure(QString const& reason)
{
    if (!m_HasFailed)
        GetUserLog()->AddEntry(QStringLiteral("The settings cannot be written (%1)").arg(reason));
    m_HasFailed = true;
}
