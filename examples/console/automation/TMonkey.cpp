#include "TMonkey.h"

#include "Metrics.h"
#include "ScreenInvariants.h"
#include "TConsoleShell.h"
#include "THostPlatform.h"
#include "TMiniWindow.h"
#include "TNavigationBar.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TToolTipMode.h"
#include "TUsbWatch.h"
#include "TVirtualTime.h"

#include <QStringList>

namespace
{
constexpr int BackHoldTime = 1000;
constexpr int MostDragPoints = 8;
constexpr int FlickSteps = 4;
// Longer than the wheel's selection stays without the wheel.
constexpr int LongTime = 31000;
constexpr int Pauses[] = {0, 0, 20, 20, 40, 100, 200};
constexpr int WheelUnits[] = {120, -120, 120, -120, 40, -40, 360, -360};
constexpr Qt::Key Keys[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Return, Qt::Key_Left,     Qt::Key_Right,
                            Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Escape, Qt::Key_Backspace};

template<typename T, int Count>
constexpr int CountOf(T const (&)[Count])
{
    return Count;
}
} // namespace

TMonkey::TMonkey(TConsoleShell const& shell, TVirtualTime* time, quint32 seed)
    : m_Screen(shell.GetScreen())
    , m_Usb(shell.GetUsbWatch())
    , m_ToolTips(shell.GetPlatform()->GetToolTipMode())
    , m_Time(time)
    , m_Random(seed)
    , m_Windows(m_Screen, &m_Random)
    , m_Operator(m_Screen, [time](int ms) { time->Pass(ms); })
{
}

QString TMonkey::Play(int steps)
{
    for (int step = 1; step <= steps; ++step)
    {
        Step();
        QString const broken = BrokenInvariant(m_Screen);
        if (!broken.isEmpty())
            return QStringLiteral("step %1: %2").arg(step).arg(broken);
    }
    return QString();
}

QString TMonkey::Summary() const
{
    QStringList parts;
    for (auto done = m_Done.constBegin(); done != m_Done.constEnd(); ++done)
        parts.append(QStringLiteral("%1 %2").arg(done.value()).arg(done.key()));
    return parts.join(QStringLiteral(", "));
}

void TMonkey::Step()
{
    struct TDeed
    {
        int weight;
        char const* name;
        void (TMonkey::*act)();
    };
    constexpr TDeed Deeds[] = {
        {260, "buttons", &TMonkey::TapAButton},
        {105, "taps", &TMonkey::TapSomewhere},
        {70, "drags", &TMonkey::DragSomewhere},
        {130, "windows dragged", &TMonkey::DragAWindow},
        {60, "flicks", &TMonkey::FlickOffTheBar},
        {150, "wheel turns", &TMonkey::TurnTheWheel},
        {130, "keys", &TMonkey::PressAKey},
        {8, "sticks", &TMonkey::InsertOrPull},
        {10, "swipes from the edge", &TMonkey::SwipeFromTheEdge},
        {5, "tool tip modes", &TMonkey::SwitchToolTips},
        {30, "windows of its own", &TMonkey::PlayWithWindows},
        {40, "waits", &TMonkey::Wait},
        {2, "long waits", &TMonkey::WaitLong},
    };
    constexpr int Total = 1000;
    int choice = Any(Total);
    for (TDeed const& deed : Deeds)
    {
        choice -= deed.weight;
        if (choice >= 0)
            continue;
        ++m_Done[QLatin1String(deed.name)];
        (this->*deed.act)();
        break;
    }
    m_Time->Pass(Pauses[Any(CountOf(Pauses))]);
}

QPoint TMonkey::AnyPoint()
{
    return {Any(SCREEN_WIDTH), Any(SCREEN_HEIGHT)};
}

void TMonkey::TapAButton()
{
    QList<TPushButton*> buttons = m_Screen->findChildren<TPushButton*>();
    while (!buttons.isEmpty())
    {
        if (m_Operator.Tap(static_cast<QWidget*>(buttons.takeAt(Any(buttons.size())))))
            return;
    }
}

void TMonkey::TapSomewhere()
{
    m_Operator.Tap(AnyPoint());
}

void TMonkey::DragSomewhere()
{
    QVector<QPoint> path;
    for (int count = 2 + Any(MostDragPoints - 1); count > 0; --count)
        path.append(AnyPoint());
    m_Operator.Drag(path);
}

void TMonkey::DragAWindow()
{
    QPoint const from(NAVBAR_WIDTH + Any(MINI_WINDOW_SIZE), Any(SCREEN_HEIGHT));
    QVector<QPoint> path{from};
    for (int count = 1 + Any(MostDragPoints); count > 0; --count)
        path.append(path.constLast() + QPoint(Any(MINI_WINDOW_SIZE) - MINI_WINDOW_SIZE / 2,
                                              Any(SCREEN_HEIGHT) - SCREEN_HEIGHT / 2));
    m_Operator.Drag(path);
}

void TMonkey::FlickOffTheBar()
{
    QPoint const from(Any(NAVBAR_WIDTH), Any(SCREEN_HEIGHT));
    m_Operator.Drag(from, from + QPoint(Any(SCREEN_WIDTH / 2), Any(NAVBAR_WIDTH) - NAVBAR_WIDTH / 2),
                    FlickSteps);
}

void TMonkey::TurnTheWheel()
{
    m_Operator.Wheel(WheelUnits[Any(CountOf(WheelUnits))]);
}

void TMonkey::PressAKey()
{
    Qt::Key const key = Keys[Any(CountOf(Keys))];
    bool const isHeld = Any(CountOf(Keys)) == 0;
    if (isHeld)
        m_Operator.Key(key, BackHoldTime);
    else
        m_Operator.Key(key);
}

void TMonkey::InsertOrPull()
{
    if (m_Usb->IsExternalDrivePresent())
        m_Usb->Pull();
    else
        m_Usb->Insert();
}

void TMonkey::SwipeFromTheEdge()
{
    QPoint const from(Any(SCREEN_WIDTH), SCREEN_HEIGHT - 1);
    m_Operator.Drag(from, from - QPoint(0, Any(SCREEN_HEIGHT / 2)), FlickSteps);
}

void TMonkey::SwitchToolTips()
{
    m_ToolTips->SetOn(!m_ToolTips->ToolTipVisible());
}

void TMonkey::PlayWithWindows()
{
    m_Windows.Act();
}

void TMonkey::Wait() {}

void TMonkey::WaitLong()
{
    m_Time->Pass(LongTime);
}
