#pragma once

#include "TConsole.h"
#include "TConsoleOptions.h"
#include "TMMIHighlightWidget.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TSetupMenu.h"
#include "TSetupModule.h"
#include "TVirtualOperator.h"
#include "TVirtualTime.h"
#include "TWindowManager.h"

#include <algorithm>

/// Every slide and every press has come to its end by then.
constexpr int SettleTime = 500;
/// The highlight has followed the wheel by then.
constexpr int HighlightTime = 150;

/// A started console with an operator in front of it.
struct TStage
{
    explicit TStage(QString const& folder)
        : console(TConsoleOptions(), folder)
        , finger(console.Screen(), [this](int ms) { time.Pass(ms); })
    {
        time.SetWaitForOthers([this] { console.WaitForWorkers(); });
        console.StartMachine();
        console.Start();
        time.Pass(SettleTime);
    }

    /// Turns the wheel until it stands on \a widget, which it does not yet. False after a whole round.
    bool TurnTo(QWidget* widget)
    {
        constexpr int MostStops = 20;
        if (!widget)
            return false;
        // A button draws its highlight itself, anything else has a glow around it.
        QImage const before = widget->grab().toImage();
        for (int i = 0; i < MostStops; ++i)
        {
            Turn(1);
            if (HasGlow(widget) || (qobject_cast<TPushButton*>(widget) && widget->grab().toImage() != before))
                return true;
        }
        return false;
    }
    bool HasGlow(QWidget const* widget) const
    {
        auto const glows = console.Screen()->findChildren<TMMIHighlightWidget*>();
        return std::any_of(glows.begin(), glows.end(),
                           [this, widget](TMMIHighlightWidget const* glow)
                           {
                               QPoint const away = finger.MiddleOf(glow) - finger.MiddleOf(widget);
                               return glow->isVisible() && away.manhattanLength() <= 2;
                           });
    }
    /// Leaves every level that the wheel has entered.
    void GoBackToTheScreen()
    {
        constexpr int MostLevels = 10;
        Turn(1); // the keys rest until the wheel is touched
        for (int i = 0; i < MostLevels; ++i)
        {
            finger.Key(Qt::Key_Escape);
            time.Pass(2 * SettleTime);
        }
    }

    TWindowManager* Manager() const { return console.Screen()->GetWindowManager(); }
    int IdOf(KVN::MorvaneID const& id) const { return console.Screen()->GetNavButtonID(id); }
    TPushButton* NavigationButton(KVN::MorvaneID const& id) const
    {
        return console.Screen()->GetNavButton(IdOf(id));
    }
    TPushButton* SpecialButton(KVN::MorvaneID const& id) const
    {
        return console.Screen()->GetSpecialNavigationButton(IdOf(id));
    }
    /// A visible button anywhere on the screen.
    TPushButton* Button(QString const& objectName) const
    {
        auto const buttons = console.Screen()->findChildren<TPushButton*>(objectName);
        for (TPushButton* const button : buttons)
        {
            if (button->isVisible())
                return button;
        }
        return nullptr;
    }
    TSetupMenu* SetupMenu() const { return console.Screen()->findChild<TSetupMenu*>(); }
    /// Brings the setup up, if it is not, and presses through the levels of its menu to the screen \a path.
    bool OpenSetup(QString const& path)
    {
        if (Manager()->GetFullViewId() != IdOf(TSetupModule::Id()))
            Tap(SpecialButton(TSetupModule::Id()));
        int end = 0;
        do
        {
            end = path.indexOf(QLatin1Char('/'), end + 1);
            if (!Tap(Button(QStringLiteral("setup/") + path.left(end))))
                return false;
        } while (end >= 0 && SetupMenu()->Screen() != path);
        return SetupMenu()->Screen() == path;
    }
    bool Tap(TPushButton* button)
    {
        bool const isTapped = finger.Tap(static_cast<QWidget*>(button));
        time.Pass(SettleTime);
        return isTapped;
    }

    /// Taps the button of that name that lies on top.
    bool TapOnTop(QString const& objectName)
    {
        auto const buttons = console.Screen()->findChildren<TPushButton*>(objectName);
        bool const isTapped =
            std::any_of(buttons.begin(), buttons.end(),
                        [this](TPushButton* button) { return finger.Tap(static_cast<QWidget*>(button)); });
        time.Pass(SettleTime);
        return isTapped;
    }
    /// Types \a text on the keys of the pad that is up.
    bool TypeOnPad(QString const& text)
    {
        return std::all_of(text.begin(), text.end(),
                           [this](QChar character) { return TapOnTop(QStringLiteral("Key ") + character); });
    }
    /// The same by the wheel and its enter key.
    bool TypeByWheel(QString const& text)
    {
        return std::all_of(text.begin(), text.end(),
                           [this](QChar character)
                           { return EnterByWheel(Button(QStringLiteral("Key ") + character)); });
    }
    /// Turns the wheel to \a button, unless it stands there already, and presses its enter key.
    bool EnterByWheel(TPushButton* button)
    {
        bool const isThere = button && StandOn(button);
        Enter();
        return isThere;
    }
    /// As TurnTo(), also where the wheel stands on \a button already. What it stands on is lighter.
    bool StandOn(TPushButton* button)
    {
        constexpr int MostStops = 40;
        for (int i = 0; i < MostStops; ++i)
        {
            qint64 const before = LightOf(button);
            Turn(1, HighlightTime);
            qint64 const after = LightOf(button);
            if (after < before)
                Turn(-1);
            if (after != before)
                return true;
        }
        return false;
    }
    static qint64 LightOf(QWidget* widget)
    {
        QImage const picture = widget->grab().toImage();
        qint64 light = 0;
        for (int y = 0; y < picture.height(); ++y)
        {
            for (int x = 0; x < picture.width(); ++x)
                light += qGray(picture.pixel(x, y));
        }
        return light;
    }

    /// Brings a module's full view up.
    void ShowFull(KVN::MorvaneID const& id)
    {
        Manager()->DisplayFullView(IdOf(id), false);
        time.Pass(SettleTime);
    }
    void Turn(int notches, int pause = SettleTime)
    {
        constexpr int Notch = 120;
        for (int i = 0; i < qAbs(notches); ++i)
        {
            finger.Wheel(notches > 0 ? -Notch : Notch);
            time.Pass(pause);
        }
    }
    void Enter()
    {
        finger.Key(Qt::Key_Return);
        time.Pass(2 * SettleTime);
    }

    TVirtualTime time;
    TConsole console;
    TVirtualOperator finger;
};
