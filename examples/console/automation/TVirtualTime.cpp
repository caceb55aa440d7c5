#include "TVirtualTime.h"

#include "TLocalTime.h"
#include "VirtualClock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHash>

namespace
{
constexpr int FrameTime = 20;

void HandleEvents()
{
    QCoreApplication::processEvents();
    // Outside of a loop nobody else would.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
} // namespace

TVirtualTime::TVirtualTime()
{
    VirtualClock::Hold();
    qSetGlobalQHashSeed(0);
    // A morning in spring, the same in every run.
    TLocalTime::SetCurrentDateTime(QDateTime(QDate(2026, 4, 14), QTime(9, 30)));
}

TVirtualTime::~TVirtualTime()
{
    TLocalTime::SetCurrentDateTime(QDateTime());
    VirtualClock::Release();
}

void TVirtualTime::SetWaitForOthers(std::function<void()> const& wait)
{
    m_WaitForOthers = wait;
}

void TVirtualTime::HandleFrame() const
{
    HandleEvents();
    if (!m_WaitForOthers)
        return;
    m_WaitForOthers();
    HandleEvents();
}

void TVirtualTime::Pass(int ms)
{
    HandleFrame();
    for (int left = ms; left > 0; left -= FrameTime)
    {
        VirtualClock::Advance(qMin(left, FrameTime));
        HandleFrame();
    }
}
