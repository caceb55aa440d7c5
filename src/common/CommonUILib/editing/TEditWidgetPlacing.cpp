#include "TEditWidget.h"

#include "Fonts.h"
#include "ITopLevelWindow.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TListControl.h"
#include "TPushButton.h"
#include "TUnitsNumberPad.h"

#include <QPainter>
#include <QPaintEvent>

// Where the parts of the overlay stand, and what it paints between them.

namespace
{
constexpr int TitleFontSize = 14;
constexpr int TitleMeasureSlack = 1;
// The list and its buttons stay on the screen, whatever text a module sets.
constexpr int HighestTitle = 200;
constexpr int TitleFlags = int(Qt::AlignHCenter) | int(Qt::AlignVCenter);
constexpr int TextMargin = 8;
constexpr int NarrowText = 140;
constexpr int NarrowestValueButton = 150;
constexpr int ValueButtonMargin = 11;
constexpr int SmallestBoxWidth = 250;
constexpr int ListButtonDistance = 8;
constexpr int FewestRows = 2;
constexpr int WideEnoughForUnits = 100;
// The pad's frame and shadow stand out by so much beside the buttons that it is aligned to.
constexpr int PadLeftOfButton = 10;
constexpr int PadBelowButton = 26;
constexpr int PadAboveButton = 25;
constexpr int PadRightOfPlus = 6;
constexpr int PadRightOfButton = 11;
constexpr int StackGap = 2;
// An empty mask stands for none: this one lies outside of every widget.
constexpr QRect NothingSeen(-1, -1, 1, 1);

// Of the light field's art: its frame, and the shadow within that at the top.
constexpr QMargins FieldEdges(4, 8, 4, 4);

QFont TitleFont()
{
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(TitleFontSize);
    return font;
}

int TextWidth(QString const& text, int pixelSize)
{
    QFont font(CONDENSED_BOLD_FONT);
    font.setPixelSize(pixelSize);
    return KVN::RenderUtils::GetTextWidth(text, font);
}

QSharedPointer<QPixmap> Resized(QString const& name, QSize const& size)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    return pixmaps ? pixmaps->GetResizedPixmap(name, size.width(), size.height()) : QSharedPointer<QPixmap>();
}
} // namespace

// ---- position ----

void TEditWidget::SetPosition(QWidget* source)
{
    SetPosition(source, TSourceRect(), QSize(-1, -1));
}

void TEditWidget::SetPosition(QWidget* source, TSourceRect rect)
{
    SetPosition(source, std::move(rect), QSize(-1, -1));
}

void TEditWidget::SetPosition(QWidget* source, QSize size)
{
    SetPosition(source, TSourceRect(), size);
}

void TEditWidget::SetPosition(QWidget* source, TSourceRect rect, QSize size)
{
    bool const wasVisible = isVisible();
    QPointer<TEditWidget> const self(this);
    if (wasVisible)
        Close();
    if (!self)
        return;
    m_RequestedSize = size;
    m_Overlay.SetSource(source, std::move(rect));
    if (wasVisible)
        Open();
}

void TEditWidget::SetOverridePosition(bool override)
{
    m_OverridePosition = override;
}

// By way of the screen: whoever heard of the showing may have closed the widget again.
QPoint TEditWidget::Position(QWidget* reference)
{
    return reference ? reference->mapFromGlobal(mapToGlobal(QPoint())) : QPoint();
}

void TEditWidget::PositionChanged()
{
    m_Overlay.FollowLater("SourceMovedSlot");
}

void TEditWidget::SourceMovedSlot()
{
    m_Overlay.FillParent();
    QRect const rect = m_Overlay.SourceRect();
    if (parentWidget() && (m_Overlay.GetSource() || !rect.isNull()))
        SetPositionInternal(rect.topLeft(), rect.size(), m_RequestedSize, m_Overlay.GetSource());
}

void TEditWidget::SetPositionInternal(QPoint position, QSize size, QSize requested, QWidget* source)
{
    Q_UNUSED(source)
    m_RequestedSize = requested;
    if (m_OverridePosition && m_List && isVisible())
        SetBox(BoxAroundList());
    if (m_OverridePosition || !isVisible())
        return;
    PlaceValueButton(position, size);
    if (IsListKind())
        SetListBoxPosition();
    else
        SetKeyPadPosition();
    ClipToSource();
    tscreenRefreshMMIWidgets(this);
    update();
}

void TEditWidget::PlaceValueButton(QPoint position, QSize size)
{
    m_ValueButton->setVisible(m_Item.showValueButton);
    m_ValueButton->move(position);
    m_ValueButton->setFixedSize(size.expandedTo(QSize(0, 0)));
    SetFontSizeFromString(GetStringValue());
    m_ValueButton->lower();
}

// A value must not stick out of the area in which its source is scrolled. What covers the source here is
// above the value anyway.
void TEditWidget::ClipToSource()
{
    // The source would count as covered by it.
    m_Field->hide();
    m_ClipRegion = m_Overlay.VisibleRegionOfSource();
    auto const parts = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget const* const part : parts)
    {
        if (part != m_ValueButton && part->isVisible())
            m_ClipRegion += part->geometry();
    }
    QRect const value = m_ValueButton->geometry();
    QRegion const seen = m_ClipRegion & value;
    bool const isWhole = (QRegion(value) - seen).isEmpty();
    if (isWhole)
        m_ValueButton->clearMask();
    else
        m_ValueButton->setMask(seen.isEmpty() ? NothingSeen : seen.translated(-value.topLeft()));
    ShowField(isWhole);
}

// The middle of the field is a widget that is known to be opaque: under a step of the value, nothing down to
// the screen is painted again.
void TEditWidget::ShowField(bool isWhole)
{
    m_FieldPixmap = m_ValueButton->isHidden()
                        ? QSharedPointer<QPixmap>()
                        : Resized(PixmapNames::ModalFieldSelected, m_ValueButton->size());
    QRect const middle = m_ValueButton->geometry().marginsRemoved(FieldEdges);
    bool const isShown = isWhole && m_FieldPixmap && !m_FieldPixmap->isNull() && middle.isValid();
    m_Field->setVisible(isShown);
    if (!isShown)
        return;
    m_Field->setGeometry(middle);
    m_Field->setPalette(m_FieldPixmap->toImage().pixelColor(m_FieldPixmap->rect().center()));
    m_Field->lower();
}

// ---- value ----

void TEditWidget::SetFontSizeRange(int a, int b)
{
    m_MaxFontSize = qMax(1, qMax(a, b));
    m_MinFontSize = qMax(1, qMin(a, b));
    SetFontSizeFromString(GetStringValue());
}

void TEditWidget::SetFontSizeFromString(QString const& text)
{
    int size = qMin(m_MaxFontSize, m_ValueButton->height());
    while (size > m_MinFontSize && TextWidth(text, size) + TextMargin > m_ValueButton->width())
        --size;
    m_ValueButton->SetFontSize(size, false);
}

int TEditWidget::getValueFieldButtonWidth()
{
    if (!IsListKind())
        return NarrowestValueButton;
    QFont font(STANDARD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    int const width = KVN::RenderUtils::GetTextWidth(m_ValueButton->GetText(), font);
    return width < NarrowText ? NarrowestValueButton : width + ValueButtonMargin;
}

// ---- list ----

bool TEditWidget::HasTitle() const
{
    return !m_Title.isEmpty() && IsListKind() && (m_Item.multiSelect || m_Item.showListTitle);
}

int TEditWidget::GetTitleBarHeight() const
{
    if (!HasTitle())
        return LIST_BORDER;
    int const width = m_List ? m_List->width() : 0;
    int const text = KVN::RenderUtils::GetTextHeight(m_Title, TitleFont(), width);
    return qBound(2 * LIST_BORDER, LIST_BORDER + text + TitleMeasureSlack, HighestTitle);
}

void TEditWidget::SetExtraBoxHeight(int height)
{
    m_ExtraBoxHeight = height;
}

int TEditWidget::HeightWithoutList() const
{
    return GetTitleBarHeight() + BUTTON_BLANK_AREA + (m_ListOk->height() - 1) + ListButtonDistance +
           LIST_BORDER + m_ExtraBoxHeight;
}

int TEditWidget::RequiredHeight(int rows) const
{
    return HeightWithoutList() + (m_List ? m_List->GetRequiredHeight(rows) : rows * LIST_ROW_HEIGHT);
}

int TEditWidget::RequiredWidth() const
{
    int const list = m_List ? m_List->GetRequiredWidth() : 0;
    return qMax(qMax(2 * LIST_BORDER + list, m_RequestedSize.width()), SmallestBoxWidth);
}

int TEditWidget::GetEditWidgetListHeight() const
{
    return m_List ? RequiredHeight(m_VisibleListEntries) : 0;
}

void TEditWidget::LayOutList(int width, int rows)
{
    m_List->SetListPosition(0, 0, width - 2 * LIST_BORDER, rows);
}

void TEditWidget::SetListBoxPosition()
{
    QRect const usable = m_Overlay.UsableRect();
    m_VisibleListEntries = GetNumVisibleListEntries();
    int const width = qMin(RequiredWidth(), usable.width());
    LayOutList(width, m_VisibleListEntries);
    int const height = RequiredHeight(m_VisibleListEntries);
    TBoxPlace place = PlaceForBox(usable, width, height);
    // A source beside the usable part takes nothing with it.
    int const rightmost = qMax(usable.x(), usable.right() + 1 - width);
    place.corner =
        QPoint(qBound(usable.x(), place.corner.x(), rightmost), qMax(place.corner.y(), usable.y()));
    int const over = place.corner.y() + height - place.bottomLimit;
    if (over > 0)
        place.corner.setY(qMax(place.topLimit, place.corner.y() - over));
    m_VisibleListEntries = RowsThatFit(place);
    LayOutList(width, m_VisibleListEntries);
    QRect const box(place.corner, QSize(width, RequiredHeight(m_VisibleListEntries)));
    m_List->move(box.topLeft() + QPoint(LIST_BORDER, GetTitleBarHeight()));
    if (place.overlaps && box.intersects(m_ValueButton->geometry()))
        m_ValueButton->hide();
    PlaceListButtons();
    SetBox(box);
}

// Right of the value, else left of it, else below or above.
TEditWidget::TBoxPlace TEditWidget::PlaceForBox(QRect const& usable, int width, int height) const
{
    QRect const button = m_ValueButton->geometry();
    TBoxPlace place{QPoint(button.right() + 1, button.y() - GetTitleBarHeight()), usable.top(),
                    usable.bottom() + 1};
    if (place.corner.x() + width < usable.right())
        return place;
    if (button.x() - usable.left() <= width)
        return PlaceBelowOrAbove(usable, width, height);
    place.corner.setX(button.x() - width);
    return place;
}

TEditWidget::TBoxPlace TEditWidget::PlaceBelowOrAbove(QRect const& usable, int width, int height) const
{
    QRect const button = m_ValueButton->geometry();
    int x = qMax(button.x(), usable.left());
    if (x + width > usable.right() + 1)
        x = (usable.width() - width) / 2;
    int const bottom = usable.bottom() + 1;
    TBoxPlace const below{QPoint(x, button.bottom() + 1), button.bottom() + 1, bottom};
    TBoxPlace const above{QPoint(x, usable.top()), usable.top(), button.y()};
    int const roomBelow = bottom - below.corner.y();
    int const roomAbove = button.y() - usable.top();
    if (height <= roomBelow)
        return below;
    if (height <= roomAbove)
        return above;
    if (m_VisibleListEntries > FewestRows)
    {
        int const least = RequiredHeight(FewestRows);
        if (least <= roomBelow)
            return below;
        if (least <= roomAbove)
            return above;
    }
    return {QPoint(x, qMax(bottom - height, usable.top())), usable.top(), bottom, true};
}

// Half a row too much costs two, so that the box never touches its limit.
int TEditWidget::RowsThatFit(TBoxPlace const& place) const
{
    int const rows = m_VisibleListEntries;
    int const limit = m_RequestedSize.height() >= 1 ? m_RequestedSize.height() : height();
    int const boxHeight = RequiredHeight(rows);
    int const excess = qMax(boxHeight - limit, place.corner.y() + boxHeight - place.bottomLimit);
    if (rows <= 1 || excess <= 0)
        return rows;
    int const rowPitch = m_List->GetRequiredHeight(2) - m_List->GetRequiredHeight(1);
    int const left = rows - qRound(double(excess) / rowPitch + 0.5);
    return left < FewestRows ? 0 : left;
}

void TEditWidget::PlaceListButtons()
{
    if (!m_ShowListButtons)
        return;
    QRect const list = m_List->geometry();
    int const width = list.width() / 2 + BUTTON_BLANK_AREA;
    int const x = list.x() + list.width() + BUTTON_BLANK_AREA - width;
    int const y = list.y() + list.height() + ListButtonDistance;
    for (TPushButton* const button : {m_ListOk, m_ListCancel})
        button->setFixedWidth(width);
    m_ListOk->move(x, y);
    m_ListCancel->move(x - width, y);
}

QRect TEditWidget::BoxAroundList() const
{
    int const title = GetTitleBarHeight();
    return {m_List->x() - LIST_BORDER, m_List->y() - title, m_List->width() + 2 * LIST_BORDER,
            HeightWithoutList() + m_List->height()};
}

void TEditWidget::SetBox(QRect const& box)
{
    m_Box = box;
    QSize const shadow(INPUT_WINDOW_SHADOW_SIZE, INPUT_WINDOW_SHADOW_SIZE);
    m_BoxPixmap = Resized(PixmapNames::ModalInputWindow, box.size() + shadow);
}

void TEditWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_FieldPixmap && !m_ValueButton->isHidden())
    {
        painter.setClipRegion(m_ClipRegion);
        painter.drawPixmap(m_ValueButton->pos(), *m_FieldPixmap);
    }
    if (!m_BoxPixmap || !IsListKind())
        return;
    painter.setClipRegion(event->region());
    painter.drawPixmap(m_Box.topLeft(), *m_BoxPixmap);
    PaintTitle(painter, m_Box.y());
}

void TEditWidget::PaintTitle(QPainter& painter, int boxTop)
{
    if (!HasTitle() || !m_List)
        return;
    QRect const title(m_List->x(), boxTop + LIST_TITLE_OFFSET, m_List->width(),
                      GetTitleBarHeight() - LIST_TITLE_OFFSET);
    KVN::RenderUtils::RenderText(&painter, title, TitleFlags, QTextOption::WrapAtWordBoundaryOrAnywhere,
                                 m_Title, TitleFontSize, QColor(QStringLiteral("White")), true, false,
                                 STANDARD_BOLD_FONT);
}

// ---- pad and floating buttons ----

void TEditWidget::SetKeyPadPosition()
{
    QRect const usable = m_Overlay.UsableRect();
    m_IsPadInline = false;
    if (m_Pad)
        m_Pad->SetInlineOptions(false, false);
    UpdateFloatingIncDecButtons();
    ShowFloatingOkCancel();
    PlaceFloatingButtons(usable);
    PlaceUnitsButton();
    if (!IsPadInUse())
        return;
    PositionNumberPad();
    if (UseInlineNumberPad(this) || !DoFloatingPartsFit(usable))
        MakePadInline();
}

bool TEditWidget::UseInlineNumberPad(QWidget* widget) const
{
    auto* const window = dynamic_cast<ITopLevelWindow*>(widget->window());
    return m_Item.inlineNumberPad || (window && window->IsExternal());
}

int TEditWidget::RowsOfStack() const
{
    return IsPadInUse() ? 1 : 2;
}

// Minus, and plus at its right; below them, where no pad has its own, cancel and OK.
void TEditWidget::PlaceFloatingButtons(QRect const& usable)
{
    if (!FloatingIncDecBtnsAvail())
        return;
    QRect const value = m_ValueButton->geometry();
    QSize const button = m_Plus->size();
    int const right = usable.right() + 1 - 2 * button.width();
    int x = value.right() + 1;
    if (x > right)
        x = value.x() - 2 * button.width();
    // A value as wide as the screen leaves no room at either side: the buttons cover its end.
    if (x < usable.left())
        x = right;
    int y = value.y() + (value.height() - button.height()) / 2;
    y -= qMax(0, y + RowsOfStack() * button.height() - (usable.bottom() + 1));
    MoveStack(QPoint(x, y));
}

void TEditWidget::MoveStack(QPoint minusCorner)
{
    QPoint const right(m_Plus->width(), 0);
    QPoint const down(0, m_Plus->height());
    m_Minus->move(minusCorner);
    m_Plus->move(minusCorner + right);
    m_FloatingCancel->move(minusCorner + down);
    m_FloatingOk->move(minusCorner + right + down);
}

void TEditWidget::PlaceUnitsButton()
{
    TPushButton* const units = IsPadInUse() ? m_Pad->GetUnitsButton() : nullptr;
    if (!units || !m_Item.unitsSelector.IsValid())
        return;
    QRect value = m_ValueButton->geometry();
    if (value.width() - units->width() >= WideEnoughForUnits)
    {
        m_ValueButton->setFixedWidth(value.width() - units->width());
        SetFontSizeFromString(GetStringValue());
        value = m_ValueButton->geometry();
    }
    units->move(value.right() + 1, value.y() + (value.height() - units->height()) / 2);
    units->raise();
    bool const isStackRight = FloatingIncDecBtnsAvail() && m_Minus->x() > value.x();
    if (!isStackRight || m_Minus->x() > units->geometry().right())
        return;
    MoveStack(QPoint(units->geometry().right() + 1, m_Minus->y()));
}

void TEditWidget::PositionNumberPad()
{
    QRect const usable = m_Overlay.UsableRect();
    QRect const value = m_ValueButton->geometry();
    bool const hasStack = FloatingIncDecBtnsAvail();
    int const width = m_Pad->width();
    int const height = m_Pad->height() - INPUT_WINDOW_SHADOW_SIZE;
    int x = hasStack ? m_Plus->geometry().right() + PadRightOfPlus - width + 1 : value.x() - PadLeftOfButton;
    int y = value.bottom() + PadBelowButton;
    if (x + width > usable.width())
        x = usable.width() - width - PadLeftOfButton;
    if (y + height > usable.height())
        y = value.y() - height - PadAboveButton;
    if (y < 0)
    {
        int const stack = hasStack ? 2 * m_Plus->width() : 0;
        bool const isRightHalf = value.center().x() > usable.center().x();
        x = isRightHalf ? value.x() - width - PadLeftOfButton - (stack + StackGap)
                        : value.right() + PadRightOfButton + stack;
        y = (usable.height() - height) / 2;
        if (isRightHalf && hasStack)
            MoveStack(QPoint(value.x() - stack, m_Minus->y()));
    }
    m_Pad->move(x, y);
}

bool TEditWidget::DoFloatingPartsFit(QRect const& usable) const
{
    QRect parts = m_Pad->geometry();
    if (FloatingIncDecBtnsAvail())
        parts |= m_Minus->geometry() | m_Plus->geometry();
    int const frame = INPUT_WINDOW_SHADOW_SIZE + INPUT_WINDOW_MARGIN;
    return usable.contains(parts.adjusted(frame, frame, -frame, -frame));
}

void TEditWidget::MakePadInline()
{
    m_IsPadInline = true;
    UpdateFloatingIncDecButtons();
    ShowFloatingOkCancel();
    m_Pad->SetInlineOptions(true, m_Item.floatingButtons);
    // Where it comes to lie over the button of the units, its keys go first.
    m_Pad->raise();
    m_Pad->move((width() - m_Pad->width()) / 2, (height() - m_Pad->height()) / 2);
}
