#include "TObstruction.h"

#include <QEvent>
#include <QWidget>

namespace
{
bool ChangesGeometry(QEvent::Type type)
{
    switch (type)
    {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ParentChange:
        return true;
    default:
        return false;
    }
}
} // namespace

TObstruction::TObstruction(QWidget* reference, QWidget* widget, EObstructionSide side)
    : m_Reference(reference)
    , m_Widget(widget)
    , m_Side(side)
{
    RefreshGeometryCache(false);
    widget->installEventFilter(this);
}

QWidget* TObstruction::GetWidget() const
{
    return m_Widget;
}

EObstructionSide TObstruction::GetSide() const
{
    return m_Side;
}

QRect TObstruction::GetGeometry() const
{
    return m_Geometry;
}

bool TObstruction::GetUpdatesEnabled() const
{
    return m_UpdatesEnabled;
}

void TObstruction::SetUpdatesEnabled(bool enabled)
{
    m_UpdatesEnabled = enabled;
    if (enabled)
        RefreshGeometryCache(false);
}

void TObstruction::RefreshGeometryCache(bool notify)
{
    bool const isInside = m_Widget == m_Reference || m_Reference->isAncestorOf(m_Widget);
    QPoint const topLeft = isInside ? m_Widget->mapTo(m_Reference, QPoint(0, 0)) : m_Widget->pos();
    m_Geometry = QRect(topLeft, m_Widget->size());
    if (notify)
        Q_EMIT ObstructionGeomChanged(m_Side);
}

bool TObstruction::eventFilter(QObject* watched, QEvent* event)
{
    if (m_UpdatesEnabled && watched == m_Widget && ChangesGeometry(event->type()))
        RefreshGeometryCache(true);
    return false;
}
