#include "TToolTip.h"

#include "Fonts.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace
{
constexpr int LetterSize = 24;
constexpr int StandardSize = 16;
// A text of fewer characters is a letter.
constexpr int ShortestText = 2;

constexpr int TextFlags = Qt::AlignCenter;
constexpr int MeasureFlags = Qt::AlignCenter | Qt::TextWordWrap;
// More characters than fit on the screen; measuring what lies behind them tells nothing.
constexpr int LongestMeasured = 16384;

constexpr int TallestIcon = 100;
// Icons are drawn for dark buttons; their white would be lost on the light frame.
constexpr QRgb IconPlate = qRgb(38, 41, 46);
constexpr qreal IconPlateRadius = 4.0;
constexpr int IconLeft = 5;
constexpr int IconFrameHeight = 15;
constexpr int ParentMargin = 3;
constexpr int Margin = 10;
constexpr int TextFrameHeight = 14;
constexpr int MediumWeight = 50;
} // namespace

TToolTip::TToolTip(QWidget* parent)
    : QWidget(parent)
    , m_Font(STANDARD_FONT)
{
    m_Font.setPixelSize(StandardSize);
}

TToolTip::~TToolTip() = default;

void TToolTip::SetText(QString const& text)
{
    if (text == m_Text)
        return;
    m_Text = text;
    m_Font.setPixelSize(text.size() < ShortestText ? LetterSize : StandardSize);
    update();
}

QString TToolTip::GetText() const
{
    return m_Text;
}

void TToolTip::SetPosition(QPoint const& position)
{
    move(position);
}

void TToolTip::SetToolIcon(QSharedPointer<QPixmap> icon)
{
    m_Icon = std::move(icon);
    update();
}

bool TToolTip::ShowsIcon() const
{
    return m_Icon && !m_Icon->isNull() && m_Icon->height() <= TallestIcon;
}

int TToolTip::TextLeft() const
{
    return ShowsIcon() ? m_Icon->width() + IconLeft : 0;
}

void TToolTip::RefreshGeometry()
{
    QSize const parent = parentWidget() ? parentWidget()->size() : QSize(SCREEN_WIDTH, SCREEN_HEIGHT);
    QSize const room = (parent - QSize(ParentMargin, ParentMargin)).expandedTo(QSize(0, 0));
    // A margin is free at either side of the text, one of them by the inset that it is drawn with.
    QSize const frame(TextLeft() + 2 * Margin, TextFrameHeight);
    QSize needed = MeasuredText((room - frame).expandedTo(QSize(1, 1))) + frame;
    if (ShowsIcon())
        needed.setHeight(qMax(needed.height(), m_Icon->height() + IconFrameHeight));
    resize(needed.boundedTo(room));
}

// A word that is wider than the room is broken when it is drawn, which the font's metrics know nothing of.
QSize TToolTip::MeasuredText(QSize const& room) const
{
    QString const text = m_Text.left(LongestMeasured);
    QSize const size = QFontMetrics(m_Font).boundingRect(QRect(QPoint(), room), MeasureFlags, text).size();
    if (size.width() <= room.width())
        return size;
    return {room.width(), KVN::RenderUtils::GetTextHeight(text, m_Font, room.width())};
}

void TToolTip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_Background)
        painter.drawPixmap(0, 0, *m_Background);
    if (ShowsIcon())
        PaintIcon(painter);
    KVN::RenderUtils::RenderText(&painter, rect().adjusted(TextLeft(), 0, -Margin, -Margin), TextFlags,
                                 QTextOption::WrapAtWordBoundaryOrAnywhere, m_Text, m_Font.pixelSize(),
                                 ToolTipTextColor, m_Font.weight() > MediumWeight, false, m_Font);
}

void TToolTip::PaintIcon(QPainter& painter) const
{
    QRect const place(QPoint(IconLeft, (height() - m_Icon->height()) / 2), m_Icon->size());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(IconPlate));
    painter.drawRoundedRect(place, IconPlateRadius, IconPlateRadius);
    painter.drawPixmap(place.topLeft(), *m_Icon);
}

void TToolTip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    m_Background = pixmaps ? pixmaps->GetResizedPixmap(PixmapNames::ToolTipFrame, width(), height())
                           : QSharedPointer<QPixmap>();
}

void TToolTip::mouseReleaseEvent(QMouseEvent* event)
{
    QPointer<TToolTip> const self(this);
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (platform && rect().contains(event->localPos().toPoint()))
        platform->HideToolTip();
    if (self)
        QWidget::mouseReleaseEvent(event);
}
