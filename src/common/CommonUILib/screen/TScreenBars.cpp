// The screen's part in the system tool bar.

#include "TObstructionManager.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TSystemToolBarButton.h"

void TScreen::SetSystemToolBar(TSystemToolBar* bar)
{
    if (bar != m_SystemToolBar)
    {
        ReleaseSystemToolBar();
        if (bar)
        {
            connect(bar, &TSystemToolBar::GeometryChanged, this, &TScreen::OnSystemToolBarGeometryChanged);
            m_ObstructionManager->RegisterObstruction(bar, OBSTRUCTION_BOTTOM);
        }
    }
    m_SystemToolBar = bar;
    if (!bar)
        return;
    if (bar->parentWidget() != this)
        bar->setParent(this);
    bar->move(width() - bar->width(), height() - bar->height());
    bar->show();
    CheckToolbarsForLocking();
}

void TScreen::ReleaseSystemToolBar()
{
    if (!m_SystemToolBar)
        return;
    disconnect(m_SystemToolBar, &TSystemToolBar::GeometryChanged, this,
               &TScreen::OnSystemToolBarGeometryChanged);
    m_ObstructionManager->RemoveObstruction(m_SystemToolBar);
    m_SystemToolBar->hide();
}

TSystemToolBar* TScreen::GetSystemToolBar() const
{
    return m_SystemToolBar;
}

void TScreen::ShowSystemToolbar(bool show)
{
    m_SystemToolBarWanted = show;
    if (!m_SystemToolBar)
        return;
    if (show)
        SetSystemToolBar(m_SystemToolBar);
    else
        m_SystemToolBar->HideToolBar();
}

void TScreen::OnSystemToolBarGeometryChanged()
{
    if (!m_SystemToolBarWanted || !m_SystemToolBar)
        return;
    QPointer<TScreen> const self(this);
    SetSystemToolBar(m_SystemToolBar);
    if (self)
        Q_EMIT SystemToolbarGeometryChanged();
}

void TScreen::LimitVisibleSystemToolBarButtons(int count)
{
    if (m_SystemToolBar)
        m_SystemToolBar->SetMaxButtonsVisible(count);
}

void TScreen::AddSystemToolBarButton(TSystemToolBarButton* button)
{
    if (m_SystemToolBar)
        m_SystemToolBar->AddButton(button);
}

void TScreen::RemoveSystemToolBarButton(TSystemToolBarButton* button)
{
    if (m_SystemToolBar)
        m_SystemToolBar->RemoveButton(button);
}

void TScreen::SetSystemToolBarButtonVisible(TSystemToolBarButton* button, bool visible)
{
    if (m_SystemToolBar)
        m_SystemToolBar->SetButtonVisible(button, visible);
}

int TScreen::GetSystemToolBarWidth() const
{
    return m_SystemToolBar && m_SystemToolBar->isVisible() ? m_SystemToolBar->width() : 0;
}

int TScreen::GetSystemToolBarHeight() const
{
    return m_SystemToolBar && m_SystemToolBar->isVisible() ? m_SystemToolBar->height() : 0;
}

int TScreen::GetSystemToolBarWidthWithoutVisibilityCheck() const
{
    return m_SystemToolBar ? m_SystemToolBar->width() : 0;
}

int TScreen::GetSystemToolBarHeightWithoutVisibilityCheck() const
{
    return m_SystemToolBar ? m_SystemToolBar->height() : 0;
}
