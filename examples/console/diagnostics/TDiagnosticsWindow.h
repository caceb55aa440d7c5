#pragma once

#include "TFrameMeter.h"
#include "TFullWindow.h"

class TFrameGraph;
class TLogTail;
class TTablePanel;

/// For the service technician: frames, memory, settings and the log.
class TDiagnosticsWindow : public TFullWindow
{
    Q_OBJECT

public:
    TDiagnosticsWindow(QWidget* canvas, QWidget* screen);

    void Setup() override;
    void Refresh() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Arrange();

    TFrameMeter m_Meter;
    TFrameGraph* m_Graph = nullptr;
    TTablePanel* m_Numbers = nullptr;
    TTablePanel* m_Settings = nullptr;
    TLogTail* m_Log = nullptr;
};
