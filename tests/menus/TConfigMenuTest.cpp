#include "TConfigMenu.h"
#include "Metrics.h"
#include "TConfigMenuElement.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TMMICapableWidgetNavigator.h"
#include "TWindow.h"

#include <QSet>

namespace
{
constexpr int Width = 1000;
constexpr int Height = 400;
constexpr int UnknownId = 1000000;

/// The owner of a tree of rows: it shows and hides them at once, completes each selection if it is told to,
/// and writes down what they say.
class TTree
{
public:
    explicit TTree(QWidget* parent = nullptr)
        : area(parent)
    {
        area.resize(Width, Height);
        top = Row(0, QStringLiteral("top"));
        top->show();
        area.show();
        if (parent)
            area.raise();
    }

    TConfigMenu* Row(int level, QString const& name)
    {
        auto* const row = new TConfigMenu(&area, false, level, name);
        QObject::connect(row, &TConfigMenu::ShowSetupScreen, &area,
                         [this](QString const& path) { Log(QStringLiteral("screen ") + path); });
        QObject::connect(
            row, &TConfigMenu::ShowSetupMenu, &area,
            [this](TConfigMenu* menu, bool visible)
            { Log((visible ? QStringLiteral("show ") : QStringLiteral("hide ")) + menu->objectName()); });
        QObject::connect(
            row, &TConfigMenu::LevelTransition, &area,
            [this](QWidget* menu, bool show, int level)
            {
                Log(QStringLiteral("%1 %2 %3")
                        .arg(show ? QStringLiteral("in") : QStringLiteral("out"), menu->objectName())
                        .arg(level));
                menu->setVisible(show);
            });
        QObject::connect(row, &TConfigMenu::SelectionChanged, &area,
                         [this](int id) { Log(QStringLiteral("selected ") + NameOf(id)); });
        QObject::connect(row, &TConfigMenu::ConfigMenuItemClicked, &area,
                         [this](TConfigMenu* menu)
                         {
                             Log(QStringLiteral("clicked ") + menu->objectName());
                             if (completes)
                                 top->CompleteSelection(false);
                         });
        QObject::connect(row, &TConfigMenu::SingleItemMenuNeedsExpanding, &area,
                         [this](int index) { Log(QStringLiteral("expand %1").arg(index)); });
        return row;
    }
    int Add(TConfigMenu* row, QString const& name, TConfigMenu* subMenu = nullptr)
    {
        int const id =
            row->AddElement(name, name.toUpper(), QString(), QStringLiteral("/") + name, -1, subMenu);
        ids.insert(name, id);
        return id;
    }
    /// Sound; Display with Units, Language and Colours; Machine with Boom of one screen, and Tank.
    void Grow()
    {
        display = Row(1, QStringLiteral("display"));
        machine = Row(1, QStringLiteral("machine"));
        boom = Row(2, QStringLiteral("boom"));
        Add(top, QStringLiteral("Sound"));
        Add(display, QStringLiteral("Units"));
        Add(display, QStringLiteral("Language"));
        Add(display, QStringLiteral("Colours"));
        Add(top, QStringLiteral("Display"), display);
        Add(boom, QStringLiteral("Sections"));
        Add(boom, QStringLiteral("Nozzles"));
        Add(machine, QStringLiteral("Boom"), boom);
        Add(machine, QStringLiteral("Tank"));
        Add(top, QStringLiteral("Machine"), machine);
        log.clear();
    }
    QString NameOf(int id) const { return ids.key(id, QString::number(id)); }
    int Id(char const* name) const { return ids.value(QLatin1String(name), UnknownId); }
    TConfigMenuElement* Element(char const* name) const
    {
        int const id = Id(name);
        TConfigMenu* const row = top->FindConfigMenuByElementID(id);
        return row ? row->GetElementByID(id) : nullptr;
    }
    void Click(char const* name) { top->FindConfigMenuByElementID(Id(name))->OnItemClicked(Id(name)); }
    void Show(char const* name, bool visible, bool update = true)
    {
        top->FindConfigMenuByElementID(Id(name))->SetElementVisibility(Id(name), visible, update);
    }
    void Log(QString const& line) { log << line; }
    /// What was said since it was asked last.
    QString Said()
    {
        QString const said = log.join(QStringLiteral(", "));
        log.clear();
        return said;
    }
    QStringList TextsOf(TConfigMenu const* row) const
    {
        QStringList texts;
        for (int i = 0; i < row->GetNumberOfElements(); ++i)
            texts << NameOf(row->GetElementIDByIndex(i));
        return texts;
    }

    QWidget area;
    QPointer<TConfigMenu> top;
    QPointer<TConfigMenu> display;
    QPointer<TConfigMenu> machine;
    QPointer<TConfigMenu> boom;
    QHash<QString, int> ids;
    QStringList log;
    bool completes = true;
};

/// A row of a \a count of elements of 100 by 50 pixels in a parent of that \a width.
class TLayout
{
public:
    TLayout(int width, int count)
    {
        area.resize(width, 200);
        row = new TConfigMenu(&area, false, 0, QString());
        for (int i = 0; i < count; ++i)
            ids << row->AddElement(QString(), QString(), QString(), QString(), -1, nullptr);
        for (int const id : qAsConst(ids))
            row->GetElementByID(id)->setFixedSize(100, 50);
    }
    QVector<int> Lefts() const
    {
        QVector<int> lefts;
        for (int const id : ids)
        {
            if (!row->GetElementByID(id)->isHidden())
                lefts << row->GetElementByID(id)->x();
        }
        return lefts;
    }

    QWidget area;
    TConfigMenu* row;
    QVector<int> ids;
};
} // namespace

class TConfigMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Elements
    void aSlotThatSelectsAnotherElementIsNotContradicted();
    void aSkippedRowKnowsItsItemAfterASort();
    void anElementShowsItsIcon();
    void anElementIsNamedForMacroPathsByItsKeyIconOrText();
    void everyElementOfEveryRowHasAnIdOfItsOwn();
    void elementsStandByTheirOrder();
    void anElementIsFoundByItsKeyOrText();
    void aRenamedElementShowsItsNewText();
    void aRowIsFoundByAnElementOfIt();
    void elementsAreSortedByNamesAndKeepTheSelection();
    void aRowThatWouldContainItselfIsRefused();
    void anUnknownElementIsNobody_data();
    void anUnknownElementIsNobody();
    void aNewNumberOfVisibleElementsIsTold();
    void aDeletedElementTakesItsRowsAlong();
    void aDeletedSelectedElementIsLeftFirst();
    void indicesFollowADeletedOrInsertedElement();
    void aHiddenElementIsFoundInAnyRow();

    // Selection
    void anElementMayBeDeletedAsItsRowCloses();
    void aPendingElementThatASlotDeletesLeavesNoneSelected();
    void aLaterClickInTheSameRowTakesThePlaceOfTheFirst();
    void aClickThatWasTurnedDownDoesNotWinOverALaterOne();
    void aRowIsLaidOutBeforeItComes();
    void theOldElementHasLostItsLookWhenItsRowGoes();
    void aRowThatIsBeingLeftShowsNoScreen();
    void aClickInAClosedRowLeavesTheOneAbove();
    void aTouchedElementWaitsForTheOwner();
    void aScreenIsShownBeforeItsElementIsSelected();
    void anElementWithARowShowsThatRow();
    void anotherElementClosesTheOpenRowFirst();
    void aDeepClickIsCompletedFromTheTop();
    void aSelectedScreenIsOnlyRepeated();
    void aSelectedElementPassesTheClickOn();
    void aSelectionThatIsNeverCompletedChangesNothing();
    void theSelectedScreenIsTheDeepest();
    void theNewScreenIsKnownBeforeItIsShown();
    void clearingTellsNobody();
    void onlyTheDeepestSelectionIsCleared();
    void aRowThatOpensAgainHasNothingSelected();
    void aSlotMayClickOn();
    void aSlotThatClicksForEverIsStopped();

    // Rows of a single item
    void anExpansionIsNotTakenForAnotherRowThatIsAboutToCome();
    void anExpansionThatWaitsFindsItsElementWhereverItIsMoved();
    void aRowIsExpandedOnceForAllThatCome();
    void aSkippedRowThatWasEmptyMeanwhileExpands();
    void theWheelOpensARowThatDidNotCome();
    void aClickOpensARowThatDidNotCome();
    void anExpansionThatWasDroppedComesWhenTheRowIsShown();
    void aSubMenuWithOneVisibleLeafOpensItsScreenDirectly();
    void aRowWithOneElementThatOwnsARowIsShown();
    void aRowWithoutVisibleElementsIsShownEmpty();
    void hidingTheSecondElementMakesTheRowSingleAndShowingItExpandsItAgain();
    void anExpansionWaitsForTheUpdateToEnd();
    void anExpansionFindsItsElementWhereItStandsNow();
    void delayedUpdatesExpandTheRow();
    void onlyTheSelectedRowExpands();
    void aRowThatIsHiddenOrWithoutASelectionDoesNotExpand();
    void aSkippedRowShowsTheElementThatIsLeft();

    // Paging with the wheel
    void aSlotMayPageOnAsARowGoes();
    void theWheelDoesNotPageInAHiddenRowThatItStoppedOn();
    void anOwnerMayCompleteEachClickOfTheWheelLater();
    void aHiddenRowIsSteppedOver();
    void theWheelStepsBackOutOfAnOpenRow();
    void theWheelPagesForwardThroughAllScreens();
    void theWheelPagesBackThroughAllScreens();
    void theWheelStopsAtTheLastElementOfTheLastRow();
    void theWheelStopsAtTheFirstElement();
    void theWheelStepsOverHiddenElementsAndTellsOnTheWayBack();
    void aHiddenElementIsNotEnteredByTheWheel();
    void aSkippedRowIsOneStepOfTheWheel();
    void anEmptyRowDoesNotMove();
    void anEndlessSlotDoesNotHoldTheWheel();

    // Transitions
    void aSlotMayHideTheRowAboveAsARowGoes();
    void aRowThatComesAnewClosesWhatItHadOpen();
    void aRowComesAndGoesByLevel();
    void aRowThatIsShownDoesNotComeAgain();
    void aRowGoesWithAllBelow();

    // Layout
    void boundsThatAreTakenBackHoldNoElement();
    void elementsLieOnEachOtherInTheirOrder();
    void elementsOverlapALittleWhereTheyFit();
    void elementsAreSqueezedWhereTheyDoNot_data();
    void elementsAreSqueezedWhereTheyDoNot();
    void hiddenElementsLeaveNoGap();
    void elementsStandFromLeftOrRight();
    void aRowStandsBelowTheElementThatOpensIt();
    void aRowWithoutAParentIsLaidOut();
    void rowAndElementsHaveOneHeight();
    void aRowIsHeldToTheHeightsOfMenus();
    void anInactiveRowDimsItsElements();
    void theRowHasABackground();

    // Finger and wheel
    void aTouchedElementThatVanishesDoesNotSelectTheOneThatMovesUp();
    void aSlideIntoTheOverlapOfTwoElementsSelectsOne();
    void aSlideAcrossThreeElementsSelectsTheLast();
    void theWheelStopsOnEachElement();

    // What may happen meanwhile
    void anElementOfAnyRowMayBeDeletedInTheSlotOfAnySignal_data() { diesInTheSlotOfAnySignal_data(); }
    void anElementOfAnyRowMayBeDeletedInTheSlotOfAnySignal();
    void diesInTheSlotOfAnySignal_data();
    void diesInTheSlotOfAnySignal();
    void treeDiesInTheSlotOfAnySignal_data() { diesInTheSlotOfAnySignal_data(); }
    void treeDiesInTheSlotOfAnySignal();
    void anElementMayGoWhileItIsPressedSelectedOrPending();
    void aSubMenuThatIsDeletedFromOutsideLeavesALeaf();
    void aWholeTreeDiesWithItsParent();
    void aDeepTreeIsWalkedAndDeleted();
};

void TConfigMenuTest::everyElementOfEveryRowHasAnIdOfItsOwn()
{
    TTree tree;
    tree.Grow();
    TTree other;
    other.Grow();
    QSet<int> ids;
    for (int const id : qAsConst(tree.ids))
        ids.insert(id);
    for (int const id : qAsConst(other.ids))
        ids.insert(id);
    QCOMPARE(ids.size(), 20);
    QVERIFY(!ids.contains(-1));
    QCOMPARE(tree.top->GetNumberOfElements(), 3);
    QCOMPARE(tree.top->GetIndexByElementID(tree.Id("Display")), 1);
    QCOMPARE(tree.top->GetElementIDByIndex(1), tree.Id("Display"));
    QCOMPARE(tree.top->GetElementByIndex(1), tree.top->GetElementByID(tree.Id("Display")));
    QCOMPARE(tree.top->GetElementByIndex(1)->GetText(), QStringLiteral("DISPLAY"));
    QCOMPARE(tree.boom->GetMenuLevel(), 2);
}

void TConfigMenuTest::elementsStandByTheirOrder()
{
    TTree tree;
    auto const add = [&tree](char const* name, int order)
    {
        tree.ids.insert(QLatin1String(name), tree.top->AddElement(QLatin1String(name), QString(), QString(),
                                                                  QString(), order, nullptr));
    };
    add("last", -1);
    add("two", 2);
    add("one", 1);
    add("two again", 2);
    add("none", 0);
    add("very last", -1);
    QCOMPARE(tree.TextsOf(tree.top).join(QStringLiteral(", ")),
             QStringLiteral("none, one, two, two again, last, very last"));
}

void TConfigMenuTest::anElementIsFoundByItsKeyOrText()
{
    TTree tree;
    tree.Grow();
    QVERIFY(tree.top->IsElementPresent(QStringLiteral("Sound")));
    QVERIFY(tree.top->IsElementPresent(QStringLiteral("SOUND")));
    QVERIFY(!tree.top->IsElementPresent(QStringLiteral("Units"))); // in the row below
    QVERIFY(!tree.top->IsElementPresent(QStringLiteral("Nothing")));
    QCOMPARE(tree.Element("Sound")->objectName(), QStringLiteral("Sound"));
}

void TConfigMenuTest::aRenamedElementShowsItsNewText()
{
    TTree tree;
    tree.Grow();
    tree.top->SetElementName(tree.Id("Sound"), QStringLiteral("Klang"));
    QCOMPARE(tree.Element("Sound")->GetText(), QStringLiteral("Klang"));
    QVERIFY(tree.top->IsElementPresent(QStringLiteral("Sound")));
    QVERIFY(!tree.top->IsElementPresent(QStringLiteral("SOUND")));
}

void TConfigMenuTest::aRowIsFoundByAnElementOfIt()
{
    TTree tree;
    tree.Grow();
    QCOMPARE(tree.top->FindConfigMenuByElementID(tree.Id("Nozzles")), tree.boom.data());
    QCOMPARE(tree.top->FindConfigMenuByElementID(tree.Id("Sound")), tree.top.data());
    QCOMPARE(tree.display->FindConfigMenuByElementID(tree.Id("Nozzles")), nullptr);
}

void TConfigMenuTest::elementsAreSortedByNamesAndKeepTheSelection()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Language");
    tree.completes = false;
    tree.Click("Sound");
    tree.top->SortElements({QStringLiteral("Machine"), QStringLiteral("Nothing"), QStringLiteral("DISPLAY")});
    QCOMPARE(tree.TextsOf(tree.top).join(QLatin1Char(' ')), QStringLiteral("Machine Display Sound"));
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Display"));
    QCOMPARE(tree.top->GetNewScreen(), QStringLiteral("/Sound"));
    QVERIFY(tree.Element("Machine")->x() < tree.Element("Display")->x());
    QVERIFY(tree.Element("Display")->x() < tree.Element("Sound")->x());
    // Those without a place in the list keep their order.
    tree.display->SortElements({QStringLiteral("Colours"), QStringLiteral("Colours")});
    QCOMPARE(tree.TextsOf(tree.display).join(QLatin1Char(' ')), QStringLiteral("Colours Units Language"));
    QCOMPARE(tree.display->GetSelectedElement(), tree.Element("Language"));
}

void TConfigMenuTest::aRowThatWouldContainItselfIsRefused()
{
    TTree tree;
    tree.Grow();
    int const count = tree.boom->GetNumberOfElements();
    for (TConfigMenu* const row :
         {tree.boom.data(), tree.machine.data(), tree.top.data(), tree.display.data()})
        QCOMPARE(tree.boom->AddElement(QString(), QString(), QString(), QString(), -1, row), -1);
    QCOMPARE(tree.boom->GetNumberOfElements(), count);
    TConfigMenu* const row = tree.Row(3, QString());
    QVERIFY(tree.boom->AddElement(QString(), QString(), QString(), QString(), -1, row) > 0);
}

void TConfigMenuTest::anUnknownElementIsNobody_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("none") << -1;
    QTest::newRow("unknown") << UnknownId;
    QTest::newRow("least") << std::numeric_limits<int>::min();
    QTest::newRow("largest") << std::numeric_limits<int>::max();
}

void TConfigMenuTest::anUnknownElementIsNobody()
{
    QFETCH(int, id);
    TTree tree;
    tree.Grow();
    TConfigMenu* const top = tree.top;
    top->DeleteElement(id);
    top->SetElementName(id, QStringLiteral("x"));
    top->SetElementVisibility(id, false, true);
    top->SetElementVisibilityRecursively(id, false);
    top->OnItemClicked(id);
    top->CompleteSelection(true);
    QVERIFY(!top->GetElementVisibility(id));
    QVERIFY(!top->GetElementVisibilityRecursively(id));
    QVERIFY(!top->GetElementByID(id));
    QVERIFY(!top->GetElementByIndex(id));
    QVERIFY(!top->FindConfigMenuByElementID(id));
    QCOMPARE(top->GetIndexByElementID(id), -1);
    QCOMPARE(top->GetElementIDByIndex(id), -1);
    QCOMPARE(top->GetNumberOfVisibleElements(), 3);
    QVERIFY(!top->GetSelectedElement());
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aNewNumberOfVisibleElementsIsTold()
{
    TTree tree;
    QSignalSpy const sizes(tree.top, &TConfigMenu::MenuSizeChanged);
    tree.Grow();
    QCOMPARE(sizes, (QList<QVariantList>{{1}, {2}, {3}}));
    tree.Show("Sound", false);
    QCOMPARE(sizes.last(), QVariantList{2});
    QCOMPARE(tree.top->GetNumberOfVisibleElements(), 2);
    QCOMPARE(tree.top->GetNumberOfElements(), 3);
    tree.Show("Sound", false);
    tree.Show("Sound", true, false);
    QCOMPARE(sizes.size(), 4);
    QVERIFY(tree.Element("Sound")->isHidden());
    tree.top->ProcessDelayedUpdates(false, false, -1);
    QCOMPARE(sizes.last(), QVariantList{3});
    QVERIFY(tree.Element("Sound")->isHidden());
    tree.top->ProcessDelayedUpdates(false, true, -1);
    QVERIFY(!tree.Element("Sound")->isHidden());
    tree.top->DeleteElement(tree.Id("Sound"));
    QCOMPARE(sizes.last(), QVariantList{2});
    QCOMPARE(sizes.size(), 6);
}

void TConfigMenuTest::aDeletedElementTakesItsRowsAlong()
{
    TTree tree;
    tree.Grow();
    QPointer<TConfigMenuElement> const element(tree.Element("Machine"));
    tree.top->DeleteElement(tree.Id("Machine"));
    QVERIFY(!element && !tree.machine && !tree.boom);
    QVERIFY(tree.display);
    QCOMPARE(tree.Said(), QString());
    // What DeleteContent() promises to whoever fills details of his own.
    TConfigMenu::ElementDetails details;
    QPointer<TConfigMenu> const row(tree.Row(1, QString()));
    details.m_SubMenu = row;
    details.m_Element = new TConfigMenuElement(nullptr, QString(), 1);
    details.DeleteContent();
    QVERIFY(!row && !details.m_Element && !details.m_SubMenu);
    details.DeleteContent();
}

void TConfigMenuTest::aDeletedSelectedElementIsLeftFirst()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Said();
    tree.top->DeleteElement(tree.Id("Machine"));
    QCOMPARE(tree.Said(), QStringLiteral("out boom 1, out machine 0, hide machine, selected -1"));
    QVERIFY(!tree.top->GetSelectedElement());
    QCOMPARE(tree.top->GetSelectedScreen(), QString());
}

void TConfigMenuTest::indicesFollowADeletedOrInsertedElement()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.completes = false;
    tree.Click("Machine");
    tree.top->DeleteElement(tree.Id("Sound"));
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Display"));
    tree.ids.insert(QStringLiteral("Zero"), tree.top->AddElement(QString(), QString(), QString(),
                                                                 QStringLiteral("/Zero"), 0, nullptr));
    QCOMPARE(tree.TextsOf(tree.top).join(QLatin1Char(' ')), QStringLiteral("Zero Display Machine"));
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Display"));
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("out display 0, hide display, in machine 1, show machine, "
                                         "selected Machine"));
}

void TConfigMenuTest::aHiddenElementIsFoundInAnyRow()
{
    TTree tree;
    tree.Grow();
    QVERIFY(tree.top->GetElementVisibilityRecursively(tree.Id("Nozzles")));
    tree.top->SetElementVisibilityRecursively(tree.Id("Nozzles"), false);
    QVERIFY(!tree.top->GetElementVisibilityRecursively(tree.Id("Nozzles")));
    QVERIFY(!tree.boom->GetElementVisibility(tree.Id("Nozzles")));
    QVERIFY(!tree.top->GetElementVisibility(tree.Id("Sections"))); // of another row
    // Seen with the next update of the whole tree alone.
    QVERIFY(!tree.Element("Nozzles")->isHidden());
    tree.top->ProcessDelayedUpdates(false, true, -1);
    QVERIFY(!tree.Element("Nozzles")->isHidden());
    tree.top->ProcessDelayedUpdates(true, true, -1);
    QVERIFY(tree.Element("Nozzles")->isHidden());
}

void TConfigMenuTest::aTouchedElementWaitsForTheOwner()
{
    TTree tree;
    tree.Grow();
    tree.completes = false;
    tree.Element("Sound")->click();
    QCOMPARE(tree.Said(), QStringLiteral("clicked top"));
    QVERIFY(!tree.top->GetSelectedElement());
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Sound, selected Sound"));
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Sound"));
    // Once is enough.
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aScreenIsShownBeforeItsElementIsSelected()
{
    TTree tree;
    tree.Grow();
    tree.Click("Sound");
    bool wasSelected = true;
    QString shown;
    connect(tree.display, &TConfigMenu::ShowSetupScreen, this,
            [&] { wasSelected = tree.Element("Units")->IsSelected() || tree.display->GetSelectedElement(); });
    bool isSelected = false;
    connect(tree.display, &TConfigMenu::SelectionChanged, this,
            [&]
            {
                isSelected = tree.Element("Units")->IsSelected();
                shown = tree.top->GetSelectedScreen();
            });
    tree.Click("Display");
    tree.Click("Units");
    // Its neighbours overlap it no more.
    QCOMPARE(tree.display->children().last(), tree.Element("Units"));
    QVERIFY(!wasSelected);
    QVERIFY(isSelected);
    QCOMPARE(shown, QStringLiteral("/Units"));
    QVERIFY(!tree.Element("Sound")->IsSelected());
    QVERIFY(tree.Element("Display")->IsSelected());
}

void TConfigMenuTest::anElementWithARowShowsThatRow()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, in display 1, show display, selected Display"));
    QVERIFY(tree.display->isVisible());
    QVERIFY(!tree.display->GetSelectedElement());
}

void TConfigMenuTest::anotherElementClosesTheOpenRowFirst()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Click("Nozzles");
    tree.Said();
    tree.Click("Sound");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, out boom 1, out machine 0, hide machine, "
                                         "screen /Sound, selected Sound"));
    QVERIFY(!tree.Element("Machine")->IsSelected());
    QVERIFY(!tree.Element("Nozzles")->IsSelected());
    QVERIFY(!tree.boom->isVisible());
}

void TConfigMenuTest::aDeepClickIsCompletedFromTheTop()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Said();
    tree.Click("Nozzles");
    QCOMPARE(tree.Said(), QStringLiteral("clicked boom, screen /Nozzles, selected Nozzles"));
}

void TConfigMenuTest::aSelectedScreenIsOnlyRepeated()
{
    TTree tree;
    tree.Grow();
    tree.Click("Sound");
    tree.Said();
    tree.Click("Sound");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top"));
    QCOMPARE(tree.top->GetNewScreen(), QString());
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Sound"));
    tree.completes = false;
    tree.Click("Sound");
    tree.top->CompleteSelection(true);
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Sound"));
}

void TConfigMenuTest::aSelectedElementPassesTheClickOn()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.completes = false;
    tree.Click("Units");
    tree.Click("Display");
    tree.Said();
    tree.top->CompleteSelection(true);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Units, selected Units"));
    QVERIFY(tree.display->isVisible());
    // The screen of a row that is skipped is repeated for its element.
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Said();
    tree.Click("Display");
    tree.top->CompleteSelection(true);
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Language"));
}

void TConfigMenuTest::aSelectionThatIsNeverCompletedChangesNothing()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Units");
    tree.completes = false;
    tree.Click("Language");
    tree.Click("Machine");
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Units"));
    // The row that goes forgets what was clicked in it.
    tree.top->CompleteSelection(false);
    tree.Click("Display");
    tree.top->CompleteSelection(false);
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::theSelectedScreenIsTheDeepest()
{
    TTree tree;
    tree.Grow();
    QCOMPARE(tree.top->GetSelectedScreen(), QString());
    tree.Click("Sound");
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sound"));
    tree.Click("Machine");
    QCOMPARE(tree.top->GetSelectedScreen(), QString());
    tree.Click("Boom");
    tree.Click("Sections");
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sections"));
    QCOMPARE(tree.machine->GetSelectedScreen(), QStringLiteral("/Sections"));
}

void TConfigMenuTest::theNewScreenIsKnownBeforeItIsShown()
{
    TTree tree;
    tree.Grow();
    tree.completes = false;
    QCOMPARE(tree.top->GetNewScreen(), QString());
    tree.Click("Sound");
    QCOMPARE(tree.top->GetNewScreen(), QStringLiteral("/Sound"));
    tree.Click("Display");
    QCOMPARE(tree.top->GetNewScreen(), QString());
    tree.Show("Units", false);
    tree.Show("Language", false);
    QCOMPARE(tree.top->GetNewScreen(), QStringLiteral("/Colours"));
    tree.Click("Machine");
    tree.Click("Tank");
    QCOMPARE(tree.top->GetNewScreen(), QStringLiteral("/Tank"));
    // One call for each click: the first opens the row, in which the second waits.
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.top->GetNewScreen(), QString());
    QCOMPARE(tree.machine->GetNewScreen(), QStringLiteral("/Tank"));
    QCOMPARE(tree.top->GetSelectedScreen(), QString());
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Tank"));
    QCOMPARE(tree.machine->GetNewScreen(), QString());
    // What is seen counts, not what the last update found.
    tree.Show("Units", true, false);
    tree.Click("Display");
    QCOMPARE(tree.top->GetNewScreen(), QString());
}

void TConfigMenuTest::clearingTellsNobody()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Said();
    tree.top->ClearSelection();
    QCOMPARE(tree.Said(), QString());
    QVERIFY(!tree.top->GetSelectedElement());
    QVERIFY(!tree.Element("Display")->IsSelected());
}

void TConfigMenuTest::onlyTheDeepestSelectionIsCleared()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Click("Nozzles");
    tree.Said();
    tree.top->ClearLeafSelection();
    QVERIFY(!tree.boom->GetSelectedElement());
    QVERIFY(!tree.Element("Nozzles")->IsSelected());
    QCOMPARE(tree.machine->GetSelectedElement(), tree.Element("Boom"));
    tree.top->ClearLeafSelection();
    QVERIFY(!tree.machine->GetSelectedElement());
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Machine"));
    tree.top->ClearLeafSelection();
    tree.top->ClearLeafSelection();
    QVERIFY(!tree.top->GetSelectedElement());
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aRowThatOpensAgainHasNothingSelected()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Units");
    tree.Click("Sound");
    tree.Click("Display");
    QVERIFY(!tree.display->GetSelectedElement());
    QVERIFY(!tree.Element("Units")->IsSelected());
}

void TConfigMenuTest::aSlotMayClickOn()
{
    TTree tree;
    tree.Grow();
    // An owner who wants the first screen of a row at once.
    connect(tree.top, &TConfigMenu::ShowSetupMenu, this,
            [](TConfigMenu* row, bool visible)
            {
                if (visible)
                    row->OnNext();
            });
    tree.Click("Display");
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Units"));
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, in display 1, show display, clicked display, "
                                         "selected Display, screen /Units, selected Units"));
}

void TConfigMenuTest::aSlotThatClicksForEverIsStopped()
{
    TTree tree;
    tree.Grow();
    int selections = 0;
    connect(tree.display, &TConfigMenu::SelectionChanged, this,
            [&](int id)
            {
                ++selections;
                tree.Click(id == tree.Id("Units") ? "Language" : "Units");
            });
    tree.Click("Display");
    tree.Click("Units");
    QVERIFY(selections > 1);
    QVERIFY(selections < 10000);
}

void TConfigMenuTest::aSubMenuWithOneVisibleLeafOpensItsScreenDirectly()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Said();
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Language, selected Display"));
    QVERIFY(!tree.display->isVisible());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
    int index = -1;
    QVERIFY(tree.display->GetIsSingleItemMenu(index));
    QCOMPARE(index, 1);
    QVERIFY(!tree.machine->GetIsSingleItemMenu(index));
    QCOMPARE(index, -1);
}

void TConfigMenuTest::aRowWithOneElementThatOwnsARowIsShown()
{
    TTree tree;
    tree.Grow();
    tree.Show("Tank", false);
    tree.Show("Nozzles", false);
    tree.Said();
    tree.Click("Machine");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, in machine 1, show machine, selected Machine"));
    QString path = QStringLiteral("as it was");
    QVERIFY(!tree.machine->SetIsSingleItemMenu(path));
    QCOMPARE(path, QStringLiteral("as it was"));
    QVERIFY(tree.boom->SetIsSingleItemMenu(path));
    QCOMPARE(path, QStringLiteral("/Sections"));
}

void TConfigMenuTest::aRowWithoutVisibleElementsIsShownEmpty()
{
    TTree tree;
    tree.Grow();
    for (char const* const name : {"Units", "Language", "Colours"})
        tree.Show(name, false);
    tree.Said();
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, in display 1, show display, selected Display"));
    QVERIFY(!tree.display->OnNext());
    QVERIFY(!tree.display->OnPrevious());
    QCOMPARE(tree.display->GetMenuItemSpacing(0), 0);
}

void TConfigMenuTest::hidingTheSecondElementMakesTheRowSingleAndShowingItExpandsItAgain()
{
    TTree tree;
    tree.Grow();
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Click("Language");
    tree.Said();
    tree.Show("Language", false);
    int index = -1;
    QVERIFY(tree.display->GetIsSingleItemMenu(index));
    QCOMPARE(index, 0);
    QCOMPARE(tree.Said(), QStringLiteral("out display 0, hide display, screen /Units"));
    QVERIFY(!tree.display->isVisible());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Units"));
    tree.Show("Language", true);
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QStringLiteral("expand 0, in display 1, show display, clicked display, "
                                         "screen /Units, selected Units"));
    QVERIFY(tree.display->isVisible());
    QVERIFY(tree.Element("Units")->IsSelected());
    QVERIFY(!tree.display->GetIsSingleItemMenu(index));
}

void TConfigMenuTest::anExpansionWaitsForTheUpdateToEnd()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Said();
    tree.Show("Units", true);
    QCOMPARE(tree.Said(), QStringLiteral("expand 1"));
    QVERIFY(!tree.display->isVisible());
    // The operator was quicker.
    tree.Click("Sound");
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
    // So was the next change.
    tree.Show("Units", false);
    tree.Click("Display");
    tree.Show("Units", true);
    tree.Show("Units", false);
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
    QVERIFY(!tree.display->isVisible());
}

void TConfigMenuTest::anExpansionFindsItsElementWhereItStandsNow()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Language", false);
    tree.Click("Display");
    tree.display->DeleteElement(tree.Id("Units"));
    tree.Said();
    tree.Show("Language", true);
    QCoreApplication::processEvents();
    QVERIFY(tree.Said().startsWith(QStringLiteral("expand 1, ")));
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Colours"));
    // One that vanishes as others come is not opened.
    tree.Show("Language", false);
    tree.display->SetElementVisibility(tree.Id("Colours"), false, false);
    tree.Add(tree.display, QStringLiteral("More"));
    tree.display->SetElementVisibility(tree.Id("Language"), true, true);
    QCoreApplication::processEvents();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/More"));
}

void TConfigMenuTest::delayedUpdatesExpandTheRow()
{
    TTree tree;
    tree.Grow();
    tree.Show("Sections", false);
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Said();
    tree.Show("Sections", true, false);
    tree.top->ProcessDelayedUpdates(false, true, -1);
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString()); // it is not for the top row to see
    tree.top->ProcessDelayedUpdates(true, true, -1);
    QCOMPARE(tree.Said(), QStringLiteral("expand 1"));
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QStringLiteral("in boom 2, show boom, clicked boom, screen /Nozzles, "
                                         "selected Nozzles"));
    tree.top->ProcessDelayedUpdates(true, true, 500);
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::onlyTheSelectedRowExpands()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Click("Machine");
    tree.Said();
    int index = -1;
    QVERIFY(tree.display->GetIsSingleItemMenu(index));
    tree.Show("Units", true);
    QVERIFY(!tree.display->GetIsSingleItemMenu(index));
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aRowThatIsHiddenOrWithoutASelectionDoesNotExpand()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.top->hide();
    tree.Show("Units", true);
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
    tree.top->show();
    tree.Show("Units", false);
    tree.Show("Units", true);
    tree.top->ClearSelection();
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aSkippedRowShowsTheElementThatIsLeft()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Said();
    tree.Show("Language", false, false);
    tree.Show("Colours", true);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Colours"));
    tree.Show("Colours", false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::theWheelPagesForwardThroughAllScreens()
{
    TTree tree;
    tree.Grow();
    QStringList screens;
    while (screens.size() < 20 && tree.top->OnNext())
        screens << tree.top->GetSelectedScreen();
    QCOMPARE(screens.join(QLatin1Char(' ')),
             QStringLiteral("/Sound /Units /Language /Colours /Sections /Nozzles /Tank"));
    QVERIFY(tree.Element("Tank")->IsSelected());
    QVERIFY(!tree.Element("Boom")->IsSelected());
    QVERIFY(!tree.boom->isVisible());
    QVERIFY(tree.machine->isVisible());
}

void TConfigMenuTest::theWheelPagesBackThroughAllScreens()
{
    TTree tree;
    tree.Grow();
    QStringList screens;
    while (screens.size() < 20 && tree.top->OnPrevious())
        screens << tree.top->GetSelectedScreen();
    QCOMPARE(screens.join(QLatin1Char(' ')),
             QStringLiteral("/Tank /Nozzles /Sections /Colours /Language /Units /Sound"));
}

void TConfigMenuTest::theWheelStopsAtTheLastElementOfTheLastRow()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Tank");
    tree.Said();
    QVERIFY(!tree.top->OnNext());
    QCOMPARE(tree.Said(), QString());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Tank"));
    // Likewise if what follows is hidden.
    tree.Click("Boom");
    tree.Click("Nozzles");
    tree.Show("Tank", false);
    tree.Said();
    QVERIFY(!tree.top->OnNext());
    QCOMPARE(tree.Said(), QString());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Nozzles"));
}

void TConfigMenuTest::theWheelStopsAtTheFirstElement()
{
    TTree tree;
    tree.Grow();
    tree.Click("Sound");
    tree.Said();
    QVERIFY(!tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QString());
    tree.Click("Display");
    tree.Click("Units");
    tree.Show("Sound", false);
    tree.Said();
    QVERIFY(!tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QString());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Units"));
}

void TConfigMenuTest::theWheelStepsOverHiddenElementsAndTellsOnTheWayBack()
{
    TTree tree;
    for (char const* const name : {"A", "B", "C", "D"})
        tree.Add(tree.top, QLatin1String(name));
    tree.Show("B", false);
    tree.Show("C", false);
    tree.Click("A");
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /D, selected D"));
    QVERIFY(!tree.Element("A")->IsSelected());
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QStringLiteral("selected C, selected B, clicked top, screen /A, selected A"));
    QVERIFY(!tree.Element("D")->IsSelected());
    QVERIFY(tree.Element("A")->IsSelected());
    // With nothing selected, from behind the last one.
    tree.Show("D", false);
    tree.top->ClearSelection();
    tree.Said();
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QStringLiteral("selected D, selected C, selected B, clicked top, screen /A, "
                                         "selected A"));
}

void TConfigMenuTest::aHiddenElementIsNotEnteredByTheWheel()
{
    TTree tree;
    tree.Grow();
    tree.Show("Display", false);
    tree.Click("Sound");
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sections"));
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sound"));
    QVERIFY(!tree.display->isVisible());
    // One that is hidden while its row is open is paged to its end.
    tree.Show("Display", true);
    tree.Click("Display");
    tree.Click("Units");
    tree.Show("Display", false);
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
    // The row that is left goes, although what follows directly is hidden.
    tree.Show("Display", true);
    tree.Show("Machine", false);
    tree.Add(tree.top, QStringLiteral("Last"));
    tree.Click("Display");
    tree.Click("Colours");
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QVERIFY(tree.Said().startsWith(QStringLiteral("out display 0, ")));
    QVERIFY(!tree.display->isVisible());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Last"));
}

void TConfigMenuTest::aSkippedRowIsOneStepOfTheWheel()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Sound");
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Language, selected Display"));
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sections"));
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
    QVERIFY(!tree.display->isVisible());
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Sound"));
}

void TConfigMenuTest::anEmptyRowDoesNotMove()
{
    TTree tree;
    QVERIFY(!tree.top->OnNext());
    QVERIFY(!tree.top->OnPrevious());
    tree.Add(tree.top, QStringLiteral("A"));
    tree.Show("A", false);
    tree.Said();
    QVERIFY(!tree.top->OnNext());
    QVERIFY(!tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::anEndlessSlotDoesNotHoldTheWheel()
{
    TTree tree;
    for (char const* const name : {"A", "B", "C", "D"})
        tree.Add(tree.top, QLatin1String(name));
    tree.Show("B", false);
    tree.Show("C", false);
    tree.Click("D");
    connect(tree.top, &TConfigMenu::SelectionChanged, this, [&tree] { tree.top->ClearSelection(); });
    tree.Said();
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QStringLiteral("selected C, selected B, clicked top, screen /A, selected A"));
    QVERIFY(!tree.top->GetSelectedElement());
    // Nor one that takes elements away.
    TTree shrinking;
    for (char const* const name : {"A", "B", "C", "D"})
        shrinking.Add(shrinking.top, QLatin1String(name));
    shrinking.Show("B", false);
    shrinking.Show("C", false);
    shrinking.Click("D");
    connect(shrinking.top, &TConfigMenu::SelectionChanged, this,
            [&shrinking] { shrinking.top->DeleteElement(shrinking.top->GetElementIDByIndex(0)); });
    QVERIFY(shrinking.top->OnPrevious());
    QVERIFY(shrinking.top->GetNumberOfElements() < 3);
}

void TConfigMenuTest::aRowComesAndGoesByLevel()
{
    TTree tree;
    tree.Grow();
    QVERIFY(!tree.machine->isVisible());
    tree.machine->OnShowMenu();
    QCOMPARE(tree.Said(), QStringLiteral("in machine 1"));
    tree.machine->OnHideMenu();
    QCOMPARE(tree.Said(), QStringLiteral("out machine 0"));
}

void TConfigMenuTest::aRowThatIsShownDoesNotComeAgain()
{
    TTree tree;
    tree.Grow();
    tree.display->show();
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, show display, selected Display"));
}

void TConfigMenuTest::aRowGoesWithAllBelow()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.Click("Nozzles");
    tree.Said();
    tree.top->OnHideMenu();
    QCOMPARE(tree.Said(), QStringLiteral("out boom 1, out machine 0, out top -1"));
    QVERIFY(!tree.top->GetSelectedElement() && !tree.machine->GetSelectedElement());
}

void TConfigMenuTest::elementsOverlapALittleWhereTheyFit()
{
    TLayout const roomy(300, 3);
    QCOMPARE(roomy.row->GetMenuItemSpacing(0), 93);
    roomy.row->ArrangeElements(0, 0);
    QCOMPARE(roomy.Lefts(), (QVector<int>{0, 93, 186}));
    for (int const id : roomy.ids)
        QCOMPARE(roomy.row->GetElementByID(id)->y(), 0);
    roomy.row->GetElementByIndex(0)->setFixedSize(68, 57);
    QCOMPARE(roomy.row->GetMenuItemSpacing(0), 63); // 63.24
}

void TConfigMenuTest::elementsAreSqueezedWhereTheyDoNot_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("spacing");
    QTest::newRow("one pixel short") << 299 << 0 << 98; // 99 * 0.99
    QTest::newRow("divided before") << 182 << 0 << 59;  // 60, not 60.67, * 0.99
    QTest::newRow("by the margin") << 300 << 1 << 98;
    QTest::newRow("just fits beside the margin") << 310 << 10 << 93;
    QTest::newRow("no room") << 100 << 100 << 0;
    QTest::newRow("less than none") << 100 << 1000 << 0;
    QTest::newRow("a margin outside") << 200 << -100 << 93;
}

void TConfigMenuTest::elementsAreSqueezedWhereTheyDoNot()
{
    QFETCH(int, width);
    QFETCH(int, margin);
    TLayout const layout(width, 3);
    QTEST(layout.row->GetMenuItemSpacing(margin), "spacing");
}

void TConfigMenuTest::hiddenElementsLeaveNoGap()
{
    TLayout const layout(1000, 4);
    layout.row->SetElementVisibility(layout.ids.at(1), false, false);
    QCOMPARE(layout.row->GetMenuItemSpacing(0), 93);
    layout.row->ArrangeElements(0, 20);
    QCOMPARE(layout.Lefts(), (QVector<int>{20, 113, 206}));
    QVERIFY(layout.row->GetElementByIndex(1)->isHidden());
    layout.row->ArrangeElements(1, 20);
    QCOMPARE(layout.Lefts(), (QVector<int>{166, 73, -20}));
    // An element that somebody else deleted takes no room.
    delete layout.row->GetElementByIndex(2);
    QCOMPARE(layout.row->GetNumberOfVisibleElements(), 2);
    layout.row->ArrangeElements(0, 0);
    QCOMPARE(layout.row->GetElementByIndex(3)->x(), 93);
    // The width is that of the first one, seen or not.
    layout.row->SetElementVisibility(layout.ids.at(0), false, true);
    layout.row->GetElementByIndex(0)->setFixedSize(200, 50);
    QCOMPARE(layout.row->GetMenuItemSpacing(0), 186);
}

void TConfigMenuTest::elementsStandFromLeftOrRight()
{
    TLayout const layout(500, 3);
    layout.row->ArrangeElements(0, 50);
    QCOMPARE(layout.Lefts(), (QVector<int>{50, 143, 236}));
    layout.row->ArrangeElements(1, 50);
    QCOMPARE(layout.Lefts(), (QVector<int>{136, 43, -50}));
    // A change keeps the direction.
    layout.row->SetElementVisibility(layout.ids.at(0), false, true);
    QCOMPARE(layout.Lefts(), (QVector<int>{43, -50}));
}

void TConfigMenuTest::aRowStandsBelowTheElementThatOpensIt()
{
    TTree tree;
    tree.Grow();
    tree.top->ArrangeElements(0, 400);
    tree.Click("Display");
    QCOMPARE(tree.display->width(), Width);
    int const middle = tree.Element("Display")->geometry().center().x();
    QVERIFY(qAbs(tree.Element("Language")->geometry().center().x() - middle) <= 1);
    // As far as the width allows.
    tree.display->UpdateMenu(0);
    QCOMPARE(tree.Element("Units")->x(), 0);
    tree.display->UpdateMenu(Width);
    QVERIFY(tree.Element("Colours")->geometry().right() < Width);
    int const right = tree.Element("Colours")->x();
    tree.display->UpdateMenu(std::numeric_limits<int>::max());
    QCOMPARE(tree.Element("Colours")->x(), right);
    tree.display->UpdateMenu(std::numeric_limits<int>::min());
    QCOMPARE(tree.Element("Units")->x(), 0);
    // A change keeps the place.
    tree.display->UpdateMenu(500);
    tree.Show("Colours", false);
    int const left = tree.Element("Units")->geometry().center().x();
    int const next = tree.Element("Language")->geometry().center().x();
    QVERIFY(qAbs((left + next) / 2 - 500) <= 2);
    tree.display->ProcessDelayedUpdates(false, true, 200);
    QVERIFY(tree.Element("Language")->geometry().right() < 300);
}

void TConfigMenuTest::aRowWithoutAParentIsLaidOut()
{
    TConfigMenu row(nullptr, true, 0, QStringLiteral("alone"));
    row.UpdateMenu(10);
    QCOMPARE(row.GetMenuItemSpacing(0), 0);
    row.resize(150, 60);
    for (int i = 0; i < 3; ++i)
        row.AddElement(QString(), QString(), QString(), QString(), i, nullptr);
    QCOMPARE(row.GetMenuItemSpacing(0), 49); // three of 68 pixels in 150
    row.UpdateMenu(70);
    QCOMPARE(row.GetElementByIndex(2)->x(), 98);
    QCOMPARE(row.objectName(), QStringLiteral("alone"));
}

void TConfigMenuTest::rowAndElementsHaveOneHeight()
{
    TTree tree;
    tree.Grow();
    QCOMPARE(tree.top->height(), STANDARD_BUTTON_HEIGHT);
    tree.top->setMinimumHeight(80);
    QCOMPARE(tree.Element("Sound")->minimumHeight(), 80);
    QCOMPARE(tree.Element("Sound")->size(), QSize(96, 80));
    QCOMPARE(tree.Element("Display")->x() - tree.Element("Sound")->x(), 89); // 0.93 of 96
    tree.top->setMinimumHeight(0);
    tree.top->setMaximumHeight(40);
    QCOMPARE(tree.top->height(), 40);
    QCOMPARE(tree.Element("Sound")->maximumHeight(), 40);
    QCOMPARE(tree.Element("Sound")->size(), QSize(48, 40));
    // Those that come later are no different.
    tree.Add(tree.top, QStringLiteral("Late"));
    QCOMPARE(tree.Element("Late")->size(), QSize(48, 40));
    tree.top->setMinimumHeight(-5);
    tree.top->setMaximumHeight(-5);
    tree.top->setMaximumHeight(std::numeric_limits<int>::max());
}

void TConfigMenuTest::aRowIsHeldToTheHeightsOfMenus()
{
    TTree tree;
    tree.Grow();
    tree.top->ResizeMenu(90);
    QCOMPARE(tree.top->height(), 90);
    QCOMPARE(tree.Element("Machine")->size(), QSize(108, 90));
    tree.top->ResizeMenu(1000);
    QCOMPARE(tree.top->height(), 110);
    QCOMPARE(tree.Element("Machine")->size(), QSize(132, 110));
    tree.top->ResizeMenu(-1);
    QCOMPARE(tree.top->height(), 63);
    QCOMPARE(tree.Element("Machine")->size(), QSize(75, 63));
}

void TConfigMenuTest::anInactiveRowDimsItsElements()
{
    TTree tree;
    tree.Grow();
    QVERIFY(tree.top->IsActive());
    tree.top->SetActive(false);
    QVERIFY(!tree.top->IsActive());
    for (char const* const name : {"Sound", "Display", "Machine"})
        QVERIFY(!tree.Element(name)->IsActive());
    QVERIFY(tree.Element("Units")->IsActive());
    tree.Add(tree.top, QStringLiteral("Late"));
    QVERIFY(!tree.Element("Late")->IsActive());
    tree.Element("Sound")->SetActive(true);
    tree.top->SetActive(false); // no change, nothing handed on
    QVERIFY(tree.Element("Sound")->IsActive());
    tree.top->SetActive(true);
    QVERIFY(tree.Element("Machine")->IsActive());
}

void TConfigMenuTest::theRowHasABackground()
{
    QWidget ground;
    ground.resize(100, 60);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    ground.setPalette(palette);
    ground.show();
    TConfigMenu solid(&ground, false, 0, QString());
    solid.setGeometry(ground.rect());
    solid.show();
    QVERIFY(solid.testAttribute(Qt::WA_OpaquePaintEvent));
    QImage const seen = ground.grab().toImage();
    QCOMPARE(QColor(seen.pixel(50, 30)), QColor(38, 41, 46));
    QVERIFY(qGray(seen.pixel(50, 0)) > qGray(seen.pixel(50, 30)));
    QVERIFY(qGray(seen.pixel(50, 59)) < qGray(seen.pixel(50, 30)));
    solid.hide();
    TConfigMenu glass(&ground, true, 0, QString());
    glass.setGeometry(ground.rect());
    glass.show();
    QVERIFY(!glass.testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(qGray(ground.grab().toImage().pixel(50, 30)) > qGray(seen.pixel(50, 30)));
}

void TConfigMenuTest::aSlideAcrossThreeElementsSelectsTheLast()
{
    TTestScreen screen;
    TTree tree(screen.get());
    tree.Grow();
    tree.top->UpdateMenu(Width / 2);
    TFinger finger(screen.get());
    auto const middle = [&](char const* name)
    { return tree.Element(name)->mapTo(screen.get(), tree.Element(name)->rect().center()); };
    finger.Press(middle("Machine"));
    finger.Move(middle("Display"));
    finger.Move(middle("Sound"));
    finger.Lift();
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Sound, selected Sound"));
}

void TConfigMenuTest::theWheelStopsOnEachElement()
{
    TTestScreen screen;
    TWindow window(screen.get());
    window.setGeometry(0, 0, 600, 200);
    window.show();
    TConfigMenu row(&window, false, 0, QString());
    row.show();
    for (int i = 0; i < 3; ++i)
        row.AddElement(QString(), QString(), QString(), QString(), -1, nullptr);
    row.SetElementVisibility(row.GetElementIDByIndex(1), false, true);
    QSignalSpy const clicks(&row, &TConfigMenu::ConfigMenuItemClicked);
    TMMICapableWidgetNavigator navigator(&window);
    auto const pictureOf = [&row](int index) { return row.GetElementByIndex(index)->grab().toImage(); };
    QImage const plain = pictureOf(0);
    auto const turn = [&]
    {
        navigator.OnWheelRight();
        screen.m_Clock.Advance(100);
        navigator.UpdateFocus();
    };
    // The stops before them are the window's own.
    for (int i = 0; i < 5 && pictureOf(0) == plain; ++i)
        turn();
    QVERIFY(pictureOf(0) != plain);
    turn();
    QCOMPARE(pictureOf(0), plain);
    QVERIFY(pictureOf(2) != plain);
    navigator.OnEnter();
    QTRY_COMPARE(clicks.size(), 1);
    row.CompleteSelection(false);
    QCOMPARE(row.GetSelectedElement(), row.GetElementByIndex(2));
}

void TConfigMenuTest::diesInTheSlotOfAnySignal_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (int i = TConfigMenu::staticMetaObject.methodOffset();
         i < TConfigMenu::staticMetaObject.methodCount(); ++i)
    {
        QMetaMethod const method = TConfigMenu::staticMetaObject.method(i);
        if (method.methodType() == QMetaMethod::Signal)
            QTest::newRow(method.name().constData()) << method.methodSignature();
    }
}

/// Calls a function at each signal of whatever it is connected to.
class TTrigger : public QObject
{
    Q_OBJECT

public:
    std::function<void()> action;

public Q_SLOTS:
    void OnSignal()
    {
        if (action)
            action();
    }
};

namespace
{
/// Everything that a tree goes through, as far as it lives.
void Live(TTree& tree)
{
    auto const click = [&tree](char const* name)
    {
        TConfigMenu* const row = tree.top ? tree.top->FindConfigMenuByElementID(tree.Id(name)) : nullptr;
        if (row)
            row->OnItemClicked(tree.Id(name));
    };
    auto const show = [&tree](char const* name, bool visible)
    {
        TConfigMenu* const row = tree.top ? tree.top->FindConfigMenuByElementID(tree.Id(name)) : nullptr;
        if (row)
            row->SetElementVisibility(tree.Id(name), visible, true);
    };
    click("Sound");
    click("Display");
    click("Units");
    show("Language", false);
    show("Colours", false);
    show("Colours", true);
    QCoreApplication::processEvents();
    click("Machine");
    click("Boom");
    click("Nozzles");
    show("Tank", false);
    show("Sections", false);
    show("Sections", true);
    QCoreApplication::processEvents();
    show("Tank", true);
    show("Display", false);
    for (int i = 0; i < 20; ++i)
    {
        if (tree.top && i < 10)
            tree.top->OnPrevious();
        else if (tree.top)
            tree.top->OnNext();
    }
    show("Nozzles", false);
    if (tree.top)
        tree.top->ProcessDelayedUpdates(true, true, 10);
    if (tree.top)
        tree.top->DeleteElement(tree.Id("Machine"));
    if (tree.top)
        tree.top->OnHideMenu();
}
} // namespace

// Each row in turn, by each of its signals, the first time and the second.
void TConfigMenuTest::diesInTheSlotOfAnySignal()
{
    QFETCH(QByteArray, signal);
    for (int which = 0; which < 4; ++which)
    {
        int deaths = 0;
        for (int time = 0; time < 6; ++time)
        {
            TTree tree;
            tree.Grow();
            QPointer<TConfigMenu> const victims[] = {tree.top, tree.display, tree.machine, tree.boom};
            QPointer<TConfigMenu> const victim(victims[which]);
            TTrigger trigger;
            int count = 0;
            trigger.action = [&]
            {
                if (count++ == time)
                {
                    ++deaths;
                    delete victim.data();
                }
            };
            connect(victim, ("2" + signal).constData(), &trigger, SLOT(OnSignal()));
            Live(tree);
        }
        // Display and Boom have screens alone, and so no row to show.
        bool const isOfRows = signal.startsWith("SingleItemMenu") || signal.startsWith("ShowSetupMenu");
        bool const hasRows = which == 0 || which == 2;
        QCOMPARE(deaths > 0, hasRows || !isOfRows);
    }
}

// The top row, by a signal of any row.
void TConfigMenuTest::treeDiesInTheSlotOfAnySignal()
{
    QFETCH(QByteArray, signal);
    for (int time = 0; time < 12; ++time)
    {
        TTree tree;
        tree.Grow();
        TTrigger trigger;
        int count = 0;
        trigger.action = [&]
        {
            if (count++ == time)
                delete tree.top.data();
        };
        for (TConfigMenu* const row :
             {tree.top.data(), tree.display.data(), tree.machine.data(), tree.boom.data()})
            connect(row, ("2" + signal).constData(), &trigger, SLOT(OnSignal()));
        Live(tree);
        QVERIFY(count > 0);
        QCOMPARE(bool(tree.top), count <= time);
    }
}

void TConfigMenuTest::anElementMayGoWhileItIsPressedSelectedOrPending()
{
    TTestScreen screen;
    TTree tree(screen.get());
    tree.Grow();
    tree.top->UpdateMenu(Width / 2);
    TFinger finger(screen.get());
    finger.Press(tree.Element("Sound")->mapTo(screen.get(), QPoint(20, 20)));
    tree.top->DeleteElement(tree.Id("Sound"));
    finger.Lift();
    QCOMPARE(tree.Said(), QString());
    tree.Click("Display");
    delete tree.Element("Display"); // by somebody else
    QVERIFY(!tree.top->GetSelectedElement());
    tree.completes = false;
    tree.Click("Machine");
    tree.Said();
    delete tree.Element("Machine");
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("out display 0, hide display, in machine 1, show machine, "
                                         "selected Machine"));
    tree.Add(tree.top, QStringLiteral("Late"));
    tree.Click("Late");
    tree.top->DeleteElement(tree.Id("Late"));
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aSubMenuThatIsDeletedFromOutsideLeavesALeaf()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Units");
    delete tree.display.data();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Display"));
    tree.Said();
    tree.Click("Sound");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Sound, selected Sound"));
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Display, selected Display"));
    // Between a change and its expansion.
    tree.Click("Machine");
    tree.Show("Tank", false);
    tree.Click("Boom");
    tree.Show("Nozzles", false);
    tree.Show("Nozzles", true);
    delete tree.boom.data();
    QCoreApplication::processEvents();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Boom"));
}

void TConfigMenuTest::aWholeTreeDiesWithItsParent()
{
    QPointer<TConfigMenu> boom;
    {
        TTree tree;
        tree.Grow();
        tree.Click("Machine");
        tree.Click("Boom");
        boom = tree.boom;
    }
    QVERIFY(!boom);
}

void TConfigMenuTest::aDeepTreeIsWalkedAndDeleted()
{
    constexpr int Depth = 300;
    QWidget area;
    QVector<TConfigMenu*> rows;
    for (int level = 0; level < Depth; ++level)
        rows << new TConfigMenu(&area, false, level, QString());
    int deepest = -1;
    for (int level = Depth - 1; level >= 0; --level)
    {
        TConfigMenu* const below = level + 1 < Depth ? rows.at(level + 1) : nullptr;
        int const id =
            rows.at(level)->AddElement(QString(), QString(), QString(), QStringLiteral("/deep"), 0, below);
        rows.at(level)->AddElement(QString(), QString(), QString(), QStringLiteral("/side"), 1, nullptr);
        deepest = qMax(deepest, level + 1 == Depth ? id : -1);
    }
    TConfigMenu* const top = rows.first();
    QCOMPARE(top->FindConfigMenuByElementID(deepest), rows.last());
    for (TConfigMenu* const row : qAsConst(rows))
        connect(row, &TConfigMenu::ConfigMenuItemClicked, top, [top] { top->CompleteSelection(false); });
    QVERIFY(top->OnNext());
    QCOMPARE(top->GetSelectedScreen(), QStringLiteral("/deep"));
    delete top;
    QVERIFY(area.findChildren<TConfigMenu*>().isEmpty());
}

void TConfigMenuTest::anElementIsNamedForMacroPathsByItsKeyIconOrText()
{
    TTree tree;
    auto const nameOf = [&tree](char const* key, char const* icon)
    {
        int const id = tree.top->AddElement(QLatin1String(key), QStringLiteral("Text"), QLatin1String(icon),
                                            QString(), -1, nullptr);
        return tree.top->GetElementByID(id)->objectName();
    };
    QCOMPARE(nameOf("key", "icon-setup"), QStringLiteral("key"));
    QCOMPARE(nameOf("", "icon-setup"), QStringLiteral("icon-setup"));
    QCOMPARE(nameOf("", ""), QStringLiteral("Text"));
}

void TConfigMenuTest::anElementShowsItsIcon()
{
    TTestScreen screen;
    TTree tree(screen.get());
    auto const seen = [&tree](char const* icon)
    {
        int const id =
            tree.top->AddElement(QString(), QString(), QLatin1String(icon), QString(), -1, nullptr);
        return tree.top->GetElementByID(id)->grab().toImage();
    };
    QVERIFY(seen("icon-setup") != seen(""));
}

void TConfigMenuTest::aSkippedRowKnowsItsItemAfterASort()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Language", false);
    tree.Click("Display");
    tree.display->SortElements({QStringLiteral("Colours")});
    int index = -1;
    QVERIFY(tree.display->GetIsSingleItemMenu(index));
    QCOMPARE(index, 0);
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Colours"));
}

void TConfigMenuTest::aSlotThatSelectsAnotherElementIsNotContradicted()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    connect(tree.top, &TConfigMenu::ShowSetupMenu, this, [&tree] { tree.Click("Sound"); });
    tree.Said();
    tree.top->DeleteElement(tree.Id("Display"));
    QCOMPARE(tree.Said(), QStringLiteral("out display 0, hide display, clicked top, screen /Sound, "
                                         "selected Sound"));
    QCOMPARE(tree.top->GetSelectedElement(), tree.Element("Sound"));
}

void TConfigMenuTest::theOldElementHasLostItsLookWhenItsRowGoes()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    bool wasSelected = true;
    connect(tree.display, &TConfigMenu::LevelTransition, this,
            [&] { wasSelected = tree.Element("Display")->IsSelected(); });
    tree.Click("Sound");
    QVERIFY(!wasSelected);
}

void TConfigMenuTest::aRowIsLaidOutBeforeItComes()
{
    TTree tree;
    tree.Grow();
    tree.area.resize(Width - 100, Height);
    int width = 0;
    connect(tree.display, &TConfigMenu::LevelTransition, this, [&] { width = tree.display->width(); });
    tree.Click("Display");
    QCOMPARE(width, Width - 100);
}

void TConfigMenuTest::aClickThatWasTurnedDownDoesNotWinOverALaterOne()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    tree.completes = false;
    tree.Click("Sound");
    tree.Click("Tank");
    tree.Click("Nozzles");
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Nozzles, selected Nozzles"));
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aLaterClickInTheSameRowTakesThePlaceOfTheFirst()
{
    TTree tree;
    tree.Grow();
    tree.completes = false;
    tree.Click("Display");
    tree.Click("Sound");
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Sound, selected Sound"));
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aPendingElementThatASlotDeletesLeavesNoneSelected()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    connect(tree.top, &TConfigMenu::ShowSetupMenu, this,
            [&tree] { tree.top->DeleteElement(tree.Id("Machine")); });
    tree.Said();
    tree.Click("Machine");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, out display 0, hide display, selected -1"));
    QVERIFY(!tree.top->GetSelectedElement());
    // It is open to a click again.
    tree.Click("Display");
    QVERIFY(tree.display->isVisible());
}

void TConfigMenuTest::anElementMayBeDeletedAsItsRowCloses()
{
    for (bool const byTransition : {false, true})
    {
        for (bool const byClick : {false, true})
        {
            TTree tree;
            tree.Grow();
            tree.Click("Display");
            auto const drop = [&tree] { tree.top->DeleteElement(tree.Id("Display")); };
            if (byTransition)
                connect(tree.display, &TConfigMenu::LevelTransition, this, drop);
            else
                connect(tree.top, &TConfigMenu::ShowSetupMenu, this, drop);
            if (byClick)
                tree.Click("Sound");
            else
                tree.top->DeleteElement(tree.Id("Display"));
            QVERIFY(!tree.display);
            QCOMPARE(tree.top->GetNumberOfElements(), 2);
            QCOMPARE(tree.top->GetSelectedElement(), byClick ? tree.Element("Sound") : nullptr);
            QCOMPARE(tree.log.count(QStringLiteral("selected -1")), 1);
        }
    }
}

void TConfigMenuTest::anExpansionThatWasDroppedComesWhenTheRowIsShown()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.area.hide();
    tree.Show("Units", true);
    QCoreApplication::processEvents();
    QVERIFY(tree.display->isHidden());
    tree.Said();
    tree.area.show();
    QTRY_VERIFY(tree.display->isVisible());
    QCOMPARE(tree.Said(), QStringLiteral("expand 1, in display 1, show display, clicked display, "
                                         "screen /Language, selected Language"));
    // The row may go as it comes to that.
    tree.Show("Units", false);
    tree.area.hide();
    tree.Show("Units", true);
    QCoreApplication::processEvents();
    connect(tree.top, &TConfigMenu::SingleItemMenuNeedsExpanding, this, [&tree] { delete tree.top.data(); });
    tree.area.show();
    QVERIFY(tree.top);
    QTRY_VERIFY(!tree.top);
}

void TConfigMenuTest::aClickOpensARowThatDidNotCome()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.top->hide();
    tree.Show("Units", true);
    QCoreApplication::processEvents();
    tree.Said();
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, in display 1, show display, clicked display, "
                                         "screen /Language, selected Language"));
    tree.Click("Display");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top"));
}

void TConfigMenuTest::theWheelOpensARowThatDidNotCome()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Show("Units", true);
    tree.Show("Colours", true);
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QVERIFY(tree.display->isVisible());
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Colours"));
    // What was on its way then finds nothing to do.
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::aSkippedRowThatWasEmptyMeanwhileExpands()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Show("Language", false);
    tree.Said();
    tree.Show("Units", true, false);
    tree.Show("Colours", true, false);
    tree.top->ProcessDelayedUpdates(true, true, -1);
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QStringLiteral("expand 0, in display 1, show display, clicked display, "
                                         "screen /Units, selected Units"));
    // One that comes alone is skipped on, and shown.
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Said();
    tree.Show("Language", true);
    QCoreApplication::processEvents();
    tree.Said();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
}

void TConfigMenuTest::aRowIsExpandedOnceForAllThatCome()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Said();
    tree.Show("Units", true);
    tree.Show("Colours", true);
    tree.top->ProcessDelayedUpdates(true, true, -1);
    QCOMPARE(tree.Said(), QStringLiteral("expand 1"));
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QStringLiteral("in display 1, show display, clicked display, screen /Language, "
                                         "selected Language"));
}

void TConfigMenuTest::anExpansionThatWaitsFindsItsElementWhereverItIsMoved()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Show("Units", true);
    tree.display->SortElements({QStringLiteral("Language")});
    QCoreApplication::processEvents();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Language"));
    // Without it, the first that is seen.
    tree.Show("Units", false);
    tree.Show("Units", true);
    tree.display->DeleteElement(tree.Id("Language"));
    tree.Add(tree.display, QStringLiteral("More"));
    QCoreApplication::processEvents();
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Units"));
}

void TConfigMenuTest::anExpansionIsNotTakenForAnotherRowThatIsAboutToCome()
{
    TTree tree;
    tree.Grow();
    tree.Show("Units", false);
    tree.Show("Colours", false);
    tree.Click("Display");
    tree.Show("Units", true);
    tree.Click("Machine");
    tree.machine->hide(); // its owner shows it later
    tree.Said();
    QCoreApplication::processEvents();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::theWheelStepsBackOutOfAnOpenRow()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Units");
    tree.Said();
    QVERIFY(tree.top->OnPrevious());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, out display 0, hide display, screen /Sound, "
                                         "selected Sound"));
}

void TConfigMenuTest::aHiddenRowIsSteppedOver()
{
    TTree tree;
    tree.Grow();
    tree.Show("Display", false);
    tree.Click("Sound");
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, out display 0, hide display, in machine 1, "
                                         "show machine, selected Machine, clicked machine, in boom 2, "
                                         "show boom, selected Boom, clicked boom, screen /Sections, "
                                         "selected Sections"));
}

void TConfigMenuTest::anOwnerMayCompleteEachClickOfTheWheelLater()
{
    TTree tree;
    tree.Grow();
    tree.Click("Sound");
    tree.completes = false;
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, clicked display"));
    QCOMPARE(tree.top->GetNewScreen(), QStringLiteral("/Units"));
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("in display 1, show display, selected Display"));
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Units, selected Units"));
}

void TConfigMenuTest::aSlotMayPageOnAsARowGoes()
{
    TTree tree;
    tree.Grow();
    tree.Add(tree.top, QStringLiteral("Last"));
    tree.Show("Machine", false);
    tree.Click("Display");
    tree.Click("Colours");
    int turns = 0;
    connect(tree.display, &TConfigMenu::LevelTransition, this,
            [&]
            {
                if (++turns < 100)
                    tree.top->OnNext();
            });
    QVERIFY(tree.top->OnNext());
    QVERIFY(turns < 10);
    QCOMPARE(tree.top->GetSelectedScreen(), QStringLiteral("/Last"));
}

void TConfigMenuTest::aRowThatComesAnewClosesWhatItHadOpen()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Said();
    tree.top->OnShowMenu();
    QCOMPARE(tree.Said(), QStringLiteral("out display 0, hide display"));
    QVERIFY(!tree.top->GetSelectedElement());
}

void TConfigMenuTest::aSlotMayHideTheRowAboveAsARowGoes()
{
    TTree tree;
    tree.Grow();
    tree.Click("Machine");
    tree.Click("Boom");
    int turns = 0;
    connect(tree.boom, &TConfigMenu::LevelTransition, this,
            [&]
            {
                if (++turns < 100)
                    tree.top->OnHideMenu();
            });
    tree.top->OnHideMenu();
    QCOMPARE(turns, 1);
}

void TConfigMenuTest::elementsLieOnEachOtherInTheirOrder()
{
    TLayout layout(300, 4);
    TConfigMenu* const row = layout.row;
    layout.area.show();
    row->show();
    row->GetElementByIndex(1)->raise();
    int const early = row->AddElement(QStringLiteral("early"), QString(), QString(), QString(), 0, nullptr);
    row->ArrangeElements(0, 0);
    auto const order = [row]
    {
        QVector<int> places;
        for (int i = 0; i < row->GetNumberOfElements(); ++i)
            places << row->children().indexOf(row->GetElementByIndex(i));
        return places;
    };
    QVector<int> places = order();
    QCOMPARE(row->GetIndexByElementID(early), 0);
    QVERIFY(std::is_sorted(places.cbegin(), places.cend()));
    // The one that was selected gives way again.
    for (int const index : {1, 3})
    {
        row->OnItemClicked(row->GetElementIDByIndex(index));
        row->CompleteSelection(false);
        QCOMPARE(row->children().last(), row->GetElementByIndex(index));
    }
    places = order();
    places.removeAt(3);
    QVERIFY(std::is_sorted(places.cbegin(), places.cend()));
}

void TConfigMenuTest::boundsThatAreTakenBackHoldNoElement()
{
    TTree tree;
    tree.Grow();
    QCOMPARE(tree.Element("Sound")->maximumHeight(), STANDARD_BUTTON_HEIGHT);
    tree.top->setMinimumHeight(80);
    tree.top->setMinimumHeight(0);
    QCOMPARE(tree.Element("Sound")->minimumHeight(), 0);
    QCOMPARE(tree.Element("Sound")->size(), QSize(68, STANDARD_BUTTON_HEIGHT));
    tree.top->setMaximumHeight(40);
    tree.top->setMaximumHeight(QWIDGETSIZE_MAX);
    QCOMPARE(tree.Element("Sound")->maximumHeight(), QWIDGETSIZE_MAX);
    QCOMPARE(tree.Element("Sound")->size(), QSize(68, STANDARD_BUTTON_HEIGHT));
    tree.top->setMinimumHeight(80);
    QCOMPARE(tree.Element("Sound")->size(), QSize(96, 80));
    // Those that come later are no different.
    tree.Add(tree.top, QStringLiteral("Late"));
    QCOMPARE(tree.Element("Late")->minimumHeight(), 80);
    QCOMPARE(tree.Element("Late")->size(), QSize(96, 80));
}

void TConfigMenuTest::aSlideIntoTheOverlapOfTwoElementsSelectsOne()
{
    TTestScreen screen;
    TTree tree(screen.get());
    tree.area.resize(480, Height);
    for (int i = 0; i < 12; ++i)
        tree.Add(tree.top, QString::number(i));
    tree.top->UpdateMenu(0);
    QPoint const left = tree.Element("0")->mapTo(screen.get(), QPoint(10, 20));
    QPoint const overlap = tree.Element("1")->mapTo(screen.get(), QPoint(8, 20));
    QVERIFY(tree.Element("0")->geometry().intersects(tree.Element("1")->geometry()));
    tree.Said();
    TFinger finger(screen.get());
    finger.Press(left);
    finger.Move({overlap, overlap + QPoint(2, 0)});
    finger.Lift();
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /1, selected 1"));
}

void TConfigMenuTest::aTouchedElementThatVanishesDoesNotSelectTheOneThatMovesUp()
{
    TTestScreen screen;
    TTree tree(screen.get());
    tree.Grow();
    tree.top->UpdateMenu(0);
    TFinger finger(screen.get());
    QPoint const place = tree.Element("Sound")->mapTo(screen.get(), QPoint(20, 20));
    connect(tree.top, &TConfigMenu::SelectionChanged, this, [&tree] { tree.Show("Sound", false); });
    finger.Touch(place);
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, screen /Sound, selected Sound"));
    // Nor does one that goes while the finger rests on its neighbour.
    finger.Press(place);
    tree.Show("Display", false);
    finger.Lift();
    QCOMPARE(tree.Said(), QString());
}

void TConfigMenuTest::anElementOfAnyRowMayBeDeletedInTheSlotOfAnySignal()
{
    QFETCH(QByteArray, signal);
    for (char const* const name : {"Sound", "Display", "Units", "Language", "Machine", "Boom", "Nozzles"})
    {
        for (int time = 0; time < 12; ++time)
        {
            TTree tree;
            tree.Grow();
            QPointer<TConfigMenu> const row(tree.top->FindConfigMenuByElementID(tree.Id(name)));
            TTrigger trigger;
            int count = 0;
            trigger.action = [&]
            {
                if (count++ >= time && row)
                    row->DeleteElement(tree.Id(name));
            };
            for (TConfigMenu* const from :
                 {tree.top.data(), tree.display.data(), tree.machine.data(), tree.boom.data()})
                connect(from, ("2" + signal).constData(), &trigger, SLOT(OnSignal()));
            Live(tree);
            QVERIFY(count > 0);
            QVERIFY(count <= time || !tree.Element(name));
        }
    }
}

void TConfigMenuTest::theWheelDoesNotPageInAHiddenRowThatItStoppedOn()
{
    TTree tree;
    tree.Grow();
    tree.Show("Display", false);
    tree.Click("Sound");
    tree.completes = false;
    tree.Said();
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, clicked machine, clicked boom"));
    // The owner has turned that down.
    QVERIFY(tree.top->OnNext());
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, clicked machine, clicked boom"));
}

void TConfigMenuTest::aRowThatIsBeingLeftShowsNoScreen()
{
    TTree tree;
    tree.Grow();
    tree.Click("Display");
    tree.Click("Units");
    connect(tree.display, &TConfigMenu::LevelTransition, this,
            [&tree]
            {
                tree.Show("Units", false);
                tree.Show("Colours", false);
            });
    tree.Said();
    tree.Click("Sound");
    QCOMPARE(tree.Said(), QStringLiteral("clicked top, out display 0, hide display, screen /Sound, "
                                         "selected Sound"));
}

void TConfigMenuTest::aClickInAClosedRowLeavesTheOneAbove()
{
    TTree tree;
    tree.Grow();
    tree.completes = false;
    tree.Click("Sound");
    tree.Click("Tank");
    tree.Said();
    tree.top->CompleteSelection(false);
    QCOMPARE(tree.Said(), QStringLiteral("screen /Sound, selected Sound"));
}

COMMONUI_TEST(TConfigMenuTest)
#include "TConfigMenuTest.moc"
