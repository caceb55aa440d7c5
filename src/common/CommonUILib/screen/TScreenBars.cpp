// The screen's part in the system tool bar and the strip of off-screen buttons.

#include "CommonUI.h"
#include "TObstructionManager.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TSystemToolBarButton.h"
#include "TWindowManager.h"

#include <QMouseEvent>

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
    bool const wasWanted = m_SystemToolBarWanted;
    bar->move(width() - bar->width(), height() - bar->height());
    // Who heard of its place may have sent it away, or put another in.
    if (bar != m_SystemToolBar || m_SystemToolBarWanted != wasWanted)
        return;
    bar->show();
    CheckToolbarsForLocking();
}

void TScreen::ReleaseSystemToolBar()
{
    QPointer<TSystemToolBar> const before = m_SystemToolBar;
    if (!before)
        return;
    disconnect(before, &TSystemToolBar::GeometryChanged, this, &TScreen::OnSystemToolBarGeometryChanged);
    // Whoever hears of the room asks the screen for its bar.
    m_SystemToolBar = nullptr;
    m_ObstructionManager->RemoveObstruction(before);
    if (before)
        before->hide();
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

void TScreen::AddOffscreenButton(TPushButton* button, bool closeOnClick, bool slowHide)
{
    if (!button)
        return;
    if (!m_OffScreenButtons)
        MakeOffScreenButtons();
    m_OffScreenButtons->AddOffScreenButton(button, closeOnClick, slowHide);
}

void TScreen::MakeOffScreenButtons()
{
    m_OffScreenButtons = new TOffScreenButtons(this);
    connect(m_OffScreenButtons, &TOffScreenButtons::ShowButtons, m_WindowManager,
            &TWindowManager::OnShowOffScreenButtons);
    connect(m_OffScreenButtons, &TOffScreenButtons::HideButtons, m_WindowManager,
            &TWindowManager::OnHideOffScreenButtons);
    connect(m_OffScreenButtons, &TOffScreenButtons::QuickHideButtons, m_WindowManager,
            &TWindowManager::OnQuickHideOffScreenButtons);
    connect(m_OffScreenButtons, &TOffScreenButtons::ShowButtons, this, &TScreen::OffscreenButtonsShown);
    m_WindowManager->SetOffScreenButtons(m_OffScreenButtons);
}

void TScreen::RemoveOffscreenButton(TPushButton* button)
{
    if (m_OffScreenButtons)
        m_OffScreenButtons->RemoveOffScreenButton(button);
}

TOffScreenButtons* TScreen::GetOffScreenButtons() const
{
    return m_OffScreenButtons;
}

// Null while it is switched off. One that has lost its buttons does not come any more, but it can be sent
// away.
TOffScreenButtons* TScreen::TouchableOffScreenButtons() const
{
    if (!m_OffScreenButtons || !CommonUI::GetCommonUIOptions().offScreenButtonsEnabled)
        return nullptr;
    bool const isOfUse = m_OffScreenButtons->HasButtons() || m_OffScreenButtons->IsOnScreen();
    return isOfUse ? m_OffScreenButtons.data() : nullptr;
}

void TScreen::AllMouseEvents(QMouseEvent* event)
{
    TOffScreenButtons* const buttons = TouchableOffScreenButtons();
    if (!event || !buttons)
        return;
    if (event->type() == QEvent::MouseButtonPress)
        buttons->MousePress(event);
    else if (event->type() == QEvent::MouseButtonRelease)
        buttons->MouseRelease();
}

// What no widget on the way of the touch had a use for.
void TScreen::mouseMoveEvent(QMouseEvent* event)
{
    QWidget::mouseMoveEvent(event);
    if (TOffScreenButtons* const buttons = TouchableOffScreenButtons())
        buttons->UnhandledMouseMove(event);
}

void TScreen::RaiseOffScreenButtons()
{
    if (m_OffScreenButtons && CommonUI::GetCommonUIOptions().offScreenButtonsEnabled)
        RaiseToBelowTooltips(m_OffScreenButtons);
}

void TScreen::SquishRequestOffScreenButtons()
{
    if (m_OffScreenButtons && m_OffScreenButtons->HasButtons())
        m_OffScreenButtons->ShowOffScreenButtons();
}
