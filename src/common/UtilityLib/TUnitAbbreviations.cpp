#include "TUnitAbbreviations.h"

#include "UnitTable.h"

#include <array>

namespace
{
using TTexts = std::array<QString, UNIT_NUMBER_END>;

TTexts* MakeTexts()
{
    auto* const texts = new TTexts;
    for (int i = 0; i < UNIT_NUMBER_END; ++i)
        (*texts)[i] = QString::fromUtf8(UnitRow(static_cast<EUnitsType>(i)).abbreviation);
    return texts;
}

// Never destroyed: threads may write values while the program ends.
TTexts const& Texts()
{
    static TTexts const* const texts = MakeTexts();
    return *texts;
}

EUnitsType FindUnit(QString const& abbreviation, Qt::CaseSensitivity sensitivity)
{
    TTexts const& texts = Texts();
    for (int i = UNIT_NONE + 1; i < UNIT_NUMBER_END; ++i)
    {
        auto const unit = static_cast<EUnitsType>(i);
        bool const isConcrete = UnitRow(unit).defaultUnit == unit;
        if (isConcrete && texts[i].compare(abbreviation, sensitivity) == 0)
            return unit;
    }
    return UNIT_NONE;
}
} // namespace

QString const& TUnitAbbreviations::TTable::operator[](int unit) const
{
    return Texts()[UnitRow(static_cast<EUnitsType>(unit)).unit];
}

EUnitsType TUnitAbbreviations::GetUnitTypeFromString(QString const& abbreviation, bool ignoreCase)
{
    if (abbreviation.isEmpty())
        return UNIT_NONE;
    EUnitsType const unit = FindUnit(abbreviation, Qt::CaseSensitive);
    return unit == UNIT_NONE && ignoreCase ? FindUnit(abbreviation, Qt::CaseInsensitive) : unit;
}

bool TUnitAbbreviations::UnitTypeRequiresSpacing(EUnitsType unit)
{
    return UnitRow(UnitRow(unit).defaultUnit).isSpaced;
}
