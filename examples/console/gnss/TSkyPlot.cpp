#include "TSkyPlot.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TSignalColor.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int Margin = 18;
constexpr int DotRadius = 12;
constexpr int NumberSize = 13;
constexpr int LetterSize = 16;
constexpr int LetterBox = 20;
constexpr double Overhead = 90.0;
QColor const RingColor(96, 100, 108);
// Rings at the horizon and at these elevations.
constexpr int Elevations[] = {0, 30, 60};

bool IsSame(TSatellite const& a, TSatellite const& b)
{
    return a.id == b.id && a.elevation == b.elevation && a.azimuth == b.azimuth && a.strength == b.strength;
}
} // namespace

TSkyPlot::TSkyPlot(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TSkyPlot::SetSatellites(QVector<TSatellite> const& satellites)
{
    if (std::equal(satellites.begin(), satellites.end(), m_Satellites.begin(), m_Satellites.end(), IsSame))
        return;
    m_Satellites = satellites;
    update();
}

int TSkyPlot::Radius() const
{
    return qMin(width(), height()) / 2 - Margin;
}

QPoint TSkyPlot::PlaceOf(TSatellite const& satellite) const
{
    double const distance = Radius() * (Overhead - satellite.elevation) / Overhead;
    double const azimuth = qDegreesToRadians(double(satellite.azimuth));
    return rect().center() + QPointF(std::sin(azimuth) * distance, -std::cos(azimuth) * distance).toPoint();
}

void TSkyPlot::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    painter.setRenderHint(QPainter::Antialiasing);
    PaintRings(&painter);
    for (TSatellite const& satellite : qAsConst(m_Satellites))
    {
        QPoint const place = PlaceOf(satellite);
        painter.setPen(QPen(ConsoleText::DarkEdgeColor(), 1.0));
        painter.setBrush(SignalColor(satellite.strength));
        painter.drawEllipse(place, DotRadius, DotRadius);
        QRect const box(place - QPoint(DotRadius, DotRadius), QSize(2 * DotRadius, 2 * DotRadius));
        ConsoleText::Draw(&painter, box, Qt::AlignCenter, QString::number(satellite.id), NumberSize,
                          regularTextColor);
    }
}

void TSkyPlot::PaintRings(QPainter* painter) const
{
    painter->setPen(QPen(RingColor, 1.0));
    painter->setBrush(Qt::NoBrush);
    QPoint const middle = rect().center();
    for (int const elevation : Elevations)
    {
        int const radius = qRound(Radius() * (Overhead - elevation) / Overhead);
        painter->drawEllipse(middle, radius, radius);
    }
    painter->drawLine(middle - QPoint(Radius(), 0), middle + QPoint(Radius(), 0));
    painter->drawLine(middle - QPoint(0, Radius()), middle + QPoint(0, Radius()));
    QRect const letter(middle.x() - LetterBox / 2, middle.y() - Radius() - LetterBox / 2 - 2, LetterBox,
                       LetterBox);
    painter->fillRect(letter, ConsoleText::SurfaceColor());
    ConsoleText::Draw(painter, letter, Qt::AlignCenter, tr("N"), LetterSize, regularTextColor);
}
