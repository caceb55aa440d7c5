#pragma once

#include "CommonUILibExport.h"

#include <QPoint>
#include <QPointer>
#include <QSharedPointer>
#include <QWidget>

class QHBoxLayout;
class QPixmap;
class QTimer;
class TPushButton;

/// A strip of large buttons below the lower edge of the screen. A swipe up from the edge brings it in; a
/// swipe down, a press beside it, one of its closing buttons or ten seconds without any of its buttons send
/// it away. For buttons that are there all the time see TSystemToolBar.
///
/// Modules reach it by TScreen::AddOffscreenButton(). The strip only asks: the window manager moves it. It
/// hears of touches through the screen, TScreen::AllMouseEvents(). GUI thread only.
class COMMONUILIB_EXPORT TOffScreenButtons : public QWidget
{
    Q_OBJECT

public:
    /// Hidden, below the lower edge of \a parent, the screen.
    explicit TOffScreenButtons(QWidget* parent);

    /// Takes \a button as a child at the right end of the strip. With \a closeOnClick a click sends the strip
    /// away: with \a slowHide it slides, else it is gone at once. Null is ignored; one that is there already
    /// goes to the right end, with the new behaviour.
    void AddOffScreenButton(TPushButton* button, bool closeOnClick, bool slowHide);
    /// Takes \a button off the strip, hidden and without a parent: the caller owns it. Nothing for an unknown
    /// one. A strip that is left empty goes away.
    void RemoveOffScreenButton(TPushButton* button);
    bool HasButtons() const;

    /// Whether a part of it is above the lower edge, also on its way in or out.
    bool IsOnScreen() const;

    /// \name Touches anywhere on the screen
    /// @{
    /// Arms a swipe, or dismisses the strip.
    void MousePress(QMouseEvent* event);
    void MouseRelease();
    /// A move that no other widget had a use for.
    void UnhandledMouseMove(QMouseEvent* event);
    /// @}

Q_SIGNALS:
    void ShowButtons();
    /// Without a slide.
    void QuickHideButtons();
    void HideButtons();

public Q_SLOTS:
    /// Asks for the strip unless it is there, and lets its ten seconds begin anew.
    void ShowOffScreenButtons();

protected:
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QPoint OnTheScreen(QMouseEvent const& event) const;
    bool IsArmed() const;
    void Dismiss();
    void Forget(QObject* button);

    QHBoxLayout* m_Layout = nullptr;
    QPoint m_DragStart; // null while no swipe is armed
    QTimer* m_HideTimer;
    qint64 m_ShownAt = 0;
    QSharedPointer<QPixmap> m_Frame;
};
