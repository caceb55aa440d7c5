#include "TTextLines.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace KVN
{
namespace
{
constexpr QChar Ellipsis(0x2026);
// More characters than one for each pixel are never visible in a line; the surplus is for those without a
// width.
constexpr int WidthlessCharacters = 64;
// What is laid out at once: some screens of lines, but little enough for any mixture of scripts.
constexpr int PieceLength = 2048;
// A line is broken here at the latest, as nothing that has a width is so long.
constexpr int LongestLine = 8192;

bool IsLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QLatin1Char('\v') || c == QLatin1Char('\f') ||
           c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool IsControl(QChar c)
{
    return c.unicode() < 0x20 || (c.unicode() >= 0x7f && c.unicode() < 0xa0) || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator || c == QChar::ObjectReplacementCharacter;
}

// The blank or line break that a control character is drawn as; null for none.
QChar Replacement(QChar c, TTextLines::EWrap wrap)
{
    if (IsLineEnd(c))
        return wrap == TTextLines::SINGLE_LINE ? QChar(QLatin1Char(' ')) : QChar(QChar::LineSeparator);
    return c == QLatin1Char('\t') ? QChar(QLatin1Char(' ')) : QChar();
}

QTextOption Option(TTextLines::EWrap wrap, bool rightToLeft)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(wrap == TTextLines::WORD_WRAP ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                                     : QTextOption::NoWrap);
    return option;
}
// Every line of \a text by itself cut to \a maxLength.
QString CutLines(QString const& text, int maxLength)
{
    QStringList lines = text.split(QChar::LineSeparator);
    for (QString& line : lines)
        line = TTextLines::Cut(line, maxLength);
    return lines.join(QChar::LineSeparator);
}

// What of \a text can be seen in lines of \a width.
QString Visible(QString const& text, int width, TTextLines::EWrap wrap)
{
    QString const drawable = TTextLines::Drawable(text, wrap);
    return wrap == TTextLines::LINE_ENDS ? CutLines(drawable, TTextLines::LongestVisible(width)) : drawable;
}
} // namespace

TTextLines::TTextLines(QString const& text, QFont const& font, int width, EWrap wrap, int maxLines)
    : m_Text(Visible(text, width, wrap))
    , m_Font(font)
    , m_Wrap(wrap)
    , m_Width(width)
    , m_LineHeight(LineHeight(font))
    , m_Ascent(QFontMetrics(font).ascent())
{
    BreakLines(maxLines);
}

TTextLines::~TTextLines() = default;

int TTextLines::LineHeight(QFont const& font)
{
    return QFontMetrics(font).height();
}

QString TTextLines::Drawable(QString const& text, EWrap wrap)
{
    auto const firstControl = std::find_if(text.cbegin(), text.cend(), IsControl);
    if (firstControl == text.cend())
        return text;
    QString drawable;
    drawable.reserve(text.size());
    for (QChar const c : text)
    {
        QChar const shown = IsControl(c) ? Replacement(c, wrap) : c;
        if (!shown.isNull())
            drawable += shown;
    }
    // A line end at the very end closes the last line, it does not open another one.
    while (drawable.endsWith(QChar::LineSeparator))
        drawable.chop(1);
    return drawable;
}

// A layout takes time by the square of its length, so a long text is broken piece by piece. The last line of
// a piece may go on in the next one, which therefore begins with it.
void TTextLines::BreakLines(int maxLines)
{
    int length = m_Wrap == SINGLE_LINE ? m_Text.size() : PieceLength;
    while (Count() < maxLines && m_End < m_Text.size())
    {
        std::vector<TLine> piece = BreakPiece(m_End, length, maxLines - Count());
        TLine const& last = piece.back();
        int const end = last.start + last.line.textLength();
        bool const isCut = m_End + length < m_Text.size() && end == m_End + length;
        if (isCut && piece.size() == 1 && length < LongestLine)
        {
            length = LongestLine;
            continue;
        }
        bool const begunAnew = isCut && piece.size() > 1;
        m_End = begunAnew ? last.start : end;
        if (begunAnew)
            piece.pop_back();
        m_Lines.insert(m_Lines.end(), piece.begin(), piece.end());
        length = PieceLength;
    }
}

std::vector<TTextLines::TLine> TTextLines::BreakPiece(int from, int length, int maxLines)
{
    m_Layouts.push_back(std::make_unique<QTextLayout>(m_Text.mid(from, length), m_Font));
    QTextLayout& layout = *m_Layouts.back();
    // Without the cache the text would be shaped a second time when it is drawn.
    layout.setCacheEnabled(true);
    layout.setTextOption(Option(m_Wrap, m_Text.isRightToLeft()));
    layout.beginLayout();
    std::vector<TLine> lines;
    while (int(lines.size()) < maxLines)
    {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_Width);
        lines.push_back({line, from + line.textStart()});
    }
    layout.endLayout();
    return lines;
}

int TTextLines::Top(int height, Qt::Alignment alignment) const
{
    int const free = height - Height();
    if (alignment & Qt::AlignVCenter && (free >= 0 || Count() == 1))
        return free / 2;
    return alignment & Qt::AlignBottom ? qMax(0, free) : 0;
}

int TTextLines::NaturalWidth() const
{
    qreal widest = 0.0;
    for (TLine const& line : m_Lines)
        widest = qMax(widest, line.line.naturalTextWidth());
    return int(std::ceil(widest));
}

QString TTextLines::ElidedLastLine() const
{
    int const from = m_Lines.back().start;
    int const lineEnd = m_Text.indexOf(QChar::LineSeparator, from);
    QString rest = m_Text.mid(from, lineEnd < 0 ? -1 : lineEnd - from);
    if (lineEnd >= 0)
        rest += Ellipsis;
    return QFontMetrics(m_Font).elidedText(Cut(rest, LongestVisible(m_Width)), Qt::ElideRight, m_Width);
}

int TTextLines::LongestVisible(int width)
{
    return width + WidthlessCharacters;
}

QString TTextLines::Cut(QString const& text, int maxLength)
{
    if (text.size() <= maxLength)
        return text;
    bool const splitsPair = maxLength > 0 && text.at(maxLength - 1).isHighSurrogate();
    return text.left(splitsPair ? maxLength - 1 : maxLength) + Ellipsis;
}

int TTextLines::LineLeft(QTextLine const& line, Qt::Alignment alignment) const
{
    int const free = m_Width - int(std::ceil(line.naturalTextWidth()));
    if (free < 0)
        return m_Text.isRightToLeft() ? free : 0;
    if (alignment & Qt::AlignHCenter)
        return free / 2;
    return alignment & Qt::AlignRight ? free : 0;
}

void TTextLines::DrawLine(QPainter& painter, int index, int top, Qt::Alignment alignment) const
{
    QTextLine const line = m_Lines[std::size_t(index)].line;
    qreal const left = LineLeft(line, alignment) - line.x();
    line.draw(&painter, QPointF(left, top + m_Ascent - line.ascent() - line.y()));
}
} // namespace KVN
