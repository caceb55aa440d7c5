#include "TValueField.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TQuantity.h"

#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int CaptionHeight = 20;
constexpr int CaptionSize = 14;
constexpr int UnitWidth = 44;
constexpr int WidestUnit = 52; // shrunk a little to stand behind the value
constexpr int UnitSize = 16;
constexpr int ValueSize = 32;
} // namespace

TValueField::TValueField(QWidget* parent, QString const& caption)
    : QWidget(parent)
    , m_Caption(caption)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TValueField::SetValue(TQuantity const& quantity, double value)
{
    SetText(quantity.Parts(value));
}

void TValueField::SetUnknown(TQuantity const& quantity)
{
    SetText({QStringLiteral("–"), quantity.Unit()});
}

void TValueField::SetText(TUnits::TValueAndUnit const& text)
{
    if (text.value == m_Text.value && text.unit == m_Text.unit)
        return;
    if (text.unit != m_Text.unit)
        m_IsUnitAbove = ConsoleText::Width(text.unit, font(), UnitSize) > WidestUnit;
    m_Text = text;
    update();
}

void TValueField::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    QRect const inner = rect().adjusted(Margin, 2, -Margin, -2);
    QRect const above(inner.left(), inner.top(), inner.width(), CaptionHeight);
    ConsoleText::Draw(&painter, above, Qt::AlignLeft | Qt::AlignVCenter, m_Caption, CaptionSize,
                      ConsoleText::CaptionColor());
    QRect const line = inner.adjusted(0, CaptionHeight, 0, 0);
    bool const isUnitBehind = !m_Text.unit.isEmpty() && !m_IsUnitAbove;
    int const unitWidth = isUnitBehind ? UnitWidth : 0;
    ConsoleText::Draw(&painter, line.adjusted(0, 0, -unitWidth - Margin / 2, 0),
                      Qt::AlignRight | Qt::AlignVCenter, m_Text.value, ValueSize, regularTextColor);
    if (isUnitBehind)
        ConsoleText::Draw(&painter, line.adjusted(line.width() - unitWidth, 0, 0, 0),
                          Qt::AlignLeft | Qt::AlignVCenter, m_Text.unit, UnitSize,
                          ConsoleText::CaptionColor());
    else
        ConsoleText::Draw(&painter, above.adjusted(0, 0, -Margin / 2, 0), Qt::AlignRight | Qt::AlignVCenter,
                          m_Text.unit, CaptionSize, ConsoleText::CaptionColor());
}
