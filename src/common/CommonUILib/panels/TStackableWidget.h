#pragma once

#include "CommonUILibExport.h"
#include "MMICapableWidget.h"
#include "TTouch.h"

#include <QPoint>
#include <QVector>
#include <QWidget>

class QTimer;

/// Layers that stand on each other from the bottom edge up, some maximised and some minimised. The operator
/// drags height from one to the other: the boundary between an open layer and a closed one follows the
/// finger, and whoever has more than half when it lifts is the open one. The wheel opens the layer that it
/// enters. Changes of height run in steps while the stack is shown.
///
/// For pages of which one is seen at a time see TScrollableWidget, for one block that opens and closes
/// TExpandingCollapsingBlock. The stack sets the heights and the y of its layers; their x and width are their
/// owner's business. A layer that is deleted or given another parent drops out without a signal, and those
/// behind it take the next lower numbers. GUI thread only.
class COMMONUILIB_EXPORT TStackableWidget : public QWidget, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    /// Heights in pixels of a minimised and a maximised layer. They are held to what a widget can have, and
    /// a maximum below the minimum counts as the minimum. Without \a ownsDrag the finger moves nothing and
    /// its moves go to the parent.
    TStackableWidget(QWidget* parent, int minChildHeight, int maxChildHeight, bool ownsDrag);

    /// Puts \a widget on top as the last layer, at its full height at once, and shows it. It becomes a child
    /// and keeps its position. A running drag ends. Does nothing for null, for a layer of this stack, and for
    /// a widget that the stack stands in.
    void AddWidget(QWidget* widget, bool maximised);
    /// Takes the last layer off and hides it; it stays a child. None left: does nothing.
    void RemoveWidget();
    void RemoveAll();
    int NumberOfWidgets() const;

    /// Opens or closes one layer; others stay as they are. An index out of range does nothing.
    void SetMaximised(int layer, bool maximised);
    /// Opens \a to, then closes \a from; each is ignored for itself when it is out of range.
    void MoveMaximised(int from, int to);

    void SetMinChildHeight(int height);
    void SetMaxChildHeight(int height);
    /// Pixels of height for each pixel of a drag, 1 at first. Ignored unless finite.
    void SetDragRatio(float ratio);
    /// Pixels by which a layer covers the one below it, 0 at first. Ignored unless finite.
    void SetOverlapAmount(float overlap);

    /// Is there a minimised layer somewhere below the last maximised one?
    bool CanDragUp() const;
    /// Is there a minimised layer somewhere above the first maximised one? False with fewer than two layers.
    bool CanDragDown() const;

    /// Opens the layer that holds \a child, and closes the first open one for it if that is another.
    void OnMMIHighlightChild(KVN::MMICapableWidget* child) override;

public Q_SLOTS:
    /// Brings every layer two fifths of its way nearer to its height and places them all. Runs every 25 ms
    /// while the stack is shown; touches nothing that stands where it should.
    void UpdateLayers();

Q_SIGNALS:
    /// The layer was opened; its height follows.
    void LayerMaximised(int layer);
    /// The layer was closed; its height follows.
    void LayerMinimised(int layer);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    struct TLayerDetails
    {
        QWidget* widget = nullptr;
        bool maximised = false;
        float height = 0;
    };
    /// Two layers that exchange height in a drag.
    struct TDragPair
    {
        int upper = 0;
        int lower = 0;
    };
    enum EDirection
    {
        UPWARD,
        DOWNWARD
    };

    int LowestHeight() const;
    int HighestHeight() const;
    int TargetHeight(bool maximised) const;
    void LimitHeight(QWidget* widget) const;
    void FollowLimits();
    void PlaceLayers();
    QRect PlaceOf(TLayerDetails const& layer, float bottom) const;

    bool FindPair(EDirection direction, TDragPair& pair) const;
    void DragBy(int dy);
    void FinishDrag();
    void EndDrag();
    bool IsAboveMiddle(int layer) const;

    int FirstMaximised() const;
    int HolderOf(QWidget const* child) const;
    int IndexOf(QObject const* widget) const;
    int PositionOf(QVector<TLayerDetails>::const_iterator layer) const;
    void RemoveLayer(int layer);

    int m_MinChildHeight;
    int m_MaxChildHeight;
    QTimer* m_Timer;
    QVector<TLayerDetails> m_Layers; // from the bottom up
    QPoint m_PressPosition;
    TTouch m_Touch;
    int m_AccumulatedDrag = 0;
    bool m_DragAllowed = false; // decided, and two layers were found for it
    float m_Overlap = 0.0F;
    TDragPair m_Drag;
    float m_DragRatio = 1.0F;
    bool m_OwnsDrag;
};
