// A mini window sliding in and out, against QPropertyAnimation moving the same window with the same shadows.

#include "BenchScreen.h"
#include "CpuTime.h"
#include "Metrics.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace
{
constexpr int SlideDuration = 160;
constexpr int SlidePause = 80;
constexpr int Rounds = 40;

struct TFrames
{
    QElapsedTimer clock;
    std::vector<qint64> times; ///< ms at which a new position was taken
};

struct TResult
{
    double cpu = 0;
    std::vector<int> counts;
    std::vector<qint64> gaps;
};

// Starts a slide, waits for its end and a pause, and begins again.
class TRunner : public QObject
{
public:
    TRunner(std::function<void(int)> start, TFrames& frames)
        : m_Start(std::move(start))
        , m_Frames(frames)
    {
    }

    TResult Run()
    {
        double const before = CpuMilliseconds();
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        connect(&timer, &QTimer::timeout, this, &TRunner::Next);
        timer.start(SlideDuration + SlidePause);
        m_Frames.clock.start();
        Next();
        QApplication::exec();
        m_Result.cpu = CpuMilliseconds() - before;
        return m_Result;
    }

private:
    void Next()
    {
        Collect();
        if (m_Round == Rounds)
            QApplication::quit();
        else
            m_Start(m_Round++);
    }

    void Collect()
    {
        if (m_Frames.times.empty())
            return;
        m_Result.counts.push_back(int(m_Frames.times.size()));
        for (size_t i = 1; i < m_Frames.times.size(); ++i)
            m_Result.gaps.push_back(m_Frames.times[i] - m_Frames.times[i - 1]);
        m_Frames.times.clear();
    }

    std::function<void(int)> m_Start;
    TFrames& m_Frames;
    TResult m_Result;
    int m_Round = 0;
};

TResult Toolkit()
{
    TBenchScreen console(0);
    for (int i = 0; i < 2; ++i)
        console.AddView(new TMiniWindow(nullptr), new TOverlappedFull);
    console.Manager()->DisplayFullView(console.Id(0), false);
    TFrames frames;
    QObject::connect(console.Manager(), &TWindowManager::MiniViewHasMoved, console.Manager(),
                     [&](int, int x, int)
                     {
                         // The first place behind the bar is no frame of the slide.
                         if (x != NAVBAR_WIDTH - MINI_WINDOW_SIZE && x != 0)
                             frames.times.push_back(frames.clock.elapsed());
                     });
    return TRunner([&](int) { console.Manager()->OnShowMiniView(console.Id(1)); }, frames).Run();
}

// The two labels that the manager has put beside the one mini window that is up.
QList<QWidget*> ShownShadows(QWidget* screen)
{
    QList<QWidget*> shadows;
    QList<QLabel*> const labels = screen->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    for (QLabel* const label : labels)
    {
        if (label->isVisible())
            shadows.append(label);
    }
    return shadows;
}

TResult StockQt()
{
    TBenchScreen console(0);
    for (int i = 0; i < 2; ++i)
        console.AddView(new TMiniWindow(nullptr), new TOverlappedFull);
    console.Manager()->DisplayFullView(console.Id(0), false);
    console.Manager()->OnShowMiniView(console.Id(1));
    // The manager's own timers stop: only the animation is to be measured.
    QList<QTimer*> const timers = console.Manager()->findChildren<QTimer*>();
    for (QTimer* const timer : timers)
        timer->stop();
    TFrames frames;
    QParallelAnimationGroup group;
    QPoint const home = console.Mini(1)->pos();
    int const travel = MINI_WINDOW_SIZE + MINI_WINDOW_BORDER;
    QList<QWidget*> moved = ShownShadows(console.Screen());
    moved.append(console.Mini(1));
    QVector<QPropertyAnimation*> animations;
    for (QWidget* const widget : moved)
    {
        auto* const animation = new QPropertyAnimation(widget, "pos");
        animation->setDuration(SlideDuration);
        animations.append(animation);
        group.addAnimation(animation);
    }
    QObject::connect(animations.last(), &QVariantAnimation::valueChanged, &group,
                     [&] { frames.times.push_back(frames.clock.elapsed()); });
    return TRunner(
               [&](int round)
               {
                   for (int i = 0; i < moved.size(); ++i)
                   {
                       QPoint const offset = moved[i]->pos() - moved.last()->pos();
                       QPoint const away = QPoint(NAVBAR_WIDTH - travel, home.y()) + offset;
                       QPoint const shown = QPoint(NAVBAR_WIDTH, home.y()) + offset;
                       animations[i]->setStartValue(round % 2 ? shown : away);
                       animations[i]->setEndValue(round % 2 ? away : shown);
                   }
                   group.start();
               },
               frames)
        .Run();
}

void Print(char const* who, TResult result)
{
    std::sort(result.counts.begin(), result.counts.end());
    std::sort(result.gaps.begin(), result.gaps.end());
    if (result.counts.empty() || result.gaps.empty())
        return;
    std::printf("%s.frames.least %d\n", who, result.counts.front());
    std::printf("%s.frames.median %d\n", who, result.counts[result.counts.size() / 2]);
    std::printf("%s.gap.median.ms %lld\n", who, static_cast<long long>(result.gaps[result.gaps.size() / 2]));
    std::printf("%s.gap.largest.ms %lld\n", who, static_cast<long long>(result.gaps.back()));
    std::printf("%s.cpu.ms %.2f\n", who, result.cpu);
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bool const onlyStock = argc > 1 && qstrcmp(argv[1], "stock") == 0;
    Print(onlyStock ? "stock" : "toolkit", onlyStock ? StockQt() : Toolkit());
    return 0;
}
