#include "RenderUtils.h"

#include "TLruCache.h"
#include "TNinePatch.h"
#include "TTextLines.h"
#include "TTextPicture.h"

#include <QCoreApplication>
#include <QPainter>

#include <climits>

namespace KVN
{
namespace
{
constexpr qint64 MaxPictureBytes = 4 * 1024 * 1024;
constexpr std::size_t MaxPictures = 2048;
constexpr qint64 MaxHeightBytes = 256 * 1024;
constexpr std::size_t MaxHeights = 1024;
// What an entry of a cache takes besides its text and its pixels, roughly.
constexpr qint64 EntryBytes = 256;

constexpr int LargestFontSize = 512;
// A text beyond this is longer than anything that is read on a screen; its height is that of this many
// characters.
constexpr int LongestMeasuredText = 1 << 17;

struct THeightKey
{
    QString text;
    QFont font;
    int width;

    friend bool operator==(THeightKey const& left, THeightKey const& right)
    {
        return left.width == right.width && left.text == right.text && left.font == right.font;
    }
    friend uint qHash(THeightKey const& key, uint seed = 0)
    {
        return ::qHash(key.text, seed) ^ uint(key.width) << 16;
    }
};

struct TCaches
{
    // Fonts must not outlive the application that loaded them.
    TCaches() { qAddPostRoutine(&RenderUtils::ClearTextCache); }

    TLruCache<TTextRequest, TTextPicture> pictures{MaxPictureBytes, MaxPictures};
    TLruCache<THeightKey, int> heights{MaxHeightBytes, MaxHeights};
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
    if (text.isEmpty() || width < 1)
        return TTextLines::LineHeight(font);
    THeightKey const key{text, font, width};
    auto& heights = Caches().heights;
    if (int const* const known = heights.Find(key))
        return *known;
    TTextLines const lines(TTextLines::Cut(text, LongestMeasuredText), font,
                           qMin(width, TTextPicture::LargestSide), TTextLines::WORD_WRAP, INT_MAX);
    int const height = qMax(1, lines.Count()) * lines.LineHeight();
    heights.Insert(key, height, TextBytes(text));
    return height;
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
}
} // namespace KVN
