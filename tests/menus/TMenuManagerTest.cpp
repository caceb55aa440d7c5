#include "TMenuManager.h"
#include "RunInChild.h"
#include "TestCase.h"
#include "TMenuModel.h"
#include "TMenuState.h"

#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>
#include <random>
#include <utility>

namespace
{
constexpr int Root = 0;

void Deliver()
{
    QCoreApplication::processEvents();
}

/// A manager whose handlers may be called from outside.
class TOpenManager : public TMenuManager
{
public:
    using TMenuManager::GetAllMenuElementsInternal;
    using TMenuManager::HandleElementActivated;
    using TMenuManager::HandleElementListChanged;
    using TMenuManager::HandleElementStateChanged;
    using TMenuManager::HandleForceToShortcut;
    using TMenuManager::HandleHideAllMenus;
    using TMenuManager::HandleHideMenu;
    using TMenuManager::HandleMenuAdded;
    using TMenuManager::HandleMenuRemoved;
    using TMenuManager::HandleMenusEnabledChanged;
    using TMenuManager::HandleShowMenu;
    using TMenuManager::HandleToggleMenu;
};

/// A manager that notes whether its handlers have the lock, and how often a menu's elements were looked at.
class TCheckedManager : public TMenuManager
{
public:
    int looks = 0;
    int unlocked = 0; ///< calls without the lock

protected:
    void HandleMenuAdded(int id) override
    {
        Check([&] { TMenuManager::HandleMenuAdded(id); });
    }
    void HandleMenuRemoved(int id) override
    {
        Check([&] { TMenuManager::HandleMenuRemoved(id); });
    }
    void HandleToggleMenu(int id, int parent, int element) override
    {
        Check([&] { TMenuManager::HandleToggleMenu(id, parent, element); });
    }
    void HandleForceToShortcut(int id) override
    {
        Check([&] { TMenuManager::HandleForceToShortcut(id); });
    }
    void HandleHideMenu(int id) override
    {
        Check([&] { TMenuManager::HandleHideMenu(id); });
    }
    void HandleShowMenu(int id) override
    {
        Check([&] { TMenuManager::HandleShowMenu(id); });
    }
    void HandleHideAllMenus() override
    {
        Check([&] { TMenuManager::HandleHideAllMenus(); });
    }
    void HandleElementListChanged(int id) override
    {
        Check([&] { TMenuManager::HandleElementListChanged(id); });
    }
    void HandleElementStateChanged(int id) override
    {
        ++looks;
        Check([&] { TMenuManager::HandleElementStateChanged(id); });
    }
    void HandleMenusEnabledChanged(bool enabled, bool hide) override
    {
        Check([&] { TMenuManager::HandleMenusEnabledChanged(enabled, hide); });
    }
    bool HandleElementActivated(int id, int element) override
    {
        bool isHidden = false;
        Check([&] { isHidden = TMenuManager::HandleElementActivated(id, element); });
        return isHidden;
    }

private:
    template<typename T>
    void Check(T handle)
    {
        if (GetLock()->tryLockForRead())
        {
            GetLock()->unlock();
            ++unlocked;
        }
        handle();
    }
};

/// What a manager says, and whether its lock was free then.
class TManagerEar : public QObject
{
public:
    explicit TManagerEar(TMenuManager& manager)
        : m_Manager(manager)
    {
        connect(&manager, &TMenuManager::MenuListChanged, this, [this] { Note(QStringLiteral("list")); });
        connect(&manager, &TMenuManager::MenuStateChanged, this, [this] { Note(QStringLiteral("menus")); });
        connect(&manager, &TMenuManager::ElementListChanged, this,
                [this](int id) { Note(QStringLiteral("elements%1").arg(id)); });
        connect(&manager, &TMenuManager::ElementStateChanged, this,
                [this](int id) { Note(QStringLiteral("state%1").arg(id)); });
        connect(&manager, &TMenuManager::EnabledChanged, this,
                [this](bool enabled)
                { Note(enabled ? QStringLiteral("enabled") : QStringLiteral("disabled")); });
    }

    /// What was said since the last question.
    QString Heard() { return std::exchange(m_Heard, {}).join(QLatin1Char(' ')); }

    bool wasAlwaysFree = true;

private:
    void Note(QString const& what)
    {
        m_Heard << what;
        bool const isFree = m_Manager.GetLock()->tryLockForWrite();
        if (isFree)
            m_Manager.GetLock()->unlock();
        wasAlwaysFree = wasAlwaysFree && isFree;
    }

    TMenuManager& m_Manager;
    QStringList m_Heard;
};

/// The menus of some modules, and an operator who does what a text says: steps of a word and numbers, each of
/// which is delivered before the next.
class TMenuStage
{
public:
    explicit TMenuStage(int count)
    {
        for (int id = 0; id < count; ++id)
        {
            menus.push_back(std::make_unique<TMenuState>(QStringLiteral("menu%1").arg(id)));
            manager.AddMenu(menus.back().get());
        }
        manager.SetRootMenuID(Root, true);
        Deliver();
    }

    void Do(QString const& steps)
    {
        QStringList const all = steps.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString const& step : all)
        {
            Step(TMenuStep::From(step));
            Deliver();
        }
    }

    void Step(TMenuStep const& step)
    {
        if (!ChangeElement(step) && !CallManager(step))
            TellByMenu(step);
    }

    /// The open menus, with an f for those that stand as shortcuts; then those that the operator closed.
    QString Open() const
    {
        QStringList words;
        QList<int> const order = manager.GetMenuShownOrder();
        for (int const id : order)
        {
            bool const isForced = manager.GetMenuDisplayState(id).isForcedShortcut;
            words << QString::number(id) + (isForced ? QStringLiteral("f") : QString());
        }
        for (int id = 0; id < int(menus.size()); ++id)
        {
            if (manager.GetMenuDisplayState(id).isClosedByUser)
                words << QStringLiteral("closed%1").arg(id);
        }
        return words.join(QLatin1Char(' '));
    }

    TCheckedManager manager;
    std::vector<std::unique_ptr<TMenuState>> menus;

private:
    bool ChangeElement(TMenuStep const& step)
    {
        TMenuState& menu = *menus.at(step.menu);
        TElementState element = menu.GetElement(step.element);
        switch (step.kind)
        {
        case TMenuStep::LEAD:
            menu.AddElement(TElementState(TMMIDef(), TActivationConfig(step.element, ELEMENT_HIDE_NONE),
                                          QString(), QString(), -1, true, true, false));
            return true;
        case TMenuStep::SEE:
            element.SetVisible(step.value != 0);
            break;
        case TMenuStep::CONTROL:
            element.SetControlVisible(step.value != 0);
            break;
        case TMenuStep::SHORTCUT:
            element.SetShortcut(step.value != 0);
            break;
        case TMenuStep::MODE:
            element.SetActivationConfig(TActivationConfig(element.GetActivationConfig().GetMenuToToggle(),
                                                          static_cast<EElementHideMode>(step.value)));
            break;
        default:
            return false;
        }
        menu.SetElement(element);
        return true;
    }

    bool CallManager(TMenuStep const& step)
    {
        switch (step.kind)
        {
        case TMenuStep::PRESS:
            manager.ElementActivated(step.menu, step.element);
            return true;
        case TMenuStep::TOGGLE:
            manager.OnToggleMenu(step.menu, step.element, step.value);
            return true;
        case TMenuStep::SHOW:
            manager.ShowMenu(step.menu);
            return true;
        case TMenuStep::HIDE:
            manager.HideMenu(step.menu);
            return true;
        case TMenuStep::HIDE_ALL:
            manager.HideAllMenus();
            return true;
        case TMenuStep::MENUS:
            manager.SetMenusEnabled(step.menu != 0, step.element != 0);
            return true;
        case TMenuStep::AUTO:
            manager.SetAutoHideAllowed(step.menu != 0);
            return true;
        case TMenuStep::REMOVE:
            manager.RemoveMenu(step.menu);
            return true;
        default:
            return false;
        }
    }

    void TellByMenu(TMenuStep const& step)
    {
        TMenuState& menu = *menus.at(step.menu);
        if (step.kind == TMenuStep::FORCE)
            Q_EMIT menu.ForceToShortcut(step.menu);
        else if (step.kind == TMenuStep::ENABLE)
            menu.SetEnabled(step.element != 0);
    }
};
} // namespace

class TMenuManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAndEnabledAtFirst();
    void menusGetTheirIdsInTheOrderOfAdding();
    void anAddedMenuIsBroughtUpToDateAndHeard();
    void whatAMenuChangedBeforeItWasAddedIsLookedAt();
    void theRootMenuMayComeBeforeOrAfterItsName();
    void eachDecision_data();
    void eachDecision();
    void aSecondActivationClosesTheMenuAndKeepsItFromComingBackAsAShortcut();
    void aForcedShortcutWhoseLastElementDisappearsClosesByItself();
    void anElementThatDisappearsClosesTheMenuThatItHadOpened();
    void disablingMenusHidesAllButTheRootOrLeavesThemOpenButInert();
    void withoutAutoHideTheHideModeHasNoEffect();
    void aPressThatDoesNothingHidesNothing_data();
    void aPressThatDoesNothingHidesNothing();
    void removingAnUnknownMenuChangesNothingAndEmitsNothing();
    void aMenuIsShownAsAChildOfTheElementThatOpenedIt();
    void eachCallIsToldAfterwardsWithTheLockFree();
    void whatAMenuTellsArrivesFromTheEventLoop();
    void handlersRunUnderTheLock();
    void changesThatComeTogetherAreToldOnce();
    void eachElementThatComesOrGoesIsTold();
    void aFloodOfNoticesIsBounded();
    void wishesThatComeTogetherCostNoLookAtOtherMenus();
    void aForcedMenuWhoseElementsWentMeanwhileCloses();
    void whatTheDisplayReadIsToldOfEvenIfItWentBack();
    void aDecisionIsTakenAgainIfItsReasonWentMeanwhile();
    void anOpenMenuThatBecomesAShortcutIsTold();
    void aMenuOpenedThroughAnElementThatWentMeanwhileCloses();
    void aMenuDisabledByItsModuleStaysDisabled();
    void aMenuRemovedWhileDisabledIsEnabledAgain();
    void aMenuThatWasAddedTwiceIsOne();
    void unknownIdsAreIgnored_data();
    void unknownIdsAreIgnored();
    void anElementRemovedWhileItsMenuIsOpenDoesNothing();
    void aMenuThatTogglesItselfOpensAndCloses();
    void aCircleOfMenusClosesAtOnce();
    void menusNestedDeeplyCloseAtOnce();
    void aMenuThatDiesIsRemoved();
    void slotsOfAMenuMayCallTheManager();
    void aMenuMayEndItselfOrTheManagerWhenItIsRefreshed();
    void diesInTheSlotOfEachOfItsSignals();
    void diesWhileItsMenusHaveSomethingToTell();
    void randomSequencesFollowTheModel();
    void threadsChangeFortyMenusAndTheLastStateIsSeen();
    void menusAreRemovedWhileThreadsChangeThem();
// A released console does not check.
#ifndef QT_NO_DEBUG
    void aMissingLockIsAFault();
#endif
};

void TMenuManagerTest::isEmptyAndEnabledAtFirst()
{
    TMenuManager const manager;
    QVERIFY(manager.GetMenus().empty());
    QVERIFY(manager.GetMenuShownOrder().isEmpty());
    QVERIFY(manager.GetMenusEnabled());
    QCOMPARE(manager.GetRootMenuID(), -1);
}

void TMenuManagerTest::menusGetTheirIdsInTheOrderOfAdding()
{
    TMenuManager manager;
    TManagerEar ear(manager);
    TMenuState first(QStringLiteral("first"));
    TMenuState second(QStringLiteral("second"));
    QCOMPARE(manager.AddMenu(nullptr), -1);
    QCOMPARE(ear.Heard(), QString());
    QCOMPARE(manager.AddMenu(&first), 0);
    QCOMPARE(ear.Heard(), QStringLiteral("list"));
    QCOMPARE(manager.AddMenu(&second), 1);
    QCOMPARE(second.GetMenuID(), 1);
    QCOMPARE(manager.GetMenus(), (std::vector<TMenuState*>{&first, &second}));
    QCOMPARE(manager.GetMenu(1), &second);
    manager.RemoveMenu(0);
    QVERIFY(!manager.GetMenu(0));
    QCOMPARE(manager.AddMenu(&first), 2);
    QCOMPARE(manager.GetAllMenuElements().at(1).menuName, QStringLiteral("first"));
    QCOMPARE(manager.GetMenuElements(2).menuID, 2);
}

void TMenuManagerTest::anAddedMenuIsBroughtUpToDateAndHeard()
{
    class TFreshMenu : public TMenuState
    {
    public:
        using TMenuState::TMenuState;
        void RefreshMenu() override { AddElement(TElementState()); }
    };
    TMenuManager manager;
    TManagerEar ear(manager);
    TFreshMenu menu{QString()};
    manager.AddMenu(&menu);
    QCOMPARE(manager.GetElementsState(0).size(), size_t(1));
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("list"));
    manager.RefreshAllMenus();
    QCOMPARE(manager.GetElementsState(0).size(), size_t(2));
    QCOMPARE(ear.Heard(), QString());
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("elements0"));
    manager.RemoveMenu(0);
    menu.AddElement(TElementState());
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("list"));
}

void TMenuManagerTest::whatAMenuChangedBeforeItWasAddedIsLookedAt()
{
    TMenuManager manager;
    TMenuState menu{QString()};
    menu.AddElement(TElementState());
    TElementState element = menu.GetElement(0);
    element.SetShortcut(true);
    element.SetVisible(true);
    menu.SetElement(element);
    manager.AddMenu(&menu);
    TManagerEar ear(manager);
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("state0"));
    QCOMPARE(manager.GetMenuDisplayState(0).shortcutIDs, QSet<int>{0});
}

void TMenuManagerTest::theRootMenuMayComeBeforeOrAfterItsName()
{
    TMenuManager manager;
    TMenuState menu{QString()};
    TMenuState other{QString()};
    manager.SetRootMenuID(1, false);
    manager.AddMenu(&menu);
    QVERIFY(manager.GetMenuShownOrder().isEmpty());
    manager.AddMenu(&other);
    QCOMPARE(manager.GetMenuShownOrder(), QList<int>{1});
    QVERIFY(manager.GetMenuDisplayState(1).isShown);
    TManagerEar ear(manager);
    manager.SetRootMenuID(0, false);
    QCOMPARE(manager.GetRootMenuID(), 0);
    QVERIFY(!manager.GetMenuDisplayState(0).isShown);
    manager.SetRootMenuID(9, true);
    QCOMPARE(ear.Heard(), QString());
    manager.SetRootMenuID(0, true);
    QCOMPARE(ear.Heard(), QStringLiteral("menus"));
    QCOMPARE(manager.GetMenuDisplayState(0).parentMenuID, -1);
    QCOMPARE(manager.GetMenuShownOrder(), (QList<int>{1, 0}));
}

namespace
{
struct TDecision
{
    char const* name;
    char const* steps;
    char const* open; // as TMenuStage::Open() tells
};

// Five menus, of which 0 is the root and open. A lead is an element of the first menu for the second.
TDecision const DECISIONS[] = {
    {"toggle: opens", "lead 0 1; press 0 0", "0 1f"},
    {"toggle: closes", "lead 0 1; press 0 0; press 0 0", "0 closed1"},
    {"toggle: opens again", "lead 0 1; press 0 0; press 0 0; press 0 0", "0 1f"},
    {"toggle: from nowhere closes", "lead 0 1; press 0 0; toggle 1 -1 0", "0 closed1"},
    {"toggle: from elsewhere shows", "lead 0 1; press 0 0; toggle 1 2 0", "0 1f"},
    {"toggle: the root stays", "toggle 0 -1 0", "0f"},
    {"toggle: siblings go", "lead 0 1; lead 0 2; press 0 0; press 0 1", "0 2f"},
    {"toggle: a nested menu goes with its parent",
     "lead 0 1; lead 1 2; lead 2 3; lead 0 4; press 0 0; press 1 0; press 2 0; press 0 1", "0 4f"},
    {"toggle: nested ones stay open beside each other", "lead 0 1; lead 1 2; press 0 0; press 1 0",
     "0 1f 2f"},
    // The element of 1 counts once it was seen as a shortcut; then the shortcut opens by itself.
    {"shortcut: opens by itself", "lead 0 1; lead 1 3; short 1 0 1", "0 1"},
    {"shortcut: not without a way to it", "lead 1 3; short 1 0 1", "0"},
    {"shortcut: not through an invisible element", "lead 0 1; see 0 0 0; lead 1 3; short 1 0 1", "0"},
    {"shortcut: through an element that appears", "lead 0 1; see 0 0 0; lead 1 3; short 1 0 1; see 0 0 1",
     "0 1"},
    {"shortcut: an invisible one does not count", "lead 0 1; lead 1 3; see 1 0 0; short 1 0 1", "0"},
    {"shortcut: one without a control does not count", "lead 0 1; lead 1 3; control 1 0 0; short 1 0 1", "0"},
    {"shortcut: goes with its flag", "lead 0 1; lead 1 3; short 1 0 1; short 1 0 0", "0 1f"},
    {"shortcut: through a menu that is closed", "lead 2 1; lead 1 3; short 1 0 1", "0 1"},
    {"shortcut: a new one closes the children",
     "lead 0 1; lead 1 2; lead 1 3; press 0 0; press 1 0; short 1 1 1", "0 1"},
    {"shortcut: the last of two stays",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; menus 0 0; short 1 0 1; short 2 0 1; menus 1 0", "0 2"},
    {"shortcut: takes the place of one that was opened by hand",
     "lead 0 1; lead 0 2; lead 1 3; press 0 1; menus 0 0; short 1 0 1; menus 1 0", "0 1"},
    {"shortcut: an open one that is none keeps it away",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; short 2 0 1; short 1 0 1", "0 2"},
    {"shortcut: opened by the operator it stays beside another one",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; short 1 0 1; short 2 0 1; press 0 1; press 0 0", "0 2f 1f"},
    {"shortcut: one that the operator closes leaves its place free",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; menus 0 0; short 1 0 1; short 2 0 1; menus 1 0; press 0 1",
     "0 closed2"},
    {"shortcut: the next change gives the place to another one",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; menus 0 0; short 1 0 1; short 2 0 1; menus 1 0; press 0 1; see "
     "2 0 0",
     "0 1 closed2"},
    {"closed by user: does not come back", "lead 0 1; lead 1 3; short 1 0 1; press 0 0; see 1 0 0; see 1 0 1",
     "0 closed1"},
    {"closed by user: pressed it comes back", "lead 0 1; lead 1 3; short 1 0 1; press 0 0; press 0 0",
     "0 1f"},
    {"closed by user: hidden by a call", "lead 0 1; lead 1 3; short 1 0 1; hide 1; see 1 0 0; see 1 0 1",
     "0 closed1"},
    {"force: takes the mark away", "lead 0 1; lead 1 3; short 1 0 1; press 0 0; force 1", "0 1"},
    {"force: not without a shortcut", "lead 0 1; press 0 0; press 0 0; force 1", "0 closed1"},
    {"force: an invisible shortcut will do", "lead 0 1; lead 1 3; short 1 0 1; press 0 0; see 1 0 0; force 1",
     "0"},
    {"force: not while menus are disabled", "lead 0 1; lead 1 3; short 1 0 1; press 0 0; menus 0 0; force 1",
     "0"},
    {"force: closes with its last element", "lead 1 3; short 1 0 1; show 1; force 1; see 1 0 0", "0"},
    {"force: the open one is marked", "lead 1 3; short 1 0 1; show 1; force 1", "0 1f"},
    {"hide mode: nothing", "lead 0 1; lead 1 2; press 0 0; press 1 0", "0 1f 2f"},
    {"hide mode: own menu", "lead 0 1; lead 1 -1; mode 1 0 1; press 0 0; press 1 0", "0"},
    {"hide mode: own menu, others stay", "lead 0 1; lead 1 -1; mode 1 0 1; show 3; press 0 0; press 1 0",
     "0 3"},
    {"hide mode: all menus", "lead 0 1; lead 1 -1; mode 1 0 2; show 3; press 0 0; press 1 0", "0"},
    {"hide mode: a shortcut goes", "lead 0 1; lead 1 -1; lead 1 -1; short 1 0 1; mode 1 0 1; press 1 0", "0"},
    {"hide mode: a shortcut comes back later",
     "lead 0 1; lead 1 -1; lead 1 -1; short 1 0 1; mode 1 0 1; press 1 0; see 1 1 0", "0 1"},
    {"hide mode: all menus but the shortcuts",
     "lead 0 1; lead 1 -1; short 1 0 1; mode 1 0 2; show 3; press 1 0", "0 1"},
    {"hide mode: not of a disabled menu", "lead 0 1; lead 1 -1; mode 1 0 1; press 0 0; enable 1 0; press 1 0",
     "0 1f"},
    {"hide mode: not of an invisible element",
     "lead 0 1; lead 1 -1; mode 1 0 1; press 0 0; lead 1 -1; see 1 0 0; press 1 0", "0 1f"},
    {"auto-hide off: own menu", "lead 0 1; lead 1 -1; mode 1 0 1; press 0 0; auto 0; press 1 0", "0 1f"},
    {"auto-hide off: all menus", "lead 0 1; lead 1 -1; mode 1 0 2; press 0 0; auto 0; press 1 0", "0 1f"},
    {"auto-hide on again", "lead 0 1; lead 1 -1; mode 1 0 1; press 0 0; auto 0; auto 1; press 1 0", "0"},
    {"disappearing: closes what it opened", "lead 0 1; press 0 0; see 0 0 0", "0"},
    {"disappearing: without its control too", "lead 0 1; press 0 0; control 0 0 0", "0"},
    {"disappearing: and what that opened", "lead 0 1; lead 1 2; press 0 0; press 1 0; see 0 0 0", "0"},
    {"disappearing: others stay", "lead 0 1; lead 0 2; show 2; press 0 0; see 0 1 0", "0 1f"},
    {"disappearing: the last of a forced menu", "lead 0 1; lead 1 -1; press 0 0; see 1 0 0", "0"},
    {"disappearing: one of two of a forced menu", "lead 0 1; lead 1 -1; lead 1 -1; press 0 0; see 1 0 0",
     "0 1f"},
    {"disappearing: the last of one that is not forced", "lead 1 -1; show 1; see 1 0 0", "0 1"},
    {"disabled: inert", "lead 0 1; menus 0 0; press 0 0", "0"},
    {"disabled: left open", "lead 0 1; press 0 0; menus 0 0", "0 1f"},
    {"disabled: hidden", "lead 0 1; lead 1 2; show 3; press 0 0; press 1 0; menus 0 1", "0"},
    {"disabled: shortcuts go", "lead 0 1; lead 1 3; short 1 0 1; menus 0 1", "0"},
    {"disabled: shortcuts come back", "lead 0 1; lead 1 3; short 1 0 1; menus 0 1; menus 1 0", "0 1"},
    {"disabled: shortcuts wait", "lead 0 1; lead 1 3; menus 0 0; short 1 0 1", "0"},
    {"disabled twice is disabled once", "lead 0 1; menus 0 0; menus 0 1; menus 1 0; press 0 0", "0 1f"},
    {"disabled by module and manager", "lead 0 1; enable 0 0; menus 0 0; menus 1 0; press 0 0", "0"},
    {"disabled by module and manager, enabled by both",
     "lead 0 1; enable 0 0; menus 0 0; menus 1 0; enable 0 1; press 0 0", "0 1f"},
    {"show: as no shortcut", "show 1", "0 1"},
    {"show: beside what is open", "lead 0 1; press 0 0; show 2", "0 1f 2"},
    {"show: the last shown stands last", "show 1; show 2; show 1", "0 2 1"},
    {"hide: with its children", "lead 0 1; lead 1 2; press 0 0; press 1 0; hide 1", "0 closed1"},
    {"hide: even the root", "hide 0", "closed0"},
    {"hide all: but the root", "lead 0 1; press 0 0; show 3; all", "0"},
    {"hide all: not even when a menu led back to the root", "lead 0 1; lead 1 0; press 0 0; press 1 0; all",
     "0f"},
    {"remove: with its children", "lead 0 1; lead 1 2; press 0 0; press 1 0; remove 1", "0"},
    {"remove: an element that leads to it does nothing", "lead 0 1; remove 1; press 0 0", "0"},
    {"remove: gives its place to another shortcut",
     "lead 0 1; lead 0 2; lead 1 3; lead 2 3; menus 0 0; short 1 0 1; short 2 0 1; menus 1 0; remove 2",
     "0 1"},
    {"remove: a closed one with a shortcut that stayed open from it",
     "lead 0 1; lead 1 2; lead 2 3; short 2 0 1; show 1; hide 1; remove 1", "0"},
    {"remove: the root", "lead 0 1; press 0 0; remove 0", ""},
};
} // namespace

void TMenuManagerTest::eachDecision_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("open");
    for (TDecision const& decision : DECISIONS)
        QTest::newRow(decision.name) << QString::fromLatin1(decision.steps)
                                     << QString::fromLatin1(decision.open);
}

void TMenuManagerTest::eachDecision()
{
    QFETCH(QString, steps);
    TMenuStage stage(5);
    stage.Do(steps);
    QTEST(stage.Open(), "open");
    QCOMPARE(stage.manager.unlocked, 0);
}

void TMenuManagerTest::aSecondActivationClosesTheMenuAndKeepsItFromComingBackAsAShortcut()
{
    TMenuStage stage(4);
    stage.Do(QStringLiteral("lead 0 1; lead 1 3; lead 1 3; short 1 0 1"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1"));
    stage.Do(QStringLiteral("press 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 closed1"));
    stage.Do(QStringLiteral("short 1 1 1; short 1 1 0; menus 0 1; menus 1 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 closed1"));
    stage.Do(QStringLiteral("press 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
}

void TMenuManagerTest::aForcedShortcutWhoseLastElementDisappearsClosesByItself()
{
    TMenuStage stage(4);
    stage.Do(QStringLiteral("lead 0 1; lead 1 3; short 1 0 1; force 1; press 0 0; press 0 0; see 1 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    QVERIFY(!stage.manager.GetMenuDisplayState(Root).children.contains(1));
    stage.Do(QStringLiteral("see 1 0 1"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1"));
}

void TMenuManagerTest::anElementThatDisappearsClosesTheMenuThatItHadOpened()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1; press 0 0"));
    TManagerEar ear(stage.manager);
    stage.Do(QStringLiteral("see 0 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    QCOMPARE(ear.Heard(), QStringLiteral("state0 menus"));
}

void TMenuManagerTest::disablingMenusHidesAllButTheRootOrLeavesThemOpenButInert()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 1 2; press 0 0; menus 0 0; press 1 0; press 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
    QVERIFY(!stage.menus.at(1)->IsEnabled());
    stage.Do(QStringLiteral("menus 1 0; press 1 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f 2f"));
    stage.Do(QStringLiteral("menus 0 1"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    QVERIFY(!stage.manager.GetMenusEnabled());
}

void TMenuManagerTest::withoutAutoHideTheHideModeHasNoEffect()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1; lead 1 -1; mode 1 0 1; lead 1 -1; mode 1 1 2; press 0 0; auto 0"));
    TManagerEar ear(stage.manager);
    stage.Do(QStringLiteral("press 1 0; press 1 1"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
    QCOMPARE(ear.Heard(), QString());
    stage.Do(QStringLiteral("auto 1; press 1 0"));
    QCOMPARE(ear.Heard(), QStringLiteral("menus"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
}

void TMenuManagerTest::aPressThatDoesNothingHidesNothing_data()
{
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("open");
    QTest::newRow("none") << QString() << QStringLiteral("0");
    QTest::newRow("menus disabled") << QStringLiteral("menus 0 0") << QStringLiteral("0 1f");
    QTest::newRow("menu disabled") << QStringLiteral("enable 1 0") << QStringLiteral("0 1f");
    QTest::newRow("invisible") << QStringLiteral("see 1 0 0; see 1 1 0") << QStringLiteral("0 1f");
    QTest::newRow("without control") << QStringLiteral("control 1 0 0; control 1 1 0")
                                     << QStringLiteral("0 1f");
}

void TMenuManagerTest::aPressThatDoesNothingHidesNothing()
{
    QFETCH(QString, reason);
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 1 -1; lead 1 -1; lead 1 -1; mode 1 0 1; mode 1 1 2; press 0 0"));
    stage.Do(reason);
    TManagerEar ear(stage.manager);
    stage.Do(QStringLiteral("press 1 0; press 1 1"));
    QTEST(stage.Open(), "open");
    QCOMPARE(ear.Heard().isEmpty(), !reason.isEmpty());
}

void TMenuManagerTest::removingAnUnknownMenuChangesNothingAndEmitsNothing()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("show 1"));
    TManagerEar ear(stage.manager);
    for (int const id : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        stage.manager.RemoveMenu(id);
    Deliver();
    QCOMPARE(ear.Heard(), QString());
    QCOMPARE(stage.Open(), QStringLiteral("0 1"));
    QCOMPARE(stage.manager.GetMenus().size(), size_t(2));
}

void TMenuManagerTest::aMenuIsShownAsAChildOfTheElementThatOpenedIt()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 0 2; press 0 1"));
    TMenuDisplayState const state = stage.manager.GetMenuDisplayState(2);
    QCOMPARE(state.parentMenuID, Root);
    QCOMPARE(state.parentElementID, 1);
    QCOMPARE(stage.manager.GetMenuDisplayState(Root).children, QSet<int>{2});
    TMenuDisplayState const unknown = stage.manager.GetMenuDisplayState(9);
    QCOMPARE(unknown.parentMenuID, -1);
    QCOMPARE(unknown.parentElementID, 0);
    QVERIFY(!unknown.isShown && !unknown.isClosedByUser && !unknown.isForcedShortcut);
    QVERIFY(unknown.children.isEmpty() && unknown.shortcutIDs.isEmpty());
}

void TMenuManagerTest::eachCallIsToldAfterwardsWithTheLockFree()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 1 -1; mode 1 0 2"));
    TManagerEar ear(stage.manager);
    struct TCase
    {
        char const* step;
        char const* heard;
    };
    TCase const cases[] = {
        {"press 0 0", "menus"},    {"press 1 0", "menus"},
        {"toggle 1 0 0", "menus"}, {"force 1", "menus"},
        {"hide 1", "menus"},       {"show 1", "menus"},
        {"all", "menus"},          {"menus 0 0", "disabled menus state0 state1 state2"},
        {"menus 0 1", ""},         {"menus 1 0", "enabled menus state0 state1 state2"},
        {"see 1 0 0", "state1"},   {"see 1 0 0", ""},
        {"lead 2 1", "elements2"}, {"enable 2 0", "state2"},
        {"enable 2 0", ""},        {"remove 2", "list"},
    };
    for (TCase const& one : cases)
    {
        stage.Do(QString::fromLatin1(one.step));
        QCOMPARE(ear.Heard(), QString::fromLatin1(one.heard));
    }
    TMenuState late{QString()};
    stage.manager.AddMenu(&late);
    stage.manager.SetRootMenuID(late.GetMenuID(), true);
    QCOMPARE(ear.Heard(), QStringLiteral("list menus"));
    QVERIFY(ear.wasAlwaysFree);
}

void TMenuManagerTest::whatAMenuTellsArrivesFromTheEventLoop()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 1 -1"));
    TManagerEar ear(stage.manager);
    TMenuState& menu = *stage.menus.at(1);
    TElementState element = menu.GetElement(0);
    element.SetName(QStringLiteral("new"));
    struct TCase
    {
        std::function<void()> tell;
        char const* heard;
    };
    TCase const cases[] = {
        {[&] { menu.AddElement(TElementState()); }, "elements1"},
        {[&] { menu.SetElement(element); }, "state1"},
        {[&] { menu.SetEnabled(false); }, "state1"},
        {[&] { Q_EMIT menu.ToggleMenu(0, 1, 0); }, "menus"},
        {[&] { Q_EMIT menu.ForceToShortcut(1); }, "menus"},
        {[&] { Q_EMIT menu.HideMenu(1); }, "menus"},
    };
    for (TCase const& one : cases)
    {
        one.tell();
        QCOMPARE(ear.Heard(), QString());
        Deliver();
        QCOMPARE(ear.Heard(), QString::fromLatin1(one.heard));
    }
    QVERIFY(ear.wasAlwaysFree);
}

void TMenuManagerTest::handlersRunUnderTheLock()
{
    TMenuStage stage(3);
    stage.Do(
        QStringLiteral("lead 0 1; press 0 0; force 1; see 0 0 0; show 1; hide 1; all; menus 0 1; remove 1"));
    QVERIFY(stage.manager.looks > 0);
    QCOMPARE(stage.manager.unlocked, 0);
}

void TMenuManagerTest::changesThatComeTogetherAreToldOnce()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1; lead 1 0"));
    TManagerEar ear(stage.manager);
    stage.manager.looks = 0;
    for (int change = 0; change < 1000; ++change)
    {
        for (auto const& menu : stage.menus)
        {
            TElementState element = menu->GetElement(0);
            element.SetControlID(change);
            menu->SetElement(element);
        }
    }
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("state0 state1"));
    QCOMPARE(stage.manager.looks, 2);
    QVERIFY(!stage.menus.at(0)->GetElement(0).IsDirty());
    stage.Do(QStringLiteral("control 0 0 0"));
    QCOMPARE(ear.Heard(), QStringLiteral("state0"));
}

void TMenuManagerTest::eachElementThatComesOrGoesIsTold()
{
    TMenuStage stage(2);
    TManagerEar ear(stage.manager);
    TMenuState& menu = *stage.menus.at(1);
    menu.AddElement(TElementState());
    menu.AddElement(TElementState());
    menu.RemoveElement(0);
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("elements1 elements1 elements1"));
    menu.SetEnabled(false);
    menu.SetEnabled(true);
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("state1 state1"));
}

void TMenuManagerTest::aFloodOfNoticesIsBounded()
{
    constexpr int Flood = 10000;
    constexpr int Bound = 16;
    TMenuStage stage(2);
    TManagerEar ear(stage.manager);
    for (int round = 0; round < 2; ++round)
    {
        for (int change = 0; change < Flood; ++change)
        {
            for (auto const& menu : stage.menus)
            {
                menu->RemoveElement(menu->AddElement(TElementState()));
                menu->SetEnabled(change % 2 != 0);
            }
        }
        Deliver();
        QStringList const heard = ear.Heard().split(QLatin1Char(' '));
        for (int id = 0; id < 2; ++id)
        {
            QCOMPARE(heard.count(QStringLiteral("elements%1").arg(id)), Bound);
            QCOMPARE(heard.count(QStringLiteral("state%1").arg(id)), Bound);
        }
    }
}

// Menus that wish to be seen and change all the time: what waits grows by the wishes, not by wishes times
// menus.
void TMenuManagerTest::wishesThatComeTogetherCostNoLookAtOtherMenus()
{
    constexpr int Wishes = 100;
    TMenuStage stage(10);
    for (auto const& menu : stage.menus)
        menu->AddElement(TElementState());
    Deliver();
    stage.manager.looks = 0;
    for (int wish = 1; wish <= Wishes; ++wish)
    {
        Q_EMIT stage.menus.at(0)->ForceToShortcut(0);
        for (auto const& menu : stage.menus)
        {
            TElementState element = menu->GetElement(0);
            element.SetControlID(wish);
            menu->SetElement(element);
        }
    }
    Deliver();
    QCOMPARE(stage.manager.looks, Wishes + int(stage.menus.size()) - 1);
}

void TMenuManagerTest::aForcedMenuWhoseElementsWentMeanwhileCloses()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 1 -1; short 1 0 1; show 1"));
    TMenuState& menu = *stage.menus.at(1);
    TElementState element = menu.GetElement(0);
    element.SetName(QStringLiteral("new"));
    menu.SetElement(element);
    Q_EMIT menu.ForceToShortcut(1);
    element.SetVisible(false);
    menu.SetElement(element);
    Deliver();
    QCOMPARE(stage.Open(), QStringLiteral("0"));
}

// The value is not dirty any more, but somebody has seen it as it was.
void TMenuManagerTest::whatTheDisplayReadIsToldOfEvenIfItWentBack()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1"));
    TManagerEar ear(stage.manager);
    TMenuState& menu = *stage.menus.at(0);
    TElementState const before = menu.GetElement(0);
    TElementState after = before;
    after.SetName(QStringLiteral("new"));
    menu.SetElement(after);
    menu.SetElement(before);
    Deliver();
    QCOMPARE(ear.Heard(), QString());
    menu.SetElement(after);
    QCOMPARE(stage.manager.GetElementsState(0).front().GetName(), QStringLiteral("new"));
    menu.SetElement(before);
    Deliver();
    QCOMPARE(ear.Heard(), QStringLiteral("state0"));
}

void TMenuManagerTest::aDecisionIsTakenAgainIfItsReasonWentMeanwhile()
{
    // A thread changes a value back when the manager has just decided by it.
    class TLateManager : public TMenuManager
    {
    public:
        std::function<void()> afterwards;

    protected:
        void HandleElementStateChanged(int id) override
        {
            TMenuManager::HandleElementStateChanged(id);
            if (afterwards)
                std::exchange(afterwards, nullptr)();
        }
    };
    TLateManager manager;
    TMenuState menu{QString()};
    manager.AddMenu(&menu);
    menu.AddElement(
        TElementState(TMMIDef(), TActivationConfig(), QString(), QString(), -1, true, true, false));
    TElementState const before = menu.GetElement(0);
    TElementState after = before;
    after.SetShortcut(true);
    manager.afterwards = [&] { menu.SetElement(before); };
    menu.SetElement(after);
    Deliver();
    Deliver();
    QVERIFY(!manager.afterwards);
    QCOMPARE(manager.GetMenuDisplayState(0).shortcutIDs, QSet<int>{});
}

void TMenuManagerTest::anOpenMenuThatBecomesAShortcutIsTold()
{
    TMenuStage stage(4);
    stage.Do(QStringLiteral("lead 0 1; lead 1 3; short 1 0 1"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1"));
    TManagerEar ear(stage.manager);
    stage.Do(QStringLiteral("short 1 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
    QCOMPARE(ear.Heard(), QStringLiteral("state1 menus"));
}

void TMenuManagerTest::aMenuOpenedThroughAnElementThatWentMeanwhileCloses()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1"));
    TManagerEar ear(stage.manager);
    TElementState element = stage.menus.at(0)->GetElement(0);
    element.SetName(QStringLiteral("new"));
    stage.menus.at(0)->SetElement(element);
    stage.manager.ElementActivated(0, 0);
    element.SetVisible(false);
    stage.menus.at(0)->SetElement(element);
    Deliver();
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    QCOMPARE(ear.Heard(), QStringLiteral("state0 menus menus"));
}

void TMenuManagerTest::aMenuDisabledByItsModuleStaysDisabled()
{
    TMenuStage stage(2);
    stage.menus.at(0)->SetEnabled(false);
    stage.manager.SetMenusEnabled(false, false);
    TMenuState late{QString()};
    stage.manager.AddMenu(&late);
    QVERIFY(!late.IsEnabled());
    stage.manager.SetMenusEnabled(true, false);
    QVERIFY(!stage.menus.at(0)->IsEnabled());
    QVERIFY(stage.menus.at(1)->IsEnabled());
    QVERIFY(late.IsEnabled());
}

void TMenuManagerTest::aMenuRemovedWhileDisabledIsEnabledAgain()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("menus 0 0; remove 1"));
    QVERIFY(stage.menus.at(1)->IsEnabled());
    QVERIFY(!stage.menus.at(0)->IsEnabled());
}

void TMenuManagerTest::aMenuThatWasAddedTwiceIsOne()
{
    TMenuStage stage(2);
    TManagerEar ear(stage.manager);
    QCOMPARE(stage.manager.AddMenu(stage.menus.at(1).get()), 1);
    QCOMPARE(ear.Heard(), QString());
    QCOMPARE(stage.manager.GetMenus().size(), size_t(2));
}

void TMenuManagerTest::unknownIdsAreIgnored_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("least") << std::numeric_limits<int>::min();
    QTest::newRow("-1") << -1;
    QTest::newRow("removed") << 2;
    QTest::newRow("next") << 3;
    QTest::newRow("greatest") << std::numeric_limits<int>::max();
}

void TMenuManagerTest::unknownIdsAreIgnored()
{
    QFETCH(int, id);
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; press 0 0; remove 2"));
    TMenuManager& manager = stage.manager;
    TManagerEar ear(manager);
    manager.ElementActivated(id, 0);
    manager.ElementActivated(0, id);
    manager.RemoveMenu(id);
    manager.SetRootMenuID(id, true);
    QCOMPARE(ear.Heard(), QString());
    manager.SetRootMenuID(Root, false);
    manager.HideMenu(id);
    manager.ShowMenu(id);
    QCOMPARE(ear.Heard(), QString());
    manager.OnToggleMenu(id, 0, 0);
    manager.OnToggleMenu(id, id, id);
    manager.OnForceToShortcut(id);
    manager.OnHideMenu(id);
    manager.OnElementListChanged(id);
    manager.OnElementStateChanged(id);
    QVERIFY(!manager.GetMenu(id));
    QVERIFY(manager.GetElementsState(id).empty());
    QCOMPARE(manager.GetMenuElements(id).menuID, -1);
    QVERIFY(!manager.GetMenuDisplayState(id).isShown);
    Deliver();
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
    manager.OnToggleMenu(1, id == -1 ? 5 : id, id);
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
}

void TMenuManagerTest::anElementRemovedWhileItsMenuIsOpenDoesNothing()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 1 2; press 0 0; press 1 0"));
    TManagerEar ear(stage.manager);
    stage.manager.ElementActivated(1, 0);
    stage.menus.at(1)->RemoveElement(0);
    Deliver();
    QCOMPARE(stage.Open(), QStringLiteral("0 1f closed2"));
    stage.menus.at(0)->RemoveElement(0);
    stage.Do(QStringLiteral("press 1 0; press 0 0; see 0 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f closed2"));
    QCOMPARE(ear.Heard(), QStringLiteral("menus elements1 elements0"));
}

void TMenuManagerTest::aMenuThatTogglesItselfOpensAndCloses()
{
    TMenuStage stage(2);
    stage.Do(QStringLiteral("lead 0 1; lead 1 1; press 0 0; press 1 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 1f"));
    stage.Do(QStringLiteral("press 1 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 closed1"));
    stage.Do(
        QStringLiteral("lead 0 0; press 0 1; press 0 1; short 1 0 1; short 0 0 1; all; hide 0; menus 0 1"));
    QVERIFY(stage.manager.GetMenuShownOrder().isEmpty());
}

void TMenuManagerTest::aCircleOfMenusClosesAtOnce()
{
    TMenuStage stage(4);
    stage.Do(
        QStringLiteral("lead 0 1; lead 1 2; lead 2 3; lead 3 1; press 0 0; press 1 0; press 2 0; press 3 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 2f 3f 1f"));
    stage.Do(QStringLiteral("all"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    stage.Do(QStringLiteral("press 0 0; press 1 0; press 2 0; press 3 0; press 3 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0 closed1"));
}

void TMenuManagerTest::menusNestedDeeplyCloseAtOnce()
{
    constexpr int Depth = 1000;
    TMenuStage stage(Depth);
    for (int id = 1; id < Depth; ++id)
        stage.manager.OnToggleMenu(id, id - 1, 0);
    QCOMPARE(stage.manager.GetMenuShownOrder().size(), Depth);
    stage.manager.HideMenu(1);
    QCOMPARE(stage.manager.GetMenuShownOrder(), QList<int>{Root});
}

void TMenuManagerTest::aMenuThatDiesIsRemoved()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1; lead 1 2; press 0 0; press 1 0"));
    TManagerEar ear(stage.manager);
    stage.menus.at(1)->AddElement(TElementState());
    stage.menus.at(1).reset();
    QCOMPARE(ear.Heard(), QStringLiteral("list"));
    QVERIFY(!stage.manager.GetMenu(1));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
    stage.Do(QStringLiteral("press 0 0"));
    QCOMPARE(stage.Open(), QStringLiteral("0"));
}

void TMenuManagerTest::slotsOfAMenuMayCallTheManager()
{
    TMenuStage stage(3);
    stage.Do(QStringLiteral("lead 0 1"));
    TMenuManager& manager = stage.manager;
    int calls = 0;
    auto const ask = [&]
    {
        ++calls;
        manager.GetAllMenuElements();
        manager.ShowMenu(2);
        manager.RemoveMenu(2);
    };
    connect(stage.menus.at(0).get(), &TMenuState::ToggleMenu, this, ask);
    connect(stage.menus.at(1).get(), &TMenuState::EnabledStateChanged, this, ask);
    manager.ElementActivated(0, 0);
    manager.SetMenusEnabled(false, false);
    QCOMPARE(calls, 2);
    connect(stage.menus.at(0).get(), &TMenuState::ToggleMenu, this, [&] { stage.menus.at(0).reset(); });
    manager.SetMenusEnabled(true, false);
    manager.ElementActivated(0, 0);
    QVERIFY(!manager.GetMenu(0));
}

void TMenuManagerTest::aMenuMayEndItselfOrTheManagerWhenItIsRefreshed()
{
    class TEndingMenu : public TMenuState
    {
    public:
        using TMenuState::TMenuState;
        std::function<void()> end;
        void RefreshMenu() override
        {
            if (end)
                end();
        }
    };
    for (bool const isAdded : {false, true})
    {
        auto manager = std::make_unique<TMenuManager>();
        QPointer<TEndingMenu> const menu(new TEndingMenu{QString()});
        auto const add = [&]
        {
            if (isAdded)
                manager->RefreshAllMenus();
            else
                manager->AddMenu(menu);
        };
        TEndingMenu other{QString()};
        if (isAdded)
            manager->AddMenu(menu);
        manager->AddMenu(&other);
        menu->end = [&] { delete menu; };
        add();
        QCOMPARE(manager->GetMenus(), std::vector<TMenuState*>{&other});
        other.end = [&] { manager->RemoveMenu(other.GetMenuID()); };
        manager->RefreshAllMenus();
        QVERIFY(manager->GetMenus().empty());
        other.end = [&] { manager.reset(); };
        manager->AddMenu(&other);
        QVERIFY(!manager);
    }
}

void TMenuManagerTest::diesInTheSlotOfEachOfItsSignals()
{
    using TAction = std::function<void(TMenuManager&, TMenuState&)>;
    TAction const actions[] = {
        [](TMenuManager& manager, TMenuState& menu) { manager.RemoveMenu(menu.GetMenuID()); },
        [](TMenuManager& manager, TMenuState&) { manager.ShowMenu(0); },
        [](TMenuManager& manager, TMenuState&) { manager.HideMenu(0); },
        [](TMenuManager& manager, TMenuState&) { manager.HideAllMenus(); },
        [](TMenuManager& manager, TMenuState&) { manager.SetMenusEnabled(false, false); },
        [](TMenuManager& manager, TMenuState&) { manager.SetRootMenuID(0, true); },
        [](TMenuManager& manager, TMenuState&) { manager.ElementActivated(0, 0); },
        [](TMenuManager& manager, TMenuState&) { manager.OnElementListChanged(0); },
        [](TMenuManager&, TMenuState& menu)
        {
            TElementState element = menu.GetElement(0);
            element.SetVisible(false);
            menu.SetElement(element);
            Deliver();
        },
    };
    for (TAction const& action : actions)
    {
        TMenuState menu{QString()};
        menu.AddElement(TElementState(TMMIDef(), TActivationConfig(0, ELEMENT_HIDE_ALL), QString(), QString(),
                                      -1, true, true, true));
        QPointer<TMenuManager> const manager(new TMenuManager);
        manager->AddMenu(&menu);
        auto const end = [manager] { delete manager; };
        connect(manager, &TMenuManager::MenuListChanged, this, end);
        connect(manager, &TMenuManager::MenuStateChanged, this, end);
        connect(manager, &TMenuManager::ElementListChanged, this, end);
        connect(manager, &TMenuManager::ElementStateChanged, this, end);
        connect(manager, &TMenuManager::EnabledChanged, this, end);
        connect(&menu, &TMenuState::ToggleMenu, this, end);
        action(*manager, menu);
        QVERIFY(!manager);
    }
}

void TMenuManagerTest::diesWhileItsMenusHaveSomethingToTell()
{
    TMenuState menu{QString()};
    auto manager = std::make_unique<TMenuManager>();
    manager->AddMenu(&menu);
    menu.AddElement(TElementState());
    Q_EMIT menu.ForceToShortcut(0);
    manager.reset();
    menu.SetEnabled(false);
    Deliver();
}

namespace
{
QSet<int> AsSet(std::set<int> const& ids)
{
    return QSet<int>(ids.begin(), ids.end());
}

// Empty if the two agree.
QString Difference(TMenuManager const& manager, TMenuModel const& model)
{
    QList<int> const expected(model.order.begin(), model.order.end());
    if (manager.GetMenuShownOrder() != expected)
        return QStringLiteral("order");
    for (int id = 0; id < int(model.menus.size()); ++id)
    {
        TMenuDisplayState const state = manager.GetMenuDisplayState(id);
        TModelMenu const& menu = model.menus.at(id);
        QString const name = QString::number(id);
        if (state.isShown != menu.shown || state.isForcedShortcut != menu.forced ||
            state.isClosedByUser != menu.closed)
            return name + QStringLiteral(" flags");
        if (state.parentMenuID != menu.parent || state.parentElementID != menu.parentElement)
            return name + QStringLiteral(" parent");
        if (state.children != AsSet(menu.children) || state.shortcutIDs != AsSet(menu.shortcuts))
            return name + QStringLiteral(" sets");
    }
    return QString();
}
} // namespace

void TMenuManagerTest::randomSequencesFollowTheModel()
{
    constexpr int Menus = 5;
    constexpr int Steps = 60;
    for (unsigned seed = 0; seed < 300; ++seed)
    {
        std::mt19937 random(seed);
        TMenuStage stage(Menus);
        TMenuModel model(Menus, Root);
        QStringList done;
        for (int step = 0; step < Steps; ++step)
        {
            TMenuStep const next = TMenuStep::Random(random, Menus, step < Steps / 4);
            done << next.Text();
            stage.Step(next);
            Deliver();
            model.Step(next);
            QString const difference = Difference(stage.manager, model);
            QVERIFY2(difference.isEmpty(),
                     qPrintable(difference + QStringLiteral(" after ") + done.join(QStringLiteral("; "))));
        }
    }
}

namespace
{
constexpr int Threads = 4;
constexpr int ThreadMenus = 40;
constexpr int ThreadElements = 25;
constexpr int Rounds = 40; // in each of which a thread changes all elements of its menus

/// Threads that change all elements of the menus, a share of the menus each, until they are stopped.
class TChangers
{
public:
    explicit TChangers(std::vector<std::unique_ptr<TMenuState>> const& menus)
    {
        for (int thread = 0; thread < Threads; ++thread)
        {
            m_Threads.emplace_back(QThread::create([this, thread, &menus] { Run(thread, menus); }));
            m_Threads.back()->start();
        }
    }
    ~TChangers() { Stop(); }

    bool IsRunning() const
    {
        return std::any_of(m_Threads.begin(), m_Threads.end(),
                           [](std::unique_ptr<QThread> const& thread) { return thread->isRunning(); });
    }

    bool Stop()
    {
        m_IsStopped = true;
        bool hasEnded = true;
        for (auto const& thread : m_Threads)
            hasEnded = thread->wait() && hasEnded;
        return hasEnded;
    }

private:
    void Run(int thread, std::vector<std::unique_ptr<TMenuState>> const& menus)
    {
        for (int number = 1; number <= Rounds && !m_IsStopped; ++number)
        {
            for (size_t index = thread; index < menus.size(); index += Threads)
                Change(*menus[index], number);
        }
    }

    static void Change(TMenuState& menu, int number)
    {
        for (int id = 0; id < ThreadElements; ++id)
        {
            TElementState element = menu.GetElement(id);
            element.SetControlID(number);
            element.SetVisible(id == 0 || (number + id) % 3 != 0);
            menu.SetElement(element);
        }
        menu.SetEnabled(false);
        menu.SetEnabled(true);
        if (number == 1)
            Q_EMIT menu.ForceToShortcut(menu.GetMenuID());
    }

    std::atomic<bool> m_IsStopped{false};
    std::vector<std::unique_ptr<QThread>> m_Threads;
};

void FillMenus(TMenuStage& stage)
{
    for (auto const& menu : stage.menus)
    {
        for (int id = 0; id < ThreadElements; ++id)
            menu->AddElement(TElementState(TMMIDef(), TActivationConfig(id, ELEMENT_HIDE_MENU), QString(),
                                           QString(), 0, true, true, id % 5 == 0));
    }
    Deliver();
}

// What an operator sees of a menu.
QString Looks(std::vector<TElementState> const& elements)
{
    QString looks;
    for (TElementState const& element : elements)
        looks += QStringLiteral("%1%2 ").arg(element.GetControlID()).arg(element.IsVisible() ? 'v' : '-');
    return looks;
}
} // namespace

void TMenuManagerTest::threadsChangeFortyMenusAndTheLastStateIsSeen()
{
    TMenuStage stage(ThreadMenus);
    FillMenus(stage);
    TMenuManager& manager = stage.manager;
    QHash<int, QString> display;
    connect(&manager, &TMenuManager::ElementStateChanged, this,
            [&](int id) { display[id] = Looks(manager.GetElementsState(id)); });
    TChangers changers(stage.menus);
    for (int press = 0; changers.IsRunning(); ++press)
    {
        manager.ElementActivated(press % ThreadMenus, press % ThreadElements);
        QCOMPARE(manager.GetAllMenuElements().size(), size_t(ThreadMenus));
        Deliver();
    }
    QVERIFY(changers.Stop());
    Deliver();
    for (auto const& menu : stage.menus)
    {
        std::vector<TElementState> const elements = menu->GetElementsState();
        QCOMPARE(display.value(menu->GetMenuID()), Looks(elements));
        QVERIFY(menu->IsEnabled());
        QSet<int> shortcuts;
        for (TElementState const& element : elements)
        {
            QVERIFY(!element.IsDirty());
            if (element.IsVisible() && element.IsShortcut())
                shortcuts << element.GetID();
        }
        QCOMPARE(manager.GetMenuDisplayState(menu->GetMenuID()).shortcutIDs, shortcuts);
    }
}

void TMenuManagerTest::menusAreRemovedWhileThreadsChangeThem()
{
    TMenuStage stage(ThreadMenus);
    FillMenus(stage);
    TMenuManager& manager = stage.manager;
    TChangers changers(stage.menus);
    for (int id = 0; id < ThreadMenus; ++id)
    {
        manager.ShowMenu(id);
        Deliver();
        if (id % 2 == 0)
            manager.RemoveMenu(id);
        manager.SetMenusEnabled(id % 4 < 2, false);
        if (id % 4 == 0)
            manager.AddMenu(stage.menus.at(id).get());
    }
    QVERIFY(changers.Stop());
    Deliver();
    QCOMPARE(manager.GetMenus().size(), size_t(ThreadMenus * 3 / 4));
    QList<int> const shown = manager.GetMenuShownOrder();
    for (int const id : shown)
        QVERIFY(manager.GetMenu(id));
}

#ifndef QT_NO_DEBUG
void TMenuManagerTest::aMissingLockIsAFault()
{
    using TAction = void (*)(TOpenManager&);
    TAction const actions[] = {
        [](TOpenManager& manager) { manager.HandleMenuAdded(0); },
        [](TOpenManager& manager) { manager.HandleMenuRemoved(0); },
        [](TOpenManager& manager) { manager.HandleToggleMenu(0, 0, 0); },
        [](TOpenManager& manager) { manager.HandleForceToShortcut(0); },
        [](TOpenManager& manager) { manager.HandleHideMenu(0); },
        [](TOpenManager& manager) { manager.HandleShowMenu(0); },
        [](TOpenManager& manager) { manager.HandleHideAllMenus(); },
        [](TOpenManager& manager) { manager.HandleElementListChanged(0); },
        [](TOpenManager& manager) { manager.HandleElementStateChanged(0); },
        [](TOpenManager& manager) { manager.HandleMenusEnabledChanged(true, true); },
        [](TOpenManager& manager) { manager.HandleElementActivated(0, 0); },
    };
    TOpenManager manager;
    for (TAction const action : actions)
    {
        QReadLocker locker(manager.GetLock());
        QCOMPARE(RunInChild([&manager, action] { action(manager); }).signal, SIGABRT);
        locker.unlock();
        QWriteLocker const writeLocker(manager.GetLock());
        action(manager);
    }
    QCOMPARE(RunInChild([&manager] { manager.GetAllMenuElementsInternal(); }).signal, SIGABRT);
    QReadLocker const locker(manager.GetLock());
    QVERIFY(manager.GetAllMenuElementsInternal().empty());
}
#endif

COMMONUI_TEST(TMenuManagerTest)
#include "TMenuManagerTest.moc"
