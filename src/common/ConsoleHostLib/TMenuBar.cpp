#include "TMenuBar.h"

#include "Metrics.h"
#include "TMenuElementButton.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace
{
constexpr int ButtonGap = 0;
} // namespace

TMenuBar::TMenuBar(QWidget* parent, bool isShortcuts)
    : TTaskToolBar(parent, TOOLBAR_VERTICAL_NEAR)
    , m_IsShortcuts(isShortcuts)
    , m_Room(QWIDGETSIZE_MAX)
{
    setFixedWidth(WINDOW_TOOLBAR_BUTTON_WIDTH);
}

bool TMenuBar::SetItems(std::vector<TItem> const& items)
{
    std::vector<TSlot> former;
    former.swap(m_Slots);
    QList<int> const orderBefore = m_Order;
    QList<bool> visibleBefore;
    for (int const id : orderBefore)
        visibleBefore << IsButtonVisible(id);
    QList<int> order;
    QList<bool> visible;
    {
        // One arrangement for all of them, and none while only what stands on the buttons has changed.
        QScopedValueRollback<bool> const filling(m_IsFilling, true);
        for (TItem const& item : items)
        {
            int const id = TakeButtonFor(item, former);
            order << id;
            visible << item.element.IsVisible();
            SetButtonVisibility(id, item.element.IsVisible());
            SetButtonEnabled(id, item.element.IsEnabled() && item.isMenuEnabled);
        }
        for (TSlot const& slot : former)
            RemoveButton(slot.buttonID, true);
    }
    bool const isOther = order != orderBefore || visible != visibleBefore;
    if (isOther)
        AssignButtonOrder(order);
    return FollowUserSize() || isOther;
}

// Now, where it makes a difference to the other bars, instead of when it is painted.
bool TMenuBar::FollowUserSize()
{
    int const wantedBefore = m_WantedHeight;
    int const heightBefore = height();
    CheckUserSelectedButtonSize();
    if (m_WantedHeight == wantedBefore && height() == heightBefore)
        return false;
    ArrangeButtons();
    return m_WantedHeight != wantedBefore;
}

// The button that stood for the element before, or a new one.
int TMenuBar::TakeButtonFor(TItem const& item, std::vector<TSlot>& former)
{
    int const elementID = item.element.GetID();
    auto const found = std::find_if(former.begin(), former.end(),
                                    [&](TSlot const& slot)
                                    { return slot.menuID == item.menuID && slot.elementID == elementID; });
    TSlot const slot = found == former.end() ? TSlot{m_NextButtonID++, item.menuID, elementID} : *found;
    if (found != former.end())
        former.erase(found);
    m_Slots.push_back(slot);
    auto* button = static_cast<TMenuElementButton*>(GetButton(slot.buttonID));
    if (!button)
    {
        button = new TMenuElementButton(this, slot.buttonID, m_IsShortcuts);
        connect(button, &TPushButton::Clicked, this, &TMenuBar::OnClicked);
        AssignButton(slot.buttonID, button);
    }
    button->SetElement(item.element);
    return slot.buttonID;
}

void TMenuBar::OnClicked(int buttonID)
{
    auto const slot = std::find_if(m_Slots.begin(), m_Slots.end(),
                                   [buttonID](TSlot const& other) { return other.buttonID == buttonID; });
    if (slot != m_Slots.end())
        Q_EMIT ElementPressed(slot->menuID, slot->elementID);
}

TMenuElementButton* TMenuBar::ButtonOf(int menuID, int elementID) const
{
    for (TSlot const& slot : m_Slots)
    {
        if (slot.menuID == menuID && slot.elementID == elementID)
            return static_cast<TMenuElementButton*>(m_Buttons.value(slot.buttonID).button.data());
    }
    return nullptr;
}

void TMenuBar::SetOpenedBars(QHash<QPair<int, int>, TMenuBar*> const& opened)
{
    for (TSlot const& slot : m_Slots)
    {
        if (TMenuElementButton* const button = ButtonOf(slot.menuID, slot.elementID))
            button->SetOpenedBar(opened.value({slot.menuID, slot.elementID}));
    }
}

void TMenuBar::SetRoom(int height)
{
    if (height == m_Room)
        return;
    m_Room = height;
    ArrangeButtons();
}

void TMenuBar::ArrangeButtons()
{
    if (m_IsFilling || m_IsCutting)
        return;
    // Scrolled buttons go back to the top of the bar.
    SetButtonOffset(0);
    TBaseToolBar::ArrangeButtons(TASK_TOOLBAR_BUTTON_HEIGHT, ButtonGap);
    TakeHeight();
}

// The base has made the bar as high as its buttons.
void TMenuBar::TakeHeight()
{
    m_WantedHeight = height();
    if (height() <= m_Room)
        return;
    QScopedValueRollback<bool> const cutting(m_IsCutting, true);
    setFixedHeight(qMax(0, m_Room));
    dragButtons(0);
}

void TMenuBar::resizeEvent(QResizeEvent* event)
{
    if (event->oldSize().width() != event->size().width())
        TTaskToolBar::resizeEvent(event);
    else if (!m_IsCutting)
        TakeHeight();
}

bool TMenuBar::OnMMIBack()
{
    Q_EMIT BackPressed();
    return true;
}

bool TMenuBar::GetMMIColumnFirst()
{
    return true;
}
