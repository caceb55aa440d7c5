#include "TEditButton.h"

#include "PixmapNames.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TMessageDialog.h"
#include "TUnitSettings.h"

namespace
{
constexpr int ButtonWidth = 100;
constexpr int ButtonHeight = 40;

struct TStyle
{
    char const* background;
    char const* down;
};
// By EEditButtonStyle.
constexpr TStyle Styles[] = {
    {"EditButton", "EditButtonDown"},
    {"EditButtonLeft", "EditButtonDownLeft"},
    {"EditButtonRight", "EditButtonDownRight"},
};
} // namespace

TEditButton::TEditButton(QWidget* parent, int id, QString const& toolTip)
    : TPushButton(parent, id, toolTip)
{
    SetButtonStyle(EDIT_BUTTON_PLAIN);
    connect(this, &QAbstractButton::clicked, this, &TEditButton::OnClicked);
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, this, &TEditButton::OnUnitSettingsChanged);
}

TEditButton::~TEditButton()
{
    delete m_EditWidget.data();
    delete m_Refusal.data();
}

void TEditButton::SetButtonStyle(EEditButtonStyle style)
{
    if (style < EDIT_BUTTON_PLAIN || style > EDIT_BUTTON_RIGHT)
        return;
    m_Style = style;
    SetBackground(QLatin1String(Styles[style].background));
    SetBackgroundSelected(QLatin1String(Styles[style].down));
    setFixedSize(ButtonWidth, ButtonHeight);
}

EEditButtonStyle TEditButton::GetButtonStyle() const
{
    return m_Style;
}

// It may be the one whose signal asks for another item.
void TEditButton::SetProperties(TEditItem* item)
{
    if (m_EditWidget)
    {
        m_EditWidget->disconnect(this);
        m_EditWidget->Close();
        m_EditWidget->deleteLater();
        m_EditWidget = nullptr;
    }
    if (!item)
    {
        setText(QString());
        return;
    }
    auto* const widget = new TEditWidget(nullptr, item);
    m_EditWidget = widget;
    SetCurrentValue(item->value);
    connect(widget, &TEditWidget::NewValue, this, &TEditButton::OnNewValue);
    connect(widget, qOverload<>(&TEditWidget::ValueChanged), this, &TEditButton::OnValueChanged);
    connect(widget, &TEditWidget::NumberPadCancelled, this, &TEditButton::OnNumberPadCancelled);
    connect(widget, &TEditWidget::NewIPAddressValue, this, &TEditButton::OnNewIPAddressValue);
    widget->Close();
}

void TEditButton::SetCurrentValue(double const& value)
{
    if (!m_EditWidget)
        return;
    m_EditWidget->SetCurrentValue(value);
    ShowValue();
}

double TEditButton::GetCurrentValue() const
{
    return m_EditWidget ? m_EditWidget->GetCurrentValue() : 0.0;
}

void TEditButton::SetEditable(bool editable, QString const& refusalText)
{
    m_Editable = editable;
    m_RefusalText = refusalText;
}

bool TEditButton::IsEditable() const
{
    return m_Editable;
}

TEditWidget* TEditButton::GetEditWidget() const
{
    return m_EditWidget;
}

void TEditButton::ShowValue()
{
    if (m_EditWidget)
        SetText(m_EditWidget->GetStringValue(), QString(), false, QString(), false);
    if (isVisible())
        update();
}

void TEditButton::OnClicked()
{
    if (!m_Editable)
    {
        Refuse();
        return;
    }
    // The guard is the module's, which may take the button away or what it edits.
    QPointer<TEditButton> const self(this);
    if (!m_EditWidget || !IsGuardSatisfied() || !self || !m_EditWidget)
        return;
    m_EditWidget->SetPosition(this, TEditWidget::TSourceRect());
    m_EditWidget->Open();
}

bool TEditButton::IsGuardSatisfied() const
{
    TEditItem item;
    m_EditWidget->GetEditItemProperty(item);
    if (!item.isEditGuardConditionSatisfied || item.isEditGuardConditionSatisfied())
        return true;
    if (item.doOnEditGuardConditionFailed)
        item.doOnEditGuardConditionFailed();
    return false;
}

void TEditButton::Refuse()
{
    if (m_RefusalText.isEmpty())
        return;
    if (!m_Refusal)
    {
        m_Refusal = new TMessageDialog(nullptr, tr("Operation Not Permitted"), m_RefusalText, MESSAGE_OK);
        connect(m_Refusal.data(), &TMessageDialog::Ok, this, &TEditButton::NotEditableMessageDialogAccepted);
    }
    m_Refusal->SetMessage(m_RefusalText);
    m_Refusal->ShowWindow(true);
}

void TEditButton::OnNewValue(double value)
{
    ShowValue();
    Q_EMIT NewValue(value);
}

void TEditButton::OnValueChanged()
{
    Q_EMIT ValueChanged();
}

void TEditButton::OnNumberPadCancelled()
{
    ShowValue();
    Q_EMIT NumberPadCancelled();
}

void TEditButton::OnNewIPAddressValue()
{
    ShowValue();
    Q_EMIT ValueChanged();
}

void TEditButton::OnUnitSettingsChanged()
{
    ShowValue();
}
