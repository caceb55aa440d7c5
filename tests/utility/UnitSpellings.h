#pragma once

#include "EUnitsType.h"

#include <vector>

/// A concrete unit and how UDUNITS-2 may be asked for it, written apart from the table of the library: by
/// other names, symbols and definitions wherever there are some. What is counted is a "seed" here.
struct TUnitSpelling
{
    EUnitsType unit;
    char const* spelling;
};

/// The units of one quantity, all of which convert into each other; the default unit first.
struct TUnitGroup
{
    EUnitsType type;
    std::vector<TUnitSpelling> units;
};

inline std::vector<TUnitGroup> FirstUnitGroups()
{
    return {
        {UNIT_TYPE_LENGTH,
         {{UNIT_METRE, "m"},
          {UNIT_MILLIMETRE, "mm"},
          {UNIT_CENTIMETRE, "cm"},
          {UNIT_KILOMETRE, "km"},
          {UNIT_INCH, "in"},
          {UNIT_FOOT, "12 in"},
          {UNIT_YARD, "3 feet"},
          {UNIT_MILE, "5280 ft"},
          {UNIT_NAUTICAL_MILE, "1852 m"}}},
        {UNIT_TYPE_AREA,
         {{UNIT_SQUARE_METRE, "m^2"},
          {UNIT_HECTARE, "10000 m2"},
          {UNIT_SQUARE_KILOMETRE, "km2"},
          {UNIT_SQUARE_FOOT, "ft2"},
          {UNIT_ACRE, "160 rod2"},
          {UNIT_SQUARE_MILE, "mi2"}}},
        {UNIT_TYPE_VOLUME,
         {{UNIT_LITRE, "dm3"},
          {UNIT_MILLILITRE, "cm3"},
          {UNIT_HECTOLITRE, "100 l"},
          {UNIT_CUBIC_METRE, "m3"},
          {UNIT_CUBIC_INCH, "in3"},
          {UNIT_CUBIC_FOOT, "ft3"},
          {UNIT_FLUID_OUNCE, "US_liquid_gallon/128"},
          {UNIT_PINT, "gallon/8"},
          {UNIT_QUART, "gallon/4"},
          {UNIT_GALLON, "gallon"},
          {UNIT_BUSHEL, "bu"},
          {UNIT_UK_FLUID_OUNCE, "UK_liquid_gallon/160"},
          {UNIT_UK_PINT, "UK_liquid_gallon/8"},
          {UNIT_UK_GALLON, "4 UK_liquid_quart"}}},
        {UNIT_TYPE_MASS,
         {{UNIT_KILOGRAM, "kg"},
          {UNIT_MILLIGRAM, "mg"},
          {UNIT_GRAM, "g"},
          {UNIT_TONNE, "1000 kg"},
          {UNIT_OUNCE, "avoirdupois_ounce"},
          {UNIT_POUND, "lb"},
          {UNIT_HUNDREDWEIGHT, "short_hundredweight"},
          {UNIT_TON, "2000 lb"},
          {UNIT_UK_TON, "2240 lb"}}},
        {UNIT_TYPE_COUNT,
         {{UNIT_EACH, "seed"},
          {UNIT_SEEDS, "seed"},
          {UNIT_THOUSAND_SEEDS, "1000 seed"},
          {UNIT_MILLION_SEEDS, "1000000 seed"}}},
    };
}

inline std::vector<TUnitGroup> SecondUnitGroups()
{
    return {
        {UNIT_TYPE_SPEED,
         {{UNIT_METRES_PER_SECOND, "m/s"},
          {UNIT_METRES_PER_MINUTE, "m/min"},
          {UNIT_KILOMETRES_PER_HOUR, "km/h"},
          {UNIT_FEET_PER_SECOND, "ft/s"},
          {UNIT_FEET_PER_MINUTE, "ft/min"},
          {UNIT_MILES_PER_HOUR, "mi/h"},
          {UNIT_KNOT, "nautical_mile/h"}}},
        {UNIT_TYPE_ACCELERATION,
         {{UNIT_METRES_PER_SECOND_SQUARED, "m s-2"}, {UNIT_FEET_PER_SECOND_SQUARED, "ft s-2"}}},
        {UNIT_TYPE_DURATION,
         {{UNIT_SECOND, "s"},
          {UNIT_MILLISECOND, "ms"},
          {UNIT_MINUTE, "60 s"},
          {UNIT_HOUR, "3600 s"},
          {UNIT_DAY, "24 h"}}},
        {UNIT_TIME_OF_DAY, {{UNIT_TIME_OF_DAY, "h"}}},
        {UNIT_DATE, {{UNIT_DATE, "d"}}},
        {UNIT_TYPE_ANGLE,
         {{UNIT_DEGREE, "arc_degree"},
          {UNIT_ARC_MINUTE, "arc_degree/60"},
          {UNIT_ARC_SECOND, "arc_degree/3600"},
          {UNIT_RADIAN, "rad"}}},
        {UNIT_TYPE_TURN_RATE,
         {{UNIT_DEGREES_PER_SECOND, "arc_degree/s"}, {UNIT_RADIANS_PER_SECOND, "rad/s"}}},
        {UNIT_TYPE_ROTATION, {{UNIT_REVOLUTIONS_PER_MINUTE, "rpm"}, {UNIT_REVOLUTIONS_PER_SECOND, "60 rpm"}}},
        {UNIT_HERTZ, {{UNIT_HERTZ, "Hz"}}},
        {UNIT_VOLT, {{UNIT_VOLT, "V"}}},
        {UNIT_AMPERE, {{UNIT_AMPERE, "A"}}},
        {UNIT_OHM, {{UNIT_OHM, "V/A"}}},
        {UNIT_AMPERE_HOUR, {{UNIT_AMPERE_HOUR, "3600 C"}}},
        {UNIT_TYPE_VOLUME_RATE,
         {{UNIT_LITRES_PER_HECTARE, "0.1 mm3/mm2 um/mm"},
          {UNIT_MILLILITRES_PER_HECTARE, "cm3/hectare"},
          {UNIT_CUBIC_METRES_PER_HECTARE, "0.1 mm"},
          {UNIT_GALLONS_PER_ACRE, "gallon acre-1"},
          {UNIT_FLUID_OUNCES_PER_ACRE, "gallon/128/acre"},
          {UNIT_PINTS_PER_ACRE, "gallon/8/acre"},
          {UNIT_QUARTS_PER_ACRE, "gallon/4/acre"},
          {UNIT_BUSHELS_PER_ACRE, "bu acre-1"},
          {UNIT_UK_GALLONS_PER_ACRE, "UK_liquid_gallon acre-1"},
          {UNIT_UK_FLUID_OUNCES_PER_ACRE, "UK_liquid_gallon/160/acre"},
          {UNIT_UK_PINTS_PER_ACRE, "UK_liquid_gallon/8/acre"}}},
    };
}

inline std::vector<TUnitGroup> ThirdUnitGroups()
{
    return {
        {UNIT_TYPE_MASS_RATE,
         {{UNIT_KILOGRAMS_PER_HECTARE, "0.1 g/m2"},
          {UNIT_GRAMS_PER_HECTARE, "0.1 mg/m2"},
          {UNIT_TONNES_PER_HECTARE, "100 g/m2"},
          {UNIT_GRAMS_PER_SQUARE_METRE, "g/m2"},
          {UNIT_OUNCES_PER_ACRE, "avoirdupois_ounce acre-1"},
          {UNIT_POUNDS_PER_ACRE, "lb acre-1"},
          {UNIT_HUNDREDWEIGHTS_PER_ACRE, "short_hundredweight acre-1"},
          {UNIT_TONS_PER_ACRE, "2000 lb/acre"},
          {UNIT_UK_TONS_PER_ACRE, "2240 lb/acre"}}},
        {UNIT_TYPE_SEED_RATE,
         {{UNIT_SEEDS_PER_SQUARE_METRE, "seed/m2"},
          {UNIT_SEEDS_PER_HECTARE, "1e-4 seed/m2"},
          {UNIT_THOUSAND_SEEDS_PER_HECTARE, "0.1 seed/m2"},
          {UNIT_SEEDS_PER_SQUARE_FOOT, "seed/ft2"},
          {UNIT_SEEDS_PER_ACRE, "seed/(160 rod2)"},
          {UNIT_THOUSAND_SEEDS_PER_ACRE, "1000 seed/(160 rod2)"}}},
        {UNIT_TYPE_SEEDS_PER_LENGTH, {{UNIT_SEEDS_PER_METRE, "seed/m"}, {UNIT_SEEDS_PER_FOOT, "seed/ft"}}},
        {UNIT_TYPE_VOLUME_FLOW,
         {{UNIT_LITRES_PER_MINUTE, "l/min"},
          {UNIT_MILLILITRES_PER_MINUTE, "cm3/min"},
          {UNIT_LITRES_PER_SECOND, "l/s"},
          {UNIT_LITRES_PER_HOUR, "l/h"},
          {UNIT_CUBIC_METRES_PER_HOUR, "m3/h"},
          {UNIT_FLUID_OUNCES_PER_MINUTE, "gallon/128/min"},
          {UNIT_GALLONS_PER_MINUTE, "gallon/min"},
          {UNIT_GALLONS_PER_HOUR, "gallon/h"},
          {UNIT_UK_FLUID_OUNCES_PER_MINUTE, "UK_liquid_gallon/160/min"},
          {UNIT_UK_GALLONS_PER_MINUTE, "UK_liquid_gallon/min"},
          {UNIT_UK_GALLONS_PER_HOUR, "UK_liquid_gallon/h"}}},
        {UNIT_TYPE_MASS_FLOW,
         {{UNIT_KILOGRAMS_PER_MINUTE, "kg/min"},
          {UNIT_KILOGRAMS_PER_SECOND, "kg/s"},
          {UNIT_KILOGRAMS_PER_HOUR, "kg/h"},
          {UNIT_TONNES_PER_HOUR, "1000 kg/h"},
          {UNIT_POUNDS_PER_MINUTE, "lb/min"},
          {UNIT_POUNDS_PER_HOUR, "lb/h"},
          {UNIT_TONS_PER_HOUR, "2000 lb/h"}}},
        {UNIT_SEEDS_PER_SECOND, {{UNIT_SEEDS_PER_SECOND, "seed/s"}, {UNIT_SEEDS_PER_MINUTE, "seed/min"}}},
        {UNIT_TYPE_WORK_RATE, {{UNIT_HECTARES_PER_HOUR, "10000 m2/h"}, {UNIT_ACRES_PER_HOUR, "160 rod2/h"}}},
        {UNIT_TYPE_PRESSURE,
         {{UNIT_KILOPASCAL, "kPa"}, {UNIT_BAR, "100 kPa"}, {UNIT_POUNDS_PER_SQUARE_INCH, "lbf/in2"}}},
        {UNIT_TYPE_TEMPERATURE,
         {{UNIT_DEGREE_CELSIUS, "degC"}, {UNIT_DEGREE_FAHRENHEIT, "degF"}, {UNIT_KELVIN, "K"}}},
        {UNIT_TYPE_FORCE, {{UNIT_NEWTON, "N"}, {UNIT_KILONEWTON, "kN"}, {UNIT_POUND_FORCE, "lbf"}}},
        {UNIT_TYPE_POWER, {{UNIT_KILOWATT, "kW"}, {UNIT_HORSEPOWER, "horsepower"}}},
        {UNIT_PERCENT, {{UNIT_PERCENT, "0.01"}, {UNIT_PARTS_PER_MILLION, "1e-6"}}},
    };
}

inline std::vector<TUnitGroup> FourthUnitGroups()
{
    return {
        {UNIT_TYPE_DENSITY,
         {{UNIT_KILOGRAMS_PER_LITRE, "g/cm3"},
          {UNIT_POUNDS_PER_GALLON, "lb/gallon"},
          {UNIT_POUNDS_PER_BUSHEL, "lb/bu"}}},
    };
}

inline std::vector<TUnitGroup> const& UnitGroups()
{
    static std::vector<TUnitGroup> const groups = []
    {
        std::vector<TUnitGroup> all;
        for (auto const part : {FirstUnitGroups, SecondUnitGroups, ThirdUnitGroups, FourthUnitGroups})
        {
            std::vector<TUnitGroup> const some = part();
            all.insert(all.end(), some.begin(), some.end());
        }
        return all;
    }();
    return groups;
}
