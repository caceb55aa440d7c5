#include "TCanvasMenuDisplay.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "TCanvas.h"
#include "TLocalTime.h"
#include "TMenuBar.h"
#include "TMenuElementButton.h"
#include "TMenuManager.h"
#include "TMMICapableWidgetNavigator.h"
#include "TMMIDef.h"
#include "TObstructionManager.h"
#include "TScreen.h"
#include "TTaskToolBarButton.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

char const* const TCanvasMenuDisplay::RootBarName = "menus";
char const* const TCanvasMenuDisplay::ShortcutBarName = "shortcuts";
char const* const TCanvasMenuDisplay::FoldButtonName = "fold-menus";

namespace
{
constexpr int PaceMs = 40;
constexpr int NoMenu = -1;
constexpr QPair<int, int> NoElement(NoMenu, NoMenu);
constexpr QChar PathSeparator = QLatin1Char('/');
// How many of the shortcuts a long root menu leaves in sight.
constexpr int LeastShortcuts = 2;
// A menu that opens later than this after a press does so on its own account.
constexpr qint64 PressEffectMs = 500;

std::vector<TMenuBar::TItem> Items(int menuID, std::vector<TElementState>&& elements, bool isMenuEnabled)
{
    std::vector<TMenuBar::TItem> items;
    items.reserve(elements.size());
    for (TElementState& element : elements)
        items.push_back({menuID, std::move(element), isMenuEnabled});
    return items;
}
} // namespace

TCanvasMenuDisplay::TCanvasMenuDisplay(TMenuManager& manager, TCanvas* canvas)
    : TMenuDisplayManager(manager)
    , m_Canvas(canvas)
    , m_FoldButton(new TTaskToolBarButton(canvas, 0))
    , m_ShortcutBar(new TMenuBar(canvas, true))
    , m_Pace(new QTimer(this))
{
    m_FoldButton->SetObjectName(QLatin1String(FoldButtonName), NAME_EXPLICIT);
    m_FoldButton->SetIcon(QStringLiteral("icon-menu"), QSize(), true);
    m_FoldButton->SetToolTip(tr("Shows the menus or folds them away"));
    connect(m_FoldButton, &TPushButton::Clicked, this, &TCanvasMenuDisplay::ToggleMenus);
    m_ShortcutBar->setObjectName(QLatin1String(ShortcutBarName));
    connect(m_ShortcutBar, &TMenuBar::ElementPressed, this, &TCanvasMenuDisplay::OnPressed);
    connect(m_ShortcutBar, &TMenuBar::HeightChanged, this, &TCanvasMenuDisplay::Arrange,
            Qt::QueuedConnection);
    m_Pace->setSingleShot(true);
    m_Pace->setInterval(PaceMs);
    connect(m_Pace, &QTimer::timeout, this, &TCanvasMenuDisplay::CatchUp);
    connect(canvas, &TCanvas::OnShow, this, &TCanvasMenuDisplay::OnCanvasShown);
    if (MainScreen)
        connect(MainScreen, &TScreen::SystemToolbarGeometryChanged, this, &TCanvasMenuDisplay::Arrange);
    UpdateAutoHideState();
    // Another display may have left it otherwise.
    HandleMenuAutoHideStateChanged();
    Arrange();
    if (canvas->isVisible())
        OnCanvasShown();
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
    // They were not drawn behind the fold.
    for (int const menuID : qAsConst(m_Order))
        m_StaleMenus.insert(menuID);
    ShowStaleMenus();
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
    QStringList const path = def.ToPath(true, PathSeparator).split(PathSeparator, Qt::SkipEmptyParts);
    int const root = GetMenuManager().GetRootMenuID();
    if (!navigator || path.isEmpty() || !m_Order.contains(root))
        return false;
    if (!m_Canvas->isVisible() || !MainScreen->GetLockingWidgets().isEmpty())
        return false;
    QPointer<TMenuBar> const start(BarOf(root));
    if (!m_AreMenusVisible)
        ToggleMenus();
    if (!start)
        return false;
    m_PathEnd = path.constLast();
    m_PathCallback = callback;
    m_PathMethod = method.toUtf8();
    navigator->FollowPath(start, path, this, QStringLiteral("OnPathFollowed"));
    return true;
}

// The navigator presses what the path ends with, and leaves the selection where it was.
void TCanvasMenuDisplay::OnPathFollowed(bool arrived)
{
    QPointer<QObject> const callback = m_PathCallback;
    QByteArray const method = m_PathMethod;
    TMMICapableWidgetNavigator* const navigator = MainScreen ? MainScreen->GetMMINavigator() : nullptr;
    TMenuElementButton* const end = arrived && navigator ? EndOfPath() : nullptr;
    if (end)
        navigator->RefreshChildren(TMMICapableWeakRef(end));
    if (callback)
        QMetaObject::invokeMethod(callback, method.constData(), Q_ARG(bool, arrived));
}

// Null where the wheel has gone on into a menu.
TMenuElementButton* TCanvasMenuDisplay::EndOfPath() const
{
    QList<TMenuElementButton*> const buttons = m_Canvas->findChildren<TMenuElementButton*>(m_PathEnd);
    auto const end = std::find_if(buttons.begin(), buttons.end(),
                                  [this](TMenuElementButton const* button)
                                  { return button->isVisible() && button->parentWidget() != m_ShortcutBar; });
    return end == buttons.end() || (*end)->CanEnterOpenedBar() ? nullptr : *end;
}

void TCanvasMenuDisplay::HandleMenuAutoHideStateChanged()
{
    GetMenuManager().SetAutoHideAllowed(GetCanAutoHide());
    OnMenuStateChanged();
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
    if (!m_Order.contains(menuID))
        return;
    m_StaleMenus.insert(menuID);
    LookSoon();
}

void TCanvasMenuDisplay::OnElementPressed(int menuID, int elementID)
{
    OnPressed(menuID, elementID, false);
}

void TCanvasMenuDisplay::OnPressed(int menuID, int elementID, bool isByWheel)
{
    m_Press = {{menuID, elementID}, isByWheel, TLocalTime::getCurrentTime()};
    // It would be closed unseen.
    if (!m_AreMenusVisible && IsOpenBehindTheFold(m_Press.element))
        ToggleMenus();
    else
        GetMenuManager().ElementActivated(menuID, elementID);
}

// An element that does nothing but open a menu which is open behind the fold.
bool TCanvasMenuDisplay::IsOpenBehindTheFold(TElementKey const& opener) const
{
    if (m_OpenedFrom.key(opener, NoMenu) == NoMenu)
        return false;
    std::vector<TElementState> const elements = GetMenuManager().GetElementsState(opener.first);
    return std::any_of(elements.begin(), elements.end(),
                       [&opener](TElementState const& element) {
                           return element.GetID() == opener.second &&
                                  !element.GetActivationConfig().GetReceiver();
                       });
}

void TCanvasMenuDisplay::OnCanvasShown()
{
    // After the canvas itself, which takes the limit up at each of its showings.
    TObstructionManager* const obstructions = MainScreen ? MainScreen->GetObstructionManager() : nullptr;
    if (obstructions)
    {
        disconnect(obstructions, nullptr, this, nullptr);
        connect(obstructions, &TObstructionManager::ObstructionLimitChanged, this,
                &TCanvasMenuDisplay::OnLeftLimitChanged);
    }
    m_AreMenusStale = true;
    CatchUp();
}

// It moves at every frame of a slide.
void TCanvasMenuDisplay::OnLeftLimitChanged()
{
    if (Columns() != m_ArrangedColumns)
        Arrange();
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
    bool const wereMenusVisible = m_AreMenusVisible;
    bool const hasOpenedOrClosed = m_AreMenusStale;
    TMenuBar* const pressed = m_AreMenusStale ? FollowOpenMenus() : nullptr;
    m_AreMenusVisible = m_AreMenusVisible || pressed;
    if (ShowStaleMenus() || hasOpenedOrClosed)
    {
        Arrange();
        tscreenRefreshMMIWidgets(m_Canvas);
    }
    if (pressed && std::exchange(m_Press, NoPress).isByWheel)
        tscreenPushMMIWidget(pressed);
    QPointer<TCanvasMenuDisplay> const self(this);
    if (m_AreMenusVisible != wereMenusVisible)
        Q_EMIT MenuVisibilityChanged();
    if (self && m_Order != orderBefore)
        Q_EMIT MenuShownOrderChanged();
}

// Answers the bar of the menu that the last press has opened, if any.
TMenuBar* TCanvasMenuDisplay::FollowOpenMenus()
{
    m_AreMenusStale = false;
    QList<int> const order = MenusToShow();
    for (int const menuID : qAsConst(m_Order))
    {
        if (!order.contains(menuID))
            CloseBar(menuID);
    }
    RemoveForgottenBars();
    m_Order = order;
    QHash<int, TElementKey> const openedBefore = std::exchange(m_OpenedFrom, {});
    bool const isFreshPress = TLocalTime::getCurrentTime() - m_Press.time <= PressEffectMs;
    TMenuBar* pressed = nullptr;
    for (int const menuID : qAsConst(m_Order))
    {
        TMenuBar* const bar = OpenBar(menuID);
        TElementKey const opener = OpenerOf(menuID);
        m_OpenedFrom.insert(menuID, opener);
        // Whether it is enabled may have changed too.
        m_StaleMenus.insert(menuID);
        bool const isOpenedThere = openedBefore.value(menuID, NoElement) != opener;
        if (isFreshPress && isOpenedThere && opener == m_Press.element)
            pressed = bar;
    }
    return pressed;
}

QList<int> TCanvasMenuDisplay::MenusToShow() const
{
    int const root = GetMenuManager().GetRootMenuID();
    QList<int> order = GetMenuManager().GetMenuShownOrder();
    if (order.removeAll(root) > 0)
        order.prepend(root);
    if (GetCanAutoHide())
        return order;
    // What the operator reads about stays beside what it was opened from, unless he closes it himself.
    QList<int> const shown = MenusInColumns();
    for (int const menuID : shown)
    {
        int const parent = m_OpenedFrom.value(menuID, NoElement).first;
        bool const isParentThere = parent == NoMenu || order.contains(parent);
        bool const isWanted =
            GetMenuManager().GetMenu(menuID) && !GetMenuManager().GetMenuDisplayState(menuID).isClosedByUser;
        if (!order.contains(menuID) && isParentThere && isWanted)
            order.append(menuID);
    }
    return order;
}

TCanvasMenuDisplay::TElementKey TCanvasMenuDisplay::OpenerOf(int menuID) const
{
    TMenuDisplayState const state = GetMenuManager().GetMenuDisplayState(menuID);
    return state.parentMenuID == NoMenu ? NoElement : TElementKey(state.parentMenuID, state.parentElementID);
}

TMenuBar* TCanvasMenuDisplay::BarOf(int menuID) const
{
    auto const found = m_Bars.find(menuID);
    return found == m_Bars.end() ? nullptr : found->second;
}

// In the bar of its own menu; null while that has never been open.
TMenuElementButton* TCanvasMenuDisplay::ButtonOf(TElementKey const& element) const
{
    TMenuBar const* const bar = BarOf(element.first);
    return bar ? bar->ButtonOf(element.first, element.second) : nullptr;
}

TMenuBar* TCanvasMenuDisplay::OpenBar(int menuID)
{
    if (TMenuBar* const bar = BarOf(menuID))
        return bar;
    auto* const bar = new TMenuBar(m_Canvas, false);
    bar->hide();
    // Above the full window, but below what fades the canvas and what stands above that.
    bar->stackUnder(m_FoldButton);
    connect(bar, &TMenuBar::ElementPressed, this, &TCanvasMenuDisplay::OnPressed);
    connect(bar, &TMenuBar::BackPressed, this, [this, menuID] { LeaveMenu(menuID); });
    connect(bar, &TMenuBar::HeightChanged, this, &TCanvasMenuDisplay::Arrange, Qt::QueuedConnection);
    connect(bar, &TMenuBar::dragged, this, &TCanvasMenuDisplay::ArrangeColumns);
    m_Bars.emplace(menuID, bar);
    return bar;
}

void TCanvasMenuDisplay::CloseBar(int menuID)
{
    BarOf(menuID)->hide();
    m_Pool.RemoveMenu(menuID);
}

void TCanvasMenuDisplay::RemoveForgottenBars()
{
    for (auto bar = m_Bars.begin(); bar != m_Bars.end();)
    {
        if (GetMenuManager().GetMenu(bar->first))
        {
            ++bar;
            continue;
        }
        // It may be the one whose signal is handled.
        bar->second->disconnect(this);
        bar->second->deleteLater();
        bar = m_Bars.erase(bar);
    }
}

void TCanvasMenuDisplay::LeaveMenu(int menuID)
{
    if (m_Order.contains(menuID) && menuID != GetMenuManager().GetRootMenuID())
        GetMenuManager().HideMenu(menuID);
}

// Whether any buttons have been laid out anew.
bool TCanvasMenuDisplay::ShowStaleMenus()
{
    QSet<int> const stale = std::exchange(m_StaleMenus, {});
    bool isOther = false;
    for (int const menuID : qAsConst(m_Order))
        isOther = (stale.contains(menuID) && ShowElements(menuID)) || isOther;
    return ShowShortcuts() || isOther;
}

bool TCanvasMenuDisplay::ShowElements(int menuID)
{
    std::vector<TElementState> elements = GetMenuManager().GetElementsState(menuID);
    // Should it change back to what it was before it is reported, nobody would tell.
    if (IsAnyDirty(elements))
        m_StaleMenus.insert(menuID);
    m_Pool.UpdateFromMenuState(menuID, elements);
    return m_AreMenusVisible && BarOf(menuID)->SetItems(Items(menuID, std::move(elements),
                                                              GetMenuManager().IsMenuEnabled(menuID)));
}

bool TCanvasMenuDisplay::ShowShortcuts()
{
    std::vector<TElementState> shortcuts = m_Pool.GetCurrentShortcuts();
    std::vector<int> const menus = m_Pool.GetCurrentMenus();
    std::vector<TMenuBar::TItem> items;
    items.reserve(shortcuts.size());
    // Those of the root menu stand right above then.
    int const standsAbove = m_AreMenusVisible ? GetMenuManager().GetRootMenuID() : NoMenu;
    for (size_t i = 0; i < shortcuts.size(); ++i)
    {
        if (menus[i] == standsAbove)
            continue;
        bool const isSameMenu = !items.empty() && menus[i] == items.back().menuID;
        bool const isEnabled =
            isSameMenu ? items.back().isMenuEnabled : GetMenuManager().IsMenuEnabled(menus[i]);
        items.push_back({menus[i], std::move(shortcuts[i]), isEnabled});
    }
    return m_ShortcutBar->SetItems(items);
}

void TCanvasMenuDisplay::StackAbove(QWidget* widget)
{
    widget->stackUnder(m_FoldButton);
    for (auto const& bar : m_Bars)
        bar.second->stackUnder(m_FoldButton);
}

void TCanvasMenuDisplay::Arrange()
{
    m_FoldButton->setVisible(!m_Order.isEmpty());
    TellWhatIsOpen();
    ArrangeStrip();
    ArrangeColumns();
}

// From the top: the button that folds, the root menu, the shortcuts.
void TCanvasMenuDisplay::ArrangeStrip()
{
    QRect const strip = m_Canvas->GetRootToolbarRect();
    m_FoldButton->move(strip.topLeft());
    int top = strip.top() + m_FoldButton->height();
    int const end = strip.top() + strip.height();
    int const root = GetMenuManager().GetRootMenuID();
    if (m_AreMenusVisible && m_Order.contains(root))
    {
        TMenuBar* const bar = BarOf(root);
        bar->SetRoom(end - top - m_ShortcutBar->HeightOf(LeastShortcuts));
        bar->move(strip.left(), top);
        bar->show();
        top += bar->height();
    }
    else if (TMenuBar* const bar = BarOf(root))
    {
        bar->hide();
    }
    m_ShortcutBar->SetRoom(end - top);
    m_ShortcutBar->move(strip.left(), top);
    m_ShortcutBar->setVisible(m_ShortcutBar->WantedHeight() > 0);
}

int TCanvasMenuDisplay::Columns() const
{
    int const room = m_Canvas->GetRootToolbarRect().left() - m_Canvas->GetLeftLimit();
    return qMax(0, room / WINDOW_TOOLBAR_BUTTON_WIDTH);
}

// All open menus but the root, each behind the one that it was opened from.
QList<int> TCanvasMenuDisplay::MenusInColumns() const
{
    QList<int> left = m_Order;
    left.removeAll(GetMenuManager().GetRootMenuID());
    QList<int> placed;
    QList<int> next;
    while (!left.isEmpty())
    {
        if (next.isEmpty())
        {
            auto const start =
                std::find_if(left.begin(), left.end(),
                             [this, &left](int menuID)
                             { return !left.contains(m_OpenedFrom.value(menuID, NoElement).first); });
            // Menus that opened each other in a circle have no start.
            next << (start == left.end() ? left.constFirst() : *start);
        }
        int const menuID = next.takeFirst();
        left.removeAll(menuID);
        placed << menuID;
        QList<int> children;
        std::copy_if(left.begin(), left.end(), std::back_inserter(children),
                     [this, menuID](int other)
                     { return m_OpenedFrom.value(other, NoElement).first == menuID; });
        next = children + next;
    }
    return placed;
}

void TCanvasMenuDisplay::ArrangeColumns()
{
    QRect const strip = m_Canvas->GetRootToolbarRect();
    int const root = GetMenuManager().GetRootMenuID();
    QList<int> const menus = MenusInColumns();
    QList<int> shown = m_Order;
    shown.removeAll(root);
    m_ArrangedColumns = Columns();
    shown = m_AreMenusVisible ? shown.mid(qMax(0, shown.size() - m_ArrangedColumns)) : QList<int>();
    QSet<int> placed{root};
    int left = strip.left();
    for (int const menuID : menus)
    {
        TMenuBar* const bar = BarOf(menuID);
        bar->setVisible(shown.contains(menuID));
        if (!shown.contains(menuID))
            continue;
        left -= WINDOW_TOOLBAR_BUTTON_WIDTH;
        bar->SetRoom(strip.height());
        TElementKey const opener = m_OpenedFrom.value(menuID, NoElement);
        bar->move(left, TopBeside(placed.contains(opener.first) ? ButtonOf(opener) : nullptr, strip.top(),
                                  strip.top() + strip.height() - bar->height()));
        placed.insert(menuID);
    }
}

// Level with the button that opened the menu, from \a highest to \a lowest.
int TCanvasMenuDisplay::TopBeside(TMenuElementButton const* opener, int highest, int lowest) const
{
    return opener ? qBound(highest, opener->mapTo(m_Canvas, QPoint()).y(), lowest) : highest;
}

// Those who opened a menu are lit, and lend its bar their name.
void TCanvasMenuDisplay::TellWhatIsOpen()
{
    int const root = GetMenuManager().GetRootMenuID();
    QHash<TElementKey, TMenuBar*> opened;
    for (int const menuID : qAsConst(m_Order))
    {
        TMenuBar* const bar = BarOf(menuID);
        TElementKey const opener = m_OpenedFrom.value(menuID, NoElement);
        TMenuElementButton const* const button = ButtonOf(opener);
        if (menuID == root)
        {
            bar->setObjectName(QLatin1String(RootBarName));
            continue;
        }
        bar->setObjectName(button ? button->objectName() : QString());
        opened.insert(opener, bar);
    }
    for (auto const& bar : m_Bars)
        bar.second->SetOpenedBars(opened);
    m_ShortcutBar->SetOpenedBars(opened);
}
