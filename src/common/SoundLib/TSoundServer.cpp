#include "TSoundServer.h"

#include "ISoundOutput.h"
#include "TLocalTime.h"
#include "TWave.h"
#include "UserLog.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLibrary>
#include <QMutex>
#include <QTimer>
#include <QVector>

#include <dlfcn.h>

#include <utility>

ISoundOutput::~ISoundOutput() = default;

namespace
{
constexpr int MAX_WAITING = 8;
constexpr qint64 MAX_AGE_MS = 500;
constexpr int MAX_VOLUME = 100;
// By then the first picture is on the screen, and the operator has hardly pressed a button.
constexpr int PREPARE_DELAY_MS = 2000;
constexpr qint64 MAX_FILE_BYTES = 4 << 20;

struct TRequest
{
    int sound;
    int volume;
    qint64 time;
};

class TSilentOutput : public ISoundOutput
{
public:
    bool Open(QString&) override { return true; }
    bool Play(int, TWave const&, int) override { return true; }
};

QString FolderOfThisLibrary()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<void const*>(&SoundFileName), &info) == 0)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

std::unique_ptr<ISoundOutput> LoadOutput(QString& reason)
{
    if (qEnvironmentVariable("COMMONUI_SOUND") == QLatin1String("none"))
        return std::make_unique<TSilentOutput>();
    using TCreate = ISoundOutput* (*)();
    QLibrary library(FolderOfThisLibrary() + QStringLiteral("/commonui/SoundOutput"));
    auto const create = reinterpret_cast<TCreate>(library.resolve("CommonUICreateSoundOutput"));
    if (create != nullptr)
        return std::unique_ptr<ISoundOutput>(create());
    reason = library.errorString();
    return nullptr;
}

TWave ReadWave(QString const& path)
{
    QFile file(path);
    // Too long for a sound of the console; a pipe or a device in the file's place would block.
    if (!QFileInfo(path).isFile() || file.size() > MAX_FILE_BYTES || !file.open(QIODevice::ReadOnly))
        return {};
    return TWave::FromFileBytes(file.read(MAX_FILE_BYTES));
}

void Report(QString const& text)
{
    GetUserLog()->AddEntry(text);
}
} // namespace

class TSoundServer::TPrivate
{
public:
    TPrivate(QString const& soundFolder, TOutputFactory makeOutput)
        : m_SoundFolder(soundFolder)
        , m_MakeOutput(std::move(makeOutput))
    {
    }

    // Any thread. True when the sound thread has to be woken.
    bool Enqueue(TRequest const& request);

    // The sound thread alone.
    void PlayWaiting();
    void Prepare();
    bool Start() { return !std::exchange(m_IsStarted, true); }

private:
    QVector<TRequest> TakeWaiting();
    void Play(TRequest const& request);
    TWave const& WaveOf(int sound);
    TWave LoadWave(int sound) const;

    QMutex m_Mutex;
    QVector<TRequest> m_Waiting;
    bool m_IsWaking = false;

    QString const m_SoundFolder;
    TOutputFactory const m_MakeOutput;
    std::unique_ptr<ISoundOutput> m_Output;
    QHash<int, TWave> m_Waves;
    bool m_IsStarted = false;
    bool m_IsPrepared = false;
    bool m_HasRefused = false;
};

bool TSoundServer::TPrivate::Enqueue(TRequest const& request)
{
    QMutexLocker const locker(&m_Mutex);
    if (m_Waiting.size() == MAX_WAITING)
        m_Waiting.removeFirst();
    m_Waiting.append(request);
    return !std::exchange(m_IsWaking, true);
}

QVector<TRequest> TSoundServer::TPrivate::TakeWaiting()
{
    QMutexLocker const locker(&m_Mutex);
    m_IsWaking = false;
    return std::exchange(m_Waiting, {});
}

void TSoundServer::TPrivate::PlayWaiting()
{
    if (!m_IsStarted)
        return;
    QVector<TRequest> const requests = TakeWaiting();
    qint64 const now = TLocalTime::getCurrentTime();
    for (TRequest const& request : requests)
    {
        if (now - request.time <= MAX_AGE_MS)
            Play(request);
    }
}

void TSoundServer::TPrivate::Prepare()
{
    if (std::exchange(m_IsPrepared, true))
        return;
    QString reason;
    m_Output = m_MakeOutput(reason);
    if (m_Output && !m_Output->Open(reason))
        m_Output.reset();
    if (!m_Output)
        Report(QStringLiteral("The console stays silent: %1").arg(reason));
}

void TSoundServer::TPrivate::Play(TRequest const& request)
{
    Prepare();
    if (!m_Output)
        return;
    TWave const& wave = WaveOf(request.sound);
    if (wave.samples.isEmpty() || m_Output->Play(request.sound, wave, request.volume))
        return;
    if (!std::exchange(m_HasRefused, true))
        Report(QStringLiteral("The audio device does not play \"%1\"")
                   .arg(QLatin1String(SoundFileName(request.sound))));
}

TWave const& TSoundServer::TPrivate::WaveOf(int sound)
{
    auto found = m_Waves.find(sound);
    if (found == m_Waves.end())
        found = m_Waves.insert(sound, LoadWave(sound));
    return *found;
}

TWave TSoundServer::TPrivate::LoadWave(int sound) const
{
    QString const name = QLatin1String(SoundFileName(sound));
    QString const path = m_SoundFolder + QLatin1Char('/') + name;
    if (!m_SoundFolder.isEmpty() && QFileInfo::exists(path))
    {
        TWave const wave = ReadWave(path);
        if (!wave.samples.isEmpty())
            return wave;
        Report(QStringLiteral("\"%1\" is not a sound that can be played").arg(path));
    }
    return ReadWave(QStringLiteral(":/Sounds/") + name);
}

TSoundServer::TSoundServer(QObject* parent, QString const& soundFolder)
    : TSoundServer(parent, soundFolder, LoadOutput)
{
}

TSoundServer::TSoundServer(QObject* parent, QString const& soundFolder, TOutputFactory makeOutput)
    : QObject(parent)
    , m_Private(std::make_unique<TPrivate>(soundFolder, std::move(makeOutput)))
{
}

TSoundServer::~TSoundServer() = default;

void TSoundServer::PlaySound(int sound, int volume, ESoundType type)
{
    Q_UNUSED(type)
    int const heldVolume = qBound(0, volume, MAX_VOLUME);
    if (SoundFileName(sound) == nullptr || heldVolume == 0)
        return;
    if (m_Private->Enqueue({sound, heldVolume, TLocalTime::getCurrentTime()}))
        QMetaObject::invokeMethod(
            this, [this] { m_Private->PlayWaiting(); }, Qt::QueuedConnection);
}

void TSoundServer::Initialise()
{
    if (!m_Private->Start())
        return;
    m_Private->PlayWaiting();
    QTimer::singleShot(PREPARE_DELAY_MS, this, [this] { m_Private->Prepare(); });
}
