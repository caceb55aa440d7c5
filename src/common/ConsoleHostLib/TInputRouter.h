#pragma once

#include "ConsoleHostLibExport.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QKeyEvent;
class QWheelEvent;
class TMMICapableWidgetNavigator;

/// Brings keyboard and mouse wheel to the wheel navigator, from wherever in the program they arrive, and lets
/// the main screen know of every touch on it, for its off-screen buttons. It filters the events of the
/// application from its construction to its destruction.
///
/// | Input | Navigator |
/// |---|---|
/// | Left, Up, mouse wheel up | wheel left |
/// | Right, Down, mouse wheel down | wheel right |
/// | Return, Enter | enter |
/// | Backspace, Escape, let go within HoldTime | back |
/// | Backspace, Escape, held for HoldTime | back, held |
///
/// Keys with Ctrl, Alt or Meta and all other keys pass on. So do touches, which Qt turns into mouse events,
/// and the mouse buttons, once the screen knows: the widgets take those themselves. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TInputRouter : public QObject
{
    Q_OBJECT

public:
    /// Units of wheel movement for one step of the navigator; movement in smaller portions adds up, and
    /// starts afresh when it turns.
    static constexpr int WheelUnitsPerStep = 120;
    /// One event moves the navigator by no more than this many steps.
    static constexpr int MaxStepsPerEvent = 20;
    /// After so many ms a pressed back key is a held one.
    static constexpr int HoldTime = 800;

    /// \a navigator may die before the router; keys and wheel pass on then.
    TInputRouter(TMMICapableWidgetNavigator* navigator, QObject* parent);
    ~TInputRouter() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool FilterForNavigator(QEvent* event);
    bool TakeKeyPress(QKeyEvent const& event);
    bool TakeKeyRelease(QKeyEvent const& event);
    void TakeWheel(QWheelEvent const& event);
    void Step(int steps);
    void BeginBack();
    void EndBack();
    void CheckHold();
    void ForgetBack();

    QPointer<TMMICapableWidgetNavigator> m_Navigator;
    int m_WheelUnits = 0;
    bool m_BackIsDown = false;
    qint64 m_BackPressTime = 0;
    QTimer m_HoldTimer;
};
