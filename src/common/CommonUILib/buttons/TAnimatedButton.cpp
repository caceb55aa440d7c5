#include "TAnimatedButton.h"

#include <QTimer>

TAnimatedButton::TAnimatedButton(QWidget* parent, int intervalMs, int id)
    : TPushButton(parent, id, QString())
    , m_Timer(new QTimer(this))
    , m_Interval(qMax(1, intervalMs))
{
}

void TAnimatedButton::paintEvent(QPaintEvent* event)
{
    TPushButton::paintEvent(event);
}

void TAnimatedButton::showEvent(QShowEvent* event)
{
    TPushButton::showEvent(event);
    m_Timer->start(m_Interval);
}

void TAnimatedButton::hideEvent(QHideEvent* event)
{
    m_Timer->stop();
    TPushButton::hideEvent(event);
}
