#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TDiagnosticsWindow.h"

class TJob;

/// What the console knows about itself. Its button brings it up and sends it back.
class TDiagnosticsModule : public IConsoleModule
{
public:
    TDiagnosticsModule(QWidget* screen, TJob const& job);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCanvas m_Canvas;
    TDiagnosticsWindow m_Window;
};
