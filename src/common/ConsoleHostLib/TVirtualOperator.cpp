#include "TVirtualOperator.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

TVirtualOperator::TVirtualOperator(QWidget* screen, TPassTime passTime)
    : m_Screen(screen)
    , m_PassTime(std::move(passTime))
{
}

void TVirtualOperator::Press(QPoint const& point)
{
    if (m_IsDown)
        Release();
    m_Finger = point;
    m_IsDown = true;
    SendMouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
}

void TVirtualOperator::MoveTo(QPoint const& point)
{
    m_Finger = point;
    SendMouse(QEvent::MouseMove, Qt::NoButton, m_IsDown ? Qt::LeftButton : Qt::NoButton);
}

void TVirtualOperator::Release()
{
    if (!m_IsDown)
        return;
    m_IsDown = false;
    SendMouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void TVirtualOperator::Tap(QPoint const& point)
{
    Hold(point, TapTime);
}

bool TVirtualOperator::Tap(QWidget* widget)
{
    if (!m_Screen || !widget || !widget->isVisible() || !m_Screen->isAncestorOf(widget))
        return false;
    QPoint const middle = MiddleOf(widget);
    QWidget* const hit = m_Screen->childAt(middle);
    if (hit != widget && !widget->isAncestorOf(hit))
        return false;
    Tap(middle);
    return true;
}

void TVirtualOperator::Hold(QPoint const& point, int ms)
{
    Press(point);
    Pass(ms);
    Release();
}

void TVirtualOperator::Drag(QVector<QPoint> const& path)
{
    if (path.isEmpty())
        return;
    Press(path.constFirst());
    for (int i = 1; i < path.size(); ++i)
    {
        Pass(StepTime);
        MoveTo(path[i]);
    }
    Pass(StepTime);
    Release();
}

void TVirtualOperator::Drag(QPoint const& from, QPoint const& to, int steps)
{
    QVector<QPoint> path{from};
    for (int i = 1; i <= steps; ++i)
        path.append(from + (to - from) * i / qMax(1, steps));
    Drag(path);
}

void TVirtualOperator::Wheel(int units)
{
    if (!m_Screen)
        return;
    QWheelEvent event(m_Finger, m_Screen->mapToGlobal(m_Finger), QPoint(), QPoint(0, units), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    Send(&event);
}

void TVirtualOperator::Key(Qt::Key key, int holdMs)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    Send(&press);
    Pass(holdMs);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    Send(&release);
}

QPoint TVirtualOperator::MiddleOf(QWidget const* widget) const
{
    return m_Screen ? m_Screen->mapFromGlobal(widget->mapToGlobal(widget->rect().center())) : QPoint();
}

void TVirtualOperator::SendMouse(int type, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    if (!m_Screen)
        return;
    QMouseEvent event(static_cast<QEvent::Type>(type), m_Finger, m_Finger, m_Screen->mapToGlobal(m_Finger),
                      button, buttons, Qt::NoModifier);
    Send(&event);
}

void TVirtualOperator::Send(QEvent* event)
{
    if (m_Screen && m_Screen->windowHandle())
        QCoreApplication::sendEvent(m_Screen->windowHandle(), event);
}

void TVirtualOperator::Pass(int ms)
{
    if (m_PassTime)
        m_PassTime(ms);
}
