#include "TMenuBar.h"

#include "Metrics.h"
#include "TMenuElementButton.h"

#include <QPainter>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

namespace
{
constexpr int ButtonGap = 0;
// What is below need not be painted again whenever a button changes.
constexpr QRgb GroundColour = qRgb(20, 22, 24);
} // namespace

TMenuBar::TMenuBar(QWidget* parent, bool isShortcuts)
    : TTaskToolBar(parent, TOOLBAR_VERTICAL_NEAR)
    , m_IsShortcuts(isShortcuts)
    , m_Room(QWIDGETSIZE_MAX)
{
    setFixedWidth(WINDOW_TOOLBAR_BUTTON_WIDTH);
    setAttribute(Qt::WA_OpaquePaintEvent);
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

// Whether that makes a difference to the other bars.
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
    TMenuElementButton* button = ButtonAt(slot);
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
    if (slot == m_Slots.end())
        return;
    bool const isByWheel = ButtonAt(*slot)->TakeWheelPress();
    Q_EMIT ElementPressed(slot->menuID, slot->elementID, isByWheel);
}

int TMenuBar::HeightOf(int buttons) const
{
    int tallest = 0;
    int visible = 0;
    for (ButtonDetails const& details : m_Buttons)
    {
        if (!details.button || !details.visible)
            continue;
        tallest = qMax(tallest, details.button->height());
        ++visible;
    }
    return qMin(buttons, visible) * tallest;
}

TMenuElementButton* TMenuBar::ButtonOf(int menuID, int elementID) const
{
    for (TSlot const& slot : m_Slots)
    {
        if (slot.menuID == menuID && slot.elementID == elementID)
            return ButtonAt(slot);
    }
    return nullptr;
}

// All buttons of the bar are its own making.
TMenuElementButton* TMenuBar::ButtonAt(TSlot const& slot) const
{
    return static_cast<TMenuElementButton*>(m_Buttons.value(slot.buttonID).button.data());
}

void TMenuBar::SetOpenedBars(QHash<QPair<int, int>, TMenuBar*> const& opened)
{
    for (TSlot const& slot : m_Slots)
    {
        if (TMenuElementButton* const button = ButtonAt(slot))
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
    // Nobody has dragged anything.
    QSignalBlocker const quiet(this);
    int const scrolled = FirstButtonTop();
    // The mark at the start would push the buttons down.
    if (scrolled < 0)
        dragButtons(-scrolled);
    SetButtonOffset(0);
    TBaseToolBar::ArrangeButtons(TASK_TOOLBAR_BUTTON_HEIGHT, ButtonGap);
    m_WantedHeight = height();
    CutToRoom();
    // What the operator has scrolled to stays, as far as there is still something to scroll.
    if (scrolled < 0)
        dragButtons(scrolled);
}

int TMenuBar::FirstButtonTop() const
{
    int top = 0;
    for (ButtonDetails const& details : m_Buttons)
    {
        if (details.button && details.visible)
            top = qMin(top, details.button->y());
    }
    return top;
}

void TMenuBar::CutToRoom()
{
    if (height() <= m_Room)
        return;
    QScopedValueRollback<bool> const cutting(m_IsCutting, true);
    setFixedHeight(qMax(0, m_Room));
    dragButtons(0);
}

// Its height is its own doing.
void TMenuBar::resizeEvent(QResizeEvent* event)
{
    if (event->oldSize().width() != event->size().width())
        TTaskToolBar::resizeEvent(event);
}

// The base would follow the operator's choice beyond the room.
void TMenuBar::paintEvent(QPaintEvent* event)
{
    if (FollowUserSize())
        Q_EMIT HeightChanged();
    QPainter(this).fillRect(event->rect(), GroundColour);
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
