#include "TQuantity.h"

#include "TUnitAbbreviations.h"

TUnits::TValueAndUnit TQuantity::Parts(double value) const
{
    return TUnits::GetValueAndUnitStringInContext(value * defaultUnits, type, context, decimals, nullptr,
                                                  1.0);
}

QString TQuantity::Text(double value) const
{
    return TUnits::GetValueStringInContext(value * defaultUnits, type, context, decimals, nullptr, 1.0);
}

double TQuantity::Shown(double value) const
{
    return TUnits::GetValueInCurrentUnit(value * defaultUnits, type, context, 1.0);
}

QString TQuantity::Unit() const
{
    return TUnitAbbreviations::UnitAbbreviations[TUnits::DetermineActualUnitFromUnitsType(type, context)];
}
