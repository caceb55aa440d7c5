#pragma once

class TJob;
class TMachine;

/// What the operator has told the console about sprayer and job, in the store of settings.
///
/// A stored value that makes no sense (no number, out of its range, no address) is told in the operator's log
/// and forgotten: what it stands for keeps its standard value.
namespace ConsoleSettings
{
/// The numbers of the settings. Sections count on from theirs.
enum ESetting
{
    SETTING_LIGHT_BAR_STEP = 90010, ///< int, an index into LightBarScale::Steps
    SETTING_TANK_SIZE = 90020,      ///< double, litres
    SETTING_NOZZLE_FLOW = 90021,    ///< double, litres per minute
    SETTING_SECTION_WIDTH = 90030,  ///< double, metres, of the first section
    SETTING_OPERATOR = 90040,       ///< QString
    SETTING_START_DAY = 90041,      ///< double, Julian day number
    SETTING_START_TIME = 90042,     ///< double, hours
    SETTING_SERVER = 90043          ///< QString, an IP address
};

/// Hands what is stored to \a machine and \a job, notes when a job begins of which nothing is stored, and
/// puts the operator's units right where they are stored wrongly.
void Load(TMachine* machine, TJob* job);
} // namespace ConsoleSettings
