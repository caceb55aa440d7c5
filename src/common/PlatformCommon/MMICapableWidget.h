#pragma once

#include "EMMIWidgetBehaviour.h"
#include "PlatformCommonExport.h"

#include <QRect>

class QWidget;

namespace KVN
{
/// The mixin by which a widget takes part in wheel navigation. A class inherits it beside its Qt base. The
/// navigator finds the stops of the widget on top, highlights one, and calls the virtuals below. GUI thread
/// only.
class PLATFORMCOMMON_EXPORT MMICapableWidget
{
public:
    virtual ~MMICapableWidget();

    /// A left step of the wheel while the widget owns the wheel. The base does nothing.
    virtual void OnMMIWheelLeft();
    /// A right step of the wheel while the widget owns the wheel. The base does nothing.
    virtual void OnMMIWheelRight();
    /// The back key, while the widget is entered. True asks the navigator to leave it. The base answers true.
    virtual bool OnMMIBack();
    /// \a child became the selection: scroll it into view. The base does nothing.
    virtual void OnMMIHighlightChild(MMICapableWidget* child);
    /// This widget became the selection. The base does nothing.
    virtual void OnMMIHighlight();
    /// This widget ceased to be the selection. The base does nothing.
    virtual void OnMMIUnHighlight();
    /// Whether the navigator draws its glow around the selected widget; false for a widget that shows the
    /// selection itself. The base answers what SetUseDefaultMMIHighlight() set, true at first.
    virtual bool UseDefaultMMIHighlight();
    /// The enter key. The result, if not null, is the widget to descend into. The base gives
    /// GetMMIEntryWidget().
    virtual MMICapableWidget* OnMMIEnter();
    /// The base answers what SetMMIBehaviour() set, MMI_NORMAL at first.
    virtual EMMIWidgetBehaviour GetMMIBehaviour();
    /// Coarse place among the siblings, lower first. The base answers 0.
    virtual unsigned GetMMISortPrecedence();
    /// True to order the children by columns instead of rows. The base answers false.
    virtual bool GetMMIColumnFirst();
    /// The widget whose children are navigated when this one is entered. The base answers this widget.
    virtual MMICapableWidget* GetMMIEntryWidget();
    /// Asked of the selected child when a level is entered: true keeps it selectable at the end of the new
    /// level. The base answers false.
    virtual bool GetMMICarryOverSelection();
    /// Whether the selection vanishes after 30 s without the wheel while this widget is on top. The base
    /// answers true.
    virtual bool GetMMITimeoutEnabled() const;
    /// Milliseconds for which nothing is highlighted after this widget was entered. The base answers 0.
    virtual unsigned GetMMISelectionDelay();
    /// May the wheel stop on \a child? The base answers whether some part of the child is within the visible
    /// part of its parent; scrolling containers answer true, since they bring the child in. False for null.
    virtual bool IsMMIChildNavigatable(MMICapableWidget* child) const;

    /// This object as a widget; null when it is none.
    QWidget* Widget();
    QWidget const* Widget() const;

    /// The rectangle of the highlight: the widget's own, in the coordinates of \a reference. Empty without a
    /// widget or a reference.
    QRect GetMMIHighlightRect(QWidget* reference);

    /// Visible and enabled.
    bool IsMMIWidgetActive() const;
    /// Enabled, and visible as soon as \a other is; false for null.
    bool IsMMIWidgetActiveTo(MMICapableWidget* other) const;

    void SetMMIBehaviour(EMMIWidgetBehaviour behaviour);
    void SetUseDefaultMMIHighlight(bool use);

protected:
    MMICapableWidget() = default;
    MMICapableWidget(MMICapableWidget const&) = delete;
    MMICapableWidget& operator=(MMICapableWidget const&) = delete;

private:
    EMMIWidgetBehaviour m_MMIBehaviour = MMI_NORMAL;
    bool m_UseDefaultMMIHighlight = true;
};
} // namespace KVN
