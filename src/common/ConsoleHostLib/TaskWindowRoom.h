#pragma once

#include <QRect>

class TScreen;
class TTaskWindow;

/// \file
/// The room that bars, dashboard and mini windows leave to task windows. Private to the library.

/// Where \a window goes on \a screen: beside the mini windows if it fits there, else over them, as far as it
/// makes them give way.
QRect TaskWindowPlace(TScreen& screen, TTaskWindow const& window);
