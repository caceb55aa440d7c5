// A console that nobody touches, against a bare window in a program with the same two timers.

#include "BenchScreen.h"
#include "CpuTime.h"
#include "TMMICapableWidgetNavigator.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace
{
// The sound output is opened two seconds after the start, when a console has nothing else to do.
constexpr int SettleTime = 3500;
constexpr int MeasuredTime = 10000;

class TPaintCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_Paints += event->type() == QEvent::Paint;
        return false;
    }

    int m_Paints = 0;
};

struct TBareProgram
{
    TBareProgram()
    {
        for (QTimer* const timer : {&frames, &updates})
            timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(&frames, &QTimer::timeout, &window, [this] { ++ticks; });
        QObject::connect(&updates, &QTimer::timeout, &window, [this] { ++ticks; });
        frames.start(20);
        updates.start(100);
        window.resize(1024, 768);
        window.show();
    }

    QWidget window;
    QTimer frames;
    QTimer updates;
    int ticks = 0;
};

struct TConsole
{
    TConsole()
        : screen(6)
        , navigator(screen.Screen())
    {
        screen.Screen()->SetMMINavigator(&navigator);
        screen.Screen()->DisplayStartupFullView();
        screen.Manager()->DisplayFullView(screen.Id(0), false);
        for (int i = 1; i < 4; ++i)
            screen.Manager()->OnShowMiniView(screen.Id(i));
    }

    TBenchScreen screen;
    TMMICapableWidgetNavigator navigator;
};
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bool const isBare = argc > 1 && qstrcmp(argv[1], "stock") == 0;
    std::unique_ptr<TBareProgram> bare(isBare ? new TBareProgram : nullptr);
    std::unique_ptr<TConsole> console(isBare ? nullptr : new TConsole);
    TPaintCounter paints;
    double before = 0;
    QTimer::singleShot(SettleTime, &application,
                       [&]
                       {
                           application.installEventFilter(&paints);
                           before = CpuMilliseconds();
                       });
    QTimer::singleShot(SettleTime + MeasuredTime, &application, &QApplication::quit);
    QApplication::exec();
    char const* const who = isBare ? "stock" : "toolkit";
    std::printf("%s.cpu.ms %.2f\n", who, CpuMilliseconds() - before);
    std::printf("%s.paints %d\n", who, paints.m_Paints);
    return 0;
}
