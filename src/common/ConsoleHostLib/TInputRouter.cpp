#include "TInputRouter.h"

#include "MainScreen.h"
#include "TLocalTime.h"
#include "TMMICapableWidgetNavigator.h"
#include "TScreen.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <QWindow>

namespace
{
enum EInput
{
    INPUT_NONE,
    INPUT_WHEEL_LEFT,
    INPUT_WHEEL_RIGHT,
    INPUT_ENTER,
    INPUT_BACK
};

struct TKeyMeaning
{
    Qt::Key key;
    EInput input;
};

constexpr TKeyMeaning KeyMeanings[] = {
    {Qt::Key_Left, INPUT_WHEEL_LEFT},  {Qt::Key_Up, INPUT_WHEEL_LEFT}, {Qt::Key_Right, INPUT_WHEEL_RIGHT},
    {Qt::Key_Down, INPUT_WHEEL_RIGHT}, {Qt::Key_Return, INPUT_ENTER},  {Qt::Key_Enter, INPUT_ENTER},
    {Qt::Key_Backspace, INPUT_BACK},   {Qt::Key_Escape, INPUT_BACK},
};

EInput MeaningOf(QKeyEvent const& event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return INPUT_NONE;
    for (TKeyMeaning const& meaning : KeyMeanings)
    {
        if (meaning.key == event.key())
            return meaning.input;
    }
    return INPUT_NONE;
}

// At its window, where it comes by once: from widget to widget it is offered again and again.
void TellScreen(QObject const* watched, QMouseEvent* event)
{
    if (MainScreen && watched == MainScreen->windowHandle())
        MainScreen->AllMouseEvents(event);
}
} // namespace

TInputRouter::TInputRouter(TMMICapableWidgetNavigator* navigator, QObject* parent)
    : QObject(parent)
    , m_Navigator(navigator)
{
    m_HoldTimer.setSingleShot(true);
    connect(&m_HoldTimer, &QTimer::timeout, this, &TInputRouter::CheckHold);
    QCoreApplication::instance()->installEventFilter(this);
}

TInputRouter::~TInputRouter()
{
    QCoreApplication::instance()->removeEventFilter(this);
}

bool TInputRouter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type())
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        TellScreen(watched, static_cast<QMouseEvent*>(event));
        return false;
    default:
        return m_Navigator && FilterForNavigator(event);
    }
}

bool TInputRouter::FilterForNavigator(QEvent* event)
{
    switch (event->type())
    {
    case QEvent::KeyPress:
        return TakeKeyPress(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        return TakeKeyRelease(*static_cast<QKeyEvent*>(event));
    case QEvent::Wheel:
        TakeWheel(*static_cast<QWheelEvent*>(event));
        return true;
    case QEvent::ApplicationDeactivate:
        // The release will go to another program.
        ForgetBack();
        return false;
    default:
        return false;
    }
}

bool TInputRouter::TakeKeyPress(QKeyEvent const& event)
{
    switch (MeaningOf(event))
    {
    case INPUT_NONE:
        return false;
    case INPUT_WHEEL_LEFT:
        Step(-1);
        break;
    case INPUT_WHEEL_RIGHT:
        Step(1);
        break;
    case INPUT_ENTER:
        if (!event.isAutoRepeat())
            m_Navigator->OnEnter();
        break;
    case INPUT_BACK:
        if (!event.isAutoRepeat())
            BeginBack();
        break;
    }
    return true;
}

bool TInputRouter::TakeKeyRelease(QKeyEvent const& event)
{
    EInput const input = MeaningOf(event);
    if (input == INPUT_BACK && !event.isAutoRepeat())
        EndBack();
    return input != INPUT_NONE;
}

void TInputRouter::TakeWheel(QWheelEvent const& event)
{
    // With Alt held Qt exchanges the axes; one wheel has but one.
    int const units = event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
    bool const hasTurned = (units < 0 && m_WheelUnits > 0) || (units > 0 && m_WheelUnits < 0);
    int const limit = MaxStepsPerEvent * WheelUnitsPerStep;
    m_WheelUnits = (hasTurned ? 0 : m_WheelUnits) + qBound(-limit, units, limit);
    int const steps = qBound(-MaxStepsPerEvent, m_WheelUnits / WheelUnitsPerStep, MaxStepsPerEvent);
    m_WheelUnits %= WheelUnitsPerStep;
    Step(-steps);
}

// To the right for positive numbers. The navigator's handlers may delete it between two steps.
void TInputRouter::Step(int steps)
{
    for (; steps < 0 && m_Navigator; ++steps)
        m_Navigator->OnWheelLeft();
    for (; steps > 0 && m_Navigator; --steps)
        m_Navigator->OnWheelRight();
}

void TInputRouter::BeginBack()
{
    m_BackIsDown = true;
    m_BackPressTime = TLocalTime::getCurrentTime();
    m_HoldTimer.start(HoldTime);
}

void TInputRouter::EndBack()
{
    CheckHold();
    if (!m_BackIsDown)
        return;
    ForgetBack();
    m_Navigator->OnBack();
}

// The timer may come a little early by the console's own clock; then it waits for the rest.
void TInputRouter::CheckHold()
{
    if (!m_BackIsDown)
        return;
    qint64 const held = TLocalTime::getCurrentTime() - m_BackPressTime;
    if (held < HoldTime)
    {
        m_HoldTimer.start(static_cast<int>(HoldTime - held));
        return;
    }
    ForgetBack();
    if (m_Navigator)
        m_Navigator->OnHoldBack();
}

void TInputRouter::ForgetBack()
{
    m_BackIsDown = false;
    m_HoldTimer.stop();
}
