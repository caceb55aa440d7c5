#pragma once

#include "TSetupRow.h"

class TEditButton;
struct TEditItem;

/// One line of the setup with values that are edited: the button for each shows it and has it edited over
/// itself. An edit that is open when the line goes out of sight, with its page or its window, is given up.
class TEditRow : public TSetupRow
{
    Q_OBJECT

public:
    TEditRow(QWidget* parent, QString const& caption);

    /// A button for \a item behind those that are there. \a name is what it is called by, \a toolTip tells
    /// what the value is.
    void AddItem(TEditItem const& item, QString const& name, QString const& toolTip);

    /// Shows what the machine knows, unless the operator is at it. Emits nothing.
    void SetValue(int index, double value);
    void SetAddress(int index, QString const& address);

Q_SIGNALS:
    /// The operator has accepted \a value, in the default unit of the item.
    void Edited(int index, double value);
    /// The same of an item that is an address.
    void AddressEdited(int index, QString const& address);
    /// The operator gave an edit up; what the machine knows may be shown again.
    void GivenUp();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    bool IsUnderEdit(int index) const;

    QVector<TEditButton*> m_Buttons;
};
