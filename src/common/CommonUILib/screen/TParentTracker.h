#pragma once

#include "CommonUILibExport.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

/// Tells when a widget, or any widget above it up to a limit, moves or changes size, so that what hangs
/// beside the widget (a tool tip, a floating control) can follow it. Qt itself tells a child nothing of what
/// its ancestors do.
///
/// Works as an event filter on the widget and its ancestors and lets every event pass. Widgets stay their
/// owners' and may be deleted or given another parent at any time. For the limit of one side of a surface
/// see TObstructionManager. GUI thread only.
class COMMONUILIB_EXPORT TParentTracker : public QObject
{
    Q_OBJECT

public:
    explicit TParentTracker(QObject* parent);
    ~TParentTracker() override;

    /// Calls \a callback with \a widget after each move and each change of size of the widget and of its
    /// ancestors up to and including \a limit; without a limit among them, of all. Replaces what was tracked
    /// for the widget. The callback may delete anything, the tracker included, but what has just moved and
    /// its ancestors: these by deleteLater() only, as their event is still on its way. An empty callback is
    /// not called. Does nothing without a widget.
    void TrackParent(QWidget* widget, QWidget* limit, std::function<void(QWidget*)> callback);
    /// Ends it; null and a widget that is not tracked do nothing.
    void UnTrackParent(QWidget* widget);

    /// Filters \a object and its ancestors up to the limit of the tracked \a widget on the widget's behalf.
    void FilterParents(QWidget* widget, QObject* object);
    /// Takes the tracked widget \a object out of all filters, also those on ancestors that it has no more. A
    /// filter goes with the last tracked widget that needs it.
    void UnFilterParents(QObject* object);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct TrackData
    {
        std::function<void(QWidget*)> callback;
        QPointer<QWidget> limit;
    };

    void Notify(QObject* object);
    void LeaveAncestors(QObject* object);
    void FilterAnew(QObject* object);
    void Leave(QObject* filtered, QObject* tracked);
    QList<QWidget*> Dependents(QObject* object) const;

    QMap<QWidget*, TrackData> m_Tracked;
    QMap<QObject*, QList<QWidget*>> m_Filtered; // each object with the tracked widgets that need its events
};
