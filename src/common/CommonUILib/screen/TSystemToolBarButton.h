#pragma once

#include "TPushButton.h"

/// A button of the system tool bar: the skin of the bar and an icon of STANDARD_ICON_SIZE. The bar lays it
/// out.
class COMMONUILIB_EXPORT TSystemToolBarButton : public TPushButton
{
    Q_OBJECT

public:
    using TPushButton::SetIcon;

    explicit TSystemToolBarButton(QWidget* parent);

    /// STANDARD_ICON_SIZE square, whatever \a size says.
    void SetIcon(QString const& name, QSize const& size, bool enable) override;
};
