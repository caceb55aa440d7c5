#include "TListWidget.h"

#include "GoldenPicture.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TAllocationCount.h"
#include "TEditContainer.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TListStage.h"
#include "TListWidgetItemDelegate.h"
#include "TMMICapableWidgetNavigator.h"
#include "TTestPlatform.h"
#include "TVerticalScrollBar.h"
#include "TWindow.h"

#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>

#include <climits>

namespace
{
constexpr int PressSound = 2;
constexpr int WidthBesideText = 13;
constexpr int WidthBesideTextAndIcon = 28;

QIcon TestIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

QString TextOfWidth(int width)
{
    QString text;
    while (KVN::RenderUtils::GetTextWidth(text + QLatin1Char('i'), ListFont()) <= width)
        text += QLatin1Char('i');
    return text;
}

int TextWidth(QString const& text)
{
    return KVN::RenderUtils::GetTextWidth(text, ListFont());
}

/// The skin \a name at the size of a row.
QImage Skin(QString const& name, QSize const& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.drawPixmap(0, 0,
                       *MainScreen->GetPixmapManager()->GetResizedPixmap(name, size.width(), size.height()));
    return image;
}

/// Where \a picture differs from \a ground.
QRect Ink(QImage const& picture, QImage const& ground)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
    {
        for (int x = 0; x < picture.width(); ++x)
        {
            if (picture.pixel(x, y) != ground.pixel(x, y))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

class TCountingDelegate : public TListWidgetItemDelegate
{
public:
    using TListWidgetItemDelegate::TListWidgetItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override
    {
        ++m_Painted;
        TListWidgetItemDelegate::paint(painter, option, index);
    }

    mutable int m_Painted = 0;
};

/// A list whose options a test can see.
class TOpenList : public TListWidget
{
public:
    using TListWidget::TListWidget;
    using TListWidget::viewOptions;
};
} // namespace

/// Deletes something when it is told to.
class TDeleter : public QObject
{
    Q_OBJECT

public:
    explicit TDeleter(QObject* victim)
        : m_Victim(victim)
    {
    }

public Q_SLOTS:
    void Delete() { delete m_Victim; }

private:
    QPointer<QObject> m_Victim;
};

class TListWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_Stage = std::make_unique<TListStage>(); }
    void cleanup() { m_Stage.reset(); }

    void lookIsFixedFromTheStart();
    void emptyListShowsNoEntriesInSize24();
    void emptyListIsFilledAndEmptiedAgain();

    void rowHasItsTextFontAndColour();
    void hintIsAsWideAsTheTextOrWider_data();
    void hintIsAsWideAsTheTextOrWider();
    void hintFollowsTheText();
    void hintOfAForeignRowIsThatOfItsText();
    void whatIsSetByHandTakesPrecedence();
    void rowsWithoutAnIconKeepTheColumn();
    void iconsComeFromTheResources();
    void requiredWidthIsThatOfTheWidestRow();
    void firstRowThatReadsExactlyTheTextIsFound();
    void hiddenRowsAreCounted();
    void wrongRowsStandForNothing_data();
    void wrongRowsStandForNothing();

    void selectItemWithAnIndexOutsideTheListDoesNothing_data();
    void selectItemWithAnIndexOutsideTheListDoesNothing();
    void oneRowIsSelectedAtATime();
    void deselectingAnotherRowKeepsTheSelection();
    void severalRowsAreSelected();
    void rowsAreSelectedByTheirTexts();
    void theLastOfSeveralTextsIsSelectedWhereOneMayBe();
    void hiddenSelectionIsNone();
    void selectionOfAHundredThousandRows();

    void stepAtTheEndsStays();
    void stepPassesOverHiddenRows();
    void withAllRowsHiddenTheWheelLeavesTheSelectionWhereItIs();
    void stepTellsWhatHasChanged();
    void stepBringsTheRowIntoSight();
    void wheelWorksTheEnteredList();
    void positionIsThatOfTheUpperLeftCorner();

    void pressSelectsTheRowAndReleaseClicks();
    void releaseBesideTheRowsIsSilent_data();
    void releaseBesideTheRowsIsSilent();
    void rowFollowsTheFinger();
    void moveWithoutAPressIsLeftToTheParent();
    void tapsToggleWhereSeveralMayBeSelected();
    void barAndPagesTurnTheRows();

    void longTextIsShownWhileItIsHeld();
    void textThatFitsItsWidthExactlyShowsNoToolTipOnHold_data();
    void textThatFitsItsWidthExactlyShowsNoToolTipOnHold();
    void pressEndsWhenTheListGoesAway_data();
    void pressEndsWhenTheListGoesAway();

    void groundIsThatOfTheList();
    void skinTellsTheSelection();
    void textStandsBesideTheIconColumn();
    void everythingIsMirroredFromRightToLeft();
    void anyTextIsDrawnInItsRow_data();
    void anyTextIsDrawnInItsRow();
    void onlyRowsInSightArePainted_data();
    void onlyRowsInSightArePainted();
    void paintingARowAgainAllocatesNothing();
    void rowsAreLaidOutWheneverTheyCome();
    void withoutAScreenTheTextsAreDrawn();
    void pictures();

    void slotsMayDeleteIt_data();
    void slotsMayDeleteIt();
    void mayBeDeletedByTheSecondPressOfADoubleClick();
    void deletedWhilePressed();
    void rowsMayBeRemovedWhilePressed();
    void slotMayClearTheList();

private:
    TListWidget& List() const { return m_Stage->list; }
    void Fill(int count, QString const& prefix = QStringLiteral("row "))
    {
        for (int i = 0; i < count; ++i)
            List().AddString(prefix + QString::number(i), RowHeight);
        QCoreApplication::processEvents();
    }
    QVector<int> const& Sounds() const { return m_Stage->screen->m_Recorder.m_Sounds; }

    std::unique_ptr<TListStage> m_Stage;
};

void TListWidgetTest::lookIsFixedFromTheStart()
{
    TListWidget& list = List();
    QVERIFY(qobject_cast<TListWidgetItemDelegate*>(list.itemDelegate()));
    auto* const bar = qobject_cast<TVerticalScrollBar*>(list.verticalScrollBar());
    QVERIFY(bar);
    QCOMPARE(bar->width(), 33);
    QCOMPARE(list.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(list.focusPolicy(), Qt::NoFocus);
    QCOMPARE(list.frameWidth(), 0);
    QCOMPARE(list.backgroundRole(), QPalette::Base);
    for (QPalette::ColorGroup const group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    {
        QCOMPARE(list.palette().color(group, QPalette::Base), QColor(0, 0, 0, 0));
        QCOMPARE(list.palette().color(group, QPalette::Highlight), QColor(255, 255, 255, 0));
        QCOMPARE(list.palette().color(group, QPalette::HighlightedText), QColor(Qt::black));
    }
    QCOMPARE(list.GetNumberOfItems(), 0);
    QCOMPARE(list.GetSelectedItem(), -1);
}

void TListWidgetTest::emptyListShowsNoEntriesInSize24()
{
    auto const expected = [](int size)
    {
        QImage image(ListSize, QImage::Format_RGB32);
        image.fill(StageGround);
        QPainter painter(&image);
        KVN::RenderUtils::RenderText(&painter, QRect(QPoint(), ListSize), Qt::AlignCenter,
                                     QTextOption::WrapAtWordBoundaryOrAnywhere, QStringLiteral("No Entries"),
                                     size, regularTextColor, false, false, ListFont());
        return image;
    };
    QCOMPARE(m_Stage->Picture(), expected(24));
    QVERIFY(m_Stage->Picture() != expected(23));
}

void TListWidgetTest::emptyListIsFilledAndEmptiedAgain()
{
    QImage const empty = m_Stage->Picture();
    QCOMPARE(List().AddString(QStringLiteral("one"), RowHeight), 1);
    QCOMPARE(List().AddString(QStringLiteral("two"), RowHeight), 2);
    QVERIFY(m_Stage->Picture() != empty);
    List().SetCurrentRow(1);
    List().Clear();
    QCOMPARE(List().GetNumberOfItems(), 0);
    QCOMPARE(List().GetSelectedItem(), -1);
    QCOMPARE(m_Stage->Picture(), empty);
}

void TListWidgetTest::rowHasItsTextFontAndColour()
{
    List().AddString(QStringLiteral("Field 7"), 40);
    QCOMPARE(List().GetItemText(0), QStringLiteral("Field 7"));
    QCOMPARE(List().GetItemData(0, Qt::DisplayRole).toString(), QStringLiteral("Field 7"));
    QCOMPARE(qvariant_cast<QFont>(List().GetItemData(0, Qt::FontRole)), ListFont());
    QCOMPARE(qvariant_cast<QBrush>(List().GetItemData(0, Qt::ForegroundRole)).color(), QColor(Qt::white));
    QCOMPARE(List().visualItemRect(List().item(0)), QRect(0, 0, ListSize.width(), 40));
}

void TListWidgetTest::hintIsAsWideAsTheTextOrWider_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("more"); // than the text and 18 pixels
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("negative") << INT_MIN << 0;
    QTest::newRow("less") << -1 << 0;
    QTest::newRow("as wide") << 0 << 0;
    QTest::newRow("more") << 1 << 1;
}

void TListWidgetTest::hintIsAsWideAsTheTextOrWider()
{
    QFETCH(int, asked);
    QFETCH(int, more);
    QString const text = QStringLiteral("Main boom");
    int const least = TextWidth(text) + 18;
    bool const isRelative = QByteArray(QTest::currentDataTag()) != "none" && asked > INT_MIN;
    List().AddString(text, 44, isRelative ? least + asked : asked);
    QCOMPARE(List().GetItemData(0, Qt::SizeHintRole).toSize(), QSize(least + more, 44));
}

void TListWidgetTest::hintFollowsTheText()
{
    QString const longer = QStringLiteral("a much longer text");
    List().AddString(QStringLiteral("text"), 44, 500);
    List().SetItemText(0, longer, 10);
    QCOMPARE(List().GetItemText(0), longer);
    QCOMPARE(List().GetItemData(0, Qt::SizeHintRole).toSize(), QSize(TextWidth(longer) + 18, 44));
    List().SetItemText(0, QString(), 600);
    QCOMPARE(List().GetItemData(0, Qt::SizeHintRole).toSize(), QSize(600, 44));
    // Also when a module goes past the list.
    List().item(0)->setText(longer.repeated(9));
    QCOMPARE(List().GetRequiredWidth(), TextWidth(longer.repeated(9)) + 18);
}

void TListWidgetTest::hintOfAForeignRowIsThatOfItsText()
{
    auto* const foreign = new QListWidgetItem(QStringLiteral("foreign"), &List());
    foreign->setFont(ListFont());
    List().SetItemSizeHint(foreign, 0, 61);
    QCOMPARE(foreign->sizeHint(), QSize(TextWidth(QStringLiteral("foreign")) + 18, 61));
    QCOMPARE(qvariant_cast<QIcon>(foreign->data(Qt::DecorationRole)).actualSize(QSize(16, 16)), QSize(1, 1));
    List().SetItemText(0, QStringLiteral("x"), 300);
    QCOMPARE(foreign->sizeHint(), QSize(300, 61));
    List().SetItemSizeHint(nullptr, 1, 1);
    QCOMPARE(List().visualItemRect(foreign).height(), 61);
    // A row that was never given a height has that of its text.
    auto* const bare = new QListWidgetItem(QStringLiteral("bare"), &List());
    QVERIFY(List().visualItemRect(bare).height() > 5);
}

void TListWidgetTest::whatIsSetByHandTakesPrecedence()
{
    List().AddString(QStringLiteral("row"), RowHeight);
    QFont larger = ListFont();
    larger.setPixelSize(40);
    List().SetItemData(0, Qt::FontRole, larger);
    QCOMPARE(List().GetRequiredWidth(), KVN::RenderUtils::GetTextWidth(QStringLiteral("row"), larger) + 18);
    List().SetItemData(0, Qt::SizeHintRole, QSize(900, 80));
    QCOMPARE(List().GetRequiredWidth(), 900);
    QCOMPARE(List().visualItemRect(List().item(0)).height(), 80);
    List().SetItemText(0, QString(), 700);
    QCOMPARE(List().GetItemData(0, Qt::SizeHintRole).toSize(), QSize(700, 80));
    List().SetItemData(0, Qt::UserRole, 42);
    QCOMPARE(List().GetItemData(0, Qt::UserRole).toInt(), 42);
    QVERIFY(!List().GetItemData(0, Qt::UserRole + 1).isValid());
    // Taken out of the list a row still knows its text.
    std::unique_ptr<QListWidgetItem> const taken(List().takeItem(0));
    QCOMPARE(taken->text(), QString());
    QCOMPARE(taken->data(Qt::UserRole).toInt(), 42);
}

void TListWidgetTest::rowsWithoutAnIconKeepTheColumn()
{
    auto const iconSize = [this](int row)
    { return qvariant_cast<QIcon>(List().GetItemData(row, Qt::DecorationRole)).actualSize(QSize(16, 16)); };
    List().AddString(QStringLiteral("before"), RowHeight);
    QCOMPARE(iconSize(0), QSize(1, 1));
    QCOMPARE(qvariant_cast<QIcon>(List().GetItemData(0, Qt::DecorationRole))
                 .pixmap(1, 1)
                 .toImage()
                 .pixelColor(0, 0)
                 .alpha(),
             0);
    List().AddString(QStringLiteral("with"), RowHeight, 0, TestIcon());
    QCOMPARE(iconSize(1), QSize(16, 16));
    List().AddString(QStringLiteral("after"), RowHeight);
    QVERIFY(!List().GetItemData(2, Qt::DecorationRole).isValid());
    // Without rows there are no icons either.
    List().Clear();
    List().AddString(QStringLiteral("anew"), RowHeight);
    QCOMPARE(iconSize(0), QSize(1, 1));
}

void TListWidgetTest::iconsComeFromTheResources()
{
    Fill(4);
    TEditContainerQString names;
    names.setAt(0, QStringLiteral("icon-info@20.png"));
    names.setAt(2, QStringLiteral("no such file"));
    List().SetItemData(3, Qt::DecorationRole, TestIcon());
    new QListWidgetItem(QStringLiteral("foreign"), &List());
    names.setAt(4, QStringLiteral("icon-info@20.png"));
    List().SetupListItemIcon(names);
    QImage const expected(QStringLiteral(":/Icons/Resources/icon-info@20.png"));
    QVERIFY(!expected.isNull());
    for (int const row : {0, 4})
    {
        auto const icon = qvariant_cast<QIcon>(List().GetItemData(row, Qt::DecorationRole));
        QCOMPARE(icon.pixmap(20, 20).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
                 expected.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }
    for (int const row : {1, 2, 3})
        QVERIFY(qvariant_cast<QIcon>(List().GetItemData(row, Qt::DecorationRole)).pixmap(16).isNull());
}

void TListWidgetTest::requiredWidthIsThatOfTheWidestRow()
{
    QCOMPARE(List().GetRequiredWidth(), 0);
    List().AddString(QStringLiteral("narrow"), RowHeight);
    List().AddString(QStringLiteral("the widest of all"), RowHeight);
    List().AddString(QStringLiteral("wider"), RowHeight);
    QCOMPARE(List().GetRequiredWidth(), TextWidth(QStringLiteral("the widest of all")) + 18);
    List().SetItemHidden(1, true);
    QCOMPARE(List().GetRequiredWidth(), TextWidth(QStringLiteral("the widest of all")) + 18);
    delete List().takeItem(1);
    QCOMPARE(List().GetRequiredWidth(), TextWidth(QStringLiteral("narrow")) + 18);
    List().AddString(QString(100000, QLatin1Char('W')), RowHeight);
    QVERIFY(List().GetRequiredWidth() > 4096);
}

void TListWidgetTest::firstRowThatReadsExactlyTheTextIsFound()
{
    for (char const* const text : {"Tank", "tank", "Tank 2", "Tank", ""})
        List().AddString(QString::fromLatin1(text), RowHeight);
    QCOMPARE(List().GetIndexfromText(QStringLiteral("Tank")), 0);
    QCOMPARE(List().GetIndexfromText(QStringLiteral("tank")), 1);
    QCOMPARE(List().GetIndexfromText(QString()), 4);
    QCOMPARE(List().GetIndexfromText(QStringLiteral("Tank ")), -1);
    QVERIFY(List().SelectItem(QStringLiteral("Tank 2")));
    QCOMPARE(List().GetSelectedItem(), 2);
    QVERIFY(!List().SelectItem(QStringLiteral("TANK")));
    QCOMPARE(List().GetSelectedItem(), 2);
}

void TListWidgetTest::hiddenRowsAreCounted()
{
    Fill(4);
    List().SetItemHidden(1, true);
    List().SetItemHidden(3, true);
    List().SetItemHidden(3, false);
    QVERIFY(!List().IsItemHidden(0));
    QVERIFY(List().IsItemHidden(1));
    QVERIFY(!List().IsItemHidden(3));
    QCOMPARE(List().GetNumberOfItems(), 4);
    QCOMPARE(List().GetNumberOfVisibleItems(), 3);
    QCOMPARE(List().visualItemRect(List().item(2)).top(), RowHeight);
}

void TListWidgetTest::wrongRowsStandForNothing_data()
{
    QTest::addColumn<int>("row");
    for (int const row : {INT_MIN, -1, 2, INT_MAX})
        QTest::newRow(qPrintable(QString::number(row))) << row;
}

void TListWidgetTest::wrongRowsStandForNothing()
{
    QFETCH(int, row);
    Fill(2);
    QCOMPARE(List().GetItemText(row), QString());
    QVERIFY(!List().GetItemData(row, Qt::DisplayRole).isValid());
    QVERIFY(!List().IsItemHidden(row));
    QVERIFY(!List().IsItemSelected(unsigned(row)));
    List().SetItemText(row, QStringLiteral("wrong"), 0);
    List().SetItemData(row, Qt::DisplayRole, QStringLiteral("wrong"));
    List().SetItemHidden(row, true);
    QCOMPARE(List().GetNumberOfVisibleItems(), 2);
    QCOMPARE(List().GetItemText(0), QStringLiteral("row 0"));
    QCOMPARE(List().GetItemText(1), QStringLiteral("row 1"));
}

void TListWidgetTest::selectItemWithAnIndexOutsideTheListDoesNothing_data()
{
    wrongRowsStandForNothing_data();
}

void TListWidgetTest::selectItemWithAnIndexOutsideTheListDoesNothing()
{
    QFETCH(int, row);
    for (auto const mode : {QAbstractItemView::SingleSelection, QAbstractItemView::MultiSelection})
    {
        List().Clear();
        Fill(2);
        List().setSelectionMode(mode);
        List().SelectItem(1, true);
        QSignalSpy const changed(&List(), &TListWidget::SelectionChanged);
        List().SelectItem(row);
        List().SelectItem(row, true);
        List().SelectItem(row, false);
        if (row != -1)
            List().SetCurrentRow(row);
        QCOMPARE(List().GetSelectedItem(), 1);
        QVERIFY(List().IsItemSelected(1));
        QCOMPARE(changed.count(), 0);
    }
    List().SetCurrentRow(-1);
    QCOMPARE(List().GetSelectedItem(), -1);
}

void TListWidgetTest::oneRowIsSelectedAtATime()
{
    Fill(5);
    QSignalSpy const changed(&List(), &TListWidget::SelectionChanged);
    List().SelectItem(2);
    QCOMPARE(List().GetSelectedTextItems(), QStringList{QStringLiteral("row 2")});
    QVERIFY(changed.count() > 0);
    QCOMPARE(changed.last().first().toInt(), 2);
    List().SelectItem(4, true);
    QCOMPARE(List().GetSelectedTextItems(), QStringList{QStringLiteral("row 4")});
    QCOMPARE(List().GetSelectedItems(), QList<QListWidgetItem*>{List().item(4)});
    QVERIFY(List().IsItemSelected(4) && !List().IsItemSelected(2));
    List().SelectAll();
    QCOMPARE(List().GetSelectedTextItems(), QStringList{QStringLiteral("row 4")});
    List().SelectItem(4, false);
    QVERIFY(!List().IsAnythingSelected());
    QCOMPARE(List().GetSelectedItem(), 4);
    List().SetCurrentRow(0);
    List().UnSelectAllSelections();
    QVERIFY(!List().IsAnythingSelected());
}

void TListWidgetTest::deselectingAnotherRowKeepsTheSelection()
{
    Fill(5);
    List().SelectItem(2, true);
    List().SelectItem(4, false);
    QVERIFY(List().IsItemSelected(2));
    QCOMPARE(List().currentRow(), 4);
}

void TListWidgetTest::severalRowsAreSelected()
{
    Fill(5);
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    List().SelectItem(3, true);
    List().SelectItem(1, true);
    QCOMPARE(List().GetSelectedTextItems(), QStringList({QStringLiteral("row 1"), QStringLiteral("row 3")}));
    QCOMPARE(List().GetSelectedItem(), 1);
    List().SelectItem(3, false);
    QCOMPARE(List().GetSelectedTextItems(), QStringList{QStringLiteral("row 1")});
    QCOMPARE(List().GetSelectedItem(), 1);
    QSignalSpy const changed(&List(), &TListWidget::SelectionChanged);
    List().SelectAll();
    QCOMPARE(List().GetSelectedTextItems().size(), 5);
    QCOMPARE(changed.count(), 1);
    List().SelectItem(3, false);
    List().SelectAll();
    QCOMPARE(List().GetSelectedTextItems().size(), 5);
    // Of two ranges it is told once as well.
    QCOMPARE(changed.count(), 3);
    List().UnSelectAllSelections();
    QCOMPARE(List().GetSelectedTextItems(), QStringList());
}

void TListWidgetTest::rowsAreSelectedByTheirTexts()
{
    Fill(6);
    List().AddString(QStringLiteral("row 1"), RowHeight);
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    List().SelectItem(0, true);
    List().SelectItems({QStringLiteral("row 1"), QStringLiteral("row 3"), QStringLiteral("row 2"),
                        QStringLiteral("no row")});
    for (unsigned row = 0; row < 7; ++row)
        QCOMPARE(List().IsItemSelected(row), row == 1 || row == 2 || row == 3 || row == 6);
    QCOMPARE(List().GetSelectedItem(), 6);
    List().SelectItems({});
    QVERIFY(!List().IsAnythingSelected());
}

void TListWidgetTest::theLastOfSeveralTextsIsSelectedWhereOneMayBe()
{
    Fill(6);
    List().SelectItems({QStringLiteral("row 4"), QStringLiteral("row 1")});
    QCOMPARE(List().GetSelectedTextItems(), QStringList{QStringLiteral("row 4")});
    List().SelectItems({QStringLiteral("no row")});
    QVERIFY(!List().IsAnythingSelected());
}

void TListWidgetTest::hiddenSelectionIsNone()
{
    Fill(3);
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    QVERIFY(!List().IsAnythingSelected());
    List().SelectItem(1, true);
    QVERIFY(List().IsAnythingSelected());
    List().SetItemHidden(1, true);
    QVERIFY(!List().IsAnythingSelected());
    List().SelectItem(2, true);
    QVERIFY(List().IsAnythingSelected());
}

void TListWidgetTest::selectionOfAHundredThousandRows()
{
    QStringList odd;
    for (int i = 0; i < 100000; ++i)
    {
        List().AddString(QString::number(i), RowHeight);
        if (i % 2 == 1)
            odd.append(QString::number(i));
    }
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    List().SelectItems(odd);
    QCOMPARE(List().GetSelectedTextItems(), odd);
    List().SelectAll();
    QCOMPARE(List().GetSelectedItems().size(), 100000);
    List().OnDown();
    QVERIFY(List().IsItemSelected(99999));
    TEditContainerQString names;
    names.setAt(99999, QStringLiteral("icon-info@20.png"));
    List().SetupListItemIcon(names);
    QVERIFY(!qvariant_cast<QIcon>(List().GetItemData(99999, Qt::DecorationRole)).isNull());
    QCOMPARE(List().GetRequiredWidth(), TextWidth(QStringLiteral("88888")) + 18);
    List().verticalScrollBar()->setValue(List().verticalScrollBar()->maximum());
    QVERIFY(List().viewport()->rect().contains(List().visualItemRect(List().item(99999))));
    QCOMPARE(m_Stage->Picture().size(), ListSize);
}

void TListWidgetTest::stepAtTheEndsStays()
{
    Fill(3);
    List().SetCurrentRow(2);
    QSignalSpy const changed(&List(), &TListWidget::SelectionChanged);
    List().OnDown();
    QCOMPARE(List().GetSelectedItem(), 2);
    List().OnUp();
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), 0);
    int const steps = changed.count();
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), 0);
    QCOMPARE(changed.count(), steps);
    // From nowhere the first step down leads to the first row.
    List().SetCurrentRow(-1);
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), -1);
    List().OnDown();
    QCOMPARE(List().GetSelectedItem(), 0);
    QVERIFY(List().IsItemSelected(0));
    List().Clear();
    List().OnDown();
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), -1);
}

void TListWidgetTest::stepPassesOverHiddenRows()
{
    Fill(6);
    for (int const row : {0, 2, 3, 5})
        List().SetItemHidden(row, true);
    List().SetCurrentRow(1);
    List().OnDown();
    QCOMPARE(List().GetSelectedItem(), 4);
    List().OnDown();
    QCOMPARE(List().GetSelectedItem(), 4);
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), 1);
    List().OnUp();
    QCOMPARE(List().GetSelectedItem(), 1);
}

void TListWidgetTest::withAllRowsHiddenTheWheelLeavesTheSelectionWhereItIs()
{
    Fill(4);
    List().SetCurrentRow(2);
    for (int row = 0; row < 4; ++row)
        List().SetItemHidden(row, true);
    QSignalSpy const changed(&List(), &TListWidget::SelectionChanged);
    List().OnMMIWheelLeft();
    List().OnMMIWheelRight();
    QCOMPARE(List().GetSelectedItem(), 2);
    QVERIFY(List().IsItemSelected(2));
    QCOMPARE(changed.count(), 0);
}

void TListWidgetTest::stepTellsWhatHasChanged()
{
    TListWidget& list = List();
    Fill(3);
    list.SetCurrentRow(0);
    QVector<int> told;
    connect(&list, &TListWidget::SelectionChanged, this,
            [&](int row)
            {
                QCOMPARE(list.GetSelectedItem(), 1);
                QVERIFY(list.IsItemSelected(1));
                told.append(row);
            });
    list.OnDown();
    // For the selection, for the current row, and for the step.
    QCOMPARE(told, QVector<int>({1, 1, 1}));
}

void TListWidgetTest::stepBringsTheRowIntoSight()
{
    Fill(100);
    List().SetCurrentRow(0);
    for (int i = 0; i < 60; ++i)
        List().OnDown();
    QRect const row = List().visualItemRect(List().item(60));
    QVERIFY(List().viewport()->rect().contains(row));
    for (int i = 0; i < 60; ++i)
        List().OnUp();
    QCOMPARE(List().verticalScrollBar()->value(), 0);
}

void TListWidgetTest::wheelWorksTheEnteredList()
{
    Fill(3);
    QSignalSpy const chosen(&List(), &TListWidget::Selection);
    TMMICapableWidgetNavigator navigator(m_Stage->screen.get());
    m_Stage->screen->SetMMINavigator(&navigator);
    auto const tick = [&]
    {
        m_Stage->screen.m_Clock.Advance(100);
        navigator.UpdateFocus();
    };
    TWindow window(m_Stage->screen.get());
    auto* const list = new TListWidget(&window);
    for (int i = 0; i < 3; ++i)
        list->AddString(QString::number(i), RowHeight);
    QSignalSpy const chosenInside(list, &TListWidget::Selection);
    list->show();
    window.ShowWindow(true);
    QCOMPARE(list->GetMMIBehaviour(), MMI_WHEEL_OWNER);
    m_Stage->screen.m_Clock.Advance(1000);
    navigator.OnWheelRight();
    tick();
    navigator.OnEnter();
    QCOMPARE(chosenInside.count(), 0);
    navigator.OnWheelRight();
    navigator.OnWheelRight();
    QCOMPARE(list->GetSelectedItem(), 1);
    navigator.OnWheelLeft();
    QCOMPARE(list->GetSelectedItem(), 0);
    tick();
    navigator.OnEnter();
    QCOMPARE(chosenInside.count(), 1);
    QCOMPARE(chosenInside.last().first().toInt(), 0);
    QVERIFY(navigator.OnBack());
    navigator.OnWheelRight();
    QCOMPARE(list->GetSelectedItem(), 0);
    list->SetCurrentRow(-1);
    list->OnMMIEnter();
    QCOMPARE(chosenInside.count(), 1);
    QCOMPARE(chosen.count(), 0);
}

void TListWidgetTest::positionIsThatOfTheUpperLeftCorner()
{
    QCOMPARE(List().Position(&m_Stage->window), List().pos());
    QCOMPARE(List().Position(nullptr), QPoint());
    List().PositionChanged();
    QCOMPARE(List().Position(&m_Stage->window), List().pos());
}

void TListWidgetTest::pressSelectsTheRowAndReleaseClicks()
{
    TListWidget& list = List();
    Fill(10);
    QStringList told;
    connect(&list, &TListWidget::MousePressed, this,
            [&] { told += QStringLiteral("pressed %1").arg(list.GetSelectedItem()); });
    connect(&list, &TListWidget::SelectionChanged, this,
            [&](int row) { told += QStringLiteral("changed %1").arg(row); });
    connect(&list, &QListWidget::clicked, this,
            [&](QModelIndex const& index)
            { told += QStringLiteral("clicked %1, %2 sounds").arg(index.row()).arg(Sounds().size()); });
    connect(&list, &TListWidget::MouseReleased, this,
            [&](int row) { told += QStringLiteral("released %1, %2 sounds").arg(row).arg(Sounds().size()); });
    m_Stage->finger.Press(m_Stage->PlaceOfRow(3));
    QCOMPARE(told, QStringList({QStringLiteral("pressed -1"), QStringLiteral("changed 3"),
                                QStringLiteral("changed 3")}));
    QVERIFY(list.IsItemSelected(3));
    told.clear();
    m_Stage->finger.Lift();
    QCOMPARE(told,
             QStringList({QStringLiteral("clicked 3, 0 sounds"), QStringLiteral("released 3, 1 sounds")}));
    QCOMPARE(Sounds(), QVector<int>{PressSound});
}

void TListWidgetTest::releaseBesideTheRowsIsSilent_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    // Two rows end at 100.
    QTest::newRow("on the ground") << 2 << QPoint(20, 150) << QPoint(20, 150);
    QTest::newRow("dragged to the ground") << 2 << QPoint(20, 20) << QPoint(20, 150);
    QTest::newRow("left of the list") << 2 << QPoint(20, 20) << QPoint(-5, 20);
    QTest::newRow("right of the list") << 2 << QPoint(20, 20) << QPoint(ListSize.width(), 20);
    QTest::newRow("above the list") << 2 << QPoint(20, 20) << QPoint(20, -1);
    // A row would stand there.
    QTest::newRow("below the list") << 10 << QPoint(20, 20) << QPoint(20, ListSize.height());
}

void TListWidgetTest::releaseBesideTheRowsIsSilent()
{
    QFETCH(int, rows);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    Fill(rows);
    QSignalSpy const released(&List(), &TListWidget::MouseReleased);
    m_Stage->finger.Press(List().pos() + from);
    m_Stage->finger.Move(List().pos() + to);
    m_Stage->finger.Lift();
    QCOMPARE(Sounds(), QVector<int>());
    QCOMPARE(released.count(), 1);
    QCOMPARE(released.first().first().toInt(), List().GetSelectedItem());
}

void TListWidgetTest::rowFollowsTheFinger()
{
    Fill(10);
    QSignalSpy const clicked(&List(), &QListWidget::clicked);
    QSignalSpy const released(&List(), &TListWidget::MouseReleased);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(0));
    for (int const row : {1, 2, 3, 2, 4})
    {
        m_Stage->finger.Move(m_Stage->PlaceOfRow(row));
        QCOMPARE(List().GetSelectedItem(), row);
        QCOMPARE(List().GetSelectedTextItems().size(), 1);
        QVERIFY(List().IsItemSelected(unsigned(row)));
    }
    // The row that was cut at the bottom has moved up as a whole.
    QVERIFY(List().viewport()->rect().contains(List().visualItemRect(List().item(4))));
    m_Stage->finger.Lift();
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(released.last().first().toInt(), 4);
}

void TListWidgetTest::moveWithoutAPressIsLeftToTheParent()
{
    Fill(10);
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 70), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(List().viewport(), &move);
    QVERIFY(!move.isAccepted());
    QCOMPARE(List().GetSelectedItem(), -1);
    QVERIFY(!List().IsAnythingSelected());
}

void TListWidgetTest::tapsToggleWhereSeveralMayBeSelected()
{
    Fill(10);
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    for (int const row : {3, 1, 4, 3})
        m_Stage->finger.Touch(m_Stage->PlaceOfRow(row));
    QCOMPARE(List().GetSelectedTextItems(), QStringList({QStringLiteral("row 1"), QStringLiteral("row 4")}));
    QCOMPARE(List().GetSelectedItem(), 3);
}

void TListWidgetTest::barAndPagesTurnTheRows()
{
    Fill(100);
    QScrollBar* const bar = List().verticalScrollBar();
    QCOMPARE(bar->geometry().width(), 33);
    int const x = List().x() + ListSize.width() - 10;
    m_Stage->finger.Touch(QPoint(x, List().y() + ListSize.height() - 2));
    // The row that was cut at the bottom is the first one now.
    QCOMPARE(List().visualItemRect(List().item(4)).top(), 0);
    m_Stage->finger.Press(QPoint(x, List().y() + 30));
    m_Stage->finger.Move(QPoint(x, List().y() + 1000));
    m_Stage->finger.Lift();
    QCOMPARE(bar->value(), bar->maximum());
    QVERIFY(List().viewport()->rect().contains(List().visualItemRect(List().item(99))));
    // Neither is a press on a row.
    QCOMPARE(List().GetSelectedItem(), -1);
}

void TListWidgetTest::longTextIsShownWhileItIsHeld()
{
    QString const longText =
        QStringLiteral("a text that is much too long for the row that it stands in, by far");
    List().AddString(QStringLiteral("short"), RowHeight);
    List().AddString(longText, RowHeight);
    TListToolTips& tips = m_Stage->toolTips;
    m_Stage->finger.Press(m_Stage->PlaceOfRow(0));
    QCOMPARE(tips.m_Text, QString());
    QVERIFY(tips.m_HiddenToolTips > 0);
    m_Stage->finger.Move(m_Stage->PlaceOfRow(1));
    QCOMPARE(tips.m_Text, longText);
    QCOMPARE(tips.m_Source, &List());
    m_Stage->finger.Move(m_Stage->PlaceOfRow(0));
    QCOMPARE(tips.m_Text, QString());
    m_Stage->finger.Move(m_Stage->PlaceOfRow(1));
    QCOMPARE(tips.m_Text, longText);
    m_Stage->finger.Lift();
    QCOMPARE(tips.m_Text, QString());
    // Nothing is held.
    List().RefreshToolTip();
    QCOMPARE(tips.m_Text, QString());
}

void TListWidgetTest::textThatFitsItsWidthExactlyShowsNoToolTipOnHold_data()
{
    QTest::addColumn<bool>("hasIcon");
    QTest::addColumn<int>("beside");
    QTest::newRow("without icons") << false << WidthBesideText;
    QTest::newRow("with icons") << true << WidthBesideTextAndIcon;
}

void TListWidgetTest::textThatFitsItsWidthExactlyShowsNoToolTipOnHold()
{
    QFETCH(bool, hasIcon);
    QFETCH(int, beside);
    QString const text = TextOfWidth(200);
    List().AddString(text, RowHeight, 0, hasIcon ? TestIcon() : QIcon());
    List().resize(TextWidth(text) + beside, 200);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(0));
    QCOMPARE(m_Stage->toolTips.m_Text, QString());
    m_Stage->finger.Lift();
    QImage const whole = m_Stage->Picture();
    List().resize(List().width() - 1, 200);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(0));
    QCOMPARE(m_Stage->toolTips.m_Text, text);
    // That is also where the text ends in an ellipsis.
    QVERIFY(m_Stage->Picture() != whole.copy(0, 0, List().width(), whole.height()));
    QImage const elided = m_Stage->Picture();
    List().resize(List().width() + 1, 200);
    QCOMPARE(m_Stage->Picture().copy(0, 0, 100, RowHeight), elided.copy(0, 0, 100, RowHeight));
}

void TListWidgetTest::pressEndsWhenTheListGoesAway_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("hidden") << QByteArrayLiteral("visible");
    QTest::newRow("disabled") << QByteArrayLiteral("enabled");
}

void TListWidgetTest::pressEndsWhenTheListGoesAway()
{
    QFETCH(QByteArray, property);
    List().AddString(QString(200, QLatin1Char('m')), RowHeight);
    List().AddString(QStringLiteral("short"), RowHeight);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(0));
    QVERIFY(!m_Stage->toolTips.m_Text.isEmpty());
    List().setProperty(property.constData(), false);
    QCOMPARE(m_Stage->toolTips.m_Text, QString());
    List().setProperty(property.constData(), true);
    m_Stage->finger.Move(m_Stage->PlaceOfRow(1));
    QCOMPARE(List().GetSelectedItem(), 0);
    QCOMPARE(m_Stage->toolTips.m_Text, QString());
}

void TListWidgetTest::groundIsThatOfTheList()
{
    Fill(1);
    QPoint const below(10, RowHeight + 20);
    QCOMPARE(m_Stage->Picture().pixelColor(below), StageGround);
    List().SetListColor(QColor(200, 100, 50));
    QCOMPARE(m_Stage->Picture().pixelColor(below), QColor(200, 100, 50));
    List().SetListColor(QColor(255, 255, 255, 51));
    QImage expected(1, 1, QImage::Format_RGB32);
    expected.fill(StageGround);
    QPainter(&expected).fillRect(0, 0, 1, 1, QColor(255, 255, 255, 51));
    QCOMPARE(m_Stage->Picture().pixel(below), expected.pixel(0, 0));
    QImage const bar = List().verticalScrollBar()->grab().toImage();
    List().UseGlassEffect(true);
    QCOMPARE(m_Stage->Picture().pixelColor(below), StageGround);
    QVERIFY(List().verticalScrollBar()->grab().toImage() != bar);
    List().UseGlassEffect(false);
    QCOMPARE(m_Stage->Picture().pixel(below), expected.pixel(0, 0));
    QCOMPARE(List().verticalScrollBar()->grab().toImage(), bar);
}

void TListWidgetTest::skinTellsTheSelection()
{
    Fill(2, QString());
    List().SetCurrentRow(1);
    QSize const size(ListSize.width(), RowHeight);
    QImage const picture = m_Stage->Picture();
    QImage const free = picture.copy(QRect(QPoint(0, 0), size));
    QImage const selected = picture.copy(QRect(QPoint(0, RowHeight), size));
    QImage const freeSkin = Skin(PixmapNames::ListItem, size);
    QImage const selectedSkin = Skin(QStringLiteral("list-interactive-entry-selected"), size);
    // Beside the text there is nothing but the skin; the text is white, or black on the selected row.
    QRect const freeInk = Ink(free, freeSkin);
    QRect const selectedInk = Ink(selected, selectedSkin);
    QVERIFY(QRect(6, 10, 20, 30).contains(freeInk));
    QVERIFY(QRect(6, 10, 20, 30).contains(selectedInk));
    QVERIFY(!freeInk.isEmpty() && !selectedInk.isEmpty());
    auto const extreme = [](QImage const& image, QRect const& area, bool brightest)
    {
        int found = brightest ? 0 : 255;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                found =
                    brightest ? qMax(found, qGray(image.pixel(x, y))) : qMin(found, qGray(image.pixel(x, y)));
        return found;
    };
    QVERIFY(extreme(free, freeInk, true) > 240);
    QVERIFY(extreme(selected, selectedInk, false) < 15);
}

void TListWidgetTest::textStandsBesideTheIconColumn()
{
    auto const textLeft = [this](int row)
    {
        QSize const size(ListSize.width(), RowHeight);
        QImage const picture = m_Stage->Picture().copy(QRect(QPoint(0, row * RowHeight), size));
        QImage const skin = Skin(PixmapNames::ListItem, size);
        QRect const ink = Ink(picture, skin);
        // The red icon is no text.
        QRect const beside(3 + 16 + 3, 0, size.width(), RowHeight);
        return picture.pixel(5, RowHeight / 2) == qRgb(255, 0, 0)
                   ? Ink(picture.copy(beside), skin.copy(beside)).left() + beside.left()
                   : ink.left();
    };
    List().AddString(QStringLiteral("H"), RowHeight);
    int const without = textLeft(0);
    List().AddString(QStringLiteral("H"), RowHeight, 0, TestIcon());
    List().AddString(QStringLiteral("H"), RowHeight);
    int const with = textLeft(1);
    QCOMPARE(with - without, WidthBesideTextAndIcon - WidthBesideText);
    QCOMPARE(textLeft(0), with);
    QCOMPARE(textLeft(2), with);
    QImage const picture = m_Stage->Picture();
    QRect const icon(3, RowHeight + (RowHeight - 16) / 2, 16, 16);
    QCOMPARE(picture.pixel(icon.topLeft()), qRgb(255, 0, 0));
    QCOMPARE(picture.pixel(icon.bottomRight()), qRgb(255, 0, 0));
    QVERIFY(picture.pixel(icon.topLeft() - QPoint(1, 0)) != qRgb(255, 0, 0));
    QVERIFY(picture.pixel(icon.bottomRight() + QPoint(1, 0)) != qRgb(255, 0, 0));
    QVERIFY(picture.pixel(icon.bottomRight() + QPoint(0, 1)) != qRgb(255, 0, 0));
}

void TListWidgetTest::everythingIsMirroredFromRightToLeft()
{
    List().setLayoutDirection(Qt::RightToLeft);
    List().AddString(QStringLiteral("\u05e9\u05dc\u05d5\u05dd"), RowHeight, 0, TestIcon());
    QImage const picture = m_Stage->Picture();
    QCOMPARE(picture.pixel(ListSize.width() - 4, RowHeight / 2), qRgb(255, 0, 0));
    QRect const beside(0, 0, ListSize.width() - 3 - 16 - 3, RowHeight);
    QImage const skin = Skin(PixmapNames::ListItem, QSize(ListSize.width(), RowHeight));
    QRect const ink = Ink(picture.copy(beside), skin.copy(beside));
    QVERIFY(ink.right() >= beside.right() - 6);
    QVERIFY(ink.left() > ListSize.width() / 2);
    for (int i = 0; i < 20; ++i)
        List().AddString(QString::number(i), RowHeight);
    QCoreApplication::processEvents();
    QCOMPARE(List().viewport()->x(), 33);
}

void TListWidgetTest::anyTextIsDrawnInItsRow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isSeen");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("blanks") << QStringLiteral("   ") << false;
    QTest::newRow("line ends") << QStringLiteral("one\ntwo\r\nthree\vfour\ffive") << true;
    QTest::newRow("leading line ends") << QString(50, QLatin1Char('\n')) + QStringLiteral("end") << true;
    QString controls;
    for (ushort c = 0; c < 0x20; ++c)
        controls += QChar(c);
    QTest::newRow("control characters") << controls << false;
    QTest::newRow("text among control characters") << controls + QStringLiteral("text") + controls << true;
    QTest::newRow("a hundred thousand characters") << QString(100000, QLatin1Char('m')) << true;
    // They are as wide as blanks, so that an ellipsis tells of them.
    QTest::newRow("a hundred thousand line ends") << QString(100000, QLatin1Char('\n')) << true;
    QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(20) << true;
    QTest::newRow("both directions") << QStringLiteral("Tank \u05e9\u05dc\u05d5\u05dd 7") << true;
    QTest::newRow("broken surrogates") << QString(QChar(0xd800)) + QString(QChar(0xdc00)).repeated(2) << true;
    QTest::newRow("markup") << QStringLiteral("<h1>&amp;<br>") << true;
    QTest::newRow("marks without a letter") << QString(500, QChar(0x0301)) << true;
}

void TListWidgetTest::anyTextIsDrawnInItsRow()
{
    QFETCH(QString, text);
    QFETCH(bool, isSeen);
    List().AddString(QString(), RowHeight);
    List().AddString(text, RowHeight);
    List().AddString(QString(), RowHeight);
    QCOMPARE(List().GetItemText(1), text);
    QSize const size(ListSize.width(), RowHeight);
    QImage const skin = Skin(PixmapNames::ListItem, size);
    QImage const picture = m_Stage->Picture();
    auto const row = [&](int i) { return picture.copy(QRect(QPoint(0, i * RowHeight), size)); };
    QCOMPARE(Ink(row(0), skin), QRect());
    QCOMPARE(Ink(row(2), skin), QRect());
    QRect const ink = Ink(row(1), skin);
    QCOMPARE(!ink.isEmpty(), isSeen);
    QVERIFY(ink.isEmpty() || (ink.left() >= 6 && ink.right() < ListSize.width() - 2));
    m_Stage->finger.Touch(m_Stage->PlaceOfRow(1));
    QVERIFY(List().IsItemSelected(1));
}

void TListWidgetTest::onlyRowsInSightArePainted_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("painted");
    // The list is four and a half rows high.
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("as many as fit") << 4 << 4;
    QTest::newRow("fifty") << 50 << 5;
    QTest::newRow("a hundred thousand") << 100000 << 5;
}

void TListWidgetTest::onlyRowsInSightArePainted()
{
    QFETCH(int, rows);
    QFETCH(int, painted);
    Fill(rows);
    auto* const delegate = new TCountingDelegate(&List());
    List().setItemDelegate(delegate);
    for (int const position : {0, rows / 2, rows})
    {
        List().verticalScrollBar()->setValue(position);
        QCoreApplication::processEvents();
        delegate->m_Painted = 0;
        List().viewport()->repaint();
        QVERIFY(delegate->m_Painted <= painted);
        QVERIFY(delegate->m_Painted >= painted - 1);
    }
    if (rows < 2)
        return;
    List().SetCurrentRow(List().row(List().itemAt(5, 5)));
    QCoreApplication::processEvents();
    delegate->m_Painted = 0;
    // A step repaints the two rows that change.
    List().OnDown();
    QCoreApplication::processEvents();
    QCOMPARE(delegate->m_Painted, 2);
}

void TListWidgetTest::paintingARowAgainAllocatesNothing()
{
    TOpenList list(nullptr);
    list.resize(ListSize);
    list.AddString(QStringLiteral("Section 12: 140 l/ha"), RowHeight);
    list.AddString(QStringLiteral("a text that is much too long for the row that it stands in, by far"),
                   RowHeight);
    QImage image(ListSize.width(), RowHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    QStyleOptionViewItem option = list.viewOptions();
    option.rect = image.rect();
    auto const paint = [&]
    {
        for (int row = 0; row < 2; ++row)
        {
            for (bool const isSelected : {false, true})
            {
                option.state.setFlag(QStyle::State_Selected, isSelected);
                list.itemDelegate()->paint(&painter, option, list.model()->index(row, 0));
            }
        }
    };
    paint();
    TAllocationCount const allocations;
    paint();
    QCOMPARE(allocations.Value(), qint64(0));
}

void TListWidgetTest::rowsAreLaidOutWheneverTheyCome()
{
    auto const place = [this](int row) { return List().visualItemRect(List().item(row)); };
    Fill(2);
    Fill(2);
    QCOMPARE(place(3), QRect(0, 3 * RowHeight, ListSize.width(), RowHeight));
    // Without a frame in between.
    List().AddString(QStringLiteral("low"), 20);
    QCOMPARE(place(4).height(), 20);
    List().AddString(QStringLiteral("below"), RowHeight);
    QCOMPARE(place(5).top(), 4 * RowHeight + 20);
    List().insertItem(0, QStringLiteral("foreign"));
    List().item(0)->setSizeHint(QSize(0, 30));
    QCOMPARE(place(1).top(), 30);
    QCOMPARE(place(6).top(), 4 * RowHeight + 50);
    List().Clear();
    List().AddString(QStringLiteral("first"), 40);
    QCOMPARE(place(0), QRect(0, 0, ListSize.width(), 40));
    // While nobody looks.
    List().hide();
    Fill(99);
    List().show();
    QCoreApplication::processEvents();
    QCOMPARE(place(2).top(), 40 + RowHeight);
    QCOMPARE(List().verticalScrollBar()->maximum(), 96);
}

void TListWidgetTest::withoutAScreenTheTextsAreDrawn()
{
    m_Stage.reset();
    TListWidget list(nullptr);
    list.resize(ListSize);
    list.SetListColor(Qt::black);
    list.AddString(QStringLiteral("row"), RowHeight);
    list.show();
    QImage black(ListSize, QImage::Format_RGB32);
    black.fill(Qt::black);
    QVERIFY(!Ink(list.grab().toImage(), black).isEmpty());
    TFinger(&list).Touch(QPoint(20, 20));
    QCOMPARE(list.GetSelectedItem(), 0);
}

void TListWidgetTest::pictures()
{
    COMPARE_PICTURE(m_Stage->Picture(), "list-empty");
    TEditContainerQString names;
    names.setAt(0, QStringLiteral("icon-info@20.png"));
    names.setAt(2, QStringLiteral("icon-tank@20.png"));
    for (int i = 0; i < 8; ++i)
        List().AddString(QStringLiteral("Nozzle %1").arg(i + 1), RowHeight);
    List().AddString(QStringLiteral("A nozzle with a name that is too long for the list"), RowHeight);
    List().SetItemText(3, List().GetItemText(8), 0);
    List().SetListColor(listItemColor);
    List().SetCurrentRow(1);
    COMPARE_PICTURE(m_Stage->Picture(), "list-rows");
    List().SetupListItemIcon(names);
    List().setSelectionMode(QAbstractItemView::MultiSelection);
    List().SelectItem(2, true);
    COMPARE_PICTURE(m_Stage->Picture(), "list-icons");
    List().setLayoutDirection(Qt::RightToLeft);
    List().UseGlassEffect(true);
    COMPARE_PICTURE(m_Stage->Picture(), "list-right-to-left-glass");
}

void TListWidgetTest::slotsMayDeleteIt_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("deed");
    for (char const* const signal : {"MousePressed()", "SelectionChanged(int)", "MouseReleased(int)"})
        QTest::newRow(signal) << QByteArray(signal) << QByteArrayLiteral("touch");
    QTest::newRow("drag") << QByteArrayLiteral("SelectionChanged(int)") << QByteArrayLiteral("drag");
    QTest::newRow("wheel") << QByteArrayLiteral("SelectionChanged(int)") << QByteArrayLiteral("wheel");
    QTest::newRow("enter") << QByteArrayLiteral("Selection(int)") << QByteArrayLiteral("enter");
    for (char const* const deed : {"select", "deselect", "select all", "select texts", "current row"})
        QTest::newRow(deed) << QByteArrayLiteral("SelectionChanged(int)") << QByteArray(deed);
}

void TListWidgetTest::slotsMayDeleteIt()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, deed);
    TListScene scene;
    QPointer<TListWidget> const list = scene.list;
    bool const isMulti = deed.startsWith("select ") || deed == "deselect";
    list->setSelectionMode(isMulti ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
    bool const isBefore = deed == "drag";
    if (isBefore)
        scene.finger.Press(QPoint(20, 20));
    else if (deed != "touch")
        list->SetCurrentRow(0);
    TDeleter deleter(list);
    QVERIFY(connect(list, ('2' + signal).constData(), &deleter, SLOT(Delete())));
    if (deed == "touch")
        scene.finger.Touch(QPoint(20, 20));
    else if (deed == "drag")
        scene.finger.Move(QPoint(20, 120));
    else if (deed == "wheel")
        list->OnMMIWheelRight();
    else if (deed == "enter")
        QVERIFY(!list->OnMMIEnter());
    else if (deed == "select")
        list->SelectItem(2, true);
    else if (deed == "deselect")
        list->SelectItem(0, false);
    else if (deed == "select all")
        list->SelectAll();
    else if (deed == "select texts")
        list->SelectItems({QStringLiteral("row 2"), QStringLiteral("row 1")});
    else
        list->SetCurrentRow(2);
    QVERIFY(!list);
}

// On another row than the first the second press comes as a press too.
void TListWidgetTest::mayBeDeletedByTheSecondPressOfADoubleClick()
{
    TListScene scene;
    scene.finger.Touch(QPoint(20, 20));
    connect(scene.list.data(), &TListWidget::MousePressed, this, [&scene] { delete scene.list.data(); });
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(20, 120), Qt::LeftButton, Qt::LeftButton,
                       Qt::NoModifier);
    QCoreApplication::sendEvent(scene.list->viewport(), &second);
    QVERIFY(!scene.list);
}

void TListWidgetTest::deletedWhilePressed()
{
    TListScene scene;
    QPointer<TListWidget> const list = scene.list;
    scene.finger.Press(QPoint(20, 20));
    QCOMPARE(list->GetSelectedItem(), 0);
    delete list;
    scene.finger.Move(QPoint(20, 120));
    scene.finger.Lift();
    QVERIFY(!list);
}

void TListWidgetTest::rowsMayBeRemovedWhilePressed()
{
    Fill(10);
    QSignalSpy const clicked(&List(), &QListWidget::clicked);
    QSignalSpy const released(&List(), &TListWidget::MouseReleased);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(2));
    delete List().takeItem(2);
    m_Stage->finger.Lift();
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(released.count(), 1);
    m_Stage->finger.Press(m_Stage->PlaceOfRow(2));
    List().Clear();
    m_Stage->finger.Move(m_Stage->PlaceOfRow(1));
    m_Stage->finger.Lift();
    QCOMPARE(released.last().first().toInt(), -1);
    QCOMPARE(clicked.count(), 0);
}

void TListWidgetTest::slotMayClearTheList()
{
    TListWidget& list = List();
    Fill(10);
    QVector<int> told;
    connect(&list, &TListWidget::SelectionChanged, this,
            [&](int row)
            {
                told.append(row);
                list.Clear();
            });
    m_Stage->finger.Touch(m_Stage->PlaceOfRow(2));
    QCOMPARE(told, QVector<int>{2});
    QCOMPARE(list.GetNumberOfItems(), 0);
}

COMMONUI_TEST(TListWidgetTest)

#include "TListWidgetTest.moc"
