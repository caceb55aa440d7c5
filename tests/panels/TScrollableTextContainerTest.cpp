#include "TScrollableTextContainer.h"

#include "TestCase.h"
#include "TFinger.h"
#include "TLabel.h"

#include <QScrollBar>

namespace
{
constexpr QSize Size(300, 200);
constexpr int FontSize = 16;
constexpr int LineHeight = 19;
constexpr int BarWidth = 33;

QString Lines(int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines << QStringLiteral("line %1").arg(i);
    return lines.join(QLatin1Char('\n'));
}

QFont Font()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(FontSize);
    return font;
}

/// A shown window with a container whose ground is black.
class TStage
{
public:
    TStage()
        : container(&window)
    {
        QPalette black;
        black.setColor(QPalette::Window, Qt::black);
        window.setPalette(black);
        window.resize(400, 400);
        container.setGeometry(QRect(QPoint(), Size));
        container.SetTextFormat(Qt::AlignLeft | Qt::AlignTop, true, Font());
        window.show();
        QCoreApplication::processEvents();
    }

    TLabel* Label() const { return container.findChild<TLabel*>(QStringLiteral("ScrollableText")); }
    QScrollBar* Bar() const { return container.verticalScrollBar(); }
    void Show(QString const& text)
    {
        container.SetText(text);
        QCoreApplication::processEvents();
    }
    /// The rows of the window in which text is seen, from its first to its last.
    QRect Ink()
    {
        QImage const picture = window.grab(QRect(0, 0, Size.width() - BarWidth, Size.height())).toImage();
        QRect ink;
        for (int y = 0; y < picture.height(); ++y)
        {
            for (int x = 0; x < picture.width(); ++x)
            {
                if (picture.pixel(x, y) != qRgb(0, 0, 0))
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    QWidget window;
    TScrollableTextContainer container;
};
} // namespace

class TScrollableTextContainerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsALabelWithoutAGround()
    {
        TStage const stage;
        QVERIFY(stage.Label());
        QCOMPARE(stage.container.widget(), stage.Label());
        for (QPalette::ColorGroup const group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(stage.Label()->palette().color(group, QPalette::Window).alpha(), 0);
    }

    void wheelOwnsItWhereItIsTooHigh()
    {
        TStage stage;
        QCOMPARE(stage.container.GetMMIBehaviour(), MMI_TRANSPARENT);
        stage.Show(Lines(10));
        QCOMPARE(stage.container.GetMMIBehaviour(), MMI_TRANSPARENT);
        stage.Show(Lines(11));
        QCOMPARE(stage.container.GetMMIBehaviour(), MMI_WHEEL_OWNER);
        stage.container.OnMMIWheelRight();
        QCOMPARE(stage.Bar()->value(), 11 * LineHeight - Size.height());
        stage.container.OnMMIWheelLeft();
        QCOMPARE(stage.Bar()->value(), 0);
    }

    void labelFitsTheWidthAndItsText()
    {
        TStage stage;
        stage.Show(Lines(5));
        QCOMPARE(stage.Label()->size(), QSize(Size.width(), 5 * LineHeight));
        stage.Show(Lines(50));
        QCOMPARE(stage.Label()->size(), QSize(Size.width() - BarWidth, 50 * LineHeight));
        stage.Show(Lines(3));
        QCOMPARE(stage.Label()->size(), QSize(Size.width(), 3 * LineHeight));
        QCOMPARE(stage.container.GetTextHeightForWidth(100), 3 * LineHeight);
        stage.container.resize(200, 30);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Label()->size(), QSize(200 - BarWidth, 3 * LineHeight));
    }

    void labelFitsBeforeItIsShown()
    {
        TScrollableTextContainer container(nullptr);
        container.SetTextFormat(Qt::AlignCenter, true, Font());
        container.resize(Size);
        container.SetText(Lines(20));
        QCOMPARE(container.GetText(), Lines(20));
        QCOMPARE(container.widget()->height(), 20 * LineHeight);
    }

    void formatIsThatOfTheLabel()
    {
        TStage stage;
        stage.Show(QStringLiteral("The tank is nearly empty, and the next field is far away"));
        QCOMPARE(stage.Label()->height(), 2 * LineHeight);
        QFont larger = Font();
        larger.setPixelSize(32);
        stage.container.SetTextFormat(Qt::AlignRight, true, larger);
        QVERIFY(stage.Label()->height() > 3 * LineHeight);
        QCOMPARE(stage.Label()->alignment(), Qt::AlignRight);
        QCOMPARE(stage.Label()->font().pixelSize(), 32);
        stage.container.SetTextFormat(Qt::AlignLeft, false, Font());
        QCOMPARE(stage.Label()->height(), LineHeight);
    }

    void newTextStartsAtItsBeginning()
    {
        TStage stage;
        stage.Show(Lines(50));
        stage.Bar()->setValue(300);
        stage.Show(Lines(60));
        QCOMPARE(stage.Bar()->value(), 0);
        QCOMPARE(stage.Label()->y(), 0);
    }

    void sameTextStillReturnsToItsBeginning()
    {
        TStage stage;
        stage.Show(Lines(50));
        stage.Bar()->setValue(300);
        stage.Label()->setFixedHeight(2000);
        stage.Show(Lines(50));
        QCOMPARE(stage.Bar()->value(), 0);
        QCOMPARE(stage.Label()->y(), 0);
        // It is not laid out again.
        QCOMPARE(stage.Label()->height(), 2000);
    }

    void giantTextScrollsToItsEnd_data()
    {
        QTest::addColumn<QString>("text");
        QString mixed;
        QString foreign;
        for (int i = 0; i < 50000; ++i)
        {
            mixed += QLatin1Char('a') + QString(QChar(0x05d0 + i % 20));
            foreign += QChar(0x4e00 + i % 5000) + QString(QChar(0x0e01 + i % 40));
        }
        QTest::newRow("words") << QStringLiteral("spraying ").repeated(11112);
        QTest::newRow("no blank") << QString(100000, 'm');
        QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(20000);
        QTest::newRow("both directions") << mixed;
        QTest::newRow("markup") << QStringLiteral("<p>&amp;<b>& ").repeated(7693);
        QTest::newRow("line ends") << QString(100000, '\n') + QStringLiteral("end");
        QTest::newRow("without glyphs") << foreign;
    }

    void giantTextScrollsToItsEnd()
    {
        QFETCH(QString, text);
        TStage stage;
        stage.Show(text);
        QCOMPARE(stage.container.GetText(), text);
        int const height = stage.Label()->height();
        QVERIFY(height > 1000 * LineHeight);
        QCOMPARE(stage.Bar()->maximum(), height - Size.height());
        stage.Bar()->setValue(stage.Bar()->maximum());
        QCOMPARE(stage.Label()->geometry().bottom(), Size.height() - 1);
        // The last line is there, and stands at the lower end.
        QVERIFY(stage.Ink().bottom() >= Size.height() - LineHeight);
        QVERIFY(stage.Ink().right() < Size.width() - BarWidth);
        TFinger finger(&stage.window);
        finger.Press(QPoint(100, 20));
        finger.Move(QPoint(100, 170));
        QCOMPARE(stage.Bar()->value(), stage.Bar()->maximum() - 150);
    }

    void giantTextFitsAgainAfterNoRoom_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("none") << QSize(0, 0);
        QTest::newRow("a pixel") << QSize(1, 1);
        QTest::newRow("less than the bar") << QSize(20, 20);
        QTest::newRow("the bar alone") << QSize(BarWidth, 100);
        QTest::newRow("no height") << QSize(Size.width(), 0);
    }

    void giantTextFitsAgainAfterNoRoom()
    {
        QFETCH(QSize, size);
        TStage stage;
        QString const text = QStringLiteral("spraying ").repeated(1112) + QString(90000, 'm');
        stage.Show(text);
        int const height = stage.Label()->height();
        stage.container.resize(size);
        stage.Show(QStringLiteral("short"));
        stage.Show(text);
        QCOMPARE(stage.Label()->width(), stage.container.viewport()->width());
        stage.container.resize(Size);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Label()->size(), QSize(Size.width() - BarWidth, height));
    }

    void heightIsToldForAnyWidth()
    {
        TStage stage;
        stage.Show(Lines(3));
        for (int const width : {INT_MIN, -1, 0, 1})
            QVERIFY(stage.container.GetTextHeightForWidth(width) >= 0);
        QCOMPARE(stage.container.GetTextHeightForWidth(INT_MAX), 3 * LineHeight);
    }

    void otherContentEndsTheText()
    {
        TStage stage;
        stage.Show(Lines(50));
        stage.container.setWidget(new QWidget);
        stage.Show(Lines(60));
        stage.container.SetTextFormat(Qt::AlignLeft, true, Font());
        stage.container.resize(100, 100);
        QCOMPARE(stage.container.GetText(), QString());
        QCOMPARE(stage.container.GetTextHeightForWidth(100), 0);
    }

    void slotOfTheBarMayDeleteIt()
    {
        QWidget window;
        QPointer<TScrollableTextContainer> container = new TScrollableTextContainer(&window);
        container->resize(Size);
        window.show();
        container->SetText(Lines(50));
        QCoreApplication::processEvents();
        container->verticalScrollBar()->setValue(300);
        connect(container, &TScrollArea::Scroll, this, [&] { delete container; });
        container->SetText(Lines(60));
        QVERIFY(!container);
    }
};

COMMONUI_TEST(TScrollableTextContainerTest)

#include "TScrollableTextContainerTest.moc"
