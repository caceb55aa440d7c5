#include "Fonts.h"

#include <QWidget>

namespace
{
constexpr int BoldWeight = 75;

void ApplyStyle(QFont& font, QString const& style)
{
    if (!style.isEmpty())
        font.setStyleName(style);
    if (style.contains(QLatin1String("Bold")))
        font.setWeight(BoldWeight);
}

QString ConsoleFamily()
{
    return QStringLiteral("DejaVu Sans");
}
} // namespace

QFont const STANDARD_FONT = BuildFont(ConsoleFamily(), QStringLiteral("Book"));
QFont const STANDARD_BOLD_FONT = BuildFont(ConsoleFamily(), QStringLiteral("Bold"));
QFont const CONDENSED_FONT = BuildFont(ConsoleFamily(), QStringLiteral("Condensed"));
QFont const CONDENSED_BOLD_FONT = BuildFont(ConsoleFamily(), QStringLiteral("Condensed Bold"));

void SetPixelSize(QFont& font)
{
    if (font.pointSize() > 0)
        font.setPixelSize(font.pointSize());
}

void SetupFont(QWidget* widget, QString const& style)
{
    QFont font = widget->font();
    ApplyStyle(font, style);
    SetPixelSize(font);
    widget->setFont(font);
}

QFont BuildFont(QString const& family, QString const& style)
{
    QFont font(family);
    ApplyStyle(font, style);
    return font;
}
