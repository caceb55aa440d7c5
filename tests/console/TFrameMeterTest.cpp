#include "TFrameMeter.h"

#include "TestCase.h"

#include <QPainter>
#include <QWidget>

namespace
{
class TCanvasOfTest : public QWidget
{
public:
    int m_Paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++m_Paints; }
};
} // namespace

class TFrameMeterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsPaintedAndCounted()
    {
        TCanvasOfTest window;
        TFrameMeter meter(&window);
        window.show();
        QTRY_VERIFY(window.m_Paints > 0);
        for (int frame = 0; frame < 2 * TFrameMeter::MaxFrames; ++frame)
        {
            int const before = meter.Count();
            int const paints = window.m_Paints;
            window.update();
            QEvent request(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(&window, &request);
            QCOMPARE(meter.Count(), before + 1);
            QCOMPARE(window.m_Paints, paints + 1);
        }
        QCOMPARE(meter.Frames().size(), TFrameMeter::MaxFrames);
        QVERIFY(meter.Longest() >= meter.Mean());
        QVERIFY(meter.Mean() > 0.0);
    }

    void beforeTheFirstFrameThereIsNoFigure()
    {
        QWidget window;
        TFrameMeter const meter(&window);
        QCOMPARE(meter.Mean(), 0.0);
        QCOMPARE(meter.Longest(), 0.0);
    }
};

COMMONUI_TEST(TFrameMeterTest)
#include "TFrameMeterTest.moc"
