#include "TSetupModule.h"

#include "ModuleIds.h"
#include "PixmapNames.h"
#include "TScreen.h"

#include <QCoreApplication>

TSetupModule::TSetupModule(TMachine* machine, TJob* job)
    : m_Canvas(nullptr)
    , m_Window(&m_Canvas, machine, job)
{
    m_Canvas.SetBackground(PixmapNames::SetupScreenBackgroundDark800x600);
}

KVN::MorvaneID TSetupModule::Id()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]);
}

void TSetupModule::RegisterViews(TScreen* screen)
{
    screen->AssignNavSpecialButton(Id(), QStringLiteral("icon-setup"), &m_Canvas, &m_Window,
                                   QCoreApplication::translate("TSetupModule", "Setup of the console"));
}
