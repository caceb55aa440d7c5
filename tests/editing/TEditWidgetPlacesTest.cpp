#include "Fonts.h"
#include "RenderUtils.h"
#include "TEditPlacesModel.h"
#include "TEditPlacesStage.h"
#include "TestCase.h"

#include <QScrollArea>

namespace
{
constexpr QSize ValueSize(100, 40);
constexpr QSize NoWish(-1, -1);

TListPlace PlaceOf(TEditPlacesStage const& stage)
{
    return {stage.Box(), stage.Rows(), !stage.Value()->isHidden()};
}

/// The corners, the sides and the middle of \a usable, and places between them, for a source of \a size.
QVector<QPoint> Corners(QRect const& usable, QSize const& size)
{
    constexpr int parts = 6;
    QSize const room = usable.size() - size;
    QVector<QPoint> corners;
    for (int row = 0; row <= parts; ++row)
    {
        for (int column = 0; column <= parts; ++column)
            corners.append(usable.topLeft() +
                           QPoint(room.width() * column / parts, room.height() * row / parts));
    }
    return corners;
}

QImage PictureOf(TPushButton* button)
{
    QPixmap pixmap(button->size());
    pixmap.fill(Qt::white);
    button->render(&pixmap, QPoint(), QRegion(), QWidget::RenderFlags());
    return pixmap.toImage();
}

/// The size in which the value is written: that of a button which looks the same; 0 for none.
int FontSize(TEditPlacesStage const& stage)
{
    constexpr int largest = 50;
    TPushButton* const value = stage.Value();
    // Wide enough to show its text as large as it is set.
    value->setFixedWidth(SCREEN_WIDTH);
    TPushButton other(value->parentWidget(), -1, QString());
    other.resize(value->size());
    other.SetText(value->GetText(), QString(), false, QString(), false);
    QImage const wanted = PictureOf(value);
    for (int size = 1; size <= largest; ++size)
    {
        other.SetFontProperties(Qt::black, size, true, false, false, 129, false);
        if (PictureOf(&other) == wanted)
            return size;
    }
    return 0;
}

void AddRooms()
{
    QTest::addColumn<QRect>("usable");
    QTest::newRow("whole window") << QRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    QTest::newRow("bar at the right") << QRect(0, 0, SCREEN_WIDTH - 90, SCREEN_HEIGHT);
    QTest::newRow("bars all around") << QRect(80, 60, 800, 560);
    QTest::newRow("narrow and low") << QRect(300, 200, 330, 300);
}
} // namespace

/// Where the parts of an edit widget stand.
class TEditWidgetPlacesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsGoWhereTheRulesSay_data();
    void listsGoWhereTheRulesSay();
    void listsWithAWishGoWhereTheRulesSay_data();
    void listsWithAWishGoWhereTheRulesSay();
    void padsGoWhereTheRulesSay_data();
    void padsGoWhereTheRulesSay();

    void anEmptyListKeepsItsWidth();
    void aListThatCannotHoldTwoRowsShowsNone();
    void listStandsRightOfTheValue();
    void listEndsOnePixelBeforeTheRightEdge();
    void listGoesLeftWhereThereIsMoreThanItsWidth();
    void listGoesBelowAWideValue();
    void listBelowIsCentredWhereItWouldPassTheEdge();
    void listWiderThanTheRoomIsCut();
    void listGoesAboveAtTheTopOfTheRoom();
    void listBelowIsShortenedToTwoRowsAtLeast();
    void listAboveIsShortenedToTwoRowsAtLeast();
    void listThatFitsNowhereCoversTheValue();
    void listMovesUpByWhatItPassesTheBottom();
    void listKeepsWithinTheHeightAskedFor();
    void listOfOneRowIsNotShortened();
    void listIsAsWideAsItsWidestRow();
    void listIsAsWideAsAskedFor();
    void hiddenRowsTakeNoRoom();
    void moreRoomInTheBoxMakesItHigher();
    void buttonsStandUnderTheList();
    void boxIsPaintedAroundTheList();
    void titleTakesRoomAboveTheList();
    void titleOfALineLeavesTwoBorders();
    void titleIsForSeveralSelectionsOrOnDemand();
    void titleGivenToAnOpenListMovesIt();
    void titleIsWrittenWhite();

    void valueLiesOverItsSource();
    void valueFollowsItsSource();
    void valueTakesTheRectangleOfTheFunction();
    void functionIsAskedForTheParent();
    void sourceMayStandInAnotherWidget();
    void nothingHappensWithoutASource();
    void openWidgetMovesToItsNewSource();
    void widgetFillsItsParent();
    void widgetTellsItsOrigin();
    void widgetPlacesNothingWhileOverridden();
    void boxOfAnOverriddenListIsPainted();
    void valueIsClippedToAScrolledSource();
    void valueOfASourceScrolledAwayIsNotSeen();
    void valueWithoutSourceIsClippedToNothing();
    void valueMayBeHidden();
    void fontShrinksUntilTheTextFits();
    void fontIsNoLargerThanTheButton();
    void fontRangeTakesAnyOrder();
    void oddFontRangesAreHeldToOnePixel();
    void fontSizeOfTheItemIsFixed();
    void valueButtonWidthFollowsTheText();

    void minusAndPlusStandRightOfTheValue();
    void okAndCancelStandBelowThem();
    void stackJumpsLeftAtTheEdge();
    void stackCoversTheEndOfAValueAsWideAsTheScreen();
    void stackMovesUpAtTheBottom();
    void padStandsBelowTheValue();
    void padWithoutPlusStandsUnderTheValue();
    void padIsPulledFromTheRightEdge();
    void padGoesAboveTheValue();
    void padGoesBesideAValueOnTheLeft();
    void padGoesBesideAValueOnTheRight();
    void padThatDoesNotFitIsCentred();
    void padIsCentredOnDemand();
    void padIsCentredOnAnotherDisplay();
    void padFloatsAgainWhenItFits();
    void unitsButtonStandsBesideTheValue();
    void unitsButtonTakesItsWidthFromAWideValue();
    void keysOfACentredPadAreOnTop();
    void plainWindowMayBeUsedWholly();
    void oddSourcesDoNoHarm_data();
    void oddSourcesDoNoHarm();
};

// ---- models ----

void TEditWidgetPlacesTest::listsGoWhereTheRulesSay_data()
{
    AddRooms();
}

void TEditWidgetPlacesTest::listsGoWhereTheRulesSay()
{
    QFETCH(QRect, usable);
    for (int const rows : {0, 1, 2, 3, 4, 5, 7, 9, 11, 12, 13, 14, 20, 40})
    {
        TEditPlacesStage stage(TEditPlacesStage::ListItem(rows));
        stage.window.m_Usable = usable;
        stage.OpenOver(QRect(QPoint(), ValueSize));
        for (QSize const& size : {ValueSize, QSize(320, 60)})
        {
            QVector<QPoint> const corners = Corners(usable, size);
            for (QPoint const& corner : corners)
            {
                stage.source.setGeometry(QRect(corner, size));
                stage.widget->SourceMovedSlot();
                TListModel model(usable, stage.source.geometry(), rows, NoWish, SCREEN_HEIGHT);
                QCOMPARE(PlaceOf(stage), model.Place());
            }
        }
    }
}

void TEditWidgetPlacesTest::listsWithAWishGoWhereTheRulesSay_data()
{
    AddRooms();
}

void TEditWidgetPlacesTest::listsWithAWishGoWhereTheRulesSay()
{
    QFETCH(QRect, usable);
    for (QSize const& wish : {QSize(300, 350), QSize(600, -1), QSize(1200, 200), QSize(0, 0), QSize(1, 1)})
    {
        for (int const rows : {1, 2, 8, 30})
        {
            TEditPlacesStage stage(TEditPlacesStage::ListItem(rows));
            stage.window.m_Usable = usable;
            stage.OpenOver(QRect(QPoint(), ValueSize), wish);
            QVector<QPoint> const corners = Corners(usable, ValueSize);
            for (QPoint const& corner : corners)
            {
                stage.source.setGeometry(QRect(corner, ValueSize));
                stage.widget->SourceMovedSlot();
                TListModel model(usable, stage.source.geometry(), rows, wish, SCREEN_HEIGHT);
                QCOMPARE(PlaceOf(stage), model.Place());
            }
        }
    }
}

void TEditWidgetPlacesTest::padsGoWhereTheRulesSay_data()
{
    AddRooms();
    QTest::newRow("low") << QRect(0, 0, SCREEN_WIDTH, 520);
    QTest::newRow("low and away from the corner") << QRect(60, 40, 940, 560);
}

void TEditWidgetPlacesTest::padsGoWhereTheRulesSay()
{
    QFETCH(QRect, usable);
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.OpenOver(QRect(400, 20, 100, 40));
    QSize const padSize = stage.Pad()->size();
    stage.window.m_Usable = usable;
    for (QSize const& size : {ValueSize, QSize(260, 60)})
    {
        QVector<QPoint> const corners = Corners(usable, size);
        for (QPoint const& corner : corners)
        {
            stage.source.setGeometry(QRect(corner, size));
            stage.widget->SourceMovedSlot();
            TPadPlace const place = TPadModel(usable, stage.source.geometry(), padSize).Place();
            QCOMPARE(stage.Plus()->isHidden(), place.isInline);
            QCOMPARE(stage.Minus()->isHidden(), place.isInline);
            if (place.isInline)
                continue;
            QCOMPARE(stage.Pad()->size(), padSize);
            QCOMPARE(stage.Pad()->pos(), place.pad);
            QCOMPARE(stage.Minus()->pos(), place.minus);
            QCOMPARE(stage.Plus()->pos(), place.plus);
        }
    }
}

// ---- the list ----

void TEditWidgetPlacesTest::anEmptyListKeepsItsWidth()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(0));
    stage.OpenOver(QRect(100, 100, 100, 40));
    QCOMPARE(stage.widget->GetNumVisibleListEntries(), 0);
    QCOMPARE(stage.List()->GetNumberOfItems(), 0);
    QCOMPARE(stage.Box(), QRect(200, 80, 250, 120));
}

void TEditWidgetPlacesTest::aListThatCannotHoldTwoRowsShowsNone()
{
    // Room for 1.9 rows.
    TEditPlacesStage stage(TEditPlacesStage::ListItem(8));
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 215));
    QCOMPARE(stage.Rows(), 0);
    QCOMPARE(stage.List()->height(), 0);
    // The box that was moved up for eight rows stays where it is.
    QCOMPARE(stage.ListOk()->y(), stage.List()->y() + 8);
}

void TEditWidgetPlacesTest::listStandsRightOfTheValue()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 200, 100, 40));
    QCOMPARE(stage.Box(), QRect(200, 180, 250, 320));
    QCOMPARE(stage.List()->geometry(), QRect(220, 200, 210, 200));
}

void TEditWidgetPlacesTest::listEndsOnePixelBeforeTheRightEdge()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    int const last = SCREEN_WIDTH - 1;
    // The first pixel right of the box lies left of the last one of the room.
    stage.OpenOver(QRect(last - 1 - 250 - 100, 200, 100, 40));
    QCOMPARE(stage.Box().x(), last - 1 - 250);
    stage.OpenOver(QRect(last - 250 - 100, 200, 100, 40));
    QCOMPARE(stage.Box().x(), last - 250 - 100 - 250);
}

void TEditWidgetPlacesTest::listGoesLeftWhereThereIsMoreThanItsWidth()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.window.m_Usable = QRect(50, 0, 500, SCREEN_HEIGHT);
    stage.OpenOver(QRect(301, 200, 100, 40));
    QCOMPARE(stage.Box(), QRect(51, 180, 250, 320));
    stage.OpenOver(QRect(300, 200, 100, 40));
    QCOMPARE(stage.Box().topLeft(), QPoint(300, 240));
}

void TEditWidgetPlacesTest::listGoesBelowAWideValue()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 200, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 240, 250, 320));
    // A value that begins left of the room.
    stage.window.m_Usable = QRect(120, 0, 800, SCREEN_HEIGHT);
    stage.OpenOver(QRect(100, 200, 800, 40));
    QCOMPARE(stage.Box(), QRect(120, 240, 250, 320));
}

void TEditWidgetPlacesTest::listBelowIsCentredWhereItWouldPassTheEdge()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.window.m_Usable = QRect(0, 0, 400, SCREEN_HEIGHT);
    stage.OpenOver(QRect(150, 200, 100, 40));
    QCOMPARE(stage.Box().topLeft(), QPoint(150, 240));
    stage.OpenOver(QRect(151, 200, 100, 40));
    QCOMPARE(stage.Box().topLeft(), QPoint(75, 240));
    // Half of what is left over in the room counts from the left of the window.
    stage.window.m_Usable = QRect(60, 0, 400, SCREEN_HEIGHT);
    stage.OpenOver(QRect(211, 200, 100, 40));
    QCOMPARE(stage.Box().topLeft(), QPoint(75, 240));
    stage.window.m_Usable = QRect(100, 0, 400, SCREEN_HEIGHT);
    stage.OpenOver(QRect(251, 200, 100, 40));
    QCOMPARE(stage.Box().topLeft(), QPoint(100, 240));
}

void TEditWidgetPlacesTest::listWiderThanTheRoomIsCut()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.window.m_Usable = QRect(40, 0, 400, SCREEN_HEIGHT);
    stage.OpenOver(QRect(200, 200, 100, 40), QSize(600, -1));
    QCOMPARE(stage.Box(), QRect(40, 240, 400, 320));
    QCOMPARE(stage.List()->width(), 360);
}

void TEditWidgetPlacesTest::listGoesAboveAtTheTopOfTheRoom()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.window.m_Usable = QRect(0, 30, SCREEN_WIDTH, 700);
    stage.OpenOver(QRect(100, 411, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 30, 250, 320));
    // The 320 pixels of the box fit below, exactly.
    stage.OpenOver(QRect(100, 370, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 410, 250, 320));
    // They fit above, exactly.
    stage.window.m_Usable.setHeight(600);
    stage.OpenOver(QRect(100, 350, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 30, 250, 320));
    stage.OpenOver(QRect(100, 349, 800, 40));
    QCOMPARE(stage.Box().y(), 389);
}

void TEditWidgetPlacesTest::listBelowIsShortenedToTwoRowsAtLeast()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(20));
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 600);
    stage.OpenOver(QRect(100, 340, 800, 40));
    // 220 pixels below are two rows and the rest of the box; to be within them by half a row costs both.
    QCOMPARE(stage.Box().topLeft(), QPoint(100, 380));
    QCOMPARE(stage.Rows(), 0);
    stage.OpenOver(QRect(100, 300, 800, 40));
    // 260 pixels are 2.8 rows.
    QCOMPARE(stage.Box(), QRect(100, 340, 250, 220));
    // What reaches a whole row too far loses one more.
    stage.OpenOver(QRect(100, 290, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 330, 250, 220));
}

void TEditWidgetPlacesTest::listAboveIsShortenedToTwoRowsAtLeast()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(20));
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 600);
    stage.OpenOver(QRect(100, 400, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 0, 250, 120 + 250));
    // It stays off the value.
    QVERIFY(stage.Box().bottom() < 400);
    QVERIFY(!stage.Value()->isHidden());
}

void TEditWidgetPlacesTest::listThatFitsNowhereCoversTheValue()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(3));
    stage.window.m_Usable = QRect(0, 20, SCREEN_WIDTH, 400);
    stage.OpenOver(QRect(100, 200, 800, 40));
    QCOMPARE(stage.Box(), QRect(100, 150, 250, 270));
    QVERIFY(stage.Value()->isHidden());
    // Two rows and fewer are not looked at again.
    TEditPlacesStage two(TEditPlacesStage::ListItem(2));
    two.window.m_Usable = QRect(0, 20, SCREEN_WIDTH, 400);
    two.OpenOver(QRect(100, 200, 800, 40));
    QCOMPARE(two.Box(), QRect(100, 200, 250, 220));
    // A longer list than the room starts at its top.
    TEditPlacesStage nine(TEditPlacesStage::ListItem(9));
    nine.window.m_Usable = QRect(0, 20, SCREEN_WIDTH, 400);
    nine.OpenOver(QRect(100, 200, 800, 40));
    QCOMPARE(nine.Box(), QRect(100, 20, 250, 120 + 5 * 50));
    QVERIFY(nine.Value()->isHidden());
    nine.OpenOver(QRect(100, 20, 100, 40));
    QVERIFY(!nine.Value()->isHidden());
}

void TEditWidgetPlacesTest::listMovesUpByWhatItPassesTheBottom()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 600, 100, 40));
    QCOMPARE(stage.Box(), QRect(200, SCREEN_HEIGHT - 320, 250, 320));
    // At most to the top of the room, and then it is shortened.
    TEditPlacesStage longList(TEditPlacesStage::ListItem(40));
    longList.window.m_Usable = QRect(0, 25, SCREEN_WIDTH, 700);
    longList.OpenOver(QRect(100, 600, 100, 40));
    QCOMPARE(longList.Box(), QRect(200, 25, 250, 120 + 11 * 50));
    // A value at the top of the room.
    longList.OpenOver(QRect(100, 25, 100, 40));
    QCOMPARE(longList.Box().y(), 25);
}

void TEditWidgetPlacesTest::listKeepsWithinTheHeightAskedFor()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(8));
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 520));
    QCOMPARE(stage.Rows(), 8);
    // One pixel too high costs one row, 50 cost two.
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 519));
    QCOMPARE(stage.Rows(), 7);
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 471));
    QCOMPARE(stage.Rows(), 7);
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 470));
    QCOMPARE(stage.Rows(), 6);
}

void TEditWidgetPlacesTest::listOfOneRowIsNotShortened()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(1));
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 50));
    QCOMPARE(stage.Rows(), 1);
}

void TEditWidgetPlacesTest::listIsAsWideAsItsWidestRow()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.listItemWidth = 300;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 100, 100, 40));
    QCOMPARE(stage.Box().width(), 340);
    QString const wide(60, QLatin1Char('m'));
    stage.widget->SetTextBasedValue(2, wide);
    stage.widget->SourceMovedSlot();
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    QCOMPARE(stage.Box().width(), KVN::RenderUtils::GetTextWidth(wide, font) + 18 + 40);
}

void TEditWidgetPlacesTest::listIsAsWideAsAskedFor()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(251, -1));
    QCOMPARE(stage.Box().width(), 251);
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(249, -1));
    QCOMPARE(stage.Box().width(), 250);
}

void TEditWidgetPlacesTest::hiddenRowsTakeNoRoom()
{
    TEditItem item = TEditPlacesStage::ListItem(6);
    item.itemVisibility.setAt(1, false);
    item.itemVisibility.setAt(4, false);
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 100, 100, 40));
    QCOMPARE(stage.Rows(), 4);
    stage.widget->SetItemHidden(2, true);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Rows(), 3);
    // What had to be left out once comes back where there is room.
    stage.window.m_Usable.setHeight(230);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Rows(), 2);
    stage.window.m_Usable.setHeight(SCREEN_HEIGHT);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Rows(), 3);
}

void TEditWidgetPlacesTest::moreRoomInTheBoxMakesItHigher()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(8));
    QCOMPARE(stage.widget->GetEditWidgetListHeight(), 120);
    stage.widget->Setup();
    QCOMPARE(stage.widget->GetEditWidgetListHeight(), 520);
    stage.widget->SetExtraBoxHeight(30);
    QCOMPARE(stage.widget->GetEditWidgetListHeight(), 550);
    stage.OpenOver(QRect(100, 100, 100, 40), QSize(-1, 520));
    QCOMPARE(stage.Rows(), 7);
}

void TEditWidgetPlacesTest::buttonsStandUnderTheList()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 200, 100, 40));
    QRect const list(220, 200, 210, 200);
    QCOMPARE(stage.List()->geometry(), list);
    // Half of the list and the gap each.
    QCOMPARE(stage.ListOk()->geometry(), QRect(430 + 3 - 108, 408, 108, 70));
    QCOMPARE(stage.ListCancel()->geometry(), QRect(430 + 3 - 216, 408, 108, 70));
    QVERIFY(stage.ListOk()->isVisible());
    stage.widget->ShowListButtons(false);
    QVERIFY(!stage.ListOk()->isVisible());
    stage.OpenOver(QRect(100, 300, 100, 40));
    QVERIFY(!stage.ListOk()->isVisible());
    QVERIFY(!stage.ListCancel()->isVisible());
    QCOMPARE(stage.ListOk()->y(), 408);
}

void TEditWidgetPlacesTest::boxIsPaintedAroundTheList()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    QImage const before = stage.Picture();
    stage.OpenOver(QRect(100, 200, 100, 40));
    QImage const after = stage.Picture();
    QRect const box(200, 180, 250, 320);
    QRect changed;
    for (int y = 0; y < after.height(); ++y)
    {
        for (int x = 0; x < after.width(); ++x)
        {
            if (before.pixel(x, y) != after.pixel(x, y) && x >= 200)
                changed |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(changed.topLeft(), box.topLeft());
    QVERIFY(box.adjusted(0, 0, 9, 9).contains(changed));
    QVERIFY(changed.contains(box));
}

void TEditWidgetPlacesTest::titleTakesRoomAboveTheList()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.showListTitle = true;
    TEditPlacesStage stage(item);
    stage.widget->SetTitle(QStringLiteral("A title that is so long that it takes several lines above rows"));
    stage.OpenOver(QRect(100, 300, 100, 40));
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(14);
    int const text = KVN::RenderUtils::GetTextHeight(
        QStringLiteral("A title that is so long that it takes several lines above rows"), font, 210);
    QVERIFY(text > 20);
    QCOMPARE(stage.widget->GetTitleBarHeight(), 20 + text + 1);
    QCOMPARE(stage.List()->geometry(), QRect(220, 300, 210, 200));
}

void TEditWidgetPlacesTest::titleOfALineLeavesTwoBorders()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.showListTitle = true;
    TEditPlacesStage stage(item);
    stage.widget->SetTitle(QStringLiteral("Nozzle"));
    stage.OpenOver(QRect(100, 300, 100, 40));
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(14);
    int const text = KVN::RenderUtils::GetTextHeight(QStringLiteral("Nozzle"), font, 210);
    QCOMPARE(stage.widget->GetTitleBarHeight(), qMax(40, 20 + text + 1));
}

void TEditWidgetPlacesTest::titleIsForSeveralSelectionsOrOnDemand()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    TEditPlacesStage stage(item);
    stage.widget->SetTitle(QStringLiteral("Nozzle"));
    QCOMPARE(stage.widget->GetTitleBarHeight(), 20);
    item.multiSelect = true;
    stage.widget->RefreshProperties(&item);
    QVERIFY(stage.widget->GetTitleBarHeight() >= 40);
    stage.widget->SetTitle(QString());
    QCOMPARE(stage.widget->GetTitleBarHeight(), 20);
    item = TEditPlacesStage::NumberItem();
    item.multiSelect = true;
    item.showListTitle = true;
    stage.widget->RefreshProperties(&item);
    stage.widget->SetTitle(QStringLiteral("Nozzle"));
    QCOMPARE(stage.widget->GetTitleBarHeight(), 20);
}

void TEditWidgetPlacesTest::titleGivenToAnOpenListMovesIt()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.showListTitle = true;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 100, 800, 40));
    QCOMPARE(stage.List()->y(), 160);
    stage.widget->SetTitle(QStringLiteral("Nozzle"));
    QVERIFY(stage.widget->GetTitleBarHeight() >= 40);
    QCOMPARE(stage.List()->y(), 140 + stage.widget->GetTitleBarHeight());
}

void TEditWidgetPlacesTest::titleIsWrittenWhite()
{
    TEditItem item = TEditPlacesStage::ListItem(4);
    item.showListTitle = true;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 300, 100, 40));
    stage.widget->SetTitle(QStringLiteral("MMMMMM"));
    QRect const box = stage.Box();
    QImage const picture = stage.Picture();
    QRect written;
    for (int y = box.top(); y < stage.List()->y(); ++y)
    {
        for (int x = box.left(); x <= box.right(); ++x)
        {
            if (picture.pixel(x, y) == qRgb(255, 255, 255))
                written |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(written.isValid());
    QVERIFY(written.top() >= box.top() + 15);
    QVERIFY(qAbs(written.center().x() - box.center().x()) <= 1);
    // In the middle of what is left down to the rows.
    QVERIFY(qAbs(written.center().y() - (box.top() + 15 + stage.List()->y()) / 2) <= 2);
}

// ---- the value ----

void TEditWidgetPlacesTest::valueLiesOverItsSource()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(123, 234, 111, 55));
    QCOMPARE(stage.Value()->geometry(), QRect(123, 234, 111, 55));
    QVERIFY(stage.Value()->isVisible());
}

void TEditWidgetPlacesTest::valueFollowsItsSource()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    stage.source.move(150, 260);
    stage.widget->PositionChanged();
    // Not before the move is over.
    QCOMPARE(stage.Value()->pos(), QPoint(100, 200));
    QCoreApplication::processEvents();
    QCOMPARE(stage.Value()->pos(), QPoint(150, 260));
    QCOMPARE(stage.Minus()->x(), 250);
}

void TEditWidgetPlacesTest::valueTakesTheRectangleOfTheFunction()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.source.setGeometry(0, 0, 500, 500);
    stage.widget->SetPosition(&stage.source, [](QWidget*) { return QRect(70, 80, 90, 50); });
    stage.widget->Open();
    QCOMPARE(stage.Value()->geometry(), QRect(70, 80, 90, 50));
    // A function is enough.
    stage.widget->SetPosition(nullptr, [](QWidget*) { return QRect(170, 180, 90, 50); });
    QVERIFY(stage.widget->isVisible());
    QCOMPARE(stage.Value()->geometry(), QRect(170, 180, 90, 50));
}

void TEditWidgetPlacesTest::functionIsAskedForTheParent()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    QVector<QWidget*> asked;
    stage.widget->SetPosition(
        &stage.source,
        [&asked](QWidget* parent)
        {
            asked.append(parent);
            return QRect(1, 2, 30, 40);
        },
        NoWish);
    stage.widget->Open();
    QVERIFY(!asked.isEmpty());
    QCOMPARE(asked.constLast(), static_cast<QWidget*>(&stage.window));
}

void TEditWidgetPlacesTest::sourceMayStandInAnotherWidget()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    QWidget panel(&stage.window);
    panel.setGeometry(50, 60, 500, 400);
    QWidget deep(&panel);
    deep.setGeometry(7, 8, 100, 40);
    panel.show();
    stage.widget->SetPosition(&deep);
    stage.widget->Open();
    QCOMPARE(stage.Value()->geometry(), QRect(57, 68, 100, 40));
}

void TEditWidgetPlacesTest::nothingHappensWithoutASource()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    stage.widget->SetPosition(nullptr);
    QVERIFY(stage.widget->isVisible());
    QCOMPARE(stage.Value()->geometry(), QRect(100, 200, 100, 40));
    // A source that dies leaves everything in its place.
    auto* const source = new QWidget(&stage.window);
    source->setGeometry(10, 20, 100, 40);
    stage.widget->SetPosition(source);
    QCOMPARE(stage.Value()->pos(), QPoint(10, 20));
    delete source;
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Value()->pos(), QPoint(10, 20));
    // Closed it has no parent and no place.
    stage.widget->Close();
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.widget->parentWidget(), nullptr);
}

void TEditWidgetPlacesTest::openWidgetMovesToItsNewSource()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    QWidget other(&stage.window);
    other.setGeometry(300, 400, 120, 60);
    other.show();
    stage.widget->SetPosition(&other);
    QVERIFY(stage.widget->isVisible());
    QCOMPARE(stage.Value()->geometry(), QRect(300, 400, 120, 60));
    QCOMPARE(stage.platform.m_Source.data(), &other);
    stage.widget->Close();
    stage.widget->SetPosition(&stage.source);
    QVERIFY(!stage.widget->isVisible());
}

void TEditWidgetPlacesTest::widgetFillsItsParent()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    QCOMPARE(stage.widget->geometry(), stage.window.rect());
    stage.window.resize(900, 500);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.widget->size(), QSize(900, 500));
}

void TEditWidgetPlacesTest::widgetTellsItsOrigin()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    stage.widget->move(3, 4);
    QCOMPARE(stage.widget->Position(&stage.window), QPoint(3, 4));
    QCOMPARE(stage.widget->Position(nullptr), QPoint());
    // Of a widget that it does not stand in.
    QWidget panel(&stage.window);
    panel.move(10, 20);
    QCOMPARE(stage.widget->Position(&panel), QPoint(-7, -16));
}

void TEditWidgetPlacesTest::widgetPlacesNothingWhileOverridden()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.OpenOver(QRect(100, 200, 100, 40));
    stage.widget->SetOverridePosition(true);
    stage.source.move(300, 300);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Value()->pos(), QPoint(100, 200));
    // It keeps what was asked for in the meantime.
    stage.widget->SetPosition(&stage.source, QSize(400, -1));
    QCOMPARE(stage.Value()->pos(), QPoint(100, 200));
    stage.widget->SetOverridePosition(false);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Value()->pos(), QPoint(300, 300));
    QCOMPARE(stage.Box().width(), 400);
}

void TEditWidgetPlacesTest::boxOfAnOverriddenListIsPainted()
{
    TEditPlacesStage stage(TEditPlacesStage::ListItem(4));
    stage.widget->SetOverridePosition(true);
    stage.List()->SetListPosition(0, 0, 260, 4);
    stage.List()->move(500, 100);
    stage.OpenOver(QRect(100, 200, 100, 40));
    QCOMPARE(stage.List()->geometry(), QRect(500, 100, 260, 200));
    QImage const picture = stage.Picture();
    stage.widget->Close();
    QVERIFY(picture.pixel(490, 90) != stage.Picture().pixel(490, 90));
    QVERIFY(picture.pixel(770, 320) != stage.Picture().pixel(770, 320));
}

void TEditWidgetPlacesTest::valueIsClippedToAScrolledSource()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    QScrollArea area(&stage.window);
    area.setFrameShape(QFrame::NoFrame);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setGeometry(300, 300, 400, 100);
    QWidget content;
    content.resize(400, 1000);
    QWidget source(&content);
    source.setGeometry(20, 80, 100, 40);
    area.setWidget(&content);
    area.show();
    stage.widget->SetPosition(&source);
    stage.widget->Open();
    QImage const picture = stage.Picture();
    stage.widget->Close();
    QImage const before = stage.Picture();
    QCOMPARE(stage.Value()->geometry(), QRect(320, 380, 100, 40));
    QVERIFY(picture.pixel(330, 399) != before.pixel(330, 399));
    QCOMPARE(picture.pixel(330, 400), before.pixel(330, 400));
    area.takeWidget();
}

void TEditWidgetPlacesTest::valueOfASourceScrolledAwayIsNotSeen()
{
    TEditItem item;
    item.value = 5;
    item.maximum = 10;
    TEditPlacesStage stage(item);
    QWidget area(&stage.window);
    area.setGeometry(300, 300, 400, 100);
    QWidget source(&area);
    source.setGeometry(20, 20, 100, 40);
    area.show();
    QImage const before = stage.Picture();
    stage.widget->SetPosition(&source);
    stage.widget->Open();
    QVERIFY(stage.Picture() != before);
    source.move(20, 200);
    stage.widget->SourceMovedSlot();
    QVERIFY(stage.Picture() == before);
}

void TEditWidgetPlacesTest::valueWithoutSourceIsClippedToNothing()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    QImage const before = stage.Picture();
    stage.widget->SetPosition(nullptr, [](QWidget*) { return QRect(500, 400, 100, 40); });
    stage.widget->Open();
    QImage const picture = stage.Picture();
    QVERIFY(picture.pixel(505, 405) != before.pixel(505, 405));
    QVERIFY(picture.pixel(595, 435) != before.pixel(595, 435));
    QVERIFY(stage.Value()->mask().isEmpty());
}

void TEditWidgetPlacesTest::valueMayBeHidden()
{
    TEditItem item = TEditPlacesStage::NumberItem();
    item.showValueButton = false;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 200, 100, 40));
    QVERIFY(stage.Value()->isHidden());
    QCOMPARE(stage.Minus()->x(), 200);
}

void TEditWidgetPlacesTest::fontShrinksUntilTheTextFits()
{
    TEditItem item;
    item.maximum = 1e9;
    item.value = 123456789;
    TEditPlacesStage stage(item);
    stage.widget->SetFontSizeRange(30, 8);
    QFont font(CONDENSED_BOLD_FONT);
    font.setPixelSize(20);
    int const width = KVN::RenderUtils::GetTextWidth(stage.widget->GetStringValue(), font);
    stage.OpenOver(QRect(100, 200, width + 8, 40));
    QCOMPARE(FontSize(stage), 20);
    stage.OpenOver(QRect(100, 200, width + 7, 40));
    QCOMPARE(FontSize(stage), 19);
    stage.OpenOver(QRect(100, 200, 900, 40));
    QCOMPARE(FontSize(stage), 30);
}

void TEditWidgetPlacesTest::fontIsNoLargerThanTheButton()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.widget->SetFontSizeRange(20, 30);
    stage.OpenOver(QRect(100, 200, 400, 25));
    QCOMPARE(FontSize(stage), 25);
    // Also where that is below the smallest size.
    stage.OpenOver(QRect(100, 200, 400, 12));
    QCOMPARE(FontSize(stage), 12);
}

void TEditWidgetPlacesTest::fontRangeTakesAnyOrder()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 400, 40));
    QCOMPARE(FontSize(stage), 14);
    stage.widget->SetFontSizeRange(12, 22);
    QCOMPARE(FontSize(stage), 22);
    stage.widget->SetFontSizeRange(23, 12);
    QCOMPARE(FontSize(stage), 23);
}

void TEditWidgetPlacesTest::oddFontRangesAreHeldToOnePixel()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 400, 40));
    stage.widget->SetFontSizeRange(-5, 0);
    QCOMPARE(FontSize(stage), 1);
    stage.widget->SetFontSizeRange(-5, 2000000000);
    QCOMPARE(FontSize(stage), 40);
}

void TEditWidgetPlacesTest::fontSizeOfTheItemIsFixed()
{
    TEditItem item = TEditPlacesStage::NumberItem();
    item.fontSize = 33;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(100, 200, 400, 40));
    QCOMPARE(FontSize(stage), 33);
}

void TEditWidgetPlacesTest::valueButtonWidthFollowsTheText()
{
    TEditItem item = TEditPlacesStage::ListItem(3);
    item.textItems.setAt(1, QString(40, QLatin1Char('m')));
    TEditPlacesStage stage(item);
    stage.widget->SetCurrentValue(0);
    QCOMPARE(stage.widget->getValueFieldButtonWidth(), 150);
    stage.widget->SetCurrentValue(1);
    QFont font(STANDARD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    int const width = KVN::RenderUtils::GetTextWidth(item.textItems.at(1), font);
    QVERIFY(width >= 140);
    QCOMPARE(stage.widget->getValueFieldButtonWidth(), width + 11);
    item = TEditPlacesStage::NumberItem();
    item.maximum = 1e30;
    item.suffix = QString(40, QLatin1Char('m'));
    stage.widget->RefreshProperties(&item);
    stage.widget->SetCurrentValue(1e30);
    QCOMPARE(stage.widget->getValueFieldButtonWidth(), 150);
}

// ---- plus, minus and the pad ----

void TEditWidgetPlacesTest::minusAndPlusStandRightOfTheValue()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    QCOMPARE(stage.Minus()->geometry(), QRect(200, 187, 70, 66));
    QCOMPARE(stage.Plus()->geometry(), QRect(270, 187, 70, 66));
}

void TEditWidgetPlacesTest::okAndCancelStandBelowThem()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.OpenOver(QRect(100, 200, 100, 40));
    QCOMPARE(stage.FloatingCancel()->geometry(), QRect(200, 253, 70, 66));
    QCOMPARE(stage.FloatingOk()->geometry(), QRect(270, 253, 70, 66));
    QVERIFY(stage.FloatingOk()->isVisible());
    QVERIFY(stage.FloatingCancel()->isVisible());
}

void TEditWidgetPlacesTest::stackJumpsLeftAtTheEdge()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.window.m_Usable = QRect(0, 0, 900, 700);
    stage.OpenOver(QRect(660, 200, 100, 40));
    QCOMPARE(stage.Minus()->x(), 760);
    stage.OpenOver(QRect(661, 200, 100, 40));
    QCOMPARE(stage.Minus()->x(), 521);
    QCOMPARE(stage.Plus()->x(), 591);
    QCOMPARE(stage.FloatingOk()->x(), 591);
}

void TEditWidgetPlacesTest::stackCoversTheEndOfAValueAsWideAsTheScreen()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    int const width = stage.window.GetUsableRect().width();
    stage.OpenOver(QRect(20, 300, width - 40, 40));
    QRect const usable = stage.window.GetUsableRect();
    QCOMPARE(stage.Plus()->geometry().right(), usable.right());
    QVERIFY(usable.contains(stage.Minus()->geometry()));
    QVERIFY(usable.contains(stage.FloatingCancel()->geometry()));
}

void TEditWidgetPlacesTest::stackMovesUpAtTheBottom()
{
    TEditPlacesStage stage(TEditPlacesStage::NumberItem());
    stage.window.m_Usable = QRect(0, 0, 900, 700);
    // Two rows, which just fit.
    stage.OpenOver(QRect(100, 581, 100, 40));
    QCOMPARE(stage.Minus()->y(), 568);
    stage.OpenOver(QRect(100, 650, 100, 40));
    QCOMPARE(stage.Minus()->y(), 568);
    QCOMPARE(stage.FloatingOk()->geometry().bottom(), 699);
    // With a pad there is but one.
    TEditPlacesStage withPad(TEditPlacesStage::PadItem());
    withPad.window.m_Usable = QRect(0, 0, 900, 700);
    withPad.OpenOver(QRect(400, 660, 100, 40));
    QCOMPARE(withPad.Minus()->y(), 634);
}

void TEditWidgetPlacesTest::padStandsBelowTheValue()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.OpenOver(QRect(400, 100, 100, 40));
    QCOMPARE(stage.Minus()->pos(), QPoint(500, 87));
    // The last pixel of plus is 639.
    QCOMPARE(stage.Pad()->geometry().right(), 645);
    QCOMPARE(stage.Pad()->y(), 139 + 26);
    QVERIFY(!stage.FloatingOk()->isVisible());
    QVERIFY(!stage.FloatingCancel()->isVisible());
}

void TEditWidgetPlacesTest::padWithoutPlusStandsUnderTheValue()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.floatingButtons = false;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(400, 100, 100, 40));
    QCOMPARE(stage.Pad()->pos(), QPoint(390, 165));
}

void TEditWidgetPlacesTest::padIsPulledFromTheRightEdge()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.floatingButtons = false;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(900, 100, 100, 40));
    QCOMPARE(stage.Pad()->pos(), QPoint(SCREEN_WIDTH - stage.Pad()->width() - 10, 165));
    // The edge counts from the left of the window, wherever the room begins.
    stage.window.m_Usable = QRect(100, 0, 900, SCREEN_HEIGHT);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Pad()->pos(), QPoint(900 - stage.Pad()->width() - 10, 165));
}

void TEditWidgetPlacesTest::padGoesAboveTheValue()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.OpenOver(QRect(400, 100, 100, 40));
    int const height = stage.Pad()->height() - 9;
    // The last place below.
    int const y = SCREEN_HEIGHT - height - 26 - 39;
    stage.OpenOver(QRect(400, y, 100, 40));
    QCOMPARE(stage.Pad()->y(), y + 39 + 26);
    stage.OpenOver(QRect(400, y + 1, 100, 40));
    QCOMPARE(stage.Pad()->y(), y + 1 - height - 25);
}

void TEditWidgetPlacesTest::padGoesBesideAValueOnTheLeft()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 500);
    stage.OpenOver(QRect(100, 250, 100, 40));
    int const height = stage.Pad()->height() - 9;
    QCOMPARE(stage.Pad()->pos(), QPoint(199 + 11 + 140, (500 - height) / 2));
    QCOMPARE(stage.Minus()->pos(), QPoint(200, 237));
    QCOMPARE(stage.Plus()->pos(), QPoint(270, 237));
}

void TEditWidgetPlacesTest::padGoesBesideAValueOnTheRight()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 500);
    stage.OpenOver(QRect(700, 250, 100, 40));
    int const height = stage.Pad()->height() - 9;
    QCOMPARE(stage.Pad()->pos(), QPoint(700 - stage.Pad()->width() - 10 - 142, (500 - height) / 2));
    QCOMPARE(stage.Minus()->pos(), QPoint(560, 237));
    QCOMPARE(stage.Plus()->pos(), QPoint(630, 237));
}

void TEditWidgetPlacesTest::padThatDoesNotFitIsCentred()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.window.m_Usable = QRect(0, 0, SCREEN_WIDTH, 200);
    stage.OpenOver(QRect(400, 100, 100, 40));
    TUnitsNumberPad const* const pad = stage.Pad();
    QVERIFY(!stage.Plus()->isVisible());
    QVERIFY(!stage.Minus()->isVisible());
    // In the window, not in its usable part.
    QCOMPARE(pad->pos(), QPoint((SCREEN_WIDTH - pad->width()) / 2, (SCREEN_HEIGHT - pad->height()) / 2));
}

void TEditWidgetPlacesTest::padIsCentredOnDemand()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.inlineNumberPad = true;
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(400, 100, 100, 40));
    TUnitsNumberPad const* const pad = stage.Pad();
    QVERIFY(!stage.Plus()->isVisible());
    QCOMPARE(pad->pos(), QPoint((SCREEN_WIDTH - pad->width()) / 2, (SCREEN_HEIGHT - pad->height()) / 2));
}

void TEditWidgetPlacesTest::padIsCentredOnAnotherDisplay()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.window.m_IsExternal = true;
    stage.OpenOver(QRect(400, 100, 100, 40));
    QVERIFY(!stage.Plus()->isVisible());
    QCOMPARE(stage.Pad()->x(), (SCREEN_WIDTH - stage.Pad()->width()) / 2);
}

void TEditWidgetPlacesTest::padFloatsAgainWhenItFits()
{
    TEditPlacesStage stage(TEditPlacesStage::PadItem());
    stage.OpenOver(QRect(400, 100, 100, 40));
    QRect const floating = stage.Pad()->geometry();
    stage.window.m_Usable.setHeight(200);
    stage.widget->SourceMovedSlot();
    QVERIFY(stage.Pad()->geometry() != floating);
    stage.window.m_Usable.setHeight(SCREEN_HEIGHT);
    stage.widget->SourceMovedSlot();
    QCOMPARE(stage.Pad()->geometry(), floating);
    QVERIFY(stage.Plus()->isVisible());
}

void TEditWidgetPlacesTest::unitsButtonStandsBesideTheValue()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.unitType = UNIT_TYPE_SPEED;
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}};
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(400, 100, 100, 40));
    TPushButton const* const units = stage.Pad()->GetUnitsButton();
    QVERIFY(units->isVisible());
    QCOMPARE(stage.Value()->geometry(), QRect(400, 100, 100, 40));
    QCOMPARE(units->pos(), QPoint(500, 100 + (40 - units->height()) / 2));
    // They make room.
    QCOMPARE(stage.Minus()->x(), 500 + units->width());
    QCOMPARE(stage.Plus()->x(), 570 + units->width());
    // Wherever that leads them; a pad that does not fit with them is centred.
    stage.OpenOver(QRect(780, 100, 100, 40));
    QVERIFY(!stage.Plus()->isVisible());
    // At the left of the value they are out of its way.
    stage.OpenOver(QRect(850, 100, 100, 40));
    QCOMPARE(stage.Minus()->x(), 710);
}

void TEditWidgetPlacesTest::unitsButtonTakesItsWidthFromAWideValue()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.unitType = UNIT_TYPE_SPEED;
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}};
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(400, 100, 100, 40));
    TPushButton const* const units = stage.Pad()->GetUnitsButton();
    int const width = units->width();
    stage.OpenOver(QRect(300, 100, width + 100, 40));
    QCOMPARE(stage.Value()->geometry(), QRect(300, 100, 100, 40));
    QCOMPARE(units->x(), 400);
    QCOMPARE(stage.Minus()->x(), 400 + width);
    stage.OpenOver(QRect(300, 100, width + 99, 40));
    QCOMPARE(stage.Value()->width(), width + 99);
    QCOMPARE(units->x(), 300 + width + 99);
}

void TEditWidgetPlacesTest::keysOfACentredPadAreOnTop()
{
    TEditItem item = TEditPlacesStage::PadItem();
    item.inlineNumberPad = true;
    item.unitType = UNIT_TYPE_SPEED;
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}};
    TEditPlacesStage stage(item);
    stage.OpenOver(QRect(400, 360, 100, 40));
    QRect const units = stage.Pad()->GetUnitsButton()->geometry();
    QVERIFY(stage.Pad()->geometry().contains(units));
    QWidget const* const hit = stage.widget->childAt(units.center());
    QVERIFY(hit == stage.Pad() || stage.Pad()->isAncestorOf(hit));
}

void TEditWidgetPlacesTest::plainWindowMayBeUsedWholly()
{
    TTestScreen const screen;
    QWidget window;
    window.resize(600, 500);
    TAnnotatingPlatform const platform(&window);
    TOpenEditWidget widget(TEditPlacesStage::ListItem(20));
    widget.SetPosition(nullptr, [](QWidget*) { return QRect(100, 200, 100, 40); });
    window.show();
    widget.Open();
    // 500 pixels hold the box and seven rows and a half.
    QCOMPARE(widget.GetList()->geometry(), QRect(220, 20, 210, 7 * LIST_ROW_HEIGHT));
    widget.Close();
}

void TEditWidgetPlacesTest::oddSourcesDoNoHarm_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("empty") << QRect(100, 100, 0, 0);
    QTest::newRow("inside out") << QRect(100, 100, -50, -40);
    QTest::newRow("left of the screen") << QRect(-5000, 100, 100, 40);
    QTest::newRow("right of the screen") << QRect(9000, 100, 100, 40);
    QTest::newRow("above the screen") << QRect(100, -7000, 100, 40);
    QTest::newRow("below the screen") << QRect(100, 7000, 100, 40);
    QTest::newRow("larger than any screen") << QRect(-20000, -20000, 1000000, 1000000);
    QTest::newRow("as large as the screen") << QRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
}

void TEditWidgetPlacesTest::oddSourcesDoNoHarm()
{
    QFETCH(QRect, rect);
    for (TEditItem const& item :
         {TEditPlacesStage::ListItem(5), TEditPlacesStage::NumberItem(), TEditPlacesStage::PadItem()})
    {
        TEditPlacesStage stage(item);
        stage.widget->SetPosition(&stage.source, [rect](QWidget*) { return rect; });
        stage.widget->Open();
        QVERIFY(stage.widget->isVisible());
        QVERIFY(!stage.Picture().isNull());
        // A list can always be left.
        if (item.IsList())
            QVERIFY(stage.window.rect().contains(stage.ListCancel()->geometry()));
    }
}

COMMONUI_TEST(TEditWidgetPlacesTest)
#include "TEditWidgetPlacesTest.moc"
