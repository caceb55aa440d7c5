#pragma once

#include "TWindow.h"

/// A small window that flies out over the camera's picture: darker, brighter, done. The screen is told of it,
/// so that the picture stands aside.
class TBrightnessFlyout : public TWindow
{
    Q_OBJECT

public:
    explicit TBrightnessFlyout(QWidget* parent);

    void Setup() override;

Q_SIGNALS:
    /// By one step, -1 or 1.
    void BrightnessStepped(int step);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool m_IsOut = false;
};
