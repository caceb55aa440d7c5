#include "TNavigationWindow.h"
#include "Metrics.h"
#include "ModuleIds.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TFullWindow.h"
#include "TNavigationButton.h"

#include <QSignalSpy>

namespace
{
KVN::MorvaneID Sprayer()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{0d5f24ce-3b1c-4ef4-8c4f-6f1b8d7f3a10}")));
}
KVN::MorvaneID Guidance()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{1d5f24ce-3b1c-4ef4-8c4f-6f1b8d7f3a11}")));
}
KVN::MorvaneID Setup()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]);
}

// A screen without bars, its navigation window and a finger.
struct TStage
{
    TStage()
        : window(screen->GetNavigationWindow())
        , finger(screen.get())
    {
    }
    ~TStage() { qDeleteAll(windows); }

    TMiniWindow* Mini()
    {
        windows.append(new TMiniWindow(screen.get()));
        return static_cast<TMiniWindow*>(windows.constLast());
    }
    TFullWindow* Full()
    {
        windows.append(new TFullWindow(screen.get()));
        return static_cast<TFullWindow*>(windows.constLast());
    }
    TCanvas* Canvas() const { return new TCanvas(screen.get()); }

    void Choose(int id)
    {
        screen->OnNavigationWindow();
        finger.Touch(screen->GetNavButton(id));
        screen.FinishSlides();
    }

    TTestScreen screen;
    TNavigationWindow* window;
    TFinger finger;
    QVector<TWindow*> windows;
};

struct TOpenWindow : TNavigationWindow
{
    using TNavigationWindow::GetCancelButton;
};

class TUnavailable : public TMiniWindow
{
public:
    using TMiniWindow::TMiniWindow;
    bool IsAvailable() override { return false; }
};
} // namespace

class TNavigationWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itAsksForAView()
    {
        TStage stage;
        QCOMPARE(stage.window->GetTitle(), QStringLiteral("Select View"));
        stage.screen->OnNavigationWindow();
        QVERIFY(!stage.window->OnMMIBack());
        QVERIFY(stage.window->isHidden());
        QVERIFY(!stage.window->grab().isNull());
    }

    void everyKindOfViewHasItsButtonInIt()
    {
        TStage stage;
        int const mini = stage.screen->AssignNavButton(Sprayer(), QString(), stage.Mini(), nullptr, nullptr,
                                                       QStringLiteral("Sprayer"));
        int const setup =
            stage.screen->AssignNavSpecialButton(Setup(), QString(), stage.Canvas(), stage.Full(), QString());
        int const action = stage.screen->AssignNavActionButton(Guidance(), QString(), stage.Canvas(),
                                                               stage.Full(), QString());
        for (int const id : {mini, setup, action})
        {
            auto* const button = qobject_cast<TNavigationButton*>(stage.window->GetButton(id));
            QVERIFY(button);
            QCOMPARE(button->GetButtonId(), id);
            QCOMPARE(button->size(), QSize(75, 132));
            QCOMPARE(stage.screen->GetNavButton(id), button);
            QCOMPARE(stage.screen->GetSpecialNavigationButton(id), button);
        }
        QCOMPARE(stage.window->GetButton(mini)->GetToolTip(), QStringLiteral("Sprayer"));
        QVERIFY(!stage.window->GetButton(99));
    }

    void theButtonsStandInRowsOfFour()
    {
        TStage stage;
        for (int i = 0; i < 6; ++i)
            stage.screen->AssignNavButton(KVN::MorvaneID(QUuid::createUuid()), QString(), stage.Mini(),
                                          nullptr, nullptr, QString());
        stage.screen->OnNavigationWindow();
        auto const place = [&](int id) { return stage.window->GetButton(id)->pos(); };
        QCOMPARE(place(0).y(), NAVIGATION_BUTTON_Y_POS);
        for (int id = 1; id < 4; ++id)
        {
            QCOMPARE(place(id).y(), NAVIGATION_BUTTON_Y_POS);
            QVERIFY(place(id).x() >= place(id - 1).x() + NAVIGATION_BUTTON_WIDTH);
        }
        QVERIFY(place(4).y() >= NAVIGATION_BUTTON_Y_POS + NAVIGATION_BUTTON_HEIGHT);
        QCOMPARE(place(4).x(), place(0).x());
        QPoint const second = place(1);
        stage.screen->SetNavButtonVisibility(1, false);
        QCOMPARE(place(2), second);
        stage.screen->SetNavButtonVisibility(1, true);
        QCOMPARE(place(1), second);
        stage.window->RemoveButton(1);
        QCOMPARE(place(2), second);
        QVERIFY(QRect(QPoint(), stage.window->size()).contains(stage.window->GetButton(4)->geometry()));
    }

    void theSettersReachItsButtons()
    {
        TStage stage;
        int const id =
            stage.screen->AssignNavButton(Sprayer(), QString(), stage.Mini(), nullptr, nullptr, QString());
        int const setup =
            stage.screen->AssignNavSpecialButton(Setup(), QString(), stage.Canvas(), stage.Full(), QString());
        stage.screen->SetNavButtonEnabled(id, false);
        QVERIFY(!stage.window->GetButton(id)->isEnabled());
        stage.screen->SetNavSpecialButtonEnabled(setup, false);
        QVERIFY(!stage.window->GetButton(setup)->isEnabled());
        stage.screen->SetNavButtonVisibility(id, false);
        QVERIFY(stage.window->GetButton(id)->isHidden());
        stage.screen->SetNavActionButtonVisibility(setup, false);
        QVERIFY(stage.window->GetButton(setup)->isHidden());
        stage.screen->SetNavButtonTooltip(id, QStringLiteral("Sections"));
        QCOMPARE(stage.window->GetButton(id)->GetToolTip(), QStringLiteral("Sections"));
        stage.screen->SetNavButtonIcon(id, QStringLiteral("icon-tick-larger"));
        QVERIFY(!stage.window->GetButton(id)->GetIconSize().isEmpty());
        QVERIFY(!stage.window->GetButton(id)->isEnabled());
        for (int const unknown : {-1, 99})
        {
            stage.screen->SetNavButtonEnabled(unknown, true);
            stage.screen->SetNavButtonVisibility(unknown, true);
            stage.screen->SetNavButtonTooltip(unknown, QString());
            stage.screen->SetNavButtonIcon(unknown, QString());
        }
    }

    void anUnavailableViewHasNoButtonToPress()
    {
        TStage stage;
        auto* const mini = new TUnavailable(nullptr);
        stage.windows.append(mini);
        int const id = stage.screen->AssignNavButton(Sprayer(), QString(), mini, nullptr, nullptr, QString());
        QVERIFY(stage.window->GetButton(id)->isHidden());
        int const linked = stage.screen->AssignNavButton(Guidance(), QString(), {stage.Mini(), stage.Mini()},
                                                         nullptr, nullptr, QString());
        QVERIFY(!stage.window->GetButton(linked)->isHidden());
        QVERIFY(stage.window->GetButton(linked + 1)->isHidden());
    }

    void aChosenMiniViewSlidesInAndTheWindowIsGone()
    {
        TStage stage;
        TMiniWindow* const mini = stage.Mini();
        int const id = stage.screen->AssignNavButton(Sprayer(), QString(), mini, nullptr, nullptr, QString());
        stage.Choose(id);
        QVERIFY(stage.window->isHidden());
        QVERIFY(mini->isVisible());
        QCOMPARE(stage.screen.Manager()->GetMiniViewState(id), MINI_VIEW_SHOWN);
        VERIFY_LAYERS(*stage.screen.get());
        stage.Choose(id);
        QVERIFY(mini->isHidden());
    }

    void aChosenFullViewComesAndTheSetupGoesBack()
    {
        TStage stage;
        TFullWindow* const guidance = stage.Full();
        TCanvas* const canvas = stage.Canvas();
        TFullWindow* const setup = stage.Full();
        int const guidanceId =
            stage.screen->AssignNavActionButton(Guidance(), QString(), canvas, guidance, QString());
        int const setupId =
            stage.screen->AssignNavSpecialButton(Setup(), QString(), stage.Canvas(), setup, QString());
        stage.Choose(guidanceId);
        QVERIFY(guidance->isVisible());
        QCOMPARE(stage.screen->GetCurrentCanvas(), canvas);
        stage.Choose(setupId);
        QVERIFY(setup->isVisible());
        QVERIFY(!guidance->isVisible());
        QCOMPARE(setup->height(), 600);
        setup->HideWindow();
        QVERIFY(guidance->isVisible());
        QCOMPARE(stage.screen->GetCurrentCanvas(), canvas);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aRemovedViewTakesItsButtonAlong()
    {
        TStage stage;
        TMiniWindow* const mini = stage.Mini();
        int const id = stage.screen->AssignNavButton(Sprayer(), QString(), mini, nullptr, nullptr, QString());
        QPointer<TPushButton> const button = stage.window->GetButton(id);
        // The press that removes the view comes from the button itself.
        connect(button, &TPushButton::Clicked, this, [&] { stage.screen->RemoveNavButton(Sprayer()); });
        stage.Choose(id);
        QVERIFY(!stage.window->GetButton(id));
        QVERIFY(mini->isHidden());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!button);
        QCOMPARE(stage.screen->GetNavButtonID(Sprayer()), -1);
        stage.screen->OnNavigationWindow();
        QVERIFY(!stage.window->grab().isNull());
    }

    void aButtonMayGoByItself()
    {
        TStage stage;
        for (int id = 0; id < 3; ++id)
            stage.window->AssignButton(id, QString(), QString(), QString());
        delete stage.window->GetButton(1);
        QVERIFY(!stage.window->GetButton(1));
        stage.window->SetButtonVisibility(1, false);
        stage.window->SetButtonEnabled(1, false);
        stage.window->ArrangeButtons();
        stage.window->AssignButton(1, QString(), QString(), QStringLiteral("again"));
        QCOMPARE(stage.window->GetButton(1)->GetToolTip(), QStringLiteral("again"));
        delete stage.window->GetButton(2);
        stage.window->RemoveButton(2);
        QVERIFY(!stage.window->GetButton(2));
        stage.window->RemoveButton(99);
    }

    void assigningAgainKeepsTheButton()
    {
        TStage stage;
        stage.window->AssignButton(4, QStringLiteral("icon-tick-larger"), QStringLiteral("Map"),
                                   QStringLiteral("Shows it"));
        TPushButton* const button = stage.window->GetButton(4);
        QCOMPARE(button->GetText(), QStringLiteral("Map"));
        QCOMPARE(button->GetToolTip(), QStringLiteral("Shows it"));
        stage.window->AssignButton(4, QString(), QStringLiteral("Field"), QString());
        QCOMPARE(stage.window->GetButton(4), button);
        QCOMPARE(button->GetText(), QStringLiteral("Field"));
        QCOMPARE(button->GetToolTip(), QString());
        int hidden = 0;
        connect(stage.window, &TWindow::WindowHidden, this, [&hidden] { ++hidden; });
        stage.screen->OnNavigationWindow();
        stage.finger.Touch(button);
        QCOMPARE(hidden, 1);
    }

    void aDragOffItsButtonShowsTheFullView()
    {
        TStage stage;
        TFullWindow* const full = stage.Full();
        int const id = stage.screen->AssignNavButton(Sprayer(), QString(), stage.Mini(), stage.Canvas(), full,
                                                     QString());
        stage.screen->OnNavigationWindow();
        TPushButton* const button = stage.window->GetButton(id);
        QPoint const centre = button->mapTo(stage.screen.get(), button->rect().center());
        stage.finger.Press(centre);
        stage.finger.Move(centre + QPoint(60, 0));
        stage.finger.Lift();
        QCOMPARE(stage.screen.Manager()->GetFullViewId(), id);
        QVERIFY(full->isVisible());
    }

    void cancelIsAButton()
    {
        TStage stage;
        stage.screen->OnNavigationWindow();
        TPushButton* const cancel = (stage.window->*&TOpenWindow::GetCancelButton)();
        QVERIFY(cancel->isVisible());
        QVERIFY(stage.screen->rect().contains(
            QRect(cancel->mapTo(stage.screen.get(), QPoint(0, 0)), cancel->size())));
        stage.finger.Touch(cancel);
        QVERIFY(stage.window->isHidden());
    }

    void cancelLeavesEverythingAsItWas()
    {
        TStage stage;
        TMiniWindow* const mini = stage.Mini();
        stage.screen->AssignNavButton(Sprayer(), QString(), mini, nullptr, nullptr, QString());
        stage.screen->OnNavigationWindow();
        stage.window->OnCancel();
        QVERIFY(stage.window->isHidden());
        QVERIFY(mini->isHidden());
    }
};

COMMONUI_TEST(TNavigationWindowTest)
#include "TNavigationWindowTest.moc"
