#include "TSetupRow.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QPainter>

namespace
{
constexpr int Margin = 12;
constexpr int CaptionWidth = 220;
constexpr int FieldGap = 6;
} // namespace

TSetupRow::TSetupRow(QWidget* parent, QString const& caption)
    : QWidget(parent)
    , m_Caption(caption)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TSetupRow::AddField(QWidget* field)
{
    m_Fields.append(field);
}

void TSetupRow::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    ConsoleText::Draw(&painter, QRect(Margin, 0, CaptionWidth, height()), Qt::AlignLeft | Qt::AlignVCenter,
                      m_Caption, TextSize, regularTextColor);
}

QRect TSetupRow::FieldRoom() const
{
    return rect().adjusted(2 * Margin + CaptionWidth, Margin, -Margin, -Margin);
}

// By the fixed size: buttons for values insist on theirs.
void TSetupRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    QRect const room = FieldRoom();
    int const step = (room.width() + FieldGap) / qMax(1, m_Fields.size());
    for (int i = 0; i < m_Fields.size(); ++i)
    {
        m_Fields[i]->setFixedSize(qMax(0, step - FieldGap), qMax(0, room.height()));
        m_Fields[i]->move(room.left() + i * step, room.top());
    }
}
