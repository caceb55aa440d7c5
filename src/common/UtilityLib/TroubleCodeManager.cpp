#include "TroubleCodeManager.h"

#include "UserLog.h"

namespace
{
TroubleCodeManager* installedManager = nullptr;
}

TroubleCodeManager::~TroubleCodeManager() = default;

void TroubleCodeManager::Report(QString const& category, QString const& line)
{
    GetUserLog()->AddEntry(category.isEmpty() ? line : category + QLatin1Char(' ') + line);
}

TroubleCodeManager* TroubleCodeManager::Instance()
{
    static TroubleCodeManager logging;
    return installedManager != nullptr ? installedManager : &logging;
}

TroubleCodeManager* TroubleCodeManager::Install(TroubleCodeManager* manager)
{
    TroubleCodeManager* const before = installedManager;
    installedManager = manager;
    return before;
}
