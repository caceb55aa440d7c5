#pragma once

#include "TBaseToolBar.h"

/// The tool bar down one side of a full view, below its title bar and above the system tool bar. It flicks
/// and comes to rest on whole buttons. For the bar of a task window see TTaskToolBar.
class COMMONUILIB_EXPORT TFullViewSideToolBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;

    /// \a farEdge: the buttons stand in reverse order. \a withBackground fills the bar with its picture.
    TFullViewSideToolBar(QWidget* parent, bool farEdge, bool withBackground);

protected:
    TPushButton* GenerateButton(int id) override;
    void ArrangeButtons() override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool const m_WithBackground;
};
