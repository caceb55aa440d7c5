#include "TScrollableWidget.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace
{
constexpr int UpdateMs = 50;
constexpr int DragThreshold = 6;   // pixels of finger before the page follows
constexpr int StopsForDrag = 2;    // pages between which there is something to choose
constexpr int UpdatesAhead = 16;   // how far a flick is thought on, in updates
constexpr int LongestSpring = 100; // pixels below its place at which a page stands after a step at most
constexpr int LongestDrag = QWIDGETSIZE_MAX;

// A place of the finger in whole pixels, so that the differences of a path add up to its length.
QPoint Whole(QPointF const& point)
{
    auto const whole = [](qreal value)
    { return qRound(qBound(-qreal(LongestDrag), value, qreal(LongestDrag))); };
    return {whole(point.x()), whole(point.y())};
}

void MoveTo(QWidget* page, int y)
{
    if (page->y() != y)
        page->move(page->x(), y);
}
} // namespace

TScrollableWidget::TScrollableWidget(QWidget* parent, bool handleMouse)
    : QWidget(parent)
    , m_Timer(new QTimer(this))
    , m_HandleMouse(handleMouse)
{
    m_Timer->setInterval(UpdateMs);
    connect(m_Timer, &QTimer::timeout, this, &TScrollableWidget::UpdateLayers);
}

void TScrollableWidget::AddWidget(QWidget* widget, EScrollBehaviour behaviour)
{
    if (!widget || widget->isAncestorOf(this) || IndexOf(widget) >= 0)
        return;
    widget->setParent(this);
    widget->hide();
    widget->setFixedSize(size());
    widget->move(0, 0);
    m_Widgets.append(widget);
    m_Behaviours.insert(widget, behaviour);
}

void TScrollableWidget::RemoveWidget(QWidget* widget)
{
    if (IndexOf(widget) < 0)
        return;
    widget->hide();
    Tell(ForgetWidget(IndexOf(widget)));
}

void TScrollableWidget::SetWidgetOrder(QList<QWidget*> const& order)
{
    QList<QWidget*> ordered;
    QList<QWidget*> const wanted = order + m_Widgets;
    for (QWidget* const widget : wanted)
    {
        if (m_Widgets.contains(widget) && !ordered.contains(widget))
            ordered.append(widget);
    }
    int const layer = m_CurrentLayer;
    QWidget* const current = CurrentWidget();
    m_Widgets = ordered;
    m_CurrentLayer = qMax(0, IndexOf(current));
    Tell(ChangeSince(layer, current));
}

QWidget* TScrollableWidget::CurrentWidget() const
{
    return m_Widgets.value(m_CurrentLayer);
}

void TScrollableWidget::MoveToWidget(QWidget* widget)
{
    int const layer = IndexOf(widget);
    if (layer < 0 || layer == m_CurrentLayer)
        return;
    widget->move(0, 0);
    MoveToLayer(layer);
}

void TScrollableWidget::MoveUp()
{
    MoveToLayer(GetNextLayer());
}

void TScrollableWidget::MoveDown()
{
    MoveToLayer(GetPrevLayer());
}

int TScrollableWidget::GetNextLayer() const
{
    return FindLayer(1);
}

int TScrollableWidget::GetPrevLayer() const
{
    return FindLayer(-1);
}

QWidget* TScrollableWidget::GetNextWidget() const
{
    return m_Widgets.value(GetNextLayer());
}

QWidget* TScrollableWidget::GetPrevWidget() const
{
    return m_Widgets.value(GetPrevLayer());
}

void TScrollableWidget::UpdateLayers()
{
    QPointer<TScrollableWidget> const self(this);
    if (m_Touch.IsLost())
        DragRelease(m_PreviousDragPoint);
    if (self && !m_Widgets.isEmpty() && !IsEnabled(m_CurrentLayer) && IsEnabled(GetNextLayer()))
        MoveUp();
    if (!self || m_Widgets.isEmpty())
        return;
    if (m_Dragging)
    {
        m_Velocity = m_TotalDrag - m_LastTotal;
        m_LastTotal = m_TotalDrag;
    }
    else if (isVisible())
    {
        Spring();
    }
    ShowPages(PlaceNeighbour());
}

void TScrollableWidget::Drag(QPointF const& start, QPointF const& end)
{
    if (!isVisible())
        return;
    // First, as the start may be the very point that is stored.
    QPoint const movement = Whole(end) - Whole(start);
    bool const started = m_DragStarted;
    m_DragStarted = true;
    m_PreviousDragPoint = end;
    if (started)
        FollowFinger(movement);
}

void TScrollableWidget::DragRelease(QPointF const& point)
{
    Q_UNUSED(point)
    if (!isVisible())
        return;
    int const half = (height() + 1) / 2;
    qint64 const projected = qint64(m_Velocity) * UpdatesAhead + m_TotalDrag;
    EndDrag();
    if (projected > half)
        MoveDown();
    else if (projected < -half)
        MoveUp();
}

void TScrollableWidget::mousePressEvent(QMouseEvent* event)
{
    if (!m_HandleMouse)
    {
        QWidget::mousePressEvent(event);
        return;
    }
    EndDrag();
    m_Touch.Begin(*this, event->pos());
    m_PreviousDragPoint = event->localPos();
}

void TScrollableWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_HandleMouse)
        QWidget::mouseMoveEvent(event);
    else if (m_Touch.IsDown())
        Drag(m_PreviousDragPoint, event->localPos());
}

void TScrollableWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_HandleMouse)
        QWidget::mouseReleaseEvent(event);
    else
        DragRelease(event->localPos());
}

void TScrollableWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_Timer->start();
    // The page is there in the first picture, not one tick later.
    UpdateLayers();
}

// A finger that is on the page while it is hidden lifts elsewhere.
void TScrollableWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_Timer->stop();
    EndDrag();
}

void TScrollableWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // By index, since a page that is resized may take others away.
    for (int i = 0; i < m_Widgets.size(); ++i)
        m_Widgets.at(i)->setFixedSize(size());
}

void TScrollableWidget::childEvent(QChildEvent* event)
{
    QWidget::childEvent(event);
    if (!event->removed())
        return;
    EChange const change = ForgetWidget(IndexOf(event->child()));
    // Not at once: the page is in the middle of its end or of its way to another parent, and neither would
    // survive a slot that deletes it or this widget.
    if (change != CHANGE_NONE)
        QMetaObject::invokeMethod(
            this, [this, change] { Tell(change); }, Qt::QueuedConnection);
}

// The neighbour on the round in the direction of the step; see GetNextLayer().
int TScrollableWidget::FindLayer(int step) const
{
    int const count = m_Widgets.size();
    for (auto const wanted : {SCROLL_STOP, SCROLL_NONE})
    {
        for (int i = 1; i < count; ++i)
        {
            int const layer = (m_CurrentLayer + (step > 0 ? i : count - i)) % count;
            if (IsEnabled(layer) && Has(layer, wanted))
                return layer;
        }
    }
    return m_CurrentLayer;
}

bool TScrollableWidget::Has(int layer, EScrollBehaviour behaviour) const
{
    return (m_Behaviours.value(m_Widgets.value(layer)) & behaviour) == behaviour;
}

// By itself: pages are not turned because the whole widget, or the window, is disabled for a while.
bool TScrollableWidget::IsEnabled(int layer) const
{
    return m_Widgets.at(layer)->isEnabledTo(this);
}

bool TScrollableWidget::CanBeDragged() const
{
    int stops = 0;
    for (int layer = 0; layer < m_Widgets.size(); ++layer)
    {
        if (IsEnabled(layer) && (layer == m_CurrentLayer || Has(layer, SCROLL_STOP)))
            ++stops;
    }
    return stops >= StopsForDrag && Has(m_CurrentLayer, SCROLL_DRAGGABLE);
}

// By address alone, as the widget may be in the middle of its destruction.
int TScrollableWidget::IndexOf(QObject const* widget) const
{
    auto const isWidget = [widget](QWidget const* page) { return page == widget; };
    auto const found = std::find_if(m_Widgets.cbegin(), m_Widgets.cend(), isWidget);
    return found == m_Widgets.cend() ? -1 : int(found - m_Widgets.cbegin());
}

void TScrollableWidget::MoveToLayer(int layer)
{
    if (m_Widgets.isEmpty())
        return;
    m_CurrentLayer = layer;
    Tell(CHANGE_WIDGET);
}

TScrollableWidget::EChange TScrollableWidget::ForgetWidget(int layer)
{
    if (layer < 0)
        return CHANGE_NONE;
    int const layerBefore = m_CurrentLayer;
    QWidget const* const widgetBefore = CurrentWidget();
    m_Behaviours.remove(m_Widgets.takeAt(layer));
    if (layer < m_CurrentLayer || m_CurrentLayer == m_Widgets.size())
        m_CurrentLayer = qMax(0, m_CurrentLayer - 1);
    EChange const change = ChangeSince(layerBefore, widgetBefore);
    if (change == CHANGE_WIDGET)
    {
        EndDrag();
        PutInPlace();
    }
    return change;
}

TScrollableWidget::EChange TScrollableWidget::ChangeSince(int layer, QWidget const* widget) const
{
    if (CurrentWidget() != widget)
        return CHANGE_WIDGET;
    return m_CurrentLayer == layer ? CHANGE_NONE : CHANGE_LAYER;
}

void TScrollableWidget::Tell(EChange change)
{
    QPointer<TScrollableWidget> const self(this);
    if (change != CHANGE_NONE)
        Q_EMIT ActiveLayerChanged(m_CurrentLayer);
    if (self && change == CHANGE_WIDGET)
        Q_EMIT ActiveWidgetChanged(CurrentWidget());
}

// At once, without the spring.
void TScrollableWidget::PutInPlace()
{
    if (QWidget* const current = CurrentWidget())
        MoveTo(current, 0);
    ShowPages(nullptr);
}

void TScrollableWidget::FollowFinger(QPoint const& movement)
{
    if (qAbs(movement.y()) <= qAbs(movement.x()))
        return;
    if (m_AccumulatedDrag < DragThreshold)
        m_AccumulatedDrag += qAbs(movement.y());
    if (m_AccumulatedDrag < DragThreshold || !CanBeDragged())
        return;
    m_Dragging = true;
    m_TotalDrag = int(qBound(-qint64(LongestDrag), qint64(m_TotalDrag) + movement.y(), qint64(LongestDrag)));
    QWidget* const current = CurrentWidget();
    MoveTo(current, qBound(-height(), current->y() + movement.y(), height()));
    UpdateLayers();
}

void TScrollableWidget::EndDrag()
{
    m_Touch.End();
    m_DragStarted = false;
    m_Dragging = false;
    m_AccumulatedDrag = 0;
    m_TotalDrag = 0;
    m_LastTotal = 0;
    m_Velocity = 0;
}

// Only a page below its place starts nearer: that is how a page comes in that was left far below.
void TScrollableWidget::Spring()
{
    QWidget* const current = CurrentWidget();
    int const y = current->y();
    MoveTo(current, qAbs(y) < height() ? qMin(y / 2, LongestSpring) : 0);
}

QWidget* TScrollableWidget::PlaceNeighbour() const
{
    QWidget const* const current = CurrentWidget();
    if (!current || current->y() == 0)
        return nullptr;
    bool const isBelow = current->y() > 0;
    QWidget* const neighbour = isBelow ? GetPrevWidget() : GetNextWidget();
    if (neighbour == current)
        return nullptr;
    MoveTo(neighbour, current->y() + (isBelow ? -height() : height()));
    return neighbour;
}

void TScrollableWidget::ShowPages(QWidget const* neighbour)
{
    // By index, since a page that comes or goes may take others away.
    for (int i = 0; i < m_Widgets.size(); ++i)
    {
        QWidget* const page = m_Widgets.at(i);
        bool const isSeen = i == m_CurrentLayer || page == neighbour;
        if (page->isHidden() == isSeen)
            page->setVisible(isSeen);
    }
}
