#pragma once

#include "PlatformCommonExport.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QTextOption>

class QPainter;

namespace KVN
{
/// Text and frame drawing for the whole toolkit. A text is laid out once for its font, rectangle and options
/// and drawn from a bounded cache afterwards. GUI thread only.
///
/// Line ends in a text break it where lines are allowed and are blanks elsewhere; other control characters
/// are not drawn. Sizes of fonts are held to 1 to 512 pixels. Nothing is drawn outside the rectangle, and
/// nothing at all without a painter, for an empty rectangle or in an invalid colour.
class PLATFORMCOMMON_EXPORT RenderUtils
{
public:
    /// Height in pixels of \a text in \a font, wrapped at word ends to \a width and anywhere in a word that
    /// is longer: a whole number of lines, one for an empty text or a width below 1. A rectangle of that
    /// height holds the whole text in the button form.
    static int GetTextHeight(QString const& text, QFont const& font, int width);

    /// As above; with \a wrap false the lines are those that the text itself ends.
    static int GetTextHeight(QString const& text, QFont const& font, int width, bool wrap);

    /// Width in pixels of \a text in a single line of \a font, rounded up: a rectangle of that width holds it
    /// without an ellipsis. Of a text that is longer than any screen is wide, that of its beginning.
    static int GetTextWidth(QString const& text, QFont const& font);

    /// Draws \a text inside \a rect in \a font at pixel size \a size, aligned by \a flags (Qt::Alignment).
    /// It neither shrinks nor ends in an ellipsis: what does not fit is cut at the rectangle, from its first
    /// line on. \a wrap breaks it as GetTextHeight() counts the lines, in whatever mode but
    /// QTextOption::NoWrap and ManualWrap, which break it at its own line ends alone. \a bold makes the font
    /// bold, \a shadow draws a black copy one pixel down and right first. Where the painter has a clip, a
    /// rectangle of any height costs no more than the lines within it, once the text is laid out.
    static void RenderText(QPainter* painter, QRect const& rect, int flags, QTextOption::WrapMode wrap,
                           QString const& text, int size, QColor const& color, bool bold, bool shadow,
                           QFont const& font);

    /// Draws \a text inside \a rect, aligned by \a flags (Qt::Alignment, Qt::TextWordWrap). It starts at
    /// pixel size \a size and shrinks as far as \a minSize until it fits; what does not fit then is elided at
    /// its right end. \a wrap allows several lines when the flags ask for word wrap; \a shrink allows
    /// shrinking; \a elide allows the ellipsis (a text that does not fit is cut at the rectangle otherwise);
    /// \a antialias draws smooth edges; \a shadow draws a black copy one pixel down and right first. Works on
    /// a copy of the painter's font; the painter is left as it was.
    static void RenderTextInsideRect(QPainter* painter, QRect const& rect, int flags, QString const& text,
                                     int size, int minSize, QColor const& color, bool wrap, bool shrink,
                                     bool elide, bool antialias, bool shadow);

    /// The form that buttons use: \a font from pixel size \a size down to \a minSize, as many lines as the
    /// rectangle holds, the last one elided. Vertically centred; horizontally centred with \a centred, else
    /// left. \a wrap allows more than one line, \a shadow draws a dark copy beneath.
    static void RenderElidedTextInsideRect(QPainter* painter, QFont const& font, QRect const& rect,
                                           QString const& text, int size, int minSize, QColor const& color,
                                           bool wrap, bool shadow, bool centred);

    /// A flat button: filled with \a color; with \a frame a one pixel frame in \a highlight above and left
    /// and \a shadow below and right.
    static void RenderButton(QPainter* painter, QRect const& rect, QColor const& color, bool frame,
                             QColor const& highlight, QColor const& shadow);

    /// A sunken field: \a fill, with \a shadow above and left and \a highlight below and right.
    static void RenderSunkenFrame(QPainter* painter, QRect const& rect, QColor const& fill,
                                  QColor const& highlight, QColor const& shadow);

    /// Draws \a source stretched to \a width by \a height at (0, 0). The part from (\a left, \a top) to (\a
    /// right, \a bottom) inclusive stretches, what lies outside keeps its size. The rectangle is made for
    /// standard button art, so the margin at the far side is never taken wider than the one at the near side,
    /// and equals it where the rectangle leaves the image. Margins that do not fit together are squeezed in
    /// proportion. For use at set and resize time, never in a paint event.
    static void RenderScaledBitmap(QPainter* painter, QPixmap const& source, int width, int height, int left,
                                   int top, int right, int bottom);

    /// Forgets all laid out texts; for tests and for a change of fonts.
    static void ClearTextCache();
};
} // namespace KVN
