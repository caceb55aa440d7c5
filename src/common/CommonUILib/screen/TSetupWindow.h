#pragma once

#include "TWindow.h"

/// The frame of a setup page: a title line, content below it, tab-like control buttons down the right side,
/// OK and Cancel in the lower right corner. It has a fixed size and place on the view of the setup. For a
/// window that fits its content see TTaskWindow.
///
/// GUI thread only.
class COMMONUILIB_EXPORT TSetupWindow : public TWindow
{
    Q_OBJECT

public:
    using TWindow::AddControlButton;

    explicit TSetupWindow(QWidget* parent);

    /// Lays out all buttons: each control button has the place of its id, whether others are there or not,
    /// and overlaps the one above it; OK takes the corner, Cancel stands left of it, or in the corner where
    /// there is no OK.
    void RepositionButtons();
    /// The size of the content, which stands below the title line. A negative length counts as 0. Holds
    /// until the window changes its size.
    void SetFrameSize(int width, int height);

    void Setup() override;
    void AddControlButton(int id, QString const& icon, QString const& toolTip) override;

Q_SIGNALS:
    /// What is set up has changed so that menus of the setup have to follow.
    void UpdateSetupMenus();
    /// The content was moved by a finger or the wheel.
    void ScrollAreaPanned();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
};
