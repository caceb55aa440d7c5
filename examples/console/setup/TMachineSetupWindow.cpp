#include "TMachineSetupWindow.h"

#include "SetupScreens.h"
#include "TAboutPage.h"
#include "TClockPage.h"
#include "TDisplayPage.h"
#include "TJobPage.h"
#include "TLanguagePage.h"
#include "TMachinePage.h"
#include "TNozzlesPage.h"
#include "TPushButton.h"
#include "TSectionsPage.h"
#include "TSetupMenu.h"
#include "TSoundPage.h"
#include "TTankPage.h"
#include "TUnitsPage.h"

namespace
{
constexpr int CloseButton = 0;
constexpr int FollowInterval = 250;
constexpr int Margin = 24;
constexpr int Gap = 10;
constexpr int BottomGap = 4;
// At the left of the menu.
constexpr int CloseButtonRoom = 84;
QString const PageAttribute = QStringLiteral("Page");
} // namespace

TMachineSetupWindow::TMachineSetupWindow(QWidget* canvas, TMachine* machine, TJob* job)
    : TFullWindow(canvas)
    , m_Machine(machine)
    , m_Job(job)
{
    UseTimer(FollowInterval);
}

void TMachineSetupWindow::Setup()
{
    TFullWindow::Setup();
    m_Menu = new TSetupMenu(GetWindowContent());
    SetupScreens::AddTo(m_Menu);
    MakePages();
    connect(m_Menu, &TSetupMenu::ScreenChanged, this, &TMachineSetupWindow::ShowPage);
    connect(m_Menu, &TSetupMenu::HeightChanged, this, &TMachineSetupWindow::Arrange);
    AddControlButton(CloseButton, QStringLiteral("icon-tick-larger"), tr("Close the setup"));
    connect(GetControlButtons()[CloseButton], &TPushButton::Clicked, this, &TMachineSetupWindow::HideWindow);
    SetButtonStartOffset(Margin);
    SetTitle(tr("Setup"));
    m_Menu->ShowScreen(QLatin1String(SetupScreens::Sound));
}

void TMachineSetupWindow::MakePages()
{
    QWidget* const content = GetWindowContent();
    for (char const* const screen :
         {SetupScreens::Steering, SetupScreens::Receiver, SetupScreens::Equipment, SetupScreens::LightBar})
        AddPage(screen, new TMachinePage(content, QLatin1String(screen), m_Machine));
    AddPage(SetupScreens::Tank, new TTankPage(content, m_Machine));
    AddPage(SetupScreens::Sections, new TSectionsPage(content, m_Machine));
    AddPage(SetupScreens::Nozzles, new TNozzlesPage(content, m_Machine));
    AddPage(SetupScreens::Job, new TJobPage(content, m_Job));
    AddPage(SetupScreens::Buttons, new TDisplayPage(content));
    m_SoundPage = new TSoundPage(content);
    AddPage(SetupScreens::Sound, m_SoundPage);
    AddPage(SetupScreens::Units, new TUnitsPage(content));
    AddPage(SetupScreens::Language, new TLanguagePage(content));
    AddPage(SetupScreens::Clock, new TClockPage(content));
    AddPage(SetupScreens::About, new TAboutPage(content));
}

void TMachineSetupWindow::AddPage(char const* screen, QWidget* page)
{
    QString const path = QLatin1String(screen);
    page->hide();
    m_Pages.insert(path, page);
    m_Menu->SetScreenAvailable(path, true);
}

void TMachineSetupWindow::ShowPage(QString const& screen)
{
    QWidget* const shown = m_Pages.value(screen);
    for (QWidget* const page : qAsConst(m_Pages))
        page->setVisible(page == shown);
    m_Menu->SetScreenEntry(dynamic_cast<KVN::MMICapableWidget*>(shown));
}

// The off-screen buttons change the volume too.
void TMachineSetupWindow::Refresh()
{
    m_SoundPage->Sync();
}

// The back key closes the setup, as its own button does.
bool TMachineSetupWindow::OnMMIBack()
{
    HideWindow();
    return false;
}

void TMachineSetupWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

// The page has what the levels of the menu leave it. Beside the close button there is room for a number pad
// at the left of a value.
void TMachineSetupWindow::Arrange()
{
    if (!m_Menu)
        return;
    QRect const room =
        GetWindowContent()->rect().adjusted(Margin + CloseButtonRoom, Margin, -Margin, -BottomGap);
    QRect menu = room;
    menu.setTop(menu.bottom() + 1 - m_Menu->sizeHint().height());
    m_Menu->setGeometry(menu);
    QRect page = room;
    page.setBottom(menu.top() - 1 - Gap);
    for (QWidget* const widget : qAsConst(m_Pages))
        widget->setGeometry(page);
    PositionControlButtons();
}

void TMachineSetupWindow::SaveXMLStateSnapshot(QDomElement element)
{
    if (m_Menu)
        element.setAttribute(PageAttribute, m_Menu->Screen());
}

void TMachineSetupWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    QString const screen = element.attribute(PageAttribute);
    if (screen.isEmpty())
        return;
    SetupIfRequired();
    m_Menu->ShowScreen(screen);
}
