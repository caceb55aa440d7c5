#include "TCoverageMap.h"

#include <QPainter>
#include <QtMath>

namespace
{
constexpr double TileMetres = double(TCoverageMap::TileSide) / TCoverageMap::PixelsPerMetre;
// Far more than a machine covers between two positions.
constexpr double LargestPiece = 200.0;
// Where counting in tiles stays within an int.
constexpr double FarthestMetre = 1e7;

QPoint IndexOf(QPointF const& point)
{
    return {qFloor(point.x() / TileMetres), qFloor(point.y() / TileMetres)};
}

QPointF OriginOf(QPoint const& index)
{
    return {index.x() * TileMetres, index.y() * TileMetres};
}

bool IsUsable(QRectF const& bounds)
{
    return qIsFinite(bounds.left()) && qIsFinite(bounds.top()) && qAbs(bounds.left()) < FarthestMetre &&
           qAbs(bounds.top()) < FarthestMetre && bounds.width() < LargestPiece && bounds.height() < LargestPiece;
}
} // namespace

QColor TCoverageMap::Colour()
{
    return {64, 150, 72};
}

void TCoverageMap::Add(QPolygonF const& ground)
{
    QRectF const bounds = ground.boundingRect();
    if (ground.isEmpty() || !IsUsable(bounds))
        return;
    QPoint const first = IndexOf(bounds.topLeft());
    QPoint const last = IndexOf(bounds.bottomRight());
    for (int y = first.y(); y <= last.y(); ++y)
    {
        for (int x = first.x(); x <= last.x(); ++x)
        {
            QPoint const index(x, y);
            QPainter painter(&TileAt(index));
            painter.scale(PixelsPerMetre, PixelsPerMetre);
            painter.translate(-OriginOf(index));
            painter.setPen(Qt::NoPen);
            painter.setBrush(Colour());
            painter.drawPolygon(ground);
        }
    }
}

bool TCoverageMap::IsCovered(QPointF const& point) const
{
    auto const tile = m_Tiles.constFind(IndexOf(point));
    if (tile == m_Tiles.constEnd())
        return false;
    QPointF const within = (point - OriginOf(tile.key())) * PixelsPerMetre;
    QPoint const pixel(qBound(0, qFloor(within.x()), TileSide - 1), qBound(0, qFloor(within.y()), TileSide - 1));
    return qAlpha(tile->pixel(pixel)) != 0;
}

void TCoverageMap::Clear()
{
    m_Tiles.clear();
}

QImage& TCoverageMap::TileAt(QPoint const& index)
{
    auto const found = m_Tiles.find(index);
    if (found != m_Tiles.end())
        return *found;
    if (m_Tiles.size() >= MaxTiles)
        GiveUpFarthest(index);
    QImage tile(TileSide, TileSide, QImage::Format_ARGB4444_Premultiplied);
    tile.fill(Qt::transparent);
    return *m_Tiles.insert(index, tile);
}

void TCoverageMap::GiveUpFarthest(QPoint const& from)
{
    auto farthest = m_Tiles.begin();
    for (auto tile = m_Tiles.begin(); tile != m_Tiles.end(); ++tile)
    {
        if ((tile.key() - from).manhattanLength() > (farthest.key() - from).manhattanLength())
            farthest = tile;
    }
    m_Tiles.erase(farthest);
}

void TCoverageMap::Paint(QPainter* painter, QRectF const& ground) const
{
    for (auto tile = m_Tiles.constBegin(); tile != m_Tiles.constEnd(); ++tile)
    {
        QRectF const place(OriginOf(tile.key()), QSizeF(TileMetres, TileMetres));
        if (place.intersects(ground))
            painter->drawImage(place, *tile);
    }
}
