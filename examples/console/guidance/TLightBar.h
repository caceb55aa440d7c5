#pragma once

#include "LightBarScale.h"

#include <QWidget>

/// How far the machine is beside its line, as a row of lights and as a number. The lights tell which way to
/// steer: they stand on the side to which the machine has left the line.
class TLightBar : public QWidget
{
    Q_OBJECT

public:
    explicit TLightBar(QWidget* parent);

    /// Metres to the right of the line; with \a isKnown false the bar is dark.
    void SetOffset(double metres, bool isKnown);
    /// What one light stands for, an index into LightBarScale::Steps.
    void SetStep(int step);
    /// The number as the operator sees it.
    QString Text() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_Centimetres = 0;
    int m_CentimetresPerLight = LightBarScale::Centimetres(LightBarScale::StandardStep);
    bool m_IsKnown = false;
};
