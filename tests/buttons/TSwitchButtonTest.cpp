#include "TSwitchButton.h"
#include "ButtonTestSupport.h"
#include "GoldenPicture.h"

#include <QSignalSpy>

namespace
{
/// Shows which pictures the class keeps.
class TOpenSwitchButton : public TSwitchButton
{
public:
    using TSwitchButton::m_greenLED;
    using TSwitchButton::m_redLED;
    using TSwitchButton::TSwitchButton;

    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        TSwitchButton::paintEvent(event);
    }

    int paints = 0;
};

struct TCount
{
    int green = 0;
    int red = 0;
};

// Pixels in which a light shines.
TCount LightsIn(QImage const& picture)
{
    TCount count;
    for (int y = 0; y < picture.height(); ++y)
    {
        for (int x = 0; x < picture.width(); ++x)
        {
            QColor const colour = picture.pixelColor(x, y);
            count.green += colour.green() > colour.red() + 60 ? 1 : 0;
            count.red += colour.red() > colour.green() + 60 ? 1 : 0;
        }
    }
    return count;
}
} // namespace

class TSwitchButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>(QSize(60, 57));
        m_Window->setPalette(QPalette(QColor(38, 41, 46)));
        m_Button = new TOpenSwitchButton(m_Window.get(), 7);
        m_Button->setGeometry(m_Window->rect());
        m_Window->Expose();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void aSecondSwitchButtonReusesTheTwoPictures();
    void lightIsGreenWhileOnAndRedWhileOff();
    void onIsTheBrighterState();
    void changeRepaintsAndNoChangeDoesNot();
    void numberIsGrey();
    void lightStandsInTheMiddleOrAtTheLeft();
    void anyNumberAndSizeIsDrawn_data();
    void anyNumberAndSizeIsDrawn();
    void pressesLikeAnyButton();
    void toolTipMarkIsOnTop();
    void mayBeDeletedByItsClick();
    void picture_data();
    void picture();

private:
    QImage Seen() const { return m_Window->grab().toImage(); }
    // Where the light is brightest: the mean of its pixels.
    QPoint Light() const
    {
        QImage const picture = Seen();
        QPoint sum;
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
        {
            for (int x = 0; x < picture.width(); ++x)
            {
                QColor const colour = picture.pixelColor(x, y);
                if (colour.red() <= colour.green() + 60)
                    continue;
                sum += QPoint(x, y);
                ++count;
            }
        }
        return count > 0 ? sum / count : QPoint(-1, -1);
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    TOpenSwitchButton* m_Button = nullptr;
};

void TSwitchButtonTest::aSecondSwitchButtonReusesTheTwoPictures()
{
    QPixmap const* const green = TOpenSwitchButton::m_greenLED;
    QPixmap const* const red = TOpenSwitchButton::m_redLED;
    QVERIFY(green && !green->isNull());
    QVERIFY(red && !red->isNull());
    {
        TOpenSwitchButton const second(m_Window.get(), 8);
        QCOMPARE(TOpenSwitchButton::m_greenLED, green);
        QCOMPARE(TOpenSwitchButton::m_redLED, red);
    }
    // They do not go with a button.
    QCOMPARE(TOpenSwitchButton::m_greenLED, green);
    QVERIFY(!green->isNull());
}

void TSwitchButtonTest::lightIsGreenWhileOnAndRedWhileOff()
{
    TCount const off = LightsIn(Seen());
    QVERIFY(off.red > 60);
    QCOMPARE(off.green, 0);
    m_Button->SetSwitchState(true);
    TCount const on = LightsIn(Seen());
    QVERIFY(on.green > 60);
    QCOMPARE(on.red, 0);
}

void TSwitchButtonTest::onIsTheBrighterState()
{
    QPoint const light = Light();
    int const off = qGray(Seen().pixel(light));
    m_Button->SetSwitchState(true);
    QVERIFY(qGray(Seen().pixel(light)) > off + 80);
}

void TSwitchButtonTest::changeRepaintsAndNoChangeDoesNot()
{
    QCoreApplication::processEvents();
    auto const paintsOf = [this](auto const& change)
    {
        m_Button->paints = 0;
        change();
        QCoreApplication::processEvents();
        return m_Button->paints;
    };
    for (int i = 0; i < 2; ++i)
    {
        int const expected = i == 0 ? 1 : 0;
        QCOMPARE(paintsOf([this] { m_Button->SetSwitchState(true); }), expected);
        QCOMPARE(paintsOf([this] { m_Button->SetSwitchNumber(3); }), expected);
        QCOMPARE(paintsOf([this] { m_Button->SetCentredLED(false); }), expected);
    }
}

void TSwitchButtonTest::numberIsGrey()
{
    m_Button->SetSwitchNumber(8);
    QImage const picture = Seen();
    int found = 0;
    for (int y = picture.height() / 2; y < picture.height(); ++y)
    {
        for (int x = 0; x < picture.width(); ++x)
            found += picture.pixelColor(x, y) == QColor(160, 160, 160) ? 1 : 0;
    }
    QVERIFY(found > 20);
}

void TSwitchButtonTest::lightStandsInTheMiddleOrAtTheLeft()
{
    QVERIFY(qAbs(Light().x() - 29) <= 1);
    QVERIFY(Light().y() < 25);
    m_Button->SetCentredLED(false);
    QVERIFY(Light().x() < 20);
    QVERIFY(qAbs(Light().y() - 28) <= 1);
}

void TSwitchButtonTest::anyNumberAndSizeIsDrawn_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QSize>("size");
    QTest::newRow("negative") << -1 << QSize(60, 57);
    QTest::newRow("long") << INT_MIN << QSize(60, 57);
    QTest::newRow("flat") << 12 << QSize(60, 8);
    QTest::newRow("narrow") << 12 << QSize(8, 60);
    QTest::newRow("nothing") << 12 << QSize(0, 0);
}

void TSwitchButtonTest::anyNumberAndSizeIsDrawn()
{
    QFETCH(int, number);
    QFETCH(QSize, size);
    m_Button->setMinimumSize(0, 0);
    m_Button->resize(size);
    for (bool const centred : {true, false})
    {
        m_Button->SetCentredLED(centred);
        m_Button->SetSwitchNumber(number);
        QVERIFY(!Seen().isNull());
    }
}

void TSwitchButtonTest::pressesLikeAnyButton()
{
    QSignalSpy clicked(m_Button, &TPushButton::Clicked);
    QImage const before = Seen();
    TFinger const finger(*m_Window);
    finger.Press(QPoint(30, 28));
    QVERIFY(Seen() != before);
    finger.Release(QPoint(30, 28));
    QCOMPARE(clicked, (QList<QVariantList>{{7}}));
    // The state is the machine's to say.
    QCOMPARE(Seen(), before);
}

void TSwitchButtonTest::toolTipMarkIsOnTop()
{
    TRecordingPlatform platform;
    m_Screen->AddImage(QStringLiteral("ToolTipMark"), Qt::cyan);
    m_Button->SetToolTip(QStringLiteral("Tip"));
    platform.SetMode(true);
    // In the field and out of it.
    QCOMPARE(Seen().pixelColor(2, 2), QColor(Qt::cyan));
    QCOMPARE(Seen().pixelColor(12, 12), QColor(Qt::cyan));
}

void TSwitchButtonTest::mayBeDeletedByItsClick()
{
    QPointer<TSwitchButton> const button(m_Button);
    connect(m_Button, &TPushButton::Clicked, this, [button] { delete button.data(); });
    TFinger(*m_Window).Tap(QPoint(30, 28));
    QVERIFY(!button);
}

void TSwitchButtonTest::picture_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("centred");
    QTest::addColumn<int>("number");
    QTest::newRow("off") << false << true << 1;
    QTest::newRow("on") << true << true << 12;
    QTest::newRow("on-left") << true << false << 8;
}

void TSwitchButtonTest::picture()
{
    QFETCH(bool, on);
    QFETCH(bool, centred);
    QFETCH(int, number);
    m_Button->SetSwitchState(on);
    m_Button->SetCentredLED(centred);
    m_Button->SetSwitchNumber(number);
    QString const name = QStringLiteral("switch-button-") + QLatin1String(QTest::currentDataTag());
    QString const fault =
        GoldenPictureFault(Seen(), QStringLiteral(TEST_SOURCE_DIR "/golden/%1.png").arg(name), name);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

COMMONUI_TEST(TSwitchButtonTest)
#include "TSwitchButtonTest.moc"
