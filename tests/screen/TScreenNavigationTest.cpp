#include "ConfigManager.h"
#include "ModuleIds.h"
#include "TestCase.h"
#include "TViewStage.h"
#include "TWindowManager.h"

#include <QSignalSpy>

namespace
{
constexpr int ButtonHeight = 63;
constexpr int FullOnly = VIEW_CANVAS | VIEW_FULL;
const QString ToolTip = QStringLiteral("Show it");

QUuid Module(int number)
{
    return QUuid(uint(number), 0x1234, 0x5678, 1, 2, 3, 4, 5, 6, 7, 8);
}

// View 0 of module 1 and so on: the ids of the tests.
KVN::MorvaneID Id(int module, int view = 0)
{
    return KVN::MorvaneID(Module(module), quint32(view));
}

KVN::MorvaneID SetupId()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]);
}

// A screen whose views come by the road that modules take.
class TAssigningStage : public TViewStage
{
public:
    TNavigationBar* Bar() const { return screen->GetNavigationBar(); }
    TNavigationBar* SpecialBar() const { return screen->GetSpecialNavigationBar(); }

    int Assign(KVN::MorvaneID const& id, TTestView& view)
    {
        view.name = id.ToString();
        return view.id = screen->AssignNavButton(id, QString(), view.mini, view.canvas, view.full, ToolTip);
    }
    int AssignList(KVN::MorvaneID const& id, QList<TMiniWindow*> const& windows)
    {
        return screen->AssignNavButton(id, QString(), windows, nullptr, nullptr, ToolTip);
    }
    // The ids of the visible buttons from the top.
    QList<int> Order() const
    {
        QMap<int, int> ids;
        QMap<int, KVN::MorvaneID> const all = screen->GetAllNavButtonIDs();
        for (auto entry = all.constBegin(); entry != all.constEnd(); ++entry)
        {
            if (TPushButton const* const button = Bar()->GetButton(entry.key()))
            {
                if (button->isVisible())
                    ids.insert(button->y(), entry.key());
            }
        }
        return ids.values();
    }
    void Press(int id)
    {
        finger.Touch(screen->GetNavButton(id));
        screen.FinishSlides();
    }
    void DragOff(TPushButton* button)
    {
        QPoint const centre = button->mapTo(screen.get(), button->rect().center());
        finger.Press(centre);
        finger.Move({centre + QPoint(20, 0), centre + QPoint(60, 0)});
        finger.Lift();
    }
};
} // namespace

class TScreenNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachViewTakesTheNextId()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        TTestView b = stage.Make(QStringLiteral("b"), VIEW_MINI);
        QCOMPARE(stage.Assign(Id(1), a), 0);
        QCOMPARE(stage.Assign(Id(2), b), 1);
        QCOMPARE(stage.Order(), (QList<int>{0, 1}));
        QCOMPARE(a.mini->GetViewId(), 0);
        QCOMPARE(b.mini->GetViewId(), 1);
        auto* const button = qobject_cast<TNavigationButton*>(stage.screen->GetNavButton(1));
        QVERIFY(button);
        QCOMPARE(button->GetButtonId(), 1);
        QCOMPARE(button->GetToolTip(), ToolTip);
        QCOMPARE(button->GetText(), QString());
        QCOMPARE(stage.screen->GetNavButtonID(Id(2)), 1);
        QCOMPARE(stage.screen->GetAllNavButtonIDs(), (QMap<int, KVN::MorvaneID>{{0, Id(1)}, {1, Id(2)}}));
    }

    void aPressSlidesTheMiniWindowIn()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        stage.Assign(Id(1), a);
        stage.finger.Touch(stage.screen->GetNavButton(a.id));
        QCOMPARE(stage.State(a), MINI_VIEW_OPENING);
        stage.screen.FinishSlides();
        QCOMPARE(a.mini->pos(), QPoint(67, 0));
        stage.Press(a.id);
        QCOMPARE(stage.State(a), MINI_VIEW_HIDDEN);
    }

    void aDragOffTheBarShowsTheFullView()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        TTestView b = stage.Make(QStringLiteral("b"), FullOnly);
        TTestView c = stage.Make(QStringLiteral("c"), VIEW_MINI);
        stage.Assign(Id(1), a);
        stage.Assign(Id(2), b);
        stage.Assign(Id(3), c);
        stage.DragOff(stage.screen->GetNavButton(a.id));
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
        QCOMPARE(stage.State(a), MINI_VIEW_HIDDEN);
        stage.DragOff(stage.screen->GetNavButton(b.id));
        QCOMPARE(stage.manager->GetFullViewId(), b.id);
        stage.DragOff(stage.screen->GetNavButton(c.id));
        QCOMPARE(stage.manager->GetFullViewId(), b.id);
        QCOMPARE(stage.State(c), MINI_VIEW_HIDDEN);
    }

    void theButtonOfAFullViewBringsItAndGoesBack()
    {
        TAssigningStage stage;
        TTestView base = stage.Make(QStringLiteral("base"), FullOnly);
        TTestView a = stage.Make(QStringLiteral("a"), FullOnly);
        stage.Assign(Id(1), base);
        stage.Assign(Id(2), a);
        stage.screen->SetDefaultView(Id(1));
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
        stage.Press(a.id);
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
        stage.Press(a.id);
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
    }

    void aViewOfNothingHasAButtonThatDoesNothing()
    {
        TAssigningStage stage;
        TTestView nothing;
        QCOMPARE(stage.Assign(Id(1), nothing), 0);
        stage.Press(0);
        stage.DragOff(stage.screen->GetNavButton(0));
        QCOMPARE(stage.manager->GetFullViewId(), -1);
    }

    // Linked mini windows

    void linkedWindowsShareOneButton()
    {
        TAssigningStage stage;
        TTestView const a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView const b = stage.Make(QStringLiteral("b"), VIEW_MINI);
        TTestView const c = stage.Make(QStringLiteral("c"), VIEW_MINI);
        TTestView single = stage.Make(QStringLiteral("d"), VIEW_MINI);
        QCOMPARE(stage.AssignList(Id(1), {a.mini, b.mini, c.mini}), 0);
        QCOMPARE(stage.Assign(Id(2), single), 3);
        QCOMPARE(stage.Order(), (QList<int>{0, 3}));
        QCOMPARE(stage.screen->GetNavButtonID(Id(1)), 0);
        QCOMPARE(stage.screen->GetAllNavButtonIDs().keys(Id(1)), (QList<int>{0, 1, 2}));
        QCOMPARE(c.mini->GetViewId(), 2);
        // The operator steps through them and hides the last.
        QStringList seen;
        for (int i = 0; i < 5; ++i)
        {
            stage.Press(0);
            seen.append(stage.Slots());
        }
        QCOMPARE(seen, (QStringList{"0||", "0|1|", "0|1|2", "0|1|", "0|1|2"}));
    }

    void removingLinkedWindowsTakesOutAll()
    {
        TAssigningStage stage;
        TTestView const a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView const b = stage.Make(QStringLiteral("b"), VIEW_MINI);
        TTestView other = stage.Make(QStringLiteral("c"), VIEW_MINI);
        stage.AssignList(Id(1), {a.mini, b.mini});
        stage.Assign(Id(2), other);
        stage.Press(0);
        stage.Press(0);
        QCOMPARE(stage.Slots(), QStringLiteral("0|1|"));
        stage.screen->RemoveNavButton(Id(1));
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!a.mini->isVisible() && !b.mini->isVisible());
        QVERIFY(!stage.screen->GetNavButton(0) && !stage.screen->GetNavButton(1));
        QCOMPARE(stage.screen->GetNavButtonID(Id(1)), -1);
        QCOMPARE(stage.screen->GetAllNavButtonIDs().keys(), (QList<int>{2}));
        stage.screen->RemoveNavButton(Id(1));
        stage.screen->RemoveNavButton(Id(77));
        stage.Press(other.id);
        QCOMPARE(stage.Slots(), QStringLiteral("2||"));
        // Ids are not given out again.
        TTestView next = stage.Make(QStringLiteral("d"), VIEW_MINI);
        QCOMPARE(stage.Assign(Id(1), next), 3);
    }

    void aListMayHoldOneOrNone()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        QCOMPARE(stage.AssignList(Id(1), {a.mini}), 0);
        QCOMPARE(stage.screen->GetNavButton(0)->GetToolTip(), ToolTip);
        QCOMPARE(stage.AssignList(Id(2), {}), 1);
        QCOMPARE(stage.screen->GetNavButton(1)->GetToolTip(), QString()); // deliberately none
        QCOMPARE(stage.AssignList(Id(3), {nullptr}), 2);
        QCOMPARE(stage.screen->GetNavButton(2)->GetToolTip(), ToolTip);
        // A single one is not linked: the second press hides it.
        a.id = 0;
        stage.Press(0);
        stage.Press(0);
        QCOMPARE(stage.State(a), MINI_VIEW_HIDDEN);
        QCOMPARE(stage.Order(), (QList<int>{0, 1, 2}));
    }

    void aViewWithNothingToShowHasNoButton()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        a.mini->m_Available = false;
        stage.Assign(Id(1), a);
        QVERIFY(!stage.screen->GetNavButton(0)->isVisible());
        QCOMPARE(stage.Bar()->GetNumberOfVisibleButtons(), 0);
        stage.screen->SetNavButtonVisibility(0, true);
        QCOMPARE(stage.Order(), (QList<int>{0}));
    }

    void theWorkerTakesAnyId()
    {
        TAssigningStage stage;
        TTestView const a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        stage.screen->AssignNavButton(Id(1), 20, QString(), a.mini, nullptr, nullptr, ToolTip, 0, true, -1);
        QCOMPARE(a.mini->GetViewId(), 20);
        QVERIFY(!stage.screen->GetNavButton(20)->isVisible());
        stage.screen->RemoveNavButton(Id(1));
        QVERIFY(!stage.screen->GetNavButton(20));
    }

    void theWorkerIgnoresANegativeId()
    {
        TAssigningStage stage;
        TTestView const a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        stage.screen->AssignNavButton(Id(1), -2, QString(), a.mini, nullptr, nullptr, ToolTip, 0, false, -1);
        stage.screen->NavButtonAdded(Id(1), -2);
        QVERIFY(!stage.screen->GetNavButton(-2));
        QVERIFY(stage.screen->GetAllNavButtonIDs().isEmpty());
        stage.screen->RemoveNavButton(Id(1));
    }

    void theWorkerTakesOneBehaviourForLinked_data()
    {
        QTest::addColumn<int>("behaviour");
        QTest::addColumn<bool>("linked");
        QTest::newRow("single") << 0 << false;
        QTest::newRow("linked") << 1 << true;
        QTest::newRow("unknown") << 2 << false;
        QTest::newRow("negative") << -1 << false;
    }

    void theWorkerTakesOneBehaviourForLinked()
    {
        QFETCH(int, behaviour);
        QFETCH(bool, linked);
        TAssigningStage stage;
        TTestView const a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView const b = stage.Make(QStringLiteral("b"), VIEW_MINI);
        stage.screen->AssignNavButton(Id(1), 5, QString(), a.mini, nullptr, nullptr, ToolTip, behaviour,
                                      false, 6);
        stage.screen->AssignNavButton(Id(2), 6, QString(), b.mini, nullptr, nullptr, ToolTip, 0, false, -1);
        stage.Press(5);
        stage.Press(5);
        QCOMPARE(stage.Slots(), linked ? QStringLiteral("5|6|") : QStringLiteral("||"));
    }

    // Order

    void buttonsStandInTheWishedOrder_data()
    {
        QTest::addColumn<QList<int>>("modules");
        QTest::addColumn<QList<int>>("order");
        // Assigned were 0 and 3 of module 1, 1 of module 2, 2 of module 3.
        QTest::newRow("none") << QList<int>{} << QList<int>{0, 1, 2, 3};
        QTest::newRow("all") << QList<int>{3, 2, 1} << QList<int>{2, 1, 0, 3};
        QTest::newRow("some") << QList<int>{3} << QList<int>{2, 0, 1, 3};
        QTest::newRow("unknown") << QList<int>{9} << QList<int>{0, 1, 2, 3};
        QTest::newRow("unknown between") << QList<int>{2, 9, 1} << QList<int>{1, 0, 3, 2};
        QTest::newRow("one twice") << QList<int>{2, 2, 1, 2} << QList<int>{1, 0, 3, 2};
    }

    void buttonsStandInTheWishedOrder()
    {
        QFETCH(QList<int>, modules);
        QFETCH(QList<int>, order);
        TAssigningStage stage;
        QList<QUuid> wished;
        for (int const module : modules)
            wished.append(Module(module));
        QList<TTestView> views;
        for (KVN::MorvaneID const& id : {Id(1, 1), Id(2), Id(3)})
        {
            views.append(stage.Make(QStringLiteral("v"), VIEW_MINI));
            stage.Assign(id, views.last());
        }
        stage.screen->SetNavButtonOrder(wished);
        // A button that comes later finds its place too.
        TTestView late = stage.Make(QStringLiteral("v"), VIEW_MINI);
        stage.Assign(Id(1, 2), late);
        QCOMPARE(stage.Order(), order);
        stage.screen->UpdateNavBarOrder();
        QCOMPARE(stage.Order(), order);
        stage.screen->SetNavButtonOrder({});
        QCOMPARE(stage.Order(), (QList<int>{0, 1, 2, 3}));
    }

    void aHostMayAddAButtonOfItsOwn()
    {
        TAssigningStage stage;
        stage.Bar()->AssignButton(50, QString(), QString(), QString());
        stage.screen->NavButtonAdded(Id(5), 50);
        QCOMPARE(stage.screen->GetNavButtonID(Id(5)), 50);
        QCOMPARE(stage.Order(), (QList<int>{50}));
        stage.screen->NavButtonAdded(Id(6), 50);
        QCOMPARE(stage.screen->GetNavButtonID(Id(5)), -1);
        QCOMPARE(stage.screen->GetNavButtonID(Id(6)), 50);
    }

    // The special bar

    void setupHasAButtonOnTheSpecialBar()
    {
        TAssigningStage stage;
        TTestView base = stage.Make(QStringLiteral("base"), FullOnly);
        TTestView const setup = stage.Make(QStringLiteral("setup"), FullOnly);
        stage.Assign(Id(1), base);
        stage.screen->SetDefaultView(Id(1));
        int const id =
            stage.screen->AssignNavSpecialButton(SetupId(), QString(), setup.canvas, setup.full, ToolTip);
        QCOMPARE(id, 1);
        QVERIFY(!stage.screen->GetNavButton(id));
        TPushButton* const button = stage.screen->GetSpecialNavigationButton(id);
        QCOMPARE(button, stage.SpecialBar()->GetButton(id));
        QCOMPARE(button->GetToolTip(), ToolTip);
        QCOMPARE(stage.screen->GetNavButtonID(SetupId()), id);
        stage.screen->UpdateNavBarSizes();
        stage.finger.Touch(button);
        QCOMPARE(stage.manager->GetFullViewId(), id);
        QVERIFY(!stage.SpecialBar()->isVisible());
        setup.full->HideWindow();
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
        stage.DragOff(button);
        QCOMPARE(stage.manager->GetFullViewId(), id);
        QVERIFY(!stage.SpecialBar()->isVisible()); // the whole screen, as by a press
        setup.full->HideWindow();

        // Removing leaves it.
        stage.screen->RemoveNavButton(SetupId());
        QCOMPARE(stage.screen->GetSpecialNavigationButton(id), button);
        QCOMPARE(stage.screen->GetNavButtonID(SetupId()), id);
        stage.finger.Touch(button);
        QCOMPARE(stage.manager->GetFullViewId(), id);
    }

    void anActionButtonBringsItsViewAndSendsItBack()
    {
        TAssigningStage stage;
        TTestView base = stage.Make(QStringLiteral("base"), FullOnly);
        TTestView const action = stage.Make(QStringLiteral("action"), FullOnly);
        stage.Assign(Id(1), base);
        stage.screen->SetDefaultView(Id(1));
        int const id =
            stage.screen->AssignNavActionButton(Id(2), QString(), action.canvas, action.full, ToolTip);
        QCOMPARE(id, 1);
        QCOMPARE(stage.screen->GetNavButtonID(Id(2)), id);
        stage.SpecialBar()->setGeometry(0, 600, 67, 168);
        TPushButton* const button = stage.SpecialBar()->GetButton(id);
        stage.finger.Touch(button);
        QCOMPARE(stage.manager->GetFullViewId(), id);
        stage.finger.Touch(button);
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
        stage.DragOff(button);
        QCOMPARE(stage.manager->GetFullViewId(), id);
        QVERIFY(action.full->isVisible());
    }

    void aSetupActionIsNotDraggedOverTheWholeScreen()
    {
        TAssigningStage stage;
        TTestView const setup = stage.Make(QStringLiteral("setup"), FullOnly);
        int const id =
            stage.screen->AssignNavActionButton(SetupId(), QString(), setup.canvas, setup.full, ToolTip);
        stage.SpecialBar()->show();
        stage.screen->UpdateNavBarSizes();
        stage.DragOff(stage.SpecialBar()->GetButton(id));
        QCOMPARE(stage.manager->GetFullViewId(), id);
        QCOMPARE(stage.calls, (QStringList{"setup show"}));
        QVERIFY(stage.SpecialBar()->isVisible());
        QVERIFY(stage.Bar()->isVisible());
    }

    // Setters

    void settersReachTheirBar()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView const s = stage.Make(QStringLiteral("s"), FullOnly);
        stage.Assign(Id(1), a);
        int const special = stage.screen->AssignNavSpecialButton(Id(2), QString(), s.canvas, s.full, ToolTip);
        stage.SpecialBar()->show();
        TPushButton* const button = stage.screen->GetNavButton(a.id);
        TPushButton* const specialButton = stage.SpecialBar()->GetButton(special);
        for (bool const on : {false, true})
        {
            stage.screen->SetNavButtonEnabled(a.id, on);
            QCOMPARE(button->isEnabled(), on);
            QVERIFY(specialButton->isEnabled());
            stage.screen->SetNavSpecialButtonEnabled(special, on);
            QCOMPARE(specialButton->isEnabled(), on);
            stage.screen->SetNavSpecialButtonEnabled(special, true);
            stage.screen->SetNavButtonVisibility(a.id, on);
            QCOMPARE(button->isVisible(), on);
            QVERIFY(specialButton->isVisible());
            stage.screen->SetNavActionButtonVisibility(special, on);
            QCOMPARE(specialButton->isVisible(), on);
            stage.screen->SetNavActionButtonVisibility(special, true);
        }
        // Each bar has its own.
        stage.screen->SetNavButtonEnabled(special, false);
        stage.screen->SetNavSpecialButtonEnabled(a.id, false);
        QVERIFY(button->isEnabled() && specialButton->isEnabled());
    }

    void iconsAndToolTipsChange()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        TTestView const s = stage.Make(QStringLiteral("s"), FullOnly);
        stage.Assign(Id(1), a);
        int const special = stage.screen->AssignNavSpecialButton(Id(2), QString(), s.canvas, s.full, ToolTip);
        TPushButton* const button = stage.screen->GetNavButton(a.id);
        button->setEnabled(false);
        QVERIFY(button->GetIconSize().isEmpty());
        stage.screen->SetNavButtonIcon(a.id, QStringLiteral("icon-tick-larger"));
        QCOMPARE(button->GetIconSize(), QSize(46, 46));
        QImage image(20, 20, QImage::Format_ARGB32);
        image.fill(Qt::red);
        stage.screen->SetNavButtonIcon(a.id, image);
        QCOMPARE(button->GetIconSize(), QSize(20, 20));
        QVERIFY(!button->isEnabled()); // an icon wakes no button
        stage.screen->SetNavButtonTooltip(a.id, QStringLiteral("other"));
        QCOMPARE(button->GetToolTip(), QStringLiteral("other"));
        stage.screen->SetNavButtonTooltip(special, QStringLiteral("special"));
        QCOMPARE(stage.SpecialBar()->GetButton(special)->GetToolTip(), QStringLiteral("special"));
    }

    void idsThatNobodyHasAreIgnored()
    {
        TAssigningStage stage;
        for (int const id : {-1, 0, 99})
        {
            QVERIFY(!stage.screen->GetNavButton(id));
            QVERIFY(!stage.screen->GetSpecialNavigationButton(id));
            stage.screen->SetNavButtonVisibility(id, true);
            stage.screen->SetNavButtonEnabled(id, true);
            stage.screen->SetNavSpecialButtonEnabled(id, true);
            stage.screen->SetNavActionButtonVisibility(id, true);
            stage.screen->SetNavButtonIcon(id, QStringLiteral("icon-tick-larger"));
            stage.screen->SetNavButtonIcon(id, QImage());
            stage.screen->SetNavButtonTooltip(id, ToolTip);
        }
        QCOMPARE(stage.Bar()->GetNumberOfButtons(), 0);
        QCOMPARE(stage.screen->GetNavButtonID(Id(1)), -1);
        QCOMPARE(stage.screen->GetNavButtonID(KVN::MorvaneID()), -1);
    }

    // The left edge

    void theBarsShareTheLeftEdge_data()
    {
        QTest::addColumn<int>("actions");
        QTest::addColumn<int>("hidden");
        QTest::addColumn<int>("setting");
        QTest::addColumn<int>("total");
        // 7 pixels between the bars and a button's height for each that is to be seen.
        QTest::newRow("setup alone") << 0 << 0 << 0 << 7 + 63;
        QTest::newRow("and an action") << 1 << 0 << 0 << 7 + 2 * 63;
        QTest::newRow("and a hidden action") << 2 << 1 << 0 << 7 + 2 * 63;
        QTest::newRow("larger buttons") << 1 << 0 << 1 << 7 + 2 * 78;
        QTest::newRow("largest buttons") << 0 << 0 << 2 << 7 + 94;
    }

    void theBarsShareTheLeftEdge()
    {
        QFETCH(int, actions);
        QFETCH(int, hidden);
        QFETCH(int, setting);
        QFETCH(int, total);
        TAssigningStage stage;
        QList<int> ids;
        for (int i = 0; i < actions; ++i)
            ids.append(stage.screen->AssignNavActionButton(Id(i + 1), QString(), nullptr, nullptr, ToolTip));
        int const setup =
            stage.screen->AssignNavSpecialButton(SetupId(), QString(), nullptr, nullptr, ToolTip);
        for (int i = 0; i < hidden; ++i)
            stage.screen->SetNavActionButtonVisibility(ids[i], false);
        stage.SpecialBar()->show();
        stage.screen->UpdateNavBarSizes();
        stage.screen.m_Config.Write(CONFIG_BUTTON_SIZE, setting, false);
        stage.screen->UpdateNavBarSizes();
        QCOMPARE(stage.SpecialBar()->geometry(), QRect(0, SCREEN_HEIGHT - total, 67, total));
        QCOMPARE(stage.Bar()->geometry(), QRect(0, 0, 67, SCREEN_HEIGHT - total));
        QVERIFY(stage.SpecialBar()->rect().contains(stage.SpecialBar()->GetButton(setup)->geometry()));

        // The special bar continues the picture of the main bar. Each row of this one is a colour of its own.
        QImage picture(67, SCREEN_HEIGHT, QImage::Format_RGB32);
        for (int y = 0; y < SCREEN_HEIGHT; ++y)
            std::fill_n(reinterpret_cast<QRgb*>(picture.scanLine(y)), 67, qRgb(y / 256, y % 256, 0));
        stage.SpecialBar()->SetBackground(QSharedPointer<QPixmap>::create(QPixmap::fromImage(picture)));
        QImage painted(67, total, QImage::Format_RGB32);
        stage.SpecialBar()->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
        QCOMPARE(painted, picture.copy(0, SCREEN_HEIGHT - total, 67, total));
    }

    void withoutSetupTheMainBarTakesTheWholeEdge()
    {
        TAssigningStage stage;
        stage.screen->AssignNavActionButton(Id(1), QString(), nullptr, nullptr, ToolTip);
        stage.SpecialBar()->show();
        stage.SpecialBar()->move(3, 500);
        QRect const before = stage.SpecialBar()->geometry();
        stage.Bar()->setFixedHeight(300);
        stage.Bar()->move(5, 5);
        stage.screen->UpdateNavBarSizes();
        QCOMPARE(stage.Bar()->geometry(), QRect(0, 0, 67, SCREEN_HEIGHT));
        QCOMPARE(stage.SpecialBar()->geometry(), before);
    }

    void aLargerChoiceOfButtonsReachesTheMainBar()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_MINI);
        stage.Assign(Id(1), a);
        stage.screen->AssignNavSpecialButton(SetupId(), QString(), nullptr, nullptr, ToolTip);
        stage.screen->UpdateNavBarSizes();
        QCOMPARE(stage.Bar()->GetButton(a.id)->height(), ButtonHeight);
        // Also while the setup hides it.
        stage.Bar()->hide();
        stage.screen.m_Config.Write(CONFIG_BUTTON_SIZE, 2, false);
        stage.screen->UpdateNavBarSizes();
        QCOMPARE(stage.Bar()->GetButton(a.id)->height(), 94);
    }

    // Removing while it is used

    void aViewMayBeRemovedByItsOwnButton()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        stage.Assign(Id(1), a);
        QPointer<TPushButton> const button = stage.screen->GetNavButton(0);
        connect(button, &TPushButton::Clicked, this, [&] { stage.screen->RemoveNavButton(Id(1)); });
        stage.finger.Touch(button);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!stage.screen->GetNavButton(0));
        stage.screen.FinishSlides();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!button);
    }

    void aViewMayBeRemovedUnderTheFinger()
    {
        TAssigningStage stage;
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        stage.Assign(Id(1), a);
        stage.Press(0);
        stage.finger.Press({200, 100});
        stage.finger.Move({200, 300});
        stage.screen->RemoveNavButton(Id(1));
        stage.finger.Move({{200, 500}, {20, 500}});
        stage.finger.Lift();
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!a.mini->isVisible());
    }

    void theCurrentFullViewMayBeRemoved()
    {
        TAssigningStage stage;
        TTestView base = stage.Make(QStringLiteral("base"), FullOnly);
        TTestView a = stage.Make(QStringLiteral("a"), VIEW_ALL);
        stage.Assign(Id(1), base);
        stage.Assign(Id(2), a);
        stage.screen->SetDefaultView(Id(1));
        stage.DragOff(stage.screen->GetNavButton(a.id));
        stage.screen->RemoveNavButton(Id(2));
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
        QVERIFY(base.full->isVisible());
        QVERIFY(!a.full->isVisible());
    }

    void manyViewsComeAndGo()
    {
        TAssigningStage stage;
        QList<TTestView> views;
        for (int i = 0; i < 60; ++i)
        {
            views.append(stage.Make(QStringLiteral("v"), i % 3 == 0 ? int(VIEW_ALL) : int(VIEW_MINI)));
            stage.Assign(Id(i), views.last());
        }
        QCOMPARE(stage.Order().size(), 60);
        for (TTestView const& view : qAsConst(views))
            stage.manager->OnShowMiniView(view.id);
        stage.screen.FinishSlides();
        QCOMPARE(stage.manager->GetSlot(0).size(), 58);
        for (int i = 59; i >= 0; --i)
            stage.screen->RemoveNavButton(Id(i));
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(stage.Order().isEmpty());
        QVERIFY(stage.screen->GetAllNavButtonIDs().isEmpty());
    }
};

COMMONUI_TEST(TScreenNavigationTest)
#include "TScreenNavigationTest.moc"
