#pragma once

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
    /// The number as the operator sees it.
    QString Text() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_Centimetres = 0;
    bool m_IsKnown = false;
};
