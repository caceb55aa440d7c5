#include "TTouch.h"

#include <QGuiApplication>

void TTouch::Begin(QWidget const& container, QPoint const& place)
{
    QWidget const* const child = container.childAt(place);
    m_Touched = child ? child : &container;
    m_IsDown = true;
}

bool TTouch::IsLost() const
{
    return m_IsDown && !m_Touched && QGuiApplication::mouseButtons() == Qt::NoButton;
}
