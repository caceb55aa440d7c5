#pragma once

#include "CommonUILibExport.h"
#include "ESoundType.h"
#include "ITopLevelWindow.h"
#include "MainScreen.h"
#include "MMICapableWidget.h"
#include "ModalData.h"
#include "MorvaneID.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QUuid>
#include <QVector>
#include <QWidget>

#include <memory>

class QThread;
enum EDriveResult : int;
class TCameraXVOverlayManager;
class TCanvas;
class TExternalDrive;
class TFullWindow;
class TMessageDialog;
class TMiniWindow;
class TMMICapableWidgetNavigator;
class TModalWidget;
class TNavigationBar;
class TNavigationWindow;
class TObstructionManager;
class TOffScreenButtons;
class TPushButton;
class TSoundServer;
class TSystemToolBar;
class TSystemToolBarButton;
class TWindow;
class TWindowManager;

/// One entry in the screen's stack of locks.
struct TLockingWidget : KVN::ModalData
{
    bool lockToolbars = false; ///< the lock is global: the bars are behind the fade
};

/// The one top-level widget of the console: frameless, SCREEN_WIDTH by SCREEN_HEIGHT pixels. Everything that
/// is seen lies in it. It owns the window manager, the navigation bars, the obstruction manager, the art, the
/// sound server and its thread and the fade behind what is modal, and it alone decides what stands above
/// what, and who locks the screen.
///
/// A host builds it, stores it in MainScreen, calls Setup(), hands it views, shows it, and calls
/// DisplayStartupFullView(). On the way down it calls TWindowManager::SaveShutdownState() and deletes the
/// screen. GUI thread only.
///
/// Layers, bottom to top: the current canvas; mini windows that are closed or sliding; the navigation bars;
/// open mini windows, panels and task windows; the system tool bar; the fade; the locking widget on top; the
/// alarm widget; off-screen buttons; tool tips.
class COMMONUILIB_EXPORT TScreen : public QWidget, public KVN::MMICapableWidget, public ITopLevelWindow
{
    Q_OBJECT

public:
    TScreen();
    ~TScreen() override;

    /// Builds the art anew: the manifest, and the images whose file or geometry depends on the build. The
    /// constructor calls it.
    void PopulatePixmapManager();

    /// \name Parts
    /// @{
    KVN::PixmapManager* GetPixmapManager() const;
    TObstructionManager* GetObstructionManager() const;
    TCameraXVOverlayManager* GetCameraOverlayManager() const;
    /// Tells what becomes of screenshots, and ejects.
    TExternalDrive* GetExternalDrive() const;
    TWindowManager* GetWindowManager() const;
    TModalWidget* GetModalWidget() const;
    /// Null where the feature switches leave it out.
    TNavigationBar* GetNavigationBar() const;
    TNavigationBar* GetSpecialNavigationBar() const;
    TNavigationWindow* GetNavigationWindow() const;
    TCanvas* GetCurrentCanvas() const;
    bool IsNavigationBarVisible() const;

    /// Swaps the canvas: the old one is hidden, the new one, which becomes a child of the screen, lies below
    /// everything and is shown. With \a showBars the bars stand above it, without they are hidden. A null
    /// canvas changes nothing.
    void SetCurrentCanvas(TCanvas* canvas, bool showBars);

    /// The host's alarm window, placed at the middle of the upper edge and hidden; null for none. Like every
    /// window of the screen it has no parent until it is shown.
    void SetAlarmWidget(TWindow* widget);
    TWindow* GetAlarmWidget() const;
    /// @}

    /// \name System tool bar
    /// It is the host's or a module's; the screen keeps it in its bottom right corner and in its layer.
    /// Without one its buttons go nowhere, and its room is 0.
    /// @{
    /// Shows \a bar, which becomes a child of the screen, in the corner; the one before is hidden. Null:
    /// none.
    void SetSystemToolBar(TSystemToolBar* bar);
    TSystemToolBar* GetSystemToolBar() const;
    /// A bar that is wanted follows its own size into the corner, with SystemToolbarGeometryChanged(). Views
    /// call it as they come and go.
    void ShowSystemToolbar(bool show);
    /// How many of its buttons a view leaves room for, -1 for all. The bar decides what it makes of it.
    void LimitVisibleSystemToolBarButtons(int count);
    /// The first two are 0 also while it is hidden.
    int GetSystemToolBarWidth() const;
    int GetSystemToolBarHeight() const;
    int GetSystemToolBarWidthWithoutVisibilityCheck() const;
    int GetSystemToolBarHeightWithoutVisibilityCheck() const;
    /// @}

    /// \name Off-screen buttons
    /// The strip below the lower edge, made for its first button. It answers to touches while
    /// CommonUIOptions::offScreenButtonsEnabled is set.
    /// @{
    /// See TOffScreenButtons::AddOffScreenButton().
    void AddOffscreenButton(TPushButton* button, bool closeOnClick, bool slowHide);
    void RemoveOffscreenButton(TPushButton* button);
    /// Null before the first button.
    TOffScreenButtons* GetOffScreenButtons() const;
    /// For the host: every press and release of a touch or a mouse on any widget, before the widget gets it.
    /// Events of other kinds are ignored.
    void AllMouseEvents(QMouseEvent* event);
    /// @}

    /// \name Stacking
    /// Null is ignored.
    /// @{
    /// Raises \a widget as far as anything may be raised: above all but tool tips.
    void RaiseToBelowTooltips(QWidget* widget);
    /// Raises \a widget to below the alarm, where that is a child of the screen, and tool tips.
    void RaiseToBelowAlarm(QWidget* widget);
    /// Puts the off-screen buttons above all but tool tips.
    void RaiseOffScreenButtons();
    /// Puts \a widget directly below the system tool bar; without one it keeps its place.
    void RaiseToBelowSystemToolbar(QWidget* widget);
    /// Puts \a widget directly below the navigation bar; without one it keeps its place.
    void RaiseToBelowNavigationBar(QWidget* widget);
    /// Raises the system tool bar to below the alarm, unless a global lock holds it.
    void UnLockSystemToolbar();
    /// Locks all bars, or unlocks them unless an entry in the stack of locks is global.
    void LockAllToolbars(bool wanted);
    bool AreAllToolbarsLocked() const;
    /// The stack of locks, in order of arrival.
    QVector<TLockingWidget> const& GetLockingWidgets() const;
    /// @}

    /// \name Wheel
    /// @{
    /// The navigator is the host's; null for none.
    void SetMMINavigator(TMMICapableWidgetNavigator* navigator);
    TMMICapableWidgetNavigator* GetMMINavigator() const;
    /// Makes \a widget the level that the wheel acts on.
    void PushMMIWidget(QWidget* widget);
    /// @}

    /// \name Views and their buttons
    /// A view is registered under a navigation id, which is the id of its button and of its view in the
    /// window manager. Windows and canvases stay the module's.
    /// @{
    /// A view with one mini window, which may be null, and a full view, if canvas or full window are given.
    /// Answers the navigation id.
    int AssignNavButton(KVN::MorvaneID const& id, QString const& icon, TMiniWindow* miniWindow,
                        TCanvas* canvas, TFullWindow* fullWindow, QString const& toolTip);
    /// A view with several mini windows that share one button and follow one another at each press. Answers
    /// the id of the first.
    int AssignNavButton(KVN::MorvaneID const& id, QString const& icon, QList<TMiniWindow*> const& miniWindows,
                        TCanvas* canvas, TFullWindow* fullWindow, QString const& toolTip);
    /// What the two above do for each mini window. \a behaviour is an eWidgetBehaviour, \a next the view that
    /// follows or -1.
    void AssignNavButton(KVN::MorvaneID const& id, int navigationId, QString const& icon,
                         TMiniWindow* miniWindow, TCanvas* canvas, TFullWindow* fullWindow,
                         QString const& toolTip, int behaviour, bool hidden, int next);
    /// A full view with a button on the special bar: the setup.
    int AssignNavSpecialButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                               TFullWindow* fullWindow, QString const& toolTip);
    /// A full view with a button on the special bar that brings it up and sends it back.
    int AssignNavActionButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                              TFullWindow* fullWindow, QString const& toolTip);
    /// Removes all views of \a id and their buttons; buttons on the special bar stay.
    void RemoveNavButton(KVN::MorvaneID const& id);
    /// The first navigation id of \a id, -1 for an unknown one.
    int GetNavButtonID(KVN::MorvaneID const& id) const;
    QMap<int, KVN::MorvaneID> GetAllNavButtonIDs() const;
    /// Null for an unknown id.
    TPushButton* GetNavButton(int navigationId);
    TPushButton* GetSpecialNavigationButton(int navigationId);
    void SetNavButtonVisibility(int navigationId, bool visible);
    void SetNavButtonEnabled(int navigationId, bool enabled);
    void SetNavSpecialButtonEnabled(int navigationId, bool enabled);
    void SetNavActionButtonVisibility(int navigationId, bool visible);
    void SetNavButtonIcon(int navigationId, QString const& icon);
    void SetNavButtonIcon(int navigationId, QImage const& icon);
    void SetNavButtonTooltip(int navigationId, QString const& toolTip);
    /// The wished order of the buttons by module; modules that are not named follow in the order of their
    /// assignment.
    void SetNavButtonOrder(QList<QUuid> const& order);
    void UpdateNavBarOrder();
    /// Shares the left edge between the two bars.
    void UpdateNavBarSizes();
    void NavButtonAdded(KVN::MorvaneID const& id, int navigationId);

    /// The view to show when there is nothing else to show.
    void SetDefaultView(KVN::MorvaneID const& id);
    /// Replays the layout of the last shutdown, or shows the default view.
    void DisplayStartupFullView();
    /// The view that OnNavShortcut() switches to; -1 for none.
    void SetNavShortcut(int navigationId);
    /// @}

    /// Builds the messages about the USB stick; until then neither a missing stick nor a failed screenshot is
    /// told. Called by a host that has a button for the stick.
    void SetupUSBButton();

    /// Builds what needs the finished screen; called once by the host, after it has stored the screen in
    /// MainScreen.
    virtual void Setup();
    QRect GetUsableRect() override;
    /// Built by Setup() and hidden; null before. It stays the screen's whoever borrows it as a child.
    TKeyboard* GetKeyboard() override;
    QWidget* GetTopLevelWidgetFor(QWidget* widget) override;
    bool IsExternal() override;
    /// A widget locks the screen: the fade goes below it, for a global lock above the bars. Adding it again
    /// moves it to the top. Emits NotifyScreenLock(true) each time. Null is ignored. A widget that dies drops
    /// out, and the next operation puts the fade right.
    void AddLockingWidget(KVN::ModalData const& data) override;
    /// The last lock of \a widget is off. When it was the last of all, the fade goes and
    /// NotifyScreenLock(false) is emitted.
    void RemoveLockingWidget(QWidget* widget) override;
    virtual TSoundServer* GetSoundServerPtr() const;
    /// Whether the operator reads a guide. For screens that have one; the base answers false.
    virtual bool IsGuideActive() const;
    /// Puts a button on the system tool bar, takes it off, and shows or hides it there; see
    /// TSystemToolBar::AddButton().
    virtual void AddSystemToolBarButton(TSystemToolBarButton* button);
    virtual void RemoveSystemToolBarButton(TSystemToolBarButton* button);
    virtual void SetSystemToolBarButtonVisible(TSystemToolBarButton* button, bool visible);

Q_SIGNALS:
    /// For hosts: their worker timer, as one tick for all modules. The toolkit neither emits nor uses it.
    void WorkerThreadTimer200msTimeout();
    void NotifyScreenLock(bool locked);
    /// For hosts: the console is asked to stop.
    void RequestShutdown(int code);
    /// A guide came up or went; IsGuideActive() has the new answer already.
    void GuideStateChanged();
    void SystemToolbarGeometryChanged();
    void OffscreenButtonsShown();
    void OffscreenButtonsHidden();
    /// Bars, fade and locking widgets were put into their layers; who keeps windows above or below them
    /// follows now.
    void LayersChecked();

public Q_SLOTS:
    /// Ejects the USB stick and tells what became of it, or asks for one. Nothing before SetupUSBButton().
    void OnUSBButtonClick();
    /// TakeScreenShot() after the press that asked for it has had time to be drawn.
    void DelayedScreenShot();
    /// Saves a picture of the screen in "Screenshots" on the USB stick, with a flash and a sound, or asks for
    /// a stick. A picture that could not be saved is no matter of the screen's: it goes into the operator's
    /// log, and whoever offers pictures tells the operator by TExternalDrive::SaveFailed().
    void TakeScreenShot();
    void OnNavigationWindow();
    /// For automation tools: emits RequestShutdown().
    void SquishRestart(int code);
    /// For automation tools: asks for the off-screen buttons.
    void SquishRequestOffScreenButtons();
    void OnWidgetDeleted(QObject* widget);
    void OnFlyoutWindowOpened();
    void OnFlyoutWindowClosed();
    void OnNavShortcut();
    void OnSystemToolBarGeometryChanged();
    /// Puts bars, fade and locking widgets into their layers.
    void CheckToolbarsForLocking();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void BuildNavigationBars();
    void SetupNavigationWindow();
    void StartSound();
    void ReleaseSystemToolBar();
    void MakeOffScreenButtons();
    TOffScreenButtons* TouchableOffScreenButtons() const;
    int FirstLockOf(QObject const* widget) const;
    void EraseLock(int index);
    void EndScreenLock();
    bool PutVanishedLocksRight();
    bool IsAnyLockGlobal() const;
    void StackForGlobalLock(QWidget* anchor);
    void StackForLocalLock();
    QWidget* LockAnchor() const;
    void ShowFlash();
    void SaveScreenShot(QString const& drive);
    int AssignSpecialBarButton(KVN::MorvaneID const& id, QString const& icon, TCanvas* canvas,
                               TFullWindow* fullWindow, QString const& toolTip);

    std::unique_ptr<KVN::PixmapManager> m_PixmapManager;
    QPointer<TCanvas> m_CurrentCanvas;
    std::unique_ptr<TExternalDrive> m_ExternalDrive;
    std::unique_ptr<TCameraXVOverlayManager> m_CameraOverlayManager;
    TNavigationBar* m_NavigationBar = nullptr;
    TNavigationBar* m_SpecialNavigationBar = nullptr;
    QPointer<TSystemToolBar> m_SystemToolBar;
    QPointer<TOffScreenButtons> m_OffScreenButtons;
    TWindowManager* m_WindowManager = nullptr;
    QPointer<TWindow> m_AlarmWidget;
    TNavigationWindow* m_NavigationWindow = nullptr;
    std::unique_ptr<TMessageDialog> m_EjectedMessage;
    std::unique_ptr<TMessageDialog> m_EjectFailedMessage;
    std::unique_ptr<TMessageDialog> m_InsertUSBMessage;
    QWidget* m_ScreenShotFlash = nullptr;
    TModalWidget* m_ModalWidget = nullptr;
    QVector<TLockingWidget> m_LockingWidgets;
    QPointer<TKeyboard> m_Keyboard; // whoever has borrowed it may take it along to its end
    TSoundServer* m_SoundServer = nullptr;
    QPointer<TMMICapableWidgetNavigator> m_Navigator;
    int m_ShortcutView = -1;
    bool m_AllToolbarsLocked = false;
    bool m_LockVanished = false; // a lock died and nothing was put right since
    int m_NextNavigationId = 0;
    bool m_SystemToolBarWanted = false;
    int m_OpenFlyouts = 0;
    std::unique_ptr<TObstructionManager> m_ObstructionManager;
    QList<QUuid> m_NavigationOrder;
    QMap<int, KVN::MorvaneID> m_IdByNavigationId;
    QMultiMap<KVN::MorvaneID, int> m_NavigationIdsById;
    QThread* m_SoundThread = nullptr;
};
