#pragma once

#include "TPushButton.h"

/// A button of the navigation bar: a press brings the mini view, a drag off the bar's right edge the full
/// view.
class COMMONUILIB_EXPORT TNavigationButton : public TPushButton
{
    Q_OBJECT

public:
    using TPushButton::SetIcon;

    TNavigationButton(QWidget* parent, int id);

    void SetIcon(QString const& name, QSize const& size, bool enable) override;
    void SetIcon(QImage const& image, QSize const& size, bool enable) override;

    /// Where the icon stands: centred on the face of the button, which leaves out the shadow at its right and
    /// bottom.
    QPoint GetIconPos() const;

Q_SIGNALS:
    /// The finger left the button at its right edge while it held it.
    void DraggedOffRight(int id);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
};
