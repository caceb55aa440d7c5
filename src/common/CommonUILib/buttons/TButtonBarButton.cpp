#include "TButtonBarButton.h"

#include "Palette.h"
#include "PixmapNames.h"

namespace
{
constexpr int NoId = -1;
constexpr int TextSize = 16;
constexpr int ButtonHeight = 70;
} // namespace

TButtonBarButton::TButtonBarButton(QWidget* parent)
    : TPushButton(parent, QString(), PixmapNames::NewStandardButton, PixmapNames::NewStandardButtonSelected,
                  NoId, QString())
{
    SetFontProperties(regularButtonTextColor, TextSize, true, false, true, Qt::AlignCenter | Qt::TextWordWrap,
                      false);
    setFixedHeight(ButtonHeight);
}
