#pragma once

#include "CommonUILibExport.h"
#include "TTouch.h"

#include <QHash>
#include <QList>
#include <QPointF>
#include <QWidget>

class QTimer;

/// What a page of a TScrollableWidget takes part in: a set of two bits.
enum EScrollBehaviour
{
    SCROLL_NONE = 0,
    SCROLL_STOP = 1,      ///< the page walk stops at it
    SCROLL_DRAGGABLE = 2, ///< it may be dragged by hand
    SCROLL_STOP_DRAGGABLE = SCROLL_STOP | SCROLL_DRAGGABLE
};

/// Pages of the widget's own size of which one is seen. The operator drags a page up or down; beyond half of
/// the height, or flicked that far, it gives way to its neighbour, and a spring brings the page that is on
/// into place. The last page is followed by the first.
///
/// For layers of which several are seen see TStackableWidget, for content that is larger than its window
/// TScrollArea. A disabled page is never stopped at. A page that is deleted or given another parent drops out
/// as by RemoveWidget(), with the signals from the event loop. GUI thread only.
class COMMONUILIB_EXPORT TScrollableWidget : public QWidget
{
    Q_OBJECT

public:
    /// With \a handleMouse the finger on this widget drags; without it the owner calls Drag() and
    /// DragRelease(), and mouse events go on to the parent.
    TScrollableWidget(QWidget* parent, bool handleMouse);

    /// Adds \a widget as the last page, hidden until it is its turn. It becomes a child of this widget's
    /// size. Does nothing for null, for a page that is in already, and for a widget that this one stands in.
    void AddWidget(QWidget* widget, EScrollBehaviour behaviour);
    /// Takes a page out and hides it; it stays a child. The current page stays current; in place of itself
    /// the page behind it becomes current, or the last one. The signals tell what changed. A stranger does
    /// nothing.
    void RemoveWidget(QWidget* widget);
    /// The pages in a new order; strangers and repetitions are left out, and pages that are not named follow
    /// in their old order. The current page stays current.
    void SetWidgetOrder(QList<QWidget*> const& order);

    /// Null without pages.
    QWidget* CurrentWidget() const;
    /// Puts a page in its place without the spring. A stranger and the current page change nothing.
    void MoveToWidget(QWidget* widget);
    /// To the next page, and to the previous one. Without another page the signals come for the same one;
    /// without any, nothing happens.
    void MoveUp();
    void MoveDown();

    /// The number of the next enabled page on the round that is a stop; where there is none, that is enabled;
    /// else the current one. 0 without pages.
    int GetNextLayer() const;
    int GetPrevLayer() const;
    QWidget* GetNextWidget() const;
    QWidget* GetPrevWidget() const;

public Q_SLOTS:
    /// One step of the spring, and shows the pages that are seen. Runs every 50 ms while the widget is
    /// shown; touches nothing that stands where it should.
    void UpdateLayers();
    /// The finger moved from \a start to \a end; the first call since a release only begins the drag. Both
    /// in one coordinate system, whichever. Does nothing while the widget is hidden.
    void Drag(QPointF const& start, QPointF const& end);
    /// The finger lifted: decides which page is on. Does nothing while the widget is hidden.
    void DragRelease(QPointF const& point);

Q_SIGNALS:
    /// Another page is current, whose number is \a layer; or the current one has that number now.
    void ActiveLayerChanged(int layer);
    /// Another page is current; null when the last one was taken out.
    void ActiveWidgetChanged(QWidget* widget);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    enum EChange
    {
        CHANGE_NONE,
        CHANGE_LAYER,
        CHANGE_WIDGET
    };

    int FindLayer(int step) const;
    bool Has(int layer, EScrollBehaviour behaviour) const;
    bool IsEnabled(int layer) const;
    bool CanBeDragged() const;
    int IndexOf(QObject const* widget) const;
    void MoveToLayer(int layer);
    EChange ForgetWidget(int layer);
    EChange ChangeSince(int layer, QWidget const* widget) const;
    void Tell(EChange change);
    void PutInPlace();

    void FollowFinger(QPoint const& movement);
    void EndDrag();
    void Spring();
    QWidget* PlaceNeighbour() const;
    void ShowPages(QWidget const* neighbour);

    QTimer* m_Timer;
    QList<QWidget*> m_Widgets;
    QHash<QWidget*, EScrollBehaviour> m_Behaviours;
    QPointF m_PreviousDragPoint;
    int m_TotalDrag = 0;
    int m_Velocity = 0; // pixels since the last update
    int m_LastTotal = 0;
    int m_AccumulatedDrag = 0;
    bool m_Dragging = false;
    int m_CurrentLayer = 0;
    bool m_DragStarted = false;
    TTouch m_Touch;
    bool m_HandleMouse;
};
