#include "TSimulatedTractor.h"

#include "TestCase.h"
#include "TestSupport.h"

#include <cmath>

class TSimulatedTractorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSameTimeGivesTheSamePlace()
    {
        TSimulatedTractor const first;
        TSimulatedTractor const second;
        for (qint64 const elapsed : {0LL, 100LL, 123456LL, 86400000LL})
        {
            TFix const a = first.FixAt(elapsed);
            TFix const b = second.FixAt(elapsed);
            QVERIFY(a.IsValid());
            QCOMPARE(a.latitude, b.latitude);
            QCOMPARE(a.longitude, b.longitude);
            QCOMPARE(a.heading, b.heading);
        }
    }

    void speedAndPlaceBelongTogether()
    {
        TSimulatedTractor const tractor;
        TLocalPlane const plane = tractor.KnownPlane();
        for (qint64 elapsed = 0; elapsed < 600000; elapsed += 1700)
        {
            TFix const here = tractor.FixAt(elapsed);
            TFix const there = tractor.FixAt(elapsed + 100);
            QPointF const step = plane.FromDegrees(there.latitude, there.longitude) -
                                 plane.FromDegrees(here.latitude, here.longitude);
            QVERIFY(here.speed > 2.0 && here.speed < 5.0);
            QVERIFY(std::abs(std::hypot(step.x(), step.y()) * 10.0 - here.speed) < 0.3);
        }
    }

    void itSpeaksAtItsStartAndThenByTheClock()
    {
        TManualClock clock;
        TSimulatedTractor tractor;
        QVector<TFix> fixes;
        connect(&tractor, &IPositionSource::FixChanged, this,
                [&fixes](TFix const& fix) { fixes.append(fix); });
        tractor.Start();
        QCOMPARE(fixes.size(), 1);
        clock.Advance(5000);
        QTRY_VERIFY(fixes.size() >= 2);
        QCOMPARE(fixes[1].latitude, tractor.FixAt(5000).latitude);
        QVERIFY(fixes[1].latitude != fixes[0].latitude);
    }

    void theFieldHoldsTheWorkAndTheSky()
    {
        TSimulatedTractor const tractor;
        TField const field = tractor.KnownField();
        for (QPointF const& corner : qAsConst(field.workArea))
            QVERIFY(field.boundary.boundingRect().contains(corner));
        QVERIFY(field.hasLines);
        QVector<TSatellite> const satellites = tractor.SatellitesAt(1LL << 50);
        for (TSatellite const& satellite : satellites)
            QVERIFY(satellite.azimuth >= 0 && satellite.azimuth < 360);
    }
};

COMMONUI_TEST(TSimulatedTractorTest)
#include "TSimulatedTractorTest.moc"
