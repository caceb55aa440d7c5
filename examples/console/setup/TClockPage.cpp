#include "TClockPage.h"

#include "ConfigManager.h"
#include "TChoiceRow.h"
#include "TSelectRow.h"
#include "TSelectWidget.h"
#include "TUnitSettings.h"

#include <QSignalBlocker>

#include <iterator>

namespace
{
// By EDateFormat.
constexpr char const* DateFormats[] = {
    QT_TRANSLATE_NOOP("TClockPage", "Day / month / year"),
    QT_TRANSLATE_NOOP("TClockPage", "Day / year / month"),
    QT_TRANSLATE_NOOP("TClockPage", "Month / year / day"),
    QT_TRANSLATE_NOOP("TClockPage", "Month / day / year"),
    QT_TRANSLATE_NOOP("TClockPage", "Year / month / day"),
    QT_TRANSLATE_NOOP("TClockPage", "Year / day / month"),
};

void Store(int id, QVariant const& value)
{
    ConfigManager::Instance()->Write(id, value, true);
}
} // namespace

TClockPage::TClockPage(QWidget* parent)
    : TSetupPage(parent)
{
    AddDates();
    AddClock();
}

void TClockPage::AddDates()
{
    auto* const row = new TSelectRow(Content(), tr("Dates"));
    m_Dates = row->Select();
    for (int format = 0; format < int(std::size(DateFormats)); ++format)
        m_Dates->AppendEntry(QString(), tr(DateFormats[format]), format);
    m_Dates->SetupSelect(QString(), 0);
    connect(m_Dates, &TSelectWidget::SelectionChanged, this,
            [](int format) { Store(CONFIG_DATE_FORMAT, format); });
    AddLine(row);
}

void TClockPage::AddClock()
{
    m_Clock =
        new TChoiceRow(Content(), tr("Clock"), tr("Whether the hours of a day are counted to 12 or to 24"),
                       {tr("12 hours"), tr("24 hours")});
    connect(m_Clock, &TChoiceRow::Chosen, this,
            [this](int choice)
            {
                Store(CONFIG_24_HOUR_CLOCK, choice == 1);
                Sync();
            });
    AddLine(m_Clock);
}

void TClockPage::Sync()
{
    TUnitChoices const choices = TUnitSettings::Instance()->Choices();
    m_Clock->SetChoice(choices.is24HourClock ? 1 : 0);
    QSignalBlocker const quiet(m_Dates);
    m_Dates->UpdateSelection(choices.dateFormat);
}
