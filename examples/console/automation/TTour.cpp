#include "TTour.h"

#include "Metrics.h"
#include "SetupScreens.h"
#include "TCameraModule.h"
#include "TCanvasMenuDisplay.h"
#include "TConsole.h"
#include "TDiagnosticsModule.h"
#include "TGnssModule.h"
#include "TGuidanceModule.h"
#include "TMenuCanvas.h"
#include "TMenuManager.h"
#include "TMMIDef.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TSetupMenu.h"
#include "TSetupModule.h"
#include "TSprayerModule.h"
#include "TSystemSettingsProxy.h"
#include "TTaskToolBar.h"
#include "TVirtualTime.h"
#include "TWindowManager.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

#include <chrono>

namespace
{
// Every slide and every press has come to its end by then, and the live values have been taken up.
constexpr int SettleTime = 500;
constexpr std::chrono::seconds StickPatience(60);
constexpr unsigned long PollTime = 20;
constexpr int HalfSlide = 80;
constexpr int DragSteps = 12;
constexpr int FlickSteps = 4;
constexpr int WheelNotch = 120;
// Longer than a level that is gone stays in the way of the one below it.
constexpr int WideStep = 700;
constexpr int MostLevels = 20;
constexpr int NotchesToAWindow = 3;
constexpr int LineShifts = 10;
// The navigator enters one menu after the other.
constexpr int PathTime = 2000;

// A point in the lower part of the mini window in \a slot, off its buttons.
QPoint GripOf(int slot)
{
    constexpr int Inset = 6;
    return {NAVBAR_WIDTH + Inset, (slot + 1) * MINI_WINDOW_SIZE - Inset};
}

QPoint MaximiseButtonOf(int slot)
{
    constexpr int Inset = 16;
    return {NAVBAR_WIDTH + MINI_WINDOW_SIZE - Inset, slot * MINI_WINDOW_SIZE + Inset};
}

// What leads to the element at \a path; nothing for an unknown one.
TMMIDef DefOf(TMenuManager const& manager, QString const& path)
{
    std::vector<TMenuStateCopy> const menus = manager.GetAllMenuElements();
    for (TMenuStateCopy const& menu : menus)
    {
        for (TElementState const& element : menu.elements)
        {
            if (element.GetMMIDef().ToPath(true, QLatin1Char('/')) == path)
                return element.GetMMIDef();
        }
    }
    return {};
}
} // namespace

TTour::TTour(TConsole* console, TVirtualTime* time, QString const& folder)
    : m_Console(console)
    , m_Time(time)
    , m_Folder(folder)
    , m_Operator(console->Screen(), [time](int ms) { time->Pass(ms); })
{
}

QString TTour::Run()
{
    if (!QDir().mkpath(m_Folder))
        return QStringLiteral("the folder %1 cannot be made").arg(m_Folder);
    Settle();
    Picture(QStringLiteral("start"));
    ShowMiniWindows();
    DragMiniWindows();
    ShowFullViews();
    ShowLayersAndPages();
    ShowWindowsOverTheView();
    ShowCamera();
    ShowWheel();
    ShowMenus();
    ShowSetup();
    ShowDiagnostics();
    ShowSystemToolBar();
    ShowOffScreenButtons();
    ShowToolTips();
    ShowScreenshot();
    return m_Failure;
}

void TTour::ShowMiniWindows()
{
    PressNavigation(TCameraModule::Id());
    m_Time->Pass(HalfSlide);
    Picture(QStringLiteral("mini-window-sliding"));
    Settle();
    Picture(QStringLiteral("slots-full"));
    PressNavigation(TGuidanceModule::Id());
    Settle();
    Picture(QStringLiteral("fourth-window-on-top"));
    PressNavigation(TGuidanceModule::Id());
    Settle();
    PressNavigation(TGnssModule::Id());
    Settle();
    Picture(QStringLiteral("linked-window"));
}

void TTour::DragMiniWindows()
{
    QPoint const from = GripOf(0);
    QPoint const to = from + QPoint(0, MINI_WINDOW_SIZE * 3 / 2);
    m_Operator.Press(from);
    for (int step = 1; step <= DragSteps; ++step)
    {
        m_Time->Pass(TVirtualOperator::StepTime);
        m_Operator.MoveTo(from + (to - from) * step / DragSteps);
    }
    m_Time->Pass(TVirtualOperator::StepTime);
    Picture(QStringLiteral("window-dragged"));
    m_Operator.Release();
    Settle();
    Picture(QStringLiteral("window-dropped"));
}

void TTour::ShowFullViews()
{
    // The sprayer's small window goes up into the full view; that of the guidance comes in its place.
    m_Operator.Tap(MaximiseButtonOf(0));
    m_Time->Pass(HalfSlide);
    Picture(QStringLiteral("views-swapping"));
    Settle();
    PressButton(QStringLiteral("section-7"));
    PressButton(QStringLiteral("section-8"));
    Settle();
    Picture(QStringLiteral("sprayer"));
    DragOffRight(TGnssModule::Id());
    Settle();
    Picture(QStringLiteral("position"));
    DragOffRight(TGuidanceModule::Id());
    Settle();
    PressButton(QStringLiteral("icon-zoom-in"));
    Settle();
    Picture(QStringLiteral("guidance-sections-off"));
    PressButton(QStringLiteral("icon-zoom-out"));
    PressButton(QStringLiteral("icon-zoom-out"));
    Settle();
    Picture(QStringLiteral("guidance-far"));
}

void TTour::ShowLayersAndPages()
{
    PressButton(QStringLiteral("legend-2"));
    m_Time->Pass(HalfSlide);
    Picture(QStringLiteral("legend-opening"));
    Settle();
    Picture(QStringLiteral("legend"));
    PressButton(QStringLiteral("legend-0"));
    DragOffRight(TSprayerModule::Id());
    Settle();
    PressButton(QStringLiteral("next-dial"));
    m_Time->Pass(HalfSlide);
    Picture(QStringLiteral("instrument-turning"));
    Settle();
    Picture(QStringLiteral("instrument"));
}

void TTour::ShowWindowsOverTheView()
{
    PressButton(QStringLiteral("sprayer-calibrate"));
    Settle();
    for (int i = 0; i < 4; ++i)
        PressButton(QStringLiteral("calibration-more"));
    Settle();
    Picture(QStringLiteral("calibration"));
    PressButton(QStringLiteral("icon-cross-larger"));
    Settle();
    PressButton(QStringLiteral("sprayer-drain"));
    Settle();
    Picture(QStringLiteral("question"));
    m_Operator.Wheel(-WheelNotch);
    m_Time->Pass(WideStep);
    Picture(QStringLiteral("question-by-wheel"));
    PressButton(QStringLiteral("Yes"));
    Settle();
    Picture(QStringLiteral("warning"));
    PressButton(QStringLiteral("icon-tick-larger"));
    Settle();
    PressButton(QStringLiteral("sprayer-fill"));
    DragOffRight(TGuidanceModule::Id());
    Settle();
}

void TTour::ShowCamera()
{
    DragOffRight(TCameraModule::Id());
    Settle();
    Picture(QStringLiteral("camera"));
    PressButton(QStringLiteral("camera-brightness"));
    Settle();
    Picture(QStringLiteral("camera-stands-aside"));
    PressButton(QStringLiteral("icon-tick-larger"));
    DragOffRight(TGuidanceModule::Id());
    Settle();
}

void TTour::ShowMenus()
{
    PressButton(QLatin1String(TCanvasMenuDisplay::FoldButtonName));
    Settle();
    Picture(QStringLiteral("menus-unfolded"));
    PressInMenu(QStringLiteral("guidance"));
    Settle();
    PressInMenu(QStringLiteral("lines"));
    Settle();
    for (int i = 0; i < LineShifts; ++i)
        PressInMenu(QStringLiteral("line-shift-right"));
    Settle();
    Picture(QStringLiteral("lines-shifted"));
    PressInMenu(QStringLiteral("line-centre"));
    PressInMenu(QStringLiteral("position"));
    Settle();
    PressInMenu(QStringLiteral("satellites"));
    Settle();
    Picture(QStringLiteral("menus-of-the-position"));
    PressInMenu(QStringLiteral("position"));
    ShowSwitchesInMenus();
    ShowMacroPaths();
    ShowFarView();
    PressButton(QLatin1String(TCanvasMenuDisplay::FoldButtonName));
    ShowShortcuts();
}

void TTour::ShowSwitchesInMenus()
{
    PressInMenu(QStringLiteral("sprayer"));
    Settle();
    PressInMenu(QStringLiteral("sections"));
    Settle();
    for (QString const& section : {QStringLiteral("section-1"), QStringLiteral("section-2")})
        PressInMenu(section);
    Settle();
    Picture(QStringLiteral("sections-off-by-menu"));
    for (QString const& section : {QStringLiteral("section-1"), QStringLiteral("section-2")})
        PressInMenu(section);
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("icon-tool-tip"));
    Settle();
    PressInMenu(QStringLiteral("all-sections"));
    Settle();
    Picture(QStringLiteral("tool-tip-of-a-menu"));
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("icon-tool-tip"));
    Settle();
    PressInMenu(QStringLiteral("sprayer"));
    Settle();
}

// From all menus closed to an element three menus deep, and on from there by the wheel.
void TTour::ShowMacroPaths()
{
    double const before = m_Console->Machine().LineShift();
    FollowMenuPath(QStringLiteral("guidance/lines/line-shift-right"));
    Picture(QStringLiteral("menu-by-macro-path"));
    if (m_Console->Machine().LineShift() == before)
        Fail(QStringLiteral("the macro path did not lead to the shift of the lines"));
    for (int notch = 0; notch < 2; ++notch)
    {
        m_Operator.Wheel(-WheelNotch);
        m_Time->Pass(WideStep);
    }
    Picture(QStringLiteral("wheel-in-a-menu"));
    m_Operator.Key(Qt::Key_Return);
    m_Time->Pass(WideStep);
    if (m_Console->Machine().LineShift() != before)
        Fail(QStringLiteral("the wheel did not centre the lines in their menu"));
    PressInMenu(QStringLiteral("guidance"));
    Settle();
}

void TTour::ShowFarView()
{
    PressInMenu(QStringLiteral("guidance"));
    Settle();
    PressInMenu(QStringLiteral("map"));
    Settle();
    Picture(QStringLiteral("menu-of-the-map"));
    PressInMenu(QStringLiteral("far-view"));
    Settle();
    Picture(QStringLiteral("far-view"));
    PressButton(QStringLiteral("icon-zoom-in"));
    Settle();
}

void TTour::ShowShortcuts()
{
    Settle();
    PressInMenu(QStringLiteral("record"));
    PressInMenu(QStringLiteral("master"));
    Settle();
    Picture(QStringLiteral("shortcuts"));
    PressInMenu(QStringLiteral("record"));
    PressInMenu(QStringLiteral("master"));
    Settle();
}

void TTour::ShowWheel()
{
    for (int notch = 0; notch < 2; ++notch)
    {
        m_Operator.Wheel(-WheelNotch);
        m_Time->Pass(WideStep);
    }
    Picture(QStringLiteral("wheel-in-the-view"));
    // Back through the views that were entered, to the level of the screen itself.
    for (int level = 0; level < MostLevels; ++level)
    {
        m_Operator.Key(Qt::Key_Escape);
        m_Time->Pass(WideStep);
    }
    // Past the menus to the mini windows.
    for (int notch = 0; notch < NotchesToAWindow; ++notch)
    {
        m_Operator.Wheel(WheelNotch);
        m_Time->Pass(WideStep);
    }
    Picture(QStringLiteral("wheel-on-the-screen"));
    m_Operator.Key(Qt::Key_Return);
    m_Time->Pass(WideStep);
    m_Operator.Wheel(-WheelNotch);
    m_Time->Pass(WideStep);
    Picture(QStringLiteral("wheel-in-a-window"));
}

void TTour::ShowSetup()
{
    TScreen* const screen = m_Console->Screen();
    Press(screen->GetSpecialNavigationButton(screen->GetNavButtonID(TSetupModule::Id())),
          QStringLiteral("the setup"));
    Settle();
    ShowSetupScreens();
    OpenSetup(QLatin1String(SetupScreens::Equipment));
    QPoint const middle(SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2);
    m_Operator.Drag(middle, middle - QPoint(0, SCREEN_HEIGHT / 4), DragSteps);
    Settle();
    Picture(QStringLiteral("setup-implement-equipment-scrolled"));
    ShowSprayerSetup();
    ShowJobSetup();
    ShowUnits();
    OpenSetup(QLatin1String(SetupScreens::Buttons));
    PressButton(QStringLiteral("Large"));
    PressButton(QStringLiteral("icon-tick-larger"));
    Settle();
    Picture(QStringLiteral("large-buttons"));
    ShowSprayerInOtherUnits();
}

// Every one that this console has, and a row on its way.
void TTour::ShowSetupScreens()
{
    auto const* const menu = m_Console->Screen()->findChild<TSetupMenu*>();
    if (!menu)
    {
        Fail(QStringLiteral("the setup has no menu"));
        return;
    }
    auto const screens = menu->AvailableScreens();
    for (QString const& screen : screens)
    {
        OpenSetup(screen);
        Picture(QStringLiteral("setup-") + QString(screen).replace(QLatin1Char('/'), QLatin1Char('-')));
    }
    PressButton(QStringLiteral("setup/implement"));
    m_Time->Pass(HalfSlide);
    Picture(QStringLiteral("setup-rows-crossing"));
    Settle();
}

// Level by level; a group of one screen shows that by itself.
void TTour::OpenSetup(QString const& screen)
{
    auto const* const menu = m_Console->Screen()->findChild<TSetupMenu*>();
    if (!menu)
    {
        Fail(QStringLiteral("there is no setup to show %1").arg(screen));
        return;
    }
    int end = 0;
    do
    {
        end = screen.indexOf(QLatin1Char('/'), end + 1);
        PressButton(QStringLiteral("setup/") + screen.left(end));
        Settle();
    } while (end >= 0 && menu->Screen() != screen);
    if (menu->Screen() != screen)
        Fail(QStringLiteral("the setup shows %1 in place of %2").arg(menu->Screen(), screen));
}

void TTour::ShowSprayerSetup()
{
    OpenSetup(QLatin1String(SetupScreens::Tank));
    PressButton(QStringLiteral("setup-tank"));
    Settle();
    Picture(QStringLiteral("tank-under-edit"));
    for (int notch = 0; notch < 2; ++notch)
    {
        m_Operator.Wheel(-WheelNotch);
        m_Time->Pass(WideStep);
    }
    Picture(QStringLiteral("tank-by-wheel"));
    EndEdit(Qt::Key_Return);
    OpenSetup(QLatin1String(SetupScreens::Nozzles));
    PressButton(QStringLiteral("setup-nozzle"));
    Settle();
    Picture(QStringLiteral("nozzle-under-edit"));
    EndEdit(Qt::Key_Escape);
    OpenSetup(QLatin1String(SetupScreens::Sections));
    PressButton(QStringLiteral("setup-section-8"));
    Settle();
    Picture(QStringLiteral("section-under-edit"));
    EndEdit(Qt::Key_Escape);
}

void TTour::ShowJobSetup()
{
    OpenSetup(QLatin1String(SetupScreens::Job));
    PressButton(QStringLiteral("setup-operator"));
    Settle();
    for (QString const& key : {QStringLiteral("Key A"), QStringLiteral("Key N"), QStringLiteral("Key N")})
        PressButton(key);
    Settle();
    Picture(QStringLiteral("operator-under-edit"));
    PressButton(QStringLiteral("icon-tick"));
    Settle();
    for (QString const& name : {QStringLiteral("setup-start-day"), QStringLiteral("setup-start-time"),
                                QStringLiteral("setup-server")})
    {
        PressButton(name);
        Settle();
        Picture(name + QStringLiteral("-under-edit"));
        EndEdit(Qt::Key_Escape);
    }
}

void TTour::ShowUnits()
{
    OpenSetup(QLatin1String(SetupScreens::Language));
    PressButton(QStringLiteral("setup-language"));
    Settle();
    Picture(QStringLiteral("list-of-languages"));
    EndEdit(Qt::Key_Escape);
    OpenSetup(QLatin1String(SetupScreens::Units));
    PressButton(QStringLiteral("setup-units"));
    Settle();
    Picture(QStringLiteral("list-of-units"));
    m_Operator.Wheel(-WheelNotch);
    m_Time->Pass(WideStep);
    EndEdit(Qt::Key_Return);
    Picture(QStringLiteral("imperial-units"));
    OpenSetup(QLatin1String(SetupScreens::Sections));
    Picture(QStringLiteral("setup-sections-in-imperial-units"));
    OpenSetup(QLatin1String(SetupScreens::Tank));
    PressButton(QStringLiteral("setup-tank"));
    Settle();
    Picture(QStringLiteral("tank-in-gallons"));
    EndEdit(Qt::Key_Escape);
    OpenSetup(QLatin1String(SetupScreens::Equipment));
    Picture(QStringLiteral("setup-equipment-in-imperial-units"));
}

void TTour::ShowSprayerInOtherUnits()
{
    DragOffRight(TSprayerModule::Id());
    Settle();
    Picture(QStringLiteral("sprayer-in-imperial-units"));
    PressButton(QStringLiteral("sprayer-calibrate"));
    Settle();
    Picture(QStringLiteral("calibration-in-imperial-units"));
    PressButton(QStringLiteral("icon-cross-larger"));
    Settle();
    DragOffRight(TGuidanceModule::Id());
    Settle();
}

// The wheel's keys rest until it is touched.
void TTour::EndEdit(Qt::Key key)
{
    for (int const units : {WheelNotch, -WheelNotch})
    {
        m_Operator.Wheel(units);
        m_Time->Pass(WideStep);
    }
    m_Operator.Key(key);
    m_Time->Pass(WideStep);
}

void TTour::ShowDiagnostics()
{
    TScreen* const screen = m_Console->Screen();
    QWidget* const button =
        screen->GetSpecialNavigationButton(screen->GetNavButtonID(TDiagnosticsModule::Id()));
    Press(button, QStringLiteral("the diagnostics"));
    Settle();
    Picture(QStringLiteral("diagnostics"));
    Press(button, QStringLiteral("the way back from the diagnostics"));
    Settle();
    Picture(QStringLiteral("back-again"));
}

void TTour::ShowSystemToolBar()
{
    DragOffRight(TGnssModule::Id());
    Settle();
    PressButton(QStringLiteral("icon-home"));
    Settle();
    Picture(QStringLiteral("home"));
    PressButton(QStringLiteral("icon-usb"));
    Settle();
    Picture(QStringLiteral("stick-ejected"));
    PressButton(QStringLiteral("icon-tick-larger"));
    Settle();
    PressButton(QStringLiteral("icon-usb"));
    Settle();
    Picture(QStringLiteral("stick-asked-for"));
    PressButton(QStringLiteral("icon-tick-larger"));
    Settle();
}

void TTour::ShowOffScreenButtons()
{
    SwipeUp();
    Picture(QStringLiteral("off-screen-buttons-rising"));
    Settle();
    PressButton(QStringLiteral("stick"));
    PressButton(QStringLiteral("icon-louder"));
    Settle();
    Picture(QStringLiteral("off-screen-buttons"));
    SwipeDown();
    Settle();
    if (m_Console->Screen()->GetOffScreenButtons()->isVisible())
        Fail(QStringLiteral("a swipe down left the off-screen buttons up"));
    PressButton(QStringLiteral("icon-up"));
    Settle();
    if (!m_Console->Screen()->GetOffScreenButtons()->isVisible())
        Fail(QStringLiteral("the system tool bar does not bring the off-screen buttons"));
    SwipeDown();
    Settle();
}

void TTour::ShowToolTips()
{
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("icon-tool-tip"));
    Settle();
    Picture(QStringLiteral("tool-tips"));
    PressNavigation(TSprayerModule::Id());
    Settle();
    Picture(QStringLiteral("tool-tip"));
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("icon-quieter"));
    Settle();
    Picture(QStringLiteral("tool-tip-off-screen"));
    PressButton(QStringLiteral("icon-tool-tip"));
    Settle();
}

void TTour::ShowScreenshot()
{
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("icon-screenshot"));
    Settle();
    if (!IsScreenshotOnStick())
        Fail(QStringLiteral("the picture of the screen is not on the stick"));
    SwipeUp();
    Settle();
    PressButton(QStringLiteral("stick"));
    PressButton(QStringLiteral("icon-screenshot"));
    Settle();
    Picture(QStringLiteral("picture-without-a-stick"));
    PressButton(QStringLiteral("icon-tick-larger"));
    Settle();
}

void TTour::SwipeUp()
{
    QPoint const edge(SCREEN_WIDTH / 2, SCREEN_HEIGHT - 1);
    m_Operator.Drag(edge, edge - QPoint(0, DragSteps), FlickSteps);
}

void TTour::SwipeDown()
{
    QPoint const edge(SCREEN_WIDTH / 2, SCREEN_HEIGHT - 1);
    m_Operator.Drag(edge - QPoint(0, SCREEN_HEIGHT / 8), edge, DragSteps);
}

void TTour::Picture(QString const& name)
{
    QString const file =
        QStringLiteral("%1/%2-%3.png").arg(m_Folder).arg(++m_Number, 2, 10, QLatin1Char('0')).arg(name);
    if (!m_Console->Screen()->grab().save(file, "PNG"))
        Fail(QStringLiteral("%1 cannot be written").arg(file));
}

void TTour::Press(QWidget* button, QString const& what)
{
    if (!m_Operator.Tap(button))
        Fail(QStringLiteral("%1 cannot be pressed before picture %2").arg(what).arg(m_Number + 1));
}

void TTour::PressButton(QString const& objectName)
{
    // What lies under something else cannot be tapped.
    auto const buttons = m_Console->Screen()->findChildren<TPushButton*>(objectName);
    for (TPushButton* const button : buttons)
    {
        if (button->isVisible() && m_Operator.Tap(static_cast<QWidget*>(button)))
            return;
    }
    Fail(QStringLiteral("no button %1 can be pressed before picture %2").arg(objectName).arg(m_Number + 1));
}

void TTour::PressInMenu(QString const& objectName)
{
    auto const buttons = m_Console->Screen()->findChildren<TPushButton*>(objectName);
    for (TPushButton* const button : buttons)
    {
        bool const isInBar = qobject_cast<TTaskToolBar*>(button->parentWidget());
        if (isInBar && button->isVisible() && m_Operator.Tap(static_cast<QWidget*>(button)))
            return;
    }
    Fail(QStringLiteral("no element %1 can be pressed before picture %2").arg(objectName).arg(m_Number + 1));
}

void TTour::FollowMenuPath(QString const& path)
{
    bool isFollowed = false;
    auto const canvases = m_Console->Screen()->findChildren<TMenuCanvas*>();
    for (TMenuCanvas* const canvas : canvases)
    {
        if (canvas->isVisible())
            isFollowed = canvas->GetMenuDisplay()->FollowPath(DefOf(*canvas->GetMenuManager(), path), nullptr,
                                                              QString());
    }
    if (!isFollowed)
        Fail(QStringLiteral("the macro path %1 cannot be followed").arg(path));
    m_Time->Pass(PathTime);
}

void TTour::PressNavigation(KVN::MorvaneID const& id)
{
    TScreen* const screen = m_Console->Screen();
    Press(screen->GetNavButton(screen->GetNavButtonID(id)), QStringLiteral("a navigation button"));
}

void TTour::DragOffRight(KVN::MorvaneID const& id)
{
    TScreen* const screen = m_Console->Screen();
    QPoint const from = m_Operator.MiddleOf(screen->GetNavButton(screen->GetNavButtonID(id)));
    m_Operator.Drag(from, from + QPoint(2 * NAVBAR_WIDTH, 0), DragSteps);
    if (screen->GetWindowManager()->GetFullViewId() != screen->GetNavButtonID(id))
        Fail(QStringLiteral("a drag off the bar brought no full view before picture %1").arg(m_Number + 1));
}

// A process of its own writes it, in real time.
bool TTour::IsScreenshotOnStick() const
{
    QString stick;
    TSystemSettingsProxy::Instance()->GetExternalDrivePath(stick);
    QDir const folder(stick + QStringLiteral("/Screenshots"));
    QDeadlineTimer const deadline(StickPatience);
    while (folder.isEmpty() && !deadline.hasExpired())
    {
        QThread::msleep(PollTime);
        QCoreApplication::processEvents();
    }
    return !folder.isEmpty();
}

void TTour::Settle()
{
    m_Time->Pass(SettleTime);
}

// The first one counts; what follows may follow from it.
void TTour::Fail(QString const& reason)
{
    if (m_Failure.isEmpty())
        m_Failure = reason;
}
