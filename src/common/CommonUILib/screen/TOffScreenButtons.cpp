#include "TOffScreenButtons.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TLocalTime.h"
#include "TPushButton.h"

#include <QChildEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

namespace
{
constexpr int Margin = 14;
constexpr int QuietTime = 10000;
// The press that ends the swipe in must not send the strip away again.
constexpr qint64 LongestFreshTime = 250;
constexpr int SwipeOut = 20;
constexpr int LongestSwipeIn = 10;
} // namespace

TOffScreenButtons::TOffScreenButtons(QWidget* parent)
    : QWidget(parent)
    , m_HideTimer(new QTimer(this))
{
    move(0, SCREEN_HEIGHT);
    hide();
    setFocusPolicy(Qt::ClickFocus);
    m_HideTimer->setSingleShot(true);
    m_HideTimer->setInterval(QuietTime);
    connect(m_HideTimer, &QTimer::timeout, this, &TOffScreenButtons::HideButtons);
}

void TOffScreenButtons::AddOffScreenButton(TPushButton* button, bool closeOnClick, bool slowHide)
{
    if (!button)
        return;
    if (!m_Layout)
    {
        setContentsMargins(Margin, Margin, Margin, Margin);
        m_Layout = new QHBoxLayout(this);
        m_Layout->setSpacing(0);
        m_Layout->setContentsMargins(0, 0, 0, 0);
        m_Layout->setSizeConstraint(QLayout::SetFixedSize);
    }
    Forget(button);
    m_Layout->removeWidget(button);
    if (button->parentWidget() != this)
        button->setParent(this);
    button->setFixedSize(OFF_SCREEN_BUTTON_SIZE, OFF_SCREEN_BUTTON_SIZE);
    button->SetBackground(PixmapNames::BevelButton);
    button->SetBackgroundSelected(PixmapNames::BevelButtonSelected);
    button->setFocusPolicy(Qt::NoFocus);
    m_Layout->addWidget(button);
    button->show();
    if (closeOnClick)
    {
        connect(button, &TPushButton::Clicked, this,
                slowHide ? &TOffScreenButtons::HideButtons : &TOffScreenButtons::QuickHideButtons);
    }
    // Counts from the last press on.
    connect(button, &QAbstractButton::pressed, m_HideTimer, qOverload<>(&QTimer::start));
}

void TOffScreenButtons::RemoveOffScreenButton(TPushButton* button)
{
    if (!button || !m_Layout || m_Layout->indexOf(button) < 0)
        return;
    button->hide();
    button->setParent(nullptr); // and so out of the layout, see childEvent()
    if (!HasButtons())
        Q_EMIT QuickHideButtons();
}

void TOffScreenButtons::Forget(QObject* button)
{
    disconnect(button, nullptr, this, nullptr);
    disconnect(button, nullptr, m_HideTimer, nullptr);
}

// A button may also die, or be taken by another parent.
void TOffScreenButtons::childEvent(QChildEvent* event)
{
    QWidget::childEvent(event);
    if (!event->removed() || !m_Layout)
        return;
    Forget(event->child());
    // Not at once: the child, or this strip, is in the middle of something.
    QTimer::singleShot(0, this,
                       [this]
                       {
                           if (!HasButtons() && !isHidden())
                               Q_EMIT QuickHideButtons();
                       });
}

bool TOffScreenButtons::HasButtons() const
{
    return m_Layout && m_Layout->count() > 0;
}

bool TOffScreenButtons::IsOnScreen() const
{
    return y() < SCREEN_HEIGHT;
}

void TOffScreenButtons::ShowOffScreenButtons()
{
    QPointer<TOffScreenButtons> const self(this);
    if (!IsOnScreen())
        Q_EMIT ShowButtons();
    if (!self)
        return;
    m_DragStart = QPoint();
    m_HideTimer->start();
    m_ShownAt = TLocalTime::getCurrentTime();
}

void TOffScreenButtons::MousePress(QMouseEvent* event)
{
    QPoint const place = OnTheScreen(*event);
    bool const isOnScreen = IsOnScreen();
    if (isOnScreen && !geometry().contains(place) &&
        TLocalTime::getCurrentTime() - m_ShownAt > LongestFreshTime)
    {
        Dismiss();
        return;
    }
    int const threshold = isOnScreen ? y() : SCREEN_HEIGHT - TYPICAL_DASHBOARD_HEIGHT;
    if (place.y() > threshold)
        m_DragStart = place;
}

void TOffScreenButtons::MouseRelease()
{
    m_DragStart = QPoint();
}

void TOffScreenButtons::UnhandledMouseMove(QMouseEvent* event)
{
    if (!IsArmed())
        return;
    int const risen = m_DragStart.y() - OnTheScreen(*event).y();
    if (IsOnScreen())
    {
        if (risen < -SwipeOut)
            Dismiss();
        return;
    }
    // From the very edge there is no more way to go than what lies below the finger.
    int const needed = qMin(qMax(SCREEN_HEIGHT - m_DragStart.y(), 0), LongestSwipeIn);
    if (risen > needed)
        ShowOffScreenButtons();
}

// Of the whole display on a console, where the screen fills it; a window on a desktop stands anywhere.
QPoint TOffScreenButtons::OnTheScreen(QMouseEvent const& event) const
{
    return window()->mapFromGlobal(event.globalPos());
}

bool TOffScreenButtons::IsArmed() const
{
    return !m_DragStart.isNull();
}

void TOffScreenButtons::Dismiss()
{
    m_DragStart = QPoint();
    m_HideTimer->stop();
    Q_EMIT HideButtons();
}

void TOffScreenButtons::paintEvent(QPaintEvent* event)
{
    if (m_Frame)
    {
        QPainter painter(this);
        painter.drawPixmap(0, 0, *m_Frame);
    }
    QWidget::paintEvent(event);
}

void TOffScreenButtons::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    m_Frame = pixmaps ? pixmaps->GetResizedPixmap(PixmapNames::OffScreenButtonFrame, width(), height())
                      : QSharedPointer<QPixmap>();
    // A button came or went while the strip is up.
    if (IsOnScreen())
        move((SCREEN_WIDTH - width()) / 2, y());
}
