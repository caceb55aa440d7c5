// One step of a slide and its painting: a mini window with its shadows, against a widget with the same
// picture and the same shadows that QPropertyAnimation moves on the same canvas.

#include "BenchScreen.h"
#include "Metrics.h"
#include "TLocalTime.h"

#include <QApplication>
#include <QLabel>
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
    QPixmap const picture = console.Mini(1)->grab();
    QWidget window(console.Screen());
    window.setFixedSize(picture.size() + QSize(MINI_WINDOW_SHADOW, MINI_WINDOW_SHADOW));
    QLabel face(&window);
    face.setPixmap(picture);
    face.resize(picture.size());
    QLabel right(&window);
    right.setGeometry(picture.width(), 0, MINI_WINDOW_SHADOW, picture.height() + MINI_WINDOW_SHADOW);
    QLabel bottom(&window);
    bottom.setGeometry(0, picture.height(), picture.width(), MINI_WINDOW_SHADOW);
    for (QLabel* const label : {&right, &bottom})
    {
        QPixmap shadow(label->size());
        shadow.fill(QColor(0, 0, 0, 60));
        label->setPixmap(shadow);
    }
    window.show();
    QPropertyAnimation animation(&window, "pos");
    animation.setDuration(SlideDuration);
    animation.setStartValue(QPoint(NAVBAR_WIDTH - MINI_WINDOW_SIZE - MINI_WINDOW_BORDER, 0));
    animation.setEndValue(QPoint(NAVBAR_WIDTH, 0));
    // Never comes to its end by itself: the time is set step by step.
    animation.setLoopCount(-1);
    animation.start();
    int at = 0;
    for (auto _ : state)
    {
        at = at >= SlideDuration ? 0 : at + FrameInterval;
        animation.setCurrentTime(at);
        QApplication::processEvents();
    }
}
BENCHMARK(SlideStepStock)->Unit(benchmark::kMicrosecond);
} // namespace
