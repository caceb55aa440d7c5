#include "RenderUtils.h"

#include "TestCase.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRandomGenerator>

#include <functional>

using KVN::RenderUtils;

namespace
{
constexpr int FontSize = 14;
constexpr int SmallSize = 10;

QFont FontOfSize(int size)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(size);
    return font;
}

/// What \a draw leaves on a white canvas.
QImage Canvas(QSize const& size, std::function<void(QPainter*)> const& draw)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(FontOfSize(FontSize));
    draw(&painter);
    return image;
}

/// The smallest rectangle of the image outside of which it is white.
QRect Ink(QImage const& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// The button form on a canvas that is just the rectangle.
QImage Elided(QString const& text, QSize const& size, int fontSize, int minSize, bool wrap = true)
{
    return Canvas(size,
                  [&](QPainter* painter)
                  {
                      RenderUtils::RenderElidedTextInsideRect(painter, FontOfSize(FontSize),
                                                              QRect(QPoint(), size), text, fontSize, minSize,
                                                              Qt::black, wrap, false, true);
                  });
}

struct TOptions
{
    bool wrap = true;
    bool shrink = true;
    bool elide = true;
    bool antialias = true;
    bool shadow = false;
};

QImage Inside(QString const& text, QSize const& size, int flags, TOptions const& options = {})
{
    return Canvas(size,
                  [&](QPainter* painter)
                  {
                      RenderUtils::RenderTextInsideRect(painter, QRect(QPoint(), size), flags, text, FontSize,
                                                        SmallSize, Qt::black, options.wrap, options.shrink,
                                                        options.elide, options.antialias, options.shadow);
                  });
}

/// The plain form on a canvas that is just the rectangle, in the part \a seen of it.
QImage Plain(QString const& text, QSize const& size, int flags, QTextOption::WrapMode wrap, bool bold = false,
             bool shadow = false, QRect const& seen = QRect())
{
    return Canvas(size,
                  [&](QPainter* painter)
                  {
                      if (!seen.isNull())
                          painter->setClipRect(seen);
                      RenderUtils::RenderText(painter, QRect(QPoint(), size), flags, wrap, text, FontSize,
                                              Qt::black, bold, shadow, FontOfSize(SmallSize));
                  });
}

int Width(QString const& text, int size)
{
    return QFontMetrics(FontOfSize(size)).horizontalAdvance(text);
}

int LineHeight(int size)
{
    return RenderUtils::GetTextHeight(QString(), FontOfSize(size), 100);
}

QString RandomText(QRandomGenerator& random)
{
    QString text;
    int const words = random.bounded(1, 12);
    for (int i = 0; i < words; ++i)
    {
        for (int letter = random.bounded(1, 14); letter > 0; --letter)
            text += QChar('a' + random.bounded(26));
        text += random.bounded(8) == 0 ? QLatin1Char('\n') : QLatin1Char(' ');
    }
    return text.trimmed();
}

QImage TestArt(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(4 * x, 4 * y, (x * 7 + y * 13) % 256));
    }
    return image;
}
} // namespace

class RenderUtilsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { RenderUtils::ClearTextCache(); }

    void emptyTextIsOneLineHigh_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("wide") << 500;
        QTest::newRow("narrow") << 1;
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -20;
    }

    void emptyTextIsOneLineHigh()
    {
        QFETCH(int, width);
        int const expected = QFontMetrics(FontOfSize(FontSize)).height();
        QCOMPARE(RenderUtils::GetTextHeight(QString(), FontOfSize(FontSize), width), expected);
    }

    void heightCountsTheLines_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("lines");
        int const twoWords = Width(QStringLiteral("sprayer ready"), FontSize);
        QTest::newRow("one word") << "sprayer" << 500 << 1;
        QTest::newRow("words that just fit") << "sprayer ready" << twoWords + 1 << 1;
        QTest::newRow("words that just do not") << "sprayer ready" << twoWords - 1 << 2;
        QTest::newRow("line end") << "one\ntwo\nthree" << 500 << 3;
        QTest::newRow("line end of another system") << "one\r\ntwo" << 500 << 2;
        QTest::newRow("empty line between") << "one\n\nthree" << 500 << 3;
        QTest::newRow("line end at the end") << "one\n" << 500 << 1;
        QTest::newRow("only line ends") << "\n\n" << 500 << 1;
        QTest::newRow("only control characters") << QString(QChar(1)) + QChar(2) << 500 << 1;
        QTest::newRow("long word is broken anywhere")
            << QString(30, 'm') << Width(QString(10, 'm'), FontSize) + 1 << 3;
        QTest::newRow("one letter for each line") << "mmm" << 1 << 3;
        QTest::newRow("no width") << "one two three" << 0 << 1;
    }

    void heightCountsTheLines()
    {
        QFETCH(QString, text);
        QFETCH(int, width);
        QFETCH(int, lines);
        for (int repeat = 0; repeat < 2; ++repeat)
            QCOMPARE(RenderUtils::GetTextHeight(text, FontOfSize(FontSize), width),
                     lines * LineHeight(FontSize));
    }

    void heightIsAWholeNumberOfLines()
    {
        QRandomGenerator random(7);
        for (int i = 0; i < 300; ++i)
        {
            int const size = random.bounded(8, 40);
            int const height =
                RenderUtils::GetTextHeight(RandomText(random), FontOfSize(size), random.bounded(1, 300));
            QVERIFY(height > 0);
            QCOMPARE(height % LineHeight(size), 0);
        }
    }

    void longTextIsBrokenLikeAShortOne_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("latin") << "spraying ";
        QTest::newRow("hebrew") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd\u05e9\u05dc\u05d5\u05dd ");
        QTest::newRow("long word") << "spraying-without-any-blank-and-very-long ";
    }

    void longTextIsBrokenLikeAShortOne()
    {
        QFETCH(QString, word);
        constexpr int WordsInALine = 3;
        constexpr int Lines = 700;
        int const width = Width(word.repeated(WordsInALine).trimmed(), FontSize) + 2;
        QString const text = word.repeated(WordsInALine * Lines).trimmed();
        QCOMPARE(RenderUtils::GetTextHeight(text, FontOfSize(FontSize), width), Lines * LineHeight(FontSize));
    }

    void textOfTheMeasuredHeightIsNotElided()
    {
        QRandomGenerator random(11);
        for (int i = 0; i < 200; ++i)
        {
            QString const text = RandomText(random);
            int const width = random.bounded(30, 300);
            int const height = RenderUtils::GetTextHeight(text, FontOfSize(FontSize), width);
            int const line = LineHeight(FontSize);
            QImage const fitted = Elided(text, {width, height}, FontSize, SmallSize);
            QImage const roomy = Elided(text, {width, height + 2 * line}, FontSize, SmallSize);
            QVERIFY2(fitted == roomy.copy(0, line, width, height), qPrintable(text));
        }
    }

    void everyLineOfALongTextIsDrawn()
    {
        QString const text = QStringLiteral("rates ").repeated(300).trimmed();
        int const height = RenderUtils::GetTextHeight(text, FontOfSize(FontSize), 100);
        int const line = LineHeight(FontSize);
        QVERIFY(height > 50 * line);
        QImage const drawn = Elided(text, {100, height}, FontSize, SmallSize);
        for (int top = 0; top < height; top += line)
            QVERIFY2(!Ink(drawn.copy(0, top, 100, line)).isEmpty(), qPrintable(QString::number(top)));
    }

    void textOfTheMeasuredWidthIsNotElided()
    {
        QRandomGenerator random(17);
        TOptions elide;
        elide.wrap = elide.shrink = false;
        for (int i = 0; i < 40; ++i)
        {
            QString const text = RandomText(random);
            int const width = RenderUtils::GetTextWidth(text, FontOfSize(FontSize));
            int const height = LineHeight(FontSize);
            QImage const fitted = Inside(text, {width, height}, Qt::AlignLeft, elide);
            QImage const roomy = Inside(text, {2 * width, height}, Qt::AlignLeft, elide);
            QVERIFY2(fitted == roomy.copy(0, 0, width, height), qPrintable(text));
            QImage const tight = Inside(text, {width - 1, height}, Qt::AlignLeft, elide);
            QVERIFY2(tight != roomy.copy(0, 0, width - 1, height), qPrintable(text));
        }
    }

    void measuredWidthIsThatOfWhatIsDrawn()
    {
        QFont const font = FontOfSize(FontSize);
        QCOMPARE(RenderUtils::GetTextWidth(QString(), font), 0);
        int const two = RenderUtils::GetTextWidth(QStringLiteral("ab"), font);
        QVERIFY(qAbs(two - Width(QStringLiteral("ab"), FontSize)) <= 1);
        QCOMPARE(RenderUtils::GetTextWidth(QStringLiteral("a\x01\x1f"
                                                          "b"),
                                           font),
                 two);
        QCOMPARE(RenderUtils::GetTextWidth(QStringLiteral("a\nb\tc"), font),
                 RenderUtils::GetTextWidth(QStringLiteral("a b c"), font));
        // Beyond any screen it is measured no more.
        QVERIFY(RenderUtils::GetTextWidth(QString(100000, QLatin1Char('i')), font) > 4096);
        QCOMPARE(RenderUtils::GetTextWidth(QString(100000, QLatin1Char('i')), font),
                 RenderUtils::GetTextWidth(QString(200000, QLatin1Char('i')), font));
    }

    void textThatIsTooHighShrinksByOneUntilItFits()
    {
        QRandomGenerator random(5);
        int shrunk = 0;
        for (int i = 0; i < 100; ++i)
        {
            QString const text = RandomText(random);
            QSize const area(random.bounded(80, 200), random.bounded(20, 80));
            int size = 24;
            while (size > SmallSize &&
                   RenderUtils::GetTextHeight(text, FontOfSize(size), area.width()) > area.height())
                --size;
            shrunk += size < 24 && size > SmallSize ? 1 : 0;
            QCOMPARE(Elided(text, area, 24, SmallSize), Elided(text, area, size, size));
        }
        QVERIFY(shrunk > 20);
    }

    void singleLineThatIsTooWideShrinksUntilItFits()
    {
        QString const text = QStringLiteral("Section control");
        for (int size = SmallSize; size < 24; ++size)
        {
            QSize const area(Width(text, size) + 1, 40);
            QImage const drawn = Elided(text, area, 24, SmallSize, false);
            QCOMPARE(drawn, Elided(text, area, size, size, false));
            QVERIFY(!Ink(drawn).isEmpty());
        }
    }

    void whatDoesNotFitAtTheSmallestSizeIsElided()
    {
        QString const text = QStringLiteral("Section control is switched off");
        QSize const area(90, 30);
        QString const expected =
            QFontMetrics(FontOfSize(SmallSize)).elidedText(text, Qt::ElideRight, area.width());
        QVERIFY(expected.endsWith(QChar(0x2026)));
        QCOMPARE(Elided(text, area, FontSize, SmallSize, false),
                 Elided(expected, area, SmallSize, SmallSize, false));
    }

    void lastOfTheLinesThatFitIsElided()
    {
        int const width = Width(QStringLiteral("alpha beta"), FontSize) + 2;
        QSize const area(width, 2 * LineHeight(FontSize));
        QFontMetrics const metrics(FontOfSize(FontSize));
        QString const text = QStringLiteral("alpha beta gamma delta epsilon zeta");
        QString const last =
            metrics.elidedText(QStringLiteral("gamma delta epsilon zeta"), Qt::ElideRight, width);
        QCOMPARE(Elided(text, area, FontSize, FontSize),
                 Elided(QStringLiteral("alpha beta\n") + last, area, FontSize, FontSize));
    }

    void ellipsisTellsOfALineThatWasLeftOut()
    {
        QSize const area(100, LineHeight(FontSize));
        QCOMPARE(Elided(QStringLiteral("one\ntwo"), area, FontSize, FontSize),
                 Elided(QStringLiteral("one\u2026"), area, FontSize, FontSize));
    }

    void plainTextIsDrawnAsItIsMeasured_data()
    {
        QTest::addColumn<bool>("wrap");
        QTest::newRow("wrapped") << true;
        QTest::newRow("at its line ends") << false;
    }

    void plainTextIsDrawnAsItIsMeasured()
    {
        QFETCH(bool, wrap);
        auto const mode = wrap ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap;
        QRandomGenerator random(3);
        for (int i = 0; i < 100; ++i)
        {
            QString const text = RandomText(random);
            int const width = random.bounded(60, 200);
            int const height = RenderUtils::GetTextHeight(text, FontOfSize(FontSize), width, wrap);
            int const line = LineHeight(FontSize);
            QImage const fitted = Plain(text, {width, height}, Qt::AlignCenter, mode);
            QImage const roomy = Plain(text, {width, height + 2 * line}, Qt::AlignCenter, mode);
            QVERIFY2(fitted == roomy.copy(0, line, width, height), qPrintable(text));
            QVERIFY(Ink(fitted).top() < line);
            QVERIFY(Ink(fitted).bottom() >= height - line);
        }
    }

    void plainTextBreaksAtItsOwnLineEndsAlone()
    {
        QSize const area(60, 120);
        QString const text = QStringLiteral("first of the lines\nsecond\n\nfourth");
        QCOMPARE(RenderUtils::GetTextHeight(text, FontOfSize(FontSize), 60, false), 4 * LineHeight(FontSize));
        QImage const drawn = Plain(text, area, Qt::AlignTop, QTextOption::NoWrap);
        QCOMPARE(drawn, Plain(text, area, Qt::AlignTop, QTextOption::ManualWrap));
        QVERIFY(Ink(drawn).right() >= area.width() - 2);
        QVERIFY(drawn != Plain(text, area, Qt::AlignTop, QTextOption::WordWrap));
        QImage const second =
            Plain(QStringLiteral("second"), {60, LineHeight(FontSize)}, Qt::AlignTop, QTextOption::NoWrap);
        QCOMPARE(drawn.copy(0, LineHeight(FontSize), 60, LineHeight(FontSize)), second);
    }

    void plainTextKeepsItsSizeAndHasNoEllipsis()
    {
        QSize const area(60, LineHeight(FontSize));
        QString const text = QStringLiteral("Section control");
        QCOMPARE(
            Plain(text, area, Qt::AlignTop, QTextOption::NoWrap),
            Plain(text, {400, area.height()}, Qt::AlignTop, QTextOption::NoWrap).copy(QRect(QPoint(), area)));
    }

    void plainTextIsBoldOnDemand()
    {
        QSize const area(200, 40);
        QString const text = QStringLiteral("Section");
        int const light = Ink(Plain(text, area, 0, QTextOption::NoWrap)).width();
        QVERIFY(Ink(Plain(text, area, 0, QTextOption::NoWrap, true)).width() > light);
    }

    void plainTextOfAnyHeightIsDrawnLineByLine_data()
    {
        QTest::addColumn<int>("flags");
        QTest::newRow("left") << int(Qt::AlignLeft | Qt::AlignTop);
        QTest::newRow("centred") << int(Qt::AlignCenter);
        QTest::newRow("right, bottom") << int(Qt::AlignRight | Qt::AlignBottom);
    }

    // Large enough to be drawn without a picture, in comparison with the picture of one line.
    void plainTextOfAnyHeightIsDrawnLineByLine()
    {
        QFETCH(int, flags);
        int const line = LineHeight(FontSize);
        QStringList numbers;
        for (int i = 0; i < 900; ++i)
            numbers << QString::number(i);
        QString const text = numbers.join(QLatin1Char('\n'));
        QSize const area(200, 900 * line);
        auto const wrap = QTextOption::WrapAtWordBoundaryOrAnywhere;
        QImage const whole = Plain(text, area, flags, wrap, false, true);
        for (int const i : {0, 17, 899})
            QCOMPARE(whole.copy(0, i * line, 200, line),
                     Plain(numbers[i], {200, line}, flags, wrap, false, true));
        QRect const seen(1, 17 * line + 5, 198, 3 * line);
        QImage const part = Plain(text, area, flags, wrap, false, true, seen);
        QCOMPARE(part.copy(seen), whole.copy(seen));
        QVERIFY(seen.contains(Ink(part)));
    }

    void giantPlainTextIsDrawnToItsEnd_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("wrap");
        QString mixed;
        QString signs;
        for (int i = 0; i < 50000; ++i)
        {
            mixed += QLatin1Char('a') + QString(QChar(0x05d0 + i % 20));
            signs += QChar(0x4e00 + i % 5000) + QString(QChar(0x0e01 + i % 40));
        }
        for (bool const wrap : {true, false})
        {
            char const* const mode = wrap ? "wrapped" : "lines";
            QTest::addRow("%s, words", mode) << QStringLiteral("rates ").repeated(16667) << wrap;
            QTest::addRow("%s, no blank", mode) << QString(100000, 'm') << wrap;
            QTest::addRow("%s, line ends", mode) << QString(100000, '\n') + QLatin1Char('x') << wrap;
            QTest::addRow("%s, both directions", mode) << mixed << wrap;
            QTest::addRow("%s, without glyphs", mode) << signs << wrap;
            QTest::addRow("%s, right to left", mode)
                << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(20000) << wrap;
        }
    }

    void giantPlainTextIsDrawnToItsEnd()
    {
        QFETCH(QString, text);
        QFETCH(bool, wrap);
        int const height = RenderUtils::GetTextHeight(text, FontOfSize(FontSize), 400, wrap);
        QCOMPARE(height % LineHeight(FontSize), 0);
        QSize const window(400, 300);
        auto const mode = wrap ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap;
        for (int const top : {0, -height / 2, window.height() - qMax(height, window.height())})
        {
            QImage const drawn =
                Canvas(window,
                       [&](QPainter* painter)
                       {
                           painter->setClipRect(QRect(QPoint(), window));
                           RenderUtils::RenderText(painter, {0, top, 400, height}, Qt::AlignTop, mode, text,
                                                   FontSize, Qt::black, false, false, FontOfSize(FontSize));
                       });
            bool const ends = top + height <= window.height();
            QVERIFY(!ends || !Ink(drawn).isEmpty());
        }
    }

    void withoutWrapLineEndsAreBlanks()
    {
        QSize const area(150, 60);
        QCOMPARE(Elided(QStringLiteral("one\ntwo\tthree"), area, FontSize, FontSize, false),
                 Elided(QStringLiteral("one two three"), area, FontSize, FontSize, false));
        QVERIFY(Elided(QStringLiteral("one\ntwo"), area, FontSize, FontSize, true) !=
                Elided(QStringLiteral("one\ntwo"), area, FontSize, FontSize, false));
    }

    void wrapNeedsTheArgumentAndTheFlag()
    {
        QSize const area(200, 60);
        QString const text = QStringLiteral("one\ntwo");
        TOptions single;
        single.wrap = false;
        QImage const oneLine = Inside(QStringLiteral("one two"), area, Qt::AlignCenter);
        QCOMPARE(Inside(text, area, Qt::AlignCenter), oneLine);
        QCOMPARE(Inside(text, area, Qt::AlignCenter | Qt::TextWordWrap, single), oneLine);
        QVERIFY(Inside(text, area, Qt::AlignCenter | Qt::TextWordWrap) != oneLine);
    }

    void inkStandsWhereTheFlagsSay_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("horizontal");
        QTest::addColumn<int>("vertical");
        QTest::newRow("no flags") << 0 << -1 << -1;
        QTest::newRow("left, top") << int(Qt::AlignLeft | Qt::AlignTop) << -1 << -1;
        QTest::newRow("129") << 129 << -1 << 0;
        QTest::newRow("132") << 132 << 0 << 0;
        QTest::newRow("4228") << 4228 << 0 << 0;
        QTest::newRow("right, bottom") << int(Qt::AlignRight | Qt::AlignBottom) << 1 << 1;
    }

    void inkStandsWhereTheFlagsSay()
    {
        QFETCH(int, flags);
        QFETCH(int, horizontal);
        QFETCH(int, vertical);
        QSize const area(200, 100);
        QRect const ink = Ink(Inside(QStringLiteral("HHH"), area, flags));
        int const left = ink.left();
        int const right = area.width() - 1 - ink.right();
        int const above = ink.top();
        int const below = area.height() - 1 - ink.bottom();
        QCOMPARE(qAbs(left - right) <= 3 ? 0 : (left < right ? -1 : 1), horizontal);
        QCOMPARE(qAbs(above - below) <= 5 ? 0 : (above < below ? -1 : 1), vertical);
        QVERIFY(horizontal == 0 || qMin(left, right) <= 3);
    }

    void withoutElideTheTextIsCutAtTheRectangle()
    {
        TOptions cut;
        cut.shrink = false;
        cut.elide = false;
        QString const text(40, 'H');
        QSize const area(100, 20);
        QImage const drawn = Inside(text, area, Qt::AlignLeft, cut);
        TOptions elide = cut;
        elide.elide = true;
        QImage const whole = Inside(text, {Width(text, FontSize) + 1, 20}, Qt::AlignLeft, cut);
        QCOMPARE(drawn, whole.copy(QRect(QPoint(), area)));
        QVERIFY(drawn != Inside(text, area, Qt::AlignLeft, elide));
        // The beginning is what the operator needs to see, however the text is aligned.
        QCOMPARE(Inside(text, area, Qt::AlignRight, cut), drawn);
        QCOMPARE(Inside(text, area, Qt::AlignHCenter, cut), drawn);
    }

    void withoutElideTheLineThatDoesNotFitShowsItsUpperPart()
    {
        TOptions cut;
        cut.shrink = false;
        cut.elide = false;
        int const line = LineHeight(FontSize);
        int const flags = Qt::AlignLeft | Qt::TextWordWrap;
        QImage const whole = Inside(QStringLiteral("HH\nHH\nHH"), {100, 3 * line}, flags, cut);
        QCOMPARE(Inside(QStringLiteral("HH\nHH\nHH"), {100, line + line / 2}, flags, cut),
                 whole.copy(0, 0, 100, line + line / 2));
    }

    void linesThatDoNotFitBeginAtTheTopHoweverTheyAreAligned()
    {
        TOptions cut;
        cut.shrink = false;
        cut.elide = false;
        QSize const area(100, LineHeight(FontSize) + 5);
        QString const text = QStringLiteral("one\ntwo\nthree");
        QImage const top = Inside(text, area, Qt::AlignTop | Qt::TextWordWrap, cut);
        QCOMPARE(Inside(text, area, Qt::AlignVCenter | Qt::TextWordWrap, cut), top);
        QCOMPARE(Inside(text, area, Qt::AlignBottom | Qt::TextWordWrap, cut), top);
    }

    void withoutShrinkTheSizeStays()
    {
        TOptions fixed;
        fixed.shrink = false;
        QString const text = QStringLiteral("A text that is much too long");
        QString const expected = QFontMetrics(FontOfSize(FontSize)).elidedText(text, Qt::ElideRight, 80);
        QCOMPARE(Inside(text, {80, 40}, Qt::AlignLeft, fixed),
                 Inside(expected, {80, 40}, Qt::AlignLeft, fixed));
    }

    void lineHigherThanItsRectangleIsCentredAndCut()
    {
        QImage const low = Elided(QStringLiteral("HHH"), {100, 6}, 20, 20);
        QImage const high = Elided(QStringLiteral("HHH"), {100, 30}, 20, 20);
        QCOMPARE(low, high.copy(0, 12, 100, 6));
    }

    void antialiasGivesSoftEdgesAndItsLackHardOnes()
    {
        auto const softPixels = [](QImage const& image)
        {
            int soft = 0;
            for (int y = 0; y < image.height(); ++y)
            {
                for (int x = 0; x < image.width(); ++x)
                {
                    int const grey = qGray(image.pixel(x, y));
                    soft += grey > 0 && grey < 255 ? 1 : 0;
                }
            }
            return soft;
        };
        TOptions hard;
        hard.antialias = false;
        QVERIFY(softPixels(Inside(QStringLiteral("Speed"), {100, 30}, 0)) > 0);
        QImage const drawn = Inside(QStringLiteral("Speed"), {100, 30}, 0, hard);
        QCOMPARE(softPixels(drawn), 0);
        QVERIFY(!Ink(drawn).isEmpty());
    }

    void shadowIsABlackCopyOnePixelDownAndRight()
    {
        QSize const area(100, 40);
        auto const draw = [&area](QColor const& colour, bool shadow, QPoint const& offset)
        {
            return Canvas(area,
                          [&](QPainter* painter)
                          {
                              RenderUtils::RenderElidedTextInsideRect(
                                  painter, FontOfSize(20), QRect(offset, area), QStringLiteral("Hi"), 20, 20,
                                  colour, false, shadow, true);
                          });
        };
        QImage const black = draw(Qt::black, false, {1, 1});
        QImage const both = draw(Qt::white, true, {0, 0});
        QImage const white = draw(Qt::black, false, {0, 0});
        for (int y = 0; y < area.height(); ++y)
        {
            for (int x = 0; x < area.width(); ++x)
            {
                if (white.pixel(x, y) == qRgb(255, 255, 255))
                    QCOMPARE(both.pixel(x, y), black.pixel(x, y));
            }
        }
        QVERIFY(Ink(both).bottom() == Ink(white).bottom() + 1);
    }

    void colourIsThatAskedFor()
    {
        for (QColor const& colour : {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::red)})
        {
            QImage const drawn = Canvas({40, 40},
                                        [&colour](QPainter* painter)
                                        {
                                            RenderUtils::RenderElidedTextInsideRect(
                                                painter, FontOfSize(30), QRect(0, 0, 40, 40),
                                                QStringLiteral("\u2588"), 30, 30, colour, false, false, true);
                                        });
            QCOMPARE(drawn.pixelColor(20, 20), colour);
        }
    }

    void opacityOfThePainterCounts()
    {
        QImage const drawn = Canvas({40, 40},
                                    [](QPainter* painter)
                                    {
                                        painter->setOpacity(0.5);
                                        RenderUtils::RenderElidedTextInsideRect(
                                            painter, FontOfSize(30), QRect(0, 0, 40, 40),
                                            QStringLiteral("\u2588"), 30, 30, Qt::black, false, false, true);
                                    });
        QVERIFY(qAbs(qRed(drawn.pixel(20, 20)) - 128) <= 2);
    }

    void secondDrawingIsTheSameAsTheFirst()
    {
        QString const text = QStringLiteral("Rate 12.5 l/min\nof two lines");
        QImage const first = Elided(text, {120, 40}, FontSize, SmallSize);
        QCOMPARE(Elided(text, {120, 40}, FontSize, SmallSize), first);
        RenderUtils::ClearTextCache();
        QCOMPARE(Elided(text, {120, 40}, FontSize, SmallSize), first);
    }

    void everyArgumentCountsInTheCache()
    {
        QString const text = QStringLiteral("Gp");
        QVector<QImage> drawn;
        auto const draw = [&](QFont const& font, int size, bool shadow, bool centred, QColor const& colour)
        {
            drawn.append(Canvas({80, 40},
                                [&](QPainter* painter)
                                {
                                    RenderUtils::RenderElidedTextInsideRect(
                                        painter, font, QRect(0, 0, 80, 40), text, size, 8, colour, false,
                                        shadow, centred);
                                }));
        };
        QFont bold = FontOfSize(FontSize);
        bold.setBold(true);
        draw(FontOfSize(FontSize), 20, false, false, Qt::black);
        draw(bold, 20, false, false, Qt::black);
        draw(FontOfSize(FontSize), 21, false, false, Qt::black);
        draw(FontOfSize(FontSize), 20, true, false, Qt::red);
        draw(FontOfSize(FontSize), 20, false, true, Qt::black);
        draw(FontOfSize(FontSize), 20, false, false, Qt::red);
        for (int i = 0; i < drawn.size(); ++i)
        {
            for (int j = 0; j < i; ++j)
                QVERIFY2(drawn.at(i) != drawn.at(j), qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
        }
    }

    void manyTextsPassThroughTheCacheUnharmed()
    {
        QImage const first = Elided(QStringLiteral("first"), {80, 20}, FontSize, SmallSize);
        for (int i = 0; i < 6000; ++i)
            Elided(QString::number(i), {80, 20}, FontSize, SmallSize);
        QCOMPARE(Elided(QStringLiteral("first"), {80, 20}, FontSize, SmallSize), first);
        QVERIFY(Elided(QStringLiteral("5999"), {80, 20}, FontSize, SmallSize) !=
                Elided(QStringLiteral("5998"), {80, 20}, FontSize, SmallSize));
    }

    void painterIsLeftAsItWas()
    {
        QImage image(100, 40, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setPen(Qt::green);
        painter.setBrush(Qt::yellow);
        painter.setOpacity(0.25);
        painter.setFont(FontOfSize(33));
        painter.translate(3, 4);
        QFont const font = painter.font();
        QTransform const transform = painter.transform();
        RenderUtils::RenderTextInsideRect(&painter, QRect(0, 0, 90, 30), 0, QStringLiteral("abc"), 14, 10,
                                          Qt::red, true, true, true, false, true);
        RenderUtils::RenderButton(&painter, QRect(0, 0, 9, 9), Qt::red, true, Qt::white, Qt::black);
        RenderUtils::RenderSunkenFrame(&painter, QRect(0, 0, 9, 9), Qt::red, Qt::white, Qt::black);
        RenderUtils::RenderScaledBitmap(&painter, QPixmap::fromImage(TestArt(20, 20)), 30, 30, 5, 5, 9, 9);
        QCOMPARE(painter.pen(), QPen(Qt::green));
        QCOMPARE(painter.brush(), QBrush(Qt::yellow));
        QCOMPARE(painter.opacity(), 0.25);
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.transform(), transform);
        QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    }

    void nothingIsDrawnWithoutPainterRectTextOrColour()
    {
        QRect const rect(0, 0, 50, 20);
        QString const text = QStringLiteral("abc");
        RenderUtils::RenderTextInsideRect(nullptr, rect, 0, text, 14, 10, Qt::red, true, true, true, true,
                                          false);
        RenderUtils::RenderButton(nullptr, rect, Qt::red, true, Qt::red, Qt::red);
        RenderUtils::RenderSunkenFrame(nullptr, rect, Qt::red, Qt::red, Qt::red);
        RenderUtils::RenderScaledBitmap(nullptr, QPixmap(8, 8), 10, 10, 1, 1, 2, 2);
        QImage const drawn =
            Canvas({60, 40},
                   [&](QPainter* painter)
                   {
                       for (QRect const& empty :
                            {QRect(), QRect(0, 0, 0, 20), QRect(0, 0, 20, 0), QRect(30, 30, -5, -5)})
                       {
                           RenderUtils::RenderTextInsideRect(painter, empty, 0, text, 14, 10, Qt::red, true,
                                                             true, true, true, true);
                           RenderUtils::RenderElidedTextInsideRect(painter, FontOfSize(14), empty, text, 14,
                                                                   10, Qt::red, true, true, true);
                           RenderUtils::RenderButton(painter, empty, Qt::red, true, Qt::red, Qt::red);
                           RenderUtils::RenderSunkenFrame(painter, empty, Qt::red, Qt::red, Qt::red);
                       }
                       for (QColor const& colour : {QColor(), QColor(255, 0, 0, 0)})
                           RenderUtils::RenderTextInsideRect(painter, rect, 0, text, 14, 10, colour, true,
                                                             true, true, true, true);
                       for (char const* blank : {"", " ", "\n \t", "\x01"})
                           RenderUtils::RenderTextInsideRect(painter, rect, 0, QString::fromLatin1(blank), 14,
                                                             10, Qt::red, true, true, true, true, true);
                       RenderUtils::RenderButton(painter, rect, QColor(), true, QColor(), QColor());
                       RenderUtils::RenderScaledBitmap(painter, QPixmap(), 10, 10, 1, 1, 2, 2);
                       RenderUtils::RenderScaledBitmap(painter, QPixmap::fromImage(TestArt(8, 8)), 0, 10, 1,
                                                       1, 2, 2);
                   });
        QVERIFY(Ink(drawn).isEmpty());
    }

    void sizesOutOfRangeAreHeldToSense_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("minSize");
        QTest::newRow("zero") << 0 << 0;
        QTest::newRow("negative") << -14 << -20;
        QTest::newRow("smallest above size") << 10 << 20;
        QTest::newRow("as large as the rectangle") << 60 << 40;
        QTest::newRow("huge down to one") << INT_MAX << 1;
    }

    void sizesOutOfRangeAreHeldToSense()
    {
        QFETCH(int, size);
        QFETCH(int, minSize);
        QImage const drawn =
            Canvas({120, 60},
                   [&](QPainter* painter)
                   {
                       RenderUtils::RenderElidedTextInsideRect(
                           painter, FontOfSize(14), QRect(10, 10, 100, 40), QStringLiteral("Hello there"),
                           size, minSize, Qt::black, true, true, true);
                   });
        QVERIFY(!Ink(drawn).isEmpty());
        QVERIFY(QRect(10, 10, 100, 40).contains(Ink(drawn)));
    }

    void hostileTextsStayInside_data()
    {
        QTest::addColumn<QString>("text");
        constexpr int Length = 100000;
        QString mixed;
        for (int i = 0; i < Length; ++i)
            mixed += QChar(ushort(i % 0xffff));
        QTest::newRow("no blanks") << QString(Length, 'W');
        QTest::newRow("blanks only, then a word") << QString(Length, ' ') + QLatin1String("word");
        QTest::newRow("words")
            << QString(Length / 6, 'x').replace(QLatin1String("x"), QLatin1String("hello "));
        QTest::newRow("right to left") << QString(Length, QChar(0x05d0));
        QTest::newRow("right to left words")
            << QString(Length / 5, 'x')
                   .replace(QLatin1String("x"), QStringLiteral("\u05e9\u05dc\u05d5\u05dd "));
        QTest::newRow("arabic that joins") << QString(Length, QChar(0x0628));
        QTest::newRow("both directions")
            << QString(Length / 2, 'x').replace(QLatin1String("x"), QStringLiteral("a\u05d0"));
        QTest::newRow("control characters") << QString(Length, QChar(7)) + QLatin1String("end");
        QTest::newRow("nulls") << QString(Length, QChar(0)) + QLatin1String("end");
        QTest::newRow("line ends") << QString(Length, '\n') + QLatin1String("end");
        QTest::newRow("tabs") << QString(Length, '\t') + QLatin1String("end");
        QTest::newRow("marks on one letter") << QLatin1Char('e') + QString(Length, QChar(0x0301));
        QTest::newRow("joiners") << QString(Length, QChar(0x200d)) + QLatin1String("end");
        QTest::newRow("embeddings left open") << QString(Length, QChar(0x202e)) + QLatin1String("end");
        QTest::newRow("lone high surrogates") << QString(Length, QChar(0xd83d));
        QTest::newRow("lone low surrogates") << QString(Length, QChar(0xde00));
        QTest::newRow("object characters") << QString(Length, QChar(0xfffc));
        QTest::newRow("every code unit") << mixed;
    }

    void hostileTextsStayInside()
    {
        QFETCH(QString, text);
        QRect const rect(40, 30, 120, 37);
        QImage const drawn =
            Canvas({200, 100},
                   [&](QPainter* painter)
                   {
                       for (bool wrap : {false, true})
                       {
                           for (bool elide : {false, true})
                               RenderUtils::RenderTextInsideRect(painter, rect, 4228, text, 24, 8, Qt::black,
                                                                 wrap, true, elide, true, true);
                           RenderUtils::RenderElidedTextInsideRect(painter, FontOfSize(14), rect, text, 24, 8,
                                                                   Qt::black, wrap, true, false);
                       }
                   });
        QVERIFY(drawn.rect().contains(rect));
        QRect const ink = Ink(drawn);
        QVERIFY2(ink.isEmpty() || rect.contains(ink), qPrintable(QStringLiteral("%1").arg(ink.bottom())));
        int const height = RenderUtils::GetTextHeight(text, FontOfSize(FontSize), 120);
        QCOMPARE(height % LineHeight(FontSize), 0);
    }

    void giantRectanglesAreNoTrouble()
    {
        QImage const drawn =
            Canvas({100, 100},
                   [](QPainter* painter)
                   {
                       RenderUtils::RenderTextInsideRect(painter, QRect(0, 0, INT_MAX / 2, INT_MAX / 2), 4096,
                                                         QString(100000, 'H'), 500, 400, Qt::black, true,
                                                         true, true, true, true);
                   });
        QVERIFY(!Ink(drawn).isEmpty());
    }

    void rightToLeftTextKeepsItsBeginningWhenItIsCut()
    {
        TOptions cut;
        cut.shrink = false;
        cut.elide = false;
        QString const text = QStringLiteral("\u05d0") + QString(60, QChar(0x05de));
        QImage const whole = Inside(text, {1000, 20}, Qt::AlignRight, cut);
        QCOMPARE(Inside(text, {100, 20}, Qt::AlignRight, cut), whole.copy(900, 0, 100, 20));
    }

    void flatButtonHasLightAboveAndShadowBelow()
    {
        QImage const drawn = Canvas({20, 12},
                                    [](QPainter* painter) {
                                        RenderUtils::RenderButton(painter, QRect(2, 2, 16, 8), Qt::gray, true,
                                                                  Qt::yellow, Qt::blue);
                                    });
        QCOMPARE(Ink(drawn), QRect(2, 2, 16, 8));
        QCOMPARE(drawn.pixelColor(2, 2), QColor(Qt::yellow));
        QCOMPARE(drawn.pixelColor(16, 2), QColor(Qt::yellow));
        QCOMPARE(drawn.pixelColor(2, 8), QColor(Qt::yellow));
        QCOMPARE(drawn.pixelColor(17, 2), QColor(Qt::blue));
        QCOMPARE(drawn.pixelColor(2, 9), QColor(Qt::blue));
        QCOMPARE(drawn.pixelColor(17, 9), QColor(Qt::blue));
        QCOMPARE(drawn.pixelColor(3, 3), QColor(Qt::gray));
        QCOMPARE(drawn.pixelColor(16, 8), QColor(Qt::gray));
    }

    void flatButtonWithoutAFrameIsFilledToItsEdge()
    {
        QImage const drawn = Canvas({20, 12},
                                    [](QPainter* painter) {
                                        RenderUtils::RenderButton(painter, QRect(2, 2, 16, 8), Qt::gray,
                                                                  false, Qt::yellow, Qt::blue);
                                    });
        QCOMPARE(Ink(drawn), QRect(2, 2, 16, 8));
        QCOMPARE(drawn.pixelColor(2, 2), QColor(Qt::gray));
        QCOMPARE(drawn.pixelColor(17, 9), QColor(Qt::gray));
    }

    void sunkenFrameHasShadowAboveAndLightBelow()
    {
        QImage const drawn =
            Canvas({20, 12},
                   [](QPainter* painter) {
                       RenderUtils::RenderSunkenFrame(painter, QRect(2, 2, 16, 8), QColor(0, 0, 0, 255),
                                                      Qt::yellow, Qt::blue);
                   });
        QCOMPARE(Ink(drawn), QRect(2, 2, 16, 8));
        QCOMPARE(drawn.pixelColor(2, 2), QColor(Qt::blue));
        QCOMPARE(drawn.pixelColor(2, 8), QColor(Qt::blue));
        QCOMPARE(drawn.pixelColor(17, 9), QColor(Qt::yellow));
        QCOMPARE(drawn.pixelColor(3, 3), QColor(Qt::black));
    }

    void framePixelsAreDrawnOnce()
    {
        QColor const veil(0, 0, 0, 100);
        QColor const clear(0, 0, 0, 0);
        for (QSize const size : {QSize(1, 1), QSize(1, 6), QSize(6, 1), QSize(2, 2), QSize(9, 7)})
        {
            QImage const drawn = Canvas(
                size, [&](QPainter* painter)
                { RenderUtils::RenderSunkenFrame(painter, QRect(QPoint(), size), clear, veil, veil); });
            for (int y = 0; y < size.height(); ++y)
            {
                for (int x = 0; x < size.width(); ++x)
                {
                    bool const edge = x == 0 || y == 0 || x == size.width() - 1 || y == size.height() - 1;
                    QCOMPARE(drawn.pixel(x, y), edge ? qRgb(155, 155, 155) : qRgb(255, 255, 255));
                }
            }
        }
    }

    void scaledBitmapKeepsItsCorners()
    {
        QImage const source = TestArt(57, 56);
        QImage const drawn = Canvas({140, 90},
                                    [&source](QPainter* painter) {
                                        RenderUtils::RenderScaledBitmap(painter, QPixmap::fromImage(source),
                                                                        120, 80, 16, 16, 40, 40);
                                    });
        // 57 - 1 - 40 = 16 columns and 15 rows stand beyond the rectangle.
        QCOMPARE(drawn.copy(0, 0, 16, 16), source.copy(0, 0, 16, 16));
        QCOMPARE(drawn.copy(104, 0, 16, 16), source.copy(41, 0, 16, 16));
        QCOMPARE(drawn.copy(0, 65, 16, 15), source.copy(0, 41, 16, 15));
        QCOMPARE(drawn.copy(104, 65, 16, 15), source.copy(41, 41, 16, 15));
        QVERIFY(Ink(drawn.copy(120, 0, 20, 90)).isEmpty());
        QVERIFY(Ink(drawn.copy(0, 80, 140, 10)).isEmpty());
    }

    void farMarginIsNeverWiderThanTheNearOne_data()
    {
        QTest::addColumn<int>("side");
        QTest::newRow("wide image") << 100;
        QTest::newRow("rectangle leaves the image") << 40;
        QTest::newRow("rectangle just leaves the image") << 41 - 1;
    }

    void farMarginIsNeverWiderThanTheNearOne()
    {
        QFETCH(int, side);
        QImage const source = TestArt(side, side);
        QImage const drawn = Canvas({300, 300},
                                    [&source](QPainter* painter) {
                                        RenderUtils::RenderScaledBitmap(painter, QPixmap::fromImage(source),
                                                                        300, 300, 16, 16, 40, 40);
                                    });
        QCOMPARE(drawn.copy(284, 284, 16, 16), source.copy(side - 16, side - 16, 16, 16));
        QCOMPARE(drawn.copy(0, 0, 16, 16), source.copy(0, 0, 16, 16));
        QVERIFY(side < 60 || drawn.copy(241, 284, 59, 16) != source.copy(41, 84, 59, 16));
    }

    void scaledBitmapOfAnySizeFillsItsTarget()
    {
        for (int side : {1, 2, 7, 20, 31, 32, 33})
        {
            QImage source(side, side, QImage::Format_RGB32);
            source.fill(qRgb(50, 60, 70));
            for (QSize const size : {QSize(1, 1), QSize(3, 60), QSize(31, 33), QSize(90, 5)})
            {
                QImage const drawn =
                    Canvas(size,
                           [&](QPainter* painter)
                           {
                               RenderUtils::RenderScaledBitmap(painter, QPixmap::fromImage(source),
                                                               size.width(), size.height(), 16, 16, 40, 40);
                           });
                QImage expected(size, QImage::Format_RGB32);
                expected.fill(qRgb(50, 60, 70));
                QCOMPARE(drawn, expected);
            }
        }
    }
};

COMMONUI_TEST(RenderUtilsTest)
#include "RenderUtilsTest.moc"
