#pragma once

#include "TFix.h"

#include <QVector>
#include <QWidget>

/// How strong each satellite is received: one bar for each, with its number beneath.
class TSignalBars : public QWidget
{
    Q_OBJECT

public:
    explicit TSignalBars(QWidget* parent);

    void SetSatellites(QVector<TSatellite> const& satellites);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVector<TSatellite> m_Satellites;
};
