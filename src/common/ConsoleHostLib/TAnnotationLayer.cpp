#include "TAnnotationLayer.h"

#include "IAnnotationHandler.h"
#include "TCameraXVOverlayManager.h"
#include "TScreen.h"

#include <QEvent>

#include <algorithm>
#include <utility>

TAnnotationLayer::TAnnotationLayer(TScreen* screen, QObject* parent)
    : QObject(parent)
    , m_Screen(screen)
    , m_Overlay(screen->GetCameraOverlayManager())
    , m_Host(screen)
    , m_Tracker(nullptr)
{
    // Comes before the screen deletes its children, and the widgets are only lent to it.
    connect(screen, &QObject::destroyed, this,
            [this]
            {
                m_Screen.clear();
                ReleaseAll();
            });
}

TAnnotationLayer::~TAnnotationLayer()
{
    ReleaseAll();
}

void TAnnotationLayer::ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source)
{
    if (!m_Screen || !widget || widget == m_Screen)
        return;
    int const known = IdOf(widget);
    TAnnotation annotation;
    if (TAnnotation const* const former = Find(known))
    {
        annotation = *former;
        Forget(known);
    }
    else
    {
        QPointer<QWidget> const guard(widget);
        annotation = Adopt(widget);
        if (!guard || IdOf(widget) != 0)
            return;
    }
    annotation.id = ++m_LastId;
    annotation.handler = handler;
    // What lies inside the widget moves and hides with it: there is nothing to follow.
    annotation.source = source && (source == widget || widget->isAncestorOf(source)) ? nullptr : source;
    annotation.waits = !IsSeen(annotation.source);
    annotation.isAsking = false;
    annotation.locksBelow = Locks();
    annotation.locksBelow.removeAll(widget);
    Watch(annotation);
    m_Annotations.append(annotation);
    if (annotation.waits)
        widget->hide();
    else
        BringUp(annotation.id);
}

void TAnnotationLayer::HideAnnotation(QWidget* widget)
{
    Release(IdOf(widget));
}

TAnnotationLayer::TAnnotation* TAnnotationLayer::Find(int id)
{
    auto const found = std::find_if(m_Annotations.begin(), m_Annotations.end(),
                                    [id](TAnnotation const& annotation) { return annotation.id == id; });
    return found != m_Annotations.end() ? &*found : nullptr;
}

// 0 for none.
int TAnnotationLayer::IdOf(QObject const* widget) const
{
    for (TAnnotation const& annotation : m_Annotations)
    {
        if (annotation.widget == widget)
            return annotation.id;
    }
    return 0;
}

QVector<int> TAnnotationLayer::IdsOf(QObject const* source) const
{
    QVector<int> ids;
    for (TAnnotation const& annotation : m_Annotations)
    {
        if (annotation.source == source)
            ids.append(annotation.id);
    }
    return ids;
}

TAnnotationLayer::TAnnotation TAnnotationLayer::Adopt(QWidget* widget) const
{
    TAnnotation annotation;
    annotation.widget = widget;
    annotation.formerParent = widget->parentWidget();
    annotation.formerFlags = widget->windowFlags();
    widget->setParent(m_Screen);
    return annotation;
}

void TAnnotationLayer::Watch(TAnnotation& annotation)
{
    int const id = annotation.id;
    annotation.connections = std::make_shared<QObject>();
    QObject* const context = annotation.connections.get();
    auto const release = [this, id] { Release(id); };
    annotation.widget->installEventFilter(this);
    connect(annotation.widget, &QObject::destroyed, context,
            [this, id]
            {
                Forget(id);
                Notify();
            });
    if (annotation.formerParent && annotation.formerParent != m_Host)
    {
        // It would have taken the widget along, had that not been lent out.
        QWidget* const widget = annotation.widget;
        connect(annotation.formerParent, &QObject::destroyed, context, [widget] { delete widget; });
    }
    auto* const handler = dynamic_cast<QObject*>(annotation.handler);
    if (handler && handler != annotation.widget)
        connect(handler, &QObject::destroyed, context, release);
    if (QWidget* const source = annotation.source)
    {
        source->installEventFilter(this);
        connect(source, &QObject::destroyed, context, release);
        m_Tracker.TrackParent(source, m_Screen, [this](QWidget* moved) { FollowPlace(moved); });
    }
}

// One widget may be the source of several annotations, and itself an annotation.
void TAnnotationLayer::Unwatch(QWidget* watched)
{
    if (!watched || !IdsOf(watched).isEmpty())
        return;
    m_Tracker.UnTrackParent(watched);
    if (IdOf(watched) == 0)
        watched->removeEventFilter(this);
}

void TAnnotationLayer::Release(int id)
{
    TAnnotation const* const found = Find(id);
    if (!found)
        return;
    TAnnotation const annotation = *found;
    Forget(id);
    QPointer<TAnnotationLayer> const self(this);
    QPointer<QWidget> const widget(annotation.widget);
    annotation.widget->hide();
    // Its own handlers may have taken it somewhere else, or brought it up again.
    bool const isOurs = self && widget && IdOf(widget) == 0 && widget->parentWidget() == m_Host;
    if (isOurs && annotation.formerParent != m_Host)
        widget->setParent(annotation.formerParent, annotation.formerFlags);
    if (self)
        Notify();
}

void TAnnotationLayer::ReleaseAll()
{
    QPointer<TAnnotationLayer> const self(this);
    while (self && !m_Annotations.isEmpty())
        Release(m_Annotations.constLast().id);
}

void TAnnotationLayer::Forget(int id)
{
    TAnnotation const* const found = Find(id);
    if (!found)
        return;
    // The connections end with the copy.
    TAnnotation const annotation = *found;
    m_Annotations.removeAt(static_cast<int>(found - m_Annotations.constData()));
    Unwatch(annotation.widget);
    Unwatch(annotation.source);
}

bool TAnnotationLayer::eventFilter(QObject* watched, QEvent* event)
{
    QPointer<QObject> const guard(watched);
    switch (event->type())
    {
    case QEvent::Show:
    case QEvent::Hide:
        FollowVisibility(watched);
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        Notify();
        break;
    case QEvent::ParentChange:
        if (watched->parent() != m_Host)
            Forget(IdOf(watched));
        Notify();
        break;
    default:
        break;
    }
    // Nobody may deliver an event to what has been deleted meanwhile.
    return !guard;
}

bool TAnnotationLayer::IsSeen(QWidget const* source) const
{
    return !source || (source->isVisible() && source->window() == m_Host);
}

void TAnnotationLayer::FollowVisibility(QObject* source)
{
    QPointer<TAnnotationLayer> const self(this);
    QVector<int> const ids = IdsOf(source);
    for (int const id : ids)
    {
        TAnnotation* const annotation = self ? Find(id) : nullptr;
        if (!annotation)
            continue;
        bool const isSeen = IsSeen(annotation->source);
        if (isSeen && annotation->waits)
        {
            annotation->waits = false;
            BringUp(id);
            if (self)
                TellHandler(id);
        }
        else if (!isSeen && !annotation->widget->isHidden())
        {
            annotation->waits = true;
            annotation->widget->hide();
        }
    }
}

void TAnnotationLayer::FollowPlace(QWidget* source)
{
    QPointer<TAnnotationLayer> const self(this);
    QVector<int> const ids = IdsOf(source);
    for (int const id : ids)
    {
        if (self)
            TellHandler(id);
    }
}

void TAnnotationLayer::BringUp(int id)
{
    TAnnotation const* const annotation = Find(id);
    if (!annotation || !m_Screen)
        return;
    QPointer<TAnnotationLayer> const self(this);
    QWidget* const widget = annotation->widget;
    m_Screen->RaiseToBelowAlarm(widget);
    widget->show();
    if (self)
        Place(id);
}

QList<QPointer<QWidget>> TAnnotationLayer::Locks() const
{
    QList<QPointer<QWidget>> widgets;
    for (TLockingWidget const& lock : m_Screen->GetLockingWidgets())
        widgets.append(lock.widget);
    return widgets;
}

void TAnnotationLayer::RaiseAnnotations()
{
    if (!m_Screen)
        return;
    QVector<TLockingWidget> const& locks = m_Screen->GetLockingWidgets();
    for (TAnnotation const& annotation : qAsConst(m_Annotations))
    {
        bool const isAboveLocks = locks.isEmpty() || annotation.locksBelow.contains(locks.constLast().widget);
        if (isAboveLocks && !annotation.widget->isHidden())
            m_Screen->RaiseToBelowAlarm(annotation.widget);
    }
}

// One that cannot be seen hears of its source when it comes up again.
void TAnnotationLayer::TellHandler(int id)
{
    TAnnotation* annotation = Find(id);
    if (!annotation || !annotation->handler || annotation->isAsking || annotation->widget->isHidden())
        return;
    QPointer<TAnnotationLayer> const self(this);
    annotation->isAsking = true;
    annotation->handler->PositionChanged();
    annotation = self ? Find(id) : nullptr;
    if (!annotation)
        return;
    annotation->isAsking = false;
    Place(id);
}

void TAnnotationLayer::Place(int id)
{
    TAnnotation* annotation = Find(id);
    if (!annotation || !annotation->handler || annotation->isAsking || !m_Screen)
        return;
    QPointer<TAnnotationLayer> const self(this);
    annotation->isAsking = true;
    QPoint const place = annotation->handler->Position(m_Screen);
    annotation = self ? Find(id) : nullptr;
    if (!annotation || !m_Screen)
        return;
    annotation->isAsking = false;
    // Whatever is answered, the widget is no farther out than just beyond an edge.
    QWidget* const widget = annotation->widget;
    widget->move(qBound(-widget->width(), place.x(), m_Screen->width()),
                 qBound(-widget->height(), place.y(), m_Screen->height()));
}

void TAnnotationLayer::Notify()
{
    bool const isUp = std::any_of(m_Annotations.cbegin(), m_Annotations.cend(),
                                  [](TAnnotation const& one) { return !one.widget->isHidden(); });
    if (std::exchange(m_IsNotified, isUp) == isUp || !m_Overlay)
        return;
    if (isUp)
        m_Overlay->OnAnnotationShowing();
    else
        m_Overlay->OnAnnotationHiding();
}
