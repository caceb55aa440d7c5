#include "TTabBar.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TPushButton.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace
{
constexpr int PreviousId = 0x7ffffffe;
constexpr int NextId = 0x7fffffff;
constexpr int MaximumOfVisibleTabs = 5;
constexpr int TabGap = 0;
// On purpose not what a page in the middle holds, which follows the maximum.
constexpr int TabsForAnotherPage = 3;
// The horizontal bar reaches over the frame of a mini window's content.
constexpr int ContentOverlap = 4;

struct TLook
{
    eToolBarLayouts layout;
    int offset;
    int spacing;
    QSize tab;
    QString const& off;
    QString const& offSelected;
    QString const& on;
    QString const& blank;
    char const* previousIcon;
    char const* nextIcon;
};

TLook LookOf(bool vertical)
{
    using namespace PixmapNames;
    if (vertical)
        return {TOOLBAR_VERTICAL_NEAR,
                TABBAR_VERTICAL_OFFSET,
                TABBAR_VERTICAL_BUTTON_SPACING,
                QSize(TABBAR_VERTICAL_WIDTH, TABBAR_VERTICAL_BUTTON_SIZE),
                TabBarTabOffVertical,
                TabBarTabOffSelectedVertical,
                TabBarTabOnVertical,
                TabBarTabBlankVertical,
                "icon-up",
                "icon-down"};
    return {TOOLBAR_HORIZONTAL_NEAR,
            TAB_OFFSET,
            TABBAR_BUTTON_SPACING,
            QSize(TABBAR_HORIZONTAL_BUTTON_SIZE, TABBAR_HEIGHT),
            MiniWindowTabOff,
            MiniWindowTabOffSelected,
            MiniWindowTabOn,
            MiniWindowTabBlank,
            "icon-left",
            "icon-right"};
}

bool IsArrow(int id)
{
    return id == PreviousId || id == NextId;
}

QSharedPointer<QPixmap> Load(QString const& name)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    return pixmaps ? pixmaps->GetPixmap(name) : QSharedPointer<QPixmap>();
}
} // namespace

TTabBar::TTabBar(QWidget* parent, bool vertical, bool reemitOnShow)
    : TBaseToolBar(parent, true)
    , m_ReemitOnShow(reemitOnShow)
    , m_Vertical(vertical)
    , m_MaximumOfVisibleTabs(MaximumOfVisibleTabs)
{
    TLook const look = LookOf(vertical);
    m_Layout = look.layout;
    SetButtonOffset(look.offset);
    m_OffPixmap = Load(look.off);
    m_OffSelectedPixmap = Load(look.offSelected);
    m_OnPixmap = Load(look.on);
    m_BlankPixmap = Load(look.blank);
    if (!vertical)
        setMinimumSize(MINI_WINDOW_CONTENT_WIDTH + ContentOverlap, TABBAR_HEIGHT);
    MakeArrow(PreviousId, QLatin1String(look.previousIcon), tr("Previous Page"));
    MakeArrow(NextId, QLatin1String(look.nextIcon), tr("Next Page"));
    TTabBar::ArrangeButtons();
}

void TTabBar::MakeArrow(int id, QString const& icon, QString const& toolTip)
{
    TPushButton* const arrow = CreateButton(id);
    arrow->SetIcon(icon, QSize(STANDARD_ICON_SIZE, STANDARD_ICON_SIZE), true);
    arrow->SetToolTip(toolTip);
}

void TTabBar::AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    if (!IsArrow(id))
        TBaseToolBar::AssignButton(id, icon, text, toolTip);
}

void TTabBar::AssignButton(int id, TPushButton* button)
{
    int present = id;
    bool const isArrow = FindButtonId(button, present) && IsArrow(present);
    if (!button || isArrow || IsArrow(id))
        return;
    Dress(button);
    m_TabVisibility[id] = true;
    TBaseToolBar::AssignButton(id, button);
}

void TTabBar::RemoveButton(int id, bool deleteButton)
{
    if (IsArrow(id))
        return;
    if (TPushButton* const button = Tab(id))
        disconnect(button, &TPushButton::Clicked, this, &TTabBar::OnTabClicked);
    TBaseToolBar::RemoveButton(id, deleteButton);
}

void TTabBar::RemoveAllButtons()
{
    QList<int> const ids = m_Buttons.keys();
    for (int const id : ids)
        RemoveButton(id, true);
    m_ActiveTab = 0;
    m_Page = 0;
    update();
}

int TTabBar::GetNumberOfButtons()
{
    return int(std::count_if(m_Buttons.keyBegin(), m_Buttons.keyEnd(), [](int id) { return !IsArrow(id); }));
}

int TTabBar::GetNumberOfVisibleButtons()
{
    return VisibleTabs().size();
}

void TTabBar::SetButtonVisibility(int id, bool visible)
{
    if (IsArrow(id) || !m_Buttons.contains(id))
        return;
    m_TabVisibility[id] = visible;
    ArrangeButtons();
    update();
}

bool TTabBar::IsButtonVisible(int id)
{
    return IsArrow(id) ? TBaseToolBar::IsButtonVisible(id)
                       : m_Buttons.contains(id) && m_TabVisibility.value(id);
}

void TTabBar::SetMaxNumberOfVisibleButtons(int maximum)
{
    m_MaximumOfVisibleTabs = maximum;
    ArrangeButtons();
    update();
}

int TTabBar::GetNumberOfPages()
{
    qint64 const visible = GetNumberOfVisibleButtons();
    qint64 const maximum = m_MaximumOfVisibleTabs;
    qint64 const onTwoPages = 2 * maximum - 1;
    if (visible < onTwoPages)
        return visible <= maximum ? 1 : 2;
    return int((visible - onTwoPages) / TabsForAnotherPage) + 3;
}

void TTabBar::SetActiveTab(int id)
{
    if (IsArrow(id) || !m_Buttons.contains(id))
        return;
    TPushButton* const before = Tab(m_ActiveTab);
    TPushButton* const tab = Tab(id);
    if (before && before != tab)
        before->SetBackground(m_OffPixmap);
    if (tab)
        tab->SetBackground(m_OnPixmap);
    m_ActiveTab = id;
    TurnTo(PageOf(id));
    Q_EMIT TabClicked(id);
}

void TTabBar::OnTabClicked(int id)
{
    QPointer<TTabBar> const self(this);
    if (id == NextId)
        TurnTo(m_Page + 1);
    else if (id == PreviousId)
        TurnTo(m_Page - 1);
    else
        SetActiveTab(id);
    if (self)
        update();
}

TPushButton* TTabBar::GenerateButton(int id)
{
    auto* const button = new TPushButton(this, id, QString());
    Dress(button);
    button->setFixedSize(LookOf(m_Vertical).tab);
    if (!IsArrow(id))
        m_TabVisibility[id] = true;
    return button;
}

void TTabBar::Dress(TPushButton* button)
{
    button->SetBackground(m_OffPixmap);
    button->SetBackgroundSelected(m_OffSelectedPixmap);
    button->SetBackgroundDisabled(m_OffPixmap);
    button->SetBackgroundDisabledOpacity(1.0F);
    connect(button, &TPushButton::Clicked, this, &TTabBar::OnTabClicked, Qt::UniqueConnection);
}

TPushButton* TTabBar::Tab(int id) const
{
    return m_Buttons.value(id).button;
}

void TTabBar::InsertIntoOrderList(int id)
{
    if (m_Order.contains(id))
        return;
    auto const place = std::find_if(m_Order.begin(), m_Order.end(),
                                    [id](int other) { return other != PreviousId && other >= id; });
    m_Order.insert(place, id);
}

// An order from outside names only tabs.
void TTabBar::PutArrowsAtEnds()
{
    if (m_Order.isEmpty() || m_Order.constFirst() != PreviousId)
    {
        m_Order.removeAll(PreviousId);
        m_Order.prepend(PreviousId);
    }
    if (m_Order.constLast() != NextId)
    {
        m_Order.removeAll(NextId);
        m_Order.append(NextId);
    }
}

QList<int> TTabBar::VisibleTabs() const
{
    QList<int> tabs;
    for (int const id : m_Order)
    {
        if (IsWanted(id))
            tabs.append(id);
    }
    return tabs;
}

bool TTabBar::IsWanted(int id) const
{
    return !IsArrow(id) && Tab(id) && m_TabVisibility.value(id);
}

void TTabBar::ArrangeButtons()
{
    int const pages = GetNumberOfPages();
    m_Page = qBound(0, m_Page, pages - 1);
    PutArrowsAtEnds();
    ShowOnPage(PreviousId, m_Page > 0);
    ShowOnPage(NextId, pages - 1 > m_Page);
    int place = 0;
    for (int const id : qAsConst(m_Order))
    {
        if (!IsArrow(id))
            ShowOnPage(id, IsWanted(id) && IsOnPage(place++, pages));
    }
    FitBlank();
    TBaseToolBar::ArrangeButtons(LookOf(m_Vertical).spacing, TabGap);
}

void TTabBar::ShowOnPage(int id, bool shown)
{
    auto const position = m_Buttons.find(id);
    if (position != m_Buttons.end())
        position->visible = shown;
}

// The place is that among the visible tabs.
bool TTabBar::IsOnPage(int place, int pages) const
{
    qint64 const maximum = m_MaximumOfVisibleTabs;
    if (pages == 1)
        return place <= maximum;
    if (m_Page == 0)
        return place < maximum - 1;
    qint64 const placeOnPage = place - maximum + 1 - (maximum - 2) * (m_Page - 1);
    qint64 const room = m_Page < pages - 1 ? maximum - 2 : maximum - 1;
    return placeOnPage >= 0 && placeOnPage < room;
}

int TTabBar::PageOf(int id)
{
    int const place = VisibleTabs().indexOf(id);
    int const pages = GetNumberOfPages();
    qint64 const maximum = m_MaximumOfVisibleTabs;
    if (pages <= 1 || place < 0 || place < maximum - 1)
        return 0;
    // A bar that is too short for two arrows and a tab has all that it can show on its last page.
    if (maximum <= 2)
        return pages - 1;
    return int(qMin((place - 1) / (maximum - 2), qint64(pages) - 1));
}

void TTabBar::TurnTo(int page)
{
    if (page == m_Page)
        return;
    m_Page = page;
    ArrangeButtons();
}

// Prepared here, so that painting need not scale it.
void TTabBar::FitBlank()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    TLook const look = LookOf(m_Vertical);
    QSize const wanted = m_Vertical ? QSize(width(), look.tab.height()) : QSize(look.tab.width(), height());
    if (pixmaps && m_BlankPixmap && m_BlankPixmap->size() != wanted)
        m_BlankPixmap = pixmaps->GetResizedPixmap(look.blank, wanted.width(), wanted.height());
}

void TTabBar::showEvent(QShowEvent* event)
{
    TBaseToolBar::showEvent(event);
    if (m_ReemitOnShow)
        OnTabClicked(m_ActiveTab);
    ArrangeButtons();
}

void TTabBar::paintEvent(QPaintEvent* event)
{
    TBaseToolBar::paintEvent(event);
    QPainter painter(this);
    PaintBlank(painter, 0, GetButtonOffset(), event->rect());
    PaintBlank(painter, EndOfTabs(), m_Vertical ? height() : width(), event->rect());
}

int TTabBar::EndOfTabs() const
{
    int end = GetButtonOffset();
    for (ButtonDetails const& details : m_Buttons)
    {
        if (!details.button || !details.button->isVisibleTo(this))
            continue;
        QRect const place = details.button->geometry();
        end = qMax(end, m_Vertical ? place.bottom() + 1 : place.right() + 1);
    }
    return end;
}

void TTabBar::PaintBlank(QPainter& painter, int from, int to, QRect const& wanted) const
{
    QRect const strip = m_Vertical ? QRect(0, from, width(), to - from) : QRect(from, 0, to - from, height());
    QRect const part = strip & wanted;
    if (m_BlankPixmap && !m_BlankPixmap->isNull() && !part.isEmpty())
        painter.drawTiledPixmap(part, *m_BlankPixmap, part.topLeft());
}
