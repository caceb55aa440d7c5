#include "TEditButton.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TMessageDialog.h"
#include "TStackStage.h"
#include "TUnitsNumberPad.h"

#include <QSignalSpy>

namespace
{
TEditItem SpeedItem()
{
    TEditItem item;
    item.SetMinMaxInc(0, 30, 0.5);
    item.SetUnitAndDecimalPlaces(UNIT_TYPE_SPEED, 1);
    item.useNumberPad = true;
    item.floatingButtons = true;
    item.unitsSelector.units = {{UNIT_KILOMETRES_PER_HOUR, 1}, {UNIT_MILES_PER_HOUR, 1}};
    item.value = 2.5;
    return item;
}

/// A console with a button on a page whose value is edited.
struct TStage : TStackStage
{
    explicit TStage(TEditItem item = SpeedItem())
        : page(new QWidget(Screen()))
        , button(new TEditButton(page))
        , finger(Screen())
    {
        page->setGeometry(150, 50, 600, 300);
        page->show();
        button->move(40, 30);
        button->SetProperties(&item);
        button->show();
    }
    ~TStage() { delete page.data(); }
    TStage(TStage const&) = delete;
    TStage& operator=(TStage const&) = delete;

    TEditWidget* Edit() const { return button ? button->GetEditWidget() : nullptr; }
    TUnitsNumberPad* Pad() const { return Edit()->findChild<TUnitsNumberPad*>(); }
    void Open()
    {
        finger.Touch(button.data());
        QCoreApplication::processEvents();
    }
    bool IsUp() const
    {
        return Edit() && Edit()->isVisible() && Edit()->geometry() == Screen()->rect() &&
               Locks() == QList<QWidget*>{Edit()} && IsOnTop(Edit());
    }
    bool IsDown() const { return Locks().isEmpty() && (!Edit() || !Edit()->isVisible()); }
    /// Whether a touch in the middle of the screen would come to \a widget or to what is in it.
    bool IsOnTop(QWidget const* widget) const
    {
        QWidget const* const hit = Screen()->childAt(widget->geometry().bottomLeft() + QPoint(2, -2));
        return hit && (hit == widget || widget->isAncestorOf(hit));
    }

    QPointer<QWidget> page;
    QPointer<TEditButton> button;
    TFinger finger;
};
} // namespace

/// The editor of values on the host's own layer of annotations.
class TEditOverlayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coversTheConsoleUntilItIsAccepted()
    {
        TStage stage;
        QSignalSpy const accepted(stage.button.data(), &TEditButton::NewValue);
        stage.Open();
        QVERIFY(stage.IsUp());
        QCOMPARE(TScreenLayers(*stage.Screen()).Fault(), QString());
        stage.Pad()->OnOK();
        QCOMPARE(accepted.count(), 1);
        QVERIFY(stage.IsDown());
    }

    void comesAndGoesWithItsPage()
    {
        TStage stage;
        stage.Open();
        for (int time = 0; time < 2; ++time)
        {
            stage.page->hide();
            QVERIFY(stage.IsDown());
            stage.page->show();
            QCoreApplication::processEvents();
            QVERIFY(stage.IsUp());
            QVERIFY(stage.Pad()->isVisible());
        }
    }

    void followsItsPage()
    {
        TStage stage;
        stage.Open();
        QPoint const before = stage.Pad()->pos();
        stage.page->move(200, 100);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Pad()->pos(), before + QPoint(50, 50));
    }

    void aSourceThatDiesTakesItAlong()
    {
        TStage stage;
        stage.Open();
        QPointer<TEditWidget> const edit(stage.Edit());
        delete stage.button;
        QVERIFY(!edit);
        QVERIFY(stage.IsDown());
    }

    void theListOfUnitsStandsOverThePad()
    {
        TStage stage;
        stage.Open();
        stage.finger.Touch(stage.Pad()->GetUnitsButton());
        QCoreApplication::processEvents();
        QCOMPARE(stage.Locks().size(), 2);
        auto* const list = qobject_cast<TEditWidget*>(stage.Locks().constLast());
        QVERIFY(list && list != stage.Edit());
        QVERIFY(stage.IsOnTop(list));
        list->OnCancelEdit();
        QVERIFY(stage.IsUp());
    }

    void aMessageStandsOverTheEditAndGivesItBack()
    {
        TStage stage;
        stage.Open();
        TMessageDialog message(nullptr, QStringLiteral("Tank"), QStringLiteral("Nearly empty"), MESSAGE_OK);
        message.ShowWindow(true);
        QCoreApplication::processEvents();
        QVERIFY(stage.IsOnTop(&message));
        message.OnOk();
        QCoreApplication::processEvents();
        QVERIFY(stage.IsUp());
    }

    void deletedByTheSlotThatTakesItsValue()
    {
        TStage stage;
        connect(stage.button.data(), &TEditButton::NewValue, this, [&stage] { delete stage.button; });
        stage.Open();
        stage.Pad()->OnOK();
        QVERIFY(!stage.button);
        QVERIFY(stage.IsDown());
    }
};

COMMONUI_TEST(TEditOverlayTest)
#include "TEditOverlayTest.moc"
