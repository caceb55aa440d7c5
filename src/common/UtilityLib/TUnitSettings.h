#pragma once

#include "UtilityLibExport.h"

#include <QChar>
#include <QObject>

/// In whose units values are shown.
enum EUnitSystem : quint8
{
    UNIT_SYSTEM_METRIC = 0,
    UNIT_SYSTEM_IMPERIAL = 1, ///< of the United Kingdom
    UNIT_SYSTEM_US = 2
};

/// The order in which a date is written and entered.
enum EDateFormat : quint8
{
    DATE_FORMAT_DAY_MONTH_YEAR = 0,
    DATE_FORMAT_DAY_YEAR_MONTH = 1,
    DATE_FORMAT_MONTH_YEAR_DAY = 2,
    DATE_FORMAT_MONTH_DAY_YEAR = 3,
    DATE_FORMAT_YEAR_MONTH_DAY = 4,
    DATE_FORMAT_YEAR_DAY_MONTH = 5
};

/// How the operator reads values. Aligned so that a thread takes it in whole without a lock.
struct alignas(8) TUnitChoices
{
    QChar decimalPoint = QLatin1Char('.');
    EUnitSystem system = UNIT_SYSTEM_METRIC;
    EDateFormat dateFormat = DATE_FORMAT_DAY_MONTH_YEAR;
    bool is24HourClock = true;

    /// Out of stored numbers: a system or date format that does not exist counts as 0.
    static constexpr TUnitChoices FromNumbers(QChar decimalPoint, int system, int dateFormat,
                                              bool is24HourClock)
    {
        bool const isSystem = system >= UNIT_SYSTEM_METRIC && system <= UNIT_SYSTEM_US;
        bool const isFormat =
            dateFormat >= DATE_FORMAT_DAY_MONTH_YEAR && dateFormat <= DATE_FORMAT_YEAR_DAY_MONTH;
        return {decimalPoint, static_cast<EUnitSystem>(isSystem ? system : 0),
                static_cast<EDateFormat>(isFormat ? dateFormat : 0), is24HourClock};
    }

    friend constexpr bool operator==(TUnitChoices const& a, TUnitChoices const& b)
    {
        return a.decimalPoint == b.decimalPoint && a.system == b.system && a.dateFormat == b.dateFormat &&
               a.is24HourClock == b.is24HourClock;
    }
    friend constexpr bool operator!=(TUnitChoices const& a, TUnitChoices const& b) { return !(a == b); }
};

/// The operator's choices that TUnits goes by. The store of settings hands them over whenever one of them is
/// written or the store is replaced; nobody else needs to. Until then they are the metric ones, with the
/// decimal separator of the system's locale.
///
/// Whatever shows a value connects Changed() to its refresh.
class UTILITYLIB_EXPORT TUnitSettings : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process; never null, never deleted. It lives in the GUI thread, whoever asks
    /// first.
    static TUnitSettings* Instance();

    /// The choices in force. Callable from any thread.
    TUnitChoices Choices() const;

    /// Puts \a choices in force, those that do not exist as 0. GUI thread only.
    void SetChoices(TUnitChoices const& choices);

Q_SIGNALS:
    /// The operator has chosen otherwise: all texts of TUnits are already the new ones. What is stored stays
    /// as it is.
    void Changed();

private:
    TUnitSettings() = default;
};
