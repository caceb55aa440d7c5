#pragma once

#include <QColor>

class QFont;
class QPainter;
class QRect;
class QString;

/// The console's ways with text and surfaces, shared by all of its modules.
namespace ConsoleText
{
/// One line in \a rect, shrunk and then elided where it does not fit. \a flags are Qt alignment flags.
void Draw(QPainter* painter, QRect const& rect, int flags, QString const& text, int pixelSize,
          QColor const& color);

/// How wide that line is where it is not shrunk, in pixels, on a widget with the font \a font.
int Width(QString const& text, QFont const& font, int pixelSize);

/// An opaque field of the console's surface with a light edge above and a dark one below.
void DrawSurface(QPainter* painter, QRect const& rect);

QColor SurfaceColor();
QColor LightEdgeColor();
QColor DarkEdgeColor();
/// For the name of a value.
QColor CaptionColor();
} // namespace ConsoleText
