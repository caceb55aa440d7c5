#pragma once

#include <QFont>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

namespace KVN
{
/// All that the look of a text inside a rectangle depends on.
struct TTextRequest
{
    enum EOption : quint32
    {
        WRAP = 1,      ///< more than one line
        SHRINK = 2,    ///< smaller sizes are tried
        ELIDE = 4,     ///< an ellipsis where text is left out
        ANTIALIAS = 8, ///< smooth edges
        SHADOW = 16,   ///< a black copy one pixel down and right
        LINE_ENDS = 32 ///< more than one line, but only where the text has line ends
    };

    QString text;
    QFont font;
    QSize area;          ///< not empty
    int size = 1;        ///< pixel size to begin with, 1 or more
    int minSize = 1;     ///< between 1 and size
    int alignment = 0;   ///< of Qt::Alignment
    quint32 options = 0; ///< of EOption
    QRgb colour = 0;

    friend bool operator==(TTextRequest const& left, TTextRequest const& right)
    {
        return left.size == right.size && left.minSize == right.minSize && left.area == right.area &&
               left.alignment == right.alignment && left.options == right.options &&
               left.colour == right.colour && left.text == right.text && left.font == right.font;
    }

    // The font is left out: it is dear to hash, and texts of one colour, size and area seldom differ in it
    // alone.
    friend uint qHash(TTextRequest const& request, uint seed = 0)
    {
        uint const numbers = uint(request.area.width()) ^ uint(request.area.height()) << 11 ^
                             uint(request.size) << 20 ^ request.options << 26 ^ request.colour;
        return ::qHash(request.text, seed) ^ numbers;
    }
};

/// A text that has been laid out and drawn, ready to be put on the screen.
struct TTextPicture
{
    QImage image;  ///< premultiplied, cut to what can be seen; null for a text that shows nothing
    QPoint offset; ///< of the image within the area

    static TTextPicture Make(TTextRequest const& request);

    /// The pixels that a text is laid out for in either direction at most; screens are smaller.
    static constexpr int LargestSide = 4096;
};
} // namespace KVN
