#pragma once

#include "MorvaneID.h"

/// What elements of the menus do with the views of their modules, on whichever canvas they were pressed.
namespace MenuViews
{
/// The full view of the module \a id, unless it is up already. Nothing without a screen.
void ShowFullView(KVN::MorvaneID const& id);
} // namespace MenuViews
