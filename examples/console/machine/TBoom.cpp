#include "TBoom.h"

#include <QtMath>

#include <cmath>

TBoom::TEnds TBoom::EndsAt(QPointF const& antenna, double heading)
{
    double const radians = qDegreesToRadians(heading);
    QPointF const ahead(std::sin(radians), -std::cos(radians));
    QPointF const right(std::cos(radians), std::sin(radians));
    QPointF const middle = antenna - ahead * BehindAntenna;
    TEnds ends;
    for (size_t i = 0; i < ends.size(); ++i)
        ends[i] = middle + right * (static_cast<double>(i) * SectionWidth - Width / 2.0);
    return ends;
}
