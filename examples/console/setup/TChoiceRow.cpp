#include "TChoiceRow.h"

#include "Palette.h"
#include "PixmapNames.h"
#include "TPushButton.h"

namespace
{
constexpr int ButtonTextSize = 18;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TChoiceRow::TChoiceRow(QWidget* parent, QString const& caption, QString const& toolTip,
                       QStringList const& choices)
    : TSetupRow(parent, caption)
{
    for (int i = 0; i < choices.size(); ++i)
    {
        auto* const button = new TPushButton(this, QString(), PixmapNames::NewStandardButton,
                                             PixmapNames::NewStandardButtonSelected, i, toolTip);
        connect(button, &TPushButton::Clicked, this, &TChoiceRow::Chosen);
        m_Buttons.append(button);
        AddField(button);
    }
    SetTexts(choices);
    for (TPushButton* const button : qAsConst(m_Buttons))
        button->SetFontProperties(regularButtonTextColor, ButtonTextSize, true, false, false, Centred, false);
}

void TChoiceRow::SetTexts(QStringList const& choices)
{
    int const count = qMin(m_Buttons.size(), choices.size());
    for (int i = 0; i < count; ++i)
        m_Buttons[i]->SetText(choices[i], choices[i], true, QString(), false);
}

void TChoiceRow::SetChoice(int choice)
{
    if (choice == m_Choice)
        return;
    m_Choice = choice;
    for (TPushButton* const button : qAsConst(m_Buttons))
    {
        bool const isChosen = button->GetButtonId() == choice;
        button->SetBackground(isChosen ? PixmapNames::NewGreenButton : PixmapNames::NewStandardButton);
        button->SetBackgroundSelected(isChosen ? PixmapNames::NewGreenButtonSelected
                                               : PixmapNames::NewStandardButtonSelected);
    }
}
