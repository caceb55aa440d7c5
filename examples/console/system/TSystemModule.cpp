#include "TSystemModule.h"

#include "Palette.h"
#include "PixmapNames.h"
#include "SoundVolume.h"
#include "TExternalDrive.h"
#include "TOffScreenButtons.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TSystemToolBarButton.h"
#include "TToolTipMode.h"
#include "TUSBErrorMessage.h"
#include "TUsbWatch.h"
#include "TWindowManager.h"

namespace
{
constexpr int TextSize = 15;
constexpr int IconSize = 46;
constexpr int IconLift = 10; // above the middle, to make room for the text
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;

/// One button of the system tool bar. The first stands in the corner.
struct TBarRow
{
    char const* icon;
    char const* toolTip;
    void (*act)(TScreen*);
};

constexpr TBarRow BarRows[] = {
    {"icon-home", QT_TRANSLATE_NOOP("TSystemModule", "Back to the map"),
     [](TScreen* screen) { screen->GetWindowManager()->RestoreDefaultView(); }},
    {"icon-usb", QT_TRANSLATE_NOOP("TSystemModule", "Makes the USB stick safe to remove"),
     [](TScreen* screen) { screen->OnUSBButtonClick(); }},
    {"icon-up", QT_TRANSLATE_NOOP("TSystemModule", "More buttons, as a swipe up from the lower edge"),
     [](TScreen* screen) { screen->GetOffScreenButtons()->ShowOffScreenButtons(); }},
};

/// What a click on a button makes of the strip.
enum EStripLeaves
{
    STRIP_STAYS,
    STRIP_SLIDES,
    STRIP_VANISHES ///< so that it is not in the picture of the screen
};

/// One button of the strip.
struct TStripRow
{
    char const* icon;
    char const* text;
    char const* toolTip;
    EStripLeaves leaves;
    bool repeats;
    void (*act)(TScreen*);
};

constexpr TStripRow StripRows[] = {
    {"icon-screenshot", QT_TRANSLATE_NOOP("TSystemModule", "Picture"),
     QT_TRANSLATE_NOOP("TSystemModule", "Saves a picture of the screen on the USB stick"), STRIP_VANISHES,
     false, [](TScreen* screen) { screen->DelayedScreenShot(); }},
    {"icon-quieter", QT_TRANSLATE_NOOP("TSystemModule", "Quieter"),
     QT_TRANSLATE_NOOP("TSystemModule", "Makes the sounds quieter"), STRIP_STAYS, true,
     [](TScreen*) { StepSoundVolume(-1); }},
    {"icon-louder", QT_TRANSLATE_NOOP("TSystemModule", "Louder"),
     QT_TRANSLATE_NOOP("TSystemModule", "Makes the sounds louder, and switches them on"), STRIP_STAYS, true,
     [](TScreen*) { StepSoundVolume(1); }},
};

void SetName(TPushButton* button, QString const& text)
{
    button->SetText(text, QString(), true, QString(), false);
}
} // namespace

TSystemModule::TSystemModule(TToolTipMode* toolTips)
    : m_ToolTips(toolTips)
{
}

TSystemModule::~TSystemModule()
{
    for (QPointer<TPushButton> const& button : qAsConst(m_StripButtons))
        delete button;
    delete m_Bar;
    delete m_ErrorMessage;
}

void TSystemModule::RegisterViews(TScreen* screen)
{
    m_Screen = screen;
    screen->SetupUSBButton();
    connect(screen->GetExternalDrive(), &TExternalDrive::SaveFailed, this, &TSystemModule::OnSaveFailed);
    MakeBar();
    MakeStrip();
}

void TSystemModule::MakeBar()
{
    m_Bar = new TSystemToolBar(m_Screen);
    m_Screen->SetSystemToolBar(m_Bar);
    for (TBarRow const& row : BarRows)
    {
        auto* const button = new TSystemToolBarButton(m_Bar);
        button->SetIcon(QLatin1String(row.icon), QSize(), true);
        button->SetToolTip(tr(row.toolTip));
        connect(button, &TPushButton::clicked, m_Screen,
                [screen = m_Screen.data(), act = row.act] { act(screen); });
        m_Bar->AddButton(button);
    }
}

void TSystemModule::MakeStrip()
{
    MakeToolTipButton();
    for (TStripRow const& row : StripRows)
    {
        TPushButton* const button = AddToStrip(QLatin1String(row.icon), tr(row.toolTip));
        SetName(button, tr(row.text));
        button->SetAutoRepeat(row.repeats, RepeatDelay, RepeatInterval);
        connect(button, &TPushButton::clicked, m_Screen,
                [screen = m_Screen.data(), act = row.act] { act(screen); });
        m_Screen->AddOffscreenButton(button, row.leaves != STRIP_STAYS, row.leaves == STRIP_SLIDES);
    }
}

TPushButton* TSystemModule::AddToStrip(QString const& icon, QString const& toolTip)
{
    // The strip goes by Clicked(), which is silent without an id.
    auto* const button = new TPushButton(nullptr, m_StripButtons.size(), toolTip);
    button->SetIcon(icon, QSize(IconSize, IconSize), true);
    button->SetIconPositionFromCentre(QPoint(0, -IconLift));
    button->SetTextPlacement(TEXT_BELOW_ICON);
    button->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Qt::AlignCenter, false);
    m_StripButtons.append(button);
    return button;
}

void TSystemModule::MakeToolTipButton()
{
    if (!m_ToolTips)
        return;
    // Without a tool tip of its own: in the mode it would explain itself instead of ending it.
    m_ToolTipButton = AddToStrip(QStringLiteral("icon-tool-tip"), QString());
    connect(m_ToolTipButton, &TPushButton::clicked, m_ToolTips,
            [mode = m_ToolTips.data()] { mode->SetOn(!mode->ToolTipVisible()); });
    connect(m_ToolTips, &TToolTipMode::Switched, this, &TSystemModule::ShowToolTipMode);
    m_Screen->AddOffscreenButton(m_ToolTipButton, true, true);
    ShowToolTipMode(m_ToolTips->ToolTipVisible());
}

void TSystemModule::ShowToolTipMode(bool on)
{
    if (!m_ToolTipButton)
        return;
    SetName(m_ToolTipButton, on ? tr("End tips") : tr("Tips"));
    m_ToolTipButton->SetBackground(on ? PixmapNames::BevelButtonSelected : PixmapNames::BevelButton);
}

void TSystemModule::OfferStick(TUsbWatch* watch)
{
    if (!watch || !watch->IsFolder() || !m_Screen || m_StickButton)
        return;
    m_StickButton = AddToStrip(QStringLiteral("icon-usb"),
                               tr("Inserts and pulls the folder that stands for a USB stick"));
    // The icon's name is that of the button that ejects.
    m_StickButton->SetObjectName(QStringLiteral("stick"), NAME_EXPLICIT);
    connect(m_StickButton, &TPushButton::clicked, watch,
            [watch]
            {
                if (watch->IsExternalDrivePresent())
                    watch->Pull();
                else
                    watch->Insert();
            });
    connect(watch, &TUsbWatch::Inserted, this, [this] { ShowStick(true); });
    connect(watch, &TUsbWatch::Pulled, this, [this] { ShowStick(false); });
    m_Screen->AddOffscreenButton(m_StickButton, false, false);
    ShowStick(watch->IsExternalDrivePresent());
}

void TSystemModule::ShowStick(bool present)
{
    if (m_StickButton)
        SetName(m_StickButton, present ? tr("Pull") : tr("Insert"));
}

// The screen says nothing of it, and an operator who asked for a picture would believe to have it.
void TSystemModule::OnSaveFailed(EDriveResult result)
{
    if (!m_Screen)
        return;
    if (!m_ErrorMessage)
        m_ErrorMessage = new TUSBErrorMessage(m_Screen);
    m_ErrorMessage->OnUSBError(result == DRIVE_FULL ? USB_ERROR_NO_SPACE : USB_ERROR_WRITE);
}
