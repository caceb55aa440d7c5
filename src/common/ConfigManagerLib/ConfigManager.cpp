#include "ConfigManager.h"

#include "TMemoryConfigManager.h"
#include "TUnitSettings.h"

#include <QLocale>

#include <algorithm>

namespace
{
constexpr int DEFAULT_SOUND_VOLUME = 50;

ConfigManager* installedManager = nullptr;

TConfigEntry const* FindKnownEntry(int id)
{
    std::vector<TConfigEntry> const& entries = ConfigManager::KnownEntries();
    auto const isBefore = [](TConfigEntry const& entry, int wanted) { return entry.id < wanted; };
    auto const found = std::lower_bound(entries.begin(), entries.end(), id, isBefore);
    return found != entries.end() && found->id == id ? &*found : nullptr;
}

bool IsOfUnits(int id)
{
    switch (id)
    {
    case CONFIG_24_HOUR_CLOCK:
    case CONFIG_DATE_FORMAT:
    case CONFIG_UNIT_SYSTEM:
    case CONFIG_LOCALE:
        return true;
    default:
        return false;
    }
}

void HandOverUnitChoices(ConfigManager const& store)
{
    QString const locale = store.Read(CONFIG_LOCALE).toString();
    // Not the default locale, which a host may change behind the store's back.
    QLocale const chosen = locale.isEmpty() ? QLocale::system() : QLocale(locale);
    TUnitSettings::Instance()->SetChoices(TUnitChoices::FromNumbers(
        chosen.decimalPoint(), store.Read(CONFIG_UNIT_SYSTEM).toInt(), store.Read(CONFIG_DATE_FORMAT).toInt(),
        store.Read(CONFIG_24_HOUR_CLOCK).toBool()));
}
} // namespace

ConfigManager::~ConfigManager() = default;

ConfigManager* ConfigManager::Instance()
{
    static TMemoryConfigManager inMemory;
    return installedManager != nullptr ? installedManager : &inMemory;
}

ConfigManager* ConfigManager::Install(ConfigManager* manager)
{
    ConfigManager* const before = installedManager;
    installedManager = manager;
    HandOverUnitChoices(*Instance());
    return before;
}

std::vector<TConfigEntry> const& ConfigManager::KnownEntries()
{
    static std::vector<TConfigEntry> const entries = {
        {CONFIG_SOUND_VOLUME, "SoundVolume", DEFAULT_SOUND_VOLUME},
        {CONFIG_SOUND_ENABLED, "SoundEnabled", true},
        {CONFIG_BUTTON_SIZE, "ButtonSize", 0},
        {CONFIG_24_HOUR_CLOCK, "24HourClock", true},
        {CONFIG_DATE_FORMAT, "DateFormat", DATE_FORMAT_DAY_MONTH_YEAR},
        {CONFIG_UNIT_SYSTEM, "UnitSystem", UNIT_SYSTEM_METRIC},
        {CONFIG_LOCALE, "Locale", QLatin1String("")},
        {CONFIG_LAYOUT_SNAPSHOT, "LayoutSnapshot", QLatin1String("")},
        {CONFIG_DASHBOARD_SNAPSHOT, "DashboardSnapshot", QLatin1String("")},
    };
    return entries;
}

QVariant ConfigManager::DefaultValue(int id)
{
    TConfigEntry const* const entry = FindKnownEntry(id);
    return entry != nullptr ? entry->defaultValue : QVariant();
}

QVariant ConfigManager::ValueOrDefault(int id, QVariant const& stored)
{
    TConfigEntry const* const entry = FindKnownEntry(id);
    if (entry == nullptr)
        return stored;
    int const type = entry->defaultValue.userType();
    if (stored.userType() == type)
        return stored;
    QVariant converted = stored;
    return converted.convert(type) ? converted : entry->defaultValue;
}

void ConfigManager::NoteWritten(int id) const
{
    if (this == Instance() && IsOfUnits(id))
        HandOverUnitChoices(*this);
}
