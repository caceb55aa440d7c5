#include "TMenuDisplayManager.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TMenuManager.h"
#include "TMenuState.h"
#include "TTestPlatform.h"

namespace
{
/// A display that draws nothing and notes what it is told.
class TNotingDisplay : public TMenuDisplayManager
{
public:
    explicit TNotingDisplay(TMenuManager& manager)
        : TMenuDisplayManager(manager)
    {
    }

    void OnMenuListChanged() override { m_Told << QStringLiteral("list"); }
    void OnMenuStateChanged() override { m_Told << QStringLiteral("state"); }
    void OnElementListChanged(int menuID) override { m_Told << QStringLiteral("elements %1").arg(menuID); }
    void OnElementStateChanged(int menuID) override { m_Told << QStringLiteral("element %1").arg(menuID); }
    void OnElementPressed(int menuID, int elementID) override
    {
        GetMenuManager().ElementActivated(menuID, elementID);
    }
    void HandleMenuAutoHideStateChanged() override { m_AutoHide << GetCanAutoHide(); }

    QStringList TakeTold()
    {
        QStringList const told = m_Told;
        m_Told.clear();
        return told;
    }

    QStringList m_Told;
    QList<bool> m_AutoHide;
};

/// A display as the base leaves it.
class TBareDisplay : public TMenuDisplayManager
{
public:
    using TMenuDisplayManager::TMenuDisplayManager;

    void OnMenuListChanged() override {}
    void OnMenuStateChanged() override {}
    void OnElementListChanged(int) override {}
    void OnElementStateChanged(int) override {}
    void OnElementPressed(int, int) override {}
};

class TToolTipPlatform : public TTestPlatform
{
public:
    bool ToolTipVisible() const override { return m_On; }

    void Switch(bool on)
    {
        m_On = on;
        Q_EMIT NotifyToolTipsEnabled(on);
    }

    bool m_On = false;
};

class TGuidedScreen : public TSilentScreen
{
public:
    bool IsGuideActive() const override { return m_On; }

    void Switch(bool on)
    {
        m_On = on;
        Q_EMIT GuideStateChanged();
    }

    bool m_On = false;
};
} // namespace

class TMenuDisplayManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { MainScreen = nullptr; }
    void cleanup() { MainScreen = nullptr; }

    void theBaseDisplaysNothing()
    {
        TMenuManager manager;
        TBareDisplay display(manager);
        QSignalSpy visibility(&display, &TMenuDisplayManager::MenuVisibilityChanged);
        display.ToggleMenus();
        QVERIFY(!display.AreMenusVisible());
        QVERIFY(display.GetMenuShownOrder().isEmpty());
        QVERIFY(display.GetCanAutoHide());
        display.HandleMenuAutoHideStateChanged();
        QCOMPARE(visibility.count(), 0);
    }

    void whatTheManagerTellsReachesTheDisplay()
    {
        TMenuManager manager;
        TNotingDisplay display(manager);
        TMenuState menu(QStringLiteral("Menu"));
        int const id = manager.AddMenu(&menu);
        QCOMPARE(display.TakeTold(), QStringList{QStringLiteral("list")});
        manager.ShowMenu(id);
        QCOMPARE(display.TakeTold(), QStringList{QStringLiteral("state")});
        int const element = menu.AddElement(TElementState(TMMIDef(), TActivationConfig(), QStringLiteral("A"),
                                                          QString(), 0, true, true, false));
        QCoreApplication::processEvents();
        QCOMPARE(display.TakeTold(), QStringList{QStringLiteral("elements %1").arg(id)});
        TElementState state = menu.GetElement(element);
        state.SetName(QStringLiteral("B"));
        menu.SetElement(state);
        QCoreApplication::processEvents();
        QCOMPARE(display.TakeTold(), QStringList{QStringLiteral("element %1").arg(id)});
    }

    void aPressActivatesTheElement()
    {
        TMenuManager manager;
        TNotingDisplay display(manager);
        TMenuState menu(QStringLiteral("Menu"));
        int const id = manager.AddMenu(&menu);
        TMenuState other(QStringLiteral("Other"));
        int const target = manager.AddMenu(&other);
        int const element =
            menu.AddElement(TElementState(TMMIDef(), TActivationConfig(target, ELEMENT_HIDE_NONE),
                                          QStringLiteral("A"), QString(), 0, true, true, false));
        display.OnElementPressed(id, element);
        QCoreApplication::processEvents();
        QVERIFY(manager.GetMenuDisplayState(target).isShown);
    }

    void menusStayWhileToolTipsAreRead()
    {
        TToolTipPlatform platform;
        TMenuManager manager;
        TNotingDisplay display(manager);
        platform.Switch(true);
        QVERIFY(!display.GetCanAutoHide());
        platform.Switch(true);
        platform.Switch(false);
        QVERIFY(display.GetCanAutoHide());
        QCOMPARE(display.m_AutoHide, (QList<bool>{false, true}));
    }

    void menusStayWhileAGuideIsRead()
    {
        TTestConfig config;
        TTestDrives drives;
        TGuidedScreen screen;
        MainScreen = &screen;
        TMenuManager manager;
        TNotingDisplay display(manager);
        screen.Switch(true);
        QVERIFY(!display.GetCanAutoHide());
        screen.Switch(false);
        QVERIFY(display.GetCanAutoHide());
        QCOMPARE(display.m_AutoHide, (QList<bool>{false, true}));
    }

    void menusMayGoAgainOnlyWhenNeitherIsRead()
    {
        TTestConfig config;
        TTestDrives drives;
        TToolTipPlatform platform;
        TGuidedScreen screen;
        MainScreen = &screen;
        TMenuManager manager;
        TNotingDisplay display(manager);
        platform.Switch(true);
        screen.Switch(true);
        platform.Switch(false);
        QVERIFY(!display.GetCanAutoHide());
        screen.Switch(false);
        QVERIFY(display.GetCanAutoHide());
        QCOMPARE(display.m_AutoHide, (QList<bool>{false, true}));
    }

    void aModeThatIsOnAlreadyIsTakenUpWhenAsked()
    {
        TToolTipPlatform platform;
        platform.m_On = true;
        TMenuManager manager;
        TNotingDisplay display(manager);
        QVERIFY(display.GetCanAutoHide());
        display.UpdateAutoHideState();
        QVERIFY(!display.GetCanAutoHide());
    }

    void withoutScreenAndPlatformMenusMayAlwaysGo()
    {
        TMenuManager manager;
        TNotingDisplay display(manager);
        display.UpdateAutoHideState();
        QVERIFY(display.GetCanAutoHide());
        QVERIFY(display.m_AutoHide.isEmpty());
    }

    void aDisplayThatGoesIsToldNothingMore()
    {
        TToolTipPlatform platform;
        TMenuManager manager;
        int told = 0;
        {
            TNotingDisplay display(manager);
            manager.HideAllMenus();
            told = display.TakeTold().size();
        }
        QCOMPARE(told, 1);
        // Either would reach a dead display.
        manager.HideAllMenus();
        platform.Switch(true);
    }
};

COMMONUI_TEST(TMenuDisplayManagerTest)
#include "TMenuDisplayManagerTest.moc"
