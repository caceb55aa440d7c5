#pragma once

#include <QString>

class TScreen;

/// What must hold on the screen of a console whenever no finger is on it. Empty when all of it does, else
/// what does not.
QString BrokenInvariant(TScreen* screen);
