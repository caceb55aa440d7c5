#pragma once

#include "IAnnotationHandler.h"
#include "MainScreen.h"
#include "TScreen.h"
#include "TTestPlatform.h"

#include <QPointer>

#include <utility>

/// A platform that shows annotations on the main screen at once, where their handlers say. It follows no
/// source: a test that moves one says so to the handler.
class TAnnotatingPlatform : public TTestPlatform
{
public:
    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) override
    {
        m_Source = source;
        if (m_Widget != widget)
        {
            m_Widget = widget;
            m_FormerParent = widget->parentWidget();
            m_FormerFlags = widget->windowFlags();
        }
        widget->setParent(MainScreen);
        widget->raise();
        QPointer<QWidget> const shown(widget);
        widget->show();
        if (shown && handler)
            widget->move(handler->Position(MainScreen));
    }
    void HideAnnotation(QWidget* widget) override
    {
        if (!m_Widget || widget != m_Widget)
            return;
        m_Widget = nullptr;
        m_Source = nullptr;
        QPointer<QWidget> const hidden(widget);
        widget->hide();
        if (hidden)
            widget->setParent(m_FormerParent, m_FormerFlags);
    }

    /// The annotation that is up; the latest one if there are more.
    QPointer<QWidget> m_Widget;
    QPointer<QWidget> m_Source;

private:
    QPointer<QWidget> m_FormerParent;
    Qt::WindowFlags m_FormerFlags;
};
