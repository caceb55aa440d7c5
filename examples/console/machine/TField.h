#pragma once

#include <QPointF>
#include <QPolygonF>

/// The field that is worked, and the parallel lines to drive on. All lengths in metres on a plane whose x
/// points east and whose y points south, so that north is up on the screen.
struct TField
{
    QPolygonF boundary; ///< empty while unknown
    QPolygonF workArea; ///< where the sprayer may work; empty: everywhere
    bool hasLines = false;
    QPointF lineOrigin;       ///< a point on line 0
    double lineHeading = 0.0; ///< degrees clockwise from north
    double lineSpacing = 0.0; ///< m; 0: as wide as the boom is
};
