#include "TScrollArea.h"

#include "TVerticalScrollBar.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOption>

#include <cstdlib>
#include <utility>

namespace
{
constexpr int NoPosition = 0x7fffffff;
constexpr int DragThreshold = 40;
constexpr int WheelStep = 30;
constexpr int BarWidth = 33;
// Around a child that is brought into sight.
constexpr int HighlightMargin = 50;

// As in the style sheet.
constexpr int FrameWidth = 2;
constexpr int GroundAlpha = 50;

QString StyleSheet(bool framed)
{
    return framed ? QStringLiteral("QScrollArea {  background-color: rgba(0, 0, 0, 50);  "
                                   "border: 2px solid rgba(90, 90, 90);  border-radius: 2px;}"
                                   "TShadowedLabel { color: white; }")
                  : QStringLiteral("QScrollArea {  background-color: rgba(0, 0, 0, 0);}"
                                   "TShadowedLabel { color: white; }");
}
} // namespace

TScrollArea::TScrollArea(QWidget* parent, bool vertical, bool framed)
    : QScrollArea(parent)
    , m_Vertical(vertical)
    , m_Framed(framed)
    , m_PressX(NoPosition)
    , m_PressY(NoPosition)
{
    setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The base goes on working on the area after scrollContentsBy(), so a slot that deletes the area must not
    // be called from there: the limits are told before the base hears of the value, the movement after.
    QScrollBar* const bar =
        vertical ? new TVerticalScrollBar(this, 0, 0, 0, BarWidth) : new QScrollBar(Qt::Horizontal, this);
    connect(bar, &QScrollBar::valueChanged, this, &TScrollArea::TellLimit);
    if (vertical)
        setVerticalScrollBar(bar);
    else
        setHorizontalScrollBar(bar);
    for (QScrollBar const* const either : {verticalScrollBar(), horizontalScrollBar()})
    {
        connect(either, &QScrollBar::valueChanged, this, &TScrollArea::TellScroll);
        connect(either, &QScrollBar::rangeChanged, this,
                [this, either](int minimum, int maximum)
                { m_LosesValue = either->value() < minimum || either->value() > maximum; });
    }
    if (!framed)
        setFrameStyle(0);
    setStyleSheet(StyleSheet(framed));
    setAutoFillBackground(false);
}

TScrollArea::~TScrollArea() = default;

// The sheet of the frame leaves out the alpha of its border, of which Qt would complain in the log for every
// area.
QString TScrollArea::WellFormedStyleSheet() const
{
    return styleSheet().replace(QLatin1String("rgba(90, 90, 90)"), QLatin1String("rgb(90, 90, 90)"));
}

// A style sheet draws its ground and its border as rounded paths, whole at every step of a page that lets the
// ground through. So the area draws the ground itself, and only within the border and in its own colours
// where nothing else is asked for.
bool TScrollArea::event(QEvent* event)
{
    if (event->type() == QEvent::Paint)
    {
        if (PaintInside(static_cast<QPaintEvent*>(event)->rect()))
            return true;
        PaintStyled();
    }
    bool const handled = QScrollArea::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        setAttribute(Qt::WA_StyledBackground, false);
    return handled;
}

// Whether no other style sheet has a say in it: those of areas around it add a border to one without.
bool TScrollArea::HasOwnGround() const
{
    if (styleSheet() != StyleSheet(m_Framed) || !qApp->styleSheet().isEmpty())
        return false;
    for (QWidget const* widget = parentWidget(); widget; widget = widget->parentWidget())
    {
        QString const sheet = widget->styleSheet();
        if (!sheet.isEmpty() && sheet != StyleSheet(false) && (!m_Framed || sheet != StyleSheet(true)))
            return false;
    }
    return true;
}

bool TScrollArea::PaintInside(QRect const& part)
{
    int const border = m_Framed ? FrameWidth : 0;
    if (!rect().adjusted(border, border, -border, -border).contains(part) || !HasOwnGround())
        return false;
    if (m_Framed)
        QPainter(this).fillRect(part, QColor(0, 0, 0, GroundAlpha));
    return true;
}

void TScrollArea::PaintStyled()
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

void TScrollArea::SetBottomScrollBarMargin(int margin)
{
    if (auto* const bar = qobject_cast<TVerticalScrollBar*>(verticalScrollBar()))
        bar->SetBottomMargin(margin);
}

void TScrollArea::DisableScroll(bool disabled)
{
    m_ScrollDisabled = disabled;
}

QScrollBar* TScrollArea::ActiveBar() const
{
    return m_Vertical ? verticalScrollBar() : horizontalScrollBar();
}

void TScrollArea::HandlePress(QMouseEvent* event)
{
    if (!event)
        return;
    QPoint const position = event->localPos().toPoint();
    m_StartValue = ActiveBar()->value();
    m_PressX = position.x();
    m_PressY = position.y();
    m_Scrolling = false;
    m_Touch.Begin(*viewport(), position);
}

void TScrollArea::mousePressEvent(QMouseEvent* event)
{
    HandlePress(event);
    QScrollArea::mousePressEvent(event);
}

void TScrollArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    HandlePress(event);
    QScrollArea::mouseDoubleClickEvent(event);
}

// Whether the event belongs to a drag. An area around this one gets only those that do not.
bool TScrollArea::Follows(QMouseEvent const* event)
{
    if (m_ScrollDisabled || !m_Touch.IsDown())
        return false;
    QPoint const position = event->localPos().toPoint();
    int const distance = (m_Vertical ? position.y() : position.x()) - ActivePress();
    if (ActivePress() != NoPosition && std::abs(distance) > DragThreshold)
        m_Scrolling = true;
    return m_Scrolling;
}

void TScrollArea::mouseMoveEvent(QMouseEvent* event)
{
    if (!Follows(event))
    {
        QScrollArea::mouseMoveEvent(event);
        return;
    }
    event->accept();
    QPoint const position = event->localPos().toPoint();
    ActiveBar()->setValue(ActivePress() + m_StartValue - (m_Vertical ? position.y() : position.x()));
}

void TScrollArea::mouseReleaseEvent(QMouseEvent* event)
{
    m_PressX = NoPosition;
    m_PressY = NoPosition;
    QScrollArea::mouseReleaseEvent(event);
    QPoint const before = widget() ? widget()->pos() : QPoint();
    ForgetPress();
    if (!widget() || widget()->pos() == before)
        return;
    QPointer<TScrollArea> const self(this);
    Q_EMIT Scroll();
    // Qt would look for the next one to offer the lift to through an area that is gone.
    if (!self)
        event->accept();
}

void TScrollArea::ForgetPress()
{
    m_PressX = NoPosition;
    m_PressY = NoPosition;
    m_Scrolling = true;
    m_Touch.End();
    // The bar may have moved while the content had to stand still.
    QScrollArea::scrollContentsBy(0, 0);
}

// The release of a press never comes to an area that went away beneath the finger.
void TScrollArea::hideEvent(QHideEvent* event)
{
    QScrollArea::hideEvent(event);
    ForgetPress();
}

void TScrollArea::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        ForgetPress();
}

void TScrollArea::TellLimit(int value)
{
    if (m_Touch.IsLost())
        ForgetPress();
    if (!m_Scrolling || ActivePress() == NoPosition)
        return;
    if (value == ActiveBar()->maximum())
        Tell(&TScrollArea::ScrollAreaMaxLimit, m_LosesValue || m_BringsIntoSight);
    else if (value == ActiveBar()->minimum())
        Tell(&TScrollArea::ScrollAreaMinLimit, m_LosesValue || m_BringsIntoSight);
}

// Not at once where the bar, the base or the page are in the middle of work that would not survive a slot
// that deletes the area.
void TScrollArea::Tell(void (TScrollArea::*signal)(), bool later)
{
    QMetaObject::invokeMethod(this, signal, later ? Qt::QueuedConnection : Qt::DirectConnection);
}

void TScrollArea::scrollContentsBy(int dx, int dy)
{
    if (m_Touch.IsLost())
        ForgetPress();
    if (m_Scrolling)
        QScrollArea::scrollContentsBy(dx, dy);
}

void TScrollArea::TellScroll()
{
    bool const later = std::exchange(m_LosesValue, false);
    if (m_Scrolling && m_BringsIntoSight)
        ++m_ScrollsToTell;
    else if (m_Scrolling)
        Tell(&TScrollArea::Scroll, later);
}

int TScrollArea::heightForWidth(int width) const
{
    int const frame = 2 * frameWidth();
    return widget() ? widget()->heightForWidth(width - frame) + frame : QScrollArea::heightForWidth(width);
}

void TScrollArea::OnMMIWheelLeft()
{
    Turn(-WheelStep);
}

void TScrollArea::OnMMIWheelRight()
{
    Turn(WheelStep);
}

void TScrollArea::Turn(int distance)
{
    if (!widget())
        return;
    QScrollBar* bar = nullptr;
    if (m_Vertical && widget()->height() > viewport()->height())
        bar = verticalScrollBar();
    else if (widget()->width() > viewport()->width())
        bar = horizontalScrollBar();
    if (bar)
        bar->setValue(bar->value() + distance);
}

void TScrollArea::OnMMIHighlightChild(KVN::MMICapableWidget* child)
{
    QWidget* const childWidget = child ? child->Widget() : nullptr;
    if (!widget() || !childWidget)
        return;
    // The base sets one bar after the other, and a slot may delete the area.
    m_BringsIntoSight = true;
    ensureWidgetVisible(childWidget, HighlightMargin, HighlightMargin);
    m_BringsIntoSight = false;
    QPointer<TScrollArea> const self(this);
    for (int scrolls = std::exchange(m_ScrollsToTell, 0); self && scrolls > 0; --scrolls)
        Q_EMIT Scroll();
}

EMMIWidgetBehaviour TScrollArea::GetMMIBehaviour()
{
    bool const fits =
        !widget() || (widget()->width() <= viewport()->width() && widget()->height() <= viewport()->height());
    return fits ? MMI_TRANSPARENT : MMICapableWidget::GetMMIBehaviour();
}

bool TScrollArea::IsMMIChildNavigatable(KVN::MMICapableWidget*) const
{
    return true;
}
