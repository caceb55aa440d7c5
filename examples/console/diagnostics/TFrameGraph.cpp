#include "TFrameGraph.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TFrameMeter.h"

#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int CaptionHeight = 24;
constexpr int CaptionSize = 16;
constexpr double FullScale = 24.0; // ms
constexpr double FrameTime = 20.0; // ms
QColor const BarColor(70, 150, 90);
QColor const LateColor(220, 70, 60);
} // namespace

TFrameGraph::TFrameGraph(QWidget* parent, TFrameMeter const& meter)
    : QWidget(parent)
    , m_Meter(meter)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TFrameGraph::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    QRect const room = rect().adjusted(Margin, Margin + CaptionHeight, -Margin, -Margin);
    ConsoleText::Draw(
        &painter, QRect(Margin, 2, width() - 2 * Margin, CaptionHeight), Qt::AlignLeft | Qt::AlignVCenter,
        tr("Painting of the last %1 frames; the line is at %2 ms").arg(TFrameMeter::MaxFrames).arg(FrameTime),
        CaptionSize, ConsoleText::CaptionColor());
    double const step = double(room.width()) / TFrameMeter::MaxFrames;
    QVector<double> const& frames = m_Meter.Frames();
    for (int i = 0; i < frames.size(); ++i)
    {
        int const height = qBound(1, qRound(frames[i] / FullScale * room.height()), room.height());
        int const left = room.left() + int(i * step);
        int const right = room.left() + int((i + 1) * step);
        painter.fillRect(left, room.bottom() + 1 - height, qMax(1, right - left - 1), height,
                         frames[i] > FrameTime ? LateColor : BarColor);
    }
    int const line = room.bottom() - qRound(FrameTime / FullScale * room.height());
    painter.fillRect(room.left(), line, room.width(), 1, regularTextColor);
}
