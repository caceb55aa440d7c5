#pragma once

#include "EObstructionSide.h"

/// The room that something takes at one edge, in global coordinates, all four inclusive.
struct TObstructionData
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    EObstructionSide side = OBSTRUCTION_LEFT;
};
