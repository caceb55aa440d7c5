#pragma once

#include "ConfigManager.h"
#include "TLocalTime.h"
#include "TMemoryConfigManager.h"
#include "TSoundServer.h"
#include "TSystemSettingsProxy.h"
#include "UserLog.h"

#include <QMutex>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/// A clock that a test holds in its hand, in force while the object lives.
class TManualClock
{
public:
    explicit TManualClock(qint64 now = 1000000)
        : m_Now(now)
    {
        TLocalTime::SetClock([this] { return m_Now; });
    }
    ~TManualClock() { TLocalTime::SetClock({}); }
    TManualClock(TManualClock const&) = delete;
    TManualClock& operator=(TManualClock const&) = delete;

    void Advance(qint64 ms) { m_Now += ms; }
    qint64 Now() const { return m_Now; }

private:
    qint64 m_Now;
};

/// Fresh settings in memory, in force while the object lives.
class TTestConfig : public TMemoryConfigManager
{
public:
    TTestConfig()
        : m_Before(Install(this))
    {
    }
    ~TTestConfig() override { Install(m_Before); }

private:
    ConfigManager* m_Before;
};

/// A USB stick in a temporary folder that a test inserts and pulls; in force while the object lives.
class TTestDrives : public TSystemSettingsProxy
{
public:
    TTestDrives()
        : m_Before(Install(this))
    {
    }
    ~TTestDrives() override { Install(m_Before); }

    void Insert() { m_Present = true; }
    void Pull() { m_Present = false; }
    QString StickPath() const { return m_Stick.path(); }

    bool IsExternalDrivePresent() const override { return m_Present; }
    bool GetExternalDrivePath(QString& path) const override
    {
        if (m_Present)
            path = m_Stick.path();
        return m_Present;
    }

private:
    TSystemSettingsProxy* m_Before;
    QTemporaryDir m_Stick;
    bool m_Present = false;
};

/// Keeps what is written to the operator's log, from any thread, while the object lives.
class TTestUserLog
{
public:
    TTestUserLog()
        : m_Recorder(std::make_shared<TRecorder>())
        , m_Before(SetUserLog(m_Recorder))
    {
    }
    ~TTestUserLog() { SetUserLog(m_Before); }
    TTestUserLog(TTestUserLog const&) = delete;
    TTestUserLog& operator=(TTestUserLog const&) = delete;

    QStringList Entries() const
    {
        QMutexLocker const locker(&m_Recorder->mutex);
        return m_Recorder->entries;
    }

private:
    struct TRecorder : IUserLogAccessor
    {
        void AddEntry(QString const& text) override
        {
            QMutexLocker const locker(&mutex);
            entries += text;
        }

        QMutex mutex;
        QStringList entries;
    };

    std::shared_ptr<TRecorder> m_Recorder;
    UserLogAccessorPtr m_Before;
};

/// Sets one value for the lifetime of the object and puts the old one back.
template<typename T>
class TScopedValue
{
public:
    TScopedValue(T& variable, T value)
        : m_Variable(variable)
        , m_Before(variable)
    {
        variable = value;
    }
    ~TScopedValue() { m_Variable = m_Before; }
    TScopedValue(TScopedValue const&) = delete;
    TScopedValue& operator=(TScopedValue const&) = delete;

private:
    T& m_Variable;
    T m_Before;
};
