#include "TBaseToolBar.h"
#include "ButtonTestSupport.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

namespace
{
constexpr int ButtonSize = 40;

/// A bar of plain buttons, whose insides a test may turn.
class TStrip : public TBaseToolBar
{
public:
    using TBaseToolBar::ArrangeButtons;
    using TBaseToolBar::dragButtons;
    using TBaseToolBar::endDrag;
    using TBaseToolBar::m_MaximumVisible;
    using TBaseToolBar::m_Order;
    using TBaseToolBar::OnAnimateDrag;

    TStrip(QWidget* parent, eToolBarLayouts layout, bool fixed)
        : TBaseToolBar(parent, fixed)
    {
        m_Layout = layout;
    }

    // Found before raising them changes their order.
    QLabel* const up = findChildren<QLabel*>().value(0);
    QLabel* const down = findChildren<QLabel*>().value(1);

    void ArrangeButtons() override
    {
        ++arranged;
        TBaseToolBar::ArrangeButtons(ButtonSize, gap);
    }

    int gap = 0;
    int arranged = 0;
    int fitted = 0;

protected:
    TPushButton* GenerateButton(int id) override { return new TPushButton(this, id, QString()); }
    void UpdateFixedSize() override { ++fitted; }
};

/// Says yes or no to a drag in one call.
void LetDrag(TStrip* strip, bool needThreshold = false, bool snap = false, bool inertia = false,
             bool clamp = false)
{
    strip->SetDragSettings(true, needThreshold, snap, inertia, clamp);
}
} // namespace

class TBaseToolBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Clock = std::make_unique<TManualClock>();
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
        m_Clock.reset();
    }

    void layoutPlacesTheButtons_data();
    void layoutPlacesTheButtons();
    void highestIdOfAReversedBarEndsAtTheNearEdge();
    void fittedBarCountsNoGaps();
    void fixedBarIsLeftToItsSubclass();
    void farBarStaysAtItsFarEdge_data();
    void farBarStaysAtItsFarEdge();
    void atMostTheMaximumIsShown();
    void hiddenButtonsLeaveNoHole();
    void perpendicularOffsetMovesAllAcross();
    void offsetGrowsUnderTheMark();
    void offsetGrowsOnceForABarThatFitsItself();

    void assigningMakesAButtonOnceAndFillsIt();
    void assigningTakesAButtonOver();
    void assigningAnotherButtonReplacesTheFirst();
    void assigningAButtonUnderAnotherIdMovesIt();
    void orderIsAscendingUntilReplaced();
    void orderIgnoresStrangersAndRepetitions();
    void removingDeletesOrHandsBack();
    void removingFromTheButtonsOwnClick();
    void unknownIdsDoNothing();
    void findsTheIdOfAButton();
    void buttonDeletedElsewhereIsNoLongerCounted();
    void widthOfOneButtonCanBeSet();

    void disabledByIdStaysDisabled();
    void disablingReleasesAButtonThatGoes_data();
    void disablingReleasesAButtonThatGoes();
    void assigningToADisabledBarEnablesNothing();
    void hidingTheBar();

    void userSizeShowsAtTheNextPaint_data();
    void userSizeShowsAtTheNextPaint();
    void barWithoutUserSizesKeepsItsOwn();
    void firstPaintLaysOut();
    void backgroundStandsAtItsOffset();

    void pressOnAButtonDragsTheStrip();
    void dragBelowTheThresholdIsATap();
    void dragWithoutSettingsGoesToTheParent();
    void dragPastTheThreshold_data();
    void dragPastTheThreshold();
    void thresholdFollowsTheOperatorsSize();
    void clampedDragDoesNotStartTowardsAReachedEnd_data();
    void clampedDragDoesNotStartTowardsAReachedEnd();
    void clampedDragStartsOverAtTheThreshold();
    void stripThatFitsGivesEveryMovementBack_data();
    void stripThatFitsGivesEveryMovementBack();
    void stripIsHeldToItsEnds_data();
    void stripIsHeldToItsEnds();
    void shortStripInAWideBar_data();
    void shortStripInAWideBar();
    void hiddenButtonsMoveAlong();
    void marksShowWhereThereIsMore_data();
    void marksShowWhereThereIsMore();
    void marksNeedDragging();

    void flickRunsOnAtConstantSpeed();
    void flickStopsAtTheEnd();
    void firstMoveOfADragHasNoSpeed();
    void speedIsCutToWholePixels_data();
    void speedIsCutToWholePixels();
    void flickNeedsAQuickLift_data();
    void flickNeedsAQuickLift();
    void flickWithoutInertiaEndsAtOnce();
    void clampedFlickEndsTheDragAtTheEnd();
    void pressStopsAFlick();
    void dragComesToRestOnWholeButtons_data();
    void dragComesToRestOnWholeButtons();
    void restIsMeasuredInButtonsBeforeTheOperatorsFactor();
    void movementGivenBackCountsForTheRest();
    void dragThatWasAtTheEndSnapsTowardsIt();
    void moveAfterTheEndOfADragDoesNothing();
    void moveWithoutAPressDoesNothing();

    void wheelBringsTheButtonIn_data();
    void wheelBringsTheButtonIn();
    void wheelReachesEveryButton();
    void wheelLeavesABarWithoutDraggingAlone();

    void deletedInASlotOfDragged_data();
    void deletedInASlotOfDragged();
    void deletedWhileFlicking();

private:
    // A bar of \a count buttons with the ids 0, 1, 2, ...
    TStrip* Strip(eToolBarLayouts layout, bool fixed, int count, QSize const& size)
    {
        auto* const strip = new TStrip(m_Window.get(), layout, fixed);
        strip->resize(size);
        for (int id = 0; id < count; ++id)
            strip->AssignButton(id, QString(), QString(), QString());
        m_Window->Expose();
        QCoreApplication::processEvents();
        return strip;
    }
    // Five buttons of which two and a half fit.
    TStrip* LongStrip(eToolBarLayouts layout = TOOLBAR_VERTICAL_NEAR)
    {
        bool const horizontal = layout == TOOLBAR_HORIZONTAL_NEAR || layout == TOOLBAR_HORIZONTAL_FAR;
        return Strip(layout, true, 5, horizontal ? QSize(100, 50) : QSize(50, 100));
    }
    static int Start(TStrip* strip, int id) { return strip->GetButton(id)->y(); }
    static QVector<int> Starts(TStrip* strip, bool horizontal)
    {
        QVector<int> starts;
        for (int id = 0; id < strip->GetNumberOfButtons(); ++id)
            starts << (horizontal ? strip->GetButton(id)->x() : strip->GetButton(id)->y());
        return starts;
    }
    static QTimer* Inertia(TStrip* strip)
    {
        return strip->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    }
    // One tick of a flick, \a ms after the one before.
    void Tick(TStrip* strip, int ms)
    {
        m_Clock->Advance(ms);
        QTimer* const timer = Inertia(strip);
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }
    TFinger Finger() { return TFinger(*m_Window); }
    // A vertical drag at the left of the window, along y, with a pause before each move.
    void Drag(QVector<int> const& path, int pause = 10)
    {
        Finger().Press(QPoint(20, path.first()));
        for (int i = 1; i < path.size(); ++i)
        {
            m_Clock->Advance(pause);
            Finger().Move(QPoint(20, path[i]));
        }
    }

    std::unique_ptr<TManualClock> m_Clock;
    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TBaseToolBarTest::layoutPlacesTheButtons_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QVector<int>>("starts");
    QTest::newRow("horizontal near") << 0 << QVector<int>{7, 50, 93};
    QTest::newRow("horizontal far") << 1 << QVector<int>{93, 50, 7};
    QTest::newRow("vertical near") << 2 << QVector<int>{7, 50, 93};
    QTest::newRow("vertical far") << 3 << QVector<int>{93, 50, 7};
}

void TBaseToolBarTest::layoutPlacesTheButtons()
{
    QFETCH(int, layout);
    TStrip* const strip = Strip(eToolBarLayouts(layout), true, 3, QSize(200, 180));
    strip->gap = 3;
    strip->SetButtonOffset(7);
    strip->SetPerpOffset(5);
    strip->ArrangeButtons();
    QTEST(Starts(strip, layout < 2), "starts");
    QCOMPARE(strip->GetButtonGap(), 3);
    QCOMPARE(strip->GetButtonOffset(), 7);
    TPushButton const* const button = strip->GetButton(1);
    QCOMPARE(layout < 2 ? button->y() : button->x(), 5);
    QCOMPARE(button->size(), layout < 2 ? QSize(40, 180) : QSize(200, 40));
}

void TBaseToolBarTest::highestIdOfAReversedBarEndsAtTheNearEdge()
{
    TStrip* const strip = Strip(TOOLBAR_HORIZONTAL_FAR, false, 3, QSize(10, 50));
    QCOMPARE(Starts(strip, true), QVector<int>({80, 40, 0}));
}

void TBaseToolBarTest::fittedBarCountsNoGaps()
{
    TStrip* const horizontal = Strip(TOOLBAR_HORIZONTAL_NEAR, false, 3, QSize(10, 50));
    QCOMPARE(horizontal->size(), QSize(120, 50));
    horizontal->gap = 9;
    horizontal->SetButtonOffset(4);
    horizontal->ArrangeButtons();
    QCOMPARE(horizontal->size(), QSize(124, 50));
    TStrip* const vertical = Strip(TOOLBAR_VERTICAL_NEAR, false, 4, QSize(50, 10));
    QCOMPARE(vertical->size(), QSize(50, 160));
}

void TBaseToolBarTest::fixedBarIsLeftToItsSubclass()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 3, QSize(50, 33));
    QCOMPARE(strip->size(), QSize(50, 33));
    int const before = strip->fitted;
    strip->ArrangeButtons();
    QCOMPARE(strip->fitted, before + 1);
}

void TBaseToolBarTest::farBarStaysAtItsFarEdge_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QPoint>("moved");
    QTest::newRow("horizontal near") << 0 << QPoint(0, 0);
    QTest::newRow("horizontal far") << 1 << QPoint(40, 0);
    QTest::newRow("vertical near") << 2 << QPoint(0, 0);
    QTest::newRow("vertical far") << 3 << QPoint(0, 40);
}

void TBaseToolBarTest::farBarStaysAtItsFarEdge()
{
    QFETCH(int, layout);
    QFETCH(QPoint, moved);
    TStrip* const strip = Strip(eToolBarLayouts(layout), false, 3, QSize(50, 50));
    strip->move(200, 150);
    strip->SetButtonVisibility(1, false);
    QCOMPARE(strip->pos(), QPoint(200, 150) + moved);
    strip->SetButtonVisibility(1, true);
    QCOMPARE(strip->pos(), QPoint(200, 150));
}

void TBaseToolBarTest::atMostTheMaximumIsShown()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 5, QSize(50, 50));
    strip->m_MaximumVisible = 2;
    strip->SetButtonVisibility(0, false);
    QVector<int> shown;
    for (int id = 0; id < 5; ++id)
    {
        if (strip->GetButton(id)->isVisible())
            shown << id;
    }
    QCOMPARE(shown, QVector<int>({1, 2}));
    QCOMPARE(strip->height(), 80);
    QVERIFY(strip->IsButtonVisible(4));
    QVERIFY(!strip->IsButtonVisible(0));
    QCOMPARE(strip->GetNumberOfVisibleButtons(), 4);
    strip->m_MaximumVisible = 0;
    strip->ArrangeButtons();
    QCOMPARE(strip->height(), 0);
}

void TBaseToolBarTest::hiddenButtonsLeaveNoHole()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 4, QSize(50, 50));
    strip->SetButtonVisibility(1, false);
    QVERIFY(!strip->GetButton(1)->isVisible());
    QCOMPARE(Start(strip, 0), 0);
    QCOMPARE(Start(strip, 2), 40);
    QCOMPARE(Start(strip, 3), 80);
}

void TBaseToolBarTest::perpendicularOffsetMovesAllAcross()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 2, QSize(50, 100));
    strip->SetPerpOffset(-6);
    QCOMPARE(strip->GetButton(1)->pos(), QPoint(0, 40));
    strip->ArrangeButtons();
    QCOMPARE(strip->GetButton(1)->pos(), QPoint(-6, 40));
}

void TBaseToolBarTest::offsetGrowsUnderTheMark()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip);
    strip->dragButtons(-30);
    QVERIFY(strip->up->isVisible());
    strip->ArrangeButtons();
    QCOMPARE(strip->GetButtonOffset(), 6);
    QCOMPARE(Start(strip, 0), 6);
    QVERIFY(!strip->up->isVisible());
    strip->ArrangeButtons();
    QCOMPARE(strip->GetButtonOffset(), 6);
}

void TBaseToolBarTest::offsetGrowsOnceForABarThatFitsItself()
{
    // Gaps, which the length of the bar does not count, leave something to drag.
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 5, QSize(50, 50));
    LetDrag(strip);
    strip->gap = 9;
    strip->ArrangeButtons();
    strip->dragButtons(-10);
    QVERIFY(strip->up->isVisible());
    strip->SetButtonVisibility(4, false);
    QCOMPARE(strip->GetButtonOffset(), 6);
}

void TBaseToolBarTest::assigningMakesAButtonOnceAndFillsIt()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 0, QSize(50, 50));
    strip->AssignButton(8, m_Screen->AddImage(QStringLiteral("icon"), Qt::red), QStringLiteral("Text"),
                        QStringLiteral("Tip"));
    TPushButton* const button = strip->GetButton(8);
    QVERIFY(button);
    QCOMPARE(button->parentWidget(), strip);
    QCOMPARE(button->GetButtonId(), 8);
    QCOMPARE(button->GetText(), QStringLiteral("Text"));
    QCOMPARE(button->GetToolTip(), QStringLiteral("Tip"));
    QCOMPARE(button->GetIconSize(), QSize(20, 20));
    QVERIFY(button->isVisible());
    QVERIFY(strip->IsButtonVisible(8));
    strip->SetButtonVisibility(8, false);
    strip->AssignButton(8, QString(), QStringLiteral("Other"), QString());
    QCOMPARE(strip->GetButton(8), button);
    QCOMPARE(button->GetText(), QStringLiteral("Other"));
    QCOMPARE(button->GetIconSize(), QSize());
    QVERIFY(!strip->IsButtonVisible(8));
    QCOMPARE(strip->GetNumberOfButtons(), 1);
}

void TBaseToolBarTest::assigningTakesAButtonOver()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 2, QSize(50, 50));
    auto* const button = new TPushButton(m_Window.get(), 77, QString());
    strip->AssignButton(1000, button);
    QCOMPARE(button->parentWidget(), strip);
    QCOMPARE(strip->GetButton(1000), button);
    QVERIFY(button->isVisible());
    QCOMPARE(button->pos(), QPoint(0, 80));
    QCOMPARE(button->GetButtonId(), 77);
    strip->AssignButton(1001, static_cast<TPushButton*>(nullptr));
    QCOMPARE(strip->GetNumberOfButtons(), 3);
}

void TBaseToolBarTest::assigningAnotherButtonReplacesTheFirst()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 2, QSize(50, 50));
    QPointer<TPushButton> const first = strip->GetButton(1);
    auto* const second = new TPushButton(nullptr, 1, QString());
    strip->AssignButton(1, second);
    QCOMPARE(strip->GetButton(1), second);
    QVERIFY(!first || !first->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTRY_VERIFY(!first);
    QCOMPARE(strip->GetNumberOfButtons(), 2);
    QCOMPARE(strip->height(), 80);
}

void TBaseToolBarTest::assigningAButtonUnderAnotherIdMovesIt()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    TPushButton* const button = strip->GetButton(0);
    strip->AssignButton(9, button);
    QCOMPARE(strip->GetNumberOfButtons(), 3);
    QVERIFY(!strip->GetButton(0));
    QCOMPARE(button->y(), 80);
}

void TBaseToolBarTest::orderIsAscendingUntilReplaced()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 0, QSize(50, 50));
    for (int const id : {5, -2, 9, 7})
        strip->AssignButton(id, QString(), QString(), QString());
    QCOMPARE(strip->m_Order, QList<int>({-2, 5, 7, 9}));
    QCOMPARE(Start(strip, -2), 0);
    QCOMPARE(Start(strip, 9), 120);
    strip->AssignButtonOrder({9, 5, 7, -2});
    QCOMPARE(Start(strip, 9), 0);
    QCOMPARE(Start(strip, 5), 40);
    QCOMPARE(Start(strip, -2), 120);
    strip->AssignButton(6, QString(), QString(), QString());
    QCOMPARE(strip->m_Order, QList<int>({6, 9, 5, 7, -2}));
}

void TBaseToolBarTest::orderIgnoresStrangersAndRepetitions()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    strip->AssignButtonOrder({2, 44, 2, 0});
    QCOMPARE(Start(strip, 2), 0);
    QCOMPARE(Start(strip, 0), 40);
    QVERIFY(!strip->GetButton(1)->isVisible());
    QCOMPARE(strip->height(), 80);
    strip->AssignButtonOrder({0, 1, 2});
    QVERIFY(strip->GetButton(1)->isVisible());
}

void TBaseToolBarTest::removingDeletesOrHandsBack()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    QPointer<TPushButton> const deleted = strip->GetButton(0);
    QPointer<TPushButton> const kept = strip->GetButton(1);
    strip->RemoveButton(0, true);
    strip->RemoveButton(1, false);
    QCOMPARE(strip->GetNumberOfButtons(), 1);
    QVERIFY(!strip->GetButton(0));
    QVERIFY(!strip->GetButton(1));
    QCOMPARE(strip->m_Order, QList<int>({2}));
    QCOMPARE(Start(strip, 2), 0);
    QCOMPARE(strip->height(), 40);
    QTRY_VERIFY(!deleted);
    QVERIFY(kept);
    QVERIFY(!kept->isVisible());
}

void TBaseToolBarTest::removingFromTheButtonsOwnClick()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    LetDrag(strip);
    QPointer<TPushButton> const button = strip->GetButton(1);
    connect(button, &TPushButton::Clicked, strip, [strip](int id) { strip->RemoveButton(id, true); });
    Finger().Tap(*button);
    QCOMPARE(strip->GetNumberOfButtons(), 2);
    QTRY_VERIFY(!button);
}

void TBaseToolBarTest::unknownIdsDoNothing()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 2, QSize(50, 50));
    int const arranged = strip->arranged;
    QVERIFY(!strip->GetButton(5));
    QVERIFY(!strip->GetButton(-1));
    strip->RemoveButton(5, true);
    strip->RemoveButton(5, false);
    strip->SetButtonVisibility(5, true);
    strip->SetButtonEnabled(5, true);
    strip->SetButtonWidth(5, 10);
    strip->SetButtonWidth(-1, 10);
    QVERIFY(!strip->IsButtonVisible(5));
    QVERIFY(!strip->IsButtonEnabled(5));
    QCOMPARE(strip->GetNumberOfButtons(), 2);
    QCOMPARE(strip->arranged, arranged);
}

void TBaseToolBarTest::findsTheIdOfAButton()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    int id = 99;
    QVERIFY(strip->FindButtonId(strip->GetButton(2), id));
    QCOMPARE(id, 2);
    TPushButton const stranger(nullptr, 1, QString());
    QVERIFY(!strip->FindButtonId(const_cast<TPushButton*>(&stranger), id));
    QVERIFY(!strip->FindButtonId(nullptr, id));
    QCOMPARE(id, 2);
}

void TBaseToolBarTest::buttonDeletedElsewhereIsNoLongerCounted()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    LetDrag(strip);
    delete strip->GetButton(1);
    QVERIFY(!strip->GetButton(1));
    QCOMPARE(strip->GetNumberOfVisibleButtons(), 2);
    strip->ArrangeButtons();
    strip->dragButtons(3);
    strip->DisableToolBar();
    strip->EnableToolBar();
    QCOMPARE(strip->height(), 80);
    strip->AssignButton(1, QString(), QString(), QString());
    QVERIFY(strip->GetButton(1));
    QCOMPARE(strip->m_Order, QList<int>({0, 1, 2}));
    QCOMPARE(strip->height(), 120);
}

void TBaseToolBarTest::widthOfOneButtonCanBeSet()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 2, QSize(50, 50));
    strip->SetButtonWidth(1, 31);
    QCOMPARE(strip->GetButton(1)->width(), 31);
    QCOMPARE(strip->GetButton(0)->width(), 50);
    auto* const negative = new TPushButton(nullptr, 1, QString());
    strip->AssignButton(-4, negative);
    strip->SetButtonWidth(-4, 12);
    QCOMPARE(negative->width(), 50);
}

void TBaseToolBarTest::disabledByIdStaysDisabled()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 2, QSize(50, 50));
    strip->SetButtonEnabled(0, false);
    QVERIFY(!strip->GetButton(0)->isEnabled());
    strip->DisableToolBar();
    QVERIFY(!strip->GetButton(1)->isEnabled());
    QVERIFY(strip->IsButtonEnabled(1));
    strip->EnableToolBar();
    QVERIFY(!strip->GetButton(0)->isEnabled());
    QVERIFY(strip->GetButton(1)->isEnabled());
    strip->DisableToolBar();
    strip->SetButtonEnabled(0, true);
    QVERIFY(!strip->GetButton(0)->isEnabled());
    strip->EnableToolBar();
    QVERIFY(strip->GetButton(0)->isEnabled());
}

void TBaseToolBarTest::assigningToADisabledBarEnablesNothing()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 1, QSize(50, 50));
    strip->DisableToolBar();
    strip->AssignButton(0, QString(), QString(), QString());
    strip->AssignButton(1, QString(), QString(), QString());
    QVERIFY(!strip->GetButton(0)->isEnabled());
    QVERIFY(!strip->GetButton(1)->isEnabled());
    auto* const disabled = new TPushButton(nullptr, 2, QString());
    disabled->setEnabled(false);
    strip->AssignButton(2, disabled);
    strip->EnableToolBar();
    QVERIFY(strip->GetButton(1)->isEnabled());
    QVERIFY(!disabled->isEnabled());
}

void TBaseToolBarTest::hidingTheBar()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 1, QSize(50, 50));
    strip->HideToolBar();
    QVERIFY(!strip->isVisible());
    QVERIFY(m_Window->isVisible());
}

void TBaseToolBarTest::userSizeShowsAtTheNextPaint_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("size");
    QTest::newRow("normal") << QVariant(0) << 40;
    QTest::newRow("a quarter larger") << QVariant(1) << 50;
    QTest::newRow("half as long again") << QVariant(2) << 60;
    QTest::newRow("another number") << QVariant(3) << 40;
    QTest::newRow("negative") << QVariant(-1) << 40;
    QTest::newRow("no number") << QVariant(QStringLiteral("large")) << 40;
}

void TBaseToolBarTest::userSizeShowsAtTheNextPaint()
{
    QFETCH(QVariant, setting);
    QFETCH(int, size);
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    strip->SetUserResizeButtons(true);
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, setting, false);
    QCOMPARE(strip->GetButton(1)->height(), 40);
    strip->update();
    QCoreApplication::processEvents();
    QCOMPARE(strip->GetButton(1)->height(), size);
    QCOMPARE(Start(strip, 2), 2 * size);
    QCOMPARE(strip->height(), 3 * size);
}

void TBaseToolBarTest::barWithoutUserSizesKeepsItsOwn()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, 2, false);
    strip->CheckUserSelectedButtonSize();
    QCOMPARE(strip->height(), 120);
}

void TBaseToolBarTest::firstPaintLaysOut()
{
    auto* const strip = new TStrip(m_Window.get(), TOOLBAR_VERTICAL_NEAR, true);
    strip->resize(50, 100);
    strip->AssignButton(0, QString(), QString(), QString());
    strip->GetButton(0)->move(3, 3);
    m_Window->Expose();
    QTRY_COMPARE(strip->GetButton(0)->pos(), QPoint(0, 0));
    strip->GetButton(0)->move(3, 3);
    strip->update();
    QCoreApplication::processEvents();
    QCOMPARE(strip->GetButton(0)->pos(), QPoint(3, 3));
}

void TBaseToolBarTest::backgroundStandsAtItsOffset()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 0, QSize(50, 60));
    auto const picture = QSharedPointer<QPixmap>::create(20, 20);
    picture->fill(Qt::red);
    strip->SetBackground(picture);
    QCOMPARE(strip->GetBackground(), picture);
    auto const seen = [&](int x, int y) { return m_Window->grab().toImage().pixelColor(x, y); };
    QCOMPARE(seen(19, 19), QColor(Qt::red));
    QCOMPARE(seen(20, 19), QColor(Qt::blue));
    strip->SetBackgroundOffset(5, -8);
    QCOMPARE(seen(5, 11), QColor(Qt::red));
    QCOMPARE(seen(4, 11), QColor(Qt::blue));
    QCOMPARE(seen(5, 12), QColor(Qt::blue));
    strip->SetBackground(QSharedPointer<QPixmap>());
    QCOMPARE(seen(5, 5), QColor(Qt::blue));
}

void TBaseToolBarTest::pressOnAButtonDragsTheStrip()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, true);
    QSignalSpy clicked(strip->GetButton(2), &TPushButton::Clicked);
    QSignalSpy pressed(strip->GetButton(2), &TPushButton::Pressed);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    Drag({90, 60});
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(Starts(strip, false), QVector<int>({-30, 10, 50, 90, 130}));
    QCOMPARE(dragged.count(), 1);
    Finger().Release(QPoint(20, 60));
    QCOMPARE(clicked.count(), 0);
    // The bar keeps what it drags to itself.
    QVERIFY(m_Window->heard.isEmpty());
}

void TBaseToolBarTest::dragBelowTheThresholdIsATap()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, true);
    QSignalSpy clicked(strip->GetButton(2), &TPushButton::Clicked);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    Drag({90, 85});
    Finger().Release(QPoint(20, 85));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(dragged.count(), 0);
}

void TBaseToolBarTest::dragWithoutSettingsGoesToTheParent()
{
    TStrip* const strip = LongStrip();
    Drag({90, 20});
    Finger().Release(QPoint(20, 20));
    QCOMPARE(Start(strip, 0), 0);
    QCOMPARE(m_Window->heard, QVector<QEvent::Type>(
                                  {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}));
}

void TBaseToolBarTest::dragPastTheThreshold_data()
{
    QTest::addColumn<bool>("needThreshold");
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("drags");
    QTest::newRow("half a button less one") << true << -19 << false;
    QTest::newRow("half a button") << true << -20 << true;
    QTest::newRow("not needed") << false << -1 << true;
}

void TBaseToolBarTest::dragPastTheThreshold()
{
    QFETCH(bool, needThreshold);
    QFETCH(int, distance);
    QFETCH(bool, drags);
    TStrip* const strip = LongStrip();
    LetDrag(strip, needThreshold);
    Drag({60, 60 + distance});
    QCOMPARE(Start(strip, 0), drags ? distance : 0);
    Finger().Release(QPoint(20, 60 + distance));
}

void TBaseToolBarTest::clampedDragDoesNotStartTowardsAReachedEnd_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("after");
    QTest::newRow("at the start, back") << 0 << 30 << 0;
    QTest::newRow("at the start, on") << 0 << -30 << -30;
    QTest::newRow("at the end, on") << -100 << -30 << -100;
    QTest::newRow("at the end, back") << -100 << 30 << -70;
    QTest::newRow("between, on") << -50 << -30 << -80;
    QTest::newRow("between, back") << -50 << 30 << -20;
}

void TBaseToolBarTest::clampedDragDoesNotStartTowardsAReachedEnd()
{
    QFETCH(int, before);
    QFETCH(int, distance);
    TStrip* const strip = LongStrip();
    LetDrag(strip, true, false, false, true);
    strip->dragButtons(before);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    Drag({50, 50 + distance});
    QTEST(Start(strip, 0), "after");
    QCOMPARE(dragged.count(), Start(strip, 0) == before ? 0 : 1);
    Finger().Release(QPoint(20, 50 + distance));
}

void TBaseToolBarTest::clampedDragStartsOverAtTheThreshold()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, true, false, false, true);
    Drag({50, 80, 45});
    QCOMPARE(Start(strip, 0), 0);
    Finger().Move(QPoint(20, 30));
    QCOMPARE(Start(strip, 0), -15);
    Finger().Release(QPoint(20, 30));
}

void TBaseToolBarTest::stripThatFitsGivesEveryMovementBack_data()
{
    QTest::addColumn<int>("layout");
    for (int layout = 0; layout < 4; ++layout)
        QTest::newRow(qPrintable(QStringLiteral("layout %1").arg(layout))) << layout;
}

void TBaseToolBarTest::stripThatFitsGivesEveryMovementBack()
{
    QFETCH(int, layout);
    TStrip* const strip = Strip(eToolBarLayouts(layout), false, 3, QSize(50, 50));
    LetDrag(strip);
    QVector<int> const before = Starts(strip, layout < 2);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    for (int const delta : {1, -1, 50, -50, 100000, -100000, 0})
    {
        strip->dragButtons(delta);
        QCOMPARE(Starts(strip, layout < 2), before);
    }
    QCOMPARE(dragged.count(), 0);
}

void TBaseToolBarTest::stripIsHeldToItsEnds_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QVector<int>>("deltas");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("moves");
    for (int const layout : {0, 2})
    {
        char const* const name = layout == 0 ? "horizontal" : "vertical";
        auto const row = [name](char const* what) -> QTestData&
        { return QTest::newRow(qPrintable(QString::fromLatin1(name) + QLatin1String(what))); };
        row(" back from the start") << layout << QVector<int>{1} << 0 << 0;
        row(" to the last pixel") << layout << QVector<int>{-100} << -100 << 1;
        row(" past the end") << layout << QVector<int>{-101} << -100 << 1;
        row(" far past the end") << layout << QVector<int>{-5000, -1} << -100 << 1;
        row(" there and back") << layout << QVector<int>{-60, 61} << 0 << 2;
        row(" nowhere") << layout << QVector<int>{0} << 0 << 0;
    }
}

void TBaseToolBarTest::stripIsHeldToItsEnds()
{
    QFETCH(int, layout);
    QFETCH(QVector<int>, deltas);
    TStrip* const strip = LongStrip(eToolBarLayouts(layout));
    LetDrag(strip);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    for (int const delta : qAsConst(deltas))
        strip->dragButtons(delta);
    QTEST(Starts(strip, layout == 0).constFirst(), "start");
    QTEST(dragged.count(), "moves");
}

void TBaseToolBarTest::hiddenButtonsMoveAlong()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 6, QSize(50, 100));
    LetDrag(strip);
    strip->SetButtonVisibility(5, false);
    int const hidden = Start(strip, 5);
    strip->dragButtons(-30);
    QCOMPARE(Start(strip, 5), hidden - 30);
}

void TBaseToolBarTest::marksShowWhereThereIsMore_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("drag");
    QTest::addColumn<bool>("atStart");
    QTest::addColumn<bool>("atEnd");
    QTest::newRow("vertical, at the start") << 2 << 0 << false << true;
    QTest::newRow("vertical, between") << 2 << -1 << true << true;
    QTest::newRow("vertical, at the end") << 2 << -100 << true << false;
    QTest::newRow("horizontal, at the start") << 0 << 0 << false << true;
    QTest::newRow("horizontal, between") << 0 << -99 << true << true;
    QTest::newRow("horizontal, at the end") << 0 << -100 << true << false;
}

void TBaseToolBarTest::marksShowWhereThereIsMore()
{
    QFETCH(int, layout);
    QFETCH(int, drag);
    QFETCH(bool, atStart);
    QFETCH(bool, atEnd);
    TStrip* const strip = LongStrip(eToolBarLayouts(layout));
    LetDrag(strip);
    strip->ArrangeButtons();
    strip->dragButtons(drag);
    QCOMPARE(strip->up->isVisible(), atStart);
    QCOMPARE(strip->down->isVisible(), atEnd);
    if (atStart)
        QCOMPARE(strip->up->geometry(), layout == 0 ? QRect(0, 0, 6, 50) : QRect(0, 0, 50, 6));
    if (atEnd)
        QCOMPARE(strip->down->geometry(), layout == 0 ? QRect(94, 0, 6, 50) : QRect(0, 94, 50, 6));
    // Above the buttons, which take the finger.
    QCOMPARE(strip->children().last(), atEnd ? strip->down : strip->up);
    QVERIFY(!strip->up->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(strip->up->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void TBaseToolBarTest::marksNeedDragging()
{
    TStrip* const strip = LongStrip();
    strip->dragButtons(-30);
    QVERIFY(!strip->up->isVisible());
    QVERIFY(!strip->down->isVisible());
}

void TBaseToolBarTest::flickRunsOnAtConstantSpeed()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    // 20 pixels in 10 ms after the first move, which has no speed yet.
    Drag({90, 80, 60});
    QCOMPARE(Start(strip, 0), -30);
    m_Clock->Advance(200);
    Finger().Release(QPoint(20, 60));
    QVERIFY(Inertia(strip)->isActive());
    QCOMPARE(Inertia(strip)->interval(), 100);
    Tick(strip, 100);
    QCOMPARE(Start(strip, 0), -230);
    Tick(strip, 50);
    QCOMPARE(Start(strip, 0), -330);
    Tick(strip, 0);
    QCOMPARE(Start(strip, 0), -330);
    QVERIFY(Inertia(strip)->isActive());
}

void TBaseToolBarTest::flickStopsAtTheEnd()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, false, false, true);
    Drag({90, 80, 60});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    QVERIFY(Inertia(strip)->isActive());
    Tick(strip, 100);
    QCOMPARE(Start(strip, 0), -100);
    QVERIFY(!Inertia(strip)->isActive());
}

void TBaseToolBarTest::flickNeedsAQuickLift_data()
{
    QTest::addColumn<int>("rest");
    QTest::addColumn<bool>("flicks");
    QTest::newRow("none") << 0 << false;
    QTest::newRow("shortest") << 1 << true;
    QTest::newRow("longest") << 200 << true;
    QTest::newRow("too long") << 201 << false;
}

void TBaseToolBarTest::flickNeedsAQuickLift()
{
    QFETCH(int, rest);
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    Drag({90, 80, 60});
    m_Clock->Advance(rest);
    Finger().Release(QPoint(20, 60));
    QTEST(Inertia(strip)->isActive(), "flicks");
}

void TBaseToolBarTest::flickWithoutInertiaEndsAtOnce()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, false);
    Drag({90, 80, 60});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    QVERIFY(!Inertia(strip)->isActive());
    QCOMPARE(Start(strip, 0), -30);
}

void TBaseToolBarTest::clampedFlickEndsTheDragAtTheEnd()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, false, true, true, true);
    Drag({90, 80, 60});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    Tick(strip, 1000);
    QCOMPARE(Start(strip, 0), -100);
    QVERIFY(!Inertia(strip)->isActive());
    // Only the next press drags again.
    Drag({10, 40, 60});
    QCOMPARE(Start(strip, 0), -50);
    Finger().Release(QPoint(20, 60));
}

void TBaseToolBarTest::pressStopsAFlick()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    Drag({90, 80, 60});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    Finger().Press(QPoint(20, 60));
    QVERIFY(!Inertia(strip)->isActive());
    QCOMPARE(Start(strip, 0), -30);
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    QVERIFY(!Inertia(strip)->isActive());
}

void TBaseToolBarTest::dragComesToRestOnWholeButtons_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("after");
    QTest::newRow("less than half on") << -40 << -19 << -40;
    QTest::newRow("half on") << -40 << -20 << -80;
    QTest::newRow("one and a bit on") << -40 << -50 << -80;
    QTest::newRow("less than half back") << -80 << 19 << -80;
    QTest::newRow("half back") << -80 << 20 << -40;
    QTest::newRow("at an end") << 0 << -500 << -300;
    QTest::newRow("from the start") << 0 << -45 << -40;
}

void TBaseToolBarTest::dragComesToRestOnWholeButtons()
{
    QFETCH(int, before);
    QFETCH(int, distance);
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 10, QSize(50, 100));
    LetDrag(strip, false, true);
    strip->dragButtons(before);
    Drag({95, 95 + distance});
    Finger().Release(QPoint(20, 95 + distance));
    QTEST(Start(strip, 0), "after");
}

void TBaseToolBarTest::dragThatWasAtTheEndSnapsTowardsIt()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 10, QSize(50, 100));
    LetDrag(strip, false, true, false, true);
    // Far past the end, and 30 pixels back: whole buttons from the press on are 5 pixels back or 35 on.
    Drag({95, -500, -470});
    QCOMPARE(Start(strip, 0), -270);
    strip->endDrag();
    QCOMPARE(Start(strip, 0), -300);
    Finger().Release(QPoint(20, -470));
}

void TBaseToolBarTest::moveAfterTheEndOfADragDoesNothing()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip, false, false, true, true);
    Drag({90, 60});
    Finger().Release(QPoint(20, 60));
    QCOMPARE(Start(strip, 0), -30);
    // The same press goes on for a bar that gets no new one.
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 20), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(strip, &move);
    QCOMPARE(Start(strip, 0), -30);
    Drag({60, 50});
    QCOMPARE(Start(strip, 0), -40);
    Finger().Release(QPoint(20, 50));
}

void TBaseToolBarTest::moveWithoutAPressDoesNothing()
{
    TStrip* const strip = LongStrip();
    LetDrag(strip);
    for (QPointF const at : {QPointF(20, 20), QPointF(-20, -2000)})
    {
        QMouseEvent move(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(strip, &move);
        QCOMPARE(Start(strip, 0), 0);
    }
}

void TBaseToolBarTest::wheelBringsTheButtonIn_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("start");
    QTest::newRow("beyond the end") << 2 << 0 << 4 << -100;
    QTest::newRow("half beyond the end") << 2 << 0 << 2 << -20;
    QTest::newRow("before the start") << 2 << -100 << 1 << -40;
    QTest::newRow("in view") << 2 << -30 << 1 << -30;
    QTest::newRow("horizontal, beyond the end") << 0 << 0 << 4 << -100;
    QTest::newRow("horizontal, before the start") << 0 << -100 << 0 << 0;
}

void TBaseToolBarTest::wheelBringsTheButtonIn()
{
    QFETCH(int, layout);
    QFETCH(int, before);
    QFETCH(int, id);
    TStrip* const strip = LongStrip(eToolBarLayouts(layout));
    LetDrag(strip);
    strip->dragButtons(before);
    strip->OnMMIHighlightChild(strip->GetButton(id));
    QTEST(Starts(strip, layout == 0).constFirst(), "start");
    strip->OnMMIHighlightChild(nullptr);
}

void TBaseToolBarTest::wheelReachesEveryButton()
{
    TStrip* const strip = LongStrip();
    QVERIFY(strip->IsMMIChildNavigatable(strip->GetButton(4)));
    QVERIFY(strip->IsMMIChildNavigatable(nullptr));
}

void TBaseToolBarTest::wheelLeavesABarWithoutDraggingAlone()
{
    TStrip* const strip = LongStrip();
    strip->OnMMIHighlightChild(strip->GetButton(4));
    QCOMPARE(Start(strip, 0), 0);
}

void TBaseToolBarTest::deletedInASlotOfDragged_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("by a finger") << 0;
    QTest::newRow("at the end of a drag") << 1;
    QTest::newRow("by a flick") << 2;
    QTest::newRow("by the wheel") << 3;
    QTest::newRow("by a layout") << 4;
}

void TBaseToolBarTest::deletedInASlotOfDragged()
{
    QFETCH(int, way);
    QPointer<TStrip> const strip = Strip(TOOLBAR_VERTICAL_NEAR, way != 4, 50, QSize(50, 100));
    LetDrag(strip, false, true, true, true);
    auto const arm = [&] { connect(strip, &TBaseToolBar::dragged, this, [strip] { delete strip.data(); }); };
    if (way == 0)
        arm();
    if (way < 3)
        Drag({90, 80, 60});
    if (way == 1)
    {
        arm();
        m_Clock->Advance(1000);
        Finger().Release(QPoint(20, 60));
    }
    if (way == 2)
    {
        m_Clock->Advance(10);
        Finger().Release(QPoint(20, 60));
        arm();
        Tick(strip, 100);
    }
    if (way == 3)
    {
        arm();
        strip->OnMMIHighlightChild(strip->GetButton(4));
    }
    if (way == 4)
    {
        // An offset makes the layout move the strip to the edge.
        arm();
        strip->SetButtonOffset(5);
        strip->ArrangeButtons(ButtonSize, 0);
    }
    QVERIFY(!strip);
    Finger().Release(QPoint(20, 60));
}

void TBaseToolBarTest::deletedWhileFlicking()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    Drag({90, 80, 60});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 60));
    QVERIFY(Inertia(strip)->isActive());
    delete strip;
    QCoreApplication::processEvents();
}

void TBaseToolBarTest::disablingReleasesAButtonThatGoes_data()
{
    QTest::addColumn<bool>("bar");
    QTest::newRow("button") << false;
    QTest::newRow("bar") << true;
}

void TBaseToolBarTest::disablingReleasesAButtonThatGoes()
{
    QFETCH(bool, bar);
    QPointer<TStrip> const strip = Strip(TOOLBAR_VERTICAL_NEAR, false, 3, QSize(50, 50));
    QPointer<TPushButton> const button = strip->GetButton(1);
    connect(button, &TPushButton::Released, this,
            [=](int id)
            {
                if (bar)
                    delete strip.data();
                else
                    strip->RemoveButton(id, true);
            });
    Finger().Press(Finger().MiddleOf(*button));
    strip->DisableToolBar();
    QCOMPARE(strip.isNull(), bar);
    if (strip)
    {
        QCOMPARE(strip->GetNumberOfButtons(), 2);
        QVERIFY(!strip->GetButton(0)->isEnabled());
        QVERIFY(!strip->GetButton(2)->isEnabled());
    }
    QTRY_VERIFY(!button);
    Finger().Release(QPoint(20, 60));
}

void TBaseToolBarTest::shortStripInAWideBar_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("delta");
    QTest::addColumn<int>("start");
    // Three buttons of 40 pixels in 200.
    QTest::newRow("horizontal, nowhere") << 0 << 0 << 0;
    QTest::newRow("horizontal, a bit on") << 0 << 50 << 0;
    QTest::newRow("horizontal, to the far edge") << 0 << 80 << 80;
    QTest::newRow("horizontal, past it") << 0 << 81 << 0;
    QTest::newRow("horizontal, back") << 0 << -10 << 80;
    QTest::newRow("vertical, nowhere") << 2 << 0 << 80;
    QTest::newRow("vertical, a bit on") << 2 << 50 << 0;
    QTest::newRow("vertical, to the far edge") << 2 << 80 << 0;
    QTest::newRow("vertical, back") << 2 << -10 << 80;
}

// A bar that is wider than its strip has no rest for it: clamping keeps fingers off.
void TBaseToolBarTest::shortStripInAWideBar()
{
    QFETCH(int, layout);
    QFETCH(int, delta);
    QFETCH(int, start);
    TStrip* const strip =
        Strip(eToolBarLayouts(layout), true, 3, layout == 0 ? QSize(200, 50) : QSize(50, 200));
    LetDrag(strip);
    QSignalSpy dragged(strip, &TBaseToolBar::dragged);
    strip->dragButtons(delta);
    QCOMPARE(Starts(strip, layout == 0), QVector<int>({start, start + 40, start + 80}));
    QCOMPARE(dragged.count(), start == 0 ? 0 : 1);
}

void TBaseToolBarTest::thresholdFollowsTheOperatorsSize()
{
    TStrip* const strip = LongStrip();
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, 2, false);
    strip->SetUserResizeButtons(true);
    strip->ArrangeButtons();
    LetDrag(strip, true);
    Drag({60, 60 - 29});
    QCOMPARE(Start(strip, 0), 0);
    Finger().Release(QPoint(20, 60 - 29));
    Drag({60, 60 - 30});
    QCOMPARE(Start(strip, 0), -30);
    Finger().Release(QPoint(20, 60 - 30));
}

void TBaseToolBarTest::firstMoveOfADragHasNoSpeed()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    Drag({90, 30});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 30));
    QVERIFY(!Inertia(strip)->isActive());
    QCOMPARE(Start(strip, 0), -60);
}

void TBaseToolBarTest::speedIsCutToWholePixels_data()
{
    QTest::addColumn<int>("distance"); // in 10 ms
    QTest::addColumn<int>("ran");      // in 10 ms more
    QTest::newRow("below one") << -9 << 0;
    QTest::newRow("one") << -10 << -10;
    QTest::newRow("nearly two") << -19 << -10;
    QTest::newRow("back") << 29 << 20;
}

void TBaseToolBarTest::speedIsCutToWholePixels()
{
    QFETCH(int, distance);
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 50, QSize(50, 100));
    LetDrag(strip, false, false, true);
    strip->dragButtons(-500);
    Drag({50, 49, 49 + distance});
    m_Clock->Advance(10);
    Finger().Release(QPoint(20, 49 + distance));
    int const before = Start(strip, 0);
    if (Inertia(strip)->isActive())
        Tick(strip, 10);
    QTEST(Start(strip, 0) - before, "ran");
}

// Deliberate: with larger buttons the strip does not come to rest on whole ones.
void TBaseToolBarTest::restIsMeasuredInButtonsBeforeTheOperatorsFactor()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 10, QSize(50, 100));
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, 2, false);
    strip->SetUserResizeButtons(true);
    strip->ArrangeButtons();
    LetDrag(strip, false, true);
    Drag({95, 65});
    Finger().Release(QPoint(20, 65));
    QCOMPARE(Start(strip, 0), -40);
}

// Deliberate: the finger is measured, not the strip.
void TBaseToolBarTest::movementGivenBackCountsForTheRest()
{
    TStrip* const strip = Strip(TOOLBAR_VERTICAL_NEAR, true, 10, QSize(50, 100));
    LetDrag(strip, false, true);
    Drag({50, 75, 30});
    QCOMPARE(Start(strip, 0), -45);
    m_Clock->Advance(500);
    Finger().Release(QPoint(20, 30));
    QCOMPARE(Start(strip, 0), -65);
}

COMMONUI_TEST(TBaseToolBarTest)
#include "TBaseToolBarTest.moc"
