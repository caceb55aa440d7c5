#include "TMultiListControl.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TLabel.h"
#include "TListControl.h"
#include "TPushButton.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPaintEvent>
#include <QSpacerItem>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int LabelHeight = 28;
constexpr int ListButtonDistance = 8;
// Rows that a caller may ask the rectangle of; the last one is never there.
constexpr int MappedRows = 5;

// Ids of the buttons: one block for each of the three kinds.
constexpr int FirstPreviousId = 0;
constexpr int FirstMiddleId = FirstPreviousId + TMultiListControl::RowCount;
constexpr int FirstNextId = FirstMiddleId + TMultiListControl::RowCount;

int ListWidth()
{
    return POPUP_WINDOW_WIDTH - 2 * LIST_BORDER - INPUT_WINDOW_SHADOW_SIZE;
}
} // namespace

TMultiListControl::TMultiListControl(QWidget* parent, TEditItem* item)
    : TEditWidget(parent, item)
    , m_Header(new QWidget(this))
    , m_RowsWidget(new QWidget(this))
{
    SetOverridePosition(true);
    GetValueButton()->hide();
}

TMultiListControl::~TMultiListControl() = default;

void TMultiListControl::Setup()
{
    setFixedWidth(POPUP_WINDOW_WIDTH);
    TEditWidget::Setup();
    if (m_ListRoom)
        return;
    auto* const column = new QVBoxLayout(m_RowsWidget);
    column->setSpacing(0);
    for (int row = 0; row < RowCount; ++row)
    {
        MakeRow(row);
        column->addWidget(m_Rows[std::size_t(row)].widget);
    }
    m_ListRoom = new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
    column->addSpacerItem(m_ListRoom);
    FitHeader();
}

void TMultiListControl::MakeRow(int row)
{
    TRow& made = m_Rows[std::size_t(row)];
    made.widget = new QWidget(m_RowsWidget);
    made.label = new TLabel(made.widget);
    made.label->setFixedHeight(LabelHeight);
    made.label->setAlignment(Qt::AlignCenter);
    made.label->setText(made.title);
    made.previous =
        MakeRowButton(QStringLiteral("icon-left"), FirstPreviousId + row, tr("Decrement Selection"));
    made.middle = MakeRowButton(QString(), FirstMiddleId + row, QString());
    made.next = MakeRowButton(QStringLiteral("icon-right"), FirstNextId + row, tr("Increment Selection"));
    connect(made.previous, &TPushButton::Clicked, this, &TMultiListControl::OnPreviousButtonClicked);
    connect(made.middle, &TPushButton::Clicked, this, &TMultiListControl::OnMiddleButtonClicked);
    connect(made.next, &TPushButton::Clicked, this, &TMultiListControl::OnNextButtonClicked);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(made.previous);
    buttons->addWidget(made.middle, 1);
    buttons->addWidget(made.next);
    auto* const column = new QVBoxLayout(made.widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(made.label);
    column->addLayout(buttons);
    made.widget->setVisible(made.visible);
}

TPushButton* TMultiListControl::MakeRowButton(QString const& icon, int id, QString const& toolTip)
{
    return new TPushButton(m_RowsWidget, icon, QSize(), QPoint(), id, toolTip);
}

// The value stands in the list alone.
void TMultiListControl::RefreshProperties(TEditItem const* item)
{
    QPointer<TMultiListControl> const self(this);
    TEditWidget::RefreshProperties(item);
    if (!self)
        return;
    GetValueButton()->hide();
    FitAnew();
}

void TMultiListControl::SetTitle(QString const& title)
{
    TEditWidget::SetTitle(title);
    FitAnew();
}

void TMultiListControl::FitAnew()
{
    FitHeader();
    if (isVisible())
        UpdateWindowHeightAndPosition();
}

// Not its source moves it, but the size of its parent.
void TMultiListControl::PositionChanged()
{
    QMetaObject::invokeMethod(this, &TMultiListControl::FitAnew, Qt::QueuedConnection);
}

// ---- rows ----

bool TMultiListControl::IsRow(int row)
{
    return row >= 0 && row < RowCount;
}

bool TMultiListControl::HasEntries(int row) const
{
    return IsRow(row) && m_Rows[std::size_t(row)].visible && !m_Rows[std::size_t(row)].ids.isEmpty();
}

void TMultiListControl::SetRowItems(int row, QString title, QVector<int> const& ids,
                                    QVector<QString> const& shortTexts, QVector<QString> const& longTexts)
{
    if (!IsRow(row))
        return;
    TRow& changed = m_Rows[std::size_t(row)];
    int const id = changed.ids.value(changed.selected, 0);
    changed.title = std::move(title);
    changed.ids = ids;
    changed.shortTexts = shortTexts;
    changed.longTexts = longTexts;
    int const index = changed.ids.indexOf(id);
    if (index >= 0)
        changed.selected = index;
    if (changed.label)
        changed.label->setText(changed.title);
    UpdateMiddleButtonText(row);
}

void TMultiListControl::ShowHideButtonControls(int row, bool show)
{
    if (!IsRow(row))
        return;
    m_Rows[std::size_t(row)].visible = show;
    ShowRow(row);
    if (isVisible())
        UpdateWindowHeightAndPosition();
}

void TMultiListControl::ShowRow(int row)
{
    TRow const& shown = m_Rows[std::size_t(row)];
    if (!shown.widget)
        return;
    shown.widget->setVisible(shown.visible);
    UpdateMiddleButtonText(row);
}

void TMultiListControl::SelectRowIndex(int row, int index)
{
    if (!HasEntries(row) || index < 0 || index > GetMaxRowIndex(row))
        return;
    m_Rows[std::size_t(row)].selected = index;
    UpdateMiddleButtonText(row);
}

void TMultiListControl::SelectRowItem(int row, int id)
{
    int const index = IsRow(row) ? m_Rows[std::size_t(row)].ids.indexOf(id) : -1;
    if (index < 0)
        return;
    m_Rows[std::size_t(row)].selected = index;
    UpdateMiddleButtonText(row);
}

int TMultiListControl::GetSelectedRowIndex(int row) const
{
    return HasEntries(row) ? m_Rows[std::size_t(row)].selected : -1;
}

int TMultiListControl::GetSelectedRowItem(int row) const
{
    return HasEntries(row) ? m_Rows[std::size_t(row)].ids.value(m_Rows[std::size_t(row)].selected, -1) : -1;
}

int TMultiListControl::GetMaxRowIndex(int row) const
{
    return HasEntries(row) ? m_Rows[std::size_t(row)].ids.size() - 1 : -1;
}

void TMultiListControl::UpdateMiddleButtonText(int row)
{
    if (!HasEntries(row) || !m_Rows[std::size_t(row)].middle)
        return;
    TRow const& shown = m_Rows[std::size_t(row)];
    QVector<QString> const& texts = shown.longTexts.isEmpty() ? shown.shortTexts : shown.longTexts;
    shown.middle->SetText(texts.value(shown.selected), QString(), false, QString(), false);
}

int TMultiListControl::RowOfButton(int id, TPushButton* TRow::*button) const
{
    auto const found = std::find_if(m_Rows.begin(), m_Rows.end(),
                                    [id, button](TRow const& row)
                                    { return row.*button && (row.*button)->GetButtonId() == id; });
    return found == m_Rows.end() ? -1 : int(found - m_Rows.begin());
}

void TMultiListControl::OnPreviousButtonClicked(int id)
{
    Step(RowOfButton(id, &TRow::previous), -1);
}

void TMultiListControl::OnNextButtonClicked(int id)
{
    Step(RowOfButton(id, &TRow::next), 1);
}

void TMultiListControl::OnMiddleButtonClicked(int id)
{
    int const row = RowOfButton(id, &TRow::middle);
    if (row >= 0)
        Q_EMIT MiddleButtonClicked(row);
}

// An index that fewer entries have left behind counts as one past the end.
void TMultiListControl::Step(int row, int direction)
{
    if (!IsRow(row) || m_Rows[std::size_t(row)].ids.isEmpty())
        return;
    TRow& stepped = m_Rows[std::size_t(row)];
    int const count = stepped.ids.size();
    stepped.selected = (qMin(stepped.selected, count) + direction + count) % count;
    UpdateMiddleButtonText(row);
    Q_EMIT RowItemSelectionChanged(row, stepped.ids.at(stepped.selected));
}

// ---- place ----

int TMultiListControl::GetMultiListControlHeight()
{
    return GetNumVisibleListEntries() * LIST_ROW_HEIGHT + 2 * LIST_BORDER +
           RowCount * STANDARD_BUTTON_HEIGHT + m_Header->height();
}

QRect TMultiListControl::GetEditButtonMappedRect(int row, QWidget* parent) const
{
    if (row < 0 || row >= MappedRows || !IsRow(row) || !parent)
        return {};
    TPushButton const* const middle = m_Rows[std::size_t(row)].middle;
    if (!middle)
        return {};
    return {parent->mapFromGlobal(middle->mapToGlobal(QPoint())), middle->size()};
}

int TMultiListControl::ParentHeight() const
{
    return parentWidget() ? parentWidget()->height() : SCREEN_HEIGHT;
}

int TMultiListControl::RowsOfList()
{
    int const below = LIST_BORDER + TASK_WINDOW_BUTTON_HEIGHT;
    int const room = ParentHeight() - below - m_RowsWidget->layout()->sizeHint().height();
    return qBound(0, room / LIST_ROW_HEIGHT, GetNumVisibleListEntries());
}

// The title is as wide as the list.
void TMultiListControl::FitHeader()
{
    if (TListControl* const list = GetList())
        list->setFixedWidth(ListWidth());
    m_Header->setFixedHeight(GetTitleBarHeight());
}

void TMultiListControl::PositionValueList()
{
    TListControl* const list = GetList();
    if (!list || !m_ListRoom)
        return;
    QLayout* const column = m_RowsWidget->layout();
    m_ListRoom->changeSize(0, 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
    column->invalidate();
    list->SetListPosition(0, 0, ListWidth(), RowsOfList());
    m_ListRoom->changeSize(0, list->height(), QSizePolicy::Minimum, QSizePolicy::Fixed);
    column->invalidate();
}

// The window's shadow lies within it, at the right and below.
void TMultiListControl::UpdateWindowHeightAndPosition()
{
    if (!m_ListRoom)
        return;
    for (int row = 0; row < RowCount; ++row)
        ShowRow(row);
    FitHeader();
    QLayout* const column = m_RowsWidget->layout();
    column->setContentsMargins(LIST_BORDER, m_Header->height(), LIST_BORDER + INPUT_WINDOW_SHADOW_SIZE,
                               ListButtonDistance + INPUT_WINDOW_SHADOW_SIZE);
    PositionValueList();
    int const contents = qMax(m_Header->height(), column->sizeHint().height());
    int const height = qMin(contents + LIST_BORDER + TASK_WINDOW_BUTTON_HEIGHT, ParentHeight());
    setFixedSize(POPUP_WINDOW_WIDTH, height);
    int const parentWidth = parentWidget() ? parentWidget()->width() : SCREEN_WIDTH;
    move((parentWidth - width()) / 2, qMax(0, qMin(ParentHeight() - height, POPUP_WINDOW_POS_Y)));
    m_RowsWidget->setGeometry(0, 0, width(), column->sizeHint().height());
    column->activate();
    if (TListControl* const list = GetList())
    {
        list->move(m_ListRoom->geometry().topLeft());
        list->raise();
        PlaceListButtons();
    }
    FetchBack();
    update();
}

void TMultiListControl::FetchBack()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    m_Back = pixmaps ? pixmaps->GetResizedPixmap(PixmapNames::ModalInputWindow, width(), height())
                     : QSharedPointer<QPixmap>();
}

void TMultiListControl::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (m_Back)
        painter.drawPixmap(0, 0, *m_Back);
    PaintTitle(painter, 0);
}

void TMultiListControl::showEvent(QShowEvent* event)
{
    UpdateWindowHeightAndPosition();
    TEditWidget::showEvent(event);
}

void TMultiListControl::hideEvent(QHideEvent* event)
{
    m_Back.reset();
    TEditWidget::hideEvent(event);
}

EMMIWidgetBehaviour TMultiListControl::GetMMIBehaviour()
{
    return MMI_NORMAL;
}
