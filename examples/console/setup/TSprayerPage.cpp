#include "TSprayerPage.h"

#include "ConfigManager.h"
#include "TEditRow.h"
#include "TMachine.h"
#include "TUnitSettings.h"

TSprayerPage::TSprayerPage(QWidget* parent, TMachine* machine)
    : TSetupPage(parent)
    , m_Machine(machine)
{
    connect(machine, &TMachine::SwitchesChanged, this, &TSprayerPage::Sync);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TSprayerPage::Sync);
}

TEditRow* TSprayerPage::AddRow(QString const& caption)
{
    auto* const row = new TEditRow(Content(), caption);
    connect(row, &TEditRow::GivenUp, this, &TSprayerPage::Sync);
    AddLine(row);
    return row;
}

void TSprayerPage::Store(int setting, double value)
{
    ConfigManager::Instance()->Write(setting, value, true);
}
