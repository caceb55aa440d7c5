#pragma once

#include <QString>
#include <QWidget>

class TMachine;

/// How full the tank is: a column of fluid with its volume. It repaints only when one of them changes.
class TTankGauge : public QWidget
{
    Q_OBJECT

public:
    TTankGauge(QWidget* parent, TMachine const& machine, Qt::Orientation orientation);

    void Sync();
    /// The volume as the operator sees it.
    QString const& Text() const { return m_Text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect FluidRect() const;

    TMachine const& m_Machine;
    Qt::Orientation const m_Orientation;
    QString m_Text;
    QRect m_Fluid;
};
