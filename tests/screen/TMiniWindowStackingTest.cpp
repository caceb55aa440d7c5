#include "Metrics.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TMiniWindow.h"
#include "TNavigationBar.h"

#include <array>

namespace
{
/// Four mini windows; three fill the slots.
struct TStage
{
    TStage()
    {
        for (size_t i = 0; i < windows.size(); ++i)
        {
            windows[i] = std::make_unique<TMiniWindow>(nullptr);
            KVN::MorvaneID const id(QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, uchar(i + 1)));
            ids[i] = screen->AssignNavButton(id, QString(), windows[i].get(), nullptr, nullptr, QString());
        }
        for (size_t i = 0; i < 3; ++i)
            screen.Manager()->OnShowMiniView(ids[i]);
        screen.FinishSlides();
    }

    int LayerOf(size_t window) const { return screen->children().indexOf(windows[window].get()); }

    TTestScreen screen;
    std::array<std::unique_ptr<TMiniWindow>, 4> windows;
    std::array<int, 4> ids;
};
} // namespace

class TMiniWindowStackingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The window that settles was dragged above all others; when it has settled it is one of its slot again.
    void aWindowOpenedOnOneThatSettlesStaysOnTop()
    {
        TStage stage;
        TWindowManager* const manager = stage.screen.Manager();
        manager->OnSlideMiniViewUp(stage.ids[0], 40);
        manager->OnMiniViewDoneDrag(stage.ids[0], MINI_WINDOW_SIZE / 2);
        manager->OnShowMiniView(stage.ids[3]);
        QCOMPARE(manager->GetSlot(0), (QList<int>{stage.ids[0], stage.ids[3]}));
        stage.screen.FinishSlides();
        QCOMPARE(manager->GetMiniViewState(stage.ids[0]), MINI_VIEW_SHOWN);
        QVERIFY(stage.LayerOf(3) > stage.LayerOf(0));
        QVERIFY(stage.LayerOf(1) > stage.LayerOf(3));
    }

    void windowsThatSettleOneAfterAnotherStandInTheOrderOfTheirSlot()
    {
        TStage stage;
        TWindowManager* const manager = stage.screen.Manager();
        manager->OnHideMiniView(stage.ids[2], true);
        stage.screen.FinishSlides();
        manager->OnSlideMiniViewUp(stage.ids[0], 40);
        manager->OnMiniViewDoneDrag(stage.ids[0], MINI_WINDOW_SIZE / 2);
        manager->OnShowMiniView(stage.ids[2]);
        manager->OnSlideMiniViewUp(stage.ids[1], 60);
        stage.screen.FinishSlides();
        manager->OnMiniViewDoneDrag(stage.ids[1], MINI_WINDOW_SIZE / 2);
        stage.screen.FinishSlides();
        QCOMPARE(manager->GetSlot(0), (QList<int>{stage.ids[0], stage.ids[1]}));
        QVERIFY(stage.LayerOf(1) > stage.LayerOf(0));
        QVERIFY(stage.LayerOf(2) > stage.LayerOf(1));
    }

    // A view that covers the mini windows takes them off the screen; coming back they come on top of
    // everything.
    void aWindowThatSlidesAwayComesBackBelowTheBar()
    {
        TStage stage;
        TWindowManager* const manager = stage.screen.Manager();
        stage.screen->GetNavigationBar()->show();
        manager->OnHideMiniView(stage.ids[0], true);
        stage.screen.Frame(40);
        manager->HideAllMiniViews(false);
        manager->RestoreAllMiniViews();
        QVERIFY(stage.windows[0]->isVisible());
        QVERIFY(stage.LayerOf(0) < stage.screen->children().indexOf(stage.screen->GetNavigationBar()));
        QVERIFY(stage.LayerOf(0) < stage.LayerOf(1));
    }
};

COMMONUI_TEST(TMiniWindowStackingTest)
#include "TMiniWindowStackingTest.moc"
