#include "TEditRow.h"

#include "Palette.h"
#include "TEditButton.h"
#include "TEditItem.h"
#include "TEditWidget.h"

namespace
{
constexpr int SmallestTextSize = 12;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TEditRow::TEditRow(QWidget* parent, QString const& caption)
    : TSetupRow(parent, caption)
{
}

void TEditRow::AddItem(TEditItem const& item, QString const& name, QString const& toolTip)
{
    int const index = m_Buttons.size();
    auto* const button = new TEditButton(this, index, toolTip);
    TEditItem copy = item;
    button->SetProperties(&copy);
    button->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
    button->SetObjectName(name, NAME_EXPLICIT);
    // What is edited stands where it stood before.
    button->GetEditWidget()->SetTextAlignment(Centred);
    button->GetEditWidget()->SetFontSizeRange(SmallestTextSize, TextSize);
    m_Buttons.append(button);
    AddField(button);
    connect(button, &TEditButton::NewValue, this,
            [this, index](double value) { Q_EMIT Edited(index, value); });
    connect(button, &TEditButton::NumberPadCancelled, this, &TEditRow::GivenUp);
    connect(button->GetEditWidget(), &TEditWidget::NewIPAddressValue, this,
            [this, index](QString const& address) { Q_EMIT AddressEdited(index, address); });
}

// While it is up, the screen has it.
bool TEditRow::IsUnderEdit(int index) const
{
    TEditWidget const* const edit = m_Buttons[index]->GetEditWidget();
    return edit && edit->parentWidget();
}

void TEditRow::SetValue(int index, double value)
{
    if (index >= 0 && index < m_Buttons.size() && !IsUnderEdit(index))
        m_Buttons[index]->SetCurrentValue(value);
}

void TEditRow::SetAddress(int index, QString const& address)
{
    if (index < 0 || index >= m_Buttons.size() || IsUnderEdit(index))
        return;
    m_Buttons[index]->GetEditWidget()->SetIPAddress(address);
    // Shows it.
    m_Buttons[index]->SetCurrentValue(0.0);
}

void TEditRow::hideEvent(QHideEvent* event)
{
    TSetupRow::hideEvent(event);
    for (int i = 0; i < m_Buttons.size(); ++i)
    {
        if (IsUnderEdit(i))
            m_Buttons[i]->GetEditWidget()->OnCancelEdit();
    }
}
