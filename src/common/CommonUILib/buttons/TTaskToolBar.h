#pragma once

#include "TBaseToolBar.h"

/// The tool bar of a task window. It fits itself to its buttons and can be dragged, without a flick, where it
/// is cut off. For the bar at the side of a full view see TFullViewSideToolBar.
class COMMONUILIB_EXPORT TTaskToolBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;

    TTaskToolBar(QWidget* parent, eToolBarLayouts layout);

protected:
    TPushButton* GenerateButton(int id) override;
    void ArrangeButtons() override;

private:
    int m_ButtonHeight = 0;
};
