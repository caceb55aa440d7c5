#pragma once

#include "TSetupPage.h"

class TEditRow;

/// In which units the operator reads values.
class TUnitsPage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TUnitsPage(QWidget* parent);

    void Sync() override;

private:
    TEditRow* m_Units;
};
