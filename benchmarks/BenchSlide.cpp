// One step of a slide and its painting, against QPropertyAnimation moving the same window and shadows.

#include "BenchScreen.h"
#include "Metrics.h"
#include "TLocalTime.h"

#include <QApplication>
#include <QLabel>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>

#include <benchmark/benchmark.h>

namespace
{
constexpr int SlideDuration = 160;
constexpr int FrameInterval = 20;

class TSlideScreen : public TBenchScreen
{
public:
    explicit TSlideScreen(bool overlap)
        : TBenchScreen(0)
    {
        AddView(new TMiniWindow(nullptr), overlap ? new TOverlappedFull : new TFullWindow(nullptr));
        AddView(new TMiniWindow(nullptr), overlap ? new TOverlappedFull : new TFullWindow(nullptr));
        Manager()->DisplayFullView(Id(0), false);
        QApplication::processEvents();
    }
};

void SlideByManager(benchmark::State& state, bool overlap)
{
    qint64 now = 1000;
    TLocalTime::SetClock([&] { return now; });
    {
        TSlideScreen console(overlap);
        console.Manager()->OnNextFrame();
        for (auto _ : state)
        {
            EMiniViewState const mini = console.Manager()->GetMiniViewState(console.Id(1));
            if (mini == MINI_VIEW_SHOWN || mini == MINI_VIEW_HIDDEN)
                console.Manager()->OnShowMiniView(console.Id(1));
            now += FrameInterval;
            console.Manager()->OnNextFrame();
            QApplication::processEvents();
        }
    }
    TLocalTime::SetClock({});
}

void SlideStepToolkit(benchmark::State& state)
{
    SlideByManager(state, true);
}
BENCHMARK(SlideStepToolkit)->Unit(benchmark::kMicrosecond);

void SlideStepToolkitWithFollowingFullView(benchmark::State& state)
{
    SlideByManager(state, false);
}
BENCHMARK(SlideStepToolkitWithFollowingFullView)->Unit(benchmark::kMicrosecond);

void SlideStepStock(benchmark::State& state)
{
    TSlideScreen console(true);
    console.Manager()->OnShowMiniView(console.Id(1));
    QList<QWidget*> moved{console.Mini(1)};
    QList<QLabel*> const labels =
        console.Screen()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    for (QLabel* const label : labels)
    {
        if (label->isVisible())
            moved.append(label);
    }
    QParallelAnimationGroup group;
    for (QWidget* const widget : qAsConst(moved))
    {
        QPoint const offset = widget->pos() - moved.first()->pos();
        auto* const animation = new QPropertyAnimation(widget, "pos", &group);
        animation->setDuration(SlideDuration);
        animation->setStartValue(QPoint(NAVBAR_WIDTH - MINI_WINDOW_SIZE - MINI_WINDOW_BORDER, 0) + offset);
        animation->setEndValue(QPoint(NAVBAR_WIDTH, 0) + offset);
        group.addAnimation(animation);
    }
    // Never comes to its end by itself: the time is set step by step.
    group.setLoopCount(-1);
    group.start();
    int at = 0;
    for (auto _ : state)
    {
        at = at >= SlideDuration ? 0 : at + FrameInterval;
        group.setCurrentTime(at);
        QApplication::processEvents();
    }
}
BENCHMARK(SlideStepStock)->Unit(benchmark::kMicrosecond);
} // namespace
