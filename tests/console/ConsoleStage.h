#pragma once

#include "TConsole.h"
#include "TConsoleOptions.h"
#include "TMMIHighlightWidget.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TVirtualOperator.h"
#include "TVirtualTime.h"
#include "TWindowManager.h"

#include <algorithm>

/// Every slide and every press has come to its end by then.
constexpr int SettleTime = 500;

/// A started console with an operator in front of it.
struct TStage
{
    explicit TStage(QString const& folder)
        : console(TConsoleOptions(), folder)
        , finger(console.Screen(), [this](int ms) { time.Pass(ms); })
    {
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
    bool Tap(TPushButton* button)
    {
        bool const isTapped = finger.Tap(static_cast<QWidget*>(button));
        time.Pass(SettleTime);
        return isTapped;
    }

    /// Brings a module's full view up.
    void ShowFull(KVN::MorvaneID const& id)
    {
        Manager()->DisplayFullView(IdOf(id), false);
        time.Pass(SettleTime);
    }
    void Turn(int notches)
    {
        constexpr int Notch = 120;
        for (int i = 0; i < qAbs(notches); ++i)
        {
            finger.Wheel(notches > 0 ? -Notch : Notch);
            time.Pass(SettleTime);
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
