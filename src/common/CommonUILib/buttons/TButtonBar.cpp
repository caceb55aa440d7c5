#include "TButtonBar.h"

#include "TButtonBarButton.h"

namespace
{
constexpr int BarHeight = 70;
constexpr int ButtonGap = 0;
} // namespace

TButtonBar::TButtonBar(QWidget* parent)
    : TBaseToolBar(parent, true)
{
    m_Layout = TOOLBAR_HORIZONTAL_FAR;
    setFixedHeight(BarHeight);
}

void TButtonBar::AssignButton(int id, QString const& icon, bool enabled, QString const& text,
                              QString const& toolTip)
{
    TBaseToolBar::AssignButton(id, icon, text, toolTip);
    SetButtonEnabled(id, enabled);
}

void TButtonBar::SetButtonVisibility(int id, bool visible)
{
    TBaseToolBar::SetButtonVisibility(id, visible);
    ResizeButtons();
}

TPushButton* TButtonBar::GetButton(int id)
{
    return TBaseToolBar::GetButton(id);
}

void TButtonBar::SetFixedWidth(int width)
{
    setFixedWidth(qMax(0, width));
    if (GetNumberOfVisibleButtons() == 0)
        return;
    ResizeButtons();
    ArrangeButtons();
}

void TButtonBar::ResizeButtons()
{
    int const shared = SharedWidth();
    if (shared < 0)
        return;
    for (ButtonDetails const& details : qAsConst(m_Buttons))
    {
        if (details.button)
            details.button->setFixedWidth(shared);
    }
}

TPushButton* TButtonBar::GenerateButton(int)
{
    return new TButtonBarButton(this);
}

void TButtonBar::ArrangeButtons()
{
    int const shared = SharedWidth();
    if (shared >= 0)
        TBaseToolBar::ArrangeButtons(shared, ButtonGap);
}

// -1 without a visible button.
int TButtonBar::SharedWidth()
{
    int const visible = GetNumberOfVisibleButtons();
    return visible > 0 ? width() / visible : -1;
}
