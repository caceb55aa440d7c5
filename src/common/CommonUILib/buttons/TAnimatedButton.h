#pragma once

#include "TPushButton.h"

/// A button with a heartbeat for a subclass that draws a moving picture: a timer that runs while the button
/// is shown and not longer. The subclass connects to it and repaints what has moved.
class COMMONUILIB_EXPORT TAnimatedButton : public TPushButton
{
    Q_OBJECT

public:
    /// \a intervalMs is held to at least 1.
    TAnimatedButton(QWidget* parent, int intervalMs, int id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    /// Repeats; a child of the button.
    QTimer* const m_Timer;

private:
    int const m_Interval;
};
