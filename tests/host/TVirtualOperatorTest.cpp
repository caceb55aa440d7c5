#include "TVirtualOperator.h"

#include "TestCase.h"

#include <QPushButton>

namespace
{
/// Notes the mouse events it gets.
class TPad : public QWidget
{
public:
    using QWidget::QWidget;

    QStringList m_Log;

protected:
    void mousePressEvent(QMouseEvent* event) override { Note("press", event); }
    void mouseMoveEvent(QMouseEvent* event) override { Note("move", event); }
    void mouseReleaseEvent(QMouseEvent* event) override { Note("release", event); }

private:
    void Note(char const* what, QMouseEvent* event)
    {
        m_Log += QStringLiteral("%1 %2,%3").arg(QLatin1String(what)).arg(event->x()).arg(event->y());
    }
};
} // namespace

class TVirtualOperatorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDragStaysWithTheWidgetItBeganOn()
    {
        QWidget screen;
        screen.resize(400, 300);
        TPad pad(&screen);
        pad.setGeometry(100, 100, 50, 50);
        screen.show();
        int passed = 0;
        TVirtualOperator finger(&screen, [&passed](int ms) { passed += ms; });
        finger.Drag({{110, 110}, {130, 110}, {300, 20}});
        QCOMPARE(pad.m_Log, (QStringList{"press 10,10", "move 30,10", "move 200,-80", "release 200,-80"}));
        QCOMPARE(passed, 3 * TVirtualOperator::StepTime);
    }

    void aTapReachesThroughWhatLetsTouchesThrough()
    {
        QWidget screen;
        QPushButton button(&screen);
        button.setGeometry(0, 0, 50, 50);
        QWidget veil(&screen);
        veil.setGeometry(0, 0, 50, 50);
        veil.setAttribute(Qt::WA_TransparentForMouseEvents);
        screen.show();
        QSignalSpy clicked(&button, &QPushButton::clicked);
        TVirtualOperator finger(&screen);
        QVERIFY(finger.Tap(&button));
        QCOMPARE(clicked.count(), 1);
    }

    void whatIsHiddenOrCoveredIsNotTapped()
    {
        QWidget screen;
        QPushButton button(&screen);
        button.setGeometry(0, 0, 50, 50);
        QWidget cover(&screen);
        cover.setGeometry(0, 0, 50, 50);
        QPushButton hidden(&screen);
        hidden.hide();
        screen.show();
        QSignalSpy clicked(&button, &QPushButton::clicked);
        TVirtualOperator finger(&screen);
        QVERIFY(!finger.Tap(&button));
        QVERIFY(!finger.Tap(&hidden));
        QVERIFY(!finger.Tap(static_cast<QWidget*>(nullptr)));
        QCOMPARE(clicked.count(), 0);
    }

    void aScreenThatDiesUnderTheFingerIsNoError()
    {
        auto screen = std::make_unique<QWidget>();
        auto* const button = new QPushButton(screen.get());
        button->setGeometry(0, 0, 50, 50);
        screen->show();
        TVirtualOperator finger(screen.get(), [&screen](int) { screen.reset(); });
        finger.Tap(QPoint(10, 10));
        finger.Wheel(120);
        finger.Key(Qt::Key_Left);
        QVERIFY(!screen);
    }
};

COMMONUI_TEST(TVirtualOperatorTest)
#include "TVirtualOperatorTest.moc"
