#pragma once

#include <QImage>
#include <QMap>
#include <QPair>
#include <QPolygonF>

class QColor;
class QPainter;

/// What has been worked, as a picture of the ground in square tiles that come into being where the machine
/// works. The memory is bounded: beyond MaxTiles the tile farthest from the newest one is given up.
class TCoverageMap
{
public:
    static constexpr int PixelsPerMetre = 4;
    /// Pixels of a tile's side.
    static constexpr int TileSide = 256;
    /// About 78 hectares, in 24 MB.
    static constexpr int MaxTiles = 192;

    /// Marks a piece of ground, in metres east and south. Pieces that are not finite or absurdly large are
    /// ignored.
    void Add(QPolygonF const& ground);
    bool IsCovered(QPointF const& point) const;
    void Clear();
    int TileCount() const { return m_Tiles.size(); }

    /// Draws what lies in \a ground with a painter whose units are metres east and south.
    void Paint(QPainter* painter, QRectF const& ground) const;

    static QColor Colour();

    /// Tiles count from the origin to the east and to the south.
    using TIndex = QPair<int, int>;

private:
    QImage& TileAt(TIndex const& index);
    void GiveUpFarthest(TIndex const& from);

    QMap<TIndex, QImage> m_Tiles;
};
