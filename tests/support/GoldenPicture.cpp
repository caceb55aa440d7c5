#include "GoldenPicture.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>

namespace
{
constexpr int Gap = 8;
constexpr QRgb DifferingPixel = 0xffff0000;
constexpr QRgb SheetColor = 0xff404040;

QImage Plain(QImage const& image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

// What the pictures share in faint grey, what differs in red.
QImage Difference(QImage const& expected, QImage const& actual)
{
    QImage difference(expected.size().expandedTo(actual.size()), QImage::Format_ARGB32);
    for (int y = 0; y < difference.height(); ++y)
    {
        for (int x = 0; x < difference.width(); ++x)
        {
            bool const isSame =
                expected.valid(x, y) && actual.valid(x, y) && expected.pixel(x, y) == actual.pixel(x, y);
            int const faint = isSame ? qGray(expected.pixel(x, y)) / 4 : 0;
            difference.setPixel(x, y, isSame ? qRgb(faint, faint, faint) : DifferingPixel);
        }
    }
    return difference;
}

QImage SideBySide(QImage const& expected, QImage const& actual, QImage const& difference)
{
    QSize const panel = difference.size();
    QImage sheet(3 * panel.width() + 2 * Gap, panel.height(), QImage::Format_ARGB32);
    sheet.fill(SheetColor);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, expected);
    painter.drawImage(panel.width() + Gap, 0, actual);
    painter.drawImage(2 * (panel.width() + Gap), 0, difference);
    return sheet;
}

QString WriteSheet(QImage const& expected, QImage const& actual, QString const& sheet)
{
    QDir().mkpath(QStringLiteral(PICTURE_SHEET_DIR));
    QString const path = QStringLiteral(PICTURE_SHEET_DIR "/%1.png").arg(sheet);
    return SideBySide(expected, actual, Difference(expected, actual)).save(path)
               ? QStringLiteral("; see %1").arg(path)
               : QStringLiteral("; %1 could not be written").arg(path);
}

QString Renew(QImage const& actual, QString const& path)
{
    QDir().mkpath(QFileInfo(path).path());
    return actual.save(path) ? QString() : QStringLiteral("%1 could not be written").arg(path);
}
} // namespace

QString GoldenPictureFault(QImage const& actual, QString const& path, QString const& sheet)
{
    QImage const shown = Plain(actual);
    if (QImage const golden(path); !golden.isNull() && Plain(golden) == shown)
        return {};
    if (qEnvironmentVariableIsSet("COMMONUI_RENEW_PICTURES"))
        return Renew(shown, path);
    QImage const golden(path);
    QString const what = golden.isNull() ? QStringLiteral("there is no picture %1").arg(path)
                                         : QStringLiteral("the picture differs from %1").arg(path);
    return what + WriteSheet(Plain(golden), shown, sheet);
}
