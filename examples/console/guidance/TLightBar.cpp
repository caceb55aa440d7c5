#include "TLightBar.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TQuantity.h"
#include "TUnitSettings.h"

#include <QPainter>

namespace
{
constexpr double CentimetresPerMetre = 100.0;
constexpr int NumberWidth = 106;
constexpr int NumberSize = 26;
constexpr int Gap = 3;
constexpr int Margin = 6;

QColor const DarkLight(58, 62, 68);

QColor LightColor(int distance)
{
    if (distance <= LightBarScale::GreenLights)
        return {90, 220, 100};
    return distance <= LightBarScale::YellowLights ? QColor(245, 205, 60) : QColor(240, 70, 60);
}
} // namespace

TLightBar::TLightBar(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, [this] { update(); });
}

void TLightBar::SetOffset(double metres, bool isKnown)
{
    int const centimetres = isKnown ? qRound(metres * CentimetresPerMetre) : 0;
    if (centimetres == m_Centimetres && isKnown == m_IsKnown)
        return;
    m_Centimetres = centimetres;
    m_IsKnown = isKnown;
    update();
}

void TLightBar::SetStep(int step)
{
    int const centimetres = LightBarScale::Centimetres(step);
    if (centimetres == m_CentimetresPerLight)
        return;
    m_CentimetresPerLight = centimetres;
    update();
}

QString TLightBar::Text() const
{
    return m_IsKnown ? Quantities::Offset.Text(qAbs(m_Centimetres) / CentimetresPerMetre)
                     : QStringLiteral("–");
}

void TLightBar::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    QRect const number((width() - NumberWidth) / 2, 0, NumberWidth, height());
    ConsoleText::Draw(&painter, number, Qt::AlignCenter, Text(), NumberSize, regularTextColor);

    int const lightWidth = (number.left() - Margin) / LightBarScale::LightsPerSide;
    int const lit = LightBarScale::LitLights(m_Centimetres, m_CentimetresPerLight);
    for (int light = 1; light <= LightBarScale::LightsPerSide; ++light)
    {
        bool const isLit = light <= lit;
        QRect const left(number.left() - light * lightWidth, Margin, lightWidth - Gap, height() - 2 * Margin);
        QRect const right(number.right() + 1 + (light - 1) * lightWidth + Gap, left.top(), left.width(),
                          left.height());
        painter.fillRect(left, isLit && m_Centimetres < 0 ? LightColor(light) : DarkLight);
        painter.fillRect(right, isLit && m_Centimetres > 0 ? LightColor(light) : DarkLight);
    }
}
