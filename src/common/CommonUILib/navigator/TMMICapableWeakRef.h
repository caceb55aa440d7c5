#pragma once

#include "CommonUILibExport.h"

#include <QObject>
#include <QPointer>

namespace KVN
{
class MMICapableWidget;
}

/// A weak reference to a widget that takes part in wheel navigation. The widget may die at any time and need
/// not tell: the reference is dead from then on, also when another object comes to stand at the same address.
/// GUI thread only.
class COMMONUILIB_EXPORT TMMICapableWeakRef
{
public:
    /// A dead reference.
    TMMICapableWeakRef() = default;
    /// Dead for null and for an object that is no QObject.
    TMMICapableWeakRef(KVN::MMICapableWidget* widget);
    /// For a caller that knows both faces of one object, and saves the cast by that.
    TMMICapableWeakRef(QObject* object, KVN::MMICapableWidget* widget);

    /// False from the moment at which the destructors of the widget's own classes are through: a widget that
    /// is only just deleting its children counts as gone.
    bool IsAlive() const;

    /// The widget, null when dead.
    KVN::MMICapableWidget* Get() const;
    /// Only for a reference that has been found alive.
    KVN::MMICapableWidget* operator->() const { return m_Widget; }
    /// The same widget as an object, null when dead.
    QObject* Object() const;
    /// The same widget as a QWidget, null when dead or no QWidget.
    QWidget* Widget() const;

    /// Whether both refer to one living widget, or both are dead.
    bool operator==(TMMICapableWeakRef const& other) const;
    bool operator!=(TMMICapableWeakRef const& other) const { return !(*this == other); }

private:
    QPointer<QObject> m_Object;
    KVN::MMICapableWidget* m_Widget = nullptr;
};

Q_DECLARE_TYPEINFO(TMMICapableWeakRef, Q_MOVABLE_TYPE);
