#include "TBaseToolBar.h"

#include "ConfigManager.h"
#include "TLocalTime.h"
#include "TPushButton.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace
{
constexpr int IndicatorThickness = 6;
constexpr int FirstDragThreshold = 30;
constexpr int InertiaMs = 100;
// A finger that lay still for longer before it lifted does not flick.
constexpr int LongestFlickMs = 200;
constexpr int NoPosition = 0x7fffffff;

// The values of the setting, and what they make of a button.
constexpr int QuarterLarger = 1;
constexpr int HalfLarger = 2;
constexpr double QuarterLargerFactor = 1.25;
constexpr double HalfLargerFactor = 1.5;

int UserButtonSize()
{
    return ConfigManager::Instance()->Read(CONFIG_BUTTON_SIZE).toInt();
}
} // namespace

TBaseToolBar::TBaseToolBar(QWidget* parent, bool fixed)
    : QWidget(parent)
    , m_Fixed(fixed)
    , m_PressPosition(NoPosition, NoPosition)
    , m_LastPosition(NoPosition, NoPosition)
    , m_IndicatorThickness(IndicatorThickness)
    , m_DragThreshold(FirstDragThreshold)
    , m_UpIndicator(MakeIndicator())
    , m_DownIndicator(MakeIndicator())
    , m_InertiaTimer(new QTimer(this))
{
    SetScrollIndicators(QStringLiteral(":/Images/Resources/WindowToolbarButtonScrollUp.png"),
                        QStringLiteral(":/Images/Resources/WindowToolbarButtonScrollDown.png"));
    connect(m_InertiaTimer, &QTimer::timeout, this, &TBaseToolBar::OnAnimateDrag);
}

TBaseToolBar::~TBaseToolBar() = default;

QLabel* TBaseToolBar::MakeIndicator()
{
    auto* const indicator = new QLabel(this);
    // The button beneath takes the finger.
    indicator->setAttribute(Qt::WA_TransparentForMouseEvents);
    indicator->hide();
    return indicator;
}

void TBaseToolBar::SetButtonOffset(int offset)
{
    m_ButtonOffset = offset;
}

void TBaseToolBar::SetPerpOffset(int offset)
{
    m_PerpOffset = offset;
}

void TBaseToolBar::ArrangeButtons(int size, int gap)
{
    // Not again for the resize that an arrangement brings about.
    if (m_UpIndicator->isVisible() && !m_Repositioning)
        m_ButtonOffset += m_IndicatorThickness;
    m_RequestedButtonSize = size;
    m_Gap = gap;
    RepositionButtons();
}

void TBaseToolBar::AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    TPushButton* button = GetButton(id);
    if (!button)
        button = CreateButton(id);
    if (!button)
        return;
    button->SetIcon(icon, QSize(-1, -1), true);
    button->SetText(text, QString(), true, QString(), false);
    button->SetToolTip(toolTip);
    ApplyEnabled(m_Buttons[id]);
    ArrangeButtons();
}

void TBaseToolBar::AssignButton(int id, TPushButton* button)
{
    if (!button)
        return;
    int present = id;
    if (FindButtonId(button, present) && present != id)
        TakeOff(m_Buttons.find(present));
    ButtonDetails& details = m_Buttons[id];
    if (details.button && details.button != button)
    {
        details.button->hide();
        details.button->deleteLater();
    }
    details.button = button;
    details.visible = true;
    details.enabled = !button->testAttribute(Qt::WA_ForceDisabled);
    if (button->parentWidget() != this)
        button->setParent(this);
    InsertIntoOrderList(id);
    ApplyEnabled(m_Buttons[id]);
    ArrangeButtons();
}

void TBaseToolBar::RemoveButton(int id, bool deleteButton)
{
    auto const position = m_Buttons.find(id);
    if (position == m_Buttons.end())
        return;
    if (deleteButton)
    {
        RemoveButton(position);
        return;
    }
    TPushButton* const button = position->button;
    if (button && button->parentWidget() == this)
        button->hide();
    TakeOff(position);
    ArrangeButtons();
}

void TBaseToolBar::RemoveButton(QMap<int, ButtonDetails>::iterator position)
{
    if (TPushButton* const button = position->button)
    {
        button->hide();
        button->deleteLater();
    }
    TakeOff(position);
    ArrangeButtons();
}

void TBaseToolBar::TakeOff(QMap<int, ButtonDetails>::iterator position)
{
    m_Order.removeAll(position.key());
    m_Buttons.erase(position);
}

int TBaseToolBar::GetNumberOfButtons()
{
    return m_Buttons.size();
}

int TBaseToolBar::GetNumberOfVisibleButtons()
{
    return int(std::count_if(m_Buttons.cbegin(), m_Buttons.cend(),
                             [](ButtonDetails const& details) { return details.button && details.visible; }));
}

TPushButton* TBaseToolBar::GetButton(int id)
{
    return m_Buttons.value(id).button;
}

void TBaseToolBar::SetButtonVisibility(int id, bool visible)
{
    auto const position = m_Buttons.find(id);
    if (position == m_Buttons.end())
        return;
    position->visible = visible;
    ArrangeButtons();
}

bool TBaseToolBar::IsButtonVisible(int id)
{
    return m_Buttons.value(id).visible;
}

void TBaseToolBar::OnMMIHighlightChild(KVN::MMICapableWidget* child)
{
    QWidget* const widget = child ? child->Widget() : nullptr;
    if (!m_DragEnabled || !widget)
        return;
    QRect const rect = child->GetMMIHighlightRect(widget->parentWidget());
    int const start = Along(rect.topLeft());
    int const end = start + (IsHorizontal() ? rect.width() : rect.height());
    if (start < 0)
        dragButtons(-start);
    else if (end > Length())
        dragButtons(Length() - end);
}

bool TBaseToolBar::IsMMIChildNavigatable(KVN::MMICapableWidget*) const
{
    return true;
}

void TBaseToolBar::SetDragSettings(bool enabled, bool needThreshold, bool snap, bool inertia, bool clamp)
{
    m_DragEnabled = enabled;
    m_NeedThreshold = needThreshold;
    m_Snap = snap;
    m_Inertia = inertia;
    m_Clamp = clamp;
    if (m_DragEnabled)
        updateScrollIndicators();
    else
        HideIndicators();
}

void TBaseToolBar::SetUserResizeButtons(bool resize)
{
    m_UserResizeButtons = resize;
}

QSharedPointer<QPixmap> TBaseToolBar::GetBackground() const
{
    return m_Background;
}

void TBaseToolBar::SetBackground(QSharedPointer<QPixmap> const& background)
{
    if (background == m_Background)
        return;
    m_Background = background;
    update();
}

void TBaseToolBar::SetBackgroundOffset(int x, int y)
{
    QPoint const position(x, y);
    if (position == m_BackgroundPosition)
        return;
    m_BackgroundPosition = position;
    update();
}

void TBaseToolBar::SetScrollIndicators(QString const& upFile, QString const& downFile)
{
    m_UpIndicator->setPixmap(QPixmap(upFile));
    m_DownIndicator->setPixmap(QPixmap(downFile));
}

int TBaseToolBar::GetButtonOffset() const
{
    return m_ButtonOffset;
}

int TBaseToolBar::GetButtonGap() const
{
    return m_Gap;
}

void TBaseToolBar::SetButtonEnabled(int id, bool enabled)
{
    auto const position = m_Buttons.find(id);
    if (position == m_Buttons.end())
        return;
    position->enabled = enabled;
    ApplyEnabled(*position);
}

bool TBaseToolBar::IsButtonEnabled(int id) const
{
    auto const position = m_Buttons.constFind(id);
    return position != m_Buttons.constEnd() && position->enabled;
}

void TBaseToolBar::ApplyEnabled(ButtonDetails const& details)
{
    if (details.button)
        details.button->setEnabled(m_ToolBarEnabled && details.enabled);
}

// Disabling a button that a finger holds releases it, and a slot may take buttons off or delete the bar.
void TBaseToolBar::ApplyEnabledToAll()
{
    QPointer<TBaseToolBar> const self(this);
    QList<int> const ids = m_Buttons.keys();
    for (int const id : ids)
    {
        if (!self)
            return;
        ApplyEnabled(m_Buttons.value(id));
    }
}

void TBaseToolBar::SetButtonWidth(int id, int width)
{
    if (id < 0)
        return;
    if (TPushButton* const button = GetButton(id))
        button->setFixedWidth(qMax(0, width));
}

bool TBaseToolBar::FindButtonId(TPushButton* button, int& id) const
{
    for (auto position = m_Buttons.cbegin(); position != m_Buttons.cend(); ++position)
    {
        if (button && position->button == button)
        {
            id = position.key();
            return true;
        }
    }
    return false;
}

void TBaseToolBar::DisableToolBar()
{
    m_ToolBarEnabled = false;
    ApplyEnabledToAll();
}

void TBaseToolBar::EnableToolBar()
{
    m_ToolBarEnabled = true;
    ApplyEnabledToAll();
}

void TBaseToolBar::HideToolBar()
{
    hide();
}

void TBaseToolBar::AssignButtonOrder(QList<int> const& order)
{
    m_Order.clear();
    for (int const id : order)
    {
        if (!m_Order.contains(id))
            m_Order.append(id);
    }
    ArrangeButtons();
}

void TBaseToolBar::CheckUserSelectedButtonSize()
{
    int const chosen = UserButtonSize();
    if (m_UserSizeApplied && chosen == m_UserButtonSize)
        return;
    m_UserSizeApplied = true;
    m_UserButtonSize = chosen;
    RepositionButtons();
}

TPushButton* TBaseToolBar::CreateButton(int id)
{
    TPushButton* const button = GenerateButton(id);
    if (!button)
        return nullptr;
    ButtonDetails& details = m_Buttons[id];
    details.button = button;
    details.visible = true;
    InsertIntoOrderList(id);
    return button;
}

void TBaseToolBar::InsertIntoOrderList(int id)
{
    auto const place = std::find_if(m_Order.begin(), m_Order.end(), [id](int other) { return other >= id; });
    if (!m_Order.contains(id))
        m_Order.insert(place, id);
}

void TBaseToolBar::UpdateFixedSize() {}

bool TBaseToolBar::IsHorizontal() const
{
    return m_Layout == TOOLBAR_HORIZONTAL_NEAR || m_Layout == TOOLBAR_HORIZONTAL_FAR;
}

bool TBaseToolBar::IsReversed() const
{
    return m_Layout == TOOLBAR_HORIZONTAL_FAR || m_Layout == TOOLBAR_VERTICAL_FAR;
}

int TBaseToolBar::Along(QPoint const& point) const
{
    return IsHorizontal() ? point.x() : point.y();
}

int TBaseToolBar::Length() const
{
    return IsHorizontal() ? width() : height();
}

void TBaseToolBar::RepositionButtons()
{
    QPointer<TBaseToolBar> const self(this);
    QSize const before = size();
    bool const nested = m_Repositioning;
    m_Repositioning = true;
    m_ButtonSize = ScaledButtonSize();
    ShowCountedButtons();
    int const length = PlaceButtons() + m_ButtonOffset;
    if (m_Fixed)
        UpdateFixedSize();
    else
        FitToButtons(length);
    // Not within the resize that this brought about, in which a slot of dragged() must not delete the bar.
    if (!m_Fixed && !nested)
        dragButtons(0);
    if (!self)
        return;
    m_Repositioning = nested;
    m_IndicatorThickness = IndicatorThickness;
    m_DragThreshold = m_ButtonSize / 2;
    updateScrollIndicators();
    AnchorFarEdge(before);
}

int TBaseToolBar::ScaledButtonSize() const
{
    int const chosen = m_UserResizeButtons ? UserButtonSize() : 0;
    if (chosen == QuarterLarger)
        return int(m_RequestedButtonSize * QuarterLargerFactor);
    if (chosen == HalfLarger)
        return int(m_RequestedButtonSize * HalfLargerFactor);
    return m_RequestedButtonSize;
}

bool TBaseToolBar::IsCounted(ButtonDetails const& details, int counted) const
{
    return details.button && details.visible && (m_MaximumVisible == -1 || counted < m_MaximumVisible);
}

void TBaseToolBar::ShowCountedButtons()
{
    int counted = 0;
    for (int const id : qAsConst(m_Order))
    {
        ButtonDetails const details = m_Buttons.value(id);
        bool const shown = IsCounted(details, counted);
        counted += shown ? 1 : 0;
        if (details.button)
            details.button->setVisible(shown);
    }
    for (auto position = m_Buttons.cbegin(); position != m_Buttons.cend(); ++position)
    {
        if (position->button && !m_Order.contains(position.key()))
            position->button->hide();
    }
}

// Answers the length of all buttons, without the gaps between them.
int TBaseToolBar::PlaceButtons()
{
    int placed = 0;
    for (int i = 0; i < m_Order.size(); ++i)
    {
        int const id = m_Order[IsReversed() ? m_Order.size() - 1 - i : i];
        TPushButton* const button = m_Buttons.value(id).button;
        if (button && button->isVisibleTo(this))
            PlaceButton(button, placed++);
    }
    return placed * m_ButtonSize;
}

void TBaseToolBar::PlaceButton(TPushButton* button, int place)
{
    int const along = (m_Gap + m_ButtonSize) * place + m_ButtonOffset;
    if (IsHorizontal())
    {
        button->move(along, m_PerpOffset);
        button->setFixedSize(m_ButtonSize, height());
    }
    else
    {
        button->move(m_PerpOffset, along);
        button->setFixedSize(width(), m_ButtonSize);
    }
}

void TBaseToolBar::FitToButtons(int length)
{
    if (IsHorizontal())
        setFixedWidth(qMax(0, length));
    else
        setFixedHeight(qMax(0, length));
}

void TBaseToolBar::AnchorFarEdge(QSize const& before)
{
    if (m_Layout == TOOLBAR_HORIZONTAL_FAR && before.width() != width())
        move(x() + before.width() - width(), y());
    else if (m_Layout == TOOLBAR_VERTICAL_FAR && before.height() != height())
        move(x(), y() + before.height() - height());
}

void TBaseToolBar::paintEvent(QPaintEvent*)
{
    CheckUserSelectedButtonSize();
    if (!m_Background || m_Background->isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(m_BackgroundPosition, *m_Background);
}

void TBaseToolBar::resizeEvent(QResizeEvent*)
{
    ArrangeButtons();
}

void TBaseToolBar::mousePressEvent(QMouseEvent* event)
{
    if (!m_DragEnabled)
    {
        QWidget::mousePressEvent(event);
        return;
    }
    m_PressPosition = event->localPos().toPoint();
    m_LastPosition = m_PressPosition;
    RestartDragClock();
    m_Dragging = false;
    m_AccumulatedDrag = 0;
    StopFlick();
    m_DragBlocked = false;
}

void TBaseToolBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_DragEnabled)
        moveFromEvent(event);
    else
        QWidget::mouseMoveEvent(event);
}

void TBaseToolBar::moveFromEvent(QMouseEvent* event)
{
    // A press that another widget kept leaves nothing to measure from.
    if (m_DragBlocked || Along(m_PressPosition) == NoPosition)
        return;
    QPoint const previous = m_LastPosition;
    m_LastPosition = event->localPos().toPoint();
    if (!m_Dragging)
    {
        int const distance = Along(m_LastPosition) - Along(m_PressPosition);
        bool const tooShort = m_NeedThreshold && std::abs(distance) < m_DragThreshold;
        if (tooShort || (m_Clamp && IsAtEndFor(distance)))
            return;
        m_Dragging = true;
        RestartDragClock();
    }
    int const delta = Along(m_LastPosition) - Along(previous);
    int const elapsed = RestartDragClock();
    m_Velocity = elapsed > 0 ? delta / elapsed : 0;
    QPointer<TBaseToolBar> const self(this);
    dragButtons(delta);
    if (self && m_Clamp && IsAtEndFor(delta))
        m_SnapDirection = delta < 0;
}

// Whether the strip cannot follow a move in this direction.
bool TBaseToolBar::IsAtEndFor(int delta) const
{
    return (delta < 0 && !m_MoreAtEnd) || (delta > 0 && !m_MoreAtStart);
}

void TBaseToolBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_DragEnabled)
    {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    int const rested = RestartDragClock();
    if (rested < 1 || rested > LongestFlickMs)
    {
        m_Velocity = 0;
    }
    else if (m_Velocity != 0 && m_Inertia)
    {
        m_InertiaTimer->start(InertiaMs);
        RestartDragClock();
        return;
    }
    m_SnapDirection = false;
    endDrag();
}

void TBaseToolBar::OnAnimateDrag()
{
    qint64 const distance = qint64(RestartDragClock()) * m_Velocity;
    int const delta = int(qBound(qint64(-QWIDGETSIZE_MAX), distance, qint64(QWIDGETSIZE_MAX)));
    QPointer<TBaseToolBar> const self(this);
    dragButtons(delta);
    if (!self || !m_Clamp || !IsAtEndFor(delta))
        return;
    m_SnapDirection = delta < 0;
    endDrag();
}

void TBaseToolBar::endDrag()
{
    m_Dragging = false;
    if (m_Snap && m_MoreAtStart && m_MoreAtEnd)
    {
        QPointer<TBaseToolBar> const self(this);
        dragButtons(SnapDistance());
        if (!self)
            return;
    }
    m_PressPosition = QPoint(NoPosition, NoPosition);
    m_LastPosition = m_PressPosition;
    m_AccumulatedDrag = 0;
    StopFlick();
    m_DragBlocked = true;
}

// From where the strip is to a whole number of buttons from where the press found it.
int TBaseToolBar::SnapDistance() const
{
    int const size = m_RequestedButtonSize;
    if (size <= 0)
        return 0;
    int const half = size / 2;
    int const buttons = (m_AccumulatedDrag < 1 ? m_AccumulatedDrag - half : m_AccumulatedDrag + half) / size;
    int const shift = buttons * size - m_AccumulatedDrag;
    return shift > 0 && m_SnapDirection ? shift - size : shift;
}

void TBaseToolBar::dragButtons(int delta)
{
    m_AccumulatedDrag += delta;
    int const held = HeldToEnds(delta);
    if (held != 0)
    {
        QPoint const shift = IsHorizontal() ? QPoint(held, 0) : QPoint(0, held);
        for (ButtonDetails const& details : qAsConst(m_Buttons))
        {
            if (details.button)
                details.button->move(details.button->pos() + shift);
        }
        QPointer<TBaseToolBar> const self(this);
        Q_EMIT dragged();
        if (!self)
            return;
    }
    updateScrollIndicators();
}

// The part of a movement that leaves no room between the strip and an edge.
int TBaseToolBar::HeldToEnds(int delta) const
{
    bool any = false;
    TSpan const span = SpanOfWanted(any);
    if (!any)
        return 0;
    int const start = span.start + delta;
    int const end = span.end + delta;
    if (start >= 1 && (!IsHorizontal() || end != width()))
        return delta - start;
    if (end <= Length() - 1 && (!IsHorizontal() || start != 0))
        return delta + Length() - end;
    return delta;
}

void TBaseToolBar::Include(TSpan& span, bool& any, TPushButton const* button) const
{
    int const start = Along(button->pos());
    int const end = start + (IsHorizontal() ? button->width() : button->height());
    span = any ? TSpan{qMin(span.start, start), qMax(span.end, end)} : TSpan{start, end};
    any = true;
}

TBaseToolBar::TSpan TBaseToolBar::SpanOfWanted(bool& any) const
{
    TSpan span{0, 0};
    for (ButtonDetails const& details : m_Buttons)
    {
        if (details.button && details.visible)
            Include(span, any, details.button);
    }
    return span;
}

TBaseToolBar::TSpan TBaseToolBar::SpanOfCounted(bool& any) const
{
    TSpan span{0, 0};
    int counted = 0;
    for (int const id : m_Order)
    {
        ButtonDetails const details = m_Buttons.value(id);
        if (!IsCounted(details, counted))
            continue;
        ++counted;
        Include(span, any, details.button);
    }
    return span;
}

void TBaseToolBar::updateScrollIndicators()
{
    if (!m_DragEnabled)
        return;
    m_UpIndicator->raise();
    m_DownIndicator->raise();
    bool any = false;
    TSpan const span = SpanOfCounted(any);
    ShowIndicator(m_UpIndicator, m_MoreAtStart, any && span.start < 0, 0);
    ShowIndicator(m_DownIndicator, m_MoreAtEnd, any && span.end > Length(), Length() - m_IndicatorThickness);
}

void TBaseToolBar::ShowIndicator(QLabel* indicator, bool& more, bool wanted, int place)
{
    more = wanted;
    if (!wanted)
    {
        indicator->hide();
        StopFlick();
        return;
    }
    if (IsHorizontal())
        indicator->setGeometry(place, 0, m_IndicatorThickness, height());
    else
        indicator->setGeometry(0, place, width(), m_IndicatorThickness);
    indicator->show();
    indicator->raise();
}

void TBaseToolBar::HideIndicators()
{
    ShowIndicator(m_UpIndicator, m_MoreAtStart, false, 0);
    ShowIndicator(m_DownIndicator, m_MoreAtEnd, false, 0);
}

void TBaseToolBar::StopFlick()
{
    m_Velocity = 0;
    m_InertiaTimer->stop();
}

// Milliseconds since the last call, 0 at the first.
int TBaseToolBar::RestartDragClock()
{
    qint64 const now = TLocalTime::getCurrentTime();
    qint64 const elapsed = m_DragClock < 0 ? 0 : now - m_DragClock;
    m_DragClock = now;
    return int(qBound(qint64(0), elapsed, qint64(INT_MAX)));
}
