#pragma once

#include "CommonUILibExport.h"
#include "IAnnotationHandler.h"
#include "MMICapableWidget.h"

#include <QIcon>
#include <QListWidget>
#include <QVariant>
#include <QVector>

#include <functional>

class TEditContainerQString;
class TVerticalScrollBar;

/// A list of rows with one line of text each, from which the operator picks one row or several: with the
/// finger, which the selection follows, or with the wheel once the list is entered. A text that does not fit
/// is shown whole as long as the finger holds it. For a list with its place in a window see TListControl.
///
/// Rows count from 0. A wrong row is ignored, and answered with what stands for nothing. However many rows
/// there are, only those in sight are painted, and no text is measured before somebody asks for a width.
///
/// SelectionChanged() goes out when the change is complete, so that a slot may do what it likes, even delete
/// the list. That holds for what the operator does and for the functions of this class, not for those of
/// QListWidget. GUI thread only.
class COMMONUILIB_EXPORT TListWidget : public QListWidget,
                                       public KVN::MMICapableWidget,
                                       public KVN::IAnnotationHandler
{
    Q_OBJECT

public:
    explicit TListWidget(QWidget* parent);
    ~TListWidget() override;

    /// \name Rows
    /// @{
    /// Appends a row of \a rowHeight pixels and tells the new number of rows. The row's hint is \a width
    /// pixels wide, or as wide as its text and some room around it where \a width is less.
    int AddString(QString const& text, int rowHeight, int width = 0, QIcon const& icon = QIcon());
    /// What AddString() does for the size of a row, for \a item of this list. It keeps the column of the
    /// icons free where no row had an icon so far.
    void SetItemSizeHint(QListWidgetItem* item, int width, int height);
    /// Each row takes the icon of its index, from ":/Icons/Resources/".
    void SetupListItemIcon(TEditContainerQString const& names);
    void Clear();
    /// Empty for a wrong \a row.
    QString GetItemText(int row) const;
    /// As AddString(); the row keeps its height.
    void SetItemText(int row, QString const& text, int width);
    /// By Qt::ItemDataRole.
    QVariant GetItemData(int row, int role) const;
    void SetItemData(int row, int role, QVariant const& value);
    void SetItemHidden(int row, bool hidden);
    /// False for a wrong \a row.
    bool IsItemHidden(int row) const;
    int GetNumberOfItems() const;
    /// Rows that are not hidden.
    int GetNumberOfVisibleItems() const;
    /// The first row that reads exactly \a text, -1 for none.
    int GetIndexfromText(QString const& text) const;
    /// The width of the widest hint; 0 without rows.
    int GetRequiredWidth() const;
    /// @}

    /// \name Selection
    /// @{
    /// The current row, -1 for none.
    int GetSelectedItem() const;
    /// Selects the first row that reads exactly \a text; false when there is none.
    bool SelectItem(QString const& text);
    /// Makes \a row current, which selects it.
    void SelectItem(int row);
    /// Where only one row may be selected, \a row becomes current and is selected, or deselected while the
    /// others stay as they are. Where several may, it becomes current only when it is selected, and the
    /// others stay as they are.
    void SelectItem(int row, bool select);
    /// Selects the rows whose text is one of \a texts, and no others; the last of them where only one may be
    /// selected.
    void SelectItems(QStringList const& texts);
    void SelectAll();
    void UnSelectAllSelections();
    /// -1 for none.
    void SetCurrentRow(int row);
    bool IsItemSelected(unsigned row) const;
    /// Is any row selected that is not hidden.
    bool IsAnythingSelected() const;
    /// They belong to the list.
    QList<QListWidgetItem*> GetSelectedItems() const;
    /// From top to bottom.
    QStringList GetSelectedTextItems() const;
    /// @}

    /// Fills the ground behind the rows; transparent at first.
    void SetListColor(QColor const& color);
    /// On glass the ground is left as it is, and the scroll bar takes the art for it.
    void UseGlassEffect(bool use);
    /// Shows the current row's text as the platform's tool tip while it is pressed and too long for the list;
    /// otherwise takes the tool tip down.
    void RefreshToolTip();

    /// Calls \a work as soon as the list may be deleted from it: at once, or at the end of the change that is
    /// under way. For the slots of signals that QListWidget emits from the middle of its work.
    void WhenSettled(std::function<void()> work);

    void OnMMIWheelLeft() override;
    void OnMMIWheelRight() override;
    /// Chooses the current row.
    KVN::MMICapableWidget* OnMMIEnter() override;
    /// Always MMI_WHEEL_OWNER.
    EMMIWidgetBehaviour GetMMIBehaviour() override;

    QPoint Position(QWidget* reference) override;
    void PositionChanged() override;

    void doItemsLayout() override;

public Q_SLOTS:
    /// To the next row above that is not hidden; none, and no signal, at the first one.
    void OnUp();
    /// To the next row below that is not hidden.
    void OnDown();

Q_SIGNALS:
    /// The operator chose \a row with the enter key.
    void Selection(int row);
    /// \a row became current, or the selection changed while it is. A change of both is told once for each.
    void SelectionChanged(int row);
    /// For subclasses whose operator can call a choice off.
    void SelectionCanceled();
    /// The finger left the list; \a row is the current one, -1 for none.
    void MouseReleased(int row);
    /// The finger came down; nothing has changed yet.
    void MousePressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void rowsInserted(QModelIndex const& parent, int start, int end) override;
    QStyleOptionViewItem viewOptions() const override;

private Q_SLOTS:
    void OnSelectionChanged();
    void OnCurrentItemChanged(QListWidgetItem* current, QListWidgetItem* previous);

private:
    class TRow;

    QModelIndex IndexOf(int row) const;
    QVector<int> SelectedRows() const;
    QItemSelection RowsThatRead(QStringList const& texts) const;
    void ReplaceSelection(QItemSelection const& rows);
    int IconColumn() const;
    bool Work(std::function<void()> const& work);
    bool Settle();
    void TellSelectionChanged(int row);
    void Step(int direction);
    void EndPress();
    bool IsCurrentTooLong() const;
    void ShowIcons();

    TVerticalScrollBar* m_ScrollBar;
    // In the form in which the rows give them away.
    QVariant m_Font;
    QVariant m_Placeholder;
    bool m_HasIcons = false;
    bool m_MouseDown = false;
    bool m_GlassEffect = false;
    bool m_PressInProgress = false;
    bool m_LayoutIsDue = false;
    int m_WorkDepth = 0;
    QVector<std::function<void()>> m_WhenSettled;
};
