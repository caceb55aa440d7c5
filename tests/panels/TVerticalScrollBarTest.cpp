#include "TVerticalScrollBar.h"

#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"

namespace
{
constexpr int Width = 33;

/// A bar with a page of 100 in a range of 300, 400 pixels high.
class TBar : public TVerticalScrollBar
{
public:
    explicit TBar(QWidget* parent = nullptr, int topMargin = 0, int bottomMargin = 0)
        : TVerticalScrollBar(parent, 0, topMargin, bottomMargin, Width)
    {
        setRange(0, 300);
        setPageStep(100);
        resize(Width, 400);
    }
};
} // namespace

class TVerticalScrollBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sizeIsItsWidthByFifty()
    {
        TVerticalScrollBar const bar(nullptr, 0, 0, 0, 40);
        QCOMPARE(bar.sizeHint(), QSize(40, 50));
        QCOMPARE(bar.minimumSizeHint(), QSize(40, 50));
        QCOMPARE(bar.minimumWidth(), 40);
        QCOMPARE(bar.maximumWidth(), 40);
        QVERIFY(!bar.testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void handleIsThePagesShareOfTheTrack()
    {
        TBar bar(nullptr, 10, 30);
        QCOMPARE(bar.GetSliderLength(), 360 * 100 / 400);
        QCOMPARE(bar.GetTopOfSlider(), 10);
        bar.setValue(300);
        QCOMPARE(bar.GetTopOfSlider(), 10 + 360 - 90);
        QCOMPARE(bar.GetBottomOfSlider(), 370);
    }
};

COMMONUI_TEST(TVerticalScrollBarTest)

#include "TVerticalScrollBarTest.moc"
