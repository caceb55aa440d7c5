#pragma once

#include "IAnnotationHandler.h"
#include "MainScreen.h"
#include "TScreen.h"
#include "TTestPlatform.h"

#include <QPointer>
#include <QVector>

#include <algorithm>

/// A platform that shows annotations at once, on the main screen or on another window, where their handlers
/// say, and gives them back when they are hidden. It follows no source: a test that moves one says so to the
/// handler.
class TAnnotatingPlatform : public TTestPlatform
{
public:
    /// On the main screen if \a window is null.
    explicit TAnnotatingPlatform(QWidget* window = nullptr)
        : m_Window(window)
    {
    }

    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) override
    {
        m_Source = source;
        HideAnnotation(widget);
        m_Shown.append({widget, widget->parentWidget(), widget->windowFlags()});
        m_Widget = widget;
        QWidget* const window = m_Window ? m_Window.data() : MainScreen;
        widget->setParent(window);
        widget->raise();
        QPointer<QWidget> const shown(widget);
        widget->show();
        if (shown && handler)
            widget->move(handler->Position(window));
    }
    void HideAnnotation(QWidget* widget) override
    {
        auto const found = std::find_if(m_Shown.begin(), m_Shown.end(),
                                        [widget](TShown const& shown) { return shown.widget == widget; });
        if (!widget || found == m_Shown.end())
            return;
        TShown const hidden = *found;
        m_Shown.erase(found);
        m_Widget = m_Shown.isEmpty() ? nullptr : m_Shown.constLast().widget;
        hidden.widget->hide();
        if (hidden.widget)
            hidden.widget->setParent(hidden.formerParent, hidden.formerFlags);
    }

    /// The annotation that is up, the latest one if there are more, and the source of the latest.
    QPointer<QWidget> m_Widget;
    QPointer<QWidget> m_Source;

private:
    struct TShown
    {
        QPointer<QWidget> widget;
        QPointer<QWidget> formerParent;
        Qt::WindowFlags formerFlags;
    };

    QPointer<QWidget> const m_Window;
    QVector<TShown> m_Shown;
};
