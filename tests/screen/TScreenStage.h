#pragma once

#include "ScreenLayers.h"
#include "TestScreen.h"
#include "TToolTip.h"

/// A shown screen with a canvas, its bars and, on demand, windows, an alarm and a tool tip.
class TScreenStage
{
public:
    TScreenStage()
        : canvas(new TCanvas(screen.get()))
    {
        screen->SetCurrentCanvas(canvas, true);
    }
    ~TScreenStage()
    {
        for (QPointer<QWidget> const& widget : qAsConst(m_Widgets))
            delete widget.data();
    }
    TScreenStage(TScreenStage const&) = delete;
    TScreenStage& operator=(TScreenStage const&) = delete;

    /// Deleted with the stage, if nobody did it before.
    template<typename TWidget>
    TWidget* Keep(TWidget* widget)
    {
        m_Widgets.append(widget);
        return widget;
    }

    /// A window on the screen.
    TWindow* Window()
    {
        auto* const window = Keep(new TWindow(screen.get()));
        window->setFixedSize(200, 100);
        window->ShowWindow(false);
        return window;
    }
    /// One that somebody raised above all.
    TWindow* RaisedWindow()
    {
        TWindow* const window = Window();
        window->raise();
        return window;
    }

    TWindow* Alarm()
    {
        auto* const alarm = Keep(new TWindow(nullptr));
        alarm->setFixedSize(616, 80);
        screen->SetAlarmWidget(alarm);
        alarm->ShowWindow(false);
        return alarm;
    }

    TToolTip* ToolTip()
    {
        auto* const toolTip = new TToolTip(screen.get());
        toolTip->setFixedSize(50, 20);
        toolTip->show();
        return toolTip;
    }

    /// \a window locks the screen with \a modalType.
    void Lock(QWidget* window, int modalType)
    {
        screen->AddLockingWidget({window, QString(), modalType, {}});
    }

    /// The widgets of the locks, the first one first.
    QList<QWidget*> Locks() const
    {
        QList<QWidget*> widgets;
        for (TLockingWidget const& lock : screen->GetLockingWidgets())
            widgets.append(lock.widget);
        return widgets;
    }

    TScreenLayers Layers() const { return TScreenLayers(*screen.get()); }
    TModalWidget* Fade() const { return screen->GetModalWidget(); }

    TTestScreen screen;
    TCanvas* canvas;

private:
    QVector<QPointer<QWidget>> m_Widgets;
};
