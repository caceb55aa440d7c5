#pragma once

#include "CommonUILibExport.h"
#include "TPendingWindowRestore.h"
#include "ViewDetails.h"

#include <QDomElement>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <vector>

class TGuideManager;
class TOffScreenButtons;
class TPushButton;
class TScreen;
class TWindow;

/// The registry of views. A view is what one navigation button stands for: a mini window, a canvas and a full
/// window, or some of them, under one id and one name. The manager decides which mini windows stand in which
/// slot and which full view is current, slides mini windows in and out, and saves and restores the layout.
/// The screen owns it; modules reach it through TScreen::AssignNavButton().
///
/// Every operation that takes an id returns in silence for a negative or unknown one. GUI thread only.
class COMMONUILIB_EXPORT TWindowManager : public QObject
{
    Q_OBJECT

public:
    /// \a navigationBar is what everything stacks under; null in a build without bars.
    TWindowManager(TScreen* screen, QWidget* navigationBar);
    ~TWindowManager() override;

    /// Number of slots for mini windows down the left of the screen.
    static int GetSlotCount();

    void SetSetupManagerUniqueId(QString const& name);
    void SetInventorManagerUniqueId(QString const& name);
    void SetGuideManager(TGuideManager* manager);
    TGuideManager* GetGuideManager() const;
    /// The current full view, -1 for none.
    int GetFullViewId() const;
    void SetFullViewId(int id);
    /// True for a view that came with a canvas or a full window.
    bool HasFullView(int id) const;
    /// Where OnRestoreLastView() goes back to; the setup's view is never taken.
    void SetLastFullViewId(int id);

    /// The strip to move, hidden at first; null for none.
    void SetOffScreenButtons(TOffScreenButtons* buttons);
    EOffScreenState GetOffScreenState() const;

    /// Takes up a view. A negative id is ignored, and an id that is known already is taken over by the new
    /// view. A place that waits for the name in a restored layout is filled at once.
    void RegisterView(QString const& name, int id, TPushButton* button, TMiniWindow* miniWindow,
                      TCanvas* canvas, TFullWindow* fullWindow, eWidgetBehaviour behaviour, int nextView,
                      bool hiddenButton);
    /// Forgets a view; its windows are hidden and stay the module's. When it was the current full view, the
    /// last one comes back.
    void RemoveView(int id);

    /// \name Showing views
    /// @{
    /// Shows a view: with \a maximise its full view, else its mini view.
    void DisplayView(int id, bool maximise);
    void DisplayFullView(int id, bool playSound);
    /// Opens a hidden mini window in \a slot; nothing for a slot that does not exist.
    void DisplayMiniView(int slot, int id);
    /// The view to show when there is nothing else to show; it may be registered later.
    void SetDefaultView(QString const& name);
    void RestoreDefaultView();
    /// @}

    /// \name Mini windows
    /// @{
    /// Puts the id into the first free slot, or on top of the first, and answers the slot.
    int GetMiniViewDisplaySlot(int id);
    void MoveMiniWindow(int id, int x, int y);
    void ShowMiniWindow(int id);
    void HideMiniWindow(int id);
    void MiniWindowStackUnder(int id, QWidget* widget);
    /// Puts the mini window and its shadows into their layer below the bar and the slots beneath it.
    void MiniViewSafeRaise(int id);
    QWidget* GetWidgetToStackUnder(int slot) const;
    /// With \a animate they slide out, without they vanish and RestoreAllMiniViews() can bring them back.
    void HideAllMiniViews(bool animate);
    void RestoreAllMiniViews();
    /// True for a shown mini window below another one in its slot.
    bool IsMiniViewObscured(int id) const;
    /// True while one mini window slides in and another out.
    bool SwappingViews() const;
    void SetMiniviewObstructionUpdatesEnabled(bool enabled);
    /// The ids in a slot, the one on top last; empty for a slot that does not exist.
    QList<int> GetSlot(int slot) const;
    EMiniViewState GetMiniViewState(int id) const;
    /// @}

    /// \name System tool bar
    /// @{
    void ShowSystemToolbar(bool show);
    /// Two modules leave room for two buttons of the bar while their view is up, all others for all.
    void SystemToolBarChecks(int id);
    /// @}

    /// \name Layout snapshot
    /// @{
    /// Writes the layout into \a root; answers true.
    bool SaveStateSnapshot(QDomElement root);
    QString GetStateSnapshotXML();
    /// Stores the layout in the settings, durably.
    void SaveShutdownState();
    /// Restores a layout from its text. False, with nothing changed, for a text that is no layout. Without \a
    /// keepMissing also false when the full view is not registered; with it such views are shown when they
    /// are registered.
    bool RestoreStateFromSnapShot(QString const& xml, bool keepMissing);
    bool RestoreStateFromSnapShot(QDomElement root, bool keepMissing);
    void RestorePendingState();
    /// Restores the layout of the last shutdown, or shows the default view, or the setup.
    void RestoreShutdownState();
    /// @}

Q_SIGNALS:
    void MiniViewHasMoved(int id, int x, int y);
    /// Another full view is up, or none any more: canvas, full window and wheel are where they belong.
    void FullViewChanged(int id);

public Q_SLOTS:
    void OnDraggedOffRight(int id);
    void OnShowMiniView(int id);
    void OnHideMiniView(int id, bool hideAfterAnimation);
    void OnMaximizeMiniView(int id);
    void OnSlideMiniViewUp(int id, int deltaY);
    void OnSlideMiniViewDown(int id, int deltaY);
    void OnMiniViewDoneDrag(int id, int yPos);
    void OnMiniViewHideComplete(int id);
    void OnShowSetup(int id);
    void OnSwitchToView(int id);
    void OnActionButton(int id);
    void OnRestoreLastView();
    void HideMiniviewsIfOverlapping(TWindow* window);
    void HideMiniviewsIfOverlapping(QWidget* widget);
    void OnUpdateScreen();
    void OnNextFrame();
    /// The strip slides in, unless it does so already or is there.
    void OnShowOffScreenButtons();
    /// The strip slides out, unless it does so already or is away.
    void OnHideOffScreenButtons();
    /// As OnHideOffScreenButtons(), without the slide.
    void OnQuickHideOffScreenButtons();

private:
    ViewDetails* Find(int id);
    ViewDetails const* Find(int id) const;
    ViewDetails* FindMini(int id);
    bool IsSetupView(int id) const;
    bool IsUsableAsLastView(int id) const;

    void ConnectMiniView(int id, TPushButton* button, bool hasFullView);
    void ConnectFullOnlyView(ViewDetails const& view, TPushButton* button);
    void MakeShadows(ViewDetails& view);
    void ReleaseMiniWindow(int id);
    void RestoreMiniView(int id);
    void TakeOutOfSlot(ViewDetails& view, int id);
    bool IsSlot(int slot) const;
    void RestackMiniViews();

    void HideFullWindow(int id);
    void ShowView(int id);
    void TellFullView();
    TWindow* PrepareSwitchedWindow(ViewDetails const& view);
    int BackTarget(int id);
    void ExchangeSurfaces(ViewDetails const& view);
    void MakeWayFor(int id);

    bool IsAnyMiniViewMoving() const;
    int FrameDelta();
    void AnimateMiniView(int id, int delta);
    void SlideIn(ViewDetails& view, int id, int delta);
    void SlideOut(ViewDetails& view, int id, int delta);
    void Settle(ViewDetails& view, int id, int delta);
    void FinishOpening(int id);
    bool AreOffScreenButtonsComing() const;
    void AnimateOffScreenButtons(int delta);

    bool ReadActiveWindows(QDomElement const& state, bool keepMissing);
    void AttachElements(QDomElement const& section, bool isFullView, QString const& tag);
    void SweepMiniWindows();
    void ServePendingRestore(TPendingWindowRestore const& pending, int id);
    void StartOnTheBeat(QTimer& timer);

    QList<TPendingWindowRestore> m_PendingRestores;
    QMap<QString, int> m_IdsByName;
    QString m_DefaultViewName;
    QTimer m_FrameTimer;
    QTimer m_UpdateTimer;
    QMap<int, ViewDetails> m_Views;
    std::vector<QList<int>> m_Slots;
    TScreen* m_Screen;
    QPointer<QWidget> m_NavigationBar;
    TGuideManager* m_GuideManager = nullptr;
    int m_FullViewId = -1;
    int m_ToldFullViewId = -1;
    int m_LastFullViewId = -1;
    int m_DefaultViewId = -1;
    bool m_Swapping = false;
    QPointer<TOffScreenButtons> m_OffScreenButtons;
    EOffScreenState m_OffScreenState = OFF_SCREEN_HIDDEN;
    int m_OffScreenElapsed = 0; // ms of the running animation
    QString m_SetupManagerId;
    QString m_InventorManagerId;
    qint64 m_LastFrameTime = -1;
    // The first ticks come after the stall of the start.
    bool m_AreFramesOffBeat = true;
    bool m_AreUpdatesOffBeat = true;
};
