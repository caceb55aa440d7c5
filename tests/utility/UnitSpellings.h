#pragma once

#include "EUnitsType.h"

#include <vector>

/// A concrete unit, written apart from the table of the library.
struct TUnitSpelling
{
    EUnitsType unit;
    char const* spelling;     ///< how UDUNITS-2 may be asked for it, by other names than those of the library
                              ///< wherever there are some; what is counted is a "seed" here
    char const* abbreviation; ///< what the operator reads
    int decimals;             ///< with which it is usually read
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
         {{UNIT_METRE, "m", "m", 2},
          {UNIT_MILLIMETRE, "mm", "mm", 0},
          {UNIT_CENTIMETRE, "cm", "cm", 0},
          {UNIT_KILOMETRE, "km", "km", 2},
          {UNIT_INCH, "in", "in", 1},
          {UNIT_FOOT, "12 in", "ft", 1},
          {UNIT_YARD, "3 feet", "yd", 1},
          {UNIT_MILE, "5280 ft", "mi", 2},
          {UNIT_NAUTICAL_MILE, "1852 m", "nmi", 2}}},
        {UNIT_TYPE_AREA,
         {{UNIT_SQUARE_METRE, "m^2", "m²", 0},
          {UNIT_HECTARE, "10000 m2", "ha", 2},
          {UNIT_SQUARE_KILOMETRE, "km2", "km²", 3},
          {UNIT_SQUARE_FOOT, "ft2", "ft²", 0},
          {UNIT_ACRE, "160 rod2", "ac", 2},
          {UNIT_SQUARE_MILE, "mi2", "mi²", 3}}},
        {UNIT_TYPE_VOLUME,
         {{UNIT_LITRE, "dm3", "L", 0},
          {UNIT_MILLILITRE, "cm3", "mL", 0},
          {UNIT_HECTOLITRE, "100 l", "hL", 1},
          {UNIT_CUBIC_METRE, "m3", "m³", 2},
          {UNIT_CUBIC_INCH, "in3", "in³", 1},
          {UNIT_CUBIC_FOOT, "ft3", "ft³", 1},
          {UNIT_FLUID_OUNCE, "US_liquid_gallon/128", "fl oz", 1},
          {UNIT_PINT, "gallon/8", "pt", 1},
          {UNIT_QUART, "gallon/4", "qt", 1},
          {UNIT_GALLON, "gallon", "gal", 1},
          {UNIT_BUSHEL, "bu", "bu", 1},
          {UNIT_UK_FLUID_OUNCE, "UK_liquid_gallon/160", "UK fl oz", 1},
          {UNIT_UK_PINT, "UK_liquid_gallon/8", "UK pt", 1},
          {UNIT_UK_GALLON, "4 UK_liquid_quart", "UK gal", 1}}},
        {UNIT_TYPE_MASS,
         {{UNIT_KILOGRAM, "kg", "kg", 1},
          {UNIT_MILLIGRAM, "mg", "mg", 0},
          {UNIT_GRAM, "g", "g", 0},
          {UNIT_TONNE, "1000 kg", "t", 2},
          {UNIT_OUNCE, "avoirdupois_ounce", "oz", 1},
          {UNIT_POUND, "lb", "lb", 1},
          {UNIT_HUNDREDWEIGHT, "short_hundredweight", "cwt", 2},
          {UNIT_TON, "2000 lb", "ton", 2},
          {UNIT_UK_TON, "2240 lb", "UK ton", 2}}},
        {UNIT_TYPE_COUNT,
         {{UNIT_EACH, "seed", "", 0},
          {UNIT_SEEDS, "seed", "seeds", 0},
          {UNIT_THOUSAND_SEEDS, "1000 seed", "kseeds", 1},
          {UNIT_MILLION_SEEDS, "1000000 seed", "Mseeds", 2}}},
    };
}

inline std::vector<TUnitGroup> SecondUnitGroups()
{
    return {
        {UNIT_TYPE_SPEED,
         {{UNIT_METRES_PER_SECOND, "m/s", "m/s", 1},
          {UNIT_METRES_PER_MINUTE, "m/min", "m/min", 0},
          {UNIT_KILOMETRES_PER_HOUR, "km/h", "km/h", 1},
          {UNIT_FEET_PER_SECOND, "ft/s", "ft/s", 1},
          {UNIT_FEET_PER_MINUTE, "ft/min", "ft/min", 0},
          {UNIT_MILES_PER_HOUR, "mi/h", "mph", 1},
          {UNIT_KNOT, "nautical_mile/h", "kn", 1}}},
        {UNIT_TYPE_ACCELERATION,
         {{UNIT_METRES_PER_SECOND_SQUARED, "m s-2", "m/s²", 2},
          {UNIT_FEET_PER_SECOND_SQUARED, "ft s-2", "ft/s²", 2}}},
        {UNIT_TYPE_DURATION,
         {{UNIT_SECOND, "s", "s", 0},
          {UNIT_MILLISECOND, "ms", "ms", 0},
          {UNIT_MINUTE, "60 s", "min", 0},
          {UNIT_HOUR, "3600 s", "h", 1},
          {UNIT_DAY, "24 h", "d", 0}}},
        {UNIT_TIME_OF_DAY, {{UNIT_TIME_OF_DAY, "h", "", 0}}},
        {UNIT_DATE, {{UNIT_DATE, "d", "", 0}}},
        {UNIT_TYPE_ANGLE,
         {{UNIT_DEGREE, "arc_degree", "°", 1},
          {UNIT_ARC_MINUTE, "arc_degree/60", "'", 2},
          {UNIT_ARC_SECOND, "arc_degree/3600", "\"", 1},
          {UNIT_RADIAN, "rad", "rad", 3}}},
        {UNIT_TYPE_TURN_RATE,
         {{UNIT_DEGREES_PER_SECOND, "arc_degree/s", "°/s", 1},
          {UNIT_RADIANS_PER_SECOND, "rad/s", "rad/s", 3}}},
        {UNIT_TYPE_ROTATION,
         {{UNIT_REVOLUTIONS_PER_MINUTE, "rpm", "rpm", 0}, {UNIT_REVOLUTIONS_PER_SECOND, "60 rpm", "rps", 1}}},
        {UNIT_HERTZ, {{UNIT_HERTZ, "Hz", "Hz", 1}}},
        {UNIT_VOLT, {{UNIT_VOLT, "V", "V", 1}}},
        {UNIT_AMPERE, {{UNIT_AMPERE, "A", "A", 1}}},
        {UNIT_OHM, {{UNIT_OHM, "V/A", "Ω", 0}}},
        {UNIT_AMPERE_HOUR, {{UNIT_AMPERE_HOUR, "3600 C", "Ah", 1}}},
        {UNIT_TYPE_VOLUME_RATE,
         {{UNIT_LITRES_PER_HECTARE, "0.1 mm3/mm2 um/mm", "L/ha", 0},
          {UNIT_MILLILITRES_PER_HECTARE, "cm3/hectare", "mL/ha", 0},
          {UNIT_CUBIC_METRES_PER_HECTARE, "0.1 mm", "m³/ha", 1},
          {UNIT_GALLONS_PER_ACRE, "gallon acre-1", "gal/ac", 1},
          {UNIT_FLUID_OUNCES_PER_ACRE, "gallon/128/acre", "fl oz/ac", 1},
          {UNIT_PINTS_PER_ACRE, "gallon/8/acre", "pt/ac", 1},
          {UNIT_QUARTS_PER_ACRE, "gallon/4/acre", "qt/ac", 1},
          {UNIT_BUSHELS_PER_ACRE, "bu acre-1", "bu/ac", 1},
          {UNIT_UK_GALLONS_PER_ACRE, "UK_liquid_gallon acre-1", "UK gal/ac", 1},
          {UNIT_UK_FLUID_OUNCES_PER_ACRE, "UK_liquid_gallon/160/acre", "UK fl oz/ac", 1},
          {UNIT_UK_PINTS_PER_ACRE, "UK_liquid_gallon/8/acre", "UK pt/ac", 1}}},
    };
}

inline std::vector<TUnitGroup> ThirdUnitGroups()
{
    return {
        {UNIT_TYPE_MASS_RATE,
         {{UNIT_KILOGRAMS_PER_HECTARE, "0.1 g/m2", "kg/ha", 0},
          {UNIT_GRAMS_PER_HECTARE, "0.1 mg/m2", "g/ha", 0},
          {UNIT_TONNES_PER_HECTARE, "100 g/m2", "t/ha", 2},
          {UNIT_GRAMS_PER_SQUARE_METRE, "g/m2", "g/m²", 1},
          {UNIT_OUNCES_PER_ACRE, "avoirdupois_ounce acre-1", "oz/ac", 1},
          {UNIT_POUNDS_PER_ACRE, "lb acre-1", "lb/ac", 1},
          {UNIT_HUNDREDWEIGHTS_PER_ACRE, "short_hundredweight acre-1", "cwt/ac", 2},
          {UNIT_TONS_PER_ACRE, "2000 lb/acre", "ton/ac", 2},
          {UNIT_UK_TONS_PER_ACRE, "2240 lb/acre", "UK ton/ac", 2}}},
        {UNIT_TYPE_SEED_RATE,
         {{UNIT_SEEDS_PER_SQUARE_METRE, "seed/m2", "seeds/m²", 1},
          {UNIT_SEEDS_PER_HECTARE, "1e-4 seed/m2", "seeds/ha", 0},
          {UNIT_THOUSAND_SEEDS_PER_HECTARE, "0.1 seed/m2", "kseeds/ha", 1},
          {UNIT_SEEDS_PER_SQUARE_FOOT, "seed/ft2", "seeds/ft²", 1},
          {UNIT_SEEDS_PER_ACRE, "seed/(160 rod2)", "seeds/ac", 0},
          {UNIT_THOUSAND_SEEDS_PER_ACRE, "1000 seed/(160 rod2)", "kseeds/ac", 1}}},
        {UNIT_TYPE_SEEDS_PER_LENGTH,
         {{UNIT_SEEDS_PER_METRE, "seed/m", "seeds/m", 1}, {UNIT_SEEDS_PER_FOOT, "seed/ft", "seeds/ft", 1}}},
        {UNIT_TYPE_VOLUME_FLOW,
         {{UNIT_LITRES_PER_MINUTE, "l/min", "L/min", 1},
          {UNIT_MILLILITRES_PER_MINUTE, "cm3/min", "mL/min", 0},
          {UNIT_LITRES_PER_SECOND, "l/s", "L/s", 2},
          {UNIT_LITRES_PER_HOUR, "l/h", "L/h", 1},
          {UNIT_CUBIC_METRES_PER_HOUR, "m3/h", "m³/h", 1},
          {UNIT_FLUID_OUNCES_PER_MINUTE, "gallon/128/min", "fl oz/min", 1},
          {UNIT_GALLONS_PER_MINUTE, "gallon/min", "gal/min", 1},
          {UNIT_GALLONS_PER_HOUR, "gallon/h", "gal/h", 1},
          {UNIT_UK_FLUID_OUNCES_PER_MINUTE, "UK_liquid_gallon/160/min", "UK fl oz/min", 1},
          {UNIT_UK_GALLONS_PER_MINUTE, "UK_liquid_gallon/min", "UK gal/min", 1},
          {UNIT_UK_GALLONS_PER_HOUR, "UK_liquid_gallon/h", "UK gal/h", 1}}},
        {UNIT_TYPE_MASS_FLOW,
         {{UNIT_KILOGRAMS_PER_MINUTE, "kg/min", "kg/min", 1},
          {UNIT_KILOGRAMS_PER_SECOND, "kg/s", "kg/s", 2},
          {UNIT_KILOGRAMS_PER_HOUR, "kg/h", "kg/h", 0},
          {UNIT_TONNES_PER_HOUR, "1000 kg/h", "t/h", 1},
          {UNIT_POUNDS_PER_MINUTE, "lb/min", "lb/min", 1},
          {UNIT_POUNDS_PER_HOUR, "lb/h", "lb/h", 0},
          {UNIT_TONS_PER_HOUR, "2000 lb/h", "ton/h", 1}}},
        {UNIT_SEEDS_PER_SECOND,
         {{UNIT_SEEDS_PER_SECOND, "seed/s", "seeds/s", 1},
          {UNIT_SEEDS_PER_MINUTE, "seed/min", "seeds/min", 0}}},
    };
}

inline std::vector<TUnitGroup> FourthUnitGroups()
{
    return {
        {UNIT_TYPE_WORK_RATE,
         {{UNIT_HECTARES_PER_HOUR, "10000 m2/h", "ha/h", 1}, {UNIT_ACRES_PER_HOUR, "160 rod2/h", "ac/h", 1}}},
        {UNIT_TYPE_PRESSURE,
         {{UNIT_KILOPASCAL, "kPa", "kPa", 0},
          {UNIT_BAR, "100 kPa", "bar", 1},
          {UNIT_POUNDS_PER_SQUARE_INCH, "lbf/in2", "psi", 0}}},
        {UNIT_TYPE_TEMPERATURE,
         {{UNIT_DEGREE_CELSIUS, "degC", "°C", 1},
          {UNIT_DEGREE_FAHRENHEIT, "degF", "°F", 1},
          {UNIT_KELVIN, "K", "K", 1}}},
        {UNIT_TYPE_FORCE,
         {{UNIT_NEWTON, "N", "N", 0}, {UNIT_KILONEWTON, "kN", "kN", 2}, {UNIT_POUND_FORCE, "lbf", "lbf", 0}}},
        {UNIT_TYPE_POWER, {{UNIT_KILOWATT, "kW", "kW", 1}, {UNIT_HORSEPOWER, "horsepower", "hp", 1}}},
        {UNIT_PERCENT, {{UNIT_PERCENT, "0.01", "%", 0}, {UNIT_PARTS_PER_MILLION, "1e-6", "ppm", 0}}},
        {UNIT_TYPE_DENSITY,
         {{UNIT_KILOGRAMS_PER_LITRE, "g/cm3", "kg/L", 3},
          {UNIT_POUNDS_PER_GALLON, "lb/gallon", "lb/gal", 2},
          {UNIT_POUNDS_PER_BUSHEL, "lb/bu", "lb/bu", 1}}},
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
