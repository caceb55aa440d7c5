#include "TFullViewSideToolBar.h"
#include "ButtonTestSupport.h"
#include "Metrics.h"

#include <QTimer>

class TFullViewSideToolBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Screen->AddImage(QStringLiteral("ToolboxBackground"), Qt::red);
        m_Window = std::make_unique<TListeningWindow>(QSize(400, 760));
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void takesTheHeightOfTheViewWhenShown();
    void edgeDecidesTheOrder_data();
    void edgeDecidesTheOrder();
    void backgroundFollowsTheSizeIfWanted_data();
    void backgroundFollowsTheSizeIfWanted();
    void dragComesToRestOnWholeButtons();
    void flickRunsOn();
    void operatorsSizeCounts();
    void barThatHoldsAllIsNotDragged();

private:
    TFullViewSideToolBar* Bar(bool farEdge, bool withBackground, int buttons)
    {
        auto* const bar = new TFullViewSideToolBar(m_Window.get(), farEdge, withBackground);
        for (int id = 0; id < buttons; ++id)
            bar->AssignButton(id, QString(), QString(), QString());
        m_Window->Expose();
        QCoreApplication::processEvents();
        return bar;
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TFullViewSideToolBarTest::takesTheHeightOfTheViewWhenShown()
{
    TFullViewSideToolBar const* const bar = Bar(false, false, 2);
    QCOMPARE(bar->size(), QSize(WINDOW_TOOLBAR_WIDTH, SCREEN_HEIGHT - FULL_WINDOW_TITLEBAR_HEIGHT));
}

void TFullViewSideToolBarTest::edgeDecidesTheOrder_data()
{
    QTest::addColumn<bool>("farEdge");
    QTest::addColumn<QVector<int>>("starts");
    QTest::newRow("near") << false << QVector<int>{0, 64, 128};
    QTest::newRow("far") << true << QVector<int>{128, 64, 0};
}

void TFullViewSideToolBarTest::edgeDecidesTheOrder()
{
    QFETCH(bool, farEdge);
    TFullViewSideToolBar* const bar = Bar(farEdge, false, 3);
    QVector<int> starts;
    for (int id = 0; id < 3; ++id)
        starts << bar->GetButton(id)->y();
    QTEST(starts, "starts");
    QCOMPARE(bar->GetButton(0)->size(), QSize(72, 64));
}

void TFullViewSideToolBarTest::backgroundFollowsTheSizeIfWanted_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::newRow("with") << true;
    QTest::newRow("without") << false;
}

void TFullViewSideToolBarTest::backgroundFollowsTheSizeIfWanted()
{
    QFETCH(bool, wanted);
    TFullViewSideToolBar* const bar = Bar(false, wanted, 0);
    QCOMPARE(!bar->GetBackground().isNull(), wanted);
    if (wanted)
        QCOMPARE(bar->GetBackground()->size(), bar->size());
    QColor const seen = m_Window->grab().toImage().pixelColor(71, 700);
    QCOMPARE(seen, wanted ? QColor(Qt::red) : QColor(Qt::blue));
    // A background that was handed over does not outlive a resize.
    bar->SetBackground(QSharedPointer<QPixmap>::create(9, 9));
    bar->setFixedHeight(300);
    QCOMPARE(!bar->GetBackground().isNull(), wanted);
    if (wanted)
        QCOMPARE(bar->GetBackground()->size(), QSize(72, 300));
}

void TFullViewSideToolBarTest::dragComesToRestOnWholeButtons()
{
    TManualClock clock;
    TFullViewSideToolBar* const bar = Bar(false, false, 20);
    TFinger const finger(*m_Window);
    finger.Press(QPoint(30, 600));
    clock.Advance(10);
    finger.Move(QPoint(30, 560));
    clock.Advance(20);
    finger.Move(QPoint(30, 520));
    QCOMPARE(bar->GetButton(0)->y(), -80);
    // Rested for too long to flick: back to the whole button, 80 pixels being nearer to one than to two.
    clock.Advance(500);
    finger.Release(QPoint(30, 520));
    QCOMPARE(bar->GetButton(0)->y(), -64);
}

void TFullViewSideToolBarTest::flickRunsOn()
{
    TManualClock clock;
    TFullViewSideToolBar* const bar = Bar(false, false, 20);
    TFinger const finger(*m_Window);
    finger.Press(QPoint(30, 600));
    clock.Advance(10);
    finger.Move(QPoint(30, 560));
    clock.Advance(20);
    finger.Move(QPoint(30, 520));
    clock.Advance(10);
    finger.Release(QPoint(30, 520));
    QTimer* const timer = bar->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer && timer->isActive());
    QCOMPARE(bar->GetButton(0)->y(), -80);
}

void TFullViewSideToolBarTest::operatorsSizeCounts()
{
    m_Screen->Config().Write(CONFIG_BUTTON_SIZE, 1, false);
    TFullViewSideToolBar* const bar = Bar(false, false, 2);
    QCOMPARE(bar->GetButton(0)->height(), 80);
    QCOMPARE(bar->GetButton(1)->y(), 80);
}

void TFullViewSideToolBarTest::barThatHoldsAllIsNotDragged()
{
    TFullViewSideToolBar* const bar = Bar(false, false, 2);
    TFinger const finger(*m_Window);
    for (int const to : {10, 400})
    {
        finger.Press(QPoint(30, 100));
        finger.Move(QPoint(30, to));
        finger.Release(QPoint(30, to));
        QCOMPARE(bar->GetButton(0)->y(), 0);
    }
}

COMMONUI_TEST(TFullViewSideToolBarTest)
#include "TFullViewSideToolBarTest.moc"
