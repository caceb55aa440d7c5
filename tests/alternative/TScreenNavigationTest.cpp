#include "TestCase.h"
#include "TViewStage.h"

namespace
{
const QString ToolTip = QStringLiteral("Show it");

KVN::MorvaneID Id(uint module)
{
    return KVN::MorvaneID(QUuid(module, 0x1234, 0x5678, 1, 2, 3, 4, 5, 6, 7, 8));
}
} // namespace

/// Views on a screen without navigation bars that has room for two slots.
class TScreenNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBarAndWindowViewsStillRegister()
    {
        TTestInternalDrive const drive;
        TTestConfig const config;
        TTestDrives const drives;
        TManualClock clock;
        TSilentScreen screen;
        MainScreen = &screen; // Setup() would build the window
        screen.show();
        QStringList calls;
        TTestMiniWindow a(calls, QStringLiteral("a"));
        TTestMiniWindow b(calls, QStringLiteral("b"));
        QCOMPARE(screen.AssignNavButton(Id(1), QString(), &a, nullptr, nullptr, ToolTip), 0);
        TCanvas canvas(nullptr);
        QCOMPARE(screen.AssignNavSpecialButton(Id(2), QString(), &canvas, nullptr, ToolTip), 1);
        QCOMPARE(screen.AssignNavActionButton(Id(3), QString(), &canvas, nullptr, ToolTip), 2);
        QCOMPARE(screen.AssignNavButton(Id(4), QString(), &b, nullptr, nullptr, ToolTip), 3);
        QCOMPARE(screen.GetNavButtonID(Id(3)), 2);
        QVERIFY(!screen.GetNavButton(0) && !screen.GetSpecialNavigationButton(1));
        QCOMPARE(b.GetViewId(), 3);
        screen.GetWindowManager()->OnShowMiniView(3);
        QVERIFY(b.isVisible());
        screen.SetNavButtonVisibility(0, false);
        screen.SetNavButtonEnabled(0, false);
        screen.SetNavActionButtonVisibility(1, false);
        screen.SetNavSpecialButtonEnabled(1, false);
        screen.SetNavButtonTooltip(0, ToolTip);
        screen.UpdateNavBarSizes();
        screen.RemoveNavButton(Id(1));
        screen.RemoveNavButton(Id(4));
        QCOMPARE(screen.GetNavButtonID(Id(4)), -1);
        QVERIFY(!b.isVisible());
    }

    void aLowScreenHasFewerSlots()
    {
        TViewStage stage;
        QCOMPARE(TWindowManager::GetSlotCount(), 2);
        for (char const* const name : {"a", "b", "c"})
            stage.AddStanding(QLatin1String(name));
        QCOMPARE(stage.Slots(), QStringLiteral("1 3|2"));
        QVERIFY(!stage.manager->GetWidgetToStackUnder(1));
        // A drop below the screen is one in its last slot.
        stage.manager->OnMiniViewDoneDrag(1, 5000);
        QCOMPARE(stage.Slots(), QStringLiteral("3|2 1"));
        stage.manager->DisplayMiniView(2, 1);
        QCOMPARE(stage.Slots(), QStringLiteral("3|2 1"));
    }
};

COMMONUI_TEST(TScreenNavigationTest)
#include "TScreenNavigationTest.moc"
