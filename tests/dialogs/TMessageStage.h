#pragma once

#include "TCanvas.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TMessageDialog.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TScrollableTextContainer.h"
#include "TWindow.h"

#include <QLabel>
#include <QScrollBar>

/// A shown screen with a canvas, a finger and a wheel.
class TMessageStage
{
public:
    TMessageStage()
        : canvas(new TCanvas(screen.get()))
        , navigator(screen.get())
        , finger(screen.get())
    {
        screen->SetCurrentCanvas(canvas, true);
        screen->SetMMINavigator(&navigator);
    }
    TMessageStage(TMessageStage const&) = delete;
    TMessageStage& operator=(TMessageStage const&) = delete;

    /// A window on the screen, which owns it.
    TWindow* Window(QSize const& size)
    {
        auto* const window = new TWindow(screen.get());
        window->setFixedSize(size);
        window->ShowWindow(false);
        return window;
    }

    void Tick(qint64 ms = 100)
    {
        screen.m_Clock.Advance(ms);
        navigator.UpdateFocus();
    }
    /// Waits until a window that has just come up takes the wheel.
    void LetTheWheelSettle()
    {
        Tick(1000);
        Tick();
    }
    /// The keys do nothing before the first step.
    void WakeTheWheel()
    {
        navigator.OnWheelRight();
        navigator.OnWheelLeft();
        Tick();
    }
    void WheelRight(int steps = 1)
    {
        for (int i = 0; i < steps; ++i)
        {
            navigator.OnWheelRight();
            Tick();
        }
    }

    static TScrollableTextContainer* TextOf(TMessageDialog const& dialog)
    {
        return dialog.findChild<TScrollableTextContainer*>();
    }
    static QScrollBar* BarOf(TMessageDialog const& dialog) { return TextOf(dialog)->verticalScrollBar(); }
    static QLabel* PictureOf(TMessageDialog const& dialog)
    {
        return dialog.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    }
    /// A message of so many lines.
    static QString Lines(int count)
    {
        QStringList lines;
        for (int i = 0; i < count; ++i)
            lines << QStringLiteral("line %1").arg(i + 1);
        return lines.join(QLatin1Char('\n'));
    }

    TTestScreen screen;
    TCanvas* canvas;
    TMMICapableWidgetNavigator navigator;
    TFinger finger;
};
