#pragma once

#include "TCanvas.h"
#include "TMiniWindow.h"
#include "TModalWidget.h"
#include "TNavigationBar.h"
#include "TOffScreenButtons.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TWindow.h"

#include <QtTest>

/// The layers of a screen as they stand. Only what is seen counts: the place of a hidden widget is nobody's
/// business.
class TScreenLayers
{
public:
    explicit TScreenLayers(TScreen const& screen)
        : m_Screen(screen)
    {
        for (QObject* const child : screen.children())
        {
            auto* const widget = qobject_cast<QWidget*>(child);
            if (widget && !widget->isWindow() && !widget->isHidden())
                m_Shown.append(widget);
        }
    }

    /// The first thing that is not as it must be; empty when all is well.
    QString Fault() const
    {
        for (QString const& fault : {CanvasFault(), MiniWindowFault(), SystemToolBarFault(), LockFault(),
                                     AlarmFault(), StripFault(), ToolTipFault()})
        {
            if (!fault.isEmpty())
                return fault;
        }
        return {};
    }

    /// Whether both are seen, \a upper above \a lower.
    bool IsAbove(QWidget const* upper, QWidget const* lower) const
    {
        int const low = Layer(lower);
        return low >= 0 && Layer(upper) > low;
    }

    /// Whether both are seen, with nothing seen between them.
    bool IsDirectlyAbove(QWidget const* upper, QWidget const* lower) const
    {
        return IsAbove(upper, lower) && Layer(upper) == Layer(lower) + 1;
    }

    /// What is seen above all else.
    QWidget* Top() const { return m_Shown.value(m_Shown.size() - 1); }

    int Layer(QWidget const* widget) const { return m_Shown.indexOf(const_cast<QWidget*>(widget)); }

private:
    QString CanvasFault() const
    {
        QWidget const* const canvas = m_Screen.GetCurrentCanvas();
        return Layer(canvas) > 0 ? QStringLiteral("the canvas is not the lowest") : QString();
    }

    // A mini window slides from behind the bar.
    QString MiniWindowFault() const
    {
        auto const bars = Bars();
        for (QWidget const* const bar : bars)
        {
            for (QWidget* const widget : m_Shown)
            {
                if (qobject_cast<TMiniWindow*>(widget) && IsAbove(widget, bar))
                    return QStringLiteral("a mini window is above a bar");
            }
        }
        return {};
    }

    // Free, it is above the navigation bars and the fade; under a global lock all bars are behind the fade.
    QString SystemToolBarFault() const
    {
        QWidget const* const systemBar = m_Screen.GetSystemToolBar();
        if (Layer(systemBar) < 0)
            return {};
        bool const isBehindTheFade = IsAbove(m_Screen.GetModalWidget(), systemBar);
        if (m_Screen.AreAllToolbarsLocked())
            return isBehindTheFade ? QString()
                                   : QStringLiteral("the locked system tool bar is above the fade");
        if (isBehindTheFade)
            return QStringLiteral("the free system tool bar is behind the fade");
        auto const bars = Bars();
        for (QWidget const* const bar : bars)
        {
            if (IsAbove(bar, systemBar))
                return QStringLiteral("the navigation bar is above the system tool bar");
        }
        return {};
    }

    QString LockFault() const
    {
        QWidget const* const fade = m_Screen.GetModalWidget();
        QVector<TLockingWidget> const& locks = m_Screen.GetLockingWidgets();
        if (fade->isHidden() != locks.isEmpty())
            return locks.isEmpty() ? QStringLiteral("there is a fade without a lock")
                                   : QStringLiteral("there is a lock without a fade");
        if (locks.isEmpty())
            return m_Screen.AreAllToolbarsLocked() ? QStringLiteral("the bars are locked by nobody")
                                                   : QString();
        bool const isGlobal = std::any_of(locks.begin(), locks.end(),
                                          [](TLockingWidget const& lock) { return lock.lockToolbars; });
        if (isGlobal != m_Screen.AreAllToolbarsLocked())
            return QStringLiteral("the bars are not locked as the locks have it");
        if (m_Screen.GetModalWidget()->GetModalData().widget != locks.constLast().widget)
            return QStringLiteral("the fade is for another widget than the last one");
        return StackFault(fade, locks.constLast().widget);
    }

    QString StackFault(QWidget const* fade, QWidget const* last) const
    {
        if (Layer(last) >= 0 && !IsDirectlyAbove(last, fade))
            return QStringLiteral("the fade is not directly below the locking widget");
        auto const bars = Bars();
        for (QWidget const* const bar : bars)
        {
            if (Layer(bar) > Layer(fade))
                return QStringLiteral("a bar is above the fade");
        }
        for (QWidget* const widget : m_Shown)
        {
            if (qobject_cast<TMiniWindow*>(widget) && widget != last && IsAbove(widget, fade))
                return QStringLiteral("a mini window is above the fade");
        }
        return {};
    }

    QString AlarmFault() const
    {
        QWidget const* const alarm = m_Screen.GetAlarmWidget();
        if (Layer(alarm) < 0)
            return {};
        for (QWidget* const widget : m_Shown)
        {
            if (IsAbove(widget, alarm) && !widget->inherits("TToolTip") &&
                widget != m_Screen.GetOffScreenButtons())
                return QStringLiteral("a %1 is above the alarm")
                    .arg(QLatin1String(widget->metaObject()->className()));
        }
        return {};
    }

    QString StripFault() const
    {
        QWidget const* const strip = m_Screen.GetOffScreenButtons();
        if (Layer(strip) < 0)
            return {};
        for (QWidget* const widget : m_Shown)
        {
            if (IsAbove(widget, strip) && !widget->inherits("TToolTip"))
                return QStringLiteral("a %1 is above the off-screen buttons")
                    .arg(QLatin1String(widget->metaObject()->className()));
        }
        return {};
    }

    QString ToolTipFault() const
    {
        for (int i = 0; i < m_Shown.size() - 1; ++i)
        {
            if (m_Shown[i]->inherits("TToolTip") && !m_Shown[i + 1]->inherits("TToolTip"))
                return QStringLiteral("something is above the tool tip");
        }
        return {};
    }

    QVector<QWidget const*> Bars() const
    {
        QVector<QWidget const*> bars;
        for (QWidget const* const bar : {static_cast<QWidget const*>(m_Screen.GetNavigationBar()),
                                         static_cast<QWidget const*>(m_Screen.GetSpecialNavigationBar())})
        {
            if (Layer(bar) >= 0)
                bars.append(bar);
        }
        return bars;
    }

    TScreen const& m_Screen;
    QVector<QWidget*> m_Shown; // bottom to top
};

/// Fails the test unless the layers of \a screen are in order.
#define VERIFY_LAYERS(screen)                                                                                \
    do                                                                                                       \
    {                                                                                                        \
        QString const layerFault = TScreenLayers(screen).Fault();                                            \
        QVERIFY2(layerFault.isEmpty(), qPrintable(layerFault));                                              \
    } while (false)
