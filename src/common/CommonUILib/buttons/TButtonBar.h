#pragma once

#include "TBaseToolBar.h"

/// The row of buttons at the lower edge of a popup: 70 pixels high, the visible buttons share its width, the
/// highest id at the left. Not to be dragged. For bars that scroll see TTaskToolBar.
class COMMONUILIB_EXPORT TButtonBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;
    using TBaseToolBar::AssignButton;

    explicit TButtonBar(QWidget* parent);

    /// As the base's, for a button that is \a enabled or not.
    void AssignButton(int id, QString const& icon, bool enabled, QString const& text, QString const& toolTip);
    /// The buttons that remain share the width anew.
    void SetButtonVisibility(int id, bool visible) override;
    TPushButton* GetButton(int id) override;
    /// Sets the width of the bar and of its buttons.
    void SetFixedWidth(int width);
    /// Gives every button its share of the width.
    void ResizeButtons();

protected:
    TPushButton* GenerateButton(int id) override;
    void ArrangeButtons() override;

private:
    int SharedWidth();
};
