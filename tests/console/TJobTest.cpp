#include "TJob.h"

#include "TestCase.h"
#include "TLocalTime.h"

class TJobTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { TLocalTime::SetCurrentDateTime(QDateTime()); }

    void aJobBeginsNowToTheMinute()
    {
        TLocalTime::SetCurrentDateTime(QDateTime(QDate(2025, 6, 3), QTime(7, 30, 29)));
        TJob const job;
        QCOMPARE(job.StartDay(), double(QDate(2025, 6, 3).toJulianDay()));
        QCOMPARE(job.StartTime(), 7.5);
        QCOMPARE(job.Operator(), QString());
        QCOMPARE(job.Server(), TJob::NoServer());
    }

    void aClockThatWasNeverSetBeginsAtTheFirstDay()
    {
        TLocalTime::SetCurrentDateTime(QDateTime(QDate(1970, 1, 1), QTime(0, 0)));
        QCOMPARE(TJob().StartDay(), TJob::FirstDay);
    }

    void onlyAChangeIsTold()
    {
        TJob job;
        QSignalSpy const changed(&job, &TJob::Changed);
        job.SetOperator(QStringLiteral("Anna"));
        job.SetOperator(QStringLiteral("Anna"));
        job.SetServer(QStringLiteral("10.0.0.7"));
        job.SetStartDay(TJob::FirstDay + 10.0);
        job.SetStartTime(5.0 + 1.0 / 7.0);
        QCOMPARE(changed.count(), 4);
    }

    void aNameIsHeldToOneLine()
    {
        TJob job;
        job.SetOperator(QStringLiteral("  Anna\nMaria \t Huber\u0007 "));
        QCOMPARE(job.Operator(), QStringLiteral("Anna Maria Huber"));
        job.SetOperator(QString(100000, QLatin1Char('x')));
        QCOMPARE(job.Operator().size(), TJob::LongestOperatorName);
    }

    void aDayIsHeldToTheRange_data()
    {
        QTest::addColumn<double>("day");
        QTest::addColumn<double>("held");
        QTest::newRow("with a fraction") << TJob::FirstDay + 3.75 << TJob::FirstDay + 3.0;
        QTest::newRow("before") << -5.0 << TJob::FirstDay;
        QTest::newRow("endless") << qInf() << TJob::LastDay;
        QTest::newRow("no number") << qQNaN() << TJob::FirstDay + 1.0;
    }

    void aDayIsHeldToTheRange()
    {
        QFETCH(double, day);
        TJob job;
        job.SetStartDay(TJob::FirstDay + 1.0);
        job.SetStartDay(day);
        QTEST(job.StartDay(), "held");
    }

    void aTimeIsFoldedIntoOneDay_data()
    {
        QTest::addColumn<double>("time");
        QTest::addColumn<double>("held");
        QTest::newRow("midnight") << 24.0 << 0.0;
        QTest::newRow("tomorrow") << 25.5 << 1.5;
        QTest::newRow("yesterday") << -1.0 << 23.0;
        QTest::newRow("a breath before midnight") << -1e-300 << 0.0;
        QTest::newRow("endless") << qInf() << 6.0;
        QTest::newRow("no number") << qQNaN() << 6.0;
    }

    void aTimeIsFoldedIntoOneDay()
    {
        QFETCH(double, time);
        TJob job;
        job.SetStartTime(6.0);
        job.SetStartTime(time);
        QTEST(job.StartTime(), "held");
    }

    void whatIsNoAddressIsNotTaken_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isAddress");
        QTest::newRow("usual") << "192.168.0.1" << true;
        QTest::newRow("largest") << "255.255.255.255" << true;
        QTest::newRow("none") << "0.0.0.0" << true;
        QTest::newRow("too large") << "256.1.1.1" << false;
        QTest::newRow("three numbers") << "10.0.1" << false;
        QTest::newRow("five numbers") << "10.0.1.2.3" << false;
        QTest::newRow("point at the end") << "10.0.1.2." << false;
        QTest::newRow("line end") << "10.0.1.2\n" << false;
        QTest::newRow("words") << "server" << false;
        QTest::newRow("empty") << "" << false;
    }

    void whatIsNoAddressIsNotTaken()
    {
        QFETCH(QString, text);
        QFETCH(bool, isAddress);
        QCOMPARE(TJob::IsAddress(text), isAddress);
        TJob job;
        job.SetServer(QStringLiteral("10.0.0.7"));
        job.SetServer(text);
        QCOMPARE(job.Server(), isAddress ? text : QStringLiteral("10.0.0.7"));
    }
};

COMMONUI_TEST(TJobTest)
#include "TJobTest.moc"
