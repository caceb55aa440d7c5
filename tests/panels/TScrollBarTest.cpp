#include "TScrollBar.h"

#include "TestCase.h"

class TScrollBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isRedAllOver_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::newRow("upright") << QSize(20, 200) << Qt::Vertical;
        QTest::newRow("across") << QSize(200, 20) << Qt::Horizontal;
    }

    void isRedAllOver()
    {
        QFETCH(QSize, size);
        QFETCH(Qt::Orientation, orientation);
        TScrollBar bar(orientation, nullptr);
        bar.resize(size);
        QImage const picture = bar.grab().toImage();
        // The outline of the rectangle stands on its upper and left edges.
        for (int y = 1; y < size.height(); ++y)
        {
            for (int x = 1; x < size.width(); ++x)
                QCOMPARE(picture.pixel(x, y), qRgb(255, 0, 0));
        }
    }

    void scrollsAllTheSame()
    {
        TScrollBar bar(nullptr);
        QCOMPARE(bar.orientation(), Qt::Vertical);
        bar.setRange(0, 10);
        bar.setValue(7);
        QCOMPARE(bar.value(), 7);
    }

    void mayBeDeletedByItsOwnSignal()
    {
        QPointer<TScrollBar> bar = new TScrollBar(nullptr);
        connect(bar, &QScrollBar::valueChanged, this, [&] { delete bar; });
        bar->setValue(7);
        QVERIFY(!bar);
    }
};

COMMONUI_TEST(TScrollBarTest)

#include "TScrollBarTest.moc"
