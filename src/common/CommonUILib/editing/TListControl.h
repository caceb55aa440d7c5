#pragma once

#include "CommonUILibExport.h"
#include "TWindow.h"

#include <QAbstractItemView>
#include <QColor>
#include <QIcon>
#include <QStringList>
#include <QVariant>

class QListWidgetItem;
class QModelIndex;
class TEditContainerQString;
class TListWidget;
class TPushButton;

/// A list with its place: one TListWidget within the control, and above and below it a button that steps
/// through the rows where LIST_SCROLL_BUTTON_HEIGHT leaves room for them. Shown as a part of a window or by
/// itself. For the list alone see TListWidget, for files TFileListControl.
///
/// Rows count from 0. A wrong row is ignored, and answered with what stands for nothing. A slot of any of its
/// signals may delete the control. The wheel stops at the list within it. GUI thread only.
class COMMONUILIB_EXPORT TListControl : public TWindow
{
    Q_OBJECT

public:
    explicit TListControl(QWidget* parent);
    ~TListControl() override;

    /// \name Rows
    /// As those of TListWidget.
    /// @{
    /// Appends a row of GetListRowHeight() and tells the new number of rows. Its hint is \a width pixels
    /// wide, or as wide as its text and some room around it where \a width is less.
    int AddString(QString const& text, int width = 0, QIcon const& icon = QIcon());
    void SetupListItemIcon(TEditContainerQString const& names);
    void Clear();
    QString GetItemText(int row) const;
    void SetItemText(int row, QString const& text, int width);
    QVariant GetItemData(int row, int role) const;
    void SetItemData(int row, int role, QVariant const& value);
    void SetItemHidden(int row, bool hidden);
    bool IsItemHidden(int row) const;
    int GetNumberOfItems() const;
    int GetNumberOfVisibleItems() const;
    int GetIndexfromText(QString const& text) const;
    /// @}

    /// \name Selection
    /// As that of TListWidget.
    /// @{
    /// Whether one row may be selected, as at first, or several. The stepping buttons belong to the first.
    void SetSelectionMode(QAbstractItemView::SelectionMode mode);
    int GetSelectedItem() const;
    /// By the first row that reads exactly \a text; false when there is none. Where only one row may be
    /// selected, it becomes current and is selected, whatever \a select says.
    bool SelectItem(QString const& text, bool select);
    void SelectItem(int row, bool select);
    void SelectItems(QStringList const& texts);
    void SelectAll();
    void UnSelectAllSelections();
    void SetCurrentRow(int row);
    /// Scrolls as far as the current row takes to be seen.
    void ShowCurrentRow();
    bool IsItemSelected(unsigned row) const;
    bool IsAnythingSelected() const;
    QList<QListWidgetItem*> GetSelectedItems() const;
    QStringList GetSelectedTextItems() const;
    /// @}

    /// \name Look
    /// @{
    /// The ground behind the rows; an invalid color stands for listItemColor. On glass it is kept for later.
    void SetListColor(QColor const& color);
    /// The ground is listButtonColorGlass then, and the list takes the art for it.
    void UseGlassEffect(bool use);
    /// @}

    /// \name Place
    /// Pixels within the control. A width or height below 1 stands for that of the control itself.
    /// @{
    void SetListGeometry(int x, int y, int width, int height, int margin, bool completeRows);
    /// Room for so many \a rows, without a margin; fixes the size of the control too.
    void SetListPosition(int x, int y, int width, int rows);
    /// What stays free around the list.
    void SetListMargin(int margin);
    /// Shortens the list to a whole number of rows of LIST_ROW_HEIGHT.
    void SetCompleteRowsOnly(bool completeRows);
    /// Of the widest row.
    int GetRequiredWidth() const;
    /// For so many \a rows of LIST_ROW_HEIGHT with the buttons; 0 below 1.
    int GetRequiredHeight(int rows) const;
    /// @}

    void Setup() override;
    /// Room for all rows, or what was set as the list's size.
    QSize sizeHint() const override;
    /// Room for one row.
    QSize minimumSizeHint() const override;

    /// The height of the rows that AddString() appends.
    virtual int GetListRowHeight();
    /// For an owner that has the wheel itself: a step in the list, which stops at its ends.
    void OnMMIWheelLeft() override;
    void OnMMIWheelRight() override;

public Q_SLOTS:
    void OnClick(QModelIndex const& index);
    void OnDoubleClick(QModelIndex const& index);
    void OnMouseReleased(int row);
    void OnMousePressed();
    void OnSelection(int row);
    /// The operator is done: Selection() with the current row, if there is one.
    void OnDone();
    /// Emits SelectionCanceled(). The control stays where it is.
    void OnCancel() override;
    /// Selects the next row above that is not hidden, the last one after the first.
    void OnScrollUp();
    /// Selects the next row below that is not hidden, the first one after the last.
    void OnScrollDown();

Q_SIGNALS:
    /// \a row was chosen for good.
    void Selection(int row);
    /// \a row became current, or the selection changed while it is.
    void SelectionChanged(int row);
    void SelectionCanceled();
    /// The finger left the row on which it came down.
    void Click(int row);
    void DoubleClick(int row);
    /// The finger left the list; \a row is the current one, -1 for none.
    void MouseReleased(int row);
    /// The finger came down; nothing has changed yet.
    void MousePressed();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

    /// Places list and buttons anew.
    void PositionContent();
    TListWidget* GetList() const { return m_List; }

private:
    void ConnectList();
    TPushButton* MakeScrollButton(QString const& icon, int id, QString const& toolTip);
    void ApplyButtonBackgrounds();
    void ShowScrollButtons();
    void ApplyListColor();
    int ScrollButtonHeight() const;
    QRect ListRect() const;
    void Scroll(int direction);

    TListWidget* m_List;
    TPushButton* m_UpButton = nullptr;
    TPushButton* m_DownButton = nullptr;
    QColor m_ListColor;
    bool m_SingleSelection = true;
    bool m_GlassEffect = false;
    int m_X = 0;
    int m_Y = 0;
    int m_Width = 0;
    int m_Height = 0;
    int m_Margin = 0;
    bool m_CompleteRowsOnly = false;
};
