#include "TGuidanceJudge.h"

#include "TMapView.h"

#include <QCoreApplication>

namespace
{
QString Translate(char const* text)
{
    return QCoreApplication::translate("TGuidanceJudge", text);
}

int ControlAt(int centimetres, int step)
{
    int const lights = LightBarScale::LitLights(centimetres, LightBarScale::Centimetres(step));
    if (lights <= LightBarScale::GreenLights)
        return MENU_CONTROL_GOOD;
    return lights <= LightBarScale::YellowLights ? MENU_CONTROL_FAIR : MENU_CONTROL_BAD;
}

static_assert(MENU_CONTROL_GOOD < MENU_CONTROL_FAIR && MENU_CONTROL_FAIR < MENU_CONTROL_BAD);
} // namespace

bool TGuidanceState::operator==(TGuidanceState const& other) const
{
    return isRecording == other.isRecording && hasLines == other.hasLines && hasFix == other.hasFix &&
           areLinesShifted == other.areLinesShifted && canShiftLeft == other.canShiftLeft &&
           canShiftRight == other.canShiftRight && centimetresOffLine == other.centimetresOffLine &&
           lightBarStep == other.lightBarStep && zoomLevel == other.zoomLevel;
}

void TGuidanceJudge::Take(TGuidanceState const& state)
{
    TElementLook const record{state.isRecording ? MENU_CONTROL_ON : MENU_CONTROL_PLAIN, true,
                              state.isRecording ? Translate("Recording of the coverage is on")
                                                : Translate("Recording of the coverage is off")};
    m_Elements.record.Show(record);
    m_Elements.recordShortcut.Show(record);
    m_Elements.lines.Show({ControlOfLines(state)});
    m_Elements.shiftLeft.Show({MENU_CONTROL_PLAIN, state.canShiftLeft});
    m_Elements.shiftRight.Show({MENU_CONTROL_PLAIN, state.canShiftRight});
    m_Elements.centre.Show({MENU_CONTROL_PLAIN, state.areLinesShifted});
    m_Elements.zoomIn.Show({MENU_CONTROL_PLAIN, state.zoomLevel < TMapView::ZoomLevelCount - 1});
    m_Elements.zoomOut.Show({MENU_CONTROL_PLAIN, state.zoomLevel > 0});
    m_Elements.farView.Show({state.zoomLevel == 0 ? MENU_CONTROL_ON : MENU_CONTROL_PLAIN});
}

// Worse at once, better only with some slack.
int TGuidanceJudge::ControlOfLines(TGuidanceState const& state)
{
    if (!state.hasLines || !state.hasFix)
        return MENU_CONTROL_PLAIN;
    m_LinesControl = qBound(ControlAt(state.centimetresOffLine, state.lightBarStep), m_LinesControl,
                            ControlAt(state.centimetresOffLine + Slack, state.lightBarStep));
    return m_LinesControl;
}
