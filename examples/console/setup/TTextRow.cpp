#include "TTextRow.h"

#include "Palette.h"
#include "TPushButton.h"
#include "TTextEditWidget.h"

namespace
{
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
QString const Background = QStringLiteral("EditButton");
QString const BackgroundDown = QStringLiteral("EditButtonDown");
} // namespace

TTextRow::TTextRow(QWidget* parent, QString const& caption, QString const& name, QString const& toolTip)
    : TSetupRow(parent, caption)
    , m_Button(new TPushButton(this, QString(), Background, BackgroundDown, 0, toolTip))
    , m_Edit(new TTextEditWidget(nullptr))
{
    m_Button->SetFontProperties(regularButtonTextColor, TextSize, true, false, false, Centred, false);
    m_Button->SetObjectName(name, NAME_EXPLICIT);
    AddField(m_Button);
    m_Edit->SetAllowEmptyStrings(true);
    connect(m_Button, &TPushButton::Clicked, this, &TTextRow::Open);
    connect(m_Edit.data(), &TTextEditWidget::NewText, this, &TTextRow::Edited);
}

// While it is up, the screen has it; without the screen it has no parent.
TTextRow::~TTextRow()
{
    delete m_Edit.data();
}

void TTextRow::SetLongest(int length)
{
    if (m_Edit)
        m_Edit->SetMaxLength(length);
}

void TTextRow::SetText(QString const& text)
{
    m_Text = text;
    m_Button->SetText(text.isEmpty() ? QStringLiteral("–") : text, QString(), true, QString(), false);
}

void TTextRow::Open()
{
    if (!m_Edit)
        return;
    m_Edit->SetValue(m_Text);
    m_Edit->SetPosition(m_Button, TEditOverlay::TSourceRect());
    m_Edit->Open();
}

void TTextRow::hideEvent(QHideEvent* event)
{
    TSetupRow::hideEvent(event);
    if (m_Edit)
        m_Edit->Close();
}
