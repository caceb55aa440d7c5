#include "TGnssWindows.h"

#include "FixRows.h"
#include "TMachine.h"
#include "TSignalBars.h"
#include "TSkyPlot.h"
#include "TUnitSettings.h"

namespace
{
constexpr int RefreshInterval = 200;
constexpr int SmallRowHeight = 27;
constexpr int SmallTextSize = 16;
constexpr int RowHeight = 42;
constexpr int TextSize = 20;
constexpr int RowCount = 8;
constexpr int Margin = 16;
constexpr int TableHeight = RowCount * RowHeight;
} // namespace

TGnssFixMiniWindow::TGnssFixMiniWindow(TMachine const& machine)
    : TMiniWindow(nullptr)
    , m_Machine(machine)
{
    SetTitle(tr("Position"));
}

void TGnssFixMiniWindow::Setup()
{
    TMiniWindow::Setup();
    m_Table = new TTablePanel(GetWindowContent(), SmallRowHeight, SmallTextSize);
    m_Table->setGeometry(GetWindowContent()->rect());
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TGnssFixMiniWindow::UpdateView);
    UpdateView();
}

void TGnssFixMiniWindow::UpdateView()
{
    if (m_Table)
        m_Table->SetRows(FixRows(m_Machine));
}

TGnssSkyMiniWindow::TGnssSkyMiniWindow(TMachine const& machine)
    : TMiniWindow(nullptr)
    , m_Machine(machine)
{
    SetTitle(tr("Satellites"));
}

void TGnssSkyMiniWindow::Setup()
{
    TMiniWindow::Setup();
    m_Sky = new TSkyPlot(GetWindowContent());
    m_Sky->setGeometry(GetWindowContent()->rect());
    UpdateView();
}

void TGnssSkyMiniWindow::UpdateView()
{
    if (m_Sky)
        m_Sky->SetSatellites(m_Machine.Source().Satellites());
}

TGnssFullWindow::TGnssFullWindow(QWidget* canvas, TMachine const& machine)
    : TFullWindow(canvas)
    , m_Machine(machine)
{
    UseTimer(RefreshInterval);
}

void TGnssFullWindow::Setup()
{
    TFullWindow::Setup();
    QWidget* const content = GetWindowContent();
    m_Sky = new TSkyPlot(content);
    m_Table = new TTablePanel(content, RowHeight, TextSize);
    m_Bars = new TSignalBars(content);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TGnssFullWindow::Refresh);
    SetTitle(tr("Position and satellites"));
    Refresh();
}

void TGnssFullWindow::Refresh()
{
    QVector<TSatellite> const satellites = m_Machine.Source().Satellites();
    m_Sky->SetSatellites(satellites);
    m_Bars->SetSatellites(satellites);
    m_Table->SetRows(FixRows(m_Machine));
}

void TGnssFullWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

void TGnssFullWindow::Arrange()
{
    if (!m_Sky)
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -Margin);
    int const half = (room.width() - Margin) / 2;
    m_Sky->setGeometry(room.left(), room.top(), half, TableHeight);
    m_Table->setGeometry(room.right() + 1 - half, room.top(), half, TableHeight);
    m_Bars->setGeometry(room.left(), room.top() + TableHeight + Margin, room.width(),
                        room.height() - TableHeight - Margin);
}
