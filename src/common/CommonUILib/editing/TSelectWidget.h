#pragma once

#include "CommonUILibExport.h"

#include <QPointer>
#include <QString>
#include <QVector>
#include <QWidget>

class TEditWidget;
class TLabel;
class TPushButton;

/// A compact selector: a button that shows the selected one of some entries, between two that step to the
/// entry before and behind it, and a title above them. For a value with bounds and units see TEditItem, for a
/// list that stays open TListControl.
///
/// Entries count from 0. A wrong index is ignored, and answered with what stands for nothing. A slot of
/// SelectionChanged() may delete the widget. The wheel stops at its buttons. GUI thread only.
class COMMONUILIB_EXPORT TSelectWidget : public QWidget
{
    Q_OBJECT

public:
    enum ESelectorSize
    {
        SELECTOR_SMALL = 0, ///< buttons of 40 by 50 pixels at least
        SELECTOR_LARGE = 1  ///< of 55 by 55
    };

    explicit TSelectWidget(QWidget* parent);
    ~TSelectWidget() override;

    /// \name Entries
    /// @{
    /// Takes all entries away; the first one to come is the selected one.
    void Clear();
    /// \a key is for the module, \a text for the operator; \a id need not differ from those of other entries.
    void AppendEntry(QString key, QString text, int id);
    int CountEntries() const;
    /// The key; empty for a wrong \a index.
    QString GetEntry(int index) const;
    /// What the operator sees; empty for a wrong \a index.
    QString GetStringEntry(int index) const;
    /// 0 for a wrong \a index.
    int GetID(int index) const;
    /// @}

    /// Begins anew with the first entry, without a signal; to be called when all entries are there. An empty
    /// \a title takes no room. \a initial is the entry with which the list is made that the middle button
    /// opens, the first one where there is no such entry; since the list is told the selected entry each time
    /// it opens, that is never seen.
    void SetupSelect(QString const& title, int initial);
    /// The least size of the buttons; that of any other value stays as it is. SELECTOR_SMALL at first.
    void SetSelectorSize(ESelectorSize size);

    /// Selects the entry \a index.
    void UpdateSelection(int index);
    /// Shows the selected entry and emits SelectionChanged(); nothing without entries.
    void UpdateSelectionButton();

public Q_SLOTS:
    /// What a click of a button does: 0 goes to the entry before the selected one, 2 to the one behind it;
    /// both stop at the ends. 1 opens the list and notes what was selected until then.
    void OnButtonClicked(int buttonId);
    /// Goes back to the entry that was selected when the list was opened.
    void OnSelectionCancelled();
    /// The operator chose \a index in the list.
    void OnSelectionChanged(int index);

Q_SIGNALS:
    /// \a index was selected, perhaps not for the first time; the button shows it.
    void SelectionChanged(int index);

private:
    struct TEntry
    {
        QString key;
        QString text;
        int id = 0;
    };

    TPushButton* MakeButton(QString const& icon, int id, QString const& toolTip);
    void ShowSelection();
    void MakeList(int initial);
    void DropList();
    void OpenList();

    QVector<TEntry> m_Entries;
    QPointer<TEditWidget> m_EditWidget;
    TPushButton* m_PreviousButton;
    TPushButton* m_NextButton;
    TPushButton* m_SelectionButton;
    TLabel* m_Title;
    int m_Selection = 0;
    int m_SelectionBeforeEdit = 0;
};
