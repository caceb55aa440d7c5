#include "TMiniWindowTitlebar.h"
#include "Fonts.h"
#include "TestCase.h"
#include "TPushButton.h"
#include "TViewStage.h"

#include <QFontMetrics>
#include <QPainter>

namespace
{
constexpr int TitleWidth = 192;

// A title bar on a window, with its buttons told apart.
class TBarOnScreen
{
public:
    TBarOnScreen()
        : bar(stage.screen.get())
    {
        QList<TPushButton*> const buttons = bar.findChildren<TPushButton*>();
        for (TPushButton* const button : buttons)
        {
            if (button != bar.GetHideButton() && button != bar.GetMaximizeButton())
                centre = button;
        }
        bar.move(200, 300);
        bar.show();
        bar.raise();
    }

    // The bar without its buttons, on a colour of its own.
    QImage Painted()
    {
        QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(20, 90, 40));
        bar.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }

    TViewStage stage;
    TMiniWindowTitlebar bar;
    TPushButton* centre = nullptr;
};

// Letters that come to at least one and at most the other number of pixels.
QString TextOfWidth(QFont const& font, qreal from, qreal to)
{
    QFontMetricsF const metrics(font);
    for (int wide = 0; wide < 30; ++wide)
    {
        for (int middle = 0; middle < 30; ++middle)
        {
            for (int narrow = 0; narrow < 30; ++narrow)
            {
                QString const text = QString(wide, QLatin1Char('m')) + QString(middle, QLatin1Char('e')) +
                                     QString(narrow, QLatin1Char('i'));
                qreal const width = metrics.horizontalAdvance(text);
                if (width >= from && width <= to)
                    return text;
            }
        }
    }
    return {};
}
} // namespace

class TMiniWindowTitlebarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theButtonsHaveTheirPlaces()
    {
        TBarOnScreen screen;
        QCOMPARE(screen.bar.size(), QSize(267, 30));
        QCOMPARE(screen.bar.minimumSize(), screen.bar.maximumSize());
        QCOMPARE(screen.bar.GetHideButton()->geometry(), QRect(0, 0, 42, 30));
        QCOMPARE(screen.centre->geometry(), QRect(60, 0, 147, 60));
        QCOMPARE(screen.bar.GetMaximizeButton()->geometry(), QRect(217, 0, 54, 32));
        QVERIFY(screen.bar.GetHideButton()->isVisible());
        QVERIFY(screen.centre->isVisible());
        QVERIFY(!screen.bar.GetMaximizeButton()->isVisible());
    }

    void theMaximiseButtonLiesOnTop()
    {
        TBarOnScreen screen;
        QObjectList const order = screen.bar.children();
        int const hide = order.indexOf(screen.bar.GetHideButton());
        int const centre = order.indexOf(screen.centre);
        int const maximise = order.indexOf(screen.bar.GetMaximizeButton());
        QVERIFY(hide < centre);
        QVERIFY(centre < maximise);
    }

    void theToolTipsTellButtonAndGesture()
    {
        TBarOnScreen screen;
        QCOMPARE(screen.bar.GetHideButton()->GetToolTip(),
                 QStringLiteral("Hide this window\n"
                                "(or drag the window onto the navigation bar to the left to hide it)"));
        QCOMPARE(screen.bar.GetMaximizeButton()->GetToolTip(),
                 QStringLiteral(
                     "Switch this window to full screen\n(or drag the window to the right to expand it)"));
        QCOMPARE(screen.centre->GetToolTip(), QString());
    }

    void theToolTipsAreTranslatedAsToolTips()
    {
        struct TMark : QTranslator
        {
            QString translate(char const* context, char const* text, char const*, int) const override
            {
                return qstrcmp(context, "ToolTip") == 0
                           ? QLatin1Char('[') + QLatin1String(text) + QLatin1Char(']')
                           : QString();
            }
            bool isEmpty() const override { return false; }
        } mark;
        QCoreApplication::installTranslator(&mark);
        TBarOnScreen screen;
        QCoreApplication::removeTranslator(&mark);
        QCOMPARE(screen.bar.GetHideButton()->GetToolTip(),
                 QStringLiteral("[Hide this window]\n"
                                "[(or drag the window onto the navigation bar to the left to hide it)]"));
        QCOMPARE(
            screen.bar.GetMaximizeButton()->GetToolTip(),
            QStringLiteral(
                "[Switch this window to full screen]\n[(or drag the window to the right to expand it)]"));
    }

    void onlyTheTwoButtonsAreStopsOfTheWheel()
    {
        TBarOnScreen screen;
        QCOMPARE(screen.centre->GetMMIBehaviour(), MMI_EXCLUDED);
        QCOMPARE(screen.bar.GetHideButton()->GetMMIBehaviour(), MMI_NORMAL);
        QCOMPARE(screen.bar.GetMaximizeButton()->GetMMIBehaviour(), MMI_NORMAL);
    }

    void theTitleIsSilentAndTheButtonsAreNot()
    {
        TBarOnScreen screen;
        QVector<int> const& sounds = screen.stage.screen->m_Recorder.m_Sounds;
        screen.stage.finger.Touch(QPoint(200 + 130, 300 + 15));
        QVERIFY(sounds.isEmpty());
        screen.stage.finger.Touch(screen.bar.GetHideButton());
        QCOMPARE(sounds.size(), 1);
    }

    void theArtIsSharedAndKept()
    {
        QPixmap* pixmap = nullptr;
        QFont* font = nullptr;
        {
            TBarOnScreen screen;
            pixmap = TMiniWindowTitlebar::TitleBar;
            font = TMiniWindowTitlebar::FontPtr;
            QVERIFY(pixmap && !pixmap->isNull());
            QCOMPARE(pixmap->toImage(), QImage(QStringLiteral(":/Images/Resources/MiniViewTitlebar.png"))
                                            .convertToFormat(pixmap->toImage().format()));
            QCOMPARE(font->pixelSize(), 14);
            QCOMPARE(font->family(), CONDENSED_BOLD_FONT.family());
            QCOMPARE(font->styleName(), CONDENSED_BOLD_FONT.styleName());
            QVERIFY(font != &CONDENSED_BOLD_FONT);
            TMiniWindowTitlebar const second(screen.stage.screen.get());
            QCOMPARE(TMiniWindowTitlebar::TitleBar, pixmap);
            QCOMPARE(TMiniWindowTitlebar::FontPtr, font);
        }
        QCOMPARE(TMiniWindowTitlebar::TitleBar, pixmap);
        QCOMPARE(TMiniWindowTitlebar::FontPtr, font);
        QVERIFY(!pixmap->isNull());
    }

    void aTitleThatFitsHasNoToolTip_data()
    {
        QTest::addColumn<qreal>("from");
        QTest::addColumn<qreal>("to");
        QTest::addColumn<bool>("fits");
        QTest::newRow("hardly shorter") << TitleWidth - 0.9 << TitleWidth - 0.1 << true;
        QTest::newRow("exactly as wide as the room") << TitleWidth * 1.0 << TitleWidth * 1.0 << true;
        QTest::newRow("hardly longer") << TitleWidth + 0.1 << TitleWidth + 0.9 << false;
        QTest::newRow("far longer") << TitleWidth * 2.0 << TitleWidth * 2.1 << false;
    }

    void aTitleThatFitsHasNoToolTip()
    {
        QFETCH(qreal, from);
        QFETCH(qreal, to);
        QFETCH(bool, fits);
        TBarOnScreen screen;
        QString const title = TextOfWidth(*TMiniWindowTitlebar::FontPtr, from, to);
        QVERIFY(!title.isEmpty());
        screen.bar.SetTitle(title);
        QCOMPARE(screen.centre->GetToolTip(), fits ? QString() : title);
        // The next title stands for itself.
        screen.bar.SetTitle(QStringLiteral("A"));
        QCOMPARE(screen.centre->GetToolTip(), QString());
    }

    void theTitleIsWhiteWithAShadow_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("drawn");
        QFont font(CONDENSED_BOLD_FONT);
        font.setPixelSize(14);
        QString const tooLong(60, QLatin1Char('W'));
        QTest::newRow("none") << QString() << QString();
        QTest::newRow("short") << "Sprayer"
                               << "Sprayer";
        QTest::newRow("elided") << tooLong
                                << QFontMetrics(font).elidedText(tooLong, Qt::ElideRight, TitleWidth);
        QTest::newRow("other letters") << QString::fromUtf8("Gülle (m³)") << QString::fromUtf8("Gülle (m³)");
    }

    void theTitleIsWhiteWithAShadow()
    {
        QFETCH(QString, title);
        QFETCH(QString, drawn);
        TBarOnScreen screen;
        screen.bar.SetTitle(title);
        QFont font(CONDENSED_BOLD_FONT);
        font.setPixelSize(14);
        QImage expected(267, 30, QImage::Format_ARGB32_Premultiplied);
        expected.fill(QColor(20, 90, 40));
        QPainter painter(&expected);
        painter.drawPixmap(10, 3, QPixmap(QStringLiteral(":/Images/Resources/MiniViewTitlebar.png")));
        painter.setFont(font);
        painter.setPen(QColor(QStringLiteral("black")));
        painter.drawText(QRect(QPoint(40, 4), QPoint(246, 33)), Qt::AlignLeft, drawn);
        painter.setPen(QColor(QStringLiteral("white")));
        painter.drawText(QRect(QPoint(39, 3), QPoint(245, 32)), Qt::AlignLeft, drawn);
        painter.end();
        QCOMPARE(screen.Painted(), expected);
    }

    void aNewTitleRepaintsTheBar()
    {
        TBarOnScreen screen;
        struct TPaints : QObject
        {
            bool eventFilter(QObject*, QEvent* event) override
            {
                count += event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
            int count = 0;
        } paints;
        screen.bar.installEventFilter(&paints);
        QTRY_VERIFY(paints.count > 0); // it has come up
        QCoreApplication::processEvents();
        paints.count = 0;
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 0);
        screen.bar.SetTitle(QStringLiteral("Rate"));
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
        screen.bar.SetTitle(QStringLiteral("Rate"));
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
    }
};

COMMONUI_TEST(TMiniWindowTitlebarTest)
#include "TMiniWindowTitlebarTest.moc"
