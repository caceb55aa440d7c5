#include "TTablePanel.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QPainter>
#include <QPaintEvent>

namespace
{
constexpr int Margin = 8;
constexpr int MarkWidth = 6;
constexpr int Gap = 8;
} // namespace

TTablePanel::TTablePanel(QWidget* parent, int rowHeight, int textSize, int nameShare)
    : QWidget(parent)
    , m_RowHeight(rowHeight)
    , m_TextSize(textSize)
    , m_NameShare(nameShare)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TTablePanel::SetRows(QVector<TTableRow> const& rows)
{
    int const count = qMax(rows.size(), m_Rows.size());
    for (int row = 0; row < count; ++row)
    {
        if (row >= rows.size() || row >= m_Rows.size() || rows[row] != m_Rows[row])
            update(RowRect(row));
    }
    m_Rows = rows;
}

QRect TTablePanel::RowRect(int row) const
{
    return {0, row * m_RowHeight, width(), m_RowHeight};
}

void TTablePanel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), ConsoleText::SurfaceColor());
    for (int row = 0; row < m_Rows.size(); ++row)
    {
        if (RowRect(row).bottom() < height() && RowRect(row).intersects(event->rect()))
            PaintRow(&painter, row);
    }
}

void TTablePanel::PaintRow(QPainter* painter, int row) const
{
    QRect const area = RowRect(row);
    TTableRow const& content = m_Rows[row];
    painter->fillRect(QRect(area.left(), area.bottom(), area.width(), 1), ConsoleText::DarkEdgeColor());
    if (content.mark.isValid())
        painter->fillRect(QRect(area.left(), area.top() + 2, MarkWidth, area.height() - 5), content.mark);
    QRect const inner = area.adjusted(Margin + MarkWidth / 2, 0, -Margin, -1);
    int const nameWidth = content.value.isEmpty() ? inner.width() : inner.width() * m_NameShare / 100;
    ConsoleText::Draw(painter, QRect(inner.left(), inner.top(), nameWidth, inner.height()),
                      Qt::AlignLeft | Qt::AlignVCenter, content.name, m_TextSize,
                      ConsoleText::CaptionColor());
    ConsoleText::Draw(painter, inner.adjusted(nameWidth + Gap, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter,
                      content.value, m_TextSize, regularTextColor);
}
