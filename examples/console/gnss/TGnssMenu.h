#pragma once

#include "TGnssJudge.h"
#include "TMenuSet.h"
#include "TMenuWorker.h"

#include <QObject>

class TMachine;

/// What the position offers in the menus: how good it is, and the ways to what there is to see of it. How the
/// elements look is decided in a thread of its own; what they do is done here.
class TGnssMenu : public QObject
{
    Q_OBJECT

public:
    /// Both have to live longer.
    TGnssMenu(TMachine const& machine, TConsoleMenu* console);

private Q_SLOTS:
    void OnShowFullView();
    /// One of the linked mini windows, counted from 0.
    void OnShowMiniWindow(int window);

private:
    TGnssElements Build();
    TActivationConfig Call(char const* slot, EElementHideMode hideMode, int argument);
    void Look();

    TMachine const& m_Machine;
    TMenuSet m_Menus;
    TGnssJudge m_Judge; // the worker's
    TGnssState m_Posted;
    int m_SameCount = 0;  // of the states posted last
    TMenuWorker m_Worker; // ends before what it uses
};
