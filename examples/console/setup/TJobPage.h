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

private:
    void AddOperator();
    void AddStart();
    void AddServer();
    void TakeStart(int index, double value);
    void Sync();

    TJob* m_Job;
    TTextRow* m_Operator = nullptr;
    TEditRow* m_Start = nullptr;
    TEditRow* m_Server = nullptr;
};
