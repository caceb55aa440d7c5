#include "TNinePatch.h"

#include <QPainter>

#include <array>

namespace KVN
{
namespace
{
// One third of an axis: where it lies in the source and where in the result.
struct TBand
{
    int from;
    int length;
    int to;
    int stretched;
};

using TBands = std::array<TBand, 3>;

// Makes near and far take up no more than room together, in their proportion.
void Squeeze(int& near, int& far, int room)
{
    if (near + far <= room)
        return;
    qint64 const total = qint64(near) + far;
    near = int((qint64(room) * near + total / 2) / total);
    far = room - near;
}

TBands MakeBands(int source, int near, int far, int target)
{
    int nearTo = near;
    int farTo = far;
    Squeeze(nearTo, farTo, target);
    return {{{0, near, 0, nearTo},
             {near, source - near - far, nearTo, target - nearTo - farTo},
             {source - far, far, target - farTo, farTo}}};
}

// Each patch is scaled alone, so that no neighbour bleeds into it and there are no seams.
void DrawPatch(QPainter& painter, QImage const& image, TBand const& column, TBand const& row)
{
    QSize const size(column.stretched, row.stretched);
    QRect const source(column.from, row.from, column.length, row.length);
    if (size.isEmpty() || source.isEmpty())
        return;
    QPoint const place(column.to, row.to);
    if (size == source.size())
        painter.drawImage(place, image, source);
    else
        painter.drawImage(place,
                          image.copy(source).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
} // namespace

TNinePatch::TNinePatch(QImage const& image, QMargins const& margins)
    : m_Image(Blittable(image))
{
    int left = qMax(0, margins.left());
    int top = qMax(0, margins.top());
    int right = qMax(0, margins.right());
    int bottom = qMax(0, margins.bottom());
    Squeeze(left, right, qMax(0, image.width() - 1));
    Squeeze(top, bottom, qMax(0, image.height() - 1));
    m_Margins = QMargins(left, top, right, bottom);
}

QImage TNinePatch::Stretched(QSize const& size) const
{
    if (size.isEmpty() || m_Image.isNull())
        return {};
    if (size == m_Image.size())
        return m_Image;
    QImage result(size, m_Image.format());
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    TBands const columns = MakeBands(m_Image.width(), m_Margins.left(), m_Margins.right(), size.width());
    TBands const rows = MakeBands(m_Image.height(), m_Margins.top(), m_Margins.bottom(), size.height());
    for (TBand const& row : rows)
    {
        for (TBand const& column : columns)
            DrawPatch(painter, m_Image, column, row);
    }
    return result;
}

QImage TNinePatch::Blittable(QImage const& image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}
} // namespace KVN
