#include "TStackableWidget.h"
#include "TAllocationCount.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TFinger.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace
{
constexpr int StackHeight = 400;
constexpr int LowHeight = 50;
constexpr int HighHeight = 100;

/// A window that notes what its children let through.
class TListeningWindow : public QWidget
{
public:
    QVector<QEvent::Type> heard;

protected:
    void mousePressEvent(QMouseEvent* event) override { heard.append(event->type()); }
    void mouseMoveEvent(QMouseEvent* event) override { heard.append(event->type()); }
    void mouseReleaseEvent(QMouseEvent* event) override { heard.append(event->type()); }
};

/// A layer that counts its paints.
class TLayer : public QWidget
{
public:
    TLayer() { resize(200, 10); }

    int paints = 0;
    std::function<void()> onResize;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
    void resizeEvent(QResizeEvent*) override
    {
        if (onResize)
            onResize();
    }
};

/// A stop of the wheel.
class TStop : public QWidget, public KVN::MMICapableWidget
{
public:
    using QWidget::QWidget;
};

struct TStage
{
    explicit TStage(QString const& open = QString(), bool ownsDrag = true, int low = LowHeight,
                    int high = HighHeight)
        : stack(new TStackableWidget(&window, low, high, ownsDrag))
        , finger(&window)
    {
        window.resize(300, 500);
        stack->setGeometry(20, 10, 200, StackHeight);
        for (QChar const layer : open)
            Add(layer == QLatin1Char('1'));
        window.show();
    }

    TLayer* Add(bool maximised)
    {
        auto* const layer = new TLayer;
        layers.append(layer);
        stack->AddWidget(layer, maximised);
        return layer;
    }
    QTimer* Timer() const { return stack->findChild<QTimer*>(); }
    /// A step of the stack's own timer.
    void Tick() const
    {
        QTimerEvent event(Timer()->timerId());
        QCoreApplication::sendEvent(Timer(), &event);
    }
    /// Lets every layer come to its height.
    void Settle() const
    {
        for (int i = 0; i < 60; ++i)
            stack->UpdateLayers();
    }
    QVector<int> Heights() const
    {
        QVector<int> heights;
        for (QPointer<TLayer> const& layer : layers)
        {
            if (layer)
                heights.append(layer->height());
        }
        return heights;
    }
    QVector<int> Tops() const
    {
        QVector<int> tops;
        for (QPointer<TLayer> const& layer : layers)
            tops.append(layer->y());
        return tops;
    }
    /// Moves from where the finger is.
    void Move(int dy, int dx = 0)
    {
        place += QPoint(dx, dy);
        finger.Move(place);
    }
    void Press()
    {
        place = QPoint(100, 200);
        finger.Press(place);
    }

    TListeningWindow window;
    QPointer<TStackableWidget> stack;
    QVector<QPointer<TLayer>> layers;
    TFinger finger;
    QPoint place;
};

/// The signals of a stack in the order in which they came: "+2" for an opened layer, "-0" for a closed one.
class TSignals : public QObject
{
public:
    explicit TSignals(TStackableWidget* stack)
    {
        connect(stack, &TStackableWidget::LayerMaximised, this,
                [this](int layer) { m_Signals += QStringLiteral("+%1").arg(layer); });
        connect(stack, &TStackableWidget::LayerMinimised, this,
                [this](int layer) { m_Signals += QStringLiteral("-%1").arg(layer); });
    }
    /// Those since the last question.
    QString Take() { return std::exchange(m_Signals, {}); }

private:
    QString m_Signals;
};

/// What a stack ought to do, by its rules alone: which layers are open, and who exchanges height.
struct TStackModel
{
    bool HasClosedBeside(bool below) const
    {
        for (int closed = 0; closed < open.size(); ++closed)
        {
            for (int other = 0; other < open.size(); ++other)
            {
                if (!open.at(closed) && open.at(other) && (below ? closed < other : closed > other))
                    return true;
            }
        }
        return false;
    }
    QString Set(int layer, bool value)
    {
        if (layer < 0 || layer >= open.size() || open.at(layer) == value)
            return {};
        open[layer] = value;
        return QStringLiteral("%1%2").arg(QLatin1Char(value ? '+' : '-')).arg(layer);
    }
    QString Exchange(int from, int to)
    {
        QString const opened = Set(to, true);
        return opened + Set(from, false);
    }
    /// The effect of a finger that moved layers by \a pixels in all, downward if positive.
    QString Drag(int pixels)
    {
        bool const up = pixels < 0;
        if (!HasClosedBeside(up))
            return {};
        int const giver = up ? open.lastIndexOf(true) : open.indexOf(true);
        int const taker = up ? open.lastIndexOf(false, giver) : open.indexOf(false, giver);
        bool const isOver = qAbs(pixels) > (HighHeight - LowHeight) / 2;
        return isOver ? Exchange(giver, taker) : QString();
    }
    QVector<int> Heights() const
    {
        QVector<int> heights;
        for (bool const isOpen : open)
            heights.append(isOpen ? HighHeight : LowHeight);
        return heights;
    }

    QVector<bool> open;
};

/// A stop that is no widget.
struct TBareStop : KVN::MMICapableWidget
{
};

// A finger drags a layer a little up or down; answers what the model says of it.
QString DragByChance(TStage& stage, TStackModel& model, QRandomGenerator& random)
{
    int const dy = random.bounded(2) == 0 ? -1 : 1;
    int const way = random.bounded(60);
    stage.Settle();
    stage.Press();
    stage.Move(7 * dy);
    if (way > 0)
        stage.Move(way * dy);
    stage.finger.Lift();
    return model.Drag(way * dy);
}

// One call of any kind, made of the stack and told to the model; answers the signals that the model expects.
QString DoAnything(TStage& stage, TStackModel& model, QRandomGenerator& random)
{
    int const layer = random.bounded(8) - 1;
    int const other = random.bounded(8) - 1;
    switch (random.bounded(8))
    {
    case 0:
        if (model.open.size() < 6)
        {
            bool const isOpen = random.bounded(2) == 0;
            stage.Add(isOpen);
            model.open.append(isOpen);
        }
        break;
    case 1:
        if (random.bounded(3) == 0 && !model.open.isEmpty())
        {
            stage.stack->RemoveWidget();
            delete stage.layers.takeLast();
            model.open.removeLast();
        }
        break;
    case 2:
        if (random.bounded(3) == 0 && layer >= 0 && layer < model.open.size())
        {
            delete stage.layers.takeAt(layer);
            model.open.removeAt(layer);
        }
        break;
    case 3:
        stage.stack->SetMaximised(layer, other % 2 == 0);
        return model.Set(layer, other % 2 == 0);
    case 4:
        stage.stack->MoveMaximised(layer, other);
        return model.Exchange(layer, other);
    default:
        return DragByChance(stage, model, random);
    }
    return {};
}
} // namespace

class TStackableWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void layersStandOnEachOtherFromTheBottom();
    void addedLayerStartsAtItsFullHeight();
    void addedLayerKeepsItsXAndWidthAndIsShown();
    void whatCannotBeALayerIsLeftAlone();
    void layerComesTwoFifthsNearerWithEachUpdate();
    void everyLayerReachesItsHeight();
    void heightIsSetWithTheNextUpdateOnly();
    void layersCoverEachOtherByTheOverlap();
    void overlapIsFiniteOrNothing();
    void layersFollowTheBottomEdge();
    void limitsOfTheLayersFollowTheStack();
    void newLimitsMoveTheLayers();
    void limitsThatNoWidgetCanHave_data();
    void limitsThatNoWidgetCanHave();
    void ownLimitsOfALayerCount();

    void timerRunsOnlyWhileTheStackIsShown();
    void timerMovesTheLayers();
    void restingStackDoesNothing();

    void layersOpenAndCloseByNumber();
    void layerThatIsNotThereChangesNothing();
    void movingTheOpenLayerOpensFirst();
    void removingFromAnEmptyStackLeavesItAsItIs();
    void removingTakesTheLastLayer();
    void removingAllTakesAllLayers();

    void whoCanBeDragged_data();
    void whoCanBeDragged();
    void oneLayerCannotBeDraggedDown();
    void fingerMovesTheBoundary_data();
    void fingerMovesTheBoundary();
    void dragBeginsAtEightPixels_data();
    void dragBeginsAtEightPixels();
    void waysBothUpAndDownAddUp();
    void firstMoveAfterTheThresholdDecides();
    void refusedDirectionIsAskedAgain();
    void decidedDragKeepsItsLayers();
    void sidewaysMoveGoesToTheParent();
    void stackThatDoesNotOwnTheDragLetsItThrough();
    void dragMovesByTheRatio();
    void fallingRatioIsIgnored();
    void dragStopsAtTheLimits();
    void nothingComesNearerDuringADrag();
    void moveWithoutAPressDoesNothing();
    void secondPressStartsOver();
    void dragFromAButton();

    void releaseGivesTheRoomToWhoHasMore_data();
    void releaseGivesTheRoomToWhoHasMore();
    void releaseWithoutADragChangesNothing();

    void wheelWalksIntoAClosedLayer();
    void wheelOpensTheLayerItEnters();
    void wheelClosesTheFirstOpenLayer();
    void wheelOutsideTheLayersChangesNothing();

    void deletedLayerDropsOut();
    void layerTakenElsewhereDropsOut();
    void layerDeletedInADragEndsIt();
    void layerAddedInADragEndsIt();
    void liftBesideTheStackEndsTheDrag();
    void hidingTheStackEndsTheDrag();
    void layerDeletedWhileOthersAreResized();
    void slotMayRemoveTheLayersOfTheDrag();
    void slotMayDeleteTheStack_data();
    void slotMayDeleteTheStack();
    void deletedWhilePressed();
    void deletedWhileShownAndMoving();
    void anyOrderOfCallsKeepsToTheRules();
};

void TStackableWidgetTest::layersStandOnEachOtherFromTheBottom()
{
    TStage stage(QStringLiteral("010"));
    QCOMPARE(stage.Heights(), QVector<int>({50, 100, 50}));
    QCOMPARE(stage.Tops(), QVector<int>({350, 250, 200}));
}

void TStackableWidgetTest::addedLayerStartsAtItsFullHeight()
{
    TStage stage;
    stage.Add(true);
    stage.Add(false);
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
    QCOMPARE(stage.stack->NumberOfWidgets(), 2);
}

void TStackableWidgetTest::addedLayerKeepsItsXAndWidthAndIsShown()
{
    TStage stage;
    auto* const layer = new TLayer;
    layer->setGeometry(30, 7, 120, 20);
    stage.stack->AddWidget(layer, true);
    QCOMPARE(layer->parentWidget(), stage.stack.data());
    QCOMPARE(layer->geometry(), QRect(30, 300, 120, 100));
    QVERIFY(layer->isVisible());
    auto* const shown = new TLayer;
    shown->setParent(&stage.window);
    shown->setGeometry(25, 70, 110, 20);
    shown->show();
    stage.stack->AddWidget(shown, false);
    QCOMPARE(shown->geometry(), QRect(25, 250, 110, 50));
}

void TStackableWidgetTest::whatCannotBeALayerIsLeftAlone()
{
    TStage stage(QStringLiteral("1"));
    stage.stack->AddWidget(nullptr, true);
    stage.stack->AddWidget(stage.stack, true);
    stage.stack->AddWidget(&stage.window, true);
    stage.stack->AddWidget(stage.layers.first(), false);
    QCOMPARE(stage.stack->NumberOfWidgets(), 1);
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>{100});
}

void TStackableWidgetTest::layerComesTwoFifthsNearerWithEachUpdate()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->MoveMaximised(1, 0);
    // Rounded up while it opens and down while it closes: 70 and 80, 82 and 68, 89.2 and 60.8.
    stage.stack->UpdateLayers();
    QCOMPARE(stage.Heights(), QVector<int>({70, 80}));
    stage.stack->UpdateLayers();
    QCOMPARE(stage.Heights(), QVector<int>({82, 68}));
    stage.stack->UpdateLayers();
    QCOMPARE(stage.Heights(), QVector<int>({90, 60}));
    QCOMPARE(stage.Tops(), QVector<int>({310, 250}));
}

void TStackableWidgetTest::everyLayerReachesItsHeight()
{
    TStage stage(QStringLiteral("01"), true, 33, 97);
    stage.stack->MoveMaximised(1, 0);
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({97, 33}));
    stage.stack->MoveMaximised(0, 1);
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({33, 97}));
}

void TStackableWidgetTest::heightIsSetWithTheNextUpdateOnly()
{
    TStage stage(QStringLiteral("0"));
    stage.stack->SetMaximised(0, true);
    QCOMPARE(stage.Heights(), QVector<int>{50});
}

void TStackableWidgetTest::layersCoverEachOtherByTheOverlap()
{
    TStage stage(QStringLiteral("011"));
    stage.stack->SetOverlapAmount(10.0F);
    QCOMPARE(stage.Heights(), QVector<int>({50, 100, 100}));
    QCOMPARE(stage.Tops(), QVector<int>({350, 260, 170}));
    stage.stack->SetOverlapAmount(-5.0F);
    QCOMPARE(stage.Tops(), QVector<int>({350, 245, 140}));
}

void TStackableWidgetTest::overlapIsFiniteOrNothing()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->SetOverlapAmount(std::numeric_limits<float>::quiet_NaN());
    stage.stack->SetOverlapAmount(std::numeric_limits<float>::infinity());
    QCOMPARE(stage.Tops(), QVector<int>({350, 250}));
    stage.stack->SetOverlapAmount(-std::numeric_limits<float>::max());
    QCOMPARE(stage.Tops(), QVector<int>({350, -QWIDGETSIZE_MAX - 100}));
    stage.stack->SetOverlapAmount(std::numeric_limits<float>::max());
    QCOMPARE(stage.Tops(), QVector<int>({350, QWIDGETSIZE_MAX - 100}));
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
    stage.stack->SetOverlapAmount(0);
    QCOMPARE(stage.Tops(), QVector<int>({350, 250}));
}

void TStackableWidgetTest::layersFollowTheBottomEdge()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->SetMaximised(0, true);
    stage.stack->resize(200, 300);
    QCOMPARE(stage.Tops(), QVector<int>({250, 150}));
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::limitsOfTheLayersFollowTheStack()
{
    TStage stage(QStringLiteral("01"));
    QCOMPARE(stage.layers.first()->minimumHeight(), 50);
    QCOMPARE(stage.layers.first()->maximumHeight(), 100);
    stage.stack->SetMinChildHeight(20);
    stage.stack->SetMaxChildHeight(120);
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
    {
        QCOMPARE(layer->minimumHeight(), 20);
        QCOMPARE(layer->maximumHeight(), 120);
    }
}

void TStackableWidgetTest::newLimitsMoveTheLayers()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->SetMinChildHeight(40);
    QCOMPARE(stage.Heights(), QVector<int>({46, 100}));
    stage.stack->SetMinChildHeight(60);
    QCOMPARE(stage.Heights(), QVector<int>({60, 100}));
    stage.stack->SetMaxChildHeight(110);
    QCOMPARE(stage.Heights(), QVector<int>({60, 104}));
    stage.stack->SetMaxChildHeight(80);
    QCOMPARE(stage.Heights(), QVector<int>({60, 80}));
}

void TStackableWidgetTest::limitsThatNoWidgetCanHave_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QVector<int>>("heights");
    QTest::newRow("negative") << -10 << -5 << QVector<int>({0, 0});
    QTest::newRow("negative minimum") << -10 << 60 << QVector<int>({0, 60});
    QTest::newRow("maximum below the minimum") << 70 << 30 << QVector<int>({70, 70});
    QTest::newRow("beyond every widget") << std::numeric_limits<int>::max() << std::numeric_limits<int>::max()
                                         << QVector<int>({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
}

void TStackableWidgetTest::limitsThatNoWidgetCanHave()
{
    QFETCH(int, low);
    QFETCH(int, high);
    TStackableWidget stack(nullptr, low, high, true);
    stack.resize(200, 200);
    QWidget closed;
    QWidget open;
    stack.AddWidget(&closed, false);
    stack.AddWidget(&open, true);
    QTEST(QVector<int>({closed.height(), open.height()}), "heights");
    stack.SetMinChildHeight(10);
    stack.SetMaxChildHeight(20);
    for (int i = 0; i < 60; ++i)
        stack.UpdateLayers();
    QCOMPARE(QVector<int>({closed.height(), open.height()}), QVector<int>({10, 20}));
}

void TStackableWidgetTest::ownLimitsOfALayerCount()
{
    TStage stage(QStringLiteral("10"));
    stage.layers.first()->setMaximumHeight(80);
    stage.stack->UpdateLayers();
    QCOMPARE(stage.Heights(), QVector<int>({80, 50}));
    QCOMPARE(stage.Tops(), QVector<int>({320, 270}));
}

void TStackableWidgetTest::timerRunsOnlyWhileTheStackIsShown()
{
    TStage stage;
    QCOMPARE(stage.Timer()->interval(), 25);
    QVERIFY(stage.Timer()->isActive());
    stage.stack->hide();
    QVERIFY(!stage.Timer()->isActive());
    stage.stack->show();
    QVERIFY(stage.Timer()->isActive());
    stage.window.hide();
    QVERIFY(!stage.Timer()->isActive());
    TStackableWidget const unseen(nullptr, 1, 2, true);
    QVERIFY(!unseen.findChild<QTimer*>()->isActive());
}

void TStackableWidgetTest::timerMovesTheLayers()
{
    TStage stage(QStringLiteral("0"));
    stage.stack->SetMaximised(0, true);
    stage.Tick();
    QCOMPARE(stage.Heights(), QVector<int>{70});
}

void TStackableWidgetTest::restingStackDoesNothing()
{
    TStage stage(QStringLiteral("011"));
    stage.stack->SetOverlapAmount(2.5F);
    stage.stack->MoveMaximised(1, 0);
    stage.Settle();
    QCoreApplication::processEvents();
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
        layer->paints = 0;
    TAllocationCount const allocations;
    for (int i = 0; i < 10; ++i)
        stage.Tick();
    QCOMPARE(allocations.Value(), 0);
    QCoreApplication::processEvents();
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
        QCOMPARE(layer->paints, 0);
}

void TStackableWidgetTest::layersOpenAndCloseByNumber()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    stage.stack->SetMaximised(0, true);
    stage.stack->SetMaximised(0, true);
    stage.stack->SetMaximised(1, false);
    stage.stack->SetMaximised(1, false);
    QCOMPARE(heard.Take(), QStringLiteral("+0-1"));
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
}

void TStackableWidgetTest::layerThatIsNotThereChangesNothing()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    for (int const layer : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        stage.stack->SetMaximised(layer, true);
        stage.stack->SetMaximised(layer, false);
        stage.stack->MoveMaximised(layer, layer);
    }
    QCOMPARE(heard.Take(), QString());
    stage.stack->MoveMaximised(7, 0);
    QCOMPARE(heard.Take(), QStringLiteral("+0"));
    stage.stack->MoveMaximised(1, -1);
    QCOMPARE(heard.Take(), QStringLiteral("-1"));
}

void TStackableWidgetTest::movingTheOpenLayerOpensFirst()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    stage.stack->MoveMaximised(1, 0);
    QCOMPARE(heard.Take(), QStringLiteral("+0-1"));
    stage.stack->MoveMaximised(0, 0);
    QCOMPARE(heard.Take(), QStringLiteral("-0"));
}

void TStackableWidgetTest::removingFromAnEmptyStackLeavesItAsItIs()
{
    TStage stage;
    stage.stack->RemoveWidget();
    stage.stack->RemoveAll();
    QCOMPARE(stage.stack->NumberOfWidgets(), 0);
    QVERIFY(!stage.stack->CanDragUp());
    QVERIFY(!stage.stack->CanDragDown());
    stage.Add(true);
    QCOMPARE(stage.Heights(), QVector<int>{100});
}

void TStackableWidgetTest::removingTakesTheLastLayer()
{
    TStage stage(QStringLiteral("101"));
    stage.stack->RemoveWidget();
    QCOMPARE(stage.stack->NumberOfWidgets(), 2);
    QVERIFY(stage.layers.at(2)->isHidden());
    QVERIFY(stage.layers.at(1)->isVisible());
    QVERIFY(!stage.stack->CanDragUp());
    stage.stack->resize(200, 300);
    QCOMPARE(stage.Tops(), QVector<int>({200, 150, 150}));
    stage.stack->AddWidget(stage.layers.at(2), true);
    QVERIFY(stage.layers.at(2)->isVisible());
    QCOMPARE(stage.Tops(), QVector<int>({200, 150, 50}));
}

void TStackableWidgetTest::removingAllTakesAllLayers()
{
    TStage stage(QStringLiteral("101"));
    TSignals heard(stage.stack);
    stage.stack->RemoveAll();
    QCOMPARE(stage.stack->NumberOfWidgets(), 0);
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
        QVERIFY(layer->isHidden());
    QCOMPARE(heard.Take(), QString());
}

void TStackableWidgetTest::whoCanBeDragged_data()
{
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::newRow("0") << false << false;
    QTest::newRow("1") << false << false;
    QTest::newRow("00") << false << false;
    QTest::newRow("11") << false << false;
    QTest::newRow("01") << true << false;
    QTest::newRow("10") << false << true;
    QTest::newRow("010") << true << true;
    QTest::newRow("101") << true << true;
    QTest::newRow("011") << true << false;
    QTest::newRow("110") << false << true;
    QTest::newRow("001") << true << false;
    QTest::newRow("100") << false << true;
    QTest::newRow("1001") << true << true;
    QTest::newRow("0000") << false << false;
    QTest::newRow("1111") << false << false;
}

void TStackableWidgetTest::whoCanBeDragged()
{
    TStage stage(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(stage.stack->CanDragUp(), "up");
    QTEST(stage.stack->CanDragDown(), "down");
}

void TStackableWidgetTest::oneLayerCannotBeDraggedDown()
{
    TStage stage(QStringLiteral("1"));
    QVERIFY(!stage.stack->CanDragDown());
    QVERIFY(!stage.stack->CanDragUp());
    stage.Press();
    stage.Move(20);
    stage.Move(-40);
    QCOMPARE(stage.Heights(), QVector<int>{100});
    stage.finger.Lift();
    QCOMPARE(stage.Heights(), QVector<int>{100});
}

void TStackableWidgetTest::fingerMovesTheBoundary_data()
{
    QTest::addColumn<int>("dy");
    QTest::addColumn<QVector<int>>("heights");
    QTest::newRow("01") << -20 << QVector<int>({70, 80});
    QTest::newRow("10") << 20 << QVector<int>({80, 70});
    QTest::newRow("0110") << -20 << QVector<int>({70, 100, 80, 50});
    QTest::newRow("0101") << -20 << QVector<int>({50, 100, 70, 80});
    QTest::newRow("0110 down") << 20 << QVector<int>({50, 80, 100, 70});
    QTest::newRow("1010") << 20 << QVector<int>({80, 70, 100, 50});
    QTest::newRow("1001") << -20 << QVector<int>({100, 50, 70, 80});
}

void TStackableWidgetTest::fingerMovesTheBoundary()
{
    QFETCH(int, dy);
    TStage stage(QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(' '), 0, 0));
    stage.Press();
    stage.Move(dy);
    QTEST(stage.Heights(), "heights");
}

void TStackableWidgetTest::dragBeginsAtEightPixels_data()
{
    QTest::addColumn<QVector<int>>("path");
    QTest::addColumn<int>("moved");
    QTest::newRow("seven") << QVector<int>{-7} << 0;
    QTest::newRow("eight") << QVector<int>{-8} << 8;
    QTest::newRow("seven in steps") << QVector<int>{-3, -4} << 0;
    QTest::newRow("the step to eight counts, those before are lost") << QVector<int>{-3, -4, -1} << 1;
    QTest::newRow("what follows counts") << QVector<int>{-7, -1, -5} << 6;
}

void TStackableWidgetTest::dragBeginsAtEightPixels()
{
    QFETCH(QVector<int>, path);
    QFETCH(int, moved);
    TStage stage(QStringLiteral("01"));
    stage.Press();
    for (int const dy : path)
        stage.Move(dy);
    QCOMPARE(stage.Heights(), QVector<int>({50 + moved, 100 - moved}));
}

void TStackableWidgetTest::waysBothUpAndDownAddUp()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.Move(-5);
    stage.Move(5);
    stage.Move(-1);
    QCOMPARE(stage.Heights(), QVector<int>({51, 99}));
}

void TStackableWidgetTest::firstMoveAfterTheThresholdDecides()
{
    TStage stage(QStringLiteral("010"));
    stage.Press();
    stage.Move(7);
    stage.Move(-1);
    QCOMPARE(stage.Heights(), QVector<int>({51, 99, 50}));
}

void TStackableWidgetTest::refusedDirectionIsAskedAgain()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.Move(10);
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
    stage.Move(-4);
    QCOMPARE(stage.Heights(), QVector<int>({54, 96}));
}

void TStackableWidgetTest::decidedDragKeepsItsLayers()
{
    TStage stage(QStringLiteral("010"));
    stage.Press();
    stage.Move(-20);
    stage.Move(15);
    QCOMPARE(stage.Heights(), QVector<int>({55, 95, 50}));
    stage.stack->SetMaximised(2, true);
    stage.Move(-2);
    QCOMPARE(stage.Heights(), QVector<int>({57, 93, 50}));
}

void TStackableWidgetTest::sidewaysMoveGoesToTheParent()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.window.heard.clear();
    stage.Move(-10, 10);
    QCOMPARE(stage.window.heard, QVector<QEvent::Type>{QEvent::MouseMove});
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
    // Measured from the press, as the move aside was none of the stack's.
    stage.Move(-2);
    QCOMPARE(stage.window.heard.size(), 1);
    QCOMPARE(stage.Heights(), QVector<int>({62, 88}));
    stage.Move(-1, 1);
    QCOMPARE(stage.window.heard.size(), 2);
    QCOMPARE(stage.Heights(), QVector<int>({62, 88}));
}

void TStackableWidgetTest::stackThatDoesNotOwnTheDragLetsItThrough()
{
    TStage stage(QStringLiteral("01"), false);
    stage.Press();
    stage.Move(-20);
    stage.Move(-20);
    stage.finger.Lift();
    QCOMPARE(stage.window.heard, QVector<QEvent::Type>({QEvent::MouseButtonPress, QEvent::MouseMove,
                                                        QEvent::MouseMove, QEvent::MouseButtonRelease}));
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::dragMovesByTheRatio()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->SetDragRatio(0.25F);
    stage.Press();
    stage.Move(-10);
    // 52.5 and 97.5: down for the closed layer, up for the open one, so that together they keep their room.
    QCOMPARE(stage.Heights(), QVector<int>({52, 98}));
    stage.Move(-10);
    QCOMPARE(stage.Heights(), QVector<int>({55, 95}));
}

void TStackableWidgetTest::fallingRatioIsIgnored()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->SetDragRatio(std::numeric_limits<float>::quiet_NaN());
    stage.stack->SetDragRatio(-std::numeric_limits<float>::infinity());
    stage.Press();
    stage.Move(-10);
    QCOMPARE(stage.Heights(), QVector<int>({60, 90}));
    stage.stack->SetDragRatio(std::numeric_limits<float>::max());
    stage.Move(-10);
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
}

void TStackableWidgetTest::dragStopsAtTheLimits()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.Move(-80);
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
    // The way beyond the limit is not walked back.
    stage.Move(10);
    QCOMPARE(stage.Heights(), QVector<int>({90, 60}));
    stage.Move(90);
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::nothingComesNearerDuringADrag()
{
    TStage stage(QStringLiteral("010"));
    stage.Press();
    stage.Move(-20);
    stage.stack->SetMaximised(2, true);
    stage.Tick();
    stage.Tick();
    QCOMPARE(stage.Heights(), QVector<int>({70, 80, 50}));
    stage.finger.Lift();
    stage.Tick();
    QCOMPARE(stage.Heights(), QVector<int>({62, 88, 70}));
}

void TStackableWidgetTest::moveWithoutAPressDoesNothing()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->setMouseTracking(true);
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
        layer->setMouseTracking(true);
    stage.Press();
    stage.finger.Lift();
    stage.Move(-20);
    stage.Move(-20);
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::secondPressStartsOver()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.Move(-7);
    stage.finger.Lift();
    stage.Press();
    stage.Move(-7);
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
    stage.Move(-1);
    QCOMPARE(stage.Heights(), QVector<int>({51, 99}));
    // A lift that was lost.
    stage.Press();
    stage.Move(-7);
    stage.Tick();
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::dragFromAButton()
{
    TStage stage(QStringLiteral("01"));
    auto* const button =
        new TPushButton(stage.layers.at(0), QString(), QSize(80, 40), QPoint(0, 0), 3, QString());
    QSignalSpy clicked(button, &TPushButton::Clicked);
    stage.place = button->mapTo(&stage.window, QPoint(20, 20));
    stage.finger.Press(stage.place);
    stage.Move(-30);
    QCOMPARE(stage.Heights(), QVector<int>({80, 70}));
    stage.finger.Lift();
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
    QCOMPARE(clicked.count(), 0);
}

void TStackableWidgetTest::releaseGivesTheRoomToWhoHasMore_data()
{
    QTest::addColumn<QString>("layers");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("dy");
    QTest::addColumn<QString>("signalled");
    // The middle of 50 and 100 is 75, and so is that of 50 and 101.
    QTest::newRow("not to the middle") << "01" << 100 << -24 << "";
    QTest::newRow("both on the middle") << "01" << 100 << -25 << "";
    QTest::newRow("one pixel beyond it") << "01" << 100 << -26 << "+0-1";
    QTest::newRow("odd, one more on the middle") << "01" << 101 << -25 << "";
    QTest::newRow("odd, one more beyond it") << "01" << 101 << -26 << "+0-1";
    QTest::newRow("all the way") << "01" << 100 << -50 << "+0-1";
    QTest::newRow("down, both on the middle") << "10" << 100 << 25 << "";
    QTest::newRow("down, one pixel beyond it") << "10" << 100 << 26 << "+1-0";
    QTest::newRow("past an open layer") << "011" << 100 << -40 << "+0-2";
    QTest::newRow("down past an open layer") << "110" << 100 << 40 << "+2-0";
    QTest::newRow("not allowed") << "01" << 100 << 40 << "";
}

void TStackableWidgetTest::releaseGivesTheRoomToWhoHasMore()
{
    QFETCH(QString, layers);
    QFETCH(int, high);
    QFETCH(int, dy);
    TStage stage(layers, true, LowHeight, high);
    TSignals heard(stage.stack);
    stage.Press();
    stage.Move(dy);
    QCOMPARE(heard.Take(), QString());
    stage.finger.Lift();
    QTEST(heard.Take(), "signalled");
    stage.Settle();
    QVector<int> heights = stage.Heights();
    std::sort(heights.begin(), heights.end());
    QVector<int> expected(layers.count(QLatin1Char('0')), LowHeight);
    expected += QVector<int>(layers.count(QLatin1Char('1')), high);
    QCOMPARE(heights, expected);
}

void TStackableWidgetTest::releaseWithoutADragChangesNothing()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    stage.stack->SetMaximised(0, true);
    stage.stack->SetMaximised(1, false);
    heard.Take();
    // Both still have their old heights, and only a drag may decide by heights.
    stage.Press();
    stage.Move(-7);
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
}

// Through the navigator: each layer has a stop that is seen while it is closed and one that is not.
void TStackableWidgetTest::wheelWalksIntoAClosedLayer()
{
    TStage stage(QStringLiteral("01"));
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
    {
        for (int const y : {10, 60})
        {
            auto* const stop = new TStop(layer);
            stop->setGeometry(10, y, 50, 30);
            stop->show();
        }
    }
    TManualClock clock;
    TSignals heard(stage.stack);
    TMMICapableWidgetNavigator navigator(stage.stack);
    QStringList walk;
    for (int step = 0; step < 6; ++step)
    {
        navigator.OnWheelRight();
        clock.Advance(100);
        navigator.UpdateFocus();
        walk += heard.Take();
        stage.Settle();
    }
    // From the upper layer's head to its foot, to the lower one's head, which opens it, to its foot, and
    // around.
    QString const none;
    QString const lower = QStringLiteral("+0-1");
    QString const upper = QStringLiteral("+1-0");
    QCOMPARE(walk, QStringList({none, lower, none, upper, none, lower}));
}

void TStackableWidgetTest::wheelOpensTheLayerItEnters()
{
    TStage stage(QStringLiteral("010"));
    TSignals heard(stage.stack);
    auto* const box = new QWidget(stage.layers.at(2));
    TStop stop(box);
    KVN::MMICapableWidget* const wheel = stage.stack;
    wheel->OnMMIHighlightChild(&stop);
    QCOMPARE(heard.Take(), QStringLiteral("+2-1"));
    wheel->OnMMIHighlightChild(&stop);
    QCOMPARE(heard.Take(), QString());
}

void TStackableWidgetTest::wheelClosesTheFirstOpenLayer()
{
    TStage stage(QStringLiteral("110"));
    TStop layer;
    stage.stack->AddWidget(&layer, true);
    TSignals heard(stage.stack);
    stage.stack->OnMMIHighlightChild(&layer);
    QCOMPARE(heard.Take(), QStringLiteral("-0"));
    TStop closed(stage.layers.at(2));
    stage.stack->OnMMIHighlightChild(&closed);
    QCOMPARE(heard.Take(), QStringLiteral("+2-1"));
}

void TStackableWidgetTest::wheelOutsideTheLayersChangesNothing()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    TStop beside(&stage.window);
    TStop inside(stage.stack);
    TBareStop bare;
    for (KVN::MMICapableWidget* const child :
         {static_cast<KVN::MMICapableWidget*>(nullptr), static_cast<KVN::MMICapableWidget*>(&beside),
          static_cast<KVN::MMICapableWidget*>(&inside), static_cast<KVN::MMICapableWidget*>(&bare)})
        stage.stack->OnMMIHighlightChild(child);
    stage.stack->SetMaximised(1, false);
    heard.Take();
    TStop entered(stage.layers.first());
    stage.stack->OnMMIHighlightChild(&entered);
    QCOMPARE(heard.Take(), QString());
}

void TStackableWidgetTest::deletedLayerDropsOut()
{
    TStage stage(QStringLiteral("110"));
    TSignals heard(stage.stack);
    delete stage.layers.takeAt(1);
    QCOMPARE(stage.stack->NumberOfWidgets(), 2);
    QCOMPARE(stage.Tops(), QVector<int>({300, 250}));
    stage.stack->SetMaximised(1, true);
    QCOMPARE(heard.Take(), QStringLiteral("+1"));
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({100, 100}));
}

void TStackableWidgetTest::layerTakenElsewhereDropsOut()
{
    TStage stage(QStringLiteral("110"));
    TStackableWidget other(nullptr, 10, 20, true);
    other.resize(100, 100);
    other.AddWidget(stage.layers.at(0), true);
    QCOMPARE(stage.stack->NumberOfWidgets(), 2);
    QCOMPARE(other.NumberOfWidgets(), 1);
    stage.Settle();
    QCOMPARE(stage.layers.at(0)->y(), 80);
    QCOMPARE(stage.layers.at(1)->y(), 300);
}

void TStackableWidgetTest::layerDeletedInADragEndsIt()
{
    TStage stage(QStringLiteral("0101"));
    stage.Press();
    stage.Move(-40);
    delete stage.layers.takeLast();
    TSignals heard(stage.stack);
    stage.Move(-40);
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({50, 100, 50}));
}

void TStackableWidgetTest::layerAddedInADragEndsIt()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    stage.Press();
    stage.Move(-40);
    stage.Add(false);
    stage.Move(-10);
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({50, 100, 50}));
}

// Nobody tells the stack of the lift, as the widget that the finger went down on is no more.
void TStackableWidgetTest::liftBesideTheStackEndsTheDrag()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    auto* const row = new QWidget(stage.layers.at(1));
    row->setGeometry(0, 0, 200, 90);
    row->show();
    stage.place = row->mapTo(&stage.window, QPoint(50, 50));
    stage.finger.Press(stage.place);
    stage.Move(-30);
    delete row;
    stage.Tick();
    QCOMPARE(stage.Heights(), QVector<int>({80, 70}));
    stage.finger.Move(QPoint(290, 490));
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    stage.Tick();
    QCOMPARE(heard.Take(), QStringLiteral("+0-1"));
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({100, 50}));
}

void TStackableWidgetTest::hidingTheStackEndsTheDrag()
{
    TStage stage(QStringLiteral("01"));
    TSignals heard(stage.stack);
    stage.Press();
    stage.Move(-40);
    stage.stack->hide();
    stage.stack->show();
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    stage.Settle();
    QCOMPARE(stage.Heights(), QVector<int>({50, 100}));
}

void TStackableWidgetTest::layerDeletedWhileOthersAreResized()
{
    TStage stage(QStringLiteral("0101"));
    stage.layers.at(1)->onResize = [&]
    {
        delete stage.layers.at(2);
        delete stage.layers.at(3);
    };
    stage.stack->SetMaximised(1, false);
    stage.Settle();
    QCOMPARE(stage.stack->NumberOfWidgets(), 2);
    TStage limited(QStringLiteral("0101"));
    limited.layers.at(0)->onResize = [&] { delete limited.layers.at(3); };
    limited.stack->SetMinChildHeight(60);
    QCOMPARE(limited.stack->NumberOfWidgets(), 3);
}

void TStackableWidgetTest::slotMayRemoveTheLayersOfTheDrag()
{
    TStage stage(QStringLiteral("10"));
    connect(stage.stack, &TStackableWidget::LayerMaximised, stage.stack, &TStackableWidget::RemoveAll);
    TSignals heard(stage.stack);
    stage.Press();
    stage.Move(45);
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QStringLiteral("+1"));
    QCOMPARE(stage.stack->NumberOfWidgets(), 0);
}

void TStackableWidgetTest::slotMayDeleteTheStack_data()
{
    QTest::addColumn<bool>("opened");
    QTest::newRow("when a layer opens") << true;
    QTest::newRow("when a layer closes") << false;
}

void TStackableWidgetTest::slotMayDeleteTheStack()
{
    QFETCH(bool, opened);
    auto const arm = [&](TStage& stage)
    {
        auto const signal = opened ? &TStackableWidget::LayerMaximised : &TStackableWidget::LayerMinimised;
        connect(stage.stack, signal, this, [&stage] { delete stage.stack; });
    };
    TStage moved(QStringLiteral("01"));
    arm(moved);
    moved.stack->MoveMaximised(1, 0);
    QVERIFY(!moved.stack);

    TStage dragged(QStringLiteral("01"));
    arm(dragged);
    dragged.Press();
    dragged.Move(-45);
    dragged.finger.Lift();
    QVERIFY(!dragged.stack);

    TStage draggedDown(QStringLiteral("10"));
    arm(draggedDown);
    draggedDown.Press();
    draggedDown.Move(45);
    draggedDown.finger.Lift();
    QVERIFY(!draggedDown.stack);

    TStage lost(QStringLiteral("01"));
    arm(lost);
    auto* const row = new QWidget(lost.layers.at(1));
    row->setGeometry(0, 0, 200, 90);
    row->show();
    lost.place = row->mapTo(&lost.window, QPoint(50, 50));
    lost.finger.Press(lost.place);
    lost.Move(-45);
    delete row;
    lost.finger.Move(QPoint(290, 490));
    lost.finger.Lift();
    lost.Tick();
    QVERIFY(!lost.stack);

    TStage entered(QStringLiteral("01"));
    arm(entered);
    auto* const stop = new TStop(entered.layers.at(0));
    entered.stack->OnMMIHighlightChild(stop);
    QVERIFY(!entered.stack);
}

void TStackableWidgetTest::deletedWhilePressed()
{
    TStage stage(QStringLiteral("01"));
    stage.Press();
    stage.Move(-20);
    delete stage.stack;
    stage.Move(-20);
    stage.finger.Lift();
    for (QPointer<TLayer> const& layer : qAsConst(stage.layers))
        QVERIFY(!layer);
}

void TStackableWidgetTest::deletedWhileShownAndMoving()
{
    TStage stage(QStringLiteral("01"));
    stage.stack->MoveMaximised(1, 0);
    stage.Tick();
    delete stage.stack;
    QCoreApplication::processEvents();
    QCOMPARE(stage.Heights(), QVector<int>());
}

void TStackableWidgetTest::anyOrderOfCallsKeepsToTheRules()
{
    TStage stage;
    TStackModel model;
    TSignals heard(stage.stack);
    QRandomGenerator random(83);
    for (int step = 0; step < 3000; ++step)
    {
        QString const expected = DoAnything(stage, model, random);
        QCOMPARE(heard.Take(), expected);
        QCOMPARE(stage.stack->NumberOfWidgets(), model.open.size());
        QCOMPARE(stage.stack->CanDragUp(), model.HasClosedBeside(true));
        QCOMPARE(stage.stack->CanDragDown(), model.HasClosedBeside(false));
        if (step % 10 == 0)
        {
            stage.Settle();
            QCOMPARE(stage.Heights(), model.Heights());
        }
    }
}

COMMONUI_TEST(TStackableWidgetTest)
#include "TStackableWidgetTest.moc"
