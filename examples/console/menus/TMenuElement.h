#pragma once

#include "EMenuControl.h"

#include <QString>

class TMenuState;

/// What an element of a menu looks like at the moment.
struct TElementLook
{
    int control = MENU_CONTROL_PLAIN; ///< one of EMenuControl
    bool isEnabled = true;
    QString name = {}; ///< empty: as it is
};

/// One element of a menu, for the one thread that keeps it up to date. It outlives neither its menu nor its
/// place there. A value.
class TMenuElement
{
public:
    /// None: nothing is shown.
    TMenuElement() = default;
    TMenuElement(TMenuState* menu, int id);

    void Show(TElementLook const& look) const;

private:
    TMenuState* m_Menu = nullptr;
    int m_ID = -1;
};
