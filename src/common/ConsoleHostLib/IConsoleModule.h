#pragma once

#include "ConsoleHostLibExport.h"

class TScreen;

/// What a host knows of a module: it puts its views on the screen, and it goes before the screen does.
///
/// The windows and canvases stay the module's own; its destructor deletes them while the screen still stands.
/// GUI thread only.
class CONSOLEHOSTLIB_EXPORT IConsoleModule
{
public:
    virtual ~IConsoleModule();

    /// Assigns the module's navigation buttons. Called once; the screen is complete and stored in MainScreen,
    /// and not shown yet.
    virtual void RegisterViews(TScreen* screen) = 0;
};
