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
    TFinger finger;
    QPointer<TButtonSurface> surface;
    QList<QPointer<TPushButton>> buttons;
    QVector<int> clicks;
};

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
    void inToolTipModeASlideToAButtonWithAToolTipShowsTheTipAndDoesNotClick();
    void aFingerThatRestsShowsTheToolTip();
    void afterAReleaseAFingerHasToRestAnew();
    void aReleaseInTimeShowsNoToolTip();
    void disabledToolTipsStayAway();
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
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3.5 * Side, 40), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent move(QEvent::MouseMove, QPointF(2.5 * Side, 40), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(2.5 * Side, 40), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(stage.surface, &press);
    QApplication::sendEvent(stage.surface, &move);
    QVERIFY(move.isAccepted());
    QApplication::sendEvent(stage.surface, &release);
    QCOMPARE(stage.clicks, QVector<int>{2});
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
    QVERIFY(HasWaited());
    QVERIFY(stage.platform.shown.isEmpty());
}

void TButtonSurfaceTest::disabledToolTipsStayAway()
{
    TSurfaceStage stage;
    stage.surface->EnableToolTips(false);
    stage.finger.Press(stage.On(1));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QVERIFY(stage.platform.shown.isEmpty());
    stage.platform.isMode = true;
    stage.finger.Move(stage.On(0));
    stage.finger.Lift();
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
