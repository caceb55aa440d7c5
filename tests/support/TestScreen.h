#pragma once

#include "MainScreen.h"
#include "TestSupport.h"
#include "TScreen.h"
#include "TSystemSettings.h"
#include "TWindowManager.h"

#include <QApplication>
#include <QtTest>

/// A sound server that only notes what is asked for.
class TRecordingSoundServer : public TSoundServer
{
public:
    TRecordingSoundServer()
        : TSoundServer(nullptr, QString())
    {
    }

    void PlaySound(int sound, int volume, ESoundType type) override
    {
        m_Sounds.append(sound);
        m_Volumes.append(volume);
        m_Types.append(type);
    }

    QVector<int> m_Sounds;
    QVector<int> m_Volumes;
    QVector<int> m_Types;
};

/// A screen whose sounds are noted instead of played.
class TSilentScreen : public TScreen
{
public:
    TSoundServer* GetSoundServerPtr() const override { return &m_Recorder; }

    mutable TRecordingSoundServer m_Recorder;
};

/// The internal drive in a temporary folder while the object lives.
class TTestInternalDrive
{
public:
    TTestInternalDrive() { TSystemSettings::SetInternalDrivePath(m_Folder.path()); }
    ~TTestInternalDrive() { TSystemSettings::SetInternalDrivePath(QString()); }
    TTestInternalDrive(TTestInternalDrive const&) = delete;
    TTestInternalDrive& operator=(TTestInternalDrive const&) = delete;

    QString Path() const { return m_Folder.path() + QLatin1Char('/'); }

private:
    QTemporaryDir m_Folder;
};

/// A console's screen, stored in MainScreen and set up, on settings, drives and a clock of its own. Frames
/// and updates come only when a test asks for them. Everything is put back when the object goes.
class TTestScreen
{
public:
    explicit TTestScreen(bool show = true)
        : m_Screen(new TSilentScreen)
    {
        MainScreen = m_Screen;
        m_Screen->Setup();
        // The first frame only notes the time. From then on the clock stands still but for Frame(), so that
        // the manager's own timer moves nothing.
        Manager()->OnNextFrame();
        if (show)
            m_Screen->show();
    }
    ~TTestScreen() { delete m_Screen.data(); }
    TTestScreen(TTestScreen const&) = delete;
    TTestScreen& operator=(TTestScreen const&) = delete;

    TSilentScreen* operator->() const { return m_Screen; }
    TSilentScreen* get() const { return m_Screen; }
    TWindowManager* Manager() const { return m_Screen->GetWindowManager(); }

    /// Lets \a ms pass and draws one frame.
    void Frame(int ms)
    {
        m_Clock.Advance(ms);
        Manager()->OnNextFrame();
    }
    /// Lets every slide come to its end.
    void FinishSlides()
    {
        for (int i = 0; i < 12; ++i)
            Frame(20);
    }

    TTestInternalDrive m_Drive;
    TTestConfig m_Config;
    TTestDrives m_Drives;
    TManualClock m_Clock;

private:
    QPointer<TSilentScreen> m_Screen;
};
