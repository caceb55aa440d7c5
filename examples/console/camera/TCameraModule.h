#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCameraOverlay.h"
#include "TCameraWindows.h"
#include "TCanvas.h"

/// The camera behind the machine.
class TCameraModule : public IConsoleModule
{
public:
    TCameraModule(TMachine const& machine, TCameraXVOverlayManager const* overlays);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCameraOverlay m_Overlay;
    TCanvas m_Canvas;
    TCameraFullWindow m_FullWindow;
    TCameraMiniWindow m_MiniWindow;
};
