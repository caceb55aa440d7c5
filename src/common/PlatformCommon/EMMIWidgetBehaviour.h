#pragma once

/// How the wheel treats a widget; see KVN::MMICapableWidget.
enum EMMIWidgetBehaviour
{
    MMI_NORMAL = 0,      ///< a stop of the wheel; enter asks it through OnMMIEnter()
    MMI_WHEEL_OWNER = 1, ///< a stop; a first enter pushes it, then it gets the wheel and enter itself
    MMI_EXCLUDED = 2,    ///< not a stop, and nothing beneath it is either
    MMI_TRANSPARENT = 3  ///< not a stop, but its children count as its parent's
};
