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

using TIndex = TCoverageMap::TIndex;

TIndex IndexOf(QPointF const& point)
{
    return {qFloor(point.x() / TileMetres), qFloor(point.y() / TileMetres)};
}

QPointF OriginOf(TIndex const& index)
{
    return {index.first * TileMetres, index.second * TileMetres};
}

int Distance(TIndex const& a, TIndex const& b)
{
    return qAbs(a.first - b.first) + qAbs(a.second - b.second);
}

bool IsUsable(QRectF const& bounds)
{
    return qIsFinite(bounds.left()) && qIsFinite(bounds.top()) && qAbs(bounds.left()) < FarthestMetre &&
           qAbs(bounds.top()) < FarthestMetre && bounds.width() < LargestPiece &&
           bounds.height() < LargestPiece;
}
} // namespace

QColor TCoverageMap::Colour()
{
    // Held exactly by the four bits that a tile has for each colour.
    return {51, 119, 68};
}

void TCoverageMap::Add(QPolygonF const& ground)
{
    QRectF const bounds = ground.boundingRect();
    if (ground.isEmpty() || !IsUsable(bounds))
        return;
    TIndex const first = IndexOf(bounds.topLeft());
    TIndex const last = IndexOf(bounds.bottomRight());
    for (int y = first.second; y <= last.second; ++y)
    {
        for (int x = first.first; x <= last.first; ++x)
        {
            TIndex const index(x, y);
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
    QPoint const pixel(qBound(0, qFloor(within.x()), TileSide - 1),
                       qBound(0, qFloor(within.y()), TileSide - 1));
    return qAlpha(tile->pixel(pixel)) != 0;
}

void TCoverageMap::Clear()
{
    m_Tiles.clear();
}

QImage& TCoverageMap::TileAt(TIndex const& index)
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

void TCoverageMap::GiveUpFarthest(TIndex const& from)
{
    auto farthest = m_Tiles.begin();
    for (auto tile = m_Tiles.begin(); tile != m_Tiles.end(); ++tile)
    {
        if (Distance(tile.key(), from) > Distance(farthest.key(), from))
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
