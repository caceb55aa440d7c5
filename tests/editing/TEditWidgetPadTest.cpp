#include "TEditStage.h"
#include "TestCase.h"
#include "TUnits.h"

namespace
{
constexpr double MetresPerSecond = 1 / 3.6; // for each km/h

TEditItem SpeedItem(double min, double max, double value)
{
    TEditItem item = PadItem(min, max, value);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    return item;
}

TUnitsSelector KilometresAndMiles()
{
    TUnitsSelector selector;
    selector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 2}};
    return selector;
}

QString WithoutHardBlanks(QString text)
{
    return text.replace(QChar(0xA0), QLatin1Char(' '));
}
} // namespace

class TEditWidgetPadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPadIsMadeAnewOnlyForAnotherUseOrType();
    void thePadThatIsReplacedIsSilent();
    void anEntryIsTakenInItsOrder();
    void theEntryComesBackInTheDefaultUnit();
    void aCancelIsToldWhenAllIsClosed();
    void theTextOfThePadShowsOnTheButton();
    void liveUpdatesCarryDisplayUnits();
    void withoutLiveUpdatesAKeyIsNotTold();
    void liveUpdatesWithoutAPadTellTheValue();
    void keysUpdatePlusAndMinus();
    void thePadIsDisabledWhileClosed();
    void theBoundsReachThePad();
    void boundsThatChangeWhileOpenReachThePad();
    void thePadHasItsOwnDecimals_data();
    void thePadHasItsOwnDecimals();
    void aSuffixAndAUnitReachThePad();
    void anEmptyEntryIsTheEmptyValue();
    void theDensityReachesThePad();
    void anAddressIsEntered();
    void anAddressIsCancelled();
    void aTimeIsEntered();
    void aDateIsEntered();
    void steppedValuesAreBoundedByTheirEnds();
    void noPadForItemsThatWantNone();
    void thePadComesUpWhenTheWindowIsLockedAndTheTextIsMade();
    void anotherUnitSystemShowsAnew();
    void theUnitsButtonGoesWithItsSelector();

    void diesInTheSlotsOfItsSignals_data();
    void diesInTheSlotsOfItsSignals();
    void diesInALiveUpdateThatARefreshBrings();
    void takesAnotherItemInTheSlotsOfItsSignals_data();
    void takesAnotherItemInTheSlotsOfItsSignals();
    void aPadThatALiveUpdateReplacesStaysAway();
    void closesInALiveUpdateOfItsOpening();
    void aRefusedEntryStaysOpen();
};

void TEditWidgetPadTest::aPadIsMadeAnewOnlyForAnotherUseOrType()
{
    TEditItem item = PadItem(0, 100, 5);
    TEditStage const stage(item);
    QPointer<TUnitsNumberPad> const first(stage.Pad());
    QVERIFY(first);
    item.maximum = 50;
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 2);
    item.kind = EDIT_KIND_STEPPED;
    stage.edit->RefreshProperties(&item);
    QCOMPARE(stage.Pad(), first.data());
    item.numberPadType = NUMBER_PAD_TIME;
    stage.edit->RefreshProperties(&item);
    QVERIFY(stage.Pad() != first);
    QCOMPARE(stage.Key(TEditScene::Separator)->GetToolTip(), QStringLiteral("Hour and Minute separator"));
    QPointer<TUnitsNumberPad> const second(stage.Pad());
    item.useNumberPad = false;
    stage.edit->RefreshProperties(&item);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(!stage.Pad());
    item.useNumberPad = true;
    stage.edit->RefreshProperties(&item);
    QVERIFY(stage.Pad());
}

void TEditWidgetPadTest::thePadThatIsReplacedIsSilent()
{
    TEditItem item = PadItem(0, 100, 5);
    TOpenEditStage stage(item);
    QPointer<TUnitsNumberPad> const first(stage.Pad());
    item.numberPadType = NUMBER_PAD_TIME;
    stage.edit->RefreshProperties(&item);
    QVERIFY(first);
    QVERIFY(!first->isVisible());
    Q_EMIT first->NewValueDbl(9);
    Q_EMIT first->Cancel();
    QVERIFY(stage.log.isEmpty());
    QVERIFY(stage.edit->isVisible());
}

void TEditWidgetPadTest::anEntryIsTakenInItsOrder()
{
    TEditItem item = PadItem(0, 100, 5);
    item.suffix = QStringLiteral("bits");
    TOpenEditStage stage(item);
    QString whileClosing;
    connect(stage.screen.get(), &TScreen::NotifyScreenLock, stage.edit,
            [&](bool locked)
            {
                if (!locked)
                    whileClosing = QStringLiteral("%1 %2 %3")
                                       .arg(stage.edit->GetCurrentValue())
                                       .arg(stage.Shown())
                                       .arg(int(stage.Pad()->isEnabled()));
            });
    bool wasOver = false;
    connect(stage.edit, &TEditWidget::NewValue, stage.edit,
            [&]
            {
                wasOver = !stage.edit->isVisible() && !stage.IsLocked() && !stage.Pad()->isEnabled() &&
                          stage.Pad()->isHidden();
            });
    stage.Enter(QStringLiteral("42"));
    QCOMPARE(stage.values, QVector<double>{42});
    QVERIFY(wasOver);
    // The value and its text come first, then the pad goes, then the widget.
    QCOMPARE(whileClosing, QStringLiteral("42 42 bits 0"));
}

void TEditWidgetPadTest::theEntryComesBackInTheDefaultUnit()
{
    TOpenEditStage stage(SpeedItem(0, 100, 10));
    stage.Enter(QStringLiteral("7.2"));
    QCOMPARE(stage.values.size(), 1);
    QCOMPARE(stage.values.first(), 2.0);
    QCOMPARE(stage.edit->GetStringValue(), QStringLiteral("7.2 km/h"));
    stage.edit->Open();
    stage.Type(QStringLiteral("9"));
    stage.finger.Touch(stage.Key(TEditScene::Cross));
    QCOMPARE(stage.edit->GetCurrentValue(), stage.values.first());
}

void TEditWidgetPadTest::aCancelIsToldWhenAllIsClosed()
{
    TOpenEditStage stage(PadItem(0, 100, 5));
    bool wasOver = false;
    connect(stage.edit, &TEditWidget::NumberPadCancelled, stage.edit,
            [&]
            {
                wasOver = !stage.edit->isVisible() && !stage.IsLocked() && !stage.Pad()->isEnabled() &&
                          stage.Pad()->isHidden() && stage.edit->GetCurrentValue() == 5.0;
            });
    stage.Type(QStringLiteral("42"));
    stage.finger.Touch(stage.Key(TEditScene::Cross));
    QVERIFY(wasOver);
    QCOMPARE(stage.log, QStringList(QStringLiteral("cancel")));
}

void TEditWidgetPadTest::theTextOfThePadShowsOnTheButton()
{
    TOpenEditStage stage(SpeedItem(0, 100, 10));
    stage.Type(QStringLiteral("12"));
    QCOMPARE(WithoutHardBlanks(stage.Shown()), QStringLiteral("12 km/h"));
    QCOMPARE(stage.edit->GetEnteredStringValue(), stage.Shown());
    // What is typed is not accepted yet.
    QCOMPARE(stage.edit->GetCurrentValue(), 10.0);
}

void TEditWidgetPadTest::liveUpdatesCarryDisplayUnits()
{
    TEditItem item = SpeedItem(0, 10, 1);
    item.liveUpdates = true;
    TOpenEditStage stage(item);
    stage.live.clear();
    stage.log.clear();
    stage.Type(QStringLiteral("18"));
    QCOMPARE(stage.live.size(), 2);
    QCOMPARE(stage.live.at(0), 1.0);
    QCOMPARE(stage.live.at(1), 18.0);
    QVERIFY(stage.steps == 0 && stage.values.isEmpty());
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values.size(), 1);
    QCOMPARE(stage.values.first(), 18 * MetresPerSecond);
}

void TEditWidgetPadTest::withoutLiveUpdatesAKeyIsNotTold()
{
    TOpenEditStage stage(SpeedItem(0, 10, 1));
    stage.Type(QStringLiteral("18"));
    QVERIFY(stage.log.isEmpty());
}

void TEditWidgetPadTest::liveUpdatesWithoutAPadTellTheValue()
{
    TEditItem item = SpeedItem(0, 10, 10);
    item.useNumberPad = false;
    item.liveUpdates = true;
    TOpenEditStage const stage(item);
    stage.edit->OnNumberPadTextChange(QStringLiteral("x"));
    QCOMPARE(stage.live, QVector<double>{36});
    QCOMPARE(stage.Shown(), QStringLiteral("x"));
}

void TEditWidgetPadTest::keysUpdatePlusAndMinus()
{
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    TOpenEditStage stage(item);
    QVERIFY(stage.Plus()->isEnabled() && stage.Minus()->isEnabled());
    stage.Type(QStringLiteral("100"));
    QVERIFY(!stage.Plus()->isEnabled());
    QVERIFY(stage.Minus()->isEnabled());
    stage.finger.Touch(stage.Minus());
    QVERIFY(stage.Plus()->isEnabled());
    stage.Type(QStringLiteral("0"));
    QVERIFY(stage.Plus()->isEnabled());
    QVERIFY(!stage.Minus()->isEnabled());
}

void TEditWidgetPadTest::thePadIsDisabledWhileClosed()
{
    TEditStage stage(PadItem(0, 100, 5));
    QVERIFY(!stage.Pad()->isVisible());
    for (auto const close : {&TEditWidget::OnDone, &TEditWidget::OnCancelEdit, &TEditWidget::Close})
    {
        stage.edit->Open();
        QVERIFY(stage.Pad()->isVisible());
        QVERIFY(stage.Pad()->isEnabled());
        (stage.edit->*close)();
        QVERIFY(!stage.Pad()->isEnabled());
        stage.log.clear();
        stage.Key(7)->click();
        stage.Key(TEditScene::Tick)->click();
        QVERIFY(stage.log.isEmpty());
    }
}

void TEditWidgetPadTest::theBoundsReachThePad()
{
    TOpenEditStage stage(PadItem(2, 20, 5));
    stage.Enter(QStringLiteral("21"));
    QVERIFY(stage.values.isEmpty());
    QVERIFY(stage.Message());
    QCOMPARE(stage.Message()->GetMessageString(), QStringLiteral("Enter a value between 2 and 20"));
    stage.Message()->OnOk();
    stage.Enter(QStringLiteral("1"));
    QVERIFY(stage.Message());
    stage.Message()->OnOk();
    stage.Enter(QStringLiteral("20"));
    QCOMPARE(stage.values, QVector<double>{20});
}

void TEditWidgetPadTest::boundsThatChangeWhileOpenReachThePad()
{
    TOpenEditStage stage(PadItem(2, 20, 5));
    stage.edit->SetMaximumValue(10);
    stage.edit->SetMinimumValue(4);
    stage.Enter(QStringLiteral("15"));
    QVERIFY(stage.values.isEmpty());
    QVERIFY(stage.Message());
    QCOMPARE(stage.Message()->GetMessageString(), QStringLiteral("Enter a value between 4 and 10"));
    stage.Message()->OnOk();
    stage.Enter(QStringLiteral("10"));
    QCOMPARE(stage.values, QVector<double>{10});
}

void TEditWidgetPadTest::thePadHasItsOwnDecimals_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("onPad");
    QTest::addColumn<QString>("text");
    QTest::newRow("those of the text") << 2 << -1 << QStringLiteral("12.35");
    QTest::newRow("its own") << 2 << 1 << QStringLiteral("12.3");
    QTest::newRow("none") << 2 << 0 << QStringLiteral("12");
    QTest::newRow("dynamic") << 0 << 100 << QStringLiteral("12.3");
}

void TEditWidgetPadTest::thePadHasItsOwnDecimals()
{
    QFETCH(int, shown);
    QFETCH(int, onPad);
    QFETCH(QString, text);
    TEditItem item = PadItem(0, 100, 12.346);
    item.decimalPlaces = shown;
    item.padDecimalPlaces = onPad;
    TOpenEditStage const stage(item);
    QCOMPARE(stage.Shown(), text);
}

void TEditWidgetPadTest::aSuffixAndAUnitReachThePad()
{
    TEditItem item = SpeedItem(0, 100, 10);
    item.suffix = QStringLiteral("bits");
    TOpenEditStage const stage(item);
    QCOMPARE(WithoutHardBlanks(stage.Shown()), QStringLiteral("36.0 km/h"));
    stage.edit->Close();
    item.unitType = UNIT_NONE;
    stage.edit->RefreshProperties(&item);
    stage.edit->Open();
    QCOMPARE(WithoutHardBlanks(stage.Shown()), QStringLiteral("10.0 bits"));
}

void TEditWidgetPadTest::anEmptyEntryIsTheEmptyValue()
{
    TEditItem item = PadItem(-1, 100, 5);
    item.allowEmpty = true;
    item.emptyValue = -1;
    TOpenEditStage stage(item);
    stage.Type(QStringLiteral("7"));
    stage.finger.Touch(stage.Key(10));
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{-1});
    QCOMPARE(stage.edit->GetStringValue(), QString());
}

void TEditWidgetPadTest::theDensityReachesThePad()
{
    TEditItem item = PadItem(0, 1000, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_VOLUME, 3);
    item.unitsContext = UNITS_CONTEXT_WEIGHED;
    item.density = 2;
    TOpenEditStage stage(item);
    QCOMPARE(WithoutHardBlanks(stage.Shown()), stage.edit->GetStringValue());
    double const shown = TUnits::GetValueInCurrentUnit(10, item.unitType, item.unitsContext, 2);
    QVERIFY(shown != TUnits::GetValueInCurrentUnit(10, item.unitType, item.unitsContext, 1));
    stage.Enter(QStringLiteral("50"));
    QCOMPARE(stage.values.size(), 1);
    QCOMPARE(stage.values.first(), 50 * 10 / shown);
}

void TEditWidgetPadTest::anAddressIsEntered()
{
    TOpenEditStage stage(AddressItem(QStringLiteral("10.0.0.1")));
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.0.1"));
    QString told;
    connect(stage.edit, &TEditWidget::NewIPAddressValue, stage.edit,
            [&](QString const& text)
            {
                bool const isOver = !stage.edit->isVisible() && !stage.Pad()->isEnabled();
                told = isOver ? text + stage.edit->GetStringValue() + stage.Shown() : QString();
            });
    stage.Enter(QStringLiteral("1.2.3.004"));
    QCOMPARE(told, QStringLiteral("1.2.3.41.2.3.41.2.3.4"));
    QCOMPARE(stage.log, QStringList(QStringLiteral("address 1.2.3.4")));
    TEditItem item;
    stage.edit->GetEditItemProperty(item);
    QCOMPARE(item.ipAddress, QStringLiteral("1.2.3.4"));
}

void TEditWidgetPadTest::anAddressIsCancelled()
{
    TOpenEditStage stage(AddressItem(QStringLiteral("10.0.0.1")));
    stage.Type(QStringLiteral("1.2"));
    stage.finger.Touch(stage.Key(TEditScene::Cross));
    QCOMPARE(stage.log, QStringList(QStringLiteral("cancel")));
    QCOMPARE(stage.edit->GetStringValue(), QStringLiteral("10.0.0.1"));
    stage.edit->Open();
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.0.1"));
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.log.last(), QStringLiteral("address 10.0.0.1"));
}

void TEditWidgetPadTest::aTimeIsEntered()
{
    TEditItem item = PadItem(0, 24, 7.5);
    item.numberPadType = NUMBER_PAD_TIME;
    TEditStage stage(item);
    stage.UseClock(true);
    stage.edit->Open();
    QCOMPARE(stage.Shown(), QStringLiteral("7:30"));
    stage.Enter(QStringLiteral("13.45"));
    QCOMPARE(stage.values, QVector<double>{13.75});
}

void TEditWidgetPadTest::aDateIsEntered()
{
    auto const day = double(QDate(2024, 2, 29).toJulianDay());
    TEditItem item =
        PadItem(double(QDate(2000, 1, 1).toJulianDay()), double(QDate(2100, 12, 31).toJulianDay()), day);
    item.numberPadType = NUMBER_PAD_DATE;
    item.suffix = QStringLiteral("DD/MM/YYYY");
    TOpenEditStage stage(item);
    QCOMPARE(stage.Shown(), QStringLiteral("29/02/2024"));
    stage.Enter(QStringLiteral("01.03.2024"));
    QCOMPARE(stage.values, QVector<double>{day + 1});
    QCOMPARE(stage.edit->GetStringValue(), QStringLiteral("01/03/2024"));
}

void TEditWidgetPadTest::steppedValuesAreBoundedByTheirEnds()
{
    TEditItem item = PadItem(0, 0, 2);
    item.kind = EDIT_KIND_STEPPED;
    item.discreteValues = {1, 2, 5};
    TOpenEditStage stage(item);
    stage.Enter(QStringLiteral("6"));
    QVERIFY(stage.values.isEmpty());
    QVERIFY(stage.Message());
    stage.Message()->OnOk();
    stage.Enter(QStringLiteral("5"));
    QCOMPARE(stage.values, QVector<double>{5});
}

void TEditWidgetPadTest::noPadForItemsThatWantNone()
{
    TEditStage const stage(SteppedItem(0, 10, 1, 5));
    QVERIFY(!stage.Pad());
    stage.edit->Open();
    QVERIFY(!stage.Pad());
}

void TEditWidgetPadTest::thePadComesUpWhenTheWindowIsLockedAndTheTextIsMade()
{
    TEditItem item = PadItem(0, 100, 100);
    item.floatingButtons = true;
    item.liveUpdates = true;
    TEditStage const stage(item);
    stage.edit->OnNumberPadTextChange(QStringLiteral("former"));
    QStringList seen;
    connect(stage.Pad(), &TWindow::WindowShown, stage.edit,
            [&]
            {
                seen << stage.Shown() << QString::number(int(stage.IsLocked()))
                     << QString::number(int(stage.Pad()->isEnabled()));
            });
    stage.edit->Open();
    QCOMPARE(seen, QStringList({QStringLiteral("100"), QStringLiteral("1"), QStringLiteral("1")}));
    // They go by what the pad holds, so they come after it.
    QVERIFY(!stage.Plus()->isEnabled());
    QVERIFY(stage.Minus()->isEnabled());
}

void TEditWidgetPadTest::anotherUnitSystemShowsAnew()
{
    TOpenEditStage stage(SpeedItem(0, 100, 10));
    stage.Type(QStringLiteral("12"));
    stage.UseSystem(UNIT_SYSTEM_US);
    QCOMPARE(WithoutHardBlanks(stage.Shown()), QStringLiteral("22.4 mph"));
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.values, QVector<double>{10});
    stage.UseSystem(UNIT_SYSTEM_METRIC);
    stage.edit->Open();
    QCOMPARE(WithoutHardBlanks(stage.Shown()), QStringLiteral("36.0 km/h"));
}

void TEditWidgetPadTest::theUnitsButtonGoesWithItsSelector()
{
    TEditItem item = SpeedItem(0, 100, 10);
    item.unitsSelector = KilometresAndMiles();
    TOpenEditStage const stage(item);
    QPointer<TPushButton> const units(stage.Pad()->GetUnitsButton());
    QVERIFY(units);
    QVERIFY(units->isVisible());
    QCOMPARE(units->parentWidget(), stage.edit.data());
    item.unitsSelector.units.resize(1);
    stage.edit->RefreshProperties(&item);
    QVERIFY(!units->isVisible());
    item.unitsSelector = KilometresAndMiles();
    stage.edit->RefreshProperties(&item);
    QVERIFY(units->isVisible());
    item.useNumberPad = false;
    stage.edit->RefreshProperties(&item);
    QVERIFY(!units->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!units);
}

void TEditWidgetPadTest::diesInTheSlotsOfItsSignals_data()
{
    QTest::addColumn<bool>("isAddress");
    QTest::addColumn<int>("key");
    QTest::newRow("live update") << false << 7;
    QTest::newRow("accepted") << false << TEditScene::Tick;
    QTest::newRow("cancelled") << false << TEditScene::Cross;
    QTest::newRow("address accepted") << true << TEditScene::Tick;
    QTest::newRow("address cancelled") << true << TEditScene::Cross;
    QTest::newRow("step up on the pad") << false << TEditScene::PadPlus;
    QTest::newRow("step down on the pad") << false << TEditScene::PadMinus;
}

void TEditWidgetPadTest::diesInTheSlotsOfItsSignals()
{
    QFETCH(bool, isAddress);
    QFETCH(int, key);
    TEditItem item = isAddress ? AddressItem(QStringLiteral("1.2.3.4")) : PadItem(0, 100, 5);
    item.floatingButtons = !isAddress;
    item.inlineNumberPad = true;
    item.liveUpdates = true;
    TOpenEditStage stage(item);
    QPointer<TEditWidget> const edit(stage.edit);
    auto const die = [edit] { delete edit.data(); };
    connect(edit.data(), qOverload<double>(&TEditWidget::ValueChanged), stage.screen.get(), die);
    connect(edit.data(), qOverload<>(&TEditWidget::ValueChanged), stage.screen.get(), die);
    connect(edit.data(), &TEditWidget::NewValue, stage.screen.get(), die);
    connect(edit.data(), &TEditWidget::NumberPadCancelled, stage.screen.get(), die);
    connect(edit.data(), &TEditWidget::NewIPAddressValue, stage.screen.get(), die);
    stage.finger.Touch(stage.Key(key));
    QVERIFY(!edit);
    QVERIFY(!stage.IsLocked());
    QCoreApplication::processEvents();
}

void TEditWidgetPadTest::diesInALiveUpdateThatARefreshBrings()
{
    for (int change = 0; change < 3; ++change)
    {
        TEditItem item = PadItem(0, 100, 5);
        item.liveUpdates = true;
        item.unitType = UNIT_PERCENT;
        TOpenEditStage const stage(item);
        QPointer<TEditWidget> const edit(stage.edit);
        connect(edit.data(), qOverload<double>(&TEditWidget::ValueChanged), stage.screen.get(),
                [edit] { delete edit.data(); });
        item.value = 6;
        if (change == 1)
            item.unitType = UNIT_NONE;
        else if (change == 2)
            item.unitType = UNIT_VOLT;
        edit->RefreshProperties(&item);
        QVERIFY(!edit);
        QVERIFY(!stage.IsLocked());
    }
}

void TEditWidgetPadTest::takesAnotherItemInTheSlotsOfItsSignals_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("live update") << 7 << true;
    QTest::newRow("accepted") << TEditScene::Tick << false;
    QTest::newRow("cancelled") << TEditScene::Cross << false;
    QTest::newRow("step up on the pad") << TEditScene::PadPlus << true;
}

void TEditWidgetPadTest::takesAnotherItemInTheSlotsOfItsSignals()
{
    QFETCH(int, key);
    QFETCH(bool, isOpen);
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    item.inlineNumberPad = true;
    item.liveUpdates = true;
    TOpenEditStage stage(item);
    TEditItem const other = AddressItem(QStringLiteral("1.2.3.4"));
    int changes = 0;
    auto const change = [&]
    {
        ++changes;
        stage.edit->RefreshProperties(&other);
    };
    connect(stage.edit, qOverload<double>(&TEditWidget::ValueChanged), stage.edit, change);
    connect(stage.edit, qOverload<>(&TEditWidget::ValueChanged), stage.edit, change);
    connect(stage.edit, &TEditWidget::NewValue, stage.edit, change);
    connect(stage.edit, &TEditWidget::NumberPadCancelled, stage.edit, change);
    stage.finger.Touch(stage.Key(key));
    QVERIFY(changes >= 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(stage.edit->isVisible(), isOpen);
    QCOMPARE(stage.Key(TEditScene::Separator)->GetToolTip(), QStringLiteral("IP address separator"));
    QCOMPARE(stage.Pad()->isVisible(), isOpen);
    stage.edit->Open();
    QCOMPARE(stage.Shown(), QStringLiteral("1.2.3.4"));
    stage.finger.Touch(stage.Key(TEditScene::Tick));
    QCOMPARE(stage.log.last(), QStringLiteral("address 1.2.3.4"));
}

void TEditWidgetPadTest::aPadThatALiveUpdateReplacesStaysAway()
{
    TEditItem item = PadItem(0, 100, 5);
    item.liveUpdates = true;
    TOpenEditStage const stage(item);
    QPointer<TUnitsNumberPad> const former(stage.Pad());
    TEditItem const other = AddressItem(QStringLiteral("1.2.3.4"));
    connect(stage.edit, qOverload<double>(&TEditWidget::ValueChanged), stage.edit,
            [&] { stage.edit->RefreshProperties(&other); });
    item.value = 6;
    stage.edit->RefreshProperties(&item);
    QVERIFY(former);
    QVERIFY(stage.Pad() != former);
    QVERIFY(former->isHidden());
    QVERIFY(stage.Pad()->isVisible());
}

void TEditWidgetPadTest::closesInALiveUpdateOfItsOpening()
{
    TEditItem item = PadItem(0, 100, 5);
    item.liveUpdates = true;
    TEditStage const stage(item);
    connect(stage.edit, qOverload<double>(&TEditWidget::ValueChanged), stage.edit,
            [&] { stage.edit->OnCancelEdit(); });
    stage.edit->Open();
    QVERIFY(!stage.edit->isVisible());
    QVERIFY(!stage.IsLocked());
    QVERIFY(!stage.Pad()->isEnabled());
    QVERIFY(stage.cancels > 0);
}

void TEditWidgetPadTest::aRefusedEntryStaysOpen()
{
    TOpenEditStage stage(PadItem(0, 10, 5));
    stage.Enter(QStringLiteral("11"));
    QVERIFY(stage.Message());
    QVERIFY(stage.edit->isVisible());
    QVERIFY(stage.log.isEmpty());
    // The message goes with the widget.
    QPointer<TMessageDialog> const message(stage.Message());
    delete stage.edit.data();
    QVERIFY(!message || !message->isVisible());
    QVERIFY(!stage.IsLocked());
}

COMMONUI_TEST(TEditWidgetPadTest)

#include "TEditWidgetPadTest.moc"
