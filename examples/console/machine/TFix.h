#pragma once

#include <QMetaType>

/// How good a position is; the better the later.
enum EFixQuality : int // so that any number is defined, if none of these
{
    FIX_NONE,
    FIX_ESTIMATED,
    FIX_GNSS,
    FIX_DIFFERENTIAL,
    FIX_RTK_FLOAT,
    FIX_RTK
};

/// Where the antenna is and how it moves. Without a fix the rest means nothing.
struct TFix
{
    EFixQuality quality = FIX_NONE;
    double latitude = 0.0;  ///< degrees, north positive
    double longitude = 0.0; ///< degrees, east positive
    double altitude = 0.0;  ///< m above the sea
    double heading = 0.0;   ///< degrees clockwise from north, 0 to below 360
    double speed = 0.0;     ///< m/s, not negative
    double dilution = 0.0;  ///< horizontal dilution of precision, 0 for unknown
    int satellitesUsed = 0;

    bool IsValid() const { return quality != FIX_NONE; }
};

Q_DECLARE_METATYPE(TFix)

/// One satellite above the horizon.
struct TSatellite
{
    int id = 0;
    int elevation = 0; ///< degrees above the horizon
    int azimuth = 0;   ///< degrees clockwise from north
    int strength = -1; ///< dB-Hz; -1 while it is not received
};
