#pragma once

#include "CommonUI.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TOffScreenButtons.h"
#include "TPushButton.h"
#include "TViewStage.h"

#include <QMouseEvent>
#include <QTimer>

/// Passes presses and releases on the window of a screen to it, as a host does.
class THostFilter : public QObject
{
public:
    explicit THostFilter(TScreen* screen)
        : m_Screen(screen)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        bool const isTouch =
            event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
        if (isTouch && m_Screen && watched == m_Screen->windowHandle())
            m_Screen->AllMouseEvents(static_cast<QMouseEvent*>(event));
        return false;
    }

private:
    QPointer<TScreen> m_Screen;
};

/// A shown screen with a strip of buttons below its lower edge, and touches that reach it.
struct TStripStage : TViewStage
{
    explicit TStripStage(int count = 1)
        : host(screen.get())
    {
        CommonUIOptions options = before;
        options.offScreenButtonsEnabled = true;
        CommonUI::SetCommonUIOptions(options);
        for (int i = 0; i < count; ++i)
            AddButton(false, false);
        strip = screen->GetOffScreenButtons();
    }
    ~TStripStage() { CommonUI::SetCommonUIOptions(before); }
    TStripStage(TStripStage const&) = delete;
    TStripStage& operator=(TStripStage const&) = delete;

    TPushButton* AddButton(bool closeOnClick, bool slowHide)
    {
        auto* const button = new TPushButton(nullptr, buttons.size(), QString());
        Own(button);
        screen->AddOffscreenButton(button, closeOnClick, slowHide);
        buttons.append(button);
        return button;
    }
    /// Up, at rest, and past the time in which a press beside it counts for nothing.
    void Raise()
    {
        strip->ShowOffScreenButtons();
        screen.FinishSlides();
        screen.Frame(1000);
    }
    QPoint MiddleOf(QWidget const* widget) const
    {
        return widget->mapTo(screen.get(), widget->rect().center());
    }
    QTimer* HideTimer() const { return strip->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }
    /// Nobody touched the strip for ten seconds.
    void LetTheTimeRunOut() const
    {
        HideTimer()->start(0);
        QTRY_VERIFY(!HideTimer()->isActive());
    }
    void Swipe(QPoint const& from, QPoint const& to)
    {
        finger.Press(from);
        finger.Move(to);
        finger.Lift();
    }

    CommonUIOptions before = CommonUI::GetCommonUIOptions();
    THostFilter host;
    QVector<TPushButton*> buttons;
    QPointer<TOffScreenButtons> strip;
};
