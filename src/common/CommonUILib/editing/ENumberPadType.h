#pragma once

/// What the operator enters on a number pad.
enum ENumberPadType : int
{
    NUMBER_PAD_DECIMAL = 0,
    NUMBER_PAD_TIME = 1, ///< hours as a fraction
    NUMBER_PAD_DATE = 2, ///< Julian day number
    NUMBER_PAD_IP_ADDRESS = 3
};
