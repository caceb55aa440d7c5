#include "TMapLegend.h"

#include "MapColors.h"
#include "Palette.h"
#include "TCoverageMap.h"
#include "TLegendLayer.h"

namespace
{
constexpr int Width = 200;
constexpr int MostEntries = 3;
constexpr int Padding = 8;
constexpr int ClosedHeight = TLegendLayer::TitleHeight;
constexpr int OpenHeight = TLegendLayer::TitleHeight + MostEntries * TLegendLayer::EntryHeight + Padding;
constexpr int LayerCount = 3;

QString TitleOf(int layer)
{
    QString const titles[LayerCount] = {TMapLegend::tr("Sections"), TMapLegend::tr("Lines"),
                                        TMapLegend::tr("Ground")};
    return titles[layer];
}

QVector<TLegendLayer::TEntry> EntriesOf(int layer)
{
    QVector<TLegendLayer::TEntry> const entries[LayerCount] = {
        {{SectionFlowingColor, TMapLegend::tr("spraying")},
         {SectionNoFlowColor, TMapLegend::tr("on, nothing flows")},
         {SectionOffColor, TMapLegend::tr("switched off")}},
        {{MapColors::CurrentLine, TMapLegend::tr("the nearest line")},
         {MapColors::Line, TMapLegend::tr("its neighbours")},
         {MapColors::Boundary, TMapLegend::tr("end of the field")}},
        {{TCoverageMap::Colour(), TMapLegend::tr("covered")},
         {MapColors::Soil, TMapLegend::tr("not covered yet")},
         {MapColors::Outside, TMapLegend::tr("outside the field")}}};
    return entries[layer];
}
} // namespace

TMapLegend::TMapLegend(QWidget* parent)
    : TStackableWidget(parent, ClosedHeight, OpenHeight, true)
{
    setFixedSize(Width, (LayerCount - 1) * ClosedHeight + OpenHeight);
    for (int layer = 0; layer < LayerCount; ++layer)
        AddLayer(layer);
    connect(this, &TStackableWidget::LayerMaximised, this, [this](int layer) { m_Open = layer; });
}

void TMapLegend::AddLayer(int layer)
{
    auto* const widget =
        new TLegendLayer(this, QStringLiteral("legend-%1").arg(layer), TitleOf(layer), EntriesOf(layer));
    widget->setFixedWidth(Width);
    connect(widget, &TLegendLayer::TitlePressed, this,
            [this, layer]
            {
                if (layer != m_Open)
                    MoveMaximised(m_Open, layer);
            });
    AddWidget(widget, layer == m_Open);
}
