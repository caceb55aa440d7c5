#pragma once

#include "CommonUILibExport.h"

#include <QFont>
#include <QPixmap>
#include <QSharedPointer>
#include <QStyledItemDelegate>

/// Paints the rows of a TListWidget: the skin of the row's state, the icon and the text in a single line,
/// with an ellipsis where it does not fit in. Text and icon keep to the reading direction of the list. GUI
/// thread only.
class COMMONUILIB_EXPORT TListWidgetItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Under this role a row tells its height in pixels. Its hint tells the width too, for which the text has
    /// to be measured.
    static constexpr int RowHeightRole = 0x7ffffff0;

    explicit TListWidgetItemDelegate(QObject* parent = nullptr);
    ~TListWidgetItemDelegate() override;

    /// Pixels of a row that do not go to its text, where its icons are \a iconWidth wide.
    static int GetWidthBesideText(int iconWidth);

    void paint(QPainter* painter, QStyleOptionViewItem const& option,
               QModelIndex const& index) const override;
    /// As high as the row; the list makes every row as wide as itself.
    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;

private:
    struct TSkin
    {
        QSize size;
        QSharedPointer<QPixmap> pixmap;
    };

    void SetFont(QPainter* painter, QFont const& font) const;
    void PaintSkin(QPainter* painter, QStyleOptionViewItem const& option) const;
    void PaintText(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index,
                   int iconWidth) const;

    mutable TSkin m_Normal;
    mutable TSkin m_Selected;
    mutable QFont m_Font;
    mutable QFont m_PaintersFont;
};
