#include "TEditItem.h"

bool TEditItem::IsList() const
{
    // A hidden list is a text list with one bit more.
    return (kind & ~EDIT_KIND_HIDDEN_LIST) == EDIT_KIND_TEXT_LIST;
}

void TEditItem::SetMinMaxInc(double min, double max, double inc)
{
    minimum = min;
    maximum = max;
    increment = inc;
}

void TEditItem::SetUnitAndDecimalPlaces(EUnitsType unit, int places)
{
    unitType = unit;
    decimalPlaces = places;
}
