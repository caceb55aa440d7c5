#pragma once

#include <QFont>
#include <QString>
#include <QTextLine>

#include <memory>
#include <vector>

class QColor;
class QPainter;
class QTextLayout;

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
        LINE_ENDS,   ///< broken at the line ends in the text alone
        WORD_WRAP    ///< broken at word ends too, a word that is too long anywhere
    };

    /// Lays out no more than \a maxLines lines; HasMore() tells whether some were left.
    TTextLines(QString const& text, QFont const& font, int width, EWrap wrap, int maxLines);
    ~TTextLines();
    TTextLines(TTextLines const&) = delete;
    TTextLines& operator=(TTextLines const&) = delete;

    /// Height of a line in \a font, in pixels.
    static int LineHeight(QFont const& font);

    /// \a text without what cannot be drawn: control characters go, tabs become blanks.
    static QString Drawable(QString const& text, EWrap wrap);

    /// The characters of a line of \a width pixels that can be visible at most.
    static int LongestVisible(int width);

    /// \a text cut to \a maxLength, with an ellipsis behind it if something was cut.
    static QString Cut(QString const& text, int maxLength);

    int Count() const { return int(m_Lines.size()); }
    bool HasMore() const { return m_End < m_Text.size(); }
    int LineHeight() const { return m_LineHeight; }
    QFont const& Font() const { return m_Font; }
    int Height() const { return Count() * m_LineHeight; }

    /// Where the first line stands in an area of \a height. Lines that do not fit in begin at the top; a
    /// single one that does not is cut at both sides where it is centred.
    int Top(int height, Qt::Alignment alignment) const;

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
    /// A line of one of the layouts, and where it starts in the whole text.
    struct TLine
    {
        QTextLine line;
        int start;
    };

    void BreakLines(int maxLines);
    std::vector<TLine> BreakPiece(int from, int length, int maxLines);
    int LineLeft(QTextLine const& line, Qt::Alignment alignment) const;

    QString m_Text;
    QFont m_Font;
    EWrap m_Wrap;
    int m_Width;
    int m_LineHeight;
    int m_Ascent;
    int m_End = 0; // of the text that the lines hold
    std::vector<std::unique_ptr<QTextLayout>> m_Layouts;
    std::vector<TLine> m_Lines;
};
} // namespace KVN
