#include "TFieldPath.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double FullTurn = 360.0;
constexpr double HalfTurn = 180.0;
constexpr double QuarterTurn = 90.0;

double Normalised(double degrees)
{
    double const rest = std::fmod(degrees, FullTurn);
    return rest < 0.0 ? rest + FullTurn : rest;
}

QPointF Direction(double heading)
{
    double const radians = qDegreesToRadians(heading);
    return {std::sin(radians), -std::cos(radians)};
}
} // namespace

TFieldPath TFieldPath::Rows(int passes, double length, double spacing)
{
    TFieldPath path;
    double const radius = spacing / 2.0;
    for (int pass = 0; pass < passes; ++pass)
    {
        path.Forward(length);
        if (pass + 1 < passes)
            path.Turn(pass % 2 == 0 ? radius : -radius, HalfTurn);
    }
    path.Turn(radius, QuarterTurn);
    path.Forward((passes - 1) * spacing - 2.0 * radius);
    path.Turn(radius, QuarterTurn);
    return path;
}

void TFieldPath::Forward(double length)
{
    Append({m_Length, length, m_End, 0.0});
}

void TFieldPath::Turn(double radius, double degrees)
{
    Append({m_Length, std::abs(radius) * qDegreesToRadians(degrees), m_End, radius});
}

void TFieldPath::Append(TSegment const& segment)
{
    m_Segments.push_back(segment);
    m_Length += segment.length;
    m_End = Along(segment, segment.length);
}

TPose TFieldPath::Along(TSegment const& segment, double distance)
{
    TPose const& start = segment.pose;
    if (segment.radius == 0.0)
        return {start.position + Direction(start.heading) * distance, start.heading};
    double const heading = start.heading + qRadiansToDegrees(distance / segment.radius);
    QPointF const toCentre = Direction(start.heading + QuarterTurn) * segment.radius;
    QPointF const fromCentre = Direction(heading + QuarterTurn) * segment.radius;
    return {start.position + toCentre - fromCentre, Normalised(heading)};
}

TPose TFieldPath::At(double distance) const
{
    if (m_Length <= 0.0)
        return {};
    double const around = std::fmod(distance, m_Length);
    double const along = around < 0.0 ? around + m_Length : around;
    auto const after =
        std::upper_bound(m_Segments.begin(), m_Segments.end(), along,
                         [](double value, TSegment const& segment) { return value < segment.begin; });
    TSegment const& segment = *std::prev(after);
    return Along(segment, along - segment.begin);
}
