#pragma once

#include "TAnnotatingPlatform.h"
#include "TEditWidget.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TKey.h"
#include "TMessageDialog.h"
#include "TMMICapableWidgetNavigator.h"
#include "TUnitSettings.h"
#include "TUnitsNumberPad.h"

/// A number that is edited by plus and minus.
inline TEditItem SteppedItem(double min, double max, double increment, double value)
{
    TEditItem item;
    item.SetMinMaxInc(min, max, increment);
    item.value = value;
    item.floatingButtons = true;
    return item;
}

/// A number that is edited on the pad alone.
inline TEditItem PadItem(double min, double max, double value)
{
    TEditItem item = SteppedItem(min, max, 1, value);
    item.floatingButtons = false;
    item.useNumberPad = true;
    return item;
}

inline TEditItem AddressItem(QString const& address)
{
    TEditItem item;
    item.useNumberPad = true;
    item.numberPadType = NUMBER_PAD_IP_ADDRESS;
    item.ipAddress = address;
    return item;
}

/// Shows messages too.
class TEditPlatform : public TAnnotatingPlatform
{
public:
    void ShowPopupWindow(TPopupWindow* window, bool localWindow) override
    {
        TAnnotatingPlatform::ShowPopupWindow(window, localWindow);
        static_cast<TWindow*>(window)->TWindow::ShowWindow(true);
    }
};

/// A shown screen with a platform, a finger and a wheel, and a control on which values can be edited.
class TEditScene
{
public:
    static constexpr QRect SourceRect{300, 200, 150, 40};
    static constexpr int Separator = 13;
    static constexpr int Extra = 14;
    static constexpr int PadMinus = 11;
    static constexpr int PadPlus = 12;
    static constexpr int Cross = 15;
    static constexpr int Tick = 16;

    TEditScene()
        : source(new QWidget(screen.get()))
        , navigator(screen.get())
        , finger(screen.get())
    {
        screen->SetMMINavigator(&navigator);
        source->setGeometry(SourceRect);
        source->show();
    }
    TEditScene(TEditScene const&) = delete;
    TEditScene& operator=(TEditScene const&) = delete;
    virtual ~TEditScene() = default;

    /// The widget whose parts the following are.
    virtual TEditWidget* Edit() const = 0;

    /// The button that shows the value.
    TPushButton* Value() const
    {
        auto const buttons = Buttons();
        for (TPushButton* const button : buttons)
        {
            if (button->GetMMIBehaviour() == MMI_EXCLUDED)
                return button;
        }
        return nullptr;
    }
    QString Shown() const { return Value()->GetText(); }
    TPushButton* Plus() const { return ByToolTip(QStringLiteral("Increment Value")).value(0); }
    TPushButton* Minus() const { return ByToolTip(QStringLiteral("Decrement Value")).value(0); }
    TPushButton* FloatingOk() const { return ByToolTip(QStringLiteral("OK")).value(1); }
    TPushButton* FloatingCancel() const { return ByToolTip(QStringLiteral("Cancel")).value(1); }
    TPushButton* ListOk() const { return ByToolTip(QStringLiteral("OK")).value(0); }
    TPushButton* ListCancel() const { return ByToolTip(QStringLiteral("Cancel")).value(0); }
    /// The one made last: a former one may wait for its end.
    TUnitsNumberPad* Pad() const
    {
        auto const pads = Edit()->findChildren<TUnitsNumberPad*>(QString(), Qt::FindDirectChildrenOnly);
        return pads.isEmpty() ? nullptr : pads.constLast();
    }
    TKey* Key(int id) const
    {
        auto const keys = Pad()->findChildren<TKey*>();
        for (TKey* const key : keys)
        {
            if (key->GetButtonId() == id)
                return key;
        }
        return nullptr;
    }

    /// Touches a key for each character: digits, and a point for the separator of the pad.
    void Type(QString const& keys)
    {
        for (QChar const key : keys)
            finger.Touch(Key(key == QLatin1Char('.') ? Separator : key.digitValue()));
    }
    /// Types \a keys and touches the tick.
    void Enter(QString const& keys)
    {
        Type(keys);
        finger.Touch(Key(Tick));
    }
    /// Lets \a ms pass for the wheel.
    void WheelTick(int ms)
    {
        screen.m_Clock.Advance(ms);
        navigator.UpdateFocus();
    }
    /// Brings the wheel to what is on the screen, without a step. Where the wheel steps a value, there must
    /// be room above and below it.
    void WakeWheel()
    {
        WheelTick(1000);
        navigator.OnWheelRight();
        navigator.OnWheelLeft();
        WheelTick(100);
    }

    TMessageDialog* Message() const
    {
        auto const messages = screen->findChildren<TMessageDialog*>();
        for (TMessageDialog* const message : messages)
        {
            if (message->isVisible())
                return message;
        }
        return nullptr;
    }
    bool IsLocked() const { return !screen->GetLockingWidgets().isEmpty(); }
    void UseSystem(EUnitSystem system) { screen.m_Config.Write(CONFIG_UNIT_SYSTEM, int(system), false); }
    void UseClock(bool is24HourClock) { screen.m_Config.Write(CONFIG_24_HOUR_CLOCK, is24HourClock, false); }

    TTestScreen screen;
    TEditPlatform platform;
    QPointer<QWidget> source;
    TMMICapableWidgetNavigator navigator;
    TFinger finger;

private:
    QList<TPushButton*> Buttons() const
    {
        return Edit()->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QList<TPushButton*> ByToolTip(QString const& text) const
    {
        QList<TPushButton*> found;
        auto const buttons = Buttons();
        for (TPushButton* const button : buttons)
        {
            if (button->GetToolTip() == text)
                found.append(button);
        }
        return found;
    }
};

/// With an edit widget, of which all that it says is written down.
class TEditStage : public TEditScene
{
public:
    /// Makes the widget, which is not open yet.
    explicit TEditStage(TEditItem const& item)
        : edit(new TEditWidget(nullptr, &item))
    {
        Listen();
        edit->SetPosition(source);
    }
    ~TEditStage() override { delete edit.data(); }

    TEditWidget* Edit() const override { return edit; }

    QPointer<TEditWidget> edit;
    QStringList log;
    QVector<double> values;
    QVector<double> live;
    int steps = 0;
    int cancels = 0;

private:
    void Listen()
    {
        QObject::connect(edit, &TEditWidget::NewValue, edit,
                         [this](double value)
                         {
                             values << value;
                             log << QStringLiteral("value %1").arg(value);
                         });
        QObject::connect(edit, qOverload<double>(&TEditWidget::ValueChanged), edit,
                         [this](double value)
                         {
                             live << value;
                             log << QStringLiteral("live %1").arg(value);
                         });
        QObject::connect(edit, qOverload<>(&TEditWidget::ValueChanged), edit,
                         [this]
                         {
                             ++steps;
                             log << QStringLiteral("step");
                         });
        QObject::connect(edit, &TEditWidget::NumberPadCancelled, edit,
                         [this]
                         {
                             ++cancels;
                             log << QStringLiteral("cancel");
                         });
        QObject::connect(edit, &TEditWidget::NewIPAddressValue, edit,
                         [this](QString const& text) { log << QStringLiteral("address ") + text; });
    }
};

/// The same with the widget up.
class TOpenEditStage : public TEditStage
{
public:
    explicit TOpenEditStage(TEditItem const& item)
        : TEditStage(item)
    {
        edit->Open();
    }
};
