#include "TUSBErrorMessage.h"

#include "TroubleCodeManager.h"

#include <QCoreApplication>

namespace
{
constexpr char ErrorCategory[] = "E";
// As it stands in every language, so that the service finds it.
constexpr char ErrorPrefix[] = "USB Operation Error: ";

// By TUSBError.
constexpr char const* ErrorNames[] = {
    QT_TRANSLATE_NOOP("TUSBErrorMessage", "No space"),
    QT_TRANSLATE_NOOP("TUSBErrorMessage", "Write error"),
    QT_TRANSLATE_NOOP("TUSBErrorMessage", "Read error"),
    QT_TRANSLATE_NOOP("TUSBErrorMessage", "Unknown error"),
};
} // namespace

TUSBErrorMessage::TUSBErrorMessage(QWidget* parent)
    : TMessageDialog(parent, tr("USB Operation Error"), QString(), MESSAGE_OK)
{
}

void TUSBErrorMessage::Setup()
{
    TMessageDialog::Setup();
    for (int error = USB_ERROR_NO_SPACE; error <= USB_ERROR_UNKNOWN; ++error)
        m_Messages << tr(
            "The USB operation has failed to complete correctly. Please check USB and try again.");
}

void TUSBErrorMessage::OnUSBError(TUSBError error)
{
    if (error < USB_ERROR_NO_SPACE || error > USB_ERROR_UNKNOWN)
        return;
    QPointer<TUSBErrorMessage> const self(this);
    TroubleCodeManager::Instance()->Report(QLatin1String(ErrorCategory),
                                           QLatin1String(ErrorPrefix) + tr(ErrorNames[error]));
    if (!self)
        return;
    SetupIfRequired();
    SetMessage(m_Messages.at(error));
    if (self)
        ShowWindow(false);
}
