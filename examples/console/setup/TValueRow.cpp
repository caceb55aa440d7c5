#include "TValueRow.h"

#include "ConsoleText.h"
#include "Palette.h"

#include <QPainter>

TValueRow::TValueRow(QWidget* parent, QString const& caption)
    : TSetupRow(parent, caption)
{
}

void TValueRow::SetText(QString const& text)
{
    if (text == m_Text)
        return;
    m_Text = text;
    update();
}

void TValueRow::paintEvent(QPaintEvent* event)
{
    TSetupRow::paintEvent(event);
    QPainter painter(this);
    ConsoleText::Draw(&painter, FieldRoom(), Qt::AlignCenter, m_Text, TextSize, regularTextColor);
}
