#pragma once

#include "CommonUILibExport.h"
#include "MMICapableWidget.h"

#include <QList>
#include <QMap>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QWidget>

class QLabel;
class QTimer;
class TPushButton;

/// The direction of a tool bar. A bar of the near kind grows from its left or top edge in the order of its
/// buttons; one of the far kind stays at its right or bottom edge when it grows, and its buttons stand in
/// reverse.
enum eToolBarLayouts
{
    TOOLBAR_HORIZONTAL_NEAR = 0,
    TOOLBAR_HORIZONTAL_FAR = 1,
    TOOLBAR_VERTICAL_NEAR = 2,
    TOOLBAR_VERTICAL_FAR = 3
};

/// What a tool bar knows of one of its buttons.
struct ButtonDetails
{
    QPointer<TPushButton> button; ///< may be null
    bool visible = false;         ///< wanted on the bar
    bool enabled = true;          ///< as asked for by id; counts while the bar is enabled
};

/// The strip of buttons from which all bars derive. It keeps its buttons by id, gives each the same size, and
/// lets the operator drag the strip with a finger when it holds more than fits, with a flick, snapping to
/// whole buttons and marks at the ends. The wheel reaches the buttons beyond the ends too: the strip follows
/// it.
///
/// A subclass says how a button is made (GenerateButton()) and how large buttons are (ArrangeButtons()), and
/// sets m_Layout. GUI thread only.
class COMMONUILIB_EXPORT TBaseToolBar : public QWidget, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    /// A \a fixed bar is sized from outside, or by UpdateFixedSize(); any other fits itself to its buttons.
    TBaseToolBar(QWidget* parent, bool fixed);
    ~TBaseToolBar() override;

    /// Pixels from the near edge to the first button. In force from the next arrangement on.
    virtual void SetButtonOffset(int offset);
    /// Pixels from the bar's other edge to all buttons. In force from the next arrangement on.
    virtual void SetPerpOffset(int offset);
    /// Lays the buttons out with \a size pixels along the bar before the operator's factor, \a gap pixels
    /// apart. A strip that begins under its mark moves out of it: the offset grows by the thickness of the
    /// mark.
    virtual void ArrangeButtons(int size, int gap);
    /// Makes the button, visible, where the id has none, and gives it all that is named. Arranges.
    virtual void AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip);
    /// Takes \a button over as a child, visible, in place of the one that the id has. Null does nothing.
    virtual void AssignButton(int id, TPushButton* button);
    /// Takes a button off the bar. With \a deleteButton it is deleted as soon as the event loop allows, so
    /// that it may be the button whose signal is being handled; without, it stays a hidden child for the
    /// caller to take.
    virtual void RemoveButton(int id, bool deleteButton);
    virtual void RemoveButton(QMap<int, ButtonDetails>::iterator position);
    virtual int GetNumberOfButtons();
    /// How many are wanted on the bar.
    virtual int GetNumberOfVisibleButtons();
    /// Null for an unknown id.
    virtual TPushButton* GetButton(int id);
    virtual void SetButtonVisibility(int id, bool visible);
    virtual bool IsButtonVisible(int id);
    /// Brings \a child into the bar.
    void OnMMIHighlightChild(KVN::MMICapableWidget* child) override;
    /// Always true: the strip brings every button in.
    bool IsMMIChildNavigatable(KVN::MMICapableWidget* child) const override;

    /// \a enabled lets a finger drag the strip, \a needThreshold from half a button's size on, \a snap makes
    /// it come to rest on whole buttons, \a inertia lets it run on after a flick, and \a clamp keeps it from
    /// starting towards an end that is reached.
    void SetDragSettings(bool enabled, bool needThreshold, bool snap, bool inertia, bool clamp);
    /// Whether the operator's choice of button size counts for this bar.
    void SetUserResizeButtons(bool resize);
    QSharedPointer<QPixmap> GetBackground() const;
    /// Drawn as it is; null: none.
    void SetBackground(QSharedPointer<QPixmap> const& background);
    /// Where the top-left corner of the background stands on the bar.
    void SetBackgroundOffset(int x, int y);
    /// Files of the marks for more at the near and at the far end.
    void SetScrollIndicators(QString const& upFile, QString const& downFile);
    int GetButtonOffset() const;
    int GetButtonGap() const;
    /// A button disabled by id stays disabled when the bar is enabled.
    void SetButtonEnabled(int id, bool enabled);
    /// As asked for by id; false for an unknown id.
    bool IsButtonEnabled(int id) const;
    /// Holds until the next arrangement.
    void SetButtonWidth(int id, int width);
    /// True with the id of \a button; \a id stays as it is where the button is not on the bar.
    bool FindButtonId(TPushButton* button, int& id) const;
    void DisableToolBar();
    void EnableToolBar();
    void HideToolBar();
    /// The order of the buttons along the bar, at first ascending by id. What is not named is not shown.
    void AssignButtonOrder(QList<int> const& order);
    /// Lays the buttons out anew when the operator chose another size since the last call, and at the first
    /// call.
    void CheckUserSelectedButtonSize();

Q_SIGNALS:
    /// The strip has moved.
    void dragged();

protected Q_SLOTS:
    /// One step of a flick.
    void OnAnimateDrag();

protected:
    /// Makes the button for \a id as a child of the bar; the bar lays it out.
    virtual TPushButton* GenerateButton(int id) = 0;
    /// Generates the button of \a id, makes it visible and puts it in its place in the order.
    virtual TPushButton* CreateButton(int id);
    /// Before the first id that is not smaller.
    virtual void InsertIntoOrderList(int id);
    /// Calls ArrangeButtons(int, int) with the sizes of this kind of bar.
    virtual void ArrangeButtons() = 0;
    /// Sizes a fixed bar after its buttons were laid out. The base does nothing.
    virtual void UpdateFixedSize();
    /// Follows a finger.
    virtual void moveFromEvent(QMouseEvent* event);
    /// Comes to rest; the rest of the press moves nothing.
    virtual void endDrag();
    /// Shows the marks at the ends beyond which there is more.
    virtual void updateScrollIndicators();
    /// Moves the strip by \a delta pixels, as far as its ends allow.
    virtual void dragButtons(int delta);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    /// How many buttons are shown at most; -1: no limit.
    int m_MaximumVisible = -1;
    eToolBarLayouts m_Layout = TOOLBAR_HORIZONTAL_NEAR;
    QMap<int, ButtonDetails> m_Buttons;
    /// The ids along the bar.
    QList<int> m_Order;

private:
    /// The strip along the bar, from its first to behind its last pixel.
    struct TSpan
    {
        int start;
        int end;
    };

    bool IsHorizontal() const;
    bool IsReversed() const;
    int Along(QPoint const& point) const;
    int Length() const;
    QLabel* MakeIndicator();

    void RepositionButtons();
    int ScaledButtonSize() const;
    void ShowCountedButtons();
    int PlaceButtons();
    void PlaceButton(TPushButton* button, int place);
    void FitToButtons(int length);
    void AnchorFarEdge(QSize const& before);
    void ApplyEnabled(ButtonDetails const& details);
    void ApplyEnabledToAll();
    void TakeOff(QMap<int, ButtonDetails>::iterator position);

    bool IsCounted(ButtonDetails const& details, int counted) const;
    TSpan SpanOfWanted(bool& any) const;
    TSpan SpanOfCounted(bool& any) const;
    void Include(TSpan& span, bool& any, TPushButton const* button) const;
    int HeldToEnds(int delta) const;
    void ShowIndicator(QLabel* indicator, bool& more, bool wanted, int place);
    void HideIndicators();
    void StopFlick();
    int RestartDragClock();
    bool IsAtEndFor(int delta) const;
    int SnapDistance() const;

    int m_Gap = 0;
    int m_ButtonOffset = 0;
    QPoint m_BackgroundPosition;
    bool const m_Fixed;
    int m_RequestedButtonSize = 0;
    int m_ButtonSize = 0;
    int m_PerpOffset = 0;
    int m_UserButtonSize = -1;
    bool m_UserSizeApplied = false;
    QPoint m_PressPosition;
    QPoint m_LastPosition;
    bool m_Dragging = false;
    int m_AccumulatedDrag = 0;
    int m_IndicatorThickness;
    int m_DragThreshold;
    bool m_MoreAtStart = false;
    bool m_MoreAtEnd = false;
    bool m_SnapDirection = false;
    QLabel* m_UpIndicator;
    QLabel* m_DownIndicator;
    qint64 m_DragClock = -1;
    int m_Velocity = 0;
    QTimer* m_InertiaTimer;
    bool m_DragBlocked = false;
    bool m_DragEnabled = false;
    bool m_NeedThreshold = true;
    bool m_Snap = false;
    bool m_Inertia = true;
    bool m_Clamp = false;
    bool m_UserResizeButtons = false;
    bool m_ToolBarEnabled = true;
    QSharedPointer<QPixmap> m_Background;
    bool m_Repositioning = false;
};
