#include "TUnits.h"

#include "TUnitAbbreviations.h"
#include "TUnitFactors.h"
#include "TUnitSettings.h"
#include "UnitTable.h"
#include "UserLog.h"
#include "ValueText.h"

#include <QMutex>

#include <bitset>
#include <cmath>

namespace
{
constexpr int MAX_DECIMALS = 15;
constexpr double WATER = 1.0;
// Every gas, liquid and solid lies far inside. Far outside, the factor or its reciprocal leaves what a double
// holds, and zero becomes not a number.
constexpr double LOWEST_DENSITY = 1e-6;
constexpr double HIGHEST_DENSITY = 1e6;
// Room for a usual number, so that a text is allocated once.
constexpr int NUMBER_LENGTH = 16;

struct TDynamicPrecision
{
    double below;
    int decimals;
};

// Half of a last digit less than 1, 10 and 100: what rounds to these has one decimal less. The double that is
// called 9.995 lies a little below and still rounds down, so its neighbour stands here.
constexpr TDynamicPrecision DYNAMIC_PRECISIONS[] = {{0.9995, 3}, {9.995000000000001, 2}, {99.95, 1}};

QLatin1String DateSuffix()
{
    return QLatin1String("DD/MM/YYYY");
}

// A fault comes back with every refresh of the screen, but is worth one line.
class TReportedPairs
{
public:
    bool IsFirst(EUnitsType from, EUnitsType to)
    {
        QMutexLocker const locker(&m_Mutex);
        auto pair = m_Pairs[static_cast<size_t>(from) * UNIT_NUMBER_END + static_cast<size_t>(to)];
        bool const isFirst = !pair;
        pair = true;
        return isFirst;
    }

private:
    QMutex m_Mutex;
    std::bitset<static_cast<size_t>(UNIT_NUMBER_END) * UNIT_NUMBER_END> m_Pairs;
};

QString PairText(EUnitsType from, EUnitsType to)
{
    auto const text = [](EUnitsType unit)
    { return QStringLiteral("%1 (%2)").arg(TUnitAbbreviations::UnitAbbreviations[unit]).arg(unit); };
    return text(from) + QStringLiteral(" to ") + text(to);
}

void ReportUnconvertible(EUnitsType from, EUnitsType to)
{
    static auto* const reported = new TReportedPairs;
    if (reported->IsFirst(from, to))
        GetUserLog()->AddEntry(QStringLiteral("No conversion leads from unit %1; values stay as they are")
                                   .arg(PairText(from, to)));
}

double UsableDensity(double density, EUnitsType from, EUnitsType to)
{
    // Compared so that it is false for what is not a number.
    if (density >= LOWEST_DENSITY && density <= HIGHEST_DENSITY)
        return density;
    static auto* const reported = new TReportedPairs;
    if (reported->IsFirst(from, to))
        GetUserLog()->AddEntry(
            QStringLiteral("The density %1 is no help from unit %2; that of water is taken")
                .arg(density)
                .arg(PairText(from, to)));
    return WATER;
}

EUnitsType DefaultUnit(EUnitsType type)
{
    return UnitRow(type).defaultUnit;
}

// What leads from the default unit of one quantity to that of another.
enum EBridge
{
    BRIDGE_NONE,
    BRIDGE_SAME_QUANTITY,
    BRIDGE_TIMES_DENSITY,
    BRIDGE_OVER_DENSITY
};

EBridge BridgeOf(EUnitsType from, EUnitsType to)
{
    EUnitsType const fromQuantity = UnitRow(from).quantity;
    EUnitsType const toQuantity = UnitRow(to).quantity;
    if (fromQuantity == toQuantity)
        return BRIDGE_SAME_QUANTITY;
    if (MassTypeOf(fromQuantity) == toQuantity)
        return BRIDGE_TIMES_DENSITY;
    return MassTypeOf(toQuantity) == fromQuantity ? BRIDGE_OVER_DENSITY : BRIDGE_NONE;
}

double BridgeFactor(EBridge bridge, EUnitsType from, EUnitsType to, double density)
{
    if (bridge == BRIDGE_SAME_QUANTITY)
        return 1.0;
    double const usable = UsableDensity(density, from, to);
    return bridge == BRIDGE_TIMES_DENSITY ? usable : 1.0 / usable;
}

bool AreKnownToFactors(EUnitsType one, EUnitsType other)
{
    TUnitFactors const& factors = TUnitFactors::Instance();
    return factors.Of(one).slope > 0.0 && factors.Of(other).slope > 0.0;
}

int Decimals(double value, EUnitsType unit, int decimals, TUnits::ThresholdSpec const* thresholds)
{
    if (thresholds != nullptr && std::fabs(value) < thresholds->threshold)
        decimals = thresholds->decimals;
    if (decimals == TUnits::DEFAULT_PRECISION)
        decimals = TUnits::GetDefaultPrecision(unit);
    else if (decimals == TUnits::DYNAMIC_PRECISION)
        decimals = TUnits::GetDynamicPrecision(value);
    return qBound(0, decimals, MAX_DECIMALS);
}

void AppendValue(QString& text, double value, EUnitsType unit, int decimals,
                 TUnits::ThresholdSpec const* thresholds)
{
    TUnitChoices const choices = TUnitSettings::Instance()->Choices();
    if (unit == UNIT_DATE)
        text += DateText(value, choices.dateFormat);
    else if (unit == UNIT_TIME_OF_DAY)
        text += TimeText(value, choices.is24HourClock);
    else
        AppendNumber(text, value, Decimals(value, unit, decimals, thresholds), choices.decimalPoint);
}

QString TextWithSuffix(double value, EUnitsType unit, int decimals, TUnits::ThresholdSpec const* thresholds,
                       QString const& suffix, bool isSpaced)
{
    QString text;
    text.reserve(NUMBER_LENGTH + suffix.size());
    AppendValue(text, value, unit, decimals, thresholds);
    if (isSpaced)
        text += QLatin1Char(' ');
    text += suffix;
    return text;
}
} // namespace

EUnitsType TUnits::DetermineActualUnitFromUnitsType(EUnitsType type, EUnitsContext context)
{
    EUnitsType const stored = DefaultUnit(type);
    EUnitsType const chosen = ChosenUnit(type, context, TUnitSettings::Instance()->Choices().system);
    return CanConvert(stored, chosen) ? chosen : stored;
}

EUnitsType TUnits::DetermineDefaultUnitFromUnitsType(EUnitsType type, EUnitsContext context)
{
    Q_UNUSED(context)
    return DefaultUnit(type);
}

double TUnits::GetValueInCurrentUnit(double value, EUnitsType type, EUnitsContext context, double density)
{
    return ConvertUnit(value, DefaultUnit(type), DetermineActualUnitFromUnitsType(type, context), density);
}

double TUnits::GetValueInDefaultUnit(double value, EUnitsType type, EUnitsContext context, double density)
{
    return ConvertUnit(value, DetermineActualUnitFromUnitsType(type, context), DefaultUnit(type), density);
}

bool TUnits::CanConvert(EUnitsType from, EUnitsType to)
{
    EUnitsType const source = DefaultUnit(from);
    EUnitsType const target = DefaultUnit(to);
    if (source == target)
        return true;
    // Units that need no type are quantities of their own, but no unit at all is none.
    bool const areUnits = source != UNIT_NONE && target != UNIT_NONE;
    return areUnits && BridgeOf(source, target) != BRIDGE_NONE && AreKnownToFactors(source, target);
}

double TUnits::ConvertUnit(double value, EUnitsType from, EUnitsType to, double density)
{
    EUnitsType const source = DefaultUnit(from);
    EUnitsType const target = DefaultUnit(to);
    if (source == target || source == UNIT_NONE || target == UNIT_NONE)
        return value;
    EBridge const bridge = BridgeOf(source, target);
    if (bridge == BRIDGE_NONE)
    {
        ReportUnconvertible(source, target);
        return value;
    }
    if (!AreKnownToFactors(source, target))
        return value;
    double const bridgeFactor = BridgeFactor(bridge, source, target, density);
    TUnitFactors::TFactor const& sourceFactor = TUnitFactors::Instance().Of(source);
    TUnitFactors::TFactor const& targetFactor = TUnitFactors::Instance().Of(target);
    // The factors come together first, so that no value overflows on its way.
    double const slope = sourceFactor.slope / targetFactor.slope * bridgeFactor;
    return value * slope + (sourceFactor.offset - targetFactor.offset) / targetFactor.slope;
}

QString TUnits::GetValueStringInContext(double value, EUnitsType type, EUnitsContext context, int decimals,
                                        ThresholdSpec const* thresholds, double density)
{
    EUnitsType const unit = DetermineActualUnitFromUnitsType(type, context);
    double const shown = ConvertUnit(value, DefaultUnit(type), unit, density);
    return GetValueString(shown, unit, decimals, thresholds, density);
}

TUnits::TValueAndUnit TUnits::GetValueAndUnitStringInContext(double value, EUnitsType type,
                                                             EUnitsContext context, int decimals,
                                                             ThresholdSpec const* thresholds, double density)
{
    EUnitsType const unit = DetermineActualUnitFromUnitsType(type, context);
    TValueAndUnit texts{{}, TUnitAbbreviations::UnitAbbreviations[unit]};
    AppendValue(texts.value, ConvertUnit(value, DefaultUnit(type), unit, density), unit, decimals,
                thresholds);
    return texts;
}

QString TUnits::GetValueString(double value, QString const& suffix, int decimals,
                               ThresholdSpec const* thresholds)
{
    if (suffix == DateSuffix())
        return DateText(value, TUnitSettings::Instance()->Choices().dateFormat);
    QString const trimmed = suffix.trimmed();
    EUnitsType const unit = TUnitAbbreviations::GetUnitTypeFromString(trimmed, false);
    bool const isTight = unit != UNIT_NONE && !TUnitAbbreviations::UnitTypeRequiresSpacing(unit);
    return TextWithSuffix(value, UNIT_NONE, decimals, thresholds, isTight ? suffix : trimmed,
                          !isTight && !trimmed.isEmpty());
}

QString TUnits::GetValueString(double value, EUnitsType unit, int decimals, ThresholdSpec const* thresholds,
                               double density)
{
    Q_UNUSED(density)
    return TextWithSuffix(value, DefaultUnit(unit), decimals, thresholds,
                          TUnitAbbreviations::UnitAbbreviations[unit],
                          TUnitAbbreviations::UnitTypeRequiresSpacing(unit));
}

int TUnits::GetDefaultPrecision(EUnitsType unit)
{
    return UnitRow(DefaultUnit(unit)).decimals;
}

int TUnits::GetDynamicPrecision(double value)
{
    for (TDynamicPrecision const& precision : DYNAMIC_PRECISIONS)
    {
        if (std::fabs(value) < precision.below)
            return precision.decimals;
    }
    return 0;
}

QChar TUnits::DisplayableDecimalPointChar()
{
    return TUnitSettings::Instance()->Choices().decimalPoint;
}

QString TUnits::DisplayableToInternalFloatStr(QString const& text)
{
    QString internal = text;
    return internal.replace(DisplayableDecimalPointChar(), QLatin1Char('.'));
}

QString TUnits::InternalToDisplayableFloatStr(QString const& text)
{
    QString displayable = text;
    return displayable.replace(QLatin1Char('.'), DisplayableDecimalPointChar());
}
