#pragma once

#include "CommonUILibExport.h"

/// Process-wide options that a host sets once, before it builds the screen.
struct COMMONUILIB_EXPORT CommonUIOptions
{
    CommonUIOptions();

    bool moduleOption;            ///< true; for modules, the toolkit does not read it
    bool offScreenButtonsEnabled; ///< false; the strip of buttons below the screen answers to touches
    bool viewChangeSoundEnabled;  ///< false; a full view that comes up is heard
    bool dashboardEnabled;        ///< true; full views leave room for the dashboard
    bool folderButtonsEnabled;    ///< true; file lists have folder buttons
};

/// Keeper of the options. Nothing watches them: each reader takes a copy at the moment of use. GUI thread
/// only.
class COMMONUILIB_EXPORT CommonUI
{
public:
    /// Copies the whole record in. Takes effect at the next reader; nobody is told.
    static void SetCommonUIOptions(CommonUIOptions const& options);
    static CommonUIOptions GetCommonUIOptions();

private:
    static CommonUIOptions m_Options;
};
