#include "TLabel.h"

#include "OddTexts.h"
#include "Palette.h"
#include "RenderUtils.h"
#include "TestCase.h"

#include <QImage>
#include <QVBoxLayout>

namespace
{
constexpr int FontSize = 16;
constexpr int LineHeight = 19;

QString const TwoLines = QStringLiteral("The tank is nearly empty");
constexpr int Narrow = 130;

/// A label on black, as the operator sees it.
class TShownLabel : public TLabel
{
public:
    explicit TShownLabel(QString const& text = QString())
        : TLabel(text, nullptr)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(FontSize);
        setFont(font);
        setWordWrap(true);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        resize(Narrow, 100);
    }

    QImage Picture(QColor const& ground = Qt::black)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(ground);
        render(&image, QPoint(), QRegion(), DrawChildren);
        return image;
    }
};

/// What differs from the ground, which is the colour of the top left corner.
QRect Ink(QImage const& image)
{
    QRgb const ground = image.pixel(0, 0);
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

class TLabelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KVN::RenderUtils::ClearTextCache(); }

    void startsAsPlainTextInTheRegularColour()
    {
        TLabel const label(nullptr);
        QCOMPARE(label.textFormat(), Qt::PlainText);
        QCOMPARE(label.palette().color(QPalette::ColorRole(5)), regularTextColor);
        QCOMPARE(label.sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(TLabel(TwoLines, nullptr).text(), TwoLines);
    }

    void textIsDrawnInItsColour()
    {
        TShownLabel label(TwoLines);
        QVERIFY(Shows(label.Picture(), regularTextColor));
        label.SetTextColor(Qt::red);
        QVERIFY(Shows(label.Picture(), Qt::red));
        QVERIFY(!Shows(label.Picture(), regularTextColor));
        label.setEnabled(false);
        QVERIFY(Shows(label.Picture(), Qt::red));
    }

    void markupIsShownAsItStands()
    {
        TShownLabel label(QStringLiteral("<b>5 &amp; 6</b> & 7"));
        TShownLabel plain(QStringLiteral("5 & 6 & 7"));
        label.setWordWrap(false);
        label.resize(400, 30);
        QVERIFY(Ink(label.Picture()).width() > Ink(plain.Picture()).width());
        QCOMPARE(label.heightForWidth(400), LineHeight);
    }

    void shadowStandsOnePixelDownAndRight()
    {
        TShownLabel label(QStringLiteral("H"));
        label.SetTextColor(Qt::red);
        QRect const ink = Ink(label.Picture(Qt::white));
        label.SetTextColor(Qt::white);
        QCOMPARE(Ink(label.Picture(Qt::white)), QRect());
        label.SetShadow(true);
        QCOMPARE(Ink(label.Picture(Qt::white)).bottomRight(), ink.bottomRight() + QPoint(1, 1));
        QVERIFY(Ink(label.Picture(Qt::white)).left() > ink.left());
        label.SetShadow(false);
        QCOMPARE(Ink(label.Picture(Qt::white)), QRect());
    }

    void leftMarginMovesTheTextAndTakesFromItsWidth()
    {
        TShownLabel label(TwoLines);
        QRect const ink = Ink(label.Picture());
        QCOMPARE(label.heightForWidth(Narrow), 2 * LineHeight);
        label.SetLeftMargin(25);
        QCOMPARE(Ink(label.Picture()).left(), ink.left() + 25);
        QCOMPARE(label.heightForWidth(Narrow + 25), 2 * LineHeight);
        QVERIFY(label.heightForWidth(Narrow) > 2 * LineHeight);
    }

    void sameTextDoesNotResize()
    {
        TShownLabel label(TwoLines);
        label.SetAdjustHeight(true);
        QCOMPARE(label.height(), 2 * LineHeight);
        label.setFixedHeight(90);
        label.setText(TwoLines);
        QCOMPARE(label.height(), 90);
        label.setText(TwoLines + TwoLines);
        QVERIFY(label.height() > 2 * LineHeight && label.height() < 90);
    }

    void heightFollowsTextAndWidthWhereItIsAdjusted()
    {
        QWidget window;
        TShownLabel label(TwoLines);
        label.setParent(&window);
        window.show();
        label.show();
        label.resize(Narrow + 10, 100);
        label.SetLeftMargin(10);
        label.SetAdjustHeight(true);
        QCOMPARE(label.height(), 2 * LineHeight);
        label.resize(500, label.height());
        QCOMPARE(label.height(), LineHeight);
        label.SetLeftMargin(370);
        QCOMPARE(label.height(), 2 * LineHeight);
        label.setText(QString());
        QCOMPARE(label.height(), 2 * LineHeight);
    }

    void hintsLeaveRoomForTheMargin()
    {
        TShownLabel label(TwoLines);
        QSize const hint = label.sizeHint();
        QSize const least = label.minimumSizeHint();
        label.SetLeftMargin(30);
        QCOMPARE(label.sizeHint(), hint + QSize(30, 0));
        QCOMPARE(label.minimumSizeHint(), least + QSize(30, 0));
    }

    void layoutGivesAWrappedTextItsHeight()
    {
        QWidget window;
        auto* const page = new QWidget(&window);
        auto* const rows = new QVBoxLayout(page);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        auto* const label = new TShownLabel(TwoLines);
        rows->addWidget(label);
        rows->addStretch();
        page->resize(Narrow, 200);
        window.show();
        QCOMPARE(label->height(), 2 * LineHeight);
        label->setText(TwoLines + QLatin1Char('\n') + TwoLines);
        QCoreApplication::processEvents();
        QCOMPARE(label->height(), 4 * LineHeight);
    }

    void textOfAFontInPointsIsMeasuredAndDrawnAlike()
    {
        TShownLabel label(TwoLines.repeated(4));
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSizeF(11.3);
        label.setFont(font);
        label.setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        label.resize(Narrow, label.heightForWidth(Narrow));
        QImage const fitted = label.Picture();
        label.resize(Narrow, label.height() + 50);
        QCOMPARE(fitted, label.Picture().copy(0, 50, Narrow, fitted.height()));
    }

    void boldFontStaysBold()
    {
        TShownLabel label(QStringLiteral("Tank"));
        int const light = Ink(label.Picture()).width();
        QFont font = label.font();
        font.setBold(true);
        label.setFont(font);
        QVERIFY(Ink(label.Picture()).width() > light);
    }

    void withoutWordWrapLinesEndWhereTheTextEndsThem()
    {
        TShownLabel label(QStringLiteral("one\ntwo\nthree and a lot more than the label has room for"));
        label.setWordWrap(false);
        QCOMPARE(label.heightForWidth(Narrow), 3 * LineHeight);
        QVERIFY(Ink(label.Picture()).bottom() > 2 * LineHeight);
        QVERIFY(Ink(label.Picture()).bottom() < 3 * LineHeight);
    }

    void invalidColourShowsNothing()
    {
        TShownLabel label(TwoLines);
        label.SetTextColor(Qt::transparent);
        QVERIFY(Ink(label.Picture()).isEmpty());
    }

    void giantTextIsShownFromItsBeginning_data() { AddOddTexts(); }

    void giantTextIsShownFromItsBeginning()
    {
        QFETCH(QString, text);
        for (bool const wrap : {true, false})
        {
            TShownLabel label(text);
            label.setWordWrap(wrap);
            QVERIFY(label.sizeHint().height() >= LineHeight);
            QVERIFY(label.minimumSizeHint().width() < 200);
            QVERIFY(!Ink(label.Picture()).isEmpty());
        }
    }

    void partOfAHighLabelIsDrawnAsTheWhole()
    {
        TShownLabel label(TwoLines.repeated(900));
        label.setAlignment(Qt::AlignCenter);
        label.resize(Narrow, label.heightForWidth(Narrow));
        QImage const whole = label.Picture();
        QRect const part(0, 4321, Narrow, 55);
        QImage picture(label.size(), QImage::Format_RGB32);
        picture.fill(Qt::black);
        label.render(&picture, part.topLeft(), part, QWidget::DrawChildren);
        QCOMPARE(picture.copy(part), whole.copy(part));
    }

    void maySeeItsEndWhileShown()
    {
        QWidget window;
        auto* const label = new TLabel(TwoLines, &window);
        window.show();
        QCoreApplication::processEvents();
        delete label;
        QCoreApplication::processEvents();
        QVERIFY(window.children().isEmpty());
    }

    void heightIsLeftAloneUnlessItIsAdjusted()
    {
        TShownLabel label(TwoLines);
        label.setText(TwoLines.repeated(5));
        label.Resize();
        QCOMPARE(label.height(), 100);
    }
};

COMMONUI_TEST(TLabelTest)

#include "TLabelTest.moc"
