#include "TMMICapableWeakRef.h"

#include "MMICapableWidget.h"

#include <QWidget>

TMMICapableWeakRef::TMMICapableWeakRef(KVN::MMICapableWidget* widget)
    : TMMICapableWeakRef(dynamic_cast<QObject*>(widget), widget)
{
}

TMMICapableWeakRef::TMMICapableWeakRef(QObject* object, KVN::MMICapableWidget* widget)
    : m_Object(object)
    , m_Widget(widget)
{
}

bool TMMICapableWeakRef::IsAlive() const
{
    // QPointer lets go of a widget only in ~QObject, after its children; the mixin is destroyed long before.
    // The cast sees how far the destruction has come.
    return m_Object && m_Widget && dynamic_cast<KVN::MMICapableWidget*>(m_Object.data()) == m_Widget;
}

KVN::MMICapableWidget* TMMICapableWeakRef::Get() const
{
    return IsAlive() ? m_Widget : nullptr;
}

QObject* TMMICapableWeakRef::Object() const
{
    return IsAlive() ? m_Object.data() : nullptr;
}

QWidget* TMMICapableWeakRef::Widget() const
{
    return qobject_cast<QWidget*>(Object());
}

bool TMMICapableWeakRef::operator==(TMMICapableWeakRef const& other) const
{
    if (m_Widget == other.m_Widget && m_Object == other.m_Object)
        return true;
    return !IsAlive() && !other.IsAlive();
}
