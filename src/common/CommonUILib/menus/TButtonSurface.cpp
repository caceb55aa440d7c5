#include "TButtonSurface.h"

#include "MorvanePlatformInterface.h"
#include "TPushButton.h"

#include <QMouseEvent>

namespace
{
void Release(QWidget* widget)
{
    if (auto* const button = qobject_cast<TPushButton*>(widget))
        button->setDown(false);
}
} // namespace

TButtonSurface::TButtonSurface(QWidget* parent, int intervalMs)
    : QWidget(parent)
{
    m_Timer.setSingleShot(true);
    m_Timer.setInterval(qMax(0, intervalMs));
    connect(&m_Timer, &QTimer::timeout, this, &TButtonSurface::OnTimeout);
}

// The buttons die after this part of the surface.
TButtonSurface::~TButtonSurface()
{
    Watch(nullptr);
}

void TButtonSurface::EnableToolTips(bool enable)
{
    if (!enable)
        EndRest();
    m_ToolTipsEnabled = enable;
}

TPushButton* TButtonSurface::GetButtonUnderMouse(QPoint const& position) const
{
    return qobject_cast<TPushButton*>(childAt(position));
}

void TButtonSurface::mousePressEvent(QMouseEvent* event)
{
    TPushButton* const button = GetButtonUnderMouse(event->pos());
    // Of a finger whose release never came. The button that is pressed now has taken the press already.
    if (m_Last != button)
        Release(m_Last);
    ForgetFinger();
    m_IsTouched = true;
    m_Place = mapToGlobal(event->pos());
    m_Current = button;
    m_Last = button;
    Watch(button);
    if (button && m_ToolTipsEnabled)
        m_Timer.start();
    QWidget::mousePressEvent(event);
}

void TButtonSurface::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_IsTouched)
    {
        QWidget::mouseMoveEvent(event);
        return;
    }
    m_Place = mapToGlobal(event->pos());
    SlideTo(GetButtonUnderMouse(event->pos()));
    RefreshToolTip();
    QWidget::mouseMoveEvent(event);
    if (m_Current)
        event->accept();
}

// The button that was pressed first is left to itself, but for being let go of by every move that is not on
// it: within its reach around it, and where its neighbour lies on it, it presses itself again and would be
// clicked beside the one under the finger.
void TButtonSurface::SlideTo(TPushButton* button)
{
    m_Current = button;
    for (QWidget* const left : {m_Last.data(), m_First.data()})
    {
        if (left != button)
            Release(left);
    }
    if (button && button->isEnabled() && m_First != button)
        button->setDown(true);
    m_Last = m_Current;
}

void TButtonSurface::mouseReleaseEvent(QMouseEvent* event)
{
    QPointer<TButtonSurface> const self(this);
    TPushButton* const button = m_IsTouched ? GetButtonUnderMouse(event->pos()) : nullptr;
    if (button && HasComeTo(button, mapToGlobal(event->pos())))
        ClickUnderFinger(button);
    if (!self)
        return;
    LoseFinger();
    QWidget::mouseReleaseEvent(event);
}

bool TButtonSurface::HasComeTo(TPushButton const* button, QPoint const& place) const
{
    return m_First != button && (m_Last == button || m_Place != place);
}

void TButtonSurface::hideEvent(QHideEvent* event)
{
    LoseFinger();
    QWidget::hideEvent(event);
}

// Qt tells nothing more of a finger whose button is gone or cannot be seen.
bool TButtonSurface::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && m_First == watched)
        LoseFinger();
    return QWidget::eventFilter(watched, event);
}

// The button beneath it would stay down, and one that repeats would click for ever.
void TButtonSurface::LoseFinger()
{
    Release(m_Last);
    ForgetFinger();
}

void TButtonSurface::ForgetFinger()
{
    m_IsTouched = false;
    m_Current = nullptr;
    Watch(nullptr);
    m_Last = nullptr;
    EndRest();
}

// In tool-tip mode a tip stays when the finger lifts.
void TButtonSurface::EndRest()
{
    m_Timer.stop();
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (m_HasRested && m_ToolTipsEnabled && platform && !platform->ToolTipVisible())
        platform->HideToolTip();
    m_HasRested = false;
}

void TButtonSurface::Watch(QWidget* button)
{
    if (m_First)
    {
        m_First->removeEventFilter(this);
        disconnect(m_First, &QObject::destroyed, this, &TButtonSurface::LoseFinger);
    }
    m_First = button;
    if (!button)
        return;
    button->installEventFilter(this);
    connect(button, &QObject::destroyed, this, &TButtonSurface::LoseFinger);
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

void TButtonSurface::RefreshToolTip()
{
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (!m_ToolTipsEnabled || !platform || !(m_HasRested || platform->ToolTipVisible()))
        return;
    if (auto* const button = qobject_cast<TPushButton*>(m_Current))
        button->ShowToolTip();
    else
        platform->HideToolTip();
}
