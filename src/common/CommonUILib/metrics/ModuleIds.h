#pragma once

#include "CommonUILibExport.h"

#include <QUuid>

#include <array>

/// Number of module identifiers that the toolkit knows.
constexpr int WELL_KNOWN_MODULE_COUNT = 29;

/// Places in WELL_KNOWN_MODULES of the modules that the toolkit treats in a way of their own.
enum EWellKnownModule
{
    MODULE_CAMERA = 1,            ///< its stacks of windows stand above a video overlay
    MODULE_SETUP_MANAGER = 2,     ///< its view takes the whole screen
    MODULE_INVENTOR_MANAGER = 25, ///< limits the system tool bar
    MODULE_LIMITED_TOOLBAR = 27   ///< limits the system tool bar
};

/// The identifiers that modules of the console have had since their first release.
extern COMMONUILIB_EXPORT std::array<QUuid, WELL_KNOWN_MODULE_COUNT> const WELL_KNOWN_MODULES;
