#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TMachineSetupWindow.h"

class TJob;
class TMachine;

/// The setup of the console, which takes the whole screen.
class TSetupModule : public IConsoleModule
{
public:
    TSetupModule(TMachine* machine, TJob* job);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCanvas m_Canvas;
    TMachineSetupWindow m_Window;
};
