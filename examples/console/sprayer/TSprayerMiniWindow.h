#pragma once

#include "TMiniWindow.h"

class TMachine;
class TTankGauge;
class TValueField;

/// The sprayer in small: the sections, the tank and what flows.
class TSprayerMiniWindow : public TMiniWindow
{
    Q_OBJECT

public:
    explicit TSprayerMiniWindow(TMachine* machine);

    void Setup() override;
    void UpdateView() override;

private:
    TMachine* m_Machine;
    TTankGauge* m_Tank = nullptr;
    TValueField* m_Flow = nullptr;
    TValueField* m_Rate = nullptr;
};
