#pragma once

#include "TSprayerPage.h"

/// What the nozzles of the sprayer give.
class TNozzlesPage : public TSprayerPage
{
    Q_OBJECT

public:
    TNozzlesPage(QWidget* parent, TMachine* machine);

    void Sync() override;

private:
    TEditRow* m_Nozzles;
};
