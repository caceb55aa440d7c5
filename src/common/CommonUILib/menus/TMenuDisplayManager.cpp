#include "TMenuDisplayManager.h"

#include "MainScreen.h"
#include "MorvanePlatformInterface.h"
#include "TMenuManager.h"
#include "TScreen.h"

TMenuDisplayManager::TMenuDisplayManager(TMenuManager& manager)
    : m_MenuManager(manager)
{
    connect(&manager, &TMenuManager::MenuListChanged, this, &TMenuDisplayManager::OnMenuListChanged);
    connect(&manager, &TMenuManager::MenuStateChanged, this, &TMenuDisplayManager::OnMenuStateChanged);
    connect(&manager, &TMenuManager::ElementListChanged, this, &TMenuDisplayManager::OnElementListChanged);
    connect(&manager, &TMenuManager::ElementStateChanged, this, &TMenuDisplayManager::OnElementStateChanged);
    if (MainScreen)
        connect(MainScreen, &TScreen::GuideStateChanged, this, &TMenuDisplayManager::UpdateAutoHideState);
    if (MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance())
        connect(platform, &MorvanePlatformInterface::NotifyToolTipsEnabled, this,
                &TMenuDisplayManager::UpdateAutoHideState);
}

TMenuDisplayManager::~TMenuDisplayManager() = default;

void TMenuDisplayManager::ToggleMenus() {}

bool TMenuDisplayManager::AreMenusVisible() const
{
    return false;
}

QList<int> TMenuDisplayManager::GetMenuShownOrder()
{
    return {};
}

void TMenuDisplayManager::HandleMenuAutoHideStateChanged() {}

bool TMenuDisplayManager::GetCanAutoHide() const
{
    return m_CanAutoHide;
}

void TMenuDisplayManager::UpdateAutoHideState()
{
    MorvanePlatformInterface const* const platform = MorvanePlatformInterface::Instance();
    bool const isGuideRead = MainScreen && MainScreen->IsGuideActive();
    bool const areToolTipsRead = platform && platform->ToolTipVisible();
    bool const canAutoHide = !isGuideRead && !areToolTipsRead;
    if (canAutoHide == m_CanAutoHide)
        return;
    m_CanAutoHide = canAutoHide;
    HandleMenuAutoHideStateChanged();
}
