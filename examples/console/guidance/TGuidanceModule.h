#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TGuidanceFullWindow.h"
#include "TGuidanceMenu.h"
#include "TGuidanceMiniWindow.h"
#include "TMapCanvas.h"

/// Guidance: the moving map with the lines to drive on and what has been covered,
/// with its menus.
class TGuidanceModule : public IConsoleModule
{
public:
    /// Both have to live longer.
    TGuidanceModule(TMachine* machine, TConsoleMenu* menus);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TMapCanvas m_Canvas;
    TGuidanceFullWindow m_FullWindow;
    TGuidanceMiniWindow m_MiniWindow;
    TGuidanceMenu m_Menu;
};
