#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TGuidanceFullWindow.h"
#include "TGuidanceMiniWindow.h"
#include "TMapCanvas.h"

/// Guidance: the moving map with the lines to drive on and what has been covered.
class TGuidanceModule : public IConsoleModule
{
public:
    explicit TGuidanceModule(TMachine const& machine);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TMapCanvas m_Canvas;
    TGuidanceFullWindow m_FullWindow;
    TGuidanceMiniWindow m_MiniWindow;
};
