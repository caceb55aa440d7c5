#pragma once

#include "ConsoleHostLibExport.h"
#include "TParentTracker.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include <memory>

class TCameraXVOverlayManager;
class TScreen;

namespace KVN
{
class IAnnotationHandler;
} // namespace KVN

/// Holds widgets above all others of a screen, below the alarm and tool tips, each beside the source that it
/// belongs to: the lists, pads and notes that open over a control. A widget becomes a child of the screen
/// while it is up. See MorvanePlatformInterface::ShowAnnotation() for the contract, and TToolTipMode for the
/// bubble that explains a button.
///
/// The widgets stay their owners'. One whose former parent dies dies with it; one that somebody else gives
/// another parent is let go. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TAnnotationLayer : public QObject
{
    Q_OBJECT

public:
    /// \a screen may not be null and may die first; then the widgets go back, and nothing is shown any more.
    /// Its camera overlay manager is told when the first annotation is seen and when the last one has gone.
    explicit TAnnotationLayer(TScreen* screen, QObject* parent = nullptr);
    /// Gives all widgets back.
    ~TAnnotationLayer() override;

    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source);
    void HideAnnotation(QWidget* widget);
    /// Brings the annotations back above what has been raised meanwhile, in their order. While the screen is
    /// locked, only those that were shown over its topmost lock: the others stay behind it.
    void RaiseAnnotations();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct TAnnotation
    {
        int id = 0; // one for each showing: a widget may go and come again while its handler is asked
        QWidget* widget = nullptr;
        QPointer<QWidget> formerParent;
        Qt::WindowFlags formerFlags;
        KVN::IAnnotationHandler* handler = nullptr;
        QWidget* source = nullptr;
        QList<QPointer<QWidget>> locksBelow;  // that were there when it was shown
        std::shared_ptr<QObject> connections; // the context of all that hang on this showing
        bool waits = true;                    // for its source to be seen
        bool isAsking = false;                // the handler is at work
    };

    TAnnotation* Find(int id);
    int IdOf(QObject const* widget) const;
    QVector<int> IdsOf(QObject const* source) const;

    TAnnotation Adopt(QWidget* widget) const;
    void Watch(TAnnotation& annotation);
    void Unwatch(QWidget* watched);
    void Release(int id);
    void ReleaseAll();
    void Forget(int id);

    QList<QPointer<QWidget>> Locks() const;
    bool IsSeen(QWidget const* source) const;
    void FollowVisibility(QObject* source);
    void FollowPlace(QWidget* source);
    void BringUp(int id);
    void TellHandler(int id);
    void Place(int id);
    void Notify();

    QPointer<TScreen> m_Screen;
    QPointer<TCameraXVOverlayManager> m_Overlay;
    QWidget const* const m_Host; // the screen, also while it is being destroyed; only compared
    TParentTracker m_Tracker;
    QVector<TAnnotation> m_Annotations;
    int m_LastId = 0;
    bool m_IsNotified = false;
};
