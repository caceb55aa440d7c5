#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TGnssWindows.h"

/// Where the machine is, how well that is known, and by which satellites. Its two mini windows share one
/// button.
class TGnssModule : public IConsoleModule
{
public:
    explicit TGnssModule(TMachine const& machine);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCanvas m_Canvas;
    TGnssFullWindow m_FullWindow;
    TGnssFixMiniWindow m_FixWindow;
    TGnssSkyMiniWindow m_SkyWindow;
};
