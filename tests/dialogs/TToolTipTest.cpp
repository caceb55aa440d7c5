#include "TToolTip.h"

#include "Metrics.h"
#include "OddTexts.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TTestPlatform.h"

#include <QImage>
#include <QPainter>

namespace
{
QString const Tip = QStringLiteral("Opens the valves of the boom");
QColor const IconColour(10, 200, 30);
// To both sides of the text.
constexpr int Around = 20;

QSharedPointer<QPixmap> Icon(int width, int height)
{
    auto const icon = QSharedPointer<QPixmap>::create(width, height);
    icon->fill(IconColour);
    return icon;
}

/// A centred text begins at a whole pixel in an odd or an even width.
bool IsAbout(int width, int expected)
{
    return qAbs(width - expected) <= 1;
}

/// A tip on a screen.
struct TStage
{
    explicit TStage(QString const& text = Tip)
        : tip(new TToolTip(screen.get()))
    {
        tip->SetText(text);
        tip->RefreshGeometry();
        tip->SetPosition(QPoint(100, 80));
        tip->show();
    }

    QImage Picture() const
    {
        QImage image(tip->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        tip->render(&image, QPoint(), QRegion(), {});
        return image;
    }
    /// What it looks like without a text.
    QImage Frame() const
    {
        QImage frame(tip->size(), QImage::Format_ARGB32_Premultiplied);
        frame.fill(Qt::transparent);
        QPainter painter(&frame);
        painter.drawPixmap(0, 0,
                           *screen->GetPixmapManager()->GetResizedPixmap(PixmapNames::ToolTipFrame,
                                                                         tip->width(), tip->height()));
        return frame;
    }
    /// The rectangle of what has exactly \a colour.
    QRect Ink(QColor const& colour) const
    {
        QImage const image = Picture();
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
        {
            for (int x = 0; x < image.width(); ++x)
            {
                if (image.pixelColor(x, y) == colour)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    TTestScreen screen;
    TTestPlatform platform;
    QPointer<TToolTip> tip;
};
} // namespace

class TToolTipTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aOneLetterTipUsesTheLargeFont()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(24);
        TStage const one(QStringLiteral("W"));
        QCOMPARE(one.tip->height(), QFontMetrics(font).height() + 14);
        font.setPixelSize(16);
        TStage const two(QStringLiteral("WW"));
        QCOMPARE(two.tip->height(), QFontMetrics(font).height() + 14);
        QVERIFY(one.Ink(ToolTipTextColor).height() > two.Ink(ToolTipTextColor).height());
    }

    void anIconOfExactly101PixelsInHeightIsNotShown()
    {
        TStage stage;
        QSize const plain = stage.tip->size();
        stage.tip->SetToolIcon(Icon(30, 101));
        stage.tip->RefreshGeometry();
        QCOMPARE(stage.tip->size(), plain);
        QVERIFY(stage.Ink(IconColour).isEmpty());
        stage.tip->SetToolIcon(Icon(30, 100));
        stage.tip->RefreshGeometry();
        QVERIFY(IsAbout(stage.tip->width(), plain.width() + 35));
        QCOMPARE(stage.tip->height(), 115);
        QCOMPARE(stage.Ink(IconColour).size(), QSize(30, 100));
    }

    void aReleaseOutsideLeavesItUp()
    {
        TStage stage;
        TFinger finger(stage.screen.get());
        finger.Press(stage.tip->geometry().center());
        finger.Move(stage.tip->geometry().bottomRight() + QPoint(1, 1));
        finger.Lift();
        QCOMPARE(stage.platform.m_HiddenToolTips, 0);
    }

    void aTapClosesIt_data()
    {
        QTest::addColumn<bool>("atEnd");
        QTest::newRow("first pixel") << false;
        QTest::newRow("last pixel") << true;
    }

    void aTapClosesIt()
    {
        QFETCH(bool, atEnd);
        TStage stage;
        QRect const place = stage.tip->geometry();
        TFinger(stage.screen.get()).Touch(atEnd ? place.bottomRight() : place.topLeft());
        QCOMPARE(stage.platform.m_HiddenToolTips, 1);
    }

    void theSizeFollowsTheText()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(16);
        TStage const stage;
        QSize const text = QFontMetrics(font).size(0, Tip);
        QVERIFY(IsAbout(stage.tip->width(), text.width() + Around));
        QCOMPARE(stage.tip->height(), text.height() + 14);
    }

    void theSizeFollowsASmallIcon()
    {
        TStage stage;
        QSize const plain = stage.tip->size();
        stage.tip->SetToolIcon(Icon(40, 8)); // lower than the text
        stage.tip->RefreshGeometry();
        QVERIFY(IsAbout(stage.tip->width(), plain.width() + 45));
        QCOMPARE(stage.tip->height(), plain.height());
        QCOMPARE(stage.Ink(IconColour), QRect(5, (plain.height() - 8) / 2, 40, 8));
        QRect const text = stage.Ink(ToolTipTextColor);
        QVERIFY(text.left() > 45);
        QVERIFY(text.right() < stage.tip->width() - 10);
    }

    void aWhiteIconIsSeenOnTheLightFrame()
    {
        TStage stage;
        auto const icon = QSharedPointer<QPixmap>::create(40, 40);
        icon->fill(Qt::transparent);
        stage.tip->SetToolIcon(icon);
        stage.tip->RefreshGeometry();
        QColor const behind = stage.Picture().pixelColor(25, stage.tip->height() / 2);
        QVERIFY2(behind.lightness() < 60, qPrintable(behind.name()));
    }

    void aLongTextWrapsInsideTheScreen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("words") << Tip.repeated(20).replace(QStringLiteral("boomO"), QStringLiteral("boom O"));
        QTest::newRow("right to left") << QString(3000, QChar(0x05d0)).replace(7, 1, QStringLiteral(" "));
        QTest::newRow("unknown script") << QString(3000, QChar(0x1200));
    }

    void aLongTextWrapsInsideTheScreen()
    {
        QFETCH(QString, text);
        TStage const stage(text);
        QVERIFY(stage.tip->width() <= SCREEN_WIDTH - 3);
        QVERIFY(stage.tip->height() <= SCREEN_HEIGHT - 3);
        QVERIFY(stage.tip->height() > 40);
        QVERIFY(stage.Picture() != stage.Frame());
    }

    void aGiantTextTakesTheWholeRoom_data() { AddOddTexts(); }

    void aGiantTextTakesTheWholeRoom()
    {
        QFETCH(QString, text);
        TStage stage(text);
        QVERIFY(stage.tip->width() <= SCREEN_WIDTH - 3);
        QCOMPARE(stage.tip->height(), SCREEN_HEIGHT - 3);
        QVERIFY(stage.Picture() != stage.Frame());
        QVERIFY(stage.Ink(ToolTipTextColor).right() <= stage.tip->width() - 10);
        QVERIFY(stage.Ink(ToolTipTextColor).bottom() <= stage.tip->height() - 10);
        stage.tip->SetToolIcon(Icon(30000, 100));
        stage.tip->RefreshGeometry();
        QCOMPARE(stage.tip->width(), SCREEN_WIDTH - 3);
        QVERIFY(stage.tip->height() <= SCREEN_HEIGHT - 3);
        QVERIFY(stage.Ink(ToolTipTextColor).isEmpty());
    }

    void aTipInASmallParentStaysInside_data()
    {
        QTest::addColumn<QSize>("parent");
        QTest::addColumn<QSize>("size");
        QTest::newRow("roomy") << QSize(200, 60) << QSize(197, 57);
        QTest::newRow("narrower than the frame") << QSize(10, 10) << QSize(7, 7);
        QTest::newRow("no room") << QSize(2, 2) << QSize(0, 0);
    }

    void aTipInASmallParentStaysInside()
    {
        QFETCH(QSize, parent);
        QFETCH(QSize, size);
        TTestScreen const screen;
        QWidget page(screen.get());
        page.resize(parent);
        TToolTip tip(&page);
        tip.SetText(QString(1000, QLatin1Char('m')));
        tip.RefreshGeometry();
        QCOMPARE(tip.size(), size);
        tip.show();
        QVERIFY(size.isEmpty() || !tip.grab().isNull());
    }

    void theFrameFillsIt()
    {
        TStage const stage(QStringLiteral(" "));
        QCOMPARE(stage.Picture(), stage.Frame());
    }

    void theTextIsAProperty()
    {
        TStage stage;
        QCOMPARE(stage.tip->property("m_tip").toString(), Tip);
        QVERIFY(stage.tip->setProperty("m_tip", QStringLiteral("Other")));
        QCOMPARE(stage.tip->GetText(), QStringLiteral("Other"));
    }

    void withoutParentScreenAndPlatformNothingHappens()
    {
        TToolTip tip(nullptr);
        tip.SetText(QStringLiteral("word ").repeated(2000));
        tip.RefreshGeometry();
        QVERIFY(tip.width() <= SCREEN_WIDTH - 3);
        QVERIFY(tip.height() <= SCREEN_HEIGHT - 3);
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QCoreApplication::sendEvent(&tip, &release);
        QImage image(tip.size(), QImage::Format_ARGB32_Premultiplied);
        tip.render(&image);
    }

    void thePlatformMayDeleteItAtTheTap()
    {
        TStage stage;
        stage.platform.m_OnHideToolTip = [&stage] { delete stage.tip; };
        TFinger(stage.screen.get()).Touch(stage.tip->geometry().center());
        QVERIFY(!stage.tip);
    }

    void itMayDieWhileShownAndPressed()
    {
        TStage stage;
        TFinger finger(stage.screen.get());
        finger.Press(stage.tip->geometry().center());
        delete stage.tip;
        finger.Lift();
        QCOMPARE(stage.platform.m_HiddenToolTips, 0);
    }
};

COMMONUI_TEST(TToolTipTest)
#include "TToolTipTest.moc"
