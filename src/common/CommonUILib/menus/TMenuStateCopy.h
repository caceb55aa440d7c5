#pragma once

#include "TElementState.h"

#include <QString>

#include <vector>

/// A menu as it was at one moment; see TMenuState::Clone().
struct TMenuStateCopy
{
    int menuID = -1;
    QString menuName;
    std::vector<TElementState> elements;
};
