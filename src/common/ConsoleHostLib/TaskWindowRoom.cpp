#include "TaskWindowRoom.h"

#include "FeatureSwitches.h"
#include "Metrics.h"
#include "TCanvas.h"
#include "TObstructionManager.h"
#include "TObstructionManagerHelpers.h"
#include "TScreen.h"
#include "TTaskWindow.h"

namespace
{
using THelpers = TObstructionManagerHelpers;

// Without what no task window ever covers: the system tool bar and the menus of the view.
int RightEdge(TScreen& screen)
{
    int const usable = screen.GetUsableRect().right() + 1;
    TCanvas const* const canvas = screen.GetCurrentCanvas();
    return canvas && canvas->HasMenus() ? qMin(usable, screen.width() - TASK_TOOLBAR_BUTTON_WIDTH) : usable;
}

// The part of the screen to the right of \a left that nothing at the other edges obstructs.
QRect RoomRightOf(TScreen& screen, int left)
{
    QList<TObstructionData> const data = screen.GetObstructionManager()->GetObstructionData();
    int const right =
        qMin(RightEdge(screen),
             THelpers::GetObstructionLimitBetween(&screen, data, OBSTRUCTION_RIGHT, 0, screen.height() - 1));
    // The system tool bar stands at the bottom too, but beside this part.
    int const last = qMax(left, right - 1);
    int const top = THelpers::GetObstructionLimitBetween(&screen, data, OBSTRUCTION_TOP, left, last);
    int const bottom = THelpers::GetObstructionLimitBetween(&screen, data, OBSTRUCTION_BOTTOM, left, last);
    int const gap = TASK_WINDOW_USE_FULLSCREEN ? 0 : TASK_WINDOW_TOOLBAR_GAP;
    return {left + gap, top + gap, qMax(0, right - left - 2 * gap), qMax(0, bottom - top - 2 * gap)};
}
} // namespace

QRect TaskWindowPlace(TScreen& screen, TTaskWindow const& window)
{
    QList<TObstructionData> const data = screen.GetObstructionManager()->GetObstructionData();
    int const besideMiniWindows =
        THelpers::GetObstructionLimitBetween(&screen, data, OBSTRUCTION_LEFT, 0, screen.height() - 1);
    int const besideBar = screen.IsNavigationBarVisible() ? NAVBAR_WIDTH : 0;
    QRect const narrow = RoomRightOf(screen, besideMiniWindows);
    QRect const wide = RoomRightOf(screen, qMin(besideBar, besideMiniWindows));
    bool const fits = window.PlaceIn(wide).width() <= narrow.width();
    return window.PlaceIn(fits || !window.WillHideMiniviewsOnShow() ? narrow : wide);
}
