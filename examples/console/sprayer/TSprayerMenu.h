#pragma once

#include "TMenuSet.h"
#include "TMenuWorker.h"
#include "TSprayerJudge.h"

#include <QObject>

#include <optional>

class TMachine;

/// What the sprayer offers in the menus: its switches and its tank. How the elements look is decided in a
/// thread of its own; what they do is done here.
class TSprayerMenu : public QObject
{
    Q_OBJECT

public:
    /// Both have to live longer.
    TSprayerMenu(TMachine* machine, TConsoleMenu* console);

Q_SIGNALS:
    /// The operator wants the tank emptied; he has not been asked twice yet.
    void DrainRequested();

private Q_SLOTS:
    void OnToggleMaster();
    void OnToggleSection(int section);
    void OnSwitchAllOn();
    void OnFill();
    void OnDrain();

private:
    TSprayerElements Build();
    void BuildSections(TMenuSet::TPlace const& sections, TSprayerElements* elements);
    void BuildTank(TMenuSet::TPlace const& tank, TSprayerElements* elements);
    TActivationConfig Call(char const* slot, EElementHideMode hideMode = ELEMENT_HIDE_NONE,
                           int argument = TActivationConfig::NoArgument);
    TSprayerState State() const;
    void Look();

    TMachine* m_Machine;
    TMenuSet m_Menus;
    TSprayerJudge m_Judge; // the worker's
    std::optional<TSprayerState> m_Posted;
    TMenuWorker m_Worker; // ends before what it uses
};
