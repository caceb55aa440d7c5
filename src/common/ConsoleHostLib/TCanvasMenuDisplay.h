#pragma once

#include "ConsoleHostLibExport.h"
#include "TMenuDisplayManager.h"
#include "TShortcutPool.h"

#include <QSet>

#include <map>

class QTimer;
class QWidget;
class TCanvas;
class TMenuBar;
class TMenuElementButton;
class TMMIDef;
class TPushButton;

/// Draws the console's menus on a canvas. In its strip at the right edge stand, from the top, the button that
/// folds the menus away and brings them back, the bar of the root menu, and behind it the shortcuts of all
/// open menus, which stay when the menus are folded away. The bars of the other open menus stand to the left
/// of the strip, each beside the button that opened it; where there is no room for all, the ones that were
/// opened first wait. The menus are folded away at first.
///
/// A press of an element with the wheel's enter key goes into the menu that it has open, if any; the back key
/// closes a menu. Elements are named for macro paths by the first name of the last step of their TMMIDef,
/// which holds no slash; a bar is named as the element that opened it, that of the root menu RootBarName.
///
/// Elements that change faster than eyes follow are drawn as they are every 40 ms; while the canvas is
/// hidden nothing is done. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TCanvasMenuDisplay : public TMenuDisplayManager
{
    Q_OBJECT

public:
    /// Object names for macro paths.
    static char const* const RootBarName;
    static char const* const ShortcutBarName;
    static char const* const FoldButtonName;

    /// \a manager and \a canvas have to live longer.
    TCanvasMenuDisplay(TMenuManager& manager, TCanvas* canvas);
    /// Takes its bars off the canvas.
    ~TCanvasMenuDisplay() override;

    /// Folds the menus away, or brings them back.
    void ToggleMenus() override;
    bool AreMenusVisible() const override;
    /// Those that have a bar, the root menu first, then in the order in which they were shown.
    QList<int> GetMenuShownOrder() override;

    /// Takes the operator where \a def leads by its first names, from the root menu through the menus on the
    /// way: they unfold and open, and the last step is pressed. \a callback is told as by the navigator's
    /// FollowPath(). False without a navigator, without steps and while the canvas is hidden: nothing happens
    /// then.
    bool FollowPath(TMMIDef const& def, QObject* callback, QString const& method);

    /// Puts the bars where they belong; for the canvas.
    void Arrange();
    /// The bars lie above \a widget of the canvas from now on.
    void StackAbove(QWidget* widget);

    void HandleMenuAutoHideStateChanged() override;

public Q_SLOTS:
    void OnMenuListChanged() override;
    void OnMenuStateChanged() override;
    void OnElementListChanged(int menuID) override;
    void OnElementStateChanged(int menuID) override;
    void OnElementPressed(int menuID, int elementID) override;

private:
    using TBars = std::map<int, TMenuBar*>;

    void OnCanvasShown();
    void LookSoon();
    void CatchUp();
    void FollowOpenMenus();
    void AddBar(int menuID);
    void RemoveBar(int menuID);
    bool ShowElements(int menuID);
    bool ShowShortcuts();
    void TellWhatIsOpen();
    void EnterOpened();
    void LeaveMenu(int menuID);

    void ArrangeStrip(QRect const& strip);
    void ArrangeColumns(QRect const& strip);
    int TopBeside(int menuID, QRect const& strip) const;
    TMenuElementButton* OpeningButton(int menuID) const;
    TMenuBar* BarOf(int menuID) const;

    TCanvas* m_Canvas;
    TPushButton* m_FoldButton;
    TMenuBar* m_ShortcutBar;
    TBars m_Bars;
    QList<int> m_Order;
    TShortcutPool m_Pool;
    bool m_AreMenusVisible = false;
    // What has changed since it was drawn.
    bool m_AreMenusStale = true;
    QSet<int> m_StaleMenus;
    QTimer* m_Pace;
    // What was pressed last, until menus have opened or closed since, and what opened then.
    int m_PressedMenu;
    int m_PressedElement;
    QList<int> m_Opened;
};
