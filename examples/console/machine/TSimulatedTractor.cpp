#include "TSimulatedTractor.h"

#include "TLocalTime.h"

#include <QtMath>

#include <cmath>

namespace
{
constexpr int FixInterval = 100;
constexpr double OriginLatitude = 48.3127;
constexpr double OriginLongitude = 11.6214;
constexpr double Altitude = 472.0;

constexpr int Passes = 12;
// The tramlines are there, whatever boom is on the tractor.
constexpr double LineSpacing = 24.0;
constexpr double RowLength = 360.0;
constexpr double Headland = 30.0;

// A steady hand is never quite steady: distance and side step swing around the even drive.
constexpr double Speed = 3.4;
constexpr double Surge = 1.5;
constexpr double SurgePeriod = 21000.0;
constexpr double SideStep = 0.14;
constexpr double SideStepPeriod = 9300.0;
// The tractor comes up already at work, a little way into its first row.
constexpr double StartDistance = 90.0;

constexpr double UpwardDrift = 0.4;
constexpr double FullTurn = 360.0;
constexpr qint64 SkyPeriod = 40000;
constexpr double Dilution = 0.6;

double Phase(qint64 elapsed, double period)
{
    return 2.0 * M_PI * static_cast<double>(elapsed) / period;
}

constexpr TSatellite Sky[] = {
    {2, 71, 40, 47},   {5, 34, 98, 43},   {7, 18, 150, 38},  {12, 52, 212, 45}, {15, 9, 250, 31},
    {18, 43, 301, 44}, {24, 27, 342, 40}, {29, 62, 127, 46}, {31, 5, 20, -1},   {68, 38, 68, 42},
    {69, 57, 262, 45}, {78, 22, 185, 37}, {84, 11, 318, 33}, {86, 48, 358, 44},
};
} // namespace

TSimulatedTractor::TSimulatedTractor()
    : m_Path(TFieldPath::Rows(Passes, RowLength, LineSpacing))
    , m_Plane(OriginLatitude, OriginLongitude)
{
    m_Timer.setTimerType(Qt::PreciseTimer);
    connect(&m_Timer, &QTimer::timeout, this, [this] { Q_EMIT FixChanged(FixAt(Elapsed())); });
}

void TSimulatedTractor::Start()
{
    m_StartTime = TLocalTime::getCurrentTime();
    m_Timer.start(FixInterval);
    Q_EMIT FixChanged(FixAt(0));
}

qint64 TSimulatedTractor::Elapsed() const
{
    return TLocalTime::getCurrentTime() - m_StartTime;
}

TFix TSimulatedTractor::FixAt(qint64 elapsed) const
{
    double const seconds = static_cast<double>(elapsed) / 1000.0;
    double const surge = Phase(elapsed, SurgePeriod);
    TPose const pose = m_Path.At(StartDistance + Speed * seconds + Surge * std::sin(surge));
    double const swing = SideStep * std::sin(Phase(elapsed, SideStepPeriod));
    double const across = qDegreesToRadians(pose.heading + FullTurn / 4.0);

    TFix fix;
    fix.quality = FIX_RTK;
    m_Plane.ToDegrees(pose.position + QPointF(std::sin(across), -std::cos(across)) * swing, &fix.latitude,
                      &fix.longitude);
    fix.altitude = Altitude + UpwardDrift * std::sin(surge);
    fix.heading = pose.heading;
    fix.speed = Speed + Surge * std::cos(surge) * 2.0 * M_PI * 1000.0 / SurgePeriod;
    fix.dilution = Dilution;
    for (TSatellite const& satellite : Sky)
        fix.satellitesUsed += satellite.strength > 0 ? 1 : 0;
    return fix;
}

QVector<TSatellite> TSimulatedTractor::Satellites() const
{
    return SatellitesAt(Elapsed());
}

QVector<TSatellite> TSimulatedTractor::SatellitesAt(qint64 elapsed) const
{
    QVector<TSatellite> satellites;
    int const turned = static_cast<int>(elapsed / SkyPeriod % static_cast<int>(FullTurn));
    for (TSatellite satellite : Sky)
    {
        satellite.azimuth = (satellite.azimuth + turned) % static_cast<int>(FullTurn);
        satellites.append(satellite);
    }
    return satellites;
}

QString TSimulatedTractor::Description() const
{
    return tr("Simulated tractor");
}

TField TSimulatedTractor::KnownField() const
{
    double const half = LineSpacing / 2.0;
    double const east = (Passes - 1) * LineSpacing + half;
    TField field;
    field.boundary = QVector<QPointF>{{-half, Headland},
                                      {east, Headland},
                                      {east + Headland, -RowLength / 2.0},
                                      {east, -RowLength - Headland},
                                      {east / 2.0, -RowLength - 1.4 * Headland},
                                      {-half, -RowLength - Headland}};
    field.workArea = QPolygonF(QRectF(QPointF(-half, -RowLength), QPointF(east, 0.0)));
    field.hasLines = true;
    field.lineSpacing = LineSpacing;
    return field;
}

TLocalPlane TSimulatedTractor::KnownPlane() const
{
    return m_Plane;
}
