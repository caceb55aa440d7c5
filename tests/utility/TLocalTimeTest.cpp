#include "TLocalTime.h"
#include "TestCase.h"
#include "TestSupport.h"

#include <QThread>

class TLocalTimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void realClockRunsForwardInMilliseconds();
    void replacedClockIsAsked();
    void clockMayAskForTheTime();
    void dateFollowsTheSystemUntilItIsSet();
    void setDateRunsOnFromThere();
    void setDateLeavesTheMonotonicClockAlone();
    void dateInAnotherZoneMeansTheSameMoment();
    void unusableDateReturnsToTheSystem_data();
    void unusableDateReturnsToTheSystem();
    void replacedClockMovesTheDate();
    void clockIsSwappedWhileOthersAsk();
};

void TLocalTimeTest::cleanup()
{
    TLocalTime::SetClock({});
    TLocalTime::SetCurrentDateTime({});
}

void TLocalTimeTest::realClockRunsForwardInMilliseconds()
{
    QElapsedTimer reference;
    reference.start();
    qint64 const start = TLocalTime::getCurrentTime();
    qint64 last = start;
    while (reference.elapsed() < 20)
    {
        qint64 const now = TLocalTime::getCurrentTime();
        QVERIFY(now >= last);
        last = now;
    }
    qint64 const passed = TLocalTime::getCurrentTime() - start;
    QVERIFY(passed >= 19);
    QVERIFY(passed <= reference.elapsed() + 1);
}

void TLocalTimeTest::replacedClockIsAsked()
{
    qint64 const real = TLocalTime::getCurrentTime();
    {
        TManualClock clock(5);
        QCOMPARE(TLocalTime::getCurrentTime(), Q_INT64_C(5));
        clock.Advance(10);
        QCOMPARE(TLocalTime::getCurrentTime(), Q_INT64_C(15));
        TLocalTime::SetClock([] { return Q_INT64_C(-7); });
        QCOMPARE(TLocalTime::getCurrentTime(), Q_INT64_C(-7));
    }
    QVERIFY(TLocalTime::getCurrentTime() >= real);
}

void TLocalTimeTest::clockMayAskForTheTime()
{
    int depth = 0;
    auto const clock = [&depth] { return ++depth % 2 == 1 ? TLocalTime::getCurrentTime() : Q_INT64_C(3); };
    TLocalTime::SetClock([] { return Q_INT64_C(3); });
    TLocalTime::SetClock(clock);
    depth = 0;
    QCOMPARE(TLocalTime::getCurrentTime(), Q_INT64_C(3));
}

void TLocalTimeTest::dateFollowsTheSystemUntilItIsSet()
{
    QDateTime const before = QDateTime::currentDateTime();
    QDateTime const asked = TLocalTime::currentDateTime();
    QDateTime const after = QDateTime::currentDateTime();
    QVERIFY(before <= asked);
    QVERIFY(asked <= after);
    QCOMPARE(asked.timeSpec(), Qt::LocalTime);
}

void TLocalTimeTest::setDateRunsOnFromThere()
{
    TManualClock clock;
    QDateTime const date(QDate(2031, 12, 31), QTime(23, 59, 59));
    TLocalTime::SetCurrentDateTime(date);
    QCOMPARE(TLocalTime::currentDateTime(), date);
    clock.Advance(1500);
    QCOMPARE(TLocalTime::currentDateTime(), QDateTime(QDate(2032, 1, 1), QTime(0, 0, 0, 500)));
    TLocalTime::SetCurrentDateTime(QDateTime(QDate(1999, 2, 28), QTime(12, 0)));
    QCOMPARE(TLocalTime::currentDateTime(), QDateTime(QDate(1999, 2, 28), QTime(12, 0)));
}

void TLocalTimeTest::setDateLeavesTheMonotonicClockAlone()
{
    qint64 const before = TLocalTime::getCurrentTime();
    TLocalTime::SetCurrentDateTime(QDateTime(QDate(1999, 1, 1), QTime(12, 0)));
    QVERIFY(TLocalTime::getCurrentTime() >= before);
    QVERIFY(TLocalTime::getCurrentTime() < before + 60000);
    QCOMPARE(TLocalTime::currentDateTime().date(), QDate(1999, 1, 1));
}

void TLocalTimeTest::dateInAnotherZoneMeansTheSameMoment()
{
    TManualClock const clock;
    QDateTime const date(QDate(2024, 6, 1), QTime(12, 0), Qt::OffsetFromUTC, 7200);
    TLocalTime::SetCurrentDateTime(date);
    QCOMPARE(TLocalTime::currentDateTime(), date);
    QCOMPARE(TLocalTime::currentDateTime().timeSpec(), Qt::LocalTime);
}

void TLocalTimeTest::unusableDateReturnsToTheSystem_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::newRow("none") << QDateTime();
    QTest::newRow("no such day") << QDateTime(QDate(2023, 2, 29), QTime(12, 0));
    QTest::newRow("before the calendar") << QDateTime(QDate(-1, 1, 1), QTime(12, 0));
    QTest::newRow("after four digits") << QDateTime(QDate(10000, 1, 1), QTime(12, 0));
    QTest::newRow("smallest") << QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::min());
    QTest::newRow("largest") << QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max());
}

void TLocalTimeTest::unusableDateReturnsToTheSystem()
{
    QFETCH(QDateTime, date);
    TLocalTime::SetCurrentDateTime(QDateTime(QDate(1999, 1, 1), QTime(12, 0)));
    TLocalTime::SetCurrentDateTime(date);
    QVERIFY(qAbs(TLocalTime::currentDateTime().secsTo(QDateTime::currentDateTime())) < 60);
}

void TLocalTimeTest::replacedClockMovesTheDate()
{
    TManualClock clock;
    QDateTime const before = TLocalTime::currentDateTime();
    QCOMPARE(TLocalTime::currentDateTime(), before);
    clock.Advance(3600000);
    QCOMPARE(before.secsTo(TLocalTime::currentDateTime()), Q_INT64_C(3600));
}

void TLocalTimeTest::clockIsSwappedWhileOthersAsk()
{
    std::atomic<bool> isOver{false};
    std::atomic<qint64> asked{0};
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < 3; ++i)
    {
        threads.emplace_back(QThread::create(
            [&isOver, &asked]
            {
                while (!isOver)
                {
                    TLocalTime::getCurrentTime();
                    TLocalTime::currentDateTime();
                    ++asked;
                }
            }));
        threads.back()->start();
    }
    QTRY_VERIFY(asked > 0);
    for (int i = 0; i < 2000; ++i)
    {
        auto const time = std::make_unique<qint64>(i);
        TLocalTime::SetClock([&time] { return *time; });
        TLocalTime::SetClock({});
    }
    isOver = true;
    for (auto const& thread : threads)
        QVERIFY(thread->wait());
}

COMMONUI_TEST(TLocalTimeTest)
#include "TLocalTimeTest.moc"
