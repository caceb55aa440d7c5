#include "ButtonTestSupport.h"
#include "Fonts.h"
#include "Metrics.h"
#include "Palette.h"
#include "RenderUtils.h"

#include <QHBoxLayout>

namespace
{
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;

QFont Sized(QFont font, int pixelSize)
{
    font.setPixelSize(pixelSize);
    return font;
}

int LineHeight(QFont const& font)
{
    return KVN::RenderUtils::GetTextHeight(QString(), font, 1000);
}

// Half of what is left over, cut off; in single precision, in which a whole number may come out just below
// itself.
int Pad(int available, int used)
{
    return int(float(available) * (1.0F - float(used) / float(available)) * 0.5F);
}

QSharedPointer<QPixmap> Blank(QSize const& size)
{
    auto pixmap = QSharedPointer<QPixmap>::create(size);
    pixmap->fill(Qt::transparent);
    return pixmap;
}

/// Counts how often the layout was told of a new size hint.
class THintedButton : public TPushButton
{
public:
    using TPushButton::TPushButton;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        TPushButton::paintEvent(event);
    }
};
} // namespace

class TPushButtonTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_Screen = std::make_unique<TTestScreen>(); }
    void cleanupTestCase() { m_Screen.reset(); }
    void init()
    {
        m_Window = std::make_unique<TListeningWindow>();
        m_Button = new THintedButton(m_Window.get(), 1, QString());
        m_Button->resize(160, 100);
        m_Window->Expose();
    }
    void cleanup() { m_Window.reset(); }

    void withoutTextTheRectsAreInvalid();
    void textWithoutAFontIsNotDrawn();
    void workingArea_data();
    void workingArea();
    void oneLineStandsInTheMiddle();
    void secondLineFollowsTheFirst();
    void secondTextWinsOverTheFirstsFurtherLines();
    void firstTextGrowsWhileAWholeLineFits();
    void firstKeepsALineWhereNoneFits();
    void buttonLowerThanItsBordersStaysSane();
    void storedFirstLineCountsWithTheSecondInUse();
    void secondLineIsKeptWhileOutOfUse();
    void setTextEnablesOnlyWhenAsked();
    void textMovesWithTheSize();
    void plainSetTextLaysOutOnAChangeOnly();
    void settersLayOutOnAChangeOnly();
    void fontsComeFromTheCondensedFaces();
    void fontPropertiesChangeTheTextsLook();
    void secondLineHasItsOwnColour();
    void everyLineHasItsOwnFlags_data();
    void everyLineHasItsOwnFlags();
    void everyLineHasItsOwnAlignment();
    void marginOfTheRightIconTakesNoText();
    void alignmentToTheLeftInsetsTheText();
    void hints();
    void layoutFollowsTheText();
    void nonsensicalFontSizeIsHeldToOne();

private:
    void SetText(QString const& first) { m_Button->SetText(first, QString(), true, QString(), false); }
    void SetText(QString const& first, QString const& second)
    {
        m_Button->SetText(first, QString(), true, second, true);
    }
    QRect First() const { return m_Button->GetFirstLineRect(); }
    QRect Second() const { return m_Button->GetSecondLineRect(); }
    bool Shows(QColor const& colour, QRect const& where) const
    {
        QCoreApplication::processEvents();
        QImage const image = m_Button->grab(where).toImage();
        for (int y = 0; y < image.height(); ++y)
        {
            for (int x = 0; x < image.width(); ++x)
            {
                if (image.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    THintedButton* m_Button = nullptr;
    int const m_FirstLine = LineHeight(Sized(CONDENSED_BOLD_FONT, STANDARD_FONT_SIZE));
    int const m_SecondLine = LineHeight(Sized(CONDENSED_BOLD_FONT, SMALL_FONT_SIZE));
};

void TPushButtonTextTest::withoutTextTheRectsAreInvalid()
{
    QCOMPARE(First(), QRect(QPoint(0, 0), QPoint(-1, -1)));
    QCOMPARE(Second(), QRect(QPoint(0, 0), QPoint(-1, -1)));
    SetText(QStringLiteral("Text"));
    QVERIFY(First().isValid());
    SetText(QString());
    QVERIFY(!First().isValid());
    QVERIFY(!Second().isValid());
}

void TPushButtonTextTest::textWithoutAFontIsNotDrawn()
{
    m_Button->setText(QStringLiteral("Text"));
    QVERIFY(!First().isValid());
    m_Button->SetFontSize(14, false);
    QVERIFY(First().isValid());
}

void TPushButtonTextTest::workingArea_data()
{
    QTest::addColumn<QSize>("icon");
    QTest::addColumn<QSize>("rightIcon");
    QTest::addColumn<int>("placement");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QVector<int>>("area"); // left, top, right, bottom
    QSize const none;
    QSize const icon(40, 30);
    int const centred = Centred;
    int const left = Qt::AlignLeft | Qt::AlignVCenter;
    // The button is 160 by 100 with borders 6, 7, 8, 9.
    QTest::newRow("no icon") << none << none << 0 << centred << QVector<int>{6, 7, 151, 90};
    QTest::newRow("no icon, below") << none << none << 1 << centred << QVector<int>{6, 7, 151, 90};
    QTest::newRow("beside the icon") << icon << none << 0 << centred << QVector<int>{41, 7, 151, 90};
    QTest::newRow("below the icon") << icon << none << 1 << centred << QVector<int>{6, 65, 151, 99};
    QTest::newRow("over the icon") << icon << none << 2 << centred << QVector<int>{0, 0, 151, 99};
    QTest::newRow("unknown placement") << icon << none << 77 << centred << QVector<int>{0, 0, 151, 99};
    QTest::newRow("right icon") << none << QSize(25, 25) << 0 << centred << QVector<int>{6, 7, 134, 90};
    QTest::newRow("left aligned") << none << none << 0 << left << QVector<int>{11, 7, 151, 90};
}

void TPushButtonTextTest::workingArea()
{
    QFETCH(QSize, icon);
    QFETCH(QSize, rightIcon);
    QFETCH(int, placement);
    QFETCH(int, alignment);
    QFETCH(QVector<int>, area);
    SetText(QStringLiteral("Text"));
    m_Button->SetBackgroundBorderArea(6, 7, 8, 9);
    if (icon.isValid())
        m_Button->SetIcon(Blank(icon), QSharedPointer<QPixmap>());
    if (rightIcon.isValid())
        m_Button->SetRightSideIcon(m_Screen->AddImage(QStringLiteral("right"), Qt::red, rightIcon));
    m_Button->SetTextPlacement(ETextPlacement(placement));
    m_Button->SetAlignment(alignment, false);
    int const height = area[3] - area[1] + 1;
    int const top = area[1] + Pad(height, m_FirstLine);
    QCOMPARE(First(), QRect(QPoint(area[0], top), QPoint(area[2], top + m_FirstLine)));
}

void TPushButtonTextTest::oneLineStandsInTheMiddle()
{
    SetText(QStringLiteral("Text"));
    int const pad = Pad(90, m_FirstLine);
    QCOMPARE(First(), QRect(QPoint(5, 5 + pad), QPoint(154, 5 + pad + m_FirstLine)));
    QCOMPARE(Second(), QRect(QPoint(5, 5 + pad + m_FirstLine), QPoint(154, 94 - pad)));
}

void TPushButtonTextTest::secondLineFollowsTheFirst()
{
    SetText(QStringLiteral("First"), QStringLiteral("Second"));
    int const pad = Pad(90, m_FirstLine + m_SecondLine);
    QCOMPARE(First().top(), 5 + pad);
    QCOMPARE(First().bottom(), 5 + pad + m_FirstLine);
    QCOMPARE(Second().top(), First().bottom());
    QCOMPARE(Second().bottom(), 94 - pad);
}

void TPushButtonTextTest::secondTextWinsOverTheFirstsFurtherLines()
{
    // Room for one line of the first text and two of the second, and not for another one of the first.
    m_Button->resize(60, m_FirstLine + 2 * m_SecondLine + 10 + m_FirstLine - 1);
    SetText(QStringLiteral("First First First"), QStringLiteral("Second Second"));
    QFont const font = Sized(CONDENSED_BOLD_FONT, SMALL_FONT_SIZE);
    QCOMPARE(KVN::RenderUtils::GetTextHeight(QStringLiteral("Second Second"), font, 50), 2 * m_SecondLine);
    QCOMPARE(First().height(), m_FirstLine + 1);
    int const used = m_FirstLine + 2 * m_SecondLine;
    QCOMPARE(First().top(), 5 + Pad(used + m_FirstLine - 1, used));
}

void TPushButtonTextTest::firstTextGrowsWhileAWholeLineFits()
{
    m_Button->resize(60, 2 * m_FirstLine + m_SecondLine + 10 + m_FirstLine - 1);
    SetText(QStringLiteral("First First First"), QStringLiteral("Second"));
    QCOMPARE(First().height(), 2 * m_FirstLine + 1);
    m_Button->resize(60, 3 * m_FirstLine + m_SecondLine + 10);
    QCOMPARE(First().height(), 3 * m_FirstLine + 1);
    m_Button->resize(60, 9 * m_FirstLine);
    QCOMPARE(First().height(), 3 * m_FirstLine + 1);
}

void TPushButtonTextTest::firstKeepsALineWhereNoneFits()
{
    m_Button->resize(60, m_FirstLine + 10 - 2);
    SetText(QStringLiteral("First"), QStringLiteral("Second"));
    QCOMPARE(First().height(), m_FirstLine + 1);
    QCOMPARE(First().top(), 5 + Pad(m_FirstLine - 2, m_FirstLine));
    m_Button->resize(60, m_FirstLine + 10 - 9);
    QCOMPARE(First().top(), 5 + Pad(m_FirstLine - 9, m_FirstLine));
    QVERIFY(First().top() < 5);
}

void TPushButtonTextTest::buttonLowerThanItsBordersStaysSane()
{
    SetText(QStringLiteral("First"), QStringLiteral("Second"));
    for (int const height : {0, 1, 5, 9, 10, 11})
    {
        m_Button->resize(60, height);
        QCOMPARE(First().height(), m_FirstLine + 1);
        QVERIFY(!m_Button->grab().isNull() || height == 0);
    }
    // Borders of 10 leave -5: half of it, cut off, is the place above.
    m_Button->resize(60, 5);
    QCOMPARE(First().top(), 5 - 2);
}

void TPushButtonTextTest::storedFirstLineCountsWithTheSecondInUse()
{
    SetText(QStringLiteral("One"), QStringLiteral("Two"));
    m_Button->setText(QStringLiteral("Other"));
    QCOMPARE(m_Button->GetText(), QStringLiteral("One"));
    QCOMPARE(m_Button->GetSecondLine(), QStringLiteral("Two"));
    SetText(QStringLiteral("One"));
    QCOMPARE(m_Button->GetText(), QStringLiteral("One"));
    m_Button->setText(QStringLiteral("Other"));
    QCOMPARE(m_Button->GetText(), QStringLiteral("Other"));
}

void TPushButtonTextTest::secondLineIsKeptWhileOutOfUse()
{
    SetText(QStringLiteral("One"), QStringLiteral("Two"));
    QRect const withSecond = First();
    SetText(QStringLiteral("One"));
    QCOMPARE(m_Button->GetSecondLine(), QStringLiteral("Two"));
    QVERIFY(First() != withSecond);
}

void TPushButtonTextTest::setTextEnablesOnlyWhenAsked()
{
    m_Button->setEnabled(false);
    m_Button->SetText(QStringLiteral("A"), QString(), false, QString(), false);
    QVERIFY(!m_Button->isEnabled());
    m_Button->SetText(QStringLiteral("A"), QString(), true, QString(), false);
    QVERIFY(m_Button->isEnabled());
}

void TPushButtonTextTest::textMovesWithTheSize()
{
    SetText(QStringLiteral("Text"));
    m_Button->resize(200, 60);
    QCOMPARE(First().right(), 194);
    QCOMPARE(First().top(), 5 + Pad(50, m_FirstLine));
}

void TPushButtonTextTest::plainSetTextLaysOutOnAChangeOnly()
{
    SetText(QStringLiteral("Text"));
    QCoreApplication::processEvents();
    m_Button->paints = 0;
    m_Button->setText(QStringLiteral("Text"));
    SetText(QStringLiteral("Text"));
    QCoreApplication::processEvents();
    QCOMPARE(m_Button->paints, 0);
    m_Button->setText(QStringLiteral("Longer text that takes more than the one line that there was"));
    QVERIFY(First().height() > 2 * m_FirstLine);
    QCoreApplication::processEvents();
    QCOMPARE(m_Button->paints, 1);
}

void TPushButtonTextTest::settersLayOutOnAChangeOnly()
{
    SetText(QStringLiteral("Text"));
    m_Button->SetIcon(Blank(QSize(10, 10)), QSharedPointer<QPixmap>());
    auto const paintsAfter = [&](auto const& act)
    {
        act();
        QCoreApplication::processEvents();
        m_Button->paints = 0;
        act();
        QCoreApplication::processEvents();
        return m_Button->paints;
    };
    QCOMPARE(paintsAfter([&] { m_Button->SetBackgroundBorderArea(1, 2, 3, 4); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetRightSideIconMargin(9); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetAlignment(Qt::AlignLeft, true); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetIconPosition(QPoint(1, 1), true); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetIconPositionFromCentre(QPoint(1, 1)); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetFontSize(20, false); }), 0);
    QCOMPARE(paintsAfter([&] { m_Button->SetTextPlacement(TEXT_BELOW_ICON); }), 1);
    QCOMPARE(
        paintsAfter([&] { m_Button->SetFontProperties(Qt::red, 20, true, true, false, Centred, false); }), 1);
}

void TPushButtonTextTest::fontsComeFromTheCondensedFaces()
{
    SetText(QStringLiteral("Text"));
    QCOMPARE(m_Button->font().family(), CONDENSED_BOLD_FONT.family());
    QCOMPARE(m_Button->font().styleName(), CONDENSED_BOLD_FONT.styleName());
    QCOMPARE(m_Button->font().pixelSize(), 14);
    QCOMPARE(m_Button->font().weight(), 75);
    m_Button->SetFontProperties(Qt::red, 20, false, true, false, Centred, false);
    QCOMPARE(m_Button->font().styleName(), CONDENSED_FONT.styleName());
    QCOMPARE(m_Button->font().weight(), 50);
    QCOMPARE(m_Button->font().pixelSize(), 20);
    m_Button->SetFontProperties(Qt::red, 21, true, true, false, Centred, true);
    QCOMPARE(m_Button->font().pixelSize(), 20);

    TPushButton other(m_Window.get(), 2, QString());
    other.SetFontSize(17, false);
    QCOMPARE(other.font().styleName(), CONDENSED_FONT.styleName());
    QCOMPARE(other.font().pixelSize(), 17);
}

void TPushButtonTextTest::fontPropertiesChangeTheTextsLook()
{
    SetText(QStringLiteral("MMMM"));
    m_Button->SetBackgroundColor(Qt::black);
    QVERIFY(Shows(regularButtonTextColor, First()));
    m_Button->SetFontProperties(Qt::red, 30, true, true, false, Centred, false);
    QVERIFY(Shows(Qt::red, First()));
    QVERIFY(!Shows(regularButtonTextColor, First()));
    QCOMPARE(First().height(), LineHeight(Sized(CONDENSED_BOLD_FONT, 30)) + 1);
    m_Button->SetFontSize(12, false);
    QCOMPARE(First().height(), LineHeight(Sized(CONDENSED_BOLD_FONT, 12)) + 1);
}

void TPushButtonTextTest::secondLineHasItsOwnColour()
{
    m_Button->SetBackgroundColor(Qt::black);
    m_Button->SetFontProperties(Qt::red, 16, true, true, false, Centred, false);
    m_Button->SetFontProperties(Qt::green, 16, true, true, false, Centred, true);
    SetText(QStringLiteral("MMMM"), QStringLiteral("MMMM"));
    QVERIFY(Shows(Qt::red, First()));
    QVERIFY(Shows(Qt::green, Second()));
    SetText(QStringLiteral("MMMM"));
    QVERIFY(!Shows(Qt::green, m_Button->rect()));
}

void TPushButtonTextTest::alignmentToTheLeftInsetsTheText()
{
    m_Button->SetBackgroundColor(Qt::black);
    SetText(QStringLiteral("M"));
    QRect const leftEnd(10, 0, 20, 100);
    QVERIFY(!Shows(regularButtonTextColor, leftEnd));
    m_Button->SetAlignment(Qt::AlignLeft | Qt::AlignVCenter, false);
    QCOMPARE(First().left(), 10);
    QVERIFY(Shows(regularButtonTextColor, leftEnd));
}

void TPushButtonTextTest::hints()
{
    QCOMPARE(m_Button->minimumSizeHint(), QSize(30, STANDARD_BUTTON_HEIGHT));
    QCOMPARE(m_Button->sizeHint(), QSize(30, STANDARD_BUTTON_HEIGHT));
    m_Button->setMinimumHeight(44);
    QCOMPARE(m_Button->minimumSizeHint(), QSize(30, 44));
    m_Button->SetIcon(Blank(QSize(22, 30)), QSharedPointer<QPixmap>());
    QCOMPARE(m_Button->minimumSizeHint(), QSize(37, 44));
    SetText(QStringLiteral("A"));
    QCOMPARE(m_Button->sizeHint(), QSize(237, 44));
    QCOMPARE(m_Button->minimumSizeHint(), QSize(37, 44));
    SetText(QString(), QStringLiteral("B"));
    QCOMPARE(m_Button->sizeHint(), QSize(237, 44));
    SetText(QString());
    QCOMPARE(m_Button->sizeHint(), QSize(37, 44));
}

void TPushButtonTextTest::layoutFollowsTheText()
{
    auto* const row = new QHBoxLayout(m_Window.get());
    row->addWidget(m_Button);
    QCOMPARE(row->sizeHint().width() - row->contentsMargins().left() - row->contentsMargins().right(), 30);
    SetText(QStringLiteral("Text"));
    QCOMPARE(row->sizeHint().width() - row->contentsMargins().left() - row->contentsMargins().right(), 230);
    m_Button->SetIcon(Blank(QSize(40, 40)), QSharedPointer<QPixmap>());
    QCOMPARE(row->sizeHint().width() - row->contentsMargins().left() - row->contentsMargins().right(), 255);
}

void TPushButtonTextTest::nonsensicalFontSizeIsHeldToOne()
{
    SetText(QStringLiteral("Text"));
    m_Button->SetFontSize(0, false);
    QCOMPARE(m_Button->font().pixelSize(), 1);
    m_Button->SetFontProperties(Qt::red, -7, true, true, false, Centred, true);
    m_Button->SetText(QStringLiteral("Text"), QString(), true, QStringLiteral("Text"), true);
    QVERIFY(!m_Button->grab().isNull());
}

void TPushButtonTextTest::everyLineHasItsOwnFlags_data()
{
    QTest::addColumn<bool>("second");
    QTest::newRow("first") << false;
    QTest::newRow("second") << true;
}

void TPushButtonTextTest::everyLineHasItsOwnFlags()
{
    QFETCH(bool, second);
    m_Button->SetBackgroundColor(Qt::white);
    m_Button->resize(60, 200);
    QString const twoLines = QStringLiteral("MMM MMM");
    SetText(second ? QString() : twoLines, second ? twoLines : QString());
    auto const with = [&](bool wrap, bool shadow)
    {
        m_Button->SetFontProperties(Qt::red, 16, true, wrap, shadow, Centred, second);
        return second ? Second() : First();
    };
    // What one line in the middle leaves free is taken by two.
    auto const outer = [](QRect const& rect) { return QRect(rect.left(), rect.top(), rect.width(), 5); };
    QRect rect = with(true, false);
    QVERIFY(Shows(Qt::red, outer(rect)));
    QVERIFY(!Shows(Qt::black, rect));
    rect = with(false, false);
    QVERIFY(!Shows(Qt::red, outer(rect)));
    rect = with(true, true);
    QVERIFY(Shows(Qt::black, rect));
}

void TPushButtonTextTest::everyLineHasItsOwnAlignment()
{
    m_Button->SetBackgroundColor(Qt::black);
    SetText(QStringLiteral("M"), QStringLiteral("M"));
    auto const leftOf = [](QRect const& rect) { return QRect(rect.left(), rect.top() + 2, 12, 10); };
    QVERIFY(!Shows(regularButtonTextColor, leftOf(First())));
    QVERIFY(!Shows(regularButtonTextColor, leftOf(Second())));
    m_Button->SetAlignment(Qt::AlignLeft | Qt::AlignVCenter, true);
    // Only the alignment of the first line insets both.
    QCOMPARE(Second().left(), 5);
    QVERIFY(!Shows(regularButtonTextColor, leftOf(First())));
    QVERIFY(Shows(regularButtonTextColor, leftOf(Second())));
    m_Button->SetAlignment(Qt::AlignVCenter, true);
    QVERIFY(Shows(regularButtonTextColor, leftOf(Second())));
    m_Button->SetAlignment(Qt::AlignLeft | Qt::AlignHCenter, true);
    QVERIFY(Shows(regularButtonTextColor, leftOf(Second())));
}

void TPushButtonTextTest::marginOfTheRightIconTakesNoText()
{
    SetText(QStringLiteral("Text"));
    m_Button->SetRightSideIcon(m_Screen->AddImage(QStringLiteral("right"), Qt::red, QSize(25, 25)));
    m_Button->SetRightSideIconMargin(40);
    QCOMPARE(First().right(), 160 - 1 - 25);
}

COMMONUI_TEST(TPushButtonTextTest)
#include "TPushButtonTextTest.moc"
