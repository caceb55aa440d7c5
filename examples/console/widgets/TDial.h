#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

/// A round instrument from 0 up: scale, needle, value in figures. It repaints only when the value changes.
class TDial : public QWidget
{
    Q_OBJECT

public:
    TDial(QWidget* parent, QString const& caption, QString const& unit, int largest);

    /// Beyond the scale the needle stays at its end; the figures tell.
    void SetValue(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void DrawFace();
    void DrawScale(QPainter* painter) const;
    QRectF Circle() const;
    double AngleOf(int value) const;
    QPointF PointAt(int value, double radius) const;

    QString m_Caption;
    QString m_Unit;
    int const m_Largest;
    int m_Value = 0;
    /// Everything that stands still.
    QPixmap m_Face;
};
