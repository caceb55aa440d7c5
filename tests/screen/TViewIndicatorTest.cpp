#include "TViewIndicator.h"
#include "TestCase.h"

#include <QImage>
#include <QtTest>

#include <climits>

namespace
{
QRgb const InView = qRgb(150, 150, 150);
QRgb const OutOfView = qRgb(75, 75, 75);
QRgb const Behind = qRgb(0, 0, 255);

/// An indicator before a blue ground. Along and across are those of the row.
struct TStage
{
    explicit TStage(bool isHorizontal = true, int length = 101, int breadth = 10)
        : horizontal(isHorizontal)
        , indicator(nullptr, isHorizontal)
    {
        indicator.resize(horizontal ? QSize(length, breadth) : QSize(breadth, length));
    }

    QImage Picture()
    {
        QImage image(indicator.size(), QImage::Format_RGB32);
        image.fill(Behind);
        indicator.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    /// The runs of one colour along the middle of the row, as ".2 o40 #7": ground, out of view, in view.
    QString Row()
    {
        QImage const image = Picture();
        QStringList runs;
        int const length = horizontal ? image.width() : image.height();
        for (int start = 0; start < length;)
        {
            int end = start;
            while (end < length && At(image, end) == At(image, start))
                ++end;
            runs.append(Sign(At(image, start)) + QString::number(end - start));
            start = end;
        }
        return runs.join(QLatin1Char(' '));
    }

    bool horizontal;
    TViewIndicator indicator;

private:
    QRgb At(QImage const& image, int along) const
    {
        return horizontal ? image.pixel(along, image.height() / 2) : image.pixel(image.width() / 2, along);
    }
    static QString Sign(QRgb colour)
    {
        if (colour == InView)
            return QStringLiteral("#");
        if (colour == OutOfView)
            return QStringLiteral("o");
        return colour == Behind ? QStringLiteral(".") : QStringLiteral("?");
    }
};
} // namespace

class TViewIndicatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutItemsItPaintsNothing()
    {
        TStage stage;
        QCOMPARE(stage.Row(), QStringLiteral(".101"));
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.SetNumberOfItems(0);
        QCOMPARE(stage.Row(), QStringLiteral(".101"));
    }

    void newItemsAreOutOfView()
    {
        TStage stage;
        stage.indicator.SetNumberOfItems(2);
        // floor((101 - 1 - 5) / 2) = 47, margin (101 - 94 - 5) / 2 = 1
        QCOMPARE(stage.Row(), QStringLiteral(".1 o47 .5 o47 .1"));
    }

    void theMarksShareTheLength_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("row");
        QTest::newRow("one") << 101 << 1 << ".0 o100 .1";
        QTest::newRow("two, even") << 100 << 2 << ".0 o47 .5 o47 .1";
        QTest::newRow("three") << 101 << 3 << ".0 o30 .5 o30 .5 o30 .1";
        QTest::newRow("three, with a rest") << 103 << 3 << ".1 o30 .5 o30 .5 o30 .2";
        QTest::newRow("one pixel each") << 14 << 3 << ".0 o1 .5 o1 .5 o1 .1";
        QTest::newRow("no room") << 13 << 3 << ".13";
    }

    void theMarksShareTheLength()
    {
        QFETCH(int, length);
        QFETCH(int, count);
        QFETCH(QString, row);
        for (bool const horizontal : {true, false})
        {
            TStage stage(horizontal, length);
            stage.indicator.SetNumberOfItems(count);
            QCOMPARE(stage.Row(), row.startsWith(QLatin1String(".0 ")) ? row.mid(3) : row);
        }
    }

    void onePixelStaysFreeOnEachSide()
    {
        for (bool const horizontal : {true, false})
        {
            TStage stage(horizontal, 101, 10);
            stage.indicator.SetNumberOfItems(1);
            QImage const image = stage.Picture();
            for (int across = 0; across < 10; ++across)
            {
                QRgb const colour = horizontal ? image.pixel(50, across) : image.pixel(across, 50);
                QCOMPARE(colour, across == 0 || across == 9 ? Behind : OutOfView);
            }
        }
    }

    void anItemIsWhollyInViewOrNot()
    {
        TStage stage;
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.SetVisibleInView(1, true);
        QCOMPARE(stage.Row(), QStringLiteral(".1 o47 .5 #47 .1"));
        stage.indicator.SetVisibleInView(1, false);
        stage.indicator.SetVisibleInView(0, true);
        QCOMPARE(stage.Row(), QStringLiteral(".1 #47 .5 o47 .1"));
    }

    void whileEverythingIsInViewItPaintsNothing_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<bool>("paints");
        QTest::newRow("all") << 100 << false;
        QTest::newRow("all, from the far end") << -100 << false;
        QTest::newRow("99") << 99 << true;
        QTest::newRow("99, from the far end") << -99 << true;
        QTest::newRow("none") << 0 << true;
    }

    void whileEverythingIsInViewItPaintsNothing()
    {
        QFETCH(int, percent);
        QFETCH(bool, paints);
        TStage stage;
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.SetVisibleInView(0, true);
        stage.indicator.SetPartiallyVisibleInView(1, percent);
        QCOMPARE(stage.Row() != QStringLiteral(".101"), paints);
    }

    void anItemIsSplitByItsShare_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<QString>("row");
        QTest::newRow("a quarter at the near end") << 25 << "#25 o75 .1";
        QTest::newRow("a quarter at the far end") << -25 << "o75 #25 .1";
        QTest::newRow("most at the near end") << 99 << "#99 o1 .1";
        QTest::newRow("most at the far end") << -99 << "o1 #99 .1";
        QTest::newRow("a trace") << 1 << "#1 o99 .1";
        QTest::newRow("nothing") << 0 << "o100 .1";
    }

    void anItemIsSplitByItsShare()
    {
        QFETCH(int, percent);
        QFETCH(QString, row);
        for (bool const horizontal : {true, false})
        {
            TStage stage(horizontal);
            stage.indicator.SetNumberOfItems(1);
            stage.indicator.SetPartiallyVisibleInView(0, percent);
            QCOMPARE(stage.Row(), row);
        }
    }

    void moreThanAllIsIgnored_data()
    {
        QTest::addColumn<int>("percent");
        for (int const percent : {101, -101, INT_MAX, INT_MIN})
            QTest::addRow("%d", percent) << percent;
    }

    void moreThanAllIsIgnored()
    {
        QFETCH(int, percent);
        TStage stage;
        stage.indicator.SetNumberOfItems(1);
        stage.indicator.SetPartiallyVisibleInView(0, 40);
        stage.indicator.SetPartiallyVisibleInView(0, percent);
        QCOMPARE(stage.Row(), QStringLiteral("#40 o60 .1"));
    }

    void itemsThatDoNotExistAreIgnored()
    {
        TStage stage;
        stage.indicator.SetVisibleInView(0, true);
        stage.indicator.SetNumberOfItems(2);
        QString const before = stage.Row();
        for (int const item : {-1, 2, INT_MAX, INT_MIN})
        {
            stage.indicator.SetVisibleInView(item, true);
            stage.indicator.SetPartiallyVisibleInView(item, 50);
        }
        QCOMPARE(stage.Row(), before);
    }

    void anotherNumberForgetsWhatWasInView()
    {
        TStage stage;
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.SetVisibleInView(0, true);
        stage.indicator.SetNumberOfItems(2);
        QCOMPARE(stage.Row(), QStringLiteral(".1 #47 .5 o47 .1"));
        stage.indicator.SetNumberOfItems(3);
        stage.indicator.SetNumberOfItems(2);
        QCOMPARE(stage.Row(), QStringLiteral(".1 o47 .5 o47 .1"));
    }

    void wildNumbersAreHeld()
    {
        TStage stage;
        for (int const count : {-1, INT_MIN})
        {
            stage.indicator.SetNumberOfItems(2);
            stage.indicator.SetNumberOfItems(count);
            QCOMPARE(stage.Row(), QStringLiteral(".101"));
        }
        stage.indicator.SetNumberOfItems(INT_MAX);
        stage.indicator.SetVisibleInView(TViewIndicator::MaxItems, true);
        QCOMPARE(stage.Row(), QStringLiteral(".101"));
    }

    void itFollowsItsSize()
    {
        TStage stage;
        stage.indicator.SetNumberOfItems(1);
        stage.indicator.show();
        stage.indicator.resize(61, 10);
        QCOMPARE(stage.Row(), QStringLiteral("o60 .1"));
        stage.indicator.resize(0, 0);
        stage.indicator.resize(1, 1);
        QCOMPARE(stage.Row(), QStringLiteral(".1"));
    }

    void onlyAChangeIsPainted()
    {
        TStage stage;
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stage.indicator));
        QCoreApplication::processEvents();
        struct TPaints : QObject
        {
            bool eventFilter(QObject*, QEvent* event) override
            {
                count += event->type() == QEvent::Paint;
                return false;
            }
            int count = 0;
        } paints;
        stage.indicator.installEventFilter(&paints);
        stage.indicator.SetNumberOfItems(2);
        stage.indicator.SetVisibleInView(0, false);
        stage.indicator.SetPartiallyVisibleInView(1, 0);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 0);
        stage.indicator.SetVisibleInView(0, true);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
    }
};

COMMONUI_TEST(TViewIndicatorTest)
#include "TViewIndicatorTest.moc"
