#pragma once

#include <QPointF>

/// A flat piece of the earth around an origin: metres east and south of it. Good for the few kilometres of a
/// farm.
class TLocalPlane
{
public:
    TLocalPlane() = default;
    /// In degrees.
    TLocalPlane(double latitude, double longitude);

    bool IsValid() const { return m_MetresPerDegreeEast > 0.0; }
    QPointF FromDegrees(double latitude, double longitude) const;
    /// Latitude and longitude.
    void ToDegrees(QPointF const& point, double* latitude, double* longitude) const;

private:
    double m_Latitude = 0.0;
    double m_Longitude = 0.0;
    double m_MetresPerDegreeEast = 0.0;
};
