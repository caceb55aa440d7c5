#pragma once

#include "TFix.h"
#include "TMenuElement.h"

#include <deque>

/// What the menus of the position have to know of one fix.
struct TGnssState
{
    int quality = FIX_NONE; ///< an EFixQuality; anything else counts as none
    int satellitesUsed = 0;

    bool operator==(TGnssState const& other) const
    {
        return quality == other.quality && satellitesUsed == other.satellitesUsed;
    }
};

/// The elements of the position's menus that change.
struct TGnssElements
{
    TMenuElement position;
    TMenuElement quality;
    TMenuElement satellites;
};

/// Decides how they look. For one thread.
///
/// A receiver near the edge of what it can do gives now a good fix and now a bad one. What is told is as good
/// as the last fixes are but for a few stray ones; that there is none any more is told at once.
class TGnssJudge
{
public:
    static constexpr int Window = 10;     ///< so many fixes are looked at
    static constexpr int StrayPerTen = 2; ///< so many of ten may be worse

    void SetElements(TGnssElements const& elements) { m_Elements = elements; }
    /// One fix after another.
    void Take(TGnssState const& state);

private:
    EFixQuality Judged() const;

    TGnssElements m_Elements;
    std::deque<EFixQuality> m_Fixes;
};
