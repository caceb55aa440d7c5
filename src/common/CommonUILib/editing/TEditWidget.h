#pragma once

#include "CommonUILibExport.h"
#include "IAnnotationHandler.h"
#include "MMICapableWidget.h"
#include "TEditItem.h"
#include "TEditOverlay.h"

#include <QPointer>
#include <QRegion>
#include <QSharedPointer>
#include <QWidget>

#include <functional>

class QListWidgetItem;
class TListControl;
class TPushButton;
class TUnitsNumberPad;

/// The transparent overlay in which the operator edits one TEditItem: it covers its parent, shows the value
/// over the control that asked for the edit, and beside that a list, a number pad, or floating buttons for
/// plus and minus. For a ready-made button that owns one see TEditButton, for a text TTextEditWidget.
///
/// The owner makes it without a parent, hidden, for the life of the control. SetPosition() says what it
/// stands over and Open() brings it up, as an annotation of the platform; what it tells in the end is
/// NewValue() or NumberPadCancelled(), and it is closed by then. It also closes when its source dies, without
/// a signal, and hides as long as the source is hidden.
///
/// Values are in the default unit of the item's unit type unless a name says otherwise. A slot of any of its
/// signals may delete the widget or give it another item. GUI thread only.
class COMMONUILIB_EXPORT TEditWidget : public QWidget,
                                       public KVN::MMICapableWidget,
                                       public KVN::IAnnotationHandler
{
    Q_OBJECT

public:
    /// Tells the rectangle of the source in the coordinates of the widget that it is given.
    using TSourceRect = std::function<QRect(QWidget*)>;

    /// The main screen as \a parent stands for none. \a item is copied and may be null.
    TEditWidget(QWidget* parent, TEditItem const* item);
    ~TEditWidget() override;

    /// Counts the rows of the list anew.
    virtual void Setup();

    /// \name Value
    /// @{
    /// The value as the operator reads it.
    virtual QString GetStringValue();
    /// The text of the entry \a index of a list, or the text of the value button where the item says so. For
    /// an index without an entry a text that says so.
    virtual QString GetStringValue(int index);
    /// What stands on the value button: while a number is typed, what is typed.
    virtual QString GetEnteredStringValue();
    /// Also what a cancel goes back to. No signal.
    virtual void SetCurrentValue(double value);
    virtual double GetCurrentValue();
    /// Makes the first entry of a list that reads exactly \a text the value. False, and nothing changes, when
    /// there is none or the item is no list.
    virtual bool SetActiveItem(QString const& text);
    virtual void SetCurrentListRow(int row);
    virtual void SetMaximumValue(float maximum);
    /// Of a stepped item the last of its values, else the bound.
    virtual double GetMaximumValue();
    virtual void SetMinimumValue(float minimum);
    virtual double GetMinimumValue();
    virtual void SetDecimalPlaces(int places);
    virtual int GetDecimalPlaces();
    virtual void SetSuffix(QString const& suffix);
    virtual QString GetSuffix();
    virtual void SetUnitIndex(EUnitsType unit);
    virtual EUnitsType GetSuffixIndex();
    /// In display units.
    virtual void SetIncrement(double increment);
    virtual double GetIncrement();
    /// @}

    /// \name Place
    /// What the widget edits over. \a rect may be empty: the rectangle is that of \a source then, which may
    /// be null when there is a \a rect. A list keeps within \a size, where a part below 1 is no wish. An open
    /// widget closes and opens again at the new place.
    /// @{
    virtual void SetPosition(QWidget* source);
    virtual void SetPosition(QWidget* source, TSourceRect rect);
    virtual void SetPosition(QWidget* source, QSize size);
    virtual void SetPosition(QWidget* source, TSourceRect rect, QSize size);
    /// @}

    /// Takes a copy of \a item; null changes nothing. The pad is made anew if the item asks for another one.
    virtual void RefreshProperties(TEditItem const* item);

    /// \name List
    /// Rows count from 0, the indices of entries from the item's minimum. Without a list nothing happens.
    /// @{
    virtual void SelectTextItem(int row, bool select);
    virtual void SelectAllListItems();
    virtual void UnSelectAllListItems();
    virtual bool IsTextItemSelected(unsigned int row);
    /// Leaves a list without entries.
    virtual void ClearPropertyValue();
    /// Of the value button: flags of Qt::Alignment and Qt::TextFlag.
    virtual void SetTextAlignment(int alignment);
    /// Stands above a list for several selections, and above one whose item asks for it.
    virtual void SetTitle(QString const& title);
    /// Changes the text of the entry \a index.
    virtual void SetTextBasedValue(int index, QString text);
    /// For items that are entered as IP addresses.
    virtual void SetIPAddress(QString const& address);
    /// Hides or shows the row of the entry \a index. What is remembered of it for the next filling is read
    /// from the row with that number, so entries are told apart only where the minimum is 0.
    virtual void SetItemHidden(int index, bool hide);
    virtual bool IsListItemEntryHidden(int index);
    virtual int GetNumVisibleListEntries();
    /// Enables the button that accepts the list.
    virtual void controlOKButton(bool enable);
    /// They belong to the list.
    QList<QListWidgetItem*> GetSelectedItems() const;
    /// The height of the box around the list, in pixels; 0 without a list.
    int GetEditWidgetListHeight() const;
    /// Without its two buttons a list is accepted by its owner, who calls OnDone().
    void ShowListButtons(bool show);
    /// @}

    /// Shows the widget over its source. Nothing without a platform.
    void Open();
    /// Takes it off the screen without a signal.
    void Close();
    /// What the widget holds, with the value under edit.
    void GetEditItemProperty(TEditItem& item) const;
    /// While true, the widget does not place its parts.
    void SetOverridePosition(bool override);
    /// Whether the finger is down on the list.
    bool IsMousePressing() const;
    /// True, as at first: an open edit blocks its module only; false: the whole screen, tool bars included.
    void SetLockExclusive(bool exclusive);
    /// Pixels between which the text of the value button shrinks to fit, each at least 1, in any order.
    void SetFontSizeRange(int a, int b);
    /// The width in pixels that a value button needs for the present value.
    int getValueFieldButtonWidth();

    EMMIWidgetBehaviour GetMMIBehaviour() override;
    void OnMMIWheelLeft() override;
    void OnMMIWheelRight() override;
    bool OnMMIBack() override;
    KVN::MMICapableWidget* OnMMIEnter() override;
    /// False: the overlay is as large as the screen.
    bool UseDefaultMMIHighlight() override;
    QPoint Position(QWidget* reference) override;
    void PositionChanged() override;

Q_SIGNALS:
    /// The operator took a step by plus, minus or the wheel.
    void ValueChanged();
    /// What stands on the pad, in its display unit, at each keystroke of an item with live updates; within
    /// the bounds or not.
    void ValueChanged(double value);
    /// The edit was accepted; the widget is closed. A number is within the bounds, also where the owner gave
    /// one that was not, or is the empty value.
    void NewValue(double value);
    /// The operator gave up; the widget is closed and has its former value again.
    void NumberPadCancelled();
    /// The row \a selection of the list is the value now, but not accepted yet.
    void SelectionChanged(int selection);
    /// The finger left the list; \a index is the entry of its current row, -1 for none.
    void MouseReleased(int index);
    /// An address was accepted; the widget is closed.
    void NewIPAddressValue(QString const& text);

public Q_SLOTS:
    void OnNumberPadValueChange(double value);
    void OnNumberPadTextChange(QString const& text);
    void OnNumberPadIPAddressChange(QString const& text);
    /// Accepts the value.
    void OnDone();
    void OnCancelEdit();
    /// A step up or down, on the grid of the increments, at most to the bounds. A time of day goes on at the
    /// other end.
    void OnUp();
    void OnDown();
    void OnMouseReleased(int row);
    void OnMousePressed();
    void OnListSelectionChanged(int selection);
    /// Places the widget anew.
    void SourceMovedSlot();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    /// Null for an item that is no list.
    TListControl* GetList() const { return m_List; }
    TPushButton* GetValueButton() const { return m_ValueButton; }
    TPushButton* GetListOkButton() const { return m_ListOk; }
    TPushButton* GetListCancelButton() const { return m_ListCancel; }
    /// Puts the buttons that accept the list and give it up below it.
    void PlaceListButtons();
    /// The title, if there is one, in a box around the list whose upper edge is at \a boxTop.
    void PaintTitle(QPainter& painter, int boxTop);
    /// Room for other parts in the box around the list, in pixels.
    void SetExtraBoxHeight(int height);
    /// The height of the list's title, which is never less than the border.
    int GetTitleBarHeight() const;

private Q_SLOTS:
    void OnUnitSettingsChanged();

private:
    struct TBounds
    {
        double low;
        double high;
    };
    /// Where the box around the list goes, and what it is held to.
    struct TBoxPlace
    {
        QPoint corner;
        int topLimit;
        int bottomLimit; ///< the first pixel below its reach
        bool overlaps = false;
    };

    TPushButton* MakeButton(QString const& icon, QString const& toolTip, void (TEditWidget::*slot)());
    TPushButton* MakeFloatingButton(QString const& icon, QString const& toolTip, void (TEditWidget::*slot)());
    TPushButton* MakeStepButton(QString const& icon, QString const& toolTip, void (TEditWidget::*slot)());

    bool IsListKind() const;
    bool IsPadInUse() const;
    int FirstIndex() const;
    double FirstValue() const;
    int LastIndex() const;

    void ChangePad(bool isOtherPad);
    void MakePad();
    void DropPad();
    void MakeStepButtons();
    void SetupValueList();
    QVector<QString> TextsWithFolders() const;
    QVector<QString> TextsOfItem() const;
    void MakeList();
    void DropList();
    void FillList();
    void SelectValueRow();
    void SelectRowOfValue();
    void ShowCurrentRow();
    void ShowText(QString const& text);
    void SetFontSizeFromString(QString const& text);

    void ShowParts();
    void DisplayNumberPad();
    void SetUnitOfPad();
    void SetLimitsOfPad();
    void PutPadAway();
    void CloseWithPad();
    void LockTopLevelWindow();
    void UnLockTopLevelWindow();

    double ToDisplayUnit(double value) const;
    double ToDefaultUnit(double value) const;
    EUnitsType DetermineActualUnit() const;
    double ValueUnderEdit() const;
    void OnBoundsChanged();
    TBounds DefaultBounds();
    double AcceptableValue();
    void GetMinMaxInCurrentUnits(double& min, double& max);
    double GetIncrementInCurrentUnits() const;
    bool GetIncrementedValues(double& down, double& up, double& min, double& max);
    void IncrementValue(int direction);
    void IncrementStepped(int direction);
    void IncrementNumber(int direction);
    void ShowStep();
    double StoredWithinBounds(double shown, double min, double max);
    double Wrapped(double value);

    bool FloatingIncDecBtnsAvail() const;
    bool FloatingOkCancelBtnsAvail() const;
    bool UseInlineNumberPad(QWidget* widget) const;
    void UpdateFloatingIncDecButtons();
    void ShowFloatingOkCancel();

    void SetPositionInternal(QPoint position, QSize size, QSize requested, QWidget* source);
    void PlaceValueButton(QPoint position, QSize size);
    void ClipToSource();
    void ShowField(bool isWhole);
    bool HasTitle() const;
    int HeightWithoutList() const;
    int RequiredHeight(int rows) const;
    int RequiredWidth() const;
    void LayOutList(int width, int rows);
    void SetListBoxPosition();
    TBoxPlace PlaceForBox(QRect const& usable, int width, int height) const;
    TBoxPlace PlaceBelowOrAbove(QRect const& usable, int width, int height) const;
    int RowsThatFit(TBoxPlace const& place) const;
    QRect BoxAroundList() const;
    void SetBox(QRect const& box);
    void SetKeyPadPosition();
    void PlaceFloatingButtons(QRect const& usable);
    void MoveStack(QPoint minusCorner);
    int RowsOfStack() const;
    void PlaceUnitsButton();
    void PositionNumberPad();
    bool DoFloatingPartsFit(QRect const& usable) const;
    void MakePadInline();

    TEditItem m_Item;
    bool m_MousePressing = false;
    double m_PreviousValue = 0.0;
    int m_VisibleListEntries = 0;
    int m_ExtraBoxHeight = 0;
    TUnitsNumberPad* m_Pad = nullptr;
    int m_TextAlignment;
    QWidget* m_Field; // the middle of what is beneath the value
    TPushButton* m_ValueButton;
    TListControl* m_List = nullptr;
    TPushButton* m_Plus = nullptr;
    TPushButton* m_Minus = nullptr;
    TPushButton* m_ListOk;
    TPushButton* m_ListCancel;
    TPushButton* m_FloatingOk;
    TPushButton* m_FloatingCancel;
    bool m_ShowListButtons = true;
    bool m_IsPadInline = false;
    QVector<QString> m_ListTexts;
    QString m_Title;
    bool m_LockExclusive = true;
    QRegion m_ClipRegion;
    QRect m_Box; // around the list and its buttons; empty while there is none
    QSharedPointer<QPixmap> m_BoxPixmap;
    QSharedPointer<QPixmap> m_FieldPixmap;
    int m_MaxFontSize;
    int m_MinFontSize;
    TEditOverlay m_Overlay;
    QSize m_RequestedSize{-1, -1};
    bool m_OverridePosition = false;
};
