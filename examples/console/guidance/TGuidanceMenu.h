#pragma once

#include "TGuidanceJudge.h"
#include "TMenuSet.h"
#include "TMenuWorker.h"

#include <QObject>

#include <optional>

class TGuidanceFullWindow;
class TMachine;

/// What the guidance offers in the menus: the record, the shift of the lines and the map. How the elements
/// look is decided in a thread of its own; what they do is done here.
class TGuidanceMenu : public QObject
{
    Q_OBJECT

public:
    /// All have to live longer.
    TGuidanceMenu(TMachine* machine, TGuidanceFullWindow* window, TConsoleMenu* console);

private Q_SLOTS:
    void OnToggleRecording();
    void OnShiftLeft();
    void OnShiftRight();
    void OnCentreLines();
    void OnZoomIn();
    void OnZoomOut();
    void OnShowFarView();

private:
    TGuidanceElements Build();
    void BuildLines(TMenuSet::TPlace const& lines, TGuidanceElements* elements);
    void BuildMap(TMenuSet::TPlace const& map, TGuidanceElements* elements);
    TActivationConfig Call(char const* slot, EElementHideMode hideMode = ELEMENT_HIDE_NONE);
    TGuidanceState State() const;
    void Look();
    void ShowZoomLevel(int level);

    TMachine* m_Machine;
    TGuidanceFullWindow* m_Window;
    TMenuSet m_Menus;
    TGuidanceJudge m_Judge; // the worker's
    std::optional<TGuidanceState> m_Posted;
    TMenuWorker m_Worker; // ends before what it uses
};
