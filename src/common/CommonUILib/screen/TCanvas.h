#pragma once

#include "CommonUILibExport.h"
#include "IModalable.h"
#include "TObstructionData.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QSharedPointer>
#include <QWidget>

#include <memory>

class QPixmap;
class TFullWindow;
class TLockStack;
class TMenuDisplayManager;
class TMenuManager;
class TModalWidget;
class TObstructionManager;

namespace KVN
{
class AppWindowSurface;
}

/// The surface of one full view, as large as the screen: the view's background, its full window, its menus
/// and what takes room on it. A module derives from it to draw a map, or uses it as it is with a background.
/// GUI thread only.
class COMMONUILIB_EXPORT TCanvas : public QWidget, public KVN::IModalable
{
    Q_OBJECT

public:
    explicit TCanvas(QWidget* parent);
    ~TCanvas() override;

    /// The logical name of the background, painted first; empty for none.
    void SetBackground(QString const& name);
    /// A colour over the background; an invalid one for none.
    void SetBackgroundColor(QColor const& color);

    /// What takes room on this canvas; never null.
    TObstructionManager* GetObstructionManager() const;
    /// Null unless a subclass brings menus.
    TMenuManager* GetMenuManager() const;
    TMenuDisplayManager* GetMenuDisplayManager() const;
    /// The strip at the right edge where menus have their root tool bar, in this canvas's coordinates.
    QRect GetRootToolbarRect() const;
    /// The x at which the room that bars and mini windows leave begins, as of the last showing or shift.
    int GetLeftLimit() const;

    /// Hands the obstructed regions on to the full window, in its coordinates.
    void RefreshObstructions();
    /// Fits the full window between the bars; called whenever one of them comes, goes or moves.
    void UpdateFullWindowGeometry();
    /// The canvas's one full window, which becomes its child; null for none. \a toolbarReserved keeps the
    /// room of a tool bar free at the right also without menus.
    void SetFullWindow(TFullWindow* window, bool toolbarReserved);

    /// Whether there is a tool bar of menus at the right edge. The base answers false.
    virtual bool HasMenus() const;
    /// Fades the canvas behind \a data.widget. Ignored for a null or known widget and for one that is not
    /// modal.
    void AddLockingWidget(KVN::ModalData const& data) override;
    void RemoveLockingWidget(QWidget* widget) override;
    /// For canvases that show video; the base has none.
    virtual KVN::AppWindowSurface* GetCanvasSurface() const;
    virtual void MinimizeCanvasSurface(KVN::AppWindowSurface* surface);
    /// What covers parts of this canvas, in its coordinates.
    virtual void SetObstructedRegions(QList<TObstructionData> const& regions);

public Q_SLOTS:
    /// Takes up the screen's left limit, if it has changed.
    void ShiftCanvas();

Q_SIGNALS:
    void OnHide();
    void OnShow();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    void SetMenuManagers(TMenuManager* manager, TMenuDisplayManager* display);

private:
    int ReadLeftLimit() const;
    void StackModalWidget();
    void FetchBackground();
    void PaintSidebar(QPainter* painter) const;
    QRect SidebarRect() const;

    TMenuManager* m_MenuManager = nullptr;
    TMenuDisplayManager* m_MenuDisplayManager = nullptr;
    QString m_BackgroundName;
    QSharedPointer<QPixmap> m_Background;
    int m_LeftLimit = 0;
    QRect m_PaintedSidebar;
    QColor m_BackgroundColor;
    TObstructionManager* m_ObstructionManager;
    QList<TObstructionData> m_ObstructedRegions;
    QPointer<TFullWindow> m_FullWindow;
    bool m_ToolbarReserved = false;
    std::unique_ptr<TLockStack> m_Locks;
    TModalWidget* m_ModalWidget;
};
