#include "TFrameMeter.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <ctime>
#include <numeric>

namespace
{
constexpr double NanosecondsPerMillisecond = 1e6;
constexpr double MillisecondsPerSecond = 1e3;

// What the processor has spent on this thread: what others take from it meanwhile is not the painting's
// fault.
double ThreadMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * MillisecondsPerSecond +
           static_cast<double>(time.tv_nsec) / NanosecondsPerMillisecond;
}
} // namespace

TFrameMeter::TFrameMeter(QWidget* window)
{
    m_Frames.reserve(MaxFrames + 1);
    window->installEventFilter(this);
}

double TFrameMeter::Mean() const
{
    return m_Frames.isEmpty() ? 0.0
                              : std::accumulate(m_Frames.begin(), m_Frames.end(), 0.0) / m_Frames.size();
}

double TFrameMeter::Longest() const
{
    return m_Frames.isEmpty() ? 0.0 : *std::max_element(m_Frames.begin(), m_Frames.end());
}

bool TFrameMeter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::UpdateRequest)
        return false;
    double const start = ThreadMilliseconds();
    watched->event(event);
    m_Frames.append(ThreadMilliseconds() - start);
    if (m_Frames.size() > MaxFrames)
        m_Frames.removeFirst();
    ++m_Count;
    return true;
}
