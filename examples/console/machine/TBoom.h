#pragma once

#include <QPointF>

#include <array>

/// The boom of the sprayer: sections side by side, numbered from the left, behind the antenna.
namespace TBoom
{
constexpr int SectionCount = 8;
constexpr double SectionWidth = 3.0;                  ///< m
constexpr double Width = SectionCount * SectionWidth; ///< m
constexpr double BehindAntenna = 2.5;                 ///< m

/// The ends of the sections on the ground, from the far left to the far right.
using TEnds = std::array<QPointF, SectionCount + 1>;

/// For an antenna at \a antenna of a machine that heads to \a heading degrees.
TEnds EndsAt(QPointF const& antenna, double heading);
} // namespace TBoom
