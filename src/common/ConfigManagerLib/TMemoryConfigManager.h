#pragma once

#include "ConfigManager.h"

#include <QHash>

/// Settings that live as long as the object: for tests and for a console without a data folder.
class CONFIGMANAGERLIB_EXPORT TMemoryConfigManager : public ConfigManager
{
public:
    QVariant Read(int id) const override;
    void Write(int id, QVariant const& value, bool durable) override;

private:
    QHash<int, QVariant> m_Values;
};
