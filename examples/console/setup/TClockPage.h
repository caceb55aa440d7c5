#pragma once

#include "TSetupPage.h"

class TChoiceRow;
class TSelectWidget;

/// How the operator reads dates and times.
class TClockPage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TClockPage(QWidget* parent);

    void Sync() override;

private:
    void AddDates();
    void AddClock();

    TSelectWidget* m_Dates = nullptr;
    TChoiceRow* m_Clock = nullptr;
};
