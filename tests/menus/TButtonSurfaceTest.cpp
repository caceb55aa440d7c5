#include "TButtonSurface.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TPushButton.h"
#include "TTestPlatform.h"

#include <QPointer>

namespace
{
constexpr int ButtonCount = 3;
constexpr int Side = 80;

/// A platform whose tool tips are noted, in either mode.
class TTipPlatform : public TTestPlatform
{
public:
    bool ToolTipVisible() const override { return isMode; }
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override
    {
        Q_UNUSED(source)
        Q_UNUSED(placement)
        Q_UNUSED(icon)
        shown << text;
    }

    bool isMode = false;
    QStringList shown;
};

/// Three buttons beside each other, of which the middle one has a tool tip, and room at the right.
class TSurfaceStage
{
public:
    explicit TSurfaceStage(int restTime = 0)
        : finger(screen.get())
        , surface(new TButtonSurface(screen.get(), restTime))
    {
        surface->setGeometry(100, 100, (ButtonCount + 1) * Side, Side);
        for (int id = 0; id < ButtonCount; ++id)
        {
            auto* const button = new TPushButton(surface, id, id == 1 ? QStringLiteral("middle") : QString());
            button->setGeometry(id * Side, 0, Side, Side);
            QObject::connect(button, &TPushButton::Clicked, button,
                             [this](int clicked) { clicks << clicked; });
            buttons << button;
        }
        surface->show();
    }

    QPoint On(int id) const { return QPoint(100 + id * Side + Side / 2, 100 + Side / 2); }

    TTestScreen screen;
    TTipPlatform platform;
    QVector<int> clicks;
    TFinger finger; // lifts before the clicks go
    QPointer<TButtonSurface> surface;
    QList<QPointer<TPushButton>> buttons;
};

/// What the surface itself gets of a finger, \a place being counted in buttons from its left edge.
QMouseEvent FingerAt(double place, QEvent::Type type)
{
    return QMouseEvent(type, QPointF(place * Side, 40),
                       type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                       type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
}

/// Leaves time for what must not happen.
bool HasWaited()
{
    QTimer later;
    later.setSingleShot(true);
    later.start(20);
    return QTest::qWaitFor([&later] { return !later.isActive(); });
}
} // namespace

class TButtonSurfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTouchClicksOnce();
    void aSlideAcrossThreeButtonsClicksOnlyTheOneUnderTheFingerAtTheRelease();
    void aShortSlideOverTheEdgeClicksTheNeighbourAlone();
    void theButtonUnderTheFingerIsDown();
    void aSlideBackClicksTheFirstButton();
    void aSlideOffAllButtonsClicksNone();
    void aSlideOntoADisabledButtonClicksNothing();
    void aSlideThatBeginsBesideTheButtonsClicks();
    void aSlideOntoAnOverlappingButtonClicksThatAlone();
    void aSlideOutOfTheOverlapAndBackClicksOnce();
    void aButtonThatComesUnderARestingFingerIsNotClicked();
    void aButtonThatMovesAwayFromARestingFingerClicksNothing();
    void aButtonThatHidesItselfDoesNotClickTheOneBehindIt();
    void aPressedButtonThatVanishesEndsTheSlide_data();
    void aPressedButtonThatVanishesEndsTheSlide();
    void aButtonThatDeletesItselfEndsTheTouch();
    void aButtonThatIsHiddenInASlideIsLetGo();
    void aPressAfterALostReleaseBeginsAnew();
    void inToolTipModeASlideToAButtonWithAToolTipShowsTheTipAndDoesNotClick();
    void inToolTipModeASlideOffAButtonTakesItsToolTipAway();
    void inToolTipModeAToolTipStaysWhenTheFingerLifts();
    void aFingerThatRestsShowsTheToolTip();
    void afterAReleaseAFingerHasToRestAnew();
    void aReleaseInTimeShowsNoToolTip();
    void aFingerThatRestsBesideTheButtonsHasNothingToAsk();
    void disabledToolTipsStayAway();
    void disablingToolTipsTakesTheOneOfARestingFingerAway();
    void inToolTipModeAPressedButtonExplainsItselfInAnyCase();
    void aButtonThatRepeatsClicksWhileTheFingerStaysOnIt();
    void hiddenInASlideItLetsTheButtonGo();
    void hiddenWhileAFingerRestsItTakesTheToolTipAway();
    void diesInTheSlotOfAClick();
    void diesWhileItIsPressed();
    void outlivesTheButtonsUnderTheFinger();
};

void TButtonSurfaceTest::aTouchClicksOnce()
{
    TSurfaceStage stage;
    stage.finger.Touch(stage.On(1));
    QCOMPARE(stage.clicks, QVector<int>{1});
}

void TButtonSurfaceTest::aSlideAcrossThreeButtonsClicksOnlyTheOneUnderTheFingerAtTheRelease()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    stage.finger.Move(stage.On(2));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{2});
    for (TPushButton const* const button : qAsConst(stage.buttons))
        QVERIFY(!button->isDown());
}

void TButtonSurfaceTest::aShortSlideOverTheEdgeClicksTheNeighbourAlone()
{
    TSurfaceStage stage;
    QPoint const edge(100 + Side, 100 + Side / 2);
    stage.finger.Press(edge - QPoint(8, 0));
    stage.finger.Move(edge + QPoint(8, 0));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{1});
}

void TButtonSurfaceTest::theButtonUnderTheFingerIsDown()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    QVERIFY(stage.buttons.at(0)->isDown());
    stage.finger.Move(stage.On(1));
    QVERIFY(!stage.buttons.at(0)->isDown());
    QVERIFY(stage.buttons.at(1)->isDown());
    stage.finger.Move(stage.On(2));
    QVERIFY(!stage.buttons.at(1)->isDown());
    QVERIFY(stage.buttons.at(2)->isDown());
    stage.finger.Lift();
}

void TButtonSurfaceTest::aSlideBackClicksTheFirstButton()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    stage.finger.Move(stage.On(0));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{0});
    QVERIFY(!stage.buttons.at(1)->isDown());
}

void TButtonSurfaceTest::aSlideOffAllButtonsClicksNone()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    stage.finger.Move(stage.On(3));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
    for (TPushButton const* const button : qAsConst(stage.buttons))
        QVERIFY(!button->isDown());
}

void TButtonSurfaceTest::aSlideOntoADisabledButtonClicksNothing()
{
    TSurfaceStage stage;
    stage.buttons.at(1)->setEnabled(false);
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    QVERIFY(!stage.buttons.at(1)->isDown());
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::aSlideThatBeginsBesideTheButtonsClicks()
{
    TSurfaceStage stage;
    QMouseEvent press = FingerAt(3.5, QEvent::MouseButtonPress);
    QMouseEvent move = FingerAt(2.5, QEvent::MouseMove);
    QMouseEvent release = FingerAt(2.5, QEvent::MouseButtonRelease);
    QApplication::sendEvent(stage.surface, &press);
    QApplication::sendEvent(stage.surface, &move);
    QVERIFY(move.isAccepted());
    QMouseEvent beside = FingerAt(3.5, QEvent::MouseMove);
    QApplication::sendEvent(stage.surface, &beside);
    QVERIFY(!beside.isAccepted());
    // It may lift elsewhere than it was heard of last.
    QApplication::sendEvent(stage.surface, &release);
    QCOMPARE(stage.clicks, QVector<int>{2});
}

void TButtonSurfaceTest::aSlideOntoAnOverlappingButtonClicksThatAlone()
{
    TSurfaceStage stage;
    stage.buttons.at(1)->move(Side / 2, 0);
    QPoint const overlap(100 + Side / 2 + 15, 100 + Side / 2);
    stage.finger.Press(overlap - QPoint(30, 0));
    stage.finger.Move({overlap, overlap + QPoint(2, 0), overlap + QPoint(4, 0)});
    QVERIFY(!stage.buttons.at(0)->isDown());
    QVERIFY(stage.buttons.at(1)->isDown());
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{1});
}

void TButtonSurfaceTest::aSlideOutOfTheOverlapAndBackClicksOnce()
{
    TSurfaceStage stage;
    stage.buttons.at(1)->move(Side / 2, 0);
    QPoint const overlap(100 + Side / 2 + 15, 100 + Side / 2);
    stage.finger.Press(overlap - QPoint(30, 0));
    stage.finger.Move({overlap + QPoint(50, 0), overlap});
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{1});
}

void TButtonSurfaceTest::aButtonThatComesUnderARestingFingerIsNotClicked()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.buttons.at(2)->move(0, 0);
    stage.buttons.at(2)->raise();
    stage.buttons.at(0)->move(Side * 2, 0);
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
    // Nor when the whole surface moves beneath it.
    stage.finger.Press(stage.On(1));
    stage.surface->move(100 + Side, 100);
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::aButtonThatMovesAwayFromARestingFingerClicksNothing()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    stage.buttons.at(1)->move(3 * Side, 0);
    stage.buttons.at(2)->move(Side, 0);
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
    QVERIFY(!stage.buttons.at(1)->isDown());
}

void TButtonSurfaceTest::aButtonThatHidesItselfDoesNotClickTheOneBehindIt()
{
    TSurfaceStage stage;
    stage.buttons.at(1)->lower();
    stage.buttons.at(1)->move(0, 0);
    connect(stage.buttons.at(0), &TPushButton::Clicked, stage.buttons.at(0), &QWidget::hide);
    stage.finger.Touch(stage.On(0));
    QCOMPARE(stage.clicks, QVector<int>{0});
    stage.finger.Touch(stage.On(0));
    QCOMPARE(stage.clicks, (QVector<int>{0, 1}));
}

void TButtonSurfaceTest::aPressedButtonThatVanishesEndsTheSlide_data()
{
    QTest::addColumn<bool>("deleted");
    QTest::newRow("hidden") << false;
    QTest::newRow("deleted") << true;
}

void TButtonSurfaceTest::aPressedButtonThatVanishesEndsTheSlide()
{
    QFETCH(bool, deleted);
    TSurfaceStage stage;
    stage.buttons.at(2)->SetAutoRepeat(true, 1, 1);
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    QVERIFY(stage.buttons.at(2)->isDown());
    if (deleted)
        delete stage.buttons.at(0).data();
    else
        stage.buttons.at(0)->hide();
    QVERIFY(!stage.buttons.at(2)->isDown());
    int const clicks = stage.clicks.size();
    QVERIFY(HasWaited());
    QCOMPARE(stage.clicks.size(), clicks);
    stage.finger.Lift();
    // The next finger has to rest anew.
    stage.finger.Press(stage.On(2));
    stage.finger.Move(stage.On(1));
    QVERIFY(stage.platform.shown.isEmpty());
    stage.finger.Lift();
    QCOMPARE(stage.clicks.last(), 1);
}

void TButtonSurfaceTest::aButtonThatDeletesItselfEndsTheTouch()
{
    TSurfaceStage stage;
    connect(stage.buttons.at(0), &TPushButton::Clicked, stage.surface,
            [&stage] { delete stage.buttons.at(0).data(); });
    stage.finger.Touch(stage.On(0));
    QVERIFY(!stage.buttons.at(0));
    QVERIFY(HasWaited());
    // Had it been left touched it would take this for a slide.
    stage.finger.Move(stage.On(1));
    QVERIFY(!stage.buttons.at(1)->isDown());
    QVERIFY(stage.platform.shown.isEmpty());
}

void TButtonSurfaceTest::aButtonThatIsHiddenInASlideIsLetGo()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    stage.buttons.at(2)->hide();
    stage.finger.Lift();
    QVERIFY(!stage.buttons.at(2)->isDown());
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::aPressAfterALostReleaseBeginsAnew()
{
    TSurfaceStage stage;
    QMouseEvent press = FingerAt(3.5, QEvent::MouseButtonPress);
    QMouseEvent move = FingerAt(2.5, QEvent::MouseMove);
    QApplication::sendEvent(stage.surface, &press);
    QApplication::sendEvent(stage.surface, &move);
    QVERIFY(stage.buttons.at(2)->isDown());
    QApplication::sendEvent(stage.surface, &press);
    QVERIFY(!stage.buttons.at(2)->isDown());
}

void TButtonSurfaceTest::inToolTipModeASlideToAButtonWithAToolTipShowsTheTipAndDoesNotClick()
{
    TSurfaceStage stage;
    stage.platform.isMode = true;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    QCOMPARE(stage.platform.shown, QStringList{QStringLiteral("middle")});
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
    // One without a tool tip has nothing to say.
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{2});
}

void TButtonSurfaceTest::inToolTipModeASlideOffAButtonTakesItsToolTipAway()
{
    TSurfaceStage stage;
    stage.platform.isMode = true;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    QCOMPARE(stage.platform.shown.size(), 1);
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.finger.Move(stage.On(3));
    QVERIFY(stage.platform.m_HiddenToolTips > hidden);
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::inToolTipModeAToolTipStaysWhenTheFingerLifts()
{
    TSurfaceStage stage;
    stage.platform.isMode = true;
    stage.finger.Press(stage.On(1));
    QTRY_VERIFY(stage.platform.shown.size() > 1); // by the press, and as it rests
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.finger.Lift();
    QCOMPARE(stage.platform.m_HiddenToolTips, hidden);
}

void TButtonSurfaceTest::aFingerThatRestsShowsTheToolTip()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(1));
    QVERIFY(stage.platform.shown.isEmpty());
    QTRY_COMPARE(stage.platform.shown, QStringList{QStringLiteral("middle")});
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.finger.Move(stage.On(2));
    QVERIFY(stage.platform.m_HiddenToolTips > hidden);
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>{2});
}

void TButtonSurfaceTest::afterAReleaseAFingerHasToRestAnew()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(1));
    QTRY_COMPARE(stage.platform.shown.size(), 1);
    stage.finger.Lift();
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    QCOMPARE(stage.platform.shown.size(), 1);
    stage.finger.Lift();
}

void TButtonSurfaceTest::aReleaseInTimeShowsNoToolTip()
{
    TSurfaceStage stage;
    stage.finger.Touch(stage.On(1));
    int const hidden = stage.platform.m_HiddenToolTips;
    QVERIFY(HasWaited());
    QVERIFY(stage.platform.shown.isEmpty());
    // A time that ran on would take away the tip of somebody else.
    QCOMPARE(stage.platform.m_HiddenToolTips, hidden);
}

void TButtonSurfaceTest::aFingerThatRestsBesideTheButtonsHasNothingToAsk()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(3));
    QVERIFY(HasWaited());
    stage.finger.Move(stage.On(1));
    QVERIFY(stage.platform.shown.isEmpty());
    stage.finger.Lift();
}

void TButtonSurfaceTest::disabledToolTipsStayAway()
{
    TSurfaceStage stage;
    stage.surface->EnableToolTips(false);
    stage.finger.Press(stage.On(1));
    QVERIFY(HasWaited());
    QVERIFY(stage.platform.shown.isEmpty());
    stage.finger.Lift();
    stage.platform.isMode = true;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.finger.Move(stage.On(3));
    QVERIFY(stage.platform.shown.isEmpty());
    QCOMPARE(stage.platform.m_HiddenToolTips, hidden);
}

void TButtonSurfaceTest::disablingToolTipsTakesTheOneOfARestingFingerAway()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(1));
    QTRY_COMPARE(stage.platform.shown.size(), 1);
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.surface->EnableToolTips(false);
    QCOMPARE(stage.platform.m_HiddenToolTips, hidden + 1);
    stage.surface->EnableToolTips(true);
    stage.finger.Move(stage.On(0));
    stage.finger.Move(stage.On(1));
    QCOMPARE(stage.platform.shown.size(), 1);
}

void TButtonSurfaceTest::inToolTipModeAPressedButtonExplainsItselfInAnyCase()
{
    TSurfaceStage stage;
    stage.surface->EnableToolTips(false);
    stage.platform.isMode = true;
    stage.finger.Touch(stage.On(1));
    QCOMPARE(stage.platform.shown, QStringList{QStringLiteral("middle")});
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::aButtonThatRepeatsClicksWhileTheFingerStaysOnIt()
{
    TSurfaceStage stage;
    stage.buttons.at(2)->SetAutoRepeat(true, 1, 1);
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    QTRY_VERIFY(stage.clicks.size() >= 3);
    stage.finger.Move(stage.On(0));
    int const clicks = stage.clicks.size();
    QVERIFY(HasWaited());
    QCOMPARE(stage.clicks.size(), clicks);
    stage.finger.Lift();
}

void TButtonSurfaceTest::hiddenInASlideItLetsTheButtonGo()
{
    TSurfaceStage stage;
    stage.buttons.at(2)->SetAutoRepeat(true, 1, 1);
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    QVERIFY(stage.buttons.at(2)->isDown());
    stage.surface->hide();
    QVERIFY(!stage.buttons.at(2)->isDown());
    int const clicks = stage.clicks.size();
    QVERIFY(HasWaited());
    QCOMPARE(stage.clicks.size(), clicks);
    stage.surface->show();
    stage.finger.Move(stage.On(1));
    QVERIFY(!stage.buttons.at(1)->isDown());
    stage.finger.Lift();
    QCOMPARE(stage.clicks.size(), clicks);
    for (TPushButton const* const button : qAsConst(stage.buttons))
        QVERIFY(!button->isDown());
}

void TButtonSurfaceTest::hiddenWhileAFingerRestsItTakesTheToolTipAway()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(1));
    QTRY_COMPARE(stage.platform.shown.size(), 1);
    int const hidden = stage.platform.m_HiddenToolTips;
    stage.surface->hide();
    QVERIFY(stage.platform.m_HiddenToolTips > hidden);
}

void TButtonSurfaceTest::diesInTheSlotOfAClick()
{
    for (int const id : {0, 2})
    {
        TSurfaceStage stage;
        connect(stage.buttons.at(id), &QAbstractButton::clicked, this,
                [&stage] { delete stage.surface.data(); });
        stage.finger.Press(stage.On(0));
        stage.finger.Move(stage.On(id));
        stage.finger.Lift();
        QVERIFY(!stage.surface);
    }
}

void TButtonSurfaceTest::diesWhileItIsPressed()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(2));
    delete stage.surface.data();
    stage.finger.Move(stage.On(1));
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
}

void TButtonSurfaceTest::outlivesTheButtonsUnderTheFinger()
{
    TSurfaceStage stage;
    stage.finger.Press(stage.On(0));
    stage.finger.Move(stage.On(1));
    delete stage.buttons.at(1).data();
    stage.finger.Move(stage.On(2));
    delete stage.buttons.at(2).data();
    stage.finger.Lift();
    QCOMPARE(stage.clicks, QVector<int>());
    stage.finger.Touch(stage.On(0));
    QCOMPARE(stage.clicks, QVector<int>{0});
}

COMMONUI_TEST(TButtonSurfaceTest)
#include "TButtonSurfaceTest.moc"
