// Saving and restoring a layout of 50 views, against QDomDocument alone on the same text.

#include "LayoutPair.h"

#include <benchmark/benchmark.h>

namespace
{
void DomSave(benchmark::State& state)
{
    LayoutPair::TViews views;
    QDomDocument model;
    model.setContent(views.Manager()->GetStateSnapshotXML());
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutPair::DomSave(model).constData());
}
BENCHMARK(DomSave)->Unit(benchmark::kMicrosecond);

void ManagerSave(benchmark::State& state)
{
    LayoutPair::TViews views;
    for (auto _ : state)
        benchmark::DoNotOptimize(views.Manager()->GetStateSnapshotXML().constData());
}
BENCHMARK(ManagerSave)->Unit(benchmark::kMicrosecond);

void DomRestore(benchmark::State& state)
{
    LayoutPair::TViews views;
    QString const text = views.Manager()->GetStateSnapshotXML();
    state.counters["characters"] = text.size();
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutPair::DomRestore(text));
}
BENCHMARK(DomRestore)->Unit(benchmark::kMicrosecond);

void ManagerRestore(benchmark::State& state)
{
    LayoutPair::TViews views;
    QString const text = views.Manager()->GetStateSnapshotXML();
    for (auto _ : state)
        benchmark::DoNotOptimize(views.Manager()->RestoreStateFromSnapShot(text, true));
}
BENCHMARK(ManagerRestore)->Unit(benchmark::kMicrosecond);
} // namespace
