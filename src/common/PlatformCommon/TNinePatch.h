#pragma once

#include <QImage>
#include <QMargins>

namespace KVN
{
/// An image whose margins keep their size when it is stretched, so that corners and borders stay crisp. The
/// part between the margins is never empty: margins that leave nothing of the image are squeezed in
/// proportion.
class TNinePatch
{
public:
    TNinePatch(QImage const& image, QMargins const& margins);

    /// The image at \a size. Margins that do not fit into it together are squeezed in proportion. The format
    /// is RGB32 for an image without transparency, premultiplied ARGB32 else. Null for an empty size.
    QImage Stretched(QSize const& size) const;

    /// \a image in a format that is quick to draw.
    static QImage Blittable(QImage const& image);

private:
    QImage m_Image;
    QMargins m_Margins;
};
} // namespace KVN
