#include "TToolTipMode.h"

#include "TScreen.h"
#include "TToolTip.h"

#include <QEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace
{
// Between a button and its tip, in pixels.
constexpr int Gap = 4;

/// Where \a length stands in a room from \a low to \a high when it would like to begin at \a wanted.
int Inside(int wanted, int length, int low, int high)
{
    return qMax(low, qMin(wanted, high - length));
}
} // namespace

TToolTipMode::TToolTipMode(TScreen* screen, QObject* parent)
    : QObject(parent)
    , m_Screen(screen)
    , m_Tracker(nullptr)
{
}

TToolTipMode::~TToolTipMode()
{
    HideToolTip();
    delete m_ToolTip;
}

bool TToolTipMode::ToolTipVisible() const
{
    return m_IsOn;
}

void TToolTipMode::SetOn(bool on)
{
    if (on == m_IsOn)
        return;
    HideToolTip();
    m_IsOn = on;
    Q_EMIT Switched(on);
}

void TToolTipMode::ShowToolTipFor(QWidget* source, int placement, QString const& text,
                                  QSharedPointer<QPixmap> icon)
{
    Q_UNUSED(placement)
    if (IsToolTipShownFor(source) && text == m_Text && icon == m_Icon)
        return;
    HideToolTip();
    if (text.isEmpty() || VisiblePart(source).isEmpty())
        return;
    m_Source = source;
    m_Text = text;
    m_Icon = std::move(icon);
    if (!m_ToolTip)
        m_ToolTip = new TToolTip(m_Screen);
    m_ToolTip->SetToolIcon(m_Icon);
    m_ToolTip->SetText(text);
    m_ToolTip->RefreshGeometry();
    m_Tracker.TrackParent(source, m_Screen, [this](QWidget*) { Follow(); });
    source->installEventFilter(this);
    connect(source, &QObject::destroyed, this, [this] { TakeDown(); });
    Follow();
    m_ToolTip->raise();
    m_ToolTip->show();
    source->update();
}

bool TToolTipMode::IsToolTipShownFor(QWidget* source) const
{
    return source && source == m_Source && m_ToolTip;
}

void TToolTipMode::HideToolTip()
{
    QPointer<QWidget> const source = m_Source;
    TakeDown();
    // Its mark tells that it was explained.
    if (source)
        source->update();
}

// A source that is being destroyed must not be asked to paint: its window would never forget it.
void TToolTipMode::TakeDown()
{
    if (!m_Source)
        return;
    QWidget* const source = m_Source;
    m_Source.clear();
    m_Icon.reset();
    source->removeEventFilter(this);
    disconnect(source, &QObject::destroyed, this, nullptr);
    m_Tracker.UnTrackParent(source);
    if (m_ToolTip)
        m_ToolTip->hide();
}

QPoint TToolTipMode::PlaceBeside(QRect const& source, QSize const& size, QRect const& room)
{
    struct TSide
    {
        QPoint place;
        int lack; // of pixels between source and edge
    };
    int const width = size.width() + Gap;
    int const height = size.height() + Gap;
    QPoint const middle(source.center() - QRect(QPoint(0, 0), size).center());
    std::array<TSide, 4> const sides = {{
        {{source.right() + 1 + Gap, middle.y()}, source.right() + width - room.right()},
        {{source.left() - width, middle.y()}, room.left() - source.left() + width},
        {{middle.x(), source.bottom() + 1 + Gap}, source.bottom() + height - room.bottom()},
        {{middle.x(), source.top() - height}, room.top() - source.top() + height},
    }};
    auto const best = std::min_element(sides.begin(), sides.end(),
                                       [](TSide const& one, TSide const& other)
                                       { return qMax(0, one.lack) < qMax(0, other.lack); });
    return {Inside(best->place.x(), size.width(), room.left(), room.right() + 1),
            Inside(best->place.y(), size.height(), room.top(), room.bottom() + 1)};
}

bool TToolTipMode::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_Source && event->type() == QEvent::Hide)
        HideToolTip();
    return false;
}

// What its ancestors leave of it, in the coordinates of the screen.
QRect TToolTipMode::VisiblePart(QWidget const* source) const
{
    if (!source || !m_Screen || !source->isVisible() || source->window() != m_Screen)
        return {};
    QRect part = source->rect();
    for (QWidget const* widget = source; widget != m_Screen; widget = widget->parentWidget())
        part = part.translated(widget->pos()) & widget->parentWidget()->rect();
    return part;
}

void TToolTipMode::Follow()
{
    QRect const part = VisiblePart(m_Source);
    if (part.isEmpty() || !m_ToolTip)
        HideToolTip();
    else
        m_ToolTip->SetPosition(PlaceBeside(part, m_ToolTip->size(), m_Screen->rect()));
}
