#include "TSystemToolBarButton.h"

#include "Metrics.h"
#include "PixmapNames.h"

namespace
{
constexpr int NoId = -1;
} // namespace

TSystemToolBarButton::TSystemToolBarButton(QWidget* parent)
    : TPushButton(parent, NoId, QString())
{
    setFixedSize(SYSTEM_TOOLBAR_BUTTON_WIDTH, SYSTEM_TOOLBAR_BUTTON_HEIGHT);
    SetBackground(PixmapNames::WindowToolbarButton);
    SetBackgroundSelected(PixmapNames::WindowToolbarButtonSelected);
}

void TSystemToolBarButton::SetIcon(QString const& name, QSize const&, bool enable)
{
    TPushButton::SetIcon(name, QSize(STANDARD_ICON_SIZE, STANDARD_ICON_SIZE), enable);
}
