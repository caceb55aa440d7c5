#pragma once

#include "TSetupPage.h"

class TChoiceRow;

/// What the machine is fitted with, row by row, as far as it belongs on one of the screens. Every choice
/// takes effect at once and stays.
class TMachinePage : public TSetupPage
{
    Q_OBJECT

public:
    struct TEquipment;

    /// \a screen is one of SetupScreens.
    TMachinePage(QWidget* parent, QString const& screen);

    void Sync() override;

private:
    struct TRow
    {
        TChoiceRow* choices;
        TEquipment const* equipment;
    };

    void AddEquipment(TEquipment const& equipment);
    void ShowUnitsAnew();

    QVector<TRow> m_Rows;
};
