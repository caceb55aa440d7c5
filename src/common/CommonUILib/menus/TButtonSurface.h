#pragma once

#include "CommonUILibExport.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class TPushButton;

/// A surface with buttons on which a finger may slide: the one under the finger when it lifts is clicked,
/// whichever was pressed. On request a finger that rests shows the tool tip of the button beneath it. For a
/// strip of buttons that scrolls see TBaseToolBar.
///
/// A slot of a button may delete the surface. GUI thread only.
class COMMONUILIB_EXPORT TButtonSurface : public QWidget
{
    Q_OBJECT

public:
    /// A finger rests after \a intervalMs milliseconds; below 0 counts as 0.
    TButtonSurface(QWidget* parent, int intervalMs);
    ~TButtonSurface() override;

    /// Whether a resting or, in tool-tip mode, any finger shows tool tips. True at first.
    void EnableToolTips(bool enable);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    /// The child button at \a position, null for none.
    TPushButton* GetButtonUnderMouse(QPoint const& position) const;

private Q_SLOTS:
    void OnTimeout();

private:
    void RefreshToolTip();
    void ClickUnderFinger(TPushButton* button);
    void ForgetFinger();

    bool m_IsTouched = false; // from a press to its release, unless the surface was hidden meanwhile
    QPointer<TPushButton> m_First;
    QPointer<TPushButton> m_Last;
    QPointer<TPushButton> m_Current;
    bool m_HasRested = false;
    QTimer m_Timer;
    bool m_ToolTipsEnabled = true;
};
