#pragma once

#include "CommonUILibExport.h"
#include "TMMICapableWeakRef.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QVector>

class QTimer;
class TMMIHighlightWidget;

/// Whether \a a comes before \a b when stops are taken row by row: lower precedence first, then the upper
/// one, and in one row the left one. Centres up to 2 pixels apart in height are one row, so the order is not
/// transitive. False if one of the widgets is gone.
COMMONUILIB_EXPORT bool mmiRowFirstCompare(QPair<TMMICapableWeakRef, QPoint> const& a,
                                           QPair<TMMICapableWeakRef, QPoint> const& b);
/// The same with the axes exchanged: column by column from the left, each from its top.
COMMONUILIB_EXPORT bool mmiColumnFirstCompare(QPair<TMMICapableWeakRef, QPoint> const& a,
                                              QPair<TMMICapableWeakRef, QPoint> const& b);

/// Brings the hardware wheel with its enter and back keys to the widgets. It keeps a stack of the widgets
/// that the operator has entered; the wheel walks over the stops of the top one, in their geometric order,
/// and a TMMIHighlightWidget glows around the stop it stands on. It has no input of its own: the host calls
/// the On... functions. One for each screen, which shares it by TScreen::SetMMINavigator().
///
/// A widget takes part by deriving from KVN::MMICapableWidget. Its handlers may delete any widget, enter and
/// leave levels, and delete the navigator itself; its queries must not. Widgets are held weakly and need not
/// tell that they die.
///
/// Nothing shows and the keys do nothing until the first step of the wheel, and again 30 s after the last
/// one. GUI thread only.
class COMMONUILIB_EXPORT TMMICapableWidgetNavigator : public QObject
{
    Q_OBJECT

public:
    /// One entered level.
    struct TMMIFocusFrame
    {
        TMMICapableWeakRef widget; ///< its stops are the list that the wheel walks
        TMMICapableWeakRef
            selectionBefore;       ///< what was selected on the level below when this one was entered
        TMMICapableWeakRef origin; ///< the child through which it was entered; a macro path knows its name
        bool macroStep = false;    ///< a macro path passes through: no selection shows here
        qint64 time = 0;           ///< ms, of entering
    };

    /// Enters \a root, the level that is never left.
    explicit TMMICapableWidgetNavigator(KVN::MMICapableWidget* root);
    ~TMMICapableWidgetNavigator() override;

    /// The stops beneath \a object in the order of the object tree: its nearest MMI capable descendants,
    /// through plain widgets and transparent ones, but not through excluded ones. Hidden and disabled ones
    /// are among them.
    QList<TMMICapableWeakRef> FindMMICapableChildren(QObject* object) const;
    /// The stops beneath \a widget in the order of the wheel; none for one that is gone.
    QList<TMMICapableWeakRef> FindMMICapableChildren(TMMICapableWeakRef const& widget) const;
    /// Whether the wheel may stop where it stands: on a living, active widget that the level allows.
    bool IsCurrentWidgetNavigatable() const;

    /// A step of the wheel: to the owner of the wheel if one is entered, else to the stop before or after,
    /// around the ends and past those that are not navigatable. The highlight follows at the next tick.
    void OnWheelLeft();
    void OnWheelRight();
    /// The enter key, to the selected widget. What that answers is entered.
    void OnEnter();
    /// The back key, to the widget entered last, which decides whether its level is left. False if nobody was
    /// asked: while nothing is selected and on the lowest level.
    bool OnBack();
    /// A long press of the back key: leaves the level without asking.
    void OnHoldBack();

    /// Enters the entry widget of \a widget. Nothing for null, for one that is not MMI capable and for an
    /// excluded one.
    void PushWidget(QWidget* widget);
    /// Enters \a widget, with its first stop selected. Nothing for one without stops, unless it owns the
    /// wheel, and for the one entered last. Where the widget has a selection delay, the keys rest at once.
    void PushMMICapableWidget(TMMICapableWeakRef const& widget, TMMICapableWeakRef const& origin,
                              bool macroStep);
    /// Leaves the top level if \a popTop, and then, for as long as one is on top, each level that is older
    /// than 500 ms and has lost its widget, is inactive, or was only passed through by a macro path. The
    /// operator then stands where he stood before.
    void PopMMICapableWidget(bool popTop);

    /// Finds the stops of the top level anew and keeps the selected one.
    void RefreshChildren();
    /// Finds the stops of the top level anew and selects \a select, or the last stop if that is none of them.
    void RefreshChildren(TMMICapableWeakRef const& select);

    /// Brings the selection on the screen in line with the state; calls the widgets it leaves and comes to.
    void UpdateSelected();

    /// Walks down from \a root by itself, a level with each tick: each name of \a path is the object name of
    /// the stop to enter. Levels above \a root that the path does not share are dropped; a root that is
    /// nowhere entered is entered.
    ///
    /// \a method, a slot of \a callback with one bool, is called with true when the last name has been
    /// entered, and with false when that has not happened within a second; names that turn up even later are
    /// still entered, in silence. A path of which every name is entered already reports nothing. \a callback
    /// may be null, and may die.
    void FollowPath(KVN::MMICapableWidget* root, QList<QString> const& path, QObject* callback,
                    QString const& method);
    /// Enters as many names of the path as can be entered now.
    void FollowActiveMacroPath();

    /// Follows the selected widget with the highlight. Consumes nothing.
    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    /// The tick, every 100 ms: drops levels that are gone, leaves stops that are hidden, and works off the
    /// macro path. An idle one neither allocates nor paints.
    void UpdateFocus();

private:
    TMMICapableWeakRef TopWidget() const;
    TMMICapableWeakRef Current() const;
    TMMICapableWeakRef SelectionToShow() const;
    bool IsSelectionAwake() const;
    bool IsTopFrameSpent() const;
    int FrameOf(TMMICapableWeakRef const& widget) const;

    void SetChildren(QList<TMMICapableWeakRef> const& stops, TMMICapableWeakRef const& carriedOver);
    void Step(int direction);
    void LeaveUnnavigatableCurrent();

    void MakeHighlight();
    void HideHighlight();
    void ShowHighlight();
    void LayHighlightAround(QWidget* widget);
    void ChangeSelected();

    void ReportFailedPath();
    static void Report(QPointer<QObject> const& callback, QString const& method, bool arrived);

    QTimer* m_FocusTimer;
    QVector<TMMIFocusFrame> m_Stack;
    QList<TMMICapableWeakRef> m_Children;
    int m_Current = 0; // of m_Children, and valid while that is not empty
    QPointer<TMMIHighlightWidget> m_Highlight;
    TMMICapableWeakRef m_Selected;
    qint64 m_LastInput = 0;
    QList<QString> m_MacroPath;
    qint64 m_MacroStart = 0;
    bool m_Active = false;
    QPointer<QObject> m_CallbackObject;
    QString m_CallbackMethod;
    bool m_ChangingSelected = false;
};
