#include "TFullWindowTitlebar.h"
#include "PixmapManager.h"
#include "RenderUtils.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TScreenStage.h"

#include <QPainter>

namespace
{
QImage Painted(QWidget& widget)
{
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::blue);
    widget.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

// The bar with its picture, and the text where it must be.
QImage Expected(TTestScreen const& screen, QSize const& size, QRect const& text, int flags,
                QString const& title)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::blue);
    QPainter painter(&picture);
    painter.drawPixmap(0, 0,
                       *screen->GetPixmapManager()->GetResizedPixmap(QStringLiteral("FullWindowTitlebar"),
                                                                     size.width(), size.height()));
    KVN::RenderUtils::RenderTextInsideRect(&painter, text, flags, title, 24, 12, QColor(255, 255, 255), true,
                                           true, true, true, false);
    return picture;
}
} // namespace

class TFullWindowTitlebarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStartsAsAStripAcrossAFullWindow()
    {
        TTestScreen screen;
        TFullWindowTitlebar bar(nullptr);
        QCOMPARE(bar.size(), QSize(689, 40));
        QCOMPARE(bar.minimumSize(), bar.maximumSize());
        QVERIFY(bar.testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(bar.GetTextRect(), QRect(QPoint(10, 0), QPoint(678, 23)));
        QVERIFY(bar.GetTitle().isEmpty());
    }

    void touchesGoThroughIt()
    {
        TTestScreen screen;
        TWindow window(screen.get());
        window.setFixedSize(300, 100);
        new TFullWindowTitlebar(&window);
        window.ShowWindow(false);
        int presses = 0;
        connect(&window, &TWindow::WindowMousePress, this, [&] { ++presses; });
        TFinger(screen.get()).Touch({20, 10});
        QCOMPARE(presses, 1);
    }

    void theTextKeepsItsMargins_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("text");
        QTest::newRow("its own size") << QSize(689, 40) << QRect(QPoint(10, 0), QPoint(678, 23));
        QTest::newRow("narrow") << QSize(100, 40) << QRect(QPoint(10, 0), QPoint(89, 23));
        QTest::newRow("tall") << QSize(689, 60) << QRect(QPoint(10, 0), QPoint(678, 43));
    }

    void theTextKeepsItsMargins()
    {
        QFETCH(QSize, size);
        QFETCH(QRect, text);
        TTestScreen screen;
        QWidget holder;
        TFullWindowTitlebar bar(&holder);
        bar.setFixedSize(size);
        holder.show();
        QCOMPARE(bar.GetTextRect(), text);
    }

    void anIncludedWidgetStandsAtTheRightEnd_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<int>("textRight");
        QTest::newRow("low") << QSize(50, 20) << QPoint(628, 2) << 618;
        QTest::newRow("odd") << QSize(51, 21) << QPoint(627, 1) << 617;
        QTest::newRow("as tall as the text") << QSize(50, 24) << QPoint(628, 0) << 618;
        QTest::newRow("taller than the text") << QSize(50, 31) << QPoint(628, -3) << 618;
    }

    void anIncludedWidgetStandsAtTheRightEnd()
    {
        QFETCH(QSize, size);
        QFETCH(QPoint, place);
        QFETCH(int, textRight);
        TTestScreen screen;
        TFullWindowTitlebar bar(nullptr);
        auto* const widget = new QWidget;
        widget->setFixedSize(size);
        bar.IncludeWidget(widget);
        QCOMPARE(widget->parentWidget(), &bar);
        QVERIFY(!widget->isVisibleTo(&bar));
        QCOMPARE(bar.GetTextRect().right(), 678);
        bar.IncludeWidgetInTitle(true);
        QVERIFY(widget->isVisibleTo(&bar));
        QCOMPARE(widget->pos(), place);
        QCOMPARE(bar.GetTextRect().right(), textRight);
        QCOMPARE(bar.GetTextRect().left(), 10);
        bar.IncludeWidgetInTitle(false);
        QVERIFY(!widget->isVisibleTo(&bar));
        QCOMPARE(bar.GetTextRect().right(), 678);
    }

    void anIncludedWidgetFollowsTheBarsWidth()
    {
        TTestScreen screen;
        QWidget holder;
        TFullWindowTitlebar bar(&holder);
        QWidget widget;
        widget.setFixedSize(50, 20);
        bar.IncludeWidgetInTitle(true);
        bar.IncludeWidget(&widget);
        QCOMPARE(widget.x(), 628);
        holder.show();
        bar.setFixedWidth(400);
        QCOMPARE(widget.x(), 339);
        QCOMPARE(bar.GetTextRect().right(), 329);
        widget.setFixedSize(80, 20);
        bar.RepositionContents();
        QCOMPARE(widget.x(), 309);
        QCOMPARE(bar.GetTextRect().right(), 299);
    }

    void theFormerWidgetIsGivenBack()
    {
        TTestScreen screen;
        TFullWindowTitlebar bar(nullptr);
        QWidget first;
        QWidget second;
        bar.IncludeWidgetInTitle(true);
        bar.IncludeWidget(&first);
        bar.IncludeWidget(&first);
        QVERIFY(first.isVisibleTo(&bar));
        bar.IncludeWidget(&second);
        QVERIFY(!first.parentWidget());
        QVERIFY(first.isHidden());
        bar.IncludeWidget(nullptr);
        QVERIFY(!second.parentWidget());
        QCOMPARE(bar.GetTextRect().right(), 678);
    }

    void anIncludedWidgetMayDie()
    {
        TTestScreen screen;
        TFullWindowTitlebar bar(nullptr);
        auto* const widget = new QWidget;
        bar.IncludeWidgetInTitle(true);
        bar.IncludeWidget(widget);
        delete widget;
        bar.RepositionContents();
        QCOMPARE(bar.GetTextRect().right(), 678);
        bar.IncludeWidgetInTitle(false);
        bar.IncludeWidget(nullptr);
    }

    void itPaintsItsTitleOnThePicture_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("flags");
        QTest::newRow("left") << "Boom height" << 129;
        QTest::newRow("right") << "Boom height" << int(Qt::AlignRight | Qt::AlignVCenter);
        QTest::newRow("long") << QString(60, QLatin1Char('W')) << 129;
    }

    void itPaintsItsTitleOnThePicture()
    {
        QFETCH(QString, title);
        QFETCH(int, flags);
        TTestScreen screen;
        QWidget holder;
        TFullWindowTitlebar bar(&holder);
        bar.SetTitle(title, flags);
        QCOMPARE(bar.GetTitle(), title);
        holder.show();
        QCOMPARE(Painted(bar), Expected(screen, bar.size(), bar.GetTextRect(), flags, title));
        bar.setFixedWidth(300);
        QCOMPARE(Painted(bar), Expected(screen, {300, 40}, bar.GetTextRect(), flags, title));
    }

    void withoutATitleItPaintsNothing()
    {
        TTestScreen screen;
        QWidget holder;
        TFullWindowTitlebar bar(&holder);
        bar.SetTitle(QStringLiteral("Boom"), 129);
        holder.show();
        bar.SetTitle(QString(), 129);
        QVERIFY(bar.isVisible());
        QImage empty(bar.size(), QImage::Format_ARGB32_Premultiplied);
        empty.fill(Qt::blue);
        QCOMPARE(Painted(bar), empty);
    }
};

COMMONUI_TEST(TFullWindowTitlebarTest)
#include "TFullWindowTitlebarTest.moc"
