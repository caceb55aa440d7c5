#include "TNozzlesPage.h"

#include "ConsoleSettings.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TMachine.h"
#include "TQuantity.h"

namespace
{
constexpr int FlowDecimals = 2;
constexpr int OunceDecimals = 1;

// Nozzles are sold by the gallon as well as by the litre, whatever the operator reads otherwise.
TEditItem NozzleItem()
{
    TEditItem item = EditItems::Typed(Quantities::NozzleFlow, TMachine::SmallestNozzleFlow,
                                      TMachine::LargestNozzleFlow, NUMBER_PAD_DECIMAL);
    item.unitsSelector.units = {{UNIT_MILLILITRES_PER_MINUTE, 0},
                                {UNIT_LITRES_PER_MINUTE, FlowDecimals},
                                {UNIT_FLUID_OUNCES_PER_MINUTE, OunceDecimals},
                                {UNIT_GALLONS_PER_MINUTE, FlowDecimals},
                                {UNIT_UK_FLUID_OUNCES_PER_MINUTE, OunceDecimals}};
    return item;
}

} // namespace

TNozzlesPage::TNozzlesPage(QWidget* parent, TMachine* machine)
    : TSprayerPage(parent, machine)
    , m_Nozzles(AddRow(tr("Nozzle flow")))
{
    m_Nozzles->AddItem(NozzleItem(), QStringLiteral("setup-nozzle"),
                       tr("What one nozzle gives in a minute; the flow is limited and calibrated by it"));
    connect(m_Nozzles, &TEditRow::Edited, this,
            [this](int, double litresPerMinute)
            {
                Machine()->SetNozzleFlow(litresPerMinute);
                Store(ConsoleSettings::SETTING_NOZZLE_FLOW, Machine()->NozzleFlow());
            });
    TNozzlesPage::Sync();
}

void TNozzlesPage::Sync()
{
    m_Nozzles->SetValue(0, Machine()->NozzleFlow());
}
