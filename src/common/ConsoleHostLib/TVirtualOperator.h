#pragma once

#include "ConsoleHostLibExport.h"

#include <QPoint>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include <functional>

/// The operator of a tour, a monkey or a test: touches, drags, turns the wheel and presses keys by real
/// events at real coordinates. They enter where those of the window system do, at the window, so that Qt
/// itself finds the widget under the finger, keeps it until the release and passes over what lets touches
/// through. All points are in the coordinates of the screen.
///
/// The screen must be shown. Time passes only through the function that the operator is given. GUI thread
/// only.
class CONSOLEHOSTLIB_EXPORT TVirtualOperator
{
public:
    /// Lets a number of ms pass, with all that happens in them.
    using TPassTime = std::function<void(int)>;

    /// How long a tap lasts, and the pause between two points of a drag, in ms.
    static constexpr int TapTime = 60;
    static constexpr int StepTime = 20;

    /// With an empty \a passTime no time passes.
    explicit TVirtualOperator(QWidget* screen, TPassTime passTime = {});

    void Press(QPoint const& point);
    /// Moves the finger, or hovers while nothing is pressed.
    void MoveTo(QPoint const& point);
    void Release();

    void Tap(QPoint const& point);
    /// On the middle of \a widget. False, with nothing done, for one that is null, not visible on the screen,
    /// or covered there.
    bool Tap(QWidget* widget);
    void Hold(QPoint const& point, int ms);
    /// Presses at the first point, visits the others one StepTime apart, and lets go at the last.
    void Drag(QVector<QPoint> const& path);
    /// A drag in a straight line in \a steps moves.
    void Drag(QPoint const& from, QPoint const& to, int steps);

    /// Turns the wheel by \a units; 120 are one notch, positive is up.
    void Wheel(int units);
    void Key(Qt::Key key, int holdMs = TapTime);

    /// The middle of \a widget on the screen.
    QPoint MiddleOf(QWidget const* widget) const;

private:
    void SendMouse(int type, Qt::MouseButton button, Qt::MouseButtons buttons);
    void Send(QEvent* event);
    void Pass(int ms);

    QPointer<QWidget> m_Screen;
    TPassTime m_PassTime;
    QPoint m_Finger;
    bool m_IsDown = false;
};
