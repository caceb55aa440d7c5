#pragma once

#include "PlatformCommonExport.h"

#include <QPixmap>
#include <QSharedPointer>
#include <QString>

#include <memory>

namespace KVN
{
enum EIconState
{
    ICON_NORMAL = 0,
    ICON_DISABLED = 1 ///< the same in grey
};

/// All art by logical name. Images are decoded at their first use and shared; resized forms are kept in a
/// cache with a bound on its bytes, the least recently used going first. Pixmaps that are still in use stay
/// valid when the cache lets go of them. GUI thread only.
///
/// A name that nobody registered, or whose file cannot be read, gives the image "UndefinedPixmap" and one
/// line in the log for each name. An empty name gives a null pixmap in silence, and so does a size beyond 32
/// million pixels. The name of a pixmap serves as that of an icon too: it is then scaled down to the size,
/// never up.
class PLATFORMCOMMON_EXPORT PixmapManager
{
public:
    /// Bound of the cache of resized forms unless another is asked for. The images at their natural size are
    /// kept apart from them, within half of it.
    static constexpr qint64 DefaultCacheBytes = 24 * 1024 * 1024;

    explicit PixmapManager(qint64 cacheBytes = DefaultCacheBytes);
    ~PixmapManager();

    PixmapManager(PixmapManager const&) = delete;
    PixmapManager& operator=(PixmapManager const&) = delete;

    /// Reads the manifest ":/Images/Resources/Manifest.tsv" and registers every name in it. No image is
    /// decoded yet.
    void Initialize();

    /// Registers or replaces a logical name. \a left, \a top, \a right and \a bottom (inclusive) name the
    /// part inside the image that stretches when it is resized; what lies outside keeps its size; all zero:
    /// the whole image scales. The right and bottom values are held to the image. \a scaleWhole scales the
    /// image as a whole to cover the size for enlargements, in spite of the rectangle, and is set for
    /// full-screen pictures with a fixed frame. \a scale multiplies the natural size.
    void AddPixmap(QString const& name, QString const& path, int left, int top, int right, int bottom,
                   bool scaleWhole, float scale);

    /// The image at its natural size, shared; never null pointer.
    QSharedPointer<QPixmap> GetPixmap(QString const& name);

    /// The image at \a width by \a height device pixels, shared; a null pixmap when either is below 1.
    QSharedPointer<QPixmap> GetResizedPixmap(QString const& name, int width, int height);

    /// The icon at its standard size, 46, or the largest that was drawn when there is no such drawing.
    QSharedPointer<QPixmap> GetIcon(QString const& name, EIconState state);

    /// The icon \a size by \a size pixels, but never larger than it was drawn, so that it stays sharp: the
    /// largest drawn size stands for everything above it.
    QSharedPointer<QPixmap> GetResizedIcon(QString const& name, int size, EIconState state);

    /// True when the image fills its rectangle without any transparency. False for an unknown name.
    bool IsPixmapOpaque(QString const& name) const;

    /// Whether \a name is registered as a pixmap.
    bool HasPixmap(QString const& name) const;

    /// Bytes that the resized forms in the cache take now; for tests and diagnostics.
    qint64 CachedBytes() const;

private:
    class TPrivate;
    std::unique_ptr<TPrivate> m_Private;
};
} // namespace KVN
