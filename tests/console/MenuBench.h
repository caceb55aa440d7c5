#pragma once

#include "TMenuElement.h"
#include "TMenuState.h"

/// A menu with elements that a judge has to keep up to date.
struct TMenuBench
{
    /// A new element, named "before".
    TMenuElement Add()
    {
        TElementState const element(TMMIDef(), TActivationConfig(), QStringLiteral("before"), QString(),
                                    MENU_CONTROL_PLAIN, true, true, false);
        return {&menu, menu.AddElement(element)};
    }
    /// What was added first has the number 0.
    int Control(int element) const { return menu.GetElement(element).GetControlID(); }
    bool IsEnabled(int element) const { return menu.GetElement(element).IsEnabled(); }
    QString Name(int element) const { return menu.GetElement(element).GetName(); }

    TMenuState menu{QStringLiteral("bench")};
};
