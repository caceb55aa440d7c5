#pragma once

#include "CommonUILibExport.h"

/// \file
/// What this build of the toolkit is made to do. Read at run time through their names.

/// The screen has navigation bars; without them it has one TNavigationWindow.
extern COMMONUILIB_EXPORT bool const USE_NAVIGATION_BAR;
/// Setup and action buttons have a bar of their own below the first. Needs USE_NAVIGATION_BAR.
extern COMMONUILIB_EXPORT bool const USE_SPECIAL_NAVIGATION_BAR;
/// Task windows take the whole screen and have frames without a shadow.
extern COMMONUILIB_EXPORT bool const TASK_WINDOW_USE_FULLSCREEN;
/// File lists choose their folder with a selector.
extern COMMONUILIB_EXPORT bool const USE_FOLDER_SELECTOR;
/// File lists take their compact form.
extern COMMONUILIB_EXPORT bool const USE_COMPACT_FILE_SELECTOR;
/// The alarm setup shows the chosen alarm in its title.
extern COMMONUILIB_EXPORT bool const USE_ALARM_SELECTED_TITLE;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_SYSTEM_TOOLBAR;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_DASHBOARD;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_Q9_STYLE_WINDOW_MANAGER;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_KEYBOARD_AUTOPOP;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_MAP_ANTIALIASED;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_MAP_SWITCHBOX_TITLEBAR;
/// For modules; the toolkit itself does not read it.
extern COMMONUILIB_EXPORT bool const USE_SMALL_SCREEN_LAYOUT;
