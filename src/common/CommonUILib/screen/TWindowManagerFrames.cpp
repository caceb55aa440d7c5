// The window manager's animations. Position follows the time that has passed, never the count of frames.

#include "Metrics.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TLocalTime.h"
#include "TMiniWindow.h"
#include "TOffScreenButtons.h"
#include "TScreen.h"
#include "TWindowManager.h"

#include <algorithm>

namespace
{
constexpr int SlideDuration = 160;
// Two frames' time: by then one was left out.
constexpr int LateFrame = 40;

int HorizontalTravel()
{
    return MINI_WINDOW_SIZE + MINI_WINDOW_BORDER;
}

// Pixels per ms.
double HorizontalSpeed()
{
    return HorizontalTravel() / double(SlideDuration);
}

double VerticalSpeed()
{
    return MINI_WINDOW_SIZE / double(SlideDuration);
}

// The top of the strip of off-screen buttons while it is up.
int OffScreenRestLine()
{
    return SCREEN_HEIGHT - OFF_SCREEN_BUTTON_SIZE - OFF_SCREEN_BUTTON_BOTTOM_MARGIN;
}

bool IsMoving(EMiniViewState state)
{
    return state != MINI_VIEW_SHOWN && state != MINI_VIEW_HIDDEN;
}
} // namespace

void TWindowManager::OnMiniViewDoneDrag(int id, int yPos)
{
    ViewDetails* const view = FindMini(id);
    if (!view || !IsSlot(view->slot))
        return;
    int const y = qBound(0, yPos, GetSlotCount() * MINI_WINDOW_SIZE - 1);
    TakeOutOfSlot(*view, id);
    view->slot = y / MINI_WINDOW_SIZE;
    int const remainder = y % MINI_WINDOW_SIZE;
    m_Slots[static_cast<size_t>(view->slot)].append(id);
    // The animation starts partway, where the finger left the window.
    if (view->miniWindow->y() >= y)
    {
        view->miniState = MINI_VIEW_SETTLING_UP;
        view->elapsed = int((MINI_WINDOW_SIZE - remainder) / VerticalSpeed());
    }
    else
    {
        view->miniState = MINI_VIEW_SETTLING_DOWN;
        view->elapsed = int(remainder / VerticalSpeed());
    }
    view->miniWindow->setAttribute(Qt::WA_TransparentForMouseEvents, true);
}

void TWindowManager::OnNextFrame()
{
    int const delta = FrameDelta();
    // Looked at first, since an idle frame, and nearly all are, must cost nothing: not even a copy of the
    // ids.
    if (IsAnyMiniViewMoving())
    {
        QList<int> const ids = m_Views.keys();
        for (int const id : ids)
            AnimateMiniView(id, delta);
    }
    else if (m_AreFramesOffBeat)
    {
        m_AreFramesOffBeat = false;
        StartOnTheBeat(m_FrameTimer);
    }
    AnimateOffScreenButtons(delta);
    if (m_Swapping)
    {
        m_Swapping = SwappingViews();
        if (!m_Swapping)
            SetMiniviewObstructionUpdatesEnabled(true);
    }
}

int TWindowManager::FrameDelta()
{
    qint64 const now = TLocalTime::getCurrentTime();
    qint64 const delta = m_LastFrameTime < 0 ? 0 : now - m_LastFrameTime;
    m_LastFrameTime = now;
    // After a stall the timers go on from there. Each is put right by its own tick: a timer that another one
    // restarts may never expire.
    if (delta >= LateFrame)
        m_AreFramesOffBeat = m_AreUpdatesOffBeat = true;
    // More than a slide takes is never needed, and a sum with it never overflows.
    return static_cast<int>(qBound<qint64>(0, delta, SlideDuration + 1));
}

bool TWindowManager::IsAnyMiniViewMoving() const
{
    return std::any_of(m_Views.constBegin(), m_Views.constEnd(),
                       [](ViewDetails const& view) { return view.miniWindow && IsMoving(view.miniState); });
}

void TWindowManager::AnimateMiniView(int id, int delta)
{
    ViewDetails* const view = FindMini(id);
    if (!view)
        return;
    switch (view->miniState)
    {
    case MINI_VIEW_OPENING:
        SlideIn(*view, id, delta);
        break;
    case MINI_VIEW_HIDING:
        SlideOut(*view, id, delta);
        break;
    case MINI_VIEW_SETTLING_UP:
    case MINI_VIEW_SETTLING_DOWN:
        Settle(*view, id, delta);
        break;
    case MINI_VIEW_SHOWN:
    case MINI_VIEW_HIDDEN:
        break;
    }
}

void TWindowManager::SlideIn(ViewDetails& view, int id, int delta)
{
    view.elapsed = std::min(view.elapsed + delta, SlideDuration);
    int const x = int(NAVBAR_WIDTH - HorizontalTravel() + view.elapsed * HorizontalSpeed());
    MoveMiniWindow(id, x, view.miniWindow->y());
    // Looked at anew: who follows the window may have sent it somewhere else.
    ViewDetails const* const moved = FindMini(id);
    if (moved && moved->miniState == MINI_VIEW_OPENING && moved->elapsed == SlideDuration)
        FinishOpening(id);
}

void TWindowManager::SlideOut(ViewDetails& view, int id, int delta)
{
    // One more than the duration: the last position is drawn before the window goes.
    view.elapsed = std::min(view.elapsed + delta, SlideDuration + 1);
    int const x = int(NAVBAR_WIDTH - view.elapsed * HorizontalSpeed());
    MoveMiniWindow(id, x, view.miniWindow->y());
    ViewDetails* const moved = FindMini(id);
    if (!moved || moved->miniState != MINI_VIEW_HIDING || moved->elapsed <= SlideDuration)
        return;
    moved->miniState = MINI_VIEW_HIDDEN;
    if (moved->hideAfterAnimation)
        HideMiniWindow(id);
}

void TWindowManager::Settle(ViewDetails& view, int id, int delta)
{
    if (view.elapsed >= SlideDuration)
    {
        FinishOpening(id);
        RestackMiniViews();
        return;
    }
    view.elapsed = std::min(view.elapsed + delta, SlideDuration);
    double const travelled = view.elapsed * VerticalSpeed();
    double const y = view.miniState == MINI_VIEW_SETTLING_UP ? (view.slot + 1) * MINI_WINDOW_SIZE - travelled
                                                             : (view.slot - 1) * MINI_WINDOW_SIZE + travelled;
    MoveMiniWindow(id, view.miniWindow->x(), int(y));
}

void TWindowManager::FinishOpening(int id)
{
    ViewDetails* const view = FindMini(id);
    if (!view)
        return;
    view->miniState = MINI_VIEW_SHOWN;
    view->miniWindow->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    view->miniWindow->ChildButtonsPropagateClick(true);
}

void TWindowManager::SetOffScreenButtons(TOffScreenButtons* buttons)
{
    m_OffScreenButtons = buttons;
    m_OffScreenState = OFF_SCREEN_HIDDEN;
    m_OffScreenElapsed = 0;
}

EOffScreenState TWindowManager::GetOffScreenState() const
{
    return m_OffScreenState;
}

void TWindowManager::OnShowOffScreenButtons()
{
    if (!m_OffScreenButtons || AreOffScreenButtonsComing())
        return;
    m_OffScreenState = OFF_SCREEN_RISING;
    m_OffScreenButtons->adjustSize();
    m_OffScreenButtons->update();
    m_Screen->RaiseToBelowTooltips(m_OffScreenButtons);
    m_OffScreenButtons->show();
    m_OffScreenElapsed = 0;
    m_OffScreenButtons->setFocus(Qt::OtherFocusReason);
}

void TWindowManager::OnHideOffScreenButtons()
{
    if (!m_OffScreenButtons || !AreOffScreenButtonsComing())
        return;
    m_OffScreenState = OFF_SCREEN_FALLING;
    m_OffScreenElapsed = 0;
    m_OffScreenButtons->setAttribute(Qt::WA_TransparentForMouseEvents, true);
}

void TWindowManager::OnQuickHideOffScreenButtons()
{
    if (!m_OffScreenButtons || !AreOffScreenButtonsComing())
        return;
    m_OffScreenState = OFF_SCREEN_HIDDEN;
    m_OffScreenElapsed = 0;
    m_OffScreenButtons->move(0, SCREEN_HEIGHT);
    m_OffScreenButtons->hide();
}

// On their way in, or there.
bool TWindowManager::AreOffScreenButtonsComing() const
{
    return m_OffScreenState == OFF_SCREEN_RISING || m_OffScreenState == OFF_SCREEN_UP;
}

void TWindowManager::AnimateOffScreenButtons(int delta)
{
    bool const isRising = m_OffScreenState == OFF_SCREEN_RISING;
    if (!m_OffScreenButtons || (!isRising && m_OffScreenState != OFF_SCREEN_FALLING))
        return;
    m_OffScreenElapsed = std::min(m_OffScreenElapsed + delta, SlideDuration);
    int const from = isRising ? SCREEN_HEIGHT : OffScreenRestLine();
    int const to = isRising ? OffScreenRestLine() : SCREEN_HEIGHT;
    m_OffScreenButtons->move((SCREEN_WIDTH - m_OffScreenButtons->width()) / 2,
                             from + (to - from) * m_OffScreenElapsed / SlideDuration);
    if (m_OffScreenElapsed < SlideDuration)
        return;
    m_OffScreenElapsed = 0;
    m_OffScreenState = isRising ? OFF_SCREEN_UP : OFF_SCREEN_HIDDEN;
    m_OffScreenButtons->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    m_OffScreenButtons->setVisible(isRising);
}
