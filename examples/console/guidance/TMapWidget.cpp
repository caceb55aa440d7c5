#include "TMapWidget.h"

#include "TMachine.h"

#include <QPainter>
#include <QPaintEvent>

TMapWidget::TMapWidget(QWidget* parent, TMachine const& machine)
    : QWidget(parent)
    , m_Map(machine)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&machine, &TMachine::Covered, this, &TMapWidget::OnCovered);
}

void TMapWidget::Follow()
{
    if (m_Map.Follow())
        update();
}

void TMapWidget::SetZoomLevel(int level)
{
    m_Map.SetZoomLevel(level);
    Follow();
}

void TMapWidget::OnCovered(QPolygonF const& ground)
{
    if (isVisible())
        m_Map.AddGround(ground);
    else
        m_Map.Invalidate();
}

void TMapWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_Map.SetView(rect());
    Follow();
}

void TMapWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    m_Map.Paint(&painter, event->rect());
}
