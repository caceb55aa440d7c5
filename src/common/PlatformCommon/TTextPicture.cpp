#include "TTextPicture.h"

#include "TTextLines.h"

#include <QPainter>

#include <memory>

namespace KVN
{
namespace
{
/// Works one request off: picks the size, elides, draws.
class TTextDrawing
{
public:
    explicit TTextDrawing(TTextRequest const& request);

    TTextPicture Draw() const;

private:
    bool Wants(TTextRequest::EOption option) const { return (m_Request.options & option) != 0; }
    QFont FontOfSize(int size) const;
    void LayOut(int size);
    bool Fits() const;
    void Elide();
    int Top() const { return m_Lines->Top(m_Request.area.height(), m_Alignment); }
    QRect Bounds() const;
    void DrawLines(QPainter& painter, QColor const& colour) const;

    TTextRequest const& m_Request;
    Qt::Alignment const m_Alignment;
    QSize const m_Area;
    QString const m_Text;
    TTextLines::EWrap const m_Wrap;
    std::unique_ptr<TTextLines> m_Lines;
    std::unique_ptr<TTextLines> m_LastLine; // stands for the last of the lines when that is elided
};

TTextLines::EWrap Wrap(TTextRequest const& request)
{
    if (request.options & TTextRequest::LINE_ENDS)
        return TTextLines::LINE_ENDS;
    return request.options & TTextRequest::WRAP ? TTextLines::WORD_WRAP : TTextLines::SINGLE_LINE;
}

// A giant text costs no more than a long one when only what could be seen of it is laid out. Line ends are
// counted by the lines themselves.
QString CutForArea(TTextRequest const& request, QSize const& area)
{
    if (request.options & TTextRequest::LINE_ENDS)
        return request.text;
    int const rows = request.options & TTextRequest::WRAP ? area.height() / request.minSize + 2 : 1;
    return TTextLines::Cut(request.text, rows * TTextLines::LongestVisible(area.width()));
}

TTextDrawing::TTextDrawing(TTextRequest const& request)
    : m_Request(request)
    , m_Alignment(request.alignment)
    , m_Area(request.area.boundedTo(QSize(TTextPicture::LargestSide, TTextPicture::LargestSide)))
    , m_Text(CutForArea(request, m_Area))
    , m_Wrap(Wrap(request))
{
    int size = request.size;
    LayOut(size);
    while (Wants(TTextRequest::SHRINK) && size > request.minSize && !Fits())
        LayOut(--size);
    if (Wants(TTextRequest::ELIDE))
        Elide();
}

QFont TTextDrawing::FontOfSize(int size) const
{
    QFont font = m_Request.font;
    font.setPixelSize(size);
    if (!Wants(TTextRequest::ANTIALIAS))
        font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

void TTextDrawing::LayOut(int size)
{
    QFont const font = FontOfSize(size);
    int const lineHeight = TTextLines::LineHeight(font);
    int const whole = m_Area.height() / lineHeight;
    // A text that is cut at the rectangle shows the upper part of the first line that does not fit.
    int const cutLine = Wants(TTextRequest::ELIDE) || m_Area.height() % lineHeight == 0 ? 0 : 1;
    m_Lines = std::make_unique<TTextLines>(m_Text, font, m_Area.width(), m_Wrap, qMax(1, whole + cutLine));
}

bool TTextDrawing::Fits() const
{
    return !m_Lines->HasMore() && m_Lines->Height() <= m_Area.height() && m_Lines->FitsWidth();
}

void TTextDrawing::Elide()
{
    bool const tooWide = m_Wrap == TTextLines::SINGLE_LINE && !m_Lines->FitsWidth();
    if (m_Lines->Count() == 0 || !(m_Lines->HasMore() || tooWide))
        return;
    m_LastLine = std::make_unique<TTextLines>(m_Lines->ElidedLastLine(), m_Lines->Font(), m_Area.width(),
                                              TTextLines::SINGLE_LINE, 1);
}

// Where something may be drawn, in the coordinates of the area: glyphs may reach a little beyond their line.
QRect TTextDrawing::Bounds() const
{
    int const overhang = m_Lines->LineHeight() / 2;
    QRect bounds(0, Top(), m_Area.width(), m_Lines->Height());
    bounds = bounds.marginsAdded({0, overhang, 0, overhang});
    return bounds.intersected(QRect(QPoint(), QSize(m_Area.width(), m_Request.area.height())));
}

void TTextDrawing::DrawLines(QPainter& painter, QColor const& colour) const
{
    painter.setPen(colour);
    int const top = Top();
    int const last = m_Lines->Count() - 1;
    for (int i = 0; i <= last; ++i)
    {
        if (i == last && m_LastLine)
            m_LastLine->DrawLine(painter, 0, top + i * m_Lines->LineHeight(), m_Alignment);
        else
            m_Lines->DrawLine(painter, i, top + i * m_Lines->LineHeight(), m_Alignment);
    }
}

bool IsClear(QRgb const* pixels, int count, int step)
{
    for (int i = 0; i < count; ++i)
    {
        if (pixels[qptrdiff(i) * step] != 0)
            return false;
    }
    return true;
}

// The smallest rectangle of the image outside of which everything is transparent.
QRect InkRect(QImage const& image)
{
    int const stride = image.bytesPerLine() / int(sizeof(QRgb));
    auto const* const pixels = reinterpret_cast<QRgb const*>(image.constBits());
    QRect ink = image.rect();
    auto const rowIsClear = [&](int y) { return IsClear(pixels + qptrdiff(y) * stride, image.width(), 1); };
    while (!ink.isEmpty() && rowIsClear(ink.top()))
        ink.setTop(ink.top() + 1);
    while (!ink.isEmpty() && rowIsClear(ink.bottom()))
        ink.setBottom(ink.bottom() - 1);
    auto const columnIsClear = [&](int x)
    { return IsClear(pixels + qptrdiff(ink.top()) * stride + x, ink.height(), stride); };
    while (!ink.isEmpty() && columnIsClear(ink.left()))
        ink.setLeft(ink.left() + 1);
    while (!ink.isEmpty() && columnIsClear(ink.right()))
        ink.setRight(ink.right() - 1);
    return ink;
}

TTextPicture TTextDrawing::Draw() const
{
    QRect const bounds = Bounds();
    if (bounds.isEmpty() || m_Lines->Count() == 0)
        return {};
    QImage image(bounds.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-bounds.topLeft());
    QColor const colour = QColor::fromRgba(m_Request.colour);
    if (Wants(TTextRequest::SHADOW))
    {
        painter.translate(1, 1);
        DrawLines(painter, QColor(0, 0, 0, colour.alpha()));
        painter.translate(-1, -1);
    }
    DrawLines(painter, colour);
    painter.end();
    QRect const ink = InkRect(image);
    if (ink.isEmpty())
        return {};
    return {image.copy(ink), bounds.topLeft() + ink.topLeft()};
}
} // namespace

TTextPicture TTextPicture::Make(TTextRequest const& request)
{
    return TTextDrawing(request).Draw();
}
} // namespace KVN
