#include "TDial.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QPainter>
#include <QtMath>

#include <cmath>

namespace
{
constexpr int Margin = 12;
constexpr int CaptionHeight = 30;
constexpr int CaptionSize = 18;
constexpr int ValueSize = 26;
constexpr int ValueHeight = 34;
constexpr int NumberSize = 15;
constexpr QSize NumberRoom(56, 20);
constexpr int Marks = 6;
constexpr double FirstAngle = -120.0; // degrees from upright, clockwise
constexpr double WholeAngle = 240.0;
constexpr double NumbersAt = 0.72; // of the radius
constexpr double MarkFrom = 0.88;
constexpr double NeedleFrom = 0.30;
constexpr double NeedleTo = 0.92;
constexpr double NeedleWidth = 5.0;
constexpr double MarkWidth = 3.0;
constexpr int StartOfArc = 210; // as Qt counts: degrees from the right, anticlockwise
constexpr int SixteenthsPerDegree = 16;

QColor const NeedleColor(255, 170, 40);
QColor const ScaleColor(170, 174, 180);
} // namespace

TDial::TDial(QWidget* parent, QString const& caption, QString const& unit, int largest)
    : QWidget(parent)
    , m_Caption(caption)
    , m_Unit(unit)
    , m_Largest(qMax(1, largest))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TDial::SetValue(int value)
{
    if (value == m_Value)
        return;
    m_Value = value;
    update();
}

QRectF TDial::Circle() const
{
    QRectF const room(Margin, CaptionHeight + Margin, width() - 2 * Margin,
                      height() - CaptionHeight - 2 * Margin);
    double const side = qMin(room.width(), room.height());
    return {room.center().x() - side / 2, room.center().y() - side / 2, side, side};
}

double TDial::AngleOf(int value) const
{
    return FirstAngle + WholeAngle * qBound(0, value, m_Largest) / m_Largest;
}

QPointF TDial::PointAt(int value, double radius) const
{
    QRectF const circle = Circle();
    double const radians = qDegreesToRadians(AngleOf(value));
    return circle.center() + QPointF(std::sin(radians), -std::cos(radians)) * (radius * circle.width() / 2);
}

void TDial::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    DrawFace();
}

void TDial::DrawFace()
{
    m_Face = QPixmap(size());
    if (m_Face.isNull())
        return;
    QPainter painter(&m_Face);
    ConsoleText::DrawSurface(&painter, rect());
    ConsoleText::Draw(&painter, QRect(Margin, 0, width() - 2 * Margin, CaptionHeight),
                      Qt::AlignHCenter | Qt::AlignVCenter, m_Caption, CaptionSize,
                      ConsoleText::CaptionColor());
    DrawScale(&painter);
}

void TDial::DrawScale(QPainter* painter) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(ScaleColor, MarkWidth, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(Circle(), StartOfArc * SixteenthsPerDegree, -qRound(WholeAngle) * SixteenthsPerDegree);
    for (int mark = 0; mark <= Marks; ++mark)
    {
        int const value = m_Largest * mark / Marks;
        painter->drawLine(PointAt(value, MarkFrom), PointAt(value, 1.0));
        QRect number(QPoint(), NumberRoom);
        number.moveCenter(PointAt(value, NumbersAt).toPoint());
        ConsoleText::Draw(painter, number, Qt::AlignCenter, QString::number(value), NumberSize,
                          regularTextColor);
    }
}

void TDial::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_Face);
    QRect const circle = Circle().toRect();
    ConsoleText::Draw(
        &painter, QRect(circle.left(), circle.bottom() - ValueHeight, circle.width(), ValueHeight),
        Qt::AlignCenter, QStringLiteral("%1 %2").arg(m_Value).arg(m_Unit), ValueSize, regularTextColor);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(NeedleColor, NeedleWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(PointAt(m_Value, NeedleFrom), PointAt(m_Value, NeedleTo));
}
