#include "TScrollableWidget.h"
#include "TAllocationCount.h"
#include "TestCase.h"
#include "TFinger.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QTimer>

#include <functional>
#include <limits>
#include <utility>

namespace
{
constexpr int PageHeight = 300;

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

/// A page that counts its paints.
class TPage : public QWidget
{
public:
    int paints = 0;
    std::function<void()> onMove;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
    void moveEvent(QMoveEvent*) override
    {
        if (onMove)
            onMove();
    }
};

/// A pager of 200 by 300 whose pages are named "a", "b", "c", ...
struct TStage
{
    /// A letter for each page: "s" a stop, "n" none, both draggable; "d" and "x" the same, disabled; "f" a
    /// stop that is fixed to its place.
    explicit TStage(QString const& pages = QString(), bool handleMouse = true)
        : pager(new TScrollableWidget(&window, handleMouse))
        , finger(&window)
    {
        window.resize(300, 400);
        pager->setGeometry(20, 10, 200, PageHeight);
        for (QChar const page : pages)
            Add(page);
        window.show();
    }

    TPage* Add(QChar kind)
    {
        auto* const page = new TPage;
        page->setObjectName(QChar(QLatin1Char(char('a' + made++))));
        page->setEnabled(!QStringLiteral("dx").contains(kind));
        bool const isStop = QStringLiteral("sdf").contains(kind);
        bool const isFixed = kind == QLatin1Char('f');
        all.append(page);
        pager->AddWidget(page,
                         EScrollBehaviour((isStop ? SCROLL_STOP : 0) | (isFixed ? 0 : SCROLL_DRAGGABLE)));
        return page;
    }
    TPage* Page(int number) const { return all.at(number); }
    QTimer* Timer() const { return pager->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }
    /// A step of the pager's own timer.
    void Tick() const
    {
        QTimerEvent event(Timer()->timerId());
        QCoreApplication::sendEvent(Timer(), &event);
    }
    QString Current() const
    {
        return pager->CurrentWidget() ? pager->CurrentWidget()->objectName() : QString();
    }
    /// The pages that are seen, with their y.
    QString Seen() const
    {
        QStringList seen;
        for (QPointer<TPage> const& page : all)
        {
            if (page && !page->isHidden())
                seen += QStringLiteral("%1%2").arg(page->objectName()).arg(page->y());
        }
        return seen.join(QLatin1Char(' '));
    }
    /// Deletes a page and lets the pager's own events come.
    void Delete(int number) const
    {
        delete all.at(number);
        QCoreApplication::sendPostedEvents(pager, QEvent::MetaCall);
    }
    /// Puts the finger down and begins a drag; moves are counted from here.
    void Press()
    {
        place = QPoint(100, 200);
        finger.Press(place);
        Move(0, 1);
    }
    void Move(int dy, int dx = 0)
    {
        place += QPoint(dx, dy);
        finger.Move(place);
    }

    TListeningWindow window;
    QPointer<TScrollableWidget> pager;
    QVector<QPointer<TPage>> all;
    int made = 0;
    TFinger finger;
    QPoint place;
};

/// The signals of a pager in their order: "1" for the layer, "b" for the widget, "-" for none.
class TSignals : public QObject
{
public:
    explicit TSignals(TScrollableWidget* pager)
    {
        connect(pager, &TScrollableWidget::ActiveLayerChanged, this,
                [this](int layer) { m_Signals += QString::number(layer); });
        connect(pager, &TScrollableWidget::ActiveWidgetChanged, this,
                [this](QWidget* widget)
                { m_Signals += widget ? widget->objectName() : QStringLiteral("-"); });
    }
    /// Those since the last question.
    QString Take() { return std::exchange(m_Signals, {}); }

private:
    QString m_Signals;
};

/// What a pager ought to answer, by its rules alone.
struct TPagerModel
{
    struct TModelPage
    {
        QWidget* widget;
        bool stop;
        bool enabled;
    };

    int Other(bool forward) const
    {
        int const count = pages.size();
        QVector<int> round;
        for (int i = 0; i + 1 < count; ++i)
            round.append(forward ? (current + 1 + i) % count : (current + 2 * count - 1 - i) % count);
        for (int const number : qAsConst(round))
        {
            if (pages.at(number).enabled && pages.at(number).stop)
                return number;
        }
        for (int const number : qAsConst(round))
        {
            if (pages.at(number).enabled)
                return number;
        }
        return current;
    }
    void Remove(int number)
    {
        pages.removeAt(number);
        if (number < current || (number == current && current == pages.size()))
            current = qMax(0, current - 1);
    }
    // The page that is seen stays.
    void BringToFront(int number)
    {
        QWidget const* const seen = Current();
        TModelPage const moved = pages.takeAt(number);
        pages.prepend(moved);
        while (Current() != seen)
            current = (current + 1) % pages.size();
    }
    QWidget* Current() const { return pages.isEmpty() ? nullptr : pages.at(current).widget; }

    QVector<TModelPage> pages;
    int current = 0;
};

// One call of any kind, made of the pager and told to the model; \a page is the one of that number, if there
// is one.
void DoAnything(TStage& stage, TPagerModel& model, QRandomGenerator& random, int number, QWidget* page)
{
    switch (random.bounded(9))
    {
    case 0:
    case 1:
        if (model.pages.size() < 6)
        {
            char const kind = "sndx"[random.bounded(4)];
            TPage* const added = stage.Add(QLatin1Char(kind));
            model.pages.append({added, kind == 's' || kind == 'd', kind == 's' || kind == 'n'});
        }
        break;
    case 2:
        if (page)
        {
            if (random.bounded(2) == 0)
                stage.pager->RemoveWidget(page);
            else
                delete page;
            model.Remove(number);
        }
        break;
    case 3:
        if (page)
        {
            page->setEnabled(!model.pages.at(number).enabled);
            model.pages[number].enabled = !model.pages.at(number).enabled;
        }
        break;
    case 4:
        stage.pager->MoveToWidget(page);
        model.current = number;
        break;
    case 5:
        stage.pager->MoveUp();
        model.current = model.Other(true);
        break;
    case 6:
        stage.pager->MoveDown();
        model.current = model.Other(false);
        break;
    case 7:
        if (page)
        {
            model.BringToFront(number);
            stage.pager->SetWidgetOrder({page});
        }
        break;
    default:
        stage.Tick();
        if (page && !model.pages.at(model.current).enabled)
            model.current = model.Other(true);
    }
}
} // namespace

class TScrollableWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstPageIsSeenInTheFirstPicture();
    void pagesHaveTheSizeOfThePager();
    void shownChildIsHiddenAsItBecomesAPage();
    void whatCannotBeAPageIsLeftAlone();
    void nothingHappensWithoutPages();

    void walkTakesStopsBeforeOthers_data();
    void walkTakesStopsBeforeOthers();
    void movingUpGoesToTheNextPage();
    void movingWithoutAnotherPageIsToldAllTheSame();
    void movingToAPagePutsItInPlace();
    void movingToAStrangerChangesNothing();
    void disabledPageIsLeftAtTheNextUpdate();
    void noPageIsLeftWhereAllAreDisabled();
    void disabledPagerKeepsItsPage();

    void removedPageLeavesTheCurrentOneCurrent();
    void removingTheCurrentPageShowsTheOneBehind();
    void removingAStrangerChangesNothing();
    void newOrderKeepsTheCurrentPage();
    void orderIgnoresStrangersAndRepetitions();

    void springHalvesTheWay_data();
    void springHalvesTheWay();
    void neighbourStandsBesideAPageThatIsOut();
    void lonePageHasNoNeighbour();
    void oneOfTwoPagesIsBothNeighbours();
    void timerRunsOnlyWhileThePagerIsShown();
    void hiddenPagerKeepsItsPageWhereItIs();
    void restingPagerDoesNothing();

    void firstMoveOnlyBeginsTheDrag();
    void dragBeginsAtSixPixels_data();
    void dragBeginsAtSixPixels();
    void sidewaysMoveIsNoDrag();
    void movementAfterASidewaysMoveCountsFromThere();
    void pageStaysWithinOneHeight();
    void pageNeedsACompanionToBeDragged_data();
    void pageNeedsACompanionToBeDragged();
    void springWaitsForTheFingerToLift();
    void releaseGoesByTheWay_data();
    void releaseGoesByTheWay();
    void releaseGoesByTheFlick_data();
    void releaseGoesByTheFlick();
    void restingFingerIsNoFlick();
    void releaseForgetsTheDrag();
    void everyDragBeginsAnew();
    void tapAfterAFlickTurnsNoPage();
    void moveWithoutAPressDoesNothing();
    void pagerTakesTheFingerForItself();
    void ownerDrags();
    void hiddenPagerIsNotDragged();
    void hidingThePagerEndsTheDrag();
    void pointsBeyondAllMeasure();

    void deletedPageDropsOut();
    void deletedPageIsToldFromTheEventLoop();
    void pageTakenElsewhereDropsOut();
    void currentPageDeletedInADragEndsIt();
    void liftBesideThePagerEndsTheDrag();
    void pagesRemovedWhileOneMoves();
    void slotMayDeleteThePager_data();
    void slotMayDeleteThePager();
    void deletedWhilePressed();
    void anyOrderOfCallsKeepsToTheRules();
};

void TScrollableWidgetTest::firstPageIsSeenInTheFirstPicture()
{
    TStage stage(QStringLiteral("sss"));
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
    QVERIFY(stage.Page(0)->isVisible());
    QCOMPARE(stage.Current(), QStringLiteral("a"));
}

void TScrollableWidgetTest::pagesHaveTheSizeOfThePager()
{
    TStage stage(QStringLiteral("ss"));
    QCOMPARE(stage.Page(1)->parentWidget(), stage.pager.data());
    QCOMPARE(stage.Page(1)->size(), QSize(200, 300));
    stage.pager->resize(150, 250);
    for (int const number : {0, 1})
    {
        QCOMPARE(stage.Page(number)->minimumSize(), QSize(150, 250));
        QCOMPARE(stage.Page(number)->maximumSize(), QSize(150, 250));
    }
    auto* const page = new QWidget(&stage.window);
    page->move(70, 80);
    page->show();
    stage.pager->AddWidget(page, SCROLL_STOP);
    QVERIFY(page->isHidden());
    QCOMPARE(page->geometry(), QRect(0, 0, 150, 250));
    QCOMPARE(page->minimumSize(), QSize(150, 250));
    QCOMPARE(page->maximumSize(), QSize(150, 250));
}

void TScrollableWidgetTest::shownChildIsHiddenAsItBecomesAPage()
{
    TStage stage(QStringLiteral("s"));
    auto* const page = new QWidget(stage.pager);
    page->show();
    stage.pager->AddWidget(page, SCROLL_STOP);
    QVERIFY(page->isHidden());
}

void TScrollableWidgetTest::whatCannotBeAPageIsLeftAlone()
{
    TStage stage(QStringLiteral("s"));
    stage.pager->AddWidget(nullptr, SCROLL_STOP);
    stage.pager->AddWidget(stage.pager, SCROLL_STOP);
    stage.pager->AddWidget(&stage.window, SCROLL_STOP);
    stage.pager->AddWidget(stage.Page(0), SCROLL_NONE);
    QCOMPARE(stage.pager->GetNextLayer(), 0);
    QVERIFY(stage.Page(0)->isVisible());
    stage.Add(QLatin1Char('n'));
    stage.Add(QLatin1Char('s'));
    stage.pager->MoveToWidget(stage.Page(1));
    // Still the stop that it was.
    QCOMPARE(stage.pager->GetPrevLayer(), 0);
}

void TScrollableWidgetTest::nothingHappensWithoutPages()
{
    TStage stage;
    TSignals heard(stage.pager);
    stage.pager->MoveUp();
    stage.pager->MoveDown();
    stage.pager->MoveToWidget(nullptr);
    stage.pager->RemoveWidget(nullptr);
    stage.pager->SetWidgetOrder({nullptr, stage.pager});
    stage.Tick();
    stage.Press();
    stage.Move(-100);
    stage.finger.Lift();
    QVERIFY(!stage.pager->CurrentWidget());
    QVERIFY(!stage.pager->GetNextWidget());
    QVERIFY(!stage.pager->GetPrevWidget());
    QCOMPARE(stage.pager->GetNextLayer(), 0);
    QCOMPARE(stage.pager->GetPrevLayer(), 0);
    QCOMPARE(heard.Take(), QString());
}

void TScrollableWidgetTest::walkTakesStopsBeforeOthers_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("next");
    QTest::addColumn<int>("previous");
    QTest::newRow("s") << 0 << 0 << 0;
    QTest::newRow("sss") << 0 << 1 << 2;
    QTest::newRow("sss ") << 2 << 0 << 1;
    QTest::newRow("snsn") << 0 << 2 << 2;
    QTest::newRow("snsn ") << 1 << 2 << 0;
    QTest::newRow("snn") << 0 << 1 << 2;
    QTest::newRow("sdss") << 0 << 2 << 3;
    QTest::newRow("sdn") << 0 << 2 << 2;
    QTest::newRow("sdx") << 0 << 0 << 0;
    QTest::newRow("dsd") << 0 << 1 << 1;
    QTest::newRow("ddd") << 1 << 1 << 1;
    QTest::newRow("snnxn") << 0 << 1 << 4;
}

void TScrollableWidgetTest::walkTakesStopsBeforeOthers()
{
    QFETCH(int, from);
    QFETCH(int, next);
    QFETCH(int, previous);
    TStage stage(QString::fromLatin1(QTest::currentDataTag()).trimmed(), false);
    stage.pager->MoveToWidget(stage.Page(from));
    QCOMPARE(stage.pager->GetNextLayer(), next);
    QCOMPARE(stage.pager->GetPrevLayer(), previous);
    QCOMPARE(stage.pager->GetNextWidget(), stage.Page(next));
    QCOMPARE(stage.pager->GetPrevWidget(), stage.Page(previous));
}

void TScrollableWidgetTest::movingUpGoesToTheNextPage()
{
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.pager->MoveUp();
    QCOMPARE(heard.Take(), QStringLiteral("1b"));
    QCOMPARE(stage.Current(), QStringLiteral("b"));
    stage.pager->MoveDown();
    stage.pager->MoveDown();
    QCOMPARE(heard.Take(), QStringLiteral("0a2c"));
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("c0"));
}

void TScrollableWidgetTest::movingWithoutAnotherPageIsToldAllTheSame()
{
    TStage stage(QStringLiteral("sd"));
    TSignals heard(stage.pager);
    stage.pager->MoveUp();
    stage.pager->MoveDown();
    QCOMPARE(heard.Take(), QStringLiteral("0a0a"));
}

void TScrollableWidgetTest::movingToAPagePutsItInPlace()
{
    TStage stage(QStringLiteral("snd"));
    TSignals heard(stage.pager);
    stage.Page(1)->move(15, 120);
    stage.pager->MoveToWidget(stage.Page(1));
    QCOMPARE(heard.Take(), QStringLiteral("1b"));
    QCOMPARE(stage.Page(1)->pos(), QPoint(0, 0));
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("b0"));
}

void TScrollableWidgetTest::movingToAStrangerChangesNothing()
{
    TStage stage(QStringLiteral("ss"));
    TSignals heard(stage.pager);
    QWidget stranger;
    stranger.move(30, 40);
    stage.Page(0)->move(0, 40);
    for (QWidget* const widget :
         {static_cast<QWidget*>(nullptr), &stranger, static_cast<QWidget*>(stage.Page(0))})
        stage.pager->MoveToWidget(widget);
    QCOMPARE(heard.Take(), QString());
    QCOMPARE(stranger.pos(), QPoint(30, 40));
    QCOMPARE(stage.Page(0)->y(), 40);
}

void TScrollableWidgetTest::disabledPageIsLeftAtTheNextUpdate()
{
    TStage stage(QStringLiteral("sdss"));
    TSignals heard(stage.pager);
    stage.Page(0)->setEnabled(false);
    QCOMPARE(heard.Take(), QString());
    stage.Tick();
    QCOMPARE(heard.Take(), QStringLiteral("2c"));
    QCOMPARE(stage.Seen(), QStringLiteral("c0"));
    stage.Tick();
    QCOMPARE(heard.Take(), QString());
}

void TScrollableWidgetTest::noPageIsLeftWhereAllAreDisabled()
{
    TStage stage(QStringLiteral("ddx"));
    TSignals heard(stage.pager);
    stage.Tick();
    QCOMPARE(heard.Take(), QString());
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
    stage.Page(2)->setEnabled(true);
    stage.Tick();
    QCOMPARE(heard.Take(), QStringLiteral("2c"));
}

void TScrollableWidgetTest::disabledPagerKeepsItsPage()
{
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.window.setEnabled(false);
    stage.Tick();
    QCOMPARE(heard.Take(), QString());
    QCOMPARE(stage.pager->GetNextLayer(), 1);
}

void TScrollableWidgetTest::removedPageLeavesTheCurrentOneCurrent()
{
    TStage stage(QStringLiteral("ssss"));
    stage.pager->MoveToWidget(stage.Page(2));
    TSignals heard(stage.pager);
    stage.pager->RemoveWidget(stage.Page(3));
    QCOMPARE(heard.Take(), QString());
    stage.pager->RemoveWidget(stage.Page(0));
    QCOMPARE(heard.Take(), QStringLiteral("1"));
    QCOMPARE(stage.Current(), QStringLiteral("c"));
    QCOMPARE(stage.pager->GetNextWidget(), stage.Page(1));
}

void TScrollableWidgetTest::removingTheCurrentPageShowsTheOneBehind()
{
    TStage stage(QStringLiteral("sss"));
    stage.pager->MoveToWidget(stage.Page(1));
    stage.Tick();
    TSignals heard(stage.pager);
    stage.Page(2)->move(0, 200);
    stage.pager->RemoveWidget(stage.Page(1));
    QCOMPARE(heard.Take(), QStringLiteral("1c"));
    QCOMPARE(stage.Seen(), QStringLiteral("c0"));
    stage.pager->RemoveWidget(stage.Page(2));
    QCOMPARE(heard.Take(), QStringLiteral("0a"));
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
    stage.pager->RemoveWidget(stage.Page(0));
    QCOMPARE(heard.Take(), QStringLiteral("0-"));
    QCOMPARE(stage.Seen(), QString());
    QVERIFY(stage.Page(0)->parentWidget() == stage.pager);
    stage.pager->AddWidget(stage.Page(1), SCROLL_STOP);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("b0"));
}

void TScrollableWidgetTest::removingAStrangerChangesNothing()
{
    TStage stage(QStringLiteral("ss"));
    TSignals heard(stage.pager);
    QWidget stranger;
    stranger.show();
    stage.pager->RemoveWidget(&stranger);
    stage.pager->RemoveWidget(nullptr);
    QVERIFY(stranger.isVisible());
    QCOMPARE(stage.pager->GetNextLayer(), 1);
    QCOMPARE(heard.Take(), QString());
}

void TScrollableWidgetTest::newOrderKeepsTheCurrentPage()
{
    TStage stage(QStringLiteral("sns"));
    TSignals heard(stage.pager);
    stage.pager->SetWidgetOrder({stage.Page(2), stage.Page(1), stage.Page(0)});
    QCOMPARE(stage.Current(), QStringLiteral("a"));
    QCOMPARE(heard.Take(), QStringLiteral("2"));
    QCOMPARE(stage.pager->GetNextWidget(), stage.Page(2));
    stage.pager->SetWidgetOrder({stage.Page(1), stage.Page(2), stage.Page(0)});
    QCOMPARE(heard.Take(), QString());
    // Each page keeps its behaviour.
    QCOMPARE(stage.pager->GetNextLayer(), 1);
}

void TScrollableWidgetTest::orderIgnoresStrangersAndRepetitions()
{
    TStage stage(QStringLiteral("ssss"));
    QWidget stranger;
    stage.pager->SetWidgetOrder({&stranger, stage.Page(3), nullptr, stage.Page(3), stage.Page(1)});
    // d b a c
    QCOMPARE(stage.Current(), QStringLiteral("a"));
    QString walk;
    for (int i = 0; i < 4; ++i)
    {
        stage.pager->MoveUp();
        walk += stage.Current();
    }
    QCOMPARE(walk, QStringLiteral("cdba"));
    stage.pager->SetWidgetOrder({});
    QCOMPARE(stage.pager->GetNextWidget(), stage.Page(2));
}

void TScrollableWidgetTest::springHalvesTheWay_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("below") << 150 << 75;
    QTest::newRow("odd") << 151 << 75;
    QTest::newRow("above") << -151 << -75;
    QTest::newRow("at the limit") << 200 << 100;
    QTest::newRow("over the limit") << 202 << 100;
    QTest::newRow("far below") << 299 << 100;
    QTest::newRow("no such limit above") << -299 << -149;
    QTest::newRow("one below") << 1 << 0;
    QTest::newRow("one above") << -1 << 0;
    QTest::newRow("outside, below") << 300 << 0;
    QTest::newRow("outside, above") << -300 << 0;
    QTest::newRow("far outside") << 5000 << 0;
}

void TScrollableWidgetTest::springHalvesTheWay()
{
    QFETCH(int, from);
    TStage stage(QStringLiteral("ss"));
    stage.Page(0)->move(0, from);
    stage.Tick();
    QTEST(stage.Page(0)->y(), "to");
}

void TScrollableWidgetTest::neighbourStandsBesideAPageThatIsOut()
{
    TStage stage(QStringLiteral("ssss"));
    stage.Page(0)->move(0, 80);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a40 d-260"));
    stage.Page(0)->move(0, -80);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a-40 b260"));
    for (int i = 0; i < 6; ++i)
        stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
}

void TScrollableWidgetTest::lonePageHasNoNeighbour()
{
    TStage stage(QStringLiteral("s"));
    stage.Page(0)->move(0, 80);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a40"));
}

void TScrollableWidgetTest::oneOfTwoPagesIsBothNeighbours()
{
    TStage stage(QStringLiteral("ss"));
    stage.Page(0)->move(0, 80);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a40 b-260"));
    stage.Page(0)->move(0, -80);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a-40 b260"));
}

void TScrollableWidgetTest::timerRunsOnlyWhileThePagerIsShown()
{
    TStage stage;
    QCOMPARE(stage.Timer()->interval(), 50);
    QVERIFY(stage.Timer()->isActive());
    stage.pager->hide();
    QVERIFY(!stage.Timer()->isActive());
    stage.pager->show();
    QVERIFY(stage.Timer()->isActive());
    stage.window.hide();
    QVERIFY(!stage.Timer()->isActive());
    TScrollableWidget const unseen(nullptr, true);
    QVERIFY(!unseen.findChild<QTimer*>()->isActive());
}

void TScrollableWidgetTest::hiddenPagerKeepsItsPageWhereItIs()
{
    TStage stage(QStringLiteral("ss"));
    stage.pager->hide();
    stage.Page(0)->move(0, 80);
    stage.pager->UpdateLayers();
    QCOMPARE(stage.Seen(), QStringLiteral("a80 b-220"));
}

void TScrollableWidgetTest::restingPagerDoesNothing()
{
    TStage stage(QStringLiteral("sns"));
    for (int i = 0; i < 3; ++i)
        stage.Tick();
    QCoreApplication::processEvents();
    for (QPointer<TPage> const& page : qAsConst(stage.all))
        page->paints = 0;
    TAllocationCount const allocations;
    for (int i = 0; i < 10; ++i)
        stage.Tick();
    QCOMPARE(allocations.Value(), 0);
    QCoreApplication::processEvents();
    for (QPointer<TPage> const& page : qAsConst(stage.all))
        QCOMPARE(page->paints, 0);
}

void TScrollableWidgetTest::firstMoveOnlyBeginsTheDrag()
{
    TStage stage(QStringLiteral("ss"));
    stage.place = QPoint(100, 200);
    stage.finger.Press(stage.place);
    stage.Move(-50);
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
    stage.Move(-10);
    QCOMPARE(stage.Seen(), QStringLiteral("a-10 b290"));
}

void TScrollableWidgetTest::dragBeginsAtSixPixels_data()
{
    QTest::addColumn<QVector<int>>("path");
    QTest::addColumn<int>("y");
    QTest::newRow("five") << QVector<int>{5} << 0;
    QTest::newRow("six") << QVector<int>{6} << 6;
    QTest::newRow("five in steps") << QVector<int>{-2, -3} << 0;
    QTest::newRow("the step to six counts, those before are lost") << QVector<int>{-2, -3, -1} << -1;
    QTest::newRow("what follows counts") << QVector<int>{5, 1, 20, -4} << 17;
    QTest::newRow("ways both up and down add up") << QVector<int>{3, -2, 1} << 1;
}

void TScrollableWidgetTest::dragBeginsAtSixPixels()
{
    QFETCH(QVector<int>, path);
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    for (int const dy : path)
        stage.Move(dy);
    QTEST(stage.Page(0)->y(), "y");
}

void TScrollableWidgetTest::sidewaysMoveIsNoDrag()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(-20, 20);
    stage.Move(5, -40);
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
    stage.Move(-5);
    QCOMPARE(stage.Seen(), QStringLiteral("a0"));
}

void TScrollableWidgetTest::movementAfterASidewaysMoveCountsFromThere()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(-20, 40);
    stage.Move(-10, 9);
    QCOMPARE(stage.Page(0)->y(), -10);
}

void TScrollableWidgetTest::pageStaysWithinOneHeight()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(500);
    QCOMPARE(stage.Seen(), QStringLiteral("a300 b0"));
    stage.Move(-10);
    QCOMPARE(stage.Page(0)->y(), 290);
    stage.Move(-900);
    QCOMPARE(stage.Seen(), QStringLiteral("a-300 b0"));
}

void TScrollableWidgetTest::pageNeedsACompanionToBeDragged_data()
{
    QTest::addColumn<bool>("follows");
    QTest::newRow("ss") << true;
    QTest::newRow("ns") << true;
    QTest::newRow("s") << false;
    QTest::newRow("sn") << false;
    QTest::newRow("nn") << false;
    QTest::newRow("sd") << false;
    QTest::newRow("sdns") << true;
    QTest::newRow("fs") << false;
    QTest::newRow("sf") << true;
}

// A page with only one qualifying stop can't be dragged.
void TScrollableWidgetTest::pageNeedsACompanionToBeDragged()
{
    QFETCH(bool, follows);
    TStage stage(QString::fromLatin1(QTest::currentDataTag()));
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(-200);
    QCOMPARE(stage.Page(0)->y(), follows ? -200 : 0);
    stage.finger.Lift();
    QCOMPARE(heard.Take().isEmpty(), !follows);
}

void TScrollableWidgetTest::springWaitsForTheFingerToLift()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(-40);
    stage.Tick();
    stage.Tick();
    QCOMPARE(stage.Page(0)->y(), -40);
    stage.finger.Lift();
    stage.Tick();
    QCOMPARE(stage.Page(0)->y(), -20);
}

void TScrollableWidgetTest::releaseGoesByTheWay_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("way");
    QTest::addColumn<QString>("signalled");
    QTest::newRow("half way up") << 300 << -150 << "";
    QTest::newRow("more than half way up") << 300 << -151 << "1b";
    QTest::newRow("half way down") << 300 << 150 << "";
    QTest::newRow("more than half way down") << 300 << 151 << "2c";
    QTest::newRow("odd height, half way") << 301 << 151 << "";
    QTest::newRow("odd height, more than half way") << 301 << 152 << "2c";
    QTest::newRow("odd height, half way up") << 301 << -151 << "";
    QTest::newRow("odd height, more than half way up") << 301 << -152 << "1b";
}

void TScrollableWidgetTest::releaseGoesByTheWay()
{
    QFETCH(int, height);
    QFETCH(int, way);
    TStage stage(QStringLiteral("sss"));
    stage.pager->resize(200, height);
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(way);
    stage.Tick(); // the finger rests, so that there is no flick
    QCOMPARE(heard.Take(), QString());
    stage.finger.Lift();
    QTEST(heard.Take(), "signalled");
}

void TScrollableWidgetTest::releaseGoesByTheFlick_data()
{
    QTest::addColumn<int>("rested");
    QTest::addColumn<int>("flick");
    QTest::addColumn<QString>("signalled");
    // Sixteen times the last step and all of the way: more than 150?
    QTest::newRow("16 * -8 - 8 = -136") << 0 << -8 << "";
    QTest::newRow("16 * -9 - 9 = -153") << 0 << -9 << "1b";
    QTest::newRow("16 * 9 + 9 = 153") << 0 << 9 << "2c";
    QTest::newRow("16 * -5 - 70 = -150") << -65 << -5 << "";
    QTest::newRow("16 * -5 - 71 = -151") << -66 << -5 << "1b";
    QTest::newRow("back again, 16 * 10 - 90 = 70") << -100 << 10 << "";
    QTest::newRow("thrown back, 16 * 20 - 80 = 240") << -100 << 20 << "2c";
}

void TScrollableWidgetTest::releaseGoesByTheFlick()
{
    QFETCH(int, rested);
    QFETCH(int, flick);
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.Press();
    if (rested != 0)
    {
        stage.Move(rested);
        stage.Tick();
    }
    stage.Move(flick);
    stage.finger.Lift();
    QTEST(heard.Take(), "signalled");
}

void TScrollableWidgetTest::restingFingerIsNoFlick()
{
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(-100);
    stage.Tick();
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    stage.Press();
    stage.Move(-100);
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QStringLiteral("1b"));
    // The page that went still stands beside the one that comes.
    QCOMPARE(stage.Page(0)->y(), -200);
    stage.Tick();
    QCOMPARE(stage.Seen(), QStringLiteral("a-250 b50"));
}

void TScrollableWidgetTest::releaseForgetsTheDrag()
{
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(-100);
    stage.Tick();
    stage.finger.Lift();
    // Neither the way nor the threshold is carried over.
    stage.Press();
    stage.Move(-5);
    QCOMPARE(stage.Page(0)->y(), -100);
    stage.Move(-60);
    QCOMPARE(stage.Page(0)->y(), -160);
    stage.Tick();
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
}

void TScrollableWidgetTest::everyDragBeginsAnew()
{
    TStage stage(QStringLiteral("ss"), false);
    for (int drag = 0; drag < 2; ++drag)
    {
        stage.pager->Drag(QPointF(0, 200), QPointF(0, 150));
        QCOMPARE(stage.Page(0)->y(), 0);
        stage.pager->Drag(QPointF(0, 150), QPointF(0, 140));
        QCOMPARE(stage.Page(0)->y(), -10);
        stage.Tick();
        stage.pager->DragRelease(QPointF(0, 140));
        while (stage.Page(0)->y() != 0)
            stage.Tick();
    }
}

void TScrollableWidgetTest::tapAfterAFlickTurnsNoPage()
{
    TStage stage(QStringLiteral("sss"));
    stage.Press();
    stage.Move(-20);
    stage.finger.Lift();
    QCOMPARE(stage.Current(), QStringLiteral("b"));
    stage.finger.Touch(QPoint(100, 200));
    QCOMPARE(stage.Current(), QStringLiteral("b"));
}

void TScrollableWidgetTest::moveWithoutAPressDoesNothing()
{
    TStage stage(QStringLiteral("ss"));
    stage.pager->setMouseTracking(true);
    stage.Page(0)->setMouseTracking(true);
    stage.Press();
    stage.finger.Lift();
    stage.Move(-20);
    stage.Move(-20);
    QCOMPARE(stage.Page(0)->y(), 0);
    // A lift that was lost.
    stage.Press();
    stage.Move(-20);
    stage.finger.Press(stage.place);
    stage.Move(-5);
    QCOMPARE(stage.Page(0)->y(), -20);
}

void TScrollableWidgetTest::pagerTakesTheFingerForItself()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(-20);
    stage.Move(0, 50);
    stage.finger.Lift();
    QVERIFY(stage.window.heard.isEmpty());
}

void TScrollableWidgetTest::ownerDrags()
{
    TStage stage(QStringLiteral("sss"), false);
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(-20);
    stage.finger.Lift();
    QCOMPARE(stage.window.heard, QVector<QEvent::Type>({QEvent::MouseButtonPress, QEvent::MouseMove,
                                                        QEvent::MouseMove, QEvent::MouseButtonRelease}));
    QCOMPARE(stage.Page(0)->y(), 0);
    stage.pager->Drag(QPointF(5, 500), QPointF(5, 480));
    QCOMPARE(stage.Page(0)->y(), 0);
    stage.pager->Drag(QPointF(5, 480), QPointF(5, 440));
    QCOMPARE(stage.Page(0)->y(), -40);
    // Places between the pixels add up to the way.
    for (int i = 0; i < 10; ++i)
        stage.pager->Drag(QPointF(5, 440 - 0.4 * i), QPointF(5, 440 - 0.4 * (i + 1)));
    QCOMPARE(stage.Page(0)->y(), -44);
    stage.pager->Drag(QPointF(5, 436), QPointF(5, 320));
    stage.pager->DragRelease(QPointF(5, 320));
    QCOMPARE(heard.Take(), QStringLiteral("1b"));
}

void TScrollableWidgetTest::hiddenPagerIsNotDragged()
{
    TStage stage(QStringLiteral("sss"), false);
    TSignals heard(stage.pager);
    stage.pager->hide();
    stage.pager->Drag(QPointF(), QPointF(0, 1));
    stage.pager->Drag(QPointF(), QPointF(0, 200));
    QCOMPARE(stage.Page(0)->y(), 0);
    stage.pager->show();
    stage.pager->Drag(QPointF(), QPointF(0, 200));
    QCOMPARE(stage.Page(0)->y(), 0);
    stage.pager->DragRelease(QPointF());
    QCOMPARE(heard.Take(), QString());
}

void TScrollableWidgetTest::hidingThePagerEndsTheDrag()
{
    TStage stage(QStringLiteral("sss"));
    TSignals heard(stage.pager);
    stage.Press();
    stage.Move(-200);
    stage.pager->hide();
    stage.finger.Lift();
    stage.pager->show();
    QCOMPARE(heard.Take(), QString());
    stage.Tick();
    QCOMPARE(stage.Page(0)->y(), -50);
}

void TScrollableWidgetTest::pointsBeyondAllMeasure()
{
    TStage stage(QStringLiteral("sss"), false);
    qreal const infinity = std::numeric_limits<qreal>::infinity();
    qreal const none = std::numeric_limits<qreal>::quiet_NaN();
    stage.pager->Drag(QPointF(), QPointF());
    for (int i = 0; i < 300; ++i)
        stage.pager->Drag(QPointF(0, -infinity), QPointF(0, infinity));
    QCOMPARE(stage.Page(0)->y(), 300);
    stage.pager->Drag(QPointF(none, none), QPointF(none, 0));
    stage.pager->Drag(QPointF(0, 1e300), QPointF(0, -1e300));
    QCOMPARE(stage.Page(0)->y(), -300);
    stage.pager->DragRelease(QPointF(none, infinity));
    QVERIFY(!stage.Current().isEmpty());
}

void TScrollableWidgetTest::deletedPageDropsOut()
{
    TStage stage(QStringLiteral("ssss"));
    stage.pager->MoveToWidget(stage.Page(2));
    TSignals heard(stage.pager);
    stage.Delete(3);
    QCOMPARE(heard.Take(), QString());
    stage.Delete(0);
    QCOMPARE(heard.Take(), QStringLiteral("1"));
    stage.Delete(2);
    QCOMPARE(heard.Take(), QStringLiteral("0b"));
    QCOMPARE(stage.Seen(), QStringLiteral("b0"));
    stage.Delete(1);
    QCOMPARE(heard.Take(), QStringLiteral("0-"));
    stage.Tick();
}

void TScrollableWidgetTest::deletedPageIsToldFromTheEventLoop()
{
    TStage stage(QStringLiteral("ss"));
    TSignals heard(stage.pager);
    delete stage.Page(0);
    QCOMPARE(stage.Seen(), QStringLiteral("b0"));
    QCOMPARE(heard.Take(), QString());
    QCoreApplication::sendPostedEvents(stage.pager, QEvent::MetaCall);
    QCOMPARE(heard.Take(), QStringLiteral("0b"));
}

void TScrollableWidgetTest::pageTakenElsewhereDropsOut()
{
    TStage stage(QStringLiteral("ss"));
    TStage other(QStringLiteral("s"));
    other.pager->AddWidget(stage.Page(0), SCROLL_STOP);
    QCOMPARE(stage.Current(), QStringLiteral("b"));
    QCOMPARE(stage.pager->GetNextLayer(), 0);
    QCOMPARE(other.pager->GetNextWidget(), stage.Page(0));
    stage.Page(0)->setParent(nullptr);
    QCOMPARE(other.pager->GetNextLayer(), 0);
    delete stage.Page(0);
}

void TScrollableWidgetTest::currentPageDeletedInADragEndsIt()
{
    TStage stage(QStringLiteral("sss"));
    stage.Press();
    stage.Move(-200);
    delete stage.Page(0);
    TSignals heard(stage.pager);
    stage.Move(-30);
    stage.Tick();
    stage.finger.Lift();
    QCOMPARE(heard.Take(), QString());
    QCOMPARE(stage.Seen(), QStringLiteral("b0"));
}

// Nobody tells the pager of the lift, as the widget that the finger went down on is no more.
void TScrollableWidgetTest::liftBesideThePagerEndsTheDrag()
{
    for (int const way : {-80, -160})
    {
        TStage stage(QStringLiteral("sss"));
        TSignals heard(stage.pager);
        auto* const row = new QWidget(stage.Page(0));
        row->setGeometry(0, 0, 200, PageHeight);
        row->show();
        stage.Press();
        stage.Move(way);
        delete row;
        stage.Tick();
        QCOMPARE(stage.Page(0)->y(), way);
        stage.finger.Move(QPoint(290, 390));
        stage.finger.Lift();
        QCOMPARE(heard.Take(), QString());
        stage.Tick();
        QCOMPARE(heard.Take(), way == -80 ? QString() : QStringLiteral("1b"));
        QCOMPARE(stage.pager->CurrentWidget()->y(), way == -80 ? -40 : (PageHeight + way) / 2);
    }
}

void TScrollableWidgetTest::pagesRemovedWhileOneMoves()
{
    TStage stage(QStringLiteral("sss"));
    stage.Page(0)->onMove = [&]
    {
        for (int const number : {0, 1, 2})
            stage.pager->RemoveWidget(stage.Page(number));
    };
    stage.Page(0)->move(0, 100);
    QVERIFY(!stage.pager->CurrentWidget());
    TStage sprung(QStringLiteral("sss"));
    sprung.Page(0)->move(0, 100);
    sprung.Page(0)->onMove = [&]
    {
        for (int const number : {0, 1, 2})
            sprung.pager->RemoveWidget(sprung.Page(number));
    };
    sprung.Tick();
    QVERIFY(!sprung.pager->CurrentWidget());
}

void TScrollableWidgetTest::slotMayDeleteThePager_data()
{
    QTest::addColumn<bool>("first");
    QTest::newRow("told of the layer") << true;
    QTest::newRow("told of the widget") << false;
}

void TScrollableWidgetTest::slotMayDeleteThePager()
{
    QFETCH(bool, first);
    using TAct = std::function<void(TStage&)>;
    QVector<TAct> const acts{[](TStage& stage) { stage.pager->MoveUp(); },
                             [](TStage& stage) { stage.pager->MoveDown(); },
                             [](TStage& stage) { stage.pager->MoveToWidget(stage.Page(1)); },
                             [](TStage& stage) { stage.pager->RemoveWidget(stage.Page(0)); },
                             [](TStage& stage) { stage.Delete(0); },
                             [](TStage& stage)
                             {
                                 stage.Page(0)->setEnabled(false);
                                 stage.Tick();
                             },
                             [](TStage& stage)
                             {
                                 stage.Press();
                                 stage.Move(-160);
                                 stage.finger.Lift();
                             },
                             [](TStage& stage)
                             {
                                 auto* const row = new QWidget(stage.Page(0));
                                 row->resize(200, PageHeight);
                                 row->show();
                                 stage.Press();
                                 stage.Move(-160);
                                 delete row;
                                 stage.finger.Move(QPoint(290, 390));
                                 stage.finger.Lift();
                                 stage.Tick();
                             }};
    for (TAct const& act : acts)
    {
        TStage stage(QStringLiteral("sss"));
        if (first)
            connect(stage.pager, &TScrollableWidget::ActiveLayerChanged, this,
                    [&stage] { delete stage.pager; });
        else
            connect(stage.pager, &TScrollableWidget::ActiveWidgetChanged, this,
                    [&stage] { delete stage.pager; });
        act(stage);
        QVERIFY(!stage.pager);
    }
}

void TScrollableWidgetTest::deletedWhilePressed()
{
    TStage stage(QStringLiteral("ss"));
    stage.Press();
    stage.Move(-40);
    delete stage.pager;
    stage.Move(-40);
    stage.finger.Lift();
    QVERIFY(!stage.Page(0));
}

void TScrollableWidgetTest::anyOrderOfCallsKeepsToTheRules()
{
    TStage stage;
    TPagerModel model;
    QRandomGenerator random(85);
    for (int step = 0; step < 3000; ++step)
    {
        int const count = model.pages.size();
        int const number = count > 0 ? random.bounded(count) : 0;
        DoAnything(stage, model, random, number, count > 0 ? model.pages.at(number).widget : nullptr);
        QCOMPARE(stage.pager->CurrentWidget(), model.Current());
        QCOMPARE(stage.pager->GetNextLayer(), model.Other(true));
        QCOMPARE(stage.pager->GetPrevLayer(), model.Other(false));
    }
}

COMMONUI_TEST(TScrollableWidgetTest)
#include "TScrollableWidgetTest.moc"
