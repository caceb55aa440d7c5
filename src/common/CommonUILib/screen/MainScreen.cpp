#include "MainScreen.h"

#include "ConfigManager.h"
#include "TMMICapableWidgetNavigator.h"
#include "TScreen.h"
#include "TSoundServer.h"

#include <QWidget>

TScreen* MainScreen = nullptr;

TScreen** GetMainScreen()
{
    return &MainScreen;
}

void tscreenPlaySound(ESoundType type)
{
    if (!ConfigManager::Instance()->Read(CONFIG_SOUND_ENABLED).toBool() || !MainScreen)
        return;
    if (TSoundServer* const server = MainScreen->GetSoundServerPtr())
        server->PlaySound(type, ConfigManager::Instance()->Read(CONFIG_SOUND_VOLUME).toInt(), type);
}

KVN::PixmapManager* tscreenPixmapManager()
{
    return MainScreen ? MainScreen->GetPixmapManager() : nullptr;
}

int tscreenSystemToolBarHeight()
{
    return MainScreen ? MainScreen->GetSystemToolBarHeight() : 0;
}

void tscreenPushMMIWidget(QWidget* widget)
{
    if (MainScreen)
        MainScreen->PushMMIWidget(widget);
}

void tscreenRefreshMMIWidgets(QWidget const* widget)
{
    TMMICapableWidgetNavigator* const navigator = MainScreen ? MainScreen->GetMMINavigator() : nullptr;
    if (navigator && widget->isVisible())
        navigator->RefreshChildren();
}
