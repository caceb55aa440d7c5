#pragma once

#include "CommonUILibExport.h"

#include <QWidget>

class QVBoxLayout;
class TPushButton;

/// A column of widgets in a sunken frame, behind a details button that shows and hides them. What is hidden
/// takes no room, so that the block wants to stand in a layout or a scroll area.
///
/// For layers that exchange height see TStackableWidget. The widgets become children of the block; one that
/// is deleted or given another parent drops out. GUI thread only.
class COMMONUILIB_EXPORT TExpandingCollapsingBlock : public QWidget
{
    Q_OBJECT

public:
    enum State
    {
        STATE_EXPANDED = 0,
        STATE_COLLAPSED = 1
    };

    TExpandingCollapsingBlock(QWidget* parent, State state);

    /// Adds \a widget as the last one, shown while the block is expanded. Does nothing for null and for a
    /// widget that the block stands in.
    void AddWidget(QWidget* widget);
    /// The same at \a index, counted behind the button; as the last one at the number of widgets. An index
    /// out of range does nothing.
    void InsertWidget(int index, QWidget* widget);

    /// The button's main text, which also names it for macro paths, and its second line; empty: none.
    void SetDetailsButtonText(QString const& text, QString const& secondLine);
    void SetDetailsButtonToolTip(QString const& toolTip);
    /// An icon of 42 by 42 at the left; empty: none.
    void SetDetailsButtonIcon(QString const& name);

    /// Whether the block repaints; for filling it while it changes.
    void ToggleUpdates(bool enabled);

public Q_SLOTS:
    /// Turns the block over, as a click of the button does, whose id it takes.
    void OnShowContainingBlock(int id);
    /// Asks whoever switched updates off, by enableUpdates(), to switch them on.
    void EmitEnableUpdates();

Q_SIGNALS:
    /// The block is still collapsed: the last moment to fill it.
    void AboutToExpand();
    /// The block is still expanded.
    void AboutToCollapse();
    void enableUpdates();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowState();
    QRect FrameRect() const;

    TPushButton* m_DetailsButton;
    State m_State;
    QVBoxLayout* m_Layout;
};
