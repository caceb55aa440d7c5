#include "TMMIHighlightWidget.h"

#include <QPainter>
#include <QPen>

namespace
{
struct TOutline
{
    int width;
    int alpha;
};

// From the widest and faintest to the line itself.
constexpr TOutline OUTLINES[] = {{16, 20}, {10, 50}, {6, 120}, {3, 200}};
constexpr int VEIL_ALPHA = 15;

QPen PenOf(TOutline const& outline, QColor colour)
{
    colour.setAlpha(outline.alpha);
    return QPen(QBrush(colour), outline.width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}
} // namespace

TMMIHighlightWidget::TMMIHighlightWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QColor TMMIHighlightWidget::GetColour() const
{
    return m_Colour;
}

void TMMIHighlightWidget::SetColour(QColor const& colour)
{
    m_Colour = colour;
    update();
}

void TMMIHighlightWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setBrush(Qt::NoBrush);
    for (TOutline const& outline : OUTLINES)
    {
        painter.setPen(PenOf(outline, m_Colour));
        painter.drawRect(0, 0, width() - 1, height() - 1);
    }
    painter.fillRect(rect(), QColor(255, 255, 255, VEIL_ALPHA));
}
