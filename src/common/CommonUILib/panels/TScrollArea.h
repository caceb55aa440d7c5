#pragma once

#include "CommonUILibExport.h"
#include "MMICapableWidget.h"
#include "TTouch.h"

#include <QScrollArea>

/// A scroll area for gloves: the content itself is dragged, once the finger has moved far enough that it is
/// no tap, and the wheel turns it where it does not fit in. Along the height it has a TVerticalScrollBar,
/// along the width no bar. In nested areas the inner one takes the drag. For a text alone see
/// TScrollableTextContainer. GUI thread only.
///
/// The content stands still from a press until the drag begins, whatever becomes of the bar's value
/// meanwhile.
class COMMONUILIB_EXPORT TScrollArea : public QScrollArea, public KVN::MMICapableWidget
{
    Q_OBJECT
    // It is through this property that a style reads the sheet.
    Q_PROPERTY(QString styleSheet READ WellFormedStyleSheet WRITE setStyleSheet DESIGNABLE false)

public:
    /// \a vertical tells the axis of the drag. A \a framed area has a border and darkens what is behind it;
    /// without, it shows the content alone.
    TScrollArea(QWidget* parent, bool vertical, bool framed);
    ~TScrollArea() override;

    /// Pixels that the bar leaves free at its lower end.
    void SetBottomScrollBarMargin(int margin);
    /// A \a disabled area is not dragged; bar and wheel still turn it.
    void DisableScroll(bool disabled);
    /// Begins a press, also one that another widget got and passes on. The position is that in the viewport.
    void HandlePress(QMouseEvent* event);

    /// The content's, within the frame.
    int heightForWidth(int width) const override;

    void OnMMIWheelLeft() override;
    void OnMMIWheelRight() override;
    /// Brings \a child into sight, with some room around it.
    void OnMMIHighlightChild(KVN::MMICapableWidget* child) override;
    /// No stop as long as there is nothing to scroll; then what SetMMIBehaviour() set.
    EMMIWidgetBehaviour GetMMIBehaviour() override;
    /// Always true: the area brings every child into sight.
    bool IsMMIChildNavigatable(KVN::MMICapableWidget* child) const override;

Q_SIGNALS:
    // Where the content has to move because it shrinks or the area grows, all three come from the event loop.

    /// A drag has come to the end; the content has not moved there yet.
    void ScrollAreaMaxLimit();
    /// A drag has come to the beginning; the content has not moved there yet.
    void ScrollAreaMinLimit();
    /// The content has moved.
    void Scroll();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    QScrollBar* ActiveBar() const;
    int ActivePress() const { return m_Vertical ? m_PressY : m_PressX; }
    QString WellFormedStyleSheet() const;
    bool HasOwnGround() const;
    bool PaintInside(QRect const& part);
    void PaintStyled();
    bool Follows(QMouseEvent const* event);
    void ForgetPress();
    void TellLimit(int value);
    void TellScroll();
    void Tell(void (TScrollArea::*signal)(), bool later);
    void Turn(int distance);

    bool const m_Vertical;
    bool const m_Framed;
    int m_StartValue = 0;
    int m_PressX;
    int m_PressY;
    bool m_Scrolling = true;
    TTouch m_Touch;
    bool m_ScrollDisabled = false;
    bool m_LosesValue = false; // the range of a bar moves away from its value
    bool m_BringsIntoSight = false;
    int m_ScrollsToTell = 0;
};
