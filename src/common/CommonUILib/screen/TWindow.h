#pragma once

#include "CommonUILibExport.h"
#include "IModalable.h"
#include "MMICapableWidget.h"

#include <QDomElement>
#include <QPointer>
#include <QRect>
#include <QSharedPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <memory>

class QPixmap;
class TLockStack;
class TPushButton;

/// The base of every window of the toolkit: a content area, a background, OK and Cancel buttons, a row of
/// control buttons, a timer, a fade behind modal children, and the protocol of showing and hiding.
///
/// The constructor is cheap; Setup() builds the contents on the first showing. A window that is meant for the
/// screen has no parent while it is hidden: ShowWindow() puts it on the screen, HideWindow() takes it off
/// again. GUI thread only.
class COMMONUILIB_EXPORT TWindow : public QWidget, public KVN::MMICapableWidget, public KVN::IModalable
{
    Q_OBJECT
    Q_PROPERTY(QString m_windowName READ GetWindowName WRITE SetWindowName)

public:
    /// Control buttons take ids from 0 to this; others are refused in silence.
    static constexpr int MaxControlButtonId = 99;

    /// With the screen as \a parent the window detaches at once: it belongs to the screen only while it is
    /// shown.
    explicit TWindow(QWidget* parent);
    ~TWindow() override;

    /// The area that belongs to the subclass; a child of this window.
    QWidget* GetWindowContent() const;
    /// True for a window that asks the mini windows to give way when it is shown.
    bool WillHideMiniviewsOnShow() const;
    /// A KVN::EModalType: none, local, or global for a modal window that is not only locally modal.
    int ModalType() const;
    QString GetWindowName() const;

    /// The background by its logical name, stretched to the background area; an empty name releases the
    /// pixmap.
    void SetBackground(QString const& name);
    /// Where the background is painted; 0 for \a w or \a h means the window's own.
    void SetBackgroundArea(int x, int y, int w, int h);
    /// 0.0 to 1.0.
    void SetBackgroundOpacity(float opacity);
    /// While the window is shown, Refresh() is called every \a ms milliseconds; 0 or less for never. Takes
    /// effect with the next showing.
    void UseTimer(int ms);
    void HideMiniviewsOnShow(bool hide);
    void EnableGuide();
    void DisableGuide();
    /// The guide page that belongs to the window, and the step in it.
    void SetGuideId(int id, int step);
    void ResetGuideId();
    void SetWindowName(QString const& name);
    /// A button on the bottom line with the id \a id that Clicked(int) carries; an existing one of that id
    /// gets the new looks.
    void AddControlButton(int id, QString const& icon, QString const& background,
                          QString const& backgroundSelected, QString const& backgroundDisabled,
                          QString const& toolTip);

    /// Builds the contents; runs once, on the first showing. Overrides call the base.
    virtual void Setup();
    /// Runs Setup() if it has not run yet.
    virtual void SetupIfRequired();
    /// Shows or hides, if the window is not in that state already.
    virtual void SetVisible(bool visible, bool modal);
    /// For modules: connects to what the window listens to while the console runs.
    virtual void MakeSystemConnections();
    virtual void SetTitle(QString const& title);
    virtual QString GetTitle();
    /// The same on the standard backgrounds.
    virtual void AddControlButton(int id, QString const& icon, QString const& toolTip);
    /// Called by the window's timer; the base does nothing.
    virtual void Refresh();
    /// Writes what the window wishes to find again after a restart into \a element, as attributes and
    /// children.
    virtual void SaveXMLStateSnapshot(QDomElement element);
    /// Takes back what SaveXMLStateSnapshot() wrote. \a element may be null.
    virtual void RestoreXMLStateSnapshot(QDomElement element);
    /// False keeps others from closing the window now. The base answers true.
    virtual bool SafeToCloseWindow();
    /// Shows the fade below \a data.widget. A null or known widget is ignored.
    void AddLockingWidget(KVN::ModalData const& data) override;
    void RemoveLockingWidget(QWidget* widget) override;
    virtual bool IsVisible();
    bool OnMMIBack() override;

public Q_SLOTS:
    /// Puts the window up. Once it was shown modal it stays modal, also when it is shown again with false.
    virtual void ShowWindow(bool modal);
    /// Takes the window down; a repeated call only removes its lock again.
    virtual void HideWindow();
    /// The OK and Cancel buttons; the base does nothing.
    virtual void OnOk();
    virtual void OnCancel();

public:
    /// From HideWindow() to the next ShowWindow(), also while those who hear of it are still being told.
    bool IsDismissed() const;
    /// Asked at each showing: is ReCentre() to be called whenever the parent changes its size. The base
    /// answers false.
    virtual bool ShouldAutoReCentre() const;
    /// Places the window anew on \a parent; the base does nothing.
    virtual void ReCentre(QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// About to appear: the parent is set, the window is not visible yet.
    void WindowShown();
    /// The window was taken down; it is not visible any more.
    void WindowHidden();
    void WindowMousePress(QMouseEvent* event);
    void WindowMouseMove(QMouseEvent* event);
    void WindowMouseRelease(QMouseEvent* event);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The logical name of the background, empty for none.
    QString GetBackground() const;
    /// Whether mini windows may lie over this window; a full window then reaches below them.
    void SetMiniViewsOverlap(bool overlap);
    bool GetMiniViewsOverlap() const;
    bool IsModal() const;
    /// Makes the window modal from its next showing on.
    void SetModalFlag();
    void ClearModalFlag();
    void SetLocalModal(bool local);
    /// The rectangle that the fade covers.
    QRect GetContentRect() const;
    void SetContentRect(QRect const& rect);
    TPushButton* GetOkButton() const;
    TPushButton* GetCancelButton() const;
    /// By id, null where there is none.
    QVector<TPushButton*> const& GetControlButtons() const;
    /// Raises a child of the window above its other contents, but not above the fade of a modal one.
    void RaiseBelowFade(QWidget* child);
    /// Fetches the background again for the present size.
    void ResizeBackground();

private:
    TPushButton* MakeDialogButton(QString const& icon);
    void InvalidateBackground();
    void MoveToScreen();
    void LockParent();
    void UnlockParent();
    void ReleaseFormerParent();
    void StackFade();

    QSharedPointer<QPixmap> m_Background;
    QString m_BackgroundName;
    bool m_BackgroundStale = false;
    bool m_HideMiniviewsOnShow = false;
    bool m_MiniViewsOverlap = false;
    QTimer m_Timer;
    QString m_Title;
    float m_BackgroundOpacity = 1.0F;
    bool m_LocalModal = true;
    bool m_Modal = false;
    QWidget* m_Content = nullptr;
    QWidget* m_Fade = nullptr;
    QRect m_ContentRect;
    TPushButton* m_OkButton = nullptr;
    TPushButton* m_CancelButton = nullptr;
    QVector<TPushButton*> m_ControlButtons;
    bool m_SetUp = false;
    int m_BackgroundX = 0;
    int m_BackgroundY = 0;
    int m_BackgroundWidth = 0;
    int m_BackgroundHeight = 0;
    int m_TimerInterval = 0;
    std::unique_ptr<TLockStack> m_Locks;
    int m_GuideId = -1;
    int m_GuideStep = 0;
    bool m_GuideEnabled = false;
    bool m_AutoReCentre = false;
    bool m_WindowHidden = false;
    QPointer<QWidget> m_LockedParent;
    QString m_WindowName;
};
