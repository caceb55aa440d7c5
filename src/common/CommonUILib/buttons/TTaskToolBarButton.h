#pragma once

#include "TPushButton.h"

/// A button of a task window's or full view's tool bar: flat skin of the bar, icon of TASK_TOOLBAR_ICON_SIZE,
/// and the wheel's glow.
class COMMONUILIB_EXPORT TTaskToolBarButton : public TPushButton
{
    Q_OBJECT

public:
    using TPushButton::SetIcon;

    TTaskToolBarButton(QWidget* parent, int id);

    /// TASK_TOOLBAR_ICON_SIZE square, whatever \a size says.
    void SetIcon(QString const& name, QSize const& size, bool enable) override;
};
