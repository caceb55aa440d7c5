#include "FeatureSwitches.h"

namespace
{
// The build for a small console without bars differs from the shipped one in the switches that use this.
#ifdef COMMONUI_ALTERNATIVE_BUILD
constexpr bool AlternativeBuild = true;
#else
constexpr bool AlternativeBuild = false;
#endif
} // namespace

bool const USE_NAVIGATION_BAR = !AlternativeBuild;
bool const USE_SPECIAL_NAVIGATION_BAR = true;
bool const TASK_WINDOW_USE_FULLSCREEN = AlternativeBuild;
bool const USE_FOLDER_SELECTOR = false;
bool const USE_COMPACT_FILE_SELECTOR = false;
bool const USE_ALARM_SELECTED_TITLE = false;
bool const USE_SYSTEM_TOOLBAR = true;
bool const USE_DASHBOARD = true;
bool const USE_Q9_STYLE_WINDOW_MANAGER = false;
bool const USE_KEYBOARD_AUTOPOP = true;
bool const USE_MAP_ANTIALIASED = true;
bool const USE_MAP_SWITCHBOX_TITLEBAR = true;
bool const USE_SMALL_SCREEN_LAYOUT = false;
