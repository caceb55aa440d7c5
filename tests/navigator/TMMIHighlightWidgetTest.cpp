#include "TMMIHighlightWidget.h"

#include "TestCase.h"

#include <QPaintEvent>
#include <QPushButton>

namespace
{
constexpr int WIDTH = 120;
constexpr int HEIGHT = 80;

QImage Painted(TMMIHighlightWidget& highlight, QColor const& background)
{
    QImage image(highlight.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    highlight.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

int Blended(int below, int above, int alpha)
{
    return (below * (255 - alpha) + above * alpha + 127) / 255;
}

// The outlines whose line covers a pixel at this distance from the edge, from the widest. An even width has
// one pixel more on the side of the smaller coordinates, which is the inner side at the far edges.
QVector<int> AlphasAt(int distance, bool farEdge)
{
    int const more = farEdge ? 1 : 0;
    if (distance < 2)
        return {20, 50, 120, 200};
    if (distance < 3 + more)
        return {20, 50, 120};
    if (distance < 5 + more)
        return {20, 50};
    if (distance < 8 + more)
        return {20};
    return {};
}

bool IsNear(QColor const& actual, QColor const& expected)
{
    constexpr int ROUNDING = 3; // five blends, each rounded
    return qAbs(actual.red() - expected.red()) <= ROUNDING &&
           qAbs(actual.green() - expected.green()) <= ROUNDING &&
           qAbs(actual.blue() - expected.blue()) <= ROUNDING;
}

QColor ExpectedAt(int distance, QColor const& glow, bool farEdge = false)
{
    QVector<int> const alphas = AlphasAt(distance, farEdge);
    int channels[] = {0, 0, 0};
    int const colours[] = {glow.red(), glow.green(), glow.blue()};
    for (int i = 0; i < 3; ++i)
    {
        for (int alpha : alphas)
            channels[i] = Blended(channels[i], colours[i], alpha);
        channels[i] = Blended(channels[i], 255, 15);
    }
    return QColor(channels[0], channels[1], channels[2]);
}

class TPaintCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};
} // namespace

class TMMIHighlightWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isWhiteAtFirst() { QCOMPARE(TMMIHighlightWidget().GetColour(), QColor(Qt::white)); }

    void touchGoesToTheWidgetBelow()
    {
        QWidget screen;
        screen.resize(200, 100);
        QPushButton below(&screen);
        below.setGeometry(0, 0, 200, 100);
        TMMIHighlightWidget highlight(&screen);
        highlight.setGeometry(below.geometry());
        screen.show();
        int clicks = 0;
        connect(&below, &QPushButton::clicked, this, [&clicks] { ++clicks; });
        QTest::mouseClick(screen.childAt(50, 50), Qt::LeftButton);
        QCOMPARE(clicks, 1);
    }

    void newColourRepaints()
    {
        TMMIHighlightWidget highlight;
        highlight.resize(WIDTH, HEIGHT);
        highlight.show();
        QVERIFY(QTest::qWaitForWindowExposed(&highlight));
        TPaintCounter painted;
        highlight.installEventFilter(&painted);
        highlight.SetColour(Qt::blue);
        QCOMPARE(highlight.GetColour(), QColor(Qt::blue));
        QTRY_VERIFY(painted.count > 0);
    }

    void glowIsFourOutlinesOverAVeil_data()
    {
        QTest::addColumn<QColor>("colour");
        QTest::newRow("white") << QColor(255, 255, 255);
        QTest::newRow("blue") << QColor(0, 0, 255);
        QTest::newRow("the alpha of the colour is not used") << QColor(0, 0, 255, 10);
    }
    void glowIsFourOutlinesOverAVeil()
    {
        QFETCH(QColor, colour);
        TMMIHighlightWidget highlight;
        highlight.resize(WIDTH, HEIGHT);
        highlight.SetColour(colour);
        QImage const image = Painted(highlight, Qt::black);
        for (int distance = 0; distance < 12; ++distance)
        {
            QColor const near = ExpectedAt(distance, colour);
            QColor const far = ExpectedAt(distance, colour, true);
            QByteArray const where = "distance " + QByteArray::number(distance);
            QVERIFY2(IsNear(image.pixelColor(distance, HEIGHT / 2), near), (where + ", left").constData());
            QVERIFY2(IsNear(image.pixelColor(WIDTH / 2, distance), near), (where + ", top").constData());
            QVERIFY2(IsNear(image.pixelColor(WIDTH - 1 - distance, HEIGHT / 2), far),
                     (where + ", right").constData());
            QVERIFY2(IsNear(image.pixelColor(WIDTH / 2, HEIGHT - 1 - distance), far),
                     (where + ", bottom").constData());
        }
        QVERIFY(IsNear(image.pixelColor(WIDTH - 1, HEIGHT - 1), ExpectedAt(0, colour)));
        QVERIFY(IsNear(image.pixelColor(WIDTH / 2, HEIGHT / 2), ExpectedAt(20, colour)));
    }

    void sizesBelowTheOutlinesArePainted_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("least");
        QTest::newRow("one pixel has no outline but the veil") << QSize(1, 1) << 10;
        QTest::newRow("a line") << QSize(100, 1) << 200;
        QTest::newRow("narrower than the widest outline") << QSize(9, 9) << 200;
    }
    void sizesBelowTheOutlinesArePainted()
    {
        QFETCH(QSize, size);
        QFETCH(int, least);
        TMMIHighlightWidget highlight;
        highlight.resize(size);
        QVERIFY(Painted(highlight, Qt::black).pixelColor(0, 0).red() >= least);
    }
};

COMMONUI_TEST(TMMIHighlightWidgetTest)
#include "TMMIHighlightWidgetTest.moc"
