#include "TSignallingGridLayout.h"

TSignallingGridLayout::TSignallingGridLayout(QWidget* parent)
    : QGridLayout(parent)
{
}

void TSignallingGridLayout::setGeometry(QRect const& rect)
{
    QGridLayout::setGeometry(rect);
    Q_EMIT GeometryChanged();
}
