#include "TEditButton.h"
#include "TEditStage.h"
#include "TestCase.h"

namespace
{
/// What the guards of the items have been asked; they have no other place for it.
struct TGuards
{
    int asked = 0;
    int failed = 0;
    bool answer = true;
    QPointer<QObject> victim;
};
TGuards guards;

bool IsSatisfied()
{
    ++guards.asked;
    delete guards.victim.data();
    return guards.answer;
}

void OnFailed()
{
    ++guards.failed;
    delete guards.victim.data();
}

/// A screen with an edit button, of which all that it says is written down.
class TStage : public TEditScene
{
public:
    TStage()
        : button(new TEditButton(screen.get()))
    {
        guards = TGuards();
        button->move(300, 200);
        button->show();
        QObject::connect(button, &TEditButton::NewValue, button,
                         [this](double value) { log << QStringLiteral("value %1 ").arg(value) + Text(); });
        QObject::connect(button, &TEditButton::ValueChanged, button,
                         [this] { log << QStringLiteral("changed ") + Text(); });
        QObject::connect(button, &TEditButton::NumberPadCancelled, button,
                         [this] { log << QStringLiteral("cancel ") + Text(); });
        QObject::connect(button, &TEditButton::NotEditableMessageDialogAccepted, button,
                         [this] { log << QStringLiteral("accepted"); });
    }
    explicit TStage(TEditItem const& item)
        : TStage()
    {
        TEditItem given = item;
        button->SetProperties(&given);
    }
    ~TStage() override
    {
        delete button.data();
        guards = TGuards();
    }

    TEditWidget* Edit() const override { return button->GetEditWidget(); }
    QString Text() const { return button->GetText(); }
    void Touch() { finger.Touch(button); }
    bool IsOpen() const { return Edit() && Edit()->isVisible(); }

    QPointer<TEditButton> button;
    QStringList log;
};

TEditItem GuardedItem()
{
    TEditItem item = SteppedItem(0, 10, 1, 5);
    item.isEditGuardConditionSatisfied = IsSatisfied;
    item.doOnEditGuardConditionFailed = OnFailed;
    return item;
}
} // namespace

class TEditButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAnItemATouchDoesNothing();
    void theStyleChoosesTheBackgrounds_data();
    void theStyleChoosesTheBackgrounds();
    void anUnknownStyleChangesNothing();
    void itsValueIsReadOnIt();
    void theEditWidgetWaitsClosedWithoutAParent();
    void aValueThatIsSetIsReadOnIt();
    void aTouchEditsOverTheButton();
    void anAcceptedValueIsTold();
    void aStepIsTold();
    void aCancelIsTold();
    void anAddressIsTakenOver();
    void theUnitsOfTheOperatorShowAtOnce();

    void anotherItemReplacesTheWidget();
    void anotherItemMayComeFromInsideItsSignals_data();
    void anotherItemMayComeFromInsideItsSignals();
    void withoutAnItemAgainNothingIsEdited();

    void notEditableATouchSaysWhy();
    void notEditableWithoutATextNothingHappens();
    void notEditableTheGuardIsNotAsked();
    void theRefusalTextMayChange();

    void aSatisfiedGuardLetsTheEditOpen();
    void aGuardThatIsNotSatisfiedKeepsItClosed();
    void aGuardMayStandAlone();
    void aGuardMayDeleteTheButton_data();
    void aGuardMayDeleteTheButton();

    void diesInTheSlotsOfItsSignals_data();
    void diesInTheSlotsOfItsSignals();
    void diesInTheSlotOfItsMessage();
    void diesWhileOpen();
    void diesWhilePressed();
    void hidesWhileOpen();
};

void TEditButtonTest::withoutAnItemATouchDoesNothing()
{
    TStage stage;
    QVERIFY(stage.button->IsEditable());
    QCOMPARE(stage.button->GetCurrentValue(), 0.0);
    QCOMPARE(stage.button->GetEditWidget(), nullptr);
    stage.button->SetCurrentValue(5);
    QCOMPARE(stage.button->GetCurrentValue(), 0.0);
    stage.Touch();
    QVERIFY(stage.log.isEmpty());
    QVERIFY(!stage.platform.m_Widget);
}

void TEditButtonTest::theStyleChoosesTheBackgrounds_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("background");
    QTest::addColumn<QString>("down");
    QTest::newRow("plain") << 0 << QStringLiteral("EditButton") << QStringLiteral("EditButtonDown");
    QTest::newRow("left") << 1 << QStringLiteral("EditButtonLeft") << QStringLiteral("EditButtonDownLeft");
    QTest::newRow("right") << 2 << QStringLiteral("EditButtonRight") << QStringLiteral("EditButtonDownRight");
}

void TEditButtonTest::theStyleChoosesTheBackgrounds()
{
    QFETCH(int, style);
    QFETCH(QString, background);
    QFETCH(QString, down);
    TStage const stage;
    stage.button->setFixedSize(30, 30);
    stage.button->SetButtonStyle(EEditButtonStyle(style));
    QCOMPARE(stage.button->size(), QSize(100, 40));
    QCOMPARE(stage.button->minimumSize(), stage.button->maximumSize());
    QCOMPARE(int(stage.button->GetButtonStyle()), style);
    TPushButton model(stage.screen.get(), -1, QString());
    model.setGeometry(stage.button->geometry());
    model.SetBackground(background);
    model.SetBackgroundSelected(down);
    model.show();
    for (bool const isDown : {false, true})
    {
        model.setDown(isDown);
        stage.button->setDown(isDown);
        QCOMPARE(stage.button->grab().toImage(), model.grab().toImage());
    }
}

void TEditButtonTest::anUnknownStyleChangesNothing()
{
    TStage const stage;
    stage.button->SetButtonStyle(EDIT_BUTTON_LEFT);
    for (int const style : {-1, 3, 99})
        stage.button->SetButtonStyle(EEditButtonStyle(style));
    QCOMPARE(stage.button->GetButtonStyle(), EDIT_BUTTON_LEFT);
}

void TEditButtonTest::itsValueIsReadOnIt()
{
    TEditItem item = SteppedItem(0, 100, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    TStage const stage(item);
    QCOMPARE(stage.Text(), QStringLiteral("36.0 km/h"));
    QCOMPARE(stage.button->GetCurrentValue(), 10.0);
}

void TEditButtonTest::theEditWidgetWaitsClosedWithoutAParent()
{
    TStage const stage(SteppedItem(0, 10, 1, 5));
    QVERIFY(stage.Edit());
    QCOMPARE(stage.Edit()->parentWidget(), nullptr);
    QVERIFY(!stage.Edit()->isVisible());
    QVERIFY(stage.log.isEmpty());
}

void TEditButtonTest::aValueThatIsSetIsReadOnIt()
{
    TStage const stage(SteppedItem(0, 10, 1, 5));
    stage.button->SetCurrentValue(7);
    QCOMPARE(stage.Text(), QStringLiteral("7"));
    QCOMPARE(stage.button->GetCurrentValue(), 7.0);
    stage.button->hide();
    stage.button->SetCurrentValue(8);
    QCOMPARE(stage.Text(), QStringLiteral("8"));
    QVERIFY(stage.log.isEmpty());
}

void TEditButtonTest::aTouchEditsOverTheButton()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    QVERIFY(stage.IsOpen());
    QCOMPARE(stage.platform.m_Source.data(), stage.button.data());
    QCOMPARE(stage.Value()->geometry(), stage.button->geometry());
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
    QVERIFY(stage.IsLocked());
}

void TEditButtonTest::anAcceptedValueIsTold()
{
    TStage stage(PadItem(0, 100, 5));
    stage.Touch();
    stage.Enter(QStringLiteral("42"));
    QCOMPARE(stage.log, QStringList(QStringLiteral("value 42 42")));
    QCOMPARE(stage.button->GetCurrentValue(), 42.0);
    QVERIFY(!stage.IsOpen());
}

void TEditButtonTest::aStepIsTold()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    stage.finger.Touch(stage.Plus());
    QCOMPARE(stage.log, QStringList(QStringLiteral("changed 5")));
    QCOMPARE(stage.button->GetCurrentValue(), 6.0);
}

void TEditButtonTest::aCancelIsTold()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.button->SetCurrentValue(3);
    stage.Touch();
    stage.finger.Touch(stage.Plus());
    stage.log.clear();
    stage.finger.Touch(stage.FloatingCancel());
    QCOMPARE(stage.log, QStringList(QStringLiteral("cancel 3")));
    QCOMPARE(stage.button->GetCurrentValue(), 3.0);
}

void TEditButtonTest::anAddressIsTakenOver()
{
    TStage stage(AddressItem(QStringLiteral("10.0.0.1")));
    QCOMPARE(stage.Text(), QStringLiteral("10.0.0.1"));
    stage.Touch();
    stage.Enter(QStringLiteral("1.2.3.4"));
    QCOMPARE(stage.Text(), QStringLiteral("1.2.3.4"));
    QCOMPARE(stage.log, QStringList(QStringLiteral("changed 1.2.3.4")));
}

void TEditButtonTest::theUnitsOfTheOperatorShowAtOnce()
{
    TEditItem item = SteppedItem(0, 100, 1, 10);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    TStage stage(item);
    stage.UseSystem(UNIT_SYSTEM_US);
    QCOMPARE(stage.Text(), QStringLiteral("22.4 mph"));
    stage.Touch();
    stage.UseSystem(UNIT_SYSTEM_METRIC);
    QCOMPARE(stage.Text(), QStringLiteral("36.0 km/h"));
    QCOMPARE(stage.Shown(), QStringLiteral("36.0 km/h"));
    QVERIFY(stage.log.isEmpty());
}

void TEditButtonTest::anotherItemReplacesTheWidget()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    QPointer<TEditWidget> const former(stage.Edit());
    TEditItem item = SteppedItem(0, 10, 1, 8);
    stage.button->SetProperties(&item);
    QVERIFY(former);
    QVERIFY(stage.Edit() != former);
    QVERIFY(!former->isVisible());
    QVERIFY(!stage.IsLocked());
    QCOMPARE(stage.Text(), QStringLiteral("8"));
    former->OnDone();
    former->OnCancelEdit();
    QVERIFY(stage.log.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!former);
    stage.Touch();
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.log, QStringList(QStringLiteral("value 8 8")));
}

void TEditButtonTest::anotherItemMayComeFromInsideItsSignals_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("told");
    QTest::newRow("accepted") << TEditScene::Tick << QStringLiteral("value 5 5");
    QTest::newRow("cancelled") << TEditScene::Cross << QStringLiteral("cancel 5");
    QTest::newRow("a step") << TEditScene::PadPlus << QStringLiteral("changed 5");
}

void TEditButtonTest::anotherItemMayComeFromInsideItsSignals()
{
    QFETCH(int, key);
    QFETCH(QString, told);
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    item.inlineNumberPad = true;
    TStage stage(item);
    TEditItem other = SteppedItem(0, 50, 1, 44);
    auto const change = [&] { stage.button->SetProperties(&other); };
    connect(stage.button, &TEditButton::NewValue, stage.button, change);
    connect(stage.button, &TEditButton::ValueChanged, stage.button, change);
    connect(stage.button, &TEditButton::NumberPadCancelled, stage.button, change);
    stage.Touch();
    stage.finger.Touch(stage.Key(key));
    QCOMPARE(stage.log, QStringList(told));
    QCOMPARE(stage.Text(), QStringLiteral("44"));
    QVERIFY(!stage.IsLocked());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    stage.Touch();
    QVERIFY(stage.IsOpen());
    QCOMPARE(stage.Shown(), QStringLiteral("44"));
}

void TEditButtonTest::withoutAnItemAgainNothingIsEdited()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    stage.button->SetProperties(nullptr);
    QVERIFY(!stage.IsLocked());
    QCOMPARE(stage.Edit(), nullptr);
    QCOMPARE(stage.button->GetCurrentValue(), 0.0);
    QCOMPARE(stage.Text(), QString());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    stage.Touch();
    stage.UseSystem(UNIT_SYSTEM_US);
    QVERIFY(stage.log.isEmpty());
}

void TEditButtonTest::notEditableATouchSaysWhy()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.button->SetEditable(false, QStringLiteral("Stop the spreader first."));
    QVERIFY(!stage.button->IsEditable());
    stage.Touch();
    QVERIFY(!stage.IsOpen());
    QVERIFY(stage.Message());
    QCOMPARE(stage.Message()->GetTitle(), QStringLiteral("Operation Not Permitted"));
    QCOMPARE(stage.Message()->GetMessageString(), QStringLiteral("Stop the spreader first."));
    QVERIFY(stage.log.isEmpty());
    stage.Message()->OnOk();
    QCOMPARE(stage.log, QStringList(QStringLiteral("accepted")));
    QVERIFY(!stage.Message());
    stage.button->SetEditable(true);
    stage.Touch();
    QVERIFY(stage.IsOpen());
    QVERIFY(!stage.Message());
}

void TEditButtonTest::notEditableWithoutATextNothingHappens()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.button->SetEditable(false);
    stage.Touch();
    QVERIFY(!stage.IsOpen());
    QVERIFY(!stage.Message());
    QVERIFY(stage.platform.m_Popups.isEmpty());
    // A value may still be set.
    stage.button->SetCurrentValue(6);
    QCOMPARE(stage.Text(), QStringLiteral("6"));
}

void TEditButtonTest::notEditableTheGuardIsNotAsked()
{
    TStage stage(GuardedItem());
    stage.button->SetEditable(false, QStringLiteral("no"));
    stage.Touch();
    QCOMPARE(guards.asked, 0);
    // A button without an item says so too.
    stage.Message()->OnOk();
    stage.button->SetProperties(nullptr);
    stage.Touch();
    QVERIFY(stage.Message());
}

void TEditButtonTest::theRefusalTextMayChange()
{
    TStage stage;
    stage.button->SetEditable(false, QStringLiteral("one"));
    stage.Touch();
    stage.Message()->OnOk();
    stage.button->SetEditable(false, QStringLiteral("two"));
    stage.Touch();
    QCOMPARE(stage.Message()->GetMessageString(), QStringLiteral("two"));
    stage.Message()->OnOk();
    QCOMPARE(stage.log.size(), 2);
}

void TEditButtonTest::aSatisfiedGuardLetsTheEditOpen()
{
    TStage stage(GuardedItem());
    stage.Touch();
    QCOMPARE(guards.asked, 1);
    QCOMPARE(guards.failed, 0);
    QVERIFY(stage.IsOpen());
}

void TEditButtonTest::aGuardThatIsNotSatisfiedKeepsItClosed()
{
    TStage stage(GuardedItem());
    guards.answer = false;
    stage.Touch();
    QCOMPARE(guards.asked, 1);
    QCOMPARE(guards.failed, 1);
    QVERIFY(!stage.IsOpen());
    QVERIFY(stage.log.isEmpty());
}

void TEditButtonTest::aGuardMayStandAlone()
{
    TEditItem item = GuardedItem();
    item.doOnEditGuardConditionFailed = nullptr;
    TStage stage(item);
    guards.answer = false;
    stage.Touch();
    QCOMPARE(guards.asked, 1);
    QVERIFY(!stage.IsOpen());
    item.isEditGuardConditionSatisfied = nullptr;
    item.doOnEditGuardConditionFailed = OnFailed;
    stage.button->SetProperties(&item);
    stage.Touch();
    QCOMPARE(guards.failed, 0);
    QVERIFY(stage.IsOpen());
}

void TEditButtonTest::aGuardMayDeleteTheButton_data()
{
    QTest::addColumn<bool>("answer");
    QTest::newRow("and be satisfied") << true;
    QTest::newRow("and not be satisfied") << false;
}

void TEditButtonTest::aGuardMayDeleteTheButton()
{
    QFETCH(bool, answer);
    TStage stage(GuardedItem());
    guards.answer = answer;
    guards.victim = stage.button.data();
    stage.Touch();
    QVERIFY(!stage.button);
    QVERIFY(!stage.platform.m_Widget);
    QCOMPARE(guards.asked, 1);
    QCOMPARE(guards.failed, answer ? 0 : 1);
}

void TEditButtonTest::diesInTheSlotsOfItsSignals_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("accepted") << TEditScene::Tick;
    QTest::newRow("cancelled") << TEditScene::Cross;
    QTest::newRow("a step") << TEditScene::PadPlus;
}

void TEditButtonTest::diesInTheSlotsOfItsSignals()
{
    QFETCH(int, key);
    TEditItem item = PadItem(0, 100, 5);
    item.floatingButtons = true;
    item.inlineNumberPad = true;
    TStage stage(item);
    QPointer<TEditWidget> const edit(stage.Edit());
    auto const die = [&stage] { delete stage.button.data(); };
    connect(stage.button, &TEditButton::NewValue, stage.screen.get(), die);
    connect(stage.button, &TEditButton::ValueChanged, stage.screen.get(), die);
    connect(stage.button, &TEditButton::NumberPadCancelled, stage.screen.get(), die);
    stage.Touch();
    stage.finger.Touch(stage.Key(key));
    QVERIFY(!stage.button);
    QVERIFY(!edit);
    QVERIFY(!stage.IsLocked());
}

void TEditButtonTest::diesInTheSlotOfItsMessage()
{
    TStage stage;
    stage.button->SetEditable(false, QStringLiteral("no"));
    connect(stage.button, &TEditButton::NotEditableMessageDialogAccepted, stage.screen.get(),
            [&stage] { delete stage.button.data(); });
    stage.Touch();
    QPointer<TMessageDialog> const message(stage.Message());
    message->OnOk();
    QVERIFY(!stage.button);
    QVERIFY(!message);
    QVERIFY(!stage.IsLocked());
}

void TEditButtonTest::diesWhileOpen()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    delete stage.button.data();
    QVERIFY(!stage.IsLocked());
    QVERIFY(!stage.platform.m_Widget);
}

void TEditButtonTest::diesWhilePressed()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.finger.Press(stage.button->geometry().center());
    delete stage.button.data();
    stage.finger.Lift();
    QVERIFY(!stage.platform.m_Widget);
}

void TEditButtonTest::hidesWhileOpen()
{
    TStage stage(SteppedItem(0, 10, 1, 5));
    stage.Touch();
    stage.button->hide();
    stage.Edit()->PositionChanged();
    QCoreApplication::processEvents();
    stage.finger.Touch(stage.Plus());
    stage.finger.Touch(stage.FloatingOk());
    QCOMPARE(stage.button->GetCurrentValue(), 6.0);
    QCOMPARE(stage.Text(), QStringLiteral("6"));
}

COMMONUI_TEST(TEditButtonTest)

#include "TEditButtonTest.moc"
