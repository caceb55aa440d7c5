#include "TMapView.h"

#include "MapColors.h"
#include "Palette.h"
#include "TMachine.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <cmath>

namespace
{
// The machine stands in the lower part of the view: what lies ahead matters more.
constexpr double AnchorHeight = 0.68;
// How much more ground than the view the layer holds, in pixels on each side.
constexpr int LayerMargin = 96;
// How far the machine may turn before the layer is drawn anew, in degrees.
constexpr double LayerTurn = 1.0;
constexpr double FullTurn = 360.0;
constexpr double QuarterTurn = 90.0;

constexpr double BoundaryWidth = 3.0;
constexpr double LineWidth = 1.0;
constexpr double CurrentLineWidth = 3.0;

constexpr int TractorWidth = 38;
constexpr int TractorHeight = 60;
// How far the wheels reach over the boom.
constexpr int TractorOverlap = 3;
constexpr int SectionBarHeight = 7;
constexpr int SectionBarGap = 1;
constexpr int SectionBarFrame = 1;

QPen CosmeticPen(QColor const& color, double width)
{
    QPen pen(color, width);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QPointF Direction(double heading)
{
    double const radians = qDegreesToRadians(heading);
    return {std::sin(radians), -std::cos(radians)};
}

QColor SectionColor(TMachine const& machine, int section)
{
    if (machine.IsFlowing(section))
        return SectionFlowingColor;
    return machine.IsMasterOn() && machine.IsSectionOn(section) ? SectionNoFlowColor : SectionOffColor;
}

quint32 SectionStates(TMachine const& machine)
{
    quint32 states = machine.IsMasterOn() ? 1 : 0;
    for (int section = 0; section < TBoom::SectionCount; ++section)
        states =
            states << 2 | (machine.IsSectionOn(section) ? 2U : 0U) | (machine.IsFlowing(section) ? 1U : 0U);
    return states;
}
} // namespace

TMapView::TMapView(TMachine const& machine)
    : m_Machine(machine)
    , m_Tractor(MakeTractor())
{
}

void TMapView::SetView(QRect const& view)
{
    m_View = view;
}

void TMapView::SetZoomLevel(int level)
{
    int const held = qBound(0, level, ZoomLevelCount - 1);
    if (held == m_ZoomLevel)
        return;
    m_ZoomLevel = held;
    Invalidate();
}

double TMapView::Zoom() const
{
    return ZoomLevels[m_ZoomLevel];
}

QPoint TMapView::Anchor() const
{
    return {m_View.center().x(), m_View.top() + int(m_View.height() * AnchorHeight)};
}

void TMapView::Invalidate()
{
    m_IsLayerValid = false;
}

bool TMapView::Follow()
{
    if (m_View.isEmpty())
        return false;
    bool const mustRender = !IsLayerUsable();
    if (mustRender)
        RenderLayer();
    QPoint const place = LayerPlace();
    quint32 const states = SectionStates(m_Machine);
    bool const hasChanged =
        mustRender || place != m_LayerPlace || states != m_SectionStates || m_Machine.Boom() != m_Boom;
    m_LayerPlace = place;
    m_SectionStates = states;
    m_Boom = m_Machine.Boom();
    return hasChanged;
}

bool TMapView::IsLayerUsable() const
{
    return m_IsLayerValid && m_LayerLine == m_Machine.NearestLine() &&
           m_LayerSpacing == m_Machine.LineSpacing() && m_LayerShift == m_Machine.LineShift() &&
           qAbs(std::remainder(m_Machine.Heading() - m_LayerHeading, FullTurn)) <= LayerTurn &&
           QRect(LayerPlace(), m_Layer.size()).contains(m_View);
}

// Where the layer's corner stands in the widget, so that the machine stands on the anchor.
QPoint TMapView::LayerPlace() const
{
    return Anchor() - m_ToLayer.map(m_Machine.Position()).toPoint();
}

void TMapView::RenderLayer()
{
    QSize const size = m_View.size() + QSize(2 * LayerMargin, 2 * LayerMargin);
    if (m_Layer.width() < size.width() || m_Layer.height() < size.height())
        m_Layer = QImage(size.expandedTo(m_Layer.size()), QImage::Format_RGB32);
    m_LayerHeading = m_Machine.Heading();
    m_LayerLine = m_Machine.NearestLine();
    m_LayerSpacing = m_Machine.LineSpacing();
    m_LayerShift = m_Machine.LineShift();
    QPoint const spare((m_Layer.width() - m_View.width()) / 2, (m_Layer.height() - m_View.height()) / 2);
    QPoint const anchor = Anchor() - m_View.topLeft() + spare;
    m_ToLayer = QTransform();
    m_ToLayer.translate(anchor.x(), anchor.y());
    m_ToLayer.rotate(-m_LayerHeading);
    m_ToLayer.scale(Zoom(), Zoom());
    m_ToLayer.translate(-m_Machine.Position().x(), -m_Machine.Position().y());
    m_IsLayerValid = true;

    QPainter painter(&m_Layer);
    painter.fillRect(m_Layer.rect(), MapColors::Outside);
    painter.setTransform(m_ToLayer);
    PaintField(&painter);
}

void TMapView::PaintField(QPainter* painter) const
{
    TField const& field = m_Machine.Field();
    painter->setPen(Qt::NoPen);
    painter->setBrush(MapColors::Soil);
    painter->drawPolygon(field.boundary);
    QRectF const ground = m_ToLayer.inverted().mapRect(QRectF(m_Layer.rect()));
    m_Machine.Coverage().Paint(painter, ground);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(CosmeticPen(MapColors::Boundary, BoundaryWidth));
    painter->drawPolygon(field.boundary);
    PaintLines(painter);
}

// The parallel lines as far as the layer shows them, the nearest one in the colour of the guidance.
void TMapView::PaintLines(QPainter* painter) const
{
    TField const& field = m_Machine.Field();
    if (!field.hasLines)
        return;
    double const reach = std::hypot(m_Layer.width(), m_Layer.height()) / Zoom();
    QPointF const along = Direction(field.lineHeading);
    QPointF const across = Direction(field.lineHeading + QuarterTurn);
    QPointF const origin = m_Machine.LineOrigin();
    QPointF const middle = origin + along * QPointF::dotProduct(m_Machine.Position() - origin, along);
    int const count = qCeil(reach / m_LayerSpacing);
    painter->setRenderHint(QPainter::Antialiasing);
    for (int line = m_LayerLine - count; line <= m_LayerLine + count; ++line)
    {
        QPointF const at = middle + across * (line * m_LayerSpacing);
        bool const isCurrent = line == m_LayerLine;
        painter->setPen(isCurrent ? CosmeticPen(MapColors::CurrentLine, CurrentLineWidth)
                                  : CosmeticPen(MapColors::Line, LineWidth));
        painter->drawLine(at - along * reach, at + along * reach);
    }
}

void TMapView::AddGround(QPolygonF const& ground)
{
    if (!m_IsLayerValid)
        return;
    QPainter painter(&m_Layer);
    painter.setTransform(m_ToLayer);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TCoverageMap::Colour());
    painter.drawPolygon(ground);
    // The lines lie above what is covered.
    QPainterPath covered;
    covered.addPolygon(ground);
    covered.closeSubpath();
    painter.setClipPath(covered);
    PaintLines(&painter);
}

void TMapView::Paint(QPainter* painter, QRect const& exposed) const
{
    QRect const area = exposed & m_View;
    if (area.isEmpty())
        return;
    if (!m_IsLayerValid)
    {
        painter->fillRect(area, MapColors::Outside);
        return;
    }
    painter->drawImage(area.topLeft(), m_Layer, area.translated(-m_LayerPlace));
    painter->setClipRect(area);
    PaintBoom(painter);
    painter->drawPixmap(Anchor().x() - TractorWidth / 2, BoomTop() - TractorHeight + TractorOverlap,
                        m_Tractor);
}

// Where the ground is covered, whatever the size of the tractor's picture.
int TMapView::BoomTop() const
{
    return Anchor().y() + qRound(TBoom::BehindAntenna * Zoom());
}

void TMapView::PaintBoom(QPainter* painter) const
{
    double const zoom = Zoom();
    int const y = BoomTop();
    auto const edge = [this, zoom](int section)
    { return Anchor().x() + qRound(m_Machine.Boom().EdgeOf(section) * zoom); };
    painter->fillRect(QRect(edge(0), y, edge(TBoom::SectionCount) - edge(0), SectionBarHeight)
                          .adjusted(-SectionBarFrame, -SectionBarFrame, SectionBarFrame, SectionBarFrame),
                      Qt::black);
    for (int section = 0; section < TBoom::SectionCount; ++section)
    {
        int const width = edge(section + 1) - edge(section) - SectionBarGap;
        painter->fillRect(QRect(edge(section), y, width, SectionBarHeight), SectionColor(m_Machine, section));
    }
}

// From above: wheels, bonnet and cab.
QPixmap TMapView::MakeTractor()
{
    QPixmap picture(TractorWidth, TractorHeight);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.5));
    painter.setBrush(QColor(60, 62, 66));
    for (QRectF const& wheel :
         {QRectF(1, 30, 9, 24), QRectF(28, 30, 9, 24), QRectF(4, 6, 6, 13), QRectF(28, 6, 6, 13)})
        painter.drawRoundedRect(wheel, 3, 3);
    painter.setBrush(QColor(215, 220, 225));
    painter.drawRoundedRect(QRectF(12, 2, 14, 30), 4, 4);
    painter.setBrush(MapColors::CurrentLine);
    painter.drawRoundedRect(QRectF(9, 26, 20, 24), 5, 5);
    painter.setBrush(QColor(40, 44, 50));
    painter.drawRoundedRect(QRectF(12, 29, 14, 9), 2, 2);
    return picture;
}
