#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TSprayerFullWindow.h"
#include "TSprayerMiniWindow.h"
#include "TTankMessages.h"

/// The sprayer: its sections, its tank and how much it puts on the field.
class TSprayerModule : public IConsoleModule
{
public:
    explicit TSprayerModule(TMachine* machine);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCanvas m_Canvas;
    TSprayerFullWindow m_FullWindow;
    TSprayerMiniWindow m_MiniWindow;
    TTankMessages m_Messages;
};
