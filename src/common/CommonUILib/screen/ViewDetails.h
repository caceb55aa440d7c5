#pragma once

#include <QPointer>
#include <QString>

class QLabel;
class TCanvas;
class TFullWindow;
class TMiniWindow;

/// How the mini windows of one navigation button behave.
enum eWidgetBehaviour
{
    WIDGET_BEHAVIOUR_SINGLE = 0, ///< one mini window
    WIDGET_BEHAVIOUR_LINKED = 1  ///< several that follow one another at each press
};

/// Where a mini window is on its way between the navigation bar and its slot.
enum EMiniViewState
{
    MINI_VIEW_OPENING = 0,      ///< sliding in from behind the bar
    MINI_VIEW_SHOWN = 1,        ///< in its slot
    MINI_VIEW_HIDING = 2,       ///< sliding back
    MINI_VIEW_HIDDEN = 3,       ///< away
    MINI_VIEW_SETTLING_UP = 4,  ///< moving up to the top of its slot after a drag
    MINI_VIEW_SETTLING_DOWN = 5 ///< moving down to it
};

/// Where the strip of off-screen buttons is on its way between the lower edge and its place.
enum EOffScreenState
{
    OFF_SCREEN_HIDDEN = 0,
    OFF_SCREEN_RISING = 1,
    OFF_SCREEN_UP = 2,
    OFF_SCREEN_FALLING = 3
};

/// What the window manager keeps of one view. The windows stay their modules' and may die at any time.
struct ViewDetails
{
    QPointer<TMiniWindow> miniWindow;
    QPointer<TCanvas> canvas;
    QPointer<TFullWindow> fullWindow;
    int slot = -1;
    EMiniViewState miniState = MINI_VIEW_HIDDEN;
    int elapsed = 0; ///< ms of the running animation
    bool hideAfterAnimation = true;
    QPointer<QLabel> rightShadow;
    QPointer<QLabel> bottomShadow;
    eWidgetBehaviour behaviour = WIDGET_BEHAVIOUR_SINGLE;
    int nextView = -1;
    bool hiddenButton = false;
    QString name;
};
