#include "TSignallingVBoxLayout.h"

TSignallingVBoxLayout::TSignallingVBoxLayout(QWidget* parent)
    : QVBoxLayout(parent)
{
}

void TSignallingVBoxLayout::setGeometry(QRect const& rect)
{
    QVBoxLayout::setGeometry(rect);
    Q_EMIT GeometryChanged();
}
