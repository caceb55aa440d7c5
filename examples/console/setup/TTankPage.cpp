#include "TTankPage.h"

#include "ConsoleSettings.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TMachine.h"
#include "TQuantity.h"

namespace
{
// By the unit in which the step is taken.
constexpr double StepInLitres = 50.0;
constexpr double StepInGallons = 10.0;

TEditItem TankItem()
{
    TEditItem item = EditItems::Stepped(Quantities::Tank, TMachine::SmallestTankSize,
                                        TMachine::LargestTankSize, StepInLitres);
    item.unitIncrements = {{UNIT_GALLON, StepInGallons}, {UNIT_UK_GALLON, StepInGallons}};
    return item;
}

} // namespace

TTankPage::TTankPage(QWidget* parent, TMachine* machine)
    : TSprayerPage(parent, machine)
    , m_Tank(AddRow(tr("Tank size")))
{
    m_Tank->AddItem(TankItem(), QStringLiteral("setup-tank"), tr("How much the tank holds"));
    connect(m_Tank, &TEditRow::Edited, this,
            [this](int, double litres)
            {
                Machine()->SetTankSize(litres);
                Store(ConsoleSettings::SETTING_TANK_SIZE, Machine()->TankSize());
            });
    TTankPage::Sync();
}

void TTankPage::Sync()
{
    m_Tank->SetValue(0, Machine()->TankSize());
}
