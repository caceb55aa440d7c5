#pragma once

#include <QColor>

class QPainter;
class QRect;
class QString;

/// The console's ways with text and surfaces, shared by all of its modules.
namespace ConsoleText
{
/// One line in \a rect, shrunk and then elided where it does not fit. \a flags are Qt alignment flags.
void Draw(QPainter* painter, QRect const& rect, int flags, QString const& text, int pixelSize,
          QColor const& color);

/// An opaque field of the console's surface with a light edge above and a dark one below.
void DrawSurface(QPainter* painter, QRect const& rect);

QColor SurfaceColor();
QColor LightEdgeColor();
QColor DarkEdgeColor();
/// For the name of a value.
QColor CaptionColor();
} // namespace ConsoleText
