#include "MMICapableWidget.h"

#include <QWidget>

namespace KVN
{
MMICapableWidget::~MMICapableWidget() = default;

void MMICapableWidget::OnMMIWheelLeft() {}

void MMICapableWidget::OnMMIWheelRight() {}

bool MMICapableWidget::OnMMIBack()
{
    return true;
}

void MMICapableWidget::OnMMIHighlightChild(MMICapableWidget* child)
{
    Q_UNUSED(child)
}

void MMICapableWidget::OnMMIHighlight() {}

void MMICapableWidget::OnMMIUnHighlight() {}

bool MMICapableWidget::UseDefaultMMIHighlight()
{
    return m_UseDefaultMMIHighlight;
}

MMICapableWidget* MMICapableWidget::OnMMIEnter()
{
    return GetMMIEntryWidget();
}

EMMIWidgetBehaviour MMICapableWidget::GetMMIBehaviour()
{
    return m_MMIBehaviour;
}

unsigned MMICapableWidget::GetMMISortPrecedence()
{
    return 0;
}

bool MMICapableWidget::GetMMIColumnFirst()
{
    return false;
}

MMICapableWidget* MMICapableWidget::GetMMIEntryWidget()
{
    return this;
}

bool MMICapableWidget::GetMMICarryOverSelection()
{
    return false;
}

bool MMICapableWidget::GetMMITimeoutEnabled() const
{
    return true;
}

unsigned MMICapableWidget::GetMMISelectionDelay()
{
    return 0;
}

bool MMICapableWidget::IsMMIChildNavigatable(MMICapableWidget* child) const
{
    QWidget const* widget = child ? child->Widget() : nullptr;
    if (!widget)
        return false;
    // Rectangles are enough: asking for the visible region would build one for every step of the wheel.
    QRect seen = widget->rect();
    while (!seen.isEmpty() && !widget->isWindow() && widget->parentWidget())
    {
        seen.translate(widget->pos());
        widget = widget->parentWidget();
        seen &= widget->rect();
    }
    return !seen.isEmpty();
}

QWidget* MMICapableWidget::Widget()
{
    return dynamic_cast<QWidget*>(this);
}

QWidget const* MMICapableWidget::Widget() const
{
    return dynamic_cast<QWidget const*>(this);
}

QRect MMICapableWidget::GetMMIHighlightRect(QWidget* reference)
{
    QWidget const* const widget = Widget();
    if (!widget || !reference)
        return {};
    return {reference->mapFromGlobal(widget->mapToGlobal(QPoint())), widget->size()};
}

bool MMICapableWidget::IsMMIWidgetActive() const
{
    QWidget const* const widget = Widget();
    return widget && widget->isVisible() && widget->isEnabled();
}

bool MMICapableWidget::IsMMIWidgetActiveTo(MMICapableWidget* other) const
{
    QWidget const* const widget = Widget();
    QWidget const* const reference = other ? other->Widget() : nullptr;
    return widget && reference && widget->isEnabled() && widget->isVisibleTo(reference);
}

void MMICapableWidget::SetMMIBehaviour(EMMIWidgetBehaviour behaviour)
{
    m_MMIBehaviour = behaviour;
}

void MMICapableWidget::SetUseDefaultMMIHighlight(bool use)
{
    m_UseDefaultMMIHighlight = use;
}
} // namespace KVN
