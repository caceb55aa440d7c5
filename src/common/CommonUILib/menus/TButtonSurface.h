#pragma once

#include "CommonUILibExport.h"

#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class TPushButton;

/// A surface with buttons on which a finger may slide: the one that it has come to is clicked when it lifts.
/// One that was pressed and not left clicks itself. On request a finger that rests shows the tool tip of the
/// button beneath it. For a strip of buttons that scrolls see TBaseToolBar.
///
/// A button that comes under a finger at rest, as when others move up, is not clicked. A slide ends when the
/// button that was pressed is hidden or deleted. A slot of a button may delete the surface. GUI thread only.
class COMMONUILIB_EXPORT TButtonSurface : public QWidget
{
    Q_OBJECT

public:
    /// After how many milliseconds a finger rests as a rule.
    static constexpr int RestTime = 500;

    /// A finger rests after \a intervalMs milliseconds; below 0 counts as 0.
    TButtonSurface(QWidget* parent, int intervalMs);
    ~TButtonSurface() override;

    /// Whether a resting or, in tool-tip mode, any finger shows tool tips as it slides. True at first. A
    /// button that is pressed in tool-tip mode explains itself in any case.
    void EnableToolTips(bool enable);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// The child button at \a position, null for none.
    TPushButton* GetButtonUnderMouse(QPoint const& position) const;

private Q_SLOTS:
    void OnTimeout();
    void LoseFinger();

private:
    void SlideTo(TPushButton* button);
    void RefreshToolTip();
    void Watch(QWidget* button);
    bool HasComeTo(TPushButton const* button, QPoint const& place) const;
    void ClickUnderFinger(TPushButton* button);
    void ForgetFinger();
    void EndRest();

    bool m_IsTouched = false; // from a press to its release, unless the finger was lost meanwhile
    // Asked as widgets alone: one may be on its way out, and no button any more.
    QPointer<QWidget> m_First;
    QPointer<QWidget> m_Last;
    QPointer<QWidget> m_Current;
    bool m_HasRested = false;
    QTimer m_Timer;
    bool m_ToolTipsEnabled = true;
    QPoint m_Place; // of the finger on the screen
};
