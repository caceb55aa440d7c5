#include "TMemoryConfigManager.h"

QVariant TMemoryConfigManager::Read(int id) const
{
    return ValueOrDefault(id, m_Values.value(id));
}

void TMemoryConfigManager::Write(int id, QVariant const& value, bool durable)
{
    Q_UNUSED(durable)
    if (value.isValid())
        m_Values.insert(id, value);
    else
        m_Values.remove(id);
    NoteWritten(id);
}
