#pragma once

#include "TElementState.h"
#include "TTaskToolBarButton.h"

#include <QPointer>

class TMenuBar;

/// What one element of a menu looks like: its icon, or else its name, on the skin of its control id, and its
/// name as the tool tip. One whose menu is open is lit.
class TMenuElementButton : public TTaskToolBarButton
{
    Q_OBJECT

public:
    /// \a isShortcut chooses between the skins of the bars and that of the shortcuts.
    TMenuElementButton(QWidget* parent, int id, bool isShortcut);

    /// Redraws what has changed.
    void SetElement(TElementState const& element);
    /// The bar of the menu that the element has open; null for none.
    void SetOpenedBar(TMenuBar* bar);

    /// Whether the wheel goes into the bar of the open menu: it is in sight, has something to stand on, and
    /// is not the one with this button.
    bool CanEnterOpenedBar() const;
    /// Whether the wheel's enter key pressed it last; asked once for each press.
    bool TakeWheelPress();

    /// With an open menu in sight the wheel goes into it; otherwise the element is pressed.
    KVN::MMICapableWidget* OnMMIEnter() override;

private:
    void ShowFace(QString const& icon, QString const& name);
    void ShowSkin();

    bool const m_IsShortcut;
    TElementState m_Element;
    QPointer<TMenuBar> m_OpenedBar;
    bool m_IsLit = false;
    bool m_IsPressedByWheel = false;
};
