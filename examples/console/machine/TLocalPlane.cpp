#include "TLocalPlane.h"

#include <QtMath>

#include <cmath>

namespace
{
constexpr double MetresPerDegreeNorth = 111320.0;
// At the poles a degree of longitude has no length; a plane there would divide by it.
constexpr double SmallestCosine = 0.01;
constexpr double FullTurn = 360.0;
} // namespace

TLocalPlane::TLocalPlane(double latitude, double longitude)
    : m_Latitude(latitude)
    , m_Longitude(longitude)
    , m_MetresPerDegreeEast(MetresPerDegreeNorth * qMax(SmallestCosine, qCos(qDegreesToRadians(latitude))))
{
}

QPointF TLocalPlane::FromDegrees(double latitude, double longitude) const
{
    // The short way round, also across the date line.
    double const east = std::remainder(longitude - m_Longitude, FullTurn);
    return {east * m_MetresPerDegreeEast, (m_Latitude - latitude) * MetresPerDegreeNorth};
}

void TLocalPlane::ToDegrees(QPointF const& point, double* latitude, double* longitude) const
{
    *latitude = m_Latitude - point.y() / MetresPerDegreeNorth;
    *longitude = m_Longitude + (IsValid() ? point.x() / m_MetresPerDegreeEast : 0.0);
}
