#include "CommonUI.h"
#include "ModuleIds.h"
#include "TestCase.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TViewStage.h"
#include "TWindowManager.h"

#include <QSignalSpy>

#include <functional>

namespace
{
constexpr int FullOnly = VIEW_CANVAS | VIEW_FULL;

QString SetupName()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString();
}

// The full view id, and for each view what of it is visible.
QString Picture(TViewStage const& stage, QList<TTestView> const& views)
{
    QString text = QString::number(stage.manager->GetFullViewId());
    for (TTestView const& view : views)
    {
        text += QLatin1Char(' ') + view.name.left(5);
        text += view.mini && view.mini->isVisible() ? QLatin1String("M") : QLatin1String("");
        text += view.full && view.full->isVisible() ? QLatin1String("F") : QLatin1String("");
        text += view.canvas && view.canvas->isVisible() ? QLatin1String("C") : QLatin1String("");
    }
    return text;
}

KVN::AppWindowSurface* Surface(int& place)
{
    return reinterpret_cast<KVN::AppWindowSurface*>(&place);
}

// A canvas that shows video.
class TVideoCanvas : public TCanvas
{
public:
    using TCanvas::TCanvas;
    KVN::AppWindowSurface* GetCanvasSurface() const override { return m_Surface; }
    void MinimizeCanvasSurface(KVN::AppWindowSurface* surface) override { m_Received = surface; }

    KVN::AppWindowSurface* m_Surface = nullptr;
    KVN::AppWindowSurface* m_Received = nullptr;
};

// Options for the lifetime of the object.
class TScopedOptions
{
public:
    explicit TScopedOptions(bool viewChangeSound)
        : m_Before(CommonUI::GetCommonUIOptions())
    {
        CommonUIOptions options = m_Before;
        options.viewChangeSoundEnabled = viewChangeSound;
        CommonUI::SetCommonUIOptions(options);
    }
    ~TScopedOptions() { CommonUI::SetCommonUIOptions(m_Before); }
    TScopedOptions(TScopedOptions const&) = delete;
    TScopedOptions& operator=(TScopedOptions const&) = delete;

private:
    CommonUIOptions m_Before;
};

struct TFourViews
{
    explicit TFourViews(TViewStage& stage)
        : first(stage.Add(QStringLiteral("first"), VIEW_ALL))
        , second(stage.Add(QStringLiteral("second"), VIEW_ALL))
        , third(stage.Add(QStringLiteral("third"), FullOnly))
        , setup(stage.Add(SetupName(), FullOnly))
    {
    }
    TTestView const& ById(int id) const
    {
        for (TTestView const* const view : {&first, &second, &third})
        {
            if (view->id == id)
                return *view;
        }
        return setup;
    }

    TTestView const first;
    TTestView const second;
    TTestView const third;
    TTestView const setup;
};

// Brings another view up by the way of that name and answers its id.
int GoBy(QString const& way, TViewStage& stage, TFourViews const& views, QString const& layout)
{
    struct TWay
    {
        char const* name;
        int id;
        std::function<void(int)> go;
    };
    TWindowManager* const manager = stage.manager;
    TWay const ways[] = {
        {"display", views.second.id, [&](int id) { manager->DisplayFullView(id, false); }},
        {"drag", views.second.id, [&](int id) { manager->OnDraggedOffRight(id); }},
        {"maximise", views.second.id, [&](int id) { manager->OnMaximizeMiniView(id); }},
        {"switch", views.third.id, [&](int id) { manager->OnSwitchToView(id); }},
        {"default", views.first.id, [&](int id) { manager->OnSwitchToView(id); }},
        {"setup", views.setup.id, [&](int id) { manager->OnShowSetup(id); }},
        {"last", views.first.id, [&](int) { manager->OnRestoreLastView(); }},
        {"snapshot", views.first.id, [&](int) { manager->RestoreStateFromSnapShot(layout, false); }},
        {"by hand", views.second.id,
         [&](int id)
         {
             views.second.canvas->setParent(stage.screen.get());
             views.second.canvas->show();
             views.second.full->ShowWindow(false);
             manager->SetFullViewId(id);
         }}};
    for (TWay const& known : ways)
    {
        if (way != QLatin1String(known.name))
            continue;
        known.go(known.id);
        return known.id;
    }
    return -1;
}
} // namespace

class TWindowManagerFullViewsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWayToAnotherViewIsToldWhenItIsDone_data()
    {
        QTest::addColumn<QString>("way");
        for (char const* const way :
             {"display", "drag", "maximise", "switch", "default", "setup", "last", "by hand", "snapshot"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }

    void everyWayToAnotherViewIsToldWhenItIsDone()
    {
        QFETCH(QString, way);
        TViewStage stage;
        TFourViews const views(stage);
        stage.manager->SetDefaultView(views.first.name);
        if (way == QLatin1String("default") || way == QLatin1String("last"))
            stage.manager->DisplayFullView(views.second.id, false);
        QString const layout = stage.manager->GetStateSnapshotXML();
        if (way == QLatin1String("snapshot"))
            stage.manager->DisplayFullView(views.third.id, false);

        QSignalSpy changed(stage.manager, &TWindowManager::FullViewChanged);
        bool isUp = false;
        connect(stage.manager, &TWindowManager::FullViewChanged, this,
                [&](int id)
                {
                    QCOMPARE(stage.manager->GetFullViewId(), id);
                    TTestView const& view = views.ById(id);
                    isUp = view.full->isVisible() && view.canvas->isVisible();
                });
        int const expected = GoBy(way, stage, views, layout);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][0].toInt(), expected);
        QVERIFY(isUp);
        // The same view again is no news.
        stage.manager->SetFullViewId(expected);
        QCOMPARE(changed.count(), 1);
    }

    void theViewKnowsWhetherItIsAFullOne()
    {
        TViewStage stage;
        QVERIFY(!stage.manager->HasFullView(stage.Add(QStringLiteral("mini"), VIEW_MINI).id));
        QVERIFY(stage.manager->HasFullView(stage.Add(QStringLiteral("canvas"), VIEW_CANVAS).id));
        QVERIFY(stage.manager->HasFullView(stage.Add(QStringLiteral("full"), VIEW_FULL).id));
        QVERIFY(stage.manager->HasFullView(stage.Add(QStringLiteral("all"), VIEW_ALL).id));
        QVERIFY(!stage.manager->HasFullView(-1));
        QVERIFY(!stage.manager->HasFullView(99));
    }

    // Displaying

    void aFullViewReplacesTheCurrentOne()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.Add(QStringLiteral("b"), FullOnly);
        stage.manager->DisplayFullView(a.id, false);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("1 aFC b"));
        QCOMPARE(stage.screen->GetCurrentCanvas(), a.canvas.data());
        stage.calls.clear();
        stage.manager->DisplayFullView(b.id, false);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("2 a bFC"));
        QCOMPARE(stage.calls, (QStringList{"a hide", "b show"}));
        QVERIFY(stage.screen->GetNavigationBar()->isVisible());
    }

    void whatAFullViewNeeds_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("available");
        QTest::addColumn<int>("id");
        QTest::newRow("nothing") << int(VIEW_NOTHING) << true << -1;
        QTest::newRow("canvas alone") << int(VIEW_CANVAS) << true << -1;
        QTest::newRow("full window alone") << int(VIEW_FULL) << true << 1;
        QTest::newRow("canvas and full window") << FullOnly << true << 1;
        QTest::newRow("mini alone") << int(VIEW_MINI) << true << -1;
        QTest::newRow("mini and canvas") << int(VIEW_MINI | VIEW_CANVAS) << true << 1;
        QTest::newRow("all") << int(VIEW_ALL) << true << 1;
        QTest::newRow("all, not available") << int(VIEW_ALL) << false << -1;
    }

    void whatAFullViewNeeds()
    {
        QFETCH(int, parts);
        QFETCH(bool, available);
        QFETCH(int, id);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), parts);
        if (view.mini)
            view.mini->m_Available = available;
        stage.manager->DisplayFullView(view.id, false);
        QCOMPARE(stage.manager->GetFullViewId(), id);
        QCOMPARE(view.canvas && view.canvas->isVisible(), id == 1 && view.canvas);
    }

    void theCanvasFitsTheFullWindowFirst()
    {
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->DisplayFullView(view.id, false);
        QCOMPARE(view.full->x(), view.canvas->GetLeftLimit());
        QCOMPARE(view.full->width(), SCREEN_WIDTH - view.canvas->GetLeftLimit());
    }

    void aNewFullViewIsHeardWhereTheHostWants_data()
    {
        QTest::addColumn<bool>("option");
        QTest::addColumn<bool>("playSound");
        QTest::addColumn<int>("sounds");
        QTest::newRow("neither") << false << false << 0;
        QTest::newRow("not wanted by the host") << false << true << 0;
        QTest::newRow("not wanted now") << true << false << 0;
        QTest::newRow("both") << true << true << 1;
    }

    void aNewFullViewIsHeardWhereTheHostWants()
    {
        QFETCH(bool, option);
        QFETCH(bool, playSound);
        QFETCH(int, sounds);
        TScopedOptions const options(option);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->DisplayFullView(view.id, playSound);
        QCOMPARE(stage.screen->m_Recorder.m_Sounds, QVector<int>(sounds, 8));
    }

    void theWheelGoesToTheFullWindow()
    {
        TViewStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        TTestView const view = stage.Add(QStringLiteral("a"), FullOnly);
        TPushButton button(view.full->GetWindowContent(), 1, QString());
        button.show();
        stage.manager->DisplayFullView(view.id, false);
        stage.screen.m_Clock.Advance(100);
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        navigator.OnEnter();
        QVERIFY(button.isDown());
        stage.screen->SetMMINavigator(nullptr);
    }

    // The way back

    void onlyAViewWithAMiniWindowRemembersTheLast()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        TTestView const b = stage.Add(QStringLiteral("b"), VIEW_ALL);
        TTestView const c = stage.Add(QStringLiteral("c"), FullOnly);
        stage.manager->DisplayFullView(a.id, false);
        stage.manager->DisplayFullView(b.id, false);
        stage.manager->DisplayFullView(c.id, false);
        stage.manager->OnRestoreLastView();
        QCOMPARE(Picture(stage, {a, b, c}), QStringLiteral("1 aFC b c"));
        // It remembers where it came from.
        stage.manager->OnRestoreLastView();
        QCOMPARE(stage.manager->GetFullViewId(), c.id);
    }

    void setupIsNeverTheWayBack()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        TTestView const b = stage.Add(QStringLiteral("b"), FullOnly);
        stage.manager->DisplayFullView(b.id, false);
        stage.manager->SetLastFullViewId(a.id);
        stage.manager->SetLastFullViewId(setup.id);
        stage.manager->OnRestoreLastView();
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
    }

    void whatMayBeGoneBackTo_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("miniAvailable");
        QTest::addColumn<bool>("fullAvailable");
        QTest::addColumn<bool>("usable");
        QTest::newRow("nothing") << int(VIEW_NOTHING) << true << true << false;
        QTest::newRow("canvas") << int(VIEW_CANVAS) << true << true << true;
        QTest::newRow("full window") << int(VIEW_FULL) << true << true << true;
        QTest::newRow("mini alone") << int(VIEW_MINI) << true << true << false;
        QTest::newRow("mini and canvas") << int(VIEW_MINI | VIEW_CANVAS) << true << true << true;
        QTest::newRow("mini without its full view") << int(VIEW_MINI | VIEW_CANVAS) << false << true << false;
        QTest::newRow("all") << int(VIEW_ALL) << true << true << true;
        QTest::newRow("all, full window not available") << int(VIEW_ALL) << true << false << false;
        // Asked only beside a mini window, on purpose.
        QTest::newRow("full window not available, no mini") << FullOnly << true << false << true;
    }

    void whatMayBeGoneBackTo()
    {
        QFETCH(int, parts);
        QFETCH(bool, miniAvailable);
        QFETCH(bool, fullAvailable);
        QFETCH(bool, usable);
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const view = stage.Add(QStringLiteral("a"), parts);
        TTestView const now = stage.Add(QStringLiteral("now"), FullOnly);
        if (view.mini)
            view.mini->m_Available = miniAvailable;
        if (view.full)
            view.full->m_Available = fullAvailable;
        stage.manager->SetDefaultView(base.name);
        stage.manager->DisplayFullView(now.id, false);
        stage.manager->SetLastFullViewId(view.id);
        stage.manager->OnRestoreLastView();
        QCOMPARE(stage.manager->GetFullViewId(), usable ? view.id : base.id);
        QVERIFY(!now.full->isVisible());
        QCOMPARE(base.full->isVisible(), !usable);
        if (view.full)
            QCOMPARE(view.full->isVisible(), usable && view.full->parentWidget());
    }

    void goingBackPutsMiniWindowsAndButtonsRight()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const b = stage.Add(QStringLiteral("b"));
        TTestView c = stage.Make(QStringLiteral("c"), VIEW_MINI);
        c.id = 9;
        stage.manager->RegisterView(c.name, c.id, nullptr, c.mini, nullptr, nullptr, WIDGET_BEHAVIOUR_LINKED,
                                    -1, true);
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        for (int const id : {a.id, b.id, c.id})
            bar->AssignButton(id, QString(), QString(), QString());
        b.mini->m_Available = false;
        stage.manager->SetDefaultView(base.name);
        stage.manager->SetMiniviewObstructionUpdatesEnabled(false);
        stage.manager->HideAllMiniViews(false);
        stage.manager->OnRestoreLastView();
        QVERIFY(bar->IsButtonVisible(a.id));
        QVERIFY(!bar->IsButtonVisible(b.id)); // nothing to show
        QVERIFY(!bar->IsButtonVisible(c.id)); // none of its own
        QVERIFY(a.mini->isVisible());
        QVERIFY(stage.screen->GetObstructionManager()->GetUpdatesEnabled(a.mini));
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
    }

    void withoutAnyViewGoingBackShowsNone()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->DisplayFullView(a.id, false);
        stage.manager->OnRestoreLastView();
        QCOMPARE(Picture(stage, {}), QStringLiteral("-1"));
        QVERIFY(!a.full->isVisible());
    }

    void theDefaultViewComesBackOnRequest()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        stage.manager->SetDefaultView(base.name);
        stage.manager->DisplayFullView(a.id, false);
        stage.manager->RestoreDefaultView();
        QCOMPARE(Picture(stage, {base, a}), QStringLiteral("1 baseFC a"));
    }

    void theDefaultViewShowsAtOnceWhereNothingIsUp()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        TTestView const b = stage.Add(QStringLiteral("b"), FullOnly);
        stage.manager->SetDefaultView(a.name);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("1 aFC b"));
        // Not over a view that is up.
        stage.manager->SetDefaultView(b.name);
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("1 aFC b"));
        stage.manager->RestoreDefaultView();
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("2 a bFC"));
    }

    void aDefaultViewMayBeNamedBeforeItIsRegistered()
    {
        TViewStage stage;
        stage.manager->SetDefaultView(QStringLiteral("later"));
        TTestView const view = stage.Add(QStringLiteral("later"), FullOnly);
        QCOMPARE(stage.manager->GetFullViewId(), -1);
        QVERIFY(!view.full->isVisible());
        stage.manager->RestoreDefaultView();
        QCOMPARE(stage.manager->GetFullViewId(), view.id);
    }

    // Maximising

    void maximisingSwapsTheTwoMiniWindows()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.AddStanding(QStringLiteral("b"), VIEW_ALL);
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        stage.manager->OnMaximizeMiniView(b.id);
        QCOMPARE(stage.State(b), MINI_VIEW_HIDING);
        QCOMPARE(stage.State(a), MINI_VIEW_OPENING);
        QCOMPARE(stage.Slots(), QStringLiteral("1||"));
        QCOMPARE(stage.manager->GetFullViewId(), b.id);
        QCOMPARE(stage.calls, (QStringList{"a minimise", "a hide", "b show"}));
        // While two windows swap places the canvas does not jump to and fro.
        TObstructionManager const* const obstructions = stage.screen->GetObstructionManager();
        QVERIFY(stage.manager->SwappingViews());
        QVERIFY(!obstructions->GetUpdatesEnabled(a.mini) && !obstructions->GetUpdatesEnabled(b.mini));
        stage.screen.Frame(159);
        QVERIFY(!obstructions->GetUpdatesEnabled(a.mini) && !obstructions->GetUpdatesEnabled(b.mini));
        stage.screen.FinishSlides();
        QVERIFY(!stage.manager->SwappingViews());
        QVERIFY(obstructions->GetUpdatesEnabled(a.mini) && obstructions->GetUpdatesEnabled(b.mini));
        QCOMPARE(Picture(stage, {a, b}), QStringLiteral("2 aM bFC"));
    }

    void aMiniWindowThatStandsAlreadyIsNotOpenedAgain()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.AddStanding(QStringLiteral("b"), VIEW_ALL);
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        stage.manager->OnMaximizeMiniView(b.id);
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        QVERIFY(stage.calls.contains(QStringLiteral("a minimise")));
        QVERIFY(!stage.manager->SwappingViews());
        QVERIFY(stage.screen->GetObstructionManager()->GetUpdatesEnabled(a.mini));
    }

    void maximisingTheCurrentViewHidesNothing()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        stage.manager->DisplayFullView(a.id, false);
        stage.manager->OnMaximizeMiniView(a.id);
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
    }

    void aLinkedWindowStaysWhenItIsMaximised()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView b = stage.Make(QStringLiteral("b"), VIEW_ALL);
        b.id = 7;
        stage.manager->RegisterView(b.name, b.id, nullptr, b.mini, b.canvas, b.full, WIDGET_BEHAVIOUR_LINKED,
                                    -1, false);
        stage.manager->OnShowMiniView(b.id);
        stage.screen.FinishSlides();
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        stage.manager->OnMaximizeMiniView(b.id);
        QCOMPARE(stage.State(b), MINI_VIEW_SHOWN);
        QCOMPARE(stage.State(a), MINI_VIEW_HIDDEN);
        QCOMPARE(stage.calls, (QStringList{"a hide", "b show"}));
    }

    void whatMayBeMaximised_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("available");
        QTest::addColumn<int>("id");
        QTest::newRow("nothing") << int(VIEW_NOTHING) << true << -1;
        QTest::newRow("canvas alone") << int(VIEW_CANVAS) << true << -1;
        QTest::newRow("full window") << FullOnly << true << 1;
        QTest::newRow("mini alone") << int(VIEW_MINI) << true << -1;
        QTest::newRow("all") << int(VIEW_ALL) << true << 1;
        QTest::newRow("all, not available") << int(VIEW_ALL) << false << -1;
    }

    void whatMayBeMaximised()
    {
        QFETCH(int, parts);
        QFETCH(bool, available);
        QFETCH(int, id);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), parts);
        if (view.mini)
            view.mini->m_Available = available;
        stage.manager->OnMaximizeMiniView(view.id);
        QCOMPARE(stage.manager->GetFullViewId(), id);
    }

    void onlyAViewWithAMiniWindowIsHeardWhenMaximised()
    {
        TScopedOptions const options(true);
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        TTestView const b = stage.Add(QStringLiteral("b"), VIEW_ALL);
        stage.manager->OnMaximizeMiniView(a.id);
        QVERIFY(stage.screen->m_Recorder.m_Sounds.isEmpty());
        stage.manager->OnMaximizeMiniView(b.id);
        QCOMPARE(stage.screen->m_Recorder.m_Sounds, (QVector<int>{8}));
    }

    void surfacesChangeHands_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<QString>("mini");
        QTest::addColumn<QString>("full");
        QTest::addColumn<QString>("canvas");
        QTest::newRow("all") << int(VIEW_ALL) << "full"
                             << "mini"
                             << "mini";
        QTest::newRow("no full window") << int(VIEW_MINI | VIEW_CANVAS) << "canvas"
                                        << ""
                                        << "mini";
        QTest::newRow("no canvas") << int(VIEW_MINI | VIEW_FULL) << "full"
                                   << "mini"
                                   << "";
        QTest::newRow("no mini") << FullOnly << ""
                                 << "full"
                                 << "full";
    }

    void surfacesChangeHands()
    {
        QFETCH(int, parts);
        QFETCH(QString, mini);
        QFETCH(QString, full);
        QFETCH(QString, canvas);
        int places[3] = {};
        auto const name = [&places](KVN::AppWindowSurface* surface)
        {
            char const* const names[] = {"mini", "full", "canvas"};
            for (int i = 0; i < 3; ++i)
            {
                if (surface == Surface(places[i]))
                    return QString::fromLatin1(names[i]);
            }
            return QString();
        };
        TViewStage stage;
        TTestView view = stage.Make(QStringLiteral("a"), parts & ~VIEW_CANVAS);
        auto* const video = new TVideoCanvas(nullptr);
        stage.Own(video);
        if (parts & VIEW_CANVAS)
            view.canvas = video;
        if (view.mini)
            view.mini->m_Surface = Surface(places[0]);
        if (view.full)
            view.full->m_Surface = Surface(places[1]);
        video->m_Surface = Surface(places[2]);
        stage.Register(view, 1);
        stage.manager->OnMaximizeMiniView(1);
        if (view.mini)
            QCOMPARE(name(view.mini->m_Received), mini);
        if (view.full)
            QCOMPARE(name(view.full->m_Received), full);
        QCOMPARE(name(video->m_Received), canvas);
    }

    // The bar's buttons

    void aDragOffTheBarMaximisesOnce()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.AddStanding(QStringLiteral("b"), VIEW_ALL);
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        stage.manager->OnDraggedOffRight(b.id);
        // The window may react, but nothing is swapped: it is the bar that decides.
        QCOMPARE(stage.calls, (QStringList{"b maximise", "a hide", "b show"}));
        QCOMPARE(stage.State(b), MINI_VIEW_SHOWN);
        QCOMPARE(stage.manager->GetFullViewId(), b.id);
        // Its own button works as before, and once.
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        b.mini->OnMaximize();
        QCOMPARE(stage.calls, (QStringList{"b maximise", "a minimise", "a hide", "b show"}));
    }

    void aDragOffTheBarIsHeard()
    {
        TScopedOptions const options(true);
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.Add(QStringLiteral("b"), FullOnly);
        stage.manager->OnDraggedOffRight(b.id);
        QVERIFY(stage.screen->m_Recorder.m_Sounds.isEmpty());
        QCOMPARE(stage.manager->GetFullViewId(), b.id);
        stage.manager->OnDraggedOffRight(a.id);
        QCOMPARE(stage.screen->m_Recorder.m_Sounds, (QVector<int>{8}));
    }

    void aDragOffTheBarNeedsAFullView()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.Add(QStringLiteral("b"));
        a.mini->m_Available = false;
        stage.manager->OnDraggedOffRight(a.id);
        stage.manager->OnDraggedOffRight(b.id);
        QCOMPARE(stage.manager->GetFullViewId(), -1);
        QVERIFY(stage.calls.isEmpty());
    }

    void displayViewChoosesByThePartsOfTheView_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("maximise");
        QTest::addColumn<QString>("picture");
        QTest::newRow("mini view") << int(VIEW_ALL) << false << "1 nowFC aM";
        QTest::newRow("full view") << int(VIEW_ALL) << true << "2 now aFC";
        QTest::newRow("no mini window") << FullOnly << false << "2 nowF aFC";
        QTest::newRow("no mini window, maximised") << FullOnly << true << "2 nowF aFC";
    }

    void displayViewChoosesByThePartsOfTheView()
    {
        QFETCH(int, parts);
        QFETCH(bool, maximise);
        QFETCH(QString, picture);
        TViewStage stage;
        TTestView const now = stage.Add(QStringLiteral("now"), FullOnly);
        TTestView const view = stage.Add(QStringLiteral("a"), parts);
        stage.manager->DisplayFullView(now.id, false);
        stage.manager->DisplayView(view.id, maximise);
        // A window on a canvas that makes way is not hidden itself.
        picture.replace(QLatin1String("nowF "), QLatin1String("now "));
        QCOMPARE(Picture(stage, {now, view}), picture);
    }

    void displayingTheCurrentViewDoesNothing()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        stage.manager->DisplayFullView(a.id, false);
        stage.calls.clear();
        stage.manager->DisplayView(a.id, true);
        stage.manager->DisplayView(a.id, false);
        QVERIFY(stage.calls.isEmpty());
        QCOMPARE(stage.State(a), MINI_VIEW_HIDDEN);
    }

    // Switching

    void switchingToTheDefaultView()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        stage.manager->SetDefaultView(base.name);
        stage.manager->DisplayFullView(a.id, false);
        int const height = base.full->height();
        stage.manager->OnSwitchToView(base.id);
        QCOMPARE(stage.manager->GetFullViewId(), base.id);
        QVERIFY(base.full->isVisible() && base.canvas->isVisible());
        QCOMPARE(base.full->height(), height);
        stage.manager->OnRestoreLastView();
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
    }

    void theSwitchedWindowTakesTheWholeHeight()
    {
        TViewStage stage;
        TTestView const now = stage.Add(QStringLiteral("now"), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->DisplayFullView(now.id, false);
        auto* const cover = new QWidget(a.canvas);
        stage.manager->OnSwitchToView(a.id);
        QCOMPARE(stage.manager->GetFullViewId(), a.id);
        QCOMPARE(a.full->height(), SCREEN_HEIGHT);
        QCOMPARE(a.canvas->children().last(), a.full.data());
        QVERIFY(cover->parentWidget() == a.canvas);
        stage.manager->OnRestoreLastView();
        QCOMPARE(stage.manager->GetFullViewId(), now.id);
    }

    void whatIsBlownUp_data()
    {
        QTest::addColumn<int>("parts");
        QTest::addColumn<bool>("available");
        QTest::addColumn<QString>("shown");
        QTest::newRow("nothing") << int(VIEW_NOTHING) << true << "";
        QTest::newRow("canvas alone") << int(VIEW_CANVAS) << true << "";
        QTest::newRow("no mini") << FullOnly << true << "full";
        QTest::newRow("all") << int(VIEW_ALL) << true << "full";
        QTest::newRow("all, no full view now") << int(VIEW_ALL) << false << "mini";
        QTest::newRow("no full window") << int(VIEW_MINI | VIEW_CANVAS) << true << "mini";
        QTest::newRow("mini alone") << int(VIEW_MINI) << true << "";
    }

    void whatIsBlownUp()
    {
        QFETCH(int, parts);
        QFETCH(bool, available);
        QFETCH(QString, shown);
        TViewStage stage;
        TTestView const view = stage.Add(QStringLiteral("a"), parts);
        if (view.mini)
            view.mini->m_Available = available;
        stage.manager->OnSwitchToView(view.id);
        QCOMPARE(stage.manager->GetFullViewId(), shown.isEmpty() ? -1 : view.id);
        QCOMPARE(stage.calls.contains(QStringLiteral("a show")), shown == QLatin1String("full"));
        if (view.mini)
            QCOMPARE(view.mini->isVisible(), shown == QLatin1String("mini"));
        if (shown == QLatin1String("mini"))
        {
            QCOMPARE(view.mini->parentWidget(), view.canvas.data());
            QCOMPARE(view.mini->geometry(), QRect(67 - 12, 4 - 30, 12 - 67 + 1024, 30 + 768));
        }
    }

    // Action buttons

    void anActionButtonBringsAndSendsBack()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const action = stage.Add(QStringLiteral("act"), FullOnly);
        stage.manager->SetDefaultView(base.name);
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {base, action}), QStringLiteral("2 base actFC"));
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {base, action}), QStringLiteral("1 baseFC act"));
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {base, action}), QStringLiteral("2 base actFC"));
    }

    void anActionButtonGoesBackToTheLastView()
    {
        TViewStage stage;
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        TTestView const action = stage.Add(QStringLiteral("act"), FullOnly);
        stage.manager->SetDefaultView(base.name);
        stage.manager->OnActionButton(action.id);
        stage.manager->SetLastFullViewId(a.id);
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {base, a, action}), QStringLiteral("2 base aFC act"));
    }

    void anActionButtonAsksTheMiniWindowOfItsTarget()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const action = stage.Add(QStringLiteral("act"), FullOnly);
        stage.manager->DisplayFullView(a.id, false);
        stage.manager->SetLastFullViewId(a.id);
        stage.manager->OnActionButton(action.id);
        stage.calls.clear();
        stage.manager->OnActionButton(action.id);
        QCOMPARE(stage.calls, (QStringList{"a maximise", "act hide", "a show"}));
        stage.screen.FinishSlides();
        QCOMPARE(Picture(stage, {a, action}), QStringLiteral("1 aFC act"));
    }

    void anActionButtonWithoutAWayBackStays_data()
    {
        QTest::addColumn<int>("last");
        QTest::newRow("none") << -1;
        QTest::newRow("itself") << 1;
        QTest::newRow("unknown") << 99;
    }

    void anActionButtonWithoutAWayBackStays()
    {
        QFETCH(int, last);
        TViewStage stage;
        TTestView const action = stage.Add(QStringLiteral("act"), FullOnly);
        stage.manager->OnActionButton(action.id);
        stage.manager->SetLastFullViewId(last);
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {action}), QStringLiteral("1 actFC"));
        // The default view is tried then.
        TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
        stage.manager->SetDefaultView(base.name);
        stage.manager->SetLastFullViewId(last);
        stage.manager->OnActionButton(action.id);
        QCOMPARE(Picture(stage, {action, base}), QStringLiteral("2 act baseFC"));
    }

    void anActionButtonNeedsAFullWindowAndNoMini()
    {
        TViewStage stage;
        TTestView const canvas = stage.Add(QStringLiteral("a"), VIEW_CANVAS);
        stage.manager->OnActionButton(canvas.id);
        QCOMPARE(stage.manager->GetFullViewId(), -1);
    }

    // Setup

    void setupTakesTheWholeScreen()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), FullOnly);
        TTestView const a = stage.AddStanding(QStringLiteral("a"));
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.manager->SetDefaultView(map.name);
        stage.calls.clear();
        stage.manager->OnShowSetup(setup.id);
        QCOMPARE(stage.manager->GetFullViewId(), setup.id);
        QVERIFY(!a.mini->isVisible());
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        QVERIFY(!stage.screen->GetObstructionManager()->GetUpdatesEnabled(a.mini));
        QVERIFY(!map.full->isVisible());
        QVERIFY(setup.full->isVisible());
        QCOMPARE(setup.full->height(), SCREEN_HEIGHT);
        QCOMPARE(stage.screen->GetCurrentCanvas(), setup.canvas.data());
        QVERIFY(!stage.screen->GetNavigationBar()->isVisible());
        QVERIFY(!stage.screen->GetSpecialNavigationBar()->isVisible());
        QCOMPARE(stage.calls, (QStringList{"map hide", setup.name + QStringLiteral(" show")}));
    }

    void leavingSetupBringsEverythingBack()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), FullOnly);
        QList<TTestView> minis;
        for (char const* const name : {"a", "b", "c", "d"})
            minis.append(stage.AddStanding(QLatin1String(name)));
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.manager->SetDefaultView(map.name);
        QString const slotsBefore = stage.Slots();
        for (int i = 0; i < 3; ++i)
        {
            stage.manager->OnShowSetup(setup.id);
            stage.calls.clear();
            setup.full->HideWindow();
            QCOMPARE(stage.calls.count(QStringLiteral("map show")), 1); // heard once, however often it was up
            QCOMPARE(stage.manager->GetFullViewId(), map.id);
            QCOMPARE(stage.Slots(), slotsBefore);
            for (TTestView const& mini : qAsConst(minis))
                QVERIFY(mini.mini->isVisible());
            QVERIFY(stage.screen->GetNavigationBar()->isVisible());
            QVERIFY(stage.screen->GetObstructionManager()->GetUpdatesEnabled(minis[0].mini));
        }
    }

    void showingSetupTwiceShowsItOnce()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), FullOnly);
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.manager->DisplayFullView(map.id, false);
        stage.manager->OnShowSetup(setup.id);
        stage.calls.clear();
        stage.manager->OnShowSetup(setup.id);
        QVERIFY(stage.calls.isEmpty());
        setup.full->HideWindow();
        QCOMPARE(stage.manager->GetFullViewId(), map.id);
    }

    void setupWithoutAFullWindowOnlyShowsItsCanvas()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), FullOnly);
        TTestView const setup = stage.Add(SetupName(), VIEW_CANVAS);
        stage.manager->DisplayFullView(map.id, false);
        stage.manager->OnShowSetup(setup.id);
        QCOMPARE(stage.manager->GetFullViewId(), map.id);
        QVERIFY(!map.full->isVisible());
        QVERIFY(setup.canvas->isVisible());
        QVERIFY(!stage.screen->GetNavigationBar()->isVisible());
    }

    void setupMayHaveAMiniWindow()
    {
        TViewStage stage;
        TTestView const setup = stage.Add(SetupName(), VIEW_ALL);
        stage.manager->OnShowSetup(setup.id);
        QCOMPARE(stage.manager->GetFullViewId(), setup.id);
        QVERIFY(setup.full->isVisible());
        QVERIFY(!stage.screen->GetNavigationBar()->isVisible());
    }

    void aViewMayCallOverTheSetup()
    {
        TViewStage stage;
        TTestView const map = stage.Add(QStringLiteral("map"), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.manager->SetDefaultView(map.name);
        stage.manager->OnShowSetup(setup.id);
        stage.manager->DisplayFullView(a.id, false);
        QCOMPARE(Picture(stage, {map, a, setup}).left(11), QStringLiteral("2 map aFC b"));
        QVERIFY(!setup.full->isVisible());
        QVERIFY(stage.screen->GetNavigationBar()->isVisible());
    }

    // Windows that go

    void eachPartMayBeDeletedWhileItIsUp_data()
    {
        QTest::addColumn<int>("part");
        QTest::newRow("mini") << int(VIEW_MINI);
        QTest::newRow("canvas, and the full window in it") << int(VIEW_CANVAS);
        QTest::newRow("full window") << int(VIEW_FULL);
        QTest::newRow("all") << int(VIEW_ALL);
    }

    void eachPartMayBeDeletedWhileItIsUp()
    {
        QFETCH(int, part);
        TViewStage stage;
        TTestView const view = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        TTestView const other = stage.Add(QStringLiteral("b"), FullOnly);
        stage.manager->DisplayFullView(view.id, false);
        if (part & VIEW_MINI)
            delete view.mini;
        if (part & VIEW_FULL)
            delete view.full;
        if (part & VIEW_CANVAS)
            delete view.canvas;
        TWindowManager& manager = *stage.manager;
        manager.OnUpdateScreen();
        stage.screen.FinishSlides();
        manager.OnMaximizeMiniView(view.id);
        manager.OnDraggedOffRight(view.id);
        manager.OnSwitchToView(view.id);
        manager.OnActionButton(view.id);
        manager.OnShowMiniView(view.id);
        manager.OnShowSetup(view.id);
        QVERIFY(!manager.GetStateSnapshotXML().isEmpty());
        manager.DisplayFullView(other.id, false);
        QCOMPARE(manager.GetFullViewId(), other.id);
        manager.RemoveView(view.id);
        QVERIFY(other.full->isVisible());
    }

    void aViewMayBeRemovedByItsOwnShowing()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        connect(a.full, &TWindow::WindowShown, this, [&] { stage.manager->RemoveView(a.id); });
        connect(a.mini, &TWindow::WindowShown, this, [&] { stage.manager->RemoveView(a.id); });
        stage.manager->OnShowMiniView(a.id);
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!a.mini->isVisible());
        TTestView again = a;
        stage.Register(again, a.id);
        stage.manager->DisplayFullView(a.id, false);
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
    }
};

COMMONUI_TEST(TWindowManagerFullViewsTest)
#include "TWindowManagerFullViewsTest.moc"
