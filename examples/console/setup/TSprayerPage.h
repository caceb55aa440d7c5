#pragma once

#include "TSetupPage.h"

class TEditRow;
class TMachine;
class TValueRow;

/// How the sprayer is built: its tank, its nozzles and its boom. What is accepted here holds at once.
class TSprayerPage : public TSetupPage
{
    Q_OBJECT

public:
    TSprayerPage(QWidget* parent, TMachine* machine);

private:
    TEditRow* AddRow(QString const& caption);
    void AddTank();
    void AddNozzles();
    void AddSections();
    void Sync();

    TMachine* m_Machine;
    TEditRow* m_Tank = nullptr;
    TEditRow* m_Nozzles = nullptr;
    QVector<TEditRow*> m_Sections;
    TValueRow* m_Width = nullptr;
};
