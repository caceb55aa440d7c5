#pragma once

#include "CommonUILibExport.h"
#include "TPushButton.h"

#include <QPointer>

class TEditWidget;
class TMessageDialog;
struct TEditItem;

/// How a button for a value stands among its neighbours.
enum EEditButtonStyle : int
{
    EDIT_BUTTON_PLAIN = 0,
    EDIT_BUTTON_LEFT = 1, ///< the left one of a pair
    EDIT_BUTTON_RIGHT = 2 ///< the right one of a pair
};

/// A button that shows a value and, at a touch, has it edited in a TEditWidget of its own, which opens over
/// the button. The value follows a change of the operator's units. GUI thread only.
class COMMONUILIB_EXPORT TEditButton : public TPushButton
{
    Q_OBJECT

public:
    /// Without a value until SetProperties(); a touch does nothing then. \a id and \a toolTip as those of
    /// every TPushButton.
    explicit TEditButton(QWidget* parent, int id = -1, QString const& toolTip = QString());
    ~TEditButton() override;

    /// What is edited from now on; copied. A former edit ends without a signal. Null: nothing is edited any
    /// more.
    void SetProperties(TEditItem* item);
    /// The background, and a fixed size of 100 by 40 pixels. Any other \a style changes nothing.
    void SetButtonStyle(EEditButtonStyle style);
    EEditButtonStyle GetButtonStyle() const;
    /// In the default unit of the item. No signal.
    void SetCurrentValue(double const& value);
    /// 0 without an item.
    double GetCurrentValue() const;
    /// While not editable, a touch shows \a refusalText in a message, or does nothing where that is empty.
    void SetEditable(bool editable, QString const& refusalText = QString());
    bool IsEditable() const;
    /// Belongs to the button and lives until the next SetProperties(); null without an item.
    TEditWidget* GetEditWidget() const;

Q_SIGNALS:
    /// The operator took a step, which is not accepted yet; or accepted an IP address.
    void ValueChanged();
    /// The edit was accepted; the button shows the value.
    void NewValue(double value);
    void NumberPadCancelled();
    /// The operator has read why the value cannot be edited.
    void NotEditableMessageDialogAccepted();

private Q_SLOTS:
    void OnClicked();
    void OnNewValue(double value);
    void OnValueChanged();
    void OnNumberPadCancelled();
    void OnNewIPAddressValue();
    void OnUnitSettingsChanged();

private:
    void ShowValue();
    void Refuse();
    bool IsGuardSatisfied() const;

    QPointer<TEditWidget> m_EditWidget;
    EEditButtonStyle m_Style = EDIT_BUTTON_PLAIN;
    bool m_Editable = true;
    QString m_RefusalText;
    QPointer<TMessageDialog> m_Refusal; // made for the first message
};
