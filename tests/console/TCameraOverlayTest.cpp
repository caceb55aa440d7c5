#include "TCameraOverlay.h"

#include "ModuleIds.h"
#include "TCameraXVOverlayManager.h"
#include "TestCase.h"

#include <functional>

using TManager = TCameraXVOverlayManager;
Q_DECLARE_METATYPE(std::function<void(TManager&)>)

namespace
{
KVN::MorvaneID CameraId()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_CAMERA]);
}
} // namespace

class TCameraOverlayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingAboveThePictureMovesItAside_data()
    {
        using TAct = std::function<void(TManager&)>;
        QTest::addColumn<TAct>("show");
        QTest::addColumn<TAct>("hide");
        QTest::newRow("popup") << TAct([](TManager& m)
                                       { m.OnPopupWindowStackEmptyChanged(CameraId(), false); })
                               << TAct([](TManager& m)
                                       { m.OnPopupWindowStackEmptyChanged(CameraId(), true); });
        QTest::newRow("task window") << TAct([](TManager& m)
                                             { m.OnTaskWindowStackEmptyChanged(CameraId(), false); })
                                     << TAct([](TManager& m)
                                             { m.OnTaskWindowStackEmptyChanged(CameraId(), true); });
        QTest::newRow("annotation") << TAct([](TManager& m) { m.OnAnnotationShowing(); })
                                    << TAct([](TManager& m) { m.OnAnnotationHiding(); });
        QTest::newRow("flyout") << TAct([](TManager& m) { m.ShowingFlyoutWindow(); })
                                << TAct([](TManager& m) { m.HidingFlyoutWindow(); });
        QTest::newRow("alarm") << TAct([](TManager& m) { m.ShowingAlarm(&m); })
                               << TAct([](TManager& m) { m.HidingAlarm(&m); });
        QTest::newRow("screenshot") << TAct([](TManager& m) { m.StartScreenShot(); })
                                    << TAct([](TManager& m) { m.FinishScreenShot(); });
    }

    void everythingAboveThePictureMovesItAside()
    {
        QFETCH(std::function<void(TManager&)>, show);
        QFETCH(std::function<void(TManager&)>, hide);
        TManager manager;
        TCameraOverlay const overlay(&manager);
        QSignalSpy changed(&overlay, &TCameraOverlay::Changed);
        QVERIFY(!overlay.IsAside());
        show(manager);
        QVERIFY(overlay.IsAside());
        hide(manager);
        QVERIFY(!overlay.IsAside());
        QCOMPARE(changed.count(), 2);
    }

    void thePictureWaitsForTheLastReason()
    {
        TManager manager;
        TCameraOverlay const overlay(&manager);
        QSignalSpy changed(&overlay, &TCameraOverlay::Changed);
        manager.ShowingFlyoutWindow();
        manager.StartScreenShot();
        manager.HidingFlyoutWindow();
        QVERIFY(overlay.IsAside());
        manager.FinishScreenShot();
        QVERIFY(!overlay.IsAside());
        QCOMPARE(changed.count(), 2);
    }
};

COMMONUI_TEST(TCameraOverlayTest)
#include "TCameraOverlayTest.moc"
