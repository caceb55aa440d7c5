#include "TConsole.h"

#include "CommonUI.h"
#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "TCameraModule.h"
#include "TConsoleMenu.h"
#include "TConsoleOptions.h"
#include "TDiagnosticsModule.h"
#include "TGnssModule.h"
#include "TGuidanceModule.h"
#include "THostPlatform.h"
#include "TNmeaReceiver.h"
#include "TScreen.h"
#include "TSetupModule.h"
#include "TSimulatedTractor.h"
#include "TSprayerModule.h"
#include "TSystemModule.h"
#include "TWindowManager.h"

#include <utility>

namespace
{
std::unique_ptr<IPositionSource> MakeSource(TConsoleOptions const& options)
{
    if (options.nmea)
        return std::make_unique<TNmeaReceiver>(*options.nmea);
    return std::make_unique<TSimulatedTractor>();
}

// Read by the windows when they are built.
void SetToolkitOptions()
{
    CommonUIOptions options = CommonUI::GetCommonUIOptions();
    options.dashboardEnabled = false;
    options.viewChangeSoundEnabled = true;
    options.offScreenButtonsEnabled = true;
    CommonUI::SetCommonUIOptions(options);
}
} // namespace

TConsole::TConsole(TConsoleOptions const& options, QString const& dataFolder)
    : m_Machine(MakeSource(options))
{
    SetToolkitOptions();
    m_Shell = std::make_unique<TConsoleShell>(dataFolder);
    ConsoleSettings::Load(&m_Machine, &m_Job);
    AddModules();
}

void TConsole::AddModules()
{
    auto menus = std::make_unique<TConsoleMenu>(m_Shell->GetMenuManager());
    m_Menus = menus.get();
    m_Shell->AddModule(std::move(menus));
    m_Shell->AddModule(std::make_unique<TGuidanceModule>(&m_Machine, m_Menus));
    m_Shell->AddModule(std::make_unique<TSprayerModule>(&m_Machine, m_Menus));
    m_Shell->AddModule(std::make_unique<TGnssModule>(m_Machine, m_Menus));
    m_Shell->AddModule(std::make_unique<TCameraModule>(m_Machine, Screen()->GetCameraOverlayManager()));
    m_Shell->AddModule(std::make_unique<TDiagnosticsModule>(Screen(), m_Job));
    m_Shell->AddModule(std::make_unique<TSetupModule>(&m_Machine, &m_Job));
    auto system = std::make_unique<TSystemModule>(m_Shell->GetPlatform()->GetToolTipMode());
    m_System = system.get();
    m_Shell->AddModule(std::move(system));
}

void TConsole::WaitForWorkers()
{
    if (m_Menus)
        m_Menus->WaitForWorkers();
}

void TConsole::WatchUsb(QString const& folder)
{
    m_Shell->WatchUsb(folder);
    if (m_System)
        m_System->OfferStick(m_Shell->GetUsbWatch());
}

void TConsole::StartMachine()
{
    m_Machine.Start();
}

void TConsole::Start()
{
    bool const isFirstStart = ConfigManager::Instance()->Read(CONFIG_LAYOUT_SNAPSHOT).toString().isEmpty();
    m_Shell->Start(TGuidanceModule::Id());
    if (!isFirstStart)
        return;
    for (KVN::MorvaneID const& id : {TSprayerModule::Id(), TGnssModule::Id()})
        Screen()->GetWindowManager()->OnShowMiniView(Screen()->GetNavButtonID(id));
}
