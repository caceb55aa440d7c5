#include "ButtonTestSupport.h"
#include "Palette.h"

#include <QPainter>

namespace
{
constexpr QRect ButtonRect(100, 100, 60, 57);
// A place on the button that neither icon nor text nor frame covers.
constexpr QPoint Corner(4, 4);

QColor Mixed(QColor const& above, QColor const& below, double opacity)
{
    auto const mix = [opacity](int a, int b) { return qRound(a * opacity + b * (1 - opacity)); };
    return {mix(above.red(), below.red()), mix(above.green(), below.green()),
            mix(above.blue(), below.blue())};
}

bool Near(QColor const& left, QColor const& right)
{
    return qAbs(left.red() - right.red()) <= 2 && qAbs(left.green() - right.green()) <= 2 &&
           qAbs(left.blue() - right.blue()) <= 2;
}

QSharedPointer<QPixmap> Coloured(QColor const& colour, QSize const& size, bool alpha = true)
{
    QImage image(size, alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.fill(colour);
    return QSharedPointer<QPixmap>::create(QPixmap::fromImage(image));
}

/// Counts its paints.
class TCountingButton : public TPushButton
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

Q_DECLARE_METATYPE(std::function<void(TPushButton*)>)

class TPushButtonLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Platform = std::make_unique<TRecordingPlatform>();
        m_Window = std::make_unique<TListeningWindow>();
        m_Button = new TCountingButton(m_Window.get(), 1, QString());
        m_Button->setGeometry(ButtonRect);
        m_Window->Expose();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Platform.reset();
        m_Screen.reset();
    }

    void stateChoosesTheBackground_data();
    void stateChoosesTheBackground();
    void pressedByAFingerShowsTheSelectedBackground();
    void disabledWithoutItsOwnBackgroundShowsTheNormalOne();
    void stateWithoutABackgroundShowsWhatIsBehind_data();
    void stateWithoutABackgroundShowsWhatIsBehind();
    void halfOpacityForDisabled_data();
    void halfOpacityForDisabled();
    void opaqueBackgroundStaysFullWhenDisabled();
    void foregroundDimsWhenDisabled();
    void opaquePaintingFollowsTheNormalBackground();
    void backgroundSetTwiceIsNotPaintedTwice();
    void onlyTheVisibleStateIsPaintedAnew_data();
    void onlyTheVisibleStateIsPaintedAnew();
    void namedBackgroundFollowsTheSize();
    void pixmapBackgroundKeepsItsCornersAtEverySize();
    void everyBackgroundFollowsTheSize_data();
    void everyBackgroundFollowsTheSize();
    void emptyNameClearsTheBackground();
    void flatColour_data();
    void flatColour();
    void newBackgroundEndsFlatColour();
    void sameNameAfterFlatColourComesBack();

    void iconTakesTheSmallerSide_data();
    void iconTakesTheSmallerSide();
    void namedIconFollowsTheSize();
    void resizeLeavesAnIconPixmapAlone();
    void resizeLeavesAPictureIconAlone();
    void iconEnablesOnlyWhenAsked();
    void pictureIconIsScaledDownOnly_data();
    void pictureIconIsScaledDownOnly();
    void pictureIconTurnsGreyByItsLuminance();
    void disabledIconIsMadeWhenNeeded();
    void iconOfADisabledButtonIsGreyAtOnce();
    void disabledIconTakesTheSideOfTheIcon();
    void newIconBringsItsOwnDisabledIcon();
    void resizeLeavesADisabledButtonDisabled();
    void sameIconIsNotPaintedTwice();
    void greyPictureKeepsItsTransparency();
    void iconPosition_data();
    void iconPosition();
    void positionsTurnEachOtherOff();
    void centredPositionFollowsTheHeight();
    void rightSideIconStandsAtItsMargin();
    void emptyIconNameClearsTheIcon();

    void toolTipMarkShowsInToolTipMode();
    void highlightAndANewIconRepaint();
    void everyPaintGivesTheSamePixels_data();
    void everyPaintGivesTheSamePixels();
    void changeShowsAfterManyPaints_data();
    void changeShowsAfterManyPaints();

private:
    QColor Seen(QPoint const& at = Corner) const
    {
        QCoreApplication::processEvents();
        return m_Window->grab().toImage().pixelColor(ButtonRect.topLeft() + at);
    }
    QString Image(char const* name, QColor const& colour, QSize const& size = QSize(20, 20))
    {
        return m_Screen->AddImage(QString::fromLatin1(name), colour, size);
    }
    int PaintsAfter(std::function<void()> const& act)
    {
        QCoreApplication::processEvents();
        m_Button->paints = 0;
        act();
        QCoreApplication::processEvents();
        return m_Button->paints;
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TRecordingPlatform> m_Platform;
    std::unique_ptr<TListeningWindow> m_Window;
    TCountingButton* m_Button = nullptr;
};

void TPushButtonLookTest::stateChoosesTheBackground_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("highlighted");
    QTest::addColumn<QColor>("colour");
    QColor const normal(Qt::red);
    QColor const selected(Qt::green);
    QColor const checked(Qt::yellow);
    QColor const disabled(Qt::magenta);
    QColor const behind(Qt::blue);
    QTest::newRow("normal") << true << false << false << false << normal;
    QTest::newRow("down") << true << false << true << false << selected;
    QTest::newRow("highlighted") << true << false << false << true << selected;
    QTest::newRow("checked") << true << true << false << false << checked;
    QTest::newRow("checked and down") << true << true << true << false << checked;
    QTest::newRow("checked and highlighted") << true << true << false << true << checked;
    QTest::newRow("disabled") << false << false << false << false << disabled;
    QTest::newRow("disabled and highlighted") << false << false << false << true << behind;
    QTest::newRow("disabled and checked") << false << true << false << false << behind;
}

void TPushButtonLookTest::stateChoosesTheBackground()
{
    QFETCH(bool, enabled);
    QFETCH(bool, checked);
    QFETCH(bool, down);
    QFETCH(bool, highlighted);
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->SetBackgroundSelected(Image("selected", Qt::green));
    m_Button->SetBackgroundChecked(Image("checked", Qt::yellow));
    m_Button->SetBackgroundDisabled(Image("disabled", Qt::magenta));
    m_Button->SetBackgroundDisabledOpacity(1.0F);
    m_Button->setCheckable(true);
    m_Button->setChecked(checked);
    m_Button->setEnabled(enabled);
    m_Button->setDown(down);
    if (highlighted)
        m_Button->OnMMIHighlight();
    QTEST(Seen(), "colour");
}

void TPushButtonLookTest::pressedByAFingerShowsTheSelectedBackground()
{
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->SetBackgroundSelected(Image("selected", Qt::green));
    TFinger const finger(*m_Window);
    finger.Press(ButtonRect.center());
    QCOMPARE(Seen(), QColor(Qt::green));
    finger.Release(ButtonRect.center());
    QCOMPARE(Seen(), QColor(Qt::red));
}

void TPushButtonLookTest::disabledWithoutItsOwnBackgroundShowsTheNormalOne()
{
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->setEnabled(false);
    QCOMPARE(Seen(), QColor(Qt::red));
}

void TPushButtonLookTest::stateWithoutABackgroundShowsWhatIsBehind_data()
{
    QTest::addColumn<QColor>("normal");
    QTest::addColumn<bool>("down");
    QTest::newRow("opaque, down") << QColor(Qt::red) << true;
    QTest::newRow("opaque, highlighted") << QColor(Qt::red) << false;
    QTest::newRow("translucent, down") << QColor(255, 0, 0, 254) << true;
    QTest::newRow("translucent, highlighted") << QColor(255, 0, 0, 254) << false;
}

// Not dimmed, and nothing of the state before is left over.
void TPushButtonLookTest::stateWithoutABackgroundShowsWhatIsBehind()
{
    QFETCH(QColor, normal);
    QFETCH(bool, down);
    m_Button->SetBackground(Image("normal", normal));
    QVERIFY(Near(Seen(), QColor(Qt::red)));
    if (down)
        m_Button->setDown(true);
    else
        m_Button->OnMMIHighlight();
    QCOMPARE(Seen(), QColor(Qt::blue));
    if (down)
        m_Button->setDown(false);
    else
        m_Button->OnMMIUnHighlight();
    QVERIFY(Near(Seen(), QColor(Qt::red)));
}

void TPushButtonLookTest::halfOpacityForDisabled_data()
{
    QTest::addColumn<QVector<double>>("set"); // background, then, if any, background when disabled
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<double>("opacity");
    QTest::newRow("nothing set, enabled") << QVector<double>{} << true << 1.0;
    QTest::newRow("nothing set, disabled") << QVector<double>{} << false << 0.5;
    QTest::newRow("0.8, enabled") << QVector<double>{0.8} << true << 0.8;
    QTest::newRow("0.8, disabled") << QVector<double>{0.8} << false << 0.4;
    QTest::newRow("0.8 and 0.9, disabled") << QVector<double>{0.8, 0.9} << false << 0.9;
}

void TPushButtonLookTest::halfOpacityForDisabled()
{
    QFETCH(QVector<double>, set);
    QFETCH(bool, enabled);
    QFETCH(double, opacity);
    QColor const translucent(255, 0, 0, 254);
    m_Button->SetBackground(Image("normal", translucent));
    if (!set.isEmpty())
        m_Button->SetBackgroundOpacity(float(set[0]));
    if (set.size() > 1)
        m_Button->SetBackgroundDisabledOpacity(float(set[1]));
    m_Button->setEnabled(enabled);
    QVERIFY2(Near(Seen(), Mixed(Qt::red, Qt::blue, opacity)), qPrintable(Seen().name()));
}

void TPushButtonLookTest::opaqueBackgroundStaysFullWhenDisabled()
{
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->setEnabled(false);
    QCOMPARE(Seen(), QColor(Qt::red));
    m_Button->SetBackground(Coloured(Qt::red, QSize(50, 50), false));
    QVERIFY2(Near(Seen(), Mixed(Qt::red, Qt::blue, 0.5)), qPrintable(Seen().name()));
}

void TPushButtonLookTest::foregroundDimsWhenDisabled()
{
    QPoint const middle(30, 28);
    m_Button->SetIcon(Coloured(Qt::white, QSize(20, 20)), QSharedPointer<QPixmap>());
    QCOMPARE(Seen(middle), QColor(Qt::white));
    m_Button->setEnabled(false);
    QVERIFY(Near(Seen(middle), Mixed(Qt::white, Qt::blue, 0.5)));
    m_Button->SetForegroundDisabledOpacity(0.2F);
    QVERIFY(Near(Seen(middle), Mixed(Qt::white, Qt::blue, 0.2)));
}

void TPushButtonLookTest::opaquePaintingFollowsTheNormalBackground()
{
    m_Button->SetBackground(Image("opaque", Qt::red));
    QVERIFY(m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackgroundSelected(Image("clear", QColor(0, 255, 0, 100)));
    QVERIFY(m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackground(QStringLiteral("clear"));
    QVERIFY(!m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackground(Coloured(Qt::red, QSize(50, 50), false));
    QVERIFY(m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackgroundColor(QColor(1, 2, 3, 100));
    QVERIFY(!m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackgroundColor(QColor(1, 2, 3));
    QVERIFY(m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackgroundOpacity(0.5F);
    QVERIFY(!m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY2(Near(Seen(), Mixed(QColor(1, 2, 3), Qt::blue, 0.5)), qPrintable(Seen().name()));
}

void TPushButtonLookTest::backgroundSetTwiceIsNotPaintedTwice()
{
    QString const name = Image("normal", Qt::red);
    QCOMPARE(PaintsAfter([&] { m_Button->SetBackground(name); }), 1);
    QCOMPARE(PaintsAfter([&] { m_Button->SetBackground(name); }), 0);
}

void TPushButtonLookTest::onlyTheVisibleStateIsPaintedAnew_data()
{
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QVector<int>>("paints"); // normal, selected, checked, disabled
    QTest::newRow("idle") << false << false << true << QVector<int>{1, 0, 0, 0};
    QTest::newRow("down") << true << false << true << QVector<int>{1, 1, 0, 0};
    QTest::newRow("checked") << false << true << true << QVector<int>{1, 0, 1, 0};
    QTest::newRow("disabled") << false << false << false << QVector<int>{1, 0, 0, 1};
}

void TPushButtonLookTest::onlyTheVisibleStateIsPaintedAnew()
{
    QFETCH(bool, down);
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    m_Button->setCheckable(true);
    m_Button->setChecked(checked);
    m_Button->setEnabled(enabled);
    m_Button->setDown(down);
    // Translucent, so that no state changes how the button is painted.
    QString const name = Image("any", QColor(9, 9, 9, 90));
    auto const pixmap = Coloured(QColor(255, 0, 0, 90), QSize(50, 50));
    QVector<int> const byName{PaintsAfter([&] { m_Button->SetBackground(name); }),
                              PaintsAfter([&] { m_Button->SetBackgroundSelected(name); }),
                              PaintsAfter([&] { m_Button->SetBackgroundChecked(name); }),
                              PaintsAfter([&] { m_Button->SetBackgroundDisabled(name); })};
    QTEST(byName, "paints");
    QVector<int> const byPixmap{PaintsAfter([&] { m_Button->SetBackground(pixmap); }),
                                PaintsAfter([&] { m_Button->SetBackgroundSelected(pixmap); }),
                                PaintsAfter([&] { m_Button->SetBackgroundChecked(pixmap); }),
                                PaintsAfter([&] { m_Button->SetBackgroundDisabled(pixmap); })};
    QTEST(byPixmap, "paints");
}

void TPushButtonLookTest::namedBackgroundFollowsTheSize()
{
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->resize(150, 120);
    QCOMPARE(Seen(QPoint(149, 119)), QColor(Qt::red));
    QCOMPARE(Seen(QPoint(150, 119)), QColor(Qt::blue));
}

void TPushButtonLookTest::pixmapBackgroundKeepsItsCornersAtEverySize()
{
    // A white frame of 16 pixels around green.
    auto const frame = Coloured(Qt::white, QSize(57, 57));
    QPainter(frame.data()).fillRect(16, 16, 25, 25, Qt::green);
    m_Button->SetBackground(frame);
    for (QSize const& size : {QSize(60, 57), QSize(200, 100)})
    {
        m_Button->resize(size);
        QCOMPARE(Seen(QPoint(15, 15)), QColor(Qt::white));
        QCOMPARE(Seen(QPoint(16, 16)), QColor(Qt::green));
        QCOMPARE(Seen(QPoint(size.width() - 17, size.height() - 17)), QColor(Qt::green));
        QCOMPARE(Seen(QPoint(size.width() - 16, size.height() - 17)), QColor(Qt::white));
        QCOMPARE(Seen(QPoint(size.width() - 17, size.height() - 16)), QColor(Qt::white));
    }
    QCOMPARE(frame->size(), QSize(57, 57));
}

void TPushButtonLookTest::emptyNameClearsTheBackground()
{
    m_Button->SetBackground(Image("normal", Qt::red));
    m_Button->SetBackground(QString());
    QCOMPARE(Seen(), QColor(Qt::blue));
    QVERIFY(!m_Button->testAttribute(Qt::WA_OpaquePaintEvent));
    m_Button->SetBackground(Coloured(Qt::red, QSize(50, 50)));
    m_Button->SetBackground(QSharedPointer<QPixmap>());
    QCOMPARE(Seen(), QColor(Qt::blue));
}

void TPushButtonLookTest::flatColour_data()
{
    QTest::addColumn<QColor>("set");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QColor>("seen");
    QColor const own(10, 120, 30);
    QColor const dimmed = Mixed(own, Qt::blue, 0.5);
    QTest::newRow("own") << own << true << false << false << own;
    QTest::newRow("down") << own << true << true << false << pushButtonSelectedColor;
    QTest::newRow("checked") << own << true << false << true << pushButtonSelectedColor;
    QTest::newRow("disabled") << own << false << false << false << dimmed;
    QTest::newRow("disabled and checked") << own << false << false << true << dimmed;
    QTest::newRow("invalid") << QColor() << true << false << false << pushButtonColor;
    QTest::newRow("translucent") << QColor(255, 0, 0, 51) << true << false << false
                                 << Mixed(Qt::red, Qt::blue, 0.2);
}

void TPushButtonLookTest::flatColour()
{
    QFETCH(QColor, set);
    QFETCH(bool, enabled);
    QFETCH(bool, down);
    QFETCH(bool, checked);
    QFETCH(QColor, seen);
    m_Button->SetBackgroundColor(set);
    m_Button->setCheckable(true);
    m_Button->setChecked(checked);
    m_Button->setEnabled(enabled);
    m_Button->setDown(down);
    QVERIFY2(Near(Seen(), seen), qPrintable(Seen().name()));
    if (enabled)
    {
        QCOMPARE(Seen(QPoint(0, 0)), sunkenFrameHighlightColor);
        QCOMPARE(Seen(QPoint(59, 56)), sunkenFrameShadowColor);
    }
}

void TPushButtonLookTest::newBackgroundEndsFlatColour()
{
    m_Button->SetBackgroundColor(QColor(10, 120, 30));
    m_Button->SetBackground(Image("normal", Qt::red));
    QCOMPARE(Seen(), QColor(Qt::red));
    m_Button->SetBackgroundColor(QColor(10, 120, 30));
    m_Button->SetBackgroundSelected(Coloured(Qt::green, QSize(50, 50)));
    QCOMPARE(Seen(), QColor(Qt::red));
}

void TPushButtonLookTest::sameNameAfterFlatColourComesBack()
{
    QString const name = Image("normal", Qt::red);
    m_Button->SetBackground(name);
    m_Button->SetBackgroundColor(QColor(10, 120, 30));
    QCOMPARE(Seen(), QColor(10, 120, 30));
    m_Button->SetBackground(name);
    QCOMPARE(Seen(), QColor(Qt::red));
}

void TPushButtonLookTest::iconTakesTheSmallerSide_data()
{
    QTest::addColumn<QSize>("asked");
    QTest::addColumn<int>("side");
    QTest::newRow("wide") << QSize(40, 30) << 30;
    QTest::newRow("tall") << QSize(25, 30) << 25;
    QTest::newRow("of the button") << QSize(-1, -1) << 57;
    QTest::newRow("half negative") << QSize(20, -1) << 57;
}

void TPushButtonLookTest::iconTakesTheSmallerSide()
{
    QFETCH(QSize, asked);
    m_Button->SetIcon(Image("icon", Qt::white, QSize(200, 200)), asked, true);
    QFETCH(int, side);
    QCOMPARE(m_Button->GetIconSize(), QSize(side, side));
}

void TPushButtonLookTest::namedIconFollowsTheSize()
{
    m_Button->SetIcon(Image("icon", Qt::white, QSize(200, 200)), QSize(-1, -1), true);
    m_Button->resize(100, 90);
    QCOMPARE(m_Button->GetIconSize(), QSize(90, 90));
    m_Button->SetIcon(QStringLiteral("icon"), QSize(33, 33), true);
    m_Button->resize(60, 57);
    QCOMPARE(m_Button->GetIconSize(), QSize(33, 33));
}

void TPushButtonLookTest::resizeLeavesAnIconPixmapAlone()
{
    m_Button->SetIcon(Image("icon", Qt::white, QSize(200, 200)), QSize(-1, -1), true);
    m_Button->SetIcon(Coloured(Qt::white, QSize(31, 17)), QSharedPointer<QPixmap>());
    m_Button->resize(20, 20);
    QCOMPARE(m_Button->GetIconSize(), QSize(31, 17));
    m_Button->resize(200, 200);
    QCOMPARE(m_Button->GetIconSize(), QSize(31, 17));
}

void TPushButtonLookTest::resizeLeavesAPictureIconAlone()
{
    m_Button->SetIcon(Coloured(Qt::white, QSize(31, 17))->toImage(), QSize(-1, -1), true);
    m_Button->resize(20, 20);
    QCOMPARE(m_Button->GetIconSize(), QSize(31, 17));
}

void TPushButtonLookTest::iconEnablesOnlyWhenAsked()
{
    QString const icon = Image("icon", Qt::white);
    m_Button->setEnabled(false);
    m_Button->SetIcon(icon, QSize(10, 10), false);
    QVERIFY(!m_Button->isEnabled());
    m_Button->SetIcon(icon, QSize(10, 10), true);
    QVERIFY(m_Button->isEnabled());
    m_Button->setEnabled(false);
    m_Button->SetIcon(QImage(5, 5, QImage::Format_RGB32), QSize(10, 10), false);
    QVERIFY(!m_Button->isEnabled());
    m_Button->SetIcon(QImage(5, 5, QImage::Format_RGB32), QSize(10, 10), true);
    QVERIFY(m_Button->isEnabled());
}

void TPushButtonLookTest::pictureIconIsScaledDownOnly_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("asked");
    QTest::addColumn<QSize>("icon");
    QTest::newRow("smaller stays") << QSize(10, 20) << QSize(40, 40) << QSize(10, 20);
    QTest::newRow("just fits") << QSize(40, 40) << QSize(40, 40) << QSize(40, 40);
    QTest::newRow("too wide") << QSize(80, 20) << QSize(40, 40) << QSize(40, 10);
    QTest::newRow("too tall") << QSize(10, 80) << QSize(40, 50) << QSize(5, 40);
    QTest::newRow("the button's size") << QSize(114, 114) << QSize(-1, -1) << QSize(57, 57);
    QTest::newRow("nothing") << QSize(0, 0) << QSize(40, 40) << QSize();
}

void TPushButtonLookTest::pictureIconIsScaledDownOnly()
{
    QFETCH(QSize, picture);
    QFETCH(QSize, asked);
    QImage image(picture, QImage::Format_RGB32);
    image.fill(Qt::white);
    m_Button->SetIcon(image, asked, true);
    QTEST(m_Button->GetIconSize(), "icon");
}

void TPushButtonLookTest::pictureIconTurnsGreyByItsLuminance()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(QColor(10, 200, 30));
    m_Button->SetIcon(image, QSize(40, 40), true);
    m_Button->SetForegroundDisabledOpacity(1.0F);
    QCOMPARE(Seen(QPoint(30, 28)), QColor(10, 200, 30));
    m_Button->setEnabled(false);
    int const grey = (16 * 200 + 11 * 10 + 5 * 30) >> 5;
    QCOMPARE(Seen(QPoint(30, 28)), QColor(grey, grey, grey));
}

void TPushButtonLookTest::disabledIconIsMadeWhenNeeded()
{
    m_Button->SetIcon(Image("icon", Qt::red), QSize(20, 20), true);
    m_Button->SetForegroundDisabledOpacity(1.0F);
    m_Button->setEnabled(false);
    int const grey = (11 * 255) >> 5;
    QCOMPARE(Seen(QPoint(30, 28)), QColor(grey, grey, grey));
    m_Button->setEnabled(true);
    QCOMPARE(Seen(QPoint(30, 28)), QColor(Qt::red));
}

void TPushButtonLookTest::iconOfADisabledButtonIsGreyAtOnce()
{
    m_Button->SetForegroundDisabledOpacity(1.0F);
    m_Button->setEnabled(false);
    m_Button->SetIcon(Image("icon", Qt::red), QSize(20, 20), false);
    int const grey = (11 * 255) >> 5;
    QCOMPARE(Seen(QPoint(30, 28)), QColor(grey, grey, grey));
    m_Button->SetIcon(QString(), QSize(20, 20), false);
    QCOMPARE(Seen(QPoint(30, 28)), QColor(Qt::blue));
}

void TPushButtonLookTest::iconPosition_data()
{
    QTest::addColumn<bool>("hasText");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QPoint>("set");
    QTest::addColumn<QPoint>("position");
    // The button is 60 by 57, the icon 21 by 20.
    QTest::newRow("in the middle") << false << QString() << QPoint() << QPoint(19, 18);
    QTest::newRow("at the left of text") << true << QString() << QPoint() << QPoint(1, 18);
    QTest::newRow("explicit") << true << QStringLiteral("explicit") << QPoint(-3, 40) << QPoint(-3, 40);
    QTest::newRow("centred") << true << QStringLiteral("centred") << QPoint(7, 40) << QPoint(7, 18);
    QTest::newRow("from the centre") << true << QStringLiteral("offset") << QPoint(-5, 6) << QPoint(14, 24);
}

void TPushButtonLookTest::iconPosition()
{
    QFETCH(bool, hasText);
    QFETCH(QString, kind);
    QFETCH(QPoint, set);
    QCOMPARE(QPoint(m_Button->GetIconLeftPosition(), m_Button->GetIconTopPosition()), QPoint(0, 0));
    m_Button->SetIcon(Coloured(Qt::white, QSize(21, 20)), QSharedPointer<QPixmap>());
    if (hasText)
        m_Button->SetText(QStringLiteral("Text"), QString(), true, QString(), false);
    if (kind == QStringLiteral("offset"))
        m_Button->SetIconPositionFromCentre(set);
    else if (!kind.isEmpty())
        m_Button->SetIconPosition(set, kind == QStringLiteral("centred"));
    QTEST(QPoint(m_Button->GetIconLeftPosition(), m_Button->GetIconTopPosition()), "position");
}

void TPushButtonLookTest::positionsTurnEachOtherOff()
{
    m_Button->SetIcon(Coloured(Qt::white, QSize(20, 21)), QSharedPointer<QPixmap>());
    m_Button->SetIconPosition(QPoint(2, 3), false);
    m_Button->SetIconPositionFromCentre(QPoint(2, 3));
    QCOMPARE(m_Button->GetIconLeftPosition(), 22);
    m_Button->SetIconPosition(QPoint(2, 3), false);
    QCOMPARE(m_Button->GetIconLeftPosition(), 2);
    QCOMPARE(m_Button->GetIconTopPosition(), 3);
}

void TPushButtonLookTest::centredPositionFollowsTheHeight()
{
    m_Button->SetIcon(Coloured(Qt::white, QSize(20, 20)), QSharedPointer<QPixmap>());
    m_Button->SetIconPosition(QPoint(2, 3), true);
    m_Button->resize(60, 100);
    QCOMPARE(m_Button->GetIconTopPosition(), 40);
    m_Button->SetIconPosition(QPoint(2, 3), false);
    m_Button->resize(60, 80);
    QCOMPARE(m_Button->GetIconTopPosition(), 3);
}

void TPushButtonLookTest::rightSideIconStandsAtItsMargin()
{
    m_Button->SetRightSideIcon(Image("mark", Qt::white, QSize(10, 20)));
    // Icon from 60 - 1 - 10 on, 18 pixels below the upper edge.
    QCOMPARE(Seen(QPoint(48, 28)), QColor(Qt::blue));
    QCOMPARE(Seen(QPoint(49, 18)), QColor(Qt::white));
    QCOMPARE(Seen(QPoint(58, 37)), QColor(Qt::white));
    QCOMPARE(Seen(QPoint(59, 28)), QColor(Qt::blue));
    QCOMPARE(Seen(QPoint(50, 38)), QColor(Qt::blue));
    m_Button->SetRightSideIconMargin(12);
    QCOMPARE(Seen(QPoint(36, 28)), QColor(Qt::blue));
    QCOMPARE(Seen(QPoint(37, 28)), QColor(Qt::white));
    m_Button->SetRightSideIcon(QString());
    QCOMPARE(Seen(QPoint(37, 28)), QColor(Qt::blue));
}

void TPushButtonLookTest::emptyIconNameClearsTheIcon()
{
    m_Button->SetIcon(Image("icon", Qt::white), QSize(20, 20), true);
    m_Button->SetIcon(QString(), QSize(20, 20), true);
    QCOMPARE(m_Button->GetIconSize(), QSize());
}

void TPushButtonLookTest::toolTipMarkShowsInToolTipMode()
{
    Image("ToolTipMark", Qt::green, QSize(8, 8));
    Image("ToolTipMarkSelected", Qt::yellow, QSize(8, 8));
    m_Button->SetToolTip(QStringLiteral("Help"));
    QCOMPARE(Seen(), QColor(Qt::blue));
    QCOMPARE(PaintsAfter([&] { m_Platform->SetMode(true); }), 1);
    QCOMPARE(Seen(), QColor(Qt::green));
    m_Button->SetToolTipMarkOffset(QPoint(20, 30));
    QCOMPARE(Seen(), QColor(Qt::blue));
    QCOMPARE(Seen(QPoint(20, 30)), QColor(Qt::green));
    m_Button->ShowToolTip();
    QCOMPARE(Seen(QPoint(27, 37)), QColor(Qt::yellow));
    m_Button->setEnabled(false);
    QCOMPARE(Seen(QPoint(27, 37)), QColor(Qt::yellow));
    m_Button->SetToolTip(QString());
    QCOMPARE(Seen(QPoint(20, 30)), QColor(Qt::blue));
    m_Button->SetToolTip(QStringLiteral("Help"));
    QCOMPARE(PaintsAfter([&] { m_Platform->SetMode(false); }), 1);
    QCOMPARE(Seen(QPoint(20, 30)), QColor(Qt::blue));
}

void TPushButtonLookTest::highlightAndANewIconRepaint()
{
    m_Button->SetIcon(Coloured(Qt::red, QSize(10, 10)), QSharedPointer<QPixmap>());
    QCOMPARE(PaintsAfter(
                 [&] { m_Button->SetIcon(Coloured(Qt::white, QSize(10, 10)), QSharedPointer<QPixmap>()); }),
             1);
    QCOMPARE(PaintsAfter([&] { m_Button->OnMMIHighlight(); }), 1);
    QCOMPARE(PaintsAfter([&] { m_Button->OnMMIUnHighlight(); }), 1);
}

void TPushButtonLookTest::disabledIconTakesTheSideOfTheIcon()
{
    m_Button->SetForegroundDisabledOpacity(1.0F);
    int const grey = (11 * 255) >> 5;
    QColor const shown(grey, grey, grey);
    m_Button->SetIcon(Image("icon", Qt::red, QSize(200, 200)), QSize(30, 24), true);
    m_Button->setEnabled(false);
    // 24 pixels in the middle of 60 by 57.
    QCOMPARE(Seen(QPoint(18, 16)), shown);
    QCOMPARE(Seen(QPoint(41, 39)), shown);
    QCOMPARE(Seen(QPoint(17, 28)), QColor(Qt::blue));
    QCOMPARE(Seen(QPoint(42, 28)), QColor(Qt::blue));
    m_Button->SetIcon(QStringLiteral("icon"), QSize(30, -1), true);
    m_Button->setEnabled(false);
    QCOMPARE(Seen(QPoint(1, 0)), shown);
    QCOMPARE(Seen(QPoint(57, 56)), shown);
    QCOMPARE(Seen(QPoint(58, 56)), QColor(Qt::blue));
}

void TPushButtonLookTest::newIconBringsItsOwnDisabledIcon()
{
    m_Button->SetForegroundDisabledOpacity(1.0F);
    m_Button->SetIcon(Image("red", Qt::red), QSize(20, 20), true);
    m_Button->setEnabled(false);
    m_Button->SetIcon(Image("green", Qt::green), QSize(20, 20), true);
    m_Button->setEnabled(false);
    int const grey = (16 * 255) >> 5;
    QCOMPARE(Seen(QPoint(30, 28)), QColor(grey, grey, grey));
}

void TPushButtonLookTest::resizeLeavesADisabledButtonDisabled()
{
    m_Button->SetForegroundDisabledOpacity(1.0F);
    m_Button->SetIcon(Image("icon", Qt::red, QSize(200, 200)), QSize(-1, -1), true);
    m_Button->setEnabled(false);
    m_Button->resize(90, 80);
    QVERIFY(!m_Button->isEnabled());
    QCOMPARE(m_Button->GetIconSize(), QSize(80, 80));
    int const grey = (11 * 255) >> 5;
    QCOMPARE(Seen(QPoint(80, 75)), QColor(grey, grey, grey));
}

void TPushButtonLookTest::sameIconIsNotPaintedTwice()
{
    QString const icon = Image("icon", Qt::red, QSize(200, 200));
    QCOMPARE(PaintsAfter([&] { m_Button->SetIcon(icon, QSize(20, 20), true); }), 1);
    QCOMPARE(PaintsAfter([&] { m_Button->SetIcon(icon, QSize(20, 30), true); }), 0);
    QCOMPARE(PaintsAfter([&] { m_Button->SetIcon(icon, QSize(21, 30), true); }), 1);
}

void TPushButtonLookTest::greyPictureKeepsItsTransparency()
{
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(QColor(255, 255, 255, 102));
    m_Button->SetIcon(image, QSize(40, 40), true);
    m_Button->SetForegroundDisabledOpacity(1.0F);
    m_Button->setEnabled(false);
    QVERIFY(Near(Seen(QPoint(30, 28)), Mixed(Qt::white, Qt::blue, 0.4)));
}

void TPushButtonLookTest::everyBackgroundFollowsTheSize_data()
{
    QTest::addColumn<bool>("byName");
    QTest::newRow("by name") << true;
    QTest::newRow("by pixmap") << false;
}

void TPushButtonLookTest::everyBackgroundFollowsTheSize()
{
    QFETCH(bool, byName);
    if (byName)
    {
        m_Button->SetBackgroundSelected(Image("selected", Qt::green));
        m_Button->SetBackgroundChecked(Image("checked", Qt::yellow));
        m_Button->SetBackgroundDisabled(Image("disabled", Qt::magenta));
    }
    else
    {
        m_Button->SetBackgroundSelected(Coloured(Qt::green, QSize(50, 50)));
        m_Button->SetBackgroundChecked(Coloured(Qt::yellow, QSize(50, 50)));
        m_Button->SetBackgroundDisabled(Coloured(Qt::magenta, QSize(50, 50)));
    }
    m_Button->SetBackgroundDisabledOpacity(1.0F);
    m_Button->resize(150, 120);
    QPoint const last(149, 119);
    m_Button->setCheckable(true);
    m_Button->setDown(true);
    QCOMPARE(Seen(last), QColor(Qt::green));
    m_Button->setDown(false);
    m_Button->setChecked(true);
    QCOMPARE(Seen(last), QColor(Qt::yellow));
    m_Button->setChecked(false);
    m_Button->setEnabled(false);
    QCOMPARE(Seen(last), QColor(Qt::magenta));
}

void TPushButtonLookTest::everyPaintGivesTheSamePixels_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<bool>("enabled");
    for (char const* const skin :
         {"NewStandardButton", "NavBarButton", "NewStandardButtonClear", "glass", ""})
    {
        QTest::newRow(qPrintable(QLatin1String(skin) + QLatin1String(" enabled")))
            << QString::fromLatin1(skin) << true;
        QTest::newRow(qPrintable(QLatin1String(skin) + QLatin1String(" disabled")))
            << QString::fromLatin1(skin) << false;
    }
}

void TPushButtonLookTest::everyPaintGivesTheSamePixels()
{
    QFETCH(QString, skin);
    QFETCH(bool, enabled);
    m_Button->resize(120, 60);
    m_Screen->AddImage(QStringLiteral("glass"), QColor(93, 201, 37, 117));
    m_Button->SetBackground(skin);
    m_Button->SetIcon(QStringLiteral("icon-info"), QSize(40, 40), true);
    m_Button->SetText(QStringLiteral("First"), QString(), true, QStringLiteral("Second"), true);
    m_Button->setEnabled(enabled);
    QImage const first = m_Window->grab().toImage();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(m_Window->grab().toImage(), first);
    // What a picture of the whole would look like if it were taken from a state that has gone.
    m_Button->setDown(true);
    m_Window->grab();
    m_Button->setDown(false);
    QCOMPARE(m_Window->grab().toImage(), first);
}

using TChange = std::function<void(TPushButton*)>;

void TPushButtonLookTest::changeShowsAfterManyPaints_data()
{
    QTest::addColumn<TChange>("change");
    auto const row = [](char const* name, TChange const& change) { QTest::newRow(name) << change; };
    row("text", [](TPushButton* button) { button->setText(QStringLiteral("Other")); });
    row("text of the base",
        [](TPushButton* button) { static_cast<QAbstractButton*>(button)->setText(QStringLiteral("Other")); });
    row("second line", [](TPushButton* button)
        { button->SetText(QStringLiteral("Text"), QString(), true, QStringLiteral("Two"), true); });
    row("colour",
        [](TPushButton* button) { button->SetFontProperties(Qt::red, 14, true, true, false, 4, false); });
    row("size of the type", [](TPushButton* button) { button->SetFontSize(20, false); });
    row("alignment", [](TPushButton* button) { button->SetAlignment(Qt::AlignLeft, false); });
    row("placement", [](TPushButton* button) { button->SetTextPlacement(TEXT_WHOLE_BUTTON); });
    row("border", [](TPushButton* button) { button->SetBackgroundBorderArea(1, 20, 1, 1); });
    row("icon",
        [](TPushButton* button) { button->SetIcon(QStringLiteral("icon-setup"), QSize(40, 40), true); });
    row("icon pixmap", [](TPushButton* button)
        { button->SetIcon(Coloured(Qt::white, QSize(40, 40)), QSharedPointer<QPixmap>()); });
    row("icon position", [](TPushButton* button) { button->SetIconPosition(QPoint(9, 9), false); });
    row("icon from the centre", [](TPushButton* button) { button->SetIconPositionFromCentre(QPoint(9, 2)); });
    row("right icon", [](TPushButton* button) { button->SetRightSideIcon(QStringLiteral("icon-setup")); });
    row("skin", [](TPushButton* button) { button->SetBackground(QStringLiteral("NewGreenButton")); });
    row("skin pixmap",
        [](TPushButton* button) { button->SetBackground(Coloured(Qt::green, QSize(60, 60))); });
    row("flat colour", [](TPushButton* button) { button->SetBackgroundColor(Qt::red); });
    row("opacity", [](TPushButton* button) { button->SetBackgroundOpacity(0.5F); });
    row("size", [](TPushButton* button) { button->resize(140, 70); });
    row("down", [](TPushButton* button) { button->setDown(true); });
    row("highlight", [](TPushButton* button) { button->OnMMIHighlight(); });
    row("disabled", [](TPushButton* button) { button->setEnabled(false); });
}

void TPushButtonLookTest::changeShowsAfterManyPaints()
{
    QFETCH(TChange, change);
    auto const make = [&]
    {
        auto* const button = new TPushButton(m_Window.get(), 1, QString());
        button->setGeometry(0, 0, 120, 60);
        button->SetBackground(QStringLiteral("NewStandardButton"));
        button->SetBackgroundSelected(QStringLiteral("NewStandardButtonSelected"));
        button->SetIcon(QStringLiteral("icon-info"), QSize(40, 40), true);
        button->SetText(QStringLiteral("Text"), QString(), true, QString(), false);
        button->SetRightSideIcon(QStringLiteral("icon-info"));
        button->show();
        return button;
    };
    std::unique_ptr<TPushButton> painted(make());
    QImage const before = m_Window->grab().toImage();
    for (int i = 0; i < 3; ++i)
        m_Window->grab();
    change(painted.get());
    QCoreApplication::processEvents();
    QImage const after = m_Window->grab().toImage();
    painted.reset();
    std::unique_ptr<TPushButton> const fresh(make());
    change(fresh.get());
    QCOMPARE(after, m_Window->grab().toImage());
    QVERIFY(after != before);
}

COMMONUI_TEST(TPushButtonLookTest)
#include "TPushButtonLookTest.moc"
