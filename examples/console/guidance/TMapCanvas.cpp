#include "TMapCanvas.h"

#include "TMachine.h"

#include <QPainter>
#include <QPaintEvent>

TMapCanvas::TMapCanvas(TMachine const& machine, TMenuManager& manager)
    : TMenuCanvas(nullptr, manager)
    , m_Map(machine)
{
    connect(&machine, &TMachine::Covered, this, &TMapCanvas::OnCovered);
}

void TMapCanvas::Follow()
{
    QRect const view(GetLeftLimit(), 0, width() - GetLeftLimit(), height());
    bool const hasMoved = view != m_Map.View();
    m_Map.SetView(view);
    if (m_Map.Follow() || hasMoved)
        update(view);
}

void TMapCanvas::SetZoomLevel(int level)
{
    m_Map.SetZoomLevel(level);
    Follow();
}

// Nobody looks: the ground is drawn when somebody does again.
void TMapCanvas::OnCovered(QPolygonF const& ground)
{
    if (isVisible())
        m_Map.AddGround(ground);
    else
        m_Map.Invalidate();
}

void TMapCanvas::paintEvent(QPaintEvent* event)
{
    TMenuCanvas::paintEvent(event);
    QPainter painter(this);
    m_Map.Paint(&painter, event->rect());
}
