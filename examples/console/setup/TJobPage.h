#pragma once

#include "TSetupPage.h"

class TEditRow;
class TJob;

/// Who works on what since when, and where the results are sent.
class TJobPage : public TSetupPage
{
    Q_OBJECT

public:
    TJobPage(QWidget* parent, TJob* job);

private:
    void AddStart();
    void AddServer();
    void TakeStart(int index, double value);
    void Sync();

    TJob* m_Job;
    TEditRow* m_Start = nullptr;
    TEditRow* m_Server = nullptr;
};
