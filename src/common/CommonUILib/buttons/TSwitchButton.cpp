#include "TSwitchButton.h"

#include "Fonts.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QPainter>

namespace
{
constexpr int NumberSize = 24;
constexpr QColor NumberColour(160, 160, 160);
// From the edge of the button to the sunken field, and from there to what stands in it.
constexpr int FieldMargin = 6;
constexpr int FieldPadding = 2;
} // namespace

QPixmap* TSwitchButton::m_greenLED = nullptr;
QPixmap* TSwitchButton::m_redLED = nullptr;

TSwitchButton::TSwitchButton(QWidget* parent, int id)
    : TPushButton(parent, QString(), PixmapNames::NewStandardButton, PixmapNames::NewStandardButtonSelected,
                  id, QString())
    , m_NumberFont(STANDARD_BOLD_FONT)
{
    m_NumberFont.setPixelSize(NumberSize);
    if (m_greenLED)
        return;
    m_greenLED = new QPixmap(QStringLiteral(":/Images/Resources/GreenLED.png"));
    m_redLED = new QPixmap(QStringLiteral(":/Images/Resources/RedLED.png"));
}

void TSwitchButton::SetSwitchNumber(int number)
{
    if (number == m_SwitchNumber)
        return;
    m_SwitchNumber = number;
    update();
}

void TSwitchButton::SetSwitchState(bool on)
{
    if (on == m_SwitchState)
        return;
    m_SwitchState = on;
    update();
}

void TSwitchButton::SetCentredLED(bool centred)
{
    if (centred == m_CentredLED)
        return;
    m_CentredLED = centred;
    update();
}

QRect TSwitchButton::Field() const
{
    return rect().adjusted(FieldMargin, FieldMargin, -FieldMargin, -FieldMargin);
}

QRect TSwitchButton::LightPlace() const
{
    QRect const room = Field().adjusted(FieldPadding, FieldPadding, -FieldPadding, -FieldPadding);
    QRect place(QPoint(), m_greenLED->size());
    place.moveCenter(room.center());
    if (m_CentredLED)
        place.moveTop(room.top());
    else
        place.moveLeft(room.left());
    return place;
}

QRect TSwitchButton::NumberPlace() const
{
    QRect place = Field().adjusted(FieldPadding, FieldPadding, -FieldPadding, -FieldPadding);
    if (m_CentredLED)
        place.setTop(LightPlace().bottom() + 1);
    else
        place.setLeft(LightPlace().right() + 1);
    return place;
}

void TSwitchButton::paintEvent(QPaintEvent* event)
{
    TPushButton::paintEvent(event);
    QPainter painter(this);
    KVN::RenderUtils::RenderSunkenFrame(&painter, Field(), sunkenFrameFillColor, sunkenFrameHighlightColor,
                                        sunkenFrameShadowColor);
    painter.drawPixmap(LightPlace().topLeft(), m_SwitchState ? *m_greenLED : *m_redLED);
    KVN::RenderUtils::RenderElidedTextInsideRect(&painter, m_NumberFont, NumberPlace(),
                                                 QString::number(m_SwitchNumber), NumberSize,
                                                 MINIMUM_FONT_SIZE, NumberColour, false, false, true);
    // Above the field.
    RenderToolTipMark(painter);
}
