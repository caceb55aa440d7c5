#pragma once

#include "TSprayerPage.h"

/// The tank of the sprayer.
class TTankPage : public TSprayerPage
{
    Q_OBJECT

public:
    TTankPage(QWidget* parent, TMachine* machine);

    void Sync() override;

private:
    TEditRow* m_Tank;
};
