#include "TMenuState.h"
#include "RunInChild.h"
#include "TestCase.h"

#include <QRegularExpression>
#include <QThread>

#include <limits>
#include <utility>

namespace
{
constexpr int MenuID = 7;

TElementState Element(char const* name, TActivationConfig const& config = TActivationConfig())
{
    return TElementState(TMMIDef(), config, QString::fromLatin1(name), QString(), -1, true, true, false);
}

QString Names(TMenuState const& menu)
{
    QStringList names;
    std::vector<TElementState> const elements = menu.GetElementsState();
    for (TElementState const& element : elements)
        names << element.GetName();
    return names.join(QLatin1Char(' '));
}

/// A module's object whose slots are called from a menu.
class TReceiver : public QObject
{
    Q_OBJECT

public:
    QList<int> calls; // -1 for the one without an argument
    QThread* thread = nullptr;

public Q_SLOTS:
    void OnStart()
    {
        calls << -1;
        thread = QThread::currentThread();
    }
    void OnChoose(int value)
    {
        calls << value;
        thread = QThread::currentThread();
    }
};

/// A menu with a mind of its own.
class TOwnMenu : public TMenuState
{
    Q_OBJECT

public:
    TOwnMenu()
        : TMenuState(QStringLiteral("own"))
    {
    }

    int vetoed = -1;
    bool wasLocked = false;

protected:
    void HandleElementAdded(TElementState& element) override
    {
        wasLocked = !GetLock()->tryLockForRead();
        element.SetIconName(QStringLiteral("icon%1").arg(element.GetID()));
    }
    bool CanInvoke(int elementID) const override { return elementID != vetoed; }
};

/// What a menu says, with its id, and whether its lock was free then.
class TMenuEar : public QObject
{
public:
    explicit TMenuEar(TMenuState& menu)
        : m_Menu(menu)
    {
        connect(&menu, &TMenuState::ElementListChanged, this, [this](int id) { Note("list", id); });
        connect(&menu, &TMenuState::ElementStateChanged, this, [this](int id) { Note("state", id); });
        connect(&menu, &TMenuState::EnabledStateChanged, this, [this](int id) { Note("enabled", id); });
        connect(&menu, &TMenuState::ToggleMenu, this,
                [this](int target, int parent, int element)
                {
                    Note("toggle", parent);
                    toggled << target << parent << element;
                });
    }

    /// What was said since the last question.
    QString Heard() { return std::exchange(m_Heard, {}).join(QLatin1Char(' ')); }

    bool wasAlwaysFree = true;
    QList<int> toggled;

private:
    void Note(char const* what, int id)
    {
        m_Heard << QString::fromLatin1(what) + QString::number(id);
        bool const isFree = m_Menu.GetLock()->tryLockForWrite();
        if (isFree)
            m_Menu.GetLock()->unlock();
        wasAlwaysFree = wasAlwaysFree && isFree;
    }

    TMenuState& m_Menu;
    QStringList m_Heard;
};
} // namespace

class TMenuStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyEnabledAndWithoutIdAtFirst();
    void elementsStandInTheOrderInWhichTheyWereInserted();
    void anElementGetsItsPlaceAtAnyPosition_data();
    void anElementGetsItsPlaceAtAnyPosition();
    void idsAreNeverUsedAgain();
    void anAddedElementIsHandledUnderTheLockWithItsId();
    void aSnapshotHoldsIdNameAndElements();
    void anUnknownElementIsAnEmptyOne_data();
    void anUnknownElementIsAnEmptyOne();
    void unknownIdsAreIgnored_data();
    void unknownIdsAreIgnored();
    void anElementHandedBackWithTheSameValuesEmitsNothing();
    void aChangeIsToldUntilItIsCleaned();
    void aChangedConfigIsTold();
    void whatASnapshotShowedIsReportedEvenIfItWentBack();
    void whatMayOpenMenusIsNumberedAnew_data();
    void whatMayOpenMenusIsNumberedAnew();
    void enablingAnEnabledMenuLeavesTheCountAtZero();
    void twoWhoDisabledItBothHaveToEnableIt();
    void noSignalComesUnderTheLock();
    void anActivationCallsTheSlotFromTheEventLoop_data();
    void anActivationCallsTheSlotFromTheEventLoop();
    void anActivationTogglesItsMenu();
    void anElementThatDoesNothingIsActivatedInSilence();
    void anElementIsNotActivated_data();
    void anElementIsNotActivated();
    void anElementWhoseControlIsNotVisibleDoesNothing();
    void aVetoStopsTheActivation();
    void noVetoIsAskedForAnUnknownElement();
    void aReceiverDeletedBeforeTheDeliveryIsNotCalled();
    void aReceiverDeletedBeforeTheActivationIsNotCalled();
    void aMethodThatDoesNotExistIsOneLineInTheLog_data();
    void aMethodThatDoesNotExistIsOneLineInTheLog();
    void aSlotRunsInTheThreadOfItsReceiver();
    void diesInTheSlotOfEachOfItsSignals();
    void threadsChangeItAtOnce();
// A released console does not check.
#ifndef QT_NO_DEBUG
    void aMissingLockIsAFault_data();
    void aMissingLockIsAFault();
#endif
};

void TMenuStateTest::isEmptyEnabledAndWithoutIdAtFirst()
{
    TMenuState const menu(QStringLiteral("Sprayer"));
    QCOMPARE(menu.GetMenuID(), -1);
    QCOMPARE(menu.GetMenuName(), QStringLiteral("Sprayer"));
    QVERIFY(menu.GetElementsState().empty());
    QVERIFY(menu.IsEnabled());
}

void TMenuStateTest::elementsStandInTheOrderInWhichTheyWereInserted()
{
    TMenuState menu{QString()};
    QCOMPARE(menu.AddElement(Element("a")), 0);
    QCOMPARE(menu.AddElement(Element("b")), 1);
    QCOMPARE(menu.InsertElement(1, Element("c")), 2);
    QCOMPARE(menu.InsertElement(0, Element("d")), 3);
    QCOMPARE(Names(menu), QStringLiteral("d a c b"));
    QCOMPARE(menu.GetElement(2).GetName(), QStringLiteral("c"));
    QCOMPARE(menu.GetElement(2).GetID(), 2);
}

void TMenuStateTest::anElementGetsItsPlaceAtAnyPosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("names");
    QTest::newRow("least") << std::numeric_limits<int>::min() << QStringLiteral("x a b");
    QTest::newRow("below") << -1 << QStringLiteral("x a b");
    QTest::newRow("first") << 0 << QStringLiteral("x a b");
    QTest::newRow("last") << 2 << QStringLiteral("a b x");
    QTest::newRow("beyond") << 3 << QStringLiteral("a b x");
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << QStringLiteral("a b x");
}

void TMenuStateTest::anElementGetsItsPlaceAtAnyPosition()
{
    QFETCH(int, position);
    TMenuState menu{QString()};
    menu.AddElement(Element("a"));
    menu.AddElement(Element("b"));
    QCOMPARE(menu.InsertElement(position, Element("x")), 2);
    QTEST(Names(menu), "names");
}

void TMenuStateTest::idsAreNeverUsedAgain()
{
    TMenuState menu{QString()};
    menu.AddElement(Element("a"));
    menu.RemoveElement(menu.AddElement(Element("b")));
    TElementState withAnId = Element("c");
    withAnId.SetID(0);
    QCOMPARE(menu.AddElement(withAnId), 2);
    QCOMPARE(menu.GetElement(0).GetName(), QStringLiteral("a"));
    QCOMPARE(Names(menu), QStringLiteral("a c"));
}

void TMenuStateTest::anAddedElementIsHandledUnderTheLockWithItsId()
{
    TOwnMenu menu;
    menu.AddElement(Element("a"));
    QVERIFY(menu.wasLocked);
    menu.InsertElement(0, Element("b"));
    QCOMPARE(menu.GetElement(1).GetIconName(), QStringLiteral("icon1"));
    QWriteLocker locker(menu.GetLock());
    QCOMPARE(menu.InsertElementInternal(1, Element("c")), 2);
    locker.unlock();
    QCOMPARE(menu.GetElement(2).GetIconName(), QStringLiteral("icon2"));
    QCOMPARE(Names(menu), QStringLiteral("b c a"));
}

void TMenuStateTest::aSnapshotHoldsIdNameAndElements()
{
    TMenuState menu(QStringLiteral("Sprayer"));
    menu.SetMenuID(MenuID);
    menu.AddElement(Element("a"));
    TMenuStateCopy const copy = menu.Clone();
    menu.RemoveElement(0);
    QCOMPARE(copy.menuID, MenuID);
    QCOMPARE(copy.menuName, QStringLiteral("Sprayer"));
    QCOMPARE(copy.elements.size(), size_t(1));
    QCOMPARE(copy.elements.at(0).GetName(), QStringLiteral("a"));
}

void TMenuStateTest::anUnknownElementIsAnEmptyOne_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("least") << std::numeric_limits<int>::min();
    QTest::newRow("-1") << -1;
    QTest::newRow("removed") << 0;
    QTest::newRow("next") << 2;
    QTest::newRow("greatest") << std::numeric_limits<int>::max();
}

void TMenuStateTest::anUnknownElementIsAnEmptyOne()
{
    QFETCH(int, id);
    TMenuState menu{QString()};
    menu.AddElement(Element("a"));
    menu.AddElement(Element("b"));
    menu.RemoveElement(0);
    QVERIFY(!(menu.GetElement(id) != TElementState()));
}

void TMenuStateTest::unknownIdsAreIgnored_data()
{
    anUnknownElementIsAnEmptyOne_data();
}

void TMenuStateTest::unknownIdsAreIgnored()
{
    QFETCH(int, id);
    TMenuState menu{QString()};
    menu.AddElement(Element("a"));
    menu.AddElement(Element("b", TActivationConfig(1, ELEMENT_HIDE_NONE)));
    menu.RemoveElement(0);
    TMenuEar ear(menu);
    menu.RemoveElement(id);
    QVERIFY(!menu.ElementActivated(id));
    TElementState other = Element("other");
    other.SetID(id);
    menu.SetElement(other);
    QCOMPARE(Names(menu), QStringLiteral("b"));
    QCOMPARE(ear.Heard(), QString());
}

void TMenuStateTest::anElementHandedBackWithTheSameValuesEmitsNothing()
{
    TMenuState menu{QString()};
    int const id = menu.AddElement(Element("a", TActivationConfig(1, ELEMENT_HIDE_ALL)));
    TMenuEar ear(menu);
    TElementState element = menu.GetElement(id);
    element.SetName(QStringLiteral("b"));
    element.SetName(QStringLiteral("a"));
    element.SetActivationConfig(TActivationConfig(1, ELEMENT_HIDE_ALL));
    menu.SetElement(element);
    QCOMPARE(ear.Heard(), QString());
}

void TMenuStateTest::aChangeIsToldUntilItIsCleaned()
{
    TMenuState menu{QString()};
    menu.SetMenuID(MenuID);
    TElementState element = menu.GetElement(menu.AddElement(Element("a")));
    TMenuEar ear(menu);
    element.SetName(QStringLiteral("b"));
    element.Clean(); // what the caller counts as reported does not matter
    menu.SetElement(element);
    QCOMPARE(ear.Heard(), QStringLiteral("state7"));
    QVERIFY(menu.GetElement(0).IsDirty());
    menu.SetElement(element);
    QCOMPARE(ear.Heard(), QStringLiteral("state7"));
    menu.CleanElements();
    QVERIFY(!menu.GetElement(0).IsDirty());
    menu.SetElement(element);
    QCOMPARE(ear.Heard(), QString());
    QCOMPARE(Names(menu), QStringLiteral("b"));
}

void TMenuStateTest::aChangedConfigIsTold()
{
    TMenuState menu{QString()};
    TElementState element = menu.GetElement(menu.AddElement(Element("a")));
    TMenuEar ear(menu);
    element.SetActivationConfig(TActivationConfig(3, ELEMENT_HIDE_NONE));
    menu.SetElement(element);
    QCOMPARE(ear.Heard(), QStringLiteral("state-1"));
    QCOMPARE(menu.GetElement(0).GetActivationConfig().GetMenuToToggle(), 3);
}

void TMenuStateTest::whatASnapshotShowedIsReportedEvenIfItWentBack()
{
    TMenuState menu{QString()};
    TElementState const before = menu.GetElement(menu.AddElement(Element("a")));
    TElementState after = before;
    after.SetName(QStringLiteral("b"));
    unsigned revision = 0;
    menu.SetElement(after);
    menu.SetElement(before);
    QVERIFY2(!menu.TakeChanges(revision), "nobody has seen it");
    menu.SetElement(after);
    menu.Clone();
    menu.SetElement(before);
    menu.Clone();
    QVERIFY(menu.TakeChanges(revision));
    QVERIFY(!menu.TakeChanges(revision));
    menu.SetElement(after);
    menu.SetElement(before);
    menu.Clone();
    QVERIFY2(!menu.TakeChanges(revision), "it was seen as it is");
    menu.SetElement(after);
    QVERIFY(menu.TakeChanges(revision));
    QVERIFY(!menu.GetElement(0).IsDirty());
    QCOMPARE(revision, menu.GetLeadsRevision());
}

using TMenuChange = void (*)(TMenuState&, TElementState&);
Q_DECLARE_METATYPE(TMenuChange)

void TMenuStateTest::whatMayOpenMenusIsNumberedAnew_data()
{
    QTest::addColumn<TMenuChange>("change");
    QTest::addColumn<bool>("isNew");
    auto const add = [](char const* name, bool isNew, TMenuChange change)
    { QTest::newRow(name) << change << isNew; };
    add("nothing", false, [](TMenuState&, TElementState&) {});
    add("name", false, [](TMenuState&, TElementState& one) { one.SetName(QStringLiteral("b")); });
    add("enabled", false, [](TMenuState&, TElementState& one) { one.SetEnabled(false); });
    add("visible", true, [](TMenuState&, TElementState& one) { one.SetVisible(false); });
    add("control", true, [](TMenuState&, TElementState& one) { one.SetControlVisible(false); });
    add("shortcut", true, [](TMenuState&, TElementState& one) { one.SetShortcut(true); });
    add("target", true,
        [](TMenuState&, TElementState& one)
        {
            TActivationConfig config;
            config.SetCurrent(TActivationConfig(3, ELEMENT_HIDE_NONE));
            one.SetActivationConfig(config);
        });
    add("added", true, [](TMenuState& menu, TElementState&) { menu.AddElement(Element("b")); });
    add("removed", true, [](TMenuState& menu, TElementState&) { menu.RemoveElement(0); });
    add("by hand", true,
        [](TMenuState& menu, TElementState&)
        {
            QWriteLocker const locker(menu.GetLock());
            menu.GetElementsInternal().clear();
        });
}

void TMenuStateTest::whatMayOpenMenusIsNumberedAnew()
{
    QFETCH(TMenuChange, change);
    QFETCH(bool, isNew);
    TMenuState menu{QString()};
    TElementState element = menu.GetElement(menu.AddElement(Element("a")));
    unsigned const before = menu.GetLeadsRevision();
    change(menu, element);
    menu.SetElement(element);
    menu.CleanElements();
    QCOMPARE(menu.GetLeadsRevision() != before, isNew);
}

void TMenuStateTest::enablingAnEnabledMenuLeavesTheCountAtZero()
{
    TMenuState menu{QString()};
    menu.SetMenuID(MenuID);
    TMenuEar ear(menu);
    menu.SetEnabled(true);
    menu.SetEnabled(true);
    QCOMPARE(ear.Heard(), QString());
    menu.SetEnabled(false);
    QVERIFY(!menu.IsEnabled());
    QCOMPARE(ear.Heard(), QStringLiteral("enabled7"));
}

void TMenuStateTest::twoWhoDisabledItBothHaveToEnableIt()
{
    TMenuState menu{QString()};
    TMenuEar ear(menu);
    menu.SetEnabled(false);
    QCOMPARE(ear.Heard(), QStringLiteral("enabled-1"));
    menu.SetEnabled(false);
    menu.SetEnabled(true);
    QVERIFY(!menu.IsEnabled());
    QCOMPARE(ear.Heard(), QString());
    menu.SetEnabled(true);
    QVERIFY(menu.IsEnabled());
    QCOMPARE(ear.Heard(), QStringLiteral("enabled-1"));
}

void TMenuStateTest::noSignalComesUnderTheLock()
{
    TMenuState menu{QString()};
    menu.SetMenuID(MenuID);
    TMenuEar ear(menu);
    TElementState element =
        menu.GetElement(menu.AddElement(Element("a", TActivationConfig(1, ELEMENT_HIDE_NONE))));
    element.SetName(QStringLiteral("b"));
    menu.SetElement(element);
    menu.ElementActivated(0);
    menu.SetEnabled(false);
    menu.RemoveElement(0);
    QCOMPARE(ear.Heard(), QStringLiteral("list7 state7 toggle7 enabled7 list7"));
    QVERIFY(ear.wasAlwaysFree);
}

void TMenuStateTest::anActivationCallsTheSlotFromTheEventLoop_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("argument");
    QTest::newRow("no argument") << QByteArray("OnStart") << -1;
    QTest::newRow("zero") << QByteArray("OnChoose") << 0;
    QTest::newRow("below -1") << QByteArray("OnChoose") << -2;
    QTest::newRow("great") << QByteArray("OnChoose") << std::numeric_limits<int>::max();
}

void TMenuStateTest::anActivationCallsTheSlotFromTheEventLoop()
{
    QFETCH(QByteArray, method);
    QFETCH(int, argument);
    TReceiver receiver;
    TMenuState menu{QString()};
    menu.AddElement(
        Element("a", TActivationConfig(&receiver, method.constData(), ELEMENT_HIDE_NONE, argument)));
    TMenuEar ear(menu);
    QVERIFY(menu.ElementActivated(0));
    QVERIFY(receiver.calls.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(receiver.calls, QList<int>{argument});
    QCOMPARE(ear.Heard(), QString());
}

void TMenuStateTest::anActivationTogglesItsMenu()
{
    TReceiver receiver;
    TMenuState menu{QString()};
    menu.SetMenuID(MenuID);
    menu.AddElement(Element("a"));
    menu.AddElement(Element("b", TActivationConfig(4, &receiver, "OnChoose", ELEMENT_HIDE_NONE, 5)));
    TMenuEar ear(menu);
    QVERIFY(menu.ElementActivated(1));
    QCOMPARE(ear.Heard(), QStringLiteral("toggle7"));
    QCOMPARE(ear.toggled, (QList<int>{4, MenuID, 1}));
    QCoreApplication::processEvents();
    QCOMPARE(receiver.calls, QList<int>{5});
}

void TMenuStateTest::anElementThatDoesNothingIsActivatedInSilence()
{
    TMenuState menu{QString()};
    menu.AddElement(Element("a"));
    menu.AddElement(Element("b", TActivationConfig(this, nullptr, ELEMENT_HIDE_NONE, -1)));
    menu.AddElement(Element("c", TActivationConfig(this, "", ELEMENT_HIDE_NONE, -1)));
    menu.AddElement(Element("d", TActivationConfig(nullptr, "OnStart", ELEMENT_HIDE_NONE, -1)));
    TMenuEar ear(menu);
    for (int id = 0; id < 4; ++id)
        QVERIFY(menu.ElementActivated(id));
    QCOMPARE(ear.Heard(), QString());
}

void TMenuStateTest::anElementIsNotActivated_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("menuEnabled");
    QTest::addColumn<bool>("activated");
    QTest::newRow("ready") << true << true << true << true;
    QTest::newRow("disabled") << false << true << true << false;
    QTest::newRow("invisible") << true << false << true << false;
    QTest::newRow("menu disabled") << true << true << false << false;
}

void TMenuStateTest::anElementIsNotActivated()
{
    QFETCH(bool, enabled);
    QFETCH(bool, visible);
    QFETCH(bool, menuEnabled);
    QFETCH(bool, activated);
    TReceiver receiver;
    TMenuState menu{QString()};
    TElementState element = Element("a", TActivationConfig(1, &receiver, "OnStart", ELEMENT_HIDE_NONE, -1));
    element.SetEnabled(enabled);
    element.SetVisible(visible);
    menu.AddElement(element);
    menu.SetEnabled(menuEnabled);
    TMenuEar ear(menu);
    QCOMPARE(menu.ElementActivated(0), activated);
    QCoreApplication::processEvents();
    QCOMPARE(receiver.calls.size(), activated ? 1 : 0);
    QCOMPARE(ear.toggled.isEmpty(), !activated);
}

void TMenuStateTest::anElementWhoseControlIsNotVisibleDoesNothing()
{
    TReceiver receiver;
    TMenuState menu{QString()};
    TElementState element = Element("a", TActivationConfig(1, &receiver, "OnStart", ELEMENT_HIDE_NONE, -1));
    element.SetControlVisible(false);
    menu.AddElement(element);
    TMenuEar ear(menu);
    QVERIFY(!menu.ElementActivated(0));
    QCoreApplication::processEvents();
    QVERIFY(receiver.calls.isEmpty());
    QCOMPARE(ear.Heard(), QString());
}

void TMenuStateTest::aVetoStopsTheActivation()
{
    TReceiver receiver;
    TOwnMenu menu;
    menu.AddElement(Element("a", TActivationConfig(1, &receiver, "OnStart", ELEMENT_HIDE_NONE, -1)));
    menu.AddElement(Element("b", TActivationConfig(2, ELEMENT_HIDE_NONE)));
    menu.vetoed = 0;
    TMenuEar ear(menu);
    QVERIFY(!menu.ElementActivated(0));
    QVERIFY(menu.ElementActivated(1));
    QCoreApplication::processEvents();
    QVERIFY(receiver.calls.isEmpty());
    QCOMPARE(ear.toggled, (QList<int>{2, -1, 1}));
}

void TMenuStateTest::noVetoIsAskedForAnUnknownElement()
{
    class TAskedMenu : public TMenuState
    {
    public:
        using TMenuState::TMenuState;
        mutable QList<int> asked;

    protected:
        bool CanInvoke(int elementID) const override
        {
            asked << elementID;
            return true;
        }
    };
    TAskedMenu menu{QString()};
    menu.AddElement(Element("a"));
    for (int const id : {-1, 1, 0})
        menu.ElementActivated(id);
    QCOMPARE(menu.asked, QList<int>{0});
}

void TMenuStateTest::aReceiverDeletedBeforeTheDeliveryIsNotCalled()
{
    auto* const receiver = new TReceiver;
    TMenuState menu{QString()};
    menu.AddElement(Element("a", TActivationConfig(receiver, "OnStart", ELEMENT_HIDE_NONE, -1)));
    QVERIFY(menu.ElementActivated(0));
    delete receiver;
    QCoreApplication::processEvents();
}

void TMenuStateTest::aReceiverDeletedBeforeTheActivationIsNotCalled()
{
    auto* const receiver = new TReceiver;
    TMenuState menu{QString()};
    menu.AddElement(Element("a", TActivationConfig(5, receiver, "OnStart", ELEMENT_HIDE_NONE, -1)));
    delete receiver;
    TMenuEar ear(menu);
    QVERIFY(menu.ElementActivated(0));
    QCOMPARE(ear.toggled, (QList<int>{5, -1, 0}));
    QCoreApplication::processEvents();
}

void TMenuStateTest::aMethodThatDoesNotExistIsOneLineInTheLog_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("argument");
    QTest::newRow("unknown") << QByteArray("OnNothing") << -1;
    QTest::newRow("unknown with an argument") << QByteArray("OnNothing") << 1;
    QTest::newRow("no such argument") << QByteArray("OnStart") << 1;
    QTest::newRow("argument missing") << QByteArray("OnChoose") << -1;
    QTest::newRow("with parentheses") << QByteArray("OnStart()") << -1;
    QTest::newRow("huge") << QByteArray(10000, 'x') << -1;
    QTest::newRow("of two lines") << QByteArray("On\nStart") << -1;
    QTest::newRow("spaces") << QByteArray("   ") << 1;
    QTest::newRow("scoped") << QByteArray("TReceiver::OnStart") << -1;
}

void TMenuStateTest::aMethodThatDoesNotExistIsOneLineInTheLog()
{
    QFETCH(QByteArray, method);
    QFETCH(int, argument);
    TReceiver receiver;
    TMenuState menu{QString()};
    menu.AddElement(
        Element("a", TActivationConfig(2, &receiver, method.constData(), ELEMENT_HIDE_NONE, argument)));
    TMenuEar ear(menu);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "\\AMenu: TReceiver has no slot [\\w(): ]{3,200}\\z")));
    QVERIFY(menu.ElementActivated(0));
    QCoreApplication::processEvents();
    QVERIFY(receiver.calls.isEmpty());
    QCOMPARE(ear.Heard(), QStringLiteral("toggle-1"));
}

void TMenuStateTest::aSlotRunsInTheThreadOfItsReceiver()
{
    QThread thread;
    TReceiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    TMenuState menu{QString()};
    menu.AddElement(Element("a", TActivationConfig(&receiver, "OnChoose", ELEMENT_HIDE_NONE, 3)));
    QVERIFY(menu.ElementActivated(0));
    QMetaObject::invokeMethod(
        &receiver, [&thread] { thread.quit(); }, Qt::QueuedConnection);
    QVERIFY(thread.wait());
    QCOMPARE(receiver.calls, QList<int>{3});
    QCOMPARE(receiver.thread, &thread);
}

void TMenuStateTest::diesInTheSlotOfEachOfItsSignals()
{
    using TSignal = void (TMenuState::*)(int);
    struct TCase
    {
        TSignal signal;
        void (*action)(TMenuState&);
    };
    TCase const cases[] = {
        {&TMenuState::ElementListChanged, [](TMenuState& menu) { menu.AddElement(Element("b")); }},
        {&TMenuState::ElementListChanged, [](TMenuState& menu) { menu.RemoveElement(0); }},
        {&TMenuState::EnabledStateChanged, [](TMenuState& menu) { menu.SetEnabled(false); }},
        {&TMenuState::ElementStateChanged,
         [](TMenuState& menu)
         {
             TElementState element = menu.GetElement(0);
             element.SetEnabled(false);
             menu.SetElement(element);
         }},
    };
    for (TCase const& one : cases)
    {
        QPointer<TMenuState> const menu(new TMenuState{QString()});
        menu->AddElement(Element("a"));
        connect(menu, one.signal, this, [menu] { delete menu; });
        one.action(*menu);
        QVERIFY(!menu);
    }
    QPointer<TMenuState> const menu(new TMenuState{QString()});
    menu->AddElement(Element("a", TActivationConfig(1, ELEMENT_HIDE_NONE)));
    connect(menu, &TMenuState::ToggleMenu, this, [menu] { delete menu; });
    QVERIFY(menu->ElementActivated(0));
    QVERIFY(!menu);
}

void TMenuStateTest::threadsChangeItAtOnce()
{
    constexpr int Threads = 4;
    constexpr int Rounds = 500;
    TMenuState menu{QString()};
    for (int id = 0; id < Threads; ++id)
        menu.AddElement(Element("kept"));
    std::vector<std::unique_ptr<QThread>> threads;
    for (int id = 0; id < Threads; ++id)
    {
        threads.emplace_back(QThread::create(
            [&menu, id]
            {
                for (int round = 1; round <= Rounds; ++round)
                {
                    TElementState element = menu.GetElement(id);
                    element.SetControlID(round);
                    menu.SetElement(element);
                    menu.SetEnabled(false);
                    int const added = menu.InsertElement(round, Element("passing"));
                    menu.ElementActivated(added);
                    menu.RemoveElement(added);
                    menu.SetEnabled(true);
                }
            }));
        threads.back()->start();
    }
    for (int round = 0; round < Rounds; ++round)
        QVERIFY(menu.Clone().elements.size() <= 2 * Threads);
    for (auto const& thread : threads)
        QVERIFY(thread->wait());
    QCOMPARE(Names(menu), QStringLiteral("kept kept kept kept"));
    for (int id = 0; id < Threads; ++id)
        QCOMPARE(menu.GetElement(id).GetControlID(), Rounds);
    QVERIFY(menu.IsEnabled());
    QCOMPARE(menu.AddElement(Element("next")), Threads + Threads * Rounds);
}

using TMenuAction = void (*)(TMenuState&);
Q_DECLARE_METATYPE(TMenuAction)

#ifndef QT_NO_DEBUG
void TMenuStateTest::aMissingLockIsAFault_data()
{
    QTest::addColumn<TMenuAction>("action");
    QTest::addColumn<bool>("isReadEnough");
    auto const add = [](char const* name, bool isReadEnough, TMenuAction action)
    { QTest::newRow(name) << action << isReadEnough; };
    add("insert", false, [](TMenuState& menu) { menu.InsertElementInternal(0, TElementState()); });
    add("clean", false, [](TMenuState& menu) { menu.CleanElementsInternal(); });
    add("enable", false, [](TMenuState& menu) { menu.SetEnabledInternal(true); });
    add("change elements", false, [](TMenuState& menu) { menu.GetElementsInternal(); });
    add("read elements", true, [](TMenuState& menu) { std::as_const(menu).GetElementsInternal(); });
    add("ask", true, [](TMenuState& menu) { menu.IsEnabledInternal(); });
    add("activate", true,
        [](TMenuState& menu)
        {
            int menuToToggle = 0;
            menu.ElementActivatedInternal(0, menuToToggle);
        });
}

void TMenuStateTest::aMissingLockIsAFault()
{
    QFETCH(TMenuAction, action);
    QFETCH(bool, isReadEnough);
    TMenuState menu{QString()};
    QCOMPARE(RunInChild([&menu, action] { action(menu); }).signal, SIGABRT);
    menu.GetLock()->lockForRead();
    QCOMPARE(RunInChild([&menu, action] { action(menu); }).signal, isReadEnough ? 0 : SIGABRT);
    menu.GetLock()->unlock();
    menu.GetLock()->lockForWrite();
    action(menu);
    menu.GetLock()->unlock();
}
#endif

COMMONUI_TEST(TMenuStateTest)
#include "TMenuStateTest.moc"
