#pragma once

#include "TFrameMeter.h"
#include "TFullWindow.h"

class TFrameGraph;
class TJob;
class TLogTail;
class TTablePanel;

/// For the service technician: frames, memory, the job, settings and the log.
class TDiagnosticsWindow : public TFullWindow
{
    Q_OBJECT

public:
    TDiagnosticsWindow(QWidget* canvas, QWidget* screen, TJob const& job);

    void Setup() override;
    void Refresh() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Arrange();

    TJob const& m_Job;
    TFrameMeter m_Meter;
    TFrameGraph* m_Graph = nullptr;
    TTablePanel* m_Numbers = nullptr;
    TTablePanel* m_Settings = nullptr;
    TLogTail* m_Log = nullptr;
};
