#include "TTextLines.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace KVN
{
namespace
{
constexpr QChar Ellipsis(0x2026);

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
        return wrap == TTextLines::WORD_WRAP ? QChar(QChar::LineSeparator) : QChar(QLatin1Char(' '));
    return c == QLatin1Char('\t') ? QChar(QLatin1Char(' ')) : QChar();
}

QTextOption Option(TTextLines::EWrap wrap)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(wrap == TTextLines::WORD_WRAP ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                                     : QTextOption::NoWrap);
    return option;
}
} // namespace

TTextLines::TTextLines(QString const& text, QFont const& font, int width, EWrap wrap, int maxLines)
    : m_Layout(Drawable(text, wrap), font)
    , m_Width(width)
    , m_LineHeight(LineHeight(font))
    , m_Ascent(QFontMetrics(font).ascent())
{
    // Without the cache the text would be shaped a second time when it is drawn.
    m_Layout.setCacheEnabled(true);
    m_Layout.setTextOption(Option(wrap));
    BreakLines(wrap, maxLines);
}

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

void TTextLines::BreakLines(EWrap wrap, int maxLines)
{
    m_Layout.beginLayout();
    while (m_Layout.lineCount() < maxLines)
    {
        QTextLine line = m_Layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_Width);
    }
    m_Layout.endLayout();
    if (wrap == WORD_WRAP && Count() > 0)
    {
        QTextLine const last = m_Layout.lineAt(Count() - 1);
        m_HasMore = last.textStart() + last.textLength() < m_Layout.text().size();
    }
}

int TTextLines::NaturalWidth() const
{
    qreal widest = 0.0;
    for (int i = 0; i < Count(); ++i)
        widest = qMax(widest, m_Layout.lineAt(i).naturalTextWidth());
    return int(std::ceil(widest));
}

QString TTextLines::ElidedLastLine() const
{
    QString const text = m_Layout.text();
    int const from = m_Layout.lineAt(Count() - 1).textStart();
    int const lineEnd = text.indexOf(QChar::LineSeparator, from);
    QString rest = text.mid(from, lineEnd < 0 ? -1 : lineEnd - from);
    if (lineEnd >= 0)
        rest += Ellipsis;
    return QFontMetrics(m_Layout.font()).elidedText(rest, Qt::ElideRight, m_Width);
}

int TTextLines::LineLeft(QTextLine const& line, Qt::Alignment alignment) const
{
    int const free = m_Width - int(std::ceil(line.naturalTextWidth()));
    if (free < 0)
        return m_Layout.text().isRightToLeft() ? free : 0;
    if (alignment & Qt::AlignHCenter)
        return free / 2;
    return alignment & Qt::AlignRight ? free : 0;
}

void TTextLines::DrawLine(QPainter& painter, int index, int top, Qt::Alignment alignment) const
{
    QTextLine const line = m_Layout.lineAt(index);
    qreal const left = LineLeft(line, alignment) - line.x();
    line.draw(&painter, QPointF(left, top + m_Ascent - line.ascent() - line.y()));
}
} // namespace KVN
