#include "TChoiceRow.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TPushButton.h"

#include <QPainter>

namespace
{
constexpr int Margin = 12;
constexpr int CaptionWidth = 220;
constexpr int CaptionSize = 20;
constexpr int ButtonTextSize = 18;
constexpr int ButtonGap = 6;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TChoiceRow::TChoiceRow(QWidget* parent, QString const& caption, QString const& toolTip,
                       QStringList const& choices)
    : QWidget(parent)
    , m_Caption(caption)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (QString const& choice : choices)
    {
        auto* const button =
            new TPushButton(this, QString(), PixmapNames::NewStandardButton,
                            PixmapNames::NewStandardButtonSelected, m_Buttons.size(), toolTip);
        button->SetText(choice, choice, true, QString(), false);
        button->SetFontProperties(regularButtonTextColor, ButtonTextSize, true, false, false, Centred, false);
        connect(button, &TPushButton::Clicked, this, &TChoiceRow::Chosen);
        m_Buttons.append(button);
    }
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

void TChoiceRow::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    ConsoleText::Draw(&painter, QRect(Margin, 0, CaptionWidth, height()), Qt::AlignLeft | Qt::AlignVCenter,
                      m_Caption, CaptionSize, regularTextColor);
}

void TChoiceRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    int const left = 2 * Margin + CaptionWidth;
    int const step = (width() - left - Margin + ButtonGap) / qMax(1, m_Buttons.size());
    for (int i = 0; i < m_Buttons.size(); ++i)
        m_Buttons[i]->setGeometry(left + i * step, Margin, step - ButtonGap, height() - 2 * Margin);
}
