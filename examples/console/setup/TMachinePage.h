#pragma once

#include "TSetupPage.h"

class TChoiceRow;

/// What the machine is fitted with, row by row. Every choice takes effect at once and stays.
class TMachinePage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TMachinePage(QWidget* parent);

    /// Takes the choices up from the settings.
    void Sync();

private:
    void ShowUnitsAnew();

    QVector<TChoiceRow*> m_Rows;
};
