#pragma once

#include "TObstructionData.h"
#include "TWindow.h"

class TFullWindowTitlebar;

namespace KVN
{
class AppWindowSurface;
}

/// The main window of a full view. It lies on the view's canvas, which keeps it between the bars and the mini
/// windows; a module puts its widgets into the content area.
class COMMONUILIB_EXPORT TFullWindow : public TWindow
{
    Q_OBJECT

public:
    explicit TFullWindow(QWidget* parent);

    /// True when mini windows lie over this window, so that it reaches to the navigation bar.
    bool MiniViewsOverlap() const;
    /// Whether the title bar may be seen; the canvas decides by the room.
    void SetTitleVisible(bool visible);
    /// Lays out title, content and control buttons.
    void PositionContent();
    /// The x of the first control button.
    void SetButtonStartOffset(int offset);

    void Setup() override;
    void SetTitle(QString const& title) override;

    /// \a flags are Qt alignment flags of the title's text.
    virtual void SetTitle(QString const& title, int flags);
    virtual void IncludeWidgetInTitle(bool include);
    virtual void IncludeWidget(QWidget* widget);
    /// Places the title bar by hand, until the next resize; null is ignored. The rectangle stays the
    /// caller's.
    virtual void SetTitlebarRect(QRect* rect);
    /// Puts the visible control buttons side by side on the bottom line.
    virtual void PositionControlButtons();
    /// Limits for hosts that resize full views. The base sets none.
    virtual QSize MinSize();
    virtual QSize MaxSize();
    /// True to go without a title when the window has the room beside the bar to itself. The base answers
    /// false.
    virtual bool HideTitleToMaximise();
    /// True to go without a title beside mini windows. The base answers false.
    virtual bool HideTitle();
    /// For windows that show video; the base has no surface and ignores one.
    virtual KVN::AppWindowSurface* GetAppWindowSurface();
    virtual void MinimizeSurface(KVN::AppWindowSurface* surface);
    virtual void MaximizeSurface(KVN::AppWindowSurface* surface);
    /// What covers parts of this window, in its coordinates. The base ignores it.
    virtual void SetObstructedRegions(QList<TObstructionData> const& regions);
    /// False keeps the view from being gone back to. The base answers true.
    virtual bool IsAvailable();

protected:
    void resizeEvent(QResizeEvent* event) override;
    /// Null before the first showing or title.
    TFullWindowTitlebar* GetTitlebar() const;

private:
    int m_ButtonStartOffset = 0;
    TFullWindowTitlebar* m_Titlebar = nullptr;
    bool m_TitleVisible = false;
};
