#include "TNmeaReceiver.h"

#include "Sentences.h"
#include "TestCase.h"
#include "TestSupport.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryFile>

namespace
{
/// Holds the last fix that a receiver told.
struct TListener
{
    explicit TListener(TNmeaOrigin const& origin)
        : receiver(origin)
    {
        QObject::connect(&receiver, &IPositionSource::FixChanged, &receiver,
                         [this](TFix const& newFix)
                         {
                             fix = newFix;
                             ++count;
                         });
        receiver.Start();
    }

    TNmeaReceiver receiver;
    TFix fix;
    int count = 0;
};

QByteArray Epochs(int count)
{
    QByteArray all;
    for (int tenth = 0; tenth < count; ++tenth)
        all += Epoch(tenth);
    return all;
}

/// A receiver on the network that a test speaks for.
class TStation
{
public:
    TStation()
    {
        m_Server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_Server, &QTcpServer::newConnection, &m_Server,
                         [this] { m_Link.reset(m_Server.nextPendingConnection()); });
    }

    TNmeaOrigin Origin() const
    {
        TNmeaOrigin origin;
        origin.kind = TNmeaOrigin::TCP;
        origin.path = QStringLiteral("127.0.0.1");
        origin.port = m_Server.serverPort();
        return origin;
    }
    bool HasLink() const { return m_Link != nullptr; }
    void Say(QByteArray const& bytes)
    {
        m_Link->write(bytes);
        m_Link->flush();
    }
    void HangUp()
    {
        m_Link->abort();
        m_Link.reset();
    }

private:
    QTcpServer m_Server;
    std::unique_ptr<QTcpSocket> m_Link;
};
} // namespace

class TNmeaReceiverTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aRecordingIsPlayedWithAllItTells()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(Epochs(20));
        file.flush();
        TNmeaOrigin origin;
        origin.path = file.fileName();
        TListener listener(origin);
        QTRY_VERIFY(listener.fix.IsValid());
        QTRY_VERIFY(listener.fix.speed > 0.0);
        QCOMPARE(listener.fix.quality, FIX_RTK);
        QVERIFY(qAbs(listener.fix.latitude - (48.0 + 20.0 / 60.0)) < 1e-6);
        QVERIFY(qAbs(listener.fix.longitude - (11.0 + 40.0 / 60.0)) < 1e-6);
        QVERIFY(qAbs(listener.fix.speed - 6.0 * 1852.0 / 3600.0) < 1e-3);
        QCOMPARE(listener.fix.heading, 90.0);
        QCOMPARE(listener.fix.satellitesUsed, 14);
        QCOMPARE(listener.fix.dilution, 0.7);
        QVERIFY(listener.receiver.Description().contains(QLatin1String("Recording")));
    }

    void damageInARecordingDoesNotStopIt_data()
    {
        QTest::addColumn<QByteArray>("damage");
        QByteArray everyByte;
        for (int byte = 0; byte < 256; ++byte)
            everyByte.append(char(byte));
        QTest::newRow("comments") << QByteArray("# one\n# two\n\n");
        QTest::newRow("every byte there is") << everyByte;
        QTest::newRow("half a sentence") << Epoch(0).left(30) + "\n";
        QTest::newRow("half a sentence without end") << Epoch(0).left(30);
        QTest::newRow("a sentence without fields")
            << Sentence("GNGGA") + Sentence("GNRMC") + Sentence("GPGSV");
        QTest::newRow("a sentence of commas")
            << Sentence("GNGGA,,,,,,,,,,,,,,") + Sentence("GNRMC,,,,,,,,,,,,");
        QTest::newRow("absurd numbers")
            << Sentence("GNGGA,999999.99,9999.9,N,99999.9,E,9,999999999999,1e999,1e999,M,,M,,") +
                   Sentence("GNRMC,250000,A,9999.0,N,99999.0,W,1e99,-1e99,990099,,,A");
        QTest::newRow("no fix") << Sentence("GNGGA,095959.00,,,,,0,00,,,M,,M,,") +
                                       Sentence("GNRMC,095959.00,V,,,,,,,140426,,,N");
        QTest::newRow("wild satellites") << Sentence("GPGSV,9,9,99,-1,999,-999,") +
                                                Sentence("GPGSV,1,1,1,1,2") + Sentence("GPGSV,x,y,z,a,b,c,d");
        QTest::newRow("a long line") << QByteArray(1 << 20, 'A') + "\n";
        QTest::newRow("a long sentence") << "$" + QByteArray(1 << 20, ',') + "\n";
    }

    void damageInARecordingDoesNotStopIt()
    {
        QFETCH(QByteArray, damage);
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(damage + Epochs(5) + damage + Epochs(20));
        file.flush();
        TNmeaOrigin origin;
        origin.path = file.fileName();
        TListener listener(origin);
        QTRY_VERIFY(listener.fix.IsValid());
        QVERIFY(qAbs(listener.fix.latitude - (48.0 + 20.0 / 60.0)) < 1e-6);
    }

    void aRecordingWithoutSentencesGivesNoFix()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(QByteArray(1 << 16, '\xa5'));
        file.flush();
        TNmeaOrigin origin;
        origin.path = file.fileName();
        TListener listener(origin);
        QTest::qWait(0);
        QCOMPARE(listener.count, 1);
        QVERIFY(!listener.fix.IsValid());
        QVERIFY(listener.receiver.Satellites().isEmpty());
    }

    void aVanishedRecordingGivesNoFix()
    {
        TNmeaOrigin origin;
        origin.path = QStringLiteral("/nowhere/at/all.log");
        TListener listener(origin);
        QCOMPARE(listener.count, 1);
        QVERIFY(!listener.fix.IsValid());
    }

    void aLostLinkIsNoFixAndComesBack()
    {
        TManualClock clock;
        TStation station;
        TListener listener(station.Origin());
        QTRY_VERIFY(station.HasLink());
        station.Say("noise" + Epoch(0).left(20));
        for (int tenth = 1; tenth < 4; ++tenth)
            station.Say(Epoch(tenth));
        QTRY_VERIFY(listener.fix.IsValid());
        QCOMPARE(listener.fix.quality, FIX_RTK);
        QTRY_VERIFY(listener.receiver.Description().contains(QLatin1String("Receiver")));

        station.Say(Epoch(4).left(25));
        station.HangUp();
        QTRY_VERIFY(listener.receiver.Description().contains(QLatin1String("No link")));
        // What came in before the link broke may still be on its way through the parser.
        auto const hasExpired = [&clock, &listener]
        {
            clock.Advance(TNmeaReceiver::FixLifetime + 1);
            return !listener.fix.IsValid();
        };
        QVERIFY(listener.fix.IsValid());
        QTRY_VERIFY(hasExpired());
        QVERIFY(listener.receiver.Satellites().isEmpty());

        QTRY_VERIFY_WITH_TIMEOUT(station.HasLink(), 3 * TNmeaReceiver::RetryInterval);
        for (int tenth = 50; tenth < 54; ++tenth)
            station.Say(Epoch(tenth));
        QTRY_VERIFY(listener.fix.IsValid());
    }

    void aLinkThatNeverComesIsNoFix()
    {
        TNmeaOrigin origin;
        {
            QTcpServer gone;
            QVERIFY(gone.listen(QHostAddress::LocalHost));
            origin.port = gone.serverPort();
        }
        origin.kind = TNmeaOrigin::TCP;
        origin.path = QStringLiteral("127.0.0.1");
        TListener listener(origin);
        QTRY_VERIFY(listener.receiver.Description().contains(QLatin1String("No link")));
        QVERIFY(!listener.fix.IsValid());
    }

    // No serial line, but a device all the same: it opens or not, and says nothing.
    void aDeviceThatIsNoSerialLineIsNoFix()
    {
        TNmeaOrigin origin;
        origin.kind = TNmeaOrigin::SERIAL;
        origin.path = QStringLiteral("/dev/null");
        origin.baudRate = 38400;
        TListener listener(origin);
        QTest::qWait(0);
        QVERIFY(!listener.fix.IsValid());
        QVERIFY(listener.receiver.Description().contains(QLatin1String("No link")));
    }

    void satellitesAreGatheredByTheirSystems()
    {
        TStation station;
        TListener listener(station.Origin());
        QTRY_VERIFY(station.HasLink());
        station.Say(Sentence("GPGSV,2,1,05,02,71,040,47,05,34,098,43,07,18,150,,12,52,212,45"));
        station.Say(Sentence("GPGSV,2,2,05,31,05,020,22"));
        station.Say(Sentence("GLGSV,1,1,01,68,38,068,42"));
        for (int tenth = 0; tenth < 4; ++tenth)
            station.Say(Epoch(tenth));
        QTRY_VERIFY(listener.fix.IsValid());
        QVector<TSatellite> const satellites = listener.receiver.Satellites();
        QCOMPARE(satellites.size(), 6);
        QStringList seen;
        for (TSatellite const& satellite : satellites)
            seen += QStringLiteral("%1:%2").arg(satellite.id).arg(satellite.strength);
        QCOMPARE(seen, (QStringList{"68:42", "2:47", "5:43", "7:-1", "12:45", "31:22"}));
    }
};

COMMONUI_TEST(TNmeaReceiverTest)
#include "TNmeaReceiverTest.moc"
