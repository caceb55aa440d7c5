#pragma once

#include <QWidget>

class TMachine;

/// How full the tank is: a column of fluid with its litres. Repaints only what the level has passed.
class TTankGauge : public QWidget
{
    Q_OBJECT

public:
    TTankGauge(QWidget* parent, TMachine const& machine, Qt::Orientation orientation);

    void Sync();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect FluidRect() const;

    TMachine const& m_Machine;
    Qt::Orientation const m_Orientation;
    int m_Litres = 0;
    QRect m_Fluid;
};
