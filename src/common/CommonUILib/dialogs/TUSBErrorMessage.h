#pragma once

#include "TMessageDialog.h"

/// What went wrong with a USB stick.
enum TUSBError : int
{
    USB_ERROR_NO_SPACE = 0,
    USB_ERROR_WRITE = 1,
    USB_ERROR_READ = 2,
    USB_ERROR_UNKNOWN = 3
};

/// Tells of a failed USB operation, to the operator and to the console's trouble codes. For a stick that is
/// missing see TInsertUSBMessage. GUI thread only.
class COMMONUILIB_EXPORT TUSBErrorMessage : public TMessageDialog
{
    Q_OBJECT

public:
    explicit TUSBErrorMessage(QWidget* parent);

    void Setup() override;

public Q_SLOTS:
    /// Reports the error once, and shows the message, not modally. A value that is no TUSBError does nothing.
    void OnUSBError(TUSBError error);

private:
    QStringList m_Messages; // by TUSBError
};
