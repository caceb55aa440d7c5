#pragma once

#include "TQuantity.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

/// A round instrument from 0 up: scale, needle, value in figures. It repaints only when the figures change.
class TDial : public QWidget
{
    Q_OBJECT

public:
    /// The scale goes up to \a largest, or a little beyond it where that is no round number in the unit that
    /// the operator reads.
    TDial(QWidget* parent, QString const& caption, TQuantity const& quantity, double largest);

    /// Beyond the scale the needle stays at its end; the figures tell.
    void SetValue(double value);
    /// Value and unit as the operator sees them.
    QString const& Text() const { return m_Text; }
    /// The end of the scale, in the unit that the operator reads.
    double EndOfScale() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowUnitsAnew();
    void DrawFace();
    void DrawScale(QPainter* painter) const;
    QRectF Circle() const;
    double AngleOf(double shown) const;
    QPointF PointAt(double shown, double radius) const;

    QString m_Caption;
    TQuantity const m_Quantity;
    double const m_Largest;
    double m_Value = 0.0;
    QString m_Text;
    /// Of the scale, in the unit that the operator reads: from mark to mark, and how often.
    double m_Step = 1.0;
    int m_Steps = 1;
    /// Everything that stands still.
    QPixmap m_Face;
};
