#pragma once

#include "TSetupPage.h"

class TChoiceRow;
class TPushButton;
class TValueField;

/// What the console lets the operator hear.
class TSoundPage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TSoundPage(QWidget* parent);

    void Sync() override;

private:
    QWidget* MakeVolume();
    TPushButton* MakeStep(QWidget* parent, QString const& icon, QString const& toolTip, int step);

    TChoiceRow* m_Sounds;
    TPushButton* m_Quieter = nullptr;
    TPushButton* m_Louder = nullptr;
    TValueField* m_Volume = nullptr;
};
