#include "TSignalBars.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TSignalColor.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr int Margin = 8;
constexpr int Gap = 4;
constexpr int NumberHeight = 20;
constexpr int NumberSize = 14;
constexpr int WidestBar = 64;
constexpr int StrongestSignal = 55; // dB-Hz, at the top
constexpr int NoSignalHeight = 3;

bool IsSame(TSatellite const& a, TSatellite const& b)
{
    return a.id == b.id && a.strength == b.strength;
}
} // namespace

TSignalBars::TSignalBars(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TSignalBars::SetSatellites(QVector<TSatellite> const& satellites)
{
    if (std::equal(satellites.begin(), satellites.end(), m_Satellites.begin(), m_Satellites.end(), IsSame))
        return;
    m_Satellites = satellites;
    update();
}

void TSignalBars::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    QRect const room = rect().adjusted(Margin, Margin, -Margin, -Margin);
    int const count = qMax(1, m_Satellites.size());
    int const step = qMin(WidestBar + Gap, room.width() / count);
    int const tallest = room.height() - NumberHeight;
    for (int i = 0; i < m_Satellites.size(); ++i)
    {
        TSatellite const& satellite = m_Satellites[i];
        int const strength = qBound(0, satellite.strength, StrongestSignal);
        int const height = qMax(NoSignalHeight, tallest * strength / StrongestSignal);
        int const x = room.left() + i * step;
        painter.fillRect(x, room.top() + tallest - height, step - Gap, height,
                         SignalColor(satellite.strength));
        QRect const number(x, room.bottom() + 1 - NumberHeight, step - Gap, NumberHeight);
        ConsoleText::Draw(&painter, number, Qt::AlignCenter, QString::number(satellite.id), NumberSize,
                          regularTextColor);
    }
}
