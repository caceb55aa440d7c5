#pragma once

#include "TUnits.h"

/// How a measure of the console is read: by the operator's unit system, with his decimal separator. What
/// shows one shows it anew on TUnitSettings::Changed().
struct TQuantity
{
    EUnitsType type;
    EUnitsContext context;
    int decimals;              ///< or a TUnits::EPrecision
    double defaultUnits = 1.0; ///< of the type, in one of the unit in which the console counts

    /// Value and unit apart.
    TUnits::TValueAndUnit Parts(double value) const;
    /// The value with its unit behind it.
    QString Text(double value) const;
    /// In the unit that the operator reads.
    double Shown(double value) const;
    /// The unit that the operator reads; empty for one without an abbreviation.
    QString Unit() const;
};

/// The measures of the console, each with the unit in which it counts them.
namespace Quantities
{
constexpr double SquareMetresPerHectare = 10000.0;

/// Metres per second.
constexpr TQuantity Speed{UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, TUnits::DEFAULT_PRECISION};
/// Metres per second, for an instrument.
constexpr TQuantity WholeSpeed{UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 0};
/// Degrees.
constexpr TQuantity Heading{UNIT_TYPE_ANGLE, UNITS_CONTEXT_GENERAL, 0};
/// Hectares.
constexpr TQuantity Area{UNIT_TYPE_AREA, UNITS_CONTEXT_GENERAL, TUnits::DEFAULT_PRECISION,
                         SquareMetresPerHectare};
/// Litres, as exactly as a tank is read.
constexpr TQuantity Tank{UNIT_TYPE_VOLUME, UNITS_CONTEXT_GENERAL, 0};
/// Litres per hectare.
constexpr TQuantity Rate{UNIT_TYPE_VOLUME_RATE, UNITS_CONTEXT_GENERAL, TUnits::DEFAULT_PRECISION};
/// Litres per minute, of the whole boom.
constexpr TQuantity Flow{UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_GENERAL, 0};
/// Litres per minute, of one nozzle.
constexpr TQuantity NozzleFlow{UNIT_TYPE_VOLUME_FLOW, UNITS_CONTEXT_NOZZLE, TUnits::DEFAULT_PRECISION};
/// Litres, in a jug under a nozzle.
constexpr TQuantity Caught{UNIT_TYPE_VOLUME, UNITS_CONTEXT_CHEMICAL, TUnits::DEFAULT_PRECISION};
/// Metres, of a boom or its sections.
constexpr TQuantity Width{UNIT_TYPE_LENGTH, UNITS_CONTEXT_IMPLEMENT, TUnits::DEFAULT_PRECISION};
/// Metres, across the drive.
constexpr TQuantity Offset{UNIT_TYPE_LENGTH, UNITS_CONTEXT_GUIDANCE, TUnits::DEFAULT_PRECISION};
/// Metres above the sea.
constexpr TQuantity Altitude{UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 1};
/// Percent.
constexpr TQuantity Share{UNIT_PERCENT, UNITS_CONTEXT_GENERAL, 0};
/// Julian days.
constexpr TQuantity Date{UNIT_DATE, UNITS_CONTEXT_GENERAL, 0};
/// Hours.
constexpr TQuantity TimeOfDay{UNIT_TIME_OF_DAY, UNITS_CONTEXT_GENERAL, 0};
} // namespace Quantities
