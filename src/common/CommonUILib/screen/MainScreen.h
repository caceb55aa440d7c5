#pragma once

#include "CommonUILibExport.h"
#include "ESoundType.h"

class QWidget;
class TScreen;

namespace KVN
{
class PixmapManager;
}

/// The one screen; null until the host stores it here, and again once it is gone. Code that may run without a
/// screen tests it.
extern COMMONUILIB_EXPORT TScreen* MainScreen;

/// The address of MainScreen, for modules that are bound at run time.
COMMONUILIB_EXPORT TScreen** GetMainScreen();

/// Plays a sound, if the sound setting allows and there is a screen with a sound server.
COMMONUILIB_EXPORT void tscreenPlaySound(ESoundType type);

/// \name The screen, for leaf widgets
/// What buttons and bars ask of the screen, without its header. Without a screen: null or 0, and no effect.
/// @{
COMMONUILIB_EXPORT KVN::PixmapManager* tscreenPixmapManager();
/// 0 while it is hidden.
COMMONUILIB_EXPORT int tscreenSystemToolBarHeight();
COMMONUILIB_EXPORT void tscreenPushMMIWidget(QWidget* widget);
/// The wheel looks for its stops again: parts of \a widget came, went or took another place since it last
/// did. Without effect while \a widget is hidden.
COMMONUILIB_EXPORT void tscreenRefreshMMIWidgets(QWidget const* widget);
/// @}
