#include "TroubleCodeManager.h"
#include "TestCase.h"
#include "TestSupport.h"

class TroubleCodeManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTroubleIsOneEntryOfTheLog()
    {
        TTestUserLog const log;
        TroubleCodeManager::Instance()->Report(QStringLiteral("E"), QStringLiteral("Valve %1 is stuck"));
        QCOMPARE(log.Entries(), QStringList{QStringLiteral("E Valve %1 is stuck")});
        TroubleCodeManager::Instance()->Report(QString(), QStringLiteral("Pump"));
        QCOMPARE(log.Entries().size(), 2);
        QCOMPARE(log.Entries().constLast(), QStringLiteral("Pump"));
    }

    void anInstalledManagerTakesItsPlace()
    {
        struct TNoting : TroubleCodeManager
        {
            void Report(QString const& category, QString const& line) override
            {
                entries << category + QLatin1Char('|') + line;
            }
            QStringList entries;
        };
        TTestUserLog const log;
        TNoting noting;
        QCOMPARE(TroubleCodeManager::Install(&noting), nullptr);
        TroubleCodeManager::Instance()->Report(QStringLiteral("W"), QStringLiteral("Low tank"));
        QCOMPARE(noting.entries, QStringList{QStringLiteral("W|Low tank")});
        QVERIFY(log.Entries().isEmpty());
        QCOMPARE(TroubleCodeManager::Install(nullptr), &noting);
        TroubleCodeManager::Instance()->Report(QStringLiteral("W"), QStringLiteral("Low tank"));
        QCOMPARE(log.Entries().size(), 1);
        QCOMPARE(noting.entries.size(), 1);
    }
};

COMMONUI_TEST(TroubleCodeManagerTest)
#include "TroubleCodeManagerTest.moc"
