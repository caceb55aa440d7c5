#include "TMultiListControl.h"

#include "GoldenPicture.h"
#include "Metrics.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TLabel.h"
#include "TListPicker.h"
#include "TMMICapableWidgetNavigator.h"

#include <QSignalSpy>

#include <climits>

namespace
{
using TIds = QVector<int>;
using TTexts = QVector<QString>;

TEditItem Products(int count)
{
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, count - 1, 1);
    for (int i = 0; i < count; ++i)
        item.textItems.setAt(i, QStringLiteral("Product %1").arg(i + 1));
    return item;
}

/// A control over a button of the main screen, with two rows of three and one of one.
class TMultiListStage
{
public:
    explicit TMultiListStage(int products = 3)
        : source(screen.get())
        , navigator(screen.get())
        , finger(screen.get())
        , picker(finger)
    {
        screen->SetMMINavigator(&navigator);
        source.setGeometry(40, 500, 100, 40);
        source.show();
        TEditItem item = Products(products);
        control = new TMultiListControl(nullptr, &item);
        control->Setup();
        SetRow(0);
        SetRow(1);
        control->SetRowItems(2, QStringLiteral("Tank"), {7}, {QStringLiteral("front")}, {});
        control->ShowHideButtonControls(2, true);
    }
    ~TMultiListStage() { delete control.data(); }
    TMultiListStage(TMultiListStage const&) = delete;
    TMultiListStage& operator=(TMultiListStage const&) = delete;

    void SetRow(int row)
    {
        control->SetRowItems(row, QStringLiteral("Row %1").arg(row), {10, 20, 30},
                             {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")},
                             {QStringLiteral("long a"), QStringLiteral("long b"), QStringLiteral("long c")});
        control->ShowHideButtonControls(row, true);
    }
    void Open()
    {
        control->SetPosition(&source);
        control->Open();
        QCoreApplication::processEvents();
    }
    /// The buttons of a row that is shown, from left to right.
    QList<TPushButton*> Buttons(int row) const
    {
        QRect const middle = control->GetEditButtonMappedRect(row, control);
        QList<TPushButton*> buttons;
        auto const all = control->findChildren<TPushButton*>();
        for (TPushButton* const button : all)
        {
            QPoint const place = button->mapTo(control, QPoint());
            if (button->isVisibleTo(control) && button->parentWidget() != control && place.y() == middle.y())
                buttons << button;
        }
        std::sort(buttons.begin(), buttons.end(),
                  [](TPushButton const* a, TPushButton const* b) { return a->x() < b->x(); });
        return buttons;
    }
    void Previous(int row) { finger.Touch(Buttons(row).at(0)); }
    void Middle(int row) { finger.Touch(Buttons(row).at(1)); }
    void Next(int row) { finger.Touch(Buttons(row).at(2)); }
    QString Shown(int row) const { return Buttons(row).at(1)->GetText(); }
    void Tick(qint64 ms = 100)
    {
        screen.m_Clock.Advance(ms);
        navigator.UpdateFocus();
    }

    TTestScreen screen;
    QWidget source;
    TMMICapableWidgetNavigator navigator;
    TFinger finger;
    TListPicker picker;
    QPointer<TMultiListControl> control;
};
} // namespace

class TMultiListControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void previousOnTheFirstOfThreeGoesToTheLast();
    void nextOnTheLastGoesToTheFirst();
    void theMiddleButtonTellsItsRow();
    void anEmptyRowIgnoresItsButtons();
    void unknownButtonsAreIgnored();
    void longTextsGoFirst();
    void hiddenAndEmptyRowsAnswerNothing();
    void aHiddenRowTakesNoIndex();
    void aRowIsSelectedByItsFirstSuchId();
    void newEntriesKeepTheId();
    void wrongRowsAreIgnored();
    void theHeightCountsAllRowsOfButtons();
    void theWindowStandsInTheMiddle();
    void theWindowIsNoHigherThanItsParent();
    void hiddenRowsTakeNoRoom();
    void theTitleTakesItsRoomAtOnce();
    void anotherSizeOfTheParentFitsItAnew();
    void labelsHaveTheirHeight();
    void middleButtonsAreMappedBelowFive();
    void theListIsEditedAsEver();
    void theValueButtonIsNeverSeen();
    void theWheelReachesButtonsAndList();
    void picture();
    void slotsMayDeleteIt_data();
    void slotsMayDeleteIt();
};

void TMultiListControlTest::previousOnTheFirstOfThreeGoesToTheLast()
{
    TMultiListStage stage;
    stage.Open();
    QSignalSpy const told(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    stage.Previous(1);
    QCOMPARE(stage.control->GetSelectedRowIndex(1), 2);
    QCOMPARE(stage.Shown(1), QStringLiteral("long c"));
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.at(0), QVariantList({1, 30}));
    stage.Previous(1);
    QCOMPARE(stage.control->GetSelectedRowItem(1), 20);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 0);
}

void TMultiListControlTest::nextOnTheLastGoesToTheFirst()
{
    TMultiListStage stage;
    stage.Open();
    stage.control->SelectRowIndex(0, 2);
    QSignalSpy const told(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    stage.Next(0);
    stage.Next(0);
    QCOMPARE(stage.Shown(0), QStringLiteral("long b"));
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.at(0), QVariantList({0, 10}));
}

void TMultiListControlTest::theMiddleButtonTellsItsRow()
{
    TMultiListStage stage;
    stage.Open();
    QSignalSpy const told(stage.control.data(), &TMultiListControl::MiddleButtonClicked);
    stage.Middle(2);
    stage.Middle(0);
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.at(0).constFirst().toInt(), 2);
    QCOMPARE(told.at(1).constFirst().toInt(), 0);
}

void TMultiListControlTest::anEmptyRowIgnoresItsButtons()
{
    TMultiListStage stage;
    stage.Open();
    QString const before = stage.Shown(0);
    stage.control->SetRowItems(0, QStringLiteral("none"), {}, {QStringLiteral("a")}, {QStringLiteral("b")});
    QSignalSpy const told(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    stage.Previous(0);
    stage.Next(0);
    stage.control->UpdateMiddleButtonText(0);
    QCOMPARE(told.count(), 0);
    QCOMPARE(stage.Shown(0), before);
}

void TMultiListControlTest::unknownButtonsAreIgnored()
{
    TMultiListStage stage;
    QSignalSpy const stepped(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    QSignalSpy const middle(stage.control.data(), &TMultiListControl::MiddleButtonClicked);
    for (int const id : {-1, 99, INT_MAX, INT_MIN})
    {
        stage.control->OnPreviousButtonClicked(id);
        stage.control->OnNextButtonClicked(id);
        stage.control->OnMiddleButtonClicked(id);
    }
    QCOMPARE(stepped.count() + middle.count(), 0);
}

void TMultiListControlTest::longTextsGoFirst()
{
    TMultiListStage stage;
    stage.Open();
    QCOMPARE(stage.Shown(0), QStringLiteral("long a"));
    QCOMPARE(stage.Shown(2), QStringLiteral("front"));
    // Fewer texts than ids leave the button empty.
    stage.control->SetRowItems(2, QString(), {1, 2}, {QStringLiteral("one")}, {});
    stage.control->SelectRowIndex(2, 1);
    QCOMPARE(stage.Shown(2), QString());
}

void TMultiListControlTest::hiddenAndEmptyRowsAnswerNothing()
{
    TMultiListStage stage;
    QCOMPARE(stage.control->GetMaxRowIndex(0), 2);
    QCOMPARE(stage.control->GetSelectedRowItem(2), 7);
    stage.control->ShowHideButtonControls(0, false);
    stage.control->SetRowItems(1, QString(), {}, {}, {});
    for (int const row : {0, 1, 3})
    {
        QCOMPARE(stage.control->GetSelectedRowIndex(row), -1);
        QCOMPARE(stage.control->GetSelectedRowItem(row), -1);
        QCOMPARE(stage.control->GetMaxRowIndex(row), -1);
    }
}

void TMultiListControlTest::aHiddenRowTakesNoIndex()
{
    TMultiListStage stage;
    stage.control->ShowHideButtonControls(0, false);
    stage.control->SelectRowIndex(0, 2);
    stage.control->ShowHideButtonControls(0, true);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 0);
    for (int const index : {-1, 3, INT_MAX})
        stage.control->SelectRowIndex(0, index);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 0);
    stage.control->SelectRowIndex(0, 2);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 2);
}

void TMultiListControlTest::aRowIsSelectedByItsFirstSuchId()
{
    TMultiListStage stage;
    stage.Open();
    stage.control->SetRowItems(0, QString(), {5, 6, 6},
                               {QStringLiteral("five"), QStringLiteral("six"), QStringLiteral("again")}, {});
    QSignalSpy const told(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    stage.control->SelectRowItem(0, 6);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 1);
    QCOMPARE(stage.Shown(0), QStringLiteral("six"));
    stage.control->SelectRowItem(0, 77);
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 1);
    QCOMPARE(told.count(), 0);
}

void TMultiListControlTest::newEntriesKeepTheId()
{
    TMultiListStage stage;
    stage.control->SelectRowItem(0, 20);
    stage.control->SetRowItems(0, QString(), {30, 40, 20}, {}, {});
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 2);
    // The id is gone: the index stays.
    stage.control->SetRowItems(0, QString(), {1, 2, 3}, {}, {});
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 2);
    // An index without an entry stands for the id 0.
    stage.control->SetRowItems(0, QString(), {8}, {}, {});
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 2);
    stage.control->SetRowItems(0, QString(), {9, 0}, {}, {});
    QCOMPARE(stage.control->GetSelectedRowIndex(0), 1);
}

void TMultiListControlTest::wrongRowsAreIgnored()
{
    TMultiListStage stage;
    for (int const row : {-1, 4, INT_MAX, INT_MIN})
    {
        stage.control->SetRowItems(row, QStringLiteral("x"), {1}, {}, {});
        stage.control->ShowHideButtonControls(row, true);
        stage.control->SelectRowIndex(row, 0);
        stage.control->SelectRowItem(row, 1);
        stage.control->UpdateMiddleButtonText(row);
        QCOMPARE(stage.control->GetMaxRowIndex(row), -1);
        QVERIFY(stage.control->GetEditButtonMappedRect(row, stage.screen.get()).isEmpty());
    }
}

void TMultiListControlTest::theHeightCountsAllRowsOfButtons()
{
    TMultiListStage stage;
    stage.Open();
    QCOMPARE(stage.control->GetMultiListControlHeight(),
             3 * LIST_ROW_HEIGHT + 2 * LIST_BORDER + 4 * STANDARD_BUTTON_HEIGHT + LIST_BORDER);
    stage.control->SetItemHidden(1, true);
    QCOMPARE(stage.control->GetMultiListControlHeight(),
             2 * LIST_ROW_HEIGHT + 2 * LIST_BORDER + 4 * STANDARD_BUTTON_HEIGHT + LIST_BORDER);
}

void TMultiListControlTest::theWindowStandsInTheMiddle()
{
    TMultiListStage stage;
    stage.Open();
    QRect const window = stage.control->geometry();
    QCOMPARE(window.width(), POPUP_WINDOW_WIDTH);
    QCOMPARE(window.x(), (SCREEN_WIDTH - POPUP_WINDOW_WIDTH) / 2);
    QCOMPARE(window.y(), POPUP_WINDOW_POS_Y);
    auto* const list = stage.control->findChild<TListControl*>();
    QCOMPARE(list->height(), 3 * LIST_ROW_HEIGHT);
    // The list, then 8 pixels, the buttons, the border and the shadow.
    QCOMPARE(window.height(), list->geometry().bottom() + 1 + 8 + TASK_WINDOW_BUTTON_HEIGHT + LIST_BORDER +
                                  INPUT_WINDOW_SHADOW_SIZE);
    QCOMPARE(stage.control->parentWidget(), stage.screen.get());
    QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
}

void TMultiListControlTest::theWindowIsNoHigherThanItsParent()
{
    TMultiListStage stage(40);
    stage.Open();
    QVERIFY(stage.control->height() <= SCREEN_HEIGHT);
    QCOMPARE(stage.control->y(), qMin(SCREEN_HEIGHT - stage.control->height(), POPUP_WINDOW_POS_Y));
    auto* const list = stage.control->findChild<TListControl*>();
    QCOMPARE(list->height() % LIST_ROW_HEIGHT, 0);
    QVERIFY(list->height() > 2 * LIST_ROW_HEIGHT);
    QVERIFY(SCREEN_HEIGHT - stage.control->height() < LIST_ROW_HEIGHT);
    QVERIFY(stage.control->rect().contains(list->geometry()));
}

void TMultiListControlTest::hiddenRowsTakeNoRoom()
{
    TMultiListStage stage;
    stage.Open();
    int const height = stage.control->height();
    stage.control->ShowHideButtonControls(1, false);
    QCOMPARE(height - stage.control->height(), 28 + STANDARD_BUTTON_HEIGHT);
    stage.control->ShowHideButtonControls(3, true);
    QCOMPARE(stage.control->height(), height);
}

void TMultiListControlTest::theTitleTakesItsRoomAtOnce()
{
    TMultiListStage stage;
    int const withoutTitle = stage.control->GetMultiListControlHeight();
    TEditItem item = Products(3);
    item.showListTitle = true;
    stage.control->RefreshProperties(&item);
    stage.Open();
    int const height = stage.control->height();
    stage.control->SetTitle(QStringLiteral("Product"));
    QCOMPARE(stage.control->height(), height + LIST_BORDER);
    QCOMPARE(stage.control->GetMultiListControlHeight(), withoutTitle + LIST_BORDER);
    // The second time it stands as the first time.
    stage.control->Close();
    stage.Open();
    QCOMPARE(stage.control->height(), height + LIST_BORDER);
}

void TMultiListControlTest::anotherSizeOfTheParentFitsItAnew()
{
    TMultiListStage stage;
    stage.Open();
    stage.screen->resize(SCREEN_WIDTH - 100, 400);
    stage.control->PositionChanged();
    QCoreApplication::processEvents();
    QCOMPARE(stage.control->x(), (SCREEN_WIDTH - 100 - POPUP_WINDOW_WIDTH) / 2);
    QVERIFY(stage.control->height() <= 400);
}

void TMultiListControlTest::labelsHaveTheirHeight()
{
    TMultiListStage stage;
    stage.Open();
    auto const labels = stage.control->findChildren<TLabel*>();
    QCOMPARE(labels.size(), 4);
    for (TLabel const* const label : labels)
        QCOMPARE(label->height(), 28);
    QCOMPARE(labels.at(2)->text(), QStringLiteral("Tank"));
}

void TMultiListControlTest::middleButtonsAreMappedBelowFive()
{
    TMultiListStage stage;
    stage.Open();
    QRect const rect = stage.control->GetEditButtonMappedRect(1, stage.screen.get());
    TPushButton const* const middle = stage.Buttons(1).at(1);
    QCOMPARE(rect, QRect(middle->mapTo(stage.screen.get(), QPoint()), middle->size()));
    QVERIFY(stage.control->GetEditButtonMappedRect(5, stage.screen.get()).isEmpty());
    QVERIFY(stage.control->GetEditButtonMappedRect(1, nullptr).isEmpty());
}

void TMultiListControlTest::theListIsEditedAsEver()
{
    TMultiListStage stage;
    stage.Open();
    QSignalSpy const accepted(stage.control.data(), &TEditWidget::NewValue);
    stage.picker.TouchRow(2);
    stage.picker.Accept();
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).constFirst().toDouble(), 2.0);
    QVERIFY(stage.control->isHidden());
    QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
    stage.Open();
    stage.picker.TouchRow(0);
    stage.picker.GiveUp();
    QCOMPARE(stage.control->GetCurrentValue(), 2.0);
}

void TMultiListControlTest::theValueButtonIsNeverSeen()
{
    TMultiListStage stage;
    TEditItem const item = Products(2);
    stage.control->RefreshProperties(&item);
    stage.Open();
    stage.control->RefreshProperties(&item);
    stage.control->PositionChanged();
    QCoreApplication::processEvents();
    auto const buttons = stage.control->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    int shown = 0;
    for (TPushButton const* const button : buttons)
        shown += button->isVisible() ? 1 : 0;
    QCOMPARE(shown, 2);
    QCOMPARE(stage.control->x(), (SCREEN_WIDTH - POPUP_WINDOW_WIDTH) / 2);
}

void TMultiListControlTest::theWheelReachesButtonsAndList()
{
    TMultiListStage stage;
    stage.Open();
    stage.Tick(1000);
    stage.navigator.OnWheelRight();
    stage.Tick();
    stage.navigator.OnWheelRight();
    stage.Tick();
    stage.navigator.OnWheelRight();
    stage.Tick();
    QSignalSpy const told(stage.control.data(), &TMultiListControl::RowItemSelectionChanged);
    stage.navigator.OnEnter();
    QTRY_COMPARE_WITH_TIMEOUT(told.count(), 1, 2000);
    QSignalSpy const cancelled(stage.control.data(), &TEditWidget::NumberPadCancelled);
    stage.navigator.OnBack();
    QTRY_COMPARE_WITH_TIMEOUT(cancelled.count(), 1, 2000);
}

void TMultiListControlTest::picture()
{
    TMultiListStage stage(5);
    stage.control->SetTitle(QStringLiteral("Product and tank"));
    TEditItem item = Products(5);
    item.showListTitle = true;
    item.value = 1;
    stage.control->RefreshProperties(&item);
    stage.Open();
    COMPARE_PICTURE(stage.screen->grab(stage.control->geometry()).toImage(), "multi-list");
}

void TMultiListControlTest::slotsMayDeleteIt_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("a step") << 2;
    QTest::newRow("the middle") << 1;
}

void TMultiListControlTest::slotsMayDeleteIt()
{
    QFETCH(int, button);
    TMultiListStage stage;
    stage.Open();
    connect(stage.control.data(), &TMultiListControl::RowItemSelectionChanged, this,
            [&stage] { delete stage.control.data(); });
    connect(stage.control.data(), &TMultiListControl::MiddleButtonClicked, this,
            [&stage] { delete stage.control.data(); });
    stage.finger.Touch(stage.Buttons(0).at(button));
    QVERIFY(!stage.control);
    QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
}

COMMONUI_TEST(TMultiListControlTest)

#include "TMultiListControlTest.moc"
