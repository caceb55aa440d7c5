#include "TFullWindow.h"

#include "CommonUI.h"
#include "Metrics.h"
#include "TFullWindowTitlebar.h"
#include "TPushButton.h"

#include <limits>

TFullWindow::TFullWindow(QWidget* parent)
    : TWindow(parent)
{
    bool const hasDashboard = CommonUI::GetCommonUIOptions().dashboardEnabled;
    setFixedSize(FULL_WINDOW_WIDTH - TASK_TOOLBAR_BUTTON_WIDTH,
                 hasDashboard ? FULL_WINDOW_HEIGHT : SCREEN_HEIGHT);
    move(FULL_WINDOW_X_POS, FULL_WINDOW_Y_POS);
}

bool TFullWindow::MiniViewsOverlap() const
{
    return GetMiniViewsOverlap();
}

void TFullWindow::SetTitleVisible(bool visible)
{
    m_TitleVisible = visible;
    if (m_Titlebar)
        m_Titlebar->setVisible(visible);
    PositionContent();
}

void TFullWindow::PositionContent()
{
    bool const hasTitle = m_Titlebar && m_Titlebar->isVisibleTo(this);
    int const titleHeight = hasTitle ? FULL_WINDOW_TITLEBAR_HEIGHT : 0;
    QWidget* const content = GetWindowContent();
    content->setGeometry(content->x(), titleHeight, width(), qMax(0, height() - titleHeight));
    SetContentRect(rect());
    if (m_Titlebar)
        m_Titlebar->stackUnder(content);
    PositionControlButtons();
}

void TFullWindow::SetButtonStartOffset(int offset)
{
    if (offset == m_ButtonStartOffset)
        return;
    m_ButtonStartOffset = offset;
    PositionControlButtons();
}

void TFullWindow::Setup()
{
    TWindow::Setup();
    m_Titlebar = new TFullWindowTitlebar(this);
    m_Titlebar->move(0, 0);
    m_Titlebar->setFixedWidth(width());
    m_Titlebar->setVisible(m_TitleVisible);
}

void TFullWindow::SetTitle(QString const& title)
{
    SetTitle(title, Qt::AlignLeft | Qt::AlignVCenter);
}

void TFullWindow::SetTitle(QString const& title, int flags)
{
    TWindow::SetTitle(title);
    SetupIfRequired();
    if (!m_Titlebar)
        return;
    m_Titlebar->SetTitle(title, flags);
    m_Titlebar->setVisible(m_TitleVisible);
    PositionContent();
}

void TFullWindow::IncludeWidgetInTitle(bool include)
{
    SetupIfRequired();
    if (m_Titlebar)
        m_Titlebar->IncludeWidgetInTitle(include);
}

void TFullWindow::IncludeWidget(QWidget* widget)
{
    SetupIfRequired();
    if (m_Titlebar)
        m_Titlebar->IncludeWidget(widget);
}

void TFullWindow::SetTitlebarRect(QRect* rect)
{
    SetupIfRequired();
    if (!rect || !m_Titlebar)
        return;
    m_Titlebar->setFixedSize(rect->size());
    m_Titlebar->move(rect->topLeft());
}

void TFullWindow::PositionControlButtons()
{
    int const bottom = GetWindowContent()->height();
    int index = 0;
    for (TPushButton* const button : GetControlButtons())
    {
        if (!button || !button->isVisibleTo(GetWindowContent()))
            continue;
        button->move(m_ButtonStartOffset + button->width() * index, bottom - button->height());
        ++index;
    }
}

QSize TFullWindow::MinSize()
{
    return {0, 0};
}

QSize TFullWindow::MaxSize()
{
    constexpr int Unlimited = std::numeric_limits<int>::max();
    return {Unlimited, Unlimited};
}

bool TFullWindow::HideTitleToMaximise()
{
    return false;
}

bool TFullWindow::HideTitle()
{
    return false;
}

KVN::AppWindowSurface* TFullWindow::GetAppWindowSurface()
{
    return nullptr;
}

void TFullWindow::MinimizeSurface(KVN::AppWindowSurface* surface)
{
    Q_UNUSED(surface)
}

void TFullWindow::MaximizeSurface(KVN::AppWindowSurface* surface)
{
    Q_UNUSED(surface)
}

void TFullWindow::SetObstructedRegions(QList<TObstructionData> const& regions)
{
    Q_UNUSED(regions)
}

bool TFullWindow::IsAvailable()
{
    return true;
}

void TFullWindow::resizeEvent(QResizeEvent* event)
{
    TWindow::resizeEvent(event);
    SetupIfRequired();
    PositionContent();
    if (m_Titlebar)
        m_Titlebar->setFixedWidth(width());
}

TFullWindowTitlebar* TFullWindow::GetTitlebar() const
{
    return m_Titlebar;
}
