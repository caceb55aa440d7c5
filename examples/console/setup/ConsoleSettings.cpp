#include "ConsoleSettings.h"

#include "ConfigManager.h"
#include "TJob.h"
#include "TMachine.h"
#include "TUnitSettings.h"
#include "UserLog.h"

#include <QLocale>

#include <optional>

using namespace ConsoleSettings;

namespace
{
constexpr int LongestShown = 40;

struct TRange
{
    double smallest;
    double largest;
};

void Forget(int setting, QVariant const& value)
{
    GetUserLog()->AddEntry(QStringLiteral("Setting %1 is senseless and was forgotten: %2")
                               .arg(setting)
                               .arg(value.toString().left(LongestShown)));
    ConfigManager::Instance()->Write(setting, QVariant(), false);
}

std::optional<double> Number(int setting, TRange const& range)
{
    QVariant const value = ConfigManager::Instance()->Read(setting);
    if (!value.isValid())
        return std::nullopt;
    bool isNumber = false;
    double const number = value.toDouble(&isNumber);
    if (isNumber && number >= range.smallest && number <= range.largest)
        return number;
    Forget(setting, value);
    return std::nullopt;
}

std::optional<QString> Text(int setting, bool (*isSensible)(QString const&))
{
    QVariant const value = ConfigManager::Instance()->Read(setting);
    if (!value.isValid())
        return std::nullopt;
    if (value.userType() == QMetaType::QString && isSensible(value.toString()))
        return value.toString();
    Forget(setting, value);
    return std::nullopt;
}

void LoadMachine(TMachine* machine)
{
    if (auto const size = Number(SETTING_TANK_SIZE, {TMachine::SmallestTankSize, TMachine::LargestTankSize}))
        machine->SetTankSize(*size);
    if (auto const flow =
            Number(SETTING_NOZZLE_FLOW, {TMachine::SmallestNozzleFlow, TMachine::LargestNozzleFlow}))
        machine->SetNozzleFlow(*flow);
    if (auto const step = Number(SETTING_LIGHT_BAR_STEP, {0.0, LightBarScale::StepCount - 1.0}))
        machine->SetLightBarStep(qRound(*step));
    for (int section = 0; section < TBoom::SectionCount; ++section)
    {
        if (auto const width = Number(SETTING_SECTION_WIDTH + section,
                                      {TBoom::SmallestSectionWidth, TBoom::LargestSectionWidth}))
            machine->SetSectionWidth(section, *width);
    }
}

void LoadJob(TJob* job)
{
    if (auto const name = Text(SETTING_OPERATOR, &TJob::IsOperatorName))
        job->SetOperator(*name);
    if (auto const day = Number(SETTING_START_DAY, {TJob::FirstDay, TJob::LastDay}))
        job->SetStartDay(*day);
    if (auto const time = Number(SETTING_START_TIME, {0.0, TJob::HoursPerDay}))
        job->SetStartTime(*time);
    if (auto const server = Text(SETTING_SERVER, &TJob::IsAddress))
        job->SetServer(*server);
}

// A job that has begun goes on at the next start.
void NoteStart(TJob const& job)
{
    ConfigManager* const store = ConfigManager::Instance();
    store->Write(SETTING_START_DAY, job.StartDay(), false);
    store->Write(SETTING_START_TIME, job.StartTime(), false);
}

bool IsLocale(QString const& name)
{
    return name.isEmpty() || QLocale(name).language() != QLocale::C;
}

// The library takes what is no choice for the first one, without a word.
void CheckUnits()
{
    Number(CONFIG_UNIT_SYSTEM, {UNIT_SYSTEM_METRIC, UNIT_SYSTEM_US});
    Number(CONFIG_DATE_FORMAT, {DATE_FORMAT_DAY_MONTH_YEAR, DATE_FORMAT_YEAR_DAY_MONTH});
    Text(CONFIG_LOCALE, &IsLocale);
}
} // namespace

void ConsoleSettings::Load(TMachine* machine, TJob* job)
{
    CheckUnits();
    LoadMachine(machine);
    LoadJob(job);
    NoteStart(*job);
}
