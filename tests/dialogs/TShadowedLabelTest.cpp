#include "TShadowedLabel.h"

#include "Metrics.h"
#include "OddTexts.h"
#include "RenderUtils.h"
#include "TestCase.h"

#include <QImage>

namespace
{
constexpr int FontSize = 16;
constexpr int LineHeight = 19;
QString const Text = QStringLiteral("Section control is switched off");

class TShownLabel : public TShadowedLabel
{
public:
    explicit TShownLabel(QString const& text, EFitOptions fit = FIT_NONE)
        : TShadowedLabel(text, nullptr, fit)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(FontSize);
        setFont(font);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        SetTextColor(Qt::white);
        resize(400, 30);
    }

    QImage Picture(QColor const& ground = Qt::blue)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(ground);
        render(&image, QPoint(), QRegion(), DrawChildren);
        return image;
    }
};

QRect Ink(QImage const& image)
{
    QRgb const ground = image.pixel(image.width() - 1, image.height() - 1);
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

bool Shows(QImage const& image, QColor const& color)
{
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) == color.rgb())
                return true;
        }
    }
    return false;
}
} // namespace

class TShadowedLabelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KVN::RenderUtils::ClearTextCache(); }

    void everyFormStartsAlike()
    {
        QWidget parent;
        TShadowedLabel const bare(FIT_ELIDE);
        TShadowedLabel const child(&parent, FIT_ELIDE);
        TShadowedLabel const full(Text, &parent, FIT_ELIDE);
        QVERIFY(!bare.parentWidget());
        QCOMPARE(child.parentWidget(), &parent);
        QCOMPARE(full.text(), Text);
        QCOMPARE(full.textFormat(), Qt::PlainText);
    }

    void shadowStandsOnePixelDownAndRight()
    {
        TShownLabel label(QStringLiteral("H"));
        QRect const shadowOnly = Ink(label.Picture(Qt::white));
        label.SetTextColor(Qt::red);
        QRect const both = Ink(label.Picture(Qt::white));
        QCOMPARE(both.top(), shadowOnly.top() - 1);
        QVERIFY(both.left() < shadowOnly.left());
        QCOMPARE(both.bottomRight(), shadowOnly.bottomRight());
    }

    void colourIsThatOfTheStyleUnlessItIsSet()
    {
        TShownLabel label(Text);
        label.SetTextColor(QColor());
        label.setStyleSheet(QStringLiteral("TShadowedLabel { color: yellow; }"));
        QVERIFY(Shows(label.Picture(), Qt::yellow));
        label.SetTextColor(Qt::red);
        QVERIFY(Shows(label.Picture(), Qt::red));
        QVERIFY(!Shows(label.Picture(), Qt::yellow));
    }

    void leftMarginMovesTheText()
    {
        TShownLabel label(Text);
        int const left = Ink(label.Picture()).left();
        QSize const hint = label.sizeHint();
        label.SetLeftMargin(25);
        QCOMPARE(Ink(label.Picture()).left(), left + 25);
        QCOMPARE(label.sizeHint(), hint + QSize(25, 0));
        QCOMPARE(label.minimumSizeHint(), label.QLabel::minimumSizeHint() + QSize(25, 0));
    }

    void textThatIsTooWideIsFittedInAsAskedFor()
    {
        TShownLabel label(Text, FIT_NONE);
        label.resize(label.GetTextBoundary(label.rect()).width() * 3 / 4, 30);
        QImage const cut = label.Picture();
        QCOMPARE(Ink(cut).right(), label.width() - 1);
        label.SetFitMinimumTextSize(8);
        label.SetFitOption(FIT_SHRINK);
        QImage const shrunk = label.Picture();
        QVERIFY(Ink(shrunk).right() < label.width());
        QVERIFY(Ink(shrunk).height() < Ink(cut).height());
        label.SetFitOption(FIT_ELIDE);
        QImage const elided = label.Picture();
        QVERIFY(Ink(elided).right() < label.width());
        QVERIFY(elided != cut && elided != shrunk);
        label.SetFitOption(FIT_SHRINK_AND_ELIDE);
        QCOMPARE(label.Picture(), shrunk);
        label.SetFitMinimumTextSize(FontSize);
        QCOMPARE(label.Picture(), elided);
    }

    void fontShrinksToTheMinimumFontSizeAtFirst()
    {
        TShownLabel label(Text, FIT_SHRINK);
        label.resize(40, 30);
        QImage const picture = label.Picture();
        label.SetFitMinimumTextSize(MINIMUM_FONT_SIZE);
        QCOMPARE(label.Picture(), picture);
        label.SetFitMinimumTextSize(MINIMUM_FONT_SIZE - 1);
        QVERIFY(label.Picture() != picture);
    }

    void wrapsWhereTheLabelDoes()
    {
        TShownLabel label(Text);
        label.resize(120, 100);
        QVERIFY(Ink(label.Picture()).height() < LineHeight + 1);
        label.setWordWrap(true);
        QVERIFY(Ink(label.Picture()).height() > LineHeight + 5);
    }

    void boundaryIsThatOfTheFont()
    {
        TShownLabel label(Text);
        QRect const area(3, 4, 100, 200);
        QFontMetrics const metrics(label.font());
        QCOMPARE(label.GetTextBoundary(area), metrics.boundingRect(area, Qt::AlignLeft | Qt::AlignTop, Text));
        label.setWordWrap(true);
        label.setAlignment(Qt::AlignCenter);
        QCOMPARE(label.GetTextBoundary(area),
                 metrics.boundingRect(area, Qt::AlignCenter | Qt::TextWordWrap, Text));
    }

    // As wide as "switched off" the label shows three lines; a margin makes room for a longer line or takes
    // it.
    void heightGrowsWithTheLines_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<QString>("longest");
        QTest::addColumn<int>("maxLines");
        QTest::addColumn<int>("lines"); // of the new height; 0: it stays as it is
        QString const noMargin = QStringLiteral("switched off");
        QString const more = QStringLiteral("switched");
        QString const fewer = QStringLiteral("Section control is");
        QTest::newRow("fits") << 57 << noMargin << 1 << 0;
        QTest::newRow("fits with room") << 80 << noMargin << 5 << 0;
        QTest::newRow("lacks one pixel") << 56 << noMargin << 1 << 3;
        QTest::newRow("three labels high") << 19 << noMargin << 3 << 3;
        QTest::newRow("two lines allowed") << 19 << noMargin << 2 << 0;
        QTest::newRow("rounded down") << 23 << noMargin << 2 << 3;
        QTest::newRow("rounded up") << 22 << noMargin << 2 << 0;
        QTest::newRow("no line allowed") << 19 << noMargin << 0 << 0;
        QTest::newRow("no height") << 0 << noMargin << 100 << 0;
        QTest::newRow("margin that makes it longer, too long") << 19 << more << 2 << 0;
        QTest::newRow("margin that is not looked at") << 19 << more << 3 << 3;
        QTest::newRow("margin that makes it shorter") << 19 << fewer << 2 << 2;
        QTest::newRow("margin that makes it shorter, too long") << 19 << fewer << 1 << 0;
    }

    void heightGrowsWithTheLines()
    {
        QFETCH(int, height);
        QFETCH(QString, longest);
        QFETCH(int, maxLines);
        QFETCH(int, lines);
        TShownLabel label(Text);
        QFontMetrics const metrics(label.font());
        int const width = metrics.horizontalAdvance(QStringLiteral("switched off")) + 2;
        label.setWordWrap(true);
        label.SetLeftMargin(width - metrics.horizontalAdvance(longest) - 2);
        label.resize(width, height);
        QCOMPARE(label.GetTextBoundary(label.rect()).height(), 3 * LineHeight);
        QCOMPARE(label.SetHeight(maxLines), lines > 0);
        QCOMPARE(label.height(), lines > 0 ? lines * LineHeight : height);
    }

    void heightIsSetOnce()
    {
        TShownLabel label(QStringLiteral("one\ntwo\nthree"));
        label.resize(200, LineHeight);
        QVERIFY(label.SetHeight(3));
        QVERIFY(!label.SetHeight(3));
        QCOMPARE(label.minimumHeight(), 3 * LineHeight);
        QCOMPARE(label.maximumHeight(), 3 * LineHeight);
    }

    void textThatIsOnlyTooWideTakesItsHeightToo()
    {
        TShownLabel label(Text);
        label.resize(40, 30);
        QVERIFY(!label.SetHeight(0));
        QVERIFY(label.SetHeight(1));
        QCOMPARE(label.height(), LineHeight);
    }

    void giantTextIsMeasuredAndDrawn_data() { AddOddTexts(); }

    void giantTextIsMeasuredAndDrawn()
    {
        QFETCH(QString, text);
        for (bool const wrap : {true, false})
        {
            TShownLabel label(text, FIT_SHRINK_AND_ELIDE);
            label.setWordWrap(wrap);
            QVERIFY(label.sizeHint().height() > 0);
            QVERIFY(label.minimumSizeHint().width() < 200);
            int const lines = label.heightForWidth(200) / LineHeight;
            QVERIFY(wrap ? lines > 100 : lines == text.count(QLatin1Char('\n')) + 1);
            label.SetHeight(3);
            QVERIFY(!Ink(label.Picture()).isEmpty());
        }
    }

    void maySeeItsEndWhileShown()
    {
        QWidget window;
        auto* const label = new TShadowedLabel(Text, &window, FIT_SHRINK);
        window.show();
        QCoreApplication::processEvents();
        delete label;
        QCoreApplication::processEvents();
        QVERIFY(window.children().isEmpty());
    }
};

COMMONUI_TEST(TShadowedLabelTest)

#include "TShadowedLabelTest.moc"
