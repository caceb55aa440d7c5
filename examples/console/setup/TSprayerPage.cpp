#include "TSprayerPage.h"

#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TMachine.h"
#include "TQuantity.h"
#include "TUnitSettings.h"
#include "TValueRow.h"

namespace
{
constexpr int SectionsPerRow = 4;
// By the unit in which the step is taken.
constexpr double TankStepInLitres = 50.0;
constexpr double TankStepInGallons = 10.0;
constexpr double WidthStepInMetres = 0.05;
constexpr double WidthStepInInches = 1.0;
constexpr int FlowDecimals = 2;
constexpr int OunceDecimals = 1;

TEditItem TankItem()
{
    TEditItem item = EditItems::Stepped(Quantities::Tank, TMachine::SmallestTankSize,
                                        TMachine::LargestTankSize, TankStepInLitres);
    item.unitIncrements = {{UNIT_GALLON, TankStepInGallons}, {UNIT_UK_GALLON, TankStepInGallons}};
    return item;
}

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

TEditItem SectionItem()
{
    TEditItem item = EditItems::Stepped(Quantities::Width, TBoom::SmallestSectionWidth,
                                        TBoom::LargestSectionWidth, WidthStepInMetres);
    item.unitIncrements = {{UNIT_INCH, WidthStepInInches}};
    return item;
}

void Store(int setting, double value)
{
    ConfigManager::Instance()->Write(setting, value, true);
}
} // namespace

TSprayerPage::TSprayerPage(QWidget* parent, TMachine* machine)
    : TSetupPage(parent)
    , m_Machine(machine)
{
    AddTank();
    AddNozzles();
    AddSections();
    m_Width = new TValueRow(Content(), tr("Working width"));
    AddLine(m_Width);
    connect(machine, &TMachine::SwitchesChanged, this, &TSprayerPage::Sync);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TSprayerPage::Sync);
    Sync();
}

TEditRow* TSprayerPage::AddRow(QString const& caption)
{
    auto* const row = new TEditRow(Content(), caption);
    connect(row, &TEditRow::GivenUp, this, &TSprayerPage::Sync);
    AddLine(row);
    return row;
}

void TSprayerPage::AddTank()
{
    m_Tank = AddRow(tr("Tank size"));
    m_Tank->AddItem(TankItem(), QStringLiteral("setup-tank"), tr("How much the tank holds"));
    connect(m_Tank, &TEditRow::Edited, this,
            [this](int, double litres)
            {
                m_Machine->SetTankSize(litres);
                Store(ConsoleSettings::SETTING_TANK_SIZE, m_Machine->TankSize());
            });
}

void TSprayerPage::AddNozzles()
{
    m_Nozzles = AddRow(tr("Nozzle flow"));
    m_Nozzles->AddItem(NozzleItem(), QStringLiteral("setup-nozzle"),
                       tr("What one nozzle gives in a minute; the flow is limited and calibrated by it"));
    connect(m_Nozzles, &TEditRow::Edited, this,
            [this](int, double litresPerMinute)
            {
                m_Machine->SetNozzleFlow(litresPerMinute);
                Store(ConsoleSettings::SETTING_NOZZLE_FLOW, m_Machine->NozzleFlow());
            });
}

void TSprayerPage::AddSections()
{
    for (int first = 0; first < TBoom::SectionCount; first += SectionsPerRow)
    {
        TEditRow* const row = AddRow(tr("Sections %1 to %2").arg(first + 1).arg(first + SectionsPerRow));
        for (int section = first; section < first + SectionsPerRow; ++section)
            row->AddItem(SectionItem(), QStringLiteral("setup-section-%1").arg(section + 1),
                         tr("How wide section %1 is, counted from the left").arg(section + 1));
        connect(row, &TEditRow::Edited, this,
                [this, first](int index, double metres)
                {
                    int const section = first + index;
                    m_Machine->SetSectionWidth(section, metres);
                    Store(ConsoleSettings::SETTING_SECTION_WIDTH + section,
                          m_Machine->Boom().SectionWidth(section));
                });
        m_Sections.append(row);
    }
}

void TSprayerPage::Sync()
{
    m_Tank->SetValue(0, m_Machine->TankSize());
    m_Nozzles->SetValue(0, m_Machine->NozzleFlow());
    for (int section = 0; section < TBoom::SectionCount; ++section)
        m_Sections[section / SectionsPerRow]->SetValue(section % SectionsPerRow,
                                                       m_Machine->Boom().SectionWidth(section));
    m_Width->SetText(Quantities::Width.Text(m_Machine->Boom().Width()));
}
