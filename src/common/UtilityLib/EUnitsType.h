#pragma once

/// What a value measures, and in what. A unit type (UNIT_TYPE_...) is a quantity: its values are stored in
/// its default unit and shown in the unit that the operator's unit system has for the context. The concrete
/// units of a type follow it; one that is itself given as the type of a value is stored and shown as it is,
/// whatever the operator has chosen. A few units need no type, because every system shows them alike.
///
/// The numbers are fixed, since stored settings hold them.
enum EUnitsType : int
{
    UNIT_NONE = 0, ///< a bare number

    UNIT_TYPE_LENGTH = 1,
    UNIT_MILLIMETRE,
    UNIT_CENTIMETRE,
    UNIT_METRE,
    UNIT_KILOMETRE,
    UNIT_INCH,
    UNIT_FOOT,
    UNIT_YARD,
    UNIT_MILE,
    UNIT_NAUTICAL_MILE,

    UNIT_TYPE_AREA = 11,
    UNIT_SQUARE_METRE,
    UNIT_HECTARE,
    UNIT_SQUARE_KILOMETRE,
    UNIT_SQUARE_FOOT,
    UNIT_ACRE,
    UNIT_SQUARE_MILE,

    UNIT_TYPE_VOLUME = 18, ///< density leads to UNIT_TYPE_MASS
    UNIT_MILLILITRE,
    UNIT_LITRE,
    UNIT_HECTOLITRE,
    UNIT_CUBIC_METRE,
    UNIT_CUBIC_INCH,
    UNIT_CUBIC_FOOT,
    UNIT_FLUID_OUNCE, ///< this and the next four are those of the US
    UNIT_PINT,
    UNIT_QUART,
    UNIT_GALLON,
    UNIT_BUSHEL,
    UNIT_UK_FLUID_OUNCE,
    UNIT_UK_PINT,
    UNIT_UK_GALLON,

    UNIT_TYPE_MASS = 33, ///< density leads to UNIT_TYPE_VOLUME
    UNIT_MILLIGRAM,
    UNIT_GRAM,
    UNIT_KILOGRAM,
    UNIT_TONNE,
    UNIT_OUNCE,
    UNIT_POUND,
    UNIT_HUNDREDWEIGHT, ///< short, 100 lb
    UNIT_TON,           ///< short, 2000 lb
    UNIT_UK_TON,        ///< long, 2240 lb

    UNIT_TYPE_COUNT = 43,
    UNIT_EACH, ///< a count without a name
    UNIT_SEEDS,
    UNIT_THOUSAND_SEEDS,
    UNIT_MILLION_SEEDS,

    UNIT_TYPE_SPEED = 48,
    UNIT_METRES_PER_SECOND,
    UNIT_METRES_PER_MINUTE,
    UNIT_KILOMETRES_PER_HOUR,
    UNIT_FEET_PER_SECOND,
    UNIT_FEET_PER_MINUTE,
    UNIT_MILES_PER_HOUR,
    UNIT_KNOT,

    UNIT_TYPE_ACCELERATION = 56,
    UNIT_METRES_PER_SECOND_SQUARED,
    UNIT_FEET_PER_SECOND_SQUARED,

    UNIT_TYPE_DURATION = 59,
    UNIT_MILLISECOND,
    UNIT_SECOND,
    UNIT_MINUTE,
    UNIT_HOUR,
    UNIT_DAY,

    UNIT_TIME_OF_DAY = 65, ///< hours as a fraction, shown as the operator's clock shows them
    UNIT_DATE = 66,        ///< Julian day number, shown in the operator's date format

    UNIT_TYPE_ANGLE = 67,
    UNIT_DEGREE,
    UNIT_ARC_MINUTE,
    UNIT_ARC_SECOND,
    UNIT_RADIAN,

    UNIT_TYPE_TURN_RATE = 72,
    UNIT_DEGREES_PER_SECOND,
    UNIT_RADIANS_PER_SECOND,

    UNIT_TYPE_ROTATION = 75,
    UNIT_REVOLUTIONS_PER_MINUTE,
    UNIT_REVOLUTIONS_PER_SECOND,

    UNIT_HERTZ = 78,
    UNIT_VOLT = 79,
    UNIT_AMPERE = 80,
    UNIT_OHM = 81,
    UNIT_AMPERE_HOUR = 82,

    UNIT_TYPE_VOLUME_RATE = 83, ///< volume per area; density leads to UNIT_TYPE_MASS_RATE
    UNIT_LITRES_PER_HECTARE = 84,
    UNIT_MILLILITRES_PER_HECTARE,
    UNIT_CUBIC_METRES_PER_HECTARE,
    UNIT_GALLONS_PER_ACRE,
    UNIT_FLUID_OUNCES_PER_ACRE,
    UNIT_PINTS_PER_ACRE,
    UNIT_QUARTS_PER_ACRE,
    UNIT_BUSHELS_PER_ACRE,
    UNIT_UK_GALLONS_PER_ACRE,
    UNIT_UK_FLUID_OUNCES_PER_ACRE,
    UNIT_UK_PINTS_PER_ACRE,

    UNIT_TYPE_MASS_RATE = 95, ///< mass per area; density leads to UNIT_TYPE_VOLUME_RATE
    UNIT_GRAMS_PER_HECTARE,
    UNIT_KILOGRAMS_PER_HECTARE,
    UNIT_TONNES_PER_HECTARE,
    UNIT_GRAMS_PER_SQUARE_METRE,
    UNIT_OUNCES_PER_ACRE,
    UNIT_POUNDS_PER_ACRE,
    UNIT_HUNDREDWEIGHTS_PER_ACRE,
    UNIT_TONS_PER_ACRE,
    UNIT_UK_TONS_PER_ACRE,

    UNIT_TYPE_SEED_RATE = 105, ///< seeds per area
    UNIT_SEEDS_PER_SQUARE_METRE,
    UNIT_SEEDS_PER_HECTARE,
    UNIT_THOUSAND_SEEDS_PER_HECTARE,
    UNIT_SEEDS_PER_SQUARE_FOOT,
    UNIT_SEEDS_PER_ACRE,
    UNIT_THOUSAND_SEEDS_PER_ACRE,

    UNIT_TYPE_SEEDS_PER_LENGTH = 112,
    UNIT_SEEDS_PER_METRE,
    UNIT_SEEDS_PER_FOOT,

    UNIT_TYPE_VOLUME_FLOW = 115, ///< volume per time; density leads to UNIT_TYPE_MASS_FLOW
    UNIT_MILLILITRES_PER_MINUTE,
    UNIT_LITRES_PER_SECOND,
    UNIT_LITRES_PER_MINUTE,
    UNIT_LITRES_PER_HOUR,
    UNIT_CUBIC_METRES_PER_HOUR,
    UNIT_FLUID_OUNCES_PER_MINUTE,
    UNIT_GALLONS_PER_MINUTE,
    UNIT_GALLONS_PER_HOUR,
    UNIT_UK_FLUID_OUNCES_PER_MINUTE,
    UNIT_UK_GALLONS_PER_MINUTE,
    UNIT_UK_GALLONS_PER_HOUR,

    UNIT_TYPE_MASS_FLOW = 127, ///< mass per time; density leads to UNIT_TYPE_VOLUME_FLOW
    UNIT_KILOGRAMS_PER_SECOND,
    UNIT_KILOGRAMS_PER_MINUTE,
    UNIT_KILOGRAMS_PER_HOUR,
    UNIT_TONNES_PER_HOUR,
    UNIT_POUNDS_PER_MINUTE,
    UNIT_POUNDS_PER_HOUR,
    UNIT_TONS_PER_HOUR,

    UNIT_SEEDS_PER_SECOND = 135,
    UNIT_SEEDS_PER_MINUTE,

    UNIT_TYPE_WORK_RATE = 137, ///< area per time
    UNIT_HECTARES_PER_HOUR,
    UNIT_ACRES_PER_HOUR,

    UNIT_TYPE_PRESSURE = 140,
    UNIT_KILOPASCAL,
    UNIT_BAR,
    UNIT_POUNDS_PER_SQUARE_INCH,

    UNIT_TYPE_TEMPERATURE = 144,
    UNIT_DEGREE_CELSIUS,
    UNIT_DEGREE_FAHRENHEIT,
    UNIT_KELVIN,

    UNIT_TYPE_FORCE = 148,
    UNIT_NEWTON,
    UNIT_KILONEWTON,
    UNIT_POUND_FORCE,

    UNIT_TYPE_POWER = 152,
    UNIT_KILOWATT,
    UNIT_HORSEPOWER,

    UNIT_PERCENT = 155,
    UNIT_PARTS_PER_MILLION,

    UNIT_TYPE_DENSITY = 157,
    UNIT_KILOGRAMS_PER_LITRE,
    UNIT_POUNDS_PER_GALLON,
    UNIT_POUNDS_PER_BUSHEL
};

/// One past the largest number of EUnitsType.
constexpr int UNIT_NUMBER_END = 161;

/// What a value is about, where that decides the unit: the same length is read in inches on an implement and
/// in feet across a field. A context that says nothing about a type means UNITS_CONTEXT_GENERAL.
enum EUnitsContext : int
{
    UNITS_CONTEXT_GENERAL = 0,
    UNITS_CONTEXT_FIELD,     ///< boundaries, headlands, swaths
    UNITS_CONTEXT_IMPLEMENT, ///< working width, sections, offsets
    UNITS_CONTEXT_GUIDANCE,  ///< deviation from the line
    UNITS_CONTEXT_PLANTING,  ///< depth and spacing of seeds, populations
    UNITS_CONTEXT_ROAD,      ///< distances on the road
    UNITS_CONTEXT_WIND,      ///< speed of wind and fans
    UNITS_CONTEXT_CHEMICAL,  ///< small doses
    UNITS_CONTEXT_NOZZLE,    ///< flow of a single nozzle
    UNITS_CONTEXT_SLURRY,    ///< large volumes
    UNITS_CONTEXT_FUEL,      ///< consumption of the engine
    /// Harvested crops. Their masses and mass rates are read in bushels in the US and so need the density of
    /// the crop: with 1.0, where every item starts, the bushels are those of water.
    UNITS_CONTEXT_GRAIN,
    UNITS_CONTEXT_WEIGHED ///< stored as volume, but bought and metered by weight
};
