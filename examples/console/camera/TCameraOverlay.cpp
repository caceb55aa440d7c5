#include "TCameraOverlay.h"

#include "TCameraXVOverlayManager.h"

TCameraOverlay::TCameraOverlay(TCameraXVOverlayManager const* manager)
{
    using TManager = TCameraXVOverlayManager;
    connect(manager, &TManager::PopupVisible, this, [this](bool on) { Set(REASON_POPUP, on); });
    connect(manager, &TManager::TaskWindowVisible, this, [this](bool on) { Set(REASON_TASK_WINDOW, on); });
    connect(manager, &TManager::AnnotationVisible, this, [this](bool on) { Set(REASON_ANNOTATION, on); });
    connect(manager, &TManager::AlarmVisible, this, [this](bool on) { Set(REASON_ALARM, on); });
    connect(manager, &TManager::FlyoutWindowVisible, this, [this](bool on) { Set(REASON_FLYOUT, on); });
    connect(manager, &TManager::NotifyScreenShot, this, [this](bool on) { Set(REASON_SCREENSHOT, on); });
}

void TCameraOverlay::Set(EReason reason, bool on)
{
    bool const wasAside = IsAside();
    m_Reasons = on ? m_Reasons | reason : m_Reasons & ~static_cast<unsigned>(reason);
    if (IsAside() != wasAside)
        Q_EMIT Changed();
}
