#include "TLegendLayer.h"

#include "ConsoleText.h"
#include "Palette.h"
#include "TPushButton.h"

#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int SwatchSide = 18;
constexpr int TextSize = 15;
constexpr int TitleSize = 16;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TLegendLayer::TLegendLayer(QWidget* parent, QString const& name, QString const& title,
                           QVector<TEntry> const& entries)
    : QWidget(parent)
    , m_Title(new TPushButton(this, QString(), QSize(), QPoint(), 0,
                              tr("Shows what the colours of this layer stand for")))
    , m_Entries(entries)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_Title->SetText(title, QString(), true, QString(), false);
    m_Title->SetFontProperties(regularButtonTextColor, TitleSize, true, false, false, Centred, false);
    m_Title->SetObjectName(name, NAME_EXPLICIT);
    connect(m_Title, &TPushButton::Clicked, this, &TLegendLayer::TitlePressed);
}

void TLegendLayer::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    int y = TitleHeight + Margin / 2;
    for (TEntry const& entry : qAsConst(m_Entries))
    {
        painter.fillRect(Margin, y + (EntryHeight - SwatchSide) / 2, SwatchSide, SwatchSide, entry.color);
        int const textLeft = 2 * Margin + SwatchSide;
        ConsoleText::Draw(&painter, QRect(textLeft, y, width() - textLeft - Margin, EntryHeight),
                          Qt::AlignLeft | Qt::AlignVCenter, entry.text, TextSize, regularTextColor);
        y += EntryHeight;
    }
}

void TLegendLayer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_Title->setGeometry(0, 0, width(), TitleHeight);
}
