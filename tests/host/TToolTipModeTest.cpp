#include "TToolTipMode.h"

#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TCanvas.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TTestPlatform.h"
#include "TToolTip.h"

#include <QImage>
#include <QRandomGenerator>

namespace
{
QString const Tip = QStringLiteral("Opens the valves of the boom");

/// The platform of a host, as far as tool tips go.
class TExplainingPlatform : public TTestPlatform
{
public:
    explicit TExplainingPlatform(TScreen* screen)
        : m_Mode(std::make_unique<TToolTipMode>(screen))
    {
        connect(m_Mode.get(), &TToolTipMode::Switched, this,
                &MorvanePlatformInterface::NotifyToolTipsEnabled);
    }

    bool ToolTipVisible() const override { return m_Mode && m_Mode->ToolTipVisible(); }
    bool IsToolTipShownFor(QWidget* source) const override
    {
        return m_Mode && m_Mode->IsToolTipShownFor(source);
    }
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override
    {
        m_Mode->ShowToolTipFor(source, placement, text, icon);
    }
    void HideToolTip() override { m_Mode->HideToolTip(); }

    std::unique_ptr<TToolTipMode> m_Mode;
};

/// A page with one button that has a tip, and one that has none.
struct TStage
{
    TStage()
        : platform(std::make_unique<TExplainingPlatform>(screen.get()))
        , mode(platform->m_Mode.get())
        , canvas(new TCanvas(screen.get()))
        , page(new QWidget(canvas))
        , button(Button(page, QPoint(300, 200), Tip))
        , plain(Button(page, QPoint(300, 400), QString()))
        , finger(screen.get())
    {
        screen->SetCurrentCanvas(canvas, true);
        canvas->setGeometry(screen->rect());
        page->setGeometry(screen->rect());
        page->show();
        QCoreApplication::processEvents();
    }

    static TPushButton* Button(QWidget* parent, QPoint const& place, QString const& tip)
    {
        return new TPushButton(parent, QString(), QSize(90, 60), place, 7, tip);
    }

    TToolTip* Shown() const
    {
        auto* const tip = screen->findChild<TToolTip*>();
        return tip && tip->isVisible() ? tip : nullptr;
    }
    QRect PlaceOf(QWidget const* widget) const
    {
        return {widget->mapTo(screen.get(), QPoint(0, 0)), widget->size()};
    }
    /// The tip is up, beside \a widget, inside the screen, above all else.
    bool Explains(QWidget* widget) const
    {
        TToolTip const* const tip = Shown();
        return tip && mode->IsToolTipShownFor(widget) && screen->rect().contains(tip->geometry()) &&
               !tip->geometry().intersects(PlaceOf(widget)) &&
               screen->children().constLast() == static_cast<QObject const*>(tip);
    }
    /// Whether \a widget bears the mark of the name \a name.
    bool HasMark(QWidget* widget, QString const& name) const
    {
        QImage const mark = screen->GetPixmapManager()->GetPixmap(name)->toImage();
        QImage const picture = widget->grab().toImage();
        for (int y = 0; y < mark.height(); ++y)
        {
            for (int x = 0; x < mark.width(); ++x)
            {
                if (mark.pixelColor(x, y).alpha() == 255 && picture.pixel(x, y) != mark.pixel(x, y))
                    return false;
            }
        }
        return true;
    }

    TTestScreen screen;
    std::unique_ptr<TExplainingPlatform> platform;
    TToolTipMode* mode;
    TCanvas* canvas;
    QPointer<QWidget> page;
    QPointer<TPushButton> button;
    QPointer<TPushButton> plain;
    TFinger finger;
};

/// Counts how often a widget is painted.
class TPaintCount : public QObject
{
public:
    explicit TPaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Take()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_Count, 0);
    }

private:
    int m_Count = 0;
};
} // namespace

class TToolTipModeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theModeMarksEveryButtonThatHasATip()
    {
        TStage stage;
        TPaintCount painted(stage.button);
        QSignalSpy told(stage.platform.get(), &MorvanePlatformInterface::NotifyToolTipsEnabled);
        QVERIFY(!stage.HasMark(stage.button, PixmapNames::ToolTipMark));
        painted.Take();
        for (bool const on : {true, false})
        {
            stage.mode->SetOn(on);
            stage.mode->SetOn(on);
            QCOMPARE(told.count(), 1);
            QCOMPARE(told.takeFirst().constFirst().toBool(), on);
            QCOMPARE(painted.Take(), 1);
            QCOMPARE(stage.platform->ToolTipVisible(), on);
            QCOMPARE(stage.HasMark(stage.button, PixmapNames::ToolTipMark), on);
            QVERIFY(!stage.HasMark(stage.plain, PixmapNames::ToolTipMark));
            painted.Take();
        }
    }

    void aPressExplainsInsteadOfClicking()
    {
        TStage stage;
        QSignalSpy clicked(stage.button, &TPushButton::Clicked);
        QSignalSpy pressed(stage.button, &TPushButton::Pressed);
        stage.mode->SetOn(true);
        stage.finger.Press(stage.PlaceOf(stage.button).center());
        QVERIFY(stage.Explains(stage.button));
        QCOMPARE(stage.Shown()->GetText(), Tip);
        QVERIFY(stage.HasMark(stage.button, PixmapNames::ToolTipMarkSelected));
        stage.finger.Lift();
        QVERIFY(stage.Explains(stage.button));
        QCOMPARE(clicked.count() + pressed.count(), 0);
        QVERIFY(!stage.button->isDown());
        stage.mode->SetOn(false);
        QVERIFY(!stage.Shown());
        stage.finger.Touch(stage.button);
        QCOMPARE(clicked.count(), 1);
    }

    void aDisabledButtonExplainsItselfToo()
    {
        TStage stage;
        stage.button->setEnabled(false);
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QVERIFY(stage.Explains(stage.button));
    }

    void theMarkIsPaintedAnewWhenTheTipComesAndGoes()
    {
        TStage stage;
        stage.mode->SetOn(true);
        TPaintCount painted(stage.button);
        painted.Take();
        stage.finger.Touch(stage.button);
        QCOMPARE(painted.Take(), 1);
        stage.finger.Touch(stage.Shown());
        QCOMPARE(painted.Take(), 1);
        QVERIFY(stage.HasMark(stage.button, PixmapNames::ToolTipMark));
        QVERIFY(!stage.HasMark(stage.button, PixmapNames::ToolTipMarkSelected));
    }

    void aTapClosesTheTip()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QPoint const place = stage.Shown()->geometry().center();
        stage.finger.Press(place);
        QVERIFY(stage.Shown());
        stage.finger.Lift();
        QVERIFY(!stage.Shown());
        QVERIFY(stage.mode->ToolTipVisible());
        QVERIFY(!stage.mode->IsToolTipShownFor(stage.button));
    }

    void aReleaseOutsideTheTipLeavesItUp()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QRect const place = stage.Shown()->geometry();
        stage.finger.Press(place.center());
        stage.finger.Move(place.bottomRight() + QPoint(5, 5));
        stage.finger.Lift();
        QVERIFY(stage.Explains(stage.button));
    }

    void aFingerThatSlidesOffTheButtonTakesTheTipAlong()
    {
        TStage stage;
        stage.mode->SetOn(true);
        QPoint const inside = stage.PlaceOf(stage.button).center();
        stage.finger.Press(inside);
        stage.finger.Move(inside + QPoint(0, 100));
        QVERIFY(!stage.Shown());
        stage.finger.Move(inside);
        QVERIFY(stage.Explains(stage.button));
    }

    void aButtonWithoutATipWorksAndClosesTheTip()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QSignalSpy clicked(stage.plain, &TPushButton::Clicked);
        stage.finger.Touch(stage.plain);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(!stage.Shown());
    }

    void theNextButtonTakesTheTipOver()
    {
        TStage stage;
        stage.plain->SetToolTip(QStringLiteral("Other"));
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        stage.finger.Touch(stage.plain);
        QVERIFY(stage.Explains(stage.plain));
        QVERIFY(!stage.mode->IsToolTipShownFor(stage.button));
        QCOMPARE(stage.screen->findChildren<TToolTip*>().size(), 1);
        QCOMPARE(stage.Shown()->GetText(), QStringLiteral("Other"));
    }

    // Enter is a click of its own and knows no mode.
    void theWheelStillWorksTheButton()
    {
        TStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        stage.mode->SetOn(true);
        QSignalSpy clicked(stage.button, &TPushButton::Clicked);
        stage.button->OnMMIEnter();
        QTRY_COMPARE(clicked.count(), 1);
        QVERIFY(!stage.Shown());
        stage.screen->SetMMINavigator(nullptr);
    }

    void theTipShowsTheIcon()
    {
        TStage stage;
        auto const icon = QSharedPointer<QPixmap>::create(24, 24);
        icon->fill(Qt::red);
        stage.mode->ShowToolTipFor(stage.plain, 0, Tip, {});
        int const width = stage.Shown()->width();
        stage.mode->ShowToolTipFor(stage.plain, 0, Tip, icon);
        QVERIFY(qAbs(stage.Shown()->width() - width - 29) <= 1);
        QCOMPARE(stage.Shown()->grab().toImage().pixelColor(10, stage.Shown()->height() / 2),
                 QColor(Qt::red));
    }

    // A list explains a long entry while the finger rests on it.
    void aTipMayBeShownWithoutTheMode()
    {
        TStage stage;
        stage.mode->ShowToolTipFor(stage.plain, 0, Tip, {});
        QVERIFY(stage.Explains(stage.plain));
        stage.mode->HideToolTip();
        stage.mode->HideToolTip();
        QVERIFY(!stage.Shown());
    }

    void whatCannotBeSeenIsNotExplained()
    {
        TStage stage;
        QWidget elsewhere;
        stage.mode->ShowToolTipFor(nullptr, 0, Tip, {});
        stage.mode->ShowToolTipFor(&elsewhere, 0, Tip, {});
        QVERIFY(!stage.Shown());
        stage.mode->ShowToolTipFor(stage.plain, 0, Tip, {});
        stage.mode->ShowToolTipFor(stage.plain, 0, QString(), {});
        QVERIFY(!stage.Shown());
        stage.plain->move(SCREEN_WIDTH, 10);
        stage.mode->ShowToolTipFor(stage.plain, 0, Tip, {});
        QVERIFY(!stage.Shown());
        stage.button->hide();
        stage.mode->ShowToolTipFor(stage.button, 0, Tip, {});
        QVERIFY(!stage.Shown());
        QVERIFY(!stage.mode->IsToolTipShownFor(nullptr));
    }

    void aTipTakesTheFirstSideWithRoom_data()
    {
        QTest::addColumn<QRect>("source");
        QTest::addColumn<QPoint>("place");
        QTest::newRow("right") << QRect(100, 300, 90, 60) << QPoint(194, 310);
        QTest::newRow("right, last column that fits") << QRect(730, 300, 90, 60) << QPoint(824, 310);
        QTest::newRow("left") << QRect(731, 300, 90, 60) << QPoint(527, 310);
        QTest::newRow("right at the top") << QRect(0, 0, 90, 20) << QPoint(94, 0);
        QTest::newRow("left at the bottom") << QRect(934, 748, 90, 20) << QPoint(730, 728);
        QTest::newRow("below") << QRect(100, 300, 800, 60) << QPoint(400, 364);
        QTest::newRow("below, last row that fits") << QRect(0, 0, 1024, 724) << QPoint(412, 728);
        QTest::newRow("above") << QRect(0, 60, 1024, 708) << QPoint(412, 16);
        QTest::newRow("nowhere, above lacks least") << QRect(10, 10, 900, 750) << QPoint(360, 0);
        QTest::newRow("nowhere, right lacks least") << QRect(0, 0, 850, 768) << QPoint(824, 364);
        QTest::newRow("nowhere at all") << QRect(0, 0, 1024, 768) << QPoint(412, 728);
    }

    void aTipTakesTheFirstSideWithRoom()
    {
        QFETCH(QRect, source);
        QFETCH(QPoint, place);
        QCOMPARE(TToolTipMode::PlaceBeside(source, QSize(200, 40), QRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT)),
                 place);
    }

    void aTipLargerThanTheRoomBeginsAtItsCorner()
    {
        QRect const room(10, 20, 300, 200);
        QCOMPARE(TToolTipMode::PlaceBeside(QRect(50, 50, 20, 20), QSize(400, 250), room), QPoint(10, 20));
    }

    void aTipStaysInsideTheScreenBesideEveryButton_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(40, 40);
        QTest::newRow("standard") << QSize(STANDARD_BUTTON_WIDTH, STANDARD_BUTTON_HEIGHT);
        QTest::newRow("navigation") << QSize(NAVBAR_WIDTH, 90);
        QTest::newRow("wide") << QSize(700, 60);
        QTest::newRow("high") << QSize(60, 600);
        QTest::newRow("as wide as the screen") << QSize(SCREEN_WIDTH, 60);
        QTest::newRow("as high as the screen") << QSize(60, SCREEN_HEIGHT);
    }

    void aTipStaysInsideTheScreenBesideEveryButton()
    {
        QFETCH(QSize, size);
        TStage stage;
        stage.mode->SetOn(true);
        stage.button->setFixedSize(size);
        int const right = SCREEN_WIDTH - size.width();
        int const bottom = SCREEN_HEIGHT - size.height();
        for (int const x : {0, right / 2, right, -size.width() / 2, SCREEN_WIDTH - size.width() / 2})
        {
            for (int const y : {0, bottom / 2, bottom, -size.height() / 2, SCREEN_HEIGHT - size.height() / 2})
            {
                stage.button->move(x, y);
                stage.button->ShowToolTip();
                QVERIFY2(stage.Explains(stage.button), qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
                stage.mode->HideToolTip();
            }
        }
    }

    void aLongTextStaysInsideTheScreen()
    {
        TStage stage;
        stage.mode->ShowToolTipFor(stage.button, 0, QStringLiteral("word ").repeated(20000), {});
        QVERIFY(stage.screen->rect().contains(stage.Shown()->geometry()));
    }

    void theTipFollowsTheButton()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QPoint const before = stage.Shown()->pos();
        stage.button->move(stage.button->pos() + QPoint(11, 12));
        QCOMPARE(stage.Shown()->pos(), before + QPoint(11, 12));
        stage.page->move(5, 7);
        QCOMPARE(stage.Shown()->pos(), before + QPoint(16, 19));
        stage.button->setFixedSize(100, 60);
        QCOMPARE(stage.Shown()->pos(), before + QPoint(26, 19));
    }

    void theTipGoesWithTheButton_data()
    {
        QTest::addColumn<QString>("what");
        for (char const* const what :
             {"hidden", "page hidden", "canvas hidden", "screen hidden", "moved out", "page shrunk",
              "taken away", "deleted", "page deleted", "mode deleted"})
            QTest::newRow(what) << what;
    }

    void theTipGoesWithTheButton()
    {
        QFETCH(QString, what);
        TStage stage;
        QWidget elsewhere;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QVERIFY(stage.Shown());
        if (what == QLatin1String("hidden"))
            stage.button->hide();
        else if (what == QLatin1String("page hidden"))
            stage.page->hide();
        else if (what == QLatin1String("canvas hidden"))
            stage.canvas->hide();
        else if (what == QLatin1String("screen hidden"))
            stage.screen->hide();
        else if (what == QLatin1String("moved out"))
            stage.button->move(-90, 0);
        else if (what == QLatin1String("page shrunk"))
            stage.page->resize(300, 300);
        else if (what == QLatin1String("taken away"))
            stage.button->setParent(&elsewhere);
        else if (what == QLatin1String("deleted"))
            delete stage.button;
        else if (what == QLatin1String("page deleted"))
            delete stage.page;
        else
            stage.platform->m_Mode.reset();
        stage.screen->show();
        QVERIFY(!stage.Shown());
        if (stage.button)
            QVERIFY(!stage.platform->IsToolTipShownFor(stage.button));
    }

    void anythingThatIsNoButtonMayDieToo()
    {
        TStage stage;
        auto* const source = new QWidget(stage.page);
        source->setGeometry(10, 10, 50, 50);
        source->show();
        stage.mode->ShowToolTipFor(source, 0, Tip, {});
        QVERIFY(stage.Explains(source));
        delete source;
        QVERIFY(!stage.Shown());
        // The next repaint must not come upon it.
        QCoreApplication::processEvents();
        QVERIFY(stage.screen->isVisible());
    }

    void theScreenMayDieWhileTheTipIsUp()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        delete stage.screen.get();
        stage.mode->HideToolTip();
        QWidget source;
        stage.mode->ShowToolTipFor(&source, 0, Tip, {});
        QVERIFY(!stage.mode->IsToolTipShownFor(&source));
        stage.mode->SetOn(false);
    }

    void theTipItselfMayDie()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        delete stage.Shown();
        QVERIFY(!stage.mode->IsToolTipShownFor(stage.button));
        stage.button->move(400, 100);
        stage.finger.Touch(stage.button);
        QVERIFY(stage.Explains(stage.button));
    }

    void theModeMayDieInItsOwnSignal()
    {
        TStage stage;
        connect(stage.mode, &TToolTipMode::Switched, this, [&stage] { stage.platform->m_Mode.reset(); });
        stage.mode->SetOn(true);
        QVERIFY(!stage.platform->ToolTipVisible());
    }

    void nothingComesAboveTheTip()
    {
        TStage stage;
        stage.mode->SetOn(true);
        stage.finger.Touch(stage.button);
        QWidget window(stage.screen.get());
        window.show();
        stage.screen->RaiseToBelowTooltips(&window);
        QVERIFY(stage.Explains(stage.button));
    }

    void anythingInAnyOrder();
};

// The tip is up exactly while somebody explains himself, inside the screen, and beside what can be seen.
void TToolTipModeTest::anythingInAnyOrder()
{
    TStage stage;
    QRandomGenerator random(815);
    QVector<QPointer<TPushButton>> buttons(4);
    QPointer<QWidget> page;
    for (int step = 0; step < 20000; ++step)
    {
        if (!page)
        {
            page = new QWidget(stage.canvas);
            page->resize(SCREEN_WIDTH, SCREEN_HEIGHT);
            page->show();
        }
        QPointer<TPushButton>& button = buttons[random.bounded(4)];
        if (!button)
            button = TStage::Button(page, QPoint(random.bounded(900), random.bounded(700)),
                                    QStringLiteral("tip ").repeated(random.bounded(60)));
        switch (random.bounded(12))
        {
        case 0:
            stage.mode->SetOn(random.bounded(2) == 0);
            break;
        case 1:
            button->setVisible(random.bounded(3) != 0);
            break;
        case 2:
            button->move(random.bounded(-200, 1100), random.bounded(-200, 900));
            break;
        case 3:
            button->setFixedSize(random.bounded(1, 500), random.bounded(1, 400));
            break;
        case 4:
            page->move(random.bounded(-200, 200), random.bounded(-200, 200));
            break;
        case 5:
            stage.canvas->setVisible(random.bounded(4) != 0);
            break;
        case 6:
            if (random.bounded(5) == 0)
                delete button;
            break;
        case 7:
            if (random.bounded(20) == 0)
                delete page;
            break;
        case 8:
            if (stage.Shown())
                stage.finger.Touch(stage.Shown());
            break;
        default:
            button->ShowToolTip();
        }
        int explained = 0;
        for (QPointer<TPushButton> const& one : qAsConst(buttons))
            explained += one && stage.mode->IsToolTipShownFor(one) ? 1 : 0;
        TToolTip const* const tip = stage.Shown();
        QCOMPARE(explained, tip ? 1 : 0);
        QVERIFY(!tip || stage.screen->rect().contains(tip->geometry()));
    }
}

COMMONUI_TEST(TToolTipModeTest)
#include "TToolTipModeTest.moc"
