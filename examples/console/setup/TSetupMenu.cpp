#include "TSetupMenu.h"

#include "Metrics.h"
#include "TConfigMenu.h"
#include "TConfigMenuElement.h"
#include "TLocalTime.h"

#include <QPointer>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int TopRow = 0;
constexpr int FrameTime = 20;
constexpr double SlideTime = 160.0;
constexpr QChar Slash = QLatin1Char('/');

QString NameOf(QString const& path)
{
    return QStringLiteral("setup/") + path;
}

QString GroupOf(QString const& path)
{
    return path.left(qMax(0, path.lastIndexOf(Slash)));
}

/// Sets a flag of an object and puts it back, unless a slot has deleted the object meanwhile.
class TFlagged
{
public:
    TFlagged(QObject* object, bool* flag)
        : m_Object(object)
        , m_Flag(flag)
        , m_Before(*flag)
    {
        *flag = true;
    }
    ~TFlagged()
    {
        if (m_Object)
            *m_Flag = m_Before;
    }
    TFlagged(TFlagged const&) = delete;
    TFlagged& operator=(TFlagged const&) = delete;
    bool IsAlive() const { return m_Object; }

private:
    QPointer<QObject> const m_Object;
    bool* const m_Flag;
    bool const m_Before;
};
} // namespace

TSetupMenu::TSetupMenu(QWidget* parent)
    : QWidget(parent)
{
    SetMMIBehaviour(MMI_WHEEL_OWNER);
    m_FrameTimer.setInterval(FrameTime);
    m_FrameTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_FrameTimer, &QTimer::timeout, this, &TSetupMenu::OnFrame);
    MakeRow(QString(), -1);
    m_Rows[TopRow].isOpen = true;
    m_Rows[TopRow].menu->show();
}

// Behind those that are there, so that it comes out from behind the one that opens it.
int TSetupMenu::MakeRow(QString const& group, int parent)
{
    int const level = parent < 0 ? 0 : m_Rows[parent].menu->GetMenuLevel() + 1;
    auto* const menu = new TConfigMenu(this, false, level, NameOf(group));
    menu->ResizeMenu(RowHeight);
    menu->lower();
    connect(menu, &TConfigMenu::ConfigMenuItemClicked, this, &TSetupMenu::OnItemClicked);
    connect(menu, &TConfigMenu::ShowSetupScreen, this, &TSetupMenu::OnScreen);
    connect(menu, &TConfigMenu::LevelTransition, this, &TSetupMenu::OnLevelTransition);
    // A row that is opened again before it is away has not gone, and so does not come.
    connect(menu, &TConfigMenu::ShowSetupMenu, this, &TSetupMenu::OnLevelTransition);
    m_Rows.append({menu, parent});
    return m_Rows.size() - 1;
}

void TSetupMenu::AddGroup(QString const& path, QString const& text, QString const& toolTip)
{
    int const parent = RowOf(path);
    if (parent < 0 || m_Ids.contains(path))
        return;
    int const row = MakeRow(path, parent);
    m_Groups.insert(path, row);
    AddElement(path, text, toolTip, m_Rows[row].menu);
}

void TSetupMenu::AddScreen(QString const& path, QString const& text, QString const& toolTip)
{
    if (RowOf(path) < 0 || m_Ids.contains(path))
        return;
    m_Screens.append(path);
    AddElement(path, text, toolTip, nullptr);
}

void TSetupMenu::AddElement(QString const& path, QString const& text, QString const& toolTip,
                            TConfigMenu* subMenu)
{
    TConfigMenu* const menu = m_Rows[RowOf(path)].menu;
    int const id = menu->AddElement(NameOf(path), text, QString(), path, -1, subMenu);
    menu->GetElementByID(id)->SetToolTip(toolTip);
    m_Ids.insert(path, id);
    ShowElement(path, false);
}

// The row in which the path has its element; -1 for none.
int TSetupMenu::RowOf(QString const& path) const
{
    QString const group = GroupOf(path);
    return group.isEmpty() ? TopRow : m_Groups.value(group, -1);
}

void TSetupMenu::SetScreenAvailable(QString const& path, bool available)
{
    if (!m_Screens.contains(path))
        return;
    QPointer<TSetupMenu> const self(this);
    QString group = GroupOf(path);
    ShowElement(path, available);
    for (; self && !group.isEmpty(); group = GroupOf(group))
    {
        QString const below = group + Slash;
        ShowElement(group, std::any_of(m_Screens.cbegin(), m_Screens.cend(),
                                       [&](QString const& screen)
                                       { return screen.startsWith(below) && IsAvailable(screen); }));
    }
}

void TSetupMenu::ShowElement(QString const& path, bool visible)
{
    m_Rows[RowOf(path)].menu->SetElementVisibility(m_Ids.value(path), visible, true);
}

QStringList TSetupMenu::AvailableScreens() const
{
    QStringList screens;
    std::copy_if(m_Screens.cbegin(), m_Screens.cend(), std::back_inserter(screens),
                 [this](QString const& screen) { return IsAvailable(screen); });
    return screens;
}

bool TSetupMenu::IsAvailable(QString const& screen) const
{
    return m_Rows[RowOf(screen)].menu->GetElementVisibility(m_Ids.value(screen));
}

// Group by group; one of a single screen shows that by itself.
bool TSetupMenu::ShowScreen(QString const& path)
{
    if (!m_Screens.contains(path) || !IsAvailable(path))
        return false;
    // Slots hear of the screen before this is done.
    QString const screen = path;
    TFlagged const paging(this, &m_IsPaging);
    int end = 0;
    do
    {
        end = screen.indexOf(Slash, end + 1);
        Choose(screen.left(end));
    } while (paging.IsAlive() && end >= 0 && m_Rows[TopRow].menu->GetSelectedScreen() != screen);
    return true;
}

void TSetupMenu::Choose(QString const& path)
{
    TConfigMenu* const menu = m_Rows[RowOf(path)].menu;
    int const id = m_Ids.value(path);
    if (menu->GetSelectedElement() != menu->GetElementByID(id))
        menu->OnItemClicked(id);
}

QString TSetupMenu::Screen() const
{
    return m_Screen;
}

int TSetupMenu::LevelCount() const
{
    return m_LevelCount;
}

void TSetupMenu::SetScreenEntry(KVN::MMICapableWidget* entry)
{
    m_Entry = entry;
}

QSize TSetupMenu::sizeHint() const
{
    return {width(), RowHeight + (m_LevelCount - 1) * LEVEL_SPACER};
}

void TSetupMenu::OnMMIWheelLeft()
{
    Page(false);
}

void TSetupMenu::OnMMIWheelRight()
{
    Page(true);
}

KVN::MMICapableWidget* TSetupMenu::OnMMIEnter()
{
    return m_Entry;
}

void TSetupMenu::Page(bool forward)
{
    TFlagged const paging(this, &m_IsPaging);
    TConfigMenu* const top = m_Rows[TopRow].menu;
    if (forward)
        top->OnNext();
    else
        top->OnPrevious();
}

// The pages keep what is set on them: any screen may be left at once.
void TSetupMenu::OnItemClicked()
{
    QPointer<TSetupMenu> const self(this);
    TConfigMenu* const top = m_Rows[TopRow].menu;
    top->CompleteSelection(false);
    if (self && !m_IsPaging && top->GetSelectedScreen().isEmpty())
        Page(true);
}

void TSetupMenu::OnScreen(QString const& path)
{
    if (path == m_Screen)
        return;
    m_Screen = path;
    Q_EMIT ScreenChanged(path);
}

void TSetupMenu::OnLevelTransition(QWidget* menu, bool show)
{
    auto const row = std::find_if(m_Rows.begin(), m_Rows.end(),
                                  [menu](TRow const& candidate) { return candidate.menu == menu; });
    if (row == m_Rows.end() || row->isOpen == show)
        return;
    row->isOpen = show;
    if (!isVisible())
    {
        FinishSlides();
        return;
    }
    if (!m_FrameTimer.isActive())
    {
        m_LastFrame = TLocalTime::getCurrentTime();
        m_FrameTimer.start();
    }
    PlaceRows();
    UpdateHeight();
}

// By the time that has passed, however many frames were drawn in it.
void TSetupMenu::OnFrame()
{
    qint64 const now = TLocalTime::getCurrentTime();
    double const step = double(now - m_LastFrame) / SlideTime;
    m_LastFrame = now;
    for (TRow& row : m_Rows)
        row.share = qBound(0.0, row.share + (row.isOpen ? step : -step), 1.0);
    if (IsAnyRowSliding())
        PlaceRows();
    else
        FinishSlides();
}

bool TSetupMenu::IsAnyRowSliding() const
{
    return std::any_of(m_Rows.begin(), m_Rows.end(),
                       [](TRow const& row) { return row.isOpen ? row.share < 1.0 : row.share > 0.0; });
}

void TSetupMenu::FinishSlides()
{
    m_FrameTimer.stop();
    for (TRow& row : m_Rows)
        row.share = row.isOpen ? 1.0 : 0.0;
    PlaceRows();
    UpdateHeight();
}

void TSetupMenu::PlaceRows()
{
    for (TRow const& row : qAsConst(m_Rows))
    {
        row.menu->move(0, height() - RowHeight - qRound(LevelOf(row) * LEVEL_SPACER));
        row.menu->setVisible(row.isOpen || row.share > 0.0);
    }
}

double TSetupMenu::LevelOf(TRow const& row) const
{
    return row.parent < 0 ? 0.0 : LevelOf(m_Rows[row.parent]) + row.share;
}

void TSetupMenu::UpdateHeight()
{
    int count = 1;
    for (TRow const& row : qAsConst(m_Rows))
    {
        if (row.isOpen || row.share > 0.0)
            count = qMax(count, row.menu->GetMenuLevel() + 1);
    }
    if (count == m_LevelCount)
        return;
    m_LevelCount = count;
    Q_EMIT HeightChanged();
}

void TSetupMenu::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_Rows[TopRow].menu->ProcessDelayedUpdates(true, true, width() / 2);
    PlaceRows();
}

void TSetupMenu::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    FinishSlides();
}
