#include "TExpandingCollapsingBlock.h"

#include "Palette.h"
#include "RenderUtils.h"
#include "TPushButton.h"

#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

namespace
{
constexpr int Margin = 10;
constexpr int BottomMargin = 20;
constexpr int ButtonWidth = 240;
constexpr int ButtonHeight = 50;
constexpr int ButtonId = 0;
constexpr int IconSide = 42;
constexpr int IconLeft = 10;
constexpr int FrameOutset = 5; // how far the frame starts to the left of the button
constexpr int FrameNarrower = 9;
constexpr int FrameGap = FrameNarrower - FrameOutset; // what that leaves free at the right, and below
} // namespace

TExpandingCollapsingBlock::TExpandingCollapsingBlock(QWidget* parent, State state)
    : QWidget(parent)
    , m_DetailsButton(
          new TPushButton(this, QString(), QSize(ButtonWidth, ButtonHeight), QPoint(), ButtonId, QString()))
    , m_State(state)
    , m_Layout(new QVBoxLayout(this))
{
    m_DetailsButton->setFixedSize(ButtonWidth, ButtonHeight);
    m_Layout->setContentsMargins(Margin, Margin, Margin, BottomMargin);
    m_Layout->addWidget(m_DetailsButton, 0, Qt::AlignLeft | Qt::AlignTop);
    connect(m_DetailsButton, &TPushButton::Clicked, this, &TExpandingCollapsingBlock::OnShowContainingBlock);
    ShowState();
}

void TExpandingCollapsingBlock::AddWidget(QWidget* widget)
{
    InsertWidget(m_Layout->count() - 1, widget);
}

void TExpandingCollapsingBlock::InsertWidget(int index, QWidget* widget)
{
    bool const canHold = widget && widget != m_DetailsButton && !widget->isAncestorOf(this);
    if (!canHold || index < 0 || index >= m_Layout->count())
        return;
    // One that is in already moves; its own place does not count.
    m_Layout->removeWidget(widget);
    m_Layout->insertWidget(qMin(index + 1, m_Layout->count()), widget, 0, Qt::AlignTop);
    widget->setVisible(m_State == STATE_EXPANDED);
}

void TExpandingCollapsingBlock::SetDetailsButtonText(QString const& text, QString const& secondLine)
{
    m_DetailsButton->SetText(text, text, false, secondLine, !secondLine.isEmpty());
}

void TExpandingCollapsingBlock::SetDetailsButtonToolTip(QString const& toolTip)
{
    m_DetailsButton->SetToolTip(toolTip);
}

void TExpandingCollapsingBlock::SetDetailsButtonIcon(QString const& name)
{
    m_DetailsButton->SetIcon(name, QSize(IconSide, IconSide), false);
    m_DetailsButton->SetIconPosition(QPoint(IconLeft, 0), false);
}

void TExpandingCollapsingBlock::ToggleUpdates(bool enabled)
{
    setUpdatesEnabled(enabled);
}

void TExpandingCollapsingBlock::OnShowContainingBlock(int id)
{
    Q_UNUSED(id)
    bool const expands = m_State == STATE_COLLAPSED;
    QPointer<TExpandingCollapsingBlock> const self(this);
    if (expands)
        Q_EMIT AboutToExpand();
    else
        Q_EMIT AboutToCollapse();
    if (!self)
        return;
    m_State = expands ? STATE_EXPANDED : STATE_COLLAPSED;
    ShowState();
}

void TExpandingCollapsingBlock::EmitEnableUpdates()
{
    Q_EMIT enableUpdates();
}

void TExpandingCollapsingBlock::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    KVN::RenderUtils::RenderSunkenFrame(&painter, FrameRect(), clearColor, sunkenFrameHighlightColor,
                                        sunkenFrameShadowColor);
}

void TExpandingCollapsingBlock::ShowState()
{
    bool const expanded = m_State == STATE_EXPANDED;
    m_DetailsButton->SetRightSideIcon(expanded ? QStringLiteral("Collapse") : QStringLiteral("Expand"));
    // By index, since a widget that comes or goes may take others away.
    for (int i = 1; i < m_Layout->count(); ++i)
    {
        if (QWidget* const widget = m_Layout->itemAt(i)->widget())
            widget->setVisible(expanded);
    }
}

// From behind the middle of the button to the edges of the block.
QRect TExpandingCollapsingBlock::FrameRect() const
{
    QRect const button = m_DetailsButton->geometry();
    int const top = button.y() + button.height() / 2;
    return {button.x() - FrameOutset, top, width() - FrameNarrower, height() - top - FrameGap};
}
