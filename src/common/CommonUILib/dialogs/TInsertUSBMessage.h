#pragma once

#include "TMessageDialog.h"

/// Asks for a USB stick that is not there. For a stick that failed see TUSBErrorMessage. GUI thread only.
class COMMONUILIB_EXPORT TInsertUSBMessage : public TMessageDialog
{
    Q_OBJECT

public:
    explicit TInsertUSBMessage(QWidget* parent);
};
