#include "ConsoleText.h"

#include "Metrics.h"
#include "Palette.h"
#include "RenderUtils.h"

#include <QFont>
#include <QPainter>

void ConsoleText::Draw(QPainter* painter, QRect const& rect, int flags, QString const& text, int pixelSize,
                       QColor const& color)
{
    KVN::RenderUtils::RenderTextInsideRect(painter, rect, flags, text, pixelSize, MINIMUM_FONT_SIZE, color,
                                           false, true, true, true, false);
}

int ConsoleText::Width(QString const& text, QFont const& font, int pixelSize)
{
    QFont sized = font;
    sized.setPixelSize(pixelSize);
    return KVN::RenderUtils::GetTextWidth(text, sized);
}

void ConsoleText::DrawSurface(QPainter* painter, QRect const& rect)
{
    painter->fillRect(rect, SurfaceColor());
    painter->fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), LightEdgeColor());
    painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), DarkEdgeColor());
}

QColor ConsoleText::SurfaceColor()
{
    return {38, 41, 46};
}

QColor ConsoleText::LightEdgeColor()
{
    return {73, 75, 79};
}

QColor ConsoleText::DarkEdgeColor()
{
    return {17, 18, 21};
}

QColor ConsoleText::CaptionColor()
{
    return regularLabelTextColor;
}
