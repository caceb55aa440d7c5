#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <ctime>
#include <unistd.h>

/// Prints the time from the start of the program, which its parent passes as CLOCK_MONOTONIC in microseconds,
/// to the end of the first painting, with the memory that the process has then; and ends the
/// program.
class TFirstPaint : public QObject
{
public:
    TFirstPaint(char const* who, qint64 startedAt)
        : m_Who(who)
        , m_StartedAt(startedAt)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || m_Seen)
            return false;
        m_Seen = true;
        // The paintings of this frame are done when the event loop comes round again.
        QTimer::singleShot(0, this, [this] { Report(); });
        return false;
    }

private:
    void Report() const
    {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        qint64 const microseconds = qint64(now.tv_sec) * 1000000 + now.tv_nsec / 1000 - m_StartedAt;
        QFile memory(QStringLiteral("/proc/self/statm"));
        qint64 pages = 0;
        if (memory.open(QIODevice::ReadOnly))
            pages = memory.readAll().split(' ').value(1).toLongLong();
        std::printf("%s.start.ms %.2f\n%s.memory.mb %.2f\n", m_Who, double(microseconds) / 1000.0, m_Who,
                    double(pages * sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0));
        std::fflush(stdout);
        QApplication::quit();
    }

    char const* m_Who;
    qint64 m_StartedAt;
    bool m_Seen = false;
};
