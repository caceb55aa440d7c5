#pragma once

#include "MorvanePlatformInterface.h"

#include <QVector>

#include <functional>

/// A platform that notes which windows it is asked to show and how often to hide the tool tip, and does
/// neither.
class TTestPlatform : public MorvanePlatformInterface
{
public:
    struct TRequest
    {
        void* window;
        bool local;

        bool operator==(TRequest const& other) const
        {
            return window == other.window && local == other.local;
        }
    };

    void ShowPopupWindow(TPopupWindow* window, bool localWindow) override
    {
        m_Popups.append({window, localWindow});
    }
    void ShowTaskWindow(TTaskWindow* window, bool localWindow) override
    {
        m_TaskWindows.append({window, localWindow});
    }
    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) override
    {
        Q_UNUSED(widget)
        Q_UNUSED(handler)
        Q_UNUSED(source)
    }
    void HideAnnotation(QWidget* widget) override { Q_UNUSED(widget) }
    bool ToolTipVisible() const override { return false; }
    bool IsToolTipShownFor(QWidget* source) const override
    {
        Q_UNUSED(source)
        return false;
    }
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override
    {
        Q_UNUSED(source)
        Q_UNUSED(placement)
        Q_UNUSED(text)
        Q_UNUSED(icon)
    }
    void HideToolTip() override
    {
        ++m_HiddenToolTips;
        if (m_OnHideToolTip)
            m_OnHideToolTip();
    }
    QWidget* GetTopLevelWindow() const override { return nullptr; }

    QVector<TRequest> m_Popups;
    QVector<TRequest> m_TaskWindows;
    int m_HiddenToolTips = 0;
    std::function<void()> m_OnHideToolTip;
};
