#include "TListControl.h"

#include "GoldenPicture.h"
#include "Palette.h"
#include "TCanvas.h"
#include "TEditContainer.h"
#include "TestCase.h"
#include "TListStage.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"

#include <QScrollBar>
#include <QSignalSpy>

#include <climits>

namespace
{
constexpr QSize ControlSize(320, 260);

class TLowRows : public TListControl
{
public:
    using TListControl::TListControl;

    int GetListRowHeight() override { return 40; }
};

/// A shown window with a control, a finger and a wheel.
class TControlStage
{
public:
    TControlStage()
        : control(new TListControl(&window))
        , finger(&window)
    {
        window.setPalette(QPalette(StageGround));
        window.resize(500, 400);
        control->setGeometry(QRect(QPoint(40, 30), ControlSize));
        window.show();
        QCoreApplication::processEvents();
    }

    TListWidget* List() const { return control->findChild<TListWidget*>(); }
    TPushButton* Button(int id) const
    {
        auto const buttons = control->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
        for (TPushButton* const button : buttons)
        {
            if (button->GetButtonId() == id)
                return button;
        }
        return nullptr;
    }
    void Fill(int count) const
    {
        for (int i = 0; i < count; ++i)
            control->AddString(QStringLiteral("row %1").arg(i));
        QCoreApplication::processEvents();
    }
    QPoint PlaceOfRow(int row) const
    {
        return List()->mapTo(const_cast<QWidget*>(&window), QPoint(20, row * RowHeight + RowHeight / 2));
    }
    /// The second touch comes as a double click.
    void DoubleTouch(QPoint const& place) const
    {
        QPointer<QWidget> const viewport = List()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
        if (viewport)
            QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, place);
    }
    QColor Ground() const { return List()->palette().color(QPalette::Base); }

    TTestScreen screen;
    TListToolTips toolTips;
    QWidget window;
    QPointer<TListControl> control;
    TFinger finger;
};
} // namespace

class TListControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_Stage = std::make_unique<TControlStage>(); }
    void cleanup() { m_Stage.reset(); }

    void rowsAreThoseOfTheList();
    void heightOfItsRowsMayBeAnother();
    void sizeFollowsItsRows();
    void requiredHeightCountsTheRows();

    void listStandsWithinItsRectangle_data();
    void listStandsWithinItsRectangle();
    void listFollowsTheControl();
    void onlyCompleteRowsAreShown_data();
    void onlyCompleteRowsAreShown();
    void positionFixesTheSize_data();
    void positionFixesTheSize();
    void buttonsNeedTheirRoom();
    void modeIsAppliedToTheList();

    void selectItemWithAnIndexOutsideTheListDoesNothing();
    void selectionByTextIsExact();
    void selectionOfSeveral();
    void scrollDownAtTheLastRowGoesToRowZero();
    void scrollPassesOverHiddenRows();
    void withAllRowsHiddenTheWheelLeavesTheSelectionWhereItIs();
    void scrollWithoutASelectionBeginsAtAnEnd();
    void wheelStopsAtTheEnds();
    void wheelStopsAtTheListWithin();

    void groundIsTheFirstThatApplies();
    void glassSetsUp();

    void touchIsToldInOrder();
    void doubleClickIsTold();
    void chosenAndCancelled();
    void setUpTwiceTellsOnce();
    void shownByItselfOnTheScreen();
    void pictures();

    void slotsMayDeleteIt_data();
    void slotsMayDeleteIt();
    void deletedWhilePressed();
    void deletedWhileLocked();

private:
    std::unique_ptr<TControlStage> m_Stage;
};

void TListControlTest::rowsAreThoseOfTheList()
{
    TListControl& control = *m_Stage->control;
    QCOMPARE(control.AddString(QStringLiteral("one")), 1);
    QCOMPARE(control.AddString(QStringLiteral("two"), 700), 2);
    QCOMPARE(control.AddString(QStringLiteral("three")), 3);
    QCOMPARE(control.GetNumberOfItems(), 3);
    QCOMPARE(control.GetItemText(1), QStringLiteral("two"));
    QCOMPARE(control.GetRequiredWidth(), 700);
    QCOMPARE(control.GetItemData(0, Qt::SizeHintRole).toSize().height(), 50);
    control.SetItemText(1, QStringLiteral("deux"), 600);
    QCOMPARE(control.GetRequiredWidth(), 600);
    QCOMPARE(control.GetIndexfromText(QStringLiteral("deux")), 1);
    QCOMPARE(control.GetIndexfromText(QStringLiteral("two")), -1);
    control.SetItemData(0, Qt::UserRole, 7);
    QCOMPARE(control.GetItemData(0, Qt::UserRole).toInt(), 7);
    control.SetItemHidden(2, true);
    QVERIFY(control.IsItemHidden(2));
    QCOMPARE(control.GetNumberOfVisibleItems(), 2);
    TEditContainerQString names;
    names.setAt(0, QStringLiteral("icon-info@20.png"));
    control.SetupListItemIcon(names);
    QVERIFY(!qvariant_cast<QIcon>(control.GetItemData(0, Qt::DecorationRole)).pixmap(16).isNull());
    control.Clear();
    QCOMPARE(control.GetNumberOfItems(), 0);
    QCOMPARE(control.GetRequiredWidth(), 0);
}

void TListControlTest::heightOfItsRowsMayBeAnother()
{
    TLowRows low(nullptr);
    low.AddString(QStringLiteral("row"));
    QCOMPARE(low.GetItemData(0, Qt::SizeHintRole).toSize().height(), 40);
    // Room is counted in rows of the standard height all the same.
    QCOMPARE(low.GetRequiredHeight(2), 100);
}

void TListControlTest::sizeFollowsItsRows()
{
    TListControl& control = *m_Stage->control;
    int const bar = 33;
    QCOMPARE(control.sizeHint(), QSize(bar, 0));
    control.AddString(QStringLiteral("one"), 200);
    control.AddString(QStringLiteral("two"), 300);
    control.AddString(QStringLiteral("three"), 100);
    QCOMPARE(control.sizeHint(), QSize(300 + bar, 150));
    control.SetItemHidden(0, true);
    QCOMPARE(control.sizeHint(), QSize(300 + bar, 100));
    control.SetListMargin(4);
    QCOMPARE(control.sizeHint(), QSize(308 + bar, 108));
    QCOMPARE(control.minimumSizeHint().height(), 58);
    QVERIFY(control.minimumSizeHint().width() > bar);
    control.SetListGeometry(0, 0, 111, 99, 0, false);
    QCOMPARE(control.sizeHint(), QSize(111, 99));
}

void TListControlTest::requiredHeightCountsTheRows()
{
    TListControl const& control = *m_Stage->control;
    QCOMPARE(control.GetRequiredHeight(0), 0);
    QCOMPARE(control.GetRequiredHeight(-1), 0);
    QCOMPARE(control.GetRequiredHeight(INT_MIN), 0);
    QCOMPARE(control.GetRequiredHeight(1), 50);
    QCOMPARE(control.GetRequiredHeight(7), 350);
    QVERIFY(control.GetRequiredHeight(INT_MAX) > 0);
}

void TListControlTest::listStandsWithinItsRectangle_data()
{
    QTest::addColumn<QRect>("rect"); // as it is set
    QTest::addColumn<int>("margin");
    QTest::addColumn<QRect>("list");
    QTest::newRow("as set") << QRect(10, 20, 200, 130) << 0 << QRect(10, 20, 200, 130);
    QTest::newRow("margin") << QRect(10, 20, 200, 130) << 7 << QRect(17, 27, 186, 116);
    QTest::newRow("no width") << QRect(10, 20, 0, 130) << 0 << QRect(10, 20, 320, 130);
    QTest::newRow("no height") << QRect(10, 20, 200, -1) << 5 << QRect(15, 25, 190, 250);
    QTest::newRow("margin takes all") << QRect(0, 0, 20, 20) << 30 << QRect(30, 30, 0, 0);
}

void TListControlTest::listStandsWithinItsRectangle()
{
    QFETCH(QRect, rect);
    QFETCH(int, margin);
    QFETCH(QRect, list);
    m_Stage->control->SetListGeometry(rect.x(), rect.y(), rect.width(), rect.height(), margin, false);
    QCOMPARE(m_Stage->List()->geometry(), list);
}

void TListControlTest::listFollowsTheControl()
{
    QCOMPARE(m_Stage->List()->geometry(), QRect(QPoint(), ControlSize));
    m_Stage->control->resize(200, 100);
    QCOMPARE(m_Stage->List()->geometry(), QRect(0, 0, 200, 100));
    m_Stage->control->SetListMargin(6);
    QCOMPARE(m_Stage->List()->geometry(), QRect(6, 6, 188, 88));
    m_Stage->control->SetListGeometry(0, 0, 50, 60, 0, false);
    m_Stage->control->resize(300, 300);
    QCOMPARE(m_Stage->List()->geometry(), QRect(0, 0, 50, 60));
}

void TListControlTest::onlyCompleteRowsAreShown_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("shown");
    QTest::newRow("whole") << 150 << 0 << 150;
    QTest::newRow("one more") << 151 << 0 << 150;
    QTest::newRow("one less") << 149 << 0 << 100;
    QTest::newRow("the margin counts") << 151 << 1 << 100;
    QTest::newRow("none") << 49 << 0 << 0;
}

void TListControlTest::onlyCompleteRowsAreShown()
{
    QFETCH(int, height);
    QFETCH(int, margin);
    QFETCH(int, shown);
    m_Stage->control->SetListGeometry(0, 0, 200, height, margin, true);
    QCOMPARE(m_Stage->List()->height(), shown);
    QCOMPARE(m_Stage->List()->y(), margin);
    m_Stage->control->SetCompleteRowsOnly(false);
    QCOMPARE(m_Stage->List()->height(), height - 2 * margin);
    m_Stage->control->SetCompleteRowsOnly(true);
    QCOMPARE(m_Stage->List()->height(), shown);
}

void TListControlTest::positionFixesTheSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QSize>("size");
    QTest::newRow("three rows") << 222 << 3 << QSize(222, 150);
    QTest::newRow("none") << 222 << 0 << QSize(222, 0);
    QTest::newRow("below none") << -5 << -5 << QSize(0, 0);
    QTest::newRow("as many as there can be") << INT_MAX << INT_MAX << QSize(QWIDGETSIZE_MAX - 1, 16777200);
}

void TListControlTest::positionFixesTheSize()
{
    QFETCH(int, width);
    QFETCH(int, rows);
    QFETCH(QSize, size);
    TListControl control(nullptr);
    control.SetListMargin(9);
    control.SetListPosition(3, 4, width, rows);
    QCOMPARE(control.minimumSize(), size);
    QCOMPARE(control.maximumSize(), size);
    // It is set up, and has no margin.
    QVERIFY(control.findChild<TPushButton*>(QString(), Qt::FindDirectChildrenOnly));
    QCOMPARE(control.findChild<TListWidget*>()->pos(), QPoint(3, 4));
    QCOMPARE(control.findChild<TListWidget*>()->size(), size);
}

void TListControlTest::buttonsNeedTheirRoom()
{
    QVERIFY(m_Stage->Button(1) && m_Stage->Button(2));
    QCOMPARE(m_Stage->Button(1)->GetToolTip(),
             QStringLiteral("Move Selection Up (Press and hold to move quickly)"));
    QCOMPARE(m_Stage->Button(2)->GetToolTip(),
             QStringLiteral("Move Selection Down (Press and hold to move quickly)"));
    for (int const id : {1, 2})
    {
        TPushButton const* const button = m_Stage->Button(id);
        QCOMPARE(button->objectName(),
                 id == 1 ? QStringLiteral("scrollArrow-up") : QStringLiteral("scrollArrow-down"));
        QVERIFY(button->autoRepeat());
        QCOMPARE(button->autoRepeatDelay(), 250);
        QCOMPARE(button->autoRepeatInterval(), 100);
        QVERIFY(button->isHidden());
        QVERIFY(!button->isEnabled());
        QCOMPARE(button->height(), 0);
        QCOMPARE(button->width(), ControlSize.width());
    }
    m_Stage->Fill(3);
    m_Stage->control->SetCurrentRow(1);
    Q_EMIT m_Stage->Button(1)->clicked();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 0);
    Q_EMIT m_Stage->Button(2)->clicked();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 1);
}

void TListControlTest::modeIsAppliedToTheList()
{
    m_Stage->control->SetSelectionMode(QAbstractItemView::MultiSelection);
    QCOMPARE(m_Stage->List()->selectionMode(), QAbstractItemView::MultiSelection);
    QVERIFY(m_Stage->Button(1)->isHidden());
    TListControl early(nullptr);
    early.SetSelectionMode(QAbstractItemView::MultiSelection);
    early.SetListGeometry(1, 2, 30, 40, 0, false);
    early.SetSelectionMode(QAbstractItemView::SingleSelection);
    QCOMPARE(early.findChild<TListWidget*>()->geometry(), QRect(1, 2, 30, 40));
}

void TListControlTest::selectItemWithAnIndexOutsideTheListDoesNothing()
{
    m_Stage->Fill(3);
    for (auto const mode : {QAbstractItemView::SingleSelection, QAbstractItemView::MultiSelection})
    {
        m_Stage->control->SetSelectionMode(mode);
        m_Stage->control->SelectItem(1, true);
        QSignalSpy const changed(m_Stage->control, &TListControl::SelectionChanged);
        for (int const row : {INT_MIN, -1, 3, INT_MAX})
        {
            m_Stage->control->SelectItem(row, true);
            m_Stage->control->SelectItem(row, false);
            QVERIFY(!m_Stage->control->IsItemSelected(unsigned(row)));
        }
        QCOMPARE(changed.count(), 0);
        QCOMPARE(m_Stage->control->GetSelectedItem(), 1);
        QVERIFY(m_Stage->control->IsItemSelected(1));
    }
}

void TListControlTest::selectionByTextIsExact()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(3);
    control.AddString(QStringLiteral("Row 1"));
    QVERIFY(control.SelectItem(QStringLiteral("Row 1"), true));
    QCOMPARE(control.GetSelectedItem(), 3);
    QVERIFY(!control.SelectItem(QStringLiteral("row"), true));
    QCOMPARE(control.GetSelectedItem(), 3);
    // Where one may be selected, the text selects.
    QVERIFY(control.SelectItem(QStringLiteral("row 1"), false));
    QCOMPARE(control.GetSelectedTextItems(), QStringList{QStringLiteral("row 1")});
    control.SetSelectionMode(QAbstractItemView::MultiSelection);
    QVERIFY(control.SelectItem(QStringLiteral("row 2"), true));
    QVERIFY(control.SelectItem(QStringLiteral("row 1"), false));
    QCOMPARE(control.GetSelectedTextItems(), QStringList{QStringLiteral("row 2")});
}

void TListControlTest::selectionOfSeveral()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(4);
    control.SetSelectionMode(QAbstractItemView::MultiSelection);
    QVERIFY(!control.IsAnythingSelected());
    control.SelectItems({QStringLiteral("row 3"), QStringLiteral("row 0")});
    QCOMPARE(control.GetSelectedTextItems(), QStringList({QStringLiteral("row 0"), QStringLiteral("row 3")}));
    QCOMPARE(control.GetSelectedItems().size(), 2);
    control.SelectAll();
    QVERIFY(control.IsItemSelected(2));
    QVERIFY(control.IsAnythingSelected());
    control.UnSelectAllSelections();
    QVERIFY(!control.IsAnythingSelected());
}

void TListControlTest::scrollDownAtTheLastRowGoesToRowZero()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(3);
    control.SetCurrentRow(2);
    control.OnScrollDown();
    QCOMPARE(control.GetSelectedItem(), 0);
    QCOMPARE(control.GetSelectedTextItems(), QStringList{QStringLiteral("row 0")});
    control.OnScrollUp();
    QCOMPARE(control.GetSelectedItem(), 2);
    control.OnScrollUp();
    QCOMPARE(control.GetSelectedItem(), 1);
    control.OnScrollDown();
    QCOMPARE(control.GetSelectedItem(), 2);
    QCOMPARE(control.GetSelectedTextItems(), QStringList{QStringLiteral("row 2")});
}

void TListControlTest::scrollPassesOverHiddenRows()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(6);
    for (int const row : {0, 2, 5})
        control.SetItemHidden(row, true);
    control.SetCurrentRow(1);
    QVector<int> down;
    for (int i = 0; i < 4; ++i)
    {
        control.OnScrollDown();
        down.append(control.GetSelectedItem());
    }
    QCOMPARE(down, QVector<int>({3, 4, 1, 3}));
    QVector<int> up;
    for (int i = 0; i < 3; ++i)
    {
        control.OnScrollUp();
        up.append(control.GetSelectedItem());
    }
    QCOMPARE(up, QVector<int>({1, 4, 3}));
}

void TListControlTest::withAllRowsHiddenTheWheelLeavesTheSelectionWhereItIs()
{
    TListControl& control = *m_Stage->control;
    control.OnScrollDown();
    control.OnScrollUp();
    QCOMPARE(control.GetSelectedItem(), -1);
    m_Stage->Fill(4);
    for (int const selected : {2, -1})
    {
        control.SetCurrentRow(selected);
        for (int row = 0; row < 4; ++row)
            control.SetItemHidden(row, true);
        QSignalSpy const changed(&control, &TListControl::SelectionChanged);
        control.OnScrollDown();
        control.OnScrollUp();
        control.OnMMIWheelLeft();
        control.OnMMIWheelRight();
        QCOMPARE(control.GetSelectedItem(), selected);
        QCOMPARE(changed.count(), 0);
    }
    // The only one that is left is where the walk begins.
    control.SetItemHidden(1, false);
    control.SetCurrentRow(1);
    QSignalSpy const changed(&control, &TListControl::SelectionChanged);
    control.OnScrollDown();
    control.OnScrollUp();
    QCOMPARE(changed.count(), 0);
}

void TListControlTest::scrollWithoutASelectionBeginsAtAnEnd()
{
    m_Stage->Fill(4);
    m_Stage->control->OnScrollDown();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 0);
    m_Stage->control->SetCurrentRow(-1);
    m_Stage->control->OnScrollUp();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 3);
}

void TListControlTest::wheelStopsAtTheEnds()
{
    m_Stage->Fill(2);
    m_Stage->control->OnMMIWheelRight();
    m_Stage->control->OnMMIWheelRight();
    m_Stage->control->OnMMIWheelRight();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 1);
    m_Stage->control->OnMMIWheelLeft();
    m_Stage->control->OnMMIWheelLeft();
    QCOMPARE(m_Stage->control->GetSelectedItem(), 0);
}

void TListControlTest::wheelStopsAtTheListWithin()
{
    TTestScreen& screen = m_Stage->screen;
    TMMICapableWidgetNavigator navigator(screen.get());
    screen->SetMMINavigator(&navigator);
    TWindow window(screen.get());
    auto* const control = new TListControl(&window);
    for (int i = 0; i < 3; ++i)
        control->AddString(QString::number(i));
    window.ShowWindow(true);
    screen.m_Clock.Advance(1000);
    navigator.OnWheelRight();
    screen.m_Clock.Advance(100);
    navigator.UpdateFocus();
    navigator.OnEnter();
    navigator.OnWheelRight();
    navigator.OnWheelRight();
    QCOMPARE(control->GetSelectedItem(), 1);
    QSignalSpy const chosen(control, &TListControl::Selection);
    screen.m_Clock.Advance(100);
    navigator.UpdateFocus();
    navigator.OnEnter();
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().toInt(), 1);
}

void TListControlTest::groundIsTheFirstThatApplies()
{
    TListControl& control = *m_Stage->control;
    QCOMPARE(m_Stage->Ground(), QColor(0, 0, 0, 0));
    control.SetListColor(QColor());
    QCOMPARE(m_Stage->Ground(), listItemColor);
    control.SetListColor(Qt::red);
    QCOMPARE(m_Stage->Ground(), QColor(Qt::red));
    control.UseGlassEffect(true);
    QCOMPARE(m_Stage->Ground(), listButtonColorGlass);
    control.SetListColor(Qt::blue);
    QCOMPARE(m_Stage->Ground(), listButtonColorGlass);
    control.UseGlassEffect(false);
    QCOMPARE(m_Stage->Ground(), QColor(Qt::blue));
    // The invalid colour of the metrics means the default.
    control.SetListColor(LocalFileListColor);
    QCOMPARE(m_Stage->Ground(), listItemColor);
}

void TListControlTest::glassSetsUp()
{
    TListControl control(nullptr);
    QVERIFY(!control.findChild<TPushButton*>(QString(), Qt::FindDirectChildrenOnly));
    control.UseGlassEffect(false);
    QVERIFY(control.findChild<TPushButton*>(QString(), Qt::FindDirectChildrenOnly));
    auto* const list = control.findChild<TListWidget*>();
    // Nothing has changed yet.
    QCOMPARE(list->palette().color(QPalette::Base), QColor(0, 0, 0, 0));
    QImage const plain = list->verticalScrollBar()->grab().toImage();
    control.UseGlassEffect(true);
    QVERIFY(list->verticalScrollBar()->grab().toImage() != plain);
    QCOMPARE(list->palette().color(QPalette::Base), listButtonColorGlass);
}

void TListControlTest::touchIsToldInOrder()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(4);
    QStringList told;
    connect(&control, &TListControl::MousePressed, this, [&] { told += QStringLiteral("pressed"); });
    connect(&control, &TListControl::SelectionChanged, this,
            [&](int row) { told += QStringLiteral("changed %1").arg(row); });
    connect(&control, &TListControl::Click, this,
            [&](int row) { told += QStringLiteral("click %1").arg(row); });
    connect(&control, &TListControl::MouseReleased, this,
            [&](int row) { told += QStringLiteral("released %1").arg(row); });
    m_Stage->finger.Touch(m_Stage->PlaceOfRow(2));
    QCOMPARE(told,
             QStringList({QStringLiteral("pressed"), QStringLiteral("changed 2"), QStringLiteral("changed 2"),
                          QStringLiteral("click 2"), QStringLiteral("released 2")}));
}

void TListControlTest::doubleClickIsTold()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(4);
    QSignalSpy const click(&control, &TListControl::Click);
    QSignalSpy const doubleClick(&control, &TListControl::DoubleClick);
    m_Stage->DoubleTouch(QPoint(20, 70));
    QCOMPARE(doubleClick.count(), 1);
    QCOMPARE(doubleClick.first().first().toInt(), 1);
    int const clicks = click.count();
    control.OnClick(m_Stage->List()->model()->index(3, 0));
    control.OnDoubleClick(m_Stage->List()->model()->index(2, 0));
    QCOMPARE(click.count(), clicks + 1);
    QCOMPARE(click.last().first().toInt(), 3);
    QCOMPARE(doubleClick.last().first().toInt(), 2);
    control.OnClick({});
    control.OnDoubleClick({});
    QCOMPARE(click.count(), clicks + 1);
    QCOMPARE(doubleClick.count(), 2);
}

void TListControlTest::chosenAndCancelled()
{
    TListControl& control = *m_Stage->control;
    m_Stage->Fill(4);
    QSignalSpy const chosen(&control, &TListControl::Selection);
    QSignalSpy const cancelled(&control, &TListControl::SelectionCanceled);
    control.OnDone();
    QCOMPARE(chosen.count(), 0);
    control.SetCurrentRow(3);
    control.OnDone();
    control.OnSelection(1);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.first().first().toInt(), 3);
    QCOMPARE(chosen.last().first().toInt(), 1);
    QCOMPARE(cancelled.count(), 0);
    control.OnCancel();
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(control.isVisible());
    Q_EMIT m_Stage->List()->SelectionCanceled();
    Q_EMIT m_Stage->List()->Selection(0);
    QCOMPARE(cancelled.count(), 2);
    QCOMPARE(chosen.count(), 3);
}

void TListControlTest::setUpTwiceTellsOnce()
{
    m_Stage->Fill(2);
    m_Stage->control->Setup();
    m_Stage->control->SetupIfRequired();
    m_Stage->control->hide();
    m_Stage->control->show();
    QSignalSpy const released(m_Stage->control, &TListControl::MouseReleased);
    m_Stage->finger.Touch(m_Stage->PlaceOfRow(1));
    QCOMPARE(released.count(), 1);
    QCOMPARE(m_Stage->control->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
}

void TListControlTest::shownByItselfOnTheScreen()
{
    TListControl control(m_Stage->screen.get());
    control.AddString(QStringLiteral("row"));
    control.SetListPosition(0, 0, 200, 3);
    control.move(300, 200);
    control.ShowWindow(true);
    QVERIFY(control.isVisible());
    QCOMPARE(control.geometry(), QRect(300, 200, 200, 150));
    TFinger finger(m_Stage->screen.get());
    finger.Touch(QPoint(320, 220));
    QCOMPARE(control.GetSelectedItem(), 0);
    control.HideWindow();
    QVERIFY(!control.isVisible());
}

void TListControlTest::pictures()
{
    m_Stage->Fill(9);
    m_Stage->control->SetListColor(QColor());
    m_Stage->control->SetCurrentRow(1);
    m_Stage->control->SetListGeometry(0, 0, 0, 0, 10, true);
    COMPARE_PICTURE(m_Stage->control->grab().toImage(), "control-of-complete-rows");
    m_Stage->control->SetCompleteRowsOnly(false);
    m_Stage->control->UseGlassEffect(true);
    COMPARE_PICTURE(m_Stage->control->grab().toImage(), "control-on-glass");
}

void TListControlTest::slotsMayDeleteIt_data()
{
    QTest::addColumn<QString>("signal");
    for (char const* const signal :
         {"pressed", "changed", "click", "released", "double click", "step", "selection", "cancel"})
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

void TListControlTest::slotsMayDeleteIt()
{
    QFETCH(QString, signal);
    m_Stage->Fill(4);
    QPointer<TListControl> const control = m_Stage->control;
    auto const end = [control] { delete control; };
    QPoint const place = m_Stage->PlaceOfRow(1);
    if (signal == QLatin1String("pressed"))
        connect(control, &TListControl::MousePressed, this, end);
    else if (signal == QLatin1String("changed") || signal == QLatin1String("step"))
        connect(control, &TListControl::SelectionChanged, this, end);
    else if (signal == QLatin1String("click"))
        connect(control, &TListControl::Click, this, end);
    else if (signal == QLatin1String("released"))
        connect(control, &TListControl::MouseReleased, this, end);
    else if (signal == QLatin1String("double click"))
        connect(control, &TListControl::DoubleClick, this, end);
    else if (signal == QLatin1String("selection"))
        connect(control, &TListControl::Selection, this, end);
    else
        connect(control, &TListControl::SelectionCanceled, this, end);

    if (signal == QLatin1String("step"))
        control->OnScrollDown();
    else if (signal == QLatin1String("cancel"))
        control->OnCancel();
    else if (signal == QLatin1String("double click"))
        m_Stage->DoubleTouch(QPoint(20, 70));
    else if (signal == QLatin1String("selection"))
    {
        control->SetCurrentRow(2);
        QVERIFY(!m_Stage->List()->OnMMIEnter());
    }
    else
        m_Stage->finger.Touch(place);
    QVERIFY(!control);
}

void TListControlTest::deletedWhilePressed()
{
    m_Stage->Fill(4);
    QPoint const place = m_Stage->PlaceOfRow(1);
    m_Stage->finger.Press(place);
    QCOMPARE(m_Stage->control->GetSelectedItem(), 1);
    delete m_Stage->control;
    m_Stage->finger.Move(place + QPoint(0, 50));
    m_Stage->finger.Lift();
    QVERIFY(!m_Stage->control);
}

void TListControlTest::deletedWhileLocked()
{
    QPointer<TListControl> control = new TListControl(m_Stage->screen.get());
    control->ShowWindow(false);
    TWindow child(control);
    control->AddLockingWidget({&child, QString(), KVN::MODAL_LOCAL, {}});
    child.setParent(nullptr);
    delete control;
    QVERIFY(!control);
}

COMMONUI_TEST(TListControlTest)

#include "TListControlTest.moc"
