#include "TUnitsPage.h"

#include "ConfigManager.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TUnitSettings.h"

TUnitsPage::TUnitsPage(QWidget* parent)
    : TSetupPage(parent)
    , m_Units(new TEditRow(Content(), tr("Units")))
{
    m_Units->AddItem(EditItems::OneOf({tr("Metric"), tr("Imperial (UK)"), tr("US")}),
                     QStringLiteral("setup-units"),
                     tr("The units in which the console shows all values and takes them"));
    connect(m_Units, &TEditRow::Edited, this,
            [](int, double system)
            { ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, qRound(system), true); });
    AddLine(m_Units);
}

void TUnitsPage::Sync()
{
    m_Units->SetValue(0, TUnitSettings::Instance()->Choices().system);
}
