#include "TCameraXVOverlayManager.h"
#include "ModuleIds.h"
#include "TestCase.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

namespace
{
KVN::MorvaneID CameraId()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_CAMERA]);
}

QList<bool> Values(QSignalSpy const& spy)
{
    QList<bool> values;
    for (QVariantList const& arguments : spy)
        values.append(arguments.at(0).toBool());
    return values;
}
} // namespace

class TCameraXVOverlayManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoAlarmsAreOneUntilTheSecondGoes()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        QObject first;
        QObject second;
        manager.ShowingAlarm(&first);
        manager.ShowingAlarm(&second);
        QCOMPARE(Values(alarms), (QList<bool>{true}));
        manager.HidingAlarm(&first);
        QCOMPARE(alarms.count(), 1);
        manager.HidingAlarm(&second);
        QCOMPARE(Values(alarms), (QList<bool>{true, false}));
    }

    void anAlarmShownTwiceIsHiddenByOneCall()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        QObject alarm;
        manager.ShowingAlarm(&alarm);
        manager.ShowingAlarm(&alarm);
        manager.HidingAlarm(&alarm);
        QCOMPARE(Values(alarms), (QList<bool>{true, false}));
    }

    void anUnknownAlarmClearsTheFlagOfAnEmptyList()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        QObject alarm;
        QObject unknown;
        // The one way to an empty list with the flag set: an alarm is in the list only after it was told.
        auto const connection = connect(&manager, &TCameraXVOverlayManager::AlarmVisible, &manager,
                                        [&](bool visible)
                                        {
                                            if (visible)
                                                manager.HidingAlarm(&unknown);
                                        });
        manager.ShowingAlarm(&alarm);
        disconnect(connection);
        QCOMPARE(Values(alarms), (QList<bool>{true, false}));
        manager.HidingAlarm(&alarm);
        QCOMPARE(alarms.count(), 2);
    }

    void anUnknownAlarmLeavesTheOthersShowing()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        QObject alarm;
        QObject unknown;
        manager.ShowingAlarm(&alarm);
        manager.HidingAlarm(&unknown);
        QCOMPARE(Values(alarms), (QList<bool>{true}));
    }

    void hidingAnAlarmWhileNoneShowsSaysNothing()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        manager.HidingAlarm(this);
        QCOMPARE(alarms.count(), 0);
    }

    void stacksOfOtherModulesDoNotCount()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy popups(&manager, &TCameraXVOverlayManager::PopupVisible);
        QSignalSpy tasks(&manager, &TCameraXVOverlayManager::TaskWindowVisible);
        KVN::MorvaneID const other(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]);
        manager.OnPopupWindowStackEmptyChanged(other, false);
        manager.OnTaskWindowStackEmptyChanged(other, false);
        manager.OnPopupWindowStackEmptyChanged(KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_CAMERA], 1), false);
        QCOMPARE(popups.count(), 0);
        QCOMPARE(tasks.count(), 0);
    }

    void theCamerasStacksAreToldOnEachChangeOnly()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy popups(&manager, &TCameraXVOverlayManager::PopupVisible);
        QSignalSpy tasks(&manager, &TCameraXVOverlayManager::TaskWindowVisible);
        for (bool const empty : {true, false, false, true})
        {
            manager.OnPopupWindowStackEmptyChanged(CameraId(), empty);
            manager.OnTaskWindowStackEmptyChanged(CameraId(), empty);
        }
        QCOMPARE(Values(popups), (QList<bool>{true, false}));
        QCOMPARE(Values(tasks), (QList<bool>{true, false}));
    }

    void flyoutsAndAnnotationsAreToldOnEachChangeOnly()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy flyouts(&manager, &TCameraXVOverlayManager::FlyoutWindowVisible);
        QSignalSpy annotations(&manager, &TCameraXVOverlayManager::AnnotationVisible);
        manager.HidingFlyoutWindow();
        manager.OnAnnotationHiding();
        for (int i = 0; i < 2; ++i)
        {
            manager.ShowingFlyoutWindow();
            manager.OnAnnotationShowing();
        }
        QCOMPARE(Values(flyouts), (QList<bool>{true}));
        QCOMPARE(Values(annotations), (QList<bool>{true}));
        for (int i = 0; i < 2; ++i)
        {
            manager.HidingFlyoutWindow();
            manager.OnAnnotationHiding();
        }
        QCOMPARE(Values(flyouts), (QList<bool>{true, false}));
        QCOMPARE(Values(annotations), (QList<bool>{true, false}));
    }

    void anAlarmThatDiesIsOnlyCompared()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy alarms(&manager, &TCameraXVOverlayManager::AlarmVisible);
        auto alarm = std::make_unique<QObject>();
        QObject* const dead = alarm.get();
        manager.ShowingAlarm(dead);
        alarm.reset();
        manager.HidingAlarm(dead);
        QCOMPARE(Values(alarms), (QList<bool>{true, false}));
    }

    void theManagerMayEndInItsSignals()
    {
        QPointer<TCameraXVOverlayManager> manager = new TCameraXVOverlayManager;
        connect(manager, &TCameraXVOverlayManager::AlarmVisible, this, [&] { delete manager.data(); });
        manager->ShowingAlarm(this);
        QVERIFY(!manager);
    }

    void theSignalsStandInTheirOrder()
    {
        QByteArrayList names;
        QMetaObject const& manager = TCameraXVOverlayManager::staticMetaObject;
        for (int i = manager.methodOffset(); i < manager.methodCount(); ++i)
        {
            if (manager.method(i).methodType() == QMetaMethod::Signal)
                names << manager.method(i).name();
        }
        QCOMPARE(names, (QByteArrayList{"PopupVisible", "AnnotationVisible", "AlarmVisible",
                                        "TaskWindowVisible", "FlyoutWindowVisible", "NotifyScreenShot"}));
    }

    void aScreenshotIsBracketed()
    {
        TCameraXVOverlayManager manager;
        QSignalSpy shots(&manager, &TCameraXVOverlayManager::NotifyScreenShot);
        manager.StartScreenShot();
        manager.FinishScreenShot();
        QCOMPARE(Values(shots), (QList<bool>{true, false}));
    }
};

COMMONUI_TEST(TCameraXVOverlayManagerTest)
#include "TCameraXVOverlayManagerTest.moc"
