#include "TEditOverlay.h"

#include "IModalable.h"
#include "ITopLevelWindow.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"

#include <QRegion>
#include <QWidget>

TEditOverlay::TEditOverlay(QWidget* widget)
    : m_Widget(widget)
{
}

void TEditOverlay::SetSource(QWidget* source, TSourceRect rect)
{
    m_Source = source;
    m_HasSource = source != nullptr;
    m_SourceRect = std::move(rect);
}

QWidget* TEditOverlay::GetSource() const
{
    return m_Source;
}

// By way of the screen: the source need not stand in the overlay's parent.
QRect TEditOverlay::SourceRect() const
{
    QWidget* const parent = m_Widget->parentWidget();
    // The function may hang on what the source took along.
    if (!parent || (m_HasSource && !m_Source))
        return {};
    if (m_SourceRect)
        return m_SourceRect(parent);
    if (!m_Source)
        return {};
    return {parent->mapFromGlobal(m_Source->mapToGlobal(QPoint())), m_Source->size()};
}

QRegion TEditOverlay::VisibleRegionOfSource() const
{
    if (!m_Source)
        return QRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    QPoint const offset = m_Widget->mapFromGlobal(m_Source->mapToGlobal(QPoint()));
    return m_Source->visibleRegion().translated(offset);
}

void TEditOverlay::Open(KVN::IAnnotationHandler* handler)
{
    // One that is up stands among the locks, where another showing would lift it out.
    if (m_Locked && m_Widget->isVisible())
        return;
    if (auto* const platform = MorvanePlatformInterface::Instance())
        platform->ShowAnnotation(m_Widget, handler, m_Source);
}

void TEditOverlay::Close()
{
    if (auto* const platform = MorvanePlatformInterface::Instance())
        platform->HideAnnotation(m_Widget);
}

void TEditOverlay::FillParent()
{
    if (QWidget const* const parent = m_Widget->parentWidget())
        m_Widget->resize(parent->size());
}

void TEditOverlay::FollowLater(char const* slot)
{
    QMetaObject::invokeMethod(m_Widget, slot, Qt::QueuedConnection);
}

ITopLevelWindow* TEditOverlay::TopLevelWindow() const
{
    return dynamic_cast<ITopLevelWindow*>(m_Widget->window());
}

QRect TEditOverlay::UsableRect() const
{
    ITopLevelWindow* const window = TopLevelWindow();
    if (!window)
        return m_Widget->rect();
    return window->GetUsableRect().translated(m_Widget->mapFrom(m_Widget->window(), QPoint()));
}

void TEditOverlay::Lock(QString const& name, KVN::EModalType type)
{
    Unlock();
    QWidget* const parent = m_Widget->parentWidget();
    auto* const modalable = dynamic_cast<KVN::IModalable*>(parent);
    if (!modalable)
        return;
    m_Locked = parent;
    modalable->AddLockingWidget({m_Widget, name, type, {}});
}

void TEditOverlay::Unlock()
{
    QWidget* const locked = m_Locked;
    m_Locked = nullptr;
    // A parent in the middle of its destruction is no longer of its class.
    if (auto* const modalable = dynamic_cast<KVN::IModalable*>(locked))
        modalable->RemoveLockingWidget(m_Widget);
}
