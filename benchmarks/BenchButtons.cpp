// A button of the toolkit against Fusion's QPushButton with the same icon and text.

#include "ButtonPairs.h"

#include <benchmark/benchmark.h>

namespace
{
constexpr int ManyButtons = 50;
constexpr int Columns = 6;

template<typename Make>
void Repaint(benchmark::State& state, Make make)
{
    ButtonPairs::TStage stage;
    QWidget* const button = make(&stage.window);
    QCoreApplication::processEvents();
    for (auto _ : state)
        button->repaint();
}

template<typename Make>
void Construct(benchmark::State& state, Make make)
{
    ButtonPairs::TStage stage;
    for (auto _ : state)
    {
        QWidget* const button = make(&stage.window);
        button->repaint();
        delete button;
    }
}

template<typename Make>
void BuildMany(benchmark::State& state, Make make)
{
    ButtonPairs::TStage stage;
    for (auto _ : state)
    {
        QWidget page(&stage.window);
        page.resize(stage.window.size());
        for (int i = 0; i < ManyButtons; ++i)
        {
            QSize const size = ButtonPairs::Size;
            make(&page)->move(i % Columns * size.width(), i / Columns * size.height());
        }
        page.show();
        page.repaint();
    }
}
} // namespace

BENCHMARK_CAPTURE(Repaint, Own, &ButtonPairs::MakeOwn)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Repaint, Opaque, &ButtonPairs::MakeOpaque)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Repaint, Fusion, &ButtonPairs::MakeStock)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Construct, Own, &ButtonPairs::MakeOwn)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Construct, Opaque, &ButtonPairs::MakeOpaque)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Construct, Fusion, &ButtonPairs::MakeStock)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BuildMany, Own, &ButtonPairs::MakeOwn)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BuildMany, Fusion, &ButtonPairs::MakeStock)->Unit(benchmark::kMicrosecond);
