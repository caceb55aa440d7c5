#include "TStackableWidget.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int UpdateMs = 25;
constexpr float WayPerUpdate = 0.4F;
constexpr int DragThreshold = 8; // pixels of finger before a drag is decided
} // namespace

TStackableWidget::TStackableWidget(QWidget* parent, int minChildHeight, int maxChildHeight, bool ownsDrag)
    : QWidget(parent)
    , m_MinChildHeight(minChildHeight)
    , m_MaxChildHeight(maxChildHeight)
    , m_Timer(new QTimer(this))
    , m_OwnsDrag(ownsDrag)
{
    m_Timer->setInterval(UpdateMs);
    connect(m_Timer, &QTimer::timeout, this, &TStackableWidget::UpdateLayers);
}

void TStackableWidget::AddWidget(QWidget* widget, bool maximised)
{
    if (!widget || widget->isAncestorOf(this) || IndexOf(widget) >= 0)
        return;
    EndDrag();
    QPoint const position = widget->pos();
    widget->setParent(this);
    widget->move(position);
    m_Layers.append({widget, maximised, float(TargetHeight(maximised))});
    LimitHeight(widget);
    widget->show();
    UpdateLayers();
}

void TStackableWidget::RemoveWidget()
{
    if (m_Layers.isEmpty())
        return;
    QWidget* const widget = m_Layers.constLast().widget;
    RemoveLayer(m_Layers.size() - 1);
    widget->hide();
}

void TStackableWidget::RemoveAll()
{
    while (!m_Layers.isEmpty())
        RemoveWidget();
}

int TStackableWidget::NumberOfWidgets() const
{
    return m_Layers.size();
}

void TStackableWidget::SetMaximised(int layer, bool maximised)
{
    if (layer < 0 || layer >= m_Layers.size() || m_Layers.at(layer).maximised == maximised)
        return;
    m_Layers[layer].maximised = maximised;
    if (maximised)
        Q_EMIT LayerMaximised(layer);
    else
        Q_EMIT LayerMinimised(layer);
}

void TStackableWidget::MoveMaximised(int from, int to)
{
    QPointer<TStackableWidget> const self(this);
    SetMaximised(to, true);
    if (self)
        SetMaximised(from, false);
}

void TStackableWidget::SetMinChildHeight(int height)
{
    m_MinChildHeight = height;
    FollowLimits();
}

void TStackableWidget::SetMaxChildHeight(int height)
{
    m_MaxChildHeight = height;
    FollowLimits();
}

void TStackableWidget::SetDragRatio(float ratio)
{
    if (std::isfinite(ratio))
        m_DragRatio = ratio;
}

void TStackableWidget::SetOverlapAmount(float overlap)
{
    if (!std::isfinite(overlap))
        return;
    m_Overlap = overlap;
    PlaceLayers();
}

bool TStackableWidget::CanDragUp() const
{
    TDragPair pair;
    return FindPair(UPWARD, pair);
}

bool TStackableWidget::CanDragDown() const
{
    TDragPair pair;
    return FindPair(DOWNWARD, pair);
}

void TStackableWidget::OnMMIHighlightChild(KVN::MMICapableWidget* child)
{
    int const first = FirstMaximised();
    int const holder = HolderOf(child ? child->Widget() : nullptr);
    if (first >= 0 && holder >= 0 && first != holder)
        MoveMaximised(first, holder);
}

void TStackableWidget::UpdateLayers()
{
    if (m_Touch.IsLost())
    {
        QPointer<TStackableWidget> const self(this);
        FinishDrag();
        if (!self)
            return;
    }
    for (TLayerDetails& layer : m_Layers)
    {
        if (!m_DragAllowed)
            layer.height += (float(TargetHeight(layer.maximised)) - layer.height) * WayPerUpdate;
        layer.height = qBound(float(LowestHeight()), layer.height, float(HighestHeight()));
    }
    PlaceLayers();
}

void TStackableWidget::mousePressEvent(QMouseEvent* event)
{
    EndDrag();
    m_PressPosition = event->pos();
    m_Touch.Begin(*this, event->pos());
    QWidget::mousePressEvent(event);
}

void TStackableWidget::mouseMoveEvent(QMouseEvent* event)
{
    QPoint const moved = event->pos() - m_PressPosition;
    if (!m_OwnsDrag || !m_Touch.IsDown() || qAbs(moved.y()) <= qAbs(moved.x()))
    {
        QWidget::mouseMoveEvent(event);
        return;
    }
    m_PressPosition = event->pos();
    DragBy(moved.y());
}

void TStackableWidget::mouseReleaseEvent(QMouseEvent* event)
{
    // The parent is offered the event only afterwards: Qt would look for it through a stack that is gone.
    QPointer<TStackableWidget> const self(this);
    FinishDrag();
    if (self)
        QWidget::mouseReleaseEvent(event);
}

void TStackableWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_Timer->start();
}

// A finger that is on the stack while it is hidden lifts elsewhere.
void TStackableWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_Timer->stop();
    EndDrag();
}

void TStackableWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceLayers();
}

// Of a widget that is being deleted only the QObject is left here: nothing but its address may be used.
void TStackableWidget::childEvent(QChildEvent* event)
{
    QWidget::childEvent(event);
    if (!event->removed())
        return;
    int const layer = IndexOf(event->child());
    if (layer >= 0)
        RemoveLayer(layer);
}

int TStackableWidget::LowestHeight() const
{
    return qBound(0, m_MinChildHeight, QWIDGETSIZE_MAX);
}

int TStackableWidget::HighestHeight() const
{
    return qBound(LowestHeight(), m_MaxChildHeight, QWIDGETSIZE_MAX);
}

int TStackableWidget::TargetHeight(bool maximised) const
{
    return maximised ? HighestHeight() : LowestHeight();
}

void TStackableWidget::LimitHeight(QWidget* widget) const
{
    widget->setMinimumHeight(LowestHeight());
    widget->setMaximumHeight(HighestHeight());
}

void TStackableWidget::FollowLimits()
{
    // By index, since a layer that is resized may take others away.
    for (int i = 0; i < m_Layers.size(); ++i)
        LimitHeight(m_Layers.at(i).widget);
    UpdateLayers();
}

void TStackableWidget::PlaceLayers()
{
    float bottom = float(height());
    for (int i = 0; i < m_Layers.size(); ++i)
    {
        QWidget* const widget = m_Layers.at(i).widget;
        QRect const place = PlaceOf(m_Layers.at(i), bottom);
        bottom -= float(place.height()) - m_Overlap;
        if (widget->geometry() != place)
            widget->setGeometry(place);
    }
}

QRect TStackableWidget::PlaceOf(TLayerDetails const& layer, float bottom) const
{
    // Rounded towards the end of its way, which the layer would never quite reach else.
    float const wanted = layer.maximised ? std::ceil(layer.height) : std::floor(layer.height);
    QWidget const* const widget = layer.widget;
    int const height = qBound(widget->minimumHeight(), int(wanted), widget->maximumHeight());
    int const edge = int(qBound(-float(QWIDGETSIZE_MAX), bottom, float(QWIDGETSIZE_MAX)));
    return {widget->x(), edge - height, widget->width(), height};
}

// The first maximised layer in the direction and the next behind it that is not. Whichever way the finger
// goes, the upper of the two grows with a movement downward and the lower with one upward.
bool TStackableWidget::FindPair(EDirection direction, TDragPair& pair) const
{
    int const count = m_Layers.size();
    if (count < 2)
        return false;
    int const step = direction == UPWARD ? -1 : 1;
    int const end = direction == UPWARD ? 0 : count - 1;
    int open = count - 1 - end;
    while (open != end && !m_Layers.at(open).maximised)
        open += step;
    int closed = open;
    while (closed != end && m_Layers.at(closed).maximised)
        closed += step;
    pair = {qMax(open, closed), qMin(open, closed)};
    return closed != open && !m_Layers.at(closed).maximised;
}

void TStackableWidget::DragBy(int dy)
{
    if (m_AccumulatedDrag < DragThreshold)
        m_AccumulatedDrag += qAbs(dy);
    if (m_AccumulatedDrag < DragThreshold)
        return;
    if (!m_DragAllowed)
        m_DragAllowed = FindPair(dy < 1 ? UPWARD : DOWNWARD, m_Drag);
    if (!m_DragAllowed)
        return;
    float const height = float(dy) * m_DragRatio;
    m_Layers[m_Drag.upper].height += height;
    m_Layers[m_Drag.lower].height -= height;
    UpdateLayers();
}

void TStackableWidget::FinishDrag()
{
    bool const dragged = m_DragAllowed;
    TDragPair const pair = m_Drag;
    EndDrag();
    if (!dragged)
        return;
    QPointer<TStackableWidget> const self(this);
    if (IsAboveMiddle(pair.upper))
        MoveMaximised(pair.lower, pair.upper);
    if (self && IsAboveMiddle(pair.lower))
        MoveMaximised(pair.upper, pair.lower);
}

void TStackableWidget::EndDrag()
{
    m_Touch.End();
    m_AccumulatedDrag = 0;
    m_DragAllowed = false;
}

bool TStackableWidget::IsAboveMiddle(int layer) const
{
    int const middle = LowestHeight() + (HighestHeight() - LowestHeight()) / 2;
    return layer < m_Layers.size() && m_Layers.at(layer).height > float(middle);
}

int TStackableWidget::FirstMaximised() const
{
    auto const isMaximised = [](TLayerDetails const& layer) { return layer.maximised; };
    return PositionOf(std::find_if(m_Layers.cbegin(), m_Layers.cend(), isMaximised));
}

int TStackableWidget::HolderOf(QWidget const* child) const
{
    auto const holdsChild = [child](TLayerDetails const& layer) { return layer.widget->isAncestorOf(child); };
    return child ? PositionOf(std::find_if(m_Layers.cbegin(), m_Layers.cend(), holdsChild)) : -1;
}

int TStackableWidget::IndexOf(QObject const* widget) const
{
    auto const isWidget = [widget](TLayerDetails const& layer) { return layer.widget == widget; };
    return PositionOf(std::find_if(m_Layers.cbegin(), m_Layers.cend(), isWidget));
}

// -1 for the end.
int TStackableWidget::PositionOf(QVector<TLayerDetails>::const_iterator layer) const
{
    return layer == m_Layers.cend() ? -1 : int(layer - m_Layers.cbegin());
}

void TStackableWidget::RemoveLayer(int layer)
{
    EndDrag();
    m_Layers.remove(layer);
    PlaceLayers();
}
