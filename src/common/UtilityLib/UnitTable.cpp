#include "UnitTable.h"

#include <array>

namespace
{
enum ESpacing : bool
{
    TIGHT = false,
    SPACED = true
};

constexpr TUnitRow Type(EUnitsType type, EUnitsType defaultUnit)
{
    return {type, type, defaultUnit, "", nullptr, 0, true};
}

constexpr TUnitRow Unit(EUnitsType unit, char const* abbreviation, char const* expression, int decimals,
                        ESpacing spacing = SPACED)
{
    return {unit, UNIT_NONE, unit, abbreviation, expression, decimals, spacing};
}

// A unit that belongs to no type.
constexpr TUnitRow Own(EUnitsType unit, char const* abbreviation, char const* expression, int decimals,
                       ESpacing spacing = SPACED)
{
    return {unit, unit, unit, abbreviation, expression, decimals, spacing};
}

// By number. The default unit of a volume type and that of its mass type differ by a density in kg/L alone.
constexpr TUnitRow ROWS[] = {
    Own(UNIT_NONE, "", nullptr, 0, TIGHT),

    Type(UNIT_TYPE_LENGTH, UNIT_METRE),
    Unit(UNIT_MILLIMETRE, "mm", "millimetre", 0),
    Unit(UNIT_CENTIMETRE, "cm", "centimetre", 0),
    Unit(UNIT_METRE, "m", "metre", 2),
    Unit(UNIT_KILOMETRE, "km", "kilometre", 2),
    Unit(UNIT_INCH, "in", "inch", 1),
    Unit(UNIT_FOOT, "ft", "foot", 1),
    Unit(UNIT_YARD, "yd", "yard", 1),
    Unit(UNIT_MILE, "mi", "mile", 2),
    Unit(UNIT_NAUTICAL_MILE, "nmi", "nautical_mile", 2),

    Type(UNIT_TYPE_AREA, UNIT_SQUARE_METRE),
    Unit(UNIT_SQUARE_METRE, "m\u00b2", "metre2", 0),
    Unit(UNIT_HECTARE, "ha", "hectare", 2),
    Unit(UNIT_SQUARE_KILOMETRE, "km\u00b2", "kilometre2", 3),
    Unit(UNIT_SQUARE_FOOT, "ft\u00b2", "foot2", 0),
    Unit(UNIT_ACRE, "ac", "acre", 2),
    Unit(UNIT_SQUARE_MILE, "mi\u00b2", "mile2", 3),

    Type(UNIT_TYPE_VOLUME, UNIT_LITRE),
    Unit(UNIT_MILLILITRE, "mL", "millilitre", 0),
    Unit(UNIT_LITRE, "L", "litre", 0),
    Unit(UNIT_HECTOLITRE, "hL", "hectolitre", 1),
    Unit(UNIT_CUBIC_METRE, "m\u00b3", "metre3", 2),
    Unit(UNIT_CUBIC_INCH, "in\u00b3", "inch3", 1),
    Unit(UNIT_CUBIC_FOOT, "ft\u00b3", "foot3", 1),
    Unit(UNIT_FLUID_OUNCE, "fl oz", "US_fluid_ounce", 1),
    Unit(UNIT_PINT, "pt", "US_liquid_pint", 1),
    Unit(UNIT_QUART, "qt", "US_liquid_quart", 1),
    Unit(UNIT_GALLON, "gal", "US_liquid_gallon", 1),
    Unit(UNIT_BUSHEL, "bu", "bushel", 1),
    Unit(UNIT_UK_FLUID_OUNCE, "UK fl oz", "UK_fluid_ounce", 1),
    Unit(UNIT_UK_PINT, "UK pt", "UK_liquid_pint", 1),
    Unit(UNIT_UK_GALLON, "UK gal", "UK_liquid_gallon", 1),

    Type(UNIT_TYPE_MASS, UNIT_KILOGRAM),
    Unit(UNIT_MILLIGRAM, "mg", "milligram", 0),
    Unit(UNIT_GRAM, "g", "gram", 0),
    Unit(UNIT_KILOGRAM, "kg", "kilogram", 1),
    Unit(UNIT_TONNE, "t", "tonne", 2),
    Unit(UNIT_OUNCE, "oz", "avoirdupois_ounce", 1),
    Unit(UNIT_POUND, "lb", "pound", 1),
    Unit(UNIT_HUNDREDWEIGHT, "cwt", "short_hundredweight", 2),
    Unit(UNIT_TON, "ton", "short_ton", 2),
    Unit(UNIT_UK_TON, "UK ton", "long_ton", 2),

    Type(UNIT_TYPE_COUNT, UNIT_EACH),
    Unit(UNIT_EACH, "", "item", 0, TIGHT),
    Unit(UNIT_SEEDS, "seeds", "item", 0),
    Unit(UNIT_THOUSAND_SEEDS, "kseeds", "kiloitem", 1),
    Unit(UNIT_MILLION_SEEDS, "Mseeds", "megaitem", 2),

    Type(UNIT_TYPE_SPEED, UNIT_METRES_PER_SECOND),
    Unit(UNIT_METRES_PER_SECOND, "m/s", "metre/second", 1),
    Unit(UNIT_METRES_PER_MINUTE, "m/min", "metre/minute", 0),
    Unit(UNIT_KILOMETRES_PER_HOUR, "km/h", "kilometre/hour", 1),
    Unit(UNIT_FEET_PER_SECOND, "ft/s", "foot/second", 1),
    Unit(UNIT_FEET_PER_MINUTE, "ft/min", "foot/minute", 0),
    Unit(UNIT_MILES_PER_HOUR, "mph", "mile/hour", 1),
    Unit(UNIT_KNOT, "kn", "knot", 1),

    Type(UNIT_TYPE_ACCELERATION, UNIT_METRES_PER_SECOND_SQUARED),
    Unit(UNIT_METRES_PER_SECOND_SQUARED, "m/s\u00b2", "metre/second2", 2),
    Unit(UNIT_FEET_PER_SECOND_SQUARED, "ft/s\u00b2", "foot/second2", 2),

    Type(UNIT_TYPE_DURATION, UNIT_SECOND),
    Unit(UNIT_MILLISECOND, "ms", "millisecond", 0),
    Unit(UNIT_SECOND, "s", "second", 0),
    Unit(UNIT_MINUTE, "min", "minute", 0),
    Unit(UNIT_HOUR, "h", "hour", 1),
    Unit(UNIT_DAY, "d", "day", 0),

    Own(UNIT_TIME_OF_DAY, "", "hour", 0, TIGHT),
    Own(UNIT_DATE, "", "day", 0, TIGHT),

    Type(UNIT_TYPE_ANGLE, UNIT_DEGREE),
    Unit(UNIT_DEGREE, "\u00b0", "degree", 1, TIGHT),
    Unit(UNIT_ARC_MINUTE, "'", "arc_minute", 2, TIGHT),
    Unit(UNIT_ARC_SECOND, "\"", "arc_second", 1, TIGHT),
    Unit(UNIT_RADIAN, "rad", "radian", 3),

    Type(UNIT_TYPE_TURN_RATE, UNIT_DEGREES_PER_SECOND),
    Unit(UNIT_DEGREES_PER_SECOND, "\u00b0/s", "degree/second", 1, TIGHT),
    Unit(UNIT_RADIANS_PER_SECOND, "rad/s", "radian/second", 3),

    Type(UNIT_TYPE_ROTATION, UNIT_REVOLUTIONS_PER_MINUTE),
    Unit(UNIT_REVOLUTIONS_PER_MINUTE, "rpm", "revolution/minute", 0),
    Unit(UNIT_REVOLUTIONS_PER_SECOND, "rps", "revolution/second", 1),

    Own(UNIT_HERTZ, "Hz", "hertz", 1),
    Own(UNIT_VOLT, "V", "volt", 1),
    Own(UNIT_AMPERE, "A", "ampere", 1),
    Own(UNIT_OHM, "\u03a9", "ohm", 0),
    Own(UNIT_AMPERE_HOUR, "Ah", "ampere hour", 1),

    Type(UNIT_TYPE_VOLUME_RATE, UNIT_LITRES_PER_HECTARE),
    Unit(UNIT_LITRES_PER_HECTARE, "L/ha", "litre/hectare", 0),
    Unit(UNIT_MILLILITRES_PER_HECTARE, "mL/ha", "millilitre/hectare", 0),
    Unit(UNIT_CUBIC_METRES_PER_HECTARE, "m\u00b3/ha", "metre3/hectare", 1),
    Unit(UNIT_GALLONS_PER_ACRE, "gal/ac", "US_liquid_gallon/acre", 1),
    Unit(UNIT_FLUID_OUNCES_PER_ACRE, "fl oz/ac", "US_fluid_ounce/acre", 1),
    Unit(UNIT_PINTS_PER_ACRE, "pt/ac", "US_liquid_pint/acre", 1),
    Unit(UNIT_QUARTS_PER_ACRE, "qt/ac", "US_liquid_quart/acre", 1),
    Unit(UNIT_BUSHELS_PER_ACRE, "bu/ac", "bushel/acre", 1),
    Unit(UNIT_UK_GALLONS_PER_ACRE, "UK gal/ac", "UK_liquid_gallon/acre", 1),
    Unit(UNIT_UK_FLUID_OUNCES_PER_ACRE, "UK fl oz/ac", "UK_fluid_ounce/acre", 1),
    Unit(UNIT_UK_PINTS_PER_ACRE, "UK pt/ac", "UK_liquid_pint/acre", 1),

    Type(UNIT_TYPE_MASS_RATE, UNIT_KILOGRAMS_PER_HECTARE),
    Unit(UNIT_GRAMS_PER_HECTARE, "g/ha", "gram/hectare", 0),
    Unit(UNIT_KILOGRAMS_PER_HECTARE, "kg/ha", "kilogram/hectare", 0),
    Unit(UNIT_TONNES_PER_HECTARE, "t/ha", "tonne/hectare", 2),
    Unit(UNIT_GRAMS_PER_SQUARE_METRE, "g/m\u00b2", "gram/metre2", 1),
    Unit(UNIT_OUNCES_PER_ACRE, "oz/ac", "avoirdupois_ounce/acre", 1),
    Unit(UNIT_POUNDS_PER_ACRE, "lb/ac", "pound/acre", 1),
    Unit(UNIT_HUNDREDWEIGHTS_PER_ACRE, "cwt/ac", "short_hundredweight/acre", 2),
    Unit(UNIT_TONS_PER_ACRE, "ton/ac", "short_ton/acre", 2),
    Unit(UNIT_UK_TONS_PER_ACRE, "UK ton/ac", "long_ton/acre", 2),

    Type(UNIT_TYPE_SEED_RATE, UNIT_SEEDS_PER_SQUARE_METRE),
    Unit(UNIT_SEEDS_PER_SQUARE_METRE, "seeds/m\u00b2", "item/metre2", 1),
    Unit(UNIT_SEEDS_PER_HECTARE, "seeds/ha", "item/hectare", 0),
    Unit(UNIT_THOUSAND_SEEDS_PER_HECTARE, "kseeds/ha", "kiloitem/hectare", 1),
    Unit(UNIT_SEEDS_PER_SQUARE_FOOT, "seeds/ft\u00b2", "item/foot2", 1),
    Unit(UNIT_SEEDS_PER_ACRE, "seeds/ac", "item/acre", 0),
    Unit(UNIT_THOUSAND_SEEDS_PER_ACRE, "kseeds/ac", "kiloitem/acre", 1),

    Type(UNIT_TYPE_SEEDS_PER_LENGTH, UNIT_SEEDS_PER_METRE),
    Unit(UNIT_SEEDS_PER_METRE, "seeds/m", "item/metre", 1),
    Unit(UNIT_SEEDS_PER_FOOT, "seeds/ft", "item/foot", 1),

    Type(UNIT_TYPE_VOLUME_FLOW, UNIT_LITRES_PER_MINUTE),
    Unit(UNIT_MILLILITRES_PER_MINUTE, "mL/min", "millilitre/minute", 0),
    Unit(UNIT_LITRES_PER_SECOND, "L/s", "litre/second", 2),
    Unit(UNIT_LITRES_PER_MINUTE, "L/min", "litre/minute", 1),
    Unit(UNIT_LITRES_PER_HOUR, "L/h", "litre/hour", 1),
    Unit(UNIT_CUBIC_METRES_PER_HOUR, "m\u00b3/h", "metre3/hour", 1),
    Unit(UNIT_FLUID_OUNCES_PER_MINUTE, "fl oz/min", "US_fluid_ounce/minute", 1),
    Unit(UNIT_GALLONS_PER_MINUTE, "gal/min", "US_liquid_gallon/minute", 1),
    Unit(UNIT_GALLONS_PER_HOUR, "gal/h", "US_liquid_gallon/hour", 1),
    Unit(UNIT_UK_FLUID_OUNCES_PER_MINUTE, "UK fl oz/min", "UK_fluid_ounce/minute", 1),
    Unit(UNIT_UK_GALLONS_PER_MINUTE, "UK gal/min", "UK_liquid_gallon/minute", 1),
    Unit(UNIT_UK_GALLONS_PER_HOUR, "UK gal/h", "UK_liquid_gallon/hour", 1),

    Type(UNIT_TYPE_MASS_FLOW, UNIT_KILOGRAMS_PER_MINUTE),
    Unit(UNIT_KILOGRAMS_PER_SECOND, "kg/s", "kilogram/second", 2),
    Unit(UNIT_KILOGRAMS_PER_MINUTE, "kg/min", "kilogram/minute", 1),
    Unit(UNIT_KILOGRAMS_PER_HOUR, "kg/h", "kilogram/hour", 0),
    Unit(UNIT_TONNES_PER_HOUR, "t/h", "tonne/hour", 1),
    Unit(UNIT_POUNDS_PER_MINUTE, "lb/min", "pound/minute", 1),
    Unit(UNIT_POUNDS_PER_HOUR, "lb/h", "pound/hour", 0),
    Unit(UNIT_TONS_PER_HOUR, "ton/h", "short_ton/hour", 1),

    Own(UNIT_SEEDS_PER_SECOND, "seeds/s", "item/second", 1),
    Unit(UNIT_SEEDS_PER_MINUTE, "seeds/min", "item/minute", 0),

    Type(UNIT_TYPE_WORK_RATE, UNIT_HECTARES_PER_HOUR),
    Unit(UNIT_HECTARES_PER_HOUR, "ha/h", "hectare/hour", 1),
    Unit(UNIT_ACRES_PER_HOUR, "ac/h", "acre/hour", 1),

    Type(UNIT_TYPE_PRESSURE, UNIT_KILOPASCAL),
    Unit(UNIT_KILOPASCAL, "kPa", "kilopascal", 0),
    Unit(UNIT_BAR, "bar", "bar", 1),
    Unit(UNIT_POUNDS_PER_SQUARE_INCH, "psi", "psi", 0),

    Type(UNIT_TYPE_TEMPERATURE, UNIT_DEGREE_CELSIUS),
    Unit(UNIT_DEGREE_CELSIUS, "\u00b0C", "degree_Celsius", 1),
    Unit(UNIT_DEGREE_FAHRENHEIT, "\u00b0F", "degree_Fahrenheit", 1),
    Unit(UNIT_KELVIN, "K", "kelvin", 1),

    Type(UNIT_TYPE_FORCE, UNIT_NEWTON),
    Unit(UNIT_NEWTON, "N", "newton", 0),
    Unit(UNIT_KILONEWTON, "kN", "kilonewton", 2),
    Unit(UNIT_POUND_FORCE, "lbf", "pound_force", 0),

    Type(UNIT_TYPE_POWER, UNIT_KILOWATT),
    Unit(UNIT_KILOWATT, "kW", "kilowatt", 1),
    Unit(UNIT_HORSEPOWER, "hp", "horsepower", 1),

    Own(UNIT_PERCENT, "%", "percent", 0, TIGHT),
    Unit(UNIT_PARTS_PER_MILLION, "ppm", "ppm", 0),

    Type(UNIT_TYPE_DENSITY, UNIT_KILOGRAMS_PER_LITRE),
    Unit(UNIT_KILOGRAMS_PER_LITRE, "kg/L", "kilogram/litre", 3),
    Unit(UNIT_POUNDS_PER_GALLON, "lb/gal", "pound/US_liquid_gallon", 2),
    Unit(UNIT_POUNDS_PER_BUSHEL, "lb/bu", "pound/bushel", 1),
};

struct TUnitChoice
{
    EUnitsType type;
    EUnitsContext context;
    EUnitsType units[3]; // by EUnitSystem
};

// By type, the general context first.
constexpr TUnitChoice CHOICES[] = {
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, {UNIT_METRE, UNIT_FOOT, UNIT_FOOT}},
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_FIELD, {UNIT_METRE, UNIT_YARD, UNIT_FOOT}},
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_IMPLEMENT, {UNIT_METRE, UNIT_INCH, UNIT_INCH}},
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_GUIDANCE, {UNIT_CENTIMETRE, UNIT_INCH, UNIT_INCH}},
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_PLANTING, {UNIT_MILLIMETRE, UNIT_INCH, UNIT_INCH}},
    {UNIT_TYPE_LENGTH, UNITS_CONTEXT_ROAD, {UNIT_KILOMETRE, UNIT_MILE, UNIT_MILE}},

    {UNIT_TYPE_AREA, UNITS_CONTEXT_GENERAL, {UNIT_HECTARE, UNIT_ACRE, UNIT_ACRE}},
    {UNIT_TYPE_AREA, UNITS_CONTEXT_IMPLEMENT, {UNIT_SQUARE_METRE, UNIT_SQUARE_FOOT, UNIT_SQUARE_FOOT}},

    {UNIT_TYPE_VOLUME, UNITS_CONTEXT_GENERAL, {UNIT_LITRE, UNIT_UK_GALLON, UNIT_GALLON}},
    {UNIT_TYPE_VOLUME, UNITS_CONTEXT_CHEMICAL, {UNIT_MILLILITRE, UNIT_UK_FLUID_OUNCE, UNIT_FLUID_OUNCE}},
    {UNIT_TYPE_VOLUME, UNITS_CONTEXT_SLURRY, {UNIT_CUBIC_METRE, UNIT_UK_GALLON, UNIT_GALLON}},
    {UNIT_TYPE_VOLUME, UNITS_CONTEXT_GRAIN, {UNIT_HECTOLITRE, UNIT_BUSHEL, UNIT_BUSHEL}},
    {UNIT_TYPE_VOLUME, UNITS_CONTEXT_WEIGHED, {UNIT_KILOGRAM, UNIT_POUND, UNIT_POUND}},

    {UNIT_TYPE_MASS, UNITS_CONTEXT_GENERAL, {UNIT_KILOGRAM, UNIT_POUND, UNIT_POUND}},
    {UNIT_TYPE_MASS, UNITS_CONTEXT_CHEMICAL, {UNIT_GRAM, UNIT_OUNCE, UNIT_OUNCE}},
    {UNIT_TYPE_MASS, UNITS_CONTEXT_GRAIN, {UNIT_TONNE, UNIT_UK_TON, UNIT_BUSHEL}},

    {UNIT_TYPE_COUNT, UNITS_CONTEXT_GENERAL, {UNIT_EACH, UNIT_EACH, UNIT_EACH}},
    {UNIT_TYPE_COUNT,
     UNITS_CONTEXT_PLANTING,
     {UNIT_THOUSAND_SEEDS, UNIT_THOUSAND_SEEDS, UNIT_THOUSAND_SEEDS}},

    {UNIT_TYPE_SPEED,
     UNITS_CONTEXT_GENERAL,
     {UNIT_KILOMETRES_PER_HOUR, UNIT_MILES_PER_HOUR, UNIT_MILES_PER_HOUR}},
    {UNIT_TYPE_SPEED,
     UNITS_CONTEXT_IMPLEMENT,
     {UNIT_METRES_PER_MINUTE, UNIT_FEET_PER_MINUTE, UNIT_FEET_PER_MINUTE}},
    {UNIT_TYPE_SPEED, UNITS_CONTEXT_WIND, {UNIT_METRES_PER_SECOND, UNIT_MILES_PER_HOUR, UNIT_MILES_PER_HOUR}},

    {UNIT_TYPE_ACCELERATION,
     UNITS_CONTEXT_GENERAL,
     {UNIT_METRES_PER_SECOND_SQUARED, UNIT_FEET_PER_SECOND_SQUARED, UNIT_FEET_PER_SECOND_SQUARED}},

    {UNIT_TYPE_DURATION, UNITS_CONTEXT_GENERAL, {UNIT_SECOND, UNIT_SECOND, UNIT_SECOND}},
    {UNIT_TYPE_DURATION, UNITS_CONTEXT_FIELD, {UNIT_HOUR, UNIT_HOUR, UNIT_HOUR}},
    {UNIT_TYPE_DURATION, UNITS_CONTEXT_ROAD, {UNIT_MINUTE, UNIT_MINUTE, UNIT_MINUTE}},

    {UNIT_TYPE_ANGLE, UNITS_CONTEXT_GENERAL, {UNIT_DEGREE, UNIT_DEGREE, UNIT_DEGREE}},
    {UNIT_TYPE_TURN_RATE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_DEGREES_PER_SECOND, UNIT_DEGREES_PER_SECOND, UNIT_DEGREES_PER_SECOND}},
    {UNIT_TYPE_ROTATION,
     UNITS_CONTEXT_GENERAL,
     {UNIT_REVOLUTIONS_PER_MINUTE, UNIT_REVOLUTIONS_PER_MINUTE, UNIT_REVOLUTIONS_PER_MINUTE}},

    {UNIT_TYPE_VOLUME_RATE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_LITRES_PER_HECTARE, UNIT_UK_GALLONS_PER_ACRE, UNIT_GALLONS_PER_ACRE}},
    {UNIT_TYPE_VOLUME_RATE,
     UNITS_CONTEXT_CHEMICAL,
     {UNIT_MILLILITRES_PER_HECTARE, UNIT_UK_FLUID_OUNCES_PER_ACRE, UNIT_FLUID_OUNCES_PER_ACRE}},
    {UNIT_TYPE_VOLUME_RATE,
     UNITS_CONTEXT_SLURRY,
     {UNIT_CUBIC_METRES_PER_HECTARE, UNIT_UK_GALLONS_PER_ACRE, UNIT_GALLONS_PER_ACRE}},
    {UNIT_TYPE_VOLUME_RATE,
     UNITS_CONTEXT_WEIGHED,
     {UNIT_KILOGRAMS_PER_HECTARE, UNIT_POUNDS_PER_ACRE, UNIT_POUNDS_PER_ACRE}},

    {UNIT_TYPE_MASS_RATE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_KILOGRAMS_PER_HECTARE, UNIT_POUNDS_PER_ACRE, UNIT_POUNDS_PER_ACRE}},
    {UNIT_TYPE_MASS_RATE,
     UNITS_CONTEXT_CHEMICAL,
     {UNIT_GRAMS_PER_HECTARE, UNIT_OUNCES_PER_ACRE, UNIT_OUNCES_PER_ACRE}},
    {UNIT_TYPE_MASS_RATE,
     UNITS_CONTEXT_GRAIN,
     {UNIT_TONNES_PER_HECTARE, UNIT_UK_TONS_PER_ACRE, UNIT_BUSHELS_PER_ACRE}},

    {UNIT_TYPE_SEED_RATE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_SEEDS_PER_SQUARE_METRE, UNIT_SEEDS_PER_SQUARE_FOOT, UNIT_SEEDS_PER_SQUARE_FOOT}},
    {UNIT_TYPE_SEED_RATE,
     UNITS_CONTEXT_PLANTING,
     {UNIT_THOUSAND_SEEDS_PER_HECTARE, UNIT_THOUSAND_SEEDS_PER_ACRE, UNIT_THOUSAND_SEEDS_PER_ACRE}},

    {UNIT_TYPE_SEEDS_PER_LENGTH,
     UNITS_CONTEXT_GENERAL,
     {UNIT_SEEDS_PER_METRE, UNIT_SEEDS_PER_FOOT, UNIT_SEEDS_PER_FOOT}},

    {UNIT_TYPE_VOLUME_FLOW,
     UNITS_CONTEXT_GENERAL,
     {UNIT_LITRES_PER_MINUTE, UNIT_UK_GALLONS_PER_MINUTE, UNIT_GALLONS_PER_MINUTE}},
    {UNIT_TYPE_VOLUME_FLOW,
     UNITS_CONTEXT_NOZZLE,
     {UNIT_MILLILITRES_PER_MINUTE, UNIT_UK_FLUID_OUNCES_PER_MINUTE, UNIT_FLUID_OUNCES_PER_MINUTE}},
    {UNIT_TYPE_VOLUME_FLOW,
     UNITS_CONTEXT_SLURRY,
     {UNIT_CUBIC_METRES_PER_HOUR, UNIT_UK_GALLONS_PER_MINUTE, UNIT_GALLONS_PER_MINUTE}},
    {UNIT_TYPE_VOLUME_FLOW,
     UNITS_CONTEXT_FUEL,
     {UNIT_LITRES_PER_HOUR, UNIT_UK_GALLONS_PER_HOUR, UNIT_GALLONS_PER_HOUR}},
    {UNIT_TYPE_VOLUME_FLOW,
     UNITS_CONTEXT_WEIGHED,
     {UNIT_KILOGRAMS_PER_MINUTE, UNIT_POUNDS_PER_MINUTE, UNIT_POUNDS_PER_MINUTE}},

    {UNIT_TYPE_MASS_FLOW,
     UNITS_CONTEXT_GENERAL,
     {UNIT_KILOGRAMS_PER_MINUTE, UNIT_POUNDS_PER_MINUTE, UNIT_POUNDS_PER_MINUTE}},
    // The numbers of EUnitsType hold no long ton per hour and are all given away. The tonne is as good as
    // one, to less than two parts in a hundred; the short ton is not.
    {UNIT_TYPE_MASS_FLOW,
     UNITS_CONTEXT_GRAIN,
     {UNIT_TONNES_PER_HOUR, UNIT_TONNES_PER_HOUR, UNIT_TONS_PER_HOUR}},

    {UNIT_TYPE_WORK_RATE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_HECTARES_PER_HOUR, UNIT_ACRES_PER_HOUR, UNIT_ACRES_PER_HOUR}},

    {UNIT_TYPE_PRESSURE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_BAR, UNIT_POUNDS_PER_SQUARE_INCH, UNIT_POUNDS_PER_SQUARE_INCH}},

    {UNIT_TYPE_TEMPERATURE,
     UNITS_CONTEXT_GENERAL,
     {UNIT_DEGREE_CELSIUS, UNIT_DEGREE_CELSIUS, UNIT_DEGREE_FAHRENHEIT}},

    {UNIT_TYPE_FORCE, UNITS_CONTEXT_GENERAL, {UNIT_KILONEWTON, UNIT_POUND_FORCE, UNIT_POUND_FORCE}},
    {UNIT_TYPE_POWER, UNITS_CONTEXT_GENERAL, {UNIT_KILOWATT, UNIT_HORSEPOWER, UNIT_HORSEPOWER}},

    {UNIT_TYPE_DENSITY,
     UNITS_CONTEXT_GENERAL,
     {UNIT_KILOGRAMS_PER_LITRE, UNIT_KILOGRAMS_PER_LITRE, UNIT_POUNDS_PER_GALLON}},
    {UNIT_TYPE_DENSITY,
     UNITS_CONTEXT_GRAIN,
     {UNIT_KILOGRAMS_PER_LITRE, UNIT_POUNDS_PER_BUSHEL, UNIT_POUNDS_PER_BUSHEL}},
};

constexpr int CHOICE_COUNT = static_cast<int>(std::size(CHOICES));

// The rows with the quantity filled in: a unit belongs to what stands above it.
constexpr std::array<TUnitRow, UNIT_NUMBER_END> MakeTable()
{
    static_assert(std::size(ROWS) == UNIT_NUMBER_END);
    std::array<TUnitRow, UNIT_NUMBER_END> table{};
    EUnitsType quantity = UNIT_NONE;
    for (int i = 0; i < UNIT_NUMBER_END; ++i)
    {
        TUnitRow row = ROWS[i];
        if (row.quantity == row.unit)
            quantity = row.unit;
        row.quantity = quantity;
        if (row.defaultUnit != row.unit)
            row.abbreviation = ROWS[row.defaultUnit].abbreviation;
        table[i] = row;
    }
    return table;
}

// Where the choices for each type begin; CHOICE_COUNT for a unit that no system chooses for.
constexpr std::array<int, UNIT_NUMBER_END> MakeFirstChoices()
{
    std::array<int, UNIT_NUMBER_END> first{};
    for (int i = 0; i < UNIT_NUMBER_END; ++i)
        first[i] = CHOICE_COUNT;
    for (int i = CHOICE_COUNT - 1; i >= 0; --i)
        first[CHOICES[i].type] = i;
    return first;
}

constexpr std::array<TUnitRow, UNIT_NUMBER_END> TABLE = MakeTable();
constexpr std::array<int, UNIT_NUMBER_END> FIRST_CHOICES = MakeFirstChoices();

constexpr bool IsInOrder()
{
    for (int i = 0; i < UNIT_NUMBER_END; ++i)
    {
        bool const isType = TABLE[i].defaultUnit != TABLE[i].unit;
        if (TABLE[i].unit != i || isType != (FIRST_CHOICES[i] < CHOICE_COUNT))
            return false;
    }
    for (int i = 0; i < CHOICE_COUNT; ++i)
    {
        bool const isFirst = FIRST_CHOICES[CHOICES[i].type] == i;
        if (isFirst != (CHOICES[i].context == UNITS_CONTEXT_GENERAL))
            return false;
    }
    return true;
}
static_assert(IsInOrder());
} // namespace

bool IsKnownUnit(EUnitsType unit)
{
    return unit > UNIT_NONE && unit < UNIT_NUMBER_END;
}

TUnitRow const& UnitRow(EUnitsType unit)
{
    return TABLE[IsKnownUnit(unit) ? unit : UNIT_NONE];
}

EUnitsType ChosenUnit(EUnitsType type, EUnitsContext context, EUnitSystem system)
{
    int const first = FIRST_CHOICES[UnitRow(type).unit];
    if (first == CHOICE_COUNT)
        return UnitRow(type).defaultUnit;
    for (int i = first + 1; i < CHOICE_COUNT && CHOICES[i].type == type; ++i)
    {
        if (CHOICES[i].context == context)
            return CHOICES[i].units[system];
    }
    return CHOICES[first].units[system];
}

EUnitsType MassTypeOf(EUnitsType volumeType)
{
    switch (volumeType)
    {
    case UNIT_TYPE_VOLUME:
        return UNIT_TYPE_MASS;
    case UNIT_TYPE_VOLUME_RATE:
        return UNIT_TYPE_MASS_RATE;
    case UNIT_TYPE_VOLUME_FLOW:
        return UNIT_TYPE_MASS_FLOW;
    default:
        return UNIT_NONE;
    }
}
