#pragma once

#include "EUnitsType.h"
#include "UtilityLibExport.h"

#include <QChar>
#include <QString>

/// Values in the operator's units: from the unit in which a module stores a value to the one in which it is
/// shown, back again, and into text. What the operator has chosen stands in TUnitSettings, whose Changed()
/// says when to show everything anew. Callable from any thread.
///
/// What cannot be converted comes back as it is: a unit number outside of EUnitsType means UNIT_NONE, and
/// UNIT_NONE fits every value. Two units of different quantities, such as metres and kilograms, are besides
/// reported in the operator's log, once for each pair. Volumes, volume rates and volume flows become masses,
/// and masses volumes, by a density in kilograms for each litre; one that is not a number from 0.000001 to
/// 1000000 counts as 1, that of water, and is reported once for each pair.
///
/// The factors are those of UDUNITS-2. Without its database, or for units that it does not know, which the
/// log then tells, the display unit is the one in which a value is stored, and ConvertUnit() changes no
/// value. So whoever offers the operator other units asks CanConvert() first: else the same number would
/// stand there with another unit behind it.
class UTILITYLIB_EXPORT TUnits
{
public:
    /// Decimals for GetValueString() and GetValueStringInContext(): those of GetDefaultPrecision() and of
    /// GetDynamicPrecision(). A number from 0 to 15 means itself, any other the nearest of these.
    enum EPrecision
    {
        DEFAULT_PRECISION = -1,
        DYNAMIC_PRECISION = 100
    };

    /// Other decimals for small values: those whose magnitude, in the unit that is shown, is below
    /// \a threshold are written with \a decimals.
    struct ThresholdSpec
    {
        double threshold = 0.0;
        int decimals = 0;
    };

    /// A value as text, and the abbreviation of the unit beside it.
    struct TValueAndUnit
    {
        QString value;
        QString unit;
    };

    /// The unit in which the operator reads values of \a type in \a context: the display unit. A concrete
    /// unit as a type is its own.
    static EUnitsType DetermineActualUnitFromUnitsType(EUnitsType type, EUnitsContext context);

    /// The unit in which modules store values of \a type: the default unit, the same in every context. A
    /// concrete unit as a type is its own.
    static EUnitsType DetermineDefaultUnitFromUnitsType(EUnitsType type, EUnitsContext context);

    /// A stored value in the display unit.
    static double GetValueInCurrentUnit(double value, EUnitsType type, EUnitsContext context, double density);

    /// A value of the display unit as it is stored.
    static double GetValueInDefaultUnit(double value, EUnitsType type, EUnitsContext context, double density);

    /// True if ConvertUnit() leads from one unit to the other: they are the same, or both measure the same
    /// quantity or are bridged by density, and the database knows both. A type means its default unit. False
    /// if one of them alone is no unit: a bare number is neither metres nor feet. Nothing is reported.
    static bool CanConvert(EUnitsType from, EUnitsType to);

    /// A value of the unit \a from in the unit \a to; a type among them means its default unit. Converted
    /// back, a value has changed by no more than the last bits of a double, and of the temperature of 0
    /// kelvin where the zero points differ. Not a number and the infinities stay what they are, and a
    /// negative zero becomes a plain one where anything is converted.
    static double ConvertUnit(double value, EUnitsType from, EUnitsType to, double density);

    /// A stored value in the display unit, with the unit behind it: "12.5 km/h", "45.0°".
    ///
    /// Numbers are written like those of QString::number() in the format 'f', but with the operator's decimal
    /// separator and without the sign of a zero: a half that a double can hold goes away from zero. From
    /// 1e15 on they have an exponent: "1.000000e+300". What is no finite number is "---". A time of day is
    /// "13:05" or "1:05 pm" after the operator's clock, folded into one day; a date stands in the operator's
    /// format, day and month with two digits, the year with four. Decimals mean nothing to these two.
    static QString GetValueStringInContext(double value, EUnitsType type, EUnitsContext context, int decimals,
                                           ThresholdSpec const* thresholds, double density);

    /// The two parts of GetValueStringInContext().
    static TValueAndUnit GetValueAndUnitStringInContext(double value, EUnitsType type, EUnitsContext context,
                                                        int decimals, ThresholdSpec const* thresholds,
                                                        double density);

    /// \a value with \a suffix behind it, nothing converted. The suffix stands as it is if it is a known
    /// abbreviation that requires no spacing, else trimmed and after a blank; "DD/MM/YYYY" asks for a date.
    static QString GetValueString(double value, QString const& suffix, int decimals,
                                  ThresholdSpec const* thresholds);

    /// \a value with the abbreviation of \a unit behind it, nothing converted, so the density does not count.
    static QString GetValueString(double value, EUnitsType unit, int decimals,
                                  ThresholdSpec const* thresholds, double density);

    /// The decimals with which \a unit is usually read, 0 to 3; of a type those of its default unit.
    static int GetDefaultPrecision(EUnitsType unit);

    /// The decimals that give \a value three digits: 3 below 1, 2 below 10, 1 below 100, 0 above, where the
    /// rounded value counts. 0 for what is no finite number.
    static int GetDynamicPrecision(double value);

    /// The decimal separator of the operator's locale.
    static QChar DisplayableDecimalPointChar();

    /// \a text with the operator's decimal separators turned into points; all else stays, number or not.
    static QString DisplayableToInternalFloatStr(QString const& text);

    /// \a text with points turned into the operator's decimal separator; all else stays, number or not.
    static QString InternalToDisplayableFloatStr(QString const& text);
};
