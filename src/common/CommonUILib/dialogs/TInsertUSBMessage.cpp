#include "TInsertUSBMessage.h"

TInsertUSBMessage::TInsertUSBMessage(QWidget* parent)
    : TMessageDialog(parent, tr("No External Media Detected"),
                     tr("Please insert a USB storage device and try again."), MESSAGE_OK)
{
}
