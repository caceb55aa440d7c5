#include "TSoundServer.h"
#include "ISoundOutput.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TestWaves.h"
#include "TWave.h"

#include <QThread>

#include <sys/stat.h>

Q_DECLARE_METATYPE(std::function<void(QString const&)>)

namespace
{
struct TPlayed
{
    int sound;
    int volume;
    QByteArray samples;
    QThread* thread;
};

/// What all outputs of one test have played.
struct TStage
{
    bool hasDevice = true;
    bool takesSounds = true;
    std::atomic<int> built{0};
    std::atomic<int> opened{0};
    std::atomic<QThread*> deletedOn{nullptr};

    QVector<TPlayed> Played()
    {
        QMutexLocker const locker(&m_Mutex);
        return m_Played;
    }

    void Add(TPlayed const& played)
    {
        QMutexLocker const locker(&m_Mutex);
        m_Played += played;
    }

private:
    QMutex m_Mutex;
    QVector<TPlayed> m_Played;
};

class TStageOutput : public ISoundOutput
{
public:
    explicit TStageOutput(TStage& stage)
        : m_Stage(stage)
    {
        ++stage.built;
    }
    ~TStageOutput() override { m_Stage.deletedOn = QThread::currentThread(); }

    bool Open(QString& reason) override
    {
        ++m_Stage.opened;
        reason = QStringLiteral("no device");
        return m_Stage.hasDevice;
    }

    bool Play(int sound, TWave const& wave, int volume) override
    {
        m_Stage.Add({sound, volume, wave.samples, QThread::currentThread()});
        return m_Stage.takesSounds;
    }

private:
    TStage& m_Stage;
};

TSoundServer::TOutputFactory OutputOn(TStage& stage)
{
    return [&stage](QString&) { return std::make_unique<TStageOutput>(stage); };
}

QVector<int> SoundsOf(QVector<TPlayed> const& played)
{
    QVector<int> sounds;
    for (TPlayed const& one : played)
        sounds += one.sound;
    return sounds;
}

QByteArray BuiltInSamples(int sound)
{
    QFile file(QStringLiteral(":/Sounds/") + QLatin1String(SoundFileName(sound)));
    return file.open(QIODevice::ReadOnly) ? TWave::FromFileBytes(file.readAll()).samples : QByteArray();
}

/// A server on the thread of the test: what is asked for is played when events are processed.
class TLocalServer : public TSoundServer
{
public:
    explicit TLocalServer(TStage& stage, QString const& folder = {})
        : TSoundServer(nullptr, folder, OutputOn(stage))
    {
        Initialise();
    }

    void PlayNow(int sound, int volume = 50)
    {
        PlaySound(sound, volume, static_cast<ESoundType>(sound));
        QCoreApplication::processEvents();
    }
};
} // namespace

class TSoundServerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_Log = std::make_unique<TTestUserLog>(); }
    void cleanup() { m_Log.reset(); }

    void soundIsPlayedWithItsVolume();
    void volumeIsHeldToThePercentScale_data();
    void volumeIsHeldToThePercentScale();
    void numbersOutsideTheTableAreDropped();
    void theSoundAndNotTheTypeChoosesTheFile();
    void nothingIsLoadedBeforeTheFirstSound();
    void deviceIsOpenedSoonWithoutASound();
    void requestsFromBeforeTheStartWaitForIt();
    void secondStartChangesNothing();
    void oldestRequestsFallOutOfAFullQueue();
    void requestThatWaitedTooLongIsDropped_data();
    void requestThatWaitedTooLongIsDropped();
    void manyThreadsAskAndTheOwnThreadPlays();
    void missingPlugInGivesOneLogLineAndSilence();
    void missingDeviceGivesOneLogLineAndSilence();
    void refusingDeviceGivesOneLogLine();
    void fileInTheFolderIsPreferred();
    void missingFileIsReplacedInSilence();
    void uselessFileIsReplacedWithOneLogLine_data();
    void uselessFileIsReplacedWithOneLogLine();
    void serverDeletedOnItsThreadTakesItsOutputAlong();
    void serverOutlivesItsThread();
    void environmentSilencesWithoutALogLine();

private:
    std::unique_ptr<TTestUserLog> m_Log;
};

void TSoundServerTest::soundIsPlayedWithItsVolume()
{
    TStage stage;
    TLocalServer server(stage);
    server.PlayNow(SOUND_ERROR, 37);
    QCOMPARE(stage.Played().size(), 1);
    QCOMPARE(stage.Played().constFirst().sound, int(SOUND_ERROR));
    QCOMPARE(stage.Played().constFirst().volume, 37);
    QCOMPARE(stage.Played().constFirst().samples, BuiltInSamples(SOUND_ERROR));
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSoundServerTest::volumeIsHeldToThePercentScale_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<QVector<int>>("played");
    QTest::newRow("negative is silent") << -1 << QVector<int>();
    QTest::newRow("smallest is silent") << std::numeric_limits<int>::min() << QVector<int>();
    QTest::newRow("nothing is silent") << 0 << QVector<int>();
    QTest::newRow("one") << 1 << QVector<int>{1};
    QTest::newRow("whole") << 100 << QVector<int>{100};
    QTest::newRow("one past") << 101 << QVector<int>{100};
    QTest::newRow("largest") << std::numeric_limits<int>::max() << QVector<int>{100};
}

void TSoundServerTest::volumeIsHeldToThePercentScale()
{
    QFETCH(int, asked);
    TStage stage;
    TLocalServer server(stage);
    server.PlayNow(SOUND_BUTTON_PRESS, asked);
    QVector<int> volumes;
    QVector<TPlayed> const played = stage.Played();
    for (TPlayed const& one : played)
        volumes += one.volume;
    QTEST(volumes, "played");
}

void TSoundServerTest::numbersOutsideTheTableAreDropped()
{
    TStage stage;
    TLocalServer server(stage);
    for (int const number : {int(SOUND_NONE), -1, SOUND_VIEW_CHANGE + 1, std::numeric_limits<int>::max()})
        server.PlayNow(number);
    QCOMPARE(stage.built.load(), 0);
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSoundServerTest::theSoundAndNotTheTypeChoosesTheFile()
{
    TStage stage;
    TLocalServer server(stage);
    server.PlaySound(SOUND_ERROR, 50, SOUND_NONE);
    QCoreApplication::processEvents();
    QCOMPARE(SoundsOf(stage.Played()), QVector<int>{SOUND_ERROR});
}

void TSoundServerTest::nothingIsLoadedBeforeTheFirstSound()
{
    TStage stage;
    TLocalServer server(stage);
    QCoreApplication::processEvents();
    QCOMPARE(stage.built.load(), 0);
    server.PlayNow(SOUND_BUTTON_PRESS);
    server.PlayNow(SOUND_BUTTON_PRESS);
    QCOMPARE(stage.built.load(), 1);
    QCOMPARE(stage.opened.load(), 1);
}

void TSoundServerTest::deviceIsOpenedSoonWithoutASound()
{
    TStage stage;
    TLocalServer server(stage);
    QTRY_COMPARE_WITH_TIMEOUT(stage.opened.load(), 1, 10000);
    QCOMPARE(stage.Played().size(), 0);
}

void TSoundServerTest::requestsFromBeforeTheStartWaitForIt()
{
    TStage stage;
    TSoundServer server(nullptr, {}, OutputOn(stage));
    server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    QCoreApplication::processEvents();
    QCOMPARE(stage.built.load(), 0);
    server.Initialise();
    QCOMPARE(SoundsOf(stage.Played()), QVector<int>{SOUND_ERROR});
    server.PlaySound(SOUND_SCREENSHOT, 50, SOUND_SCREENSHOT);
    QCoreApplication::processEvents();
    QCOMPARE(SoundsOf(stage.Played()), (QVector<int>{SOUND_ERROR, SOUND_SCREENSHOT}));
}

void TSoundServerTest::secondStartChangesNothing()
{
    TStage stage;
    TLocalServer server(stage);
    server.PlayNow(SOUND_ERROR);
    server.Initialise();
    server.PlayNow(SOUND_ERROR);
    QCOMPARE(stage.built.load(), 1);
    QCOMPARE(stage.Played().size(), 2);
}

void TSoundServerTest::oldestRequestsFallOutOfAFullQueue()
{
    TStage stage;
    TLocalServer server(stage);
    for (int i = 1; i <= 12; ++i)
        server.PlaySound(SOUND_BUTTON_PRESS, i, SOUND_BUTTON_PRESS);
    QCoreApplication::processEvents();
    QVector<TPlayed> const played = stage.Played();
    QCOMPARE(played.size(), 8);
    QCOMPARE(played.constFirst().volume, 5);
    QCOMPARE(played.constLast().volume, 12);
}

void TSoundServerTest::requestThatWaitedTooLongIsDropped_data()
{
    QTest::addColumn<int>("waited");
    QTest::addColumn<int>("played");
    QTest::newRow("at once") << 0 << 2;
    QTest::newRow("just in time") << 500 << 2;
    QTest::newRow("too late") << 501 << 1;
}

void TSoundServerTest::requestThatWaitedTooLongIsDropped()
{
    QFETCH(int, waited);
    TManualClock clock;
    TStage stage;
    TLocalServer server(stage);
    server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    clock.Advance(waited);
    server.PlaySound(SOUND_SCREENSHOT, 50, SOUND_SCREENSHOT);
    QCoreApplication::processEvents();
    QTEST(stage.Played().size(), "played");
    QCOMPARE(stage.Played().constLast().sound, int(SOUND_SCREENSHOT));
}

void TSoundServerTest::manyThreadsAskAndTheOwnThreadPlays()
{
    constexpr int CALLERS = 4;
    constexpr int CALLS = 2000;
    TStage stage;
    QThread thread;
    auto* const server = new TSoundServer(nullptr, {}, OutputOn(stage));
    server->moveToThread(&thread);
    connect(&thread, &QThread::started, server, &TSoundServer::Initialise);
    thread.start();
    std::vector<std::unique_ptr<QThread>> callers;
    for (int i = 0; i < CALLERS; ++i)
    {
        callers.emplace_back(QThread::create(
            [server]
            {
                for (int call = 0; call < CALLS; ++call)
                    server->PlaySound(SOUND_BUTTON_PRESS, 1 + call % 90, SOUND_BUTTON_PRESS);
            }));
        callers.back()->start();
    }
    for (auto const& caller : callers)
        QVERIFY(caller->wait());
    server->PlaySound(SOUND_ERROR, 99, SOUND_ERROR);
    QTRY_VERIFY(!stage.Played().isEmpty() && stage.Played().constLast().sound == SOUND_ERROR);
    QVector<TPlayed> const played = stage.Played();
    for (TPlayed const& one : played)
        QCOMPARE(one.thread, &thread);
    server->deleteLater();
    thread.quit();
    QVERIFY(thread.wait());
}

void TSoundServerTest::missingPlugInGivesOneLogLineAndSilence()
{
    int asked = 0;
    TSoundServer server(nullptr, {},
                        [&asked](QString& reason)
                        {
                            ++asked;
                            reason = QStringLiteral("nothing to load");
                            return std::unique_ptr<ISoundOutput>();
                        });
    server.Initialise();
    for (int i = 0; i < 3; ++i)
    {
        server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
        QCoreApplication::processEvents();
    }
    QCOMPARE(asked, 1);
    QCOMPARE(m_Log->Entries(), QStringList{"The console stays silent: nothing to load"});
}

void TSoundServerTest::missingDeviceGivesOneLogLineAndSilence()
{
    TStage stage;
    stage.hasDevice = false;
    TLocalServer server(stage);
    for (int i = 0; i < 3; ++i)
        server.PlayNow(SOUND_ERROR);
    QCOMPARE(stage.opened.load(), 1);
    QCOMPARE(stage.Played().size(), 0);
    QCOMPARE(m_Log->Entries(), QStringList{"The console stays silent: no device"});
}

void TSoundServerTest::refusingDeviceGivesOneLogLine()
{
    TStage stage;
    stage.takesSounds = false;
    TLocalServer server(stage);
    server.PlayNow(SOUND_ERROR);
    server.PlayNow(SOUND_SCREENSHOT);
    QCOMPARE(stage.Played().size(), 2);
    QCOMPARE(m_Log->Entries(), QStringList{"The audio device does not play \"Error.wav\""});
}

void TSoundServerTest::fileInTheFolderIsPreferred()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("Error.wav"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(PlainWaveFile("mine"));
    file.close();
    TStage stage;
    TLocalServer server(stage, folder.path());
    server.PlayNow(SOUND_ERROR);
    QCOMPARE(stage.Played().constFirst().samples, QByteArray("mine"));
    QVERIFY(file.remove());
    server.PlayNow(SOUND_ERROR);
    QCOMPARE(stage.Played().constLast().samples, QByteArray("mine"));
}

void TSoundServerTest::missingFileIsReplacedInSilence()
{
    TStage stage;
    TLocalServer server(stage, QStringLiteral("/no/such/folder"));
    server.PlayNow(SOUND_SCREENSHOT);
    QCOMPARE(stage.Played().constFirst().samples, BuiltInSamples(SOUND_SCREENSHOT));
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSoundServerTest::uselessFileIsReplacedWithOneLogLine_data()
{
    using TMake = std::function<void(QString const&)>;
    auto const write = [](QByteArray const& bytes) -> TMake
    {
        return [bytes](QString const& path)
        {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(bytes), qint64(bytes.size()));
        };
    };
    QTest::addColumn<TMake>("make");
    QTest::newRow("empty") << write({});
    QTest::newRow("text") << write("no sound");
    QTest::newRow("too long") << write(PlainWaveFile(QByteArray(4 << 20, '\0')));
    QTest::newRow("folder") << TMake([](QString const& path) { QVERIFY(QDir().mkpath(path)); });
    QTest::newRow("pipe") << TMake([](QString const& path)
                                   { QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0); });
}

void TSoundServerTest::uselessFileIsReplacedWithOneLogLine()
{
    QFETCH(std::function<void(QString const&)>, make);
    QTemporaryDir folder;
    QString const path = folder.filePath("Error.wav");
    make(path);
    TStage stage;
    TLocalServer server(stage, folder.path());
    server.PlayNow(SOUND_ERROR);
    server.PlayNow(SOUND_ERROR);
    QCOMPARE(stage.Played().size(), 2);
    QCOMPARE(stage.Played().constFirst().samples, BuiltInSamples(SOUND_ERROR));
    QCOMPARE(m_Log->Entries(),
             QStringList{QStringLiteral("\"%1\" is not a sound that can be played").arg(path)});
}

void TSoundServerTest::serverDeletedOnItsThreadTakesItsOutputAlong()
{
    TStage stage;
    QThread thread;
    QPointer<TSoundServer> const server = new TSoundServer(nullptr, {}, OutputOn(stage));
    server->moveToThread(&thread);
    connect(&thread, &QThread::started, server.data(), &TSoundServer::Initialise);
    thread.start();
    server->PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    QTRY_COMPARE(stage.Played().size(), 1);
    server->PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    server->deleteLater();
    thread.quit();
    QVERIFY(thread.wait());
    QVERIFY(server.isNull());
    QCOMPARE(stage.deletedOn.load(), &thread);
}

void TSoundServerTest::serverOutlivesItsThread()
{
    TStage stage;
    TSoundServer server(nullptr, {}, OutputOn(stage));
    QThread thread;
    server.moveToThread(&thread);
    connect(&thread, &QThread::started, &server, &TSoundServer::Initialise);
    thread.start();
    server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    QTRY_COMPARE(stage.Played().size(), 1);
    thread.quit();
    QVERIFY(thread.wait());
    server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    QCOMPARE(stage.Played().size(), 1);
}

void TSoundServerTest::environmentSilencesWithoutALogLine()
{
    QCOMPARE(qgetenv("COMMONUI_SOUND"), QByteArray("none"));
    TSoundServer server(nullptr, {});
    server.Initialise();
    server.PlaySound(SOUND_ERROR, 50, SOUND_ERROR);
    QCoreApplication::processEvents();
    QCOMPARE(m_Log->Entries(), QStringList());
}

COMMONUI_TEST(TSoundServerTest)
#include "TSoundServerTest.moc"
