#pragma once

#include "TSetupPage.h"

class TEditRow;
class TMachine;

/// A page on how the sprayer is built. What is accepted here holds at once.
class TSprayerPage : public TSetupPage
{
    Q_OBJECT

protected:
    TSprayerPage(QWidget* parent, TMachine* machine);

    TMachine* Machine() const { return m_Machine; }
    TEditRow* AddRow(QString const& caption);
    static void Store(int setting, double value);

private:
    TMachine* m_Machine;
};
