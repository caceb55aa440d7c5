#include "TValueField.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int CaptionHeight = 20;
constexpr int CaptionSize = 14;
constexpr int UnitWidth = 44;
constexpr int UnitSize = 16;
constexpr int ValueSize = 32;
} // namespace

TValueField::TValueField(QWidget* parent, QString const& caption, QString const& unit)
    : QWidget(parent)
    , m_Caption(caption)
    , m_Unit(unit)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TValueField::SetValue(QString const& value)
{
    if (value == m_Value)
        return;
    m_Value = value;
    update();
}

void TValueField::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    QRect const inner = rect().adjusted(Margin, 2, -Margin, -2);
    ConsoleText::Draw(&painter, QRect(inner.left(), inner.top(), inner.width(), CaptionHeight),
                      Qt::AlignLeft | Qt::AlignVCenter, m_Caption, CaptionSize, ConsoleText::CaptionColor());
    QRect const line = inner.adjusted(0, CaptionHeight, 0, 0);
    int const unitWidth = m_Unit.isEmpty() ? 0 : UnitWidth;
    ConsoleText::Draw(&painter, line.adjusted(0, 0, -unitWidth - Margin / 2, 0),
                      Qt::AlignRight | Qt::AlignVCenter, m_Value, ValueSize, regularTextColor);
    ConsoleText::Draw(&painter, line.adjusted(line.width() - unitWidth, 0, 0, 0),
                      Qt::AlignLeft | Qt::AlignVCenter, m_Unit, UnitSize, ConsoleText::CaptionColor());
}
