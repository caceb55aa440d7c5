#include "TMMICapableWidgetNavigator.h"

#include "MMICapableWidget.h"
#include "TLocalTime.h"
#include "TMMIHighlightWidget.h"
#include "TMMIStopFinder.h"

#include <QMoveEvent>
#include <QResizeEvent>
#include <QTimer>
#include <QWidget>

namespace
{
constexpr int TICK_MS = 100;
constexpr qint64 SELECTION_TIMEOUT_MS = 30000;
constexpr qint64 FRAME_GRACE_MS = 500; // a window that is only just opening is not active yet
constexpr qint64 MACRO_TIMEOUT_MS = 1000;

bool IsWheelOwner(TMMICapableWeakRef const& widget)
{
    return widget.IsAlive() && widget->GetMMIBehaviour() == MMI_WHEEL_OWNER;
}

bool IsNamed(TMMICapableWeakRef const& widget, QString const& name)
{
    return widget.IsAlive() && widget.Object()->objectName() == name;
}

bool IsBefore(QPair<TMMICapableWeakRef, QPoint> const& a, QPair<TMMICapableWeakRef, QPoint> const& b,
              bool columnFirst)
{
    if (!a.first.IsAlive() || !b.first.IsAlive())
        return false;
    TMMIStopKey const keyOfB(b.first->GetMMISortPrecedence(), b.second, columnFirst, 0);
    return TMMIStopKey(a.first->GetMMISortPrecedence(), a.second, columnFirst, 0).IsBefore(keyOfB);
}

// Dead for a widget that has nothing to enter.
TMMICapableWeakRef AnswerToEnter(TMMICapableWeakRef const& asked)
{
    KVN::MMICapableWidget* const widget = asked.Get();
    KVN::MMICapableWidget* const entered = widget ? widget->OnMMIEnter() : nullptr;
    // Most widgets answer themselves, also when the press has been their end.
    return entered == widget ? asked : TMMICapableWeakRef(entered);
}

bool IsDirectlyAbove(QWidget const* upper, QWidget const* lower)
{
    QObjectList const& siblings = lower->parentWidget()->children();
    int next = siblings.indexOf(const_cast<QWidget*>(lower)) + 1;
    while (next < siblings.size() && !(siblings.at(next) && siblings.at(next)->isWidgetType()))
        ++next;
    return next < siblings.size() && siblings.at(next) == upper;
}
} // namespace

bool mmiRowFirstCompare(QPair<TMMICapableWeakRef, QPoint> const& a,
                        QPair<TMMICapableWeakRef, QPoint> const& b)
{
    return IsBefore(a, b, false);
}

bool mmiColumnFirstCompare(QPair<TMMICapableWeakRef, QPoint> const& a,
                           QPair<TMMICapableWeakRef, QPoint> const& b)
{
    return IsBefore(a, b, true);
}

TMMICapableWidgetNavigator::TMMICapableWidgetNavigator(KVN::MMICapableWidget* root)
    : m_FocusTimer(new QTimer(this))
{
    m_FocusTimer->setInterval(TICK_MS);
    connect(m_FocusTimer, &QTimer::timeout, this, &TMMICapableWidgetNavigator::UpdateFocus);
    m_FocusTimer->start();
    PushMMICapableWidget(root, root, false);
}

TMMICapableWidgetNavigator::~TMMICapableWidgetNavigator()
{
    delete m_Highlight;
}

QList<TMMICapableWeakRef> TMMICapableWidgetNavigator::FindMMICapableChildren(QObject* object) const
{
    return TMMIStopFinder(object).Found();
}

QList<TMMICapableWeakRef>
TMMICapableWidgetNavigator::FindMMICapableChildren(TMMICapableWeakRef const& widget) const
{
    if (!widget.IsAlive())
        return {};
    return TMMIStopFinder(widget.Object()).Sorted(widget->GetMMIColumnFirst());
}

bool TMMICapableWidgetNavigator::IsCurrentWidgetNavigatable() const
{
    TMMICapableWeakRef const current = Current();
    TMMICapableWeakRef const top = TopWidget();
    return current.IsAlive() && top.IsAlive() && current->IsMMIWidgetActive() &&
           top->IsMMIChildNavigatable(current.Get());
}

TMMICapableWeakRef TMMICapableWidgetNavigator::TopWidget() const
{
    return m_Stack.isEmpty() ? TMMICapableWeakRef() : m_Stack.constLast().widget;
}

TMMICapableWeakRef TMMICapableWidgetNavigator::Current() const
{
    return m_Children.isEmpty() ? TMMICapableWeakRef() : m_Children.at(m_Current);
}

TMMICapableWeakRef TMMICapableWidgetNavigator::SelectionToShow() const
{
    TMMICapableWeakRef const top = TopWidget();
    if (!m_Active || !top.IsAlive())
        return {};
    return IsWheelOwner(top) ? top : Current();
}

bool TMMICapableWidgetNavigator::IsSelectionAwake() const
{
    TMMICapableWeakRef const top = TopWidget();
    if (!top.IsAlive() || m_Stack.constLast().macroStep || m_LastInput <= 0)
        return false;
    qint64 const now = TLocalTime::getCurrentTime();
    if (top->GetMMITimeoutEnabled() && now - m_LastInput >= SELECTION_TIMEOUT_MS)
        return false;
    return now - m_Stack.constLast().time > qint64(top->GetMMISelectionDelay());
}

bool TMMICapableWidgetNavigator::IsTopFrameSpent() const
{
    if (m_Stack.size() < 2)
        return false;
    TMMIFocusFrame const& top = m_Stack.constLast();
    if (top.widget.IsAlive() && top.widget->IsMMIWidgetActive() && !top.macroStep)
        return false;
    return TLocalTime::getCurrentTime() - top.time > FRAME_GRACE_MS;
}

int TMMICapableWidgetNavigator::FrameOf(TMMICapableWeakRef const& widget) const
{
    if (!widget.IsAlive())
        return -1;
    for (int i = 0; i < m_Stack.size(); ++i)
    {
        if (m_Stack.at(i).widget == widget)
            return i;
    }
    return -1;
}

void TMMICapableWidgetNavigator::OnWheelLeft()
{
    m_LastInput = TLocalTime::getCurrentTime();
    TMMICapableWeakRef const top = TopWidget();
    if (IsWheelOwner(top))
        top->OnMMIWheelLeft();
    else
        Step(-1);
}

void TMMICapableWidgetNavigator::OnWheelRight()
{
    m_LastInput = TLocalTime::getCurrentTime();
    TMMICapableWeakRef const top = TopWidget();
    if (IsWheelOwner(top))
        top->OnMMIWheelRight();
    else
        Step(1);
}

// Leaves the old stop whether or not it is navigatable, unlike the tick.
void TMMICapableWidgetNavigator::Step(int direction)
{
    if (m_Children.isEmpty())
        return;
    int const count = m_Children.size();
    int const start = m_Current;
    do
        m_Current = (m_Current + direction + count) % count;
    while (m_Current != start && !IsCurrentWidgetNavigatable());
    HideHighlight();
}

void TMMICapableWidgetNavigator::OnEnter()
{
    TMMICapableWeakRef const top = TopWidget();
    if (!m_Active || !top.IsAlive())
        return;
    TMMICapableWeakRef const current = Current();
    if (!IsWheelOwner(top) && IsWheelOwner(current))
    {
        PushMMICapableWidget(current, current, false);
        return;
    }
    TMMICapableWeakRef const asked = IsWheelOwner(top) ? top : current;
    QPointer<TMMICapableWidgetNavigator> const self(this);
    TMMICapableWeakRef const entered = AnswerToEnter(asked);
    if (self)
        PushMMICapableWidget(entered, asked, false);
}

bool TMMICapableWidgetNavigator::OnBack()
{
    TMMICapableWeakRef const top = TopWidget();
    int const depth = m_Stack.size();
    if (!m_Active || !top.IsAlive() || depth < 2)
        return false;
    QPointer<TMMICapableWidgetNavigator> const self(this);
    bool const leave = top->OnMMIBack();
    // The answer is about the level that was asked, not about one that the widget has meanwhile opened or
    // uncovered.
    if (self)
        PopMMICapableWidget(leave && m_Stack.size() == depth && TopWidget() == top);
    return true;
}

void TMMICapableWidgetNavigator::OnHoldBack()
{
    if (m_Active)
        PopMMICapableWidget(true);
}

void TMMICapableWidgetNavigator::PushWidget(QWidget* widget)
{
    auto* const capable = dynamic_cast<KVN::MMICapableWidget*>(widget);
    if (capable && capable->GetMMIBehaviour() != MMI_EXCLUDED)
        PushMMICapableWidget(capable->GetMMIEntryWidget(), capable, false);
}

void TMMICapableWidgetNavigator::PushMMICapableWidget(TMMICapableWeakRef const& widget,
                                                      TMMICapableWeakRef const& origin, bool macroStep)
{
    if (!widget.IsAlive())
        return;
    bool const ownsWheel = IsWheelOwner(widget);
    QList<TMMICapableWeakRef> const stops =
        ownsWheel ? QList<TMMICapableWeakRef>() : FindMMICapableChildren(widget);
    if (stops.isEmpty() && !ownsWheel && !m_Stack.isEmpty())
        return;
    if (TopWidget() == widget)
        return;
    TMMIFocusFrame const frame{widget, Current(), origin, macroStep, TLocalTime::getCurrentTime()};
    m_Stack.append(frame);
    SetChildren(stops, frame.selectionBefore);
    HideHighlight();
    // The tick would say so too, but only after a hasty second press had reached what the operator cannot see
    // yet.
    if (frame.widget->GetMMISelectionDelay() > 0)
        m_Active = false;
}

void TMMICapableWidgetNavigator::SetChildren(QList<TMMICapableWeakRef> const& stops,
                                             TMMICapableWeakRef const& carriedOver)
{
    m_Children = stops;
    m_Current = 0;
    if (carriedOver.IsAlive() && carriedOver->GetMMICarryOverSelection())
        m_Children.append(carriedOver);
}

void TMMICapableWidgetNavigator::PopMMICapableWidget(bool popTop)
{
    QPointer<TMMICapableWidgetNavigator> const self(this);
    bool changed = popTop;
    TMMIFocusFrame popped;
    if (popTop && m_Stack.size() > 1)
        popped = m_Stack.takeLast();
    while (IsTopFrameSpent())
    {
        popped = m_Stack.takeLast();
        changed = true;
        int const depth = m_Stack.size();
        if (popped.macroStep && popped.widget.IsAlive())
            popped.widget->OnMMIBack();
        // Going back has opened something: the operator stands there now, with a list of its own.
        if (!self || m_Stack.size() > depth)
            return;
    }
    if (popped.widget.IsAlive())
    {
        RefreshChildren(popped.selectionBefore);
        return;
    }
    if (!changed)
        return;
    m_Children.clear();
    if (TopWidget().IsAlive())
        RefreshChildren(m_Stack.constLast().selectionBefore);
}

void TMMICapableWidgetNavigator::RefreshChildren()
{
    RefreshChildren(Current());
}

void TMMICapableWidgetNavigator::RefreshChildren(TMMICapableWeakRef const& select)
{
    TMMICapableWeakRef const wanted = select;
    TMMICapableWeakRef const before =
        m_Stack.isEmpty() ? TMMICapableWeakRef() : m_Stack.constLast().selectionBefore;
    SetChildren(FindMMICapableChildren(TopWidget()), before);
    int const found = m_Children.indexOf(wanted);
    // The last one, deliberately: what lay behind the lost selection is nearer to the end than to the start.
    m_Current = found >= 0 ? found : qMax(0, m_Children.size() - 1);
    UpdateSelected();
}

void TMMICapableWidgetNavigator::UpdateFocus()
{
    QPointer<TMMICapableWidgetNavigator> const self(this);
    TMMICapableWeakRef const top = TopWidget();
    PopMMICapableWidget(!top.IsAlive() || (m_Children.isEmpty() && !IsWheelOwner(top)));
    if (!self)
        return;
    LeaveUnnavigatableCurrent();
    m_Active = IsSelectionAwake();
    UpdateSelected();
    if (self)
        ReportFailedPath();
    if (self)
        FollowActiveMacroPath();
}

void TMMICapableWidgetNavigator::LeaveUnnavigatableCurrent()
{
    int const count = m_Children.size();
    for (int steps = 0; steps < count && !IsCurrentWidgetNavigatable(); ++steps)
        m_Current = (m_Current + 1) % count;
}

void TMMICapableWidgetNavigator::UpdateSelected()
{
    // A handler that turns the selection again while it changes is served at the end of the change or by the
    // next tick.
    if (m_ChangingSelected)
        return;
    MakeHighlight();
    if (SelectionToShow() != m_Selected)
    {
        QPointer<TMMICapableWidgetNavigator> const self(this);
        m_ChangingSelected = true;
        ChangeSelected();
        if (!self)
            return;
        m_ChangingSelected = false;
    }
    ShowHighlight();
}

void TMMICapableWidgetNavigator::ChangeSelected()
{
    QPointer<TMMICapableWidgetNavigator> const self(this);
    if (m_Selected.IsAlive())
    {
        if (QWidget* const old = m_Selected.Widget())
            old->removeEventFilter(this);
        m_Selected->OnMMIUnHighlight();
        if (!self)
            return;
    }
    m_Selected = SelectionToShow();
    TMMICapableWeakRef const selected = m_Selected;
    if (!selected.IsAlive())
        return;
    // First, so that a scrolling parent has brought the child in before the rectangle is taken.
    TopWidget()->OnMMIHighlightChild(selected.Get());
    if (!self || !selected.IsAlive())
        return;
    if (QWidget* const widget = selected.Widget())
    {
        LayHighlightAround(widget);
        widget->installEventFilter(this);
        selected->OnMMIHighlight();
    }
}

void TMMICapableWidgetNavigator::MakeHighlight()
{
    if (!m_Highlight)
        m_Highlight = new TMMIHighlightWidget;
}

void TMMICapableWidgetNavigator::HideHighlight()
{
    if (m_Highlight)
        m_Highlight->hide();
}

void TMMICapableWidgetNavigator::LayHighlightAround(QWidget* widget)
{
    MakeHighlight();
    QWidget* const parent = widget->parentWidget();
    // What is shown next is stacked anew.
    m_Highlight->hide();
    m_Highlight->setParent(parent);
    if (parent)
        m_Highlight->setGeometry(m_Selected->GetMMIHighlightRect(parent));
}

void TMMICapableWidgetNavigator::ShowHighlight()
{
    QWidget* const widget = m_Selected.Widget();
    // Beside a widget without a parent the highlight would be a second top-level window.
    if (!widget || !widget->parentWidget() || !m_Selected->UseDefaultMMIHighlight())
    {
        HideHighlight();
        return;
    }
    if (!m_Highlight || m_Highlight->parentWidget() != widget->parentWidget())
        LayHighlightAround(widget);
    bool const wheelActsInside = IsWheelOwner(m_Selected) && m_Selected == TopWidget();
    QColor const colour(wheelActsInside ? Qt::blue : Qt::white);
    if (m_Highlight->GetColour() != colour)
        m_Highlight->SetColour(colour);
    if (m_Highlight->isVisible())
        return;
    if (!IsDirectlyAbove(m_Highlight, widget))
    {
        m_Highlight->stackUnder(widget);
        widget->stackUnder(m_Highlight);
    }
    m_Highlight->show();
}

bool TMMICapableWidgetNavigator::eventFilter(QObject* watched, QEvent* event)
{
    if (m_Highlight && watched == m_Selected.Widget())
    {
        if (event->type() == QEvent::Move)
            m_Highlight->move(static_cast<QMoveEvent*>(event)->pos());
        else if (event->type() == QEvent::Resize)
            m_Highlight->resize(static_cast<QResizeEvent*>(event)->size());
    }
    return QObject::eventFilter(watched, event);
}

void TMMICapableWidgetNavigator::FollowPath(KVN::MMICapableWidget* root, QList<QString> const& path,
                                            QObject* callback, QString const& method)
{
    m_CallbackObject = callback;
    m_CallbackMethod = method;
    m_MacroPath = path;
    m_MacroStart = TLocalTime::getCurrentTime();
    m_LastInput = m_MacroStart;
    TMMICapableWeakRef const start(root);
    int last = FrameOf(start);
    if (last < 0)
    {
        PushMMICapableWidget(start, start, false);
        return;
    }
    while (!m_MacroPath.isEmpty() && last + 1 < m_Stack.size() &&
           IsNamed(m_Stack.at(last + 1).origin, m_MacroPath.constFirst()))
    {
        m_MacroPath.removeFirst();
        ++last;
    }
    m_Stack.resize(last + 1);
    m_Stack.last().time = m_MacroStart;
    RefreshChildren(m_Selected);
}

void TMMICapableWidgetNavigator::FollowActiveMacroPath()
{
    if (m_MacroPath.isEmpty())
        return;
    QPointer<TMMICapableWidgetNavigator> const self(this);
    QList<TMMICapableWeakRef> const children = m_Children;
    for (TMMICapableWeakRef const& child : children)
    {
        if (m_MacroPath.isEmpty())
            break;
        if (!IsNamed(child, m_MacroPath.constFirst()) || !child->IsMMIWidgetActiveTo(TopWidget().Get()))
            continue;
        m_MacroPath.removeFirst();
        QList<QString> const left = m_MacroPath;
        TMMICapableWeakRef const entered = AnswerToEnter(child);
        // The widget may have sent the operator on another path.
        if (!self || m_MacroPath != left)
            return;
        PushMMICapableWidget(entered, child, !left.isEmpty());
    }
    if (m_MacroPath.isEmpty())
        Report(m_CallbackObject, m_CallbackMethod, true);
}

void TMMICapableWidgetNavigator::ReportFailedPath()
{
    if (m_MacroPath.isEmpty() || TLocalTime::getCurrentTime() - m_MacroStart <= MACRO_TIMEOUT_MS)
        return;
    // Forgotten first: the one who is told may follow another path at once.
    QPointer<QObject> const callback = m_CallbackObject;
    QString const method = m_CallbackMethod;
    m_CallbackObject.clear();
    m_CallbackMethod.clear();
    Report(callback, method, false);
}

void TMMICapableWidgetNavigator::Report(QPointer<QObject> const& callback, QString const& method,
                                        bool arrived)
{
    if (callback)
        QMetaObject::invokeMethod(callback.data(), method.toUtf8().constData(), Q_ARG(bool, arrived));
}
