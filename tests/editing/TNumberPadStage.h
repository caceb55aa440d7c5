#pragma once

#include "TButtonSurface.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TKey.h"
#include "TMessageDialog.h"
#include "TMMICapableWidgetNavigator.h"
#include "TNumberPad.h"

#include <QGridLayout>

/// A shown screen with a number pad, a finger and a wheel; what the pad says is written down.
class TNumberPadStage
{
public:
    static constexpr int Backspace = 10;
    static constexpr int Minus = 11;
    static constexpr int Plus = 12;
    static constexpr int Separator = 13;
    static constexpr int Extra = 14;
    static constexpr int Cross = 15;
    static constexpr int Tick = 16;

    explicit TNumberPadStage(ENumberPadType type = NUMBER_PAD_DECIMAL, bool is24HourClock = true)
        : TNumberPadStage(is24HourClock, [type](QWidget* parent) { return new TNumberPad(parent, type); })
    {
    }
    ~TNumberPadStage() { delete pad.data(); }
    TNumberPadStage(TNumberPadStage const&) = delete;
    TNumberPadStage& operator=(TNumberPadStage const&) = delete;

    /// Puts the pad up anew with \a value.
    void Show(double value)
    {
        pad->SetValueDbl(value);
        Show();
    }
    void Show()
    {
        pad->HideWindow();
        pad->ShowWindow(false);
        pad->move(10, 10);
    }

    TKey* Key(int id) const
    {
        auto const keys = Keys();
        for (TKey* const key : keys)
        {
            if (key->GetButtonId() == id)
                return key;
        }
        return nullptr;
    }
    QList<TKey*> Keys() const { return pad->findChildren<TKey*>(); }
    TPushButton* Field() const
    {
        auto const buttons = pad->findChild<TButtonSurface*>()->findChildren<TPushButton*>(
            QString(), Qt::FindDirectChildrenOnly);
        for (TPushButton* const button : buttons)
        {
            if (!qobject_cast<TKey*>(button))
                return button;
        }
        return nullptr;
    }
    QString Shown() const { return Field()->GetText(); }

    /// Touches a key for each character: digits, a point for the separator of the pad, a minus for the sign
    /// or for am and pm, and an arrow for backspace.
    void Type(QString const& keys)
    {
        for (QChar const key : keys)
            finger.Touch(Key(IdOf(key)));
    }
    /// Types \a keys and touches the tick; what the operator is then told, empty if the entry was taken.
    QString Enter(QString const& keys)
    {
        Type(keys);
        finger.Touch(Key(Tick));
        return TakeMessage();
    }
    /// The text of the message that is up, which is then closed; empty for none.
    QString TakeMessage()
    {
        TMessageDialog* const message = Message();
        if (!message)
            return {};
        QString const text = message->GetMessageString();
        message->OnOk();
        return text;
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
    bool AllDigitsAre(bool enabled) const
    {
        for (int digit = 0; digit < 10; ++digit)
        {
            if (Key(digit)->isEnabled() != enabled)
                return false;
        }
        return true;
    }
    double LastValue() const { return values.isEmpty() ? qQNaN() : values.last(); }

    void UseClock(bool is24HourClock) { screen.m_Config.Write(CONFIG_24_HOUR_CLOCK, is24HourClock, false); }
    void UseDateFormat(int format) { screen.m_Config.Write(CONFIG_DATE_FORMAT, format, false); }
    void UseLocale(QString const& name) { screen.m_Config.Write(CONFIG_LOCALE, name, false); }

    /// Puts the keys in their places at once.
    void Arrange() const { Field()->parentWidget()->layout()->activate(); }

    QImage Picture() const { return screen->grab(pad->geometry()).toImage(); }

    TTestScreen screen;
    TMMICapableWidgetNavigator navigator;
    TFinger finger;
    QPointer<TNumberPad> pad;
    QVector<double> values;
    QStringList texts;
    QStringList addresses;
    /// All of it, in its order.
    QStringList log;
    int cancels = 0;

    /// With the pad that \a make makes on the screen.
    template<typename TMake>
    TNumberPadStage(bool is24HourClock, TMake make)
        : screen() // else clang takes it for uninitialized in a template
        , navigator(screen.get())
        , finger(screen.get())
    {
        screen->SetMMINavigator(&navigator);
        UseClock(is24HourClock);
        pad = make(screen.get());
        Listen();
        pad->ShowWindow(false);
        pad->move(10, 10);
    }

private:
    static int IdOf(QChar key)
    {
        switch (key.unicode())
        {
        case '.':
            return Separator;
        case '-':
            return Extra;
        case '<':
            return Backspace;
        default:
            return key.digitValue();
        }
    }
    void Listen()
    {
        QObject::connect(pad, &TNumberPad::NewValueDbl, pad,
                         [this](double value)
                         {
                             values << value;
                             log << QStringLiteral("value %1").arg(value);
                         });
        QObject::connect(pad, &TNumberPad::NewText, pad,
                         [this](QString const& text)
                         {
                             texts << text;
                             log << QStringLiteral("text ") + text;
                         });
        QObject::connect(pad, &TNumberPad::NewIPAddressValue, pad,
                         [this](QString const& address) { addresses << address; });
        QObject::connect(pad, &TNumberPad::Cancel, pad, [this] { ++cancels; });
    }
};
