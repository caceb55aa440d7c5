#include "TWindowManager.h"

#include "CommonUI.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "ModuleIds.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TNavigationButton.h"
#include "TObstructionManager.h"
#include "TScreen.h"
#include "TShadowLabel.h"

#include <algorithm>

#include <QDeadlineTimer>

namespace
{
constexpr int FrameInterval = 20;
constexpr int UpdateInterval = 100;
constexpr int AllButtons = -1;
constexpr int ButtonsBesideALimitedView = 2;

void SetMouseTransparent(QWidget* widget, bool transparent)
{
    widget->setAttribute(Qt::WA_TransparentForMouseEvents, transparent);
}
} // namespace

TWindowManager::TWindowManager(TScreen* screen, QWidget* navigationBar)
    : QObject(screen)
    , m_Slots(static_cast<size_t>(GetSlotCount()))
    , m_Screen(screen)
    , m_NavigationBar(navigationBar)
{
    m_FrameTimer.setTimerType(Qt::PreciseTimer);
    m_FrameTimer.setInterval(FrameInterval);
    connect(&m_FrameTimer, &QTimer::timeout, this, &TWindowManager::OnNextFrame);
    StartOnTheBeat(m_FrameTimer);
    m_UpdateTimer.setTimerType(Qt::PreciseTimer);
    m_UpdateTimer.setInterval(UpdateInterval);
    connect(&m_UpdateTimer, &QTimer::timeout, this, &TWindowManager::OnUpdateScreen);
    StartOnTheBeat(m_UpdateTimer);
}

TWindowManager::~TWindowManager()
{
    for (ViewDetails const& view : qAsConst(m_Views))
    {
        delete view.rightShadow;
        delete view.bottomShadow;
    }
}

// A wake costs far more than an idle tick. Qt moves a coarse timer of 100 ms, such as the navigator's, to the
// tenths of the steady clock's second: timers that start at a multiple of a frame share its wakes.
void TWindowManager::StartOnTheBeat(QTimer& timer)
{
    qint64 const now = QDeadlineTimer::current(Qt::PreciseTimer).deadline();
    timer.stop();
    QTimer::singleShot(FrameInterval - static_cast<int>(now % FrameInterval), Qt::PreciseTimer, this,
                       [&timer] { timer.start(); });
}

int TWindowManager::GetSlotCount()
{
    return SCREEN_HEIGHT / MINI_WINDOW_SIZE;
}

void TWindowManager::SetSetupManagerUniqueId(QString const& name)
{
    m_SetupManagerId = name;
}

void TWindowManager::SetInventorManagerUniqueId(QString const& name)
{
    m_InventorManagerId = name;
}

void TWindowManager::SetGuideManager(TGuideManager* manager)
{
    m_GuideManager = manager;
}

TGuideManager* TWindowManager::GetGuideManager() const
{
    return m_GuideManager;
}

int TWindowManager::GetFullViewId() const
{
    return m_FullViewId;
}

void TWindowManager::SetFullViewId(int id)
{
    m_FullViewId = id;
    TellFullView();
}

// At the end of each way to another view: whoever listens finds all of it done.
void TWindowManager::TellFullView()
{
    if (m_FullViewId == m_ToldFullViewId)
        return;
    m_ToldFullViewId = m_FullViewId;
    Q_EMIT FullViewChanged(m_FullViewId);
}

bool TWindowManager::HasFullView(int id) const
{
    ViewDetails const* const view = Find(id);
    return view && (view->canvas || view->fullWindow);
}

void TWindowManager::SetLastFullViewId(int id)
{
    if (!IsSetupView(id))
        m_LastFullViewId = id;
}

ViewDetails* TWindowManager::Find(int id)
{
    auto const found = m_Views.find(id);
    return found == m_Views.end() ? nullptr : &found.value();
}

ViewDetails const* TWindowManager::Find(int id) const
{
    auto const found = m_Views.constFind(id);
    return found == m_Views.constEnd() ? nullptr : &found.value();
}

ViewDetails* TWindowManager::FindMini(int id)
{
    ViewDetails* const view = Find(id);
    return view && view->miniWindow ? view : nullptr;
}

bool TWindowManager::IsSetupView(int id) const
{
    ViewDetails const* const view = Find(id);
    return view && view->name == m_SetupManagerId && m_IdsByName.value(m_SetupManagerId, -1) == id;
}

void TWindowManager::RegisterView(QString const& name, int id, TPushButton* button, TMiniWindow* miniWindow,
                                  TCanvas* canvas, TFullWindow* fullWindow, eWidgetBehaviour behaviour,
                                  int nextView, bool hiddenButton)
{
    if (id < 0)
        return;
    ReleaseMiniWindow(id);

    bool const hasFullView = canvas || fullWindow;
    ViewDetails view;
    view.miniWindow = miniWindow;
    view.canvas = canvas;
    view.fullWindow = fullWindow;
    view.behaviour = behaviour;
    view.nextView = nextView;
    view.hiddenButton = hiddenButton;
    view.name = name;
    if (miniWindow)
    {
        miniWindow->SetFullView(hasFullView);
        MakeShadows(view);
    }
    m_Views.insert(id, view);

    if (miniWindow)
        ConnectMiniView(id, button, hasFullView);
    else if (hasFullView)
        ConnectFullOnlyView(view, button);
    if (canvas)
        canvas->SetFullWindow(fullWindow, false);

    m_IdsByName.insert(name, id);
    if (name == m_DefaultViewName)
        m_DefaultViewId = id;
    RestorePendingState();
}

void TWindowManager::ConnectMiniView(int id, TPushButton* button, bool hasFullView)
{
    TMiniWindow* const mini = m_Views[id].miniWindow;
    mini->SetViewId(id);
    if (button)
        connect(button, &TPushButton::Clicked, this, &TWindowManager::OnShowMiniView, Qt::UniqueConnection);
    connect(mini, &TMiniWindow::MiniWindowHide, this, &TWindowManager::OnHideMiniView, Qt::UniqueConnection);
    connect(mini, &TMiniWindow::MiniWindowSlideUp, this, &TWindowManager::OnSlideMiniViewUp,
            Qt::UniqueConnection);
    connect(mini, &TMiniWindow::MiniWindowSlideDown, this, &TWindowManager::OnSlideMiniViewDown,
            Qt::UniqueConnection);
    connect(mini, &TMiniWindow::MiniWindowDoneDrag, this, &TWindowManager::OnMiniViewDoneDrag,
            Qt::UniqueConnection);
    connect(mini, &TMiniWindow::MiniWindowHideComplete, this, &TWindowManager::OnMiniViewHideComplete,
            Qt::UniqueConnection);
    if (hasFullView)
    {
        connect(mini, &TMiniWindow::MiniWindowMaximize, this, &TWindowManager::OnMaximizeMiniView,
                Qt::UniqueConnection);
        if (auto* const navigation = qobject_cast<TNavigationButton*>(button))
        {
            connect(navigation, &TNavigationButton::DraggedOffRight, this, &TWindowManager::OnDraggedOffRight,
                    Qt::UniqueConnection);
        }
    }
    // A module may delete its window without a word; the shadows must not stay behind.
    connect(mini, &QObject::destroyed, this,
            [this, id]
            {
                // By now only a plain widget is left of it, which must not be called any more.
                m_Views[id].miniWindow = nullptr;
                ReleaseMiniWindow(id);
            });
    if (TObstructionManager* const obstructions = m_Screen->GetObstructionManager())
        obstructions->RegisterObstruction(mini, OBSTRUCTION_LEFT);
}

void TWindowManager::ConnectFullOnlyView(ViewDetails const& view, TPushButton* button)
{
    if (!button)
        return;
    auto* const navigation = qobject_cast<TNavigationButton*>(button);
    if (view.name == m_SetupManagerId)
    {
        connect(button, &TPushButton::Clicked, this, &TWindowManager::OnShowSetup, Qt::UniqueConnection);
        if (navigation)
        {
            connect(navigation, &TNavigationButton::DraggedOffRight, this, &TWindowManager::OnShowSetup,
                    Qt::UniqueConnection);
        }
        return;
    }
    connect(button, &TPushButton::Clicked, this, &TWindowManager::OnActionButton, Qt::UniqueConnection);
    if (navigation)
    {
        connect(navigation, &TNavigationButton::DraggedOffRight, this, &TWindowManager::OnDraggedOffRight,
                Qt::UniqueConnection);
    }
}

void TWindowManager::MakeShadows(ViewDetails& view)
{
    auto const makeShadow = [this](QString const& name, int width, int height)
    {
        KVN::PixmapManager* const pixmaps = m_Screen->GetPixmapManager();
        QPixmap const picture = pixmaps ? *pixmaps->GetResizedPixmap(name, width, height) : QPixmap();
        return new TShadowLabel(m_Screen, picture, QSize(width, height));
    };
    view.rightShadow = makeShadow(PixmapNames::MiniWindowRightShadow, MINI_WINDOW_SHADOW,
                                  MINI_WINDOW_SIZE + MINI_WINDOW_SHADOW);
    // As long as the window that it falls from; the corner belongs to the right shadow.
    view.bottomShadow = makeShadow(PixmapNames::MiniWindowBottomShadow, MINI_WINDOW_SIZE + MINI_WINDOW_STRIPE,
                                   MINI_WINDOW_SHADOW);
}

// Takes the mini window of a view off the screen and out of the manager's reach.
void TWindowManager::ReleaseMiniWindow(int id)
{
    ViewDetails* const view = Find(id);
    if (!view)
        return;
    TakeOutOfSlot(*view, id);
    view->miniState = MINI_VIEW_HIDDEN;
    delete view->rightShadow;
    delete view->bottomShadow;
    TMiniWindow* const mini = view->miniWindow;
    view->miniWindow = nullptr;
    if (!mini)
        return;
    disconnect(mini, nullptr, this, nullptr);
    if (TObstructionManager* const obstructions = m_Screen->GetObstructionManager())
        obstructions->RemoveObstruction(mini);
    SetMouseTransparent(mini, false);
    mini->HideWindow();
}

void TWindowManager::TakeOutOfSlot(ViewDetails& view, int id)
{
    // Out of all of them: a slot may have been given out by hand.
    for (QList<int>& slot : m_Slots)
        slot.removeAll(id);
    view.slot = -1;
}

bool TWindowManager::IsSlot(int slot) const
{
    return slot >= 0 && slot < static_cast<int>(m_Slots.size());
}

void TWindowManager::RemoveView(int id)
{
    if (!Find(id))
        return;
    ReleaseMiniWindow(id);
    bool const isCurrent = id == m_FullViewId;
    QPointer<TCanvas> const canvas = m_Views[id].canvas;
    if (isCurrent)
    {
        // The setup's window would answer its hiding with a return of its own.
        if (TFullWindow* const window = m_Views[id].fullWindow)
            disconnect(window, nullptr, this, nullptr);
        HideFullWindow(id);
    }
    m_Views.remove(id);
    for (auto name = m_IdsByName.begin(); name != m_IdsByName.end();)
        name = name.value() == id ? m_IdsByName.erase(name) : std::next(name);
    if (id == m_DefaultViewId)
        m_DefaultViewId = -1;
    if (!isCurrent)
        return;
    QPointer<TWindowManager> const self(this);
    OnRestoreLastView();
    if (self && canvas && m_Screen->GetCurrentCanvas() == canvas && !Find(m_FullViewId))
        canvas->hide();
}

void TWindowManager::DisplayView(int id, bool maximise)
{
    if (id == m_FullViewId || !Find(id))
        return;
    if (!FindMini(id))
        OnSwitchToView(id);
    else if (maximise)
        OnDraggedOffRight(id);
    else
        OnShowMiniView(id);
}

void TWindowManager::DisplayFullView(int id, bool playSound)
{
    if (!Find(id))
        return;
    if (playSound && CommonUI::GetCommonUIOptions().viewChangeSoundEnabled)
        tscreenPlaySound(SOUND_VIEW_CHANGE);
    ViewDetails const view = *Find(id);
    if (view.miniWindow ? !view.miniWindow->IsFullViewAvailable() : view.fullWindow.isNull())
        return;
    HideFullWindow(m_FullViewId);
    if (view.canvas)
        m_Screen->SetCurrentCanvas(view.canvas, true);
    if (view.fullWindow)
    {
        if (view.canvas)
            view.canvas->UpdateFullWindowGeometry();
        view.fullWindow->ShowWindow(false);
    }
    if (view.miniWindow)
        SetLastFullViewId(m_FullViewId);
    m_FullViewId = id;
    SystemToolBarChecks(id);
    ShowSystemToolbar(true);
    m_Screen->PushMMIWidget(view.fullWindow);
    TellFullView();
}

void TWindowManager::HideFullWindow(int id)
{
    ViewDetails const* const view = Find(id);
    if (view && view->fullWindow)
        view->fullWindow->HideWindow();
}

void TWindowManager::DisplayMiniView(int slot, int id)
{
    ViewDetails* const view = FindMini(id);
    if (!view || !IsSlot(slot) || view->miniState != MINI_VIEW_HIDDEN || !view->miniWindow->IsAvailable())
        return;
    view->elapsed = 0;
    view->miniState = MINI_VIEW_OPENING;
    view->slot = slot;
    MoveMiniWindow(id, NAVBAR_WIDTH - MINI_WINDOW_SIZE, slot * MINI_WINDOW_SIZE);
    ShowMiniWindow(id);
    MiniViewSafeRaise(id);
    m_Slots[static_cast<size_t>(slot)].append(id);
}

void TWindowManager::SetDefaultView(QString const& name)
{
    m_DefaultViewName = name;
    if (!m_IdsByName.contains(name))
        return;
    m_DefaultViewId = m_IdsByName.value(name);
    if (m_FullViewId < 0)
        DisplayFullView(m_DefaultViewId, false);
}

void TWindowManager::RestoreDefaultView()
{
    SetLastFullViewId(m_DefaultViewId);
    OnRestoreLastView();
}

int TWindowManager::GetMiniViewDisplaySlot(int id)
{
    ViewDetails* const view = Find(id);
    if (!view)
        return -1;
    auto const free =
        std::find_if(m_Slots.begin(), m_Slots.end(), [](QList<int> const& slot) { return slot.isEmpty(); });
    auto const slot = free == m_Slots.end() ? m_Slots.begin() : free;
    slot->append(id);
    return static_cast<int>(std::distance(m_Slots.begin(), slot));
}

void TWindowManager::MoveMiniWindow(int id, int x, int y)
{
    ViewDetails* const view = FindMini(id);
    if (!view)
        return;
    view->miniWindow->move(x, y);
    view->rightShadow->move(x + MINI_WINDOW_SIZE + MINI_WINDOW_STRIPE, y);
    view->bottomShadow->move(x, y + MINI_WINDOW_SIZE);
    Q_EMIT MiniViewHasMoved(id, x, y);
}

void TWindowManager::ShowMiniWindow(int id)
{
    if (ViewDetails const* const view = FindMini(id))
        view->miniWindow->ShowWindow(false);
    // The window's own handlers may have removed the view.
    if (ViewDetails const* const view = FindMini(id))
    {
        view->rightShadow->show();
        view->bottomShadow->show();
    }
}

void TWindowManager::HideMiniWindow(int id)
{
    ViewDetails const* const view = FindMini(id);
    if (!view)
        return;
    view->rightShadow->hide();
    view->bottomShadow->hide();
    view->miniWindow->HideWindow();
    Q_EMIT MiniViewHasMoved(id, 0, 0);
}

void TWindowManager::MiniWindowStackUnder(int id, QWidget* widget)
{
    ViewDetails const* const view = FindMini(id);
    if (!view || !widget)
        return;
    view->miniWindow->stackUnder(widget);
    view->rightShadow->stackUnder(widget);
    view->bottomShadow->stackUnder(widget);
}

void TWindowManager::MiniViewSafeRaise(int id)
{
    ViewDetails const* const view = FindMini(id);
    if (!view)
        return;
    if (m_NavigationBar)
    {
        view->miniWindow->stackUnder(m_NavigationBar);
        view->bottomShadow->stackUnder(m_NavigationBar);
        view->rightShadow->stackUnder(m_NavigationBar);
    }
    MiniWindowStackUnder(id, GetWidgetToStackUnder(view->slot));
}

// Slots stack from the top of the screen downwards, so that a shadow falls on the window below.
QWidget* TWindowManager::GetWidgetToStackUnder(int slot) const
{
    for (int next = qMax(0, slot + 1); next < static_cast<int>(m_Slots.size()); ++next)
    {
        QList<int> const& ids = m_Slots[static_cast<size_t>(next)];
        ViewDetails const* const view = ids.isEmpty() ? nullptr : Find(ids.constFirst());
        if (view && view->miniWindow)
            return view->miniWindow;
    }
    return m_NavigationBar;
}

void TWindowManager::HideAllMiniViews(bool animate)
{
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
    {
        ViewDetails const* const view = FindMini(id);
        if (!view || view->miniState == MINI_VIEW_HIDDEN)
            continue;
        if (!animate)
            HideMiniWindow(id);
        else if (view->miniState != MINI_VIEW_HIDING)
            OnHideMiniView(id, true);
    }
}

void TWindowManager::RestoreAllMiniViews()
{
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
        RestoreMiniView(id);
    RestackMiniViews();
}

// Bottom to top: what slides away, the slots from the top of the screen downwards, each in the order of its
// list, and what still settles. Windows that were raised one by one would stand in the order of their
// raising.
void TWindowManager::RestackMiniViews()
{
    auto const raiseAll = [this](std::initializer_list<EMiniViewState> states)
    {
        for (auto view = m_Views.constBegin(); view != m_Views.constEnd(); ++view)
        {
            if (std::find(states.begin(), states.end(), view->miniState) != states.end())
                MiniWindowStackUnder(view.key(), m_NavigationBar);
        }
    };
    raiseAll({MINI_VIEW_HIDING});
    for (QList<int> const& slot : m_Slots)
    {
        for (int const id : slot)
            MiniWindowStackUnder(id, m_NavigationBar);
    }
    raiseAll({MINI_VIEW_SETTLING_UP, MINI_VIEW_SETTLING_DOWN});
}

void TWindowManager::RestoreMiniView(int id)
{
    ViewDetails const* const view = FindMini(id);
    if (!view || view->miniState == MINI_VIEW_HIDDEN)
        return;
    if (!view->miniWindow->IsAvailable())
    {
        Q_EMIT MiniViewHasMoved(id, 0, 0);
        return;
    }
    ShowMiniWindow(id);
    if (ViewDetails const* const shown = FindMini(id))
        Q_EMIT MiniViewHasMoved(id, shown->miniWindow->x(), shown->miniWindow->y());
}

bool TWindowManager::IsMiniViewObscured(int id) const
{
    ViewDetails const* const view = Find(id);
    return view && IsSlot(view->slot) && view->miniState == MINI_VIEW_SHOWN &&
           m_Slots[static_cast<size_t>(view->slot)].value(m_Slots[static_cast<size_t>(view->slot)].size() - 1,
                                                          -1) != id;
}

bool TWindowManager::SwappingViews() const
{
    auto const isAny = [this](EMiniViewState state)
    {
        return std::any_of(m_Views.begin(), m_Views.end(),
                           [state](ViewDetails const& view)
                           { return view.miniWindow && view.miniState == state; });
    };
    return isAny(MINI_VIEW_OPENING) && isAny(MINI_VIEW_HIDING);
}

void TWindowManager::SetMiniviewObstructionUpdatesEnabled(bool enabled)
{
    TObstructionManager* const obstructions = m_Screen->GetObstructionManager();
    if (!obstructions)
        return;
    std::vector<QWidget*> windows;
    for (ViewDetails const& view : qAsConst(m_Views))
    {
        if (view.miniWindow)
            windows.push_back(view.miniWindow);
    }
    obstructions->SetUpdatesEnabled(windows, enabled);
}

QList<int> TWindowManager::GetSlot(int slot) const
{
    return IsSlot(slot) ? m_Slots[static_cast<size_t>(slot)] : QList<int>();
}

EMiniViewState TWindowManager::GetMiniViewState(int id) const
{
    ViewDetails const* const view = Find(id);
    return view ? view->miniState : MINI_VIEW_HIDDEN;
}

void TWindowManager::OnDraggedOffRight(int id)
{
    ViewDetails const* const view = Find(id);
    if (!view)
        return;
    QPointer<TMiniWindow> const mini = view->miniWindow;
    if (!mini || !mini->IsFullViewAvailable())
    {
        DisplayFullView(id, false);
        return;
    }
    // The window may react to being maximised, but it is the bar that decides what is shown.
    disconnect(mini, &TMiniWindow::MiniWindowMaximize, this, &TWindowManager::OnMaximizeMiniView);
    mini->OnMaximize();
    if (mini)
        connect(mini, &TMiniWindow::MiniWindowMaximize, this, &TWindowManager::OnMaximizeMiniView,
                Qt::UniqueConnection);
    DisplayFullView(id, true);
}

void TWindowManager::OnShowMiniView(int id)
{
    ViewDetails* const view = FindMini(id);
    if (!view)
        return;
    if (view->miniState != MINI_VIEW_HIDDEN && !IsMiniViewObscured(id) && view->miniWindow->isVisible())
    {
        if (view->miniState != MINI_VIEW_SHOWN)
            return;
        if (view->behaviour == WIDGET_BEHAVIOUR_LINKED && view->nextView >= 0)
            OnShowMiniView(view->nextView);
        else
            OnHideMiniView(id, true);
        return;
    }
    TakeOutOfSlot(*view, id);
    view->elapsed = 0;
    view->miniState = MINI_VIEW_OPENING;
    SetMouseTransparent(view->miniWindow, true);
    view->hideAfterAnimation = true;
    view->slot = GetMiniViewDisplaySlot(id);
    MoveMiniWindow(id, NAVBAR_WIDTH - MINI_WINDOW_SIZE, view->slot * MINI_WINDOW_SIZE);
    ShowMiniWindow(id);
    MiniViewSafeRaise(id);
    if (ViewDetails const* const shown = FindMini(id))
        m_Screen->PushMMIWidget(shown->miniWindow);
}

void TWindowManager::OnHideMiniView(int id, bool hideAfterAnimation)
{
    ViewDetails* const view = FindMini(id);
    if (!view || !view->miniWindow->CanHideView() || !IsSlot(view->slot))
        return;
    view->miniState = MINI_VIEW_HIDING;
    SetMouseTransparent(view->miniWindow, true);
    MiniWindowStackUnder(id, m_NavigationBar);
    view->elapsed = 0;
    TakeOutOfSlot(*view, id);
    view->hideAfterAnimation = hideAfterAnimation;
}

void TWindowManager::OnMiniViewHideComplete(int id)
{
    ViewDetails* const view = FindMini(id);
    if (!view)
        return;
    if (view->miniState == MINI_VIEW_HIDDEN)
        HideMiniWindow(id);
    else if (view->miniState == MINI_VIEW_HIDING)
        view->hideAfterAnimation = true;
}

void TWindowManager::OnSlideMiniViewUp(int id, int deltaY)
{
    ViewDetails const* const view = FindMini(id);
    if (!view)
        return;
    MoveMiniWindow(id, view->miniWindow->x(), deltaY);
    MiniWindowStackUnder(id, m_NavigationBar);
}

void TWindowManager::OnSlideMiniViewDown(int id, int deltaY)
{
    OnSlideMiniViewUp(id, deltaY - MINI_WINDOW_SIZE);
}

void TWindowManager::OnMaximizeMiniView(int id)
{
    ViewDetails const* const found = Find(id);
    if (!found ||
        (found->miniWindow ? !found->miniWindow->IsFullViewAvailable() : found->fullWindow.isNull()))
        return;
    ViewDetails const view = *found;
    ExchangeSurfaces(view);
    if (id != m_FullViewId && view.behaviour != WIDGET_BEHAVIOUR_LINKED)
        MakeWayFor(id);
    QPointer<TWindowManager> const self(this);
    DisplayFullView(id, !view.miniWindow.isNull());
    if (self && SwappingViews())
    {
        m_Swapping = true;
        SetMiniviewObstructionUpdatesEnabled(false);
    }
}

// Video changes hands between the small and the large window.
void TWindowManager::ExchangeSurfaces(ViewDetails const& view)
{
    KVN::AppWindowSurface* const fullSurface =
        view.fullWindow ? view.fullWindow->GetAppWindowSurface() : nullptr;
    KVN::AppWindowSurface* const canvasSurface = view.canvas ? view.canvas->GetCanvasSurface() : nullptr;
    KVN::AppWindowSurface* const miniSurface =
        view.miniWindow ? view.miniWindow->GetAppWindowSurface() : fullSurface;
    if (view.miniWindow)
        view.miniWindow->MaximizeSurface(view.fullWindow ? fullSurface : canvasSurface);
    if (view.fullWindow)
        view.fullWindow->MinimizeSurface(miniSurface);
    if (view.canvas)
        view.canvas->MinimizeCanvasSurface(miniSurface);
}

// The mini window of the coming full view goes, that of the present one comes back.
void TWindowManager::MakeWayFor(int id)
{
    OnHideMiniView(id, true);
    ViewDetails const* const current = FindMini(m_FullViewId);
    if (!current)
        return;
    QPointer<TMiniWindow> const mini = current->miniWindow;
    if (current->miniState != MINI_VIEW_SHOWN)
        OnShowMiniView(m_FullViewId);
    if (mini)
        mini->OnMinimize();
}

void TWindowManager::OnShowSetup(int id)
{
    ViewDetails const* const found = Find(id);
    if (!found)
        return;
    ViewDetails const view = *found;
    m_Screen->UpdateNavBarSizes();
    if (id == m_FullViewId)
        return;
    SetLastFullViewId(m_FullViewId);
    SetMiniviewObstructionUpdatesEnabled(false);
    HideAllMiniViews(false);
    HideFullWindow(m_FullViewId);
    m_Screen->SetCurrentCanvas(view.canvas, false);
    if (view.fullWindow)
    {
        view.fullWindow->setFixedHeight(SCREEN_HEIGHT);
        view.fullWindow->ShowWindow(false);
        m_FullViewId = id;
    }
    ShowSystemToolbar(false);
    if (!view.fullWindow)
        return;
    connect(view.fullWindow, &TWindow::WindowHidden, this, &TWindowManager::OnRestoreLastView,
            Qt::UniqueConnection);
    m_Screen->PushMMIWidget(view.fullWindow);
    TellFullView();
}

void TWindowManager::OnSwitchToView(int id)
{
    ViewDetails const* const found = Find(id);
    if (!found)
        return;
    ViewDetails const view = *found;
    if (id == m_DefaultViewId)
    {
        m_Screen->SetCurrentCanvas(view.canvas, true);
        if (view.fullWindow)
            view.fullWindow->ShowWindow(false);
        ShowSystemToolbar(true);
        SetLastFullViewId(m_FullViewId);
        SetFullViewId(m_DefaultViewId);
        return;
    }
    QPointer<TWindow> const window = PrepareSwitchedWindow(view);
    if (!window)
        return;
    m_Screen->SetCurrentCanvas(view.canvas, true);
    ShowSystemToolbar(false);
    window->ShowWindow(false);
    if (!window)
        return;
    window->raise();
    SetLastFullViewId(m_FullViewId);
    m_FullViewId = id;
    m_Screen->PushMMIWidget(window);
    TellFullView();
}

// The window that fills the canvas: the full window, or, for a view that has none to show, its mini window
// blown up.
TWindow* TWindowManager::PrepareSwitchedWindow(ViewDetails const& view)
{
    int const height = SCREEN_HEIGHT;
    if (view.fullWindow && (!view.miniWindow || view.miniWindow->IsFullViewAvailable()))
    {
        view.fullWindow->setFixedHeight(height);
        return view.fullWindow;
    }
    if (!view.miniWindow || !view.canvas)
        return nullptr;
    view.miniWindow->setParent(view.canvas);
    view.miniWindow->setFixedWidth(MINI_WINDOW_STRIPE - NAVBAR_WIDTH + SCREEN_WIDTH);
    view.miniWindow->move(NAVBAR_WIDTH - MINI_WINDOW_STRIPE,
                          MINI_WINDOW_FRAME_SIZE - MINI_WINDOW_CONTENT_Y_OFFSET);
    view.miniWindow->setFixedHeight(MINI_WINDOW_CONTENT_Y_OFFSET + height);
    return view.miniWindow;
}

void TWindowManager::OnActionButton(int id)
{
    ViewDetails const* const view = Find(id);
    if (!view || view->miniWindow || !view->fullWindow)
        return;
    QPointer<TFullWindow> const window = view->fullWindow;
    if (!window->isVisible())
    {
        OnMaximizeMiniView(id);
        return;
    }
    int const target = BackTarget(id);
    ViewDetails const* const targetView = Find(target);
    if (!targetView)
        return;
    if (targetView->miniWindow)
    {
        targetView->miniWindow->OnMaximize();
        return;
    }
    window->HideWindow();
    OnSwitchToView(target);
}

// Where a second press on an action button leads: to the view before it, or else to the default view.
int TWindowManager::BackTarget(int id)
{
    if (m_LastFullViewId < 0 || m_LastFullViewId == id || !Find(m_LastFullViewId))
        SetLastFullViewId(m_DefaultViewId);
    return m_LastFullViewId;
}

void TWindowManager::OnRestoreLastView()
{
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
    {
        if (ViewDetails const* const view = FindMini(id))
            m_Screen->SetNavButtonVisibility(id, view->miniWindow->IsAvailable() && !view->hiddenButton);
    }
    m_Screen->UpdateNavBarSizes();
    HideFullWindow(m_FullViewId);
    ShowSystemToolbar(true);
    if (!IsUsableAsLastView(m_LastFullViewId))
    {
        m_LastFullViewId = m_DefaultViewId;
        m_FullViewId = m_DefaultViewId;
    }
    ShowView(m_LastFullViewId);
}

bool TWindowManager::IsUsableAsLastView(int id) const
{
    ViewDetails const* const view = Find(id);
    if (!view || (!view->canvas && !view->fullWindow))
        return false;
    if (!view->miniWindow)
        return true;
    return view->miniWindow->IsFullViewAvailable() && (!view->fullWindow || view->fullWindow->IsAvailable());
}

void TWindowManager::ShowView(int id)
{
    if (ViewDetails const* const found = Find(id))
    {
        ViewDetails const view = *found;
        m_Screen->SetCurrentCanvas(view.canvas, true);
        if (view.fullWindow)
            view.fullWindow->ShowWindow(false);
    }
    SetLastFullViewId(m_FullViewId);
    m_FullViewId = id;
    SystemToolBarChecks(id);
    ShowSystemToolbar(true);
    RestoreAllMiniViews();
    SetMiniviewObstructionUpdatesEnabled(true);
    TellFullView();
}

void TWindowManager::ShowSystemToolbar(bool show)
{
    m_Screen->ShowSystemToolbar(show);
}

void TWindowManager::SystemToolBarChecks(int id)
{
    ViewDetails const* const view = Find(id);
    if (!view)
        return;
    QUuid const module = KVN::MorvaneID::FromString(view->name).GetModuleUID();
    bool const isLimited = module == WELL_KNOWN_MODULES[MODULE_INVENTOR_MANAGER] ||
                           module == WELL_KNOWN_MODULES[MODULE_LIMITED_TOOLBAR];
    m_Screen->LimitVisibleSystemToolBarButtons(isLimited ? ButtonsBesideALimitedView : AllButtons);
}

void TWindowManager::HideMiniviewsIfOverlapping(TWindow* window)
{
    if (window && window->WillHideMiniviewsOnShow())
        HideMiniviewsIfOverlapping(static_cast<QWidget*>(window));
}

void TWindowManager::HideMiniviewsIfOverlapping(QWidget* widget)
{
    if (!widget || !widget->isVisible())
        return;
    auto const globalRect = [](QWidget const* w) { return QRect(w->mapToGlobal(QPoint(0, 0)), w->size()); };
    QRect const covered = globalRect(widget);
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
    {
        ViewDetails const* const view = FindMini(id);
        if (!view || !view->miniWindow->isVisible() || view->miniState == MINI_VIEW_HIDDEN ||
            view->miniState == MINI_VIEW_HIDING || !covered.intersects(globalRect(view->miniWindow)))
            continue;
        if (m_NavigationBar && m_NavigationBar->isVisible())
            OnHideMiniView(id, true);
        else
            HideMiniWindow(id);
    }
}

void TWindowManager::OnUpdateScreen()
{
    if (m_AreUpdatesOffBeat)
    {
        m_AreUpdatesOffBeat = false;
        StartOnTheBeat(m_UpdateTimer);
    }
    for (size_t slot = 0; slot < m_Slots.size(); ++slot)
    {
        if (m_Slots[slot].isEmpty())
            continue;
        if (ViewDetails const* const view = FindMini(m_Slots[slot].constLast()))
            view->miniWindow->UpdateView();
    }
}
