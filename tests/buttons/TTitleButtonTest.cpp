#include "TTitleButton.h"
#include "ButtonTestSupport.h"
#include "GoldenPicture.h"

#include <QSignalSpy>

namespace
{
const QSize ButtonSize(150, 70);

// Rows of the picture that hold a pixel of the colour, as first and last; -1 without one.
QPair<int, int> RowsOf(QImage const& picture, QColor const& colour)
{
    QPair<int, int> rows(-1, -1);
    for (int y = 0; y < picture.height(); ++y)
    {
        for (int x = 0; x < picture.width(); ++x)
        {
            if (picture.pixelColor(x, y) != colour)
                continue;
            rows = {rows.first < 0 ? y : rows.first, y};
            break;
        }
    }
    return rows;
}

int LeftmostOf(QImage const& picture, QColor const& colour)
{
    for (int x = 0; x < picture.width(); ++x)
    {
        for (int y = 0; y < picture.height(); ++y)
        {
            if (picture.pixelColor(x, y) == colour)
                return x;
        }
    }
    return -1;
}
} // namespace

class TTitleButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>(ButtonSize);
        m_Window->setPalette(QPalette(QColor(38, 41, 46)));
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void withoutTitleAndTextTheWidthHintIsNothing();
    void iconHasItsOwnSizeAndPlace();
    void iconEnablesWhateverItIsTold();
    void constructorNamesIconAndSkins();
    void titleStandsAboveTheText();
    void textStandsBesideTheIcon();
    void titleHasItsOwnType();
    void textHasTheTypeOfTheFirstLine();
    void baseLinesAreNotDrawn();
    void changesShow();
    void disabledIsDimmed();
    void toolTipMarkIsOnTop();
    void anyTextAndSizeIsDrawn();
    void mayBeDeletedByItsClick();
    void picture();

private:
    TTitleButton* Make()
    {
        auto* const button = new TTitleButton(m_Window.get(), 4);
        button->setGeometry(QRect(QPoint(), ButtonSize));
        button->show();
        return button;
    }
    QImage Seen() const { return m_Window->grab().toImage(); }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TTitleButtonTest::withoutTitleAndTextTheWidthHintIsNothing()
{
    TTitleButton* const button = Make();
    button->setMinimumHeight(44);
    QCOMPARE(button->sizeHint(), QSize(0, 44));
    button->SetTitle(QStringLiteral("Title"));
    QCOMPARE(button->sizeHint(), QSize(150, 44));
    button->SetTitle(QString());
    button->SetText(QStringLiteral("Text"));
    QCOMPARE(button->sizeHint(), QSize(150, 44));
    button->SetText(QString());
    QCOMPARE(button->sizeHint().width(), 0);
    button->setMinimumHeight(0);
    QCOMPARE(button->sizeHint().height(), 57);
}

void TTitleButtonTest::iconHasItsOwnSizeAndPlace()
{
    TTitleButton* const button = Make();
    button->SetIcon(QStringLiteral("icon-tank"), QSize(20, 20), true);
    QCOMPARE(button->GetIconSize(), QSize(34, 34));
    QCOMPARE(QPoint(button->GetIconLeftPosition(), button->GetIconTopPosition()), QPoint(5, 25));
    button->resize(200, 100);
    QCOMPARE(button->GetIconSize(), QSize(34, 34));
    QCOMPARE(QPoint(button->GetIconLeftPosition(), button->GetIconTopPosition()), QPoint(5, 25));
}

void TTitleButtonTest::iconEnablesWhateverItIsTold()
{
    TTitleButton* const button = Make();
    button->setEnabled(false);
    button->SetIcon(QStringLiteral("icon-tank"), QSize(), false);
    QVERIFY(button->isEnabled());
    button->setEnabled(false);
    m_Window->Expose();
    button->resize(200, 100);
    QVERIFY(button->isEnabled());
}

void TTitleButtonTest::constructorNamesIconAndSkins()
{
    m_Screen->AddImage(QStringLiteral("up"), Qt::red);
    m_Screen->AddImage(QStringLiteral("down"), Qt::green);
    auto* const button = new TTitleButton(m_Window.get(), QStringLiteral("icon-tank"), QStringLiteral("up"),
                                          QStringLiteral("down"), 9);
    button->setGeometry(QRect(QPoint(), ButtonSize));
    QCOMPARE(button->GetButtonId(), 9);
    QCOMPARE(button->GetIconSize(), QSize(34, 34));
    QCOMPARE(button->GetIconTopPosition(), 25);
    QCOMPARE(button->objectName(), QStringLiteral("icon-tank"));
    QCOMPARE(Seen().pixelColor(100, 5), QColor(Qt::red));
    button->setDown(true);
    QCOMPARE(Seen().pixelColor(100, 5), QColor(Qt::green));
}

void TTitleButtonTest::titleStandsAboveTheText()
{
    TTitleButton* const button = Make();
    button->SetTitleFontProperties(Qt::red, 14, true, true, false, Qt::AlignCenter);
    button->SetFontProperties(Qt::green, 14, true, true, false, Qt::AlignCenter, false);
    button->SetTitle(QStringLiteral("HHHH"));
    button->SetText(QStringLiteral("HHHH"));
    // The text area is 60 high: the title has 5 to 31 and the text 32 to 64, each in its middle.
    QPair<int, int> const title = RowsOf(Seen(), Qt::red);
    QPair<int, int> const text = RowsOf(Seen(), Qt::green);
    QVERIFY(qAbs((title.first + title.second) / 2 - 18) <= 2);
    QVERIFY(qAbs((text.first + text.second) / 2 - 48) <= 2);
}

void TTitleButtonTest::textStandsBesideTheIcon()
{
    TTitleButton* const button = Make();
    button->SetTitleFontProperties(Qt::red, 14, true, true, false, Qt::AlignLeft);
    button->SetFontProperties(Qt::green, 14, true, true, false, Qt::AlignLeft, false);
    button->SetTitle(QStringLiteral("H"));
    button->SetText(QStringLiteral("H"));
    QVERIFY(LeftmostOf(Seen(), Qt::green) < 15);
    button->SetIcon(QStringLiteral("icon-tank"), QSize(), true);
    QImage const seen = Seen();
    QVERIFY(LeftmostOf(seen, Qt::green) >= 39);
    QVERIFY(LeftmostOf(seen, Qt::green) < 48);
    QVERIFY(LeftmostOf(seen, Qt::red) < 15);
}

void TTitleButtonTest::titleHasItsOwnType()
{
    TTitleButton* const button = Make();
    button->SetTitle(QStringLiteral("HHHH"));
    auto const rows = [&](QColor const& colour)
    {
        auto const found = RowsOf(Seen(), colour);
        return found.second - found.first + 1;
    };
    int const small = rows(Qt::white);
    QVERIFY(small >= 8);
    button->SetFontProperties(Qt::red, 30, true, true, false, Qt::AlignCenter, false);
    QCOMPARE(rows(Qt::white), small);
    button->SetTitleFontProperties(Qt::yellow, 22, true, true, false, Qt::AlignCenter);
    QVERIFY(rows(Qt::yellow) > small + 3);
    QImage const bold = Seen();
    button->SetTitleFontProperties(Qt::yellow, 22, false, true, false, Qt::AlignCenter);
    QVERIFY(Seen() != bold);
    button->SetTitleFontProperties(Qt::yellow, 22, true, true, false, Qt::AlignLeft);
    QVERIFY(LeftmostOf(Seen(), Qt::yellow) < LeftmostOf(bold, Qt::yellow) - 20);
    button->SetTitleFontProperties(Qt::yellow, 22, true, true, true, Qt::AlignCenter);
    QVERIFY(Seen() != bold);
}

void TTitleButtonTest::textHasTheTypeOfTheFirstLine()
{
    TTitleButton* const button = Make();
    button->SetText(QStringLiteral("HHHH"));
    QVERIFY(RowsOf(Seen(), Qt::white).first > 32);
    button->SetFontProperties(Qt::red, 24, true, true, false, Qt::AlignCenter, false);
    QPair<int, int> const rows = RowsOf(Seen(), Qt::red);
    QVERIFY(rows.second - rows.first >= 15);
}

void TTitleButtonTest::baseLinesAreNotDrawn()
{
    TTitleButton* const button = Make();
    QImage const empty = Seen();
    button->SetText(QStringLiteral("First"), QString(), true, QStringLiteral("Second"), true);
    QCOMPARE(Seen(), empty);
}

void TTitleButtonTest::changesShow()
{
    TTitleButton* const button = Make();
    m_Window->Expose();
    QImage before = Seen();
    auto const changed = [&]
    {
        QImage const now = Seen();
        return std::exchange(before, now) != now;
    };
    button->SetTitle(QStringLiteral("Title"));
    QVERIFY(changed());
    button->SetText(QStringLiteral("Text"));
    QVERIFY(changed());
    button->SetTitle(QStringLiteral("Title"));
    button->SetText(QStringLiteral("Text"));
    QVERIFY(!changed());
}

void TTitleButtonTest::disabledIsDimmed()
{
    TTitleButton* const button = Make();
    button->SetTitle(QStringLiteral("HHHH"));
    QVERIFY(RowsOf(Seen(), Qt::white).first >= 0);
    button->setEnabled(false);
    QCOMPARE(RowsOf(Seen(), Qt::white).first, -1);
    button->SetForegroundDisabledOpacity(1.0F);
    QVERIFY(RowsOf(Seen(), Qt::white).first >= 0);
}

void TTitleButtonTest::toolTipMarkIsOnTop()
{
    TRecordingPlatform platform;
    TTitleButton* const button = Make();
    button->SetTitle(QStringLiteral("HHHH"));
    button->SetToolTip(QStringLiteral("Tip"));
    QImage const plain = Seen();
    platform.SetMode(true);
    QVERIFY(Seen().copy(0, 0, 22, 22) != plain.copy(0, 0, 22, 22));
    QCOMPARE(Seen().copy(30, 0, 100, 70), plain.copy(30, 0, 100, 70));
}

void TTitleButtonTest::anyTextAndSizeIsDrawn()
{
    TTitleButton* const button = Make();
    QString const texts[] = {QString(100000, QLatin1Char('W')), QStringLiteral("<b>&amp;\n\t"),
                             QString(QChar(0xd800)), QStringLiteral("\u05d0\u05d1\u05d2")};
    for (QString const& text : texts)
    {
        button->SetTitle(text);
        button->SetText(text);
        for (QSize const& size : {QSize(0, 0), QSize(3, 200), QSize(200, 3), ButtonSize})
        {
            button->resize(size);
            QVERIFY(!Seen().isNull());
        }
    }
    button->SetTitleFontProperties(QColor(), -4, true, true, true, -1);
    QVERIFY(!Seen().isNull());
}

void TTitleButtonTest::mayBeDeletedByItsClick()
{
    QPointer<TTitleButton> const button(Make());
    m_Window->Expose();
    connect(button.data(), &TPushButton::Clicked, this, [button] { delete button.data(); });
    TFinger(*m_Window).Tap(QPoint(70, 30));
    QVERIFY(!button);
}

void TTitleButtonTest::picture()
{
    auto* const button =
        new TTitleButton(m_Window.get(), QStringLiteral("icon-tank"), QStringLiteral("NewStandardButton"),
                         QStringLiteral("NewStandardButtonSelected"), 1);
    button->setGeometry(QRect(QPoint(), ButtonSize));
    button->SetTitle(QStringLiteral("Main Tank"));
    button->SetText(QStringLiteral("2400 l"));
    m_Window->Expose();
    COMPARE_PICTURE(Seen(), "title-button");
}

COMMONUI_TEST(TTitleButtonTest)
#include "TTitleButtonTest.moc"
