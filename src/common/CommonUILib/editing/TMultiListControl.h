#pragma once

#include "CommonUILibExport.h"
#include "TEditWidget.h"

#include <array>

class QSpacerItem;
class TLabel;

/// An edit widget whose list stands below up to four rows of buttons: each row steps, by a button before and
/// one behind the present entry, through a small set of entries without leaving the list. It is a window of
/// its own size that stands in the middle of the screen, wherever its source is.
///
/// Rows count from 0, a row's entries too, and carry ids of the module's. A wrong row or index is ignored and
/// answered with -1. The wheel stops at the buttons and at the list. A slot of any of its signals may delete
/// the control. GUI thread only.
class COMMONUILIB_EXPORT TMultiListControl : public TEditWidget
{
    Q_OBJECT

public:
    static constexpr int RowCount = 4;

    /// As those of TEditWidget. All rows are hidden.
    TMultiListControl(QWidget* parent, TEditItem* item);
    ~TMultiListControl() override;

    /// Makes the rows. To be called once, before the first Open().
    void Setup() override;
    void RefreshProperties(TEditItem const* item) override;
    void SetTitle(QString const& title) override;

    /// \name Rows
    /// @{
    /// The entries of a row: the middle button shows their \a longTexts, or the \a shortTexts where there are
    /// no long ones. The row stays at the id that it is at, where that is among the new ones.
    void SetRowItems(int row, QString title, QVector<int> const& ids, QVector<QString> const& shortTexts,
                     QVector<QString> const& longTexts);
    /// A row that is hidden keeps its entries.
    void ShowHideButtonControls(int row, bool show);
    /// No signal. Only for a row that is shown.
    void SelectRowIndex(int row, int index);
    /// Goes to the first entry with the id \a id, without a signal.
    void SelectRowItem(int row, int id);
    /// -1 for a row that is hidden or has no entries, in all three.
    int GetSelectedRowIndex(int row) const;
    int GetSelectedRowItem(int row) const;
    int GetMaxRowIndex(int row) const;
    /// Shows the text of the selected entry.
    void UpdateMiddleButtonText(int row);
    /// @}

    /// \name Place
    /// In pixels.
    /// @{
    /// What the control takes with all rows of buttons and all of its list.
    int GetMultiListControlHeight();
    /// Where the middle button of a row stands in \a parent; empty for a row that does not exist.
    QRect GetEditButtonMappedRect(int row, QWidget* parent) const;
    /// Gives the list the room that the rows leave it, in whole rows.
    void PositionValueList();
    /// Fits the control to its rows and its list and puts it into the middle of its parent.
    void UpdateWindowHeightAndPosition();
    /// @}

    /// MMI_NORMAL: the wheel walks over the buttons and the list.
    EMMIWidgetBehaviour GetMMIBehaviour() override;
    void PositionChanged() override;

Q_SIGNALS:
    void MiddleButtonClicked(int index);
    /// The operator stepped in \a row, to the entry with the id \a item.
    void RowItemSelectionChanged(int row, int item);

public Q_SLOTS:
    /// What the buttons do, by their ids; any other id is ignored. Steps go round.
    /// @{
    void OnMiddleButtonClicked(int id);
    void OnNextButtonClicked(int id);
    void OnPreviousButtonClicked(int id);
    /// @}

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct TRow
    {
        bool visible = false;
        int selected = 0;
        TPushButton* previous = nullptr;
        TPushButton* next = nullptr;
        TPushButton* middle = nullptr;
        QVector<int> ids;
        QVector<QString> shortTexts;
        QVector<QString> longTexts;
        QString title;
        QWidget* widget = nullptr;
        TLabel* label = nullptr;
    };

    static bool IsRow(int row);
    bool HasEntries(int row) const;
    int RowOfButton(int id, TPushButton* TRow::*button) const;
    TPushButton* MakeRowButton(QString const& icon, int id, QString const& toolTip);
    void MakeRow(int row);
    void Step(int row, int direction);
    void ShowRow(int row);
    void FitHeader();
    void FitAnew();
    int ParentHeight() const;
    int RowsOfList();
    void FetchBack();

    QWidget* m_Header;                 // where the title stands
    QWidget* m_RowsWidget;             // with the room for the list
    QSpacerItem* m_ListRoom = nullptr; // belongs to the layout of the rows
    std::array<TRow, RowCount> m_Rows;
    QSharedPointer<QPixmap> m_Back;
};
