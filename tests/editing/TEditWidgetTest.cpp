#include "Metrics.h"
#include "TEditStage.h"
#include "TestCase.h"
#include "TUnits.h"

#include <QDate>

#include <limits>

namespace
{
constexpr double Infinity = std::numeric_limits<double>::infinity();

// What is written on \a widget in dark ink, in its own coordinates.
QRect Ink(QWidget* screen, QWidget* widget)
{
    QRect const place(widget->mapTo(screen, QPoint()), widget->size());
    QImage const picture = screen->grab(place).toImage();
    QRect ink;
    for (int y = 4; y < picture.height() - 4; ++y)
    {
        for (int x = 4; x < picture.width() - 4; ++x)
        {
            if (qGray(picture.pixel(x, y)) < 60)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

TEditItem ListItem(QStringList const& texts, double value)
{
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, texts.size() - 1, 1);
    for (int i = 0; i < texts.size(); ++i)
        item.textItems.setAt(i, texts.at(i));
    item.value = value;
    return item;
}

QString TextOf(TEditItem const& item)
{
    TEditWidget widget(nullptr, &item);
    return widget.GetStringValue();
}
} // namespace

class TEditWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAFramelessPartOfItsParent();
    void theScreenIsNoParent();
    void withoutAnItemThereIsNothingToEdit();
    void theValueIsBlackOnALightField();
    void theAlignmentOfTheTextStartsLeft();
    void buttonsHaveTheirIconsAndSizes();
    void plusAndMinusRepeatWhileHeld();
    void plusAndMinusAreMadeOnce();

    void aPromptStandsForSeveralSelections();
    void severalSelectionsAreJoinedWithoutABlank();
    void aListReadsTheTextOfItsIndex();
    void aHiddenListShowsAStarForEachCharacter();
    void anAddressIsReadAsItIs();
    void theEmptyValueIsAnEmptyText();
    void aUnitIsReadAsTheOperatorReadsIt();
    void theDensityCountsInTheText();
    void aSuffixIsForNumbersWithoutAUnit();
    void theFirstRuleThatFitsMakesTheText();
    void anIndexWithoutAnEntryIsAnError_data();
    void anIndexWithoutAnEntryIsAnError();
    void theButtonsTextStandsForEveryIndex();
    void oddValuesHaveATextToo();

    void aValueThatIsSetIsWhatACancelGoesBackTo();
    void theFirstValueIsWhatACancelGoesBackTo();
    void anotherItemKeepsWhatACancelGoesBackTo();
    void propertiesAreReadAsTheyWereWritten();
    void theItemComesOutAsItWentIn();
    void steppedValuesHaveTheirOwnBounds();
    void addressesAreStoredForAllAndShownForAddresses();
    void anItemFixesTheSizeOfTheType();
    void theValueButtonFollowsItsItem();

    void openingShowsTheWidgetOverTheScreen();
    void theWindowIsLockedBeforeAnythingElse();
    void theLockHasItsNameAndMode_data();
    void theLockHasItsNameAndMode();
    void whateverClosesTheWidgetUnlocks();
    void theTextIsMadeAnewAtEachShowing();
    void floatingOkAndCancelNeedPlusAndMinus_data();
    void floatingOkAndCancelNeedPlusAndMinus();
    void okTellsTheValueWhenTheWidgetIsClosed();
    void cancellingRestoresTheValueButNotTheText();
    void anotherPositionClosesAndOpensAgain();
    void aSourceThatMovesIsFollowedAfterItsMove();
    void aSourceThatDiesWhileOpen();
    void aSourceThatHidesTakesTheWidgetAlong();
    void anotherUnitSystemShowsAtOnce();
    void anItemThatChangesWhileOpenShowsAtOnce();
    void withoutAPlatformOrAScreenNothingHappens();
    void nothingOutsideTheBoundsIsAccepted_data();
    void nothingOutsideTheBoundsIsAccepted();
    void boundsThatWereNeverSetRefuseNothing();
    void theEmptyValueMayLieOutsideTheBounds();
    void diesInTheSlotsOfItsSignals_data();
    void diesInTheSlotsOfItsSignals();
    void diesWhileOpenAndPressed();
    void outlivesTheScreenWhileOpen();
};

void TEditWidgetTest::isAFramelessPartOfItsParent()
{
    QWidget parent;
    TEditWidget widget(&parent, nullptr);
    QCOMPARE(int(widget.windowFlags()), 0x812);
    QCOMPARE(widget.parentWidget(), &parent);
    QCOMPARE(widget.pos(), QPoint(0, 0));
    parent.show();
    QVERIFY(!widget.isVisible());
}

void TEditWidgetTest::theScreenIsNoParent()
{
    TTestScreen screen;
    TEditWidget const dropped(screen.get(), nullptr);
    QCOMPARE(dropped.parentWidget(), nullptr);
    QWidget other(screen.get());
    TEditWidget const kept(&other, nullptr);
    QCOMPARE(kept.parentWidget(), &other);
}

void TEditWidgetTest::withoutAnItemThereIsNothingToEdit()
{
    TTestScreen screen;
    TEditPlatform platform;
    TEditWidget widget(nullptr, nullptr);
    QCOMPARE(widget.GetCurrentValue(), 0.0);
    QCOMPARE(widget.GetStringValue(), QStringLiteral("0"));
    widget.RefreshProperties(nullptr);
    widget.SetPosition(nullptr);
    widget.Open();
    QVERIFY(widget.isVisible());
    widget.OnUp();
    widget.OnDown();
    QCOMPARE(widget.GetCurrentValue(), 0.0);
    widget.OnDone();
    QVERIFY(!widget.isVisible());
}

void TEditWidgetTest::theValueIsBlackOnALightField()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    QPoint const corner = stage.Value()->mapTo(stage.screen.get(), QPoint(100, 20));
    QImage const picture = stage.screen->grab().toImage();
    QVERIFY(qGray(picture.pixel(corner)) > 180);
    QVERIFY(!Ink(stage.screen.get(), stage.Value()).isNull());
}

void TEditWidgetTest::theAlignmentOfTheTextStartsLeft()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    int const middle = stage.Value()->width() / 2;
    QVERIFY(Ink(stage.screen.get(), stage.Value()).right() < middle);
    stage.edit->SetTextAlignment(int(Qt::AlignHCenter) | int(Qt::AlignVCenter));
    QRect const centred = Ink(stage.screen.get(), stage.Value());
    QVERIFY(centred.left() <= middle && centred.right() >= middle - 10);
}

void TEditWidgetTest::buttonsHaveTheirIconsAndSizes()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    QSize const size(CONTROL_BUTTON_MIN_WIDTH, FLOATING_CONTROL_BUTTON_HEIGHT);
    for (TPushButton* const button :
         {stage.Plus(), stage.Minus(), stage.FloatingOk(), stage.FloatingCancel()})
    {
        QVERIFY(button);
        QCOMPARE(button->minimumSize(), size);
        QCOMPARE(button->maximumSize(), size);
    }
    QCOMPARE(stage.Plus()->objectName(), QStringLiteral("icon-plus-larger"));
    QCOMPARE(stage.Minus()->objectName(), QStringLiteral("icon-minus-larger"));
    for (TPushButton* const button : {stage.FloatingOk(), stage.ListOk()})
        QCOMPARE(button->objectName(), QStringLiteral("icon-tick-larger"));
    for (TPushButton* const button : {stage.FloatingCancel(), stage.ListCancel()})
        QCOMPARE(button->objectName(), QStringLiteral("icon-cross-larger"));
}

void TEditWidgetTest::plusAndMinusRepeatWhileHeld()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    for (TPushButton const* const button : {stage.Plus(), stage.Minus()})
    {
        QVERIFY(button->autoRepeat());
        QCOMPARE(button->autoRepeatDelay(), 250);
        QCOMPARE(button->autoRepeatInterval(), 100);
    }
    QVERIFY(!stage.FloatingOk()->autoRepeat());
}

void TEditWidgetTest::plusAndMinusAreMadeOnce()
{
    TEditItem item = SteppedItem(0, 10, 1, 5);
    item.floatingButtons = false;
    TEditStage const stage(item);
    QVERIFY(!stage.Plus());
    QVERIFY(!stage.Minus());
    item.floatingButtons = true;
    stage.edit->RefreshProperties(&item);
    TPushButton* const plus = stage.Plus();
    QVERIFY(plus);
    stage.edit->RefreshProperties(&item);
    QCOMPARE(stage.Plus(), plus);
    stage.edit->Open();
    QVERIFY(plus->isVisible());
    item.floatingButtons = false;
    stage.edit->RefreshProperties(&item);
    QVERIFY(!plus->isVisible());
    QVERIFY(!stage.Minus()->isVisible());
}

void TEditWidgetTest::aPromptStandsForSeveralSelections()
{
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("a"), QStringLiteral("b")}, 0);
    item.multiSelect = true;
    TEditWidget widget(nullptr, &item);
    QCOMPARE(widget.GetStringValue(), QStringLiteral("Select from list:"));
    widget.SelectAllListItems();
    QCOMPARE(widget.GetStringValue(), QStringLiteral("Select from list:"));
}

void TEditWidgetTest::severalSelectionsAreJoinedWithoutABlank()
{
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}, 0);
    item.multiSelect = true;
    item.showSelection = true;
    TEditWidget widget(nullptr, &item);
    widget.UnSelectAllListItems();
    QCOMPARE(widget.GetStringValue(), QString());
    widget.SelectTextItem(2, true);
    QCOMPARE(widget.GetStringValue(), QStringLiteral("c"));
    widget.SelectTextItem(0, true);
    QCOMPARE(widget.GetStringValue().size(), 3);
    QVERIFY(widget.GetStringValue().contains(QLatin1Char(',')));
    QVERIFY(!widget.GetStringValue().contains(QLatin1Char('b')));
}

void TEditWidgetTest::aListReadsTheTextOfItsIndex()
{
    TTestScreen const screen;
    QStringList const texts{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    QCOMPARE(TextOf(ListItem(texts, 1.9)), QStringLiteral("b"));
}

void TEditWidgetTest::aHiddenListShowsAStarForEachCharacter()
{
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("secret"), QStringLiteral("word")}, 1);
    item.kind = EDIT_KIND_HIDDEN_LIST;
    QCOMPARE(TextOf(item), QStringLiteral("****"));
}

void TEditWidgetTest::anAddressIsReadAsItIs()
{
    TTestScreen const screen;
    QCOMPARE(TextOf(AddressItem(QStringLiteral("192.168.000.1"))), QStringLiteral("192.168.000.1"));
}

void TEditWidgetTest::theEmptyValueIsAnEmptyText()
{
    TTestScreen const screen;
    TEditItem item = SteppedItem(0, 10, 1, -1);
    item.emptyValue = -1;
    QCOMPARE(TextOf(item), QStringLiteral("-1"));
    item.allowEmpty = true;
    QCOMPARE(TextOf(item), QString());
    item.value = 1;
    QCOMPARE(TextOf(item), QStringLiteral("1"));
}

void TEditWidgetTest::aUnitIsReadAsTheOperatorReadsIt()
{
    TTestScreen screen;
    TEditItem item = SteppedItem(0, 100, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    item.suffix = QStringLiteral("rpm");
    QCOMPARE(TextOf(item), QStringLiteral("36.0 km/h"));
    screen.m_Config.Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
    QCOMPARE(TextOf(item), QStringLiteral("22.4 mph"));
    item.unitType = UNIT_TYPE_LENGTH;
    item.decimalPlaces = 2;
    item.unitsContext = UNITS_CONTEXT_FIELD;
    QString const inField = TextOf(item);
    item.unitsContext = UNITS_CONTEXT_IMPLEMENT;
    QVERIFY(TextOf(item) != inField);
}

void TEditWidgetTest::theDensityCountsInTheText()
{
    TTestScreen const screen;
    TEditItem item = SteppedItem(0, 100, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_VOLUME, 3);
    item.unitsContext = UNITS_CONTEXT_WEIGHED;
    item.density = 2;
    QString const heavy = TextOf(item);
    item.density = 1;
    QVERIFY(TextOf(item) != heavy);
}

void TEditWidgetTest::aSuffixIsForNumbersWithoutAUnit()
{
    TTestScreen const screen;
    TEditItem item = SteppedItem(0, 100, 1, 12.5);
    item.decimalPlaces = 2;
    item.suffix = QStringLiteral("bits");
    QCOMPARE(TextOf(item), QStringLiteral("12.50 bits"));
    item.suffix = QStringLiteral("DD/MM/YYYY");
    item.value = double(QDate(2024, 2, 29).toJulianDay());
    QCOMPARE(TextOf(item), QStringLiteral("29/02/2024"));
}

void TEditWidgetTest::theFirstRuleThatFitsMakesTheText()
{
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("a"), QStringLiteral("b")}, 1);
    item.multiSelect = true;
    item.numberPadType = NUMBER_PAD_IP_ADDRESS;
    item.ipAddress = QStringLiteral("1.2.3.4");
    item.allowEmpty = true;
    item.emptyValue = 1;
    item.SetUnitAndDecimalPlaces(UNIT_PERCENT, 0);
    QCOMPARE(TextOf(item), QStringLiteral("Select from list:"));
    item.multiSelect = false;
    QCOMPARE(TextOf(item), QStringLiteral("b"));
    item.kind = EDIT_KIND_HIDDEN_LIST;
    QCOMPARE(TextOf(item), QStringLiteral("*"));
    item.kind = EDIT_KIND_NUMERIC;
    QCOMPARE(TextOf(item), QStringLiteral("1.2.3.4"));
    item.numberPadType = NUMBER_PAD_DECIMAL;
    QCOMPARE(TextOf(item), QString());
    item.emptyValue = 2;
    QVERIFY(TextOf(item).contains(QLatin1Char('%')));
}

void TEditWidgetTest::anIndexWithoutAnEntryIsAnError_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::newRow("before the first") << -1 << QStringLiteral("Error: Invalid Option (-1)");
    QTest::newRow("first") << 0 << QStringLiteral("a");
    QTest::newRow("last") << 2 << QString();
    QTest::newRow("behind the last") << 3 << QStringLiteral("Error: Invalid Option (3)");
    QTest::newRow("far behind") << 2147483647 << QStringLiteral("Error: Invalid Option (2147483647)");
}

// The last entry of the list has no text.
void TEditWidgetTest::anIndexWithoutAnEntryIsAnError()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("a"), QStringLiteral("b")}, 0);
    item.maximum = 2;
    TEditWidget widget(nullptr, &item);
    QCOMPARE(widget.GetStringValue(index), text);
}

void TEditWidgetTest::theButtonsTextStandsForEveryIndex()
{
    TTestScreen const screen;
    TEditItem item = ListItem({QStringLiteral("a"), QStringLiteral("b")}, 1);
    TEditWidget widget(nullptr, &item);
    widget.SetCurrentValue(1);
    item.useButtonText = true;
    widget.RefreshProperties(&item);
    QCOMPARE(widget.GetStringValue(0), QStringLiteral("b"));
    QCOMPARE(widget.GetStringValue(77), QStringLiteral("b"));
    QCOMPARE(widget.GetStringValue(), QStringLiteral("b"));
}

void TEditWidgetTest::oddValuesHaveATextToo()
{
    TTestScreen const screen;
    for (double const value : {qQNaN(), Infinity, -Infinity, 1e300, -1e300})
    {
        TEditItem item = SteppedItem(0, 10, 1, value);
        QVERIFY(!TextOf(item).isEmpty());
        item.kind = EDIT_KIND_TEXT_LIST;
        item.textItems.setAt(0, QStringLiteral("a"));
        QCOMPARE(TextOf(item), QStringLiteral("a"));
    }
    QCOMPARE(TextOf(SteppedItem(-10, 10, 1, -0.0)), QStringLiteral("0"));
}

void TEditWidgetTest::aValueThatIsSetIsWhatACancelGoesBackTo()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 3));
    stage.edit->SetCurrentValue(7);
    QCOMPARE(stage.edit->GetEnteredStringValue(), QStringLiteral("7"));
    QVERIFY(stage.log.isEmpty());
    stage.edit->Open();
    stage.edit->OnUp();
    QCOMPARE(stage.edit->GetCurrentValue(), 8.0);
    stage.edit->OnCancelEdit();
    QCOMPARE(stage.edit->GetCurrentValue(), 7.0);
}

void TEditWidgetTest::theFirstValueIsWhatACancelGoesBackTo()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 3));
    stage.edit->OnUp();
    stage.edit->OnCancelEdit();
    QCOMPARE(stage.edit->GetCurrentValue(), 3.0);
}

// The one who gives another item sets its value too.
void TEditWidgetTest::anotherItemKeepsWhatACancelGoesBackTo()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 3));
    TEditItem const other = SteppedItem(0, 10, 1, 9);
    stage.edit->RefreshProperties(&other);
    QCOMPARE(stage.edit->GetCurrentValue(), 9.0);
    stage.edit->OnCancelEdit();
    QCOMPARE(stage.edit->GetCurrentValue(), 3.0);
}

void TEditWidgetTest::propertiesAreReadAsTheyWereWritten()
{
    TTestScreen const screen;
    TEditWidget widget(nullptr, nullptr);
    widget.SetMinimumValue(1.5F);
    widget.SetMaximumValue(9.5F);
    widget.SetDecimalPlaces(3);
    widget.SetSuffix(QStringLiteral("bits"));
    widget.SetUnitIndex(UNIT_PERCENT);
    widget.SetIncrement(0.25);
    QCOMPARE(widget.GetMinimumValue(), 1.5);
    QCOMPARE(widget.GetMaximumValue(), 9.5);
    QCOMPARE(widget.GetDecimalPlaces(), 3);
    QCOMPARE(widget.GetSuffix(), QStringLiteral("bits"));
    QCOMPARE(widget.GetSuffixIndex(), UNIT_PERCENT);
    QCOMPARE(widget.GetIncrement(), 0.25);
}

void TEditWidgetTest::theItemComesOutAsItWentIn()
{
    TTestScreen const screen;
    TEditItem item = SteppedItem(-3, 30, 0.5, 4);
    item.name = QStringLiteral("Pressure");
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_PRESSURE, 2);
    item.unitIncrements.append({UNIT_BAR, 0.1});
    item.density = 1.2;
    TEditWidget widget(nullptr, &item);
    widget.SetCurrentValue(5);
    TEditItem read;
    widget.GetEditItemProperty(read);
    QCOMPARE(read.value, 5.0);
    QCOMPARE(read.minimum, -3.0);
    QCOMPARE(read.maximum, 30.0);
    QCOMPARE(read.increment, 0.5);
    QCOMPARE(read.name, item.name);
    QCOMPARE(read.unitType, UNIT_TYPE_PRESSURE);
    QCOMPARE(read.unitIncrements.size(), 1);
    QCOMPARE(read.density, 1.2);
}

void TEditWidgetTest::steppedValuesHaveTheirOwnBounds()
{
    TTestScreen const screen;
    TEditItem item = SteppedItem(-100, 100, 1, 2);
    item.discreteValues = {1, 2, 5};
    TEditWidget widget(nullptr, &item);
    QCOMPARE(widget.GetMinimumValue(), -100.0);
    QCOMPARE(widget.GetMaximumValue(), 100.0);
    item.kind = EDIT_KIND_STEPPED;
    widget.RefreshProperties(&item);
    QCOMPARE(widget.GetMinimumValue(), 1.0);
    QCOMPARE(widget.GetMaximumValue(), 5.0);
}

void TEditWidgetTest::addressesAreStoredForAllAndShownForAddresses()
{
    TTestScreen const screen;
    TEditItem item = AddressItem(QStringLiteral("1.1.1.1"));
    TEditWidget widget(nullptr, &item);
    widget.SetIPAddress(QStringLiteral("2.2.2.2"));
    QCOMPARE(widget.GetStringValue(), QStringLiteral("2.2.2.2"));
    QCOMPARE(widget.GetEnteredStringValue(), QStringLiteral("2.2.2.2"));
    item.numberPadType = NUMBER_PAD_DECIMAL;
    widget.RefreshProperties(&item);
    widget.SetCurrentValue(6);
    widget.SetIPAddress(QStringLiteral("3.3.3.3"));
    QCOMPARE(widget.GetEnteredStringValue(), QStringLiteral("6"));
    TEditItem read;
    widget.GetEditItemProperty(read);
    QCOMPARE(read.ipAddress, QStringLiteral("3.3.3.3"));
}

void TEditWidgetTest::anItemFixesTheSizeOfTheType()
{
    TEditItem item = SteppedItem(0, 100, 1, 88);
    TOpenEditStage const stage(item);
    int const usual = Ink(stage.screen.get(), stage.Value()).height();
    item.fontSize = 2 * STANDARD_FONT_SIZE;
    stage.edit->RefreshProperties(&item);
    int const large = Ink(stage.screen.get(), stage.Value()).height();
    QVERIFY2(large > usual * 3 / 2, qPrintable(QStringLiteral("%1 %2").arg(usual).arg(large)));
    // Without one the former size stays.
    item.fontSize = 0;
    stage.edit->RefreshProperties(&item);
    QCOMPARE(Ink(stage.screen.get(), stage.Value()).height(), large);
}

void TEditWidgetTest::theValueButtonFollowsItsItem()
{
    TEditItem item = SteppedItem(0, 10, 1, 5);
    TOpenEditStage const stage(item);
    QVERIFY(stage.Value()->isVisible());
    QCOMPARE(stage.Value()->geometry(), TEditScene::SourceRect);
    QCOMPARE(stage.Value()->GetMMIBehaviour(), MMI_EXCLUDED);
    item.showValueButton = false;
    stage.edit->RefreshProperties(&item);
    QVERIFY(!stage.Value()->isVisible());
    // Before it has a place, too.
    TEditWidget const unopened(nullptr, &item);
    auto const buttons = unopened.findChildren<TPushButton*>();
    for (TPushButton* const button : buttons)
        QVERIFY(button->GetMMIBehaviour() != MMI_EXCLUDED || button->isHidden());
}

void TEditWidgetTest::openingShowsTheWidgetOverTheScreen()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    QVERIFY(stage.edit->isVisible());
    QCOMPARE(stage.platform.m_Widget.data(), stage.edit.data());
    QCOMPARE(stage.platform.m_Source, stage.source);
    QCOMPARE(stage.edit->geometry(), stage.screen->rect());
    stage.edit->Close();
    QVERIFY(!stage.edit->isVisible());
    QVERIFY(stage.log.isEmpty());
}

void TEditWidgetTest::theWindowIsLockedBeforeAnythingElse()
{
    TEditStage stage(SteppedItem(0, 10, 1, 5));
    stage.Value()->setText(QStringLiteral("former"));
    QStringList seen;
    connect(stage.screen.get(), &TScreen::NotifyScreenLock, stage.edit,
            [&stage, &seen](bool locked)
            {
                if (locked)
                    seen << stage.Shown() << QString::number(int(stage.FloatingOk()->isVisible()));
            });
    stage.edit->Open();
    QCOMPARE(seen, QStringList({QStringLiteral("former"), QStringLiteral("0")}));
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
}

void TEditWidgetTest::theLockHasItsNameAndMode_data()
{
    QTest::addColumn<bool>("exclusive");
    QTest::addColumn<int>("mode");
    QTest::newRow("exclusive") << true << 1;
    QTest::newRow("not exclusive") << false << 2;
}

void TEditWidgetTest::theLockHasItsNameAndMode()
{
    QFETCH(bool, exclusive);
    QFETCH(int, mode);
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    if (!exclusive)
        stage.edit->SetLockExclusive(false);
    stage.edit->Open();
    QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
    auto const lock = stage.screen->GetLockingWidgets().constFirst();
    QCOMPARE(lock.widget, stage.edit.data());
    QCOMPARE(lock.title, QStringLiteral("Value Editor"));
    QCOMPARE(lock.modalType, mode);
}

void TEditWidgetTest::whateverClosesTheWidgetUnlocks()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    for (auto const close : {&TEditWidget::OnDone, &TEditWidget::OnCancelEdit, &TEditWidget::Close})
    {
        stage.edit->Open();
        QVERIFY(stage.IsLocked());
        (stage.edit->*close)();
        QVERIFY(!stage.IsLocked());
        QVERIFY(!stage.edit->isVisible());
    }
}

void TEditWidgetTest::theTextIsMadeAnewAtEachShowing()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    stage.edit->OnNumberPadTextChange(QStringLiteral("typed"));
    QCOMPARE(stage.Shown(), QStringLiteral("typed"));
    stage.edit->Close();
    QCOMPARE(stage.Shown(), QStringLiteral("typed"));
    stage.edit->Open();
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
}

void TEditWidgetTest::floatingOkAndCancelNeedPlusAndMinus_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("floating");
    QTest::addColumn<bool>("usePad");
    QTest::addColumn<bool>("steps");
    QTest::addColumn<bool>("ok");
    QTest::newRow("number") << int(EDIT_KIND_NUMERIC) << true << false << true << true;
    QTest::newRow("stepped") << int(EDIT_KIND_STEPPED) << true << false << true << true;
    QTest::newRow("other") << int(EDIT_KIND_OTHER) << true << false << false << false;
    QTest::newRow("list") << int(EDIT_KIND_TEXT_LIST) << true << false << false << false;
    QTest::newRow("no floating buttons") << int(EDIT_KIND_NUMERIC) << false << false << false << false;
    QTest::newRow("with a pad") << int(EDIT_KIND_NUMERIC) << true << true << true << false;
}

void TEditWidgetTest::floatingOkAndCancelNeedPlusAndMinus()
{
    QFETCH(int, kind);
    QFETCH(bool, floating);
    QFETCH(bool, usePad);
    QFETCH(bool, steps);
    QFETCH(bool, ok);
    TEditItem item = SteppedItem(0, 2, 1, 1);
    item.discreteValues = {0, 1, 2};
    item.kind = kind;
    item.floatingButtons = floating;
    item.useNumberPad = usePad;
    TOpenEditStage const stage(item);
    QCOMPARE(stage.Plus() && stage.Plus()->isVisible(), steps);
    QCOMPARE(stage.Minus() && stage.Minus()->isVisible(), steps);
    QCOMPARE(stage.FloatingOk()->isVisible(), ok);
    QCOMPARE(stage.FloatingCancel()->isVisible(), ok);
    QCOMPARE(stage.ListOk()->isVisible(), kind == EDIT_KIND_TEXT_LIST);
    QCOMPARE(stage.ListCancel()->isVisible(), kind == EDIT_KIND_TEXT_LIST);
}

void TEditWidgetTest::okTellsTheValueWhenTheWidgetIsClosed()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    bool wasClosed = false;
    connect(stage.edit, &TEditWidget::NewValue, stage.edit,
            [&] { wasClosed = !stage.edit->isVisible() && !stage.IsLocked(); });
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.Plus());
    QVERIFY(stage.values.isEmpty());
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values, QVector<double>{7});
    QVERIFY(wasClosed);
    // From now on a cancel goes back to it.
    stage.edit->Open();
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.FloatingCancel());
    QCOMPARE(stage.edit->GetCurrentValue(), 7.0);
    QCOMPARE(stage.log.last(), QStringLiteral("cancel"));
}

void TEditWidgetTest::cancellingRestoresTheValueButNotTheText()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    QString told;
    connect(stage.edit, &TEditWidget::NumberPadCancelled, stage.edit,
            [&]
            {
                told = QStringLiteral("%1 %2").arg(stage.edit->GetCurrentValue()).arg(stage.Shown());
                QVERIFY(!stage.edit->isVisible());
            });
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.FloatingCancel());
    QCOMPARE(told, QStringLiteral("5 6"));
    QVERIFY(stage.values.isEmpty());
    QCOMPARE(stage.Shown(), QStringLiteral("6"));
    stage.edit->Open();
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
}

void TEditWidgetTest::anotherPositionClosesAndOpensAgain()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    QList<bool> locks;
    connect(stage.screen.get(), &TScreen::NotifyScreenLock, stage.edit,
            [&locks](bool locked) { locks << locked; });
    QWidget other(stage.screen.get());
    other.setGeometry(100, 100, 120, 30);
    other.show();
    stage.edit->SetPosition(&other);
    QCOMPARE(locks, QList<bool>({false, true}));
    QVERIFY(stage.edit->isVisible());
    QCOMPARE(stage.Value()->geometry(), other.geometry());
    QCOMPARE(stage.platform.m_Source.data(), &other);
    stage.edit->SetPosition(nullptr, [](QWidget* parent) { return QRect(parent->width() / 2, 60, 90, 30); });
    QCOMPARE(stage.Value()->geometry(), QRect(stage.screen->width() / 2, 60, 90, 30));
    stage.edit->Close();
    stage.edit->SetPosition(&other);
    QVERIFY(!stage.edit->isVisible());
}

void TEditWidgetTest::aSourceThatMovesIsFollowedAfterItsMove()
{
    TOpenEditStage const stage(SteppedItem(0, 10, 1, 5));
    stage.source->move(150, 350);
    stage.edit->PositionChanged();
    QCOMPARE(stage.Value()->pos(), TEditScene::SourceRect.topLeft());
    stage.source->move(160, 360);
    QCoreApplication::processEvents();
    QCOMPARE(stage.Value()->pos(), QPoint(160, 360));
    QCOMPARE(stage.Minus()->x(), stage.Value()->geometry().right() + 1);
}

// What the annotation layer does when it hears of that.
void TEditWidgetTest::aSourceThatDiesWhileOpen()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    stage.edit->PositionChanged();
    delete stage.source.data();
    QCoreApplication::processEvents();
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.edit->GetCurrentValue(), 6.0);
    stage.platform.HideAnnotation(stage.edit);
    QVERIFY(!stage.IsLocked());
    QVERIFY(stage.values.isEmpty());
    QCOMPARE(stage.cancels, 0);
    stage.edit->Open();
    stage.edit->OnDone();
    QCOMPARE(stage.values, QVector<double>{6});
}

void TEditWidgetTest::aSourceThatHidesTakesTheWidgetAlong()
{
    TEditItem item = PadItem(0, 100, 5);
    TOpenEditStage stage(item);
    stage.Type(QStringLiteral("42"));
    stage.edit->hide();
    QVERIFY(!stage.IsLocked());
    QVERIFY(!stage.Pad()->isEnabled());
    stage.edit->show();
    QVERIFY(stage.IsLocked());
    QVERIFY(stage.Pad()->isEnabled());
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
    stage.Enter(QStringLiteral("7"));
    QCOMPARE(stage.values, QVector<double>{7});
}

void TEditWidgetTest::anotherUnitSystemShowsAtOnce()
{
    TEditItem item = SteppedItem(0, 100, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    TOpenEditStage stage(item);
    QCOMPARE(stage.Shown(), QStringLiteral("36.0 km/h"));
    stage.UseSystem(UNIT_SYSTEM_US);
    QCOMPARE(stage.Shown(), QStringLiteral("22.4 mph"));
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.Shown(), QStringLiteral("23.0 mph"));
    stage.finger.Touch(stage.FloatingCancel());
    QCOMPARE(stage.edit->GetCurrentValue(), 10.0);
}

void TEditWidgetTest::anItemThatChangesWhileOpenShowsAtOnce()
{
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    TEditItem const pad = PadItem(0, 100, 42);
    stage.edit->RefreshProperties(&pad);
    QVERIFY(stage.Pad()->isVisible());
    QVERIFY(stage.Pad()->isEnabled());
    QVERIFY(!stage.FloatingOk()->isVisible());
    QCOMPARE(stage.Shown(), QStringLiteral("42"));
    stage.Enter(QStringLiteral("17"));
    QCOMPARE(stage.values, QVector<double>{17});
}

void TEditWidgetTest::withoutAPlatformOrAScreenNothingHappens()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TEditWidget widget(nullptr, &item);
    QWidget source;
    widget.SetPosition(&source);
    widget.Open();
    QVERIFY(!widget.isVisible());
    widget.SourceMovedSlot();
    widget.PositionChanged();
    QCoreApplication::processEvents();
    widget.OnUp();
    widget.OnCancelEdit();
    QCOMPARE(widget.GetCurrentValue(), 5.0);
}

void TEditWidgetTest::nothingOutsideTheBoundsIsAccepted_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("accepted");
    QTest::newRow("within") << 0.0 << 10.0 << 5.5 << 5.5;
    QTest::newRow("above") << 0.0 << 10.0 << 10.001 << 10.0;
    QTest::newRow("below") << 0.0 << 10.0 << -0.001 << 0.0;
    QTest::newRow("not a number") << 2.0 << 10.0 << qQNaN() << 2.0;
    QTest::newRow("infinite") << 0.0 << 10.0 << Infinity << 10.0;
    QTest::newRow("minus infinite") << 0.0 << 10.0 << -Infinity << 0.0;
    QTest::newRow("huge") << 0.0 << 10.0 << 1e300 << 10.0;
    QTest::newRow("bounds the wrong way round") << 10.0 << 0.0 << 11.0 << 10.0;
    QTest::newRow("wrong way round, below") << 10.0 << 0.0 << -11.0 << 0.0;
    QTest::newRow("wrong way round, within") << 10.0 << 0.0 << 4.0 << 4.0;
    QTest::newRow("no lower bound") << qQNaN() << 10.0 << -1e30 << -1e30;
    QTest::newRow("no upper bound") << 0.0 << Infinity << 1e300 << 1e300;
}

void TEditWidgetTest::nothingOutsideTheBoundsIsAccepted()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, value);
    QFETCH(double, accepted);
    TOpenEditStage stage(SteppedItem(min, max, 1, value));
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values, QVector<double>{accepted});
    QCOMPARE(stage.edit->GetCurrentValue(), accepted);
}

// 0 to 0 is where every item starts.
void TEditWidgetTest::boundsThatWereNeverSetRefuseNothing()
{
    TOpenEditStage stage(SteppedItem(0, 0, 1, 7));
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values, QVector<double>{7});
    stage.edit->SetCurrentValue(qQNaN());
    stage.edit->Open();
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values.last(), 0.0);
}

void TEditWidgetTest::theEmptyValueMayLieOutsideTheBounds()
{
    TEditItem item = SteppedItem(0, 10, 1, -1);
    item.allowEmpty = true;
    item.emptyValue = -1;
    TOpenEditStage stage(item);
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.values, QVector<double>{-1});
}

void TEditWidgetTest::diesInTheSlotsOfItsSignals_data()
{
    QTest::addColumn<QString>("touched");
    QTest::newRow("a step up") << QStringLiteral("Increment Value");
    QTest::newRow("a step down") << QStringLiteral("Decrement Value");
    QTest::newRow("accepted") << QStringLiteral("OK");
    QTest::newRow("given up") << QStringLiteral("Cancel");
}

void TEditWidgetTest::diesInTheSlotsOfItsSignals()
{
    QFETCH(QString, touched);
    TOpenEditStage stage(SteppedItem(0, 10, 1, 5));
    QPointer<TEditWidget> const edit(stage.edit);
    auto const die = [edit] { delete edit.data(); };
    connect(edit.data(), qOverload<>(&TEditWidget::ValueChanged), stage.screen.get(), die);
    connect(edit.data(), &TEditWidget::NewValue, stage.screen.get(), die);
    connect(edit.data(), &TEditWidget::NumberPadCancelled, stage.screen.get(), die);
    auto const buttons = edit->findChildren<TPushButton*>();
    for (TPushButton* const button : buttons)
    {
        if (button->GetToolTip() == touched && button->isVisible())
        {
            stage.finger.Touch(button);
            break;
        }
    }
    QVERIFY(!edit);
    QVERIFY(!stage.IsLocked());
}

void TEditWidgetTest::diesWhileOpenAndPressed()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TOpenEditStage stage(item);
    stage.finger.Press(stage.Plus()->mapTo(stage.screen.get(), stage.Plus()->rect().center()));
    stage.WakeWheel();
    delete stage.edit.data();
    QVERIFY(!stage.IsLocked());
    stage.finger.Lift();
    stage.navigator.OnWheelRight();
    stage.WheelTick(1000);
    QCoreApplication::processEvents();
}

void TEditWidgetTest::outlivesTheScreenWhileOpen()
{
    TEditItem const item = PadItem(0, 100, 5);
    QPointer<TEditWidget> edit;
    {
        TTestScreen const screen;
        TEditPlatform platform;
        edit = new TEditWidget(nullptr, &item);
        edit->SetPosition(nullptr, [](QWidget*) { return QRect(100, 100, 100, 40); });
        edit->Open();
        QVERIFY(edit->isVisible());
        edit->setParent(nullptr);
    }
    QVERIFY(edit);
    edit->OnCancelEdit();
    delete edit.data();
}

COMMONUI_TEST(TEditWidgetTest)

#include "TEditWidgetTest.moc"
