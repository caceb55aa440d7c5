#pragma once

#include <QPointF>

#include <array>

/// The boom of the sprayer: sections side by side, numbered from the left, behind the antenna.
class TBoom
{
public:
    static constexpr int SectionCount = 8;
    static constexpr double StandardSectionWidth = 3.0; ///< m
    static constexpr double SmallestSectionWidth = 0.5;
    static constexpr double LargestSectionWidth = 6.0;
    static constexpr double BehindAntenna = 2.5; ///< m

    /// The ends of the sections, from the far left to the far right.
    using TEnds = std::array<QPointF, SectionCount + 1>;

    /// All sections have the standard width.
    TBoom();

    /// In metres. 0 for a number outside 0 to SectionCount - 1.
    double SectionWidth(int section) const;
    /// Held to the range; what is no number, or no section, changes nothing. True when the boom has changed.
    bool SetSectionWidth(int section, double metres);
    /// Of all sections together, in metres.
    double Width() const;
    /// How far to the right of the boom's middle the section \a section begins, in metres; for SectionCount
    /// it is the right end of the last one.
    double EdgeOf(int section) const;

    /// On the ground, for an antenna at \a antenna of a machine that heads to \a heading degrees.
    TEnds EndsAt(QPointF const& antenna, double heading) const;

    bool operator==(TBoom const& other) const { return m_Widths == other.m_Widths; }
    bool operator!=(TBoom const& other) const { return !(*this == other); }

private:
    std::array<double, SectionCount> m_Widths;
};
