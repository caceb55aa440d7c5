#include "TLanguagePage.h"

#include "ConfigManager.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TUnitSettings.h"

#include <QLocale>

namespace
{
struct TLanguage
{
    char const* locale;
    char const* name; ///< in the language itself
};

// The first one, without a locale, is the system's.
constexpr TLanguage Languages[] = {
    {"", QT_TRANSLATE_NOOP("TLanguagePage", "As the system")},
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

QString StoredLocale()
{
    return ConfigManager::Instance()->Read(CONFIG_LOCALE).toString();
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

// A locale that was stored by other means is offered too.
TLanguagePage::TLanguagePage(QWidget* parent)
    : TSetupPage(parent)
    , m_Language(new TEditRow(Content(), tr("Language")))
{
    QStringList names;
    for (TLanguage const& language : Languages)
    {
        m_Locales.append(QLatin1String(language.locale));
        bool const isSystem = m_Locales.constLast().isEmpty();
        names.append(isSystem ? tr(language.name) : QString::fromUtf8(language.name));
    }
    QString const stored = StoredLocale();
    if (!m_Locales.contains(stored))
    {
        m_Locales.append(stored);
        names.append(QLocale(stored).nativeLanguageName());
    }
    m_Language->AddItem(EditItems::OneOf(names), QStringLiteral("setup-language"),
                        tr("Changes the decimal separator and the order of dates; the words of the console "
                           "stay as they are"));
    connect(m_Language, &TEditRow::Edited, this, [this](int, double row) { Choose(qRound(row)); });
    AddLine(m_Language);
}

void TLanguagePage::Choose(int row)
{
    QString const locale = m_Locales.value(row);
    ConfigManager::Instance()->Write(CONFIG_LOCALE, locale, true);
    ConfigManager::Instance()->Write(CONFIG_DATE_FORMAT, DateFormatOf(locale), true);
    Sync();
}

void TLanguagePage::Sync()
{
    m_Language->SetValue(0, qMax(0, m_Locales.indexOf(StoredLocale())));
}
