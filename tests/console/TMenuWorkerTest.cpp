#include "TMenuWorker.h"

#include "TConsoleMenu.h"
#include "TestCase.h"
#include "TMenuManager.h"

#include <QSemaphore>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

namespace
{
struct TBench
{
    TMenuManager manager;
    TConsoleMenu console{&manager};
    std::unique_ptr<TMenuWorker> worker =
        std::make_unique<TMenuWorker>(&console, QStringLiteral("test worker"));
};

QThread* ThreadOf(TMenuWorker* worker)
{
    QThread* thread = nullptr;
    worker->Post([&thread] { thread = QThread::currentThread(); });
    worker->Wait();
    return thread;
}
} // namespace

class TMenuWorkerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void workIsDoneElsewhereAndInOrder()
    {
        TBench bench;
        QVector<int> done;
        QThread const* place = nullptr;
        for (int i = 0; i < 100; ++i)
        {
            bench.worker->Post(
                [&done, &place, i]
                {
                    done.append(i);
                    place = QThread::currentThread();
                });
        }
        bench.worker->Wait();
        QCOMPARE(done.size(), 100);
        QVERIFY(std::is_sorted(done.cbegin(), done.cend()));
        QVERIFY(place && place != QThread::currentThread());
    }

    void theConsoleWaitsForAllOfItsWorkers()
    {
        TBench bench;
        TMenuWorker other(&bench.console, QStringLiteral("other worker"));
        std::atomic<int> done{0};
        bench.worker->Post([&done] { ++done; });
        other.Post([&done] { ++done; });
        bench.console.WaitForWorkers();
        QCOMPARE(done.load(), 2);
        bench.worker.reset();
        other.Post([&done] { ++done; });
        bench.console.WaitForWorkers();
        QCOMPARE(done.load(), 3);
    }

    void whereNothingWasPostedNobodyWaits()
    {
        constexpr int Patience = 5000; // ms, for the worker's thread only
        TBench bench;
        QThread* const thread = ThreadOf(bench.worker.get());
        QObject place;
        place.moveToThread(thread);
        QSemaphore begun;
        QSemaphore mayEnd;
        bool wasReleased = false;
        QMetaObject::invokeMethod(
            &place,
            [&]
            {
                begun.release();
                wasReleased = mayEnd.tryAcquire(1, Patience);
            },
            Qt::QueuedConnection);
        begun.acquire();
        bench.worker->Wait();
        mayEnd.release();
        bench.worker.reset();
        QVERIFY(wasReleased);
    }

    void whereNoThreadRunsNobodyWaits()
    {
        TBench bench;
        QThread* const thread = ThreadOf(bench.worker.get());
        thread->quit();
        QVERIFY(thread->wait());
        bool isDone = false;
        bench.worker->Post([&isDone] { isDone = true; });
        bench.worker->Wait();
        QVERIFY(!isDone);
    }

    void theEndWaitsForWorkThatHasBegun()
    {
        TBench bench;
        QSemaphore begun;
        QSemaphore mayEnd;
        std::atomic<bool> hasEnded{false};
        bench.worker->Post(
            [&]
            {
                begun.release();
                mayEnd.acquire();
                hasEnded = true;
            });
        std::atomic<int> late{0};
        for (int i = 0; i < 1000; ++i)
            bench.worker->Post([&late] { ++late; });
        begun.acquire();
        std::thread releaser([&mayEnd] { mayEnd.release(); });
        bench.worker.reset();
        QVERIFY(hasEnded);
        int const soFar = late;
        releaser.join();
        QCoreApplication::processEvents();
        QCOMPARE(late.load(), soFar);
    }

    void workersComeAndGo()
    {
        TBench bench;
        for (int i = 0; i < 200; ++i)
        {
            TMenuWorker worker(&bench.console, QString());
            worker.Post([] {});
        }
        bench.console.WaitForWorkers();
    }
};

COMMONUI_TEST(TMenuWorkerTest)
#include "TMenuWorkerTest.moc"
