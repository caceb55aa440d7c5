#include "TVerticalScrollBar.h"

#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"

#include <QPainter>
#include <QPaintEvent>

#include <climits>

namespace
{
constexpr int Width = 33;
constexpr int Height = 400;
constexpr int PressSound = 2;
constexpr int ReleaseSound = 1;

/// A bar with a page of 100 in a range of 300, 400 pixels high: a handle of 100 pixels, a pixel for each
/// value.
class TBar : public TVerticalScrollBar
{
public:
    explicit TBar(QWidget* parent = nullptr, int topMargin = 0, int bottomMargin = 0)
        : TVerticalScrollBar(parent, 0, topMargin, bottomMargin, Width)
    {
        setRange(0, 300);
        setPageStep(100);
        resize(Width, Height);
    }

    QRegion painted;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        painted += event->region();
        TVerticalScrollBar::paintEvent(event);
    }
};

QImage Picture(QWidget& bar)
{
    QImage image(bar.size(), QImage::Format_RGB32);
    image.fill(Qt::blue);
    bar.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}
} // namespace

class TVerticalScrollBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<QWidget>();
        m_Window->resize(200, 500);
        m_Window->show();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void sizeIsItsWidthByFifty();
    void handleIsThePagesShareOfTheTrack_data();
    void handleIsThePagesShareOfTheTrack();
    void handleStandsAtItsShareOfTheMaximum_data();
    void handleStandsAtItsShareOfTheMaximum();

    void pressBesideTheHandleTurnsAPage_data();
    void pressBesideTheHandleTurnsAPage();
    void pageStaysWithinTheRange();
    void handleFollowsTheFinger();
    void handleFollowsTheFingerWithinItsMargins();
    void handleTellsItsShareOfTheMaximum();
    void handleThatFillsTheTrackStaysWhereItIs();
    void moveAfterAPageTurnDoesNothing();
    void releaseWithoutADragIsSilent();
    void dragEndsWhenTheBarGoesAway_data();
    void dragEndsWhenTheBarGoesAway();
    void hugeRangesDoNotOverflow();
    void measuresBeyondEveryWidgetDoNotOverflow_data();
    void measuresBeyondEveryWidgetDoNotOverflow();
    void hasNoMenuOfItsOwn();

    void artStandsWhereItBelongs_data();
    void artStandsWhereItBelongs();
    void bottomMarginShortensTheTrack();
    void glassIsSeenAtOnce();
    void withoutAScreenItIsNotDrawn();
    void onlyWhatMovedIsPainted();
    void stepThatMovesNoRowPaintsNothing();
    void gripIsCentredOnAHandleOfAnyLength();

    void slotsMayDeleteIt_data();
    void slotsMayDeleteIt();
    void deletedWhilePressed();

private:
    TBar* ShownBar(int topMargin = 0, int bottomMargin = 0)
    {
        auto* const bar = new TBar(m_Window.get(), topMargin, bottomMargin);
        bar->show();
        QCoreApplication::processEvents();
        return bar;
    }
    QVector<int> const& Sounds() const { return (*m_Screen)->m_Recorder.m_Sounds; }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<QWidget> m_Window;
};

void TVerticalScrollBarTest::sizeIsItsWidthByFifty()
{
    TVerticalScrollBar const bar(nullptr, 0, 0, 0, 40);
    QCOMPARE(bar.sizeHint(), QSize(40, 50));
    QCOMPARE(bar.minimumSizeHint(), QSize(40, 50));
    QCOMPARE(bar.minimumWidth(), 40);
    QCOMPARE(bar.maximumWidth(), 40);
    QCOMPARE(bar.orientation(), Qt::Vertical);
    QVERIFY(!bar.testAttribute(Qt::WA_OpaquePaintEvent));
}

void TVerticalScrollBarTest::handleIsThePagesShareOfTheTrack_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("length");
    // 10 and 30 pixels of the height are margins.
    QTest::newRow("share") << 400 << 0 << 300 << 100 << 90;
    QTest::newRow("share of a range from below 0") << 400 << -200 << 100 << 100 << 90;
    QTest::newRow("rounded down") << 400 << 0 << 301 << 100 << 89;
    QTest::newRow("a page without a range") << 400 << 7 << 7 << 100 << 360;
    QTest::newRow("a range without a page") << 400 << 0 << 300 << 0 << 50;
    QTest::newRow("share of 50") << 400 << 0 << 620 << 100 << 50;
    QTest::newRow("share of 51") << 400 << 0 << 605 << 100 << 51;
    QTest::newRow("share of 49") << 400 << 0 << 630 << 100 << 50;
    QTest::newRow("track below 50") << 89 << 0 << 300 << 100 << 49;
    QTest::newRow("track of 50") << 90 << 0 << 300 << 100 << 50;
    QTest::newRow("no track") << 40 << 0 << 300 << 100 << 0;
    QTest::newRow("margins that overlap") << 20 << 0 << 300 << 100 << 0;
    QTest::newRow("just no huge range") << 400 << 0 << 0x3fffffff << INT_MAX << 240;
    QTest::newRow("huge range") << 400 << 0 << 0x40000000 << INT_MAX << 50;
    QTest::newRow("all there are") << 400 << INT_MIN << INT_MAX << INT_MAX << 50;
}

void TVerticalScrollBarTest::handleIsThePagesShareOfTheTrack()
{
    QFETCH(int, height);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, page);
    QFETCH(int, length);
    TBar bar(nullptr, 10, 30);
    bar.resize(Width, height);
    bar.setRange(minimum, maximum);
    bar.setPageStep(page);
    QCOMPARE(bar.GetSliderLength(), length);
    QCOMPARE(bar.GetBottomOfSlider() - bar.GetTopOfSlider(), length);
}

void TVerticalScrollBarTest::handleStandsAtItsShareOfTheMaximum_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("top");
    // A track of 360 from 10 on, and a handle of 90.
    QTest::newRow("beginning") << 0 << 300 << 0 << 10;
    QTest::newRow("end") << 0 << 300 << 300 << 280;
    QTest::newRow("middle") << 0 << 300 << 150 << 145;
    QTest::newRow("cut to a whole row") << 0 << 300 << 101 << 100;
    QTest::newRow("no maximum") << 0 << 0 << 0 << 0;
    QTest::newRow("maximum below 0") << -300 << -1 << -300 << 0;
    QTest::newRow("range from above 0") << 100 << 400 << 100 << 77;
    QTest::newRow("position below 0") << -200 << 100 << -50 << -125;
}

void TVerticalScrollBarTest::handleStandsAtItsShareOfTheMaximum()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, position);
    QFETCH(int, top);
    TBar bar(nullptr, 10, 30);
    bar.setRange(minimum, maximum);
    bar.setSliderPosition(position);
    QCOMPARE(bar.GetTopOfSlider(), top);
}

void TVerticalScrollBarTest::pressBesideTheHandleTurnsAPage_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("sound");
    // The handle reaches from 150 to 250.
    QTest::newRow("far above") << 5 << 50 << PressSound;
    QTest::newRow("just above") << 149 << 50 << PressSound;
    QTest::newRow("upper edge") << 150 << 150 << ReleaseSound;
    QTest::newRow("bottom edge") << 250 << 150 << ReleaseSound;
    QTest::newRow("just below") << 251 << 250 << PressSound;
    QTest::newRow("far below") << 390 << 250 << PressSound;
}

void TVerticalScrollBarTest::pressBesideTheHandleTurnsAPage()
{
    QFETCH(int, y);
    QFETCH(int, value);
    QFETCH(int, sound);
    TBar* const bar = ShownBar();
    bar->setValue(150);
    QCOMPARE(bar->GetTopOfSlider(), 150);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, y));
    QCOMPARE(bar->value(), value);
    QCOMPARE(Sounds(), QVector<int>({sound}));
    QCOMPARE(bar->isSliderDown(), sound == ReleaseSound);
}

void TVerticalScrollBarTest::pageStaysWithinTheRange()
{
    TBar* const bar = ShownBar();
    TFinger finger(m_Window.get());
    bar->setValue(250);
    finger.Touch(QPoint(15, 395));
    QCOMPARE(bar->value(), 300);
    finger.Touch(QPoint(15, 5));
    finger.Touch(QPoint(15, 5));
    finger.Touch(QPoint(15, 5));
    QCOMPARE(bar->value(), 0);
}

void TVerticalScrollBarTest::handleFollowsTheFinger()
{
    TBar* const bar = ShownBar();
    bar->setValue(50);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 70));
    QVERIFY(bar->isSliderDown());
    finger.Move(QPoint(15, 71));
    QCOMPARE(bar->value(), 51);
    finger.Move(QPoint(150, 170));
    QCOMPARE(bar->value(), 150);
    finger.Move(QPoint(15, 1000));
    QCOMPARE(bar->value(), 300);
    finger.Move(QPoint(15, -1000));
    QCOMPARE(bar->value(), 0);
    finger.Move(QPoint(15, 60));
    finger.Lift();
    QCOMPARE(bar->value(), 40);
    QVERIFY(!bar->isSliderDown());
    QCOMPARE(Sounds(), QVector<int>({ReleaseSound, PressSound}));
}

void TVerticalScrollBarTest::handleFollowsTheFingerWithinItsMargins()
{
    TBar* const bar = ShownBar(10, 30);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 20));
    // The handle has 270 pixels to go for 300 values.
    finger.Move(QPoint(15, 20 + 135));
    QCOMPARE(bar->value(), 150);
    finger.Move(QPoint(15, 20 + 136));
    QCOMPARE(bar->value(), 151);
}

// Of the maximum alone, wherever the range begins.
void TVerticalScrollBarTest::handleTellsItsShareOfTheMaximum()
{
    TBar* const bar = ShownBar();
    bar->setRange(100, 400);
    bar->setValue(100);
    QCOMPARE(bar->GetTopOfSlider(), 75);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 80));
    finger.Move(QPoint(15, 155));
    QCOMPARE(bar->value(), 200);
    finger.Move(QPoint(15, 50));
    QCOMPARE(bar->value(), 100);
}

void TVerticalScrollBarTest::handleThatFillsTheTrackStaysWhereItIs()
{
    TBar* const bar = ShownBar();
    bar->resize(Width, 40);
    bar->setValue(20);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 20));
    finger.Move(QPoint(15, 60));
    finger.Lift();
    QCOMPARE(bar->value(), 20);
}

void TVerticalScrollBarTest::moveAfterAPageTurnDoesNothing()
{
    TBar* const bar = ShownBar();
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 300));
    finger.Move(QPoint(15, 390));
    QCOMPARE(bar->value(), 100);
}

void TVerticalScrollBarTest::releaseWithoutADragIsSilent()
{
    ShownBar();
    TFinger finger(m_Window.get());
    finger.Touch(QPoint(15, 300));
    QCOMPARE(Sounds(), QVector<int>({PressSound}));
}

void TVerticalScrollBarTest::dragEndsWhenTheBarGoesAway_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::newRow("hidden") << true;
    QTest::newRow("disabled") << false;
}

void TVerticalScrollBarTest::dragEndsWhenTheBarGoesAway()
{
    QFETCH(bool, hidden);
    TBar* const bar = ShownBar();
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 20));
    finger.Move(QPoint(15, 40));
    if (hidden)
        bar->hide();
    else
        bar->setEnabled(false);
    QVERIFY(!bar->isSliderDown());
    finger.Lift();
    bar->setEnabled(true);
    bar->show();
    bar->setValue(100);
    finger.Press(QPoint(15, 20));
    finger.Move(QPoint(15, 60));
    QCOMPARE(bar->value(), 0);
}

void TVerticalScrollBarTest::hugeRangesDoNotOverflow()
{
    TBar* const bar = ShownBar();
    bar->setRange(0, INT_MAX);
    bar->setPageStep(INT_MAX);
    TFinger finger(m_Window.get());
    finger.Touch(QPoint(15, 390));
    QCOMPARE(bar->value(), INT_MAX);
    QCOMPARE(bar->GetBottomOfSlider(), Height);
    finger.Touch(QPoint(15, 10));
    QCOMPARE(bar->value(), 0);
    finger.Press(QPoint(15, 20));
    finger.Move(QPoint(15, 2000));
    QCOMPARE(bar->value(), INT_MAX);
    finger.Move(QPoint(15, -2000));
    QCOMPARE(bar->value(), 0);
    finger.Lift();
    bar->setRange(INT_MIN, INT_MAX);
    bar->setValue(INT_MIN + 5);
    finger.Touch(QPoint(15, 10));
    QVERIFY(bar->value() <= INT_MAX);
    // As far above the track as a place can be told.
    bar->setRange(INT_MIN, 1);
    bar->setValue(INT_MIN);
    QCOMPARE(bar->GetTopOfSlider(), -QWIDGETSIZE_MAX);
    finger.Touch(QPoint(15, 10));
    // A step whose size can't be told, in a range of its own size.
    bar->setRange(INT_MIN, 0);
    bar->setPageStep(INT_MIN);
    QCOMPARE(bar->GetSliderLength(), 50);
}

void TVerticalScrollBarTest::measuresBeyondEveryWidgetDoNotOverflow_data()
{
    QTest::addColumn<int>("measure");
    QTest::addColumn<int>("width");
    QTest::newRow("least") << INT_MIN << 0;
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("most") << INT_MAX << QWIDGETSIZE_MAX;
}

void TVerticalScrollBarTest::measuresBeyondEveryWidgetDoNotOverflow()
{
    QFETCH(int, measure);
    QFETCH(int, width);
    TVerticalScrollBar bar(nullptr, measure, measure, measure, measure);
    QCOMPARE(bar.sizeHint(), QSize(width, 50));
    bar.setRange(0, 300);
    bar.resize(Width, Height);
    bar.SetBottomMargin(0);
    bar.SetBottomMargin(measure);
    int const track = qMax(0, Height - 2 * qBound(-QWIDGETSIZE_MAX, measure, QWIDGETSIZE_MAX));
    QVERIFY(bar.GetSliderLength() <= track);
    QVERIFY(bar.GetSliderLength() >= 0);
    QVERIFY(qAbs(bar.GetTopOfSlider()) <= QWIDGETSIZE_MAX);
}

void TVerticalScrollBarTest::hasNoMenuOfItsOwn()
{
    TBar* const bar = ShownBar();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(15, 20), bar->mapToGlobal(QPoint(15, 20)));
    QCoreApplication::sendEvent(bar, &event);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(bar->contextMenuPolicy(), Qt::NoContextMenu);
}

void TVerticalScrollBarTest::artStandsWhereItBelongs_data()
{
    QTest::addColumn<bool>("glass");
    QTest::addColumn<bool>("down");
    QTest::newRow("up") << false << false;
    QTest::newRow("down") << false << true;
    QTest::newRow("glass, up") << true << false;
    QTest::newRow("glass, down") << true << true;
}

void TVerticalScrollBarTest::artStandsWhereItBelongs()
{
    QFETCH(bool, glass);
    QFETCH(bool, down);
    TVerticalScrollBar bar(m_Window.get(), 4, 10, 30, 51);
    bar.setRange(0, 300);
    bar.setPageStep(100);
    bar.resize(51, Height);
    bar.setValue(150);
    bar.UseGlassEffect(glass);
    bar.show();
    if (down)
        QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(20, 160));
    QString const prefix = glass ? QStringLiteral("Glass") : QString();
    auto const art = [&](char const* name, int height)
    {
        KVN::PixmapManager* const pixmaps = (*m_Screen)->GetPixmapManager();
        QString const full = prefix + QLatin1String(name);
        return height < 0 ? *pixmaps->GetPixmap(full) : *pixmaps->GetResizedPixmap(full, 33, height);
    };
    QImage expected(bar.size(), QImage::Format_RGB32);
    expected.fill(Qt::blue);
    QPainter painter(&expected);
    int const x = 4 + (51 - 33) / 2;
    painter.setOpacity(0.5);
    painter.drawPixmap(x, 10, art("ScrollBarBackground", 360));
    painter.setOpacity(1);
    painter.drawPixmap(x, 145, art(down ? "ScrollBarHandleSelected" : "ScrollBarHandle", 90));
    QPixmap const grip = art("ScrollBarGrip", -1);
    painter.drawPixmap(x + 16 - grip.width() / 2, 145 + 45 - (grip.height() + 1) / 2, grip);
    painter.end();
    QImage const picture = Picture(bar);
    for (int row = 0; row < picture.height(); ++row)
    {
        for (int column = 0; column < picture.width(); ++column)
        {
            QColor const drawn = picture.pixelColor(column, row);
            QColor const wanted = expected.pixelColor(column, row);
            int const difference = qMax(qAbs(drawn.red() - wanted.red()), qAbs(drawn.blue() - wanted.blue()));
            // The opacity is worked into the background by itself, which rounds by one.
            QVERIFY2(difference <= 1, qPrintable(QStringLiteral("at %1, %2").arg(column).arg(row)));
        }
    }
}

void TVerticalScrollBarTest::bottomMarginShortensTheTrack()
{
    TBar* const bar = ShownBar();
    bar->setValue(300);
    QCoreApplication::processEvents();
    bar->painted = QRegion();
    bar->SetBottomMargin(100);
    QCoreApplication::processEvents();
    QCOMPARE(bar->painted, QRegion(bar->rect()));
    QCOMPARE(bar->GetSliderLength(), 75);
    QCOMPARE(bar->GetBottomOfSlider(), 300);
    QImage const picture = Picture(*bar);
    QImage ground(Width, 100, QImage::Format_RGB32);
    ground.fill(Qt::blue);
    QCOMPARE(picture.copy(0, 300, Width, 100), ground);
    QVERIFY(picture.copy(0, 200, Width, 100) != ground);
}

void TVerticalScrollBarTest::glassIsSeenAtOnce()
{
    TBar* const bar = ShownBar();
    QImage const plain = Picture(*bar);
    bar->painted = QRegion();
    bar->UseGlassEffect(true);
    QCoreApplication::processEvents();
    QCOMPARE(bar->painted, QRegion(bar->rect()));
    QVERIFY(Picture(*bar) != plain);
    bar->painted = QRegion();
    bar->UseGlassEffect(true);
    QCoreApplication::processEvents();
    QVERIFY(bar->painted.isEmpty());
}

void TVerticalScrollBarTest::withoutAScreenItIsNotDrawn()
{
    m_Window.reset();
    m_Screen.reset();
    TBar bar;
    QImage const picture = Picture(bar);
    QImage ground(picture.size(), picture.format());
    ground.fill(Qt::blue);
    QCOMPARE(picture, ground);
}

void TVerticalScrollBarTest::onlyWhatMovedIsPainted()
{
    TBar* const bar = ShownBar();
    bar->painted = QRegion();
    bar->setValue(20);
    bar->setValue(30);
    QCoreApplication::processEvents();
    QCOMPARE(bar->painted, QRegion(0, 0, Width, 130));
    bar->painted = QRegion();
    bar->setValue(60);
    bar->setValue(30);
    bar->setValue(40);
    QCoreApplication::processEvents();
    QVERIFY(
        QRegion(0, 30, Width, 130).subtracted(bar->painted).intersected(QRect(0, 30, Width, 110)).isEmpty());
    QImage const picture = Picture(*bar);
    TBar fresh;
    fresh.setValue(40);
    QCOMPARE(picture, Picture(fresh));
    bar->painted = QRegion();
    bar->setRange(0, 3000);
    QCoreApplication::processEvents();
    QCOMPARE(bar->painted, QRegion(bar->rect()));
    TBar longer;
    longer.setRange(0, 3000);
    longer.setValue(40);
    QCOMPARE(Picture(*bar), Picture(longer));
}

void TVerticalScrollBarTest::stepThatMovesNoRowPaintsNothing()
{
    TBar* const bar = ShownBar();
    bar->setRange(0, 100000);
    QCoreApplication::processEvents();
    bar->painted = QRegion();
    bar->setValue(30);
    QCoreApplication::processEvents();
    QVERIFY(bar->painted.isEmpty());
    bar->setValue(3000);
    QCoreApplication::processEvents();
    QVERIFY(!bar->painted.isEmpty());
}

void TVerticalScrollBarTest::gripIsCentredOnAHandleOfAnyLength()
{
    KVN::PixmapManager* const pixmaps = (*m_Screen)->GetPixmapManager();
    QPixmap const grip = *pixmaps->GetPixmap(PixmapNames::ScrollBarGrip);
    constexpr int Length = 11;
    QVERIFY(grip.height() > Length);
    TBar bar(m_Window.get(), 20, 20);
    bar.resize(Width, Length + 40);
    bar.setValue(150);
    QImage expected(bar.size(), QImage::Format_RGB32);
    expected.fill(Qt::blue);
    QPainter painter(&expected);
    painter.setOpacity(0.5);
    painter.drawPixmap(0, 20, *pixmaps->GetResizedPixmap(PixmapNames::ScrollBarBackground, 33, Length));
    painter.setOpacity(1);
    painter.drawPixmap(0, 20, *pixmaps->GetResizedPixmap(PixmapNames::ScrollBarHandle, 33, Length));
    painter.drawPixmap(16 - grip.width() / 2, 20 + Length / 2 - grip.height() / 2, grip);
    painter.end();
    // Above and below the track nothing but the grip can be seen.
    QImage const picture = Picture(bar);
    QCOMPARE(picture.copy(0, 0, Width, 20), expected.copy(0, 0, Width, 20));
    QCOMPARE(picture.copy(0, 20 + Length, Width, 20), expected.copy(0, 20 + Length, Width, 20));
    // And nothing at all without a handle.
    bar.SetBottomMargin(100);
    expected.fill(Qt::blue);
    QCOMPARE(Picture(bar), expected);
}

void TVerticalScrollBarTest::slotsMayDeleteIt_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("moveTo");
    QTest::addColumn<int>("signal");
    QTest::newRow("value of a page") << 350 << 350 << 0;
    QTest::newRow("value of a drag") << 20 << 80 << 0;
    QTest::newRow("press") << 20 << 20 << 1;
    QTest::newRow("release") << 20 << 20 << 2;
}

void TVerticalScrollBarTest::slotsMayDeleteIt()
{
    QFETCH(int, y);
    QFETCH(int, moveTo);
    QFETCH(int, signal);
    QPointer<TBar> bar = ShownBar();
    auto const kill = [&bar] { delete bar; };
    if (signal == 0)
        connect(bar, &QScrollBar::valueChanged, this, kill);
    else if (signal == 1)
        connect(bar, &QScrollBar::sliderPressed, this, kill);
    else
        connect(bar, &QScrollBar::sliderReleased, this, kill);
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, y));
    finger.Move(QPoint(15, moveTo));
    finger.Lift();
    QVERIFY(!bar);
}

void TVerticalScrollBarTest::deletedWhilePressed()
{
    TBar* const bar = ShownBar();
    TFinger finger(m_Window.get());
    finger.Press(QPoint(15, 20));
    finger.Move(QPoint(15, 60));
    delete bar;
    finger.Move(QPoint(15, 70));
    finger.Lift();
    QVERIFY(m_Window->findChildren<TBar*>().isEmpty());
}

COMMONUI_TEST(TVerticalScrollBarTest)

#include "TVerticalScrollBarTest.moc"
