#include "TVerticalScrollBar.h"

#include "MainScreen.h"
#include "PixmapManager.h"
#include "PixmapNames.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace
{
constexpr int TrackWidth = 33;
constexpr int LeastSliderLength = 50;
constexpr int LeastHeight = 50;
constexpr qreal BackgroundOpacity = 0.5;
// From here on a page would be lost in the range.
constexpr qint64 HugeRange = 0x40000000;
// No widget reaches further, and sums of a few of these still fit.
constexpr int Furthest = QWIDGETSIZE_MAX;

// The handle sounds the other way round than a button: its release is the louder one.
constexpr ESoundType GrabSound = SOUND_BUTTON_RELEASE;
constexpr ESoundType PageSound = SOUND_BUTTON_PRESS;
constexpr ESoundType LetGoSound = SOUND_BUTTON_PRESS;

QSharedPointer<QPixmap> Resized(QString const& name, int height)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    return pixmaps ? pixmaps->GetResizedPixmap(name, TrackWidth, height) : QSharedPointer<QPixmap>();
}

// The opacity is drawn in once, as every blit with one would cost double.
QPixmap Faded(QPixmap const& pixmap)
{
    if (pixmap.isNull())
        return {};
    QPixmap faded(pixmap.size());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(BackgroundOpacity);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
}

int Within(int margin)
{
    return qBound(-Furthest, margin, Furthest);
}

int RoundedY(QMouseEvent const* event)
{
    return event->localPos().toPoint().y();
}
} // namespace

TVerticalScrollBar::TVerticalScrollBar(QWidget* parent, int xOffset, int topMargin, int bottomMargin,
                                       int width)
    : QScrollBar(Qt::Vertical, parent)
    , m_Width(qBound(0, width, Furthest))
    , m_TopMargin(Within(topMargin))
    , m_BottomMargin(Within(bottomMargin))
    , m_XOffset(Within(xOffset))
{
    setFixedWidth(m_Width);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    // The menu of the base would be a window of its own.
    setContextMenuPolicy(Qt::NoContextMenu);
    ResizePixmap();
}

TVerticalScrollBar::~TVerticalScrollBar() = default;

void TVerticalScrollBar::SetBottomMargin(int margin)
{
    if (Within(margin) == m_BottomMargin)
        return;
    m_BottomMargin = Within(margin);
    ResizePixmap();
    update();
}

void TVerticalScrollBar::UseGlassEffect(bool use)
{
    if (use == m_GlassEffect)
        return;
    m_GlassEffect = use;
    ResizePixmap();
    update();
}

int TVerticalScrollBar::Track() const
{
    return qMax(0, height() - m_TopMargin - m_BottomMargin);
}

int TVerticalScrollBar::GetSliderLength() const
{
    int const track = Track();
    qint64 const range = qint64(maximum()) - minimum();
    if (range == 0)
        return track;
    // The one step that has no positive counterpart stays negative in the base.
    qint64 const page = qMax(0, pageStep());
    qint64 const length = page * track / (range + page);
    bool const isRoomy = length >= LeastSliderLength && range < HugeRange;
    return int(qMin(qint64(track), isRoomy ? length : LeastSliderLength));
}

int TVerticalScrollBar::GetTopOfSlider() const
{
    if (maximum() < 1)
        return 0;
    float const part = float(sliderPosition()) / float(maximum());
    float const top = float(Track() - GetSliderLength()) * part + float(m_TopMargin);
    return int(qBound(-float(Furthest), top, float(Furthest)));
}

int TVerticalScrollBar::GetBottomOfSlider() const
{
    return GetTopOfSlider() + GetSliderLength();
}

QSize TVerticalScrollBar::sizeHint() const
{
    return {m_Width, LeastHeight};
}

QSize TVerticalScrollBar::minimumSizeHint() const
{
    return sizeHint();
}

QString TVerticalScrollBar::ArtName(QString const& plain, QString const& glass) const
{
    return m_GlassEffect ? glass : plain;
}

void TVerticalScrollBar::ResizePixmap()
{
    auto const background =
        Resized(ArtName(PixmapNames::ScrollBarBackground, PixmapNames::GlassScrollBarBackground), Track());
    m_Background = background ? Faded(*background) : QPixmap();
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    QString const grip = ArtName(PixmapNames::ScrollBarGrip, PixmapNames::GlassScrollBarGrip);
    m_Grip = pixmaps ? pixmaps->GetPixmap(grip) : QSharedPointer<QPixmap>();
    m_Handle.reset();
    m_HandleDown.reset();
    ResizeHandle();
}

// Each form of the handle is made when it is first needed at its length.
void TVerticalScrollBar::ResizeHandle()
{
    int const length = GetSliderLength();
    auto const fit = [length](QSharedPointer<QPixmap>& pixmap, QString const& name)
    {
        if (!pixmap || pixmap->height() != length)
            pixmap = Resized(name, length);
    };
    fit(m_Handle, ArtName(PixmapNames::ScrollBarHandle, PixmapNames::GlassScrollBarHandle));
    if (isSliderDown())
        fit(m_HandleDown,
            ArtName(PixmapNames::ScrollBarHandleSelected, PixmapNames::GlassScrollBarHandleSelected));
}

QRect TVerticalScrollBar::HandleRect() const
{
    return {m_XOffset + (m_Width - TrackWidth) / 2, GetTopOfSlider(), TrackWidth, GetSliderLength()};
}

void TVerticalScrollBar::paintEvent(QPaintEvent*)
{
    m_DrawnHandle = HandleRect();
    QPainter painter(this);
    painter.drawPixmap(m_DrawnHandle.x(), m_TopMargin, m_Background);
    QSharedPointer<QPixmap> const& handle = isSliderDown() && m_HandleDown ? m_HandleDown : m_Handle;
    if (handle)
        painter.drawPixmap(m_DrawnHandle.topLeft(), *handle);
    if (!m_Grip || m_DrawnHandle.isEmpty())
        return;
    QRect grip = m_Grip->rect();
    grip.moveCenter(m_DrawnHandle.center());
    painter.drawPixmap(grip.topLeft(), *m_Grip);
}

void TVerticalScrollBar::resizeEvent(QResizeEvent* event)
{
    QScrollBar::resizeEvent(event);
    ResizePixmap();
}

// The base would repaint the whole bar, and all that shines through it, for a handle that a small step of a
// long page doesn't move by a single row.
void TVerticalScrollBar::sliderChange(SliderChange change)
{
    if (change != SliderValueChange)
    {
        ResizeHandle();
        update();
        return;
    }
    QRect const handle = HandleRect();
    if (handle != m_DrawnHandle)
        update(handle | m_DrawnHandle);
}

void TVerticalScrollBar::mousePressEvent(QMouseEvent* event)
{
    int const y = RoundedY(event);
    if (y < GetTopOfSlider())
        TurnPage(-1);
    else if (y > GetBottomOfSlider())
        TurnPage(1);
    else
        Grab(y);
}

void TVerticalScrollBar::TurnPage(int pages)
{
    tscreenPlaySound(PageSound);
    qint64 const position = sliderPosition() + qint64(pages) * pageStep();
    setSliderPosition(int(qBound(qint64(minimum()), position, qint64(maximum()))));
}

void TVerticalScrollBar::Grab(int y)
{
    tscreenPlaySound(GrabSound);
    m_Dragging = true;
    m_PressOffset = m_TopMargin + y - GetTopOfSlider();
    ShowSliderDown(true);
}

// Nothing comes after this, as a slot may delete the bar.
void TVerticalScrollBar::ShowSliderDown(bool down)
{
    update(HandleRect());
    QPointer<TVerticalScrollBar> const self(this);
    setSliderDown(down);
    if (self)
        ResizeHandle();
}

void TVerticalScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    int const room = Track() - GetSliderLength();
    if (!m_Dragging || room < 1)
        return;
    float const part = float(RoundedY(event) - m_PressOffset) / float(room);
    double const position = double(float(maximum()) * part);
    setSliderPosition(int(qBound(double(minimum()), position, double(maximum()))));
}

void TVerticalScrollBar::mouseReleaseEvent(QMouseEvent*)
{
    if (m_Dragging)
        tscreenPlaySound(LetGoSound);
    LetGo();
}

void TVerticalScrollBar::LetGo()
{
    m_Dragging = false;
    ShowSliderDown(false);
}

// The release of a press never comes to a bar that went away beneath the finger.
void TVerticalScrollBar::hideEvent(QHideEvent* event)
{
    QScrollBar::hideEvent(event);
    LetGo();
}

void TVerticalScrollBar::changeEvent(QEvent* event)
{
    QScrollBar::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        LetGo();
}
