#include "RenderUtils.h"

#include "TLruCache.h"
#include "TNinePatch.h"
#include "TTextLines.h"
#include "TTextPicture.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>

#include <climits>
#include <cmath>
#include <memory>

namespace KVN
{
namespace
{
constexpr qint64 MaxPictureBytes = 4 * 1024 * 1024;
constexpr std::size_t MaxPictures = 2048;
constexpr qint64 MaxHeightBytes = 1024 * 1024;
constexpr std::size_t MaxHeights = 1024;
// What an entry of a cache takes besides its text and its pixels, roughly.
constexpr qint64 EntryBytes = 256;

constexpr int LargestFontSize = 512;
// A text beyond this is longer than anything that is read on a screen; its height is that of this many
// characters.
constexpr int LongestMeasuredText = 1 << 17;

// A text beyond this is kept as it was laid out, so that it is not laid out anew to be drawn.
constexpr int LongText = 1024;
// What the layout of a character takes, roughly; the longest text that is measured can just be kept.
constexpr qint64 LayoutBytesOfCharacter = 64;
constexpr qint64 MaxLayoutBytes = LayoutBytesOfCharacter * (LongestMeasuredText + LongText);
constexpr std::size_t MaxLayouts = 64;
// A larger rectangle is drawn line by line, since its picture would drive all others from the cache.
constexpr qint64 LargestPictureBytes = MaxPictureBytes / 4;

constexpr int HashedText = 256;

/// All that the lines of a text depend on.
struct TLinesKey
{
    QString text;
    QFont font;
    int width;
    TTextLines::EWrap wrap;

    friend bool operator==(TLinesKey const& left, TLinesKey const& right)
    {
        return left.width == right.width && left.wrap == right.wrap && left.text == right.text &&
               left.font == right.font;
    }
    friend uint qHash(TLinesKey const& key, uint seed = 0)
    {
        // Of a giant text the beginning must do: it is asked for at every step of a scroll.
        return ::qHash(key.text.leftRef(HashedText), seed) ^ uint(key.text.size()) ^ uint(key.width) << 16;
    }
};

using TSharedLines = std::shared_ptr<TTextLines const>;

struct TCaches
{
    // Fonts must not outlive the application that loaded them.
    TCaches() { qAddPostRoutine(&RenderUtils::ClearTextCache); }

    TLruCache<TTextRequest, TTextPicture> pictures{MaxPictureBytes, MaxPictures};
    TLruCache<TLinesKey, int> heights{MaxHeightBytes, MaxHeights};
    TLruCache<TLinesKey, TSharedLines> layouts{MaxLayoutBytes, MaxLayouts};
};

TCaches& Caches()
{
    static TCaches caches;
    return caches;
}

qint64 TextBytes(QString const& text)
{
    return EntryBytes + text.size() * qint64(sizeof(QChar));
}

void DrawText(QPainter* painter, QPoint const& place, TTextRequest const& request)
{
    auto& pictures = Caches().pictures;
    if (TTextPicture const* const kept = pictures.Find(request))
    {
        if (!kept->image.isNull())
            painter->drawImage(place + kept->offset, kept->image);
        return;
    }
    TTextPicture const made = TTextPicture::Make(request);
    pictures.Insert(request, made, TextBytes(request.text) + made.image.sizeInBytes());
    if (!made.image.isNull())
        painter->drawImage(place + made.offset, made.image);
}

TSharedLines LayOut(TLinesKey const& key)
{
    auto& layouts = Caches().layouts;
    if (TSharedLines const* const kept = layouts.Find(key))
        return *kept;
    auto lines =
        std::make_shared<TTextLines const>(TTextLines::Cut(key.text, LongestMeasuredText), key.font,
                                           qMin(key.width, TTextPicture::LargestSide), key.wrap, INT_MAX);
    if (key.text.size() > LongText)
        layouts.Insert(key, lines,
                       TextBytes(key.text) +
                           qMin(key.text.size(), LongestMeasuredText) * LayoutBytesOfCharacter);
    return lines;
}

/// The part of a high text that can be seen.
class TVisibleLines
{
public:
    TVisibleLines(QPainter* painter, QRect const& rect, TTextLines const& lines, Qt::Alignment alignment)
        : m_Painter(painter)
        , m_Origin(rect.topLeft())
        , m_Lines(lines)
        , m_Alignment(alignment)
        , m_Top(lines.Top(rect.height(), alignment))
    {
        QRect const seen =
            painter->hasClipping() ? rect.intersected(painter->clipBoundingRect().toAlignedRect()) : rect;
        // Glyphs may reach a little beyond their line.
        m_First = qMax(0, LineAt(seen.top()) - 1);
        m_Last = qMin(lines.Count() - 1, LineAt(seen.bottom()) + 1);
    }

    void Draw(QColor const& colour, int shift) const
    {
        m_Painter->save();
        m_Painter->translate(m_Origin + QPoint(shift, shift));
        m_Painter->setPen(colour);
        for (int i = m_First; i <= m_Last; ++i)
            m_Lines.DrawLine(*m_Painter, i, m_Top + i * m_Lines.LineHeight(), m_Alignment);
        m_Painter->restore();
    }

private:
    int LineAt(int y) const { return (y - m_Origin.y() - m_Top) / m_Lines.LineHeight(); }

    QPainter* m_Painter;
    QPoint m_Origin;
    TTextLines const& m_Lines;
    Qt::Alignment m_Alignment;
    int m_Top;
    int m_First = 0;
    int m_Last = -1;
};

void DrawLines(QPainter* painter, QRect const& rect, TTextRequest const& request)
{
    TTextLines::EWrap const wrap =
        request.options & TTextRequest::LINE_ENDS ? TTextLines::LINE_ENDS : TTextLines::WORD_WRAP;
    QFont font = request.font;
    font.setPixelSize(request.size);
    TSharedLines const lines = LayOut({request.text, font, rect.width(), wrap});
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    TVisibleLines const visible(painter, rect, *lines, Qt::Alignment(request.alignment));
    QColor const colour = QColor::fromRgba(request.colour);
    if (request.options & TTextRequest::SHADOW)
        visible.Draw(QColor(0, 0, 0, colour.alpha()), 1);
    visible.Draw(colour, 0);
    painter->restore();
}

bool CanDraw(QPainter const* painter, QRect const& rect)
{
    return painter && painter->isActive() && !rect.isEmpty();
}

bool ShowsNothing(QString const& text, QColor const& colour)
{
    return text.isEmpty() || !colour.isValid() || colour.alpha() == 0;
}

quint32 Option(bool wanted, TTextRequest::EOption option)
{
    return wanted ? quint32(option) : 0U;
}

TTextRequest Request(QString const& text, QFont const& font, QSize const& area, int size, int minSize,
                     QColor const& colour)
{
    TTextRequest request;
    request.text = text;
    request.font = font;
    request.area = area;
    request.size = qBound(1, size, LargestFontSize);
    request.minSize = qBound(1, minSize, request.size);
    request.colour = colour.rgba();
    return request;
}

void Fill(QPainter* painter, int x, int y, int width, int height, QColor const& colour)
{
    if (width > 0 && height > 0 && colour.isValid())
        painter->fillRect(x, y, width, height, colour);
}

// One pixel wide; no pixel is drawn twice, since the colours may be translucent. The far sides own their
// corners.
void DrawFrame(QPainter* painter, QRect const& rect, QColor const& near, QColor const& far)
{
    if (rect.height() > 1)
        Fill(painter, rect.left(), rect.top(), rect.width() - 1, 1, near);
    if (rect.width() > 1)
        Fill(painter, rect.left(), rect.top() + 1, 1, rect.height() - 2, near);
    Fill(painter, rect.right(), rect.top(), 1, rect.height(), far);
    Fill(painter, rect.left(), rect.bottom(), rect.width() - 1, 1, far);
}

int FarMargin(int extent, int near, int last)
{
    int const far = extent - 1 - last;
    return far < 0 ? near : qMin(near, far);
}
} // namespace

int RenderUtils::GetTextHeight(QString const& text, QFont const& font, int width)
{
    return GetTextHeight(text, font, width, true);
}

int RenderUtils::GetTextHeight(QString const& text, QFont const& font, int width, bool wrap)
{
    if (text.isEmpty() || width < 1)
        return TTextLines::LineHeight(font);
    TLinesKey const key{text, font, width, wrap ? TTextLines::WORD_WRAP : TTextLines::LINE_ENDS};
    auto& heights = Caches().heights;
    if (int const* const known = heights.Find(key))
        return *known;
    TSharedLines const lines = LayOut(key);
    int const height = qMax(1, lines->Count()) * lines->LineHeight();
    heights.Insert(key, height, TextBytes(text));
    return height;
}

int RenderUtils::GetTextWidth(QString const& text, QFont const& font)
{
    QString const cut = TTextLines::Cut(text, TTextLines::LongestVisible(TTextPicture::LargestSide));
    QString const drawable = TTextLines::Drawable(cut, TTextLines::SINGLE_LINE);
    return int(std::ceil(QFontMetricsF(font).horizontalAdvance(drawable)));
}

void RenderUtils::RenderText(QPainter* painter, QRect const& rect, int flags, QTextOption::WrapMode wrap,
                             QString const& text, int size, QColor const& color, bool bold, bool shadow,
                             QFont const& font)
{
    if (!CanDraw(painter, rect) || ShowsNothing(text, color))
        return;
    TTextRequest request = Request(text, font, rect.size(), size, size, color);
    if (bold)
        request.font.setBold(true);
    bool const breaks = wrap != QTextOption::NoWrap && wrap != QTextOption::ManualWrap;
    request.alignment = flags & int(Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask);
    request.options = TTextRequest::ANTIALIAS | (breaks ? TTextRequest::WRAP : TTextRequest::LINE_ENDS) |
                      Option(shadow, TTextRequest::SHADOW);
    if (qint64(rect.width()) * rect.height() * qint64(sizeof(QRgb)) <= LargestPictureBytes)
        DrawText(painter, rect.topLeft(), request);
    else
        DrawLines(painter, rect, request);
}

void RenderUtils::RenderTextInsideRect(QPainter* painter, QRect const& rect, int flags, QString const& text,
                                       int size, int minSize, QColor const& color, bool wrap, bool shrink,
                                       bool elide, bool antialias, bool shadow)
{
    if (!CanDraw(painter, rect) || ShowsNothing(text, color))
        return;
    TTextRequest request = Request(text, painter->font(), rect.size(), size, minSize, color);
    request.alignment = flags & int(Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask);
    request.options = Option(wrap && (flags & Qt::TextWordWrap) != 0, TTextRequest::WRAP) |
                      Option(shrink, TTextRequest::SHRINK) | Option(elide, TTextRequest::ELIDE) |
                      Option(antialias, TTextRequest::ANTIALIAS) | Option(shadow, TTextRequest::SHADOW);
    DrawText(painter, rect.topLeft(), request);
}

void RenderUtils::RenderElidedTextInsideRect(QPainter* painter, QFont const& font, QRect const& rect,
                                             QString const& text, int size, int minSize, QColor const& color,
                                             bool wrap, bool shadow, bool centred)
{
    if (!CanDraw(painter, rect) || ShowsNothing(text, color))
        return;
    TTextRequest request = Request(text, font, rect.size(), size, minSize, color);
    request.alignment = Qt::AlignVCenter | (centred ? Qt::AlignHCenter : Qt::AlignLeft);
    request.options = TTextRequest::SHRINK | TTextRequest::ELIDE | TTextRequest::ANTIALIAS |
                      Option(wrap, TTextRequest::WRAP) | Option(shadow, TTextRequest::SHADOW);
    DrawText(painter, rect.topLeft(), request);
}

void RenderUtils::RenderButton(QPainter* painter, QRect const& rect, QColor const& color, bool frame,
                               QColor const& highlight, QColor const& shadow)
{
    if (!CanDraw(painter, rect))
        return;
    Fill(painter, rect.x(), rect.y(), rect.width(), rect.height(), color);
    if (frame)
        DrawFrame(painter, rect, highlight, shadow);
}

void RenderUtils::RenderSunkenFrame(QPainter* painter, QRect const& rect, QColor const& fill,
                                    QColor const& highlight, QColor const& shadow)
{
    if (!CanDraw(painter, rect))
        return;
    Fill(painter, rect.x(), rect.y(), rect.width(), rect.height(), fill);
    DrawFrame(painter, rect, shadow, highlight);
}

void RenderUtils::RenderScaledBitmap(QPainter* painter, QPixmap const& source, int width, int height,
                                     int left, int top, int right, int bottom)
{
    if (!CanDraw(painter, QRect(0, 0, width, height)) || source.isNull())
        return;
    QMargins const margins(left, top, FarMargin(source.width(), left, right),
                           FarMargin(source.height(), top, bottom));
    painter->drawImage(QPoint(), TNinePatch(source.toImage(), margins).Stretched({width, height}));
}

void RenderUtils::ClearTextCache()
{
    Caches().pictures.Clear();
    Caches().heights.Clear();
    Caches().layouts.Clear();
}
} // namespace KVN
