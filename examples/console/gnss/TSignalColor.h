#pragma once

#include <QColor>

/// Dark enough for white text: the stronger a signal is, the greener; grey while it is not received.
inline QColor SignalColor(int strength)
{
    constexpr int Good = 40;
    constexpr int Fair = 32;
    if (strength < 0)
        return {86, 90, 96};
    if (strength >= Good)
        return {35, 110, 60};
    return strength >= Fair ? QColor(132, 98, 14) : QColor(150, 28, 28);
}
