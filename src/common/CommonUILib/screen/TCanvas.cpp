#include "TCanvas.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "TFullWindow.h"
#include "TLockStack.h"
#include "TModalWidget.h"
#include "TObstructionManager.h"
#include "TObstructionManagerHelpers.h"
#include "TScreen.h"

#include <QPainter>
#include <QPaintEvent>

namespace
{
// Below this x a full window stands in no need of a title that tells it from the mini windows beside it.
constexpr int MaximisedBelowX = 101;
// The sidebar is drawn for screens that are at least this wide where mini windows overlap.
constexpr int WideScreen = 1024;

// One image for all canvases, loaded at the first painting and kept.
QPixmap const& Sidebar()
{
    static auto const* const sidebar = new QPixmap(QStringLiteral(":/Images/Resources/Sidebar.png"));
    return *sidebar;
}
} // namespace

TCanvas::TCanvas(QWidget* parent)
    : QWidget(parent, Qt::SubWindow)
    , m_ObstructionManager(new TObstructionManager(this, this))
    , m_Locks(std::make_unique<TLockStack>())
    , m_ModalWidget(new TModalWidget(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_ModalWidget->move(0, 0);
    m_ModalWidget->hide();
    resize(SCREEN_WIDTH, SCREEN_HEIGHT);
}

TCanvas::~TCanvas() = default;

void TCanvas::SetBackground(QString const& name)
{
    m_BackgroundName = name;
    FetchBackground();
    update();
}

void TCanvas::FetchBackground()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (m_BackgroundName.isEmpty() || !pixmaps)
        m_Background.clear();
    else
        m_Background = pixmaps->GetResizedPixmap(m_BackgroundName, width(), height());
}

void TCanvas::SetBackgroundColor(QColor const& color)
{
    m_BackgroundColor = color;
    update();
}

TObstructionManager* TCanvas::GetObstructionManager() const
{
    return m_ObstructionManager;
}

TMenuManager* TCanvas::GetMenuManager() const
{
    return m_MenuManager;
}

TMenuDisplayManager* TCanvas::GetMenuDisplayManager() const
{
    return m_MenuDisplayManager;
}

void TCanvas::SetMenuManagers(TMenuManager* manager, TMenuDisplayManager* display)
{
    m_MenuManager = manager;
    m_MenuDisplayManager = display;
}

QRect TCanvas::GetRootToolbarRect() const
{
    int const reserved = MainScreen ? MainScreen->GetSystemToolBarHeightWithoutVisibilityCheck() : 0;
    return {width() - WINDOW_TOOLBAR_BUTTON_WIDTH, 0, WINDOW_TOOLBAR_BUTTON_WIDTH, height() - reserved};
}

int TCanvas::GetLeftLimit() const
{
    return m_LeftLimit;
}

void TCanvas::RefreshObstructions()
{
    if (m_FullWindow)
        m_FullWindow->SetObstructedRegions(
            TObstructionManagerHelpers::MapFrom(m_ObstructedRegions, this, m_FullWindow));
}

void TCanvas::UpdateFullWindowGeometry()
{
    if (!m_FullWindow)
        return;
    int const x = m_FullWindow->MiniViewsOverlap() ? NAVBAR_WIDTH : m_LeftLimit;
    int const rightReserve = HasMenus() || m_ToolbarReserved ? TASK_TOOLBAR_BUTTON_WIDTH : 0;
    m_FullWindow->move(x, m_FullWindow->y());
    m_FullWindow->setFixedWidth(qMax(0, width() - x - rightReserve));
    RefreshObstructions();
    if (m_ModalWidget->isVisible())
        m_FullWindow->stackUnder(m_ModalWidget);
    m_ModalWidget->SetContentsMargins(x, 0, 0, 0);
    bool const isTitleHidden =
        x < MaximisedBelowX ? m_FullWindow->HideTitleToMaximise() : m_FullWindow->HideTitle();
    m_FullWindow->SetTitleVisible(!isTitleHidden);
}

void TCanvas::SetFullWindow(TFullWindow* window, bool toolbarReserved)
{
    m_FullWindow = window;
    m_ToolbarReserved = toolbarReserved;
    if (window && window->parentWidget() != this)
    {
        QPoint const position = window->pos();
        window->setParent(this);
        window->move(position);
    }
    UpdateFullWindowGeometry();
}

bool TCanvas::HasMenus() const
{
    return false;
}

void TCanvas::AddLockingWidget(KVN::ModalData const& data)
{
    if (data.modalType == KVN::MODAL_NONE || !data.widget)
        return;
    if (!m_Locks->Add(data))
    {
        // One that came after it may have died meanwhile.
        StackModalWidget();
        return;
    }
    m_ModalWidget->SetModalData(data);
    m_ModalWidget->show();
    m_ModalWidget->raise();
    data.widget->raise();
}

void TCanvas::RemoveLockingWidget(QWidget* widget)
{
    m_Locks->Remove(widget);
    StackModalWidget();
}

void TCanvas::StackModalWidget()
{
    if (KVN::ModalData const* const top = m_Locks->Top())
    {
        m_ModalWidget->SetModalData(*top);
        m_ModalWidget->stackUnder(top->widget);
        return;
    }
    m_ModalWidget->SetModalData({});
    m_ModalWidget->hide();
}

KVN::AppWindowSurface* TCanvas::GetCanvasSurface() const
{
    return nullptr;
}

void TCanvas::MinimizeCanvasSurface(KVN::AppWindowSurface* surface)
{
    Q_UNUSED(surface)
}

void TCanvas::SetObstructedRegions(QList<TObstructionData> const& regions)
{
    m_ObstructedRegions = regions;
    RefreshObstructions();
}

int TCanvas::ReadLeftLimit() const
{
    if (!MainScreen)
        return 0;
    return TObstructionManagerHelpers::GetObstructionLimitAtSideOf(
        *MainScreen->GetObstructionManager(), const_cast<TCanvas*>(this), OBSTRUCTION_LEFT);
}

void TCanvas::ShiftCanvas()
{
    int const limit = ReadLeftLimit();
    if (limit == m_LeftLimit)
        return;
    m_LeftLimit = limit;
    UpdateFullWindowGeometry();
    // The limit moves at every frame of a slide, and only the sidebar depends on it.
    QRect const sidebar = SidebarRect();
    if (sidebar != m_PaintedSidebar)
        update(sidebar | m_PaintedSidebar);
}

void TCanvas::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_LeftLimit = ReadLeftLimit();
    if (MainScreen)
    {
        connect(MainScreen->GetObstructionManager(), &TObstructionManager::ObstructionLimitChanged, this,
                &TCanvas::ShiftCanvas, Qt::UniqueConnection);
    }
    Q_EMIT OnShow();
    UpdateFullWindowGeometry();
}

void TCanvas::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (MainScreen)
    {
        disconnect(MainScreen->GetObstructionManager(), &TObstructionManager::ObstructionLimitChanged, this,
                   &TCanvas::ShiftCanvas);
    }
    releaseKeyboard();
    Q_EMIT OnHide();
}

void TCanvas::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_ModalWidget->resize(size());
    FetchBackground();
}

void TCanvas::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    m_PaintedSidebar = SidebarRect();
    // A mini window that slides uncovers nothing but sidebar: what would be painted over is left out.
    if (!m_PaintedSidebar.contains(event->rect()) || Sidebar().hasAlpha())
    {
        if (m_Background)
            painter.drawPixmap(0, 0, *m_Background);
        if (m_BackgroundColor.isValid())
            painter.fillRect(rect(), m_BackgroundColor);
    }
    PaintSidebar(&painter);
}

// Continues the navigation bar behind the mini windows, from the bar to the room that they leave.
void TCanvas::PaintSidebar(QPainter* painter) const
{
    QRect const sidebar = SidebarRect();
    if (!sidebar.isEmpty() && !Sidebar().isNull())
        painter->drawPixmap(sidebar, Sidebar(),
                            sidebar.translated(Sidebar().width() - sidebar.width() - sidebar.x(), 0));
}

// Where the sidebar shows; empty where it does not.
QRect TCanvas::SidebarRect() const
{
    if (!MainScreen || !MainScreen->IsNavigationBarVisible())
        return {};
    int shownWidth = m_LeftLimit - NAVBAR_WIDTH;
    if (m_FullWindow && m_FullWindow->MiniViewsOverlap())
        shownWidth = SCREEN_WIDTH < WideScreen ? 0 : SCREEN_WIDTH;
    if (shownWidth <= 0)
        return {};
    // Only here is the picture itself asked: it is not worth decoding before a mini window first opens.
    return {NAVBAR_WIDTH, 0, qMin(shownWidth, Sidebar().width()), SCREEN_HEIGHT};
}
