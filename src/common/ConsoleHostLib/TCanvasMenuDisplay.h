#pragma once

#include "ConsoleHostLibExport.h"
#include "TMenuDisplayManager.h"
#include "TShortcutPool.h"

#include <QByteArray>
#include <QHash>
#include <QPair>
#include <QPointer>
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
/// other open menus; when the menus are folded away the shortcuts stay, with those of the root menu. The bars
/// of the other open menus stand in columns to the left of the strip, each left of the menu that it was
/// opened from and level with the button that opened it, as far as it fits there; where there is no room for
/// all, the ones that were opened first wait. The menus are folded away at first, and there is nothing before
/// a menu is open.
///
/// A menu that a press opens is brought into sight, and a press of the wheel's enter key goes into it; where
/// it is open and in sight already, enter goes in without a press. Back closes a menu, which counts as the
/// operator's wish: it takes the shortcuts of the menu along. While a guide or tool tips are read, menus are
/// closed by the operator alone.
///
/// Elements are named for macro paths by the first name of the last step of their TMMIDef. The names hold no
/// slash, and each differs from all others: the wheel looks for the next name wherever it stands.
///
/// Elements that change faster than eyes follow are drawn every 40 ms; while the canvas is hidden nothing is
/// done. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TCanvasMenuDisplay : public TMenuDisplayManager
{
    Q_OBJECT

public:
    /// Object names. The bar of a menu that was opened from an element has the name of that element.
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
    /// The open menus, the root menu first, then in the order in which they were shown; while the canvas is
    /// hidden those of its last showing.
    QList<int> GetMenuShownOrder() override;

    /// Takes the operator where \a def leads by its first names, from the root menu through the menus on the
    /// way: they unfold and open, and the last step is pressed; the wheel stands on it then, if it is still
    /// to be seen. \a callback is told as by the navigator's FollowPath(). False without a navigator, a root
    /// menu or steps, behind what locks the screen, and while the canvas is hidden: nothing happens then.
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

private Q_SLOTS:
    void OnPathFollowed(bool arrived);

private:
    using TBars = std::map<int, TMenuBar*>;
    using TElementKey = QPair<int, int>; // menu and element

    struct TPress
    {
        TElementKey element;
        bool isByWheel;
        qint64 time;
    };

    static constexpr TPress NoPress{{-1, -1}, false, 0};

    void OnCanvasShown();
    void OnLeftLimitChanged();
    void OnPressed(int menuID, int elementID, bool isByWheel);
    bool IsOpenBehindTheFold(TElementKey const& opener) const;

    void LookSoon();
    void CatchUp();
    TMenuElementButton* EndOfPath() const;
    TMenuBar* FollowOpenMenus();
    QList<int> MenusToShow() const;
    TElementKey OpenerOf(int menuID) const;
    TMenuBar* BarOf(int menuID) const;
    TMenuElementButton* ButtonOf(TElementKey const& element) const;
    TMenuBar* OpenBar(int menuID);
    void CloseBar(int menuID);
    void RemoveForgottenBars();
    void LeaveMenu(int menuID);

    bool ShowStaleMenus();
    bool ShowElements(int menuID);
    bool ShowShortcuts();
    void TellWhatIsOpen();

    void ArrangeStrip();
    int Columns() const;
    QList<int> MenusInColumns() const;
    void ArrangeColumns();
    int TopBeside(TMenuElementButton const* opener, int highest, int lowest) const;

    TCanvas* m_Canvas;
    TPushButton* m_FoldButton;
    TMenuBar* m_ShortcutBar;
    // Of all menus that have ever been open. The wheel may still stand in one that has been closed.
    TBars m_Bars;
    QList<int> m_Order;                   // the open ones
    QHash<int, TElementKey> m_OpenedFrom; // of the open ones
    TShortcutPool m_Pool;
    bool m_AreMenusVisible = false;
    int m_ArrangedColumns = 0;
    // What has changed since it was drawn.
    bool m_AreMenusStale = true;
    QSet<int> m_StaleMenus;
    QTimer* m_Pace;
    // What was pressed last, until it has opened a menu.
    TPress m_Press = NoPress;
    // Of the macro path that is followed.
    QString m_PathEnd;
    QPointer<QObject> m_PathCallback;
    QByteArray m_PathMethod;
};
