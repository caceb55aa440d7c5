#pragma once

#include <QPointF>

#include <vector>

/// Where a machine stands on its way, and whether it works there.
struct TPose
{
    QPointF position;     ///< m east and south
    double heading = 0.0; ///< degrees clockwise from north, 0 to below 360
};

/// A closed way made of straight lines and arcs that join without a kink.
class TFieldPath
{
public:
    /// Up and down the field on \a passes parallel rows (an even number) of \a length metres, \a spacing
    /// apart, with half turns at the ends, and back along the headland to the start. Begins at the origin
    /// towards the north; the rows follow to the east.
    static TFieldPath Rows(int passes, double length, double spacing);

    /// In metres.
    double Length() const { return m_Length; }
    /// After \a distance metres from the start; it goes round and round.
    TPose At(double distance) const;

private:
    struct TSegment
    {
        double begin = 0.0; ///< metres from the start
        double length = 0.0;
        TPose pose;
        double radius = 0.0; ///< m; positive turns right, negative left, 0 goes straight
    };

    void Forward(double length);
    void Turn(double radius, double degrees);
    void Append(TSegment const& segment);
    static TPose Along(TSegment const& segment, double distance);

    std::vector<TSegment> m_Segments;
    TPose m_End;
    double m_Length = 0.0;
};
