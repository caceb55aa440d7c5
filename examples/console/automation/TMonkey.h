#pragma once

#include "TMonkeyWindows.h"
#include "TVirtualOperator.h"

#include <QMap>
#include <QRandomGenerator>
#include <QString>

class TConsoleShell;
class TScreen;
class TToolTipMode;
class TUsbWatch;
class TVirtualTime;

/// Plays with the console: taps, drags, flicks, wheel, keys, USB sticks, tool tips and windows of its own
/// without sense, the same for the same seed. After each step it checks what must hold on the screen.
class TMonkey
{
public:
    /// \a shell watches a folder in place of a stick.
    TMonkey(TConsoleShell const& shell, TVirtualTime* time, quint32 seed);

    /// Does \a steps steps. Empty when all held, else the step and what broke.
    QString Play(int steps);
    /// What was done how often.
    QString Summary() const;

private:
    void Step();
    void TapAButton();
    void TapSomewhere();
    void DragSomewhere();
    void DragAWindow();
    void FlickOffTheBar();
    void TurnTheWheel();
    void PressAKey();
    void InsertOrPull();
    void SwipeFromTheEdge();
    void SwitchToolTips();
    void PlayWithWindows();
    void Wait();
    void WaitLong();

    QPoint AnyPoint();
    int Any(int below) { return static_cast<int>(m_Random.bounded(static_cast<quint32>(below))); }

    TScreen* m_Screen;
    TUsbWatch* m_Usb;
    TToolTipMode* m_ToolTips;
    TVirtualTime* m_Time;
    QRandomGenerator m_Random;
    TMonkeyWindows m_Windows;
    TVirtualOperator m_Operator;
    QMap<QString, int> m_Done;
};
