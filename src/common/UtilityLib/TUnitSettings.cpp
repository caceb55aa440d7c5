#include "TUnitSettings.h"

#include <QCoreApplication>
#include <QLocale>

#include <atomic>

namespace
{
static_assert(std::atomic<TUnitChoices>::is_always_lock_free);

std::atomic<TUnitChoices>& ChoicesInForce()
{
    static std::atomic<TUnitChoices> choices(TUnitChoices::FromNumbers(
        QLocale::system().decimalPoint(), UNIT_SYSTEM_METRIC, DATE_FORMAT_DAY_MONTH_YEAR, true));
    return choices;
}
} // namespace

TUnitSettings* TUnitSettings::Instance()
{
    static auto* const instance = []
    {
        auto* const made = new TUnitSettings;
        // The first value may be written by a thread that ends before the object is needed again.
        if (QCoreApplication::instance() != nullptr)
            made->moveToThread(QCoreApplication::instance()->thread());
        return made;
    }();
    return instance;
}

TUnitChoices TUnitSettings::Choices() const
{
    return ChoicesInForce().load();
}

void TUnitSettings::SetChoices(TUnitChoices const& choices)
{
    // Tables are read by these, and whoever fills the record in by hand may write any number.
    TUnitChoices const usable = TUnitChoices::FromNumbers(choices.decimalPoint, choices.system,
                                                          choices.dateFormat, choices.is24HourClock);
    if (usable == Choices())
        return;
    ChoicesInForce().store(usable);
    Q_EMIT Changed();
}
