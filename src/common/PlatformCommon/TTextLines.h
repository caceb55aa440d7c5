#pragma once

#include <QFont>
#include <QTextLayout>

class QColor;
class QPainter;

namespace KVN
{
/// One text in one font, broken into lines of a width. All lines have the same height, whatever fonts stand
/// in for glyphs that the font lacks.
class TTextLines
{
public:
    enum EWrap
    {
        SINGLE_LINE, ///< line ends in the text become blanks
        WORD_WRAP    ///< broken at word ends, a word that is too long anywhere
    };

    /// Lays out no more than \a maxLines lines; HasMore() tells whether some were left.
    TTextLines(QString const& text, QFont const& font, int width, EWrap wrap, int maxLines);

    /// Height of a line in \a font, in pixels.
    static int LineHeight(QFont const& font);

    /// \a text without what cannot be drawn: control characters go, tabs become blanks.
    static QString Drawable(QString const& text, EWrap wrap);

    int Count() const { return m_Layout.lineCount(); }
    bool HasMore() const { return m_HasMore; }
    int LineHeight() const { return m_LineHeight; }
    QFont Font() const { return m_Layout.font(); }
    int Height() const { return Count() * m_LineHeight; }

    /// Does no line reach beyond the width.
    bool FitsWidth() const { return NaturalWidth() <= m_Width; }
    /// Width of the widest line, rounded up.
    int NaturalWidth() const;

    /// The last line as a layout of its own that ends in an ellipsis, as the text goes on after it. Needs a
    /// line.
    QString ElidedLastLine() const;

    /// Draws line \a index with its row's top left corner at (0, \a top), aligned within the width by \a
    /// alignment. A line wider than that begins at its reading side.
    void DrawLine(QPainter& painter, int index, int top, Qt::Alignment alignment) const;

private:
    void BreakLines(EWrap wrap, int maxLines);
    int LineLeft(QTextLine const& line, Qt::Alignment alignment) const;

    QTextLayout m_Layout;
    int m_Width;
    int m_LineHeight;
    int m_Ascent;
    bool m_HasMore = false;
};
} // namespace KVN
