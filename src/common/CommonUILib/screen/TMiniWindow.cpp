#include "TMiniWindow.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TMiniWindowTitlebar.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QMouseEvent>
#include <QPointer>

namespace
{
// After plain widgets, which have 0: the wheel reaches a mini window when it has passed the controls of the
// view.
constexpr unsigned MiniWindowPrecedence = 1;
} // namespace

TMiniWindow::TMiniWindow(QWidget* parent)
    : TWindow(parent)
    , m_Titlebar(new TMiniWindowTitlebar(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(MINI_WINDOW_SIZE + MINI_WINDOW_STRIPE, MINI_WINDOW_SIZE);
    SetBackground(PixmapNames::MiniWindow);
    GetWindowContent()->setFixedSize(MINI_WINDOW_CONTENT_WIDTH, MINI_WINDOW_CONTENT_HEIGHT);
    GetWindowContent()->move(MINI_WINDOW_CONTENT_X_OFFSET, MINI_WINDOW_CONTENT_Y_OFFSET);
    SetContentRect(GetWindowContent()->geometry());
    GetWindowContent()->raise();
    GetWindowContent()->show();
    m_Titlebar->move(0, 0);
    m_Titlebar->raise();
    m_Titlebar->show();
    connect(m_Titlebar->GetHideButton(), &QAbstractButton::clicked, this, [this] { OnHide(); });
    connect(m_Titlebar->GetMaximizeButton(), &QAbstractButton::clicked, this, [this] { OnMaximize(); });
}

void TMiniWindow::Setup()
{
    TWindow::Setup();
}

void TMiniWindow::SetTitle(QString const& title)
{
    TWindow::SetTitle(title);
    m_Titlebar->SetTitle(title);
}

void TMiniWindow::SetViewId(int id)
{
    m_ViewId = id;
}

int TMiniWindow::GetViewId()
{
    return m_ViewId;
}

bool TMiniWindow::IsAvailable()
{
    return true;
}

bool TMiniWindow::IsFullViewAvailable()
{
    return IsAvailable() && m_FullViewAvailable;
}

void TMiniWindow::SetFullView(bool available)
{
    m_FullViewAvailable = available;
}

bool TMiniWindow::CanHideView()
{
    return true;
}

void TMiniWindow::ChildButtonsPropagateClick(bool propagate)
{
    QList<TPushButton*> const buttons = findChildren<TPushButton*>();
    for (TPushButton* const button : buttons)
        button->SetPropagateClicks(propagate);
}

unsigned TMiniWindow::GetMMISortPrecedence()
{
    return MiniWindowPrecedence;
}

bool TMiniWindow::ShowDashboard()
{
    return true;
}

KVN::AppWindowSurface* TMiniWindow::GetAppWindowSurface()
{
    return nullptr;
}

void TMiniWindow::MaximizeSurface(KVN::AppWindowSurface* surface)
{
    Q_UNUSED(surface)
}

void TMiniWindow::ShowWindow(bool modal)
{
    TWindow::ShowWindow(modal);
    m_Titlebar->raise();
}

void TMiniWindow::OnHide()
{
    Q_EMIT MiniWindowHide(m_ViewId, true);
}

void TMiniWindow::OnMaximize()
{
    Q_EMIT MiniWindowMaximize(m_ViewId);
}

void TMiniWindow::OnMinimize() {}

void TMiniWindow::ShowMaximise()
{
    m_Titlebar->GetMaximizeButton()->show();
}

void TMiniWindow::HideMaximise()
{
    m_Titlebar->GetMaximizeButton()->hide();
}

void TMiniWindow::UpdateView() {}

void TMiniWindow::mousePressEvent(QMouseEvent* event)
{
    Q_UNUSED(event)
    m_Pressed = true;
}

// The window's own edges are the thresholds: a finger has to leave the window. The order of the tests is that
// of their precedence.
void TMiniWindow::mouseMoveEvent(QMouseEvent* event)
{
    QPointer<TMiniWindow> const self(this);
    QPoint const position = event->localPos().toPoint();
    if (position.y() < 0)
        SlideVertically(&TMiniWindow::MiniWindowSlideUp, ScreenY(event));
    if (self && position.y() > MINI_WINDOW_SIZE)
        SlideVertically(&TMiniWindow::MiniWindowSlideDown, ScreenY(event));
    if (!self)
        return;
    if (position.x() > MINI_WINDOW_SIZE + MINI_WINDOW_STRIPE)
    {
        if (m_Pressed && !m_Sliding && !m_Hiding)
        {
            m_Maximising = true;
            m_Pressed = false;
            OnMaximize();
        }
        return;
    }
    if (position.x() >= 0)
    {
        // Coming back into the window, or entering it with the finger down, arms the gesture again.
        m_Pressed = true;
        return;
    }
    BeginHide();
}

void TMiniWindow::SlideVertically(void (TMiniWindow::*notice)(int, int), int y)
{
    if (!m_Pressed || m_Hiding || m_Maximising)
        return;
    m_Sliding = true;
    ChildButtonsPropagateClick(false);
    Q_EMIT(this->*notice)(m_ViewId, y);
}

void TMiniWindow::BeginHide()
{
    if (!m_Pressed || m_Sliding || m_Maximising)
        return;
    m_Hiding = true;
    m_Pressed = false;
    ChildButtonsPropagateClick(false);
    Q_EMIT MiniWindowHide(m_ViewId, false);
}

void TMiniWindow::mouseReleaseEvent(QMouseEvent* event)
{
    bool const wasSliding = m_Sliding;
    bool const wasHiding = m_Hiding;
    int const y = ScreenY(event);
    ClearGesture();
    QPointer<TMiniWindow> const self(this);
    if (wasSliding)
        Q_EMIT MiniWindowDoneDrag(m_ViewId, y);
    if (self && wasHiding)
        Q_EMIT MiniWindowHideComplete(m_ViewId);
}

// Counted from the top of the screen, wherever that stands on a larger display. Not from the top-level
// window: a window that was taken away under the finger is its own.
int TMiniWindow::ScreenY(QMouseEvent const* event) const
{
    int const top = MainScreen ? MainScreen->mapToGlobal(QPoint(0, 0)).y() : 0;
    return qRound(event->screenPos().y()) - top;
}

void TMiniWindow::ClearGesture()
{
    m_Pressed = false;
    m_Sliding = false;
    m_Hiding = false;
    m_Maximising = false;
}

void TMiniWindow::paintEvent(QPaintEvent* event)
{
    TWindow::paintEvent(event);
}

void TMiniWindow::showEvent(QShowEvent* event)
{
    TWindow::showEvent(event);
    if (IsFullViewAvailable())
        ShowMaximise();
    else
        HideMaximise();
}

// The gesture goes on: a window that is taken away under the finger still sees its release, and settles.
void TMiniWindow::hideEvent(QHideEvent* event)
{
    TWindow::hideEvent(event);
}
