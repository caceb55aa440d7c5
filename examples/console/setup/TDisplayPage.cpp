#include "TDisplayPage.h"

#include "ConfigManager.h"
#include "EditItems.h"
#include "TChoiceRow.h"
#include "TEditRow.h"
#include "TSelectRow.h"
#include "TSelectWidget.h"
#include "TUnitSettings.h"

#include <QLocale>
#include <QSignalBlocker>

#include <iterator>

namespace
{
struct TLanguage
{
    char const* locale;
    char const* name; ///< in the language itself
};

// The first one, without a locale, is the system's.
constexpr TLanguage Languages[] = {
    {"", QT_TRANSLATE_NOOP("TDisplayPage", "As the system")},
    {"en_GB", "English (UK)"},
    {"en_US", "English (US)"},
    {"da_DK", "Dansk"},
    {"de_DE", "Deutsch"},
    {"es_ES", "Español"},
    {"fr_FR", "Français"},
    {"it_IT", "Italiano"},
    {"hu_HU", "Magyar"},
    {"nl_NL", "Nederlands"},
    {"pl_PL", "Polski"},
    {"pt_BR", "Português (Brasil)"},
    {"sv_SE", "Svenska"},
    {"ru_RU", "Русский"},
    {"uk_UA", "Українська"},
};

// By EDateFormat.
constexpr char const* DateFormats[] = {
    QT_TRANSLATE_NOOP("TDisplayPage", "Day / month / year"),
    QT_TRANSLATE_NOOP("TDisplayPage", "Day / year / month"),
    QT_TRANSLATE_NOOP("TDisplayPage", "Month / year / day"),
    QT_TRANSLATE_NOOP("TDisplayPage", "Month / day / year"),
    QT_TRANSLATE_NOOP("TDisplayPage", "Year / month / day"),
    QT_TRANSLATE_NOOP("TDisplayPage", "Year / day / month"),
};

QVariant Setting(int id)
{
    return ConfigManager::Instance()->Read(id);
}

void Store(int id, QVariant const& value)
{
    ConfigManager::Instance()->Write(id, value, true);
}

/// The order in which the people of \a locale write a date.
EDateFormat DateFormatOf(QString const& locale)
{
    QString const format =
        (locale.isEmpty() ? QLocale::system() : QLocale(locale)).dateFormat(QLocale::ShortFormat).toLower();
    int const day = format.indexOf(QLatin1Char('d'));
    int const month = format.indexOf(QLatin1Char('m'));
    int const year = format.indexOf(QLatin1Char('y'));
    if (year < day && year < month)
        return month < day ? DATE_FORMAT_YEAR_MONTH_DAY : DATE_FORMAT_YEAR_DAY_MONTH;
    if (month < day)
        return day < year ? DATE_FORMAT_MONTH_DAY_YEAR : DATE_FORMAT_MONTH_YEAR_DAY;
    return month < year ? DATE_FORMAT_DAY_MONTH_YEAR : DATE_FORMAT_DAY_YEAR_MONTH;
}
} // namespace

TDisplayPage::TDisplayPage(QWidget* parent)
    : TSetupPage(parent)
{
    AddButtonSize();
    AddUnits();
    AddLanguage();
    AddDates();
    AddClock();
}

void TDisplayPage::AddButtonSize()
{
    m_ButtonSize =
        new TChoiceRow(Content(), tr("Size of the buttons"), tr("How large the buttons of the bars are"),
                       {tr("Normal"), tr("Large"), tr("Largest")});
    connect(m_ButtonSize, &TChoiceRow::Chosen, this,
            [this](int choice)
            {
                Store(CONFIG_BUTTON_SIZE, choice);
                Sync();
            });
    AddLine(m_ButtonSize);
}

void TDisplayPage::AddUnits()
{
    m_Units = new TEditRow(Content(), tr("Units"));
    m_Units->AddItem(EditItems::OneOf({tr("Metric"), tr("Imperial (UK)"), tr("US")}),
                     QStringLiteral("setup-units"),
                     tr("The units in which the console shows all values and takes them"));
    connect(m_Units, &TEditRow::Edited, this,
            [](int, double system) { Store(CONFIG_UNIT_SYSTEM, qRound(system)); });
    AddLine(m_Units);
}

// A locale that was stored by other means is offered too.
void TDisplayPage::AddLanguage()
{
    QStringList names;
    for (TLanguage const& language : Languages)
    {
        m_Locales.append(QLatin1String(language.locale));
        bool const isSystem = m_Locales.constLast().isEmpty();
        names.append(isSystem ? tr(language.name) : QString::fromUtf8(language.name));
    }
    QString const stored = Setting(CONFIG_LOCALE).toString();
    if (!m_Locales.contains(stored))
    {
        m_Locales.append(stored);
        names.append(QLocale(stored).nativeLanguageName());
    }
    m_Language = new TEditRow(Content(), tr("Language"));
    m_Language->AddItem(EditItems::OneOf(names), QStringLiteral("setup-language"),
                        tr("Changes the decimal separator and the order of dates; the words of the console "
                           "stay as they are"));
    connect(m_Language, &TEditRow::Edited, this,
            [this](int, double row)
            {
                QString const locale = m_Locales.value(qRound(row));
                Store(CONFIG_LOCALE, locale);
                Store(CONFIG_DATE_FORMAT, DateFormatOf(locale));
                Sync();
            });
    AddLine(m_Language);
}

void TDisplayPage::AddDates()
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

void TDisplayPage::AddClock()
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

void TDisplayPage::Sync()
{
    TUnitChoices const choices = TUnitSettings::Instance()->Choices();
    m_ButtonSize->SetChoice(Setting(CONFIG_BUTTON_SIZE).toInt());
    m_Units->SetValue(0, choices.system);
    m_Language->SetValue(0, qMax(0, m_Locales.indexOf(Setting(CONFIG_LOCALE).toString())));
    m_Clock->SetChoice(choices.is24HourClock ? 1 : 0);
    QSignalBlocker const quiet(m_Dates);
    m_Dates->UpdateSelection(choices.dateFormat);
}
