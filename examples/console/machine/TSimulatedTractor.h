#pragma once

#include "IPositionSource.h"
#include "TFieldPath.h"

#include <QTimer>

/// A tractor that sprays a field for ever, row by row. Where it is follows from the time since the start
/// alone, so that two runs show the same.
class TSimulatedTractor : public IPositionSource
{
    Q_OBJECT

public:
    TSimulatedTractor();

    void Start() override;
    QVector<TSatellite> Satellites() const override;
    QString Description() const override;
    TField KnownField() const override;
    TLocalPlane KnownPlane() const override;

    /// \a elapsed ms after the start.
    TFix FixAt(qint64 elapsed) const;
    QVector<TSatellite> SatellitesAt(qint64 elapsed) const;

private:
    qint64 Elapsed() const;

    TFieldPath m_Path;
    TLocalPlane m_Plane;
    QTimer m_Timer;
    qint64 m_StartTime = 0;
};
