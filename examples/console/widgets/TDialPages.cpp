#include "TDialPages.h"

#include "TDial.h"
#include "TPushButton.h"
#include "TScrollableWidget.h"

namespace
{
constexpr int ButtonWidth = 84;
constexpr int Gap = 10;
} // namespace

TDialPages::TDialPages(QWidget* parent)
    : QWidget(parent)
    , m_Pages(new TScrollableWidget(this, true))
    , m_Next(new TPushButton(this, QStringLiteral("icon-up"), QSize(), QPoint(), 0, tr("Next instrument")))
    , m_Previous(
          new TPushButton(this, QStringLiteral("icon-down"), QSize(), QPoint(), 0, tr("Previous instrument")))
{
    m_Next->SetObjectName(QStringLiteral("next-dial"), NAME_EXPLICIT);
    m_Previous->SetObjectName(QStringLiteral("previous-dial"), NAME_EXPLICIT);
    connect(m_Next, &TPushButton::Clicked, m_Pages, &TScrollableWidget::MoveUp);
    connect(m_Previous, &TPushButton::Clicked, m_Pages, &TScrollableWidget::MoveDown);
}

void TDialPages::AddDial(QString const& caption, TQuantity const& quantity, double largest)
{
    auto* const dial = new TDial(m_Pages, caption, quantity, largest);
    m_Dials.append(dial);
    m_Pages->AddWidget(dial, SCROLL_STOP_DRAGGABLE);
}

void TDialPages::SetValue(int dial, double value)
{
    if (dial >= 0 && dial < m_Dials.size())
        m_Dials[dial]->SetValue(value);
}

void TDialPages::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    int const buttonHeight = (height() - Gap) / 2;
    m_Pages->setGeometry(0, 0, width() - ButtonWidth - Gap, height());
    m_Next->setGeometry(width() - ButtonWidth, 0, ButtonWidth, buttonHeight);
    m_Previous->setGeometry(width() - ButtonWidth, height() - buttonHeight, ButtonWidth, buttonHeight);
}
