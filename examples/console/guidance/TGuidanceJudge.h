#pragma once

#include "LightBarScale.h"
#include "TMenuElement.h"

/// What the guidance's menus have to know of machine and map, at one moment.
struct TGuidanceState
{
    bool isRecording = false;
    bool hasLines = false;
    bool hasFix = false;
    bool areLinesShifted = false;
    bool canShiftLeft = false;
    bool canShiftRight = false;
    int centimetresOffLine = 0; ///< to either side
    int lightBarStep = LightBarScale::StandardStep;
    int zoomLevel = 0;

    bool operator==(TGuidanceState const& other) const;
    bool operator!=(TGuidanceState const& other) const { return !(*this == other); }
};

/// The elements of the guidance's menus that change.
struct TGuidanceElements
{
    TMenuElement record;
    TMenuElement recordShortcut;
    TMenuElement lines;
    TMenuElement shiftLeft;
    TMenuElement shiftRight;
    TMenuElement centre;
    TMenuElement zoomIn;
    TMenuElement zoomOut;
    TMenuElement farView;
};

/// Decides how they look: the lines have the colour of the light bar. For one thread.
class TGuidanceJudge
{
public:
    /// How much nearer than where the light bar changes its colour the line has to be for a better colour to
    /// come back: one that changes with every breath tells nothing.
    static constexpr int Slack = 2;

    void SetElements(TGuidanceElements const& elements) { m_Elements = elements; }
    void Take(TGuidanceState const& state);

private:
    int ControlOfLines(TGuidanceState const& state);

    TGuidanceElements m_Elements;
    int m_LinesControl = MENU_CONTROL_GOOD; // as long as there are lines
};
