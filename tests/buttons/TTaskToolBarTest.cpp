#include "TTaskToolBar.h"
#include "ButtonTestSupport.h"
#include "Metrics.h"
#include "TTaskToolBarButton.h"

class TTaskToolBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Screen->AddImage(QStringLiteral("WindowToolbarButton"), Qt::red);
        m_Screen->AddImage(QStringLiteral("WindowToolbarButtonSelected"), Qt::green);
        m_Window = std::make_unique<TListeningWindow>();
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void barFitsItsButtons_data();
    void barFitsItsButtons();
    void operatorsSizeCounts();
    void buttonHasItsSizeAndSkins();
    void iconIsAlwaysOfTheBarsSize();
    void cutOffBarDragsWithoutAFlick();

private:
    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TTaskToolBarTest::barFitsItsButtons_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("firstButton");
    QTest::newRow("horizontal near") << 0 << QSize(3 * 62, 80) << QPoint(0, 0);
    QTest::newRow("horizontal far") << 1 << QSize(3 * 62, 80) << QPoint(2 * 62, 0);
    QTest::newRow("vertical near") << 2 << QSize(80, 3 * 62) << QPoint(0, 0);
    QTest::newRow("vertical far") << 3 << QSize(80, 3 * 62) << QPoint(0, 2 * 62);
}

void TTaskToolBarTest::barFitsItsButtons()
{
    QFETCH(int, layout);
    TTaskToolBar bar(m_Window.get(), eToolBarLayouts(layout));
    bar.resize(80, 80);
    m_Window->Expose();
    for (int id = 0; id < 3; ++id)
        bar.AssignButton(id, QString(), QString(), QString());
    QTEST(bar.size(), "size");
    QTEST(bar.GetButton(0)->pos(), "firstButton");
}

void TTaskToolBarTest::operatorsSizeCounts()
{
    TTaskToolBar bar(m_Window.get(), TOOLBAR_VERTICAL_NEAR);
    bar.AssignButton(0, QString(), QString(), QString());
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, 1, false);
    bar.CheckUserSelectedButtonSize();
    QCOMPARE(bar.GetButton(0)->height(), 77);
}

void TTaskToolBarTest::buttonHasItsSizeAndSkins()
{
    auto* const button = new TTaskToolBarButton(m_Window.get(), 3);
    m_Window->Expose();
    QCOMPARE(button->size(), QSize(TASK_TOOLBAR_BUTTON_WIDTH, TASK_TOOLBAR_BUTTON_HEIGHT));
    QCOMPARE(button->minimumSize(), button->maximumSize());
    QCOMPARE(button->GetButtonId(), 3);
    QVERIFY(button->UseDefaultMMIHighlight());
    auto const seen = [&] { return button->grab().toImage().pixelColor(4, 4); };
    QCOMPARE(seen(), QColor(Qt::red));
    button->setDown(true);
    QCOMPARE(seen(), QColor(Qt::green));
    button->setDown(false);
    button->setEnabled(false);
    QCOMPARE(seen(), QColor(Qt::red));
}

void TTaskToolBarTest::iconIsAlwaysOfTheBarsSize()
{
    QString const icon = m_Screen->AddImage(QStringLiteral("icon"), Qt::white, QSize(200, 200));
    TTaskToolBarButton button(m_Window.get(), 3);
    for (QSize const& size : {QSize(-1, -1), QSize(10, 10), QSize(100, 100)})
    {
        button.SetIcon(icon, size, true);
        QCOMPARE(button.GetIconSize(), QSize(46, 46));
    }
    button.setFixedSize(30, 30);
    QCOMPARE(button.GetIconSize(), QSize(46, 46));
    button.setEnabled(false);
    button.SetIcon(QStringLiteral("icon"), QSize(1, 1), false);
    QVERIFY(!button.isEnabled());
}

void TTaskToolBarTest::cutOffBarDragsWithoutAFlick()
{
    TManualClock clock;
    auto* const bar = new TTaskToolBar(m_Window.get(), TOOLBAR_VERTICAL_NEAR);
    bar->setFixedWidth(72);
    for (int id = 0; id < 4; ++id)
        bar->AssignButton(id, QString(), QString(), QString());
    m_Window->Expose();
    QCoreApplication::processEvents();
    bar->setFixedHeight(100);
    // The bar fits itself to its buttons again whenever it is resized: nothing to drag.
    QCOMPARE(bar->height(), 4 * 62);
    TFinger const finger(*m_Window);
    finger.Press(QPoint(30, 150));
    clock.Advance(10);
    finger.Move(QPoint(30, 50));
    clock.Advance(10);
    finger.Release(QPoint(30, 50));
    QCOMPARE(bar->GetButton(0)->y(), 0);
}

COMMONUI_TEST(TTaskToolBarTest)
#include "TTaskToolBarTest.moc"
