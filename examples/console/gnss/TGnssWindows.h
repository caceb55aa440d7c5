#pragma once

#include "TFullWindow.h"
#include "TMiniWindow.h"

class TMachine;
class TSignalBars;
class TSkyPlot;
class TTablePanel;

/// The first of the linked mini windows: the fix in numbers.
class TGnssFixMiniWindow : public TMiniWindow
{
    Q_OBJECT

public:
    explicit TGnssFixMiniWindow(TMachine const& machine);

    void Setup() override;
    void UpdateView() override;

private:
    TMachine const& m_Machine;
    TTablePanel* m_Table = nullptr;
};

/// The second of the linked mini windows: the sky.
class TGnssSkyMiniWindow : public TMiniWindow
{
    Q_OBJECT

public:
    explicit TGnssSkyMiniWindow(TMachine const& machine);

    void Setup() override;
    void UpdateView() override;

private:
    TMachine const& m_Machine;
    TSkyPlot* m_Sky = nullptr;
};

/// Everything about the position: sky, numbers and signals.
class TGnssFullWindow : public TFullWindow
{
    Q_OBJECT

public:
    TGnssFullWindow(QWidget* canvas, TMachine const& machine);

    void Setup() override;
    void Refresh() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Arrange();

    TMachine const& m_Machine;
    TSkyPlot* m_Sky = nullptr;
    TTablePanel* m_Table = nullptr;
    TSignalBars* m_Bars = nullptr;
};
