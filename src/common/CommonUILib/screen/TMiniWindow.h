#pragma once

#include "TWindow.h"

class TMiniWindowTitlebar;

namespace KVN
{
class AppWindowSurface;
}

/// A small view of a module that slides out from behind the navigation bar and stands in one of the slots
/// down the left of the screen. The operator drags it left to hide it, right to see the full view, up and
/// down to another slot. It only signals these gestures; the window manager moves it.
class COMMONUILIB_EXPORT TMiniWindow : public TWindow
{
    Q_OBJECT

public:
    explicit TMiniWindow(QWidget* parent);

    void Setup() override;
    void SetTitle(QString const& title) override;

    /// The id of the view; -1 until the window manager registers it.
    virtual void SetViewId(int id);
    virtual int GetViewId();
    /// False while the module has nothing to show; then it has no button either. The base answers true.
    virtual bool IsAvailable();
    /// Whether there is a full view that can be shown now.
    virtual bool IsFullViewAvailable();
    /// Told by the window manager: does the view have a full view at all.
    virtual void SetFullView(bool available);
    /// False keeps the operator from hiding the window. The base answers true.
    virtual bool CanHideView();
    /// Switches the clicks of all buttons in the window, around a drag that began on one of them.
    virtual void ChildButtonsPropagateClick(bool propagate);
    unsigned GetMMISortPrecedence() override;
    /// For hosts: may the dashboard be shown with this view. The base answers true.
    virtual bool ShowDashboard();
    /// For windows that show video; the base has no surface and ignores one.
    virtual KVN::AppWindowSurface* GetAppWindowSurface();
    virtual void MaximizeSurface(KVN::AppWindowSurface* surface);

public Q_SLOTS:
    void ShowWindow(bool modal) override;
    /// The hide button: emits MiniWindowHide().
    virtual void OnHide();
    /// The maximise button: emits MiniWindowMaximize().
    virtual void OnMaximize();
    /// The view's full window made way for another; the base does nothing.
    virtual void OnMinimize();
    virtual void ShowMaximise();
    virtual void HideMaximise();
    /// Called ten times a second while the window is on top of its slot: repaint what has changed. The base
    /// does nothing.
    virtual void UpdateView();

Q_SIGNALS:
    /// The operator wants the window away; \a hideAfterAnimation is false while the finger still holds it.
    void MiniWindowHide(int id, bool hideAfterAnimation);
    void MiniWindowMaximize(int id);
    /// The finger drags the window up or down; \a y is its place on the screen, in pixels from the top.
    void MiniWindowSlideUp(int id, int y);
    void MiniWindowSlideDown(int id, int y);
    /// The finger let go after a slide.
    void MiniWindowDoneDrag(int id, int y);
    /// The finger let go after a drag to the left.
    void MiniWindowHideComplete(int id);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int ScreenY(QMouseEvent const* event) const;
    void SlideVertically(void (TMiniWindow::*notice)(int, int), int y);
    void BeginHide();
    void ClearGesture();

    TMiniWindowTitlebar* m_Titlebar;
    int m_ViewId = -1;
    bool m_Pressed = false;
    bool m_Sliding = false;
    bool m_Hiding = false;
    bool m_Maximising = false;
    bool m_FullViewAvailable = false;
};
