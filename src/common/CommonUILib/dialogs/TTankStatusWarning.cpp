#include "TTankStatusWarning.h"

TTankStatusWarning::TTankStatusWarning(QWidget* parent)
    : TMessageDialog(parent, tr("Virtual Tank Switch"),
                     tr("The virtual tank switch is not available. To use this button change the implement's "
                        "cabin/calibration switch box configuration."),
                     MESSAGE_OK)
{
}

void TTankStatusWarning::OnTankStatusWarning()
{
    ShowWindow(false);
}
