#include "FixRows.h"

#include "Palette.h"
#include "TMachine.h"

#include <QCoreApplication>

namespace
{
constexpr double KilometresPerHour = 3.6;
constexpr int DegreeDigits = 6;

QString Translate(char const* text)
{
    return QCoreApplication::translate("FixRows", text);
}

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
    return QString::number(qAbs(value), 'f', DegreeDigits) + QStringLiteral("° ") +
           QLatin1Char(value < 0.0 ? negative : positive);
}
} // namespace

QVector<TTableRow> FixRows(TMachine const& machine)
{
    TFix const& fix = machine.Fix();
    bool const hasFix = fix.IsValid();
    auto const value = [hasFix](QString const& text) { return hasFix ? text : QStringLiteral("–"); };
    return {
        {Translate("Position"), QualityText(fix.quality), QualityColor(fix.quality)},
        {Translate("Latitude"), value(Degrees(fix.latitude, 'N', 'S')), {}},
        {Translate("Longitude"), value(Degrees(fix.longitude, 'E', 'W')), {}},
        {Translate("Altitude"), value(Translate("%1 m").arg(fix.altitude, 0, 'f', 1)), {}},
        {Translate("Speed"), value(Translate("%1 km/h").arg(fix.speed * KilometresPerHour, 0, 'f', 1)), {}},
        {Translate("Satellites"), value(QString::number(fix.satellitesUsed)), {}},
        {Translate("Dilution"), value(QString::number(fix.dilution, 'f', 1)), {}},
        // The whole row: names of recordings and hosts are long.
        {machine.Source().Description(), QString(), {}},
    };
}
