#include "TPixmapManifest.h"

#include <cmath>

namespace KVN
{
namespace
{
constexpr int PixmapFieldCount = 10;
constexpr int IconFieldCount = 3;

bool ParseInt(QStringRef const& field, int& value)
{
    bool valid = false;
    value = field.toInt(&valid);
    return valid && value >= 0;
}

bool ParseSwitch(QStringRef const& field, bool& value)
{
    value = field == QLatin1String("1");
    return value || field == QLatin1String("0");
}

bool ParseScale(QStringRef const& field, float& value)
{
    bool valid = false;
    value = field.toFloat(&valid);
    return valid && std::isfinite(value) && value > 0.0F;
}
} // namespace

TPixmapManifest TPixmapManifest::Parse(QByteArray const& text)
{
    TPixmapManifest manifest;
    QString const decoded = QString::fromUtf8(text);
    QVector<QStringRef> const lines = decoded.splitRef(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
    {
        QStringRef line = lines.at(i);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')) && !manifest.ParseLine(line))
            manifest.m_DamagedLines.append(i + 1);
    }
    return manifest;
}

bool TPixmapManifest::ParseLine(QStringRef const& line)
{
    QVector<QStringRef> const fields = line.split(QLatin1Char('\t'));
    if (fields.first() == QLatin1String("pixmap"))
        return ParsePixmap(fields);
    return fields.first() == QLatin1String("icon") && ParseIcon(fields);
}

bool TPixmapManifest::ParsePixmap(QVector<QStringRef> const& fields)
{
    if (fields.size() != PixmapFieldCount || fields.at(1).isEmpty() || fields.at(2).isEmpty())
        return false;
    TPixmapLine line;
    if (!ParseInt(fields.at(3), line.left) || !ParseInt(fields.at(4), line.top) ||
        !ParseInt(fields.at(5), line.right) || !ParseInt(fields.at(6), line.bottom) ||
        !ParseSwitch(fields.at(7), line.scaleWhole) || !ParseScale(fields.at(8), line.scale) ||
        !ParseSwitch(fields.at(9), line.opaque))
        return false;
    line.name = fields.at(1).toString();
    line.file = fields.at(2).toString();
    m_Pixmaps.append(line);
    return true;
}

bool TPixmapManifest::ParseIcon(QVector<QStringRef> const& fields)
{
    if (fields.size() != IconFieldCount || fields.at(1).isEmpty())
        return false;
    TIconLine line;
    QVector<QStringRef> const sizes = fields.at(2).split(QLatin1Char(','));
    for (QStringRef const& field : sizes)
    {
        int size = 0;
        int const above = line.sizes.isEmpty() ? 0 : line.sizes.last();
        if (!ParseInt(field, size) || size <= above)
            return false;
        line.sizes.append(size);
    }
    line.name = fields.at(1).toString();
    m_Icons.append(line);
    return true;
}
} // namespace KVN
