#include "TMapView.h"

#include "MapColors.h"
#include "TestCase.h"
#include "TestSource.h"
#include "TMachine.h"

#include <QPainter>

namespace
{
QRect const View(20, 10, 300, 240);

struct TStage
{
    /// Between the lines, in metres; 0 for as wide as the boom is.
    explicit TStage(double lineSpacing = 0.0)
        : source(new TTestSource)
    {
        source->m_Field.lineSpacing = lineSpacing;
        source->m_Field.hasLines = true;
        source->m_Field.boundary = QPolygonF(QRectF(-60, -200, 200, 260));
        machine = std::make_unique<TMachine>(std::unique_ptr<IPositionSource>(source));
        source->Say({0, 0}, 0);
    }

    QImage Picture(TMapView const& map) const
    {
        QImage picture(340, 260, QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        QPainter painter(&picture);
        map.Paint(&painter, picture.rect());
        return picture;
    }

    TTestSource* source;
    std::unique_ptr<TMachine> machine;
};

int DifferentPixels(QImage const& a, QImage const& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
    {
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return count;
}
} // namespace

class TMapViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMachineThatStandsNeedsNoPainting()
    {
        TStage stage;
        TMapView map(*stage.machine);
        map.SetView(View);
        QVERIFY(map.Follow());
        stage.source->Say({0, 0}, 0, 0.0);
        map.Follow();
        stage.source->Say({0, 0}, 0, 0.0);
        QVERIFY(!map.Follow());
        stage.source->Say({0, -1}, 0);
        QVERIFY(map.Follow());
    }

    void aSwitchShowsWithoutAMovement()
    {
        TStage stage;
        TMapView map(*stage.machine);
        map.SetView(View);
        map.Follow();
        stage.machine->SetSectionOn(2, false);
        QVERIFY(map.Follow());
        QVERIFY(!map.Follow());
    }

    void anotherBoomShowsWithoutAMovement_data()
    {
        QTest::addColumn<double>("lineSpacing");
        QTest::newRow("with lines of its own") << 0.0;
        QTest::newRow("on tramlines") << 24.0;
    }

    void anotherBoomShowsWithoutAMovement()
    {
        QFETCH(double, lineSpacing);
        TStage const stage(lineSpacing);
        TMapView map(*stage.machine);
        map.SetView(View);
        map.Follow();
        QImage const before = stage.Picture(map);
        stage.machine->SetSectionWidth(0, 6.0);
        QVERIFY(map.Follow());
        QVERIFY(!map.Follow());
        QVERIFY(stage.Picture(map) != before);
        TMapView fresh(*stage.machine);
        fresh.SetView(View);
        fresh.Follow();
        QCOMPARE(DifferentPixels(stage.Picture(map), stage.Picture(fresh)), 0);
    }

    void shiftedLinesShowWithoutAMovement()
    {
        TStage const stage;
        TMapView map(*stage.machine);
        map.SetView(View);
        map.Follow();
        QPoint const onTheLine = map.Anchor() - QPoint(0, 100);
        QCOMPARE(stage.Picture(map).pixelColor(onTheLine), MapColors::CurrentLine);
        stage.machine->ShiftLines(TMachine::LargestLineShift);
        QVERIFY(map.Follow());
        QVERIFY(!map.Follow());
        int const shift = TMapView::ZoomLevels[map.ZoomLevel()] * int(TMachine::LargestLineShift);
        QVERIFY(stage.Picture(map).pixelColor(onTheLine) != MapColors::CurrentLine);
        QCOMPARE(stage.Picture(map).pixelColor(onTheLine + QPoint(shift, 0)), MapColors::CurrentLine);
    }

    void itPaintsInsideOfItsViewAlone()
    {
        TStage stage;
        TMapView map(*stage.machine);
        map.SetView(View);
        map.Follow();
        QImage const picture = stage.Picture(map);
        QCOMPARE(picture.pixelColor(View.left() - 1, 100), QColor(Qt::magenta));
        QCOMPARE(picture.pixelColor(View.right() + 1, 100), QColor(Qt::magenta));
        QVERIFY(picture.pixelColor(View.left(), 100) != QColor(Qt::magenta));
        QVERIFY(picture.pixelColor(View.right(), View.bottom()) != QColor(Qt::magenta));
    }

    // What was added piece by piece to a layer that was only shifted looks like what is drawn at once.
    void theShiftedMapEqualsAFreshOne()
    {
        TStage stage;
        TMapView shifted(*stage.machine);
        shifted.SetView(View);
        connect(stage.machine.get(), &TMachine::Covered, this,
                [&shifted](QPolygonF const& ground) { shifted.AddGround(ground); });
        shifted.Follow();
        for (int i = 1; i <= 60; ++i)
        {
            stage.source->Say({0.0, -i / 2.0}, 0);
            shifted.Follow();
        }
        TMapView fresh(*stage.machine);
        fresh.SetView(View);
        fresh.Follow();
        QVERIFY(DifferentPixels(stage.Picture(shifted), stage.Picture(fresh)) <
                View.width() * View.height() / 100);
    }

    void theMachineDrivesUpwardsWhereverItHeads()
    {
        TStage stage;
        TMapView map(*stage.machine);
        map.SetView(View);
        stage.source->Say({0, 0}, 90);
        stage.source->Say({10, 0}, 90);
        stage.source->Say({20, 0}, 90);
        map.Follow();
        QImage const picture = stage.Picture(map);
        QPoint const behind = map.Anchor() + QPoint(30, 40);
        QPoint const ahead = map.Anchor() + QPoint(30, -60);
        QCOMPARE(picture.pixelColor(behind), TCoverageMap::Colour());
        QVERIFY(picture.pixelColor(ahead) != TCoverageMap::Colour());
    }

    void theZoomIsHeldToItsLevels()
    {
        TStage stage;
        TMapView map(*stage.machine);
        map.SetZoomLevel(99);
        QCOMPARE(map.ZoomLevel(), TMapView::ZoomLevelCount - 1);
        map.SetZoomLevel(-3);
        QCOMPARE(map.ZoomLevel(), 0);
    }

    void withoutRoomThereIsNoMap()
    {
        TStage stage;
        TMapView map(*stage.machine);
        QVERIFY(!map.Follow());
        QCOMPARE(stage.Picture(map).pixelColor(100, 100), QColor(Qt::magenta));
    }
};

COMMONUI_TEST(TMapViewTest)
#include "TMapViewTest.moc"
