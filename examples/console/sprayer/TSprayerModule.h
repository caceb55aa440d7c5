#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TMenuCanvas.h"
#include "TSprayerFullWindow.h"
#include "TSprayerMenu.h"
#include "TSprayerMiniWindow.h"
#include "TTankMessages.h"

/// The sprayer: its sections, its tank and how much it puts on the field, with its menus.
class TSprayerModule : public IConsoleModule
{
public:
    /// Both have to live longer.
    TSprayerModule(TMachine* machine, TConsoleMenu* menus);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TMenuCanvas m_Canvas;
    TSprayerFullWindow m_FullWindow;
    TSprayerMiniWindow m_MiniWindow;
    TTankMessages m_Messages;
    TSprayerMenu m_Menu;
};
