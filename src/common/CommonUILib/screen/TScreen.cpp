#include "TScreen.h"

#include "ConfigManager.h"
#include "FeatureSwitches.h"
#include "Metrics.h"
#include "ModuleIds.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TCameraXVOverlayManager.h"
#include "TCanvas.h"
#include "TExternalDrive.h"
#include "TFileHash.h"
#include "TKeyboard.h"
#include "TLocalTime.h"
#include "TMessageDialog.h"
#include "TMiniWindow.h"
#include "TMMICapableWidgetNavigator.h"
#include "TModalWidget.h"
#include "TNavigationBar.h"
#include "TNavigationWindow.h"
#include "TObstructionManager.h"
#include "TSoundServer.h"
#include "TSystemSettings.h"
#include "TSystemSettingsProxy.h"
#include "TSystemToolBar.h"
#include "TWindowManager.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace
{
constexpr int AlarmTop = -6;
constexpr int NavigationWindowMargin = 5;
constexpr int ScreenShotDelay = 100;
const QColor FlashColor(255, 255, 255, 96);
constexpr int SmallScreenHeight = 600;

QString ImagePath(char const* file)
{
    return QStringLiteral(":/Images/Resources/") + QLatin1String(file);
}

struct TImage
{
    char const* name;
    char const* file;
    char const* smallScreenFile;
};

// The names carry sizes that do not match the files, and that is how modules know them.
constexpr TImage Backgrounds[] = {
    {"bkgControllers800x600", "bkgControllers1024x768.png", "bkgControllers800x600.png"},
    {"bkgSysInfo480x272", "bkgSysInfo1024x768.png", "bkgSysInfo800x600.png"},
    {"bkgUSBGeneric480x272", "bkgUSBGeneric1024x768.png", "bkgUSBGeneric800x600.png"},
    {"bkgBlackGeneric480x272", "bkgBlackGeneric1024x768.png", "bkgBlackGeneric800x600.png"},
    {"bkgDiagnostics800x600", "bkgDiagnostics1024x768.png", "bkgDiagnostics800x600.png"},
};

struct TFrame
{
    char const* name;
    char const* file;
    char const* fullScreenFile;
};

constexpr TFrame TaskWindowFrames[] = {
    {"TaskWindowNoShadow", "TaskWindow.png", "TaskWindowNoShadow.png"},
    {"TaskWindowNoTitlebarNoShadow", "TaskWindowNoTitlebar.png", "TaskWindowNoTitlebarNoShadow.png"},
    {"TaskWindowUSBNoShadow", "TaskWindowUSB.png", "TaskWindowUSBNoShadow.png"},
};

constexpr char const* SetupBackgrounds[] = {"SetupScreenBackgroundTop480x272",
                                            "SetupScreenBackgroundBottom480x272",
                                            "SetupScreenBackgroundDark800x600"};

// What cannot be read has no digest, and an empty key does not open it.
bool HasDigest(QString const& path, QString const& expected)
{
    QByteArray const digest = TFileHash::CalculateFileSaltedSHA1(path);
    return !digest.isEmpty() && expected == QString::fromLatin1(digest.toHex());
}

// The built-in splash unless the branding names a file that carries the key it was delivered with.
QString SplashPath()
{
    QString const drive = TSystemSettings::GetInternalDrivePath();
    QSettings const console(drive + QStringLiteral("Console.ini"), QSettings::IniFormat);
    QString const fileName = console.value(QStringLiteral("Branding/SplashScreen"), QString()).toString();
    QString const key = console.value(QStringLiteral("Branding/SplashScreenKey"), QString()).toString();
    QString const branded =
        drive + QLatin1String(TSystemSettings::BrandingFolder) + QLatin1Char('/') + fileName;
    if (!fileName.isEmpty() && QFile::exists(branded) && HasDigest(branded, key.toLower()))
        return branded;
    switch (SCREEN_HEIGHT)
    {
    case 600:
        return ImagePath("SplashScreen800x600.png");
    case 480:
        return ImagePath("SplashScreen800x480.png");
    default:
        return ImagePath("SplashScreen1024x768.png");
    }
}

// "MenuButtonFlatSmall" is registered twice on purpose: the list of names holds it twice.
void AddMenuButtons(KVN::PixmapManager* pixmaps)
{
    for (char const* const name :
         {"MenuButtonFlatSmall", "MenuButtonFlatSelectedSmall", "MenuButtonFlatSmall"})
    {
        QString const file = QLatin1String(name) + QStringLiteral(".png");
        pixmaps->AddPixmap(QLatin1String(name), ImagePath("") + file, 28, 17, 102, 66, false,
                           TABLE_OF_CONTENTS_SCALE_FACTOR);
    }
}

void AddSplash(KVN::PixmapManager* pixmaps)
{
    if (SCREEN_HEIGHT == SmallScreenHeight)
        pixmaps->AddPixmap(PixmapNames::SplashScreen, SplashPath(), 0, 0, 0, 0, false, 1.0F);
    else
        pixmaps->AddPixmap(PixmapNames::SplashScreen, SplashPath(), 336, 1, SCREEN_WIDTH - 2,
                           SCREEN_HEIGHT - 2, true, 1.0F);
}

void AddBackgrounds(KVN::PixmapManager* pixmaps)
{
    for (TImage const& image : Backgrounds)
    {
        char const* const file = SCREEN_HEIGHT == SmallScreenHeight ? image.smallScreenFile : image.file;
        pixmaps->AddPixmap(QLatin1String(image.name), ImagePath(file), 0, 0, 0, 0, false, 1.0F);
    }
}

void AddTaskWindowFrames(KVN::PixmapManager* pixmaps)
{
    for (TFrame const& frame : TaskWindowFrames)
    {
        char const* const file = TASK_WINDOW_USE_FULLSCREEN ? frame.fullScreenFile : frame.file;
        pixmaps->AddPixmap(QLatin1String(frame.name), ImagePath(file), 8, 38, 306, 306, false, 1.0F);
    }
}

void AddSetupBackgrounds(KVN::PixmapManager* pixmaps)
{
    QString const path = ImagePath(SCREEN_HEIGHT == 768 ? "SetupScreenBackgroundFlat1024x768.png"
                                                        : "SetupScreenBackgroundFlat800x600.png");
    for (char const* const name : SetupBackgrounds)
        pixmaps->AddPixmap(QLatin1String(name), path, 0, 0, 0, 0, false, 1.0F);
}
} // namespace

TScreen::TScreen()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , m_SoundThread(new QThread)
{
    resize(SCREEN_WIDTH, SCREEN_HEIGHT);
    m_ExternalDrive = std::make_unique<TExternalDrive>();
    m_CameraOverlayManager = std::make_unique<TCameraXVOverlayManager>();
    m_ObstructionManager = std::make_unique<TObstructionManager>(this, nullptr);
    PopulatePixmapManager();
    BuildNavigationBars();

    m_WindowManager = new TWindowManager(this, m_NavigationBar);
    m_WindowManager->SetSetupManagerUniqueId(
        KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString());
    m_WindowManager->SetInventorManagerUniqueId(
        KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_INVENTOR_MANAGER]).ToString());

    m_ModalWidget = new TModalWidget(this);
    m_ModalWidget->setFixedSize(SCREEN_WIDTH, SCREEN_HEIGHT);
    m_ModalWidget->hide();
    StartSound();
}

TScreen::~TScreen()
{
    // From here on nobody may find the screen: its children are about to go.
    if (MainScreen == this)
        MainScreen = nullptr;
    // Their end takes them off the host's stacks, which ask a whole screen what comes next.
    m_EjectedMessage.reset();
    m_EjectFailedMessage.reset();
    m_InsertUSBMessage.reset();
    for (TLockingWidget const& lock : qAsConst(m_LockingWidgets))
        disconnect(lock.widget, nullptr, this, nullptr);
    m_LockingWidgets.clear();
    // Without a parent while it is hidden.
    delete m_NavigationWindow;
    m_PixmapManager.reset();
    m_SoundServer->deleteLater();
    m_ObstructionManager.reset();
    delete m_Keyboard;
    m_SoundThread->quit();
    // A thread must not be deleted while it runs; it has nothing left to do but to end.
    m_SoundThread->wait();
    m_SoundThread->deleteLater();
}

void TScreen::PopulatePixmapManager()
{
    m_PixmapManager = std::make_unique<KVN::PixmapManager>();
    m_PixmapManager->Initialize();
    AddMenuButtons(m_PixmapManager.get());
    AddSplash(m_PixmapManager.get());
    AddBackgrounds(m_PixmapManager.get());
    AddTaskWindowFrames(m_PixmapManager.get());
    AddSetupBackgrounds(m_PixmapManager.get());
}

void TScreen::BuildNavigationBars()
{
    if (!USE_NAVIGATION_BAR)
        return;
    m_NavigationBar = new TNavigationBar(this, false, true);
    m_NavigationBar->move(0, 0);
    m_NavigationBar->setFixedWidth(NAVBAR_WIDTH);
    m_NavigationBar->resize(NAVBAR_WIDTH, SCREEN_HEIGHT);
    m_NavigationBar->hide();
    m_NavigationBar->SetDragSettings(true, true, false, true, true);
    m_NavigationBar->SetUserResizeButtons(true);
    m_ObstructionManager->RegisterObstruction(m_NavigationBar, OBSTRUCTION_LEFT);
    if (USE_SPECIAL_NAVIGATION_BAR)
    {
        m_SpecialNavigationBar = new TNavigationBar(this, true, true);
        m_SpecialNavigationBar->setFixedWidth(NAVBAR_WIDTH);
        // Out of sight until the setup gives it a place: it would lie over the first button of the other bar.
        m_SpecialNavigationBar->move(0, SCREEN_HEIGHT);
        m_SpecialNavigationBar->hide();
        m_SpecialNavigationBar->SetDragSettings(false, false, false, false, false);
        m_SpecialNavigationBar->SetButtonOffset(SPACE_BETWEEN_NAV_BARS);
        m_SpecialNavigationBar->SetUserResizeButtons(true);
    }
}

void TScreen::StartSound()
{
    QString const folder =
        QDir::cleanPath(TSystemSettings::GetInternalDrivePath() + QStringLiteral("/Sounds/"));
    m_SoundServer = new TSoundServer(nullptr, folder);
    m_SoundServer->moveToThread(m_SoundThread);
    connect(m_SoundThread, &QThread::started, m_SoundServer, &TSoundServer::Initialise);
    m_SoundThread->start(QThread::InheritPriority);
}

void TScreen::Setup()
{
    if (!USE_NAVIGATION_BAR)
        SetupNavigationWindow();
    m_Keyboard = new TKeyboard(nullptr);
    m_Keyboard->HideWindow();
}

void TScreen::SetupNavigationWindow()
{
    m_NavigationWindow = new TNavigationWindow(this);
    int const bleed = INPUT_WINDOW_SHADOW_SIZE - 2 * NavigationWindowMargin;
    m_NavigationWindow->setFixedSize(SCREEN_WIDTH + bleed, SCREEN_HEIGHT + bleed);
    m_NavigationWindow->move(NavigationWindowMargin, NavigationWindowMargin);
    m_NavigationWindow->HideWindow();
}

KVN::PixmapManager* TScreen::GetPixmapManager() const
{
    return m_PixmapManager.get();
}

TObstructionManager* TScreen::GetObstructionManager() const
{
    return m_ObstructionManager.get();
}

TCameraXVOverlayManager* TScreen::GetCameraOverlayManager() const
{
    return m_CameraOverlayManager.get();
}

TExternalDrive* TScreen::GetExternalDrive() const
{
    return m_ExternalDrive.get();
}

TWindowManager* TScreen::GetWindowManager() const
{
    return m_WindowManager;
}

TModalWidget* TScreen::GetModalWidget() const
{
    return m_ModalWidget;
}

TNavigationBar* TScreen::GetNavigationBar() const
{
    return m_NavigationBar;
}

TNavigationBar* TScreen::GetSpecialNavigationBar() const
{
    return m_SpecialNavigationBar;
}

TNavigationWindow* TScreen::GetNavigationWindow() const
{
    return m_NavigationWindow;
}

TCanvas* TScreen::GetCurrentCanvas() const
{
    return m_CurrentCanvas;
}

bool TScreen::IsNavigationBarVisible() const
{
    return m_NavigationBar && m_NavigationBar->isVisible();
}

void TScreen::SetCurrentCanvas(TCanvas* canvas, bool showBars)
{
    if (!canvas)
        return;
    QPointer<TCanvas> const wanted(canvas);
    if (m_CurrentCanvas)
        m_CurrentCanvas->hide();
    // Modules clean up when a view goes, and may take the next one with them.
    if (!wanted)
        return;
    m_CurrentCanvas = canvas;
    if (canvas->parentWidget() != this)
    {
        canvas->setParent(this);
        canvas->move(0, 0);
    }
    canvas->lower();
    canvas->show();
    for (TNavigationBar* const bar : {m_NavigationBar, m_SpecialNavigationBar})
    {
        if (!bar)
            continue;
        if (showBars)
            RaiseToBelowTooltips(bar);
        bar->setVisible(showBars);
    }
    if (!showBars)
        return;
    if (m_AlarmWidget)
        RaiseToBelowTooltips(m_AlarmWidget);
    CheckToolbarsForLocking();
}

void TScreen::SetAlarmWidget(TWindow* widget)
{
    m_AlarmWidget = widget;
    if (!widget)
        return;
    widget->setParent(this);
    widget->move(width() / 2 - widget->width() / 2, AlarmTop);
    widget->HideWindow();
    if (m_AlarmWidget)
        RaiseToBelowTooltips(m_AlarmWidget);
}

TWindow* TScreen::GetAlarmWidget() const
{
    return m_AlarmWidget;
}

QRect TScreen::GetUsableRect()
{
    return {0, 0, width() - GetSystemToolBarWidth(), height()};
}

TKeyboard* TScreen::GetKeyboard()
{
    return m_Keyboard;
}

QWidget* TScreen::GetTopLevelWidgetFor(QWidget* widget)
{
    Q_UNUSED(widget)
    return this;
}

bool TScreen::IsExternal()
{
    return false;
}

TSoundServer* TScreen::GetSoundServerPtr() const
{
    return m_SoundServer;
}

bool TScreen::IsGuideActive() const
{
    return false;
}

void TScreen::RaiseToBelowTooltips(QWidget* widget)
{
    if (!widget)
        return;
    for (QObject* const child : children())
    {
        // By name: the screen knows nothing else of tool tips.
        if (!child->isWidgetType() || !child->inherits("TToolTip"))
            continue;
        auto* const toolTip = static_cast<QWidget*>(child);
        toolTip->raise();
        widget->raise();
        widget->stackUnder(toolTip);
        return;
    }
    widget->raise();
}

void TScreen::RaiseToBelowSystemToolbar(QWidget* widget)
{
    if (!m_SystemToolBar || !widget)
        return;
    widget->raise();
    widget->stackUnder(m_SystemToolBar);
}

void TScreen::RaiseToBelowNavigationBar(QWidget* widget)
{
    if (!m_NavigationBar || !widget)
        return;
    widget->raise();
    widget->stackUnder(m_NavigationBar);
}

void TScreen::RaiseToBelowAlarm(QWidget* widget)
{
    if (!widget)
        return;
    RaiseToBelowTooltips(widget);
    if (m_AlarmWidget && m_AlarmWidget->parentWidget() == this)
    {
        // A hidden alarm may have been left behind below windows that came later.
        if (m_AlarmWidget != widget)
            RaiseToBelowTooltips(m_AlarmWidget);
        widget->stackUnder(m_AlarmWidget);
    }
    RaiseOffScreenButtons();
}

void TScreen::UnLockSystemToolbar()
{
    if (m_SystemToolBar && !m_AllToolbarsLocked)
        RaiseToBelowAlarm(m_SystemToolBar);
}

void TScreen::AddLockingWidget(KVN::ModalData const& data)
{
    if (!data.widget)
        return;
    int const known = FirstLockOf(data.widget);
    if (known >= 0)
        EraseLock(known);
    TLockingWidget lock;
    static_cast<KVN::ModalData&>(lock) = data;
    lock.lockToolbars = data.modalType == KVN::MODAL_GLOBAL;
    m_LockingWidgets.append(lock);
    connect(lock.widget, &QObject::destroyed, this, &TScreen::OnWidgetDeleted);

    QPointer<TScreen> const self(this);
    Q_EMIT NotifyScreenLock(true);
    if (!self)
        return;
    if (FirstLockOf(lock.widget) < 0)
    {
        // Whoever heard of the lock has ended it already.
        CheckToolbarsForLocking();
        return;
    }
    m_ModalWidget->SetModalData(lock);
    m_ModalWidget->show();
    LockAllToolbars(lock.lockToolbars);
}

int TScreen::FirstLockOf(QObject const* widget) const
{
    auto const found = std::find_if(m_LockingWidgets.begin(), m_LockingWidgets.end(),
                                    [widget](TLockingWidget const& lock) { return lock.widget == widget; });
    return found == m_LockingWidgets.end() ? -1
                                           : static_cast<int>(std::distance(m_LockingWidgets.begin(), found));
}

void TScreen::EraseLock(int index)
{
    disconnect(m_LockingWidgets[index].widget, &QObject::destroyed, this, &TScreen::OnWidgetDeleted);
    m_LockingWidgets.remove(index);
}

void TScreen::RemoveLockingWidget(QWidget* widget)
{
    int index = m_LockingWidgets.size() - 1;
    while (index >= 0 && m_LockingWidgets[index].widget != widget)
        --index;
    if (index < 0)
    {
        // The owner of a widget that died takes its lock off all the same.
        if (m_LockVanished)
            CheckToolbarsForLocking();
        return;
    }
    EraseLock(index);
    QPointer<TScreen> const self(this);
    if (m_LockingWidgets.isEmpty())
        EndScreenLock();
    if (self)
        LockAllToolbars(false);
}

void TScreen::EndScreenLock()
{
    m_LockVanished = false;
    m_ModalWidget->hide();
    Q_EMIT NotifyScreenLock(false);
}

// Takes the dead out and does no more: a widget that goes in the middle of some operation must not restack
// the screen under it. The next operation puts things right.
void TScreen::OnWidgetDeleted(QObject* widget)
{
    for (int i = m_LockingWidgets.size() - 1; i >= 0; --i)
    {
        if (static_cast<QObject*>(m_LockingWidgets[i].widget) == widget)
        {
            m_LockingWidgets.remove(i);
            m_LockVanished = true;
        }
    }
}

// False when whoever heard of the end of the lock deleted the screen.
bool TScreen::PutVanishedLocksRight()
{
    if (!m_LockVanished)
        return true;
    m_LockVanished = false;
    m_AllToolbarsLocked = IsAnyLockGlobal();
    QPointer<TScreen> const self(this);
    if (m_LockingWidgets.isEmpty())
        EndScreenLock();
    return !self.isNull();
}

bool TScreen::IsAnyLockGlobal() const
{
    return std::any_of(m_LockingWidgets.begin(), m_LockingWidgets.end(),
                       [](TLockingWidget const& lock) { return lock.lockToolbars; });
}

void TScreen::LockAllToolbars(bool wanted)
{
    if (!PutVanishedLocksRight())
        return;
    m_AllToolbarsLocked = wanted || IsAnyLockGlobal();
    CheckToolbarsForLocking();
}

bool TScreen::AreAllToolbarsLocked() const
{
    return m_AllToolbarsLocked;
}

QVector<TLockingWidget> const& TScreen::GetLockingWidgets() const
{
    return m_LockingWidgets;
}

QWidget* TScreen::LockAnchor() const
{
    switch (m_LockingWidgets.size())
    {
    case 0:
        return m_SystemToolBar;
    case 1:
        return m_ModalWidget;
    default:
        return m_LockingWidgets.constFirst().widget;
    }
}

void TScreen::CheckToolbarsForLocking()
{
    if (!PutVanishedLocksRight())
        return;
    if (m_LockingWidgets.isEmpty() && m_AllToolbarsLocked)
        return;
    if (m_AlarmWidget && m_AlarmWidget->isVisible())
        RaiseToBelowTooltips(m_AlarmWidget);

    QWidget* const anchor = LockAnchor();
    if (m_AllToolbarsLocked)
        StackForGlobalLock(anchor);
    else
        StackForLocalLock();

    for (TNavigationBar* const bar : {m_NavigationBar, m_SpecialNavigationBar})
    {
        if (bar && anchor)
            bar->stackUnder(anchor);
    }
    QPointer<TScreen> const self(this);
    if (IsNavigationBarVisible())
        m_WindowManager->RestoreAllMiniViews();
    if (!self)
        return;
    RaiseOffScreenButtons();
    Q_EMIT LayersChecked();
}

void TScreen::StackForGlobalLock(QWidget* anchor)
{
    TLockingWidget const last = m_LockingWidgets.constLast();
    if (isAncestorOf(last.widget))
        RaiseToBelowAlarm(last.widget);
    m_ModalWidget->SetModalData(last);
    m_ModalWidget->stackUnder(last.widget);
    if (m_SystemToolBar)
        m_SystemToolBar->stackUnder(anchor);
}

void TScreen::StackForLocalLock()
{
    UnLockSystemToolbar();
    if (m_LockingWidgets.isEmpty())
        return;
    TLockingWidget const last = m_LockingWidgets.constLast();
    if (isAncestorOf(last.widget))
    {
        RaiseToBelowAlarm(last.widget);
        RaiseToBelowSystemToolbar(last.widget);
    }
    m_ModalWidget->SetModalData(last);
    m_ModalWidget->stackUnder(last.widget);
}

void TScreen::SetMMINavigator(TMMICapableWidgetNavigator* navigator)
{
    m_Navigator = navigator;
}

TMMICapableWidgetNavigator* TScreen::GetMMINavigator() const
{
    return m_Navigator;
}

void TScreen::PushMMIWidget(QWidget* widget)
{
    if (m_Navigator)
        m_Navigator->PushWidget(widget);
}

void TScreen::SetDefaultView(KVN::MorvaneID const& id)
{
    m_WindowManager->SetDefaultView(id.ToString());
}

void TScreen::DisplayStartupFullView()
{
    UpdateNavBarSizes();
    m_WindowManager->RestoreShutdownState();
}

void TScreen::SetNavShortcut(int navigationId)
{
    m_ShortcutView = navigationId;
}

void TScreen::DelayedScreenShot()
{
    QTimer::singleShot(ScreenShotDelay, this, &TScreen::TakeScreenShot);
}

void TScreen::TakeScreenShot()
{
    // Its flash lets events through, among them the wish for the next picture.
    if (m_ScreenShotFlash && !m_ScreenShotFlash->isHidden())
        return;
    QString drive;
    if (!TSystemSettingsProxy::Instance()->GetExternalDrivePath(drive))
    {
        if (m_InsertUSBMessage)
            m_InsertUSBMessage->ShowWindow(false);
        return;
    }
    QPointer<TScreen> const self(this);
    m_CameraOverlayManager->StartScreenShot();
    if (!self)
        return;
    ShowFlash();
    // Heard also with sounds off: the operator must know that the picture was taken.
    if (TSoundServer* const server = GetSoundServerPtr())
    {
        int const volume = ConfigManager::Instance()->Read(CONFIG_SOUND_VOLUME).toInt();
        server->PlaySound(SOUND_SCREENSHOT, volume, SOUND_SCREENSHOT);
    }
    QCoreApplication::processEvents();
    if (!self)
        return;
    m_ScreenShotFlash->hide();
    SaveScreenShot(drive);
    if (self)
        m_CameraOverlayManager->FinishScreenShot();
}

void TScreen::ShowFlash()
{
    if (!m_ScreenShotFlash)
    {
        m_ScreenShotFlash = new QWidget(this);
        m_ScreenShotFlash->setFixedSize(SCREEN_WIDTH, SCREEN_HEIGHT);
        QPalette white = m_ScreenShotFlash->palette();
        white.setColor(QPalette::Window, FlashColor);
        m_ScreenShotFlash->setPalette(white);
        m_ScreenShotFlash->setAutoFillBackground(true);
    }
    m_ScreenShotFlash->show();
    m_ScreenShotFlash->raise();
    m_ScreenShotFlash->update();
}

void TScreen::SaveScreenShot(QString const& drive)
{
    QString const name = TLocalTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-hh-mm-ss"));
    QByteArray picture;
    QBuffer buffer(&picture);
    grab().save(&buffer, "PNG");
    m_ExternalDrive->SaveFile(drive, QStringLiteral("Screenshots"), name + QStringLiteral(".png"), picture);
}

void TScreen::OnNavigationWindow()
{
    if (!m_NavigationWindow)
        return;
    if (m_NavigationWindow->isVisible())
        m_NavigationWindow->HideWindow();
    else
        m_NavigationWindow->ShowWindow(true);
}

void TScreen::SquishRestart(int code)
{
    Q_EMIT RequestShutdown(code);
}

void TScreen::OnFlyoutWindowOpened()
{
    ++m_OpenFlyouts;
    m_CameraOverlayManager->ShowingFlyoutWindow();
}

void TScreen::OnFlyoutWindowClosed()
{
    m_OpenFlyouts = qMax(0, m_OpenFlyouts - 1);
    if (m_OpenFlyouts == 0)
        m_CameraOverlayManager->HidingFlyoutWindow();
}

void TScreen::OnNavShortcut()
{
    m_WindowManager->OnSwitchToView(m_ShortcutView);
}
