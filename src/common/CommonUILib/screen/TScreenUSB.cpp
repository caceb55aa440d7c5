#include "TExternalDrive.h"
#include "TInsertUSBMessage.h"
#include "TScreen.h"

void TScreen::SetupUSBButton()
{
    if (m_InsertUSBMessage)
        return;
    m_EjectedMessage = std::make_unique<TMessageDialog>(
        this, tr("Eject USB"), tr("The USB device is safe to remove now."), MESSAGE_OK);
    m_EjectFailedMessage = std::make_unique<TMessageDialog>(
        this, tr("USB Eject Failed"),
        tr("USB Eject failed. The device may be busy right now. Try again in a moment."), MESSAGE_OK);
    m_InsertUSBMessage = std::make_unique<TInsertUSBMessage>(this);
    connect(m_ExternalDrive.get(), &TExternalDrive::EjectFinished, this,
            [this](bool ejected) { (ejected ? m_EjectedMessage : m_EjectFailedMessage)->ShowWindow(false); });
}

void TScreen::OnUSBButtonClick()
{
    if (m_InsertUSBMessage && !m_ExternalDrive->Eject())
        m_InsertUSBMessage->ShowWindow(false);
}
