#include "TCameraXVOverlayManager.h"

#include "ModuleIds.h"

#include <QPointer>

namespace
{
bool IsCameraSurface(KVN::MorvaneID const& id)
{
    return id == KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_CAMERA]);
}
} // namespace

void TCameraXVOverlayManager::SetFlag(bool& flag, bool value, TNotice notice)
{
    if (flag == value)
        return;
    flag = value;
    Q_EMIT(this->*notice)(value);
}

void TCameraXVOverlayManager::ShowingFlyoutWindow()
{
    SetFlag(m_FlyoutWindowVisible, true, &TCameraXVOverlayManager::FlyoutWindowVisible);
}

void TCameraXVOverlayManager::HidingFlyoutWindow()
{
    SetFlag(m_FlyoutWindowVisible, false, &TCameraXVOverlayManager::FlyoutWindowVisible);
}

void TCameraXVOverlayManager::ShowingAlarm(QObject* alarm)
{
    QPointer<TCameraXVOverlayManager> const self(this);
    SetFlag(m_AlarmVisible, true, &TCameraXVOverlayManager::AlarmVisible);
    if (self)
        m_Alarms.append(alarm);
}

void TCameraXVOverlayManager::HidingAlarm(QObject* alarm)
{
    m_Alarms.removeAll(alarm);
    if (m_Alarms.isEmpty())
        SetFlag(m_AlarmVisible, false, &TCameraXVOverlayManager::AlarmVisible);
}

void TCameraXVOverlayManager::StartScreenShot()
{
    Q_EMIT NotifyScreenShot(true);
}

void TCameraXVOverlayManager::FinishScreenShot()
{
    Q_EMIT NotifyScreenShot(false);
}

void TCameraXVOverlayManager::OnAnnotationShowing()
{
    SetFlag(m_AnnotationVisible, true, &TCameraXVOverlayManager::AnnotationVisible);
}

void TCameraXVOverlayManager::OnAnnotationHiding()
{
    SetFlag(m_AnnotationVisible, false, &TCameraXVOverlayManager::AnnotationVisible);
}

void TCameraXVOverlayManager::OnPopupWindowStackEmptyChanged(KVN::MorvaneID appID, bool empty)
{
    if (IsCameraSurface(appID))
        SetFlag(m_PopupVisible, !empty, &TCameraXVOverlayManager::PopupVisible);
}

void TCameraXVOverlayManager::OnTaskWindowStackEmptyChanged(KVN::MorvaneID appID, bool empty)
{
    if (IsCameraSurface(appID))
        SetFlag(m_TaskWindowVisible, !empty, &TCameraXVOverlayManager::TaskWindowVisible);
}
