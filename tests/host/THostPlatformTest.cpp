#include "THostPlatform.h"

#include "TConsoleShell.h"
#include "TestCase.h"
#include "TMessageDialog.h"
#include "TStackStage.h"
#include "TSystemToolBarButton.h"
#include "TToolTipMode.h"
#include "TVirtualOperator.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>

namespace
{
// A popup that tells whenever it comes up.
class TToldPopup : public TPopupWindow
{
public:
    TToldPopup()
        : TPopupWindow(nullptr)
    {
    }

    std::function<void()> m_OnShow;

protected:
    void showEvent(QShowEvent* event) override
    {
        TPopupWindow::showEvent(event);
        if (m_OnShow)
            m_OnShow();
    }
};
} // namespace

class THostPlatformTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyConsoleHasAPlatform()
    {
        QVERIFY(!MorvanePlatformInterface::Instance());
        {
            QTemporaryDir folder;
            TConsoleShell shell(folder.path());
            QCOMPARE(MorvanePlatformInterface::Instance(),
                     static_cast<MorvanePlatformInterface*>(shell.GetPlatform()));
            QCOMPARE(shell.GetPlatform()->GetTopLevelWindow(), static_cast<QWidget*>(shell.GetScreen()));
            shell.Stop();
            QVERIFY(!shell.GetPlatform());
        }
        QVERIFY(!MorvanePlatformInterface::Instance());
    }

    void popupsAndTaskWindowsGoToTheirStacks()
    {
        TStackStage stage;
        TPopupWindow* const popup = stage.Shown(stage.Popup());
        TTaskWindow* const task = stage.Shown(stage.Task());
        QCOMPARE(stage.Stacks()->GetWindows(STACK_POPUPS, KVN::MorvaneID()), QList<TWindow*>{popup});
        QCOMPARE(stage.Stacks()->GetWindows(STACK_TASK_WINDOWS, KVN::MorvaneID()), QList<TWindow*>{task});
        stage.platform.ShowPopupWindow(nullptr, false);
        stage.platform.ShowTaskWindow(nullptr, true);
    }

    void annotationsLieOverTheScreen()
    {
        TStackStage stage;
        QWidget owner;
        QWidget note(&owner);
        note.setFixedSize(50, 20);
        stage.platform.ShowAnnotation(&note, nullptr, nullptr);
        QVERIFY(note.isVisible());
        QVERIFY(stage.Screen()->isAncestorOf(&note));
        // Above what comes up later too, unless that locks the screen.
        TPopupWindow* const popup = stage.Shown(stage.Popup());
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&note, popup));
        stage.Screen()->SetCurrentCanvas(&stage.a->m_Canvas, true);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&note, popup));
        TPopupWindow* const question = stage.Shown(stage.Popup(), true);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(question, &note));
        VERIFY_LAYERS(*stage.Screen());
        question->HideWindow();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&note, popup));
        stage.platform.HideAnnotation(&note);
        QCOMPARE(note.parentWidget(), &owner);
    }

    void aListOpenedInAQuestionStaysAboveIt()
    {
        TStackStage stage;
        TSystemToolBar bar(nullptr);
        stage.Screen()->SetSystemToolBar(&bar);
        stage.Screen()->ShowSystemToolbar(true);
        TPopupWindow* const question = stage.Shown(stage.Popup(), true);
        QWidget list;
        list.setFixedSize(50, 20);
        stage.platform.ShowAnnotation(&list, nullptr, question);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&list, question));
        // The bar grows, and the screen puts everything into its layer.
        TSystemToolBarButton button(nullptr);
        stage.Screen()->AddSystemToolBarButton(&button);
        stage.Screen()->SetSystemToolBarButtonVisible(&button, true);
        stage.Screen()->CheckToolbarsForLocking();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&list, question));
        VERIFY_LAYERS(*stage.Screen());
        // The next question is above both, as long as it is up.
        TPopupWindow* const next = stage.Shown(stage.Popup(stage.c->m_Id), true);
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(next, &list));
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(next, question));
        next->HideWindow();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&list, question));
        VERIFY_LAYERS(*stage.Screen());
    }

    void aNoteOfAMessageOverALockStaysAboveIt()
    {
        TStackStage stage;
        TPopupWindow* const question = stage.Shown(stage.Popup(), true);
        TPopupWindow* const message = stage.Shown(stage.Popup(stage.a->m_Id));
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(message, question));
        QWidget note;
        note.setFixedSize(50, 20);
        stage.platform.ShowAnnotation(&note, nullptr, message);
        stage.Screen()->CheckToolbarsForLocking();
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(message, question));
        QVERIFY(TScreenLayers(*stage.Screen()).IsAbove(&note, message));
        VERIFY_LAYERS(*stage.Screen());
    }

    void buttonsExplainThemselvesInToolTipMode()
    {
        TStackStage stage;
        stage.a->m_Button.SetToolTip(QStringLiteral("Fold the boom"));
        QSignalSpy switched(&stage.platform, &MorvanePlatformInterface::NotifyToolTipsEnabled);
        QSignalSpy clicked(&stage.a->m_Button, &TPushButton::Clicked);
        QVERIFY(!stage.platform.ToolTipVisible());
        stage.platform.GetToolTipMode()->SetOn(true);
        QCOMPARE(switched.count(), 1);
        QVERIFY(stage.platform.ToolTipVisible());
        TVirtualOperator finger(stage.Screen());
        QVERIFY(finger.Tap(&stage.a->m_Button));
        QCOMPARE(clicked.count(), 0);
        QVERIFY(stage.platform.IsToolTipShownFor(&stage.a->m_Button));
        VERIFY_LAYERS(*stage.Screen());
        // It stays above what comes up later.
        stage.Shown(stage.Popup(), true);
        VERIFY_LAYERS(*stage.Screen());
        stage.platform.HideToolTip();
        QVERIFY(!stage.platform.IsToolTipShownFor(&stage.a->m_Button));
        stage.platform.ShowToolTipFor(&stage.a->m_Button, 0, QStringLiteral("text"), {});
        stage.platform.GetToolTipMode()->SetOn(false);
        QCOMPARE(switched.count(), 2);
        QVERIFY(!stage.platform.ToolTipVisible());
    }

    void aPlatformWithoutItsScreenJustShowsWindows()
    {
        auto screen = std::make_unique<TScreen>();
        THostPlatform platform(screen.get());
        QVERIFY(platform.GetTopLevelWindow());
        screen.reset();
        QVERIFY(!platform.GetTopLevelWindow());
        TPopupWindow popup(nullptr);
        popup.ShowWindow(false);
        QVERIFY(popup.isVisible());
        TTaskWindow task(nullptr);
        task.ShowWindow(true);
        QVERIFY(task.isVisible());
    }

    void theScreenMayGoWithWindowsUp()
    {
        TTestScreen screen;
        THostPlatform platform(screen.get());
        KVN::MorvaneID const id = TTestModule::Id(1);
        QPointer<TToldPopup> const covered(new TToldPopup);
        covered->SetSurfaceID(id);
        covered->ShowWindow(true);
        QPointer<TPopupWindow> const question(new TPopupWindow(nullptr));
        question->SetSurfaceID(id);
        question->ShowWindow(true);
        QPointer<TTaskWindow> const task(new TTaskWindow(nullptr));
        task->ShowWindow(true);
        QCOMPARE(screen->GetLockingWidgets().size(), 2);
        // The first to go: what it covered would come up in a screen that is half gone.
        question->lower();
        int shows = 0;
        covered->m_OnShow = [&] { ++shows; };
        QWidget* platformNames = screen.get();
        connect(task, &QObject::destroyed, this, [&] { platformNames = platform.GetTopLevelWindow(); });
        delete screen.get();
        QVERIFY(!covered);
        QVERIFY(!question);
        QVERIFY(!task);
        QCOMPARE(shows, 0);
        QVERIFY(!platformNames);
        QVERIFY(platform.GetWindowStacks()->GetWindows(STACK_POPUPS, id).isEmpty());
    }

    void theScreenMayGoWithAMessageUp()
    {
        TTestScreen screen;
        THostPlatform platform(screen.get());
        screen->SetupUSBButton();
        QPointer<TToldPopup> const covered(new TToldPopup);
        covered->ShowWindow(true);
        screen->OnUSBButtonClick();
        QPointer<TMessageDialog> const message = screen->findChild<TMessageDialog*>();
        QVERIFY(message && message->isVisible());
        QVERIFY(!covered->isVisible());
        bool isWhole = true;
        // By the time of the call it is a TScreen no more than that.
        TScreen* const dying = screen.get();
        covered->m_OnShow = [&] { isWhole = dying->GetObstructionManager(); };
        delete screen.get();
        QVERIFY(!message);
        QVERIFY(!covered);
        QVERIFY(isWhole);
    }

    void theEndOfThePlatformMayShowAWindow()
    {
        TStackStage stage;
        auto platform = std::make_unique<THostPlatform>(stage.Screen());
        TPopupWindow* const question = stage.Shown(stage.Popup(), true);
        TPopupWindow* const late = stage.Popup();
        connect(stage.Screen(), &TScreen::NotifyScreenLock, late,
                [late](bool locked)
                {
                    if (!locked)
                        late->ShowWindow(false);
                });
        platform.reset();
        QVERIFY(late->isVisible());
        QVERIFY(question->isVisible());
    }
};

COMMONUI_TEST(THostPlatformTest)
#include "THostPlatformTest.moc"
