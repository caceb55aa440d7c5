#pragma once

#include <QPointer>
#include <QtTest>

/// A finger on a shown window. Its events go in where the window system's do, so that they reach the widget
/// beneath, are kept by the one that was pressed, and are offered to its parents. No event loop runs.
class TFinger
{
public:
    explicit TFinger(QWidget* window)
        : m_Window(window)
    {
    }
    ~TFinger()
    {
        if (m_Down)
            Lift();
    }
    TFinger(TFinger const&) = delete;
    TFinger& operator=(TFinger const&) = delete;

    /// All places are in the coordinates of the window and may lie outside it.
    void Press(QPoint const& place)
    {
        m_Down = true;
        Send(QEvent::MouseButtonPress, Qt::LeftButton, place);
    }
    void Move(QPoint const& place) { Send(QEvent::MouseMove, Qt::NoButton, place); }
    void Move(QList<QPoint> const& path)
    {
        for (QPoint const& place : path)
            Move(place);
    }
    void Lift()
    {
        m_Down = false;
        Send(QEvent::MouseButtonRelease, Qt::LeftButton, m_Place);
        // Far from the next press, which would be a double click else.
        QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval;
    }
    void Touch(QPoint const& place)
    {
        Press(place);
        Lift();
    }
    void Touch(QWidget* widget) { Touch(widget->mapTo(m_Window, widget->rect().center())); }

private:
    void Send(QEvent::Type type, Qt::MouseButton button, QPoint const& place)
    {
        m_Place = place;
        QWindow* const window = m_Window ? m_Window->windowHandle() : nullptr;
        if (!window)
            return;
        qt_handleMouseEvent(window, place, window->mapToGlobal(place), m_Down ? Qt::LeftButton : Qt::NoButton,
                            button, type, Qt::NoModifier, ++QTest::lastMouseTimestamp);
    }

    QPointer<QWidget> m_Window;
    QPoint m_Place;
    bool m_Down = false;
};
