#pragma once

#include <QColor>

/// The colours of the map, for the map itself and for its legend.
namespace MapColors
{
inline QColor const Outside(27, 34, 29);
inline QColor const Soil(74, 63, 50);
inline QColor const Boundary(235, 235, 220);
inline QColor const Line(255, 255, 255, 90);
inline QColor const CurrentLine(255, 170, 40);
} // namespace MapColors
