#pragma once

#include "IPositionSource.h"

/// A source that says what a test wants said.
class TTestSource : public IPositionSource
{
    Q_OBJECT

public:
    void Start() override { m_HasStarted = true; }
    QVector<TSatellite> Satellites() const override { return {}; }
    QString Description() const override { return QStringLiteral("test"); }
    TField KnownField() const override { return m_Field; }
    TLocalPlane KnownPlane() const override { return m_Plane; }

    /// The machine is at \a point, metres east and south.
    void Say(QPointF const& point, double heading, double speed = 3.0)
    {
        TFix fix;
        fix.quality = FIX_RTK;
        m_Plane.ToDegrees(point, &fix.latitude, &fix.longitude);
        fix.heading = heading;
        fix.speed = speed;
        Q_EMIT FixChanged(fix);
    }
    void SayNothing() { Q_EMIT FixChanged(TFix()); }

    TLocalPlane m_Plane{48.0, 11.0};
    TField m_Field;
    bool m_HasStarted = false;
};
