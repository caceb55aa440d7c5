#include "TTaskToolBar.h"

#include "TTaskToolBarButton.h"

namespace
{
constexpr int ButtonGap = 0;
} // namespace

TTaskToolBar::TTaskToolBar(QWidget* parent, eToolBarLayouts layout)
    : TBaseToolBar(parent, false)
{
    m_Layout = layout;
    SetDragSettings(true, true, false, false, true);
    SetUserResizeButtons(true);
}

TPushButton* TTaskToolBar::GenerateButton(int id)
{
    auto* const button = new TTaskToolBarButton(this, id);
    m_ButtonHeight = button->height();
    return button;
}

void TTaskToolBar::ArrangeButtons()
{
    TBaseToolBar::ArrangeButtons(m_ButtonHeight, ButtonGap);
}
