#include "TestCase.h"
#include "TestSupport.h"
#include "TestWaves.h"
#include "TSoundServer.h"

#include <QThread>

namespace
{
// A device of ALSA that writes what it hears to a file; the hint lets it be found.
char const* const FILE_DEVICE = R"(
pcm.!default { type file slave.pcm "nowhere" file "%1" format "raw" hint { show on description "file" } }
pcm.nowhere { type null }
ctl.!default { type hw card 0 }
)";

QtMessageHandler messageHandlerBefore = nullptr;

// Qt's plug-in for the sound daemon complains of its absence, which depends on the machine and is not ours to
// judge.
void HandleMessage(QtMsgType type, QMessageLogContext const& context, QString const& message)
{
    if (!message.startsWith(QLatin1String("PulseAudioService")))
        messageHandlerBefore(type, context, message);
}

/// Plays through the library that Qt Multimedia stands behind, on a thread of its own as the screen does.
class TStudio
{
public:
    explicit TStudio(QString const& soundFolder)
        : m_Server(new TSoundServer(nullptr, soundFolder))
    {
        m_Server->moveToThread(&m_Thread);
        QObject::connect(&m_Thread, &QThread::started, m_Server, &TSoundServer::Initialise);
        m_Thread.start();
    }
    ~TStudio()
    {
        m_Server->deleteLater();
        m_Thread.quit();
        m_Thread.wait();
    }
    TStudio(TStudio const&) = delete;
    TStudio& operator=(TStudio const&) = delete;

    /// Returns when the sound thread has done all that was asked for so far.
    void Settle()
    {
        QMetaObject::invokeMethod(
            m_Server, [] {}, Qt::BlockingQueuedConnection);
    }

    void Play(int sound, int volume) { m_Server->PlaySound(sound, volume, static_cast<ESoundType>(sound)); }

private:
    QThread m_Thread;
    TSoundServer* m_Server;
};

QByteArray Content(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteFile(QString const& path, QByteArray const& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

// A quarter of a second in which no two samples are alike.
QByteArray Ramp()
{
    QByteArray samples;
    for (qint16 i = 1; i < 2000; ++i)
        samples += LittleEndian<qint16>(i);
    return samples;
}
} // namespace

/// The real way out: no sound daemon is reachable, and ALSA is given the devices of the test.
class TMultimediaOutputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { qInstallMessageHandler(messageHandlerBefore); }
    void machineWithoutADeviceIsSilentWithOneLogLine();
    void samplesOfTheSoundReachTheDevice();
    void soundThatStillPlaysStartsAnew();
    void serverDeletedWhileItPlaysIsClean();

private:
    void UseDevices(QByteArray const& configuration);

    QTemporaryDir m_Folder;
};

void TMultimediaOutputTest::initTestCase()
{
    qunsetenv("COMMONUI_SOUND");
    qputenv("PULSE_SERVER", "unix:/no/such/socket");
    messageHandlerBefore = qInstallMessageHandler(HandleMessage);
}

void TMultimediaOutputTest::UseDevices(QByteArray const& configuration)
{
    QString const path = m_Folder.filePath(QString::fromLatin1(QTest::currentTestFunction()) + ".conf");
    QVERIFY(WriteFile(path, configuration));
    qputenv("ALSA_CONFIG_PATH", path.toLocal8Bit());
}

void TMultimediaOutputTest::machineWithoutADeviceIsSilentWithOneLogLine()
{
    UseDevices("");
    TTestUserLog log;
    TStudio studio({});
    studio.Play(SOUND_ERROR, 50);
    QTRY_COMPARE(log.Entries(), QStringList{"The console stays silent: no audio device"});
    studio.Play(SOUND_ERROR, 50);
    studio.Settle();
    QCOMPARE(log.Entries().size(), 1);
}

void TMultimediaOutputTest::samplesOfTheSoundReachTheDevice()
{
    QString const heard = m_Folder.filePath("heard.raw");
    UseDevices(QByteArray(FILE_DEVICE).replace("%1", heard.toLocal8Bit()));
    QByteArray const samples = Ramp();
    QVERIFY(WriteFile(m_Folder.filePath("Error.wav"), PlainWaveFile(samples)));
    TTestUserLog log;
    TStudio studio(m_Folder.path());
    studio.Play(SOUND_ERROR, 100);
    QTRY_VERIFY(Content(heard).contains(samples));
    QCOMPARE(log.Entries(), QStringList());
}

void TMultimediaOutputTest::soundThatStillPlaysStartsAnew()
{
    QString const heard = m_Folder.filePath("twice.raw");
    UseDevices(QByteArray(FILE_DEVICE).replace("%1", heard.toLocal8Bit()));
    QByteArray const samples = Ramp();
    QVERIFY(WriteFile(m_Folder.filePath("Error.wav"), PlainWaveFile(samples)));
    TTestUserLog log;
    TStudio studio(m_Folder.path());
    studio.Play(SOUND_ERROR, 100);
    QTRY_VERIFY(!Content(heard).isEmpty());
    // The device begins a new file when it is opened again.
    QVERIFY(QFile::remove(heard));
    studio.Play(SOUND_ERROR, 100);
    QTRY_VERIFY(Content(heard).contains(samples));
    QCOMPARE(log.Entries(), QStringList());
}

void TMultimediaOutputTest::serverDeletedWhileItPlaysIsClean()
{
    QString const heard = m_Folder.filePath("cut.raw");
    UseDevices(QByteArray(FILE_DEVICE).replace("%1", heard.toLocal8Bit()));
    TTestUserLog log;
    {
        TStudio studio({});
        studio.Play(SOUND_ALARM_CRITICAL, 100);
        QTRY_VERIFY(!Content(heard).isEmpty());
    }
    QCOMPARE(log.Entries(), QStringList());
}

COMMONUI_TEST(TMultimediaOutputTest)
#include "TMultimediaOutputTest.moc"
