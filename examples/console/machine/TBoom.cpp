#include "TBoom.h"

#include <QtMath>

#include <cmath>
#include <numeric>

namespace
{
bool IsSection(int section)
{
    return section >= 0 && section < TBoom::SectionCount;
}
} // namespace

TBoom::TBoom()
{
    m_Widths.fill(StandardSectionWidth);
}

double TBoom::SectionWidth(int section) const
{
    return IsSection(section) ? m_Widths[static_cast<size_t>(section)] : 0.0;
}

bool TBoom::SetSectionWidth(int section, double metres)
{
    if (!IsSection(section) || std::isnan(metres))
        return false;
    double const held = qBound(SmallestSectionWidth, metres, LargestSectionWidth);
    if (held == SectionWidth(section))
        return false;
    m_Widths[static_cast<size_t>(section)] = held;
    return true;
}

double TBoom::Width() const
{
    return std::accumulate(m_Widths.begin(), m_Widths.end(), 0.0);
}

double TBoom::EdgeOf(int section) const
{
    auto const count = qBound(0, section, SectionCount);
    return std::accumulate(m_Widths.begin(), m_Widths.begin() + count, -Width() / 2.0);
}

TBoom::TEnds TBoom::EndsAt(QPointF const& antenna, double heading) const
{
    double const radians = qDegreesToRadians(heading);
    QPointF const ahead(std::sin(radians), -std::cos(radians));
    QPointF const right(std::cos(radians), std::sin(radians));
    QPointF const middle = antenna - ahead * BehindAntenna;
    TEnds ends;
    for (int i = 0; i <= SectionCount; ++i)
        ends[static_cast<size_t>(i)] = middle + right * EdgeOf(i);
    return ends;
}
