#include "TDial.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TUnitSettings.h"

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
constexpr int MostSteps = 7;
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

TDial::TDial(QWidget* parent, QString const& caption, TQuantity const& quantity, double largest)
    : QWidget(parent)
    , m_Caption(caption)
    , m_Quantity(quantity)
    , m_Largest(qMax(1.0, largest))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TDial::ShowUnitsAnew);
    ShowUnitsAnew();
}

void TDial::SetValue(double value)
{
    QString const text = m_Quantity.Text(value);
    if (text == m_Text)
        return;
    m_Text = text;
    m_Value = value;
    update();
}

// The steps are 1, 2 or 5 times a power of ten, the smallest with which not too many reach the end.
void TDial::ShowUnitsAnew()
{
    constexpr double RoundNumbers[] = {1.0, 2.0, 5.0};
    double const largest = m_Quantity.Shown(m_Largest);
    m_Steps = MostSteps + 1;
    for (double power = std::pow(10.0, std::floor(std::log10(largest / MostSteps))); m_Steps > MostSteps;
         power *= 10.0)
    {
        for (double const number : RoundNumbers)
        {
            m_Step = number * power;
            m_Steps = qCeil(largest / m_Step);
            if (m_Steps <= MostSteps)
                break;
        }
    }
    m_Text = m_Quantity.Text(m_Value);
    DrawFace();
    update();
}

double TDial::EndOfScale() const
{
    return m_Steps * m_Step;
}

QRectF TDial::Circle() const
{
    QRectF const room(Margin, CaptionHeight + Margin, width() - 2 * Margin,
                      height() - CaptionHeight - 2 * Margin);
    double const side = qMin(room.width(), room.height());
    return {room.center().x() - side / 2, room.center().y() - side / 2, side, side};
}

double TDial::AngleOf(double shown) const
{
    return FirstAngle + WholeAngle * qBound(0.0, shown / EndOfScale(), 1.0);
}

QPointF TDial::PointAt(double shown, double radius) const
{
    QRectF const circle = Circle();
    double const radians = qDegreesToRadians(AngleOf(shown));
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
    for (int mark = 0; mark <= m_Steps; ++mark)
    {
        double const value = mark * m_Step;
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
    ConsoleText::Draw(&painter,
                      QRect(circle.left(), circle.bottom() - ValueHeight, circle.width(), ValueHeight),
                      Qt::AlignCenter, m_Text, ValueSize, regularTextColor);
    painter.setRenderHint(QPainter::Antialiasing);
    double const shown = m_Quantity.Shown(m_Value);
    painter.setPen(QPen(NeedleColor, NeedleWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(PointAt(shown, NeedleFrom), PointAt(shown, NeedleTo));
}
