#include "TFieldPath.h"

#include "TestCase.h"

#include <cmath>

namespace
{
double Distance(QPointF const& a, QPointF const& b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}
} // namespace

class TFieldPathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsRunUpAndDownASpacingApart()
    {
        TFieldPath const path = TFieldPath::Rows(4, 100.0, 20.0);
        double const turn = 10.0 * M_PI;
        QCOMPARE(path.At(0.0).heading, 0.0);
        QVERIFY(Distance(path.At(50.0).position, {0.0, -50.0}) < 1e-9);
        TPose const second = path.At(100.0 + turn + 30.0);
        QVERIFY(Distance(second.position, {20.0, -70.0}) < 1e-9);
        QVERIFY(std::abs(second.heading - 180.0) < 1e-9);
    }

    void theWayIsClosedAndWithoutKinks()
    {
        TFieldPath const path = TFieldPath::Rows(12, 360.0, 24.0);
        constexpr double Step = 0.25;
        for (double distance = -50.0; distance < path.Length() + 50.0; distance += Step)
        {
            TPose const here = path.At(distance);
            TPose const there = path.At(distance + Step);
            double const gone = Distance(here.position, there.position);
            QVERIFY2(gone > 0.9 * Step && gone < 1.01 * Step, qPrintable(QString::number(distance)));
            QVERIFY(std::abs(std::remainder(here.heading - there.heading, 360.0)) < 2.0);
            QVERIFY(here.heading >= 0.0 && here.heading < 360.0);
        }
    }

    void anEmptyWayStaysAtItsStart() { QVERIFY(TFieldPath().At(5.0).position.isNull()); }
};

COMMONUI_TEST(TFieldPathTest)
#include "TFieldPathTest.moc"
