// The screen's part in navigation: buttons for views, their order and the bars they stand on.

#include "Metrics.h"
#include "ModuleIds.h"
#include "TMiniWindow.h"
#include "TNavigationBar.h"
#include "TNavigationButton.h"
#include "TNavigationWindow.h"
#include "TScreen.h"
#include "TWindowManager.h"

#include <algorithm>
#include <set>

namespace
{
constexpr int NoView = -1;
} // namespace

int TScreen::AssignNavButton(KVN::MorvaneID const& id, QString const& icon, TMiniWindow* miniWindow,
                             TCanvas* canvas, TFullWindow* fullWindow, QString const& toolTip)
{
    return AssignNavButton(id, icon, QList<TMiniWindow*>{miniWindow}, canvas, fullWindow, toolTip);
}

int TScreen::AssignNavButton(KVN::MorvaneID const& id, QString const& icon,
                             QList<TMiniWindow*> const& miniWindows, TCanvas* canvas, TFullWindow* fullWindow,
                             QString const& toolTip)
{
    int const count = miniWindows.size();
    int const first = m_NextNavigationId;
    m_NextNavigationId += qMax(1, count);
    if (count == 0)
    {
        AssignNavButton(id, first, icon, nullptr, canvas, fullWindow, QString(), WIDGET_BEHAVIOUR_SINGLE,
                        false, NoView);
    }
    else if (count == 1)
    {
        AssignNavButton(id, first, icon, miniWindows.constFirst(), canvas, fullWindow, toolTip,
                        WIDGET_BEHAVIOUR_SINGLE, false, NoView);
    }
    else
    {
        for (int i = 0; i < count; ++i)
        {
            int const next = i + 1 < count ? first + i + 1 : NoView;
            AssignNavButton(id, first + i, icon, miniWindows[i], canvas, fullWindow, toolTip,
                            WIDGET_BEHAVIOUR_LINKED, i != 0, next);
        }
    }
    NavButtonAdded(id, first);
    return first;
}

void TScreen::AssignNavButton(KVN::MorvaneID const& id, int navigationId, QString const& icon,
                              TMiniWindow* miniWindow, TCanvas* canvas, TFullWindow* fullWindow,
                              QString const& toolTip, int behaviour, bool hidden, int next)
{
    if (navigationId < 0)
        return;
    bool const isLinked = behaviour == WIDGET_BEHAVIOUR_LINKED;
    if (m_NavigationBar)
        m_NavigationBar->AssignButton(navigationId, icon, QString(), toolTip);
    else if (m_NavigationWindow)
        m_NavigationWindow->AssignButton(navigationId, icon, QString(), toolTip);
    m_WindowManager->RegisterView(id.ToString(), navigationId, GetNavButton(navigationId), miniWindow, canvas,
                                  fullWindow, isLinked ? WIDGET_BEHAVIOUR_LINKED : WIDGET_BEHAVIOUR_SINGLE,
                                  next, hidden);
    if (hidden || (miniWindow && !miniWindow->IsAvailable()))
        SetNavButtonVisibility(navigationId, false);
    m_NavigationIdsById.insert(id, navigationId);
    m_IdByNavigationId.insert(navigationId, id);
}

int TScreen::AssignSpecialBarButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                                    TFullWindow* fullWindow, QString const& toolTip)
{
    int const navigationId = m_NextNavigationId++;
    if (m_SpecialNavigationBar)
        m_SpecialNavigationBar->AssignButton(navigationId, icon, QString(), toolTip);
    else if (m_NavigationBar)
        m_NavigationBar->AssignButton(navigationId, icon, QString(), toolTip);
    else if (m_NavigationWindow)
        m_NavigationWindow->AssignButton(navigationId, icon, QString(), toolTip);
    if (TPushButton* const button = GetSpecialNavigationButton(navigationId))
    {
        m_WindowManager->RegisterView(id.ToString(), navigationId, button, nullptr, canvas, fullWindow,
                                      WIDGET_BEHAVIOUR_SINGLE, NoView, false);
    }
    return navigationId;
}

int TScreen::AssignNavSpecialButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                                    TFullWindow* fullWindow, QString const& toolTip)
{
    int const navigationId = AssignSpecialBarButton(id, icon, canvas, fullWindow, toolTip);
    NavButtonAdded(id, navigationId);
    return navigationId;
}

int TScreen::AssignNavActionButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                                   TFullWindow* fullWindow, QString const& toolTip)
{
    int const navigationId = AssignSpecialBarButton(id, icon, canvas, fullWindow, toolTip);
    if (auto* const button = qobject_cast<TNavigationButton*>(GetSpecialNavigationButton(navigationId)))
    {
        disconnect(button, &TNavigationButton::DraggedOffRight, m_WindowManager,
                   &TWindowManager::OnShowSetup);
        connect(button, &TNavigationButton::DraggedOffRight, m_WindowManager,
                &TWindowManager::OnDraggedOffRight, Qt::UniqueConnection);
    }
    NavButtonAdded(id, navigationId);
    return navigationId;
}

void TScreen::RemoveNavButton(KVN::MorvaneID const& id)
{
    QList<int> navigationIds = m_NavigationIdsById.values(id);
    std::sort(navigationIds.begin(), navigationIds.end());
    for (int const navigationId : qAsConst(navigationIds))
    {
        m_WindowManager->RemoveView(navigationId);
        if (m_NavigationBar)
            m_NavigationBar->RemoveButton(navigationId, true);
        else if (m_NavigationWindow)
            m_NavigationWindow->RemoveButton(navigationId);
        m_IdByNavigationId.remove(navigationId);
    }
    m_NavigationIdsById.remove(id);
}

int TScreen::GetNavButtonID(KVN::MorvaneID const& id) const
{
    return m_IdByNavigationId.key(id, NoView);
}

QMap<int, KVN::MorvaneID> TScreen::GetAllNavButtonIDs() const
{
    return m_IdByNavigationId;
}

TPushButton* TScreen::GetNavButton(int navigationId)
{
    if (m_NavigationBar)
        return m_NavigationBar->GetButton(navigationId);
    return m_NavigationWindow ? m_NavigationWindow->GetButton(navigationId) : nullptr;
}

TPushButton* TScreen::GetSpecialNavigationButton(int navigationId)
{
    return m_SpecialNavigationBar ? m_SpecialNavigationBar->GetButton(navigationId)
                                  : GetNavButton(navigationId);
}

void TScreen::SetNavButtonVisibility(int navigationId, bool visible)
{
    if (m_NavigationBar)
        m_NavigationBar->SetButtonVisibility(navigationId, visible);
    else if (m_NavigationWindow)
        m_NavigationWindow->SetButtonVisibility(navigationId, visible);
}

void TScreen::SetNavButtonEnabled(int navigationId, bool enabled)
{
    if (m_NavigationBar)
        m_NavigationBar->SetButtonEnabled(navigationId, enabled);
    else if (m_NavigationWindow)
        m_NavigationWindow->SetButtonEnabled(navigationId, enabled);
}

void TScreen::SetNavSpecialButtonEnabled(int navigationId, bool enabled)
{
    if (m_SpecialNavigationBar)
        m_SpecialNavigationBar->SetButtonEnabled(navigationId, enabled);
    else
        SetNavButtonEnabled(navigationId, enabled);
}

void TScreen::SetNavActionButtonVisibility(int navigationId, bool visible)
{
    if (m_SpecialNavigationBar)
        m_SpecialNavigationBar->SetButtonVisibility(navigationId, visible);
    else
        SetNavButtonVisibility(navigationId, visible);
}

void TScreen::SetNavButtonIcon(int navigationId, QString const& icon)
{
    if (TPushButton* const button = GetNavButton(navigationId))
        button->SetIcon(icon, QSize(-1, -1), false);
}

void TScreen::SetNavButtonIcon(int navigationId, QImage const& icon)
{
    if (TPushButton* const button = GetNavButton(navigationId))
        button->SetIcon(icon, QSize(-1, -1), false);
}

void TScreen::SetNavButtonTooltip(int navigationId, QString const& toolTip)
{
    TPushButton* button = GetNavButton(navigationId);
    if (!button)
        button = GetSpecialNavigationButton(navigationId);
    if (button)
        button->SetToolTip(toolTip);
}

void TScreen::SetNavButtonOrder(QList<QUuid> const& order)
{
    m_NavigationOrder = order;
    UpdateNavBarOrder();
}

void TScreen::UpdateNavBarOrder()
{
    QMap<QUuid, QList<int>> idsByModule;
    std::set<int> left;
    for (auto entry = m_IdByNavigationId.constBegin(); entry != m_IdByNavigationId.constEnd(); ++entry)
    {
        idsByModule[entry.value().GetModuleUID()].append(entry.key());
        left.insert(entry.key());
    }
    QList<int> order;
    for (QUuid const& module : qAsConst(m_NavigationOrder))
    {
        QList<int> const ids = idsByModule.take(module);
        for (int const id : ids)
        {
            order.append(id);
            left.erase(id);
        }
    }
    for (int const id : left)
        order.append(id);
    for (TNavigationBar* const bar : {m_NavigationBar, m_SpecialNavigationBar})
    {
        if (bar)
            bar->AssignButtonOrder(order);
    }
}

void TScreen::UpdateNavBarSizes()
{
    if (!m_NavigationBar)
        return;
    int const setupId = GetNavButtonID(KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]));
    TPushButton const* const setup =
        m_SpecialNavigationBar ? m_SpecialNavigationBar->GetButton(setupId) : nullptr;
    if (!setup)
    {
        m_NavigationBar->setFixedHeight(SCREEN_HEIGHT);
        m_NavigationBar->move(0, 0);
        return;
    }
    m_SpecialNavigationBar->CheckUserSelectedButtonSize();
    int const count = m_SpecialNavigationBar->GetNumberOfVisibleButtons();
    int const total = m_SpecialNavigationBar->GetButtonOffset() + setup->height() * count +
                      m_SpecialNavigationBar->GetButtonGap() * (count - 1);
    m_SpecialNavigationBar->move(0, SCREEN_HEIGHT - total);
    m_SpecialNavigationBar->setFixedHeight(total);
    // The special bar continues the picture of the main bar.
    m_SpecialNavigationBar->SetBackgroundOffset(0, total - SCREEN_HEIGHT);
    m_NavigationBar->setFixedHeight(SCREEN_HEIGHT - total);
    m_NavigationBar->CheckUserSelectedButtonSize();
}

void TScreen::NavButtonAdded(KVN::MorvaneID const& id, int navigationId)
{
    if (navigationId < 0)
        return;
    m_IdByNavigationId.insert(navigationId, id);
    UpdateNavBarOrder();
}
