#pragma once

#include "TSetupPage.h"

#include <QStringList>

class TChoiceRow;
class TEditRow;
class TSelectWidget;

/// What the screen looks like, and how the operator reads values, dates and times.
class TDisplayPage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TDisplayPage(QWidget* parent);

    /// Takes the choices up from the settings.
    void Sync();

private:
    void AddButtonSize();
    void AddUnits();
    void AddLanguage();
    void AddDates();
    void AddClock();

    TChoiceRow* m_ButtonSize = nullptr;
    TEditRow* m_Units = nullptr;
    TEditRow* m_Language = nullptr;
    TChoiceRow* m_Clock = nullptr;
    TSelectWidget* m_Dates = nullptr;
    QStringList m_Locales; // by the rows of the list
};
