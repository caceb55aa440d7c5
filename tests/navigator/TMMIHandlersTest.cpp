#include "TMMICapableWidgetNavigator.h"

#include "TestCase.h"
#include "TNavigatorStage.h"

#include <QRandomGenerator>

#include <initializer_list>

namespace
{
enum class EHandler
{
    Highlight,
    UnHighlight,
    HighlightChild,
    Enter,
    Back,
    WheelLeft,
    WheelRight
};

enum class EDeed
{
    DeleteSelf,
    DeleteNeighbour,
    DeleteLevel,
    DeleteScreen,
    DeleteNavigator,
    EnterNeighbour,
    HoldBack,
    Back,
    Refresh,
    StepRight,
    FollowPath,
    Tick
};

struct TNamedHandler
{
    char const* name;
    EHandler handler;
};

struct TNamedDeed
{
    char const* name;
    EDeed deed;
};

constexpr TNamedHandler HANDLERS[] = {
    {"highlight", EHandler::Highlight},
    {"unhighlight", EHandler::UnHighlight},
    {"highlight child", EHandler::HighlightChild},
    {"enter", EHandler::Enter},
    {"back", EHandler::Back},
    {"wheel left", EHandler::WheelLeft},
    {"wheel right", EHandler::WheelRight},
};

constexpr TNamedDeed DEEDS[] = {
    {"delete itself", EDeed::DeleteSelf},
    {"delete its neighbour", EDeed::DeleteNeighbour},
    {"delete the level", EDeed::DeleteLevel},
    {"delete the screen", EDeed::DeleteScreen},
    {"delete the navigator", EDeed::DeleteNavigator},
    {"enter its neighbour", EDeed::EnterNeighbour},
    {"leave by a long press", EDeed::HoldBack},
    {"go back", EDeed::Back},
    {"refresh", EDeed::Refresh},
    {"turn the wheel", EDeed::StepRight},
    {"follow a path", EDeed::FollowPath},
    {"tick", EDeed::Tick},
};

TMMITestWidget::THandler& Member(TMMITestWidget& widget, EHandler handler)
{
    switch (handler)
    {
    case EHandler::Highlight:
        return widget.highlight;
    case EHandler::UnHighlight:
        return widget.unHighlight;
    case EHandler::HighlightChild:
        return widget.highlightChild;
    case EHandler::Enter:
        return widget.enter;
    case EHandler::Back:
        return widget.back;
    case EHandler::WheelLeft:
        return widget.wheelLeft;
    case EHandler::WheelRight:
        break;
    }
    return widget.wheelRight;
}

// A screen of panels and wheel owners of which every one does the deed once, the first time its handler is
// called.
class TTroubledStage : public TNavigatorStage
{
public:
    TTroubledStage()
    {
        for (char const* name : {"a", "b", "c"})
            m_Panels << AddPanel(name);
        AddStop("owner")->SetMMIBehaviour(MMI_WHEEL_OWNER);
        AddStop("d");
        m_Panels.at(1)->carryOver = true;
        Start(0);
    }

    void LetAll(EHandler handler, EDeed deed)
    {
        Let(root, handler, deed);
        QList<TMMITestWidget*> const stops = WidgetsIn(root);
        for (TMMITestWidget* widget : stops)
            Let(widget, handler, deed);
    }
    void Let(TMMITestWidget* widget, EHandler handler, EDeed deed)
    {
        QPointer<TMMITestWidget> const actor(widget);
        Member(*widget, handler) = [this, actor, handler, deed]
        {
            if (actor)
                Member(*actor, handler) = nullptr;
            ++deeds;
            Do(deed, actor);
        };
    }
    void Do(EDeed deed, QPointer<TMMITestWidget> const& actor);

    TMMITestWidget* Panel(char const* name) const
    {
        return dynamic_cast<TMMITestWidget*>(root->findChild<QWidget*>(QString::fromLatin1(name)));
    }

    int deeds = 0;

private:
    // Another panel of the screen, if one is left.
    TMMITestWidget* NeighbourOf(TMMITestWidget const* actor) const
    {
        for (QPointer<TMMITestWidget> const& panel : m_Panels)
        {
            if (panel && panel != actor && !panel->isAncestorOf(actor))
                return panel;
        }
        return nullptr;
    }

    QVector<QPointer<TMMITestWidget>> m_Panels;
};

void TTroubledStage::Do(EDeed deed, QPointer<TMMITestWidget> const& actor)
{
    if (!actor || !navigator)
        return;
    switch (deed)
    {
    case EDeed::DeleteSelf:
        delete actor.data();
        break;
    case EDeed::DeleteNeighbour:
        delete NeighbourOf(actor);
        break;
    case EDeed::DeleteLevel:
        delete (actor->parentWidget() ? actor->parentWidget() : actor.data());
        break;
    case EDeed::DeleteScreen:
        delete root;
        break;
    case EDeed::DeleteNavigator:
        delete navigator;
        break;
    case EDeed::EnterNeighbour:
        navigator->PushWidget(NeighbourOf(actor));
        break;
    case EDeed::HoldBack:
        navigator->OnHoldBack();
        break;
    case EDeed::Back:
        navigator->OnBack();
        break;
    case EDeed::Refresh:
        navigator->RefreshChildren(actor.data());
        break;
    case EDeed::StepRight:
        navigator->OnWheelRight();
        break;
    case EDeed::FollowPath:
        navigator->FollowPath(root, {QStringLiteral("b"), QStringLiteral("b1")}, nullptr, QString());
        break;
    case EDeed::Tick:
        navigator->UpdateFocus();
        break;
    }
}

void Press(TTroubledStage& stage, int what)
{
    if (!stage.navigator)
        return;
    switch (what)
    {
    case 0:
        stage.navigator->OnWheelLeft();
        break;
    case 1:
        stage.navigator->OnWheelRight();
        break;
    case 2:
        stage.navigator->OnEnter();
        break;
    case 3:
        stage.navigator->OnBack();
        break;
    case 4:
        stage.navigator->OnHoldBack();
        break;
    default:
        if (stage.root)
            stage.navigator->FollowPath(stage.root, {QStringLiteral("a"), QStringLiteral("gone")}, nullptr,
                                        QString());
        break;
    }
}

// All inputs over all levels, in an order that reaches every handler.
void Operate(TTroubledStage& stage)
{
    constexpr int INPUTS[] = {2, 1, 3, 1, 2, 2, 0, 4, 1, 1, 2, 2, 0, 1, 3, 0, 5, 2, 1, 3, 1};
    for (int input : INPUTS)
    {
        Press(stage, input);
        stage.Tick();
        stage.Tick(input == 5 ? 600 : 100);
    }
}

// The operator must be able to go on: as soon as every widget has done its deed, a step makes something glow
// that is there.
bool IsStillUsable(TTroubledStage& stage)
{
    constexpr int ROUNDS = 20;
    for (int i = 0; i < ROUNDS && stage.navigator; ++i)
    {
        stage.Tick(1000);
        stage.navigator->OnHoldBack();
        stage.StepRight();
        if (!stage.Glowing().isEmpty() && stage.Glowing() != QLatin1String("elsewhere"))
            return true;
    }
    return false;
}
} // namespace

/// Handlers that pull the ground away from under the navigator that is calling them.
class TMMIHandlersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyDeedInAnyHandlerIsSurvived_data()
    {
        QTest::addColumn<int>("handler");
        QTest::addColumn<int>("deed");
        for (TNamedHandler const& handler : HANDLERS)
        {
            for (TNamedDeed const& deed : DEEDS)
                QTest::addRow("%s: %s", handler.name, deed.name) << int(handler.handler) << int(deed.deed);
        }
    }
    void anyDeedInAnyHandlerIsSurvived()
    {
        QFETCH(int, handler);
        QFETCH(int, deed);
        TTroubledStage stage;
        stage.LetAll(EHandler(handler), EDeed(deed));
        Operate(stage);
        QVERIFY(stage.deeds > 0);
        if (stage.navigator && stage.root && !TNavigatorStage::WidgetsIn(stage.root).isEmpty())
            QVERIFY(IsStillUsable(stage));
    }

    void anyDeedOnAPassedLevelsWayBackIsSurvived_data()
    {
        QTest::addColumn<int>("deed");
        for (TNamedDeed const& deed : DEEDS)
            QTest::newRow(deed.name) << int(deed.deed);
    }
    void anyDeedOnAPassedLevelsWayBackIsSurvived()
    {
        QFETCH(int, deed);
        TTroubledStage stage;
        stage.navigator->FollowPath(stage.root, {QStringLiteral("a"), QStringLiteral("nowhere")}, nullptr,
                                    QString());
        stage.LetAll(EHandler::Back, EDeed(deed));
        stage.Tick();
        stage.Tick(600);
        QCOMPARE(stage.deeds, 1);
        stage.Tick(600);
    }

    void widgetThatOpensSomethingOnItsWayBackLetsTheOperatorIn()
    {
        TTroubledStage stage;
        stage.navigator->FollowPath(stage.root, {QStringLiteral("a"), QStringLiteral("nowhere")}, nullptr,
                                    QString());
        stage.Tick();
        stage.Let(stage.Panel("a"), EHandler::Back, EDeed::EnterNeighbour);
        stage.Tick(600);
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("b1"));
    }

    void backThatOpensAQuestionDoesNotLeaveTheQuestion()
    {
        TTroubledStage stage;
        stage.Enter();
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
        stage.Let(stage.Panel("a"), EHandler::Back, EDeed::EnterNeighbour);
        QVERIFY(stage.navigator->OnBack());
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("b1"));
    }

    void backThatLeavesByItselfIsNotDoneTwice()
    {
        TTroubledStage stage;
        stage.Enter();
        stage.navigator->PushWidget(stage.Panel("c"));
        stage.Tick();
        stage.Let(stage.Panel("c"), EHandler::Back, EDeed::HoldBack);
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.Glowing(), QStringLiteral("a1"));
    }

    void buttonThatDiesOfItsPressIsNotEntered()
    {
        TTroubledStage stage;
        stage.Let(stage.Panel("a"), EHandler::Enter, EDeed::DeleteSelf);
        stage.navigator->OnEnter();
        QCOMPARE(stage.deeds, 1);
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("b"));
    }

    void selectionsThatPushEachOtherAwayDoNotHang()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        TMMITestWidget* const b = stage.AddStop("b");
        a->highlight = [&stage, b] { stage.navigator->RefreshChildren(b); };
        b->highlight = [&stage, a] { stage.navigator->RefreshChildren(a); };
        stage.Start();
        stage.navigator->OnWheelRight();
        for (int i = 0; i < 10; ++i)
            stage.Tick();
        QVERIFY(stage.calls.count(QStringLiteral("+a")) <= 10);
        QVERIFY(stage.calls.count(QStringLiteral("+a")) > 1);
    }

    void selectionTurnedByTheOneItLeavesIsTheOneThatIsTold()
    {
        TNavigatorStage stage;
        TMMITestWidget* const a = stage.AddStop("a");
        stage.AddStop("b");
        TMMITestWidget* const c = stage.AddStop("c");
        stage.Start(0);
        a->unHighlight = [&stage, c] { stage.navigator->RefreshChildren(c); };
        stage.StepRight();
        QCOMPARE(stage.TakeCalls(),
                 (QStringList{QStringLiteral("-a"), QStringLiteral("child c"), QStringLiteral("+c")}));
        QCOMPARE(stage.Glowing(), QStringLiteral("c"));
    }

    void navigatorMayDieInAnyState_data()
    {
        QTest::addColumn<int>("steps");
        for (int steps = 0; steps < 21; ++steps)
            QTest::addRow("after %d inputs", steps) << steps;
    }
    void navigatorMayDieInAnyState()
    {
        QFETCH(int, steps);
        TTroubledStage stage;
        for (int i = 0; i < steps; ++i)
        {
            Press(stage, (i * 7) % 6);
            stage.Tick();
        }
        delete stage.navigator;
        QVERIFY(stage.root);
        QVERIFY(!stage.Highlight());
        stage.root->hide();
        stage.root->show();
    }

    void randomDeedsAndInputsAreSurvived_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 100; ++seed)
            QTest::addRow("seed %d", seed) << seed;
    }
    void randomDeedsAndInputsAreSurvived()
    {
        QFETCH(int, seed);
        QRandomGenerator random{quint32(seed)};
        TTroubledStage stage;
        for (int i = 0; i < 200 && stage.root && stage.navigator; ++i)
        {
            QList<TMMITestWidget*> const widgets = TNavigatorStage::WidgetsIn(stage.root);
            if (widgets.isEmpty())
                break;
            TMMITestWidget* const widget = widgets.at(random.bounded(widgets.size()));
            EDeed const deed = DEEDS[random.bounded(12)].deed;
            bool const isTheEnd = deed == EDeed::DeleteScreen || deed == EDeed::DeleteNavigator;
            if (!isTheEnd || random.bounded(20) == 0)
                stage.Let(widget, HANDLERS[random.bounded(7)].handler, deed);
            widget->setVisible(random.bounded(8) != 0);
            Press(stage, random.bounded(6));
            stage.Tick(random.bounded(300));
        }
        QVERIFY(stage.deeds > 0);
    }
};

COMMONUI_TEST(TMMIHandlersTest)
#include "TMMIHandlersTest.moc"
