#include "TTaskWindow.h"

#include "FeatureSwitches.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TPushButton.h"
#include "TScrollArea.h"
#include "TSignallingGridLayout.h"
#include "TSignallingVBoxLayout.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace
{
constexpr int Unset = -1;
constexpr QSize ExportButtonSize(60, 40);
constexpr int TitleSize = 18;
constexpr int TitleMinimumSize = 12;
constexpr int TitleMargin = 8;
constexpr int TitleIconSize = 24;
constexpr int TitleFlags = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int BelowTop = Qt::AlignVCenter | Qt::AlignBottom;
constexpr int LayoutMargin = 5;
constexpr int LayoutSpacing = 5;
// Rows and columns of a grid, far more than are ever seen: each takes memory, filled or not.
constexpr int MostCells = 1000;

// -1 for every negative length, and none that a widget cannot have.
QSize Normalised(QSize const& size)
{
    return size.expandedTo(QSize(Unset, Unset)).boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

// Whether \a count cells from \a first on are in a grid.
bool AreCells(int first, int count)
{
    return first >= 0 && count >= 1 && first < MostCells && count <= MostCells - first;
}

int SpacerLength(int size)
{
    return qBound(0, size, QWIDGETSIZE_MAX);
}

// Its page keeps the height that is in it: it is dragged, not squeezed.
TScrollArea* MakeScrollArea(QWidget* parent)
{
    auto* const area = new TScrollArea(parent, true, false);
    auto* const page = new QWidget;
    page->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    area->setWidgetResizable(true);
    area->setWidget(page);
    page->setAutoFillBackground(false);
    return area;
}

// Of each axis what \a wanted sets, else what \a other has.
QSize SetOr(QSize const& wanted, QSize const& other)
{
    return {wanted.width() < 0 ? other.width() : wanted.width(),
            wanted.height() < 0 ? other.height() : wanted.height()};
}

// The length of a window whose content wants \a desired, with a frame of \a frame, in \a room.
int FrameLength(int desired, int least, int most, int frame, int room)
{
    int const held = desired < 0 ? room - frame : desired;
    int const cut = most < 0 ? held : qMin(held, most);
    return qMin(qMax(cut, least) + frame, room);
}

// Where a length starts in a room: at its first end, in its middle or at its last end.
int StartIn(int roomStart, int room, int length, bool first, bool middle)
{
    if (first)
        return roomStart;
    return roomStart + (middle ? (room - length) / 2 : room - length);
}
} // namespace

TTaskWindow::TTaskWindow(QWidget* parent)
    : TWindow(parent)
{
    SetBackgroundOpacity(TASK_WINDOW_DEFAULT_BACKROUND_OPACITY);
    HideMiniviewsOnShow(true);
    if (TASK_WINDOW_USE_FULLSCREEN)
    {
        SetModalFlag();
        SetLocalModal(true);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    connect(this, &TTaskWindow::DesiredGeomChangedInternal, this, &TTaskWindow::OnLayoutGeometryChanged);
    hide();
}

void TTaskWindow::SetSurfaceID(KVN::MorvaneID const& id)
{
    if (id == m_SurfaceId)
        return;
    KVN::MorvaneID const before = m_SurfaceId;
    m_SurfaceId = id;
    QPointer<TTaskWindow> const self(this);
    Q_EMIT ParentAppIDChanged(before, m_SurfaceId);
    if (self)
        Q_EMIT DesiredGeometryChanged();
}

KVN::MorvaneID const& TTaskWindow::SurfaceID() const
{
    return m_SurfaceId;
}

void TTaskWindow::SetDesiredContentSize(QSize const& size)
{
    QSize const wanted = Normalised(size);
    if (wanted == m_DesiredSize)
        return;
    m_DesiredSize = wanted;
    ResizeToScrollArea();
}

void TTaskWindow::SetDesiredContentSize(int width, int height)
{
    SetDesiredContentSize(SetOr(QSize(width, height), m_DesiredSize));
}

void TTaskWindow::UnsetDesiredContentSize(bool width, bool height)
{
    if (width)
        m_DesiredSize.setWidth(Unset);
    if (height)
        m_DesiredSize.setHeight(Unset);
    ResizeToScrollArea();
}

QSize TTaskWindow::DesiredContentSize() const
{
    return m_DesiredSizeCache;
}

QSize TTaskWindow::MinContentSize() const
{
    return m_MinSize;
}

QSize TTaskWindow::MaxContentSize() const
{
    return m_MaxSize;
}

void TTaskWindow::SetMinContentSize(QSize const& size)
{
    QSize const wanted = Normalised(size);
    if (wanted == m_MinSize)
        return;
    m_MinSize = wanted;
    Q_EMIT DesiredGeometryChanged();
}

void TTaskWindow::SetMinContentSize(int width, int height)
{
    SetMinContentSize(QSize(width, height));
}

void TTaskWindow::SetMaxContentSize(QSize const& size)
{
    QSize const wanted = Normalised(size);
    if (wanted == m_MaxSize)
        return;
    m_MaxSize = wanted;
    Q_EMIT DesiredGeometryChanged();
}

void TTaskWindow::SetMaxContentSize(int width, int height)
{
    SetMaxContentSize(QSize(width, height));
}

void TTaskWindow::RefreshDesiredContentSizeCache()
{
    m_DesiredSizeCache = m_DesiredSize;
    if (m_DesiredSize.isValid())
        return;
    InvalidateLayouts();
    m_DesiredSizeCache = ContentHint();
}

// Hidden widgets tell their layouts nothing.
void TTaskWindow::InvalidateLayouts()
{
    auto const layouts = findChildren<QLayout*>();
    for (QLayout* const layout : layouts)
    {
        for (int i = 0; i < layout->count(); ++i)
        {
            // Its layout item keeps the hint until the widget itself speaks up.
            if (QWidget* const widget = layout->itemAt(i)->widget())
                widget->updateGeometry();
        }
        layout->invalidate();
    }
}

QLayout* TTaskWindow::ContentLayout() const
{
    return m_VBoxLayout ? static_cast<QLayout*>(m_VBoxLayout) : m_GridLayout;
}

// What is set stands; the rest is what the content wants.
QSize TTaskWindow::ContentHint()
{
    if (m_ScrollArea)
    {
        QSize hint = HintOf(*m_ScrollArea->widget()->layout());
        if (m_DesiredSize.height() < 0)
            hint.rheight() += ControlsHeight();
        return hint;
    }
    if (QLayout const* const content = GetWindowContent()->layout())
        return HintOf(*content);
    return layout() ? HintOf(*layout()) : m_DesiredSize;
}

QSize TTaskWindow::HintOf(QLayout const& layout) const
{
    QSize hint = SetOr(m_DesiredSize, layout.totalSizeHint());
    // Text that wraps is as high as the width makes it.
    if (m_DesiredSize.height() < 0 && layout.hasHeightForWidth())
        hint.setHeight(layout.totalHeightForWidth(hint.width()));
    return hint;
}

void TTaskWindow::ResizeToScrollArea()
{
    RefreshDesiredContentSizeCache();
    Q_EMIT DesiredGeometryChanged();
}

void TTaskWindow::OnLayoutGeometryChanged()
{
    ResizeToScrollArea();
}

// Laying out is also the answer to a new size: only a layout that wants another one is news, or the two would
// go round for ever.
void TTaskWindow::TellIfContentChanged()
{
    if (m_ScrollArea && !m_DesiredSize.isValid() && ContentHint() != m_DesiredSizeCache)
        Q_EMIT DesiredGeomChangedInternal();
}

void TTaskWindow::SetAlignmentOptions(Qt::Alignment alignment)
{
    if (alignment == m_Alignment)
        return;
    m_Alignment = alignment;
    Q_EMIT DesiredGeometryChanged();
}

Qt::Alignment TTaskWindow::GetAlignmentOptions() const
{
    return m_Alignment;
}

QRect TTaskWindow::PlaceIn(QRect const& room) const
{
    if (TASK_WINDOW_USE_FULLSCREEN)
        return room;
    int const frameWidth = TASK_WINDOW_FRAME_BORDER_WIDTH;
    int const frameHeight = TASK_WINDOW_FRAME_BORDER_HEIGHT + GetTitleBarHeight();
    int const desiredWidth =
        m_DesiredSizeCache.width() < 0 ? TASK_WINDOW_CONTENT_STANDARD_WIDTH : m_DesiredSizeCache.width();
    QSize const size(
        FrameLength(desiredWidth, m_MinSize.width(), m_MaxSize.width(), frameWidth, room.width()),
        FrameLength(m_DesiredSizeCache.height(), m_MinSize.height(), m_MaxSize.height(), frameHeight,
                    room.height()));
    QPoint const place(StartIn(room.x(), room.width(), size.width(), m_Alignment & Qt::AlignLeft,
                               m_Alignment & Qt::AlignHCenter),
                       StartIn(room.y(), room.height(), size.height(), (m_Alignment & BelowTop) == 0,
                               m_Alignment & Qt::AlignVCenter));
    return {place, size};
}

void TTaskWindow::SetHasTitleBar(bool hasTitleBar)
{
    m_HasTitleBar = hasTitleBar;
    ChooseBackground();
    // The window may well keep its size.
    if (isVisible())
        LayOut();
    update();
    ResizeToScrollArea();
}

int TTaskWindow::GetTitleBarHeight() const
{
    return m_HasTitleBar ? TASK_WINDOW_TITLEBAR_HEIGHT : 0;
}

void TTaskWindow::SetTitleIcon(QString const& name)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    m_TitleIcon = pixmaps && !name.isEmpty() ? pixmaps->GetResizedIcon(name, TitleIconSize, KVN::ICON_NORMAL)
                                             : QSharedPointer<QPixmap>();
    update(TitleBarRect());
}

void TTaskWindow::SetTitleIcon(QImage const& image)
{
    m_TitleIcon.clear();
    if (!image.isNull())
    {
        bool const isTooLarge = image.width() > TitleIconSize || image.height() > TitleIconSize;
        m_TitleIcon = QSharedPointer<QPixmap>::create(QPixmap::fromImage(
            isTooLarge
                ? image.scaled(TitleIconSize, TitleIconSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                : image));
    }
    update(TitleBarRect());
}

QSharedPointer<QPixmap> TTaskWindow::GetTitleIcon() const
{
    return m_TitleIcon;
}

void TTaskWindow::SetOkButtonVisible(bool visible)
{
    m_OkVisible = visible;
    SetButtonVisibility(GetOkButton(), visible);
}

void TTaskWindow::SetCancelButtonVisible(bool visible)
{
    m_CancelVisible = visible;
    SetButtonVisibility(GetCancelButton(), visible);
}

void TTaskWindow::SetDDNButtonVisible(bool visible)
{
    m_ExportVisible = visible;
    if (m_ExportButton)
        m_ExportButton->setVisible(visible);
    // The title ends at the button.
    update(TitleBarRect());
}

void TTaskWindow::SetButtonVisibility(int id, bool visible)
{
    SetButtonVisibility(GetControlButtons().value(id, nullptr), visible);
}

void TTaskWindow::SetButtonVisibility(TPushButton* button, bool visible)
{
    if (!button || button->isVisibleTo(this) == visible)
        return;
    button->setVisible(visible);
    PositionControlButtons();
    PlaceScrollArea();
    TellIfContentChanged();
}

void TTaskWindow::SetupVBoxLayout()
{
    m_VBoxLayout = MakeLayout<TSignallingVBoxLayout>();
}

void TTaskWindow::SetupGridLayout()
{
    m_GridLayout = MakeLayout<TSignallingGridLayout>();
}

template<typename TLayout>
TLayout* TTaskWindow::MakeLayout()
{
    ClearLayout();
    m_ScrollArea = MakeScrollArea(GetWindowContent());
    connect(m_ScrollArea, &TScrollArea::ScrollAreaMinLimit, this, &TTaskWindow::OnMinScrollLimit);
    connect(m_ScrollArea, &TScrollArea::ScrollAreaMaxLimit, this, &TTaskWindow::OnMaxScrollLimit);
    auto* const layout = new TLayout(m_ScrollArea->widget());
    layout->setContentsMargins(LayoutMargin, LayoutMargin, LayoutMargin, LayoutMargin);
    layout->setSpacing(LayoutSpacing);
    connect(layout, &TLayout::GeometryChanged, this, &TTaskWindow::TellIfContentChanged);
    PlaceScrollArea();
    m_ScrollArea->show();
    return layout;
}

void TTaskWindow::ClearLayout()
{
    if (!m_ScrollArea)
        return;
    m_VBoxLayout = nullptr;
    m_GridLayout = nullptr;
    m_ClearedWidgets.removeAll(nullptr);
    auto const widgets =
        m_ScrollArea->widget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* const widget : widgets)
    {
        if (!widget->isHidden())
            m_ClearedWidgets.append(widget);
        widget->hide();
        widget->setParent(GetWindowContent());
    }
    // It may be the layout that is just being laid out.
    m_ScrollArea->hide();
    m_ScrollArea->deleteLater();
    m_ScrollArea = nullptr;
}

QLayout* TTaskWindow::LayoutToFill()
{
    if (!ContentLayout())
        SetupVBoxLayout();
    return ContentLayout();
}

void TTaskWindow::AddLayoutToLayout(QLayout* layout)
{
    if (!layout)
        return;
    LayoutToFill();
    if (m_VBoxLayout)
        m_VBoxLayout->addLayout(layout);
    else
        m_GridLayout->addLayout(layout, m_GridLayout->rowCount(), 0);
}

void TTaskWindow::AddWidgetToLayout(QWidget* widget, int stretch, Qt::Alignment alignment)
{
    if (!widget)
        return;
    LayoutToFill();
    if (m_VBoxLayout)
        m_VBoxLayout->addWidget(widget, qMax(0, stretch), alignment);
    else
        m_GridLayout->addWidget(widget, m_GridLayout->rowCount(), 0, alignment);
    Reveal(widget);
}

void TTaskWindow::AddSpacerToLayout(int size)
{
    LayoutToFill();
    if (m_VBoxLayout)
        m_VBoxLayout->addSpacing(SpacerLength(size));
    else
        m_GridLayout->addItem(
            new QSpacerItem(0, SpacerLength(size), QSizePolicy::Minimum, QSizePolicy::Fixed),
            m_GridLayout->rowCount(), 0);
}

void TTaskWindow::AddStretchToLayout(int stretch)
{
    LayoutToFill();
    if (m_VBoxLayout)
        m_VBoxLayout->addStretch(qMax(0, stretch));
    else
        m_GridLayout->setRowStretch(m_GridLayout->rowCount(), qMax(1, stretch));
}

void TTaskWindow::AddWidgetToGridLayout(QWidget* widget, int row, int column, int rowSpan, int columnSpan,
                                        Qt::Alignment alignment)
{
    if (!widget || !m_GridLayout || !AreCells(row, rowSpan) || !AreCells(column, columnSpan))
        return;
    m_GridLayout->addWidget(widget, row, column, rowSpan, columnSpan, alignment);
    Reveal(widget);
}

// One that was hidden by its module stays hidden.
void TTaskWindow::Reveal(QWidget* widget)
{
    if (m_ClearedWidgets.removeAll(widget) > 0)
        widget->show();
}

void TTaskWindow::Setup()
{
    TWindow::Setup();
    GetWindowContent()->raise();
    GetWindowContent()->show();
    GetOkButton()->setVisible(m_OkVisible);
    GetCancelButton()->setVisible(m_CancelVisible);
    ChooseBackground();
    m_ExportButton = new TPushButton(this, QString(), QStringLiteral("ZONTOTitlebarIcon"),
                                     QStringLiteral("ZONTOTitlebarSelected"), -1, QString());
    m_ExportButton->setFixedSize(ExportButtonSize);
    m_ExportButton->lower();
    m_ExportButton->setVisible(m_ExportVisible);
    PlaceExportButton();
    connect(m_ExportButton, &QAbstractButton::clicked, this, &TTaskWindow::ExportButtonPressed);
}

// A module that chose a frame of its own keeps it.
void TTaskWindow::ChooseBackground()
{
    QString const present = GetBackground();
    if (present.isEmpty() || present == PixmapNames::TaskWindowNoShadow ||
        present == PixmapNames::TaskWindowNoTitlebarNoShadow)
        SetBackground(m_HasTitleBar ? PixmapNames::TaskWindowNoShadow
                                    : PixmapNames::TaskWindowNoTitlebarNoShadow);
}

int TTaskWindow::GetNumberOfVisibleButtons()
{
    QVector<TPushButton*> const buttons =
        GetControlButtons() + QVector<TPushButton*>{GetOkButton(), GetCancelButton()};
    return static_cast<int>(std::count_if(buttons.cbegin(), buttons.cend(),
                                          [this](TPushButton* button)
                                          { return button && button->isVisibleTo(this); }));
}

bool TTaskWindow::OnMMIBack()
{
    if (GetCancelButton()->isVisible())
        OnCancel();
    return false;
}

// With a platform the window is placed by that.
bool TTaskWindow::ShouldAutoReCentre() const
{
    return !MorvanePlatformInterface::Instance();
}

void TTaskWindow::ReCentre(QWidget* parent)
{
    if (parent)
        setGeometry(PlaceIn(parent->rect()));
}

void TTaskWindow::ShowWindow(bool modal)
{
    ShowWindow(modal, false);
}

void TTaskWindow::ShowWindow(bool modal, bool localWindow)
{
    SetupIfRequired();
    SetLocalModal(localWindow || TASK_WINDOW_USE_FULLSCREEN);
    if (modal)
        SetModalFlag();
    RefreshDesiredContentSizeCache();
    if (MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance())
        platform->ShowTaskWindow(this, localWindow);
    else
        TWindow::ShowWindow(modal);
}

void TTaskWindow::OnMinScrollLimit() {}

void TTaskWindow::OnMaxScrollLimit() {}

void TTaskWindow::OnOk()
{
    QPointer<TTaskWindow> const self(this);
    HideWindow();
    if (self)
        Q_EMIT Ok();
}

void TTaskWindow::OnCancel()
{
    QPointer<TTaskWindow> const self(this);
    HideWindow();
    if (self)
        Q_EMIT Cancel();
}

void TTaskWindow::PositionControlButtons()
{
    QWidget const* const content = GetWindowContent();
    int const count = GetNumberOfVisibleButtons();
    QSize const size(count > 0 ? content->width() / count : 0, TASK_WINDOW_CONTROLS_HEIGHT);
    int right = content->width();
    auto const place = [&](TPushButton* button)
    {
        if (!button)
            return;
        button->setFixedSize(size);
        if (!button->isVisibleTo(this))
            return;
        right -= size.width();
        button->move(right, content->height() - size.height());
    };
    place(GetOkButton());
    place(GetCancelButton());
    for (TPushButton* const button : GetControlButtons())
        place(button);
}

int TTaskWindow::ControlsHeight()
{
    return GetNumberOfVisibleButtons() > 0 ? TASK_WINDOW_CONTROLS_HEIGHT : 0;
}

// The layout takes what the row of buttons leaves, and no more than is wished for.
void TTaskWindow::PlaceScrollArea()
{
    if (!m_ScrollArea)
        return;
    QSize const content = GetWindowContent()->size();
    int const wanted = m_DesiredSize.height() < 0 ? content.height() : m_DesiredSize.height();
    m_ScrollArea->setGeometry(0, 0, content.width(),
                              qMax(0, qMin(wanted, content.height()) - ControlsHeight()));
}

void TTaskWindow::PlaceExportButton()
{
    if (m_ExportButton)
        m_ExportButton->move(width() - m_ExportButton->width() - WINDOW_SHADOW - BUTTON_BLANK_AREA,
                             BUTTON_BLANK_AREA);
}

void TTaskWindow::LayOut()
{
    PlaceExportButton();
    QWidget* const content = GetWindowContent();
    content->setFixedSize(qMax(0, width() - TASK_WINDOW_FRAME_BORDER_WIDTH),
                          qMax(0, height() - GetTitleBarHeight() - TASK_WINDOW_FRAME_BORDER_HEIGHT));
    content->move(TASK_WINDOW_CONTENT_X_OFFSET, GetTitleBarHeight() + TASK_WINDOW_CONTENT_Y_OFFSET);
    // Not where the content is: the fade begins above it, over the title bar.
    SetContentRect(QRect(QPoint(TASK_WINDOW_CONTENT_X_OFFSET, TASK_WINDOW_FRAME_Y_OFFSET), content->size()));
    PositionControlButtons();
    PlaceScrollArea();
}

void TTaskWindow::resizeEvent(QResizeEvent* event)
{
    LayOut();
    TWindow::resizeEvent(event);
}

// While it was hidden the title bar may have come or gone.
void TTaskWindow::showEvent(QShowEvent* event)
{
    LayOut();
    TWindow::showEvent(event);
}

void TTaskWindow::paintEvent(QPaintEvent* event)
{
    if (testAttribute(Qt::WA_OpaquePaintEvent))
        QPainter(this).fillRect(event->rect(), Qt::black);
    TWindow::paintEvent(event);
    if (m_HasTitleBar)
        PaintTitleBar();
}

QRect TTaskWindow::TitleBarRect() const
{
    return {TASK_WINDOW_FRAME_X_OFFSET, TASK_WINDOW_FRAME_Y_OFFSET, width() - TASK_WINDOW_FRAME_BORDER_WIDTH,
            TASK_WINDOW_TITLEBAR_HEIGHT};
}

void TTaskWindow::PaintTitleBar()
{
    QString const title = GetTitle();
    if (title.isEmpty() && !m_TitleIcon)
        return;
    QPainter painter(this);
    QRect bar = TitleBarRect().adjusted(TitleMargin, 0, -TitleMargin, 0);
    if (m_ExportButton && m_ExportButton->isVisibleTo(this))
        bar.setRight(qMin(bar.right(), m_ExportButton->x() - TitleMargin));
    if (m_TitleIcon)
    {
        painter.drawPixmap(bar.x(), bar.center().y() - m_TitleIcon->height() / 2, *m_TitleIcon);
        bar.setLeft(bar.left() + m_TitleIcon->width() + TitleMargin);
    }
    KVN::RenderUtils::RenderTextInsideRect(&painter, bar, TitleFlags, title, TitleSize, TitleMinimumSize,
                                           regularTextColor, true, true, true, true, false);
}
