#include "TTaskToolBarButton.h"

#include "Metrics.h"
#include "PixmapNames.h"

TTaskToolBarButton::TTaskToolBarButton(QWidget* parent, int id)
    : TPushButton(parent, id, QString())
{
    setFixedSize(TASK_TOOLBAR_BUTTON_WIDTH, TASK_TOOLBAR_BUTTON_HEIGHT);
    SetBackground(PixmapNames::WindowToolbarButton);
    SetBackgroundDisabled(PixmapNames::WindowToolbarButton);
    SetBackgroundSelected(PixmapNames::WindowToolbarButtonSelected);
    SetUseDefaultMMIHighlight(true);
}

void TTaskToolBarButton::SetIcon(QString const& name, QSize const&, bool enable)
{
    TPushButton::SetIcon(name, QSize(TASK_TOOLBAR_ICON_SIZE, TASK_TOOLBAR_ICON_SIZE), enable);
}
