#pragma once

#include "CommonUILibExport.h"
#include "MorvaneID.h"

#include <QList>
#include <QObject>

/// Tells the camera module when something must be seen above its picture, which hardware draws over all
/// widgets. Keeps one flag for each kind of thing and signals only a change. The screen owns the one
/// instance. GUI thread only.
class COMMONUILIB_EXPORT TCameraXVOverlayManager : public QObject
{
    Q_OBJECT

public:
    TCameraXVOverlayManager() = default;

    /// A window that flies out over the view opened or closed.
    void ShowingFlyoutWindow();
    void HidingFlyoutWindow();

    /// An alarm came up or went; for the alarm module of the host. \a alarm is only compared, never used.
    void ShowingAlarm(QObject* alarm);
    void HidingAlarm(QObject* alarm);

    /// Bracket a screenshot: the overlay is not in a grab of the widgets.
    void StartScreenShot();
    void FinishScreenShot();

Q_SIGNALS:
    void PopupVisible(bool visible);
    void AnnotationVisible(bool visible);
    void AlarmVisible(bool visible);
    void TaskWindowVisible(bool visible);
    void FlyoutWindowVisible(bool visible);
    /// True when a screenshot starts, false when it is done.
    void NotifyScreenShot(bool starting);

public Q_SLOTS:
    void OnAnnotationShowing();
    void OnAnnotationHiding();
    /// The stack of popups of \a appID emptied or filled. Only the camera's own stack counts.
    void OnPopupWindowStackEmptyChanged(KVN::MorvaneID appID, bool empty);
    /// The same for task windows.
    void OnTaskWindowStackEmptyChanged(KVN::MorvaneID appID, bool empty);

private:
    using TNotice = void (TCameraXVOverlayManager::*)(bool);
    void SetFlag(bool& flag, bool value, TNotice notice);

    bool m_PopupVisible = false;
    bool m_TaskWindowVisible = false;
    bool m_AnnotationVisible = false;
    bool m_AlarmVisible = false;
    bool m_FlyoutWindowVisible = false;
    QList<QObject*> m_Alarms;
};
