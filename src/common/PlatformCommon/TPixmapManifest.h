#pragma once

#include <QString>
#include <QVector>

namespace KVN
{
/// The list of all art that is built in: one line for each pixmap and each icon, its fields separated by
/// tabs.
///
///     pixmap NAME FILE LEFT TOP RIGHT BOTTOM SCALEWHOLE SCALE OPAQUE
///     icon   NAME SIZES
///
/// FILE is relative to the folder of images, SCALEWHOLE and OPAQUE are 0 or 1, SIZES are ascending pixel
/// sizes separated by commas. Empty lines and lines that begin with "#" are passed over.
class TPixmapManifest
{
public:
    struct TPixmapLine
    {
        QString name;
        QString file;
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        bool scaleWhole = false;
        float scale = 1.0F;
        bool opaque = false;
    };

    struct TIconLine
    {
        QString name;
        QVector<int> sizes;
    };

    /// Reads the UTF-8 text of a manifest. A damaged line is left out.
    static TPixmapManifest Parse(QByteArray const& text);

    QVector<TPixmapLine> const& Pixmaps() const { return m_Pixmaps; }
    QVector<TIconLine> const& Icons() const { return m_Icons; }

    /// The numbers, from 1, of the lines that were damaged.
    QVector<int> const& DamagedLines() const { return m_DamagedLines; }

private:
    bool ParseLine(QStringRef const& line);
    bool ParsePixmap(QVector<QStringRef> const& fields);
    bool ParseIcon(QVector<QStringRef> const& fields);

    QVector<TPixmapLine> m_Pixmaps;
    QVector<TIconLine> m_Icons;
    QVector<int> m_DamagedLines;
};
} // namespace KVN
