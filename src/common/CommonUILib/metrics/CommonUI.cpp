#include "CommonUI.h"

CommonUIOptions CommonUI::m_Options;

CommonUIOptions::CommonUIOptions()
    : moduleOption(true)
    , offScreenButtonsEnabled(false)
    , viewChangeSoundEnabled(false)
    , dashboardEnabled(true)
    , folderButtonsEnabled(true)
{
}

void CommonUI::SetCommonUIOptions(CommonUIOptions const& options)
{
    m_Options = options;
}

CommonUIOptions CommonUI::GetCommonUIOptions()
{
    return m_Options;
}
