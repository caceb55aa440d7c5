#include "TCoverageMap.h"

#include "TestCase.h"

#include <QPainter>

#include <limits>

class TCoverageMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatWasAddedIsCoveredAndNothingElse()
    {
        TCoverageMap map;
        map.Add(QRectF(10, 10, 20, 5));
        QVERIFY(map.IsCovered({20, 12}));
        QVERIFY(!map.IsCovered({20, 16}));
        QVERIFY(!map.IsCovered({9, 12}));
        QVERIFY(!map.IsCovered({-20, 12}));
        map.Clear();
        QVERIFY(!map.IsCovered({20, 12}));
        QCOMPARE(map.TileCount(), 0);
    }

    void aPieceMayLieAcrossTiles()
    {
        TCoverageMap map;
        map.Add(QRectF(-5, -5, 10, 10));
        QCOMPARE(map.TileCount(), 4);
        for (QPointF const& point :
             {QPointF(-4, -4), QPointF(4, -4), QPointF(-4, 4), QPointF(4, 4), QPointF(0, 0)})
            QVERIFY(map.IsCovered(point));
    }

    void theMemoryIsBoundedAndTheNewestStays()
    {
        TCoverageMap map;
        constexpr double TileMetres = double(TCoverageMap::TileSide) / TCoverageMap::PixelsPerMetre;
        constexpr int Tiles = TCoverageMap::MaxTiles * 3;
        for (int i = 0; i < Tiles; ++i)
        {
            QPointF const corner(i * TileMetres + 1, 1);
            map.Add(QRectF(corner, QSizeF(10, 10)));
            QVERIFY(map.TileCount() <= TCoverageMap::MaxTiles);
            QVERIFY(map.IsCovered(corner + QPointF(5, 5)));
        }
        QCOMPARE(map.TileCount(), TCoverageMap::MaxTiles);
        QVERIFY(!map.IsCovered({6, 6}));
    }

    void absurdPiecesAreIgnored_data()
    {
        QTest::addColumn<QPolygonF>("ground");
        constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double Infinity = std::numeric_limits<double>::infinity();
        QTest::newRow("nothing") << QPolygonF();
        QTest::newRow("not a number") << QPolygonF(QVector<QPointF>{{Nan, Nan}, {Nan, Nan}, {Nan, Nan}});
        QTest::newRow("infinite") << QPolygonF(QVector<QPointF>{{0, 0}, {Infinity, 0}, {0, 5}});
        QTest::newRow("huge") << QPolygonF(QRectF(0, 0, 1e6, 1e6));
        QTest::newRow("far") << QPolygonF(QRectF(1e300, 0, 1, 1));
    }

    void absurdPiecesAreIgnored()
    {
        QFETCH(QPolygonF, ground);
        TCoverageMap map;
        map.Add(ground);
        QCOMPARE(map.TileCount(), 0);
    }

    // The map shows pieces as they are added and later from the tiles: both must look the same.
    void tilesHoldTheColourExactly()
    {
        TCoverageMap map;
        map.Add(QRectF(0, 0, 10, 10));
        QImage picture(10, 10, QImage::Format_RGB32);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        map.Paint(&painter, QRectF(0, 0, 10, 10));
        painter.end();
        QCOMPARE(picture.pixelColor(5, 5), TCoverageMap::Colour());
    }
};

COMMONUI_TEST(TCoverageMapTest)
#include "TCoverageMapTest.moc"
