#include "TCameraPicture.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TCameraOverlay.h"
#include "TMachine.h"

#include <QPainter>
#include <QtMath>

#include <cmath>

namespace
{
constexpr double HorizonShare = 0.38;
constexpr int RowCount = 9;
// Widths of a row and of a step between rows at the lower edge, for each pixel of the picture's width.
constexpr double RowWidth = 0.07;
constexpr double RowStep = 0.19;
constexpr double RowWidthAtHorizon = 0.12;

// Bands across the ground show the movement: so many metres from one to the next, seen from so high.
constexpr double BandDistance = 4.0;
constexpr double CameraHeight = 2.6;
constexpr double NearestBand = 3.0;
constexpr double FarthestBand = 70.0;
constexpr double LongestStep = 25.0;

constexpr int LargestBrightness = 4;
constexpr int BrightnessAlpha = 28;
constexpr int MessageSize = 18;

QColor const SkyTop(96, 140, 190);
QColor const SkyBottom(198, 214, 226);
QColor const GroundTop(118, 104, 74);
QColor const GroundBottom(82, 66, 44);
QColor const CropColor(64, 118, 52);
QColor const BandColor(40, 30, 20, 70);
} // namespace

TCameraPicture::TCameraPicture(QWidget* parent, TMachine const& machine, TCameraOverlay const& overlay)
    : QWidget(parent)
    , m_Machine(machine)
    , m_Overlay(overlay)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&overlay, &TCameraOverlay::Changed, this, [this] { update(); });
}

void TCameraPicture::Sync()
{
    QPointF const step = m_Machine.Position() - m_LastPosition;
    m_LastPosition = m_Machine.Position();
    double const distance = std::hypot(step.x(), step.y());
    if (distance <= 0.0)
        return;
    // A machine that was found anew has not driven there.
    if (distance < LongestStep)
        m_Travelled = std::fmod(m_Travelled + distance, BandDistance);
    if (!m_Overlay.IsAside())
        update();
}

void TCameraPicture::SetBrightness(int brightness)
{
    int const held = qBound(-LargestBrightness, brightness, LargestBrightness);
    if (held == m_Brightness)
        return;
    m_Brightness = held;
    update();
}

int TCameraPicture::Horizon() const
{
    return int(height() * HorizonShare);
}

void TCameraPicture::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    MakeBackdrop();
}

// What stands still: sky, ground and the rows.
void TCameraPicture::MakeBackdrop()
{
    m_Backdrop = QPixmap(size());
    QPainter painter(&m_Backdrop);
    QLinearGradient sky(0, 0, 0, Horizon());
    sky.setColorAt(0.0, SkyTop);
    sky.setColorAt(1.0, SkyBottom);
    painter.fillRect(0, 0, width(), Horizon(), sky);
    QLinearGradient ground(0, Horizon(), 0, height());
    ground.setColorAt(0.0, GroundTop);
    ground.setColorAt(1.0, GroundBottom);
    painter.fillRect(0, Horizon(), width(), height() - Horizon(), ground);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintRows(&painter);
}

void TCameraPicture::PaintRows(QPainter* painter) const
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(CropColor);
    double const middle = width() / 2.0;
    double const half = width() * RowWidth / 2.0;
    for (int row = -RowCount / 2; row <= RowCount / 2; ++row)
    {
        double const foot = middle + row * width() * RowStep;
        double const head = middle + row * width() * RowStep * RowWidthAtHorizon;
        double const halfHead = half * RowWidthAtHorizon;
        painter->drawPolygon(QVector<QPointF>{{head - halfHead, double(Horizon())},
                                              {head + halfHead, double(Horizon())},
                                              {foot + half, double(height())},
                                              {foot - half, double(height())}});
    }
}

void TCameraPicture::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    if (m_Overlay.IsAside())
    {
        ConsoleText::DrawSurface(&painter, rect());
        ConsoleText::Draw(&painter, rect(), Qt::AlignCenter, tr("The picture stands aside"), MessageSize,
                          ConsoleText::CaptionColor());
        return;
    }
    painter.drawPixmap(0, 0, m_Backdrop);
    PaintBands(&painter);
    PaintBrightness(&painter);
}

// The camera looks back: bands come from below and run away to the horizon.
void TCameraPicture::PaintBands(QPainter* painter) const
{
    int const ground = height() - Horizon();
    for (double distance = NearestBand + m_Travelled; distance < FarthestBand; distance += BandDistance)
    {
        auto const depth = [ground](double metres) { return qRound(ground * CameraHeight / metres); };
        int const top = depth(distance + BandDistance / 4.0);
        int const bottom = depth(distance);
        painter->fillRect(0, Horizon() + top, width(), bottom - top, BandColor);
    }
}

void TCameraPicture::PaintBrightness(QPainter* painter) const
{
    if (m_Brightness == 0)
        return;
    QColor veil = m_Brightness > 0 ? Qt::white : Qt::black;
    veil.setAlpha(qAbs(m_Brightness) * BrightnessAlpha);
    painter->fillRect(rect(), veil);
}
