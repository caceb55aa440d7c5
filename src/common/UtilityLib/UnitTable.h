#pragma once

#include "EUnitsType.h"
#include "TUnitSettings.h"

/// One unit or unit type.
struct TUnitRow
{
    EUnitsType unit;
    EUnitsType quantity;      ///< the unit type it belongs to; itself for a type and for a unit without one
    EUnitsType defaultUnit;   ///< what values of this type are stored in; itself for a concrete unit
    char const* abbreviation; ///< UTF-8
    char const* expression;   ///< how UDUNITS-2 spells it, with "item" for what is counted; null for a type
    int decimals;             ///< default precision
    bool isSpaced;            ///< a blank goes before the abbreviation
};

/// The row of \a unit; that of UNIT_NONE for a number outside the table.
TUnitRow const& UnitRow(EUnitsType unit);

/// True for the numbers 1 to 160.
bool IsKnownUnit(EUnitsType unit);

/// The unit in which \a system shows \a type in \a context; the type's default unit for one that no system
/// chooses for.
EUnitsType ChosenUnit(EUnitsType type, EUnitsContext context, EUnitSystem system);

/// What density makes of a type: masses from volumes. UNIT_NONE for any other type.
EUnitsType MassTypeOf(EUnitsType volumeType);
