#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TGnssMenu.h"
#include "TGnssWindows.h"
#include "TMenuCanvas.h"

/// Where the machine is, how well that is known, and by which satellites, with its menus. Its two mini
/// windows share one button.
class TGnssModule : public IConsoleModule
{
public:
    /// Both have to live longer.
    TGnssModule(TMachine const& machine, TConsoleMenu* menus);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TMenuCanvas m_Canvas;
    TGnssFullWindow m_FullWindow;
    TGnssFixMiniWindow m_FixWindow;
    TGnssSkyMiniWindow m_SkyWindow;
    TGnssMenu m_Menu;
};
