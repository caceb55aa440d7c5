#include "OddTexts.h"
#include "TEditPlacesStage.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TListWidget.h"

#include <QDir>

#include <limits>

namespace
{
constexpr QRect Source(100, 100, 100, 40);
constexpr int ManyRows = 100000;
// Twenty times as many take the same way, but long to make.
constexpr int ManyFolders = 2500;

TEditItem FolderItem(QString const& folder, QStringList const& fixed)
{
    TEditItem item = TEditPlacesStage::ListItem(0);
    item.directory = folder;
    for (int i = 0; i < fixed.size(); ++i)
        item.textItems.setAt(i, fixed.at(i));
    return item;
}

QStringList Texts(TListControl const& list)
{
    QStringList texts;
    for (int i = 0; i < list.GetNumberOfItems(); ++i)
        texts << list.GetItemText(i);
    return texts;
}

/// The row \a row of the list on the window.
QPoint PlaceOfRow(TEditPlacesStage const& stage, int row)
{
    return stage.List()->mapTo(stage.widget->window(),
                               QPoint(20, row * LIST_ROW_HEIGHT + LIST_ROW_HEIGHT / 4));
}

bool IsRowSeen(TEditPlacesStage const& stage, int row)
{
    auto const* const list = stage.List()->findChild<TListWidget*>();
    QRect const place = list->visualItemRect(list->item(row));
    return list->viewport()->rect().contains(place);
}

TEditItem StoredItem(TEditPlacesStage const& stage)
{
    TEditItem item;
    stage.widget->GetEditItemProperty(item);
    return item;
}
} // namespace

/// The list of an edit widget.
class TEditWidgetListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anItemWithoutEntriesYieldsAnEmptyList();
    void folderThatDoesNotExistGivesTheFixedEntriesOnly();
    void multiSelectListShowsThePromptWhateverIsSelected();
    void listThatCannotHoldTwoRowsShowsNoneAndCanBeLeft();
    void cancelBringsBackTheValueAndTheTextComesWithTheNextShowing();

    void rowsAreTheTextsFromMinimumToMaximum();
    void rowsCountFromZeroAndEntriesFromTheMinimum();
    void missingTextsAreEmptyRows();
    void valueOutsideTheBoundsBecomesTheMinimum();
    void foldersFollowTheFixedEntriesInTheirOrder();
    void filesAndHiddenFoldersAreNoEntries();
    void fixedEntriesEndAtTheFirstEmptyOne();
    void foldersAreReadAnewWithTheItem();
    void thousandsOfFoldersAreEntries();
    void hundredThousandRowsOpenAtTheirValue();
    void rowsAreAsWideAsTheItemSays();
    void hiddenEntriesAreHiddenRows();
    void hiddenRowIsRememberedByItsNumber();
    void visibleEntriesAreCounted();
    void numbersHaveNoList();
    void listGoesWithItsKind();
    void anotherItemFillsTheListAnew();
    void hiddenListShowsStars();

    void currentRowIsSeenWhenTheListOpens_data();
    void currentRowIsSeenWhenTheListOpens();
    void currentRowIsSeenInTheOpenList();
    void selectingByCodeTellsNobody();
    void touchedRowIsTheValueButNotAccepted();
    void acceptedRowIsTold();
    void cancelledRowIsForgotten();
    void selectionPastTheMaximumIsTheFirst();
    void fingerIsToldFromPressToRelease();
    void releasedFingerNamesTheEntry();
    void listWithoutButtonsIsAcceptedOnRelease();
    void activeItemIsFoundByItsText();
    void activeItemIsLookedForFromTheMinimum();
    void currentValueSelectsByText();
    void rowsAreSelectedByNumber();
    void severalRowsAreSelected();
    void severalTextsAreJoinedWithCommas();
    void currentValueOfSeveralIsARow();
    void textOfAnEntryChanges();
    void textsOfTheButtonStandForThoseOfTheEntries();
    void invalidOptionsAreNamed();
    void clearedListHasNoEntries();
    void okCanBeDisabled();
    void oddNumbersOfEntriesDoNoHarm_data();
    void oddNumbersOfEntriesDoNoHarm();
    void oddIndicesDoNoHarm();
    void oddTextsDoNoHarm();
    void listMayDieInItsOwnSignals();
    void itemMayChangeInTheSignalsOfTheList();
    void listMayDieBeneathTheFinger();
    void windowMayDieWithItsOpenList();
    void sourceMayDieBeneathAnOpenList();
};

// ---- edge cases ----

void TEditWidgetListTest::anItemWithoutEntriesYieldsAnEmptyList()
{
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, -1, 1);
    TEditPlacesStage stage(item);
    QVERIFY(stage.List());
    stage.OpenOver(Source);
    QCOMPARE(stage.List()->GetNumberOfItems(), 0);
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), 0);
    QCOMPARE(stage.Box().width(), 250);
    QCOMPARE(stage.Rows(), 0);
    QCOMPARE(stage.widget->GetStringValue(), QStringLiteral("Error: Invalid Option (0)"));
}

void TEditWidgetListTest::folderThatDoesNotExistGivesTheFixedEntriesOnly()
{
    TEditPlacesStage stage(FolderItem(QStringLiteral("/no/such/folder"), {"one", "two", "three"}));
    QCOMPARE(Texts(*stage.List()), QStringList({"one", "two", "three"}));
    QCOMPARE(stage.widget->GetMaximumValue(), 2.0);
    TEditPlacesStage empty(FolderItem(QStringLiteral("/no/such/folder"), {}));
    QCOMPARE(empty.List()->GetNumberOfItems(), 0);
    QCOMPARE(empty.widget->GetMaximumValue(), -1.0);
}

void TEditWidgetListTest::multiSelectListShowsThePromptWhateverIsSelected()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.multiSelect = true;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Select from list:"));
    stage.widget->SelectAllListItems();
    stage.widget->SetCurrentValue(2);
    QCOMPARE(stage.widget->GetStringValue(), QStringLiteral("Select from list:"));
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Select from list:"));
}

void TEditWidgetListTest::listThatCannotHoldTwoRowsShowsNoneAndCanBeLeft()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 218);
    stage.OpenOver(Source);
    QCOMPARE(stage.Rows(), 0);
    QSignalSpy const cancelled(stage.widget.data(), &TEditWidget::NumberPadCancelled);
    stage.ListCancel()->click();
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(!stage.widget->isVisible());
}

void TEditWidgetListTest::cancelBringsBackTheValueAndTheTextComesWithTheNextShowing()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.widget->SetCurrentValue(1);
    stage.OpenOver(Source);
    stage.widget->SetCurrentListRow(4);
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
    stage.widget->OnCancelEdit();
    QCOMPARE(stage.widget->GetCurrentValue(), 1.0);
    stage.widget->Open();
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Row 1"));
    // The row goes with the value.
    QCOMPARE(stage.List()->GetSelectedItem(), 1);
    QVERIFY(stage.List()->IsItemSelected(1));
}

// ---- entries ----

void TEditWidgetListTest::rowsAreTheTextsFromMinimumToMaximum()
{
    TEditItem item = TEditPlacesStage::ListItem(9);
    item.minimum = 3;
    item.maximum = 6;
    item.value = 5;
    TEditPlacesStage stage(item);
    QCOMPARE(Texts(*stage.List()), QStringList({"Row 3", "Row 4", "Row 5", "Row 6"}));
    QCOMPARE(stage.List()->GetSelectedItem(), 2);
    QCOMPARE(stage.widget->GetStringValue(), QStringLiteral("Row 5"));
}

void TEditWidgetListTest::rowsCountFromZeroAndEntriesFromTheMinimum()
{
    TEditItem item = TEditPlacesStage::ListItem(9);
    item.minimum = 3;
    item.value = 3;
    TEditPlacesStage stage(item);
    QSignalSpy const changed(stage.widget.data(), &TEditWidget::SelectionChanged);
    stage.widget->SetCurrentListRow(2);
    QCOMPARE(stage.widget->GetCurrentValue(), 5.0);
    QCOMPARE(changed.last().first().toInt(), 2);
    stage.widget->SetTextBasedValue(4, QStringLiteral("new"));
    QCOMPARE(stage.List()->GetItemText(1), QStringLiteral("new"));
    stage.widget->SetItemHidden(4, true);
    QVERIFY(stage.List()->IsItemHidden(1));
    QVERIFY(stage.widget->IsListItemEntryHidden(4));
    QVERIFY(!stage.widget->IsListItemEntryHidden(1));
    // The flag goes with the row, told by its entry.
    item.itemVisibility.setAt(7, false);
    stage.widget->RefreshProperties(&item);
    QVERIFY(stage.List()->IsItemHidden(4));
    QVERIFY(!stage.List()->IsItemHidden(1));
}

void TEditWidgetListTest::missingTextsAreEmptyRows()
{
    TEditItem item = TEditPlacesStage::ListItem(2);
    item.maximum = 3;
    item.value = 3;
    TEditPlacesStage stage(item);
    QCOMPARE(Texts(*stage.List()), QStringList({"Row 0", "Row 1", "", ""}));
    QCOMPARE(stage.widget->GetStringValue(), QString());
}

void TEditWidgetListTest::valueOutsideTheBoundsBecomesTheMinimum()
{
    TEditItem item = TEditPlacesStage::ListItem(5);
    item.minimum = 1;
    for (double const value : {0.0, -1.0, 5.0, 1e300, qQNaN(), qInf()})
    {
        item.value = value;
        TEditPlacesStage const stage(item);
        QCOMPARE(stage.widget->GetCurrentValue(), 1.0);
        QCOMPARE(stage.List()->GetSelectedItem(), 0);
    }
    item.value = 4;
    TEditPlacesStage const stage(item);
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
}

void TEditWidgetListTest::foldersFollowTheFixedEntriesInTheirOrder()
{
    QTemporaryDir const folder;
    for (char const* const name : {"Spring", "Autumn", "zero", "Winter"})
        QVERIFY(QDir(folder.path()).mkdir(QLatin1String(name)));
    TEditItem item = FolderItem(folder.path(), {"None", "All"});
    item.maximum = 77;
    item.value = 4;
    TEditPlacesStage stage(item);
    QStringList const folders = QDir(folder.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    QCOMPARE(folders.size(), 4);
    QCOMPARE(Texts(*stage.List()), QStringList({"None", "All"}) + folders);
    QCOMPARE(stage.widget->GetMaximumValue(), 5.0);
    QCOMPARE(stage.widget->GetStringValue(), folders.at(2));
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("Winter")));
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0 + folders.indexOf(QStringLiteral("Winter")));
}

void TEditWidgetListTest::filesAndHiddenFoldersAreNoEntries()
{
    QTemporaryDir const folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("seen")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral(".hidden")));
    QFile file(folder.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    TEditPlacesStage const stage(FolderItem(folder.path(), {}));
    QCOMPARE(Texts(*stage.List()), QStringList(QStringLiteral("seen")));
}

void TEditWidgetListTest::fixedEntriesEndAtTheFirstEmptyOne()
{
    QTemporaryDir const folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    TEditPlacesStage const stage(FolderItem(folder.path(), {"one", "", "three"}));
    QCOMPARE(Texts(*stage.List()), QStringList({"one", "folder"}));
}

void TEditWidgetListTest::foldersAreReadAnewWithTheItem()
{
    QTemporaryDir const folder;
    TEditItem const item = FolderItem(folder.path(), {"one"});
    TEditPlacesStage stage(item);
    QCOMPARE(stage.List()->GetNumberOfItems(), 1);
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    stage.widget->RefreshProperties(&item);
    QCOMPARE(Texts(*stage.List()), QStringList({"one", "folder"}));
    QCOMPARE(stage.widget->GetMaximumValue(), 1.0);
}

void TEditWidgetListTest::thousandsOfFoldersAreEntries()
{
    QTemporaryDir const folder;
    QDir const dir(folder.path());
    for (int i = 0; i < ManyFolders; ++i)
        QVERIFY(dir.mkdir(QStringLiteral("folder %1").arg(i, 6, 10, QLatin1Char('0'))));
    TEditItem item = FolderItem(folder.path(), {"one"});
    item.value = ManyFolders;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    QCOMPARE(stage.List()->GetNumberOfItems(), ManyFolders + 1);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("folder 002499"));
    QVERIFY(IsRowSeen(stage, ManyFolders));
}

void TEditWidgetListTest::hundredThousandRowsOpenAtTheirValue()
{
    TEditItem item = TEditPlacesStage::ListItem(ManyRows);
    item.value = 77777;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    stage.Picture();
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Row 77777"));
    QVERIFY(IsRowSeen(stage, 77777));
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), ManyRows);
    QVERIFY(stage.window.rect().contains(stage.Box()));
}

void TEditWidgetListTest::rowsAreAsWideAsTheItemSays()
{
    TEditItem item = TEditPlacesStage::ListItem(3);
    item.listItemWidth = 333;
    TEditPlacesStage stage(item);
    QCOMPARE(stage.List()->GetRequiredWidth(), 333);
    item.listItemWidth = -5;
    stage.widget->RefreshProperties(&item);
    QVERIFY(stage.List()->GetRequiredWidth() > 0);
}

void TEditWidgetListTest::hiddenEntriesAreHiddenRows()
{
    TEditItem item = TEditPlacesStage::ListItem(5);
    item.itemVisibility.setAt(1, false);
    item.itemVisibility.setAt(3, false);
    TEditPlacesStage stage(item);
    QVERIFY(!stage.List()->IsItemHidden(0));
    QVERIFY(stage.List()->IsItemHidden(1));
    QVERIFY(stage.List()->IsItemHidden(3));
    QCOMPARE(stage.List()->GetNumberOfVisibleItems(), 3);
    QVERIFY(stage.widget->IsListItemEntryHidden(3));
}

// An old oddity that owners rely on: what is remembered is read from the row that has the entry's number.
void TEditWidgetListTest::hiddenRowIsRememberedByItsNumber()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    TEditPlacesStage stage(item);
    stage.widget->SetItemHidden(2, true);
    QVERIFY(!StoredItem(stage).itemVisibility.at(2));
    stage.widget->SetItemHidden(2, false);
    QVERIFY(StoredItem(stage).itemVisibility.at(2));
    item.minimum = 2;
    item.value = 2;
    stage.widget->RefreshProperties(&item);
    stage.widget->SetItemHidden(3, true);
    QVERIFY(stage.List()->IsItemHidden(1));
    // Row 3 is that of entry 5.
    QVERIFY(StoredItem(stage).itemVisibility.at(3));
    stage.widget->SetItemHidden(5, true);
    stage.widget->SetItemHidden(3, false);
    QVERIFY(!stage.List()->IsItemHidden(1));
    QVERIFY(!StoredItem(stage).itemVisibility.at(3));
}

void TEditWidgetListTest::visibleEntriesAreCounted()
{
    TEditItem item = TEditPlacesStage::ListItem(8);
    item.minimum = 2;
    item.value = 2;
    item.itemVisibility.setAt(1, false);
    item.itemVisibility.setAt(3, false);
    item.itemVisibility.setAt(4, true);
    TEditPlacesStage stage(item);
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), 5);
    stage.widget->SetItemHidden(2, true);
    QCOMPARE(stage.List()->GetNumberOfVisibleItems(), 4);
}

void TEditWidgetListTest::numbersHaveNoList()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    QVERIFY(!stage.List());
    QVERIFY(!stage.widget->SetActiveItem(QStringLiteral("12")));
    QVERIFY(!stage.widget->IsTextItemSelected(0));
    QVERIFY(!stage.widget->IsListItemEntryHidden(0));
    QVERIFY(stage.widget->GetSelectedItems().isEmpty());
    QCOMPARE(stage.widget->GetEditWidgetListHeight(), 0);
    stage.widget->SelectTextItem(0, true);
    stage.widget->SelectAllListItems();
    stage.widget->UnSelectAllListItems();
    stage.widget->SetCurrentListRow(1);
    stage.widget->SetItemHidden(0, true);
    QVERIFY(StoredItem(stage).itemVisibility.at(0));
    stage.widget->ClearPropertyValue();
    QCOMPARE(stage.widget->GetMaximumValue(), 100.0);
    QCOMPARE(stage.widget->GetCurrentValue(), 12.0);
    stage.OpenOver(Source);
    QVERIFY(!stage.ListOk()->isVisible());
    QVERIFY(!stage.ListCancel()->isVisible());
}

void TEditWidgetListTest::listGoesWithItsKind()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(Source);
    QVERIFY(stage.ListOk()->isVisible());
    TEditItem const number = TEditPlacesStage::NumberItem();
    stage.widget->RefreshProperties(&number);
    QVERIFY(!stage.List());
    QVERIFY(!stage.ListOk()->isVisible());
    QVERIFY(stage.Plus()->isVisible());
    TEditItem const list = TEditPlacesStage::ListItem(3);
    stage.widget->RefreshProperties(&list);
    QCOMPARE(stage.List()->GetNumberOfItems(), 3);
    QVERIFY(stage.List()->isVisible());
    QVERIFY(stage.ListOk()->isVisible());
    QVERIFY(!stage.Plus()->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(stage.widget->findChildren<TListControl*>().size(), 1);
}

void TEditWidgetListTest::anotherItemFillsTheListAnew()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(8));
    QPointer<TListControl> const list = stage.List();
    QSignalSpy const changed(stage.widget.data(), &TEditWidget::SelectionChanged);
    TEditItem item = TEditPlacesStage::ListItem(3);
    item.value = 2;
    item.multiSelect = true;
    stage.widget->RefreshProperties(&item);
    QCOMPARE(stage.List(), list.data());
    QCOMPARE(list->GetNumberOfItems(), 3);
    stage.widget->SelectAllListItems();
    QCOMPARE(stage.widget->GetSelectedItems().size(), 3);
    item.multiSelect = false;
    stage.widget->RefreshProperties(&item);
    QCOMPARE(list->GetSelectedItem(), 2);
    QCOMPARE(stage.widget->GetSelectedItems().size(), 1);
    QVERIFY(changed.count() <= 1);
}

void TEditWidgetListTest::hiddenListShowsStars()
{
    TEditItem item = TEditPlacesStage::ListItem(12);
    item.kind = EDIT_KIND_HIDDEN_LIST;
    item.value = 11;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("******"));
    stage.widget->SetCurrentValue(3);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("*****"));
    QCOMPARE(stage.List()->GetItemText(3), QStringLiteral("Row 3"));
    QVERIFY(stage.List()->isVisible());
}

// ---- selection ----

void TEditWidgetListTest::currentRowIsSeenWhenTheListOpens_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("multiSelect");
    for (bool const multiSelect : {false, true})
    {
        for (int const value : {0, 7, 20, 38, 39})
            QTest::addRow("row %d%s", value, multiSelect ? " of several" : "") << value << multiSelect;
    }
}

void TEditWidgetListTest::currentRowIsSeenWhenTheListOpens()
{
    QFETCH(int, value);
    QFETCH(bool, multiSelect);
    TEditItem item = TEditPlacesStage::ListItem(40);
    item.value = value;
    item.multiSelect = multiSelect;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    stage.Picture();
    QVERIFY(stage.Rows() < 20);
    QCOMPARE(stage.List()->GetSelectedItem(), value);
    QVERIFY(IsRowSeen(stage, value));
    // And each time.
    for (int const next : {39, 0, 17})
    {
        stage.widget->Close();
        stage.widget->SetCurrentValue(next);
        stage.widget->Open();
        stage.Picture();
        QVERIFY(IsRowSeen(stage, next));
    }
}

void TEditWidgetListTest::currentRowIsSeenInTheOpenList()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(40));
    stage.OpenOver(Source);
    stage.Picture();
    stage.widget->SetCurrentValue(35);
    stage.Picture();
    QVERIFY(IsRowSeen(stage, 35));
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("Row 3")));
    stage.Picture();
    QVERIFY(IsRowSeen(stage, 3));
}

void TEditWidgetListTest::selectingByCodeTellsNobody()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    TEditPlacesStage stage(item);
    QSignalSpy const changed(stage.widget.data(), &TEditWidget::SelectionChanged);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    stage.widget->SetCurrentValue(3);
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("Row 5")));
    item.value = 2;
    stage.widget->RefreshProperties(&item);
    stage.OpenOver(Source);
    stage.widget->ClearPropertyValue();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(accepted.count(), 0);
}

void TEditWidgetListTest::touchedRowIsTheValueButNotAccepted()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.OpenOver(Source);
    QSignalSpy const changed(stage.widget.data(), &TEditWidget::SelectionChanged);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 3));
    QCOMPARE(stage.widget->GetCurrentValue(), 3.0);
    QVERIFY(changed.count() >= 1);
    QCOMPARE(changed.last().first().toInt(), 3);
    QCOMPARE(accepted.count(), 0);
    QVERIFY(stage.widget->isVisible());
}

void TEditWidgetListTest::acceptedRowIsTold()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.OpenOver(Source);
    QVector<double> accepted;
    bool wasOpen = true;
    connect(stage.widget.data(), &TEditWidget::NewValue, this,
            [&](double value)
            {
                accepted.append(value);
                wasOpen = stage.widget->isVisible();
            });
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 4));
    finger.Touch(stage.ListOk());
    QCOMPARE(accepted, QVector<double>({4.0}));
    QVERIFY(!wasOpen);
    // A cancel does not go behind it.
    stage.widget->Open();
    finger.Touch(PlaceOfRow(stage, 1));
    finger.Touch(stage.ListCancel());
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
    QCOMPARE(accepted.size(), 1);
}

void TEditWidgetListTest::cancelledRowIsForgotten()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.widget->SetCurrentValue(2);
    stage.OpenOver(Source);
    QSignalSpy const cancelled(stage.widget.data(), &TEditWidget::NumberPadCancelled);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 4));
    finger.Touch(stage.ListCancel());
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0);
    QVERIFY(!stage.widget->isVisible());
}

void TEditWidgetListTest::selectionPastTheMaximumIsTheFirst()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.minimum = 2;
    item.value = 2;
    TEditPlacesStage stage(item);
    stage.widget->SetMaximumValue(4);
    QSignalSpy const changed(stage.widget.data(), &TEditWidget::SelectionChanged);
    stage.widget->OnListSelectionChanged(2);
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
    QCOMPARE(changed.last().first().toInt(), 2);
    stage.widget->OnListSelectionChanged(3);
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0);
    QCOMPARE(changed.last().first().toInt(), 0);
}

void TEditWidgetListTest::fingerIsToldFromPressToRelease()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.OpenOver(Source);
    TFinger finger(&stage.window);
    QVERIFY(!stage.widget->IsMousePressing());
    finger.Press(PlaceOfRow(stage, 1));
    QVERIFY(stage.widget->IsMousePressing());
    finger.Lift();
    QVERIFY(!stage.widget->IsMousePressing());
    // A list that goes away beneath the finger.
    finger.Press(PlaceOfRow(stage, 1));
    stage.widget->Close();
    QVERIFY(!stage.widget->IsMousePressing());
}

void TEditWidgetListTest::releasedFingerNamesTheEntry()
{
    TEditItem item = TEditPlacesStage::ListItem(9);
    item.minimum = 3;
    item.value = 3;
    TEditPlacesStage stage(item);
    stage.OpenOver(Source);
    QSignalSpy const released(stage.widget.data(), &TEditWidget::MouseReleased);
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 2));
    QCOMPARE(released.count(), 1);
    QCOMPARE(released.first().first().toInt(), 5);
    stage.widget->OnMouseReleased(-1);
    QCOMPARE(released.last().first().toInt(), -1);
}

void TEditWidgetListTest::listWithoutButtonsIsAcceptedOnRelease()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.widget->ShowListButtons(false);
    connect(stage.widget.data(), &TEditWidget::MouseReleased, stage.widget.data(), &TEditWidget::OnDone);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    stage.OpenOver(Source);
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 5));
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().first().toDouble(), 5.0);
    QVERIFY(!stage.widget->isVisible());
}

void TEditWidgetListTest::activeItemIsFoundByItsText()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.textItems.setAt(4, QStringLiteral("Row 2"));
    TEditPlacesStage stage(item);
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("Row 2")));
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0);
    QCOMPARE(stage.List()->GetSelectedItem(), 2);
    QVERIFY(!stage.widget->SetActiveItem(QStringLiteral("row 2")));
    QVERIFY(!stage.widget->SetActiveItem(QString()));
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0);
    // It is what a cancel goes back to.
    stage.OpenOver(Source);
    stage.widget->SetCurrentListRow(5);
    stage.widget->OnCancelEdit();
    QCOMPARE(stage.widget->GetCurrentValue(), 2.0);
}

void TEditWidgetListTest::activeItemIsLookedForFromTheMinimum()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.textItems.setAt(4, QStringLiteral("Row 1"));
    item.minimum = 2;
    item.value = 2;
    TEditPlacesStage stage(item);
    QVERIFY(!stage.widget->SetActiveItem(QStringLiteral("Row 0")));
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("Row 1")));
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
    QCOMPARE(stage.List()->GetSelectedItem(), 2);
}

void TEditWidgetListTest::currentValueSelectsByText()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.textItems.setAt(4, QStringLiteral("Row 1"));
    item.minimum = 1;
    item.value = 1;
    TEditPlacesStage stage(item);
    stage.widget->SetCurrentValue(3);
    QCOMPARE(stage.List()->GetSelectedItem(), 2);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Row 3"));
    // The first row that reads so is selected; the value stays what it is.
    stage.widget->SetCurrentValue(4);
    QCOMPARE(stage.List()->GetSelectedItem(), 0);
    QCOMPARE(stage.widget->GetCurrentValue(), 4.0);
    // What no row reads selects none.
    stage.widget->SetCurrentValue(99);
    QCOMPARE(stage.List()->GetSelectedItem(), 0);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Error: Invalid Option (99)"));
}

void TEditWidgetListTest::rowsAreSelectedByNumber()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.widget->SelectTextItem(3, true);
    QVERIFY(stage.widget->IsTextItemSelected(3));
    stage.widget->SelectTextItem(3, false);
    QVERIFY(!stage.widget->IsTextItemSelected(3));
    stage.widget->SetCurrentListRow(5);
    QVERIFY(stage.widget->IsTextItemSelected(5));
    QVERIFY(!stage.widget->IsTextItemSelected(6));
    QVERIFY(!stage.widget->IsTextItemSelected(std::numeric_limits<unsigned>::max()));
}

void TEditWidgetListTest::severalRowsAreSelected()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.multiSelect = true;
    TEditPlacesStage stage(item);
    stage.widget->UnSelectAllListItems();
    QVERIFY(stage.widget->GetSelectedItems().isEmpty());
    stage.OpenOver(Source);
    TFinger finger(&stage.window);
    finger.Touch(PlaceOfRow(stage, 1));
    finger.Touch(PlaceOfRow(stage, 3));
    QCOMPARE(stage.widget->GetSelectedItems().size(), 2);
    QVERIFY(stage.widget->IsTextItemSelected(1));
    QVERIFY(stage.widget->IsTextItemSelected(3));
    finger.Touch(PlaceOfRow(stage, 1));
    QVERIFY(!stage.widget->IsTextItemSelected(1));
    stage.widget->SelectAllListItems();
    QCOMPARE(stage.widget->GetSelectedItems().size(), 6);
}

void TEditWidgetListTest::severalTextsAreJoinedWithCommas()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.multiSelect = true;
    item.showSelection = true;
    TEditPlacesStage stage(item);
    stage.widget->UnSelectAllListItems();
    QCOMPARE(stage.widget->GetStringValue(), QString());
    stage.widget->SelectTextItem(4, true);
    stage.widget->SelectTextItem(1, true);
    QCOMPARE(stage.widget->GetStringValue(), QStringLiteral("Row 1,Row 4"));
    stage.OpenOver(Source);
    QCOMPARE(stage.Value()->GetText(), QStringLiteral("Row 1,Row 4"));
}

void TEditWidgetListTest::currentValueOfSeveralIsARow()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.multiSelect = true;
    TEditPlacesStage stage(item);
    stage.widget->UnSelectAllListItems();
    stage.widget->SetCurrentValue(2);
    stage.widget->SetCurrentValue(4);
    QVERIFY(stage.widget->IsTextItemSelected(2));
    QVERIFY(stage.widget->IsTextItemSelected(4));
    QCOMPARE(stage.widget->GetSelectedItems().size(), 2);
}

void TEditWidgetListTest::textOfAnEntryChanges()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(3));
    stage.widget->SetTextBasedValue(1, QStringLiteral("another"));
    QCOMPARE(stage.List()->GetItemText(1), QStringLiteral("another"));
    QCOMPARE(StoredItem(stage).textItems.at(1), QStringLiteral("another"));
    QVERIFY(stage.widget->SetActiveItem(QStringLiteral("another")));
    QCOMPARE(stage.widget->GetStringValue(), QStringLiteral("another"));
}

void TEditWidgetListTest::textsOfTheButtonStandForThoseOfTheEntries()
{
    TEditItem item = TEditPlacesStage::ListItem(3);
    TEditPlacesStage stage(item);
    stage.widget->SetCurrentValue(1);
    item.useButtonText = true;
    stage.widget->RefreshProperties(&item);
    QCOMPARE(stage.widget->GetStringValue(2), QStringLiteral("Row 1"));
    QCOMPARE(stage.widget->GetStringValue(77), QStringLiteral("Row 1"));
}

void TEditWidgetListTest::invalidOptionsAreNamed()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(3));
    QCOMPARE(stage.widget->GetStringValue(2), QStringLiteral("Row 2"));
    QCOMPARE(stage.widget->GetStringValue(3), QStringLiteral("Error: Invalid Option (3)"));
    QCOMPARE(stage.widget->GetStringValue(-1), QStringLiteral("Error: Invalid Option (-1)"));
}

void TEditWidgetListTest::clearedListHasNoEntries()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.widget->ClearPropertyValue();
    QCOMPARE(stage.List()->GetNumberOfItems(), 0);
    QCOMPARE(stage.widget->GetMinimumValue(), 0.0);
    QCOMPARE(stage.widget->GetMaximumValue(), -1.0);
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), 0);
    stage.OpenOver(Source);
    QCOMPARE(stage.Box(), QRect(200, 80, 250, 120));
}

void TEditWidgetListTest::okCanBeDisabled()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.OpenOver(Source);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    stage.widget->controlOKButton(false);
    TFinger finger(&stage.window);
    finger.Touch(stage.ListOk());
    QCOMPARE(accepted.count(), 0);
    stage.widget->controlOKButton(true);
    finger.Touch(stage.ListOk());
    QCOMPARE(accepted.count(), 1);
}

// ---- bad input ----

void TEditWidgetListTest::oddNumbersOfEntriesDoNoHarm_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("rows");
    QTest::newRow("no minimum") << qQNaN() << 3.0 << 4;
    QTest::newRow("no maximum") << 0.0 << qQNaN() << 1;
    QTest::newRow("neither") << qQNaN() << qQNaN() << 1;
    QTest::newRow("below zero") << -3.0 << 3.0 << 4;
    QTest::newRow("all below zero") << -9.0 << -3.0 << 0;
    QTest::newRow("wrong way round") << 3.0 << 1.0 << 0;
    QTest::newRow("huge minimum") << 1e300 << 3.0 << 0;
    QTest::newRow("smallest minimum") << -1e300 << 3.0 << 4;
    QTest::newRow("infinite minimum") << -qInf() << 3.0 << 1 + 3;
    QTest::newRow("huge maximum") << 199990.0 << 1e300 << 10;
    QTest::newRow("infinite maximum") << 199990.0 << qInf() << 10;
    QTest::newRow("fractions") << 0.5 << 2.5 << 3;
}

void TEditWidgetListTest::oddNumbersOfEntriesDoNoHarm()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(int, rows);
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.minimum = minimum;
    item.maximum = maximum;
    item.value = 1;
    TEditPlacesStage stage(item);
    QCOMPARE(stage.List()->GetNumberOfItems(), rows);
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), rows);
    stage.OpenOver(Source);
    QSignalSpy const accepted(stage.widget.data(), &TEditWidget::NewValue);
    for (int row = 0; row < rows; ++row)
    {
        stage.widget->SetCurrentListRow(row);
        QVERIFY(qIsFinite(stage.widget->GetCurrentValue()));
        // The value reads as its row does.
        QCOMPARE(stage.widget->GetStringValue(), stage.List()->GetItemText(row));
    }
    stage.ListOk()->click();
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!qIsNaN(accepted.first().first().toDouble()));
}

void TEditWidgetListTest::oddIndicesDoNoHarm()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(Source);
    for (int const index :
         {-1, -1000, 4, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        stage.widget->SelectTextItem(index, true);
        stage.widget->SelectTextItem(index, false);
        stage.widget->SetItemHidden(index, true);
        stage.widget->SetTextBasedValue(index, QStringLiteral("text"));
        stage.widget->OnListSelectionChanged(index);
        stage.widget->OnMouseReleased(index);
        QVERIFY(!stage.widget->IsListItemEntryHidden(index));
        QVERIFY(!stage.widget->IsTextItemSelected(unsigned(index)));
    }
    for (double const value : {-1.0, 4.0, 1e300, -1e300, qQNaN(), qInf()})
    {
        stage.widget->SetCurrentValue(value);
        QVERIFY(stage.widget->GetStringValue().startsWith(QStringLiteral("Error")) || qIsNaN(value));
    }
    QCOMPARE(Texts(*stage.List()), QStringList({"Row 0", "Row 1", "Row 2", "Row 3"}));
}

void TEditWidgetListTest::oddTextsDoNoHarm()
{
    QStringList const texts = {QStringLiteral("two\nlines"), QStringLiteral("\r\n\t\v"),
                               QString(QChar(0)) + QStringLiteral("zero"), QString(100000, QLatin1Char('x')),
                               QString(QChar(0xD800))};
    TEditItem item = TEditPlacesStage::ListItem(0);
    for (int i = 0; i < texts.size(); ++i)
        item.textItems.setAt(i, texts.at(i));
    item.maximum = texts.size() - 1;
    item.showListTitle = true;
    TEditPlacesStage stage(item);
    for (QString const& text : texts)
    {
        QVERIFY(stage.widget->SetActiveItem(text));
        stage.widget->SetTitle(text);
        stage.OpenOver(Source);
        stage.Picture();
        QCOMPARE(stage.widget->GetStringValue(), text);
        QVERIFY(stage.window.rect().contains(stage.ListCancel()->geometry()));
        stage.widget->Close();
    }
}

void TEditWidgetListTest::listMayDieInItsOwnSignals()
{
    enum ESignal
    {
        SELECTION,
        RELEASE,
        ACCEPT,
        CANCEL,
        END
    };
    for (int which = SELECTION; which != END; ++which)
    {
        TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
        stage.OpenOver(Source);
        TEditWidget* const widget = stage.widget;
        auto const die = [widget] { delete widget; };
        if (which == SELECTION)
            connect(widget, &TEditWidget::SelectionChanged, this, die);
        else if (which == RELEASE)
            connect(widget, &TEditWidget::MouseReleased, this, die);
        else if (which == ACCEPT)
            connect(widget, &TEditWidget::NewValue, this, die);
        else
            connect(widget, &TEditWidget::NumberPadCancelled, this, die);
        QPoint const ok = stage.ListOk()->geometry().center();
        QPoint const cancel = stage.ListCancel()->geometry().center();
        TFinger finger(&stage.window);
        finger.Touch(PlaceOfRow(stage, 3));
        if (stage.widget)
            finger.Touch(which == ACCEPT ? ok : cancel);
        QVERIFY(!stage.widget);
    }
}

void TEditWidgetListTest::itemMayChangeInTheSignalsOfTheList()
{
    TEditItem const number = TEditPlacesStage::NumberItem();
    for (bool const onRelease : {false, true})
    {
        TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
        stage.OpenOver(Source);
        TEditWidget* const widget = stage.widget;
        auto const change = [widget, &number] { widget->RefreshProperties(&number); };
        if (onRelease)
            connect(widget, &TEditWidget::MouseReleased, this, change);
        else
            connect(widget, &TEditWidget::SelectionChanged, this, change);
        TFinger finger(&stage.window);
        finger.Touch(PlaceOfRow(stage, 3));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.List());
        QCOMPARE(widget->GetCurrentValue(), 12.0);
        QVERIFY(stage.Plus()->isVisible());
    }
}

void TEditWidgetListTest::listMayDieBeneathTheFinger()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    stage.OpenOver(Source);
    TFinger finger(&stage.window);
    finger.Press(PlaceOfRow(stage, 2));
    delete stage.widget.data();
    finger.Lift();
    QVERIFY(!stage.platform.m_Widget);
}

void TEditWidgetListTest::windowMayDieWithItsOpenList()
{
    TTestScreen const screen;
    auto* const window = new TRoomWindow;
    TAnnotatingPlatform const platform(window);
    QPointer<TOpenEditWidget> const widget = new TOpenEditWidget(TEditPlacesStage::ListItem(6));
    widget->SetPosition(nullptr, [](QWidget*) { return Source; });
    window->show();
    widget->Open();
    QCOMPARE(widget->parentWidget(), static_cast<QWidget*>(window));
    delete window;
    QVERIFY(!widget);
}

void TEditWidgetListTest::sourceMayDieBeneathAnOpenList()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(6));
    auto* const source = new QWidget(&stage.window);
    source->setGeometry(Source);
    stage.widget->SetPosition(source);
    stage.widget->Open();
    QRect const box = stage.Box();
    stage.widget->PositionChanged();
    delete source;
    QCoreApplication::processEvents();
    QCOMPARE(stage.Box(), box);
    stage.ListOk()->click();
    QVERIFY(!stage.widget->isVisible());
}

COMMONUI_TEST(TEditWidgetListTest)
#include "TEditWidgetListTest.moc"
