#pragma once

#include "ConfigManagerLibExport.h"

#include <QString>
#include <QVariant>

#include <vector>

/// The numbers of the settings that the toolkit itself reads or writes. Modules use numbers of their own.
enum EConfigId
{
    CONFIG_SOUND_VOLUME = 22725,  ///< int, percent
    CONFIG_SOUND_ENABLED = 22726, ///< bool
    CONFIG_BUTTON_SIZE = 22753,   ///< int: 0 normal, 1 a quarter larger, 2 half as large again
    CONFIG_24_HOUR_CLOCK = 22793, ///< bool; else the clock has am and pm
    CONFIG_DATE_FORMAT = 22794,   ///< int, an EDateFormat
    CONFIG_UNIT_SYSTEM = 22795,   ///< int, an EUnitSystem
    CONFIG_LOCALE = 22796, ///< QString as "de_DE", whose decimal separator is used; empty for the system's
    CONFIG_LAYOUT_SNAPSHOT = 22797,   ///< QString, XML
    CONFIG_DASHBOARD_SNAPSHOT = 22798 ///< QString, XML
};

/// One row of the table of known settings.
struct TConfigEntry
{
    int id;           ///< the setting's number
    char const* name; ///< how tools and logs call it
    QVariant
        defaultValue; ///< what a reader gets while nothing valid is stored; its type is the setting's type
};

/// The store of numbered settings. One object serves the process; a host installs a durable one before it
/// builds the screen, a test one in memory. GUI thread only.
///
/// Clock, date format, unit system and locale of the installed store are handed to TUnitSettings, as soon as
/// the store is installed and whenever one of them is written: so the display follows at once.
class CONFIGMANAGERLIB_EXPORT ConfigManager
{
public:
    virtual ~ConfigManager();

    /// The stored value, or the known default, or an invalid variant for an unknown number that was never
    /// written. A stored value of a known number that cannot be converted to the type of its default counts
    /// as not stored.
    virtual QVariant Read(int id) const = 0;

    /// Stores \a value. With \a durable it is on the disk when the call returns and survives a power cut;
    /// without, it may be lost with the last moments. A store that fails keeps serving the new value from
    /// memory and says so in the log. An invalid variant forgets the number.
    virtual void Write(int id, QVariant const& value, bool durable) = 0;

    /// The installed store; never null. Without any it is a store in memory.
    static ConfigManager* Instance();

    /// Installs \a manager, which stays the caller's and must outlive its use; null brings the default back.
    /// Answers what was installed before, null for the default.
    static ConfigManager* Install(ConfigManager* manager);

    /// The known settings, ascending by number.
    static std::vector<TConfigEntry> const& KnownEntries();

    /// The default of a known number, an invalid variant for any other.
    static QVariant DefaultValue(int id);

protected:
    /// A store calls this at the end of Write(), when Read() answers what was written.
    void NoteWritten(int id) const;

    /// What Read() answers when \a stored is what the store holds for \a id, invalid for nothing: the value
    /// in the type of the known default, or that default.
    static QVariant ValueOrDefault(int id, QVariant const& stored);
};
