#include "TCanvasMenuDisplay.h"

#include "ConfigManager.h"
#include "EMenuControl.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "TestCase.h"
#include "TMenuStage.h"
#include "TModalWidget.h"
#include "TObstructionManager.h"
#include "TToolTip.h"
#include "TToolTipMode.h"

namespace
{
constexpr int FoldHeight = 62;
constexpr int ButtonHeight = 62;

TMMIDef Path(QStringList const& names)
{
    TMMIDef def;
    bool isFirst = true;
    for (QString const& name : names)
    {
        TMMIDef const step(name, name, false);
        def = isFirst ? step : def + step;
        isFirst = false;
    }
    return def;
}
} // namespace

class TCanvasMenuDisplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void atFirstTheMenusAreFoldedAway()
    {
        TMenuStage stage;
        QVERIFY(!stage.Display()->AreMenusVisible());
        QCOMPARE(stage.OnCanvas(stage.FoldButton()).topLeft(), stage.Strip().topLeft());
        QVERIFY(stage.FoldButton()->isVisible());
        QVERIFY(!stage.Bar("menus"));
        QVERIFY(!stage.Bar("shortcuts"));
    }

    void theFullWindowLeavesTheStripFree()
    {
        TMenuStage stage;
        QVERIFY(stage.Canvas()->HasMenus());
        QCOMPARE(stage.Canvas()->GetMenuManager(), &stage.manager);
        QCOMPARE(stage.Canvas()->GetMenuDisplayManager(), stage.Display());
        QCOMPARE(stage.OnCanvas(&stage.first->m_Full).right() + 1, stage.Strip().left());
    }

    void aTouchBringsTheRootMenuAndTakesItAway()
    {
        TMenuStage stage;
        QSignalSpy visibility(stage.Display(), &TMenuDisplayManager::MenuVisibilityChanged);
        stage.Touch(stage.FoldButton());
        QVERIFY(stage.Display()->AreMenusVisible());
        QVERIFY(stage.Bar("menus"));
        QCOMPARE(stage.OnCanvas(stage.Bar("menus")),
                 QRect(stage.Strip().left(), FoldHeight, WINDOW_TOOLBAR_BUTTON_WIDTH, 2 * ButtonHeight));
        QCOMPARE(stage.NamesOnBar("menus"), (QStringList{"field", "tank"}));
        stage.Touch(stage.FoldButton());
        QVERIFY(!stage.Display()->AreMenusVisible());
        QVERIFY(!stage.Bar("menus"));
        QCOMPARE(visibility.count(), 2);
    }

    void eachOpenMenuHasABarBesideItsOpener()
    {
        TMenuStage stage;
        QSignalSpy order(stage.Display(), &TMenuDisplayManager::MenuShownOrderChanged);
        stage.Unfold();
        stage.Open("menus", "field");
        QVERIFY(stage.Bar("field"));
        QPoint const beside(stage.Strip().left() - WINDOW_TOOLBAR_BUTTON_WIDTH, FoldHeight);
        QCOMPARE(stage.OnCanvas(stage.Bar("field")).topLeft(), beside);
        stage.Open("field", "lines");
        QVERIFY(stage.Bar("lines"));
        QCOMPARE(stage.OnCanvas(stage.Bar("lines")).topLeft(),
                 beside + QPoint(-WINDOW_TOOLBAR_BUTTON_WIDTH, ButtonHeight));
        QCOMPARE(stage.Display()->GetMenuShownOrder(),
                 (QList<int>{stage.root.GetMenuID(), stage.field.GetMenuID(), stage.lines.GetMenuID()}));
        QCOMPARE(order.count(), 2);
    }

    void theOpenerIsLitAndClosesItsMenu()
    {
        TMenuStage stage;
        stage.Unfold();
        QImage const dark = stage.Button("menus", "field")->grab().toImage();
        stage.Open("menus", "field");
        QVERIFY(stage.Button("menus", "field")->grab().toImage() != dark);
        stage.Open("menus", "field");
        QVERIFY(!stage.Bar("field"));
        QVERIFY(stage.Button("menus", "field")->grab().toImage() == dark);
    }

    void anotherMenuOfTheSameParentTakesThePlace()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.Open("menus", "tank");
        QVERIFY(!stage.Bar("field"));
        QVERIFY(stage.Bar("tank"));
        QCOMPARE(stage.OnCanvas(stage.Bar("tank")).topLeft(),
                 QPoint(stage.Strip().left() - WINDOW_TOOLBAR_BUTTON_WIDTH, FoldHeight + ButtonHeight));
    }

    void aTouchedElementActs()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.Touch(stage.Button("tank", "drain"));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{1});
    }

    void foldedMenusStayOpenAndComeBack()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.Touch(stage.FoldButton());
        QVERIFY(!stage.Bar("field"));
        stage.Unfold();
        QVERIFY(stage.Bar("field"));
    }

    void shortcutsStandBehindTheRootMenuAndStayWhenItIsFolded()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        QVERIFY(stage.Bar("shortcuts"));
        QCOMPARE(stage.NamesOnBar("shortcuts"), QStringList{"record"});
        QCOMPARE(stage.OnCanvas(stage.Bar("shortcuts")).top(), FoldHeight);
        stage.Unfold();
        QCOMPARE(stage.OnCanvas(stage.Bar("shortcuts")).top(), FoldHeight + 2 * ButtonHeight);
        stage.Touch(stage.Button("shortcuts", "record"));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{0});
    }

    void aShortcutOfTheRootMenuStandsInTheStripOnce()
    {
        TMenuStage stage;
        stage.Change(stage.root, stage.toTank, [](TElementState& e) { e.SetShortcut(true); });
        QCOMPARE(stage.NamesOnBar("shortcuts"), QStringList{"tank"});
        stage.Unfold();
        QCOMPARE(stage.NamesOnBar("menus"), (QStringList{"field", "tank"}));
        QVERIFY(!stage.Bar("shortcuts"));
        stage.Touch(stage.FoldButton());
        QCOMPARE(stage.NamesOnBar("shortcuts"), QStringList{"tank"});
    }

    void shortcutsOfTwoMenusActInTheirOwn()
    {
        TMenuStage stage;
        // Both elements have the same id.
        QCOMPARE(stage.drain, stage.record);
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        stage.Change(stage.tank, stage.drain, [](TElementState& e) { e.SetShortcut(true); });
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        stage.manager.ShowMenu(stage.field.GetMenuID());
        stage.Settle();
        QCOMPARE(stage.NamesOnBar("shortcuts").size(), 2);
        stage.Touch(stage.Button("shortcuts", "drain"));
        stage.Touch(stage.Button("shortcuts", "record"));
        QCOMPARE(stage.receiver.TakeCalls(), (QList<int>{1, 0}));
        stage.manager.HideMenu(stage.field.GetMenuID());
        stage.Settle();
        QCOMPARE(stage.NamesOnBar("shortcuts"), QStringList{"drain"});
        stage.Touch(stage.Button("shortcuts", "drain"));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{1});
    }

    void aShortcutThatOpensAMenuBringsTheMenusUp()
    {
        TMenuStage stage;
        stage.Change(stage.root, stage.toTank, [](TElementState& e) { e.SetShortcut(true); });
        QVERIFY(!stage.Display()->AreMenusVisible());
        stage.Touch(stage.Button("shortcuts", "tank"));
        QVERIFY(stage.Display()->AreMenusVisible());
        QVERIFY(stage.Bar("tank"));
    }

    void shortcutsGoWithTheirMenu()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        stage.manager.HideMenu(stage.field.GetMenuID());
        stage.Settle();
        QVERIFY(!stage.Bar("shortcuts"));
    }

    void anElementLooksAsItsModuleSays()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        TPushButton* const button = stage.Button("tank", "drain");
        QCOMPARE(button->GetText(), QStringLiteral("DRAIN"));
        QCOMPARE(button->GetToolTip(), QStringLiteral("DRAIN"));
        QVERIFY(button->isEnabled());
        stage.Change(stage.tank, stage.drain,
                     [](TElementState& e)
                     {
                         e.SetName(QStringLiteral("Empty the tank"));
                         e.SetIconName(QStringLiteral("icon-tank"));
                         e.SetEnabled(false);
                     });
        QCOMPARE(stage.Button("tank", "drain"), button);
        QCOMPARE(button->GetText(), QString());
        QCOMPARE(button->GetIconSize(), QSize(TASK_TOOLBAR_ICON_SIZE, TASK_TOOLBAR_ICON_SIZE));
        QCOMPARE(button->GetToolTip(), QStringLiteral("Empty the tank"));
        QVERIFY(!button->isEnabled());
        stage.Change(stage.tank, stage.drain,
                     [](TElementState& e)
                     {
                         e.SetIconName(QString());
                         e.SetEnabled(true);
                     });
        QCOMPARE(button->GetText(), QStringLiteral("Empty the tank"));
        QVERIFY(button->GetIconSize().isEmpty());
        QVERIFY(button->isEnabled());
    }

    void eachControlHasASkinOfItsOwn()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        QList<QImage> looks;
        for (int control = MENU_CONTROL_PLAIN; control <= MENU_CONTROL_BAD; ++control)
        {
            stage.Change(stage.tank, stage.drain, [=](TElementState& e) { e.SetControlID(control); });
            QImage const look = stage.Button("tank", "drain")->grab().toImage();
            QVERIFY2(!looks.contains(look), qPrintable(QString::number(control)));
            looks << look;
        }
        stage.Change(stage.tank, stage.drain, [](TElementState& e) { e.SetControlID(-7); });
        QCOMPARE(stage.Button("tank", "drain")->grab().toImage(), looks.constFirst());
    }

    void elementsThatAreNotVisibleLeaveNoGap()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Change(stage.root, stage.toField, [](TElementState& e) { e.SetVisible(false); });
        QCOMPARE(stage.NamesOnBar("menus"), QStringList{"tank"});
        QCOMPARE(stage.Bar("menus")->height(), ButtonHeight);
        QCOMPARE(stage.Button("menus", "tank")->y(), 0);
    }

    void aDisabledMenuIsSeenAndInert()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.tank.SetEnabled(false);
        stage.Settle();
        QVERIFY(!stage.Button("tank", "drain")->isEnabled());
        QVERIFY(stage.Button("menus", "tank")->isEnabled());
        stage.tank.SetEnabled(true);
        stage.Settle();
        QVERIFY(stage.Button("tank", "drain")->isEnabled());
    }

    void menusThatAreAllDisabledAreInertWithTheirShortcuts()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        stage.Unfold();
        stage.manager.SetMenusEnabled(false, false);
        stage.Settle();
        QVERIFY(!stage.Button("menus", "tank")->isEnabled());
        QVERIFY(!stage.Button("shortcuts", "record")->isEnabled());
        stage.manager.SetMenusEnabled(true, false);
        stage.Settle();
        QVERIFY(stage.Button("menus", "tank")->isEnabled());
        QVERIFY(stage.Button("shortcuts", "record")->isEnabled());
    }

    void newElementsTakeTheirPlaceAndOldOnesGo()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.root.InsertElement(1, TMenuStage::Element("between", TActivationConfig(), false));
        stage.Settle();
        QCOMPARE(stage.NamesOnBar("menus"), (QStringList{"field", "between", "tank"}));
        stage.root.RemoveElement(stage.toField);
        stage.Settle();
        QCOMPARE(stage.NamesOnBar("menus"), (QStringList{"between", "tank"}));
    }

    void anElementInThePlaceOfAnotherIsSeen()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.root.RemoveElement(stage.toField);
        stage.root.InsertElement(0, TMenuStage::Element("other", TActivationConfig(), false));
        stage.Settle();
        QCOMPARE(stage.NamesOnBar("menus"), (QStringList{"other", "tank"}));
    }

    void aFingerOnAnElementThatGoesDoesNoHarm()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        TFinger finger(stage.screen.get());
        QWidget const* const button = stage.Button("tank", "drain");
        finger.Press(button->mapTo(stage.screen.get(), button->rect().center()));
        stage.tank.RemoveElement(stage.drain);
        stage.Settle();
        finger.Lift();
        stage.Settle();
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>());
    }

    void aLongMenuIsCutAndDragged()
    {
        TMenuStage stage;
        stage.AddMore(stage.tank, 25);
        stage.Unfold();
        stage.Open("menus", "tank");
        TTaskToolBar* const bar = stage.Bar("tank");
        QCOMPARE(stage.OnCanvas(bar).top(), stage.Strip().top());
        QCOMPARE(bar->height(), stage.Strip().height());
        int const before = stage.Button("tank", "drain")->y();
        stage.DragUp(bar, 120);
        stage.Settle();
        QVERIFY(stage.Button("tank", "drain")->y() < before);
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>());
    }

    void whatIsScrolledStaysWhereItIsWhenAnElementComes()
    {
        TMenuStage stage;
        stage.AddMore(stage.tank, 25);
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.DragUp(stage.Bar("tank"), 120);
        stage.Settle();
        int const scrolled = stage.Button("tank", "drain")->y();
        QVERIFY(scrolled < 0);
        stage.Add(stage.tank, "last");
        stage.Settle();
        QCOMPARE(stage.Button("tank", "drain")->y(), scrolled);
        stage.Change(stage.tank, stage.drain, [](TElementState& e) { e.SetEnabled(false); });
        QCOMPARE(stage.Button("tank", "drain")->y(), scrolled);
    }

    void aLongMenuStaysCutWhenTheButtonsGrow()
    {
        TMenuStage stage;
        stage.AddMore(stage.tank, 25);
        stage.Unfold();
        stage.Open("menus", "tank");
        constexpr int HalfLarger = 2;
        ConfigManager::Instance()->Write(CONFIG_BUTTON_SIZE, HalfLarger, false);
        stage.Bar("tank")->repaint();
        QCOMPARE(stage.Button("tank", "drain")->height(), ButtonHeight * 3 / 2);
        QCOMPARE(stage.Bar("tank")->height(), stage.Strip().height());
    }

    void aLongRootMenuLeavesShortcutsInSight()
    {
        TMenuStage stage;
        stage.AddMore(stage.root, 25);
        for (int i = 0; i < 5; ++i)
            stage.Add(stage.tank, "quick", true);
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        stage.Settle();
        stage.Unfold();
        QRect const shortcuts = stage.OnCanvas(stage.Bar("shortcuts"));
        QCOMPARE(shortcuts.height(), 2 * ButtonHeight);
        QCOMPARE(shortcuts.bottom(), stage.Strip().bottom());
        QCOMPARE(stage.OnCanvas(stage.Bar("menus")).bottom() + 1, shortcuts.top());
        for (int i = 2; i <= 5; ++i)
            stage.tank.RemoveElement(i);
        stage.Settle();
        QCOMPARE(stage.OnCanvas(stage.Bar("shortcuts")).height(), ButtonHeight);
        QCOMPARE(stage.OnCanvas(stage.Bar("menus")).bottom() + 1,
                 stage.OnCanvas(stage.Bar("shortcuts")).top());
    }

    void largerButtonsThatTheOperatorChoseAreTakenUp()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        stage.Unfold();
        constexpr int HalfLarger = 2;
        ConfigManager::Instance()->Write(CONFIG_BUTTON_SIZE, HalfLarger, false);
        stage.screen.Manager()->OnDraggedOffRight(stage.second->m_ViewId);
        stage.screen.FinishSlides();
        stage.screen.Manager()->OnDraggedOffRight(stage.first->m_ViewId);
        stage.screen.FinishSlides();
        stage.Settle();
        QCOMPARE(stage.Button("menus", "tank")->height(), ButtonHeight * 3 / 2);
        QCOMPARE(stage.OnCanvas(stage.Bar("shortcuts")).top(),
                 stage.OnCanvas(stage.Bar("menus")).bottom() + 1);
    }

    void whereThereIsNoRoomForAllTheFirstOnesWait()
    {
        TMenuStage stage;
        std::vector<std::unique_ptr<TMenuState>> menus;
        for (int i = 0; i < 20; ++i)
        {
            menus.push_back(std::make_unique<TMenuState>(QString()));
            stage.Add(*menus.back(), qPrintable(QString::number(i)));
            stage.manager.ShowMenu(stage.manager.AddMenu(menus.back().get()));
        }
        stage.Unfold();
        stage.Settle();
        QList<int> seen;
        int leftmost = stage.Canvas()->width();
        QList<TPushButton*> const buttons = stage.Canvas()->findChildren<TPushButton*>();
        for (auto const* const button : buttons)
        {
            bool isNumber = false;
            int const number = button->objectName().toInt(&isNumber);
            if (!isNumber || !button->isVisible())
                continue;
            seen << number;
            leftmost = qMin(leftmost, stage.OnCanvas(button).left());
        }
        QVERIFY(seen.contains(19));
        QVERIFY(!seen.contains(0));
        QVERIFY(leftmost >= stage.Canvas()->GetLeftLimit());
        QVERIFY(leftmost - WINDOW_TOOLBAR_BUTTON_WIDTH < stage.Canvas()->GetLeftLimit());

        QWidget mini(stage.screen.get());
        mini.setGeometry(0, 0, stage.Canvas()->width() / 2, 100);
        stage.screen->GetObstructionManager()->RegisterObstruction(&mini, OBSTRUCTION_LEFT);
        mini.show();
        QVERIFY(stage.Canvas()->GetLeftLimit() > leftmost);
        QList<TTaskToolBar*> const bars = stage.Canvas()->findChildren<TTaskToolBar*>();
        for (auto const* const bar : bars)
            QVERIFY(!bar->isVisible() || stage.OnCanvas(bar).left() >= stage.Canvas()->GetLeftLimit());
    }

    void aRemovedMenuGoesFromTheScreen()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.manager.RemoveMenu(stage.tank.GetMenuID());
        stage.Settle();
        QVERIFY(!stage.Bar("tank"));
        stage.Touch(stage.Button("menus", "tank"));
        QVERIFY(!stage.Bar("tank"));
    }

    void whatChangesQuicklyIsDrawnInItsLastState()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        TPushButton* const button = stage.Button("tank", "drain");
        QSet<QString> drawn;
        for (int i = 0; i < 1000; ++i)
        {
            TElementState element = stage.tank.GetElement(stage.drain);
            element.SetName(QString::number(i));
            stage.tank.SetElement(element);
            QCoreApplication::sendPostedEvents();
            drawn << button->GetText();
        }
        // The pace's timer does not run within sendPostedEvents().
        QVERIFY2(drawn.size() <= 2, qPrintable(QString::number(drawn.size())));
        QTRY_COMPARE(button->GetText(), QStringLiteral("999"));
    }

    void whatChangesBehindAnotherViewIsThereWhenItComesBack()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.screen.Manager()->OnDraggedOffRight(stage.second->m_ViewId);
        stage.screen.FinishSlides();
        QVERIFY(!stage.Canvas()->isVisible());
        TPushButton const* const hidden = stage.Canvas()->findChild<TPushButton*>(QStringLiteral("drain"));
        stage.Change(stage.tank, stage.drain, [](TElementState& e) { e.SetName(QStringLiteral("New")); });
        QCOMPARE(hidden->GetText(), QStringLiteral("DRAIN"));
        // The menus are those of the other view too; it keeps them folded away for itself.
        QCOMPARE(stage.second->m_Canvas->GetMenuDisplay()->GetMenuShownOrder().size(), 2);
        stage.screen.Manager()->OnDraggedOffRight(stage.first->m_ViewId);
        stage.screen.FinishSlides();
        stage.Settle();
        QCOMPARE(stage.Button("tank", "drain")->GetText(), QStringLiteral("New"));
    }

    void inToolTipModeAPressExplainsAndMenusStay()
    {
        TMenuStage stage;
        stage.Change(
            stage.tank, stage.drain,
            [&stage](TElementState& e)
            { e.SetActivationConfig(TActivationConfig(&stage.receiver, "Note", ELEMENT_HIDE_ALL, 5)); });
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.platform.GetToolTipMode()->SetOn(true);
        QVERIFY(!stage.Display()->GetCanAutoHide());
        stage.Touch(stage.Button("tank", "drain"));
        QVERIFY(stage.platform.IsToolTipShownFor(stage.Button("tank", "drain")));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>());
        // Pressed by other means, it acts, and its menu stays.
        stage.manager.ElementActivated(stage.tank.GetMenuID(), stage.drain);
        stage.Settle();
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{5});
        QVERIFY(stage.Bar("tank"));
        stage.platform.GetToolTipMode()->SetOn(false);
        stage.Touch(stage.Button("tank", "drain"));
        QVERIFY(!stage.Bar("tank"));
    }

    void menusLieAboveTheViewAndBelowItsFade()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        QWidgetList order;
        for (QObject* const child : stage.Canvas()->children())
        {
            if (auto* const widget = qobject_cast<QWidget*>(child))
                order << widget;
        }
        QVERIFY(order.indexOf(stage.Bar("field")) > order.indexOf(&stage.first->m_Full));
        QVERIFY(order.indexOf(stage.Bar("menus")) > order.indexOf(&stage.first->m_Full));
        QWidget lock(stage.Canvas());
        lock.show();
        stage.Canvas()->AddLockingWidget({&lock, QString(), KVN::MODAL_LOCAL, {}});
        stage.manager.ShowMenu(stage.lines.GetMenuID());
        stage.Settle();
        auto* const fade = stage.Canvas()->findChild<TModalWidget*>();
        order.clear();
        for (QObject* const child : stage.Canvas()->children())
        {
            if (auto* const widget = qobject_cast<QWidget*>(child))
                order << widget;
        }
        QList<TTaskToolBar*> const bars = stage.Canvas()->findChildren<TTaskToolBar*>();
        for (auto* const bar : bars)
            QVERIFY(order.indexOf(bar) < order.indexOf(fade));
        stage.Canvas()->UpdateFullWindowGeometry();
        QObjectList const& children = stage.Canvas()->children();
        QVERIFY(children.indexOf(stage.Bar("field")) > children.indexOf(&stage.first->m_Full));
        QVERIFY(children.indexOf(stage.Bar("field")) < children.indexOf(fade));
        stage.Canvas()->RemoveLockingWidget(&lock);
        stage.first->m_Full.raise();
        QVERIFY(children.indexOf(stage.Bar("field")) > children.indexOf(&stage.first->m_Full));
        QVERIFY(children.indexOf(stage.FoldButton()) > children.indexOf(&stage.first->m_Full));
    }

    void menusLieAboveAFullWindowThatComesLater()
    {
        TMenuStage stage;
        stage.Unfold();
        TFullWindow later(nullptr);
        later.ensurePolished();
        stage.Canvas()->SetFullWindow(&later, false);
        QObjectList const children = stage.Canvas()->children();
        QVERIFY(children.indexOf(stage.Bar("menus")) > children.indexOf(&later));
        QVERIFY(children.indexOf(stage.FoldButton()) > children.indexOf(&later));
        stage.Canvas()->SetFullWindow(&stage.first->m_Full, false);
    }

    void theStripFollowsTheSizeOfTheCanvas()
    {
        TMenuStage stage;
        stage.Canvas()->resize(800, 500);
        QCOMPARE(stage.OnCanvas(stage.FoldButton()).right() + 1, 800);
        stage.Unfold();
        QCOMPARE(stage.OnCanvas(stage.Bar("menus")).right() + 1, 800);
    }

    void aShortcutBringsItsOpenMenuFromBehindTheFold()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.toLines, [](TElementState& e) { e.SetShortcut(true); });
        stage.Touch(stage.Button("shortcuts", "lines"));
        stage.Touch(stage.FoldButton());
        stage.navigator.PushWidget(stage.Bar("shortcuts"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("lines"));
        stage.Enter();
        QVERIFY(stage.Bar("lines"));
        stage.Touch(stage.FoldButton());
        stage.Touch(stage.Button("shortcuts", "lines"));
        QVERIFY(stage.Bar("lines"));
        stage.Touch(stage.Button("shortcuts", "lines"));
        QVERIFY(!stage.Bar("lines"));
    }

    void theWheelOpensMenusAndBackClosesThem()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.navigator.OnWheelRight();
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("field"));
        stage.Enter();
        QVERIFY(stage.Bar("field"));
        QCOMPARE(stage.Selected(), QStringLiteral("record"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("lines"));
        stage.Enter();
        QCOMPARE(stage.Selected(), QStringLiteral("left"));
        stage.navigator.OnBack();
        stage.Settle();
        stage.Tick();
        QVERIFY(!stage.Bar("lines"));
        QCOMPARE(stage.Selected(), QStringLiteral("lines"));
        stage.navigator.OnBack();
        stage.Settle();
        stage.Tick();
        QVERIFY(!stage.Bar("field"));
        QCOMPARE(stage.Selected(), QStringLiteral("field"));
        stage.navigator.OnBack();
        stage.Settle();
        QVERIFY(stage.Bar("menus"));
    }

    void theWheelGoesIntoAMenuThatIsOpenAlready()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.manager.OnToggleMenu(stage.field.GetMenuID(), stage.root.GetMenuID(), stage.toField);
        stage.Settle();
        stage.navigator.OnWheelRight();
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("field"));
        stage.Enter();
        QVERIFY(stage.Bar("field"));
        QCOMPARE(stage.Selected(), QStringLiteral("record"));
    }

    void theWheelReachesWhatHasComeMeanwhile()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.Add(stage.root, "new");
        stage.Settle();
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("new"));
    }

    void theWheelBringsTheLastElementOfALongMenuIn()
    {
        TMenuStage stage;
        stage.AddMore(stage.tank, 24);
        stage.Add(stage.tank, "last");
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.navigator.PushWidget(stage.Bar("tank"));
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("last"));
        TPushButton const* const last = stage.Button("tank", "last");
        QVERIFY(stage.Bar("tank")->rect().contains(last->geometry()));
    }

    void aMacroPathLeadsThroughThreeMenus()
    {
        TMenuStage stage;
        QVERIFY(stage.Display()->FollowPath(Path({"field", "lines", "right"}), &stage.receiver,
                                            QStringLiteral("Arrived")));
        QVERIFY(stage.FollowToTheEnd());
        QVERIFY(stage.Bar("lines"));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{3});
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("right"));
    }

    void aMacroPathGoesThroughMenusThatAreOpen()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.Open("field", "lines");
        QVERIFY(stage.Display()->FollowPath(Path({"field", "lines", "left"}), &stage.receiver,
                                            QStringLiteral("Arrived")));
        QVERIFY(stage.FollowToTheEnd());
        for (int i = 0; i < 10; ++i)
            stage.Tick();
        QVERIFY(stage.Bar("field"));
        QVERIFY(stage.Bar("lines"));
        QCOMPARE(stage.Selected(), QStringLiteral("left"));
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{2});
    }

    void aMacroPathThatEndsAtAnOpenMenuGoesIntoIt()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        QVERIFY(stage.Display()->FollowPath(Path({"field"}), &stage.receiver, QStringLiteral("Arrived")));
        QVERIFY(stage.FollowToTheEnd());
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("record"));
    }

    void aMacroPathLeavesTheMenuWhereTheWheelStands()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        QVERIFY(stage.Display()->FollowPath(Path({"field", "lines", "left"}), &stage.receiver,
                                            QStringLiteral("Arrived")));
        QVERIFY(stage.FollowToTheEnd());
        QCOMPARE(stage.receiver.TakeCalls(), QList<int>{2});
    }

    void aPathThatLeadsNowhereIsTold()
    {
        TMenuStage stage;
        QVERIFY(!stage.Display()->FollowPath(TMMIDef(), &stage.receiver, QStringLiteral("Arrived")));
        QVERIFY(stage.Display()->FollowPath(Path({"field", "nowhere"}), &stage.receiver,
                                            QStringLiteral("Arrived")));
        QVERIFY(!stage.FollowToTheEnd());
        QCOMPARE(stage.receiver.m_Arrivals, QList<bool>{false});
        stage.screen.Manager()->OnDraggedOffRight(stage.second->m_ViewId);
        stage.screen.FinishSlides();
        QVERIFY(!stage.Display()->FollowPath(Path({"field"}), nullptr, QString()));
        stage.screen.Manager()->OnDraggedOffRight(stage.first->m_ViewId);
        stage.screen.FinishSlides();
        QVERIFY(stage.Display()->FollowPath(Path({"field"}), nullptr, QString()));
        QWidget lock(stage.screen.get());
        lock.show();
        stage.screen->AddLockingWidget({&lock, QString(), KVN::MODAL_GLOBAL, {}});
        QVERIFY(!stage.Display()->FollowPath(Path({"field"}), nullptr, QString()));
        stage.screen->RemoveLockingWidget(&lock);
        stage.screen->SetMMINavigator(nullptr);
        QVERIFY(!stage.Display()->FollowPath(Path({"field"}), nullptr, QString()));
    }

    void aMenuStandsLeftOfTheOneItWasOpenedFrom()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        stage.Open("field", "lines");
        int const field = stage.OnCanvas(stage.Bar("field")).left();
        QCOMPARE(stage.OnCanvas(stage.Bar("lines")).left(), field - WINDOW_TOOLBAR_BUTTON_WIDTH);
        auto const* const drain = stage.Canvas()->findChild<TPushButton*>(QStringLiteral("drain"));
        QCOMPARE(stage.OnCanvas(drain).left(), field - 2 * WINDOW_TOOLBAR_BUTTON_WIDTH);
    }

    void aMenuFollowsItsOpenerWhenThatIsDragged()
    {
        TMenuStage stage;
        stage.AddMore(stage.root, 25);
        stage.Unfold();
        stage.Open("menus", "tank");
        int const before = stage.OnCanvas(stage.Bar("tank")).top();
        stage.DragUp(stage.Bar("menus"), 80);
        int const after = stage.OnCanvas(stage.Bar("tank")).top();
        QVERIFY(after < before);
        QCOMPARE(after, stage.OnCanvas(stage.Button("menus", "tank")).top());
    }

    void aScrolledMenuThatShrinksHasNoGap()
    {
        TMenuStage stage;
        QList<int> const more = stage.AddMore(stage.tank, 25);
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.navigator.PushWidget(stage.Bar("tank"));
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QVERIFY(stage.Button("tank", "drain")->y() < 0);
        for (int const id : more)
        {
            TElementState element = stage.tank.GetElement(id);
            element.SetVisible(false);
            stage.tank.SetElement(element);
        }
        stage.Settle();
        QCOMPARE(stage.Bar("tank")->height(), ButtonHeight);
        QCOMPARE(stage.Button("tank", "drain")->y(), 0);
    }

    void anElementThatHidesAllAndOpensAMenuTakesTheWheelThere()
    {
        TMenuStage stage;
        stage.tank.AddElement(TMenuStage::Element(
            "onward", TActivationConfig(stage.field.GetMenuID(), ELEMENT_HIDE_ALL), false));
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.Open("menus", "tank");
        stage.navigator.PushWidget(stage.Bar("tank"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("onward"));
        stage.Enter();
        QVERIFY(!stage.Bar("tank"));
        QCOMPARE(stage.Selected(), QStringLiteral("record"));
    }

    void theWheelStandsOnTheOpenerWhenTheMenuHidesItself()
    {
        TMenuStage stage;
        stage.Add(stage.field, "done", false, ELEMENT_HIDE_MENU);
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.navigator.OnWheelRight();
        stage.navigator.OnWheelLeft();
        stage.Tick();
        stage.Enter();
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("done"));
        stage.Enter();
        QVERIFY(!stage.Bar("field"));
        for (int i = 0; i < 10; ++i)
            stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("field"));
    }

    void aTouchLeavesTheWheelWhereItIs()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QString const selected = stage.Selected();
        stage.Open("menus", "field");
        stage.Tick();
        QCOMPARE(stage.Selected(), selected);
    }

    void aMenuThatOpensLongAfterThePressDoesNotTakeTheWheel()
    {
        TMenuStage stage;
        stage.Change(
            stage.root, stage.toTank,
            [&stage](TElementState& e)
            { e.SetActivationConfig(TActivationConfig(&stage.receiver, "Note", ELEMENT_HIDE_NONE, 7)); });
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("tank"));
        stage.Enter();
        stage.screen.m_Clock.Advance(501);
        stage.manager.OnToggleMenu(stage.tank.GetMenuID(), stage.root.GetMenuID(), stage.toTank);
        stage.Settle();
        QVERIFY(stage.Bar("tank"));
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("tank"));
    }

    void theWheelClosesAMenuWithoutElements()
    {
        TMenuStage stage;
        stage.tank.RemoveElement(stage.drain);
        stage.Unfold();
        stage.navigator.PushWidget(stage.Bar("menus"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("tank"));
        stage.Enter();
        QVERIFY(stage.manager.GetMenuDisplayState(stage.tank.GetMenuID()).isShown);
        stage.Enter();
        QVERIFY(!stage.manager.GetMenuDisplayState(stage.tank.GetMenuID()).isShown);
    }

    void theWheelClosesAMenuByItsOwnElement()
    {
        TMenuStage stage;
        TMenuStage::AddOpener(stage.tank, "self", stage.tank);
        stage.manager.OnToggleMenu(stage.tank.GetMenuID(), stage.tank.GetMenuID(), 1);
        stage.Unfold();
        auto* const self = stage.Canvas()->findChild<TPushButton*>(QStringLiteral("self"));
        stage.navigator.PushWidget(self->parentWidget());
        stage.navigator.OnWheelLeft();
        stage.Tick();
        QCOMPARE(stage.Selected(), QStringLiteral("self"));
        stage.Enter();
        QVERIFY(!stage.manager.GetMenuDisplayState(stage.tank.GetMenuID()).isShown);
    }

    void menusThatOpenEachOtherStandStill()
    {
        TMenuStage stage;
        TMenuStage::AddOpener(stage.tank, "self", stage.tank);
        TMenuStage::AddOpener(stage.lines, "back-to-field", stage.field);
        stage.Unfold();
        stage.Open("menus", "field");
        stage.Open("field", "lines");
        stage.Open("lines", "back-to-field");
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        stage.Settle();
        stage.Touch(stage.Canvas()->findChild<TPushButton*>(QStringLiteral("self")));
        QList<QRect> before;
        QList<TTaskToolBar*> const bars = stage.Canvas()->findChildren<TTaskToolBar*>();
        for (auto const* const bar : bars)
            before << bar->geometry();
        for (int i = 0; i < 5; ++i)
        {
            stage.Display()->Arrange();
            stage.manager.OnElementListChanged(stage.field.GetMenuID());
            stage.Settle();
        }
        for (int i = 0; i < bars.size(); ++i)
            QCOMPARE(bars.at(i)->geometry(), before.at(i));
    }

    void aDisplayMadeAfterToolTipsLetsMenusHideAgain()
    {
        TMenuStage stage;
        stage.platform.GetToolTipMode()->SetOn(true);
        stage.second.reset();
        stage.first->m_Full.setParent(nullptr);
        stage.first->m_Canvas.reset();
        stage.platform.GetToolTipMode()->SetOn(false);
        stage.first->m_Canvas = std::make_unique<TMenuCanvas>(nullptr, stage.manager);
        int const hide = stage.Add(stage.tank, "hide", false, ELEMENT_HIDE_MENU);
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        stage.manager.ElementActivated(stage.tank.GetMenuID(), hide);
        QVERIFY(!stage.manager.GetMenuDisplayState(stage.tank.GetMenuID()).isShown);
    }

    void whileToolTipsAreReadOnlyTheOperatorClosesMenus()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.Open("field", "lines");
        stage.platform.GetToolTipMode()->SetOn(true);
        stage.Change(stage.field, stage.toLines, [](TElementState& e) { e.SetVisible(false); });
        QVERIFY(!stage.manager.GetMenuDisplayState(stage.lines.GetMenuID()).isShown);
        QVERIFY(stage.Canvas()->findChild<TPushButton*>(QStringLiteral("left"))->isVisible());
        stage.manager.OnToggleMenu(stage.field.GetMenuID(), -1, -1);
        stage.Settle();
        QVERIFY(!stage.Bar("field"));
        QVERIFY(!stage.Canvas()->findChild<TPushButton*>(QStringLiteral("left"))->isVisible());
    }

    void whatWouldHaveGoneGoesWhenToolTipsHaveBeenRead()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        stage.platform.GetToolTipMode()->SetOn(true);
        stage.Change(stage.root, stage.toField, [](TElementState& e) { e.SetVisible(false); });
        QVERIFY(stage.Canvas()->findChild<TPushButton*>(QStringLiteral("record"))->isVisible());
        stage.platform.GetToolTipMode()->SetOn(false);
        stage.Settle();
        QVERIFY(!stage.Canvas()->findChild<TPushButton*>(QStringLiteral("record"))->isVisible());
    }

    void aRemovedMenuGoesEvenWhileToolTipsAreRead()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.platform.GetToolTipMode()->SetOn(true);
        stage.manager.RemoveMenu(stage.tank.GetMenuID());
        stage.Settle();
        QVERIFY(!stage.Bar("tank"));
    }

    void menusComeOnACanvasThatIsShownAlready()
    {
        TMenuStage stage;
        TCanvas canvas(stage.screen.get());
        canvas.show();
        TCanvasMenuDisplay display(stage.manager, &canvas);
        auto const* const fold =
            canvas.findChild<TPushButton*>(QLatin1String(TCanvasMenuDisplay::FoldButtonName));
        QVERIFY(fold->isVisible());
        QCOMPARE(display.GetMenuShownOrder(), QList<int>{stage.root.GetMenuID()});
    }

    void thereIsNothingBeforeAMenuIsOpen()
    {
        TMenuStage stage;
        TMenuManager manager;
        TCanvas canvas(stage.screen.get());
        canvas.show();
        TCanvasMenuDisplay display(manager, &canvas);
        auto const* const fold =
            canvas.findChild<TPushButton*>(QLatin1String(TCanvasMenuDisplay::FoldButtonName));
        QVERIFY(!fold->isVisible());
        TMenuState menu(QStringLiteral("Late"));
        manager.SetRootMenuID(manager.AddMenu(&menu), true);
        QTRY_VERIFY(fold->isVisible());
    }

    void buttonsThatGrowBeforeTheOperatorsEyesPushTheShortcutsDown()
    {
        TMenuStage stage;
        stage.Change(stage.field, stage.record, [](TElementState& e) { e.SetShortcut(true); });
        stage.Unfold();
        constexpr int HalfLarger = 2;
        ConfigManager::Instance()->Write(CONFIG_BUTTON_SIZE, HalfLarger, false);
        stage.Bar("menus")->repaint();
        stage.Settle();
        QCOMPARE(stage.OnCanvas(stage.Bar("shortcuts")).top(),
                 stage.OnCanvas(stage.Bar("menus")).bottom() + 1);
        QCOMPARE(stage.Bar("menus")->height(), 3 * ButtonHeight);
    }

    void whatIsFoldedAwayIsDrawnWhenItComesBack()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        TPushButton const* const button = stage.Button("tank", "drain");
        stage.Touch(stage.FoldButton());
        stage.Change(stage.tank, stage.drain, [](TElementState& e) { e.SetName(QStringLiteral("New")); });
        QCOMPARE(button->GetText(), QStringLiteral("DRAIN"));
        stage.Touch(stage.FoldButton());
        QCOMPARE(button->GetText(), QStringLiteral("New"));
    }

    void aColourSaysMoreThanAnOpenMenu()
    {
        TMenuStage stage;
        stage.Change(stage.root, stage.toTank, [](TElementState& e) { e.SetControlID(MENU_CONTROL_BAD); });
        stage.Unfold();
        QImage const before = stage.Button("menus", "tank")->grab().toImage();
        stage.Open("menus", "tank");
        QCOMPARE(stage.Button("menus", "tank")->grab().toImage(), before);
    }

    void aValueThatGoesBackBeforeItIsReportedIsDrawnAsItIs()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "field");
        auto const rename = [&stage](int id, QString const& name)
        {
            TElementState element = stage.field.GetElement(id);
            element.SetName(name);
            stage.field.SetElement(element);
        };
        // The second of these waits for the display's next look.
        rename(stage.toLines, QStringLiteral("1"));
        QCoreApplication::sendPostedEvents();
        rename(stage.toLines, QStringLiteral("2"));
        QCoreApplication::sendPostedEvents();
        rename(stage.record, QStringLiteral("passing"));
        TMenuStage::PassPace(stage.Display());
        QCOMPARE(stage.Button("field", "record")->GetText(), QStringLiteral("passing"));
        rename(stage.record, QStringLiteral("RECORD"));
        stage.Settle();
        stage.Settle();
        QCOMPARE(stage.Button("field", "record")->GetText(), QStringLiteral("RECORD"));
    }

    void theCanvasMayGoWhenMenusUnfold()
    {
        TMenuStage stage;
        connect(stage.Display(), &TMenuDisplayManager::MenuVisibilityChanged, &stage.receiver,
                [&stage] { stage.DropCanvas(); });
        stage.Change(stage.root, stage.toTank, [](TElementState& e) { e.SetShortcut(true); });
        TFinger(stage.screen.get()).Touch(stage.Button("shortcuts", "tank"));
        stage.Settle();
        QVERIFY(!stage.first->m_Canvas);
    }

    void theCanvasMayGoWhenAMenuOpens()
    {
        TMenuStage stage;
        stage.Unfold();
        connect(stage.Display(), &TMenuDisplayManager::MenuShownOrderChanged, &stage.receiver,
                [&stage] { stage.DropCanvas(); });
        stage.manager.ShowMenu(stage.tank.GetMenuID());
        QCoreApplication::processEvents();
        QVERIFY(!stage.first->m_Canvas);
    }

    void theCanvasMayGoWhenAMenuIsToggled()
    {
        TMenuStage stage;
        stage.Unfold();
        connect(&stage.root, &TMenuState::ToggleMenu, &stage.receiver, [&stage] { stage.DropCanvas(); });
        TFinger(stage.screen.get()).Touch(stage.Button("menus", "tank"));
        QVERIFY(!stage.first->m_Canvas);
    }

    void theCanvasMayGoWhenTheWheelLeavesAMenu()
    {
        TMenuStage stage;
        stage.Unfold();
        stage.Open("menus", "tank");
        stage.navigator.PushWidget(stage.Bar("tank"));
        stage.navigator.OnWheelRight();
        stage.Tick();
        connect(&stage.manager, &TMenuManager::MenuStateChanged, &stage.receiver,
                [&stage] { stage.DropCanvas(); });
        stage.navigator.OnBack();
        QVERIFY(!stage.first->m_Canvas);
        stage.Tick();
    }

    void theMenusLookLikeThis()
    {
        TMenuStage stage;
        stage.Canvas()->SetBackgroundColor(Qt::darkGreen);
        stage.Change(stage.field, stage.record,
                     [](TElementState& e)
                     {
                         e.SetShortcut(true);
                         e.SetIconName(QStringLiteral("icon-record"));
                         e.SetControlID(MENU_CONTROL_BAD);
                     });
        stage.Change(stage.root, stage.toField,
                     [](TElementState& e) { e.SetIconName(QStringLiteral("icon-guidance")); });
        stage.Change(stage.lines, stage.left,
                     [](TElementState& e) { e.SetIconName(QStringLiteral("icon-left")); });
        stage.Change(stage.lines, stage.right, [](TElementState& e) { e.SetEnabled(false); });
        stage.Unfold();
        if (!stage.Bar("field"))
            stage.Open("menus", "field");
        stage.Open("field", "lines");
        QRect const area(stage.Strip().left() - 3 * WINDOW_TOOLBAR_BUTTON_WIDTH, 0,
                         4 * WINDOW_TOOLBAR_BUTTON_WIDTH, 6 * ButtonHeight);
        QImage const image = stage.Canvas()->grab(area).toImage();
        COMPARE_PICTURE(image, "menus");
    }
};

COMMONUI_TEST(TCanvasMenuDisplayTest)
#include "TCanvasMenuDisplayTest.moc"
