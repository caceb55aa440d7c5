#pragma once

#include "TMiniWindow.h"

class TMachine;
class TMapWidget;

/// The map in small.
class TGuidanceMiniWindow : public TMiniWindow
{
    Q_OBJECT

public:
    explicit TGuidanceMiniWindow(TMachine const& machine);

    void Setup() override;
    void UpdateView() override;

private:
    TMachine const& m_Machine;
    TMapWidget* m_Map = nullptr;
};
