#pragma once

#include "TBaseToolBar.h"

class QPainter;

/// A bar of tabs, one of which is active. Tabs that do not fit are paged: an arrow at either end of the bar
/// turns the page, and stays when tabs are removed. The vertical look stands beside a view, the horizontal
/// one in a mini window.
///
/// The bar is sized from outside. Tab ids are the caller's; 0x7ffffffe and 0x7fffffff are those of the
/// arrows, and no tab takes them. The active tab and the page outlast hiding. GUI thread only.
class COMMONUILIB_EXPORT TTabBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;
    using TBaseToolBar::RemoveButton;

    /// With \a reemitOnShow the bar names its active tab again whenever it is shown. No tab is active at
    /// first, unless one has the id 0.
    TTabBar(QWidget* parent, bool vertical, bool reemitOnShow);

    /// \a icon and \a text may be empty. The tab looks inactive until SetActiveTab().
    void AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip) override;
    /// The button gets the skin of a tab and keeps its own id, by which its clicks name it.
    void AssignButton(int id, TPushButton* button) override;
    void RemoveButton(int id, bool deleteButton) override;
    /// All tabs; then 0 is the active tab and the page.
    void RemoveAllButtons();
    /// Tabs, without the arrows.
    int GetNumberOfButtons() override;
    /// Tabs that are wanted, on whatever page.
    int GetNumberOfVisibleButtons() override;
    /// A hidden tab leaves its place to the ones behind it. Not for the arrows.
    void SetButtonVisibility(int id, bool visible) override;
    /// Whether the tab is wanted, on whatever page. False for an unknown id.
    bool IsButtonVisible(int id) override;

    /// How many tabs fit on the bar; 5 at first. Any number is taken; below 3 the pages are of no use.
    void SetMaxNumberOfVisibleButtons(int maximum);
    int GetNumberOfPages();
    /// Makes the tab the active one, turns to its page and emits TabClicked(), also if it was active already.
    /// An unknown id does nothing.
    void SetActiveTab(int id);

Q_SIGNALS:
    /// The tab is active and its page is shown. A slot may delete the bar, but not while it is being shown.
    void TabClicked(int tabID);

public Q_SLOTS:
    /// What a click on the tab, or on an arrow, does.
    void OnTabClicked(int id);

protected:
    TPushButton* GenerateButton(int id) override;
    /// Between the arrows, which stand at the ends.
    void InsertIntoOrderList(int id) override;
    /// Shows the tabs of the present page.
    void ArrangeButtons() override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void MakeArrow(int id, QString const& icon, QString const& toolTip);
    TPushButton* Tab(int id) const;
    void Dress(TPushButton* button);
    QList<int> VisibleTabs() const;
    bool IsWanted(int id) const;
    void PutArrowsAtEnds();
    void ShowOnPage(int id, bool shown);
    bool IsOnPage(int place, int pages) const;
    int PageOf(int id);
    void TurnTo(int page);
    void FitBlank();
    int EndOfTabs() const;
    void PaintBlank(QPainter& painter, int from, int to, QRect const& wanted) const;

    QSharedPointer<QPixmap> m_OffPixmap;
    QSharedPointer<QPixmap> m_OffSelectedPixmap;
    QSharedPointer<QPixmap> m_OnPixmap;
    QSharedPointer<QPixmap> m_BlankPixmap;
    int m_ActiveTab = 0;
    int m_Page = 0;
    bool const m_ReemitOnShow;
    QMap<int, bool> m_TabVisibility;
    bool const m_Vertical;
    int m_MaximumOfVisibleTabs;
};
