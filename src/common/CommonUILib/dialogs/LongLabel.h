#pragma once

#include <QSize>

class QFont;
class QLabel;

/// What the labels of the toolkit share. A text is drawn in a size in pixels whatever its font was given, and
/// a giant text is measured by other means than a plain label's, which takes time by the square of its
/// length. Private to the room.
namespace LongLabel
{
/// The font of \a label, its size in pixels.
QFont PixelFont(QLabel const& label);

/// True for a text that a plain label must not measure.
bool IsLong(QLabel const& label);

/// The height of the text of \a label in lines of \a width.
int HeightForWidth(QLabel const& label, int width);

/// The size for a long text, roughly: a page of a comfortable width. It is asked for more often than its text
/// is worth being laid out; what needs the exact height asks HeightForWidth().
QSize SizeHint(QLabel const& label);
} // namespace LongLabel
