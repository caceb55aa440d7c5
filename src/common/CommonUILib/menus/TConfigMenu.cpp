#include "TConfigMenu.h"

#include "Metrics.h"
#include "TConfigMenuElement.h"

#include <QPainter>
#include <QPaintEvent>
#include <QShowEvent>
#include <QVector>

#include <algorithm>
#include <utility>

namespace
{
// Elements overlap a little where there is room, and keep clear of the edge where there is none.
constexpr double RoomySpacing = 0.93;
constexpr double TightSpacing = 0.99;
constexpr int RightToLeft = 1;
// A slot that clicks on whenever a selection is made would have it made for ever.
constexpr int MostCompletions = 64;

constexpr QRgb RowColour = qRgb(38, 41, 46);
constexpr int TranslucentAlpha = 190;
constexpr QRgb LightEdge = qRgba(255, 255, 255, 41);
constexpr QRgb DarkEdge = qRgba(0, 0, 0, 140);
} // namespace

int TConfigMenu::m_lastAddedElement = 0;

void TConfigMenu::ElementDetails::DeleteContent()
{
    // Whoever hears of their end must not find them here.
    TConfigMenuElement* const element = m_Element;
    m_Element.clear();
    delete element;
    delete std::exchange(m_SubMenu, nullptr);
}

bool TConfigMenu::ElementDetails::IsShown() const
{
    return m_Visible && m_Element;
}

TConfigMenu::TConfigMenu(QWidget* parent, bool isTranslucent, int level, QString const& name)
    : TButtonSurface(parent, RestTime)
    , m_IsTranslucent(isTranslucent)
    , m_Level(level)
{
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent, !isTranslucent);
    resize(AvailableWidth(), STANDARD_BUTTON_HEIGHT);
    hide();
    // Not before the update that finds it out is done.
    connect(this, &TConfigMenu::SingleItemMenuNeedsExpanding, this,
            &TConfigMenu::OnSingleItemMenuNeedsExpanding, Qt::QueuedConnection);
}

TConfigMenu::~TConfigMenu()
{
    if (m_Owner)
        m_Owner->ForgetSubMenu(this);
    for (ElementDetails* const details : qAsConst(m_Elements))
        details->DeleteContent();
    qDeleteAll(m_Elements);
}

int TConfigMenu::AddElement(QString const& key, QString const& text, QString const& iconName,
                            QString const& screenPath, int order, TConfigMenu* subMenu)
{
    if (subMenu && !CanOwn(subMenu))
        return -1;
    int const id = ++m_lastAddedElement;
    auto* const details = new ElementDetails;
    details->m_Element = MakeElement(key, text, iconName, id);
    details->m_SubMenu = subMenu;
    details->m_ScreenPath = screenPath;
    details->m_Id = id;
    details->m_Order = order;
    details->m_Key = key;
    if (subMenu)
        subMenu->m_Owner = this;
    int const index = PlaceFor(order);
    ShiftIndices(index, 1);
    m_Elements.insert(index, details);
    BringUpToDate();
    return id;
}

// A row that already has an owner is above or beneath another element, and would be deleted twice.
bool TConfigMenu::CanOwn(TConfigMenu const* subMenu) const
{
    if (subMenu->m_Owner)
        return false;
    for (TConfigMenu const* row = this; row; row = row->m_Owner)
    {
        if (row == subMenu)
            return false;
    }
    return true;
}

TConfigMenuElement* TConfigMenu::MakeElement(QString const& key, QString const& text, QString const& iconName,
                                             int id)
{
    auto* const element = new TConfigMenuElement(this, text, id);
    element->SetObjectName(key, NAME_EXPLICIT);
    if (!iconName.isEmpty())
        element->SetIcon(iconName, QSize(-1, -1), true);
    element->SetObjectName(text, NAME_FROM_TEXT);
    element->SetActive(m_Active);
    if (minimumHeight() > 0 || maximumHeight() < QWIDGETSIZE_MAX)
        FitElement(element);
    connect(element, &TPushButton::Clicked, this, &TConfigMenu::OnItemClicked);
    return element;
}

int TConfigMenu::PlaceFor(int order) const
{
    if (order < 0)
        return m_Elements.size();
    auto const behind = std::find_if(m_Elements.cbegin(), m_Elements.cend(),
                                     [order](ElementDetails const* details)
                                     { return details->m_Order < 0 || details->m_Order > order; });
    return int(behind - m_Elements.cbegin());
}

void TConfigMenu::DeleteElement(int id)
{
    if (GetIndexByElementID(id) < 0)
        return;
    QPointer<TConfigMenu> const self(this);
    bool const wasSelected = GetIndexByElementID(id) == m_SelectedIndex;
    if (wasSelected)
        LeaveSelected();
    int const index = self ? GetIndexByElementID(id) : -1;
    if (index < 0)
        return;
    Remove(index);
    if (self)
        BringUpToDate();
    // A slot may have selected another one, which has been told.
    if (self && wasSelected && m_SelectedIndex < 0)
        Q_EMIT SelectionChanged(-1);
}

void TConfigMenu::Remove(int index)
{
    ElementDetails* const details = m_Elements.takeAt(index);
    for (int* const kept : {&m_SelectedIndex, &m_PendingIndex, &m_SingleItemIndex})
    {
        if (*kept == index)
            *kept = -1;
    }
    ShiftIndices(index, -1);
    details->DeleteContent();
    delete details;
}

void TConfigMenu::ShiftIndices(int from, int by)
{
    for (int* const index : {&m_SelectedIndex, &m_PendingIndex, &m_SingleItemIndex})
    {
        if (*index >= from)
            *index += by;
    }
}

void TConfigMenu::ForgetSubMenu(TConfigMenu const* subMenu)
{
    for (ElementDetails* const details : qAsConst(m_Elements))
    {
        if (details->m_SubMenu == subMenu)
            details->m_SubMenu = nullptr;
    }
}

void TConfigMenu::SetElementName(int id, QString const& text)
{
    if (TConfigMenuElement* const element = GetElementByID(id))
        element->SetText(text, QString(), false, QString(), false);
}

void TConfigMenu::SetElementVisibility(int id, bool visible, bool update)
{
    int const index = GetIndexByElementID(id);
    if (index < 0)
        return;
    m_Elements.at(index)->m_Visible = visible;
    if (update)
        BringUpToDate();
}

bool TConfigMenu::GetElementVisibility(int id) const
{
    ElementDetails const* const details = DetailsAt(GetIndexByElementID(id));
    return details && details->m_Visible;
}

void TConfigMenu::SetElementVisibilityRecursively(int id, bool visible)
{
    if (TConfigMenu* const row = FindConfigMenuByElementID(id))
        row->SetElementVisibility(id, visible, false);
}

bool TConfigMenu::GetElementVisibilityRecursively(int id) const
{
    TConfigMenu const* const row = const_cast<TConfigMenu*>(this)->FindConfigMenuByElementID(id);
    return row && row->GetElementVisibility(id);
}

void TConfigMenu::SortElements(QStringList const& names)
{
    ElementDetails const* const selected = DetailsAt(m_SelectedIndex);
    ElementDetails const* const pending = DetailsAt(m_PendingIndex);
    ElementDetails const* const single = DetailsAt(m_SingleItemIndex);
    auto const rank = [&names](ElementDetails const* details)
    {
        int const place = names.indexOf(details->m_Key);
        int const byText =
            place < 0 && details->m_Element ? names.indexOf(details->m_Element->GetText()) : place;
        return byText < 0 ? names.size() : byText;
    };
    std::stable_sort(m_Elements.begin(), m_Elements.end(),
                     [&rank](ElementDetails const* a, ElementDetails const* b) { return rank(a) < rank(b); });
    auto const indexOf = [this](ElementDetails const* details)
    { return m_Elements.indexOf(const_cast<ElementDetails*>(details)); };
    m_SelectedIndex = indexOf(selected);
    m_PendingIndex = indexOf(pending);
    m_SingleItemIndex = indexOf(single);
    Rearrange();
}

TConfigMenu::ElementDetails const* TConfigMenu::DetailsAt(int index) const
{
    return index >= 0 && index < m_Elements.size() ? m_Elements.at(index) : nullptr;
}

TConfigMenu* TConfigMenu::SubMenuAt(int index) const
{
    ElementDetails const* const details = DetailsAt(index);
    return details ? details->m_SubMenu : nullptr;
}

TConfigMenuElement* TConfigMenu::GetElementByIndex(int index) const
{
    ElementDetails const* const details = DetailsAt(index);
    return details ? details->m_Element.data() : nullptr;
}

TConfigMenuElement* TConfigMenu::GetElementByID(int id) const
{
    return GetElementByIndex(GetIndexByElementID(id));
}

int TConfigMenu::GetElementIDByIndex(int index) const
{
    ElementDetails const* const details = DetailsAt(index);
    return details ? details->m_Id : -1;
}

int TConfigMenu::GetIndexByElementID(int id) const
{
    auto const found = std::find_if(m_Elements.cbegin(), m_Elements.cend(),
                                    [id](ElementDetails const* details) { return details->m_Id == id; });
    return found == m_Elements.cend() ? -1 : int(found - m_Elements.cbegin());
}

TConfigMenuElement* TConfigMenu::GetSelectedElement() const
{
    return GetElementByIndex(m_SelectedIndex);
}

int TConfigMenu::GetNumberOfElements() const
{
    return m_Elements.size();
}

int TConfigMenu::GetNumberOfVisibleElements() const
{
    return int(std::count_if(m_Elements.cbegin(), m_Elements.cend(),
                             [](ElementDetails const* details) { return details->IsShown(); }));
}

bool TConfigMenu::IsElementPresent(QString const& name) const
{
    return std::any_of(m_Elements.cbegin(), m_Elements.cend(),
                       [&name](ElementDetails const* details) {
                           return details->m_Key == name ||
                                  (details->m_Element && details->m_Element->GetText() == name);
                       });
}

TConfigMenu* TConfigMenu::FindConfigMenuByElementID(int id)
{
    if (GetIndexByElementID(id) >= 0)
        return this;
    for (ElementDetails const* const details : qAsConst(m_Elements))
    {
        TConfigMenu* const found =
            details->m_SubMenu ? details->m_SubMenu->FindConfigMenuByElementID(id) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

int TConfigMenu::GetMenuLevel() const
{
    return m_Level;
}

QString TConfigMenu::GetSelectedScreen() const
{
    ElementDetails const* const details = DetailsAt(m_IsSingleItemMenu ? m_SingleItemIndex : m_SelectedIndex);
    if (!details)
        return {};
    return details->m_SubMenu ? details->m_SubMenu->GetSelectedScreen() : details->m_ScreenPath;
}

QString TConfigMenu::GetNewScreen() const
{
    return m_IsSingleItemMenu ? GetSelectedScreen() : PendingScreen();
}

// Whether the row that would open is to be skipped is not known to it before it does.
QString TConfigMenu::PendingScreen() const
{
    ElementDetails const* const details = DetailsAt(m_PendingIndex);
    if (!details)
        return {};
    TConfigMenu const* const subMenu = details->m_SubMenu;
    if (!subMenu)
        return details->m_ScreenPath;
    ElementDetails const* const single = subMenu->DetailsAt(subMenu->SingleItem());
    return single ? single->m_ScreenPath : subMenu->PendingScreen();
}

bool TConfigMenu::OnNext()
{
    return Page(1);
}

bool TConfigMenu::OnPrevious()
{
    return Page(-1);
}

// The deepest row moves first; this one goes on where that one ends.
bool TConfigMenu::Page(int step)
{
    QPointer<TConfigMenu> const self(this);
    if (PageSelected(step))
        return true;
    int const start = step < 0 && m_SelectedIndex < 0 ? m_Elements.size() : m_SelectedIndex;
    int const target = NextShown(start, step);
    if (target < 0)
        return false;
    int const id = GetElementIDByIndex(target);
    for (int index = start + step; self && index != target; index += step)
        StepOnto(index, step);
    if (self)
        OnItemClicked(id);
    TConfigMenu* const entered = self ? SubMenuAt(GetIndexByElementID(id)) : nullptr;
    if (entered && entered->SingleItem() < 0)
        entered->Page(step);
    return true;
}

// A row that is to come is paged when it has.
bool TConfigMenu::PageSelected(int step)
{
    QPointer<TConfigMenu> const subMenu(SubMenuAt(m_SelectedIndex));
    bool const isHidden = subMenu && subMenu->m_State == ROW_HIDDEN; // of an element stepped onto
    if (!subMenu || subMenu->m_IsSingleItemMenu || isHidden)
        return false;
    if (subMenu->IsSkipped() && subMenu->GetNumberOfVisibleElements() > 0)
        OpenSelected(subMenu->ItemToOpen());
    return subMenu && subMenu->Page(step);
}

int TConfigMenu::NextShown(int index, int step) const
{
    for (index += step; ElementDetails const* const details = DetailsAt(index); index += step)
    {
        if (details->IsShown())
            return index;
    }
    return -1;
}

// A hidden element, which is not entered. That only the way back tells of it is deliberate.
void TConfigMenu::StepOnto(int index, int step)
{
    QPointer<TConfigMenu> const self(this);
    LookUnselected(m_SelectedIndex);
    // The step first: a slot may page on.
    TConfigMenu* const subMenu =
        SubMenuAt(std::exchange(m_SelectedIndex, qMin(index, m_Elements.size() - 1)));
    if (subMenu)
        subMenu->OnHideMenu();
    if (self && step < 0)
        Q_EMIT SelectionChanged(GetElementIDByIndex(m_SelectedIndex));
}

void TConfigMenu::OnItemClicked(int id)
{
    int const index = GetIndexByElementID(id);
    if (index < 0)
        return;
    m_PendingIndex = index;
    ForgetClicksAbove();
    Q_EMIT ConfigMenuItemClicked(this);
}

// One that the owner turned down would be chosen in place of this.
void TConfigMenu::ForgetClicksAbove()
{
    for (TConfigMenu* row = this; row->m_Owner; row = row->m_Owner)
    {
        TConfigMenu* const above = row->m_Owner;
        bool const isOpen = above->SubMenuAt(above->m_SelectedIndex) == row;
        if (isOpen && above->SubMenuAt(above->m_PendingIndex) != row)
            above->m_PendingIndex = -1;
    }
}

void TConfigMenu::CompleteSelection(bool repeat)
{
    m_CompletesAgain = m_IsCompleting;
    if (m_IsCompleting)
        return;
    QPointer<TConfigMenu> const self(this);
    m_IsCompleting = true;
    for (int round = 0; self && round < MostCompletions; ++round)
    {
        m_CompletesAgain = false;
        if (m_PendingIndex >= 0)
            CompleteOwnSelection(repeat);
        else if (TConfigMenu* const subMenu = SubMenuAt(m_SelectedIndex))
            subMenu->CompleteSelection(repeat);
        if (self && !m_CompletesAgain)
            break;
    }
    if (self)
        m_IsCompleting = false;
}

void TConfigMenu::CompleteOwnSelection(bool repeat)
{
    if (m_PendingIndex == m_SelectedIndex)
    {
        CompleteAgain(repeat);
        return;
    }
    QPointer<TConfigMenu> const self(this);
    int const id = GetElementIDByIndex(m_PendingIndex);
    LeaveSelected();
    if (self)
        Enter(GetIndexByElementID(id));
    if (self)
        FinishSelection(id);
}

void TConfigMenu::CompleteAgain(bool repeat)
{
    QPointer<TConfigMenu> const self(this);
    m_PendingIndex = -1;
    QPointer<TConfigMenu> const subMenu(SubMenuAt(m_SelectedIndex));
    bool const isLeaf = !subMenu || subMenu->m_IsSingleItemMenu;
    // A row that did not come when it should have: the operator has no other way to it.
    if (!isLeaf && subMenu->m_State != ROW_SHOWN && subMenu->GetNumberOfVisibleElements() > 0)
        OpenSelected(subMenu->ItemToOpen());
    if (subMenu)
        subMenu->CompleteSelection(repeat);
    if (self && isLeaf && repeat)
        Q_EMIT ShowSetupScreen(GetSelectedScreen());
}

// Once: a slot that deletes the element finds it being left.
void TConfigMenu::LeaveSelected()
{
    int const id = GetElementIDByIndex(m_SelectedIndex);
    if (id < 0 || id == m_LeftElement)
        return;
    int const before = std::exchange(m_LeftElement, id);
    LookUnselected(m_SelectedIndex);
    QPointer<TConfigMenu> const self(this);
    QPointer<TConfigMenu> const subMenu(SubMenuAt(m_SelectedIndex));
    if (subMenu)
        subMenu->OnHideMenu();
    if (self && subMenu)
        Q_EMIT ShowSetupMenu(subMenu, false);
    if (self)
        m_LeftElement = before;
}

void TConfigMenu::Enter(int index)
{
    ElementDetails const* const details = DetailsAt(index);
    if (!details)
        return;
    QString path = details->m_ScreenPath;
    bool const isSkipped = details->m_SubMenu && details->m_SubMenu->SetIsSingleItemMenu(path);
    if (isSkipped)
        details->m_SubMenu->Skip();
    if (isSkipped || !details->m_SubMenu)
        Q_EMIT ShowSetupScreen(path);
    else
        Expand(index);
}

void TConfigMenu::Expand(int index)
{
    QPointer<TConfigMenu> const self(this);
    QPointer<TConfigMenu> const subMenu(SubMenuAt(index));
    subMenu->UpdateMenu(CentreOf(index));
    subMenu->OnShowMenu();
    if (self && subMenu)
        Q_EMIT ShowSetupMenu(subMenu, true);
}

// With the element at the index, as a click on it.
void TConfigMenu::OpenSelected(int item)
{
    QPointer<TConfigMenu> const subMenu(SubMenuAt(m_SelectedIndex));
    int const id = subMenu->GetElementIDByIndex(item);
    Expand(m_SelectedIndex);
    if (subMenu)
        subMenu->OnItemClicked(id);
}

// A slot may have deleted the element, or clicked another one that waits now.
void TConfigMenu::FinishSelection(int id)
{
    int const index = GetIndexByElementID(id);
    LookUnselected(m_SelectedIndex);
    m_SelectedIndex = index;
    if (index >= 0 && m_PendingIndex == index)
        m_PendingIndex = -1;
    if (TConfigMenuElement* const element = GetElementByIndex(index))
        element->SetSelected(true);
    StackElements();
    QPointer<TConfigMenu> const self(this);
    AskForExpansion();
    if (self)
        Q_EMIT SelectionChanged(index < 0 ? -1 : id);
}

void TConfigMenu::LookUnselected(int index)
{
    if (TConfigMenuElement* const element = GetElementByIndex(index))
        element->SetSelected(false);
}

void TConfigMenu::ClearSelection()
{
    LookUnselected(m_SelectedIndex);
    m_SelectedIndex = -1;
}

void TConfigMenu::ClearLeafSelection()
{
    TConfigMenu* const subMenu = SubMenuAt(m_SelectedIndex);
    if (subMenu && subMenu->m_SelectedIndex >= 0)
        subMenu->ClearLeafSelection();
    else
        ClearSelection();
}

void TConfigMenu::OnShowMenu()
{
    QPointer<TConfigMenu> const self(this);
    TConfigMenu const* const subMenu = SubMenuAt(m_SelectedIndex);
    // Without a selection nobody would close it again.
    if (subMenu && subMenu->m_State == ROW_SHOWN)
        LeaveSelected();
    if (!self)
        return;
    ClearSelection();
    m_State = ROW_SHOWN;
    if (!isVisible())
        Q_EMIT LevelTransition(this, true, m_Level);
}

void TConfigMenu::OnHideMenu()
{
    QPointer<TConfigMenu> const self(this);
    // The selection first: a slot of the rows below may hide this one.
    TConfigMenu* const subMenu = SubMenuAt(m_SelectedIndex);
    ClearSelection();
    m_PendingIndex = -1; // what was clicked in a row that goes is not to be chosen when it comes back
    m_State = ROW_HIDDEN;
    if (subMenu)
        subMenu->OnHideMenu();
    if (self)
        Q_EMIT LevelTransition(this, false, m_Level - 1);
}

void TConfigMenu::Skip()
{
    m_State = ROW_SKIPPED;
    m_SkippedElement = GetElementIDByIndex(m_SingleItemIndex);
}

bool TConfigMenu::IsSkipped() const
{
    return m_State == ROW_SKIPPED || m_State == ROW_EXPANDING;
}

bool TConfigMenu::GetIsSingleItemMenu(int& index) const
{
    index = m_SingleItemIndex;
    return m_IsSingleItemMenu;
}

bool TConfigMenu::SetIsSingleItemMenu(QString& path)
{
    m_SingleItemIndex = SingleItem();
    m_IsSingleItemMenu = m_SingleItemIndex >= 0;
    if (m_IsSingleItemMenu)
        path = m_Elements.at(m_SingleItemIndex)->m_ScreenPath;
    return m_IsSingleItemMenu;
}

// The only visible element, if that is a screen.
int TConfigMenu::SingleItem() const
{
    int const first = NextShown(-1, 1);
    bool const isSingle = first >= 0 && !SubMenuAt(first) && NextShown(first, 1) < 0;
    return isSingle ? first : -1;
}

// Meanwhile another one may be selected, or the row be skipped again. Where the element stands is asked anew:
// others may have come or gone.
void TConfigMenu::OnSingleItemMenuNeedsExpanding(int index)
{
    TConfigMenu* const subMenu = SubMenuAt(m_SelectedIndex);
    if (!subMenu || subMenu->m_IsSingleItemMenu || subMenu->m_State == ROW_SHOWN)
        return;
    if (isVisible())
        OpenSelected(subMenu->IsSkipped() ? subMenu->ItemToOpen() : index);
    else if (subMenu->IsSkipped())
        subMenu->m_State = ROW_SKIPPED;
}

// What was not expanded as long as the row was hidden. Later: a slot may delete the row, and Qt is
// not done with showing it.
void TConfigMenu::showEvent(QShowEvent* event)
{
    TButtonSurface::showEvent(event);
    QMetaObject::invokeMethod(this, &TConfigMenu::AskForExpansion, Qt::QueuedConnection);
}

void TConfigMenu::ProcessDelayedUpdates(bool recursive, bool arrange, int position)
{
    QPointer<TConfigMenu> const self(this);
    auto const subMenus = SubMenus();
    for (QPointer<TConfigMenu> const& subMenu : subMenus)
    {
        if (recursive && subMenu)
            subMenu->ProcessDelayedUpdates(recursive, arrange, -1);
        if (!self)
            return;
    }
    if (arrange && position >= 0)
        UpdateMenu(position);
    else if (arrange)
        Rearrange();
    AnnounceSize();
    if (self)
        UpdateSubMenus();
}

QVector<QPointer<TConfigMenu>> TConfigMenu::SubMenus() const
{
    QVector<QPointer<TConfigMenu>> subMenus;
    for (ElementDetails const* const details : m_Elements)
    {
        if (details->m_SubMenu)
            subMenus.append(details->m_SubMenu);
    }
    return subMenus;
}

void TConfigMenu::BringUpToDate()
{
    QPointer<TConfigMenu> const self(this);
    Rearrange();
    AnnounceSize();
    if (self)
        UpdateSubMenus();
    if (self && m_Owner)
        m_Owner->UpdateSubMenu(this);
}

void TConfigMenu::AnnounceSize()
{
    int const size = GetNumberOfVisibleElements();
    if (size == m_AnnouncedSize)
        return;
    m_AnnouncedSize = size;
    Q_EMIT MenuSizeChanged(size);
}

void TConfigMenu::UpdateSubMenus()
{
    QPointer<TConfigMenu> const self(this);
    auto const subMenus = SubMenus();
    for (QPointer<TConfigMenu> const& subMenu : subMenus)
    {
        if (self && subMenu)
            UpdateSubMenu(subMenu);
    }
}

// Only the selected one is seen, and its screen with it. One that is hidden although it is selected is being
// left.
void TConfigMenu::UpdateSubMenu(TConfigMenu* subMenu)
{
    int const formerItem = subMenu->m_SingleItemIndex;
    QString path;
    bool const isSingle = subMenu->SetIsSingleItemMenu(path);
    if (subMenu != SubMenuAt(m_SelectedIndex) || subMenu->m_State == ROW_HIDDEN)
        return;
    if (!isSingle)
    {
        AskForExpansion();
        return;
    }
    if (subMenu->m_State == ROW_SHOWN)
    {
        CloseSubMenu(subMenu, path);
        return;
    }
    subMenu->Skip();
    if (subMenu->m_SingleItemIndex != formerItem)
        Q_EMIT ShowSetupScreen(path);
}

// The row is skipped from now on.
void TConfigMenu::CloseSubMenu(TConfigMenu* subMenu, QString const& path)
{
    QPointer<TConfigMenu> const self(this);
    QPointer<TConfigMenu> const closed(subMenu);
    subMenu->OnHideMenu();
    if (closed)
        subMenu->Skip();
    if (self && closed)
        Q_EMIT ShowSetupMenu(subMenu, false);
    if (self)
        Q_EMIT ShowSetupScreen(path);
}

// Once: the answer is on its way then.
void TConfigMenu::AskForExpansion()
{
    TConfigMenu* const subMenu = SubMenuAt(m_SelectedIndex);
    if (!subMenu || subMenu->m_State != ROW_SKIPPED || subMenu->m_IsSingleItemMenu ||
        subMenu->GetNumberOfVisibleElements() == 0)
        return;
    subMenu->m_State = ROW_EXPANDING;
    Q_EMIT SingleItemMenuNeedsExpanding(subMenu->ItemToOpen());
}

// The one whose screen is shown, or the first.
int TConfigMenu::ItemToOpen() const
{
    int const index = GetIndexByElementID(m_SkippedElement);
    ElementDetails const* const details = DetailsAt(index);
    return details && details->IsShown() ? index : NextShown(-1, 1);
}

void TConfigMenu::SetActive(bool active)
{
    if (active == m_Active)
        return;
    m_Active = active;
    for (ElementDetails const* const details : qAsConst(m_Elements))
    {
        if (details->m_Element)
            details->m_Element->SetActive(active);
    }
    update();
}

bool TConfigMenu::IsActive() const
{
    return m_Active;
}

int TConfigMenu::AvailableWidth() const
{
    return parentWidget() ? parentWidget()->width() : width();
}

int TConfigMenu::GetMenuItemSpacing(int margin) const
{
    int const count = GetNumberOfVisibleElements();
    TConfigMenuElement const* const first = GetElementByIndex(0);
    int const width = first ? first->width() : TConfigMenuElement::WidthForHeight(height());
    int const available = AvailableWidth() - margin;
    if (count == 0)
        return 0;
    if (count * width <= available)
        return int(width * RoomySpacing);
    int const share = available / count;
    return qMax(0, int(share * TightSpacing));
}

void TConfigMenu::ArrangeElements(int direction, int margin)
{
    m_Direction = direction;
    m_Margin = margin;
    m_MenuPosition = -1;
    int const spacing = GetMenuItemSpacing(margin);
    int const count = GetNumberOfVisibleElements();
    int index = 0;
    for (ElementDetails const* const details : qAsConst(m_Elements))
    {
        if (!details->m_Element)
            continue;
        details->m_Element->setVisible(details->m_Visible);
        if (!details->m_Visible)
            continue;
        bool const isFromRight = direction == RightToLeft;
        details->m_Element->move(
            isFromRight ? (count - 1 - index) * spacing - margin : spacing * index + margin, 0);
        ++index;
    }
    StackElements();
}

// They overlap: each lies on the one before it, and the selected one on its neighbours.
void TConfigMenu::StackElements()
{
    QVector<TConfigMenuElement*> wanted;
    for (ElementDetails const* const details : qAsConst(m_Elements))
    {
        if (details->IsShown() && details->m_Element != GetSelectedElement())
            wanted.append(details->m_Element);
    }
    if (TConfigMenuElement* const selected = GetSelectedElement())
        wanted.append(selected);
    auto const isBelow = [this](TConfigMenuElement* a, TConfigMenuElement* b)
    { return children().indexOf(a) < children().indexOf(b); };
    if (std::is_sorted(wanted.cbegin(), wanted.cend(), isBelow))
        return;
    for (TConfigMenuElement* const element : qAsConst(wanted))
        element->raise();
}

void TConfigMenu::UpdateMenu(int position)
{
    resize(AvailableWidth(), height());
    ArrangeElements(0, MarginFor(position));
    m_MenuPosition = qMax(0, position);
}

// So that as many elements as the width holds keep the spacing that they have there.
int TConfigMenu::MarginFor(int position) const
{
    TConfigMenuElement const* const first = GetElementByIndex(0);
    int const width = first ? first->width() : 0;
    int const count = GetNumberOfVisibleElements();
    int const extent = (count - 1) * GetMenuItemSpacing(0) + width;
    int const available = AvailableWidth();
    return qBound(0, qBound(0, position, available) - extent / 2, qMax(0, available - count * width));
}

int TConfigMenu::CentreOf(int index) const
{
    TConfigMenuElement const* const element = GetElementByIndex(index);
    return element ? x() + element->x() + element->width() / 2 : x() + width() / 2;
}

void TConfigMenu::Rearrange()
{
    if (m_MenuPosition >= 0)
        UpdateMenu(m_MenuPosition);
    else
        ArrangeElements(m_Direction, m_Margin);
}

void TConfigMenu::ResizeMenu(int height)
{
    int const held = qBound(MIN_MENU_HEIGHT, height, MAX_MENU_HEIGHT);
    setMinimumHeight(qMin(held, minimumHeight()));
    setMaximumHeight(held);
    setMinimumHeight(held);
}

void TConfigMenu::setMaximumHeight(int height)
{
    QWidget::setMaximumHeight(qBound(0, height, QWIDGETSIZE_MAX));
    FitElements();
}

void TConfigMenu::setMinimumHeight(int height)
{
    QWidget::setMinimumHeight(qBound(0, height, QWIDGETSIZE_MAX));
    FitElements();
}

void TConfigMenu::FitElements()
{
    for (ElementDetails const* const details : qAsConst(m_Elements))
    {
        if (details->m_Element)
            FitElement(details->m_Element);
    }
    Rearrange();
}

// Where the bounds leave them the choice they have the height with which they are made.
void TConfigMenu::FitElement(TConfigMenuElement* element) const
{
    int const before = element->height();
    int const least = qMin(minimumHeight(), maximumHeight());
    int const height = qBound(least, STANDARD_BUTTON_HEIGHT, maximumHeight());
    element->setMinimumHeight(least);
    element->setMaximumHeight(maximumHeight());
    element->resize(element->width(), height);
    if (height != before)
        element->setFixedWidth(TConfigMenuElement::WidthForHeight(height));
}

void TConfigMenu::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    QColor ground(RowColour);
    ground.setAlpha(m_IsTranslucent ? TranslucentAlpha : ground.alpha());
    painter.fillRect(event->rect(), ground);
    painter.fillRect(0, 0, width(), 1, QColor::fromRgba(LightEdge));
    painter.fillRect(0, height() - 1, width(), 1, QColor::fromRgba(DarkEdge));
}
