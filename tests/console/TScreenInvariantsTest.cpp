#include "ScreenInvariants.h"

#include "TCanvas.h"
#include "TConsole.h"
#include "TConsoleOptions.h"
#include "TestCase.h"
#include "THostPlatform.h"
#include "TMiniWindow.h"
#include "TModalWidget.h"
#include "TNavigationBar.h"
#include "TOffScreenButtons.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TToolTip.h"
#include "TToolTipMode.h"
#include "TVirtualTime.h"

#include <QTemporaryDir>

namespace
{
constexpr int SettleTime = 500;

/// A console as it stands after its first start.
struct TStage
{
    TStage()
        : console(TConsoleOptions(), folder.path())
    {
        console.StartMachine();
        console.Start();
        time.Pass(SettleTime);
    }

    TMiniWindow* MiniWindow() const { return console.Screen()->findChild<TMiniWindow*>(); }

    QTemporaryDir folder;
    TVirtualTime time;
    TConsole console;
};
} // namespace

/// A rule that cannot be broken would let everything pass.
class TScreenInvariantsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStartedConsoleIsInOrder()
    {
        TStage stage;
        QCOMPARE(BrokenInvariant(stage.console.Screen()), QString());
    }

    void aWindowAboveTheBarIsSeen()
    {
        TStage stage;
        stage.MiniWindow()->raise();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("above the navigation bar")));
    }

    void aWindowOutOfItsPlaceIsSeen()
    {
        TStage stage;
        stage.MiniWindow()->move(stage.MiniWindow()->pos() + QPoint(0, 1));
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("stands at")));
    }

    void aWindowThatTakesNoTouchIsSeen()
    {
        TStage stage;
        stage.MiniWindow()->setAttribute(Qt::WA_TransparentForMouseEvents);
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("no touch")));
    }

    void aWindowThatVanishedFromItsSlotIsSeen()
    {
        TStage stage;
        stage.MiniWindow()->hide();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("not on the screen")));
    }

    void aSecondCanvasIsSeen()
    {
        TStage stage;
        TCanvas second(stage.console.Screen());
        second.show();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("canvases")));
    }

    void aRaisedCanvasIsSeen()
    {
        TStage stage;
        stage.console.Screen()->GetCurrentCanvas()->raise();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("not the lowest")));
    }

    void aSecondTopLevelWindowIsSeen()
    {
        TStage stage;
        QWidget second;
        second.show();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("top-level")));
    }

    void aHiddenBarIsSeen()
    {
        TStage stage;
        stage.console.Screen()->SetCurrentCanvas(stage.console.Screen()->GetCurrentCanvas(), false);
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("bar is hidden")));
    }

    void aHiddenSystemToolBarIsSeen()
    {
        TStage stage;
        stage.console.Screen()->ShowSystemToolbar(false);
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("tool bar is hidden")));
    }

    void aSystemToolBarOutOfItsCornerIsSeen()
    {
        TStage stage;
        TSystemToolBar* const bar = stage.console.Screen()->GetSystemToolBar();
        stage.console.Screen()->ShowSystemToolbar(false);
        bar->show();
        bar->move(bar->pos() - QPoint(0, 1));
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("left its corner")));
    }

    void aSystemToolBarBehindTheFadeIsSeen()
    {
        TStage stage;
        QWidget locking(stage.console.Screen());
        locking.show();
        stage.console.Screen()->AddLockingWidget({&locking, QString(), 1, {}});
        QCOMPARE(BrokenInvariant(stage.console.Screen()), QString());
        stage.console.Screen()->GetSystemToolBar()->stackUnder(stage.console.Screen()->GetModalWidget());
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("wrong layer")));
        stage.console.Screen()->RemoveLockingWidget(&locking);
    }

    void offScreenButtonsThatAreCoveredAreSeen()
    {
        TStage stage;
        stage.console.Screen()->SquishRequestOffScreenButtons();
        stage.time.Pass(SettleTime);
        QCOMPARE(BrokenInvariant(stage.console.Screen()), QString());
        stage.console.Screen()->GetSystemToolBar()->raise();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("above the off-screen")));
    }

    void offScreenButtonsThatVanishedAreSeen()
    {
        TStage stage;
        stage.console.Screen()->SquishRequestOffScreenButtons();
        stage.console.Screen()->GetOffScreenButtons()->hide();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("thought to be")));
    }

    void aCoveredToolTipIsSeen()
    {
        TStage stage;
        TScreen* const screen = stage.console.Screen();
        TToolTipMode* const mode = stage.console.Shell().GetPlatform()->GetToolTipMode();
        mode->ShowToolTipFor(screen->GetSystemToolBar(), 0, QStringLiteral("Explained"), {});
        QCOMPARE(BrokenInvariant(screen), QString());
        screen->GetNavigationBar()->raise();
        QVERIFY(BrokenInvariant(screen).contains(QLatin1String("above the tool tip")));
    }

    void aToolTipOutsideTheScreenIsSeen()
    {
        TStage stage;
        TScreen* const screen = stage.console.Screen();
        TToolTipMode* const mode = stage.console.Shell().GetPlatform()->GetToolTipMode();
        mode->ShowToolTipFor(screen->GetSystemToolBar(), 0, QStringLiteral("Explained"), {});
        screen->findChild<TToolTip*>()->move(-1, 100);
        QVERIFY(BrokenInvariant(screen).contains(QLatin1String("leaves the screen")));
    }

    void aLockBehindTheFadeIsSeen()
    {
        TStage stage;
        TScreen* const screen = stage.console.Screen();
        QWidget locking(screen);
        locking.show();
        screen->AddLockingWidget({&locking, QString(), 2, {}});
        QCOMPARE(BrokenInvariant(screen), QString());
        locking.stackUnder(screen->GetModalWidget());
        QVERIFY(BrokenInvariant(screen).contains(QLatin1String("behind the fade")));
        screen->RemoveLockingWidget(&locking);
    }

    void aLockWithoutAnOwnerIsSeen()
    {
        TStage stage;
        QWidget hidden(stage.console.Screen());
        stage.console.Screen()->AddLockingWidget({&hidden, QString(), 1, {}});
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("hidden widget locks")));
        stage.console.Screen()->RemoveLockingWidget(&hidden);
        QCOMPARE(BrokenInvariant(stage.console.Screen()), QString());
        stage.console.Screen()->GetModalWidget()->show();
        QVERIFY(BrokenInvariant(stage.console.Screen()).contains(QLatin1String("without a lock")));
    }
};

COMMONUI_TEST(TScreenInvariantsTest)
#include "TScreenInvariantsTest.moc"
