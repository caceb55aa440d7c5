#pragma once

#include "TFix.h"

#include <QMap>
#include <QNmeaPositionInfoSource>
#include <QVector>

/// Qt's parser of positions, which also keeps what it does not report itself: quality, dilution and
/// satellites.
class TNmeaSource : public QNmeaPositionInfoSource
{
    Q_OBJECT

public:
    using QNmeaPositionInfoSource::QNmeaPositionInfoSource;

    /// As of the newest sentence that names it.
    EFixQuality Quality() const { return m_Quality; }
    double Dilution() const { return m_Dilution; }
    int SatellitesUsed() const { return m_SatellitesUsed; }
    QVector<TSatellite> Satellites() const;

protected:
    bool parsePosInfoFromNmeaData(char const* data, int size, QGeoPositionInfo* position,
                                  bool* hasFix) override;

private:
    void TakeFixData(QList<QByteArray> const& fields);
    void TakeSatellitesInView(QList<QByteArray> const& fields);

    EFixQuality m_Quality = FIX_NONE;
    double m_Dilution = 0.0;
    int m_SatellitesUsed = 0;
    /// By the system that the sentence speaks for.
    QMap<QByteArray, QVector<TSatellite>> m_Satellites;
};
