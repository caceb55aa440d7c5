#include "FixRows.h"

#include "Palette.h"
#include "TMachine.h"
#include "TQuantity.h"

#include <QCoreApplication>

namespace
{
constexpr int DegreeDigits = 6;

QString Translate(char const* text)
{
    return QCoreApplication::translate("FixRows", text);
}

QColor QualityColor(EFixQuality quality)
{
    switch (quality)
    {
    case FIX_RTK:
        return alarmInformationColor;
    case FIX_RTK_FLOAT:
    case FIX_DIFFERENTIAL:
        return alarmCautionColor;
    case FIX_GNSS:
    case FIX_ESTIMATED:
        return alarmWarningColor;
    case FIX_NONE:
        break;
    }
    return alarmCriticalColor;
}

QString Degrees(double value, char positive, char negative)
{
    return TUnits::GetValueString(qAbs(value), UNIT_DEGREE, DegreeDigits, nullptr, 1.0) + QLatin1Char(' ') +
           QLatin1Char(value < 0.0 ? negative : positive);
}
} // namespace

QString QualityText(EFixQuality quality)
{
    switch (quality)
    {
    case FIX_ESTIMATED:
        return Translate("estimated");
    case FIX_GNSS:
        return Translate("GNSS");
    case FIX_DIFFERENTIAL:
        return Translate("differential");
    case FIX_RTK_FLOAT:
        return Translate("RTK float");
    case FIX_RTK:
        return Translate("RTK fixed");
    case FIX_NONE:
        break;
    }
    return Translate("no fix");
}

QString ShortQualityText(EFixQuality quality)
{
    return quality == FIX_DIFFERENTIAL ? Translate("DGNSS") : QualityText(quality);
}

QVector<TTableRow> FixRows(TMachine const& machine)
{
    TFix const& fix = machine.Fix();
    bool const hasFix = fix.IsValid();
    auto const value = [hasFix](QString const& text) { return hasFix ? text : QStringLiteral("–"); };
    return {
        {Translate("Position"), QualityText(fix.quality), QualityColor(fix.quality)},
        {Translate("Latitude"), value(Degrees(fix.latitude, 'N', 'S')), {}},
        {Translate("Longitude"), value(Degrees(fix.longitude, 'E', 'W')), {}},
        {Translate("Altitude"), value(Quantities::Altitude.Text(fix.altitude)), {}},
        {Translate("Speed"), value(Quantities::Speed.Text(fix.speed)), {}},
        {Translate("Satellites"), value(QString::number(fix.satellitesUsed)), {}},
        {Translate("Dilution"), value(TUnits::GetValueString(fix.dilution, QString(), 1, nullptr)), {}},
        // The whole row: names of recordings and hosts are long.
        {machine.Source().Description(), QString(), {}},
    };
}
