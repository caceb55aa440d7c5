#include "TFullViewSideToolBar.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TTaskToolBarButton.h"

namespace
{
constexpr int ButtonGap = 0;
} // namespace

TFullViewSideToolBar::TFullViewSideToolBar(QWidget* parent, bool farEdge, bool withBackground)
    : TBaseToolBar(parent, true)
    , m_WithBackground(withBackground)
{
    m_Layout = farEdge ? TOOLBAR_VERTICAL_FAR : TOOLBAR_VERTICAL_NEAR;
    SetDragSettings(true, true, true, true, true);
    SetUserResizeButtons(true);
    setFixedWidth(WINDOW_TOOLBAR_WIDTH);
}

TPushButton* TFullViewSideToolBar::GenerateButton(int id)
{
    return new TTaskToolBarButton(this, id);
}

void TFullViewSideToolBar::ArrangeButtons()
{
    TBaseToolBar::ArrangeButtons(WINDOW_TOOLBAR_BUTTON_HEIGHT, ButtonGap);
}

void TFullViewSideToolBar::showEvent(QShowEvent* event)
{
    setFixedHeight(SCREEN_HEIGHT - FULL_WINDOW_TITLEBAR_HEIGHT - tscreenSystemToolBarHeight());
    TBaseToolBar::showEvent(event);
}

void TFullViewSideToolBar::resizeEvent(QResizeEvent* event)
{
    KVN::PixmapManager* const pixmaps = m_WithBackground ? tscreenPixmapManager() : nullptr;
    SetBackground(pixmaps ? pixmaps->GetResizedPixmap(PixmapNames::ToolboxBackground, width(), height())
                          : QSharedPointer<QPixmap>());
    TBaseToolBar::resizeEvent(event);
}
