#include "TListControl.h"

#include "Metrics.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TListWidget.h"
#include "TPushButton.h"

#include <QModelIndex>
#include <QScrollBar>

namespace
{
constexpr int UpButtonId = 1;
constexpr int DownButtonId = 2;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
// One more would stand for no limit.
constexpr int LargestFixedSide = QWIDGETSIZE_MAX - 1;

// So far from any screen that sums of places stay whole numbers.
int HeldPlace(int place)
{
    return qBound(-LargestFixedSide, place, LargestFixedSide);
}
} // namespace

TListControl::TListControl(QWidget* parent)
    : TWindow(parent)
    , m_List(new TListWidget(this))
{
    // One stop for the list is enough; entering the control first would be a step in vain.
    SetMMIBehaviour(MMI_TRANSPARENT);
}

TListControl::~TListControl() = default;

void TListControl::Setup()
{
    TWindow::Setup();
    if (m_UpButton)
        return;
    ConnectList();
    m_UpButton = MakeScrollButton(QStringLiteral("scrollArrow-up"), UpButtonId,
                                  tr("Move Selection Up (Press and hold to move quickly)"));
    connect(m_UpButton, &QAbstractButton::clicked, this, &TListControl::OnScrollUp);
    m_DownButton = MakeScrollButton(QStringLiteral("scrollArrow-down"), DownButtonId,
                                    tr("Move Selection Down (Press and hold to move quickly)"));
    connect(m_DownButton, &QAbstractButton::clicked, this, &TListControl::OnScrollDown);
    ShowScrollButtons();
    PositionContent();
}

void TListControl::ConnectList()
{
    connect(m_List, &TListWidget::Selection, this, &TListControl::OnSelection);
    connect(m_List, &TListWidget::SelectionChanged, this, &TListControl::SelectionChanged);
    connect(m_List, &TListWidget::SelectionCanceled, this, &TListControl::SelectionCanceled);
    connect(m_List, &TListWidget::MouseReleased, this, &TListControl::OnMouseReleased);
    connect(m_List, &TListWidget::MousePressed, this, &TListControl::OnMousePressed);
    connect(m_List, &QAbstractItemView::clicked, this, &TListControl::OnClick);
    connect(m_List, &QAbstractItemView::doubleClicked, this, &TListControl::OnDoubleClick);
}

TPushButton* TListControl::MakeScrollButton(QString const& icon, int id, QString const& toolTip)
{
    auto* const button =
        new TPushButton(this, icon, PixmapNames::ListItem, PixmapNames::ListItemSelected, id, toolTip);
    button->SetAutoRepeat(true, RepeatDelay, RepeatInterval);
    return button;
}

// The stepping buttons make no sense where several rows may be selected.
int TListControl::ScrollButtonHeight() const
{
    return m_SingleSelection ? LIST_SCROLL_BUTTON_HEIGHT : 0;
}

void TListControl::ShowScrollButtons()
{
    for (TPushButton* const button : {m_UpButton, m_DownButton})
    {
        if (!button)
            continue;
        button->setEnabled(ScrollButtonHeight() > 0);
        button->setVisible(ScrollButtonHeight() > 0);
    }
}

void TListControl::ApplyButtonBackgrounds()
{
    for (TPushButton* const button : {m_UpButton, m_DownButton})
    {
        if (!button)
            continue;
        button->SetBackground(PixmapNames::ListItem);
        button->SetBackgroundSelected(PixmapNames::ListItemSelected);
    }
}

int TListControl::AddString(QString const& text, int width, QIcon const& icon)
{
    int const rows = m_List->AddString(text, GetListRowHeight(), width, icon);
    updateGeometry();
    return rows;
}

void TListControl::SetupListItemIcon(TEditContainerQString const& names)
{
    m_List->SetupListItemIcon(names);
}

void TListControl::Clear()
{
    updateGeometry();
    m_List->Clear();
}

QString TListControl::GetItemText(int row) const
{
    return m_List->GetItemText(row);
}

void TListControl::SetItemText(int row, QString const& text, int width)
{
    m_List->SetItemText(row, text, width);
    updateGeometry();
}

QVariant TListControl::GetItemData(int row, int role) const
{
    return m_List->GetItemData(row, role);
}

void TListControl::SetItemData(int row, int role, QVariant const& value)
{
    m_List->SetItemData(row, role, value);
}

void TListControl::SetItemHidden(int row, bool hidden)
{
    m_List->SetItemHidden(row, hidden);
    updateGeometry();
}

bool TListControl::IsItemHidden(int row) const
{
    return m_List->IsItemHidden(row);
}

int TListControl::GetNumberOfItems() const
{
    return m_List->GetNumberOfItems();
}

int TListControl::GetNumberOfVisibleItems() const
{
    return m_List->GetNumberOfVisibleItems();
}

int TListControl::GetIndexfromText(QString const& text) const
{
    return m_List->GetIndexfromText(text);
}

void TListControl::SetSelectionMode(QAbstractItemView::SelectionMode mode)
{
    m_SingleSelection = mode == QAbstractItemView::SingleSelection;
    m_List->setSelectionMode(mode);
    ShowScrollButtons();
    if (m_Width > 0 && m_Height > 0)
        PositionContent();
}

int TListControl::GetSelectedItem() const
{
    return m_List->GetSelectedItem();
}

bool TListControl::SelectItem(QString const& text, bool select)
{
    int const row = m_List->GetIndexfromText(text);
    if (row < 0)
        return false;
    if (m_SingleSelection)
        m_List->SetCurrentRow(row);
    else
        m_List->SelectItem(row, select);
    return true;
}

void TListControl::SelectItem(int row, bool select)
{
    m_List->SelectItem(row, select);
}

void TListControl::SelectItems(QStringList const& texts)
{
    m_List->SelectItems(texts);
}

void TListControl::SelectAll()
{
    m_List->SelectAll();
}

void TListControl::UnSelectAllSelections()
{
    m_List->UnSelectAllSelections();
}

void TListControl::SetCurrentRow(int row)
{
    m_List->SetCurrentRow(row);
}

void TListControl::ShowCurrentRow()
{
    m_List->scrollTo(m_List->currentIndex());
}

bool TListControl::IsItemSelected(unsigned row) const
{
    return m_List->IsItemSelected(row);
}

bool TListControl::IsAnythingSelected() const
{
    return m_List->IsAnythingSelected();
}

QList<QListWidgetItem*> TListControl::GetSelectedItems() const
{
    return m_List->GetSelectedItems();
}

QStringList TListControl::GetSelectedTextItems() const
{
    return m_List->GetSelectedTextItems();
}

void TListControl::SetListColor(QColor const& color)
{
    m_ListColor = color;
    ApplyListColor();
}

void TListControl::ApplyListColor()
{
    QColor const own = m_ListColor.isValid() ? m_ListColor : listItemColor;
    m_List->SetListColor(m_GlassEffect ? listButtonColorGlass : own);
}

void TListControl::UseGlassEffect(bool use)
{
    SetupIfRequired();
    if (use == m_GlassEffect)
        return;
    m_GlassEffect = use;
    m_List->UseGlassEffect(use);
    ApplyListColor();
    ApplyButtonBackgrounds();
}

void TListControl::SetListGeometry(int x, int y, int width, int height, int margin, bool completeRows)
{
    m_X = HeldPlace(x);
    m_Y = HeldPlace(y);
    m_Width = qMin(width, LargestFixedSide);
    m_Height = qMin(height, LargestFixedSide);
    m_Margin = HeldPlace(margin);
    m_CompleteRowsOnly = completeRows;
    PositionContent();
}

void TListControl::SetListPosition(int x, int y, int width, int rows)
{
    SetupIfRequired();
    m_X = HeldPlace(x);
    m_Y = HeldPlace(y);
    m_Width = qBound(0, width, LargestFixedSide);
    m_Height = qBound(0, rows, LargestFixedSide / LIST_ROW_HEIGHT) * LIST_ROW_HEIGHT;
    m_Margin = 0;
    setFixedSize(m_Width, m_Height + 2 * ScrollButtonHeight());
    PositionContent();
}

void TListControl::SetListMargin(int margin)
{
    m_Margin = HeldPlace(margin);
    PositionContent();
}

void TListControl::SetCompleteRowsOnly(bool completeRows)
{
    m_CompleteRowsOnly = completeRows;
    PositionContent();
}

QRect TListControl::ListRect() const
{
    int const areaWidth = m_Width < 1 ? width() : m_Width;
    int const areaHeight = m_Height < 1 ? height() : m_Height;
    int const above = m_Margin + ScrollButtonHeight();
    QRect rect(m_X + m_Margin, m_Y + above, qMax(0, areaWidth - 2 * m_Margin),
               qMax(0, areaHeight - 2 * above));
    if (m_CompleteRowsOnly)
        rect.setHeight(rect.height() / LIST_ROW_HEIGHT * LIST_ROW_HEIGHT);
    return rect;
}

void TListControl::PositionContent()
{
    QRect const rect = ListRect();
    int const buttonHeight = ScrollButtonHeight();
    m_List->setGeometry(rect);
    if (!m_UpButton)
        return;
    m_UpButton->setFixedHeight(buttonHeight);
    m_UpButton->setGeometry(rect.left(), rect.top() - buttonHeight, rect.width(), buttonHeight);
    m_DownButton->setFixedHeight(buttonHeight);
    m_DownButton->setGeometry(rect.left(), rect.bottom() + 1, rect.width(), buttonHeight);
}

int TListControl::GetRequiredWidth() const
{
    return m_List->GetRequiredWidth();
}

int TListControl::GetRequiredHeight(int rows) const
{
    if (rows < 1)
        return 0;
    return qMin(rows, LargestFixedSide / LIST_ROW_HEIGHT) * LIST_ROW_HEIGHT + 2 * ScrollButtonHeight();
}

QSize TListControl::sizeHint() const
{
    int const barWidth = m_List->verticalScrollBar()->sizeHint().width();
    QSize const needed(GetRequiredWidth() + barWidth + 2 * m_Margin,
                       GetRequiredHeight(GetNumberOfVisibleItems()) + 2 * m_Margin);
    return {m_Width < 1 ? needed.width() : m_Width, m_Height < 1 ? needed.height() : m_Height};
}

QSize TListControl::minimumSizeHint() const
{
    int const side = 2 * m_Margin;
    return {m_List->minimumSizeHint().width() + side, GetRequiredHeight(1) + side};
}

int TListControl::GetListRowHeight()
{
    return LIST_ROW_HEIGHT;
}

void TListControl::resizeEvent(QResizeEvent* event)
{
    TWindow::resizeEvent(event);
    PositionContent();
}

// A part of a window is shown with it, and not by ShowWindow().
void TListControl::showEvent(QShowEvent* event)
{
    SetupIfRequired();
    TWindow::showEvent(event);
}

void TListControl::OnMMIWheelLeft()
{
    m_List->OnMMIWheelLeft();
}

void TListControl::OnMMIWheelRight()
{
    m_List->OnMMIWheelRight();
}

void TListControl::OnScrollUp()
{
    Scroll(-1);
}

void TListControl::OnScrollDown()
{
    Scroll(1);
}

void TListControl::Scroll(int direction)
{
    int const count = GetNumberOfItems();
    int const start = GetSelectedItem();
    int row = start;
    // Each row once: without a selection the walk would never come back to where it began.
    for (int i = 0; i < count; ++i)
    {
        row += direction;
        if (row < 0)
            row = count - 1;
        else if (row >= count)
            row = 0;
        if (row == start)
            return;
        if (!IsItemHidden(row))
        {
            SelectItem(row, true);
            return;
        }
    }
}

// The list is in the middle of its work while it tells of a click.
void TListControl::OnClick(QModelIndex const& index)
{
    int const row = index.row();
    if (index.isValid())
        m_List->WhenSettled([this, row] { Q_EMIT Click(row); });
}

void TListControl::OnDoubleClick(QModelIndex const& index)
{
    int const row = index.row();
    if (index.isValid())
        m_List->WhenSettled([this, row] { Q_EMIT DoubleClick(row); });
}

void TListControl::OnMouseReleased(int row)
{
    Q_EMIT MouseReleased(row);
}

void TListControl::OnMousePressed()
{
    Q_EMIT MousePressed();
}

void TListControl::OnSelection(int row)
{
    Q_EMIT Selection(row);
}

void TListControl::OnDone()
{
    if (GetSelectedItem() >= 0)
        OnSelection(GetSelectedItem());
}

void TListControl::OnCancel()
{
    Q_EMIT SelectionCanceled();
}
