#pragma once

#include "MorvaneID.h"
#include "TWindow.h"

class TButtonBar;

/// A message box over a view: a title, content, and a bar of buttons that share its width. Small, centred on
/// what it comes up over. Without a parent, or with the screen as parent, the platform's stack of its module
/// shows it; over another widget that widget is where it stays, and a TWindow is locked while a modal popup
/// is up. For a working window beside others see TTaskWindow.
///
/// It fits itself to its surroundings at the first showing only; from then on it keeps its size and is
/// centred again at each showing and whenever the parent changes its size. GUI thread only.
class COMMONUILIB_EXPORT TPopupWindow : public TWindow
{
    Q_OBJECT

public:
    explicit TPopupWindow(QWidget* parent);

    /// Nothing else makes a window that was shown modal non-modal again.
    void ClearModal();
    /// The module whose stack the popup belongs to; the empty id is the screen's own. Emits
    /// ParentAppIDChanged() when it is another one.
    void SetSurfaceID(KVN::MorvaneID const& id);
    KVN::MorvaneID const& SurfaceID() const;

    /// \name Frame and content
    /// Sizes in pixels; none is ever negative.
    /// @{
    /// What the frame takes in either direction.
    int GetBorderSize() const;
    /// What the frame, the title bar and, with a visible button, the button bar take.
    QSize GetWindowStaticComponentsSize() const;
    QSize GetContentSizeForWindowSize(QSize const& size) const;
    QSize GetWindowSizeForContentSize(QSize const& size) const;
    /// Leaves the \a background or the \a titleBar with its title unpainted.
    void HideBackground(bool background, bool titleBar);
    /// @}

    /// \name Buttons
    /// By id, the highest at the left. An id without a button gets one with its first text or icon.
    /// @{
    /// Shows the button.
    void SetText(int id, QString const& text);
    void SetIcon(int id, QString const& icon, QString const& text, QString const& toolTip);
    /// Null for an unknown id.
    TPushButton* GetButton(int id);
    void SetButtonVisibility(int id, bool visible);
    /// @}

    void Setup() override;
    /// Cuts the popup to its parent, or the screen, less the margins, makes room for the buttons, and centres
    /// it. Once, at the first showing.
    virtual void AdjustForShow();
    /// A popup comes up under the finger: it takes no wheel input for half a second.
    unsigned GetMMISelectionDelay() override;

public Q_SLOTS:
    /// Shows the popup for all modules.
    void ShowWindow(bool modal) override;
    /// With \a localWindow a modal popup locks its own module only, and is centred on what the bars leave
    /// free.
    virtual void ShowWindow(bool modal, bool localWindow);

public:
    /// True for a modal popup and for one over a window.
    bool ShouldAutoReCentre() const override;
    /// Centres the popup on \a parent; a popup over the screen or the canvas that is not modal goes to its
    /// standard place instead. Null is ignored.
    void ReCentre(QWidget* parent) override;

Q_SIGNALS:
    /// The popup now belongs to another module; SurfaceID() answers \a newID already.
    void ParentAppIDChanged(KVN::MorvaneID oldID, KVN::MorvaneID newID);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

    TButtonBar* GetButtonBar() const;
    /// The next showing adjusts the size again.
    void SetAdjustNeeded();
    bool IsAdjustNeeded() const;

private:
    bool IsOnScreen() const;
    QRect TitleBarRect() const;

    TButtonBar* m_ButtonBar;
    bool m_AdjustNeeded = true;
    bool m_ShowBackground = true;
    bool m_ShowTitleBar = true;
    KVN::MorvaneID m_SurfaceId;
    QSharedPointer<QPixmap> m_TitleBar;
};
