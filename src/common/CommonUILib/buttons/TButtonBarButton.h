#pragma once

#include "TPushButton.h"

/// A button of a TButtonBar: standard skin, text of 16 pixels, 70 pixels high. Its id is -1: what it does
/// hangs on clicked().
class COMMONUILIB_EXPORT TButtonBarButton : public TPushButton
{
    Q_OBJECT

public:
    explicit TButtonBarButton(QWidget* parent);
};
