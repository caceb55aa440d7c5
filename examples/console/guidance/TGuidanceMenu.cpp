#include "TGuidanceMenu.h"

#include "MenuViews.h"
#include "TGuidanceFullWindow.h"
#include "TGuidanceModule.h"
#include "TMachine.h"

namespace
{
constexpr double CentimetresPerMetre = 100.0;
constexpr int FarthestZoom = 0;
} // namespace

TGuidanceMenu::TGuidanceMenu(TMachine* machine, TGuidanceFullWindow* window, TConsoleMenu* console)
    : m_Machine(machine)
    , m_Window(window)
    , m_Menus(console)
    , m_Worker(console, QStringLiteral("guidance menu"))
{
    m_Judge.SetElements(Build());
    connect(machine, &TMachine::SwitchesChanged, this, &TGuidanceMenu::Look);
    connect(machine, &TMachine::Moved, this, &TGuidanceMenu::Look);
    connect(window, &TGuidanceFullWindow::ZoomChanged, this, &TGuidanceMenu::Look);
    Look();
}

TGuidanceElements TGuidanceMenu::Build()
{
    TGuidanceElements elements;
    auto const guidance = m_Menus.AddToRoot(
        {QStringLiteral("guidance"), tr("Guidance"), QStringLiteral("icon-guidance")}, false);
    TMenuSet::TItem const record{QStringLiteral("record"), tr("Record coverage"),
                                 QStringLiteral("icon-record")};
    elements.record = m_Menus.Add(guidance.place, record, Call("OnToggleRecording"));
    elements.recordShortcut = m_Menus.AddShortcut(record, Call("OnToggleRecording"));
    auto const lines = m_Menus.AddMenu(guidance.place, {QStringLiteral("lines"), tr("Lines"), {}});
    elements.lines = lines.opener;
    BuildLines(lines.place, &elements);
    BuildMap(m_Menus.AddMenu(guidance.place, {QStringLiteral("map"), tr("Map"), {}}).place, &elements);
    return elements;
}

void TGuidanceMenu::BuildLines(TMenuSet::TPlace const& lines, TGuidanceElements* elements)
{
    elements->shiftLeft = m_Menus.Add(
        lines,
        {QStringLiteral("line-shift-left"), tr("Shift the lines to the left"), QStringLiteral("icon-left")},
        Call("OnShiftLeft"));
    elements->shiftRight = m_Menus.Add(lines,
                                       {QStringLiteral("line-shift-right"),
                                        tr("Shift the lines to the right"), QStringLiteral("icon-right")},
                                       Call("OnShiftRight"));
    elements->centre = m_Menus.Add(lines, {QStringLiteral("line-centre"), tr("Centre"), {}},
                                   Call("OnCentreLines", ELEMENT_HIDE_MENU));
}

void TGuidanceMenu::BuildMap(TMenuSet::TPlace const& map, TGuidanceElements* elements)
{
    elements->zoomIn = m_Menus.Add(
        map, {QStringLiteral("zoom-in"), tr("Show the map larger"), QStringLiteral("icon-zoom-in")},
        Call("OnZoomIn"));
    elements->zoomOut = m_Menus.Add(
        map, {QStringLiteral("zoom-out"), tr("Show the map smaller"), QStringLiteral("icon-zoom-out")},
        Call("OnZoomOut"));
    elements->farView = m_Menus.Add(map, {QStringLiteral("far-view"), tr("Far view"), {}},
                                    Call("OnShowFarView", ELEMENT_HIDE_ALL));
}

TActivationConfig TGuidanceMenu::Call(char const* slot, EElementHideMode hideMode)
{
    return {this, slot, hideMode, TActivationConfig::NoArgument};
}

TGuidanceState TGuidanceMenu::State() const
{
    TGuidanceState state;
    state.isRecording = m_Machine->IsRecording();
    state.hasLines = m_Machine->Field().hasLines;
    state.hasFix = m_Machine->Fix().IsValid();
    state.areLinesShifted = m_Machine->LineShift() != 0.0;
    state.canShiftLeft = m_Machine->CanShiftLines(-TMachine::LineShiftStep);
    state.canShiftRight = m_Machine->CanShiftLines(TMachine::LineShiftStep);
    state.lightBarStep = m_Machine->LightBarStep();
    state.centimetresOffLine = qRound(qAbs(m_Machine->OffLine()) * CentimetresPerMetre);
    state.zoomLevel = m_Window->ZoomLevel();
    return state;
}

// The worker sleeps on while nothing changes that it judges.
void TGuidanceMenu::Look()
{
    TGuidanceState const state = State();
    if (m_Posted == state)
        return;
    m_Posted = state;
    m_Worker.Post([this, state] { m_Judge.Take(state); });
}

void TGuidanceMenu::OnToggleRecording()
{
    m_Machine->SetRecording(!m_Machine->IsRecording());
}

void TGuidanceMenu::OnShiftLeft()
{
    m_Machine->ShiftLines(-TMachine::LineShiftStep);
}

void TGuidanceMenu::OnShiftRight()
{
    m_Machine->ShiftLines(TMachine::LineShiftStep);
}

void TGuidanceMenu::OnCentreLines()
{
    m_Machine->CentreLines();
}

void TGuidanceMenu::OnZoomIn()
{
    ShowZoomLevel(m_Window->ZoomLevel() + 1);
}

void TGuidanceMenu::OnZoomOut()
{
    ShowZoomLevel(m_Window->ZoomLevel() - 1);
}

void TGuidanceMenu::OnShowFarView()
{
    ShowZoomLevel(FarthestZoom);
}

// The menus stand on every canvas: what is done to the map is to be seen.
void TGuidanceMenu::ShowZoomLevel(int level)
{
    MenuViews::ShowFullView(TGuidanceModule::Id());
    m_Window->SetZoomLevel(level);
}
