#include "TTankGauge.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TMachine.h"
#include "TQuantity.h"
#include "TUnitSettings.h"

#include <QPainter>

namespace
{
constexpr int Frame = 3;
constexpr int TextSize = 22;

QColor const EmptyColor(20, 22, 25);
QColor const FullColor(16, 92, 148);
QColor const LowColor(150, 52, 36);
} // namespace

TTankGauge::TTankGauge(QWidget* parent, TMachine const& machine, Qt::Orientation orientation)
    : QWidget(parent)
    , m_Machine(machine)
    , m_Orientation(orientation)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&machine, &TMachine::SwitchesChanged, this, &TTankGauge::Sync);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TTankGauge::Sync);
}

void TTankGauge::Sync()
{
    QString const text = Quantities::Tank.Text(m_Machine.TankLitres());
    QRect const fluid = FluidRect();
    if (text == m_Text && fluid == m_Fluid)
        return;
    m_Text = text;
    m_Fluid = fluid;
    update();
}

QRect TTankGauge::FluidRect() const
{
    QRect const room = rect().adjusted(Frame, Frame, -Frame, -Frame);
    double const share = m_Machine.TankLitres() / m_Machine.TankSize();
    if (m_Orientation == Qt::Horizontal)
        return {room.left(), room.top(), qRound(room.width() * share), room.height()};
    int const height = qRound(room.height() * share);
    return {room.left(), room.bottom() + 1 - height, room.width(), height};
}

void TTankGauge::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    painter.fillRect(rect().adjusted(Frame, Frame, -Frame, -Frame), EmptyColor);
    painter.fillRect(FluidRect(), m_Machine.IsTankLow() ? LowColor : FullColor);
    ConsoleText::Draw(&painter, rect(), Qt::AlignCenter, m_Text, TextSize, regularTextColor);
}
