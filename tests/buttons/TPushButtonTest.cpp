#include "ButtonTestSupport.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

namespace
{
constexpr QRect ButtonRect(100, 100, 80, 60);

TPushButton* MakeButton(QWidget* parent, int id = 7, QString const& toolTip = QString())
{
    auto* const button = new TPushButton(parent, id, toolTip);
    button->setGeometry(ButtonRect);
    return button;
}

struct TSignals
{
    explicit TSignals(TPushButton* button)
        : clicked(button, &QAbstractButton::clicked)
        , Clicked(button, &TPushButton::Clicked)
        , Pressed(button, &TPushButton::Pressed)
        , Released(button, &TPushButton::Released)
    {
    }
    QSignalSpy clicked;
    QSignalSpy Clicked;
    QSignalSpy Pressed;
    QSignalSpy Released;
};

// Lets the double click timer of the button run out without waiting for it.
void RunOut(TPushButton* button)
{
    auto* const timer = button->findChild<QTimer*>();
    QVERIFY(timer && timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
}

using TDestroyer = std::function<void(TPushButton*, std::function<void()>)>;
} // namespace

Q_DECLARE_METATYPE(TDestroyer)

class TPushButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Platform = std::make_unique<TRecordingPlatform>();
        m_Window = std::make_unique<TListeningWindow>();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Platform.reset();
        m_Screen.reset();
    }

    void constructorsGiveSizePlaceAndVisibility_data();
    void constructorsGiveSizePlaceAndVisibility();
    void buttonWithoutParentIsNotShownByItsConstructor();
    void startsWithTheWheelsGlowOffAndAWidthOfItsLiking();

    void touchGivesPressedReleasedClickedInThisOrder();
    void clickedComesBeforeOtherSlotsOfTheClick();
    void soundComesAfterClicked();
    void soundStaysOutWhenNotWanted();
    void negativeIdClicksAndSoundsWithoutItsOwnSignals();
    void idCanBeChanged();

    void parentHearsEveryMouseEvent_data();
    void parentHearsEveryMouseEvent();
    void everyMouseEventEndsUnaccepted();
    void disabledButtonSwallowsItsPress();

    void releaseAfterTheBarMovedByOnePixelGivesNoClick();
    void moveAfterTheBarMovedLetsGoAtOnce();
    void hoverWithoutAPressDoesNothing();
    void parentThatMovesTheButtonBackLetsItClick();
    void buttonAndBarThatMoveTogether_data();
    void buttonAndBarThatMoveTogether();
    void releaseEndsTheHeldMove_data();
    void releaseEndsTheHeldMove();
    void slideOffButton_data();
    void slideOffButton();
    void hitAreaIsWithinHalfTheBorder_data();
    void hitAreaIsWithinHalfTheBorder();
    void releasesDoNotClickWithoutPropagation();
    void showingBringsPropagationBack();
    void transparentAncestorTakesTheClick();
    void transparentButtonTakesItsOwnClick();
    void clearDownEventTakesTheFingerOff();

    void longHoldClicksOftenAndSoundsOnce();
    void eachTouchOfARepeatingButtonSounds();
    void touchAfterACancelledHoldSounds();
    void enterKeyAfterALongHoldSounds();
    void touchAfterTheEnterKeySoundsAgain();

    void secondReleaseIsADoubleClickHoweverLate();
    void singleClickIsDelayedOnlyForAListener();
    void connectingTwiceReportsOnce();
    void disconnectingEndsTheDelayedReport();
    void releaseBesideTheButtonArmsNothing();
    void secondReleaseBesideTheButtonIsADoubleClick();
    void cancelledReleaseOnTheButtonArms();
    void doubleClickComesAfterTheSecondClick();
    void releaseIsRoundedToWholePixels();
    void doublePressOfTheSystemIsTwoClicks();

    void enterKeyIsAShortPress();
    void enterKeyOnADisabledButtonDoesNothing();

    void toolTipModeExplainsInsteadOfClicking_data();
    void toolTipModeExplainsInsteadOfClicking();
    void toolTipFollowsTheFinger();
    void releaseHidesAnyToolTip();
    void buttonWithoutTextHidesTheToolTip();
    void toolTipShowsTheIconUnlessItHasItsOwn();
    void deletedButtonTakesItsToolTipAlong();
    void worksWithoutPlatformAndScreen();

    void objectNameComesFromTheBestSource();
    void objectNameIsKeptFromAnEqualSource();
    void pictureIconGivesNoObjectName();

    void deletedInASlotOfItsOwn_data();
    void deletedInASlotOfItsOwn();
    void deletedInASlotOfTheEnterKey_data();
    void deletedInASlotOfTheEnterKey();
    void deletedAsAnotherWayReleasesIt_data();
    void deletedAsAnotherWayReleasesIt();
    void deletedInAnyState_data();
    void deletedInAnyState();

private:
    TPushButton* Shown(int id = 7, QString const& toolTip = QString())
    {
        TPushButton* const button = MakeButton(m_Window.get(), id, toolTip);
        m_Window->Expose();
        return button;
    }
    TFinger Finger() { return TFinger(*m_Window); }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TRecordingPlatform> m_Platform;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TPushButtonTest::constructorsGiveSizePlaceAndVisibility_data()
{
    QTest::addColumn<int>("constructor");
    QTest::addColumn<QSize>("minimumSize");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("shown");
    QTest::newRow("bare") << 0 << QSize(0, 0) << QPoint(0, 0) << false;
    QTest::newRow("background and size") << 1 << QSize(90, 80) << QPoint(11, 12) << true;
    QTest::newRow("background, no size") << 2 << QSize(60, 57) << QPoint(11, 12) << true;
    QTest::newRow("standard skin and size") << 3 << QSize(91, 81) << QPoint(13, 14) << true;
    QTest::newRow("standard skin, half a size") << 4 << QSize(60, 57) << QPoint(13, 14) << true;
    QTest::newRow("two names") << 5 << QSize(60, 57) << QPoint(0, 0) << true;
    QTest::newRow("two pixmaps") << 6 << QSize(60, 57) << QPoint(0, 0) << true;
    QTest::newRow("no pixmaps") << 7 << QSize(60, 57) << QPoint(0, 0) << true;
}

void TPushButtonTest::constructorsGiveSizePlaceAndVisibility()
{
    QFETCH(int, constructor);
    m_Window->Expose();
    QString const none;
    QString const icon = m_Screen->AddImage(QStringLiteral("icon"), Qt::green);
    QString const skin = m_Screen->AddImage(QStringLiteral("skin"), Qt::red);
    auto const pixmap = m_Screen->GetPixmapManager()->GetPixmap(skin);
    QSharedPointer<QPixmap> const nothing;
    std::unique_ptr<TPushButton> button;
    QWidget* const parent = m_Window.get();
    switch (constructor)
    {
    case 0:
        button = std::make_unique<TPushButton>(parent, 5, none);
        break;
    case 1:
        button = std::make_unique<TPushButton>(parent, icon, skin, QSize(90, 80), QPoint(11, 12), 5, none);
        break;
    case 2:
        button = std::make_unique<TPushButton>(parent, icon, skin, QSize(0, 0), QPoint(11, 12), 5, none);
        break;
    case 3:
        button = std::make_unique<TPushButton>(parent, icon, QSize(91, 81), QPoint(13, 14), 5, none);
        break;
    case 4:
        button = std::make_unique<TPushButton>(parent, icon, QSize(91, 0), QPoint(13, 14), 5, none);
        break;
    case 5:
        button = std::make_unique<TPushButton>(parent, icon, skin, skin, 5, none);
        break;
    case 6:
        button = std::make_unique<TPushButton>(parent, icon, pixmap, pixmap, 5, none);
        break;
    default:
        button = std::make_unique<TPushButton>(parent, icon, nothing, nothing, 5, none);
        break;
    }
    QTEST(button->minimumSize(), "minimumSize");
    QTEST(button->pos(), "position");
    QTEST(button->isVisible(), "shown");
    QCOMPARE(button->GetButtonId(), 5);
    QCOMPARE(button->GetIconSize(), constructor == 0 ? QSize() : QSize(20, 20));
    QVERIFY(button->isEnabled());
}

void TPushButtonTest::buttonWithoutParentIsNotShownByItsConstructor()
{
    TPushButton const button(nullptr, QString(), QSize(10, 10), QPoint(), 1, QString());
    QVERIFY(button.isHidden());
}

void TPushButtonTest::startsWithTheWheelsGlowOffAndAWidthOfItsLiking()
{
    TPushButton button(m_Window.get(), 1, QStringLiteral("Help"));
    QVERIFY(!button.UseDefaultMMIHighlight());
    QCOMPARE(button.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(button.GetToolTip(), QStringLiteral("Help"));
}

void TPushButtonTest::touchGivesPressedReleasedClickedInThisOrder()
{
    TPushButton* const button = Shown();
    QObject const listener;
    QStringList order;
    connect(button, &TPushButton::Pressed, &listener,
            [&](int id) { order << QStringLiteral("pressed %1").arg(id); });
    connect(button, &TPushButton::Released, &listener,
            [&](int id) { order << QStringLiteral("released %1").arg(id); });
    connect(button, &TPushButton::Clicked, &listener,
            [&](int id) { order << QStringLiteral("clicked %1").arg(id); });

    Finger().Press(ButtonRect.center());
    QVERIFY(button->isDown());
    QCOMPARE(order, QStringList({QStringLiteral("pressed 7")}));
    Finger().Release(ButtonRect.center());
    QVERIFY(!button->isDown());
    QCOMPARE(order, QStringList({QStringLiteral("pressed 7"), QStringLiteral("released 7"),
                                 QStringLiteral("clicked 7")}));
}

void TPushButtonTest::clickedComesBeforeOtherSlotsOfTheClick()
{
    TPushButton* const button = Shown();
    QObject const listener;
    QStringList order;
    connect(button, &QAbstractButton::clicked, &listener, [&] { order << QStringLiteral("other"); });
    connect(button, &TPushButton::Clicked, &listener, [&] { order << QStringLiteral("own"); });
    Finger().Tap(*button);
    QCOMPARE(order, QStringList({QStringLiteral("own"), QStringLiteral("other")}));
}

void TPushButtonTest::soundComesAfterClicked()
{
    TPushButton* const button = Shown();
    QObject const listener;
    int playedAtClick = -1;
    connect(button, &TPushButton::Clicked, &listener, [&] { playedAtClick = m_Screen->Played().size(); });
    Finger().Tap(*button);
    QCOMPARE(playedAtClick, 0);
    QCOMPARE(m_Screen->Played(), QVector<int>({SOUND_BUTTON_PRESS}));
}

void TPushButtonTest::soundStaysOutWhenNotWanted()
{
    TPushButton* const button = Shown();
    button->PlayButtonPressSounds(false);
    Finger().Tap(*button);
    QCOMPARE(m_Screen->Played(), QVector<int>());
    button->PlayButtonPressSounds(true);
    Finger().Tap(*button);
    QCOMPARE(m_Screen->Played().size(), 1);
}

void TPushButtonTest::negativeIdClicksAndSoundsWithoutItsOwnSignals()
{
    TPushButton* const button = Shown(-1);
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.clicked.count(), 1);
    QCOMPARE(seen.Clicked.count() + seen.Pressed.count() + seen.Released.count(), 0);
    QCOMPARE(m_Screen->Played().size(), 1);
}

void TPushButtonTest::idCanBeChanged()
{
    TPushButton* const button = Shown(-1);
    button->SetButtonID(0);
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.Clicked.value(0).value(0).toInt(), 0);
    QCOMPARE(seen.Clicked.count() + seen.Pressed.count() + seen.Released.count(), 3);
}

void TPushButtonTest::parentHearsEveryMouseEvent_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("explains");
    QTest::addColumn<bool>("propagates");
    QTest::newRow("enabled") << true << false << true;
    QTest::newRow("disabled") << false << false << true;
    QTest::newRow("explaining") << true << true << true;
    QTest::newRow("disabled and explaining") << false << true << true;
    QTest::newRow("clicks held back") << true << false << false;
}

void TPushButtonTest::parentHearsEveryMouseEvent()
{
    QFETCH(bool, enabled);
    QFETCH(bool, explains);
    QFETCH(bool, propagates);
    TPushButton* const button = Shown(7, QStringLiteral("Help"));
    button->setEnabled(enabled);
    button->SetPropagateClicks(propagates);
    m_Platform->SetMode(explains);
    Finger().Press(ButtonRect.center());
    Finger().Move(ButtonRect.center() + QPoint(3, 3));
    Finger().Release(ButtonRect.center() + QPoint(3, 3));
    QCOMPARE(m_Window->heard, QVector<QEvent::Type>(
                                  {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}));
}

void TPushButtonTest::everyMouseEventEndsUnaccepted()
{
    TPushButton* const button = Shown();
    for (QEvent::Type const type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick})
    {
        QMouseEvent event(type, QPointF(9, 9), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QVERIFY(!static_cast<QObject*>(button)->event(&event));
        QVERIFY(!event.isAccepted());
    }
}

void TPushButtonTest::disabledButtonSwallowsItsPress()
{
    TPushButton* const button = Shown();
    button->setEnabled(false);
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.clicked.count() + seen.Clicked.count() + seen.Pressed.count() + seen.Released.count(), 0);
    QVERIFY(m_Screen->Played().isEmpty());
    QCOMPARE(m_Window->heard.size(), 2);
}

void TPushButtonTest::releaseAfterTheBarMovedByOnePixelGivesNoClick()
{
    auto* const bar = new QWidget(m_Window.get());
    bar->resize(300, 300);
    TPushButton* const button = MakeButton(bar);
    m_Window->Expose();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    bar->move(1, 0);
    Finger().Release(ButtonRect.center());
    QCOMPARE(seen.Pressed.count(), 1);
    QCOMPARE(seen.Released.count(), 1);
    QCOMPARE(seen.Clicked.count() + seen.clicked.count(), 0);
    QVERIFY(!button->isDown());
}

void TPushButtonTest::moveAfterTheBarMovedLetsGoAtOnce()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    button->move(button->pos() + QPoint(0, 1));
    Finger().Move(ButtonRect.center() + QPoint(0, 1));
    QVERIFY(!button->isDown());
    QCOMPARE(seen.Released.count(), 1);
    Finger().Release(ButtonRect.center() + QPoint(0, 1));
    QCOMPARE(seen.Released.count(), 2);
    QCOMPARE(seen.clicked.count(), 0);
}

void TPushButtonTest::hoverWithoutAPressDoesNothing()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    Finger().Move(ButtonRect.center());
    Finger().Move(ButtonRect.center() + QPoint(1, 1));
    QCOMPARE(seen.Released.count(), 0);
    // A finger that went down elsewhere.
    QMouseEvent move(QEvent::MouseMove, QPointF(9, 9), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(button, &move);
    QCOMPARE(seen.Released.count(), 0);
    // A button that tracks the mouse takes a hover for a move since a press that never was.
    button->setMouseTracking(true);
    Finger().Move(ButtonRect.center());
    QCOMPARE(seen.Released.count(), 1);
}

void TPushButtonTest::parentThatMovesTheButtonBackLetsItClick()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    button->move(ButtonRect.topLeft() + QPoint(5, 0));
    button->move(ButtonRect.topLeft());
    Finger().Release(ButtonRect.center());
    QCOMPARE(seen.Clicked.count(), 1);
}

void TPushButtonTest::slideOffButton_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<int>("clicks");
    int const right = ButtonRect.right();
    int const middle = ButtonRect.center().y();
    QTest::newRow("40 to the right") << QPoint(right + 40, middle) << 1;
    // Half of the border of 5 does not count as button.
    QTest::newRow("last pixel") << QPoint(right - 2 + 50, middle) << 1;
    QTest::newRow("one past") << QPoint(right - 2 + 51, middle) << 0;
    QTest::newRow("60 to the right") << QPoint(right + 60, middle) << 0;
    QTest::newRow("40 above") << QPoint(ButtonRect.center().x(), ButtonRect.top() - 40) << 1;
    QTest::newRow("60 above") << QPoint(ButtonRect.center().x(), ButtonRect.top() - 60) << 0;
}

void TPushButtonTest::slideOffButton()
{
    QFETCH(QPoint, to);
    TPushButton* const button = Shown();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    Finger().Move(to);
    Finger().Release(to);
    QTEST(seen.Clicked.count(), "clicks");
    QVERIFY(!button->isDown());
}

void TPushButtonTest::hitAreaIsWithinHalfTheBorder_data()
{
    QTest::addColumn<QVector<int>>("border");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<bool>("hits");
    QVector<int> const standard{5, 5, 5, 5};
    QVector<int> const uneven{10, 20, 1, 7};
    QTest::newRow("left top") << standard << QPoint(2, 2) << true;
    QTest::newRow("left of it") << standard << QPoint(1, 2) << false;
    QTest::newRow("above it") << standard << QPoint(2, 1) << false;
    QTest::newRow("right bottom") << standard << QPoint(77, 57) << true;
    QTest::newRow("right of it") << standard << QPoint(78, 57) << false;
    QTest::newRow("below it") << standard << QPoint(77, 58) << false;
    QTest::newRow("uneven left top") << uneven << QPoint(5, 10) << true;
    QTest::newRow("uneven left") << uneven << QPoint(4, 10) << false;
    QTest::newRow("uneven right bottom") << uneven << QPoint(79, 56) << true;
    QTest::newRow("uneven bottom") << uneven << QPoint(79, 57) << false;
}

void TPushButtonTest::hitAreaIsWithinHalfTheBorder()
{
    QFETCH(QVector<int>, border);
    QFETCH(QPoint, at);
    TPushButton* const button = Shown();
    button->SetBackgroundBorderArea(border[0], border[1], border[2], border[3]);
    TSignals seen(button);
    Finger().Tap(ButtonRect.topLeft() + at);
    QTEST(seen.Clicked.count() == 1, "hits");
    QTEST(seen.Pressed.count() == 1, "hits");
}

void TPushButtonTest::releasesDoNotClickWithoutPropagation()
{
    TPushButton* const button = Shown();
    button->SetPropagateClicks(false);
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.Pressed.count(), 1);
    QCOMPARE(seen.Released.count(), 1);
    QCOMPARE(seen.clicked.count(), 0);
    QVERIFY(!button->isDown());
}

void TPushButtonTest::showingBringsPropagationBack()
{
    TPushButton* const button = Shown();
    button->SetPropagateClicks(false);
    button->hide();
    button->show();
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.Clicked.count(), 1);
}

void TPushButtonTest::transparentAncestorTakesTheClick()
{
    auto* const outer = new QWidget(m_Window.get());
    outer->resize(300, 300);
    auto* const inner = new QWidget(outer);
    inner->resize(300, 300);
    TPushButton* const button = MakeButton(inner);
    m_Window->Expose();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    outer->setAttribute(Qt::WA_TransparentForMouseEvents);
    Finger().Release(ButtonRect.center());
    QCOMPARE(seen.Released.count(), 1);
    QCOMPARE(seen.Clicked.count(), 0);
}

void TPushButtonTest::clearDownEventTakesTheFingerOff()
{
    TPushButton* const button = Shown();
    Finger().Press(ButtonRect.center());
    TSignals seen(button);
    QEvent event(QEvent::Type(1001));
    QCoreApplication::sendEvent(button, &event);
    QVERIFY(!button->isDown());
    QCOMPARE(seen.Released.count(), 0);
    Finger().Release(ButtonRect.center());
}

void TPushButtonTest::longHoldClicksOftenAndSoundsOnce()
{
    TPushButton* const button = Shown();
    button->SetAutoRepeat(true, 250, 100);
    QVERIFY(button->autoRepeat());
    QCOMPARE(button->autoRepeatDelay(), 250);
    QCOMPARE(button->autoRepeatInterval(), 100);
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    QTRY_VERIFY(seen.Clicked.count() >= 4);
    Finger().Release(ButtonRect.center());
    QVERIFY(seen.Clicked.count() >= 5);
    QCOMPARE(m_Screen->Played().size(), 1);
}

void TPushButtonTest::eachTouchOfARepeatingButtonSounds()
{
    TPushButton* const button = Shown();
    button->SetAutoRepeat(true, 60000, 60000);
    Finger().Tap(*button);
    Finger().Tap(*button);
    QCOMPARE(m_Screen->Played().size(), 2);
}

void TPushButtonTest::touchAfterTheEnterKeySoundsAgain()
{
    TPushButton* const button = Shown();
    button->SetAutoRepeat(true, 60000, 60000);
    TSignals seen(button);
    button->OnMMIEnter();
    QTRY_COMPARE(seen.Clicked.count(), 1);
    QCOMPARE(m_Screen->Played().size(), 1);
    Finger().Tap(*button);
    QCOMPARE(m_Screen->Played().size(), 2);
}

void TPushButtonTest::secondReleaseIsADoubleClickHoweverLate()
{
    TPushButton* const button = Shown();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    QSignalSpy single(button, &TPushButton::DelayedSingleClicked);
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 0);
    RunOut(button);
    RunOut(button);
    QCOMPARE(single.count(), 0);
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 1);
    QVERIFY(!button->findChild<QTimer*>()->isActive());
    QCOMPARE(seen.clicked.count(), 2);
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 1);
}

void TPushButtonTest::singleClickIsDelayedOnlyForAListener()
{
    TPushButton* const button = Shown();
    button->MakeDoubleClickConnections();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    QSignalSpy single(button, &TPushButton::DelayedSingleClicked);
    TSignals seen(button);
    Finger().Tap(*button);
    auto const* const timer = button->findChild<QTimer*>();
    QCOMPARE(timer->interval(), 300);
    QCOMPARE(single.count(), 0);
    QCOMPARE(seen.Clicked.count(), 1);
    RunOut(button);
    QCOMPARE(single.count(), 1);
    QVERIFY(!timer->isActive());
    // Disarmed by then: the next release is a first one again.
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 0);
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 1);
    QCOMPARE(single.count(), 1);
}

void TPushButtonTest::connectingTwiceReportsOnce()
{
    TPushButton* const button = Shown();
    Finger().Tap(*button);
    button->MakeDoubleClickConnections();
    button->MakeDoubleClickConnections();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    QSignalSpy single(button, &TPushButton::DelayedSingleClicked);
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 0);
    RunOut(button);
    QCOMPARE(single.count(), 1);
}

void TPushButtonTest::disconnectingEndsTheDelayedReport()
{
    TPushButton* const button = Shown();
    button->MakeDoubleClickConnections();
    button->MakeDoubleClickDisconnect();
    QSignalSpy single(button, &TPushButton::DelayedSingleClicked);
    Finger().Tap(*button);
    RunOut(button);
    QCOMPARE(single.count(), 0);
}

void TPushButtonTest::releaseBesideTheButtonArmsNothing()
{
    TPushButton* const button = Shown();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    QPoint const beside(ButtonRect.right() + 20, ButtonRect.center().y());
    Finger().Press(ButtonRect.center());
    Finger().Release(beside);
    QVERIFY(!button->findChild<QTimer*>()->isActive());
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 0);
}

void TPushButtonTest::doublePressOfTheSystemIsTwoClicks()
{
    TPushButton* const button = Shown();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    TSignals seen(button);
    QTest::mouseDClick(m_Window->windowHandle(), Qt::LeftButton, {}, ButtonRect.center());
    QCOMPARE(seen.Pressed.count(), 2);
    QCOMPARE(seen.Clicked.count(), 2);
    QCOMPARE(doubled.count(), 1);
}

void TPushButtonTest::enterKeyIsAShortPress()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    QCOMPARE(button->OnMMIEnter(), static_cast<KVN::MMICapableWidget*>(button));
    QVERIFY(button->isDown());
    QCOMPARE(seen.Pressed.count(), 1);
    QCOMPARE(seen.Clicked.count(), 0);
    QTRY_COMPARE(seen.Clicked.count(), 1);
    QCOMPARE(seen.Released.count(), 1);
    QVERIFY(!button->isDown());
    QCOMPARE(m_Screen->Played().size(), 1);
}

void TPushButtonTest::enterKeyOnADisabledButtonDoesNothing()
{
    TPushButton* const button = Shown();
    button->setEnabled(false);
    TSignals seen(button);
    button->OnMMIEnter();
    QVERIFY(!button->isDown());
    QCOMPARE(seen.Pressed.count(), 0);
}

void TPushButtonTest::toolTipModeExplainsInsteadOfClicking_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("explains");
    QTest::newRow("with text") << QStringLiteral("Help") << true << true;
    QTest::newRow("with text, disabled") << QStringLiteral("Help") << false << true;
    QTest::newRow("without text") << QString() << true << false;
}

void TPushButtonTest::toolTipModeExplainsInsteadOfClicking()
{
    QFETCH(QString, toolTip);
    QFETCH(bool, enabled);
    QFETCH(bool, explains);
    TPushButton* const button = Shown(7, toolTip);
    button->setEnabled(enabled);
    m_Platform->SetMode(true);
    QVERIFY(button->ToolTipVisible());
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    QCOMPARE(m_Platform->shownFor, explains ? button : nullptr);
    QCOMPARE(button->isDown(), !explains);
    Finger().Release(ButtonRect.center());
    QCOMPARE(m_Platform->shownFor, explains ? button : nullptr);
    QCOMPARE(seen.clicked.count(), explains ? 0 : 1);
    QCOMPARE(seen.Pressed.count(), explains ? 0 : 1);
    QCOMPARE(m_Screen->Played().size(), explains ? 0 : 1);
    if (explains)
    {
        QCOMPARE(m_Platform->placement, 0);
        QCOMPARE(m_Platform->text, toolTip);
    }
}

void TPushButtonTest::toolTipFollowsTheFinger()
{
    TPushButton* const button = Shown(7, QStringLiteral("Help"));
    m_Platform->SetMode(true);
    Finger().Press(ButtonRect.center());
    Finger().Move(ButtonRect.topLeft() - QPoint(10, 0));
    QVERIFY(!m_Platform->shownFor);
    Finger().Move(ButtonRect.center());
    QCOMPARE(m_Platform->shownFor, button);
    // Halves round up: (1.5, 1.5) is the first pixel that counts, (1.4, 1.5) is not.
    QMouseEvent inside(QEvent::MouseMove, QPointF(1.5, 1.5), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent outside(QEvent::MouseMove, QPointF(1.4, 1.5), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(button, &outside);
    QVERIFY(!m_Platform->shownFor);
    QCoreApplication::sendEvent(button, &inside);
    QCOMPARE(m_Platform->shownFor, button);
    Finger().Release(ButtonRect.center());
}

void TPushButtonTest::releaseHidesAnyToolTip()
{
    TPushButton* const button = Shown();
    m_Platform->shownFor = m_Window.get();
    Finger().Press(ButtonRect.center());
    QCOMPARE(m_Platform->hidden, 0);
    Finger().Release(ButtonRect.center());
    QCOMPARE(m_Platform->hidden, 1);
    button->setEnabled(false);
    Finger().Tap(*button);
    QCOMPARE(m_Platform->hidden, 1);
}

void TPushButtonTest::buttonWithoutTextHidesTheToolTip()
{
    TPushButton* const button = Shown();
    m_Platform->shownFor = m_Window.get();
    button->ShowToolTip();
    QVERIFY(!m_Platform->shownFor);
    button->SetToolTip(QStringLiteral("Help"));
    button->ShowToolTip();
    QCOMPARE(m_Platform->shownFor, button);
}

void TPushButtonTest::toolTipShowsTheIconUnlessItHasItsOwn()
{
    TPushButton* const button = Shown(7, QStringLiteral("Help"));
    QVERIFY(button->GetToolTipIcon().isNull());
    auto const icon = QSharedPointer<QPixmap>::create(10, 10);
    button->SetIcon(icon, QSharedPointer<QPixmap>());
    button->ShowToolTip();
    QCOMPARE(m_Platform->icon, icon);
    QPixmap own(12, 13);
    own.fill(Qt::red);
    button->SetToolTipIcon(own);
    button->ShowToolTip();
    QCOMPARE(m_Platform->icon->size(), QSize(12, 13));
    button->SetToolTipIcon(own.toImage().scaled(5, 5));
    QCOMPARE(button->GetToolTipIcon()->size(), QSize(5, 5));
    button->SetToolTipIcon(QPixmap());
    QCOMPARE(button->GetToolTipIcon(), icon);
}

void TPushButtonTest::deletedButtonTakesItsToolTipAlong()
{
    TPushButton* const button = Shown();
    m_Platform->shownFor = m_Window.get();
    delete MakeButton(m_Window.get());
    QCOMPARE(m_Platform->shownFor, m_Window.get());
    m_Platform->shownFor = button;
    delete button;
    QVERIFY(!m_Platform->shownFor);
    QCOMPARE(m_Platform->hidden, 1);
}

void TPushButtonTest::worksWithoutPlatformAndScreen()
{
    m_Platform.reset();
    m_Screen.reset();
    TPushButton* const button = Shown(7, QStringLiteral("Help"));
    button->SetBackground(QStringLiteral("NewStandardButton"));
    button->SetIcon(QStringLiteral("Any"), QSize(-1, -1), true);
    button->SetRightSideIcon(QStringLiteral("Any"));
    button->ShowToolTip();
    QVERIFY(!button->ToolTipVisible());
    QCOMPARE(button->GetIconSize(), QSize());
    TSignals seen(button);
    Finger().Tap(*button);
    QCOMPARE(seen.Clicked.count(), 1);
    QVERIFY(!button->grab().isNull());
}

void TPushButtonTest::objectNameComesFromTheBestSource()
{
    TPushButton button(m_Window.get(), 1, QString());
    QCOMPARE(button.objectName(), QString());
    button.SetToolTip(QStringLiteral("tip"));
    QCOMPARE(button.objectName(), QStringLiteral("tip"));
    button.SetText(QStringLiteral("Shown"), QStringLiteral("text"), true, QString(), false);
    QCOMPARE(button.objectName(), QStringLiteral("text"));
    button.SetIcon(QString(), QSize(-1, -1), true);
    QCOMPARE(button.objectName(), QStringLiteral("text"));
    button.SetIcon(QStringLiteral("ToolTipMark"), QSize(-1, -1), true);
    QCOMPARE(button.objectName(), QStringLiteral("ToolTipMark"));
    button.SetToolTip(QStringLiteral("other"));
    QCOMPARE(button.objectName(), QStringLiteral("ToolTipMark"));
    button.SetObjectName(QStringLiteral("mine"), NAME_EXPLICIT);
    QCOMPARE(button.objectName(), QStringLiteral("mine"));
}

void TPushButtonTest::objectNameIsKeptFromAnEqualSource()
{
    TPushButton button(m_Window.get(), 1, QStringLiteral("first"));
    QCOMPARE(button.objectName(), QStringLiteral("first"));
    button.SetToolTip(QStringLiteral("second"));
    QCOMPARE(button.GetToolTip(), QStringLiteral("second"));
    QCOMPARE(button.objectName(), QStringLiteral("first"));
}

namespace
{
void AddDestroyers(bool touch)
{
    QTest::addColumn<TDestroyer>("destroyer");
    auto const row = [](char const* name, auto signal)
    {
        QTest::newRow(name) << TDestroyer(
            [signal](TPushButton* button, std::function<void()> const& act)
            { QObject::connect(button, signal, button, act, Qt::DirectConnection); });
    };
    row("pressed", &QAbstractButton::pressed);
    row("Pressed", &TPushButton::Pressed);
    row("released", &QAbstractButton::released);
    row("Released", &TPushButton::Released);
    row("clicked", &QAbstractButton::clicked);
    row("Clicked", &TPushButton::Clicked);
    if (touch)
        row("DoubleClicked", &TPushButton::DoubleClicked);
}
} // namespace

void TPushButtonTest::deletedInASlotOfItsOwn_data()
{
    AddDestroyers(true);
}

void TPushButtonTest::deletedInASlotOfItsOwn()
{
    QFETCH(TDestroyer, destroyer);
    QPointer<TPushButton> const button = Shown();
    destroyer(button, [button] { delete button.data(); });
    QVector<QEvent::Type> heardBefore;
    for (int i = 0; button && i < 2; ++i)
    {
        Finger().Press(ButtonRect.center());
        if (!button)
            break;
        heardBefore = m_Window->heard;
        Finger().Release(ButtonRect.center());
    }
    QVERIFY(!button);
    // The parent did not get the event in which the button went.
    QCOMPARE(m_Window->heard, heardBefore);
    Finger().Release(ButtonRect.center());
}

void TPushButtonTest::deletedInASlotOfTheEnterKey_data()
{
    AddDestroyers(false);
}

void TPushButtonTest::deletedInASlotOfTheEnterKey()
{
    QFETCH(TDestroyer, destroyer);
    QPointer<TPushButton> const button = Shown();
    destroyer(button, [button] { delete button.data(); });
    button->OnMMIEnter();
    QTRY_VERIFY(!button);
}

void TPushButtonTest::deletedInAnyState_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("shown") << 0;
    QTest::newRow("pressed") << 1;
    QTest::newRow("highlighted") << 2;
    QTest::newRow("armed for a double click") << 3;
    QTest::newRow("entered") << 4;
    QTest::newRow("repeating") << 5;
    QTest::newRow("focused") << 6;
}

void TPushButtonTest::deletedInAnyState()
{
    QFETCH(int, state);
    TPushButton* const button = Shown();
    TSignals seen(button);
    if (state == 5)
        button->SetAutoRepeat(true, 1, 1);
    if (state == 1 || state == 5)
        Finger().Press(ButtonRect.center());
    if (state == 2)
        button->OnMMIHighlight();
    if (state == 3)
        Finger().Tap(*button);
    if (state == 4)
        button->OnMMIEnter();
    if (state == 6)
        button->setFocus();
    int const emitted = seen.Clicked.count() + seen.Released.count();
    delete button;
    QCOMPARE(seen.Clicked.count() + seen.Released.count(), emitted);
    Finger().Release(ButtonRect.center());
    QCoreApplication::processEvents();
}

void TPushButtonTest::buttonAndBarThatMoveTogether_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<QPoint>("bar");
    QTest::addColumn<int>("clicks");
    // The place in the bar counts twice, since it is mapped as a point of the button.
    QTest::newRow("button stays on the screen") << QPoint(5, 0) << QPoint(-5, 0) << 0;
    QTest::newRow("bar goes twice as far back") << QPoint(5, 0) << QPoint(-10, 0) << 1;
    QTest::newRow("up and down") << QPoint(0, 5) << QPoint(0, -10) << 1;
    QTest::newRow("one pixel less") << QPoint(0, 5) << QPoint(0, -9) << 0;
}

void TPushButtonTest::buttonAndBarThatMoveTogether()
{
    QFETCH(QPoint, button);
    QFETCH(QPoint, bar);
    auto* const strip = new QWidget(m_Window.get());
    strip->resize(300, 300);
    TPushButton* const carried = MakeButton(strip);
    m_Window->Expose();
    TSignals seen(carried);
    Finger().Press(ButtonRect.center());
    carried->move(carried->pos() + button);
    strip->move(strip->pos() + bar);
    Finger().Move(ButtonRect.center() + QPoint(1, 1));
    QFETCH(int, clicks);
    QCOMPARE(carried->isDown(), clicks == 1);
    Finger().Release(ButtonRect.center());
    QCOMPARE(seen.Clicked.count(), clicks);
}

void TPushButtonTest::releaseEndsTheHeldMove_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("explains");
    QTest::newRow("enabled") << true << false;
    QTest::newRow("disabled") << false << false;
    QTest::newRow("explaining") << true << true;
}

void TPushButtonTest::releaseEndsTheHeldMove()
{
    QFETCH(bool, enabled);
    QFETCH(bool, explains);
    TPushButton* const button = Shown(7, QStringLiteral("Help"));
    m_Platform->SetMode(explains);
    button->setEnabled(enabled);
    Finger().Tap(*button);
    button->setEnabled(true);
    m_Platform->SetMode(false);
    TSignals seen(button);
    // A finger that comes from elsewhere is no cancelled press. Without a button Qt would not deliver it.
    button->move(button->pos() + QPoint(1, 0));
    QMouseEvent passing(QEvent::MouseMove, QPointF(9, 9), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(button, &passing);
    QCOMPARE(seen.Released.count(), 0);
}

void TPushButtonTest::transparentButtonTakesItsOwnClick()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
    Finger().Release(ButtonRect.center());
    QCOMPARE(seen.Released.count(), 1);
    QCOMPARE(seen.Clicked.count(), 0);
}

void TPushButtonTest::touchAfterACancelledHoldSounds()
{
    TPushButton* const button = Shown();
    button->SetAutoRepeat(true, 1, 1);
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    QTRY_VERIFY(seen.Clicked.count() >= 2);
    button->SetAutoRepeat(true, 60000, 60000);
    button->move(button->pos() + QPoint(1, 0));
    Finger().Release(ButtonRect.center());
    QCOMPARE(m_Screen->Played().size(), 1);
    Finger().Tap(*button);
    QCOMPARE(m_Screen->Played().size(), 2);
}

void TPushButtonTest::enterKeyAfterALongHoldSounds()
{
    TPushButton* const button = Shown();
    button->SetAutoRepeat(true, 1, 1);
    TSignals seen(button);
    Finger().Press(ButtonRect.center());
    QTRY_VERIFY(seen.Clicked.count() >= 2);
    Finger().Release(ButtonRect.center());
    QCOMPARE(m_Screen->Played().size(), 1);
    button->SetAutoRepeat(true, 60000, 60000);
    button->animateClick(0);
    QTRY_COMPARE(m_Screen->Played().size(), 2);
}

void TPushButtonTest::secondReleaseBesideTheButtonIsADoubleClick()
{
    TPushButton* const button = Shown();
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    Finger().Tap(*button);
    Finger().Press(ButtonRect.center());
    Finger().Release(QPoint(ButtonRect.right() + 90, ButtonRect.center().y()));
    QCOMPARE(doubled.count(), 1);
}

void TPushButtonTest::cancelledReleaseOnTheButtonArms()
{
    TPushButton* const button = Shown();
    button->SetPropagateClicks(false);
    QSignalSpy doubled(button, &TPushButton::DoubleClicked);
    TSignals seen(button);
    Finger().Tap(*button);
    QVERIFY(button->findChild<QTimer*>()->isActive());
    Finger().Tap(*button);
    QCOMPARE(doubled.count(), 1);
    QCOMPARE(seen.clicked.count(), 0);
}

void TPushButtonTest::doubleClickComesAfterTheSecondClick()
{
    TPushButton* const button = Shown();
    TSignals seen(button);
    QVector<int> clicksBefore;
    connect(button, &TPushButton::DoubleClicked, this, [&] { clicksBefore << seen.Clicked.count(); });
    Finger().Tap(*button);
    Finger().Tap(*button);
    QCOMPARE(clicksBefore, QVector<int>({2}));
}

void TPushButtonTest::releaseIsRoundedToWholePixels()
{
    TPushButton* const button = Shown();
    auto const armsBy = [&](QPointF const& at)
    {
        QMouseEvent release(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &release);
        return button->findChild<QTimer*>()->isActive();
    };
    // The first pixel that counts is (2, 2); halves round up.
    QVERIFY(!armsBy(QPointF(1.4, 1.5)));
    QVERIFY(armsBy(QPointF(1.5, 1.5)));
}

void TPushButtonTest::pictureIconGivesNoObjectName()
{
    TPushButton button(m_Window.get(), 1, QString());
    button.SetIcon(QImage(5, 5, QImage::Format_RGB32), QSize(10, 10), true);
    QCOMPARE(button.objectName(), QString());
    button.SetToolTip(QStringLiteral("tip"));
    QCOMPARE(button.objectName(), QStringLiteral("tip"));
}

void TPushButtonTest::deletedAsAnotherWayReleasesIt_data()
{
    QTest::addColumn<bool>("focused");
    QTest::addColumn<bool>("disables");
    QTest::newRow("disabled") << false << true;
    QTest::newRow("disabled with the focus") << true << true;
    QTest::newRow("focus lost") << true << false;
}

void TPushButtonTest::deletedAsAnotherWayReleasesIt()
{
    QFETCH(bool, focused);
    QFETCH(bool, disables);
    QPointer<TPushButton> const button = Shown();
    auto* const other = new TPushButton(m_Window.get(), 8, QString());
    other->show();
    m_Window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_Window.get()));
    other->setFocus();
    button->setFocusPolicy(focused ? Qt::StrongFocus : Qt::NoFocus);
    QSignalSpy released(button, &QAbstractButton::released);
    bool downAtRelease = true;
    connect(button, &QAbstractButton::released, this,
            [&]
            {
                downAtRelease = button->isDown();
                delete button.data();
            });
    Finger().Press(ButtonRect.center());
    QCOMPARE(button->hasFocus(), focused);
    if (disables)
        button->setEnabled(false);
    else
        other->setFocus();
    QCOMPARE(released.count(), 1);
    QVERIFY(!downAtRelease);
    QVERIFY(!button);
    Finger().Release(ButtonRect.center());
}

COMMONUI_TEST(TPushButtonTest)
#include "TPushButtonTest.moc"
