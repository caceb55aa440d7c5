#include "TGuidanceMiniWindow.h"

#include "TMachine.h"
#include "TMapWidget.h"

namespace
{
constexpr int SmallMapZoomLevel = 1;
} // namespace

TGuidanceMiniWindow::TGuidanceMiniWindow(TMachine const& machine)
    : TMiniWindow(nullptr)
    , m_Machine(machine)
{
    SetTitle(tr("Guidance"));
}

void TGuidanceMiniWindow::Setup()
{
    TMiniWindow::Setup();
    m_Map = new TMapWidget(GetWindowContent(), m_Machine);
    m_Map->SetZoomLevel(SmallMapZoomLevel);
    m_Map->setGeometry(GetWindowContent()->rect());
}

void TGuidanceMiniWindow::UpdateView()
{
    if (m_Map)
        m_Map->Follow();
}
