#pragma once

#include "TMessageDialog.h"

/// Tells why a virtual tank switch does not work. GUI thread only.
class COMMONUILIB_EXPORT TTankStatusWarning : public TMessageDialog
{
    Q_OBJECT

public:
    explicit TTankStatusWarning(QWidget* parent);

public Q_SLOTS:
    /// Shows the warning, not modally.
    void OnTankStatusWarning();
};
