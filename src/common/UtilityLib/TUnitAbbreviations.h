#pragma once

#include "EUnitsType.h"
#include "UtilityLibExport.h"

#include <QString>

/// How units are written. The abbreviations are those on the instruments of every country, so they are not
/// translated; each stands for one unit alone.
class UTILITYLIB_EXPORT TUnitAbbreviations
{
public:
    /// The abbreviations by number. A type has that of its default unit; bare numbers, counts, times of day
    /// and dates have none, and neither has a number that is no unit.
    class UTILITYLIB_EXPORT TTable
    {
    public:
        QString const& operator[](int unit) const;
    };
    static constexpr TTable UnitAbbreviations{};

    /// The concrete unit that \a abbreviation stands for, UNIT_NONE for none. With \a ignoreCase an
    /// abbreviation that matches to the letter still goes first.
    static EUnitsType GetUnitTypeFromString(QString const& abbreviation, bool ignoreCase);

    /// True if a blank goes between a number and the unit; false for signs such as those of degree and
    /// percent, and where there is no abbreviation.
    static bool UnitTypeRequiresSpacing(EUnitsType unit);
};
