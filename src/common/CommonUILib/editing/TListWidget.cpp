#include "TListWidget.h"

#include "Fonts.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "Palette.h"
#include "RenderUtils.h"
#include "TEditContainer.h"
#include "TListWidgetItemDelegate.h"
#include "TVerticalScrollBar.h"

#include <QHash>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSet>

#include <algorithm>

namespace
{
constexpr int ScrollBarWidth = 0x21;
constexpr int IconSide = 16;
constexpr int PlaceholderSide = 1;
constexpr int RoomAroundText = 18;
constexpr int NoEntriesFontSize = 24;
constexpr int NoEntriesFlags = Qt::AlignCenter;
constexpr int OwnToolTipPlacement = 0;

QIcon Placeholder()
{
    QPixmap pixmap(PlaceholderSide, PlaceholderSide);
    pixmap.fill(clearColor);
    return QIcon(pixmap);
}

QFont RowFont()
{
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    return font;
}

int MeasuredText(QListWidgetItem const& item)
{
    return KVN::RenderUtils::GetTextWidth(item.text(), qvariant_cast<QFont>(item.data(Qt::FontRole)));
}

int HeldHeight(int height)
{
    return qBound(1, height, QWIDGETSIZE_MAX);
}
} // namespace

/// A row that gives what all rows have in common from the list instead of keeping a copy of it, and measures
/// its text when it is first asked how wide it is. What is set on it by hand takes precedence.
class TListWidget::TRow : public QListWidgetItem
{
public:
    TRow(QString const& text, int width, int height)
        : QListWidgetItem(nullptr, UserType)
        , m_Text(text)
        , m_Width(width)
        , m_Height(HeldHeight(height))
    {
    }

    QVariant data(int role) const override
    {
        if (!m_HasOwn)
            return Common(role);
        QVariant const own = QListWidgetItem::data(role);
        return own.isValid() ? own : Common(role);
    }

    void setData(int role, QVariant const& value) override
    {
        m_HasOwn = true;
        m_Measured = -1;
        QListWidgetItem::setData(role, value);
    }

    void SetHint(int width, int height)
    {
        m_Width = width;
        m_Height = HeldHeight(height);
        TakeBack(Qt::SizeHintRole);
    }

    /// The list is not told.
    void SetIcon(QIcon const& icon)
    {
        m_Icon = icon;
        m_HasPlaceholder = false;
        TakeBack(Qt::DecorationRole);
    }
    void SetPlaceholder()
    {
        m_Icon = QVariant();
        m_HasPlaceholder = true;
        TakeBack(Qt::DecorationRole);
    }

    int TextWidth() const
    {
        if (m_Measured < 0)
            m_Measured = MeasuredText(*this);
        return m_Measured;
    }

private:
    QVariant Common(int role) const
    {
        static QVariant const white = QBrush(Qt::white);
        switch (role)
        {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return m_Text;
        case Qt::FontRole:
            return List() ? List()->m_Font : QVariant();
        case Qt::ForegroundRole:
            return white;
        case Qt::DecorationRole:
            return m_HasPlaceholder && List() ? List()->m_Placeholder : m_Icon;
        case Qt::SizeHintRole:
            return QSize(qMax(m_Width, TextWidth() + RoomAroundText), m_Height);
        case TListWidgetItemDelegate::RowHeightRole:
            return Height();
        default:
            return {};
        }
    }

    int Height() const
    {
        QVariant const own = m_HasOwn ? QListWidgetItem::data(Qt::SizeHintRole) : QVariant();
        return own.isValid() ? qMax(1, own.toSize().height()) : m_Height;
    }

    TListWidget const* List() const { return qobject_cast<TListWidget const*>(listWidget()); }

    void TakeBack(int role)
    {
        if (m_HasOwn && QListWidgetItem::data(role).isValid())
            setData(role, QVariant());
    }

    QString m_Text;
    QVariant m_Icon;
    int m_Width;
    int m_Height;
    mutable int m_Measured = -1;
    bool m_HasOwn = false;
    bool m_HasPlaceholder = false;
};

TListWidget::TListWidget(QWidget* parent)
    : QListWidget(parent)
    , m_ScrollBar(new TVerticalScrollBar(this, 0, 0, 0, ScrollBarWidth))
    , m_Font(RowFont())
    , m_Placeholder(Placeholder())
{
    setItemDelegate(new TListWidgetItemDelegate(this));
    setVerticalScrollBar(m_ScrollBar);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(NoFrame);
    setIconSize(QSize(IconSide, IconSide));
    setBackgroundRole(QPalette::Base);
    // The ground is painted with the rows.
    viewport()->setAutoFillBackground(false);
    QPalette colors = palette();
    colors.setColor(QPalette::All, QPalette::Base, QColor(0, 0, 0, 0));
    colors.setColor(QPalette::All, QPalette::Highlight, QColor(255, 255, 255, 0));
    colors.setColor(QPalette::All, QPalette::HighlightedText, Qt::black);
    setPalette(colors);
    connect(this, &QListWidget::itemSelectionChanged, this, &TListWidget::OnSelectionChanged);
    connect(this, &QListWidget::currentItemChanged, this, &TListWidget::OnCurrentItemChanged);
}

TListWidget::~TListWidget() = default;

int TListWidget::AddString(QString const& text, int rowHeight, int width, QIcon const& icon)
{
    auto* const row = new TRow(text, width, rowHeight);
    if (!m_HasIcons)
        row->SetPlaceholder();
    if (!icon.isNull())
    {
        row->SetIcon(icon);
        ShowIcons();
    }
    addItem(row);
    return count();
}

void TListWidget::SetItemSizeHint(QListWidgetItem* item, int width, int height)
{
    if (!item)
        return;
    if (auto* const row = dynamic_cast<TRow*>(item))
    {
        row->SetHint(width, height);
        if (!m_HasIcons)
            row->SetPlaceholder();
        scheduleDelayedItemsLayout();
        return;
    }
    item->setSizeHint(QSize(qMax(width, MeasuredText(*item) + RoomAroundText), HeldHeight(height)));
    if (!m_HasIcons)
        item->setData(Qt::DecorationRole, m_Placeholder);
}

// Many rows have the same icon, and to find a file takes long. A row that told the list of its icon would be
// searched for in all rows.
void TListWidget::SetupListItemIcon(TEditContainerQString const& names)
{
    ShowIcons();
    QHash<QString, QIcon> icons;
    for (int i = 0; i < count(); ++i)
    {
        QString const name = names.at(i);
        QIcon& icon = icons[name];
        if (icon.isNull())
            icon = QIcon(QStringLiteral(":/Icons/Resources/") + name);
        if (auto* const row = dynamic_cast<TRow*>(item(i)))
            row->SetIcon(icon);
        else
            item(i)->setIcon(icon);
    }
    viewport()->update();
}

// The icons take a column of all rows.
void TListWidget::ShowIcons()
{
    if (m_HasIcons)
        return;
    m_HasIcons = true;
    viewport()->update();
}

void TListWidget::Clear()
{
    m_HasIcons = false;
    Work([this] { clear(); });
}

QString TListWidget::GetItemText(int row) const
{
    QListWidgetItem const* const found = item(row);
    return found ? found->text() : QString();
}

void TListWidget::SetItemText(int row, QString const& text, int width)
{
    QListWidgetItem* const found = item(row);
    if (!found)
        return;
    found->setText(text);
    SetItemSizeHint(found, width, sizeHintForRow(row));
}

QVariant TListWidget::GetItemData(int row, int role) const
{
    QListWidgetItem const* const found = item(row);
    return found ? found->data(role) : QVariant();
}

void TListWidget::SetItemData(int row, int role, QVariant const& value)
{
    if (QListWidgetItem* const found = item(row))
        found->setData(role, value);
}

void TListWidget::SetItemHidden(int row, bool hidden)
{
    if (IndexOf(row).isValid())
        setRowHidden(row, hidden);
}

bool TListWidget::IsItemHidden(int row) const
{
    return IndexOf(row).isValid() && isRowHidden(row);
}

int TListWidget::GetNumberOfItems() const
{
    return count();
}

int TListWidget::GetNumberOfVisibleItems() const
{
    int visible = 0;
    for (int i = 0; i < count(); ++i)
        visible += isRowHidden(i) ? 0 : 1;
    return visible;
}

int TListWidget::GetIndexfromText(QString const& text) const
{
    for (int i = 0; i < count(); ++i)
    {
        if (item(i)->text() == text)
            return i;
    }
    return -1;
}

int TListWidget::GetRequiredWidth() const
{
    int widest = 0;
    for (int i = 0; i < count(); ++i)
        widest = qMax(widest, item(i)->sizeHint().width());
    return widest;
}

int TListWidget::GetSelectedItem() const
{
    return currentRow();
}

bool TListWidget::SelectItem(QString const& text)
{
    int const row = GetIndexfromText(text);
    SelectItem(row);
    return row >= 0;
}

void TListWidget::SelectItem(int row)
{
    if (IndexOf(row).isValid())
        SetCurrentRow(row);
}

void TListWidget::SelectItem(int row, bool select)
{
    QModelIndex const index = IndexOf(row);
    if (!index.isValid())
        return;
    if (selectionMode() == SingleSelection)
    {
        auto const how = select ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Deselect;
        Work([this, row, how] { setCurrentRow(row, how); });
        return;
    }
    Work(
        [this, index, select]
        {
            if (select)
                selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            selectionModel()->select(index,
                                     select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
        });
}

void TListWidget::SelectItems(QStringList const& texts)
{
    QItemSelection const rows = RowsThatRead(texts);
    if (rows.isEmpty())
    {
        UnSelectAllSelections();
        return;
    }
    int const last = rows.constLast().bottom();
    if (selectionMode() == SingleSelection)
        SetCurrentRow(last);
    else
        Work(
            [this, rows, last]
            {
                selectionModel()->setCurrentIndex(IndexOf(last), QItemSelectionModel::NoUpdate);
                ReplaceSelection(rows);
            });
}

// The base compares each range that was selected with each one that will be. To compare both with nothing
// takes no time, even where half of a hundred thousand rows are selected.
void TListWidget::ReplaceSelection(QItemSelection const& rows)
{
    if (selectionModel()->selection().size() > 1)
    {
        QSignalBlocker const tellOnce(this);
        selectionModel()->clearSelection();
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

// As few ranges as can be: each change of a selection goes through all of them.
QItemSelection TListWidget::RowsThatRead(QStringList const& texts) const
{
    QSet<QString> const wanted(texts.begin(), texts.end());
    QItemSelection rows;
    int first = -1;
    for (int i = 0; i <= count(); ++i)
    {
        bool const isWanted = i < count() && wanted.contains(item(i)->text());
        if (isWanted && first < 0)
            first = i;
        if (isWanted || first < 0)
            continue;
        rows.append(QItemSelectionRange(IndexOf(first), IndexOf(i - 1)));
        first = -1;
    }
    return rows;
}

void TListWidget::SelectAll()
{
    if (selectionMode() == SingleSelection || selectionMode() == NoSelection || count() == 0)
        return;
    Work([this] { ReplaceSelection(QItemSelection(IndexOf(0), IndexOf(count() - 1))); });
}

void TListWidget::UnSelectAllSelections()
{
    Work([this] { clearSelection(); });
}

void TListWidget::SetCurrentRow(int row)
{
    if (row >= -1 && row < count())
        Work([this, row] { setCurrentRow(row); });
}

bool TListWidget::IsItemSelected(unsigned row) const
{
    return row < unsigned(count()) && selectionModel()->isSelected(IndexOf(int(row)));
}

bool TListWidget::IsAnythingSelected() const
{
    QVector<int> const rows = SelectedRows();
    return std::any_of(rows.begin(), rows.end(), [this](int row) { return !isRowHidden(row); });
}

QList<QListWidgetItem*> TListWidget::GetSelectedItems() const
{
    return selectedItems();
}

QStringList TListWidget::GetSelectedTextItems() const
{
    QStringList texts;
    QVector<int> const rows = SelectedRows();
    for (int const row : rows)
        texts.append(item(row)->text());
    return texts;
}

QVector<int> TListWidget::SelectedRows() const
{
    QVector<int> rows;
    QItemSelection const selection = selectionModel()->selection();
    for (QItemSelectionRange const& range : selection)
    {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TListWidget::SetListColor(QColor const& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::All, QPalette::Base, color);
    setPalette(colors);
}

void TListWidget::UseGlassEffect(bool use)
{
    if (use == m_GlassEffect)
        return;
    m_GlassEffect = use;
    m_ScrollBar->UseGlassEffect(use);
    viewport()->update();
}

QModelIndex TListWidget::IndexOf(int row) const
{
    return row < 0 ? QModelIndex() : model()->index(row, 0);
}

int TListWidget::IconColumn() const
{
    return m_HasIcons ? iconSize().width() : PlaceholderSide;
}

QStyleOptionViewItem TListWidget::viewOptions() const
{
    QStyleOptionViewItem option = QListWidget::viewOptions();
    option.decorationSize.setWidth(IconColumn());
    return option;
}

// The base goes on with its own members after it has emitted a signal; what the list has to tell waits until
// it is done. False when somebody who was told has deleted the list.
bool TListWidget::Work(std::function<void()> const& work)
{
    QPointer<TListWidget> const self(this);
    ++m_WorkDepth;
    work();
    // A double click may come as a press too, which is told at once.
    if (!self)
        return false;
    return --m_WorkDepth > 0 || Settle();
}

bool TListWidget::Settle()
{
    QPointer<TListWidget> const self(this);
    while (self && !m_WhenSettled.isEmpty())
    {
        std::function<void()> const next = m_WhenSettled.takeFirst();
        next();
    }
    return self;
}

void TListWidget::WhenSettled(std::function<void()> work)
{
    if (m_WorkDepth > 0)
        m_WhenSettled.append(std::move(work));
    else
        work();
}

// An earlier listener may have removed the row.
void TListWidget::TellSelectionChanged(int row)
{
    WhenSettled(
        [this, row]
        {
            if (row >= 0 && row < count())
                Q_EMIT SelectionChanged(row);
        });
}

void TListWidget::OnSelectionChanged()
{
    TellSelectionChanged(currentRow());
}

void TListWidget::OnCurrentItemChanged(QListWidgetItem* current, QListWidgetItem* previous)
{
    Q_UNUSED(previous)
    if (current)
        TellSelectionChanged(currentRow());
}

void TListWidget::OnUp()
{
    Step(-1);
}

void TListWidget::OnDown()
{
    Step(1);
}

void TListWidget::Step(int direction)
{
    int row = currentRow() + direction;
    while (row >= 0 && row < count() && isRowHidden(row))
        row += direction;
    if (row < 0 || row >= count())
        return;
    if (Work([this, row] { setCurrentItem(item(row)); }))
        TellSelectionChanged(row);
}

void TListWidget::OnMMIWheelLeft()
{
    OnUp();
}

void TListWidget::OnMMIWheelRight()
{
    OnDown();
}

KVN::MMICapableWidget* TListWidget::OnMMIEnter()
{
    QPointer<TListWidget> const self(this);
    if (currentRow() >= 0)
        Q_EMIT Selection(currentRow());
    return self ? KVN::MMICapableWidget::OnMMIEnter() : nullptr;
}

EMMIWidgetBehaviour TListWidget::GetMMIBehaviour()
{
    return MMI_WHEEL_OWNER;
}

QPoint TListWidget::Position(QWidget* reference)
{
    return reference ? reference->mapFromGlobal(mapToGlobal(QPoint())) : QPoint();
}

void TListWidget::PositionChanged() {}

void TListWidget::mousePressEvent(QMouseEvent* event)
{
    m_MouseDown = true;
    m_PressInProgress = true;
    QPointer<TListWidget> const self(this);
    Q_EMIT MousePressed();
    if (self && Work([this, event] { QListWidget::mousePressEvent(event); }))
        RefreshToolTip();
}

void TListWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_MouseDown)
        event->ignore();
    else if (!Work([this, event] { QListWidget::mouseMoveEvent(event); }))
        return;
    RefreshToolTip();
}

void TListWidget::mouseReleaseEvent(QMouseEvent* event)
{
    m_MouseDown = false;
    QPoint const place = event->pos();
    if (!Work([this, event] { QListWidget::mouseReleaseEvent(event); }))
        return;
    if (viewport()->rect().contains(place) && itemAt(place))
        tscreenPlaySound(SOUND_BUTTON_PRESS);
    m_PressInProgress = false;
    QPointer<TListWidget> const self(this);
    Q_EMIT MouseReleased(currentRow());
    if (self)
        RefreshToolTip();
}

void TListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    Work([this, event] { QListWidget::mouseDoubleClickEvent(event); });
}

// The release of a press never comes to a list that went away beneath the finger.
void TListWidget::EndPress()
{
    m_MouseDown = false;
    if (!m_PressInProgress)
        return;
    m_PressInProgress = false;
    RefreshToolTip();
}

void TListWidget::hideEvent(QHideEvent* event)
{
    QListWidget::hideEvent(event);
    EndPress();
}

void TListWidget::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        EndPress();
}

void TListWidget::RefreshToolTip()
{
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (!platform)
        return;
    if (m_PressInProgress && IsCurrentTooLong())
        platform->ShowToolTipFor(this, OwnToolTipPlacement, currentItem()->text(), {});
    else
        platform->HideToolTip();
}

bool TListWidget::IsCurrentTooLong() const
{
    QListWidgetItem const* const current = currentItem();
    if (!current)
        return false;
    auto const* const row = dynamic_cast<TRow const*>(current);
    int const text = row ? row->TextWidth() : MeasuredText(*current);
    return text + TListWidgetItemDelegate::GetWidthBesideText(IconColumn()) > viewport()->width();
}

// The base would throw the layout away for each of many rows, and start a timer. Once is enough until the
// rows are laid out.
void TListWidget::rowsInserted(QModelIndex const& parent, int start, int end)
{
    if (m_LayoutIsDue)
        return;
    m_LayoutIsDue = true;
    QListWidget::rowsInserted(parent, start, end);
}

void TListWidget::doItemsLayout()
{
    m_LayoutIsDue = false;
    QListWidget::doItemsLayout();
}

void TListWidget::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(viewport());
        if (!m_GlassEffect)
            painter.fillRect(event->rect(), palette().brush(QPalette::Base));
        if (count() == 0)
            KVN::RenderUtils::RenderText(&painter, viewport()->rect(), NoEntriesFlags,
                                         QTextOption::WrapAtWordBoundaryOrAnywhere, tr("No Entries"),
                                         NoEntriesFontSize, regularTextColor, false, false,
                                         qvariant_cast<QFont>(m_Font));
    }
    if (count() > 0)
        QListWidget::paintEvent(event);
}
