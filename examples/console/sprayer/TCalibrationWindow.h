#pragma once

#include "TTaskWindow.h"

class TMachine;
class TPushButton;
class TValueField;

/// Asks how much the nozzles gave in a test with a jug, and works out by how much the flow meter is wrong.
/// OK takes that over, Cancel leaves the machine as it is.
class TCalibrationWindow : public TTaskWindow
{
    Q_OBJECT

public:
    TCalibrationWindow(QWidget* parent, TMachine* machine);

    void Setup() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* MakeCaughtRow();
    void StepCaught(int steps);
    double Factor() const;
    void Sync();

    TMachine* m_Machine;
    /// In steps, so that plus and minus come back to where they began.
    int m_CaughtSteps = 0;
    TValueField* m_Expected = nullptr;
    TValueField* m_Caught = nullptr;
    TValueField* m_Correction = nullptr;
    TPushButton* m_Less = nullptr;
    TPushButton* m_More = nullptr;
};
