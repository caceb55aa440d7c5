#include "TParentTracker.h"
#include "TestCase.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace
{
// A window with a chain of panel, group and button, and a second panel beside the first. All are shown, as
// Qt keeps the movements of hidden widgets to itself.
struct TPanels
{
    TPanels()
    {
        window.resize(600, 400);
        panel = new QWidget(&window);
        group = new QWidget(panel);
        button = new QWidget(group);
        other = new QWidget(group);
        secondPanel = new QWidget(&window);
        for (QWidget* const widget : {panel, group, button, other, secondPanel})
            widget->setGeometry(10, 10, 100, 100);
        window.show();
    }

    std::function<void(QWidget*)> Note()
    {
        return [this](QWidget* widget) { called.append(widget); };
    }
    /// Who was told since the last question.
    QList<QWidget*> Called() { return std::exchange(called, {}); }

    QWidget window;
    QPointer<QWidget> panel;
    QPointer<QWidget> group;
    QPointer<QWidget> button;
    QPointer<QWidget> other;
    QPointer<QWidget> secondPanel;
    QList<QWidget*> called;
};

void Step(QWidget* widget)
{
    widget->move(widget->pos() + QPoint(1, 0));
}

/// Keeps the news of the end of a widget from every filter that was installed before.
class TSilencer : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Destroy; }
};

using TWidgets = QList<QWidget*>;
} // namespace

class TParentTrackerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void movingAGrandparentCallsTheCallbackOfTheChildOnce()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void everyMoveAndResizeUpToTheLimitIsTold_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("told");
        QTest::newRow("the widget itself") << 0 << true;
        QTest::newRow("its parent") << 1 << true;
        QTest::newRow("the limit") << 2 << true;
        QTest::newRow("above the limit") << 3 << false;
        QTest::newRow("a neighbour") << 4 << false;
    }

    void everyMoveAndResizeUpToTheLimitIsTold()
    {
        QFETCH(int, level);
        QFETCH(bool, told);
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, panels.panel, panels.Note());
        TWidgets const levels{panels.button, panels.group, panels.panel, &panels.window, panels.other};
        TWidgets const expected = told ? TWidgets{panels.button} : TWidgets();
        QWidget* const widget = levels.at(level);
        Step(widget);
        QCOMPARE(panels.Called(), expected);
        widget->resize(widget->width() + 1, widget->height());
        QCOMPARE(panels.Called(), expected);
        widget->setEnabled(false);
        widget->hide();
        QCOMPARE(panels.Called(), TWidgets());
    }

    void withoutALimitTheWholeChainIsTold_data()
    {
        QTest::addColumn<bool>("foreign");
        QTest::newRow("no limit") << false;
        QTest::newRow("a limit that is no ancestor") << true;
    }

    void withoutALimitTheWholeChainIsTold()
    {
        QFETCH(bool, foreign);
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, foreign ? panels.secondPanel.data() : nullptr, panels.Note());
        Step(&panels.window);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void theEventGoesOn()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, nullptr, panels.Note());
        for (auto const type : {QEvent::Move, QEvent::Resize, QEvent::ParentAboutToChange,
                                QEvent::ParentChange, QEvent::Show, QEvent::Destroy})
        {
            QEvent event(type);
            QVERIFY(!tracker.eventFilter(panels.button, &event));
        }
    }

    void twoWidgetsUnderOneParentBothGetTheCall()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        tracker.TrackParent(panels.other, &panels.window, panels.Note());
        Step(panels.panel);
        QCOMPARE(panels.Called(), (TWidgets{panels.button, panels.other}));
        tracker.UnTrackParent(panels.button);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.other});
        Step(panels.button);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void endingAWidgetWithALowLimitLeavesOneWithAHighLimitItsFilters()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, panels.group, panels.Note());
        tracker.TrackParent(panels.other, &panels.window, panels.Note());
        tracker.UnTrackParent(panels.button);
        for (QWidget* const widget : {panels.group.data(), panels.panel.data(), &panels.window})
        {
            Step(widget);
            QCOMPARE(panels.Called(), TWidgets{panels.other});
        }
    }

    void trackingAgainReplacesLimitAndCallback()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        int fresh = 0;
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        tracker.TrackParent(panels.button, panels.group, [&fresh](QWidget*) { ++fresh; });
        Step(panels.panel);
        QCOMPARE(fresh, 0);
        Step(panels.group);
        QCOMPARE(fresh, 1);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void reparentingATrackedWidgetFollowsTheNewChain()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        panels.button->setParent(panels.secondPanel);
        panels.button->show();
        panels.Called();
        Step(panels.group);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
        Step(panels.secondPanel);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
        Step(&panels.window);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void reparentingAnAncestorFollowsTheNewChain()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        tracker.TrackParent(panels.other, &panels.window, panels.Note());
        panels.group->setParent(panels.secondPanel);
        panels.group->show();
        panels.Called();
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
        Step(panels.secondPanel);
        QCOMPARE(panels.Called(), (TWidgets{panels.button, panels.other}));
        Step(panels.group);
        QCOMPARE(panels.Called(), (TWidgets{panels.button, panels.other}));
    }

    // Qt does not announce the change of a widget that was never shown.
    void aWidgetThatWasNeverShownFollowsItsNewParent()
    {
        TPanels panels;
        QWidget away;
        QWidget far(&away);
        auto* const hidden = new QWidget(&far);
        TParentTracker tracker(nullptr);
        tracker.TrackParent(hidden, nullptr, panels.Note());
        hidden->setParent(panels.panel);
        away.show();
        panels.Called();
        Step(&far);
        QCOMPARE(panels.Called(), TWidgets());
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{hidden});
    }

    void theOldChainIsLeftBeforeTheChange()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, nullptr, panels.Note());
        QEvent announced(QEvent::ParentAboutToChange);
        QCoreApplication::sendEvent(panels.group, &announced);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
        Step(panels.group);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
        QEvent changed(QEvent::ParentChange);
        QCoreApplication::sendEvent(panels.group, &changed);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void aWidgetWithoutAParentIsTrackedAlone()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        panels.button->setParent(nullptr);
        std::unique_ptr<QWidget> const lone(panels.button);
        lone->show();
        panels.Called();
        Step(&panels.window);
        QCOMPARE(panels.Called(), TWidgets());
        Step(lone.get());
        QCOMPARE(panels.Called(), TWidgets{lone.get()});
    }

    void aDeletedWidgetIsDropped()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        tracker.TrackParent(panels.other, &panels.window, panels.Note());
        delete panels.button;
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.other});
        delete panels.group;
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
    }

    // Before destroyed(), so that nobody is called for a widget of which only the QObject is left.
    void theEventOfAWidgetsEndDropsIt()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        QEvent end(QEvent::Destroy);
        QCoreApplication::sendEvent(panels.button, &end);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aWidgetWhoseEndWasKeptFromTheTrackerIsDropped()
    {
        TPanels panels;
        TSilencer silencer;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, panels.Note());
        panels.button->installEventFilter(&silencer);
        delete panels.button;
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aDeletedLimitIsNoLimit()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, panels.secondPanel, panels.Note());
        delete panels.secondPanel;
        panels.group->setParent(&panels.window);
        panels.group->show();
        panels.Called();
        Step(&panels.window);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void anEmptyCallbackIsSkipped()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, &panels.window, {});
        tracker.TrackParent(panels.other, &panels.window, panels.Note());
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.other});
    }

    void nothingAndStrangersDoNothing()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(nullptr, &panels.window, panels.Note());
        tracker.TrackParent(panels.other, panels.group, panels.Note());
        tracker.UnTrackParent(nullptr);
        tracker.UnTrackParent(panels.button);
        tracker.FilterParents(panels.button, panels.button);
        tracker.FilterParents(nullptr, panels.panel);
        tracker.UnFilterParents(nullptr);
        tracker.UnFilterParents(panels.group);
        Step(panels.button);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
        Step(panels.group);
        QCOMPARE(panels.Called(), TWidgets{panels.other});
    }

    void filteringByHandCallsNobodyTwice()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, nullptr, panels.Note());
        tracker.FilterParents(panels.button, panels.button);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
        tracker.UnFilterParents(panels.button);
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aTrackedWidgetThatIsNotFilteredIsStillTold()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, nullptr, panels.Note());
        tracker.UnFilterParents(panels.button);
        panels.button->installEventFilter(&tracker);
        Step(panels.button);
        QCOMPARE(panels.Called(), TWidgets{panels.button});
    }

    void theTrackerMayGoBeforeTheWidgets()
    {
        TPanels panels;
        auto tracker = std::make_unique<TParentTracker>(nullptr);
        tracker->TrackParent(panels.button, &panels.window, panels.Note());
        tracker.reset();
        Step(panels.panel);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aCallbackMayDeleteTheTracker()
    {
        TPanels panels;
        auto* const tracker = new TParentTracker(panels.window.window());
        QPointer<TParentTracker> const guard(tracker);
        tracker->TrackParent(panels.button, nullptr, [tracker](QWidget*) { delete tracker; });
        tracker->TrackParent(panels.other, nullptr, panels.Note());
        Step(panels.panel);
        QVERIFY(!guard);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aCallbackMayDeleteTheOtherWidget()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        tracker.TrackParent(panels.button, nullptr, [&panels](QWidget*) { delete panels.other; });
        tracker.TrackParent(panels.other, nullptr, panels.Note());
        Step(panels.panel);
        QVERIFY(!panels.other);
        QCOMPARE(panels.Called(), TWidgets());
    }

    void aCallbackMayDeleteWhatHasMovedLater()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        QPointer<QWidget> const group(panels.group);
        QPointer<QWidget> const button(panels.button);
        tracker.TrackParent(panels.button, nullptr, [&panels](QWidget*) { panels.group->deleteLater(); });
        Step(panels.button);
        QVERIFY(group);
        QTRY_VERIFY(!group);
        QVERIFY(!button);
        // The rest of the chain moves on in peace.
        Step(panels.panel);
        Step(&panels.window);
    }

    // One of the moved widget's children is neither it nor above it.
    void aCallbackMayDeleteTheTrackedWidgetWhenItsAncestorMoves()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        QPointer<QWidget> const button(panels.button);
        tracker.TrackParent(panels.button, nullptr, [](QWidget* tracked) { delete tracked; });
        Step(panels.panel);
        QVERIFY(!button);
        Step(panels.panel);
    }

    void aCallbackMayEndItsOwnTracking()
    {
        TPanels panels;
        TParentTracker tracker(nullptr);
        int calls = 0;
        tracker.TrackParent(panels.button, nullptr,
                            [&](QWidget* widget)
                            {
                                ++calls;
                                tracker.UnTrackParent(widget);
                            });
        Step(panels.panel);
        Step(panels.panel);
        QCOMPARE(calls, 1);
    }
};

COMMONUI_TEST(TParentTrackerTest)
#include "TParentTrackerTest.moc"
