#pragma once

#include "TBoom.h"

#include <QImage>
#include <QPixmap>
#include <QPolygonF>
#include <QRect>
#include <QTransform>

class QPainter;
class TMachine;

/// The moving map: the machine stands still in the view and drives upwards, the field moves under it.
///
/// The ground is drawn into a layer larger than the view, which is only shifted while the machine drives
/// straight on; it is drawn anew when the machine turns or comes near its edge. What is covered meanwhile is
/// added to it.
class TMapView
{
public:
    /// Pixels for a metre, from far to near.
    static constexpr int ZoomLevels[] = {1, 2, 4, 8};
    static constexpr int ZoomLevelCount = sizeof(ZoomLevels) / sizeof(ZoomLevels[0]);

    explicit TMapView(TMachine const& machine);

    /// Where the map stands in its widget.
    void SetView(QRect const& view);
    QRect const& View() const { return m_View; }
    /// An index into ZoomLevels, held to its range.
    void SetZoomLevel(int level);
    int ZoomLevel() const { return m_ZoomLevel; }

    /// Takes up where the machine is. True when the picture has changed.
    bool Follow();
    /// Adds covered ground, in metres east and south.
    void AddGround(QPolygonF const& ground);
    /// The ground may have changed without a word; the next Follow() draws it anew.
    void Invalidate();

    /// Draws the part within \a exposed.
    void Paint(QPainter* painter, QRect const& exposed) const;
    /// Where the machine stands in the widget.
    QPoint Anchor() const;

private:
    double Zoom() const;
    bool IsLayerUsable() const;
    QPoint LayerPlace() const;
    void RenderLayer();
    void PaintField(QPainter* painter) const;
    void PaintLines(QPainter* painter) const;
    int BoomTop() const;
    void PaintBoom(QPainter* painter) const;
    static QPixmap MakeTractor();

    TMachine const& m_Machine;
    QRect m_View;
    int m_ZoomLevel = 2;
    QImage m_Layer;
    QTransform m_ToLayer;
    bool m_IsLayerValid = false;
    double m_LayerHeading = 0.0;
    int m_LayerLine = 0;
    double m_LayerSpacing = 0.0;
    double m_LayerShift = 0.0;
    QPoint m_LayerPlace;
    QPixmap m_Tractor;
    quint32 m_SectionStates = 0;
    TBoom m_Boom;
};
