#include "TScrollBar.h"

#include <QPainter>

TScrollBar::~TScrollBar() = default;

// The red stays: who sees it is to put the bar of the look in its place.
void TScrollBar::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    QPainter painter(this);
    painter.setBrush(QColor(255, 0, 0, 255));
    painter.drawRect(rect());
}
