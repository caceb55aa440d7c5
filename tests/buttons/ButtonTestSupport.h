#pragma once

#include "MainScreen.h"
#include "MorvanePlatformInterface.h"
#include "PixmapManager.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QImage>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QWidget>
#include <QWindow>

/// Keeps what was asked for instead of playing it.
class TRecordingSounds : public TSoundServer
{
public:
    TRecordingSounds()
        : TSoundServer(nullptr, QString())
    {
    }
    void PlaySound(int sound, int, ESoundType) override { played.append(sound); }

    QVector<int> played;
};

/// The screen that gives buttons their art and their sound; in force while the object lives. It adds
/// single-coloured images.
class TTestScreen : public TScreen
{
public:
    TTestScreen()
        : m_MainScreen(MainScreen, this)
    {
        m_Config.Write(CONFIG_SOUND_ENABLED, true, false);
    }
    TSoundServer* GetSoundServerPtr() const override { return &m_Sounds; }
    QVector<int> const& Played() const { return m_Sounds.played; }

    /// Registers an image of one colour.
    QString AddImage(QString const& name, QColor const& colour, QSize const& size = QSize(20, 20))
    {
        QImage image(size, colour.alpha() == 255 ? QImage::Format_RGB32 : QImage::Format_ARGB32);
        image.fill(colour);
        QString const path = m_Folder.filePath(name + QStringLiteral(".png"));
        [&] { QVERIFY(image.save(path)); }();
        GetPixmapManager()->AddPixmap(name, path, 0, 0, 0, 0, false, 1.0F);
        return name;
    }

    TTestConfig& Config() { return m_Config; }

private:
    TTestConfig m_Config;
    TScopedValue<TScreen*> m_MainScreen;
    mutable TRecordingSounds m_Sounds;
    QTemporaryDir m_Folder;
};

/// A platform that only notes what it is asked.
class TRecordingPlatform : public MorvanePlatformInterface
{
public:
    void ShowPopupWindow(TPopupWindow*, bool) override {}
    void ShowTaskWindow(TTaskWindow*, bool) override {}
    void ShowAnnotation(QWidget*, KVN::IAnnotationHandler*, QWidget*) override {}
    void HideAnnotation(QWidget*) override {}
    bool ToolTipVisible() const override { return m_Mode; }
    bool IsToolTipShownFor(QWidget* source) const override { return source && source == shownFor; }
    void ShowToolTipFor(QWidget* source, int place, QString const& toolTip,
                        QSharedPointer<QPixmap> picture) override
    {
        shownFor = source;
        placement = place;
        text = toolTip;
        icon = picture;
    }
    void HideToolTip() override
    {
        shownFor = nullptr;
        ++hidden;
    }
    QWidget* GetTopLevelWindow() const override { return nullptr; }

    void SetMode(bool on)
    {
        m_Mode = on;
        Q_EMIT NotifyToolTipsEnabled(on);
    }

    QWidget* shownFor = nullptr;
    int placement = -1;
    QString text;
    QSharedPointer<QPixmap> icon;
    int hidden = 0;

private:
    bool m_Mode = false;
};

/// A window that notes the mouse events it gets.
class TListeningWindow : public QWidget
{
public:
    explicit TListeningWindow(QSize const& size = QSize(400, 300))
    {
        resize(size);
        setAutoFillBackground(true);
        setPalette(QPalette(Qt::blue));
    }
    void Expose()
    {
        show();
        [this] { QVERIFY(QTest::qWaitForWindowExposed(this)); }();
    }

    QVector<QEvent::Type> heard;

protected:
    void mousePressEvent(QMouseEvent* event) override { heard.append(event->type()); }
    void mouseMoveEvent(QMouseEvent* event) override { heard.append(event->type()); }
    void mouseReleaseEvent(QMouseEvent* event) override { heard.append(event->type()); }
};

/// The operator's finger on a window, at window coordinates; it goes the way of the events of a real screen.
class TFinger
{
public:
    explicit TFinger(QWidget& window)
        : m_Window(window)
    {
    }
    void Press(QPoint const& at) const { QTest::mousePress(m_Window.windowHandle(), Qt::LeftButton, {}, at); }
    void Move(QPoint const& at) const { QTest::mouseMove(m_Window.windowHandle(), at); }
    void Release(QPoint const& at) const
    {
        QTest::mouseRelease(m_Window.windowHandle(), Qt::LeftButton, {}, at);
    }
    void Tap(QPoint const& at) const
    {
        Press(at);
        Release(at);
    }
    QPoint MiddleOf(QWidget const& widget) const { return widget.mapTo(&m_Window, widget.rect().center()); }
    void Tap(QWidget const& widget) const { Tap(MiddleOf(widget)); }

private:
    QWidget& m_Window;
};
