#include "TAnimatedButton.h"
#include "ButtonTestSupport.h"
#include "GoldenPicture.h"

#include <QSignalSpy>
#include <QTimer>

namespace
{
/// A dot that jumps on at each beat.
class TJumpingButton : public TAnimatedButton
{
public:
    TJumpingButton(QWidget* parent, int interval)
        : TAnimatedButton(parent, interval, 3)
    {
        connect(m_Timer, &QTimer::timeout, this,
                [this]
                {
                    ++beats;
                    update();
                });
    }
    QTimer* Timer() const { return m_Timer; }

    int beats = 0;
};
} // namespace

class TAnimatedButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>(QSize(60, 57));
        m_Window->setPalette(QPalette(QColor(38, 41, 46)));
        m_Button = new TJumpingButton(m_Window.get(), 5);
        m_Button->setGeometry(m_Window->rect());
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void timerDoesNotRunWhileHidden();
    void timerRepeatsAtItsInterval();
    void senselessIntervalIsHeldToOne_data();
    void senselessIntervalIsHeldToOne();
    void looksAndWorksLikeAnyButton();
    void mayBeDeletedByItsBeat();

private:
    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
    TJumpingButton* m_Button = nullptr;
};

void TAnimatedButtonTest::timerDoesNotRunWhileHidden()
{
    QVERIFY(!m_Button->Timer()->isActive());
    m_Window->Expose();
    QVERIFY(m_Button->Timer()->isActive());
    m_Button->hide();
    QVERIFY(!m_Button->Timer()->isActive());
    m_Button->show();
    QVERIFY(m_Button->Timer()->isActive());
    // With all that it lies on.
    m_Window->hide();
    QVERIFY(!m_Button->Timer()->isActive());
}

void TAnimatedButtonTest::timerRepeatsAtItsInterval()
{
    m_Window->Expose();
    QCOMPARE(m_Button->Timer()->interval(), 5);
    QVERIFY(!m_Button->Timer()->isSingleShot());
    QTRY_VERIFY(m_Button->beats >= 3);
}

void TAnimatedButtonTest::senselessIntervalIsHeldToOne_data()
{
    QTest::addColumn<int>("interval");
    QTest::newRow("0") << 0;
    QTest::newRow("negative") << -100;
}

void TAnimatedButtonTest::senselessIntervalIsHeldToOne()
{
    QFETCH(int, interval);
    TJumpingButton button(m_Window.get(), interval);
    m_Window->Expose();
    button.show();
    QCOMPARE(button.Timer()->interval(), 1);
}

void TAnimatedButtonTest::looksAndWorksLikeAnyButton()
{
    m_Button->SetBackground(QStringLiteral("NewStandardButton"));
    m_Button->SetBackgroundSelected(QStringLiteral("NewStandardButtonSelected"));
    m_Button->SetIcon(QStringLiteral("icon-record"), QSize(46, 46), true);
    m_Window->Expose();
    COMPARE_PICTURE(m_Window->grab().toImage(), "animated-button");
    QSignalSpy clicked(m_Button, &TPushButton::Clicked);
    TFinger(*m_Window).Tap(*m_Button);
    QCOMPARE(clicked, (QList<QVariantList>{{3}}));
}

void TAnimatedButtonTest::mayBeDeletedByItsBeat()
{
    QPointer<TJumpingButton> const button(m_Button);
    connect(m_Button->Timer(), &QTimer::timeout, this, [button] { delete button.data(); });
    m_Window->Expose();
    QTRY_VERIFY(!button);
}

COMMONUI_TEST(TAnimatedButtonTest)
#include "TAnimatedButtonTest.moc"
