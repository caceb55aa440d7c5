#include "TSelectRow.h"

#include "TSelectWidget.h"

TSelectRow::TSelectRow(QWidget* parent, QString const& caption)
    : TSetupRow(parent, caption)
    , m_Select(new TSelectWidget(this))
{
    m_Select->SetSelectorSize(TSelectWidget::SELECTOR_LARGE);
    AddField(m_Select);
}
