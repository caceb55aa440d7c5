#include "TestCase.h"
#include "TScreen.h"
#include "TScreenStage.h"

#include <QSignalSpy>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;
using KVN::MODAL_NONE;

namespace
{
QList<bool> Values(QSignalSpy const& spy)
{
    QList<bool> values;
    for (QVariantList const& arguments : spy)
        values.append(arguments.at(0).toBool());
    return values;
}

// A stage whose notices of the screen's lock are kept.
struct TLockStage : TScreenStage
{
    TLockStage()
        : notices(screen.get(), &TScreen::NotifyScreenLock)
    {
    }

    // Runs once, at the first notice.
    template<typename TSlot>
    void AtTheNotice(TSlot slot)
    {
        auto const connection = std::make_shared<QMetaObject::Connection>();
        *connection = QObject::connect(screen.get(), &TScreen::NotifyScreenLock, &context,
                                       [slot, connection](bool locked)
                                       {
                                           QObject::disconnect(*connection);
                                           slot(locked);
                                       });
    }

    QSignalSpy notices;
    QObject context;
};
} // namespace

class TScreenLocksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoFollowsTheLayersIsToldWhenTheyAreRight()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const other = stage.Window();
        int told = 0;
        connect(stage.screen.get(), &TScreen::LayersChecked, this,
                [&]
                {
                    ++told;
                    VERIFY_LAYERS(*stage.screen.get());
                });
        stage.Lock(window, MODAL_LOCAL);
        stage.Lock(other, MODAL_GLOBAL);
        QCOMPARE(told, 2);
        stage.screen->RemoveLockingWidget(window);
        stage.screen->RemoveLockingWidget(other);
        QCOMPARE(told, 4);
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        QCOMPARE(told, 5);
        stage.screen->RemoveLockingWidget(other);
        QCOMPARE(told, 5);
    }

    void aLockShowsTheFadeBelowItsWidget()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const other = stage.Window();
        stage.Lock(window, MODAL_LOCAL);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Layers().IsDirectlyAbove(window, stage.Fade()));
        QVERIFY(stage.Layers().IsAbove(stage.Fade(), other));
        QCOMPARE(stage.Fade()->geometry(), stage.screen->rect());
        QCOMPARE(stage.Fade()->GetModalData().widget, window);
        QCOMPARE(Values(stage.notices), (QList<bool>{true}));
        stage.screen->RemoveLockingWidget(window);
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Fade()->isHidden());
        QCOMPARE(Values(stage.notices), (QList<bool>{true, false}));
    }

    void theSameWidgetTwiceIsOneLockOnTop()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const other = stage.Window();
        stage.Lock(window, MODAL_LOCAL);
        stage.Lock(other, MODAL_LOCAL);
        stage.Lock(window, MODAL_GLOBAL);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{other, window}));
        QCOMPARE(Values(stage.notices), (QList<bool>{true, true, true}));
        QVERIFY(stage.screen->AreAllToolbarsLocked());
        VERIFY_LAYERS(*stage.screen.get());
        stage.Lock(window, MODAL_LOCAL);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{other, window}));
        QVERIFY(!stage.screen->AreAllToolbarsLocked());
        stage.screen->RemoveLockingWidget(window);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{other}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aNullWidgetLocksNothing()
    {
        TLockStage stage;
        stage.Lock(nullptr, MODAL_GLOBAL);
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(stage.notices.isEmpty());
        QVERIFY(stage.Fade()->isHidden());
    }

    void removingAnUnknownWidgetSaysNothing()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const unknown = stage.Window();
        stage.screen->RemoveLockingWidget(unknown);
        stage.screen->RemoveLockingWidget(nullptr);
        QVERIFY(stage.notices.isEmpty());
        stage.Lock(window, MODAL_GLOBAL);
        stage.notices.clear();
        stage.screen->RemoveLockingWidget(unknown);
        stage.screen->RemoveLockingWidget(nullptr);
        QVERIFY(stage.notices.isEmpty());
        QVERIFY(stage.screen->AreAllToolbarsLocked());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void onlyTheEndOfTheLastLockIsTold()
    {
        TLockStage stage;
        TWindow* const first = stage.Window();
        TWindow* const second = stage.Window();
        stage.Lock(first, MODAL_LOCAL);
        stage.Lock(second, MODAL_LOCAL);
        stage.notices.clear();
        stage.screen->RemoveLockingWidget(first);
        QVERIFY(stage.notices.isEmpty());
        QCOMPARE(stage.Fade()->GetModalData().widget, second);
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(second);
        QCOMPARE(Values(stage.notices), (QList<bool>{false}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theBarsStayLockedWhileAGlobalLockRemains_data()
    {
        QTest::addColumn<bool>("globalFirst");
        QTest::addColumn<bool>("removeGlobal");
        for (bool const globalFirst : {false, true})
        {
            for (bool const removeGlobal : {false, true})
            {
                QTest::addRow("global %s, %s removed", globalFirst ? "first" : "last",
                              removeGlobal ? "global" : "local")
                    << globalFirst << removeGlobal;
            }
        }
    }

    void theBarsStayLockedWhileAGlobalLockRemains()
    {
        QFETCH(bool, globalFirst);
        QFETCH(bool, removeGlobal);
        TLockStage stage;
        TWindow* const global = stage.Window();
        TWindow* const local = stage.Window();
        stage.Lock(globalFirst ? global : local, globalFirst ? MODAL_GLOBAL : MODAL_LOCAL);
        stage.Lock(globalFirst ? local : global, globalFirst ? MODAL_LOCAL : MODAL_GLOBAL);
        QVERIFY(stage.screen->AreAllToolbarsLocked());
        stage.screen->RemoveLockingWidget(removeGlobal ? global : local);
        QCOMPARE(stage.screen->AreAllToolbarsLocked(), !removeGlobal);
        QVERIFY(stage.Fade()->isVisible());
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(removeGlobal ? local : global);
        QVERIFY(!stage.screen->AreAllToolbarsLocked());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks_data()
    {
        QTest::addColumn<int>("modalType");
        QTest::newRow("local") << int(MODAL_LOCAL);
        QTest::newRow("global") << int(MODAL_GLOBAL);
    }

    void theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks()
    {
        QFETCH(int, modalType);
        TLockStage stage;
        TWindow* const first = stage.Window();
        TWindow* const second = stage.Window();
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        TNavigationBar* const special = stage.screen->GetSpecialNavigationBar();
        stage.Lock(first, modalType);
        QVERIFY(stage.Layers().IsDirectlyAbove(stage.Fade(), special));
        QVERIFY(stage.Layers().IsDirectlyAbove(special, bar));
        stage.Lock(second, modalType);
        QVERIFY(stage.Layers().IsDirectlyAbove(first, special));
        QVERIFY(stage.Layers().IsDirectlyAbove(special, bar));
        QVERIFY(stage.Layers().IsAbove(stage.Fade(), first));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theBarsKeepTheirPlaceWithoutAnAnchor()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        stage.screen->CheckToolbarsForLocking();
        QVERIFY(stage.Layers().IsAbove(window, bar));
        stage.Lock(window, MODAL_LOCAL);
        stage.screen->RemoveLockingWidget(window);
        QVERIFY(stage.Layers().IsAbove(window, bar));
    }

    void atTheNoticeTheLockStandsAndTheFadeIsToCome()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        QStringList seen;
        connect(stage.screen.get(), &TScreen::NotifyScreenLock, &stage.context,
                [&](bool locked)
                {
                    seen << QStringLiteral("%1 %2 %3 %4")
                                .arg(locked)
                                .arg(stage.Locks().size())
                                .arg(stage.Fade()->isVisible())
                                .arg(stage.screen->AreAllToolbarsLocked());
                });
        stage.Lock(window, MODAL_GLOBAL);
        stage.screen->RemoveLockingWidget(window);
        QCOMPARE(seen, (QStringList{QStringLiteral("1 1 0 0"), QStringLiteral("0 0 0 1")}));
    }

    void lockAllToolbarsIsOverruledByAGlobalLock_data()
    {
        QTest::addColumn<QList<int>>("locks");
        QTest::addColumn<bool>("wanted");
        QTest::addColumn<bool>("locked");
        QTest::newRow("wanted by nobody else") << QList<int>{} << true << true;
        QTest::newRow("given back") << QList<int>{} << false << false;
        QTest::newRow("wanted beside a local lock") << QList<int>{MODAL_LOCAL} << true << true;
        QTest::newRow("not wanted beside a local lock") << QList<int>{MODAL_LOCAL} << false << false;
        QTest::newRow("a lock that is not modal") << QList<int>{MODAL_NONE} << false << false;
        QTest::newRow("overruled by the only lock") << QList<int>{MODAL_GLOBAL} << false << true;
        QTest::newRow("overruled from below") << QList<int>{MODAL_GLOBAL, MODAL_LOCAL} << false << true;
    }

    void lockAllToolbarsIsOverruledByAGlobalLock()
    {
        QFETCH(QList<int>, locks);
        QFETCH(bool, wanted);
        QFETCH(bool, locked);
        TLockStage stage;
        for (int const modalType : locks)
            stage.Lock(stage.Window(), modalType);
        stage.screen->LockAllToolbars(wanted);
        QCOMPARE(stage.screen->AreAllToolbarsLocked(), locked);
    }

    void barsLockedByNobodyAreNotStackedAnew()
    {
        TLockStage stage;
        TWindow* const alarm = stage.Alarm();
        stage.screen->LockAllToolbars(true);
        TWindow* const later = stage.RaisedWindow();
        stage.screen->CheckToolbarsForLocking();
        QVERIFY(stage.Layers().IsAbove(later, alarm));
        stage.screen->LockAllToolbars(false);
        QVERIFY(stage.Layers().IsAbove(alarm, later));
    }

    void aVisibleAlarmStaysAboveEveryLock_data() { theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks_data(); }

    void aVisibleAlarmStaysAboveEveryLock()
    {
        QFETCH(int, modalType);
        TLockStage stage;
        TWindow* const alarm = stage.Alarm();
        TWindow* const first = stage.Window();
        TWindow* const second = stage.Window();
        stage.Lock(first, modalType);
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, first));
        VERIFY_LAYERS(*stage.screen.get());
        stage.Lock(second, modalType);
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, second));
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(second);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aHiddenAlarmDoesNotHoldALockDown_data() { theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks_data(); }

    void aHiddenAlarmDoesNotHoldALockDown()
    {
        QFETCH(int, modalType);
        TLockStage stage;
        stage.Alarm()->hide();
        TWindow* const locking = stage.Window();
        TWindow* const later = stage.RaisedWindow();
        stage.Lock(locking, modalType);
        QVERIFY(stage.Layers().IsAbove(stage.Fade(), later));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theAlarmMayLockTheScreenItself_data() { theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks_data(); }

    void theAlarmMayLockTheScreenItself()
    {
        QFETCH(int, modalType);
        TLockStage stage;
        TWindow* const alarm = stage.Alarm();
        stage.Window();
        stage.Lock(alarm, modalType);
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, stage.Fade()));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void nothingCoversAToolTip_data() { theBarsGoUnderTheFadeOrTheFirstOfSeveralLocks_data(); }

    void nothingCoversAToolTip()
    {
        QFETCH(int, modalType);
        TLockStage stage;
        TToolTip* const toolTip = stage.ToolTip();
        TWindow* const window = stage.Window();
        stage.Lock(window, modalType);
        QVERIFY(stage.Layers().IsAbove(toolTip, window));
        VERIFY_LAYERS(*stage.screen.get());
        stage.Alarm();
        stage.screen->CheckToolbarsForLocking();
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aWindowDeeperInTheScreenIsRaisedAmongItsOwn()
    {
        TLockStage stage;
        TWindow inner(stage.canvas);
        QWidget above(stage.canvas);
        inner.ShowWindow(false);
        stage.Lock(&inner, MODAL_LOCAL);
        QCOMPARE(stage.canvas->children().constLast(), &inner);
        QVERIFY(stage.Fade()->isVisible());
        stage.screen->RemoveLockingWidget(&inner);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aWindowElsewhereLocksWithoutBeingTouched()
    {
        TLockStage stage;
        QWidget elsewhere;
        TWindow inner(&elsewhere);
        QWidget above(&elsewhere);
        stage.Lock(&inner, MODAL_GLOBAL);
        QVERIFY(elsewhere.children().indexOf(&inner) < elsewhere.children().indexOf(&above));
        QVERIFY(stage.Fade()->isVisible());
        stage.screen->RemoveLockingWidget(&inner);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aDeadWidgetDropsOutInSilence()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        stage.Lock(window, MODAL_GLOBAL);
        stage.notices.clear();
        bar->raise();
        delete window;
        QVERIFY(stage.Locks().isEmpty());
        QVERIFY(stage.notices.isEmpty());
        QVERIFY(stage.Fade()->isVisible());
        QVERIFY(stage.Layers().IsAbove(bar, stage.Fade()));
        QVERIFY(stage.screen->AreAllToolbarsLocked());
    }

    void theEndOfADeadLockIsToldByTheNextOperation()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        stage.Lock(window, MODAL_GLOBAL);
        delete window;
        stage.notices.clear();
        stage.screen->CheckToolbarsForLocking();
        QCOMPARE(Values(stage.notices), (QList<bool>{false}));
        stage.screen->CheckToolbarsForLocking();
        stage.screen->LockAllToolbars(false);
        QCOMPARE(stage.notices.count(), 1);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aLockAfterADeadOneGoesOnWithoutAnEnd()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const next = stage.Window();
        stage.Lock(window, MODAL_GLOBAL);
        delete window;
        stage.Lock(next, MODAL_LOCAL);
        QCOMPARE(Values(stage.notices), (QList<bool>{true, true}));
        QVERIFY(!stage.screen->AreAllToolbarsLocked());
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(next);
        QCOMPARE(Values(stage.notices), (QList<bool>{true, true, false}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theLastLockIsTakenOffOnceAlsoWhenOneDiedBefore()
    {
        TLockStage stage;
        TWindow* const first = stage.Window();
        TWindow* const last = stage.Window();
        stage.Lock(first, MODAL_LOCAL);
        stage.Lock(last, MODAL_LOCAL);
        delete first;
        stage.screen->RemoveLockingWidget(last);
        QCOMPARE(Values(stage.notices), (QList<bool>{true, true, false}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theFadeKnowsItsWindowWhenItAppears()
    {
        class TWatcher : public QObject
        {
        public:
            explicit TWatcher(TModalWidget* fade)
                : m_Fade(fade)
            {
                fade->installEventFilter(this);
            }
            bool eventFilter(QObject* watched, QEvent* event) override
            {
                if (watched == m_Fade && event->type() == QEvent::Show)
                    m_Seen = m_Fade->GetModalData().widget;
                return false;
            }

            TModalWidget* m_Fade;
            QWidget* m_Seen = nullptr;
        };
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWatcher const watcher(stage.Fade());
        stage.Lock(window, MODAL_LOCAL);
        QCOMPARE(watcher.m_Seen, window);
    }

    void aRemovedWidgetMayDieWithoutAWord()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const next = stage.Window();
        stage.Lock(window, MODAL_LOCAL);
        stage.Lock(window, MODAL_LOCAL);
        stage.Lock(next, MODAL_LOCAL);
        stage.screen->RemoveLockingWidget(window);
        delete window;
        QCOMPARE(stage.Locks(), (QList<QWidget*>{next}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aVanishedLockIsPutRightByTheNextOperation_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("below");
        QTest::addColumn<int>("modalType");
        for (char const* const way : {"delete", "remove and delete", "hide", "close", "take off the screen"})
        {
            for (char const* const operation :
                 {"check", "remove it", "add", "lock the bars", "unlock the bars", "canvas"})
            {
                for (int const below : {MODAL_NONE, MODAL_LOCAL, MODAL_GLOBAL})
                {
                    for (int const modalType : {MODAL_LOCAL, MODAL_GLOBAL})
                    {
                        QTest::addRow("%s, then %s, %d above %d", way, operation, modalType, below)
                            << way << operation << below << modalType;
                    }
                }
            }
        }
    }

    void aVanishedLockIsPutRightByTheNextOperation()
    {
        QFETCH(QString, way);
        QFETCH(QString, operation);
        QFETCH(int, below);
        QFETCH(int, modalType);
        TLockStage stage;
        stage.Alarm();
        if (below != MODAL_NONE)
            stage.Lock(stage.Window(), below);
        TWindow* const window = stage.Window();
        stage.Lock(window, modalType);
        Vanish(stage, window, way);
        Operate(stage, window, operation);
        if (way == QLatin1String("delete") && operation == QLatin1String("lock the bars"))
        {
            QVERIFY(stage.screen->AreAllToolbarsLocked());
            stage.screen->LockAllToolbars(false);
        }
        else if (operation == QLatin1String("lock the bars"))
        {
            stage.screen->LockAllToolbars(false);
        }
        VERIFY_LAYERS(*stage.screen.get());
        bool const isLocked = below != MODAL_NONE || !stage.Locks().isEmpty();
        QCOMPARE(stage.notices.constLast().at(0).toBool(), isLocked);
        QCOMPARE(stage.Fade()->isVisible(), isLocked);
    }

    void aNoticeMayEndItsOwnLock_data()
    {
        QTest::addColumn<bool>("deletes");
        QTest::addColumn<int>("below");
        QTest::newRow("removed, alone") << false << int(MODAL_NONE);
        QTest::newRow("removed, above another") << false << int(MODAL_LOCAL);
        QTest::newRow("deleted, alone") << true << int(MODAL_NONE);
        QTest::newRow("deleted, above a local lock") << true << int(MODAL_LOCAL);
        QTest::newRow("deleted, above a global lock") << true << int(MODAL_GLOBAL);
    }

    void aNoticeMayEndItsOwnLock()
    {
        QFETCH(bool, deletes);
        QFETCH(int, below);
        TLockStage stage;
        if (below != MODAL_NONE)
            stage.Lock(stage.Window(), below);
        TWindow* const window = stage.Window();
        stage.AtTheNotice(
            [&](bool)
            {
                if (deletes)
                    delete window;
                else
                    stage.screen->RemoveLockingWidget(window);
            });
        stage.Lock(window, MODAL_GLOBAL);
        VERIFY_LAYERS(*stage.screen.get());
        QCOMPARE(stage.Locks().size(), below == MODAL_NONE ? 0 : 1);
        QCOMPARE(stage.notices.constLast().at(0).toBool(), below != MODAL_NONE);
    }

    void aNoticeMayAddAnotherLock()
    {
        TLockStage stage;
        TWindow* const window = stage.Window();
        TWindow* const other = stage.Window();
        stage.AtTheNotice([&](bool) { stage.Lock(other, MODAL_GLOBAL); });
        stage.Lock(window, MODAL_LOCAL);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{window, other}));
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(other);
        stage.AtTheNotice([&](bool) { stage.Lock(other, MODAL_LOCAL); });
        stage.screen->RemoveLockingWidget(window);
        QCOMPARE(stage.Locks(), (QList<QWidget*>{other}));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aNoticeMayDeleteTheScreen_data()
    {
        QTest::addColumn<QString>("operation");
        for (char const* const operation : {"add", "remove", "check", "unlock"})
            QTest::newRow(operation) << operation;
    }

    void aNoticeMayDeleteTheScreen()
    {
        QFETCH(QString, operation);
        QPointer<TScreen> screen = new TScreen;
        QWidget first(nullptr);
        auto* const second = new QWidget;
        screen->AddLockingWidget({&first, QString(), MODAL_GLOBAL, {}});
        connect(screen, &TScreen::NotifyScreenLock, this, [&] { delete screen; });
        if (operation == QLatin1String("add"))
            screen->AddLockingWidget({second, QString(), MODAL_LOCAL, {}});
        else if (operation == QLatin1String("remove"))
            screen->RemoveLockingWidget(&first);
        else
        {
            screen->blockSignals(true);
            screen->AddLockingWidget({second, QString(), MODAL_LOCAL, {}});
            screen->RemoveLockingWidget(&first);
            screen->blockSignals(false);
        }
        delete second;
        if (operation == QLatin1String("check"))
            screen->CheckToolbarsForLocking();
        else if (operation == QLatin1String("unlock"))
            screen->LockAllToolbars(false);
        QVERIFY(!screen);
    }

    void theLockingWidgetsMayOutliveTheScreen()
    {
        auto const window = std::make_unique<QWidget>();
        {
            TTestScreen screen;
            screen->AddLockingWidget({window.get(), QString(), MODAL_GLOBAL, {}});
        }
        QVERIFY(window->isHidden());
    }

    void windowsThatLockDieWithTheScreen()
    {
        QPointer<TWindow> window;
        {
            TTestScreen screen;
            window = new TWindow(nullptr);
            window->ShowWindow(true);
            screen->AddLockingWidget({window, QString(), MODAL_GLOBAL, {}});
        }
        QVERIFY(!window);
    }

    void aCheckBringsTheMiniWindowsBackWhileTheBarIsSeen()
    {
        TLockStage stage;
        auto* const mini = stage.Keep(new TMiniWindow(nullptr));
        KVN::MorvaneID const module(QUuid(QStringLiteral("{6c1f2f0e-5a0b-4e6d-9a43-5d0c6f7f2a11}")));
        int const id = stage.screen->AssignNavButton(module, QString(), mini, nullptr, nullptr, QString());
        stage.screen.Manager()->OnShowMiniView(id);
        stage.screen.FinishSlides();
        mini->HideWindow();
        stage.screen->CheckToolbarsForLocking();
        QVERIFY(mini->isVisible());
        stage.Lock(stage.Window(), MODAL_LOCAL);
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->GetNavigationBar()->hide();
        mini->HideWindow();
        stage.screen->CheckToolbarsForLocking();
        QVERIFY(!mini->isVisible());
    }

private:
    static void Vanish(TLockStage& stage, TWindow* window, QString const& way)
    {
        if (way == QLatin1String("remove and delete"))
            stage.screen->RemoveLockingWidget(window);
        if (way.endsWith(QLatin1String("delete")))
            delete window;
        else if (way == QLatin1String("hide"))
            window->HideWindow();
        else if (way == QLatin1String("close"))
            window->close();
        else
            window->setParent(nullptr);
    }

    static void Operate(TLockStage& stage, TWindow* window, QString const& operation)
    {
        if (operation == QLatin1String("check"))
            stage.screen->CheckToolbarsForLocking();
        else if (operation == QLatin1String("remove it"))
            stage.screen->RemoveLockingWidget(window);
        else if (operation == QLatin1String("add"))
            stage.Lock(stage.Window(), MODAL_LOCAL);
        else if (operation == QLatin1String("canvas"))
            stage.screen->SetCurrentCanvas(stage.canvas, true);
        else
            stage.screen->LockAllToolbars(operation == QLatin1String("lock the bars"));
    }
};

COMMONUI_TEST(TScreenLocksTest)
#include "TScreenLocksTest.moc"
