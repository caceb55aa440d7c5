#include "TListWidgetItemDelegate.h"

#include "MainScreen.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace
{
// At either side of the icon, and of the text.
constexpr int Margin = 3;

QColor TextColour(QStyleOptionViewItem const& option, QModelIndex const& index)
{
    if (option.state & QStyle::State_Selected)
        return option.palette.color(QPalette::HighlightedText);
    QVariant const foreground = index.data(Qt::ForegroundRole);
    return foreground.isValid() ? qvariant_cast<QBrush>(foreground).color()
                                : option.palette.color(QPalette::Text);
}

QFont Font(QStyleOptionViewItem const& option, QModelIndex const& index)
{
    QVariant const own = index.data(Qt::FontRole);
    return own.isValid() ? qvariant_cast<QFont>(own) : option.font;
}

QRect Mirrored(QStyleOptionViewItem const& option, QRect const& rect)
{
    return QStyle::visualRect(option.direction, option.rect, rect);
}

void PaintIcon(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index)
{
    auto const icon = qvariant_cast<QIcon>(index.data(Qt::DecorationRole));
    QSize const size = icon.actualSize(option.decorationSize);
    if (size.width() <= 1)
        return;
    QRect const column(option.rect.left() + Margin, option.rect.top(), option.decorationSize.width(),
                       option.rect.height());
    QRect place(QPoint(), size);
    place.moveCenter(Mirrored(option, column).center());
    icon.paint(painter, place);
}
} // namespace

TListWidgetItemDelegate::TListWidgetItemDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

TListWidgetItemDelegate::~TListWidgetItemDelegate() = default;

int TListWidgetItemDelegate::GetWidthBesideText(int iconWidth)
{
    return iconWidth + 4 * Margin;
}

void TListWidgetItemDelegate::paint(QPainter* painter, QStyleOptionViewItem const& option,
                                    QModelIndex const& index) const
{
    PaintSkin(painter, option);
    PaintIcon(painter, option, index);
    PaintText(painter, option, index, option.decorationSize.width());
}

// All rows have the same size as a rule, so that each skin is fetched once for many of them.
void TListWidgetItemDelegate::PaintSkin(QPainter* painter, QStyleOptionViewItem const& option) const
{
    bool const isSelected = option.state & QStyle::State_Selected;
    TSkin& skin = isSelected ? m_Selected : m_Normal;
    QSize const size = option.rect.size();
    if (!skin.pixmap || skin.size != size)
    {
        KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
        if (!pixmaps)
            return;
        QString const& name = isSelected ? PixmapNames::ListInteractiveEntrySelected : PixmapNames::ListItem;
        skin = {size, pixmaps->GetResizedPixmap(name, size.width(), size.height())};
    }
    painter->drawPixmap(option.rect.topLeft(), *skin.pixmap);
}

// A painter completes the font that it is given, so that it never has the same one and each row would make
// another.
void TListWidgetItemDelegate::SetFont(QPainter* painter, QFont const& font) const
{
    if (font == m_Font && painter->font() == m_PaintersFont)
        return;
    painter->setFont(font);
    m_Font = font;
    m_PaintersFont = painter->font();
}

// The base would lay the text out anew each time.
void TListWidgetItemDelegate::PaintText(QPainter* painter, QStyleOptionViewItem const& option,
                                        QModelIndex const& index, int iconWidth) const
{
    QRect const beside = option.rect.adjusted(iconWidth + 3 * Margin, 0, -Margin, 0);
    QFont const font = Font(option, index);
    int const size = font.pixelSize() > 0 ? font.pixelSize() : QFontInfo(font).pixelSize();
    int const alignment =
        int(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) | int(Qt::AlignVCenter);
    SetFont(painter, font);
    KVN::RenderUtils::RenderTextInsideRect(painter, Mirrored(option, beside), alignment,
                                           index.data(Qt::DisplayRole).toString(), size, size,
                                           TextColour(option, index), false, false, true, true, false);
}

QSize TListWidgetItemDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    QVariant const height = index.data(RowHeightRole);
    return {0, height.isValid() ? height.toInt() : QStyledItemDelegate::sizeHint(option, index).height()};
}
