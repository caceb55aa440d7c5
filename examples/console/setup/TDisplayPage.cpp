#include "TDisplayPage.h"

#include "ConfigManager.h"
#include "TChoiceRow.h"

TDisplayPage::TDisplayPage(QWidget* parent)
    : TSetupPage(parent)
    , m_ButtonSize(new TChoiceRow(Content(), tr("Size of the buttons"),
                                  tr("How large the buttons of the bars are"),
                                  {tr("Normal"), tr("Large"), tr("Largest")}))
{
    connect(m_ButtonSize, &TChoiceRow::Chosen, this,
            [this](int choice)
            {
                ConfigManager::Instance()->Write(CONFIG_BUTTON_SIZE, choice, true);
                Sync();
            });
    AddLine(m_ButtonSize);
}

void TDisplayPage::Sync()
{
    m_ButtonSize->SetChoice(ConfigManager::Instance()->Read(CONFIG_BUTTON_SIZE).toInt());
}
