#pragma once

#include "TSetupPage.h"

class TChoiceRow;
class TMachine;

/// What the machine is fitted with, row by row, as far as it belongs on one of the screens. Every choice
/// takes effect at once and stays.
class TMachinePage : public TSetupPage
{
    Q_OBJECT

public:
    struct TEquipment;

    /// \a screen is one of SetupScreens. \a machine has to live longer.
    TMachinePage(QWidget* parent, QString const& screen, TMachine* machine);

    void Sync() override;

private:
    struct TRow
    {
        TChoiceRow* choices;
        TEquipment const* equipment;
    };

    void AddEquipment(TEquipment const& equipment);
    void ShowUnitsAnew();

    TMachine* m_Machine;
    QVector<TRow> m_Rows;
};
