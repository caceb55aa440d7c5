#include "TCanvasMenuDisplay.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "TCanvas.h"
#include "TMenuBar.h"
#include "TMenuElementButton.h"
#include "TMenuManager.h"
#include "TMMICapableWidgetNavigator.h"
#include "TMMIDef.h"
#include "TScreen.h"
#include "TTaskToolBarButton.h"

#include <QTimer>

char const* const TCanvasMenuDisplay::RootBarName = "menus";
char const* const TCanvasMenuDisplay::ShortcutBarName = "shortcuts";
char const* const TCanvasMenuDisplay::FoldButtonName = "fold-menus";

namespace
{
constexpr int PaceMs = 40;
constexpr int Nothing = -1;
constexpr QChar PathSeparator = QLatin1Char('/');
// How much of the shortcuts a long root menu leaves in sight.
constexpr int LeastShortcuts = 2;

std::vector<TMenuBar::TItem> Items(int menuID, std::vector<TElementState> const& elements, bool isMenuEnabled)
{
    std::vector<TMenuBar::TItem> items;
    items.reserve(elements.size());
    for (TElementState const& element : elements)
        items.push_back({menuID, element, isMenuEnabled});
    return items;
}
} // namespace

TCanvasMenuDisplay::TCanvasMenuDisplay(TMenuManager& manager, TCanvas* canvas)
    : TMenuDisplayManager(manager)
    , m_Canvas(canvas)
    , m_FoldButton(new TTaskToolBarButton(canvas, 0))
    , m_ShortcutBar(new TMenuBar(canvas, true))
    , m_Pace(new QTimer(this))
    , m_PressedMenu(Nothing)
    , m_PressedElement(Nothing)
{
    m_FoldButton->SetObjectName(QLatin1String(FoldButtonName), NAME_EXPLICIT);
    m_FoldButton->SetIcon(QStringLiteral("icon-menu"), QSize(), true);
    m_FoldButton->SetToolTip(tr("Shows the menus or folds them away"));
    connect(m_FoldButton, &TPushButton::Clicked, this, &TCanvasMenuDisplay::ToggleMenus);
    m_ShortcutBar->setObjectName(QLatin1String(ShortcutBarName));
    connect(m_ShortcutBar, &TMenuBar::ElementPressed, this, &TCanvasMenuDisplay::OnElementPressed);
    m_Pace->setSingleShot(true);
    m_Pace->setInterval(PaceMs);
    connect(m_Pace, &QTimer::timeout, this, &TCanvasMenuDisplay::CatchUp);
    connect(canvas, &TCanvas::OnShow, this, &TCanvasMenuDisplay::OnCanvasShown);
    if (MainScreen)
        connect(MainScreen, &TScreen::SystemToolbarGeometryChanged, this, &TCanvasMenuDisplay::Arrange);
    UpdateAutoHideState();
    Arrange();
}

TCanvasMenuDisplay::~TCanvasMenuDisplay()
{
    delete m_FoldButton;
    delete m_ShortcutBar;
    for (auto const& bar : m_Bars)
        delete bar.second;
}

void TCanvasMenuDisplay::ToggleMenus()
{
    m_AreMenusVisible = !m_AreMenusVisible;
    Arrange();
    tscreenRefreshMMIWidgets(m_Canvas);
    Q_EMIT MenuVisibilityChanged();
}

bool TCanvasMenuDisplay::AreMenusVisible() const
{
    return m_AreMenusVisible;
}

QList<int> TCanvasMenuDisplay::GetMenuShownOrder()
{
    return m_Order;
}

bool TCanvasMenuDisplay::FollowPath(TMMIDef const& def, QObject* callback, QString const& method)
{
    TMMICapableWidgetNavigator* const navigator = MainScreen ? MainScreen->GetMMINavigator() : nullptr;
    QStringList path = def.ToPath(true, PathSeparator).split(PathSeparator, Qt::SkipEmptyParts);
    if (!navigator || path.isEmpty() || !m_Canvas->isVisible())
        return false;
    path.prepend(QLatin1String(RootBarName));
    if (!m_AreMenusVisible)
        ToggleMenus();
    navigator->FollowPath(MainScreen, path, callback, method);
    return true;
}

void TCanvasMenuDisplay::HandleMenuAutoHideStateChanged()
{
    GetMenuManager().SetAutoHideAllowed(GetCanAutoHide());
}

void TCanvasMenuDisplay::OnMenuListChanged()
{
    OnMenuStateChanged();
}

void TCanvasMenuDisplay::OnMenuStateChanged()
{
    m_AreMenusStale = true;
    LookSoon();
}

void TCanvasMenuDisplay::OnElementListChanged(int menuID)
{
    OnElementStateChanged(menuID);
}

void TCanvasMenuDisplay::OnElementStateChanged(int menuID)
{
    if (!BarOf(menuID))
        return;
    m_StaleMenus.insert(menuID);
    LookSoon();
}

void TCanvasMenuDisplay::OnElementPressed(int menuID, int elementID)
{
    m_PressedMenu = menuID;
    m_PressedElement = elementID;
    GetMenuManager().ElementActivated(menuID, elementID);
}

void TCanvasMenuDisplay::OnCanvasShown()
{
    m_AreMenusStale = true;
    CatchUp();
}

// At once when it has been quiet.
void TCanvasMenuDisplay::LookSoon()
{
    if (!m_Pace->isActive())
        CatchUp();
}

void TCanvasMenuDisplay::CatchUp()
{
    if (!m_Canvas->isVisible() || (!m_AreMenusStale && m_StaleMenus.isEmpty()))
        return;
    m_Pace->start();
    QList<int> const orderBefore = m_Order;
    bool const hasOpenedOrClosed = m_AreMenusStale;
    if (m_AreMenusStale)
        FollowOpenMenus();
    QSet<int> stale;
    stale.swap(m_StaleMenus);
    bool isOther = hasOpenedOrClosed;
    for (int const menuID : qAsConst(m_Order))
        isOther = (stale.contains(menuID) && ShowElements(menuID)) || isOther;
    isOther = ShowShortcuts() || isOther;
    if (isOther)
    {
        Arrange();
        tscreenRefreshMMIWidgets(m_Canvas);
    }
    if (hasOpenedOrClosed)
        EnterOpened();
    if (m_Order != orderBefore)
        Q_EMIT MenuShownOrderChanged();
}

void TCanvasMenuDisplay::FollowOpenMenus()
{
    m_AreMenusStale = false;
    int const root = GetMenuManager().GetRootMenuID();
    QList<int> order = GetMenuManager().GetMenuShownOrder();
    if (order.removeAll(root) > 0)
        order.prepend(root);
    m_Opened.clear();
    for (int const menuID : qAsConst(m_Order))
    {
        if (!order.contains(menuID))
            RemoveBar(menuID);
    }
    for (int const menuID : qAsConst(order))
    {
        if (!BarOf(menuID))
            AddBar(menuID);
        // Whether it is enabled may have changed too.
        m_StaleMenus.insert(menuID);
    }
    m_Order = order;
}

TMenuBar* TCanvasMenuDisplay::BarOf(int menuID) const
{
    auto const found = m_Bars.find(menuID);
    return found == m_Bars.end() ? nullptr : found->second;
}

void TCanvasMenuDisplay::AddBar(int menuID)
{
    auto* const bar = new TMenuBar(m_Canvas, false);
    bar->hide();
    // Above the full window, but below what fades the canvas and what stands above that.
    bar->stackUnder(m_FoldButton);
    connect(bar, &TMenuBar::ElementPressed, this, &TCanvasMenuDisplay::OnElementPressed);
    connect(bar, &TMenuBar::BackPressed, this, [this, menuID] { LeaveMenu(menuID); });
    m_Bars.emplace(menuID, bar);
    m_Opened << menuID;
}

void TCanvasMenuDisplay::RemoveBar(int menuID)
{
    TMenuBar* const bar = BarOf(menuID);
    m_Bars.erase(menuID);
    m_Pool.RemoveMenu(menuID);
    // It may be the one whose signal is handled.
    bar->hide();
    bar->deleteLater();
}

void TCanvasMenuDisplay::LeaveMenu(int menuID)
{
    if (menuID != GetMenuManager().GetRootMenuID())
        GetMenuManager().HideMenu(menuID);
}

bool TCanvasMenuDisplay::ShowElements(int menuID)
{
    std::vector<TElementState> const elements = GetMenuManager().GetElementsState(menuID);
    m_Pool.UpdateFromMenuState(menuID, elements);
    return BarOf(menuID)->SetItems(Items(menuID, elements, GetMenuManager().IsMenuEnabled(menuID)));
}

bool TCanvasMenuDisplay::ShowShortcuts()
{
    std::vector<TElementState> const shortcuts = m_Pool.GetCurrentShortcuts();
    std::vector<int> const menus = m_Pool.GetCurrentMenus();
    std::vector<TMenuBar::TItem> items;
    items.reserve(shortcuts.size());
    for (size_t i = 0; i < shortcuts.size(); ++i)
    {
        bool const isSameMenu = i > 0 && menus[i] == menus[i - 1];
        bool const isEnabled =
            isSameMenu ? items.back().isMenuEnabled : GetMenuManager().IsMenuEnabled(menus[i]);
        items.push_back({menus[i], shortcuts[i], isEnabled});
    }
    return m_ShortcutBar->SetItems(items);
}

// The menu that a press has opened is seen, and the wheel goes into it.
void TCanvasMenuDisplay::EnterOpened()
{
    int const menu = m_PressedMenu;
    int const element = m_PressedElement;
    m_PressedMenu = Nothing;
    QList<int> opened;
    opened.swap(m_Opened);
    for (int const menuID : qAsConst(opened))
    {
        TMenuDisplayState const state = GetMenuManager().GetMenuDisplayState(menuID);
        if (menu == Nothing || state.parentMenuID != menu || state.parentElementID != element)
            continue;
        if (!m_AreMenusVisible)
            ToggleMenus();
        if (TMenuBar* const bar = BarOf(menuID))
            tscreenPushMMIWidget(bar);
    }
}

void TCanvasMenuDisplay::StackAbove(QWidget* widget)
{
    widget->stackUnder(m_FoldButton);
    for (auto const& bar : m_Bars)
        bar.second->stackUnder(m_FoldButton);
}

void TCanvasMenuDisplay::Arrange()
{
    QRect const strip = m_Canvas->GetRootToolbarRect();
    TellWhatIsOpen();
    ArrangeStrip(strip);
    ArrangeColumns(strip);
}

// From the top: the button that folds, the root menu, the shortcuts.
void TCanvasMenuDisplay::ArrangeStrip(QRect const& strip)
{
    m_FoldButton->move(strip.topLeft());
    int top = strip.top() + m_FoldButton->height();
    int const end = strip.top() + strip.height();
    if (TMenuBar* const root = BarOf(GetMenuManager().GetRootMenuID()))
    {
        int const kept = qMin(m_ShortcutBar->WantedHeight(), LeastShortcuts * TASK_TOOLBAR_BUTTON_HEIGHT);
        root->SetRoom(end - top - kept);
        root->move(strip.left(), top);
        root->setVisible(m_AreMenusVisible);
        top += m_AreMenusVisible ? root->height() : 0;
    }
    m_ShortcutBar->SetRoom(end - top);
    m_ShortcutBar->move(strip.left(), top);
    m_ShortcutBar->setVisible(m_ShortcutBar->WantedHeight() > 0);
}

void TCanvasMenuDisplay::ArrangeColumns(QRect const& strip)
{
    QList<int> others = m_Order;
    others.removeAll(GetMenuManager().GetRootMenuID());
    int const columns = qMax(0, (strip.left() - m_Canvas->GetLeftLimit()) / WINDOW_TOOLBAR_BUTTON_WIDTH);
    int const waiting = m_AreMenusVisible ? qMax(0, others.size() - columns) : others.size();
    for (int i = 0; i < others.size(); ++i)
    {
        TMenuBar* const bar = BarOf(others.at(i));
        bar->SetRoom(strip.height());
        int const column = i - waiting + 1;
        bar->move(strip.left() - column * WINDOW_TOOLBAR_BUTTON_WIDTH, TopBeside(others.at(i), strip));
        bar->setVisible(i >= waiting);
    }
}

TMenuElementButton* TCanvasMenuDisplay::OpeningButton(int menuID) const
{
    TMenuDisplayState const state = GetMenuManager().GetMenuDisplayState(menuID);
    TMenuBar const* const parent = BarOf(state.parentMenuID);
    return parent ? parent->ButtonOf(state.parentMenuID, state.parentElementID) : nullptr;
}

// Beside the button that opened the menu, as far as the bar fits in there.
int TCanvasMenuDisplay::TopBeside(int menuID, QRect const& strip) const
{
    TMenuElementButton const* const button = OpeningButton(menuID);
    int const wanted = button ? button->mapTo(m_Canvas, QPoint()).y() : strip.top();
    return qBound(strip.top(), wanted, strip.top() + strip.height() - BarOf(menuID)->height());
}

// Those who opened a menu are lit, and lend its bar their name.
void TCanvasMenuDisplay::TellWhatIsOpen()
{
    QHash<QPair<int, int>, TMenuBar*> opened;
    for (int const menuID : qAsConst(m_Order))
    {
        TMenuElementButton const* const button = OpeningButton(menuID);
        TMenuDisplayState const state = GetMenuManager().GetMenuDisplayState(menuID);
        bool const isRoot = menuID == GetMenuManager().GetRootMenuID();
        BarOf(menuID)->setObjectName(isRoot   ? QString(QLatin1String(RootBarName))
                                     : button ? button->objectName()
                                              : QString());
        if (!isRoot)
            opened.insert({state.parentMenuID, state.parentElementID}, BarOf(menuID));
    }
    for (auto const& bar : m_Bars)
        bar.second->SetOpenedBars(opened);
    m_ShortcutBar->SetOpenedBars(opened);
}
