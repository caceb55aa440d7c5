#pragma once

#include "TSetupPage.h"

class TEditRow;
class TJob;
class TTextRow;

/// Who works on what since when, and where the results are sent.
class TJobPage : public TSetupPage
{
    Q_OBJECT

public:
    TJobPage(QWidget* parent, TJob* job);

    void Sync() override;

private:
    void AddOperator();
    void AddStart();
    void AddServer();
    void TakeStart(int index, double value);

    TJob* m_Job;
    TTextRow* m_Operator = nullptr;
    TEditRow* m_Start = nullptr;
    TEditRow* m_Server = nullptr;
};
