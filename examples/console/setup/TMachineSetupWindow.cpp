#include "TMachineSetupWindow.h"

#include "ConfigManager.h"
#include "MainScreen.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "SoundVolume.h"
#include "TChoiceRow.h"
#include "TDisplayPage.h"
#include "TJobPage.h"
#include "TMachinePage.h"
#include "TPushButton.h"
#include "TQuantity.h"
#include "TScreen.h"
#include "TSprayerPage.h"
#include "TTablePanel.h"
#include "TValueField.h"

#include <QCoreApplication>

namespace
{
constexpr int CloseButton = 0;
constexpr int FollowInterval = 250;
constexpr int Margin = 24;
constexpr int Gap = 10;
constexpr int PageButtonWidth = 190;
constexpr int PageButtonHeight = 84;
constexpr int BottomRoom = 74;
constexpr int TextSize = 20;
constexpr int StepButtonWidth = 96;
constexpr int AboutRowHeight = 40;
constexpr int AboutTextSize = 18;
constexpr int AboutRows = 3;
constexpr int IconMargin = 18;
constexpr int RepeatDelay = 250;
constexpr int RepeatInterval = 100;
constexpr int CleanStop = 0;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
QString const PageAttribute = QStringLiteral("Page");

struct TPage
{
    char const* name;
    char const* toolTip;
};

constexpr TPage Pages[] = {
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "Sound"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "What the console lets you hear")},
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "Display"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "What the screen looks like, and in which units you read it")},
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "System"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "Versions, and switching the console off")},
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "Machine"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "What the console knows of the machine")},
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "Sprayer"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "How tank, nozzles and boom are built")},
    {QT_TRANSLATE_NOOP("TMachineSetupWindow", "Job"),
     QT_TRANSLATE_NOOP("TMachineSetupWindow", "Who works, since when, and for whom")},
};

QVariant Setting(int id)
{
    return ConfigManager::Instance()->Read(id);
}

void Store(int id, QVariant const& value)
{
    ConfigManager::Instance()->Write(id, value, true);
}
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
    MakePageButtons();
    for (int page = 0; page < PAGE_COUNT; ++page)
        m_Pages.append(new QWidget(GetWindowContent()));
    MakeSoundPage(m_Pages[PAGE_SOUND]);
    m_DisplayPage = new TDisplayPage(m_Pages[PAGE_DISPLAY]);
    MakeSystemPage(m_Pages[PAGE_SYSTEM]);
    m_MachinePage = new TMachinePage(m_Pages[PAGE_MACHINE]);
    m_RowPages = {m_DisplayPage, m_MachinePage, new TSprayerPage(m_Pages[PAGE_SPRAYER], m_Machine),
                  new TJobPage(m_Pages[PAGE_JOB], m_Job)};
    AddControlButton(CloseButton, QStringLiteral("icon-tick-larger"), tr("Close the setup"));
    connect(GetControlButtons()[CloseButton], &TPushButton::Clicked, this, &TMachineSetupWindow::HideWindow);
    SetButtonStartOffset(Margin);
    SetTitle(tr("Setup"));
    ShowPage(m_Page);
    Sync();
}

void TMachineSetupWindow::MakePageButtons()
{
    for (int page = 0; page < PAGE_COUNT; ++page)
    {
        auto* const button =
            new TPushButton(GetWindowContent(), QString(), QSize(), QPoint(), page, tr(Pages[page].toolTip));
        button->SetText(tr(Pages[page].name), QStringLiteral("setup-page-%1").arg(page), true, QString(),
                        false);
        button->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
        connect(button, &TPushButton::Clicked, this, &TMachineSetupWindow::ShowPage);
        m_PageButtons.append(button);
    }
}

void TMachineSetupWindow::MakeSoundPage(QWidget* page)
{
    m_SoundRow =
        new TChoiceRow(page, tr("Sounds"), tr("Whether buttons and alarms are heard"), {tr("Off"), tr("On")});
    connect(m_SoundRow, &TChoiceRow::Chosen, this,
            [this](int choice)
            {
                Store(CONFIG_SOUND_ENABLED, choice == 1);
                Sync();
            });
    m_Quieter =
        new TPushButton(page, QStringLiteral("icon-minus-larger"), QSize(), QPoint(), 0, tr("Quieter"));
    connect(m_Quieter, &TPushButton::Clicked, this, [this] { StepVolume(-1); });
    m_Louder = new TPushButton(page, QStringLiteral("icon-plus-larger"), QSize(), QPoint(), 0, tr("Louder"));
    connect(m_Louder, &TPushButton::Clicked, this, [this] { StepVolume(1); });
    for (TPushButton* const step : {m_Quieter, m_Louder})
        step->SetAutoRepeat(true, RepeatDelay, RepeatInterval);
    m_Volume = new TValueField(page, tr("Volume"));
}

void TMachineSetupWindow::MakeSystemPage(QWidget* page)
{
    m_About = new TTablePanel(page, AboutRowHeight, AboutTextSize);
    m_About->SetRows(
        {{tr("Console"), QCoreApplication::applicationVersion(), {}},
         {tr("Qt"), QLatin1String(qVersion()), {}},
         {tr("Screen"), tr("%1 × %2").arg(parentWidget()->width()).arg(parentWidget()->height()), {}}});
    m_SwitchOff =
        new TPushButton(page, QStringLiteral("icon-power"), PixmapNames::NewRedButton,
                        PixmapNames::NewRedButtonSelected, 0, tr("Keeps the layout and stops the console"));
    m_SwitchOff->SetText(tr("Switch off"), QString(), true, QString(), false);
    m_SwitchOff->SetIconPosition(QPoint(IconMargin, 0), true);
    m_SwitchOff->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
    connect(m_SwitchOff, &TPushButton::Clicked, this,
            []
            {
                if (MainScreen)
                    Q_EMIT MainScreen->RequestShutdown(CleanStop);
            });
}

void TMachineSetupWindow::ShowPage(int page)
{
    if (page < 0 || page >= m_Pages.size())
        return;
    m_Page = page;
    for (int i = 0; i < m_Pages.size(); ++i)
    {
        m_Pages[i]->setVisible(i == page);
        m_PageButtons[i]->SetBackground(i == page ? PixmapNames::NewBlueButton
                                                  : PixmapNames::NewStandardButton);
        m_PageButtons[i]->SetBackgroundSelected(i == page ? PixmapNames::NewBlueButtonSelected
                                                          : PixmapNames::NewStandardButtonSelected);
    }
}

void TMachineSetupWindow::StepVolume(int step)
{
    StepSoundVolume(step);
    Sync();
}

void TMachineSetupWindow::SyncSound()
{
    bool const isSoundOn = Setting(CONFIG_SOUND_ENABLED).toBool();
    int const volume = Setting(CONFIG_SOUND_VOLUME).toInt();
    m_SoundRow->SetChoice(isSoundOn ? 1 : 0);
    m_Volume->SetValue(Quantities::Share, volume);
    m_Quieter->setEnabled(isSoundOn && volume > 0);
    m_Louder->setEnabled(isSoundOn && volume < LoudestVolume);
}

void TMachineSetupWindow::Sync()
{
    SyncSound();
    m_DisplayPage->Sync();
    m_MachinePage->Sync();
}

// The off-screen buttons change the volume too.
void TMachineSetupWindow::Refresh()
{
    SyncSound();
}

// The back key closes the setup, as its own button does.
bool TMachineSetupWindow::OnMMIBack()
{
    HideWindow();
    return false;
}

// Settings may have changed while the setup was away.
void TMachineSetupWindow::showEvent(QShowEvent* event)
{
    TFullWindow::showEvent(event);
    Sync();
}

void TMachineSetupWindow::resizeEvent(QResizeEvent* event)
{
    TFullWindow::resizeEvent(event);
    Arrange();
}

void TMachineSetupWindow::Arrange()
{
    if (m_Pages.isEmpty())
        return;
    QRect const room = GetWindowContent()->rect().adjusted(Margin, Margin, -Margin, -BottomRoom - Gap);
    for (int i = 0; i < m_PageButtons.size(); ++i)
        m_PageButtons[i]->setGeometry(room.left(), room.top() + i * (PageButtonHeight + Gap), PageButtonWidth,
                                      PageButtonHeight);
    QRect const pageRoom = room.adjusted(PageButtonWidth + Margin, 0, 0, 0);
    for (QWidget* const page : qAsConst(m_Pages))
        page->setGeometry(pageRoom);
    int const width = pageRoom.width();
    m_SoundRow->setGeometry(0, 0, width, TChoiceRow::Height);
    int const volumeTop = TChoiceRow::Height + Gap;
    m_Quieter->setGeometry(0, volumeTop, StepButtonWidth, TChoiceRow::Height);
    m_Volume->setGeometry(StepButtonWidth + Gap, volumeTop, width - 2 * (StepButtonWidth + Gap),
                          TChoiceRow::Height);
    m_Louder->setGeometry(width - StepButtonWidth, volumeTop, StepButtonWidth, TChoiceRow::Height);
    m_About->setGeometry(0, 0, width, AboutRows * AboutRowHeight);
    m_SwitchOff->setGeometry(0, AboutRows * AboutRowHeight + Margin, width / 2, PageButtonHeight);
    for (TSetupPage* const page : qAsConst(m_RowPages))
        page->setGeometry(0, 0, width, pageRoom.height());
    PositionControlButtons();
}

void TMachineSetupWindow::SaveXMLStateSnapshot(QDomElement element)
{
    element.setAttribute(PageAttribute, m_Page);
}

void TMachineSetupWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    bool isNumber = false;
    int const page = element.attribute(PageAttribute).toInt(&isNumber);
    if (!isNumber)
        return;
    SetupIfRequired();
    ShowPage(page);
}
