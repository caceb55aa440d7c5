#include "TButtonSurface.h"

#include "MorvanePlatformInterface.h"
#include "TPushButton.h"

#include <QMouseEvent>

TButtonSurface::TButtonSurface(QWidget* parent, int intervalMs)
    : QWidget(parent)
{
    m_Timer.setSingleShot(true);
    m_Timer.setInterval(qMax(0, intervalMs));
    connect(&m_Timer, &QTimer::timeout, this, &TButtonSurface::OnTimeout);
}

TButtonSurface::~TButtonSurface() = default;

void TButtonSurface::EnableToolTips(bool enable)
{
    m_ToolTipsEnabled = enable;
    if (!enable)
        m_Timer.stop();
}

TPushButton* TButtonSurface::GetButtonUnderMouse(QPoint const& position) const
{
    return qobject_cast<TPushButton*>(childAt(position));
}

void TButtonSurface::mousePressEvent(QMouseEvent* event)
{
    m_IsTouched = true;
    m_Current = GetButtonUnderMouse(event->pos());
    m_First = m_Current;
    m_Last = m_Current;
    if (m_Current && m_ToolTipsEnabled)
        m_Timer.start();
    QWidget::mousePressEvent(event);
}

// The button that was pressed first is left to itself, but for being let go of: within its reach around it
// would be clicked beside the one under the finger.
void TButtonSurface::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_IsTouched)
    {
        QWidget::mouseMoveEvent(event);
        return;
    }
    m_Current = GetButtonUnderMouse(event->pos());
    if (m_Last && m_Last != m_Current)
        m_Last->setDown(false);
    if (m_Current && m_Current->isEnabled() && m_Current != m_First)
        m_Current->setDown(true);
    RefreshToolTip();
    m_Last = m_Current;
    QWidget::mouseMoveEvent(event);
    if (m_Current)
        event->accept();
}

void TButtonSurface::mouseReleaseEvent(QMouseEvent* event)
{
    QPointer<TButtonSurface> const self(this);
    TPushButton* const button = m_IsTouched ? GetButtonUnderMouse(event->pos()) : nullptr;
    if (button && button != m_First)
        ClickUnderFinger(button);
    if (!self)
        return;
    ForgetFinger();
    QWidget::mouseReleaseEvent(event);
}

// A finger that is still down when the surface goes is not heard of again: the button beneath it would stay
// down, and one that repeats would click for ever.
void TButtonSurface::hideEvent(QHideEvent* event)
{
    for (TPushButton* const button : {m_Last.data(), m_Current.data()})
    {
        if (button)
            button->setDown(false);
    }
    ForgetFinger();
    QWidget::hideEvent(event);
}

void TButtonSurface::ForgetFinger()
{
    m_Timer.stop();
    m_IsTouched = false;
    m_Current = nullptr;
    m_First = nullptr;
    m_Last = nullptr;
    RefreshToolTip();
    m_HasRested = false;
}

// One that shows its tool tip instead is not clicked.
void TButtonSurface::ClickUnderFinger(TPushButton* button)
{
    QPointer<TPushButton> const clicked(button);
    if (!button->ToolTipVisible() || button->GetToolTip().isEmpty())
        button->click();
    if (clicked)
        clicked->setDown(false);
}

void TButtonSurface::OnTimeout()
{
    m_HasRested = true;
    RefreshToolTip();
}

// In tool-tip mode a tip stays when the finger lifts.
void TButtonSurface::RefreshToolTip()
{
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (!m_ToolTipsEnabled || !platform)
        return;
    if (m_Current && (m_HasRested || platform->ToolTipVisible()))
        m_Current->ShowToolTip();
    else if (m_HasRested && !platform->ToolTipVisible())
        platform->HideToolTip();
}
