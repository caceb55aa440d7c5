#include "PixmapManager.h"

#include "TNinePatch.h"
#include "TPixmapManifest.h"
#include "TSharedPixmaps.h"
#include "UserLog.h"

#include <QFile>
#include <QPainter>
#include <QSet>

#include <algorithm>
#include <climits>
#include <cmath>

namespace KVN
{
namespace
{
constexpr int StandardIconSize = 46;
// No form is made above this: a size beyond it is a mistake of the caller that would take the console's
// memory.
constexpr qint64 LargestFormPixels = 32 * 1024 * 1024;
constexpr int CheckeredSide = 16;

QString ImageFolder()
{
    return QStringLiteral(":/Images/Resources/");
}

QString IconPath(QString const& name, int size)
{
    return QStringLiteral(":/Icons/Resources/") + name + QLatin1Char('@') + QString::number(size) +
           QStringLiteral(".png");
}

// Stands for the image that is not in a file.
QString CheckeredPath()
{
    return QStringLiteral(":checkered");
}

// What stands for everything when not even "UndefinedPixmap" can be had.
QImage CheckeredImage()
{
    QImage image(CheckeredSide, CheckeredSide, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    constexpr int Cell = CheckeredSide / 2;
    painter.fillRect(0, 0, Cell, Cell, Qt::magenta);
    painter.fillRect(Cell, Cell, Cell, Cell, Qt::magenta);
    return image;
}

QImage Decode(QString const& path)
{
    if (path == CheckeredPath())
        return CheckeredImage();
    return path.isEmpty() ? QImage() : QImage(path);
}

QImage Smooth(QImage const& image, QSize const& size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage CoverSize(QImage const& image, QSize const& size)
{
    QImage const large = image.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    return large.copy((large.width() - size.width()) / 2, (large.height() - size.height()) / 2, size.width(),
                      size.height());
}

QImage Grey(QImage const& image)
{
    QImage grey = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y)
    {
        auto* const line = reinterpret_cast<QRgb*>(grey.scanLine(y));
        std::transform(line, line + grey.width(), line,
                       [](QRgb pixel)
                       {
                           int const value = (16 * qGreen(pixel) + 11 * qRed(pixel) + 5 * qBlue(pixel)) >> 5;
                           return qRgba(value, value, value, qAlpha(pixel));
                       });
    }
    return grey;
}

QSharedPointer<QPixmap> Share(QImage const& image)
{
    return QSharedPointer<QPixmap>::create(QPixmap::fromImage(image));
}

enum EOpacity
{
    OPACITY_UNKNOWN,
    OPACITY_FULL,
    OPACITY_PARTIAL
};

enum EForm
{
    FORM_STRETCHED,
    FORM_ICON,
    FORM_GREY_ICON
};

QImage IconImage(QImage const& image, QSize const& size, EForm form)
{
    QImage const sized = image.size() == size ? image : Smooth(image, size);
    return form == FORM_GREY_ICON ? Grey(sized) : sized;
}

struct TPixmapEntry
{
    quint32 id = 0;
    QString path;
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool scaleWhole = false;
    float scale = 1.0F;
    EOpacity opacity = OPACITY_UNKNOWN;
    bool unreadable = false;

    bool HasStretchRect() const { return left != 0 || top != 0 || right != 0 || bottom != 0; }
    bool SameRegistration(TPixmapEntry const& other) const
    {
        return path == other.path && left == other.left && top == other.top && right == other.right &&
               bottom == other.bottom && scaleWhole == other.scaleWhole && scale == other.scale;
    }
};

struct TIconEntry
{
    quint32 id = 0;
    QVector<int> sizes; // ascending
};

struct TImageKey
{
    QString path;
    float scale;

    friend bool operator==(TImageKey const& left, TImageKey const& right)
    {
        return left.scale == right.scale && left.path == right.path;
    }
    friend uint qHash(TImageKey const& key, uint seed = 0) { return ::qHash(key.path, seed); }
};

// The id stands for a registration, so that a name that is registered anew never meets its old forms.
struct TFormKey
{
    quint32 id;
    int width;
    int height;
    EForm form;

    friend bool operator==(TFormKey const& left, TFormKey const& right)
    {
        return left.id == right.id && left.width == right.width && left.height == right.height &&
               left.form == right.form;
    }
    friend uint qHash(TFormKey const& key, uint seed = 0)
    {
        return ::qHash(quint64(key.id) << 40 ^ quint64(key.form) << 36 ^ quint64(uint(key.width)) << 18 ^
                           uint(key.height),
                       seed);
    }
};

// Null when it cannot be read, or would be too large.
QSharedPointer<QPixmap> NaturalImage(QString const& path, float scale)
{
    QImage image = Decode(path);
    image.setDevicePixelRatio(1.0);
    QSizeF const scaled = QSizeF(image.size()) * double(scale);
    if (image.isNull() || scaled.width() * scaled.height() > double(LargestFormPixels))
        return {};
    QSize const size = scaled.toSize().expandedTo(QSize(1, 1));
    return Share(size == image.size() ? image : Smooth(image, size));
}

// Held to the image here and not at registration, since no image is decoded before its first use.
QMargins KeptMargins(TPixmapEntry const& entry, QSize const& size)
{
    double const scale = double(entry.scale);
    auto const edge = [scale](int value, int low, int high)
    { return int(std::lround(qBound(double(low), value * scale, double(high)))); };
    int const left = edge(entry.left, 0, size.width() - 1);
    int const top = edge(entry.top, 0, size.height() - 1);
    int const beyondRight = edge(qMin(entry.right, INT_MAX - 1) + 1, left + 1, size.width());
    int const beyondBottom = edge(qMin(entry.bottom, INT_MAX - 1) + 1, top + 1, size.height());
    return {left, top, size.width() - beyondRight, size.height() - beyondBottom};
}

QImage MakeForm(TPixmapEntry const& entry, QImage const& source, QSize const& size)
{
    if (!entry.HasStretchRect())
        return Smooth(source, size);
    bool const enlarges = size.width() > source.width() || size.height() > source.height();
    if (entry.scaleWhole && enlarges)
        return CoverSize(source, size);
    return TNinePatch(source, KeptMargins(entry, source.size())).Stretched(size);
}
} // namespace

class PixmapManager::TPrivate
{
public:
    explicit TPrivate(qint64 cacheBytes)
        : m_Images(cacheBytes / 2)
        , m_Forms(cacheBytes)
    {
        m_Checkered.path = CheckeredPath();
    }

    void Register(QString const& name, TPixmapEntry entry);
    void RegisterIcon(TPixmapManifest::TIconLine const& line);

    TPixmapEntry& Usable(QString const& name);
    QSharedPointer<QPixmap> Image(TPixmapEntry& entry);
    QSharedPointer<QPixmap> Natural(QString const& name);
    QSharedPointer<QPixmap> Resized(QString const& name, QSize const& size);
    QSharedPointer<QPixmap> MakeResized(TPixmapEntry& entry, QSize const& size);

    QSharedPointer<QPixmap> Icon(QString const& name, int size, EIconState state);
    QSharedPointer<QPixmap> DrawnIcon(QString const& name, TIconEntry& icon, int size, EForm form);
    QSharedPointer<QPixmap> PixmapAsIcon(QString const& name, int size, EForm form);
    QSharedPointer<QPixmap> ReadIcon(QString const& name, TIconEntry& icon, int size, EForm form);

    void Report(QString const& name, QString const& line);

    QSharedPointer<QPixmap> const m_Null = QSharedPointer<QPixmap>::create();
    QHash<QString, TPixmapEntry> m_Pixmaps;
    QHash<QString, TIconEntry> m_Icons;
    TSharedPixmaps<TImageKey> m_Images;
    TSharedPixmaps<TFormKey> m_Forms;

private:
    TPixmapEntry m_Checkered;
    quint32 m_LastId = 0;
    QSet<QString> m_Reported;
};

void PixmapManager::TPrivate::Register(QString const& name, TPixmapEntry entry)
{
    if (name.isEmpty())
        return;
    TPixmapEntry& present = m_Pixmaps[name];
    if (present.id != 0 && present.SameRegistration(entry))
        return;
    entry.id = ++m_LastId;
    present = entry;
}

void PixmapManager::TPrivate::RegisterIcon(TPixmapManifest::TIconLine const& line)
{
    TIconEntry& present = m_Icons[line.name];
    if (present.id == 0 || present.sizes != line.sizes)
        present = {++m_LastId, line.sizes};
}

// The entry that draws the name: its own, that of "UndefinedPixmap", or the checkered image.
TPixmapEntry& PixmapManager::TPrivate::Usable(QString const& name)
{
    auto const own = m_Pixmaps.find(name);
    if (own == m_Pixmaps.end())
        Report(name, QStringLiteral("No image is registered as \"%1\"").arg(name));
    else if (!own->unreadable)
        return *own;
    auto const undefined = m_Pixmaps.find(QStringLiteral("UndefinedPixmap"));
    return undefined != m_Pixmaps.end() && !undefined->unreadable ? *undefined : m_Checkered;
}

// The decoded image of an entry at its natural size; a null pointer, once, when it cannot be read.
QSharedPointer<QPixmap> PixmapManager::TPrivate::Image(TPixmapEntry& entry)
{
    auto const read = [&entry] { return NaturalImage(entry.path, entry.scale); };
    QSharedPointer<QPixmap> image = m_Images.Get({entry.path, entry.scale}, read);
    entry.unreadable = image.isNull();
    if (image)
        entry.opacity = image->hasAlphaChannel() ? OPACITY_PARTIAL : OPACITY_FULL;
    else
        Report(entry.path, QStringLiteral("The image \"%1\" cannot be read").arg(entry.path));
    return image;
}

QSharedPointer<QPixmap> PixmapManager::TPrivate::Natural(QString const& name)
{
    // Each failure marks one entry as unreadable, and the checkered image cannot fail.
    QSharedPointer<QPixmap> image;
    while (!image)
        image = Image(Usable(name));
    return image;
}

QSharedPointer<QPixmap> PixmapManager::TPrivate::Resized(QString const& name, QSize const& size)
{
    QSharedPointer<QPixmap> form;
    while (!form)
    {
        TPixmapEntry& entry = Usable(name);
        TFormKey const key{entry.id, size.width(), size.height(), FORM_STRETCHED};
        form = m_Forms.Get(key, [&] { return MakeResized(entry, size); });
    }
    return form;
}

QSharedPointer<QPixmap> PixmapManager::TPrivate::MakeResized(TPixmapEntry& entry, QSize const& size)
{
    QSharedPointer<QPixmap> image = Image(entry);
    if (!image || image->size() == size)
        return image;
    return Share(MakeForm(entry, image->toImage(), size));
}

QSharedPointer<QPixmap> PixmapManager::TPrivate::Icon(QString const& name, int size, EIconState state)
{
    EForm const form = state == ICON_DISABLED ? FORM_GREY_ICON : FORM_ICON;
    auto const icon = m_Icons.find(name);
    QSharedPointer<QPixmap> drawn;
    if (icon != m_Icons.end())
        drawn = DrawnIcon(name, *icon, size, form);
    return drawn ? drawn : PixmapAsIcon(name, size, form);
}

QSharedPointer<QPixmap> PixmapManager::TPrivate::DrawnIcon(QString const& name, TIconEntry& icon, int size,
                                                           EForm form)
{
    QSharedPointer<QPixmap> drawn;
    while (!drawn && !icon.sizes.isEmpty())
    {
        int const side = qMin(size, icon.sizes.last());
        drawn = m_Forms.Get({icon.id, side, side, form}, [&] { return ReadIcon(name, icon, side, form); });
    }
    return drawn;
}

// The icon at a size up to the largest that was drawn. When the file is missing its size is dropped and the
// result is null: the next call takes another one.
QSharedPointer<QPixmap> PixmapManager::TPrivate::ReadIcon(QString const& name, TIconEntry& icon, int size,
                                                          EForm form)
{
    auto const drawn = std::lower_bound(icon.sizes.begin(), icon.sizes.end(), size);
    QString const path = IconPath(name, *drawn);
    QImage const image(path);
    if (image.isNull())
    {
        Report(path, QStringLiteral("The icon \"%1\" cannot be read").arg(path));
        icon.sizes.erase(drawn);
        return {};
    }
    return Share(IconImage(image, {size, size}, form));
}

// A pixmap may be asked for as an icon by its name. What is neither shows as undefined at the wanted size.
QSharedPointer<QPixmap> PixmapManager::TPrivate::PixmapAsIcon(QString const& name, int size, EForm form)
{
    QSharedPointer<QPixmap> const image = Natural(name);
    TPixmapEntry const& entry = Usable(name);
    auto const registered = m_Pixmaps.constFind(name);
    bool const own = registered != m_Pixmaps.constEnd() && &*registered == &entry;
    QSize target(size, size);
    if (own)
        target = image->width() <= size && image->height() <= size
                     ? image->size()
                     : image->size().scaled(target, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    auto const make = [&] { return Share(IconImage(image->toImage(), target, form)); };
    return m_Forms.Get({entry.id, target.width(), target.height(), form}, make);
}

void PixmapManager::TPrivate::Report(QString const& name, QString const& line)
{
    if (m_Reported.contains(name))
        return;
    m_Reported.insert(name);
    GetUserLog()->AddEntry(line);
}

PixmapManager::PixmapManager(qint64 cacheBytes)
    : m_Private(std::make_unique<TPrivate>(cacheBytes))
{
}

PixmapManager::~PixmapManager() = default;

void PixmapManager::Initialize()
{
    QFile file(ImageFolder() + QStringLiteral("Manifest.tsv"));
    if (!file.open(QIODevice::ReadOnly))
    {
        GetUserLog()->AddEntry(QStringLiteral("The manifest of the images is missing"));
        return;
    }
    TPixmapManifest const manifest = TPixmapManifest::Parse(file.readAll());
    for (TPixmapManifest::TPixmapLine const& line : manifest.Pixmaps())
    {
        m_Private->Register(line.name, {0, ImageFolder() + line.file, line.left, line.top, line.right,
                                        line.bottom, line.scaleWhole, line.scale,
                                        line.opaque ? OPACITY_FULL : OPACITY_PARTIAL, false});
    }
    for (TPixmapManifest::TIconLine const& line : manifest.Icons())
        m_Private->RegisterIcon(line);
    for (int const number : manifest.DamagedLines())
        GetUserLog()->AddEntry(
            QStringLiteral("Line %1 of the manifest of the images is damaged").arg(number));
}

void PixmapManager::AddPixmap(QString const& name, QString const& path, int left, int top, int right,
                              int bottom, bool scaleWhole, float scale)
{
    bool const scales = std::isfinite(scale) && scale > 0.0F;
    m_Private->Register(
        name, {0, path, left, top, right, bottom, scaleWhole, scales ? scale : 1.0F, OPACITY_UNKNOWN, false});
}

QSharedPointer<QPixmap> PixmapManager::GetPixmap(QString const& name)
{
    return name.isEmpty() ? m_Private->m_Null : m_Private->Natural(name);
}

QSharedPointer<QPixmap> PixmapManager::GetResizedPixmap(QString const& name, int width, int height)
{
    if (name.isEmpty() || width < 1 || height < 1 || qint64(width) * height > LargestFormPixels)
        return m_Private->m_Null;
    return m_Private->Resized(name, {width, height});
}

QSharedPointer<QPixmap> PixmapManager::GetIcon(QString const& name, EIconState state)
{
    if (name.isEmpty())
        return m_Private->m_Null;
    auto const icon = m_Private->m_Icons.constFind(name);
    bool const drawn = icon != m_Private->m_Icons.constEnd() && !icon->sizes.isEmpty();
    bool const standard = !drawn || icon->sizes.contains(StandardIconSize);
    return m_Private->Icon(name, standard ? StandardIconSize : icon->sizes.last(), state);
}

QSharedPointer<QPixmap> PixmapManager::GetResizedIcon(QString const& name, int size, EIconState state)
{
    if (name.isEmpty() || size < 1 || qint64(size) * size > LargestFormPixels)
        return m_Private->m_Null;
    return m_Private->Icon(name, size, state);
}

bool PixmapManager::IsPixmapOpaque(QString const& name) const
{
    auto const entry = m_Private->m_Pixmaps.find(name);
    if (entry == m_Private->m_Pixmaps.end() || entry->unreadable)
        return false;
    if (entry->opacity == OPACITY_UNKNOWN)
        m_Private->Image(*entry);
    return entry->opacity == OPACITY_FULL;
}

bool PixmapManager::HasPixmap(QString const& name) const
{
    return m_Private->m_Pixmaps.contains(name);
}

qint64 PixmapManager::CachedBytes() const
{
    return m_Private->m_Forms.Bytes();
}
} // namespace KVN
