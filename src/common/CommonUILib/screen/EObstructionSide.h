#pragma once

/// The edge of a surface at which something takes room.
enum EObstructionSide
{
    OBSTRUCTION_LEFT = 0,
    OBSTRUCTION_RIGHT = 1,
    OBSTRUCTION_TOP = 2,
    OBSTRUCTION_BOTTOM = 3
};
