#pragma once

#include "TButtonSurface.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QVector>

class TConfigMenuElement;

/// One row of the tree by which the operator reaches the setup screens. Each of its elements names a screen
/// or owns the row of the next level. A row holds no screens and shows no other row: it tells its owner by
/// signals what to show. For a bar of commands see TToolBar, for pages of one window TTabBar.
///
/// The owner of the tree connects the signals of all rows. It shows the top row, lays it out with
/// UpdateMenu(), anew when its parent has another width, and answers each ConfigMenuItemClicked() of any row
/// with one CompleteSelection() on the top row, at once or when the screen that is shown may be left. A click
/// that it turns down is forgotten with the next one in that row or in one that this row has open. Rows
/// appear and vanish as LevelTransition() tells.
///
/// A row whose only visible element is a screen is a single item menu: it is not shown, and the element above
/// it leads straight to that screen.
///
/// Where an element is asked for by an id or an index that the row does not have, nothing happens and the
/// answer is null, -1 or false. A slot of any signal may delete the row, or change the tree. When a sub-menu
/// was deleted from outside its element leads to its own screen; what follows for the row above waits for the
/// next ProcessDelayedUpdates(). GUI thread only.
class COMMONUILIB_EXPORT TConfigMenu : public TButtonSurface
{
    Q_OBJECT

public:
    struct COMMONUILIB_EXPORT ElementDetails
    {
        /// Deletes the element and the sub-menu.
        void DeleteContent();
        /// Wanted, and there.
        bool IsShown() const;

        QPointer<TConfigMenuElement> m_Element;
        TConfigMenu* m_SubMenu = nullptr; ///< null for none, and when it was deleted from outside
        bool m_Visible = true;
        QString m_ScreenPath;
        int m_Id = -1;
        int m_Order = -1;
        QString m_Key;
    };

    /// A row without elements, hidden, of the parent's width. \a isTranslucent lets what lies below show
    /// through its background. \a level counts from the top row, which has the lowest. \a name is its object
    /// name.
    TConfigMenu(QWidget* parent, bool isTranslucent, int level, QString const& name);
    /// Deletes the rows below as well.
    ~TConfigMenu() override;

    /// \name Elements
    /// The index counts all elements, the hidden ones too, from 0.
    /// @{
    /// Adds a visible element and gives its id, which no other element of any row has. \a key stands for it
    /// in whatever language the operator reads, and is its name for macro paths, as the icon or the text is
    /// where it is empty; \a text is what he reads; \a iconName may be empty. It stands before the elements
    /// of a higher \a order and behind those of the same; below 0 it stands behind all.
    ///
    /// Without a \a subMenu it leads to the screen \a screenPath. The sub-menu belongs to it from now on. One
    /// that is above this row, the row itself, or the sub-menu of another element is refused: nothing is
    /// added then, and the answer is -1.
    int AddElement(QString const& key, QString const& text, QString const& iconName,
                   QString const& screenPath, int order, TConfigMenu* subMenu);
    /// Deletes the element and the rows below it. One that is selected is left first, as for another one; the
    /// selection is -1 then, as SelectionChanged() tells, unless a slot has selected another one meanwhile.
    void DeleteElement(int id);
    /// Changes what the operator reads.
    void SetElementName(int id, QString const& text);
    /// With \a update the row and the one above it are brought up to date at once, else by the next
    /// ProcessDelayedUpdates(). A selected element that vanishes stays selected.
    void SetElementVisibility(int id, bool visible, bool update);
    bool GetElementVisibility(int id) const;
    /// As above without an update, for an element of this row or any below.
    void SetElementVisibilityRecursively(int id, bool visible);
    bool GetElementVisibilityRecursively(int id) const;
    /// Puts the elements in the order of \a names, by their keys or else their texts; those that it does not
    /// name follow in the order in which they stand. The order that AddElement() was given is not changed by
    /// it, and does not tell where a later element comes to stand then.
    void SortElements(QStringList const& names);
    TConfigMenuElement* GetElementByIndex(int index) const;
    TConfigMenuElement* GetElementByID(int id) const;
    int GetElementIDByIndex(int index) const;
    int GetIndexByElementID(int id) const;
    TConfigMenuElement* GetSelectedElement() const;
    int GetNumberOfElements() const;
    int GetNumberOfVisibleElements() const;
    /// Whether the row has an element of that key or text.
    bool IsElementPresent(QString const& name) const;
    /// The row, this or one below, that has the element.
    TConfigMenu* FindConfigMenuByElementID(int id);
    int GetMenuLevel() const;
    /// @}

    /// \name Selection
    /// @{
    /// The screen to which the selection leads; empty while it leads to none.
    QString GetSelectedScreen() const;
    /// The screen to which the element that waits in this row will lead, with the one that waits in the row
    /// which that opens; empty where that row opens with nothing selected, and while none waits in this row,
    /// even if one does in a row below.
    QString GetNewScreen() const;
    /// The next visible element, the first one of the deepest row at first. False at the end.
    bool OnNext();
    /// The previous one, the last one at first. False at the beginning.
    bool OnPrevious();
    /// Selects what was clicked, in this row or below, even if it was hidden meanwhile. A screen that is
    /// selected already is only shown again with \a repeat. Called while it is at work, as by a slot, it goes
    /// on when the selection is made, with the \a repeat of the first call; a slot that clicks for ever is
    /// stopped, and its last click waits for the next call.
    void CompleteSelection(bool repeat);
    /// No element is selected. Tells nobody, leaves the rows below as they are, and what was clicked waiting.
    void ClearSelection();
    /// The same for the last row in which an element is selected.
    void ClearLeafSelection();
    /// Whether the row is skipped. \a index gets the index of the only element then, else -1.
    bool GetIsSingleItemMenu(int& index) const;
    /// Finds out whether it is to be skipped; \a path becomes the screen then and stays else.
    bool SetIsSingleItemMenu(QString& path);
    /// @}

    /// \name Look
    /// @{
    /// Hands a change on to the elements, and to those that are added later.
    void SetActive(bool active);
    bool IsActive() const;
    /// From one left edge to the next, in pixels: a little less than the elements are wide, or what the
    /// parent's width leaves them beside \a margin. 0 without a visible element.
    int GetMenuItemSpacing(int margin) const;
    /// Lays the visible elements out from left to right for the \a direction 0, from \a margin on; from right
    /// to left for 1.
    void ArrangeElements(int direction, int margin);
    /// Takes the parent's width and lays the elements out from left to right, with their middle at \a
    /// position as far as that width allows. That is counted from the left edge of the row, which is the one
    /// of its parent as long as nobody has moved it.
    void UpdateMenu(int position);
    /// Gives row and elements the \a height, held to MIN_MENU_HEIGHT and MAX_MENU_HEIGHT.
    void ResizeMenu(int height);
    /// Takes up what SetElementVisibility() left open: tells a new size, opens or closes the sub-menu of the
    /// selected element if it was or has become one of a single item. With \a recursive the rows below come
    /// first; \a arrange lays the elements out anew, around \a position as UpdateMenu() does or, below 0, as
    /// they stand.
    void ProcessDelayedUpdates(bool recursive, bool arrange, int position);
    /// These hold for the elements as well: they have the height nearest to STANDARD_BUTTON_HEIGHT, and a
    /// width that follows it. Until one of them was called elements keep what size they were given.
    void setMaximumHeight(int height);
    void setMinimumHeight(int height);
    /// @}

Q_SIGNALS:
    /// A screen is to be shown: that of the element that is being selected, which has not yet its selected
    /// look; the selected one again, as CompleteSelection() was asked; or that of a selected sub-menu that is
    /// skipped from now on, or has another single item.
    void ShowSetupScreen(QString const& path);
    /// The row \a menu has come into use, or gone out of it.
    void ShowSetupMenu(TConfigMenu* menu, bool visible);
    /// An element was clicked and waits for CompleteSelection().
    void ConfigMenuItemClicked(TConfigMenu* menu);
    /// \a row, this one, is to come or to go; \a level is the deepest that is shown afterwards. One that was
    /// skipped and never came goes as well.
    void LevelTransition(QWidget* row, bool show, int level);
    /// Last of all, the selection is made. -1 if the element was deleted. OnPrevious() tells of each hidden
    /// element too over which it steps, as if it were selected.
    void SelectionChanged(int selectedItemID);
    /// The row has another number of visible elements.
    void MenuSizeChanged(int numVisibleElements);
    /// The selected sub-menu ceased to be one of a single item. It opens, if this row is visible, with the
    /// element whose screen is shown, which now has that index in it; else when this row is shown, or the
    /// operator comes to it.
    void SingleItemMenuNeedsExpanding(int singleItemMenuIndex);

public Q_SLOTS:
    /// The row comes into use, with nothing selected. One that it has open is left first.
    void OnShowMenu();
    /// The row and those below go out of use. What was clicked in them is forgotten.
    void OnHideMenu();
    /// As a click on the element.
    void OnItemClicked(int id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void OnSingleItemMenuNeedsExpanding(int index);

private:
    enum ERowState
    {
        ROW_HIDDEN,
        ROW_SHOWN,    // from OnShowMenu() to OnHideMenu(), though the owner may still be about to show it
        ROW_SKIPPED,  // for the screen of its single item
        ROW_EXPANDING // no more, and the step that shows it is on its way
    };

    ElementDetails const* DetailsAt(int index) const;
    TConfigMenu* SubMenuAt(int index) const;
    QVector<QPointer<TConfigMenu>> SubMenus() const;
    bool CanOwn(TConfigMenu const* subMenu) const;
    TConfigMenuElement* MakeElement(QString const& key, QString const& text, QString const& iconName, int id);
    int PlaceFor(int order) const;
    void Remove(int index);
    void ShiftIndices(int from, int by);
    void ForgetSubMenu(TConfigMenu const* subMenu);

    bool Page(int step);
    bool PageSelected(int step);
    int NextShown(int index, int step) const;
    void StepOnto(int index, int step);

    void ForgetClicksAbove();
    QString PendingScreen() const;
    void CompleteOwnSelection(bool repeat);
    void CompleteAgain(bool repeat);
    void LeaveSelected();
    void Enter(int index);
    void Expand(int index);
    void OpenSelected(int item);
    void Skip();
    bool IsSkipped() const;
    void FinishSelection(int id);
    void LookUnselected(int index);

    int SingleItem() const;
    int ItemToOpen() const;
    void AskForExpansion();
    void BringUpToDate();
    void AnnounceSize();
    void UpdateSubMenus();
    void UpdateSubMenu(TConfigMenu* subMenu);
    void CloseSubMenu(TConfigMenu* subMenu, QString const& path);

    int AvailableWidth() const;
    int MarginFor(int position) const;
    int CentreOf(int index) const;
    void Rearrange();
    void StackElements();
    void FitElements();
    void FitElement(TConfigMenuElement* element) const;

    static int m_lastAddedElement;

    bool const m_IsTranslucent;
    int m_SelectedIndex = -1;
    int m_PendingIndex = -1;
    int m_MenuPosition = -1; // -1: as ArrangeElements() was called
    int const m_Level;
    bool m_Active = true;
    bool m_IsSingleItemMenu = false;
    int m_SingleItemIndex = -1;
    int m_SkippedElement = -1; // the id of that whose screen is shown while the row is skipped
    ERowState m_State = ROW_HIDDEN;
    QList<ElementDetails*> m_Elements;
    TConfigMenu* m_Owner = nullptr; // the row above, which deletes this one
    int m_AnnouncedSize = 0;
    int m_Direction = 0;
    int m_Margin = 0;
    int m_LeftElement = -1; // the id of that which is being left
    bool m_IsCompleting = false;
    bool m_CompletesAgain = false;
};
