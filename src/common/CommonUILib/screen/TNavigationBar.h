#pragma once

#include "TBaseToolBar.h"

/// The strip down the left edge of the screen with one button for each view. The special bar stands below it
/// and holds setup and action buttons; its buttons are anchored at the bottom.
class COMMONUILIB_EXPORT TNavigationBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;
    using TBaseToolBar::AssignButton;

    /// \a background fills the strip with its picture; without it the view shows through.
    TNavigationBar(QWidget* parent, bool special, bool background);

    void AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip) override;
    TPushButton* GetButton(int id) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    TPushButton* GenerateButton(int id) override;
    void ArrangeButtons() override;
};
