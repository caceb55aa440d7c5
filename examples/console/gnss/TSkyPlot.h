#pragma once

#include "TFix.h"

#include <QVector>
#include <QWidget>

/// The satellites where they stand in the sky: the middle is overhead, the rim is the horizon, north is up.
class TSkyPlot : public QWidget
{
    Q_OBJECT

public:
    explicit TSkyPlot(QWidget* parent);

    void SetSatellites(QVector<TSatellite> const& satellites);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint PlaceOf(TSatellite const& satellite) const;
    int Radius() const;
    void PaintRings(QPainter* painter) const;

    QVector<TSatellite> m_Satellites;
};
