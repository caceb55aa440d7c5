#pragma once

#include "CommonUILibExport.h"

#include <QVector>
#include <QWidget>

/// A row of marks, one for each panel of a row, that tells which of them are in view: what is in view is
/// lighter than the rest. While everything is in view it shows nothing. GUI thread only.
class COMMONUILIB_EXPORT TViewIndicator : public QWidget
{
    Q_OBJECT

public:
    /// More marks than pixels on the screen tell nothing.
    static constexpr int MaxItems = 1024;

    /// A \a horizontal row runs from left to right, else from top to bottom.
    TViewIndicator(QWidget* parent, bool horizontal);

    /// All out of view at first. A number below 0 counts as 0, one above MaxItems as that. The same number
    /// changes nothing.
    void SetNumberOfItems(int count);
    /// Wholly in view, or not at all. Nothing for an item that does not exist.
    void SetVisibleInView(int item, bool visible);
    /// \a percent of the item is in view, from -100 to 100: a positive share lies at the near end of the
    /// item, left or top, a negative one at its far end. Nothing outside that range, and for an item that
    /// does not exist.
    void SetPartiallyVisibleInView(int item, int percent);
    /// Lays the marks out in the present size. Runs by itself when the size or the number of items changes.
    void AdjustLayout();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool IsEverythingInView() const;
    QRectF MarkRect(float along, float length) const;
    void PaintItem(QPainter& painter, int item) const;

    bool const m_Horizontal;
    float m_ItemLength = 0;
    float m_ItemBreadth = 0;
    int m_MarginAlong = 0;
    int m_MarginAcross = 0;
    QVector<int> m_Percentages; // one for each item
};
