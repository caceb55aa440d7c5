#pragma once

#include "IConsoleModule.h"
#include "MorvaneID.h"
#include "TCanvas.h"
#include "TDiagnosticsWindow.h"

/// What the console knows about itself. Its button brings it up and sends it back.
class TDiagnosticsModule : public IConsoleModule
{
public:
    explicit TDiagnosticsModule(QWidget* screen);

    static KVN::MorvaneID Id();
    void RegisterViews(TScreen* screen) override;

private:
    TCanvas m_Canvas;
    TDiagnosticsWindow m_Window;
};
