#pragma once

#include "CommonUILibExport.h"
#include "EUnitsType.h"

#include <QVector>

/// One unit that a number pad offers.
struct TUnitsSelectorProps
{
    EUnitsType unit = UNIT_NONE;
    int decimalPlaces = -1; ///< decimals in this unit, or a TUnits::EPrecision

    friend bool operator==(TUnitsSelectorProps const& a, TUnitsSelectorProps const& b)
    {
        return a.unit == b.unit && a.decimalPlaces == b.decimalPlaces;
    }
    friend bool operator!=(TUnitsSelectorProps const& a, TUnitsSelectorProps const& b) { return !(a == b); }
};

/// Flags of a TUnitsSelector, to be ored.
enum EUnitSelectorFlags : int
{
    UNIT_SELECTOR_FIXED_WIDTH = 1 ///< the units button is as wide as buttonWidth says
};

/// The units among which the operator may choose while entering a value.
struct COMMONUILIB_EXPORT TUnitsSelector
{
    QVector<TUnitsSelectorProps> units; ///< in the order in which they are offered
    int buttonWidth = 70;               ///< pixels; used with UNIT_SELECTOR_FIXED_WIDTH alone
    int flags = 0;                      ///< EUnitSelectorFlags

    /// Sets the bits of \a added beside those that are set.
    void AddFlags(int added) { flags |= added; }
    /// Clears the bits of \a removed; those that are not set do no harm.
    void RemoveFlags(int removed) { flags &= ~removed; }

    /// True with more than one unit: a single one offers no choice.
    bool IsValid() const { return units.size() > 1; }

    /// Compares the units in their order and nothing else: width and flags do not change what is offered.
    friend bool operator==(TUnitsSelector const& a, TUnitsSelector const& b) { return a.units == b.units; }
    friend bool operator!=(TUnitsSelector const& a, TUnitsSelector const& b) { return !(a == b); }
};
