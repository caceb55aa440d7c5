#include "LongLabel.h"

#include "RenderUtils.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>

namespace
{
constexpr int LongText = 1024;
// As a plain label has it.
constexpr int CharactersOfALine = 80;
} // namespace

QFont LongLabel::PixelFont(QLabel const& label)
{
    QFont font = label.font();
    if (font.pixelSize() < 0)
        font.setPixelSize(QFontInfo(font).pixelSize());
    return font;
}

bool LongLabel::IsLong(QLabel const& label)
{
    return label.text().size() > LongText;
}

int LongLabel::HeightForWidth(QLabel const& label, int width)
{
    return KVN::RenderUtils::GetTextHeight(label.text(), PixelFont(label), width, label.wordWrap());
}

QSize LongLabel::SizeHint(QLabel const& label)
{
    QFontMetrics const metrics(PixelFont(label));
    QString const text = label.text();
    int const lines =
        text.count(QLatin1Char('\n')) + (label.wordWrap() ? text.size() / CharactersOfALine : 0) + 1;
    return {metrics.averageCharWidth() * CharactersOfALine, qMin(metrics.height() * lines, QWIDGETSIZE_MAX)};
}
