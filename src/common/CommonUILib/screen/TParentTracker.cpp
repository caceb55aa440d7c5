#include "TParentTracker.h"

#include <QEvent>

#include <utility>

TParentTracker::TParentTracker(QObject* parent)
    : QObject(parent)
{
}

TParentTracker::~TParentTracker()
{
    for (auto entry = m_Filtered.cbegin(); entry != m_Filtered.cend(); ++entry)
        entry.key()->removeEventFilter(this);
}

void TParentTracker::TrackParent(QWidget* widget, QWidget* limit, std::function<void(QWidget*)> callback)
{
    if (!widget)
        return;
    UnTrackParent(widget);
    m_Tracked.insert(widget, {std::move(callback), limit});
    FilterParents(widget, widget);
    // Another filter may keep the event of the widget's end to itself.
    connect(widget, &QObject::destroyed, this, [this, widget] { UnTrackParent(widget); });
}

void TParentTracker::UnTrackParent(QWidget* widget)
{
    if (m_Tracked.remove(widget) == 0)
        return;
    disconnect(widget, &QObject::destroyed, this, nullptr);
    UnFilterParents(widget);
}

void TParentTracker::FilterParents(QWidget* widget, QObject* object)
{
    auto const tracked = m_Tracked.constFind(widget);
    if (tracked == m_Tracked.cend())
        return;
    QObject const* const limit = tracked->limit;
    for (QObject* filtered = object; filtered; filtered = filtered == limit ? nullptr : filtered->parent())
    {
        QList<QWidget*>& dependents = m_Filtered[filtered];
        if (dependents.isEmpty())
            filtered->installEventFilter(this);
        if (!dependents.contains(widget))
            dependents.append(widget);
    }
}

void TParentTracker::UnFilterParents(QObject* object)
{
    // All entries instead of a walk up the parents: a widget may have left the ancestors that are filtered
    // for it, and a walk beyond its limit would take filters that others need.
    QList<QObject*> const filtered = m_Filtered.keys();
    for (QObject* const entry : filtered)
        Leave(entry, object);
}

bool TParentTracker::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type())
    {
    case QEvent::Destroy:
        UnTrackParent(static_cast<QWidget*>(object));
        break;
    case QEvent::Move:
    case QEvent::Resize:
        Notify(object);
        break;
    case QEvent::ParentAboutToChange:
        LeaveAncestors(object);
        break;
    case QEvent::ParentChange:
        FilterAnew(object);
        break;
    default:
        break;
    }
    return false;
}

void TParentTracker::Notify(QObject* object)
{
    QPointer<TParentTracker> const self(this);
    QList<QWidget*> const dependents = Dependents(object);
    for (QWidget* const widget : dependents)
    {
        // Asked each time, since a callback may end the tracking of others.
        std::function<void(QWidget*)> const callback = m_Tracked.value(widget).callback;
        if (callback)
            callback(widget);
        if (!self)
            return;
    }
}

// What is left of the filters is enough to hear of the change itself, which may also come unannounced.
void TParentTracker::LeaveAncestors(QObject* object)
{
    QList<QWidget*> const dependents = Dependents(object);
    for (QObject* above = object->parent(); above; above = above->parent())
    {
        for (QWidget* const widget : dependents)
            Leave(above, widget);
    }
}

void TParentTracker::FilterAnew(QObject* object)
{
    QList<QWidget*> const dependents = Dependents(object);
    for (QWidget* const widget : dependents)
    {
        UnFilterParents(widget);
        FilterParents(widget, widget);
    }
}

void TParentTracker::Leave(QObject* filtered, QObject* tracked)
{
    auto const entry = m_Filtered.find(filtered);
    if (entry == m_Filtered.end())
        return;
    entry->removeAll(static_cast<QWidget*>(tracked));
    if (!entry->isEmpty())
        return;
    filtered->removeEventFilter(this);
    m_Filtered.erase(entry);
}

QList<QWidget*> TParentTracker::Dependents(QObject* object) const
{
    auto const entry = m_Filtered.constFind(object);
    if (entry != m_Filtered.cend())
        return *entry;
    auto const tracked = m_Tracked.constFind(static_cast<QWidget*>(object));
    return tracked != m_Tracked.cend() ? QList<QWidget*>{tracked.key()} : QList<QWidget*>();
}
